// Expectations are worked out by hand.
#include "edit/u_geom.h"

#include <QtTest>

#include <climits>
#include <cmath>
#include <numeric>

class TestGeom : public QObject {
    Q_OBJECT

private slots:
    void slopeTablesHoldTheReducedPairsInOrder_data();
    void slopeTablesHoldTheReducedPairsInOrder();
    void slopeAnglesAreDegrees();
    void nearestPointOfASegment_data();
    void nearestPointOfASegment();
    void missLeavesThePointAlone();
    void distanceOfTheToleranceIsTooFar();
    void endWinsPerAxisWhereTheSegmentIsTooFar();
    void firstEndWinsOverTheSecond();
    void farthestCoordinatesDoNotOverflow();
    void directionOfThreePoints_data();
    void directionOfThreePoints();
    void centreOfThreePoints_data();
    void centreOfThreePoints();
    void noCentre_data();
    void noCentre();
    void divisorsAndMultiplesTakeAbsoluteValues();
    void nearestSlope_data();
    void nearestSlope();
    void latexEnd_data();
    void latexEnd();
    void latexEndLiesOnMultiplesOfTheMagnitude();
};

void TestGeom::slopeTablesHoldTheReducedPairsInOrder_data()
{
    QTest::addColumn<bool>("arrow");
    QTest::addColumn<int>("largest");
    QTest::newRow("arrow") << true << 4;
    QTest::newRow("line") << false << 6;
}

void TestGeom::slopeTablesHoldTheReducedPairsInOrder()
{
    QFETCH(bool, arrow);
    QFETCH(int, largest);
    QVector<QPoint> expected;
    for (int x = 0; x <= largest; ++x)
        for (int y = 0; y <= largest; ++y)
            if (std::gcd(x, y) == 1)
                expected.append(QPoint(x, y));
    const SlopeEntry* table = arrow ? arrow_angles : line_angles;
    QCOMPARE(expected.size(), arrow ? NUM_ARROW_ANGLES : NUM_LINE_ANGLES);
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(QPoint(table[i].x, table[i].y), expected[i]);
}

void TestGeom::slopeAnglesAreDegrees()
{
    QCOMPARE(arrow_angles[0].angle, 90.0);
    QCOMPARE(arrow_angles[1].angle, 0.0);
    QCOMPARE(arrow_angles[2].angle, 45.0);
    QVERIFY(std::fabs(arrow_angles[3].angle - 63.4349) < 0.0001);
    QVERIFY(std::fabs(line_angles[24].angle - 39.8056) < 0.0001);
}

// --- segments ---------------------------------------------------------------------------

void TestGeom::nearestPointOfASegment_data()
{
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<QPoint>("cursor");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("first end") << QPoint(0, 0) << QPoint(300, 400) << QPoint(-30, 30)
                               << QPoint(0, 0);
    QTest::newRow("second end") << QPoint(0, 0) << QPoint(300, 400) << QPoint(330, 400)
                                << QPoint(300, 400);
    QTest::newRow("vertical") << QPoint(50, 0) << QPoint(50, 400) << QPoint(60, 200)
                              << QPoint(50, 200);
    QTest::newRow("horizontal") << QPoint(400, 50) << QPoint(0, 50) << QPoint(200, 40)
                                << QPoint(200, 50);
    // Ten units off at right angles: (8, -6) from (150, 200).
    QTest::newRow("slanted") << QPoint(0, 0) << QPoint(300, 400) << QPoint(158, 194)
                             << QPoint(150, 200);
    QTest::newRow("falling") << QPoint(300, 0) << QPoint(0, 400) << QPoint(142, 194)
                             << QPoint(150, 200);
    // The foot is (200.5, 200.5): half goes away from zero.
    QTest::newRow("rounded") << QPoint(0, 0) << QPoint(400, 400) << QPoint(210, 191)
                             << QPoint(201, 201);
    QTest::newRow("no length") << QPoint(7, 9) << QPoint(7, 9) << QPoint(37, -21) << QPoint(7, 9);
}

