#include "ui/ArrowAttrsDlg.h"

#include "edit/e_update.h"
#include "model/FigContext.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <cmath>

namespace {

constexpr double MAX_SIZE = 10000;
constexpr float UNITS_PER_DISPLAY_UNIT = 15; // thickness is in display units already
constexpr int INDENT = 22;                   // pixels, of the sizes below their mode

struct SizeRow {
    const char* name;
    const char* label;
    float* absolute;
    float* relative;
    float scale; ///< stored units per shown unit
};

const SizeRow sizeTable[] = {
    {"thickness", "Thickness", &cur_arrowthick, &cur_arrow_multthick, 1},
    {"width", "Width", &cur_arrowwidth, &cur_arrow_multwidth, UNITS_PER_DISPLAY_UNIT},
    {"height", "Height", &cur_arrowheight, &cur_arrow_multheight, UNITS_PER_DISPLAY_UNIT},
};
constexpr int NUM_SIZES = 3;

QDoubleSpinBox* makeSizeBox(const SizeRow& row, int number)
{
    auto* box = new QDoubleSpinBox;
    box->setObjectName(row.name + QString::number(number));
    box->setRange(0, MAX_SIZE);
    box->setKeyboardTracking(false); // a number counts when it is complete
    return box;
}

/// A value that the box shows rounded stays as exact as it is.
void takeSize(float* size, const QDoubleSpinBox* box, float scale)
{
    const double halfDigit = 0.5 * std::pow(10.0, -box->decimals());
    if (std::fabs(box->value() - static_cast<double>(*size / scale)) > halfDigit)
        *size = static_cast<float>(box->value()) * scale;
}

} // namespace

ArrowAttrsDlg::ArrowAttrsDlg(QWidget* parent, CFigContext* document)
    : QDialog(parent), context(document)
{
    setWindowTitle(tr("Arrow size"));
    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    rbAbsolute = addMode(column, ABSOLUTE, "rbAbsolute", tr("Absolute values"));
    rbRelative = addMode(column, RELATIVE, "rbRelative", tr("Multiples of the line width"));
    rbRelative->setChecked(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    fillValues();
    connect(rbAbsolute, &QRadioButton::toggled, this, &ArrowAttrsDlg::onModeChanged);
}

QRadioButton* ArrowAttrsDlg::addMode(QVBoxLayout* column, Mode mode, const char* name,
                                     const QString& text)
{
    auto* button = new QRadioButton(text);
    button->setObjectName(name);
    column->addWidget(button);
    auto* form = new QFormLayout;
    form->setContentsMargins(INDENT, 0, 0, 0);
    for (const SizeRow& row : sizeTable) {
        QDoubleSpinBox* box = makeSizeBox(row, mode);
        form->addRow(tr(row.label), box);
        connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                &ArrowAttrsDlg::onChangeValues);
        (mode == ABSOLUTE ? absoluteSizes : relativeSizes).append(box);
    }
    column->addLayout(form);
    return button;
}

void ArrowAttrsDlg::fillValues()
{
    const QScopedValueRollback<bool> guard(filling, true);
    (use_abs_arrowvals ? rbAbsolute : rbRelative)->setChecked(true);
    for (int index = 0; index < NUM_SIZES; ++index) {
        const SizeRow& row = sizeTable[index];
        absoluteSizes[index]->setValue(static_cast<double>(*row.absolute / row.scale));
        relativeSizes[index]->setValue(static_cast<double>(*row.relative / row.scale));
    }
    enableSizes();
}

void ArrowAttrsDlg::enableSizes()
{
    for (QDoubleSpinBox* box : qAsConst(absoluteSizes))
        box->setEnabled(use_abs_arrowvals);
    for (QDoubleSpinBox* box : qAsConst(relativeSizes))
        box->setEnabled(!use_abs_arrowvals);
}

void ArrowAttrsDlg::onModeChanged(bool absolute)
{
    if (filling)
        return;
    use_abs_arrowvals = absolute;
    enableSizes();
}

void ArrowAttrsDlg::onChangeValues(double)
{
    if (filling)
        return;
    for (int index = 0; index < NUM_SIZES; ++index) {
        const SizeRow& row = sizeTable[index];
        takeSize(row.absolute, absoluteSizes[index], row.scale);
        takeSize(row.relative, relativeSizes[index], row.scale);
    }
    if (context)
        update_object_to_current_attrs(context, context->getCurObject(), false);
}
