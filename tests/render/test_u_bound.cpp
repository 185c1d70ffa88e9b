// Bounds worked out by hand. At 80 pixels per inch, the default, one pixel at zoom 1 and one
// display unit of line width are 15 figure units.
#include "DrawingFixtures.h"

#include "model/preferences.h"
#include "render/u_bound.h"

#include <QElapsedTimer>
#include <QtTest>

#include <climits>
#include <cmath>

namespace {

using Points = QVector<QPoint>;

struct Box {
    int xmin = 7, ymin = 7, xmax = 7, ymax = 7;
    bool operator==(const Box& other) const
    {
        return xmin == other.xmin && ymin == other.ymin && xmax == other.xmax && ymax == other.ymax;
    }
};

QString text(const Box& box)
{
    return QString("(%1, %2, %3, %4)").arg(box.xmin).arg(box.ymin).arg(box.xmax).arg(box.ymax);
}

char* toString(const Box& box)
{
    return qstrdup(qPrintable(text(box)));
}

Box boundsOf(CFigContext& ctx, FigObject& object, bool exact, bool includeDescent = false)
{
    Box box;
    object.getBounds(&ctx, &box.xmin, &box.ymin, &box.xmax, &box.ymax, includeDescent, exact);
    return box;
}

std::unique_ptr<FigLine> plainLine(const Points& points, int thickness = 0, int join = 0)
{
    auto line = makeLine(points, thickness);
    line->join_style = join;
    return line;
}

std::unique_ptr<FigSpline> plainSpline(int subType, const Points& points,
                                       const QVector<double>& factors, int thickness = 0)
{
    auto spline = makeSpline(subType, points, factors);
    spline->thickness = thickness;
    return spline;
}

void setEllipse(FigEllipse& ellipse, QPoint center, QPoint radiuses, float angle, int thickness)
{
    ellipse.center = FigPoint(center.x(), center.y());
    ellipse.radiuses = FigPoint(radiuses.x(), radiuses.y());
    ellipse.start = ellipse.center;
    ellipse.end = ellipse.center;
    ellipse.angle = angle;
    ellipse.thickness = thickness;
}

void setArc(FigArc& arc, QPoint first, QPoint middle, QPoint last, int direction)
{
    arc.center_x = 1000;
    arc.center_y = 1000;
    arc.point[0] = FigPoint(first.x(), first.y());
    arc.point[1] = FigPoint(middle.x(), middle.y());
    arc.point[2] = FigPoint(last.x(), last.y());
    arc.direction = direction;
}

/// A text of 600 by 200 units with a descent of 4 pixels at (1000, 2000), measured at zoom 1.
void setText(FigText& text, int justification, float angle)
{
    text.sub_type = justification;
    text.angle = angle;
    text.x = 1000;
    text.y = 2000;
    text.length = 600;
    text.ascent = 200;
    text.descent = 4;
    text.metricsZoom = 1;
    text.cstring = QStringLiteral("text");
}

FigArrow* newArrow(float width, float height)
{
    return makeArrow(0, 0, 1, width, height);
}

constexpr float quarterTurn = 1.5707964f;

} // namespace

