#include "edit/d_arc.h"

#include "edit/d_create.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"
#include "edit/u_geom.h"
#include "model/FigContext.h"

FigPoint arcPoints[3];

namespace {

/// The line between two clicks, which stays on the canvas until the arc is made.
void drawLeg(CFigContext* ctx, const FigPoint& from, const FigPoint& to)
{
    elastic_line(ctx, from.x, from.y, to.x, to.y);
}

void storePoint(int number, int x, int y)
{
    arcPoints[number] = FigPoint(x, y);
    num_point = number + 1;
    note_edited_point(x, y);
}

/// Null for three points that no circle goes through.
FigArc* makeArc(CFigContext* ctx)
{
    float x = 0, y = 0;
    if (!compute_arccenter(arcPoints[0], arcPoints[1], arcPoints[2], &x, &y))
        return nullptr;
    FigArc* arc = createArcFromCurrentAttrs(ctx);
    arc->center_x = x;
    arc->center_y = y;
    for (int i = 0; i < 3; ++i)
        arc->point[i] = arcPoints[i];
    return arc;
}

} // namespace

void arc_drawing_selected(CFigContext*)
{
    wait_for_first_point(init_arc_drawing);
}

FigObject* init_arc_drawing(CFigContext* ctx, int x, int y, FigObject*)
{
    storePoint(0, x, y);
    begin_gesture(ctx, x, y, freehand_line, get_arcpoint, cancel_arc_drawing);
    show_rubber_band(ctx, elastic_line);
    return nullptr;
}

FigObject* get_arcpoint(CFigContext* ctx, int x, int y, FigObject*)
{
    if (x == fix_x && y == fix_y)
        return nullptr;
    if (num_point == 2) {
        create_arcobject(ctx, x, y, nullptr);
        return nullptr;
    }
    freehand_line(ctx, x, y); // stays on the canvas as the first leg
    anchor_gesture(x, y);
    storePoint(1, x, y);
    draw_rubber_band(ctx, elastic_line);
    return nullptr;
}

void create_arcobject(CFigContext* ctx, int x, int y, FigObject*)
{
    freehand_line(ctx, x, y); // becomes the second leg
    storePoint(2, x, y);
    drawLeg(ctx, arcPoints[0], arcPoints[1]);
    drawLeg(ctx, arcPoints[1], arcPoints[2]);
    if (FigArc* arc = makeArc(ctx))
        add_created_object(ctx, arc);
    arc_drawing_selected(ctx);
}

void cancel_arc_drawing(CFigContext* ctx, int, int, FigObject*)
{
    if (num_point == 2)
        drawLeg(ctx, arcPoints[0], arcPoints[1]);
    draw_rubber_band(ctx, elastic_line);
    arc_drawing_selected(ctx);
}
