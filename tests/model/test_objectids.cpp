#include "ObjectBuilders.h"
#include "model/FigContext.h"

#include <QtTest>

#include <memory>

namespace {

/// Ids at all levels, a compound before its members.
QList<long> allIds(FigObjectList* list)
{
    QList<long> found;
    for (FigObject* object : qAsConst(*list)) {
        found.append(object->id);
        if (object->type == O_COMPOUND)
            found += allIds(static_cast<FigCompound*>(object)->objects);
    }
    return found;
}

FigLine* firstLine(FigObjectList* list)
{
    return static_cast<FigLine*>(list->first());
}

/// A line that is linked by its first point to the segment 0-1 of the object with the id.
FigLine* linkedLine(long targetId)
{
    FigLine* line = makeLine({{5, 5}, {9, 9}});
    makeLink(line->points, targetId, 0, 1);
    return line;
}

} // namespace

class TestObjectIds : public QObject {
    Q_OBJECT

private slots:
    // --- ids ------------------------------------------------------------------------

    void theGreatestIdIsFoundAtAnyLevelAndNeverBelowZero()
    {
        OwnedList list{with(new FigText, 3), makeCompound({with(new FigText, 8)})};
        QCOMPARE(getMaxId(&list), 8L);
        OwnedList nameless{new FigText};
        QCOMPARE(getMaxId(&nameless), 0L);
        QCOMPARE(getMaxId(nullptr), 0L);
    }

    void missingIdsAreCompletedFromTheStart()
    {
        OwnedList list{new FigText, makeCompound({with(new FigText, 40), new FigText})};
        QCOMPARE(completeObjectIds(&list, getMaxId(&list)), 43L);
        QCOMPARE(allIds(&list), (QList<long>{41, 42, 40, 43}));
        OwnedList allNew{new FigText, new FigText};
        QCOMPARE(completeObjectIds(&allNew, getMaxId(&allNew)), 2L);
        QCOMPARE(allIds(&allNew), (QList<long>{1, 2}));
        QCOMPARE(completeObjectIds(&allNew, 7), 7L);
    }

    void anIdThatOccursTwiceIsFoundAtAnyLevel()
    {
        OwnedList list{new FigText, new FigText, with(new FigText, 3),
                       with(makeCompound({with(new FigText, 4)}), 5)};
        QSet<long> seen;
        QVERIFY(checkObjectIds(&list, &seen));
        QCOMPARE(seen, (QSet<long>{3, 4, 5}));
        findObjectById(&list, 4)->id = 3;
        seen.clear();
        QVERIFY(!checkObjectIds(&list, &seen));
    }

    void renumberingGivesACompoundItsNumberBeforeItsMembers()
    {
        OwnedList list{with(makeCompound({with(new FigText, 40), new FigText}), 30), new FigText};
        QCOMPARE(renumberObjectIds(&list, 0), 4L);
        QCOMPARE(allIds(&list), (QList<long>{1, 2, 3, 4}));
    }

    void newIdsComeFromTheContextWithAMapOfTheOldOnes()
    {
        CFigContext ctx;
        ctx.nextId = 10;
        OwnedList list{with(makeCompound({with(new FigText, 40)}), 30)};
        QMap<long, long> oldToNew;
        assignNewIDs(&ctx, &list, &oldToNew);
        QCOMPARE(allIds(&list), (QList<long>{11, 12}));
        QCOMPARE(oldToNew, (QMap<long, long>{{30, 11}, {40, 12}}));
        assignNewIDs(&ctx, &list, nullptr);
        QCOMPARE(allIds(&list), (QList<long>{13, 14}));
    }

    void allIdsAreCollected()
    {
        OwnedList list{with(makeCompound({with(new FigText, 40)}), 30)};
        QMap<long, long> ids{{7, 7}};
        getIDs(&list, ids);
        QCOMPARE(ids, (QMap<long, long>{{7, 7}, {30, 30}, {40, 40}}));
    }

    // --- links ----------------------------------------------------------------------

