// The grid's lines and the outline of the page. Positions run in double, pixels are their nearest.
#include "render/grid.h"

#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/shell.h"
#include "render/coords.h"
#include "render/gfx_math.h"

#include <QLine>
#include <QPainter>
#include <QVector>

#include <algorithm>
#include <cmath>

namespace {

constexpr double CM_PER_INCH = 2.54;
/// Pixels; a smaller step would never get across the canvas.
constexpr double SMALLEST_SPACING = 0.01;

bool canPaint(const CFigContext* ctx)
{
    return ctx->painter && ctx->painter->isActive();
}

bool isDrawable(double spacing)
{
    return std::isfinite(spacing) && spacing > SMALLEST_SPACING;
}

/// Without a window the canvas is what the painter draws on.
QSize viewportSize(const CFigContext* ctx)
{
    const QPaintDevice* device = ctx->painter->device();
    int width = device->width();
    int height = device->height();
    if (ctx->chFrm)
        shell_viewport_size(ctx->chFrm, &width, &height);
    return QSize(width, height);
}

/// What of the canvas a painter reaches.
QRect seenRect(const QPainter* painter)
{
    return painter->hasClipping()
               ? painter->clipBoundingRect().toAlignedRect()
               : QRect(0, 0, painter->device()->width(), painter->device()->height());
}

/// The lines of one drawing of the grid. Neighbours that fall on the same pixels are kept once:
/// a grid of small steps has no more lines than the canvas has pixels. Lines that pass by what is
/// seen are left out.
class GridLines {
public:
    GridLines(int width, int height, const QRect& seen)
        : m_right(width + 1), m_bottom(height + 1), m_seen(seen.adjusted(-1, -1, 1, 1))
    {
    }

    int right() const { return m_right; }
    int bottom() const { return m_bottom; }
    const QVector<QLine>& lines() const { return m_lines; }

    void addColumns(int shift, double spacing)
    {
        for (double x = spacing - std::fmod(shift, spacing); x <= m_right; x += spacing)
            add(round2(x), 0, round2(x), m_bottom);
    }

    void addRows(int shift, double spacing)
    {
        for (double y = spacing - std::fmod(shift, spacing); y <= m_bottom; y += spacing)
            add(0, round2(y), m_right, round2(y));
    }

    /// Lines across the whole width that end `fall` pixels lower, up to the given left end.
    void addSlanted(double from, double to, double spacing, double fall)
    {
        for (double y = from; y < to; y += spacing)
            add(0, round2(y), m_right, round2(y + fall));
    }

private:
    void add(int x1, int y1, int x2, int y2)
    {
        const QLine line(x1, y1, x2, y2);
        if (isSeen(line) && (m_lines.isEmpty() || m_lines.last() != line))
            m_lines.append(line);
    }

    bool isSeen(const QLine& line) const
    {
        if (line.dx() == 0)
            return line.x1() >= m_seen.left() && line.x1() <= m_seen.right();
        const double slope = static_cast<double>(line.dy()) / line.dx();
        const double first = line.y1() + slope * (m_seen.left() - line.x1());
        const double last = line.y1() + slope * (m_seen.right() - line.x1());
        return std::max(first, last) >= m_seen.top() && std::min(first, last) <= m_seen.bottom();
    }

