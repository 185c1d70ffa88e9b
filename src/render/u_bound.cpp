#include "render/u_bound.h"

#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/Font.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/u_arrow.h"
#include "render/u_bound_box.h"
#include "render/u_draw.h"

#include <cmath>

// Single precision wherever a float stands below, in the order written: bounds agree with what
// is drawn and with each other to the unit.

namespace {

constexpr float fullTurn = 6.2831855f;
constexpr int interpolatedBit = 2;
constexpr int crossBit = 4;

long distance(int a, int b)
{
    return std::abs(static_cast<long>(a) - b);
}

/// A line width in figure units, along one axis.
int strokeExtent(const FigObject* object, float ppi)
{
    return round2(static_cast<float>(object->thickness) * (1200.0f / ppi));
}

BoundsBox boundsOf(CFigContext* ctx, FigObject* object, bool includeDescent, bool exact)
{
    BoundsBox box;
    object->getBounds(ctx, &box.xmin, &box.ymin, &box.xmax, &box.ymax, includeDescent, exact);
    return box;
}

// --- arrowheads --------------------------------------------------------------

void addPathEnds(CFigContext* ctx, FigObject* object, FigPoint* first)
{
    FigPoint* beforeLast = first;
    while (beforeLast->next->next)
        beforeLast = beforeLast->next;
    if (object->backward_arrow) {
        add_point_to_list_scale(ctx, first->x, first->y);
        add_point_to_list_scale(ctx, first->next->x, first->next->y);
    }
    if (object->forward_arrow) {
        add_point_to_list_scale(ctx, beforeLast->x, beforeLast->y);
        add_point_to_list_scale(ctx, beforeLast->next->x, beforeLast->next->y);
    }
}

void addTangent(CFigContext* ctx, const FigArc* arc, const FigPoint& end, int direction)
{
    int x, y;
    compute_normal(arc->center_x, arc->center_y, end.x, end.y, direction, &x, &y);
    add_point_to_list_scale(ctx, x, y);
    add_point_to_list_scale(ctx, end.x, end.y);
}

void addArcEnds(CFigContext* ctx, FigArc* arc)
{
    if (arc->backward_arrow)
        addTangent(ctx, arc, arc->point[0], arc->direction ^ 1);
    if (arc->forward_arrow)
        addTangent(ctx, arc, arc->point[2], arc->direction);
}

FigPoint* pathPoints(int objType, FigObject* object)
{
    if (objType == O_POLYLINE)
        return static_cast<FigLine*>(object)->points;
    return objType == O_SPLINE ? static_cast<FigSpline*>(object)->points : nullptr;
}

/// Puts the stretch that determines the heads in the point list. Returns what get_arrowpoints
/// has to skip: only interpolated splines look further back, while drawing does so for all.
int collectHeadStretch(CFigContext* ctx, int objType, FigObject* object)
{
    init_pointlist();
    if (objType == O_ARC) {
        addArcEnds(ctx, static_cast<FigArc*>(object));
        return 0;
    }
    FigPoint* first = pathPoints(objType, object);
    if (!first || !first->next)
        return 0;
    if (objType == O_SPLINE && (object->sub_type & interpolatedBit)) {
        compute_open_spline(ctx, static_cast<FigSpline*>(object), SPLINE_PRECISION,
                            add_point_to_list);
        return 2;
    }
    addPathEnds(ctx, object, first);
    return 0;
}

int unitsFromPixel(int pixel, int shift, float ppi, float zoom)
{
    const long shifted = static_cast<long>(pixel) + shift;
    return round2((1200.0f / ppi) / zoom * static_cast<float>(shifted));
}

/// The head's stroke is taken as wide in pixels as the line's thickness says, whatever the zoom.
void includeHead(CFigContext* ctx, const FigObject* object, const QPoint* outline, long count,
                 BoundsBox& box)
{
    init_pointlist();
    for (long i = 0; i < count; ++i)
        add_point_to_list(outline[i].x(), outline[i].y());
    if (npoints < 1)
        return;
    BoundsBox pixels;
    calc_linebounds(polygon_points, npoints, true, static_cast<float>(object->thickness), 0,
                    &pixels.xmin, &pixels.ymin, &pixels.xmax, &pixels.ymax);
    box.include({unitsFromPixel(pixels.xmin, ctx->shiftX, ctx->ppiX, ctx->zoom),
                 unitsFromPixel(pixels.ymin, ctx->shiftY, ctx->ppiY, ctx->zoom),
                 unitsFromPixel(pixels.xmax, ctx->shiftX, ctx->ppiX, ctx->zoom),
                 unitsFromPixel(pixels.ymax, ctx->shiftY, ctx->ppiY, ctx->zoom)});
}

// --- arcs ----------------------------------------------------------------------

float angleAtCentre(const FigArc* arc, const FigPoint& point)
{
    const float dx = static_cast<float>(point.x) - arc->center_x;
    const float dy = arc->center_y - static_cast<float>(point.y);
    const float angle = static_cast<float>(std::atan2(double(dy), double(dx)));
    return angle < 0.0f ? angle + fullTurn : angle;
}

double arcRadius(const FigArc* arc)
{
    const double dx = static_cast<float>(arc->point[0].x) - arc->center_x;
    const double dy = static_cast<float>(arc->point[0].y) - arc->center_y;
    return std::sqrt(dx * dx + dy * dy);
}

/// Whether an arc from angle `first` to `last` runs through `direction`. A full circle does.
bool passes(bool counterClockwise, float first, float last, float direction)
{
    if (first == last)
        return true;
    if (counterClockwise)
        return first > last ? direction >= first || last >= direction
                            : last >= direction && direction >= first;
    return first > last ? direction >= last && first >= direction
                        : first >= direction || direction >= last;
}

void includeExtremes(const FigArc* arc, BoundsBox& box)
{
    const float first = angleAtCentre(arc, arc->point[0]);
    const float last = angleAtCentre(arc, arc->point[2]);
    const double r = arcRadius(arc);
    const bool turn = arc->direction != 0;
    if (passes(turn, first, last, 0.0f))
        box.xmax = std::max(box.xmax, truncated(arc->center_x + r + 1));
    if (passes(turn, first, last, 1.5707964f))
        box.ymin = std::min(box.ymin, truncated(arc->center_y - r - 1));
    if (passes(turn, first, last, 3.1415927f))
        box.xmin = std::min(box.xmin, truncated(arc->center_x - r - 1));
    if (passes(turn, first, last, 4.712389f))
        box.ymax = std::max(box.ymax, truncated(arc->center_y + r + 1));
}

// --- splines -------------------------------------------------------------------

/// Room around a control point: a quarter of its neighbours' distance where the curve may leave
/// the control polygon.
BoundsBox controlPointBox(const FigPoint* before, const FigPoint* point, const FigPoint* after,
                          const FigShapeFactor* factor)
{
    BoundsBox box = BoundsBox::at(point->x, point->y);
    if (factor && factor->s < 0)
        box.grow(distance(after->x, before->x) >> 2, distance(after->y, before->y) >> 2);
    return box;
}

// --- texts ---------------------------------------------------------------------

int textWidth(CFigContext* ctx, const FigText* text)
{
    if (!texViewPreferencesData.renderSpecialText)
        return text->length;
    const QPixmap* image = text->imagesNormal.value(round2(ctx->ppiX));
    if (!image)
        return text->length;
    return round2(static_cast<float>(image->width()) * (1200.0f / ctx->ppiX));
}

int textLeft(const FigText* text, int width)
{
    if (text->sub_type == 1)
        return saturated(static_cast<long>(text->x) - width / 2);
    return text->sub_type == 2 ? saturated(static_cast<long>(text->x) - width) : text->x;
}

/// The box of a rectangle turned about the text's base point.
BoundsBox turnedBox(const FigText* text, const BoundsBox& straight)
{
    const double sine = std::sin(-static_cast<double>(text->angle));
    const double cosine = std::cos(-static_cast<double>(text->angle));
    const auto turned = [&](int x, int y) {
        const double dx = static_cast<double>(x) - text->x;
        const double dy = static_cast<double>(y) - text->y;
        return BoundsBox::at(
            saturated(static_cast<long>(text->x) + round2(cosine * dx - sine * dy)),
            saturated(static_cast<long>(text->y) + round2(sine * dx + cosine * dy)));
    };
    BoundsBox box = turned(straight.xmin, straight.ymax);
    box.include(turned(straight.xmin, straight.ymin));
    box.include(turned(straight.xmax, straight.ymin));
    box.include(turned(straight.xmax, straight.ymax));
    return box;
}

} // namespace