void TestGeom::nearestPointOfASegment()
{
    QFETCH(QPoint, start);
    QFETCH(QPoint, end);
    QFETCH(QPoint, cursor);
    QFETCH(QPoint, expected);
    int x = -1, y = -1;
    QVERIFY(close_to_vector(start.x(), start.y(), end.x(), end.y(), cursor.x(), cursor.y(), 30,
                            900.0f, &x, &y));
    QCOMPARE(QPoint(x, y), expected);
}

void TestGeom::missLeavesThePointAlone()
{
    int x = -1, y = -2;
    QVERIFY(!close_to_vector(0, 0, 300, 400, 200, 100, 30, 900.0f, &x, &y));
    QVERIFY(!close_to_vector(0, 0, 300, 0, 331, 0, 30, 900.0f, &x, &y));
    QCOMPARE(QPoint(x, y), QPoint(-1, -2));
}

void TestGeom::distanceOfTheToleranceIsTooFar()
{
    int x, y;
    QVERIFY(close_to_vector(0, 0, 300, 0, 150, 29, 30, 900.0f, &x, &y));
    QVERIFY(!close_to_vector(0, 0, 300, 0, 150, 30, 30, 900.0f, &x, &y));
}

void TestGeom::endWinsPerAxisWhereTheSegmentIsTooFar()
{
    int x = 0, y = 0;
    QVERIFY(close_to_vector(0, 0, 300, 0, -30, -30, 30, 900.0f, &x, &y));
    QCOMPARE(QPoint(x, y), QPoint(0, 0));
    QVERIFY(!close_to_vector(0, 0, 300, 0, -31, -30, 30, 900.0f, &x, &y));
}

void TestGeom::firstEndWinsOverTheSecond()
{
    int x = 0, y = 0;
    QVERIFY(close_to_vector(0, 0, 20, 0, 20, 0, 30, 900.0f, &x, &y));
    QCOMPARE(QPoint(x, y), QPoint(0, 0));
}

void TestGeom::farthestCoordinatesDoNotOverflow()
{
    int x = 5, y = 5;
    QVERIFY(!close_to_vector(INT_MIN, 0, INT_MIN, 1, INT_MAX, 0, INT_MAX, 1.0f, &x, &y));
    QVERIFY(close_to_vector(INT_MIN, 0, INT_MAX, 0, 0, 0, 30, 900.0f, &x, &y));
    QCOMPARE(QPoint(x, y), QPoint(0, 0));
}

// --- arcs ----------------------------------------------------------------------------------

void TestGeom::directionOfThreePoints_data()
{
    QTest::addColumn<QPoint>("a");
    QTest::addColumn<QPoint>("b");
    QTest::addColumn<QPoint>("c");
    QTest::addColumn<int>("direction");
    QTest::newRow("right, then up") << QPoint(0, 0) << QPoint(100, 0) << QPoint(100, -100) << 1;
    QTest::newRow("right, then down") << QPoint(0, 0) << QPoint(100, 0) << QPoint(100, 100) << 0;
    // From 350 to 10 degrees: the difference lies below minus a half turn.
    QTest::newRow("over the right") << QPoint(0, 0) << QPoint(100, 17) << QPoint(200, 0) << 1;
    QTest::newRow("back over the right") << QPoint(0, 0) << QPoint(100, -17) << QPoint(200, 0) << 0;
    QTest::newRow("straight on") << QPoint(0, 0) << QPoint(100, 0) << QPoint(200, 0) << 0;
    QTest::newRow("straight back") << QPoint(0, 0) << QPoint(100, 0) << QPoint(0, 0) << 0;
    QTest::newRow("farthest") << QPoint(INT_MIN, 0) << QPoint(INT_MAX, 0)
                              << QPoint(INT_MAX, INT_MIN) << 1;
}

void TestGeom::directionOfThreePoints()
{
    QFETCH(QPoint, a);
    QFETCH(QPoint, b);
    QFETCH(QPoint, c);
    QTEST(compute_direction(FigPoint(a.x(), a.y()), FigPoint(b.x(), b.y()), FigPoint(c.x(), c.y())),
          "direction");
}

