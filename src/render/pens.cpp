// Attributes of an object to the pen and the colours it is drawn with.
#include "render/gfx_lowlevel.h"

#include "model/FigContext.h"
#include "render/colorFunctions.h"
#include "render/gfx_math.h"

#include <algorithm>

bool draw_parent_gray = false;

namespace {

constexpr int PURE_SHADE = 20;
constexpr int MAX_PEN_WIDTH = 32767; // Qt refuses wider pens and leaves them one pixel wide

// Dash, gap, dash, gap in pen widths. `unit` is the style value in pen widths; it stays in single
// precision until a factor widens it.
QVector<qreal> dashPattern(int style, float thickness, float unit)
{
    const double dot = 0.1f;
    switch (style) {
    case 1:
        return {unit, unit};
    case 2:
        return {1.0f / thickness, unit};
    case 3:
        return {unit, 0.53 * unit, dot, 0.53 * unit};
    case 4:
        return {unit, 0.48 * unit, dot, 0.333 * unit, dot, 0.48 * unit};
    case 5:
        return {unit, 0.44 * unit, dot, 0.3 * unit, dot, 0.3 * unit, dot, 0.43 * unit};
    default:
        return {};
    }
}

// The pattern goes by the figure's thickness, not by the pen's width: the width already carries
// the zoom, so a dash keeps its size on the page.
void setLineStyle(QPen& pen, int thickness, int style, float styleVal)
{
    if (style == 0) {
        pen.setStyle(Qt::SolidLine);
    } else if (style >= 1 && style <= 5) {
        const float divisor = thickness == 0 ? 1.0f : static_cast<float>(thickness);
        pen.setDashPattern(dashPattern(style, divisor, styleVal / divisor));
    }
}

// A negative width is refused by Qt, which leaves the one pixel of a new pen.
QPen plainPen(CFigContext* ctx, int penColor, int mode, int width)
{
    QPen pen(getQColor(&ctx->userColorShades, penColor, mode, true));
    if (width >= 0)
        pen.setWidth(std::min(width, MAX_PEN_WIDTH));
    return pen;
}

unsigned shadeOf(const QHash<int, unsigned int*>* shades, int color, int shade)
{
    if (shade < 0 || shade >= NUM_SHADES)
        return 0;
    if (color < NUM_STD_COLORS)
        return fill_colors[std::max(color, 0)][shade];
    const unsigned* row = shades ? shades->value(color - NUM_STD_COLORS, nullptr) : nullptr;
    return row ? row[shade] : 0;
}

unsigned inPaintMode(unsigned color, int mode, bool white)
{
    if (mode == PAINT_WHITE)
        return white ? 0xFFFFFF : 0;
    if (mode != PAINT_DIMMED && mode != PAINT_GRAYED)
        return color;
    _HSL hsl = colorrefToHSL(color);
    if (mode == PAINT_GRAYED) {
        hsl.saturation = 0;
        hsl.lightness = 0.5f * hsl.lightness + 0.5f;
    } else {
        // Double constants; only the stored lightness is single again.
        hsl.lightness = static_cast<float>(0.2 * hsl.lightness + 0.8);
    }
    return hslToColorref(hsl);
}

} // namespace

int getThickness(CFigContext* ctx, int thickness, float zoom)
{
    // Single precision, from left to right.
    const int width = round2(zoom * static_cast<float>(thickness) * ctx->ppiY / 80.0f);
    if (width != 0 || thickness < 1)
        return width;
    return ctx->dontHide1ptThickness ? 1 : 0;
}

void setDashAndCapStyle(QPen& pen, int thickness, int style, float styleVal, int cap)
{
    static constexpr Qt::PenCapStyle caps[] = {Qt::FlatCap, Qt::RoundCap, Qt::SquareCap};
    if (cap >= 0 && cap <= 2)
        pen.setCapStyle(caps[cap]);
    setLineStyle(pen, thickness, style, styleVal);
}

void setDashStyle(QPen& pen, int thickness, int style, float styleVal, bool roundCaps)
{
    if (style == 0 || style == 1)
        pen.setCapStyle(Qt::FlatCap);
    else if (style >= 2 && style <= 5)
        pen.setCapStyle(roundCaps ? Qt::RoundCap : Qt::FlatCap);
    setLineStyle(pen, thickness, style, styleVal);
}

void setLineJoin(QPen& pen, int join)
{
    switch (join) {
    case 0:
        pen.setMiterLimit(3.0);
        pen.setJoinStyle(Qt::MiterJoin);
        break;
    case 1:
        pen.setJoinStyle(Qt::RoundJoin);
        break;
    case 2:
        pen.setJoinStyle(Qt::BevelJoin);
        break;
    default:
        break;
    }
}

QPen strokePen(CFigContext* ctx, int penColor, int mode, int width, int thickness, int style,
               float styleVal, int cap, int join)
{
    QPen pen = plainPen(ctx, penColor, mode, width);
    setDashAndCapStyle(pen, thickness, style, styleVal, cap);
    setLineJoin(pen, join);
    return pen;
}

QPen ellipsePen(CFigContext* ctx, FigEllipse* ellipse, int mode, int width)
{
    QPen pen = plainPen(ctx, ellipse->pen_color, mode, width);
    setDashStyle(pen, ellipse->thickness, ellipse->line_style, ellipse->style_val, true);
    return pen;
}

unsigned getColor(QHash<int, unsigned int*>* shades, int color, int mode, bool flag)
{
    return getColor(shades, color == -1 ? 0 : color, PURE_SHADE, mode, flag);
}

unsigned getColor(QHash<int, unsigned int*>* shades, int color, int shade, int mode, bool flag)
{
    // Two greys of the tool, the same in every paint mode.
    if (color == -5)
        return fill_colors[0][8];
    if (color == -4)
        return fill_colors[0][2];
    return inPaintMode(shadeOf(shades, color, shade), mode, flag);
}

QColor getQColor(QHash<int, unsigned int*>* shades, int color, int mode, bool flag)
{
    return colorrefToQColor(getColor(shades, color, mode, flag));
}

QColor getQColor(QHash<int, unsigned int*>* shades, int color, int shade, int mode, bool flag)
{
    return colorrefToQColor(getColor(shades, color, shade, mode, flag));
}

int getPaintMode(CFigContext* ctx, FigObject* object)
{
    const int depth = std::max(object->depth, 0);
    if (!draw_parent_gray && (depth > MAX_DEPTH || ctx->active_layers[depth]))
        return PAINT_NORMAL;
    // A hidden layer still paints grey when a renderer reaches it; the depth loop leaves it out.
    return ctx->layerMode == PAINT_DIMMED ? PAINT_DIMMED : PAINT_GRAYED;
}
