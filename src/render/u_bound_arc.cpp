// Bounds of arcs: their three points, and the circle where the arc passes an axis direction.
#include "model/FigContext.h"
#include "render/u_bound.h"
#include "render/u_bound_box.h"

#include <cmath>

// Angles are compared in single precision, so an end on an axis counts as passed.

namespace {

constexpr float fullTurn = 6.2831855f;

float angleAtCentre(const FigArc* arc, const FigPoint& point)
{
    const float dx = static_cast<float>(point.x) - arc->center_x;
    const float dy = arc->center_y - static_cast<float>(point.y);
    const float angle = static_cast<float>(std::atan2(double(dy), double(dx)));
    return angle < 0.0f ? angle + fullTurn : angle;
}

double arcRadius(const FigArc* arc)
{
    const double dx = static_cast<float>(arc->point[0].x) - arc->center_x;
    const double dy = static_cast<float>(arc->point[0].y) - arc->center_y;
    return std::sqrt(dx * dx + dy * dy);
}

/// Whether an arc from angle `first` to `last` runs through `direction`. A full circle does.
bool passes(bool counterClockwise, float first, float last, float direction)
{
    if (first == last)
        return true;
    if (counterClockwise)
        return first > last ? direction >= first || last >= direction
                            : last >= direction && direction >= first;
    return first > last ? direction >= last && first >= direction
                        : first >= direction || direction >= last;
}

void includeExtremes(const FigArc* arc, BoundsBox& box)
{
    const float first = angleAtCentre(arc, arc->point[0]);
    const float last = angleAtCentre(arc, arc->point[2]);
    const double r = arcRadius(arc);
    const bool turn = arc->direction != 0;
    if (passes(turn, first, last, 0.0f))
        box.xmax = std::max(box.xmax, truncated(arc->center_x + r + 1));
    if (passes(turn, first, last, 1.5707964f))
        box.ymin = std::min(box.ymin, truncated(arc->center_y - r - 1));
    if (passes(turn, first, last, 3.1415927f))
        box.xmin = std::min(box.xmin, truncated(arc->center_x - r - 1));
    if (passes(turn, first, last, 4.712389f))
        box.ymax = std::max(box.ymax, truncated(arc->center_y + r + 1));
}

} // namespace

void FigArc::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax, bool,
                       bool exact)
{
    BoundsBox box = BoundsBox::at(point[0].x, point[0].y);
    box.include(point[1].x, point[1].y);
    box.include(point[2].x, point[2].y);
    includeExtremes(this, box);
    if (exact)
        box.grow(strokeExtent(this, ctx->ppiX) / 2, strokeExtent(this, ctx->ppiY) / 2);
    if (sub_type == 1)
        box.include(truncated(center_x), truncated(center_y));
    box.store(xmin, ymin, xmax, ymax);
    if (exact)
        arrow_bound(ctx, O_ARC, this, xmin, ymin, xmax, ymax);
}
