#include "ui/QTChildFrm.h"

#include "edit/command.h"
#include "edit/mode.h"
#include "fileio/f_read.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/coords.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/u_bound.h"
#include "render/u_redraw.h"
#include "ui/QRuler.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWidgetItem>

namespace {

constexpr double ZOOM_STEP = 1.1;
constexpr double SELECTION_SHARE = 0.8; // of the window that zoomToSelection fills
constexpr int SCROLL_STEP = 20;         // pixels by one click on an arrow of a scroll bar

/// Place of the viewport among the rulers. The scroll area alone sets its size: it knows which
/// scroll bars are shown.
class ViewportItem : public QWidgetItem {
public:
    using QWidgetItem::QWidgetItem;
    void setGeometry(const QRect&) override {}
};

QImage* newCanvas(const QSize& size)
{
    return new QImage(size, QImage::Format_ARGB32_Premultiplied);
}

/// A gesture of the closing document cannot go on: its slots hold pointers into the figure.
void endGesture()
{
    if (!action_on)
        return;
    reset_action_on();
    set_functions(nullptr, nullptr, nullptr, nullptr, nullptr);
    canvas_leftbutUp_proc = nullptr;
    canvas_locmove_proc2 = nullptr;
}

int middle(int from, int to)
{
    return static_cast<int>((static_cast<long>(from) + to) / 2);
}

void setOrigin(QRuler* ruler, double origin)
{
    if (ruler)
        ruler->setOrigin(origin);
}

} // namespace

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
    setCurrentFile(fileName);
    // Relative picture paths and the stored "last directory" start from here.
    QDir::setCurrent(QFileInfo(fileName).path());
    updateRulers(-figContext->shiftX, -figContext->shiftY);
    return true;
}

