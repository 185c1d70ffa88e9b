// Steps of feedback with everything that stands still noted beforehand: the canvas has to be what
// a redraw of the area by objects would make of it.
#include "EngineCanvas.h"
#include "RandomObjects.h"

#include "model/preferences.h"
#include "model/w_layers.h"
#include "render/Font.h"
#include "render/coords.h"
#include "render/redraw_area.h"
#include "render/still_objects.h"
#include "render/u_bound.h"
#include "render/u_redraw.h"

#include <QScopedValueRollback>
#include <QtTest>

#include <cmath>
#include <memory>

namespace {

constexpr int width = 300, height = 240;

/// A document with a canvas, all objects with ids of their own.
class Scene {
public:
    Scene(unsigned seed, int count, bool antialiasing)
        : preference(otherPreferencesData.antialiasing, antialiasing), random(seed, 6000),
          image(width, height, QImage::Format_ARGB32_Premultiplied)
    {
        for (int i = 0; i < count; ++i)
            ctx.drawing.objects.append(random.object());
        start(antialiasing);
    }
    /// The objects go to the document.
    Scene(std::initializer_list<FigObject*> objects, bool antialiasing = false)
        : preference(otherPreferencesData.antialiasing, antialiasing), random(1, 6000),
          image(width, height, QImage::Format_ARGB32_Premultiplied)
    {
        for (FigObject* object : objects)
            ctx.drawing.objects.append(object);
        start(antialiasing);
    }
    ~Scene()
    {
        painter.end();
        ctx.setPainter(nullptr);
    }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    void view(float zoom, int shiftX, int shiftY)
    {
        ctx.zoom = zoom;
        ctx.shiftX = shiftX;
        ctx.shiftY = shiftY;
    }
    void redraw() { redisplay_viewport(&ctx, width, height); }
    FigObject* at(int index) { return *(ctx.drawing.objects.begin() + index); }
    /// Every n-th object of the top level.
    FigObjectList every(int n)
    {
        FigObjectList chosen;
        int index = 0;
        for (FigObject* object : qAsConst(ctx.drawing.objects))
            if (index++ % n == 0)
                chosen.append(object);
        return chosen;
    }
    void move(const FigObjectList& objects, int dx, int dy)
    {
        for (FigObject* object : objects)
            translate_object(&ctx, object, dx, dy);
    }
    /// All that the canvas shows and a bit more, in figure units.
    QRect everywhere() const
    {
        const SeenArea area(&ctx, image.rect().adjusted(-20, -20, 20, 20));
        return QRect(QPoint(int(area.x1), int(area.y1)), QPoint(int(area.x2), int(area.y2)));
    }
    /// A part of what the canvas shows.
    QRect part()
    {
        const QRect all = everywhere();
        const QPoint from(all.left() + all.width() * random.number(0, 60) / 100,
                          all.top() + all.height() * random.number(0, 60) / 100);
        return QRect(from, QSize(all.width() / 3, all.height() / 3));
    }
    QImage step(StillObjects& still, const QRect& area, const FigObjectList& moving)
    {
        still.redraw(area.left(), area.top(), area.right(), area.bottom(), moving);
        return image.copy();
    }
    /// What drawing all objects in the area makes of a canvas that shows the former step. A refresh
    /// leaves out those whose bounds lie apart, though some arcs are drawn beyond theirs.
    QImage drawnAnew(const QImage& former, const QRect& area)
    {
        QImage other = former.copy();
        QPainter otherPainter(&other);
        otherPainter.setRenderHints(painter.renderHints());
        ctx.setPainter(&otherPainter);
        const RedrawArea pixels(&ctx, area.left(), area.top(), area.right(), area.bottom());
        otherPainter.setClipRect(pixels.clip);
        paintGround(&ctx, pixels.from, pixels.to);
        redisplay_objects(&ctx);
        ctx.setPainter(&painter);
        return other;
    }

