#include "RecordingShell.h"
#include "edit/command.h"
#include "edit/mode.h"
#include "fileio/f_read.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/coords.h"

#include <QtTest>

#include <climits>

namespace {

struct ReadOut {
    QString xPixels = "old", xUnits = "old", yPixels = "old", yUnits = "old", info1 = "old",
            info2 = "old";
};

ReadOut readOut(CFigContext& ctx, int x, int y)
{
    ReadOut texts;
    printCoords(&ctx, x, y, &texts.xPixels, &texts.xUnits, &texts.yPixels, &texts.yUnits,
                &texts.info1, &texts.info2);
    return texts;
}

/// The last two texts during a gesture of a command.
QStringList infos(CFigContext& ctx, int command, int x, int y)
{
    cur_command = command;
    action_on = 1;
    const ReadOut texts = readOut(ctx, x, y);
    return {texts.info1, texts.info2};
}

FigLine* makeBox(CFigContext& ctx, int left, int top, int right, int bottom)
{
    auto* box = new FigLine;
    box->sub_type = T_BOX;
    FigPoint** link = &box->points;
    for (const QPoint& corner : {QPoint(left, top), QPoint(right, top), QPoint(right, bottom),
                                 QPoint(left, bottom), QPoint(left, top)}) {
        *link = new FigPoint(corner.x(), corner.y());
        link = &(*link)->next;
    }
    ctx.drawing.objects.append(box);
    ctx.curObject = box;
    return box;
}

} // namespace

