#include "edit/search_reach.h"

#include "model/FigContext.h"
#include "render/coords.h"
#include "render/gfx_math.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr SearchReach nowhere = {infinity, infinity, -infinity, -infinity};
constexpr SearchReach everywhere = {-infinity, -infinity, infinity, infinity};

/// Further out than this, in pixels, mapped coordinates may saturate.
constexpr double farthestPixel = 5e8;
constexpr double roundingPixels = 8;
constexpr double roundingUnits = 4;
constexpr double singlePrecision = 2e-6;
/// A tolerance per axis, turned by any angle.
constexpr double turnedTolerance = 1.5;

double anisotropy(const CFigContext* ctx)
{
    return static_cast<double>(std::max(ctx->ppiX, ctx->ppiY)) / std::min(ctx->ppiX, ctx->ppiY);
}

SearchReach around(double x, double y, double width, double height)
{
    return {x - width, y - height, x + width, y + height};
}

SearchReach pointsReach(const FigPoint* point)
{
    SearchReach reach = nowhere;
    for (; point; point = point->next)
        reach.include(point->x, point->y);
    return reach;
}

double distance(const FigPoint& a, const FigPoint& b)
{
    return std::hypot(static_cast<double>(a.x) - b.x, static_cast<double>(a.y) - b.y);
}

SearchReach ellipseReach(const FigEllipse* ellipse)
{
    const FigPoint& centre = ellipse->center;
    const double rx = std::abs(static_cast<double>(ellipse->radiuses.x));
    const double ry = std::abs(static_cast<double>(ellipse->radiuses.y));
    if (ellipse->angle != 0.0f) {
        // Start and end are met where they come to lie when the ellipse stands upright.
        const double reach =
            std::max({rx, ry, distance(centre, ellipse->start), distance(centre, ellipse->end)});
        return around(centre.x, centre.y, reach, reach);
    }
    SearchReach reach = around(centre.x, centre.y, rx, ry);
    reach.include(ellipse->start.x, ellipse->start.y);
    reach.include(ellipse->end.x, ellipse->end.y);
    return reach;
}

/// The full circle, since a short arc is often computed all around, with room for the drift of
/// the walk in single precision and for axes of different scale.
SearchReach arcReach(const CFigContext* ctx, const FigArc* arc)
{
    const double x = arc->center_x, y = arc->center_y;
    const double scale = anisotropy(ctx);
    const double radius =
        std::hypot(arc->point[0].x - x, arc->point[0].y - y) * scale * scale * 1.02;
    return std::isfinite(radius) ? around(x, y, radius, radius) : nowhere;
}

SearchReach splineReach(const FigSpline* spline)
{
    SearchReach reach = pointsReach(spline->points);
    bool leavesHull = false;
    for (const FigShapeFactor* factor = spline->sfactors; factor; factor = factor->next) {
        if (!(factor->s >= -1 && factor->s <= 1))
            return reach.isEmpty() ? nowhere : everywhere;
        leavesHull = leavesHull || factor->s < 0;
    }
    // Within those factors the weights outside 0 to 1 stay well below a half.
    if (leavesHull && !reach.isEmpty())
        reach.grow((reach.xmax - reach.xmin) / 2, (reach.ymax - reach.ymin) / 2);
    return reach;
}

/// The base point and the one above it, at any angle.
SearchReach textReach(const CFigContext* ctx, const FigText* text)
{
    const double height = std::abs(text->size * 1200.0 / ctx->ppiY);
    return around(text->x, text->y, height, height);
}

SearchReach compoundReach(const FigCompound* compound)
{
    SearchReach reach = nowhere;
    reach.include(compound->nwcorner.x, compound->nwcorner.y);
    reach.include(compound->secorner.x, compound->secorner.y);
    return reach;
}

} // namespace

void SearchReach::include(double x, double y)
{
    xmin = std::min(xmin, x);
    ymin = std::min(ymin, y);
    xmax = std::max(xmax, x);
    ymax = std::max(ymax, y);
}

void SearchReach::grow(double x, double y)
{
    xmin -= x;
    ymin -= y;
    xmax += x;
    ymax += y;
}

SearchReach searchReach(const CFigContext* ctx, const FigObject* object)
{
    switch (object->type) {
    case O_ELLIPSE:
        return ellipseReach(static_cast<const FigEllipse*>(object));
    case O_POLYLINE:
        return pointsReach(static_cast<const FigLine*>(object)->points);
    case O_SPLINE:
        return splineReach(static_cast<const FigSpline*>(object));
    case O_TEXT:
        return textReach(ctx, static_cast<const FigText*>(object));
    case O_ARC:
        return arcReach(ctx, static_cast<const FigArc*>(object));
    case O_COMPOUND:
        return compoundReach(static_cast<const FigCompound*>(object));
    default:
        return nowhere;
    }
}

SearchSpot::SearchSpot(CFigContext* ctx, int x, int y, int t)
{
    const double coarser = std::min(ctx->ppiX, ctx->ppiY);
    const double finer = std::max(ctx->ppiX, ctx->ppiY);
    const double zoom = ctx->zoom;
    const double pixels = turnedTolerance * round2(scaledX(ctx, t)) + roundingPixels;
    const double largest =
        std::max(std::abs(static_cast<double>(x)), std::abs(static_cast<double>(y)));
    const double room = std::max(turnedTolerance * t, pixels * 1200.0 / (coarser * zoom)) +
                        roundingUnits + largest * singlePrecision;
    m_xmin = x - room;
    m_ymin = y - room;
    m_xmax = x + room;
    m_ymax = y + room;
    m_farthest = farthestPixel * 1200.0 / (finer * zoom);
}
