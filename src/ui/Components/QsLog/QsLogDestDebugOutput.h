// Log messages on the debugger's stream.
#pragma once

#include "ui/Components/QsLog/QsLogDest.h"

namespace QsLogging {

class DebugOutputDestination : public Destination {
public:
    void write(const QString& message, Level level) override;
    bool isValid() override;
};

} // namespace QsLogging
