// Which objects are drawn in which order, what is counted, and what a partial redraw touches.
#include "RandomObjects.h"

#include "EngineCanvas.h"
#include "RecordingShell.h"

#include "edit/command.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"
#include "model/ObjectFunctions.h"
#include "model/preferences.h"
#include "model/w_layers.h"
#include "render/coords.h"
#include "render/grid.h"
#include "render/u_bound.h"
#include "render/u_redraw.h"

#include <QScopedValueRollback>
#include <QtTest>

#include <cstring>
#include <functional>

namespace {

FigObject* const nothingDrawn = reinterpret_cast<FigObject*>(-1);

/// What was drawn, in order, and the clip that was in force.
QVector<long> drawnIds;
QRect seenClip;
std::function<void()> onDraw;

class RecordedLine : public FigLine {
public:
    explicit RecordedLine(long number, int atDepth, QPoint from = {1200, 1200},
                          QPoint to = {2400, 1200})
    {
        id = number;
        depth = atDepth;
        sub_type = T_POLYLINE;
        setPoints(this, {from, to});
    }
    void draw(CFigContext* ctx) override
    {
        drawnIds.append(id);
        if (ctx->painter)
            seenClip =
                ctx->painter->hasClipping() ? ctx->painter->clipRegion().boundingRect() : QRect();
        if (onDraw)
            onDraw();
    }
};

FigCompound* compoundOf(std::initializer_list<FigObject*> members, long id = -1)
{
    auto* compound = new FigCompound;
    compound->id = id;
    for (FigObject* member : members)
        compound->objects->append(member);
    return compound;
}

void fill(CFigContext& ctx, std::initializer_list<FigObject*> objects)
{
    for (FigObject* object : objects)
        ctx.drawing.objects.append(object);
    set_depths(&ctx);
}

// --- the loop as it is meant, word for word --------------------------------------

void countLiterally(CFigContext* ctx, FigObject* object, int depth)
{
    DepthCounts& counts = ctx->counts[std::min(depth, 999)];
    counts.drawnArcs += object->type == O_ARC;
    counts.drawnLines += object->type == O_POLYLINE;
    counts.drawnEllipses += object->type == O_ELLIPSE;
    counts.drawnSplines += object->type == O_SPLINE;
    counts.drawnTexts += object->type == O_TEXT;
}

void drawDepthLiterally(CFigContext* ctx, FigObjectList list, int depth, FigObject* exclude)
{
    for (FigObject* object : list) {
        if (object->type == O_COMPOUND) {
            if (!object->ignore && object != exclude)
                drawDepthLiterally(ctx, *static_cast<FigCompound*>(object)->objects, depth,
                                   exclude);
            continue;
        }
        if (object->depth != depth)
            continue;
        if (!object->ignore && object != exclude && exclude != nothingDrawn)
            object->draw(ctx);
        countLiterally(ctx, object, depth);
    }
}

void drawLiterally(CFigContext* ctx, FigObject* exclude)
{
    clearcounts(ctx);
    for (int depth = ctx->max_depth; depth >= 0; --depth)
        if (ctx->active_layers[depth] || ctx->layerMode != 12)
            drawDepthLiterally(ctx, ctx->drawing.objects, depth, exclude);
}

void redrawLiterally(CFigContext* ctx, int width, int height)
{
    clear_canvas(ctx, gridPreferences.backgroundColour, 0, 0, width, height);
    applyFunction(&ctx->drawing.objects, clearIgnoreFlag);
    drawPageborders(ctx);
    drawLiterally(ctx, nullptr);
}

void refreshLiterally(CFigContext* ctx, int x1, int y1, int x2, int y2, FigObject* object)
{
    applyFunction(&ctx->drawing.objects, clearIgnoreFlag);
    for (FigObject* candidate : qAsConst(ctx->drawing.objects))
        candidate->ignore = candidate != object && !check_overlap(ctx, candidate, x1, y1, x2, y2);
    const QPoint from(pixelX(ctx, x1), pixelY(ctx, y1));
    const QPoint to(pixelX(ctx, x2), pixelY(ctx, y2));
    const QRect rect(from, to);
    ctx->painter->setClipRect(rect, Qt::ReplaceClip);
    ctx->painter->fillRect(rect, gridPreferences.backgroundColour);
    drawPageborders(ctx);
    drawLiterally(ctx, nullptr);
    ctx->painter->setClipRect(rect, Qt::NoClip);
}

// --- random figures ----------------------------------------------------------------

/// Lines that record, in compounds of up to three levels, some of them to be passed by.
void growRecorded(RandomObjects& random, FigObjectList* list, int levels, QVector<FigObject*>& all)
{
    for (int i = random.number(1, 9); i > 0; --i) {
        if (levels > 0 && random.oneIn(4)) {
            auto* compound = new FigCompound;
            growRecorded(random, compound->objects, levels - 1, all);
            list->append(compound);
        } else {
            const int depth = random.oneIn(3) ? 999 : random.number(0, 5);
            list->append(new RecordedLine(all.size(), depth));
        }
        list->last()->ignore = random.oneIn(6);
        all.append(list->last());
    }
}

void fillRandomly(CFigContext& ctx, RandomObjects& random, int count)
{
    for (int i = 0; i < count; ++i)
        ctx.drawing.objects.append(random.object());
    set_depths(&ctx);
}

QImage blankCanvas(int width, int height, Qt::GlobalColor color = Qt::red)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

/// Runs something with a painter of the context on the image.
template <class Work> void paintOn(QImage& image, CFigContext& ctx, bool antialiasing, Work work)
{
    QPainter painter(&image);
    QScopedValueRollback<bool> preference(otherPreferencesData.antialiasing, antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, antialiasing);
    ctx.setPainter(&painter);
    work();
    ctx.setPainter(nullptr);
}

QString caseName(unsigned seed, const CFigContext& ctx)
{
    return QString("seed %1, zoom %2").arg(seed).arg(double(ctx.zoom));
}

void recordFeedback(CFigContext*, int x1, int y1, int x2, int y2)
{
    drawnIds << -7 << x1 << y1 << x2 << y2;
}

} // namespace

