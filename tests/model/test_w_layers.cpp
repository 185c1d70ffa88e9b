#include "ObjectBuilders.h"
#include "RecordingShell.h"
#include "model/FigContext.h"
#include "model/w_layers.h"

#include <QtTest>

namespace {

/// Stands for a window; the recording shell never looks into it.
QTChildFrm* someWindow()
{
    static int window;
    return reinterpret_cast<QTChildFrm*>(&window);
}

QPoint limits(const CFigContext& ctx)
{
    return {ctx.min_depth, ctx.max_depth};
}

void addText(CFigContext* ctx, int depth)
{
    list_add(ctx, &ctx->drawing.objects, with(new FigText, 1, depth));
}

} // namespace

class TestLayers : public QObject {
    Q_OBJECT

private slots:
    void init() { recordingShell.clear(); }

    // --- depth table ----------------------------------------------------------------

    void addingCountsTheDepthAndTheType()
    {
        CFigContext ctx;
        for (const int type : {O_ELLIPSE, O_POLYLINE, O_SPLINE, O_TEXT, O_ARC, O_ARC})
            add_depth(&ctx, type, 40);
        QCOMPARE(ctx.object_depths[40], 6);
        QCOMPARE(ctx.counts[40].ellipses, 1);
        QCOMPARE(ctx.counts[40].lines, 1);
        QCOMPARE(ctx.counts[40].splines, 1);
        QCOMPARE(ctx.counts[40].texts, 1);
        QCOMPARE(ctx.counts[40].arcs, 2);
        QCOMPARE(limits(ctx), QPoint(40, 40));
    }

    void limitsFollowTheFirstAndLastDepthInUse()
    {
        CFigContext ctx;
        add_depth(&ctx, O_TEXT, 50);
        add_depth(&ctx, O_TEXT, 999);
        add_depth(&ctx, O_TEXT, 0);
        QCOMPARE(limits(ctx), QPoint(0, 999));
        remove_depth(&ctx, O_TEXT, 0);
        QCOMPARE(limits(ctx), QPoint(50, 999));
        remove_depth(&ctx, O_TEXT, 999);
        QCOMPARE(limits(ctx), QPoint(50, 50));
    }

    void limitsAreMinusOneWhenTheLastOfAllObjectsIsDeleted()
    {
        CFigContext ctx;
        addText(&ctx, 50);
        FigObject* only = ctx.drawing.objects.first();
        list_delete(&ctx, &ctx.drawing.objects, only);
        QCOMPARE(limits(ctx), QPoint(-1, -1));
        delete only;
    }

    void depthsOutsideTheTableCountAtItsEnds()
    {
        CFigContext ctx;
        add_depth(&ctx, O_TEXT, -5);
        add_depth(&ctx, O_TEXT, 5000);
        QCOMPARE(limits(ctx), QPoint(0, 999));
    }

    void noCounterFallsBelowZero()
    {
        CFigContext ctx;
        remove_depth(&ctx, O_TEXT, 50);
        QCOMPARE(ctx.object_depths[50], 0);
        QCOMPARE(ctx.counts[50].texts, 0);
        QCOMPARE(limits(ctx), QPoint(-1, -1));
    }

    void aCompoundCountsForItsMembersAndNotForItself()
    {
        CFigContext ctx;
        FigCompound* inner = with(makeCompound({with(new FigText, 3, 30)}), 2, 7);
        FigCompound* outer = with(makeCompound({inner, with(new FigText, 4, 60)}), 1, 5);
        list_add(&ctx, &ctx.drawing.objects, outer);
        QCOMPARE(ctx.object_depths[0] + ctx.object_depths[5] + ctx.object_depths[7], 0);
        QCOMPARE(ctx.object_depths[30], 1);
        QCOMPARE(limits(ctx), QPoint(30, 60));
        QCOMPARE(list_delete(&ctx, &ctx.drawing.objects, outer), 1);
        QCOMPARE(limits(ctx), QPoint(-1, -1));
        delete outer;
    }

    void listsOtherThanTheDrawingsOwnAreNotCounted()
    {
        CFigContext ctx;
        OwnedList other;
        list_add(&ctx, &other, with(new FigText, 1, 30));
        QCOMPARE(limits(ctx), QPoint(-1, -1));
        add_depth(&ctx, O_TEXT, 30);
        FigObject* object = other.first();
        QCOMPARE(list_delete(&ctx, &other, object), 1);
        QCOMPARE(ctx.object_depths[30], 1);
        delete object;
    }

    void settingTheDepthsAnewCountsEachObjectOnce()
    {
        CFigContext ctx;
        addText(&ctx, 20);
        ctx.drawing.objects.append(makeCompound({with(new FigText, 2, 90)}));
        ctx.counts[20].drawnTexts = 4;
        set_depths(&ctx);
        set_depths(&ctx);
        QCOMPARE(ctx.object_depths[20], 1);
        QCOMPARE(ctx.counts[20].texts, 1);
        QCOMPARE(ctx.counts[20].drawnTexts, 4);
        QCOMPARE(limits(ctx), QPoint(20, 90));
        deleteObjectList(&ctx.drawing.objects);
        set_depths(&ctx);
        QCOMPARE(limits(ctx), QPoint(-1, -1));
    }

    void bulkCountingEqualsCountingOneByOne()
    {
        CFigContext bulk;
        CFigContext single;
        for (int i = 0; i < 500; ++i)
            bulk.drawing.objects.append(with(new FigText, i, (i * 7919) % 1000));
        add_depth(&bulk, &bulk.drawing.objects);
        for (FigObject* object : qAsConst(bulk.drawing.objects))
            add_depth(&single, object->type, object->depth);
        QCOMPARE(limits(bulk), limits(single));
        QVERIFY(std::equal(std::begin(bulk.object_depths), std::end(bulk.object_depths),
                           std::begin(single.object_depths)));
        remove_depth(&bulk, &bulk.drawing.objects);
        QCOMPARE(limits(bulk), QPoint(-1, -1));
    }

