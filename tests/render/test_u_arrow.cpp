#include "DrawingFixtures.h"
#include "render/colorFunctions.h"
#include "render/u_arrow.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace {

/// What calc_arrow gives out.
struct Head {
    QVector<QPoint> points, fill, clip;
};

Head headOf(CFigContext* ctx, const QPoint& from, const QPoint& to, FigArrow arrow, int thickness)
{
    QPoint points[MAX_ARROW_POINTS], fill[6], clip[50];
    long count = -1;
    int fillCount = -1, clipCount = -1;
    calc_arrow(ctx, from.x(), from.y(), to.x(), to.y(), thickness, &arrow, points, &count, fill,
               &fillCount, clip, &clipCount, O_POLYLINE);
    return {QVector<QPoint>(points, points + count), QVector<QPoint>(fill, fill + fillCount),
            QVector<QPoint>(clip, clip + clipCount)};
}

/// On a line from left to right that ends in (200, 100): 20 wide, 40 high, thickness 2.
Head horizontalHead(int type, int style)
{
    PixelContext ctx;
    return headOf(&ctx, {0, 100}, {200, 100}, {type, style, 2.0f, 20.0f, 40.0f}, 2);
}

QVector<QPoint> shifted(QVector<QPoint> points, const QPoint& by)
{
    for (QPoint& point : points)
        point += by;
    return points;
}

/// What get_arrowpoints gives out.
struct BothHeads {
    QVector<QPoint> forward, backward, forwardFill, backwardFill, forwardClip, backwardClip;
};

BothHeads headsOf(CFigContext* ctx, FigObject* object, int skip)
{
    QPoint fill[2][6], clip[2][50];
    int fillCount[2] = {-1, -1}, clipCount[2] = {-1, -1};
    nfpts = nbpts = -1;
    get_arrowpoints(ctx, object, object->type, polygon_points, skip, fill[0], &fillCount[0],
                    fill[1], &fillCount[1], clip[0], &clipCount[0], clip[1], &clipCount[1]);
    const auto list = [](QPoint* points, long count) {
        return QVector<QPoint>(points, points + count);
    };
    return {list(farpts, nfpts),         list(barpts, nbpts),         list(fill[0], fillCount[0]),
            list(fill[1], fillCount[1]), list(clip[0], clipCount[0]), list(clip[1], clipCount[1])};
}

void setPointList(const QVector<QPoint>& points)
{
    init_pointlist();
    for (const QPoint& point : points)
        add_point_to_list(point.x(), point.y());
}

} // namespace

class TestArrow : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { set_colors(); }
    void headOnAHorizontalLine_data();
    void headOnAHorizontalLine();
    void clipOfAHorizontalHead_data();
    void clipOfAHorizontalHead();
    void onlyTheHalfFilledRowsAreNotSimple();
    void filledStickHasNoOutlineButAClip();
    void headTurnsWithItsLine();
    void pullBackDoesNotScaleTheThickness();
    void bothSizesFollowTheHorizontalScale();
    void headWithoutWidthHeightOrDirectionHasNoPoints_data();
    void headWithoutWidthHeightOrDirectionHasNoPoints();
    void unknownTypesAreSticks_data();
    void unknownTypesAreSticks();
    void halfHeadMovesByTheFractionOfItsThickness();
    void circleTouchesTheEndOfTheLine();
    void halfCircleLiesBehindTheEnd();
    void circleAtTheGreatestZoomFitsItsArrays();
    void circleClipReachesTheWidthOfTheLine();
    void lineHeadsFollowTheLastSegments();
    void splineHeadsFollowAChordOfThreeSteps();
    void skipFallsBackToNothingForThreePoints();
    void fewerThanTwoPointsHaveNoHeads();
    void missingArrowsEmptyTheirResults();
    void thicknessIsTruncatedForTheClip();
    void normalStandsOffTheRadius();
    void arcHeadsAreTangents();
    void backwardHeadOfAnArcFillsTheForwardBuffer();
    void backwardHeadOfAnArcTakesTheForwardFillAway();
    void lineWithoutThicknessShowsNoHead();
    void filledStickShowsNothing();
    void hollowHeadsAreWhiteInTheirPenColour_data();
    void hollowHeadsAreWhiteInTheirPenColour();
    void headsFromThirteenOnAreNotFilled();
    void halfFilledHeadShowsItsSolidHalfWhateverItsStyle();
    void headStrokeFollowsTheThinLineRule();
    void hostileNumbersAreSurvived_data();
    void hostileNumbersAreSurvived();
};

