#include "render/gfx_lowlevel.h"

#include "model/FigContext.h"
#include "render/colorFunctions.h"
#include "render/coords.h"
#include "render/gfx_math.h"
#include "render/u_draw.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int NO_FILL = -1;
constexpr int PURE_SHADE = 20;
constexpr int FIRST_PATTERN = 41;
constexpr double FINEST_PERIOD_IN_PIXELS = 0.25;
constexpr double FINEST_PERIOD_IN_WIDTHS = 0.005;
constexpr int WIDEST_DASHED_PEN = 16384;

// Saturates; exact for ints, which a double holds.
int sum(int a, double b)
{
    return round2(a + b);
}

QRect rectOfSize(int left, int top, int width, int height)
{
    QRect rect;
    rect.setCoords(left, top, sum(left, width - 1.0), sum(top, height - 1.0));
    return rect;
}

// Solid fill, then for a pattern the same shape again with the pattern in the pen colour.
// A fill style above the patterns gets the solid pass alone.
template <class Draw>
void fillShape(CFigContext* ctx, int penColor, int fillColor, int fillStyle, int mode, Draw draw)
{
    QHash<int, unsigned int*>* shades = &ctx->userColorShades;
    const int shade = fillStyle < FIRST_PATTERN ? fillStyle : PURE_SHADE;
    ctx->painter->setPen(Qt::NoPen);
    ctx->painter->setBrush(getQColor(shades, fillColor == -1 ? 0 : fillColor, shade, mode, true));
    draw();
    if (fillStyle < FIRST_PATTERN || fillStyle >= FIRST_PATTERN + NUM_PATTERNS)
        return;
    QBrush& pattern = patternBrushes[fillStyle - FIRST_PATTERN];
    pattern.setColor(getQColor(shades, penColor, mode, true));
    ctx->painter->setBackgroundMode(Qt::TransparentMode);
    ctx->painter->setBrush(pattern);
    draw();
}

// Length of a dash pattern in pen widths. Qt takes negative entries as 0.
double dashPeriod(const QPen& pen)
{
    double period = 0.0;
    for (qreal entry : pen.dashPattern())
        period += std::max(entry, 0.0);
    return period;
}

// A pattern much finer than a pixel or than its own line cannot be seen, but a painter is busy
// with it for minutes, as with a pen far wider than any canvas; with a length that is no finite
// number it never ends. They are drawn solid.
bool isPaintable(double period, double width)
{
    return period == 0.0 ||
           (std::isfinite(period) && width <= WIDEST_DASHED_PEN &&
            period >= FINEST_PERIOD_IN_WIDTHS && period * width >= FINEST_PERIOD_IN_PIXELS);
}

void setOutline(QPainter* painter, const QPen& pen)
{
    painter->setBrush(Qt::NoBrush);
    if (pen.style() == Qt::SolidLine || isPaintable(dashPeriod(pen), std::max(pen.widthF(), 1.0))) {
        painter->setPen(pen);
    } else {
        QPen solid = pen;
        solid.setStyle(Qt::SolidLine);
        painter->setPen(solid);
    }
}

void strokePointList(CFigContext* ctx, const QPen& pen, const QPoint* pts, int n)
{
    if (!ctx->painter)
        return;
    setOutline(ctx->painter, pen);
    ctx->painter->drawPolyline(pts, n);
}

// Rectangle of an ellipse about the origin. Its four values are rounded separately, which can
// make it one pixel wider on one side. Doubling and negating are exact in floating point, so
// they may follow the mapping without changing it.
QRect centredRect(CFigContext* ctx, FigEllipse* ellipse)
{
    const float radiusX = scaledX(ctx, ellipse->radiuses.x);
    const float radiusY = scaledY(ctx, ellipse->radiuses.y);
    return rectOfSize(round2(-radiusX), round2(-radiusY), round2(2.0f * radiusX),
                      round2(2.0f * radiusY));
}

QRect scaledRect(CFigContext* ctx, FigEllipse* ellipse)
{
    QRect rect = centredRect(ctx, ellipse);
    const int left = sum(ellipse->center.x, -1.0 * ellipse->radiuses.x);
    const int top = sum(ellipse->center.y, -1.0 * ellipse->radiuses.y);
    const double dx = round2(scaledX(ctx, left)) - double(rect.left());
    const double dy = round2(scaledY(ctx, top)) - double(rect.top());
    rect.setCoords(sum(rect.left(), dx), sum(rect.top(), dy), sum(rect.right(), dx),
                   sum(rect.bottom(), dy));
    return rect;
}

