#include "ui/QTMainFrm.h"

#include "edit/command.h"
#include "edit/e_update.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/shell.h"
#include "render/grid.h"
#include "ui/AboutDlg.h"
#include "ui/AttrsToolbarHandler.h"
#include "ui/ConsoleDock.h"
#include "ui/ContextPanel.h"
#include "ui/CoordsToolbar.h"
#include "ui/FigColorDlg.h"
#include "ui/GestureHint.h"
#include "ui/LayersToolbar.h"
#include "ui/ObjectCommentDlg.h"
#include "ui/QTChildFrm.h"
#include "ui/ShapesToolbar.h"
#include "ui/ToolRow.h"
#include "ui/WindowMenu.h"
#include "ui/application.h"

#include <QApplication>
#include <QDockWidget>
#include <QEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QSettings>
#include <QStatusBar>
#include <QTextDocument>
#include <QToolTip>

namespace {

/// A text that looks like markup is shown as it was typed.
QString asTip(const QString& text)
{
    const QString verbatim = "<p style=\"white-space:pre\">%1</p>";
    return Qt::mightBeRichText(text) ? verbatim.arg(text.toHtmlEscaped()) : text;
}

constexpr int COMMENT_TIP_DELAY = 1000; // milliseconds, until the preference sets another

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
    attrsHandler->updateToolbars();
    commentTipTimer.setInterval(COMMENT_TIP_DELAY);
    connect(&commentTipTimer, &QTimer::timeout, this, &QTMainFrm::showCommentTip);
    setCompoundButtonsState(false, false, false, false);
    setConvertLineSplineButtonState(false);
    setAlignButtonsState(false);
}

QTMainFrm::~QTMainFrm()
{
    mainWnd = nullptr;
    disconnect(mdiArea, nullptr, this, nullptr);
    updateColors(nullptr);
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

/// A message for a limited time does not take the lasting one away.
void QTMainFrm::restoreMessage(const QString& shown)
{
    if (shown.isEmpty() && !message_line.isEmpty())
        print_msg();
}

void QTMainFrm::showGestureHint()
{
    if (gestureHintLabel)
        gestureHintLabel->setText(gestureHint());
}

// --- tip with an object's comment -------------------------------------------

void QTMainFrm::startCommentTip(const QString& text, const QPoint& position, int delay)
{
    commentTipText = text;
    commentTipPosition = position;
    commentTipTimer.start(delay);
}

void QTMainFrm::stopCommentTip()
{
    commentTipTimer.stop();
    QToolTip::hideText();
}

void QTMainFrm::showCommentTip()
{
    if (objectUnderCursor && !objectUnderCursor->comments.isEmpty())
        QToolTip::showText(commentTipPosition, asTip(commentTipText));
}

// --- edit -------------------------------------------------------------------

void QTMainFrm::updateHistoryActions()
{
    const QTChildFrm* child = activeMdiChild();
    actions->setAvailable(ACT_UNDO, child && child->figContext->undoQueue.undoCount() > 0);
    actions->setAvailable(ACT_REDO, child && child->figContext->undoQueue.redoCount() > 0);
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

namespace {

/// The object's attributes become those of the next one that is drawn.
void takeAttributes(CFigContext* context, FigObject* object)
{
    switch (object->type) {
    case O_ELLIPSE:
        return get_ellipse_attrs(context, static_cast<FigEllipse*>(object));
    case O_POLYLINE:
        return get_line_attrs(context, static_cast<FigLine*>(object));
    case O_SPLINE:
        return get_spline_attrs(context, static_cast<FigSpline*>(object));
    case O_TEXT:
        return get_text_attrs(context, static_cast<FigText*>(object));
    case O_ARC:
        return get_arc_attrs(context, static_cast<FigArc*>(object));
    default:
        return;
    }
}

} // namespace

void QTMainFrm::showAttributesBar(CFigContext* context, FigObject* object)
{
    CFigContext* owner = context ? context : getFigContext();
    if (!owner)
        return;
    if (object) {
        takeAttributes(owner, object);
        attrsHandler->updateToolbars();
    }
    contextPanel->showObject(object);
    fireCommentChanged(object && !object->comments.isEmpty());
}

void QTMainFrm::fireCommentChanged(bool hasComment)
{
    commentShown = hasComment;
    emit commentChanged(hasComment);
}

void QTMainFrm::showEllipseCoords(bool metric, FigEllipse* ellipse)
{
    coordsToolbar->showEllipseCoords(metric, ellipse);
}

void QTMainFrm::showLayers(CFigContext* context)
{
    if (!context || context == getFigContext())
        layersToolbar->drawLayerButtons(context);
}

void QTMainFrm::updateColors(CFigContext* context)
{
    const QTChildFrm* child = activeMdiChild();
    if (!context || (child && child->figContext == context))
        colorDlg->updateAll(context);
}

void QTMainFrm::forgetColors(const CFigContext* context)
{
    if (colorDlg->document() == context)
        colorDlg->updateAll(nullptr);
}

void QTMainFrm::editComment(CFigContext* context, FigObject* object)
{
    const QString before = object->comments;
    ObjectCommentDlg* dialog = commentDialog();
    dialog->setObject(object);
    dialog->exec();
    dialog->setObject(nullptr);
    if (object->comments != before)
        context->setModifiedflag();
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

void QTMainFrm::onOpenLayersPanel()
{
    auto* dock = findChild<QDockWidget*>("layersDock");
    dock->show();
    dock->raise();
}

void QTMainFrm::onOpenColorDlg()
{
    colorDlg->show();
    colorDlg->raise();
}

void QTMainFrm::onClearLog()
{
    logDocument()->clear();
}

QTextDocument* QTMainFrm::logDocument() const
{
    return console->logDocument();
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
    updateHistoryActions();
    QTChildFrm* child = documentOf(window);
    if (!child) {
        if (!activeMdiChild()) {
            showLayers(nullptr);
            updateColors(nullptr);
        }
        return;
    }
    showZoom(child->figContext);
    toolRow->showGrid(child->figContext->gridOn ? child->figContext->gridIndex : 0);
    showLayers(child->figContext);
    updateColors(child->figContext);
    showAttributesOf(child->figContext);
    resumeTool(child);
}

/// The panels change the selected object of the active document, so they have to show that one's.
void QTMainFrm::showAttributesOf(CFigContext* context)
{
    unit = !context->metric;
    emit unitChanged(unit);
    if (FigObject* object = context->getCurObject())
        showAttributesBar(context, object);
    else
        showContextDialog(-1);
}

/// A gesture does not follow into another document, and one that went with its document has left
/// the slots empty: the tool is at rest again.
void QTMainFrm::resumeTool(QTChildFrm* child)
{
    CFigContext* owner = gestureContext;
    if (owner == child->figContext || (!owner && canvas_leftbut_proc))
        return;
    abandonGesture(owner);
    shapes->restartTool(child->figContext);
    if (owner && owner->chFrm)
        owner->chFrm->redisplayCanvasUpdate();
}
