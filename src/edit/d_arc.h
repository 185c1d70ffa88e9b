// Tool for arcs: three points of the arc.
#pragma once

#include "model/FigObjects.h"

class CFigContext;

extern FigPoint arcPoints[3]; ///< the clicks; valid only during the gesture

void arc_drawing_selected(CFigContext* ctx);
FigObject* init_arc_drawing(CFigContext* ctx, int x, int y, FigObject*);
FigObject* get_arcpoint(CFigContext* ctx, int x, int y, FigObject*);
void create_arcobject(CFigContext* ctx, int x, int y, FigObject*);
void cancel_arc_drawing(CFigContext* ctx, int x, int y, FigObject*);
