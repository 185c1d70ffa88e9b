// The examples' canvases against the pictures in tests/golden, pixel by pixel. Each picture was
// looked at beside another program's rendering of the figure before it was accepted; they are
// made anew only by hand (tests/golden/regenerate.sh).

#include "EngineCanvas.h"
#include "RecordingShell.h"
#include "fileio/f_read.h"
#include "model/FigContext.h"
#include "render/coords.h"

#include <QDir>
#include <QFontInfo>
#include <QtTest>

#include <memory>

namespace {

const QString sourceFolder = QStringLiteral(ORVALT_SOURCE_DIR);
constexpr int channelTolerance = 8; ///< rounding of the rasteriser's vector code by processor

/// Without the fonts that the pictures were made with, texts cannot be compared.
bool urwFontsResolve()
{
    return QFontInfo(QFont("Nimbus Sans L")).family().startsWith("Nimbus Sans");
}

void collectTextBoxes(CFigContext* ctx, FigObjectList& list, QVector<QRect>* boxes)
{
    constexpr int margin = 4;
    for (FigObject* object : list) {
        if (object->type == O_COMPOUND) {
            collectTextBoxes(ctx, *static_cast<FigCompound*>(object)->objects, boxes);
        } else if (object->type == O_TEXT) {
            int xmin = 0, ymin = 0, xmax = 0, ymax = 0;
            object->getBounds(ctx, &xmin, &ymin, &xmax, &ymax, true, true);
            boxes->append(QRect(QPoint(pixelX(ctx, xmin), pixelY(ctx, ymin)),
                                QPoint(pixelX(ctx, xmax), pixelY(ctx, ymax)))
                              .adjusted(-margin, -margin, margin, margin));
        }
    }
}

bool isAnyInside(const QVector<QRect>& boxes, int x, int y)
{
    return std::any_of(boxes.begin(), boxes.end(),
                       [=](const QRect& box) { return box.contains(x, y); });
}

bool differ(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) > channelTolerance ||
           qAbs(qGreen(a) - qGreen(b)) > channelTolerance ||
           qAbs(qBlue(a) - qBlue(b)) > channelTolerance;
}

/// Pixels that differ outside the boxes.
QVector<QPoint> differences(const QImage& actual, const QImage& expected,
                            const QVector<QRect>& ignoredBoxes)
{
    QVector<QPoint> found;
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            if (differ(actual.pixel(x, y), expected.pixel(x, y)) &&
                !isAnyInside(ignoredBoxes, x, y)) {
                found.append(QPoint(x, y));
            }
        }
    }
    return found;
}

} // namespace

class TestGolden : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { tables = std::make_unique<EngineTables>(); }
    void cleanupTestCase() { tables.reset(); }
    void everyExampleHasItsCanvas();
    void canvasIsAsItWasAccepted_data();
    void canvasIsAsItWasAccepted();

private:
    std::unique_ptr<EngineTables> tables;
};

void TestGolden::everyExampleHasItsCanvas()
{
    // Pictures in a figure are not drawn yet.
    const QStringList without = {"pictures"};
    for (const QString& name : QDir(sourceFolder + "/examples").entryList({"*.fig"})) {
        const QString stem = QFileInfo(name).completeBaseName();
        const bool exists = QFile::exists(sourceFolder + "/tests/golden/" + stem + ".png");
        QVERIFY2(exists != without.contains(stem), qPrintable(stem));
    }
}

void TestGolden::canvasIsAsItWasAccepted_data()
{
    QTest::addColumn<QString>("stem");
    for (const QString& name : QDir(sourceFolder + "/tests/golden").entryList({"*.png"})) {
        const QString stem = QFileInfo(name).completeBaseName();
        QTest::newRow(qPrintable(stem)) << stem;
    }
}

void TestGolden::canvasIsAsItWasAccepted()
{
    QFETCH(QString, stem);
    if (stem == "fonts" && !urwFontsResolve()) {
        QSKIP("The URW base fonts are not installed.");
    }
    const auto ctx = std::make_unique<CFigContext>();
    recordingShell.clear();
    QVERIFY(load_file(ctx.get(), sourceFolder + "/examples/" + stem + ".fig"));

    const QImage expected(sourceFolder + "/tests/golden/" + stem + ".png");
    const QImage actual = drawCanvas(ctx.get(), expected.size(), true);
    QVector<QRect> ignoredBoxes;
    if (!urwFontsResolve()) {
        collectTextBoxes(ctx.get(), ctx->drawing.objects, &ignoredBoxes);
    }
    const QVector<QPoint> found = differences(actual, expected, ignoredBoxes);
    if (!found.isEmpty()) {
        const QString kept = QDir::temp().filePath("orvalt-golden-" + stem + ".png");
        actual.save(kept);
        QFAIL(qPrintable(QString("%1 pixels differ, the first at %2, %3; see %4")
                             .arg(found.size())
                             .arg(found.first().x())
                             .arg(found.first().y())
                             .arg(kept)));
    }
}

QTEST_MAIN(TestGolden)
#include "test_golden.moc"
