// Numbers are worked out by hand unless a comment says otherwise.
#include "LinkFixture.h"
#include "edit/e_compound.h"

#include <climits>
#include <cmath>
#include <random>

namespace {

/// Two boxes, and a line from the right side of the first to the left side of the second by way
/// of an inner point.
struct Connected : EditedFigure {
    FigLine* left = put(with(makeBox(0, 0, 1000, 1000), 1));
    FigLine* right = put(with(makeBox(3000, 0, 4000, 1000), 2));
    FigLine* line = put(with(makeLine({{1000, 500}, {2000, 0}, {3000, 500}}), 3));

    Connected()
    {
        tie(line->points, left, 1, 2);
        tie(lastOf(line), right, 3, 0);
    }

    /// As the tools do it: followers are collected before.
    void move(FigObjectList objects, int dx, int dy)
    {
        auto* action = new TranslateAction;
        action->workingList = &top();
        action->objects = objects;
        action->dx = dx;
        action->dy = dy;
        collectWorkingObjects4Translate(&top(), &objects, &action->workingObjects);
        run(action);
    }
};

FigPoint* middleOf(FigPath* path)
{
    return path->points->next;
}

} // namespace

class TestLinksFollow : public QObject {
    Q_OBJECT

private slots:
    // --- whole gestures ---------------------------------------------------------

    void movingATargetStretchesTheConnector()
    {
        Connected figure;
        figure.move({figure.left}, 100, -50);
        QCOMPARE(chain(figure.line), QString("1100,450 2000,0 3000,500"));
        figure.undo();
        QCOMPARE(chain(figure.line), QString("1000,500 2000,0 3000,500"));
    }

    void movingAllMovesAll()
    {
        Connected figure;
        figure.move({figure.left, figure.line, figure.right}, 100, -50);
        QCOMPARE(chain(figure.line), QString("1100,450 2100,-50 3100,450"));
        QCOMPARE(at(figure.left->points), QString("100,-50"));
        figure.undo();
        QCOMPARE(chain(figure.line), QString("1000,500 2000,0 3000,500"));
    }

    void movingTheConnectorStretchesItInTheMiddle()
    {
        Connected figure;
        figure.move({figure.line}, 100, -50);
        QCOMPARE(chain(figure.line), QString("1000,500 2100,-50 3000,500"));
    }

    void movingTheConnectorWithOneTargetKeepsTheOtherEnd()
    {
        Connected figure;
        figure.move({figure.line, figure.left}, 100, -50);
        QCOMPARE(chain(figure.line), QString("1100,450 2100,-50 3000,500"));
    }

    void orderOfTheMovedDoesNotMatter()
    {
        // The decision of an earlier move must not count in a later one.
        Connected figure;
        figure.move({figure.line}, 100, -50);
        figure.move({figure.left, figure.line}, 10, 10);
        QCOMPARE(chain(figure.line), QString("1010,510 2110,-40 3000,500"));
    }

    void connectorInAMovedCompoundMovesOnceWithItsTargets()
    {
        // Each row groups line and boxes in another way; with all of it moved, all moves once.
        for (int grouping = 0; grouping < 5; ++grouping) {
            Connected figure;
            FigObjectList groups[] = {
                {figure.left, figure.line},
                {figure.line},
                {figure.left, figure.right},
                {figure.left, figure.line, figure.right},
                {figure.left},
            };
            auto* compound = with(new FigCompound, 4);
            for (FigObject* member : qAsConst(groups[grouping])) {
                figure.top().removeOne(member);
                compound->objects->append(member);
            }
            figure.top().prepend(with(makeCompound({compound}), 5));
            set_depths(&figure.ctx);
            figure.move(figure.top(), 100, -50);
            QCOMPARE(chain(figure.line), QString("1100,450 2100,-50 3100,450"));
            QCOMPARE(at(figure.left->points), QString("100,-50"));
            figure.undo();
            QCOMPARE(chain(figure.line), QString("1000,500 2000,0 3000,500"));
        }
    }

    void connectorInACompoundFollowsATargetOutside()
    {
        Connected figure;
        figure.top().removeOne(figure.line);
        FigCompound* compound = figure.put(with(makeCompound({figure.line}), 4));
        figure.move({figure.left}, 100, -50);
        QCOMPARE(chain(figure.line), QString("1100,450 2000,0 3000,500"));
        // The compound's corners follow: a thin line without width from (1100, 0).
        QCOMPARE(compound->nwcorner.x, 1100);
        QCOMPARE(compound->nwcorner.y, 0);
    }

    void aConnectorTiedToItselfMovesOnce()
    {
        Connected figure;
        figure.line->points->link->targetObjId = figure.line->id;
        figure.move({figure.line}, 100, -50);
        QCOMPARE(chain(figure.line), QString("1100,450 2100,-50 3000,500"));
    }

