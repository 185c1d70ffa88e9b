#include "ui/Components/QsLog/QsLogDestFunctor.h"

namespace QsLogging {

FunctorDestination::FunctorDestination(DestinationFactory::LogFunction target) : function(target) {}

FunctorDestination::FunctorDestination(QObject* receiver, const char* member)
{
    if (connect(this, SIGNAL(logMessageReady(QString, int)), receiver, member))
        connectedReceiver = receiver;
}

void FunctorDestination::write(const QString& message, Level level)
{
    if (function)
        function(message, level);
    else
        emit logMessageReady(message, level);
}

bool FunctorDestination::isValid()
{
    return function || connectedReceiver;
}

} // namespace QsLogging