// Offsets from the tip, 40 along and 20 across, y down; the tip is pulled back from x = 200 by
// sqrt(1 + (2 tipmv)^2), by 1 for a tipmv of 0 and not at all for -1.
void TestArrow::headOnAHorizontalLine_data()
{
    using Points = QVector<QPoint>;
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("tip");
    QTest::addColumn<Points>("outline");
    QTest::addColumn<Points>("fill");
    const auto row = [](int type, int style, int tip, const Points& outline,
                        const Points& fill = Points()) {
        QTest::addRow("row %d", 2 * type + style) << type << style << tip << outline << fill;
    };
    const auto rows = [&row](int type, int tip, const Points& outline) {
        row(type, 0, tip, outline);
        row(type, 1, tip, outline);
    };
    const Points indented = {{-50, 10}, {0, 0}, {-50, -10}, {-40, 0}, {-50, 10}};
    row(0, 0, 196, {{-40, 10}, {0, 0}, {-40, -10}}); // 4.41
    row(0, 1, 199, {});
    rows(1, 196, {{-40, 10}, {0, 0}, {-40, -10}, {-40, 10}});           // 4.32
    rows(2, 195, indented);                                             // 5.30
    rows(3, 197, {{-30, 10}, {0, 0}, {-30, -10}, {-40, 0}, {-30, 10}}); // 3.16
    rows(4, 197, {{-20, 10}, {0, 0}, {-20, -10}, {-40, 0}, {-20, 10}}); // 2.51
    rows(7, 199, {{-40, 10}, {0, 10}, {0, -10}, {-40, -10}, {-40, 10}});
    rows(8, 199, {{-40, 0}, {0, 10}, {0, -10}, {-40, 0}});
    row(9, 0, 195, indented, {{-50, -10}, {0, 0}, {-40, 0}});
    row(9, 1, 195, indented, {{-50, 10}, {0, 0}, {-40, 0}});
    rows(10, 195, {{-40, 10}, {0, 0}, {-40, 0}, {-40, 10}}); // 5.10
    rows(11, 193, {{-50, 10}, {0, 0}, {-40, 0}, {-50, 10}}); // 7.07
    rows(12, 195, {{-30, 10}, {0, 0}, {-40, 0}, {-30, 10}});
    row(13, 0, 200, {{0, 10}, {-40, 0}, {0, -10}});
    row(13, 1, 199, {{0, 10}, {0, -10}});
    row(14, 0, 200, {{0, 10}, {-40, 10}, {-40, -10}, {0, -10}});
    row(14, 1, 199, {{-40, 10}, {0, 10}, {0, -10}, {-40, -10}});
}

void TestArrow::headOnAHorizontalLine()
{
    QFETCH(int, type);
    QFETCH(int, style);
    QFETCH(int, tip);
    QFETCH(QVector<QPoint>, outline);
    QFETCH(QVector<QPoint>, fill);
    const Head head = horizontalHead(type, style);
    QCOMPARE(head.points, shifted(outline, {tip, 100}));
    QCOMPARE(head.fill, shifted(fill, {tip, 100}));
}

