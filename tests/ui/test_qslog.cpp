// The logger: levels, the shape of a message, destinations and rotation.
#include "Files.h"
#include "StandardError.h"

#include "ui/Components/QsLog/QsLog.h"
#include "ui/Components/QsLog/QsLogDestFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCodec>
#include <QTextDocument>
#include <QThread>
#include <QtTest>

#include <atomic>
#include <csignal>
#include <functional>
#include <memory>
#include <stdexcept>
#include <sys/wait.h>

using namespace QsLogging;

namespace {

/// Keeps what it is given. Counts calls that come while another one runs.
class RecordingDestination : public Destination {
public:
    void write(const QString& message, Level level) override
    {
        if (++callsInside != 1)
            ++overlaps;
        if (pause)
            QThread::usleep(pause);
        messages.append(message);
        levels.append(level);
        --callsInside;
    }
    bool isValid() override { return true; }

    QStringList messages;
    QList<Level> levels;
    std::atomic<int> overlaps{0};
    unsigned long pause = 0; ///< microseconds in each call, for another thread to break in

private:
    std::atomic<int> callsInside{0};
};

class ThrowingDestination : public Destination {
public:
    void write(const QString&, Level) override { throw std::runtime_error("thrown"); }
    bool isValid() override { return true; }
};

class Receiver : public QObject {
    Q_OBJECT
public slots:
    void take(const QString& message, int level)
    {
        lines.append(QString("%1:%2").arg(level).arg(message));
    }

public:
    QStringList lines;
};

QStringList functionLines;

void takeLine(const QString& message, Level level)
{
    functionLines.append(QString("%1:%2").arg(level).arg(message));
}

QSharedPointer<RecordingDestination> addRecorder()
{
    auto recorder = QSharedPointer<RecordingDestination>::create();
    Logger::instance().addDestination(recorder);
    return recorder;
}

DestinationPtr makeRotated(const QString& path, qint64 maximumSize, int oldLogs)
{
    return DestinationFactory::MakeFileDestination(path, RotationBySize, MaxSizeBytes(maximumSize),
                                                   MaxOldLogCount(oldLogs));
}

#ifndef QT_NO_DEBUG
/// Runs work in a process of its own and gives back whether it was aborted.
bool isAborted(const std::function<void()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGABRT, SIG_DFL);
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
            std::cerr << text.toStdString() << std::endl;
        });
        work();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}
#endif

} // namespace