void TestGeom::centreOfThreePoints_data()
{
    QTest::addColumn<QPoint>("a");
    QTest::addColumn<QPoint>("b");
    QTest::addColumn<QPoint>("c");
    QTest::addColumn<QPointF>("centre");
    QTest::newRow("half circle") << QPoint(300, 100) << QPoint(200, 0) << QPoint(100, 100)
                                 << QPointF(200, 100);
    QTest::newRow("ends below each other")
        << QPoint(0, 0) << QPoint(100, 100) << QPoint(0, 200) << QPointF(0, 100);
    // The middle of the long side of a right-angled triangle.
    QTest::newRow("between units")
        << QPoint(0, 0) << QPoint(130, 0) << QPoint(130, 131) << QPointF(65, 65.5);
}

void TestGeom::centreOfThreePoints()
{
    QFETCH(QPoint, a);
    QFETCH(QPoint, b);
    QFETCH(QPoint, c);
    QFETCH(QPointF, centre);
    float x = 0, y = 0;
    QVERIFY(compute_arccenter(FigPoint(a.x(), a.y()), FigPoint(b.x(), b.y()),
                              FigPoint(c.x(), c.y()), &x, &y));
    QCOMPARE(x, static_cast<float>(centre.x()));
    QCOMPARE(y, static_cast<float>(centre.y()));
}

void TestGeom::noCentre_data()
{
    QTest::addColumn<QPoint>("a");
    QTest::addColumn<QPoint>("b");
    QTest::addColumn<QPoint>("c");
    QTest::newRow("ends equal") << QPoint(0, 0) << QPoint(100, 100) << QPoint(0, 0);
    QTest::newRow("first two equal") << QPoint(0, 0) << QPoint(0, 0) << QPoint(100, 100);
    QTest::newRow("last two equal") << QPoint(0, 0) << QPoint(100, 100) << QPoint(100, 100);
    QTest::newRow("on a line") << QPoint(0, 0) << QPoint(100, 100) << QPoint(200, 200);
    QTest::newRow("nearly on a line") << QPoint(0, 0) << QPoint(1000, 0) << QPoint(2000, 19);
    // The test on the bearings passes here; nothing but the determinant tells.
    QTest::newRow("first between the others")
        << QPoint(0, 0) << QPoint(-100, -50) << QPoint(100, 50);
    // A circle about (0, 100) goes through them, but the sine of both bearings is the same.
    QTest::newRow("mirrored about the vertical through the first")
        << QPoint(0, 0) << QPoint(100, 100) << QPoint(-100, 100);
    QTest::newRow("beyond a thousand million")
        << QPoint(0, 0) << QPoint(2100000000, 0) << QPoint(0, 2100000000);
}

void TestGeom::noCentre()
{
    QFETCH(QPoint, a);
    QFETCH(QPoint, b);
    QFETCH(QPoint, c);
    float x = 17, y = 18;
    QVERIFY(!compute_arccenter(FigPoint(a.x(), a.y()), FigPoint(b.x(), b.y()),
                               FigPoint(c.x(), c.y()), &x, &y));
    QCOMPARE(x, 17.0f);
    QCOMPARE(y, 18.0f);
}

// --- slopes -----------------------------------------------------------------------------------

void TestGeom::divisorsAndMultiplesTakeAbsoluteValues()
{
    QCOMPARE(gcd(12, -18), 6);
    QCOMPARE(gcd(0, -5), 5);
    QCOMPARE(gcd(0, 0), 1);
    QCOMPARE(gcd(INT_MIN, INT_MIN), INT_MAX); // the nearest int
    QCOMPARE(lcm(4, -6), 12);
    QCOMPARE(lcm(-3, -5), 15);
    QCOMPARE(lcm(0, 5), 0);
    QCOMPARE(lcm(0, 0), 0);
}

