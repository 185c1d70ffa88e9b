#include "ui/TextEnterDlg.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {

constexpr int WIDTH = 420; // pixels

} // namespace

TextEnterDlg::TextEnterDlg(QWidget* parent) : QDialog(parent), lineEdit(new QLineEdit)
{
    setObjectName("textEnterDlg");
    setWindowTitle(tr("Enter text"));
    auto* box = new QGroupBox(tr("Text"));
    lineEdit->setObjectName("lineEdit");
    lineEdit->setAccessibleName(tr("Text"));
    auto* inside = new QVBoxLayout(box);
    inside->addWidget(lineEdit);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(box);
    column->addWidget(buttons);
    resize(WIDTH, sizeHint().height());
    lineEdit->setFocus();
}

void TextEnterDlg::setText(const QString& text)
{
    lineEdit->setText(text);
    lineEdit->selectAll();
}

QString TextEnterDlg::getText() const
{
    return lineEdit->text();
}
