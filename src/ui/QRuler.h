// Ruler along an edge of a document window: ticks in centimetres or inches of the figure, and a
// mark where the pointer is.
#pragma once

#include <QWidget>

class QPainter;

class QRuler : public QWidget {
    Q_OBJECT

public:
    enum RulerType { Horizontal = 0, Vertical = 1 };
    static constexpr int THICKNESS = 20; ///< least breadth, pixels

    explicit QRuler(RulerType type, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
    RulerType type() const { return rulerType; }
    double getOrigin() const { return origin; }
    double getRulerUnit() const { return rulerUnit; }
    double getRulerZoom() const { return rulerZoom; }
    QPoint getCursorPos() const { return cursorPos; }

public slots:
    void setOrigin(double newOrigin);       ///< pixel of the zero tick
    void setRulerUnit(double newRulerUnit); ///< pixels per hundredth of a labelled step
    void setRulerZoom(double newRulerZoom);
    void setCursorPos(QPoint newCursorPos);
    void setMouseTrack(bool track); ///< whether the pointer's mark is shown

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void drawAScaleMeter(QPainter* painter, const QRectF& area, double step, double startAt,
                         bool withText);
    void drawFromOriginTo(QPainter* painter, const QRectF& area, double end, int tick,
                          double distance, double startAt, bool withText);
    void drawTick(QPainter* painter, const QRectF& area, double position, double startAt);
    void drawLabel(QPainter* painter, const QRectF& area, double position, double startAt,
                   int tick);
    void drawInnerEdge(QPainter* painter, const QRectF& area);
    void drawMousePosTick(QPainter* painter);

    RulerType rulerType;
    double origin = 0.0;
    double rulerUnit = 1.0;
    double rulerZoom = 1.0;
    QPoint cursorPos;
    bool mouseTrack = true;
    bool drawText = true;
};
