// The list of recent files: its order, its limits, and what the File menu makes of it.
#include "WindowFixture.h"

#include <QDir>
#include <QMenuBar>
#include <QSettings>

namespace {

QStringList stored()
{
    return QSettings("Orvalt", "Orvalt").value("recentFileList").toStringList();
}

void store(const QStringList& files)
{
    QSettings("Orvalt", "Orvalt").setValue("recentFileList", files);
}

QMenu* fileMenu(const QTMainFrm* window)
{
    return window->menuBar()->actions()[0]->menu();
}

/// What the end of the File menu shows, from "Properties..." on, "-" for a line.
QStringList shown(const QTMainFrm* window)
{
    QStringList texts;
    for (const QAction* action : fileMenu(window)->actions())
        if (action->isVisible())
            texts.append(action->isSeparator() ? "-" : action->text());
    return texts.mid(texts.indexOf("Properties...") + 1);
}

QAction* entry(const QTMainFrm* window, const QString& text)
{
    for (QAction* action : fileMenu(window)->actions())
        if (action->text() == text && action->isVisible())
            return action;
    return nullptr;
}

QStringList numbered(int count)
{
    QStringList names;
    for (int number = 1; number <= count; ++number)
        names.append(QString("/nowhere/%1.fig").arg(number));
    return names;
}

} // namespace

class TestRecentFiles : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { settings.make(); }

    void init() { settings.renew(); }

    void cleanup() { settings.leave(); }

    void withoutRecentFilesOnlyOneLineStandsBeforeExit()
    {
        WindowFixture fixture;
        QCOMPARE(shown(fixture.window.get()), QStringList({"-", "Exit"}));
    }

    void oneRecentFileStandsBetweenTwoLines()
    {
        WindowFixture fixture;
        fixture.window->updateRecentFiles("/nowhere/plan.fig");
        QCOMPARE(shown(fixture.window.get()), QStringList({"-", "&1 plan.fig", "-", "Exit"}));
        QCOMPARE(entry(fixture.window.get(), "&1 plan.fig")->data().toString(),
                 QString("/nowhere/plan.fig"));
    }

    void newestStandsFirstAndOnlySixStay()
    {
        WindowFixture fixture;
        for (const QString& name : numbered(8))
            fixture.window->updateRecentFiles(name);
        QCOMPARE(stored(), QStringList({"/nowhere/8.fig", "/nowhere/7.fig", "/nowhere/6.fig",
                                        "/nowhere/5.fig", "/nowhere/4.fig", "/nowhere/3.fig"}));
        QCOMPARE(shown(fixture.window.get()),
                 QStringList({"-", "&1 8.fig", "&2 7.fig", "&3 6.fig", "&4 5.fig", "&5 4.fig",
                              "&6 3.fig", "-", "Exit"}));
    }

    void fileThatIsListedAlreadyMovesToTheFront()
    {
        WindowFixture fixture;
        for (const char* name : {"/nowhere/1.fig", "/nowhere/2.fig", "/nowhere/1.fig"})
            fixture.window->updateRecentFiles(name);
        QCOMPARE(stored(), QStringList({"/nowhere/1.fig", "/nowhere/2.fig"}));
    }

    void everyOccurrenceOfTheNameIsRemoved()
    {
        store({"/nowhere/1.fig", "/nowhere/2.fig", "/nowhere/1.fig"});
        WindowFixture fixture;
        fixture.window->updateRecentFiles("/nowhere/1.fig");
        QCOMPARE(stored(), QStringList({"/nowhere/1.fig", "/nowhere/2.fig"}));
    }

    void longerListsOfTheStoreShowSixAtMost()
    {
        store(numbered(9));
        WindowFixture fixture;
        QCOMPARE(shown(fixture.window.get()).size(), 1 + 6 + 2);
    }

    void shorterListHidesTheRest()
    {
        store(numbered(4));
        WindowFixture fixture;
        QCOMPARE(shown(fixture.window.get()).size(), 1 + 4 + 2);
        store(numbered(1));
        fixture.window->updateRecentFileActions();
        QCOMPARE(shown(fixture.window.get()), QStringList({"-", "&1 1.fig", "-", "Exit"}));
    }

    void openedFileIsListedFirst()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        fixture.window->openFile(QFile::encodeName(writeFigure(directory, "a.fig")).data());
        fixture.window->openFile(QFile::encodeName(writeFigure(directory, "b.fig")).data());
        QCOMPARE(stored(), QStringList({directory.filePath("b.fig"), directory.filePath("a.fig")}));
    }

    void entryOpensItsFile()
    {
        QTemporaryDir directory;
        store({writeFigure(directory, "a.fig"), writeFigure(directory, "b.fig")});
        WindowFixture fixture;
        entry(fixture.window.get(), "&2 b.fig")->trigger();
        QCOMPARE(fixture.window->activeMdiChild()->windowTitle(), QString("b.fig[*]"));
        QCOMPARE(stored()[0], directory.filePath("b.fig"));
    }

    void entryActivatesAFileThatIsOpenAlready()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        fixture.window->openFile(QFile::encodeName(writeFigure(directory, "a.fig")).data());
        QTChildFrm* opened = fixture.window->activeMdiChild();
        fixture.window->newFile();
        entry(fixture.window.get(), "&1 a.fig")->trigger();
        QCOMPARE(fixture.window->activeMdiChild(), opened);
        QCOMPARE(fixture.window->getChilds(QMdiArea::CreationOrder).size(), 3);
    }

    void fileThatIsGoneStaysInTheList()
    {
        store({"/nowhere/gone.fig"});
        WindowFixture fixture;
        entry(fixture.window.get(), "&1 gone.fig")->trigger();
        QCOMPARE(fixture.window->getChilds(QMdiArea::CreationOrder).size(), 1);
        QVERIFY(message_line.contains("/nowhere/gone.fig"));
        QCOMPARE(stored(), QStringList("/nowhere/gone.fig"));
        QVERIFY(entry(fixture.window.get(), "&1 gone.fig"));
    }

    void fileThatCannotBeReadIsNotListed()
    {
        WindowFixture fixture;
        fixture.window->openFile(QByteArray("/nowhere/gone.fig").data());
        QCOMPARE(stored(), QStringList());
    }

private:
    TestStore settings;
};

QTEST_MAIN(TestRecentFiles)
#include "test_recent_files.moc"
