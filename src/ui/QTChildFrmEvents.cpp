// Event handlers of the document window: what reaches which procedure slot, and in which order.
#include "edit/command.h"
#include "edit/e_links.h"
#include "edit/e_move.h"
#include "edit/mode.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/w_layers.h"
#include "render/coords.h"
#include "render/gfx_math.h"
#include "render/grid.h"
#include "ui/QRuler.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

namespace {


QPoint pixelOf(const QMouseEvent* event)
{
    return event->localPos().toPoint();
}

bool isArrowKey(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

/// Feedback in exclusive-or wipes itself only without antialiasing, so the command decides too.
bool gestureAntialiasing()
{
    return otherPreferencesData.antialiasing && useAntialiasing(cur_command);
}

bool isConvertible(const FigObject* object)
{
    if (object->type == O_SPLINE)
        return true;
    return object->type == O_POLYLINE &&
           (object->sub_type == T_POLYLINE || object->sub_type == T_POLYGON);
}

} // namespace

// --- pointer ----------------------------------------------------------------

bool QTChildFrm::getMouseXY(int px, int py, bool moving)
{
    if (ctrl_down)
        py = lastPixelY;
    if (shift_down)
        px = lastPixelX;
    const bool changedX = px != lastPixelX && !(moving && shift_down);
    const bool changed = changedX || py != lastPixelY;
    lastPixelX = px;
    lastPixelY = py;
    figX = figureX(figContext, px);
    figY = figureY(figContext, py);
    return changed;
}

/// To be called after each slot: who is served, and what the next click does.
void QTChildFrm::afterSlot()
{
    noteGesture(figContext);
    mainFrm->showGestureHint();
}

void QTChildFrm::mousePressEvent(QMouseEvent* event)
{
    mainFrm->stopCommentTip();
    const QPoint pixel = pixelOf(event);
    getMouseXY(pixel.x(), pixel.y(), false);
    snapPress(figContext, &figX, &figY);
    if (event->button() == Qt::LeftButton) {
        // The drag position stays as it is then; only other presses set it.
        if (!canvas_leftbut_proc)
            return;
        // A dialog may have come up, and the document may have been closed under it.
        const QPointer<QTChildFrm> self = this;
        pressLeft();
        if (!self)
            return;
    }
    if (event->button() == Qt::RightButton)
        pressRight();
    dragPixelX = pixel.x();
    dragPixelY = pixel.y();
}

void QTChildFrm::pressLeft()
{
    const QPointer<QTChildFrm> self = this;
    beginPaint();
    if (painter.isActive())
        canvas_leftbut_proc(figContext, figX, figY, nullptr);
    if (!self)
        return;
    if (painter.isActive())
        endPaint();
    afterSlot();
}

void QTChildFrm::pressRight()
{
    if (!canvas_middlebut_proc) {
        if (isDrawingFunction(cur_command))
            deselectAll();
        return;
    }
    beginPaint();
    // A cancel wipes the rubber band, which was drawn so.
    if (isCancelCreateObjFunction(canvas_middlebut_proc))
        setAntialiasing(false);
    if (painter.isActive())
        canvas_middlebut_proc(figContext, figX, figY, nullptr);
    endPaint();
    afterSlot();
}

void QTChildFrm::mouseReleaseEvent(QMouseEvent* event)
{
    forgetFoundObject();
    const QPoint pixel = pixelOf(event);
    getMouseXY(pixel.x(), pixel.y(), true);
    snapCursor(figContext, &figX, &figY);
    if (event->button() == Qt::LeftButton && canvas_leftbutUp_proc) {
        startPainter();
        setAntialiasing(gestureAntialiasing());
        if (painter.isActive())
            canvas_leftbutUp_proc(figContext, figX, figY);
        endPaint();
        afterSlot();
    }
    updateButtons();
}

void QTChildFrm::mouseMoveEvent(QMouseEvent* event)
{
    mainFrm->stopCommentTip();
    if (event->buttons() & Qt::RightButton) {
        dragDrawing(event);
        return;
    }
    const QPoint pixel = pixelOf(event);
    if (!getMouseXY(pixel.x(), pixel.y(), true))
        return;
    startPainter();
    setAntialiasing(gestureAntialiasing());
    snapCursor(figContext, &figX, &figY);
    emit coordsChanged(figContext, figX, figY);
    markPointerOnRulers();
    FigObject* found = objectUnderPointer();
    mainFrm->setObjectUnderCursor(found);
    serveMove(found);
    startCommentTip(found, pixel);
}

/// The screen is brought up to date only if a slot may have drawn. A gesture is its document's: the
/// pointer may pass over another one.
void QTChildFrm::serveMove(FigObject* found)
{
    const bool isOthers = gestureContext && gestureContext != figContext;
    const bool isServed = !isOthers && (canvas_locmove_proc || canvas_locmove_proc2);
    if (isServed && canvas_locmove_proc && painter.isActive()) {
        canvas_locmove_proc(figContext, figX, figY);
        setAntialiasing(gestureAntialiasing());
    }
    showPickCursor(found);
    showLinkTarget(found);
    if (isServed && canvas_locmove_proc2 && painter.isActive())
        canvas_locmove_proc2(figContext, figContext->movedObjects, figX, figY);
    if (painter.isActive())
        painter.end();
    if (!isServed)
        return;
    viewport()->repaint();
    afterSlot();
}

/// What a gesture moves about is not looked for, unless an end of a line may be linked to it.
FigObject* QTChildFrm::objectUnderPointer()
{
    int px, py;
    if (!gestureHoldsObjects(figContext))
        return pickBoxes.search(figContext, figX, figY, &px, &py);
    pickBoxes.drop();
    if (!isSmartLinkCreateAction(cur_command))
        return nullptr;
    return objectSearch(figContext, figX, figY, &px, &py, nullptr);
}

void QTChildFrm::showCursor(Qt::CursorShape shape)
{
    if (viewport()->cursor().shape() != shape)
        viewport()->setCursor(shape);
}

void QTChildFrm::showPickCursor(const FigObject* found)
{
    showCursor(!action_on && found && useCrossCursor(cur_command) ? Qt::CrossCursor
                                                                  : Qt::ArrowCursor);
}

/// Tells by the cursor that the end that is being moved would be linked to what is under it.
void QTChildFrm::showLinkTarget(FigObject* found)
{
    FigObject* moved = figContext->curObject;
    if (!action_on || !isSmartLinkCreateAction(cur_command) || !moved)
        return;
    const bool wasTarget = figContext->linkTargetOk;
    figContext->linkTargetOk = found && found->id != moved->id && isLinkableSourceObject(moved) &&
                               isLinkableTargetObject(found) && isEndpoint(moved, moved_pos);
    if (figContext->linkTargetOk)
        showCursor(Qt::CrossCursor);
    else if (wasTarget)
        showCursor(Qt::ArrowCursor);
}

void QTChildFrm::startCommentTip(const FigObject* found, const QPoint& pixel)
{
    if (action_on || !otherPreferencesData.showCommentsAsTooltips || !found ||
        found->comments.isEmpty())
        return;
    mainFrm->startCommentTip(found->comments, mainFrm->pos() + pixel,
                             otherPreferencesData.commentToolTipDelay);
}

void QTChildFrm::markPointerOnRulers()
{
    if (hRuler)
        hRuler->setCursorPos(QPoint(pixelX(figContext, figX), 0));
    if (vRuler)
        vRuler->setCursorPos(QPoint(0, pixelY(figContext, figY)));
}

/// The figure follows the pointer; it may be drawn beyond the page on the left and the top.
void QTChildFrm::dragDrawing(QMouseEvent* event)
{
    const QPoint pixel = pixelOf(event);
    figContext->shiftX -= pixel.x() - dragPixelX;
    figContext->shiftY -= pixel.y() - dragPixelY;
    dragPixelX = pixel.x();
    dragPixelY = pixel.y();
    updateRulers(-figContext->shiftX, -figContext->shiftY);
    setSliderPositions(figContext->shiftX, figContext->shiftY);
    redisplayCanvas();
}

void QTChildFrm::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QScrollArea::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() > 0)
        zoomIn();
    else
        zoomOut();
    mainFrm->showZoom(figContext);
    event->accept();
}