    void linksInACycleEnd()
    {
        // No editor makes these: closed lines that are tied to each other.
        EditedFigure figure;
        FigLine* a = figure.put(with(makeBox(0, 0, 10, 10), 1));
        FigLine* b = figure.put(with(makeBox(50, 0, 60, 10), 2));
        makeLink(a->points, 2);
        makeLink(b->points, 1);
        auto* action = actionOn<TranslateAction>(a, &figure.top());
        action->dx = 5;
        figure.run(action);
        QCOMPARE(chain(a), QString("0,0 15,0 15,10 5,10 5,0"));
        QCOMPARE(chain(b), QString("55,0 60,0 60,10 50,10 50,0"));
        figure.undo();
        QCOMPARE(chain(a), QString("0,0 10,0 10,10 0,10 0,0"));
        QCOMPARE(chain(b), QString("50,0 60,0 60,10 50,10 50,0"));
    }

    void twoObjectsWithOneIdAreNoHarm()
    {
        Connected figure;
        figure.right->id = 1;
        lastOf(figure.line)->link->targetObjId = 1;
        figure.move({figure.left, figure.right}, 100, 0);
        QCOMPARE(chain(figure.line), QString("1100,500 2000,0 3100,500"));
        figure.undo();
        QCOMPARE(chain(figure.line), QString("1000,500 2000,0 3000,500"));
    }

    void aConnectorFollowsFromAThousandCompoundsDeep()
    {
        Connected figure;
        figure.top().removeOne(figure.line);
        FigObject* content = figure.line;
        for (long level = 0; level < 3000; ++level)
            content = with(makeCompound({content}), 100 + level);
        auto* outermost = static_cast<FigCompound*>(figure.put(content));
        figure.move({figure.left}, 100, -50);
        QCOMPARE(chain(figure.line), QString("1100,450 2000,0 3000,500"));
        QCOMPARE(at(&outermost->nwcorner), QString("1100,0"));
        figure.undo();
        QCOMPARE(chain(figure.line), QString("1000,500 2000,0 3000,500"));
        QCOMPARE(at(&outermost->nwcorner), QString("1000,0"));
    }

    // --- which ends stay ------------------------------------------------------------

    void anEndStaysUnlessItsTargetMoves()
    {
        Connected figure;
        FigLink* link = figure.line->points->link;
        FigObjectList moved{figure.left}, nothing;
        fix_links_before_translate(figure.line, &figure.top(), &moved);
        QVERIFY(!link->flag);
        QVERIFY(lastOf(figure.line)->link->flag);
        fix_links_before_translate(figure.line, &figure.top(), &nothing);
        QVERIFY(link->flag);
        fix_links_before_translate(figure.line, &figure.top(), nullptr);
        QVERIFY(link->flag);
        // Among the moved, but not in the list.
        fix_links_before_translate(figure.line, &nothing, &moved);
        QVERIFY(link->flag);
    }

    void anEndWithoutATargetStays()
    {
        Connected figure;
        figure.line->points->link->targetObjId = 99;
        lastOf(figure.line)->link->targetObjId = -1;
        FigObjectList all = figure.top();
        fix_links_before_translate(figure.line, &figure.top(), &all);
        QVERIFY(figure.line->points->link->flag);
        QVERIFY(lastOf(figure.line)->link->flag);
        set_tags(&figure.top(), true);
        fix_links_before_translate(figure.line, &figure.top());
        QVERIFY(figure.line->points->link->flag);
    }

    void aTargetIsKnownAmongTheMovedByItsId()
    {
        Connected figure;
        OwnedList copies{figure.left->clone()};
        fix_links_before_translate(figure.line, &figure.top(), &copies);
        QVERIFY(!figure.line->points->link->flag);
    }

    void anEndStaysUnlessItsTargetIsTagged()
    {
        Connected figure;
        figure.left->tagged = true;
        FigCompound around;
        around.objects->append(figure.line);
        fix_links_before_translate(&around, &figure.top());
        around.objects->removeFirst();
        QVERIFY(!figure.line->points->link->flag);
        QVERIFY(lastOf(figure.line)->link->flag);
    }

    // --- who is linked ------------------------------------------------------------------

    void linksToAnObjectAreFoundOnce()
    {
        Connected figure;
        makeLink(middleOf(figure.line), 1);
        FigLinkList links;
        QVERIFY(findLinksThatConnectTo(&figure.top(), figure.left, &links));
        QVERIFY(findLinksThatConnectTo(&figure.top(), figure.left, &links));
        QCOMPARE(links, (FigLinkList{figure.line->points->link, middleOf(figure.line)->link}));
        FigObjectList objects;
        QVERIFY(findObjectsThatConnectTo(&figure.top(), figure.left, &objects));
        QVERIFY(!findObjectsThatConnectTo(&figure.top(), figure.left, &objects));
        QCOMPARE(ids(objects), QString("3"));
        FigPointList points;
        QVERIFY(findPointsThatConnectTo(&figure.top(), figure.left, &points));
        QCOMPARE(points, (FigPointList{figure.line->points, middleOf(figure.line)}));
        QCOMPARE(points.first()->owner, static_cast<FigObject*>(figure.line));
    }

