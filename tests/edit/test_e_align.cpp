// Alignment of the tagged objects. All lines have no width, so that painted boxes are those of the
// points; shifts are worked out by hand.
#include "edit/e_align.h"

#include "ActionFixture.h"
#include "CurrentAttributes.h"

#include <QtTest>

namespace {

FigLine* makeBox(int left, int top, int width, int height)
{
    return makeLine({{left, top},
                     {left + width, top},
                     {left + width, top + height},
                     {left, top + height},
                     {left, top}},
                    T_BOX);
}

template <typename Object> Object* tagged(Object* object)
{
    object->tagged = true;
    return object;
}

QPoint corner(FigLine* line)
{
    return {line->points->x, line->points->y};
}

} // namespace

class TestAlign : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        recordingShell.clear();
        resetCurrentAttributes();
    }

    void cleanupTestCase() { resetCurrentAttributes(); }

    // The reference is 1000..1300 by 2000..2200; the box is 100 by 51, the other side at 0.
    void objectsMeetTheCurrentObject_data()
    {
        QTest::addColumn<int>("horizontal");
        QTest::addColumn<int>("vertical");
        QTest::addColumn<QPoint>("expected");
        QTest::newRow("left") << 1 << 0 << QPoint(1000, 0);
        QTest::newRow("top") << 0 << 1 << QPoint(0, 2000);
        QTest::newRow("right") << 3 << 0 << QPoint(1200, 0);
        QTest::newRow("bottom") << 0 << 3 << QPoint(0, 2149);
        QTest::newRow("centre horizontally") << 2 << 0 << QPoint(1100, 0);
        // (2000 + 2200) / 2 - 51 / 2, each cut to a whole number
        QTest::newRow("centre vertically") << 0 << 2 << QPoint(0, 2100 - 25);
        QTest::newRow("centre both ways") << 2 << 2 << QPoint(1100, 2075);
        QTest::newRow("not at all") << 0 << 0 << QPoint(0, 0);
    }

    void objectsMeetTheCurrentObject()
    {
        QFETCH(int, horizontal);
        QFETCH(int, vertical);
        EditedFigure figure;
        auto* reference = figure.put(tagged(makeBox(1000, 2000, 300, 200)));
        auto* box = figure.put(tagged(makeBox(0, 0, 100, 51)));
        figure.ctx.curObject = reference;
        cur_halign = horizontal;
        cur_valign = vertical;
        align_tagged_objects(&figure.ctx);
        QTEST(corner(box), "expected");
        QCOMPARE(corner(reference), QPoint(1000, 2000));
        QCOMPARE(figure.queue().undoCount(), 1);
        figure.undo();
        QCOMPARE(corner(box), QPoint(0, 0));
        figure.redo();
        QTEST(corner(box), "expected");
    }

    // The sum of two edges is beyond the whole numbers there. Boxes are single precision, which
    // has multiples of 128 only.
    void centresFarOutMeet()
    {
        EditedFigure figure;
        auto* reference = figure.put(tagged(makeBox(1500000000, 1200000000, 512, 512)));
        auto* box = figure.put(tagged(makeBox(100000000, -1400000000, 256, 256)));
        figure.ctx.curObject = reference;
        cur_halign = 2;
        align_tagged_objects(&figure.ctx);
        QCOMPARE(corner(box), QPoint(1500000128, -1400000000));
        figure.undo();
        QCOMPARE(corner(box), QPoint(100000000, -1400000000));
    }

    void withoutACurrentObjectAllTaggedOnesTogetherAreTheReference()
    {
        EditedFigure figure;
        auto* first = figure.put(tagged(makeBox(1000, 2000, 300, 200)));
        auto* second = figure.put(tagged(makeBox(500, 100, 100, 100)));
        auto* untagged = figure.put(makeBox(0, 0, 9000, 9000));
        cur_halign = 3;
        cur_valign = 1;
        align_tagged_objects(&figure.ctx);
        QCOMPARE(corner(first), QPoint(1000, 100));
        QCOMPARE(corner(second), QPoint(1200, 100));
        QCOMPARE(corner(untagged), QPoint(0, 0));
        QCOMPARE(figure.queue().undoCount(), 1);
    }

    // The reference need not be among the tagged objects.
    void theCurrentObjectStaysWhenItIsNotTagged()
    {
        EditedFigure figure;
        auto* reference = figure.put(makeBox(1000, 2000, 300, 200));
        auto* box = figure.put(tagged(makeBox(0, 0, 100, 50)));
        figure.ctx.curObject = reference;
        cur_halign = 1;
        align_tagged_objects(&figure.ctx);
        QCOMPARE(corner(box), QPoint(1000, 0));
        QCOMPARE(corner(reference), QPoint(1000, 2000));
    }

    void oneTaggedObjectAloneDoesNothingVisible()
    {
        EditedFigure figure;
        auto* box = figure.put(tagged(makeBox(100, 200, 300, 200)));
        cur_halign = cur_valign = 2;
        align_tagged_objects(&figure.ctx);
        QCOMPARE(corner(box), QPoint(100, 200));
    }

    void nothingTaggedMakesNoStep()
    {
        EditedFigure figure;
        figure.put(makeBox(100, 200, 300, 200));
        cur_halign = 1;
        align_tagged_objects(&figure.ctx);
        align_tagged_objects(nullptr);
        QCOMPARE(figure.queue().undoCount(), 0);
        QVERIFY(!figure.ctx.modified);
    }

    void objectsOnHiddenLayersStay()
    {
        EditedFigure figure;
        auto* reference = figure.put(tagged(with(makeBox(1000, 2000, 300, 200), 1, 10)));
        auto* hidden = figure.put(tagged(with(makeBox(0, 0, 100, 50), 2, 20)));
        auto* compound = figure.put(tagged(makeCompound({with(makeBox(0, 0, 100, 50), 3, 20)})));
        auto* mixed = figure.put(tagged(makeCompound(
            {with(makeBox(0, 0, 100, 50), 4, 20), with(makeBox(0, 0, 100, 50), 5, 10)})));
        figure.ctx.active_layers[20] = false;
        figure.ctx.curObject = reference;
        cur_halign = 1;
        align_tagged_objects(&figure.ctx);
        QCOMPARE(corner(hidden), QPoint(0, 0));
        QCOMPARE(corner(static_cast<FigLine*>(compound->objects->first())), QPoint(0, 0));
        QCOMPARE(corner(static_cast<FigLine*>(mixed->objects->first())), QPoint(1000, 0));
        QCOMPARE(corner(static_cast<FigLine*>(mixed->objects->last())), QPoint(1000, 0));
        QCOMPARE(mixed->nwcorner.x, 1000);
    }

    void theStepIsQueuedBeforeItIsExecuted()
    {
        // A document that a step is put into drops what could be redone. If the moves came first,
        // they would be there already when that happens.
        struct Witness : ActionItem {
            Witness(FigLine* line, QPoint* place) : watched(line), seen(place) {}
            void disposeAsRedo() override { *seen = corner(watched); }
            FigLine* watched;
            QPoint* seen;
        };
        EditedFigure figure;
        figure.put(tagged(makeBox(1000, 2000, 300, 200)));
        auto* box = figure.put(tagged(makeBox(0, 0, 100, 50)));
        QPoint seen(-1, -1);
        figure.run(new Witness(box, &seen));
        figure.undo();
        cur_halign = 3;
        align_tagged_objects(&figure.ctx);
        QCOMPARE(seen, QPoint(0, 0));
        QCOMPARE(corner(box), QPoint(1200, 0));
    }

    void whatIsLinkedToAMovedObjectFollowsIt()
    {
        EditedFigure figure;
        auto* reference = figure.put(tagged(with(makeBox(1000, 2000, 300, 200), 1)));
        auto* box = figure.put(tagged(with(makeBox(0, 0, 100, 50), 2)));
        auto* connector = figure.put(with(makeLine({{100, 25}, {400, 400}}), 3));
        makeLink(connector->points, 2, 1, 2);
        connector->points->link->targetLeftPoint = box->getPoint(1);
        connector->points->link->targetRightPoint = box->getPoint(2);
        figure.ctx.curObject = reference;
        cur_halign = 1;
        align_tagged_objects(&figure.ctx);
        QCOMPARE(chain(connector), QString("1100,25 400,400"));
        figure.undo();
        QCOMPARE(chain(connector), QString("100,25 400,400"));
    }

    void theMembersOfAnOpenCompoundAreAlignedAlone()
    {
        EditedFigure figure;
        auto* first = tagged(makeBox(1000, 2000, 300, 200));
        auto* second = tagged(makeBox(0, 0, 100, 50));
        auto* compound = figure.put(makeCompound({first, second}));
        auto* outside = figure.put(tagged(makeBox(-500, 0, 100, 50)));
        figure.ctx.openCompoundObjects = compound->objects;
        cur_halign = 1;
        align_tagged_objects(&figure.ctx);
        QCOMPARE(corner(first), QPoint(0, 2000));
        QCOMPARE(corner(outside), QPoint(-500, 0));
        figure.ctx.openCompoundObjects = nullptr;
    }
};

QTEST_MAIN(TestAlign)
#include "test_e_align.moc"
