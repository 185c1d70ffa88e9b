#include "DrawingFixtures.h"
#include "render/u_draw.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace {

QVector<QPoint> received;
bool stopAtOnce = false;

bool receive(int x, int y)
{
    received.append(QPoint(x, y));
    if (stopAtOnce)
        done = 1;
    return true;
}

/// All points that the evaluator gives out, equal neighbours included.
QVector<QPoint> walk(CFigContext* ctx, FigSpline* spline)
{
    received.clear();
    stopAtOnce = false;
    const auto compute = spline->sub_type & 1 ? compute_closed_spline : compute_open_spline;
    compute(ctx, spline, SPLINE_PRECISION, receive);
    return received;
}

/// The points of the first segment of a closed spline, the one on points 0 to 3.
QVector<QPoint> firstSegment(const QVector<QPoint>& points, double factor)
{
    PixelContext ctx;
    const auto spline = makeSpline(1, points, QVector<double>(points.size(), factor));
    received.clear();
    stopAtOnce = true;
    compute_closed_spline(&ctx, spline.get(), SPLINE_PRECISION, receive);
    return received;
}

const QVector<QPoint> zigzag = {{0, 0}, {90, 300}, {240, -60}, {420, 600}, {600, 0}};

} // namespace

class TestSplines : public QObject {
    Q_OBJECT

private slots:
    void cornerFactorsGiveTheControlPolygon();
    void openSplineOfTwoPointsHasTwoSegments();
    void closedSplineOfThreePointsHasThreeSegments();
    void closedSplineEndsOnTheFirstSlotOfTheListWhateverTheCallback();
    void tooFewPointsGiveAnEmptyList_data();
    void tooFewPointsGiveAnEmptyList();
    void missingFactorsCountAsZero();
    void approximatingKnotsAreThoseOfTheUniformCubic();
    void approximatingSegmentFollowsItsPolynomial();
    void interpolatingSegmentFollowsItsPolynomial();
    void mixedSegmentTakesEachSideFromItsOwnFactor();
    void interpolatingSplinePassesThroughItsPoints();
    void openSplineStartsAndEndsOnItsEndPoints();
    void straightSegmentStepsByTheFourthRootOfItsSquaredLength();
    void hairpinAddsTwentySteps();
    void aShortSegmentStillHasFivePoints();
    void aSegmentBeyondTheRangeOfAnIntSquareEnds();
    void pointsAreOnTheDeviceBeforeTheyAreBlended();
    void storedPointsStayUntouched();
    void doneStopsAnOpenSplineBeforeItsLastPoint();
    void doneStopsAClosedSplineWithoutClosingIt();
    void aFullListLosesPointsAndNothingElse();
    void unusableFactorsFallBackToTheControlPoint_data();
    void unusableFactorsFallBackToTheControlPoint();
    void coordinatesAtTheLimitsEnd();
};

void TestSplines::cornerFactorsGiveTheControlPolygon()
{
    PixelContext ctx;
    const auto open = makeSpline(0, zigzag, QVector<double>(5, 0.0));
    QCOMPARE(walk(&ctx, open.get()), zigzag);
    const auto closed = makeSpline(1, zigzag, QVector<double>(5, 0.0));
    QVERIFY(initPointListFromSpline(&ctx, closed.get()));
    const QVector<QPoint> expected = {zigzag[1], zigzag[2], zigzag[3],
                                      zigzag[4], zigzag[0], zigzag[1]};
    QCOMPARE(pointList(), expected);
}

void TestSplines::openSplineOfTwoPointsHasTwoSegments()
{
    PixelContext ctx;
    const auto spline = makeSpline(0, {{10, 20}, {50, 60}}, {0.0, 0.0});
    const QVector<QPoint> expected = {{10, 20}, {50, 60}, {50, 60}};
    QCOMPARE(walk(&ctx, spline.get()), expected);
    QVERIFY(initPointListFromSpline(&ctx, spline.get()));
    QCOMPARE(npoints, 2L);
}

void TestSplines::closedSplineOfThreePointsHasThreeSegments()
{
    PixelContext ctx;
    const auto spline = makeSpline(1, {{0, 0}, {100, 0}, {0, 100}}, {0.0, 0.0, 0.0});
    QVERIFY(initPointListFromSpline(&ctx, spline.get()));
    const QVector<QPoint> expected = {{100, 0}, {0, 100}, {0, 0}, {100, 0}};
    QCOMPARE(pointList(), expected);
}

