// Searches for the points of objects, in the working root from first to last.
#include "edit/u_search_kinds.h"
#include "model/FigContext.h"
#include "model/w_layers.h"

namespace {

void storePoint(const FigPoint& point, int* px, int* py)
{
    *px = point.x;
    *py = point.y;
}

bool isCandidate(CFigContext* ctx, const FigObject* object, const FigObject* excluded)
{
    return object != excluded && isOnActiveLayer(ctx, object);
}

/// First point of an outline near (x, y) that the question lets pass.
template <class Ask>
bool findPathPoint(const FigPath& path, int x, int y, int t, FigPoint** previous, FigPoint** found,
                   Ask accepts)
{
    FigPoint* before = nullptr;
    for (FigPoint* point = path.points; point; before = point, point = point->next) {
        if (!isNear(x, y, *point, t) || !accepts(point))
            continue;
        *previous = before;
        *found = point;
        return true;
    }
    return false;
}

} // namespace

FigLine* line_point_search(CFigContext* ctx, FigObject* excluded, int x, int y, int t, int* px,
                           int* py, FigPoint** previous, FigPoint** point)
{
    return findOfType<FigLine>(ctx->getWorkingRoot(), O_POLYLINE, [&](FigLine* line) {
        if (!isCandidate(ctx, line, excluded) ||
            !findPathPoint(*line, x, y, t, previous, point, [](FigPoint*) { return true; }))
            return false;
        storePoint(**point, px, py);
        return true;
    });
}

FigSpline* spline_point_search(CFigContext* ctx, FigObject* excluded, int x, int y, int t, int* px,
                               int* py, FigPoint** previous, FigPoint** point,
                               SplinePointFilter filter)
{
    return findOfType<FigSpline>(ctx->getWorkingRoot(), O_SPLINE, [&](FigSpline* spline) {
        const auto accepts = [&](FigPoint* candidate) {
            return !filter || filter(ctx, spline, candidate);
        };
        if (!isCandidate(ctx, spline, excluded) ||
            !findPathPoint(*spline, x, y, t, previous, point, accepts))
            return false;
        storePoint(**point, px, py);
        return true;
    });
}

FigArc* arc_point_search(CFigContext* ctx, FigObject* excluded, int x, int y, int t, int* px,
                         int* py, FigPoint** previous, FigPoint** point, int* number)
{
    return findOfType<FigArc>(ctx->getWorkingRoot(), O_ARC, [&](FigArc* arc) {
        if (!isCandidate(ctx, arc, excluded))
            return false;
        for (int i = 0; i < 3; ++i) {
            if (!isNear(x, y, arc->point[i], t))
                continue;
            storePoint(arc->point[i], px, py);
            *previous = i > 0 ? &arc->point[i - 1] : nullptr;
            *point = &arc->point[i];
            *number = i;
            return true;
        }
        return false;
    });
}

FigEllipse* ellipse_point_search(CFigContext* ctx, FigObject* excluded, int x, int y, int t,
                                 int* px, int* py, FigPoint** previous, FigPoint** point,
                                 int* number)
{
    return findOfType<FigEllipse>(ctx->getWorkingRoot(), O_ELLIPSE, [&](FigEllipse* ellipse) {
        if (!isCandidate(ctx, ellipse, excluded))
            return false;
        const bool onStart = isNear(x, y, ellipse->start, t);
        if (!onStart && !isNear(x, y, ellipse->end, t))
            return false;
        *previous = onStart ? nullptr : &ellipse->start;
        *point = onStart ? &ellipse->start : &ellipse->end;
        *number = onStart ? 0 : 1;
        storePoint(**point, px, py);
        return true;
    });
}

FigCompound* compound_point_search(CFigContext* ctx, FigObject* excluded, int x, int y, int t,
                                   int* px, int* py, int* number)
{
    return findOfType<FigCompound>(ctx->getWorkingRoot(), O_COMPOUND, [&](FigCompound* compound) {
        const FigPoint& nw = compound->nwcorner;
        const FigPoint& se = compound->secorner;
        const FigPoint corners[] = {nw, FigPoint(nw.x, se.y), FigPoint(se.x, nw.y), se};
        for (int i = 0; i < 4; ++i) {
            if (!isNear(x, y, corners[i], t))
                continue;
            // Asking about layers walks all members, so it comes last.
            if (compound == excluded || !any_active_in_compound(ctx, compound))
                return false;
            storePoint(corners[i], px, py);
            *number = i;
            return true;
        }
        return false;
    });
}

bool checkObjectForSnapping(CFigContext*, FigSpline* spline, FigPoint* point)
{
    // A curve that approximates does not pass through its inner control points.
    return spline->sub_type == 2 || spline->sub_type == 3 || point == spline->points ||
           !point->next;
}

bool doPointSearchForSnapping(CFigContext* ctx, FigObject* excluded, int t, int* x, int* y)
{
    int px, py, number;
    FigPoint *previous, *point;
    if (!line_point_search(ctx, excluded, *x, *y, t, &px, &py, &previous, &point) &&
        !arc_point_search(ctx, excluded, *x, *y, t, &px, &py, &previous, &point, &number) &&
        !spline_point_search(ctx, excluded, *x, *y, t, &px, &py, &previous, &point,
                             checkObjectForSnapping))
        return false;
    *x = px;
    *y = py;
    return true;
}
