#include "render/markers.h"

#include "edit/mode.h"
#include "model/FigContext.h"
#include "model/w_layers.h"
#include "render/coords.h"
#include "render/depth_walk.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/u_bound.h"
#include "render/u_redraw.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <cmath>

QPixmap* dotMarkerSmallNormalBitmap = nullptr;
QPixmap* dotMarkerSmallTaggedBitmap = nullptr;
QPixmap* dotMarkerSmallTaggedBitmap2 = nullptr;
QPixmap* dotMarkerSmallLinkedBitmap = nullptr;
QPixmap* dotMarkerCompoundSmallNormalBitmap = nullptr;
QPixmap* dotMarkerCompoundSmallTaggedBitmap = nullptr;
QPixmap* dotMarkerHighlightBitmap = nullptr;

namespace {

constexpr double PIXELS_OF_REACH = 3;

struct MarkerBitmap {
    QPixmap** pixmap;
    const char* name; ///< of the resource
};

const MarkerBitmap markerBitmaps[] = {
    {&dotMarkerSmallNormalBitmap, "DOT_SMALL_NORMAL"},
    {&dotMarkerSmallTaggedBitmap, "DOT_SMALL_TAGGED"},
    {&dotMarkerSmallTaggedBitmap2, "DOT_SMALL_TAGGED2"},
    {&dotMarkerSmallLinkedBitmap, "DOT_SMALL_LINKED"},
    {&dotMarkerCompoundSmallNormalBitmap, "DOT_COMPOUND_SMALL_NORMAL"},
    {&dotMarkerCompoundSmallTaggedBitmap, "DOT_COMPOUND_SMALL_TAGGED"},
    {&dotMarkerHighlightBitmap, "DOT_HIGHLIGHT"},
};

enum MarkerKind { MARKER_NORMAL = 1, MARKER_TAGGED = 2, MARKER_SELECTED = 3, MARKER_LINKED = 4 };

constexpr int POINT_SELECTED = 3; ///< state of a point
constexpr int DOT_OFFSET = 2;     ///< pixels from a bitmap's corner to its middle
constexpr int CROSS_ARM = 4;      ///< pixels

bool canPaint(const CFigContext* ctx)
{
    return ctx && ctx->painter && ctx->painter->isActive();
}

/// Whether any pixel of the bitmap would lie on the canvas. Figures have far more points than a
/// canvas shows.
bool isOnCanvas(const QPainter* painter, const QPixmap* bitmap, int x, int y)
{
    const QPaintDevice* device = painter->device();
    return x > -bitmap->width() && y > -bitmap->height() && x < device->width() &&
           y < device->height();
}

/// The bitmap is named by where it is kept, for it may have to be loaded first.
void showBitmap(CFigContext* ctx, QPixmap* const& bitmap, int x, int y)
{
    if (!canPaint(ctx))
        return;
    createMarkers();
    ctx->painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    const int left = saturatedInt(static_cast<long long>(pixelX(ctx, x)) - DOT_OFFSET);
    const int top = saturatedInt(static_cast<long long>(pixelY(ctx, y)) - DOT_OFFSET);
    if (isOnCanvas(ctx->painter, bitmap, left, top))
        ctx->painter->drawPixmap(QPointF(left, top), *bitmap);
}

// --- markers of one object ----------------------------------------------------

int kindOf(const FigObject* object)
{
    return object->tagged ? MARKER_TAGGED : MARKER_NORMAL;
}

void noteMarked(FigObject* object)
{
    object->marked = kindOf(object);
}

void showPathPoint(CFigContext* ctx, const FigPoint* point, int kind)
{
    if (point->state == POINT_SELECTED)
        kind = MARKER_SELECTED;
    else if (point->link)
        kind = MARKER_LINKED;
    showMarker(ctx, kind, point->x, point->y);
}

/// The first point comes last, unless it lies on the last: a closed shape has no double marker.
void showPathMarkers(CFigContext* ctx, const FigPoint* first, int kind)
{
    if (!first)
        return;
    const FigPoint* last = nullptr;
    for (const FigPoint* point = first->next; point; point = point->next) {
        showPathPoint(ctx, point, kind);
        last = point;
    }
    if (!last || last->x != first->x || last->y != first->y)
        showPathPoint(ctx, first, kind);
}

template <class Path> void showPathObject(CFigContext* ctx, Path* object)
{
    if (!ctx || !object || !isOnActiveLayer(ctx, object))
        return;
    showPathMarkers(ctx, object->points, kindOf(object));
    noteMarked(object);
}

void clearPointStates(FigPoint* first)
{
    for (FigPoint* point = first; point; point = point->next)
        point->state = 0;
}

// --- compounds ------------------------------------------------------------------

int middle(int from, int to)
{
    return static_cast<int>(from + (static_cast<long>(to) - from) / 2);
}

using PlainMarker = void (*)(CFigContext*, int, int);

/// Clockwise from the top left.
void showHandles(CFigContext* ctx, const FigCompound* compound, PlainMarker show)
{
    const int left = compound->nwcorner.x;
    const int top = compound->nwcorner.y;
    const int right = compound->secorner.x;
    const int bottom = compound->secorner.y;
    const int centreX = middle(left, right);
    const int centreY = middle(top, bottom);
    const QPoint handles[] = {{left, top},     {centreX, top},    {right, top},   {right, centreY},
                              {right, bottom}, {centreX, bottom}, {left, bottom}, {left, centreY}};
    for (const QPoint& handle : handles)
        show(ctx, handle.x(), handle.y());
}

// --- lists ------------------------------------------------------------------------

/// Those whose `marked` is not the value, with the value set.
template <class IsWanted> FigObjectList changeMarked(CFigContext* ctx, int value, IsWanted isWanted)
{
    FigObjectList changed;
    for (FigObject* object : qAsConst(*ctx->getWorkingRoot())) {
        if (!isWanted(object) || object->marked == value)
            continue;
        object->marked = value;
        changed.append(object);
    }
    return changed;
}

/// Redrawing the area is what wipes the dots.
template <class IsWanted> void changeMarkers(CFigContext* ctx, int value, IsWanted isWanted)
{
    applyFunction(ctx->getWorkingRoot(), clearIgnoreFlag);
    FigObjectList changed = changeMarked(ctx, value, isWanted);
    if (!changed.isEmpty())
        refresh_marked_area(ctx, &changed, false);
}

/// Figure units that a marker reaches beyond the point that it stands on.
int markerReach(const CFigContext* ctx)
{
    const double reach = PIXELS_OF_REACH * 1200.0 / ctx->ppiX / static_cast<double>(ctx->zoom);
    return truncateToInt(std::ceil(reach));
}

/// Four pixels at zoom 1: the margin of the plain redraw.
int plainMargin(const CFigContext* ctx)
{
    return round2(4.0f * (1200.0f / ctx->ppiX));
}

bool hasText(const FigObjectList& list)
{
    return std::any_of(list.begin(), list.end(),
                       [](const FigObject* object) { return object && object->type == O_TEXT; });
}

template <class Visit> void visitRoot(CFigContext* ctx, Visit visit)
{
    if (!ctx)
        return;
    for (FigObject* object : qAsConst(*ctx->getWorkingRoot()))
        visit(object);
}

} // namespace

