#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/Font.h"
#include "render/colorFunctions.h"
#include "render/gfx_lowlevel.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QtTest>

#include <cmath>

namespace {

constexpr double PI = 3.14159265358979323846;

/// Metrics of a text that an earlier application of this process took.
FigText measuredBefore;

void measureInAnApplicationOfItsOwn(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    gridPreferences.fontBase72dpi = false;
    CFigContext ctx;
    measuredBefore.cstring = "Once before";
    pf_textwidth(&ctx, &measuredBefore, 1.0);
}

/// A font of a row made as plainly as can be.
QFont plainFont(int row, int pixelSize)
{
    QFont font(QString::fromLatin1(fontmapQt[row].family));
    font.setPixelSize(pixelSize);
    font.setWeight(fontmapQt[row].weight);
    font.setStyle(static_cast<QFont::Style>(fontmapQt[row].style));
    font.setStretch(fontmapQt[row].stretch);
    return font;
}

/// A white canvas that a context draws on. At zoom 1 a pixel is 15 units and a size of 1.
struct Canvas {
    QImage image{400, 400, QImage::Format_ARGB32_Premultiplied};
    CFigContext ctx;

    Canvas() { image.fill(Qt::white); }

    void draw(FigText& text, int x, int y, int mode)
    {
        QPainter painter(&image);
        ctx.setPainter(&painter);
        pw_text(&ctx, x, y, mode, &text);
        ctx.setPainter(nullptr);
    }
    void draw(FigText& text, int mode = PAINT_NORMAL) { draw(text, text.x, text.y, mode); }

    /// The box of what is not background, empty when nothing is.
    QRect ink(QRgb background = 0xffffffff) const
    {
        QRect box;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != background)
                    box |= QRect(x, y, 1, 1);
        return box;
    }
};

/// A text with its base in the middle of the canvas.
struct MiddleText : FigText {
    MiddleText()
    {
        x = y = 3000;
        size = 20;
        cstring = "Hxxxxxxx";
    }
};

} // namespace

