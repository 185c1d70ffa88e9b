// The grid's lines and the page borders, by pixels at positions worked out by hand.
#include "DrawingFixtures.h"
#include "EngineCanvas.h"
#include "RecordingShell.h"

#include "model/preferences.h"
#include "render/coords.h"
#include "render/grid.h"
#include "render/u_redraw.h"

#include <QElapsedTimer>
#include <QScopedValueRollback>
#include <QtTest>

#include <random>

namespace {

constexpr int SMALL = 1;
constexpr int MEDIUM_ISO = 5;
constexpr int SOLID = NUM_BUILTIN_GRIDS; ///< half a unit as SMALL, solid lines
constexpr int OTHER = NUM_BUILTIN_GRIDS + 1;
constexpr int A4 = 13;

const QColor gridColour(0x10, 0x80, 0x20);

/// 80 pixels per inch: the steps of the small and the medium grid are 40 and 80 pixels.
struct InchContext : CFigContext {
    explicit InchContext(int grid = SOLID)
    {
        ppiX = ppiY = 80.0f;
        metric = false;
        gridIndex = grid;
        gridOn = true;
    }
};

void appendGrid(float step, int penStyle)
{
    gridDefinitions.append(makeGridDefinition("own", "", step, Qt::red, penStyle, ""));
}

/// Columns whose every pixel is inked, from 0 to height - 1.
QVector<int> fullColumns(const Canvas& canvas, int width, int height)
{
    QVector<int> found;
    for (int x = 0; x < width; ++x) {
        int inked = 0;
        for (int y = 0; y < height; ++y)
            inked += canvas.isInked(x, y);
        if (inked == height)
            found.append(x);
    }
    return found;
}

QVector<int> fullRows(const Canvas& canvas, int width, int height)
{
    QVector<int> found;
    for (int y = 0; y < height; ++y) {
        int inked = 0;
        for (int x = 0; x < width; ++x)
            inked += canvas.isInked(x, y);
        if (inked == width)
            found.append(y);
    }
    return found;
}

/// What the lines look like, drawn without the engine.
QImage drawnLines(int width, int height, const QVector<QLine>& lines, const QColor& color,
                  Qt::PenStyle style)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(QPen(color, 1, style, Qt::FlatCap));
    for (const QLine& line : lines)
        painter.drawLine(line);
    return image;
}

bool isSmooth(const Canvas&, CFigContext& ctx)
{
    return ctx.painter->testRenderHint(QPainter::Antialiasing);
}

} // namespace