    void nobodyIsFoundWhereNobodyIsLinked()
    {
        Connected figure;
        FigLinkList links;
        FigObjectList objects;
        FigPointList points;
        QVERIFY(!findLinksThatConnectTo(&figure.top(), figure.line, &links));
        QVERIFY(!findObjectsThatConnectTo(&figure.top(), figure.line, &objects));
        QVERIFY(!findPointsThatConnectTo(&figure.top(), figure.line, &points));
        QVERIFY(!findPointsThatConnectTo(nullptr, figure.left, &points));
    }

    void membersOfACompoundAreTargetsToo()
    {
        Connected figure;
        figure.top().removeOne(figure.left);
        FigCompound* compound =
            figure.put(with(makeCompound({with(makeCompound({figure.left}), 5)}), 4));
        FigObjectList objects;
        QVERIFY(findObjectsThatConnectTo(&figure.top(), compound, &objects));
        QCOMPARE(ids(objects), QString("3"));
        collectWorkingObjects4MovePoint(&figure.top(), compound, &objects);
        QCOMPARE(ids(objects), QString("3"));
    }

    void aConnectorInsideIsFoundForAMemberButNotForTheCompound()
    {
        Connected figure;
        figure.ctx.clearObjects();
        FigCompound* compound = figure.put(with(makeCompound({figure.left, figure.line}), 4));
        figure.put(figure.right);
        makeLink(middleOf(figure.line), 4);
        FigLinkList links;
        QVERIFY(findLinksThatConnectTo(&figure.top(), compound, &links));
        QCOMPARE(links, FigLinkList{figure.line->points->link});
    }

    void anObjectWithoutAnIdHasNoFollowers()
    {
        Connected figure;
        figure.left->id = -1;
        figure.line->points->link->targetObjId = -1;
        FigObjectList objects;
        QVERIFY(!findObjectsThatConnectTo(&figure.top(), figure.left, &objects));
    }

    void whatMovesAnywayIsNoFollower()
    {
        Connected figure;
        FigLine* other = figure.put(with(makeLine({{0, 500}, {-900, 0}}), 6));
        tie(other->points, figure.left, 3, 0);
        FigObjectList moved{figure.left, figure.line}, found;
        collectWorkingObjects4Translate(&figure.top(), &moved, &found);
        QCOMPARE(ids(found), QString("6"));
        collectWorkingObjects4Translate(&figure.top(), figure.left, &found);
        QCOMPARE(ids(found), QString("6 3"));
    }

    // --- following a move ------------------------------------------------------------------

    void onlyPointsThatNameTheObjectAreShifted()
    {
        Connected figure;
        FigObjectList changed;
        FigPointList done;
        adjust_links_translate(figure.left, &figure.top(), 7, 9, &changed, nullptr, &done);
        QCOMPARE(chain(figure.line), QString("1007,509 2000,0 3000,500"));
        QCOMPARE(ids(changed), QString("3"));
        QCOMPARE(done, FigPointList{figure.line->points});
    }

    void aPointThatIsDoneIsNotShiftedAgain()
    {
        Connected figure;
        FigObjectList changed;
        FigPointList done{figure.line->points};
        adjust_links_translate(figure.left, &figure.top(), 7, 9, &changed, nullptr, &done);
        QCOMPARE(at(figure.line->points), QString("1000,500"));
        QVERIFY(changed.isEmpty());
    }

    void withoutAListNothingFollows()
    {
        Connected figure;
        FigObjectList changed;
        FigPointList done;
        adjust_links_translate(figure.left, nullptr, 7, 9, &changed, nullptr, &done);
        QVERIFY(changed.isEmpty() && done.isEmpty());
    }

    void onlyWorkingObjectsAreLookedAt()
    {
        Connected figure;
        FigObjectList changed, nobody, others{figure.right};
        FigPointList done;
        adjust_links_translate(figure.left, &figure.top(), 7, 9, &changed, &nobody, &done);
        adjust_links_translate(figure.left, &figure.top(), 7, 9, &changed, &others, &done);
        QVERIFY(changed.isEmpty());
        OwnedList copies{figure.line->clone()};
        adjust_links_translate(figure.left, &figure.top(), 7, 9, &changed, &copies, &done);
        QCOMPARE(at(figure.line->points), QString("1007,509"));
        QCOMPARE(at(static_cast<FigLine*>(copies.first())->points), QString("1000,500"));
    }

