#include "LinkFixture.h"
#include "edit/e_compound.h"
#include "edit/mode.h"
#include "render/markers.h"

#include <QSet>

namespace {

/// "left,top right,bottom" as stored.
QString corners(const FigCompound* compound)
{
    return at(&compound->nwcorner) + " " + at(&compound->secorner);
}

/// A point without extent that counts how often it is measured.
class MeasuredPoint : public FigObject {
public:
    MeasuredPoint(int px, int py) : x(px), y(py) { type = O_TEXT; }
    void getBounds(CFigContext*, int* xmin, int* ymin, int* xmax, int* ymax, bool, bool) override
    {
        ++measured;
        *xmin = *xmax = x;
        *ymin = *ymax = y;
    }

    int x, y;
    int measured = 0;
};

void tag(FigObject* object)
{
    object->tagged = true;
}

FigLine* thinLine(Coordinates coordinates, long id)
{
    return with(makeLine(coordinates), id);
}

/// Four lines, 1 to 4; 2 and 3 in compound 10, which lies with 4 in compound 11.
struct Nested : EditedFigure {
    FigLine* one = put(thinLine({{0, 0}, {100, 100}}, 1));
    FigLine* two = thinLine({{200, 200}, {300, 300}}, 2);
    FigLine* three = thinLine({{400, 400}, {500, 500}}, 3);
    FigLine* four = thinLine({{600, 600}, {700, 700}}, 4);
    FigCompound* inner = with(makeCompound({two, three}), 10);
    FigCompound* outer = put(with(makeCompound({inner, four}), 11));

    Nested() { ctx.nextId = 20; }
};

} // namespace

