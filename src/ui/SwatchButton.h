// Buttons that show a colour, or a pattern in two colours, and mark the one that is in force.
#pragma once

#include <QAbstractButton>
#include <QColor>

class QButtonGroup;

constexpr int NO_PATTERN = -1;

/// What a fill looks like: one colour, and over it a pattern in another, or none.
struct Swatch {
    QColor color;
    int pattern = NO_PATTERN; ///< index of patternBrushes
    QColor ink = {};          ///< of the pattern
};
void paintSwatch(QPainter* painter, const QRect& area, const Swatch& swatch);

class SwatchButton : public QAbstractButton {
    Q_OBJECT

public:
    /// Pixels, with the room around the swatch in which the mark is drawn. Without parent.
    explicit SwatchButton(QSize size);

    void setSwatch(const Swatch& newSwatch);
    const Swatch& shown() const { return swatch; }
    /// The tip, which those who do not see the colour get as the button's name.
    void setName(const QString& name);

    QSize sizeHint() const override { return buttonSize; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize buttonSize;
    Swatch swatch;
};

/// Checks the button of that number in an exclusive group, or none.
void markButton(QButtonGroup* group, int id);
