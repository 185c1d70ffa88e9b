#include "EngineCanvas.h"
#include "ObjectBuilders.h"
#include "edit/e_scale.h"
#include "model/FigContext.h"

#include <QtTest>

#include <memory>

namespace {

QPoint position(const FigPoint& point)
{
    return {point.x, point.y};
}

FigEllipse* makeEllipse(int subType, int rx, int ry)
{
    auto* ellipse = new FigEllipse;
    ellipse->sub_type = subType;
    ellipse->center = FigPoint(100, 200);
    ellipse->radiuses = FigPoint(rx, ry);
    ellipse->start = FigPoint(100, 200);
    ellipse->end = FigPoint(100 + rx, 200 + ry);
    return ellipse;
}

FigArc* makeArc(int x1, int y1, int x2, int y2, int x3, int y3, float cx, float cy)
{
    auto* arc = new FigArc;
    arc->point[0] = FigPoint(x1, y1);
    arc->point[1] = FigPoint(x2, y2);
    arc->point[2] = FigPoint(x3, y3);
    arc->center_x = cx;
    arc->center_y = cy;
    return arc;
}

} // namespace

class TestScale : public QObject {
    Q_OBJECT

private:
    CFigContext context;

private slots:
    // 1 * 1.5 = 1.5: cut to 1 on x, rounded to 2 on y.
    void aLineTruncatesOnXBeforeItRoundsAndOnYItDoesNot()
    {
        const std::unique_ptr<FigLine> line(makeLine({{1, 1}, {-1, -1}}));
        scale_object(&context, line.get(), 1.5f, 1.5f, 0, 0);
        QCOMPARE(position(*line->points), QPoint(1, 2));
        QCOMPARE(position(*line->points->next), QPoint(-1, -2));
    }

    void aSplineRoundsOnBothAxes()
    {
        const std::unique_ptr<FigSpline> spline(makeSpline({{1, 1}, {-1, -1}}));
        scale_object(&context, spline.get(), 1.5f, 1.5f, 0, 0);
        QCOMPARE(position(*spline->points), QPoint(2, 2));
        QCOMPARE(position(*spline->points->next), QPoint(-2, -2));
    }

    void theCentreStaysAndNegativeFactorsMirror()
    {
        const std::unique_ptr<FigLine> line(makeLine({{100, 100}, {300, 50}}));
        scale_object(&context, line.get(), -1.0f, 2.0f, 100, 100);
        QCOMPARE(position(*line->points), QPoint(100, 100));
        QCOMPARE(position(*line->points->next), QPoint(-100, 0));
    }

    void anEndThatStaysOnItsTargetIsNotScaled()
    {
        const std::unique_ptr<FigLine> line(makeLine({{100, 100}, {300, 50}}));
        makeLink(line->points, 7)->flag = true;
        scale_object(&context, line.get(), 2.0f, 2.0f, 0, 0);
        QCOMPARE(position(*line->points), QPoint(100, 100));
        QCOMPARE(position(*line->points->next), QPoint(600, 100));
    }

    void aCircleScaledUnevenlyBecomesAnEllipseAndBack()
    {
        const std::unique_ptr<FigEllipse> circle(makeEllipse(3, 10, 10));
        scale_object(&context, circle.get(), 2.0f, 1.0f, 0, 0);
        QCOMPARE(circle->sub_type, 1);
        QCOMPARE(position(circle->radiuses), QPoint(20, 10));
        scale_object(&context, circle.get(), 0.5f, 1.0f, 0, 0);
        QCOMPARE(circle->sub_type, 3);
        const std::unique_ptr<FigEllipse> byDiameter(makeEllipse(2, 20, 10));
        scale_object(&context, byDiameter.get(), 0.5f, 1.0f, 0, 0);
        QCOMPARE(byDiameter->sub_type, 4);
    }

    void radiiStayPositiveUnderNegativeFactors()
    {
        const std::unique_ptr<FigEllipse> ellipse(makeEllipse(1, 20, 10));
        scale_object(&context, ellipse.get(), -2.0f, -1.0f, 0, 0);
        QCOMPARE(position(ellipse->radiuses), QPoint(40, 10));
        QCOMPARE(position(ellipse->center), QPoint(-200, -200));
    }

    void aTextTakesTheXFactorForItsSize_data()
    {
        QTest::addColumn<int>("flags");
        QTest::addColumn<float>("factor");
        QTest::addColumn<int>("size");
        QTest::newRow("twice") << 0 << 2.0f << 24;
        QTest::newRow("rigid") << 1 << 2.0f << 12;
        QTest::newRow("no flags known") << -1 << 2.0f << 12;
        QTest::newRow("mirrored") << 0 << -2.0f << 24;
        QTest::newRow("flat") << 0 << 0.0f << 1;
        QTest::newRow("too large") << 0 << 100.0f << 500;
    }

    void aTextTakesTheXFactorForItsSize()
    {
        QFETCH(int, flags);
        QFETCH(float, factor);
        FigText text;
        text.cstring = "abc";
        text.flags = flags;
        text.x = 10;
        text.y = 20;
        scale_object(&context, &text, factor, 7.0f, 0, 0);
        QTEST(text.size, "size");
        QCOMPARE(text.y, 140);
    }

