// Moving single points: what the actions do to the object. Figure units; list is where the links
// to the object are followed, null for none.
#pragma once

#include "model/ObjectFunctions.h"

/// The closing copy of a polygon's first point moves along.
void relocate_linepoint(FigObjectList* list, FigLine* line, int dx, int dy, FigPoint* point);
/// All points of the box that share the point's old x or y move along, so it stays rectangular.
/// movedInX and movedInY receive them; either may be null.
void relocate_boxpoint(FigObjectList* list, FigLine* line, int dx, int dy, FigPoint* point,
                       QList<FigPoint*>* movedInX = nullptr, QList<FigPoint*>* movedInY = nullptr);
void relocate_splinepoint(FigObjectList* list, FigSpline* spline, int dx, int dy, FigPoint* point);
/// False, and nothing changed, where the points would lie on a line.
bool relocate_arcpoint(FigObjectList* list, FigArc* arc, int dx, int dy, int number);
/// number 0 is the start, 1 the end, -1 both ends by opposite ways.
void relocate_ellipsepoint(CFigContext* ctx, FigObjectList* list, FigEllipse* ellipse, int dx,
                           int dy, int number);
