#include "DrawingFixtures.h"
#include "render/u_draw.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <random>

namespace {

/// Walks with the centre in (1000, 1000), one unit a pixel; ends relative to it with y up.
QVector<QPoint> walk(const QPoint& start, const QPoint& end, int direction, int radius,
                     bool closed = false)
{
    PixelContext ctx;
    init_pointlist();
    curve(&ctx, start.x(), start.y(), end.x(), end.y(), closed, direction, radius, radius, 1000,
          1000, true);
    return pointList();
}

double distanceFromCentre(const QPoint& point)
{
    return std::hypot(point.x() - 1000, point.y() - 1000);
}

bool isConnected(const QVector<QPoint>& points)
{
    for (int i = 1; i < points.size(); ++i) {
        const QPoint step = points[i] - points[i - 1];
        if (step.isNull() || qAbs(step.x()) > 1 || qAbs(step.y()) > 1)
            return false;
    }
    return true;
}

} // namespace

class TestArcWalk : public QObject {
    Q_OBJECT

private slots:
    void nothingIsWalkedWithoutRadius_data();
    void nothingIsWalkedWithoutRadius();
    void anArcUnderHalfAPixelAddsNothing();
    void aQuarterOfRadiusThreeAsWalkedByHand();
    void unscaledWalkSubtractsTheShiftAlone();
    void fullCircleClosesOnItsFirstPoint();
    void directionTurnsTheWalk();
    void walkEndsNearAndNotOnTheEnd();
    void randomArcsStayOnTheirCircle();
    void anArcThatNeverLeavesItsEndRunsAFullCircle();
    void anEndOffTheCircleStopsAfterALimit();
    void closedWalkAddsCentreAndFirstPoint();
    void axesAreScaledSeparately();
    void aFullListEndsTheWalk();
    void aPointEqualToTheLastOneIsDropped();
    void centreBeyondTheRangeOfPixelsIsHarmless();
    void arcWithoutRadiusHasNoOutline();
    void arcWithEqualEndsIsAFullCircle();
    void pieWedgeRunsThroughItsCentre();
    void arcMeasuresItsRadiusAtTheFirstPoint();
};

void TestArcWalk::nothingIsWalkedWithoutRadius_data()
{
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::newRow("a") << 0 << 10;
    QTest::newRow("b") << 10 << 0;
    QTest::newRow("both") << 0 << 0;
}

void TestArcWalk::nothingIsWalkedWithoutRadius()
{
    QFETCH(int, a);
    QFETCH(int, b);
    PixelContext ctx;
    init_pointlist();
    curve(&ctx, 10, 0, 0, 10, true, 1, a, b, 100, 100, true);
    QCOMPARE(npoints, 0L);
}

void TestArcWalk::anArcUnderHalfAPixelAddsNothing()
{
    PixelContext ctx;
    ctx.zoom = 0.01f;
    init_pointlist();
    curve(&ctx, 49, 0, 0, 49, true, 1, 49, 49, 100, 100, true);
    QCOMPARE(npoints, 0L);
    curve(&ctx, 50, 0, 0, 50, false, 1, 50, 50, 100, 100, true);
    QVERIFY(npoints > 0);
}

// a = b = 3: dfx 18, dfy 0, falpha 0.
// Step 1: fx -15, fy 3, fxy -12: y alone to (3, 1). Step 2: fx -12, fy 12, fxy -3: diagonal to
// (2, 2), near the end for the first time. Step 3: fx -12, fy 12, fxy 3: diagonal to (1, 3).
void TestArcWalk::aQuarterOfRadiusThreeAsWalkedByHand()
{
    const QVector<QPoint> expected = {{1003, 1000}, {1003, 999}, {1002, 998}, {1001, 997}};
    QCOMPARE(walk({3, 0}, {0, 3}, 1, 3), expected);
}

void TestArcWalk::unscaledWalkSubtractsTheShiftAlone()
{
    PixelContext ctx;
    ctx.zoom = 5.0f;
    ctx.ppiX = 80.0f;
    ctx.shiftX = 900;
    ctx.shiftY = 1100;
    init_pointlist();
    curve(&ctx, 3, 0, 0, 3, false, 1, 3, 3, 1000, 1000, false);
    const QVector<QPoint> expected = {{103, -100}, {103, -101}, {102, -102}, {101, -103}};
    QCOMPARE(pointList(), expected);
}

