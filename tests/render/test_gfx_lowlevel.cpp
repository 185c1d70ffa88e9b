#include "render/gfx_lowlevel.h"

#include "model/FigContext.h"
#include "model/u_list.h"
#include "render/colorFunctions.h"

#include <QPainter>
#include <QtTest>

#include <limits>

namespace {

constexpr int SIDE = 60;
constexpr int PIXEL = 15; // figure units of one pixel at zoom 1 and 80 pixels per inch

/// A white image with a context that draws on it.
struct Canvas {
    QImage image{SIDE, SIDE, QImage::Format_ARGB32_Premultiplied};
    QPainter painter;
    CFigContext ctx;

    Canvas()
    {
        image.fill(Qt::white);
        painter.begin(&image);
        ctx.ppiX = ctx.ppiY = 80.0f;
        ctx.zoom = 1.0f;
        ctx.setPainter(&painter);
    }
    ~Canvas()
    {
        ctx.setPainter(nullptr);
        painter.end();
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// Box of everything that is not white.
    QRect ink() const
    {
        QRegion region;
        for (int y = 0; y < SIDE; ++y) {
            for (int x = 0; x < SIDE; ++x) {
                if (image.pixelColor(x, y) != QColor(Qt::white))
                    region += QRect(x, y, 1, 1);
            }
        }
        return region.boundingRect();
    }
};

/// What bare painter calls draw on a white image.
template <class Draw> QImage drawn(Draw draw)
{
    QImage image(SIDE, SIDE, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    draw(painter);
    return image;
}

void setPoints(FigPath* path, const QVector<QPoint>& pixels)
{
    FigPoint** end = &path->points;
    for (const QPoint& pixel : pixels) {
        *end = new FigPoint(pixel.x() * PIXEL, pixel.y() * PIXEL);
        end = &(*end)->next;
    }
}

std::unique_ptr<FigLine> makeLine(const QVector<QPoint>& pixels, int thickness = 1)
{
    auto line = std::make_unique<FigLine>();
    line->sub_type = T_POLYLINE;
    line->thickness = thickness;
    setPoints(line.get(), pixels);
    return line;
}

std::unique_ptr<FigEllipse> makeEllipse(QPoint centre, int radiusX, int radiusY)
{
    auto ellipse = std::make_unique<FigEllipse>();
    ellipse->center = FigPoint(centre.x() * PIXEL, centre.y() * PIXEL);
    ellipse->radiuses = FigPoint(radiusX, radiusY);
    ellipse->thickness = 1;
    return ellipse;
}

QVector<QPoint> listedPoints()
{
    QVector<QPoint> points;
    std::copy_n(polygon_points, npoints, std::back_inserter(points));
    return points;
}

void fillPointList()
{
    init_pointlist();
    for (int i = 0; i < MAX_LIST_POINTS; ++i)
        QVERIFY(add_point_to_list(i, 7));
}

} // namespace

class TestGfxLowlevel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { set_colors(); }
    void init() { init_pointlist(); }

    // --- point list

    void equalNeighboursAreDropped()
    {
        QVERIFY(add_point_to_list(1, 2));
        QVERIFY(add_point_to_list(1, 2));
        QVERIFY(add_point_to_list(1, 3));
        QVERIFY(add_point_to_list(1, 2));
        QCOMPARE(listedPoints(), (QVector<QPoint>{{1, 2}, {1, 3}, {1, 2}}));
        QCOMPARE(lastlistpx, 1);
        QCOMPARE(lastlistpy, 2);
    }

    void aFirstPointOfMinusOneIsDropped()
    {
        QVERIFY(add_point_to_list(-1, -1));
        QCOMPARE(npoints, 0L);
        QVERIFY(add_point_to_list(5, 5));
        QVERIFY(add_point_to_list(-1, -1));
        QCOMPARE(npoints, 2L);
    }

    void theHundredThousandthPointIsTheLast()
    {
        fillPointList();
        QCOMPARE(npoints, MAX_LIST_POINTS);
        QCOMPARE(polygon_points[MAX_LIST_POINTS - 1], QPoint(99999, 7));
        QVERIFY(!add_point_to_list(-5, -5));
        // Full even for a repetition of the last point.
        QVERIFY(!add_point_to_list(99999, 7));
        QCOMPARE(npoints, MAX_LIST_POINTS);
    }

    void theScalingAdderReportsAFullListTheOtherWayRound()
    {
        Canvas canvas;
        QCOMPARE(add_point_to_list_scale(&canvas.ctx, 30, 45), 0);
        QCOMPARE(polygon_points[0], QPoint(2, 3));
        fillPointList();
        QCOMPARE(add_point_to_list_scale(&canvas.ctx, 30, 45), -1);
    }

    void aLineFillsTheListAtZoomAndShift()
    {
        Canvas canvas;
        canvas.ctx.zoom = 2.0f;
        canvas.ctx.shiftX = 5;
        canvas.ctx.shiftY = -5;
        const auto line = makeLine({{1, 1}, {10, 1}, {10, 1}, {10, 20}});
        QVERIFY(initPointListFromLine(&canvas.ctx, line.get()));
        QCOMPARE(listedPoints(), (QVector<QPoint>{{-3, 7}, {15, 7}, {15, 45}}));
    }

