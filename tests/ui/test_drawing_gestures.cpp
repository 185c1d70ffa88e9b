// Every drawing tool by the events of a user's hand: each grid, each constraint mode. What is saved
// was worked out by hand from the places that the clicks are snapped to.
#include "CurrentAttributes.h"
#include "DialogDriver.h"
#include "Gesture.h"
#include "ObjectBuilders.h"

#include "render/grid.h"

#include <QtTest>

namespace {

enum Grid { Free, Square, Isometric, Vertices };

// The clicks are at (630, 585), (1770, 630), (1815, 1770) and (2985, 2415): whole pixels, so they
// arrive as given. Half-inch grids have 600 units.
//   square     each is within 300 units of (600, 600), (1800, 600), (1800, 1800), (3000, 2400)
//   isometric  columns lie every 519.615 units, the odd ones half a step lower: column 1 with
//              y 300, column 3 with y 900 and y 1500, column 6 with y 2400
//   vertices   a line is there already whose corners are those of the square grid, each within
//              75 units, which are 5 pixels, of its click
constexpr QPoint A(630, 585), B(1770, 630), C(1815, 1770), D(2985, 2415);

const QByteArray foundLine = "# METADATA <id>1</id>\n"
                             "2 1 0 1 0 -1 50 -1 -1 0.000 0 0 -1 0 0 4\n"
                             "\t 600 600 1800 600 1800 1800 3000 2400\n";

void prepare(WindowFixture& window, Grid grid)
{
    CFigContext* ctx = window.context;
    ctx->metric = false;
    ctx->magnetMode = 4;
    ctx->gridIndex = grid == Isometric ? 4 : 1;
    gridPreferences.snapMode = grid == Free ? 0 : grid == Vertices ? 2 : 1;
    if (grid != Vertices)
        return;
    FigLine* line =
        with(makeLine({{600, 600}, {1800, 600}, {1800, 1800}, {3000, 2400}}), ctx->getNextId());
    line->thickness = 1;
    list_add(ctx, &ctx->drawing.objects, line);
    window.child->redisplayCanvas();
}

QByteArray expectedFigure(Grid grid, const QByteArray& record)
{
    if (grid == Vertices)
        return foundLine + "# METADATA <id>2</id>\n" + record;
    return "# METADATA <id>1</id>\n" + record;
}

/// How many clicks a command takes, and by which button the last one is.
void perform(Gesture& gesture, int command)
{
    switch (command) {
    case CMD_CIRCLE_BY_RADIUS:
        gesture.left(A.x(), A.y()).left(B.x(), B.y());
        break;
    case CMD_REGPOLY:
        gesture.left(D.x(), D.y()).left(C.x(), C.y());
        break;
    case CMD_ARC:
        gesture.left(A.x(), A.y()).left(B.x(), B.y()).left(C.x(), C.y());
        break;
    case CMD_POLYLINE:
    case CMD_POLYGON:
    case CMD_OPEN_SPLINE:
    case CMD_CLOSED_SPLINE:
    case CMD_INT_SPLINE:
    case CMD_CLOSED_INT_SPLINE:
        gesture.left(A.x(), A.y()).left(B.x(), B.y()).left(C.x(), C.y()).right(D.x(), D.y());
        break;
    default:
        gesture.left(A.x(), A.y()).left(C.x(), C.y());
    }
}

struct Row {
    const char* name;
    int command;
    const char* begin; ///< of the record, alike on all grids
    const char* free;
    const char* square; ///< and by vertices
    const char* isometric;
    const char* end;
};

const char freePoints[] = "4\n\t 630 585 1770 630 1815 1770 2985 2415\n";
const char squarePoints[] = "4\n\t 600 600 1800 600 1800 1800 3000 2400\n";
const char isometricPoints[] = "4\n\t 520 300 1559 900 1559 1500 3118 2400\n";

const Row rows[] = {
    // sqrt(1140^2 + 45^2) = 1140.9; 1200; sqrt(1039^2 + 600^2) = 1199.8
    {"circle by radius", CMD_CIRCLE_BY_RADIUS, "1 3 0 1 0 7 50 0 -1 4.000 1 0.0000 ",
     "630 585 1141 1141 630 585 1770 630", "600 600 1200 1200 600 600 1800 600",
     "520 300 1200 1200 520 300 1559 900", "\n"},
    // 593 sqrt(2) = 838.6; 600 sqrt(2) = 848.5; sqrt(520^2 + 600^2) = 794.0
    {"circle by diameter", CMD_CIRCLE_BY_DIAMETER, "1 4 0 1 0 7 50 0 -1 4.000 1 0.0000 ",
     "1222 1177 839 839 630 585 1815 1770", "1200 1200 849 849 600 600 1800 1800",
     "1039 900 794 794 520 300 1559 1500", "\n"},
    {"ellipse by radii", CMD_ELLIPSE_BY_RADII, "1 1 0 1 0 7 50 0 -1 4.000 1 0.0000 ",
     "630 585 1186 1186 630 585 1815 1770", "600 600 1201 1201 600 600 1800 1800",
     "520 300 1040 1201 520 300 1559 1500", "\n"},
    {"ellipse by diameters", CMD_ELLIPSE_BY_DIAMETERS, "1 2 0 1 0 7 50 0 -1 4.000 1 0.0000 ",
     "1222 1177 592 592 630 585 1815 1770", "1200 1200 600 600 600 600 1800 1800",
     "1039 900 519 600 520 300 1559 1500", "\n"},
    // The centres were worked out apart, in fractions.
    {"arc", CMD_ARC, "5 1 0 1 0 7 50 0 -1 4.000 0 0 0 0 ",
     "1175.651 1224.349 630 585 1770 630 1815 1770", "1200.000 1200.000 600 600 1800 600 1800 1800",
     "693.013 1200.000 520 300 1559 900 1559 1500", "\n"},
    {"polyline", CMD_POLYLINE, "2 1 0 1 0 7 50 0 -1 4.000 0 0 0 0 0 ", freePoints, squarePoints,
     isometricPoints, ""},
    {"polygon", CMD_POLYGON, "2 3 0 1 0 7 50 0 -1 4.000 0 0 0 0 0 5\n\t ",
     "630 585 1770 630 1815 1770 2985 2415 630 585", "600 600 1800 600 1800 1800 3000 2400 600 600",
     "520 300 1559 900 1559 1500 3118 2400 520 300", "\n"},
    {"box", CMD_BOX, "2 2 0 1 0 7 50 0 -1 4.000 0 0 7 0 0 5\n\t ",
     "630 585 1815 585 1815 1770 630 1770 630 585", "600 600 1800 600 1800 1800 600 1800 600 600",
     "520 300 1559 300 1559 1500 520 1500 520 300", "\n"},
    {"picture", CMD_PICTURE, "2 5 0 0 0 7 50 0 -1 0.000 0 0 0 0 0 5\n\t0 <empty>\n\t ",
     "630 585 630 1770 1815 1770 1815 585 630 585", "600 600 600 1800 1800 1800 1800 600 600 600",
     "520 300 520 1500 1559 1500 1559 300 520 300", "\n"},
    // Four sides, so each corner is the former one turned by a right angle about the fourth click.
    {"regular polygon", CMD_REGPOLY, "2 3 0 1 0 7 50 0 -1 4.000 0 0 0 0 0 5\n\t ",
     "1815 1770 2340 3585 4155 3060 3630 1245 1815 1770",
     "1800 1800 2400 3600 4200 3000 3600 1200 1800 1800",
     "1559 1500 2218 3959 4677 3300 4018 841 1559 1500", "\n"},
    {"open spline", CMD_OPEN_SPLINE, "3 0 0 1 0 7 50 0 -1 4.000 0 0 0 ", freePoints, squarePoints,
     isometricPoints, "\t 0.000 1.000 1.000 0.000\n"},
    {"closed spline", CMD_CLOSED_SPLINE, "3 1 0 1 0 7 50 0 -1 4.000 0 0 0 ", freePoints,
     squarePoints, isometricPoints, "\t 1.000 1.000 1.000 1.000\n"},
    {"interpolated spline", CMD_INT_SPLINE, "3 2 0 1 0 7 50 0 -1 4.000 0 0 0 ", freePoints,
     squarePoints, isometricPoints, "\t 0.000 -1.000 -1.000 0.000\n"},
    {"closed interpolated spline", CMD_CLOSED_INT_SPLINE, "3 3 0 1 0 7 50 0 -1 4.000 0 0 0 ",
     freePoints, squarePoints, isometricPoints, "\t -1.000 -1.000 -1.000 -1.000\n"},
};

void setModes(int manhattan, int mountain, int latexLine, int latexArrow)
{
    manhattan_mode = manhattan;
    mountain_mode = mountain;
    latexline_mode = latexLine;
    latexarrow_mode = latexArrow;
}

/// What a full redraw of the window shows.
QImage redrawn(const Gesture& gesture)
{
    gesture.window().child->redisplayCanvas();
    return gesture.window().child->canvasImage->copy();
}

} // namespace