void TestSplines::closedSplineEndsOnTheFirstSlotOfTheListWhateverTheCallback()
{
    PixelContext ctx;
    polygon_points[0] = QPoint(7, 9);
    const auto spline = makeSpline(1, {{0, 0}, {100, 0}, {0, 100}}, {0.0, 0.0, 0.0});
    QCOMPARE(walk(&ctx, spline.get()).last(), QPoint(7, 9));
}

void TestSplines::tooFewPointsGiveAnEmptyList_data()
{
    QTest::addColumn<int>("subType");
    QTest::addColumn<QVector<QPoint>>("points");
    QTest::newRow("open without points") << 0 << QVector<QPoint>();
    QTest::newRow("open with one") << 0 << QVector<QPoint>{{5, 5}};
    QTest::newRow("closed without points") << 1 << QVector<QPoint>();
    QTest::newRow("closed with two") << 1 << QVector<QPoint>{{5, 5}, {9, 9}};
}

void TestSplines::tooFewPointsGiveAnEmptyList()
{
    QFETCH(int, subType);
    QFETCH(QVector<QPoint>, points);
    PixelContext ctx;
    add_point_to_list(1, 2);
    const auto spline = makeSpline(subType, points, QVector<double>(points.size(), 1.0));
    QVERIFY(!initPointListFromSpline(&ctx, spline.get()));
    QCOMPARE(npoints, 0L);
}

void TestSplines::missingFactorsCountAsZero()
{
    PixelContext ctx;
    const auto bare = makeSpline(0, zigzag, {});
    QCOMPARE(walk(&ctx, bare.get()), zigzag);
    const auto partly = makeSpline(1, zigzag, {0.0, 1.0});
    const auto whole = makeSpline(1, zigzag, {0.0, 1.0, 0.0, 0.0, 0.0});
    QCOMPARE(walk(&ctx, partly.get()), walk(&ctx, whole.get()));
}

// With all factors 1 the weights at a knot are 1/6, 4/6, 1/6, as for a uniform cubic B-spline.
void TestSplines::approximatingKnotsAreThoseOfTheUniformCubic()
{
    // (0 + 4 * 90 + 240) / 6 = 100, (0 + 4 * 300 - 60) / 6 = 190
    QCOMPARE(firstSegment(zigzag, 1.0).first(), QPoint(100, 190));
    PixelContext ctx;
    const auto spline = makeSpline(1, zigzag, QVector<double>(5, 1.0));
    const QVector<QPoint> points = walk(&ctx, spline.get());
    // (90 + 960 + 420) / 6 = 245, (300 - 240 + 600) / 6 = 110, and so on round the polygon
    for (const QPoint& knot : {QPoint(245, 110), QPoint(420, 390), QPoint(470, 100)})
        QVERIFY2(points.contains(knot), qPrintable(QString("%1").arg(knot.x())));
}

namespace {

/// Points of the first segment against weights written out as polynomials of t, in extended
/// precision. The step is what the point count says: the greatest one that gives it.
template <class Weights>
void compareWithPolynomial(const QVector<QPoint>& points, const QVector<QPoint>& control,
                           double step, Weights weights)
{
    double t = 0.0;
    for (const QPoint& point : points) {
        long double w[4];
        weights(static_cast<long double>(t), w);
        const long double sum = w[0] + w[1] + w[2] + w[3];
        long double x = 0, y = 0;
        for (int i = 0; i < 4; ++i) {
            x += w[i] * control[i].x() / sum;
            y += w[i] * control[i].y() / sum;
        }
        QVERIFY2(std::fabs(x - point.x()) <= 0.5L + 1e-9L, qPrintable(QString::number(t)));
        QVERIFY2(std::fabs(y - point.y()) <= 0.5L + 1e-9L, qPrintable(QString::number(t)));
        t += step;
    }
    QVERIFY(t >= 1.0);
}

// f with p = 8, u half the distance from where the weight vanishes.
long double approximating(long double u)
{
    return u * u * u * (2 + u - 2 * u * u);
}

// g and h with q = 1/2, multiplied out.
long double interpolatingNear(long double u)
{
    return u / 2 + u * u + 2 * u * u * u - 4 * u * u * u * u + 1.5L * u * u * u * u * u;
}

long double interpolatingFar(long double u)
{
    return u / 2 + u * u - u * u * u * u - u * u * u * u * u / 2;
}

} // namespace

