#include "model/FigContext.h"
#include "model/objectwalk.h"

using namespace objectwalk;

namespace {

/// Calls on each linked point of the lines and splines of a list, at every level.
template <typename Visit> void visitLinkedPoints(FigObjectList* list, Visit visit)
{
    visitAll(list, [&visit](FigObject* object) {
        FigPath* path = asPath(object);
        for (FigPoint* point = path ? path->points : nullptr; point; point = point->next)
            if (point->link)
                visit(object, point);
    });
}

QHash<long, FigObject*> objectsById(FigObjectList* list)
{
    QHash<long, FigObject*> objects;
    visitAll(list, [&objects](FigObject* object) {
        if (!objects.contains(object->id))
            objects.insert(object->id, object);
    });
    return objects;
}

/// Looks the end points of the target segment up again, since a copy still knows the old ones.
void resolveTarget(FigLink* link, FigObject* target)
{
    FigPath* path = target ? asPath(target) : nullptr;
    link->targetLeftPoint = path ? path->getPoint(link->targetLeftPointIdx) : nullptr;
    link->targetRightPoint = path ? path->getPoint(link->targetRightPointIdx) : nullptr;
}

} // namespace

long getMaxId(FigObjectList* list)
{
    long greatest = 0;
    visitAll(list, [&greatest](FigObject* object) { greatest = std::max(greatest, object->id); });
    return greatest;
}

long completeObjectIds(FigObjectList* list, long startId)
{
    long lastId = startId;
    visitAll(list, [&lastId](FigObject* object) {
        if (object->id == -1)
            object->id = ++lastId;
    });
    return lastId;
}

bool checkObjectIds(FigObjectList* list, QSet<long>* seen)
{
    const FigObject* repeated = findAny(list, [seen](FigObject* object) {
        if (object->id == -1)
            return false;
        const int before = seen->size();
        seen->insert(object->id);
        return seen->size() == before;
    });
    return !repeated;
}

long renumberObjectIds(FigObjectList* list, long startId)
{
    long lastId = startId;
    visitAll(list, [&lastId](FigObject* object) { object->id = ++lastId; });
    return lastId;
}

void assignNewIDs(CFigContext* ctx, FigObjectList* list, QMap<long, long>* oldToNew)
{
    visitAll(list, [ctx, oldToNew](FigObject* object) {
        const long oldId = object->id;
        object->id = ctx->getNextId();
        if (oldToNew)
            oldToNew->insert(oldId, object->id);
    });
}

void maintainLinks(FigObjectList* list, QMap<long, long>& oldToNew)
{
    const QHash<long, FigObject*> objects = objectsById(list);
    visitLinkedPoints(list, [&](FigObject*, FigPoint* point) {
        const auto newId = oldToNew.constFind(point->link->targetObjId);
        if (newId == oldToNew.constEnd()) {
            removeLink(point);
            return;
        }
        point->link->targetObjId = newId.value();
        resolveTarget(point->link, objects.value(newId.value(), nullptr));
    });
}

FigObjectList* copyObjectsAndMaintainLinks(CFigContext* ctx, FigObjectList* list)
{
    FigObjectList* copies = cloneObjects(list);
    QMap<long, long> oldToNew;
    assignNewIDs(ctx, copies, &oldToNew);
    maintainLinks(copies, oldToNew);
    return copies;
}

void getIDs(FigObjectList* list, QMap<long, long>& ids)
{
    visitAll(list, [&ids](FigObject* object) { ids.insert(object->id, object->id); });
}

void deleteDanglingLinks(QMap<long, long>& ids, FigObjectList* list, bool tagged)
{
    visitLinkedPoints(list, [&ids, tagged](FigObject* object, FigPoint* point) {
        if (object->tagged >= tagged && !ids.contains(point->link->targetObjId))
            removeLink(point);
    });
}

void deleteDanglingLinks(FigObjectList* list1, FigObjectList* list2, bool tagged)
{
    QMap<long, long> ids;
    getIDs(list1, ids);
    deleteDanglingLinks(ids, list2, tagged);
}
