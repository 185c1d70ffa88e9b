// Documents, menus, status line and geometry of the main window.
#include "WindowFixture.h"

#include "ui/QRuler.h"

#include <QDir>
#include <QFileDialog>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>

namespace {

/// Stands for a user who cancels at a question on closing.
class Refusal : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Close)
            return false;
        event->ignore();
        return true;
    }
};

int numberOf(const QTChildFrm* child)
{
    return child->curFile.mid(8).section('.', 0, 0).toInt();
}

QAction* actionOf(QTMainFrm* window, const QString& text)
{
    for (QAction* action : window->findChildren<QAction*>())
        if (action->text() == text)
            return action;
    return nullptr;
}

QMenu* menuOf(QTMainFrm* window, const QString& title)
{
    for (QAction* action : window->menuBar()->actions())
        if (action->text() == title)
            return action->menu();
    return nullptr;
}

QStringList textsOf(const QMenu* menu)
{
    QStringList texts;
    for (const QAction* action : menu->actions())
        if (action->isVisible())
            texts.append(action->isSeparator() ? "-" : action->text());
    return texts;
}

QByteArray encoded(const QString& path)
{
    return QFile::encodeName(path);
}

/// Answers the open dialog that comes up next; an empty name cancels it.
/// Tells the directory that the dialog offered.
void openThroughDialog(QTMainFrm* window, const QString& fileName, QString* offered = nullptr)
{
    QTimer::singleShot(0, window, [=] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        if (offered)
            *offered = dialog->directory().absolutePath();
        if (fileName.isEmpty()) {
            dialog->reject();
            return;
        }
        dialog->setDirectory(QFileInfo(fileName).path());
        dialog->selectFile(fileName);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    window->open();
}

QList<CFigContext*> redrawn;

/// Stands for a gesture's feedback, which each full redraw replays once.
void recordRedraw(CFigContext* ctx, int, int, int, int)
{
    redrawn.append(ctx);
}

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }

    void init() { store.renew(); }

    void cleanup() { store.leave(); }

    // --- documents --------------------------------------------------------------

    void startsWithOneMaximisedEmptyDocument()
    {
        WindowFixture fixture;
        QCOMPARE(fixture.window->getChilds(QMdiArea::CreationOrder).size(), 1);
        QVERIFY(fixture.child->isUntitled);
        QVERIFY(QRegExp("document\\d+\\.fig").exactMatch(fixture.child->curFile));
        QCOMPARE(fixture.child->windowTitle(), fixture.child->curFile + "[*]");
        QVERIFY(fixture.window->findSubWindow(fixture.child)->isMaximized());
        QVERIFY(fixture.context->drawing.objects.isEmpty());
    }

    void documentNumbersGrowAndAreNeverUsedAgain()
    {
        WindowFixture fixture;
        const int first = numberOf(fixture.child);
        QVERIFY(first >= 1);
        fixture.window->closeActiveChild();
        QCOMPARE(numberOf(fixture.window->newFile()), first + 1);
        QCOMPARE(numberOf(fixture.window->newFile()), first + 2);
    }

    void fileOpensInAWindowOfItsOwn()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        fixture.window->openFile(encoded(writeFigure(directory, "house.fig")).data());
        const QList<QTChildFrm*> children = fixture.window->getChilds(QMdiArea::CreationOrder);
        QCOMPARE(children.size(), 2);
        QTChildFrm* opened = children[1];
        QCOMPARE(fixture.window->activeMdiChild(), opened);
        QCOMPARE(opened->windowTitle(), QString("house.fig[*]"));
        QVERIFY(!opened->isUntitled);
        QVERIFY(!opened->isWindowModified());
        QCOMPARE(opened->figContext->drawing.objects.size(), 1);
        QCOMPARE(opened->curFile, QFileInfo(directory.filePath("house.fig")).canonicalFilePath());
        QCOMPARE(QDir::current().canonicalPath(), QDir(directory.path()).canonicalPath());
        QCOMPARE(getFigContext(), opened->figContext);
        QVERIFY(fixture.window->windowTitle().contains("house.fig") ||
                fixture.window->findSubWindow(opened)->windowTitle().contains("house.fig"));
    }

    void openedFigureIsDrawnOnce_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("both scroll bars") << QSize(520, 500);
        QTest::newRow("one scroll bar") << QSize(720, 600);
        QTest::newRow("no scroll bar") << QSize(1200, 1200);
    }

    void openedFigureIsDrawnOnce()
    {
        QFETCH(QSize, size);
        QTemporaryDir directory;
        WindowFixture fixture(size);
        set_action_on();
        elastic_proc = recordRedraw;
        redrawn.clear();
        fixture.window->openFile(encoded(writeFigure(directory, "house.fig")).data());
        QTest::qWait(20);
        QCOMPARE(redrawn.count(fixture.window->activeMdiChild()->figContext), 1);
    }

    void messageOfTheReaderStandsInTheStatusLine()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        QCOMPARE(fixture.window->statusBar()->currentMessage(), QString("Ready"));
        fixture.window->openFile(encoded(writeFigure(directory, "house.fig")).data());
        QVERIFY(!message_line.isEmpty());
        QCOMPARE(fixture.window->statusBar()->currentMessage(), message_line);
        QVERIFY(message_line.contains("1 objects"));
    }

    void unitsOfTheFileReachTheRulers()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        fixture.window->openFile(encoded(writeFigure(directory, "inches.fig", "Inches")).data());
        QVERIFY(!fixture.window->activeMdiChild()->figContext->metric);
        QCOMPARE(fixture.window->activeMdiChild()->findChildren<QRuler*>()[0]->getRulerUnit(), 0.8);
    }

    void failedOpenLeavesTheOtherDocuments()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        fixture.window->openFile(encoded(directory.filePath("absent.fig")).data());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(fixture.window->getChilds(QMdiArea::CreationOrder),
                 QList<QTChildFrm*>{fixture.child});
        QCOMPARE(fixture.window->findChildren<QMdiSubWindow*>().size(), 1);
        QCOMPARE(fixture.window->activeMdiChild(), fixture.child);
        QCOMPARE(QDir::currentPath(), store.startDirectory);
    }

    void documentIsFoundByAnyNameOfItsFile()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        const QString path = writeFigure(directory, "house.fig");
        QVERIFY(QFile::link(path, directory.filePath("link.fig")));
        fixture.window->openFile(encoded(path).data());
        QMdiSubWindow* window = fixture.window->findSubWindow(fixture.window->activeMdiChild());
        QVERIFY(window);
        QCOMPARE(fixture.window->findMdiChild(path), window);
        QCOMPARE(fixture.window->findMdiChild(directory.filePath("link.fig")), window);
        QCOMPARE(fixture.window->findMdiChild("house.fig"), window);
        QVERIFY(!fixture.window->findMdiChild(directory.filePath("absent.fig")));
        QVERIFY(!fixture.window->findMdiChild(QString()));
    }

    void currentFileIsThatOfTheActiveDocument()
    {
        WindowFixture fixture;
        QCOMPARE(fixture.window->currentFile(), fixture.child->curFile);
        fixture.window->setCurrentFile("/nowhere/plan.fig");
        QCOMPARE(fixture.child->curFile, QString("/nowhere/plan.fig"));
        QCOMPARE(fixture.child->userFriendlyCurrentFile(), QString("plan.fig"));
        QCOMPARE(fixture.child->windowTitle(), QString("plan.fig[*]"));
        fixture.window->closeActiveChild();
        fixture.window->setCurrentFile("/nowhere/other.fig");
        QCOMPARE(fixture.window->currentFile(), QString());
    }

    void modifiedMarkShowsInTheTitle()
    {
        WindowFixture fixture;
        fixture.context->setModifiedflag();
        QVERIFY(fixture.child->isWindowModified());
        fixture.child->setCurrentFile(fixture.child->curFile);
        QVERIFY(!fixture.child->isWindowModified());
    }

    // --- the open dialog --------------------------------------------------------

    void dialogOpensAFileAndRemembersItsDirectory()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        openThroughDialog(fixture.window.get(), writeFigure(directory, "house.fig"));
        QCOMPARE(fixture.window->activeMdiChild()->windowTitle(), QString("house.fig[*]"));
        QDir::setCurrent(store.startDirectory);
        QString offered;
        openThroughDialog(fixture.window.get(), QString(), &offered);
        QCOMPARE(offered, directory.path());
    }

    void fileOfTheCommandLineSetsTheDirectoryOfTheDialogToo()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        fixture.window->openFile(encoded(writeFigure(directory, "house.fig")).data());
        QDir::setCurrent(store.startDirectory);
        QString offered;
        openThroughDialog(fixture.window.get(), QString(), &offered);
        QCOMPARE(offered, directory.path());
    }

    void cancelledDialogDoesNothing()
    {
        WindowFixture fixture;
        openThroughDialog(fixture.window.get(), QString());
        QCOMPARE(fixture.window->getChilds(QMdiArea::CreationOrder).size(), 1);
    }

    void fileThatIsOpenAlreadyIsActivatedAndNotReadAgain()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        const QString path = writeFigure(directory, "house.fig");
        fixture.window->openFile(encoded(path).data());
        QTChildFrm* opened = fixture.window->activeMdiChild();
        const FigObject* object = opened->figContext->drawing.objects.first();
        fixture.window->setActiveSubWindow(fixture.window->findSubWindow(fixture.child));
        QCOMPARE(fixture.window->activeMdiChild(), fixture.child);
        openThroughDialog(fixture.window.get(), path);
        QCOMPARE(fixture.window->activeMdiChild(), opened);
        QCOMPARE(fixture.window->getChilds(QMdiArea::CreationOrder).size(), 2);
        QCOMPARE(opened->figContext->drawing.objects.first(), object);
    }

    // --- closing ----------------------------------------------------------------

    void closingKeepsTheWindowAndWhatWasNotClosedYet()
    {
        WindowFixture fixture;
        QTChildFrm* second = fixture.window->newFile();
        QTChildFrm* third = fixture.window->newFile();
        Refusal refusal;
        second->installEventFilter(&refusal);
        QVERIFY(!fixture.window->close());
        QVERIFY(fixture.window->isVisible());
        QCOMPARE(fixture.window->getChilds(QMdiArea::CreationOrder),
                 (QList<QTChildFrm*>{second, third}));
        second->removeEventFilter(&refusal);
        QVERIFY(fixture.window->close());
    }

    void closingStoresPositionAndFrameSize()
    {
        WindowFixture fixture;
        fixture.window->move(30, 40);
        fixture.window->resize(620, 540);
        QCoreApplication::processEvents();
        const QSize frame = fixture.window->frameGeometry().size();
        const QPoint position = fixture.window->pos();
        QVERIFY(fixture.window->close());
        const QSettings settings("Orvalt", "Orvalt");
        QCOMPARE(settings.value("window position").toPoint(), position);
        QCOMPARE(settings.value("window size").toSize(), frame);
    }

    void geometryStartsAtItsDefaultsOrAsStored()
    {
        {
            const QTMainFrm window;
            QCOMPARE(window.pos(), QPoint(100, 50));
            QCOMPARE(window.size(), QSize(650, 700));
        }
        QSettings("Orvalt", "Orvalt").setValue("window position", QPoint(11, 22));
        QSettings("Orvalt", "Orvalt").setValue("window size", QSize(555, 444));
        const QTMainFrm window;
        QCOMPARE(window.pos(), QPoint(11, 22));
        QCOMPARE(window.size(), QSize(555, 444));
    }

    void mainWindowIsNullWhileItIsTornDown()
    {
        {
            WindowFixture fixture;
            QCOMPARE(mainWnd, fixture.window.get());
            QVERIFY(getFigContext());
        }
        QVERIFY(!mainWnd);
        QVERIFY(!getFigContext());
        put_msg("nobody listens");
        QCOMPARE(message_line, QString("nobody listens"));
    }

    // --- menus and status line --------------------------------------------------

    void fileMenuHoldsItsActions()
    {
        WindowFixture fixture;
        QCOMPARE(textsOf(menuOf(fixture.window.get(), "File")),
                 QStringList({"&New", "&Open...", "-", "&Save", "Save &As...", "-", "Export...",
                              "Export Again", "-", "Close", "Properties...", "-", "Exit"}));
        const QHash<QString, QString> keys = {{"&New", "Ctrl+N"},    {"&Open...", "Ctrl+O"},
                                              {"Close", "Ctrl+F4"},  {"Exit", ""},
                                              {"Zoom in", "Ctrl++"}, {"Zoom out", "Ctrl+-"}};
        for (auto row = keys.begin(); row != keys.end(); ++row)
            QCOMPARE(actionOf(fixture.window.get(), row.key())->shortcut().toString(), row.value());
        QCOMPARE(actionOf(fixture.window.get(), "&New")->toolTip(), QString("Create a new file"));
    }

    void actionsForwardToTheActiveDocument()
    {
        WindowFixture fixture;
        actionOf(fixture.window.get(), "Zoom in")->trigger();
        QCOMPARE(fixture.context->zoom, 1.1f);
        actionOf(fixture.window.get(), "Zoom out")->trigger();
        QCOMPARE(fixture.context->zoom, 1.0f);
        actionOf(fixture.window.get(), "&New")->trigger();
        QCOMPARE(fixture.window->getChilds(QMdiArea::CreationOrder).size(), 2);
        actionOf(fixture.window.get(), "Close")->trigger();
        actionOf(fixture.window.get(), "Close")->trigger();
        QVERIFY(!fixture.window->activeMdiChild());
        for (const char* text : {"Zoom in", "Zoom out", "Close"})
            actionOf(fixture.window.get(), text)->trigger();
    }

    void windowActionsNeedADocument()
    {
        WindowFixture fixture;
        for (const char* text : {"&Tile", "&Cascade", "Ne&xt", "Pre&vious"})
            QVERIFY(actionOf(fixture.window.get(), text)->isEnabled());
        fixture.window->closeActiveChild();
        for (const char* text : {"&Tile", "&Cascade", "Ne&xt", "Pre&vious"})
            QVERIFY(!actionOf(fixture.window.get(), text)->isEnabled());
    }

    void windowMenuListsTheDocuments()
    {
        WindowFixture fixture;
        QTChildFrm* second = fixture.window->newFile();
        QMenu* menu = menuOf(fixture.window.get(), "&Window");
        fixture.window->updateWindowMenu();
        QCOMPARE(textsOf(menu),
                 QStringList({"&Tile", "&Cascade", "-", "Ne&xt", "Pre&vious", "-",
                              "&1 " + fixture.child->curFile, "&2 " + second->curFile}));
        QVERIFY(!menu->actions()[6]->isChecked());
        QVERIFY(menu->actions()[7]->isChecked());
        menu->actions()[6]->trigger();
        QCOMPARE(fixture.window->activeMdiChild(), fixture.child);
    }

    void windowMenuMarksTheFirstNineDocumentsWithKeys()
    {
        WindowFixture fixture;
        QTChildFrm* last = nullptr;
        for (int count = 2; count <= 10; ++count)
            last = fixture.window->newFile();
        fixture.window->updateWindowMenu();
        const QStringList texts = textsOf(menuOf(fixture.window.get(), "&Window"));
        QVERIFY(texts[14].startsWith("&9 "));
        QCOMPARE(texts[15], "10 " + last->curFile);
    }

    void menusDoNotWipeTheStatusLine()
    {
        WindowFixture fixture;
        put_msg("Opened something");
        QStatusTipEvent empty{QString()};
        QCoreApplication::sendEvent(fixture.window.get(), &empty);
        QCOMPARE(fixture.window->statusBar()->currentMessage(), QString("Opened something"));
    }

private:
    TestStore store;
};

QTEST_MAIN(TestMainWindow)
#include "test_main_window.moc"