    QScopedValueRollback<bool> preference;
    CFigContext ctx;
    RandomObjects random;
    QImage image;
    QPainter painter;

private:
    void start(bool antialiasing)
    {
        applyFunction(&ctx.drawing.objects, [](FigObject* object) { object->id = -1; });
        giveIds(ctx.drawing.objects);
        set_depths(&ctx);
        recordingShell.activeContext = &ctx;
        image.fill(Qt::white);
        painter.begin(&image);
        painter.setRenderHint(QPainter::Antialiasing, antialiasing);
        ctx.setPainter(&painter);
    }
    void giveIds(const FigObjectList& objects)
    {
        for (FigObject* object : objects) {
            object->id = ctx.getNextId();
            if (object->type == O_COMPOUND)
                giveIds(*static_cast<FigCompound*>(object)->objects);
        }
    }
};

/// How many pixels differ by more than a hair in one of their colour values.
int differingPixels(const QImage& a, const QImage& b, int hair)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            count += std::abs(qRed(p) - qRed(q)) > hair || std::abs(qGreen(p) - qGreen(q)) > hair ||
                     std::abs(qBlue(p) - qBlue(q)) > hair;
        }
    return count;
}

QImage without(const QRect& part, QImage image)
{
    QPainter(&image).fillRect(part, Qt::white);
    return image;
}

QRect inkOf(const QImage& image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
    return ink;
}

FigLine* line(const QVector<QPoint>& points, int depth, int thickness = 1)
{
    FigLine* made = makeLine(points, thickness).release();
    made->depth = depth;
    return made;
}

/// A filled box of that colour.
FigLine* box(int x, int y, int size, int depth, int color)
{
    FigLine* made =
        line({{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}, {x, y}}, depth);
    made->sub_type = T_BOX;
    made->fill_style = 20;
    made->fill_color = color;
    return made;
}

} // namespace