void TestSplines::approximatingSegmentFollowsItsPolynomial()
{
    // From (100, 190) to (245, 110) by way of (167, 128): chord 165, root 12, half of it 6. The
    // cosine at the middle is -6342 / (91.3 * 80.1) = -0.868, which adds 10 * 0.132: 7 steps.
    const QVector<QPoint> points = firstSegment(zigzag, 1.0);
    QCOMPARE(points.size(), 14);
    compareWithPolynomial(points, zigzag, 0.5f / 7.0f, [](long double t, long double* w) {
        w[0] = approximating((1 - t) / 2);
        w[1] = approximating((2 - t) / 2);
        w[2] = approximating((1 + t) / 2);
        w[3] = approximating(t / 2);
    });
}

void TestSplines::interpolatingSegmentFollowsItsPolynomial()
{
    // From (90, 300) to (240, -60) by way of (161, 103): chord 390, root 19, half of it 9. The
    // cosine at the middle is -0.995, which adds nothing.
    const QVector<QPoint> points = firstSegment(zigzag, -1.0);
    QCOMPARE(points.size(), 18);
    compareWithPolynomial(points, zigzag, 0.5f / 9.0f, [](long double t, long double* w) {
        w[0] = interpolatingFar(-t);
        w[1] = interpolatingNear(1 - t);
        w[2] = interpolatingNear(t);
        w[3] = interpolatingFar(t - 1);
    });
}

void TestSplines::mixedSegmentTakesEachSideFromItsOwnFactor()
{
    PixelContext ctx;
    // Point 1 interpolated, point 2 approximated: weights of points 0 and 2 are those of the
    // first kind, of points 1 and 3 those of the second.
    const auto spline = makeSpline(1, zigzag, {0.0, -1.0, 1.0, 0.0, 0.0});
    received.clear();
    stopAtOnce = true;
    compute_closed_spline(&ctx, spline.get(), SPLINE_PRECISION, receive);
    QVERIFY(received.size() >= 5);
    QCOMPARE(received.first(), QPoint(90, 300));
    const double step = 0.5 / std::round(received.size() / 2.0);
    QCOMPARE(received.size() % 2, 0);
    compareWithPolynomial(received, zigzag, static_cast<float>(step),
                          [](long double t, long double* w) {
                              w[0] = interpolatingFar(-t);
                              w[1] = approximating((2 - t) / 2);
                              w[2] = interpolatingNear(t);
                              w[3] = approximating(t / 2);
                          });
}

void TestSplines::interpolatingSplinePassesThroughItsPoints()
{
    PixelContext ctx;
    const auto spline = makeSpline(0, zigzag, {0.0, -1.0, -1.0, -1.0, 0.0});
    const QVector<QPoint> points = walk(&ctx, spline.get());
    int from = 0;
    for (const QPoint& point : zigzag) {
        from = points.indexOf(point, from);
        QVERIFY2(from >= 0, qPrintable(QString::number(point.x())));
    }
}

void TestSplines::openSplineStartsAndEndsOnItsEndPoints()
{
    PixelContext ctx;
    const auto spline = makeSpline(0, zigzag, {0.0, 1.0, 1.0, 1.0, 0.0});
    const QVector<QPoint> points = walk(&ctx, spline.get());
    QCOMPARE(points.first(), zigzag.first());
    QCOMPARE(points.last(), zigzag.last());
    QVERIFY(!points.contains(zigzag[2]));
}

void TestSplines::straightSegmentStepsByTheFourthRootOfItsSquaredLength()
{
    // Length 1000, root 31, half of it 15; straight adds nothing. Step 1/30.
    QCOMPARE(firstSegment({{0, 0}, {1000, 0}, {2000, 0}, {3000, 0}}, -1.0).size(), 30);
    // Length 10000, root 100, half of it 50: 0.01 in single precision is 0.0099999998, so that one
    // more point fits in front of the end.
    QCOMPARE(firstSegment({{0, 0}, {10000, 0}, {20000, 0}, {30000, 0}}, -1.0).size(), 101);
}

void TestSplines::hairpinAddsTwentySteps()
{
    // Both ends in (500, 500), the middle 47 pixels away: cosine 1, chord 0. Step 0.5 / 20.
    QCOMPARE(firstSegment({{0, 0}, {500, 500}, {500, 500}, {1000, 0}}, -1.0).size(), 40);
}

void TestSplines::aShortSegmentStillHasFivePoints()
{
    // No step at all, one step and two steps would be 0.5 and more.
    QCOMPARE(firstSegment({{0, 0}, {3, 0}, {6, 0}, {9, 0}}, -1.0).size(), 5);
    QCOMPARE(firstSegment({{0, 0}, {5, 0}, {10, 0}, {15, 0}}, -1.0).size(), 5);
    QCOMPARE(firstSegment({{0, 0}, {20, 0}, {40, 0}, {60, 0}}, -1.0).size(), 5);
    // 36 pixels are three steps: 1/6.
    QCOMPARE(firstSegment({{0, 0}, {36, 0}, {72, 0}, {108, 0}}, -1.0).size(), 6);
}

