#include "DrawingFixtures.h"
#include "render/clip.h"
#include "render/colorFunctions.h"
#include "render/u_draw.h"

#include <QElapsedTimer>
#include <QtTest>

#include <limits>

namespace {

/// A thickness is its own number of pixels.
struct ThickContext : PixelContext {
    ThickContext() { ppiY = 80.0f; }
};

const QRect device(0, 0, 300, 200);
QPoint square[] = {{40, 40}, {60, 40}, {60, 60}, {40, 60}};
QPoint otherSquare[] = {{140, 40}, {160, 40}, {160, 60}, {140, 60}};

QRegion squareRegion()
{
    return QRegion(QPolygon(QRect(40, 40, 20, 20)), Qt::OddEvenFill);
}

QRegion otherSquareRegion()
{
    return QRegion(QPolygon(QRect(140, 40, 20, 20)), Qt::OddEvenFill);
}

} // namespace

class TestClip : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { set_colors(); }
    void thinLinesAreNotClipped();
    void withoutClipTheHeadIsTakenOutOfTheDevice();
    void aFormerClipIsKeptAndPutBack();
    void aClipThatWasTakenOffIsNotTakenForOne();
    void bothHeadsAreTakenOut();
    void withoutHeadsNothingIsChanged();
    void withoutPainterNothingIsClipped();
    void anEmptySavedRegionRestoresTheWholeDevice();
    void polygonsAreFilledOddEven();
    void hugeHeadsAreCutOffFarFromTheDevice();
    void aLineUnderItsHeadDoesNotShow();
    void aClipOfTheWholeImageGivesTheSamePicture();
};

void TestClip::thinLinesAreNotClipped()
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    QRegion saved(1, 2, 3, 4);
    QVERIFY(!setArrowClipping(&ctx, square, 4, nullptr, 0, 1, saved));
    QCOMPARE(saved, QRegion(1, 2, 3, 4));
    QVERIFY(!canvas.painter()->hasClipping());
    // 3 at zoom 0.4 is 1.2: one pixel.
    ctx.zoom = 0.4f;
    QVERIFY(!setArrowClipping(&ctx, square, 4, nullptr, 0, 3, saved));
    QVERIFY(setArrowClipping(&ctx, square, 4, nullptr, 0, 4, saved));
}

void TestClip::withoutClipTheHeadIsTakenOutOfTheDevice()
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    QRegion saved;
    QVERIFY(setArrowClipping(&ctx, square, 4, nullptr, 0, 2, saved));
    QVERIFY(saved.isEmpty());
    QCOMPARE(canvas.painter()->clipRegion(), QRegion(device) - squareRegion());
    QVERIFY(!canvas.painter()->clipRegion().contains(QPoint(50, 50)));
    QVERIFY(canvas.painter()->clipRegion().contains(QPoint(70, 50)));
}

void TestClip::aFormerClipIsKeptAndPutBack()
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    const QRegion former(20, 20, 100, 100);
    canvas.painter()->setClipRegion(former);
    QRegion saved;
    QVERIFY(setArrowClipping(&ctx, square, 4, nullptr, 0, 2, saved));
    QCOMPARE(saved, former);
    QCOMPARE(canvas.painter()->clipRegion(), former - squareRegion());
    restoreArrowClipping(&ctx, saved);
    QCOMPARE(canvas.painter()->clipRegion(), former);
}

// The painter goes on naming its old region after Qt::NoClip.
void TestClip::aClipThatWasTakenOffIsNotTakenForOne()
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    canvas.painter()->setClipRegion(QRegion(0, 0, 10, 10));
    canvas.painter()->setClipRegion(QRegion(), Qt::NoClip);
    QRegion saved(1, 2, 3, 4);
    QVERIFY(setArrowClipping(&ctx, square, 4, nullptr, 0, 2, saved));
    QVERIFY(saved.isEmpty());
    QCOMPARE(canvas.painter()->clipRegion(), QRegion(device) - squareRegion());
}

void TestClip::bothHeadsAreTakenOut()
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    QRegion saved;
    QVERIFY(setArrowClipping(&ctx, square, 4, otherSquare, 4, 2, saved));
    QCOMPARE(canvas.painter()->clipRegion(),
             QRegion(device) - squareRegion() - otherSquareRegion());
    restoreArrowClipping(&ctx, saved);
    QVERIFY(setArrowClipping(&ctx, nullptr, 0, otherSquare, 4, 2, saved));
    QCOMPARE(canvas.painter()->clipRegion(), QRegion(device) - otherSquareRegion());
}