class TestUBound : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ctx.zoom = 1;
        ctx.shiftX = ctx.shiftY = 0;
        QCOMPARE(ctx.ppiX, 80.0f);
    }

    // --- lists and compounds -----------------------------------------------------

    void bareObjectReportsZeros()
    {
        FigObject object;
        QCOMPARE(boundsOf(ctx, object, true), (Box{0, 0, 0, 0}));
    }

    void emptyCompoundReportsZeros()
    {
        FigCompound compound;
        QCOMPARE(boundsOf(ctx, compound, true), (Box{0, 0, 0, 0}));
    }

    void emptySelectionReportsZeros()
    {
        FigObjectList list;
        list.append(plainLine({{100, 100}, {200, 200}}).release());
        Box box;
        tagged_objects_bound(&ctx, &list, &box.xmin, &box.ymin, &box.xmax, &box.ymax);
        QCOMPARE(box, (Box{0, 0, 0, 0}));
        deleteObjectList(&list);
    }

    void selectionBoundsAreExactAndLeaveOthersOut()
    {
        FigObjectList list;
        list.append(plainLine({{100, 100}, {200, 200}}).release());
        list.append(plainLine({{1000, 1000}, {2200, 1000}}, 4).release());
        list.last()->tagged = true;
        Box box;
        tagged_objects_bound(&ctx, &list, &box.xmin, &box.ymin, &box.xmax, &box.ymax);
        QCOMPARE(box, (Box{1000, 970, 2200, 1030}));
        deleteObjectList(&list);
    }

    void compoundMergesMembersAtAllLevels()
    {
        FigCompound outer;
        FigCompound* inner = new FigCompound;
        inner->objects->append(plainLine({{-50, 400}, {300, 900}}).release());
        outer.objects->append(plainLine({{100, 100}, {200, 200}}).release());
        outer.objects->append(inner);
        QCOMPARE(boundsOf(ctx, outer, false), (Box{-50, 100, 300, 900}));
    }

    void drawingReportsItsRootList()
    {
        CFigContext own;
        own.drawing.objects.append(plainLine({{100, 100}, {200, 200}}).release());
        own.drawing.objects.append(plainLine({{500, 50}, {600, 60}}).release());
        Box box;
        own.drawing.getBounds(&own, &box.xmin, &box.ymin, &box.xmax, &box.ymax, true, true);
        QCOMPARE(box, (Box{100, 50, 600, 200}));
    }

    // --- lines -------------------------------------------------------------------

    void plainLineBoundsAreThoseOfItsPoints()
    {
        const auto line = plainLine({{300, 40}, {-100, 90}, {20, -7}}, 10);
        QCOMPARE(boundsOf(ctx, *line, false), (Box{-100, -7, 300, 90}));
    }

    void lineWithoutPointsReportsZeros()
    {
        FigLine line;
        line.thickness = 3;
        QCOMPARE(boundsOf(ctx, line, false), (Box{0, 0, 0, 0}));
        QCOMPARE(boundsOf(ctx, line, true), (Box{0, 0, 0, 0}));
    }

    // Width 4 is 60 units; a straight line has no cap in its bounds.
    void exactLineBoundsAddHalfTheConvertedWidth()
    {
        const auto line = plainLine({{0, 0}, {1200, 0}}, 4);
        QCOMPARE(boundsOf(ctx, *line, true), (Box{0, -30, 1200, 30}));
    }

    // 15 units wide: 100 - 7.5 and 100 + 7.5, both rounded away from zero.
    void dotOfOddWidthRoundsAwayFromZero()
    {
        const auto line = plainLine({{100, -100}}, 1);
        QCOMPARE(boundsOf(ctx, *line, true), (Box{93, -108, 108, -93}));
    }

    // 30 units wide with round joins: the diamond at (1200, 0) reaches 15 out, and so does the
    // one of the closing join at (1200, 1200), which an open line does not draw.
    void openLineIsBoundAsIfItWereClosed()
    {
        const auto line = plainLine({{0, 0}, {1200, 0}, {1200, 1200}}, 2, 1);
        QCOMPARE(boundsOf(ctx, *line, true), (Box{0, -15, 1215, 1215}));
    }

    void lineWidthGoesByPixelsPerInch()
    {
        ctx.ppiX = ctx.ppiY = 100; // 12 units to the pixel
        const auto line = plainLine({{0, 0}, {1200, 0}}, 4);
        const Box box = boundsOf(ctx, *line, true);
        ctx.ppiX = ctx.ppiY = 80;
        QCOMPARE(box, (Box{0, -24, 1200, 24}));
    }

    // --- splines -----------------------------------------------------------------

    void exactSplineBoundsAddTheWholeWidth()
    {
        const auto spline = plainSpline(0, {{0, 0}, {1200, 600}}, {0, 0}, 4);
        QCOMPARE(boundsOf(ctx, *spline, false), (Box{0, 0, 1200, 600}));
        QCOMPARE(boundsOf(ctx, *spline, true), (Box{-60, -60, 1260, 660}));
    }

    // The neighbours of the middle point lie 800 and 200 apart: a quarter is 200 and 50. The
    // last point's neighbours are the one before and the first: (400, 300), a quarter 100 and 75.
    void negativeFactorsMakeRoomForBulges()
    {
        const Points points = {{0, 0}, {400, 300}, {800, -200}};
        const auto middle = plainSpline(4, points, {0, -1, 0});
        QCOMPARE(boundsOf(ctx, *middle, true), (Box{0, -200, 800, 350}));
        const auto last = plainSpline(2, points, {0, -1, -1});
        QCOMPARE(boundsOf(ctx, *last, true), (Box{0, -275, 900, 350}));
    }

    void firstPointOfASplineGetsNoRoom()
    {
        const auto spline = plainSpline(5, {{0, 0}, {400, 300}, {800, -200}}, {-1, 0, 0});
        QCOMPARE(boundsOf(ctx, *spline, true), (Box{0, -200, 800, 300}));
    }

    void approximatedSplineGetsNoRoomWhateverItsFactors()
    {
        const auto spline = plainSpline(1, {{0, 0}, {400, 300}, {800, -200}}, {-1, -1, -1});
        QCOMPARE(boundsOf(ctx, *spline, true), (Box{0, -200, 800, 300}));
    }

    // 7 >> 2 is 1.
    void quarterOfTheNeighbourDistanceIsRoundedDown()
    {
        const auto spline = plainSpline(4, {{0, 0}, {7, 100}, {7, 50}}, {0, -1, 0});
        QCOMPARE(boundsOf(ctx, *spline, true), (Box{0, 0, 8, 112}));
    }

    // --- ellipses ----------------------------------------------------------------

    void ellipseWithOneRadiusZeroReportsItsCentre()
    {
        FigEllipse ellipse;
        setEllipse(ellipse, {1000, 800}, {0, 200}, 0, 5);
        QCOMPARE(boundsOf(ctx, ellipse, true), (Box{1000, 800, 1000, 800}));
        setEllipse(ellipse, {1000, 800}, {200, 0}, 0.5f, 5);
        QCOMPARE(boundsOf(ctx, ellipse, true), (Box{1000, 800, 1000, 800}));
    }

    // Width 3 is 45 units, half of it 22.5; both sides are truncated toward zero.
    void uprightEllipseAddsHalfTheWidth()
    {
        FigEllipse ellipse;
        setEllipse(ellipse, {1000, 800}, {300, 200}, 0, 3);
        QCOMPARE(boundsOf(ctx, ellipse, false), (Box{700, 600, 1300, 1000}));
        QCOMPARE(boundsOf(ctx, ellipse, true), (Box{677, 577, 1322, 1022}));
        setEllipse(ellipse, {0, 0}, {300, 200}, 0, 3);
        QCOMPARE(boundsOf(ctx, ellipse, true), (Box{-322, -222, 322, 222}));
    }

    // Radius 160 is 10.667 pixels around pixel 200. The widest row has half width sqrt(112.78) =
    // 10.62: 189.38 and 210.62, truncated. Rows 0 to 9 on either side are found; row 10 is not.
    void turnedCircleOfEvenHeightMissesItsOutermostRow()
    {
        FigEllipse ellipse;
        setEllipse(ellipse, {3000, 3000}, {160, 160}, 0.25f, 4);
        QCOMPARE(boundsOf(ctx, ellipse, false), (Box{189 * 15, 191 * 15, 210 * 15, 209 * 15}));
    }

    // Half of 4 display units would be 24 units at 100 pixels per inch; 2 whole pixels are added.
    // Centre at pixel 250, radius 13.33, whose whole part is odd: the middle row is walked too,
    // with half width sqrt(176.78) = 13.296, and rows 1 to 13.
    void turnedEllipseAddsHalfTheThicknessInPixels()
    {
        ctx.ppiX = ctx.ppiY = 100;
        FigEllipse ellipse;
        setEllipse(ellipse, {3000, 3000}, {160, 160}, 0.25f, 4);
        const Box box = boundsOf(ctx, ellipse, true);
        ctx.ppiX = ctx.ppiY = 80;
        QCOMPARE(box, (Box{(236 - 2) * 12, (237 - 2) * 12, (263 + 2) * 12, (263 + 2) * 12}));
    }

    // 20 by 10 pixels at 45 degrees around pixel 200: reach 250, slope -0.6, row scale 0.8. Row 9
    // is the widest: 5.4 + 0.8 sqrt(169) = 15.8; rows run to 15.
    void turnedEllipseIsWalkedRowByRow()
    {
        FigEllipse ellipse;
        setEllipse(ellipse, {3000, 3000}, {300, 150}, 0.78539816f, 0);
        QCOMPARE(boundsOf(ctx, ellipse, true), (Box{184 * 15, 185 * 15, 215 * 15, 215 * 15}));
    }

    void turnedEllipseHoldsItsStartAndEndPoints()
    {
        FigEllipse ellipse;
        setEllipse(ellipse, {3000, 3000}, {300, 150}, 0.78539816f, 0);
        ellipse.start = FigPoint(2001, 3100);
        ellipse.end = FigPoint(3005, 4567);
        QCOMPARE(boundsOf(ctx, ellipse, true), (Box{2001, 185 * 15, 215 * 15, 4567}));
    }

    void uprightEllipseDoesNotReadItsStartAndEndPoints()
    {
        FigEllipse ellipse;
        setEllipse(ellipse, {3000, 3000}, {300, 150}, 0, 0);
        ellipse.start = FigPoint(0, 0);
        QCOMPARE(boundsOf(ctx, ellipse, true), (Box{2700, 2850, 3300, 3150}));
    }

    // Radius 10 is less than a pixel: no row is walked.
    void tinyTurnedEllipseIsTheBoxOfItsStoredPoints()
    {
        FigEllipse ellipse;
        setEllipse(ellipse, {1000, 1000}, {10, 10}, 1, 8);
        ellipse.start = FigPoint(1010, 995);
        ellipse.end = FigPoint(990, 1003);
        QCOMPARE(boundsOf(ctx, ellipse, true), (Box{990, 995, 1010, 1003}));
    }

    // The walk is given up for heights where it would take seconds; the box is the same then to
    // the accuracy of the walk. True extents: sqrt((a cos)^2 + (b sin)^2) and its like, within
    // two pixels that the walk may miss.
    void hugeTurnedEllipseIsBoundFastAndRight_data()
    {
        QTest::addColumn<int>("rx");
        QTest::addColumn<int>("ry");
        for (int rx : {1900000, 1990000, 2100000, 100000000})
            for (int ry : {400, 1950000, 2040000, 100000000})
                QTest::addRow("%d by %d", rx, ry) << rx << ry;
    }

    void hugeTurnedEllipseIsBoundFastAndRight()
    {
        QFETCH(int, rx);
        QFETCH(int, ry);
        QElapsedTimer timer;
        timer.start();
        for (float angle : {0.3f, 1.2f, 2.5f, 4.0f}) {
            FigEllipse ellipse;
            setEllipse(ellipse, {500, -300}, {rx, ry}, angle, 0);
            const Box box = boundsOf(ctx, ellipse, true);
            const double width = std::hypot(rx * std::cos(angle), ry * std::sin(angle));
            const double height = std::hypot(rx * std::sin(angle), ry * std::cos(angle));
            // Two rows, whose middle moves by the shear of the ellipse, and single precision.
            const double shear = double(rx - ry) * (double(rx) + ry) * std::sin(angle) *
                                 std::cos(angle) / (height * height);
            const double tolerance = 30 * (1 + std::abs(shear)) + 2e-7 * width;
            QVERIFY2(std::abs(box.xmax - 500 - width) <= tolerance, qPrintable(text(box)));
            QVERIFY2(std::abs(box.xmin - 500 + width) <= tolerance, qPrintable(text(box)));
            QVERIFY2(std::abs(box.ymax + 300 - height) <= 30 + 2e-7 * height,
                     qPrintable(text(box)));
            QVERIFY2(std::abs(box.ymin + 300 + height) <= 30 + 2e-7 * height,
                     qPrintable(text(box)));
        }
        QVERIFY(timer.elapsed() < 1000);
    }

    // --- arcs --------------------------------------------------------------------

    void arcExtendsWhereItPassesAnAxis_data()
    {
        const QPoint east(1500, 1000), north(1000, 500), west(500, 1000);
        const QPoint northEast(1354, 646), northWest(646, 646);
        QTest::addColumn<QPoint>("first");
        QTest::addColumn<QPoint>("last");
        QTest::addColumn<int>("direction");
        QTest::addColumn<QVector<int>>("expected");
        const auto row = [](const char* name, QPoint first, QPoint last, int direction,
                            const QVector<int>& box) {
            QTest::newRow(name) << first << last << direction << box;
        };
        // Ends on an axis count as passed: 1000 + 500 + 1 and so on.
        row("quarter, counter-clockwise", east, north, 1, {1000, 499, 1501, 1000});
        row("three quarters, clockwise", east, north, 0, {499, 499, 1501, 1501});
        row("three quarters, counter-clockwise", north, east, 1, {499, 499, 1501, 1501});
        row("quarter, clockwise", north, east, 0, {1000, 499, 1501, 1000});
        // Radius sqrt(354^2 + 354^2) = 500.63: 1000 - 500.63 - 1 is 498 when truncated.
        row("over the top", northEast, northWest, 1, {646, 498, 1354, 646});
        row("round the bottom", northEast, northWest, 0, {498, 646, 1501, 1501});
        row("full circle, clockwise", east, east, 0, {499, 499, 1501, 1501});
        row("full circle, counter-clockwise", east, east, 1, {499, 499, 1501, 1501});
        row("half, across no axis but its ends", east, west, 1, {499, 499, 1501, 1000});
    }

    void arcExtendsWhereItPassesAnAxis()
    {
        QFETCH(QPoint, first);
        QFETCH(QPoint, last);
        QFETCH(int, direction);
        QFETCH(QVector<int>, expected);
        FigArc arc;
        setArc(arc, first, first, last, direction);
        QCOMPARE(boundsOf(ctx, arc, false),
                 (Box{expected[0], expected[1], expected[2], expected[3]}));
    }

    void middlePointOfAnArcIsHeldToo()
    {
        FigArc arc;
        setArc(arc, {1500, 1000}, {1700, 300}, {1000, 500}, 1);
        QCOMPARE(boundsOf(ctx, arc, false), (Box{1000, 300, 1700, 1000}));
    }

    // Width 3 is 45 units; half of it by integer division is 22.
    void exactArcBoundsAddHalfTheWidthByIntegerDivision()
    {
        FigArc arc;
        setArc(arc, {1354, 646}, {1000, 500}, {646, 646}, 1);
        arc.thickness = 3;
        QCOMPARE(boundsOf(ctx, arc, true), (Box{646 - 22, 498 - 22, 1354 + 22, 646 + 22}));
    }

    // Only the side that does not reach the centre moves, and it is truncated.
    void pieWedgeReachesToItsCentre()
    {
        FigArc arc;
        setArc(arc, {1354, 646}, {1000, 500}, {646, 646}, 1);
        arc.sub_type = 1;
        arc.center_y = 1000.75f;
        const Box box = boundsOf(ctx, arc, false);
        QCOMPARE(box.ymax, 1000);
        QCOMPARE(box.xmin, 646);
        QCOMPARE(box.xmax, 1354);
    }

    // --- texts -------------------------------------------------------------------

    void textBoxFollowsTheJustification()
    {
        FigText text;
        setText(text, 0, 0);
        QCOMPARE(boundsOf(ctx, text, true), (Box{1000, 1800, 1600, 2000}));
        setText(text, 2, 0);
        QCOMPARE(boundsOf(ctx, text, true), (Box{400, 1800, 1000, 2000}));
        setText(text, 1, 0);
        text.length = 601; // half of it is 300
        QCOMPARE(boundsOf(ctx, text, true), (Box{700, 1800, 1301, 2000}));
    }

    // Four pixels are 60 units at zoom 1.
    void descentShiftsTheTextBoxAndDoesNotEnlargeIt()
    {
        FigText text;
        setText(text, 0, 0);
        QCOMPARE(boundsOf(ctx, text, true, true), (Box{1000, 1860, 1600, 2060}));
    }

    // Counter-clockwise on screen: the text runs upwards, its top lies to the left.
    void textTurnedByAQuarterHasItsBoundsSwapped()
    {
        FigText text;
        setText(text, 0, quarterTurn);
        QCOMPARE(boundsOf(ctx, text, false), (Box{800, 1400, 1000, 2000}));
        setText(text, 2, quarterTurn);
        QCOMPARE(boundsOf(ctx, text, false), (Box{800, 2000, 1000, 2600}));
    }

    // 50 pixels of image are 750 units; the key is the rounded resolution.
    void renderedImageGivesTheWidthOfAText()
    {
        FigText text;
        setText(text, 0, 0);
        text.imagesNormal.insert(80, new QPixmap(50, 10));
        QCOMPARE(boundsOf(ctx, text, true), (Box{1000, 1800, 1750, 2000}));
        texViewPreferencesData.renderSpecialText = false;
        const Box plain = boundsOf(ctx, text, true);
        texViewPreferencesData.renderSpecialText = true;
        QCOMPARE(plain, (Box{1000, 1800, 1600, 2000}));
    }

    void imageOfAnotherResolutionDoesNotCount()
    {
        FigText text;
        setText(text, 0, 0);
        text.imagesNormal.insert(100, new QPixmap(50, 10));
        QCOMPARE(boundsOf(ctx, text, true).xmax, 1600);
    }

    void metricsOfAnotherZoomAreTakenAnew()
    {
        FigText text;
        setText(text, 0, 0);
        ctx.zoom = 2;
        const Box first = boundsOf(ctx, text, true);
        QCOMPARE(text.metricsZoom, 2.0f);
        QVERIFY(text.ascent != 200);
        QCOMPARE(first.ymin, 2000 - text.ascent);
        // The width was taken before measuring: the first box still has the old one.
        QCOMPARE(first.xmax, 1600);
        QCOMPARE(boundsOf(ctx, text, true).xmax, 1000 + text.length);
    }

    // --- arrowheads --------------------------------------------------------------

    // The head is 41 pixels wide at zoom 1 (40.67), 20 at zoom 0.5 (20.33): its half is rounded
    // to 21 pixels of 15 units, or is 10 pixels of 30 units.
    void shareOfAnArrowheadDependsOnTheZoom()
    {
        const auto line = plainLine({{0, 0}, {3000, 0}}, 1);
        line->forward_arrow = newArrow(610, 1200);
        const Box atOne = boundsOf(ctx, *line, true);
        QCOMPARE(atOne.ymax, 315);
        QCOMPARE(atOne.xmin, 0);
        QCOMPARE(atOne.xmax, 3000);
        ctx.zoom = 0.5f;
        QCOMPARE(boundsOf(ctx, *line, true).ymax, 300);
    }

    void scrollingDoesNotChangeTheShareOfAnArrowhead()
    {
        const auto line = plainLine({{0, 0}, {3000, 1000}}, 3);
        line->forward_arrow = newArrow(610, 1200);
        line->backward_arrow = newArrow(400, 900);
        const Box unscrolled = boundsOf(ctx, *line, true);
        ctx.shiftX = 777;
        ctx.shiftY = -1234;
        QCOMPARE(boundsOf(ctx, *line, true), unscrolled);
    }

    // The backward head lies 40 pixels wide across the line's start, behind nothing.
    void backwardHeadWidensTheBoxAtTheStart()
    {
        const auto line = plainLine({{0, 0}, {3000, 0}, {3000, 3000}});
        line->backward_arrow = newArrow(600, 1200);
        QCOMPARE(boundsOf(ctx, *line, true), (Box{0, -300, 3000, 3000}));
    }

    void plainBoundsLeaveArrowheadsOut()
    {
        const auto line = plainLine({{0, 0}, {3000, 0}});
        line->forward_arrow = newArrow(600, 1200);
        QCOMPARE(boundsOf(ctx, *line, false), (Box{0, 0, 3000, 0}));
    }

    void headOnASinglePointGivesNothing()
    {
        const auto line = plainLine({{500, 500}});
        line->forward_arrow = newArrow(600, 1200);
        line->backward_arrow = newArrow(600, 1200);
        QCOMPARE(boundsOf(ctx, *line, true), (Box{500, 500, 500, 500}));
        const auto spline = plainSpline(2, {{500, 500}}, {0});
        spline->forward_arrow = newArrow(600, 1200);
        QCOMPARE(boundsOf(ctx, *spline, true), (Box{500, 500, 500, 500}));
    }

    // The tangent at the top of the circle is level: 40 pixels across are 20 up and down, around
    // y 500. Direction 1 comes from the right, so the head lies to the right of the end.
    void headOfAnArcFollowsTheTangent()
    {
        FigArc arc;
        setArc(arc, {1500, 1000}, {1354, 646}, {1000, 500}, 1);
        arc.forward_arrow = newArrow(600, 150);
        const Box box = boundsOf(ctx, arc, true);
        QCOMPARE(box.ymin, 13 * 15); // pixel 33 - 20: 500 units are pixel 33.3
        QCOMPARE(box.xmax, 1501);
    }

    // --- sides -------------------------------------------------------------------

    void extendBoundsMovesEachSideOut()
    {
        int a = 10, b = 20, c = 30, d = 40;
        extendBounds(&a, &b, &c, &d, 5);
        QCOMPARE((Box{a, b, c, d}), (Box{5, 15, 35, 45}));
        long e = 10, f = 20, g = 30, h = 40;
        extendBounds(&e, &f, &g, &h, 5L);
        QVERIFY(e == 5 && f == 15 && g == 35 && h == 45);
        QRect rect(QPoint(10, 20), QPoint(30, 40));
        extendBounds(&rect, 5L);
        QCOMPARE(rect, QRect(QPoint(5, 15), QPoint(35, 45)));
    }

    void farCoordinatesSaturate()
    {
        FigEllipse ellipse;
        setEllipse(ellipse, {INT_MAX, INT_MIN}, {INT_MAX, INT_MAX}, 0, 100);
        QCOMPARE(boundsOf(ctx, ellipse, true), (Box{-750, INT_MIN, INT_MAX, 749}));
        int a = INT_MIN, b = INT_MIN, c = INT_MAX, d = INT_MAX;
        extendBounds(&a, &b, &c, &d, 5);
        QCOMPARE((Box{a, b, c, d}), (Box{INT_MIN, INT_MIN, INT_MAX, INT_MAX}));
    }

    void hostileNumbersAreSurvived()
    {
        const Points far = {{INT_MAX, INT_MIN}, {INT_MIN, INT_MAX}, {INT_MAX, INT_MAX}, {0, 0}};
        for (float zoom : {0.01f, 1.0f, 99.99f}) {
            ctx.zoom = zoom;
            for (int thickness : {INT_MIN, -1, 0, INT_MAX}) {
                const auto line = plainLine(far, thickness);
                line->forward_arrow = newArrow(1e30f, 600);
                line->backward_arrow = newArrow(INFINITY, NAN);
                boundsOf(ctx, *line, true);
                const auto spline = plainSpline(5, far, {-1, 9, NAN, -1}, thickness);
                spline->backward_arrow = newArrow(600, 600);
                boundsOf(ctx, *spline, true);
                FigEllipse ellipse;
                setEllipse(ellipse, {INT_MAX, INT_MIN}, {INT_MIN, INT_MAX}, 2.5f, thickness);
                boundsOf(ctx, ellipse, true);
                setEllipse(ellipse, {INT_MAX, INT_MIN}, {INT_MIN, INT_MAX}, NAN, thickness);
                boundsOf(ctx, ellipse, true);
                FigArc arc;
                setArc(arc, far[0], far[1], far[2], 1);
                arc.thickness = thickness;
                arc.center_x = -INFINITY;
                arc.center_y = NAN;
                arc.forward_arrow = newArrow(600, 600);
                boundsOf(ctx, arc, true);
                FigText text;
                setText(text, 2, 1e30f);
                text.x = INT_MIN;
                text.length = INT_MAX;
                boundsOf(ctx, text, true, true);
            }
        }
    }

private:
    CFigContext ctx;
};

QTEST_MAIN(TestUBound)
#include "test_u_bound.moc"