    // --- layer panel ----------------------------------------------------------------

    void thePanelFollowsEachChangeButABulkOnlyOnce()
    {
        CFigContext ctx;
        ctx.chFrm = someWindow();
        add_depth(&ctx, O_TEXT, 1);
        remove_depth(&ctx, O_TEXT, 1);
        QCOMPARE(recordingShell.layerPanelUpdates, 2);
        OwnedList list{with(new FigText, 1, 1), with(new FigText, 2, 2)};
        add_depth(&ctx, &list);
        QCOMPARE(recordingShell.layerPanelUpdates, 3);
        ctx.chFrm = nullptr;
    }

    void theLayersOfAnOffScreenFigureLeaveThePanelAlone()
    {
        CFigContext ctx;
        update_layers(&ctx);
        QCOMPARE(recordingShell.layerPanelUpdates, 0);
        update_layers(nullptr);
        QCOMPARE(recordingShell.layerPanelUpdates, 1);
    }

    void nothingReachesThePanelWhileUpdatesAreDeferred()
    {
        ++defer_update_layers;
        update_layers(nullptr);
        --defer_update_layers;
        QCOMPARE(recordingShell.layerPanelUpdates, 0);
    }

    // --- toggling -------------------------------------------------------------------

    void aLayerOutsideTheDepthsInUseIsNotToggled()
    {
        CFigContext ctx;
        toggle_layer(&ctx, 0, false);
        addText(&ctx, 20);
        addText(&ctx, 40);
        toggle_layer(&ctx, 19, false);
        toggle_layer(&ctx, 41, false);
        QVERIFY(ctx.active_layers[0] && ctx.active_layers[19] && ctx.active_layers[41]);
        QVERIFY(recordingShell.redraws.isEmpty());
    }

    void switchingALayerOffRedrawsTheCanvas()
    {
        CFigContext ctx;
        addText(&ctx, 20);
        toggle_layer(&ctx, 20, false);
        QVERIFY(!ctx.active_layers[20]);
        QCOMPARE(recordingShell.redraws, QStringList("canvas"));
    }

    void switchingALayerOnUnderAShownOneRedrawsTheCanvas()
    {
        CFigContext ctx;
        addText(&ctx, 20);
        addText(&ctx, 40);
        toggle_layer(&ctx, 40, true);
        QCOMPARE(recordingShell.redraws, QStringList("canvas"));
    }

    void switchingALayerOnThatNothingCoversDrawsOnlyThatDepth()
    {
        CFigContext ctx;
        addText(&ctx, 20);
        addText(&ctx, 40);
        ctx.active_layers[20] = false;
        ctx.counts[40].drawnTexts = 3;
        toggle_layer(&ctx, 40, true);
        QCOMPARE(recordingShell.redraws, QStringList("depth 40"));
        QCOMPARE(ctx.counts[40].drawnTexts, 0);
        QCOMPARE(ctx.counts[40].texts, 1);
    }

    void aCompoundIsActiveWhenAMemberAtAnyLevelIs()
    {
        CFigContext ctx;
        FigCompound* inner = makeCompound({with(new FigText, 3, 30)});
        FigCompound* outer = makeCompound({inner, with(new FigText, 4, 60)});
        ctx.drawing.objects.append(outer);
        ctx.active_layers[60] = false;
        QVERIFY(any_active_in_compound(&ctx, outer));
        ctx.active_layers[30] = false;
        QVERIFY(!any_active_in_compound(&ctx, outer));
    }

    // --- saved copies ---------------------------------------------------------------

    void savedLayersDepthsAndCountsComeBack()
    {
        CFigContext ctx;
        ctx.chFrm = someWindow();
        addText(&ctx, 20);
        ctx.active_layers[3] = false;
        save_active_layers(&ctx);
        save_depths(&ctx);
        save_counts_and_clear(&ctx);
        QCOMPARE(ctx.counts[20].texts, 0);
        reset_layers(&ctx);
        reset_depths(&ctx);
        QVERIFY(ctx.active_layers[3]);
        QCOMPARE(limits(ctx), QPoint(-1, -1));

        recordingShell.clear();
        restore_active_layers(&ctx);
        restore_counts(&ctx);
        QCOMPARE(recordingShell.layerPanelUpdates, 0);
        restore_depths(&ctx);
        QCOMPARE(recordingShell.layerPanelUpdates, 1);
        QVERIFY(!ctx.active_layers[3]);
        QCOMPARE(ctx.counts[20].texts, 1);
        QCOMPARE(ctx.object_depths[20], 1);
        QCOMPARE(limits(ctx), QPoint(20, 20));
        ctx.chFrm = nullptr;
    }

    void clearingTheCountsOfARedrawLeavesThoseOfTheFigure()
    {
        CFigContext ctx;
        ctx.counts[5] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
        clearcounts(&ctx);
        QCOMPARE(ctx.counts[5].arcs + ctx.counts[5].texts, 6);
        QCOMPARE(ctx.counts[5].drawnArcs + ctx.counts[5].drawnLines + ctx.counts[5].drawnTexts, 0);
        clearallcounts(&ctx);
        QCOMPARE(ctx.counts[5].arcs + ctx.counts[5].texts, 0);
    }
};

QTEST_GUILESS_MAIN(TestLayers)
#include "test_w_layers.moc"
