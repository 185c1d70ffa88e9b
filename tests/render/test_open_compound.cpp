// While a compound is open, a redraw knows on its way which objects lie in it. Here the same
// figures are drawn object by object, where each has to be searched for.
#include "DrawingFixtures.h"
#include "EngineCanvas.h"
#include "ObjectBuilders.h"
#include "RandomFigure.h"
#include "model/objectwalk.h"
#include "model/w_layers.h"
#include "render/u_redraw.h"

#include <QElapsedTimer>
#include <QtTest>

namespace {

constexpr int WIDTH = 250, HEIGHT = 200;

/// The objects of a list and its compounds on one depth, one by one.
void drawOneByOne(CFigContext* ctx, const FigObjectList& list, int depth)
{
    for (FigObject* object : list) {
        if (object->type == O_COMPOUND)
            drawOneByOne(ctx, *static_cast<FigCompound*>(object)->objects, depth);
        else if (object->depth == depth)
            object->draw(ctx);
    }
}

void drawOneByOne(CFigContext* ctx, const FigObjectList& list)
{
    for (int depth = ctx->max_depth; depth >= 0; --depth)
        drawOneByOne(ctx, list, depth);
}

void drawDepths(CFigContext* ctx, FigObjectList* list)
{
    for (int depth = ctx->max_depth; depth >= 0; --depth)
        redisplay_object_list(ctx, list, depth, nullptr);
}

template <typename Draw> QImage picture(CFigContext* ctx, Draw draw)
{
    Canvas canvas(ctx, WIDTH, HEIGHT);
    draw();
    return canvas.image();
}

QList<FigCompound*> compoundsOf(CFigContext* ctx)
{
    QList<FigCompound*> compounds;
    objectwalk::visitAll(&ctx->drawing.objects, [&compounds](FigObject* object) {
        if (FigCompound* compound = objectwalk::asCompound(object))
            compounds.append(compound);
    });
    return compounds;
}

/// All objects that are no compounds, in one list that is not of the drawing.
FigObjectList leavesOf(CFigContext* ctx)
{
    FigObjectList leaves;
    objectwalk::visitAll(&ctx->drawing.objects, [&leaves](FigObject* object) {
        if (object->type != O_COMPOUND)
            leaves.append(object);
    });
    return leaves;
}

/// Empty where all ways to draw give one picture.
QString difference(CFigContext* ctx)
{
    FigObjectList* top = &ctx->drawing.objects;
    FigObjectList leaves = leavesOf(ctx), few = leaves;
    while (few.size() > 3)
        few.removeLast();
    const QImage searched = picture(ctx, [=] { drawOneByOne(ctx, *top); });
    if (picture(ctx, [=] { redisplay_objects(ctx, top, nullptr, true); }) != searched)
        return "the drawing's list";
    if (picture(ctx, [=] { drawDepths(ctx, top); }) != searched)
        return "depth by depth";
    if (picture(ctx, [&] { redisplay_objects(ctx, &leaves, nullptr, true); }) !=
        picture(ctx, [&] { drawOneByOne(ctx, leaves); }))
        return "a list of many";
    if (picture(ctx, [&] { redisplay_objects(ctx, &few, nullptr, true); }) !=
        picture(ctx, [&] { drawOneByOne(ctx, few); }))
        return "a list of few";
    return ctx->drawnPlace == OpenPlace::Unknown ? QString() : "the place is left set";
}

/// A compound of many dots, so that the search counts and the drawing does not.
struct Crowd : PixelContext {
    static constexpr int size = 40000;

    FigCompound* compound = new FigCompound;

    Crowd()
    {
        for (int i = 0; i < size; ++i)
            compound->objects->append(with(makeLine({{i % WIDTH, i / WIDTH}}), i + 1));
        drawing.objects.append(compound);
        set_depths(this);
    }

    qint64 shortestRedraw()
    {
        qint64 shortest = std::numeric_limits<qint64>::max();
        for (int run = 0; run < 3; ++run) {
            Canvas canvas(this, WIDTH, HEIGHT);
            QElapsedTimer timer;
            timer.start();
            redisplay_objects(this);
            shortest = std::min(shortest, timer.nsecsElapsed());
        }
        return shortest;
    }
};

} // namespace

class TestOpenCompound : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { tables = std::make_unique<EngineTables>(); }
    void cleanupTestCase() { tables.reset(); }

    void everyWayToDrawGivesThePictureOfTheSearch()
    {
        const int modes[] = {PAINT_NORMAL, PAINT_DIMMED, PAINT_GRAYED, PAINT_HIDDEN};
        int drawn = 0;
        for (unsigned seed = 1; seed <= 6; ++seed) {
            CFigContext ctx;
            ctx.zoom = 0.2f;
            RandomFigure(seed).fill(&ctx);
            const QList<FigCompound*> compounds = compoundsOf(&ctx);
            for (int i = 0; i < compounds.size() && i < 4; ++i, ++drawn) {
                const int mode = modes[drawn % 4];
                const CompoundView view(mode);
                ctx.openCompoundObjects = compounds.at(compounds.size() - 1 - i)->objects;
                const QString wrong = difference(&ctx);
                QVERIFY2(
                    wrong.isEmpty(),
                    qPrintable(QString("seed %1, mode %2: %3").arg(seed).arg(mode).arg(wrong)));
            }
            ctx.openCompoundObjects = nullptr;
            QCOMPARE(difference(&ctx), QString());
        }
        QVERIFY(drawn > 12);
    }

    void aListThatIsNotInTheDrawingLeavesAllOutside()
    {
        CFigContext ctx;
        ctx.zoom = 0.2f;
        RandomFigure(3).fill(&ctx);
        FigObjectList stray;
        const CompoundView view(PAINT_HIDDEN);
        const QImage whole = picture(&ctx, [&] { redisplay_objects(&ctx); });
        ctx.openCompoundObjects = &stray;
        QCOMPARE(difference(&ctx), QString());
        Canvas canvas(&ctx, WIDTH, HEIGHT);
        redisplay_objects(&ctx);
        QVERIFY(canvas.isBlank());
        QVERIFY(canvas.image() != whole);
        ctx.openCompoundObjects = nullptr;
    }

    // A search for each object would walk 800 million times along the list here, which takes some
    // hundred times as long as the drawing itself.
    void aLargeOpenCompoundIsDrawnAsFastAsAClosedOne()
    {
        Crowd crowd;
        const qint64 closed = crowd.shortestRedraw();
        crowd.openCompoundObjects = crowd.compound->objects;
        const qint64 open = crowd.shortestRedraw();
        QVERIFY2(open < 5 * closed,
                 qPrintable(QString("%1 ns open, %2 ns closed").arg(open).arg(closed)));
    }

private:
    std::unique_ptr<EngineTables> tables;
};

QTEST_MAIN(TestOpenCompound)
#include "test_open_compound.moc"
