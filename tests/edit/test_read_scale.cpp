#include "ObjectBuilders.h"
#include "edit/e_scale.h"

#include <QtTest>

#include <memory>

namespace {

QPoint position(const FigPoint& point)
{
    return {point.x, point.y};
}

} // namespace

// The offset 15 and the factor 0.5 are those of a figure of 2400 per inch.
class TestReadScale : public QObject {
    Q_OBJECT

private slots:
    void coordinatesAreScaledThenShiftedThenRoundedHalfAwayFromZero_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<float>("factor");
        QTest::addColumn<int>("scaled");
        QTest::newRow("2400 dpi") << 2400 << 0.5f << 1215;
        QTest::newRow("half up") << 1 << 0.5f << 16;      // 15.5
        QTest::newRow("half down") << -61 << 0.5f << -16; // -15.5
        QTest::newRow("80 dpi") << 80 << 15.0f << 1215;
        // 2^24 + 1 has no single precision: it is taken as 2^24, then 2^24 + 15 as 2^24 + 16.
        QTest::newRow("single precision") << 16777217 << 1.0f << 16777232;
    }

    void coordinatesAreScaledThenShiftedThenRoundedHalfAwayFromZero()
    {
        QFETCH(int, value);
        QFETCH(float, factor);
        const std::unique_ptr<FigLine> line(makeLine({{value, value}, {value, value}}));
        read_scale_line(line.get(), factor, 15);
        QTEST(line->points->x, "scaled");
        QTEST(line->points->next->y, "scaled");
    }

    void arrowSizesTakeTheOffsetAndTheirThicknessStays()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}}));
        line->forward_arrow = new FigArrow{1, 1, 3.0f, 100.0f, 201.0f};
        line->backward_arrow = new FigArrow{1, 1, 3.0f, 60.0f, 120.0f};
        read_scale_line(line.get(), 0.5f, 15);
        QCOMPARE(line->forward_arrow->wd, 65.0f);
        QCOMPARE(line->forward_arrow->ht, 116.0f); // 115.5
        QCOMPARE(line->forward_arrow->thickness, 3.0f);
        QCOMPARE(line->backward_arrow->wd, 45.0f);
        read_scale_arrow(nullptr, 0.5f, 15);
    }

    void radiiOfEllipsesTakeNoOffset()
    {
        FigEllipse ellipse;
        ellipse.center = FigPoint(100, 200);
        ellipse.radiuses = FigPoint(51, 30);
        ellipse.start = FigPoint(10, 20);
        ellipse.end = FigPoint(-10, -20);
        read_scale_ellipse(&ellipse, 0.5f, 15);
        QCOMPARE(position(ellipse.center), QPoint(65, 115));
        QCOMPARE(position(ellipse.radiuses), QPoint(26, 15)); // 25.5
        QCOMPARE(position(ellipse.start), QPoint(20, 25));
        QCOMPARE(position(ellipse.end), QPoint(10, 5));
    }

    void theCentreOfAnArcIsRoundedToo()
    {
        FigArc arc;
        arc.center_x = 100.5f;
        arc.center_y = -100.9f;
        arc.point[1] = FigPoint(4, 6);
        arc.forward_arrow = new FigArrow{0, 0, 1.0f, 10.0f, 20.0f};
        read_scale_arc(&arc, 0.5f, 15);
        QCOMPARE(arc.center_x, 65.0f);  // 65.25
        QCOMPARE(arc.center_y, -35.0f); // -35.45
        QCOMPARE(position(arc.point[0]), QPoint(15, 15));
        QCOMPARE(position(arc.point[1]), QPoint(17, 18));
        QCOMPARE(arc.forward_arrow->ht, 25.0f);
    }

    void aCompoundScalesItsCornersAndItsMembers()
    {
        FigText* text = new FigText;
        text->x = 2;
        text->y = 4;
        text->size = 12;
        FigSpline* spline = makeSpline({{8, 8}, {10, 10}});
        spline->backward_arrow = new FigArrow{0, 0, 1.0f, 10.0f, 20.0f};
        OwnedList list{makeCompound({makeCompound({text}), spline})};
        auto* compound = static_cast<FigCompound*>(list.first());
        compound->nwcorner = FigPoint(2, 4);
        compound->secorner = FigPoint(10, 20);
        read_scale_objects(&list, 0.5f, 15);
        QCOMPARE(position(compound->nwcorner), QPoint(16, 17));
        QCOMPARE(position(compound->secorner), QPoint(20, 25));
        QCOMPARE(QPoint(text->x, text->y), QPoint(16, 17));
        QCOMPARE(text->size, 12);
        QCOMPARE(position(*spline->points->next), QPoint(20, 20));
        QCOMPARE(spline->backward_arrow->wd, 20.0f);
        QCOMPARE(spline->sfactors->s, 0.0);
    }

    void ellipsesArcsAndLinesOfAListAreReached()
    {
        OwnedList list{new FigEllipse, new FigArc, makeLine({{0, 0}})};
        read_scale_objects(&list, 1.0f, 15);
        QCOMPARE(static_cast<FigEllipse*>(list.first())->center.x, 15);
        QCOMPARE(static_cast<FigArc*>(*(list.begin() + 1))->center_x, 15.0f);
        QCOMPARE(static_cast<FigLine*>(list.last())->points->y, 15);
        read_scale_objects(nullptr, 1.0f, 15);
    }
};

QTEST_GUILESS_MAIN(TestReadScale)
#include "test_read_scale.moc"
