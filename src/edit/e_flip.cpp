#include "edit/e_flip.h"

#include "edit/e_links.h"
#include "edit/e_rotate.h"
#include "edit/point_followers.h"
#include "render/gfx_math.h"

#include <algorithm>

namespace {

constexpr int UP_DOWN = 1;
constexpr double degreesPerRadian = 180 / 3.141592653589793;

int mirrored(int value, int centre)
{
    return saturatedInt(2L * centre - value);
}

void mirror(FigPoint* point, int cx, int cy, int axis)
{
    if (axis == UP_DOWN)
        point->y = mirrored(point->y, cy);
    else
        point->x = mirrored(point->x, cx);
}

int toggled(int direction)
{
    return saturatedInt(1L - direction);
}

void mirrorCorners(FigCompound* compound, int cx, int cy, int axis)
{
    FigPoint& first = compound->nwcorner;
    FigPoint& second = compound->secorner;
    mirror(&first, cx, cy, axis);
    mirror(&second, cx, cy, axis);
    if (axis == UP_DOWN)
        std::swap(first.y, second.y);
    else
        std::swap(first.x, second.x);
}

void flipMember(CFigContext* ctx, FigObjectList* list, FigObject* object, int cx, int cy, int axis)
{
    switch (object->type) {
    case O_ELLIPSE:
        return flip_ellipse(ctx, list, static_cast<FigEllipse*>(object), cx, cy, axis);
    case O_POLYLINE:
        return flip_line(ctx, list, static_cast<FigLine*>(object), cx, cy, axis);
    case O_SPLINE:
        return flip_spline(ctx, list, static_cast<FigSpline*>(object), cx, cy, axis);
    case O_TEXT:
        return flip_text(ctx, list, static_cast<FigText*>(object), cx, cy, axis);
    case O_ARC:
        return flip_arc(ctx, list, static_cast<FigArc*>(object), cx, cy, axis);
    case O_COMPOUND:
        return flip_compound(ctx, list, static_cast<FigCompound*>(object), cx, cy, axis);
    }
}

} // namespace

void flip_line(CFigContext*, FigObjectList* list, FigLine* line, int cx, int cy, int axis)
{
    PointFollowers followers(list, line);
    int index = 0;
    for (FigPoint* point = line->points; point; point = point->next, ++index) {
        const FigPoint former = *point;
        mirror(point, cx, cy, axis);
        followers.follow(index, former, *point);
    }
    if (line->sub_type == T_PICTURE && line->pic)
        line->pic->flipped = toggled(line->pic->flipped);
}

void flip_spline(CFigContext*, FigObjectList*, FigSpline* spline, int cx, int cy, int axis)
{
    for (FigPoint* point = spline->points; point; point = point->next)
        mirror(point, cx, cy, axis);
}

void flip_text(CFigContext*, FigObjectList*, FigText* text, int cx, int cy, int axis)
{
    if (axis == UP_DOWN)
        text->y = mirrored(text->y, cy);
    else
        text->x = mirrored(text->x, cx);
}

// Turned upright, mirrored, and turned on by the same angle, which is the mirrored tilt.
void flip_ellipse(CFigContext*, FigObjectList* list, FigEllipse* ellipse, int cx, int cy, int axis)
{
    const int degrees = round2(ellipse->angle * degreesPerRadian);
    rotate_ellipse(ellipse, ellipse->center.x, ellipse->center.y, degrees);
    for (FigPoint* point : {&ellipse->center, &ellipse->start, &ellipse->end})
        mirror(point, cx, cy, axis);
    ellipse->direction = toggled(ellipse->direction);
    rotate_ellipse(ellipse, ellipse->center.x, ellipse->center.y, degrees);
    FigObjectList changed;
    FigPointList done;
    adjust_links_flip_ellipse(ellipse, cx, cy, axis, list, &changed, &done);
}

void flip_arc(CFigContext*, FigObjectList*, FigArc* arc, int cx, int cy, int axis)
{
    for (FigPoint& point : arc->point)
        mirror(&point, cx, cy, axis);
    // Single precision, in this order.
    if (axis == UP_DOWN)
        arc->center_y = static_cast<float>(cy) + (static_cast<float>(cy) - arc->center_y);
    else
        arc->center_x = static_cast<float>(cx) + (static_cast<float>(cx) - arc->center_x);
    arc->direction = toggled(arc->direction);
}

void flip_compound(CFigContext* ctx, FigObjectList* list, FigCompound* compound, int cx, int cy,
                   int axis)
{
    mirrorCorners(compound, cx, cy, axis);
    // Looked for once: a search of the whole figure for each member would not end in time.
    FigObjectList sources;
    if (list)
        findObjectsThatConnectTo(list, compound, &sources);
    for (FigObject* member : qAsConst(*compound->objects))
        flipMember(ctx, &sources, member, cx, cy, axis);
}
