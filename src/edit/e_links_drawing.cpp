// Links for a whole drawing: the same as a search for each end, but the objects that cannot be
// near an end are passed by.
#include "edit/e_links.h"
#include "edit/link_walk.h"
#include "edit/search_reach.h"
#include "edit/u_search.h"
#include "model/u_list.h"

#include <QHash>

#include <cmath>
#include <memory>
#include <numeric>

using namespace linkwalk;
using objectwalk::asCompound;
using objectwalk::asPath;

namespace {

/// Objects of the kinds that are searched, found by where they are and given in list order.
class ReachableObjects {
public:
    void append(FigObject* object, const SearchReach& reach)
    {
        entries.push_back({reach, object, 0});
    }

    /// Into strips, and those into groups of neighbours under a common box.
    void arrange()
    {
        std::vector<size_t> order(entries.size());
        std::iota(order.begin(), order.end(), 0);
        sort(order.begin(), order.end(), &SearchReach::xmin);
        const double strips = std::ceil(std::sqrt(entries.size() / double(GROUP_SIZE)));
        const size_t stripSize = static_cast<size_t>(strips) * GROUP_SIZE;
        for (size_t first = 0; first < order.size(); first += stripSize)
            sort(order.begin() + first, order.begin() + std::min(first + stripSize, order.size()),
                 &SearchReach::ymin);
        for (size_t i = 0; i < order.size(); ++i) {
            if (i % GROUP_SIZE == 0)
                groups.emplace_back();
            groups.back().members.push_back(order[i]);
            enter(order[i], groups.size() - 1);
        }
    }

    void update(size_t index, const SearchReach& reach)
    {
        entries[index].reach = reach;
        enter(index, entries[index].group);
    }

    FigObjectList near(const SearchSpot& spot) const
    {
        std::vector<size_t> hits;
        for (const Group& group : groups)
            if (spot.mayHit(group.reach))
                for (size_t member : group.members)
                    if (spot.mayHit(entries[member].reach))
                        hits.push_back(member);
        std::sort(hits.begin(), hits.end());
        FigObjectList objects;
        for (size_t hit : hits)
            objects.append(entries[hit].object);
        return objects;
    }

    size_t size() const { return entries.size(); }
    FigObject* at(size_t index) const { return entries[index].object; }

private:
    static constexpr size_t GROUP_SIZE = 64;

    struct Entry {
        SearchReach reach;
        FigObject* object;
        size_t group;
    };
    struct Group {
        SearchReach reach{INFINITY, INFINITY, -INFINITY, -INFINITY};
        std::vector<size_t> members;
    };

    using Order = std::vector<size_t>::iterator;

    void sort(Order first, Order end, double SearchReach::*edge) const
    {
        std::sort(first, end, [this, edge](size_t a, size_t b) {
            return entries[a].reach.*edge < entries[b].reach.*edge;
        });
    }

    void enter(size_t index, size_t group)
    {
        const SearchReach& reach = entries[index].reach;
        SearchReach& common = groups[group].reach;
        common.xmin = std::min(common.xmin, reach.xmin);
        common.ymin = std::min(common.ymin, reach.ymin);
        common.xmax = std::max(common.xmax, reach.xmax);
        common.ymax = std::max(common.ymax, reach.ymax);
        entries[index].group = group;
    }

    std::vector<Entry> entries;
    std::vector<Group> groups;
};

/// A list that ends are searched in. It is searched when its first target is met, and once only,
/// so the compounds in it come before that or after.
struct SearchedList {
    std::vector<std::unique_ptr<SearchedList>> before, after;
    bool hasTarget = false;
    ReachableObjects objects;
};

bool isSearchedKind(const FigObject* object)
{
    return object->type == O_POLYLINE || object->type == O_ELLIPSE || object->type == O_SPLINE;
}

class DrawingSearch {
public:
    DrawingSearch(CFigContext* document, FigObjectList* list)
        : ctx(document), tolerance(searchTolerance(document)), root(prepared(*list))
    {
    }

    void linkEnds(FigObject* source, FigLinkList* found)
    {
        FigPoint* first = asPath(source)->points;
        if (!first)
            return;
        link(source, first, found);
        FigPoint* last = last_point(first);
        if (last != first)
            link(source, last, found);
    }

private:
    struct Place {
        ReachableObjects* objects = nullptr;
        size_t index = 0;
    };

    std::unique_ptr<SearchedList> prepared(const FigObjectList& list)
    {
        auto searched = std::make_unique<SearchedList>();
        for (FigObject* object : list) {
            if (FigCompound* compound = asCompound(object))
                (searched->hasTarget ? searched->after : searched->before)
                    .push_back(prepared(*compound->objects));
            else if (isSearchedKind(object))
                searched->objects.append(object, searchReach(ctx, object));
            searched->hasTarget |= isLinkableTargetObject(object);
        }
        searched->objects.arrange();
        for (size_t i = 0; i < searched->objects.size(); ++i)
            if (isLinkableSourceObject(searched->objects.at(i)))
                places.insert(searched->objects.at(i), {&searched->objects, i});
        return searched;
    }

    /// A linked end has been put on an outline, so its object reaches elsewhere.
    void link(FigObject* source, FigPoint* point, FigLinkList* found)
    {
        FigLink* made = searched(source, point, *root);
        if (!made)
            return;
        point->link = made;
        if (found)
            found->append(made);
        const Place place = places.value(source);
        if (place.objects)
            place.objects->update(place.index, searchReach(ctx, source));
    }

    FigLink* searched(FigObject* source, FigPoint* point, const SearchedList& list)
    {
        FigLink* made = searched(source, point, list.before);
        if (!made && list.hasTarget)
            made = connected(source, point, list);
        return made ? made : searched(source, point, list.after);
    }

    FigLink* searched(FigObject* source, FigPoint* point,
                      const std::vector<std::unique_ptr<SearchedList>>& lists)
    {
        for (const auto& list : lists)
            if (FigLink* made = searched(source, point, *list))
                return made;
        return nullptr;
    }

    FigLink* connected(FigObject* source, FigPoint* point, const SearchedList& list)
    {
        const SearchSpot spot(ctx, point->x, point->y, tolerance);
        FigObjectList near = list.objects.near(spot);
        return near.isEmpty() ? nullptr : makeConnection(ctx, &near, point, source);
    }

    CFigContext* ctx;
    int tolerance;
    QHash<FigObject*, Place> places; ///< of the sources
    std::unique_ptr<SearchedList> root;
};

} // namespace

void createSmartLinks(CFigContext* ctx, FigObjectList* list, FigObjectList* objects,
                      FigLinkList* found)
{
    if (!list)
        return;
    DrawingSearch search(ctx, list);
    TreeWalk walk(objects);
    while (FigObject* object = walk.next())
        if (isLinkableSourceObject(object))
            search.linkEnds(object, found);
}
