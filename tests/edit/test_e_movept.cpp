// What the moves of single points do to the objects; and points that enter and leave chains.
#include "ObjectBuilders.h"
#include "edit/e_addpt.h"
#include "edit/e_deletept.h"
#include "edit/e_movept.h"
#include "model/FigContext.h"

#include <QtTest>

#include <cstdlib>
#include <memory>

namespace {

QPoint position(const FigPoint& point)
{
    return {point.x, point.y};
}

QList<QPoint> positions(FigPath* path)
{
    QList<QPoint> all;
    for (FigPoint* point = path->points; point; point = point->next)
        all.append(position(*point));
    return all;
}

QList<double> factors(FigSpline* spline)
{
    QList<double> all;
    for (FigShapeFactor* factor = spline->sfactors; factor; factor = factor->next)
        all.append(factor->s);
    return all;
}

std::unique_ptr<FigLine> box(int subType = T_BOX)
{
    return std::unique_ptr<FigLine>(
        makeLine({{0, 0}, {100, 0}, {100, 50}, {0, 50}, {0, 0}}, subType));
}

} // namespace

class TestPoints : public QObject {
    Q_OBJECT

private:
    CFigContext context;

private slots:
    void theFirstPointOfAPolygonTakesItsClosingCopyAlong()
    {
        const auto polygon = box(T_POLYGON);
        relocate_linepoint(nullptr, polygon.get(), 5, 7, polygon->points);
        QCOMPARE(positions(polygon.get()),
                 (QList<QPoint>{{5, 7}, {100, 0}, {100, 50}, {0, 50}, {5, 7}}));
        relocate_linepoint(nullptr, polygon.get(), 1, 1, polygon->getPoint(2));
        QCOMPARE(position(*polygon->getPoint(2)), QPoint(101, 51));
    }

    void aBoxStaysRectangular()
    {
        const auto line = box();
        QList<FigPoint*> inX, inY;
        relocate_boxpoint(nullptr, line.get(), 10, 20, line->getPoint(2), &inX, &inY);
        QCOMPARE(positions(line.get()),
                 (QList<QPoint>{{0, 0}, {110, 0}, {110, 70}, {0, 70}, {0, 0}}));
        QCOMPARE(inX, (QList<FigPoint*>{line->getPoint(1), line->getPoint(2)}));
        QCOMPARE(inY, (QList<FigPoint*>{line->getPoint(2), line->getPoint(3)}));
    }

    void aCornerPastTheOppositeOneTurnsTheBoxInsideOut()
    {
        const auto line = box();
        relocate_boxpoint(nullptr, line.get(), 150, 80, line->getPoint(0));
        QCOMPARE(positions(line.get()),
                 (QList<QPoint>{{150, 80}, {100, 80}, {100, 50}, {150, 50}, {150, 80}}));
    }

    void aPictureTurnsOverForEachSideThatItsCornerCrosses_data()
    {
        QTest::addColumn<int>("dx");
        QTest::addColumn<int>("dy");
        QTest::addColumn<int>("flipped");
        QTest::newRow("inside") << 50 << 20 << 0;
        QTest::newRow("just onto the side") << 100 << 0 << 0;
        QTest::newRow("across in x") << 101 << 0 << 1;
        QTest::newRow("across in y") << 0 << 51 << 1;
        QTest::newRow("across both") << 150 << 80 << 0;
        QTest::newRow("away") << -150 << -80 << 0;
    }

    void aPictureTurnsOverForEachSideThatItsCornerCrosses()
    {
        QFETCH(int, dx);
        QFETCH(int, dy);
        const auto picture = box(T_PICTURE);
        picture->pic = new FigPic;
        relocate_boxpoint(nullptr, picture.get(), dx, dy, picture->points);
        QTEST(picture->pic->flipped, "flipped");
    }

