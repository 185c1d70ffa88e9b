// Searches for points, and the objects in a region. Expectations are worked out by hand.
#include "SearchFixture.h"
#include "edit/u_search.h"

#include <QtTest>

#include <climits>

namespace {

constexpr int tolerance = 30;

struct Found {
    FigObject* object = nullptr;
    int x = -1, y = -1;
    FigPoint* previous = nullptr;
    FigPoint* point = nullptr;
    int number = -1;

    QPoint at() const { return QPoint(x, y); }
};

Found linePoint(SearchFixture& figure, int x, int y, FigObject* excluded = nullptr)
{
    Found found;
    found.object = line_point_search(figure.ctx, excluded, x, y, tolerance, &found.x, &found.y,
                                     &found.previous, &found.point);
    return found;
}

Found splinePoint(SearchFixture& figure, int x, int y, SplinePointFilter filter = nullptr,
                  FigObject* excluded = nullptr)
{
    Found found;
    found.object = spline_point_search(figure.ctx, excluded, x, y, tolerance, &found.x, &found.y,
                                       &found.previous, &found.point, filter);
    return found;
}

Found arcPoint(SearchFixture& figure, int x, int y, FigObject* excluded = nullptr)
{
    Found found;
    found.object = arc_point_search(figure.ctx, excluded, x, y, tolerance, &found.x, &found.y,
                                    &found.previous, &found.point, &found.number);
    return found;
}

Found ellipsePoint(SearchFixture& figure, int x, int y, FigObject* excluded = nullptr)
{
    Found found;
    found.object = ellipse_point_search(figure.ctx, excluded, x, y, tolerance, &found.x, &found.y,
                                        &found.previous, &found.point, &found.number);
    return found;
}

Found compoundPoint(SearchFixture& figure, int x, int y, FigObject* excluded = nullptr)
{
    Found found;
    found.object = compound_point_search(figure.ctx, excluded, x, y, tolerance, &found.x, &found.y,
                                         &found.number);
    return found;
}

QPoint snapped(SearchFixture& figure, int x, int y, FigObject* excluded = nullptr)
{
    const bool found = doPointSearchForSnapping(figure.ctx, excluded, tolerance, &x, &y);
    return found ? QPoint(x, y) : QPoint(-1, -1);
}

QVector<long> idsInRegion(SearchFixture& figure, int x1, int y1, int x2, int y2)
{
    FigObjectList inside;
    getObjectsInRegion(figure.ctx, &inside, x1, y1, x2, y2);
    QVector<long> ids;
    for (const FigObject* object : qAsConst(inside))
        ids.append(object->id);
    return ids;
}

} // namespace

class TestSearchPoints : public QObject {
    Q_OBJECT

private slots:
    void linePointIsNearPerAxis();
    void linePointComesWithTheOneBefore();
    void firstPointOfAClosedLineHasNoneBefore();
    void firstPointInOrderWins();
    void splinePointsAreAllControlPoints();
    void refusedSplinePointDoesNotEndTheSearch();
    void snappingTakesOnlyEndsOfApproximatingSplines_data();
    void snappingTakesOnlyEndsOfApproximatingSplines();
    void arcPointsHaveNumbers();
    void ellipseHasItsStartBeforeItsEnd();
    void compoundCornersInTheirOrder();
    void smallCompoundGivesItsTopLeftCorner();
    void hiddenLayersHaveNoPoints();
    void excludedObjectHasNoPoints();
    void snappingTriesLinesThenArcsThenSplines();
    void snappingLeavesTheCursorAloneOnAMiss();
    void onlyTheWorkingRootIsSearched();
    void farthestPointsDoNotOverflow();

    void regionHoldsWhatLiesWhollyInside();
    void regionTakesCompoundsByTheirStoredCorners();
    void regionTakesNothingHidden();
    void regionMeasuresWhatIsPainted();
    void cornersOfARegionComeInAnyOrder();
    void taggingARegionChangesTheTags();
};

void TestSearchPoints::linePointIsNearPerAxis()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{0, 0}, {1200, 600}}));
    const Found found = linePoint(figure, 1230, 570);
    QCOMPARE(found.object, line);
    QCOMPARE(found.at(), QPoint(1200, 600));
    QVERIFY(!linePoint(figure, 1231, 600).object);
    QVERIFY(!linePoint(figure, 600, 300).object);
}

void TestSearchPoints::linePointComesWithTheOneBefore()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{0, 0}, {1200, 600}, {2400, 0}}));
    const Found found = linePoint(figure, 2400, 0);
    QCOMPARE(found.previous, line->getPoint(1));
    QCOMPARE(found.point, line->getPoint(2));
    QCOMPARE(linePoint(figure, 0, 0).previous, nullptr);
    QCOMPARE(linePoint(figure, 0, 0).point, line->points);
}

