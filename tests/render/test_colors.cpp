#include "model/FigContext.h"
#include "render/colorFunctions.h"
#include "render/gfx_lowlevel.h"

#include <QtTest>

namespace {

FigLine* coloredLine(int penColor, int fillColor)
{
    auto* line = new FigLine;
    line->pen_color = penColor;
    line->fill_color = fillColor;
    return line;
}

void compareRGB(_RGB actual, int red, int green, int blue)
{
    QCOMPARE(int(actual.red), red);
    QCOMPARE(int(actual.green), green);
    QCOMPARE(int(actual.blue), blue);
}

} // namespace

class TestColors : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { set_colors(); }

    // --- tables

    void blackAndWhiteShareOneRowOfGreysInOppositeDirections()
    {
        // i * 12.75 truncated: 0, 12, 25, 38, ... 127 (i = 10), ... 255
        QCOMPARE(fill_colors[7][0], 0u);
        QCOMPARE(fill_colors[7][1], 0x0c0c0cu);
        QCOMPARE(fill_colors[7][2], 0x191919u);
        QCOMPARE(fill_colors[7][3], 0x262626u);
        QCOMPARE(fill_colors[7][10], 0x7f7f7fu);
        QCOMPARE(fill_colors[7][20], 0xffffffu);
        for (int shade = 0; shade <= 20; ++shade)
            QCOMPARE(fill_colors[0][shade], fill_colors[7][20 - shade]);
    }

    void tintsOfBlackAndWhiteAreBlack()
    {
        for (int shade = 21; shade < NUM_SHADES; ++shade) {
            QCOMPARE(fill_colors[0][shade], 0u);
            QCOMPARE(fill_colors[7][shade], 0u);
        }
    }

    void everyOtherRowRunsFromBlackOverThePureColourToWhite()
    {
        for (int i = 0; i < NUM_STD_COLORS; ++i) {
            const QColor named(colorNames[i].text);
            // A colour text of Qt's is a darker green than the figure's.
            const QColor pure = i == 2 ? QColor(0, 255, 0) : named;
            QCOMPARE(colorrefToQColor(fill_colors[i][20]), i == 0 ? QColor(Qt::black) : pure);
            if (i == 0 || i == 7)
                continue;
            QCOMPARE(fill_colors[i][0], 0u);
            QCOMPARE(fill_colors[i][40], 0xffffffu);
        }
    }

    void shadesRoundAndTintsTruncate()
    {
        // Red: value 0.05 i, 12.75 i rounded: 13, 26 (25.5), 128 (127.5), 242 (242.25).
        QCOMPARE(fill_colors[4][1], 0x0d0000u);
        QCOMPARE(fill_colors[4][2], 0x1a0000u);
        QCOMPARE(fill_colors[4][10], 0x800000u);
        QCOMPARE(fill_colors[4][19], 0xf20000u);
        // Blue3 (176): 8.8 i rounded.
        QCOMPARE(fill_colors[9][1], 0x000009u);
        QCOMPARE(fill_colors[9][7], 0x00003eu);
        // Red to white: green and blue 12.75 i truncated, red stays.
        QCOMPARE(fill_colors[4][21], 0xff0c0cu);
        QCOMPARE(fill_colors[4][30], 0xff7f7fu);
        // Brown4 (128, 48, 0) half way to white: 191.5, 151.5, 127.5.
        QCOMPARE(fill_colors[24][30], 0xbf977fu);
    }

    void shadesOfTwoEqualChannelsStayEqual()
    {
        for (int shade = 1; shade < 20; ++shade) {
            const unsigned yellow = fill_colors[6][shade];
            QCOMPARE(yellow >> 16, yellow >> 8 & 0xff);
            QCOMPARE(yellow & 0xff, 0u);
        }
    }

    void shadesOfPureBlackAreBlack()
    {
        unsigned row[NUM_SHADES];
        create_shades(row, {0, 0, 0});
        for (int shade = 0; shade <= 20; ++shade)
            QCOMPARE(row[shade], 0u);
        QCOMPARE(row[30], 0x7f7f7fu);
        QCOMPARE(row[40], 0xffffffu);
    }

    void namesAreInColourOrder()
    {
        QCOMPARE(QString(colorNames[0].name), QString("Black"));
        QCOMPARE(QString(colorNames[11].name), QString("SkyBlue1"));
        QCOMPARE(QString(colorNames[20].text), QString("#d00000"));
        QCOMPARE(QString(colorNames[31].text), QString("gold"));
    }

    // --- packing and colour spaces

    void packedColourHasRedOnTop()
    {
        QCOMPARE(colorrefToQColor(0x102030), QColor(0x10, 0x20, 0x30, 255));
        QCOMPARE(colorrefToQColor(0xff102030), QColor(0x10, 0x20, 0x30, 255));
    }

    void recordFormPutsTheLowByteFirst()
    {
        _RGB rgb;
        colorrefToRGB(0x102030, &rgb);
        compareRGB(rgb, 0x30, 0x20, 0x10);
        QCOMPARE(rgbToColorref(rgb), 0x102030u);
    }

    void hsvOfKnownColours_data()
    {
        QTest::addColumn<int>("red");
        QTest::addColumn<int>("green");
        QTest::addColumn<int>("blue");
        QTest::addColumn<float>("hue");
        QTest::addColumn<float>("saturation");
        QTest::addColumn<float>("value");
        QTest::newRow("black") << 0 << 0 << 0 << 0.0f << 0.0f << 0.0f;
        QTest::newRow("grey") << 51 << 51 << 51 << 0.0f << 0.0f << 0.2f;
        QTest::newRow("red") << 255 << 0 << 0 << 0.0f << 1.0f << 1.0f;
        QTest::newRow("yellow") << 255 << 255 << 0 << 1 / 6.0f << 1.0f << 1.0f;
        QTest::newRow("green") << 0 << 255 << 0 << 1 / 3.0f << 1.0f << 1.0f;
        QTest::newRow("cyan") << 0 << 255 << 255 << 0.5f << 1.0f << 1.0f;
        QTest::newRow("blue") << 0 << 0 << 255 << 2 / 3.0f << 1.0f << 1.0f;
        QTest::newRow("magenta") << 255 << 0 << 255 << 5 / 6.0f << 1.0f << 1.0f;
        QTest::newRow("pale dark") << 102 << 51 << 51 << 0.0f << 0.5f << 0.4f;
    }

    void hsvOfKnownColours()
    {
        QFETCH(int, red);
        QFETCH(int, green);
        QFETCH(int, blue);
        QFETCH(float, hue);
        QFETCH(float, saturation);
        QFETCH(float, value);
        using Channel = unsigned short;
        const _RGB rgb = {Channel(red), Channel(green), Channel(blue)};
        const _HSV hsv = RGBToHSV(rgb);
        QVERIFY(qAbs(hsv.hue - hue) < 1e-6f);
        QVERIFY(qAbs(hsv.saturation - saturation) < 1e-6f);
        QVERIFY(qAbs(hsv.value - value) < 1e-6f);
        compareRGB(HSVToRGB(hsv), red, green, blue);
    }

    void hslOfKnownColours()
    {
        const _HSL pink = RGBToHSL({255, 153, 153});
        QVERIFY(qAbs(pink.hue) < 1e-6f);
        QVERIFY(qAbs(pink.saturation - 1.0f) < 1e-5f);
        QVERIFY(qAbs(pink.lightness - 0.8f) < 1e-6f);
        const _HSL navy = RGBToHSL({0, 0, 102});
        QVERIFY(qAbs(navy.hue - 2 / 3.0f) < 1e-6f);
        QVERIFY(qAbs(navy.saturation - 1.0f) < 1e-6f);
        QVERIFY(qAbs(navy.lightness - 0.2f) < 1e-6f);
        const _HSL grey = RGBToHSL({51, 51, 51});
        QCOMPARE(grey.hue, 0.0f);
        QCOMPARE(grey.saturation, 0.0f);
        QCOMPARE(grey.lightness, 0.2f);
    }

    void bothSpacesGiveEveryColourBack()
    {
        for (unsigned color = 0; color < 0x1000000; color += 257) {
            QCOMPARE(hslToColorref(colorrefToHSL(color)), color);
            QCOMPARE(hsvToColorref(colorrefToHSV(color)), color);
        }
    }

    void hueOfOneIsRedAgainAndPartsAreLimited()
    {
        compareRGB(HSVToRGB({1.0f, 1.0f, 1.0f}), 255, 0, 0);
        compareRGB(HSVToRGB({0.0f, 2.0f, 3.0f}), 255, 0, 0);
        compareRGB(HSVToRGB({0.0f, -1.0f, 0.2f}), 51, 51, 51);
    }

    void hueChannelRunsOverTheFourRanges()
    {
        QCOMPARE(Hue_2_RGB(0.0f, 1.0f, 1 / 12.0f), 0.5f);
        QCOMPARE(Hue_2_RGB(0.0f, 1.0f, 1 / 3.0f), 1.0f);
        QVERIFY(qAbs(Hue_2_RGB(0.0f, 1.0f, 7 / 12.0f) - 0.5f) < 1e-6f);
        QCOMPARE(Hue_2_RGB(0.25f, 1.0f, 0.75f), 0.25f);
        QVERIFY(qAbs(Hue_2_RGB(0.0f, 1.0f, -5 / 12.0f) - 0.5f) < 1e-6f);
        QVERIFY(qAbs(Hue_2_RGB(0.0f, 1.0f, 13 / 12.0f) - 0.5f) < 1e-5f);
    }

    void partsOfOneRoundAndStopAtOne() { compareRGB(PctToRGB(0.0f, 0.5f, 1.5f), 0, 128, 255); }

    void mixTruncatesAndIsLimited()
    {
        compareRGB(MixRGB({255, 0, 101}, 0.5f, {0, 1, 100}, 0.5f), 127, 0, 100);
        compareRGB(MixRGB({200, 200, 0}, 1.0f, {100, 0, 50}, 1.0f), 255, 200, 50);
        compareRGB(MixRGB({10, 10, 10}, -1.0f, {0, 20, 0}, 1.0f), 0, 10, 0);
    }

    void hueMixTakesTheShorterWayRound()
    {
        // Magenta (5/6) and yellow (1/6) meet in red, not in cyan.
        compareRGB(MixHSV({255, 0, 255}, 0.5f, {255, 255, 0}, 0.5f), 255, 0, 0);
        compareRGB(MixHSV({255, 255, 0}, 0.5f, {255, 0, 255}, 0.5f), 255, 0, 0);
        compareRGB(MixHSV({255, 0, 0}, 0.5f, {0, 255, 0}, 0.5f), 255, 255, 0);
    }

    // --- look-up

    void defaultPenColourIsBlack()
    {
        QCOMPARE(getQColor(nullptr, -1, PAINT_NORMAL, true), QColor(0, 0, 0));
        QCOMPARE(getColor(nullptr, 4, PAINT_NORMAL, true), 0xff0000u);
    }

    void twoGreysOfTheToolSkipThePaintMode()
    {
        for (int mode : {3, 10, 11, 13}) {
            QCOMPARE(getColor(nullptr, -5, mode, true), 0x999999u);
            QCOMPARE(getColor(nullptr, -4, mode, true), 0xe5e5e5u);
            QCOMPARE(getColor(nullptr, -5, 3, mode, true), 0x999999u);
        }
    }

    void numbersOutsideTheTablesAreBlack()
    {
        for (int color : {-2, -3, -6, -1000000})
            QCOMPARE(getColor(nullptr, color, PAINT_NORMAL, true), 0u);
        QCOMPARE(getColor(nullptr, 4, -1, PAINT_NORMAL, true), 0u);
        QCOMPARE(getColor(nullptr, 4, 41, PAINT_NORMAL, true), 0u);
        QCOMPARE(getColor(nullptr, 4, 40, PAINT_NORMAL, true), 0xffffffu);
    }

    void userColourReadsItsOwnRow()
    {
        CFigContext ctx;
        QCOMPARE(ctx.addUserColor(QColor(200, 100, 50)), 0);
        QHash<int, unsigned*>* shades = &ctx.userColorShades;
        QCOMPARE(getQColor(shades, 32, PAINT_NORMAL, true), QColor(200, 100, 50));
        QCOMPARE(getQColor(shades, 32, 40, PAINT_NORMAL, true), QColor(255, 255, 255));
        QCOMPARE(getColor(shades, 32, 41, PAINT_NORMAL, true), 0u);
        QCOMPARE(getColor(shades, 32, -1, PAINT_NORMAL, true), 0u);
    }

    void userColourWithoutShadesIsBlack()
    {
        CFigContext ctx;
        QCOMPARE(getQColor(&ctx.userColorShades, 32, PAINT_NORMAL, true), QColor(0, 0, 0));
        QCOMPARE(getQColor(nullptr, 500, 20, PAINT_NORMAL, true), QColor(0, 0, 0));
    }

    // 0x00482a has lightness 36/255. 0.2 times that plus 0.8 with double constants is nearest to
    // the single 0.828235269; single constants would give the next one, 0.828235328. The low
    // byte is 167.4 + 42/72 * 87.6 = 218.5, which the lower of the two makes 218 and not 219.
    void dimmingMultipliesByDoubleConstants()
    {
        unsigned row[NUM_SHADES] = {};
        row[20] = 0x00482a;
        QHash<int, unsigned*> shades{{0, row}};
        QCOMPARE(getColor(&shades, 32, PAINT_DIMMED, true), 0xa7ffdau);
    }

    void dimmedIsLightenedAndGrayedLosesItsHue()
    {
        // Red has lightness 0.5: dimmed 0.9 with full saturation is (255, 204, 204).
        QCOMPARE(getQColor(nullptr, 4, PAINT_DIMMED, true), QColor(255, 204, 204));
        // Grayed: lightness 0.75 without saturation, 191.25.
        QCOMPARE(getQColor(nullptr, 4, PAINT_GRAYED, true), QColor(191, 191, 191));
        // Black: 0.8 is 204, 0.5 is 127.5.
        QCOMPARE(getQColor(nullptr, 0, PAINT_DIMMED, true), QColor(204, 204, 204));
        QCOMPARE(getQColor(nullptr, 0, PAINT_GRAYED, true), QColor(128, 128, 128));
        QCOMPARE(getQColor(nullptr, 1, PAINT_DIMMED, true), QColor(204, 204, 255));
    }

    void whiteModeIsBlackWithoutTheFlag()
    {
        QCOMPARE(getColor(nullptr, 4, PAINT_WHITE, true), 0xffffffu);
        QCOMPARE(getColor(nullptr, 4, PAINT_WHITE, false), 0u);
        QCOMPARE(getColor(nullptr, 4, 12, true), 0xff0000u);
    }

    // --- the document's colours

    void anInvalidColourIsNotAdded()
    {
        CFigContext ctx;
        QCOMPARE(ctx.addUserColor(QColor()), -1);
        QVERIFY(ctx.userColors.isEmpty());
        QVERIFY(ctx.userColorShades.isEmpty());
    }

    void numbersAreReplacedOnlyWhereTheyMatch()
    {
        FigLine line;
        line.pen_color = 3;
        line.fill_color = 3;
        setPenColor(&line, 4, 9);
        setFillColor(&line, 4, 9);
        QCOMPARE(line.pen_color, 3);
        QCOMPARE(line.fill_color, 3);
        setPenColor(&line, 3, 8);
        QCOMPARE(line.pen_color, 8);
        QCOMPARE(line.fill_color, 3);
        setFillColor(&line, 3, 9);
        QCOMPARE(line.fill_color, 9);
    }

    void penColourOfATextIsItsColor()
    {
        FigText text;
        text.color = 5;
        text.pen_color = 6;
        setPenColor(&text, 5, 7);
        setPenColor(&text, 6, 8);
        QCOMPARE(text.color, 7);
        QCOMPARE(text.pen_color, 6);
        FigObjectList list{&text};
        QVERIFY(color_used(7, &list));
        QVERIFY(!color_used(6, &list));
    }

    void usedColoursAreFoundInsideCompoundsAndOnThem()
    {
        FigCompound outer;
        auto* inner = new FigCompound;
        outer.objects->append(inner);
        inner->objects->append(coloredLine(33, 34));
        outer.fill_color = 35;
        FigObjectList list{&outer};
        QVERIFY(color_used(33, &list));
        QVERIFY(color_used(34, &list));
        QVERIFY(color_used(35, &list));
        QVERIFY(!color_used(36, &list));
    }

    void mergingAnEqualColourAddsNone()
    {
        CFigContext ctx, clip;
        ctx.addUserColor(QColor(1, 2, 3));
        ctx.addUserColor(QColor(4, 5, 6));
        clip.addUserColor(QColor(4, 5, 6));
        FigObjectList list{coloredLine(32, 32)};
        merge_colors(&ctx, &clip, &list);
        QCOMPARE(ctx.userColors.size(), 2);
        QCOMPARE(list.first()->pen_color, 33);
        QCOMPARE(list.first()->fill_color, 33);
        deleteObjectList(&list);
    }

    void mergingTakesTheLowestFreeKeyWithShades()
    {
        CFigContext ctx, clip;
        ctx.addUserColor(QColor(1, 1, 1));
        ctx.addUserColor(QColor(2, 2, 2));
        ctx.userColors.remove(0);
        clip.addUserColor(QColor(9, 8, 7));
        FigCompound compound;
        compound.objects->append(coloredLine(5, 32));
        FigObjectList list{&compound};
        merge_colors(&ctx, &clip, &list);
        QCOMPARE(ctx.userColors.value(0), QColor(9, 8, 7));
        QCOMPARE(ctx.userColorShades.value(0)[20], 0x090807u);
        QCOMPARE(compound.objects->first()->pen_color, 5);
        QCOMPARE(compound.objects->first()->fill_color, 32);
    }

    void mergingComesInTheOrderOfKeysToTheFirstEqualColour()
    {
        CFigContext ctx, clip;
        ctx.addUserColor(QColor(5, 5, 5)); // the same colour twice, keys 0 and 1
        ctx.addUserColor(QColor(5, 5, 5));
        clip.addUserColor(QColor(7, 7, 7));
        clip.addUserColor(QColor(5, 5, 5));
        clip.addUserColor(QColor(8, 8, 8));
        FigObjectList list{coloredLine(34, 33)};
        merge_colors(&ctx, &clip, &list);
        // New are 7 as key 2 and 8 as key 3. Pen: 34 is the clip's key 2, its last.
        QCOMPARE(ctx.userColors.keys(), (QList<int>{0, 1, 2, 3}));
        QCOMPARE(ctx.userColors.value(2), QColor(7, 7, 7));
        QCOMPARE(ctx.userColors.value(3), QColor(8, 8, 8));
        QCOMPARE(list.first()->pen_color, 35);
        QCOMPARE(list.first()->fill_color, 32);
        QCOMPARE(clip.userColors.size(), 3);
        deleteObjectList(&list);
    }

    void mergingNothingChangesNothing()
    {
        CFigContext ctx, clip;
        ctx.addUserColor(QColor(1, 2, 3));
        FigObjectList list{coloredLine(32, 4)};
        merge_colors(&ctx, &clip, &list);
        FigObjectList none;
        clip.addUserColor(QColor(1, 2, 3));
        merge_colors(&ctx, &clip, &none);
        QCOMPARE(ctx.userColors.size(), 1);
        QCOMPARE(list.first()->pen_color, 32);
        QCOMPARE(list.first()->fill_color, 4);
        QVERIFY(!color_used(32, &none));
        deleteObjectList(&list);
    }

    void mergingIntoAFullTableLeavesTheNumbers()
    {
        CFigContext ctx, clip;
        for (int key = 0; key <= 65533; ++key)
            ctx.userColors.insert(key, QColor(1, 2, 3));
        clip.addUserColor(QColor(9, 9, 9));
        FigObjectList list{coloredLine(32, 32)};
        merge_colors(&ctx, &clip, &list);
        QCOMPARE(ctx.userColors.size(), 65534);
        QCOMPARE(list.first()->pen_color, 32);
        deleteObjectList(&list);
    }

    // A number that one step has written may be the old number of a later step, and then moves
    // on once more.
    void mergingRemapsColourByColourUnguarded()
    {
        CFigContext ctx, clip;
        ctx.addUserColor(QColor(20, 20, 20));  // key 0
        ctx.addUserColor(QColor(10, 10, 10));  // key 1
        clip.addUserColor(QColor(10, 10, 10)); // key 0 goes to 1
        clip.addUserColor(QColor(20, 20, 20)); // key 1 goes to 0
        FigObjectList list{coloredLine(32, 33)};
        merge_colors(&ctx, &clip, &list);
        // Pen 32 -> 33 -> 32; fill 33 -> 32.
        QCOMPARE(list.first()->pen_color, 32);
        QCOMPARE(list.first()->fill_color, 32);
        deleteObjectList(&list);
    }
};

QTEST_GUILESS_MAIN(TestColors)
#include "test_colors.moc"
