// Each kind's own search: what is near, the point on the object, the smart points. Expectations are
// worked out by hand; a pixel is 15 units, the tolerance 30.
#include "SearchFixture.h"
#include "edit/u_search.h"
#include "render/gfx_lowlevel.h"

#include <QtTest>

#include <climits>
#include <cmath>

namespace {

constexpr int tolerance = 30;
constexpr float quarterTurn = 1.57079637f;

/// What a search gave, comparable and printable.
struct Hit {
    FigObject* object = nullptr;
    int x = -1, y = -1;

    QPoint point() const { return QPoint(x, y); }
};

Hit lineHit(SearchFixture& figure, int x, int y)
{
    Hit hit;
    hit.object = line_search(figure.ctx, figure.ctx->getWorkingRoot(), x, y, tolerance, &hit.x,
                             &hit.y, nullptr);
    return hit;
}

Hit ellipseHit(SearchFixture& figure, int x, int y)
{
    Hit hit;
    hit.object = ellipse_search(figure.ctx, figure.ctx->getWorkingRoot(), x, y, tolerance, &hit.x,
                                &hit.y, nullptr);
    return hit;
}

Hit arcHit(SearchFixture& figure, int x, int y)
{
    Hit hit;
    hit.object = arc_search(figure.ctx, x, y, tolerance, &hit.x, &hit.y);
    return hit;
}

Hit splineHit(SearchFixture& figure, int x, int y)
{
    Hit hit;
    hit.object = spline_search(figure.ctx, figure.ctx->getWorkingRoot(), x, y, tolerance, &hit.x,
                               &hit.y, nullptr);
    return hit;
}

Hit compoundHit(SearchFixture& figure, int x, int y)
{
    Hit hit;
    hit.object = compound_search(figure.ctx, x, y, tolerance, &hit.x, &hit.y);
    return hit;
}

Hit textHit(SearchFixture& figure, int x, int y)
{
    Hit hit;
    hit.object = text_search(figure.ctx, x, y, tolerance, &hit.x, &hit.y);
    return hit;
}

QVector<QPoint> smartPoints()
{
    if (smart_points_valid == 0)
        return {};
    return {QPoint(smart_point1.x, smart_point1.y), QPoint(smart_point2.x, smart_point2.y)};
}

QVector<QPoint> points(int x1, int y1, int x2, int y2)
{
    return {QPoint(x1, y1), QPoint(x2, y2)};
}

/// A spline with corners only: its outline is its control polygon.
FigSpline* makeCornered(Coordinates coordinates, bool closed)
{
    FigSpline* spline = makeSpline(coordinates, closed ? 5 : 4);
    for (FigShapeFactor* factor = spline->sfactors; factor; factor = factor->next)
        factor->s = 0.0;
    return spline;
}

struct Segment {
    FigPoint *left = nullptr, *right = nullptr;
    int leftIndex = -1, rightIndex = -1;
    QPoint point;
};

bool findSegment(FigLine* line, int x, int y, Segment* segment)
{
    int px = 0, py = 0;
    const bool found =
        line_segment_search(nullptr, line, &segment->left, &segment->right, &segment->leftIndex,
                            &segment->rightIndex, x, y, tolerance, &px, &py);
    segment->point = QPoint(px, py);
    return found;
}

} // namespace

