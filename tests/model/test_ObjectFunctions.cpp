#include "ObjectBuilders.h"
#include "RecordingShell.h"
#include "model/FigContext.h"

#include <QtTest>

#include <memory>

namespace {

/// A compound with 2 lines and a compound with 1 text; ids in the order of the walk from 1.
FigCompound* smallTree()
{
    return with(makeCompound({with(makeLine({{0, 0}, {1, 1}}), 2), with(makeLine({{2, 2}}), 3),
                              with(makeCompound({with(new FigText, 5)}), 4)}),
                1);
}

} // namespace

class TestObjectFunctions : public QObject {
    Q_OBJECT

private slots:
    void init() { recordingShell.clear(); }

    // --- flags ----------------------------------------------------------------------

    void flagsReachEveryLevelByApplyFunction()
    {
        OwnedList list{smallTree()};
        FigObject* text = findObjectById(&list, 5);
        applyFunction(&list, setIgnoreFlag);
        QVERIFY(list.first()->ignore && text->ignore);
        applyFunction(&list, clearIgnoreFlag);
        QVERIFY(!list.first()->ignore && !text->ignore);
        applyFunction(&list, setMarkedFlag);
        QCOMPARE(text->marked, 1);
        applyFunction(&list, clearMarkedFlag);
        QCOMPARE(text->marked, 0);
        applyFunction(&list, setTaggedFlag);
        QVERIFY(text->tagged);
        applyFunction(&list, copyTaggedFlagToIgnoreFlag);
        QVERIFY(text->ignore);
        applyFunction(&list, clearTaggedFlag);
        QVERIFY(!text->tagged && text->ignore);
    }

    void applyFunctionPassesItsArguments()
    {
        OwnedList list{smallTree()};
        applyFunction(&list, setTexCallFailedFlag, true);
        QVERIFY(static_cast<FigText*>(findObjectById(&list, 5))->texCallFailed);
        const auto setDepthAndStyle = [](FigObject* object, int depth, int style) {
            object->depth = depth;
            object->line_style = style;
        };
        applyFunction(&list, setDepthAndStyle, 11, 3);
        QCOMPARE(findObjectById(&list, 4)->depth, 11);
        QCOMPARE(findObjectById(&list, 5)->line_style, 3);
        applyFunction(nullptr, setIgnoreFlag);
    }

    void tagsAreSetAtAllLevelsAndMarksOnDirectMembers()
    {
        OwnedList list{smallTree()};
        set_tags(&list, true);
        QVERIFY(findObjectById(&list, 5)->tagged);
        set_marked(static_cast<FigCompound*>(list.first()), 2);
        QCOMPARE(findObjectById(&list, 4)->marked, 2);
        QCOMPARE(findObjectById(&list, 5)->marked, 0);
        QCOMPARE(list.first()->marked, 0);
    }

    // --- closed shapes and ends -----------------------------------------------------

