#include "edit/d_spline.h"

#include "edit/d_create.h"
#include "edit/d_line.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"
#include "model/FigContext.h"
#include "model/u_list.h"

namespace {

bool isClosedCommand()
{
    return cur_command == CMD_CLOSED_SPLINE || cur_command == CMD_CLOSED_INT_SPLINE;
}

/// 0 open, 1 closed; 2 and 3 the same interpolated: in the order of the commands.
int subTypeOfCommand()
{
    return cur_command - CMD_OPEN_SPLINE;
}

bool isLastPoint(CFigContext* ctx, int x, int y)
{
    return ctx->lastPoint->x == x && ctx->lastPoint->y == y;
}

} // namespace

void spline_drawing_selected(CFigContext*)
{
    wait_for_first_point(init_spline_drawing);
}

FigObject* init_spline_drawing(CFigContext* ctx, int x, int y, FigObject*)
{
    ctx->curObject = nullptr;
    min_num_points = isClosedCommand() ? 3 : 2;
    init_trace_drawing(ctx, x, y, nullptr);
    canvas_middlebut_save = create_splineobject;
    if (!isClosedCommand())
        canvas_middlebut_proc = create_splineobject;
    return nullptr;
}

void create_splineobject(CFigContext* ctx, int x, int y, FigObject*)
{
    if (!ctx->firstPoint) {
        spline_drawing_selected(ctx);
        return;
    }
    if (num_point < min_num_points || !isLastPoint(ctx, x, y))
        get_intermediatepoint(ctx, x, y, nullptr);
    draw_rubber_band(ctx, elastic_line);
    FigSpline* spline = createSplineFromCurrentAttrs(ctx, subTypeOfCommand(), ctx->firstPoint);
    addAutoArrows(ctx, spline);
    make_sfactors(spline);
    add_created_object(ctx, spline);
    spline_drawing_selected(ctx);
}

void cancel_spline_drawing(CFigContext* ctx, int, int, FigObject*)
{
    wipe_chain(ctx);
    spline_drawing_selected(ctx);
}