void TestGeom::nearestSlope_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<QPoint>("arrow");
    QTest::addColumn<QPoint>("line");
    QTest::newRow("up") << QPoint(0, -7) << QPoint(0, -1) << QPoint(0, -1);
    QTest::newRow("down") << QPoint(0, 7) << QPoint(0, 1) << QPoint(0, 1);
    QTest::newRow("nowhere") << QPoint(0, 0) << QPoint(0, 1) << QPoint(0, 1);
    QTest::newRow("left") << QPoint(-9, 0) << QPoint(-1, 0) << QPoint(-1, 0);
    // 21.80 degrees: arrows have 18.43 and 26.57.
    QTest::newRow("flat") << QPoint(10, 4) << QPoint(3, 1) << QPoint(5, 2);
    QTest::newRow("flat, back and up") << QPoint(-10, -4) << QPoint(-3, -1) << QPoint(-5, -2);
    // 80.5 degrees lie nearer to 80.54 than to the vertical, for arrows to 75.96.
    QTest::newRow("steep") << QPoint(1, 6) << QPoint(1, 4) << QPoint(1, 6);
    QTest::newRow("farthest") << QPoint(INT_MIN, INT_MIN) << QPoint(-1, -1) << QPoint(-1, -1);
}

void TestGeom::nearestSlope()
{
    QFETCH(QPoint, way);
    int x = 0, y = 0;
    get_slope(way.x(), way.y(), &x, &y, 1);
    QTEST(QPoint(x, y), "arrow");
    get_slope(way.x(), way.y(), &x, &y, 0);
    QTEST(QPoint(x, y), "line");
}

void TestGeom::latexEnd_data()
{
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<int>("magnitude");
    QTest::addColumn<QPoint>("expected");
    // The slope is (1, 1), the horizontal distance decides.
    QTest::newRow("diagonal") << QPoint(0, 0) << QPoint(100, 90) << 1 << QPoint(100, 100);
    // A multiple of 30: 2 * 100 / 30 is 6, and (6 + 1) / 2 is 3.
    QTest::newRow("in steps") << QPoint(0, 0) << QPoint(100, 90) << 30 << QPoint(90, 90);
    // Slope (1, 2), period 6: 200 / 6 is 33, and 34 / 2 is 17, so y is 102.
    QTest::newRow("steep") << QPoint(0, 0) << QPoint(50, 100) << 3 << QPoint(51, 102);
    QTest::newRow("steep, back and up")
        << QPoint(0, 0) << QPoint(-50, -100) << 3 << QPoint(-51, -102);
    QTest::newRow("from elsewhere") << QPoint(10, 20) << QPoint(60, 120) << 3 << QPoint(61, 122);
    QTest::newRow("vertical") << QPoint(5, 5) << QPoint(5, 50) << 10 << QPoint(5, 55);
    QTest::newRow("horizontal") << QPoint(5, 5) << QPoint(-36, 5) << 10 << QPoint(-35, 5);
    QTest::newRow("nowhere") << QPoint(5, 6) << QPoint(5, 6) << 10 << QPoint(5, 6);
    QTest::newRow("no magnitude counts as one")
        << QPoint(0, 0) << QPoint(100, 90) << 0 << QPoint(100, 100);
    QTest::newRow("nor does a negative one")
        << QPoint(0, 0) << QPoint(100, 90) << -7 << QPoint(100, 100);
}

void TestGeom::latexEnd()
{
    QFETCH(QPoint, start);
    QFETCH(QPoint, end);
    QFETCH(int, magnitude);
    int x = 0, y = 0;
    latex_endpoint(start.x(), start.y(), end.x(), end.y(), &x, &y, 1, magnitude);
    QTEST(QPoint(x, y), "expected");
}

// Along the axis of the greater share always; along the other where that share and the magnitude
// have no divisor in common.
void TestGeom::latexEndLiesOnMultiplesOfTheMagnitude()
{
    for (int magnitude = 1; magnitude <= 60; ++magnitude) {
        for (int way = -600; way <= 600; way += 37) {
            int x = 0, y = 0, slopeX = 0, slopeY = 0;
            latex_endpoint(0, 0, way, 250, &x, &y, 0, magnitude);
            get_slope(way, 250, &slopeX, &slopeY, 0);
            const bool steep = std::abs(slopeX) < std::abs(slopeY);
            QCOMPARE((steep ? y : x) % magnitude, 0);
            if (std::gcd(steep ? slopeY : slopeX, magnitude) == 1)
                QCOMPARE((steep ? x : y) % magnitude, 0);
            QCOMPARE(static_cast<long>(x) * slopeY, static_cast<long>(y) * slopeX);
        }
    }
}

QTEST_GUILESS_MAIN(TestGeom)
#include "test_u_geom.moc"
