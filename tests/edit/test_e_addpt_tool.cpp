// The tool that adds points: a press puts one on an outline, a drag moves it on.
#include "ReshapingFixture.h"
#include "edit/e_addpt_tool.h"

namespace {

struct Adding : ReshapedDocument {
    Adding() { choose(CMD_ADD_POINT, point_adding_selected); }
    bool isResting() const
    {
        return isIdle(init_add_point) && !canvas_leftbutUp_proc && !canvas_middlebut_proc &&
               !ctx.addPointActions && !ctx.reshapedObject && !moved_pos &&
               oldElasticObjectList.isEmpty();
    }
};

QString factors(FigSpline* spline)
{
    QStringList all;
    for (FigShapeFactor* factor = spline->sfactors; factor; factor = factor->next)
        all.append(QString::number(factor->s));
    return all.join(' ');
}

} // namespace

class TestAddPointTool : public QObject {
    Q_OBJECT

private slots:
    void addingAndMovingIsOneStep()
    {
        Adding document;
        FigLine* line = document.put(makeLine({{900, 900}, {2100, 900}}));
        document.drag(1500, 915, 1500, 1500);
        QCOMPARE(chain(line), QString("900,900 1500,1500 2100,900"));
        QCOMPARE(document.steps(), 1);
        QVERIFY(document.isResting());
        document.undo();
        QCOMPARE(chain(line), QString("900,900 2100,900"));
        document.redo();
        QCOMPARE(chain(line), QString("900,900 1500,1500 2100,900"));
    }

    // Kept: the point stays in the object, and there is nothing to take back.
    void aClickWithoutAMoveLeavesThePointWithoutAStep()
    {
        Adding document;
        FigLine* line = document.put(makeLine({{900, 900}, {2100, 900}}));
        document.click(1500, 915);
        QCOMPARE(chain(line), QString("900,900 1500,900 2100,900"));
        QCOMPARE(document.steps(), 0);
        QVERIFY(document.isResting());
        document.undo();
        QCOMPARE(chain(line), QString("900,900 1500,900 2100,900"));
    }

    void theRightButtonTakesThePointOutAgain()
    {
        Adding document;
        FigLine* line = document.put(makeLine({{900, 900}, {2100, 900}}));
        document.show();
        const QImage before = document.image;
        document.left(1500, 900);
        document.move(1500, 1200);
        document.move(1650, 1500);
        QVERIFY(document.image != before);
        document.right(1650, 1500);
        QCOMPARE(chain(line), QString("900,900 2100,900"));
        QCOMPARE(document.steps(), 0);
        QVERIFY(document.isResting());
        QCOMPARE(document.image, before);
    }

    void theRightButtonTakesASplinesPointOutWithItsFactor()
    {
        Adding document;
        FigSpline* spline = document.put(makeSpline({{900, 900}, {1500, 1500}, {2100, 900}}));
        document.show();
        const QImage before = document.image;
        document.left(1200, 1200);
        document.move(1200, 1800);
        document.move(1200, 2100);
        document.right(1200, 2100);
        QCOMPARE(chain(spline), QString("900,900 1500,1500 2100,900"));
        QCOMPARE(factors(spline), QString("0 1 0"));
        QCOMPARE(document.image, before);
        QVERIFY(document.isResting());
    }

    void boxesTakeNoPoints_data()
    {
        QTest::addColumn<int>("subType");
        QTest::newRow("box") << int(T_BOX);
        QTest::newRow("arc-box") << int(T_ARCBOX);
        QTest::newRow("picture") << int(T_PICTURE);
    }

    void boxesTakeNoPoints()
    {
        QFETCH(int, subType);
        Adding document;
        FigLine* box = makeBox(600, 600, 1200, 1200);
        box->sub_type = subType;
        document.put(box);
        document.drag(900, 600, 900, 300);
        QCOMPARE(document.messages(), QStringList("Adding points to a box is not allowed"));
        QCOMPARE(chain(box), QString("600,600 1200,600 1200,1200 600,1200 600,600"));
        QCOMPARE(document.steps(), 0);
        QVERIFY(document.isResting());
    }

