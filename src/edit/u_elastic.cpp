#include "edit/u_elastic.h"

#include "edit/command.h"
#include "edit/mode.h"
#include "edit/u_geom.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/coords.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/grid.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

int x1off = 0;
int y1off = 0;
int x2off = 0;
int y2off = 0;

namespace {

// Style values and raster operations of pw_vector.
constexpr int SOLID = 0;
constexpr int DOTTED = 2;
constexpr int RUBBER = 11;
constexpr int INVERT = 1;
constexpr int PLAIN = 3;


constexpr double TWO_PI = 6.283185307179586;

void vector(CFigContext* ctx, int x1, int y1, int x2, int y2, int style, int op)
{
    if (!ctx || !ctx->painter)
        return;
    const PlainPixels plain(ctx);
    pw_vector(ctx, x1, y1, x2, y2, style, op);
}

void box(CFigContext* ctx, int x1, int y1, int x2, int y2, int style, int op)
{
    vector(ctx, x1, y1, x1, y2, style, op);
    vector(ctx, x1, y2, x2, y2, style, op);
    vector(ctx, x2, y2, x2, y1, style, op);
    vector(ctx, x2, y1, x1, y1, style, op);
}

/// Draws the old shape, which wipes it, takes the new position over and draws the new shape.
template <typename Draw> void moveTo(int x, int y, Draw draw)
{
    draw();
    cur_x = x;
    cur_y = y;
    draw();
}

FigPoint* chainOfCurrentObject(CFigContext* ctx)
{
    if (auto* line = dynamic_cast<FigLine*>(ctx->curObject))
        return line->points;
    if (auto* spline = dynamic_cast<FigSpline*>(ctx->curObject))
        return spline->points;
    return nullptr;
}

} // namespace

PlainPixels::PlainPixels(CFigContext* ctx) : painter(ctx ? ctx->painter : nullptr)
{
    smooth = painter && painter->testRenderHint(QPainter::Antialiasing);
    if (smooth)
        painter->setRenderHint(QPainter::Antialiasing, false);
}

PlainPixels::~PlainPixels()
{
    if (smooth)
        painter->setRenderHint(QPainter::Antialiasing, true);
}

// --- boxes -------------------------------------------------------------------------------

void elastic_box(CFigContext* ctx, int x1, int y1, int x2, int y2)
{
    box(ctx, x1, y1, x2, y2, SOLID, INVERT);
}

void elastic_rubberbox(CFigContext* ctx, int x1, int y1, int x2, int y2)
{
    box(ctx, x1, y1, x2, y2, RUBBER, INVERT);
}

void elastic_dottedbox(CFigContext* ctx, int x1, int y1, int x2, int y2)
{
    box(ctx, x1, y1, x2, y2, DOTTED, INVERT);
}

void rubberbox(CFigContext* ctx, int x1, int y1, int x2, int y2)
{
    box(ctx, x1, y1, x2, y2, RUBBER, PLAIN);
}

void dottedbox(CFigContext* ctx, int x1, int y1, int x2, int y2)
{
    box(ctx, x1, y1, x2, y2, DOTTED, PLAIN);
}

void elastic_movebox(CFigContext* ctx)
{
    elastic_box(ctx, saturatedSum(cur_x, x1off), saturatedSum(cur_y, y1off),
                saturatedSum(cur_x, x2off), saturatedSum(cur_y, y2off));
}

void resizing_box(CFigContext* ctx, int x, int y)
{
    constrained_resizing_box(ctx, x, y);
}

void constrained_resizing_box(CFigContext* ctx, int x, int y)
{
    moveTo(x, y, [ctx] { elastic_box(ctx, fix_x, fix_y, cur_x, cur_y); });
}

void resizing_rubberbox(CFigContext* ctx, int x, int y)
{
    moveTo(x, y, [ctx] { elastic_rubberbox(ctx, fix_x, fix_y, cur_x, cur_y); });
}

