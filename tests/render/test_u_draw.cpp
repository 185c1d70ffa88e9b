#include "DrawingFixtures.h"
#include "model/preferences.h"
#include "render/Font.h"
#include "render/clip.h"
#include "render/colorFunctions.h"
#include "render/u_arrow.h"
#include "render/u_draw.h"

#include <QtTest>

#include <limits>

namespace {

/// A thickness is its own number of pixels at zoom 1.
struct ThickContext : PixelContext {
    ThickContext() { ppiY = 80.0f; }
};

template <class Draw> QImage picture(CFigContext* ctx, Draw draw)
{
    Canvas canvas(ctx);
    draw();
    return canvas.image().copy();
}

bool isBlank(const QImage& image)
{
    QImage white = image;
    white.fill(Qt::white);
    return white == image;
}

/// A line from left to right with a solid triangle at either end.
std::unique_ptr<FigLine> lineWithHeads()
{
    auto line = makeLine({{50, 1500}, {250, 1500}});
    line->forward_arrow = makeArrow(1, 1, 1.0f, 40.0f, 60.0f);
    line->backward_arrow = makeArrow(1, 1, 1.0f, 40.0f, 60.0f);
    return line;
}

std::unique_ptr<FigLine> boxWithHeads(int subType)
{
    auto line = lineWithHeads();
    line->sub_type = subType;
    line->radius = 3;
    free_points(line->points);
    setPoints(line.get(), {{50, 450}, {250, 450}, {250, 2550}, {50, 2550}, {50, 450}});
    return line;
}

} // namespace

class TestDraw : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { set_colors(); }
    void withoutOpenCompoundTheModeStays();
    void membersOfTheOpenCompoundKeepTheirMode();
    void strongerTreatmentWinsOutsideTheOpenCompound_data();
    void strongerTreatmentWinsOutsideTheOpenCompound();
    void hiddenObjectsLeaveOutTheirArrowheads();
    void dimmedObjectsAreLighter();
    void arcboxIsRoundedAboveTwoPixels_data();
    void arcboxIsRoundedAboveTwoPixels();
    void smallArcboxIsDrawnWithSharpCorners();
    void picturesAndRoundedBoxesShowNoHeads_data();
    void picturesAndRoundedBoxesShowNoHeads();
    void lineOfOnePointIsADot();
    void lineWithoutPointsDrawsNothing();
    void lineWithoutThicknessShowsNoHeads();
    void headsOfALineAreDrawnForwardFirst();
    void headsOfASplineAreDrawnBackwardFirstWithCrossedFills();
    void aSplineHeadAloneLosesItsSolidHalf();
    void splinesWithTooFewPointsDrawNoHeads();
    void onlyTheForwardHeadOfAnArcGetsASolidHalf();
    void pieWedgesShowNoHeads();
    void arcsWithoutRadiusDrawNothing();
    void arcsFillWithoutAStroke();
    void everyTypeDrawsThroughItsVirtual();
    void drawByTypeCodeCallsTheSameRenderer();
    void unknownTypeCodesDrawNothing();
    void compoundsDrawEveryMemberWhateverItsFlags();
    void nullCompoundDrawsNothing();
    void withoutPainterNothingIsDrawn();
    void hostileNumbersAreSurvived_data();
    void hostileNumbersAreSurvived();
};

void TestDraw::withoutOpenCompoundTheModeStays()
{
    PixelContext ctx;
    FigLine line;
    const CompoundView view(PAINT_HIDDEN);
    for (int mode : {PAINT_NORMAL, PAINT_DIMMED, PAINT_GRAYED})
        QCOMPARE(isOutsideOpenedCurrentCompound(&ctx, &line, mode), mode);
}

void TestDraw::membersOfTheOpenCompoundKeepTheirMode()
{
    PixelContext ctx;
    auto* member = new FigLine;
    auto* inner = new FigCompound;
    auto* nested = new FigLine;
    inner->objects->append(nested);
    FigCompound open;
    open.objects->append(member);
    open.objects->append(inner);
    ctx.openCompoundObjects = open.objects;
    const CompoundView view(PAINT_HIDDEN);
    QCOMPARE(isOutsideOpenedCurrentCompound(&ctx, member, PAINT_NORMAL), int(PAINT_NORMAL));
    QCOMPARE(isOutsideOpenedCurrentCompound(&ctx, nested, PAINT_DIMMED), int(PAINT_DIMMED));
    FigLine stranger;
    QCOMPARE(isOutsideOpenedCurrentCompound(&ctx, &stranger, PAINT_NORMAL), int(PAINT_HIDDEN));
}

