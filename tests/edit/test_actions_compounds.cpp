// Compounds made and broken by actions, also while they are open, and compounds that vanished.
#include "ActionFixture.h"
#include "edit/e_compound.h"

namespace {

/// A line with an id.
FigLine* piece(long id, int depth = 50)
{
    return with(makeLine({{0, 0}, {100, static_cast<int>(id)}}), id, depth);
}

/// A compound that is not in the figure, of objects that are in its own list.
FigCompound* compoundOf(long id, std::initializer_list<FigObject*> members)
{
    return with(makeCompound(members), id);
}

} // namespace

class TestActionsCompounds : public QObject {
    Q_OBJECT

private slots:
    void creatingTakesTheMembersOutOfTheListAndUndoPutsThemLast()
    {
        EditedFigure figure;
        auto* first = figure.put(piece(1, 10));
        figure.put(piece(2, 20));
        auto* third = figure.put(piece(3, 30));
        figure.run(new CreateCompoundAction(compoundOf(4, {first, third}), &figure.top()));
        QCOMPARE(ids(figure.top()), QString("2 4(1 3)"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("2 1 3"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.redo();
        QCOMPARE(ids(figure.top()), QString("2 4(1 3)"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    // Members that the table lost would not be drawn.
    void theDepthsOfTheMembersStayCountedAllTheTime()
    {
        EditedFigure figure;
        auto* first = figure.put(piece(1, 10));
        auto* second = figure.put(piece(2, 900));
        CreateCompoundAction action(compoundOf(3, {first, second}), &figure.top());
        action.execute(&figure.ctx);
        QCOMPARE(figure.ctx.max_depth, 900);
        QCOMPARE(depthTableError(&figure.ctx), QString());
        action.undo(&figure.ctx);
        QCOMPARE(figure.ctx.max_depth, 900);
        QCOMPARE(depthTableError(&figure.ctx), QString());
        action.disposeAsRedo();
    }

    void aNestedCompoundIsCreatedInTheListOfTheOneAround()
    {
        EditedFigure figure;
        auto* member = piece(2, 70);
        auto* outer = figure.put(compoundOf(1, {member, piece(3, 80)}));
        figure.run(new CreateCompoundAction(compoundOf(4, {member}), outer->objects));
        QCOMPARE(ids(figure.top()), QString("1(3 4(2))"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("1(3 2)"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void theShellOfAnUndoneCompoundDiesWithoutItsMembers()
    {
        int deaths = 0;
        EditedFigure figure;
        auto* member = figure.put(new MortalObject(&deaths));
        figure.run(new CreateCompoundAction(compoundOf(2, {member}), &figure.top()));
        figure.undo();
        figure.queue().clearRedoList();
        QCOMPARE(deaths, 0);
        QCOMPARE(figure.top().size(), 1);
    }

    void undoOfTheCreationOfTheOpenCompoundClosesIt()
    {
        EditedFigure figure;
        auto* member = figure.put(piece(1));
        auto* compound = compoundOf(2, {member});
        figure.run(new CreateCompoundAction(compound, &figure.top()));
        open_compound(&figure.ctx, compound);
        figure.undo();
        QVERIFY(!figure.ctx.openCompoundObjects);
        QVERIFY(!figure.ctx.curObject);
        QVERIFY(!compound->tagged);
        QCOMPARE(ids(figure.top()), QString("1"));
    }

    void undoOfTheCreationClosesTheCompoundsInsideAsWell()
    {
        EditedFigure figure;
        auto* inner = compoundOf(2, {piece(1)});
        auto* middle = figure.put(compoundOf(3, {inner}));
        auto* outer = compoundOf(4, {middle});
        figure.run(new CreateCompoundAction(outer, &figure.top()));
        figure.ctx.openCompoundObjects = inner->objects;
        figure.undo();
        QVERIFY(!figure.ctx.openCompoundObjects);
        QCOMPARE(ids(figure.top()), QString("3(2(1))"));
    }

    void undoOfTheCreationLeavesACompoundAroundOpen()
    {
        EditedFigure figure;
        auto* member = piece(1);
        auto* around = figure.put(compoundOf(3, {member}));
        auto* created = compoundOf(2, {member});
        figure.run(new CreateCompoundAction(created, around->objects));
        figure.ctx.openCompoundObjects = created->objects;
        figure.undo();
        QCOMPARE(figure.ctx.openCompoundObjects, around->objects);
        QVERIFY(!figure.ctx.curObject);
        figure.redo();
        QCOMPARE(figure.ctx.openCompoundObjects, around->objects);
    }

    void anotherCompoundStaysOpenAndItsObjectCurrent()
    {
        EditedFigure figure;
        auto* inside = piece(5);
        auto* other = figure.put(compoundOf(4, {inside}));
        auto* member = figure.put(piece(1));
        figure.run(new CreateCompoundAction(compoundOf(2, {member}), &figure.top()));
        open_compound(&figure.ctx, other);
        figure.ctx.curObject = inside;
        figure.undo();
        QCOMPARE(figure.ctx.openCompoundObjects, other->objects);
        QCOMPARE(figure.ctx.curObject, inside);
    }

    void theCreatedCompoundIsNotTheCurrentObjectAfterUndo()
    {
        EditedFigure figure;
        auto* member = figure.put(piece(1));
        auto* compound = compoundOf(2, {member});
        figure.run(new CreateCompoundAction(compound, &figure.top()));
        figure.ctx.curObject = compound;
        figure.undo();
        QVERIFY(!figure.ctx.curObject);
    }

    void breakingIsTheReverseOfCreating()
    {
        EditedFigure figure;
        auto* compound = figure.put(compoundOf(3, {piece(1, 10), piece(2, 20)}));
        figure.put(piece(4));
        figure.run(new BreakCompoundAction(compound, &figure.top()));
        QCOMPARE(ids(figure.top()), QString("4 1 2"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("4 3(1 2)"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.redo();
        QCOMPARE(ids(figure.top()), QString("4 1 2"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void theShellOfABrokenCompoundDiesWithoutItsMembers()
    {
        int deaths = 0;
        {
            EditedFigure figure;
            auto* compound = figure.put(compoundOf(2, {new MortalObject(&deaths)}));
            figure.run(new BreakCompoundAction(compound, &figure.top()));
            figure.queue().clearUndoList();
            QCOMPARE(deaths, 0);
            QCOMPARE(figure.top().size(), 1);
        }
        QCOMPARE(deaths, 1);
    }

    void redoOfABreakClosesTheOpenCompoundAndClearsTheCurrentObject()
    {
        EditedFigure figure;
        auto* compound = figure.put(compoundOf(2, {piece(1)}));
        figure.run(new BreakCompoundAction(compound, &figure.top()));
        figure.undo();
        open_compound(&figure.ctx, compound);
        figure.redo();
        QVERIFY(!figure.ctx.openCompoundObjects);
        QVERIFY(!figure.ctx.curObject);
        QCOMPARE(ids(figure.top()), QString("1"));
    }

    void twoCompoundsBreakInOneStep()
    {
        EditedFigure figure;
        auto* first = figure.put(compoundOf(2, {piece(1)}));
        auto* second = figure.put(compoundOf(4, {piece(3)}));
        auto* step = new QList<ActionItem*>{new BreakCompoundAction(first, &figure.top()),
                                            new BreakCompoundAction(second, &figure.top())};
        executeActions(&figure.ctx, step);
        figure.queue().addActionList(step);
        QCOMPARE(ids(figure.top()), QString("1 3"));
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("4(3) 2(1)"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    // --- compounds that were closed without members ------------------------------------

    // Undo puts the members into a list that nothing shows any more.
    void undoOfDeletionsInAVanishedCompoundPutsThemWhereNobodySees()
    {
        EditedFigure figure;
        auto* member = piece(1);
        auto* compound = figure.put(compoundOf(2, {member}));
        open_compound(&figure.ctx, compound);
        figure.run(new DeleteAction(member, compound->objects));
        close_compound(&figure.ctx, false);
        QCOMPARE(ids(figure.top()), QString());
        figure.undo();
        QCOMPARE(ids(figure.top()), QString());
        QCOMPARE(ids(*compound->objects), QString("1"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.redo();
        QCOMPARE(ids(*compound->objects), QString());
    }

    void undoOfTheCreationOfAVanishedCompoundBringsItsMembersBack()
    {
        EditedFigure figure;
        auto* member = figure.put(piece(1, 77));
        auto* compound = compoundOf(2, {member});
        figure.run(new CreateCompoundAction(compound, &figure.top()));
        open_compound(&figure.ctx, compound);
        figure.run(new DeleteAction(member, compound->objects));
        close_compound(&figure.ctx, false);
        figure.undo();
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("1"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
        QVERIFY(figure.ctx.vanishedCompounds.isEmpty());
        figure.redo();
        QCOMPARE(ids(figure.top()), QString("2(1)"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void aVanishedMemberComesBackWithTheCompoundAroundIt()
    {
        EditedFigure figure;
        auto* member = piece(1, 77);
        auto* inner = compoundOf(2, {member});
        auto* outer = figure.put(compoundOf(3, {inner, piece(4)}));
        figure.run(new BreakCompoundAction(outer, &figure.top()));
        open_compound(&figure.ctx, inner);
        figure.run(new DeleteAction(member, inner->objects));
        close_compound(&figure.ctx, false);
        QCOMPARE(ids(figure.top()), QString("4"));
        figure.undo();
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("3(2(1) 4)"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    // Each frees its own: the inner one belongs to the list it came back into.
    void vanishedCompoundsInEachOtherDieOnce()
    {
        EditedFigure figure;
        auto* outer = figure.put(compoundOf(1, {}));
        auto* member = piece(3);
        auto* inner = compoundOf(2, {member});
        open_compound(&figure.ctx, outer);
        figure.run(new AddAction(inner, outer->objects));
        open_compound(&figure.ctx, inner);
        figure.run(new DeleteAction(member, inner->objects));
        close_compound(&figure.ctx, false);
        close_compound(&figure.ctx, false);
        QCOMPARE(figure.ctx.vanishedCompounds.size(), 2);
        figure.undo();
        figure.undo();
        QCOMPARE(figure.ctx.vanishedCompounds, (QLinkedList<FigCompound*>{outer}));
        figure.redo();
        QCOMPARE(ids(*outer->objects), QString("2(3)"));
        QCOMPARE(ids(figure.top()), QString());
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }
};

QTEST_MAIN(TestActionsCompounds)
#include "test_actions_compounds.moc"
