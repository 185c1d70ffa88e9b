// A whole figure drawn small.
#include "render/gfx_lowlevel.h"

#include "model/FigContext.h"
#include "model/w_layers.h"
#include "render/coords.h"
#include "render/gfx_math.h"
#include "render/u_redraw.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace {

// Zoom at which the whole figure fits; ties go to the height.
float previewZoom(CFigContext* ctx, int width, int height)
{
    int xmin = 0, ymin = 0, xmax = 0, ymax = 0;
    ctx->drawing.getBounds(ctx, &xmin, &ymin, &xmax, &ymax, true, true);
    const int w = std::max(round2(scaledX(ctx, round2(double(xmax) - xmin + 1.0))), 1);
    const int h = std::max(round2(scaledY(ctx, round2(double(ymax) - ymin + 1.0))), 1);
    return w > h ? static_cast<float>(width - 1) / static_cast<float>(w)
                 : static_cast<float>(height - 1) / static_cast<float>(h);
}

} // namespace

void createFIGBitmap(CFigContext* ctx, QPixmap* pixmap, int width, int height)
{
    if (!pixmap || pixmap->isNull())
        return;
    reset_layers(ctx);
    reset_depths(ctx);
    clearallcounts(ctx);
    add_depth(ctx, &ctx->drawing.objects);

    const float savedZoom = ctx->zoom;
    ctx->zoom = 1.0f;
    ctx->zoom = previewZoom(ctx, width, height);
    QPainter* const savedPainter = ctx->painter;
    QPainter painter(pixmap);
    ctx->setPainter(&painter);
    ctx->setDontHide1ptThickness(true);
    redisplay_objects(ctx);
    ctx->setDontHide1ptThickness(false);
    ctx->zoom = savedZoom;
    painter.end();
    ctx->setPainter(savedPainter);
}
