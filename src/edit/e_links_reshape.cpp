// How linked points follow when their target changes its shape: a corner is moved or removed, the
// radii of an ellipse change.
#include "edit/e_links.h"
#include "edit/e_rotate.h"
#include "edit/links_followed.h"
#include "model/FigContext.h"
#include "model/u_list.h"
#include "render/gfx_math.h"

#include <cmath>
#include <memory>
#include <optional>

using namespace linkwalk;

namespace {

// --- a corner of a line is moved ------------------------------------------------------

/// One end of a segment before and after its move, and the end that stood still.
struct MovedSegment {
    int formerX, formerY;
    const FigPoint* end;
    const FigPoint* fixed;
};

/// Keeps the point at its place on the segment while that stretches and turns: lengths in double
/// precision, then the turn about the fixed end. False where the segment had no length.
bool followSegment(FigPoint* point, const MovedSegment& segment)
{
    const FigPoint* fixed = segment.fixed;
    const double formerLength =
        get_line_length(segment.formerX, segment.formerY, fixed->x, fixed->y);
    if (formerLength == 0.0)
        return false;
    const double length = get_line_length(segment.end->x, segment.end->y, fixed->x, fixed->y);
    int fixedX = fixed->x, fixedY = fixed->y;
    lengthen_line(&point->x, &point->y, &fixedX, &fixedY, length / formerLength, true, false);
    const double angle = getAngle(fixed->x, fixed->y, segment.formerX, segment.formerY, fixed->x,
                                  fixed->y, segment.end->x, segment.end->y);
    rotatePoint(fixed->x, fixed->y, point->x, point->y, &point->x, &point->y, angle);
    return true;
}

/// The segment of a link, if point index, which has been moved by (dx, dy), is an end of it.
std::optional<MovedSegment> movedSegment(FigLine* line, const FigLink* link, int index, int dx,
                                         int dy)
{
    const FigPoint* left = line->getPoint(link->targetLeftPointIdx);
    const FigPoint* right = line->getPoint(link->targetRightPointIdx);
    if (!left || !right)
        return std::nullopt;
    const bool isLeft = index == link->targetLeftPointIdx;
    if (!isLeft && index != link->targetRightPointIdx)
        return std::nullopt;
    const FigPoint* end = isLeft ? left : right;
    return MovedSegment{saturatedInt(static_cast<long long>(end->x) - dx),
                        saturatedInt(static_cast<long long>(end->y) - dy), end,
                        isLeft ? right : left};
}

// --- the radii of an ellipse change ------------------------------------------------------

constexpr double DEGREES_PER_RADIAN = 180.0 / M_PI;

int wholeDegrees(const FigEllipse* ellipse)
{
    return round2(ellipse->angle * DEGREES_PER_RADIAN);
}

/// A copy, turned about its centre until its axes lie level.
std::unique_ptr<FigEllipse> uprightCopy(FigEllipse* ellipse, int degrees)
{
    std::unique_ptr<FigEllipse> copied(static_cast<FigEllipse*>(ellipse->clone()));
    rotate_ellipse(copied.get(), copied->center.x, copied->center.y, degrees);
    return copied;
}

struct Flips {
    bool x, y;
};

/// Pulled through its centre: told only of ellipses, for a circle looks the same.
Flips flipsBetween(FigEllipse* ellipse, FigEllipse* former)
{
    const bool isTold = former->angle == 0.0f && (former->sub_type == 1 || former->sub_type == 2);
    return {isTold && isFlippedX(former, ellipse), isTold && isFlippedY(former, ellipse)};
}

/// One axis of two upright ellipses.
struct Axis {
    int formerCentre, centre;
    double formerRadius, radius;

    /// Distance from the centre in radii.
    double place(int position) const
    {
        return std::fabs(static_cast<double>(position) - formerCentre) / formerRadius;
    }

    /// The position that has this place on the new ellipse.
    double at(double place, bool beyond) const
    {
        return centre + (beyond ? place : -place) * radius;
    }
};

struct Position {
    double x, y;
};

using Solver = double (*)(double, double, double, double, double, bool, bool*);

/// The position whose one coordinate is given and whose other one lies on the outline.
std::optional<double> solved(Solver solve, const Axis& x, const Axis& y, double given, bool beyond)
{
    bool ok = false;
    const double result = solve(x.centre, y.centre, x.radius, y.radius, given, beyond, &ok);
    return ok && std::isfinite(result) ? std::optional<double>(result) : std::nullopt;
}

std::optional<Position> solvedForX(const Axis& x, const Axis& y, double given, bool right)
{
    const std::optional<double> found = solved(getEllipseX, x, y, given, right);
    return found ? std::optional<Position>({*found, given}) : std::nullopt;
}

std::optional<Position> solvedForY(const Axis& x, const Axis& y, double given, bool below)
{
    const std::optional<double> found = solved(getEllipseY, x, y, given, below);
    return found ? std::optional<Position>({given, *found}) : std::nullopt;
}

/// The point's place on the old ellipse, found on the new one. The coordinate along which the
/// outline runs is taken in proportion and the other one solved for, since that keeps the point
/// from sliding away; the other way round where there is no solution. None at all for an ellipse
/// that is or was flat: the point is left, and is right again when the change is taken back.
std::optional<Position> placeOnResized(const FigPoint& point, const Axis& x, const Axis& y,
                                       const Flips& flips)
{
    if (x.formerRadius == 0 || y.formerRadius == 0)
        return std::nullopt;
    const bool right = flips.x ? point.x <= x.formerCentre : point.x > x.formerCentre;
    const bool below = flips.y ? point.y <= y.formerCentre : point.y > y.formerCentre;
    const double placeX = x.place(point.x), placeY = y.place(point.y);
    const double inProportionX = x.at(placeX, right), inProportionY = y.at(placeY, below);
    const bool runsAlongY = placeY < placeX;
    const std::optional<Position> found = runsAlongY ? solvedForX(x, y, inProportionY, right)
                                                     : solvedForY(x, y, inProportionX, below);
    if (found)
        return found;
    return runsAlongY ? solvedForY(x, y, inProportionX, below)
                      : solvedForX(x, y, inProportionY, right);
}

// --- a corner is removed ------------------------------------------------------------------

/// The chain around a point that is about to go.
struct Removal {
    FigPath* path;
    FigPoint* point;
    FigPoint* previous;
    bool isOpen;