void TestDraw::strongerTreatmentWinsOutsideTheOpenCompound_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("view");
    QTest::addColumn<int>("result");
    const int table[][3] = {{3, 3, 3},   {3, 10, 10},  {3, 11, 11},  {3, 12, 12},
                            {10, 3, 10}, {10, 10, 10}, {10, 11, 11}, {10, 12, 12},
                            {11, 3, 11}, {11, 10, 11}, {11, 11, 11}, {11, 12, 12}};
    for (const auto& row : table)
        QTest::addRow("mode %d, view %d", row[0], row[1]) << row[0] << row[1] << row[2];
}

void TestDraw::strongerTreatmentWinsOutsideTheOpenCompound()
{
    QFETCH(int, mode);
    QFETCH(int, view);
    QFETCH(int, result);
    PixelContext ctx;
    FigCompound open;
    ctx.openCompoundObjects = open.objects;
    const CompoundView compoundView(view);
    FigLine line;
    QCOMPARE(isOutsideOpenedCurrentCompound(&ctx, &line, mode), result);
}

void TestDraw::hiddenObjectsLeaveOutTheirArrowheads()
{
    ThickContext ctx;
    FigCompound open;
    ctx.openCompoundObjects = open.objects;
    const auto line = lineWithHeads();
    {
        const CompoundView view(PAINT_HIDDEN);
        QVERIFY(isBlank(picture(&ctx, [&] { draw_line(&ctx, line.get()); })));
    }
    const CompoundView view(PAINT_NORMAL);
    QVERIFY(!isBlank(picture(&ctx, [&] { draw_line(&ctx, line.get()); })));
}

// An inactive depth is dimmed, the setting is gray: gray. Blue keeps no hue in gray.
void TestDraw::dimmedObjectsAreLighter()
{
    ThickContext ctx;
    const auto line = makeLine({{50, 1500}, {250, 1500}}, 9);
    line->pen_color = 1;
    line->depth = 5;
    const auto colorOnLine = [&] {
        return picture(&ctx, [&] { draw_line(&ctx, line.get()); }).pixelColor(150, 100);
    };
    QCOMPARE(colorOnLine(), QColor(0, 0, 255));
    ctx.active_layers[5] = false;
    const QColor dimmed = colorOnLine();
    QVERIFY(dimmed.lightness() > 200 && dimmed.blue() > dimmed.red());
    FigCompound open;
    ctx.openCompoundObjects = open.objects;
    const CompoundView view(PAINT_GRAYED);
    const QColor gray = colorOnLine();
    QCOMPARE(gray.red(), gray.blue());
    QVERIFY(gray != QColor(Qt::white));
}

void TestDraw::arcboxIsRoundedAboveTwoPixels_data()
{
    QTest::addColumn<int>("subType");
    QTest::addColumn<int>("radius");
    QTest::addColumn<float>("zoom");
    QTest::addColumn<bool>("rounded");
    QTest::newRow("two") << 4 << 2 << 1.0f << false;
    QTest::newRow("three") << 4 << 3 << 1.0f << true;
    QTest::newRow("two and a half") << 4 << 5 << 0.5f << true;
    QTest::newRow("just under") << 4 << 7 << 0.35f << false;
    QTest::newRow("no radius") << 4 << -1 << 1.0f << false;
    QTest::newRow("no arc-box") << 2 << 50 << 1.0f << false;
    QTest::newRow("beyond an int") << 4 << std::numeric_limits<int>::max() << 99.99f << true;
}

void TestDraw::arcboxIsRoundedAboveTwoPixels()
{
    QFETCH(int, subType);
    QFETCH(int, radius);
    QFETCH(float, zoom);
    QFETCH(bool, rounded);
    PixelContext ctx;
    ctx.zoom = zoom;
    FigLine line;
    line.sub_type = subType;
    line.radius = radius;
    QCOMPARE(isRoundedArcbox(&ctx, &line), rounded);
}

