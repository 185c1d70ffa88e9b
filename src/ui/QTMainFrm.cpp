#include "ui/QTMainFrm.h"

#include "edit/command.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/shell.h"
#include "render/grid.h"
#include "ui/AboutDlg.h"
#include "ui/ConsoleDock.h"
#include "ui/ContextPanel.h"
#include "ui/QTChildFrm.h"
#include "ui/ToolRow.h"
#include "ui/WindowMenu.h"
#include "ui/application.h"

#include <QApplication>
#include <QEvent>
#include <QMdiSubWindow>
#include <QSettings>
#include <QStatusBar>
#include <QTextEdit>

namespace {

constexpr int SNAP_GRID = 1;
constexpr int SNAP_VERTEX = 2;

} // namespace

QTMainFrm::QTMainFrm()
{
    setupUi();
    connect(mdiArea, &QMdiArea::subWindowActivated, this, &QTMainFrm::updateMenus);
    connect(mdiArea, &QMdiArea::subWindowActivated, this, &QTMainFrm::subWindowActivated);
    createToolbars();
    createMenus();
    createStatusBar();
    readSettings();
    newFile()->showMaximized();
    setCompoundButtonsState(false, false, false, false);
    setConvertLineSplineButtonState(false);
    setAlignButtonsState(false);
}

QTMainFrm::~QTMainFrm()
{
    mainWnd = nullptr;
    disconnect(mdiArea, nullptr, this, nullptr);
    qDeleteAll(mdiArea->subWindowList());
}

// --- geometry and messages ---------------------------------------------------

void QTMainFrm::readSettings()
{
    const QSettings settings("Orvalt", "Orvalt");
    move(settings.value("window position", QPoint(100, 50)).toPoint());
    resize(settings.value("window size", QSize(650, 700)).toSize());
}

void QTMainFrm::writeSettings()
{
    QSettings settings("Orvalt", "Orvalt");
    settings.setValue("window position", pos());
    settings.setValue("window size", frameGeometry().size());
}

/// The status line keeps its message: no action has a status tip, and the empty ones that menus
/// send would wipe it.
bool QTMainFrm::event(QEvent* event)
{
    return event->type() == QEvent::StatusTip || QMainWindow::event(event);
}

// --- view -------------------------------------------------------------------

template <typename View> void QTMainFrm::changeView(View view)
{
    QTChildFrm* child = activeMdiChild();
    if (!child)
        return;
    view(child);
    showZoom(child->figContext);
}

void QTMainFrm::zoomIn()
{
    changeView([](QTChildFrm* child) { child->zoomIn(); });
}

void QTMainFrm::zoomOut()
{
    changeView([](QTChildFrm* child) { child->zoomOut(); });
}

void QTMainFrm::zoomToSelection()
{
    changeView([](QTChildFrm* child) { child->zoomToSelection(); });
}

void QTMainFrm::zoomToSelectionRevert()
{
    changeView([](QTChildFrm* child) { child->zoomToSelectionRevert(); });
}

void QTMainFrm::onEditZoom()
{
    applyZoom(toolRow->zoom()->currentText());
}

void QTMainFrm::onZoomIndex(int index)
{
    if (index >= 0)
        applyZoom(toolRow->zoom()->itemText(index));
}

/// The first entry fits the figure in; other texts are percentages, and what is none has no effect.
void QTMainFrm::applyZoom(const QString& text)
{
    bool isNumber = false;
    const float percent = QString(text).remove('%').toFloat(&isNumber);
    changeView([&](QTChildFrm* child) {
        if (text == toolRow->zoom()->itemText(0))
            child->zoomToFit();
        else if (isNumber)
            child->setZoom(percent / 100);
        // The keys are the document's again.
        if (toolRow->zoom()->hasFocus())
            child->setFocus();
    });
}

void QTMainFrm::showZoom(CFigContext* context)
{
    const QTChildFrm* child = activeMdiChild();
    if (child && child->figContext == context)
        toolRow->showZoom(context->zoom);
}

void QTMainFrm::redisplayCanvas()
{
    for (QTChildFrm* child : getChilds(QMdiArea::CreationOrder))
        child->redisplayCanvas();
}

// --- constraints, grid and snapping -----------------------------------------

void QTMainFrm::setUnconstraint(bool)
{
    toolRow->setConstraint(UNCONSTRAINT);
}

