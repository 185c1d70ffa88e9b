// The document window as a view: canvas, zoom, scroll bars, dragging, rulers.
#include "WindowFixture.h"

#include "render/coords.h"
#include "ui/QRuler.h"

#include <QGridLayout>
#include <QScrollBar>

#include <limits>

namespace {

/// Number of canvas pixels that are not background.
int inkOf(const QTChildFrm* child)
{
    int ink = 0;
    for (int y = 0; y < child->canvasImage->height(); ++y)
        for (int x = 0; x < child->canvasImage->width(); ++x)
            ink += child->canvasImage->pixel(x, y) != qRgb(255, 255, 255);
    return ink;
}

void setView(WindowFixture& fixture, float zoom, int shiftX, int shiftY)
{
    fixture.context->zoom = zoom;
    fixture.context->shiftX = shiftX;
    fixture.context->shiftY = shiftY;
    fixture.child->updateRulers(-shiftX, -shiftY);
    fixture.child->updateSliders();
    fixture.child->setSliderPositions(shiftX, shiftY);
}

} // namespace

class TestDocumentView : public QObject {
    Q_OBJECT

private slots:
    void init() { resetProcessState(); }

    void askedSizeIs600By800()
    {
        WindowFixture fixture;
        QCOMPARE(fixture.child->sizeHint(), QSize(600, 800));
    }

    void canvasIsAsLargeAsTheViewportInPremultipliedColours()
    {
        WindowFixture fixture;
        QCOMPARE(fixture.child->canvasImage->size(), fixture.child->viewport()->size());
        QCOMPARE(fixture.child->canvasImage->format(), QImage::Format_ARGB32_Premultiplied);
        fixture.window->resize(560, 510);
        QCoreApplication::processEvents();
        QCOMPARE(fixture.child->canvasImage->size(), fixture.child->viewport()->size());
        QCOMPARE(fixture.child->canvasWidth, fixture.child->viewport()->width());
        QCOMPARE(fixture.child->canvasHeight, fixture.child->viewport()->height());
    }

    void screenShowsTheCanvasAndNothingElse()
    {
        WindowFixture fixture;
        fixture.child->canvasImage->fill(QColor(1, 2, 3));
        const QImage shown = fixture.child->viewport()->grab().toImage();
        QCOMPARE(shown.pixel(0, 0), qRgb(1, 2, 3));
        QCOMPARE(shown.pixel(shown.width() - 1, shown.height() - 1), qRgb(1, 2, 3));
    }

    void repaintRunsNoEngineCode()
    {
        WindowFixture fixture;
        QCoreApplication::processEvents();
        set_action_on();
        elastic_proc = [](CFigContext*, int, int, int, int) { QFAIL("the figure is drawn"); };
        fixture.child->viewport()->repaint();
    }

    void redisplayDrawsTheFigure()
    {
        WindowFixture fixture;
        fixture.context->showPageBorders = false;
        fixture.child->redisplayCanvas();
        const int before = inkOf(fixture.child);
        fixture.addLine(1500, 1500, 4500, 3000);
        fixture.child->redisplayCanvas();
        QVERIFY(inkOf(fixture.child) > before + 150);
        QVERIFY(!fixture.child->painter.isActive());
    }

    void bracketMayRunInsideAnother()
    {
        WindowFixture fixture;
        fixture.child->beginPaint();
        QVERIFY(fixture.child->painter.isActive());
        fixture.child->redisplayCanvas();
        QVERIFY(!fixture.child->painter.isActive());
        fixture.child->endPaint();
        QVERIFY(!fixture.child->painter.isActive());
    }

    void antialiasingOfABracketIsThePreference()
    {
        WindowFixture fixture;
        for (bool on : {true, false}) {
            otherPreferencesData.antialiasing = on;
            fixture.child->beginPaint();
            QCOMPARE(fixture.child->painter.testRenderHint(QPainter::Antialiasing), on);
            fixture.child->endPaint();
        }
    }

    void canvasWithoutPixelsIsNotPaintedOn()
    {
        WindowFixture fixture;
        QResizeEvent shrink(QSize(0, 0), fixture.child->viewport()->size());
        QCoreApplication::sendEvent(fixture.child->viewport(), &shrink);
        QVERIFY(fixture.child->canvasImage->isNull());
        fixture.child->beginPaint();
        QVERIFY(!fixture.child->painter.isActive());
        fixture.child->redisplayCanvas();
        fixture.child->clearCanvas();
        fixture.press(Qt::LeftButton, 0, 0);
    }

