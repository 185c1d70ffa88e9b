// The start-up sequence and the functions of the shell for the real windows.
#include "WindowFixture.h"

#include "render/colorFunctions.h"
#include "ui/Components/QsLog/QsLog.h"
#include "ui/settings.h"

#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSettings>
#include <QStyle>
#include <QTextDocument>
#include <QTimer>

namespace {

struct Box {
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    bool noIsDefault = false;
};

/// Presses a button of the message box that comes up next.
void answerNextBox(QMessageBox::StandardButton button, Box* seen)
{
    QTimer::singleShot(0, [=] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        seen->title = box->windowTitle();
        seen->text = box->text();
        seen->buttons = box->standardButtons();
        seen->noIsDefault = box->defaultButton() == box->button(QMessageBox::No);
        box->button(button)->click();
    });
}

const char upgradeNotice[] =
    "This version changes the LaTeX commands for viewing TeX formatted text.You may have to "
    "customize that setting again.\n\nYou find it in the TeX View tab of the Preferences dialog.";

} // namespace

class TestApplication : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(store.isValid());
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, store.path());
        appHomeDir = store.path();
    }

    void init()
    {
        resetProcessState();
        texViewPreferencesData = TexViewPreferencesData();
        isOrvaltUpgrade = false;
        startDirectory = QDir::currentPath();
    }

    void cleanup()
    {
        QsLogging::Logger::destroyInstance();
        QDir::setCurrent(startDirectory);
    }

    // --- run --------------------------------------------------------------------

    void runShowsOneDocumentInTheFusionStyle()
    {
        otherPreferencesData.widgetStyle = 3;
        char program[] = "orvalt";
        char* arguments[] = {program, nullptr};
        int documents = 0;
        QString style;
        QTimer::singleShot(0, [&] {
            documents = mainWnd->getChilds(QMdiArea::CreationOrder).size();
            style = QApplication::style()->objectName();
            QApplication::closeAllWindows();
        });
        QCOMPARE(run(1, arguments), 0);
        QCOMPARE(documents, 1);
        QCOMPARE(style.toLower(), QString("fusion"));
        QCOMPARE(otherPreferencesData.widgetStyle, 0);
        QVERIFY(!mainWnd);
        QVERIFY(fill_colors[4][20] != 0);
    }

    void runOpensTheFirstArgumentBesideTheEmptyDocument()
    {
        QTemporaryDir directory;
        QByteArray figure = QFile::encodeName(writeFigure(directory, "house.fig"));
        QByteArray second = QFile::encodeName(writeFigure(directory, "unread.fig"));
        char program[] = "orvalt";
        char* arguments[] = {program, figure.data(), second.data(), nullptr};
        QStringList titles;
        QTimer::singleShot(0, [&] {
            for (const QTChildFrm* child : mainWnd->getChilds(QMdiArea::CreationOrder))
                titles.append(child->userFriendlyCurrentFile());
            QApplication::closeAllWindows();
        });
        QCOMPARE(run(3, arguments), 0);
        QCOMPARE(titles.size(), 2);
        QVERIFY(titles[0].startsWith("document"));
        QCOMPARE(titles[1], QString("house.fig"));
    }

    void runWithAnUnreadableFileKeepsTheEmptyDocument()
    {
        QTemporaryDir directory;
        QByteArray figure = QFile::encodeName(directory.filePath("absent.fig"));
        char program[] = "orvalt";
        char* arguments[] = {program, figure.data(), nullptr};
        QStringList titles;
        // The reader may have told its failure in a box.
        QTimer closer;
        connect(&closer, &QTimer::timeout, [&] {
            if (QWidget* box = QApplication::activeModalWidget()) {
                box->close();
                return;
            }
            for (const QTChildFrm* child : mainWnd->getChilds(QMdiArea::CreationOrder))
                titles.append(child->userFriendlyCurrentFile());
            closer.stop();
            QApplication::closeAllWindows();
        });
        closer.start(20);
        QCOMPARE(run(2, arguments), 0);
        QCOMPARE(titles.size(), 1);
        QVERIFY(titles[0].startsWith("document"));
    }

    void runLogsTheOpenedFigureInTheLogFileAndOnThePanel()
    {
        QTemporaryDir directory;
        const QString name = writeFigure(directory, "plan.fig");
        QByteArray figure = QFile::encodeName(name);
        char program[] = "orvalt";
        char* arguments[] = {program, figure.data(), nullptr};
        QString panel;
        QTimer::singleShot(0, [&] {
            panel = mainWnd->logDocument()->toPlainText();
            QApplication::closeAllWindows();
        });
        QCOMPARE(run(2, arguments), 0);
        QFile log(store.filePath("orvalt.log"));
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QString last = QString::fromUtf8(log.readAll()).trimmed().split('\n').last();
        QVERIFY2(last.startsWith("INFO  ") && last.endsWith(" opened file " + name),
                 qUtf8Printable(last));
        QCOMPARE(panel, last);
    }

    void theLogOutlivesTheMainWindowAndItsPanel()
    {
        char program[] = "orvalt";
        char* arguments[] = {program, nullptr};
        QTimer::singleShot(0, [] { QApplication::closeAllWindows(); });
        QCOMPARE(run(1, arguments), 0);
        shell_log("after the end");
        QFile log(store.filePath("orvalt.log"));
        QVERIFY(log.open(QIODevice::ReadOnly));
        QVERIFY(log.readAll().endsWith(" after the end\n"));
    }

    // --- upgrade ----------------------------------------------------------------

    void changedTexCommandsAreReplacedAfterANotice()
    {
        WindowFixture fixture;
        texViewPreferencesData.latexCommand = "my latex";
        texViewPreferencesData.dvipsCommand = texViewPreferencesData.oldDefaultDvipsCommand;
        Box seen;
        answerNextBox(QMessageBox::Ok, &seen);
        renewTexCommands();
        QCOMPARE(seen.title, QString("Info"));
        QCOMPARE(seen.text, QString(upgradeNotice));
        QCOMPARE(texViewPreferencesData.latexCommand, texViewPreferencesData.defaultLatexCommand);
        QCOMPARE(texViewPreferencesData.dvipsCommand, texViewPreferencesData.defaultDvipsCommand);
    }

    void untouchedOldTexCommandsAreReplacedWithoutANotice()
    {
        WindowFixture fixture;
        texViewPreferencesData.latexCommand = texViewPreferencesData.oldDefaultLatexCommand;
        texViewPreferencesData.dvipsCommand = texViewPreferencesData.oldDefaultDvipsCommand;
        Box seen;
        answerNextBox(QMessageBox::Ok, &seen);
        renewTexCommands();
        QCoreApplication::processEvents();
        QCOMPARE(seen.title, QString());
        QCOMPARE(texViewPreferencesData.latexCommand, texViewPreferencesData.defaultLatexCommand);
        QCOMPARE(texViewPreferencesData.dvipsCommand, texViewPreferencesData.defaultDvipsCommand);
    }

    void upgradeRenewsTexCommandsUpToVersion4Point61_data()
    {
        QTest::addColumn<bool>("upgrade");
        QTest::addColumn<float>("oldVersion");
        QTest::addColumn<bool>("renewed");
        QTest::newRow("4.61") << true << 4.61f << true;
        QTest::newRow("4.62") << true << 4.62f << false;
        QTest::newRow("3.2") << true << 3.2f << true;
        QTest::newRow("no upgrade") << false << 3.2f << false;
    }

    void upgradeRenewsTexCommandsUpToVersion4Point61()
    {
        QFETCH(bool, upgrade);
        QFETCH(float, oldVersion);
        isOrvaltUpgrade = upgrade;
        oldOrvaltVersion = oldVersion;
        texViewPreferencesData.latexCommand = texViewPreferencesData.oldDefaultLatexCommand;
        texViewPreferencesData.dvipsCommand = texViewPreferencesData.oldDefaultDvipsCommand;
        char program[] = "orvalt";
        char* arguments[] = {program, nullptr};
        QTimer::singleShot(0, [] { QApplication::closeAllWindows(); });
        run(1, arguments);
        QTEST(texViewPreferencesData.latexCommand == texViewPreferencesData.defaultLatexCommand,
              "renewed");
    }

    // --- file names -------------------------------------------------------------

    void relativeArgumentIsResolvedAgainstTheStartDirectory()
    {
        QTemporaryDir directory;
        QDir::setCurrent(directory.path());
        const QByteArray resolved = absoluteFileName("sub/plan.fig");
        QDir::setCurrent("/");
        QCOMPARE(QFile::decodeName(resolved), directory.path() + "/sub/plan.fig");
        QCOMPARE(absoluteFileName("/a/plan.fig"), QByteArray("/a/plan.fig"));
    }

    // --- shell ------------------------------------------------------------------

    void questionDefaultsToNo()
    {
        WindowFixture fixture;
        for (bool yes : {true, false}) {
            Box seen;
            answerNextBox(yes ? QMessageBox::Yes : QMessageBox::No, &seen);
            QCOMPARE(shell_question("Title", "Really?"), yes);
            QCOMPARE(seen.title, QString("Title"));
            QCOMPARE(seen.text, QString("Really?"));
            QCOMPARE(seen.buttons, QMessageBox::Yes | QMessageBox::No);
            QVERIFY(seen.noIsDefault);
        }
    }

    void boxesShowTitleAndText()
    {
        WindowFixture fixture;
        Box seen;
        answerNextBox(QMessageBox::Ok, &seen);
        shell_warning("Careful", "It is so.");
        QCOMPARE(seen.title + ": " + seen.text, QString("Careful: It is so."));
        answerNextBox(QMessageBox::Ok, &seen);
        shell_info("Note", "It was so.");
        QCOMPARE(seen.title + ": " + seen.text, QString("Note: It was so."));
    }

    void withoutAMainWindowNothingIsShownAndNoIsTheAnswer()
    {
        mainWnd = nullptr;
        shell_info("Note", "");
        shell_warning("Note", "");
        QVERIFY(!shell_question("Note", ""));
        QVERIFY(!getFigContext());
        print_msg();
    }

    void sizesOfANullWindowAreZeroAndItsDpiThatOfTheScreen()
    {
        int width = -1, height = -1;
        shell_viewport_size(nullptr, &width, &height);
        QCOMPARE(QSize(width, height), QSize(0, 0));
        shell_effective_size(nullptr, &width, &height);
        QCOMPARE(QSize(width, height), QSize(0, 0));
        float dpiX = 0, dpiY = 0;
        shell_window_dpi(nullptr, &dpiX, &dpiY);
        QCOMPARE(dpiX, float(QGuiApplication::primaryScreen()->logicalDotsPerInchX()));
        shell_set_window_modified(nullptr, true);
        shell_redisplay_canvas(nullptr);
        shell_redisplay_object_list(nullptr, nullptr, 3);
    }

    void sizesOfAWindow()
    {
        WindowFixture fixture({520, 500});
        int width = 0, height = 0;
        shell_viewport_size(fixture.child, &width, &height);
        QCOMPARE(QSize(width, height), fixture.child->viewport()->size());
        shell_effective_size(fixture.child, &width, &height);
        QVERIFY(fixture.child->verticalScrollBar()->isVisible());
        QCOMPARE(width, fixture.child->width() - fixture.child->verticalScrollBar()->width());
        float dpiX = 0, dpiY = 0;
        shell_window_dpi(fixture.child, &dpiX, &dpiY);
        QCOMPARE(dpiX, float(fixture.child->logicalDpiX()));
        QCOMPARE(dpiY, float(fixture.child->logicalDpiY()));
    }

    void listingsGoToTheDebugStream()
    {
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("(?i)fusion\n"));
        listStyles();
    }

private:
    QTemporaryDir store;
    QString startDirectory;
};

QTEST_MAIN(TestApplication)
#include "test_application.moc"