void TestDraw::smallArcboxIsDrawnWithSharpCorners()
{
    ThickContext ctx;
    const auto box = boxWithHeads(T_ARCBOX);
    const auto plain = boxWithHeads(T_POLYGON);
    box->radius = 2;
    QCOMPARE(picture(&ctx, [&] { draw_line(&ctx, box.get()); }),
             picture(&ctx, [&] { draw_line(&ctx, plain.get()); }));
}

void TestDraw::picturesAndRoundedBoxesShowNoHeads_data()
{
    QTest::addColumn<int>("subType");
    QTest::newRow("picture") << int(T_PICTURE);
    QTest::newRow("arc-box") << int(T_ARCBOX);
}

void TestDraw::picturesAndRoundedBoxesShowNoHeads()
{
    QFETCH(int, subType);
    ThickContext ctx;
    const auto box = boxWithHeads(subType);
    // Wide enough for the heads to be clipped out of the line: the clip is taken back as well.
    box->thickness = 3;
    Canvas canvas(&ctx);
    canvas.painter()->setClipRect(0, 0, 290, 190);
    draw_line(&ctx, box.get());
    QCOMPARE(canvas.painter()->clipRegion(), QRegion(0, 0, 290, 190));
    QVERIFY(!canvas.isBlank());
    // The forward head of the same outline would lie along the top, from the end to the right.
    for (int x = 70; x < 100; ++x)
        QVERIFY(!canvas.isInked(x, 37));
    box->sub_type = T_POLYGON;
    draw_line(&ctx, box.get());
    bool hasHead = false;
    for (int x = 40; x < 100; ++x)
        hasHead = hasHead || canvas.isInked(x, 37);
    QVERIFY(hasHead);
}

void TestDraw::lineOfOnePointIsADot()
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    const auto line = makeLine({{150, 1500}}, 7);
    line->forward_arrow = makeArrow(1, 1, 1.0f, 40.0f, 60.0f);
    draw_line(&ctx, line.get());
    QVERIFY(canvas.isInked(150, 100));
    QVERIFY(!canvas.isInked(160, 100));
}

void TestDraw::lineWithoutPointsDrawsNothing()
{
    ThickContext ctx;
    const auto line = makeLine({}, 3);
    line->forward_arrow = makeArrow(1, 1, 1.0f, 40.0f, 60.0f);
    QVERIFY(isBlank(picture(&ctx, [&] { draw_line(&ctx, line.get()); })));
}

void TestDraw::lineWithoutThicknessShowsNoHeads()
{
    ThickContext ctx;
    const auto line = lineWithHeads();
    line->thickness = 0;
    QVERIFY(isBlank(picture(&ctx, [&] { draw_line(&ctx, line.get()); })));
}

namespace {

/// Heads so large that they cover each other: what is drawn last shows.
template <class Object> void giveOverlappingHeads(Object* object)
{
    object->forward_arrow = makeArrow(9, 0, 1.0f, 60.0f, 130.0f);
    object->backward_arrow = makeArrow(9, 1, 1.0f, 60.0f, 130.0f);
}

void computeHeads(CFigContext* ctx, FigObject* object, int skip, ArrowBuffers& b)
{
    get_arrowpoints(ctx, object, object->type, polygon_points, skip, b.forwardFill,
                    &b.forwardFillCount, b.backwardFill, &b.backwardFillCount, b.forwardClip,
                    &b.forwardClipCount, b.backwardClip, &b.backwardClipCount);
}

void drawForward(CFigContext* ctx, FigObject* object, QPoint* fill, int count)
{
    draw_arrow32(ctx, object, object->forward_arrow, farpts, nfpts, fill, count, PAINT_NORMAL);
}

void drawBackward(CFigContext* ctx, FigObject* object, QPoint* fill, int count)
{
    draw_arrow32(ctx, object, object->backward_arrow, barpts, nbpts, fill, count, PAINT_NORMAL);
}

} // namespace

void TestDraw::headsOfALineAreDrawnForwardFirst()
{
    ThickContext ctx;
    const auto line = makeLine({{50, 1500}, {250, 1500}});
    giveOverlappingHeads(line.get());
    const QImage drawn = picture(&ctx, [&] { draw_line(&ctx, line.get()); });
    const auto composed = [&](bool forwardFirst) {
        return picture(&ctx, [&] {
            initPointListFromLine(&ctx, line.get());
            ArrowBuffers b;
            computeHeads(&ctx, line.get(), 0, b);
            pw_polygon(&ctx, line.get(), PAINT_NORMAL);
            if (forwardFirst)
                drawForward(&ctx, line.get(), b.forwardFill, b.forwardFillCount);
            drawBackward(&ctx, line.get(), b.backwardFill, b.backwardFillCount);
            if (!forwardFirst)
                drawForward(&ctx, line.get(), b.forwardFill, b.forwardFillCount);
        });
    };
    QCOMPARE(drawn, composed(true));
    QVERIFY(drawn != composed(false));
}