// The line is 2 wide: it counts 2 to each side, 98 and 102.
void TestArrow::clipOfAHorizontalHead_data()
{
    using Points = QVector<QPoint>;
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("style");
    QTest::addColumn<Points>("clip");
    QTest::newRow("stick") << 0 << 0 << Points{{156, 110}, {196, 100}, {156, 90}, {156, 90},
                                               {200, 98},  {200, 102}, {156, 110}};
    // No outline: the first three entries of the table are all 0.
    QTest::newRow("filled stick") << 0 << 1 << Points{{199, 100}, {199, 100}, {199, 100}, {199, 98},
                                                      {200, 98},  {200, 102}, {199, 102}};
    QTest::newRow("indented") << 2 << 0 << Points{{145, 110}, {195, 100}, {145, 90}, {145, 90},
                                                  {200, 98},  {200, 102}, {145, 110}};
    QTest::newRow("square") << 7 << 1 << Points{{159, 110}, {199, 110}, {199, 90}, {199, 90},
                                                {200, 98},  {200, 102}, {159, 110}};
    QTest::newRow("reversed triangle") << 8 << 0 << Points{};
    // A half head is one sided: across, 0 to 10 below and the line's 2 above.
    QTest::newRow("half triangle")
        << 10 << 0
        << Points{{155, 110}, {195, 100}, {155, 100}, {155, 98}, {200, 98}, {200, 102}, {155, 110}};
    QTest::newRow("fork") << 13 << 0 << Points{{200, 110}, {160, 100}, {200, 90}, {200, 90},
                                               {200, 98},  {200, 102}, {200, 110}};
    // Two points only: the third entry is (0, 0).
    QTest::newRow("bar") << 13 << 1 << Points{{199, 110}, {199, 90},  {199, 100}, {199, 90},
                                              {200, 98},  {200, 102}, {199, 110}};
    QTest::newRow("closed bracket")
        << 14 << 1
        << Points{{159, 110}, {199, 110}, {199, 90}, {199, 90}, {200, 98}, {200, 102}, {159, 110}};
}

void TestArrow::clipOfAHorizontalHead()
{
    QFETCH(int, type);
    QFETCH(int, style);
    QFETCH(QVector<QPoint>, clip);
    QCOMPARE(horizontalHead(type, style).clip, clip);
}

void TestArrow::onlyTheHalfFilledRowsAreNotSimple()
{
    for (int row = 0; row < NUM_ARROW_SHAPES; ++row) {
        QCOMPARE(arrow_shapes[row].simplefill, row != 18 && row != 19);
        QCOMPARE(arrow_shapes[row].clip, row != 16 && row != 17);
        QCOMPARE(arrow_shapes[row].half, row >= 20 && row <= 25);
        QCOMPARE(arrow_shapes[row].numfillpts, row == 18 || row == 19 ? 3 : 0);
    }
}

void TestArrow::filledStickHasNoOutlineButAClip()
{
    const Head head = horizontalHead(0, 1);
    QVERIFY(head.points.isEmpty());
    QCOMPARE(head.clip.size(), 7);
}

void TestArrow::headTurnsWithItsLine()
{
    PixelContext ctx;
    // Even sizes and a tip on the line's end (no pull-back) leave nothing to rounding.
    const FigArrow fork{13, 0, 2.0f, 20.0f, 40.0f};
    const Head right = headOf(&ctx, {0, 0}, {200, 0}, fork, 2);
    const Head down = headOf(&ctx, {0, 0}, {0, 200}, fork, 2);
    const Head left = headOf(&ctx, {0, 0}, {-200, 0}, fork, 2);
    const Head up = headOf(&ctx, {0, 0}, {0, -200}, fork, 2);
    QCOMPARE(right.points.size(), 3);
    for (int i = 0; i < right.points.size(); ++i) {
        const QPoint p = right.points[i];
        QCOMPARE(down.points[i], QPoint(-p.y(), p.x()));
        QCOMPARE(left.points[i], QPoint(-p.x(), -p.y()));
        QCOMPARE(up.points[i], QPoint(p.y(), -p.x()));
    }
    for (int i = 0; i < right.clip.size(); ++i) {
        const QPoint p = right.clip[i];
        QCOMPARE(down.clip[i], QPoint(-p.y(), p.x()));
    }
}

// Zoom 4: the head is 80 by 160 and the sharpness follows the zoom, 2.15 * 4 * 160 / 80 = 17.2,
// but the thickness stays 2: pulled back by sqrt(1 + 17.2^2) = 17.23.
void TestArrow::pullBackDoesNotScaleTheThickness()
{
    PixelContext ctx;
    ctx.zoom = 4.0f;
    const Head head = headOf(&ctx, {0, 100}, {400, 100}, {0, 0, 2.0f, 20.0f, 40.0f}, 2);
    QCOMPARE(head.points, (QVector<QPoint>{{223, 140}, {383, 100}, {223, 60}}));
}

