#include "edit/e_links.h"

#include "edit/link_walk.h"
#include "edit/u_search.h"
#include "model/FigContext.h"

#include <QHash>

using namespace linkwalk;
using objectwalk::asCompound;
using objectwalk::asPath;

namespace {

/// On the segment that a hit has just been found on.
constexpr int SEGMENT_TOLERANCE = 1;

FigLink* newLink(FigPoint* point, const FigObject* target)
{
    auto* link = new FigLink;
    link->targetObjId = target->id;
    link->srcPoint = point;
    return link;
}

/// Notes the segment under the position and moves the position onto it.
void takeSegment(CFigContext* ctx, FigLine* target, FigLink* link, int* x, int* y)
{
    FigPoint *left = nullptr, *right = nullptr;
    int leftIndex = -1, rightIndex = -1;
    int onX = *x, onY = *y;
    if (!line_segment_search(ctx, target, &left, &right, &leftIndex, &rightIndex, *x, *y,
                             SEGMENT_TOLERANCE, &onX, &onY))
        return;
    link->targetLeftPoint = left;
    link->targetRightPoint = right;
    link->targetLeftPointIdx = leftIndex;
    link->targetRightPointIdx = rightIndex;
    *x = onX;
    *y = onY;
}

bool mayConnect(const FigObject* source, FigObject* target)
{
    return isLinkableTargetObject(target) && !(source && target->id == source->id);
}

bool linkPoint(CFigContext* ctx, FigObject* source, FigPoint* point, FigObjectList* list,
               FigLinkList* found)
{
    FigLink* link = makeConnection(ctx, list, point, source);
    if (!link)
        return false;
    point->link = link;
    if (found)
        found->append(link);
    return true;
}

/// True when the point is linked. A level is searched when its first target is met, and once
/// only: the same search would find the same.
bool searchLevel(CFigContext* ctx, FigObject* source, FigPoint* point, FigObjectList* list,
                 FigLinkList* found)
{
    bool searched = false;
    for (FigObject* object : qAsConst(*list)) {
        if (FigCompound* compound = asCompound(object)) {
            if (searchLevel(ctx, source, point, compound->objects, found))
                return true;
        } else if (!searched && isLinkableTargetObject(object)) {
            if (linkPoint(ctx, source, point, list, found))
                return true;
            searched = true;
        }
    }
    return false;
}

void takeOff(FigPoint* point, bool keep)
{
    if (!keep)
        delete point->link;
    point->link = nullptr;
}

/// Places of the points in a chain. A null point and strangers are at -1.
QHash<FigPoint*, int> indexesOf(const FigPath* path)
{
    QHash<FigPoint*, int> indexes;
    int index = 0;
    for (FigPoint* point = path->points; point; point = point->next)
        indexes.insert(point, index++);
    return indexes;
}

} // namespace

bool isLinkableSourceObject(FigObject* object)
{
    if (!object)
        return false;
    return (object->type == O_POLYLINE && object->sub_type == T_POLYLINE) ||
           (object->type == O_SPLINE && (object->sub_type == 0 || object->sub_type == 2));
}

bool isLinkableTargetObject(FigObject* object)
{
    if (!object)
        return false;
    return object->type == O_ELLIPSE ||
           (object->type == O_POLYLINE && object->sub_type != T_POLYLINE) ||
           (object->type == O_SPLINE && (object->sub_type == 1 || object->sub_type == 3));
}

// --- making ---------------------------------------------------------------------

FigObject* objectSearchForLinks(CFigContext* ctx, FigObjectList* list, int x, int y, int* px,
                                int* py, FigObject* excluded)
{
    if (!list)
        return nullptr;
    const int tolerance = searchTolerance(ctx);
    FigObject* found = line_search(ctx, list, x, y, tolerance, px, py, excluded);
    if (!found)
        found = ellipse_search(ctx, list, x, y, tolerance, px, py, excluded);
    if (!found)
        found = spline_search(ctx, list, x, y, tolerance, px, py, excluded);
    return found;
}

// Nothing is excluded here: a release over the source's own outline connects to nothing.
bool checkForConnection(CFigContext* ctx, int* x, int* y, FigObject* source)
{
    int onX = *x, onY = *y;
    FigObject* target =
        objectSearchForLinks(ctx, ctx->getWorkingRoot(), *x, *y, &onX, &onY, nullptr);
    if (!mayConnect(source, target))
        return false;
    *x = onX;
    *y = onY;
    return true;
}

FigLink* makeConnection(CFigContext* ctx, FigObjectList* list, FigPoint* point, FigObject* source)
{
    int x = point->x, y = point->y;
    FigObject* target = objectSearchForLinks(ctx, list, point->x, point->y, &x, &y, source);
    if (!mayConnect(source, target))
        return nullptr;
    FigLink* link = newLink(point, target);
    if (target->type == O_POLYLINE)
        takeSegment(ctx, static_cast<FigLine*>(target), link, &x, &y);
    point->x = x;
    point->y = y;
    return link;
}

void searchForLinks(CFigContext* ctx, FigObject* source, FigPoint* point, FigObjectList* list,
                    FigLinkList* found)
{
    if (list)
        searchLevel(ctx, source, point, list, found);
}

// --- collecting, taking off, putting back ------------------------------------------

void removeAllLinks(FigPath* path, bool keep)
{
    for (FigPoint* point = path ? path->points : nullptr; point; point = point->next)
        takeOff(point, keep);
}

void removeAllLinks(FigObjectList* list, bool keep)
{
    visitLinkedPoints(list, [keep](FigPoint* point) { takeOff(point, keep); });
}

void removeAllLinks(FigLinkList* links, bool keep)
{
    if (!links)
        return;
    for (FigLink* link : qAsConst(*links)) {
        if (!link)
            continue;
        // A point that has another link by now keeps that one.
        if (link->srcPoint && link->srcPoint->link == link)
            link->srcPoint->link = nullptr;
        if (!keep)
            delete link;
    }
}

void getLinksInObject(FigPath* path, FigLinkList* out)
{
    for (FigPoint* point = path ? path->points : nullptr; point; point = point->next)
        if (point->link)
            out->append(point->link);
}

void getAllLinks(FigPath* path, FigLinkList* out)
{
    getLinksInObject(path, out);
}

void getAllLinks(FigObjectList* list, FigLinkList* out)
{
    visitLinkedPoints(list, [out](FigPoint* point) { out->append(point->link); });
}

void restoreLinks(FigLinkList* links)
{
    if (!links)
        return;
    for (FigLink* link : qAsConst(*links))
        if (link && link->srcPoint)
            link->srcPoint->link = link;
}

void updateLinkLRPointIndex(FigPointList* points, FigPath* path)
{
    if (!points || points->isEmpty())
        return;
    const QHash<FigPoint*, int> indexes = indexesOf(path);
    for (FigPoint* point : qAsConst(*points)) {
        if (!point->link)
            continue;
        point->link->targetLeftPointIdx = indexes.value(point->link->targetLeftPoint, -1);
        point->link->targetRightPointIdx = indexes.value(point->link->targetRightPoint, -1);
    }
}