    void aCompoundStandsForItsMembers()
    {
        Connected figure;
        figure.top().removeOne(figure.left);
        FigCompound* compound = figure.put(with(makeCompound({figure.left}), 4));
        makeLink(middleOf(figure.line), 4);
        FigObjectList changed;
        FigPointList done;
        adjust_links_translate(compound, &figure.top(), 7, 9, &changed, nullptr, &done);
        QCOMPARE(chain(figure.line), QString("1007,509 2000,0 3000,500"));
    }

    void aPointOfAMovedObjectIsShiftedOnlyIfItStayed()
    {
        Connected figure;
        FigObjectList changed, moved{figure.line};
        FigPointList done;
        adjust_links_translate(figure.left, &figure.top(), 7, 9, &changed, nullptr, &done, &moved);
        QCOMPARE(at(figure.line->points), QString("1000,500"));
        figure.line->points->link->flag = true;
        FigObjectList nobody;
        adjust_links_translate(figure.left, &figure.top(), 7, 9, &changed, &nobody, &done, &moved);
        QCOMPARE(at(figure.line->points), QString("1007,509"));
    }

    void manyObjectsAreFollowedInOneWalk()
    {
        Connected figure;
        FigObjectList changed, objects{figure.left, figure.right};
        FigPointList done;
        adjust_links_translate(&objects, &figure.top(), 7, 9, &changed, nullptr, &done);
        QCOMPARE(chain(figure.line), QString("1007,509 2000,0 3007,509"));
        QCOMPARE(ids(changed), QString("3"));
    }

    void shiftsStopAtTheEdgeOfTheNumbers()
    {
        Connected figure;
        figure.line->points->x = INT_MAX - 3;
        figure.line->points->y = INT_MIN + 3;
        adjust_links_translate(figure.left, &figure.top(), 7, -9, nullptr, nullptr, nullptr);
        QCOMPARE(figure.line->points->x, INT_MAX);
        QCOMPARE(figure.line->points->y, INT_MIN);
    }

    // --- scaling, turning, flipping ---------------------------------------------------------

    // On x the offset is truncated before it is rounded: 105 * 0.5 is 52.5 and becomes 52 on x,
    // 53 on y.
    void aLinkedEndIsScaledLikeAPointOfALine()
    {
        Connected figure;
        figure.line->points->x = figure.line->points->y = 105;
        FigObjectList changed;
        FigPointList done;
        adjust_links_scale(figure.left, 0.5f, 0.5f, 0, 0, &figure.top(), &changed, &done);
        QCOMPARE(at(figure.line->points), QString("52,53"));
        QCOMPARE(ids(changed), QString("3"));
        adjust_links_scale(figure.left, 0.5f, 0.5f, 0, 0, &figure.top(), &changed, &done);
        QCOMPARE(at(figure.line->points), QString("52,53"));
    }

    void aLinkedEndTurnsWithItsEllipse()
    {
        EditedFigure figure;
        FigEllipse* ellipse = figure.put(with(makeEllipse(5000, 5000, 1000, 500), 1));
        FigLine* line = figure.put(with(makeLine({{6000, 5000}, {8000, 5000}}), 2));
        makeLink(line->points, 1);
        FigObjectList changed;
        FigPointList done;
        adjust_links_rotate_ellipse(ellipse, 5000, 5000, 90, &figure.top(), &changed, &done);
        QCOMPARE(chain(line), QString("5000,6000 8000,5000"));
        QCOMPARE(ids(changed), QString("2"));
    }

    void aLinkedEndIsMirroredWithItsEllipse()
    {
        for (int direction : {1, 2}) {
            EditedFigure figure;
            FigEllipse* ellipse = figure.put(with(makeEllipse(5000, 5000, 1000, 500), 1));
            FigLine* line = figure.put(with(makeLine({{5600, 5400}, {8000, 5000}}), 2));
            makeLink(line->points, 1);
            FigObjectList changed;
            FigPointList done;
            adjust_links_flip_ellipse(ellipse, 5000, 5000, direction, &figure.top(), &changed,
                                      &done);
            QCOMPARE(at(line->points), QString(direction == 1 ? "5600,4600" : "4400,5400"));
        }
    }

    // --- a corner of the target moves ----------------------------------------------------------