void TestArrow::bothSizesFollowTheHorizontalScale()
{
    PixelContext ctx;
    ctx.ppiY = 300.0f;
    const FigArrow arrow{0, 0, 2.0f, 20.0f, 40.0f};
    QCOMPARE(headOf(&ctx, {0, 100}, {200, 100}, arrow, 2).points, horizontalHead(0, 0).points);
    ctx.ppiX = 600.0f;
    // 10 by 20: the pull-back 4.41 stays, the corners come 20 behind and 5 beside.
    QCOMPARE(headOf(&ctx, {0, 100}, {200, 100}, arrow, 2).points,
             (QVector<QPoint>{{176, 105}, {196, 100}, {176, 95}}));
}

void TestArrow::headWithoutWidthHeightOrDirectionHasNoPoints_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<float>("width");
    QTest::addColumn<float>("height");
    QTest::newRow("no width") << QPoint(0, 0) << 0.0f << 40.0f;
    QTest::newRow("no height") << QPoint(0, 0) << 20.0f << 0.0f;
    QTest::newRow("height under half a pixel") << QPoint(0, 0) << 20.0f << 0.49f;
    QTest::newRow("no direction") << QPoint(100, 50) << 20.0f << 40.0f;
}

void TestArrow::headWithoutWidthHeightOrDirectionHasNoPoints()
{
    QFETCH(QPoint, from);
    QFETCH(float, width);
    QFETCH(float, height);
    PixelContext ctx;
    for (int type = 0; type <= 14; ++type) {
        const Head head = headOf(&ctx, from, {100, 50}, {type, 0, 2.0f, width, height}, 2);
        QVERIFY(head.points.isEmpty() && head.fill.isEmpty() && head.clip.isEmpty());
    }
}

void TestArrow::unknownTypesAreSticks_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("style");
    QTest::newRow("first beyond the table") << 15 << 0;
    QTest::newRow("far beyond") << std::numeric_limits<int>::max() << 1;
    QTest::newRow("negative") << -1 << 0;
    QTest::newRow("most negative") << std::numeric_limits<int>::min() << -1;
    QTest::newRow("style beyond the table") << 14 << 2;
}

void TestArrow::unknownTypesAreSticks()
{
    QFETCH(int, type);
    QFETCH(int, style);
    QCOMPARE(horizontalHead(type, style).points, horizontalHead(0, 0).points);
}

// 120 pixels per inch at zoom 10. (1200 / 120) * (2 - 2.9) / 2 = -4.5, rounded away from zero to
// -5; taken off, the head moves 5 across. Tip: 2.9 / 2 * sqrt(1 + (2.5 * 10 * 40 / 20)^2) = 72.5,
// up to 72.514 back from 200.
void TestArrow::halfHeadMovesByTheFractionOfItsThickness()
{
    PixelContext ctx;
    ctx.ppiX = ctx.ppiY = 120.0f;
    ctx.zoom = 10.0f;
    const Head head = headOf(&ctx, {0, 100}, {200, 100}, {10, 0, 2.9f, 20.0f, 40.0f}, 2);
    QCOMPARE(head.points, (QVector<QPoint>{{87, 115}, {127, 105}, {87, 105}, {87, 115}}));
    const Head whole = headOf(&ctx, {0, 100}, {200, 100}, {10, 0, 2.0f, 20.0f, 40.0f}, 2);
    QCOMPARE(whole.points[1].y(), 100);
    // Symmetric heads do not move.
    const Head stick = headOf(&ctx, {0, 100}, {200, 100}, {0, 0, 2.9f, 20.0f, 40.0f}, 2);
    QCOMPARE(stick.points[1].y(), 100);
}

// Pulled back by 1 to 199, the circle of height 40 starts in 159: centre (179, 100), radius 20.
void TestArrow::circleTouchesTheEndOfTheLine()
{
    for (int style : {0, 1}) {
        const Head head = horizontalHead(5, style);
        QCOMPARE(head.points.first(), QPoint(179, 120));
        QCOMPARE(head.points.last(), QPoint(179, 120));
        QVERIFY(head.points.size() > 30 && head.points.size() <= 40);
        for (const QPoint& point : head.points)
            QVERIFY(std::fabs(std::hypot(point.x() - 179, point.y() - 100) - 20) <= 1.0);
        int leftmost = 1000, rightmost = 0;
        for (const QPoint& point : head.points) {
            leftmost = qMin(leftmost, point.x());
            rightmost = qMax(rightmost, point.x());
        }
        QCOMPARE(leftmost, 159);
        QCOMPARE(rightmost, 199);
    }
}

