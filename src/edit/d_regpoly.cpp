#include "edit/d_regpoly.h"

#include "edit/d_create.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"
#include "model/FigContext.h"
#include "model/u_list.h"
#include "render/gfx_math.h"

#include <cmath>

namespace {

constexpr double TWO_PI = 6.283185307179586;

void drawOutline(CFigContext* ctx)
{
    elastic_poly(ctx, fix_x, fix_y, cur_x, cur_y, cur_numsides);
}

void appendCorner(int cx, int cy, double radius, double angle, FigPoint** last)
{
    if (angle < 0)
        angle += TWO_PI;
    append_point(saturatedSum(cx, round2(radius * std::cos(angle))),
                 saturatedSum(cy, round2(radius * std::sin(angle))), last);
}

} // namespace

void regpoly_drawing_selected(CFigContext*)
{
    wait_for_first_point(init_regpoly_drawing);
}

// The outline takes the number of sides besides two points, so it is no shape for a redraw to
// repeat: elastic_proc stays empty, and last_edited_point as it was.
FigObject* init_regpoly_drawing(CFigContext* ctx, int x, int y, FigObject*)
{
    begin_gesture(ctx, x, y, resizing_poly, create_regpoly, cancel_regpoly);
    drawOutline(ctx);
    return nullptr;
}

FigObject* create_regpoly(CFigContext* ctx, int x, int y, FigObject*)
{
    drawOutline(ctx);
    // A corner on the centre is no polygon: the tool stays active, its outline wiped.
    if (x == fix_x && y == fix_y)
        return nullptr;
    FigLine* polygon = createRegpolyFromCurrentAttrs(ctx);
    polygon->points = calculateRepolyPoints(fix_x, fix_y, x, y);
    add_created_object(ctx, polygon);
    regpoly_drawing_selected(ctx);
    return polygon;
}

void cancel_regpoly(CFigContext* ctx, int, int, FigObject*)
{
    drawOutline(ctx);
    regpoly_drawing_selected(ctx);
}

FigPoint* calculateRepolyPoints(int cx, int cy, int px, int py)
{
    const double dx = static_cast<double>(px) - cx;
    const double dy = static_cast<double>(py) - cy;
    const double radius = std::sqrt(dx * dx + dy * dy);
    const double base = compute_angle(dx, dy);
    FigPoint* last = nullptr;
    append_point(px, py, &last);
    FigPoint* first = last;
    // Double precision, unlike the preview's.
    for (int i = 1; i < cur_numsides; ++i)
        appendCorner(cx, cy, radius, base - i * TWO_PI / cur_numsides, &last);
    append_point(px, py, &last);
    return first;
}

FigPoint* calculateRepolyPoints(int cx, int cy, double radius, double angle)
{
    FigPoint* first = nullptr;
    FigPoint* last = nullptr;
    for (int i = 0; i < cur_numsides; ++i) {
        appendCorner(cx, cy, radius, i * TWO_PI / cur_numsides + angle, &last);
        if (!first)
            first = last;
    }
    if (first)
        append_point(first->x, first->y, &last);
    return first;
}
