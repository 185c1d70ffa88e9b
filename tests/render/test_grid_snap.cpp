// Snapping of positions and selections. The numbers are worked out by hand from the step of the
// grid: 1200 units for the medium grid in inches, 472.440944 in centimetres.
#include "ObjectBuilders.h"
#include "RecordingShell.h"

#include "edit/command.h"
#include "edit/mode.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/u_list.h"
#include "render/grid.h"

#include <QtTest>

#include <cmath>
#include <random>

namespace {

constexpr int MEDIUM = 2;
constexpr int MEDIUM_ISO = 5;
constexpr int CUSTOM = NUM_BUILTIN_GRIDS;

struct InchContext : CFigContext {
    explicit InchContext(int grid = MEDIUM)
    {
        metric = false;
        gridIndex = grid;
        magnetMode = 4;
    }
};

void appendCustomGrid(float step)
{
    gridDefinitions.append(makeGridDefinition("own", "", step, Qt::gray, Qt::DotLine, ""));
}

QPoint rounded(CFigContext& ctx, QPoint point)
{
    roundCoords(&ctx, &point.rx(), &point.ry());
    return point;
}

/// The tagged selection of the tests: a line with these corners.
FigLine* addTagged(CFigContext& ctx, int xmin, int ymin, int xmax, int ymax)
{
    FigLine* line = makeLine({{xmin, ymin}, {xmax, ymax}});
    line->tagged = true;
    ctx.drawing.objects.append(line);
    return line;
}

QPoint dragged(CFigContext& ctx, Orientation horizontal, Orientation vertical, QPoint point)
{
    roundCoordsSnapCurObjectToGrid(&ctx, horizontal, vertical, &point.rx(), &point.ry());
    return point;
}

QPoint placed(CFigContext& ctx, Orientation horizontal, Orientation vertical)
{
    QPoint way(-7, -8);
    snapObjectsToGrid(&ctx, horizontal, vertical, &way.rx(), &way.ry());
    return way;
}

QPoint snapped(void (*snap)(CFigContext*, int*, int*), CFigContext& ctx, QPoint point)
{
    snap(&ctx, &point.rx(), &point.ry());
    return point;
}

/// Nearest multiple in extended precision; false where two are about equally near.
bool nearestMultiple(int value, long double step, int* result)
{
    const long double quotient = value / step;
    const long double lower = std::floor(quotient);
    if (std::fabs(quotient - lower - 0.5L) < 1e-9L)
        return false;
    const long double line = (quotient - lower > 0.5L ? lower + 1 : lower) * step;
    *result = static_cast<int>(std::round(line));
    return std::fabs(line - std::trunc(line)) != 0.5L;
}

} // namespace

