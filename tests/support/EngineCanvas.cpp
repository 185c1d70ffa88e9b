#include "EngineCanvas.h"

#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/colorFunctions.h"
#include "render/coords.h"
#include "render/grid.h"
#include "render/u_redraw.h"

#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>

namespace {

constexpr int canvasMargin = 20;   ///< pixels right of and below a figure
constexpr int maximumSide = 10000; ///< pixels, for figures that are absurdly large

int canvasSide(int figureEnd)
{
    return std::clamp(figureEnd, 0, maximumSide) + canvasMargin;
}

} // namespace

EngineTables::EngineTables()
{
    set_colors();
    initializePatternBitmaps();
    loadGridDefinitions();
}

EngineTables::~EngineTables()
{
    destroyGridDefinitions();
    for (QBrush& brush : patternBrushes) {
        brush = QBrush(); // pixmaps must not outlive the application
    }
}

QSize canvasSize(CFigContext* ctx)
{
    int xmin = 0, ymin = 0, xmax = 0, ymax = 0;
    ctx->drawing.getBounds(ctx, &xmin, &ymin, &xmax, &ymax, true, true);
    return {canvasSide(pixelX(ctx, xmax)), canvasSide(pixelY(ctx, ymax))};
}

QImage drawCanvas(CFigContext* ctx, const QSize& size, bool antialiasing)
{
    QImage canvas(size, QImage::Format_ARGB32_Premultiplied);
    QPainter painter;
    if (canvas.isNull() || !painter.begin(&canvas)) {
        return {};
    }
    // What switches antialiasing off for itself goes back to the preference.
    QScopedValueRollback<bool> preference(otherPreferencesData.antialiasing, antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, antialiasing);
    ctx->setPainter(&painter);
    redisplay_viewport(ctx, size.width(), size.height());
    ctx->setPainter(nullptr);
    painter.end();
    return canvas;
}