void TestClip::withoutHeadsNothingIsChanged()
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    QRegion saved;
    QVERIFY(!setArrowClipping(&ctx, nullptr, 0, nullptr, 0, 5, saved));
    QVERIFY(!canvas.painter()->hasClipping());
}

void TestClip::withoutPainterNothingIsClipped()
{
    ThickContext ctx;
    QRegion saved;
    QVERIFY(!setArrowClipping(&ctx, square, 4, nullptr, 0, 5, saved));
    QPainter idle;
    ctx.setPainter(&idle);
    QVERIFY(!setArrowClipping(&ctx, square, 4, nullptr, 0, 5, saved));
    ctx.setPainter(nullptr);
}

void TestClip::anEmptySavedRegionRestoresTheWholeDevice()
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    canvas.painter()->setClipRegion(QRegion(0, 0, 10, 10));
    restoreArrowClipping(&ctx, QRegion());
    QCOMPARE(canvas.painter()->clipRegion(), QRegion(device));
}

void TestClip::polygonsAreFilledOddEven()
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    // Twice round the same square leaves it even.
    QPoint twice[8];
    for (int i = 0; i < 8; ++i)
        twice[i] = square[i % 4];
    QRegion saved;
    QVERIFY(setArrowClipping(&ctx, twice, 8, nullptr, 0, 2, saved));
    QCOMPARE(canvas.painter()->clipRegion(), QRegion(device));
}

void TestClip::hugeHeadsAreCutOffFarFromTheDevice()
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    constexpr int most = std::numeric_limits<int>::max();
    QPoint leftHalf[] = {{-most, -most}, {100, -most}, {100, most}, {-most, most}};
    QPoint lowerHalf[] = {{-most, 80}, {most, 80}, {0, most}};
    QRegion saved;
    QElapsedTimer timer;
    timer.start();
    QVERIFY(setArrowClipping(&ctx, leftHalf, 4, lowerHalf, 3, 2, saved));
    QVERIFY2(timer.elapsed() < 5000, "a region of two milliards of lines was made");
    QCOMPARE(canvas.painter()->clipRegion(), QRegion(100, 0, 200, 80));
    // Wholly outside: nothing is left of the polygon.
    restoreArrowClipping(&ctx, saved);
    QPoint farOff[] = {{most - 9, most - 9}, {most, most - 9}, {most, most}};
    QVERIFY(setArrowClipping(&ctx, farOff, 3, nullptr, 0, 2, saved));
    QCOMPARE(canvas.painter()->clipRegion(), QRegion(device));
}

namespace {

std::unique_ptr<FigLine> thickLineWithHeads()
{
    auto line = makeLine({{30, 1500}, {250, 1500}, {200, 450}}, 14);
    line->cap_style = 2;
    line->forward_arrow = makeArrow(1, 0, 1.0f, 40.0f, 60.0f);
    line->backward_arrow = makeArrow(2, 1, 1.0f, 40.0f, 60.0f);
    return line;
}

QImage pictureOfThickLine(bool clipWholeImage)
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    if (clipWholeImage)
        canvas.painter()->setClipRect(device);
    const auto line = thickLineWithHeads();
    draw_line(&ctx, line.get());
    const auto second = makeLine({{0, 2850}, {299, 2850}}, 3);
    draw_line(&ctx, second.get());
    return canvas.image().copy();
}

} // namespace

// A hollow head of the line's own thickness. Beside its tip, in (250, 100), the line would show.
void TestClip::aLineUnderItsHeadDoesNotShow()
{
    ThickContext ctx;
    Canvas canvas(&ctx);
    const auto line = makeLine({{30, 1500}, {250, 1500}}, 14);
    draw_line(&ctx, line.get());
    QVERIFY(canvas.isInked(248, 94));
    canvas.painter()->fillRect(device, Qt::white);
    line->forward_arrow = makeArrow(1, 0, 14.0f, 40.0f, 60.0f);
    draw_line(&ctx, line.get());
    QVERIFY(!canvas.isInked(248, 94));
    QVERIFY(!canvas.isInked(248, 105));
    QVERIFY(canvas.isInked(140, 94));
    QVERIFY(!canvas.isInked(185, 100)); // the head's white inside
}

void TestClip::aClipOfTheWholeImageGivesTheSamePicture()
{
    QCOMPARE(pictureOfThickLine(true), pictureOfThickLine(false));
}

QTEST_MAIN(TestClip)
#include "test_clip.moc"
