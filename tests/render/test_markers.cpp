// The marker bitmaps, which points of an object carry which of them, and what a redraw keeps.
#include "EngineCanvas.h"
#include "ObjectBuilders.h"
#include "RecordingShell.h"

#include "edit/mode.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/u_list.h"
#include "render/markers.h"
#include "render/u_redraw.h"

#include <QDir>
#include <QElapsedTimer>
#include <QPainter>
#include <QProcess>
#include <QScopedValueRollback>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int SIDE = 5;

const QStringList bitmapNames = {
    "DOT_SMALL_NORMAL", "DOT_SMALL_TAGGED",          "DOT_SMALL_TAGGED2",
    "DOT_SMALL_LINKED", "DOT_COMPOUND_SMALL_NORMAL", "DOT_COMPOUND_SMALL_TAGGED",
    "DOT_HIGHLIGHT"};

QString resource(const QString& name)
{
    return ":/markers/images/markers/" + name + ".png";
}

QImage bitmap(const QString& name)
{
    return QImage(resource(name)).convertToFormat(QImage::Format_ARGB32);
}

/// One unit is one pixel; every depth is active.
struct PixelContext : CFigContext {
    PixelContext() { ppiX = ppiY = 1200.0f; }

    template <class Object> Object* add(Object* object)
    {
        object->depth = 50;
        drawing.objects.append(object);
        return object;
    }
};

class Canvas {
public:
    explicit Canvas(CFigContext* ctx, QColor ground = Qt::white)
        : m_ctx(ctx), m_image(200, 160, QImage::Format_ARGB32_Premultiplied)
    {
        m_image.fill(ground);
        m_painter.begin(&m_image);
        ctx->setPainter(&m_painter);
    }
    ~Canvas() { m_ctx->setPainter(nullptr); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    QPainter* painter() { return &m_painter; }
    QImage& image() { return m_image; }
    void wipe() { m_image.fill(Qt::white); }

    /// Where the middles of that marker stand, by rows.
    QVector<QPoint> dots(const QString& name) const
    {
        const QImage wanted = bitmap(name);
        QVector<QPoint> found;
        for (int y = 0; y + SIDE <= m_image.height(); ++y)
            for (int x = 0; x + SIDE <= m_image.width(); ++x)
                if (shows(wanted, x, y))
                    found.append(QPoint(x + 2, y + 2));
        return found;
    }
    QVector<QPoint> normal() const { return dots("DOT_SMALL_NORMAL"); }
    QVector<QPoint> tagged() const { return dots("DOT_SMALL_TAGGED"); }
    QVector<QPoint> selected() const { return dots("DOT_SMALL_TAGGED2"); }
    QVector<QPoint> linked() const { return dots("DOT_SMALL_LINKED"); }
    QVector<QPoint> handles() const { return dots("DOT_COMPOUND_SMALL_NORMAL"); }
    QVector<QPoint> taggedHandles() const { return dots("DOT_COMPOUND_SMALL_TAGGED"); }
    bool isBlank() const
    {
        QImage white = m_image;
        white.fill(Qt::white);
        return white == m_image;
    }

private:
    /// The painted pixels of a bitmap; what it leaves out may have any colour.
    bool shows(const QImage& wanted, int left, int top) const
    {
        for (int y = 0; y < SIDE; ++y)
            for (int x = 0; x < SIDE; ++x)
                if (qAlpha(wanted.pixel(x, y)) == 255 &&
                    m_image.pixel(left + x, top + y) != wanted.pixel(x, y))
                    return false;
        return true;
    }

    CFigContext* m_ctx;
    QImage m_image;
    QPainter m_painter;
};

using Points = QVector<QPoint>;

FigEllipse* makeEllipse(QPoint centre, QPoint start, QPoint end)
{
    auto* ellipse = new FigEllipse;
    ellipse->center = FigPoint(centre.x(), centre.y());
    ellipse->start = FigPoint(start.x(), start.y());
    ellipse->end = FigPoint(end.x(), end.y());
    return ellipse;
}

FigText* makeText(int x, int y, int size, double angle)
{
    auto* text = new FigText;
    text->x = x;
    text->y = y;
    text->size = size;
    text->angle = static_cast<float>(angle);
    return text;
}

FigCompound* makeBoxed(QPoint corner, QPoint opposite, std::initializer_list<FigObject*> members)
{
    FigCompound* compound = makeCompound(members);
    compound->nwcorner = FigPoint(corner.x(), corner.y());
    compound->secorner = FigPoint(opposite.x(), opposite.y());
    return compound;
}

} // namespace