void TestDraw::headsOfASplineAreDrawnBackwardFirstWithCrossedFills()
{
    ThickContext ctx;
    const auto spline = makeSpline(0, {{50, 1500}, {120, 900}, {250, 1500}}, {0.0, 1.0, 0.0});
    giveOverlappingHeads(spline.get());
    const QImage drawn = picture(&ctx, [&] { draw_spline(&ctx, spline.get()); });
    const auto composed = [&](bool crossed, bool backwardFirst) {
        return picture(&ctx, [&] {
            initPointListFromSpline(&ctx, spline.get());
            ArrowBuffers b;
            computeHeads(&ctx, spline.get(), 2, b);
            QCOMPARE(b.forwardFillCount, 3);
            QCOMPARE(b.backwardFillCount, 3);
            pw_spline(&ctx, spline.get(), PAINT_NORMAL);
            QPoint* forward = crossed ? b.backwardFill : b.forwardFill;
            QPoint* backward = crossed ? b.forwardFill : b.backwardFill;
            if (backwardFirst)
                drawBackward(&ctx, spline.get(), backward, 3);
            drawForward(&ctx, spline.get(), forward, 3);
            if (!backwardFirst)
                drawBackward(&ctx, spline.get(), backward, 3);
        });
    };
    QCOMPARE(drawn, composed(true, true));
    QVERIFY(drawn != composed(false, true));
    QVERIFY(drawn != composed(true, false));
}

void TestDraw::aSplineHeadAloneLosesItsSolidHalf()
{
    ThickContext ctx;
    // The head lies along y = 100 from x = 250 to the left; its solid half is above.
    const QPoint solidHalf(190, 93);
    const auto spline = makeSpline(0, {{50, 1500}, {150, 1500}, {250, 1500}}, {0.0, 0.0, 0.0});
    spline->forward_arrow = makeArrow(9, 0, 1.0f, 40.0f, 80.0f);
    const QImage ofSpline = picture(&ctx, [&] { draw_spline(&ctx, spline.get()); });
    QCOMPARE(ofSpline.pixelColor(solidHalf), QColor(Qt::white));
    const auto line = makeLine({{50, 1500}, {150, 1500}, {250, 1500}});
    line->forward_arrow = makeArrow(9, 0, 1.0f, 40.0f, 80.0f);
    const QImage ofLine = picture(&ctx, [&] { draw_line(&ctx, line.get()); });
    QCOMPARE(ofLine.pixelColor(solidHalf), QColor(Qt::black));
}

void TestDraw::splinesWithTooFewPointsDrawNoHeads()
{
    ThickContext ctx;
    for (int subType : {0, 1}) {
        const auto spline = makeSpline(subType, {{50, 1500}}, {0.0});
        giveOverlappingHeads(spline.get());
        QVERIFY(isBlank(picture(&ctx, [&] { draw_spline(&ctx, spline.get()); })));
    }
}

// Both heads are half filled; the forward one is drawn with the backward one's solid half.
void TestDraw::onlyTheForwardHeadOfAnArcGetsASolidHalf()
{
    PixelContext ctx;
    const auto arc = makeArc({150, 150}, {250, 150}, {150, 50}, 1);
    giveOverlappingHeads(arc.get());
    const QImage drawn = picture(&ctx, [&] { draw_arc(&ctx, arc.get()); });
    const QImage composed = picture(&ctx, [&] {
        initPointListFromArc(&ctx, arc.get());
        ArrowBuffers b;
        computeHeads(&ctx, arc.get(), 0, b);
        QCOMPARE(b.forwardFillCount, 3);
        QCOMPARE(b.backwardFillCount, 0);
        QRegion saved;
        const bool clipped = setArrowClipping(&ctx, b.forwardClip, b.forwardClipCount,
                                              b.backwardClip, b.backwardClipCount, 1, saved);
        ctx.painter->setPen(
            strokePen(&ctx, 0, PAINT_NORMAL, getThickness(&ctx, 1, 1.0f), 1, 0, 0.0f, 0, -1));
        ctx.painter->setBrush(Qt::NoBrush);
        ctx.painter->drawPolyline(polygon_points, static_cast<int>(npoints));
        if (clipped)
            restoreArrowClipping(&ctx, saved);
        drawForward(&ctx, arc.get(), b.forwardFill, 3);
        drawBackward(&ctx, arc.get(), nullptr, 0);
    });
    QCOMPARE(drawn, composed);
}

