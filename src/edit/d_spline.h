// Tool for the four kinds of spline: left clicks collect control points, a right click finishes.
#pragma once

class CFigContext;
class FigObject;

void spline_drawing_selected(CFigContext* ctx);
FigObject* init_spline_drawing(CFigContext* ctx, int x, int y, FigObject*);
void create_splineobject(CFigContext* ctx, int x, int y, FigObject*);
void cancel_spline_drawing(CFigContext* ctx, int x, int y, FigObject*); ///< no state installs it