class TestCoords : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        recordingShell.clear();
        otherPreferencesData = OtherPreferencesData();
        action_on = 0;
        cur_command = CMD_SELECT;
        fix_x = fix_y = 0;
        left_point = right_point = moved_pos = nullptr;
    }

    // --- mapping -------------------------------------------------------------------

    void anInchIsEightyPixels()
    {
        CFigContext ctx;
        QCOMPARE(pixelX(&ctx, 1200), 80);
        QCOMPARE(pixelY(&ctx, 2400), 160);
        QCOMPARE(scaledX(&ctx, 30), 2.0f);
        QCOMPARE(figureX(&ctx, 80), 1200);
        QCOMPARE(figureY(&ctx, 160), 2400);
    }

    void pixelsAreRoundedBeforeTheShiftIsTakenOff()
    {
        CFigContext ctx;
        ctx.shiftX = 3;
        ctx.shiftY = -4;
        // A pixel is 15 units.
        QCOMPARE(pixelX(&ctx, 7), -3);
        QCOMPARE(pixelX(&ctx, 8), -2);
        QCOMPARE(pixelX(&ctx, -8), -4);
        QCOMPARE(pixelY(&ctx, -7), 4);
        QCOMPARE(pixelY(&ctx, -8), 3);
    }

    void theAxesHaveTheirOwnResolution()
    {
        CFigContext ctx;
        ctx.ppiX = 120;
        ctx.ppiY = 60;
        QCOMPARE(pixelX(&ctx, 1200), 120);
        QCOMPARE(pixelY(&ctx, 1200), 60);
        QCOMPARE(figureX(&ctx, 60), 600);
        QCOMPARE(figureY(&ctx, 60), 1200);
    }

    // Points at which double precision would give another pixel. Worked out by a program that
    // rounds the value of each step to 32 bits.
    void theMappingIsInSinglePrecision_data()
    {
        QTest::addColumn<float>("ppi");
        QTest::addColumn<float>("zoom");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("pixel");
        const struct {
            float ppi, zoom;
            int x, pixel;
        } rows[] = {
            {80.0f, 0.01f, 750, 1},       {80.0f, 0.7f, 75, 4},
            {80.0f, 1.33f, 47453, 4208},  {80.0f, 99.99f, 250, 1667},
            {72.0f, 0.7f, 250, 11},       {72.0f, 99.99f, 2500, 14999},
            {96.0f, 0.07f, 625, 3},       {96.0f, 99.99f, 625, 5000},
            {100.0f, 10.0f, 9, 8},        {113.5f, 0.7f, 12000, 795},
            {113.5f, 2.0f, 87037, 16465}, {80.0f, 99.99f, 5000001, 33330008},
        };
        for (const auto& row : rows)
            QTest::addRow("%g ppi, zoom %g, %d", double(row.ppi), double(row.zoom), row.x)
                << row.ppi << row.zoom << row.x << row.pixel;
    }
    void theMappingIsInSinglePrecision()
    {
        QFETCH(float, ppi);
        QFETCH(float, zoom);
        QFETCH(int, x);
        QFETCH(int, pixel);
        CFigContext ctx;
        ctx.zoom = zoom;
        ctx.ppiX = ppi;
        ctx.ppiY = 50;
        QCOMPARE(pixelX(&ctx, x), pixel);
        QCOMPARE(pixelX(&ctx, -x), -pixel);
        std::swap(ctx.ppiX, ctx.ppiY);
        QCOMPARE(pixelY(&ctx, x), pixel);
    }

    void thePresentZoomCountsAfterAnyOther()
    {
        CFigContext one, other;
        other.zoom = 2;
        QCOMPARE(pixelX(&one, 1200), 80);
        QCOMPARE(pixelX(&other, 1200), 160);
        QCOMPARE(pixelX(&one, 1200), 80);
        one.zoom = 0.5f;
        QCOMPARE(pixelX(&one, 1200), 40);
        QCOMPARE(pixelY(&one, 1200), 40);
        QCOMPARE(pixelY(&other, 1200), 160);
    }

    void theExtremesOfTheRangeSaturate()
    {
        CFigContext ctx;
        ctx.zoom = 99.99f;
        QCOMPARE(pixelX(&ctx, INT_MAX), INT_MAX);
        QCOMPARE(pixelY(&ctx, INT_MIN), INT_MIN);
        ctx.shiftX = INT_MIN;
        ctx.shiftY = INT_MAX;
        QCOMPARE(pixelX(&ctx, 1200), INT_MAX);
        QCOMPARE(pixelY(&ctx, INT_MIN), INT_MIN);
        // The sum stops at 2^31 less 1, which is 2^31 in single precision.
        ctx.zoom = 16.0f;
        QCOMPARE(figureY(&ctx, INT_MAX), 15 * (1 << 27));
        ctx.zoom = 0.0f;
        QCOMPARE(figureY(&ctx, INT_MAX), INT_MAX);
        ctx.shiftX = 0;
        QCOMPARE(figureX(&ctx, 0), 0);
    }

    void aPixelBeyondTheTopLeftCountsAsZeroBeforeTheShift()
    {
        CFigContext ctx;
        ctx.shiftX = 10;
        ctx.shiftY = -10;
        QCOMPARE(figureX(&ctx, -30), 150);
        QCOMPARE(figureY(&ctx, -30), -150);
        QCOMPARE(figureY(&ctx, 30), 300);
    }

    // --- page ------------------------------------------------------------------------

    void theDefaultPageIsA4InWholeCentimetres()
    {
        CFigContext ctx;
        float width = 0, height = 0;
        getPagesizes(&ctx, &width, &height);
        QCOMPARE(width, 21.0f);
        QCOMPARE(height, 30.0f);
        ctx.landscape = true;
        getPagesizes(&ctx, &width, &height);
        QCOMPARE(width, 30.0f);
        QCOMPARE(height, 21.0f);
    }

    void thePageInFigureUnitsIsNotRounded()
    {
        CFigContext ctx;
        int width = 0, height = 0;
        getPagesizesPixels1200(&ctx, &width, &height);
        QCOMPARE(QSize(width, height), QSize(9921, 14031));
        ctx.paperSize = 0;
        ctx.landscape = true;
        getPagesizesPixels1200(&ctx, &width, &height);
        QCOMPARE(QSize(width, height), QSize(13200, 10200));
    }

    void anUnknownPaperIsA4()
    {
        CFigContext ctx;
        int width = 0, height = 0;
        for (int paper : {-1, NUM_PAPER_SIZES, INT_MAX}) {
            ctx.paperSize = paper;
            getPagesizesPixels1200(&ctx, &width, &height);
            QCOMPARE(QSize(width, height), QSize(9921, 14031));
        }
    }

    // --- user units --------------------------------------------------------------------

    void typedValuesBecomeFigureUnitsByThePreferredUnit()
    {
        CFigContext ctx;
        ctx.ppiX = 80;
        ctx.ppiY = 60;
        const struct {
            int unit;
            double value;
            int across, down;
        } rows[] = {
            {0, 2.54, 1200, 1200}, {0, -1, -472, -472},        {1, 1.5, 1800, 1800},
            {2, 10, 150, 200},     {3, 12.5, 13, 13},          {4, 12.5, 0, 0},
            {-1, 12.5, 0, 0},      {1, 1e9, INT_MAX, INT_MAX},
        };
        for (const auto& row : rows) {
            otherPreferencesData.coordUnit = row.unit;
            QCOMPARE(convertToCoord(&ctx, row.value, true), row.across);
            QCOMPARE(convertToCoord(&ctx, row.value, false), row.down);
        }
    }

    void figureUnitsBecomeUserUnits()
    {
        CFigContext ctx;
        ctx.ppiX = 80;
        ctx.ppiY = 8;
        QCOMPARE(convertToUnit(&ctx, 1000, 0, 2), 2.12);
        QCOMPARE(convertToUnit(&ctx, 1000, 1, 3), 0.833);
        // Whole numbers and the horizontal resolution, whatever is asked for.
        QCOMPARE(convertToUnit(&ctx, 1000, 2, 3), 67.0);
        QCOMPARE(convertToUnit(&ctx, -1000, 2, 3), -67.0);
        QCOMPARE(convertToUnit(&ctx, 1000, 3, 0), 1000.0);
        QCOMPARE(convertToUnit(&ctx, 1000, 4, 2), 0.0);
        QCOMPARE(convertToUnit(&ctx, 1000.4, 0, 4), 2.1175);
        QCOMPARE(convertToUnit(&ctx, 1000.4, 2, 3), 67.0);
        QCOMPARE(convertToUnit(&ctx, 1000.4, 3, 0), 1000.4);
    }

    void figureUnitsAsText()
    {
        CFigContext ctx;
        QCOMPARE(convertToUnitString(&ctx, 1200, 0, 2), QString("2.54"));
        QCOMPARE(convertToUnitString(&ctx, 1200, 0, 4), QString("2.5400"));
        QCOMPARE(convertToUnitString(&ctx, -600, 1, 1), QString("-0.5"));
        QCOMPARE(convertToUnitString(&ctx, 600, 1, 0), QString("1"));
        QCOMPARE(convertToUnitString(&ctx, -1, 1, 2), QString("0.00"));
        QCOMPARE(convertToUnitString(&ctx, 1000, 2, 3), QString("67"));
        QCOMPARE(convertToUnitString(&ctx, 1234, 3, 3), QString("1234"));
        QCOMPARE(convertToUnitString(&ctx, 1234, 9, 3), QString());
        QCOMPARE(convertToUnitString(&ctx, 1250, 1, -1), QString("0"));
    }

    // --- read-out ------------------------------------------------------------------------

    void aNullArgumentPrintsNothing()
    {
        CFigContext ctx;
        QString texts[6] = {"a", "b", "c", "d", "e", "f"};
        for (int missing = 0; missing < 6; ++missing) {
            QString* out[6];
            for (int i = 0; i < 6; ++i)
                out[i] = i == missing ? nullptr : &texts[i];
            printCoords(&ctx, 1, 2, out[0], out[1], out[2], out[3], out[4], out[5]);
        }
        printCoords(nullptr, 1, 2, &texts[0], &texts[1], &texts[2], &texts[3], &texts[4],
                    &texts[5]);
        for (int i = 0; i < 6; ++i)
            QCOMPARE(texts[i], QString(QChar('a' + i)));
    }

    void positionsAreReadOutInPixelsAndInTheDocumentsUnit()
    {
        CFigContext ctx;
        ctx.metric = true;
        ctx.shiftX = 1000;
        ctx.zoom = 0.5f;
        ReadOut texts = readOut(ctx, 1200, 240);
        QCOMPARE(texts.xPixels, QString("X= 40 pt"));
        QCOMPARE(texts.xUnits, QString("X= 2.54 cm"));
        QCOMPARE(texts.yPixels, QString("Y=  8 pt"));
        QCOMPARE(texts.yUnits, QString("Y= 0.51 cm"));
        QCOMPARE(texts.info1, QString());
        QCOMPARE(texts.info2, QString());
        ctx.metric = false;
        texts = readOut(ctx, 13200, 60);
        QCOMPARE(texts.xUnits, QString("X=11.00 in"));
        QCOMPARE(texts.yUnits, QString("Y= 0.05 in"));
    }

    void bothPartsOfANegativeValueCarryTheSign()
    {
        CFigContext ctx;
        ctx.metric = false;
        const ReadOut texts = readOut(ctx, -1800, -60);
        QCOMPARE(texts.xPixels, QString("X=-120 pt"));
        QCOMPARE(texts.xUnits, QString("X=-1.-50 in"));
        QCOMPARE(texts.yUnits, QString("Y= 0.-5 in"));
    }

    void aHundredTimesAFarCoordinateWraps()
    {
        CFigContext ctx;
        ctx.metric = false;
        // 21474837 hundredfold is 2147483700, as 32 bits -2147483596, by 1200 -1789569.66.
        QCOMPARE(readOut(ctx, 21474837, 0).xUnits, QString("X=-17895.-70 in"));
    }

    void gesturesReadOutTheirMeasures_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QStringList>("expected");
        const QStringList length{"l= 0.50 in", ""};
        const QStringList size{"w= 0.30 in", "h= 0.40 in"};
        QTest::newRow("circle by radius") << 1 << QStringList{"r= 0.50 in", "d= 1.00 in"};
        QTest::newRow("circle by diameter") << 2 << QStringList{"r= 0.25 in", "d= 0.50 in"};
        QTest::newRow("ellipse by radii") << 3 << QStringList{"r1= 0.30 in", "r2= 0.40 in"};
        QTest::newRow("ellipse by diameters") << 4 << QStringList{"d1= 0.30 in", "d2= 0.40 in"};
        for (int command : {6, 10, 11, 12, 13})
            QTest::addRow("length %d", command) << command << length;
        for (int command : {7, 16})
            QTest::addRow("size %d", command) << command << size;
        for (int command : {-1, 0, 5, 8, 9, 14, 15, 17, 36, 38, int(CMD_SELECT)})
            QTest::addRow("nothing %d", command) << command << QStringList{"", ""};
    }
    void gesturesReadOutTheirMeasures()
    {
        QFETCH(int, command);
        CFigContext ctx;
        ctx.metric = false;
        fix_x = 1360;
        fix_y = 2480;
        // 360 left of and 480 above the anchor: a 3-4-5 triangle with 600.
        QTEST(infos(ctx, command, 1000, 2000), "expected");
        action_on = 0;
        const ReadOut texts = readOut(ctx, 1000, 2000);
        QCOMPARE(texts.info1, QString());
        QCOMPARE(texts.info2, QString());
    }

    void aMovedPointReadsOutTheDistanceToItsNeighbours()
    {
        CFigContext ctx;
        ctx.metric = false;
        FigLine* line = makeBox(ctx, 0, 0, 10, 10);
        FigPoint west(0, 0), east(1200, 0);
        for (int command : {CMD_MOVE_POINT, CMD_ADD_POINT}) {
            for (int subType : {T_POLYLINE, T_POLYGON}) {
                line->sub_type = subType;
                left_point = right_point = nullptr;
                QCOMPARE(infos(ctx, command, 300, 400), (QStringList{"", ""}));
                left_point = &west;
                QCOMPARE(infos(ctx, command, 300, 400), (QStringList{"left= 0.42 in", ""}));
                right_point = &east;
                QCOMPARE(infos(ctx, command, 300, 400),
                         (QStringList{"left= 0.42 in", "right= 0.82 in"}));
                left_point = nullptr;
                QCOMPARE(infos(ctx, command, 300, 400), (QStringList{"", "right= 0.82 in"}));
            }
        }
    }

    void theTextOfALeftwardsRightPointHasNoEqualsSign()
    {
        CFigContext ctx;
        ctx.metric = false;
        makeBox(ctx, 0, 0, 10, 10)->sub_type = T_POLYLINE;
        FigPoint west(0, 0), east(1200, 0);
        left_point = &east;
        right_point = &west;
        QCOMPARE(infos(ctx, CMD_MOVE_POINT, 300, 400),
                 (QStringList{"left 0.42 in", "right= 0.82 in"}));
    }

    void neighboursOneAboveTheOtherBothCountAsRight()
    {
        CFigContext ctx;
        ctx.metric = false;
        makeBox(ctx, 0, 0, 10, 10)->sub_type = T_POLYLINE;
        FigPoint north(0, 0), south(0, 1200);
        left_point = &north;
        right_point = &south;
        // The right point's text overwrites that of the left one: 500 and then 854 units.
        QCOMPARE(infos(ctx, CMD_MOVE_POINT, 300, 400), (QStringList{"", "right= 0.71 in"}));
    }

    void aMovedCornerReadsOutTheSizeToCome_data()
    {
        QTest::addColumn<int>("corner");
        QTest::addColumn<QStringList>("expected");
        // The box is 1200 by 2400 units and the corner goes 240 right and 120 down.
        QTest::newRow("upper left") << 0 << QStringList{"w= 0.80 in", "h= 1.90 in"};
        QTest::newRow("upper right") << 1 << QStringList{"w= 1.20 in", "h= 1.90 in"};
        QTest::newRow("lower right") << 2 << QStringList{"w= 1.20 in", "h= 2.10 in"};
        QTest::newRow("lower left") << 3 << QStringList{"w= 0.80 in", "h= 2.10 in"};
    }
    void aMovedCornerReadsOutTheSizeToCome()
    {
        QFETCH(int, corner);
        CFigContext ctx;
        ctx.metric = false;
        FigLine* box = makeBox(ctx, 1000, 1000, 2200, 3400);
        FigPoint* corners[] = {box->getUpperLeft(), box->getUpperRight(), box->getLowerRight(),
                               box->getLowerLeft()};
        moved_pos = corners[corner];
        fix_x = moved_pos->x;
        fix_y = moved_pos->y;
        for (int subType : {T_BOX, T_ARCBOX, T_PICTURE}) {
            box->sub_type = subType;
            QTEST(infos(ctx, CMD_MOVE_POINT, fix_x + 240, fix_y + 120), "expected");
        }
    }

    void aBoxTurnedInsideOutHasNegativeSizes()
    {
        CFigContext ctx;
        ctx.metric = false;
        FigLine* box = makeBox(ctx, 0, 0, 1200, 1200);
        moved_pos = box->getUpperLeft();
        QCOMPARE(infos(ctx, CMD_MOVE_POINT, 2400, 3600), (QStringList{"w=-1.00 in", "h=-2.00 in"}));
        FigPoint stranger;
        moved_pos = &stranger;
        QCOMPARE(infos(ctx, CMD_MOVE_POINT, 2400, 3600), (QStringList{"", ""}));
        moved_pos = nullptr;
        QCOMPARE(infos(ctx, CMD_MOVE_POINT, 2400, 3600), (QStringList{"", ""}));
    }

    void aMovedPointOfAnotherObjectReadsOutNothing()
    {
        CFigContext ctx;
        FigPoint west;
        left_point = moved_pos = &west;
        QCOMPARE(infos(ctx, CMD_MOVE_POINT, 1, 1), (QStringList{"", ""}));
        FigEllipse ellipse;
        ellipse.sub_type = T_POLYLINE;
        ctx.curObject = &ellipse;
        QCOMPARE(infos(ctx, CMD_MOVE_POINT, 1, 1), (QStringList{"", ""}));
        ctx.curObject = nullptr;
    }

    // --- centring ------------------------------------------------------------------------

    void aPointIsCentredByTheCornerOfTheViewAroundIt()
    {
        recordingShell.viewportWidth = 400;
        recordingShell.viewportHeight = 200;
        CFigContext ctx;
        int shiftX = -1, shiftY = -1;
        // Half the view is 3000 by 1500 units at zoom 1: the corner is (9000, 10500).
        getShift4Centering(&ctx, &shiftX, &shiftY, 12000, 12000, 1.0f);
        QCOMPARE(QPoint(shiftX, shiftY), QPoint(600, 700));
        // The corner goes by the zoom asked for, (10500, 11250), the shift by the present one.
        getShift4Centering(&ctx, &shiftX, &shiftY, 12000, 12000, 2.0f);
        QCOMPARE(QPoint(shiftX, shiftY), QPoint(700, 750));
        ctx.zoom = 2.0f;
        getShift4Centering(&ctx, &shiftX, &shiftY, 12000, 12000, 2.0f);
        QCOMPARE(QPoint(shiftX, shiftY), QPoint(1400, 1500));
    }

    void aShiftThatWouldBeNegativeIsZero()
    {
        recordingShell.viewportWidth = 400;
        recordingShell.viewportHeight = 200;
        CFigContext ctx;
        int shiftX = -1, shiftY = -1;
        getShift4Centering(&ctx, &shiftX, &shiftY, 100, 100, 1.0f);
        QCOMPARE(QPoint(shiftX, shiftY), QPoint(0, 0));
        getShift4Centering(&ctx, &shiftX, &shiftY, 0, 0, 2.0f, 1.0f);
        QCOMPARE(QPoint(shiftX, shiftY), QPoint(0, 0));
    }

    void theCentreOfTheViewStaysOnAZoomStep()
    {
        recordingShell.viewportWidth = 401;
        recordingShell.viewportHeight = 200;
        CFigContext ctx;
        int shiftX = -1, shiftY = -1;
        // In units: 100 and 50 px are 1500 and 750; the view is 6015 by 3000, half of it 3007
        // and 1500. The centre (4507, 2250) is at 600.93 and 300 px at zoom 2.
        getShift4Centering(&ctx, &shiftX, &shiftY, 100, 50, 1.0f, 2.0f);
        QCOMPARE(QPoint(shiftX, shiftY), QPoint(600 - 200, 300 - 100));
    }

    void zoomsOutOfReasonAreNoHazard()
    {
        recordingShell.viewportWidth = 400;
        recordingShell.viewportHeight = 200;
        CFigContext ctx;
        int shiftX = -1, shiftY = -1;
        getShift4Centering(&ctx, &shiftX, &shiftY, INT_MIN, INT_MAX, 0.0f);
        QCOMPARE(shiftX, 0);
        getShift4Centering(&ctx, &shiftX, &shiftY, INT_MAX, INT_MIN, 0.0f, 1e30f);
        QCOMPARE(QPoint(shiftX, shiftY), QPoint(INT_MAX - 200, 0));
    }

    void aFigureIsCentredByHalfItsExtentWhereverItLies()
    {
        recordingShell.viewportWidth = 80;
        recordingShell.viewportHeight = 80;
        CFigContext ctx;
        makeBox(ctx, 12000, 12000, 12000 + 4800, 12000 + 7200);
        ctx.curObject = nullptr;
        int shiftX = -1, shiftY = -1;
        getShift4CenteringFigure(&ctx, &shiftX, &shiftY, 1.0f);
        // (2400, 3600) less half the view of 600 units, at 15 units a pixel.
        QCOMPARE(QPoint(shiftX, shiftY), QPoint(120, 200));
    }

    void aFigureWithoutExtentIsNotShifted()
    {
        CFigContext ctx;
        int shiftX = -1, shiftY = -1;
        getShift4CenteringFigure(&ctx, &shiftX, &shiftY, 1.0f);
        QCOMPARE(QPoint(shiftX, shiftY), QPoint(0, 0));
        makeBox(ctx, 12000, 12000, 12000, 24000);
        ctx.curObject = nullptr;
        shiftX = shiftY = -1;
        getShift4CenteringFigure(&ctx, &shiftX, &shiftY, 1.0f);
        QCOMPARE(QPoint(shiftX, shiftY), QPoint(0, 0));
    }
};

QTEST_GUILESS_MAIN(TestCoords)
#include "test_coords.moc"