// 200000 squared needs 36 bits. Root 447, half of it 223.
void TestSplines::aSegmentBeyondTheRangeOfAnIntSquareEnds()
{
    const int count = firstSegment({{0, 0}, {200000, 0}, {400000, 0}, {600000, 0}}, -1.0).size();
    QVERIFY2(count == 446 || count == 447, qPrintable(QString::number(count)));
}

void TestSplines::pointsAreOnTheDeviceBeforeTheyAreBlended()
{
    PixelContext ctx;
    ctx.zoom = 0.5f;
    ctx.shiftX = 7;
    ctx.shiftY = -3;
    // 1 / 2 rounds to 1, 3 / 2 to 2: the blend works on rounded points.
    const auto spline = makeSpline(0, {{1, 3}, {201, 403}}, {0.0, 0.0});
    const QVector<QPoint> expected = {{1 - 7, 2 + 3}, {101 - 7, 202 + 3}, {101 - 7, 202 + 3}};
    QCOMPARE(walk(&ctx, spline.get()), expected);
}

void TestSplines::storedPointsStayUntouched()
{
    PixelContext ctx;
    ctx.zoom = 3.0f;
    const auto spline = makeSpline(1, zigzag, QVector<double>(5, 1.0));
    QVERIFY(initPointListFromSpline(&ctx, spline.get()));
    for (int i = 0; i < zigzag.size(); ++i)
        QCOMPARE(QPoint(spline->getPoint(i)->x, spline->getPoint(i)->y), zigzag[i]);
}

void TestSplines::doneStopsAnOpenSplineBeforeItsLastPoint()
{
    PixelContext ctx;
    const auto spline = makeSpline(0, zigzag, QVector<double>(5, 0.0));
    received.clear();
    stopAtOnce = true;
    QVERIFY(compute_open_spline(&ctx, spline.get(), SPLINE_PRECISION, receive));
    // The first segment, then the point that was converted last: its p3.
    const QVector<QPoint> expected = {zigzag[0], zigzag[2]};
    QCOMPARE(received, expected);
    QCOMPARE(done, 1);
}

void TestSplines::doneStopsAClosedSplineWithoutClosingIt()
{
    QCOMPARE(firstSegment(zigzag, 0.0), QVector<QPoint>{zigzag[1]});
}

void TestSplines::aFullListLosesPointsAndNothingElse()
{
    PixelContext ctx;
    QVector<QPoint> many;
    for (int i = 0; i < MAX_LIST_POINTS + 500; ++i)
        many.append(QPoint(i, i % 2));
    const auto spline = makeSpline(0, many, {});
    QVERIFY(initPointListFromSpline(&ctx, spline.get()));
    QCOMPARE(npoints, MAX_LIST_POINTS);
    QCOMPARE(polygon_points[MAX_LIST_POINTS - 1], many[MAX_LIST_POINTS - 1]);
    QCOMPARE(walk(&ctx, spline.get()).size(), many.size());
}

void TestSplines::unusableFactorsFallBackToTheControlPoint_data()
{
    QTest::addColumn<double>("factor");
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("minus infinite") << -std::numeric_limits<double>::infinity();
    QTest::newRow("too great to square") << -1e308;
}

void TestSplines::unusableFactorsFallBackToTheControlPoint()
{
    QFETCH(double, factor);
    PixelContext ctx;
    const auto spline = makeSpline(1, zigzag, QVector<double>(5, factor));
    polygon_points[0] = zigzag[0];
    for (const QPoint& point : walk(&ctx, spline.get()))
        QVERIFY2(zigzag.contains(point), qPrintable(QString("%1").arg(point.x())));
}

void TestSplines::coordinatesAtTheLimitsEnd()
{
    PixelContext ctx;
    ctx.zoom = 99.99f;
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    const QVector<QPoint> corners = {{least, least}, {most, least}, {most, most}, {least, most}};
    for (double factor : {-1.0, 1.0, 0.5}) {
        const auto spline = makeSpline(1, corners, QVector<double>(4, factor));
        QVERIFY(initPointListFromSpline(&ctx, spline.get()));
        QVERIFY(npoints > 4);
    }
}

QTEST_GUILESS_MAIN(TestSplines)
#include "test_splines.moc"
