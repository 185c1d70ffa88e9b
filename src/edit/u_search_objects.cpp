// Searches by kind, each over a list from first to last.
#include "edit/search_reach.h"
#include "edit/u_geom.h"
#include "edit/u_search_kinds.h"
#include "model/FigContext.h"
#include "model/w_layers.h"
#include "render/gfx_math.h"

#include <cmath>

namespace {

float squared(int t)
{
    return static_cast<float>(t) * static_cast<float>(t);
}

/// A segment of an outline with the indexes of its ends; a lone point is both of its ends.
struct PathSegment {
    FigPoint* left;
    FigPoint* right;
    int leftIndex, rightIndex;
};

/// The first point alone with tolerance t2, then the segments with t.
bool findSegment(FigPoint* first, int x, int y, int t, int t2, int* px, int* py,
                 PathSegment* segment)
{
    if (!first)
        return false;
    if (isNear(x, y, *first, t2)) {
        *px = first->x;
        *py = first->y;
        *segment =
            first->next ? PathSegment{first, first->next, 0, 1} : PathSegment{first, first, 0, 0};
        return true;
    }
    const float tt = squared(t);
    int index = 0;
    for (FigPoint* point = first; point->next; point = point->next, ++index) {
        const FigPoint* next = point->next;
        if (close_to_vector(point->x, point->y, next->x, next->y, x, y, t, tt, px, py)) {
            *segment = {point, point->next, index, index + 1};
            return true;
        }
    }
    return false;
}

/// The outline as it is stored, a spline's control polygon included.
bool isOnPath(const FigPath& path, int x, int y, int t, int* px, int* py)
{
    PathSegment segment;
    return findSegment(path.points, x, y, t, t, px, py, &segment);
}

} // namespace

// --- lines ------------------------------------------------------------------------------

bool close_to_polyline(FigLine* line, int x, int y, int t, int t2, int* px, int* py, int* sx1,
                       int* sy1, int* sx2, int* sy2)
{
    PathSegment segment;
    if (!findSegment(line->points, x, y, t, t2, px, py, &segment))
        return false;
    *sx1 = segment.left->x;
    *sy1 = segment.left->y;
    *sx2 = segment.right->x;
    *sy2 = segment.right->y;
    return true;
}

bool line_segment_search(CFigContext*, FigLine* line, FigPoint** left, FigPoint** right,
                         int* leftIndex, int* rightIndex, int x, int y, int t, int* px, int* py)
{
    PathSegment segment;
    if (!findSegment(line->points, x, y, t, t, px, py, &segment))
        return false;
    // The last point of a closed line repeats the first.
    const bool closing = !segment.right->next && isClosed(line);
    *left = segment.left;
    *leftIndex = segment.leftIndex;
    *right = closing ? line->points : segment.right;
    *rightIndex = closing ? 0 : segment.rightIndex;
    return true;
}

FigLine* line_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px, int* py,
                     FigObject* excluded)
{
    smart_points_valid = 0;
    const int t2 = pixelTolerance(ctx);
    return findOfType<FigLine>(list, O_POLYLINE, [&](FigLine* line) {
        int x1, y1, x2, y2;
        if (line == excluded || !isOnActiveLayer(ctx, line) ||
            !close_to_polyline(line, x, y, t, t2, px, py, &x1, &y1, &x2, &y2))
            return false;
        set_smart_points(x1, y1, x2, y2);
        return true;
    });
}

FigLine* picbox_search(CFigContext* ctx, int x, int y, int t, int* px, int* py)
{
    return findOfType<FigLine>(ctx->getWorkingRoot(), O_POLYLINE, [&](FigLine* line) {
        return line->sub_type == T_PICTURE && isOnActiveLayer(ctx, line) &&
               isOnPath(*line, x, y, t, px, py);
    });
}

// --- ellipses ---------------------------------------------------------------------------

namespace {

/// The cursor in the frame in which the ellipse stands upright.
FigPoint uprightPoint(const FigEllipse* ellipse, int x, int y)
{
    FigPoint point(x, y);
    if (ellipse->angle != 0.0f)
        rotatePoint(ellipse->center.x, ellipse->center.y, x, y, &point.x, &point.y,
                    -static_cast<double>(ellipse->angle));
    return point;
}

/// And back.
void storeTurned(const FigEllipse* ellipse, int x, int y, int* px, int* py)
{
    *px = x;
    *py = y;
    if (ellipse->angle != 0.0f)
        rotatePoint(ellipse->center.x, ellipse->center.y, x, y, px, py,
                    static_cast<double>(ellipse->angle));
}

/// The point of the upright outline in the direction of a point, relative to the centre.
struct RadialHit {
    double x, y;
    bool isNear;