    void aPressOnNothingOrOnOtherObjectsDoesNothing()
    {
        Adding document;
        document.put(makeEllipse(1500, 1500, 300, 300));
        const QString before = document.text();
        document.drag(1800, 1500, 2100, 1500);
        document.drag(4000, 3000, 4100, 3000);
        QCOMPARE(document.text(), before);
        QCOMPARE(document.steps(), 0);
        QVERIFY(document.isResting());
    }

    void aPressOnAnEndOfAnOpenLineMakesANewEnd()
    {
        Adding document;
        FigLine* line = document.put(makeLine({{900, 900}, {2100, 900}}));
        document.drag(900, 900, 600, 1200);
        QCOMPARE(chain(line), QString("600,1200 900,900 2100,900"));
        document.drag(2100, 900, 2400, 1200);
        QCOMPARE(chain(line), QString("600,1200 900,900 2100,900 2400,1200"));
        document.undo();
        document.undo();
        QCOMPARE(chain(line), QString("900,900 2100,900"));
    }

    void aDotBecomesALine()
    {
        Adding document;
        FigLine* dot = document.put(makeLine({{900, 900}}));
        document.drag(900, 900, 1500, 900);
        QCOMPARE(chain(dot), QString("1500,900 900,900"));
    }

    // A new end has one neighbour, so the constraint modes bend it: straight to the left here.
    void aNewEndFollowsTheConstraintModesAndAnInnerPointDoesNot()
    {
        Adding document;
        FigLine* line = document.put(makeLine({{1500, 1500}, {2100, 1500}}));
        manhattan_mode = 1;
        document.show();
        document.drag(1500, 1500, 900, 1650);
        QCOMPARE(chain(line), QString("900,1500 1500,1500 2100,1500"));
        QVERIFY(document.showsWhatARedrawShows());
        document.drag(1800, 1500, 1905, 1905);
        QCOMPARE(chain(line), QString("900,1500 1500,1500 1905,1905 2100,1500"));
    }

    void theCancelOfAConstrainedEndWipesTheRubberLine()
    {
        Adding document;
        FigLine* line = document.put(makeLine({{1500, 1500}, {2100, 1500}}));
        document.show();
        const QImage before = document.image;
        manhattan_mode = 1;
        document.left(1500, 1500);
        document.move(900, 1650);
        document.move(600, 1650);
        document.right(600, 1650);
        QCOMPARE(chain(line), QString("1500,1500 2100,1500"));
        QCOMPARE(document.image, before);
        QVERIFY(document.isResting());
    }

    void thePointOfAPolygonsFirstCornerGoesAfterIt()
    {
        Adding document;
        FigLine* polygon =
            document.put(makeLine({{600, 600}, {1800, 600}, {1800, 1800}, {600, 600}}, T_POLYGON));
        document.drag(600, 600, 900, 300);
        QCOMPARE(chain(polygon), QString("600,600 900,300 1800,600 1800,1800 600,600"));
        document.undo();
        QCOMPARE(chain(polygon), QString("600,600 1800,600 1800,1800 600,600"));
    }

    void aPointOnTheClosingSegmentStaysBeforeTheClosingCopy()
    {
        Adding document;
        FigLine* polygon =
            document.put(makeLine({{600, 600}, {1800, 600}, {600, 1800}, {600, 600}}, T_POLYGON));
        document.drag(600, 1200, 300, 1200);
        QCOMPARE(chain(polygon), QString("600,600 1800,600 600,1800 300,1200 600,600"));
    }

    // The new point of a spline stands where the press was, not on the segment.
    void aSplineTakesThePointAtThePress()
    {
        Adding document;
        FigSpline* spline = document.put(makeSpline({{900, 900}, {1500, 900}, {2100, 900}}));
        document.click(1200, 915);
        QCOMPARE(chain(spline), QString("900,900 1200,915 1500,900 2100,900"));
        QCOMPARE(factors(spline), QString("0 1 1 0"));
        QCOMPARE(document.steps(), 0);
    }