    int m_right;
    int m_bottom;
    QRect m_seen;
    QVector<QLine> m_lines;
};

/// False where the spacing leaves nothing to draw.
bool addSquareGrid(GridLines* grid, const CFigContext* ctx, double spacingX, double spacingY)
{
    if (!isDrawable(spacingX) || !isDrawable(spacingY))
        return false;
    grid->addColumns(ctx->shiftX, spacingX);
    grid->addRows(ctx->shiftY, spacingY);
    return true;
}

/// The vertical scale serves both axes. The lines that fall to the right start no higher above
/// the canvas than it is high, so they miss the upper right of a canvas much wider than that.
bool addIsoGrid(GridLines* grid, const CFigContext* ctx, double spacing)
{
    const double columns = ISO_ASPECT * spacing;
    if (!isDrawable(spacing) || !isDrawable(columns))
        return false;
    grid->addColumns(ctx->shiftX, columns);
    const double fall = grid->right() * (0.5 * spacing / columns);
    double phase = std::fmod(ctx->shiftX, 2 * columns);
    if (0.5 > 2 * columns + phase)
        phase = 0;
    const double falling = std::fmod(phase * 0.5 * spacing / columns - ctx->shiftY, spacing);
    const double rising = std::fmod(-phase * 0.5 * spacing / columns - ctx->shiftY, spacing);
    const double beyond = std::trunc(grid->bottom() / spacing + 1.0) * spacing;
    grid->addSlanted(falling - beyond, grid->bottom(), spacing, fall);
    grid->addSlanted(rising, grid->bottom() + beyond, spacing, -fall);
    return true;
}

/// Pixels between neighbours at the present zoom.
double spacing(const CFigContext* ctx, const GridDefinition* grid, float ppi)
{
    const double pixelsPerUnit = ctx->metric ? ppi / CM_PER_INCH : ppi;
    return grid->stepSize * pixelsPerUnit * ctx->zoom;
}

bool addLines(GridLines* lines, const CFigContext* ctx, const GridDefinition* grid)
{
    const double spacingY = spacing(ctx, grid, ctx->ppiY);
    return isIsoGrid(ctx->gridIndex)
               ? addIsoGrid(lines, ctx, spacingY)
               : addSquareGrid(lines, ctx, spacing(ctx, grid, ctx->ppiX), spacingY);
}

/// One pixel wide and without antialiasing.
void setThinPen(QPainter* painter, const QColor& color, Qt::PenStyle style)
{
    painter->setPen(QPen(color, 1, style, Qt::FlatCap));
    painter->setBrush(Qt::NoBrush);
    painter->setRenderHint(QPainter::Antialiasing, false);
}

void restoreAntialiasing(QPainter* painter)
{
    painter->setRenderHint(QPainter::Antialiasing, otherPreferencesData.antialiasing);
}

/// Edge of the page after so many centimetres.
int pageEdge(float ppi, float centimetres, float zoom, int shift)
{
    return saturatedInt(static_cast<long long>(round2(ppi / CM_PER_INCH * centimetres * zoom)) -
                        shift);
}

} // namespace

void drawGrid(CFigContext* ctx, int width, int height)
{
    const GridDefinition* grid = activeGrid(ctx);
    if (!grid || !canPaint(ctx))
        return;
    // The global colour: a custom grid's own is kept but not used.
    setThinPen(ctx->painter, gridPreferences.gridColour, static_cast<Qt::PenStyle>(grid->penStyle));
    GridLines lines(width, height, seenRect(ctx->painter));
    if (!addLines(&lines, ctx, grid))
        return; // the antialiasing stays off; who draws next sets it
    ctx->painter->drawLines(lines.lines());
    restoreAntialiasing(ctx->painter);
}

void drawGrid(CFigContext* ctx)
{
    if (!canPaint(ctx))
        return;
    const QSize size = viewportSize(ctx);
    drawGrid(ctx, size.width(), size.height());
}

void drawPageborders(CFigContext* ctx)
{
    if (!ctx->showPageBorders || !canPaint(ctx))
        return;
    float width, height;
    getPagesizes(ctx, &width, &height);
    const int left = saturatedInt(-static_cast<long long>(ctx->shiftX));
    const int top = saturatedInt(-static_cast<long long>(ctx->shiftY));
    const int right = pageEdge(ctx->ppiX, width, ctx->zoom, ctx->shiftX);
    const int bottom = pageEdge(ctx->ppiY, height, ctx->zoom, ctx->shiftY);
    setThinPen(ctx->painter, Qt::black, Qt::DotLine);
    // Without a negative shift the upper left edges are those of the window.
    if (ctx->shiftX < 0)
        ctx->painter->drawLine(left, bottom, left, top);
    if (ctx->shiftY < 0)
        ctx->painter->drawLine(left, top, right, top);
    ctx->painter->drawLine(left, bottom, right, bottom);
    ctx->painter->drawLine(right, bottom, right, top);
    restoreAntialiasing(ctx->painter);
}