class TestSearchObjects : public QObject {
    Q_OBJECT

private slots:
    void init() { smart_points_valid = 0; }
    void lineGivesTheFootAndItsSegment();
    void firstPointOfALineGivesTheFirstSegment();
    void polylineWithOnePointIsBothEndsOfItsSegment();
    void onePointIsNearWithinOnePixelAlone();
    void closedLineIsHitOnItsClosingSegment();
    void segmentSearchGivesPointsAndIndexes();
    void closingSegmentEndsAtTheFirstPointWithIndexZero();
    void lastSegmentOfAnOpenLineEndsAtItsLastPoint();
    void segmentOfOnePoint();
    void ellipseIsHitAtItsCentreAndAnywhereWithinTheTolerance();
    void ellipseIsHitAtItsStartAndEnd();
    void ellipseOutlineGivesItsTangent_data();
    void ellipseOutlineGivesItsTangent();
    void insideOfAnEllipseIsAMiss();
    void turnedEllipseIsSearchedUpright();
    void smallHitNearTheCentreHasNoTangent();
    void distanceOfNothingGivesTheCentre();
    void distanceToTheCentreIsLessThanTheRadius();
    void ellipseWithoutWidthIsItsCentre();
    void closeToEllipseGivesTheDirectionOfTheTangent();
    void closeToTurnedEllipse();
    void arcGivesTheFirstPixelNearAndTheTangent();
    void arcIsMissedWhereItDoesNotRun();
    void pieWedgeIsHitAtItsCentreButNotOnItsRadii();
    void arcLeftOfTheCanvasIsHit();
    void splineIsHitOnBothSides();
    void lastSegmentOfASplineWins();
    void closedSplineIsHitOnTheSegmentThatClosesIt();
    void controlPointOfASplineIsHitWithoutSmartPoints();
    void splineBeyondItsEndIsHitNearTheEndOnly();
    void splineOfOnePointIsHitOnIt();
    void isPointOnSplineGivesTheFirstPixelNear();
    void scrollDoesNotMatter();
    void splineLikeALineIsHitOnItsControlPolygon();
    void pictureBoxesAreLinesOfSubTypeFive();
    void compoundIsHitOnItsEdgesInTheirOrder();
    void compoundIsMissedInside();
    void compoundWithHiddenMembersIsMissed();
    void textIsHitAtItsBaseAndOneFontHeightAbove();
    void turnedTextIsHitAtRightAnglesToItsBaseline();
    void fontHeightGoesByTheVerticalResolution();
    void extentOfATextIsNotSearched();
    void arcsAndSplinesFarFromTheCursorAreNotComputed();
    void farthestObjectsDoNotOverflow();
};

// --- lines ----------------------------------------------------------------------------------

void TestSearchObjects::lineGivesTheFootAndItsSegment()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{0, 0}, {1200, 0}, {1200, 1200}}));
    const Hit hit = lineHit(figure, 1229, 600);
    QCOMPARE(hit.object, line);
    QCOMPARE(hit.point(), QPoint(1200, 600));
    QCOMPARE(smartPoints(), points(1200, 0, 1200, 1200));
    QVERIFY(!lineHit(figure, 1230, 600).object);
    QCOMPARE(smartPoints(), QVector<QPoint>());
}

void TestSearchObjects::firstPointOfALineGivesTheFirstSegment()
{
    SearchFixture figure;
    figure.add(makeLine({{0, 0}, {1200, 0}, {0, 0}}));
    QCOMPARE(lineHit(figure, -30, 30).point(), QPoint(0, 0));
    QCOMPARE(smartPoints(), points(0, 0, 1200, 0));
}

void TestSearchObjects::polylineWithOnePointIsBothEndsOfItsSegment()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{600, 900}}));
    const Hit hit = lineHit(figure, 605, 890);
    QCOMPARE(hit.object, line);
    QCOMPARE(hit.point(), QPoint(600, 900));
    QCOMPARE(smartPoints(), points(600, 900, 600, 900));
}

void TestSearchObjects::onePointIsNearWithinOnePixelAlone()
{
    SearchFixture figure;
    figure.add(makeLine({{600, 900}}));
    QVERIFY(lineHit(figure, 615, 915).object);
    QVERIFY(!lineHit(figure, 616, 900).object);
    // The first point of a segment is near within two.
    figure.add(makeLine({{600, 900}, {600, 3000}}));
    QVERIFY(lineHit(figure, 630, 870).object);
}

void TestSearchObjects::closedLineIsHitOnItsClosingSegment()
{
    SearchFixture figure;
    figure.add(makeLine({{0, 0}, {1200, 0}, {1200, 1200}, {0, 0}}, T_POLYGON));
    QCOMPARE(lineHit(figure, 600, 600).point(), QPoint(600, 600));
    QCOMPARE(smartPoints(), points(1200, 1200, 0, 0));
    // Without the repeated first point there is no such segment.
    SearchFixture unclosed;
    unclosed.add(makeLine({{0, 0}, {1200, 0}, {1200, 1200}}, T_POLYGON));
    QVERIFY(!lineHit(unclosed, 600, 600).object);
}

