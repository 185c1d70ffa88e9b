// A generous box of an object from one pass over its points. It holds all that drawing paints at
// the present zoom and, if asked for, the exact bounds, so what it says no to needs neither.
#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/Font.h"
#include "render/gfx_math.h"
#include "render/u_bound.h"
#include "render/u_bound_box.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace {

/// Further out than this, in pixels, mapped coordinates may saturate.
constexpr double farthestPixel = 5e8;
constexpr double largestArrowThickness = 1e6;
constexpr double roundingPixels = 8;
constexpr double roundingUnits = 8;
constexpr double roundingPaint = 2; ///< pixels, where only the painted ones count
constexpr double singlePrecision = 1e-6;
constexpr double longestTip = 3.5;      ///< the greatest tipmv of the arrow shapes
constexpr double joinLimitBounds = 5.0; ///< widths that a miter tip may lie off in bounds
constexpr double joinLimitPen = 3.0;    ///< the same for the pen

/// Figure units.
struct ReachBox {
    double xmin, ymin, xmax, ymax;

    void include(double x, double y)
    {
        xmin = std::min(xmin, x);
        ymin = std::min(ymin, y);
        xmax = std::max(xmax, x);
        ymax = std::max(ymax, y);
    }
    void grow(double x, double y)
    {
        xmin -= x;
        ymin -= y;
        xmax += x;
        ymax += y;
    }
    double farthest() const
    {
        return std::max(std::max(std::abs(xmin), std::abs(xmax)),
                        std::max(std::abs(ymin), std::abs(ymax)));
    }
};

/// What a box has to hold.
enum class Holds { BoundsAndPaint, Paint };

/// Sizes that all objects of a view share; where the axes differ, the one that reaches further.
struct View {
    Holds holds;
    double zoom;
    double unitsPerPixel;
    double unitsPerWidth;  ///< figure units of a line one display unit wide
    double pixelsPerWidth; ///< pixels of the same
    double headScale;      ///< pixels per unit of an arrowhead, which knows but one axis
    double anisotropy;     ///< ratio of the two axes, at least 1

    View(const CFigContext* ctx, Holds wanted) : holds(wanted)
    {
        const double finer = std::max(ctx->ppiX, ctx->ppiY);
        const double coarser = std::min(ctx->ppiX, ctx->ppiY);
        zoom = ctx->zoom;
        anisotropy = finer / coarser;
        unitsPerPixel = 1200.0 / (coarser * zoom);
        unitsPerWidth = std::max(1200.0 / coarser, 15.0 * anisotropy);
        pixelsPerWidth = zoom * finer / 80.0;
        headScale = zoom * ctx->ppiX / 1200.0;
    }
};

/// How far a head reaches from its end of the line, in pixels. False when not certain.
bool headReach(const View& view, const FigArrow* arrow, double* reach)
{
    if (!arrow)
        return true;
    const double thickness = std::abs(static_cast<double>(arrow->thickness));
    if (!(thickness <= largestArrowThickness))
        return false;
    const double height = view.headScale * std::abs(static_cast<double>(arrow->ht)) + 1;
    const double width = view.headScale * std::abs(static_cast<double>(arrow->wd)) + 1;
    // A tip is pulled back by thickness / (2 sin(atan(width / (zoom tipmv height)))).
    const double pull =
        thickness / 2 * (1 + longestTip * view.zoom * height / std::max(1.0, width - 2));
    const double halfHeadShift = view.zoom / view.headScale / 2 + 1;
    const double stroke = joinLimitPen * (view.pixelsPerWidth * (thickness + 1) + 1);
    *reach = std::max(*reach, pull + 3 * height + width + halfHeadShift + stroke);
    return true;
}

/// Room around an outline for its stroke and its heads.
bool growByStroke(const View& view, const FigObject* object, double widths, ReachBox& box)
{
    const double thickness = std::abs(static_cast<double>(object->thickness));
    double pixels = widths;
    if (object->forward_arrow || object->backward_arrow) {
        double reach = 0;
        if (!headReach(view, object->forward_arrow, &reach) ||
            !headReach(view, object->backward_arrow, &reach))
            return false;
        pixels += reach + joinLimitBounds * thickness;
    }
    double units = box.farthest() * singlePrecision;
    if (view.holds == Holds::Paint) {
        pixels += roundingPaint + thickness * view.pixelsPerWidth * widths;
    } else {
        pixels += roundingPixels;
        units += thickness * view.unitsPerWidth * widths + roundingUnits;
    }
    units += pixels * view.unitsPerPixel;
    box.grow(units, units);
    return true;
}

