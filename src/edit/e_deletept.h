// Points that leave a chain. The point itself is not deleted.
#pragma once

#include "model/FigObjects.h"

/// A closed line keeps its closing copy true, if it was.
void deletePoint(FigLine* line, FigPoint* point);
/// previous is null for the first point. Returns the point's shape factor, which the caller owns;
/// null if there was none. The ends of an open spline keep factor 0.
FigShapeFactor* deletePoint(FigSpline* spline, FigPoint* previous, FigPoint* point);
