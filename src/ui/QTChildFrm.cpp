#include "ui/QTChildFrm.h"

#include "edit/command.h"
#include "edit/mode.h"
#include "edit/u_reshaping.h"
#include "fileio/f_read.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/shell.h"
#include "render/gfx_lowlevel.h"
#include "render/markers.h"
#include "render/u_redraw.h"
#include "ui/QRuler.h"
#include "ui/QTMainFrm.h"
#include "ui/application.h"

#include <QDir>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QScrollBar>

namespace {

constexpr int SCROLL_STEP = 20; // pixels by one click on an arrow of a scroll bar

QImage* newCanvas(const QSize& size)
{
    return new QImage(size, QImage::Format_ARGB32_Premultiplied);
}

} // namespace

QTChildFrm* documentOf(const QMdiSubWindow* window)
{
    return window ? qobject_cast<QTChildFrm*>(window->widget()) : nullptr;
}

QTChildFrm::QTChildFrm(QTMainFrm* mainWindow) : mainFrm(mainWindow)
{
    setAttribute(Qt::WA_DeleteOnClose);
    figContext = new CFigContext(this);
    figContext->setPainter(&painter);
    addRulers(gridPreferences.horzRuler, gridPreferences.vertRuler);
    canvasImage = newCanvas(size());
    horizontalScrollBar()->setSingleStep(SCROLL_STEP);
    verticalScrollBar()->setSingleStep(SCROLL_STEP);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &QTChildFrm::onScrollByX);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &QTChildFrm::onScrollByY);
    connect(this, &QTChildFrm::redisplayCanvasSignal, this, &QTChildFrm::redisplayCanvasOnSignal);
    setMouseTracking(true);
    clearCanvas();
}

QTChildFrm::~QTChildFrm()
{
    endGesture();
    // A window that was closed may go after the main window.
    if (mainWnd)
        mainWnd->forgetColors(figContext);
    delete figContext;
    figContext = nullptr;
    if (painter.isActive())
        painter.end();
    delete canvasImage;
}

// --- the document -----------------------------------------------------------

void QTChildFrm::newFile()
{
    static int sequenceNumber = 1;
    isUntitled = true;
    figContext->resetModifiedflag();
    curFile = QString("document%1.fig").arg(sequenceNumber++);
    setWindowTitle(curFile + "[*]");
}

bool QTChildFrm::loadFile(const QString& fileName)
{
    if (!load_file(figContext, fileName))
        return false;
    if (pointmarker_shown)
        showPointMarker();
    setCurrentFile(fileName);
    // Relative picture paths and the stored "last directory" start from here.
    QDir::setCurrent(QFileInfo(fileName).path());
    updateRulers(-figContext->shiftX, -figContext->shiftY);
    shell_log("opened file " + fileName);
    return true;
}

QString QTChildFrm::userFriendlyCurrentFile() const
{
    return strippedName(curFile);
}

QString QTChildFrm::strippedName(const QString& fullFileName)
{
    return QFileInfo(fullFileName).fileName();
}

// --- painting ---------------------------------------------------------------

void QTChildFrm::startPainter()
{
    // A canvas without pixels cannot be painted on; what would draw is left out.
    if (!painter.isActive() && !canvasImage->isNull())
        painter.begin(canvasImage);
}

void QTChildFrm::setAntialiasing(bool on)
{
    if (painter.isActive())
        painter.setRenderHint(QPainter::Antialiasing, on);
}

/// Whoever draws may have changed the figure.
void QTChildFrm::forgetFoundObject()
{
    pickBoxes.drop();
    mainFrm->setObjectUnderCursor(nullptr);
}

void QTChildFrm::beginPaint()
{
    forgetFoundObject();
    startPainter();
    setAntialiasing(otherPreferencesData.antialiasing);
}

void QTChildFrm::endPaint()
{
    if (painter.isActive() && !gestureHoldsObjects(figContext)) {
        setAntialiasing(otherPreferencesData.antialiasing);
        finish_feedback(figContext);
    }
    if (painter.isActive())
        painter.end();
    viewport()->repaint();
    mainFrm->updateHistoryActions();
}

template <typename Work> void QTChildFrm::paint(Work work)
{
    beginPaint();
    if (painter.isActive())
        work();
    endPaint();
}

void QTChildFrm::redisplayCanvas()
{
    paint([this] { redisplay_canvas(figContext); });
}

void QTChildFrm::redisplayCanvasUpdate()
{
    beginPaint();
    if (painter.isActive()) {
        redisplay_canvas(figContext);
        painter.end();
    }
    viewport()->update();
}

void QTChildFrm::redisplayCanvasOnSignal()
{
    redisplayCanvas();
    viewport()->update();
}

void QTChildFrm::clearCanvas()
{
    paint([this] {
        clear_canvas(figContext, gridPreferences.backgroundColour, 0, 0, width(), height());
    });
}

void QTChildFrm::redisplayObjectList(FigObjectList* list, int depth)
{
    paint([=] { redisplay_object_list(figContext, list, depth, nullptr); });
}

void QTChildFrm::refreshObjArea(FigObject* object, bool exclude)
{
    paint([=] { refresh_obj_area(figContext, object, exclude); });
}

void QTChildFrm::refreshObjArea(FigObjectList* list, bool exclude)
{
    paint([=] { refresh_marked_area(figContext, list, exclude); });
}

/// A gesture of the closing document cannot go on: its slots work on the figure.
void QTChildFrm::endGesture()
{
    const bool hasNoOwner = action_on && !gestureContext;
    if (gestureContext != figContext && !hasNoOwner)
        return;
    abandonGesture(figContext);
    set_functions(nullptr, nullptr, nullptr, nullptr, nullptr);
    mainFrm->showGestureHint();
}

void QTChildFrm::replaceCanvas(int width, int height)
{
    // A dialog opened from a press can resize the window while the painter is at work.
    if (painter.isActive())
        painter.end();
    delete canvasImage;
    canvasImage = newCanvas({width, height});
    canvasWidth = width;
    canvasHeight = height;
}
