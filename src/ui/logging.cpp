#include "ui/logging.h"

#include "ui/Components/QsLog/QsLog.h"
#include "ui/application.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTextStream>

namespace {

const char LOG_FILE[] = "orvalt.log";
constexpr qint64 MAXIMUM_LOG_SIZE = 500000; // bytes
constexpr int OLD_LOG_COUNT = 2;

QString logFileName()
{
    return appHomeDir + QDir::separator() + LOG_FILE;
}

QString temporaryLogFileName()
{
    return QDir::tempPath() + QDir::separator() + LOG_FILE;
}

QsLogging::DestinationPtr makeLogFile(const QString& name)
{
    return QsLogging::DestinationFactory::MakeFileDestination(
        name, QsLogging::RotationBySize, QsLogging::MaxSizeBytes(MAXIMUM_LOG_SIZE),
        QsLogging::MaxOldLogCount(OLD_LOG_COUNT));
}

QsLogging::DestinationPtr makeFirstLogFileThatOpens()
{
    const QsLogging::DestinationPtr file = makeLogFile(logFileName());
    return file->isValid() ? file : makeLogFile(temporaryLogFileName());
}

bool openForAppending(QFile& file, const QString& name)
{
    file.setFileName(name);
    return file.open(QIODevice::Append);
}

} // namespace

void setUpLogging(QTextDocument* document)
{
    QsLogging::Logger& logger = QsLogging::Logger::instance();
    logger.addDestination(makeFirstLogFileThatOpens());
    if (document)
        logger.addDestination(
            QsLogging::DestinationFactory::MakeTextDocumentDestination(*document, false));
}

void writeLog(QString text, bool noHeader)
{
    QFile file;
    if (!openForAppending(file, logFileName()) && !openForAppending(file, temporaryLogFileName()))
        return;
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    // The hour stands twice and there are no minutes: this is how the lines look.
    if (!noHeader)
        stream << QDateTime::currentDateTime().toString("MM/dd/yyyy hh:hh:ss") << ' ';
    stream << text << '\n';
}

void writeLog(int number, bool noHeader)
{
    writeLog(QString::number(number), noHeader);
}

void writeLog(QString text, long number, bool noHeader)
{
    writeLog(text + ' ' + QString::number(number), noHeader);
}

void writeLog(QString text, long first, long second, bool noHeader)
{
    writeLog(text + ' ' + QString::number(first), second, noHeader);
}

void logInfo(QString text, bool noHeader)
{
    writeLog(text, noHeader);
}

void logInfo(int number, bool noHeader)
{
    writeLog(number, noHeader);
}

void logInfo(QString text, long number, bool noHeader)
{
    writeLog(text, number, noHeader);
}

void logInfo(QString text, long first, long second, bool noHeader)
{
    writeLog(text, first, second, noHeader);
}

void logInfoNewLine()
{
    writeLog(QString(), true);
}

void truncateLog()
{
    QFile::resize(logFileName(), 0);
    QFile::resize(temporaryLogFileName(), 0);
}