// Centre on the line's end, from (200, 80) by way of (180, 100) to (200, 120).
void TestArrow::halfCircleLiesBehindTheEnd()
{
    const Head head = horizontalHead(6, 0);
    QCOMPARE(head.points.first(), QPoint(200, 80));
    QCOMPARE(head.points.last(), QPoint(200, 120));
    bool reachesBack = false;
    for (const QPoint& point : head.points) {
        QVERIFY(point.x() <= 200);
        QVERIFY(std::fabs(std::hypot(point.x() - 200, point.y() - 100) - 20) <= 1.0);
        reachesBack = reachesBack || point.x() == 180;
    }
    QVERIFY(reachesBack);
}

void TestArrow::circleAtTheGreatestZoomFitsItsArrays()
{
    PixelContext ctx;
    ctx.zoom = 99.99f;
    const FigArrow circle{5, 0, 1.0f, 200.0f, 200.0f};
    QCOMPARE(headOf(&ctx, {0, 0}, {20000, 5000}, circle, 1).points.size(), 65);
    ctx.zoom = 1e6f; // previews have no limit
    QCOMPARE(headOf(&ctx, {0, 0}, {20000, 5000}, circle, 1).points.size(), MAX_ARROW_POINTS);
    ctx.zoom = std::numeric_limits<float>::max();
    QVERIFY(headOf(&ctx, {0, 0}, {20000, 5000}, circle, 1).points.size() <= MAX_ARROW_POINTS);
}

void TestArrow::circleClipReachesTheWidthOfTheLine()
{
    // Radius 20 and half the thickness 1.
    QCOMPARE(horizontalHead(5, 0).clip,
             (QVector<QPoint>{{179, 79}, {179, 79}, {200, 79}, {200, 121}, {179, 121}}));
    PixelContext ctx;
    // A line of 60: 31 to each side is more than the circle.
    const Head wide = headOf(&ctx, {0, 100}, {200, 100}, {5, 0, 2.0f, 40.0f, 40.0f}, 60);
    QCOMPARE(wide.clip, (QVector<QPoint>{{179, 79}, {179, 69}, {200, 69}, {200, 131}, {179, 131}}));
}

void TestArrow::lineHeadsFollowTheLastSegments()
{
    PixelContext ctx;
    const QVector<QPoint> bend = {{0, 0}, {100, 0}, {100, 100}, {300, 100}, {400, 400}};
    const auto line = makeLine(bend);
    line->forward_arrow = makeArrow(2, 1, 2.0f, 20.0f, 40.0f);
    line->backward_arrow = makeArrow(1, 0, 2.0f, 30.0f, 40.0f);
    setPointList(bend);
    const BothHeads heads = headsOf(&ctx, line.get(), 0);
    const Head forward = headOf(&ctx, {300, 100}, {400, 400}, *line->forward_arrow, 2);
    const Head backward = headOf(&ctx, {100, 0}, {0, 0}, *line->backward_arrow, 2);
    QCOMPARE(heads.forward, forward.points);
    QCOMPARE(heads.forwardClip, forward.clip);
    QCOMPARE(heads.backward, backward.points);
    QCOMPARE(heads.backwardClip, backward.clip);
}

void TestArrow::splineHeadsFollowAChordOfThreeSteps()
{
    PixelContext ctx;
    const QVector<QPoint> outline = {{0, 0}, {100, 0}, {200, 30}, {300, 100}, {400, 400}};
    const auto spline = makeSpline(0, {}, {});
    spline->forward_arrow = makeArrow(2, 1, 2.0f, 20.0f, 40.0f);
    spline->backward_arrow = makeArrow(2, 1, 2.0f, 20.0f, 40.0f);
    setPointList(outline);
    const BothHeads heads = headsOf(&ctx, spline.get(), 2);
    QCOMPARE(heads.forward, headOf(&ctx, {100, 0}, {400, 400}, *spline->forward_arrow, 2).points);
    QCOMPARE(heads.backward, headOf(&ctx, {300, 100}, {0, 0}, *spline->backward_arrow, 2).points);
}