    void resizeEndsAPainterThatIsAtWork()
    {
        WindowFixture fixture;
        fixture.child->beginPaint();
        fixture.window->resize(600, 500);
        QCoreApplication::processEvents();
        QVERIFY(!fixture.child->painter.isActive());
        QCOMPARE(fixture.child->canvasImage->size(), fixture.child->viewport()->size());
        fixture.child->endPaint();
    }

    // --- zoom -------------------------------------------------------------------

    void zoomStepsByATenthInTwoDecimals()
    {
        WindowFixture fixture;
        fixture.child->zoomIn();
        QCOMPARE(fixture.context->zoom, 1.1f);
        fixture.child->zoomIn();
        QCOMPARE(fixture.context->zoom, 1.21f);
        fixture.child->zoomIn();
        QCOMPARE(fixture.context->zoom, 1.33f); // 1.331
        fixture.child->zoomOut();
        QCOMPARE(fixture.context->zoom, 1.21f); // 1.2090
    }

    void zoomInFrom99Point5Gives99Point99()
    {
        WindowFixture fixture;
        fixture.context->zoom = 99.5f;
        fixture.child->zoomIn();
        QCOMPARE(fixture.context->zoom, 99.99f);
        fixture.child->zoomIn();
        QCOMPARE(fixture.context->zoom, 99.99f);
    }

    void zoomOutFrom0Point01Stays0Point01()
    {
        WindowFixture fixture;
        fixture.context->zoom = 0.01f;
        fixture.child->zoomOut();
        QCOMPARE(fixture.context->zoom, 0.01f);
    }

    void zoomInFrom0Point01StaysBecauseTheProductRoundsBack()
    {
        WindowFixture fixture;
        fixture.context->zoom = 0.01f;
        fixture.child->zoomIn();
        QCOMPARE(fixture.context->zoom, 0.01f);
    }

    void viewSurvivesItsLimitsWithCoordinatesNearIntMax()
    {
        WindowFixture fixture;
        const int far = std::numeric_limits<int>::max();
        fixture.addLine(-far, -far, far, far)->tagged = true;
        fixture.addLine(0, 600, 1200, far);
        for (int step = 0; step < 60; ++step)
            fixture.child->zoomIn();
        QCOMPARE(fixture.context->zoom, 99.99f);
        fixture.press(Qt::RightButton, 10, 10);
        fixture.move(-30000, 30000, Qt::RightButton);
        for (int step = 0; step < 120; ++step)
            fixture.child->zoomOut();
        QCOMPARE(fixture.context->zoom, 0.05f); // 0.05 / 1.1 rounds back
        fixture.child->zoomToSelection();
        QCOMPARE(fixture.context->zoom, 0.01f);
    }

    void zoomKeepsTheCentreOfTheView()
    {
        WindowFixture fixture;
        setView(fixture, 10, 1000, 2000);
        const int halfWidth = fixture.child->effectiveWidth() / 2;
        const int halfHeight = fixture.child->effectiveHeight() / 2;
        const double x = (1000 + halfWidth) / 10.0, y = (2000 + halfHeight) / 10.0;
        fixture.child->zoomIn();
        QCOMPARE(fixture.context->zoom, 11.0f);
        QVERIFY(qAbs((fixture.context->shiftX + halfWidth) / 11.0 - x) < 0.3);
        QVERIFY(qAbs((fixture.context->shiftY + halfHeight) / 11.0 - y) < 0.3);
        QCOMPARE(fixture.child->hRuler->getOrigin(), double(-fixture.context->shiftX));
        QCOMPARE(fixture.child->vRuler->getOrigin(), double(-fixture.context->shiftY));
    }

    void zoomOutGivesBothRulersTheHorizontalOriginUntilTheNextScroll()
    {
        WindowFixture fixture;
        setView(fixture, 10, 1000, 2000);
        fixture.child->zoomOut();
        QVERIFY(fixture.context->shiftX != fixture.context->shiftY);
        QCOMPARE(fixture.child->hRuler->getOrigin(), double(-fixture.context->shiftX));
        QCOMPARE(fixture.child->vRuler->getOrigin(), double(-fixture.context->shiftX));
        QScrollBar* bar = fixture.child->verticalScrollBar();
        bar->setValue(bar->value() + 5);
        QCOMPARE(fixture.child->vRuler->getOrigin(), double(-bar->value()));
    }

