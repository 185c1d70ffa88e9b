// Links for a whole drawing, by an action.
#include "ActionFixture.h"
#include "edit/e_compound.h"
#include "edit/e_links.h"

namespace {

/// A box from 1000 to 3000 and a connector whose first end lies on its left side.
struct LinkableFigure : EditedFigure {
    FigLine* box = put(with(
        makeLine({{1000, 1000}, {3000, 1000}, {3000, 3000}, {1000, 3000}, {1000, 1000}}, T_BOX),
        1));
    FigLine* connector = put(with(makeLine({{1000, 2000}, {100, 200}}), 2));
    FigLink*& link = connector->points->link;
};

} // namespace

class TestActionsLinks : public QObject {
    Q_OBJECT

private slots:
    void touchingEndsAreLinkedAndSetFree()
    {
        LinkableFigure figure;
        auto* action = figure.run(new CreateSmartLinksForDrawingAction(&figure.top()));
        QVERIFY(figure.link);
        QCOMPARE(figure.link->targetObjId, 1L);
        QCOMPARE(action->newLinks, (FigLinkList{figure.link}));
        QVERIFY(!figure.connector->points->next->link);
        figure.undo();
        QVERIFY(!figure.link);
        figure.redo();
        QVERIFY(figure.link);
        QCOMPARE(action->newLinks, (FigLinkList{figure.link}));
    }

    void linksFromBeforeComeBackOnUndo()
    {
        LinkableFigure figure;
        FigLink* former = makeLink(figure.connector->points->next, 99);
        auto* action = figure.run(new CreateSmartLinksForDrawingAction(&figure.top()));
        QVERIFY(!figure.connector->points->next->link);
        QCOMPARE(action->oldLinks, (FigLinkList{former}));
        figure.undo();
        QCOMPARE(figure.connector->points->next->link, former);
        QVERIFY(!figure.link);
    }

    // The others hang on points of the drawing.
    void disposalDeletesTheLinksThatAreOnNoPoint_data()
    {
        QTest::addColumn<QString>("history");
        QTest::addColumn<long>("target");
        QTest::newRow("in effect") << "" << 1L;
        QTest::newRow("undone") << "u" << 99L;
        QTest::newRow("redone") << "ur" << 1L;
        QTest::newRow("undone again") << "uru" << 99L;
    }

    void disposalDeletesTheLinksThatAreOnNoPoint()
    {
        QFETCH(QString, history);
        QFETCH(long, target);
        LinkableFigure figure;
        makeLink(figure.connector->points, 99);
        figure.run(new CreateSmartLinksForDrawingAction(&figure.top()));
        for (QChar step : history)
            step == 'u' ? figure.undo() : figure.redo();
        figure.queue().clearRedoList();
        figure.queue().clearUndoList();
        QVERIFY(figure.link);
        QCOMPARE(figure.link->targetObjId, target);
    }

    void theLinksOfTheWorkingListAloneAreTouched()
    {
        LinkableFigure figure;
        FigLink* outside = makeLink(figure.connector->points, 99);
        auto* inside = with(makeLine({{5000, 5000}, {6000, 6000}}), 4);
        auto* compound = figure.put(with(makeCompound({inside}), 3));
        makeLink(inside->points, 98);
        figure.run(new CreateSmartLinksForDrawingAction(compound->objects));
        QCOMPARE(figure.link, outside);
        QVERIFY(!inside->points->link);
        figure.undo();
        QVERIFY(inside->points->link);
    }

    // The search pulls an end exactly onto the outline, and undo leaves it there.
    void anEndThatWasPulledOntoTheOutlineStaysThere()
    {
        LinkableFigure figure;
        figure.connector->points->x = 1004;
        figure.run(new CreateSmartLinksForDrawingAction(&figure.top()));
        QCOMPARE(chain(figure.connector), QString("1000,2000 100,200"));
        figure.undo();
        QCOMPARE(chain(figure.connector), QString("1000,2000 100,200"));
    }

    // Nothing shows the connector any more when the links are taken back, but it still has one.
    void linksInAVanishedCompoundAreTakenBackAsWell()
    {
        LinkableFigure figure;
        auto* connector = with(makeLine({{1000, 1500}, {200, 300}}), 4);
        auto* box = with(
            makeLine({{1000, 1000}, {3000, 1000}, {3000, 3000}, {1000, 3000}, {1000, 1000}}, T_BOX),
            5);
        auto* compound = figure.put(with(makeCompound({connector, box}), 3));
        figure.run(new CreateSmartLinksForDrawingAction(&figure.top()));
        QVERIFY(connector->points->link);
        open_compound(&figure.ctx, compound);
        figure.run(new DeleteAction(connector, compound->objects));
        figure.run(new DeleteAction(box, compound->objects));
        close_compound(&figure.ctx, false);
        QCOMPARE(ids(figure.top()), QString("1 2"));
        for (int i = 0; i < 3; ++i)
            figure.undo();
        QVERIFY(!connector->points->link);
        for (int i = 0; i < 3; ++i)
            figure.redo();
        QVERIFY(!connector->points->link);
    }

    void aLinkMadeByTheActionOutlivesTheDeletionOfItsConnector()
    {
        LinkableFigure figure;
        figure.run(new CreateSmartLinksForDrawingAction(&figure.top()));
        figure.run(new DeleteAction(figure.connector, &figure.top()));
        figure.undo();
        figure.undo();
        QVERIFY(!figure.link);
        figure.redo();
        figure.redo();
        QCOMPARE(ids(figure.top()), QString("1"));
    }
};

QTEST_MAIN(TestActionsLinks)
#include "test_actions_links.moc"
