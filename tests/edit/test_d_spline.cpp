#include "ToolFixture.h"
#include "edit/d_spline.h"
#include "edit/u_elastic.h"

#include <QtTest>

#include <climits>

namespace {

struct SplineDocument : ToolDocument {
    explicit SplineDocument(int command) { choose(command, spline_drawing_selected); }
};

bool isClosedCommand(int command)
{
    return command == CMD_CLOSED_SPLINE || command == CMD_CLOSED_INT_SPLINE;
}

} // namespace

class TestSplineTool : public QObject {
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

    void eachCommandMakesItsKind_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<int>("subType");
        QTest::addColumn<QString>("factors");
        QTest::newRow("open") << int(CMD_OPEN_SPLINE) << 0 << "0.000 1.000 1.000 0.000";
        QTest::newRow("closed") << int(CMD_CLOSED_SPLINE) << 1 << "1.000 1.000 1.000 1.000";
        QTest::newRow("interpolated") << int(CMD_INT_SPLINE) << 2 << "0.000 -1.000 -1.000 0.000";
        QTest::newRow("closed interpolated")
            << int(CMD_CLOSED_INT_SPLINE) << 3 << "-1.000 -1.000 -1.000 -1.000";
    }

    // With both automatic arrows: an open spline gets them, a closed one none.
    void eachCommandMakesItsKind()
    {
        QFETCH(int, command);
        QFETCH(int, subType);
        QFETCH(QString, factors);
        SplineDocument document(command);
        cur_capstyle = 1;
        cur_farrowtype = 1;
        autoforwardarrow_mode = autobackwardarrow_mode = true;
        document.left(600, 600);
        document.moveAndLeft(1800, 600);
        document.moveAndLeft(1800, 1800);
        document.moveAndRight(3000, 2400);
        const bool closed = isClosedCommand(command);
        QCOMPARE(document.records(),
                 QString("3 %1 0 1 0 7 50 0 -1 4.000 1 %2 4\n%3"
                         "\t 600 600 1800 600 1800 1800 3000 2400\n\t %4\n")
                     .arg(subType)
                     .arg(closed ? "0 0" : "1 1")
                     .arg(closed ? "" : "\t1 0 1.00 60.00 120.00\n\t0 0 1.00 60.00 120.00\n")
                     .arg(factors));
        QVERIFY(document.isIdle(init_spline_drawing));
        QVERIFY(!document.ctx.firstPoint && !document.ctx.lastPoint);
        QCOMPARE(document.image, document.redrawn());
    }

    void thePressInstallsTheFinishOfOpenSplinesOnly_data()
    {
        QTest::addColumn<int>("command");
        for (int command = CMD_OPEN_SPLINE; command <= CMD_CLOSED_INT_SPLINE; ++command)
            QTest::addRow("command %d", command) << command;
    }

    void thePressInstallsTheFinishOfOpenSplinesOnly()
    {
        QFETCH(int, command);
        SplineDocument document(command);
        QVERIFY(document.isIdle(init_spline_drawing));
        QVERIFY(!canvas_middlebut_proc);
        document.left(600, 600);
        const bool closed = isClosedCommand(command);
        QCOMPARE(min_num_points, closed ? 3 : 2);
        QVERIFY(canvas_middlebut_proc == (closed ? nullptr : create_splineobject));
        QVERIFY(!closed || canvas_middlebut_save == create_splineobject);
        QVERIFY(elastic_proc == elastic_line);
        QCOMPARE(action_on, 1);
        document.left(1800, 600);
        QVERIFY(canvas_middlebut_proc == create_splineobject);
    }

    void aClosedSplineIsFinishedByARightClickAfterTwoLeftOnes()
    {
        SplineDocument document(CMD_CLOSED_SPLINE);
        document.left(600, 600);
        document.left(1800, 600);
        document.right(1800, 1800);
        QCOMPARE(document.records(), QString("3 1 0 1 0 7 50 0 -1 4.000 0 0 0 3\n"
                                             "\t 600 600 1800 600 1800 1800\n"
                                             "\t 1.000 1.000 1.000\n"));
    }

    void aRightClickOnTheLastOfTwoPointsAddsNoneToAnOpenSpline()
    {
        SplineDocument document(CMD_OPEN_SPLINE);
        document.left(600, 600);
        document.left(1800, 600);
        document.right(1800, 600);
        QCOMPARE(document.records(), QString("3 0 0 1 0 7 50 0 -1 4.000 0 0 0 2\n"
                                             "\t 600 600 1800 600\n\t 0.000 0.000\n"));
    }

    void aRightClickOnTheLastPointCountsWhileThereAreTooFew()
    {
        SplineDocument document(CMD_OPEN_SPLINE);
        document.left(600, 600);
        document.right(600, 600);
        QCOMPARE(document.records(), QString("3 0 0 1 0 7 50 0 -1 4.000 0 0 0 2\n"
                                             "\t 600 600 600 600\n\t 0.000 0.000\n"));
        document.choose(CMD_CLOSED_INT_SPLINE, spline_drawing_selected);
        document.left(600, 600);
        document.left(1800, 600);
        document.right(1800, 600);
        QCOMPARE(chainOf(static_cast<FigSpline*>(document.object(1))->points),
                 (QVector<QPoint>{{600, 600}, {1800, 600}, {1800, 600}}));
    }

    void theConstraintModesHoldForControlPoints()
    {
        SplineDocument document(CMD_INT_SPLINE);
        manhattan_mode = mountain_mode = 1;
        document.left(600, 600);
        document.moveAndLeft(1800, 800);   // 9.5 degrees: horizontal
        document.moveAndLeft(2900, 1500);  // -39 degrees: falling, by the longer axis
        document.moveAndRight(2800, 3000); // nearly upright
        QCOMPARE(chainOf(static_cast<FigSpline*>(document.object(0))->points),
                 (QVector<QPoint>{{600, 600}, {1800, 600}, {2900, 1700}, {2900, 3000}}));
        QCOMPARE(document.image, document.redrawn());
    }

    void aPressWithoutAChainBeginsASpline()
    {
        SplineDocument document(CMD_CLOSED_SPLINE);
        document.left(600, 600);
        free_points(document.ctx.firstPoint);
        document.ctx.firstPoint = document.ctx.lastPoint = nullptr;
        document.left(900, 900);
        QCOMPARE(num_point, 1);
        QVERIFY(canvas_middlebut_save == create_splineobject);
        document.left(1800, 900);
        document.right(1800, 1800);
        QCOMPARE(document.object(0)->type, int(O_SPLINE));
        QCOMPARE(document.object(0)->sub_type, 1);
    }

    void aFinishWithoutAChainReturnsToIdle()
    {
        SplineDocument document(CMD_OPEN_SPLINE);
        document.left(600, 600);
        free_points(document.ctx.firstPoint);
        document.ctx.firstPoint = document.ctx.lastPoint = nullptr;
        document.right(900, 900);
        QCOMPARE(document.count(), 0);
        QVERIFY(document.isIdle(init_spline_drawing));
    }

    // No state installs the cancel, but it works.
    void theCancelFreesTheChain()
    {
        SplineDocument document(CMD_OPEN_SPLINE);
        document.left(600, 600);
        document.moveAndLeft(1800, 600);
        document.move(3000, 900);
        document.paint(false, [&] { cancel_spline_drawing(&document.ctx, 0, 0, nullptr); });
        QVERIFY(!document.ctx.firstPoint);
        QVERIFY(document.isIdle(init_spline_drawing));
        QCOMPARE(document.count(), 0);
        cancel_spline_drawing(nullptr, 0, 0, nullptr);
    }

    void clicksAtTheLimitsOfCoordinatesMakeASpline()
    {
        SplineDocument document(CMD_CLOSED_INT_SPLINE);
        document.left(INT_MIN, INT_MAX);
        document.moveAndLeft(INT_MAX, INT_MIN);
        document.moveAndLeft(INT_MIN, 0);
        document.moveAndRight(INT_MAX, INT_MAX);
        QCOMPARE(document.count(), 1);
    }

private:
    QScopedPointer<EngineTables> engine;
};

QTEST_MAIN(TestSplineTool)
#include "test_d_spline.moc"
