// The share of arrowheads in the bounds of what carries them.
#include "model/FigContext.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/u_arrow.h"
#include "render/u_bound.h"
#include "render/u_bound_box.h"
#include "render/u_draw.h"

namespace {

void addPathEnds(CFigContext* ctx, FigObject* object, FigPoint* first)
{
    FigPoint* beforeLast = first;
    while (beforeLast->next->next)
        beforeLast = beforeLast->next;
    if (object->backward_arrow) {
        add_point_to_list_scale(ctx, first->x, first->y);
        add_point_to_list_scale(ctx, first->next->x, first->next->y);
    }
    if (object->forward_arrow) {
        add_point_to_list_scale(ctx, beforeLast->x, beforeLast->y);
        add_point_to_list_scale(ctx, beforeLast->next->x, beforeLast->next->y);
    }
}

void addTangent(CFigContext* ctx, const FigArc* arc, const FigPoint& end, int direction)
{
    int x, y;
    compute_normal(arc->center_x, arc->center_y, end.x, end.y, direction, &x, &y);
    add_point_to_list_scale(ctx, x, y);
    add_point_to_list_scale(ctx, end.x, end.y);
}

void addArcEnds(CFigContext* ctx, FigArc* arc)
{
    if (arc->backward_arrow)
        addTangent(ctx, arc, arc->point[0], arc->direction ^ 1);
    if (arc->forward_arrow)
        addTangent(ctx, arc, arc->point[2], arc->direction);
}

FigPoint* pathPoints(int objType, FigObject* object)
{
    if (objType == O_POLYLINE)
        return static_cast<FigLine*>(object)->points;
    return objType == O_SPLINE ? static_cast<FigSpline*>(object)->points : nullptr;
}

/// Puts the stretch that determines the heads in the point list. Returns what get_arrowpoints
/// has to skip: only interpolated splines look further back, while drawing does so for all.
int collectHeadStretch(CFigContext* ctx, int objType, FigObject* object)
{
    init_pointlist();
    if (objType == O_ARC) {
        addArcEnds(ctx, static_cast<FigArc*>(object));
        return 0;
    }
    FigPoint* first = pathPoints(objType, object);
    if (!first || !first->next)
        return 0;
    if (objType == O_SPLINE && (object->sub_type & SPLINE_INTERPOLATED)) {
        compute_open_spline(ctx, static_cast<FigSpline*>(object), SPLINE_PRECISION,
                            add_point_to_list);
        return 2;
    }
    addPathEnds(ctx, object, first);
    return 0;
}

int unitsFromPixel(int pixel, int shift, float ppi, float zoom)
{
    const long shifted = static_cast<long>(pixel) + shift;
    return round2((1200.0f / ppi) / zoom * static_cast<float>(shifted));
}

/// The head's stroke is taken as wide in pixels as the line's thickness says, whatever the zoom.
void includeHead(CFigContext* ctx, const FigObject* object, const QPoint* outline, long count,
                 BoundsBox& box)
{
    init_pointlist();
    for (long i = 0; i < count; ++i)
        add_point_to_list(outline[i].x(), outline[i].y());
    if (npoints < 1)
        return;
    BoundsBox pixels;
    calc_linebounds(polygon_points, npoints, true, static_cast<float>(object->thickness), 0,
                    &pixels.xmin, &pixels.ymin, &pixels.xmax, &pixels.ymax);
    box.include({unitsFromPixel(pixels.xmin, ctx->shiftX, ctx->ppiX, ctx->zoom),
                 unitsFromPixel(pixels.ymin, ctx->shiftY, ctx->ppiY, ctx->zoom),
                 unitsFromPixel(pixels.xmax, ctx->shiftX, ctx->ppiX, ctx->zoom),
                 unitsFromPixel(pixels.ymax, ctx->shiftY, ctx->ppiY, ctx->zoom)});
}

} // namespace

void arrow_bound(CFigContext* ctx, int objType, FigObject* object, int* xmin, int* ymin, int* xmax,
                 int* ymax)
{
    if (!object->forward_arrow && !object->backward_arrow)
        return;
    const int skip = collectHeadStretch(ctx, objType, object);
    if (npoints < 1)
        return;
    ArrowBuffers heads;
    get_arrowpoints(ctx, object, objType, polygon_points, skip, heads.forwardFill,
                    &heads.forwardFillCount, heads.backwardFill, &heads.backwardFillCount,
                    heads.forwardClip, &heads.forwardClipCount, heads.backwardClip,
                    &heads.backwardClipCount);
    BoundsBox box{*xmin, *ymin, *xmax, *ymax};
    if (object->forward_arrow)
        includeHead(ctx, object, farpts, nfpts, box);
    if (object->backward_arrow)
        includeHead(ctx, object, barpts, nbpts, box);
    box.store(xmin, ymin, xmax, ymax);
}
