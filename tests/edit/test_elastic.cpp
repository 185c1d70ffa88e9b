#include "ToolFixture.h"
#include "edit/d_regpoly.h"
#include "edit/u_elastic.h"
#include "render/grid.h"

#include <QtTest>

#include <climits>
#include <functional>

Q_DECLARE_METATYPE(PointerProc)
Q_DECLARE_METATYPE(ElasticProc)

namespace {

constexpr int LEAST = INT_MIN;
constexpr int GREATEST = INT_MAX;

/// A canvas with something on it, on which one figure unit is a pixel unless told otherwise.
class Board {
public:
    explicit Board(int width = 220, int height = 180)
        : image(width, height, QImage::Format_ARGB32_Premultiplied)
    {
        resetToolState();
        ctx.ppiX = ctx.ppiY = 1200.0f;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                image.setPixelColor(x, y, QColor((x * 7) & 255, (y * 5) & 255, (x * y) & 255));
        blank = image;
    }
    ~Board() { resetToolState(); }
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    template <typename Work> void draw(Work work, bool smooth = false)
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, smooth);
        ctx.setPainter(&painter);
        work(&ctx);
        ctx.setPainter(nullptr);
    }
    /// What the work changes on a fresh board.
    template <typename Work> QImage drawn(Work work)
    {
        image = blank;
        draw(work);
        const QImage result = image;
        image = blank;
        return result;
    }
    bool isClean() const { return image == blank; }
    bool isInverted(int x, int y) const
    {
        const QColor before = blank.pixelColor(x, y);
        return image.pixelColor(x, y) ==
               QColor(255 - before.red(), 255 - before.green(), 255 - before.blue());
    }
    bool isUntouched(int x, int y) const { return image.pixel(x, y) == blank.pixel(x, y); }

    CFigContext ctx;
    QImage image, blank;
};

void setGesture(int fx, int fy, int cx, int cy)
{
    fix_x = fx;
    fix_y = fy;
    cur_x = cx;
    cur_y = cy;
}

struct Outline {
    const char* name;
    std::function<void(CFigContext*)> draw;
};

/// Every shape between two opposite corners.
QVector<Outline> outlines(int x1, int y1, int x2, int y2)
{
    const auto byAnchors = [=](ElasticProc shape) {
        return [=](CFigContext* ctx) {
            setGesture(x1, y1, x2, y2);
            cur_angle = 0.7f;
            shape(ctx, x1, y1, x2, y2);
        };
    };
    return {
        {"box", byAnchors(elastic_box)},
        {"rubber box", byAnchors(elastic_rubberbox)},
        {"dotted box", byAnchors(elastic_dottedbox)},
        {"moved box", byAnchors([](CFigContext* ctx, int, int, int, int) {
             x1off = y1off = 30;
             x2off = -60;
             y2off = 90;
             elastic_movebox(ctx);
             x1off = y1off = x2off = y2off = 0;
         })},
        {"line", byAnchors(elastic_line)},
        {"ellipse by radii", byAnchors(elastic_ebr)},
        {"ellipse by diameters", byAnchors(elastic_ebd)},
        {"circle by radius", byAnchors(elastic_cbr)},
        {"circle by diameter", byAnchors(elastic_cbd)},
        {"hexagon", [=](CFigContext* ctx) { elastic_poly(ctx, x1, y1, x2, y2, 6); }},
        {"polygon of one side", [=](CFigContext* ctx) { elastic_poly(ctx, x1, y1, x2, y2, 1); }},
        {"chain", [=](CFigContext* ctx) {
             FigPoint third(x1, y2);
             FigPoint second(x2, y2);
             FigPoint first(x1, y1);
             first.next = &second;
             second.next = &third;
             elastic_moveline(ctx, &first, 15, -15);
         }}};
}

} // namespace