void QTChildFrm::setCurrentFile(const QString& fileName)
{
    const QFileInfo file(fileName);
    curFile = file.isFile() ? file.canonicalFilePath() : fileName;
    isUntitled = false;
    setWindowModified(false);
    setWindowTitle(userFriendlyCurrentFile() + "[*]");
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

void QTChildFrm::beginPaint()
{
    startPainter();
    setAntialiasing(otherPreferencesData.antialiasing);
}

void QTChildFrm::endPaint()
{
    if (painter.isActive())
        painter.end();
    viewport()->repaint();
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
    paint([=] { refresh_obj_area(figContext, list, exclude); });
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

// --- zoom -------------------------------------------------------------------

QSize QTChildFrm::sizeHint() const
{
    return {600, 800};
}

int QTChildFrm::effectiveWidth() const
{
    const QScrollBar* bar = verticalScrollBar();
    return width() - (bar->isVisible() ? bar->width() : 0);
}

int QTChildFrm::effectiveHeight() const
{
    const QScrollBar* bar = horizontalScrollBar();
    return height() - (bar->isVisible() ? bar->height() : 0);
}

/// Sets the zoom and the shift that keeps the centre of the view.
void QTChildFrm::zoomAroundCentre(double newZoom, int* shiftX, int* shiftY)
{
    const float oldZoom = figContext->zoom;
    figContext->zoom = static_cast<float>(newZoom);
    getShift4Centering(figContext, shiftX, shiftY, figContext->shiftX, figContext->shiftY, oldZoom,
                       figContext->zoom);
    figContext->shiftX = *shiftX;
    figContext->shiftY = *shiftY;
}

void QTChildFrm::zoomIn()
{
    int shiftX, shiftY;
    zoomAroundCentre(qMin(round(figContext->zoom * ZOOM_STEP, 2), MAX_ZOOM), &shiftX, &shiftY);
    updateRulers(-shiftX, -shiftY);
    // The positions come first here, so they are limited by the old ranges.
    setSliderPositions(shiftX, shiftY);
    updateSliders();
    redisplayCanvas();
}

void QTChildFrm::zoomOut()
{
    int shiftX, shiftY;
    zoomAroundCentre(qMax(round(figContext->zoom / ZOOM_STEP, 2), MIN_ZOOM), &shiftX, &shiftY);
    // Both rulers start from the horizontal shift; the next scroll sets the vertical one right.
    updateRulers(-shiftX, -shiftX);
    updateSliders();
    setSliderPositions(shiftX, shiftY);
    redisplayCanvas();
}

void QTChildFrm::zoomToSelection()
{
    if (!isAnyObjectTagged())
        return;
    figContext->saveZoomAndShift();
    int xmin, ymin, xmax, ymax;
    tagged_objects_bound(figContext, figContext->getWorkingRoot(), &xmin, &ymin, &xmax, &ymax);
    // A selection without extent gives an infinite factor, which the limit brings down.
    const int selectionWidth = round2(scaledX(figContext, round2(double(xmax) - xmin)));
    const int selectionHeight = round2(scaledY(figContext, round2(double(ymax) - ymin)));
    const double factorX = SELECTION_SHARE * width() / selectionWidth;
    const double factorY = SELECTION_SHARE * height() / selectionHeight;
    const double wanted = qMin(qMin(factorX, factorY) * figContext->zoom, MAX_ZOOM);
    figContext->zoom = static_cast<float>(qMax(round(wanted, 2), MIN_ZOOM));
    getShift4Centering(figContext, &figContext->shiftX, &figContext->shiftY, middle(xmin, xmax),
                       middle(ymin, ymax), figContext->zoom);
    followSelectionView();
}

void QTChildFrm::zoomToSelectionRevert()
{
    if (figContext->savedZoom != -1)
        figContext->revertZoomAndShift();
    followSelectionView();
}

void QTChildFrm::followSelectionView()
{
    updateRulers(-figContext->shiftX, -figContext->shiftY);
    updateSliders();
    setSliderPositions(figContext->shiftX, figContext->shiftY);
    redisplayCanvas();
}

// --- scrolling --------------------------------------------------------------

void QTChildFrm::updateSliders()
{
    updateSliders(width(), height());
}

void QTChildFrm::updateSliders(int width, int height)
{
    const QScopedValueRollback<bool> hold(slidersHeld, true);
    float pageWidth, pageHeight;
    getPagesizes(figContext, &pageWidth, &pageHeight);
    fitSlider(horizontalScrollBar(), figContext->ppiX, pageWidth, width, &figContext->shiftX,
              hRuler);
    fitSlider(verticalScrollBar(), figContext->ppiY, pageHeight, height, &figContext->shiftY,
              vRuler);
}

/// Range of one bar for a page size in centimetres and a window size in pixels.
void QTChildFrm::fitSlider(QScrollBar* bar, float ppi, float pageSize, int size, int* shift,
                           QRuler* ruler)
{
    const int pagePixels = round2(ppi / 2.54 * pageSize * figContext->zoom);
    bar->setPageStep(size);
    bar->setRange(0, pagePixels - size);
    if (size > pagePixels && *shift != 0) {
        *shift = 0;
        setOrigin(ruler, 0);
    }
}

void QTChildFrm::setSliderPositions(int x, int y)
{
    const QScopedValueRollback<bool> hold(slidersHeld, true);
    horizontalScrollBar()->setValue(x);
    verticalScrollBar()->setValue(y);
}

void QTChildFrm::onScrollByX(int value)
{
    scrollTo(horizontalScrollBar(), value, &figContext->shiftX, hRuler);
}

void QTChildFrm::onScrollByY(int value)
{
    scrollTo(verticalScrollBar(), value, &figContext->shiftY, vRuler);
}

void QTChildFrm::scrollTo(QScrollBar* bar, int value, int* shift, QRuler* ruler)
{
    if (slidersHeld)
        return;
    if (bar->isVisible()) {
        *shift = value;
        setOrigin(ruler, -value);
    }
    redisplayCanvas();
}

// --- rulers -----------------------------------------------------------------

void QTChildFrm::removeRulers()
{
    delete layout();
    delete hRuler;
    delete vRuler;
    delete rulerCorner;
    qDeleteAll(rulerSpacers);
    hRuler = nullptr;
    vRuler = nullptr;
    rulerCorner = nullptr;
    rulerSpacers.clear();
}

/// The rulers run over the ends of the scroll bars, whose arrows must stay in sight.
void QTChildFrm::reserveRulerSpace(Qt::Alignment end)
{
    auto* spacer = new QWidget(this);
    if (end == Qt::AlignTop)
        spacer->setFixedHeight(QRuler::THICKNESS);
    else
        spacer->setFixedWidth(QRuler::THICKNESS);
    addScrollBarWidget(spacer, end);
    rulerSpacers.append(spacer);
}

void QTChildFrm::addRulers(bool horizontal, bool vertical)
{
    removeRulers();
    setViewportMargins(vertical ? QRuler::THICKNESS : 0, horizontal ? QRuler::THICKNESS : 0, 0, 0);
    auto* grid = new QGridLayout(this);
    grid->setSpacing(0);
    grid->setContentsMargins(0, 0, 0, 0);
    if (horizontal && vertical) {
        rulerCorner = new QWidget(this);
        rulerCorner->setBackgroundRole(QPalette::Window);
        rulerCorner->setAutoFillBackground(true);
        rulerCorner->setFixedSize(QRuler::THICKNESS, QRuler::THICKNESS);
        grid->addWidget(rulerCorner, 0, 0);
    }
    if (horizontal) {
        hRuler = new QRuler(QRuler::Horizontal, this);
        grid->addWidget(hRuler, 0, 1);
        reserveRulerSpace(Qt::AlignTop);
    }
    if (vertical) {
        vRuler = new QRuler(QRuler::Vertical, this);
        grid->addWidget(vRuler, 1, 0);
        reserveRulerSpace(Qt::AlignLeft);
    }
    grid->addItem(new ViewportItem(viewport()), 1, 1);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(1, 1);
    updateRulers(-figContext->shiftX, -figContext->shiftY);
}

/// A hundred ruler steps are one centimetre or one inch of the figure on the screen.
void QTChildFrm::updateRulers()
{
    const double unit = (figContext->metric ? 1 / 2.54 : 1.0) * figContext->zoom / 100;
    if (hRuler)
        hRuler->setRulerUnit(figContext->ppiX * unit);
    if (vRuler)
        vRuler->setRulerUnit(figContext->ppiY * unit);
}

void QTChildFrm::updateRulers(double originX, double originY)
{
    setOrigin(hRuler, originX);
    setOrigin(vRuler, originY);
    updateRulers();
}