    bool isFirst() const { return point == path->points; }
    /// The last real point of a closed chain.
    FigPoint* beforeClosingCopy() const
    {
        return prev_point(path->points, last_point(path->points));
    }
};

void removeLink(FigPoint* source)
{
    objectwalk::removeLink(source);
}

void replaceLeft(FigPoint* source, const Removal& removal)
{
    FigLink* link = source->link;
    if (!removal.isFirst()) {
        link->targetLeftPoint = removal.previous;
        --link->targetLeftPointIdx;
        if (link->targetRightPointIdx != 0)
            --link->targetRightPointIdx;
        return;
    }
    FigPoint* last = removal.isOpen ? nullptr : removal.beforeClosingCopy();
    if (!last || last == removal.point) {
        removeLink(source);
        return;
    }
    link->targetLeftPoint = last;
    link->targetLeftPointIdx = removal.path->getIndex(last) - 1;
    link->targetRightPointIdx = 0;
    link->targetRightPoint = removal.point->next;
}

void replaceRight(FigPoint* source, const Removal& removal)
{
    FigLink* link = source->link;
    FigPoint* next = removal.point->next;
    if (!next) {
        if (removal.isOpen)
            removeLink(source);
    } else if (removal.isOpen) {
        link->targetRightPoint = next;
    } else if (!next->next) {
        link->targetRightPoint = removal.path->points;
        link->targetRightPointIdx = 0;
    } else {
        link->targetRightPoint = next;
        if (removal.isFirst())
            --link->targetLeftPointIdx;
    }
}

} // namespace

void adjust_links_move_point(FigObject* object, int index, FigObjectList* list, int dx, int dy,
                             FigObjectList* changed, FigPointList* done)
{
    ObjectIds targets;
    targets.add(object);
    FigLine* line = object->type == O_POLYLINE ? static_cast<FigLine*>(object) : nullptr;
    // Links on other targets know no segment: a closed spline does not pull.
    followLinks(&targets, {list, changed, nullptr, done, nullptr}, [&](FigPoint* point) {
        if (!line)
            return false;
        const auto segment = movedSegment(line, point->link, index, dx, dy);
        return segment && followSegment(point, *segment);
    });
}

void adjust_links_resize_ellipse(CFigContext*, FigEllipse* ellipse, FigEllipse* former,
                                 FigObjectList* list, FigObjectList* changed, FigPointList* done)
{
    const bool isTurned = former->angle != 0.0f;
    const int degrees = isTurned ? wholeDegrees(former) : 0;
    std::unique_ptr<FigEllipse> level, formerLevel;
    const Flips flips = flipsBetween(ellipse, former);
    if (isTurned) {
        level = uprightCopy(ellipse, wholeDegrees(ellipse));
        formerLevel = uprightCopy(former, degrees);
    }
    const FigEllipse* to = level ? level.get() : ellipse;
    const FigEllipse* from = formerLevel ? formerLevel.get() : former;
    const Axis x{from->center.x, to->center.x, static_cast<double>(from->radiuses.x),
                 static_cast<double>(to->radiuses.x)};
    const Axis y{from->center.y, to->center.y, static_cast<double>(from->radiuses.y),
                 static_cast<double>(to->radiuses.y)};

    ObjectIds targets;
    targets.add(ellipse);
    followLinks(&targets, {list, changed, nullptr, done, nullptr}, [&](FigPoint* point) {
        FigPoint place(point->x, point->y);
        if (isTurned)
            rotate_pos(&place, x.formerCentre, y.formerCentre, degrees);
        const std::optional<Position> found = placeOnResized(place, x, y, flips);
        if (!found)
            return false;
        place.x = round2(found->x);
        place.y = round2(found->y);
        if (isTurned)
            rotate_pos(&place, x.centre, y.centre, -degrees);
        point->x = place.x;
        point->y = place.y;
        return true;
    });
}

void updateLinks4removedPoint(CFigContext* ctx, FigObject* object, FigPath* path, bool open,
                              FigPoint* point)
{
    if (!point)
        return;
    FigPointList sources;
    findPointsThatConnectTo(ctx->getWorkingRoot(), object, &sources);
    const Removal removal{path, point, path->findPredecessor(point), open};
    for (FigPoint* source : qAsConst(sources)) {
        if (source->link->targetLeftPoint == point)
            replaceLeft(source, removal);
        else if (source->link->targetRightPoint == point)
            replaceRight(source, removal);
    }
}
