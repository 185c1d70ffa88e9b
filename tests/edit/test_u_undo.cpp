#include "ActionFixture.h"
#include "edit/command.h"
#include "edit/e_arrow.h"
#include "edit/e_clipboard.h"
#include "edit/e_compound.h"
#include "edit/e_copy.h"
#include "edit/mode.h"

#include <memory>

namespace {

/// Notes what happens to it, and when it dies.
class NotingAction : public ActionItem {
public:
    NotingAction(QStringList* log, const QString& name) : notes(log), label(name) {}
    ~NotingAction() override { notes->append("gone " + label); }
    void disposeAsUndo() override { notes->append("undo " + label); }
    void disposeAsRedo() override { notes->append("redo " + label); }
    bool execute(CFigContext*) override
    {
        notes->append("do " + label);
        return true;
    }
    bool undo(CFigContext*) override
    {
        notes->append("take back " + label);
        return true;
    }

private:
    QStringList* notes;
    QString label;
};

/// Neither does anything; it only tells when the current object has to go.
class ResettingAction : public ActionItem {
public:
    bool resetCurObjectOnExecute() override { return onExecute; }
    bool resetCurObjectOnUndo() override { return onUndo; }

    bool onExecute = false, onUndo = false;
};

/// A step of two noting actions.
void addPair(UndoQueue* queue, QStringList* log)
{
    auto* step = new QList<ActionItem*>;
    step->append(new NotingAction(log, "a"));
    step->append(new NotingAction(log, "b"));
    queue->addActionList(step);
}

QRect corners(const FigCompound* compound)
{
    return QRect(QPoint(compound->nwcorner.x, compound->nwcorner.y),
                 QPoint(compound->secorner.x, compound->secorner.y));
}

} // namespace

class TestUndoQueue : public QObject {
    Q_OBJECT

private slots:
    void nullsAreIgnored()
    {
        CFigContext ctx;
        ctx.undoQueue.addAction(nullptr);
        ctx.undoQueue.addActionList(nullptr);
        QVERIFY(!ctx.modified);
    }

    void addingMarksTheDocumentModified()
    {
        QStringList log;
        CFigContext ctx;
        ctx.undoQueue.addAction(new NotingAction(&log, "a"));
        QVERIFY(ctx.modified);
    }

    void aTransactionIsDisposedFromLastToFirst()
    {
        QStringList log;
        {
            CFigContext ctx;
            auto* step = new QList<ActionItem*>;
            step->append(new NotingAction(&log, "a"));
            step->append(new NotingAction(&log, "b"));
            ctx.undoQueue.addActionList(step);
        }
        QCOMPARE(log, (QStringList{"undo b", "gone b", "undo a", "gone a"}));
    }

    void theOldestTransactionGoesWhenTheLimitIsPassed()
    {
        QStringList log;
        CFigContext ctx;
        UndoQueue queue(&ctx, 2);
        for (const char* name : {"a", "b", "c"})
            queue.addAction(new NotingAction(&log, name));
        QCOMPARE(log, (QStringList{"undo a", "gone a"}));
    }

    void clearingGoesFromTheNewestStepToTheOldest()
    {
        QStringList log;
        CFigContext ctx;
        UndoQueue queue(&ctx);
        for (const char* name : {"a", "b"})
            queue.addAction(new NotingAction(&log, name));
        queue.clearUndoList();
        QCOMPARE(log, (QStringList{"undo b", "gone b", "undo a", "gone a"}));
    }

    // --- undo and redo --------------------------------------------------------------

    void undoRunsAStepFromLastToFirstAndRedoFromFirstToLast()
    {
        QStringList log;
        EditedFigure figure;
        addPair(&figure.queue(), &log);
        figure.undo();
        figure.redo();
        QCOMPARE(log, (QStringList{"take back b", "take back a", "do a", "do b"}));
    }

    void undoAndRedoOfNothingDoNothing()
    {
        EditedFigure figure;
        figure.undo();
        figure.redo();
        QVERIFY(!figure.ctx.modified);
        QVERIFY(recordingShell.panels.isEmpty());
    }