void TestSearchObjects::segmentSearchGivesPointsAndIndexes()
{
    OwnedList owner;
    FigLine* line = makeLine({{0, 0}, {1200, 0}, {1200, 1200}, {0, 1200}});
    owner.append(line);
    Segment segment;
    QVERIFY(findSegment(line, 1210, 600, &segment));
    QCOMPARE(segment.point, QPoint(1200, 600));
    QCOMPARE(segment.left, line->getPoint(1));
    QCOMPARE(segment.right, line->getPoint(2));
    QCOMPARE(segment.leftIndex, 1);
    QCOMPARE(segment.rightIndex, 2);
    QVERIFY(findSegment(line, 0, 30, &segment));
    QCOMPARE(segment.left, line->points);
    QCOMPARE(segment.rightIndex, 1);
    QVERIFY(!findSegment(line, 600, 600, &segment));
}

void TestSearchObjects::closingSegmentEndsAtTheFirstPointWithIndexZero()
{
    OwnedList owner;
    FigLine* line = makeLine({{0, 0}, {1200, 0}, {1200, 1200}, {0, 0}}, T_POLYGON);
    owner.append(line);
    Segment segment;
    QVERIFY(findSegment(line, 600, 600, &segment));
    QCOMPARE(segment.leftIndex, 2);
    QCOMPARE(segment.right, line->points);
    QCOMPARE(segment.rightIndex, 0);
}

void TestSearchObjects::lastSegmentOfAnOpenLineEndsAtItsLastPoint()
{
    OwnedList owner;
    FigLine* line = makeLine({{0, 0}, {1200, 0}, {1200, 1200}, {0, 0}}, T_POLYLINE);
    owner.append(line);
    Segment segment;
    QVERIFY(findSegment(line, 600, 600, &segment));
    QCOMPARE(segment.right, line->getPoint(3));
    QCOMPARE(segment.rightIndex, 3);
}

void TestSearchObjects::segmentOfOnePoint()
{
    OwnedList owner;
    FigLine* line = makeLine({{600, 900}});
    owner.append(line);
    Segment segment;
    QVERIFY(findSegment(line, 600, 930, &segment));
    QCOMPARE(segment.left, line->points);
    QCOMPARE(segment.right, line->points);
    QCOMPARE(segment.leftIndex, 0);
    QCOMPARE(segment.rightIndex, 0);
}

// --- ellipses -----------------------------------------------------------------------------------

void TestSearchObjects::ellipseIsHitAtItsCentreAndAnywhereWithinTheTolerance()
{
    SearchFixture figure;
    FigEllipse* ellipse = figure.add(makeEllipse(3000, 3000, 1000, 500));
    const Hit hit = ellipseHit(figure, 3020, 3010);
    QCOMPARE(hit.object, ellipse);
    QCOMPARE(hit.point(), QPoint(3000, 3000));
    QCOMPARE(smartPoints(), points(3000, 3000, 3000, 3000));
}

void TestSearchObjects::ellipseIsHitAtItsStartAndEnd()
{
    SearchFixture figure;
    FigEllipse* ellipse = figure.add(makeEllipse(3000, 3000, 1000, 500));
    ellipse->start = FigPoint(3300, 3100);
    ellipse->end = FigPoint(3350, 3130);
    QCOMPARE(ellipseHit(figure, 3330, 3130).point(), QPoint(3300, 3100)); // both are near
    QCOMPARE(ellipseHit(figure, 3331, 3130).point(), QPoint(3350, 3130));
    QVERIFY(!ellipseHit(figure, 3300, 3069).object);
}

void TestSearchObjects::ellipseOutlineGivesItsTangent_data()
{
    QTest::addColumn<QPoint>("cursor");
    QTest::addColumn<QPoint>("hit");
    QTest::addColumn<QPoint>("tangentEnd");
    QTest::newRow("right") << QPoint(4020, 3000) << QPoint(4000, 3000) << QPoint(4000, 1800);
    QTest::newRow("left") << QPoint(1980, 3000) << QPoint(2000, 3000) << QPoint(2000, 4200);
    QTest::newRow("top") << QPoint(3000, 2490) << QPoint(3000, 2500) << QPoint(4200, 2500);
    QTest::newRow("inside of the bottom")
        << QPoint(3000, 3470) << QPoint(3000, 3500) << QPoint(4200, 3500);
    // x = 800, y = 300 from the centre lie on the outline: 0.64 + 0.36. The slope there is
    // -800 / 300 / 4 = -2 / 3: the cosine is 0.83205, the sine -0.55470, y grows down.
    QTest::newRow("below right") << QPoint(3800, 3300) << QPoint(3800, 3300) << QPoint(4798, 2634);
}

