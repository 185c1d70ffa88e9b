#include "edit/e_rotate.h"

#include "edit/e_links.h"
#include "edit/point_followers.h"
#include "edit/u_geom.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/gfx_math.h"

#include <cmath>

namespace {

constexpr double pi = 3.141592653589793;
constexpr double twoPi = 2 * pi;
/// Just under a full turn; what lies between counts as past it.
constexpr double fullTurnThreshold = 6.282185307179586;
constexpr float twoPiSingle = 6.2831855f;
constexpr float nearlyUpright = 0.01f;

/// A quarter turn, exact in integers; s is 1 or -1.
void rotateQuarter(FigPoint* point, int cx, int cy, int s)
{
    const long x = (static_cast<long>(cy) - point->y) * s + cx;
    const long y = (static_cast<long>(point->x) - cx) * s + cy;
    point->x = saturatedInt(x);
    point->y = saturatedInt(y);
}

/// 90 takes the exact way, every other angle, -90 among them, the way over the bearing.
void rotatePointBy(FigPoint* point, int cx, int cy, int angle)
{
    if (angle == 90)
        rotateQuarter(point, cx, cy, 1);
    else
        rotate_pos(point, cx, cy, angle);
}

/// An angle after a turn, wrapped in single precision.
float turnedAngle(float angle, int degrees)
{
    float turned = static_cast<float>(angle - degrees * pi / 180);
    if (turned < 0)
        turned += twoPiSingle;
    else if (turned >= twoPiSingle)
        turned -= twoPiSingle;
    return turned;
}

bool isQuarterTurn(int angle)
{
    return angle % 90 == 0;
}

void rotateInList(CFigContext* ctx, FigObjectList* list, FigObject* object, int cx, int cy,
                  int angle);

/// Inner compounds leave their corners to the outermost one.
void rotateMembers(CFigContext* ctx, FigObjectList* list, FigCompound* compound, int cx, int cy,
                   int angle)
{
    for (FigObject* member : qAsConst(*compound->objects)) {
        if (member->type == O_COMPOUND)
            rotateMembers(ctx, list, static_cast<FigCompound*>(member), cx, cy, angle);
        else
            rotateInList(ctx, list, member, cx, cy, angle);
    }
}

void rotateInList(CFigContext* ctx, FigObjectList* list, FigObject* object, int cx, int cy,
                  int angle)
{
    switch (object->type) {
    case O_ELLIPSE:
        return rotate_ellipse(ctx, list, static_cast<FigEllipse*>(object), cx, cy, angle);
    case O_POLYLINE:
        if (prepare_line_rotation(static_cast<FigLine*>(object), angle))
            rotate_line(ctx, list, static_cast<FigLine*>(object), cx, cy, angle);
        return;
    case O_SPLINE:
        return rotate_spline(ctx, list, static_cast<FigSpline*>(object), cx, cy, angle);
    case O_TEXT:
        return rotate_text(ctx, list, static_cast<FigText*>(object), cx, cy, angle);
    case O_ARC:
        return rotate_arc(ctx, list, static_cast<FigArc*>(object), cx, cy, angle);
    case O_COMPOUND:
        return rotate_compound(ctx, list, static_cast<FigCompound*>(object), cx, cy, angle);
    }
}

/// The centre in single precision, cut to whole units.
void rotateArcQuarter(FigArc* arc, int cx, int cy)
{
    for (FigPoint& point : arc->point)
        rotateQuarter(&point, cx, cy, 1);
    const float x = static_cast<float>(cy) - arc->center_y + static_cast<float>(cx);
    const float y = arc->center_x - static_cast<float>(cx) + static_cast<float>(cy);
    arc->center_x = static_cast<float>(truncateToInt(x));
    arc->center_y = static_cast<float>(truncateToInt(y));
}

} // namespace

void rotate_pos(FigPoint* point, int cx, int cy, int angle)
{
    rotate_xy(&point->x, &point->y, cx, cy, angle);
}

void rotate_xy(int* x, int* y, int cx, int cy, int angle)
{
    const double dx = static_cast<double>(*x) - cx;
    const double dy = static_cast<double>(cy) - *y;
    if (dx == 0 && dy == 0)
        return;
    double bearing = compute_angle(dx, dy) - angle * pi / 180;
    if (bearing < 0)
        bearing += twoPi;
    else if (bearing >= fullTurnThreshold)
        bearing -= twoPi;
    const double radius = std::sqrt(dx * dx + dy * dy);
    *x = round2(radius * std::cos(bearing) + cx);
    *y = round2(cy - radius * std::sin(bearing));
}

