// A row of deletions in one go: one walk finds all the links that end on what goes, and one pass
// takes all of it out of the list. The result is that of executing them one after the other.
#include "edit/action_support.h"
#include "edit/actions.h"
#include "edit/e_links.h"
#include "edit/link_walk.h"
#include "model/FigContext.h"

#include <QHash>

using objectwalk::asCompound;
using objectwalk::asPath;
using objectwalk::visitAll;

namespace {

constexpr int STAYS = -1; ///< in place of a number: the object is not deleted

/// The links on the points of a list, by target, in the order in which a walk meets them.
class LinksByTarget {
public:
    explicit LinksByTarget(const QHash<FigObject*, int>& deletionNumbers) : numbers(deletionNumbers)
    {
    }

    void collect(const FigObjectList& list)
    {
        for (FigObject* object : list)
            collectFrom(object, numbers.value(object, STAYS));
    }

    /// Takes the links to an object off their points. Sources that are gone by then keep theirs.
    void take(FigObject* target, int number, FigLinkList* taken)
    {
        if (FigCompound* compound = asCompound(target))
            visitAll(compound->objects,
                     [=](FigObject* member) { takeById(member->id, number, taken); });
        takeById(target->id, number, taken);
    }

private:
    struct Entry {
        FigPoint* source;
        int number; ///< of the deletion of its object
    };

    void collectFrom(FigObject* object, int number)
    {
        const FigObjectList single{object};
        linkwalk::TreeWalk walk(&single);
        while (FigObject* each = walk.next()) {
            FigPath* path = asPath(each);
            for (FigPoint* point = path ? path->points : nullptr; point; point = point->next)
                if (point->link && isFollower(each, walk, point->link->targetObjId))
                    entries[point->link->targetObjId].append({point, number});
        }
    }

    /// An object does not follow itself, and nothing in a compound follows that compound.
    static bool isFollower(const FigObject* object, const linkwalk::TreeWalk& walk, long target)
    {
        return object->id != target && !walk.isInCompoundWithId(target);
    }

    void takeById(long id, int number, FigLinkList* taken)
    {
        for (const Entry& entry : entries.value(id)) {
            if (!entry.source->link || (entry.number != STAYS && entry.number <= number))
                continue;
            taken->append(entry.source->link);
            entry.source->link = nullptr;
        }
    }

    const QHash<FigObject*, int>& numbers;
    QHash<long, QList<Entry>> entries;
};

/// Takes the numbered objects out in one pass.
void removeNumbered(CFigContext* ctx, FigObjectList* list, const QHash<FigObject*, int>& numbers)
{
    FigObjectList left;
    for (auto entry = list->begin(); entry != list->end();) {
        if (numbers.contains(*entry)) {
            left.append(*entry);
            entry = list->erase(entry);
        } else {
            ++entry;
        }
    }
    for (FigObject* object : qAsConst(left))
        countLeft(ctx, list, object);
}

DeleteAction* deletionAt(const QList<ActionItem*>& step, int index)
{
    return index < step.size() ? dynamic_cast<DeleteAction*>(step.at(index)) : nullptr;
}

/// The row of deletions on one list, each of another object.
QList<DeleteAction*> rowOfDeletions(const QList<ActionItem*>& step, int first,
                                    QHash<FigObject*, int>* numbers)
{
    QList<DeleteAction*> row;
    for (DeleteAction* next = deletionAt(step, first); next;
         next = deletionAt(step, first + row.size())) {
        if (!next->object || !next->workingList || numbers->contains(next->object) ||
            (!row.isEmpty() && next->workingList != row.first()->workingList))
            break;
        numbers->insert(next->object, row.size());
        row.append(next);
    }
    return row;
}

} // namespace

int executeDeletions(CFigContext* ctx, const QList<ActionItem*>& step, int first)
{
    QHash<FigObject*, int> numbers;
    const QList<DeleteAction*> row = rowOfDeletions(step, first, &numbers);
    if (row.size() < 2)
        return 0;
    FigObjectList* list = row.first()->workingList;
    for (DeleteAction* deletion : row) {
        closeBeforeLeaving(ctx, deletion->object);
        claimFromVanished(deletion->object);
    }
    LinksByTarget links(numbers);
    links.collect(*list);
    removeNumbered(ctx, list, numbers);
    for (int i = 0; i < row.size(); ++i) {
        row.at(i)->savedLinks.clear();
        links.take(row.at(i)->object, i, &row.at(i)->savedLinks);
    }
    return row.size();
}
