// The tool that deletes points by a click on them.
#include "ReshapingFixture.h"
#include "edit/e_deletept_tool.h"

namespace {

struct Deleting : ReshapedDocument {
    Deleting() { choose(CMD_DELETE_POINT, delete_point_selected); }
};

} // namespace

class TestDeletePointTool : public QObject {
    Q_OBJECT

private slots:
    void anInnerPointOfALineGoes()
    {
        Deleting document;
        FigLine* line = document.put(makeLine({{900, 900}, {1500, 1500}, {2100, 900}}));
        document.show();
        document.click(1510, 1490);
        QCOMPARE(chain(line), QString("900,900 2100,900"));
        QCOMPARE(document.steps(), 1);
        QVERIFY(document.showsWhatARedrawShows());
        QVERIFY(document.isIdle(point_search_left));
        document.undo();
        QCOMPARE(chain(line), QString("900,900 1500,1500 2100,900"));
        document.redo();
        QCOMPARE(chain(line), QString("900,900 2100,900"));
    }

    void endsOfALineGoUntilItIsADot()
    {
        Deleting document;
        FigLine* line = document.put(makeLine({{900, 900}, {1500, 1500}, {2100, 900}}));
        document.click(900, 900);
        QCOMPARE(chain(line), QString("1500,1500 2100,900"));
        document.click(2100, 900);
        QCOMPARE(chain(line), QString("1500,1500"));
        document.click(1500, 1500);
        QCOMPARE(document.messages(), QStringList("A dot must have at least 1 point"));
        QCOMPARE(chain(line), QString("1500,1500"));
        QCOMPARE(document.steps(), 2);
        document.undo();
        document.undo();
        QCOMPARE(chain(line), QString("900,900 1500,1500 2100,900"));
    }

    void aLineOfTwoPointsWithAnArrowRefuses()
    {
        for (bool forward : {true, false}) {
            Deleting document;
            FigLine* line = document.put(makeLine({{900, 900}, {2100, 900}}));
            (forward ? line->forward_arrow : line->backward_arrow) = new FigArrow;
            document.click(900, 900);
            QCOMPARE(document.messages(), QStringList("Delete the arrows first!"));
            QCOMPARE(chain(line), QString("900,900 2100,900"));
            QCOMPARE(document.steps(), 0);
        }
    }

    void aLongerLineWithAnArrowLosesAPoint()
    {
        Deleting document;
        FigLine* line = document.put(makeLine({{900, 900}, {1500, 1500}, {2100, 900}}));
        line->forward_arrow = new FigArrow;
        document.click(900, 900);
        QCOMPARE(chain(line), QString("1500,1500 2100,900"));
    }

    void cornersOfBoxesStay_data()
    {
        QTest::addColumn<int>("subType");
        QTest::newRow("box") << int(T_BOX);
        QTest::newRow("arc-box") << int(T_ARCBOX);
        QTest::newRow("picture") << int(T_PICTURE);
    }

    void cornersOfBoxesStay()
    {
        QFETCH(int, subType);
        Deleting document;
        FigLine* box = makeBox(600, 600, 1200, 1200);
        box->sub_type = subType;
        document.put(box);
        document.click(1200, 600);
        QCOMPARE(document.messages(), QStringList("Deleting box corners is not allowed"));
        QCOMPARE(document.steps(), 0);
        QCOMPARE(document.ctx.curObject, static_cast<FigObject*>(box));
    }

    void aTriangleStaysAndAPolygonOfFourCornersLosesOne()
    {
        Deleting document;
        FigLine* polygon = document.put(
            makeLine({{600, 600}, {1800, 600}, {1800, 1800}, {600, 1800}, {600, 600}}, T_POLYGON));
        document.click(1800, 1800);
        QCOMPARE(chain(polygon), QString("600,600 1800,600 600,1800 600,600"));
        document.click(1800, 600);
        QCOMPARE(document.messages(), QStringList("A polygon cannot have less than 3 points"));
        QCOMPARE(document.steps(), 1);
        document.undo();
        QCOMPARE(chain(polygon), QString("600,600 1800,600 1800,1800 600,1800 600,600"));
    }

    void theFirstCornerOfAPolygonTakesTheClosingCopyAlong()
    {
        Deleting document;
        FigLine* polygon = document.put(
            makeLine({{600, 600}, {1800, 600}, {1800, 1800}, {600, 1800}, {600, 600}}, T_POLYGON));
        document.show();
        document.click(600, 600);
        QCOMPARE(chain(polygon), QString("1800,600 1800,1800 600,1800 1800,600"));
        QVERIFY(document.showsWhatARedrawShows());
        document.undo();
        QCOMPARE(chain(polygon), QString("600,600 1800,600 1800,1800 600,1800 600,600"));
        QVERIFY(document.steps() == 0);
    }

