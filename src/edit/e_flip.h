// Mirroring: axis 1 (up-down) mirrors y about cy, axis 2 (left-right) mirrors x about cx.
#pragma once

#include "model/ObjectFunctions.h"

/// list is where links to the object are followed; null for none.
void flip_line(CFigContext* ctx, FigObjectList* list, FigLine* line, int cx, int cy, int axis);
void flip_spline(CFigContext* ctx, FigObjectList* list, FigSpline* spline, int cx, int cy,
                 int axis);
/// Only the position: the text stays readable.
void flip_text(CFigContext* ctx, FigObjectList* list, FigText* text, int cx, int cy, int axis);
void flip_ellipse(CFigContext* ctx, FigObjectList* list, FigEllipse* ellipse, int cx, int cy,
                  int axis);
void flip_arc(CFigContext* ctx, FigObjectList* list, FigArc* arc, int cx, int cy, int axis);
void flip_compound(CFigContext* ctx, FigObjectList* list, FigCompound* compound, int cx, int cy,
                   int axis);