    RadialHit(const FigEllipse* ellipse, const FigPoint& from, int t)
    {
        const double rx = ellipse->radiuses.x, ry = ellipse->radiuses.y;
        const double dx = static_cast<double>(from.x) - ellipse->center.x;
        const double dy = static_cast<double>(from.y) - ellipse->center.y;
        const double distance = std::sqrt(dx * dx + dy * dy);
        const double divisor = std::sqrt(rx * rx * dy * dy + ry * ry * dx * dx);
        const double radius = divisor == 0.0 ? 0.0 : rx * ry * distance / divisor;
        isNear = std::fabs(distance - radius) <= t;
        x = distance == 0.0 ? 0.0 : dx * radius / distance;
        y = distance == 0.0 ? 0.0 : dy * radius / distance;
    }
};

void setTangent(CFigContext* ctx, const FigEllipse* ellipse, int px, int py)
{
    const FigPoint& centre = ellipse->center;
    if (isNear(px, py, centre, pixelTolerance(ctx))) {
        set_smart_points(px, py, px, py);
        return;
    }
    constexpr double tangentLength = 1200.0;
    const FigPoint upright = uprightPoint(ellipse, px, py);
    const double direction = getTangentOnEllipseAngle(centre.x, centre.y, ellipse->radiuses.x,
                                                      ellipse->radiuses.y, upright.x, upright.y);
    int x, y;
    get2ndPointForLine(upright.x, upright.y, direction, tangentLength, &x, &y);
    storeTurned(ellipse, x, y, &x, &y);
    set_smart_points(px, py, x, y);
}

float finiteOrZero(double value)
{
    return std::isfinite(value) ? static_cast<float>(value) : 0.0f;
}

} // namespace

bool isPointOnEllipseCenter(FigEllipse* ellipse, int x, int y, double r)
{
    return get_line_length(ellipse->center.x, ellipse->center.y, x, y) < r;
}

bool isPointOnEllipse(CFigContext*, FigEllipse* ellipse, int x, int y, int t, int* px, int* py)
{
    const FigPoint cursor = uprightPoint(ellipse, x, y);
    const FigPoint* hit = nullptr;
    if (isPointOnEllipseCenter(ellipse, cursor.x, cursor.y, t))
        hit = &ellipse->center;
    else if (isNear(cursor.x, cursor.y, ellipse->start, t))
        hit = &ellipse->start;
    else if (isNear(cursor.x, cursor.y, ellipse->end, t))
        hit = &ellipse->end;
    if (hit) {
        *px = hit->x;
        *py = hit->y;
        return true;
    }
    const RadialHit outline(ellipse, cursor, t);
    if (!outline.isNear)
        return false;
    storeTurned(ellipse, round2(ellipse->center.x + outline.x),
                round2(ellipse->center.y + outline.y), px, py);
    return true;
}

bool close_to_ellipse(FigEllipse* ellipse, int x, int y, int t, float* px, float* py, float* tx,
                      float* ty)
{
    const RadialHit outline(ellipse, uprightPoint(ellipse, x, y), t);
    if (!outline.isNear)
        return false;
    const double rx = ellipse->radiuses.x, ry = ellipse->radiuses.y;
    const double sine = std::sin(static_cast<double>(ellipse->angle));
    const double cosine = std::cos(static_cast<double>(ellipse->angle));
    // An ellipse without width or height has no tangent.
    const double alongX = finiteOrZero(-outline.y * rx / ry);
    const double alongY = finiteOrZero(outline.x * ry / rx);
    *px = static_cast<float>(ellipse->center.x + cosine * outline.x + sine * outline.y);
    *py = static_cast<float>(ellipse->center.y - sine * outline.x + cosine * outline.y);
    *tx = static_cast<float>(cosine * alongX + sine * alongY);
    *ty = static_cast<float>(cosine * alongY - sine * alongX);
    return true;
}

FigEllipse* ellipse_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px,
                           int* py, FigObject* excluded)
{
    smart_points_valid = 0;
    const SearchSpot spot(ctx, x, y, t);
    return findOfType<FigEllipse>(list, O_ELLIPSE, [&](FigEllipse* ellipse) {
        if (ellipse == excluded || !isOnActiveLayer(ctx, ellipse) ||
            !spot.mayHit(searchReach(ctx, ellipse)) ||
            !isPointOnEllipse(ctx, ellipse, x, y, t, px, py))
            return false;
        setTangent(ctx, ellipse, *px, *py);
        return true;
    });
}

// --- arcs ---------------------------------------------------------------------------------

namespace {

void setTangent(const FigArc* arc, int px, int py)
{
    const int dx = round2(static_cast<double>(static_cast<float>(px) - arc->center_x));
    const int dy = round2(static_cast<double>(static_cast<float>(py) - arc->center_y));
    set_smart_points(px, py, saturatedInt(static_cast<long long>(px) + dy),
                     saturatedInt(static_cast<long long>(py) - dx));
}

} // namespace

FigArc* arc_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px, int* py)
{
    smart_points_valid = 0;
    const SearchSpot spot(ctx, x, y, t);
    return findOfType<FigArc>(list, O_ARC, [&](FigArc* arc) {
        if (!isOnActiveLayer(ctx, arc) || !spot.mayHit(searchReach(ctx, arc)) ||
            !isPointOnArc(ctx, arc, x, y, t, px, py))
            return false;
        setTangent(arc, *px, *py);
        return true;
    });
}

