// Event handlers of the document window: what reaches which procedure slot, and in which order.
#include "edit/command.h"
#include "edit/mode.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/w_layers.h"
#include "render/coords.h"
#include "ui/QRuler.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
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

void QTChildFrm::mousePressEvent(QMouseEvent* event)
{
    const QPoint pixel = pixelOf(event);
    getMouseXY(pixel.x(), pixel.y(), false);
    if (event->button() == Qt::LeftButton) {
        // The drag position stays as it is then; only other presses set it.
        if (!canvas_leftbut_proc)
            return;
        beginPaint();
        if (painter.isActive())
            canvas_leftbut_proc(figContext, figX, figY, nullptr);
        if (painter.isActive())
            endPaint();
    }
    if (event->button() == Qt::RightButton && canvas_middlebut_proc) {
        beginPaint();
        if (painter.isActive())
            canvas_middlebut_proc(figContext, figX, figY, nullptr);
        endPaint();
    }
    dragPixelX = pixel.x();
    dragPixelY = pixel.y();
}

void QTChildFrm::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint pixel = pixelOf(event);
    getMouseXY(pixel.x(), pixel.y(), true);
    if (event->button() == Qt::LeftButton && canvas_leftbutUp_proc) {
        startPainter();
        setAntialiasing(gestureAntialiasing());
        if (painter.isActive())
            canvas_leftbutUp_proc(figContext, figX, figY);
        endPaint();
    }
    updateButtons();
}

void QTChildFrm::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::RightButton) {
        dragDrawing(event);
        return;
    }
    const QPoint pixel = pixelOf(event);
    if (!getMouseXY(pixel.x(), pixel.y(), true))
        return;
    emit coordsChanged(figContext, figX, figY);
    markPointerOnRulers();
    callMoveSlots();
}

/// The screen is brought up to date only if a slot may have drawn.
void QTChildFrm::callMoveSlots()
{
    if (!canvas_locmove_proc && !canvas_locmove_proc2)
        return;
    startPainter();
    setAntialiasing(gestureAntialiasing());
    if (canvas_locmove_proc && painter.isActive()) {
        canvas_locmove_proc(figContext, figX, figY);
        setAntialiasing(gestureAntialiasing());
    }
    if (canvas_locmove_proc2 && painter.isActive())
        canvas_locmove_proc2(figContext, figContext->movedObjects, figX, figY);
    endPaint();
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
    if ((event->modifiers() & Qt::ShiftModifier) && !shift_down) {
        shift_down = true;
        if (canvas_qualifier_proc)
            canvas_qualifier_proc(figContext, 0, 0);
    }
    if (event->modifiers() & Qt::ControlModifier)
        ctrl_down = true;
    if (!isArrowKey(event->key()) && event->key() != Qt::Key_Escape)
        QAbstractScrollArea::keyPressEvent(event);
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

/// A key that was let go over a dialog or another program is not held any more.
void QTChildFrm::forgetReleasedKeys()
{
    const Qt::KeyboardModifiers held = QGuiApplication::queryKeyboardModifiers();
    shift_down = shift_down && (held & Qt::ShiftModifier);
    ctrl_down = ctrl_down && (held & Qt::ControlModifier);
}

void QTChildFrm::focusInEvent(QFocusEvent*)
{
    forgetReleasedKeys();
    updateButtons();
    update_layers(figContext);
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
    emit compoundButtonsStateChanged(false, false, false, false);
    emit convertLineSplineButtonStateChanged(false);
    emit alignButtonsStateChanged(false);
    update_layers(nullptr);
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
