#include "ui/SwatchButton.h"

#include "render/colorFunctions.h"

#include <QButtonGroup>
#include <QPainter>

namespace {

constexpr int MARK_WIDTH = 2; // pixels
constexpr int MARGIN = MARK_WIDTH + 1;
const QColor BORDER(0x80, 0x80, 0x80);

/// A frame inside the edges of area, of whole pixels.
void paintFrame(QPainter* painter, const QRect& area, int width, const QColor& color)
{
    painter->fillRect(QRect(area.left(), area.top(), area.width(), width), color);
    painter->fillRect(QRect(area.left(), area.bottom() + 1 - width, area.width(), width), color);
    painter->fillRect(QRect(area.left(), area.top(), width, area.height()), color);
    painter->fillRect(QRect(area.right() + 1 - width, area.top(), width, area.height()), color);
}

} // namespace

void paintSwatch(QPainter* painter, const QRect& area, const Swatch& swatch)
{
    painter->fillRect(area, swatch.color);
    if (swatch.pattern == NO_PATTERN)
        return;
    QBrush brush = patternBrushes[swatch.pattern];
    brush.setColor(swatch.ink);
    painter->setBackgroundMode(Qt::TransparentMode);
    painter->setBrushOrigin(area.topLeft());
    painter->fillRect(area, brush);
}

SwatchButton::SwatchButton(QSize size) : buttonSize(size)
{
    setFixedSize(size);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

void SwatchButton::setSwatch(const Swatch& newSwatch)
{
    swatch = newSwatch;
    update();
}

void SwatchButton::setName(const QString& name)
{
    setToolTip(name);
    setAccessibleName(name);
}

void SwatchButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect area = rect().adjusted(MARGIN, MARGIN, -MARGIN, -MARGIN);
    if (isEnabled())
        paintSwatch(&painter, area, swatch);
    paintFrame(&painter, area, 1, BORDER);
    if (isChecked())
        paintFrame(&painter, rect(), MARK_WIDTH, palette().color(QPalette::Highlight));
    else if (underMouse() || hasFocus())
        paintFrame(&painter, rect(), 1, palette().color(QPalette::Highlight));
}

void markButton(QButtonGroup* group, int id)
{
    // An exclusive group would keep one checked.
    group->setExclusive(false);
    for (QAbstractButton* button : group->buttons())
        button->setChecked(group->id(button) == id);
    group->setExclusive(true);
}