// --- keys -------------------------------------------------------------------

void QTChildFrm::keyPressEvent(QKeyEvent* event)
{
    forgetFoundObject();
    if ((event->modifiers() & Qt::ShiftModifier) && !shift_down) {
        shift_down = true;
        if (canvas_qualifier_proc)
            canvas_qualifier_proc(figContext, 0, 0);
    }
    if (event->modifiers() & Qt::ControlModifier)
        ctrl_down = true;
    if (isArrowKey(event->key()))
        moveByKey(event->key());
    if (event->key() == Qt::Key_Delete)
        deleteTagged();
    if (event->key() == Qt::Key_Escape) {
        deselectAll();
        if (!isDrawingFunction(cur_command))
            mainFrm->showAttributesBar(figContext, nullptr);
    }
    if (!isArrowKey(event->key()) && event->key() != Qt::Key_Escape)
        QAbstractScrollArea::keyPressEvent(event);
}

/// The selection goes by one pixel, or to the next line of the grid that it snaps to.
void QTChildFrm::moveByKey(int key)
{
    const bool isServed = cur_command == CMD_SELECT || cur_command == CMD_DRAG_OBJECTS ||
                          cur_command == CMD_MOVE_POINT || isDrawingFunction(cur_command);
    if (!isServed || !isAnyObjectTagged())
        return;
    const bool isHorizontal = key == Qt::Key_Left || key == Qt::Key_Right;
    const bool isForward = key == Qt::Key_Right || key == Qt::Key_Down;
    int dx = round2(1200 / figContext->ppiX / figContext->zoom);
    int dy = round2(1200 / figContext->ppiY / figContext->zoom);
    if ((gridPreferences.snapMode & SNAP_GRID) && figContext->gridIndex != 0 && !ctrl_down) {
        const Orientation side = isForward ? ORIENTATION_RIGHT : ORIENTATION_LEFT;
        const Orientation edge = isForward ? ORIENTATION_BOTTOM : ORIENTATION_TOP;
        snapObjectsToGrid(figContext, isHorizontal ? side : 0, isHorizontal ? 0 : edge, &dx, &dy);
    } else if (!isForward) {
        dx = -dx;
        dy = -dy;
    }
    change([=] { moveTaggedObjects(figContext, isHorizontal ? dx : 0, isHorizontal ? 0 : dy); });
    afterSlot();
}

