// What the searches find at points of the figure.

#include "probe_json.h"

#include "edit/u_search.h"
#include "model/FigContext.h"

namespace {

QJsonArray pair(int x, int y)
{
    return {x, y};
}

QJsonValue objectEntry(CFigContext* ctx, const FigObject* found)
{
    if (!found) {
        return QJsonValue::Null;
    }
    int index = 0;
    for (const FigObject* object : qAsConst(*ctx->getWorkingRoot())) {
        if (object == found) {
            break;
        }
        ++index;
    }
    return QJsonObject{{"id", static_cast<qint64>(found->id)},
                       {"type", found->type},
                       {"type_name", typeName(found->type)},
                       {"index", index}};
}

/// The last call of the point search's handler.
QJsonObject pointSearchEntry;

bool recordPoint(CFigContext* ctx, FigObject* found, int, int, int, int px, int py,
                 FigPoint* previous, FigPoint*, int number)
{
    if (!found) {
        return false;
    }
    pointSearchEntry = {
        {"object", objectEntry(ctx, found)},
        {"point", pair(px, py)},
        {"previous", previous ? QJsonValue(pair(previous->x, previous->y)) : QJsonValue::Null},
        {"number", number},
    };
    return true;
}

QJsonObject hitEntry(CFigContext* ctx, const QPoint& at)
{
    int px = 0, py = 0;
    FigObject* found = objectSearch(ctx, at.x(), at.y(), &px, &py, nullptr);
    QJsonObject entry{{"x", at.x()}, {"y", at.y()}};
    entry.insert("object", objectEntry(ctx, found));
    entry.insert("point", found ? QJsonValue(pair(px, py)) : QJsonValue::Null);
    entry.insert("smartPoints", smart_points_valid != 0
                                    ? QJsonValue(QJsonArray{pair(smart_point1.x, smart_point1.y),
                                                            pair(smart_point2.x, smart_point2.y)})
                                    : QJsonValue::Null);
    initPoint_searchproc_left(recordPoint);
    const bool onPoint = point_search_left(ctx, at.x(), at.y()) != nullptr;
    entry.insert("pointSearch", onPoint ? QJsonValue(pointSearchEntry) : QJsonValue::Null);
    return entry;
}

} // namespace

QJsonObject figureHits(CFigContext* ctx, const QVector<QPoint>& points)
{
    QJsonArray hits;
    for (const QPoint& point : points) {
        hits.append(hitEntry(ctx, point));
    }
    return {
        {"zoom", jsonNumber(ctx->zoom)},
        {"ppiX", jsonNumber(ctx->ppiX)},
        {"ppiY", jsonNumber(ctx->ppiY)},
        {"tolerance", searchTolerance(ctx)},
        {"points", hits},
    };
}
