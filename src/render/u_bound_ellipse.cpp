// Bounds of ellipses. A rotated one is walked row by row in device units without zoom.
#include "model/FigContext.h"
#include "render/gfx_math.h"
#include "render/u_bound.h"
#include "render/u_bound_box.h"

#include <cmath>

namespace {

/// Rows up to which the walk is made as it stands. A taller ellipse, some forty metres at 80
/// pixels per inch, has its extremes computed: walking it would take seconds.
constexpr double longestWalk = 131072.0;

/// An ellipse in device units: centre, half the width of a row at distance y from the centre is
/// rowScale * sqrt(reach - y y), and the middle of the row is off by slope * y.
struct TurnedEllipse {
    double x, y;
    double reach;
    double rowScale;
    double slope;
};

TurnedEllipse turnedEllipse(const FigEllipse& ellipse, float unitsX, float unitsY)
{
    const double a = static_cast<float>(ellipse.radiuses.x) / unitsX;
    const double b = static_cast<float>(ellipse.radiuses.y) / unitsY;
    const double s = std::sin(static_cast<double>(ellipse.angle));
    const double c = std::cos(static_cast<double>(ellipse.angle));
    TurnedEllipse turned;
    turned.x = static_cast<float>(ellipse.center.x) / unitsX;
    turned.y = static_cast<float>(ellipse.center.y) / unitsY;
    turned.slope = (s * c / (a * a) - s * c / (b * b)) / (s * s / (b * b) + c * c / (a * a));
    turned.reach = b * b * c * c + a * a * s * s;
    turned.rowScale = a * b / turned.reach;
    return turned;
}

BoundsBox nothing()
{
    return {100000, 100000, -100000, -100000};
}

void includeRow(BoundsBox& box, double x, double y, double halfWidth)
{
    box.include(truncated(x + halfWidth), truncated(y));
    box.include(truncated(x - halfWidth), truncated(y));
}

/// Two rows at once, one on each side of the centre.
void includeRows(BoundsBox& box, const TurnedEllipse& e, double row, double offset,
                 double halfWidth)
{
    includeRow(box, e.x + offset, e.y + row, halfWidth);
    includeRow(box, e.x - offset, e.y - row, halfWidth);
}

bool startsOnMiddleRow(const TurnedEllipse& e)
{
    return truncated(std::sqrt(e.reach)) % 2 != 0;
}

/// The row numbers lag one behind the widths unless the middle row came first, so the box can be
/// a pixel or two too small; one of reach below 1 has no rows at all.
BoundsBox walkRows(const TurnedEllipse& e)
{
    BoundsBox box = nothing();
    double q2 = e.rowScale * e.rowScale;
    const double step = 2 * q2;
    double r = e.reach * q2 - q2;
    double row = 0;
    double offset = 0;
    if (startsOnMiddleRow(e)) {
        includeRow(box, e.x, e.y, std::sqrt(r));
        row = 1;
        offset = e.slope;
    }
    while (r >= 0) {
        includeRows(box, e, row, offset, std::sqrt(r));
        q2 += step;
        row += 1;
        offset += e.slope;
        r -= q2;
    }
    return box;
}

/// What the walk would find, from the rows at and around its extremes.
BoundsBox extremeRows(const TurnedEllipse& e)
{
    BoundsBox box = nothing();
    const double lag = startsOnMiddleRow(e) ? 0 : 1;
    const double lastRow = std::floor(std::sqrt(e.reach)) - lag;
    const auto include = [&](double row) {
        row = std::clamp(row, 1 - lag, lastRow);
        const double y = row + lag;
        includeRows(box, e, row, e.slope * row,
                    std::abs(e.rowScale) * std::sqrt(std::max(0.0, e.reach - y * y)));
    };
    const double slope = std::abs(e.slope);
    const double widest =
        std::floor(slope * std::sqrt(e.reach / (e.rowScale * e.rowScale + slope * slope)));
    for (int near = -2; near <= 2; ++near)
        include(widest + near);
    include(lastRow);
    return box;
}

BoundsBox turnedBounds(CFigContext* ctx, const FigEllipse& ellipse, double halfStroke)
{
    const float unitsX = 1200.0f / ctx->ppiX;
    const float unitsY = 1200.0f / ctx->ppiY;
    const TurnedEllipse turned = turnedEllipse(ellipse, unitsX, unitsY);
    const bool tall = turned.reach > longestWalk * longestWalk;
    BoundsBox box = tall ? extremeRows(turned) : walkRows(turned);
    // Half the thickness is added as it is, not converted to pixels.
    box.grow(round2(halfStroke), round2(halfStroke));
    const auto units = [](int pixel, float scale) { return static_cast<float>(pixel) * scale; };
    const FigPoint& start = ellipse.start;
    const FigPoint& end = ellipse.end;
    return {truncated(std::min<double>(units(box.xmin, unitsX), std::min(start.x, end.x))),
            truncated(std::min<double>(units(box.ymin, unitsY), std::min(start.y, end.y))),
            truncated(std::max<double>(units(box.xmax, unitsX), std::max(start.x, end.x))),
            truncated(std::max<double>(units(box.ymax, unitsY), std::max(start.y, end.y)))};
}

BoundsBox straightBounds(CFigContext* ctx, const FigEllipse& ellipse, double halfStroke)
{
    const double wx = (1200.0f / ctx->ppiX) * halfStroke;
    const double wy = (1200.0f / ctx->ppiY) * halfStroke;
    const long cx = ellipse.center.x, cy = ellipse.center.y;
    const long rx = ellipse.radiuses.x, ry = ellipse.radiuses.y;
    return {truncated(cx - rx - wx), truncated(cy - ry - wy), truncated(rx + cx + wx),
            truncated(wy + (cy + ry))};
}

} // namespace

void FigEllipse::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax, bool,
                           bool exact)
{
    const double halfStroke = exact ? thickness * 0.5 : 0.0;
    BoundsBox box = BoundsBox::at(center.x, center.y);
    if (radiuses.x != 0 && radiuses.y != 0)
        box = angle == 0.0f ? straightBounds(ctx, *this, halfStroke)
                            : turnedBounds(ctx, *this, halfStroke);
    box.store(xmin, ymin, xmax, ymax);
}