    void aLineWithoutPointsGivesNone()
    {
        Canvas canvas;
        add_point_to_list(1, 1);
        FigLine line;
        QVERIFY(!initPointListFromLine(&canvas.ctx, &line));
        QCOMPARE(npoints, 0L);
    }

    void anOverlongLineIsTruncated()
    {
        Canvas canvas;
        FigLine line;
        FigPoint* last = line.points = new FigPoint(0, 0);
        for (int i = 1; i < 100010; ++i)
            last = last->next = new FigPoint(i * PIXEL, 0);
        QVERIFY(initPointListFromLine(&canvas.ctx, &line));
        QCOMPARE(npoints, MAX_LIST_POINTS);
        QCOMPARE(polygon_points[MAX_LIST_POINTS - 1], QPoint(99999, 0));
    }

    void duplicatesAreCompactedInPlace()
    {
        QPoint points[] = {{1, 1}, {1, 1}, {2, 1}, {2, 1}, {2, 1}, {1, 1}};
        QCOMPARE(removeDuplicates(points, 0), 0L);
        QCOMPARE(removeDuplicates(points, 1), 1L);
        QCOMPARE(removeDuplicates(points, 6), 3L);
        QCOMPARE(points[0], QPoint(1, 1));
        QCOMPARE(points[1], QPoint(2, 1));
        QCOMPARE(points[2], QPoint(1, 1));
    }

    void pointsAreCopiedAndAppended()
    {
        QPoint from[] = {{1, 2}, {3, 4}, {5, 6}};
        QPoint to[3];
        copy_pointarray(from, to, 2);
        QCOMPARE(to[1], QPoint(3, 4));
        QCOMPARE(to[2], QPoint());
        copy_pointarray(from, to, -1);
        QPolygon polygon(QVector<QPoint>{{9, 9}});
        toPolygon(polygon, from, 2);
        QCOMPARE(polygon, QPolygon(QVector<QPoint>{{9, 9}, {1, 2}, {3, 4}}));
        QPolygonF polygonF;
        toPolygon(polygonF, from, 1);
        QCOMPARE(polygonF, QPolygonF(QVector<QPointF>{{1.0, 2.0}}));
    }

    // --- pen width

    void widthOfALine_data()
    {
        QTest::addColumn<int>("thickness");
        QTest::addColumn<float>("zoom");
        QTest::addColumn<int>("onCanvas");
        QTest::addColumn<int>("inPreview");
        QTest::newRow("one at one") << 1 << 1.0f << 1 << 1;
        QTest::newRow("half rounds up") << 1 << 0.5f << 1 << 1;
        QTest::newRow("thin vanishes") << 1 << 0.49f << 0 << 1;
        QTest::newRow("none stays none") << 0 << 5.0f << 0 << 0;
        QTest::newRow("three at 2.5") << 3 << 2.5f << 8 << 8;
        QTest::newRow("negative") << -1 << 1.0f << -1 << -1;
        QTest::newRow("negative and thin") << -1 << 0.1f << 0 << 0;
    }

    void widthOfALine()
    {
        QFETCH(int, thickness);
        QFETCH(float, zoom);
        Canvas canvas;
        QTEST(getThickness(&canvas.ctx, thickness, zoom), "onCanvas");
        canvas.ctx.setDontHide1ptThickness(true);
        QTEST(getThickness(&canvas.ctx, thickness, zoom), "inPreview");
    }

    void onlyTheVerticalResolutionEntersTheWidth()
    {
        Canvas canvas;
        canvas.ctx.ppiX = 800.0f;
        QCOMPARE(getThickness(&canvas.ctx, 2, 1.0f), 2);
        canvas.ctx.ppiY = 160.0f;
        QCOMPARE(getThickness(&canvas.ctx, 2, 1.0f), 4);
    }

    // --- line styles

    void dashesInPenWidths_data()
    {
        QTest::addColumn<int>("thickness");
        QTest::addColumn<int>("style");
        QTest::addColumn<float>("value");
        QTest::addColumn<QVector<qreal>>("pattern");
        const qreal dot = 0.100000001490116119384765625; // 0.1 in single precision
        const qreal third = 0.3333333432674407958984375; // 1 / 3, the same
        const qreal unit = 2.66666674613952636718750;    // 8 / 3, the same
        using Pattern = QVector<qreal>;
        QTest::newRow("dashed") << 2 << 1 << 8.0f << Pattern{4.0, 4.0};
        QTest::newRow("dotted") << 2 << 2 << 8.0f << Pattern{0.5, 4.0};
        QTest::newRow("dash-dot") << 2 << 3 << 8.0f << Pattern{4.0, 0.53 * 4, dot, 0.53 * 4};
        QTest::newRow("dash-double-dot")
            << 2 << 4 << 8.0f << Pattern{4.0, 0.48 * 4, dot, 0.333 * 4, dot, 0.48 * 4};
        QTest::newRow("dash-triple-dot")
            << 2 << 5 << 8.0f << Pattern{4.0, 0.44 * 4, dot, 0.3 * 4, dot, 0.3 * 4, dot, 0.43 * 4};
        QTest::newRow("no thickness counts as one") << 0 << 2 << 3.0f << Pattern{1.0, 3.0};
        QTest::newRow("single precision") << 3 << 2 << 8.0f << Pattern{third, unit};
        QTest::newRow("widened before the factor")
            << 3 << 3 << 8.0f << Pattern{unit, 0.53 * unit, dot, 0.53 * unit};
    }