    // The page is 21 cm wide: 661 pixels at zoom 1.
    void zoomInSetsThePositionsBeforeTheRanges()
    {
        WindowFixture fixture({520, 500});
        QScrollBar* bar = fixture.child->horizontalScrollBar();
        const int oldMaximum = 661 - fixture.child->width();
        setView(fixture, 1, oldMaximum, 0);
        QCOMPARE(bar->maximum(), oldMaximum);
        fixture.child->zoomIn();
        QVERIFY(fixture.context->shiftX > oldMaximum);
        QCOMPARE(bar->value(), oldMaximum);
        QCOMPARE(bar->maximum(), 728 - fixture.child->width()); // 727.56 pixels
    }

    void zoomOutSetsTheRangesBeforeThePositions()
    {
        WindowFixture fixture({520, 500});
        setView(fixture, 10, 1000, 2000);
        fixture.child->zoomOut();
        QCOMPARE(fixture.child->horizontalScrollBar()->value(), fixture.context->shiftX);
        QCOMPARE(fixture.child->verticalScrollBar()->value(), fixture.context->shiftY);
    }

    void controlAndWheelZoom()
    {
        WindowFixture fixture;
        fixture.wheel(120, Qt::ControlModifier);
        QCOMPARE(fixture.context->zoom, 1.1f);
        fixture.wheel(-120, Qt::ControlModifier);
        QCOMPARE(fixture.context->zoom, 1.0f);
    }

    void wheelAloneScrolls()
    {
        WindowFixture fixture({520, 500});
        QVERIFY(fixture.child->verticalScrollBar()->isVisible());
        fixture.wheel(-120, Qt::NoModifier);
        QCOMPARE(fixture.context->zoom, 1.0f);
        QVERIFY(fixture.context->shiftY > 0);
        QCOMPARE(fixture.context->shiftY, fixture.child->verticalScrollBar()->value());
    }

    void zoomToSelectionWithNothingTaggedLeavesEverything()
    {
        WindowFixture fixture;
        fixture.addLine(600, 600, 1200, 1200);
        setView(fixture, 2.5f, 300, 400);
        fixture.child->zoomToSelection();
        QCOMPARE(fixture.context->zoom, 2.5f);
        QCOMPARE(fixture.context->shiftX, 300);
        QCOMPARE(fixture.context->shiftY, 400);
        QCOMPARE(fixture.context->savedZoom, -1.0f);
    }

    void zoomToSelectionFillsFourFifthsOfTheWindow()
    {
        WindowFixture fixture;
        fixture.addLine(1500, 1500, 4500, 1800)->tagged = true;
        fixture.child->zoomToSelection();
        // 3000 units and the line's width are 200 or 201 pixels at zoom 1.
        const double wanted = 0.8 * fixture.child->width();
        QVERIFY(fixture.context->zoom <= wanted / 200 + 0.01);
        QVERIFY(fixture.context->zoom >= wanted / 203 - 0.01);
        QCOMPARE(fixture.context->savedZoom, 1.0f);
    }

    void zoomToSelectionWithoutExtentGoesToTheLimit()
    {
        WindowFixture fixture;
        FigLine* line = fixture.addLine(1500, 1500, 1500, 1500);
        line->thickness = 0;
        line->tagged = true;
        fixture.child->zoomToSelection();
        QCOMPARE(fixture.context->zoom, 99.99f);
    }

    void revertBringsTheStoredViewBackAsOftenAsWanted()
    {
        WindowFixture fixture;
        fixture.addLine(1500, 1500, 4500, 1800)->tagged = true;
        setView(fixture, 3, 250, 320);
        fixture.child->zoomToSelection();
        for (int round = 0; round < 2; ++round) {
            fixture.child->zoomToSelectionRevert();
            QCOMPARE(fixture.context->zoom, 3.0f);
            QCOMPARE(fixture.context->shiftX, 250);
            QCOMPARE(fixture.context->shiftY, 320);
            fixture.child->zoomIn();
        }
    }

    void revertWithoutAStoredViewKeepsTheView()
    {
        WindowFixture fixture;
        setView(fixture, 3, 250, 320);
        fixture.child->zoomToSelectionRevert();
        QCOMPARE(fixture.context->zoom, 3.0f);
        QCOMPARE(fixture.context->shiftX, 250);
    }

    // --- scrolling --------------------------------------------------------------

