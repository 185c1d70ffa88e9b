#include "ObjectBuilders.h"
#include "model/FigContext.h"

#include <QtTest>

#include <memory>

namespace {

QString text(const FigPoint* first)
{
    QStringList points;
    for (const FigPoint* point = first; point; point = point->next)
        points.append(QString("%1,%2").arg(point->x).arg(point->y));
    return points.join(' ');
}

QString text(const FigShapeFactor* first)
{
    QStringList factors;
    for (const FigShapeFactor* factor = first; factor; factor = factor->next)
        factors.append(QString::number(factor->s));
    return factors.join(' ');
}

} // namespace

class TestPointLists : public QObject {
    Q_OBJECT

private slots:
    void appendingMovesTheLastPointOn()
    {
        FigPoint* last = nullptr;
        QVERIFY(append_point(1, 2, &last));
        FigPoint* first = last;
        QVERIFY(append_point(3, 4, &last));
        QCOMPARE(text(first), QString("1,2 3,4"));
        QCOMPARE(last, first->next);
        FigPoint* third = append_point_to_last(5, 6, first);
        QCOMPARE(last_point(first), third);
        QCOMPARE(num_points(first), 3);
        free_points(first);
    }

    void insertingPutsThePointBehindTheGivenOne()
    {
        FigPoint* first = makePoints({{0, 0}, {2, 2}});
        FigPoint* inserted = insert_point(1, 1, first);
        QCOMPARE(first->next, inserted);
        QCOMPARE(text(first), QString("0,0 1,1 2,2"));
        free_points(first);
    }

    void emptyListsHaveNoPoints()
    {
        QCOMPARE(num_points(nullptr), 0);
        QVERIFY(!last_point(nullptr));
        QVERIFY(!prev_point(nullptr, nullptr));
        QVERIFY(!copy_points(nullptr, true));
        QVERIFY(!copy_sfactors(nullptr));
        QVERIFY(!last_sfactor(nullptr));
        free_points(nullptr);
        free_sfactors(nullptr);
        reverse_points(nullptr);
        reverse_sfactors(nullptr);
    }

