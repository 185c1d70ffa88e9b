#include "ui/QRuler.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace {

const QColor background(236, 233, 216);
constexpr double LEAST_TICK_DISTANCE = 2.0;   // pixels; closer ticks are not drawn
constexpr double LEAST_LABEL_DISTANCE = 12.0; // pixels; labels need more than this

} // namespace

QRuler::QRuler(RulerType type, QWidget* parent) : QWidget(parent), rulerType(type)
{
    setMouseTracking(true);
    setFont(QFont("Helvetica", 7, 25));
}

QSize QRuler::minimumSizeHint() const
{
    return {THICKNESS, THICKNESS};
}

void QRuler::setOrigin(double newOrigin)
{
    if (origin == newOrigin)
        return;
    origin = newOrigin;
    update();
}

void QRuler::setRulerUnit(double newRulerUnit)
{
    if (rulerUnit == newRulerUnit)
        return;
    rulerUnit = newRulerUnit;
    update();
}

void QRuler::setRulerZoom(double newRulerZoom)
{
    if (rulerZoom == newRulerZoom)
        return;
    rulerZoom = newRulerZoom;
    update();
}

void QRuler::setCursorPos(QPoint newCursorPos)
{
    if (cursorPos == newCursorPos)
        return;
    cursorPos = newCursorPos;
    update();
}

void QRuler::setMouseTrack(bool track)
{
    if (mouseTrack == track)
        return;
    mouseTrack = track;
    update();
}

void QRuler::mouseMoveEvent(QMouseEvent* event)
{
    setCursorPos(event->pos());
    QWidget::mouseMoveEvent(event);
}

void QRuler::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRectF area = rect();
    const double thickness = rulerType == Horizontal ? area.height() : area.width();
    painter.fillRect(area, background);
    painter.setPen(QPen(Qt::black, 0));
    drawAScaleMeter(&painter, area, 10, thickness / 1.5, false);
    drawAScaleMeter(&painter, area, 50, thickness * 0.25, false);
    drawAScaleMeter(&painter, area, 100, 0, drawText);
    drawInnerEdge(&painter, area);
    if (mouseTrack)
        drawMousePosTick(&painter);
}

/// Ticks every `step` hundredths of a unit, outward from the origin. Where the origin lies off
/// the ruler, the first tick is a whole number of steps away from it and keeps that number.
void QRuler::drawAScaleMeter(QPainter* painter, const QRectF& area, double step, double startAt,
                             bool withText)
{
    const double distance = rulerZoom * step * rulerUnit;
    if (!(distance >= LEAST_TICK_DISTANCE))
        return;
    const double begin = rulerType == Horizontal ? area.left() : area.top();
    const double end = rulerType == Horizontal ? area.right() : area.bottom();
    const int ticksBefore = origin < begin ? static_cast<int>((begin - origin) / distance) : 0;
    const int ticksBehind = origin > end ? static_cast<int>((origin - end) / distance) : 1;
    if (origin <= end)
        drawFromOriginTo(painter, area, end, ticksBefore, distance, startAt, withText);
    if (origin >= begin)
        drawFromOriginTo(painter, area, begin, ticksBehind, -distance, startAt, withText);
}

void QRuler::drawFromOriginTo(QPainter* painter, const QRectF& area, double end, int tick,
                              double distance, double startAt, bool withText)
{
    const bool labelled = withText && std::abs(distance) > LEAST_LABEL_DISTANCE;
    for (;; ++tick) {
        const double position = origin + tick * distance;
        if (distance > 0 ? position > end : position < end)
            return;
        drawTick(painter, area, position, startAt);
        if (labelled)
            drawLabel(painter, area, position, startAt, tick);
    }
}

void QRuler::drawTick(QPainter* painter, const QRectF& area, double position, double startAt)
{
    if (rulerType == Horizontal)
        painter->drawLine(QLineF(position, area.top() + startAt, position, area.bottom()));
    else
        painter->drawLine(QLineF(area.left() + startAt, position, area.right(), position));
}

void QRuler::drawLabel(QPainter* painter, const QRectF& area, double position, double startAt,
                       int tick)
{
    const QPointF place = rulerType == Horizontal
                              ? QPointF(position + 3, area.top() + startAt + 9)
                              : QPointF(area.left() + startAt + 1, position - 2);
    painter->drawText(place, QString::number(tick));
}

void QRuler::drawInnerEdge(QPainter* painter, const QRectF& area)
{
    painter->setPen(QPen(Qt::black, 2));
    if (rulerType == Horizontal)
        painter->drawLine(area.bottomLeft(), area.bottomRight());
    else
        painter->drawLine(area.topRight(), area.bottomRight());
}

void QRuler::drawMousePosTick(QPainter* painter)
{
    painter->setPen(QPen(Qt::red, 0));
    if (rulerType == Horizontal)
        painter->drawLine(cursorPos.x(), 0, cursorPos.x(), height());
    else
        painter->drawLine(0, cursorPos.y(), width(), cursorPos.y());
}
