// Places where a user would press who means an object.
#pragma once

#include "Dice.h"
#include "FigureFaults.h"

#include <QPoint>

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