    void searchingFindsTheFirstPointWithTheCoordinates()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {5, 5}, {5, 5}}));
        QCOMPARE(search_line_point(line.get(), 5, 5), line->points->next);
        QVERIFY(!search_line_point(line.get(), 5, 6));
        const std::unique_ptr<FigSpline> spline(makeSpline({{0, 0}, {5, 5}, {9, 9}}));
        QCOMPARE(search_spline_point(spline.get(), 9, 9), spline->points->next->next);
    }

    void aNewFirstSplinePointComesWithItsFactor()
    {
        const std::unique_ptr<FigSpline> spline(makeSpline({{1, 1}, {2, 2}}, 1));
        QVERIFY(first_spline_point(0, 0, -0.5, spline.get()));
        QCOMPARE(text(spline->points), QString("0,0 1,1 2,2"));
        QCOMPARE(text(spline->sfactors), QString("-0.5 1 1"));
    }

    void reversingSwapsCoordinatesAndLeavesNodesAndLinks_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("reversed");
        QTest::newRow("one") << 1 << "0,0";
        QTest::newRow("even") << 4 << "3,30 2,20 1,10 0,0";
        QTest::newRow("odd") << 3 << "2,20 1,10 0,0";
    }

    void reversingSwapsCoordinatesAndLeavesNodesAndLinks()
    {
        QFETCH(int, count);
        QFETCH(QString, reversed);
        FigPoint* last = nullptr;
        append_point(0, 0, &last);
        FigPoint* first = last;
        for (int i = 1; i < count; ++i)
            append_point(i, i * 10, &last);
        FigLink* link = makeLink(first, 7);
        reverse_points(first);
        QCOMPARE(text(first), reversed);
        QCOMPARE(first->link, link);
        QCOMPARE(last_point(first), last);
        free_points(first);
    }

    void copyingWithoutLinksLeavesThemBehind()
    {
        FigPoint* first = makePoints({{1, 2}, {3, 4}});
        FigLine owner;
        first->owner = &owner;
        first->tagged = true;
        makeLink(first, 7);
        FigPoint* copied = copy_points(first, false);
        QCOMPARE(text(copied), QString("1,2 3,4"));
        QVERIFY(copied != first && !copied->link);
        QCOMPARE(copied->owner, static_cast<FigObject*>(&owner));
        QVERIFY(copied->tagged);
        free_points(copied);
        free_points(first);
    }

    void copiedLinksKeepTheirTargets()
    {
        const std::unique_ptr<FigLine> target(makeLine({{0, 0}, {9, 9}}));
        FigPoint* first = makePoints({{1, 2}, {3, 4}});
        FigLink* link = makeLink(first, 7, 0, 1);
        link->targetLeftPoint = target->points;
        link->flag = true;
        FigPoint* copied = copy_points(first, true);
        QCOMPARE(copied->link->srcPoint, copied);
        QCOMPARE(copied->link->targetObjId, 7L);
        QCOMPARE(copied->link->targetLeftPoint, target->points);
        QVERIFY2(!copied->link->flag, "a copied link does not stay");
        free_points(copied);
        free_points(first);
    }

    void factorListsGrowReverseAndCopy()
    {
        FigShapeFactor* first = append_sfactor(1, nullptr);
        append_sfactor(3, append_sfactor(2, first));
        QCOMPARE(text(first), QString("1 2 3"));
        QCOMPARE(last_sfactor(first)->s, 3.0);
        reverse_sfactors(first);
        FigShapeFactor* copied = copy_sfactors(first);
        QVERIFY(copied != first);
        QCOMPARE(text(copied), QString("3 2 1"));
        free_sfactors(copied);
        free_sfactors(first);
    }

    void theFactorOfAPointStandsAtItsIndex()
    {
        const std::unique_ptr<FigSpline> spline(makeSpline({{0, 0}, {5, 5}, {9, 9}}));
        FigPoint stranger;
        QCOMPARE(search_sfactor(spline.get(), spline->points->next), spline->sfactors->next);
        QVERIFY(!search_sfactor(spline.get(), &stranger));
    }

    void madeFactorsFollowTheSubType_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<QString>("factors");
        QTest::newRow("open approximated") << 0 << "0 1 1 0";
        QTest::newRow("closed approximated") << 1 << "1 1 1 1";
        QTest::newRow("open interpolated") << 2 << "0 -1 -1 0";
        QTest::newRow("closed interpolated") << 3 << "-1 -1 -1 -1";
        QTest::newRow("open X-spline") << 4 << "0 -1 -1 0";
        QTest::newRow("closed X-spline") << 5 << "-1 -1 -1 -1";
    }

    void madeFactorsFollowTheSubType()
    {
        QFETCH(int, subType);
        QFETCH(QString, factors);
        const std::unique_ptr<FigSpline> spline(
            makeSpline({{0, 0}, {1, 0}, {1, 1}, {0, 1}}, subType));
        QCOMPARE(text(spline->sfactors), factors);
        QCOMPARE(make_sfactors(spline.get()), 1);
        QCOMPARE(text(spline->sfactors), factors);
    }

    void aSplineOfOnePointHasOneFactorAndOneOfNoneHasNone()
    {
        const std::unique_ptr<FigSpline> dot(makeSpline({{0, 0}}));
        QCOMPARE(text(dot->sfactors), QString("0"));
        FigSpline empty;
        QCOMPARE(make_sfactors(&empty), 0);
        QVERIFY(!empty.sfactors);
    }

    void theCurrentObjectLosesItsTag()
    {
        CFigContext ctx;
        clear_current_object_tag(&ctx);
        FigText text;
        text.tagged = true;
        ctx.curObject = &text;
        clear_current_object_tag(&ctx);
        QVERIFY(!text.tagged);
    }
};

QTEST_GUILESS_MAIN(TestPointLists)
#include "test_u_list.moc"
