// The palette with real widgets: what it shows of a document, what each choice does to the
// document and its selected object, and the user colours.
#include "DialogDriver.h"
#include "EveryPage.h"
#include "WindowFixture.h"

#include "render/colorFunctions.h"
#include "ui/AttrsToolbarHandler.h"
#include "ui/ColorSide.h"
#include "ui/ContextPanel.h"
#include "ui/FigColorDlg.h"
#include "ui/SwatchButton.h"

#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

namespace {

const QColor ORANGE(200, 100, 50);
const QColor STEEL(50, 100, 200);

QColor pixelOf(QWidget* widget, int x, int y)
{
    return widget->grab().toImage().pixelColor(x, y);
}

QColor centreOf(QWidget* widget)
{
    return pixelOf(widget, widget->width() / 2, widget->height() / 2);
}

/// The colours that appear inside a pixmap, away from its frame.
QSet<QRgb> coloursIn(const QImage& image, int margin)
{
    QSet<QRgb> found;
    for (int y = margin; y < image.height() - margin; ++y)
        for (int x = margin; x < image.width() - margin; ++x)
            found.insert(image.pixel(x, y));
    return found;
}

struct PaletteFixture : WindowFixture {
    PaletteFixture() { window->onOpenColorDlg(); }

    ColorSide* side(const char* name) const { return dialog->findChild<ColorSide*>(name); }
    ColorSide* pen() const { return side("penSide"); }
    ColorSide* fill() const { return side("fillSide"); }
    static SwatchButton* swatch(const ColorSide* of, int color)
    {
        return of->findChildren<SwatchButton*>().value(color);
    }
    static QComboBox* box(const ColorSide* of) { return of->findChild<QComboBox*>(); }
    static QPushButton* button(const ColorSide* of, const char* name)
    {
        return of->findChild<QPushButton*>(name);
    }
    /// Those of a group of swatches, in order.
    QList<SwatchButton*> swatches(const QRegularExpression& tips) const
    {
        QList<SwatchButton*> found;
        for (SwatchButton* each : dialog->findChildren<SwatchButton*>())
            if (tips.match(each->toolTip()).hasMatch())
                found.append(each);
        return found;
    }
    QList<SwatchButton*> shades() const { return swatches(QRegularExpression("^(Shade|Tint) ")); }
    QList<SwatchButton*> patterns() const { return swatches(QRegularExpression("^Pattern ")); }
    QPushButton* noFill() const { return dialog->findChild<QPushButton*>("noFill"); }
    /// Numbers of those that are marked.
    static QList<int> marked(const QList<SwatchButton*>& buttons)
    {
        QList<int> numbers;
        for (int number = 0; number < buttons.size(); ++number)
            if (buttons[number]->isChecked())
                numbers.append(number);
        return numbers;
    }
    static QList<int> marked(const ColorSide* of)
    {
        return marked(of->findChildren<SwatchButton*>());
    }
    static void click(QAbstractButton* of) { QTest::mouseClick(of, Qt::LeftButton); }
    /// Chooses a line of the box of user colours with the keyboard.
    static void chooseUser(const ColorSide* of, int index)
    {
        box(of)->setFocus();
        QTest::keyClick(box(of), index == 0 ? Qt::Key_Home : Qt::Key_End);
    }

    void select(FigObject* object)
    {
        object->tagged = true;
        context->curObject = object;
        window->showAttributesBar(context, object);
    }
    FigLine* selectedLine()
    {
        FigLine* line = addLine(300, 300, 1800, 1800);
        line->pen_color = 1;
        line->fill_color = 6;
        line->fill_style = -1;
        select(line);
        return line;
    }
    int addColor(const QColor& color)
    {
        const int key = context->addUserColor(color);
        shell_update_colors(context);
        return key;
    }
    int steps() const { return context->undoQueue.undoCount(); }

    FigColorDlg* dialog = window->colorDialog();
};

void answerWith(DialogDriver& driver, const QColor& color)
{
    driver.accept([color](QWidget* asked) {
        auto* colors = qobject_cast<QColorDialog*>(asked);
        QVERIFY(colors);
        colors->setCurrentColor(color);
    });
}

} // namespace

