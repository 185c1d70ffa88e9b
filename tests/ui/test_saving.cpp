// Saving documents: names, back-ups, marks, and the question about unsaved changes.
#include "DialogDriver.h"
#include "WindowFixture.h"

#include <QDir>
#include <QSettings>
#include <QStatusBar>
#include <QStyle>

#include <csignal>
#include <sys/resource.h>

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(absent)");
}

bool writeContent(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// No file of this process grows beyond a size while this lives, as on a full disk.
class SizeLimit {
public:
    explicit SizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &before);
        oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, oldHandler);
    }

private:
    rlimit before;
    void (*oldHandler)(int);
};

QStringList recentFiles()
{
    return QSettings("Orvalt", "Orvalt").value("recentFileList").toStringList();
}

} // namespace

class TestSaving : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(store.path()));
        store.make();
    }

    void init()
    {
        store.renew();
        directory = std::make_unique<QTemporaryDir>();
        QVERIFY(directory->isValid());
    }

    void cleanup()
    {
        store.leave();
        directory.reset();
    }

    // --- one document -----------------------------------------------------------

    void savedDocumentTakesTheNameAndIsUnmodified()
    {
        WindowFixture fixture;
        fixture.addLine(600, 600, 1200, 1200);
        fixture.context->setModifiedflag();
        const QString path = file("house.fig");
        QVERIFY(fixture.child->saveFile(path));
        QVERIFY(contentOf(path).startsWith("#FIG 3.2"));
        QVERIFY(!fixture.child->isUntitled);
        QVERIFY(!fixture.context->modified);
        QVERIFY(!fixture.child->isWindowModified());
        QVERIFY(!fixture.child->lastWriteFailed());
        QCOMPARE(fixture.child->curFile, QFileInfo(path).canonicalFilePath());
        QCOMPARE(fixture.child->windowTitle(), QString("house.fig[*]"));
        QCOMPARE(QDir::current().canonicalPath(), QDir(directory->path()).canonicalPath());
        QVERIFY(!QApplication::overrideCursor());
        QCOMPARE(message_line, QString("1 object(s) saved in \"%1\"").arg(path));
    }

    void newFileLeavesNoBackup()
    {
        WindowFixture fixture;
        QVERIFY(fixture.child->saveFile(file("new.fig")));
        QCOMPARE(QDir(directory->path()).entryList(QDir::Files), QStringList("new.fig"));
    }

    void secondSaveLeavesTheFirstContentInTheBackup()
    {
        WindowFixture fixture;
        fixture.child->saveFile(file("house.fig"));
        const QByteArray first = contentOf(file("house.fig"));
        fixture.addLine(600, 600, 1200, 1200);
        QVERIFY(fixture.child->save());
        const QByteArray second = contentOf(file("house.fig"));
        QVERIFY(second != first);
        QCOMPARE(contentOf(file("house.fig.bak")), first);
        fixture.addLine(900, 600, 1200, 1200);
        QVERIFY(fixture.child->save());
        QCOMPARE(contentOf(file("house.fig.bak")), second);
    }

    void whatAnotherProgramWroteGoesToTheBackup()
    {
        WindowFixture fixture;
        fixture.child->saveFile(file("house.fig"));
        QVERIFY(writeContent(file("house.fig"), "by another program"));
        fixture.child->save();
        QCOMPARE(contentOf(file("house.fig.bak")), QByteArray("by another program"));
    }

    // --- asking for a name ------------------------------------------------------

    void suffixIsAddedWhereTheNameHasNone_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("saved");
        QTest::newRow("small") << "drawing.fig"
                               << "drawing.fig";
        QTest::newRow("capital") << "drawing.FIG"
                                 << "drawing.FIG";
        QTest::newRow("point") << "drawing."
                               << "drawing.fig";
        QTest::newRow("none") << "drawing"
                              << "drawing.fig";
        QTest::newRow("another") << "drawing.txt"
                                 << "drawing.txt.fig";
        QTest::newRow("inside") << "my.figures"
                                << "my.figures";
        QTest::newRow("in a folder's name") << "old.figs/drawing"
                                            << "old.figs/drawing";
    }

    void suffixIsAddedWhereTheNameHasNone()
    {
        QFETCH(QString, typed);
        QFETCH(QString, saved);
        QVERIFY(QDir(directory->path()).mkdir("old.figs"));
        WindowFixture fixture;
        DialogDriver user;
        user.type(file(typed));
        QVERIFY(fixture.child->saveAs());
        QVERIFY(user.isDone());
        QCOMPARE(user.seen, QStringList("Save As"));
        QVERIFY(QFileInfo(file(saved)).isFile());
        QCOMPARE(fixture.child->curFile, QFileInfo(file(saved)).canonicalFilePath());
    }

    void untitledDocumentAsksForItsName()
    {
        WindowFixture fixture;
        QDir::setCurrent(directory->path());
        const QString name = fixture.child->curFile;
        DialogDriver user;
        user.type(file("plan.fig"));
        QVERIFY(fixture.child->save());
        QVERIFY(user.isDone());
        QCOMPARE(user.offered, QStringList(name));
        QVERIFY(fixture.child->save());
        QCOMPARE(user.seen.size(), 1);
    }

    void cancelledNameChangesNothing()
    {
        WindowFixture fixture;
        fixture.context->setModifiedflag();
        const QString name = fixture.child->curFile;
        DialogDriver user;
        user.reject();
        QVERIFY(!fixture.child->saveAs());
        QVERIFY(user.isDone());
        QCOMPARE(fixture.child->curFile, name);
        QVERIFY(fixture.child->isUntitled);
        QVERIFY(fixture.context->modified);
    }

    void existingFileIsReplacedOnlyIfTheUserWantsIt()
    {
        WindowFixture fixture;
        QVERIFY(writeContent(file("old.fig"), "old"));
        DialogDriver user;
        user.type(file("old.fig"));
        user.press(QMessageBox::Yes);
        QVERIFY(fixture.child->saveAs());
        QVERIFY(user.isDone());
        QCOMPARE(contentOf(file("old.fig.bak")), QByteArray("old"));
    }

    // The suffix comes after the dialog's own question.
    void addedSuffixReplacesAnExistingFileUnasked()
    {
        WindowFixture fixture;
        QVERIFY(writeContent(file("old.fig"), "old"));
        DialogDriver user;
        user.type(file("old"));
        QVERIFY(fixture.child->saveAs());
        QVERIFY(user.isDone());
        QCOMPARE(user.seen.size(), 1);
        QVERIFY(contentOf(file("old.fig")).startsWith("#FIG 3.2"));
        QCOMPARE(contentOf(file("old.fig.bak")), QByteArray("old"));
    }

    // --- a write that fails -----------------------------------------------------

    void failedWriteTakesTheNameAndTheMarkButStaysModified()
    {
        WindowFixture fixture;
        fixture.context->setModifiedflag();
        const QString path = file("no such folder/plan.fig");
        QVERIFY(fixture.child->saveFile(path));
        QVERIFY(message_line.startsWith(QString("Couldn't open file %1, ").arg(path)));
        QCOMPARE(fixture.window->statusBar()->currentMessage(), message_line);
        QVERIFY(fixture.child->lastWriteFailed());
        QVERIFY(fixture.context->modified);
        QVERIFY(!fixture.child->isWindowModified());
        QCOMPARE(fixture.child->curFile, path);
        QVERIFY(!fixture.child->isUntitled);
        QVERIFY(!QApplication::overrideCursor());
    }

    void saveAfterAFailedWriteLeavesTheBackupAlone()
    {
        WindowFixture fixture;
        const QString path = file("house.fig");
        fixture.child->saveFile(path);
        const QByteArray lastGood = contentOf(path);
        for (int x = 0; x < 300; ++x)
            fixture.addLine(x, 600, 1200, 1200);
        {
            const SizeLimit full(4000);
            QVERIFY(lastGood.size() < 4000);
            QVERIFY(fixture.child->save());
        }
        QVERIFY(fixture.child->lastWriteFailed());
        QVERIFY(message_line.startsWith("Couldn't open file"));
        QCOMPARE(contentOf(path), lastGood);
        QCOMPARE(contentOf(path + ".bak"), lastGood);
        QVERIFY(writeContent(path, "torn"));
        QVERIFY(fixture.child->save());
        QVERIFY(!fixture.child->lastWriteFailed());
        QCOMPARE(contentOf(path + ".bak"), lastGood);
        const QByteArray whole = contentOf(path);
        QVERIFY(whole.size() > 4000);
        QVERIFY(fixture.child->save());
        QCOMPARE(contentOf(path + ".bak"), whole);
    }

    void anotherFileGetsItsBackupAlsoAfterAFailedWrite()
    {
        WindowFixture fixture;
        QVERIFY(writeContent(file("other.fig"), "other"));
        fixture.child->saveFile(file("no such folder/plan.fig"));
        QVERIFY(fixture.child->lastWriteFailed());
        fixture.child->saveFile(file("other.fig"));
        QCOMPARE(contentOf(file("other.fig.bak")), QByteArray("other"));
    }

    void closingAsksAgainAfterAFailedWrite()
    {
        WindowFixture fixture;
        fixture.context->setModifiedflag();
        fixture.child->saveFile(file("no such folder/plan.fig"));
        DialogDriver user;
        user.press(QMessageBox::Cancel);
        QVERIFY(!fixture.child->maybeSave());
        QVERIFY(user.isDone());
        QCOMPARE(user.seen, QStringList(question("plan.fig")));
    }

    // --- through the main window ------------------------------------------------

    void onlySaveAsTellsThatTheFileIsSaved()
    {
        WindowFixture fixture;
        DialogDriver user;
        user.type(file("plan.fig"));
        fixture.window->saveAs();
        QVERIFY(user.isDone());
        QCOMPARE(fixture.window->statusBar()->currentMessage(), QString("File saved"));
        // Then the line that lasts is back.
        QTest::qWait(2200);
        QCOMPARE(fixture.window->statusBar()->currentMessage(), message_line);
        fixture.window->save();
        QCOMPARE(fixture.window->statusBar()->currentMessage(), message_line);
        QVERIFY(message_line.contains("saved in"));
    }

    void messageOfAFailedSaveAsStays()
    {
        WindowFixture fixture;
        DialogDriver user;
        user.type(file("plan.fig"));
        const SizeLimit full(10);
        fixture.window->saveAs();
        QVERIFY(user.isDone());
        QVERIFY(fixture.child->lastWriteFailed());
        QVERIFY(message_line.startsWith("Couldn't open file"));
        QCOMPARE(fixture.window->statusBar()->currentMessage(), message_line);
    }

    void savedFileComesFirstInTheRecentList()
    {
        WindowFixture fixture;
        for (const char* name : {"a.fig", "b.fig", "a.fig"}) {
            fixture.child->saveFile(file(name));
            fixture.window->save();
        }
        QCOMPARE(recentFiles(), QStringList({canonical("a.fig"), canonical("b.fig")}));
    }

    void cancelledSaveLeavesTheRecentListAlone()
    {
        WindowFixture fixture;
        DialogDriver user;
        user.reject();
        user.reject();
        fixture.window->save();
        fixture.window->saveAs();
        QVERIFY(user.isDone());
        QCOMPARE(recentFiles(), QStringList());
        QCOMPARE(fixture.window->statusBar()->currentMessage(), QString("Ready"));
    }

    void withoutADocumentNothingIsSaved()
    {
        WindowFixture fixture;
        fixture.window->closeActiveChild();
        DialogDriver user;
        fixture.window->save();
        fixture.window->saveAs();
        QVERIFY(user.seen.isEmpty());
    }

    // --- unsaved changes --------------------------------------------------------

    void unmodifiedDocumentIsNotAskedAbout()
    {
        WindowFixture fixture;
        DialogDriver user;
        QVERIFY(fixture.child->maybeSave());
        QVERIFY(user.seen.isEmpty());
    }

    void questionNamesTheDocumentAndHasNoDefault()
    {
        WindowFixture fixture;
        fixture.child->setCurrentFile("/nowhere/<b>plan.fig");
        fixture.context->setModifiedflag();
        DialogDriver user;
        QMessageBox::StandardButtons buttons = QMessageBox::NoButton;
        user.inspect([&](QWidget* dialog) {
            auto* box = qobject_cast<QMessageBox*>(dialog);
            buttons = box->standardButtons();
            QCOMPARE(box->icon(), QMessageBox::Warning);
            QCOMPARE(box->textFormat(), Qt::PlainText);
            QVERIFY(!box->defaultButton());
        });
        QVERIFY(!fixture.child->maybeSave());
        QVERIFY(user.isDone());
        QCOMPARE(user.seen, QStringList(question("<b>plan.fig")));
        QCOMPARE(buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    }

    void saveIsTheAnswerOfTheSave()
    {
        WindowFixture fixture;
        fixture.child->saveFile(file("plan.fig"));
        const QByteArray before = contentOf(file("plan.fig"));
        fixture.addLine(600, 600, 1200, 1200);
        fixture.context->setModifiedflag();
        DialogDriver user;
        user.press(QMessageBox::Save);
        QVERIFY(fixture.child->maybeSave());
        QVERIFY(user.isDone());
        QVERIFY(contentOf(file("plan.fig")) != before);
        QVERIFY(!fixture.context->modified);
    }

    void saveWithoutANameCanStillBeCancelled()
    {
        WindowFixture fixture;
        fixture.context->setModifiedflag();
        DialogDriver user;
        user.press(QMessageBox::Save);
        user.reject();
        QVERIFY(!fixture.child->maybeSave());
        QVERIFY(user.isDone());
        QCOMPARE(user.seen.value(1), QString("Save As"));
    }

    void discardClosesWithoutSaving()
    {
        WindowFixture fixture;
        fixture.child->saveFile(file("plan.fig"));
        const QByteArray before = contentOf(file("plan.fig"));
        fixture.addLine(600, 600, 1200, 1200);
        fixture.context->setModifiedflag();
        DialogDriver user;
        user.press(QMessageBox::Discard);
        fixture.window->closeActiveChild();
        QVERIFY(user.isDone());
        QVERIFY(!fixture.window->activeMdiChild());
        QCOMPARE(contentOf(file("plan.fig")), before);
    }

    void cancelKeepsTheDocumentButItsButtonsGoOff()
    {
        WindowFixture fixture;
        fixture.context->setModifiedflag();
        QSignalSpy buttons(fixture.child, &QTChildFrm::alignButtonsStateChanged);
        DialogDriver user;
        user.press(QMessageBox::Cancel);
        fixture.window->closeActiveChild();
        QVERIFY(user.isDone());
        QCOMPARE(fixture.window->activeMdiChild(), fixture.child);
        QVERIFY(buttons.contains(QVariantList{false}));
    }

    // The failure has been told; the question is not asked twice.
    void failedSaveAtTheQuestionClosesTheDocument()
    {
        WindowFixture fixture;
        fixture.child->setCurrentFile(file("no such folder/plan.fig"));
        fixture.context->setModifiedflag();
        DialogDriver user;
        user.press(QMessageBox::Save);
        fixture.window->closeActiveChild();
        QVERIFY(user.isDone());
        QVERIFY(!fixture.window->activeMdiChild());
        QVERIFY(message_line.startsWith("Couldn't open file"));
    }

    // --- closing three modified documents ---------------------------------------

    void cancelAtTheSecondOfThreeKeepsTwo()
    {
        WindowFixture fixture;
        const QList<QTChildFrm*> documents = threeModified(fixture);
        DialogDriver user;
        user.press(QMessageBox::Discard);
        user.press(QMessageBox::Cancel);
        QVERIFY(!fixture.window->close());
        QVERIFY(user.isDone());
        QVERIFY(fixture.window->isVisible());
        QCOMPARE(user.seen, QStringList({question("a.fig"), question("b.fig")}));
        QCOMPARE(fixture.window->getChilds(QMdiArea::CreationOrder), documents.mid(1));
        QCOMPARE(fixture.window->activeMdiChild(), documents[1]);
        QVERIFY(documents[1]->figContext->modified);
    }

    void closingGoesOnWhereItWasCancelled()
    {
        WindowFixture fixture;
        threeModified(fixture);
        DialogDriver user;
        user.press(QMessageBox::Save);
        user.press(QMessageBox::Cancel);
        QVERIFY(!fixture.window->close());
        user.press(QMessageBox::Save);
        user.press(QMessageBox::Discard);
        QVERIFY(fixture.window->close());
        QVERIFY(user.isDone());
        QVERIFY(contentOf(file("a.fig")).contains("2 1 0 1"));
        QVERIFY(contentOf(file("b.fig")).contains("2 1 0 1"));
        QVERIFY(!contentOf(file("c.fig")).contains("2 1 0 1"));
    }

    void exitClosesWhatIsNotModifiedWithoutAQuestion()
    {
        WindowFixture fixture;
        fixture.window->newFile();
        DialogDriver user;
        fixture.window->closeAllChilds();
        QVERIFY(user.seen.isEmpty());
        QVERIFY(!fixture.window->isVisible());
    }

private:
    QString file(const QString& name) const { return directory->filePath(name); }
    QString canonical(const QString& name) const
    {
        return QFileInfo(file(name)).canonicalFilePath();
    }

    static QString question(const QString& name)
    {
        return "Save changes?: '" + name +
               "' has been modified.\nDo you want to save your changes?";
    }

    /// Saved empty as a.fig, b.fig and c.fig; then each got a line.
    QList<QTChildFrm*> threeModified(const WindowFixture& fixture) const
    {
        fixture.window->newFile();
        fixture.window->newFile();
        const QList<QTChildFrm*> documents = fixture.window->getChilds(QMdiArea::CreationOrder);
        const QStringList names{"a.fig", "b.fig", "c.fig"};
        for (int place = 0; place < 3; ++place) {
            documents[place]->saveFile(file(names[place]));
            auto* line = new FigLine;
            line->sub_type = T_POLYLINE;
            line->thickness = 1;
            line->points = new FigPoint(600, 600);
            line->points->next = new FigPoint(1200, 1200);
            CFigContext* context = documents[place]->figContext;
            list_add(context, &context->drawing.objects, line);
            context->setModifiedflag();
        }
        return documents;
    }

    TestStore store;
    std::unique_ptr<QTemporaryDir> directory;
};

QTEST_MAIN(TestSaving)
#include "test_saving.moc"
