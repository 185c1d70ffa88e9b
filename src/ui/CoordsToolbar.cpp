#include "ui/CoordsToolbar.h"

#include "model/FigContext.h"
#include "render/coords.h"

#include <QGridLayout>
#include <QLabel>

namespace {

constexpr int CIRCLE_BY_RADIUS = 3; // sub-types of an ellipse; those below are no circles
constexpr int SPACING = 12;         // pixels, between columns

bool isCircle(const FigEllipse* ellipse)
{
    return ellipse->sub_type >= CIRCLE_BY_RADIUS;
}

QString lengthText(const char* label, double units, bool metric)
{
    return QString::asprintf("%s%5.2f %s", label, units / (metric ? UNITS_PER_CM : UNITS_PER_INCH),
                             metric ? "cm" : "in");
}

} // namespace

CoordsToolbar::CoordsToolbar(QWidget* parent) : QWidget(parent)
{
    setObjectName("coordsToolbar");
    setAccessibleName(tr("Coordinates"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(SPACING / 2, 2, SPACING / 2, 2);
    grid->setHorizontalSpacing(SPACING);
    grid->setVerticalSpacing(1);
    xUnits = addLabel(0, 0, "xUnits", tr("Horizontal position of the pointer"));
    xPixels = addLabel(0, 1, "xPixels", tr("Horizontal position in pixels at this zoom"));
    info1 = addLabel(0, 2, "info1", tr("Measure of the shape in work"));
    yUnits = addLabel(1, 0, "yUnits", tr("Vertical position of the pointer"));
    yPixels = addLabel(1, 1, "yPixels", tr("Vertical position in pixels at this zoom"));
    info2 = addLabel(1, 2, "info2", tr("Second measure of the shape in work"));
    grid->setColumnStretch(grid->columnCount(), 1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

/// The size is fixed, an empty label's too: the pointer moves all the time, and nothing else is to
/// move with it.
/// Assistive technology reads the text; a name of the label's own would stand before it.
QLabel* CoordsToolbar::addLabel(int row, int column, const QString& name, const QString& meaning)
{
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setToolTip(meaning);
    label->setAccessibleDescription(meaning);
    label->setText("right=-888.88 cm");
    label->setFixedSize(label->sizeHint());
    label->clear();
    static_cast<QGridLayout*>(layout())->addWidget(label, row, column);
    return label;
}

void CoordsToolbar::showCoords(CFigContext* context, int x, int y)
{
    QString texts[6];
    printCoords(context, x, y, &texts[0], &texts[1], &texts[2], &texts[3], &texts[4], &texts[5]);
    QLabel* const labels[] = {xPixels, xUnits, yPixels, yUnits, info1, info2};
    for (int index = 0; index < 6; ++index)
        labels[index]->setText(texts[index]);
}

void CoordsToolbar::showEllipseCoords(bool metric, FigEllipse* ellipse)
{
    if (!ellipse)
        return;
    const double across = ellipse->radiuses.x;
    const double down = ellipse->radiuses.y;
    if (isCircle(ellipse)) {
        info1->setText(lengthText("r=", across, metric));
        info2->setText(lengthText("d=", 2 * across, metric));
    } else {
        info1->setText(lengthText("d1=", 2 * across, metric));
        info2->setText(lengthText("d2=", 2 * down, metric));
    }
}
