// Panels and dialogs make their controls when they are first wanted. Whatever has happened before,
// they then show what they would show had they been there from the start.
#include "AttributeState.h"
#include "EveryPage.h"
#include "WindowFixture.h"

#include "render/Font.h"
#include "render/colorFunctions.h"
#include "ui/AttrsToolbarHandler.h"
#include "ui/AttrsToolbars.h"
#include "ui/ColorSide.h"
#include "ui/FigColorDlg.h"
#include "ui/FontsDlg.h"
#include "ui/LayersToolbar.h"
#include "ui/ShapesToolbar.h"
#include "ui/SwatchButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTextDocument>
#include <QTextEdit>

namespace {

using Page = Late<QWidget>;

/// A window of which nothing has been painted yet, so that nothing can have been made in idle time.
struct NewWindow {
    NewWindow()
    {
        mainWnd = &window;
        window.show();
    }
    ~NewWindow() { mainWnd = nullptr; }

    Page* page(int index) const { return dynamic_cast<Page*>(panels->widget(index)); }

    /// Shows a page for the first time.
    QWidget* show(int index)
    {
        if (page(index)->isComplete())
            qFatal("page %d is not late", index);
        panels->setCurrentIndex(index);
        return page(index);
    }

    FigLine* selectedLine()
    {
        auto* line = new FigLine;
        line->sub_type = T_POLYLINE;
        line->depth = 50;
        line->thickness = 1;
        line->points = new FigPoint(300, 300);
        line->points->next = new FigPoint(1800, 300);
        list_add(context, &context->drawing.objects, line);
        line->tagged = true;
        context->curObject = line;
        window.showAttributesBar(context, line);
        return line;
    }

    QTMainFrm window;
    CFigContext* context = window.activeMdiChild()->figContext;
    ContextPanel* panels = window.findChild<ContextPanel*>();
    AttrsToolbarHandler* handler = window.attributes();
};

int valueOf(const QWidget* page, const char* spinBox)
{
    return page->findChild<QSpinBox*>(spinBox)->value();
}

int indexIn(const QWidget* page, const char* comboBox)
{
    return page->findChild<QComboBox*>(comboBox)->currentIndex();
}

QImage iconOf(const QWidget* page, const char* button)
{
    return page->findChild<QPushButton*>(button)->icon().pixmap(34, 35).toImage();
}

bool areAllComplete(const ContextPanel* panels)
{
    for (int index = 0; index < panels->count(); ++index)
        if (const auto* page = dynamic_cast<Page*>(panels->widget(index)))
            if (!page->isComplete())
                return false;
    return true;
}

/// What takes the Tab key in the window, from the panels on.
QList<QWidget*> tabOrder(ContextPanel* panels)
{
    QList<QWidget*> order;
    for (QWidget* next = panels->nextInFocusChain(); next != panels;
         next = next->nextInFocusChain())
        if (next->focusPolicy() & Qt::TabFocus)
            order.append(next);
    return order;
}

/// Index of the page that a control stands on.
int pageOf(const ContextPanel* panels, const QWidget* control)
{
    int page = 0;
    while (!panels->widget(page)->isAncestorOf(control))
        ++page;
    return page;
}

SwatchButton* swatch(const FigColorDlg* dialog, const char* side, int color)
{
    return dialog->findChild<ColorSide*>(side)->findChildren<SwatchButton*>().value(color);
}

} // namespace

