#include "ObjectBuilders.h"
#include "RecordingShell.h"
#include "model/FigContext.h"

#include <QtTest>

#include <climits>
#include <memory>

namespace {

QRect box(FigCompound* compound)
{
    return QRect(QPoint(compound->nwcorner.x, compound->nwcorner.y),
                 QPoint(compound->secorner.x, compound->secorner.y));
}

QRect exactBounds(CFigContext* ctx, FigObject* object)
{
    int xmin, ymin, xmax, ymax;
    object->getBounds(ctx, &xmin, &ymin, &xmax, &ymax, true, true);
    return QRect(QPoint(xmin, ymin), QPoint(xmax, ymax));
}

/// Thin and without joins that could stick out: exact bounds are those of the points.
FigEllipse* circleAt(int x, int y, int radius)
{
    auto* ellipse = new FigEllipse;
    ellipse->center = FigPoint(x, y);
    ellipse->radiuses = FigPoint(radius, radius);
    return ellipse;
}

} // namespace

class TestTranslate : public QObject {
    Q_OBJECT

private slots:
    void init() { recordingShell.clear(); }

    void allPointsOfAnObjectMove()
    {
        CFigContext ctx;
        FigArc arc;
        arc.center_x = 1.5f;
        arc.center_y = -2.5f;
        arc.point[2] = FigPoint(7, 8);
        translate_object(&ctx, &arc, 10, -20);
        QCOMPARE(arc.center_x, 11.5f);
        QCOMPARE(arc.center_y, -22.5f);
        QCOMPARE(QPoint(arc.point[0].x, arc.point[0].y), QPoint(10, -20));
        QCOMPARE(QPoint(arc.point[2].x, arc.point[2].y), QPoint(17, -12));

        const std::unique_ptr<FigEllipse> ellipse(circleAt(1, 2, 3));
        ellipse->start = FigPoint(4, 5);
        ellipse->end = FigPoint(6, 7);
        translate_object(&ctx, ellipse.get(), 10, -20);
        QCOMPARE(QPoint(ellipse->center.x, ellipse->center.y), QPoint(11, -18));
        QCOMPARE(QPoint(ellipse->start.x, ellipse->start.y), QPoint(14, -15));
        QCOMPARE(QPoint(ellipse->end.x, ellipse->end.y), QPoint(16, -13));
        QCOMPARE(ellipse->radiuses.x, 3);

        FigText text;
        translate_object(&ctx, &text, 10, -20);
        QCOMPARE(QPoint(text.x, text.y), QPoint(10, -20));

        const std::unique_ptr<FigSpline> spline(makeSpline({{1, 1}, {2, 2}}));
        translate_object(&ctx, spline.get(), 10, -20);
        QCOMPARE(QPoint(spline->points->next->x, spline->points->next->y), QPoint(12, -18));
    }

    void anEndWhoseLinkStaysIsLeftBehind()
    {
        CFigContext ctx;
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {5, 5}, {9, 9}}));
        makeLink(line->points, 7)->flag = true;
        makeLink(line->getPoint(2), 7)->flag = false;
        translate_object(&ctx, line.get(), 100, 100);
        QCOMPARE(line->points->x, 0);
        QCOMPARE(line->getPoint(1)->x, 105);
        QCOMPARE(line->getPoint(2)->x, 109);
    }

    void aCompoundRecomputesItsCornersFromItsMembers()
    {
        CFigContext ctx;
        FigCompound* inner = makeCompound({circleAt(100, 100, 10)});
        const std::unique_ptr<FigCompound> outer(makeCompound({circleAt(0, 0, 5), inner}));
        outer->nwcorner = FigPoint(-999, -999);
        translate_object(&ctx, outer.get(), 1000, 2000);
        QCOMPARE(box(inner), QRect(QPoint(1090, 2090), QPoint(1110, 2110)));
        QCOMPARE(box(outer.get()), QRect(QPoint(995, 1995), QPoint(1110, 2110)));
    }

    void theCornersAreThoseThatTheBoundsOfTheCompoundGive()
    {
        CFigContext ctx;
        FigLine* arrowed = makeLine({{0, 0}, {700, 300}, {1500, 100}});
        arrowed->thickness = 7;
        arrowed->forward_arrow = new FigArrow{2, 1, 1.0f, 200.0f, 300.0f};
        FigEllipse* turned = circleAt(300, 900, 250);
        turned->angle = 0.5f;
        turned->radiuses.y = 100;
        const std::unique_ptr<FigCompound> outer(makeCompound(
            {makeCompound({arrowed}), makeCompound({}), makeCompound({makeCompound({turned})})}));
        translate_object(&ctx, outer.get(), 400, -50);
        QCOMPARE(box(outer.get()), exactBounds(&ctx, outer.get()));
        for (FigObject* member : qAsConst(*outer->objects))
            QCOMPARE(box(static_cast<FigCompound*>(member)), exactBounds(&ctx, member));
    }

    void anEmptyCompoundHasItsCornersAtTheOrigin()
    {
        CFigContext ctx;
        FigCompound compound;
        compound.nwcorner = FigPoint(5, 5);
        translate_object(&ctx, &compound, 100, 100);
        QCOMPARE(box(&compound), QRect(QPoint(0, 0), QPoint(0, 0)));
    }

    void withoutAContextTheActiveOneOrADefaultMeasures()
    {
        const std::unique_ptr<FigCompound> compound(makeCompound({circleAt(0, 0, 5)}));
        translate_object(compound.get(), 10, 10);
        QCOMPARE(box(compound.get()), QRect(QPoint(5, 5), QPoint(15, 15)));
        CFigContext active;
        active.ppiX = active.ppiY = 1200.0f; // a width of 20 is then 20 units, 10 to each side
        recordingShell.activeContext = &active;
        compound->objects->first()->thickness = 20;
        FigObjectList list{compound.get()};
        translate_object_list(&list, 10, 10);
        QCOMPARE(box(compound.get()), QRect(QPoint(5, 5), QPoint(35, 35)));
    }

    void coordinatesStopAtTheEdgeOfInt()
    {
        CFigContext ctx;
        const std::unique_ptr<FigLine> line(makeLine({{INT_MAX - 5, INT_MIN + 5}}));
        translate_object(&ctx, line.get(), 10, -10);
        QCOMPARE(line->points->x, INT_MAX);
        QCOMPARE(line->points->y, INT_MIN);
    }

    void aThousandNestedCompoundsMeasureEachObjectOnce()
    {
        // Bounds taken anew at each level would measure 1000 x 2000 times.
        CFigContext ctx;
        FigCompound* nested = makeCompound({});
        for (int i = 0; i < 2000; ++i)
            nested->objects->append(circleAt(i, 0, 5));
        for (int level = 1; level < 1000; ++level)
            nested = makeCompound({nested});
        const std::unique_ptr<FigCompound> outer(nested);
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < 10; ++i)
            translate_object(&ctx, outer.get(), 1, 0);
        QCOMPARE(outer->secorner.x, 1999 + 5 + 10);
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    }
};

QTEST_MAIN(TestTranslate)
#include "test_objecttranslate.moc"