void fillEllipseRect(CFigContext* ctx, FigEllipse* ellipse, int mode, const QRect& rect)
{
    fillShape(ctx, ellipse->pen_color, ellipse->fill_color, ellipse->fill_style, mode,
              [&] { ctx->painter->drawEllipse(rect); });
}

QRect lineBox(FigLine* line)
{
    QRect box;
    box.setCoords(line->points->x, line->points->y, line->points->x, line->points->y);
    for (FigPoint* point = line->points->next; point; point = point->next)
        box.setCoords(std::min(box.left(), point->x), std::min(box.top(), point->y),
                      std::max(box.right(), point->x), std::max(box.bottom(), point->y));
    return box;
}

} // namespace

void clear_canvas(CFigContext* ctx, QColor& color, int x, int y, int w, int h)
{
    if (ctx->painter)
        ctx->painter->fillRect(x, y, w, h, color);
}

// --- fills -------------------------------------------------------------------

void fillPolygon(CFigContext* ctx, int penColor, int fillColor, int fillStyle, int mode,
                 QPoint* pts, long n)
{
    if (!ctx->painter)
        return;
    fillShape(ctx, penColor, fillColor, fillStyle, mode,
              [&] { ctx->painter->drawPolygon(pts, static_cast<int>(n), Qt::OddEvenFill); });
}

void fillPolygon(CFigContext* ctx, FigObject* object, int mode, QPoint* pts, long n)
{
    fillPolygon(ctx, object->pen_color, object->fill_color, object->fill_style, mode, pts, n);
}

void fillEllipse(CFigContext* ctx, FigEllipse* ellipse, int mode, bool centered)
{
    if (ctx->painter)
        fillEllipseRect(ctx, ellipse, mode,
                        centered ? centredRect(ctx, ellipse) : scaledRect(ctx, ellipse));
}

// --- lines and boxes ---------------------------------------------------------

void pw_polygon(CFigContext* ctx, FigLine* line, int mode)
{
    if (!initPointListFromLine(ctx, line))
        return;
    pw_polygon(ctx, polygon_points, static_cast<int>(npoints), mode, line->thickness,
               line->line_style, line->style_val, line->join_style, line->cap_style,
               line->fill_style, line->pen_color, line->fill_color, isClosed(line));
}

// Always a polyline: a closed shape is closed because its list ends on its first point.
void pw_polygon(CFigContext* ctx, QPoint* pts, int n, int mode, int thickness, int style,
                float styleVal, int join, int cap, int fill, int penColor, int fillColor,
                bool /*closed*/)
{
    if (fill != NO_FILL)
        fillPolygon(ctx, penColor, fillColor, fill, mode, pts, n);
    const int width = getThickness(ctx, thickness, ctx->zoom);
    if (width == 0)
        return;
    strokePointList(
        ctx, strokePen(ctx, penColor, mode, width, thickness, style, styleVal, cap, join), pts, n);
}

void pw_dot(CFigContext* ctx, FigLine* line, int mode)
{
    const int width = getThickness(ctx, line->thickness, ctx->zoom);
    if (width == 0 || !line->points || !ctx->painter)
        return;
    const QPoint centre(pixelX(ctx, line->points->x), pixelY(ctx, line->points->y));
    const bool round = line->cap_style == 1;
    const QPen pen =
        strokePen(ctx, line->pen_color, mode, round ? 1 : width, line->thickness, 0, 0.0f, -1, -1);
    ctx->painter->setPen(pen);
    if (round) {
        ctx->painter->setBrush(pen.color());
        ctx->painter->drawEllipse(
            rectOfSize(sum(centre.x(), -(width / 2)), sum(centre.y(), -(width / 2)), width, width));
    } else {
        ctx->painter->setBrush(Qt::NoBrush);
        ctx->painter->drawPoints(&centre, 1);
    }
}

void pw_picbox(CFigContext* ctx, FigLine* line, int mode)
{
    if (initPointListFromLine(ctx, line))
        strokePointList(ctx, strokePen(ctx, line->pen_color, mode, 1, 1, 0, 1.0f, 0, -1),
                        polygon_points, static_cast<int>(npoints));
}