class TestMarkers : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_tables = std::make_unique<EngineTables>(); }
    void cleanupTestCase()
    {
        destroyMarkers();
        m_tables.reset();
    }

    void init()
    {
        recordingShell.clear();
        gridPreferences = GridPreferences();
        reset_action_on();
        setcenter = 0;
        pointmarker_shown = false;
    }

    // --- bitmaps ------------------------------------------------------------------------------

    void bitmapsAreDotsOfFivePixels()
    {
        for (const QString& name : bitmapNames) {
            const QImage image = bitmap(name);
            QCOMPARE(image.size(), QSize(SIDE, SIDE));
            for (int y = 0; y < SIDE; ++y)
                for (int x = 0; x < SIDE; ++x) {
                    const int alpha = qAlpha(image.pixel(x, y));
                    QVERIFY(alpha == 0 || alpha == 255); // crisp
                }
            QCOMPARE(qAlpha(image.pixel(2, 2)), 255);
        }
    }

    // A rim that shows on white and a middle that shows on black: a contrast of 3 to 1 or more.
    void bitmapsShowOnLightAndOnDarkGround()
    {
        const auto luminance = [](QRgb pixel) {
            const auto linear = [](int channel) { return std::pow(channel / 255.0, 2.2); };
            return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) +
                   0.0722 * linear(qBlue(pixel));
        };
        for (const QString& name : bitmapNames) {
            const QImage image = bitmap(name);
            QVERIFY(1.05 / (luminance(image.pixel(2, 0)) + 0.05) >= 3);
            QVERIFY((luminance(image.pixel(2, 2)) + 0.05) / 0.05 >= 3);
        }
    }

    void noTwoBitmapsHaveTheSameColours()
    {
        for (int one = 0; one < bitmapNames.size(); ++one)
            for (int other = 0; other < one; ++other) {
                const QRgb a = bitmap(bitmapNames[one]).pixel(2, 2);
                const QRgb b = bitmap(bitmapNames[other]).pixel(2, 2);
                const int difference = qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) +
                                       qAbs(qBlue(a) - qBlue(b));
                QVERIFY2(difference >= 35, qPrintable(bitmapNames[one] + bitmapNames[other]));
            }
    }

    void theBitmapsAreWhatTheScriptDraws()
    {
        const QString python = QStandardPaths::findExecutable("python3");
        if (python.isEmpty())
            QSKIP("python3 is missing");
        QTemporaryDir scratch;
        const QString script = scratch.filePath("make_markers.py");
        QVERIFY(QFile::copy(ORVALT_SOURCE_DIR "/resources/images/markers/make_markers.py", script));
        QCOMPARE(QProcess::execute(python, {script}), 0);
        for (const QString& name : bitmapNames)
            QCOMPARE(QImage(scratch.filePath(name + ".png")), QImage(resource(name)));
        QCOMPARE(QDir(scratch.path()).entryList({"*.png"}).size(), bitmapNames.size());
    }

    void bitmapsAreLoadedOnceAndFreed()
    {
        createMarkers();
        QPixmap* const bitmaps[] = {dotMarkerSmallNormalBitmap,
                                    dotMarkerSmallTaggedBitmap,
                                    dotMarkerSmallTaggedBitmap2,
                                    dotMarkerSmallLinkedBitmap,
                                    dotMarkerCompoundSmallNormalBitmap,
                                    dotMarkerCompoundSmallTaggedBitmap,
                                    dotMarkerHighlightBitmap};
        for (int i = 0; i < bitmapNames.size(); ++i)
            QCOMPARE(bitmaps[i]->toImage().convertToFormat(QImage::Format_ARGB32),
                     bitmap(bitmapNames[i]));
        createMarkers();
        QCOMPARE(dotMarkerSmallNormalBitmap, bitmaps[0]);
        destroyMarkers();
        QVERIFY(!dotMarkerSmallNormalBitmap && !dotMarkerHighlightBitmap);
        destroyMarkers();
    }

    // --- one dot -----------------------------------------------------------------------------

    void everyDotLoadsItsBitmapAndHasItsMiddleOnThePoint()
    {
        using Show = void (*)(CFigContext*, int, int);
        const QVector<QPair<Show, QString>> rows = {
            {showMarker, "DOT_SMALL_NORMAL"},
            {showTaggedMarker, "DOT_SMALL_TAGGED"},
            {showSelectedPointMarker, "DOT_SMALL_TAGGED2"},
            {showLinkMarker, "DOT_SMALL_LINKED"},
            {showCompoundMarker, "DOT_COMPOUND_SMALL_NORMAL"},
            {showCompoundTaggedMarker, "DOT_COMPOUND_SMALL_TAGGED"}};
        for (const auto& row : rows) {
            destroyMarkers();
            PixelContext ctx;
            Canvas canvas(&ctx);
            row.first(&ctx, 50, 40);
            QCOMPARE(canvas.dots(row.second), Points({{50, 40}}));
        }
    }

    void kindsHaveNumbers()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        for (int kind = -1; kind <= 6; ++kind)
            showMarker(&ctx, kind, 20 * (kind + 2), 40);
        QCOMPARE(canvas.normal(), Points({{60, 40}}));
        QCOMPARE(canvas.tagged(), Points({{80, 40}}));
        QCOMPARE(canvas.selected(), Points({{100, 40}}));
        QCOMPARE(canvas.linked(), Points({{120, 40}}));
        for (int x : {20, 40, 140, 160})
            QCOMPARE(canvas.image().pixelColor(x, 40), QColor(Qt::white));
    }

    // (1200 - 300) / 15 at 80 pixels per inch and zoom 2, less the shift.
    void dotsGoByZoomAndShift()
    {
        CFigContext ctx;
        ctx.ppiX = ctx.ppiY = 80.0f;
        ctx.zoom = 2.0f;
        ctx.shiftX = 100;
        ctx.shiftY = 20;
        Canvas canvas(&ctx);
        showMarker(&ctx, 1200, 600);
        QCOMPARE(canvas.normal(), Points({{60, 60}}));
    }

    void dotsArePaintedOverWhateverTheModeWas()
    {
        PixelContext ctx;
        Canvas canvas(&ctx, Qt::black);
        canvas.painter()->setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
        showMarker(&ctx, 50, 40);
        QCOMPARE(canvas.normal(), Points({{50, 40}}));
        QCOMPARE(canvas.painter()->compositionMode(), QPainter::CompositionMode_SourceOver);
    }

    // Two of the five columns of a dot at -0 still show, one at 201.
    void dotsAtTheRimAreCutNotDropped()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        const QColor rim = bitmap("DOT_SMALL_NORMAL").pixelColor(2, 0);
        showMarker(&ctx, 0, 40);
        QCOMPARE(canvas.image().pixelColor(2, 40), rim);
        showMarker(&ctx, -2, 60);
        QCOMPARE(canvas.image().pixelColor(0, 60), rim);
        showMarker(&ctx, 201, 80);
        QCOMPARE(canvas.image().pixelColor(199, 80), rim);
        showMarker(&ctx, 100, 161);
        QCOMPARE(canvas.image().pixelColor(100, 159), rim);
        canvas.wipe();
        for (int beyond : {-3, INT_MIN})
            showMarker(&ctx, beyond, 40);
        for (int beyond : {202, INT_MAX})
            showMarker(&ctx, beyond, 40);
        QVERIFY(canvas.isBlank());
    }

    // --- objects -----------------------------------------------------------------------------

    void anArcHasThreeDots()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        auto* arc = ctx.add(new FigArc);
        arc->point[0] = FigPoint(20, 60);
        arc->point[1] = FigPoint(60, 20);
        arc->point[2] = FigPoint(100, 60);
        showPointMarker(&ctx, static_cast<FigObject*>(arc));
        QCOMPARE(canvas.normal(), Points({{60, 20}, {20, 60}, {100, 60}}));
        QCOMPARE(arc->marked, 1);
    }

    void theCentreOfAnEllipseShowsIfBothCoordinatesDifferFromTheStart_data()
    {
        QTest::addColumn<QPoint>("start");
        QTest::addColumn<Points>("dots");
        const QPoint centre(60, 60);
        QTest::newRow("both") << QPoint(20, 30) << Points({{20, 30}, {60, 60}, {100, 90}});
        QTest::newRow("same x") << QPoint(60, 30) << Points({{60, 30}, {100, 90}});
        QTest::newRow("same y") << QPoint(20, 60) << Points({{20, 60}, {100, 90}});
        // A circle by radius starts at its centre.
        QTest::newRow("same point") << centre << Points({{60, 60}, {100, 90}});
    }

    void theCentreOfAnEllipseShowsIfBothCoordinatesDifferFromTheStart()
    {
        QFETCH(QPoint, start);
        PixelContext ctx;
        Canvas canvas(&ctx);
        auto* ellipse = ctx.add(makeEllipse(QPoint(60, 60), start, QPoint(100, 90)));
        showPointMarker(&ctx, static_cast<FigObject*>(ellipse));
        QTEST(canvas.normal(), "dots");
        QCOMPARE(ellipse->marked, 1);
    }

    void everyPointOfALineAndASplineHasADot()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        showPointMarker(&ctx, ctx.add(makeLine({{20, 20}, {40, 40}, {60, 20}})));
        showPointMarker(&ctx, ctx.add(makeSpline({{20, 80}, {40, 100}, {60, 80}})));
        QCOMPARE(canvas.normal(),
                 Points({{20, 20}, {60, 20}, {40, 40}, {20, 80}, {60, 80}, {40, 100}}));
    }

    // The kind of the second mark would lie over that of the first.
    void closedPolygonMarksItsFirstPointOnce()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* line = ctx.add(makeLine({{20, 20}, {60, 20}, {40, 50}, {20, 20}}, T_POLYGON));
        line->points->state = 3;
        showPointMarker(&ctx, line);
        QCOMPARE(canvas.selected(), Points());
        QCOMPARE(canvas.normal(), Points({{20, 20}, {60, 20}, {40, 50}}));
    }

    void aLineOfOnePointOrNoneIsTakenAsItIs()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* dot = ctx.add(makeLine({{20, 20}}));
        FigLine* empty = ctx.add(makeLine({}));
        showPointMarker(&ctx, dot);
        showPointMarker(&ctx, empty);
        QCOMPARE(canvas.normal(), Points({{20, 20}}));
        QCOMPARE(empty->marked, 1);
    }

    // A linked point shows the link dot even on a tagged object; the selected point shows its own
    // dot above both.
    void selectedComesBeforeLinkedBeforeTagged()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* line = ctx.add(makeLine({{20, 20}, {60, 20}, {100, 20}, {140, 20}}));
        line->tagged = true;
        FigPoint* second = line->points->next;
        makeLink(line->points, 7);
        makeLink(second, 7);
        second->state = 3;
        second->next->state = 2;
        showPointMarker(&ctx, line);
        QCOMPARE(canvas.linked(), Points({{20, 20}}));
        QCOMPARE(canvas.selected(), Points({{60, 20}}));
        QCOMPARE(canvas.tagged(), Points({{100, 20}, {140, 20}}));
        QCOMPARE(line->marked, 2);
    }

    // 10 units per point of size at 120 pixels per inch; a quarter turn leans to the left.
    void aTextHasASecondDotAboveItsBase_data()
    {
        QTest::addColumn<double>("angle");
        QTest::addColumn<QPoint>("top");
        QTest::newRow("upright") << 0.0 << QPoint(100, 60);
        QTest::newRow("quarter") << M_PI / 2 << QPoint(60, 100);
        QTest::newRow("on its head") << M_PI << QPoint(100, 140);
        QTest::newRow("30 degrees") << M_PI / 6 << QPoint(80, 65); // 40 * (0.5, 0.866)
    }

    void aTextHasASecondDotAboveItsBase()
    {
        QFETCH(double, angle);
        QFETCH(QPoint, top);
        CFigContext ctx;
        ctx.ppiX = ctx.ppiY = 120.0f;
        Canvas canvas(&ctx);
        auto* text = makeText(1000, 1000, 40, angle);
        text->depth = 50;
        ctx.drawing.objects.append(text);
        showPointMarker(&ctx, static_cast<FigObject*>(text));
        const Points dots = canvas.normal();
        QCOMPARE(dots.size(), 2);
        QVERIFY(dots.contains(QPoint(100, 100)));
        QVERIFY(dots.contains(top));
    }

    // 21 to 101 and 20 to 51: the middles of sides of odd length are nearer to the first corner.
    void aCompoundHasEightHandles()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* member = makeLine({{21, 20}, {101, 51}});
        auto* compound = ctx.add(makeBoxed({21, 20}, {101, 51}, {with(member, 2)}));
        showPointMarker(&ctx, static_cast<FigObject*>(compound));
        const Points expected = {{21, 20},  {61, 20}, {101, 20}, {21, 35},
                                 {101, 35}, {21, 51}, {61, 51},  {101, 51}};
        QCOMPARE(canvas.handles(), expected);
        QCOMPARE(compound->marked, 1);
        compound->tagged = true;
        showPointMarker(&ctx, compound);
        QCOMPARE(canvas.taggedHandles(), expected);
        QCOMPARE(compound->marked, 2);
        draw_compoundbox(&ctx, compound, 77); // always the normal ones
        QCOMPARE(canvas.handles(), expected);
    }

    // Integer division truncates towards the first corner from either side.
    void theMiddleOfAReversedSideLiesNearTheFirstCorner()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* member = makeLine({{21, 20}, {101, 51}});
        auto* compound = ctx.add(makeBoxed({101, 51}, {21, 20}, {with(member, 2)}));
        showPointMarker(&ctx, compound);
        QVERIFY(canvas.handles().contains(QPoint(101, 36)));
    }

    void anObjectOnAHiddenLayerHasNoDotsButKeepsItsMark()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        ctx.active_layers[50] = false;
        const QVector<FigObject*> objects = {
            makeLine({{20, 20}, {60, 20}}),
            makeSpline({{20, 20}, {60, 20}}),
            new FigArc,
            makeEllipse({60, 60}, {20, 20}, {90, 90}),
            makeText(20, 20, 12, 0),
            makeBoxed({20, 20}, {90, 90},
                      {makeCompound({with(makeLine({{20, 20}, {90, 90}}), 3)})})};
        for (FigObject* object : objects) {
            ctx.add(object)->marked = 2;
            showPointMarker(&ctx, object);
            QCOMPARE(object->marked, 2);
        }
        draw_compoundbox(&ctx, static_cast<FigCompound*>(objects.last()), 0);
        QVERIFY(canvas.isBlank());
    }

    void aCompoundWithOneVisibleMemberIsMarked()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        ctx.active_layers[50] = false;
        auto* compound =
            ctx.add(makeBoxed({20, 20}, {90, 90},
                              {with(makeLine({{20, 20}, {90, 90}}), 3, 50),
                               makeCompound({with(makeLine({{20, 20}, {90, 90}}), 4, 51)})}));
        showPointMarker(&ctx, compound);
        QCOMPARE(canvas.handles().size(), 8);
    }

    void otherObjectsAndNullAreIgnored()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigObject stranger;
        stranger.type = 9;
        showPointMarker(&ctx, &stranger);
        QCOMPARE(stranger.marked, 0);
        showPointMarker(&ctx, static_cast<FigObject*>(nullptr));
        QVERIFY(canvas.isBlank());
    }

    // --- the centre cross ------------------------------------------------------------------------

    // Four pixels to each side; the flat end leaves the last one out, and the middle is inverted
    // twice.
    void theCrossIsInvertedAndGoesAwayTheSecondTime()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        center_marker(&ctx, 50, 40);
        QCOMPARE(canvas.image().pixelColor(47, 40), QColor(Qt::black));
        QCOMPARE(canvas.image().pixelColor(53, 40), QColor(Qt::black));
        QCOMPARE(canvas.image().pixelColor(50, 37), QColor(Qt::black));
        QCOMPARE(canvas.image().pixelColor(50, 43), QColor(Qt::black));
        QCOMPARE(canvas.image().pixelColor(50, 40), QColor(Qt::white));
        for (const QPoint& outside : Points({{45, 40}, {55, 40}, {50, 35}, {50, 45}, {49, 39}}))
            QCOMPARE(canvas.image().pixelColor(outside), QColor(Qt::white));
        QCOMPARE(canvas.painter()->compositionMode(), QPainter::CompositionMode_SourceOver);
        // The right button that cancels draws without antialiasing, the left one with it.
        canvas.painter()->setRenderHint(QPainter::Antialiasing);
        center_marker(&ctx, 50, 40);
        QVERIFY(canvas.isBlank());
        QVERIFY(canvas.painter()->testRenderHint(QPainter::Antialiasing));
    }

    // --- lists
    // ------------------------------------------------------------------------------------

    void clearingPointStatesConcernsLinesAndSplines()
    {
        FigLine* line = makeLine({{0, 0}, {1, 1}});
        FigSpline* spline = makeSpline({{0, 0}, {1, 1}});
        FigEllipse* ellipse = makeEllipse({0, 0}, {0, 0}, {1, 1});
        OwnedList owner = {line, spline, ellipse};
        line->points->state = line->points->next->state = 3;
        spline->points->state = spline->points->next->state = 3;
        ellipse->start.state = 3;
        for (FigObject* object : qAsConst(owner))
            clearPointMarker(object);
        clearPointMarker(static_cast<FigObject*>(nullptr));
        QCOMPARE(line->points->state + line->points->next->state, 0);
        QCOMPARE(spline->points->state + spline->points->next->state, 0);
        QCOMPARE(ellipse->start.state, 3);
    }

    void theDefaultMarkerIsTheNormalOne() { QCOMPARE(getCurrentDefaultMarker(), 1); }

    void drawingMarkersSetsTheStateAndRedrawsThoseThatChange()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* line = ctx.add(makeLine({{20, 20}, {60, 20}}));
        FigLine* other = ctx.add(makeLine({{20, 80}, {60, 80}}));
        ctx.max_depth = 50;
        other->marked = 1;
        draw_pointmarker(&ctx, 1);
        QVERIFY(pointmarker_shown);
        QCOMPARE(line->marked, 1);
        QCOMPARE(canvas.normal(), Points({{20, 20}, {60, 20}})); // the other's area is left alone
        erase_pointmarker(&ctx);
        QVERIFY(!pointmarker_shown);
        QCOMPARE(line->marked + other->marked, 0);
        QCOMPARE(canvas.normal(), Points());
    }

    void erasingWhereNothingIsMarkedRedrawsNothing()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        ctx.add(makeLine({{20, 20}, {60, 20}}))->ignore = true;
        pointmarker_shown = true;
        erase_pointmarker(&ctx);
        QVERIFY(canvas.isBlank());
        QVERIFY(!pointmarker_shown);
        QVERIFY(!ctx.drawing.objects.first()->ignore);
    }

    void showingMarkersLeavesOutWhatIsMarkedAlready()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        ctx.add(makeLine({{20, 20}, {60, 20}}))->marked = 1;
        ctx.add(makeLine({{20, 80}, {60, 80}}))->tagged = true;
        show_pointmarker(&ctx);
        QVERIFY(pointmarker_shown);
        QCOMPARE(canvas.normal(), Points());
        QCOMPARE(canvas.tagged(), Points({{20, 80}, {60, 80}}));
    }

    void taggedMarkersCanLeaveOneOut()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* left = ctx.add(makeLine({{20, 20}, {60, 20}}));
        FigLine* right = ctx.add(makeLine({{20, 80}, {60, 80}}));
        ctx.add(makeLine({{20, 120}, {60, 120}}));
        left->tagged = right->tagged = true;
        showTaggedMarkers(&ctx, right);
        QCOMPARE(canvas.tagged(), Points({{20, 20}, {60, 20}}));
        QCOMPARE(canvas.normal(), Points());
        QCOMPARE(right->marked, 0);
    }

    void onlyTheWorkingRootIsMarked()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        ctx.add(makeLine({{20, 20}, {60, 20}}));
        auto* compound =
            ctx.add(makeBoxed({20, 80}, {60, 80}, {with(makeLine({{20, 80}, {60, 80}}), 2)}));
        ctx.openCompoundObjects = compound->objects;
        show_pointmarker(&ctx);
        QCOMPARE(canvas.normal(), Points({{20, 80}, {60, 80}}));
        QCOMPARE(canvas.handles(), Points());
        ctx.openCompoundObjects = nullptr;
    }

    void compoundBoxesAreShownOnceAndForgottenOnErasing()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* line = ctx.add(makeLine({{20, 20}, {60, 20}}));
        auto* compound =
            ctx.add(makeBoxed({20, 80}, {60, 120}, {with(makeLine({{20, 80}, {60, 120}}), 2)}));
        show_compoundbox(&ctx);
        QCOMPARE(canvas.handles().size(), 8);
        QCOMPARE(compound->marked, 1);
        canvas.wipe();
        show_compoundbox(&ctx);
        QVERIFY(canvas.isBlank());
        erase_compoundbox(&ctx);
        QCOMPARE(canvas.handles().size(), 8);
        QCOMPARE(compound->marked + line->marked, 0);
        canvas.wipe();
        erase_compoundbox(&ctx);
        QVERIFY(canvas.isBlank());
    }

    void pictureMarkersConcernPictures()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        ctx.add(makeLine({{20, 20}, {60, 20}}, T_BOX));
        ctx.add(makeLine({{20, 80}, {60, 80}}, T_PICTURE))->marked = 1;
        show_picmarker(&ctx);
        QCOMPARE(canvas.normal(), Points({{20, 80}, {60, 80}}));
    }

    void untaggedObjectsLoseTheirMarkers()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* kept = ctx.add(makeLine({{20, 20}, {60, 20}}));
        FigLine* gone = ctx.add(makeLine({{20, 120}, {60, 120}}));
        kept->tagged = true;
        ctx.max_depth = 50;
        show_pointmarker(&ctx);
        unmarkAllUntaggedObjects(&ctx);
        QCOMPARE(canvas.tagged(), Points({{20, 20}, {60, 20}}));
        QCOMPARE(canvas.normal(), Points());
        QCOMPARE(kept->marked, 2);
        QCOMPARE(gone->marked, 0);
    }

    // The box of a text lies lower than its upper marker, and at small zooms the margin of four
    // pixels at zoom 1 is less than a marker.
    void nothingOfAMarkerStaysWhenItGoes_data()
    {
        QTest::addColumn<float>("zoom");
        QTest::addColumn<int>("size");
        QTest::newRow("a small text") << 1.0f << 12;
        QTest::newRow("a large text") << 1.0f << 60;
        QTest::newRow("at a quarter") << 0.25f << 200;
        QTest::newRow("far away") << 0.05f << 500;
    }

    void nothingOfAMarkerStaysWhenItGoes()
    {
        QFETCH(float, zoom);
        QFETCH(int, size);
        CFigContext ctx;
        ctx.ppiX = ctx.ppiY = 80.0f;
        ctx.zoom = zoom;
        ctx.max_depth = 50;
        Canvas canvas(&ctx);
        const int far = static_cast<int>(1500 / zoom);
        auto* text = new FigText;
        text->cstring = "gy";
        text->size = size;
        text->x = far / 3;
        text->y = far;
        FigLine* line = makeLine({{far / 3, far / 5}, {far, far / 5}});
        for (FigObject* object : {static_cast<FigObject*>(text), static_cast<FigObject*>(line)}) {
            object->depth = 50;
            ctx.drawing.objects.append(object);
        }
        redisplay_viewport(&ctx, 200, 160);
        const QImage before = canvas.image();
        show_pointmarker(&ctx);
        QVERIFY(canvas.image() != before);
        unmarkAllUntaggedObjects(&ctx);
        QCOMPARE(canvas.image(), before);
        for (FigObject* object : qAsConst(ctx.drawing.objects)) {
            showPointMarker(&ctx, object);
            object->marked = 0;
            FigObjectList single{object};
            refresh_marked_area(&ctx, &single, false);
            QCOMPARE(canvas.image(), before);
        }
    }

    void theCurrentObjectIsMarkedAndWipedByARedraw()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* line = ctx.add(makeLine({{20, 20}, {60, 20}}));
        mark_current_object(&ctx); // none
        unmark_current_object(&ctx);
        QVERIFY(canvas.isBlank());
        ctx.curObject = line;
        mark_current_object(&ctx);
        QCOMPARE(canvas.normal(), Points({{20, 20}, {60, 20}}));
        line->marked = 0;
        unmark_current_object(&ctx);
        QCOMPARE(canvas.normal(), Points());
    }

    void aFigureHasAnObjectIfItsOwnListHas()
    {
        PixelContext ctx;
        QVERIFY(!no_object(&ctx));
        auto* compound = ctx.add(new FigCompound);
        ctx.openCompoundObjects = compound->objects;
        QVERIFY(no_object(&ctx));
        ctx.openCompoundObjects = nullptr;
    }

    // --- in the redraw
    // -----------------------------------------------------------------------------

    void markedObjectsAreMarkedAgainByAFullRedraw()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* line = ctx.add(makeLine({{20, 20}, {60, 20}}));
        ctx.add(makeLine({{20, 80}, {60, 80}}));
        line->marked = 1;
        line->tagged = true; // the kind goes by the tag
        line->thickness = 9;
        ctx.max_depth = 50;
        redisplay_viewport(&ctx, 200, 160);
        QCOMPARE(canvas.tagged(), Points({{20, 20}, {60, 20}})); // over the line
        QCOMPARE(canvas.normal(), Points());
        QCOMPARE(line->marked, 2);
    }

    void refreshingPassesByWhatIsIgnoredUnmarkedOrExcepted()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* marked = ctx.add(makeLine({{20, 20}, {60, 20}}));
        FigLine* ignored = ctx.add(makeLine({{20, 40}, {60, 40}}));
        FigLine* excepted = ctx.add(makeLine({{20, 60}, {60, 60}}));
        ctx.add(makeLine({{20, 80}, {60, 80}}));
        marked->marked = ignored->marked = excepted->marked = 1;
        ignored->ignore = true;
        const Points expected = {{20, 20}, {60, 20}};
        refresh_pointmarker(&ctx, excepted);
        QCOMPARE(canvas.normal(), expected);
        canvas.wipe();
        FigObjectList list = {makeCompound({excepted})}; // at any level
        refresh_pointmarker(&ctx, &list);
        QCOMPARE(canvas.normal(), expected);
        auto* shell = static_cast<FigCompound*>(list.first());
        shell->objects->clear();
        delete shell;
        canvas.wipe();
        refresh_pointmarker(&ctx);
        QCOMPARE(canvas.normal(), expected + Points({{20, 60}, {60, 60}}));
    }

    // An except with a set flag is passed by as well.
    void theExceptedIsPassedByWhateverItsFlag()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* line = ctx.add(makeLine({{20, 20}, {60, 20}}));
        line->marked = 1;
        for (bool flag : {false, true}) {
            line->ignore = flag;
            refresh_pointmarker(&ctx, line);
            QVERIFY(canvas.isBlank());
        }
    }

    void theCrossIsShownAfterFullAndSingleObjectRedrawsOnly()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* line = ctx.add(makeLine({{20, 20}, {120, 100}}));
        line->depth = 999;
        setcenter = 1;
        setcenter_x = 90;
        setcenter_y = 40;
        const QPoint arm(92, 40);
        redisplay_viewport(&ctx, 200, 160);
        QCOMPARE(canvas.image().pixelColor(arm), QColor(Qt::black));
        refresh_obj_area(&ctx, line, false);
        QCOMPARE(canvas.image().pixelColor(arm), QColor(Qt::black));
        FigObjectList list = {line};
        refresh_obj_area(&ctx, &list, false);
        QCOMPARE(canvas.image().pixelColor(arm), QColor(Qt::white));
        refresh_obj_area(&ctx, line, true);
        QCOMPARE(canvas.image().pixelColor(arm), QColor(Qt::black));
        setcenter = 0;
        redisplay_viewport(&ctx, 200, 160);
        QCOMPARE(canvas.image().pixelColor(arm), QColor(Qt::white));
    }

    void markersOfAnExcludedObjectOrListAreNotRedrawn()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        FigLine* line = ctx.add(makeLine({{20, 20}, {60, 20}}));
        FigLine* near = ctx.add(makeLine({{30, 21}, {50, 21}}));
        ctx.max_depth = 50;
        line->marked = near->marked = 1;
        FigObjectList list = {line};
        refresh_obj_area(&ctx, line, true);
        QCOMPARE(canvas.normal(), Points({{30, 21}, {50, 21}}));
        refresh_obj_area(&ctx, &list, true);
        QCOMPARE(canvas.normal(), Points({{30, 21}, {50, 21}}));
        refresh_obj_area(&ctx, &list, false);
        QCOMPARE(canvas.normal(), Points({{20, 20}, {60, 20}, {30, 21}, {50, 21}}));
    }

    // --- without a document, without a canvas
    // ---------------------------------------------------------

    void everyFunctionTakesANullContextForNothing()
    {
        FigLine line;
        FigCompound compound;
        FigObjectList list;
        for (int kind = 0; kind < 5; ++kind)
            showMarker(nullptr, kind, 1, 1);
        showCompoundMarker(nullptr, 1, 1);
        showCompoundTaggedMarker(nullptr, 1, 1);
        showPointMarker(nullptr, static_cast<FigObject*>(&line));
        showPointMarker(nullptr, &compound);
        FigArc arc;
        showPointMarker(nullptr, &arc);
        mark_current_object(nullptr);
        unmark_current_object(nullptr);
        center_marker(nullptr, 1, 1);
        draw_compoundbox(nullptr, &compound, 0);
        show_compoundbox(nullptr);
        erase_compoundbox(nullptr);
        show_picmarker(nullptr);
        draw_pointmarker(nullptr, 1);
        erase_pointmarker(nullptr);
        show_pointmarker(nullptr);
        showTaggedMarkers(nullptr, nullptr);
        refresh_pointmarker(nullptr);
        refresh_pointmarker(nullptr, &line);
        refresh_pointmarker(nullptr, &list);
        unmarkAllUntaggedObjects(nullptr);
        QVERIFY(!no_object(nullptr));
        QCOMPARE(line.marked, 0);
    }

    void withoutAPainterOnlyTheMarkIsSet()
    {
        PixelContext ctx;
        FigLine* line = ctx.add(makeLine({{20, 20}, {60, 20}}));
        line->tagged = true;
        show_pointmarker(&ctx);
        QCOMPARE(line->marked, 2);
        erase_pointmarker(&ctx);
        QCOMPARE(line->marked, 0);
    }

    // --- measures
    // ----------------------------------------------------------------------------------------

    void aHundredThousandMarkedObjectsAreMarkedAtOnce()
    {
        PixelContext ctx;
        Canvas canvas(&ctx);
        for (int i = 0; i < 100000; ++i)
            ctx.add(makeLine({{i % 400, i / 400}, {i % 400 + 9, i / 400}, {i % 400, i / 400 + 9}}));
        QElapsedTimer timer;
        timer.start();
        show_pointmarker(&ctx);
        const qint64 shown = timer.restart();
        FigObjectList all = ctx.drawing.objects;
        refresh_pointmarker(&ctx, &all);
        refresh_pointmarker(&ctx);
        const qint64 refreshed = timer.restart();
        erase_pointmarker(&ctx);
        qInfo("shown %lld ms, refreshed %lld ms, erased %lld ms", shown, refreshed,
              timer.elapsed());
        QVERIFY(shown + refreshed + timer.elapsed() < 5000);
    }

private:
    std::unique_ptr<EngineTables> m_tables;
};

QTEST_MAIN(TestMarkers)
#include "test_markers.moc"
