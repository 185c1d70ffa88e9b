// Objects and canvases for tests of the renderers. One figure unit is one pixel unless a test
// sets another zoom or resolution.
#pragma once

#include "RecordingShell.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/u_list.h"
#include "render/gfx_lowlevel.h"

#include <QImage>
#include <QPainter>
#include <QVector>

#include <memory>

/// A context that maps figure units to pixels one to one.
struct PixelContext : CFigContext {
    PixelContext()
    {
        ppiX = ppiY = 1200.0f;
        recordingShell.activeContext = this;
    }
    ~PixelContext() override { recordingShell.activeContext = nullptr; }
};

/// How objects outside of an open compound look, for a while.
struct CompoundView {
    explicit CompoundView(int mode) : former(otherPreferencesData.compoundEditViewMode)
    {
        otherPreferencesData.compoundEditViewMode = mode;
    }
    ~CompoundView() { otherPreferencesData.compoundEditViewMode = former; }
    CompoundView(const CompoundView&) = delete;
    CompoundView& operator=(const CompoundView&) = delete;

    int former;
};

/// A white canvas with a painter that the context draws on.
class Canvas {
public:
    explicit Canvas(CFigContext* ctx, int width = 300, int height = 200)
        : m_ctx(ctx), m_image(width, height, QImage::Format_ARGB32_Premultiplied)
    {
        m_image.fill(Qt::white);
        m_painter.begin(&m_image);
        ctx->setPainter(&m_painter);
    }
    ~Canvas() { m_ctx->setPainter(nullptr); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    QPainter* painter() { return &m_painter; }
    const QImage& image() const { return m_image; }
    bool isInked(int x, int y) const { return m_image.pixelColor(x, y) != QColor(Qt::white); }
    bool isBlank() const
    {
        QImage white = m_image;
        white.fill(Qt::white);
        return white == m_image;
    }

private:
    CFigContext* m_ctx;
    QImage m_image;
    QPainter m_painter;
};

inline void setPoints(FigPath* path, const QVector<QPoint>& points)
{
    FigPoint** next = &path->points;
    for (const QPoint& point : points) {
        *next = new FigPoint(point.x(), point.y());
        next = &(*next)->next;
    }
}

inline std::unique_ptr<FigLine> makeLine(const QVector<QPoint>& points, int thickness = 1)
{
    auto line = std::make_unique<FigLine>();
    line->sub_type = T_POLYLINE;
    line->thickness = thickness;
    setPoints(line.get(), points);
    return line;
}

/// subType bit 0 closes it. Fewer factors than points are allowed.
inline std::unique_ptr<FigSpline> makeSpline(int subType, const QVector<QPoint>& points,
                                             const QVector<double>& factors)
{
    auto spline = std::make_unique<FigSpline>();
    spline->sub_type = subType;
    spline->thickness = 1;
    setPoints(spline.get(), points);
    FigShapeFactor** next = &spline->sfactors;
    for (double s : factors) {
        *next = static_cast<FigShapeFactor*>(malloc(sizeof(FigShapeFactor)));
        **next = {s, nullptr};
        next = &(*next)->next;
    }
    return spline;
}

inline std::unique_ptr<FigArc> makeArc(const QPointF& centre, const QPoint& start,
                                       const QPoint& end, int direction)
{
    auto arc = std::make_unique<FigArc>();
    arc->thickness = 1;
    arc->direction = direction;
    arc->center_x = static_cast<float>(centre.x());
    arc->center_y = static_cast<float>(centre.y());
    arc->point[0] = FigPoint(start.x(), start.y());
    arc->point[2] = FigPoint(end.x(), end.y());
    return arc;
}

/// Owned by the object that it is given to.
inline FigArrow* makeArrow(int type, int style, float thickness, float width, float height)
{
    return new FigArrow{type, style, thickness, width, height};
}

inline QVector<QPoint> pointList()
{
    return QVector<QPoint>(polygon_points, polygon_points + npoints);
}
