// Boxes of window furniture and the rubber-band paint modes.
#include "render/gfx_lowlevel.h"

#include "model/FigContext.h"
#include "render/coords.h"
#include "render/gfx_math.h"

#include <QPainter>

#include <cmath>

namespace {

// Keeps the first corner and takes only the sizes from the second.
QRect rectFromCorner(int x1, int y1, int x2, int y2)
{
    QRect rect;
    rect.setCoords(x1, y1, round2(x1 + std::abs(double(x2) - x1)),
                   round2(y1 + std::abs(double(y2) - y1)));
    return rect;
}

// Black, one pixel. On black the exclusive-or of the inverted source inverts what it touches.
void setFeedbackPen(QPainter* painter, int op, QPen pen)
{
    pen.setWidth(1);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    painter->setPen(pen);
    painter->setCompositionMode(op == 1 || op == 4 ? QPainter::RasterOp_NotSourceXorDestination
                                                   : QPainter::CompositionMode_SourceOver);
}

} // namespace

void pw_rectangle(QPainter* painter, int x1, int y1, int x2, int y2, QColor color)
{
    QPen pen(color);
    pen.setWidth(1);
    setDashAndCapStyle(pen, 1, 0, 1.0f, 0);
    const QRect rect = rectFromCorner(x1, y1, x2, y2);
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    painter->drawRects(&rect, 1);
}

void pw_rectangle_ds(CFigContext* ctx, int x1, int y1, int x2, int y2, QColor color)
{
    if (ctx->painter)
        pw_rectangle(ctx->painter, pixelX(ctx, x1), pixelY(ctx, y1), pixelX(ctx, x2),
                     pixelY(ctx, y2), color);
}

void RectFill(QPainter* painter, int x1, int y1, int x2, int y2, QColor color)
{
    painter->fillRect(rectFromCorner(x1, y1, x2, y2), color);
}

void elasticMode(QPainter* painter, int op)
{
    setFeedbackPen(painter, op, QPen(Qt::black));
}

void rubberMode(QPainter* painter, int op)
{
    setFeedbackPen(painter, op, QPen(Qt::black, 1, Qt::DashDotLine));
}

void dottedMode(QPainter* painter, int op)
{
    QPen pen(Qt::black);
    pen.setDashPattern({3, 3});
    setFeedbackPen(painter, op, pen);
}

void pw_vector(CFigContext* ctx, int x1, int y1, int x2, int y2, int lineMode, int op)
{
    if (!ctx->painter)
        return;
    if (lineMode == 0)
        elasticMode(ctx->painter, op);
    else if (lineMode == 11)
        rubberMode(ctx->painter, op);
    else if (lineMode == 2)
        dottedMode(ctx->painter, op);
    const QLine line(pixelX(ctx, x1), pixelY(ctx, y1), pixelX(ctx, x2), pixelY(ctx, y2));
    ctx->painter->setBrush(Qt::NoBrush);
    ctx->painter->drawLines(&line, 1);
    ctx->painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
}