void TestSearchPoints::firstPointOfAClosedLineHasNoneBefore()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{0, 0}, {1200, 0}, {1200, 1200}, {0, 0}}, T_POLYGON));
    const Found found = linePoint(figure, 0, 0);
    QCOMPARE(found.point, line->points);
    QCOMPARE(found.previous, nullptr);
}

void TestSearchPoints::firstPointInOrderWins()
{
    SearchFixture figure;
    figure.add(with(makeLine({{0, 0}, {20, 0}}), 1));
    figure.add(with(makeLine({{15, 0}, {1200, 0}}), 2));
    const Found found = linePoint(figure, 20, 0); // the third and fourth are nearer or as near
    QCOMPARE(found.object->id, 1L);
    QCOMPARE(found.at(), QPoint(0, 0));
}

void TestSearchPoints::splinePointsAreAllControlPoints()
{
    SearchFixture figure;
    FigSpline* spline = figure.add(makeSpline({{0, 0}, {2400, 4800}, {4800, 0}}));
    const Found found = splinePoint(figure, 2400, 4800);
    QCOMPARE(found.object, spline);
    QCOMPARE(found.point, spline->getPoint(1));
    QCOMPARE(found.previous, spline->points);
}

void TestSearchPoints::refusedSplinePointDoesNotEndTheSearch()
{
    SearchFixture figure;
    figure.add(makeSpline({{0, 0}, {2400, 4800}, {4800, 0}}));
    FigSpline* later = figure.add(makeSpline({{2400, 4800}, {0, 0}}));
    QCOMPARE(splinePoint(figure, 2400, 4800, checkObjectForSnapping).object, later);
    // Within one spline too: its inner point is refused, its last one lies beside it.
    FigSpline* own = makeSpline({{9000, 0}, {9000, 1200}, {9010, 1200}});
    figure.add(own);
    const Found found = splinePoint(figure, 9000, 1200, checkObjectForSnapping);
    QCOMPARE(found.point, own->getPoint(2));
    QCOMPARE(found.previous, own->getPoint(1));
}

void TestSearchPoints::snappingTakesOnlyEndsOfApproximatingSplines_data()
{
    QTest::addColumn<int>("subType");
    QTest::addColumn<bool>("inner");
    QTest::newRow("open approximated") << 0 << false;
    QTest::newRow("closed approximated") << 1 << false;
    QTest::newRow("open interpolated") << 2 << true;
    QTest::newRow("closed interpolated") << 3 << true;
    QTest::newRow("open cross") << 4 << false;
    QTest::newRow("closed cross") << 5 << false;
}

void TestSearchPoints::snappingTakesOnlyEndsOfApproximatingSplines()
{
    QFETCH(int, subType);
    SearchFixture figure;
    FigSpline* spline = figure.add(makeSpline({{0, 0}, {2400, 4800}, {4800, 0}}, subType));
    QVERIFY(checkObjectForSnapping(figure.ctx, spline, spline->getPoint(0)));
    QVERIFY(checkObjectForSnapping(figure.ctx, spline, spline->getPoint(2)));
    QTEST(checkObjectForSnapping(figure.ctx, spline, spline->getPoint(1)), "inner");
}

void TestSearchPoints::arcPointsHaveNumbers()
{
    SearchFixture figure;
    FigArc* arc = figure.add(makeQuarter(3000, 3000, 1200));
    for (int i = 0; i < 3; ++i) {
        const Found found = arcPoint(figure, arc->point[i].x + 30, arc->point[i].y - 30);
        QCOMPARE(found.object, arc);
        QCOMPARE(found.number, i);
        QCOMPARE(found.point, &arc->point[i]);
        QCOMPARE(found.previous, i == 0 ? nullptr : &arc->point[i - 1]);
        QCOMPARE(found.at(), QPoint(arc->point[i].x, arc->point[i].y));
    }
    QVERIFY(!arcPoint(figure, 3000, 3000).object);
}

void TestSearchPoints::ellipseHasItsStartBeforeItsEnd()
{
    SearchFixture figure;
    FigEllipse* ellipse = figure.add(makeEllipse(3000, 3000, 1000, 500));
    Found found = ellipsePoint(figure, 2990, 3000);
    QCOMPARE(found.object, ellipse);
    QCOMPARE(found.number, 0);
    QCOMPARE(found.point, &ellipse->start);
    found = ellipsePoint(figure, 4000, 3500);
    QCOMPARE(found.number, 1);
    QCOMPARE(found.point, &ellipse->end);
    QCOMPARE(found.at(), QPoint(4000, 3500));
    ellipse->end = ellipse->start;
    QCOMPARE(ellipsePoint(figure, 3000, 3000).number, 0);
    ellipse->start = ellipse->end = FigPoint(0, 0); // the centre as such is none
    QVERIFY(!ellipsePoint(figure, 3000, 3000).object);
}