void resizing_dottedbox(CFigContext* ctx, int x, int y)
{
    moveTo(x, y, [ctx] { elastic_dottedbox(ctx, fix_x, fix_y, cur_x, cur_y); });
}

void capture_objects(CFigContext* ctx, int x, int y)
{
    resizing_dottedbox(ctx, x, y);
}

void moving_box(CFigContext* ctx, int x, int y)
{
    moveTo(x, y, [ctx] { elastic_movebox(ctx); });
}

// --- lines -------------------------------------------------------------------------------

void elastic_line(CFigContext* ctx, int x1, int y1, int x2, int y2)
{
    vector(ctx, x1, y1, x2, y2, SOLID, INVERT);
}

void elastic_linelink(CFigContext* ctx, int, int, int, int)
{
    elastic_linelink(ctx, left_point, right_point, cur_x, cur_y);
}

void elastic_linelink(CFigContext* ctx, FigPoint* left, FigPoint* right, int x, int y)
{
    if (left)
        elastic_line(ctx, left->x, left->y, x, y);
    if (right)
        elastic_line(ctx, right->x, right->y, x, y);
}

void elastic_moveline(CFigContext* ctx, FigPoint* first, int dx, int dy)
{
    if (!first)
        return;
    if (!first->next) {
        elastic_line(ctx, cur_x, cur_y, cur_x, cur_y);
        return;
    }
    for (const FigPoint* point = first; point->next; point = point->next)
        elastic_line(ctx, saturatedSum(point->x, dx), saturatedSum(point->y, dy),
                     saturatedSum(point->next->x, dx), saturatedSum(point->next->y, dy));
}

void elastic_arclink(CFigContext* ctx)
{
    auto* arc = ctx ? dynamic_cast<FigArc*>(ctx->curObject) : nullptr;
    if (!arc)
        return;
    if (movedpoint_num == 1)
        elastic_linelink(ctx, &arc->point[0], &arc->point[2], cur_x, cur_y);
    else
        elastic_line(ctx, arc->point[1].x, arc->point[1].y, cur_x, cur_y);
}

void freehand_line(CFigContext* ctx, int x, int y)
{
    moveTo(x, y, [ctx] { elastic_line(ctx, fix_x, fix_y, cur_x, cur_y); });
}

void latex_line(CFigContext* ctx, int x, int y)
{
    elastic_line(ctx, fix_x, fix_y, cur_x, cur_y);
    // With snapping on the position is on the grid already, so each unit counts; without it the
    // end is kept on multiples of the grid step.
    const bool snapping = (gridPreferences.snapMode & SNAP_GRID) != 0;
    const int magnitude = snapping || !ctx ? 1 : std::max(1, round2(getGridRound(ctx)));
    latex_endpoint(fix_x, fix_y, x, y, &cur_x, &cur_y, latexarrow_mode, magnitude);
    elastic_line(ctx, fix_x, fix_y, cur_x, cur_y);
}

namespace {

using DirectionProc = void (*)(int x, int y);

/// The direction procedure that the mode flags allow for a way of (dx, dy), y up.
DirectionProc allowedDirection(double dx, double dy)
{
    // Straight up or down without the manhattan mode always takes the falling diagonal.
    if (dx == 0)
        return manhattan_mode ? angle90_line : angle135_line;
    const double angle = std::atan(dy / dx) * 180.0 / 3.141592653589793;
    if (!manhattan_mode)
        return angle < 0 ? angle135_line : angle45_line;
    if (!mountain_mode)
        return angle >= -45 && angle < 45 ? angle0_line : angle90_line;
    if (angle < -67.5 || angle >= 67.5)
        return angle90_line;
    if (angle < -22.5)
        return angle135_line;
    return angle < 22.5 ? angle0_line : angle45_line;
}

} // namespace

