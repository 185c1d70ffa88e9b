// Figure units, pixels, user units and the page; texts of the coordinate read-out; centring.
#pragma once

#include <QString>

class CFigContext;

constexpr double UNITS_PER_CM = 472.440944;
constexpr double UNITS_PER_INCH = 1200.0;
constexpr double MAX_ZOOM = 99.99;
constexpr double MIN_ZOOM = 0.01;

/// Figure length to pixels, not rounded; single precision throughout.
float scaledX(CFigContext* ctx, int x);
float scaledY(CFigContext* ctx, int y);
/// Figure coordinate to device pixel of the present view.
int pixelX(CFigContext* ctx, int x);
int pixelY(CFigContext* ctx, int y);
/// Device pixel to figure coordinate; a negative pixel counts as 0.
int figureX(CFigContext* ctx, int px);
int figureY(CFigContext* ctx, int py);

/// Page size in whole centimetres, turned for landscape.
void getPagesizes(CFigContext* ctx, float* w, float* h);
/// Page size in figure units.
void getPagesizesPixels1200(CFigContext* ctx, int* w, int* h);
/// Typed value to figure units by the preferred unit; 0 for an unknown unit.
int convertToCoord(CFigContext* ctx, double value, bool horizontal);
/// Figure units to a user unit: 0 cm, 1 inch, 2 display pixel, 3 figure unit; other 0.0.
double convertToUnit(CFigContext* ctx, int value, int unit, int digits);
double convertToUnit(CFigContext* ctx, double value, int unit, int digits);
QString convertToUnitString(CFigContext* ctx, int value, int unit, int digits);
/// Texts of the coordinate panel. Nothing happens if any argument is null.
void printCoords(CFigContext* ctx, int x, int y, QString* xPixels, QString* xUnits,
                 QString* yPixels, QString* yUnits, QString* info1, QString* info2);
/// Shift that centres a figure point.
void getShift4Centering(CFigContext* ctx, int* shiftX, int* shiftY, int x, int y, float zoom);
/// Shift that keeps the view's centre on a zoom change.
void getShift4Centering(CFigContext* ctx, int* shiftX, int* shiftY, int oldShiftX, int oldShiftY,
                        float oldZoom, float newZoom);
/// Shift for half the figure's extent; 0, 0 for a figure without extent.
void getShift4CenteringFigure(CFigContext* ctx, int* shiftX, int* shiftY, float zoom);
