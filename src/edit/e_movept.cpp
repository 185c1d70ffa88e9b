#include "edit/e_movept.h"

#include "edit/e_links.h"
#include "edit/point_followers.h"
#include "edit/u_geom.h"
#include "model/u_list.h"
#include "render/gfx_math.h"

#include <cmath>
#include <memory>

namespace {

void shift(FigPoint* point, int dx, int dy)
{
    point->x = saturatedInt(static_cast<long>(point->x) + dx);
    point->y = saturatedInt(static_cast<long>(point->y) + dy);
}

/// Whether a side at `from` dragged by `delta` crosses its opposite side at `partner`.
bool crosses(int delta, int size, int from, int partner)
{
    return std::labs(delta) > size &&
           ((delta > 0 && from < partner) || (delta < 0 && from > partner));
}

/// A picture turns over for each opposite side that the corner crosses.
void flipCrossedPicture(FigLine* picture, int dx, int dy, const FigPoint& corner)
{
    const FigPoint *upperLeft = picture->getUpperLeft(), *lowerRight = picture->getLowerRight();
    if (!picture->pic || !upperLeft || !lowerRight)
        return;
    const int partnerX = corner.x == upperLeft->x ? lowerRight->x : upperLeft->x;
    const int partnerY = corner.y == upperLeft->y ? lowerRight->y : upperLeft->y;
    int& flipped = picture->pic->flipped;
    if (crosses(dx, picture->getWidth(), corner.x, partnerX))
        flipped = saturatedInt(1L - flipped);
    if (crosses(dy, picture->getHeight(), corner.y, partnerY))
        flipped = saturatedInt(1L - flipped);
}

double distance(const FigPoint& a, const FigPoint& b)
{
    const double dx = static_cast<double>(b.x) - a.x, dy = static_cast<double>(b.y) - a.y;
    return std::sqrt(dx * dx + dy * dy);
}

long difference(int a, int b)
{
    return static_cast<long>(a) - b;
}

/// The ends of an ellipse by diameters; the centre goes half the way of the end that moves.
void moveDiameter(FigEllipse* ellipse, int dx, int dy, int number)
{
    if (number == -1) {
        shift(&ellipse->start, saturatedInt(-long(dx)), saturatedInt(-long(dy)));
        shift(&ellipse->end, dx, dy);
        return;
    }
    shift(number == 0 ? &ellipse->start : &ellipse->end, dx, dy);
    shift(&ellipse->center, dx / 2, dy / 2);
}

void relocateEllipseByRadii(FigEllipse* ellipse, int dx, int dy)
{
    shift(&ellipse->end, dx, dy);
    ellipse->radiuses.x = saturatedInt(std::labs(static_cast<long>(ellipse->radiuses.x) + dx));
    ellipse->radiuses.y = saturatedInt(std::labs(static_cast<long>(ellipse->radiuses.y) + dy));
}

void relocateEllipseByDiameters(FigEllipse* ellipse, int dx, int dy, int number)
{
    moveDiameter(ellipse, dx, dy, number);
    ellipse->radiuses.x =
        saturatedInt(std::labs(difference(ellipse->end.x, ellipse->start.x)) >> 1);
    ellipse->radiuses.y =
        saturatedInt(std::labs(difference(ellipse->end.y, ellipse->start.y)) >> 1);
}

void relocateCircleByRadius(FigEllipse* ellipse, int dx, int dy)
{
    shift(&ellipse->end, dx, dy);
    ellipse->radiuses.x = ellipse->radiuses.y = round2(distance(ellipse->start, ellipse->end));
}

void relocateCircleByDiameter(FigEllipse* ellipse, int dx, int dy, int number)
{
    moveDiameter(ellipse, dx, dy, number);
    const long halfX = difference(ellipse->end.x, ellipse->start.x) / 2;
    const long halfY = difference(ellipse->end.y, ellipse->start.y) / 2;
    const double radius = std::sqrt(static_cast<double>(halfX * halfX + halfY * halfY));
    ellipse->radiuses.x = ellipse->radiuses.y = round2(radius);
}

} // namespace

void relocate_linepoint(FigObjectList* list, FigLine* line, int dx, int dy, FigPoint* point)
{
    if (line->sub_type == T_POLYGON && point == line->points) {
        FigPoint* closing = last_point(line->points);
        if (closing != point)
            shift(closing, dx, dy);
    }
    const FigPoint former = *point;
    shift(point, dx, dy);
    PointFollowers(list, line).follow(line->getIndex(point), former, *point);
}

void relocate_boxpoint(FigObjectList* list, FigLine* line, int dx, int dy, FigPoint* point,
                       QList<FigPoint*>* movedInX, QList<FigPoint*>* movedInY)
{
    const FigPoint corner = *point;
    if (line->sub_type == T_PICTURE)
        flipCrossedPicture(line, dx, dy, corner);
    PointFollowers followers(list, line);
    int index = 0;
    for (FigPoint* each = line->points; each; each = each->next, ++index) {
        const bool movesInX = each->x == corner.x;
        const bool movesInY = each->y == corner.y;
        const FigPoint former = *each;
        shift(each, movesInX ? dx : 0, movesInY ? dy : 0);
        if (movesInX && movedInX)
            movedInX->append(each);
        if (movesInY && movedInY)
            movedInY->append(each);
        if (movesInX || movesInY)
            followers.follow(index, former, *each);
    }
}

void relocate_splinepoint(FigObjectList*, FigSpline*, int dx, int dy, FigPoint* point)
{
    shift(point, dx, dy);
}

bool relocate_arcpoint(FigObjectList*, FigArc* arc, int dx, int dy, int number)
{
    if (number < 0 || number > 2)
        return false;
    FigPoint points[3] = {arc->point[0], arc->point[1], arc->point[2]};
    shift(&points[number], dx, dy);
    if (!compute_arccenter(points[0], points[1], points[2], &arc->center_x, &arc->center_y))
        return false;
    arc->point[number] = points[number];
    arc->direction = compute_direction(points[0], points[1], points[2]);
    return true;
}

void relocate_ellipsepoint(CFigContext* ctx, FigObjectList* list, FigEllipse* ellipse, int dx,
                           int dy, int number)
{
    const std::unique_ptr<FigObject> former(ellipse->clone());
    switch (ellipse->sub_type) {
    case 1:
        relocateEllipseByRadii(ellipse, dx, dy);
        break;
    case 2:
        relocateEllipseByDiameters(ellipse, dx, dy, number);
        break;
    case 3:
        relocateCircleByRadius(ellipse, dx, dy);
        break;
    case 4:
        relocateCircleByDiameter(ellipse, dx, dy, number);
        break;
    }
    FigObjectList changed;
    FigPointList done;
    adjust_links_resize_ellipse(ctx, ellipse, static_cast<FigEllipse*>(former.get()), list,
                                &changed, &done);
}