class TestLateContent : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        store.make();
        set_colors();
        initializePatternBitmaps();
    }

    void init()
    {
        store.renew();
        attributes.restore();
    }

    void cleanup() { store.leave(); }

    // --- attribute panels -------------------------------------------------------------

    void aPageFirstShownHasTheValuesOfTheHour()
    {
        NewWindow editor;
        editor.handler->onDepth(77);
        editor.handler->onLineWidth(9);
        editor.handler->onLineStyle(2);
        editor.handler->onStyleVal(6.5);
        editor.handler->onCapStyle(2);
        editor.handler->onJoinStyle(1);
        editor.handler->onBackArrow(3);
        editor.handler->onForwArrow(29);
        const QWidget* page = editor.show(PAGE_POLYLINE);
        QCOMPARE(valueOf(page, "depth"), 77);
        QCOMPARE(valueOf(page, "lineWidth"), 9);
        QCOMPARE(indexIn(page, "lineStyle"), 2);
        QCOMPARE(page->findChild<QDoubleSpinBox*>("styleVal")->value(), 6.5);
        QCOMPARE(page->findChild<QLabel*>("lbStyleVal")->text(), QString("dot gap"));
        QCOMPARE(indexIn(page, "capStyle"), 2);
        QCOMPARE(indexIn(page, "joinStyle"), 1);
        QCOMPARE(indexIn(page, "backArrow"), 3);
        QCOMPARE(indexIn(page, "forwArrow"), 29);
    }

    void theTextPageFirstShownHasTheTextOfTheHour()
    {
        NewWindow editor;
        editor.handler->onFontSize(41);
        editor.handler->onTextAngle(30);
        editor.handler->onTextAlign(2);
        editor.handler->onTextRigid(true);
        editor.handler->onTextSpecial(true);
        editor.window.fontsDialog()->onPsFont(5);
        const QWidget* page = editor.show(PAGE_TEXT);
        QCOMPARE(page->findChild<QComboBox*>("fontSize")->currentText(), QString("41"));
        QCOMPARE(valueOf(page, "textAngle"), 30);
        QCOMPARE(indexIn(page, "textAlign"), 2);
        QVERIFY(page->findChild<QCheckBox*>("textRigid")->isChecked());
        QVERIFY(page->findChild<QCheckBox*>("textSpecial")->isChecked());
        const auto* font = page->findChild<QPushButton*>("openFontSel");
        QCOMPARE(font->text(), QString(fontmapQt[5].name));
        QCOMPARE(font->font().family(), QString(fontmapQt[5].family));
    }

    void theTextPageFirstShownMayNameALatexFont()
    {
        NewWindow editor;
        editor.window.fontsDialog()->onLatexFont(4);
        const auto* font = editor.show(PAGE_TEXT)->findChild<QPushButton*>("openFontSel");
        QCOMPARE(font->text(), QString("sansserif"));
        QVERIFY(!font->icon().isNull());
    }

    void theOtherPagesFirstShownHaveTheirValues()
    {
        NewWindow editor;
        editor.handler->onArrowType(7);
        editor.handler->onBoxType(1);
        editor.handler->onBoxCornerRadius(20);
        editor.handler->onNumSides(5);
        editor.handler->onEllipseAngle(45);
        QCOMPARE(indexIn(editor.show(PAGE_ARROW), "arrowType"), 7);
        const QWidget* box = editor.show(PAGE_BOX);
        QCOMPARE(indexIn(box, "boxType"), 1);
        QCOMPARE(valueOf(box, "boxCornerRadius"), 20);
        QCOMPARE(valueOf(editor.show(PAGE_REGULAR_POLYGON), "numSides"), 5);
        QCOMPARE(valueOf(editor.show(PAGE_ELLIPSE), "ellipseAngle"), 45);
    }

    void aPageFirstShownHasTheColoursAndTheCommentThatWereTold()
    {
        NewWindow editor;
        editor.handler->onColors(4, 6, 20);
        editor.window.fireCommentChanged(true);
        const QWidget* page = editor.show(PAGE_BOX);
        const QImage sample = iconOf(page, "selectPenColor");
        QCOMPARE(sample.pixelColor(17, 17), QColor(255, 255, 0)); // the middle, in the fill
        QCOMPARE(sample.pixelColor(4, 17), QColor(255, 0, 0));    // the outline
        const auto* comment = page->findChild<QPushButton*>("openCommentDlg");
        QCOMPARE(comment->icon().pixmap(24).toImage(),
                 QIcon(":/diverse/images/diverse/comment_filled.png").pixmap(24).toImage());
    }

    void theTangentPageFirstShownHasTheUnitOfTheDocument()
    {
        for (const bool metric : {true, false}) {
            gridPreferences.metric = metric;
            NewWindow editor;
            QCOMPARE(editor.context->metric, metric);
            QCOMPARE(editor.show(PAGE_TANGENT)->findChild<QLabel*>("lbLength")->text(),
                     QString(metric ? "Length (cm)" : "Length (in)"));
        }
    }

    // A page that rounds or limits what it shows must not answer with it.
    void aPageFirstShownChangesNothing()
    {
        NewWindow editor;
        FigLine* line = editor.selectedLine();
        cur_boxradius = 3; // below what the panel offers
        cur_depth = 2000;
        cur_styleval = 1.23456f;
        QSignalSpy depths(editor.handler, &AttrsToolbarHandler::depthChanged);
        showEveryPage(editor.panels);
        QVERIFY(areAllComplete(editor.panels));
        QCOMPARE(valueOf(editor.page(PAGE_BOX), "boxCornerRadius"), 7);
        QCOMPARE(cur_boxradius, 3);
        QCOMPARE(cur_depth, 2000);
        QCOMPARE(cur_styleval, 1.23456f);
        QCOMPARE(line->depth, 50);
        QCOMPARE(depths.size(), 0);
        QCOMPARE(editor.context->undoQueue.undoCount(), 0);
    }

    void aPageFirstShownAnswersToItsControls()
    {
        NewWindow editor;
        const FigLine* line = editor.selectedLine();
        QCOMPARE(editor.panels->currentIndex(), int(PAGE_POLYLINE));
        editor.panels->currentWidget()->findChild<QSpinBox*>("lineWidth")->setValue(7);
        QCOMPARE(line->thickness, 7);
        editor.handler->onLineWidth(3);
        QCOMPARE(valueOf(editor.panels->currentWidget(), "lineWidth"), 3);
    }

    void aToolOfTheFirstHourShowsItsPage()
    {
        NewWindow editor;
        editor.window.shapesToolbar()->switchCommand(CMD_POLYLINE);
        QVERIFY(QTest::qWaitForWindowExposed(&editor.window));
        const auto* depth = editor.panels->currentWidget()->findChild<QSpinBox*>("depth");
        QVERIFY(depth && depth->isVisible());
        QVERIFY(depth->width() >= depth->minimumSizeHint().width());
    }

    void aSlotOfAPageThatWasNeverShownFindsItsControls()
    {
        NewWindow editor;
        auto* text = static_cast<TextAttrsToolbar*>(editor.page(PAGE_TEXT));
        QVERIFY(!text->isComplete());
        text->onPsFontChanged(3);
        QCOMPARE(text->findChild<QPushButton*>("openFontSel")->text(),
                 QString("Times Bold Italic"));
        auto* tangent = static_cast<TangnormAttrsToolbar*>(editor.page(PAGE_TANGENT));
        tangent->onUnit(1);
        QCOMPARE(tangent->findChild<QLabel*>("lbLength")->text(), QString("Length (in)"));
    }

    // --- idle time ----------------------------------------------------------------------

    void allPagesAreThereSoonAfterTheWindowIs()
    {
        NewWindow editor;
        QVERIFY(!areAllComplete(editor.panels));
        QTRY_VERIFY(areAllComplete(editor.panels));
        QCOMPARE(editor.panels->currentIndex(), int(PAGE_EMPTY));
    }

    void aWindowMayGoBeforeItsPagesAreThere()
    {
        {
            NewWindow editor;
            editor.panels->grab(); // painted, and idle time is asked for
            QVERIFY(!areAllComplete(editor.panels));
        }
        QCoreApplication::processEvents();
        NewWindow closed;
        closed.panels->grab();
        QVERIFY(closed.window.close());
        QTRY_VERIFY(areAllComplete(closed.panels));
    }

    void whatIsBeingTypedIsLeftAloneByPagesThatCome()
    {
        NewWindow editor;
        editor.selectedLine();
        auto* box = editor.panels->currentWidget()->findChild<QSpinBox*>("lineWidth");
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, "7");
        for (int index = 0; index < editor.panels->count(); ++index)
            if (Page* page = editor.page(index))
                page->makeComplete();
        QCOMPARE(box->text(), QString("7"));
        QCOMPARE(cur_linewidth, 1);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(cur_linewidth, 7);
    }

    // --- looks and keys -----------------------------------------------------------------

    void noPageWidensThePanel_data()
    {
        QTest::addColumn<QFont>("font");
        const QFont plain = QApplication::font();
        QTest::newRow("plain") << plain;
        for (const int size : {6, 14, 22})
            QTest::addRow("%d points", size) << QFont(plain.family(), size);
        for (const char* family : {"DejaVu Serif", "DejaVu Sans Mono", "Nimbus Roman"})
            QTest::newRow(family) << QFont(family, plain.pointSize());
    }

    void noPageWidensThePanel()
    {
        QFETCH(QFont, font);
        const QFont before = QApplication::font();
        QApplication::setFont(font);
        NewWindow editor;
        const int width = editor.panels->minimumSizeHint().width();
        showEveryPage(editor.panels);
        QVERIFY(areAllComplete(editor.panels));
        const int widthOfAll = editor.panels->minimumSizeHint().width();
        QApplication::setFont(before);
        QVERIFY(width > 100);
        QCOMPARE(widthOfAll, width);
    }

    // The pages come last to first, and stand first to last all the same.
    void theTabKeyGoesOnFromThePanelToTheLayers()
    {
        NewWindow editor;
        for (int index = NUM_CONTEXT_PAGES - 1; index >= 0; --index)
            editor.panels->setCurrentIndex(index);
        QVERIFY(areAllComplete(editor.panels));
        const QList<QWidget*> order = tabOrder(editor.panels);
        QList<int> pages;
        int place = 0;
        for (; editor.panels->isAncestorOf(order[place]); ++place) {
            const int page = pageOf(editor.panels, order[place]);
            if (pages.isEmpty() || pages.last() != page)
                pages.append(page);
        }
        QCOMPARE(pages, QList<int>({1, 2, 3, 4, 5, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
        QVERIFY(editor.window.findChild<LayersToolbar*>()->isAncestorOf(order[place]));
        for (; place < order.size(); ++place)
            QVERIFY2(!editor.panels->isAncestorOf(order[place]),
                     qPrintable(order[place]->objectName()));
    }

    // --- palette ------------------------------------------------------------------------

    void thePaletteFirstOpenedShowsTheDocument()
    {
        NewWindow editor;
        FigColorDlg* palette = editor.window.colorDialog();
        const int key = editor.context->addUserColor(QColor(200, 100, 50));
        shell_update_colors(editor.context);
        editor.handler->onColors(4, 32 + key, 20);
        QVERIFY(!palette->isComplete());
        palette->makeComplete(); // as showing it does, without what the windows tell then
        QVERIFY(palette->isEnabled());
        QVERIFY(swatch(palette, "penSide", 4)->isChecked());
        const auto patterns = palette->findChildren<SwatchButton*>().mid(2 * 32 + 41);
        QCOMPARE(patterns.size(), 22);
        QCOMPARE(patterns[0]->shown().color, QColor(200, 100, 50));
        QCOMPARE(patterns[0]->shown().ink, QColor(255, 0, 0));
        const auto* users = palette->findChild<ColorSide*>("fillSide")->findChild<QComboBox*>();
        QCOMPARE(users->count(), 1);
        QCOMPARE(users->currentIndex(), 0);
        QCOMPARE(palette->findChild<QLabel*>("description")->text(),
                 QString("Pen: Red\nFill: #c86432, Shade 100 %"));
        QCOMPARE(palette->findChild<QLabel*>("preview")->pixmap(Qt::ReturnByValue).toImage(),
                 palette->shownSample().toImage());
        QCOMPARE(palette->shownSample().toImage().pixelColor(17, 17), QColor(200, 100, 50));
    }

    void thePaletteFirstOpenedWithoutADocumentIsDisabled()
    {
        NewWindow editor;
        editor.window.closeActiveChild();
        QVERIFY(!editor.window.activeMdiChild());
        editor.window.onOpenColorDlg();
        const FigColorDlg* palette = editor.window.colorDialog();
        QVERIFY(palette->isComplete()); // by being shown
        QVERIFY(!palette->isEnabled());
        QVERIFY(!swatch(palette, "penSide", 0)->isEnabled());
    }

    void thePaletteWorksBeforeItIsOpened()
    {
        NewWindow editor;
        const FigLine* line = editor.selectedLine();
        FigColorDlg* palette = editor.window.colorDialog();
        QSignalSpy told(palette, &FigColorDlg::colorChanged);
        palette->onPencol(4);
        palette->onFillcol(6);
        palette->onShade(20);
        QCOMPARE(told.size(), 3);
        QCOMPARE(line->pen_color, 4);
        QCOMPARE(line->fill_color, 6);
        QCOMPARE(line->fill_style, 20);
        palette->onPattern(3);
        QCOMPARE(line->fill_style, 44);
        palette->onNoFill();
        QCOMPARE(line->fill_style, -1);
        palette->onDeleteUnusedUserColors(false);
        QVERIFY(!palette->isComplete());
        const int key = editor.context->addUserColor(QColor(200, 100, 50));
        shell_update_colors(editor.context);
        palette->onUserPenColor(0); // by the line of the box
        QCOMPARE(line->pen_color, 32 + key);
    }

    // --- console ------------------------------------------------------------------------

    void theConsoleFirstOpenedShowsWhatWasLogged()
    {
        NewWindow editor;
        auto* console = editor.window.findChild<QDockWidget*>("consoleDock");
        QVERIFY(!console->findChild<QTextEdit*>("logView"));
        editor.window.logDocument()->setPlainText("a line of the start");
        editor.window.onOpenConsoleView();
        const auto* view = console->findChild<QTextEdit*>("logView");
        QVERIFY(view && view->isVisible());
        QCOMPARE(view->toPlainText(), QString("a line of the start"));
        QCOMPARE(view->document()->defaultFont(), view->font());
        QCOMPARE(view->lineWrapMode(), QTextEdit::NoWrap);
        console->findChild<QPushButton*>("clearLog")->click();
        QVERIFY(editor.window.logDocument()->isEmpty());
    }

    void theConsoleOpensByItsEntryInTheMenuToo()
    {
        NewWindow editor;
        auto* console = editor.window.findChild<QDockWidget*>("consoleDock");
        console->toggleViewAction()->trigger();
        const auto* view = console->findChild<QTextEdit*>("logView");
        QVERIFY(view && view->isVisible());
    }

private:
    TestStore store;
    const AttributeState attributes;
};

QTEST_MAIN(TestLateContent)
#include "test_late_content.moc"