void TestSearchObjects::ellipseOutlineGivesItsTangent()
{
    SearchFixture figure;
    figure.add(makeEllipse(3000, 3000, 1000, 500));
    QFETCH(QPoint, cursor);
    QFETCH(QPoint, hit);
    QFETCH(QPoint, tangentEnd);
    QCOMPARE(ellipseHit(figure, cursor.x(), cursor.y()).point(), hit);
    QCOMPARE(smartPoints(), (QVector<QPoint>{hit, tangentEnd}));
}

void TestSearchObjects::insideOfAnEllipseIsAMiss()
{
    SearchFixture figure;
    figure.add(makeEllipse(3000, 3000, 1000, 500));
    QVERIFY(!ellipseHit(figure, 3500, 3000).object);
    QVERIFY(!ellipseHit(figure, 4031, 3000).object);
    QVERIFY(!ellipseHit(figure, 3030, 3031).object);
    QCOMPARE(smartPoints(), QVector<QPoint>());
}

void TestSearchObjects::turnedEllipseIsSearchedUpright()
{
    SearchFixture figure;
    figure.add(makeEllipse(3000, 3000, 1000, 500, quarterTurn));
    // The long axis stands upright; its upper end is (4000, 3000) before the turn.
    QCOMPARE(ellipseHit(figure, 3000, 2020).point(), QPoint(3000, 2000));
    QCOMPARE(smartPoints(), points(3000, 2000, 1800, 2000));
    QVERIFY(!ellipseHit(figure, 4000, 3000).object);
    // The stored end is compared with the cursor turned back, which comes to lie on it here, and is
    // given as it is stored.
    QCOMPARE(ellipseHit(figure, 3500, 2000).point(), QPoint(4000, 3500));
}

void TestSearchObjects::smallHitNearTheCentreHasNoTangent()
{
    SearchFixture figure;
    FigEllipse* ellipse = figure.add(makeEllipse(3000, 3000, 15, 15));
    ellipse->start = FigPoint(9000, 9000);
    ellipse->end = FigPoint(9000, 9000);
    // Beyond the tolerance of the centre, within that of the outline; the hit is a pixel off.
    QCOMPARE(ellipseHit(figure, 3040, 3000).point(), QPoint(3015, 3000));
    QCOMPARE(smartPoints(), points(3015, 3000, 3015, 3000));
    ellipse->radiuses = FigPoint(16, 16);
    QCOMPARE(ellipseHit(figure, 3040, 3000).point(), QPoint(3016, 3000));
    QCOMPARE(smartPoints(), points(3016, 3000, 3016, 1800));
}

void TestSearchObjects::distanceOfNothingGivesTheCentre()
{
    SearchFixture figure;
    FigEllipse* ellipse = figure.add(makeEllipse(3000, 3000, 1000, 500));
    ellipse->start = ellipse->end = FigPoint(0, 0);
    int x = 0, y = 0;
    QVERIFY(isPointOnEllipse(figure.ctx, ellipse, 3000, 3000, 0, &x, &y));
    QCOMPARE(QPoint(x, y), QPoint(3000, 3000));
}

void TestSearchObjects::distanceToTheCentreIsLessThanTheRadius()
{
    OwnedList owner;
    FigEllipse* ellipse = makeEllipse(3000, 3000, 1000, 500);
    owner.append(ellipse);
    QVERIFY(isPointOnEllipseCenter(ellipse, 3003, 3004, 5.5));
    QVERIFY(!isPointOnEllipseCenter(ellipse, 3003, 3004, 5.0));
    QVERIFY(!isPointOnEllipseCenter(ellipse, 3000, 3000, 0.0));
}