/// In line widths, how far the tips of a line's corners lie off.
double cornerReach(const View& view, const FigLine* line)
{
    if (line->join_style != 0)
        return 1;
    if (view.holds == Holds::BoundsAndPaint)
        return joinLimitBounds;
    const bool isSegment = !line->points->next || !line->points->next->next;
    return isSegment ? 1 : joinLimitPen;
}

bool pointsBox(const FigPoint* point, ReachBox& box)
{
    if (!point)
        return false;
    box = {double(point->x), double(point->y), double(point->x), double(point->y)};
    for (point = point->next; point; point = point->next)
        box.include(point->x, point->y);
    return true;
}

bool lineBox(const View& view, const FigLine* line, ReachBox& box)
{
    if (!pointsBox(line->points, box))
        return false;
    if (line->sub_type == T_ARCBOX) {
        // Its corners are arcs of that radius, which may run a full turn.
        const double radius = 2 * std::abs(static_cast<double>(line->radius)) * view.unitsPerWidth *
                              view.anisotropy * view.anisotropy;
        box.grow(radius, radius);
    }
    return growByStroke(view, line, cornerReach(view, line), box);
}

bool splineBox(const View& view, const FigSpline* spline, ReachBox& box)
{
    if (!pointsBox(spline->points, box))
        return false;
    bool leavesHull = false;
    for (const FigShapeFactor* factor = spline->sfactors; factor; factor = factor->next) {
        if (!(factor->s >= -1 && factor->s <= 1))
            return false;
        leavesHull = leavesHull || factor->s < 0;
    }
    // Within those factors the weights outside 0 to 1 stay well below a half.
    if (leavesHull)
        box.grow((box.xmax - box.xmin) / 2, (box.ymax - box.ymin) / 2);
    return growByStroke(view, spline, 1, box);
}

bool ellipseBox(const CFigContext* ctx, const View& view, const FigEllipse* ellipse, ReachBox& box)
{
    const double cx = ellipse->center.x, cy = ellipse->center.y;
    double rx = std::abs(static_cast<double>(ellipse->radiuses.x));
    double ry = std::abs(static_cast<double>(ellipse->radiuses.y));
    if (ellipse->angle != 0.0f)
        rx = ry = std::max(rx, ry) * view.anisotropy;
    box = {cx - rx, cy - ry, cx + rx, cy + ry};
    // The raster engine paints flat ellipses up to a fifth too wide.
    box.grow(std::max(rx, ry) / 4, std::max(rx, ry) / 4);
    if (ellipse->angle != 0.0f && view.holds == Holds::BoundsAndPaint) {
        box.include(ellipse->start.x, ellipse->start.y);
        box.include(ellipse->end.x, ellipse->end.y);
        // The walk over the rows starts with limits of a hundred thousand pixels.
        const double limitX = 100000.0 * 1200.0 / ctx->ppiX;
        const double limitY = 100000.0 * 1200.0 / ctx->ppiY;
        box.include(std::min(box.xmin, limitX), std::min(box.ymin, limitY));
        box.include(std::max(box.xmax, -limitX), std::max(box.ymax, -limitY));
    }
    return growByStroke(view, ellipse, 1, box);
}

/// The full circle: a short arc is often drawn all around.
bool arcBox(const View& view, const FigArc* arc, ReachBox& box)
{
    const double cx = arc->center_x, cy = arc->center_y;
    const double radius =
        std::hypot(arc->point[0].x - cx, arc->point[0].y - cy) * view.anisotropy * view.anisotropy;
    if (!std::isfinite(radius))
        return false;
    box = {cx - radius, cy - radius, cx + radius, cy + radius};
    for (const FigPoint& point : arc->point)
        box.include(point.x, point.y);
    box.grow(radius / 100, radius / 100);
    return growByStroke(view, arc, 1, box);
}

/// A glyph may hang over its metrics, and marks may pile up: an em for each character. Plain Latin
/// letters do not leave it by more than one.
double glyphOverhang(const View& view, const FigText* text)
{
    const double em = 2 * std::abs(static_cast<double>(text->size)) * 1200.0 / 72 * view.anisotropy;
    if (view.holds == Holds::Paint && isPlainLatin(text->cstring))
        return em / 2;
    return em * (text->cstring.length() + 2);
}