void TestArcWalk::fullCircleClosesOnItsFirstPoint()
{
    for (int direction : {0, 1}) {
        const QVector<QPoint> points = walk({100, 0}, {100, 0}, direction, 100);
        QCOMPARE(points.first(), QPoint(1100, 1000));
        QCOMPARE(points.last(), points.first());
        QVERIFY(isConnected(points));
        for (const QPoint& point : points)
            QVERIFY(std::fabs(distanceFromCentre(point) - 100) <= 1.0);
        for (const QPoint& extreme : {QPoint(1000, 900), QPoint(900, 1000), QPoint(1000, 1100)})
            QCOMPARE(points.count(extreme), 1);
    }
}

void TestArcWalk::directionTurnsTheWalk()
{
    const QVector<QPoint> shortWay = walk({100, 0}, {0, 100}, 1, 100);
    for (const QPoint& point : shortWay)
        QVERIFY(point.x() >= 1000 && point.y() <= 1000);
    const QVector<QPoint> longWay = walk({100, 0}, {0, 100}, 0, 100);
    QVERIFY(longWay.contains(QPoint(1000, 1100)));
    QVERIFY(longWay.contains(QPoint(900, 1000)));
    QCOMPARE(longWay[1], QPoint(1100, 1001));
}

void TestArcWalk::walkEndsNearAndNotOnTheEnd()
{
    const QPoint end(1000, 900);
    const QVector<QPoint> points = walk({100, 0}, {0, 100}, 1, 100);
    QVERIFY(!points.contains(end));
    const QPoint miss = points.last() - end;
    QVERIFY(qAbs(miss.x()) < 3 && qAbs(miss.y()) < 3);
}

// Ends are rounded to pixels, so a walk keeps within a pixel of the circle through its start.
void TestArcWalk::randomArcsStayOnTheirCircle()
{
    std::mt19937 random(20240229);
    std::uniform_real_distribution<double> angle(0.0, 2.0 * M_PI);
    std::uniform_int_distribution<int> size(20, 400);
    for (int i = 0; i < 2000; ++i) {
        const int radius = size(random);
        const double from = angle(random), to = angle(random);
        const QPoint start(qRound(radius * std::cos(from)), qRound(radius * std::sin(from)));
        const QPoint end(qRound(radius * std::cos(to)), qRound(radius * std::sin(to)));
        if ((start - end).manhattanLength() < 12)
            continue;
        const QVector<QPoint> points = walk(start, end, i % 2, radius);
        QVERIFY(isConnected(points));
        const double own = std::hypot(start.x(), start.y());
        for (const QPoint& point : points)
            QVERIFY(std::fabs(distanceFromCentre(point) - own) <= 1.0);
        const QPoint miss = points.last() - QPoint(1000 + end.x(), 1000 - end.y());
        QVERIFY(qAbs(miss.x()) < 3 && qAbs(miss.y()) < 3);
        QVERIFY(points.size() < 8 * 2 * radius);
    }
}

// (99, 2) is within three pixels from the start on and is not met exactly, so that the walk has
// to come round before it counts.
void TestArcWalk::anArcThatNeverLeavesItsEndRunsAFullCircle()
{
    const QVector<QPoint> points = walk({100, 0}, {99, 2}, 1, 100);
    QVERIFY(points.contains(QPoint(900, 1000)));
    QVERIFY(points.contains(QPoint(1000, 1100)));
}

// A start on the circle, the end in its centre: 16 (100 + 100) + 64 steps after the first point.
void TestArcWalk::anEndOffTheCircleStopsAfterALimit()
{
    QCOMPARE(walk({100, 0}, {0, 0}, 1, 100).size(), 1 + 16 * 200 + 64);
}

void TestArcWalk::closedWalkAddsCentreAndFirstPoint()
{
    const QVector<QPoint> open = walk({3, 0}, {0, 3}, 1, 3);
    const QVector<QPoint> closed = walk({3, 0}, {0, 3}, 1, 3, true);
    QCOMPARE(closed, open + QVector<QPoint>({QPoint(1000, 1000), QPoint(1003, 1000)}));
}