void TestArrow::skipFallsBackToNothingForThreePoints()
{
    PixelContext ctx;
    const auto spline = makeSpline(0, {}, {});
    spline->forward_arrow = makeArrow(2, 1, 2.0f, 20.0f, 40.0f);
    setPointList({{0, 0}, {100, 0}, {200, 30}});
    QCOMPARE(headsOf(&ctx, spline.get(), 2).forward,
             headOf(&ctx, {100, 0}, {200, 30}, *spline->forward_arrow, 2).points);
    setPointList({{0, 0}, {100, 0}, {200, 30}, {250, 90}});
    QCOMPARE(headsOf(&ctx, spline.get(), 2).forward,
             headOf(&ctx, {0, 0}, {250, 90}, *spline->forward_arrow, 2).points);
}

void TestArrow::fewerThanTwoPointsHaveNoHeads()
{
    PixelContext ctx;
    const auto line = makeLine({{5, 5}});
    line->forward_arrow = makeArrow(9, 0, 2.0f, 20.0f, 40.0f);
    line->backward_arrow = makeArrow(9, 0, 2.0f, 20.0f, 40.0f);
    for (const QVector<QPoint>& outline : {QVector<QPoint>(), QVector<QPoint>{{5, 5}}}) {
        setPointList(outline);
        const BothHeads heads = headsOf(&ctx, line.get(), 0);
        QVERIFY(heads.forward.isEmpty() && heads.backward.isEmpty());
        QVERIFY(heads.forwardFill.isEmpty() && heads.backwardFill.isEmpty());
        QVERIFY(heads.forwardClip.isEmpty() && heads.backwardClip.isEmpty());
    }
}

void TestArrow::missingArrowsEmptyTheirResults()
{
    PixelContext ctx;
    const auto line = makeLine({{0, 0}, {100, 0}});
    line->backward_arrow = makeArrow(1, 0, 2.0f, 20.0f, 40.0f);
    setPointList({{0, 0}, {100, 0}});
    const BothHeads heads = headsOf(&ctx, line.get(), 0);
    QVERIFY(heads.forward.isEmpty() && heads.forwardClip.isEmpty());
    QCOMPARE(heads.backward.size(), 4);
}

// At zoom 2 a thickness of 2 counts 2 * 2 / 2 + 1 = 3 to each side, 2.9 would count 4.
void TestArrow::thicknessIsTruncatedForTheClip()
{
    PixelContext ctx;
    ctx.zoom = 2.0f;
    const auto line = makeLine({{0, 100}, {200, 100}});
    line->forward_arrow = makeArrow(1, 0, 2.9f, 20.0f, 40.0f);
    setPointList({{0, 100}, {200, 100}});
    const BothHeads heads = headsOf(&ctx, line.get(), 0);
    QCOMPARE(heads.forwardClip[4], QPoint(200, 97));
    QCOMPARE(heads.forwardClip[5], QPoint(200, 103));
}

void TestArrow::normalStandsOffTheRadius()
{
    int x, y;
    compute_normal(100.0f, 100.0f, 150, 100, 1, &x, &y);
    QCOMPARE(QPoint(x, y), QPoint(150, 150));
    compute_normal(100.0f, 100.0f, 150, 100, 0, &x, &y);
    QCOMPARE(QPoint(x, y), QPoint(150, 50));
    // The centre keeps its fraction: 10 - (20 - 0.5) and 20 - (0.25 - 10), rounded.
    compute_normal(0.25f, 0.5f, 10, 20, 1, &x, &y);
    QCOMPARE(QPoint(x, y), QPoint(-10, 30));
}

// From the right to the top, counter-clockwise: the heads point left at the top and, backward,
// down at the right.
void TestArrow::arcHeadsAreTangents()
{
    PixelContext ctx;
    ctx.shiftX = 30;
    const auto arc = makeArc({130, 100}, {230, 100}, {130, 0}, 1);
    arc->forward_arrow = makeArrow(1, 0, 2.0f, 20.0f, 40.0f);
    arc->backward_arrow = makeArrow(1, 0, 2.0f, 20.0f, 40.0f);
    init_pointlist();
    const BothHeads heads = headsOf(&ctx, arc.get(), 0);
    QCOMPARE(heads.forward, headOf(&ctx, {200, 0}, {100, 0}, *arc->forward_arrow, 2).points);
    QCOMPARE(heads.backward, headOf(&ctx, {200, 0}, {200, 100}, *arc->backward_arrow, 2).points);
    arc->direction = 0;
    const BothHeads clockwise = headsOf(&ctx, arc.get(), 0);
    QCOMPARE(clockwise.forward, headOf(&ctx, {0, 0}, {100, 0}, *arc->forward_arrow, 2).points);
}

