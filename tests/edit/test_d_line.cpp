#include "ToolFixture.h"
#include "edit/d_line.h"
#include "edit/u_elastic.h"
#include "render/grid.h"

#include <QtTest>

#include <climits>

namespace {

const QString polyline = "2 1 0 1 0 7 50 0 -1 4.000 0 0 0 0 0 ";
const QString polygon = "2 3 0 1 0 7 50 0 -1 4.000 0 0 0 0 0 ";

struct LineDocument : ToolDocument {
    explicit LineDocument(int command) { choose(command, line_drawing_selected); }
};

} // namespace

class TestLineTool : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        engine.reset(new EngineTables);
        createMarkers();
    }
    void cleanupTestCase()
    {
        destroyMarkers();
        engine.reset();
    }

    // --- polylines ------------------------------------------------------------------------

    void leftClicksCollectAndARightClickFinishes()
    {
        LineDocument document(CMD_POLYLINE);
        document.left(600, 600);
        document.move(900, 1000);
        document.moveAndLeft(1800, 600);
        document.moveAndLeft(1800, 1800);
        document.moveAndRight(3000, 2400);
        QCOMPARE(document.records(), polyline + "4\n\t 600 600 1800 600 1800 1800 3000 2400\n");
        QVERIFY(document.isIdle(init_line_drawing));
        QVERIFY(!document.ctx.firstPoint && !document.ctx.lastPoint);
        QCOMPARE(document.image, document.redrawn());
    }

    void aRightClickInTheIdleToolMakesADot()
    {
        LineDocument document(CMD_POLYLINE);
        autoforwardarrow_mode = autobackwardarrow_mode = true;
        document.right(900, 1200);
        QCOMPARE(document.records(), polyline + "1\n\t 900 1200\n");
        QVERIFY(document.isIdle(init_line_drawing));
        document.right(1500, 1200);
        QCOMPARE(document.count(), 2);
        QCOMPARE(document.image, document.redrawn());
    }

    void leftThenRightAtTheSamePlaceMakesALineOfOnePoint()
    {
        LineDocument document(CMD_POLYLINE);
        autoforwardarrow_mode = true;
        document.left(900, 1200);
        document.right(900, 1200);
        QCOMPARE(document.records(), polyline + "1\n\t 900 1200\n");
    }

    void aRightClickOnTheLastPointAddsNone()
    {
        LineDocument document(CMD_POLYLINE);
        document.left(600, 600);
        document.moveAndLeft(1800, 600);
        document.right(1800, 600);
        QCOMPARE(document.records(), polyline + "2\n\t 600 600 1800 600\n");
    }

    void theAttributesAreThePresentOnes()
    {
        LineDocument document(CMD_POLYLINE);
        cur_linewidth = 4;
        cur_linestyle = 2;
        cur_styleval = 3.0f; // (4 + 1) * 3 / 2
        cur_joinstyle = 1;
        cur_capstyle = 2;
        cur_depth = 37;
        document.ctx.cur_pencolor = 4;
        document.ctx.cur_fillcolor = 6;
        document.ctx.cur_fillstyle = 20;
        document.left(600, 600);
        document.right(1800, 600);
        QCOMPARE(document.records(),
                 QString("2 1 2 4 4 6 37 0 20 7.500 1 2 0 0 0 2\n\t 600 600 1800 600\n"));
    }

    // Type 3 is kind 2, hollow; type 2 is kind 1, filled. The sizes are multiples of
    // cur_arrowthick.
    void openLinesGetTheArrowsOfTheAutomaticModes()
    {
        LineDocument document(CMD_POLYLINE);
        cur_farrowtype = 3;
        cur_barrowtype = 2;
        cur_arrowthick = 2;
        autoforwardarrow_mode = true;
        document.left(600, 600);
        document.right(1800, 600);
        autobackwardarrow_mode = true;
        document.left(600, 1600);
        document.right(1800, 1600);
        QCOMPARE(document.records(),
                 QString("2 1 0 1 0 7 50 0 -1 4.000 0 0 0 1 0 2\n\t2 0 2.00 120.00 240.00\n"
                         "\t 600 600 1800 600\n"
                         "2 1 0 1 0 7 50 0 -1 4.000 0 0 0 1 1 2\n\t2 0 2.00 120.00 240.00\n"
                         "\t1 1 2.00 120.00 240.00\n\t 600 1600 1800 1600\n"));
    }

    // --- polygons -------------------------------------------------------------------------

    void aPolygonIsClosedByItsFirstPoint()
    {
        LineDocument document(CMD_POLYGON);
        autoforwardarrow_mode = true;
        document.left(600, 600);
        document.moveAndLeft(1800, 600);
        document.moveAndRight(1800, 1800);
        QCOMPARE(document.records(), polygon + "4\n\t 600 600 1800 600 1800 1800 600 600\n");
        QCOMPARE(num_point, 4);
        QVERIFY(document.isIdle(init_line_drawing));
        QCOMPARE(document.image, document.redrawn());
    }

    void theFinishReachesItsSlotAtTheSecondClickOfAPolygon()
    {
        LineDocument document(CMD_POLYGON);
        QCOMPARE(min_num_points, 3);
        QVERIFY(!canvas_middlebut_proc);
        document.left(600, 600);
        QVERIFY(!canvas_middlebut_proc);
        document.right(900, 900); // nobody there
        QCOMPARE(num_point, 1);
        document.left(1800, 600);
        QVERIFY(canvas_middlebut_proc == create_lineobject);
    }

    // Two corners are enough for it, although a polygon should have three.
    void aPolygonFinishedOnItsSecondPointHasTwoCorners()
    {
        LineDocument document(CMD_POLYGON);
        document.left(600, 600);
        document.left(1800, 600);
        document.right(1800, 600);
        QCOMPARE(document.records(), polygon + "3\n\t 600 600 1800 600 600 600\n");
    }

    // --- states ---------------------------------------------------------------------------

    void theIdlePolylineToolForgetsItsAnchor()
    {
        LineDocument document(CMD_POLYLINE);
        QCOMPARE(min_num_points, 1);
        QCOMPARE(num_point, 0);
        QCOMPARE(QPoint(fix_x, fix_y), QPoint(-1, -1));
        QVERIFY(canvas_leftbut_proc == init_line_drawing);
        QVERIFY(canvas_middlebut_proc == create_lineobject);
        QVERIFY(!canvas_locmove_proc);
        line_drawing_selected(nullptr);
    }

    void thePressBeginsTheChain()
    {
        LineDocument document(CMD_POLYLINE);
        FigLine former;
        document.ctx.curObject = &former;
        document.left(600, 900);
        QVERIFY(!document.ctx.curObject);
        QCOMPARE(chainOf(document.ctx.firstPoint), QVector<QPoint>{QPoint(600, 900)});
        QVERIFY(document.ctx.lastPoint == document.ctx.firstPoint);
        QVERIFY(canvas_leftbut_proc == get_intermediatepoint);
        QVERIFY(canvas_middlebut_save == create_lineobject);
        QVERIFY(elastic_proc == elastic_line);
        QCOMPARE(action_on, 1);
        QCOMPARE(num_point, 1);
        QCOMPARE(QPoint(fix_x, fix_y), QPoint(600, 900));
        QCOMPARE(QPoint(last_edited_point.x, last_edited_point.y), QPoint(600, 900));
    }

    void theModesChooseTheRubberLineWhenTheGestureStarts_data()
    {
        QTest::addColumn<int>("manhattan");
        QTest::addColumn<int>("mountain");
        QTest::addColumn<int>("latexLine");
        QTest::addColumn<int>("latexArrow");
        QTest::addColumn<int>("expected"); // 0 free, 1 constrained, 2 LaTeX
        QTest::newRow("none") << 0 << 0 << 0 << 0 << 0;
        QTest::newRow("manhattan") << 1 << 0 << 0 << 0 << 1;
        QTest::newRow("mountain") << 0 << 1 << 0 << 0 << 1;
        QTest::newRow("both") << 1 << 1 << 0 << 0 << 1;
        QTest::newRow("latex line") << 0 << 0 << 1 << 0 << 2;
        QTest::newRow("latex arrow") << 0 << 0 << 0 << 1 << 2;
        QTest::newRow("latex before the others") << 1 << 1 << 1 << 0 << 2;
    }

    void theModesChooseTheRubberLineWhenTheGestureStarts()
    {
        QFETCH(int, manhattan);
        QFETCH(int, mountain);
        QFETCH(int, latexLine);
        QFETCH(int, latexArrow);
        QFETCH(int, expected);
        LineDocument document(CMD_POLYLINE);
        manhattan_mode = manhattan;
        mountain_mode = mountain;
        latexline_mode = latexLine;
        latexarrow_mode = latexArrow;
        document.left(600, 600);
        resetConstraints(); // a change in mid-gesture comes too late
        document.left(700, 700);
        const PointerProc procedures[] = {freehand_line, constrainedangle_line, latex_line};
        QVERIFY(canvas_locmove_proc == procedures[expected]);
    }

    // --- constraints ------------------------------------------------------------------------

    void everyPointObeysTheConstraintTheLastOneToo()
    {
        LineDocument document(CMD_POLYLINE);
        manhattan_mode = 1;
        document.left(600, 600);
        document.moveAndLeft(1800, 800);  // flat
        document.moveAndLeft(2000, 2400); // steep
        document.moveAndRight(3000, 2500);
        QCOMPARE(document.records(), polyline + "4\n\t 600 600 1800 600 1800 2400 3000 2400\n");
        QCOMPARE(document.image, document.redrawn());
    }

    void diagonalsAreKept()
    {
        LineDocument document(CMD_POLYGON);
        mountain_mode = 1;
        document.left(600, 600);
        document.left(1800, 700);  // falling: 1800 - 600 down
        document.left(2400, 1500); // rising: 600 up
        document.right(2400, 600); // straight up: the falling diagonal, 600 up and to the left
        QCOMPARE(document.records(),
                 polygon + "5\n\t 600 600 1800 1800 2400 1200 1800 600 600 600\n");
    }

    void theCoordinateReadOutKeepsTheClickItself()
    {
        LineDocument document(CMD_POLYLINE);
        manhattan_mode = 1;
        document.left(600, 600);
        document.left(1800, 800);
        QCOMPARE(QPoint(last_edited_point.x, last_edited_point.y), QPoint(1800, 800));
        QCOMPARE(QPoint(fix_x, fix_y), QPoint(1800, 600));
    }

    // The constraint passes such a click by, so the place counts where the rubber line was.
    void aClickWithinTwoUnitsOfTheAnchorAddsTheFormerEnd()
    {
        LineDocument document(CMD_POLYLINE);
        manhattan_mode = 1;
        document.left(600, 600);
        document.move(1800, 700);
        document.left(601, 600);
        document.moveAndRight(1800, 1800);
        QCOMPARE(document.records(), polyline + "3\n\t 600 600 1800 600 1800 1800\n");
    }

    // (1000, 600) from the first point: slope (5,3) for lines, (3,2) for arrows, by units.
    void latexSlopesAreKept()
    {
        gridPreferences.snapMode = 1;
        LineDocument document(CMD_POLYLINE);
        gridPreferences.snapMode = 1;
        latexline_mode = 1;
        document.left(600, 600);
        document.right(1601, 1202);
        latexline_mode = 0;
        latexarrow_mode = 1;
        document.left(600, 600);
        document.right(1600, 1200);
        QCOMPARE(document.records(),
                 polyline + "2\n\t 600 600 1600 1200\n" + polyline + "2\n\t 600 600 1599 1266\n");
    }

    // --- gestures that were cut short ----------------------------------------------------------

    void aPressWithoutAChainBeginsOne()
    {
        LineDocument document(CMD_POLYLINE);
        document.left(600, 600);
        freeChain(document);
        document.left(900, 900);
        QCOMPARE(chainOf(document.ctx.firstPoint), QVector<QPoint>{QPoint(900, 900)});
        QCOMPARE(num_point, 1);
        document.right(1800, 900);
        QCOMPARE(document.records(), polyline + "2\n\t 900 900 1800 900\n");
    }

    void aFinishWithoutAChainReturnsToIdle()
    {
        LineDocument document(CMD_POLYLINE);
        document.left(600, 600);
        freeChain(document);
        document.right(900, 900);
        QCOMPARE(document.count(), 0);
        QVERIFY(document.isIdle(init_line_drawing));
    }

    void aPressThatBeginsAnewFreesTheChainThatWasLeft()
    {
        LineDocument document(CMD_POLYLINE);
        document.left(600, 600);
        line_drawing_selected(&document.ctx); // the button once more
        document.left(900, 900);
        document.right(1800, 900);
        QCOMPARE(document.records(), polyline + "2\n\t 900 900 1800 900\n");
    }

    // No state installs the cancel, but it works.
    void theCancelWipesTheWholeChain()
    {
        LineDocument document(CMD_POLYLINE);
        const QImage before = document.image;
        document.left(600, 600);
        document.moveAndLeft(1800, 600);
        document.moveAndLeft(1800, 1800);
        document.move(3000, 900);
        document.paint(false, [&] { cancel_line_drawing(&document.ctx, 0, 0, nullptr); });
        QVERIFY(!document.ctx.firstPoint);
        QVERIFY(document.isIdle(init_line_drawing));
        QVERIFY(differingPixels(document.image, before) <= 3); // the joints
        cancel_line_drawing(nullptr, 0, 0, nullptr);
    }

    void clicksAtTheLimitsOfCoordinatesMakeALine_data()
    {
        QTest::addColumn<int>("manhattan");
        QTest::addColumn<int>("latex");
        QTest::newRow("free") << 0 << 0;
        QTest::newRow("manhattan") << 1 << 0;
        QTest::newRow("latex") << 0 << 1;
    }

    void clicksAtTheLimitsOfCoordinatesMakeALine()
    {
        QFETCH(int, manhattan);
        QFETCH(int, latex);
        LineDocument document(CMD_POLYLINE);
        manhattan_mode = manhattan;
        latexline_mode = latex;
        document.left(INT_MIN, INT_MAX);
        document.moveAndLeft(INT_MAX, INT_MIN);
        document.moveAndLeft(INT_MIN, 0);
        document.moveAndRight(INT_MAX, INT_MAX);
        QCOMPARE(document.count(), 1);
    }

private:
    static void freeChain(ToolDocument& document)
    {
        free_points(document.ctx.firstPoint);
        document.ctx.firstPoint = document.ctx.lastPoint = nullptr;
    }
    static int differingPixels(const QImage& a, const QImage& b)
    {
        int count = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                count += a.pixel(x, y) != b.pixel(x, y);
        return count;
    }

    QScopedPointer<EngineTables> engine;
};

QTEST_MAIN(TestLineTool)
#include "test_d_line.moc"
