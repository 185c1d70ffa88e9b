// Where log messages go. The logger calls its destinations one at a time.
#pragma once

#include "ui/Components/QsLog/QsLogLevel.h"

#include <QSharedPointer>
#include <QString>

class QObject;
class QTextDocument;

namespace QsLogging {

class Destination {
public:
    Destination() = default;
    virtual ~Destination() = default;
    /// message is a whole line without its end. Must not log itself: the logger is locked.
    virtual void write(const QString& message, Level level) = 0;
    virtual bool isValid() = 0;

private:
    Q_DISABLE_COPY(Destination)
};

using DestinationPtr = QSharedPointer<Destination>;

enum LogRotationOption { NoRotation = 0, RotationBySize = 1 };

struct MaxSizeBytes {
    explicit MaxSizeBytes(qint64 bytes = 0) : size(bytes) {}
    qint64 size;
};

struct MaxOldLogCount {
    explicit MaxOldLogCount(int number = 0) : count(number) {}
    int count;
};

class DestinationFactory {
public:
    using LogFunction = void (*)(const QString& message, Level level);

    /// Without rotation the file is emptied on opening and the last two arguments do not count.
    /// A file that cannot be opened gives a destination that is not valid and writes nothing.
    static DestinationPtr MakeFileDestination(const QString& path,
                                              LogRotationOption rotation = NoRotation,
                                              const MaxSizeBytes& maximumSize = MaxSizeBytes(),
                                              const MaxOldLogCount& oldLogs = MaxOldLogCount());
    static DestinationPtr MakeDebugOutputDestination();
    static DestinationPtr MakeFunctorDestination(LogFunction function);
    /// member is a SLOT or SIGNAL with the arguments (QString,int).
    static DestinationPtr MakeFunctorDestination(QObject* receiver, const char* member);
    /// Each message becomes a paragraph, of HTML or of plain text. A document may die first.
    static DestinationPtr MakeTextDocumentDestination(QTextDocument& document, bool html);
};

} // namespace QsLogging
