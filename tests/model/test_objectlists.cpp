#include "ObjectBuilders.h"
#include "model/FigContext.h"

#include <QtTest>

#include <memory>

namespace {

QList<long> ids(const FigObjectList& list)
{
    QList<long> found;
    for (const FigObject* object : list)
        found.append(object->id);
    return found;
}

} // namespace

class TestObjectLists : public QObject {
    Q_OBJECT

private slots:
    void removingTakesOneEntryAndAcceptsNull()
    {
        FigText text;
        FigObjectList list{&text, &text};
        removeObject(&list, &text);
        QCOMPARE(list.size(), 1);
        removeObject(&list, nullptr);
        removeObject(nullptr, &text);
        removeObjects(&list, static_cast<FigObjectList*>(nullptr));
        QCOMPARE(list.size(), 1);
    }

    void removingAListTakesOneEntryForEachOfItsEntries()
    {
        FigText a, b, c;
        FigObjectList list{&a, &b, &a, &c, &a};
        FigObjectList others{&a, &c, &a};
        removeObjects(&list, &others);
        QCOMPARE(list, (FigObjectList{&b, &a}));
        removeAll(&list, &others);
        QCOMPARE(list, FigObjectList{&b});
        removeObjects(&list, &list);
        QVERIFY(list.isEmpty());
    }

    void theMembersOfACompoundAreAddedAndRemoved()
    {
        const std::unique_ptr<FigCompound> compound(makeCompound({new FigText, new FigArc}));
        FigText other;
        FigObjectList list{&other};
        addObjects(&list, compound.get());
        QCOMPARE(list.size(), 3);
        QCOMPARE(list.last(), compound->objects->last());
        removeObjects(&list, compound.get());
        QCOMPARE(list, FigObjectList{&other});
    }

    void removingByIdTakesAllDirectEntriesWithIt()
    {
        FigText a, b, c;
        a.id = c.id = 5;
        b.id = 6;
        FigObjectList list{&a, &b, &c};
        FigText wanted;
        wanted.id = 5;
        removeObjectById(&list, &wanted);
        QCOMPARE(list, FigObjectList{&b});
    }

    void replacingPutsTheNewObjectInTheSamePlaceAtAnyLevel()
    {
        FigText* old = with(new FigText, 3);
        OwnedList list{with(new FigText, 1), with(makeCompound({with(new FigText, 4), old}), 2)};
        auto* compound = static_cast<FigCompound*>(list.last());
        FigText* replacement = with(new FigText, 3);
        QVERIFY(replaceObjectById(&list, replacement));
        QCOMPARE(ids(*compound->objects), (QList<long>{4, 3}));
        QCOMPARE(compound->objects->last(), static_cast<FigObject*>(replacement));
        delete old;
    }

    void nothingIsReplacedForAnUnknownIdOrMinusOne()
    {
        OwnedList list{new FigText};
        FigText stranger;
        QVERIFY(!replaceObjectById(&list, &stranger));
        stranger.id = 9;
        QVERIFY(!replaceObjectById(&list, &stranger));
        QVERIFY(list.first() != &stranger);
    }

    void replacingAListTellsHowManyWereFound()
    {
        CFigContext ctx;
        FigText* first = with(new FigText, 1);
        FigText* second = with(new FigText, 2);
        ctx.drawing.objects = FigObjectList{first, makeCompound({second})};
        OwnedList replacements{with(new FigText, 2), with(new FigText, 1)};
        FigText unknown;
        unknown.id = 77;
        FigObjectList wanted = replacements;
        wanted.append(&unknown);
        QCOMPARE(replaceObjects(&ctx, &wanted), 2);
        QCOMPARE(ctx.drawing.objects.first(), replacements.last());
        FigObjectList originals{first, second};
        QCOMPARE(replaceObjects(&ctx, &originals), 2);
        QCOMPARE(ctx.drawing.objects.first(), static_cast<FigObject*>(first));
    }

    void deletingAListEmptiesItAndDestroysItsObjects()
    {
        int deaths = 0;
        FigObjectList list{new MortalObject(&deaths), makeCompound({new MortalObject(&deaths)})};
        deleteObjectList(&list);
        QVERIFY(list.isEmpty());
        QCOMPARE(deaths, 2);
        deleteObjectList(nullptr);
    }

    void cloningAListMakesNewObjectsInOrder()
    {
        OwnedList list{with(new FigText, 1), with(new FigArc, 2)};
        std::unique_ptr<FigObjectList> clones(cloneObjects(&list));
        QCOMPARE(ids(*clones), (QList<long>{1, 2}));
        QVERIFY(clones->first() != list.first());
        QVERIFY(!cloneObjects(static_cast<FigObjectList*>(nullptr)));
        deleteObjectList(clones.get());
    }

