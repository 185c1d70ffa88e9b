#include "model/FigContext.h"
#include "render/colorFunctions.h"
#include "render/gfx_lowlevel.h"

#include <QFile>
#include <QPainter>
#include <QtTest>

namespace {

constexpr int SIDE = 64;

/// The tiles of the artwork's source, rows of '#' and '.'.
QVector<QStringList> readTiles()
{
    QVector<QStringList> tiles;
    QFile file(QStringLiteral(ORVALT_SOURCE_DIR "/resources/images/patterns/patterns.txt"));
    if (!file.open(QIODevice::ReadOnly))
        return tiles;
    const QStringList lines = QString::fromLatin1(file.readAll()).split('\n');
    for (const QString& line : lines) {
        if (line.startsWith('='))
            tiles.append(QStringList());
        else if (!line.isEmpty() && !line.startsWith("//"))
            tiles.last().append(line);
    }
    return tiles;
}

/// A square filled with a fill style on a yellow ground.
QImage filledSquare(int fillStyle, int penColor, int fillColor, int mode = PAINT_NORMAL)
{
    QImage image(SIDE, SIDE, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::yellow);
    QPainter painter(&image);
    CFigContext ctx;
    ctx.setPainter(&painter);
    QPoint square[] = {{0, 0}, {SIDE, 0}, {SIDE, SIDE}, {0, SIDE}, {0, 0}};
    fillPolygon(&ctx, penColor, fillColor, fillStyle, mode, square, 5);
    ctx.setPainter(nullptr);
    return image;
}

QImage plain(const QColor& color)
{
    QImage image(SIDE, SIDE, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

} // namespace

class TestPatterns : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        set_colors();
        initializePatternBitmaps();
        tiles = readTiles();
        QCOMPARE(tiles.size(), NUM_PATTERNS);
    }

    void everyBrushIsAOneBitTexture()
    {
        for (const QBrush& brush : patternBrushes) {
            QCOMPARE(brush.style(), Qt::TexturePattern);
            QVERIFY(brush.texture().isQBitmap());
        }
    }

    void paintedPixelsAreThoseOfTheArtwork_data()
    {
        QTest::addColumn<int>("number");
        for (int i = 0; i < NUM_PATTERNS; ++i)
            QTest::addRow("%d", i) << i;
    }

    // Painted pixels in the pen colour, all others in the fill colour, from the origin on.
    void paintedPixelsAreThoseOfTheArtwork()
    {
        QFETCH(int, number);
        const QStringList tile = tiles.at(number);
        const QImage image = filledSquare(41 + number, 4, 1);
        for (int y = 0; y < SIDE; ++y) {
            const QString row = tile.at(y % tile.size());
            for (int x = 0; x < SIDE; ++x)
                QCOMPARE(image.pixelColor(x, y),
                         row.at(x % row.size()) == '#' ? QColor(255, 0, 0) : QColor(0, 0, 255));
        }
    }

    void everyTileIsNeitherEmptyNorFullAndUnlikeTheOthers()
    {
        QSet<QString> seen;
        for (const QStringList& tile : tiles) {
            const QString all = tile.join('\n');
            QVERIFY(all.contains('#'));
            QVERIFY(all.contains('.'));
            seen.insert(all);
        }
        QCOMPARE(seen.size(), NUM_PATTERNS);
    }

    // Each hatch leans the right way: one step to the right (left) and down stays on the line.
    void diagonalsLeanAsTheirNamesSay()
    {
        const QImage left = filledSquare(44, 0, 7);
        const QImage right = filledSquare(45, 0, 7);
        const QColor black(Qt::black);
        QCOMPARE(left.pixelColor(12, 12), black);
        QCOMPARE(right.pixelColor(12, 12), black);
        for (int step = 1; step < 12; ++step) {
            QCOMPARE(left.pixelColor(12 + step, 12 + step), black);
            QCOMPARE(right.pixelColor(12 - step, 12 + step), black);
        }
        QVERIFY(left.pixelColor(11, 13) != black);
        QVERIFY(right.pixelColor(13, 13) != black);
    }

    void crosshatchesAreTheUnionOfTheirHatches()
    {
        for (int first : {0, 3, 8}) {
            const QImage one = filledSquare(41 + first, 0, 7);
            const QImage two = filledSquare(42 + first, 0, 7);
            const QImage both = filledSquare(43 + first, 0, 7);
            for (int y = 0; y < SIDE; ++y) {
                for (int x = 0; x < SIDE; ++x)
                    QCOMPARE(both.pixel(x, y), one.pixel(x, y) & two.pixel(x, y));
            }
        }
    }

    void samePenAndFillColourShowAFlatArea()
    {
        QCOMPARE(filledSquare(50, 4, 4), plain(QColor(255, 0, 0)));
    }

    void coloursOfMinusOneAreBlack()
    {
        QCOMPARE(filledSquare(50, -1, -1), plain(Qt::black));
        QCOMPARE(filledSquare(20, 4, -1), plain(Qt::black));
    }

    void aStyleAboveThePatternsFillsWithThePureColour()
    {
        QCOMPARE(filledSquare(63, 4, 1), plain(QColor(0, 0, 255)));
        QCOMPARE(filledSquare(1000000, 4, 1), plain(QColor(0, 0, 255)));
    }

    void shadesFillWithTheirRow()
    {
        QCOMPARE(filledSquare(10, 4, 1), plain(QColor(0, 0, 128)));
        QCOMPARE(filledSquare(40, 4, 1), plain(Qt::white));
    }

    // Dimmed blue is (204, 204, 255), dimmed red (255, 204, 204).
    void thePaintModeColoursBothPasses()
    {
        const QImage image = filledSquare(49, 4, 1, PAINT_DIMMED);
        QCOMPARE(image.pixelColor(0, 0), QColor(255, 204, 204));
        QCOMPARE(image.pixelColor(0, 1), QColor(204, 204, 255));
    }

    void aPatternIsRecolouredForEachUse()
    {
        QCOMPARE(filledSquare(49, 4, 7).pixelColor(0, 0), QColor(255, 0, 0));
        QCOMPARE(filledSquare(49, 2, 7).pixelColor(0, 0), QColor(0, 255, 0));
    }

private:
    QVector<QStringList> tiles;
};

QTEST_MAIN(TestPatterns)
#include "test_patterns.moc"
