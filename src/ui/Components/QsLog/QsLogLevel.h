// Severity of a log message.
#pragma once

namespace QsLogging {

/// A logger of some level takes the messages of that level and above; Off takes none.
enum Level { Trace = 0, Debug, Info, Warn, Error, Fatal, Off };

} // namespace QsLogging
