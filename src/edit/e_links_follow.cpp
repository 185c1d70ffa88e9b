// Who is linked to an object, and how those points follow when it is moved, scaled or turned.
#include "edit/e_links.h"
#include "edit/e_rotate.h"
#include "edit/e_scale.h"
#include "edit/link_walk.h"
#include "edit/links_followed.h"

#include <QHash>
#include <QSet>

using namespace linkwalk;
using objectwalk::asPath;

namespace {

/// The outlines change by exactly the shift of the target; at the edge of int they stop.
int shifted(long value, long by)
{
    return static_cast<int>(std::clamp<long>(value + by, INT_MIN, INT_MAX));
}

int mirrored(long value, long about)
{
    return static_cast<int>(std::clamp<long>(2 * about - value, INT_MIN, INT_MAX));
}

/// Calls on each point of list that is linked to one of the targets, with the object that holds
/// it. An object is no follower of itself, and nothing in a compound is one of that compound.
template <typename Visit>
void visitLinksTo(ObjectIds* targets, const FigObjectList* list, Visit visit)
{
    if (targets->isEmpty())
        return;
    TreeWalk walk(list);
    while (FigObject* object = walk.next()) {
        FigPath* path = asPath(object);
        for (FigPoint* point = path ? path->points : nullptr; point; point = point->next) {
            if (!point->link || !targets->containsId(point->link->targetObjId))
                continue;
            const long target = point->link->targetObjId;
            if (target != object->id && !walk.isInCompoundWithId(target))
                visit(object, point);
        }
    }
}

ObjectIds withMembers(FigObjectList* objects)
{
    ObjectIds targets;
    addWithMembers(&targets, objects);
    return targets;
}

/// Appends without duplicates, to a list that may hold something before.
template <typename List> class Collector {
public:
    using Item = typename List::value_type;

    explicit Collector(List* list) : found(list)
    {
        for (Item item : qAsConst(*list))
            seen.insert(item);
    }

    void add(Item item)
    {
        const int before = seen.size();
        seen.insert(item);
        if (seen.size() > before) {
            found->append(item);
            grown = true;
        }
    }

    bool hasGrown() const { return grown; }

private:
    List* found;
    QSet<Item> seen;
    bool grown = false;
};

bool findObjects(FigObjectList* list, FigObjectList* objects, FigObjectList* found)
{
    ObjectIds targets = withMembers(objects);
    Collector<FigObjectList> collector(found);
    visitLinksTo(&targets, list,
                 [&collector](FigObject* object, FigPoint*) { collector.add(object); });
    return collector.hasGrown();
}

/// The first object of list under each of the ids.
QHash<long, FigObject*> firstWithIds(const FigObjectList* list, const QSet<long>& ids)
{
    QHash<long, FigObject*> found;
    if (ids.isEmpty())
        return found;
    TreeWalk walk(list);
    while (FigObject* object = walk.next()) {
        if (!ids.contains(object->id) || found.contains(object->id))
            continue;
        found.insert(object->id, object);
        if (found.size() == ids.size())
            break;
    }
    return found;
}

/// Decides for each linked point of the objects: it stays unless the target is one of those that
/// may move, is in the list, and does move.
template <typename MayMove, typename Moves>
void decideWhatStays(FigObjectList* objects, FigObjectList* list, MayMove mayMove, Moves moves)
{
    QSet<long> wanted;
    visitLinkedPoints(objects, [&](FigPoint* point) {
        point->link->flag = true;
        const long target = point->link->targetObjId;
        if (target != -1 && mayMove(target))
            wanted.insert(target);
    });
    const QHash<long, FigObject*> targets = firstWithIds(list, wanted);
    if (targets.isEmpty())
        return;
    visitLinkedPoints(objects, [&](FigPoint* point) {
        const FigObject* target = targets.value(point->link->targetObjId, nullptr);
        if (target && moves(target))
            point->link->flag = false;
    });
}

/// What moves points with their target: the ids of an object or of all leaves of compounds.
ObjectIds leavesOf(const FigObjectList* objects)
{
    ObjectIds leaves;
    TreeWalk walk(objects);
    while (const FigObject* object = walk.next())
        if (object->type != O_COMPOUND)
            leaves.add(object);
    return leaves;
}

} // namespace

// --- who is linked ----------------------------------------------------------------

bool findLinksThatConnectTo(FigObjectList* list, FigObject* object, FigLinkList* found)
{
    FigObjectList objects{object};
    ObjectIds targets = withMembers(&objects);
    Collector<FigLinkList> collector(found);
    visitLinksTo(&targets, list,
                 [&collector](FigObject*, FigPoint* point) { collector.add(point->link); });
    return !found->isEmpty();
}

