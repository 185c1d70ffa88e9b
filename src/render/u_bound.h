// Bounds of objects in figure units.
#pragma once

#include "model/ObjectFunctions.h"

#include <QRect>

class CFigContext;

void objectlist_bound(CFigContext* ctx, FigObjectList* list, int* xmin, int* ymin, int* xmax,
                      int* ymax, bool taggedOnly, bool includeDescent, bool exact);
void tagged_objects_bound(CFigContext* ctx, FigObjectList* list, int* xmin, int* ymin, int* xmax,
                          int* ymax);
void points_bound(CFigContext* ctx, FigPoint* first, int* xmin, int* ymin, int* xmax, int* ymax);
void approx_spline_bound(FigSpline* spline, int* xmin, int* ymin, int* xmax, int* ymax);
void general_spline_bound(FigSpline* spline, int* xmin, int* ymin, int* xmax, int* ymax);
/// Extends a box by the object's arrowheads as they are at the present zoom.
void arrow_bound(CFigContext* ctx, int objType, FigObject* object, int* xmin, int* ymin, int* xmax,
                 int* ymax);
void extendBounds(int* xmin, int* ymin, int* xmax, int* ymax, int by);
void extendBounds(long* xmin, long* ymin, long* xmax, long* ymax, long by);
void extendBounds(QRect* rect, long by);

/// Cheap test before exact work, box in figure units: false only if the object's exact bounds
/// certainly do not overlap the box, margins of check_overlap included, and nothing that drawing
/// paints at the present zoom lies in it. Touches no process-wide list.
bool mayTouchBox(CFigContext* ctx, FigObject* object, long x1, long y1, long x2, long y2);
/// The rectangle behind that test, in figure units, without the margins. False when nothing certain
/// can be said.
bool reachOfObject(CFigContext* ctx, FigObject* object, QRect* reach);
/// The same for a smaller one, which holds what drawing paints but perhaps not the exact bounds.
bool reachOfPaint(CFigContext* ctx, FigObject* object, QRect* reach);
