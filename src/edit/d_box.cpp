#include "edit/d_box.h"

#include "edit/d_create.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"

void box_drawing_selected(CFigContext*)
{
    wait_for_first_point(init_box_drawing);
}

FigObject* init_box_drawing(CFigContext* ctx, int x, int y, FigObject*)
{
    begin_gesture(ctx, x, y, resizing_box, create_boxobject, cancel_box_drawing);
    show_rubber_band(ctx, elastic_box);
    return nullptr;
}

FigObject* create_boxobject(CFigContext* ctx, int x, int y, FigObject*)
{
    draw_rubber_band(ctx, elastic_box);
    FigLine* box = createBoxFromCurrentAttrs(ctx);
    box->points = make_chain({{fix_x, fix_y}, {x, fix_y}, {x, y}, {fix_x, y}, {fix_x, fix_y}});
    add_created_object(ctx, box);
    box_drawing_selected(ctx);
    return box;
}

void cancel_box_drawing(CFigContext* ctx, int, int, FigObject*)
{
    draw_rubber_band(ctx, elastic_box);
    box_drawing_selected(ctx);
}