class TestURedraw : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_tables = std::make_unique<EngineTables>(); }
    void cleanupTestCase() { m_tables.reset(); }

    void init()
    {
        drawnIds.clear();
        seenClip = QRect();
        onDraw = nullptr;
        recordingShell.clear();
    }

    void cleanup()
    {
        reset_action_on();
        cur_command = -1;
    }

    // --- order and counts ----------------------------------------------------------

    void greaterDepthsAreDrawnFirstAndListOrderHoldsWithin()
    {
        CFigContext ctx;
        fill(ctx, {new RecordedLine(1, 0), new RecordedLine(2, 50), new RecordedLine(3, 999),
                   new RecordedLine(4, 50), new RecordedLine(5, 0)});
        redisplay_objects(&ctx);
        QCOMPARE(drawnIds, (QVector<long>{3, 2, 4, 1, 5}));
    }

    void membersOfTwoCompoundsInterleaveByDepth()
    {
        CFigContext ctx;
        fill(ctx, {compoundOf({new RecordedLine(1, 10), new RecordedLine(2, 30)}),
                   compoundOf({new RecordedLine(3, 20), new RecordedLine(4, 40)})});
        redisplay_objects(&ctx);
        QCOMPARE(drawnIds, (QVector<long>{4, 2, 3, 1}));
    }

    void emptyFigureDrawsNothingAndForgetsTheCounts()
    {
        CFigContext ctx;
        ctx.counts[3].drawnLines = 5;
        ctx.counts[3].lines = 5;
        QCOMPARE(ctx.max_depth, -1);
        redisplay_objects(&ctx);
        QVERIFY(drawnIds.isEmpty());
        QCOMPARE(ctx.counts[3].drawnLines, 0);
        QCOMPARE(ctx.counts[3].lines, 5);
    }

    void nullListLeavesEvenTheCounts()
    {
        CFigContext ctx;
        ctx.counts[3].drawnLines = 5;
        redisplay_objects(&ctx, nullptr, nullptr, true);
        redisplay_object_list(&ctx, nullptr, 3, nullptr);
        QCOMPARE(ctx.counts[3].drawnLines, 5);
    }

    void undrawnObjectsAreCountedToo()
    {
        CFigContext ctx;
        FigObject* ignored = new RecordedLine(1, 5);
        FigObject* excluded = new RecordedLine(2, 5);
        fill(ctx, {ignored, excluded, new RecordedLine(3, 5)});
        ignored->ignore = true;
        redisplay_objects(&ctx, &ctx.drawing.objects, excluded, true);
        QCOMPARE(drawnIds, (QVector<long>{3}));
        QCOMPARE(ctx.counts[5].drawnLines, 3);
    }

    void membersOfAnIgnoredOrExcludedCompoundAreNotCounted()
    {
        CFigContext ctx;
        FigObject* ignored = compoundOf({new RecordedLine(1, 5)});
        FigObject* excluded = compoundOf({new RecordedLine(2, 5)});
        fill(ctx, {ignored, excluded});
        ignored->ignore = true;
        redisplay_objects(&ctx, &ctx.drawing.objects, excluded, true);
        QVERIFY(drawnIds.isEmpty());
        QCOMPARE(ctx.counts[5].drawnLines, 0);
    }

    void excludingMinusOneDrawsNothingButCounts()
    {
        CFigContext ctx;
        fill(ctx, {new RecordedLine(1, 5), compoundOf({new RecordedLine(2, 6)})});
        redisplay_objects(&ctx, &ctx.drawing.objects, nothingDrawn, true);
        redisplay_object_list(&ctx, &ctx.drawing.objects, 6, nothingDrawn);
        QVERIFY(drawnIds.isEmpty());
        QCOMPARE(ctx.counts[5].drawnLines, 1);
        QCOMPARE(ctx.counts[6].drawnLines, 2);
    }

    void eachTypeHasItsCounter()
    {
        CFigContext ctx;
        fill(ctx, {new FigArc, new FigLine, new FigEllipse, new FigSpline, new FigText});
        redisplay_objects(&ctx, &ctx.drawing.objects, nothingDrawn, true);
        const DepthCounts& counts = ctx.counts[0];
        QCOMPARE(counts.drawnArcs, 1);
        QCOMPARE(counts.drawnLines, 1);
        QCOMPARE(counts.drawnEllipses, 1);
        QCOMPARE(counts.drawnSplines, 1);
        QCOMPARE(counts.drawnTexts, 1);
    }

    void inactiveDepthIsReachedUnlessHidden()
    {
        CFigContext ctx;
        fill(ctx, {new RecordedLine(1, 5), new RecordedLine(2, 6)});
        ctx.active_layers[5] = false;
        for (int mode : {10, 11}) {
            ctx.layerMode = mode;
            drawnIds.clear();
            redisplay_objects(&ctx);
            QCOMPARE(drawnIds, (QVector<long>{2, 1}));
        }
        ctx.layerMode = 12;
        drawnIds.clear();
        redisplay_objects(&ctx);
        QCOMPARE(drawnIds, (QVector<long>{2}));
        QCOMPARE(ctx.counts[5].drawnLines, 0);
        QCOMPARE(ctx.counts[6].drawnLines, 1);
    }

    void depthsBelowTheDeepestKnownAreNotReached()
    {
        CFigContext ctx;
        fill(ctx, {new RecordedLine(1, 5), new RecordedLine(2, 6)});
        ctx.max_depth = 5;
        redisplay_objects(&ctx);
        QCOMPARE(drawnIds, (QVector<long>{1}));
    }

    void objectsDeeperThanTheTableAreCountedUnderItsLastDepth()
    {
        CFigContext ctx;
        fill(ctx, {new RecordedLine(1, 5)});
        ctx.drawing.objects.append(new RecordedLine(2, 1200));
        redisplay_object_list(&ctx, &ctx.drawing.objects, 1200, nullptr);
        QCOMPARE(drawnIds, (QVector<long>{2}));
        QCOMPARE(ctx.counts[999].drawnLines, 1);
    }

    void redisplayOfAllObjectsClearsTheIgnoreFlags()
    {
        CFigContext ctx;
        FigObject* line = new RecordedLine(1, 5);
        FigObject* member = new RecordedLine(2, 5);
        FigObject* compound = compoundOf({member});
        fill(ctx, {line, compound});
        line->ignore = member->ignore = compound->ignore = true;
        redisplay_objects(&ctx);
        QCOMPARE(drawnIds, (QVector<long>{1, 2}));
    }

    // The told loop walks the list once per depth; ours once in all.
    void drawingOrderAndCountsAreThoseOfTheLiteralLoop()
    {
        for (unsigned seed = 1; seed <= 300; ++seed) {
            CFigContext ctx;
            RandomObjects random(seed, 1000);
            QVector<FigObject*> all;
            growRecorded(random, &ctx.drawing.objects, 3, all);
            set_depths(&ctx);
            for (bool& active : ctx.active_layers)
                active = !random.oneIn(3);
            ctx.layerMode = random.number(10, 12);
            FigObject* exclude = nullptr;
            if (random.oneIn(2))
                exclude = all[random.number(0, all.size() - 1)];
            else if (random.oneIn(8))
                exclude = nothingDrawn;

            drawnIds.clear();
            drawLiterally(&ctx, exclude);
            const QVector<long> expected = drawnIds;
            DepthCounts expectedCounts[NUM_DEPTHS];
            std::copy(std::begin(ctx.counts), std::end(ctx.counts), expectedCounts);
            drawnIds.clear();
            redisplay_objects(&ctx, &ctx.drawing.objects, exclude, true);
            QVERIFY2(drawnIds == expected, qPrintable(caseName(seed, ctx)));
            QVERIFY2(std::memcmp(expectedCounts, ctx.counts, sizeof ctx.counts) == 0,
                     qPrintable(caseName(seed, ctx)));
        }
    }

    void listsMayChangeWhileTheyAreDrawn()
    {
        CFigContext ctx;
        RecordedLine later(9, 1);
        FigObject* last = new RecordedLine(3, 1);
        fill(ctx, {new RecordedLine(1, 2), new RecordedLine(2, 2), last});
        onDraw = [&] {
            ctx.drawing.objects.removeAll(last);
            ctx.drawing.objects.append(&later);
        };
        redisplay_object_list(&ctx, &ctx.drawing.objects, 2, nullptr);
        QCOMPARE(drawnIds, (QVector<long>{1, 2}));
        redisplay_objects(&ctx, &ctx.drawing.objects, nullptr, true);
        QVERIFY(drawnIds.size() > 2);
        ctx.drawing.objects.removeAll(&later);
        delete last;
    }

    // --- overlap ---------------------------------------------------------------------

    // The margin is 60 units at 80 pixels per inch, on each of the two boxes.
    void boxesOverlapWithinTwoMarginsAndTouchingCounts()
    {
        CFigContext ctx;
        QVERIFY(check_overlap(&ctx, 0, 0, 100, 100, 220, 0, 300, 100));
        QVERIFY(!check_overlap(&ctx, 0, 0, 100, 100, 221, 0, 300, 100));
        QVERIFY(check_overlap(&ctx, 0, 220, 100, 300, 0, 0, 100, 100));
        QVERIFY(!check_overlap(&ctx, 0, 221, 100, 300, 0, 0, 100, 100));
        QVERIFY(!check_overlap(&ctx, 0, 0, 100, 100, 0, 221, 300, 300));
    }

    void marginsGoByTheResolutionOfEachAxisNotByTheZoom()
    {
        CFigContext ctx;
        ctx.ppiX = 100; // 12 units to the pixel: 48
        ctx.ppiY = 48;  // 25 units to the pixel: 100
        ctx.zoom = 0.1f;
        QVERIFY(check_overlap(&ctx, 0, 0, 100, 100, 196, 0, 300, 100));
        QVERIFY(!check_overlap(&ctx, 0, 0, 100, 100, 197, 0, 300, 100));
        QVERIFY(check_overlap(&ctx, 0, 0, 100, 100, 0, 300, 100, 400));
        QVERIFY(!check_overlap(&ctx, 0, 0, 100, 100, 0, 301, 100, 400));
    }

    void farBoxesDoNotOverflow()
    {
        CFigContext ctx;
        QVERIFY(!check_overlap(&ctx, INT_MIN, 0, INT_MIN, 0, INT_MAX, 0, INT_MAX, 0));
        QVERIFY(check_overlap(&ctx, INT_MIN, 0, INT_MAX, 0, INT_MAX, 0, INT_MAX, 0));
    }

    void objectIsComparedByItsExactBounds()
    {
        CFigContext ctx;
        const auto line = makeLine({{0, 0}, {1200, 0}}, 4); // 30 units on either side
        QVERIFY(check_overlap(&ctx, line.get(), 0, 150, 100, 200));
        QVERIFY(!check_overlap(&ctx, line.get(), 0, 151, 100, 200));
    }

    // --- selection of what a partial redraw draws ----------------------------------------

    void objectFurtherThanTwoMarginsIsFlagged()
    {
        CFigContext ctx;
        FigObject* near = new RecordedLine(1, 5, {1000, 0}, {2000, 0});
        FigObject* far = new RecordedLine(2, 5, {1001, 0}, {2000, 0});
        fill(ctx, {near, far});
        select_redisplay_objects(&ctx, static_cast<FigObject*>(nullptr), false, 0, 0, 880, 100);
        QVERIFY(!near->ignore);
        QVERIFY(far->ignore);
    }

    void theObjectItselfGetsWhatIsAsked()
    {
        CFigContext ctx;
        FigObject* touching = new RecordedLine(1, 5);
        FigObject* far = new RecordedLine(2, 5, {90000, 0}, {90000, 9});
        fill(ctx, {touching, far});
        select_redisplay_objects(&ctx, touching, true, 1200, 1200, 1300, 1300);
        QVERIFY(touching->ignore);
        select_redisplay_objects(&ctx, far, false, 1200, 1200, 1300, 1300);
        QVERIFY(!far->ignore);
        QVERIFY(!touching->ignore);
    }

    void everyMemberOfTheListGetsWhatIsAsked()
    {
        CFigContext ctx;
        FigObject* first = new RecordedLine(1, 5);
        FigObject* second = new RecordedLine(2, 5);
        FigObject* other = new RecordedLine(3, 5);
        fill(ctx, {first, second, other});
        FigObjectList list;
        list << first << nullptr << second;
        select_redisplay_objects(&ctx, &list, true, 1200, 1200, 1300, 1300);
        QVERIFY(first->ignore && second->ignore && !other->ignore);
        select_redisplay_objects(&ctx, &list, false, 90000, 90000, 90001, 90001);
        QVERIFY(!first->ignore && !second->ignore && other->ignore);
        select_redisplay_objects(&ctx, static_cast<FigObjectList*>(nullptr), true, 1200, 1200, 1300,
                                 1300);
        QVERIFY(!first->ignore);
    }

    void compoundIsTestedAsAWholeAndItsMembersStayClear()
    {
        CFigContext ctx;
        FigObject* near = new RecordedLine(1, 5);
        FigObject* far = new RecordedLine(2, 5, {90000, 90000}, {90100, 90100});
        FigObject* compound = compoundOf({near, far});
        FigObject* farCompound = compoundOf({new RecordedLine(3, 5, {90000, 0}, {90100, 0})});
        fill(ctx, {compound, farCompound});
        far->ignore = true;
        select_redisplay_objects(&ctx, static_cast<FigObject*>(nullptr), false, 1200, 1200, 1300,
                                 1300);
        QVERIFY(!compound->ignore && !near->ignore && !far->ignore);
        QVERIFY(farCompound->ignore);
        // Between the members there is nothing, and yet the compound is there.
        select_redisplay_objects(&ctx, static_cast<FigObject*>(nullptr), false, 50000, 50000, 50001,
                                 50001);
        QVERIFY(!compound->ignore);
    }

    void flagsAreThoseOfExactBoundsAlone()
    {
        for (unsigned seed = 1; seed <= 40; ++seed) {
            CFigContext ctx;
            RandomObjects random(seed, 15000);
            fillRandomly(ctx, random, 60);
            ctx.zoom = static_cast<float>(std::pow(10, random.real(-2, 1.9999)));
            const int x = random.number(-15000, 15000), y = random.number(-15000, 15000);
            const int w = random.number(0, 4000), h = random.number(0, 4000);
            select_redisplay_objects(&ctx, static_cast<FigObject*>(nullptr), false, x, y, x + w,
                                     y + h);
            QVector<bool> flags;
            for (FigObject* object : qAsConst(ctx.drawing.objects))
                flags.append(object->ignore);
            int i = 0;
            for (FigObject* object : qAsConst(ctx.drawing.objects))
                QVERIFY2(flags[i++] == !check_overlap(&ctx, object, x, y, x + w, y + h),
                         qPrintable(caseName(seed, ctx)));
        }
    }

    // --- partial redraw --------------------------------------------------------------------

    // (1200, 1200) to (2400, 1200) grown by 60: pixels 76 to 164 and 76 to 84.
    void areaOfAnObjectIsClippedAndClearedAndNoClipStays()
    {
        CFigContext ctx;
        FigObject* line = new RecordedLine(1, 5);
        fill(ctx, {line});
        QImage image = blankCanvas(300, 200);
        paintOn(image, ctx, false, [&] {
            refresh_obj_area(&ctx, line, false);
            QVERIFY(!ctx.painter->hasClipping());
        });
        QCOMPARE(seenClip, QRect(QPoint(76, 76), QPoint(164, 84)));
        QCOMPARE(image.pixelColor(76, 76), QColor(Qt::white));
        QCOMPARE(image.pixelColor(164, 84), QColor(Qt::white));
        QCOMPARE(image.pixelColor(75, 76), QColor(Qt::red));
        QCOMPARE(image.pixelColor(165, 84), QColor(Qt::red));
        QCOMPARE(image.pixelColor(76, 85), QColor(Qt::red));
    }

    // Four pixels more below a compound: at zoom 2 they are 30 units, 1290 in all, pixel 172 at
    // two pixels to 15 units, the margin of 60 units being eight pixels.
    void areaOfACompoundIsTallerByFourPixels()
    {
        CFigContext ctx;
        ctx.zoom = 2;
        FigObject* compound = compoundOf({new RecordedLine(1, 5)});
        fill(ctx, {compound});
        QImage image = blankCanvas(400, 300);
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, compound, false); });
        QCOMPARE(seenClip, QRect(QPoint(152, 152), QPoint(328, 172)));
    }

    void excludingAnObjectErasesIt()
    {
        CFigContext ctx;
        FigObject* line = new RecordedLine(1, 5);
        FigObject* other = new RecordedLine(2, 5);
        fill(ctx, {line, other});
        QImage image = blankCanvas(300, 200);
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, line, true); });
        QCOMPARE(drawnIds, (QVector<long>{2}));
        QCOMPARE(ctx.counts[5].drawnLines, 2);
        drawnIds.clear();
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, line, false); });
        QCOMPARE(drawnIds, (QVector<long>{1, 2}));
    }

    void memberOfACompoundCanBeExcludedToo()
    {
        CFigContext ctx;
        FigObject* member = new RecordedLine(1, 5);
        fill(ctx, {compoundOf({member, new RecordedLine(2, 5)})});
        QImage image = blankCanvas(300, 200);
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, member, true); });
        QCOMPARE(drawnIds, (QVector<long>{2}));
    }

    // As undo wipes what was changed inside an open compound.
    void membersOfACompoundInAListAreExcludedToo()
    {
        CFigContext ctx;
        FigObject* member = new RecordedLine(1, 5);
        FigObject* inner = new RecordedLine(3, 5);
        fill(ctx, {compoundOf({member, new RecordedLine(2, 5), compoundOf({inner})})});
        FigObjectList list;
        list << member << inner;
        QImage image = blankCanvas(300, 200);
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, &list, true); });
        QCOMPARE(drawnIds, (QVector<long>{2}));
        drawnIds.clear();
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, &list, false); });
        QCOMPARE(drawnIds, (QVector<long>{1, 2, 3}));
    }

    void areaOfAListHoldsAllOfItAndExcludesAllOfIt()
    {
        CFigContext ctx;
        FigObject* first = new RecordedLine(1, 5);
        FigObject* second = new RecordedLine(2, 5, {1200, 1500}, {1500, 1800});
        fill(ctx, {first, second, new RecordedLine(3, 5)});
        FigObjectList list;
        list << first << nullptr << second;
        QImage image = blankCanvas(300, 200);
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, &list, true); });
        QCOMPARE(drawnIds, (QVector<long>{3}));
        // 1140 to 2460 and 1140 to 1860
        QCOMPARE(seenClip, QRect(QPoint(76, 76), QPoint(164, 124)));
        paintOn(image, ctx, false, [&] {
            QVERIFY(!ctx.painter->hasClipping());
            refresh_obj_area(&ctx, &list, false);
        });
        QCOMPARE(drawnIds, (QVector<long>{3, 1, 2, 3}));
    }

    void nothingToRefreshDoesNothing()
    {
        CFigContext ctx;
        fill(ctx, {new RecordedLine(1, 5)});
        FigObject* none = nullptr;
        FigObjectList* noList = nullptr;
        FigObjectList empty;
        QImage image = blankCanvas(300, 200);
        paintOn(image, ctx, false, [&] {
            refresh_obj_area(&ctx, none, true);
            refresh_obj_area(&ctx, noList, true);
            refresh_obj_area(&ctx, none, none, none);
            refresh_obj_area(&ctx, noList, noList, none);
            refresh_obj_area(&ctx, &empty, &empty, none);
            refresh_obj_area(&ctx, noList, none, none);
        });
        QVERIFY(drawnIds.isEmpty());
        QCOMPARE(image, blankCanvas(300, 200));
    }

    void withoutAPainterNothingIsRefreshed()
    {
        CFigContext ctx;
        FigObject* line = new RecordedLine(1, 5);
        fill(ctx, {line});
        FigObjectList list;
        list << line;
        refresh_obj_area(&ctx, line, false);
        refresh_obj_area(&ctx, &list, false);
        QPainter idle;
        ctx.setPainter(&idle);
        refresh_obj_area(&ctx, line, false);
        redisplay_viewport(&ctx, 100, 100);
        QVERIFY(drawnIds.isEmpty());
    }

    // The first object grows by five pixels, 75 units, the second does not; both then by 60.
    void areaOfTwoObjectsLeavesTheThirdOut()
    {
        CFigContext ctx;
        FigObject* was = new RecordedLine(1, 5, {1500, 1500}, {1800, 1500});
        FigObject* goes = new RecordedLine(2, 5, {1500, 1800}, {2400, 1800});
        fill(ctx, {was, goes, new RecordedLine(3, 5, {1500, 1600}, {1600, 1600})});
        QImage image = blankCanvas(300, 200);
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, was, goes, was); });
        QCOMPARE(drawnIds, (QVector<long>{2, 3}));
        // 1365 to 2460 and 1365 to 1860
        QCOMPARE(seenClip, QRect(QPoint(91, 91), QPoint(164, 124)));
        FigObject* none = nullptr;
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, none, goes, none); });
        // 1440 to 2460 and 1740 to 1860
        QCOMPARE(seenClip, QRect(QPoint(96, 116), QPoint(164, 124)));
    }

    // Here it is the second list that grows.
    void areaOfTwoListsGrowsTheSecond()
    {
        CFigContext ctx;
        FigObject* was = new RecordedLine(1, 5, {1500, 1500}, {1800, 1500});
        FigObject* goes = new RecordedLine(2, 5, {1500, 1800}, {2400, 1800});
        fill(ctx, {was, goes});
        FigObjectList before, after;
        before << was;
        after << nullptr << goes;
        FigObject* none = nullptr;
        QImage image = blankCanvas(300, 200);
        // 1425 - 60 to 2475 + 60 and 1500 - 60 to 1875 + 60
        const QRect expected(QPoint(91, 96), QPoint(169, 129));
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, &before, &after, none); });
        QCOMPARE(seenClip, expected);
        seenClip = QRect();
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, &before, goes, none); });
        QCOMPARE(seenClip, expected);
        FigObjectList* noList = nullptr;
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, noList, &after, none); });
        QCOMPARE(seenClip, QRect(QPoint(91, 111), QPoint(169, 129)));
    }

    // Only the form for one object takes the absolute extent of the box.
    void swappedCornersAreTakenAsExtentByTheObjectFormOnly()
    {
        CFigContext ctx;
        FigObject* line = new RecordedLine(1, 5, {1500, 1500}, {1500, 1500});
        fill(ctx, {line});
        FigObjectList list;
        list << line;
        QImage image = blankCanvas(300, 200);
        paintOn(image, ctx, false,
                [&] { refresh_area(&ctx, 1500, 1500, 1200, 1350, line, false); });
        QCOMPARE(seenClip, QRect(QPoint(100, 100), QPoint(120, 110)));
        paintOn(image, ctx, false,
                [&] { refresh_area(&ctx, 1500, 1500, 1200, 1350, &list, false); });
        QVERIFY(seenClip.isEmpty());
    }

    void partialRedrawPaintsWhatTheLiteralOnePaints_data()
    {
        QTest::addColumn<bool>("antialiasing");
        QTest::newRow("plain") << false;
        QTest::newRow("antialiased") << true;
    }

    void partialRedrawPaintsWhatTheLiteralOnePaints()
    {
        QFETCH(bool, antialiasing);
        for (unsigned seed = 1; seed <= 40; ++seed) {
            CFigContext ctx;
            RandomObjects random(seed, 6000);
            fillRandomly(ctx, random, 40);
            ctx.drawing.objects.append(random.compound(3));
            set_depths(&ctx);
            ctx.zoom = static_cast<float>(std::pow(10, random.real(-1, 0.7)));
            ctx.shiftX = random.number(-100, 250);
            ctx.shiftY = random.number(-100, 250);
            FigObject* object = *(ctx.drawing.objects.begin() + random.number(0, 40));
            int x1, y1, x2, y2;
            object->getBounds(&ctx, &x1, &y1, &x2, &y2, true, true);
            object->getBounds(&ctx, &x1, &y1, &x2, &y2, true, true);
            extendBounds(&x1, &y1, &x2, &y2, 60);
            if (object->type == O_COMPOUND)
                y2 += qRound(60 / ctx.zoom);

            QImage expected = blankCanvas(300, 240);
            paintOn(expected, ctx, antialiasing,
                    [&] { refreshLiterally(&ctx, x1, y1, x2, y2, object); });
            DepthCounts counts[NUM_DEPTHS];
            std::copy(std::begin(ctx.counts), std::end(ctx.counts), counts);
            QImage image = blankCanvas(300, 240);
            paintOn(image, ctx, antialiasing, [&] { refresh_obj_area(&ctx, object, false); });
            QVERIFY2(image == expected, qPrintable(caseName(seed, ctx)));
            QVERIFY(std::memcmp(counts, ctx.counts, sizeof counts) == 0);
        }
    }

    // --- full redraw -------------------------------------------------------------------------

    void fullRedrawNeedsAWindowAndAPainter()
    {
        CFigContext ctx;
        fill(ctx, {new RecordedLine(1, 5)});
        QImage image = blankCanvas(300, 200);
        paintOn(image, ctx, false, [&] { redisplay_canvas(&ctx); });
        QCOMPARE(image, blankCanvas(300, 200));
        int window = 0;
        ctx.chFrm = reinterpret_cast<QTChildFrm*>(&window);
        redisplay_canvas(&ctx);
        QVERIFY(drawnIds.isEmpty());
        recordingShell.viewportWidth = 200;
        recordingShell.viewportHeight = 150;
        paintOn(image, ctx, false, [&] { redisplay_canvas(&ctx); });
        ctx.chFrm = nullptr;
        QCOMPARE(drawnIds, (QVector<long>{1}));
        QCOMPARE(image.pixelColor(199, 149), QColor(Qt::white));
        QCOMPARE(image.pixelColor(200, 149), QColor(Qt::red));
        QCOMPARE(image.pixelColor(199, 150), QColor(Qt::red));
    }

    void backgroundHasThePreferredColour()
    {
        CFigContext ctx;
        gridPreferences.backgroundColour = QColor(1, 2, 3);
        const QImage image = drawCanvas(&ctx, QSize(4, 4), false);
        gridPreferences.backgroundColour = QColor(0xff, 0xff, 0xff);
        QCOMPARE(image.pixelColor(3, 3), QColor(1, 2, 3));
    }

    void fullRedrawClearsTheIgnoreFlags()
    {
        CFigContext ctx;
        FigObject* member = new RecordedLine(1, 5);
        fill(ctx, {compoundOf({member})});
        member->ignore = true;
        drawCanvas(&ctx, QSize(300, 200), false);
        QCOMPARE(drawnIds, (QVector<long>{1}));
    }

    void feedbackIsReplayedBeforeTheObjects()
    {
        CFigContext ctx;
        fill(ctx, {new RecordedLine(1, 5)});
        elastic_proc = recordFeedback;
        fix_x = 10;
        fix_y = 20;
        cur_x = 30;
        cur_y = 40;
        drawCanvas(&ctx, QSize(300, 200), false);
        QCOMPARE(drawnIds, (QVector<long>{1}));
        drawnIds.clear();
        set_action_on();
        drawCanvas(&ctx, QSize(300, 200), false);
        QCOMPARE(drawnIds, (QVector<long>{-7, 10, 20, 30, 40, 1}));
        elastic_proc = nullptr;
        drawnIds.clear();
        drawCanvas(&ctx, QSize(300, 200), false);
        QCOMPARE(drawnIds, (QVector<long>{1}));
    }

    void theScaleCommandReplaysItsBoxToo()
    {
        CFigContext ctx;
        fix_x = fix_y = 150; // 10 pixels
        cur_x = cur_y = 750;
        set_action_on();
        const QColor white(Qt::white);
        QCOMPARE(drawCanvas(&ctx, QSize(60, 60), false).pixelColor(30, 10), white);
        cur_command = CMD_SCALE_COMPOUND;
        QCOMPARE(drawCanvas(&ctx, QSize(60, 60), false).pixelColor(30, 10), QColor(Qt::black));
        elastic_proc = elastic_box; // inverts it back
        QCOMPARE(drawCanvas(&ctx, QSize(60, 60), false).pixelColor(30, 10), white);
        reset_action_on();
        QCOMPARE(drawCanvas(&ctx, QSize(60, 60), false).pixelColor(30, 10), white);
        cur_command = CMD_SELECT;
    }

    // Pointer moves of a drawing tool wipe without antialiasing.
    void theToolCanWipeWhatARedrawReplayed()
    {
        CFigContext ctx;
        cur_command = CMD_POLYLINE;
        elastic_proc = elastic_line;
        fix_x = fix_y = 150;
        cur_x = 1500;
        cur_y = 1050;
        set_action_on();
        QImage image = blankCanvas(200, 160);
        paintOn(image, ctx, true, [&] {
            redisplay_viewport(&ctx, 200, 160);
            QVERIFY(ctx.painter->testRenderHint(QPainter::Antialiasing));
            QVERIFY(image != blankCanvas(200, 160, Qt::white));
            ctx.painter->setRenderHint(QPainter::Antialiasing, false);
            elastic_line(&ctx, fix_x, fix_y, cur_x, cur_y);
        });
        QCOMPARE(image, blankCanvas(200, 160, Qt::white));
        cur_command = CMD_SELECT;
    }

    void partialRedrawDoesNotReplayTheFeedback()
    {
        CFigContext ctx;
        FigObject* line = new RecordedLine(1, 5);
        fill(ctx, {line});
        elastic_proc = recordFeedback;
        set_action_on();
        QImage image = blankCanvas(300, 200);
        paintOn(image, ctx, false, [&] { refresh_obj_area(&ctx, line, false); });
        QCOMPARE(drawnIds, (QVector<long>{1}));
    }

    void fullRedrawLeavesNoClip()
    {
        CFigContext ctx;
        fill(ctx, {new RecordedLine(1, 5)});
        QImage image = blankCanvas(300, 200);
        paintOn(image, ctx, false, [&] {
            redisplay_viewport(&ctx, 300, 200);
            QVERIFY(!ctx.painter->hasClipping());
        });
    }

    void objectsOutOfSightAreCounted()
    {
        CFigContext ctx;
        fill(ctx, {new RecordedLine(1, 5), new RecordedLine(2, 5, {90000, 0}, {91000, 0})});
        drawCanvas(&ctx, QSize(300, 200), false);
        QCOMPARE(drawnIds, (QVector<long>{1}));
        QCOMPARE(ctx.counts[5].drawnLines, 2);
    }

    void fullRedrawPaintsWhatTheLiteralOnePaints_data()
    {
        QTest::addColumn<bool>("antialiasing");
        QTest::addColumn<int>("extent");
        QTest::newRow("plain") << false << 6000;
        QTest::newRow("antialiased") << true << 6000;
        QTest::newRow("wide") << false << 60000;
        QTest::newRow("wide, antialiased") << true << 60000;
    }

    void fullRedrawPaintsWhatTheLiteralOnePaints()
    {
        QFETCH(bool, antialiasing);
        QFETCH(int, extent);
        for (unsigned seed = 1; seed <= 30; ++seed) {
            CFigContext ctx;
            RandomObjects random(seed, extent);
            fillRandomly(ctx, random, 40);
            ctx.zoom = static_cast<float>(std::pow(10, random.real(-2, 1)));
            const int reach = int(extent / 15 * ctx.zoom);
            ctx.shiftX = random.number(-reach, reach) - 150;
            ctx.shiftY = random.number(-reach, reach) - 120;
            QImage expected = blankCanvas(300, 240);
            paintOn(expected, ctx, antialiasing, [&] { redrawLiterally(&ctx, 300, 240); });
            DepthCounts counts[NUM_DEPTHS];
            std::copy(std::begin(ctx.counts), std::end(ctx.counts), counts);
            QImage image = blankCanvas(300, 240);
            paintOn(image, ctx, antialiasing, [&] { redisplay_viewport(&ctx, 300, 240); });
            QVERIFY2(image == expected, qPrintable(caseName(seed, ctx)));
            QVERIFY(std::memcmp(counts, ctx.counts, sizeof counts) == 0);
        }
    }

private:
    std::unique_ptr<EngineTables> m_tables;
};

QTEST_MAIN(TestURedraw)
#include "test_u_redraw.moc"
