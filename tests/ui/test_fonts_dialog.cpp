// The choice of fonts with real widgets: what is offered, and what a choice does to new texts and
// to the selected one.
#include "AttributeState.h"
#include "DialogDriver.h"
#include "WindowFixture.h"

#include "render/Font.h"
#include "ui/AttrsToolbarHandler.h"
#include "ui/ContextPanel.h"
#include "ui/FontsDlg.h"

#include <QGridLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>

namespace {

struct FontsFixture : WindowFixture {
    QTabWidget* tabs() const { return dialog->findChild<QTabWidget*>(); }
    QPushButton* button(int tab, int font) const { return buttons(tab).value(font); }
    QList<QPushButton*> buttons(int tab) const
    {
        return tabs()->widget(tab)->findChildren<QPushButton*>();
    }
    QPushButton* panelButton() const
    {
        window->showContextDialog(CMD_TEXT);
        return window->findChild<ContextPanel*>()->currentWidget()->findChild<QPushButton*>(
            "openFontSel");
    }

    FigText* selectedText(int font, int flags)
    {
        auto* text = new FigText;
        text->cstring = "words";
        text->x = 600;
        text->y = 600;
        text->depth = 50;
        text->font = font;
        text->flags = flags;
        list_add(context, &context->drawing.objects, text);
        select(text);
        return text;
    }
    void select(FigObject* object)
    {
        object->tagged = true;
        context->curObject = object;
        window->showAttributesBar(context, object);
    }
    int steps() const { return context->undoQueue.undoCount(); }

    FontsDlg* dialog = window->fontsDialog();
};

} // namespace

