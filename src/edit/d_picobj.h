// Tool for pictures: two opposite corners, then the picture's dialog.
#pragma once

class CFigContext;
class FigLine;
class FigObject;

void picobj_drawing_selected(CFigContext* ctx);
FigObject* init_picobj_drawing(CFigContext* ctx, int x, int y, FigObject*);
FigObject* create_picobj(CFigContext* ctx, int x, int y, FigObject*);
void cancel_picobj(CFigContext* ctx, int x, int y, FigObject*);

/// Size of a picture's box: figure units of its first and third point, without sign.
void get_box_dimension(FigLine* picture, int* width, int* height);
/// The same in pixels of the present view.
void get_box_dimension_scale_down(CFigContext* ctx, FigLine* picture, int* width, int* height);
/// Moves the third corner so that the box has that size, figure units. One undo step if the
/// picture is in the drawing; without a step otherwise.
void resizePic(CFigContext* ctx, FigLine* picture, int width, int height);