    void dashesInPenWidths()
    {
        QFETCH(int, thickness);
        QFETCH(int, style);
        QFETCH(float, value);
        QFETCH(QVector<qreal>, pattern);
        QPen pen(Qt::black), ellipse(Qt::black);
        pen.setWidth(7); // the pattern does not go by the pen's width
        setDashAndCapStyle(pen, thickness, style, value, 0);
        setDashStyle(ellipse, thickness, style, value, true);
        QCOMPARE(pen.style(), Qt::CustomDashLine);
        QVERIFY(pen.dashPattern() == pattern); // to the last bit
        QVERIFY(ellipse.dashPattern() == pattern);
    }

    void solidAndUnknownStyles()
    {
        QPen pen(Qt::black, 1, Qt::DotLine);
        setDashAndCapStyle(pen, 1, 6, 4.0f, 0);
        QCOMPARE(pen.style(), Qt::DotLine);
        setDashAndCapStyle(pen, 1, -1, 4.0f, 0);
        QCOMPARE(pen.style(), Qt::DotLine);
        setDashAndCapStyle(pen, 1, 0, 4.0f, 0);
        QCOMPARE(pen.style(), Qt::SolidLine);
    }

    void capsAndJoins()
    {
        QPen pen(Qt::black);
        const Qt::PenCapStyle caps[] = {Qt::FlatCap, Qt::RoundCap, Qt::SquareCap};
        for (int cap = 0; cap < 3; ++cap) {
            setDashAndCapStyle(pen, 1, 0, 0.0f, cap);
            QCOMPARE(pen.capStyle(), caps[cap]);
        }
        setDashAndCapStyle(pen, 1, 0, 0.0f, 1);
        for (int unknown : {-1, 3}) {
            setDashAndCapStyle(pen, 1, 0, 0.0f, unknown);
            QCOMPARE(pen.capStyle(), Qt::RoundCap);
        }
        setLineJoin(pen, 1);
        QCOMPARE(pen.joinStyle(), Qt::RoundJoin);
        setLineJoin(pen, 7);
        QCOMPARE(pen.joinStyle(), Qt::RoundJoin);
        QCOMPARE(pen.miterLimit(), 2.0); // Qt's own
        setLineJoin(pen, 0);
        QCOMPARE(pen.joinStyle(), Qt::MiterJoin);
        QCOMPARE(pen.miterLimit(), 3.0);
        setLineJoin(pen, 2);
        QCOMPARE(pen.joinStyle(), Qt::BevelJoin);
    }

    // An ellipse has no cap style of its own.
    void capsOfAnEllipseGoByItsLineStyle()
    {
        for (int style = 0; style <= 5; ++style) {
            QPen pen(Qt::black);
            setDashStyle(pen, 1, style, 4.0f, true);
            QCOMPARE(pen.capStyle(), style < 2 ? Qt::FlatCap : Qt::RoundCap);
            setDashStyle(pen, 1, style, 4.0f, false);
            QCOMPARE(pen.capStyle(), Qt::FlatCap);
        }
        QPen pen(Qt::black);
        setDashStyle(pen, 1, 6, 4.0f, true);
        QCOMPARE(pen.capStyle(), Qt::SquareCap);
    }

    // --- layers

    void paintModeGoesByTheLayer()
    {
        CFigContext ctx;
        FigLine line;
        line.depth = 50;
        ctx.active_layers[50] = true;
        QCOMPARE(getPaintMode(&ctx, &line), 3);
        ctx.active_layers[50] = false;
        ctx.layerMode = 10;
        QCOMPARE(getPaintMode(&ctx, &line), 10);
        ctx.layerMode = 11;
        QCOMPARE(getPaintMode(&ctx, &line), 11);
        line.depth = 1000;
        QCOMPARE(getPaintMode(&ctx, &line), 3);
    }

    void hiddenLayerStillPaintsGreyWhenARendererReachesIt()
    {
        CFigContext ctx;
        FigLine line;
        line.depth = 50;
        ctx.active_layers[50] = false;
        ctx.layerMode = 12;
        QCOMPARE(getPaintMode(&ctx, &line), 11);
    }

    // --- strokes and fills on an image

    void thePrimitivesUseTheVeryPenThatStrokePenGives()
    {
        Canvas canvas;
        const auto line = makeLine({{5, 5}, {40, 5}, {40, 40}}, 3);
        line->line_style = 4;
        line->style_val = 6.0f;
        line->cap_style = 1;
        line->join_style = 1;
        line->pen_color = 4;
        pw_polygon(&canvas.ctx, line.get(), PAINT_DIMMED);
        QCOMPARE(canvas.painter.pen(),
                 strokePen(&canvas.ctx, 4, PAINT_DIMMED, 3, 3, 4, 6.0f, 1, 1));
        QCOMPARE(canvas.painter.pen().color(), QColor(255, 204, 204));
        QCOMPARE(canvas.painter.pen().width(), 3);

        const auto ellipse = makeEllipse({30, 30}, 300, 150);
        ellipse->thickness = 2;
        ellipse->line_style = 2;
        ellipse->style_val = 4.0f;
        pw_ellipse(&canvas.ctx, ellipse.get(), PAINT_NORMAL);
        QCOMPARE(canvas.painter.pen(), ellipsePen(&canvas.ctx, ellipse.get(), PAINT_NORMAL, 2));
        QCOMPARE(canvas.painter.pen().capStyle(), Qt::RoundCap);
    }

