// The tree as it stands in memory, every field under its member name.

#include "probe_json.h"

#include "RecordingShell.h"
#include "fileio/f_read.h"
#include "model/FigContext.h"

#include <QFile>

#include <cmath>

QJsonValue jsonNumber(double value)
{
    if (std::isnan(value)) {
        return "nan";
    }
    if (std::isinf(value)) {
        return value > 0 ? "inf" : "-inf";
    }
    return value;
}

QString jsonColor(unsigned packed)
{
    return QString("#%1").arg(packed & 0xffffffu, 6, 16, QChar('0'));
}

QString typeName(int type)
{
    static const char* const names[] = {"none", "ellipse", "line",    "spline",
                                        "text", "arc",     "compound"};
    return type >= 0 && type <= O_COMPOUND ? names[type] : "unknown";
}

namespace {

QJsonArray objectTree(CFigContext* ctx, FigObjectList& list);

/// The number that the file's first line claims; the context does not keep it.
double fileVersion(CFigContext* ctx)
{
    QFile file(ctx->filename);
    file.open(QIODevice::ReadOnly);
    return file.readLine(100).simplified().split(' ').value(1).toDouble();
}

QJsonObject header(CFigContext* ctx)
{
    return {
        {"version", fileVersion(ctx)},
        {"landscape", ctx->landscape},
        {"flushLeft", ctx->flushLeft},
        {"metric", ctx->metric},
        {"paperSize", ctx->paperSize},
        {"paperName", QString(paper_sizes[ctx->paperSize].shortName).trimmed()},
        {"magnification", jsonNumber(ctx->magnification)},
        {"multiplePage", ctx->multiplePage},
        {"transparentColor", ctx->transparentColor},
        {"resolution", ctx->drawing.resolution},
        {"coord_system", ctx->drawing.coord_system},
        {"isFromOrvalt", isFromOrvalt},
        {"nextId", static_cast<qint64>(ctx->nextId)},
        {"min_depth", ctx->min_depth},
        {"max_depth", ctx->max_depth},
        {"num_object", num_object},
    };
}

QJsonObject userColors(CFigContext* ctx)
{
    QJsonObject colors;
    for (auto it = ctx->userColors.cbegin(); it != ctx->userColors.cend(); ++it) {
        colors.insert(QString::number(it.key() + 32), it.value().name());
    }
    return colors;
}

QJsonValue arrow(const FigArrow* record)
{
    if (!record) {
        return QJsonValue::Null;
    }
    return QJsonObject{
        {"type", record->type},
        {"style", record->style},
        {"thickness", jsonNumber(record->thickness)},
        {"wd", jsonNumber(record->wd)},
        {"ht", jsonNumber(record->ht)},
    };
}

QJsonValue link(const FigLink* record)
{
    if (!record) {
        return QJsonValue::Null;
    }
    return QJsonObject{
        {"targetObjId", static_cast<qint64>(record->targetObjId)},
        {"targetLeftPointIdx", record->targetLeftPointIdx},
        {"targetRightPointIdx", record->targetRightPointIdx},
        {"flag", record->flag},
    };
}

QJsonObject point(const FigPoint& record)
{
    return {{"x", record.x}, {"y", record.y}};
}

QJsonArray pathPoints(const FigPoint* first)
{
    QJsonArray array;
    for (; first; first = first->next) {
        QJsonObject entry = point(*first);
        entry.insert("link", link(first->link));
        array.append(entry);
    }
    return array;
}

QJsonArray shapeFactors(const FigShapeFactor* first)
{
    QJsonArray array;
    for (; first; first = first->next) {
        array.append(jsonNumber(first->s));
    }
    return array;
}

QJsonValue picture(const FigPic* record)
{
    if (!record) {
        return QJsonValue::Null;
    }
    return QJsonObject{
        {"file", record->file},
        {"type", record->type},
        {"flipped", record->flipped},
        {"pix_width", record->pix_width},
        {"pix_height", record->pix_height},
        {"pix_rotation", record->pix_rotation},
        {"size_x", record->size_x},
        {"size_y", record->size_y},
        {"pix_flipped", record->pix_flipped},
        {"loaded", record->pixmap != nullptr},
    };
}

void add(QJsonObject& to, const QJsonObject& members)
{
    for (auto it = members.begin(); it != members.end(); ++it) {
        to.insert(it.key(), it.value());
    }
}

QJsonObject commonMembers(const FigObject* object)
{
    return {
        {"type", object->type},
        {"type_name", typeName(object->type)},
        {"id", static_cast<qint64>(object->id)},
        {"sub_type", object->sub_type},
        {"line_style", object->line_style},
        {"thickness", object->thickness},
        {"pen_color", object->pen_color},
        {"fill_color", object->fill_color},
        {"fill_style", object->fill_style},
        {"depth", object->depth},
        {"pen_style", object->pen_style},
        {"style_val", jsonNumber(object->style_val)},
        {"forward_arrow", arrow(object->forward_arrow)},
        {"backward_arrow", arrow(object->backward_arrow)},
        {"comments", object->comments},
        {"tagged", object->tagged},
        {"marked", object->marked},
        {"convertedSubType", object->convertedSubType},
    };
}

QJsonObject lineMembers(const FigLine* line)
{
    return {
        {"cap_style", line->cap_style}, {"join_style", line->join_style},
        {"radius", line->radius},       {"points", pathPoints(line->points)},
        {"pic", picture(line->pic)},
    };
}

QJsonObject splineMembers(const FigSpline* spline)
{
    return {
        {"cap_style", spline->cap_style},
        {"points", pathPoints(spline->points)},
        {"sfactors", shapeFactors(spline->sfactors)},
    };
}

QJsonObject ellipseMembers(const FigEllipse* ellipse)
{
    return {
        {"angle", jsonNumber(ellipse->angle)}, {"direction", ellipse->direction},
        {"center", point(ellipse->center)},    {"radiuses", point(ellipse->radiuses)},
        {"start", point(ellipse->start)},      {"end", point(ellipse->end)},
    };
}

QJsonObject arcMembers(const FigArc* arc)
{
    return {
        {"cap_style", arc->cap_style},
        {"direction", arc->direction},
        {"center_x", jsonNumber(arc->center_x)},
        {"center_y", jsonNumber(arc->center_y)},
        {"point", QJsonArray{point(arc->point[0]), point(arc->point[1]), point(arc->point[2])}},
    };
}

QJsonObject textMembers(const FigText* text)
{
    return {
        {"font", text->font},
        {"size", text->size},
        {"color", text->color},
        {"angle", jsonNumber(text->angle)},
        {"flags", text->flags},
        {"length", text->length},
        {"ascent", text->ascent},
        {"descent", text->descent},
        {"x", text->x},
        {"y", text->y},
        {"cstring", text->cstring},
        {"fontHeight", text->fontHeight},
        {"paddedLength", text->paddedLength},
        {"metricsZoom", jsonNumber(text->metricsZoom)},
    };
}

QJsonObject compoundMembers(CFigContext* ctx, FigCompound* compound)
{
    return {
        {"nwcorner", point(compound->nwcorner)},
        {"secorner", point(compound->secorner)},
        {"objects", objectTree(ctx, *compound->objects)},
    };
}

QJsonObject ownMembers(CFigContext* ctx, FigObject* object)
{
    switch (object->type) {
    case O_ELLIPSE:
        return ellipseMembers(static_cast<FigEllipse*>(object));
    case O_POLYLINE:
        return lineMembers(static_cast<FigLine*>(object));
    case O_SPLINE:
        return splineMembers(static_cast<FigSpline*>(object));
    case O_TEXT:
        return textMembers(static_cast<FigText*>(object));
    case O_ARC:
        return arcMembers(static_cast<FigArc*>(object));
    case O_COMPOUND:
        return compoundMembers(ctx, static_cast<FigCompound*>(object));
    default:
        return {};
    }
}

QJsonArray bounds(CFigContext* ctx, FigObject* object, bool both)
{
    int xmin = 0, ymin = 0, xmax = 0, ymax = 0;
    object->getBounds(ctx, &xmin, &ymin, &xmax, &ymax, both, both);
    return {xmin, ymin, xmax, ymax};
}

/// The fields come first: measuring a text at another zoom changes its metrics.
QJsonObject objectEntry(CFigContext* ctx, FigObject* object)
{
    QJsonObject entry = commonMembers(object);
    add(entry, ownMembers(ctx, object));
    entry.insert("bounds", bounds(ctx, object, false));
    entry.insert("exactBounds", bounds(ctx, object, true));
    return entry;
}

QJsonArray objectTree(CFigContext* ctx, FigObjectList& list)
{
    QJsonArray array;
    for (FigObject* object : list) {
        array.append(objectEntry(ctx, object));
    }
    return array;
}

QJsonObject drawingCorners(CFigContext* ctx)
{
    return {{"nwcorner", point(ctx->drawing.nwcorner)}, {"secorner", point(ctx->drawing.secorner)}};
}

} // namespace

QJsonObject figureInfo(CFigContext* ctx)
{
    QJsonObject info = drawingCorners(ctx);
    info.insert("header", header(ctx));
    info.insert("userColors", userColors(ctx));
    info.insert("comments", ctx->drawing.comments);
    info.insert("messages", QJsonArray::fromStringList(recordingShell.messages));
    info.insert("boxes", QJsonArray::fromStringList(recordingShell.boxes));
    info.insert("objects", objectTree(ctx, ctx->drawing.objects));
    return info;
}
