#include "edit/preview_places.h"

#include "edit/e_compound.h"
#include "edit/link_walk.h"
#include "model/FigContext.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <vector>

using namespace linkwalk;
using objectwalk::asCompound;
using objectwalk::asPath;

namespace {

/// Asked of every object of the drawing: mostly answered by a bit of the id.
class Members {
public:
    explicit Members(const FigObjectList& objects)
    {
        for (FigObject* object : objects)
            add(object);
    }
    bool contains(FigObject* object) const
    {
        const auto id = static_cast<size_t>(object->id);
        return id < ids.size() && ids[id] && known.contains(object);
    }

private:
    /// Objects without an id are not replaced.
    void add(FigObject* object)
    {
        if (object->id < 0)
            return;
        const auto id = static_cast<size_t>(object->id);
        if (id >= ids.size())
            ids.resize(id + 1);
        ids[id] = true;
        known.insert(object);
    }

    std::vector<bool> ids;
    QSet<FigObject*> known;
};

} // namespace

class PreviewPlaces::Walk {
public:
    explicit Walk(PreviewPlaces* result) : found(result), members(result->moved)
    {
        addWithMembers(&targets, &result->moved);
        enter(&result->ctx->drawing.objects, false);
    }

private:
    static constexpr int PREFETCH_DISTANCE = 8;

    void enter(FigObjectList* list, bool isInRoot)
    {
        const bool inRoot = isInRoot || list == found->ctx->getWorkingRoot();
        const auto end = list->end();
        auto ahead = list->begin();
        for (int i = 0; i < PREFETCH_DISTANCE && ahead != end; ++i)
            ++ahead;
        for (auto entry = list->begin(); entry != end; ++entry) {
            if (ahead != end) {
                prefetchObject(*ahead);
                ++ahead;
            }
            visit(list, entry, end, inRoot);
        }
    }

    void visit(FigObjectList* list, FigObjectList::iterator entry, FigObjectList::iterator end,
               bool inRoot)
    {
        FigObject* object = *entry;
        if (members.contains(object)) {
            found->places.append({list, entry, end, object});
        } else if (FigCompound* compound = asCompound(object)) {
            around.push_back(compound);
            enter(compound->objects, inRoot);
            around.pop_back();
        } else if (inRoot && isLinked(object)) {
            found->places.append({list, entry, end, object});
            found->linked.append(object);
            noteParents();
        }
    }

    bool isLinked(FigObject* object)
    {
        const FigPath* path = asPath(object);
        for (FigPoint* point = path ? path->points : nullptr; point; point = point->next)
            if (point->link && targets.containsId(point->link->targetObjId) &&
                !isOwn(object, point->link->targetObjId))
                return true;
        return false;
    }

    /// An object is no follower of itself, and nothing in a compound is one of that compound.
    bool isOwn(const FigObject* object, long target) const
    {
        return target == object->id ||
               std::any_of(around.begin(), around.end(), [target](const FigCompound* compound) {
                   return compound->id == target;
               });
    }

    void noteParents()
    {
        for (auto compound = around.rbegin(); compound != around.rend(); ++compound) {
            if (knownParents.contains(*compound))
                return;
            knownParents.insert(*compound);
            found->parents.append(*compound);
            found->formerCorners.append({(*compound)->nwcorner, (*compound)->secorner});
        }
        if (!around.empty())
            found->outermost.append(around.front());
    }

    static void prefetchObject(const FigObject* object)
    {
        const char* begin = reinterpret_cast<const char*>(object);
        for (size_t line = 0; line < sizeof(FigLine); line += 64)
            __builtin_prefetch(begin + line);
    }

    PreviewPlaces* found;
    const Members members;
    ObjectIds targets;
    std::vector<FigCompound*> around; ///< the innermost last
    QSet<FigCompound*> knownParents;
};

PreviewPlaces::PreviewPlaces(CFigContext* context, const FigObjectList& movedObjects)
    : ctx(context), moved(movedObjects)
{
    Walk(this);
}

void PreviewPlaces::putCopies(const FigObjectList& movedCopies, const FigObjectList& linkedCopies)
{
    QHash<FigObject*, FigObject*> copyOf;
    const auto note = [&copyOf](const FigObjectList& objects, const FigObjectList& copies) {
        auto copy = copies.cbegin();
        for (FigObject* object : objects)
            copyOf.insert(object, *copy++);
    };
    note(moved, movedCopies);
    note(linked, linkedCopies);
    for (const Place& place : qAsConst(places))
        *place.entry = copyOf.value(place.real);
}

void PreviewPlaces::putBack()
{
    FigObjectList displaced;
    for (const Place& place : qAsConst(places)) {
        // A list that has been shared in the meantime has other nodes now.
        if (place.list->end() == place.end)
            *place.entry = place.real;
        else
            displaced.append(place.real);
    }
    if (!displaced.isEmpty())
        replaceObjects(ctx, &displaced);
    for (int i = 0; i < parents.size(); ++i) {
        parents[i]->nwcorner = formerCorners[i].first;
        parents[i]->secorner = formerCorners[i].second;
    }
}

void PreviewPlaces::measureParents()
{
    QSet<FigCompound*> wanted(parents.cbegin(), parents.cend());
    recalculateCompoundBounds(ctx, &outermost, &wanted);
}
