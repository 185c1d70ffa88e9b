#include "edit/d_line.h"

#include "edit/d_create.h"
#include "edit/d_spline.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"
#include "model/FigContext.h"
#include "model/u_list.h"

namespace {

PointerProc rubberLineOfModes()
{
    if (latexline_mode || latexarrow_mode)
        return latex_line;
    if (manhattan_mode || mountain_mode)
        return constrainedangle_line;
    return freehand_line;
}

void startChain(CFigContext* ctx, int x, int y)
{
    freeChain(ctx);
    append_point(x, y, &ctx->lastPoint);
    ctx->firstPoint = ctx->lastPoint;
    num_point = 1;
    anchor_gesture(x, y);
}

/// The press of a tool whose chain is gone, because its gesture was abandoned.
FigObject* startAgain(CFigContext* ctx, int x, int y)
{
    const bool isSpline = cur_command >= CMD_OPEN_SPLINE && cur_command <= CMD_CLOSED_INT_SPLINE;
    return isSpline ? init_spline_drawing(ctx, x, y, nullptr)
                    : init_line_drawing(ctx, x, y, nullptr);
}

FigLine* makeLineOfChain(CFigContext* ctx)
{
    if (num_point != 1 && cur_command != CMD_POLYLINE)
        return createLineFromCurrentAttrs(ctx, T_POLYGON, ctx->firstPoint);
    const bool isDot = num_point == 1;
    FigLine* line = createLineFromCurrentAttrs(ctx, T_POLYLINE, ctx->firstPoint);
    if (!isDot)
        addAutoArrows(ctx, line);
    return line;
}

} // namespace

void line_drawing_selected(CFigContext*)
{
    wait_for_first_point(init_line_drawing);
    if (cur_command == CMD_POLYGON) {
        min_num_points = 3;
        return;
    }
    // A right click alone makes a dot.
    min_num_points = 1;
    num_point = 0;
    fix_x = fix_y = -1;
    canvas_middlebut_proc = create_lineobject;
}

FigObject* init_line_drawing(CFigContext* ctx, int x, int y, FigObject*)
{
    ctx->curObject = nullptr;
    return init_trace_drawing(ctx, x, y, nullptr);
}

FigObject* init_trace_drawing(CFigContext* ctx, int x, int y, FigObject*)
{
    startChain(ctx, x, y);
    set_action_on();
    canvas_locmove_proc = rubberLineOfModes();
    canvas_leftbut_proc = get_intermediatepoint;
    canvas_middlebut_save = create_lineobject;
    if (min_num_points < 3)
        canvas_middlebut_proc = create_lineobject;
    show_rubber_band(ctx, elastic_line);
    return nullptr;
}

FigObject* get_intermediatepoint(CFigContext* ctx, int x, int y, FigObject*)
{
    if (!ctx->firstPoint)
        return startAgain(ctx, x, y);
    // The point obeys the constraint. A click that the constraint passes by, because it is too near
    // to the anchor, adds the last position of the rubber line.
    if (canvas_locmove_proc)
        canvas_locmove_proc(ctx, x, y);
    ++num_point;
    anchor_gesture(cur_x, cur_y);
    draw_rubber_band(ctx, elastic_line); // a new one; the finished segment stays on the canvas
    append_point(cur_x, cur_y, &ctx->lastPoint);
    if (min_num_points - 1 == num_point)
        canvas_middlebut_proc = canvas_middlebut_save;
    note_edited_point(x, y);
    return nullptr;
}

void create_lineobject(CFigContext* ctx, int x, int y, FigObject*)
{
    if (num_point == 0) {
        startChain(ctx, x, y);
    } else if (!ctx->firstPoint) {
        line_drawing_selected(ctx);
        return;
    } else if (x != fix_x || y != fix_y) {
        get_intermediatepoint(ctx, x, y, nullptr);
    }
    draw_rubber_band(ctx, elastic_line);
    add_created_object(ctx, makeLineOfChain(ctx));
    line_drawing_selected(ctx);
}

void cancel_line_drawing(CFigContext* ctx, int, int, FigObject*)
{
    wipe_chain(ctx);
    line_drawing_selected(ctx);
}

void wipe_chain(CFigContext* ctx)
{
    if (!ctx)
        return;
    draw_rubber_band(ctx, elastic_line);
    if (ctx->firstPoint && ctx->firstPoint->next)
        elastic_moveline(ctx, ctx->firstPoint, 0, 0);
    freeChain(ctx);
}