// --- lists -----------------------------------------------------------------------

void objectlist_bound(CFigContext* ctx, FigObjectList* list, int* xmin, int* ymin, int* xmax,
                      int* ymax, bool taggedOnly, bool includeDescent, bool exact)
{
    BoundsBox box;
    bool empty = true;
    for (FigObject* object : qAsConst(*list)) {
        if (!object || (taggedOnly && !object->tagged))
            continue;
        const BoundsBox next = boundsOf(ctx, object, includeDescent, exact);
        if (empty)
            box = next;
        else
            box.include(next);
        empty = false;
    }
    box.store(xmin, ymin, xmax, ymax);
}

void tagged_objects_bound(CFigContext* ctx, FigObjectList* list, int* xmin, int* ymin, int* xmax,
                          int* ymax)
{
    objectlist_bound(ctx, list, xmin, ymin, xmax, ymax, true, true, true);
}

void FigDrawing::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                           bool includeDescent, bool exact)
{
    objectlist_bound(ctx, &objects, xmin, ymin, xmax, ymax, false, includeDescent, exact);
}

void FigCompound::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                            bool includeDescent, bool exact)
{
    objectlist_bound(ctx, objects, xmin, ymin, xmax, ymax, false, includeDescent, exact);
}

void FigObject::getBounds(CFigContext*, int* xmin, int* ymin, int* xmax, int* ymax, bool, bool)
{
    BoundsBox().store(xmin, ymin, xmax, ymax);
}

