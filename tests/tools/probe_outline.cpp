// What drawing computes before the painter is touched: device points, pens, brushes, arrowheads.

#include "probe_json.h"

#include "model/FigContext.h"
#include "render/Font.h"
#include "render/colorFunctions.h"
#include "render/coords.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/u_arrow.h"
#include "render/u_draw.h"

#include <QVector>

#include <algorithm>
#include <cmath>

QJsonArray jsonPoints(const QPoint* points, long count)
{
    QJsonArray array;
    for (long i = 0; i < count; ++i) {
        array.append(QJsonArray{points[i].x(), points[i].y()});
    }
    return array;
}

namespace {

/// Points that the arrow code steps back from the end of a spline's outline.
constexpr int splineArrowSkip = 2;

// --- pens and brushes --------------------------------------------------------

QString capName(Qt::PenCapStyle cap)
{
    return cap == Qt::FlatCap ? "flat" : cap == Qt::RoundCap ? "round" : "square";
}

QString joinName(Qt::PenJoinStyle join)
{
    return join == Qt::MiterJoin ? "miter" : join == Qt::RoundJoin ? "round" : "bevel";
}

QString penStyleName(Qt::PenStyle style)
{
    return style == Qt::SolidLine ? "solid" : style == Qt::CustomDashLine ? "dash" : "other";
}

QJsonObject penEntry(const QPen& pen)
{
    QJsonArray dashes;
    for (const qreal entry : pen.dashPattern()) {
        dashes.append(jsonNumber(entry));
    }
    return {
        {"width", jsonNumber(pen.widthF())},
        {"style", penStyleName(pen.style())},
        {"dash", dashes},
        {"cap", capName(pen.capStyle())},
        {"join", joinName(pen.joinStyle())},
        {"miterLimit", jsonNumber(pen.miterLimit())},
        {"color", pen.color().name()},
    };
}

QJsonValue fillEntry(CFigContext* ctx, const FigObject* object, int mode)
{
    if (object->fill_style == -1) {
        return QJsonValue::Null;
    }
    const bool isPattern = object->fill_style > 40;
    const int shade = isPattern ? 20 : object->fill_style;
    const int color = object->fill_color == -1 ? 0 : object->fill_color;
    const int pattern = object->fill_style - NUM_SHADES;
    QJsonObject entry{
        {"shade", shade},
        {"color", jsonColor(getColor(&ctx->userColorShades, color, shade, mode, true))},
        {"pattern", QJsonValue::Null},
    };
    if (isPattern && pattern < NUM_PATTERNS) {
        entry.insert("pattern", pattern);
        entry.insert("patternColor",
                     jsonColor(getColor(&ctx->userColorShades, object->pen_color, mode, true)));
    }
    return entry;
}

// --- arrowheads --------------------------------------------------------------

struct Head {
    const FigArrow* arrow;
    const QPoint* points;
    long count;
    const QPoint* fill;
    int fillCount;
    const QPoint* drawnFill;
    int drawnFillCount;
    const QPoint* clip;
    int clipCount;
};

QJsonObject headEntry(CFigContext* ctx, const Head& head, bool drawn)
{
    const int thickness = round2(static_cast<double>(head.arrow->thickness));
    return {
        {"type", head.arrow->type},
        {"style", head.arrow->style},
        {"penWidth", getThickness(ctx, thickness, ctx->zoom)},
        {"points", jsonPoints(head.points, head.count)},
        {"fill", jsonPoints(head.fill, head.fillCount)},
        {"drawnFill", jsonPoints(head.drawnFill, head.drawnFillCount)},
        {"clip", jsonPoints(head.clip, head.clipCount)},
        {"drawn", drawn},
    };
}

/// Heads from the point list as it stands. A spline draws each head with the other one's fill
/// points; "drawnFill" tells what is drawn.
void addHeads(CFigContext* ctx, FigObject* object, int skip, bool drawn, QJsonObject& entry)
{
    ArrowBuffers b;
    get_arrowpoints(ctx, object, object->type, polygon_points, skip, b.forwardFill,
                    &b.forwardFillCount, b.backwardFill, &b.backwardFillCount, b.forwardClip,
                    &b.forwardClipCount, b.backwardClip, &b.backwardClipCount);
    Head forward{object->forward_arrow,
                 farpts,
                 nfpts,
                 b.forwardFill,
                 b.forwardFillCount,
                 b.forwardFill,
                 b.forwardFillCount,
                 b.forwardClip,
                 b.forwardClipCount};
    Head backward{object->backward_arrow,
                  barpts,
                  nbpts,
                  b.backwardFill,
                  b.backwardFillCount,
                  b.backwardFill,
                  b.backwardFillCount,
                  b.backwardClip,
                  b.backwardClipCount};
    if (object->type == O_SPLINE) {
        std::swap(forward.drawnFill, backward.drawnFill);
        std::swap(forward.drawnFillCount, backward.drawnFillCount);
    }
    const bool stroked = drawn && object->thickness != 0;
    if (forward.arrow) {
        entry.insert("forward_arrow", headEntry(ctx, forward, stroked));
    }
    if (backward.arrow) {
        entry.insert("backward_arrow", headEntry(ctx, backward, stroked));
    }
}

// --- one object each ---------------------------------------------------------

/// Pen and fill of a stroked object; join -1 where drawing sets none.
void addStroke(CFigContext* ctx, FigObject* object, int cap, int join, int mode, QJsonObject& entry)
{
    const int width = getThickness(ctx, object->thickness, ctx->zoom);
    const QPen pen = strokePen(ctx, object->pen_color, mode, width, object->thickness,
                               object->line_style, object->style_val, cap, join);
    entry.insert("penWidth", width);
    entry.insert("pen", penEntry(pen));
    entry.insert("fill", fillEntry(ctx, object, mode));
}

void addPointList(QJsonObject& entry)
{
    entry.insert("points", jsonPoints(polygon_points, npoints));
}

void addLine(CFigContext* ctx, FigLine* line, int mode, QJsonObject& entry)
{
    if (!initPointListFromLine(ctx, line)) {
        return;
    }
    const bool isPicture = line->sub_type == T_PICTURE;
    const bool isRounded = line->sub_type == T_ARCBOX && isRoundedArcbox(ctx, line);
    entry.insert("shape", isPicture             ? "picture"
                          : isRounded           ? "arcbox"
                          : !line->points->next ? "dot"
                                                : "polyline");
    addPointList(entry);
    addHeads(ctx, line, 0, !isPicture && !isRounded, entry);
    if (isRounded && initPointListFromArcbox(ctx, line)) {
        addPointList(entry);
    }
    addStroke(ctx, line, line->cap_style, isRounded ? -1 : line->join_style, mode, entry);
}

/// An open spline whose first two points share an x or a y is drawn from its second point.
void addDrawnSplinePoints(FigSpline* spline, QJsonObject& entry)
{
    const QPoint* p = polygon_points;
    const bool adjusted = !isClosed(spline) && npoints > 2 && p[0] != p[1] &&
                          (p[0].x() == p[1].x() || p[0].y() == p[1].y());
    if (adjusted) {
        QJsonArray points = jsonPoints(polygon_points, npoints);
        points[0] = points.at(1);
        entry.insert("drawnPoints", points);
    }
}

void addSpline(CFigContext* ctx, FigSpline* spline, int mode, QJsonObject& entry)
{
    if (!initPointListFromSpline(ctx, spline)) {
        return;
    }
    addPointList(entry);
    addDrawnSplinePoints(spline, entry);
    addHeads(ctx, spline, splineArrowSkip, true, entry);
    addStroke(ctx, spline, spline->cap_style, -1, mode, entry);
}

void addArc(CFigContext* ctx, FigArc* arc, int mode, QJsonObject& entry)
{
    if (!initPointListFromArc(ctx, arc)) {
        return;
    }
    addPointList(entry);
    if (arc->sub_type == 0) {
        addHeads(ctx, arc, 0, true, entry);
    }
    addStroke(ctx, arc, arc->cap_style, -1, mode, entry);
}

int screenDegrees(double radians)
{
    return round2(-radians * 180.0 / M_PI);
}

void addEllipse(CFigContext* ctx, FigEllipse* ellipse, int mode, QJsonObject& entry)
{
    const int width = getThickness(ctx, ellipse->thickness, ctx->zoom);
    const int rx = ellipse->radiuses.x, ry = ellipse->radiuses.y;
    entry.insert("center",
                 QJsonArray{pixelX(ctx, ellipse->center.x), pixelY(ctx, ellipse->center.y)});
    // Each of the four is rounded by itself.
    entry.insert("left", round2(scaledX(ctx, -rx)));
    entry.insert("top", round2(scaledY(ctx, -ry)));
    entry.insert("width", round2(scaledX(ctx, 2 * rx)));
    entry.insert("height", round2(scaledY(ctx, 2 * ry)));
    entry.insert("rotation", screenDegrees(static_cast<double>(ellipse->angle)));
    entry.insert("penWidth", width);
    entry.insert("pen", penEntry(ellipsePen(ctx, ellipse, mode, width)));
    entry.insert("fill", fillEntry(ctx, ellipse, mode));
}

/// Start of the base line before rotation.
int textStart(const FigText* text)
{
    switch (text->sub_type) {
    case 1:
        return text->x - text->length / 2;
    case 2:
        return text->x - text->length;
    default:
        return text->x;
    }
}

void addText(CFigContext* ctx, FigText* text, int mode, QJsonObject& entry)
{
    const double zoom = static_cast<double>(ctx->zoom);
    if (ctx->zoom != text->metricsZoom && fontPixelSize(ctx, text, zoom) != 0) {
        pf_textwidth(ctx, text, zoom);
    }
    int x = 0, y = 0;
    rotatePoint(text->x, text->y, textStart(text), text->y, &x, &y,
                static_cast<double>(text->angle));
    entry.insert("position", QJsonArray{pixelX(ctx, x), pixelY(ctx, y)});
    entry.insert("rotation", screenDegrees(static_cast<double>(text->angle)));
    entry.insert("pixelSize", fontPixelSize(ctx, text, zoom));
    entry.insert("text", text->cstring);
    entry.insert("color", jsonColor(getColor(&ctx->userColorShades, text->color, mode, true)));
}

void addByType(CFigContext* ctx, FigObject* object, int mode, QJsonObject& entry)
{
    switch (object->type) {
    case O_ELLIPSE:
        return addEllipse(ctx, static_cast<FigEllipse*>(object), mode, entry);
    case O_POLYLINE:
        return addLine(ctx, static_cast<FigLine*>(object), mode, entry);
    case O_SPLINE:
        return addSpline(ctx, static_cast<FigSpline*>(object), mode, entry);
    case O_TEXT:
        return addText(ctx, static_cast<FigText*>(object), mode, entry);
    case O_ARC:
        return addArc(ctx, static_cast<FigArc*>(object), mode, entry);
    default:
        return;
    }
}

QJsonObject outlineEntry(CFigContext* ctx, FigObject* object)
{
    const int mode = isOutsideOpenedCurrentCompound(ctx, object, getPaintMode(ctx, object));
    QJsonObject entry{
        {"id", static_cast<qint64>(object->id)},
        {"type", object->type},
        {"type_name", typeName(object->type)},
        {"sub_type", object->sub_type},
        {"depth", object->depth},
        {"paintMode", mode},
    };
    addByType(ctx, object, mode, entry);
    return entry;
}

// --- drawing order -----------------------------------------------------------

void appendLeaves(FigObjectList& list, QVector<FigObject*>& out)
{
    for (FigObject* object : list) {
        if (object->type == O_COMPOUND) {
            appendLeaves(*static_cast<FigCompound*>(object)->objects, out);
        } else {
            out.append(object);
        }
    }
}

/// Greater depths first; within a depth the order of the lists, compounds entered.
QVector<FigObject*> drawingOrder(CFigContext* ctx)
{
    QVector<FigObject*> order;
    appendLeaves(ctx->drawing.objects, order);
    std::stable_sort(order.begin(), order.end(),
                     [](const FigObject* a, const FigObject* b) { return a->depth > b->depth; });
    return order;
}

} // namespace

QJsonObject figureOutline(CFigContext* ctx)
{
    QJsonArray objects;
    for (FigObject* object : drawingOrder(ctx)) {
        objects.append(outlineEntry(ctx, object));
    }
    return {
        {"zoom", jsonNumber(ctx->zoom)},
        {"ppiX", jsonNumber(ctx->ppiX)},
        {"ppiY", jsonNumber(ctx->ppiY)},
        {"objects", objects},
    };
}
