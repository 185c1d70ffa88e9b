// The log file: where it lies, how its lines look, and the set-up of the logger.
#include "Files.h"
#include "StandardError.h"

#include "model/shell.h"
#include "ui/Components/QsLog/QsLog.h"
#include "ui/application.h"
#include "ui/logging.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QTextDocument>
#include <QtTest>

#include <memory>

namespace {

const char timeFormat[] = "MM/dd/yyyy hh:hh:ss";

} // namespace

class TestLogging : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<QTemporaryDir>();
        temporary = std::make_unique<QTemporaryDir>();
        appHomeDir = home->path();
        qputenv("TMPDIR", QFile::encodeName(temporary->path()));
    }

    void cleanup()
    {
        QsLogging::Logger::destroyInstance();
        qunsetenv("TMPDIR");
        QTextCodec::setCodecForLocale(nullptr);
    }

    // --- writeLog ---------------------------------------------------------------

    void linesAreAppendedToTheLogOfTheProgramFolder()
    {
        writeFile(homeLog(), "old\n");
        writeLog("first", true);
        writeLog("second", true);
        QCOMPARE(contents(homeLog()), QByteArray("old\nfirst\nsecond\n"));
        QVERIFY(!QFile::exists(temporaryLog()));
    }

    void headerIsTheDateWithTheHourTwiceAndNoMinutes()
    {
        const QDateTime before = QDateTime::currentDateTime();
        writeLog("text", false);
        const QDateTime after = QDateTime::currentDateTime();
        const QString line = contents(homeLog());
        static const QRegularExpression shape(
            "^(\\d\\d)/(\\d\\d)/(\\d{4}) (\\d\\d):(\\d\\d):(\\d\\d) text\n$");
        const QRegularExpressionMatch match = shape.match(line);
        QVERIFY2(match.hasMatch(), qUtf8Printable(line));
        QCOMPARE(match.captured(5), match.captured(4));
        bool isNow = false;
        for (QDateTime time = before; time <= after.addSecs(1); time = time.addSecs(1))
            isNow |= line == time.toString(timeFormat) + " text\n";
        QVERIFY(isNow);
    }

    void numbersFollowTheTextAfterABlank()
    {
        writeLog(-7, true);
        writeLog("one", 2147483648L, true);
        writeLog("two", 3L, -4L, true);
        QCOMPARE(contents(homeLog()), QByteArray("-7\none 2147483648\ntwo 3 -4\n"));
    }

    void logInfoWritesTheSameLines()
    {
        logInfo("text", true);
        logInfo(12, true);
        logInfo("one", 2L, true);
        logInfo("two", 3L, 4L, true);
        logInfoNewLine();
        QCOMPARE(contents(homeLog()), QByteArray("text\n12\none 2\ntwo 3 4\n\n"));
    }

    void everyFormTakesTheHeader()
    {
        writeLog(5, false);
        writeLog("a", 6L, false);
        writeLog("b", 7L, 8L, false);
        logInfo("c", false);
        const QString log = contents(homeLog());
        const QString time = "\\d\\d/\\d\\d/\\d{4} (\\d\\d:){2}\\d\\d ";
        const QRegularExpression shape("^" + time + "5\n" + time + "a 6\n" + time + "b 7 8\n" +
                                       time + "c\n$");
        QVERIFY2(shape.match(log).hasMatch(), qUtf8Printable(log));
    }

    void plainLinesAreUtf8InAnyLocale()
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
        writeLog(QString::fromUtf8("Größe ✓"), true);
        QCOMPARE(contents(homeLog()), QByteArray("Größe ✓\n"));
    }

    void readOnlyProgramFolderSendsWriteLogToTheTemporaryFolder()
    {
        makeHomeUnwritable();
        writeLog("text", true);
        logInfoNewLine();
        QCOMPARE(contents(temporaryLog()), QByteArray("text\n\n"));
    }

    void withoutAnyWritableFolderWriteLogDoesNothing()
    {
        StandardError errors; // keeps a temporary file of its own
        makeHomeUnwritable();
        makeTemporaryUnwritable();
        writeLog("text", false);
        QCOMPARE(errors.text(), QByteArray());
    }

    void truncateLogEmptiesBothLogs()
    {
        writeFile(homeLog(), "home\n");
        writeFile(temporaryLog(), "temporary\n");
        truncateLog();
        QCOMPARE(contents(homeLog()), QByteArray());
        QCOMPARE(contents(temporaryLog()), QByteArray());
    }

    void truncateLogMakesNoFile()
    {
        truncateLog();
        QVERIFY(!QFile::exists(homeLog()));
        QVERIFY(!QFile::exists(temporaryLog()));
    }

    // --- set-up -----------------------------------------------------------------

    void loggerWritesToTheFileAndToTheDocument()
    {
        QTextDocument document;
        setUpLogging(&document);
        QSLOG(QsLogging::Warn) << "careful";
        QSLOG(QsLogging::Info) << "done";
        const QString log = contents(homeLog());
        const QRegularExpression shape("^WARN  \\S+ careful \nINFO  \\S+ done \n$");
        QVERIFY2(shape.match(log).hasMatch(), qUtf8Printable(log));
        QCOMPARE(document.toPlainText() + "\n", log);
    }

    void withoutADocumentOnlyTheFileIsWritten()
    {
        setUpLogging(nullptr);
        QSLOG(QsLogging::Info) << "done";
        QVERIFY(contents(homeLog()).endsWith(" done \n"));
    }

    void bothLogsShareOneFile()
    {
        setUpLogging(nullptr);
        shell_log("first");
        writeLog("second", true);
        shell_log("third");
        const QList<QByteArray> lines = contents(homeLog()).split('\n');
        QCOMPARE(lines.size(), 4);
        QVERIFY(lines[0].endsWith(" first"));
        QCOMPARE(lines[1], QByteArray("second"));
        QVERIFY(lines[2].endsWith(" third"));
    }

    void readOnlyProgramFolderSendsTheLoggerToTheTemporaryFolder()
    {
        makeHomeUnwritable();
        StandardError errors;
        setUpLogging(nullptr);
        shell_log("text");
        QVERIFY(contents(temporaryLog()).endsWith(" text\n"));
        QCOMPARE(errors.text(),
                 "QsLog: could not open log file " + QFile::encodeName(homeLog()) + "\n");
    }

    void withoutAnyWritableFolderTheLoggerServesTheDocumentOnly()
    {
        StandardError errors; // keeps a temporary file of its own
        makeHomeUnwritable();
        makeTemporaryUnwritable();
        QTextDocument document;
        setUpLogging(&document);
        shell_log("text");
        QVERIFY(document.toPlainText().endsWith(" text"));
        // One line for each of the two tries, none for the message.
        QCOMPARE(errors.text(), "QsLog: could not open log file " + QFile::encodeName(homeLog()) +
                                    "\nQsLog: could not open log file " +
                                    QFile::encodeName(temporaryLog()) + "\n");
    }

    // A text is 30 characters longer in the log: 5 of the level, 23 of the time, two blanks.
    void theLogIsRotatedBehind500000BytesAndTwoOldOnesAreKept()
    {
        for (int start = 0; start < 4; ++start) {
            writeFile(homeLog(), QByteArray(499970, char('a' + start)));
            setUpLogging(nullptr);
            shell_log(""); // 500000 bytes: not yet
            QCOMPARE(QFileInfo(homeLog()).size(), 500001);
            QsLogging::Logger::destroyInstance();
            writeFile(homeLog(), QByteArray(499970, char('a' + start)));
            setUpLogging(nullptr);
            shell_log("x");
            QCOMPARE(QFileInfo(homeLog()).size(), 32);
            QsLogging::Logger::destroyInstance();
        }
        QCOMPARE(QDir(home->path()).entryList(QDir::Files),
                 QStringList({"orvalt.log", "orvalt.log.1", "orvalt.log.2"}));
        QCOMPARE(contents(homeLog() + ".1"), QByteArray(499970, 'd'));
        QCOMPARE(contents(homeLog() + ".2"), QByteArray(499970, 'c'));
    }

    // --- the engine's lines -----------------------------------------------------

    void engineLinesAreLoggedAsTheyAre()
    {
        setUpLogging(nullptr);
        const QString line = QString::fromUtf8("opened file /a b/\"%1\" ✓.fig");
        shell_log(line);
        const QString log = QString::fromUtf8(contents(homeLog()));
        QVERIFY2(log.startsWith("INFO  ") && log.endsWith(" " + line + "\n"), qUtf8Printable(log));
    }

    void engineLinesAreOfTheLevelInfo()
    {
        setUpLogging(nullptr);
        QsLogging::Logger::instance().setLoggingLevel(QsLogging::Warn);
        shell_log("text");
        QCOMPARE(contents(homeLog()), QByteArray());
    }

private:
    QString homeLog() const { return appHomeDir + "/orvalt.log"; }
    QString temporaryLog() const { return QDir::tempPath() + "/orvalt.log"; }

    // A folder that is none: rights would not keep the superuser from writing.
    void makeHomeUnwritable()
    {
        writeFile(home->filePath("file"), "");
        appHomeDir = home->filePath("file");
    }

    void makeTemporaryUnwritable()
    {
        writeFile(temporary->filePath("file"), "");
        qputenv("TMPDIR", QFile::encodeName(temporary->filePath("file")));
    }

    std::unique_ptr<QTemporaryDir> home;
    std::unique_ptr<QTemporaryDir> temporary;
};

QTEST_MAIN(TestLogging)
#include "test_logging.moc"