class TestStillObjects : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_tables = std::make_unique<EngineTables>(); }
    void cleanupTestCase() { m_tables.reset(); }

    void cleanup() { recordingShell.activeContext = nullptr; }

    // --- what an object's drawing reaches ------------------------------------------------------

    void paintStaysWithinItsReach_data()
    {
        QTest::addColumn<bool>("antialiasing");
        QTest::addColumn<int>("extent");
        QTest::newRow("plain") << false << 3000;
        QTest::newRow("antialiased") << true << 3000;
        QTest::newRow("large") << true << 30000;
    }

    void paintStaysWithinItsReach()
    {
        QFETCH(bool, antialiasing);
        QFETCH(int, extent);
        int told = 0;
        for (unsigned seed = 1; seed <= 200; ++seed) {
            CFigContext ctx;
            RandomObjects random(seed, extent);
            std::unique_ptr<FigObject> object(random.object());
            ctx.zoom = static_cast<float>(std::pow(10, random.real(-1.5, 1)));
            const int reachInPixels = int(extent / 15 * ctx.zoom);
            ctx.shiftX = random.number(-reachInPixels, reachInPixels) - width / 2;
            ctx.shiftY = random.number(-reachInPixels, reachInPixels) - height / 2;
            if (object->type == O_TEXT)
                pf_textwidth(&ctx, static_cast<FigText*>(object.get()), ctx.zoom);
            QRect reach;
            if (!reachOfPaint(&ctx, object.get(), &reach))
                continue;
            Canvas canvas(&ctx, width, height);
            canvas.painter()->setRenderHint(QPainter::Antialiasing, antialiasing);
            object->draw(&ctx);
            const QRect ink = inkOf(canvas.image());
            const QRect pixels(QPoint(pixelX(&ctx, reach.left()), pixelY(&ctx, reach.top())),
                               QPoint(pixelX(&ctx, reach.right()), pixelY(&ctx, reach.bottom())));
            QVERIFY2(ink.isEmpty() || pixels.contains(ink),
                     qPrintable(QString("seed %1, type %2").arg(seed).arg(object->type)));
            told += !ink.isEmpty();
        }
        QVERIFY(told > 20);
    }

    // --- steps -----------------------------------------------------------------------------------

    void stepsByObjectsPaintWhatDrawingAllPaints_data() { views(); }

    void stepsByObjectsPaintWhatDrawingAllPaints()
    {
        QFETCH(bool, antialiasing);
        for (unsigned seed = 1; seed <= 8; ++seed) {
            // So many that move, with others in between, are too many for pictures.
            Scene scene(seed, 120, antialiasing);
            scene.view(0.4f, scene.random.number(-100, 20), scene.random.number(-100, 20));
            scene.redraw();
            const FigObjectList moving = scene.every(2);
            StillObjects still(&scene.ctx, moving);
            for (int i = 0; i < 3; ++i) {
                scene.move(moving, scene.random.number(-900, 900), scene.random.number(-900, 900));
                const QImage former = scene.image.copy();
                const QRect area = i == 0 ? scene.everywhere() : scene.part();
                const QImage shown = scene.step(still, area, moving);
                QVERIFY(still.blendedPixels().isEmpty());
                QVERIFY2(shown == scene.drawnAnew(former, area), qPrintable(QString::number(seed)));
            }
        }
    }

    void stepsByPicturesDifferByAHairUnderWhatMovesAndNowhereElse_data() { views(); }

    void stepsByPicturesDifferByAHairUnderWhatMovesAndNowhereElse()
    {
        QFETCH(bool, antialiasing);
        // Edges are blended in another order, some come out otherwise under another clip, and text
        // over what moves is mixed otherwise on a transparent layer.
        constexpr int hair = 4, fewPixels = width * height / 200;
        int blended = 0;
        for (unsigned seed = 1; seed <= 8; ++seed) {
            Scene scene(seed, 40, antialiasing);
            scene.view(0.4f, scene.random.number(-100, 20), scene.random.number(-100, 20));
            scene.redraw();
            const FigObjectList moving{scene.at(scene.random.number(0, 39))};
            StillObjects still(&scene.ctx, moving);
            for (int i = 0; i < 4; ++i) {
                scene.move(moving, scene.random.number(-900, 900), scene.random.number(-900, 900));
                // A part first, so that the rest of the pictures is completed later.
                scene.step(still, scene.part(), moving);
                const QImage shown = scene.step(still, scene.everywhere(), moving);
                const QImage expected = scene.drawnAnew(shown, scene.everywhere());
                const int differing = differingPixels(shown, expected, hair);
                QVERIFY2(
                    differing <= fewPixels,
                    qPrintable(QString("seed %1, step %2: %3").arg(seed).arg(i).arg(differing)));
                const QRect under = still.blendedPixels();
                QVERIFY(without(under, shown) == without(under, expected));
                blended += !still.blendedPixels().isEmpty();
            }
        }
        QVERIFY(blended > 16);
    }

    void whatLiesBelowAllThatMovesIsExact()
    {
        for (unsigned seed = 1; seed <= 10; ++seed) {
            Scene scene(seed, 40, true);
            FigLine* top = box(1000, 1000, 600, -1, 4);
            top->depth = 0;
            top->id = scene.ctx.getNextId();
            for (FigObject* object : qAsConst(scene.ctx.drawing.objects))
                object->depth = std::max(object->depth, 1);
            scene.ctx.drawing.objects.append(top);
            set_depths(&scene.ctx);
            scene.view(0.4f, 0, 0);
            scene.redraw();
            StillObjects still(&scene.ctx, {top});
            const QRect all(QPoint(-1000, -1000), QPoint(20000, 20000));
            scene.step(still, all, {top});
            scene.move({top}, 700, -300);
            const QImage shown = scene.step(still, all, {top});
            QVERIFY(still.blendedPixels().isEmpty());
            QVERIFY(shown == scene.drawnAnew(shown, all));
        }
    }

    void stepsOutOfSightChangeNothing()
    {
        Scene scene({box(300, 300, 900, 5, 1), box(600, 600, 900, 7, 2)});
        scene.redraw();
        const FigObjectList moving{scene.at(1)};
        StillObjects still(&scene.ctx, moving);
        const QImage before = scene.image.copy();
        scene.move(moving, -90000, 90000);
        QVERIFY(scene.step(still, QRect(-90000, 90000, 3000, 3000), moving) == before);
        QVERIFY(scene.step(still, QRect(-90000, -90000, 100, 100), moving) == before);
        scene.move(moving, 90000, -90000);
        QVERIFY(scene.step(still, scene.everywhere(), moving) == before);
    }

    // --- what it knows ---------------------------------------------------------------------------

    void objectsWithoutIdsOfTheirOwnCannotBeTold()
    {
        Scene scene({box(0, 0, 100, 5, 1), box(0, 0, 100, 5, 2)});
        const FigObjectList both = scene.every(1);
        QVERIFY(StillObjects::canTell(both));
        scene.at(1)->id = scene.at(0)->id;
        QVERIFY(!StillObjects::canTell(both));
        scene.at(1)->id = -1;
        QVERIFY(!StillObjects::canTell(both));
    }

    void anotherRedrawViewOrSetOfMovingObjectsIsNotServed()
    {
        Scene scene({box(0, 0, 100, 5, 1), box(0, 0, 100, 5, 2), box(0, 0, 100, 5, 3)});
        const FigObjectList moving{scene.at(0)};
        const auto servesAfter = [&](auto change) {
            StillObjects still(&scene.ctx, moving);
            const bool served = still.serves(&scene.ctx, moving);
            change();
            return served && still.serves(&scene.ctx, moving);
        };
        QVERIFY(servesAfter([] {}));
        QVERIFY(!servesAfter([&] { scene.redraw(); }));
        QVERIFY(!servesAfter([&] { scene.ctx.zoom = 2; }));
        QVERIFY(!servesAfter([&] { scene.ctx.shiftX += 1; }));
        QVERIFY(!servesAfter([&] { scene.ctx.shiftY += 1; }));
        QVERIFY(!servesAfter([&] { scene.at(0)->depth = 7; }));
        QVERIFY(!servesAfter([&] { scene.painter.setRenderHint(QPainter::Antialiasing); }));
        StillObjects still(&scene.ctx, moving);
        scene.ctx.setPainter(nullptr);
        QVERIFY(!still.serves(&scene.ctx, moving));
        scene.ctx.setPainter(&scene.painter);
        QVERIFY(still.serves(&scene.ctx, moving));
        QVERIFY(!still.serves(&scene.ctx, scene.every(1)));
        QVERIFY(!still.serves(&scene.ctx, {scene.at(1)}));
        QVERIFY(!still.serves(&scene.ctx, {}));
    }

    void movingObjectsOnAHiddenLayerAreServedAndStayHidden()
    {
        Scene scene({box(0, 0, 600, 5, 1), box(300, 0, 600, 9, 2)});
        scene.ctx.layerMode = PAINT_HIDDEN;
        scene.ctx.active_layers[9] = false;
        const FigObjectList moving{scene.at(1)};
        scene.redraw();
        StillObjects still(&scene.ctx, moving);
        QVERIFY(still.serves(&scene.ctx, moving));
        const QImage before = scene.image.copy();
        scene.move(moving, 300, 300);
        QVERIFY(scene.step(still, scene.everywhere(), moving) == before);
    }

    void whatLiesOutsideOfAnOpenCompoundIsDimmedInEveryStep()
    {
        const CompoundView dimmed(PAINT_DIMMED);
        auto* compound = new FigCompound;
        compound->objects->append(box(0, 0, 600, 5, 1));
        compound->objects->append(box(300, 0, 600, 7, 2));
        Scene scene({box(100, 300, 600, 6, 4), compound});
        scene.ctx.openCompoundObjects = compound->objects;
        scene.redraw();
        const FigObjectList moving{compound->objects->first()};
        StillObjects still(&scene.ctx, moving);
        scene.move(moving, 150, 150);
        const QImage shown = scene.step(still, scene.everywhere(), moving);
        QVERIFY(shown == scene.drawnAnew(shown, scene.everywhere()));
        scene.ctx.openCompoundObjects = nullptr;
    }

    void markersOfWhatStandsStillAreShownAgain()
    {
        Scene scene({box(300, 300, 900, 5, 1), box(600, 600, 900, 7, 2)});
        for (FigObject* object : scene.every(1))
            object->marked = 1;
        scene.redraw();
        const FigObjectList moving{scene.at(1)};
        StillObjects still(&scene.ctx, moving);
        scene.move(moving, 150, 150);
        const QImage shown = scene.step(still, scene.everywhere(), moving);
        scene.redraw();
        QVERIFY(shown == scene.image);
    }

private:
    static void views()
    {
        QTest::addColumn<bool>("antialiasing");
        QTest::newRow("plain") << false;
        QTest::newRow("antialiased") << true;
    }

    std::unique_ptr<EngineTables> m_tables;
};

QTEST_MAIN(TestStillObjects)
#include "test_still_objects.moc"
