#include "primitives.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPolygon>
#include <QVector>

#include <vector>

namespace {

using Call = std::function<void(QPainter*)>;

template <class Polygon, class Point> Polygon polygonOf(const Point* corners, int count)
{
    Polygon polygon(count);
    std::copy(corners, corners + count, polygon.begin());
    return polygon;
}

} // namespace

/// Keeps each call as one that sets only the state that has changed, as the drawing did.
class PrimitiveRecording::Engine : public QPaintEngine {
public:
    Engine() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& now) override
    {
        keepTransform(now); // before the clip, which is given in its coordinates
        keepClip(now);
        keepTools(now);
        keepModes(now);
    }

    void drawPolygon(const QPoint* corners, int count, PolygonDrawMode mode) override
    {
        keepPolygon(polygonOf<QPolygon>(corners, count), mode);
    }
    void drawPolygon(const QPointF* corners, int count, PolygonDrawMode mode) override
    {
        keepPolygon(polygonOf<QPolygonF>(corners, count), mode);
    }
    void drawRects(const QRect* first, int count) override
    {
        const QVector<QRect> rects(first, first + count);
        draw([rects](QPainter* painter) { painter->drawRects(rects); });
    }
    void drawLines(const QLine* first, int count) override
    {
        const QVector<QLine> lines(first, first + count);
        draw([lines](QPainter* painter) { painter->drawLines(lines); });
    }
    void drawPoints(const QPoint* first, int count) override
    {
        const auto points = polygonOf<QPolygon>(first, count);
        draw([points](QPainter* painter) { painter->drawPoints(points); });
    }
    void drawEllipse(const QRect& rect) override
    {
        draw([rect](QPainter* painter) { painter->drawEllipse(rect); });
    }
    void drawPath(const QPainterPath& path) override
    {
        draw([path](QPainter* painter) { painter->drawPath(path); });
    }
    void drawTextItem(const QPointF& position, const QTextItem& item) override
    {
        const QString text = item.text();
        draw([position, text](QPainter* painter) { painter->drawText(position, text); });
    }
    void drawPixmap(const QRectF& target, const QPixmap& pixmap, const QRectF& source) override
    {
        draw([=](QPainter* painter) { painter->drawPixmap(target, pixmap, source); });
    }

    std::vector<Call> calls;
    long drawingCalls = 0;

private:
    void keep(bool changed, Call call)
    {
        if (changed) {
            calls.push_back(std::move(call));
        }
    }

    void draw(Call call)
    {
        ++drawingCalls;
        keep(true, std::move(call));
    }

    template <class Polygon> void keepPolygon(const Polygon& polygon, PolygonDrawMode mode)
    {
        if (mode == PolylineMode) {
            draw([polygon](QPainter* painter) { painter->drawPolyline(polygon); });
        } else {
            const Qt::FillRule rule = mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill;
            draw([polygon, rule](QPainter* painter) { painter->drawPolygon(polygon, rule); });
        }
    }

    /// A clip that is switched off is not set first, and a rectangle goes in as one.
    void keepClip(const QPaintEngineState& now)
    {
        const QRegion region = now.clipRegion();
        const Qt::ClipOperation operation = now.clipOperation();
        const bool changed = now.state() & (DirtyClipRegion | DirtyClipEnabled);
        const bool clips = now.isClipEnabled() && operation != Qt::NoClip;
        const QRect rect = region.boundingRect();
        keep(changed && !clips, [](QPainter* painter) { painter->setClipping(false); });
        keep(changed && clips && region.rectCount() == 1,
             [rect, operation](QPainter* painter) { painter->setClipRect(rect, operation); });
        keep(changed && clips && region.rectCount() != 1,
             [region, operation](QPainter* painter) { painter->setClipRegion(region, operation); });
    }

    void keepTransform(const QPaintEngineState& now)
    {
        const QTransform transform = now.transform();
        keep(now.state() & DirtyTransform,
             [transform](QPainter* painter) { painter->setTransform(transform); });
    }

    void keepTools(const QPaintEngineState& now)
    {
        const QPen pen = now.pen();
        const QBrush brush = now.brush();
        const QFont font = now.font();
        keep(now.state() & DirtyPen, [pen](QPainter* painter) { painter->setPen(pen); });
        keep(now.state() & DirtyBrush, [brush](QPainter* painter) { painter->setBrush(brush); });
        keep(now.state() & DirtyFont, [font](QPainter* painter) { painter->setFont(font); });
    }

    void keepModes(const QPaintEngineState& now)
    {
        const QPointF origin = now.brushOrigin();
        const Qt::BGMode background = now.backgroundMode();
        const bool smooth = now.renderHints() & QPainter::Antialiasing;
        const QPainter::CompositionMode composition = now.compositionMode();
        keep(now.state() & DirtyBrushOrigin,
             [origin](QPainter* painter) { painter->setBrushOrigin(origin); });
        keep(now.state() & DirtyBackgroundMode,
             [background](QPainter* painter) { painter->setBackgroundMode(background); });
        keep(now.state() & DirtyHints, [smooth](QPainter* painter) {
            painter->setRenderHint(QPainter::Antialiasing, smooth);
        });
        keep(now.state() & DirtyCompositionMode,
             [composition](QPainter* painter) { painter->setCompositionMode(composition); });
    }
};

class PrimitiveRecording::Device : public QPaintDevice {
public:
    explicit Device(const QSize& canvas) : size(canvas) {}
    QPaintEngine* paintEngine() const override { return &engine; }
    mutable Engine engine;

protected:
    int metric(PaintDeviceMetric which) const override
    {
        const bool isResolution = which == PdmDpiX || which == PdmDpiY ||
                                  which == PdmPhysicalDpiX || which == PdmPhysicalDpiY;
        return which == PdmWidth                    ? size.width()
               : which == PdmHeight                 ? size.height()
               : which == PdmDepth                  ? 32
               : which == PdmDevicePixelRatio       ? 1
               : which == PdmDevicePixelRatioScaled ? static_cast<int>(devicePixelRatioFScale())
               : isResolution                       ? 96
                                                    : 0;
    }

private:
    QSize size;
};

PrimitiveRecording::PrimitiveRecording(const QSize& size,
                                       const std::function<void(QPainter*)>& draw)
    : device(std::make_unique<Device>(size))
{
    QPainter painter(device.get());
    draw(&painter);
}

PrimitiveRecording::~PrimitiveRecording() = default;

void PrimitiveRecording::replay(QPainter* painter) const
{
    for (const Call& call : device->engine.calls) {
        call(painter);
    }
}

long PrimitiveRecording::drawingCalls() const
{
    return device->engine.drawingCalls;
}
