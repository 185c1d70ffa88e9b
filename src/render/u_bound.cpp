#include "render/u_bound.h"

#include "model/FigContext.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/u_bound_box.h"

#include <cstdlib>

// Single precision wherever a float stands below, in the order written: bounds agree with what
// is drawn and with each other to the unit.

namespace {

long distance(int a, int b)
{
    return std::abs(static_cast<long>(a) - b);
}

BoundsBox boundsOf(CFigContext* ctx, FigObject* object, bool includeDescent, bool exact)
{
    BoundsBox box;
    object->getBounds(ctx, &box.xmin, &box.ymin, &box.xmax, &box.ymax, includeDescent, exact);
    return box;
}

// --- splines -------------------------------------------------------------------

/// Room around a control point: a quarter of its neighbours' distance where the curve may leave
/// the control polygon.
BoundsBox controlPointBox(const FigPoint* before, const FigPoint* point, const FigPoint* after,
                          const FigShapeFactor* factor)
{
    BoundsBox box = BoundsBox::at(point->x, point->y);
    if (factor && factor->s < 0)
        box.grow(distance(after->x, before->x) >> 2, distance(after->y, before->y) >> 2);
    return box;
}

} // namespace

// --- lists -----------------------------------------------------------------------

void objectlist_bound(CFigContext* ctx, FigObjectList* list, int* xmin, int* ymin, int* xmax,
                      int* ymax, bool taggedOnly, bool includeDescent, bool exact)
{
    BoundsBox box;
    bool empty = true;
    for (FigObject* object : qAsConst(*list)) {
        if (!object || (taggedOnly && !object->tagged))
            continue;
        const BoundsBox next = boundsOf(ctx, object, includeDescent, exact);
        if (empty)
            box = next;
        else
            box.include(next);
        empty = false;
    }
    box.store(xmin, ymin, xmax, ymax);
}

void tagged_objects_bound(CFigContext* ctx, FigObjectList* list, int* xmin, int* ymin, int* xmax,
                          int* ymax)
{
    objectlist_bound(ctx, list, xmin, ymin, xmax, ymax, true, true, true);
}

void FigDrawing::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                           bool includeDescent, bool exact)
{
    objectlist_bound(ctx, &objects, xmin, ymin, xmax, ymax, false, includeDescent, exact);
}

void FigCompound::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                            bool includeDescent, bool exact)
{
    objectlist_bound(ctx, objects, xmin, ymin, xmax, ymax, false, includeDescent, exact);
}

void FigObject::getBounds(CFigContext*, int* xmin, int* ymin, int* xmax, int* ymax, bool, bool)
{
    BoundsBox().store(xmin, ymin, xmax, ymax);
}

// --- lines and splines -------------------------------------------------------------

void points_bound(CFigContext*, FigPoint* first, int* xmin, int* ymin, int* xmax, int* ymax)
{
    BoundsBox box = first ? BoundsBox::at(first->x, first->y) : BoundsBox();
    for (FigPoint* point = first; point; point = point->next)
        box.include(point->x, point->y);
    box.store(xmin, ymin, xmax, ymax);
}

void FigLine::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax, bool,
                        bool exact)
{
    points_bound(ctx, points, xmin, ymin, xmax, ymax);
    if (!exact || !points)
        return;
    getPointArray(this, polygon_points, &npoints);
    // Always as if closed: the box of an open line may be a little too large.
    calc_linebounds(polygon_points, npoints, true,
                    (1200.0f / ctx->ppiX) * static_cast<float>(thickness), join_style, xmin, ymin,
                    xmax, ymax);
    arrow_bound(ctx, O_POLYLINE, this, xmin, ymin, xmax, ymax);
}

void approx_spline_bound(FigSpline* spline, int* xmin, int* ymin, int* xmax, int* ymax)
{
    points_bound(nullptr, spline->points, xmin, ymin, xmax, ymax);
}

void general_spline_bound(FigSpline* spline, int* xmin, int* ymin, int* xmax, int* ymax)
{
    const FigPoint* before = spline->points;
    BoundsBox box = before ? BoundsBox::at(before->x, before->y) : BoundsBox();
    const FigShapeFactor* factor = spline->sfactors;
    for (const FigPoint* point = before ? before->next : nullptr; point; point = point->next) {
        factor = factor ? factor->next : nullptr;
        const FigPoint* after = point->next ? point->next : spline->points;
        box.include(controlPointBox(before, point, after, factor));
        before = point;
    }
    box.store(xmin, ymin, xmax, ymax);
}

void FigSpline::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax, bool,
                          bool exact)
{
    if (!exact || !points) {
        points_bound(ctx, points, xmin, ymin, xmax, ymax);
        return;
    }
    BoundsBox box;
    if (sub_type & (SPLINE_INTERPOLATED | SPLINE_CROSS))
        general_spline_bound(this, &box.xmin, &box.ymin, &box.xmax, &box.ymax);
    else
        approx_spline_bound(this, &box.xmin, &box.ymin, &box.xmax, &box.ymax);
    // The whole line width on each side, not half of it.
    box.grow(strokeExtent(this, ctx->ppiX), strokeExtent(this, ctx->ppiY));
    box.store(xmin, ymin, xmax, ymax);
    arrow_bound(ctx, O_SPLINE, this, xmin, ymin, xmax, ymax);
}

// --- moving the sides out ----------------------------------------------------------------

void extendBounds(int* xmin, int* ymin, int* xmax, int* ymax, int by)
{
    BoundsBox box{*xmin, *ymin, *xmax, *ymax};
    box.grow(by, by);
    box.store(xmin, ymin, xmax, ymax);
}

void extendBounds(long* xmin, long* ymin, long* xmax, long* ymax, long by)
{
    *xmin -= by;
    *ymin -= by;
    *xmax += by;
    *ymax += by;
}

void extendBounds(QRect* rect, long by)
{
    BoundsBox box{rect->left(), rect->top(), rect->right(), rect->bottom()};
    box.grow(by, by);
    rect->setCoords(box.xmin, box.ymin, box.xmax, box.ymax);
}