void QTMainFrm::setMounthattan(bool)
{
    toolRow->setConstraint(MOUNTHATTAN);
}

void QTMainFrm::setManhattan(bool)
{
    toolRow->setConstraint(MANHATTAN);
}

void QTMainFrm::setMountain(bool)
{
    toolRow->setConstraint(MOUNTAIN);
}

void QTMainFrm::setLatexarrow(bool)
{
    toolRow->setConstraint(LATEX_ARROW);
}

void QTMainFrm::setLatexline(bool)
{
    toolRow->setConstraint(LATEX_LINE);
}

void QTMainFrm::setGrid(int index, CFigContext* context)
{
    CFigContext* target = context ? context : getFigContext();
    if (!target || index < 0 || index >= gridDefinitions.size())
        return;
    toolRow->showGrid(index);
    target->gridIndex = index;
    target->gridOn = index != 0;
    gridPreferences.gridIndex = target->gridIndex;
    gridPreferences.gridOn = target->gridOn;
    shell_redisplay_canvas(target->chFrm);
    showGridInfo(target);
}

void QTMainFrm::setSnapBit(int bit, bool on, const char* message)
{
    if (activeMdiChild()) {
        put_msg(message);
        gridPreferences.snapMode = (gridPreferences.snapMode & ~bit) | (on ? bit : 0);
    }
    toolRow->showSnapMode(gridPreferences.snapMode);
}

void QTMainFrm::setSnapModeMagnet(bool on)
{
    setSnapBit(SNAP_GRID, on, "Snap points to grid");
}

void QTMainFrm::setSnapModeVertex(bool on)
{
    setSnapBit(SNAP_VERTEX, on, "Snap points to vertex");
}

// --- attribute panels and what the document allows ---------------------------

void QTMainFrm::showContextDialog(int command)
{
    contextPanel->showCommand(command < 0 ? cur_command : command);
}

void QTMainFrm::showAttributesBar(CFigContext* context, FigObject* object)
{
    if (!context && !getFigContext())
        return;
    contextPanel->showObject(object);
    fireCommentChanged(object && !object->comments.isEmpty());
}

void QTMainFrm::fireCommentChanged(bool hasComment)
{
    emit commentChanged(hasComment);
}

void QTMainFrm::setCompoundButtonsState(bool btCreate, bool btBreak, bool btOpen, bool btClose)
{
    actions->setAvailable(ACT_COMPOUND_CREATE, btCreate);
    actions->setAvailable(ACT_COMPOUND_BREAK, btBreak);
    actions->setAvailable(ACT_COMPOUND_OPEN, btOpen);
    actions->setAvailable(ACT_COMPOUND_CLOSE, btClose);
}

void QTMainFrm::setConvertLineSplineButtonState(bool enabled)
{
    actions->setAvailable(ACT_CONVERT, enabled);
}

void QTMainFrm::setAlignButtonsState(bool enabled)
{
    for (const MainAction action :
         {ACT_ALIGN_LEFT, ACT_ALIGN_TOP, ACT_ALIGN_RIGHT, ACT_ALIGN_BOTTOM, ACT_ALIGN_CENTER_H,
          ACT_ALIGN_CENTER_V, ACT_ALIGN_CENTER_HV})
        actions->setAvailable(action, enabled);
}

// --- console and help -------------------------------------------------------

void QTMainFrm::onOpenConsoleView()
{
    console->show();
    console->raise();
}

void QTMainFrm::onClearLog()
{
    logDocument()->clear();
}

QTextDocument* QTMainFrm::logDocument() const
{
    return console->logView->document();
}

void QTMainFrm::about()
{
    AboutDlg(this).exec();
}

void QTMainFrm::aboutQt()
{
    QApplication::aboutQt();
}

// --- document windows -------------------------------------------------------

void QTMainFrm::updateMenus()
{
    windowMenu->updateActions();
}

void QTMainFrm::updateWindowMenu()
{
    windowMenu->refresh();
}

void QTMainFrm::setActiveSubWindow(QWidget* window)
{
    if (auto* subWindow = qobject_cast<QMdiSubWindow*>(window))
        mdiArea->setActiveSubWindow(subWindow);
}

void QTMainFrm::subWindowActivated(QMdiSubWindow* window)
{
    if (const QTChildFrm* child = documentOf(window))
        showZoom(child->figContext);
}
