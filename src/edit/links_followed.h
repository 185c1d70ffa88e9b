// The walk that all functions share by which linked points follow their target. Only they include
// it.
#pragma once

#include "edit/link_walk.h"

#include <QSet>

namespace linkwalk {

/// Where a pass looks and what it reports. list null: nowhere; the others may be null.
struct FollowPass {
    FigObjectList* list;
    FigObjectList* changed; ///< receives the objects of the points that did move
    FigObjectList* working; ///< only these are looked at; null for all
    QList<FigPoint*>* done; ///< points of this pass that have had their move
    FigObjectList* moved;   ///< objects that move by themselves, with all that lies in them
};

/// Points that a pass has dealt with. The list is the caller's; a set answers for it.
class DonePoints {
public:
    explicit DonePoints(QList<FigPoint*>* doneBefore) : list(doneBefore)
    {
        if (list)
            points = QSet<FigPoint*>(list->cbegin(), list->cend());
    }

    /// False if it is there already.
    bool add(FigPoint* point)
    {
        if (points.contains(point))
            return false;
        if (list)
            list->append(point);
        return true;
    }

private:
    QList<FigPoint*>* list;
    QSet<FigPoint*> points;
};

/// Whether any end in the list is linked to one of the targets and stays.
inline bool anyStays(const FigObjectList* list, ObjectIds* targets)
{
    bool found = false;
    visitLinkedPoints(list, [&](const FigPoint* point) {
        found |= point->link->flag && targets->containsId(point->link->targetObjId);
    });
    return found;
}

/// Moves each point that is linked to one of the targets, once in a pass. A point that has moved
/// with its own object is let be: the object is among the moved, or in one of them, and the end
/// did not stay. move(point) tells whether the point did move.
template <typename Move> void followLinks(ObjectIds* targets, const FollowPass& pass, Move move)
{
    if (!pass.list || targets->isEmpty())
        return;
    if (pass.working && pass.working->isEmpty() && !anyStays(pass.moved, targets))
        return;
    ObjectIds moved, working;
    addWithMembers(&moved, pass.moved);
    if (pass.working)
        working.addAll(pass.working);

    DonePoints done(pass.done);
    TreeWalk walk(pass.list);
    while (FigObject* object = walk.next()) {
        FigPath* path = objectwalk::asPath(object);
        if (!path)
            continue;
        const bool isMoved = !moved.isEmpty() && moved.contains(object);
        if (!isMoved && pass.working && !working.contains(object))
            continue;
        bool changed = false;
        for (FigPoint* point = path->points; point; point = point->next) {
            const FigLink* link = point->link;
            if (!link || !targets->containsId(link->targetObjId) || (isMoved && !link->flag))
                continue;
            if (done.add(point))
                changed |= move(point);
        }
        if (changed && pass.changed)
            pass.changed->append(object);
    }
}

} // namespace linkwalk