void TestArrow::backwardHeadOfAnArcFillsTheForwardBuffer()
{
    PixelContext ctx;
    const auto arc = makeArc({100, 100}, {200, 100}, {100, 0}, 1);
    arc->forward_arrow = makeArrow(9, 0, 2.0f, 20.0f, 40.0f);
    arc->backward_arrow = makeArrow(9, 1, 2.0f, 20.0f, 40.0f);
    const BothHeads heads = headsOf(&ctx, arc.get(), 0);
    const Head backward = headOf(&ctx, {200, 0}, {200, 100}, *arc->backward_arrow, 2);
    QCOMPARE(heads.forwardFill, backward.fill);
    QCOMPARE(backward.fill.size(), 3);
    QVERIFY(heads.backwardFill.isEmpty());
    QCOMPARE(heads.forward.size(), 5);
    QCOMPARE(heads.backward.size(), 5);
}

void TestArrow::backwardHeadOfAnArcTakesTheForwardFillAway()
{
    PixelContext ctx;
    const auto arc = makeArc({100, 100}, {200, 100}, {100, 0}, 1);
    arc->forward_arrow = makeArrow(9, 0, 2.0f, 20.0f, 40.0f);
    QCOMPARE(headsOf(&ctx, arc.get(), 0).forwardFill.size(), 3);
    arc->backward_arrow = makeArrow(1, 1, 2.0f, 20.0f, 40.0f);
    QVERIFY(headsOf(&ctx, arc.get(), 0).forwardFill.isEmpty());
}

namespace {

/// The picture of one head on a horizontal line that ends in (200, 100), twice as great as above.
QImage pictureOfHead(int type, int style, int penColor, float headThickness = 1.0f,
                     int lineThickness = 1, float zoom = 1.0f)
{
    PixelContext ctx;
    ctx.ppiX = 1200.0f / zoom;
    ctx.ppiY = 80.0f;
    ctx.zoom = zoom;
    const auto line = makeLine({}, lineThickness);
    line->pen_color = penColor;
    FigArrow arrow{type, style, headThickness, 40.0f, 80.0f};
    QPoint points[MAX_ARROW_POINTS], fill[6], clip[50];
    long count;
    int fillCount, clipCount;
    calc_arrow(&ctx, 0, 100, 200, 100, 1, &arrow, points, &count, fill, &fillCount, clip,
               &clipCount, O_POLYLINE);
    Canvas canvas(&ctx);
    canvas.painter()->fillRect(canvas.image().rect(), Qt::cyan);
    draw_arrow32(&ctx, line.get(), &arrow, points, count, fill, fillCount, PAINT_NORMAL);
    return canvas.image().copy();
}

bool isUntouched(const QImage& image)
{
    QImage blank = image;
    blank.fill(Qt::cyan);
    return blank == image;
}

const QPoint insideTriangle(140, 100), aboveInTriangle(140, 93), belowInTriangle(140, 107);

} // namespace

void TestArrow::lineWithoutThicknessShowsNoHead()
{
    QVERIFY(!isUntouched(pictureOfHead(1, 1, 0)));
    QVERIFY(isUntouched(pictureOfHead(1, 1, 0, 1.0f, 0)));
}

void TestArrow::filledStickShowsNothing()
{
    QVERIFY(!isUntouched(pictureOfHead(0, 0, 0)));
    QVERIFY(isUntouched(pictureOfHead(0, 1, 0)));
}

void TestArrow::hollowHeadsAreWhiteInTheirPenColour_data()
{
    QTest::addColumn<int>("penColor");
    QTest::addColumn<QColor>("solid");
    QTest::addColumn<QColor>("hollow");
    const QColor white(Qt::white);
    QTest::newRow("black") << 0 << QColor(Qt::black) << white;
    QTest::newRow("white") << 7 << white << white;
    QTest::newRow("blue") << 1 << QColor(0, 0, 255) << white;
    // The default colour has no shade of its own: shade 40 of the row of black.
    QTest::newRow("default") << -1 << QColor(Qt::black) << QColor(Qt::black);
}