    // The corner goes to the middle of its neighbours first, so the connector that sat in the
    // middle of a side lies on the diagonal that takes its place.
    void whatIsLinkedToTheTwoSidesComesToLieOnTheOneThatStays()
    {
        Deleting document;
        FigLine* polygon = document.put(
            makeLine({{600, 600}, {1800, 600}, {1800, 1800}, {600, 1800}, {600, 600}}, T_POLYGON));
        FigLine* connector = document.put(makeLine({{1200, 600}, {1200, 300}}));
        FigLink* link = tie(connector->points, polygon, 0, 1);
        document.show();
        document.click(1800, 600);
        QCOMPARE(chain(polygon), QString("600,600 1800,1800 600,1800 600,600"));
        QVERIFY(std::abs(connector->points->x - 900) <= 1);
        QVERIFY(std::abs(connector->points->y - 900) <= 1);
        QCOMPARE(told(link), QString("%1 0-1").arg(polygon->id));
        QVERIFY(document.showsWhatARedrawShows());
        document.undo();
        QCOMPARE(at(connector->points), QString("1200,600"));
        QCOMPARE(told(link), QString("%1 0-1").arg(polygon->id));
        document.redo();
        QVERIFY(std::abs(connector->points->x - 900) <= 1);
    }

    void withoutTheFirstCornerALinkGetsTheLastRealOneToItsLeft()
    {
        Deleting document;
        FigLine* polygon = document.put(
            makeLine({{600, 600}, {1800, 600}, {1800, 1800}, {600, 1800}, {600, 600}}, T_POLYGON));
        FigLine* connector = document.put(makeLine({{1200, 600}, {1200, 300}}));
        FigLink* link = tie(connector->points, polygon, 0, 1);
        FigPoint *last = polygon->getPoint(3), *second = polygon->getPoint(1);
        document.click(600, 600);
        QCOMPARE(link->targetLeftPoint, last);
        QCOMPARE(link->targetRightPoint, second);
        QCOMPARE(told(link), QString("%1 2-0").arg(polygon->id));
        document.undo();
        QCOMPARE(told(link), QString("%1 0-1").arg(polygon->id));
        QCOMPARE(at(connector->points), QString("1200,600"));
    }

    void splinesKeepTheirLeastPoints_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<int>("least");
        QTest::addColumn<QString>("message");
        const QString open = "A spline cannot have less than 2 points";
        const QString closed = "A closed spline cannot have less than 3 points";
        QTest::newRow("open approximated") << 0 << 2 << open;
        QTest::newRow("closed approximated") << 1 << 3 << closed;
        QTest::newRow("open interpolated") << 2 << 2 << open;
        QTest::newRow("closed interpolated") << 3 << 3 << closed;
    }

    void splinesKeepTheirLeastPoints()
    {
        QFETCH(int, subType);
        QFETCH(int, least);
        QFETCH(QString, message);
        Deleting document;
        FigSpline* spline =
            document.put(makeSpline({{600, 600}, {1800, 600}, {1800, 1800}, {600, 1800}}, subType));
        const QString before = document.text();
        while (document.messages().isEmpty())
            document.click(spline->points->x, spline->points->y);
        QCOMPARE(document.messages(), QStringList(message));
        QCOMPARE(spline->getNumPoints(), least);
        QCOMPARE(document.steps(), 4 - least);
        for (int i = least; i < 4; ++i)
            document.undo();
        QCOMPARE(document.text(), before);
    }

    void thePictureOfASplineIsWhatARedrawShows()
    {
        Deleting document;
        FigSpline* spline =
            document.put(makeSpline({{600, 600}, {1800, 600}, {1800, 1800}, {600, 1800}}));
        document.show();
        document.click(1800, 1800);
        QCOMPARE(chain(spline), QString("600,600 1800,600 600,1800"));
        QVERIFY(document.showsWhatARedrawShows());
    }

    void aLinkedEndThatIsDeletedTakesItsLinkAlongAndUndoBringsItBack()
    {
        Deleting document;
        FigLine* box = document.put(makeBox(2400, 600, 3000, 1200));
        FigLine* line = document.put(makeLine({{900, 900}, {1800, 1500}, {2400, 900}}));
        FigLink* link = tie(lastOf(line), box, 3, 0);
        document.click(2400, 900);
        QCOMPARE(chain(line), QString("900,900 1800,1500"));
        QVERIFY(!lastOf(line)->link);
        document.undo();
        QCOMPARE(lastOf(line)->link, link);
    }

    void otherObjectsAreIgnored()
    {
        Deleting document;
        document.put(makeEllipse(1500, 1500, 300, 300));
        document.put(makeArc({2400, 1500}, {2700, 1200}, {3000, 1500}, {2700, 1500}));
        document.putCompound({makeLine({{600, 600}, {900, 900}})});
        const QString before = document.text();
        for (const QPoint& place : {QPoint(1800, 1800), QPoint(2400, 1500), QPoint(592, 592)})
            document.click(place.x(), place.y());
        QCOMPARE(document.text(), before);
        QCOMPARE(document.steps(), 0);
        QVERIFY(document.messages().isEmpty());
    }

    void aClickOnNoPointDoesNothing()
    {
        Deleting document;
        document.put(makeLine({{900, 900}, {1500, 1500}, {2100, 900}}));
        const QString before = document.text();
        document.click(1200, 1200);
        document.click(4000, 4000);
        QCOMPARE(document.text(), before);
        QCOMPARE(document.steps(), 0);
    }
};

QTEST_MAIN(TestDeletePointTool)
#include "test_e_deletept_tool.moc"
