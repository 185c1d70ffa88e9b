// The tool that scales a compound by a corner or an edge of its box. The box that it holds spans
// (1200, 1200) to (2400, 1800) with the half pixel of the lines around it, 8 units at 80 dots per
// inch; it is grabbed there.
#include "ReshapingFixture.h"
#include "edit/e_scale_compound.h"
#include "edit/u_elastic.h"

namespace {

struct Scaling : ReshapedDocument {
    Scaling()
    {
        box = makeBox(1200, 1200, 2400, 1800);
        compound = putCompound({box});
        // Round numbers serve the eye; the tool takes the corners as they are stored.
        setCorners(1200, 1200, 2400, 1800);
        show();
        choose(CMD_SCALE_COMPOUND, scale_compound_selected);
    }
    void setCorners(int left, int top, int right, int bottom)
    {
        compound->nwcorner.x = left;
        compound->nwcorner.y = top;
        compound->secorner.x = right;
        compound->secorner.y = bottom;
    }
    bool isResting() const
    {
        return isIdle(init_scale_compound) && !canvas_leftbutUp_proc && !canvas_locmove_proc2 &&
               !ctx.movedObjects && oldElasticObjectList.isEmpty();
    }

    FigLine* box;
    FigCompound* compound;
};

QString corners(const FigLine* box)
{
    return at(box->points) + " " + at(box->points->next->next);
}

} // namespace

class TestScaleCompound : public QObject {
    Q_OBJECT

private slots:
    void aCornerKeepsTheProportions()
    {
        Scaling document;
        // 3000 - 1200 = 1800 across and 300 + 600 = 900 down: the diagonal's own direction.
        document.drag(2400, 1800, 3000, 2100);
        QCOMPARE(side, 4);
        QCOMPARE(corners(document.box), QString("1200,1200 3000,2100"));
        QCOMPARE(document.steps(), 1);
        QVERIFY(document.isResting());
        document.undo();
        QCOMPARE(corners(document.box), QString("1200,1200 2400,1800"));
    }

    // Length of (900, 1200) is 1500; cos is 2 / sqrt 5, sin 1 / sqrt 5: 1341.6 and 670.8.
    void thePointerOffTheDiagonalCountsByItsDistance()
    {
        Scaling document;
        document.left(2400, 1800);
        document.move(1200 + 900, 1200 + 1200);
        QCOMPARE(QPoint(cur_x, cur_y), QPoint(1200 + 1342, 1200 + 671));
        document.right(0, 0);
    }

    void aCornerPulledAcrossTheFixedPointMirrors()
    {
        Scaling document;
        document.drag(2400, 1800, 0, 600);
        QCOMPARE(corners(document.box), QString("1200,1200 0,600"));
    }

    // A difference of zero counts as a plus: straight up from the fixed point goes to the right.
    void straightAboveTheFixedPointTheCornerGoesRight()
    {
        Scaling document;
        document.left(2400, 1800);
        document.move(1200, 600); // 600 away: 536.7 and 268.3
        QCOMPARE(QPoint(cur_x, cur_y), QPoint(1737, 932));
        document.right(0, 0);
    }

    void eachCornerHoldsTheOppositeOne_data()
    {
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<QPoint>("fixed");
        QTest::newRow("upper left") << QPoint(1200, 1200) << QPoint(2400, 1800);
        QTest::newRow("upper right") << QPoint(2400, 1200) << QPoint(1200, 1800);
        QTest::newRow("lower left") << QPoint(1200, 1800) << QPoint(2400, 1200);
        QTest::newRow("lower right") << QPoint(2415, 1790) << QPoint(1200, 1200);
    }

    void eachCornerHoldsTheOppositeOne()
    {
        QFETCH(QPoint, press);
        QFETCH(QPoint, fixed);
        Scaling document;
        document.left(press.x(), press.y());
        QCOMPARE(side, 4);
        QCOMPARE(QPoint(fix_x, fix_y), fixed);
        QCOMPARE(QPoint(fromx, fromy), QPoint(3600, 3000) - fixed);
        QVERIFY(!canvas_leftbut_proc);
        QVERIFY(action_on);
        document.right(0, 0);
        QVERIFY(document.isResting());
    }

    // Not the pointer but a corner of the box moves.
    void anEdgeMovesOnItsOwnAxis_data()
    {
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<int>("grabbed");
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<QString>("result");
        QTest::newRow("left") << QPoint(1200, 1500) << 0 << QPoint(0, 900) << "0,1200 2400,1800";
        QTest::newRow("top") << QPoint(1800, 1200) << 1 << QPoint(0, 600) << "1200,600 2400,1800";
        QTest::newRow("right") << QPoint(2400, 1500) << 2 << QPoint(3000, 99)
                               << "1200,1200 3000,1800";
        QTest::newRow("bottom") << QPoint(1800, 1800) << 3 << QPoint(99, 2400)
                                << "1200,1200 2400,2400";
        QTest::newRow("right, across")
            << QPoint(2400, 1500) << 2 << QPoint(600, 1500) << "1200,1200 600,1800";
    }

