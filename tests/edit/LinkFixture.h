// Targets and connectors for tests of smart links.
#pragma once

#include "ActionFixture.h"
#include "edit/e_links.h"

inline FigLine* makeBox(int left, int top, int right, int bottom)
{
    return makeLine({{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}},
                    T_BOX);
}

inline FigEllipse* makeEllipse(int cx, int cy, int rx, int ry, int subType = 1)
{
    auto* ellipse = new FigEllipse;
    ellipse->sub_type = subType;
    ellipse->center = ellipse->start = FigPoint(cx, cy);
    ellipse->radiuses = FigPoint(rx, ry);
    ellipse->end = FigPoint(cx + rx, cy + ry);
    return ellipse;
}

/// "1,2" of a point.
inline QString at(const FigPoint* point)
{
    return QString("%1,%2").arg(point->x).arg(point->y);
}

inline FigPoint* lastOf(FigPath* path)
{
    return last_point(path->points);
}

/// "id left-right" of a link.
inline QString told(const FigLink* link)
{
    if (!link)
        return "none";
    return QString("%1 %2-%3")
        .arg(link->targetObjId)
        .arg(link->targetLeftPointIdx)
        .arg(link->targetRightPointIdx);
}

/// Ties a point to a segment of a line, with the pointers that go with the indexes.
inline FigLink* tie(FigPoint* point, FigLine* target, int leftIndex, int rightIndex)
{
    FigLink* link = makeLink(point, target->id, leftIndex, rightIndex);
    link->targetLeftPoint = target->getPoint(leftIndex);
    link->targetRightPoint = target->getPoint(rightIndex);
    return link;
}
