#include "ui/QRuler.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

const QRgb ground = qRgb(236, 233, 216);
const QRgb black = qRgb(0, 0, 0);
const QRgb red = qRgb(255, 0, 0);

QImage picture(QRuler& ruler)
{
    QImage image(ruler.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    ruler.render(&image);
    return image;
}

/// Along a horizontal ruler: the row where the tick at that column begins, -1 without a tick.
/// The closing line of the inner edge does not count.
int tickTop(const QImage& image, int column)
{
    for (int row = 0; row < 17; ++row)
        if (image.pixel(column, row) == black && image.pixel(column, row + 1) == black)
            return row;
    return -1;
}

/// A ruler whose labelled steps are `step` pixels, without the pointer's mark.
void prepare(QRuler& ruler, QSize size, double step, double origin)
{
    ruler.resize(size);
    ruler.setRulerUnit(step / 100);
    ruler.setOrigin(origin);
    ruler.setMouseTrack(false);
}

} // namespace

class TestRuler : public QObject {
    Q_OBJECT

private slots:
    void startsWithOriginZeroUnitOneZoomOne()
    {
        const QRuler ruler(QRuler::Vertical);
        QCOMPARE(int(ruler.type()), 1);
        QCOMPARE(ruler.getOrigin(), 0.0);
        QCOMPARE(ruler.getRulerUnit(), 1.0);
        QCOMPARE(ruler.getRulerZoom(), 1.0);
        QCOMPARE(ruler.getCursorPos(), QPoint(0, 0));
        QVERIFY(ruler.hasMouseTracking());
        QCOMPARE(ruler.font().family(), QString("Helvetica"));
        QCOMPARE(ruler.font().pointSize(), 7);
        QCOMPARE(ruler.font().weight(), 25);
        QCOMPARE(ruler.minimumSizeHint(), QSize(20, 20));
    }

    // Thickness 20: the steps of 10, 50 and 100 begin at 20 / 1.5, 20 x 0.25 and 0.
    void ticksOfTheThreeStepsHaveThreeLengths()
    {
        QRuler ruler(QRuler::Horizontal);
        prepare(ruler, {400, 20}, 80, 0);
        const QImage image = picture(ruler);
        QCOMPARE(tickTop(image, 80), 0);
        QCOMPARE(tickTop(image, 160), 0);
        QCOMPARE(tickTop(image, 40), 5);
        QCOMPARE(tickTop(image, 120), 5);
        QCOMPARE(tickTop(image, 8), 13);
        QCOMPARE(tickTop(image, 72), 13);
        QCOMPARE(tickTop(image, 76), -1);
        QCOMPARE(image.pixel(76, 10), ground);
    }

    void ticksRunInBothDirectionsFromAnOriginOnTheRuler()
    {
        QRuler ruler(QRuler::Horizontal);
        prepare(ruler, {400, 20}, 80, 200);
        const QImage image = picture(ruler);
        for (int column : {40, 120, 200, 280, 360})
            QCOMPARE(tickTop(image, column), 0);
    }

    void ticksCloserThanTwoPixelsAreLeftOut()
    {
        QRuler ruler(QRuler::Horizontal);
        prepare(ruler, {400, 20}, 19.9, 0);
        const QImage image = picture(ruler);
        for (int column = 1; column < 380; ++column)
            QVERIFY(tickTop(image, column) != 13);
        prepare(ruler, {400, 20}, 20, 0);
        QCOMPARE(tickTop(picture(ruler), 2), 13);
    }

    // The label of tick 3 is the same whether its origin lies on the ruler or before it.
    void labelCountContinuesFromAnOriginBeforeTheRuler()
    {
        QRuler inside(QRuler::Horizontal), before(QRuler::Horizontal);
        prepare(inside, {400, 20}, 80, 0);
        prepare(before, {400, 20}, 80, -160);
        const QRect labelOfThree(240 + 2, 0, 12, 11);
        const QImage expected = picture(inside).copy(labelOfThree);
        QCOMPARE(picture(before).copy(labelOfThree.translated(-160, 0)), expected);
        QVERIFY(expected != picture(inside).copy(labelOfThree.translated(-80, 0)));
    }

    void labelCountContinuesFromAnOriginBehindTheRuler()
    {
        QRuler inside(QRuler::Horizontal), behind(QRuler::Horizontal);
        prepare(inside, {400, 20}, 80, 0);
        prepare(behind, {400, 20}, 80, 560);
        const QRect labelOfThree(240 + 2, 0, 12, 11);
        QCOMPARE(tickTop(picture(behind), 320), 0);
        QCOMPARE(picture(behind).copy(labelOfThree.translated(80, 0)),
                 picture(inside).copy(labelOfThree));
    }

    void labelsNeedMoreThanTwelvePixels()
    {
        QRuler ruler(QRuler::Horizontal);
        prepare(ruler, {400, 20}, 12, 0);
        const QImage image = picture(ruler);
        // Between two long ticks the upper part of the ruler is empty.
        for (int row = 0; row < 5; ++row)
            for (int column = 121; column < 126; ++column)
                QCOMPARE(image.pixel(column, row), ground);
    }

    void verticalTicksRunAcrossFromTheOuterEdge()
    {
        QRuler ruler(QRuler::Vertical);
        prepare(ruler, {20, 400}, 80, 0);
        const QImage image = picture(ruler);
        QCOMPARE(image.pixel(15, 80), black);
        QCOMPARE(image.pixel(16, 40), black);
        QCOMPARE(image.pixel(3, 40), ground);
        QCOMPARE(image.pixel(5, 44), ground);
    }

    void aLineClosesTheInnerEdge()
    {
        QRuler horizontal(QRuler::Horizontal), vertical(QRuler::Vertical);
        prepare(horizontal, {400, 20}, 80, 0);
        prepare(vertical, {20, 400}, 80, 0);
        QCOMPARE(picture(horizontal).pixel(77, 19), black);
        QCOMPARE(picture(vertical).pixel(19, 77), black);
    }

    void pointerMarkIsRedAndCanBeSwitchedOff()
    {
        QRuler ruler(QRuler::Horizontal);
        prepare(ruler, {400, 20}, 80, 0);
        ruler.setCursorPos(QPoint(77, 0));
        QVERIFY(picture(ruler).pixel(77, 8) != red);
        ruler.setMouseTrack(true);
        for (int row = 0; row < 20; ++row)
            QCOMPARE(picture(ruler).pixel(77, row), red);
    }

    void aTinyOrUnusableUnitDrawsNoTicks()
    {
        QRuler ruler(QRuler::Horizontal);
        for (double unit : {0.0, -1.0, 1e-9, qQNaN()}) {
            prepare(ruler, {400, 20}, 0, 0);
            ruler.setRulerUnit(unit);
            QCOMPARE(tickTop(picture(ruler), 0), -1);
        }
    }
};

QTEST_MAIN(TestRuler)
#include "test_ruler.moc"