    void splinesAndArcBoxesSetNoJoin()
    {
        Canvas canvas;
        FigSpline spline;
        spline.thickness = 1;
        add_point_to_list(5, 5);
        add_point_to_list(20, 30);
        pw_spline(&canvas.ctx, &spline, PAINT_NORMAL);
        QCOMPARE(canvas.painter.pen().joinStyle(), Qt::BevelJoin);
        QCOMPARE(canvas.painter.pen().miterLimit(), 2.0);
        const auto box = makeLine({{5, 5}, {50, 5}, {50, 40}, {5, 40}, {5, 5}});
        box->radius = 5;
        box->join_style = 1;
        draw_arcbox(&canvas.ctx, box.get(), PAINT_NORMAL);
        QCOMPARE(canvas.painter.pen().joinStyle(), Qt::BevelJoin);
    }

    void aLineThatRoundsToNoPixelKeepsItsFill()
    {
        Canvas canvas;
        canvas.ctx.zoom = 0.4f;
        const auto line = makeLine({{10, 10}, {100, 10}, {100, 100}, {10, 100}, {10, 10}});
        line->fill_style = 20;
        line->fill_color = 4;
        line->pen_color = 1;
        pw_polygon(&canvas.ctx, line.get(), PAINT_NORMAL);
        QCOMPARE(canvas.image, drawn([](QPainter& painter) {
                     painter.fillRect(4, 4, 36, 36, QColor(255, 0, 0));
                 }));
        canvas.ctx.setDontHide1ptThickness(true);
        pw_polygon(&canvas.ctx, line.get(), PAINT_NORMAL);
        QCOMPARE(canvas.image.pixelColor(4, 20), QColor(0, 0, 255));
        QCOMPARE(canvas.image.pixelColor(5, 20), QColor(255, 0, 0));
    }

    void noThicknessMeansNoStrokeEvenInAPreview()
    {
        Canvas canvas;
        canvas.ctx.setDontHide1ptThickness(true);
        pw_polygon(&canvas.ctx, makeLine({{10, 10}, {50, 10}}, 0).get(), PAINT_NORMAL);
        pw_dot(&canvas.ctx, makeLine({{10, 10}}, 0).get(), PAINT_NORMAL);
        pw_ellipse(
            &canvas.ctx,
            [] {
                auto ellipse = makeEllipse({30, 30}, 150, 150);
                ellipse->thickness = 0;
                return ellipse;
            }()
                .get(),
            PAINT_NORMAL);
        QVERIFY(canvas.ink().isNull());
    }

    void aNegativeThicknessDrawsOnePixel()
    {
        Canvas canvas;
        pw_polygon(&canvas.ctx, makeLine({{10, 10}, {50, 10}}, -1).get(), PAINT_NORMAL);
        QCOMPARE(canvas.painter.pen().width(), 1);
        QCOMPARE(canvas.ink().height(), 1);
        QCOMPARE(canvas.ink().top(), 10);
    }

    // An ellipse is outlined only if its pen is above 0 pixels wide.
    void aNegativeThicknessLeavesAnEllipseWithoutOutline()
    {
        Canvas canvas;
        const auto ellipse = makeEllipse({30, 30}, 300, 150);
        ellipse->thickness = -1;
        pw_ellipse(&canvas.ctx, ellipse.get(), PAINT_NORMAL);
        QVERIFY(canvas.ink().isNull());
        ellipse->fill_style = 20;
        ellipse->fill_color = 4;
        pw_ellipse(&canvas.ctx, ellipse.get(), PAINT_NORMAL);
        QCOMPARE(canvas.image, drawn([](QPainter& painter) {
                     painter.translate(30, 30);
                     painter.setPen(Qt::NoPen);
                     painter.setBrush(QColor(255, 0, 0));
                     painter.drawEllipse(QRect(-20, -10, 40, 20));
                 }));
    }

    void selfCrossingOutlineLeavesItsDoubleAreaOpen()
    {
        Canvas canvas;
        QPoint star[] = {{5, 5},   {55, 5},  {55, 55}, {5, 55},  {5, 5}, {20, 20},
                         {40, 20}, {40, 40}, {20, 40}, {20, 20}, {5, 5}};
        fillPolygon(&canvas.ctx, 0, 4, 20, PAINT_NORMAL, star, 11);
        QCOMPARE(canvas.image.pixelColor(10, 30), QColor(255, 0, 0));
        QCOMPARE(canvas.image.pixelColor(30, 30), QColor(255, 255, 255));
    }

    void theClosedFlagOfAnExplicitPolygonHasNoEffect()
    {
        QPoint corner[] = {{10, 10}, {40, 10}, {40, 40}};
        Canvas open, closed;
        pw_polygon(&open.ctx, corner, 3, 3, 1, 0, 0.0f, 0, 0, -1, 0, 0, false);
        pw_polygon(&closed.ctx, corner, 3, 3, 1, 0, 0.0f, 0, 0, -1, 0, 0, true);
        QCOMPARE(open.image, closed.image);
        QCOMPARE(closed.image.pixelColor(25, 25), QColor(Qt::white));
    }

