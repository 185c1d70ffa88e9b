#include "ui/Components/QsLog/QsLogDestDebugOutput.h"

#include "ui/Components/QsLog/QsDebugOutput.h"

namespace QsLogging {

void DebugOutputDestination::write(const QString& message, Level)
{
    QsDebugOutput::output(message);
}

bool DebugOutputDestination::isValid()
{
    return true;
}

} // namespace QsLogging
