#include "edit/e_addpt.h"

#include "edit/u_geom.h"
#include "model/ObjectFunctions.h"
#include "model/u_list.h"

#include <cstdlib>

namespace {

constexpr int APPROXIMATED_TYPES = 1; ///< sub-types 0 and 1

void insertAfter(FigPath* path, FigPoint* after, FigPoint* point)
{
    FigPoint*& slot = after ? after->next : path->points;
    point->next = slot;
    slot = point;
}

void setPosition(FigPoint* point, const FigPoint* from)
{
    point->x = from->x;
    point->y = from->y;
}

FigShapeFactor* newFactor(double s)
{
    auto* factor = static_cast<FigShapeFactor*>(malloc(sizeof(FigShapeFactor)));
    if (factor)
        *factor = {s, nullptr};
    return factor;
}

void insertFactor(FigSpline* spline, int index, FigShapeFactor* factor)
{
    FigShapeFactor** slot = &spline->sfactors;
    while (*slot && index-- > 0)
        slot = &(*slot)->next;
    factor->next = *slot;
    *slot = factor;
}

} // namespace

void addPoint(FigLine* line, FigPoint* after, FigPoint* point)
{
    if (isInList(line->points, point))
        return;
    insertAfter(line, after, point);
    if (line->sub_type != T_POLYGON)
        return;
    if (!after)
        setPosition(last_point(line->points), point);
    else if (!point->next)
        setPosition(line->points, point);
}

// The factor of an end belongs to the end, not to the point: a new end takes it over with the
// value 0, and the factor that enters is that of the former end.
void addPoint(FigSpline* spline, FigPoint* after, FigPoint* point, FigPoint*,
              FigShapeFactor* factor)
{
    if (isInList(spline->points, point))
        return;
    insertAfter(spline, after, point);
    const bool isOpen = !isClosed(spline);
    const bool isFirst = isOpen && !after;
    const bool isLast = isOpen && !point->next;
    if (!factor)
        factor = newFactor(spline->sub_type <= APPROXIMATED_TYPES ? 1.0 : -1.0);
    if (!factor)
        return;
    const int index = spline->getIndex(point);
    insertFactor(spline, isFirst ? 1 : isLast ? index - 1 : index, factor);
    if (isFirst)
        spline->sfactors->s = 0.0;
    if (isLast)
        last_sfactor(spline->sfactors)->s = 0.0;
}

void find_endpoints(FigPoint* first, int x, int y, FigPoint** left, FigPoint** right)
{
    *left = nullptr;
    *right = first;
    if (!first || (first->x == x && first->y == y))
        return;
    int px, py;
    FigPoint* point = first;
    for (; point->next; point = point->next) {
        const FigPoint* next = point->next;
        if ((point->x == x && point->y == y) ||
            (!(next->x == x && next->y == y) &&
             close_to_vector(point->x, point->y, next->x, next->y, x, y, 1, 1.0f, &px, &py))) {
            *left = point;
            *right = point->next;
            return;
        }
    }
    *left = point;
    *right = nullptr;
}