// --- lines and splines -------------------------------------------------------------

void points_bound(CFigContext*, FigPoint* first, int* xmin, int* ymin, int* xmax, int* ymax)
{
    BoundsBox box = first ? BoundsBox::at(first->x, first->y) : BoundsBox();
    for (FigPoint* point = first; point; point = point->next)
        box.include(point->x, point->y);
    box.store(xmin, ymin, xmax, ymax);
}

void FigLine::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax, bool,
                        bool exact)
{
    points_bound(ctx, points, xmin, ymin, xmax, ymax);
    if (!exact || !points)
        return;
    getPointArray(this, polygon_points, &npoints);
    // Always as if closed: the box of an open line may be a little too large.
    calc_linebounds(polygon_points, npoints, true,
                    (1200.0f / ctx->ppiX) * static_cast<float>(thickness), join_style, xmin, ymin,
                    xmax, ymax);
    arrow_bound(ctx, O_POLYLINE, this, xmin, ymin, xmax, ymax);
}

void approx_spline_bound(FigSpline* spline, int* xmin, int* ymin, int* xmax, int* ymax)
{
    points_bound(nullptr, spline->points, xmin, ymin, xmax, ymax);
}

void general_spline_bound(FigSpline* spline, int* xmin, int* ymin, int* xmax, int* ymax)
{
    const FigPoint* before = spline->points;
    BoundsBox box = before ? BoundsBox::at(before->x, before->y) : BoundsBox();
    const FigShapeFactor* factor = spline->sfactors;
    for (const FigPoint* point = before ? before->next : nullptr; point; point = point->next) {
        factor = factor ? factor->next : nullptr;
        const FigPoint* after = point->next ? point->next : spline->points;
        box.include(controlPointBox(before, point, after, factor));
        before = point;
    }
    box.store(xmin, ymin, xmax, ymax);
}

