// The log file: plain lines appended by writeLog, and the set-up of the logger with levels,
// whose messages reach the same file and the log panel. No failure reaches the user.
#pragma once

#include <QString>

class QTextDocument;

/// Lets the logger write to "orvalt.log" and, unless it is null, to document, which stays its
/// owner's. The file lies in the program folder, or, where that is read-only, in the folder of
/// temporary files.
void setUpLogging(QTextDocument* document);

/// Append one line to the log file, with the time before it unless noHeader. Numbers follow the
/// text after a blank. Without a writable file nothing happens.
void writeLog(QString text, bool noHeader);
void writeLog(int number, bool noHeader);
void writeLog(QString text, long number, bool noHeader);
void writeLog(QString text, long first, long second, bool noHeader);

/// The same under another name.
void logInfo(QString text, bool noHeader);
void logInfo(int number, bool noHeader);
void logInfo(QString text, long number, bool noHeader);
void logInfo(QString text, long first, long second, bool noHeader);

/// Appends an empty line.
void logInfoNewLine();
/// Empties the log files of both folders; makes none.
void truncateLog();