/// Metrics of another zoom are not certain, and whoever asks for the exact bounds or draws the
/// text brings them up to date; an image made by TeX may have any size.
bool textBox(const CFigContext* ctx, const View& view, const FigText* text, ReachBox& box)
{
    if (text->metricsZoom != ctx->zoom || text->length < 0)
        return false;
    if (texViewPreferencesData.renderSpecialText &&
        ((text->flags & 2) || !text->imagesNormal.isEmpty()))
        return false;
    const double x = text->x, y = text->y;
    const double width = std::abs(static_cast<double>(text->length));
    const double height = std::abs(static_cast<double>(text->ascent)) +
                          std::abs(static_cast<double>(text->descent)) * view.unitsPerPixel;
    if (text->angle == 0.0f)
        box = {x - (text->sub_type == 0 ? 0 : width), y - height,
               x + (text->sub_type == 2 ? 0 : width), y + height};
    else
        box = {x - width - height, y - width - height, x + width + height, y + width + height};
    const double overhang = glyphOverhang(view, text);
    box.grow(overhang, overhang);
    return growByStroke(view, text, 0, box);
}

bool reachOf(CFigContext* ctx, const View& view, FigObject* object, ReachBox& box);

bool compoundBox(CFigContext* ctx, const View& view, const FigCompound* compound, ReachBox& box)
{
    box = {0, 0, 0, 0};
    bool empty = true;
    for (FigObject* member : qAsConst(*compound->objects)) {
        ReachBox part;
        if (!reachOf(ctx, view, member, part))
            return false;
        if (empty)
            box = part;
        box.include(part.xmin, part.ymin);
        box.include(part.xmax, part.ymax);
        empty = false;
    }
    return true;
}

/// False when nothing certain can be said.
bool reachOf(CFigContext* ctx, const View& view, FigObject* object, ReachBox& box)
{
    switch (object->type) {
    case O_ELLIPSE:
        return ellipseBox(ctx, view, static_cast<FigEllipse*>(object), box);
    case O_POLYLINE:
        return lineBox(view, static_cast<FigLine*>(object), box);
    case O_SPLINE:
        return splineBox(view, static_cast<FigSpline*>(object), box);
    case O_TEXT:
        return textBox(ctx, view, static_cast<FigText*>(object), box);
    case O_ARC:
        return arcBox(view, static_cast<FigArc*>(object), box);
    case O_COMPOUND:
        return compoundBox(ctx, view, static_cast<FigCompound*>(object), box);
    default:
        return false;
    }
}

/// Whether a side lies beyond the other box. Sides saturate as exact bounds do; a comparison with
/// something that is no number does not reject.
bool apart(double low, double high, double otherLow, double otherHigh)
{
    return std::min<double>(low, INT_MAX) > otherHigh || std::max<double>(high, INT_MIN) < otherLow;
}

/// Where mapped coordinates cannot saturate.
bool certainReach(CFigContext* ctx, Holds wanted, FigObject* object, ReachBox& box)
{
    const View view(ctx, wanted);
    return reachOf(ctx, view, object, box) && box.farthest() < farthestPixel * view.unitsPerPixel;
}

bool roundedReach(CFigContext* ctx, Holds wanted, FigObject* object, QRect* reach)
{
    ReachBox box;
    if (!certainReach(ctx, wanted, object, box))
        return false;
    reach->setCoords(truncated(std::floor(box.xmin)), truncated(std::floor(box.ymin)),
                     truncated(std::ceil(box.xmax)), truncated(std::ceil(box.ymax)));
    return true;
}

} // namespace

bool mayTouchBox(CFigContext* ctx, FigObject* object, long x1, long y1, long x2, long y2)
{
    ReachBox box;
    if (!certainReach(ctx, Holds::BoundsAndPaint, object, box))
        return true;
    // The margins that check_overlap gives to either box.
    const double marginX = 2.0 * round2(4.0f * (1200.0f / ctx->ppiX));
    const double marginY = 2.0 * round2(4.0f * (1200.0f / ctx->ppiY));
    return !apart(box.xmin, box.xmax, std::min(x1, x2) - marginX, std::max(x1, x2) + marginX) &&
           !apart(box.ymin, box.ymax, std::min(y1, y2) - marginY, std::max(y1, y2) + marginY);
}

bool reachOfObject(CFigContext* ctx, FigObject* object, QRect* reach)
{
    return roundedReach(ctx, Holds::BoundsAndPaint, object, reach);
}

bool reachOfPaint(CFigContext* ctx, FigObject* object, QRect* reach)
{
    return roundedReach(ctx, Holds::Paint, object, reach);
}
