// What the user finds in the main window: actions, menus, tool bars, tool row, console, About box.
#include "DialogDriver.h"
#include "WindowFixture.h"

#include "model/version.h"
#include "render/grid.h"
#include "ui/AboutDlg.h"
#include "ui/MainActions.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>
#include <QTextEdit>
#include <QToolBar>
#include <QToolButton>

namespace {

struct ExpectedAction {
    const char* text;
    const char* key;
    const char* tip;
    const char* slot; ///< null: nothing behind it yet
};

const ExpectedAction expectedActions[] = {
    {"&New", "Ctrl+N", "Create a new file", "newFile()"},
    {"&Open...", "Ctrl+O", "Open an existing file", "open()"},
    {"&Save", "Ctrl+S", "Save the document to disk", "save()"},
    {"Save &As...", "", "Save the document under a new name", "saveAs()"},
    {"Export...", "", "Export", nullptr},
    {"Export Again", "Ctrl+E", "Export Again", nullptr},
    {"Close", "Ctrl+F4", "Close", "closeActiveChild()"},
    {"Properties...", "", "Properties", nullptr},
    {"Exit", "", "Exit", "closeAllChilds()"},
    {"Undo", "Ctrl+Z", "Undo the last action", "undo()"},
    {"Redo", "Ctrl+Y", "Redo the last undone action", "redo()"},
    {"Cu&t", "Ctrl+X", "Cut the current selection's contents to the clipboard", "cut()"},
    {"&Copy", "Ctrl+C", "Copy the current selection's contents to the clipboard", "copy()"},
    {"&Paste", "Ctrl+V", "Paste the clipboard's contents into the current selection", "paste()"},
    {"Select All", "Ctrl+A", "Select All", "selectAll()"},
    {"Create Smart Links", "", "Create Smart Links", "createSmartLinks()"},
    {"Preferences...", "", "Preferences", nullptr},
    {"Page and Metrics Setup...", "", "Open page, grid and metrics setup", nullptr},
    {"Library...", "", "Open library", nullptr},
    {"Open Console View", "", "Open Console View", "onOpenConsoleView()"},
    {"Palette...", "", "Open Palette", "onOpenColorDlg()"},
    {"Layer Selection...", "", "Open layer selection", "onOpenLayersPanel()"},
    {"Zoom in", "Ctrl++", "Zoom in", "zoomIn()"},
    {"Zoom out", "Ctrl+-", "Zoom out", "zoomOut()"},
    {"Zoom to selection", ".", "Zoom to selection", "zoomToSelection()"},
    {"Zoom to selection (revert)", "Shift+.", "Zoom to selection", "zoomToSelectionRevert()"},
    {"Align left", "", "Align left", "alignLeft()"},
    {"Align top", "", "Align top", "alignTop()"},
    {"Align right", "", "Align right", "alignRight()"},
    {"Align bottom", "", "Align bottom", "alignBottom()"},
    {"Align centered horizontal", "", "Align centered horizontal", "alignCenterH()"},
    {"Align centered vertical", "", "Align centered vertical", "alignCenterV()"},
    {"Align centered", "", "Align centered", "alignCenterHV()"},
    {"Create", "", "Glue objects into compound object", "onCreateCompound()"},
    {"Break", "", "Break compound object", "onBreakCompound()"},
    {"Open", "", "Open compound for editing", "onOpenCompound()"},
    {"Close", "", "Close current compound", "onCloseCompound()"},
    {"Convert", "", "Convert line into spline or vice versa", "onConvertLineSpline()"},
    {"&About", "", "Show the application's About box", "about()"},
    {"About &Qt", "", "Show the Qt library's About box", "aboutQt()"},
};

/// Available only when the document has something for it, which an empty one has not.
bool waitsForTheDocument(const ExpectedAction& row)
{
    static const QSet<QByteArray> slotNames = {"undo()",
                                               "redo()",
                                               "alignLeft()",
                                               "alignTop()",
                                               "alignRight()",
                                               "alignBottom()",
                                               "alignCenterH()",
                                               "alignCenterV()",
                                               "alignCenterHV()",
                                               "onCreateCompound()",
                                               "onBreakCompound()",
                                               "onOpenCompound()",
                                               "onCloseCompound()",
                                               "onConvertLineSpline()"};
    return slotNames.contains(row.slot);
}

QAction* findAction(const QTMainFrm* window, const QString& text, const QString& tip)
{
    for (QAction* action : window->findChildren<QAction*>())
        if (action->text() == text && action->toolTip() == tip)
            return action;
    return nullptr;
}

QMenu* menuOf(const QWidget* bar, const QString& title)
{
    for (QAction* action : bar->actions())
        if (action->text() == title)
            return action->menu();
    return nullptr;
}

QStringList textsOf(const QWidget* bar)
{
    QStringList texts;
    for (const QAction* action : bar->actions())
        if (action->isVisible())
            texts.append(action->isSeparator() ? "-" : action->text());
    return texts;
}

bool isShownSomewhere(const QAction* action)
{
    for (QWidget* widget : action->associatedWidgets())
        if (qobject_cast<QMenu*>(widget))
            return true;
    return false;
}

QString accessibleName(QWidget* widget)
{
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
    return face ? face->text(QAccessible::Name) : QString();
}

template <typename Widget> QStringList namelessOf(const QWidget* window)
{
    QStringList nameless;
    for (Widget* widget : window->findChildren<Widget*>())
        if (accessibleName(widget).isEmpty())
            nameless.append(QString("%1 \"%2\" in %3")
                                .arg(widget->metaObject()->className(), widget->objectName(),
                                     widget->parent()->metaObject()->className()));
    return nameless;
}

QToolButton* toolButton(const QTMainFrm* window, const QString& name)
{
    return window->findChild<QToolButton*>(name);
}

QComboBox* zoomBox(const QTMainFrm* window)
{
    return window->findChild<QComboBox*>("zoom");
}

void typeZoom(const QTMainFrm* window, const QString& text)
{
    QLineEdit* edit = zoomBox(window)->lineEdit();
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
}

} // namespace

