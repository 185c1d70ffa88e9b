#include "ObjectBuilders.h"
#include "edit/e_flip.h"
#include "model/FigContext.h"

#include <QtTest>

#include <cmath>
#include <memory>

namespace {

constexpr int UP_DOWN = 1;
constexpr int LEFT_RIGHT = 2;
constexpr double pi = 3.141592653589793;

QPoint position(const FigPoint& point)
{
    return {point.x, point.y};
}

} // namespace

class TestFlip : public QObject {
    Q_OBJECT

private:
    CFigContext context;

private slots:
    void linesAndSplinesMirrorEachPoint()
    {
        const std::unique_ptr<FigLine> line(makeLine({{10, 20}, {30, 40}}));
        flip_line(&context, nullptr, line.get(), 100, 200, UP_DOWN);
        QCOMPARE(position(*line->points), QPoint(10, 380));
        flip_line(&context, nullptr, line.get(), 100, 200, LEFT_RIGHT);
        QCOMPARE(position(*line->points->next), QPoint(170, 360));
        const std::unique_ptr<FigSpline> spline(makeSpline({{10, 20}, {30, 40}}));
        flip_spline(&context, nullptr, spline.get(), 0, 0, LEFT_RIGHT);
        QCOMPARE(position(*spline->points), QPoint(-10, 20));
    }

    void aPictureRemembersThatItIsFlipped()
    {
        const std::unique_ptr<FigLine> picture(makeLine({{0, 0}, {10, 0}}, T_PICTURE));
        picture->pic = new FigPic;
        flip_line(&context, nullptr, picture.get(), 0, 0, LEFT_RIGHT);
        QCOMPARE(picture->pic->flipped, 1);
        flip_line(&context, nullptr, picture.get(), 0, 0, UP_DOWN);
        QCOMPARE(picture->pic->flipped, 0);
    }

    void aTextStaysReadable()
    {
        FigText text;
        text.x = 10;
        text.y = 20;
        text.angle = 1;
        text.sub_type = 2;
        flip_text(&context, nullptr, &text, 0, 100, UP_DOWN);
        QCOMPARE(QPoint(text.x, text.y), QPoint(10, 180));
        QCOMPARE(text.angle, 1.0f);
        QCOMPARE(text.sub_type, 2);
    }

    void anArcChangesItsDirection()
    {
        FigArc arc;
        arc.center_x = 10.25f;
        arc.direction = 1;
        arc.point[0] = FigPoint(10, 20);
        flip_arc(&context, nullptr, &arc, 100, 0, LEFT_RIGHT);
        QCOMPARE(position(arc.point[0]), QPoint(190, 20));
        QCOMPARE(arc.center_x, 189.75f);
        QCOMPARE(arc.direction, 0);
    }

    void aTiltedEllipseTiltsTheOtherWay()
    {
        FigEllipse ellipse;
        ellipse.angle = static_cast<float>(pi / 6);
        ellipse.center = FigPoint(100, 50);
        ellipse.start = FigPoint(100, 50);
        ellipse.end = FigPoint(100, 50);
        flip_ellipse(&context, nullptr, &ellipse, 0, 0, LEFT_RIGHT);
        QCOMPARE(position(ellipse.center), QPoint(-100, 50));
        QVERIFY(std::abs(ellipse.angle - 11 * pi / 6) < 1e-5);
        QCOMPARE(ellipse.direction, 1);
    }

    void aCompoundKeepsItsCornersInOrder()
    {
        auto* text = new FigText;
        text->x = 10;
        const std::unique_ptr<FigCompound> compound(
            makeCompound({makeLine({{0, 0}, {30, 40}}), text}));
        compound->nwcorner = FigPoint(0, 0);
        compound->secorner = FigPoint(30, 40);
        flip_compound(&context, nullptr, compound.get(), 100, 0, LEFT_RIGHT);
        QCOMPARE(position(compound->nwcorner), QPoint(170, 0));
        QCOMPARE(position(compound->secorner), QPoint(200, 40));
        QCOMPARE(text->x, 190);
    }

    void flippingTwiceIsExact()
    {
        const std::unique_ptr<FigLine> line(makeLine({{INT_MAX / 2, 3}, {-7, 12345}}));
        for (int i = 0; i < 2; ++i)
            flip_line(&context, nullptr, line.get(), 17, 3, LEFT_RIGHT);
        QCOMPARE(position(*line->points), QPoint(INT_MAX / 2, 3));
    }
};

QTEST_MAIN(TestFlip)
#include "test_e_flip.moc"