    void aSquareDotIsAsWideAsItsPen()
    {
        Canvas canvas;
        const auto dot = makeLine({{30, 30}}, 6);
        pw_dot(&canvas.ctx, dot.get(), PAINT_NORMAL);
        QCOMPARE(canvas.image, drawn([](QPainter& painter) {
                     painter.setPen(QPen(Qt::black, 6));
                     painter.drawPoint(30, 30);
                 }));
        QCOMPARE(canvas.ink().size(), QSize(6, 6));
    }

    void aRoundDotIsADiscAroundItsPoint()
    {
        Canvas canvas;
        const auto dot = makeLine({{30, 30}}, 7);
        dot->cap_style = 1;
        pw_dot(&canvas.ctx, dot.get(), PAINT_NORMAL);
        QCOMPARE(canvas.image, drawn([](QPainter& painter) {
                     painter.setPen(Qt::black);
                     painter.setBrush(Qt::black);
                     painter.drawEllipse(QRect(QPoint(27, 27), QPoint(33, 33)));
                 }));
    }

    void aDotThatRoundsToNoPixelIsNotDrawn()
    {
        Canvas canvas;
        canvas.ctx.zoom = 0.3f;
        pw_dot(&canvas.ctx, makeLine({{30, 30}}).get(), PAINT_NORMAL);
        QVERIFY(canvas.ink().isNull());
    }

    void aPictureWithoutImageIsAThinSolidBox()
    {
        Canvas canvas;
        const auto picture = makeLine({{10, 10}, {40, 10}, {40, 30}, {10, 30}, {10, 10}}, 5);
        picture->line_style = 1;
        picture->style_val = 4.0f;
        picture->pen_color = 4;
        pw_picbox(&canvas.ctx, picture.get(), PAINT_NORMAL);
        QCOMPARE(canvas.ink(), QRect(QPoint(10, 10), QPoint(40, 30)));
        for (int x = 10; x <= 40; ++x)
            QCOMPARE(canvas.image.pixelColor(x, 30), QColor(255, 0, 0));
        QCOMPARE(canvas.image.pixelColor(25, 20), QColor(Qt::white));
    }

    // --- splines

    void anOpenSplineMayStartAtItsSecondPoint_data()
    {
        QTest::addColumn<QVector<QPoint>>("points");
        QTest::addColumn<int>("subType");
        QTest::addColumn<bool>("moved");
        using Points = QVector<QPoint>;
        QTest::newRow("same x") << Points{{5, 5}, {5, 9}, {30, 30}} << 0 << true;
        QTest::newRow("same y") << Points{{5, 5}, {9, 5}, {30, 30}} << 2 << true;
        QTest::newRow("neither") << Points{{5, 5}, {9, 6}, {30, 30}} << 0 << false;
        QTest::newRow("two points") << Points{{5, 5}, {5, 9}} << 0 << false;
        QTest::newRow("closed") << Points{{5, 5}, {5, 9}, {30, 30}} << 1 << false;
    }

    void anOpenSplineMayStartAtItsSecondPoint()
    {
        QFETCH(QVector<QPoint>, points);
        QFETCH(int, subType);
        QFETCH(bool, moved);
        Canvas canvas;
        FigSpline spline;
        spline.sub_type = subType;
        spline.thickness = 1;
        for (const QPoint& point : points)
            add_point_to_list(point.x(), point.y());
        pw_spline(&canvas.ctx, &spline, PAINT_NORMAL);
        QCOMPARE(polygon_points[0], moved ? points[1] : points[0]);
        QCOMPARE(canvas.image.pixelColor(5, 5), moved ? QColor(Qt::white) : QColor(Qt::black));
    }

    void theFillOfASplineStillHasItsFirstPoint()
    {
        Canvas canvas;
        FigSpline spline;
        spline.thickness = 1;
        spline.fill_style = 20;
        spline.fill_color = 4;
        for (const QPoint& point : {QPoint(5, 5), QPoint(45, 5), QPoint(45, 45)})
            add_point_to_list(point.x(), point.y());
        pw_spline(&canvas.ctx, &spline, PAINT_NORMAL);
        QCOMPARE(canvas.image.pixelColor(15, 10), QColor(255, 0, 0));
    }

    void anEmptyListDrawsNothing()
    {
        Canvas canvas;
        FigSpline spline;
        spline.thickness = 1;
        pw_spline(&canvas.ctx, &spline, PAINT_NORMAL);
        FigLine line;
        line.thickness = 1;
        pw_polygon(&canvas.ctx, &line, PAINT_NORMAL);
        draw_arcbox(&canvas.ctx, &line, PAINT_NORMAL);
        pw_picbox(&canvas.ctx, &line, PAINT_NORMAL);
        pw_dot(&canvas.ctx, &line, PAINT_NORMAL);
        QVERIFY(canvas.ink().isNull());
    }

    // --- ellipses

    // Radius 157 is 10.47 pixels: -10 on the left, but the diameter 20.93 is 21.
    void theFourValuesOfAnEllipseRoundSeparately()
    {
        Canvas canvas;
        const auto ellipse = makeEllipse({30, 30}, 157, 150);
        pw_ellipse(&canvas.ctx, ellipse.get(), PAINT_NORMAL);
        QCOMPARE(canvas.image, drawn([](QPainter& painter) {
                     QPen pen(Qt::black);
                     pen.setCapStyle(Qt::FlatCap);
                     painter.translate(30, 30);
                     painter.setPen(pen);
                     painter.drawEllipse(QRect(-10, -10, 21, 20));
                 }));
    }

