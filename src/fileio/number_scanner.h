// White-space separated fields of FIG text, with exactly the answers that a QTextStream in the C
// locale gives, for damaged input too, but without a stream object for every line.
//
// Integers take their base from the prefix: 0x, 0b, 0 before an octal digit. A field that is no
// number gives 0 and mostly stays where it is, so that all later integers are 0 as well; a real
// number ends at the first character that cannot go on. The first failure stays in the status.
#pragma once

#include <QString>
#include <QStringView>
#include <QTextStream>

class NumberScanner {
public:
    /// Scans one line, from its start.
    explicit NumberScanner(const QString& line);
    /// Scans a text in place from a position. What follows a leading zero may become lower case in
    /// it, as it does in the string of a stream.
    NumberScanner(QString* source, int position);
    NumberScanner(const NumberScanner&) = delete;
    NumberScanner& operator=(const NumberScanner&) = delete;

    /// Too great a number wraps around.
    int integer() { return static_cast<int>(unsignedLong()); }
    unsigned unsignedInteger() { return static_cast<unsigned>(unsignedLong()); }
    unsigned long unsignedLong();
    double real(); ///< takes nan and inf in any case; out of range is a failure
    float singleReal();

    /// Everything from the present position on.
    QString rest() const { return restView().toString(); }
    /// The same in place, for as long as the scanner lives and does not read on.
    QStringView restView() const { return QStringView(data + at, size - at); }
    int position() const { return at; }
    QTextStream::Status status() const { return state; }

private:
    bool simpleInteger(qulonglong* value);
    bool generalInteger(qulonglong* value);
    bool takeDecimal(qulonglong* value);
    bool takePrefixed(int base, int prefixLength, qulonglong* value);
    int baseOfPrefix();
    bool simpleReal(double* value);
    bool generalReal(double* value);
    void takeReal(int limit);
    bool takeOne(char lower, char upper, int limit);
    int takeDigits(int limit);
    void skipWhiteSpace();
    void fail();

    QString ownText;
    QString* text;
    const QChar* data;
    int size;
    int at = 0;
    QTextStream::Status state = QTextStream::Ok;
};