class TestQsLog : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        log = folder->filePath("orvalt.log");
    }

    void cleanup()
    {
        Logger::destroyInstance();
        QTextCodec::setCodecForLocale(nullptr);
    }

    // --- levels -----------------------------------------------------------------

    void loggerStartsAtInfoWithoutDestinations()
    {
        QCOMPARE(Logger::instance().loggingLevel(), Level(2));
        QSLOG(Fatal) << "heard by nobody";
    }

    void aDestroyedLoggerIsReplacedByAFreshOne()
    {
        const auto recorder = addRecorder();
        Logger::instance().setLoggingLevel(Error);
        Logger::destroyInstance();
        Logger::destroyInstance();
        QCOMPARE(Logger::instance().loggingLevel(), Info);
        QSLOG(Fatal) << "heard by nobody";
        QVERIFY(recorder->messages.isEmpty());
    }

    void messagesBelowTheLevelLeaveNoLineAndLevelSixSilencesEverything_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<QList<int>>("heard");
        QTest::newRow("0") << 0 << QList<int>({0, 1, 2, 3, 4, 5});
        QTest::newRow("1") << 1 << QList<int>({1, 2, 3, 4, 5});
        QTest::newRow("2") << 2 << QList<int>({2, 3, 4, 5});
        QTest::newRow("3") << 3 << QList<int>({3, 4, 5});
        QTest::newRow("4") << 4 << QList<int>({4, 5});
        QTest::newRow("5") << 5 << QList<int>({5});
        QTest::newRow("6") << 6 << QList<int>();
    }

    void messagesBelowTheLevelLeaveNoLineAndLevelSixSilencesEverything()
    {
        QFETCH(int, level);
        const auto recorder = addRecorder();
        Logger::instance().setLoggingLevel(Level(level));
        for (Level message : {Trace, Debug, Info, Warn, Error, Fatal})
            QSLOG(message) << "text";
        QList<int> heard;
        for (Level message : recorder->levels)
            heard.append(message);
        QTEST(heard, "heard");
        QCOMPARE(recorder->messages.size(), heard.size());
    }

    void aFilteredMessageCostsNoFormatting()
    {
        const auto recorder = addRecorder();
        int calls = 0;
        const auto costly = [&] { return ++calls; };
        QSLOG(Debug) << costly();
        QCOMPARE(calls, 0);
        QSLOG(Info) << costly();
        QCOMPARE(calls, 1);
        QCOMPARE(recorder->messages.size(), 1);
    }

    void aMessageIsOneStatementBesideAnElse()
    {
        const auto recorder = addRecorder();
        bool otherBranch = false;
        if (recorder->messages.isEmpty())
            QSLOG(Info) << "text";
        else
            otherBranch = true;
        QVERIFY(!otherBranch);
        QCOMPARE(recorder->messages.size(), 1);
    }

    void levelIsReadFromTheFirstFiveCharacters_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("level");
        QTest::addColumn<bool>("succeeded");
        QTest::newRow("trace") << "TRACE 2020" << 0 << true;
        QTest::newRow("debug") << "DEBUG" << 1 << true;
        QTest::newRow("info") << "INFO  2020" << 2 << true;
        QTest::newRow("warn") << "WARN  x" << 3 << true;
        QTest::newRow("error") << "ERROR ERROR" << 4 << true;
        QTest::newRow("fatal") << "FATALITY" << 5 << true;
        QTest::newRow("four characters") << "INFO" << 6 << false;
        QTest::newRow("lower case") << "error 2020" << 6 << false;
        QTest::newRow("not at the start") << " WARN " << 6 << false;
        QTest::newRow("empty") << "" << 6 << false;
        QTest::newRow("continuation") << "   at line 5: ERROR" << 6 << false;
    }

    void levelIsReadFromTheFirstFiveCharacters()
    {
        QFETCH(QString, line);
        for (bool before : {false, true}) {
            bool conversionSucceeded = before;
            QTEST(int(Logger::levelFromLogMessage(line, &conversionSucceeded)), "level");
            QTEST(conversionSucceeded, "succeeded");
        }
        QTEST(int(Logger::levelFromLogMessage(line)), "level");
    }

    void levelOfALoggedLineIsReadBack()
    {
        const auto recorder = addRecorder();
        Logger::instance().setLoggingLevel(Trace);
        for (Level message : {Trace, Debug, Info, Warn, Error, Fatal}) {
            QSLOG(message) << "text";
            QCOMPARE(Logger::levelFromLogMessage(recorder->messages.last()), message);
        }
    }

    // --- the message ------------------------------------------------------------

    void lineIsLevelTimeAndText()
    {
        const auto recorder = addRecorder();
        const QDateTime before = QDateTime::currentDateTime();
        QSLOG(Warn).nospace() << "value " << 5;
        const QDateTime after = QDateTime::currentDateTime();
        const QString line = recorder->messages.value(0);
        static const QRegularExpression shape(
            "^WARN  (\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}) value 5$");
        const QRegularExpressionMatch match = shape.match(line);
        QVERIFY2(match.hasMatch(), qUtf8Printable(line));
        const QDateTime time = QDateTime::fromString(match.captured(1), Qt::ISODateWithMs);
        QVERIFY(time >= before && time <= after);
    }

    void eachPartOfAStreamIsFollowedByABlank()
    {
        const auto recorder = addRecorder();
        QSLOG(Info) << "baseDPI" << 80;
        QVERIFY(recorder->messages.value(0).endsWith(" baseDPI 80 "));
    }

    void percentSignsOfTheTextStay()
    {
        const auto recorder = addRecorder();
        QSLOG(Info).nospace() << "100%1 %3 %2";
        QVERIFY(recorder->messages.value(0).endsWith(" 100%1 %3 %2"));
    }

    void anEmptyTextIsLogged()
    {
        const auto recorder = addRecorder();
        QSLOG(Info);
        QCOMPARE(recorder->messages.value(0).size(), 5 + 1 + 23 + 1);
    }

    void destinationsAreCalledInTheOrderOfAdding()
    {
        functionLines.clear();
        const DestinationPtr destination = DestinationFactory::MakeFunctorDestination(
            [](const QString&, Level) { functionLines.append("first"); });
        Logger::instance().addDestination(destination);
        Logger::instance().addDestination(DestinationFactory::MakeFunctorDestination(
            [](const QString&, Level) { functionLines.append("second"); }));
        Logger::instance().addDestination(destination);
        QSLOG(Info) << "text";
        QCOMPARE(functionLines, QStringList({"first", "second", "first"}));
    }

    void messagesOfTwoThreadsDoNotOverlapAndNoneIsLost()
    {
        const auto recorder = addRecorder();
        recorder->pause = 20;
        Logger::instance().addDestination(makeRotated(log, 20000, 50));
        const auto logThousand = [](int thread) {
            for (int i = 0; i < 1000; ++i)
                QSLOG(Info).nospace() << thread << "/" << i;
        };
        std::unique_ptr<QThread> first(QThread::create(logThousand, 1));
        std::unique_ptr<QThread> second(QThread::create(logThousand, 2));
        first->start();
        second->start();
        QVERIFY(first->wait(60000) && second->wait(60000));
        QCOMPARE(recorder->overlaps.load(), 0);
        QCOMPARE(recorder->messages.size(), 2000);
        int next[] = {0, 0, 0};
        for (const QString& message : qAsConst(recorder->messages)) {
            const QStringList text = message.section(' ', -1).split('/');
            QCOMPARE(text.value(1).toInt(), next[text.value(0).toInt()]++);
        }
        QCOMPARE(next[1], 1000);
        QCOMPARE(next[2], 1000);
        int lines = 0;
        for (const QString& name : QDir(folder->path()).entryList(QDir::Files))
            lines += contents(folder->filePath(name)).count('\n');
        QCOMPARE(lines, 2000);
    }

    // --- what must not happen ---------------------------------------------------

    void anExceptionOfADestinationIsCaughtAndAsserted()
    {
        Logger::instance().addDestination(QSharedPointer<ThrowingDestination>::create());
        const auto recorder = addRecorder();
#ifdef QT_NO_DEBUG
        QSLOG(Info) << "text";
        // The lock is free again, and those behind have not heard of the message.
        Logger::instance().addDestination(recorder);
        QVERIFY(recorder->messages.isEmpty());
#else
        expectAbortion([] { QSLOG(Info) << "text"; }, "exception in logger helper destructor");
#endif
    }

    void aWrongLevelIsAsserted()
    {
        const auto recorder = addRecorder();
#ifdef QT_NO_DEBUG
        QSLOG(Level(7)) << "text";
        QVERIFY(recorder->messages.value(0).startsWith(" 2"));
#else
        expectAbortion([] { QSLOG(Level(7)) << "text"; }, "bad log level");
#endif
    }

    void aNullDestinationIsAsserted()
    {
#ifdef QT_NO_DEBUG
        Logger::instance().addDestination(DestinationPtr());
        QSLOG(Info) << "text";
#else
        expectAbortion([] { Logger::instance().addDestination(DestinationPtr()); },
                       "destination.data()");
#endif
    }

    // --- debugger, function, slot ------------------------------------------------

    void debugOutputGoesToTheStandardErrorStream()
    {
        const DestinationPtr destination = DestinationFactory::MakeDebugOutputDestination();
        QVERIFY(destination->isValid());
        StandardError errors;
        destination->write(QString::fromUtf8("größer"), Info);
        QCOMPARE(errors.text(), QByteArray("größer\n"));
    }

    void functionGetsMessageAndLevel()
    {
        functionLines.clear();
        const DestinationPtr destination = DestinationFactory::MakeFunctorDestination(takeLine);
        QVERIFY(destination->isValid());
        destination->write("text", Error);
        QCOMPARE(functionLines, QStringList("4:text"));
    }

    void aNullFunctionIsNotValidAndIgnored()
    {
        const DestinationPtr destination =
            DestinationFactory::MakeFunctorDestination(DestinationFactory::LogFunction());
        QVERIFY(!destination->isValid());
        destination->write("text", Error);
    }

    void slotGetsMessageAndLevelWhileItsReceiverLives()
    {
        auto receiver = std::make_unique<Receiver>();
        const DestinationPtr destination =
            DestinationFactory::MakeFunctorDestination(receiver.get(), SLOT(take(QString, int)));
        QVERIFY(destination->isValid());
        destination->write("text", Warn);
        QCOMPARE(receiver->lines, QStringList("3:text"));
        receiver.reset();
        QVERIFY(!destination->isValid());
        destination->write("text", Warn);
    }

    void anUnknownSlotIsNoTarget()
    {
        Receiver receiver;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("No such slot"));
        QVERIFY(!DestinationFactory::MakeFunctorDestination(&receiver, SLOT(absent(QString, int)))
                     ->isValid());
    }

    // --- document ---------------------------------------------------------------

    void plainMessagesBecomeTheLinesOfTheDocument()
    {
        QTextDocument document;
        const DestinationPtr destination =
            DestinationFactory::MakeTextDocumentDestination(document, false);
        QVERIFY(destination->isValid());
        destination->write("<b>first</b>", Info);
        QCOMPARE(document.toPlainText(), QString("<b>first</b>"));
        destination->write("second", Info);
        destination->write("", Info);
        destination->write("fourth", Info);
        QCOMPARE(document.toPlainText(), QString("<b>first</b>\nsecond\n\nfourth"));
    }

    void htmlMessagesBeginABlockEach()
    {
        QTextDocument document;
        const DestinationPtr destination =
            DestinationFactory::MakeTextDocumentDestination(document, true);
        destination->write("<b>first</b>", Info);
        destination->write("second", Info);
        QCOMPARE(document.toPlainText(), QString("\nfirst\nsecond"));
        const QTextBlock block = document.begin().next();
        QCOMPARE(block.begin().fragment().charFormat().fontWeight(), int(QFont::Bold));
    }

    void aClearedDocumentBeginsAtItsFirstLineAgain()
    {
        QTextDocument document;
        const DestinationPtr destination =
            DestinationFactory::MakeTextDocumentDestination(document, false);
        destination->write("first", Info);
        document.clear();
        destination->write("second", Info);
        destination->write("third", Info);
        QCOMPARE(document.toPlainText(), QString("second\nthird"));
    }

    void messagesAfterTheDeathOfTheDocumentAreDropped()
    {
        for (bool html : {false, true}) {
            auto document = std::make_unique<QTextDocument>();
            const DestinationPtr used =
                DestinationFactory::MakeTextDocumentDestination(*document, html);
            const DestinationPtr unused =
                DestinationFactory::MakeTextDocumentDestination(*document, html);
            used->write("first", Info);
            document.reset();
            used->write("second", Info);
            unused->write("second", Info);
            QVERIFY(used->isValid() && unused->isValid());
        }
    }

    // --- file -------------------------------------------------------------------

    void linesAreUtf8InAnyLocaleAndFlushedAtOnce()
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
        const DestinationPtr destination = makeRotated(log, 1000, 1);
        QVERIFY(destination->isValid());
        destination->write(QString::fromUtf8("Größe ✓ 😀"), Info);
        QCOMPARE(contents(log), QByteArray("Größe ✓ 😀\n"));
    }

    void aFileWithoutRotationIsEmptiedOnOpeningAndGrowsWithoutBound()
    {
        writeFile(log, "old\n");
        const DestinationPtr destination =
            DestinationFactory::MakeFileDestination(log, NoRotation, MaxSizeBytes(5));
        QCOMPARE(contents(log), QByteArray());
        for (int i = 0; i < 3; ++i)
            destination->write("message", Info);
        QCOMPARE(contents(log), QByteArray("message\nmessage\nmessage\n"));
        QCOMPARE(files(), QStringList("orvalt.log"));
    }

    void rotationOptionsAreZeroAndOne()
    {
        QCOMPARE(int(NoRotation), 0);
        QCOMPARE(int(RotationBySize), 1);
    }

    void aFileWithRotationIsContinued()
    {
        writeFile(log, "old\n");
        makeRotated(log, 1000, 1)->write("new", Info);
        QCOMPARE(contents(log), QByteArray("old\nnew\n"));
    }

    void openModes()
    {
        QCOMPARE(NullRotationStrategy().recommendedOpenModeFlag(),
                 QIODevice::WriteOnly | QIODevice::Text | QIODevice::Truncate);
        QCOMPARE(SizeRotationStrategy().recommendedOpenModeFlag(),
                 QIODevice::WriteOnly | QIODevice::Text | QIODevice::Append);
    }

    void aFileThatCannotBeOpenedIsToldOnceAndWritesNothing()
    {
        writeFile(log, "a file");
        const QString name = log + "/orvalt.log";
        StandardError errors;
        const DestinationPtr destination = makeRotated(name, 1, 1);
        QVERIFY(!destination->isValid());
        destination->write("long enough to rotate", Info);
        QCOMPARE(errors.text(), "QsLog: could not open log file " + QFile::encodeName(name) + "\n");
        QCOMPARE(contents(log), QByteArray("a file"));
    }

    // --- rotation ---------------------------------------------------------------

    void aMessageOfTwoBytesRotatesAFileOf499999BytesBeforeItIsWritten()
    {
        writeFile(log, QByteArray(499999, 'x'));
        makeRotated(log, 500000, 2)->write("ab", Info);
        QCOMPARE(contents(log), QByteArray("ab\n"));
        QCOMPARE(contents(log + ".1"), QByteArray(499999, 'x'));
        QCOMPARE(files(), QStringList({"orvalt.log", "orvalt.log.1"}));
    }

    void aFileMayReachItsMaximum()
    {
        writeFile(log, QByteArray(499999, 'x'));
        makeRotated(log, 500000, 2)->write("a", Info);
        QCOMPARE(QFileInfo(log).size(), 500001);
        QCOMPARE(files(), QStringList("orvalt.log"));
    }

    void sizesAreThoseOfUtf8WithoutTheEndOfLine_data()
    {
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("rotates");
        QTest::newRow("4 bytes") << "abcd" << false;
        QTest::newRow("5 bytes") << "abcde" << true;
        QTest::newRow("2 characters of 2 bytes") << QString::fromUtf8("äö") << false;
        QTest::newRow("3 characters, 5 bytes") << QString::fromUtf8("äöa") << true;
        QTest::newRow("1 character of 4 bytes") << QString::fromUtf8("😀") << false;
        QTest::newRow("2 characters of 3 bytes") << QString::fromUtf8("✓✓") << true;
    }

    void sizesAreThoseOfUtf8WithoutTheEndOfLine()
    {
        QFETCH(QString, message);
        writeFile(log, "123456");
        makeRotated(log, 10, 1)->write(message, Info);
        QTEST(QFile::exists(log + ".1"), "rotates");
    }

    void theMessageThatRotatesIsNotCountedInTheNewFile()
    {
        const DestinationPtr destination = makeRotated(log, 10, 5);
        destination->write("12345678901", Info); // 11 > 10: an empty log is put away
        QCOMPARE(contents(log + ".1"), QByteArray());
        destination->write("1234567890", Info); // the count began again at 0
        QCOMPARE(contents(log), QByteArray("12345678901\n1234567890\n"));
        destination->write("1", Info);
        QCOMPARE(contents(log), QByteArray("1\n"));
    }

    void twoBackupsKeepTheTwoYoungestOldLogs()
    {
        const DestinationPtr destination = makeRotated(log, 1, 2);
        for (const char* message : {"first", "second", "third", "fourth", "fifth"})
            destination->write(message, Info);
        QCOMPARE(files(), QStringList({"orvalt.log", "orvalt.log.1", "orvalt.log.2"}));
        QCOMPARE(contents(log), QByteArray("fifth\n"));
        QCOMPARE(contents(log + ".1"), QByteArray("fourth\n"));
        QCOMPARE(contents(log + ".2"), QByteArray("third\n"));
    }

    void rotationNumbers_data()
    {
        QTest::addColumn<int>("oldLogs");
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<QStringList>("after");
        // A backup holds its old number; "0" is the log.
        QTest::newRow("none of 3") << 3 << QStringList() << QStringList({"1=0"});
        QTest::newRow("1 of 3") << 3 << QStringList({"1"}) << QStringList({"1=0", "2=1"});
        QTest::newRow("2 of 3") << 3 << QStringList({"1", "2"})
                                << QStringList({"1=0", "2=1", "3=2"});
        QTest::newRow("all of 3") << 3 << QStringList({"1", "2", "3"})
                                  << QStringList({"1=0", "2=1", "3=2"});
        QTest::newRow("all of 1") << 1 << QStringList({"1"}) << QStringList({"1=0"});
        QTest::newRow("more than 2")
            << 2 << QStringList({"1", "2", "3"}) << QStringList({"1=0", "2=1", "3=3"});
        QTest::newRow("gap") << 3 << QStringList({"1", "3"}) << QStringList({"1=0", "2=1", "3=3"});
        QTest::newRow("all of 12")
            << 12 << QStringList({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"})
            << QStringList({"1=0", "10=9", "11=10", "12=11", "2=1", "3=2", "4=3", "5=4", "6=5",
                            "7=6", "8=7", "9=8"});
        QTest::newRow("count 0") << 0 << QStringList({"1"}) << QStringList({"1=1"});
        QTest::newRow("count -1") << -1 << QStringList() << QStringList();
    }

    void rotationNumbers()
    {
        QFETCH(int, oldLogs);
        QFETCH(QStringList, before);
        writeFile(log, "0");
        for (const QString& number : before)
            writeFile(log + "." + number, number.toUtf8());
        StandardError errors;
        makeRotated(log, 1, oldLogs)->write("new", Info);
        QCOMPARE(errors.text(), QByteArray());
        QCOMPARE(contents(log), QByteArray("new\n"));
        QStringList after;
        for (const QString& name : files())
            if (name != "orvalt.log")
                after.append(name.section('.', -1) + "=" + contents(folder->filePath(name)));
        QTEST(after, "after");
    }

    void theNewFileIsUtf8Too()
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
        const DestinationPtr destination = makeRotated(log, 1, 1);
        for (int i = 0; i < 2; ++i)
            destination->write(QString::fromUtf8("Größe ✓"), Info);
        QCOMPARE(contents(log), QByteArray("Größe ✓\n"));
        QCOMPARE(contents(log + ".1"), QByteArray("Größe ✓\n"));
    }

    void aBackupThatStaysInTheWayIsToldAndNoMessageIsLost()
    {
        // Folders can be renamed, yet neither replaced nor removed as a file.
        QVERIFY(QDir(folder->path()).mkdir("orvalt.log.2"));
        writeFile(log + ".1", "older");
        writeFile(log, "old\n");
        StandardError errors;
        const DestinationPtr destination = makeRotated(log, 10, 2);
        destination->write("123456789", Info);
        const QByteArray name = QFile::encodeName(log);
        QCOMPARE(errors.text(), "QsLog: backup delete failed " + name +
                                    ".2\nQsLog: could not rename backup " + name +
                                    ".1\nQsLog: could not rename log " + name + "\n");
        QCOMPARE(contents(log), QByteArray("old\n123456789\n"));
        QCOMPARE(contents(log + ".1"), QByteArray("older"));
        QVERIFY(destination->isValid());
    }

    void aLogThatCannotBeRemovedIsTold()
    {
        const DestinationPtr destination = makeRotated(log, 1, 0);
        QVERIFY(QFile::remove(log));
        StandardError errors;
        destination->write("text", Info);
        QCOMPARE(errors.text(), "QsLog: backup delete failed " + QFile::encodeName(log) + "\n");
        QCOMPARE(contents(log), QByteArray("text\n"));
    }

    void aFileThatCannotBeReopenedIsToldAndStaysInvalid()
    {
        const DestinationPtr destination = makeRotated(log, 10, 1);
        destination->write("first", Info);
        QVERIFY(QDir(folder->path()).removeRecursively());
        StandardError errors;
        destination->write("1234567890", Info);
        QVERIFY(!destination->isValid());
        destination->write("more than ten bytes", Info);
        const QByteArray name = QFile::encodeName(log);
        QCOMPARE(errors.text(), "QsLog: could not rename log " + name +
                                    "\nQsLog: could not reopen log file " + name + "\n");
    }

private:
    QStringList files() const
    {
        return QDir(folder->path()).entryList(QDir::Files, QDir::Name);
    }

#ifndef QT_NO_DEBUG
    void expectAbortion(const std::function<void()>& work, const QByteArray& reason)
    {
        StandardError errors;
        QVERIFY(isAborted(work));
        QVERIFY2(errors.text().contains(reason), errors.text().constData());
    }
#endif

    std::unique_ptr<QTemporaryDir> folder;
    QString log;
};

QTEST_MAIN(TestQsLog)
#include "test_qslog.moc"