    // 80 / 2.54 x 21 = 661.4 pixels and 80 / 2.54 x 30 = 944.9 pixels.
    void scrollRangesArePageLessWindow()
    {
        WindowFixture fixture;
        fixture.child->updateSliders(500, 400);
        QCOMPARE(fixture.child->horizontalScrollBar()->minimum(), 0);
        QCOMPARE(fixture.child->horizontalScrollBar()->maximum(), 661 - 500);
        QCOMPARE(fixture.child->horizontalScrollBar()->pageStep(), 500);
        QCOMPARE(fixture.child->verticalScrollBar()->maximum(), 945 - 400);
        QCOMPARE(fixture.child->verticalScrollBar()->pageStep(), 400);
    }

    void shiftIsZeroOnTheAxisWhereTheWindowIsLargerThanThePage()
    {
        WindowFixture fixture;
        setView(fixture, 1, 0, 0);
        fixture.context->shiftX = 55;
        fixture.context->shiftY = 66;
        fixture.child->updateSliders(662, 944);
        QCOMPARE(fixture.context->shiftX, 0);
        QCOMPARE(fixture.context->shiftY, 66);
    }

    void rulerFollowsAShiftThatFallsToZero()
    {
        WindowFixture fixture;
        setView(fixture, 10, 1000, 2000);
        fixture.child->updateSliders(100000, 400);
        QCOMPARE(fixture.child->hRuler->getOrigin(), 0.0);
        QCOMPARE(fixture.child->vRuler->getOrigin(), -2000.0);
    }

    void settingTheScrollBarsDoesNotScroll()
    {
        WindowFixture fixture;
        setView(fixture, 10, 1000, 2000);
        fixture.child->setSliderPositions(300, 400);
        QCOMPARE(fixture.child->horizontalScrollBar()->value(), 300);
        QCOMPARE(fixture.context->shiftX, 1000);
        QCOMPARE(fixture.context->shiftY, 2000);
        fixture.child->updateSliders(6000, 9000);
        QCOMPARE(fixture.context->shiftX, 1000);
    }

    void movingABarMovesFigureAndRuler()
    {
        WindowFixture fixture({1000, 500});
        fixture.addLine(0, 1500, 9000, 1500);
        fixture.child->redisplayCanvas();
        const QImage before = *fixture.child->canvasImage;
        fixture.child->verticalScrollBar()->setValue(40);
        QCOMPARE(fixture.context->shiftY, 40);
        QCOMPARE(fixture.child->vRuler->getOrigin(), -40.0);
        // The line at 100 pixels is now at 60.
        QCOMPARE(before.pixel(200, 100), fixture.child->canvasImage->pixel(200, 60));
        QVERIFY(fixture.child->canvasImage->pixel(200, 100) !=
                fixture.child->canvasImage->pixel(200, 60));
    }

    void aHiddenBarDoesNotScroll()
    {
        WindowFixture fixture({1200, 700});
        fixture.context->zoom = 0.1f;
        fixture.child->updateSliders();
        QVERIFY(!fixture.child->horizontalScrollBar()->isVisible());
        fixture.context->shiftX = 7;
        fixture.child->onScrollByX(30);
        QCOMPARE(fixture.context->shiftX, 7);
    }

    void rightButtonDragsTheFigure()
    {
        WindowFixture fixture;
        setView(fixture, 10, 1000, 2000);
        fixture.press(Qt::RightButton, 100, 100);
        fixture.move(130, 90, Qt::RightButton);
        fixture.move(131, 92, Qt::RightButton);
        fixture.release(Qt::RightButton, 131, 92);
        QCOMPARE(fixture.context->shiftX, 1000 - 31);
        QCOMPARE(fixture.context->shiftY, 2000 + 8);
        QCOMPARE(fixture.child->hRuler->getOrigin(), -969.0);
        QCOMPARE(fixture.child->vRuler->getOrigin(), -2008.0);
        QCOMPARE(fixture.child->horizontalScrollBar()->value(), 969);
        QCOMPARE(fixture.child->verticalScrollBar()->value(), 2008);
    }

    void draggingGoesBeyondThePage()
    {
        WindowFixture fixture;
        fixture.press(Qt::RightButton, 100, 100);
        fixture.move(180, 140, Qt::RightButton);
        QCOMPARE(fixture.context->shiftX, -80);
        QCOMPARE(fixture.context->shiftY, -40);
        QCOMPARE(fixture.child->hRuler->getOrigin(), 80.0);
    }