class TestGridDraw : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_tables = std::make_unique<EngineTables>(); }
    void cleanupTestCase() { m_tables.reset(); }

    void init()
    {
        gridPreferences = GridPreferences();
        gridPreferences.gridColour = gridColour;
        otherPreferencesData = OtherPreferencesData();
        loadGridDefinitions();
        appendGrid(0.5f, Qt::SolidLine);
        recordingShell.clear();
    }

    void cleanup() { otherPreferencesData = OtherPreferencesData(); }

    // --- square grids ---------------------------------------------------------------------

    // No line at the document's edge: the first stands a whole step in.
    void linesStandAtMultiplesOfTheStep()
    {
        InchContext ctx;
        Canvas canvas(&ctx, 130, 100);
        drawGrid(&ctx, 130, 100);
        QCOMPARE(fullColumns(canvas, 130, 100), (QVector<int>{40, 80, 120}));
        QCOMPARE(fullRows(canvas, 130, 100), (QVector<int>{40, 80}));
        QVERIFY(!canvas.isInked(39, 39) && !canvas.isInked(41, 41) && !canvas.isInked(0, 0));
        QCOMPARE(canvas.image().pixelColor(40, 10), gridColour);
    }

    void linesGoWithTheScrollPosition()
    {
        InchContext ctx;
        ctx.shiftX = 30;
        ctx.shiftY = 45;
        Canvas canvas(&ctx, 100, 80);
        drawGrid(&ctx, 100, 80);
        QCOMPARE(fullColumns(canvas, 100, 80), (QVector<int>{10, 50, 90}));
        QCOMPARE(fullRows(canvas, 100, 80), (QVector<int>{35, 75}));
    }

    // The remainder of a negative shift is negative: the line at 30 is left out.
    void aNegativeShiftLeavesTheFirstLineOut()
    {
        InchContext ctx;
        ctx.shiftX = -30;
        Canvas canvas(&ctx, 120, 30);
        drawGrid(&ctx, 120, 30);
        QCOMPARE(fullColumns(canvas, 120, 30), (QVector<int>{70, 110}));
    }

    // 80 / 2.54 / 2 = 15.748: 15.7, 31.5, 47.2, 63.0, 78.7
    void metricStepsGoToTheNearestPixel()
    {
        InchContext ctx;
        ctx.metric = true;
        Canvas canvas(&ctx, 80, 30);
        drawGrid(&ctx, 80, 30);
        QCOMPARE(fullColumns(canvas, 80, 30), (QVector<int>{16, 31, 47, 63, 79}));
    }

    void stepsGoByTheResolutionOfTheirAxisAndByTheZoom()
    {
        InchContext ctx;
        ctx.ppiY = 60.0f;
        ctx.zoom = 1.5f;
        Canvas canvas(&ctx, 130, 100);
        drawGrid(&ctx, 130, 100);
        QCOMPARE(fullColumns(canvas, 130, 100), (QVector<int>{60, 120}));
        QCOMPARE(fullRows(canvas, 130, 100), (QVector<int>{45, 90}));
    }

    void theLastLineMayStandOnePixelBeyondTheViewport()
    {
        InchContext ctx;
        for (int width : {38, 39}) {
            Canvas canvas(&ctx, 100, 100);
            drawGrid(&ctx, width, 20);
            QCOMPARE(canvas.isInked(40, 10), width == 39);
        }
    }

    void theWholeWindowIsFilled()
    {
        InchContext ctx;
        int window = 0;
        recordingShell.viewportWidth = 60;
        recordingShell.viewportHeight = 50;
        Canvas canvas(&ctx, 200, 200);
        ctx.chFrm = reinterpret_cast<QTChildFrm*>(&window);
        drawGrid(&ctx);
        ctx.chFrm = nullptr;
        QVERIFY(canvas.isInked(40, 49) && canvas.isInked(59, 40));
        QVERIFY(!canvas.isInked(80, 10) && !canvas.isInked(40, 60) && !canvas.isInked(70, 40));
    }

    void withoutAWindowTheCanvasIsFilled()
    {
        InchContext ctx;
        Canvas canvas(&ctx, 130, 100);
        drawGrid(&ctx);
        QCOMPARE(fullColumns(canvas, 130, 100), (QVector<int>{40, 80, 120}));
    }

    void builtinGridsAreDotted()
    {
        InchContext ctx(SMALL);
        Canvas canvas(&ctx, 50, 50);
        drawGrid(&ctx, 50, 50);
        QCOMPARE(canvas.image(),
                 drawnLines(50, 50, {{40, 0, 40, 51}, {0, 40, 51, 40}}, gridColour, Qt::DotLine));
        QVERIFY(fullColumns(canvas, 50, 50).isEmpty());
    }

    void theGlobalColourServesCustomGridsToo()
    {
        InchContext ctx;
        QCOMPARE(gridDefinitions[SOLID]->color, QColor(Qt::red));
        Canvas canvas(&ctx, 50, 50);
        drawGrid(&ctx, 50, 50);
        QCOMPARE(canvas.image().pixelColor(40, 7), gridColour);
    }

    void gridZeroAndUnknownOnesDrawNothing_data()
    {
        QTest::addColumn<int>("index");
        QTest::newRow("none") << 0;
        QTest::newRow("minus one") << -1;
        QTest::newRow("beyond the table") << 99;
    }

    void gridZeroAndUnknownOnesDrawNothing()
    {
        QFETCH(int, index);
        InchContext ctx(index);
        Canvas canvas(&ctx);
        drawGrid(&ctx, 300, 200);
        QVERIFY(canvas.isBlank());
    }

    // --- spacings that cannot be drawn -------------------------------------------------------

    void spacingsOfAHundredthPixelAndLessDrawNothing_data()
    {
        QTest::addColumn<float>("step");
        QTest::addColumn<float>("zoom");
        QTest::addColumn<bool>("drawn");
        QTest::newRow("zero") << 0.0f << 1.0f << false;
        QTest::newRow("negative") << -0.5f << 1.0f << false;
        QTest::newRow("tiny at the smallest zoom") << 0.0001f << 0.01f << false;
        QTest::newRow("infinite") << std::numeric_limits<float>::infinity() << 1.0f << false;
        QTest::newRow("just above") << 0.000126f << 1.0f << true;
    }

    // Without lines the antialiasing is not put back; who draws next sets it.
    void spacingsOfAHundredthPixelAndLessDrawNothing()
    {
        QFETCH(float, step);
        QFETCH(float, zoom);
        QFETCH(bool, drawn);
        appendGrid(step, Qt::SolidLine);
        InchContext ctx(OTHER);
        ctx.zoom = zoom;
        Canvas canvas(&ctx);
        canvas.painter()->setRenderHint(QPainter::Antialiasing);
        drawGrid(&ctx, 300, 200);
        QCOMPARE(!canvas.isBlank(), drawn);
        QCOMPARE(isSmooth(canvas, ctx), drawn);
    }

    void isometricGridsOfNoSpacingDrawNothing()
    {
        InchContext ctx(MEDIUM_ISO);
        ctx.zoom = 0.0f;
        Canvas canvas(&ctx);
        canvas.painter()->setRenderHint(QPainter::Antialiasing);
        drawGrid(&ctx, 300, 200);
        QVERIFY(canvas.isBlank());
        QVERIFY(!isSmooth(canvas, ctx));
    }

    void antialiasingGoesBackToThePreference()
    {
        InchContext ctx;
        Canvas canvas(&ctx);
        drawGrid(&ctx, 300, 200);
        QVERIFY(isSmooth(canvas, ctx));
        otherPreferencesData.antialiasing = false;
        drawGrid(&ctx, 300, 200);
        QVERIFY(!isSmooth(canvas, ctx));
        canvas.painter()->setRenderHint(QPainter::Antialiasing);
        drawPageborders(&ctx);
        QVERIFY(!isSmooth(canvas, ctx));
    }

    void theGridItselfIsNeverSmooth()
    {
        InchContext ctx(MEDIUM_ISO);
        Canvas plain(&ctx);
        drawGrid(&ctx, 300, 200);
        Canvas smooth(&ctx);
        smooth.painter()->setRenderHint(QPainter::Antialiasing);
        drawGrid(&ctx, 300, 200);
        QCOMPARE(smooth.image(), plain.image());
    }

    // --- isometric grids ----------------------------------------------------------------------

    // Step 80, columns of 69.28 at 69 and 139, a fall of 101 * 0.57735 = 58.31 over the width.
    void isometricLinesFallAndRiseByHalfAStepPerColumn()
    {
        InchContext ctx(MEDIUM_ISO);
        Canvas canvas(&ctx, 100, 90);
        drawGrid(&ctx, 100, 90);
        const QVector<QLine> lines = {{69, 0, 69, 91},    // columns
                                      {0, -80, 101, -22}, // falling, from 160 above
                                      {0, 0, 101, 58},    {0, 80, 101, 138},
                                      {0, 0, 101, -58}, // rising
                                      {0, 80, 101, 22},   {0, 160, 101, 102}};
        QCOMPARE(canvas.image(), drawnLines(100, 90, lines, gridColour, Qt::DotLine));
    }

    // Shift 50, 30: the column at 69.28 stands at 19.28 and the next at 88.56. The falling lines
    // begin at 50 * 0.57735 - 30 = -1.13, the rising ones at -28.87 - 30 = -58.87.
    void isometricLinesGoWithTheScrollPosition()
    {
        InchContext ctx(MEDIUM_ISO);
        ctx.shiftX = 50;
        ctx.shiftY = 30;
        Canvas canvas(&ctx, 100, 90);
        drawGrid(&ctx, 100, 90);
        const QVector<QLine> lines = {{19, 0, 19, 91},  {89, 0, 89, 91},   {0, -81, 101, -23},
                                      {0, -1, 101, 57}, {0, 79, 101, 137}, {0, 21, 101, -37},
                                      {0, 101, 101, 43}};
        QCOMPARE(canvas.image(), drawnLines(100, 90, lines, gridColour, Qt::DotLine));
    }

    // Where a column and the slanted lines meet, positions snap to.
    void isometricCrossingsAreWherePositionsSnap()
    {
        gridPreferences.snapMode = 1;
        appendGrid(0.5f, Qt::SolidLine);
        InchContext ctx(MEDIUM_ISO);
        ctx.magnetMode = 4;
        int x = 1000; // column 1
        int y = 700;  // 40 pixels are 600 units
        roundCoords(&ctx, &x, &y);
        QCOMPARE(QPoint(pixelX(&ctx, x), pixelY(&ctx, y)), QPoint(69, 40));
        // The falling line from 0, 0 and the rising one from 0, 80 at that column.
        QCOMPARE(qRound(69.28 * 0.57735), 40);
        QCOMPARE(qRound(80 - 69.28 * 0.57735), 40);
    }

    // The vertical resolution gives both spacings.
    void isometricGridsTakeTheVerticalScale()
    {
        InchContext ctx(MEDIUM_ISO);
        ctx.ppiX = 200.0f;
        Canvas wide(&ctx, 100, 90);
        drawGrid(&ctx, 100, 90);
        ctx.ppiX = 80.0f;
        Canvas square(&ctx, 100, 90);
        drawGrid(&ctx, 100, 90);
        QCOMPARE(wide.image(), square.image());
    }

    // 600 x 100: lines fall 347 pixels over the width but start at most 160 above the canvas.
    void fallingLinesMissTheUpperRightOfAWideCanvas()
    {
        InchContext ctx(MEDIUM_ISO);
        Canvas canvas(&ctx, 600, 100);
        drawGrid(&ctx, 600, 100);
        const QVector<QLine> rest = {
            {0, -160, 601, 187}, {0, -80, 601, 267}, {0, 0, 601, 347}, {0, 80, 601, 427}};
        QVector<QLine> lines;
        for (int x : {69, 139, 208, 277, 346, 416, 485, 554})
            lines.append({x, 0, x, 101});
        lines += rest;
        for (int y = 0; y < 101 + 160; y += 80)
            lines.append({0, y, 601, y - 347});
        QCOMPARE(canvas.image(), drawnLines(600, 100, lines, gridColour, Qt::DotLine));
    }

    // --- page borders --------------------------------------------------------------------------

    // A4 counts as 21 by 30 cm: at a tenth 66.14 by 94.49 pixels.
    void thePageEndsAtWholeCentimetres()
    {
        InchContext ctx;
        ctx.zoom = 0.1f;
        ctx.paperSize = A4;
        Canvas canvas(&ctx, 120, 120);
        drawPageborders(&ctx);
        QCOMPARE(canvas.image(),
                 drawnLines(120, 120, {{0, 94, 66, 94}, {66, 94, 66, 0}}, Qt::black, Qt::DotLine));
        QVERIFY(canvas.isInked(0, 94) && canvas.isInked(66, 90)); // one pixel in three
        QVERIFY(!canvas.isInked(70, 94) && !canvas.isInked(66, 98) && !canvas.isInked(0, 10));
    }

    void aTurnedPageIsWide()
    {
        InchContext ctx;
        ctx.zoom = 0.1f;
        ctx.paperSize = A4;
        ctx.landscape = true;
        Canvas canvas(&ctx, 120, 120);
        drawPageborders(&ctx);
        QCOMPARE(canvas.image(),
                 drawnLines(120, 120, {{0, 66, 94, 66}, {94, 66, 94, 0}}, Qt::black, Qt::DotLine));
    }

    void theBordersGoWithTheScrollPosition()
    {
        InchContext ctx;
        ctx.zoom = 0.1f;
        ctx.shiftX = 20;
        ctx.shiftY = 10;
        Canvas canvas(&ctx, 120, 120);
        drawPageborders(&ctx);
        QCOMPARE(canvas.image(), drawnLines(120, 120, {{-20, 84, 46, 84}, {46, 84, 46, -10}},
                                            Qt::black, Qt::DotLine));
    }

    void theUpperLeftEdgesShowWithANegativeShiftOnly()
    {
        InchContext ctx;
        ctx.zoom = 0.1f;
        ctx.shiftX = -10;
        Canvas left(&ctx, 120, 120);
        drawPageborders(&ctx);
        QCOMPARE(left.image(),
                 drawnLines(120, 120, {{10, 94, 10, 0}, {10, 94, 76, 94}, {76, 94, 76, 0}},
                            Qt::black, Qt::DotLine));
        ctx.shiftX = 0;
        ctx.shiftY = -20;
        Canvas top(&ctx, 120, 120);
        drawPageborders(&ctx);
        QCOMPARE(top.image(),
                 drawnLines(120, 120, {{0, 20, 66, 20}, {0, 114, 66, 114}, {66, 114, 66, 20}},
                            Qt::black, Qt::DotLine));
    }

    void theBordersCanBeSwitchedOff()
    {
        InchContext ctx;
        ctx.zoom = 0.1f;
        ctx.showPageBorders = false;
        Canvas canvas(&ctx);
        drawPageborders(&ctx);
        QVERIFY(canvas.isBlank());
    }

    void bordersFarAwayAreDrawnAtOnce()
    {
        InchContext ctx;
        ctx.zoom = 99.99f;
        ctx.shiftX = INT_MAX;
        ctx.shiftY = INT_MIN;
        Canvas canvas(&ctx);
        drawPageborders(&ctx);
        drawGrid(&ctx, 300, 200);
        QVERIFY(!canvas.isInked(5, 5));
    }

    // --- in the redraw ---------------------------------------------------------------------------

    void theGridShowsOnlyIfItIsOn()
    {
        InchContext ctx;
        ctx.showPageBorders = false;
        ctx.gridOn = false;
        QCOMPARE(drawCanvas(&ctx, QSize(50, 50), false).pixelColor(40, 10), QColor(Qt::white));
        ctx.gridOn = true;
        QCOMPARE(drawCanvas(&ctx, QSize(50, 50), false).pixelColor(40, 10), gridColour);
    }

    void newDocumentsShowNoGridButThePage()
    {
        CFigContext ctx;
        ctx.zoom = 0.1f;
        QVERIFY(!ctx.gridOn);
        const QImage canvas = drawCanvas(&ctx, QSize(120, 120), false);
        QCOMPARE(canvas.pixelColor(0, 94), QColor(Qt::black));
    }

    void objectsCoverTheGridAndTheBorders()
    {
        InchContext ctx;
        ctx.zoom = 0.1f; // the grid stands at 4, 8, 12...
        auto box = makeLine({{0, 0}, {18000, 0}, {18000, 18000}, {0, 18000}, {0, 0}});
        box->sub_type = T_BOX;
        box->fill_style = 20;
        box->fill_color = 4;
        box->depth = 50;
        ctx.drawing.objects.append(box.release());
        ctx.max_depth = 50;
        const QImage canvas = drawCanvas(&ctx, QSize(115, 115), false);
        for (int x : {4, 40, 66})
            QCOMPARE(canvas.pixelColor(x, 50), canvas.pixelColor(5, 5));
        QCOMPARE(canvas.pixelColor(40, 94), canvas.pixelColor(5, 5));
    }

    void aPartialRedrawLeavesWhatAFullOneShows_data()
    {
        QTest::addColumn<int>("grid");
        QTest::newRow("square") << SMALL;
        QTest::newRow("solid") << SOLID;
        QTest::newRow("isometric") << MEDIUM_ISO;
    }

    void aPartialRedrawLeavesWhatAFullOneShows()
    {
        QFETCH(int, grid);
        InchContext ctx(grid);
        ctx.zoom = 0.1f;
        ctx.shiftX = 3;
        auto line = makeLine({{3000, 3000}, {9000, 12000}});
        FigLine* object = line.get();
        object->depth = 50;
        ctx.drawing.objects.append(line.release());
        ctx.max_depth = 50;
        QScopedValueRollback<bool> preference(otherPreferencesData.antialiasing, false);
        Canvas canvas(&ctx, 120, 120);
        redisplay_viewport(&ctx, 120, 120);
        const QImage full = canvas.image();
        canvas.painter()->fillRect(30, 30, 20, 20, Qt::red);
        refresh_obj_area(&ctx, object, false);
        QCOMPARE(canvas.image(), full);
        FigObjectList list = {object};
        canvas.painter()->fillRect(30, 30, 20, 20, Qt::red);
        refresh_obj_area(&ctx, &list, false);
        QCOMPARE(canvas.image(), full);
    }

    // Lines that do not reach into the clip are left out; what is seen of the others is the same.
    void aClippedGridShowsTheSamePixels_data()
    {
        QTest::addColumn<int>("grid");
        QTest::newRow("square") << SMALL;
        QTest::newRow("solid") << SOLID;
        QTest::newRow("isometric") << MEDIUM_ISO;
    }

    void aClippedGridShowsTheSamePixels()
    {
        QFETCH(int, grid);
        InchContext ctx(grid);
        std::mt19937 random(3);
        const auto number = [&random](int low, int high) {
            return std::uniform_int_distribution<int>(low, high)(random);
        };
        for (int round = 0; round < 100; ++round) {
            ctx.zoom = static_cast<float>(number(2, 300)) / 100;
            ctx.shiftX = number(0, 500);
            ctx.shiftY = number(0, 500);
            const QRect part(number(-20, 280), number(-20, 180), number(21, 90), number(21, 90));
            Canvas whole(&ctx);
            drawGrid(&ctx, 300, 200);
            Canvas clipped(&ctx);
            clipped.painter()->setClipRect(part);
            drawGrid(&ctx, 300, 200);
            const QRect seen = part & QRect(0, 0, 300, 200);
            QCOMPARE(clipped.image().copy(seen), whole.image().copy(seen));
        }
    }

    // --- measures --------------------------------------------------------------------------------

    // Thousands of lines would fall on the same pixels.
    void smallStepsAtTheSmallestZoomAreDrawnAtOnce_data()
    {
        QTest::addColumn<int>("index");
        QTest::newRow("square") << SMALL;
        QTest::newRow("isometric") << 4;
        QTest::newRow("custom") << OTHER;
    }

    void smallStepsAtTheSmallestZoomAreDrawnAtOnce()
    {
        QFETCH(int, index);
        appendGrid(0.02f, Qt::DotLine);
        InchContext ctx(index);
        ctx.zoom = 0.01f;
        Canvas canvas(&ctx, 2000, 1500);
        QElapsedTimer timer;
        timer.start();
        drawGrid(&ctx, 2000, 1500);
        qInfo("%lld ms", timer.elapsed());
        QVERIFY(timer.elapsed() < 3000);
        QVERIFY(canvas.isInked(1500, 1200) || canvas.isInked(1501, 1200) ||
                canvas.isInked(1502, 1200));
    }

private:
    std::unique_ptr<EngineTables> m_tables;
};

QTEST_MAIN(TestGridDraw)
#include "test_grid_draw.moc"