    void stepsComeBackInTheReverseOrder()
    {
        QStringList log;
        EditedFigure figure;
        for (const char* name : {"a", "b"})
            figure.queue().addAction(new NotingAction(&log, name));
        figure.undo();
        figure.undo();
        figure.undo();
        figure.redo();
        QCOMPARE(log, (QStringList{"take back b", "take back a", "do a"}));
        QCOMPARE(figure.queue().undoCount(), 1);
        QCOMPARE(figure.queue().redoCount(), 1);
    }

    void undoAndRedoMarkTheDocumentModified()
    {
        QStringList log;
        EditedFigure figure;
        figure.queue().addAction(new NotingAction(&log, "a"));
        figure.ctx.resetModifiedflag();
        figure.undo();
        QVERIFY(figure.ctx.modified);
        figure.ctx.resetModifiedflag();
        figure.redo();
        QVERIFY(figure.ctx.modified);
    }

    // A Delete with nothing selected makes one.
    void anEmptyStepClearsTheRedoListAndCountsAsAChange()
    {
        QStringList log;
        EditedFigure figure;
        figure.queue().addAction(new NotingAction(&log, "a"));
        figure.undo();
        log.clear();
        figure.queue().addActionList(new QList<ActionItem*>);
        QCOMPARE(log, (QStringList{"redo a", "gone a"}));
        figure.ctx.resetModifiedflag();
        figure.undo();
        QVERIFY(figure.ctx.modified);
        QCOMPARE(figure.queue().redoCount(), 1);
    }

    void aNewActionDisposesWhatCouldBeRedone()
    {
        int deaths = 0;
        EditedFigure figure;
        figure.run(new AddAction(new MortalObject(&deaths), &figure.top()));
        figure.undo();
        QCOMPARE(deaths, 0);
        figure.run(new AddAction(makeLine({{1, 2}, {3, 4}}), &figure.top()));
        QCOMPARE(deaths, 1);
        QCOMPARE(figure.queue().redoCount(), 0);
    }

    // --- the limit ----------------------------------------------------------------------

    void the10001stStepDropsTheOldestWhoseDeletedObjectIsFreed()
    {
        int deaths = 0;
        EditedFigure figure;
        auto* object = figure.put(new MortalObject(&deaths));
        figure.run(new DeleteAction(object, &figure.top()));
        for (int i = 1; i < 10000; ++i)
            figure.queue().addAction(new ActionItem);
        QCOMPARE(figure.queue().undoCount(), 10000);
        QCOMPARE(deaths, 0);
        figure.queue().addAction(new ActionItem);
        QCOMPARE(figure.queue().undoCount(), 10000);
        QCOMPARE(deaths, 1);
    }

    // Only addActionList looks at the limit, so redo fills up whatever undo has taken off.
    void redoDropsNothingWhenItReachesTheLimit()
    {
        QStringList log;
        CFigContext ctx;
        UndoQueue queue(&ctx, 2);
        for (const char* name : {"a", "b"})
            queue.addAction(new NotingAction(&log, name));
        queue.undo();
        queue.undo();
        queue.redo();
        queue.redo();
        QCOMPARE(queue.undoCount(), 2);
        QVERIFY(!log.contains("gone a"));
    }

    // --- the current object ----------------------------------------------------------------

    void undoOfItsCreationClearsTheCurrentObjectAndItsPanel()
    {
        EditedFigure figure;
        auto* line = with(makeLine({{1, 2}, {3, 4}}), 1);
        figure.run(new AddAction(line, &figure.top()));
        figure.ctx.curObject = line;
        figure.undo();
        QVERIFY(!figure.ctx.curObject);
        QCOMPARE(recordingShell.panels, (QStringList{"attributes 0", "buttons"}));
    }