    void anEllipseIsTurnedByWholeDegrees()
    {
        Canvas canvas;
        const auto ellipse = makeEllipse({30, 30}, 300, 75);
        ellipse->angle = 0.5f; // 28.65 degrees
        ellipse->fill_style = 20;
        ellipse->fill_color = 4;
        pw_ellipse(&canvas.ctx, ellipse.get(), PAINT_NORMAL);
        QCOMPARE(canvas.image, drawn([](QPainter& painter) {
                     QPen pen(Qt::black);
                     pen.setCapStyle(Qt::FlatCap);
                     painter.translate(30, 30);
                     painter.rotate(-29);
                     painter.setPen(Qt::NoPen);
                     painter.setBrush(QColor(255, 0, 0));
                     painter.drawEllipse(QRect(-20, -5, 40, 10));
                     painter.setPen(pen);
                     painter.setBrush(Qt::NoBrush);
                     painter.drawEllipse(QRect(-20, -5, 40, 10));
                 }));
    }

    void thePainterIsBackAtItsOriginAfterAnEllipse()
    {
        Canvas canvas;
        const auto ellipse = makeEllipse({30, 30}, 300, 75);
        ellipse->angle = 1.0f;
        pw_ellipse(&canvas.ctx, ellipse.get(), PAINT_NORMAL);
        QVERIFY(canvas.painter.transform().isIdentity());
    }

    void theFillAloneKnowsTwoPlaces()
    {
        Canvas canvas;
        canvas.ctx.shiftX = 1000; // not subtracted in either
        const auto ellipse = makeEllipse({30, 30}, 150, 75);
        ellipse->fill_style = 20;
        ellipse->fill_color = 4;
        fillEllipse(&canvas.ctx, ellipse.get(), PAINT_NORMAL, false);
        const auto disc = [](QRect rect) {
            return [rect](QPainter& painter) {
                painter.setPen(Qt::NoPen);
                painter.setBrush(QColor(255, 0, 0));
                painter.drawEllipse(rect);
            };
        };
        QCOMPARE(canvas.image, drawn(disc(QRect(20, 25, 20, 10))));
        canvas.image.fill(Qt::white);
        fillEllipse(&canvas.ctx, ellipse.get(), PAINT_NORMAL, true);
        QCOMPARE(canvas.image, drawn(disc(QRect(-10, -5, 20, 10))));
    }

    // --- boxes with rounded corners

    void anArcBoxRunsFromItsLeftSideUpAndRound()
    {
        Canvas canvas;
        const auto box = makeLine({{10, 10}, {50, 10}, {50, 40}, {10, 40}, {10, 10}});
        box->radius = 5;
        QVERIFY(initPointListFromArcbox(&canvas.ctx, box.get()));
        QVERIFY(npoints > 8);
        QCOMPARE(polygon_points[0], QPoint(10, 35));
        const QVector<QPoint> points = listedPoints();
        QVERIFY(points.contains(QPoint(45, 10)));
        QVERIFY(points.contains(QPoint(50, 35)));
        QVERIFY(points.contains(QPoint(15, 40)));
        QVERIFY(!points.contains(QPoint(10, 10)));
        QVERIFY(!points.contains(QPoint(50, 40)));
    }

    // Radius in figure units: 5 * (1200 / 160) is 38 rounded, so the first point is 38 above the
    // lower edge at 600.
    void theCornerRadiusGoesByTheHorizontalResolution()
    {
        Canvas canvas;
        canvas.ctx.ppiX = 160.0f;
        canvas.ctx.ppiY = 1200.0f;
        const auto box = makeLine({{10, 10}, {50, 10}, {50, 40}, {10, 40}, {10, 10}});
        box->radius = 5;
        QVERIFY(initPointListFromArcbox(&canvas.ctx, box.get()));
        QCOMPARE(polygon_points[0], QPoint(20, 600 - 38));
    }

    void anArcBoxWithoutThicknessStillHasAnOutline()
    {
        Canvas canvas;
        const auto box = makeLine({{10, 10}, {50, 10}, {50, 40}, {10, 40}, {10, 10}}, 0);
        box->radius = 5;
        draw_arcbox(&canvas.ctx, box.get(), PAINT_NORMAL);
        QCOMPARE(canvas.painter.pen().width(), 0);
        QCOMPARE(canvas.image.pixelColor(30, 10), QColor(Qt::black));
        QCOMPARE(canvas.image.pixelColor(10, 10), QColor(Qt::white));
    }

    // --- window furniture and feedback

    void rectanglesKeepTheFirstCornerAndTakeSizesFromTheSecond()
    {
        Canvas canvas;
        pw_rectangle(&canvas.painter, 10, 12, 30, 20, Qt::red);
        QCOMPARE(canvas.ink(), QRect(QPoint(10, 12), QPoint(31, 21)));
        QCOMPARE(canvas.image.pixelColor(20, 15), QColor(Qt::white));
        canvas.image.fill(Qt::white);
        pw_rectangle(&canvas.painter, 30, 20, 10, 12, Qt::red);
        QCOMPARE(canvas.ink(), QRect(QPoint(30, 20), QPoint(51, 29)));
        canvas.image.fill(Qt::white);
        RectFill(&canvas.painter, 30, 20, 10, 12, Qt::red);
        QCOMPARE(canvas.ink(), QRect(QPoint(30, 20), QPoint(50, 28)));
        canvas.image.fill(Qt::white);
        pw_rectangle_ds(&canvas.ctx, 150, 180, 450, 300, Qt::red);
        QCOMPARE(canvas.ink(), QRect(QPoint(10, 12), QPoint(31, 21)));
    }