    void theRadiusOfAnArcBoxIsAtMostHalfTheShorterSideAndAtLeastOne_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("radius");
        QTest::addColumn<float>("xfactor");
        QTest::addColumn<float>("yfactor");
        QTest::addColumn<int>("scaled");
        QTest::newRow("mean of both") << 1000 << 500 << 7 << 2.0f << 4.0f << 21;
        QTest::newRow("half the height") << 20 << 16 << 100 << 1.0f << 1.0f << 8;
        QTest::newRow("mirrored") << 1000 << 500 << 10 << -1.0f << -1.0f << 10;
        QTest::newRow("flat") << 1000 << 500 << 10 << 0.0f << 1.0f << 1;
    }

    void theRadiusOfAnArcBoxIsAtMostHalfTheShorterSideAndAtLeastOne()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(int, radius);
        QFETCH(float, xfactor);
        QFETCH(float, yfactor);
        const std::unique_ptr<FigLine> box(
            makeLine({{0, 0}, {width, 0}, {width, height}, {0, height}, {0, 0}}, T_ARCBOX));
        box->radius = radius;
        scale_object(&context, box.get(), xfactor, yfactor, 0, 0);
        QTEST(box->radius, "scaled");
    }

    void aRadiusResizedByHandFollowsTheSides()
    {
        const std::unique_ptr<FigLine> former(
            makeLine({{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}}, T_ARCBOX));
        const std::unique_ptr<FigLine> resized(
            makeLine({{0, 0}, {200, 0}, {200, 400}, {0, 400}, {0, 0}}, T_ARCBOX));
        former->radius = 10;
        scale_radius(former.get(), resized.get());
        QCOMPARE(resized->radius, 30); // (2 + 4) * 10 / 2
    }

    // Through the lower point from left to right: counter-clockwise, y being down.
    void anArcMirroredChangesItsDirection()
    {
        const std::unique_ptr<FigArc> arc(makeArc(0, 0, 100, 100, 200, 0, 100, 0));
        arc->direction = 1;
        scale_object(&context, arc.get(), 1.0f, -1.0f, 0, 0);
        QCOMPARE(arc->direction, 0);
        QCOMPARE(arc->center_x, 100.0f);
        QCOMPARE(arc->center_y, 0.0f);
    }

    // Middle point one unit off the chord of (0,0) and (100,0): 50^2 + c^2 = (1 - c)^2.
    void anArcScaledFlatKeepsAValidArc()
    {
        const std::unique_ptr<FigArc> arc(makeArc(0, 0, 50, 50, 100, 0, 50, 0));
        scale_object(&context, arc.get(), 1.0f, 0.0f, 0, 0);
        QCOMPARE(position(arc->point[1]), QPoint(50, 1));
        QCOMPARE(arc->center_x, 50.0f);
        QCOMPARE(arc->center_y, -1249.5f);
    }

    // asin(1 / 100.005) is below 0.01: one unit is not enough there.
    void aLongArcScaledFlatKeepsItsOldCentre()
    {
        const std::unique_ptr<FigArc> arc(makeArc(0, 0, 100, 100, 200, 0, 100, 0));
        scale_object(&context, arc.get(), 1.0f, 0.0f, 0, 0);
        QCOMPARE(position(arc->point[1]), QPoint(100, 1));
        QCOMPARE(arc->center_x, 100.0f);
        QCOMPARE(arc->center_y, 0.0f);
    }

    void aCompoundScalesItsMembersAndItsCorners()
    {
        auto* line = makeLine({{10, 10}, {20, 30}});
        const std::unique_ptr<FigCompound> compound(makeCompound({makeCompound({line})}));
        scale_object(&context, compound.get(), 10.0f, 10.0f, 0, 0);
        QCOMPARE(position(*line->points->next), QPoint(200, 300));
        auto* inner = static_cast<FigCompound*>(compound->objects->first());
        QCOMPARE(position(compound->secorner), position(inner->secorner));
        int xmin, ymin, xmax, ymax;
        line->getBounds(&context, &xmin, &ymin, &xmax, &ymax, true, true);
        QCOMPARE(position(compound->nwcorner), QPoint(xmin, ymin));
        QCOMPARE(position(compound->secorner), QPoint(xmax, ymax));
    }

    void coordinatesStayInRange()
    {
        const std::unique_ptr<FigLine> line(makeLine({{INT_MAX, INT_MIN}, {INT_MIN, INT_MAX}}));
        scale_object(&context, line.get(), 1e9f, -1e9f, 0, 0);
        QCOMPARE(line->points->x, INT_MAX);
        const std::unique_ptr<FigEllipse> ellipse(makeEllipse(1, 20, 10));
        ellipse->radiuses = FigPoint(INT_MAX, INT_MAX);
        scale_object(&context, ellipse.get(), -1e9f, 1e9f, 0, 0);
        QCOMPARE(ellipse->radiuses.x, INT_MAX);
    }
};

QTEST_MAIN(TestScale)
#include "test_e_scale.moc"
