#include "ToolFixture.h"
#include "edit/d_ellipse.h"
#include "edit/u_elastic.h"
#include "render/gfx_lowlevel.h"

#include <QtTest>

#include <climits>

namespace {

struct Tool {
    int command;
    void (*selected)(CFigContext*);
    ButtonProc init;
    PointerProc move;
    ButtonProc create;
    RightButtonProc cancel;
    ElasticProc outline;
};

const Tool tools[] = {
    {CMD_CIRCLE_BY_RADIUS, circlebyradius_drawing_selected, init_circlebyradius_drawing,
     resizing_cbr, create_circlebyrad, cancel_circlebyrad, elastic_cbr},
    {CMD_CIRCLE_BY_DIAMETER, circlebydiameter_drawing_selected, init_circlebydiameter_drawing,
     resizing_cbd, create_circlebydia, cancel_circlebydia, elastic_cbd},
    {CMD_ELLIPSE_BY_RADII, ellipsebyradius_drawing_selected, init_ellipsebyradius_drawing,
     resizing_ebr, create_ellipsebyrad, cancel_ellipsebyrad, elastic_ebr},
    {CMD_ELLIPSE_BY_DIAMETERS, ellipsebydiameter_drawing_selected, init_ellipsebydiameter_drawing,
     resizing_ebd, create_ellipsebydia, cancel_ellipsebydia, elastic_ebd},
};

const Tool& toolOf(int command)
{
    return tools[command - 1];
}

QVector<QPoint> outlineOf(int cx, int cy, int rx, int ry, float angle)
{
    CFigContext ctx;
    ctx.ppiX = ctx.ppiY = 1200.0f;
    angle_ellipse(&ctx, cx, cy, rx, ry, angle);
    return QVector<QPoint>(polygon_points, polygon_points + npoints);
}

} // namespace

class TestEllipseTools : public QObject {
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

    // --- what the two clicks make --------------------------------------------------------