    void theEndKeepsItsPlaceOnTheSegment_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("dx");
        QTest::addColumn<int>("dy");
        QTest::addColumn<QString>("end");
        // The end sits at a quarter of the segment from (0, 0) to (1000, 0).
        QTest::newRow("right end farther") << 1 << 1000 << 0 << "500,0";
        QTest::newRow("right end nearer") << 1 << -600 << 0 << "100,0";
        QTest::newRow("left end nearer") << 0 << 200 << 0 << "400,0";
        QTest::newRow("right end turned") << 1 << -1000 << 1000 << "0,250";
        QTest::newRow("right end turned the other way") << 1 << -1000 << -1000 << "0,-250";
        QTest::newRow("right end turned back") << 1 << -2000 << 0 << "-250,0";
        QTest::newRow("left end turned and farther") << 0 << 0 << 1000 << "250,750";
        QTest::newRow("another corner") << 2 << 50 << 50 << "250,0";
    }

    void theEndKeepsItsPlaceOnTheSegment()
    {
        QFETCH(int, index);
        QFETCH(int, dx);
        QFETCH(int, dy);
        QFETCH(QString, end);
        EditedFigure figure;
        FigLine* box = figure.put(with(makeBox(0, 0, 1000, 1000), 1));
        FigLine* line = figure.put(with(makeLine({{250, 0}, {250, -900}}), 2));
        tie(line->points, box, 0, 1);
        FigPoint* corner = box->getPoint(index);
        corner->x += dx;
        corner->y += dy;
        FigObjectList changed;
        FigPointList done;
        adjust_links_move_point(box, index, &figure.top(), dx, dy, &changed, &done);
        QCOMPARE(at(line->points), end);
        QCOMPARE(done, FigPointList{line->points});
        QCOMPARE(changed.isEmpty(), index == 2);
    }

    void theClosingSegmentEndsAtIndexZero()
    {
        EditedFigure figure;
        FigLine* box = figure.put(with(makeBox(0, 0, 1000, 1000), 1));
        FigLine* line = figure.put(with(makeLine({{0, 500}, {-900, 500}}), 2));
        tie(line->points, box, 3, 0);
        box->points->y -= 1000;
        adjust_links_move_point(box, 0, &figure.top(), 0, -1000, nullptr, nullptr);
        QCOMPARE(at(line->points), QString("0,0"));
    }

    void aSegmentThatHadNoLengthPullsNothing()
    {
        EditedFigure figure;
        FigLine* box = figure.put(with(makeBox(0, 0, 0, 1000), 1));
        FigLine* line = figure.put(with(makeLine({{0, 0}, {-900, 500}}), 2));
        tie(line->points, box, 0, 1);
        box->points->next->x += 500;
        FigObjectList changed;
        adjust_links_move_point(box, 1, &figure.top(), 500, 0, &changed, nullptr);
        QCOMPARE(at(line->points), QString("0,0"));
        QVERIFY(changed.isEmpty());
    }

    void aSegmentThatLosesItsLengthTakesTheEndAlong()
    {
        EditedFigure figure;
        FigLine* box = figure.put(with(makeBox(0, 0, 1000, 1000), 1));
        FigLine* line = figure.put(with(makeLine({{250, 0}, {250, -900}}), 2));
        tie(line->points, box, 0, 1);
        box->points->next->x -= 1000;
        adjust_links_move_point(box, 1, &figure.top(), -1000, 0, nullptr, nullptr);
        QCOMPARE(at(line->points), QString("0,0"));
    }

    void indexesOutOfRangeAreNoHarm()
    {
        EditedFigure figure;
        FigLine* box = figure.put(with(makeBox(0, 0, 1000, 1000), 1));
        FigLine* line = figure.put(with(makeLine({{250, 0}, {250, -900}}), 2));
        makeLink(line->points, 1, 70, 71);
        makeLink(lastOf(line), 1);
        adjust_links_move_point(box, 70, &figure.top(), 5, 5, nullptr, nullptr);
        adjust_links_move_point(box, -1, &figure.top(), 5, 5, nullptr, nullptr);
        QCOMPARE(chain(line), QString("250,0 250,-900"));
    }

    void aClosedSplineDoesNotPull()
    {
        EditedFigure figure;
        FigSpline* spline = figure.put(with(makeSpline({{0, 0}, {900, 0}, {900, 900}}, 3), 1));
        FigLine* line = figure.put(with(makeLine({{900, 0}, {2000, 0}}), 2));
        makeLink(line->points, 1);
        FigObjectList changed;
        FigPointList done;
        spline->points->next->x += 100;
        adjust_links_move_point(spline, 1, &figure.top(), 100, 0, &changed, &done);
        QCOMPARE(chain(line), QString("900,0 2000,0"));
        QVERIFY(changed.isEmpty());
        QCOMPARE(done, FigPointList{line->points});
    }

    // --- the radii of the target change --------------------------------------------------------

    void theEndKeepsItsPlaceOnTheEllipse_data()
    {
        QTest::addColumn<QPoint>("before");
        QTest::addColumn<QPoint>("radii");
        QTest::addColumn<QPoint>("after");
        // On a circle of 1000 about (0, 0), by the triangle of 6, 8 and 10.
        QTest::newRow("steep") << QPoint(600, 800) << QPoint(2000, 500) << QPoint(1200, 400);
        QTest::newRow("flat") << QPoint(800, 600) << QPoint(2000, 500) << QPoint(1600, 300);
        QTest::newRow("upper left")
            << QPoint(-600, -800) << QPoint(2000, 500) << QPoint(-1200, -400);
        QTest::newRow("lower left") << QPoint(-800, 600) << QPoint(500, 2000) << QPoint(-400, 1200);
        QTest::newRow("rightmost") << QPoint(1000, 0) << QPoint(2000, 500) << QPoint(2000, 0);
        QTest::newRow("lowest") << QPoint(0, 1000) << QPoint(2000, 500) << QPoint(0, 500);
        QTest::newRow("to a line") << QPoint(600, 800) << QPoint(2000, 0) << QPoint(600, 800);
        QTest::newRow("to nothing") << QPoint(600, 800) << QPoint(0, 0) << QPoint(600, 800);
        QTest::newRow("no such place")
            << QPoint(3000, 3000) << QPoint(2000, 500) << QPoint(3000, 3000);
    }

    void theEndKeepsItsPlaceOnTheEllipse()
    {
        QFETCH(QPoint, before);
        QFETCH(QPoint, radii);
        QFETCH(QPoint, after);
        EditedFigure figure;
        auto* former = with(makeEllipse(0, 0, 1000, 1000), 1);
        OwnedList gone{former};
        FigEllipse* ellipse = figure.put(with(makeEllipse(0, 0, radii.x(), radii.y()), 1));
        ellipse->end = former->end;
        FigLine* line = figure.put(with(makeLine({{before.x(), before.y()}, {9, 9}}), 2));
        makeLink(line->points, 1);
        FigObjectList changed;
        adjust_links_resize_ellipse(&figure.ctx, ellipse, former, &figure.top(), &changed, nullptr);
        QCOMPARE(QPoint(line->points->x, line->points->y), after);
        QCOMPARE(changed.isEmpty(), before == after);
    }

    void anEllipsePulledThroughItsCentreFlipsTheEnd()
    {
        EditedFigure figure;
        auto* former = with(makeEllipse(0, 0, 1000, 1000), 1);
        OwnedList gone{former};
        FigEllipse* ellipse = figure.put(with(makeEllipse(0, 0, 1000, 1000), 1));
        FigLine* line = figure.put(with(makeLine({{600, 800}, {9, 9}}), 2));
        makeLink(line->points, 1);
        ellipse->end.x = -1000;
        adjust_links_resize_ellipse(&figure.ctx, ellipse, former, &figure.top(), nullptr, nullptr);
        QCOMPARE(at(line->points), QString("-600,800"));
        former->end = ellipse->end;
        ellipse->end.y = -1000;
        adjust_links_resize_ellipse(&figure.ctx, ellipse, former, &figure.top(), nullptr, nullptr);
        QCOMPARE(at(line->points), QString("-600,-800"));
    }

    void aCircleDoesNotFlipTheEnd()
    {
        EditedFigure figure;
        auto* former = with(makeEllipse(0, 0, 1000, 1000, 3), 1);
        OwnedList gone{former};
        FigEllipse* circle = figure.put(with(makeEllipse(0, 0, 500, 500, 3), 1));
        circle->end.x = -500;
        FigLine* line = figure.put(with(makeLine({{600, 800}, {9, 9}}), 2));
        makeLink(line->points, 1);
        adjust_links_resize_ellipse(&figure.ctx, circle, former, &figure.top(), nullptr, nullptr);
        QCOMPARE(at(line->points), QString("300,400"));
    }

    void theEndFollowsTheCentre()
    {
        EditedFigure figure;
        auto* former = with(makeEllipse(0, 0, 1000, 1000, 2), 1);
        OwnedList gone{former};
        FigEllipse* ellipse = figure.put(with(makeEllipse(500, 100, 1500, 1000, 2), 1));
        FigLine* line = figure.put(with(makeLine({{-1000, 0}, {9, 9}}), 2));
        makeLink(line->points, 1);
        adjust_links_resize_ellipse(&figure.ctx, ellipse, former, &figure.top(), nullptr, nullptr);
        QCOMPARE(at(line->points), QString("-1000,100"));
    }

    // A quarter turn against the clock puts the right end of the long axis on top.
    void aTurnedEllipseIsWorkedOutUpright()
    {
        EditedFigure figure;
        auto* former = with(makeEllipse(0, 0, 1000, 500), 1);
        OwnedList gone{former};
        FigEllipse* ellipse = figure.put(with(makeEllipse(0, 0, 2000, 500), 1));
        former->angle = ellipse->angle = static_cast<float>(M_PI / 2);
        FigLine* line = figure.put(with(makeLine({{0, -1000}, {500, 0}}), 2));
        makeLink(line->points, 1);
        makeLink(lastOf(line), 1);
        adjust_links_resize_ellipse(&figure.ctx, ellipse, former, &figure.top(), nullptr, nullptr);
        QCOMPARE(chain(line), QString("0,-2000 500,0"));
    }

    void ellipsesWithoutExtentAreNoHarm()
    {
        EditedFigure figure;
        auto* former = with(makeEllipse(0, 0, 0, 0), 1);
        OwnedList gone{former};
        FigEllipse* ellipse = figure.put(with(makeEllipse(0, 0, 700, 500), 1));
        FigLine* line = figure.put(with(makeLine({{0, 0}, {5, 5}}), 2));
        makeLink(line->points, 1);
        adjust_links_resize_ellipse(&figure.ctx, ellipse, former, &figure.top(), nullptr, nullptr);
        QCOMPARE(at(line->points), QString("0,0"));
        former->radiuses.y = former->end.y = line->points->y = 500;
        adjust_links_resize_ellipse(&figure.ctx, ellipse, former, &figure.top(), nullptr, nullptr);
        QCOMPARE(at(line->points), QString("0,500"));
    }

    void anEndOnAnEllipseThatWasFlatForAWhileIsRightAgain()
    {
        EditedFigure figure;
        FigEllipse* ellipse = figure.put(with(makeEllipse(0, 0, 1000, 1000), 1));
        FigLine* line = figure.put(with(makeLine({{600, 800}, {5, 5}}), 2));
        makeLink(line->points, 1);
        auto* action = actionOn<MoveEllipsePointAction>(ellipse, &figure.top());
        action->number = 1;
        action->dx = 1000;
        action->dy = -1000;
        figure.run(action);
        QCOMPARE(at(&ellipse->radiuses), QString("2000,0"));
        QCOMPARE(at(line->points), QString("600,800"));
        figure.undo();
        QCOMPARE(at(&ellipse->radiuses), QString("1000,1000"));
        QCOMPARE(at(line->points), QString("600,800"));
    }

    /// Of 20 000 random changes the end lies on the new outline within one unit; the distance is
    /// measured along the gradient, an independent way.
    void theEndStaysOnTheOutline()
    {
        std::mt19937 bits(4711);
        const auto between = [&bits](int low, int high) {
            return low + static_cast<int>(bits() % static_cast<unsigned>(high - low + 1));
        };
        for (int run = 0; run < 20000; ++run) {
            EditedFigure figure;
            auto* former = with(makeEllipse(0, 0, between(40, 5000), between(40, 5000)), 1);
            OwnedList gone{former};
            FigEllipse* ellipse = figure.put(
                with(makeEllipse(between(-99, 99), 50, between(40, 5000), between(40, 5000)), 1));
            const double angle = between(0, 6283) / 1000.0;
            const int x = qRound(former->radiuses.x * std::cos(angle));
            const int y = qRound(former->radiuses.y * std::sin(angle));
            FigLine* line = figure.put(with(makeLine({{x, y}, {9, 9}}), 2));
            makeLink(line->points, 1);
            adjust_links_resize_ellipse(&figure.ctx, ellipse, former, &figure.top(), nullptr,
                                        nullptr);
            const double a = ellipse->radiuses.x, b = ellipse->radiuses.y;
            const double u = (line->points->x - ellipse->center.x) / a;
            const double v = (line->points->y - ellipse->center.y) / b;
            const double excess = u * u + v * v - 1;
            const double gradient = 2 * std::hypot(u / a, v / b);
            QVERIFY2(std::fabs(excess / gradient) <= 1.0,
                     qPrintable(QString("run %1: (%2, %3) on %4 by %5 came to (%6, %7) on %8 by %9")
                                    .arg(run)
                                    .arg(x)
                                    .arg(y)
                                    .arg(former->radiuses.x)
                                    .arg(former->radiuses.y)
                                    .arg(line->points->x)
                                    .arg(line->points->y)
                                    .arg(a)
                                    .arg(b)));
        }
    }

    // --- a corner of the target is removed ------------------------------------------------------

    void linksTakeTheNeighboursOfARemovedCorner_data()
    {
        QTest::addColumn<int>("left");
        QTest::addColumn<int>("right");
        QTest::addColumn<int>("removed");
        QTest::addColumn<QString>("link");
        QTest::addColumn<int>("newLeft");
        QTest::addColumn<int>("newRight");
        // Corners 0 to 3 of a square; 4 repeats 0. The new ones by their old numbers.
        QTest::newRow("first, as left") << 0 << 1 << 0 << "1 2-0" << 3 << 1;
        QTest::newRow("inner, as left") << 1 << 2 << 1 << "1 0-1" << 0 << 2;
        QTest::newRow("last real, as left") << 3 << 0 << 3 << "1 2-0" << 2 << 0;
        QTest::newRow("inner, as right") << 0 << 1 << 1 << "1 0-1" << 0 << 2;
        QTest::newRow("last real, as right") << 2 << 3 << 3 << "1 2-0" << 2 << 0;
        QTest::newRow("first, as right") << 3 << 0 << 0 << "1 2-0" << 3 << 1;
        QTest::newRow("another one") << 1 << 2 << 3 << "1 1-2" << 1 << 2;
        QTest::newRow("one before") << 2 << 3 << 0 << "1 2-3" << 2 << 3;
    }

    void linksTakeTheNeighboursOfARemovedCorner()
    {
        QFETCH(int, left);
        QFETCH(int, right);
        QFETCH(int, removed);
        QFETCH(QString, link);
        QFETCH(int, newLeft);
        QFETCH(int, newRight);
        EditedFigure figure;
        FigLine* polygon = figure.put(with(makeBox(0, 0, 900, 900), 1));
        polygon->sub_type = T_POLYGON;
        FigLine* line = figure.put(with(makeLine({{0, 0}, {-9, -9}}), 2));
        FigLink* tied = tie(line->points, polygon, left, right);
        updateLinks4removedPoint(&figure.ctx, polygon, polygon, false, polygon->getPoint(removed));
        QCOMPARE(told(line->points->link), link);
        QCOMPARE(tied->targetLeftPoint, polygon->getPoint(newLeft));
        QCOMPARE(tied->targetRightPoint, polygon->getPoint(newRight));
    }

    void linksOnAnOpenTargetGoWithItsEnds_data()
    {
        QTest::addColumn<int>("left");
        QTest::addColumn<int>("right");
        QTest::addColumn<int>("removed");
        QTest::addColumn<QString>("link");
        QTest::newRow("first") << 0 << 1 << 0 << "none";
        QTest::newRow("last") << 1 << 2 << 2 << "none";
        QTest::newRow("inner, as left") << 1 << 2 << 1 << "1 0-1";
        QTest::newRow("inner, as right") << 0 << 1 << 1 << "1 0-1";
    }

    void linksOnAnOpenTargetGoWithItsEnds()
    {
        QFETCH(int, left);
        QFETCH(int, right);
        QFETCH(int, removed);
        EditedFigure figure;
        FigLine* target = figure.put(with(makeLine({{0, 0}, {900, 0}, {1800, 0}}), 1));
        FigLine* line = figure.put(with(makeLine({{0, 0}, {-9, -9}}), 2));
        tie(line->points, target, left, right);
        updateLinks4removedPoint(&figure.ctx, target, target, true, target->getPoint(removed));
        QTEST(told(line->points->link), "link");
    }

    void chainsTooShortForASegmentLoseTheLink()
    {
        EditedFigure figure;
        FigLine* target = figure.put(with(makeLine({{0, 0}, {0, 0}}, T_POLYGON), 1));
        FigLine* line = figure.put(with(makeLine({{0, 0}, {-9, -9}}), 2));
        tie(line->points, target, 0, 1);
        updateLinks4removedPoint(&figure.ctx, target, target, false, target->points);
        QVERIFY(!line->points->link);
        updateLinks4removedPoint(&figure.ctx, target, target, false, nullptr);
    }

    void linksFromOutsideTheWorkingRootAreNotUpdated()
    {
        EditedFigure figure;
        auto* polygon = with(makeBox(0, 0, 900, 900), 1);
        FigCompound* compound = figure.put(with(makeCompound({polygon}), 3));
        FigLine* line = figure.put(with(makeLine({{0, 0}, {-9, -9}}), 2));
        tie(line->points, polygon, 1, 2);
        figure.ctx.openCompoundObjects = compound->objects;
        updateLinks4removedPoint(&figure.ctx, polygon, polygon, false, polygon->getPoint(1));
        QCOMPARE(told(line->points->link), QString("1 1-2"));
    }

    // --- copies ----------------------------------------------------------------------------------

    void aCopiedCompoundKeepsItsTiesToTheOldTargets()
    {
        Connected figure;
        figure.top().removeOne(figure.line);
        FigCompound* compound = figure.put(with(makeCompound({figure.line}), 4));
        figure.ctx.nextId = 10;
        OwnedList copies{copy_compound(&figure.ctx, compound)};
        auto* copied =
            static_cast<FigLine*>(static_cast<FigCompound*>(copies.first())->objects->first());
        QCOMPARE(told(copied->points->link), QString("1 1-2"));
    }

    void aCopiedConnectorIsTiedToWhatWasCopiedWithIt()
    {
        Connected figure;
        figure.ctx.nextId = 10;
        FigObjectList pair{figure.left, figure.line};
        FigObjectList* copies = copyObjectsAndMaintainLinks(&figure.ctx, &pair);
        deleteDanglingLinks(copies, copies, false);
        auto* copied = static_cast<FigLine*>(copies->last());
        QCOMPARE(told(copied->points->link), QString("11 1-2"));
        QVERIFY(!lastOf(copied)->link);
        deleteObjectList(copies);
        delete copies;
    }
};

QTEST_GUILESS_MAIN(TestLinksFollow)
#include "test_e_links_follow.moc"