void TestDraw::pieWedgesShowNoHeads()
{
    PixelContext ctx;
    const auto bare = makeArc({150, 150}, {250, 150}, {150, 50}, 1);
    bare->sub_type = 1;
    const auto wedge = makeArc({150, 150}, {250, 150}, {150, 50}, 1);
    wedge->sub_type = 1;
    giveOverlappingHeads(wedge.get());
    QCOMPARE(picture(&ctx, [&] { draw_arc(&ctx, wedge.get()); }),
             picture(&ctx, [&] { draw_arc(&ctx, bare.get()); }));
}

void TestDraw::arcsWithoutRadiusDrawNothing()
{
    PixelContext ctx;
    const auto arc = makeArc({150, 150}, {150, 150}, {150, 50}, 1);
    giveOverlappingHeads(arc.get());
    QVERIFY(isBlank(picture(&ctx, [&] { draw_arc(&ctx, arc.get()); })));
}

void TestDraw::arcsFillWithoutAStroke()
{
    PixelContext ctx;
    const auto arc = makeArc({150, 100}, {250, 100}, {50, 100}, 1);
    arc->thickness = 0;
    QVERIFY(isBlank(picture(&ctx, [&] { draw_arc(&ctx, arc.get()); })));
    arc->fill_style = 20;
    arc->fill_color = 4;
    const QImage filled = picture(&ctx, [&] { draw_arc(&ctx, arc.get()); });
    QCOMPARE(filled.pixelColor(150, 50), QColor(255, 0, 0));
    QCOMPARE(filled.pixelColor(150, 150), QColor(Qt::white));
}

namespace {

std::unique_ptr<FigEllipse> makeEllipse()
{
    auto ellipse = std::make_unique<FigEllipse>();
    ellipse->thickness = 2;
    ellipse->center = FigPoint(150, 1500);
    ellipse->radiuses = FigPoint(80, 500);
    return ellipse;
}

std::unique_ptr<FigText> makeText()
{
    auto text = std::make_unique<FigText>();
    text->x = 50;
    text->y = 1500;
    text->size = 300;
    text->cstring = "Hg";
    return text;
}

} // namespace

void TestDraw::everyTypeDrawsThroughItsVirtual()
{
    ThickContext ctx;
    const auto line = lineWithHeads();
    const auto spline = makeSpline(1, {{50, 300}, {250, 900}, {100, 1800}}, {1.0, 1.0, 1.0});
    const auto arc = makeArc({150, 1500}, {250, 1500}, {50, 1500}, 1);
    const auto ellipse = makeEllipse();
    const auto text = makeText();
    for (FigObject* object :
         {static_cast<FigObject*>(line.get()), static_cast<FigObject*>(spline.get()),
          static_cast<FigObject*>(arc.get()), static_cast<FigObject*>(ellipse.get()),
          static_cast<FigObject*>(text.get())})
        QVERIFY2(!isBlank(picture(&ctx, [&] { object->draw(&ctx); })),
                 qPrintable(QString::number(object->type)));
    QCOMPARE(picture(&ctx, [&] { ellipse->draw(&ctx); }),
             picture(&ctx, [&] { pw_ellipse(&ctx, ellipse.get(), PAINT_NORMAL); }));
    QCOMPARE(picture(&ctx, [&] { text->draw(&ctx); }),
             picture(&ctx, [&] { pw_text(&ctx, 50, 1500, PAINT_NORMAL, text.get()); }));
}