class TestElastic : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { loadGridDefinitions(); }
    void cleanupTestCase() { destroyGridDefinitions(); }

    void twoDrawsLeaveTheImageAsItWas_data()
    {
        QTest::addColumn<float>("ppi");
        QTest::addColumn<float>("zoom");
        QTest::addColumn<QPoint>("scroll");
        for (const float ppi : {72.0f, 80.0f, 96.0f, 150.0f, 300.0f}) {
            for (const float zoom : {0.13f, 1.0f, 3.7f}) {
                for (const QPoint& scroll : {QPoint(0, 0), QPoint(23, 41)})
                    QTest::addRow("%g dpi, zoom %g, scrolled by %d", double(ppi), double(zoom),
                                  scroll.x())
                        << ppi << zoom << scroll;
            }
        }
    }

    void twoDrawsLeaveTheImageAsItWas()
    {
        QFETCH(float, ppi);
        QFETCH(float, zoom);
        QFETCH(QPoint, scroll);
        Board board;
        board.ctx.ppiX = board.ctx.ppiY = ppi;
        board.ctx.zoom = zoom;
        board.ctx.shiftX = scroll.x();
        board.ctx.shiftY = scroll.y();
        // Corners at known pixels of this view, whatever its scale.
        const auto unit = [=](int pixel, int shift) {
            return static_cast<int>((pixel + shift) * (1200.0f / ppi) / zoom);
        };
        const int x1 = unit(90, scroll.x()), y1 = unit(80, scroll.y());
        const int x2 = unit(140, scroll.x()), y2 = unit(110, scroll.y());
        for (const Outline& outline : outlines(x1, y1, x2, y2)) {
            board.draw(outline.draw);
            QVERIFY2(!board.isClean(), outline.name);
            board.draw(outline.draw);
            QVERIFY2(board.isClean(), outline.name);
        }
    }

    // A press draws with antialiasing, the move that follows wipes without.
    void theHintOfTheBracketDoesNotMatter()
    {
        Board board;
        for (const Outline& outline : outlines(60, 50, 150, 120)) {
            board.draw(outline.draw, true);
            board.draw(outline.draw, false);
            QVERIFY2(board.isClean(), outline.name);
        }
        board.draw(
            [](CFigContext* ctx) {
                elastic_box(ctx, 10, 10, 50, 50);
                QVERIFY(ctx->painter->testRenderHint(QPainter::Antialiasing));
            },
            true);
    }

    void aDrawingInvertsWhatItTouches()
    {
        Board board;
        board.draw([](CFigContext* ctx) { elastic_box(ctx, 20, 30, 120, 90); });
        for (const QPoint& side : {QPoint(70, 30), QPoint(70, 90), QPoint(20, 60), QPoint(120, 60)})
            QVERIFY(board.isInverted(side.x(), side.y()));
        QVERIFY(board.isUntouched(70, 60));
        QVERIFY(board.isUntouched(19, 60));
        QVERIFY(board.isUntouched(70, 91));
    }

    void theDottedBoxHasThreePixelsOnAndThreeOff()
    {
        Board board;
        board.draw([](CFigContext* ctx) { elastic_dottedbox(ctx, 20, 30, 120, 90); });
        // Down the left side, which is drawn first and from its upper end.
        QString pattern;
        for (int y = 31; y < 49; ++y)
            pattern += board.isInverted(20, y) ? '#' : '.';
        QVERIFY2(QString("###...###...###...###...###").contains(pattern), qPrintable(pattern));
    }

    void thePlainBoxesStayWhenDrawnTwice()
    {
        Board board;
        for (const auto shape : {rubberbox, dottedbox}) {
            const QImage once = board.drawn([=](CFigContext* ctx) { shape(ctx, 20, 30, 120, 90); });
            const QImage twice = board.drawn([=](CFigContext* ctx) {
                shape(ctx, 20, 30, 120, 90);
                shape(ctx, 20, 30, 120, 90);
            });
            QVERIFY(once != board.blank);
            QCOMPARE(twice, once);
            QCOMPARE(once.pixelColor(20, 31), QColor(Qt::black));
        }
    }

    // --- ellipses -----------------------------------------------------------------------

    // Painted here by hand: 0.53 radian are 30.4 degrees, and the scroll offset is taken off
    // inside the turned frame.
    void theRubberEllipseTurnsByWholeDegreesAndScrollsInTheTurnedFrame()
    {
        Board board;
        board.ctx.shiftX = 12;
        board.ctx.shiftY = 7;
        QImage expected = board.blank;
        QPainter painter(&expected);
        painter.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter.setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
        painter.translate(100, 80);
        painter.rotate(-30);
        painter.drawEllipse(QRect(-40 - 12, -20 - 7, 80, 40));
        painter.end();
        const QImage seen =
            board.drawn([](CFigContext* ctx) { elastic_ellipse(ctx, 100, 80, 40, 20, 0.53f); });
        QVERIFY(seen != board.blank);
        QCOMPARE(seen, expected);
    }

    void aNegativeRadiusDrawsTheSameEllipse()
    {
        Board board;
        // 41 units are 20.5 pixels but 82 are 41, so the rounding of the sides differs.
        board.ctx.zoom = 0.5f;
        cur_angle = 0.4f;
        const auto byRadii = [&](int cx, int cy) {
            return board.drawn([=](CFigContext* ctx) {
                setGesture(100, 90, cx, cy);
                elastic_ebr(ctx);
            });
        };
        const QImage expected = byRadii(141, 113);
        QVERIFY(expected != board.blank);
        QCOMPARE(byRadii(59, 113), expected);
        QCOMPARE(byRadii(141, 67), expected);
        QCOMPARE(byRadii(59, 67), expected);
    }

    void aRadiusOfZeroDrawsNothing()
    {
        Board board;
        for (const QPoint& end : {QPoint(100, 130), QPoint(150, 90), QPoint(100, 90)}) {
            board.draw([=](CFigContext* ctx) {
                setGesture(100, 90, end.x(), end.y());
                elastic_ebr(ctx);
            });
            QVERIFY(board.isClean());
        }
    }

    void theCircleByDiameterTruncatesItsHalves()
    {
        Board board;
        const auto byDiameter = [&](int x, int y) {
            return board.drawn([=](CFigContext* ctx) {
                setGesture(100, 90, x, y);
                elastic_cbd(ctx);
            });
        };
        // (-61, 0) halves to (-30, 0): centre (70, 90), radius 30.
        QCOMPARE(byDiameter(39, 90),
                 board.drawn([](CFigContext* ctx) { elastic_ellipse(ctx, 70, 90, 30, 30, 0); }));
        // (61, 81) halves to (30, 40): radius 50.
        QCOMPARE(byDiameter(161, 171),
                 board.drawn([](CFigContext* ctx) { elastic_ellipse(ctx, 130, 130, 50, 50, 0); }));
    }

    void theEllipseByDiametersHasTruncatedCentreAndHalvedRadii()
    {
        Board board;
        cur_angle = 0;
        QCOMPARE(board.drawn([](CFigContext* ctx) {
            setGesture(100, 90, 41, 121);
            elastic_ebd(ctx);
        }),
                 board.drawn([](CFigContext* ctx) { elastic_ellipse(ctx, 70, 105, 29, 15, 0); }));
    }

    // 60000 squared is more than 32 bits hold.
    void largeRadiiAreRight()
    {
        Board board;
        board.ctx.zoom = 0.002f;
        const QImage circle = board.drawn([](CFigContext* ctx) {
            setGesture(0, 0, 36000, 48000);
            elastic_cbr(ctx);
        });
        QVERIFY(circle != board.blank);
        QCOMPARE(circle, board.drawn([](CFigContext* ctx) {
            elastic_ellipse(ctx, 0, 0, 60000, 60000, 0);
        }));
    }

    void aMovedEllipseIsShifted()
    {
        Board board;
        FigEllipse ellipse;
        ellipse.center = FigPoint(60, 60);
        ellipse.radiuses = FigPoint(30, 20);
        ellipse.angle = 0.5f;
        QCOMPARE(
            board.drawn([&](CFigContext* ctx) { elastic_moveellipse(ctx, &ellipse, 40, 15); }),
            board.drawn([](CFigContext* ctx) { elastic_ellipse(ctx, 100, 75, 30, 20, 0.5f); }));
    }

    // --- polygons and chains ------------------------------------------------------------

    void thePolygonGoesRoundFromItsFirstCorner()
    {
        Board board;
        QCOMPARE(board.drawn([](CFigContext* ctx) { elastic_poly(ctx, 100, 90, 160, 90, 4); }),
                 board.drawn([](CFigContext* ctx) {
                     elastic_line(ctx, 100, 30, 160, 90);
                     elastic_line(ctx, 40, 90, 100, 30);
                     elastic_line(ctx, 100, 150, 40, 90);
                     elastic_line(ctx, 100, 150, 160, 90);
                 }));
    }

    // The corners were worked out apart, with angles cut to single precision: the fourth lies at
    // (61, 438) from the centre, while double precision gives 61.50006, that is (62, 438).
    void aPreviewCornerMayDifferByOneUnitFromTheFinalOne()
    {
        Board board(1000, 900);
        QCOMPARE(board.drawn([](CFigContext* ctx) { elastic_poly(ctx, 450, 430, 886, 507, 5); }),
                 board.drawn([](CFigContext* ctx) {
                     elastic_line(ctx, 658, 39, 886, 507);
                     elastic_line(ctx, 143, 111, 658, 39);
                     elastic_line(ctx, 52, 624, 143, 111);
                     elastic_line(ctx, 511, 868, 52, 624);
                     elastic_line(ctx, 511, 868, 886, 507);
                 }));
        cur_numsides = 5;
        FigPoint* corners = calculateRepolyPoints(450, 430, 886, 507);
        QCOMPARE(chainOf(corners),
                 (QVector<QPoint>{
                     {886, 507}, {658, 39}, {143, 111}, {52, 624}, {512, 868}, {886, 507}}));
        free_points(corners);
    }

    void aChainOfOnePointIsAVectorAtTheMovingEnd()
    {
        Board board;
        FigPoint only(30, 30);
        QCOMPARE(board.drawn([&](CFigContext* ctx) {
            setGesture(0, 0, 80, 70);
            elastic_moveline(ctx, &only, 5, 5);
        }),
                 board.drawn([](CFigContext* ctx) { elastic_line(ctx, 80, 70, 80, 70); }));
    }

    void linksGoFromTheNeighboursToTheMovingEnd()
    {
        Board board;
        FigPoint left(20, 30), right(150, 120);
        setGesture(0, 0, 90, 20);
        left_point = &left;
        right_point = nullptr;
        QCOMPARE(board.drawn([](CFigContext* ctx) { elastic_linelink(ctx, 0, 0, 0, 0); }),
                 board.drawn([](CFigContext* ctx) { elastic_line(ctx, 20, 30, 90, 20); }));
        right_point = &right;
        QCOMPARE(board.drawn([](CFigContext* ctx) { elastic_linelink(ctx, 0, 0, 0, 0); }),
                 board.drawn([](CFigContext* ctx) {
                     elastic_line(ctx, 20, 30, 90, 20);
                     elastic_line(ctx, 150, 120, 90, 20);
                 }));
        left_point = right_point = nullptr;
    }

    void theArcLinkGoesByTheNumberOfThePoint()
    {
        Board board;
        FigArc arc;
        arc.point[0] = FigPoint(20, 20);
        arc.point[1] = FigPoint(120, 20);
        arc.point[2] = FigPoint(120, 120);
        board.ctx.curObject = &arc;
        setGesture(0, 0, 70, 90);
        const auto linked = [&](int number) {
            movedpoint_num = number;
            return board.drawn(elastic_arclink);
        };
        const QImage toMiddle =
            board.drawn([](CFigContext* ctx) { elastic_line(ctx, 120, 20, 70, 90); });
        QCOMPARE(linked(0), toMiddle);
        QCOMPARE(linked(2), toMiddle);
        QCOMPARE(linked(1), board.drawn([](CFigContext* ctx) {
            elastic_line(ctx, 20, 20, 70, 90);
            elastic_line(ctx, 120, 120, 70, 90);
        }));
        movedpoint_num = 0;
        board.ctx.curObject = nullptr;
        QCOMPARE(board.drawn(elastic_arclink), board.blank);
    }

    // --- moving -------------------------------------------------------------------------

    void aMoveWipesTheOldShapeAndDrawsTheNewOne_data()
    {
        QTest::addColumn<PointerProc>("move");
        QTest::addColumn<ElasticProc>("shape");
        QTest::newRow("box") << PointerProc(resizing_box) << ElasticProc(elastic_box);
        QTest::newRow("constrained")
            << PointerProc(constrained_resizing_box) << ElasticProc(elastic_box);
        QTest::newRow("rubber") << PointerProc(resizing_rubberbox)
                                << ElasticProc(elastic_rubberbox);
        QTest::newRow("dotted") << PointerProc(resizing_dottedbox)
                                << ElasticProc(elastic_dottedbox);
        QTest::newRow("region") << PointerProc(capture_objects) << ElasticProc(elastic_dottedbox);
        QTest::newRow("ebr") << PointerProc(resizing_ebr) << ElasticProc(elastic_ebr);
        QTest::newRow("ebd") << PointerProc(resizing_ebd) << ElasticProc(elastic_ebd);
        QTest::newRow("cbr") << PointerProc(resizing_cbr) << ElasticProc(elastic_cbr);
        QTest::newRow("cbd") << PointerProc(resizing_cbd) << ElasticProc(elastic_cbd);
        QTest::newRow("line") << PointerProc(freehand_line) << ElasticProc(elastic_line);
        QTest::newRow("polygon") << PointerProc(resizing_poly)
                                 << ElasticProc(
                                        [](CFigContext* ctx, int x1, int y1, int x2, int y2) {
                                            elastic_poly(ctx, x1, y1, x2, y2, cur_numsides);
                                        });
    }

    void aMoveWipesTheOldShapeAndDrawsTheNewOne()
    {
        QFETCH(PointerProc, move);
        QFETCH(ElasticProc, shape);
        Board board;
        const auto shapeNow = [=](CFigContext* ctx) { shape(ctx, fix_x, fix_y, cur_x, cur_y); };
        setGesture(100, 90, 100, 90);
        board.draw(shapeNow);
        for (const QPoint& place : {QPoint(140, 120), QPoint(60, 130), QPoint(100, 90)}) {
            board.draw([=](CFigContext* ctx) { move(ctx, place.x(), place.y()); });
            QCOMPARE(QPoint(cur_x, cur_y), place);
            QCOMPARE(QPoint(fix_x, fix_y), QPoint(100, 90));
        }
        board.draw([=](CFigContext* ctx) { move(ctx, 150, 50); });
        QVERIFY(!board.isClean());
        board.draw(shapeNow);
        QVERIFY(board.isClean());
    }

    void theShiftedOutlinesFollowTheCurrentObject()
    {
        Board board;
        FigLine line;
        line.points = makePoints({{20, 20}, {60, 40}, {30, 80}});
        board.ctx.curObject = &line;
        for (const PointerProc move : {PointerProc(moving_line), PointerProc(moving_spline)}) {
            setGesture(10, 10, 10, 10);
            board.draw([&](CFigContext* ctx) { elastic_moveline(ctx, line.points, 0, 0); });
            board.draw([=](CFigContext* ctx) { move(ctx, 60, 30); });
            board.draw([&](CFigContext* ctx) { elastic_moveline(ctx, line.points, 50, 20); });
            QVERIFY(board.isClean());
        }
        FigEllipse ellipse;
        ellipse.center = FigPoint(60, 60);
        ellipse.radiuses = FigPoint(30, 20);
        board.ctx.curObject = &ellipse;
        setGesture(10, 10, 10, 10);
        board.draw([&](CFigContext* ctx) { elastic_moveellipse(ctx, &ellipse, 0, 0); });
        board.draw([](CFigContext* ctx) { moving_ellipse(ctx, 60, 30); });
        board.draw([&](CFigContext* ctx) { elastic_moveellipse(ctx, &ellipse, 50, 20); });
        QVERIFY(board.isClean());
        board.ctx.curObject = nullptr;

        x1off = y1off = -10;
        x2off = y2off = 20;
        setGesture(0, 0, 50, 50);
        board.draw(elastic_movebox);
        board.draw([](CFigContext* ctx) { moving_box(ctx, 90, 70); });
        board.draw([](CFigContext* ctx) { elastic_box(ctx, 80, 60, 110, 90); });
        QVERIFY(board.isClean());
        x1off = y1off = x2off = y2off = 0;
    }

    // --- constraints ----------------------------------------------------------------------

    // The anchor is (1000, 1000) and the rubber line ends at (1500, 1700) before the move.
    void theEndIsBentToAnAllowedDirection_data()
    {
        QTest::addColumn<bool>("manhattan");
        QTest::addColumn<bool>("mountain");
        QTest::addColumn<QPoint>("pointer");
        QTest::addColumn<QPoint>("end");
        const auto row = [](const char* name, bool manhattan, bool mountain, QPoint pointer,
                            QPoint end) {
            QTest::newRow(name) << manhattan << mountain << pointer << end;
        };
        row("flat is horizontal", true, false, {1900, 1300}, {1900, 1000});
        row("flat to the left", true, false, {100, 700}, {100, 1000});
        row("steep is vertical", true, false, {1300, 1900}, {1000, 1900});
        row("exactly 45 degrees up is vertical", true, false, {1300, 700}, {1000, 700});
        row("exactly 45 degrees down is horizontal", true, false, {1300, 1300}, {1300, 1000});
        row("straight up stays", true, false, {1000, 400}, {1000, 400});
        row("straight up with both", true, true, {1000, 400}, {1000, 400});
        // Mountain alone: rising lines go to 45 degrees by the longer axis.
        row("rising, wide", false, true, {1600, 800}, {1600, 400});
        row("rising, high", false, true, {1200, 400}, {1600, 400});
        row("falling, wide", false, true, {1600, 1200}, {1600, 1600});
        row("falling, high", false, true, {1200, 1600}, {1600, 1600});
        row("falling to the upper left", false, true, {400, 900}, {400, 400});
        row("horizontal counts as rising", false, true, {1600, 1000}, {1600, 400});
        row("straight up takes the falling diagonal", false, true, {1000, 400}, {400, 400});
        row("straight down takes it too", false, true, {1000, 1600}, {1600, 1600});
        // Both: the boundaries are 22.5 and 67.5 degrees; tan 22.5 is 0.41421.
        row("below 22.5", true, true, {2000, 586}, {2000, 1000});
        row("above 22.5", true, true, {2000, 585}, {2000, 0});
        row("below 67.5", true, true, {1415, 0}, {2000, 0});
        row("above 67.5", true, true, {1414, 0}, {1000, 0});
        row("above -22.5", true, true, {2000, 1414}, {2000, 1000});
        row("below -22.5", true, true, {2000, 1415}, {2000, 2000});
        row("above -67.5", true, true, {1415, 2000}, {2000, 2000});
        row("below -67.5", true, true, {1414, 2000}, {1000, 2000});
        row("less than 2 units stays", true, true, {1001, 1001}, {1500, 1700});
        row("2 units move", true, false, {1002, 1000}, {1002, 1000});
    }

    void theEndIsBentToAnAllowedDirection()
    {
        QFETCH(bool, manhattan);
        QFETCH(bool, mountain);
        QFETCH(QPoint, pointer);
        QFETCH(QPoint, end);
        Board board;
        board.ctx.zoom = 0.1f;
        manhattan_mode = manhattan;
        mountain_mode = mountain;
        setGesture(1000, 1000, 1500, 1700);
        const auto line = [](CFigContext* ctx) { elastic_line(ctx, fix_x, fix_y, cur_x, cur_y); };
        board.draw(line);
        board.draw([=](CFigContext* ctx) { constrainedangle_line(ctx, pointer.x(), pointer.y()); });
        QCOMPARE(QPoint(cur_x, cur_y), end);
        board.draw(line);
        QVERIFY(board.isClean());
    }

    // On the position that the line has, nothing is bent: a point of an earlier mode stays.
    void thePresentEndIsLeftAlone()
    {
        Board board;
        manhattan_mode = 1;
        setGesture(1000, 1000, 1500, 1700);
        constrainedangle_line(&board.ctx, 1500, 1700);
        QCOMPARE(QPoint(cur_x, cur_y), QPoint(1500, 1700));
    }

    // From (0, 0) towards (1000, 600), 30.96 degrees. Of the line slopes (5,3) is nearest:
    // multiples of 5. Of the arrow slopes it is (3,2): multiples of 3.
    // The medium grid of an inch drawing is 1200; with magnet mode 1 a step is 240. For a line
    // gcd(5, 240) * 240 = 1200, lcm(5, 1200) = 1200, and ((2000 / 1200) + 1) / 2 = 1 step.
    // For an arrow gcd(3, 240) * 240 = 720, and ((2000 / 720) + 1) / 2 = 1 step.
    void latexSlopesCountUnitsWithSnappingAndGridStepsWithout_data()
    {
        QTest::addColumn<bool>("arrow");
        QTest::addColumn<int>("snapMode");
        QTest::addColumn<int>("grid");
        QTest::addColumn<QPoint>("end");
        QTest::newRow("line, snapping") << false << 1 << 2 << QPoint(1000, 600);
        QTest::newRow("arrow, snapping") << true << 3 << 2 << QPoint(999, 666);
        QTest::newRow("line, free") << false << 0 << 2 << QPoint(1200, 720);
        QTest::newRow("line, vertices only") << false << 2 << 2 << QPoint(1200, 720);
        QTest::newRow("arrow, free") << true << 0 << 2 << QPoint(720, 480);
        QTest::newRow("line, free, no grid") << false << 0 << 0 << QPoint(1000, 600);
    }

    void latexSlopesCountUnitsWithSnappingAndGridStepsWithout()
    {
        QFETCH(bool, arrow);
        QFETCH(int, snapMode);
        QFETCH(int, grid);
        QFETCH(QPoint, end);
        Board board;
        board.ctx.metric = false;
        board.ctx.gridIndex = grid;
        board.ctx.magnetMode = 1;
        gridPreferences.snapMode = snapMode;
        latexarrow_mode = arrow;
        latexline_mode = !arrow;
        setGesture(0, 0, 30, 40);
        const auto line = [](CFigContext* ctx) { elastic_line(ctx, fix_x, fix_y, cur_x, cur_y); };
        board.draw(line);
        board.draw([](CFigContext* ctx) { latex_line(ctx, 1000, 600); });
        QCOMPARE(QPoint(cur_x, cur_y), end);
        board.draw(line);
        QVERIFY(board.isClean());
    }

    // --- odd input ------------------------------------------------------------------------

    void coordinatesAtTheLimitsPairUpToo()
    {
        Board board;
        const int corners[][4] = {{LEAST, LEAST, GREATEST, GREATEST},
                                  {GREATEST, LEAST, LEAST, GREATEST},
                                  {0, 0, GREATEST, LEAST},
                                  {LEAST, 50, 50, GREATEST}};
        for (const float zoom : {0.01f, 1.0f, 99.99f}) {
            board.ctx.zoom = zoom;
            for (const auto& c : corners) {
                for (const Outline& outline : outlines(c[0], c[1], c[2], c[3])) {
                    board.draw(outline.draw);
                    board.draw(outline.draw);
                    QVERIFY2(board.isClean(), outline.name);
                }
            }
        }
    }

    void constraintsSaturateAtTheLimits()
    {
        setGesture(GREATEST, GREATEST, 0, 0);
        angle45_line(LEAST, GREATEST);
        QCOMPARE(QPoint(cur_x, cur_y), QPoint(LEAST, GREATEST));
        angle135_line(LEAST, GREATEST);
        QCOMPARE(QPoint(cur_x, cur_y), QPoint(LEAST, LEAST));
        setGesture(LEAST, 0, 0, 0);
        angle135_line(0, GREATEST);
        QCOMPARE(cur_x, 0);
        QCOMPARE(cur_y, GREATEST);
    }

    void withoutDocumentOrPainterNothingIsDrawn()
    {
        resetToolState();
        CFigContext ctx;
        for (CFigContext* target : {static_cast<CFigContext*>(nullptr), &ctx}) {
            for (const Outline& outline : outlines(0, 0, 600, 400))
                outline.draw(target);
            elastic_arclink(target);
            elastic_moveellipse(target, nullptr, 1, 1);
            elastic_moveline(target, nullptr, 1, 1);
            for (const PointerProc move :
                 {resizing_box, resizing_poly, resizing_cbr, freehand_line, latex_line,
                  constrainedangle_line, moving_box, moving_line, moving_ellipse})
                move(target, 700, 300);
        }
        resetToolState();
    }
};

QTEST_MAIN(TestElastic)
#include "test_elastic.moc"