void TestSearchPoints::compoundCornersInTheirOrder()
{
    SearchFixture figure;
    FigCompound* compound =
        figure.add(makeBoxedCompound(1200, 1200, 3600, 2400, {makeLine({{2000, 2000}})}));
    const QPoint corners[] = {{1200, 1200}, {1200, 2400}, {3600, 1200}, {3600, 2400}};
    for (int i = 0; i < 4; ++i) {
        const Found found = compoundPoint(figure, corners[i].x() - 30, corners[i].y() + 30);
        QCOMPARE(found.object, compound);
        QCOMPARE(found.number, i);
        QCOMPARE(found.at(), corners[i]);
    }
    QVERIFY(!compoundPoint(figure, 1200, 1800).object);
}

void TestSearchPoints::smallCompoundGivesItsTopLeftCorner()
{
    SearchFixture figure;
    figure.add(makeBoxedCompound(1200, 1200, 1210, 1210, {makeLine({{1200, 1200}})}));
    QCOMPARE(compoundPoint(figure, 1210, 1210).number, 0);
}

void TestSearchPoints::hiddenLayersHaveNoPoints()
{
    SearchFixture figure;
    figure.add(with(makeLine({{0, 0}}), 1, 1));
    figure.add(with(makeSpline({{0, 0}, {9, 9}}), 2, 1));
    figure.add(with(makeQuarter(0, 1200, 1200), 3, 1));
    figure.add(with(makeEllipse(0, 0, 9, 9), 4, 1));
    figure.add(with(makeBoxedCompound(0, 0, 9, 9, {with(makeLine({{0, 0}}), 6, 1)}), 5, 2));
    figure.hideLayer(1);
    QVERIFY(!linePoint(figure, 0, 0).object);
    QVERIFY(!splinePoint(figure, 0, 0).object);
    QVERIFY(!arcPoint(figure, 0, 0).object);
    QVERIFY(!ellipsePoint(figure, 0, 0).object);
    QVERIFY(!compoundPoint(figure, 0, 0).object);
    QCOMPARE(snapped(figure, 5, 5), QPoint(-1, -1));
}

void TestSearchPoints::excludedObjectHasNoPoints()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{0, 0}}));
    FigSpline* spline = figure.add(makeSpline({{0, 0}, {9, 9}}));
    FigArc* arc = figure.add(makeQuarter(0, 1200, 1200));
    FigEllipse* ellipse = figure.add(makeEllipse(0, 0, 9, 9));
    FigCompound* compound = figure.add(makeBoxedCompound(0, 0, 9, 9, {makeLine({{0, 0}})}));
    QCOMPARE(linePoint(figure, 0, 0).object, line);
    QVERIFY(!linePoint(figure, 0, 0, line).object);
    QCOMPARE(splinePoint(figure, 0, 0).object, spline);
    QVERIFY(!splinePoint(figure, 0, 0, nullptr, spline).object);
    QCOMPARE(arcPoint(figure, 0, 0).object, arc);
    QVERIFY(!arcPoint(figure, 0, 0, arc).object);
    QCOMPARE(ellipsePoint(figure, 0, 0).object, ellipse);
    QVERIFY(!ellipsePoint(figure, 0, 0, ellipse).object);
    QCOMPARE(compoundPoint(figure, 0, 0).object, compound);
    QVERIFY(!compoundPoint(figure, 0, 0, compound).object);
}

void TestSearchPoints::snappingTriesLinesThenArcsThenSplines()
{
    SearchFixture figure;
    FigSpline* spline = figure.add(makeSpline({{30, 0}, {2400, 0}}));
    FigArc* arc = figure.add(makeQuarter(20, 1200, 1200)); // ends at (20, 0)
    FigLine* line = figure.add(makeLine({{10, 0}, {0, 2400}}));
    QCOMPARE(snapped(figure, 5, 5), QPoint(10, 0));
    QCOMPARE(snapped(figure, 5, 5, line), QPoint(20, 0));
    figure.ctx->drawing.objects.removeOne(line);
    QCOMPARE(snapped(figure, 5, 5, arc), QPoint(30, 0));
    QCOMPARE(snapped(figure, 5, 5, spline), QPoint(20, 0));
    delete line;
    figure.add(makeEllipse(3000, 3000, 1000, 500)); // ellipses are not snapped to
    QCOMPARE(snapped(figure, 3000, 3000), QPoint(-1, -1));
}

void TestSearchPoints::snappingLeavesTheCursorAloneOnAMiss()
{
    SearchFixture figure;
    int x = 17, y = 18;
    QVERIFY(!doPointSearchForSnapping(figure.ctx, nullptr, tolerance, &x, &y));
    QCOMPARE(QPoint(x, y), QPoint(17, 18));
}