class TestDrawingGestures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        store.make();
        loadGridDefinitions();
    }
    void cleanupTestCase() { destroyGridDefinitions(); }
    void init()
    {
        store.renew();
        resetCurrentAttributes();
        cur_numsides = 4;
    }
    void cleanup()
    {
        resetCurrentAttributes();
        store.leave();
    }

    void everyToolOnEveryGrid_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<int>("grid");
        QTest::addColumn<QByteArray>("record");
        for (const Row& row : rows) {
            const char* const places[] = {row.free, row.square, row.isometric, row.square};
            const char* const names[] = {"free", "square", "isometric", "vertices"};
            for (int grid = Free; grid <= Vertices; ++grid)
                QTest::addRow("%s, %s", row.name, names[grid])
                    << row.command << grid << QByteArray(row.begin) + places[grid] + row.end;
        }
    }

    void everyToolOnEveryGrid()
    {
        QFETCH(int, command);
        QFETCH(int, grid);
        QFETCH(QByteArray, record);
        DialogDriver user; // closes the dialog that a picture opens
        WindowFixture window({900, 700});
        prepare(window, Grid(grid));
        Gesture gesture(window);
        gesture.tool(command);
        perform(gesture, command);
        QCOMPARE(gesture.figure(), expectedFigure(Grid(grid), record));
        QCOMPARE(gesture.steps(), 1);
        const QImage seen = window.child->canvasImage->copy();
        QCOMPARE(seen, redrawn(gesture));
        gesture.undo();
        QCOMPARE(gesture.figure(), grid == Vertices ? foundLine : QByteArray());
        gesture.redo();
        QCOMPARE(gesture.figure(), expectedFigure(Grid(grid), record));
    }

    // Each end is counted from the one before, after that was bent.
    void constraintsBendTheSegments_data()
    {
        QTest::addColumn<int>("manhattan");
        QTest::addColumn<int>("mountain");
        QTest::addColumn<int>("latexLine");
        QTest::addColumn<int>("latexArrow");
        QTest::addColumn<int>("grid");
        QTest::addColumn<QByteArray>("points");
        QTest::newRow("manhattan")
            << 1 << 0 << 0 << 0 << int(Free) << QByteArray("630 585 1770 585 1770 1770 2985 1770");
        QTest::newRow("mountain") << 0 << 1 << 0 << 0 << int(Free)
                                  << QByteArray("630 585 1770 1725 1815 1770 2985 2940");
        QTest::newRow("both") << 1 << 1 << 0 << 0 << int(Free)
                              << QByteArray("630 585 1770 585 1770 1770 2985 2985");
        // The slope of the last segment is (2,1) in both tables; steps of the grid, 600, count
        // although nothing snaps.
        QTest::newRow("latex line")
            << 0 << 0 << 1 << 0 << int(Free) << QByteArray("630 585 1830 585 1830 1785 3030 2385");
        QTest::newRow("latex arrow")
            << 0 << 0 << 0 << 1 << int(Free) << QByteArray("630 585 1830 585 1830 1785 3030 2385");
        // Snapped first, then bent.
        QTest::newRow("manhattan, square") << 1 << 0 << 0 << 0 << int(Square)
                                           << QByteArray("600 600 1800 600 1800 1800 3000 1800");
        QTest::newRow("mountain, square") << 0 << 1 << 0 << 0 << int(Square)
                                          << QByteArray("600 600 1800 -600 4200 1800 3000 3000");
        QTest::newRow("latex line, square") << 0 << 0 << 1 << 0 << int(Square)
                                            << QByteArray("600 600 1800 600 1800 1800 3000 2400");
        QTest::newRow("manhattan, vertices") << 1 << 0 << 0 << 0 << int(Vertices)
                                             << QByteArray("600 600 1800 600 1800 1800 3000 1800");
        // (1039, 600) is 30 degrees down, (0, 161) straight down, (1559, 900) 30 degrees again.
        QTest::newRow("both, isometric") << 1 << 1 << 0 << 0 << int(Isometric)
                                         << QByteArray("520 300 1559 1339 1559 1500 3118 3059");
    }

    void constraintsBendTheSegments()
    {
        QFETCH(int, manhattan);
        QFETCH(int, mountain);
        QFETCH(int, latexLine);
        QFETCH(int, latexArrow);
        QFETCH(int, grid);
        QFETCH(QByteArray, points);
        for (const int command : {CMD_POLYLINE, CMD_OPEN_SPLINE, CMD_CLOSED_INT_SPLINE}) {
            WindowFixture window({900, 700});
            prepare(window, Grid(grid));
            setModes(manhattan, mountain, latexLine, latexArrow);
            Gesture gesture(window);
            gesture.tool(command);
            perform(gesture, command);
            const QString expected = QString::fromLatin1(points);
            const auto* path = command == CMD_POLYLINE
                                   ? static_cast<FigPath*>(gesture.last<FigLine>())
                                   : static_cast<FigPath*>(gesture.last<FigSpline>());
            QVERIFY(path);
            QCOMPARE(Gesture::points(path->points).replace(',', ' '), expected);
            resetConstraints();
        }
    }

    void everyCancelLeavesTheWindowAsItWas_data()
    {
        QTest::addColumn<int>("command");
        for (const int command :
             {CMD_CIRCLE_BY_RADIUS, CMD_CIRCLE_BY_DIAMETER, CMD_ELLIPSE_BY_RADII,
              CMD_ELLIPSE_BY_DIAMETERS, CMD_ARC, CMD_BOX, CMD_REGPOLY})
            QTest::addRow("command %d", command) << command;
    }

    void everyCancelLeavesTheWindowAsItWas()
    {
        QFETCH(int, command);
        Gesture gesture = draw(command);
        QTChildFrm* child = gesture.window().child;
        const QImage before = child->canvasImage->copy();
        gesture.left(1800, 1800).move(3000, 2400);
        QVERIFY(*child->canvasImage != before);
        gesture.right(2700, 3000);
        QCOMPARE(*child->canvasImage, before);
        QCOMPARE(gesture.figure(), QByteArray());
        QCOMPARE(gesture.steps(), 0);
        // The tool is ready for the next shape.
        gesture.left(1800, 1800).left(3000, 2400);
        if (command == CMD_ARC)
            gesture.left(1800, 3000);
        QCOMPARE(gesture.count(), 1);
    }

    void aRightClickAloneIsADotOfThePolylineTool()
    {
        Gesture gesture = draw(CMD_POLYLINE);
        gesture.right(1200, 1500);
        QCOMPARE(gesture.figure(), QByteArray("# METADATA <id>1</id>\n"
                                              "2 1 0 1 0 7 50 0 -1 4.000 0 0 0 0 0 1\n"
                                              "\t 1200 1500\n"));
    }

    // The finish of a polygon takes no part before the second click.
    void aRightClickTooEarlyInAPolygonChangesNothing()
    {
        Gesture gesture = draw(CMD_POLYGON);
        gesture.left(600, 600).right(900, 900).left(1800, 600).right(1800, 1800);
        QCOMPARE(Gesture::points(gesture.last<FigLine>()->points),
                 QString("600,600 1800,600 1800,1800 600,600"));
    }

    void collinearClicksOfTheArcToolMakeNothing()
    {
        Gesture gesture = draw(CMD_ARC);
        QTChildFrm* child = gesture.window().child;
        const QImage before = child->canvasImage->copy();
        gesture.left(600, 600).left(1200, 1200).left(2400, 2400);
        QCOMPARE(gesture.figure(), QByteArray());
        QCOMPARE(gesture.steps(), 0);
        QCOMPARE(*child->canvasImage, before);
    }

    // Undo runs in mid-gesture and takes the last object, not the one in work.
    void undoInTheMiddleOfAShapeLeavesTheShape()
    {
        Gesture gesture = draw(CMD_BOX);
        gesture.left(600, 600).left(1200, 1200);
        gesture.left(1800, 1800).undo();
        QCOMPARE(gesture.count(), 0);
        gesture.left(3000, 2400);
        QCOMPARE(gesture.count(), 1);
        QCOMPARE(Gesture::points(gesture.last<FigLine>()->points),
                 QString("1800,1800 3000,1800 3000,2400 1800,2400 1800,1800"));
    }

    void anotherToolInTheMiddleOfAShapeDropsIt()
    {
        Gesture gesture = draw(CMD_POLYLINE);
        gesture.left(600, 600).left(1200, 600);
        gesture.tool(CMD_CLOSED_SPLINE).left(600, 600).left(1800, 600).right(1800, 1800);
        gesture.tool(CMD_POLYLINE).left(900, 900).right(1500, 900);
        QCOMPARE(gesture.count(), 2);
        QCOMPARE(Gesture::points(gesture.last<FigLine>()->points), QString("900,900 1500,900"));
    }

    // The zoomed and scrolled window maps back to the same units.
    void aZoomedAndScrolledWindowDrawsTheSame()
    {
        WindowFixture window({900, 700});
        window.context->zoom = 2;
        window.context->shiftX = 40;
        window.context->shiftY = 24;
        window.child->redisplayCanvas();
        Gesture gesture(window);
        for (const int command : {CMD_BOX, CMD_CIRCLE_BY_RADIUS, CMD_POLYLINE}) {
            gesture.tool(command);
            gesture.left(1200, 1200).move(1500, 1800);
            if (command == CMD_POLYLINE)
                gesture.right(2400, 2100);
            else
                gesture.left(2400, 2100);
            const QImage seen = window.child->canvasImage->copy();
            QCOMPARE(seen, redrawn(gesture));
        }
        QCOMPARE(gesture.figure(),
                 QByteArray("# METADATA <id>1</id>\n2 2 0 1 0 7 50 0 -1 4.000 0 0 7 0 0 5\n"
                            "\t 1200 1200 2400 1200 2400 2100 1200 2100 1200 1200\n"
                            "# METADATA <id>2</id>\n1 3 0 1 0 7 50 0 -1 4.000 1 0.0000 "
                            "1200 1200 1500 1500 1200 1200 2400 2100\n"
                            "# METADATA <id>3</id>\n2 1 0 1 0 7 50 0 -1 4.000 0 0 0 0 0 2\n"
                            "\t 1200 1200 2400 2100\n"));
    }

private:
    TestStore store;
};

QTEST_MAIN(TestDrawingGestures)
#include "test_drawing_gestures.moc"