void calculate_arcbox(CFigContext* ctx, int xmin, int ymin, int xmax, int ymax, int r)
{
    // Corners are walked with q for both half axes, not with r; single precision.
    const int q = round2(std::sqrt(static_cast<float>(2.0 * r * r)));
    const int left = sum(xmin, r), right = sum(xmax, -1.0 * r);
    const int top = sum(ymin, r), bottom = sum(ymax, -1.0 * r);
    const int minusR = sum(0, -1.0 * r);
    init_pointlist();
    add_point_to_list_scale(ctx, xmin, bottom);
    curve(ctx, minusR, 0, 0, r, false, 0, q, q, left, top, true);
    add_point_to_list_scale(ctx, right, ymin);
    curve(ctx, 0, r, r, 0, false, 0, q, q, right, top, true);
    add_point_to_list_scale(ctx, xmax, bottom);
    curve(ctx, r, 0, 0, minusR, false, 0, q, q, right, bottom, true);
    add_point_to_list_scale(ctx, left, ymax);
    curve(ctx, 0, minusR, minusR, 0, false, 0, q, q, left, bottom, true);
}

bool initPointListFromArcbox(CFigContext* ctx, FigLine* line)
{
    init_pointlist();
    if (!line->points)
        return false;
    const QRect box = lineBox(line);
    // The radius follows the horizontal pixels per inch, not a fixed 15 units.
    const int radius = round2(static_cast<float>(line->radius) * (1200.0f / ctx->ppiX));
    calculate_arcbox(ctx, box.left(), box.top(), box.right(), box.bottom(), radius);
    return true;
}

void draw_arcbox(CFigContext* ctx, FigLine* line, int mode)
{
    if (!initPointListFromArcbox(ctx, line))
        return;
    if (line->fill_style != NO_FILL)
        fillPolygon(ctx, line, mode, polygon_points, npoints);
    // Drawn even at width 0: a cosmetic pen.
    const int width = getThickness(ctx, line->thickness, ctx->zoom);
    strokePointList(ctx,
                    strokePen(ctx, line->pen_color, mode, width, line->thickness, line->line_style,
                              line->style_val, line->cap_style, -1),
                    polygon_points, static_cast<int>(npoints));
}

// --- splines and ellipses ----------------------------------------------------

void pw_spline(CFigContext* ctx, FigSpline* spline, int mode)
{
    if (npoints == 0)
        return;
    if (spline->fill_style != NO_FILL)
        fillPolygon(ctx, spline, mode, polygon_points, npoints);
    const int width = getThickness(ctx, spline->thickness, ctx->zoom);
    if (width == 0)
        return;
    // An open spline whose first two points share one coordinate starts at the second.
    const bool open = (spline->sub_type & 1) == 0;
    if (open && npoints > 2 &&
        (polygon_points[0].x() == polygon_points[1].x() ||
         polygon_points[0].y() == polygon_points[1].y()))
        polygon_points[0] = polygon_points[1];
    strokePointList(ctx,
                    strokePen(ctx, spline->pen_color, mode, width, spline->thickness,
                              spline->line_style, spline->style_val, spline->cap_style, -1),
                    polygon_points, static_cast<int>(npoints));
}

void pw_ellipse(CFigContext* ctx, FigEllipse* ellipse, int mode)
{
    if (!ctx->painter)
        return;
    QPainter* painter = ctx->painter;
    painter->translate(pixelX(ctx, ellipse->center.x), pixelY(ctx, ellipse->center.y));
    // Whole degrees on screen. Turning by nothing would set up the matrix once more.
    if (const int degrees = round2(-ellipse->angle * 180.0 / M_PI))
        painter->rotate(degrees);
    const QRect rect = centredRect(ctx, ellipse);
    if (ellipse->fill_style != NO_FILL)
        fillEllipseRect(ctx, ellipse, mode, rect);
    const int width = getThickness(ctx, ellipse->thickness, ctx->zoom);
    // A negative thickness gives lines an outline of one pixel, but ellipses and arcs none.
    if (width > 0) {
        setOutline(painter, ellipsePen(ctx, ellipse, mode, width));
        painter->drawEllipse(rect);
    }
    painter->resetTransform();
}