    void aCopyOfALinkedPairIsLinkedToTheCopy()
    {
        CFigContext ctx;
        ctx.nextId = 2;
        OwnedList list{with(linkedLine(2), 1), with(makeLine({{0, 0}, {9, 0}}), 2)};
        const std::unique_ptr<FigObjectList> copies(copyObjectsAndMaintainLinks(&ctx, &list));
        auto* target = static_cast<FigLine*>(copies->last());
        const FigLink* link = firstLine(copies.get())->points->link;
        QCOMPARE(target->id, 4L);
        QCOMPARE(link->targetObjId, 4L);
        QCOMPARE(link->targetLeftPoint, target->points);
        QCOMPARE(link->targetRightPoint, target->points->next);
        QCOMPARE(firstLine(&list)->points->link->targetObjId, 2L);
        deleteObjectList(copies.get());
    }

    void aCopyOfTheSourceAloneHasNoLink()
    {
        CFigContext ctx;
        OwnedList list{with(linkedLine(2), 1)};
        const std::unique_ptr<FigObjectList> copies(copyObjectsAndMaintainLinks(&ctx, &list));
        QVERIFY(!firstLine(copies.get())->points->link);
        QVERIFY(firstLine(&list)->points->link);
        deleteObjectList(copies.get());
        QVERIFY(!copyObjectsAndMaintainLinks(&ctx, nullptr));
    }

    void linksOfSplinesInCompoundsAreMaintainedToo()
    {
        FigSpline* spline = makeSpline({{0, 0}, {4, 4}, {8, 0}});
        makeLink(spline->points, 7);
        OwnedList list{makeCompound({spline}), with(new FigEllipse, 70)};
        QMap<long, long> oldToNew{{7, 70}};
        maintainLinks(&list, oldToNew);
        QCOMPARE(spline->points->link->targetObjId, 70L);
        QVERIFY2(!spline->points->link->targetLeftPoint, "an ellipse has no segment");
        oldToNew.clear();
        maintainLinks(&list, oldToNew);
        QVERIFY(!spline->points->link);
    }

    void aSegmentThatTheTargetDoesNotHaveIsNull()
    {
        FigLine* source = linkedLine(2);
        source->points->link->targetRightPointIdx = 9;
        OwnedList list{with(source, 1), with(makeLine({{0, 0}, {9, 0}}), 2)};
        QMap<long, long> same{{1, 1}, {2, 2}};
        maintainLinks(&list, same);
        QCOMPARE(source->points->link->targetLeftPoint, static_cast<FigLine*>(list.last())->points);
        QVERIFY(!source->points->link->targetRightPoint);
    }

    void danglingLinksAreDeleted()
    {
        OwnedList known{with(new FigText, 2)};
        OwnedList list{with(linkedLine(2), 10), with(linkedLine(3), 11),
                       makeCompound({with(linkedLine(4), 12)})};
        deleteDanglingLinks(&known, &list, false);
        QVERIFY(static_cast<FigLine*>(findObjectById(&list, 10))->points->link);
        QVERIFY(!static_cast<FigLine*>(findObjectById(&list, 11))->points->link);
        QVERIFY(!static_cast<FigLine*>(findObjectById(&list, 12))->points->link);
    }

    void onlyTaggedObjectsLoseDanglingLinksWhenAskedSo()
    {
        OwnedList list{with(linkedLine(3), 10), with(linkedLine(3), 11)};
        list.last()->tagged = true;
        QMap<long, long> none;
        deleteDanglingLinks(none, &list, true);
        QVERIFY(firstLine(&list)->points->link);
        QVERIFY(!static_cast<FigLine*>(list.last())->points->link);
        deleteDanglingLinks(none, &list, false);
        QVERIFY(!firstLine(&list)->points->link);
    }

    void idsOfAMillionObjectsAreHandledInOnePassEach()
    {
        OwnedList list;
        for (int i = 0; i < 1000000; ++i)
            list.append(new FigText);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(getMaxId(&list), 0L);
        QCOMPARE(completeObjectIds(&list, 0), 1000000L);
        QSet<long> seen;
        QVERIFY(checkObjectIds(&list, &seen));
        deleteObjectList(&list);
        QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
    }
};

QTEST_GUILESS_MAIN(TestObjectIds)
#include "test_objectids.moc"