class TestColorDialog : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        store.make();
        set_colors();
        initializePatternBitmaps();
    }
    void init() { store.renew(); }
    void cleanup() { store.leave(); }

    // --- what it shows ----------------------------------------------------------------

    void everyColourShadeAndPatternHasItsButton()
    {
        const PaletteFixture fixture;
        QCOMPARE(fixture.dialog->findChildren<SwatchButton*>().size(), 2 * 32 + 41 + 22);
        for (const ColorSide* side : {fixture.pen(), fixture.fill()}) {
            QCOMPARE(side->findChildren<SwatchButton*>().size(), 32);
            QCOMPARE(fixture.swatch(side, 0)->toolTip(), QString("Black"));
            QCOMPARE(fixture.swatch(side, 11)->toolTip(), QString("SkyBlue1"));
            QCOMPARE(fixture.swatch(side, 31)->toolTip(), QString("Gold"));
        }
        const QList<SwatchButton*> shades = fixture.shades();
        QCOMPARE(shades.size(), 41);
        QCOMPARE(shades[0]->toolTip(), QString("Shade 0 %"));
        QCOMPARE(shades[13]->toolTip(), QString("Shade 65 %"));
        QCOMPARE(shades[20]->toolTip(), QString("Shade 100 %"));
        QCOMPARE(shades[21]->toolTip(), QString("Tint 5 %"));
        QCOMPARE(shades[40]->toolTip(), QString("Tint 100 %"));
        const QList<SwatchButton*> patterns = fixture.patterns();
        QCOMPARE(patterns.size(), 22);
        QCOMPARE(patterns[0]->toolTip(), QString("Pattern 0"));
        QCOMPARE(patterns[21]->toolTip(), QString("Pattern 21"));
    }

    void swatchesShowTheFiguresColours()
    {
        const PaletteFixture fixture;
        for (int color = 0; color < NUM_STD_COLORS; ++color) {
            // The text names a darker green than the figure's.
            const QColor expected = color == 2 ? QColor(0, 255, 0) : QColor(colorNames[color].text);
            QCOMPARE(centreOf(fixture.swatch(fixture.pen(), color)), expected);
            QCOMPARE(centreOf(fixture.swatch(fixture.fill(), color)), expected);
        }
    }

    void shadesAreThoseOfTheFillColour()
    {
        const PaletteFixture fixture;
        fixture.dialog->onFillcol(4);
        const QList<SwatchButton*> shades = fixture.shades();
        // Red: half way to black 127.5 is rounded, half way to white truncated.
        QCOMPARE(centreOf(shades[0]), QColor(0, 0, 0));
        QCOMPARE(centreOf(shades[10]), QColor(128, 0, 0));
        QCOMPARE(centreOf(shades[20]), QColor(255, 0, 0));
        QCOMPARE(centreOf(shades[30]), QColor(255, 127, 127));
        QCOMPARE(centreOf(shades[40]), QColor(255, 255, 255));
        // Black runs the other way.
        fixture.dialog->onFillcol(0);
        QCOMPARE(centreOf(shades[0]), QColor(255, 255, 255));
        QCOMPARE(centreOf(shades[20]), QColor(0, 0, 0));
    }

    void shadesOfAUserColourComeFromItsArray()
    {
        PaletteFixture fixture;
        const int key = fixture.addColor(ORANGE);
        fixture.dialog->showShades(32 + key);
        QCOMPARE(centreOf(fixture.shades()[20]), ORANGE);
        // 200 + (255 - 200) / 2 = 227.5, 177.5 and 152.5 truncated.
        QCOMPARE(centreOf(fixture.shades()[30]), QColor(227, 177, 152));
    }

    void colourWithoutShadesLeavesTheButtonsAlone()
    {
        const PaletteFixture fixture;
        fixture.dialog->onFillcol(4);
        for (const int color : {33, 5000, -2, -100}) {
            fixture.dialog->showShades(color);
            QCOMPARE(centreOf(fixture.shades()[20]), QColor(255, 0, 0));
        }
    }

    void patternsAreDrawnInBothColours()
    {
        const PaletteFixture fixture;
        fixture.dialog->onPencol(4);
        fixture.dialog->onFillcol(6);
        const QSet<QRgb> redOnYellow = {qRgb(255, 0, 0), qRgb(255, 255, 0)};
        for (SwatchButton* pattern : fixture.patterns())
            QCOMPARE(coloursIn(pattern->grab().toImage(), 4), redOnYellow);
        fixture.dialog->onPencol(1);
        QCOMPARE(coloursIn(fixture.patterns().first()->grab().toImage(), 4),
                 (QSet<QRgb>{qRgb(0, 0, 255), qRgb(255, 255, 0)}));
    }

    void previewShowsPenFillAndShade()
    {
        const PaletteFixture fixture;
        fixture.dialog->onPencol(4);
        fixture.dialog->onFillcol(1);
        QSignalSpy told(fixture.dialog, &FigColorDlg::colorChanged);
        fixture.dialog->onShade(40);
        QCOMPARE(told.size(), 1);
        const QImage image = told.first().first().value<QPixmap>().toImage();
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
        QCOMPARE(image.pixelColor(33, 34), QColor(Qt::white));
        QCOMPARE(image.pixelColor(4, 17), QColor(255, 0, 0));
        QCOMPARE(image.pixelColor(29, 17), QColor(255, 0, 0));
        QCOMPARE(image.pixelColor(17, 4), QColor(255, 0, 0));
        QCOMPARE(image.pixelColor(17, 30), QColor(255, 0, 0));
        QCOMPARE(image.pixelColor(17, 17), QColor(Qt::white));
        fixture.dialog->onShade(20);
        const QImage pure = told.last().first().value<QPixmap>().toImage();
        QCOMPARE(pure.pixelColor(17, 17), QColor(0, 0, 255));
        QCOMPARE(pure.pixelColor(1, 17), QColor(Qt::white));
        QCOMPARE(fixture.dialog->findChild<QLabel*>("preview")->pixmap()->toImage(), pure);
        QCOMPARE(fixture.dialog->findChild<QLabel*>("description")->text(),
                 QString("Pen: Red\nFill: Blue, Shade 100 %"));
    }

    void previewOfAPatternFillsItAll()
    {
        const PaletteFixture fixture;
        fixture.dialog->onPencol(4);
        fixture.dialog->onFillcol(6);
        QSignalSpy told(fixture.dialog, &FigColorDlg::colorChanged);
        fixture.dialog->onPattern(4);
        const QImage image = told.last().first().value<QPixmap>().toImage();
        QCOMPARE(coloursIn(image, 0), (QSet<QRgb>{qRgb(255, 0, 0), qRgb(255, 255, 0)}));
    }

    void previewWithoutFillStaysOpen()
    {
        const PaletteFixture fixture;
        QSignalSpy told(fixture.dialog, &FigColorDlg::colorChanged);
        fixture.dialog->onFillcol(4);
        QCOMPARE(fixture.context->cur_fillstyle, -1);
        QCOMPARE(told.last().first().value<QPixmap>().toImage().pixelColor(17, 17),
                 QColor(Qt::white));
    }

    void defaultColourIsBlack()
    {
        const PaletteFixture fixture;
        fixture.context->cur_pencolor = -1;
        fixture.context->cur_fillcolor = -1;
        QSignalSpy told(fixture.dialog, &FigColorDlg::colorChanged);
        fixture.dialog->onShade(20);
        fixture.dialog->onColors();
        const QImage image = told.last().first().value<QPixmap>().toImage();
        QCOMPARE(image.pixelColor(17, 17), QColor(0, 0, 0));
        QCOMPARE(image.pixelColor(4, 17), QColor(0, 0, 0));
        QCOMPARE(centreOf(fixture.shades()[20]), QColor(0, 0, 0));
        QCOMPARE(fixture.marked(fixture.pen()), QList<int>());
    }

    void presentChoiceIsMarked()
    {
        PaletteFixture fixture;
        // As a document begins: black, white, no fill.
        QCOMPARE(fixture.marked(fixture.pen()), QList<int>{0});
        QCOMPARE(fixture.marked(fixture.fill()), QList<int>{7});
        QVERIFY(fixture.noFill()->isChecked());
        QCOMPARE(fixture.marked(fixture.shades()), QList<int>());
        const int key = fixture.addColor(ORANGE);
        fixture.dialog->onPencol(12);
        fixture.dialog->onUserFillColor(0);
        fixture.dialog->onShade(5);
        QCOMPARE(fixture.marked(fixture.pen()), QList<int>{12});
        QCOMPARE(fixture.marked(fixture.fill()), QList<int>());
        QCOMPARE(fixture.box(fixture.fill())->currentData().toInt(), key);
        QCOMPARE(fixture.box(fixture.pen())->currentIndex(), -1);
        QCOMPARE(fixture.marked(fixture.shades()), QList<int>{5});
        QVERIFY(!fixture.noFill()->isChecked());
        fixture.dialog->onPattern(21);
        QCOMPARE(fixture.marked(fixture.shades()), QList<int>());
        QCOMPARE(fixture.marked(fixture.patterns()), QList<int>{21});
    }

    void choosingTheMarkedOneAgainKeepsItMarked()
    {
        const PaletteFixture fixture;
        fixture.click(fixture.swatch(fixture.pen(), 3));
        fixture.click(fixture.swatch(fixture.pen(), 3));
        QCOMPARE(fixture.marked(fixture.pen()), QList<int>{3});
        fixture.click(fixture.noFill());
        fixture.click(fixture.noFill());
        QVERIFY(fixture.noFill()->isChecked());
        QCOMPARE(fixture.context->cur_fillstyle, -1);
    }

    void sampleIsTheIconOfThePanels()
    {
        const PaletteFixture fixture;
        showEveryPage(fixture.window->findChild<ContextPanel*>());
        fixture.click(fixture.swatch(fixture.fill(), 4));
        fixture.click(fixture.shades()[20]);
        int checked = 0;
        for (const auto* button :
             fixture.window->findChild<ContextPanel*>()->findChildren<QPushButton*>(
                 "selectPenColor")) {
            const QImage icon = button->icon().pixmap(34, 35).toImage();
            QCOMPARE(icon.pixelColor(icon.width() / 2, icon.height() / 2), QColor(255, 0, 0));
            ++checked;
        }
        QCOMPARE(checked, 9);
    }

    // --- choosing -----------------------------------------------------------------------

    void penColourGoesToTheSelectedObjectAsOneStep()
    {
        PaletteFixture fixture;
        FigLine* line = fixture.selectedLine();
        QCOMPARE(fixture.marked(fixture.pen()), QList<int>{1});
        fixture.click(fixture.swatch(fixture.pen(), 4));
        QCOMPARE(fixture.context->cur_pencolor, 4);
        QCOMPARE(line->pen_color, 4);
        QCOMPARE(fixture.steps(), 1);
        QVERIFY(fixture.context->modified);
        fixture.click(fixture.swatch(fixture.pen(), 4));
        QCOMPARE(fixture.steps(), 1);
    }

    void undoGivesTheColourBackAndThePaletteShowsIt()
    {
        PaletteFixture fixture;
        FigLine* line = fixture.selectedLine();
        fixture.click(fixture.swatch(fixture.pen(), 4));
        fixture.window->undo();
        QCOMPARE(line->pen_color, 1);
        QCOMPARE(fixture.marked(fixture.pen()), QList<int>{1});
        fixture.window->redo();
        QCOMPARE(line->pen_color, 4);
        QCOMPARE(fixture.marked(fixture.pen()), QList<int>{4});
    }

    void withoutASelectionOnlyTheDocumentChanges()
    {
        PaletteFixture fixture;
        FigLine* line = fixture.addLine(0, 0, 1200, 1200);
        fixture.click(fixture.swatch(fixture.pen(), 4));
        fixture.click(fixture.swatch(fixture.fill(), 5));
        fixture.click(fixture.shades()[3]);
        QCOMPARE(fixture.context->cur_pencolor, 4);
        QCOMPARE(fixture.context->cur_fillcolor, 5);
        QCOMPARE(fixture.context->cur_fillstyle, 3);
        QCOMPARE(line->pen_color, 0);
        QCOMPARE(fixture.steps(), 0);
        QVERIFY(!fixture.context->modified);
    }

    // A fixed fill colour leaves an object without a fill so; a user colour fills it.
    void onlyAUserFillColourFillsWhatWasNotFilled()
    {
        PaletteFixture fixture;
        fixture.addColor(ORANGE);
        FigLine* line = fixture.selectedLine();
        fixture.click(fixture.swatch(fixture.fill(), 4));
        QCOMPARE(line->fill_color, 4);
        QCOMPARE(line->fill_style, -1);
        fixture.chooseUser(fixture.fill(), 0);
        QCOMPARE(line->fill_color, 32);
        QCOMPARE(line->fill_style, 20);
        QCOMPARE(fixture.steps(), 2);
        // A style that is there stays.
        fixture.click(fixture.patterns()[2]);
        fixture.chooseUser(fixture.fill(), 0);
        QCOMPARE(line->fill_style, 43);
    }

    void shadesPatternsAndNoFillAreFillStyles()
    {
        PaletteFixture fixture;
        FigLine* line = fixture.selectedLine();
        fixture.click(fixture.shades()[0]);
        QCOMPARE(line->fill_style, 0);
        fixture.click(fixture.shades()[40]);
        QCOMPARE(line->fill_style, 40);
        fixture.click(fixture.patterns()[0]);
        QCOMPARE(line->fill_style, 41);
        fixture.click(fixture.patterns()[21]);
        QCOMPARE(line->fill_style, 62);
        fixture.click(fixture.noFill());
        QCOMPARE(line->fill_style, -1);
        QCOMPARE(fixture.steps(), 5);
    }

    void userPenColourIsKeyPlus32()
    {
        PaletteFixture fixture;
        fixture.context->addUserColor(ORANGE);
        fixture.context->addUserColor(QColor(1, 2, 3));
        fixture.context->addUserColor(STEEL);
        fixture.context->userColors.remove(1);
        shell_update_colors(fixture.context);
        FigLine* line = fixture.selectedLine();
        fixture.chooseUser(fixture.pen(), 1);
        QCOMPARE(fixture.context->cur_pencolor, 34);
        QCOMPARE(line->pen_color, 34);
        fixture.dialog->onUserPenColor(0);
        QCOMPARE(line->pen_color, 32);
    }

    void numbersOutOfRangeDoNothing()
    {
        PaletteFixture fixture;
        fixture.addColor(ORANGE);
        const FigLine* line = fixture.selectedLine();
        for (const int number : {-1, -2, 32, 41, 1000}) {
            fixture.dialog->onPencol(number);
            fixture.dialog->onFillcol(number);
            fixture.dialog->onUserPenColor(number);
            fixture.dialog->onUserFillColor(number);
            fixture.dialog->editUserColor(number);
            fixture.dialog->onDeleteUserColor(number);
        }
        for (const int number : {-1, 41, 1000}) {
            fixture.dialog->onShade(number);
            fixture.dialog->onPattern(number);
        }
        QCOMPARE(fixture.steps(), 0);
        QCOMPARE(line->fill_style, -1);
        QCOMPARE(fixture.context->userColors.size(), 1);
    }

    void coordinatorsColoursAreShown()
    {
        PaletteFixture fixture;
        fixture.window->attributes()->onColors(5, 9, 44);
        QCOMPARE(fixture.marked(fixture.pen()), QList<int>{5});
        QCOMPARE(fixture.marked(fixture.fill()), QList<int>{9});
        QCOMPARE(fixture.marked(fixture.patterns()), QList<int>{3});
        QCOMPARE(centreOf(fixture.shades()[20]), QColor(0, 0, 0xb0));
    }

    // --- user colours --------------------------------------------------------------------

    void addedColourIsTheSidesOwn()
    {
        PaletteFixture fixture;
        FigLine* line = fixture.selectedLine();
        DialogDriver driver;
        answerWith(driver, ORANGE);
        fixture.click(fixture.button(fixture.pen(), "add"));
        QVERIFY(driver.isDone());
        QCOMPARE(fixture.context->userColors.value(0), ORANGE);
        QCOMPARE(line->pen_color, 32);
        QVERIFY(fixture.context->modified);
        answerWith(driver, STEEL);
        fixture.click(fixture.button(fixture.fill(), "add"));
        QVERIFY(driver.isDone());
        QCOMPARE(line->fill_color, 33);
        QCOMPARE(line->fill_style, 20);
        for (const ColorSide* side : {fixture.pen(), fixture.fill()}) {
            QCOMPARE(fixture.box(side)->count(), 2);
            QCOMPARE(fixture.box(side)->itemText(0), QString("32: #c86432"));
            QCOMPARE(fixture.box(side)->itemText(1), QString("33: #3264c8"));
        }
        QCOMPARE(fixture.box(fixture.pen())->currentIndex(), 0);
        QCOMPARE(fixture.box(fixture.fill())->currentIndex(), 1);
    }

    void cancelAddsNothing()
    {
        PaletteFixture fixture;
        const FigLine* line = fixture.selectedLine();
        DialogDriver driver;
        driver.reject();
        fixture.click(fixture.button(fixture.fill(), "add"));
        QVERIFY(driver.isDone());
        QVERIFY(fixture.context->userColors.isEmpty());
        QCOMPARE(line->fill_color, 6);
        QVERIFY(!fixture.context->modified);
    }

    void fullTableTakesNoMore()
    {
        const PaletteFixture fixture;
        for (int key = 0; key <= 65533; ++key)
            fixture.context->userColors.insert(key, ORANGE);
        DialogDriver driver;
        answerWith(driver, STEEL);
        fixture.click(fixture.button(fixture.pen(), "add"));
        QVERIFY(driver.isDone());
        QCOMPARE(message_line, QString("There is no room for another user color"));
        QCOMPARE(fixture.context->userColors.size(), 65534);
        QCOMPARE(fixture.context->cur_pencolor, 0);
    }

    void editedColourChangesEveryObjectAtOnce()
    {
        PaletteFixture fixture;
        fixture.addColor(ORANGE);
        for (const int y : {900, 1500}) {
            FigLine* line = fixture.addLine(600, y, 1500, y);
            line->thickness = 9;
            line->pen_color = 32;
        }
        fixture.child->redisplayCanvas();
        // 15 units to a pixel; the lines run through (60, 60) and (60, 100).
        const auto canvas = [&](int y) { return fixture.child->canvasImage->pixelColor(60, y); };
        QCOMPARE(canvas(60), ORANGE);
        QCOMPARE(canvas(100), ORANGE);
        const unsigned* shades = fixture.context->userColorShades.value(0);
        fixture.chooseUser(fixture.pen(), 0);
        DialogDriver driver;
        answerWith(driver, STEEL);
        fixture.click(fixture.button(fixture.pen(), "edit"));
        QVERIFY(driver.isDone());
        QCOMPARE(fixture.context->userColors.value(0), STEEL);
        QCOMPARE(fixture.context->userColorShades.value(0), const_cast<unsigned*>(shades));
        QCOMPARE(canvas(60), STEEL);
        QCOMPARE(canvas(100), STEEL);
        QCOMPARE(fixture.box(fixture.fill())->itemText(0), QString("32: #3264c8"));
        QVERIFY(fixture.context->modified);
        QCOMPARE(fixture.steps(), 0);
    }

    void editBeginsWithTheOldColour()
    {
        PaletteFixture fixture;
        const int key = fixture.addColor(ORANGE);
        DialogDriver driver;
        QColor offered;
        driver.inspect(
            [&](QWidget* asked) { offered = qobject_cast<QColorDialog*>(asked)->currentColor(); });
        fixture.dialog->editUserColor(key);
        QVERIFY(driver.isDone());
        QCOMPARE(offered, ORANGE);
        QCOMPARE(fixture.context->userColors.value(key), ORANGE);
        QVERIFY(!fixture.context->modified);
    }

    void colourInUseIsNotDeleted_data()
    {
        QTest::addColumn<bool>("asFill");
        QTest::addColumn<bool>("inCompound");
        QTest::newRow("pen") << false << false;
        QTest::newRow("fill") << true << false;
        QTest::newRow("member of a compound") << false << true;
    }

    void colourInUseIsNotDeleted()
    {
        QFETCH(bool, asFill);
        QFETCH(bool, inCompound);
        PaletteFixture fixture;
        fixture.addColor(ORANGE);
        auto* compound = new FigCompound;
        compound->depth = 50;
        list_add(fixture.context, &fixture.context->drawing.objects, compound);
        auto* line = new FigLine;
        (asFill ? line->fill_color : line->pen_color) = 32;
        line->points = new FigPoint(0, 0);
        line->points->next = new FigPoint(1200, 1200);
        if (inCompound)
            compound->objects->append(line);
        else
            list_add(fixture.context, &fixture.context->drawing.objects, line);
        fixture.chooseUser(fixture.pen(), 0);
        DialogDriver driver;
        driver.press(QMessageBox::Ok);
        fixture.click(fixture.button(fixture.pen(), "delete"));
        QVERIFY(driver.isDone());
        QVERIFY(driver.seen.value(0).endsWith("That color is in use by an object in the figure"));
        QCOMPARE(fixture.context->userColors.value(0), ORANGE);
        QCOMPARE(fixture.context->cur_pencolor, 32);
        QVERIFY(!fixture.context->modified);
    }

    void deletedColourLeavesItsShadesAndBothChoices()
    {
        PaletteFixture fixture;
        fixture.addColor(ORANGE);
        fixture.addColor(STEEL);
        fixture.dialog->onFillcol(9);
        fixture.chooseUser(fixture.pen(), 0);
        fixture.click(fixture.button(fixture.pen(), "delete"));
        QCOMPARE(fixture.context->userColors.keys(), QList<int>{1});
        QCOMPARE(fixture.context->userColorShades.value(0)[20], 0xc86432u);
        QCOMPARE(fixture.context->cur_pencolor, 0);
        QCOMPARE(fixture.context->cur_fillcolor, 7);
        QCOMPARE(fixture.marked(fixture.pen()), QList<int>{0});
        QCOMPARE(fixture.marked(fixture.fill()), QList<int>{7});
        QCOMPARE(fixture.box(fixture.pen())->count(), 1);
        QCOMPARE(fixture.box(fixture.fill())->count(), 1);
        QVERIFY(fixture.context->modified);
    }

    void aKeyIsUsedAgainWithNewShades()
    {
        PaletteFixture fixture;
        const int key = fixture.addColor(ORANGE);
        fixture.dialog->onDeleteUserColor(key);
        QCOMPARE(fixture.addColor(STEEL), key);
        QCOMPARE(fixture.context->userColorShades.value(key)[20], 0x3264c8u);
    }

    void unusedColoursAreDeletedTogether()
    {
        PaletteFixture fixture;
        for (const QColor& color : {ORANGE, STEEL, QColor(1, 2, 3)})
            fixture.addColor(color);
        fixture.addLine(0, 0, 1200, 1200)->fill_color = 33;
        fixture.dialog->onUserPenColor(0);
        fixture.dialog->onUserFillColor(1);
        fixture.click(fixture.button(fixture.fill(), "deleteUnused"));
        QCOMPARE(fixture.context->userColors.keys(), QList<int>{1});
        QCOMPARE(fixture.box(fixture.pen())->count(), 1);
        QCOMPARE(fixture.box(fixture.fill())->count(), 1);
        // New objects do not get a colour that is not there any more; the other choice stays.
        QCOMPARE(fixture.context->cur_pencolor, 0);
        QCOMPARE(fixture.context->cur_fillcolor, 33);
        QVERIFY(fixture.context->modified);
    }

    void nothingUnusedNothingChanged()
    {
        PaletteFixture fixture;
        fixture.addColor(ORANGE);
        fixture.addLine(0, 0, 1200, 1200)->pen_color = 32;
        fixture.dialog->onDeleteUnusedUserColors(true);
        QCOMPARE(fixture.context->userColors.size(), 1);
        QVERIFY(!fixture.context->modified);
    }

    void buttonsWaitForAUserColour()
    {
        PaletteFixture fixture;
        const ColorSide* side = fixture.pen();
        QVERIFY(fixture.button(side, "add")->isEnabled());
        for (const char* name : {"edit", "delete", "deleteUnused"})
            QVERIFY2(!fixture.button(side, name)->isEnabled(), name);
        fixture.addColor(ORANGE);
        QVERIFY(!fixture.button(side, "edit")->isEnabled());
        QVERIFY(fixture.button(side, "deleteUnused")->isEnabled());
        fixture.chooseUser(side, 0);
        QVERIFY(fixture.button(side, "edit")->isEnabled());
        QVERIFY(fixture.button(side, "delete")->isEnabled());
        // The other side has not chosen it.
        QVERIFY(!fixture.button(fixture.fill(), "edit")->isEnabled());
    }

    // --- documents -------------------------------------------------------------------------

    void paletteFollowsTheActiveDocument()
    {
        PaletteFixture fixture;
        fixture.addColor(ORANGE);
        FigLine* line = fixture.selectedLine();
        QMdiSubWindow* first = fixture.window->findSubWindow(fixture.child);
        CFigContext* second = fixture.window->newFile()->figContext;
        QCoreApplication::processEvents();
        QCOMPARE(fixture.dialog->document(), static_cast<const CFigContext*>(second));
        QCOMPARE(fixture.box(fixture.pen())->count(), 0);
        QCOMPARE(fixture.marked(fixture.pen()), QList<int>{0});
        fixture.click(fixture.swatch(fixture.pen(), 5));
        QCOMPARE(second->cur_pencolor, 5);
        QCOMPARE(line->pen_color, 1);
        fixture.window->setActiveSubWindow(first);
        QCoreApplication::processEvents();
        QCOMPARE(fixture.dialog->document(), static_cast<const CFigContext*>(fixture.context));
        QCOMPARE(fixture.box(fixture.pen())->count(), 1);
        QCOMPARE(fixture.marked(fixture.pen()), QList<int>{1});
    }

    void coloursOfAnotherDocumentAreNotShown()
    {
        const PaletteFixture fixture;
        CFigContext other;
        other.addUserColor(ORANGE);
        shell_update_colors(&other);
        QCOMPARE(fixture.dialog->document(), static_cast<const CFigContext*>(fixture.context));
        QCOMPARE(fixture.box(fixture.pen())->count(), 0);
    }

    void closingTheLastDocumentDisablesThePalette()
    {
        PaletteFixture fixture;
        fixture.addColor(ORANGE);
        QVERIFY(fixture.dialog->isEnabled());
        fixture.window->closeActiveChild();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!fixture.dialog->document());
        QVERIFY(!fixture.dialog->isEnabled());
        QCOMPARE(fixture.box(fixture.pen())->count(), 0);
        QSignalSpy told(fixture.dialog, &FigColorDlg::colorChanged);
        fixture.dialog->onPencol(4);
        fixture.dialog->onUserPenColor(0);
        fixture.dialog->onFillcol(4);
        fixture.dialog->onUserFillColor(0);
        fixture.dialog->onShade(3);
        fixture.dialog->onPattern(3);
        fixture.dialog->onNoFill();
        fixture.dialog->onColors();
        fixture.dialog->showShades(4);
        fixture.dialog->showPatterns(1, 4);
        fixture.dialog->showPenPreview();
        fixture.dialog->editUserColor(0);
        fixture.dialog->onDeleteUserColor(0);
        fixture.dialog->onDeleteUnusedUserColors(false);
        QCOMPARE(fixture.dialog->addUserColor(), -1);
        QCOMPARE(told.size(), 0);
    }

    void closingOneDocumentShowsTheNext()
    {
        PaletteFixture fixture;
        CFigContext* first = fixture.context;
        fixture.window->newFile();
        QCoreApplication::processEvents();
        fixture.window->closeActiveChild();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(fixture.dialog->document(), static_cast<const CFigContext*>(first));
        QVERIFY(fixture.dialog->isEnabled());
    }

    void refusedCloseKeepsThePaletteInUse()
    {
        PaletteFixture fixture;
        fixture.context->setModifiedflag();
        DialogDriver driver;
        driver.press(QMessageBox::Cancel);
        fixture.window->closeActiveChild();
        QVERIFY(driver.isDone());
        QVERIFY(fixture.dialog->isEnabled());
        fixture.click(fixture.swatch(fixture.pen(), 4));
        QCOMPARE(fixture.context->cur_pencolor, 4);
        fixture.context->resetModifiedflag();
    }

    // The window does not tell its own refusal; the palette comes back with the document's focus.
    void refusedCloseOfTheWindowItselfDisablesUntilItHasTheFocus()
    {
        PaletteFixture fixture;
        fixture.context->setModifiedflag();
        fixture.window->activateWindow();
        QCoreApplication::processEvents();
        DialogDriver driver;
        driver.press(QMessageBox::Cancel);
        QVERIFY(!fixture.window->findSubWindow(fixture.child)->close());
        QVERIFY(driver.isDone());
        QVERIFY(!fixture.dialog->document());
        QVERIFY(!fixture.dialog->isEnabled());
        QFocusEvent focus(QEvent::FocusIn);
        QApplication::sendEvent(fixture.child, &focus);
        QVERIFY(fixture.dialog->isEnabled());
        QCOMPARE(fixture.dialog->document(), static_cast<const CFigContext*>(fixture.context));
        fixture.context->resetModifiedflag();
    }

    void fileThatCannotBeOpenedLeavesThePaletteInUse()
    {
        PaletteFixture fixture;
        QByteArray name = QDir(store.path()).filePath("missing.fig").toLocal8Bit();
        fixture.window->openFile(name.data());
        QCOMPARE(fixture.window->getChilds(QMdiArea::CreationOrder).size(), 1);
        QVERIFY(fixture.dialog->isEnabled());
        QCOMPARE(fixture.dialog->document(), static_cast<const CFigContext*>(fixture.context));
    }

    void paletteOutlivesDocumentsThatGoWithTheWindow()
    {
        PaletteFixture fixture;
        fixture.addColor(ORANGE);
        QSignalSpy told(fixture.dialog, &FigColorDlg::colorChanged);
        // Gone without having been closed.
        delete fixture.child;
        QVERIFY(!fixture.dialog->document());
        fixture.dialog->onPencol(4);
        QCOMPARE(told.size(), 0);
        fixture.window.reset();
        QVERIFY(!mainWnd);
    }

    // --- opening ------------------------------------------------------------------------------

    void panelButtonAndMenuOpenIt()
    {
        WindowFixture fixture;
        FigColorDlg* dialog = fixture.window->colorDialog();
        QVERIFY(!dialog->isVisible());
        fixture.window->showContextDialog(CMD_POLYLINE);
        auto* button =
            fixture.window->findChild<ContextPanel*>()->currentWidget()->findChild<QPushButton*>(
                "selectPenColor");
        QVERIFY(button && button->isEnabled());
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(dialog->isVisible());
        QVERIFY(!dialog->isModal());
        dialog->close();
        for (QAction* action : fixture.window->findChildren<QAction*>())
            if (action->text() == "Palette...")
                action->trigger();
        QVERIFY(dialog->isVisible());
    }

    void itFitsASmallScreen()
    {
        const PaletteFixture fixture;
        QVERIFY(fixture.dialog->width() <= 640);
        QVERIFY(fixture.dialog->height() <= 600);
        for (const QPushButton* button : fixture.dialog->findChildren<QPushButton*>())
            QVERIFY2(button->width() >= button->fontMetrics().horizontalAdvance(button->text()) + 8,
                     qPrintable(button->text()));
    }

private:
    TestStore store;
};

QTEST_MAIN(TestColorDialog)
#include "test_color_dialog.moc"
