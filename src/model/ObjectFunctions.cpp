#include "model/ObjectFunctions.h"

#include "model/FigContext.h"
#include "model/objectwalk.h"
#include "model/u_list.h"

#include <algorithm>
#include <iterator>

using namespace objectwalk;

namespace {

template <typename Object> Object* cloneWithNewId(CFigContext* ctx, Object* object)
{
    auto* copied = static_cast<Object*>(object->clone());
    if (copied)
        copied->id = ctx->getNextId();
    return copied;
}

template <typename Path> Path* copyPath(CFigContext* ctx, Path* object, bool keepLinks)
{
    Path* copied = cloneWithNewId(ctx, object);
    for (FigPoint* point = copied && !keepLinks ? copied->points : nullptr; point;
         point = point->next)
        removeLink(point);
    return copied;
}

} // namespace

// --- one object -----------------------------------------------------------------

void setIgnoreFlag(FigObject* object)
{
    object->ignore = true;
}

void clearIgnoreFlag(FigObject* object)
{
    object->ignore = false;
}

void setMarkedFlag(FigObject* object)
{
    object->marked = 1;
}

void clearMarkedFlag(FigObject* object)
{
    object->marked = 0;
}

void setTaggedFlag(FigObject* object)
{
    object->tagged = true;
}

void clearTaggedFlag(FigObject* object)
{
    object->tagged = false;
}

void copyTaggedFlagToIgnoreFlag(FigObject* object)
{
    object->ignore = object->tagged;
}

void setTexCallFailedFlag(FigObject* object, bool failed)
{
    if (object->type == O_TEXT)
        static_cast<FigText*>(object)->texCallFailed = failed;
}

void disposeImages(FigObject* object)
{
    if (object->type == O_TEXT)
        static_cast<FigText*>(object)->disposeImages();
}

bool isClosed(FigObject* object)
{
    switch (object->type) {
    case O_POLYLINE:
        return object->sub_type != T_POLYLINE;
    case O_SPLINE:
        return object->sub_type == 1 || object->sub_type == 3 || object->sub_type == 5;
    default:
        return false;
    }
}

bool isEndpoint(FigPath* path, FigPoint* point)
{
    return point && (point == path->points || point == last_point(path->points));
}

bool isEndpoint(FigObject* object, FigPoint* point)
{
    FigPath* path = asPath(object);
    return path && !isClosed(object) && isEndpoint(path, point);
}

FigArc* copy_arc(CFigContext* ctx, FigArc* object)
{
    return cloneWithNewId(ctx, object);
}

FigEllipse* copy_ellipse(CFigContext* ctx, FigEllipse* object)
{
    return cloneWithNewId(ctx, object);
}

FigText* copy_text(CFigContext* ctx, FigText* object)
{
    return cloneWithNewId(ctx, object);
}

FigLine* copy_line(CFigContext* ctx, FigLine* object, bool keepLinks)
{
    return copyPath(ctx, object, keepLinks);
}

FigSpline* copy_spline(CFigContext* ctx, FigSpline* object, bool keepLinks)
{
    return copyPath(ctx, object, keepLinks);
}

// The links of the members keep the old targets: a copied compound is tied to what the original
// is tied to.
FigCompound* copy_compound(CFigContext* ctx, FigCompound* object)
{
    auto* copied = static_cast<FigCompound*>(object->clone());
    assignNewIds(ctx, copied);
    return copied;
}

FigObject* copy(CFigContext* ctx, FigObject* object)
{
    switch (object->type) {
    case O_ELLIPSE:
        return copy_ellipse(ctx, static_cast<FigEllipse*>(object));
    case O_POLYLINE:
        return copy_line(ctx, static_cast<FigLine*>(object), false);
    case O_SPLINE:
        return copy_spline(ctx, static_cast<FigSpline*>(object), false);
    case O_TEXT:
        return copy_text(ctx, static_cast<FigText*>(object));
    case O_ARC:
        return copy_arc(ctx, static_cast<FigArc*>(object));
    case O_COMPOUND:
        return copy_compound(ctx, static_cast<FigCompound*>(object));
    default:
        return nullptr;
    }
}

void assignNewIds(CFigContext* ctx, FigCompound* compound)
{
    compound->id = ctx->getNextId();
    assignNewIDs(ctx, compound->objects, nullptr);
}

