// How the smart link functions and the actions that serve them go through a drawing.
#pragma once

#include "model/ObjectFunctions.h"
#include "model/objectwalk.h"

#include <algorithm>
#include <vector>

namespace linkwalk {

/// Goes through the objects of a list at every level, a compound before its members. However
/// deep the compounds lie, the stack does not grow. The lists must not change meanwhile.
class TreeWalk {
public:
    explicit TreeWalk(const FigObjectList* list)
    {
        if (list)
            enter(nullptr, *list);
    }

    /// The next object, or null at the end.
    FigObject* next()
    {
        while (!levels.empty() && levels.back().entry == levels.back().end)
            levels.pop_back();
        if (levels.empty())
            return nullptr;
        Level& level = levels.back();
        FigObject* object = *level.entry++;
        if (level.ahead != level.end)
            prefetch(*level.ahead++);
        if (FigCompound* compound = objectwalk::asCompound(object))
            enter(compound, *compound->objects);
        return object;
    }

    /// Whether a compound around the last object, or that object, being a compound, has the id.
    bool isInCompoundWithId(long id) const
    {
        return std::any_of(levels.begin(), levels.end(), [id](const Level& level) {
            return level.compound && level.compound->id == id;
        });
    }

private:
    struct Level {
        const FigCompound* compound; ///< null for the list that was given
        FigObjectList::const_iterator entry, end;
        FigObjectList::const_iterator ahead; ///< a few objects further on
    };

    /// Objects lie scattered over memory; a walk through many is faster when the next ones are
    /// already on their way.
    static constexpr int PREFETCH_DISTANCE = 8;

    static void prefetch(const FigObject* object)
    {
        const char* begin = reinterpret_cast<const char*>(object);
        for (size_t line = 0; line < sizeof(FigLine); line += 64)
            __builtin_prefetch(begin + line);
    }

    void enter(const FigCompound* compound, const FigObjectList& list)
    {
        auto ahead = list.cbegin();
        for (int i = 0; i < PREFETCH_DISTANCE && ahead != list.cend(); ++i)
            ++ahead;
        levels.push_back({compound, list.cbegin(), list.cend(), ahead});
    }

    std::vector<Level> levels;
};

/// Objects by their ids; those without an id count by themselves. Add first, then ask.
class ObjectIds {
public:
    void add(const FigObject* object)
    {
        if (object->id == -1)
            strangers.push_back(object);
        else
            ids.push_back(object->id);
        isSorted = false;
    }

    void addAll(const FigObjectList* list)
    {
        for (const FigObject* object : *list)
            add(object);
    }

    bool isEmpty() const { return ids.empty() && strangers.empty(); }

    /// No object has the id -1.
    bool containsId(long id)
    {
        sort();
        return std::binary_search(ids.begin(), ids.end(), id);
    }

    bool contains(const FigObject* object)
    {
        sort();
        return object->id == -1
                   ? std::binary_search(strangers.begin(), strangers.end(), object, std::less<>())
                   : std::binary_search(ids.begin(), ids.end(), object->id);
    }

private:
    void sort()
    {
        if (isSorted)
            return;
        std::sort(ids.begin(), ids.end());
        std::sort(strangers.begin(), strangers.end(), std::less<>());
        isSorted = true;
    }

    std::vector<long> ids;
    std::vector<const FigObject*> strangers;
    bool isSorted = true;
};

/// The objects of a list and all that lies in them.
inline void addWithMembers(ObjectIds* set, const FigObjectList* list)
{
    TreeWalk walk(list);
    while (const FigObject* object = walk.next())
        set->add(object);
}

/// Calls on each point with a link of the lines and splines of a list, at every level.
template <typename Visit> void visitLinkedPoints(const FigObjectList* list, Visit visit)
{
    TreeWalk walk(list);
    while (FigObject* object = walk.next()) {
        FigPath* path = objectwalk::asPath(object);
        for (FigPoint* point = path ? path->points : nullptr; point; point = point->next)
            if (point->link)
                visit(point);
    }
}

} // namespace linkwalk