void TestSearchObjects::ellipseWithoutWidthIsItsCentre()
{
    SearchFixture figure;
    FigEllipse* ellipse = figure.add(makeEllipse(3000, 3000, 0, 500));
    ellipse->end = ellipse->start;
    QVERIFY(!ellipseHit(figure, 3000, 3500).object);
    QCOMPARE(ellipseHit(figure, 3000, 3030).point(), QPoint(3000, 3000));
    float x, y, tangentX = 7, tangentY = 7;
    QVERIFY(close_to_ellipse(ellipse, 3000, 3030, 30, &x, &y, &tangentX, &tangentY));
    QCOMPARE(tangentX, 0.0f);
    QCOMPARE(tangentY, 0.0f);
}

void TestSearchObjects::closeToEllipseGivesTheDirectionOfTheTangent()
{
    OwnedList owner;
    FigEllipse* ellipse = makeEllipse(3000, 3000, 1000, 500);
    owner.append(ellipse);
    float x = 0, y = 0, tangentX = 0, tangentY = 0;
    QVERIFY(close_to_ellipse(ellipse, 3800, 3300, 30, &x, &y, &tangentX, &tangentY));
    QCOMPARE(x, 3800.0f);
    QCOMPARE(y, 3300.0f);
    QCOMPARE(tangentX, -600.0f); // -300 * 1000 / 500
    QCOMPARE(tangentY, 400.0f);  // 800 * 500 / 1000
    // Neither the centre nor the stored points count here.
    QVERIFY(!close_to_ellipse(ellipse, 3010, 3010, 30, &x, &y, &tangentX, &tangentY));
    QVERIFY(!close_to_ellipse(ellipse, 4000, 3500, 30, &x, &y, &tangentX, &tangentY));
}

void TestSearchObjects::closeToTurnedEllipse()
{
    OwnedList owner;
    FigEllipse* ellipse = makeEllipse(3000, 3000, 1000, 500, quarterTurn);
    owner.append(ellipse);
    float x = 0, y = 0, tangentX = 0, tangentY = 0;
    QVERIFY(close_to_ellipse(ellipse, 3000, 2010, 30, &x, &y, &tangentX, &tangentY));
    QVERIFY(std::fabs(x - 3000.0f) < 0.01f && std::fabs(y - 2000.0f) < 0.01f);
    // (0, 500) before the turn.
    QVERIFY(std::fabs(tangentX - 500.0f) < 0.01f && std::fabs(tangentY) < 0.01f);
}

// --- arcs
// -----------------------------------------------------------------------------------------

void TestSearchObjects::arcGivesTheFirstPixelNearAndTheTangent()
{
    SearchFixture figure;
    FigArc* arc = figure.add(makeQuarter(3000, 3000, 1200));
    // The walk begins at its first point, pixel (280, 200).
    const Hit hit = arcHit(figure, 4190, 3010);
    QCOMPARE(hit.object, arc);
    QCOMPARE(hit.point(), QPoint(4200, 3000));
    QCOMPARE(smartPoints(), points(4200, 3000, 4200, 1800));
}

void TestSearchObjects::arcIsMissedWhereItDoesNotRun()
{
    SearchFixture figure;
    figure.add(makeQuarter(3000, 3000, 1200));
    QVERIFY(arcHit(figure, 3849, 2151).object);
    QVERIFY(!arcHit(figure, 1800, 3000).object);
    QVERIFY(!arcHit(figure, 3000, 4200).object);
    QVERIFY(!arcHit(figure, 3000, 3000).object);
    QVERIFY(!arcHit(figure, 4250, 3000).object);
}

void TestSearchObjects::pieWedgeIsHitAtItsCentreButNotOnItsRadii()
{
    SearchFixture figure;
    FigArc* arc = figure.add(makeQuarter(3000, 3000, 1200));
    arc->sub_type = 1;
    const Hit hit = arcHit(figure, 3010, 2990);
    QCOMPARE(hit.object, arc);
    QCOMPARE(hit.point(), QPoint(3000, 3000));
    QVERIFY(!arcHit(figure, 3600, 3000).object);
}

void TestSearchObjects::arcLeftOfTheCanvasIsHit()
{
    SearchFixture figure;
    figure.add(makeQuarter(-3000, -3000, 1200));
    QCOMPARE(arcHit(figure, -1800, -3000).point(), QPoint(-1800, -3000));
}

// --- splines
// ----------------------------------------------------------------------------------------