void constrainedangle_line(CFigContext* ctx, int x, int y)
{
    if (x == cur_x && y == cur_y)
        return;
    const double dx = static_cast<double>(x) - fix_x;
    const double dy = static_cast<double>(fix_y) - y;
    // So near to the anchor there is no direction: the rubber line stays where it was.
    if (std::sqrt(dx * dx + dy * dy) < 2.0)
        return;
    elastic_line(ctx, fix_x, fix_y, cur_x, cur_y);
    allowedDirection(dx, dy)(x, y);
    elastic_line(ctx, fix_x, fix_y, cur_x, cur_y);
}

void angle0_line(int x, int)
{
    cur_x = x;
    cur_y = fix_y;
}

void angle90_line(int, int y)
{
    cur_x = fix_x;
    cur_y = y;
}

namespace {

bool isSteep(int x, int y)
{
    return std::llabs(static_cast<long long>(x) - fix_x) <
           std::llabs(static_cast<long long>(y) - fix_y);
}

} // namespace

void angle45_line(int x, int y)
{
    const long long both = static_cast<long long>(fix_x) + fix_y;
    if (isSteep(x, y)) {
        cur_y = y;
        cur_x = saturatedInt(both - y);
    } else {
        cur_x = x;
        cur_y = saturatedInt(both - x);
    }
}

void angle135_line(int x, int y)
{
    if (isSteep(x, y)) {
        cur_y = y;
        cur_x = saturatedInt(static_cast<long long>(fix_x) + y - fix_y);
    } else {
        cur_x = x;
        cur_y = saturatedInt(static_cast<long long>(fix_y) + x - fix_x);
    }
}

void moving_line(CFigContext* ctx, int x, int y)
{
    if (!ctx)
        return;
    FigPoint* chain = chainOfCurrentObject(ctx);
    moveTo(x, y, [ctx, chain] {
        elastic_moveline(ctx, chain, saturatedDifference(cur_x, fix_x),
                         saturatedDifference(cur_y, fix_y));
    });
}

void moving_spline(CFigContext* ctx, int x, int y)
{
    moving_line(ctx, x, y);
}

// --- regular polygons --------------------------------------------------------------------

void elastic_poly(CFigContext* ctx, int cx, int cy, int px, int py, int n)
{
    if (n < 2) {
        elastic_line(ctx, px, py, px, py);
        return;
    }
    const double dx = static_cast<double>(px) - cx;
    const double dy = static_cast<double>(py) - cy;
    const double radius = std::sqrt(dx * dx + dy * dy);
    const double base = compute_angle(dx, dy);
    int lastX = px, lastY = py;
    for (int i = 1; i < n; ++i) {
        // Single precision here but double in the finished polygon, so that a corner of the
        // preview may lie one unit beside the final one.
        float angle = static_cast<float>(base - i * TWO_PI / n);
        if (angle < 0)
            angle = static_cast<float>(angle + TWO_PI);
        const double turn = angle;
        const int x = saturatedSum(cx, round2(radius * std::cos(turn)));
        const int y = saturatedSum(cy, round2(radius * std::sin(turn)));
        elastic_line(ctx, x, y, lastX, lastY);
        lastX = x;
        lastY = y;
    }
    elastic_line(ctx, lastX, lastY, px, py);
}

void resizing_poly(CFigContext* ctx, int x, int y)
{
    moveTo(x, y, [ctx] { elastic_poly(ctx, fix_x, fix_y, cur_x, cur_y, cur_numsides); });
}

// --- circles and ellipses ------------------------------------------------------------------

namespace {

int doubled(int v)
{
    return saturatedInt(2LL * v);
}

int distanceOf(long long dx, long long dy)
{
    // Squares of doubles: exact wherever those of 32-bit integers are, and never out of range.
    const double x = static_cast<double>(dx);
    const double y = static_cast<double>(dy);
    return round2(std::sqrt(x * x + y * y));
}

} // namespace