    void anEdgeMovesOnItsOwnAxis()
    {
        QFETCH(QPoint, press);
        QFETCH(int, grabbed);
        QFETCH(QPoint, to);
        QFETCH(QString, result);
        Scaling document;
        document.drag(press.x(), press.y(), to.x(), to.y());
        QCOMPARE(side, grabbed);
        QCOMPARE(corners(document.box), result);
        QCOMPARE(document.steps(), 1);
        document.undo();
        QCOMPARE(corners(document.box), QString("1200,1200 2400,1800"));
    }

    // Kept: with snapping to the grid nothing is in proportion, and edges move both axes.
    void withSnappingToTheGridEdgesAndCornersAreFree()
    {
        Scaling document;
        gridPreferences.snapMode = 1;
        document.drag(2400, 1800, 3600, 1500);
        QCOMPARE(corners(document.box), QString("1200,1200 3600,1500"));
        document.undo();
        document.setCorners(1200, 1200, 2400, 1800);
        document.drag(2400, 1500, 3600, 2400);
        QCOMPARE(corners(document.box), QString("1200,1200 3600,2400"));
    }

    void aReleaseOnTheFixedLineFlattensAndUndoLeavesItFlat()
    {
        Scaling document;
        document.drag(2400, 1500, 1200, 1500);
        QCOMPARE(corners(document.box), QString("1200,1200 1200,1800"));
        document.undo();
        QCOMPARE(corners(document.box), QString("1200,1200 1200,1800"));
    }

    void aCompoundOfNoWidthOrHeightScalesOnTheOtherAxisAlone_data()
    {
        QTest::addColumn<QPoint>("end");
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<QString>("result");
        QTest::newRow("no width") << QPoint(1200, 2400) << QPoint(1500, 3600)
                                  << "1200,1200 1200,3600";
        QTest::newRow("no height")
            << QPoint(2400, 1200) << QPoint(3600, 1500) << "1200,1200 3600,1200";
    }

    void aCompoundOfNoWidthOrHeightScalesOnTheOtherAxisAlone()
    {
        QFETCH(QPoint, end);
        QFETCH(QPoint, to);
        QFETCH(QString, result);
        ReshapedDocument document;
        FigLine* line = makeLine({{1200, 1200}, {end.x(), end.y()}});
        FigCompound* compound = document.putCompound({line});
        compound->nwcorner = FigPoint(1200, 1200);
        compound->secorner = FigPoint(end.x(), end.y());
        gridPreferences.snapMode = 1;
        document.choose(CMD_SCALE_COMPOUND, scale_compound_selected);
        document.drag(end.x(), end.y(), to.x(), to.y());
        QCOMPARE(chain(line), result);
    }

    void aCompoundThatIsOnePointStaysAsItIs()
    {
        ReshapedDocument document;
        FigLine* dot = makeLine({{1200, 1200}});
        FigCompound* compound = document.putCompound({dot});
        compound->nwcorner = compound->secorner = FigPoint(1200, 1200);
        document.choose(CMD_SCALE_COMPOUND, scale_compound_selected);
        document.drag(1200, 1200, 3000, 2400);
        QCOMPARE(chain(dot), QString("1200,1200"));
        QCOMPARE(document.steps(), 1);
    }

    void aPressBesideCompoundsLeavesTheToolIdle()
    {
        Scaling document;
        document.put(makeLine({{600, 600}, {900, 600}}));
        const QString before = document.text();
        for (const QPoint& press : {QPoint(600, 600), QPoint(1800, 1500), QPoint(5000, 100)})
            document.drag(press.x(), press.y(), 3000, 3000);
        QVERIFY(document.messages().isEmpty());
        QCOMPARE(document.steps(), 0);
        QCOMPARE(document.text(), before);
        QVERIFY(document.isResting());
    }

    void theDocumentDoesNotChangeBeforeTheRelease()
    {
        Scaling document;
        FigLine* connector = document.put(makeLine({{2400, 1500}, {3000, 1500}}));
        tie(connector->points, document.box, 1, 2);
        const QString before = document.text();
        const QPoint corner(document.compound->secorner.x, document.compound->secorner.y);
        document.left(2400, 1800);
        for (int x : {2700, 3000, 1200, 0}) {
            document.move(x, 2400);
            QCOMPARE(document.text(), before);
            QCOMPARE(QPoint(document.compound->secorner.x, document.compound->secorner.y), corner);
            QCOMPARE(document.object(0), static_cast<FigObject*>(document.compound));
            QCOMPARE(document.compound->objects->first(), static_cast<FigObject*>(document.box));
        }
        document.right(0, 0);
        QCOMPARE(document.text(), before);
        QCOMPARE(document.steps(), 0);
    }

