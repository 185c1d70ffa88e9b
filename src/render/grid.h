// Grids: the table of built-in and custom ones, and the snap step.
#pragma once

#include <QColor>
#include <QString>
#include <QVector>

class CFigContext;

struct GridDefinition {
    QString name;
    QString statusTip; ///< %1 stands for the unit word
    QColor color;
    int penStyle;                    ///< Qt::PenStyle
    QString icon;                    ///< resource path
    float stepSize;                  ///< centimetres or inches, as the document's metric flag says
    double stepMetric, stepImperial; ///< the step in figure units
    double halfMetric, halfImperial;
};

constexpr int NUM_BUILTIN_GRIDS = 7;
/// Index is the grid index. Owned here; freed at the end of main.
extern QVector<GridDefinition*> gridDefinitions;

/// A grid with its four spacings computed from the step.
GridDefinition* makeGridDefinition(const QString& name, const QString& statusTip, float stepSize,
                                   const QColor& color, int penStyle, const QString& icon);
/// Builds the built-in table anew, once at start-up.
void loadGridDefinitions();
void destroyGridDefinitions();
bool isIsoGrid(int index);
constexpr double ISO_ASPECT = 0.8660254037844387; ///< of an isometric grid: columns to step
/// The context's grid; null with grid 0 and for an index that the table does not have.
const GridDefinition* activeGrid(CFigContext* ctx);
/// Snap step in figure units; 0.0 with grid 0.
double getGridRound(CFigContext* ctx);
/// Step and half step. With grid 0 only step is written, with 0.0.
void getGridRoundHalf(CFigContext* ctx, double* step, double* half);
/// Tells the context's grid in the status line.
void showGridInfo(CFigContext* ctx);

/// Side of a selection; 0 and unknown numbers are no side. Both NONE: no side is put on the grid.
using Orientation = int;
constexpr Orientation ORIENTATION_LEFT = 1;
constexpr Orientation ORIENTATION_TOP = 2;
constexpr Orientation ORIENTATION_RIGHT = 3;
constexpr Orientation ORIENTATION_BOTTOM = 4;
constexpr Orientation ORIENTATION_NONE = 5;

// Snapping, in figure units. Nothing changes with grid 0.
void roundCoords(CFigContext* ctx, int* x, int* y);
/// To a vertex of an object within five pixels, if the preferences want that. True on a hit.
bool roundCoordsToObjectPoint(CFigContext* ctx, int* x, int* y);
/// For a drag: puts sides of the selection on the grid.
void roundCoordsSnapCurObjectToGrid(CFigContext* ctx, Orientation horizontal, Orientation vertical,
                                    int* x, int* y);
/// Way to the next grid position of a side of the selection; at least a step if it is on the grid.
void snapObjectsToGrid(CFigContext* ctx, Orientation horizontal, Orientation vertical, int* dx,
                       int* dy);
/// What applies to a move or release by the snap mode, the command and the gesture.
void snapCursor(CFigContext* ctx, int* x, int* y);
/// What applies to a press.
void snapPress(CFigContext* ctx, int* x, int* y);

/// Lines over a viewport of that size in pixels.
void drawGrid(CFigContext* ctx, int width, int height);
/// By the size of the context's window.
void drawGrid(CFigContext* ctx);
/// Outline of the page, if the context shows it.
void drawPageborders(CFigContext* ctx);
