// Fields of a record that go on over the following lines of a stream.
#pragma once

#include "fileio/number_scanner.h"

#include <optional>

/// Next line of a stream, without its end, as readLine gives it. A string is searched for the end
/// of the line at once, and the line keeps the memory that it has.
void takeLine(QTextStream& stream, QString* line);

/// A stream over a string is scanned in place and gets its position back at the end; any other is
/// read by its operators.
class StreamFields {
public:
    explicit StreamFields(QTextStream& source);
    ~StreamFields();
    StreamFields(const StreamFields&) = delete;
    StreamFields& operator=(const StreamFields&) = delete;

    int integer();
    double real();
    QString restOfLine(); ///< the line end is consumed
    bool failed() const;  ///< some field since the beginning was no number

private:
    void takeOver();
    void handBack();

    QTextStream& stream;
    bool streamFailed = false; ///< as the stream's own status told when the scanner took over
    std::optional<NumberScanner> scanner;
};
