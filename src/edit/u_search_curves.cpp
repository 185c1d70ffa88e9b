// Nearness to arcs and splines: on the screen, where their outlines are computed.
#include "edit/u_search_kinds.h"
#include "model/FigContext.h"
#include "render/coords.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/u_draw.h"

#include <cmath>

namespace {

// Back from the screen, in single precision; other than for the pointer, points left of and above
// the canvas count.

int figureFromPixelX(CFigContext* ctx, float pixel)
{
    return round2(static_cast<double>((1200.0f / ctx->ppiX) / ctx->zoom *
                                      (pixel + static_cast<float>(ctx->shiftX))));
}

int figureFromPixelY(CFigContext* ctx, float pixel)
{
    return round2(static_cast<double>((1200.0f / ctx->ppiY) / ctx->zoom *
                                      (pixel + static_cast<float>(ctx->shiftY))));
}

/// The cursor on the screen. The tolerance goes by the horizontal resolution on both axes.
struct PixelTarget {
    QPoint cursor;
    int tolerance;

    PixelTarget(CFigContext* ctx, int x, int y, int t)
        : cursor(pixelX(ctx, x), pixelY(ctx, y)),
          tolerance(round2(static_cast<double>(scaledX(ctx, t))))
    {
    }
    bool isNear(const QPoint& point) const
    {
        return ::isNear(cursor.x(), cursor.y(), point.x(), point.y(), tolerance);
    }
};

/// First point of the point list near the cursor.
bool findInPointList(CFigContext* ctx, const PixelTarget& target, int* px, int* py)
{
    for (long i = 0; i < npoints; ++i) {
        const QPoint& point = polygon_points[i];
        if (!target.isNear(point))
            continue;
        *px = figureFromPixelX(ctx, static_cast<float>(point.x()));
        *py = figureFromPixelY(ctx, static_cast<float>(point.y()));
        return true;
    }
    return false;
}

} // namespace

bool isPointOnArc(CFigContext* ctx, FigArc* arc, int x, int y, int t, int* px, int* py)
{
    const PixelTarget target(ctx, x, y, t);
    return initPointListFromArc(ctx, arc) && findInPointList(ctx, target, px, py);
}

bool isPointOnSpline(CFigContext* ctx, FigSpline* spline, int x, int y, int t, int* px, int* py)
{
    const PixelTarget target(ctx, x, y, t);
    return initPointListFromSpline(ctx, spline) && findInPointList(ctx, target, px, py);
}

namespace {

float difference(int a, int b)
{
    return static_cast<float>(static_cast<long long>(a) - b);
}

/// Watches a spline being computed, segment by segment.
struct SplineWatch {
    PixelTarget target;
    bool started = false;
    QPoint previous;
    bool found = false;
    float footX = 0, footY = 0;
    QPoint start, end; ///< of the segment that was found

    explicit SplineWatch(const PixelTarget& searched) : target(searched) {}

    /// Single precision throughout.
    void look(const QPoint& from, const QPoint& to)
    {
        const float dx = difference(to.x(), from.x()), dy = difference(to.y(), from.y());
        const float lengthSquared = dx * dx + dy * dy;
        if (lengthSquared == 0.0f)
            return;
        const float toX = difference(target.cursor.x(), from.x());
        const float toY = difference(target.cursor.y(), from.y());
        const float distance = (dx * toY - dy * toX) / std::sqrt(lengthSquared);
        if (std::fabs(distance) > static_cast<float>(target.tolerance))
            return;
        const float along = (toX * dx + toY * dy) / lengthSquared;
        if (!(along >= 0.0f && along <= 1.0f) && !target.isNear(from) && !target.isNear(to))
            return;
        // Unlike everywhere else the last match wins.
        found = true;
        footX = static_cast<float>(from.x()) + along * dx;
        footY = static_cast<float>(from.y()) + along * dy;
        start = from;
        end = to;
    }
};

/// The search in progress; the evaluator's callback takes no context.
SplineWatch* splineWatch = nullptr;

/// Never stops the computation.
bool watchSplinePoint(int x, int y)
{
    const QPoint point(x, y);
    if (splineWatch->started)
        splineWatch->look(splineWatch->previous, point);
    else
        polygon_points[0] = point; // where a closed spline looks for the point to end with
    splineWatch->started = true;
    splineWatch->previous = point;
    return true;
}

} // namespace

bool close_to_spline(CFigContext* ctx, FigSpline* spline, int x, int y, int t, int* px, int* py,
                     int* sx1, int* sy1, int* sx2, int* sy2)
{
    SplineWatch watch(PixelTarget(ctx, x, y, t));
    splineWatch = &watch;
    const auto compute = (spline->sub_type & 1) != 0 ? compute_closed_spline : compute_open_spline;
    compute(ctx, spline, SPLINE_PRECISION, watchSplinePoint);
    splineWatch = nullptr;
    if (!watch.found)
        return false;
    *px = figureFromPixelX(ctx, watch.footX);
    *py = figureFromPixelY(ctx, watch.footY);
    *sx1 = figureFromPixelX(ctx, static_cast<float>(watch.start.x()));
    *sy1 = figureFromPixelY(ctx, static_cast<float>(watch.start.y()));
    *sx2 = figureFromPixelX(ctx, static_cast<float>(watch.end.x()));
    *sy2 = figureFromPixelY(ctx, static_cast<float>(watch.end.y()));
    return true;
}
