#include "edit/e_scale.h"

#include "edit/u_geom.h"
#include "model/FigContext.h"
#include "render/Font.h"
#include "render/gfx_math.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr int smallestTextSize = 1;
constexpr int largestTextSize = 500;
constexpr int RIGID_TEXT = 1;

/// Single precision throughout, in this order.
int scaled(int value, int centre, float factor)
{
    const float offset = static_cast<float>(static_cast<long>(value) - centre);
    return round2(offset * factor + static_cast<float>(centre));
}

/// The offset is truncated before it is added to the centre, which the other axis does not do.
int scaledTruncated(int value, int centre, float factor)
{
    const float offset = static_cast<float>(static_cast<long>(value) - centre) * factor;
    return saturatedInt(static_cast<long>(centre) + truncateToInt(offset));
}

int scaledLength(int length, float factor)
{
    return saturatedInt(std::labs(round2(static_cast<float>(length) * factor)));
}

void scaleAround(FigPoint* point, float xfactor, float yfactor, int cx, int cy)
{
    point->x = scaled(point->x, cx, xfactor);
    point->y = scaled(point->y, cy, yfactor);
}

bool staysWithItsTarget(const FigPoint* point)
{
    return point->link && point->link->flag;
}

/// Corner radius after a change of size: at most half the shorter side, at least 1. The radius is
/// in display units, the sides are in figure units.
int scaledRadius(int radius, float xfactor, float yfactor, FigLine* box)
{
    const int wanted =
        saturatedInt(std::labs(round2((xfactor + yfactor) * static_cast<float>(radius) * 0.5)));
    const int half = std::min(box->getWidth() / 2, box->getHeight() / 2);
    return std::max(1, std::min(wanted, half));
}

float sideFactor(int resized, int former)
{
    return former == 0 ? 1.0f : static_cast<float>(resized) / static_cast<float>(former);
}

/// One unit toward the side on which `to` lay of `from`; upward for the same place.
int stepToward(int from, int to)
{
    return to < from ? -1 : 1;
}

/// Points that have fallen together part again.
void separate(FigPoint* points, const FigPoint* former)
{
    if (points[0].x == points[1].x)
        points[1].x = saturatedInt(points[1].x + long(stepToward(former[0].x, former[1].x)));
    if (points[0].y == points[1].y)
        points[1].y = saturatedInt(points[1].y + long(stepToward(former[0].y, former[1].y)));
    if (points[0].x == points[2].x && points[0].y == points[2].y)
        points[2].x = saturatedInt(points[2].x + 1L);
}

/// Single precision, in this order: files of other resolutions land on the same unit with it.
int readScaled(float value, float factor, int offset)
{
    return round2(value * factor + static_cast<float>(offset));
}

int readScaled(int value, float factor, int offset)
{
    return readScaled(static_cast<float>(value), factor, offset);
}

void scalePoint(FigPoint* point, float factor, int offset)
{
    point->x = readScaled(point->x, factor, offset);
    point->y = readScaled(point->y, factor, offset);
}

void scalePoints(FigPoint* first, float factor, int offset)
{
    for (FigPoint* point = first; point; point = point->next)
        scalePoint(point, factor, offset);
}

void scaleArrows(FigObject* object, float factor, int offset)
{
    read_scale_arrow(object->forward_arrow, factor, offset);
    read_scale_arrow(object->backward_arrow, factor, offset);
}

void scaleObject(FigObject* object, float factor, int offset)
{
    switch (object->type) {
    case O_ELLIPSE:
        return read_scale_ellipse(static_cast<FigEllipse*>(object), factor, offset);
    case O_POLYLINE:
        return read_scale_line(static_cast<FigLine*>(object), factor, offset);
    case O_SPLINE:
        return read_scale_spline(static_cast<FigSpline*>(object), factor, offset);
    case O_TEXT:
        return read_scale_text(static_cast<FigText*>(object), factor, offset);
    case O_ARC:
        return read_scale_arc(static_cast<FigArc*>(object), factor, offset);
    case O_COMPOUND:
        return read_scale_compound(static_cast<FigCompound*>(object), factor, offset);
    }
}

} // namespace

namespace {

/// The corners of inner compounds are left to the outermost one, which brings all up to date.
void scaleMembers(CFigContext* ctx, FigCompound* compound, float xfactor, float yfactor, int cx,
                  int cy)
{
    for (FigObject* member : qAsConst(*compound->objects)) {
        if (member->type == O_COMPOUND)
            scaleMembers(ctx, static_cast<FigCompound*>(member), xfactor, yfactor, cx, cy);
        else
            scale_object(ctx, member, xfactor, yfactor, cx, cy);
    }
}

} // namespace

// --- about a centre -----------------------------------------------------------------

void scale_object(CFigContext* ctx, FigObject* object, float xfactor, float yfactor, int cx, int cy)
{
    switch (object->type) {
    case O_ELLIPSE:
        return scale_ellipse(static_cast<FigEllipse*>(object), xfactor, yfactor, cx, cy);
    case O_POLYLINE:
        return scale_line(static_cast<FigLine*>(object), xfactor, yfactor, cx, cy);
    case O_SPLINE:
        return scale_spline(static_cast<FigSpline*>(object), xfactor, yfactor, cx, cy);
    case O_TEXT:
        return scale_text(ctx, static_cast<FigText*>(object), xfactor, yfactor, cx, cy);
    case O_ARC:
        return scale_arc(static_cast<FigArc*>(object), xfactor, yfactor, cx, cy);
    case O_COMPOUND:
        return scale_compound(ctx, static_cast<FigCompound*>(object), xfactor, yfactor, cx, cy);
    }
}