// Each point is a move of its own for the links on the line, with lists of its own.
void rotate_line(CFigContext*, FigObjectList* list, FigLine* line, int cx, int cy, int angle)
{
    PointFollowers followers(list, line);
    int index = 0;
    for (FigPoint* point = line->points; point; point = point->next, ++index) {
        const FigPoint former = *point;
        rotatePointBy(point, cx, cy, angle);
        followers.follow(index, former, *point);
    }
}

void rotate_spline(CFigContext*, FigObjectList*, FigSpline* spline, int cx, int cy, int angle)
{
    for (FigPoint* point = spline->points; point; point = point->next)
        rotatePointBy(point, cx, cy, angle);
}

void rotate_text(CFigContext*, FigObjectList*, FigText* text, int cx, int cy, int angle)
{
    FigPoint base(text->x, text->y);
    rotatePointBy(&base, cx, cy, angle);
    text->x = base.x;
    text->y = base.y;
    text->angle = turnedAngle(text->angle, angle);
    if (std::fabs(text->angle) < nearlyUpright ||
        std::fabs(twoPiSingle - text->angle) < nearlyUpright)
        text->angle = 0;
}

// The only one that takes the exact way for -90 as well.
void rotate_ellipse(FigEllipse* ellipse, int cx, int cy, int angle)
{
    for (FigPoint* point : {&ellipse->center, &ellipse->start, &ellipse->end}) {
        if (angle == 90 || angle == -90)
            rotateQuarter(point, cx, cy, sign(angle));
        else
            rotate_pos(point, cx, cy, angle);
    }
    ellipse->angle = turnedAngle(ellipse->angle, angle);
}

void rotate_ellipse(CFigContext*, FigObjectList* list, FigEllipse* ellipse, int cx, int cy,
                    int angle)
{
    rotate_ellipse(ellipse, cx, cy, angle);
    FigObjectList changed;
    FigPointList moved;
    adjust_links_rotate_ellipse(ellipse, cx, cy, angle, list, &changed, &moved);
}

void rotate_arc(CFigContext*, FigObjectList*, FigArc* arc, int cx, int cy, int angle)
{
    if (angle == 90)
        return rotateArcQuarter(arc, cx, cy);
    FigPoint turned[3] = {arc->point[0], arc->point[1], arc->point[2]};
    for (FigPoint& point : turned)
        rotate_pos(&point, cx, cy, angle);
    if (!compute_arccenter(turned[0], turned[1], turned[2], &arc->center_x, &arc->center_y))
        return;
    for (int i = 0; i < 3; ++i)
        arc->point[i] = turned[i];
    arc->direction = compute_direction(turned[0], turned[1], turned[2]);
}

void rotate_compound(CFigContext* ctx, FigObjectList* list, FigCompound* compound, int cx, int cy,
                     int angle)
{
    // Looked for once: a search of the whole figure for each member would not end in time.
    FigObjectList sources;
    if (list)
        findObjectsThatConnectTo(list, compound, &sources);
    rotateMembers(ctx, &sources, compound, cx, cy, angle);
    update_compound_corners(ctx, compound);
}

void rotate_object(CFigContext* ctx, FigObject* object, int cx, int cy, int angle)
{
    rotateInList(ctx, ctx->getWorkingRoot(), object, cx, cy, angle);
}

bool valid_rot_angle(FigObjectList* list, int angle)
{
    if (angle == 90)
        return true;
    for (FigObject* object : qAsConst(*list)) {
        if (object->type == O_POLYLINE &&
            (object->sub_type == T_ARCBOX || object->sub_type == T_PICTURE))
            return false;
        if (object->type == O_COMPOUND &&
            !valid_rot_angle(static_cast<FigCompound*>(object)->objects, angle))
            return false;
    }
    return true;
}

void convert_box_poly(FigLine* box)
{
    box->sub_type = T_POLYGON;
    box->radius = 0;
    put_msg("Converted box into polygon!");
}

bool prepare_line_rotation(FigLine* line, int angle)
{
    if (isQuarterTurn(angle))
        return true;
    if (line->sub_type == T_ARCBOX || line->sub_type == T_PICTURE) {
        put_msg("This object can't be rotated by angles other than 90 degrees!");
        return false;
    }
    if (line->sub_type == T_BOX)
        convert_box_poly(line);
    return true;
}