    void cloningIntoAListDeletesWhatItHeld()
    {
        int deaths = 0;
        OwnedList from{with(new FigText, 1)};
        OwnedList to{new MortalObject(&deaths)};
        cloneObjects(&from, &to);
        QCOMPARE(deaths, 1);
        QCOMPARE(ids(to), QList<long>{1});
        QVERIFY(to.first() != from.first());
    }

    void cloningIntoACompoundAppends()
    {
        const std::unique_ptr<FigCompound> from(makeCompound({with(new FigText, 1)}));
        const std::unique_ptr<FigCompound> to(makeCompound({with(new FigText, 2)}));
        cloneObjects(from.get(), to.get());
        QCOMPARE(ids(*to->objects), (QList<long>{2, 1}));
    }

    void aCloneOfACompoundTakesMembersButNoAttributes()
    {
        const std::unique_ptr<FigCompound> compound(with(makeCompound({with(new FigText, 2)}), 1));
        compound->comments = "group";
        compound->nwcorner = FigPoint(5, 5);
        const std::unique_ptr<FigCompound> copied(cloneCompound(compound.get()));
        QCOMPARE(copied->id, -1L);
        QVERIFY(copied->comments.isEmpty());
        QCOMPARE(copied->nwcorner.x, 0);
        QCOMPARE(ids(*copied->objects), QList<long>{2});
        QVERIFY(copied->objects->first() != compound->objects->first());
    }

    void aShallowCopySharesTheMembers()
    {
        const std::unique_ptr<FigCompound> compound(makeCompound({new FigText}));
        const std::unique_ptr<FigCompound> copied(shallowCopyCompound(compound.get()));
        QCOMPARE(*copied->objects, *compound->objects);
        while (!copied->objects->isEmpty())
            copied->objects->removeFirst();
    }

    void copyingAListAppendsThePointers()
    {
        FigText a, b;
        FigObjectList from{&b};
        FigObjectList to{&a};
        copyObjectList(&from, &to);
        QCOMPARE(to, (FigObjectList{&a, &b}));
        copyObjectList(nullptr, &to);
    }

    void addedObjectsGoToTheEndWhateverTheirDepth()
    {
        CFigContext ctx;
        FigObjectList* list = &ctx.drawing.objects;
        list_add(&ctx, list, with(new FigText, 1, 10));
        list_add(&ctx, list, with(new FigText, 2, 90));
        list_add(&ctx, list, with(new FigText, 3, 5));
        QCOMPARE(ids(*list), (QList<long>{1, 2, 3}));
    }

    void removingTellsWhetherTheObjectWasThere()
    {
        CFigContext ctx;
        FigText text;
        FigObjectList list{&text};
        QCOMPARE(list_delete(&ctx, nullptr, &text), 0);
        QCOMPARE(list_delete(&ctx, &list, nullptr), 1);
        QCOMPARE(list_delete(&ctx, &list, &text), 1);
        QCOMPARE(list_delete(&ctx, &list, &text), 0);
    }

    void aStrangerThatIsRemovedLeavesTheDepthTableAlone()
    {
        CFigContext ctx;
        list_add(&ctx, &ctx.drawing.objects, with(new FigText, 1, 50));
        FigText stranger;
        stranger.depth = 50;
        QCOMPARE(list_delete(&ctx, &ctx.drawing.objects, &stranger), 0);
        QCOMPARE(ctx.object_depths[50], 1);
    }

    void bulkRemovalAndReplacementDoNotWalkTheListPerObject()
    {
        // Per object a walk would take 10^10 steps here.
        constexpr int count = 100000;
        CFigContext ctx;
        OwnedList clones;
        for (int i = 1; i <= count; ++i) {
            ctx.drawing.objects.append(with(new FigText, i));
            clones.append(with(new FigText, count + 1 - i));
        }
        const FigObjectList originals = ctx.drawing.objects;
        FigObjectList moved = originals;
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(replaceObjects(&ctx, &clones), count);
        QCOMPARE(replaceObjects(&ctx, &moved), count);
        QCOMPARE(ctx.drawing.objects, originals);
        FigObjectList remaining = originals;
        removeObjects(&remaining, &moved);
        QVERIFY(remaining.isEmpty());
        QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    }
};

QTEST_GUILESS_MAIN(TestObjectLists)
#include "test_objectlists.moc"
