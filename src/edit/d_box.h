// Tool for boxes and arc-boxes: two opposite corners.
#pragma once

class CFigContext;
class FigObject;

void box_drawing_selected(CFigContext* ctx);
FigObject* init_box_drawing(CFigContext* ctx, int x, int y, FigObject*);
FigObject* create_boxobject(CFigContext* ctx, int x, int y, FigObject*);
void cancel_box_drawing(CFigContext* ctx, int x, int y, FigObject*);
