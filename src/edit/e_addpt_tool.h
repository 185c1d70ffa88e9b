// The tool that adds points: a press on an outline puts a point there, a drag moves it on. Adding
// and moving are one undo step; a click without a move leaves the point without a step.
#pragma once

class CFigContext;
class FigObject;

void point_adding_selected(CFigContext* ctx);
FigObject* init_add_point(CFigContext* ctx, int x, int y, FigObject*);
bool tagPointAdd_action(CFigContext* ctx, FigObject* object, int type, int x, int y, int px,
                        int py);
void init_linepointmovingAdd(CFigContext* ctx, int x, int y);
void init_splinepointmovingAdd(CFigContext* ctx, int x, int y);
void fix_movedlinepointAdd(CFigContext* ctx, int x, int y);
void fix_movedsplinepointAdd(CFigContext* ctx, int x, int y);
void cancel_point_adding(CFigContext* ctx, int x, int y, FigObject*);
void cancel_startPointAddDragging(CFigContext* ctx, int x, int y);