void TestSearchObjects::splineIsHitOnBothSides()
{
    SearchFixture figure;
    FigSpline* spline = figure.add(makeSpline({{1200, 1200}, {3600, 1200}}));
    for (const int y : {1170, 1230}) {
        const Hit hit = splineHit(figure, 2400, y);
        QCOMPARE(hit.object, spline);
        QCOMPARE(hit.point(), QPoint(2400, 1200));
        const QVector<QPoint> segment = smartPoints();
        QCOMPARE(segment.size(), 2);
        QCOMPARE(segment[0].y(), 1200);
        QCOMPARE(segment[1].y(), 1200);
        QVERIFY(segment[0].x() <= 2400 && segment[1].x() >= 2400);
    }
    for (const int y : {600, 1140, 1260, 1800})
        QVERIFY(!splineHit(figure, 2400, y).object);
}

void TestSearchObjects::lastSegmentOfASplineWins()
{
    SearchFixture figure;
    figure.add(
        makeCornered({{1200, 1200}, {3600, 1200}, {3600, 2400}, {2400, 2400}, {2400, 600}}, false));
    QCOMPARE(splineHit(figure, 2400, 1200).point(), QPoint(2400, 1200));
    QCOMPARE(smartPoints(), points(2400, 2400, 2400, 600));
    // The cursor is nearer to the first segment than to the last one.
    QCOMPARE(splineHit(figure, 2415, 1200).point(), QPoint(2400, 1200));
}

void TestSearchObjects::closedSplineIsHitOnTheSegmentThatClosesIt()
{
    SearchFixture figure;
    figure.add(makeCornered({{1200, 1200}, {3600, 1200}, {2400, 3600}}, true));
    // What another search has left there must not matter.
    polygon_points[0] = QPoint(-5000, -5000);
    QCOMPARE(splineHit(figure, 2400, 1215).point(), QPoint(2400, 1200));
    QCOMPARE(smartPoints(), points(1200, 1200, 3600, 1200));
    QVERIFY(splineHit(figure, 3000, 2400).object);
    QVERIFY(splineHit(figure, 1800, 2400).object);
    QVERIFY(!splineHit(figure, 2400, 2400).object);
}

void TestSearchObjects::controlPointOfASplineIsHitWithoutSmartPoints()
{
    SearchFixture figure;
    FigSpline* spline = figure.add(makeSpline({{0, 0}, {2400, 4800}, {4800, 0}}));
    const Hit hit = splineHit(figure, 2430, 4770);
    QCOMPARE(hit.object, spline);
    QCOMPARE(hit.point(), QPoint(2400, 4800));
    QCOMPARE(smartPoints(), QVector<QPoint>());
}

void TestSearchObjects::splineBeyondItsEndIsHitNearTheEndOnly()
{
    SearchFixture figure;
    figure.add(makeCornered({{1200, 1200}, {3600, 1200}}, false));
    // Two pixels beyond, where the end is near: the foot lies beyond it too.
    QCOMPARE(splineHit(figure, 3630, 1200).point(), QPoint(3630, 1200));
    QVERIFY(!splineHit(figure, 3645, 1200).object);
}

void TestSearchObjects::splineOfOnePointIsHitOnIt()
{
    SearchFixture figure;
    figure.add(makeSpline({{1200, 1200}}));
    QCOMPARE(splineHit(figure, 1230, 1170).point(), QPoint(1200, 1200));
    QVERIFY(!splineHit(figure, 1231, 1200).object);
}

void TestSearchObjects::isPointOnSplineGivesTheFirstPixelNear()
{
    SearchFixture figure;
    FigSpline* spline = figure.add(makeCornered({{1200, 1200}, {3600, 1200}}, false));
    int x = 0, y = 0;
    QVERIFY(isPointOnSpline(figure.ctx, spline, 3620, 1190, tolerance, &x, &y));
    QCOMPARE(QPoint(x, y), QPoint(3600, 1200));
    // Points of the outline alone: a corner's long side has none.
    QVERIFY(!isPointOnSpline(figure.ctx, spline, 2400, 1200, tolerance, &x, &y));
}

void TestSearchObjects::scrollDoesNotMatter()
{
    SearchFixture figure;
    FigSpline* spline = figure.add(makeCornered({{1200, 1200}, {3600, 1200}}, false));
    figure.ctx->shiftX = 1000;
    figure.ctx->shiftY = -77;
    const Hit hit = splineHit(figure, 2400, 1215);
    QCOMPARE(hit.object, spline);
    QCOMPARE(hit.point(), QPoint(2400, 1200));
    QCOMPARE(smartPoints(), points(1200, 1200, 3600, 1200));
}

