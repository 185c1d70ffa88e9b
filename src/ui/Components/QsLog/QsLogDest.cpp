#include "ui/Components/QsLog/QsLogDest.h"

#include "ui/Components/QsLog/QsLogDestDebugOutput.h"
#include "ui/Components/QsLog/QsLogDestFile.h"
#include "ui/Components/QsLog/QsLogDestFunctor.h"
#include "ui/Components/QsLog/QsLogDestTextDocument.h"

namespace QsLogging {

namespace {

RotationStrategyPtr makeStrategy(LogRotationOption rotation, const MaxSizeBytes& maximumSize,
                                 const MaxOldLogCount& oldLogs)
{
    if (rotation == NoRotation)
        return RotationStrategyPtr(new NullRotationStrategy);
    auto strategy = QSharedPointer<SizeRotationStrategy>::create();
    strategy->setMaximumSizeInBytes(maximumSize.size);
    strategy->setBackupCount(oldLogs.count);
    return strategy;
}

} // namespace

DestinationPtr DestinationFactory::MakeFileDestination(const QString& path,
                                                       LogRotationOption rotation,
                                                       const MaxSizeBytes& maximumSize,
                                                       const MaxOldLogCount& oldLogs)
{
    return DestinationPtr(new FileDestination(path, makeStrategy(rotation, maximumSize, oldLogs)));
}

DestinationPtr DestinationFactory::MakeDebugOutputDestination()
{
    return DestinationPtr(new DebugOutputDestination);
}

DestinationPtr DestinationFactory::MakeFunctorDestination(LogFunction function)
{
    return DestinationPtr(new FunctorDestination(function));
}

DestinationPtr DestinationFactory::MakeFunctorDestination(QObject* receiver, const char* member)
{
    return DestinationPtr(new FunctorDestination(receiver, member));
}

DestinationPtr DestinationFactory::MakeTextDocumentDestination(QTextDocument& document, bool html)
{
    return DestinationPtr(new TextDocumentOutputDestination(document, html));
}

} // namespace QsLogging