    void anArcRefusesPointsOnALine()
    {
        FigArc arc;
        arc.point[0] = FigPoint(0, 0);
        arc.point[1] = FigPoint(1000, 1000);
        arc.point[2] = FigPoint(2000, 0);
        arc.center_x = 1000;
        QVERIFY(!relocate_arcpoint(nullptr, &arc, 0, -1000, 1));
        QCOMPARE(position(arc.point[1]), QPoint(1000, 1000));
        QCOMPARE(arc.center_x, 1000.0f);
        QVERIFY(relocate_arcpoint(nullptr, &arc, 0, -2000, 1));
        QCOMPARE(position(arc.point[1]), QPoint(1000, -1000));
        QCOMPARE(arc.direction, 0); // over the top from left to right
        QVERIFY(!relocate_arcpoint(nullptr, &arc, 1, 1, 3));
    }

    // Start (0,0), end (101,51) and a move by (3,-5): halves are cut toward zero.
    void thePointsOfAnEllipseMoveByItsKind_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<int>("number");
        QTest::addColumn<QPoint>("start");
        QTest::addColumn<QPoint>("end");
        QTest::addColumn<QPoint>("center");
        QTest::addColumn<QPoint>("radiuses");
        const QPoint origin(0, 0), end(101, 51), moved(104, 46), centre(50, 25);
        QTest::newRow("radii") << 1 << 1 << origin << moved << centre << QPoint(53, 20);
        QTest::newRow("diameters, end")
            << 2 << 1 << origin << moved << QPoint(51, 23) << QPoint(52, 23);
        QTest::newRow("diameters, start")
            << 2 << 0 << QPoint(3, -5) << end << QPoint(51, 23) << QPoint(49, 28);
        QTest::newRow("diameters, both")
            << 2 << -1 << QPoint(-3, 5) << moved << centre << QPoint(53, 20);
        // sqrt(104^2 + 46^2) = 113.72
        QTest::newRow("circle by radius")
            << 3 << 1 << origin << moved << centre << QPoint(114, 114);
        // sqrt(52^2 + 23^2) = 56.86
        QTest::newRow("circle by diameter")
            << 4 << 1 << origin << moved << QPoint(51, 23) << QPoint(57, 57);
    }

    void thePointsOfAnEllipseMoveByItsKind()
    {
        QFETCH(int, subType);
        QFETCH(int, number);
        FigEllipse ellipse;
        ellipse.sub_type = subType;
        ellipse.start = FigPoint(0, 0);
        ellipse.end = FigPoint(101, 51);
        ellipse.center = FigPoint(50, 25);
        ellipse.radiuses = FigPoint(50, 25);
        relocate_ellipsepoint(&context, nullptr, &ellipse, 3, -5, number);
        QTEST(position(ellipse.start), "start");
        QTEST(position(ellipse.end), "end");
        QTEST(position(ellipse.center), "center");
        QTEST(position(ellipse.radiuses), "radiuses");
    }

    void radiiPastZeroStayPositive()
    {
        FigEllipse ellipse;
        ellipse.sub_type = 1;
        ellipse.radiuses = FigPoint(100, 10);
        relocate_ellipsepoint(&context, nullptr, &ellipse, -150, 0, 1);
        QCOMPARE(position(ellipse.radiuses), QPoint(50, 10));
    }

    // --- entering and leaving -----------------------------------------------------------

    void aPointEntersAfterItsPredecessor()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {100, 0}}));
        auto* point = new FigPoint(50, 9);
        addPoint(line.get(), line->points, point);
        addPoint(line.get(), nullptr, point); // it is in the chain already
        QCOMPARE(positions(line.get()), (QList<QPoint>{{0, 0}, {50, 9}, {100, 0}}));
        addPoint(line.get(), nullptr, new FigPoint(-5, -5));
        QCOMPARE(position(*line->points), QPoint(-5, -5));
    }

    void aPolygonKeepsItsClosingCopyTrueInBothWays()
    {
        const auto polygon = box(T_POLYGON);
        addPoint(polygon.get(), nullptr, new FigPoint(7, 8));
        QCOMPARE(position(*polygon->getPoint(5)), QPoint(7, 8));
        addPoint(polygon.get(), polygon->getPoint(5), new FigPoint(1, 2));
        QCOMPARE(position(*polygon->points), QPoint(1, 2));
    }

    void deletingAnEndOfAPolygonKeepsItClosed()
    {
        const auto polygon = box(T_POLYGON);
        const std::unique_ptr<FigPoint> first(polygon->points);
        deletePoint(polygon.get(), first.get());
        QCOMPARE(positions(polygon.get()), (QList<QPoint>{{100, 0}, {100, 50}, {0, 50}, {100, 0}}));
        const std::unique_ptr<FigPoint> last(polygon->getPoint(3));
        deletePoint(polygon.get(), last.get());
        QCOMPARE(positions(polygon.get()), (QList<QPoint>{{100, 0}, {100, 50}, {100, 0}}));
    }

    void aChainThatDoesNotCloseLosesNothingElse()
    {
        const std::unique_ptr<FigLine> polygon(
            makeLine({{0, 0}, {100, 0}, {100, 50}, {3, 4}}, T_POLYGON));
        const std::unique_ptr<FigPoint> last(polygon->getPoint(3));
        deletePoint(polygon.get(), last.get());
        QCOMPARE(positions(polygon.get()), (QList<QPoint>{{0, 0}, {100, 0}, {100, 50}}));
    }

    void theEndsOfAnOpenSplineKeepFactorZero()
    {
        const std::unique_ptr<FigSpline> spline(makeSpline({{0, 0}, {10, 0}, {20, 0}}, 2));
        addPoint(spline.get(), spline->getPoint(2), new FigPoint(30, 0), nullptr);
        QCOMPARE(factors(spline.get()), (QList<double>{0, -1, -1, 0}));
        addPoint(spline.get(), nullptr, new FigPoint(-10, 0), spline->points);
        QCOMPARE(factors(spline.get()), (QList<double>{0, -1, -1, -1, 0}));
        const std::unique_ptr<FigPoint> last(spline->getPoint(4));
        free(deletePoint(spline.get(), spline->getPoint(3), last.get()));
        const std::unique_ptr<FigPoint> first(spline->getPoint(0));
        free(deletePoint(spline.get(), nullptr, first.get()));
        QCOMPARE(factors(spline.get()), (QList<double>{0, -1, 0}));
    }

    void aClosedApproximatedSplineTakesOneForEveryPoint()
    {
        const std::unique_ptr<FigSpline> spline(makeSpline({{0, 0}, {10, 0}, {20, 9}}, 1));
        addPoint(spline.get(), nullptr, new FigPoint(5, 5), spline->points);
        QCOMPARE(factors(spline.get()), (QList<double>{1, 1, 1, 1}));
    }

    void aPointPutBackFindsTheFactorsAsTheyWere()
    {
        for (int index = 0; index < 4; ++index) {
            const std::unique_ptr<FigSpline> spline(
                makeSpline({{0, 0}, {10, 0}, {20, 0}, {30, 0}}, 0));
            spline->getShapeFactor(1)->s = 0.25;
            spline->getShapeFactor(2)->s = 0.75;
            FigPoint* point = spline->getPoint(index);
            FigPoint* before = spline->getPoint(index - 1);
            FigPoint* next = point->next;
            FigShapeFactor* factor = deletePoint(spline.get(), before, point);
            QVERIFY(factor);
            QCOMPARE(factors(spline.get()).first(), 0.0);
            QCOMPARE(factors(spline.get()).last(), 0.0);
            addPoint(spline.get(), before, point, next, factor);
            QCOMPARE(factors(spline.get()), (QList<double>{0, 0.25, 0.75, 0}));
            QCOMPARE(spline->getIndex(point), index);
        }
    }

    void theEndpointsOfANewPointAreThoseOfItsSegment()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {100, 0}, {100, 50}}));
        FigPoint *left, *right;
        find_endpoints(line->points, 0, 0, &left, &right);
        QVERIFY(!left && right == line->points);
        find_endpoints(line->points, 40, 0, &left, &right);
        QVERIFY(left == line->points && right == line->getPoint(1));
        find_endpoints(line->points, 100, 0, &left, &right);
        QVERIFY(left == line->getPoint(1) && right == line->getPoint(2));
        find_endpoints(line->points, 100, 50, &left, &right);
        QVERIFY(left == line->getPoint(2) && !right);
        find_endpoints(line->points, 500, 500, &left, &right);
        QVERIFY(left == line->getPoint(2) && !right);
    }
};

QTEST_MAIN(TestPoints)
#include "test_e_movept.moc"
