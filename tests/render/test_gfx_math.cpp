#include "model/FigObjects.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>

namespace {

constexpr double PI = 3.14159265358979323846;
constexpr int RUNS = 200000;

struct Box {
    int minX = -7, minY = -7, maxX = -7, maxY = -7;
    bool operator==(const Box& other) const
    {
        return minX == other.minX && minY == other.minY && maxX == other.maxX && maxY == other.maxY;
    }
};

char* toString(const Box& box)
{
    return qstrdup(QString::asprintf("%d,%d to %d,%d", box.minX, box.minY, box.maxX, box.maxY)
                       .toLatin1()
                       .constData());
}

Box lineBounds(QVector<QPoint> points, bool closed, float width, int join)
{
    Box box;
    calc_linebounds(points.data(), points.size(), closed, width, join, &box.minX, &box.minY,
                    &box.maxX, &box.maxY);
    return box;
}

QVector<QPoint> outline(long x1, long y1, long x2, long y2, float width)
{
    QVector<QPoint> points(5);
    calc_outline(x1, y1, x2, y2, points.data(), width);
    return points;
}

/// The join at `vertex` between two segments; empty when nothing is added.
QVector<QPoint> joinPoints(QPoint from, QPoint vertex, QPoint to, float width, int join)
{
    QVector<QPoint> prev = outline(from.x(), from.y(), vertex.x(), vertex.y(), width);
    QVector<QPoint> cur = outline(vertex.x(), vertex.y(), to.x(), to.y(), width);
    QVector<QPoint> points(4);
    if (!calc_joinpoints(cur.data(), vertex.x(), vertex.y(), prev.data(), join, width,
                         points.data()))
        points.clear();
    return points;
}

struct Segment {
    int x1, y1, x2, y2;
    bool operator==(const Segment& other) const
    {
        return x1 == other.x1 && y1 == other.y1 && x2 == other.x2 && y2 == other.y2;
    }
};

char* toString(const Segment& s)
{
    return qstrdup(QString::asprintf("%d,%d %d,%d", s.x1, s.y1, s.x2, s.y2).toLatin1().constData());
}

Segment lengthenedDash(Segment s, int by, bool left, bool right)
{
    lengthen_dash(&s.x1, &s.y1, &s.x2, &s.y2, by, left, right);
    return s;
}

Segment lengthenedLine(Segment s, double factor, bool left, bool right)
{
    lengthen_line(&s.x1, &s.y1, &s.x2, &s.y2, factor, left, right);
    return s;
}

QPoint rotated(QPoint centre, QPoint point, double angle)
{
    int x, y;
    rotatePoint(centre.x(), centre.y(), point.x(), point.y(), &x, &y, angle);
    return {x, y};
}

struct Meeting {
    int result;
    int x = -77, y = -77;
    double t1 = -77, t2 = -77;
};

Meeting meeting(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    Meeting m;
    m.result = intersection(x1, y1, x2, y2, x3, y3, x4, y4, &m.x, &m.y, &m.t1, &m.t2);
    return m;
}

} // namespace

class TestGfxMath : public QObject {
    Q_OBJECT

private slots:
    // --- rounding ------------------------------------------------------------------