void scale_ellipse(FigEllipse* ellipse, float xfactor, float yfactor, int cx, int cy)
{
    scaleAround(&ellipse->center, xfactor, yfactor, cx, cy);
    scaleAround(&ellipse->start, xfactor, yfactor, cx, cy);
    scaleAround(&ellipse->end, xfactor, yfactor, cx, cy);
    ellipse->radiuses.x = scaledLength(ellipse->radiuses.x, xfactor);
    ellipse->radiuses.y = scaledLength(ellipse->radiuses.y, yfactor);
    // Sub-types 1 and 2 are ellipses, 3 and 4 the circles made the same way.
    const bool isCircle = ellipse->radiuses.x == ellipse->radiuses.y;
    if (!isCircle && (ellipse->sub_type == 3 || ellipse->sub_type == 4))
        ellipse->sub_type -= 2;
    else if (isCircle && (ellipse->sub_type == 1 || ellipse->sub_type == 2))
        ellipse->sub_type += 2;
}

void scale_point(FigPoint* point, float xfactor, float yfactor, int cx, int cy)
{
    point->x = scaledTruncated(point->x, cx, xfactor);
    point->y = scaled(point->y, cy, yfactor);
}

void scale_line(FigLine* line, float xfactor, float yfactor, int cx, int cy)
{
    for (FigPoint* point = line->points; point; point = point->next)
        if (!staysWithItsTarget(point))
            scale_point(point, xfactor, yfactor, cx, cy);
    if (line->sub_type == T_ARCBOX)
        line->radius = scaledRadius(line->radius, xfactor, yfactor, line);
}

void scale_spline(FigSpline* spline, float xfactor, float yfactor, int cx, int cy)
{
    for (FigPoint* point = spline->points; point; point = point->next)
        if (!staysWithItsTarget(point))
            scaleAround(point, xfactor, yfactor, cx, cy);
}

void scale_text(CFigContext* ctx, FigText* text, float xfactor, float yfactor, int cx, int cy)
{
    text->x = scaled(text->x, cx, xfactor);
    text->y = scaled(text->y, cy, yfactor);
    if (text->flags == -1 || (text->flags & RIGID_TEXT))
        return;
    text->size = std::clamp(scaledLength(text->size, xfactor), smallestTextSize, largestTextSize);
    pf_textwidth(ctx, text, ctx->zoom);
}

void scale_arc(FigArc* arc, float xfactor, float yfactor, int cx, int cy)
{
    const FigPoint former[3] = {arc->point[0], arc->point[1], arc->point[2]};
    for (FigPoint& point : arc->point)
        scaleAround(&point, xfactor, yfactor, cx, cy);
    if (!compute_arccenter(arc->point[0], arc->point[1], arc->point[2], &arc->center_x,
                           &arc->center_y)) {
        separate(arc->point, former);
        compute_arccenter(arc->point[0], arc->point[1], arc->point[2], &arc->center_x,
                          &arc->center_y);
    }
    // A negative factor changes the sense.
    arc->direction = compute_direction(arc->point[0], arc->point[1], arc->point[2]);
}

void scale_compound(CFigContext* ctx, FigCompound* compound, float xfactor, float yfactor, int cx,
                    int cy)
{
    scaleMembers(ctx, compound, xfactor, yfactor, cx, cy);
    update_compound_corners(ctx, compound);
}

void scale_radius(FigLine* former, FigLine* resized)
{
    resized->radius =
        scaledRadius(former->radius, sideFactor(resized->getWidth(), former->getWidth()),
                     sideFactor(resized->getHeight(), former->getHeight()), resized);
}

// --- of a figure that is read ---------------------------------------------------------

void read_scale_objects(FigObjectList* list, float factor, int offset)
{
    if (!list)
        return;
    for (FigObject* object : qAsConst(*list))
        scaleObject(object, factor, offset);
}

void read_scale_line(FigLine* line, float factor, int offset)
{
    scalePoints(line->points, factor, offset);
    scaleArrows(line, factor, offset);
}

void read_scale_spline(FigSpline* spline, float factor, int offset)
{
    scalePoints(spline->points, factor, offset);
    scaleArrows(spline, factor, offset);
}

// Radii are lengths and take no offset, though arrow sizes, which are lengths too, do.
void read_scale_ellipse(FigEllipse* ellipse, float factor, int offset)
{
    scalePoint(&ellipse->center, factor, offset);
    scalePoint(&ellipse->start, factor, offset);
    scalePoint(&ellipse->end, factor, offset);
    scalePoint(&ellipse->radiuses, factor, 0);
}

void read_scale_arc(FigArc* arc, float factor, int offset)
{
    arc->center_x = static_cast<float>(readScaled(arc->center_x, factor, offset));
    arc->center_y = static_cast<float>(readScaled(arc->center_y, factor, offset));
    for (FigPoint& point : arc->point)
        scalePoint(&point, factor, offset);
    scaleArrows(arc, factor, offset);
}

void read_scale_text(FigText* text, float factor, int offset)
{
    text->x = readScaled(text->x, factor, offset);
    text->y = readScaled(text->y, factor, offset);
}

void read_scale_compound(FigCompound* compound, float factor, int offset)
{
    scalePoint(&compound->nwcorner, factor, offset);
    scalePoint(&compound->secorner, factor, offset);
    read_scale_objects(compound->objects, factor, offset);
}

void read_scale_arrow(FigArrow* arrow, float factor, int offset)
{
    if (!arrow)
        return;
    arrow->wd = static_cast<float>(readScaled(arrow->wd, factor, offset));
    arrow->ht = static_cast<float>(readScaled(arrow->ht, factor, offset));
}