void TestDraw::drawByTypeCodeCallsTheSameRenderer()
{
    ThickContext ctx;
    const auto ellipse = makeEllipse();
    const auto line = lineWithHeads();
    FigCompound compound;
    compound.objects->append(lineWithHeads().release());
    const QImage expected = picture(&ctx, [&] { draw_line(&ctx, line.get()); });
    QCOMPARE(picture(&ctx, [&] { line->FigObject::draw(&ctx); }), expected);
    QCOMPARE(picture(&ctx, [&] { compound.FigObject::draw(&ctx); }), expected);
    QCOMPARE(picture(&ctx, [&] { ellipse->FigObject::draw(&ctx); }),
             picture(&ctx, [&] { draw_ellipse(&ctx, ellipse.get()); }));
}

void TestDraw::unknownTypeCodesDrawNothing()
{
    ThickContext ctx;
    FigObject bare;
    for (int type : {0, 2, 7, -1}) {
        bare.type = type;
        QVERIFY(isBlank(picture(&ctx, [&] { bare.draw(&ctx); })));
    }
}

void TestDraw::compoundsDrawEveryMemberWhateverItsFlags()
{
    ThickContext ctx;
    FigCompound compound;
    auto* inner = new FigCompound;
    auto* upper = makeLine({{50, 300}, {250, 300}}, 5).release();
    auto* lower = makeLine({{50, 2700}, {250, 2700}}, 5).release();
    upper->ignore = true;
    inner->objects->append(lower);
    compound.objects->append(upper);
    compound.objects->append(inner);
    const QImage drawn = picture(&ctx, [&] { compound.draw(&ctx); });
    QCOMPARE(drawn.pixelColor(150, 20), QColor(Qt::black));
    QCOMPARE(drawn.pixelColor(150, 180), QColor(Qt::black));
}

void TestDraw::nullCompoundDrawsNothing()
{
    ThickContext ctx;
    QVERIFY(isBlank(picture(&ctx, [&] { draw_compound(&ctx, nullptr); })));
}

void TestDraw::withoutPainterNothingIsDrawn()
{
    ThickContext ctx;
    QPainter idle;
    for (QPainter* painter : {static_cast<QPainter*>(nullptr), &idle}) {
        ctx.setPainter(painter);
        const auto line = lineWithHeads();
        const auto arc = makeArc({150, 150}, {250, 150}, {150, 50}, 1);
        const auto ellipse = makeEllipse();
        const auto text = makeText();
        npoints = 0;
        line->draw(&ctx);
        arc->draw(&ctx);
        ellipse->draw(&ctx);
        text->draw(&ctx);
        QCOMPARE(npoints, 0L);
    }
    ctx.setPainter(nullptr);
}

void TestDraw::hostileNumbersAreSurvived_data()
{
    QTest::addColumn<int>("coordinate");
    QTest::addColumn<float>("zoom");
    QTest::addColumn<float>("number");
    constexpr int most = std::numeric_limits<int>::max();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    QTest::newRow("far") << most << 99.99f << 2.0f;
    QTest::newRow("far to the other side") << -most << 99.99f << 2.0f;
    QTest::newRow("near with numbers that are none") << 100 << 99.99f << nan;
    QTest::newRow("near with infinite numbers")
        << 100 << 1.0f << std::numeric_limits<float>::infinity();
}

void TestDraw::hostileNumbersAreSurvived()
{
    QFETCH(int, coordinate);
    QFETCH(float, zoom);
    QFETCH(float, number);
    ThickContext ctx;
    ctx.zoom = zoom;
    Canvas canvas(&ctx);
    for (int type = 0; type <= 14; ++type) {
        const auto line = makeLine({{0, 0}, {coordinate, coordinate}, {10, coordinate}}, 2);
        line->forward_arrow = makeArrow(type, 0, number, 20.0f, number);
        draw_line(&ctx, line.get());
        const auto arc =
            makeArc({number, 10}, {coordinate, 0}, {-coordinate, -coordinate}, type & 1);
        arc->forward_arrow = makeArrow(type, 1, 2.0f, number, 20.0f);
        draw_arc(&ctx, arc.get());
        const auto spline =
            makeSpline(type & 1, {{0, 0}, {coordinate, 0}, {coordinate, -coordinate}},
                       {1.0, -1.0, double(number)});
        spline->backward_arrow = makeArrow(type, 1, 2.0f, 20.0f, 20.0f);
        draw_spline(&ctx, spline.get());
    }
    QVERIFY(canvas.painter()->isActive());
}

QTEST_MAIN(TestDraw)
#include "test_u_draw.moc"