    void theTwoClicksMakeTheObject_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QPoint>("first");
        QTest::addColumn<QPoint>("second");
        QTest::addColumn<QString>("record");
        const QString common = "0 1 0 7 50 0 -1 4.000 1 ";
        const auto row = [&](const char* name, int command, QPoint first, QPoint second,
                             const char* subType, const char* rest) {
            QTest::newRow(name) << command << first << second
                                << QString("1 %1 %2%3\n").arg(subType, common, rest);
        };
        row("circle by radius, 3-4-5", CMD_CIRCLE_BY_RADIUS, {1200, 1500}, {1500, 1900}, "3",
            "0.0000 1200 1500 500 500 1200 1500 1500 1900");
        // sqrt(1 + 4) = 2.24
        row("circle by radius, rounded", CMD_CIRCLE_BY_RADIUS, {10, 10}, {11, 12}, "3",
            "0.0000 10 10 2 2 10 10 11 12");
        row("circle by diameter", CMD_CIRCLE_BY_DIAMETER, {1200, 1500}, {1800, 2300}, "4",
            "0.0000 1500 1900 500 500 1200 1500 1800 2300");
        // The centre is (7 / 2, 11 / 2) in integers, the radius sqrt(2^2 + 3^2) = 3.6 from it.
        row("circle by diameter, odd", CMD_CIRCLE_BY_DIAMETER, {2, 3}, {5, 8}, "4",
            "0.0000 3 5 4 4 2 3 5 8");
        row("ellipse by radii adds one", CMD_ELLIPSE_BY_RADII, {1200, 1500}, {1800, 1200}, "1",
            "0.0000 1200 1500 601 301 1200 1500 1800 1200");
        row("ellipse by radii without a drag", CMD_ELLIPSE_BY_RADII, {1200, 1500}, {1200, 1500},
            "1", "0.0000 1200 1500 1 1 1200 1500 1200 1500");
        row("ellipse by diameters", CMD_ELLIPSE_BY_DIAMETERS, {1200, 1500}, {1800, 2300}, "2",
            "0.0000 1500 1900 300 400 1200 1500 1800 2300");
        // Halves go towards zero: (-7 / 2, -3 / 2) is (-3, -1), the radii are counted from there.
        row("ellipse by diameters, negative", CMD_ELLIPSE_BY_DIAMETERS, {-2, 3}, {-5, -6}, "2",
            "0.0000 -3 -1 1 4 -2 3 -5 -6");
        // 60000 squared is more than 32 bits hold.
        row("large circle", CMD_CIRCLE_BY_RADIUS, {0, 0}, {36000, 48000}, "3",
            "0.0000 0 0 60000 60000 0 0 36000 48000");
        row("large circle by diameter", CMD_CIRCLE_BY_DIAMETER, {0, 0}, {72000, 96000}, "4",
            "0.0000 36000 48000 60000 60000 0 0 72000 96000");
    }

    void theTwoClicksMakeTheObject()
    {
        QFETCH(int, command);
        QFETCH(QPoint, first);
        QFETCH(QPoint, second);
        QFETCH(QString, record);
        ToolDocument document;
        document.choose(command, toolOf(command).selected);
        document.left(first.x(), first.y());
        document.move((first.x() + second.x()) / 3, second.y());
        document.moveAndLeft(second.x(), second.y());
        QCOMPARE(document.records(), record);
        QVERIFY(document.isIdle(toolOf(command).init));
        QCOMPARE(document.image, document.redrawn());
    }

    // The angle is radians in the object, and only ellipses have one.
    void ellipsesTakeThePresentAngleAndCirclesNone()
    {
        ToolDocument document;
        for (const Tool& tool : tools) {
            cur_ellipseangle = 0.5236f;
            cur_angle = 0;
            document.choose(tool.command, tool.selected);
            document.left(1500, 1500);
            if (tool.command >= CMD_ELLIPSE_BY_RADII)
                QCOMPARE(cur_angle, 0.5236f);
            document.moveAndLeft(2100, 1950);
        }
        QCOMPARE(
            document.records(),
            QString("1 3 0 1 0 7 50 0 -1 4.000 1 0.0000 1500 1500 750 750 1500 1500 2100 1950\n"
                    "1 4 0 1 0 7 50 0 -1 4.000 1 0.0000 1800 1725 375 375 1500 1500 2100 1950\n"
                    "1 1 0 1 0 7 50 0 -1 4.000 1 0.5236 1500 1500 601 451 1500 1500 2100 1950\n"
                    "1 2 0 1 0 7 50 0 -1 4.000 1 0.5236 1800 1725 300 225 1500 1500 2100 "
                    "1950\n"));
    }

    // --- states -----------------------------------------------------------------------------

    void thePressInstallsTheActiveState()
    {
        for (const Tool& tool : tools) {
            ToolDocument document;
            FigEllipse former;
            document.choose(tool.command, tool.selected);
            QVERIFY(document.isIdle(tool.init));
            QVERIFY(!canvas_middlebut_proc);
            document.ctx.curObject = &former;
            document.left(1200, 900);
            QVERIFY(!document.ctx.curObject);
            QVERIFY(canvas_locmove_proc == tool.move);
            QVERIFY(canvas_leftbut_proc == tool.create);
            QVERIFY(canvas_middlebut_proc == tool.cancel);
            QVERIFY(elastic_proc == tool.outline);
            QCOMPARE(action_on, 1);
            QCOMPARE(QPoint(fix_x, fix_y), QPoint(1200, 900));
            QCOMPARE(QPoint(cur_x, cur_y), QPoint(1200, 900));
            QCOMPARE(QPoint(last_edited_point.x, last_edited_point.y), QPoint(1200, 900));
        }
    }

    void theCentreIsMarkedDuringTheGesture()
    {
        ToolDocument document;
        const QImage before = document.image;
        document.choose(CMD_CIRCLE_BY_RADIUS, circlebyradius_drawing_selected);
        document.left(1500, 1500);
        // Pixel (100, 100): arms of four pixels.
        for (const QPoint& arm : {QPoint(97, 100), QPoint(103, 100), QPoint(100, 97)})
            QVERIFY(document.image.pixel(arm) != before.pixel(arm));
    }

    void aCancelLeavesTheCanvasAndTheDocumentAsTheyWere()
    {
        for (const Tool& tool : tools) {
            ToolDocument document;
            const QImage before = document.image;
            cur_ellipseangle = 0.8f;
            document.choose(tool.command, tool.selected);
            document.left(1500, 1500);
            document.move(2500, 2000);
            document.move(2700, 1800);
            QVERIFY(document.image != before);
            document.right(2700, 1800);
            QCOMPARE(document.image, before);
            QVERIFY(document.isIdle(tool.init));
            QCOMPARE(document.count(), 0);
            QVERIFY(!document.ctx.modified);
        }
    }

    void clicksAtTheLimitsOfCoordinatesMakeObjects()
    {
        for (const Tool& tool : tools) {
            ToolDocument document;
            document.choose(tool.command, tool.selected);
            document.left(INT_MIN, INT_MAX);
            document.moveAndLeft(INT_MAX, INT_MIN);
            document.left(INT_MAX, INT_MAX);
            document.move(INT_MIN, 0);
            document.right(INT_MIN, 0);
            QCOMPARE(document.count(), 1);
        }
    }

    // --- angle_ellipse ------------------------------------------------------------------------

    // Half-axes of 2: the height is even, d runs 3, 0: lines of half widths 1.73 and 0.
    void anEvenOutlineStartsOnTheMiddleLine()
    {
        QCOMPARE(outlineOf(10, 10, 2, 2, 0),
                 (QVector<QPoint>{{8, 10}, {10, 11}, {12, 10}, {10, 9}, {8, 10}}));
    }

    // Half-axes of 3: the height is odd, a middle line first, then d runs 8, 5, 0.
    void anOddOutlineHasAMiddleLine()
    {
        QCOMPARE(outlineOf(10, 10, 3, 3, 0), (QVector<QPoint>{{7, 10},
                                                              {7, 9},
                                                              {8, 8},
                                                              {10, 7},
                                                              {12, 8},
                                                              {13, 9},
                                                              {13, 10},
                                                              {13, 11},
                                                              {12, 12},
                                                              {10, 13},
                                                              {8, 12},
                                                              {7, 11},
                                                              {7, 10}}));
    }

    // The equation of the turned ellipse holds in all quadrants of the angle. An outline of even
    // height takes each line's width from the line beyond, so it is up to two pixels too small.
    void theOutlineLiesOnTheTurnedEllipse()
    {
        for (const float angle : {0.3f, 1.2f, 2.0f, 3.5f, 5.5f}) {
            const QVector<QPoint> outline = outlineOf(300, 250, 150, 70, angle);
            QVERIFY(outline.size() > 200);
            QCOMPARE(outline.first(), outline.last());
            for (const QPoint& point : outline) {
                const double x = point.x() - 300, y = 250 - point.y();
                const double along = x * std::cos(angle) + y * std::sin(angle);
                const double across = y * std::cos(angle) - x * std::sin(angle);
                const double distance = std::hypot(along, across);
                const double scale = std::hypot(along / 150, across / 70);
                QVERIFY2(std::abs(distance - distance / scale) < 2.2,
                         qPrintable(QString("%1 %2").arg(point.x()).arg(point.y())));
            }
        }
    }

    void noOutlineWithoutARadius()
    {
        QVERIFY(outlineOf(10, 10, 0, 5, 0).isEmpty());
        QVERIFY(outlineOf(10, 10, 5, 0, 0).isEmpty());
        CFigContext ctx; // a unit is less than a tenth of a pixel
        angle_ellipse(&ctx, 100, 100, 5, 6000, 0.4f);
        QCOMPARE(npoints, 0L);
    }

    // A height of 6000 pixels has 24000 points, one of 6500 has 26000.
    void tooManyPointsAreToldOnceAndDropped()
    {
        resetToolState();
        QVERIFY(outlineOf(0, 0, 6000, 6000, 0).size() > 23000);
        QCOMPARE(recordingShell.messages, QStringList());
        const QVector<QPoint> outline = outlineOf(0, 0, 6500, 6500, 0);
        QVERIFY(outline.size() <= 25001);
        QCOMPARE(
            recordingShell.messages,
            QStringList("Too many points to fully display rotated ellipse. 100000 points max"));
        outlineOf(0, 0, INT_MAX, INT_MAX, 0.5f);
        outlineOf(INT_MAX, INT_MIN, INT_MIN, 100, 0.5f);
    }

private:
    QScopedPointer<EngineTables> engine;
};

QTEST_MAIN(TestEllipseTools)
#include "test_d_ellipse.moc"