void createMarkers()
{
    for (const MarkerBitmap& marker : markerBitmaps)
        if (!*marker.pixmap)
            *marker.pixmap =
                new QPixmap(QString(":/markers/images/markers/%1.png").arg(marker.name));
}

void destroyMarkers()
{
    for (const MarkerBitmap& marker : markerBitmaps) {
        delete *marker.pixmap;
        *marker.pixmap = nullptr;
    }
}

// --- one bitmap -----------------------------------------------------------------------

void showMarker(CFigContext* ctx, int x, int y)
{
    showBitmap(ctx, dotMarkerSmallNormalBitmap, x, y);
}

void showTaggedMarker(CFigContext* ctx, int x, int y)
{
    showBitmap(ctx, dotMarkerSmallTaggedBitmap, x, y);
}

void showSelectedPointMarker(CFigContext* ctx, int x, int y)
{
    showBitmap(ctx, dotMarkerSmallTaggedBitmap2, x, y);
}

void showLinkMarker(CFigContext* ctx, int x, int y)
{
    showBitmap(ctx, dotMarkerSmallLinkedBitmap, x, y);
}

void showCompoundMarker(CFigContext* ctx, int x, int y)
{
    showBitmap(ctx, dotMarkerCompoundSmallNormalBitmap, x, y);
}

void showCompoundTaggedMarker(CFigContext* ctx, int x, int y)
{
    showBitmap(ctx, dotMarkerCompoundSmallTaggedBitmap, x, y);
}

void showMarker(CFigContext* ctx, int kind, int x, int y)
{
    if (kind == MARKER_NORMAL)
        showMarker(ctx, x, y);
    else if (kind == MARKER_TAGGED)
        showTaggedMarker(ctx, x, y);
    else if (kind == MARKER_SELECTED)
        showSelectedPointMarker(ctx, x, y);
    else if (kind == MARKER_LINKED)
        showLinkMarker(ctx, x, y);
}

// --- all markers of an object ----------------------------------------------------------

