#include "edit/e_deletept.h"

#include "model/ObjectFunctions.h"
#include "model/u_list.h"

namespace {

/// False for a stranger.
bool unlink(FigPath* path, FigPoint* point)
{
    FigPoint** slot = &path->points;
    while (*slot && *slot != point)
        slot = &(*slot)->next;
    if (!*slot)
        return false;
    *slot = point->next;
    return true;
}

bool samePosition(const FigPoint* a, const FigPoint* b)
{
    return a && b && a->x == b->x && a->y == b->y;
}

void setPosition(FigPoint* point, const FigPoint* from)
{
    point->x = from->x;
    point->y = from->y;
}

FigShapeFactor* takeFactor(FigSpline* spline, int index)
{
    FigShapeFactor** slot = &spline->sfactors;
    while (*slot && index-- > 0)
        slot = &(*slot)->next;
    FigShapeFactor* taken = *slot;
    if (taken) {
        *slot = taken->next;
        taken->next = nullptr;
    }
    return taken;
}

} // namespace

void deletePoint(FigLine* line, FigPoint* point)
{
    FigPoint* first = line->points;
    const bool closes = line->sub_type != T_POLYLINE && samePosition(first, last_point(first));
    const bool isLast = !point->next;
    if (!unlink(line, point) || !line->points || !closes)
        return;
    if (isLast || point == first)
        setPosition(last_point(line->points), line->points);
}

// The factor of an end stays with the end: what leaves is that of the point beside it.
FigShapeFactor* deletePoint(FigSpline* spline, FigPoint*, FigPoint* point)
{
    const int index = spline->getIndex(point);
    if (index < 0)
        return nullptr;
    const bool isOpen = !isClosed(spline);
    const bool isLast = isOpen && !point->next;
    const bool isFirst = isOpen && index == 0;
    unlink(spline, point);
    if (isFirst && spline->points)
        return takeFactor(spline, 1);
    return takeFactor(spline, isLast && index > 0 ? index - 1 : index);
}