void TestArrow::hollowHeadsAreWhiteInTheirPenColour()
{
    QFETCH(int, penColor);
    QFETCH(QColor, solid);
    QFETCH(QColor, hollow);
    for (int type : {1, 2, 3, 4, 8}) {
        QCOMPARE(pictureOfHead(type, 1, penColor).pixelColor(insideTriangle), solid);
        QCOMPARE(pictureOfHead(type, 0, penColor).pixelColor(insideTriangle), hollow);
    }
}

void TestArrow::headsFromThirteenOnAreNotFilled()
{
    for (int style : {0, 1})
        QCOMPARE(pictureOfHead(14, style, 0).pixelColor(insideTriangle), QColor(Qt::cyan));
    QCOMPARE(pictureOfHead(0, 0, 0).pixelColor(insideTriangle), QColor(Qt::cyan));
}

void TestArrow::halfFilledHeadShowsItsSolidHalfWhateverItsStyle()
{
    const QImage hollow = pictureOfHead(9, 0, 0);
    QCOMPARE(hollow.pixelColor(aboveInTriangle), QColor(Qt::black));
    QCOMPARE(hollow.pixelColor(belowInTriangle), QColor(Qt::white));
    const QImage filled = pictureOfHead(9, 1, 0);
    QCOMPARE(filled.pixelColor(aboveInTriangle), QColor(Qt::white));
    QCOMPARE(filled.pixelColor(belowInTriangle), QColor(Qt::black));
}

// 80 pixels per inch in y: a thickness is its own number of pixels. Half of one rounds up, 0.4 of
// one vanishes, and with it an open head.
void TestArrow::headStrokeFollowsTheThinLineRule()
{
    QVERIFY(isUntouched(pictureOfHead(0, 0, 0, 1.0f, 1, 0.4f)));
    QVERIFY(!isUntouched(pictureOfHead(0, 0, 0, 1.0f, 1, 0.5f)));
    // The arrow's own thickness is rounded first.
    QVERIFY(isUntouched(pictureOfHead(0, 0, 0, 0.4f)));
    QVERIFY(!isUntouched(pictureOfHead(0, 0, 0, 0.5f)));
}

void TestArrow::hostileNumbersAreSurvived_data()
{
    QTest::addColumn<float>("number");
    QTest::newRow("not a number") << std::numeric_limits<float>::quiet_NaN();
    QTest::newRow("infinite") << std::numeric_limits<float>::infinity();
    QTest::newRow("minus infinite") << -std::numeric_limits<float>::infinity();
    QTest::newRow("greatest") << std::numeric_limits<float>::max();
    QTest::newRow("least") << -std::numeric_limits<float>::max();
}

void TestArrow::hostileNumbersAreSurvived()
{
    QFETCH(float, number);
    PixelContext ctx;
    ctx.zoom = 99.99f;
    constexpr int most = std::numeric_limits<int>::max();
    const QPoint corners[] = {{-most, -most}, {most, most}, {0, 0}, {most, -most}};
    const FigArrow sizes[] = {{0, 0, number, 20, 40},
                              {0, 0, 2, number, 40},
                              {0, 0, 2, 20, number},
                              {0, 0, number, number, number}};
    for (FigArrow arrow : sizes) {
        for (arrow.type = 0; arrow.type <= 14; ++arrow.type) {
            for (const QPoint& from : corners) {
                const Head head = headOf(&ctx, from, {most, most}, arrow, most);
                QVERIFY(head.points.size() <= MAX_ARROW_POINTS && head.clip.size() <= 7);
            }
            const auto line = makeLine({{0, 0}, {1000, 0}});
            line->forward_arrow = new FigArrow(arrow);
            setPointList({{0, 0}, {1000, 0}});
            QVERIFY(headsOf(&ctx, line.get(), 0).forward.size() <= MAX_ARROW_POINTS);
        }
    }
}

QTEST_MAIN(TestArrow)
#include "test_u_arrow.moc"
