#include "edit/pick_boxes.h"

#include "edit/search_reach.h"
#include "edit/u_search.h"
#include "model/FigContext.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <utility>

namespace {

constexpr size_t groupSize = 64;
/// Boxes larger than so many cells would spread the common box of their neighbours.
constexpr double largestInCells = 2;

int lowerInt(double value)
{
    return static_cast<int>(std::clamp<double>(std::floor(value), INT_MIN, INT_MAX));
}

int upperInt(double value)
{
    return static_cast<int>(std::clamp<double>(std::ceil(value), INT_MIN, INT_MAX));
}

template <class Box> double middleX(const Box& box)
{
    return (static_cast<double>(box.xmin) + box.xmax) / 2;
}

template <class Box> double middleY(const Box& box)
{
    return (static_cast<double>(box.ymin) + box.ymax) / 2;
}

/// Square cells over the middles of all boxes, about a group to a cell. Boxes too large for the
/// cells of one grid go to a grid of four times their size.
class Cells {
public:
    template <class Boxes> explicit Cells(const Boxes& boxes)
    {
        SearchReach middles = {HUGE_VAL, HUGE_VAL, -HUGE_VAL, -HUGE_VAL};
        for (const auto& box : boxes)
            middles.include(middleX(box), middleY(box));
        const auto perSide = static_cast<size_t>(std::sqrt(boxes.size() / groupSize)) + 1;
        const double extent =
            std::max({middles.xmax - middles.xmin, middles.ymax - middles.ymin, 1.0});
        m_left = middles.xmin;
        m_top = middles.ymin;
        m_finest = {0, perSide, extent / static_cast<double>(perSide)};
        Grid coarsest = m_finest;
        while (coarsest.perSide > 1)
            coarsest = coarsest.coarser();
        m_count = coarsest.first + 1;
    }
    size_t count() const { return m_count; }
    template <class Box> size_t operator()(const Box& box) const
    {
        const double extent = std::max(static_cast<double>(box.xmax) - box.xmin,
                                       static_cast<double>(box.ymax) - box.ymin);
        Grid grid = m_finest;
        while (grid.perSide > 1 && extent > largestInCells * grid.cellSize)
            grid = grid.coarser();
        return grid.first + grid.column(middleY(box) - m_top) * grid.perSide +
               grid.column(middleX(box) - m_left);
    }

private:
    struct Grid {
        size_t first, perSide; ///< number of its first cell
        double cellSize;

        Grid coarser() const
        {
            return {first + perSide * perSide, (perSide + 3) / 4, cellSize * 4};
        }
        size_t column(double offset) const
        {
            return std::min(perSide - 1, static_cast<size_t>(offset / cellSize));
        }
    };
    double m_left, m_top;
    Grid m_finest;
    size_t m_count;
};

} // namespace

void PickBoxes::drop()
{
    list = nullptr;
    boxes.clear();
    groups.clear();
}

bool PickBoxes::isUpToDate(CFigContext* ctx) const
{
    const FigObjectList* root = ctx->getWorkingRoot();
    return list == root && listSize == root->size() && ppiX == ctx->ppiX && ppiY == ctx->ppiY;
}

void PickBoxes::take(CFigContext* ctx)
{
    list = ctx->getWorkingRoot();
    listSize = list->size();
    ppiX = ctx->ppiX;
    ppiY = ctx->ppiY;
    boxes.clear();
    boxes.reserve(static_cast<size_t>(listSize));
    int place = 0;
    for (FigObject* object : *list) {
        const SearchReach reach = searchReach(ctx, object);
        if (!reach.isEmpty())
            boxes.push_back({lowerInt(reach.xmin), lowerInt(reach.ymin), upperInt(reach.xmax),
                             upperInt(reach.ymax), object, place, object->type == O_COMPOUND});
        ++place;
    }
    sortByPosition();
    makeGroups();
}

/// Cell by cell, in one pass over the boxes.
void PickBoxes::sortByPosition()
{
    const Cells cellOf(boxes);
    std::vector<size_t> next(cellOf.count() + 1, 0);
    for (const Box& box : boxes)
        ++next[cellOf(box) + 1];
    for (size_t cell = 1; cell < next.size(); ++cell)
        next[cell] += next[cell - 1];
    std::vector<Box> sorted(boxes.size());
    for (const Box& box : boxes)
        sorted[next[cellOf(box)]++] = box;
    boxes.swap(sorted);
}

void PickBoxes::makeGroups()
{
    groups.clear();
    for (size_t first = 0; first < boxes.size(); first += groupSize) {
        const size_t end = std::min(first + groupSize, boxes.size());
        Group group = {INT_MAX, INT_MAX, INT_MIN, INT_MIN, first, end};
        for (size_t i = first; i < end; ++i) {
            group.xmin = std::min(group.xmin, boxes[i].xmin);
            group.ymin = std::min(group.ymin, boxes[i].ymin);
            group.xmax = std::max(group.xmax, boxes[i].xmax);
            group.ymax = std::max(group.ymax, boxes[i].ymax);
        }
        groups.push_back(group);
    }
}

FigObject* PickBoxes::search(CFigContext* ctx, int x, int y, int* px, int* py)
{
    if (!isUpToDate(ctx))
        take(ctx);
    const SearchSpot spot(ctx, x, y, searchTolerance(ctx));
    std::vector<std::pair<int, FigObject*>> near; // by their places
    for (const Group& group : groups) {
        if (!spot.mayHit(group))
            continue;
        for (size_t i = group.first; i < group.end; ++i)
            if (spot.mayHit(boxes[i]) && !(boxes[i].hollow && spot.liesInside(boxes[i])))
                near.emplace_back(boxes[i].place, boxes[i].object);
    }
    std::sort(near.begin(), near.end());
    FigObjectList candidates;
    for (const auto& [place, object] : near)
        candidates.append(object);
    return objectSearch(ctx, &candidates, x, y, px, py, nullptr);
}
