// The stream that a debugger shows.
#pragma once

class QString;

namespace QsDebugOutput {

/// Prints one line, in UTF-8. The stream is that of standard error.
void output(const QString& message);

} // namespace QsDebugOutput
