#include "ui/AboutDlg.h"

#include "model/version.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>

namespace {

constexpr int ICON_SIZE = 64;

QLabel* iconLabel(const QWidget* window)
{
    auto* label = new QLabel;
    label->setPixmap(window->windowIcon().pixmap(ICON_SIZE));
    label->setAlignment(Qt::AlignTop);
    return label;
}

QLabel* textLabel()
{
    auto* label =
        new QLabel(AboutDlg::tr("<h2>Orvalt</h2><p>Editor for vector figures in the FIG format.</p>"
                                "<p>Version %1<br>Built %2</p>")
                       .arg(getOrvaltVersionString(true), ORVALT_DATE));
    label->setObjectName("aboutText");
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

AboutDlg::AboutDlg(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("About Orvalt"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* grid = new QGridLayout(this);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    grid->setHorizontalSpacing(20);
    grid->addWidget(iconLabel(parent), 0, 0);
    grid->addWidget(textLabel(), 0, 1);
    grid->addWidget(buttons, 1, 0, 1, 2);
}