    void theRightButtonBringsThePictureBack()
    {
        Scaling document;
        FigLine* connector = document.put(makeLine({{2400, 1500}, {3000, 1500}}));
        tie(connector->points, document.box, 1, 2);
        // Its centre is not what its points give, which is what a scaling by 1 would find.
        document.compound->objects->append(
            with(makeArc({1500, 1500}, {1800, 1350}, {2100, 1500}, {1800, 1800}), 900));
        document.compound->objects->last()->thickness = 1;
        document.show();
        const QImage before = document.image;
        document.left(2400, 1800);
        document.move(3600, 2400);
        QVERIFY(document.image != before);
        document.right(3600, 2400);
        QCOMPARE(document.image, before);
        QVERIFY(document.isResting());
    }

    void thePictureOfEachStepIsWhatTheResultShows()
    {
        Scaling document;
        FigLine* connector = document.put(makeLine({{2400, 1500}, {3000, 1500}}));
        tie(connector->points, document.box, 1, 2);
        document.show();
        document.drag(2400, 1800, 3600, 2400);
        QCOMPARE(corners(document.box), QString("1200,1200 3600,2400"));
        QCOMPARE(at(connector->points), QString("3600,1800"));
        QVERIFY(document.showsWhatARedrawShows());
    }

    void aReleaseWithoutAMoveShowsWhatItDid()
    {
        Scaling document;
        FigLine* connector = document.put(makeLine({{2400, 1500}, {3000, 1500}}));
        tie(connector->points, document.box, 1, 2);
        document.show();
        document.left(2400, 1800);
        document.release(2160, 1680);
        QCOMPARE(corners(document.box), QString("1200,1200 2160,1680"));
        QVERIFY(document.showsWhatARedrawShows());
    }

    void aConnectorFromOutsideFollowsAndOneInsideScalesWithItsCompound()
    {
        ReshapedDocument document;
        FigLine* box = makeBox(1200, 1200, 2400, 1800);
        FigLine* inside = makeLine({{1800, 1800}, {1800, 1500}});
        FigCompound* compound = document.putCompound({box, inside});
        compound->nwcorner = FigPoint(1200, 1200);
        compound->secorner = FigPoint(2400, 1800);
        tie(inside->points, box, 2, 3);
        FigLine* outside = document.put(makeLine({{2400, 1500}, {3000, 1500}}));
        tie(outside->points, box, 1, 2);
        document.choose(CMD_SCALE_COMPOUND, scale_compound_selected);
        document.drag(2400, 1800, 3600, 2400);
        QCOMPARE(chain(outside), QString("3600,1800 3000,1500"));
        QCOMPARE(chain(inside), QString("2400,2400 2400,1800"));
        document.undo();
        QCOMPARE(chain(outside), QString("2400,1500 3000,1500"));
        QCOMPARE(chain(inside), QString("1800,1800 1800,1500"));
        document.redo();
        QCOMPARE(chain(outside), QString("3600,1800 3000,1500"));
    }

    void anEndWhoseTargetIsOutsideDoesNotScale()
    {
        ReshapedDocument document;
        FigLine* target = document.put(makeBox(3000, 1200, 3600, 1800));
        FigLine* connector = makeLine({{1200, 1200}, {3000, 1500}});
        FigCompound* compound = document.putCompound({connector});
        compound->nwcorner = FigPoint(1200, 1200);
        compound->secorner = FigPoint(3000, 1500);
        tie(lastOf(connector), target, 3, 0);
        document.choose(CMD_SCALE_COMPOUND, scale_compound_selected);
        document.drag(1200, 1200, 600, 1100);
        QCOMPARE(at(lastOf(connector)), QString("3000,1500"));
        QVERIFY(connector->points->x < 700);
    }

    void anObjectThatGoesInMidGestureEndsItWithoutAStep()
    {
        Scaling document;
        const QString before = document.text();
        document.left(2400, 1800);
        document.move(3600, 2400);
        document.ctx.curObject = nullptr; // Escape
        document.move(3000, 2100);
        document.release(3000, 2100);
        QCOMPARE(document.text(), before);
        QCOMPARE(document.steps(), 0);
        QVERIFY(document.isResting());
        QVERIFY(document.showsWhatARedrawShows());
    }

    void compoundsLinkedInACircleScale()
    {
        ReshapedDocument document;
        FigLine* first = makeLine({{1200, 1200}, {2400, 1800}});
        FigLine* second = makeLine({{1800, 1500}, {2400, 1200}});
        FigCompound* inner = makeCompound({second});
        FigCompound* compound = document.putCompound({first, inner});
        compound->nwcorner = FigPoint(1200, 1200);
        compound->secorner = FigPoint(2400, 1800);
        makeLink(first->points, second->id);
        makeLink(second->points, first->id);
        makeLink(lastOf(second), compound->id);
        makeLink(lastOf(first), inner->id);
        document.choose(CMD_SCALE_COMPOUND, scale_compound_selected);
        document.left(2400, 1800);
        const QString before = document.text();
        document.move(3600, 2400);
        QCOMPARE(document.text(), before);
        document.release(3600, 2400);
        QCOMPARE(document.steps(), 1);
        QCOMPARE(at(first->points), QString("1200,1200"));
    }
};

QTEST_MAIN(TestScaleCompound)
#include "test_e_scale_compound.moc"
