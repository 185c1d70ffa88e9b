// The private comment lines: object ids and smart links of own files.
#include "fileio/f_read.h"
#include "model/FigContext.h"
#include "model/objectwalk.h"

#include <QVector>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <memory>
#include <vector>

using namespace objectwalk;

namespace {

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

const QLatin1String ID_WORDS("# METADATA <id>");
/// So many decimal digits fit into a long.
constexpr int MAX_PLAIN_DIGITS = 18;

/// The line as this program writes it. False for one that is left to sscanf.
bool parsePlainId(const QString& line, long* id)
{
    if (!line.startsWith(ID_WORDS))
        return false;
    long value = 0;
    int digits = 0;
    for (int i = ID_WORDS.size(); i < line.size(); ++i, ++digits) {
        const int digit = line.at(i).unicode() - '0';
        if (digit < 0 || digit > 9)
            break;
        if (digits == MAX_PLAIN_DIGITS)
            return false;
        value = value * 10 + digit;
    }
    if (digits > 0)
        *id = value;
    return digits > 0;
}

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
    visitAll(objects, [index](FigObject* object) {
        if (object->id != -1 && !index->contains(object->id))
            index->insert(object->id, object);
    });
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
    return findAny(objects, [](FigObject* object) { return object->id == -1; }) != nullptr;
}

bool areDistinct(FigObjectList* objects)
{
    std::vector<long> ids;
    visitAll(objects, [&ids](FigObject* object) { ids.push_back(object->id); });
    std::sort(ids.begin(), ids.end());
    return std::adjacent_find(ids.begin(), ids.end()) == ids.end();
}

/// Every object gets an id. False when those of the file could not be kept.
bool settleIds(CFigContext* ctx, FigObjectList* objects)
{
    ctx->nextId = getMaxId(objects);
    const bool hasRoom =
        ctx->nextId < std::numeric_limits<long>::max() - std::numeric_limits<int>::max();
    if (hasRoom || !anyWithoutId(objects)) {
        ctx->nextId = completeObjectIds(objects, ctx->nextId);
        if (areDistinct(objects))
            return true;
    }
    ctx->nextId = renumberObjectIds(objects, 0);
    return false;
}

} // namespace

bool isIdLine(const QString& line)
{
    return line.startsWith(ID_WORDS);
}

void parseMetadataForId(FigObject* object, QStringList* lines)
{
    for (const QString& line : *lines)
        if (!parsePlainId(line, &object->id))
            std::sscanf(line.toUtf8().constData(), "# METADATA <id>%ld</id>", &object->id);
}

void parseMetadataForLinks(FigObject* object, FigObjectList* objects, QStringList* lines)
{
    restoreLinks(objects, {{object, lines}});
}

void applyMetadata(CFigContext* ctx, FigObjectList* objects, bool allNew, MetadataMap* metadata)
{
    if (isFromOrvalt) {
        if (settleIds(ctx, objects) && !metadata->isEmpty())
            restoreLinks(objects, *metadata);
    } else if (allNew) {
        // No object of a file of other origin has an id.
        ctx->nextId = renumberObjectIds(objects, 0);
    } else {
        settleIds(ctx, objects);
    }
    qDeleteAll(*metadata);
    metadata->clear();
}