class TestFont : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { set_colors(); }
    void init() { gridPreferences.fontBase72dpi = false; }
    void cleanupTestCase() { gridPreferences = GridPreferences(); }

    // --- tables --------------------------------------------------------------------

    void theRowsStandInTheOrderOfTheFontNumbers()
    {
        for (int i = 0; i < NUM_PS_FONTS; ++i)
            QCOMPARE(fontmapQt[i].index, i);
        QCOMPARE(fontmapQt[34].name, "Zapf Dingbats");
        QCOMPARE(latexFonts[0], "default");
        QCOMPARE(latexFonts[5], "typewriter");
    }

    void theRowsOfAFamilyDifferByWeightStyleAndStretch_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("family");
        QTest::addColumn<QVector<int>>("numbers");
        QTest::newRow("roman") << 0 << "Nimbus Roman No9 L" << QVector<int>{50, 0, 100, 10, 15};
        QTest::newRow("demi oblique") << 7 << "URWGothicLDem" << QVector<int>{50, 2, 100, 26, 20};
        QTest::newRow("light") << 8 << "URW Bookman L" << QVector<int>{25, 0, 100, 10, 15};
        QTest::newRow("demi italic") << 11 << "URW Bookman L" << QVector<int>{63, 1, 100, 10, 25};
        QTest::newRow("courier") << 12 << "Nimbus Mono L" << QVector<int>{50, 0, 100, 4, -20};
        QTest::newRow("narrow bold oblique")
            << 23 << "NimbusSanL" << QVector<int>{75, 2, 75, 34, 30};
        QTest::newRow("chancery") << 33 << "URW Chancery L" << QVector<int>{50, 1, 87, 8, 10};
    }
    void theRowsOfAFamilyDifferByWeightStyleAndStretch()
    {
        QFETCH(int, row);
        const CFontMapEntry& entry = fontmapQt[row];
        QTEST(QString(entry.family), "family");
        QTEST((QVector<int>{entry.weight, entry.style, entry.stretch,
                            static_cast<int>(entry.xShift), static_cast<int>(entry.yShift)}),
              "numbers");
    }

    void theFontOfATextIsThatOfItsRow()
    {
        FigText text;
        for (int i = 0; i < NUM_PS_FONTS; ++i) {
            text.font = i;
            QCOMPARE(fontForText(&text, 17), plainFont(i, 17));
        }
    }

    void aFontNumberOutOfRangeIsTheFirstRow()
    {
        FigText text;
        for (int number : {-1, NUM_PS_FONTS, 1000000}) {
            text.font = number;
            QCOMPARE(fontForText(&text, 12), plainFont(0, 12));
        }
    }

    void theSmallestPixelSizeOfAFontIsOne()
    {
        const FigText text;
        QCOMPARE(fontForText(&text, 0).pixelSize(), 1);
        QCOMPARE(fontForText(&text, -5).pixelSize(), 1);
    }

    void familiesOfOldNamesGetTheirFacesOfToday_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("today");
        const char* const names[] = {"Nimbus Roman",   "URW Gothic",  "URW Gothic",
                                     "URW Bookman",    "URW Bookman", "Nimbus Mono PS",
                                     "Nimbus Mono PS", "Nimbus Sans", "Nimbus Sans",
                                     "Nimbus Sans",    "C059",        "P052"};
        const int rows[] = {0, 4, 6, 8, 10, 12, 14, 16, 20, 22, 24, 28};
        for (int i = 0; i < 12; ++i)
            QTest::addRow("%d", rows[i]) << rows[i] << QString(names[i]);
        QTest::newRow("32") << 32 << "Standard Symbols PS";
        QTest::newRow("33") << 33 << "Z003";
        QTest::newRow("34") << 34 << "D050000L";
    }
    void familiesOfOldNamesGetTheirFacesOfToday()
    {
        QFETCH(int, row);
        QFETCH(QString, today);
        const QStringList families = QFontDatabase().families();
        if (families.filter(today).isEmpty())
            QSKIP("The URW base fonts are not installed");
        FigText text;
        text.font = row;
        const QString used = QFontInfo(fontForText(&text, 20)).family();
        QVERIFY2(used.startsWith(today, Qt::CaseInsensitive), qPrintable(used));
    }

    // --- measuring -------------------------------------------------------------------

    void thePixelSizeGoesByTheBaseOfThePreferences()
    {
        CFigContext ctx;
        const FigText text;
        QCOMPARE(fontPixelSize(&ctx, &text, 1.0), 12);
        QCOMPARE(fontPixelSize(&ctx, &text, 2.5), 30);
        ctx.ppiY = 160;
        QCOMPARE(fontPixelSize(&ctx, &text, 1.0), 24);
        ctx.ppiY = 80;
        gridPreferences.fontBase72dpi = true;
        QCOMPARE(fontPixelSize(&ctx, &text, 1.0), 13);
    }

    void metricsAreThoseOfQFontMetrics_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("size");
        for (int row : {0, 3, 6, 11, 12, 20, 32, 33, 34})
            for (int size : {1, 7, 12, 40, 500})
                QTest::addRow("row %d size %d", row, size) << row << size;
    }
    void metricsAreThoseOfQFontMetrics()
    {
        QFETCH(int, row);
        QFETCH(int, size);
        const QFontMetrics metrics(plainFont(row, size));
        CFigContext ctx;
        FigText text;
        text.font = row;
        text.size = size;
        const QString strings[] = {"Label",
                                   "AVAVA Tea fi ffi",
                                   QString::fromUtf8("äöü € ∑"),
                                   "tab\tline\nend",
                                   " ",
                                   QString(300, 'm'),
                                   "Label"};
        for (const QString& string : strings) {
            text.cstring = string;
            pf_textwidth(&ctx, &text, 1.0);
            // A pixel is 15 units; what is there has a length, however small.
            const int measured = metrics.horizontalAdvance(string) * 15;
            QCOMPARE(text.length, string.isEmpty() ? measured : qMax(1, measured));
            QCOMPARE(text.paddedLength, (metrics.horizontalAdvance(string) + 1) * 15);
            QCOMPARE(text.ascent, metrics.ascent() * 15);
            QCOMPARE(text.descent, metrics.descent());
            QCOMPARE(text.fontHeight, metrics.height());
            QCOMPARE(text.metricsZoom, 1.0f);
        }
    }

    void metricsStayRightWhenMoreIsMeasuredThanIsKept()
    {
        CFigContext ctx;
        FigText text;
        const auto measured = [&](int size, const QString& string) {
            text.size = size;
            text.cstring = string;
            pf_textwidth(&ctx, &text, 1.0);
            return QPoint(text.length, text.ascent);
        };
        const QPoint first = measured(12, "kept");
        for (int size = 1; size <= 500; ++size)
            measured(size, "kept");
        QCOMPARE(measured(12, "kept"), first);
        for (int i = 0; i < 70000; ++i)
            measured(12, QString::number(i));
        QCOMPARE(measured(12, "kept"), first);
    }

    void anEmptyTextHasNoLength()
    {
        CFigContext ctx;
        FigText text;
        pf_textwidth(&ctx, &text, 1.0);
        QCOMPARE(text.length, 0);
        QVERIFY(text.ascent > 0);
        QCOMPARE(text.paddedLength, 15);
    }

    // A text of length 0 would not be saved.
    void aTextTooSmallToSeeHasALengthOfOne()
    {
        // A zero width space and a byte order mark take no room in any font.
        for (const QString& string : {QString(QChar(0x200b)), QString(QChar(0xfeff))}) {
            CFigContext ctx;
            FigText text;
            text.cstring = string;
            QCOMPARE(QFontMetrics(fontForText(&text, 12)).horizontalAdvance(string), 0);
            pf_textwidth(&ctx, &text, 1.0);
            QCOMPARE(text.length, 1);
            // The padded length is told apart by nobody and stays as measured.
            QCOMPARE(text.paddedLength, 15);
        }
    }

    void lengthAndAscentGoByTheContextsZoomAndTheRestByTheArgument()
    {
        CFigContext ctx;
        ctx.zoom = 0.5f;
        ctx.ppiX = 160;
        FigText text;
        text.cstring = "Mixture";
        pf_textwidth(&ctx, &text, 3.0);
        const QFontMetrics metrics(plainFont(0, 36));
        const int width = metrics.horizontalAdvance(text.cstring);
        // 7.5 units a pixel across and 15 down, at zoom 1.
        QCOMPARE(text.length, width * 15);
        QCOMPARE(text.ascent, metrics.ascent() * 30);
        QCOMPARE(text.descent, metrics.descent());
        QCOMPARE(text.fontHeight, metrics.height());
        QCOMPARE(text.paddedLength, qRound((width + 1) * 7.5 / 3));
        QCOMPARE(text.metricsZoom, 3.0f);
    }

    void aTextTooSmallToHaveAPixelSizeIsMeasuredWithOnePixel()
    {
        CFigContext ctx;
        ctx.zoom = 0.01f;
        FigText text;
        text.cstring = "Small";
        pf_textwidth(&ctx, &text, ctx.zoom);
        const QFontMetrics metrics(plainFont(0, 1));
        QCOMPARE(text.length, metrics.horizontalAdvance("Small") * 1500);
        QCOMPARE(text.fontHeight, metrics.height());
    }

    void sizesOutOfReasonAreNoHazard()
    {
        Canvas canvas;
        FigText text;
        text.cstring = "Huge";
        for (int size : {INT_MAX, 1000000, -1, INT_MIN}) {
            text.size = size;
            pf_textwidth(&canvas.ctx, &text, 99.99);
            canvas.draw(text);
        }
        text.angle = std::nanf("");
        text.sub_type = 2;
        text.x = INT_MIN;
        text.size = 12;
        canvas.draw(text);
    }

    void measuringSurvivesTheEndOfAnApplication()
    {
        CFigContext ctx;
        FigText text;
        text.cstring = measuredBefore.cstring;
        pf_textwidth(&ctx, &text, 1.0);
        QVERIFY(measuredBefore.length > 0);
        QCOMPARE(measuredBefore.length, text.length);
        QCOMPARE(measuredBefore.ascent, text.ascent);
    }

    // --- drawing -----------------------------------------------------------------------

    void aTextIsDrawnInTheFourVisibleModesOnly()
    {
        for (int mode : {PAINT_NORMAL, PAINT_DIMMED, PAINT_GRAYED}) {
            Canvas canvas;
            MiddleText text;
            canvas.draw(text, mode);
            QVERIFY(!canvas.ink().isEmpty());
        }
        for (int mode : {static_cast<int>(PAINT_HIDDEN), 0, 1, 4, 14, -1}) {
            Canvas canvas;
            MiddleText text;
            canvas.draw(text, mode);
            QVERIFY(canvas.ink().isEmpty());
        }
        Canvas canvas;
        canvas.image.fill(Qt::black);
        MiddleText text;
        canvas.draw(text, PAINT_WHITE);
        QVERIFY(!canvas.ink(0xff000000).isEmpty());
    }

    void theDefaultColourIsBlackAndOthersAreTheirOwn()
    {
        Canvas byDefault, black, red;
        MiddleText text;
        text.color = -1;
        byDefault.draw(text);
        text.color = 0;
        black.draw(text);
        text.color = 4;
        red.draw(text);
        QCOMPARE(byDefault.image, black.image);
        QVERIFY(red.image != black.image);
        // Red ink leaves the red channel full.
        const QRect ink = red.ink();
        for (int x = ink.left(); x <= ink.right(); ++x)
            QCOMPARE(qRed(red.image.pixel(x, ink.center().y())), 255);
    }

    void theBaseLineRunsThroughTheBasePoint()
    {
        Canvas canvas;
        MiddleText text;
        canvas.draw(text);
        const QRect ink = canvas.ink();
        QVERIFY(qAbs(ink.bottom() - 200) <= 1);
        QVERIFY(qAbs(ink.left() - 200) <= 2);
        QVERIFY(ink.right() <= 200 + text.length / 15 + 1);
    }

    void justificationMovesTheStartByTheLengthOrHalfOfIt()
    {
        MiddleText left;
        Canvas reference;
        reference.draw(left);
        for (int justification : {1, 2}) {
            Canvas canvas;
            MiddleText text;
            text.sub_type = justification;
            canvas.draw(text);
            const int pixels = left.length / 15;
            const int shift = justification == 1 ? pixels / 2 : pixels;
            QCOMPARE(canvas.ink().width(), reference.ink().width());
            QVERIFY(qAbs(canvas.ink().left() - (reference.ink().left() - shift)) <= 1);
        }
    }

    void rightJustifiedRotatedTextStaysAnchoredAtItsBasePoint()
    {
        // Turned by a quarter the text reads upward and ends at its base point.
        Canvas canvas;
        MiddleText text;
        text.sub_type = 2;
        text.angle = static_cast<float>(PI / 2);
        canvas.draw(text);
        const QRect ink = canvas.ink();
        const int length = text.length / 15;
        QVERIFY(ink.top() >= 199 && ink.top() <= 203);
        QVERIFY(qAbs(ink.bottom() - (200 + length)) <= 3);
        QVERIFY(qAbs(ink.right() - 200) <= 1);
        QVERIFY(ink.left() >= 200 - text.ascent / 15);
    }

    void rotationIsInWholeDegrees()
    {
        Canvas ten, almostTen, eleven;
        MiddleText text;
        text.angle = static_cast<float>(10 * PI / 180);
        ten.draw(text);
        text.angle = static_cast<float>(10.4 * PI / 180);
        almostTen.draw(text);
        text.angle = static_cast<float>(10.6 * PI / 180);
        eleven.draw(text);
        QCOMPARE(almostTen.image, ten.image);
        QVERIFY(eleven.image != ten.image);
    }

    void feedbackDrawsBesideTheBasePoint()
    {
        Canvas atBase, moved;
        MiddleText text;
        text.sub_type = 1;
        text.angle = static_cast<float>(PI / 4);
        atBase.draw(text);
        moved.draw(text, text.x + 300, text.y - 600, PAINT_NORMAL);
        QCOMPARE(moved.ink(), atBase.ink().translated(20, -40));
    }

    void theViewIsScrolledAndZoomed()
    {
        Canvas plain, scrolled, doubled;
        MiddleText text;
        plain.draw(text);
        scrolled.ctx.shiftX = 50;
        scrolled.ctx.shiftY = -60;
        scrolled.draw(text);
        QCOMPARE(scrolled.ink(), plain.ink().translated(-50, 60));
        doubled.ctx.zoom = 2;
        doubled.ctx.shiftX = doubled.ctx.shiftY = 300;
        doubled.draw(text);
        QVERIFY(qAbs(doubled.ink().height() - 2 * plain.ink().height()) <= 2);
    }

    void aDrawMeasuresAgainOnlyWhenTheZoomHasChanged()
    {
        Canvas canvas;
        MiddleText text;
        text.metricsZoom = 1.0f;
        text.length = 12345;
        canvas.draw(text);
        QCOMPARE(text.length, 12345);
        canvas.ctx.zoom = 2;
        canvas.draw(text);
        QVERIFY(text.length != 12345);
        QCOMPARE(text.metricsZoom, 2.0f);
    }

    void aTextWithoutPixelSizeIsNotDrawnAndKeepsItsMetrics()
    {
        Canvas canvas;
        canvas.ctx.zoom = 0.01f;
        MiddleText text;
        text.length = 77;
        text.metricsZoom = 1.0f;
        canvas.draw(text, 0, 0, PAINT_NORMAL);
        QVERIFY(canvas.ink().isEmpty());
        QCOMPARE(text.length, 77);
        QCOMPARE(text.metricsZoom, 1.0f);
    }

    void aTextDrawnAgainLooksAsDrawTextHasIt_data()
    {
        QTest::addColumn<QString>("string");
        QTest::newRow("word") << "label";
        QTest::newRow("kerning") << "AVATAR To We. Yo, P.";
        QTest::newRow("ligatures") << "fi ffl ff fit";
        QTest::newRow("accents") << QString::fromUtf8("Größe, naïve Ångström ½");
        QTest::newRow("blanks") << "  a   b  ";
        QTest::newRow("digits") << "-0.0123456789e+17";
        QTest::newRow("not Latin") << QString::fromUtf8("αβγ ∑ 日本");
        QTest::newRow("marks") << QString::fromUtf8("e\u0301 a\u030a");
    }

    void aTextDrawnAgainLooksAsDrawTextHasIt()
    {
        QFETCH(QString, string);
        for (int row = 0; row < NUM_PS_FONTS; ++row)
            for (int size : {5, 11, 12, 17, 40}) {
                MiddleText text;
                text.x = 300;
                text.cstring = string;
                text.font = row;
                text.size = size;
                Canvas expected;
                {
                    QPainter painter(&expected.image);
                    painter.setFont(fontForText(&text, size));
                    painter.drawText(20, 200, string);
                }
                for (int time = 1; time <= 4; ++time) {
                    Canvas canvas;
                    canvas.draw(text);
                    QVERIFY2(canvas.image == expected.image,
                             qPrintable(QString("font %1, size %2, drawn %3 times")
                                            .arg(row)
                                            .arg(size)
                                            .arg(time)));
                }
            }
    }

    void textsStayRightWhenMoreIsDrawnThanIsKept()
    {
        MiddleText text;
        Canvas first, last, others;
        first.draw(text);
        MiddleText other;
        for (int i = 0; i < 70000; ++i) {
            other.cstring = QString::number(i);
            pf_textwidth(&others.ctx, &other, 1.0);
            if (i % 100 == 0)
                for (int time = 0; time < 3; ++time)
                    others.draw(other);
        }
        last.draw(text);
        QVERIFY(last.image == first.image);
    }

    void anEmptyTextDrawsNothing()
    {
        Canvas canvas;
        MiddleText text;
        text.cstring.clear();
        canvas.draw(text);
        QVERIFY(canvas.ink().isEmpty());
    }

    void thePaintersTransformationIsPutBack()
    {
        Canvas canvas;
        QPainter painter(&canvas.image);
        canvas.ctx.setPainter(&painter);
        MiddleText text;
        text.angle = 1;
        pw_text(&canvas.ctx, text.x, text.y, PAINT_NORMAL, &text);
        QVERIFY(painter.transform().isIdentity());
        canvas.ctx.setPainter(nullptr);
    }

    void withoutTextOrPainterNothingHappens()
    {
        CFigContext ctx;
        MiddleText text;
        pw_text(&ctx, 0, 0, PAINT_NORMAL, nullptr);
        pw_text(&ctx, 0, 0, PAINT_NORMAL, &text);
        QPainter idle;
        ctx.setPainter(&idle);
        pw_text(&ctx, 0, 0, PAINT_NORMAL, &text);
        ctx.setPainter(nullptr);
        // It has been measured all the same.
        QCOMPARE(text.metricsZoom, 1.0f);
    }

    void theRectangleOfATextIsBlackAndItsBoundsWide()
    {
        Canvas canvas;
        MiddleText text;
        text.color = 4;
        pf_textwidth(&canvas.ctx, &text, 1.0);
        QPainter painter(&canvas.image);
        canvas.ctx.setPainter(&painter);
        pw_textrectangle(&canvas.ctx, &text);
        painter.end();
        canvas.ctx.setPainter(nullptr);
        const QRect ink = canvas.ink();
        QVERIFY(qAbs(ink.width() - text.length / 15) <= 2);
        QVERIFY(qAbs(ink.height() - text.ascent / 15) <= 2);
        QCOMPARE(canvas.image.pixel(ink.topLeft()), 0xff000000);
        QCOMPARE(canvas.image.pixel(ink.center()), 0xffffffff);
    }
};

int main(int argc, char** argv)
{
    // Without an application there are no fonts and no extents; the text keeps being saved.
    CFigContext ctx;
    FigText text;
    text.cstring = "Nobody";
    pf_textwidth(&ctx, &text, 1.0);
    if (text.length != 1 || text.ascent != 0)
        return 1;
    measureInAnApplicationOfItsOwn(argc, argv);
    QGuiApplication application(argc, argv);
    TestFont test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_font.moc"