void showPointMarker(CFigContext* ctx, FigObject* object)
{
    if (!object)
        return;
    switch (object->type) {
    case O_ELLIPSE:
        return showPointMarker(ctx, static_cast<FigEllipse*>(object));
    case O_POLYLINE:
        return showPointMarker(ctx, static_cast<FigLine*>(object));
    case O_SPLINE:
        return showPointMarker(ctx, static_cast<FigSpline*>(object));
    case O_TEXT:
        return showPointMarker(ctx, static_cast<FigText*>(object));
    case O_ARC:
        return showPointMarker(ctx, static_cast<FigArc*>(object));
    case O_COMPOUND:
        return showPointMarker(ctx, static_cast<FigCompound*>(object));
    default:
        return;
    }
}

void showPointMarker(CFigContext* ctx, FigArc* arc)
{
    if (!ctx || !arc || !isOnActiveLayer(ctx, arc))
        return;
    for (const FigPoint& point : arc->point)
        showMarker(ctx, kindOf(arc), point.x, point.y);
    noteMarked(arc);
}

void showPointMarker(CFigContext* ctx, FigEllipse* ellipse)
{
    if (!ctx || !ellipse || !isOnActiveLayer(ctx, ellipse))
        return;
    const FigPoint& centre = ellipse->center;
    const FigPoint& start = ellipse->start;
    showMarker(ctx, kindOf(ellipse), start.x, start.y);
    showMarker(ctx, kindOf(ellipse), ellipse->end.x, ellipse->end.y);
    if (centre.x != start.x && centre.y != start.y)
        showMarker(ctx, kindOf(ellipse), centre.x, centre.y);
    noteMarked(ellipse);
}

void showPointMarker(CFigContext* ctx, FigLine* line)
{
    showPathObject(ctx, line);
}

void showPointMarker(CFigContext* ctx, FigSpline* spline)
{
    showPathObject(ctx, spline);
}

void showPointMarker(CFigContext* ctx, FigText* text)
{
    if (!ctx || !text || !isOnActiveLayer(ctx, text))
        return;
    const FigPoint upper = upperTextMarker(ctx, text);
    showMarker(ctx, kindOf(text), text->x, text->y);
    showMarker(ctx, kindOf(text), upper.x, upper.y);
    noteMarked(text);
}

FigPoint upperTextMarker(CFigContext* ctx, const FigText* text)
{
    const int height = round2((1200.0f / ctx->ppiY) * static_cast<float>(text->size));
    const double angle = -static_cast<double>(text->angle);
    const long x = text->x + static_cast<long>(round2(height * std::sin(angle)));
    const long y = text->y + static_cast<long>(round2(-height * std::cos(angle)));
    return FigPoint(saturatedInt(x), saturatedInt(y));
}

void showPointMarker(CFigContext* ctx, FigCompound* compound)
{
    if (!ctx || !compound || !any_active_in_compound(ctx, compound))
        return;
    showHandles(ctx, compound, compound->tagged ? showCompoundTaggedMarker : showCompoundMarker);
    noteMarked(compound);
}

void mark_current_object(CFigContext* ctx)
{
    if (ctx)
        showPointMarker(ctx, ctx->curObject);
}

void unmark_current_object(CFigContext* ctx)
{
    if (ctx)
        refresh_obj_area(ctx, ctx->curObject, false);
}

void center_marker(CFigContext* ctx, int x, int y)
{
    if (!canPaint(ctx))
        return;
    QPainter* painter = ctx->painter;
    const QPainter::CompositionMode former = painter->compositionMode();
    const bool smooth = painter->testRenderHint(QPainter::Antialiasing);
    const int centreX = pixelX(ctx, x);
    const int centreY = pixelY(ctx, y);
    const QLine cross[] = {{centreX - CROSS_ARM, centreY, centreX + CROSS_ARM, centreY},
                           {centreX, centreY - CROSS_ARM, centreX, centreY + CROSS_ARM}};
    elasticMode(painter, 1);
    painter->setBrush(Qt::NoBrush);
    // The button that wipes may draw otherwise than the one that drew: always the same pixels.
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->drawLines(cross, 2);
    painter->setRenderHint(QPainter::Antialiasing, smooth);
    painter->setCompositionMode(former);
}

void refresh_center_marker(CFigContext* ctx, int x, int y)
{
    const int arm = round2(CROSS_ARM * 1200.0f / ctx->ppiX / ctx->zoom) + 1;
    refresh_area(ctx, saturatedDifference(x, arm), saturatedDifference(y, arm),
                 saturatedSum(x, arm), saturatedSum(y, arm), static_cast<FigObject*>(nullptr),
                 false);
}

// --- compounds and pictures of the working root ---------------------------------------------

void draw_compoundbox(CFigContext* ctx, FigCompound* compound, int)
{
    if (ctx && compound && any_active_in_compound(ctx, compound))
        showHandles(ctx, compound, showCompoundMarker);
}