class TestFontsDialog : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }
    void init() { store.renew(); }
    void cleanup()
    {
        attributes.restore();
        store.leave();
    }

    // --- what is offered ------------------------------------------------------------

    void bothTabsHaveTheirButtonsInThreeColumns()
    {
        const FontsFixture fixture;
        QCOMPARE(fixture.tabs()->count(), 2);
        QCOMPARE(fixture.tabs()->tabText(0), QString("PostScript Fonts"));
        QCOMPARE(fixture.tabs()->tabText(1), QString("LaTeX Fonts"));
        const int counts[] = {35, 6};
        for (const int tab : {0, 1}) {
            QCOMPARE(fixture.buttons(tab).size(), counts[tab]);
            const auto* grid = fixture.tabs()->widget(tab)->findChild<QGridLayout*>();
            for (int font = 0; font < counts[tab]; ++font)
                QCOMPARE(grid->itemAtPosition(font / 3, font % 3)->widget(),
                         static_cast<QWidget*>(fixture.button(tab, font)));
        }
    }

    void postScriptButtonsAreNamedOnWhite()
    {
        const FontsFixture fixture;
        fixture.dialog->show();
        for (int font = 0; font < NUM_PS_FONTS; ++font) {
            QPushButton* button = fixture.button(0, font);
            QCOMPARE(button->text(), QString(fontmapQt[font].name));
            // The style shades a white button a little.
            const QColor background = button->grab().toImage().pixelColor(5, button->height() / 2);
            QVERIFY(button->isChecked() ||
                    (background.lightness() > 245 && background.saturation() == 0));
            QVERIFY2(button->width() >= button->fontMetrics().horizontalAdvance(button->text()),
                     fontmapQt[font].name);
        }
    }

    void namesAreWrittenInTheirFacesWhereTheyCanBeRead()
    {
        const FontsFixture fixture;
        fixture.dialog->show();
        for (int font = 0; font < NUM_PS_FONTS; ++font) {
            const QFont face = fixture.button(0, font)->font();
            const bool hasLetters = font != 32 && font != 34;
            QCOMPARE(face.family() == fontmapQt[font].family, hasLetters);
            if (!hasLetters)
                continue;
            QCOMPARE(face.weight(), fontmapQt[font].weight);
            QCOMPARE(int(face.style()), fontmapQt[font].style);
            QCOMPARE(face.stretch(), fontmapQt[font].stretch);
        }
    }

    void latexButtonsShowTheirPicturesAtTheirOwnSize()
    {
        const FontsFixture fixture;
        fixture.dialog->show();
        for (int font = 0; font < NUM_LATEX_FONTS; ++font) {
            const QString path = QString(":/fonts/images/fonts/%1.png").arg(latexFonts[font]);
            const QImage picture(path);
            QVERIFY2(!picture.isNull(), qPrintable(path));
            const QPushButton* button = fixture.button(1, font);
            QCOMPARE(button->iconSize(), picture.size());
            QCOMPARE(
                button->icon().pixmap(picture.size()).toImage().convertToFormat(picture.format()),
                picture);
            QCOMPARE(button->text(), QString(latexFonts[font]));
            const QImage dense(QString(path).replace(".png", "@2x.png"));
            QCOMPARE(dense.size(), picture.size() * 2);
        }
    }

    void presentFontIsMarked()
    {
        const FontsFixture fixture;
        cur_textflags = 4;
        cur_ps_font = 17;
        fixture.dialog->show();
        QCOMPARE(fixture.tabs()->currentIndex(), 0);
        for (int font = 0; font < NUM_PS_FONTS; ++font)
            QCOMPARE(fixture.button(0, font)->isChecked(), font == 17);
        fixture.dialog->hide();
        cur_textflags = 0;
        cur_latex_font = 3;
        fixture.dialog->show();
        QCOMPARE(fixture.tabs()->currentIndex(), 1);
        for (int font = 0; font < NUM_LATEX_FONTS; ++font)
            QCOMPARE(fixture.button(1, font)->isChecked(), font == 3);
        QVERIFY(!fixture.button(0, 17)->isChecked());
    }

    // --- choosing ---------------------------------------------------------------------

    void postScriptFontIsChosenAndEndsTheDialog()
    {
        const FontsFixture fixture;
        cur_textflags = 1;
        QSignalSpy told(fixture.dialog, &FontsDlg::psFontChanged);
        fixture.dialog->show();
        QTest::mouseClick(fixture.button(0, 9), Qt::LeftButton);
        QCOMPARE(cur_ps_font, 9);
        QCOMPARE(cur_textflags, 5);
        QCOMPARE(told.size(), 1);
        QCOMPARE(told.first().first().toInt(), 9);
        QVERIFY(!fixture.dialog->isVisible());
        QCOMPARE(fixture.panelButton()->text(), QString("Bookman Light Italic"));
    }

    void latexFontIsChosenAndEndsTheDialog()
    {
        const FontsFixture fixture;
        cur_textflags = 6;
        QSignalSpy told(fixture.dialog, &FontsDlg::latexFontChanged);
        fixture.dialog->show();
        fixture.tabs()->setCurrentIndex(1);
        QTest::mouseClick(fixture.button(1, 5), Qt::LeftButton);
        QCOMPARE(cur_latex_font, 5);
        QCOMPARE(cur_textflags, 2);
        QCOMPARE(told.size(), 1);
        QCOMPARE(told.first().first().toInt(), 5);
        QVERIFY(!fixture.dialog->isVisible());
        QCOMPARE(fixture.panelButton()->text(), QString("typewriter"));
        QVERIFY(!fixture.panelButton()->icon().isNull());
    }

    void selectedTextTakesTheFontAsOneStep()
    {
        FontsFixture fixture;
        FigText* text = fixture.selectedText(0, 4);
        fixture.dialog->onPsFont(12);
        QCOMPARE(text->font, 12);
        QCOMPARE(text->flags, 4);
        QCOMPARE(fixture.steps(), 1);
        fixture.dialog->onLatexFont(2);
        QCOMPARE(text->font, 2);
        QCOMPARE(text->flags, 0);
        QCOMPARE(fixture.steps(), 2);
        fixture.window->undo();
        QCOMPARE(text->font, 12);
        QCOMPARE(text->flags, 4);
        QCOMPARE(fixture.panelButton()->text(), QString("Courier"));
        fixture.window->undo();
        QCOMPARE(text->font, 0);
    }

    void selectedObjectOfAnotherKindStaysAsItIs()
    {
        FontsFixture fixture;
        FigLine* line = fixture.addLine(0, 0, 1200, 1200);
        fixture.select(line);
        // A difference that an update would take over.
        cur_linewidth = 7;
        fixture.dialog->onPsFont(12);
        QCOMPARE(cur_ps_font, 12);
        QCOMPARE(line->thickness, 1);
        QCOMPARE(fixture.steps(), 0);
    }

    void withoutASelectionOnlyTheNextTextIsMeant()
    {
        FontsFixture fixture;
        const FigText* text = fixture.selectedText(0, 4);
        fixture.window->deselectAll();
        fixture.dialog->onPsFont(12);
        QCOMPARE(text->font, 0);
        QCOMPARE(fixture.steps(), 0);
    }

    void withoutADocumentTheChoiceCounts()
    {
        const FontsFixture fixture;
        fixture.window->closeActiveChild();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!getFigContext());
        fixture.dialog->onPsFont(12);
        QCOMPARE(cur_ps_font, 12);
        fixture.dialog->onLatexFont(1);
        QCOMPARE(cur_latex_font, 1);
    }

    void unknownFontsDoNothing()
    {
        const FontsFixture fixture;
        const int psFont = cur_ps_font;
        const int latexFont = cur_latex_font;
        for (const int font : {-1, 35, 1000})
            fixture.dialog->onPsFont(font);
        for (const int font : {-1, 6, 1000})
            fixture.dialog->onLatexFont(font);
        QCOMPARE(cur_ps_font, psFont);
        QCOMPARE(cur_latex_font, latexFont);
    }

    void panelButtonOpensItAndCancelChangesNothing()
    {
        FontsFixture fixture;
        const FigText* text = fixture.selectedText(3, 4);
        QPushButton* button = fixture.panelButton();
        QVERIFY(button->isEnabled());
        DialogDriver driver;
        bool opened = false;
        driver.inspect([&](QWidget* dialog) {
            opened = dialog == fixture.dialog && fixture.button(0, 3)->isChecked();
        });
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(driver.isDone());
        QVERIFY(opened);
        QCOMPARE(text->font, 3);
        QCOMPARE(fixture.steps(), 0);
    }

    void itFitsASmallScreen()
    {
        const FontsFixture fixture;
        fixture.dialog->show();
        QVERIFY(fixture.dialog->width() <= 1000);
        QVERIFY(fixture.dialog->height() <= 620);
    }

private:
    TestStore store;
    AttributeState attributes;
};

QTEST_MAIN(TestFontsDialog)
#include "test_fonts_dialog.moc"