void FigSpline::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax, bool,
                          bool exact)
{
    if (!exact || !points) {
        points_bound(ctx, points, xmin, ymin, xmax, ymax);
        return;
    }
    BoundsBox box;
    if (sub_type & (interpolatedBit | crossBit))
        general_spline_bound(this, &box.xmin, &box.ymin, &box.xmax, &box.ymax);
    else
        approx_spline_bound(this, &box.xmin, &box.ymin, &box.xmax, &box.ymax);
    // The whole line width on each side, not half of it.
    box.grow(strokeExtent(this, ctx->ppiX), strokeExtent(this, ctx->ppiY));
    box.store(xmin, ymin, xmax, ymax);
    arrow_bound(ctx, O_SPLINE, this, xmin, ymin, xmax, ymax);
}

// --- arcs and texts ------------------------------------------------------------------

void FigArc::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax, bool,
                       bool exact)
{
    BoundsBox box = BoundsBox::at(point[0].x, point[0].y);
    box.include(point[1].x, point[1].y);
    box.include(point[2].x, point[2].y);
    includeExtremes(this, box);
    if (exact)
        box.grow(strokeExtent(this, ctx->ppiX) / 2, strokeExtent(this, ctx->ppiY) / 2);
    if (sub_type == 1)
        box.include(truncated(center_x), truncated(center_y));
    box.store(xmin, ymin, xmax, ymax);
    if (exact)
        arrow_bound(ctx, O_ARC, this, xmin, ymin, xmax, ymax);
}

void FigText::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                        bool includeDescent, bool)
{
    // The width is taken before the metrics are brought up to date: the first box after a change
    // of zoom still has the width of the old one.
    const int width = textWidth(ctx, this);
    if (ctx->zoom != metricsZoom)
        pf_textwidth(ctx, this, ctx->zoom);
    // The descent moves the box down, it does not enlarge it.
    const int shift = includeDescent
                          ? round2((1200.0f / ctx->ppiY) / ctx->zoom * static_cast<float>(descent))
                          : 0;
    BoundsBox straight;
    straight.ymax = saturated(static_cast<long>(y) + shift);
    straight.ymin = saturated(static_cast<long>(straight.ymax) - ascent);
    straight.xmin = textLeft(this, width);
    straight.xmax = saturated(static_cast<long>(straight.xmin) + width);
    turnedBox(this, straight).store(xmin, ymin, xmax, ymax);
}

// --- arrowheads ------------------------------------------------------------------------

void arrow_bound(CFigContext* ctx, int objType, FigObject* object, int* xmin, int* ymin, int* xmax,
                 int* ymax)
{
    if (!object->forward_arrow && !object->backward_arrow)
        return;
    const int skip = collectHeadStretch(ctx, objType, object);
    if (npoints < 1)
        return;
    ArrowBuffers heads;
    get_arrowpoints(ctx, object, objType, polygon_points, skip, heads.forwardFill,
                    &heads.forwardFillCount, heads.backwardFill, &heads.backwardFillCount,
                    heads.forwardClip, &heads.forwardClipCount, heads.backwardClip,
                    &heads.backwardClipCount);
    BoundsBox box{*xmin, *ymin, *xmax, *ymax};
    if (object->forward_arrow)
        includeHead(ctx, object, farpts, nfpts, box);
    if (object->backward_arrow)
        includeHead(ctx, object, barpts, nbpts, box);
    box.store(xmin, ymin, xmax, ymax);
}

// --- moving the sides out ----------------------------------------------------------------

void extendBounds(int* xmin, int* ymin, int* xmax, int* ymax, int by)
{
    BoundsBox box{*xmin, *ymin, *xmax, *ymax};
    box.grow(by, by);
    box.store(xmin, ymin, xmax, ymax);
}

void extendBounds(long* xmin, long* ymin, long* xmax, long* ymax, long by)
{
    *xmin -= by;
    *ymin -= by;
    *xmax += by;
    *ymax += by;
}

void extendBounds(QRect* rect, long by)
{
    BoundsBox box{rect->left(), rect->top(), rect->right(), rect->bottom()};
    box.grow(by, by);
    rect->setCoords(box.xmin, box.ymin, box.xmax, box.ymax);
}