FigArrow* new_arrow(CFigContext*, int kind, int style, float thickness, float width, float height,
                    int)
{
    constexpr float resolution = 1200;
    const bool knownKind = kind >= 0 && kind <= 15;
    const bool knownStyle = style == 0 || style == 1;
    const bool usableThickness = thickness > 0 && thickness <= 10 * resolution;
    const bool usableHeight = height >= 0 && height <= 50 * resolution;

    auto* arrow = new FigArrow;
    arrow->type = knownKind ? kind : 0;
    arrow->style = knownKind && knownStyle ? style : 0;
    arrow->thickness = usableThickness ? thickness : cur_arrowthick;
    arrow->wd = width > 0 ? width : cur_arrowwidth;
    arrow->ht = usableHeight ? height : cur_arrowheight;
    return arrow;
}

// --- walking and asking ---------------------------------------------------------

void applyFunction(FigObjectList* list, void (*function)(FigObject*))
{
    visitAll(list, function);
}

void applyFunction(FigObjectList* list, void (*function)(FigObject*, bool), bool argument)
{
    visitAll(list, [=](FigObject* object) { function(object, argument); });
}

void applyFunction(FigObjectList* list, void (*function)(FigObject*, int, int), int a, int b)
{
    visitAll(list, [=](FigObject* object) { function(object, a, b); });
}

void set_tags(FigObjectList* list, bool tagged)
{
    visitAll(list, [=](FigObject* object) { object->tagged = tagged; });
}

void set_marked(FigCompound* compound, int marked)
{
    for (FigObject* object : qAsConst(*compound->objects))
        object->marked = marked;
}

bool isAnotherObjectTagged(FigObjectList* list, FigObject* object)
{
    if (!list)
        return false;
    return std::any_of(list->cbegin(), list->cend(), [=](FigObject* candidate) {
        return candidate != object && candidate->tagged;
    });
}

bool moreThanOneTaggedObject(FigObjectList* list)
{
    if (!list)
        return false;
    return std::count_if(list->cbegin(), list->cend(),
                         [](FigObject* object) { return object->tagged; }) >= 2;
}

bool isAllObjectsOfSameType(FigObjectList* list)
{
    if (!list || list->isEmpty())
        return true;
    const int type = list->first()->type;
    return std::all_of(list->cbegin(), list->cend(),
                       [=](FigObject* object) { return object->type == type; });
}

int object_count(FigObjectList* list)
{
    return list ? list->size() : 0;
}

int object_count(FigCompound* compound)
{
    return object_count(compound->objects);
}

int countObjects(FigObjectList* list)
{
    int count = 0;
    visitAll(list, [&count](FigObject* object) { count += object->type != O_COMPOUND; });
    return count;
}

void getObjectsByType(FigObjectList* list, int type, FigObjectList& out)
{
    if (!list)
        return;
    std::copy_if(list->cbegin(), list->cend(), std::back_inserter(out),
                 [=](FigObject* object) { return object->type == type; });
}

FigObjectList* getObjectsByType(FigObjectList* list, int type)
{
    auto* found = new FigObjectList;
    getObjectsByType(list, type, *found);
    return found;
}

FigObject* findObjectById(FigObjectList* list, long id)
{
    if (id == -1)
        return nullptr;
    return findAny(list, [=](FigObject* object) { return object->id == id; });
}

FigCompound* getParentCompound(FigObjectList* list, FigObject* object)
{
    FigObject* parent = findAny(list, [=](FigObject* candidate) {
        FigCompound* compound = asCompound(candidate);
        return compound && qAsConst(*compound->objects).contains(object);
    });
    return static_cast<FigCompound*>(parent);
}

FigCompound* getCompoundByObjectList(FigObjectList* list, FigObjectList* objects)
{
    FigObject* owner = findAny(list, [=](FigObject* candidate) {
        FigCompound* compound = asCompound(candidate);
        return compound && compound->objects == objects;
    });
    return static_cast<FigCompound*>(owner);
}

bool isInCompound(FigCompound* compound, FigObject* object)
{
    return isInList(compound->objects, object, false);
}

bool isInList(FigObjectList* list, FigObject* object, bool byId)
{
    if (byId)
        return object && findObjectById(list, object->id);
    return findAny(list, [=](FigObject* candidate) { return candidate == object; });
}

bool isInList(FigPoint* first, FigPoint* point)
{
    FigPoint* candidate = first;
    while (candidate && candidate != point)
        candidate = candidate->next;
    return candidate;
}

bool isInList(QList<FigLink*>* list, FigLink* link)
{
    return list && list->contains(link);
}

FigCompound* get_root_compound(FigCompound* compound)
{
    FigCompound* root = compound;
    while (root && root->parent)
        root = root->parent;
    return root;
}