void elastic_ellipse(CFigContext* ctx, int cx, int cy, int rx, int ry, float angle)
{
    if (!ctx || !ctx->painter || rx == 0 || ry == 0)
        return;
    const int across = axisDistance(rx, 0);
    const int down = axisDistance(ry, 0);
    // The scroll offset is taken off inside the turned frame, not from the centre.
    const QRectF rect(static_cast<double>(round2(scaledX(ctx, -across))) - ctx->shiftX,
                      static_cast<double>(round2(scaledY(ctx, -down))) - ctx->shiftY,
                      round2(scaledX(ctx, doubled(across))), round2(scaledY(ctx, doubled(down))));
    QPainter* painter = ctx->painter;
    const PlainPixels plain(ctx);
    elasticMode(painter, INVERT);
    painter->translate(round2(scaledX(ctx, cx)), round2(scaledY(ctx, cy)));
    painter->rotate(round2(-angle * 180.0 / M_PI)); // whole degrees, whatever the object's angle
    painter->setBrush(Qt::NoBrush);
    painter->drawEllipse(rect);
    painter->resetTransform();
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void elastic_ebr(CFigContext* ctx, int, int, int, int)
{
    elastic_ellipse(ctx, fix_x, fix_y, saturatedDifference(cur_x, fix_x),
                    saturatedDifference(cur_y, fix_y), cur_angle);
}

void elastic_ebd(CFigContext* ctx, int, int, int, int)
{
    const long long wide = std::llabs(static_cast<long long>(cur_x) - fix_x);
    const long long high = std::llabs(static_cast<long long>(cur_y) - fix_y);
    elastic_ellipse(ctx, static_cast<int>((static_cast<long long>(cur_x) + fix_x) / 2),
                    static_cast<int>((static_cast<long long>(cur_y) + fix_y) / 2),
                    static_cast<int>(wide >> 1), static_cast<int>(high >> 1), cur_angle);
}

void elastic_cbr(CFigContext* ctx, int, int, int, int)
{
    const int radius =
        distanceOf(static_cast<long long>(cur_x) - fix_x, static_cast<long long>(cur_y) - fix_y);
    elastic_ellipse(ctx, fix_x, fix_y, radius, radius, 0);
}

void elastic_cbd(CFigContext* ctx, int, int, int, int)
{
    const long long dx = (static_cast<long long>(cur_x) - fix_x) / 2;
    const long long dy = (static_cast<long long>(cur_y) - fix_y) / 2;
    const int radius = distanceOf(dx, dy);
    elastic_ellipse(ctx, static_cast<int>(fix_x + dx), static_cast<int>(fix_y + dy), radius, radius,
                    0);
}

void resizing_ebr(CFigContext* ctx, int x, int y)
{
    moveTo(x, y, [ctx] { elastic_ebr(ctx); });
}

void resizing_ebd(CFigContext* ctx, int x, int y)
{
    moveTo(x, y, [ctx] { elastic_ebd(ctx); });
}

void resizing_cbr(CFigContext* ctx, int x, int y)
{
    moveTo(x, y, [ctx] { elastic_cbr(ctx); });
}

void resizing_cbd(CFigContext* ctx, int x, int y)
{
    moveTo(x, y, [ctx] { elastic_cbd(ctx); });
}

void elastic_moveellipse(CFigContext* ctx, FigEllipse* ellipse, int dx, int dy)
{
    if (ellipse)
        elastic_ellipse(ctx, saturatedSum(ellipse->center.x, dx),
                        saturatedSum(ellipse->center.y, dy), ellipse->radiuses.x,
                        ellipse->radiuses.y, ellipse->angle);
}

void moving_ellipse(CFigContext* ctx, int x, int y)
{
    if (!ctx)
        return;
    auto* ellipse = dynamic_cast<FigEllipse*>(ctx->curObject);
    moveTo(x, y, [ctx, ellipse] {
        elastic_moveellipse(ctx, ellipse, saturatedDifference(cur_x, fix_x),
                            saturatedDifference(cur_y, fix_y));
    });
}