void show_compoundbox(CFigContext* ctx)
{
    visitRoot(ctx, [ctx](FigObject* object) {
        if (object->type == O_COMPOUND && object->marked == 0)
            showPointMarker(ctx, static_cast<FigCompound*>(object));
    });
}

void erase_compoundbox(CFigContext* ctx)
{
    visitRoot(ctx, [ctx](FigObject* object) {
        if (object->type != O_COMPOUND || object->marked == 0)
            return;
        draw_compoundbox(ctx, static_cast<FigCompound*>(object), 0);
        object->marked = 0;
    });
}

void show_picmarker(CFigContext* ctx)
{
    visitRoot(ctx, [ctx](FigObject* object) {
        if (object->type == O_POLYLINE && object->sub_type == T_PICTURE)
            showPointMarker(ctx, static_cast<FigLine*>(object));
    });
}

void clearPointMarker(FigLine* line)
{
    if (line)
        clearPointStates(line->points);
}

void clearPointMarker(FigSpline* spline)
{
    if (spline)
        clearPointStates(spline->points);
}

void clearPointMarker(FigObject* object)
{
    if (object && object->type == O_POLYLINE)
        clearPointMarker(static_cast<FigLine*>(object));
    else if (object && object->type == O_SPLINE)
        clearPointMarker(static_cast<FigSpline*>(object));
}

int getCurrentDefaultMarker()
{
    return MARKER_NORMAL;
}

// --- all markers of the working root --------------------------------------------------------

void refresh_marked_area(CFigContext* ctx, FigObjectList* list, bool exclude)
{
    if (!ctx || !list)
        return;
    if (markerReach(ctx) <= plainMargin(ctx) && !hasText(*list))
        return refresh_obj_area(ctx, list, exclude);
    int xmin, ymin, xmax, ymax;
    objectlist_bound(ctx, list, &xmin, &ymin, &xmax, &ymax, false, true, true);
    for (const FigObject* object : qAsConst(*list))
        if (object && object->type == O_TEXT) {
            const FigPoint upper = upperTextMarker(ctx, static_cast<const FigText*>(object));
            xmin = std::min(xmin, upper.x);
            ymin = std::min(ymin, upper.y);
            xmax = std::max(xmax, upper.x);
            ymax = std::max(ymax, upper.y);
        }
    extendBounds(&xmin, &ymin, &xmax, &ymax, std::max(markerReach(ctx), plainMargin(ctx)));
    refresh_area(ctx, xmin, ymin, xmax, ymax, list, exclude);
}

void draw_pointmarker(CFigContext* ctx, int state)
{
    pointmarker_shown = state != 0;
    if (ctx)
        changeMarkers(ctx, state, [](const FigObject*) { return true; });
}

void erase_pointmarker(CFigContext* ctx)
{
    draw_pointmarker(ctx, 0);
}

void show_pointmarker(CFigContext* ctx)
{
    pointmarker_shown = true;
    visitRoot(ctx, [ctx](FigObject* object) {
        if (object->marked == 0)
            showPointMarker(ctx, object);
    });
}

void showTaggedMarkers(CFigContext* ctx, FigObject* except)
{
    visitRoot(ctx, [ctx, except](FigObject* object) {
        if (object->tagged && object != except)
            showPointMarker(ctx, object);
    });
}

void refresh_pointmarker(CFigContext* ctx)
{
    refresh_pointmarker(ctx, static_cast<FigObject*>(nullptr));
}

void refresh_pointmarker(CFigContext* ctx, FigObject* except)
{
    if (ctx)
        refresh_pointmarker(ctx, *ctx->getWorkingRoot(), except);
}

void refresh_pointmarker(CFigContext* ctx, FigObjectList* except)
{
    if (ctx)
        refresh_pointmarker(ctx, *ctx->getWorkingRoot(), except);
}

void refresh_pointmarker(CFigContext* ctx, const FigObjectList& marked, FigObject* except)
{
    for (FigObject* object : marked)
        if (object->marked != 0 && !object->ignore && object != except)
            showPointMarker(ctx, object);
    if (setcenter)
        center_marker(ctx, setcenter_x, setcenter_y);
}

void refresh_pointmarker(CFigContext* ctx, const FigObjectList& marked, FigObjectList* except)
{
    const QSet<FigObject*> members = allMembers(except);
    for (FigObject* object : marked)
        if (object->marked != 0 && !object->ignore && !members.contains(object))
            showPointMarker(ctx, object);
}

void unmarkAllUntaggedObjects(CFigContext* ctx)
{
    if (ctx)
        changeMarkers(ctx, 0, [](const FigObject* object) { return !object->tagged; });
}

bool no_object(CFigContext* ctx)
{
    return ctx && !ctx->drawing.objects.isEmpty();
}