    void redoOfItsDeletionClearsTheCurrentObject()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{1, 2}, {3, 4}}), 1));
        figure.run(new DeleteAction(line, &figure.top()));
        figure.undo();
        figure.ctx.curObject = line;
        figure.redo();
        QVERIFY(!figure.ctx.curObject);
        QCOMPARE(recordingShell.panels.last(), QString("buttons"));
        QCOMPARE(recordingShell.panels.at(recordingShell.panels.size() - 2),
                 QString("attributes 0"));
    }

    void anotherCurrentObjectStays()
    {
        EditedFigure figure;
        auto* kept = figure.put(with(new FigEllipse, 1));
        figure.run(new AddAction(with(makeLine({{1, 2}, {3, 4}}), 2), &figure.top()));
        figure.ctx.curObject = kept;
        figure.undo();
        QCOMPARE(figure.ctx.curObject, kept);
        QCOMPARE(recordingShell.panels, (QStringList{"attributes 1", "buttons"}));
    }

    void theQuestionsOfAnActionDecideAboutItsOwnObject()
    {
        EditedFigure figure;
        auto* object = figure.put(with(new FigEllipse, 1));
        for (bool asked : {false, true}) {
            auto* action = actionOn<ResettingAction>(object, &figure.top());
            action->onUndo = action->onExecute = asked;
            figure.queue().addAction(action);
            figure.ctx.curObject = object;
            figure.undo();
            QCOMPARE(figure.ctx.curObject == nullptr, asked);
            figure.ctx.curObject = object;
            figure.redo();
            QCOMPARE(figure.ctx.curObject == nullptr, asked);
        }
    }

    void aCurrentObjectThatIsInNoListBecomesNull()
    {
        EditedFigure figure;
        const std::unique_ptr<FigLine> stranger(makeLine({{1, 2}, {3, 4}}));
        figure.queue().addAction(new ActionItem);
        figure.ctx.curObject = stranger.get();
        figure.undo();
        QVERIFY(!figure.ctx.curObject);
    }

    void aMemberOfACompoundMayBeTheCurrentObject()
    {
        EditedFigure figure;
        auto* member = with(makeLine({{1, 2}, {3, 4}}), 2);
        figure.put(with(makeCompound({member}), 1));
        figure.queue().addAction(new ActionItem);
        figure.ctx.curObject = member;
        figure.undo();
        QCOMPARE(figure.ctx.curObject, member);
    }

    // --- flags ---------------------------------------------------------------------------------

    void theMarkedFlagsOfTheWorkingRootFollowWhetherMarkersAreShown()
    {
        EditedFigure figure;
        auto* outside = figure.put(with(new FigEllipse, 1));
        auto* member = with(makeLine({{1, 2}, {3, 4}}), 3);
        auto* compound = figure.put(with(makeCompound({member}), 2));
        figure.queue().addAction(new ActionItem);
        figure.ctx.openCompoundObjects = compound->objects;
        const bool before = pointmarker_shown;
        outside->marked = 2;
        pointmarker_shown = true;
        figure.undo();
        QCOMPARE(member->marked, 1);
        pointmarker_shown = false;
        figure.redo();
        QCOMPARE(member->marked, 0);
        QCOMPARE(outside->marked, 2);
        pointmarker_shown = before;
    }

    void allMembersOfTheWorkingRootAreMarkedAtEveryLevel()
    {
        EditedFigure figure;
        auto* member = with(makeLine({{1, 2}, {3, 4}}), 2);
        auto* compound = figure.put(with(makeCompound({member}), 1));
        figure.queue().addAction(new ActionItem);
        const bool before = pointmarker_shown;
        pointmarker_shown = true;
        figure.undo();
        pointmarker_shown = before;
        QCOMPARE(compound->marked, 1);
        QCOMPARE(member->marked, 1);
    }

    // --- compounds around what changed ---------------------------------------------------------

    void undoInACompoundThatIsClosedWorksInItsListAndUpdatesItsCorners()
    {
        EditedFigure figure;
        auto* first = with(makeLine({{0, 0}, {100, 100}}), 2);
        auto* compound = figure.put(with(makeCompound({first}), 1));
        update_compound_corners(&figure.ctx, compound);
        const QRect small = corners(compound);
        figure.ctx.openCompoundObjects = compound->objects;
        figure.run(new AddAction(with(makeLine({{0, 0}, {5000, 5000}}), 3), compound->objects));
        figure.ctx.openCompoundObjects = nullptr;
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("1(2)"));
        QCOMPARE(corners(compound), small);
        figure.redo();
        QCOMPARE(ids(figure.top()), QString("1(2 3)"));
        QVERIFY(corners(compound).contains(5000, 5000));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void copiesThatFollowThePointerAreNotCountedBeforeTheyArePlaced_data()
    {
        QTest::addColumn<bool>("pasted");
        QTest::newRow("paste") << true;
        QTest::newRow("copy tool") << false;
    }

    void copiesThatFollowThePointerAreNotCountedBeforeTheyArePlaced()
    {
        QFETCH(bool, pasted);
        EditedFigure figure;
        CFigContext* ctx = &figure.ctx;
        FigLine* member = with(makeLine({{0, 0}, {600, 600}}), ctx->getNextId());
        auto* compound = figure.put(with(makeCompound({member}), ctx->getNextId()));
        open_compound(ctx, compound);
        member->tagged = true;
        if (pasted) {
            copy_to_clipboard(ctx);
            clippaste_selected(ctx);
        } else {
            init_copy(ctx, member, O_POLYLINE, 0, 0, 0, 0);
        }
        QCOMPARE(compound->objects->size(), 2);
        // Meanwhile a change in the open compound, whose step counts anew.
        figure.run(new ChangeArrowAction(member, compound->objects, ARROW_FORWARD, nullptr));
        QCOMPARE(ctx->object_depths[50], 1);
        QCOMPARE(compound->objects->size(), 2);
        canvas_leftbut_proc(ctx, 900, 900, nullptr);
        QCOMPARE(ctx->object_depths[50], 2);
        clear_clipboard();
        abandonGesture(ctx);
    }

    void theDrawingsOwnListHasNoCompoundToUpdate()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{1, 2}, {3, 4}}), 1));
        FigObjectList stranger;
        FigObjectList* nothing = nullptr;
        QVERIFY(!checkForUpdateCompoundArea(&figure.ctx, line, &figure.top()));
        QVERIFY(!checkForUpdateCompoundArea(&figure.ctx, line, nothing));
        QVERIFY(!checkForUpdateCompoundArea(&figure.ctx, line, &stranger));
        QVERIFY(!checkForUpdateCompoundArea(&figure.ctx, static_cast<FigObject*>(line)));
    }

    void theCompoundAroundAnObjectIsUpdatedWhicheverWayItIsAskedFor()
    {
        EditedFigure figure;
        auto* member = with(makeLine({{0, 0}, {300, 400}}), 3);
        auto* inner = with(makeCompound({member}), 2);
        auto* outer = figure.put(with(makeCompound({inner}), 1));
        FigCompound* found = checkForUpdateCompoundArea(&figure.ctx, member, inner->objects);
        QCOMPARE(found, inner);
        QVERIFY(corners(inner).contains(300, 400));
        QVERIFY(!corners(outer).contains(300, 400));
        QCOMPARE(checkForUpdateCompoundArea(&figure.ctx, static_cast<FigObject*>(member)), inner);
        QCOMPARE(checkForUpdateCompoundArea(&figure.ctx, inner), outer);
        QVERIFY(corners(outer).contains(300, 400));
    }

    void allCompoundsAroundAnObjectAreRecalculated()
    {
        EditedFigure figure;
        auto* member = with(makeLine({{0, 0}, {300, 400}}), 3);
        auto* inner = with(makeCompound({member}), 2);
        auto* outer = figure.put(with(makeCompound({inner}), 1));
        recalculateParentCompound(&figure.ctx, member);
        QVERIFY(corners(inner).contains(300, 400));
        QCOMPARE(corners(outer), corners(inner));
    }

    // --- lists of actions
    // -------------------------------------------------------------------------

    void actionsAreExecutedInOrder()
    {
        QStringList log;
        EditedFigure figure;
        NotingAction a(&log, "a"), b(&log, "b");
        QList<ActionItem*> actions{&a, &b};
        executeActions(&figure.ctx, &actions);
        QCOMPARE(log, (QStringList{"do a", "do b"}));
    }

    void changedObjectsLeaveNullOutOfACompoundButNotOfAList()
    {
        ActionItem without, withObject;
        FigEllipse ellipse;
        withObject.object = &ellipse;
        QList<ActionItem*> actions{&without, &withObject};
        FigObjectList list;
        getChangedObjects(&actions, &list);
        QCOMPARE(list, (FigObjectList{nullptr, &ellipse}));
        FigCompound compound;
        getChangedObjects(&actions, &compound);
        QCOMPARE(*compound.objects, (FigObjectList{&ellipse}));
        compound.objects->removeFirst();
    }
};

QTEST_MAIN(TestUndoQueue)
#include "test_u_undo.moc"
