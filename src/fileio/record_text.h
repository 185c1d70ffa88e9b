// The fields of one record on their way into a stream: the very characters that a stream in fixed
// notation writes, without a string object for every number.
#pragma once

#include <QTextStream>

/// A real number with so many decimals, 1 to 4. A tie is rounded away from zero. A negative number
/// that is too small for them keeps its sign, "-0.000"; a zero never has one.
struct Decimals {
    double value;
    int digits;
};

/// What has been gathered goes to the stream at the end of its life, or when it is asked to.
class RecordText {
public:
    explicit RecordText(QTextStream& target) : stream(target) {}
    ~RecordText() { flush(); }
    RecordText(const RecordText&) = delete;
    RecordText& operator=(const RecordText&) = delete;

    RecordText& operator<<(char character);
    RecordText& operator<<(const char* text); ///< Latin-1
    RecordText& operator<<(int value);
    RecordText& operator<<(long value);
    RecordText& operator<<(Decimals number);
    RecordText& operator<<(const QString& text);
    void flush();

private:
    static constexpr int CAPACITY = 1024;

    char* room(int size);
    bool putSimple(Decimals number);

    QTextStream& stream;
    char buffer[CAPACITY];
    int length = 0;
};