void TestSearchPoints::onlyTheWorkingRootIsSearched()
{
    SearchFixture figure;
    FigLine* member = makeLine({{1200, 1200}, {2400, 1200}});
    FigCompound* compound = figure.add(makeBoxedCompound(0, 0, 3600, 3600, {member}));
    QVERIFY(!linePoint(figure, 1200, 1200).object);
    figure.ctx->openCompoundObjects = compound->objects;
    QCOMPARE(linePoint(figure, 1200, 1200).object, member);
    QVERIFY(!compoundPoint(figure, 0, 0).object);
    figure.ctx->openCompoundObjects = nullptr;
}

void TestSearchPoints::farthestPointsDoNotOverflow()
{
    SearchFixture figure;
    figure.add(makeLine({{INT_MIN, INT_MAX}, {INT_MAX, INT_MIN}}));
    QCOMPARE(linePoint(figure, INT_MIN, INT_MAX).at(), QPoint(INT_MIN, INT_MAX));
    QCOMPARE(linePoint(figure, INT_MAX, INT_MIN).at(), QPoint(INT_MAX, INT_MIN));
    QVERIFY(!linePoint(figure, INT_MAX, INT_MAX).object);
}

// --- regions ------------------------------------------------------------------------------

void TestSearchPoints::regionHoldsWhatLiesWhollyInside()
{
    SearchFixture figure;
    figure.add(with(makeLine({{1200, 1200}, {2400, 2400}}), 1));
    figure.add(with(makeLine({{1200, 1200}, {9000, 2400}}), 2));
    figure.add(with(makeEllipse(2000, 2000, 500, 500), 3));
    QCOMPARE(idsInRegion(figure, 1000, 1000, 3000, 3000), (QVector<long>{1, 3}));
    QCOMPARE(idsInRegion(figure, 1200, 1200, 2400, 2400),
             QVector<long>{1}); // the ellipse sticks out
    QCOMPARE(idsInRegion(figure, 1201, 1200, 2400, 2400), QVector<long>());
}

void TestSearchPoints::regionTakesCompoundsByTheirStoredCorners()
{
    SearchFixture figure;
    figure.add(with(makeBoxedCompound(1200, 1200, 2400, 2400, {makeLine({{9000, 9000}})}), 1));
    QCOMPARE(idsInRegion(figure, 1200, 1200, 2400, 2400), QVector<long>{1});
    QCOMPARE(idsInRegion(figure, 1200, 1200, 2400, 2399), QVector<long>());
    QCOMPARE(idsInRegion(figure, 8000, 8000, 9900, 9900), QVector<long>());
}

void TestSearchPoints::regionTakesNothingHidden()
{
    SearchFixture figure;
    figure.add(with(makeLine({{1200, 1200}, {2400, 2400}}), 1, 3));
    figure.add(
        with(makeBoxedCompound(1200, 1200, 2400, 2400, {with(makeLine({{0, 0}}), 3, 3)}), 2));
    QCOMPARE(idsInRegion(figure, 0, 0, 3000, 3000), (QVector<long>{1, 2}));
    figure.hideLayer(3);
    QCOMPARE(idsInRegion(figure, 0, 0, 3000, 3000), QVector<long>());
}

void TestSearchPoints::regionMeasuresWhatIsPainted()
{
    SearchFixture figure;
    FigLine* line = figure.add(with(makeLine({{1200, 1200}, {2400, 1200}}), 1));
    line->thickness = 4; // 60 units wide
    QCOMPARE(idsInRegion(figure, 1200, 1171, 2400, 1230), QVector<long>());
    QCOMPARE(idsInRegion(figure, 1100, 1170, 2500, 1230), QVector<long>{1});
}

void TestSearchPoints::cornersOfARegionComeInAnyOrder()
{
    SearchFixture figure;
    figure.add(with(makeLine({{1200, 1200}, {2400, 2400}}), 1));
    QCOMPARE(idsInRegion(figure, 3000, 1000, 1000, 3000), QVector<long>{1});
}

void TestSearchPoints::taggingARegionChangesTheTags()
{
    SearchFixture figure;
    FigLine* untagged = figure.add(makeLine({{1200, 1200}, {2400, 2400}}));
    FigLine* tagged = figure.add(makeLine({{1200, 1200}, {2400, 2400}}));
    FigLine* outside = figure.add(makeLine({{1200, 1200}, {9000, 2400}}));
    tagged->tagged = outside->tagged = true;
    tag_obj_in_region(figure.ctx, 1000, 1000, 3000, 3000);
    QVERIFY(untagged->tagged);
    QVERIFY(!tagged->tagged);
    QVERIFY(outside->tagged);
}

QTEST_MAIN(TestSearchPoints)
#include "test_u_search_points.moc"
