#include "render/still_pictures.h"

#include "model/FigContext.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int TILE = 64;
constexpr size_t MOST_LAYERS = 16;
constexpr size_t MOST_BYTES = size_t(128) << 20;
constexpr size_t BYTES_PER_PIXEL = 4;

int tilesAlong(int pixels)
{
    return (pixels + TILE - 1) / TILE;
}

/// The context draws on another image for a while, with the same hints and clipped to a part.
class OtherCanvas {
public:
    OtherCanvas(CFigContext* context, QImage* image, const QRect& part)
        : ctx(context), former(context->painter), painter(image)
    {
        painter.setRenderHints(former->renderHints());
        painter.setClipRect(part);
        ctx->setPainter(&painter);
    }
    OtherCanvas(const OtherCanvas&) = delete;
    OtherCanvas& operator=(const OtherCanvas&) = delete;
    ~OtherCanvas() { ctx->setPainter(former); }

    void makeTransparent(const QRect& part)
    {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(part, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }

private:
    CFigContext* ctx;
    QPainter* former;
    QPainter painter;
};

void eraseUnpainted(QImage* image, const QImage& painted, const QRect& part)
{
    for (int y = part.top(); y <= part.bottom(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image->scanLine(y));
        const auto* mask = reinterpret_cast<const QRgb*>(painted.constScanLine(y));
        for (int x = part.left(); x <= part.right(); ++x)
            if (qAlpha(mask[x]) == 0)
                line[x] = 0;
    }
}

QImage newPicture(const QSize& size)
{
    return QImage(size, QImage::Format_ARGB32_Premultiplied);
}

} // namespace

bool StillPictures::areAffordable(const QSize& canvas, size_t layers)
{
    const size_t pixels = static_cast<size_t>(canvas.width()) * canvas.height();
    return layers <= MOST_LAYERS && layers * pixels * BYTES_PER_PIXEL <= MOST_BYTES;
}

StillPictures::StillPictures(const QSize& canvasSize, size_t layers)
    : canvas(canvasSize), tiles(tilesAlong(canvas.width()), tilesAlong(canvas.height())),
      numLayers(layers), made(static_cast<size_t>(tiles.width()) * tiles.height())
{
}

bool StillPictures::complete(CFigContext* ctx, const QRect& part,
                             const std::function<void(size_t, const QRect&)>& draw)
{
    const QRect missing = missingTiles(tilesOf(part));
    if (missing.isEmpty())
        return true;
    if (!makePictures())
        return false;
    const QRect pixels(missing.topLeft() * TILE, missing.size() * TILE);
    for (size_t layer = 0; layer < numLayers; ++layer) {
        OtherCanvas other(ctx, &pictures[layer], pixels);
        other.makeTransparent(pixels);
        draw(layer, pixels);
    }
    for (int y = missing.top(); y <= missing.bottom(); ++y)
        for (int x = missing.left(); x <= missing.right(); ++x)
            made[static_cast<size_t>(y) * tiles.width() + x] = true;
    return true;
}

void StillPictures::show(QPainter* painter, size_t layer, const QRect& part) const
{
    painter->drawImage(part, pictures[layer], part);
}

void StillPictures::mix(CFigContext* ctx, const QRect& wanted, size_t layers,
                        const std::function<void(size_t)>& drawOver)
{
    const QRect part = wanted & QRect(QPoint(0, 0), canvas);
    if (part.isEmpty())
        return;
    {
        OtherCanvas other(ctx, &painted, part);
        other.makeTransparent(part);
        for (size_t layer = 0; layer < layers; ++layer)
            drawOver(layer);
    }
    {
        OtherCanvas other(ctx, &mixed, part);
        for (size_t layer = 0; layer < layers; ++layer) {
            show(ctx->painter, layer, part);
            drawOver(layer);
        }
    }
    eraseUnpainted(&mixed, painted, part);
    ctx->painter->drawImage(part, mixed, part);
}

QRect StillPictures::tilesOf(const QRect& part) const
{
    const QRect seen = part & QRect(QPoint(0, 0), canvas);
    if (seen.isEmpty())
        return QRect();
    return QRect(QPoint(seen.left() / TILE, seen.top() / TILE),
                 QPoint(seen.right() / TILE, seen.bottom() / TILE));
}

/// The smallest rectangle that holds all of them; what else it holds is drawn once more.
QRect StillPictures::missingTiles(const QRect& wanted) const
{
    QRect missing;
    for (int y = wanted.top(); y <= wanted.bottom(); ++y)
        for (int x = wanted.left(); x <= wanted.right(); ++x)
            if (!made[static_cast<size_t>(y) * tiles.width() + x])
                missing |= QRect(x, y, 1, 1);
    return missing;
}

bool StillPictures::makePictures()
{
    if (painted.isNull()) {
        painted = newPicture(canvas);
        mixed = newPicture(canvas);
    }
    while (pictures.size() < numLayers)
        pictures.push_back(newPicture(canvas));
    return !painted.isNull() && !mixed.isNull() &&
           std::none_of(pictures.begin(), pictures.end(),
                        [](const QImage& picture) { return picture.isNull(); });
}