class TestMainActions : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        store.make();
        loadGridDefinitions();
    }

    void cleanupTestCase() { destroyGridDefinitions(); }

    void init()
    {
        store.renew();
        resetConstraints();
    }

    // --- actions ----------------------------------------------------------------

    void everyActionHasItsTextKeyTipAndSlot()
    {
        WindowFixture fixture;
        for (const ExpectedAction& row : expectedActions) {
            const QAction* action = findAction(fixture.window.get(), row.text, row.tip);
            QVERIFY2(action, row.text);
            QCOMPARE(action->shortcut().toString(), QString(row.key));
            QVERIFY2(isShownSomewhere(action), row.text);
            QVERIFY2(!action->icon().availableSizes().isEmpty(), row.text);
            QVERIFY2(action->isEnabled() == (row.slot && !waitsForTheDocument(row)), row.text);
            if (row.slot)
                QVERIFY2(fixture.window->metaObject()->indexOfSlot(row.slot) >= 0, row.slot);
        }
    }

    // A slot comes with "1" before it where a connection names it.
    void everyRowOfTheTableCallsTheSlotThatItShould()
    {
        QCOMPARE(int(NUM_MAIN_ACTIONS), int(std::size(expectedActions)) + 1);
        for (const ExpectedAction& row : expectedActions) {
            const ActionRow* found = nullptr;
            for (const ActionRow& candidate : actionTable)
                if (QByteArray(candidate.text) == row.text &&
                    (!*candidate.tip || QByteArray(candidate.tip) == row.tip) &&
                    QByteArray(candidate.key) == row.key)
                    found = &candidate;
            QVERIFY2(found, row.text);
            QCOMPARE(QByteArray(found->slot).mid(1), QByteArray(row.slot));
        }
    }

    void noKeyIsGivenTwice()
    {
        WindowFixture fixture;
        QHash<QString, QString> owners;
        for (QAction* action : fixture.window->findChildren<QAction*>()) {
            const QString key = action->shortcut().toString();
            if (key.isEmpty() || fixture.window->findSubWindow(fixture.child)
                                     ->systemMenu()
                                     ->actions()
                                     .contains(action))
                continue;
            QVERIFY2(!owners.contains(key), qPrintable(key + action->text() + owners.value(key)));
            owners.insert(key, action->text());
        }
        QVERIFY(owners.size() >= 15);
    }

    void zoomOfTheSelectionForwardsToTheDocument()
    {
        WindowFixture fixture;
        fixture.addLine(600, 600, 1200, 1200)->tagged = true;
        findAction(fixture.window.get(), "Zoom to selection", "Zoom to selection")->trigger();
        QVERIFY(fixture.context->zoom > 2);
        QCOMPARE(zoomBox(fixture.window.get())->currentText(),
                 QString("%1%").arg(qRound(fixture.context->zoom * 100)));
        findAction(fixture.window.get(), "Zoom to selection (revert)", "Zoom to selection")
            ->trigger();
        QCOMPARE(fixture.context->zoom, 1.0f);
        QCOMPARE(zoomBox(fixture.window.get())->currentText(), QString("100%"));
    }

    // --- menus and tool bars ----------------------------------------------------

    void menuBarHoldsItsMenus()
    {
        WindowFixture fixture;
        QCOMPARE(textsOf(fixture.window->menuBar()),
                 QStringList(
                     {"File", "Edit", "View", "Script", "Preferences", "&Window", "-", "&Help"}));
        QCOMPARE(textsOf(menuOf(fixture.window->menuBar(), "&Help")),
                 QStringList({"&About", "About &Qt"}));
        QCOMPARE(textsOf(menuOf(fixture.window->menuBar(), "Script")), QStringList("Refresh menu"));
        const QMenu* edit = menuOf(fixture.window->menuBar(), "Edit");
        QCOMPARE(textsOf(menuOf(edit, "Compound")),
                 QStringList({"Create", "Break", "Open", "Close"}));
        QCOMPARE(textsOf(menuOf(edit, "Align")).filter("Align").size(), 7);
    }

    void toolBarsFitTheDefaultSizeOfTheWindow()
    {
        WindowFixture fixture({650, 700});
        QHash<int, int> widths;
        for (const QToolBar* bar : fixture.window->findChildren<QToolBar*>()) {
            QVERIFY(bar->isMovable());
            QVERIFY(!bar->windowTitle().isEmpty());
            widths[bar->y()] += bar->sizeHint().width();
        }
        QCOMPARE(widths.size(), 2);
        for (const int width : widths)
            QVERIFY2(width <= 650, qPrintable(QString::number(width)));
    }

    void everyButtonAndFieldHasAnAccessibleName()
    {
        WindowFixture fixture;
        fixture.window->newFile();
        fixture.window->onOpenConsoleView();
        const AboutDlg about(fixture.window.get());
        for (const QWidget* window : {static_cast<const QWidget*>(fixture.window.get()),
                                      static_cast<const QWidget*>(&about)}) {
            QVERIFY(!window->findChildren<QAbstractButton*>().isEmpty());
            QCOMPARE(namelessOf<QAbstractButton>(window).join(';'), QString());
            QCOMPARE(namelessOf<QComboBox>(window), QStringList());
            QCOMPARE(namelessOf<QLineEdit>(window), QStringList());
            QCOMPARE(namelessOf<QTextEdit>(window), QStringList());
        }
    }

    void aButtonWithoutANameWouldBeFound()
    {
        QWidget window;
        const QToolButton button(&window);
        QCOMPARE(namelessOf<QAbstractButton>(&window).size(), 1);
    }

    void windowHasTheIconInManySizes()
    {
        const WindowFixture fixture;
        for (const int size : {16, 24, 32, 48, 64, 128, 256})
            QCOMPARE(fixture.window->windowIcon().actualSize({size, size}), QSize(size, size));
    }

    // --- tool row: constraints --------------------------------------------------

    void constraintTellsItselfAndSetsItsModes_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QList<int>>("modes"); // manhattan, mountain, LaTeX line, LaTeX arrow
        QTest::newRow("none") << "unconstraint"
                              << "UNCONSTRAINT geometry (for POLYLINE and SPLINE)"
                              << QList<int>{0, 0, 0, 0};
        QTest::newRow("mounthattan")
            << "mounthattan"
            << "MOUNT-HATTAN geometry (for POLYLINE and SPLINE)" << QList<int>{1, 1, 0, 0};
        QTest::newRow("manhattan")
            << "manhattan"
            << "MANHATTAN geometry (for POLYLINE and SPLINE)" << QList<int>{1, 0, 0, 0};
        QTest::newRow("mountain") << "mountain"
                                  << "MOUNTAIN geometry (for POLYLINE and SPLINE)"
                                  << QList<int>{0, 1, 0, 0};
        QTest::newRow("arrow") << "latex arrow"
                               << "LATEX ARROW geometry: allow only LaTeX arrow slopes"
                               << QList<int>{0, 0, 0, 1};
        QTest::newRow("line") << "latex line"
                              << "LATEX LINE geometry: allow only LaTeX line slopes"
                              << QList<int>{0, 0, 1, 0};
    }

    void constraintTellsItselfAndSetsItsModes()
    {
        QFETCH(QString, text);
        QFETCH(QString, message);
        QFETCH(QList<int>, modes);
        WindowFixture fixture;
        QToolButton* button = toolButton(fixture.window.get(), "constraint");
        QAction* item = nullptr;
        for (QAction* candidate : button->menu()->actions())
            if (candidate->text() == text)
                item = candidate;
        QVERIFY(item);
        QVERIFY(!item->icon().availableSizes().isEmpty());
        manhattan_mode = mountain_mode = latexline_mode = latexarrow_mode = 1;
        for (int time = 0; time < 2; ++time) {
            item->trigger();
            QCOMPARE((QList<int>{manhattan_mode, mountain_mode, latexline_mode, latexarrow_mode}),
                     modes);
            QCOMPARE(fixture.window->statusBar()->currentMessage(), message);
            QCOMPARE(button->icon().pixmap(24).toImage(), item->icon().pixmap(24).toImage());
            message_line.clear();
        }
    }

    void constraintButtonOffersSix()
    {
        WindowFixture fixture;
        const QToolButton* button = toolButton(fixture.window.get(), "constraint");
        QCOMPARE(button->toolTip(), QString("Constraint mode for line angles"));
        QCOMPARE(textsOf(button->menu()), QStringList({"unconstraint", "mounthattan", "manhattan",
                                                       "mountain", "latex arrow", "latex line"}));
    }

    // --- tool row: zoom ---------------------------------------------------------

    void zoomBoxHoldsItsEntries()
    {
        WindowFixture fixture;
        const QComboBox* box = zoomBox(fixture.window.get());
        QStringList entries;
        for (int index = 0; index < box->count(); ++index)
            entries.append(box->itemText(index));
        QCOMPARE(entries,
                 QStringList({"zoom to fit", "10%", "25%", "75%", "100%", "150%", "200%", "500%"}));
        QVERIFY(box->isEditable());
        QCOMPARE(box->currentText(), QString("100%"));
    }

    void zoomEntrySetsTheZoom()
    {
        WindowFixture fixture;
        QComboBox* box = zoomBox(fixture.window.get());
        box->setCurrentIndex(box->findText("200%"));
        QCOMPARE(fixture.context->zoom, 2.0f);
        QCOMPARE(box->currentText(), QString("200%"));
        QCOMPARE(box->findText("50%"), -1);
        box->setCurrentIndex(-1);
        QCOMPARE(fixture.context->zoom, 2.0f);
    }

    void typedZoomIsReadAndLimited_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<float>("zoom");
        QTest::addColumn<QString>("shown");
        QTest::newRow("percent") << "130%" << 1.3f << "130%";
        QTest::newRow("number") << "42" << 0.42f << "42%";
        QTest::newRow("rounded to whole percents") << "33.3" << 0.33f << "33%";
        QTest::newRow("nothing") << "0" << 0.01f << "1%";
        QTest::newRow("negative") << "-50%" << 0.01f << "1%";
        QTest::newRow("huge") << "1000000%" << 99.99f << "9999%";
        QTest::newRow("endless") << "inf" << 1.0f << "100%";
        QTest::newRow("words") << "large" << 1.0f << "100%";
        QTest::newRow("an entry") << "200%" << 2.0f << "200%";
    }

    void typedZoomIsReadAndLimited()
    {
        QFETCH(QString, typed);
        QFETCH(float, zoom);
        QFETCH(QString, shown);
        WindowFixture fixture;
        typeZoom(fixture.window.get(), typed);
        QCOMPARE(fixture.context->zoom, zoom);
        QCOMPARE(zoomBox(fixture.window.get())->currentText(), shown);
    }

    void afterTypingAZoomTheKeysAreTheDocumentsAgain()
    {
        WindowFixture fixture;
        QApplication::setActiveWindow(fixture.window.get());
        zoomBox(fixture.window.get())->setFocus();
        QVERIFY(zoomBox(fixture.window.get())->hasFocus());
        typeZoom(fixture.window.get(), "120%");
        QCOMPARE(fixture.window->focusWidget(), fixture.child);
    }

    void zoomToFitShowsTheWholeFigure()
    {
        WindowFixture fixture;
        fixture.addLine(3000, 3000, 27000, 9000);
        zoomBox(fixture.window.get())->setCurrentIndex(0);
        const QSize view = fixture.child->viewport()->size();
        // 24000 units at 80 dots per inch are 1600 pixels at zoom 1; the line's ends add little.
        const float wide = (view.width() - 60) / 1600.0f;
        QVERIFY(qAbs(fixture.context->zoom - wide) < 0.02f);
        QCOMPARE(zoomBox(fixture.window.get())->currentText(),
                 QString("%1%").arg(qRound(fixture.context->zoom * 100)));
    }

    void zoomToFitOfAnEmptyFigureDoesNothing()
    {
        WindowFixture fixture;
        fixture.window->zoomIn();
        zoomBox(fixture.window.get())->setCurrentIndex(0);
        QCOMPARE(fixture.context->zoom, 1.1f);
        QCOMPARE(zoomBox(fixture.window.get())->currentText(), QString("110%"));
    }

    void zoomBoxFollowsTheActiveDocument()
    {
        WindowFixture fixture;
        const QComboBox* box = zoomBox(fixture.window.get());
        fixture.window->zoomIn();
        QCOMPARE(box->currentText(), QString("110%"));
        fixture.window->newFile();
        QCOMPARE(box->currentText(), QString("100%"));
        fixture.window->setActiveSubWindow(fixture.window->findSubWindow(fixture.child));
        QCOMPARE(box->currentText(), QString("110%"));
        fixture.wheel(-120, Qt::ControlModifier);
        QCOMPARE(box->currentText(), QString("100%"));
    }

    void withoutADocumentTheZoomBoxDoesNothing()
    {
        WindowFixture fixture;
        fixture.window->closeActiveChild();
        for (int index = 0; index < zoomBox(fixture.window.get())->count(); ++index)
            zoomBox(fixture.window.get())->setCurrentIndex(index);
        typeZoom(fixture.window.get(), "50%");
        QVERIFY(!fixture.window->activeMdiChild());
    }

    // --- tool row: grid and snapping --------------------------------------------

    void gridButtonOffersTheGrids()
    {
        WindowFixture fixture;
        const QToolButton* button = toolButton(fixture.window.get(), "grid");
        QCOMPARE(button->toolTip(), QString("Select grid size"));
        QCOMPARE(textsOf(button->menu()),
                 QStringList({"None", "Small", "Medium", "Large", "Small isometric",
                              "Medium isometric", "Large isometric"}));
        for (const QAction* item : button->menu()->actions())
            QVERIFY2(!item->icon().availableSizes().isEmpty(), qPrintable(item->text()));
    }

    void chosenGridIsThatOfTheDocumentAndOfNewOnes()
    {
        WindowFixture fixture;
        const QToolButton* button = toolButton(fixture.window.get(), "grid");
        button->menu()->actions()[3]->trigger();
        QCOMPARE(fixture.context->gridIndex, 3);
        QVERIFY(fixture.context->gridOn);
        QCOMPARE(gridPreferences.gridIndex, 3);
        QVERIFY(gridPreferences.gridOn);
        QCOMPARE(message_line, QString("Two centimeter GRID"));
        QCOMPARE(button->icon().pixmap(24).toImage(),
                 button->menu()->actions()[3]->icon().pixmap(24).toImage());
        fixture.context->metric = false;
        fixture.window->setGrid(1, fixture.context);
        QCOMPARE(message_line, QString("Half inch GRID"));
        fixture.window->setGrid(0, nullptr);
        QVERIFY(!fixture.context->gridOn);
        QVERIFY(!gridPreferences.gridOn);
        QCOMPARE(message_line, QString("No GRID"));
    }

    void customGridTellsItsStep()
    {
        WindowFixture fixture;
        gridDefinitions.append(makeGridDefinition("Mine", "", 0.25f, Qt::gray, Qt::DotLine, ""));
        fixture.window->setGrid(7, nullptr);
        QCOMPARE(message_line, QString("Custom grid with step size 0.25"));
        fixture.window->setGrid(8, nullptr);
        QCOMPARE(fixture.context->gridIndex, 7);
        delete gridDefinitions.takeLast();
    }

    void snapModesAreSetOneByOne()
    {
        WindowFixture fixture;
        const QToolButton* button = toolButton(fixture.window.get(), "snap");
        QCOMPARE(button->toolTip(), QString("Set snap mode"));
        const QList<QAction*> items = button->menu()->actions();
        QCOMPARE(textsOf(button->menu()), QStringList({"Snap to grid", "Snap to vertex"}));
        items[0]->trigger();
        QCOMPARE(gridPreferences.snapMode, 1);
        QCOMPARE(message_line, QString("Snap points to grid"));
        QVERIFY(button->isChecked());
        items[1]->trigger();
        QCOMPARE(gridPreferences.snapMode, 3);
        QCOMPARE(message_line, QString("Snap points to vertex"));
        items[0]->trigger();
        QCOMPARE(gridPreferences.snapMode, 2);
        QVERIFY(button->isChecked());
        items[1]->trigger();
        QCOMPARE(gridPreferences.snapMode, 0);
        QVERIFY(!button->isChecked());
    }

    void snapModesNeedADocument()
    {
        WindowFixture fixture;
        fixture.window->closeActiveChild();
        message_line.clear();
        const QToolButton* button = toolButton(fixture.window.get(), "snap");
        for (QAction* item : button->menu()->actions()) {
            item->trigger();
            QVERIFY(!item->isChecked());
        }
        QCOMPARE(gridPreferences.snapMode, 0);
        QCOMPARE(message_line, QString());
        QVERIFY(!button->isChecked());
    }

    void gridAndSnapButtonsAreLive()
    {
        WindowFixture fixture;
        for (const char* name : {"constraint", "grid", "snap"})
            QVERIFY(toolButton(fixture.window.get(), name)->isEnabled());
    }

    // 80 / 2.54 = 31.5 pixels: the first column of the medium grid.
    void aChosenGridIsDrawnAtOnce()
    {
        WindowFixture fixture;
        const auto isInked = [&] {
            const QImage canvas = fixture.child->viewport()->grab().toImage();
            int inked = 0;
            for (int y = 0; y < 90; ++y)
                inked += canvas.pixelColor(31, y) == gridPreferences.gridColour;
            return inked == 30; // dotted: one pixel in three
        };
        QVERIFY(!isInked());
        fixture.window->setGrid(2, nullptr);
        QVERIFY(isInked());
        fixture.window->setGrid(0, nullptr);
        QVERIFY(!isInked());
    }

    void theGridButtonShowsTheGridOfTheActiveDocument()
    {
        WindowFixture fixture;
        const QToolButton* button = toolButton(fixture.window.get(), "grid");
        const auto shown = [button] {
            const QImage icon = button->icon().pixmap(24).toImage();
            const QList<QAction*> items = button->menu()->actions();
            for (int index = 0; index < items.size(); ++index)
                if (items[index]->icon().pixmap(24).toImage() == icon)
                    return index;
            return -1;
        };
        QCOMPARE(shown(), 0); // the preference is the medium grid, but switched off
        fixture.window->setGrid(3, nullptr);
        QMdiSubWindow* first = fixture.window->findChild<QMdiArea*>()->activeSubWindow();
        fixture.window->newFile();
        QCOMPARE(shown(), 3); // a new document takes the last choice over
        fixture.window->setGrid(5, nullptr);
        fixture.window->setActiveSubWindow(first);
        QCOMPARE(shown(), 3);
        QCOMPARE(fixture.context->gridIndex, 3);
    }

    void theSnapButtonShowsTheStoredMode()
    {
        gridPreferences.snapMode = 2;
        WindowFixture fixture;
        const QToolButton* button = toolButton(fixture.window.get(), "snap");
        QVERIFY(button->isChecked());
        QVERIFY(!button->menu()->actions()[0]->isChecked());
        QVERIFY(button->menu()->actions()[1]->isChecked());
    }

    // --- console, About box -----------------------------------------------------

    void consoleOpensByItsActionAndIsCleared()
    {
        WindowFixture fixture;
        const auto* console = fixture.window->findChild<QDockWidget*>("consoleDock");
        QVERIFY(console->isHidden());
        findAction(fixture.window.get(), "Open Console View", "Open Console View")->trigger();
        QVERIFY(console->isVisible());
        auto* log = console->findChild<QTextEdit*>("logView");
        QVERIFY(log->isReadOnly());
        QCOMPARE(log->document(), fixture.window->logDocument());
        fixture.window->logDocument()->setPlainText("a line");
        auto* button = console->findChild<QAbstractButton*>("clearLog");
        QCOMPARE(button->text(), QString("Clear log"));
        button->click();
        QVERIFY(fixture.window->logDocument()->isEmpty());
    }

    void aboutBoxTellsVersionAndDate()
    {
        WindowFixture fixture;
        DialogDriver user;
        QString text;
        bool hasIcon = false;
        user.inspect([&](QWidget* dialog) {
            const auto labels = dialog->findChildren<QLabel*>();
            for (const QLabel* label : labels) {
                text += label->text();
                hasIcon = hasIcon || (label->pixmap(Qt::ReturnByValue).width() > 0);
            }
        });
        findAction(fixture.window.get(), "&About", "Show the application's About box")->trigger();
        QVERIFY(user.isDone());
        QCOMPARE(user.seen, QStringList("About Orvalt"));
        QVERIFY(text.contains("Version " + getOrvaltVersionString(true)));
        QVERIFY(text.contains(ORVALT_DATE));
        QVERIFY(hasIcon);
    }

    void aboutQtComesUp()
    {
        WindowFixture fixture;
        DialogDriver user;
        user.reject();
        findAction(fixture.window.get(), "About &Qt", "Show the Qt library's About box")->trigger();
        QVERIFY(user.isDone());
        QVERIFY(user.seen.value(0).startsWith("About Qt"));
    }

private:
    TestStore store;
};

QTEST_MAIN(TestMainActions)
#include "test_main_actions.moc"
