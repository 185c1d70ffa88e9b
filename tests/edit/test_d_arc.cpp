#include "ToolFixture.h"
#include "edit/d_arc.h"
#include "edit/u_elastic.h"

#include <QtTest>

#include <climits>

namespace {

struct ArcDocument : ToolDocument {
    ArcDocument() { choose(CMD_ARC, arc_drawing_selected); }

    void threeClicks(QPoint a, QPoint b, QPoint c)
    {
        left(a.x(), a.y());
        moveAndLeft(b.x(), b.y());
        moveAndLeft(c.x(), c.y());
    }
};

} // namespace

class TestArcTool : public QObject {
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

    // The circle around (2000, 2000) with radius 500, over its top: clockwise on the screen.
    void threePointsMakeAnArc()
    {
        ArcDocument document;
        document.threeClicks({1500, 2000}, {2300, 1600}, {2500, 2000});
        QCOMPARE(document.records(), QString("5 1 0 1 0 7 50 0 -1 4.000 0 0 0 0 2000.000 2000.000 "
                                             "1500 2000 2300 1600 2500 2000\n"));
        QVERIFY(document.isIdle(init_arc_drawing));
        QCOMPARE(document.image, document.redrawn());
    }

    void theOtherWayRoundIsCounterClockwise()
    {
        ArcDocument document;
        cur_capstyle = 2;
        document.threeClicks({2500, 2000}, {2300, 1600}, {1500, 2000});
        QCOMPARE(document.records(), QString("5 1 0 1 0 7 50 0 -1 4.000 2 1 0 0 2000.000 2000.000 "
                                             "2500 2000 2300 1600 1500 2000\n"));
    }

    void onlyOpenArcsGetTheArrowsOfTheAutomaticModes()
    {
        ArcDocument document;
        autoforwardarrow_mode = autobackwardarrow_mode = true;
        cur_barrowtype = 4; // kind 2, filled
        document.threeClicks({1500, 2000}, {2300, 1600}, {2500, 2000});
        cur_arctype = 1;
        document.threeClicks({1500, 2000}, {2300, 1600}, {2500, 2000});
        QCOMPARE(document.records(),
                 QString("5 1 0 1 0 7 50 0 -1 4.000 0 0 1 1 2000.000 2000.000 "
                         "1500 2000 2300 1600 2500 2000\n\t0 0 1.00 60.00 120.00\n"
                         "\t2 1 1.00 60.00 120.00\n"
                         "5 2 0 1 0 7 50 0 -1 4.000 0 0 0 0 2000.000 2000.000 "
                         "1500 2000 2300 1600 2500 2000\n"));
    }

    void pointsWithoutACircleMakeNothing_data()
    {
        QTest::addColumn<QPoint>("first");
        QTest::addColumn<QPoint>("second");
        QTest::addColumn<QPoint>("third");
        QTest::newRow("on a line")
            << QPoint(1000, 1000) << QPoint(1500, 1500) << QPoint(2000, 2000);
        QTest::newRow("between the others")
            << QPoint(1500, 1500) << QPoint(1000, 1000) << QPoint(2000, 2000);
        QTest::newRow("first and third equal")
            << QPoint(1000, 1000) << QPoint(1500, 1200) << QPoint(1000, 1000);
        // The sines of the bearings are compared, so the mirror image counts as the same bearing.
        QTest::newRow("mirrored about the vertical through the first")
            << QPoint(1500, 1000) << QPoint(1200, 1400) << QPoint(1800, 1400);
    }

    void pointsWithoutACircleMakeNothing()
    {
        QFETCH(QPoint, first);
        QFETCH(QPoint, second);
        QFETCH(QPoint, third);
        ArcDocument document;
        const QImage before = document.image;
        document.threeClicks(first, second, third);
        QCOMPARE(document.count(), 0);
        QCOMPARE(recordingShell.messages, QStringList());
        QVERIFY(!document.ctx.modified);
        QVERIFY(document.isIdle(init_arc_drawing));
        QCOMPARE(document.image, before);
    }

    void aSecondClickOnTheAnchorIsIgnored()
    {
        ArcDocument document;
        document.left(1500, 2000);
        document.left(1500, 2000);
        QCOMPARE(num_point, 1);
        document.left(2300, 1600);
        document.left(2300, 1600);
        QCOMPARE(num_point, 2);
        document.left(2500, 2000);
        QCOMPARE(document.count(), 1);
    }

    void thePressInstallsTheActiveState()
    {
        ArcDocument document;
        manhattan_mode = 1; // arcs know no constraint
        QVERIFY(document.isIdle(init_arc_drawing));
        QVERIFY(!canvas_middlebut_proc);
        document.left(1500, 2000);
        QVERIFY(canvas_locmove_proc == freehand_line);
        QVERIFY(canvas_leftbut_proc == get_arcpoint);
        QVERIFY(canvas_middlebut_proc == cancel_arc_drawing);
        QVERIFY(elastic_proc == elastic_line);
        QCOMPARE(action_on, 1);
        QCOMPARE(QPoint(arcPoints[0].x, arcPoints[0].y), QPoint(1500, 2000));
        document.left(2300, 1600);
        QCOMPARE(QPoint(fix_x, fix_y), QPoint(2300, 1600));
        QCOMPARE(QPoint(arcPoints[1].x, arcPoints[1].y), QPoint(2300, 1600));
        QCOMPARE(QPoint(last_edited_point.x, last_edited_point.y), QPoint(2300, 1600));
    }

    void theFirstLegStaysOnTheCanvas()
    {
        ArcDocument document;
        const QImage before = document.image;
        document.left(1500, 2000);
        document.moveAndLeft(2700, 2000);
        document.move(2700, 3000);
        // Pixel (140, 133) is in the middle of the leg.
        QVERIFY(document.image.pixel(140, 133) != before.pixel(140, 133));
    }

    void aCancelWipesEveryLeg_data()
    {
        QTest::addColumn<int>("clicks");
        QTest::newRow("after one click") << 1;
        QTest::newRow("after two clicks") << 2;
    }

    void aCancelWipesEveryLeg()
    {
        QFETCH(int, clicks);
        ArcDocument document;
        const QImage before = document.image;
        document.left(1500, 2000);
        if (clicks == 2)
            document.moveAndLeft(2300, 1600);
        document.move(2500, 2200);
        QVERIFY(document.image != before);
        document.right(2500, 2200);
        QCOMPARE(document.image, before);
        QVERIFY(document.isIdle(init_arc_drawing));
        QCOMPARE(document.count(), 0);
    }

    // A press without a move before it: the rubber line ends elsewhere.
    void legsAreWipedWithoutMovesToo()
    {
        ArcDocument document;
        const QImage before = document.image;
        document.left(1000, 1000);
        document.left(1500, 1500);
        document.move(3000, 700);
        document.left(2000, 2000);
        QCOMPARE(document.image, before);
    }

    void clicksAtTheLimitsOfCoordinatesDoNoHarm()
    {
        ArcDocument document;
        document.threeClicks({INT_MIN, INT_MAX}, {INT_MAX, INT_MIN}, {INT_MAX, INT_MAX});
        document.threeClicks({INT_MIN, 0}, {0, INT_MIN}, {100, 100});
        QVERIFY(document.isIdle(init_arc_drawing));
    }

private:
    QScopedPointer<EngineTables> engine;
};

QTEST_MAIN(TestArcTool)
#include "test_d_arc.moc"