    void closednessFollowsTypeAndSubType_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subType");
        QTest::addColumn<bool>("closed");
        QTest::newRow("polyline") << 2 << 1 << false;
        QTest::newRow("box") << 2 << 2 << true;
        QTest::newRow("polygon") << 2 << 3 << true;
        QTest::newRow("arc-box") << 2 << 4 << true;
        QTest::newRow("picture") << 2 << 5 << true;
        QTest::newRow("open approximated") << 3 << 0 << false;
        QTest::newRow("closed approximated") << 3 << 1 << true;
        QTest::newRow("open interpolated") << 3 << 2 << false;
        QTest::newRow("closed interpolated") << 3 << 3 << true;
        QTest::newRow("open X-spline") << 3 << 4 << false;
        QTest::newRow("closed X-spline") << 3 << 5 << true;
        QTest::newRow("ellipse") << 1 << 3 << false;
        QTest::newRow("arc") << 5 << 1 << false;
    }

    void closednessFollowsTypeAndSubType()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        FigObject object;
        object.type = type;
        object.sub_type = subType;
        QTEST(isClosed(&object), "closed");
    }

    void onlyTheFirstAndTheLastPointAreEnds()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {1, 1}, {2, 2}}));
        FigPath* path = line.get();
        FigPoint stranger(2, 2);
        QVERIFY(isEndpoint(path, line->getPoint(0)));
        QVERIFY(!isEndpoint(path, line->getPoint(1)));
        QVERIFY(isEndpoint(path, line->getPoint(2)));
        QVERIFY(!isEndpoint(path, &stranger));
        QVERIFY(!isEndpoint(path, nullptr));
    }

    void closedObjectsHaveNoEnds()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {1, 1}}));
        FigObject* object = line.get();
        QVERIFY(isEndpoint(object, line->points));
        line->sub_type = T_POLYGON;
        QVERIFY(!isEndpoint(object, line->points));
        const std::unique_ptr<FigSpline> spline(makeSpline({{0, 0}, {1, 1}}, 4));
        FigObject* splineObject = spline.get();
        QVERIFY(isEndpoint(splineObject, spline->points));
        spline->sub_type = 5;
        QVERIFY(!isEndpoint(splineObject, spline->points));
        FigText text;
        QVERIFY(!isEndpoint(static_cast<FigObject*>(&text), spline->points));
    }

    // --- copies ---------------------------------------------------------------------

    void aCopiedLineKeepsNoLinkUnlessAsked()
    {
        CFigContext ctx;
        const std::unique_ptr<FigLine> line(with(makeLine({{0, 0}, {1, 1}}), 8));
        makeLink(line->points, 77);
        const std::unique_ptr<FigObject> plain(copy(&ctx, line.get()));
        QVERIFY(!static_cast<FigLine*>(plain.get())->points->link);
        QCOMPARE(plain->id, 1L);
        const std::unique_ptr<FigLine> linked(copy_line(&ctx, line.get(), true));
        QCOMPARE(linked->points->link->targetObjId, 77L);
        QCOMPARE(linked->id, 2L);
        QCOMPARE(line->id, 8L);
    }

    void aCopiedSplineKeepsNoLinkUnlessAsked()
    {
        CFigContext ctx;
        const std::unique_ptr<FigSpline> spline(makeSpline({{0, 0}, {1, 1}}));
        makeLink(spline->points, 77);
        const std::unique_ptr<FigSpline> plain(copy_spline(&ctx, spline.get(), false));
        const std::unique_ptr<FigSpline> linked(copy_spline(&ctx, spline.get(), true));
        QVERIFY(!plain->points->link && linked->points->link);
    }

    void aCopiedCompoundAndItsMembersGetNewIdsInOrder()
    {
        CFigContext ctx;
        ctx.nextId = 100;
        const std::unique_ptr<FigCompound> tree(smallTree());
        makeLink(static_cast<FigLine*>(tree->objects->first())->points, 3);
        const std::unique_ptr<FigObject> copied(copy(&ctx, tree.get()));
        auto* compound = static_cast<FigCompound*>(copied.get());
        QCOMPARE(compound->id, 101L);
        QCOMPARE(compound->objects->first()->id, 102L);
        QCOMPARE(getMaxId(compound->objects), 105L);
        QCOMPARE(tree->id, 1L);
        // Members keep their links, and these still name the members of the original.
        QCOMPARE(static_cast<FigLine*>(compound->objects->first())->points->link->targetObjId, 3L);
    }

    void everyTypeIsCopiedAndNoneOfAnUnknownOne()
    {
        CFigContext ctx;
        FigEllipse ellipse;
        FigText text;
        FigArc arc;
        FigObject bare;
        const std::unique_ptr<FigObject> copies[] = {
            std::unique_ptr<FigObject>(copy(&ctx, &ellipse)),
            std::unique_ptr<FigObject>(copy(&ctx, &text)),
            std::unique_ptr<FigObject>(copy(&ctx, &arc))};
        QCOMPARE(copies[0]->type, int(O_ELLIPSE));
        QCOMPARE(copies[1]->type, int(O_TEXT));
        QCOMPARE(copies[2]->type, int(O_ARC));
        QCOMPARE(copies[2]->id, 3L);
        QVERIFY(!copy(&ctx, &bare));
    }

    // --- arrows ---------------------------------------------------------------------

    void anArrowKeepsUsableNumbersAndTakesCurrentAttributesForOthers_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("style");
        QTest::addColumn<QVector<float>>("numbers"); // thickness, width, height
        QTest::addColumn<int>("expectedKind");
        QTest::addColumn<int>("expectedStyle");
        QTest::addColumn<QVector<float>>("expected");
        const QVector<float> usable = {2, 30, 40};
        const QVector<float> current = {1, 60, 120};
        QTest::newRow("usable") << 3 << 1 << usable << 3 << 1 << usable;
        QTest::newRow("kind 15") << 15 << 1 << usable << 15 << 1 << usable;
        QTest::newRow("kind 16") << 16 << 1 << usable << 0 << 0 << usable;
        QTest::newRow("negative kind") << -1 << 1 << usable << 0 << 0 << usable;
        QTest::newRow("style 2") << 3 << 2 << usable << 3 << 0 << usable;
        QTest::newRow("negative style") << 3 << -1 << usable << 3 << 0 << usable;
        QTest::newRow("nothing usable") << 3 << 0 << QVector<float>{0, 0, -1} << 3 << 0 << current;
        QTest::newRow("height 0 stays")
            << 3 << 0 << QVector<float>{2, 30, 0} << 3 << 0 << QVector<float>{2, 30, 0};
        QTest::newRow("greatest") << 3 << 0 << QVector<float>{12000, 1e6f, 60000} << 3 << 0
                                  << QVector<float>{12000, 1e6f, 60000};
        QTest::newRow("too great") << 3 << 0 << QVector<float>{12001, 1e6f, 60001} << 3 << 0
                                   << QVector<float>{1, 1e6f, 120};
    }

    void anArrowKeepsUsableNumbersAndTakesCurrentAttributesForOthers()
    {
        QFETCH(int, kind);
        QFETCH(int, style);
        QFETCH(QVector<float>, numbers);
        CFigContext ctx;
        const std::unique_ptr<FigArrow> arrow(
            new_arrow(&ctx, kind, style, numbers[0], numbers[1], numbers[2], 5));
        QTEST(arrow->type, "expectedKind");
        QTEST(arrow->style, "expectedStyle");
        QTEST((QVector<float>{arrow->thickness, arrow->wd, arrow->ht}), "expected");
    }

    // --- asking ---------------------------------------------------------------------

    void countingPassesCompoundsBy()
    {
        OwnedList list{smallTree()};
        QCOMPARE(countObjects(&list), 3);
        QCOMPARE(countObjects(nullptr), 0);
        QCOMPARE(object_count(&list), 1);
        QCOMPARE(object_count(static_cast<FigCompound*>(list.first())), 3);
    }

    void idMinusOneFindsNothing()
    {
        OwnedList list{new FigText, smallTree()};
        QCOMPARE(list.first()->id, -1L);
        QVERIFY(!findObjectById(&list, -1));
        QVERIFY(!findObjectById(&list, 6));
        QCOMPARE(findObjectById(&list, 5)->type, int(O_TEXT));
        QVERIFY(!findObjectById(nullptr, 5));
    }

    void parentsAndOwnersOfListsAreFoundAtEveryLevel()
    {
        OwnedList list{smallTree()};
        auto* outer = static_cast<FigCompound*>(list.first());
        auto* inner = static_cast<FigCompound*>(findObjectById(&list, 4));
        FigObject* text = findObjectById(&list, 5);
        QVERIFY(!getParentCompound(&list, outer));
        QCOMPARE(getParentCompound(&list, inner), outer);
        QCOMPARE(getParentCompound(&list, text), inner);
        QCOMPARE(getCompoundByObjectList(&list, inner->objects), inner);
        QVERIFY(!getCompoundByObjectList(&list, &list));
        QVERIFY(isInCompound(outer, text));
        QVERIFY(!isInCompound(inner, outer));
    }

    void membershipIsByPointerOrById()
    {
        OwnedList list{smallTree()};
        FigObject* text = findObjectById(&list, 5);
        FigText twin;
        twin.id = 5;
        FigText nameless;
        QVERIFY(isInList(&list, text, false));
        QVERIFY(!isInList(&list, &twin, false));
        QVERIFY(isInList(&list, &twin, true));
        QVERIFY(!isInList(&list, &nameless, true));
        QVERIFY(!isInList(static_cast<FigObjectList*>(nullptr), text, false));
    }

    void pointsAndLinksAreFoundInTheirLists()
    {
        FigPoint* first = makePoints({{0, 0}, {1, 1}});
        FigPoint stranger;
        QVERIFY(isInList(first, first->next));
        QVERIFY(!isInList(first, &stranger));
        free_points(first);
        FigLink link;
        QList<FigLink*> links{&link};
        QVERIFY(isInList(&links, &link));
        QVERIFY(!isInList(&links, static_cast<FigLink*>(nullptr)));
    }

    void theRootCompoundIsTheOutermostParent()
    {
        FigCompound outer;
        FigCompound inner;
        inner.parent = &outer;
        QCOMPARE(get_root_compound(&inner), &outer);
        QCOMPARE(get_root_compound(&outer), &outer);
        QVERIFY(!get_root_compound(nullptr));
    }

    void taggedObjectsAreCountedAmongDirectEntriesOnly()
    {
        OwnedList list{new FigText, new FigArc, smallTree()};
        QVERIFY(!moreThanOneTaggedObject(&list));
        list.first()->tagged = true;
        findObjectById(&list, 5)->tagged = true;
        QVERIFY(!moreThanOneTaggedObject(&list));
        QVERIFY(!isAnotherObjectTagged(&list, list.first()));
        QVERIFY(isAnotherObjectTagged(&list, list.last()));
        list.last()->tagged = true;
        QVERIFY(moreThanOneTaggedObject(&list));
    }

    void objectsOfOneTypeAreRecognisedAndCollected()
    {
        OwnedList list{new FigText, new FigText};
        QVERIFY(isAllObjectsOfSameType(&list));
        list.append(new FigArc);
        QVERIFY(!isAllObjectsOfSameType(&list));
        FigObjectList none;
        QVERIFY(isAllObjectsOfSameType(&none));
        const std::unique_ptr<FigObjectList> texts(getObjectsByType(&list, O_TEXT));
        QCOMPARE(texts->size(), 2);
        getObjectsByType(&list, O_ARC, *texts);
        QCOMPARE(texts->last(), list.last());
    }
};

QTEST_GUILESS_MAIN(TestObjectFunctions)
#include "test_ObjectFunctions.moc"