    void aSplinesNewEndTakesTheFactorZero()
    {
        Adding document;
        FigSpline* spline = document.put(makeSpline({{900, 900}, {1500, 900}, {2100, 900}}, 2));
        document.drag(900, 900, 600, 600);
        QCOMPARE(chain(spline), QString("600,600 900,900 1500,900 2100,900"));
        QCOMPARE(factors(spline), QString("0 -1 -1 0"));
        document.undo();
        QCOMPARE(factors(spline), QString("0 -1 0"));
        QCOMPARE(document.steps(), 0);
    }

    void aClosedSplineTakesAPoint()
    {
        Adding document;
        FigSpline* spline = document.put(makeSpline({{600, 600}, {1800, 600}, {1200, 1800}}, 1));
        document.show();
        document.drag(1200, 600, 1200, 300);
        QCOMPARE(chain(spline), QString("600,600 1200,300 1800,600 1200,1800"));
        QCOMPARE(factors(spline), QString("1 1 1 1"));
        QVERIFY(document.showsWhatARedrawShows());
    }

    // The connector sits at three quarters of the side; the new corner at its middle moves away.
    void aLinkOnTheDividedSegmentStaysOnItsHalf()
    {
        Adding document;
        FigLine* polygon =
            document.put(makeLine({{600, 600}, {1800, 600}, {1800, 1800}, {600, 600}}, T_POLYGON));
        FigLine* connector = document.put(makeLine({{1500, 600}, {1500, 300}}));
        FigLink* link = tie(connector->points, polygon, 0, 1);
        document.drag(1200, 600, 1200, 900);
        QCOMPARE(chain(polygon), QString("600,600 1200,900 1800,600 1800,1800 600,600"));
        QCOMPARE(told(link), QString("%1 1-2").arg(polygon->id));
        QCOMPARE(connector->points->link, link);
        // Half way along (1200, 900) to (1800, 600), within the rounding of a turn.
        QVERIFY(std::abs(connector->points->x - 1500) <= 1);
        QVERIFY(std::abs(connector->points->y - 750) <= 1);
        document.undo();
        QCOMPARE(told(link), QString("%1 0-1").arg(polygon->id));
        QCOMPARE(at(connector->points), QString("1500,600"));
    }

    void aNewEndDroppedOnABoxIsLinked()
    {
        Adding document;
        FigLine* box = document.put(makeBox(2400, 600, 3000, 1200));
        FigLine* line = document.put(makeLine({{900, 900}, {1800, 900}}));
        document.drag(1800, 900, 2385, 900);
        QCOMPARE(chain(line), QString("900,900 1800,900 2400,900"));
        QVERIFY(lastOf(line)->link);
        QCOMPARE(lastOf(line)->link->targetObjId, box->id);
        document.undo();
        QCOMPARE(chain(line), QString("900,900 1800,900"));
        document.redo();
        QVERIFY(lastOf(line)->link);
    }

    // Beyond the press, which puts the point in for good, nothing changes before the release.
    void theDragChangesOnlyThePicture()
    {
        Adding document;
        document.put(makeLine({{900, 900}, {2100, 900}}));
        document.left(1500, 900);
        document.move(1500, 1000);
        const QString pressed = document.text();
        for (int y : {1200, 1500, 600}) {
            document.move(1500, y);
            QCOMPARE(document.text(), pressed);
        }
        document.right(0, 0);
    }

    void anObjectThatGoesInMidGestureEndsIt()
    {
        Adding document;
        FigLine* line = document.put(makeLine({{900, 900}, {2100, 900}}));
        document.show();
        document.left(1500, 900);
        document.move(1500, 1200);
        document.move(1500, 1500);
        document.ctx.curObject = nullptr; // Escape
        document.release(1500, 1500);
        QVERIFY(document.isResting());
        QCOMPARE(document.steps(), 0);
        QCOMPARE(chain(line), QString("900,900 1500,900 2100,900"));
        QVERIFY(document.showsWhatARedrawShows());
    }
};

QTEST_MAIN(TestAddPointTool)
#include "test_e_addpt_tool.moc"
