// The logger: one for the process, with a level and destinations.
// Use: QSLOG(QsLogging::Info) << "opened" << count;
#pragma once

#include "ui/Components/QsLog/QsLogDest.h"
#include "ui/Components/QsLog/QsLogLevel.h"

#include <QDebug>
#include <QString>

#include <memory>

namespace QsLogging {

class LoggerImpl;

class Logger {
public:
    /// Made at the first call, with the level Info and no destination.
    static Logger& instance();
    /// Frees the logger and its destinations.
    static void destroyInstance();
    /// Level of a log line, by the five characters it starts with. Off if they are of no level.
    static Level levelFromLogMessage(const QString& logMessage,
                                     bool* conversionSucceeded = nullptr);

    ~Logger();
    void addDestination(DestinationPtr destination);
    void setLoggingLevel(Level newLevel);
    Level loggingLevel() const;

    class Helper;

private:
    Logger();
    Q_DISABLE_COPY(Logger)
    void enqueueWrite(const QString& message, Level level);
    void write(const QString& message, Level level);

    std::unique_ptr<LoggerImpl> impl;
};

/// Collects the text of one message and logs it when it goes.
class Logger::Helper {
public:
    explicit Helper(Level logLevel);
    ~Helper();
    QDebug& stream() { return debug; }

private:
    Q_DISABLE_COPY(Helper)
    void writeToLog();

    Level level;
    QString buffer;
    QDebug debug; ///< writes to buffer, so stands behind it
};

} // namespace QsLogging

/// A stream for one message. What follows is not evaluated if the level filters it.
#define QSLOG(messageLevel)                                                                        \
    for (bool qslogWanted = QsLogging::Logger::instance().loggingLevel() <= (messageLevel);        \
         qslogWanted; qslogWanted = false)                                                         \
    QsLogging::Logger::Helper(messageLevel).stream()
