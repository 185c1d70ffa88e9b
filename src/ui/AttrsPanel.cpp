#include "ui/AttrsPanel.h"

#include "model/FigContext.h"
#include "model/shell.h"
#include "ui/ArrowAttrsDlg.h"
#include "ui/AttrsToolbarHandler.h"
#include "ui/FigColorDlg.h"
#include "ui/LateIcon.h"
#include "ui/QTMainFrm.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

constexpr int MARGIN = 6;           // pixels
constexpr int VERTICAL_SPACING = 3; // between the rows of the form
constexpr int DASHED = 1;
constexpr int DOTTED = 2;
const char* const LONGEST_LABEL = "Arrow type"; // gives all forms the same left column

} // namespace

AttrsPanel::AttrsPanel(AttrsToolbarHandler* coordinator, QTMainFrm* window, ControlList rows)
    : handler(coordinator), mainWindow(window), controlRows(rows)
{
}

void AttrsPanel::makeContent()
{
    auto* form = new QGridLayout;
    form->setVerticalSpacing(VERTICAL_SPACING);
    form->setColumnMinimumWidth(0, fontMetrics().horizontalAdvance(tr(LONGEST_LABEL)));
    form->setColumnStretch(1, 1);
    auto* pairs = new QGridLayout;
    pairs->setVerticalSpacing(VERTICAL_SPACING);
    pairs->setColumnStretch(0, 1);
    pairs->setColumnStretch(1, 1);
    for (const ControlRow& row : controlRows) {
        QWidget* made = addControl(row);
        if (row.labelBeside)
            addField(form, made, row);
        else
            pairs->addWidget(made, pairs->count() / 2, pairs->count() % 2);
    }
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    column->addLayout(form);
    column->addLayout(pairs);
    column->addStretch();
    listen();
}

/// To what concerns several controls or none of the coordinator's, and to what was told before.
void AttrsPanel::listen()
{
    connect(handler, &AttrsToolbarHandler::lineStyleChanged, this, &AttrsPanel::onLineStyle);
    onLineStyle(handler->current(&AttrsToolbarHandler::lineStyleChanged));
    connect(mainWindow, &QTMainFrm::commentChanged, this, &AttrsPanel::onCommentTip);
    onCommentTip(mainWindow->isCommentShown());
    const FigColorDlg* colors = mainWindow->colorDialog();
    connect(colors, &FigColorDlg::colorChanged, this, &AttrsPanel::onColorChanged);
    onColorChanged(colors->shownSample());
}

QWidget* AttrsPanel::addControl(const ControlRow& row)
{
    QWidget* made = row.make(row);
    made->setParent(this);
    made->setObjectName(row.name);
    made->setToolTip(tr(row.toolTip));
    made->setAccessibleName(tr(*row.label ? row.label : row.toolTip));
    if (auto* edit = made->findChild<QLineEdit*>())
        edit->setAccessibleName(made->accessibleName());
    made->installEventFilter(this);
    if (row.wire)
        row.wire(this, made);
    // A button that does nothing is not to be pressed.
    made->setEnabled(row.wire != nullptr);
    return made;
}

void AttrsPanel::addField(QGridLayout* form, QWidget* field, const ControlRow& row)
{
    const int line = form->rowCount();
    auto* label = new QLabel(tr(row.label), this);
    label->setObjectName(row.labelName);
    label->setBuddy(field);
    form->addWidget(label, line, 0);
    form->addWidget(field, line, 1);
}

QLabel* AttrsPanel::labelOf(const ControlRow& row)
{
    makeComplete();
    return findChild<QLabel*>(row.labelName, Qt::FindDirectChildrenOnly);
}

FigObject* AttrsPanel::selectedObject()
{
    CFigContext* context = getFigContext();
    return context ? context->getCurObject() : nullptr;
}

void AttrsPanel::onLineStyle(int style)
{
    if (QLabel* label = labelOf(controls::styleVal))
        label->setText(style == DASHED   ? tr("dash len.")
                       : style == DOTTED ? tr("dot gap")
                                         : QString());
}

void AttrsPanel::onCommentTip(bool hasComment)
{
    const char* name = hasComment ? "comment_filled" : "comment";
    if (auto* button = control<QPushButton>(controls::openCommentDlg))
        button->setIcon(lateIcon(QString(":/diverse/images/diverse/%1.png").arg(name)));
}

void AttrsPanel::onColorChanged(const QPixmap& sample)
{
    if (auto* button = control<QPushButton>(controls::selectPenColor))
        button->setIcon(QIcon(sample));
}

void AttrsPanel::onOpenArrowDlg(bool)
{
    if (CFigContext* context = getFigContext())
        ArrowAttrsDlg(this, context).exec();
}

/// Undo and redo in a field are those of the document, not of what was typed.
bool AttrsPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            event->ignore();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void AttrsPanel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        mainWindow->deselectAll();
    QWidget::keyPressEvent(event);
}
