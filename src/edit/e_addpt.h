// Points that enter a chain.
#pragma once

#include "model/FigObjects.h"

/// Puts the point after `after`, or first for null; a polygon keeps its closing copy true.
/// Nothing if the point is in the chain already.
void addPoint(FigLine* line, FigPoint* after, FigPoint* point);
/// With a shape factor for it: the given one with its value, or a new one for null. The ends of an
/// open spline have factor 0.
void addPoint(FigSpline* spline, FigPoint* after, FigPoint* point, FigPoint* next,
              FigShapeFactor* factor = nullptr);
/// The two points that (x, y) lies between: null and the first for the first point; the last and
/// null when it lies nowhere.
void find_endpoints(FigPoint* first, int x, int y, FigPoint** left, FigPoint** right);
