#include "ToolFixture.h"
#include "edit/d_regpoly.h"
#include "edit/u_elastic.h"

#include <QtTest>

#include <climits>

class TestRegularPolygonTool : public QObject {
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

    // 1200 cos 60 = 600, 1200 sin 60 = 1039.23; counter-clockwise on the screen.
    void aHexagonBeginsAndEndsAtTheSecondClick()
    {
        ToolDocument document;
        cur_boxradius = 9;
        document.choose(CMD_REGPOLY, regpoly_drawing_selected);
        document.left(3000, 2000);
        document.moveAndLeft(4200, 2000);
        QCOMPARE(document.records(),
                 QString("2 3 0 1 0 7 50 0 -1 4.000 0 0 0 0 0 7\n"
                         "\t 4200 2000 3600 961 2400 961 1800 2000 2400 3039 3600 3039\n"
                         "\t 4200 2000\n"));
        QVERIFY(document.isIdle(init_regpoly_drawing));
        QCOMPARE(document.image, document.redrawn());
    }

    void fewerThanTwoSidesGiveThePointTwice()
    {
        for (const int sides : {1, 0, -3}) {
            cur_numsides = sides;
            FigPoint* chain = calculateRepolyPoints(100, 100, 400, 500);
            QCOMPARE(chainOf(chain), (QVector<QPoint>{{400, 500}, {400, 500}}));
            free_points(chain);
        }
        resetToolState();
    }

    // Radius 500; the others were worked out apart: (196, -460) and (-496, 60) from the centre.
    void aTriangleTurnsFromTheGivenCorner()
    {
        cur_numsides = 3;
        FigPoint* chain = calculateRepolyPoints(1000, 1000, 1300, 1400);
        QCOMPARE(chainOf(chain),
                 (QVector<QPoint>{{1300, 1400}, {1196, 540}, {504, 1060}, {1300, 1400}}));
        free_points(chain);
        resetToolState();
    }

    void byRadiusAndAngleTheCornersRunClockwise()
    {
        cur_numsides = 4;
        FigPoint* chain = calculateRepolyPoints(1000, 1000, 500.0, 0.0);
        QCOMPARE(
            chainOf(chain),
            (QVector<QPoint>{{1500, 1000}, {1000, 1500}, {500, 1000}, {1000, 500}, {1500, 1000}}));
        free_points(chain);
        chain = calculateRepolyPoints(1000, 1000, 500.0, -1.5707963267948966);
        QCOMPARE(chainOf(chain).first(), QPoint(1000, 500));
        QCOMPARE(chainOf(chain).last(), QPoint(1000, 500));
        free_points(chain);
        cur_numsides = 0;
        QVERIFY(!calculateRepolyPoints(1000, 1000, 500.0, 0.0));
        resetToolState();
    }

    void thePressStoresNoElasticProcedureAndNoEditedPoint()
    {
        ToolDocument document;
        last_edited_point = FigPoint(7, 8);
        document.choose(CMD_REGPOLY, regpoly_drawing_selected);
        document.left(3000, 2000);
        QVERIFY(!elastic_proc);
        QCOMPARE(QPoint(last_edited_point.x, last_edited_point.y), QPoint(7, 8));
        QVERIFY(canvas_locmove_proc == resizing_poly);
        QVERIFY(canvas_leftbut_proc == create_regpoly);
        QVERIFY(canvas_middlebut_proc == cancel_regpoly);
        QCOMPARE(action_on, 1);
    }

    void aClickOnTheCentreLeavesTheToolActiveWithItsOutlineWiped()
    {
        ToolDocument document;
        const QImage before = document.image;
        document.choose(CMD_REGPOLY, regpoly_drawing_selected);
        document.left(3000, 2000);
        document.move(3600, 2000);
        document.left(3000, 2000);
        QCOMPARE(document.image, before);
        QCOMPARE(document.count(), 0);
        QVERIFY(canvas_leftbut_proc == create_regpoly);
        QCOMPARE(action_on, 1);
        // The outline that the next move means to wipe comes back, and goes for good with the
        // refresh.
        document.move(4200, 2000);
        document.left(4200, 2000);
        QCOMPARE(document.count(), 1);
        QCOMPARE(document.image, document.redrawn());
    }

    void aCancelLeavesTheCanvasAndTheDocumentAsTheyWere()
    {
        ToolDocument document;
        const QImage before = document.image;
        document.choose(CMD_REGPOLY, regpoly_drawing_selected);
        document.left(3000, 2000);
        document.move(3600, 2100);
        QVERIFY(document.image != before);
        document.right(3600, 2100);
        QCOMPARE(document.image, before);
        QVERIFY(document.isIdle(init_regpoly_drawing));
        QCOMPARE(document.count(), 0);
    }

    void clicksAtTheLimitsOfCoordinatesMakeAPolygon()
    {
        ToolDocument document;
        document.choose(CMD_REGPOLY, regpoly_drawing_selected);
        document.left(INT_MIN, INT_MAX);
        document.moveAndLeft(INT_MAX, INT_MIN);
        QCOMPARE(document.count(), 1);
    }

private:
    QScopedPointer<EngineTables> engine;
};

QTEST_MAIN(TestRegularPolygonTool)
#include "test_d_regpoly.moc"