bool findObjectsThatConnectTo(FigObjectList* list, FigObject* object, FigObjectList* found)
{
    FigObjectList objects{object};
    return findObjects(list, &objects, found);
}

bool findPointsThatConnectTo(FigObjectList* list, FigObject* object, FigPointList* found)
{
    FigObjectList objects{object};
    ObjectIds targets = withMembers(&objects);
    Collector<FigPointList> collector(found);
    visitLinksTo(&targets, list, [&collector](FigObject* owner, FigPoint* point) {
        point->owner = owner;
        collector.add(point);
    });
    return !found->isEmpty();
}

void collectWorkingObjects4Translate(FigObjectList* list, FigObject* object, FigObjectList* found)
{
    findObjectsThatConnectTo(list, object, found);
}

void collectWorkingObjects4Translate(FigObjectList* list, FigObjectList* objects,
                                     FigObjectList* found)
{
    if (!objects)
        return;
    findObjects(list, objects, found);
    removeObjects(found, objects);
}

void collectWorkingObjects4MovePoint(FigObjectList* list, FigObject* object, FigObjectList* found)
{
    findObjectsThatConnectTo(list, object, found);
}

// --- which ends stay ----------------------------------------------------------------

void fix_links_before_translate(FigObject* object, FigObjectList* list, FigObjectList* moved)
{
    FigObjectList objects{object};
    fix_links_before_translate(&objects, list, moved);
}

void fix_links_before_translate(FigObjectList* objects, FigObjectList* list, FigObjectList* moved)
{
    ObjectIds moving;
    if (moved)
        moving.addAll(moved);
    decideWhatStays(
        objects, list, [&moving](long target) { return moving.containsId(target); },
        [](const FigObject*) { return true; });
}

void fix_links_before_translate(FigObject* object, FigObjectList* list)
{
    FigObjectList objects{object};
    decideWhatStays(
        &objects, list, [](long) { return true; },
        [](const FigObject* target) { return target->tagged; });
}

// --- following ------------------------------------------------------------------------

void adjust_links_translate(FigObject* object, FigObjectList* list, int dx, int dy,
                            FigObjectList* changed, FigObjectList* working, FigPointList* done,
                            FigObjectList* moved)
{
    FigObjectList objects{object};
    adjust_links_translate(&objects, list, dx, dy, changed, working, done, moved);
}

void adjust_links_translate(FigObjectList* objects, FigObjectList* list, int dx, int dy,
                            FigObjectList* changed, FigObjectList* working, FigPointList* done,
                            FigObjectList* moved)
{
    ObjectIds targets = leavesOf(objects);
    followLinks(&targets, {list, changed, working, done, moved}, [dx, dy](FigPoint* point) {
        point->x = shifted(point->x, dx);
        point->y = shifted(point->y, dy);
        return true;
    });
}

void adjust_links_scale(FigObject* object, float xfactor, float yfactor, int cx, int cy,
                        FigObjectList* list, FigObjectList* changed, FigPointList* done,
                        FigObjectList* moved)
{
    FigObjectList objects{object};
    adjust_links_scale(&objects, xfactor, yfactor, cx, cy, list, changed, done, moved);
}

void adjust_links_scale(FigObjectList* objects, float xfactor, float yfactor, int cx, int cy,
                        FigObjectList* list, FigObjectList* changed, FigPointList* done,
                        FigObjectList* moved)
{
    ObjectIds targets = leavesOf(objects);
    followLinks(&targets, {list, changed, nullptr, done, moved},
                [xfactor, yfactor, cx, cy](FigPoint* point) {
                    scale_point(point, xfactor, yfactor, cx, cy);
                    return true;
                });
}

void adjust_links_rotate_ellipse(FigEllipse* ellipse, int cx, int cy, int angle,
                                 FigObjectList* list, FigObjectList* changed, FigPointList* done)
{
    ObjectIds targets;
    targets.add(ellipse);
    followLinks(&targets, {list, changed, nullptr, done, nullptr},
                [cx, cy, angle](FigPoint* point) {
                    rotate_pos(point, cx, cy, angle);
                    return true;
                });
}

void adjust_links_flip_ellipse(FigEllipse* ellipse, int cx, int cy, int direction,
                               FigObjectList* list, FigObjectList* changed, FigPointList* done)
{
    ObjectIds targets;
    targets.add(ellipse);
    followLinks(&targets, {list, changed, nullptr, done, nullptr},
                [cx, cy, direction](FigPoint* point) {
                    if (direction == 1)
                        point->y = mirrored(point->y, cy);
                    else if (direction == 2)
                        point->x = mirrored(point->x, cx);
                    return true;
                });
}