class TestGridSnap : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        gridPreferences = GridPreferences();
        gridPreferences.snapMode = SNAP_GRID;
        loadGridDefinitions();
        recordingShell.clear();
        reset_action_on();
        cur_command = CMD_SELECT;
        fix_x = fix_y = 0;
        horizGrip = vertGrip = 0;
    }

    void cleanupTestCase() { destroyGridDefinitions(); }

    // --- a position ------------------------------------------------------------------------

    void positionsGoToTheNearestLine_data()
    {
        QTest::addColumn<bool>("metric");
        QTest::addColumn<int>("magnet");
        QTest::addColumn<QPoint>("from");
        QTest::addColumn<QPoint>("to");
        QTest::newRow("down") << false << 4 << QPoint(1799, 599) << QPoint(1200, 0);
        QTest::newRow("up") << false << 4 << QPoint(1801, 601) << QPoint(2400, 1200);
        QTest::newRow("on a line") << false << 4 << QPoint(2400, 0) << QPoint(2400, 0);
        // x exactly half-way between two grid lines goes away from zero.
        QTest::newRow("half-way") << false << 4 << QPoint(600, 1800) << QPoint(1200, 2400);
        // A negative coordinate snaps symmetrically.
        QTest::newRow("negative") << false << 4 << QPoint(-599, -1801) << QPoint(0, -2400);
        QTest::newRow("negative half-way")
            << false << 4 << QPoint(-600, -1800) << QPoint(-1200, -2400);
        QTest::newRow("tenth") << false << 0 << QPoint(59, 181) << QPoint(0, 240);
        QTest::newRow("fifth") << false << 1 << QPoint(119, 121) << QPoint(0, 240);
        QTest::newRow("quarter") << false << 2 << QPoint(149, 450) << QPoint(0, 600);
        QTest::newRow("half") << false << 3 << QPoint(299, 300) << QPoint(0, 600);
        // 472.44, 944.88: the lines lie between the units.
        QTest::newRow("metric down") << true << 4 << QPoint(236, 708) << QPoint(0, 472);
        QTest::newRow("metric up") << true << 4 << QPoint(237, 709) << QPoint(472, 945);
        QTest::newRow("metric negative") << true << 4 << QPoint(-709, -708) << QPoint(-945, -472);
    }

    void positionsGoToTheNearestLine()
    {
        QFETCH(bool, metric);
        QFETCH(int, magnet);
        QFETCH(QPoint, from);
        InchContext ctx;
        ctx.metric = metric;
        ctx.magnetMode = magnet;
        QTEST(rounded(ctx, from), "to");
    }

    // Columns of 1039.23, steps of 1200.
    void isometricPositionsGoByTheirColumn_data()
    {
        QTest::addColumn<QPoint>("from");
        QTest::addColumn<QPoint>("to");
        QTest::newRow("even down") << QPoint(519, 599) << QPoint(0, 0);
        QTest::newRow("even up") << QPoint(1559, 600) << QPoint(2078, 1200);
        QTest::newRow("even negative") << QPoint(-519, -600) << QPoint(0, -1200);
        QTest::newRow("odd top") << QPoint(520, 0) << QPoint(1039, 600);
        QTest::newRow("odd") << QPoint(1558, 1199) << QPoint(1039, 600);
        QTest::newRow("odd half-way") << QPoint(1000, 1200) << QPoint(1039, 1800);
        QTest::newRow("odd just above zero") << QPoint(1000, -1) << QPoint(1039, -600);
        QTest::newRow("odd negative") << QPoint(-1000, -1199) << QPoint(-1039, -600);
        QTest::newRow("odd negative half-way") << QPoint(-1000, -1200) << QPoint(-1039, -1800);
    }

    void isometricPositionsGoByTheirColumn()
    {
        QFETCH(QPoint, from);
        InchContext ctx(MEDIUM_ISO);
        QTEST(rounded(ctx, from), "to");
    }

    // 5728 / (0.866 * 472.44) comes out as 13.999999999999998.
    void theColumnsParityIsThatOfTheNearestNumber()
    {
        CFigContext ctx;
        ctx.metric = true;
        ctx.gridIndex = MEDIUM_ISO;
        ctx.magnetMode = 4;
        for (int column : {5728, 11456, 22912, 36823})
            QCOMPARE(rounded(ctx, QPoint(column, 100)), QPoint(column, 0));
    }

    void withoutTheGridBitPositionsStay()
    {
        gridPreferences.snapMode = SNAP_VERTEX;
        InchContext ctx;
        QCOMPARE(rounded(ctx, QPoint(1000, -1000)), QPoint(1000, -1000));
        InchContext iso(MEDIUM_ISO);
        QCOMPARE(rounded(iso, QPoint(1000, -1000)), QPoint(1000, -1000));
    }

    void withGridZeroNothingSnaps()
    {
        InchContext ctx(0);
        addTagged(ctx, 300, 200, 1500, 1400);
        QCOMPARE(rounded(ctx, QPoint(1000, 1000)), QPoint(1000, 1000));
        QCOMPARE(dragged(ctx, 1, 2, QPoint(1000, 1000)), QPoint(1000, 1000));
        QCOMPARE(dragged(ctx, 5, 5, QPoint(1000, 1000)), QPoint(1000, 1000));
        QCOMPARE(placed(ctx, 1, 2), QPoint(-7, -8));
    }

    void gridsThatAreNotThereOrHaveNoStepSnapNothing_data()
    {
        QTest::addColumn<int>("index");
        QTest::newRow("zero step") << CUSTOM;
        QTest::newRow("negative step") << CUSTOM + 1;
        QTest::newRow("beyond the table") << CUSTOM + 2;
        QTest::newRow("before the table") << -1;
    }

    void gridsThatAreNotThereOrHaveNoStepSnapNothing()
    {
        QFETCH(int, index);
        appendCustomGrid(0.0f);
        appendCustomGrid(-1.0f);
        InchContext ctx(index);
        addTagged(ctx, 300, 200, 1500, 1400);
        QCOMPARE(rounded(ctx, QPoint(1000, 1000)), QPoint(1000, 1000));
        QCOMPARE(dragged(ctx, 1, 2, QPoint(1000, 1000)), QPoint(1000, 1000));
        QCOMPARE(placed(ctx, 1, 2), QPoint(-7, -8));
    }

    void customGridsSnapAsSquareOnes()
    {
        appendCustomGrid(0.25f);
        InchContext ctx(CUSTOM);
        QCOMPARE(rounded(ctx, QPoint(449, 450)), QPoint(300, 600));
    }

    void randomPositionsGoToTheNearestMultiple()
    {
        std::mt19937 random(7);
        std::uniform_int_distribution<int> coordinate(-60000, 60000);
        int compared = 0;
        for (int round = 0; round < 20000; ++round) {
            InchContext ctx(1 + round % 3);
            ctx.metric = round % 2;
            ctx.magnetMode = round % 5;
            const long double step = getGridRound(&ctx);
            const QPoint from(coordinate(random), coordinate(random));
            QPoint nearest;
            if (!nearestMultiple(from.x(), step, &nearest.rx()) ||
                !nearestMultiple(from.y(), step, &nearest.ry()))
                continue;
            QCOMPARE(rounded(ctx, from), nearest);
            ++compared;
        }
        QVERIFY(compared > 19000);
    }

    void randomIsometricPositionsGoToTheNearestOfTheirColumn()
    {
        std::mt19937 random(8);
        std::uniform_int_distribution<int> coordinate(-60000, 60000);
        const long double aspect = std::sqrt(0.75L);
        int compared = 0;
        for (int round = 0; round < 20000; ++round) {
            InchContext ctx(4 + round % 3);
            ctx.metric = round % 2;
            ctx.magnetMode = round % 5;
            const long double step = getGridRound(&ctx);
            const QPoint from(coordinate(random), coordinate(random));
            const long double column = std::round(from.x() / (aspect * step));
            const long double offset = std::fmod(std::fabs(column), 2.0L) == 1 ? step / 2 : 0;
            const long double row = std::round((from.y() - offset) / step);
            const long double line = row * step + offset;
            const long double doubt =
                std::fmin(std::fabs(std::fabs(from.x() / (aspect * step) - column) - 0.5L),
                          std::fabs(std::fabs((from.y() - offset) / step - row) - 0.5L));
            if (doubt < 1e-9L || std::fabs(std::fabs(line - std::trunc(line)) - 0.5L) < 1e-9L)
                continue;
            QCOMPARE(rounded(ctx, from),
                     QPoint(int(std::round(column * aspect * step)), int(std::round(line))));
            ++compared;
        }
        QVERIFY(compared > 15000);
    }

    // --- vertices ----------------------------------------------------------------------------

    void verticesPullWithinFivePixelsAtAnyZoom_data()
    {
        QTest::addColumn<float>("zoom");
        QTest::addColumn<int>("reach");
        QTest::newRow("1") << 1.0f << 75; // 15 units per pixel
        QTest::newRow("2") << 2.0f << 38; // 37.5
        QTest::newRow("0.5") << 0.5f << 150;
    }

    void verticesPullWithinFivePixelsAtAnyZoom()
    {
        QFETCH(float, zoom);
        QFETCH(int, reach);
        gridPreferences.snapMode = SNAP_VERTEX;
        InchContext ctx(0); // also without a grid
        ctx.zoom = zoom;
        ctx.drawing.objects.append(makeLine({{1000, 2000}, {9000, 2000}}));
        int x = 1000 + reach;
        int y = 2000 - reach;
        QVERIFY(roundCoordsToObjectPoint(&ctx, &x, &y));
        QCOMPARE(QPoint(x, y), QPoint(1000, 2000));
        x = 1000 + reach + 1;
        QVERIFY(!roundCoordsToObjectPoint(&ctx, &x, &y));
        QCOMPARE(QPoint(x, y), QPoint(1000 + reach + 1, 2000));
    }

    void withoutTheVertexBitNoVertexPulls()
    {
        InchContext ctx;
        ctx.drawing.objects.append(makeLine({{1000, 2000}, {9000, 2000}}));
        int x = 1001;
        int y = 2001;
        QVERIFY(!roundCoordsToObjectPoint(&ctx, &x, &y));
        QCOMPARE(QPoint(x, y), QPoint(1001, 2001));
    }

    // --- a press -------------------------------------------------------------------------------

    void aPressSnapsInDrawingToolsAndGesturesOnly()
    {
        InchContext ctx;
        QCOMPARE(snapped(snapPress, ctx, QPoint(1000, 1000)), QPoint(1000, 1000));
        set_action_on();
        QCOMPARE(snapped(snapPress, ctx, QPoint(1000, 1000)), QPoint(1200, 1200));
        reset_action_on();
        cur_command = CMD_BOX;
        QCOMPARE(snapped(snapPress, ctx, QPoint(1000, 1000)), QPoint(1200, 1200));
        gridPreferences.snapMode = 0;
        QCOMPARE(snapped(snapPress, ctx, QPoint(1000, 1000)), QPoint(1000, 1000));
    }

    void aVertexWinsOverTheGrid()
    {
        gridPreferences.snapMode = SNAP_GRID | SNAP_VERTEX;
        InchContext ctx;
        cur_command = CMD_BOX;
        ctx.drawing.objects.append(makeLine({{1000, 1000}, {9000, 1000}}));
        QCOMPARE(snapped(snapPress, ctx, QPoint(1010, 1010)), QPoint(1000, 1000));
        QCOMPARE(snapped(snapPress, ctx, QPoint(1100, 1010)), QPoint(1200, 1200));
        set_action_on();
        QCOMPARE(snapped(snapCursor, ctx, QPoint(1010, 1010)), QPoint(1000, 1000));
        QCOMPARE(snapped(snapCursor, ctx, QPoint(1100, 1010)), QPoint(1200, 1200));
        addTagged(ctx, 300, 200, 1500, 1400);
        cur_command = CMD_DRAG_OBJECTS;
        horizGrip = ORIENTATION_LEFT;
        QCOMPARE(snapped(snapCursor, ctx, QPoint(1010, 1010)), QPoint(1000, 1000));
        gridPreferences.snapMode = SNAP_VERTEX;
        QCOMPARE(snapped(snapCursor, ctx, QPoint(1100, 1010)), QPoint(1100, 1010));
    }

    // --- a move or release -----------------------------------------------------------------------

    void theCursorSnapsInGesturesOnly_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<bool>("on");
        QTest::addColumn<bool>("snaps");
        QTest::newRow("box idle") << int(CMD_BOX) << false << false;
        QTest::newRow("box") << int(CMD_BOX) << true << true;
        QTest::newRow("point") << int(CMD_MOVE_POINT) << true << true;
        QTest::newRow("region") << int(CMD_SELECT) << true << false;
    }

    void theCursorSnapsInGesturesOnly()
    {
        QFETCH(int, command);
        QFETCH(bool, on);
        QFETCH(bool, snaps);
        InchContext ctx;
        cur_command = command;
        action_on = on;
        const QPoint expected = snaps ? QPoint(1200, 1200) : QPoint(1000, 1000);
        QCOMPARE(snapped(snapCursor, ctx, QPoint(1000, 1000)), expected);
        gridPreferences.snapMode = 0;
        QCOMPARE(snapped(snapCursor, ctx, QPoint(1000, 1000)), QPoint(1000, 1000));
    }

    // The left side stands at 300 and goes to 1200, the bottom at 1400 and goes to 2400.
    void draggedObjectsPutTheirGripsOnTheGrid()
    {
        InchContext ctx;
        addTagged(ctx, 300, 200, 1500, 1400);
        fix_x = fix_y = 100;
        horizGrip = ORIENTATION_LEFT;
        vertGrip = ORIENTATION_BOTTOM;
        set_action_on();
        for (int command : {CMD_COPY, CMD_DRAG_OBJECTS}) {
            cur_command = command;
            QCOMPARE(snapped(snapCursor, ctx, QPoint(900, 900)), QPoint(1000, 1100));
        }
    }

    // --- a drag
    // ------------------------------------------------------------------------------------

    // Anchor 100, which snaps to 0. Side 300: 300 beyond a line; side 1100: 100 before one.
    void theSideOfADragComesToLieOnTheGrid_data()
    {
        QTest::addColumn<int>("side");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::newRow("below half a step") << 300 << 599 << -200;
        QTest::newRow("half a step") << 300 << 600 << 1000;
        QTest::newRow("back") << 300 << 50 << -200;
        QTest::newRow("back half a step") << 300 << -600 << -1400;
        QTest::newRow("side before a line") << 1100 << 599 << 200;
        QTest::newRow("side before a line, a step") << 1100 << 900 << 1400;
        QTest::newRow("side half-way") << 600 << 599 << -500;
    }

    void theSideOfADragComesToLieOnTheGrid()
    {
        QFETCH(int, side);
        QFETCH(int, from);
        QFETCH(int, to);
        InchContext ctx;
        fix_x = fix_y = 100;
        addTagged(ctx, side, side, side + 77, side + 77);
        QCOMPARE(dragged(ctx, ORIENTATION_LEFT, ORIENTATION_TOP, QPoint(from, from)),
                 QPoint(to, to));
        deleteObjectList(&ctx.drawing.objects);
        addTagged(ctx, side - 77, side - 77, side, side);
        QCOMPARE(dragged(ctx, ORIENTATION_RIGHT, ORIENTATION_BOTTOM, QPoint(from, from)),
                 QPoint(to, to));
    }

    // The anchor, half-way, snaps to 1200; half a step back from 600 is a whole one from there.
    void aPointerAtTheAnchorCountsAsDraggedBack()
    {
        InchContext ctx;
        fix_x = fix_y = 600;
        addTagged(ctx, 0, 0, 500, 500);
        QCOMPARE(dragged(ctx, 1, 2, QPoint(600, 600)), QPoint(-600, -600));
    }

    // No side: the pointer moves in whole steps from the anchor.
    void orientationsThatAreNoSideOfTheAxisCountAsZero_data()
    {
        QTest::addColumn<int>("horizontal");
        QTest::addColumn<int>("vertical");
        QTest::newRow("none") << 0 << 0;
        QTest::newRow("only one is 5") << 5 << 0;
        QTest::newRow("the other is 5") << 0 << 5;
        QTest::newRow("sides of the other axis") << 2 << 1;
        QTest::newRow("unknown") << 9 << -1;
    }

    void orientationsThatAreNoSideOfTheAxisCountAsZero()
    {
        QFETCH(int, horizontal);
        QFETCH(int, vertical);
        InchContext ctx;
        fix_x = fix_y = 100;
        addTagged(ctx, 300, 200, 1500, 1400);
        QCOMPARE(dragged(ctx, horizontal, vertical, QPoint(900, -700)), QPoint(1300, -1100));
    }

    void twoFivesOrNothingTaggedRoundThePointer()
    {
        InchContext ctx;
        fix_x = fix_y = 100;
        FigLine* line = addTagged(ctx, 300, 200, 1500, 1400);
        QCOMPARE(dragged(ctx, 5, 5, QPoint(900, -700)), QPoint(1200, -1200));
        line->tagged = false;
        QCOMPARE(dragged(ctx, 1, 2, QPoint(900, -700)), QPoint(1200, -1200));
    }

    // Columns of 1039.23: the left side at 300 goes to 1039, the top at 200 to 1200.
    void isometricDragsGoByColumnsAndSteps()
    {
        InchContext ctx(MEDIUM_ISO);
        addTagged(ctx, 300, 200, 1500, 1400);
        QCOMPARE(dragged(ctx, 1, 2, QPoint(800, 700)), QPoint(739, 1000));
    }

    // The side, 709, lies 235.881888 before a line, and the drag goes 8 steps, 3779.527552.
    // Across, the sum 4015.40944 is rounded; down, 235.88 is rounded to 236 first.
    void horizontalAndVerticalRoundDifferently()
    {
        CFigContext ctx;
        ctx.metric = true;
        ctx.gridIndex = MEDIUM;
        ctx.magnetMode = 4;
        addTagged(ctx, 709, 709, 2000, 2000);
        QCOMPARE(dragged(ctx, 1, 2, QPoint(3780, 3780)), QPoint(4015, 4016));
    }

    void onlyTheWorkingRootCounts()
    {
        InchContext ctx;
        fix_x = fix_y = 100;
        addTagged(ctx, 300, 200, 1500, 1400);
        FigCompound* compound = makeCompound({makeLine({{900, 900}, {1000, 1000}})});
        ctx.drawing.objects.append(compound);
        ctx.openCompoundObjects = compound->objects;
        QCOMPARE(dragged(ctx, 1, 2, QPoint(900, 900)), QPoint(1200, 1200));
        compound->objects->first()->tagged = true;
        // 900 is 300 before a line.
        QCOMPARE(dragged(ctx, 1, 2, QPoint(900, 900)), QPoint(1600, 1600));
        ctx.openCompoundObjects = nullptr;
    }

    void theLineWidthCountsOnlyIfThePreferenceWantsIt()
    {
        InchContext ctx;
        FigLine* line =
            makeLine({{1205, 1205}, {2405, 1205}, {2405, 2405}, {1205, 2405}, {1205, 1205}}, T_BOX);
        line->thickness = 10; // display units of 15: 75 to either side
        line->tagged = true;
        ctx.drawing.objects.append(line);
        QCOMPARE(placed(ctx, ORIENTATION_LEFT, 0).x(), -5);
        gridPreferences.snapUsingLineWidth = true;
        int xmin, ymin, xmax, ymax;
        line->getBounds(&ctx, &xmin, &ymin, &xmax, &ymax, false, true);
        QVERIFY(xmin < 1200 && xmin > 1100);
        QCOMPARE(placed(ctx, ORIENTATION_LEFT, 0).x(), -xmin);
    }

    // --- placing on the grid ---------------------------------------------------------------------

    void selectionsGoToTheNextLine()
    {
        InchContext ctx;
        addTagged(ctx, 300, 200, 1500, 1400);
        QCOMPARE(placed(ctx, ORIENTATION_LEFT, 0).x(), -300);
        QCOMPARE(placed(ctx, ORIENTATION_RIGHT, 0).x(), 900);
        QCOMPARE(placed(ctx, 0, ORIENTATION_TOP).y(), -200);
        QCOMPARE(placed(ctx, 0, ORIENTATION_BOTTOM).y(), 1000);
    }

    void aSelectionOnTheGridMovesAWholeStep()
    {
        InchContext ctx;
        addTagged(ctx, 1200, 2400, 3600, 4800);
        QCOMPARE(placed(ctx, ORIENTATION_LEFT, 0).x(), -1200);
        QCOMPARE(placed(ctx, ORIENTATION_RIGHT, 0).x(), 1200);
        QCOMPARE(placed(ctx, 0, ORIENTATION_TOP).y(), -1200);
        QCOMPARE(placed(ctx, 0, ORIENTATION_BOTTOM).y(), 1200);
    }

    // One unit off counts as on the grid; the new corner, 1, is rounded to it.
    void aSelectionNextToALineMovesAWholeStepOntoTheGrid()
    {
        InchContext ctx;
        addTagged(ctx, 1201, 1201, 3599, 3599);
        QCOMPARE(placed(ctx, ORIENTATION_LEFT, 0).x(), -1201);
        QCOMPARE(placed(ctx, ORIENTATION_RIGHT, 0).x(), 1201);
        gridPreferences.snapMode = 0; // then it is not
        QCOMPARE(placed(ctx, ORIENTATION_LEFT, 0).x(), -1200);
        QCOMPARE(placed(ctx, ORIENTATION_RIGHT, 0).x(), 1200);
    }

    void twoUnitsOffIsNotOnTheGrid()
    {
        InchContext ctx;
        addTagged(ctx, 1202, 1202, 3598, 3598);
        QCOMPARE(placed(ctx, ORIENTATION_LEFT, 0).x(), -2);
        QCOMPARE(placed(ctx, ORIENTATION_RIGHT, 0).x(), 2);
    }

    // To the right with the top on the grid: the full step goes down, not up.
    void oneDirectionServesBothAxes()
    {
        InchContext ctx;
        addTagged(ctx, 300, 2400, 1500, 4800);
        QCOMPARE(placed(ctx, ORIENTATION_RIGHT, ORIENTATION_TOP), QPoint(900, 1200));
        QCOMPARE(placed(ctx, ORIENTATION_LEFT, ORIENTATION_TOP), QPoint(-300, -1200));
        QCOMPARE(placed(ctx, 0, ORIENTATION_BOTTOM), QPoint(1200, 1200));
    }

    void isometricSelectionsMoveByColumnsAndAreNotRounded()
    {
        InchContext ctx(MEDIUM_ISO);
        addTagged(ctx, 1040, 1201, 3000, 4800);
        QCOMPARE(placed(ctx, ORIENTATION_LEFT, 0).x(), -1039);
        QCOMPARE(placed(ctx, ORIENTATION_RIGHT, 0).x(), 118); // 3 * 1039.23 - 3000
        QCOMPARE(placed(ctx, 0, ORIENTATION_TOP).y(), -1200);
        QCOMPARE(placed(ctx, 0, ORIENTATION_BOTTOM).y(), 1200);
    }
};

QTEST_GUILESS_MAIN(TestGridSnap)
#include "test_grid_snap.moc"