    // At a width near the page's the bars come and go with each other; that must settle.
    void scrollBarsSettleAtEverySize()
    {
        WindowFixture fixture;
        for (int width = 660; width <= 730; ++width) {
            fixture.window->resize(width, 600);
            QCoreApplication::processEvents();
            QCOMPARE(fixture.child->canvasImage->size(), fixture.child->viewport()->size());
        }
        QElapsedTimer timer;
        int paints = 0;
        class Counter : public QObject {
        public:
            int* count;
            bool eventFilter(QObject*, QEvent* event) override
            {
                *count += event->type() == QEvent::Resize;
                return false;
            }
        } counter;
        counter.count = &paints;
        fixture.child->viewport()->installEventFilter(&counter);
        QTest::qWait(50);
        QCOMPARE(paints, 0);
    }

    // --- rulers -----------------------------------------------------------------

    void rulersStandAtTheEdgesOfTheViewport()
    {
        WindowFixture fixture;
        const QTChildFrm* child = fixture.child;
        QCOMPARE(child->hRuler->height(), 20);
        QCOMPARE(child->vRuler->width(), 20);
        QCOMPARE(child->rulerCorner->size(), QSize(20, 20));
        QCOMPARE(child->hRuler->x(), child->viewport()->x());
        QCOMPARE(child->vRuler->y(), child->viewport()->y());
        QCOMPARE(child->hRuler->geometry().bottom() + 1, child->viewport()->y());
        QCOMPARE(child->vRuler->geometry().right() + 1, child->viewport()->x());
        auto* grid = qobject_cast<QGridLayout*>(child->layout());
        QVERIFY(grid);
        QCOMPARE(grid->itemAtPosition(0, 0)->widget(), child->rulerCorner);
        QCOMPARE(grid->itemAtPosition(0, 1)->widget(), child->hRuler);
        QCOMPARE(grid->itemAtPosition(1, 0)->widget(), child->vRuler);
        QCOMPARE(grid->itemAtPosition(1, 1)->widget(), child->viewport());
        QCOMPARE(child->rulerCorner->backgroundRole(), QPalette::Window);
    }

    void turningARulerOffMovesTheMarginToZeroOnThatSide()
    {
        WindowFixture fixture;
        QTChildFrm* child = fixture.child;
        const int border = child->frameWidth();
        child->addRulers(true, false);
        QCoreApplication::processEvents();
        QVERIFY(!child->vRuler && child->hRuler);
        QCOMPARE(child->viewport()->pos(), QPoint(border, border + 20));
        child->addRulers(false, false);
        QCoreApplication::processEvents();
        QVERIFY(!child->vRuler && !child->hRuler && !child->rulerCorner);
        QCOMPARE(child->viewport()->pos(), QPoint(border, border));
        child->addRulers(true, true);
        QCoreApplication::processEvents();
        QCOMPARE(child->viewport()->pos(), QPoint(border + 20, border + 20));
        QCOMPARE(child->canvasImage->size(), child->viewport()->size());
    }

    void rulersAndScrollBarsDoNotOverlap()
    {
        WindowFixture fixture({520, 500});
        const QScrollBar* bar = fixture.child->verticalScrollBar();
        QVERIFY(bar->isVisible());
        const QPoint top = bar->mapTo(fixture.child, QPoint(0, 0));
        QVERIFY(top.y() > fixture.child->hRuler->geometry().bottom());
    }

    void rulerPreferencesDecideOnTheRulers()
    {
        gridPreferences.horzRuler = false;
        WindowFixture fixture;
        QVERIFY(!fixture.child->hRuler);
        QVERIFY(fixture.child->vRuler);
    }

    void hundredRulerStepsAreOneCentimetreOrInch()
    {
        WindowFixture fixture;
        fixture.context->zoom = 2;
        fixture.context->metric = true;
        fixture.child->updateRulers();
        QVERIFY(qAbs(fixture.child->hRuler->getRulerUnit() * 100 - 80 / 2.54 * 2) < 1e-6);
        fixture.context->metric = false;
        fixture.child->updateRulers();
        QVERIFY(qAbs(fixture.child->vRuler->getRulerUnit() * 100 - 160) < 1e-6);
        QCOMPARE(fixture.child->hRuler->getRulerZoom(), 1.0);
    }

    void rulersMarkThePointerOnTheirOwnAxis()
    {
        WindowFixture fixture;
        fixture.move(123, 77);
        QCOMPARE(fixture.child->hRuler->getCursorPos(), QPoint(123, 0));
        QCOMPARE(fixture.child->vRuler->getCursorPos(), QPoint(0, 77));
    }
};

QTEST_MAIN(TestDocumentView)
#include "test_document_view.moc"
