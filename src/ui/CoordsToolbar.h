// The coordinate panel: where the pointer is, in pixels and in the document's unit, and two
// measures of the shape in work.
#pragma once

#include <QWidget>

class CFigContext;
class FigEllipse;
class QLabel;

class CoordsToolbar : public QWidget {
    Q_OBJECT

public:
    explicit CoordsToolbar(QWidget* parent);

public slots:
    /// Shows a position of the pointer, figure units, and what the gesture in progress measures.
    /// Null blanks the panel.
    void showCoords(CFigContext* context, int x, int y);
    /// Shows radius and diameter of a circle or the two diameters of an ellipse; the position
    /// stays. Lengths are in centimetres if metric, otherwise in inches.
    void showEllipseCoords(bool metric, FigEllipse* ellipse);

private:
    QLabel* addLabel(int row, int column, const QString& name, const QString& meaning);

    QLabel* xPixels;
    QLabel* xUnits;
    QLabel* yPixels;
    QLabel* yUnits;
    QLabel* info1;
    QLabel* info2;
};