void TestSearchObjects::splineLikeALineIsHitOnItsControlPolygon()
{
    SearchFixture figure;
    FigSpline* spline = figure.add(makeSpline({{0, 0}, {2400, 4800}, {4800, 0}}));
    int x = 0, y = 0;
    const auto search = [&](int atX, int atY, FigObject* excluded = nullptr) {
        return spline_search_like_line(figure.ctx, figure.ctx->getWorkingRoot(), atX, atY,
                                       tolerance, &x, &y, excluded);
    };
    set_smart_points(1, 2, 3, 4);
    QCOMPARE(search(1200, 2400), spline);
    QCOMPARE(QPoint(x, y), QPoint(1200, 2400));
    QCOMPARE(search(30, -30), spline);
    QCOMPARE(QPoint(x, y), QPoint(0, 0));
    QCOMPARE(smartPoints(), points(1, 2, 3, 4));
    QVERIFY(!search(1200, 2400, spline));
    figure.hideLayer(spline->depth);
    QVERIFY(!search(1200, 2400));
}

void TestSearchObjects::pictureBoxesAreLinesOfSubTypeFive()
{
    SearchFixture figure;
    figure.add(makeLine({{0, 0}, {0, 1200}, {1200, 1200}, {1200, 0}, {0, 0}}, T_BOX));
    FigLine* picture =
        figure.add(makeLine({{0, 0}, {0, 1200}, {1200, 1200}, {1200, 0}, {0, 0}}, T_PICTURE));
    int x = 0, y = 0;
    QCOMPARE(picbox_search(figure.ctx, 620, 1210, tolerance, &x, &y), picture);
    QCOMPARE(QPoint(x, y), QPoint(620, 1200));
    QVERIFY(!picbox_search(figure.ctx, 600, 600, tolerance, &x, &y));
    figure.hideLayer(picture->depth);
    QVERIFY(!picbox_search(figure.ctx, 620, 1210, tolerance, &x, &y));
}

// --- compounds
// ----------------------------------------------------------------------------------------

void TestSearchObjects::compoundIsHitOnItsEdgesInTheirOrder()
{
    SearchFixture figure;
    FigCompound* compound =
        figure.add(makeBoxedCompound(1200, 1200, 3600, 2400, {makeLine({{2000, 2000}})}));
    const QVector<QPair<QPoint, QPoint>> edges = {{{1190, 1800}, {1200, 1800}},
                                                  {{2000, 2429}, {2000, 2400}},
                                                  {{3571, 1800}, {3600, 1800}},
                                                  {{2000, 1171}, {2000, 1200}}};
    for (const auto& [cursor, expected] : edges) {
        const Hit hit = compoundHit(figure, cursor.x(), cursor.y());
        QCOMPARE(hit.object, compound);
        QCOMPARE(hit.point(), expected);
    }
    // On the corner of two edges the earlier one gives the corner, even off to the side.
    QCOMPARE(compoundHit(figure, 1230, 2430).point(), QPoint(1200, 2400));
    // Smaller than the tolerance: the left edge's upper end comes first.
    compound->secorner = FigPoint(1205, 1210);
    QCOMPARE(compoundHit(figure, 1205, 1210).point(), QPoint(1200, 1200));
}

void TestSearchObjects::compoundIsMissedInside()
{
    SearchFixture figure;
    figure.add(makeBoxedCompound(1200, 1200, 3600, 2400, {makeLine({{1200, 1800}, {3600, 1800}})}));
    QVERIFY(!compoundHit(figure, 2400, 1800).object);
}

void TestSearchObjects::compoundWithHiddenMembersIsMissed()
{
    SearchFixture figure;
    FigCompound* inner = makeBoxedCompound(0, 0, 1, 1, {with(makeLine({{0, 0}}), 1, 7)});
    figure.add(makeBoxedCompound(1200, 1200, 3600, 2400, {inner, with(makeLine({{0, 0}}), 2, 8)}));
    figure.hideLayer(8);
    QVERIFY(compoundHit(figure, 1200, 1800).object);
    figure.hideLayer(7);
    QVERIFY(!compoundHit(figure, 1200, 1800).object);
}