FigArc* arc_search(CFigContext* ctx, int x, int y, int t, int* px, int* py)
{
    return arc_search(ctx, ctx->getWorkingRoot(), x, y, t, px, py);
}

// --- splines ------------------------------------------------------------------------------

namespace {

bool isOnCurve(CFigContext* ctx, FigSpline* spline, int x, int y, int t, int* px, int* py)
{
    int x1, y1, x2, y2;
    if (!close_to_spline(ctx, spline, x, y, t, px, py, &x1, &y1, &x2, &y2))
        return false;
    set_smart_points(x1, y1, x2, y2);
    return true;
}

bool isOnControlPoint(const FigSpline* spline, int x, int y, int t, int* px, int* py)
{
    for (const FigPoint* point = spline->points; point; point = point->next) {
        if (!isNear(x, y, *point, t))
            continue;
        *px = point->x;
        *py = point->y;
        return true;
    }
    return false;
}

} // namespace

FigSpline* spline_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px,
                         int* py, FigObject* excluded)
{
    smart_points_valid = 0;
    const SearchSpot spot(ctx, x, y, t);
    return findOfType<FigSpline>(list, O_SPLINE, [&](FigSpline* spline) {
        return spline != excluded && isOnActiveLayer(ctx, spline) &&
               spot.mayHit(searchReach(ctx, spline)) &&
               (isOnCurve(ctx, spline, x, y, t, px, py) ||
                isOnControlPoint(spline, x, y, t, px, py));
    });
}

FigSpline* spline_search_like_line(CFigContext* ctx, FigObjectList* list, int x, int y, int t,
                                   int* px, int* py, FigObject* excluded)
{
    return findOfType<FigSpline>(list, O_SPLINE, [&](FigSpline* spline) {
        return spline != excluded && isOnActiveLayer(ctx, spline) &&
               isOnPath(*spline, x, y, t, px, py);
    });
}

// --- compounds ------------------------------------------------------------------------------

namespace {

/// Left, bottom, right, top.
bool isOnEdge(const FigCompound* compound, int x, int y, int t, int* px, int* py)
{
    const FigPoint& nw = compound->nwcorner;
    const FigPoint& se = compound->secorner;
    const float tt = squared(t);
    return close_to_vector(nw.x, nw.y, nw.x, se.y, x, y, t, tt, px, py) ||
           close_to_vector(nw.x, se.y, se.x, se.y, x, y, t, tt, px, py) ||
           close_to_vector(se.x, se.y, se.x, nw.y, x, y, t, tt, px, py) ||
           close_to_vector(se.x, nw.y, nw.x, nw.y, x, y, t, tt, px, py);
}

} // namespace

FigCompound* compound_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px,
                             int* py)
{
    return findOfType<FigCompound>(list, O_COMPOUND, [&](FigCompound* compound) {
        int edgeX, edgeY;
        // The edges first: asking about layers walks all members.
        if (!isOnEdge(compound, x, y, t, &edgeX, &edgeY) || !any_active_in_compound(ctx, compound))
            return false;
        *px = edgeX;
        *py = edgeY;
        return true;
    });
}

FigCompound* compound_search(CFigContext* ctx, int x, int y, int t, int* px, int* py)
{
    return compound_search(ctx, ctx->getWorkingRoot(), x, y, t, px, py);
}

// --- texts -----------------------------------------------------------------------------------

namespace {

/// One font height above the base point, at right angles to the baseline.
FigPoint topPoint(CFigContext* ctx, const FigText* text)
{
    const int height =
        round2(static_cast<double>(static_cast<float>(text->size * 1200) / ctx->ppiY));
    const auto angle = static_cast<double>(text->angle);
    return FigPoint(
        saturatedInt(static_cast<long long>(text->x) - round2(height * std::sin(angle))),
        saturatedInt(static_cast<long long>(text->y) - round2(height * std::cos(angle))));
}

bool isOnText(CFigContext* ctx, const FigText* text, int x, int y, int t, int* px, int* py)
{
    const FigPoint base(text->x, text->y);
    const FigPoint top = topPoint(ctx, text);
    for (const FigPoint& point : {base, top}) {
        if (!isNear(x, y, point, t))
            continue;
        *px = point.x;
        *py = point.y;
        return true;
    }
    return false;
}

} // namespace

FigText* text_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px, int* py)
{
    return findOfType<FigText>(list, O_TEXT, [&](FigText* text) {
        return isOnActiveLayer(ctx, text) && isOnText(ctx, text, x, y, t, px, py);
    });
}

FigText* text_search(CFigContext* ctx, int x, int y, int t, int* px, int* py)
{
    return text_search(ctx, ctx->getWorkingRoot(), x, y, t, px, py);
}
