// Places where a user would press who means an object.
#pragma once

#include "Dice.h"
#include "FigureFaults.h"

#include "model/u_list.h"

#include <QPoint>

#include <cmath>

/// One of an object's points, in figure units.
inline QPoint anyPointOf(FigObject* object, Dice& dice)
{
    const auto at = [](const FigPoint& point) { return QPoint(point.x, point.y); };
    if (FigPath* path = chainOwner(object))
        return at(*path->getPoint(dice.below(path->getNumPoints())));
    switch (object->type) {
    case O_ELLIPSE: {
        const auto* ellipse = static_cast<FigEllipse*>(object);
        const FigPoint* points[] = {&ellipse->center, &ellipse->start, &ellipse->end};
        return at(*points[dice.below(3)]);
    }
    case O_ARC:
        return at(static_cast<FigArc*>(object)->point[dice.below(3)]);
    case O_TEXT:
        return {static_cast<FigText*>(object)->x, static_cast<FigText*>(object)->y};
    default: {
        const auto* compound = static_cast<FigCompound*>(object);
        return {dice.oneIn(2) ? compound->nwcorner.x : compound->secorner.x,
                dice.oneIn(2) ? compound->nwcorner.y : compound->secorner.y};
    }
    }
}

inline QPoint onSegment(FigPath* path, Dice& dice)
{
    const int count = path->getNumPoints();
    const int from = dice.below(qMax(count - 1, 1));
    const FigPoint *a = path->getPoint(from), *b = path->getPoint(qMin(from + 1, count - 1));
    const int share = dice.between(0, 8);
    return {a->x + int(qint64(b->x - a->x) * share / 8),
            a->y + int(qint64(b->y - a->y) * share / 8)};
}

/// Near the curve: between the control point and where a point of full approximation lies.
inline QPoint onSpline(FigSpline* spline, Dice& dice)
{
    const int count = spline->getNumPoints();
    const bool isClosed = spline->sub_type & 1;
    const int at = dice.below(count);
    const auto point = [=](int index) {
        const FigPoint* found =
            spline->getPoint(isClosed ? (index + count) % count : qBound(0, index, count - 1));
        return QPointF(found->x, found->y);
    };
    const FigShapeFactor* factor = search_sfactor(spline, spline->getPoint(at));
    if (!factor || factor->s <= 0 || (!isClosed && (at == 0 || at == count - 1)))
        return point(at).toPoint();
    return ((point(at - 1) + 4 * point(at) + point(at + 1)) / 6).toPoint();
}

inline QPoint onEllipse(const FigEllipse* ellipse, Dice& dice)
{
    if (dice.oneIn(3))
        return {ellipse->center.x, ellipse->center.y};
    const double turn = dice.below(360) * M_PI / 180, angle = double(ellipse->angle);
    const double x = ellipse->radiuses.x * std::cos(turn);
    const double y = ellipse->radiuses.y * std::sin(turn);
    return {ellipse->center.x + int(x * std::cos(angle) + y * std::sin(angle)),
            ellipse->center.y + int(y * std::cos(angle) - x * std::sin(angle))};
}

inline QPoint onArc(FigArc* arc, Dice& dice)
{
    if (dice.oneIn(2))
        return anyPointOf(arc, dice);
    const double dx = arc->point[1].x - double(arc->center_x);
    const double dy = arc->point[1].y - double(arc->center_y);
    const double angle = std::atan2(dy, dx) + dice.between(-20, 20) * M_PI / 180;
    const double radius = qMin(std::hypot(dx, dy), 1e6);
    return {int(qBound(-1e7, double(arc->center_x), 1e7) + radius * std::cos(angle)),
            int(qBound(-1e7, double(arc->center_y), 1e7) + radius * std::sin(angle))};
}

inline QPoint onEdge(FigCompound* compound, Dice& dice)
{
    const FigPoint &a = compound->nwcorner, &b = compound->secorner;
    const QPoint middle((a.x + b.x) / 2, (a.y + b.y) / 2);
    switch (dice.below(6)) {
    case 0:
        return {a.x, middle.y()};
    case 1:
        return {middle.x(), a.y};
    case 2:
        return {b.x, middle.y()};
    case 3:
        return {middle.x(), b.y};
    default:
        return anyPointOf(compound, dice);
    }
}

/// A place on the outline, as far as it can be told without drawing it; of a text its base,
/// which is where it is found.
inline QPoint onOutline(FigObject* object, Dice& dice)
{
    switch (object->type) {
    case O_POLYLINE:
        return onSegment(static_cast<FigLine*>(object), dice);
    case O_SPLINE:
        return onSpline(static_cast<FigSpline*>(object), dice);
    case O_ELLIPSE:
        return onEllipse(static_cast<FigEllipse*>(object), dice);
    case O_ARC:
        return onArc(static_cast<FigArc*>(object), dice);
    case O_COMPOUND:
        return onEdge(static_cast<FigCompound*>(object), dice);
    default:
        return anyPointOf(object, dice);
    }
}