    void roundingIsHalfAwayFromZero_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("expected");
        const struct {
            double value;
            int expected;
        } rows[] = {
            {0.0, 0},
            {-0.0, 0},
            {0.5, 1},
            {-0.5, -1},
            {0.49999, 0},
            {-0.49999, 0},
            {2.5, 3},
            {-2.5, -3},
            // Adding a half would reach the next integer here.
            {0.49999999999999994, 0},
            {-0.49999999999999994, 0},
            {2147483646.4, INT_MAX - 1},
            {2147483646.5, INT_MAX},
            {-2147483647.5, INT_MIN},
            {-2147483647.4, INT_MIN + 1},
        };
        for (const auto& row : rows)
            QTest::addRow("%.20g", row.value) << row.value << row.expected;
    }
    void roundingIsHalfAwayFromZero()
    {
        QFETCH(double, value);
        QTEST(round2(value), "expected");
    }

    void roundingOutOfRangeSaturatesAndNanGivesZero()
    {
        QCOMPARE(round2(2147483647.0), INT_MAX);
        QCOMPARE(round2(2147483648.0), INT_MAX);
        QCOMPARE(round2(-2147483648.0), INT_MIN);
        QCOMPARE(round2(-2147483649.0), INT_MIN);
        QCOMPARE(round2(DBL_MAX), INT_MAX);
        QCOMPARE(round2(-DBL_MAX), INT_MIN);
        QCOMPARE(round2(qInf()), INT_MAX);
        QCOMPARE(round2(-qInf()), INT_MIN);
        QCOMPARE(round2(qQNaN()), 0);
    }

    void roundingAgreesWithFloorOfTheValuePlusHalf()
    {
        QRandomGenerator random(3311);
        for (int i = 0; i < RUNS; ++i) {
            const double value = std::ldexp(random.generateDouble() - 0.5, random.bounded(32));
            // Exact in the wider type.
            const long double size = std::floor(std::fabs(static_cast<long double>(value)) + 0.5L);
            QCOMPARE(round2(value), static_cast<int>(value < 0 ? -size : size));
        }
    }

    void truncationDropsTheFractionAndSaturates()
    {
        QCOMPARE(truncateToInt(1.999), 1);
        QCOMPARE(truncateToInt(-1.999), -1);
        QCOMPARE(truncateToInt(2147483647.9), INT_MAX);
        QCOMPARE(truncateToInt(1e300), INT_MAX);
        QCOMPARE(truncateToInt(-1e300), INT_MIN);
        QCOMPARE(truncateToInt(qQNaN()), 0);
        QCOMPARE(saturatedInt(1LL << 40), INT_MAX);
        QCOMPARE(saturatedInt(-(1LL << 40)), INT_MIN);
        QCOMPARE(saturatedInt(-12), -12);
    }

    void decimalsAreRoundedByRound2()
    {
        QCOMPARE(::round(1.23456, 2), 1.23);
        QCOMPARE(::round(1.235, 1), 1.2);
        QCOMPARE(::round(-1.25, 1), -1.3);
        QCOMPARE(::round(0.0110, 2), 0.01);
        QCOMPARE(::round(1234.0, -2), 1200.0);
        // The product does not fit an int.
        QCOMPARE(::round(1e9, 2), 21474836.47);
    }

    void signIsOfThreeKinds()
    {
        QCOMPARE(sign(INT_MIN), -1);
        QCOMPARE(sign(-1), -1);
        QCOMPARE(sign(0), 0);
        QCOMPARE(sign(5), 1);
    }

    void aValueIsHeldWithinItsDistanceOfTheCentre()
    {
        QCOMPARE(limitValue(100, 109, 10), 109.0);
        QCOMPARE(limitValue(100, 110, 10), 110.0);
        QCOMPARE(limitValue(100, 250, 10), 110.0);
        QCOMPARE(limitValue(100, -250, 10), 90.0);
    }

    // --- intersection ----------------------------------------------------------------

    void aSegmentWithoutLengthHasNoIntersection()
    {
        for (const Meeting& m :
             {meeting(5, 5, 5, 5, 0, 0, 10, 10), meeting(0, 0, 9, 9, 4, 4, 4, 4)}) {
            QCOMPARE(m.result, 1);
            QCOMPARE(m.x, -77);
            QCOMPARE(m.y, -77);
            QCOMPARE(m.t1, 0.0);
            QCOMPARE(m.t2, 0.0);
        }
    }

    void parallelLinesHaveNoIntersection()
    {
        const Meeting m = meeting(0, 0, 10, 20, 5, 0, 10, 10);
        QCOMPARE(m.result, 2);
        QCOMPARE(m.x, -77);
        QCOMPARE(m.y, -77);
        QCOMPARE(m.t1, 0.0);
        QCOMPARE(m.t2, 0.0);
    }

    void linesMeetBeyondTheirEndsToo()
    {
        // The x axis and the line through (30, -20) and (30, -10).
        const Meeting m = meeting(0, 0, 20, 0, 30, -20, 30, -10);
        QCOMPARE(m.result, 0);
        QCOMPARE(QPoint(m.x, m.y), QPoint(30, 0));
        QCOMPARE(m.t1, 1.5);
        QCOMPARE(m.t2, 2.0);
    }

    void theFirstParameterOfAVerticalLineComesFromY()
    {
        const Meeting m = meeting(7, 0, 7, 10, 0, 4, 10, 4);
        QCOMPARE(m.t1, 0.4);
        QCOMPARE(m.t2, 0.7);
    }

    void theDenominatorWrapsAtThirtyTwoBits()
    {
        // 65536 squared is 2^32: perpendicular lines of that length count as parallel.
        QCOMPARE(meeting(0, 0, 65536, 0, 0, 0, 0, 65536).result, 2);
        // 50000 squared wraps to 2500000000 - 2^32 = -1794967296; the numerator does not wrap.
        const Meeting m = meeting(0, 0, 50000, 0, 0, 50000, 0, 0);
        QCOMPARE(m.result, 0);
        QCOMPARE(m.t2, -2500000000.0 / 1794967296.0);
    }

    void theExtremesOfTheRangeAreNoHazard()
    {
        QVERIFY(meeting(INT_MIN, INT_MIN, INT_MAX, INT_MAX, INT_MIN, INT_MAX, INT_MAX, INT_MIN)
                    .result >= 0);
        QVERIFY(get_line_length(INT_MIN, 0, INT_MAX, 0) == 4294967295.0);
        const Box box =
            lineBounds({{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}, {INT_MIN, INT_MAX}}, true, 100, 0);
        QCOMPARE(box.minX, INT_MIN);
        QCOMPARE(box.maxX, INT_MAX);
        QCOMPARE(lineBounds({{INT_MAX, INT_MIN}}, false, 100, 1).maxX, INT_MAX);
        QCOMPARE(rotated({INT_MAX, 0}, {INT_MIN, 0}, PI).x(), INT_MAX);
        QCOMPARE(joinPoints({0, 0}, {INT_MAX, 0}, {0, 9}, 100, 1).value(2).x(), INT_MAX);
    }

    void intersectionAgreesWithLongDoubleArithmetic()
    {
        QRandomGenerator random(3312);
        const auto coordinate = [&] { return random.bounded(-10000, 10001); };
        for (int i = 0; i < RUNS; ++i) {
            const int x1 = coordinate(), y1 = coordinate(), x2 = coordinate(), y2 = coordinate();
            const int x3 = coordinate(), y3 = coordinate(), x4 = coordinate(), y4 = coordinate();
            const Meeting m = meeting(x1, y1, x2, y2, x3, y3, x4, y4);
            const long double ax = x2 - x1, ay = y2 - y1, bx = x4 - x3, by = y4 - y3;
            const long double cross = ax * by - ay * bx;
            if (cross == 0) {
                QVERIFY(m.result != 0);
                continue;
            }
            QCOMPARE(m.result, 0);
            const long double t1 = ((x3 - x1) * by - (y3 - y1) * bx) / cross;
            const long double t2 = ((x3 - x1) * ay - (y3 - y1) * ax) / cross;
            QVERIFY(std::fabs(m.t1 - t1) <= 1e-9L * (1 + std::fabs(t1)));
            QVERIFY(std::fabs(m.t2 - t2) <= 1e-12L * (1 + std::fabs(t2)));
            const long double x = x1 + ax * t1, y = y1 + ay * t1;
            QVERIFY(std::fabs(m.x - x) <= 0.5L + 1e-9L * std::fabs(x));
            QVERIFY(std::fabs(m.y - y) <= 0.5L + 1e-9L * std::fabs(y));
        }
    }

    // --- outlines and joins -----------------------------------------------------------

    void theOutlineOfASegmentHasItsLongSidesFromOneToTwoAndFromZeroToThree()
    {
        // A 3-4-5 triangle: half the width is 5 at right angles to (30, 40).
        QCOMPARE(outline(0, 0, 30, 40, 10),
                 (QVector<QPoint>{{4, -3}, {-4, 3}, {26, 43}, {34, 37}, {4, -3}}));
    }

    void theOutlineOfAPointIsTheDiagonalOfItsSquare()
    {
        QCOMPARE(outline(10, 20, 10, 20, 8),
                 (QVector<QPoint>{{6, 16}, {14, 24}, {6, 16}, {14, 24}, {6, 16}}));
    }

    void theOverloadsTakeAWholeWidthAndNone()
    {
        QVector<QPoint> points(5);
        calc_outline(0, 0, 30, 40, points.data(), 10);
        QCOMPARE(points, outline(0, 0, 30, 40, 10.0f));
        calc_outline(0, 0, 30, 40, points.data());
        QCOMPARE(points, (QVector<QPoint>{{0, 0}, {0, 0}, {30, 40}, {30, 40}, {0, 0}}));
    }

    void outlinesAreComputedInSinglePrecision()
    {
        // 2^24 + 1 has no single-precision value; the even neighbour below is taken.
        QCOMPARE(outline(16777217, 0, 16777217, 100, 0).first(), QPoint(16777216, 0));
    }

    void aRightAngledMiterAddsItsTip()
    {
        // Right, then down; width 20: the outer sides y = -10 and x = 110 meet outside.
        QCOMPARE(joinPoints({0, 0}, {100, 0}, {100, 100}, 20, 0),
                 (QVector<QPoint>{{110, -10}, {100, -10}, {100, 0}, {110, 0}}));
        // Right, then up: the other side.
        QCOMPARE(joinPoints({0, 0}, {100, 0}, {100, -100}, 20, 0),
                 (QVector<QPoint>{{110, 10}, {110, 0}, {100, 0}, {100, 10}}));
    }

    void aBevelAddsTheTwoOuterCorners()
    {
        QCOMPARE(joinPoints({0, 0}, {100, 0}, {100, 100}, 20, 2),
                 (QVector<QPoint>{{100, -10}, {110, 0}, {100, 0}, {100, 0}}));
        QCOMPARE(joinPoints({0, 0}, {100, 0}, {100, -100}, 20, 2),
                 (QVector<QPoint>{{100, 10}, {110, 0}, {100, 0}, {100, 0}}));
    }

    void aBevelAsksForAMarginOnTheSecondParameterAlone()
    {
        // Width 4 at right angles after 1000 and 3000 units: the second parameter is
        // 1 + 2 / length, that is 1.002 and 1.00067.
        QVERIFY(!joinPoints({0, 0}, {100, 0}, {100, 1000}, 4, 2).isEmpty());
        QVERIFY(joinPoints({0, 0}, {100, 0}, {100, 3000}, 4, 2).isEmpty());
        QVERIFY(!joinPoints({0, 0}, {3000, 0}, {3000, 100}, 4, 2).isEmpty());
    }

    void aRoundJoinAddsItsDiamond()
    {
        QCOMPARE(joinPoints({0, 0}, {100, 0}, {100, 100}, 15, 1),
                 (QVector<QPoint>{{92, 0}, {100, -8}, {108, 0}, {100, 8}}));
    }

    void collinearSegmentsAddNothingForMiterButTheDiamondForRound()
    {
        QVERIFY(joinPoints({0, 0}, {100, 0}, {200, 0}, 10, 0).isEmpty());
        QVERIFY(joinPoints({0, 0}, {100, 0}, {50, 0}, 10, 0).isEmpty());
        QCOMPARE(joinPoints({0, 0}, {100, 0}, {200, 0}, 10, 1).size(), 4);
        QCOMPARE(lineBounds({{0, 0}, {100, 0}, {50, 0}}, false, 10, 0), (Box{0, -5, 100, 5}));
        QCOMPARE(lineBounds({{0, 0}, {100, 0}, {50, 0}}, false, 10, 1), (Box{0, -5, 105, 5}));
    }

    void nearlyCollinearSegmentsCountAsCollinear()
    {
        // An angle of 0.001 has the cosine 0.9999995; one of 0.01, 0.99995.
        QVERIFY(joinPoints({0, 0}, {10000, 0}, {0, 10}, 1000, 0).isEmpty());
        QVERIFY(joinPoints({0, 0}, {10000, 0}, {20000, 10}, 1000, 0).isEmpty());
        QVERIFY(!joinPoints({0, 0}, {10000, 0}, {0, 100}, 1000, 0).isEmpty());
    }

    void otherJoinsAddNothing()
    {
        QVERIFY(joinPoints({0, 0}, {100, 0}, {100, 100}, 20, 3).isEmpty());
        QVERIFY(joinPoints({0, 0}, {100, 0}, {100, 100}, 20, -1).isEmpty());
        QVERIFY(joinPoints({0, 0}, {100, 0}, {100, 100}, 20, 4).isEmpty());
    }

    void anOutlineThatBeginsAtMinusOneCountsAsNone()
    {
        // Point 0 of the outline of (-11, 0) to (-11, 100) with width 20 has x -1.
        QCOMPARE(outline(-11, 0, -11, 100, 20).first().x(), -1);
        QVERIFY(joinPoints({-11, 0}, {-11, 100}, {100, 100}, 20, 1).isEmpty());
        QVERIFY(!joinPoints({-12, 0}, {-12, 100}, {100, 100}, 20, 1).isEmpty());
    }

    // --- stroked bounds ---------------------------------------------------------------

    void aVerticalLineIsHalfItsWidthWideOnEitherSide()
    {
        QCOMPARE(lineBounds({{100, 0}, {100, 200}}, false, 10, 0), (Box{95, 0, 105, 200}));
        // Odd widths round away from zero on both sides.
        QCOMPARE(lineBounds({{100, 0}, {100, 200}}, false, 15, 0), (Box{93, 0, 108, 200}));
        QCOMPARE(lineBounds({{-100, 0}, {-100, 200}}, false, 15, 0), (Box{-108, 0, -93, 200}));
    }

    void aSinglePointHasTheBoxOfItsWidth()
    {
        QCOMPARE(lineBounds({{100, 50}}, false, 10, 0), (Box{95, 45, 105, 55}));
        QCOMPARE(lineBounds({{100, 50}}, true, 15, 1), (Box{93, 43, 108, 58}));
    }

    void noPointsLeaveTheResultsAlone()
    {
        QCOMPARE(lineBounds({}, false, 10, 0), Box());
        QCOMPARE(lineBounds({}, true, 10, 1), Box());
    }

    void aSharpMiterStopsAtFiveWidthsFromTheVertex()
    {
        QCOMPARE(lineBounds({{0, 0}, {1000, 0}, {0, 20}}, false, 10, 0).maxX, 1050);
        QCOMPARE(lineBounds({{0, 0}, {0, 1000}, {20, 0}}, false, 10, 0).maxY, 1050);
    }

    void aClosedLineHasTheJoinAtItsFirstPointToo()
    {
        // The last segment's lower side y = -10 and the first one's left side y = x + 14 meet
        // at (-24, -10).
        const QVector<QPoint> triangle{{0, 0}, {100, 100}, {200, 0}, {0, 0}};
        QCOMPARE(lineBounds(triangle, false, 20, 0).minX, -7);
        QCOMPARE(lineBounds(triangle, true, 20, 0).minX, -24);
    }

    // --- lengths ----------------------------------------------------------------------

    void aDashGrowsAtTheEndsAskedFor()
    {
        const Segment dash{0, 0, 30, 40};
        QCOMPARE(lengthenedDash(dash, 10, false, true), (Segment{0, 0, 36, 48}));
        QCOMPARE(lengthenedDash(dash, 10, true, false), (Segment{-6, -8, 30, 40}));
        QCOMPARE(lengthenedDash(dash, -5, true, true), (Segment{3, 4, 27, 36}));
    }

    void aDashWithoutLengthStays()
    {
        QCOMPARE(lengthenedDash({5, 6, 5, 6}, 10, true, true), (Segment{5, 6, 5, 6}));
        QCOMPARE(lengthenedLine({5, 6, 5, 6}, 10, true, true), (Segment{5, 6, 5, 6}));
    }

    void aLineIsScaledAtTheEndsAskedFor()
    {
        const Segment line{100, 0, 200, 0};
        QCOMPARE(lengthenedLine(line, 2, false, true), (Segment{100, 0, 300, 0}));
        QCOMPARE(lengthenedLine(line, 2, true, false), (Segment{0, 0, 200, 0}));
        QCOMPARE(lengthenedLine(line, 2, false, false), line);
    }

    void bothFlagsTogetherScaleByFactorSquared()
    {
        QCOMPARE(lengthenedLine({100, 0, 200, 0}, 2, true, true), (Segment{0, 0, 400, 0}));
    }

    void lengthsAndPointsOfSegments()
    {
        QCOMPARE(get_line_length(1, 2, 4, 6), 5.0);
        int x, y;
        getPointByFactor(10, 20, 110, 221, 0.5, &x, &y);
        QCOMPARE(QPoint(x, y), QPoint(60, 121));
        getPointByFactor(0, 0, 10, -10, 1.5, &x, &y);
        QCOMPARE(QPoint(x, y), QPoint(15, -15));
    }

    void aPositiveAngleTurnsCounterClockwiseOnScreen()
    {
        QCOMPARE(rotated({100, 100}, {110, 100}, PI / 2), QPoint(100, 90));
        QCOMPARE(rotated({100, 100}, {110, 100}, -PI / 2), QPoint(100, 110));
        QCOMPARE(rotated({0, 0}, {100, 0}, PI / 6), QPoint(87, -50));
    }

    void aLineOfTooManyPointsIsCutAtTheListLimit()
    {
        FigLine line;
        long n = -1;
        getPointArray(&line, nullptr, &n);
        QCOMPARE(n, 0L);
        QVector<QPoint> points(MAX_LIST_POINTS + 1, QPoint(-5, -5));
        std::vector<FigPoint> chain(MAX_LIST_POINTS + 1);
        for (std::size_t i = 0; i < chain.size(); ++i) {
            chain[i] = FigPoint(static_cast<int>(i / 2), 1);
            chain[i].next = i + 1 < chain.size() ? &chain[i + 1] : nullptr;
        }
        line.points = chain.data();
        getPointArray(&line, points.data(), &n);
        line.points = nullptr;
        QCOMPARE(n, MAX_LIST_POINTS);
        // Equal neighbours stay.
        QCOMPARE(points[0], points[1]);
        QCOMPARE(points[99999], QPoint(49999, 1));
        QCOMPARE(points[100000], QPoint(-5, -5));
    }

    // --- angles and ellipses ------------------------------------------------------------

    void theAngleOfTwoVectorsIsNegativeForAPositiveCrossProduct()
    {
        QCOMPARE(getCrossProduct(1, 2, 3, 4), -2.0);
        QCOMPARE(getAngle(0, 0, 10, 0, 0, 0, 0, 10), -PI / 2);
        QCOMPARE(getAngle(0, 0, 10, 0, 5, 5, 5, -5), PI / 2);
        QCOMPARE(getAngle(0, 0, 10, 0, 0, 0, -10, 0), PI);
        QCOMPARE(getAngle(3, 3, 3, 3, 0, 0, 1, 0), 0.0);
    }

    void theAngleAgreesWithTheArcTangentAndIsNeverNan()
    {
        QRandomGenerator random(3313);
        for (int i = 0; i < RUNS; ++i) {
            const int x = random.bounded(-50, 51), y = random.bounded(-50, 51);
            const int factor = random.bounded(4);
            const int u = factor ? x * factor : random.bounded(-50, 51);
            const int v = factor ? y * factor : random.bounded(-50, 51);
            const double angle = getAngle(0, 0, x, y, 7, 7, 7 + u, 7 + v);
            const long double cross = static_cast<long double>(x) * v - y * u;
            const long double dot = static_cast<long double>(x) * u + y * v;
            const long double size = std::atan2(std::fabs(cross), dot);
            // The arc cosine is flat where the vectors are parallel.
            QVERIFY(std::fabs(angle - (cross > 0 ? -size : size)) < 1e-7L);
        }
    }

    void pointsOfAnEllipse()
    {
        // x at 3/5 of the half axis gives 4/5 of the other.
        bool ok = false;
        QCOMPARE(getEllipseY(100, 200, 50, 30, 130, true, &ok), 224.0);
        QVERIFY(ok);
        QCOMPARE(getEllipseY(100, 200, 50, 30, 130, false, &ok), 176.0);
        QCOMPARE(getEllipseX(100, 200, 50, 30, 218, true, &ok), 140.0);
        QCOMPARE(getEllipseX(100, 200, 50, 30, 218, false, &ok), 60.0);
        QVERIFY(ok);
    }

    void anEllipseIsNotReachedOutsideOrWithoutRadius()
    {
        bool ok = true;
        QCOMPARE(getEllipseY(100, 200, 50, 30, 151, true, &ok), 0.0);
        QVERIFY(!ok);
        for (const auto& radii : {std::make_pair(0, 30), std::make_pair(50, 0)}) {
            ok = true;
            QCOMPARE(getEllipseY(100, 200, radii.first, radii.second, 100, true, &ok), 0.0);
            QVERIFY(!ok);
            ok = true;
            QCOMPARE(getEllipseX(100, 200, radii.first, radii.second, 200, true, &ok), 0.0);
            QVERIFY(!ok);
        }
    }

    void anEllipseIsFlippedWhenTheSignOfItsRadiusVectorChanges()
    {
        FigEllipse one, other;
        one.center = FigPoint(100, 100);
        one.end = FigPoint(150, 50);
        other.center = FigPoint(0, 0);
        other.end = FigPoint(1, 1);
        QVERIFY(!isFlippedX(&one, &other));
        QVERIFY(isFlippedY(&one, &other));
        // No side at all is a side of its own.
        other.end = FigPoint(0, -1);
        QVERIFY(isFlippedX(&one, &other));
        QVERIFY(!isFlippedY(&one, &other));
    }

    void theTangentOfAnEllipse()
    {
        QCOMPARE(getTangentOnEllipseAngle(0, 0, 50, 50, 30, -30), -PI / 4);
        QCOMPARE(getTangentOnEllipseAngle(0, 0, 50, 25, 40, 15), std::atan(2.0 / 3.0));
        QCOMPARE(std::fabs(getTangentOnEllipseAngle(0, 0, 50, 25, 50, 0)), PI / 2);
        QCOMPARE(getTangentOnEllipseAngle(10, 10, 50, 25, 10, 10), 0.0);
    }

    void legsAndFarEndOfATriangle()
    {
        QCOMPARE(getAforCandAngle(10, PI / 6), 5.0);
        QCOMPARE(getBforCandAngle(10, PI / 3), 5.0);
        int x, y;
        // cos 60 times 3 is 1.5, sin 60 times 3 is 2.6: both are truncated.
        get2ndPointForLine(0, 0, PI / 3, 3, &x, &y);
        QCOMPARE(QPoint(x, y), QPoint(1, -2));
        get2ndPointForLine(0, 0, PI / 2, 1e20, &x, &y);
        QCOMPARE(y, INT_MIN);
    }

    void theAngleOfAVectorLiesBetweenZeroAndAFullTurn()
    {
        QCOMPARE(compute_angle(0, 1), PI / 2);
        QCOMPARE(compute_angle(0, -1), 4.71238898038469);
        QCOMPARE(compute_angle(0, 0), 4.71238898038469);
        QCOMPARE(compute_angle(3, 0), 0.0);
        QCOMPARE(compute_angle(-3, 0), PI);
        QRandomGenerator random(3314);
        for (int i = 0; i < 10000; ++i) {
            const double dx = random.bounded(2.0) - 1, dy = random.bounded(2.0) - 1;
            const double angle = std::atan2(dy, dx);
            QVERIFY(std::fabs(compute_angle(dx, dy) - (angle < 0 ? angle + 2 * PI : angle)) <
                    1e-14);
        }
    }
};

QTEST_GUILESS_MAIN(TestGfxMath)
#include "test_gfx_math.moc"
