#include "render/clip.h"

#include "model/FigContext.h"
#include "render/gfx_lowlevel.h"

#include <QPainter>

namespace {

// Regions are made line by line, in time that grows with the square of their height, so a head that
// a huge zoom blew up would keep the painter busy for half a minute. Beyond this distance from the
// origin, more than any screen is wide, it is cut off first.
constexpr int farAway = 10000;

QRect deviceRect(const QPainter* painter)
{
    return QRect(0, 0, painter->device()->width(), painter->device()->height());
}

/// Cuts off what lies beyond the limit on one axis and side: sign 1 keeps v <= farAway,
/// -1 keeps v >= -farAway.
QPolygonF cutOff(const QPolygonF& polygon, qreal (*axis)(const QPointF&), int sign)
{
    QPolygonF kept;
    for (int i = 0; i < polygon.size(); ++i) {
        const QPointF& from = polygon[i];
        const QPointF& to = polygon[(i + 1) % polygon.size()];
        const qreal outFrom = sign * axis(from) - farAway;
        const qreal outTo = sign * axis(to) - farAway;
        if (outFrom <= 0)
            kept.append(from);
        if ((outFrom <= 0) != (outTo <= 0))
            kept.append(from + (to - from) * (outFrom / (outFrom - outTo)));
    }
    return kept;
}

QPolygon cutToSurroundings(const QPolygon& polygon)
{
    QPolygonF cut(polygon);
    for (int sign : {1, -1}) {
        cut = cutOff(
            cut, [](const QPointF& p) { return p.x(); }, sign);
        cut = cutOff(
            cut, [](const QPointF& p) { return p.y(); }, sign);
    }
    return cut.toPolygon();
}

QRegion headRegion(QPoint* points, int count)
{
    QPolygon polygon;
    toPolygon(polygon, points, count);
    const QRect surroundings(QPoint(-farAway, -farAway), QPoint(farAway, farAway));
    for (const QPoint& point : qAsConst(polygon)) {
        if (!surroundings.contains(point))
            return QRegion(cutToSurroundings(polygon), Qt::OddEvenFill);
    }
    return QRegion(polygon, Qt::OddEvenFill);
}

} // namespace

bool setArrowClipping(CFigContext* ctx, QPoint* fwdClip, int nFwdClip, QPoint* backClip,
                      int nBackClip, int thickness, QRegion& saved)
{
    QPainter* painter = ctx->painter;
    if (!painter || !painter->isActive() || getThickness(ctx, thickness, ctx->zoom) < 2)
        return false;
    // clipRegion() goes on naming the old region after the clip was taken off.
    const bool wasClipped = painter->hasClipping();
    saved = wasClipped ? painter->clipRegion() : QRegion();
    if (nFwdClip == 0 && nBackClip == 0)
        return false;
    QRegion clip = wasClipped ? saved : QRegion(deviceRect(painter));
    if (nFwdClip != 0)
        clip -= headRegion(fwdClip, nFwdClip);
    if (nBackClip != 0)
        clip -= headRegion(backClip, nBackClip);
    painter->setClipRegion(clip, Qt::ReplaceClip);
    return true;
}

void restoreArrowClipping(CFigContext* ctx, const QRegion& saved)
{
    QPainter* painter = ctx->painter;
    const QRegion former = saved.isEmpty() ? QRegion(deviceRect(painter)) : saved;
    painter->setClipRegion(former, Qt::ReplaceClip);
}