    void clearingFillsInPixels()
    {
        Canvas canvas;
        QColor grey(Qt::gray);
        clear_canvas(&canvas.ctx, grey, 3, 4, 10, 20);
        QCOMPARE(canvas.ink(), QRect(3, 4, 10, 20));
    }

    void feedbackPensAreBlackAndThin()
    {
        Canvas canvas;
        const auto check = [&canvas] {
            const QPen& pen = canvas.painter.pen();
            QCOMPARE(pen.color(), QColor(Qt::black));
            QCOMPARE(pen.width(), 1);
            QCOMPARE(pen.capStyle(), Qt::FlatCap);
            QCOMPARE(pen.joinStyle(), Qt::MiterJoin);
        };
        elasticMode(&canvas.painter, 3);
        check();
        QCOMPARE(canvas.painter.pen().style(), Qt::SolidLine);
        rubberMode(&canvas.painter, 3);
        check();
        QCOMPARE(canvas.painter.pen().style(), Qt::DashDotLine);
        dottedMode(&canvas.painter, 3);
        check();
        QCOMPARE(canvas.painter.pen().dashPattern(), (QVector<qreal>{3, 3}));
    }

    void opsOneAndFourInvert()
    {
        Canvas canvas;
        for (int op : {0, 1, 2, 3, 4, 5}) {
            elasticMode(&canvas.painter, op);
            QCOMPARE(canvas.painter.compositionMode(),
                     op == 1 || op == 4 ? QPainter::RasterOp_NotSourceXorDestination
                                        : QPainter::CompositionMode_SourceOver);
        }
    }

    void drawingFeedbackTwiceLeavesTheImageUnchanged()
    {
        Canvas canvas;
        pw_polygon(&canvas.ctx, makeLine({{0, 0}, {50, 55}}, 3).get(), PAINT_NORMAL);
        const QImage before = canvas.image.copy();
        for (int lineMode : {0, 2, 11}) {
            pw_vector(&canvas.ctx, 75, 750, 750, 90, lineMode, 1);
            QVERIFY(canvas.image != before);
            pw_vector(&canvas.ctx, 75, 750, 750, 90, lineMode, 1);
            QCOMPARE(canvas.image, before);
        }
    }

    void aVectorLeavesTheCompositionModeNormal()
    {
        Canvas canvas;
        pw_vector(&canvas.ctx, 75, 75, 750, 750, 0, 1);
        QCOMPARE(canvas.painter.compositionMode(), QPainter::CompositionMode_SourceOver);
    }

    void anUnknownLineModeKeepsThePen()
    {
        Canvas canvas;
        canvas.painter.setPen(Qt::green);
        pw_vector(&canvas.ctx, 75, 75, 750, 75, 5, 1);
        QCOMPARE(canvas.painter.pen().color(), QColor(Qt::green));
        QCOMPARE(canvas.image.pixelColor(20, 5), QColor(Qt::green));
    }

    // --- previews

    void aPreviewFitsTheWholeFigure()
    {
        CFigContext ctx;
        ctx.ppiX = ctx.ppiY = 80.0f;
        ctx.zoom = 3.0f;
        auto* box = makeLine({{0, 0}, {399, 0}, {399, 199}, {0, 199}, {0, 0}}).release();
        box->sub_type = T_BOX;
        box->depth = 50;
        ctx.drawing.objects.append(box);
        QPixmap pixmap(41, 41);
        pixmap.fill(Qt::white);
        createFIGBitmap(&ctx, &pixmap, 41, 41);
        QCOMPARE(ctx.zoom, 3.0f);
        QVERIFY(!ctx.getDontHide1ptThickness());
        QVERIFY(!ctx.painter);
        // Zoom 40 / 400 or a little less: the thin line is kept, one pixel wide.
        const QImage image = pixmap.toImage();
        QCOMPARE(image.pixelColor(0, 10), QColor(Qt::black));
        QCOMPARE(image.pixelColor(20, 20), QColor(Qt::black));
        QCOMPARE(image.pixelColor(40, 10), QColor(Qt::black));
        QCOMPARE(image.pixelColor(20, 10), QColor(Qt::white));
        QCOMPARE(image.pixelColor(20, 30), QColor(Qt::white));
    }

    void aPreviewOfNothingOrOfAPointIsHarmless()
    {
        CFigContext ctx;
        createFIGBitmap(&ctx, nullptr, 10, 10);
        QPixmap none;
        createFIGBitmap(&ctx, &none, 10, 10);
        QPixmap pixmap(10, 10);
        pixmap.fill(Qt::white);
        createFIGBitmap(&ctx, &pixmap, 10, 10);
        ctx.drawing.objects.append(makeLine({{0, 0}}).release());
        createFIGBitmap(&ctx, &pixmap, 10, 10);
        createFIGBitmap(&ctx, &pixmap, 0, 0);
        QVERIFY(ctx.zoom > 0.0f);
    }

