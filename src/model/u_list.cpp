#include "model/u_list.h"

#include "model/FigContext.h"
#include "model/ObjectFunctions.h"

#include <cstdlib>
#include <new>
#include <utility>
#include <vector>

namespace {

FigPoint* copyPoint(const FigPoint& point, bool withLink)
{
    auto* copied = new (std::nothrow) FigPoint(point);
    if (!copied)
        return nullptr;
    copied->next = nullptr;
    copied->link = nullptr;
    if (withLink && point.link) {
        copied->link = new FigLink(*point.link);
        copied->link->srcPoint = copied;
        // "Stays" is an answer for one move; a copy begins without it.
        copied->link->flag = false;
    }
    return copied;
}

FigShapeFactor* newFactor(double s)
{
    auto* factor = static_cast<FigShapeFactor*>(std::malloc(sizeof(FigShapeFactor)));
    if (factor) {
        factor->s = s;
        factor->next = nullptr;
    }
    return factor;
}

FigPoint* findByCoordinates(FigPoint* first, int x, int y)
{
    for (FigPoint* point = first; point; point = point->next)
        if (point->x == x && point->y == y)
            return point;
    return nullptr;
}

template <typename Node> std::vector<Node*> nodesOf(Node* first)
{
    std::vector<Node*> nodes;
    for (Node* node = first; node; node = node->next)
        nodes.push_back(node);
    return nodes;
}

} // namespace

// --- points -------------------------------------------------------------------

bool append_point(int x, int y, FigPoint** last)
{
    auto* point = new (std::nothrow) FigPoint(x, y);
    if (!point)
        return false;
    if (*last)
        (*last)->next = point;
    *last = point;
    return true;
}

FigPoint* append_point_to_last(int x, int y, FigPoint* first)
{
    FigPoint* last = last_point(first);
    return append_point(x, y, &last) ? last : nullptr;
}

FigPoint* insert_point(int x, int y, FigPoint* after)
{
    auto* point = new (std::nothrow) FigPoint(x, y);
    if (!point || !after)
        return point;
    point->next = after->next;
    after->next = point;
    return point;
}

int num_points(FigPoint* first)
{
    int count = 0;
    for (FigPoint* point = first; point; point = point->next)
        ++count;
    return count;
}

FigPoint* last_point(FigPoint* first)
{
    FigPoint* last = first;
    while (last && last->next)
        last = last->next;
    return last;
}

FigPoint* prev_point(FigPoint* first, FigPoint* point)
{
    if (!point)
        return nullptr;
    FigPoint* previous = first;
    while (previous && previous->next != point)
        previous = previous->next;
    return previous;
}

FigPoint* search_line_point(FigLine* line, int x, int y)
{
    return findByCoordinates(line->points, x, y);
}

FigPoint* search_spline_point(FigSpline* spline, int x, int y)
{
    return findByCoordinates(spline->points, x, y);
}

bool first_spline_point(int x, int y, double s, FigSpline* spline)
{
    auto* point = new (std::nothrow) FigPoint(x, y);
    FigShapeFactor* factor = newFactor(s);
    if (!point || !factor) {
        delete point;
        std::free(factor);
        return false;
    }
    point->next = spline->points;
    spline->points = point;
    factor->next = spline->sfactors;
    spline->sfactors = factor;
    return true;
}

FigPoint* copy_points(FigPoint* first, bool withLinks)
{
    FigPoint* head = nullptr;
    FigPoint** end = &head;
    for (FigPoint* point = first; point; point = point->next) {
        *end = copyPoint(*point, withLinks);
        if (!*end) {
            free_points(head);
            return nullptr;
        }
        end = &(*end)->next;
    }
    return head;
}

void free_points(FigPoint* first)
{
    while (first) {
        FigPoint* next = first->next;
        delete first->link;
        delete first;
        first = next;
    }
}

void reverse_points(FigPoint* first)
{
    const std::vector<FigPoint*> nodes = nodesOf(first);
    for (size_t i = 0; i < nodes.size() / 2; ++i) {
        FigPoint* opposite = nodes[nodes.size() - 1 - i];
        std::swap(nodes[i]->x, opposite->x);
        std::swap(nodes[i]->y, opposite->y);
    }
}

// --- shape factors ------------------------------------------------------------

FigShapeFactor* append_sfactor(double s, FigShapeFactor* last)
{
    FigShapeFactor* factor = newFactor(s);
    if (factor && last) {
        factor->next = last->next;
        last->next = factor;
    }
    return factor;
}

FigShapeFactor* last_sfactor(FigShapeFactor* first)
{
    FigShapeFactor* last = first;
    while (last && last->next)
        last = last->next;
    return last;
}

FigShapeFactor* search_sfactor(FigSpline* spline, FigPoint* point)
{
    return spline->getShapeFactor(spline->getIndex(point));
}

FigShapeFactor* copy_sfactors(FigShapeFactor* first)
{
    FigShapeFactor* head = nullptr;
    FigShapeFactor** end = &head;
    for (FigShapeFactor* factor = first; factor; factor = factor->next) {
        *end = newFactor(factor->s);
        if (!*end) {
            free_sfactors(head);
            return nullptr;
        }
        end = &(*end)->next;
    }
    return head;
}

void free_sfactors(FigShapeFactor* first)
{
    while (first) {
        FigShapeFactor* next = first->next;
        std::free(first);
        first = next;
    }
}

void reverse_sfactors(FigShapeFactor* first)
{
    const std::vector<FigShapeFactor*> nodes = nodesOf(first);
    for (size_t i = 0; i < nodes.size() / 2; ++i)
        std::swap(nodes[i]->s, nodes[nodes.size() - 1 - i]->s);
}

int make_sfactors(FigSpline* spline)
{
    if (!spline->points)
        return 0;
    const bool interpolated = spline->sub_type > 1;
    const double inner = interpolated ? -1.0 : 1.0;
    const double atEnds = isClosed(spline) ? inner : 0.0;

    FigShapeFactor* head = newFactor(atEnds);
    FigShapeFactor* last = head;
    for (FigPoint* point = spline->points->next; point && last; point = point->next)
        last = append_sfactor(point->next ? inner : atEnds, last);
    if (!last) {
        free_sfactors(head);
        return 0;
    }
    free_sfactors(spline->sfactors);
    spline->sfactors = head;
    return 1;
}

void clear_current_object_tag(CFigContext* ctx)
{
    if (ctx->curObject)
        ctx->curObject->tagged = false;
}
