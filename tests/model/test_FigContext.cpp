#include "ObjectBuilders.h"
#include "RecordingShell.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/w_layers.h"

#include <QtTest>

#include <algorithm>

namespace {

/// Notes whether the drawing still held its object when the queue was emptied.
class LateAction : public ActionItem {
public:
    LateAction(CFigContext* document, bool* seen) : ctx(document), alive(seen) {}
    void disposeAsUndo() override { *alive = !ctx->drawing.objects.isEmpty(); }

private:
    CFigContext* ctx;
    bool* alive;
};

} // namespace

class TestFigContext : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        recordingShell.clear();
        gridPreferences = GridPreferences();
    }

    void aNewContextHasItsStartValues()
    {
        CFigContext ctx;
        QVERIFY(ctx.filename.isEmpty() && !ctx.chFrm && !ctx.painter);
        QVERIFY(!ctx.modified && !ctx.openCompoundObjects && !ctx.addPointActions);
        QVERIFY(!ctx.movedObjects && !ctx.curObject && !ctx.reshapedObject && !ctx.newPath);
        QVERIFY(!ctx.firstPoint && !ctx.lastPoint && !ctx.foundObject && !ctx.linkTargetOk);
        QCOMPARE(ctx.shiftX + ctx.shiftY, 0);
        QCOMPARE(ctx.zoom, 1.0f);
        QCOMPARE(ctx.savedZoom, -1.0f);
        QVERIFY(!ctx.landscape && ctx.flushLeft && !ctx.multiplePage);
        QCOMPARE(ctx.paperSize, 13);
        QCOMPARE(ctx.magnification, 100.0f);
        QVERIFY(!ctx.getDontHide1ptThickness());
        QCOMPARE(ctx.cur_pencolor, 0);
        QCOMPARE(ctx.cur_fillcolor, 7);
        QCOMPARE(ctx.cur_fillstyle, -1);
        QCOMPARE(ctx.transparentColor, -2);
        QVERIFY(ctx.showPageBorders);
        QCOMPARE(ctx.layerMode, 10);
        QCOMPARE(ctx.min_depth, -1);
        QCOMPARE(ctx.max_depth, -1);
        QCOMPARE(ctx.nextId, 0L);
        QCOMPARE(ctx.drawing.resolution, 1200);
        QCOMPARE(ctx.drawing.coord_system, 0);
        const auto isTrue = [](bool on) { return on; };
        QVERIFY(std::all_of(std::begin(ctx.active_layers), std::end(ctx.active_layers), isTrue));
        const auto isZero = [](int count) { return count == 0; };
        QVERIFY(std::all_of(std::begin(ctx.object_depths), std::end(ctx.object_depths), isZero));
    }

    void currentAttributesHaveTheirStartValues()
    {
        QCOMPARE(cur_linewidth, 1);
        QCOMPARE(cur_styleval, 4.0f);
        QCOMPARE(cur_depth, 50);
        QCOMPARE(cur_boxtype, 2);
        QCOMPARE(cur_boxradius, 7);
        QCOMPARE(cur_numsides, 6);
        QCOMPARE(cur_rotnangle, 90);
        QCOMPARE(cur_fontsize, 12);
        QCOMPARE(cur_textflags, 4);
        QCOMPARE(cur_textstep, 1.2f);
        QCOMPARE(cur_arrowthick, 1.0f);
        QCOMPARE(cur_arrowwidth, 60.0f);
        QCOMPARE(cur_arrowheight, 120.0f);
        QCOMPARE(cur_arrow_multwidth, 60.0f);
        QVERIFY(!use_abs_arrowvals && !autoforwardarrow_mode && !autobackwardarrow_mode);
    }

    void gridValuesComeFromThePreferences()
    {
        gridPreferences.gridOn = true;
        gridPreferences.gridIndex = 5;
        gridPreferences.magnetMode = 1;
        gridPreferences.metric = false;
        CFigContext ctx;
        QVERIFY(ctx.gridOn && !ctx.metric);
        QCOMPARE(ctx.gridIndex, 5);
        QCOMPARE(ctx.magnetMode, 1);
    }

    void theFirstIdIsOne()
    {
        CFigContext ctx;
        QCOMPARE(ctx.getNextId(), 1L);
        QCOMPARE(ctx.getNextId(), 2L);
        QCOMPARE(ctx.nextId, 2L);
    }

    void anOpenCompoundIsTheWorkingRootWhileDepthsStayThoseOfTheDrawing()
    {
        CFigContext ctx;
        list_add(&ctx, &ctx.drawing.objects, with(new FigText, 1, 70));
        QCOMPARE(ctx.getWorkingRoot(), &ctx.drawing.objects);
        FigCompound* compound = makeCompound({with(new FigText, 2, 30)});
        list_add(&ctx, &ctx.drawing.objects, compound);
        ctx.openCompoundObjects = compound->objects;
        QCOMPARE(ctx.getWorkingRoot(), compound->objects);
        QCOMPARE(ctx.min_depth, 30);
        QCOMPARE(ctx.max_depth, 70);
    }

    void clearingObjectsDeletesNone()
    {
        int deaths = 0;
        CFigContext ctx;
        auto* object = new MortalObject(&deaths);
        ctx.drawing.objects.append(object);
        ctx.clearObjects();
        QVERIFY(ctx.drawing.objects.isEmpty());
        QCOMPARE(deaths, 0);
        delete object;
    }

    void pixelsPerInchFollowThePreference_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<float>("ppiX");
        QTest::addColumn<float>("ppiY");
        QTest::newRow("FIG dpi") << 0 << 80.0f << 80.0f;
        QTest::newRow("screen dpi") << 1 << 101.0f << 99.0f;
        QTest::newRow("font dpi") << 2 << 72.0f << 72.0f;
    }

    void pixelsPerInchFollowThePreference()
    {
        QFETCH(int, mode);
        recordingShell.dpiX = 101.0f;
        recordingShell.dpiY = 99.0f;
        gridPreferences.dpiAtZoom100 = mode;
        CFigContext ctx;
        QTEST(ctx.ppiX, "ppiX");
        QTEST(ctx.ppiY, "ppiY");
    }

    void zoomAndShiftCanBeRevertedToWhatWasSaved()
    {
        CFigContext ctx;
        ctx.zoom = 2.5f;
        ctx.shiftX = 10;
        ctx.shiftY = -20;
        ctx.saveZoomAndShift();
        ctx.zoom = 1.0f;
        ctx.shiftX = ctx.shiftY = 0;
        ctx.revertZoomAndShift();
        QCOMPARE(ctx.zoom, 2.5f);
        QCOMPARE(QPoint(ctx.shiftX, ctx.shiftY), QPoint(10, -20));
    }

    void theModifiedFlagWorksWithoutAWindow()
    {
        CFigContext ctx;
        ctx.setModifiedflag();
        QVERIFY(ctx.modified);
        ctx.resetModifiedflag();
        QVERIFY(!ctx.modified);
    }

    // --- user colours -------------------------------------------------------------

    void anInvalidColourIsRefusedAndLeavesTheDocumentAsItWas()
    {
        CFigContext ctx;
        QCOMPARE(ctx.addUserColor(QColor()), -1);
        QVERIFY(ctx.userColors.isEmpty() && ctx.userColorShades.isEmpty());
    }

    void anEqualColourIsAddedASecondTime()
    {
        CFigContext ctx;
        QCOMPARE(ctx.addUserColor(Qt::red), 0);
        QCOMPARE(ctx.addUserColor(Qt::red), 1);
        QCOMPARE(ctx.userColors.size(), 2);
    }

    void aColourTakesTheLowestFreeKey()
    {
        CFigContext ctx;
        ctx.userColors = {{0, Qt::red}, {1, Qt::green}, {3, Qt::blue}};
        QCOMPARE(ctx.addUserColor(Qt::white), 2);
        QCOMPARE(ctx.addUserColor(Qt::white), 4);
        ctx.userColors.remove(0);
        QCOMPARE(ctx.addUserColor(Qt::white), 0);
    }

    void shadesRunFromBlackOverTheColourToWhite()
    {
        CFigContext ctx;
        const int key = ctx.addUserColor(QColor(0x12, 0x34, 0x56));
        const unsigned* shades = ctx.userColorShades.value(key);
        QCOMPARE(shades[0], 0u);
        QCOMPARE(shades[20], 0x123456u);
        QCOMPARE(shades[40], 0xffffffu);
    }

    void aReusedKeyReplacesTheShadesThatADeletedColourLeft()
    {
        CFigContext ctx;
        ctx.addUserColor(Qt::red);
        ctx.userColors.remove(0);
        QVERIFY2(ctx.userColorShades.contains(0), "shades of a deleted colour stay");
        QCOMPARE(ctx.addUserColor(Qt::blue), 0);
        QCOMPARE(ctx.userColorShades.value(0)[20], 0x0000ffu);
    }

    void aFullTableTakesNoFurtherColour()
    {
        CFigContext ctx;
        for (int key = 0; key < 65534; ++key)
            ctx.userColors.insert(key, Qt::red);
        QCOMPARE(ctx.addUserColor(Qt::blue), 65534);
        QCOMPARE(ctx.userColors.size(), 65534);
        ctx.userColors.remove(65533);
        QCOMPARE(ctx.addUserColor(Qt::blue), 65533);
    }

    void colourNumbersAreKeysPlusThirtyTwo()
    {
        CFigContext ctx;
        ctx.addUserColor(Qt::red);
        QVERIFY(ctx.isValidUserColorIndex(32));
        QVERIFY(!ctx.isValidUserColorIndex(33));
        QVERIFY(!ctx.isValidUserColorIndex(31));
        QVERIFY(!ctx.isValidUserColorIndex(0));
        ctx.clearUserColors();
        QVERIFY(!ctx.isValidUserColorIndex(32) && ctx.userColorShades.isEmpty());
    }

    // --- the end --------------------------------------------------------------------

    void movedObjectsDieOnceWhetherTheTreeHoldsThemOrNot()
    {
        int deaths = 0;
        {
            CFigContext ctx;
            auto* top = new MortalObject(&deaths);
            auto* member = new MortalObject(&deaths);
            ctx.drawing.objects.append(top);
            ctx.drawing.objects.append(makeCompound({member}));
            ctx.movedObjects = new FigObjectList{top, member, new MortalObject(&deaths)};
        }
        QCOMPARE(deaths, 3);
    }

    void whatAGestureLeftIsFreed()
    {
        int deaths = 0;
        {
            CFigContext ctx;
            ctx.reshapedObject = new MortalObject(&deaths);
            ctx.firstPoint = makePoints({{1, 2}, {3, 4}});
            ctx.addPointActions = new QList<ActionItem*>{new ActionItem};
        }
        QCOMPARE(deaths, 1);
    }

    void theUndoQueueGoesBeforeTheDrawing()
    {
        bool alive = false;
        int deaths = 0;
        {
            CFigContext ctx;
            ctx.drawing.objects.append(new MortalObject(&deaths));
            ctx.undoQueue.addAction(new LateAction(&ctx, &alive));
        }
        QVERIFY(alive);
        QCOMPARE(deaths, 1);
    }
};

QTEST_GUILESS_MAIN(TestFigContext)
#include "test_FigContext.moc"