    // --- guards

    void withoutAPainterNothingHappens()
    {
        CFigContext ctx;
        const auto line = makeLine({{10, 10}, {50, 10}, {50, 40}});
        line->fill_style = 45;
        line->radius = 5;
        pw_polygon(&ctx, line.get(), PAINT_NORMAL);
        pw_dot(&ctx, line.get(), PAINT_NORMAL);
        pw_picbox(&ctx, line.get(), PAINT_NORMAL);
        draw_arcbox(&ctx, line.get(), PAINT_NORMAL);
        const auto ellipse = makeEllipse({10, 10}, 100, 100);
        ellipse->fill_style = 45;
        pw_ellipse(&ctx, ellipse.get(), PAINT_NORMAL);
        fillEllipse(&ctx, ellipse.get(), PAINT_NORMAL, true);
        pw_vector(&ctx, 0, 0, 100, 100, 0, 1);
        pw_rectangle_ds(&ctx, 0, 0, 100, 100, Qt::red);
        QColor red(Qt::red);
        clear_canvas(&ctx, red, 0, 0, 10, 10);
        QVERIFY(npoints > 0); // the list is still made
    }

    void dashesTooFineToSeeAreDrawnSolid_data()
    {
        QTest::addColumn<int>("thickness");
        QTest::addColumn<float>("value");
        QTest::addColumn<bool>("solid");
        QTest::newRow("usual") << 4 << 4.0f << false;
        QTest::newRow("an eighth of a pixel") << 4 << 0.0625f << true;
        QTest::newRow("a quarter of a pixel") << 4 << 0.125f << false;
        QTest::newRow("fine for its width") << 800 << 1.0f << true;
        QTest::newRow("the widest dashed pen") << 16384 << 16384.0f << false;
        QTest::newRow("wider than any canvas") << 16385 << 16385.0f << true;
        QTest::newRow("no length") << 4 << 0.0f << false;
        QTest::newRow("infinite") << 1 << std::numeric_limits<float>::infinity() << true;
        QTest::newRow("not a number") << 1 << float(NAN) << true;
    }

    void dashesTooFineToSeeAreDrawnSolid()
    {
        QFETCH(int, thickness);
        QFETCH(float, value);
        QFETCH(bool, solid);
        Canvas canvas;
        const auto line = makeLine({{5, 5}, {40, 5}}, thickness);
        line->line_style = 1;
        line->style_val = value;
        pw_polygon(&canvas.ctx, line.get(), PAINT_NORMAL);
        QCOMPARE(canvas.painter.pen().style(), solid ? Qt::SolidLine : Qt::CustomDashLine);
    }

    void aPenStopsAtTheGreatestWidthThatQtTakes()
    {
        Canvas canvas;
        QCOMPARE(strokePen(&canvas.ctx, 0, PAINT_NORMAL, 40000, 1, 0, 0.0f, 0, 0).width(), 32767);
    }

    void extremeNumbersNeitherCrashNorHang_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("thickness");
        QTest::addColumn<int>("style");
        QTest::addColumn<float>("value");
        const float infinity = std::numeric_limits<float>::infinity();
        for (int size : {3000, 30000000, std::numeric_limits<int>::max()}) {
            for (int thickness : {1, 500, std::numeric_limits<int>::max()}) {
                for (float value : {0.0f, -4.0f, 1e-30f, 4.0f, 1e30f, infinity, NAN})
                    QTest::addRow("%d %d %g", size, thickness, double(value))
                        << size << thickness << 1 + size % 5 << value;
            }
        }
    }

    void extremeNumbersNeitherCrashNorHang()
    {
        QFETCH(int, size);
        QFETCH(int, thickness);
        QFETCH(int, style);
        QFETCH(float, value);
        for (float zoom : {0.01f, 1.0f, 99.99f}) {
            Canvas canvas;
            canvas.ctx.zoom = zoom;
            FigLine line;
            line.points = new FigPoint(-size, -size);
            line.points->next = new FigPoint(size, size / 2);
            line.points->next->next = new FigPoint(size / 3, size);
            line.radius = thickness;
            FigEllipse ellipse;
            ellipse.center = FigPoint(size / 2, -size);
            ellipse.radiuses = FigPoint(size, -size - 1);
            for (FigObject* object :
                 {static_cast<FigObject*>(&line), static_cast<FigObject*>(&ellipse)}) {
                object->fill_style = 45;
                object->thickness = thickness;
                object->line_style = style;
                object->style_val = value;
            }
            pw_polygon(&canvas.ctx, &line, PAINT_NORMAL);
            pw_dot(&canvas.ctx, &line, PAINT_NORMAL);
            line.cap_style = 1;
            pw_dot(&canvas.ctx, &line, PAINT_NORMAL);
            draw_arcbox(&canvas.ctx, &line, PAINT_NORMAL);
            pw_ellipse(&canvas.ctx, &ellipse, PAINT_NORMAL);
            fillEllipse(&canvas.ctx, &ellipse, PAINT_NORMAL, false);
            pw_vector(&canvas.ctx, -size, size, size, -size, 2, 1);
        }
        QVERIFY(npoints >= 0);
    }
};

QTEST_MAIN(TestGfxLowlevel)
#include "test_gfx_lowlevel.moc"
