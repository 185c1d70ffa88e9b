#include "model/FigContext.h"
#include "model/objectwalk.h"
#include "model/w_layers.h"

#include <memory>

using namespace objectwalk;

namespace {

bool isOwnList(CFigContext* ctx, FigObjectList* list)
{
    return list == &ctx->drawing.objects;
}

/// How often each object stands in a list.
QHash<FigObject*, int> occurrences(const FigObjectList& list)
{
    QHash<FigObject*, int> counts;
    counts.reserve(list.size());
    for (FigObject* object : list)
        ++counts[object];
    return counts;
}

/// Replaces entries by the objects that `wanted` holds under their id, each once. What has been
/// placed leaves `wanted`.
int replaceFrom(FigObjectList* list, QHash<long, FigObject*>* wanted)
{
    int replaced = 0;
    for (auto entry = list->begin(); entry != list->end() && !wanted->isEmpty(); ++entry) {
        if (FigObject* replacement = wanted->take((*entry)->id)) {
            *entry = replacement;
            ++replaced;
        }
        if (FigCompound* compound = asCompound(*entry))
            replaced += replaceFrom(compound->objects, wanted);
    }
    return replaced;
}

} // namespace

void removeObject(FigObjectList* list, FigObject* object)
{
    if (list && object)
        list->removeOne(object);
}

void removeObjects(FigObjectList* list, FigObjectList* others)
{
    if (!list || !others)
        return;
    QHash<FigObject*, int> unwanted = occurrences(*others);
    for (auto entry = list->begin(); entry != list->end();) {
        const auto found = unwanted.find(*entry);
        if (found == unwanted.end() || found.value() == 0) {
            ++entry;
            continue;
        }
        --found.value();
        entry = list->erase(entry);
    }
}

void removeObjects(FigObjectList* list, FigCompound* compound)
{
    removeObjects(list, compound->objects);
}

void removeAll(FigObjectList* list, FigObjectList* others)
{
    removeObjects(list, others);
}

void removeObjectById(FigObjectList* list, FigObject* object)
{
    if (!list || !object)
        return;
    for (auto entry = list->begin(); entry != list->end();) {
        if ((*entry)->id == object->id)
            entry = list->erase(entry);
        else
            ++entry;
    }
}

bool replaceObjectById(FigObjectList* list, FigObject* object)
{
    if (!list || !object || object->id == -1)
        return false;
    QHash<long, FigObject*> wanted{{object->id, object}};
    return replaceFrom(list, &wanted) > 0;
}

int replaceObjects(CFigContext* ctx, FigObjectList* list)
{
    if (!list)
        return 0;
    QHash<long, FigObject*> wanted;
    wanted.reserve(list->size());
    for (FigObject* object : qAsConst(*list))
        if (object->id != -1)
            wanted.insert(object->id, object);
    return replaceFrom(&ctx->drawing.objects, &wanted);
}

void addObjects(FigObjectList* list, FigCompound* compound)
{
    copyObjectList(compound->objects, list);
}

void copyObjectList(FigObjectList* from, FigObjectList* to)
{
    if (from && to)
        *to += *from;
}

void deleteObjectList(FigObjectList* list)
{
    while (list && !list->isEmpty())
        delete list->takeFirst();
}

FigObjectList* cloneObjects(FigObjectList* list)
{
    if (!list)
        return nullptr;
    auto* clones = new FigObjectList;
    for (FigObject* object : qAsConst(*list))
        if (FigObject* copied = object->clone())
            clones->append(copied);
    return clones;
}

void cloneObjects(FigObjectList* from, FigObjectList* to)
{
    const std::unique_ptr<FigObjectList> clones(cloneObjects(from));
    deleteObjectList(to);
    copyObjectList(clones.get(), to);
}

void cloneObjects(FigCompound* from, FigCompound* to)
{
    const std::unique_ptr<FigObjectList> clones(cloneObjects(from->objects));
    copyObjectList(clones.get(), to->objects);
}

FigCompound* cloneCompound(FigCompound* compound)
{
    auto* copied = new FigCompound;
    cloneObjects(compound, copied);
    return copied;
}

FigCompound* shallowCopyCompound(FigCompound* compound)
{
    auto* copied = new FigCompound;
    addObjects(copied->objects, compound);
    return copied;
}

void list_add(CFigContext* ctx, FigObjectList* list, FigObject* object)
{
    if (!list || !object)
        return;
    list->append(object);
    if (!isOwnList(ctx, list))
        return;
    if (FigCompound* compound = asCompound(object))
        add_compound_depth(ctx, compound);
    else
        add_depth(ctx, object->type, object->depth);
}

int list_delete(CFigContext* ctx, FigObjectList* list, FigObject* object)
{
    if (!list)
        return 0;
    if (!object)
        return 1;
    if (!list->removeOne(object))
        return 0;
    if (!isOwnList(ctx, list))
        return 1;
    if (FigCompound* compound = asCompound(object))
        remove_compound_depth(ctx, compound);
    else
        remove_depth(ctx, object->type, object->depth);
    return 1;
}
