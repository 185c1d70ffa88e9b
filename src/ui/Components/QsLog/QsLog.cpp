#include "ui/Components/QsLog/QsLog.h"

#include <QDateTime>
#include <QMutex>
#include <QVector>

#include <algorithm>
#include <atomic>
#include <iterator>

namespace QsLogging {

namespace {

constexpr int LEVEL_TEXT_LENGTH = 5;
const char* const levelTexts[] = {"TRACE", "DEBUG", "INFO ", "WARN ", "ERROR", "FATAL"};

QBasicMutex instanceMutex;
std::unique_ptr<Logger> theLogger;

QString levelText(Level level)
{
    if (level >= Trace && level <= Fatal)
        return levelTexts[level];
    Q_ASSERT_X(false, "QsLogging", "bad log level");
    return QString();
}

} // namespace

class LoggerImpl {
public:
    QMutex mutex; ///< guards the destinations, and what they do
    std::atomic<Level> level{Info};
    QVector<DestinationPtr> destinations;
};

// --- the logger -------------------------------------------------------------

Logger::Logger() : impl(std::make_unique<LoggerImpl>()) {}

Logger::~Logger() = default;

Logger& Logger::instance()
{
    const QMutexLocker locker(&instanceMutex);
    if (!theLogger)
        theLogger.reset(new Logger);
    return *theLogger;
}

void Logger::destroyInstance()
{
    // Destinations go unlocked: who hears of their end may log, to the next logger.
    std::unique_ptr<Logger> last;
    const QMutexLocker locker(&instanceMutex);
    last.swap(theLogger);
}

Level Logger::levelFromLogMessage(const QString& logMessage, bool* conversionSucceeded)
{
    const auto found =
        std::find(std::begin(levelTexts), std::end(levelTexts), logMessage.left(LEVEL_TEXT_LENGTH));
    if (conversionSucceeded)
        *conversionSucceeded = found != std::end(levelTexts);
    return static_cast<Level>(found - std::begin(levelTexts));
}

void Logger::addDestination(DestinationPtr destination)
{
    Q_ASSERT(destination.data());
    if (!destination)
        return;
    const QMutexLocker locker(&impl->mutex);
    impl->destinations.append(destination);
}

void Logger::setLoggingLevel(Level newLevel)
{
    impl->level = newLevel;
}

Level Logger::loggingLevel() const
{
    return impl->level;
}

void Logger::enqueueWrite(const QString& message, Level level)
{
    write(message, level);
}

void Logger::write(const QString& message, Level level)
{
    const QMutexLocker locker(&impl->mutex);
    for (const DestinationPtr& destination : qAsConst(impl->destinations))
        destination->write(message, level);
}

// --- one message ------------------------------------------------------------

Logger::Helper::Helper(Level logLevel) : level(logLevel), debug(&buffer) {}

Logger::Helper::~Helper()
{
    try {
        writeToLog();
    } catch (...) {
        Q_ASSERT_X(false, "QsLogging", "exception in logger helper destructor");
    }
}

void Logger::Helper::writeToLog()
{
    const QString time = QDateTime::currentDateTime().toString("yyyy-MM-ddThh:mm:ss.zzz");
    // The text comes last, so that its own percent signs stay.
    const QString line = QString("%1 %2 %3").arg(levelText(level), time, buffer);
    Logger::instance().enqueueWrite(line, level);
}

} // namespace QsLogging