// --- texts
// ----------------------------------------------------------------------------------------------

void TestSearchObjects::textIsHitAtItsBaseAndOneFontHeightAbove()
{
    SearchFixture figure;
    FigText* text = figure.add(makeText(3000, 3000, 12)); // 12 * 1200 / 80 = 180
    QCOMPARE(textHit(figure, 3030, 2970).object, text);
    QCOMPARE(textHit(figure, 3030, 2970).point(), QPoint(3000, 3000));
    QCOMPARE(textHit(figure, 2970, 2850).point(), QPoint(3000, 2820));
    QVERIFY(!textHit(figure, 3031, 3000).object);
    QVERIFY(!textHit(figure, 3000, 2900).object);
    text->size = 2; // both points are near: the base comes first
    QCOMPARE(textHit(figure, 3000, 2970).point(), QPoint(3000, 3000));
}

void TestSearchObjects::turnedTextIsHitAtRightAnglesToItsBaseline()
{
    SearchFixture figure;
    figure.add(makeText(3000, 3000, 12, quarterTurn));
    QCOMPARE(textHit(figure, 2820, 3000).point(), QPoint(2820, 3000));
    QVERIFY(!textHit(figure, 3000, 2820).object);
}

void TestSearchObjects::fontHeightGoesByTheVerticalResolution()
{
    SearchFixture figure;
    figure.ctx->ppiY = 160.0f;
    figure.add(makeText(3000, 3000, 12));
    QCOMPARE(textHit(figure, 3000, 2910).point(), QPoint(3000, 2910));
}

void TestSearchObjects::extentOfATextIsNotSearched()
{
    SearchFixture figure;
    figure.add(makeText(3000, 3000, 12));
    QVERIFY(!textHit(figure, 3200, 2950).object);
    QVERIFY(!textHit(figure, 5000, 3000).object);
}

void TestSearchObjects::arcsAndSplinesFarFromTheCursorAreNotComputed()
{
    SearchFixture figure;
    figure.add(makeQuarter(3000, 3000, 1200));
    figure.add(makeSpline({{1200, 1200}, {3600, 1200}}));
    // A computation begins by emptying the point list.
    npoints = 3;
    int x, y;
    QVERIFY(!objectSearch(figure.ctx, 9000, 9000, &x, &y, nullptr));
    QCOMPARE(npoints, 3L);
    QVERIFY(!objectSearch(figure.ctx, 3000, 3000, &x, &y, nullptr));
    QVERIFY(npoints != 3);
    npoints = 0;
}

void TestSearchObjects::farthestObjectsDoNotOverflow()
{
    SearchFixture figure;
    figure.add(makeLine({{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}, {INT_MIN, INT_MAX}}));
    figure.add(makeEllipse(INT_MAX, INT_MIN, INT_MAX, INT_MAX, 1.0f));
    figure.add(makeSpline({{INT_MIN, 0}, {INT_MAX, 5}, {0, INT_MAX}}));
    figure.add(makeBoxedCompound(INT_MIN, INT_MIN, INT_MAX, INT_MAX, {makeLine({{0, 0}})}));
    figure.add(makeText(INT_MIN, INT_MAX, 500, 1.0f));
    FigArc* arc = figure.add(makeQuarter(0, 0, 1000));
    arc->center_x = 3e9f;
    arc->point[0] = FigPoint(INT_MIN, INT_MAX);
    for (const float zoom : {0.01f, 1.0f, 99.99f}) {
        figure.ctx->zoom = zoom;
        for (const QPoint& at : {QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MIN),
                                 QPoint(INT_MAX, INT_MAX), QPoint(5000, 0)}) {
            int x, y;
            objectSearch(figure.ctx, at.x(), at.y(), &x, &y, nullptr);
        }
    }
    QCOMPARE(lineHit(figure, INT_MIN, INT_MIN).point(), QPoint(INT_MIN, INT_MIN));
    QCOMPARE(textHit(figure, INT_MIN, INT_MAX).point(), QPoint(INT_MIN, INT_MAX));
}

QTEST_MAIN(TestSearchObjects)
#include "test_u_search_objects.moc"