class TestCompound : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        pointmarker_shown = false;
        recordingShell.clear();
    }

    // --- making ------------------------------------------------------------------------

    void taggedObjectsBecomeACompound()
    {
        Nested figure;
        tag(figure.one);
        tag(figure.outer);
        tag(figure.two);
        create_compoundobject(&figure.ctx);
        QCOMPARE(ids(figure.top()), QString("21(1 11(10(2 3) 4))"));
        auto* made = static_cast<FigCompound*>(figure.top().first());
        QCOMPARE(corners(made), QString("0,0 700,700"));
        QCOMPARE(figure.ctx.curObject, static_cast<FigObject*>(made));
        QVERIFY(made->tagged);
        QCOMPARE(made->marked, 2);
        QVERIFY(!figure.one->tagged && !figure.outer->tagged && !figure.two->tagged);
        QVERIFY(figure.ctx.modified);
        QCOMPARE(depthTableError(&figure.ctx), QString());
        QVERIFY(recordingShell.panels.contains("attributes 6"));
        QVERIFY(recordingShell.panels.contains("buttons"));
    }

    void creationIsTakenBackAndDoneAgain()
    {
        Nested figure;
        tag(figure.one);
        create_compoundobject(&figure.ctx);
        QCOMPARE(ids(figure.top()), QString("11(10(2 3) 4) 21(1)"));
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("11(10(2 3) 4) 1"));
        QVERIFY(!figure.ctx.curObject);
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.redo();
        QCOMPARE(ids(figure.top()), QString("11(10(2 3) 4) 21(1)"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    // The id is drawn all the same.
    void anEmptySelectionLeavesNothingButTheMessage()
    {
        Nested figure;
        create_compoundobject(&figure.ctx);
        QCOMPARE(recordingShell.messages, QStringList("Empty compound, ignored"));
        QCOMPARE(ids(figure.top()), QString("1 11(10(2 3) 4)"));
        QCOMPARE(figure.queue().undoCount(), 0);
        QVERIFY(!figure.ctx.modified);
        QCOMPARE(figure.ctx.getNextId(), 22L);
    }

    void aCompoundMadeInAnOpenOneIsNestedAndLeavesTheOuterCorners()
    {
        Nested figure;
        figure.outer->nwcorner = FigPoint(-5, -6);
        open_compound(&figure.ctx, figure.outer);
        tag(figure.four);
        create_compoundobject(&figure.ctx);
        QCOMPARE(ids(figure.top()), QString("1 11(10(2 3) 21(4))"));
        QCOMPARE(at(&figure.outer->nwcorner), QString("-5,-6"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    // --- breaking ------------------------------------------------------------------------

    void breakingTwoCompoundsIsOneStep()
    {
        Nested figure;
        FigCompound* other = figure.put(with(makeCompound({thinLine({{0, 9}, {9, 9}}, 5)}), 12));
        for (FigObject* object : qAsConst(figure.top()))
            tag(object);
        figure.ctx.curObject = other;
        break_compoundobject(&figure.ctx);
        QCOMPARE(ids(figure.top()), QString("1 10(2 3) 4 5"));
        QVERIFY(!figure.ctx.curObject);
        QCOMPARE(figure.queue().undoCount(), 1);
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("1 12(5) 11(10(2 3) 4)"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void whatIsNotBrokenStaysCurrent()
    {
        Nested figure;
        tag(figure.outer);
        figure.ctx.curObject = figure.one;
        break_compoundobject(&figure.ctx);
        QCOMPARE(figure.ctx.curObject, static_cast<FigObject*>(figure.one));
    }

    void withoutATaggedCompoundNothingIsBroken()
    {
        Nested figure;
        tag(figure.one);
        tag(figure.inner);
        break_compoundobject(&figure.ctx);
        QCOMPARE(ids(figure.top()), QString("1 11(10(2 3) 4)"));
        QCOMPARE(figure.queue().undoCount(), 0);
    }

    void membersOfABrokenCompoundShowMarkersWhereMarkersAreShown()
    {
        for (const bool shown : {false, true}) {
            Nested figure;
            pointmarker_shown = shown;
            tag(figure.outer);
            break_compoundobject(&figure.ctx);
            QCOMPARE(figure.inner->marked, shown ? 1 : 0);
            QCOMPARE(figure.four->marked, shown ? 1 : 0);
            QCOMPARE(figure.two->marked, 0);
        }
    }

    void noDocumentIsNoHarm()
    {
        create_compoundobject(nullptr);
        break_compoundobject(nullptr);
        open_compound(nullptr, nullptr);
        close_compound(nullptr, true);
        close_all_compounds(nullptr, true);
        QVERIFY(!isCompoundOpen(nullptr));
        QVERIFY(recordingShell.messages.isEmpty());
    }

    // --- opening and closing -----------------------------------------------------------------

    void anOpenCompoundIsTheWorkingRoot()
    {
        Nested figure;
        figure.ctx.curObject = figure.outer;
        tag(figure.outer);
        tag(figure.two);
        figure.outer->marked = 2;
        QVERIFY(!isCompoundOpen(&figure.ctx));
        open_compound(&figure.ctx, figure.outer);
        QVERIFY(isCompoundOpen(&figure.ctx));
        QCOMPARE(figure.ctx.getWorkingRoot(), figure.outer->objects);
        QVERIFY(!figure.ctx.curObject);
        QVERIFY(!figure.outer->tagged && !figure.two->tagged);
        QCOMPARE(figure.outer->marked, 0);
        QCOMPARE(figure.four->marked, 1);
        QVERIFY(pointmarker_shown);
        QCOMPARE(recordingShell.redraws, QStringList("canvas"));
        QCOMPARE(figure.queue().undoCount(), 0);
    }

    void theHandlerFormOpensAndDoesNothingElse()
    {
        Nested figure;
        tag(figure.outer);
        QVERIFY(init_open_compound(&figure.ctx, figure.outer, O_COMPOUND, 0, 0, 0, 0));
        QCOMPARE(figure.ctx.getWorkingRoot(), figure.outer->objects);
        QVERIFY(figure.outer->tagged);
        QVERIFY(!init_open_compound(&figure.ctx, figure.one, O_POLYLINE, 0, 0, 0, 0));
        QVERIFY(!init_open_compound(&figure.ctx, nullptr, O_COMPOUND, 0, 0, 0, 0));
        QCOMPARE(figure.ctx.getWorkingRoot(), figure.outer->objects);
    }

    void closingGoesOneLevelUp()
    {
        Nested figure;
        open_compound(&figure.ctx, figure.outer);
        open_compound(&figure.ctx, figure.inner);
        QCOMPARE(get_root_compound(figure.inner), figure.outer);
        tag(figure.two);
        close_compound(&figure.ctx, false);
        QVERIFY(!figure.two->tagged);
        QCOMPARE(figure.ctx.getWorkingRoot(), figure.outer->objects);
        QCOMPARE(figure.ctx.curObject, static_cast<FigObject*>(figure.inner));
        QVERIFY(figure.inner->tagged);
        QCOMPARE(figure.inner->marked, 1);
        QCOMPARE(get_root_compound(figure.inner), figure.inner);
        recordingShell.clear();
        close_compound(&figure.ctx, true);
        QVERIFY(!isCompoundOpen(&figure.ctx));
        QCOMPARE(figure.ctx.curObject, static_cast<FigObject*>(figure.outer));
        QCOMPARE(recordingShell.redraws, QStringList("canvas"));
    }

    void closingRecalculatesTheCornersOfThatCompoundOnly()
    {
        Nested figure;
        open_compound(&figure.ctx, figure.outer);
        open_compound(&figure.ctx, figure.inner);
        figure.two->points->x = 150;
        close_compound(&figure.ctx, false);
        QCOMPARE(corners(figure.inner), QString("150,200 500,500"));
        QCOMPARE(corners(figure.outer), QString("0,0 0,0"));
        close_compound(&figure.ctx, false);
        QCOMPARE(corners(figure.outer), QString("150,200 700,700"));
    }

    void anOpenListThatIsInNoCompoundStaysOpen()
    {
        Nested figure;
        OwnedList list{thinLine({{0, 0}, {1, 1}}, 5)};
        tag(list.first());
        figure.ctx.openCompoundObjects = &list;
        figure.ctx.curObject = figure.one;
        close_compound(&figure.ctx, true);
        QCOMPARE(figure.ctx.openCompoundObjects, static_cast<FigObjectList*>(&list));
        QVERIFY(!figure.ctx.curObject);
        QVERIFY(!list.first()->tagged);
        QVERIFY(recordingShell.redraws.isEmpty());
        figure.ctx.openCompoundObjects = nullptr;
    }

    // --- emptied compounds
    // ------------------------------------------------------------------------

    void anEmptiedCompoundVanishes()
    {
        Nested figure;
        open_compound(&figure.ctx, figure.outer);
        open_compound(&figure.ctx, figure.inner);
        figure.run(new DeleteAction(figure.two, figure.inner->objects));
        figure.run(new DeleteAction(figure.three, figure.inner->objects));
        close_compound(&figure.ctx, false);
        QCOMPARE(ids(figure.top()), QString("1 11(4)"));
        QVERIFY(!figure.ctx.curObject);
        QCOMPARE(figure.ctx.getWorkingRoot(), figure.outer->objects);
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    // Nothing shows them any more; they are freed with the document.
    void objectsComeBackIntoTheListOfAVanishedCompound()
    {
        Nested figure;
        int deaths = 0;
        auto* mortal = with(new MortalObject(&deaths), 6);
        {
            EditedFigure doomed;
            FigCompound* compound = doomed.put(with(makeCompound({mortal}), 7));
            open_compound(&doomed.ctx, compound);
            doomed.run(new DeleteAction(mortal, compound->objects));
            close_compound(&doomed.ctx, false);
            QVERIFY(doomed.top().isEmpty());
            doomed.undo();
            QVERIFY(doomed.top().isEmpty());
            QCOMPARE(ids(*compound->objects), QString("6"));
            doomed.redo();
            QVERIFY(compound->isEmpty());
            doomed.undo();
            QCOMPARE(deaths, 0);
        }
        QCOMPARE(deaths, 1);
    }

    void aVanishedCompoundWhoseCreationIsTakenBackIsGoneForGood()
    {
        Nested figure;
        tag(figure.one);
        create_compoundobject(&figure.ctx);
        auto* made = static_cast<FigCompound*>(figure.top().last());
        open_compound(&figure.ctx, made);
        figure.run(new DeleteAction(figure.one, made->objects));
        close_compound(&figure.ctx, false);
        figure.undo();
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("11(10(2 3) 4) 1"));
        // Clears the redo list, which frees the compound.
        figure.run(new AddAction(thinLine({{0, 0}, {1, 1}}, 5), &figure.top()));
        QCOMPARE(ids(figure.top()), QString("11(10(2 3) 4) 1 5"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void aVanishedCompoundThatComesBackBelongsToTheDrawing()
    {
        Nested figure;
        tag(figure.one);
        create_compoundobject(&figure.ctx);
        auto* made = static_cast<FigCompound*>(figure.top().last());
        open_compound(&figure.ctx, made);
        figure.run(new DeleteAction(figure.one, made->objects));
        close_compound(&figure.ctx, false);
        figure.undo();
        figure.undo();
        figure.redo();
        QCOMPARE(ids(figure.top()), QString("11(10(2 3) 4) 21(1)"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void aVanishedCompoundThatWasPastedAndTakenBackIsFreedOnce()
    {
        EditedFigure figure;
        auto* member = thinLine({{0, 0}, {1, 1}}, 1);
        auto* pasted = with(makeCompound({member}), 2);
        figure.run(new AddAction(pasted, &figure.top()));
        open_compound(&figure.ctx, pasted);
        figure.run(new DeleteAction(member, pasted->objects));
        close_compound(&figure.ctx, false);
        figure.undo();
        figure.undo();
        figure.run(new AddAction(thinLine({{0, 0}, {1, 1}}, 3), &figure.top()));
        QCOMPARE(ids(figure.top()), QString("3"));
    }

    // --- closing before a compound goes
    // ---------------------------------------------------------------

    void takingBackTheCreationOfAnOpenCompoundClosesIt()
    {
        Nested figure;
        tag(figure.outer);
        create_compoundobject(&figure.ctx);
        auto* made = static_cast<FigCompound*>(figure.top().last());
        open_compound(&figure.ctx, made);
        open_compound(&figure.ctx, figure.outer);
        open_compound(&figure.ctx, figure.inner);
        figure.undo();
        QVERIFY(!isCompoundOpen(&figure.ctx));
        QVERIFY(!figure.ctx.curObject);
        QCOMPARE(ids(figure.top()), QString("1 11(10(2 3) 4)"));
    }

    void levelsAroundACompoundStayOpen()
    {
        Nested figure;
        open_compound(&figure.ctx, figure.outer);
        open_compound(&figure.ctx, figure.inner);
        closeCompoundsIn(&figure.ctx, figure.inner);
        QCOMPARE(figure.ctx.getWorkingRoot(), figure.outer->objects);
        closeCompoundsIn(&figure.ctx, figure.inner);
        QCOMPARE(figure.ctx.getWorkingRoot(), figure.outer->objects);
    }

    void aCompoundOutOfTheDrawingIsNotLeftOpen()
    {
        Nested figure;
        FigCompound stray;
        figure.ctx.openCompoundObjects = stray.objects;
        closeCompoundsIn(&figure.ctx, &stray);
        QVERIFY(!isCompoundOpen(&figure.ctx));
    }

    // --- asking
    // ---------------------------------------------------------------------------------------

    void theEnclosingCompoundHoldsTheObjectDirectly()
    {
        Nested figure;
        QCOMPARE(getEnclosingCompound(figure.outer, figure.two), figure.inner);
        QCOMPARE(getEnclosingCompound(figure.outer, figure.four), figure.outer);
        QVERIFY(!getEnclosingCompound(figure.inner, figure.four));
        QVERIFY(!getEnclosingCompound(static_cast<FigCompound*>(nullptr), figure.four));
        QCOMPARE(getEnclosingCompound(&figure.ctx, &figure.top(), figure.inner), figure.outer);
        QVERIFY(!getEnclosingCompound(&figure.ctx, &figure.top(), figure.one));
        QCOMPARE(getEnclosingCompound(&figure.ctx, &figure.top(), figure.inner->objects),
                 figure.inner);
        QVERIFY(!getEnclosingCompound(&figure.ctx, &figure.top(), &figure.top()));
    }

    void taggedObjectsAreThoseOfTheListItself()
    {
        Nested figure;
        tag(figure.one);
        tag(figure.two);
        FigObjectList tagged{figure.four};
        get_tagged_objects(&figure.top(), &tagged);
        QCOMPARE(ids(tagged), QString("4 1"));
        get_tagged_objects(nullptr, &tagged);
        QCOMPARE(tagged.size(), 2);
    }

    void allMembersAreHiddenIfNoneIsOnAnActiveDepth()
    {
        Nested figure;
        figure.three->depth = 7;
        QVERIFY(!isAllMembersOnHiddenLayer(&figure.ctx, figure.inner));
        figure.ctx.active_layers[50] = false;
        QVERIFY(!isAllMembersOnHiddenLayer(&figure.ctx, figure.outer));
        figure.ctx.active_layers[7] = false;
        QVERIFY(isAllMembersOnHiddenLayer(&figure.ctx, figure.outer));
        FigCompound empty;
        QVERIFY(isAllMembersOnHiddenLayer(&figure.ctx, &empty));
        QVERIFY(isAllMembersOnHiddenLayer(&figure.ctx, nullptr));
    }

    // --- corners
    // ---------------------------------------------------------------------------------------

    void allCornersAreRecalculatedFromInsideOut()
    {
        Nested figure;
        recalculateCompoundBounds(&figure.ctx, &figure.top());
        QCOMPARE(corners(figure.inner), QString("200,200 500,500"));
        QCOMPARE(corners(figure.outer), QString("200,200 700,700"));
    }

    void onlyTheCompoundsOfTheSetAreRecalculated()
    {
        Nested figure;
        QSet<FigCompound*> parents{figure.inner};
        recalculateCompoundBounds(&figure.ctx, &figure.top(), &parents);
        QCOMPARE(corners(figure.inner), QString("200,200 500,500"));
        QCOMPARE(corners(figure.outer), QString("0,0 0,0"));
        figure.two->points->x = 100;
        parents = {figure.outer};
        recalculateCompoundBounds(&figure.ctx, &figure.top(), &parents);
        QCOMPARE(corners(figure.inner), QString("200,200 500,500"));
        QCOMPARE(corners(figure.outer), QString("100,200 700,700"));
        recalculateCompoundBounds(&figure.ctx, nullptr);
        recalculateCompoundBounds(&figure.ctx, nullptr, &parents);
    }

    void anEmptyCompoundHasZeroCorners()
    {
        EditedFigure figure;
        FigCompound* compound = figure.put(with(new FigCompound, 1));
        compound->nwcorner = compound->secorner = FigPoint(5, 5);
        QSet<FigCompound*> parents{compound};
        recalculateCompoundBounds(&figure.ctx, &figure.top(), &parents);
        QCOMPARE(corners(compound), QString("0,0 0,0"));
    }

    void parentsAreCollectedNearestFirstWithoutDuplicates()
    {
        Nested figure;
        FigObjectList objects{figure.one, figure.four, figure.two, figure.three};
        QList<FigCompound*> result;
        collectParentCompounds(&figure.ctx, &objects, &result);
        QCOMPARE(result, (QList<FigCompound*>{figure.outer, figure.inner}));
        result.clear();
        objects = {figure.two, figure.inner, nullptr};
        collectParentCompounds(&figure.ctx, &objects, &result);
        QCOMPARE(result, (QList<FigCompound*>{figure.inner, figure.outer}));
        collectParentCompounds(&figure.ctx, &objects, &result);
        QCOMPARE(result.size(), 2);
        collectParentCompounds(&figure.ctx, nullptr, &result);
        QCOMPARE(result.size(), 2);
    }

    void cornersFollowAroundTheObjectsThatChanged()
    {
        Nested figure;
        FigObjectList objects{figure.four};
        recalculateCompoundBoundsOfParents(&figure.ctx, &objects);
        QCOMPARE(corners(figure.inner), QString("0,0 0,0"));
        QCOMPARE(corners(figure.outer), QString("200,200 700,700"));
        objects = {figure.three};
        recalculateCompoundBoundsOfParents(&figure.ctx, &objects);
        QCOMPARE(corners(figure.inner), QString("200,200 500,500"));
    }

    void inDeepNestingEachObjectIsMeasuredOnce()
    {
        constexpr int levels = 2000;
        EditedFigure figure;
        auto* innermost = new MeasuredPoint(-1, -1);
        FigObject* content = innermost;
        QList<MeasuredPoint*> points{innermost};
        for (int level = 0; level < levels; ++level) {
            auto* point = new MeasuredPoint(level, level);
            points.append(point);
            content = with(makeCompound({content, point}), 100 + level);
        }
        figure.put(content);
        FigObjectList changed{innermost};
        recalculateCompoundBoundsOfParents(&figure.ctx, &changed);
        for (MeasuredPoint* point : qAsConst(points))
            QCOMPARE(point->measured, 1);
        auto* outermost = static_cast<FigCompound*>(content);
        QCOMPARE(corners(outermost), QString("-1,-1 1999,1999"));
        recalculateCompoundBounds(&figure.ctx, &figure.top());
        for (MeasuredPoint* point : qAsConst(points))
            QCOMPARE(point->measured, 2);
        QList<FigCompound*> parents;
        collectParentCompounds(&figure.ctx, &changed, &parents);
        QCOMPARE(parents.size(), levels);
        QCOMPARE(parents.last(), outermost);
    }
};

QTEST_GUILESS_MAIN(TestCompound)
#include "test_e_compound.moc"