void QTChildFrm::keyReleaseEvent(QKeyEvent* event)
{
    if (!(event->modifiers() & Qt::ShiftModifier) && shift_down) {
        shift_down = false;
        if (canvas_qualifier_proc)
            canvas_qualifier_proc(figContext, 0, 0);
    }
    if (!(event->modifiers() & Qt::ControlModifier))
        ctrl_down = false;
    QWidget::keyReleaseEvent(event);
}

/// A key that was let go over a dialog or another program is not held any more. One that went down
/// over a panel counts for the click that brings the focus here.
void QTChildFrm::takeHeldKeys(Qt::FocusReason reason)
{
    const Qt::KeyboardModifiers held = QGuiApplication::queryKeyboardModifiers();
    const bool isClicked = reason == Qt::MouseFocusReason;
    shift_down = (shift_down || isClicked) && (held & Qt::ShiftModifier);
    ctrl_down = (ctrl_down || isClicked) && (held & Qt::ControlModifier);
}

void QTChildFrm::focusInEvent(QFocusEvent* event)
{
    forgetFoundObject();
    takeHeldKeys(event->reason());
    updateButtons();
    update_layers(figContext);
    mainFrm->updateColors(figContext);
}

// --- window -----------------------------------------------------------------

void QTChildFrm::paintEvent(QPaintEvent*)
{
    QPainter screen(viewport());
    screen.drawImage(0, 0, *canvasImage);
}

void QTChildFrm::resizeEvent(QResizeEvent* event)
{
    const int width = event->size().width();
    const int height = event->size().height();
    if (rulerCorner)
        rulerCorner->update();
    if (width != canvasWidth || height != canvasHeight) {
        replaceCanvas(width, height);
        updateSliders(width, height);
    }
    // A scroll bar that has just come or gone has resized the canvas once more, and drawn it.
    if (width == canvasWidth && height == canvasHeight && updatesEnabled())
        redisplayCanvasUpdate();
}

void QTChildFrm::closeEvent(QCloseEvent* event)
{
    event->setAccepted(maybeSave());
    if (event->isAccepted())
        endGesture();
    forgetFoundObject();
    emit compoundButtonsStateChanged(false, false, false, false);
    emit convertLineSplineButtonStateChanged(false);
    emit alignButtonsStateChanged(false);
    update_layers(nullptr);
    mainFrm->updateColors(nullptr);
}

void QTChildFrm::showEvent(QShowEvent*) {}

// --- what the toolbars have to know -----------------------------------------

void QTChildFrm::updateButtons()
{
    updateCompoundButtons();
    updateConvertLineSplineButton();
    updateAlignButtons();
    updateAddClipToLibraryButton();
}

bool QTChildFrm::isAnyObjectTagged() const
{
    for (const FigObject* object : *figContext->getWorkingRoot())
        if (object->tagged)
            return true;
    return false;
}

void QTChildFrm::updateCompoundButtons()
{
    const FigObject* current = figContext->curObject;
    const bool isCompound = current && current->type == O_COMPOUND;
    emit compoundButtonsStateChanged(isAnyObjectTagged(), isCompound, isCompound,
                                     figContext->openCompoundObjects != nullptr);
}

void QTChildFrm::updateConvertLineSplineButton()
{
    const FigObject* current = figContext->curObject;
    emit convertLineSplineButtonStateChanged(current && isConvertible(current));
}

void QTChildFrm::updateAlignButtons()
{
    emit alignButtonsStateChanged(isAnyObjectTagged());
}

void QTChildFrm::updateAddClipToLibraryButton()
{
    emit addClipToLibraryButtonStateChanged();
}
