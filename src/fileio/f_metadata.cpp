// The private comment lines: object ids and smart links of own files.
#include "fileio/f_read.h"
#include "model/FigContext.h"

#include <QVector>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <memory>

namespace {

FigPath* asPath(FigObject* object)
{
    if (object->type == O_POLYLINE)
        return static_cast<FigLine*>(object);
    if (object->type == O_SPLINE)
        return static_cast<FigSpline*>(object);
    return nullptr;
}

/// Point lists by index, each walked once however many links ask for it.
class PointIndex {
public:
    /// Null for a negative index and out of range.
    FigPoint* point(FigPath* path, long index)
    {
        const QVector<FigPoint*>& points = pointsOf(path);
        return index >= 0 && index < points.size() ? points.at(static_cast<int>(index)) : nullptr;
    }

private:
    const QVector<FigPoint*>& pointsOf(FigPath* path)
    {
        auto known = pointLists.find(path);
        if (known == pointLists.end()) {
            known = pointLists.insert(path, {});
            for (FigPoint* point = path->points; point; point = point->next)
                known->append(point);
        }
        return *known;
    }

    QHash<FigPath*, QVector<FigPoint*>> pointLists;
};

struct LinkLine {
    long srcPointIdx = -1;
    long targetObjId = -1;
    long targetLeftPointIdx = -1;
};

bool parseLinkLine(const QString& line, LinkLine* link)
{
    const int fields =
        std::sscanf(line.toUtf8().constData(),
                    "# METADATA <link srcPointIdx=%ld targetObjId=%ld targetLeftPointIdx=%ld />",
                    &link->srcPointIdx, &link->targetObjId, &link->targetLeftPointIdx);
    return fields == 3 && link->srcPointIdx != -1 && link->targetObjId != -1;
}

/// Whether the segment after the last point leads nowhere instead of back to the first point. For
/// splines the sense is the opposite of that for lines; links of old files depend on it.
bool endsAtLastPoint(FigObject* target)
{
    if (target->type == O_POLYLINE)
        return target->sub_type == T_POLYLINE;
    return target->sub_type == 1 || target->sub_type == 3 || target->sub_type == 5;
}

/// False when the left point does not exist.
bool setTargetSegment(FigLink* link, FigObject* target, long leftIndex, PointIndex* points)
{
    FigPath* path = asPath(target);
    FigPoint* left = points->point(path, leftIndex);
    if (!left)
        return false;
    link->targetLeftPointIdx = static_cast<int>(leftIndex);
    link->targetLeftPoint = left;
    const bool open = endsAtLastPoint(target);
    if (!open && (!left->next || !left->next->next)) {
        // The last point repeats the first, so what follows it is the first.
        link->targetRightPointIdx = 0;
        link->targetRightPoint = path->points;
    } else if (left->next) {
        link->targetRightPointIdx = link->targetLeftPointIdx + 1;
        link->targetRightPoint = left->next;
    }
    return true;
}

/// Null when the link leads nowhere.
FigLink* makeLink(FigObject* target, const LinkLine& line, PointIndex* points)
{
    auto link = std::make_unique<FigLink>();
    link->targetObjId = line.targetObjId;
    if (target->type == O_ELLIPSE)
        return link.release();
    if (asPath(target) && setTargetSegment(link.get(), target, line.targetLeftPointIdx, points))
        return link.release();
    return nullptr;
}

/// The first object of each id, as findObjectById finds it.
void indexById(FigObjectList* objects, QHash<long, FigObject*>* index)
{
    for (FigObject* object : *objects) {
        if (object->id != -1 && !index->contains(object->id))
            index->insert(object->id, object);
        if (object->type == O_COMPOUND)
            indexById(static_cast<FigCompound*>(object)->objects, index);
    }
}

void restoreLink(FigObject* object, const QString& text, const QHash<long, FigObject*>& objectById,
                 PointIndex* points)
{
    LinkLine line;
    FigPath* source = asPath(object);
    if (!source || !parseLinkLine(text, &line))
        return;
    FigObject* target = objectById.value(line.targetObjId);
    FigPoint* point = points->point(source, line.srcPointIdx);
    if (!target || !point)
        return;
    if (FigLink* link = makeLink(target, line, points)) {
        delete point->link;
        point->link = link;
        link->srcPoint = point;
    }
}

void restoreLinks(FigObjectList* objects, const MetadataMap& metadata)
{
    QHash<long, FigObject*> objectById;
    indexById(objects, &objectById);
    PointIndex points;
    for (auto entry = metadata.begin(); entry != metadata.end(); ++entry)
        for (const QString& line : *entry.value())
            restoreLink(entry.key(), line, objectById, &points);
}

bool anyWithoutId(FigObjectList* objects)
{
    return std::any_of(objects->cbegin(), objects->cend(), [](FigObject* object) {
        return object->id == -1 || (object->type == O_COMPOUND &&
                                    anyWithoutId(static_cast<FigCompound*>(object)->objects));
    });
}

/// Every object gets an id. False when those of the file could not be kept.
bool settleIds(CFigContext* ctx, FigObjectList* objects)
{
    ctx->nextId = getMaxId(objects);
    const bool hasRoom =
        ctx->nextId < std::numeric_limits<long>::max() - std::numeric_limits<int>::max();
    if (hasRoom || !anyWithoutId(objects)) {
        ctx->nextId = completeObjectIds(objects, ctx->nextId);
        QSet<long> seen;
        if (checkObjectIds(objects, &seen))
            return true;
    }
    ctx->nextId = renumberObjectIds(objects, 0);
    return false;
}

} // namespace

void parseMetadataForId(FigObject* object, QStringList* lines)
{
    for (const QString& line : *lines)
        std::sscanf(line.toUtf8().constData(), "# METADATA <id>%ld</id>", &object->id);
}

void parseMetadataForLinks(FigObject* object, FigObjectList* objects, QStringList* lines)
{
    restoreLinks(objects, {{object, lines}});
}

void applyMetadata(CFigContext* ctx, FigObjectList* objects, bool allNew, MetadataMap* metadata)
{
    if (isFromOrvalt) {
        for (auto entry = metadata->begin(); entry != metadata->end(); ++entry)
            parseMetadataForId(entry.key(), entry.value());
        if (settleIds(ctx, objects))
            restoreLinks(objects, *metadata);
    } else if (allNew) {
        // Files of other origin may hold such lines by chance. None of their objects has an id.
        ctx->nextId = renumberObjectIds(objects, 0);
    } else {
        settleIds(ctx, objects);
    }
    qDeleteAll(*metadata);
    metadata->clear();
}