void TestArcWalk::axesAreScaledSeparately()
{
    PixelContext ctx;
    ctx.ppiX = 600.0f;
    ctx.ppiY = 300.0f;
    ctx.zoom = 2.0f;
    init_pointlist();
    // x times 1, y times 1/2; 301 / 2 rounds to 151. The first step by a' = 40 and b' = 20: fx
    // -3160, fy 20, fxy -3140, so y alone.
    curve(&ctx, 40, 0, 0, 41, true, 1, 40, 40, 100, 301, true);
    QCOMPARE(polygon_points[0], QPoint(140, 151));
    QCOMPARE(polygon_points[1], QPoint(140, 150));
    QCOMPARE(polygon_points[npoints - 2], QPoint(100, 151));
}

void TestArcWalk::aFullListEndsTheWalk()
{
    const QVector<QPoint> points = walk({50000, 0}, {50000, 0}, 1, 50000, true);
    QCOMPARE(points.size(), static_cast<int>(MAX_LIST_POINTS));
    QVERIFY(isConnected(points));
    PixelContext ctx;
    curve(&ctx, 3, 0, 0, 3, false, 1, 3, 3, 0, 0, true);
    QCOMPARE(npoints, MAX_LIST_POINTS);
}

void TestArcWalk::aPointEqualToTheLastOneIsDropped()
{
    PixelContext ctx;
    init_pointlist();
    add_point_to_list(1003, 1000);
    curve(&ctx, 3, 0, 0, 3, false, 1, 3, 3, 1000, 1000, true);
    QCOMPARE(npoints, 4L);
    // The walk leaves the list's last point behind for the next element.
    add_point_to_list(1001, 997);
    QCOMPARE(npoints, 4L);
    add_point_to_list(1003, 1000);
    QCOMPARE(npoints, 5L);
}

void TestArcWalk::centreBeyondTheRangeOfPixelsIsHarmless()
{
    PixelContext ctx;
    ctx.zoom = 99.99f;
    constexpr int most = std::numeric_limits<int>::max();
    for (int centre : {most, -most}) {
        ctx.shiftX = -centre;
        init_pointlist();
        curve(&ctx, 20, 0, 0, 20, true, 1, 20, 20, centre, centre, true);
        QVERIFY(npoints > 2);
        init_pointlist();
        curve(&ctx, most, 0, 0, most, true, 0, most, most, centre, centre, true);
        QCOMPARE(npoints, MAX_LIST_POINTS);
    }
}

void TestArcWalk::arcWithoutRadiusHasNoOutline()
{
    PixelContext ctx;
    add_point_to_list(1, 2);
    const auto arc = makeArc({50, 50}, {50, 50}, {50, 50}, 1);
    QVERIFY(!initPointListFromArc(&ctx, arc.get()));
    QCOMPARE(npoints, 0L);
}

void TestArcWalk::arcWithEqualEndsIsAFullCircle()
{
    PixelContext ctx;
    const auto arc = makeArc({1000, 1000}, {1000, 900}, {1000, 900}, 1);
    QVERIFY(initPointListFromArc(&ctx, arc.get()));
    QCOMPARE(polygon_points[0], QPoint(1000, 900));
    QCOMPARE(polygon_points[npoints - 1], QPoint(1000, 900));
    QVERIFY(pointList().contains(QPoint(1000, 1100)));
}

void TestArcWalk::pieWedgeRunsThroughItsCentre()
{
    PixelContext ctx;
    const auto arc = makeArc({1000, 1000}, {1003, 1000}, {1000, 997}, 1);
    arc->sub_type = 1;
    QVERIFY(initPointListFromArc(&ctx, arc.get()));
    const QVector<QPoint> expected = {{1003, 1000}, {1003, 999},  {1002, 998},
                                      {1001, 997},  {1000, 1000}, {1003, 1000}};
    QCOMPARE(pointList(), expected);
}

// Start 3 to the right of 1000.4 and rounded, radius 2.6 rounded to 3, centre rounded to 1000.
void TestArcWalk::arcMeasuresItsRadiusAtTheFirstPoint()
{
    PixelContext ctx;
    const auto arc = makeArc({1000.4, 1000}, {1003, 1000}, {1000, 997}, 1);
    QVERIFY(initPointListFromArc(&ctx, arc.get()));
    const QVector<QPoint> expected = {{1003, 1000}, {1003, 999}, {1002, 998}, {1001, 997}};
    QCOMPARE(pointList(), expected);
}

QTEST_GUILESS_MAIN(TestArcWalk)
#include "test_arc_walk.moc"
