// The entry points of the searches: order of the kinds, tolerance, smart points, handlers.
#include "edit/u_search.h"

#include "edit/u_search_kinds.h"
#include "model/FigContext.h"
#include "model/w_layers.h"
#include "render/gfx_math.h"
#include "render/markers.h"
#include "render/u_redraw.h"

#include <algorithm>
#include <cstdlib>

FigPoint smart_point1, smart_point2;
int smart_points_valid = 0;

void set_smart_points(int x1, int y1, int x2, int y2)
{
    smart_point1.x = x1;
    smart_point1.y = y1;
    smart_point2.x = x2;
    smart_point2.y = y2;
    smart_points_valid = 1;
}

// --- what all searches share --------------------------------------------------------

// Single precision, in this order, as for every length on the screen.

int searchTolerance(CFigContext* ctx)
{
    // At great zooms two pixels round to nothing, and nothing could be hit any more.
    return std::max(1, round2(static_cast<double>(2.0f * (1200.0f / ctx->ppiX) / ctx->zoom)));
}

int pixelTolerance(CFigContext* ctx)
{
    return round2(static_cast<double>(1200.0f / ctx->ppiX / ctx->zoom));
}

bool isNear(int x, int y, int pointX, int pointY, int tolerance)
{
    return std::abs(static_cast<long long>(x) - pointX) <= tolerance &&
           std::abs(static_cast<long long>(y) - pointY) <= tolerance;
}

// --- objects ----------------------------------------------------------------------------

FigObject* objectSearch(CFigContext* ctx, FigObjectList* list, int x, int y, int* px, int* py,
                        FigObject* excluded)
{
    const int t = searchTolerance(ctx);
    // Arcs, compounds and texts do not know the excluded object.
    if (FigObject* line = line_search(ctx, list, x, y, t, px, py, excluded))
        return line;
    if (FigObject* ellipse = ellipse_search(ctx, list, x, y, t, px, py, excluded))
        return ellipse;
    if (FigObject* arc = arc_search(ctx, list, x, y, t, px, py))
        return arc;
    if (FigObject* spline = spline_search(ctx, list, x, y, t, px, py, excluded))
        return spline;
    if (FigObject* compound = compound_search(ctx, list, x, y, t, px, py))
        return compound;
    return text_search(ctx, list, x, y, t, px, py);
}

FigObject* objectSearch(CFigContext* ctx, int x, int y, int* px, int* py, FigObject* excluded)
{
    return objectSearch(ctx, ctx->getWorkingRoot(), x, y, px, py, excluded);
}

FigObject* do_object_search(CFigContext* ctx, int x, int y, FigObject* excluded)
{
    if (!manipulate_proc)
        return nullptr;
    int px = 0, py = 0;
    FigObject* found = objectSearch(ctx, x, y, &px, &py, excluded);
    if (found)
        manipulate_proc(ctx, found, found->type, x, y, px, py);
    else
        manipulate_proc(ctx, nullptr, O_POLYLINE, x, y, 0, 0);
    return found;
}

// --- points -----------------------------------------------------------------------------

namespace {

struct PointHit {
    FigObject* object = nullptr;
    int x = 0, y = 0;
    FigPoint* previous = nullptr;
    FigPoint* point = nullptr;
    int number = 0;
};

PointHit pointSearch(CFigContext* ctx, int x, int y)
{
    const int t = searchTolerance(ctx);
    PointHit hit;
    hit.object =
        line_point_search(ctx, nullptr, x, y, t, &hit.x, &hit.y, &hit.previous, &hit.point);
    if (!hit.object)
        hit.object = ellipse_point_search(ctx, nullptr, x, y, t, &hit.x, &hit.y, &hit.previous,
                                          &hit.point, &hit.number);
    if (!hit.object)
        hit.object = arc_point_search(ctx, nullptr, x, y, t, &hit.x, &hit.y, &hit.previous,
                                      &hit.point, &hit.number);
    if (!hit.object)
        hit.object = spline_point_search(ctx, nullptr, x, y, t, &hit.x, &hit.y, &hit.previous,
                                         &hit.point, nullptr);
    if (!hit.object)
        hit.object = compound_point_search(ctx, nullptr, x, y, t, &hit.x, &hit.y, &hit.number);
    return hit;
}

} // namespace

FigObject* do_point_search(CFigContext* ctx, int x, int y)
{
    const PointHit hit = pointSearch(ctx, x, y);
    if (!pointManipulate_proc)
        return hit.object;
    const int type = hit.object ? hit.object->type : O_POLYLINE;
    const bool taken = pointManipulate_proc(ctx, hit.object, type, x, y, hit.x, hit.y, hit.previous,
                                            hit.point, hit.number);
    return taken ? hit.object : nullptr;
}

// --- what the tools put into the canvas slots ----------------------------------------------

void init_searchproc_left(ObjectHandler handler)
{
    handlerproc_left = handler;
}

void init_searchproc_middle(ObjectHandler handler)
{
    handlerproc_middle = handler;
}

void initPoint_searchproc_left(PointHandler handler)
{
    pointHandlerproc_left = handler;
}

FigObject* object_search_left(CFigContext* ctx, int x, int y, FigObject* excluded)
{
    manipulate_proc = handlerproc_left;
    return do_object_search(ctx, x, y, excluded);
}

void object_search_middle(CFigContext* ctx, int x, int y, FigObject* excluded)
{
    manipulate_proc = handlerproc_middle;
    do_object_search(ctx, x, y, excluded);
}

FigObject* point_search_left(CFigContext* ctx, int x, int y, FigObject*)
{
    pointManipulate_proc = pointHandlerproc_left;
    return do_point_search(ctx, x, y);
}

void point_search_middle(CFigContext* ctx, int x, int y, FigObject*)
{
    manipulate_proc = handlerproc_middle;
    do_point_search(ctx, x, y);
}

// --- handlers ---------------------------------------------------------------------------

bool tag_object(CFigContext* ctx, FigObject* object, int, int, int, int, int)
{
    if (!object)
        return false;
    const bool wasTagged = object->tagged;
    setTaggedFlag(object);
    ctx->curObject = object;
    if (!wasTagged)
        showPointMarker(ctx, object);
    return true;
}

bool tag_object_alter(CFigContext* ctx, FigObject* object, int, int, int, int, int)
{
    if (!object)
        return false;
    if (!object->tagged) {
        setTaggedFlag(object);
        showPointMarker(ctx, object);
        return true;
    }
    clearTaggedFlag(object);
    clearMarkedFlag(object);
    refresh_obj_area(ctx, object, false);
    return true;
}
