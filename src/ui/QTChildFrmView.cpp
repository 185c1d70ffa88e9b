// The view of a document window: zoom, scroll bars and rulers.
#include "model/FigContext.h"
#include "render/coords.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/u_bound.h"
#include "ui/QRuler.h"
#include "ui/QTChildFrm.h"

#include <QGridLayout>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWidgetItem>

#include <cmath>

namespace {

constexpr double ZOOM_STEP = 1.1;
constexpr double SELECTION_SHARE = 0.8; // of the window that zoomToSelection fills
constexpr int FIT_MARGIN = 60;          // pixels that zoomToFit leaves in each direction

/// Place of the viewport among the rulers. The scroll area alone sets its size: it knows which
/// scroll bars are shown.
class ViewportItem : public QWidgetItem {
public:
    using QWidgetItem::QWidgetItem;
    void setGeometry(const QRect&) override {}
};

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
    followView();
}

void QTChildFrm::zoomToSelectionRevert()
{
    if (figContext->savedZoom != -1)
        figContext->revertZoomAndShift();
    followView();
}

void QTChildFrm::setZoom(double wanted)
{
    const double newZoom = qBound(MIN_ZOOM, round(wanted, 2), MAX_ZOOM);
    if (!std::isfinite(wanted) || static_cast<float>(newZoom) == figContext->zoom)
        return;
    int shiftX, shiftY;
    zoomAroundCentre(newZoom, &shiftX, &shiftY);
    followView();
}

void QTChildFrm::zoomToFit()
{
    int xmin, ymin, xmax, ymax;
    figContext->drawing.getBounds(figContext, &xmin, &ymin, &xmax, &ymax, true, true);
    const double width = double(xmax) - xmin;
    const double height = double(ymax) - ymin;
    if (width == 0 || height == 0)
        return;
    const double unitsX = (viewport()->width() - FIT_MARGIN) * (UNITS_PER_INCH / figContext->ppiX);
    const double unitsY = (viewport()->height() - FIT_MARGIN) * (UNITS_PER_INCH / figContext->ppiY);
    const double wanted = round(qMin(unitsX / width, unitsY / height), 2);
    figContext->zoom = static_cast<float>(qBound(MIN_ZOOM, wanted, MAX_ZOOM));
    getShift4Centering(figContext, &figContext->shiftX, &figContext->shiftY, middle(xmin, xmax),
                       middle(ymin, ymax), figContext->zoom);
    followView();
}

void QTChildFrm::followView()
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
