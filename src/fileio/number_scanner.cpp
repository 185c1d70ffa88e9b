#include "fileio/number_scanner.h"

#include <QLocale>

#include <limits>

namespace {

/// A stream keeps that many characters of a real number and passes over the digits after them.
constexpr int MAX_REAL_LENGTH = 124;
/// Up to this length the digits make an exact double, and so does the power of ten under them.
constexpr int MAX_SIMPLE_LENGTH = 15;
constexpr double powersOfTen[MAX_SIMPLE_LENGTH + 1] = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
constexpr int NO_DIGIT = 99;

bool isAsciiDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/// What is white space among the ASCII characters.
bool isAsciiBlank(QChar character)
{
    return character == QLatin1Char(' ') ||
           (character >= QLatin1Char('\t') && character <= QLatin1Char('\r'));
}

bool isExponentMark(QChar character)
{
    return character == QLatin1Char('e') || character == QLatin1Char('E');
}

/// Of an ASCII digit or letter a to f, else NO_DIGIT.
int digitValue(QChar character)
{
    const int code = character.unicode();
    if (code >= '0' && code <= '9')
        return code - '0';
    const int lower = code | 0x20;
    return code < 128 && lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : NO_DIGIT;
}

/// Of a decimal digit of any script, else -1.
int decimalValue(QChar character)
{
    if (isAsciiDigit(character))
        return character.unicode() - '0';
    return character.isDigit() ? character.digitValue() : -1;
}

/// What a stream makes of the collected characters of a real number.
bool convertReal(const QString& token, double* value)
{
    const bool isSigned = token.startsWith(QLatin1Char('-')) || token.startsWith(QLatin1Char('+'));
    const QString name = token.mid(isSigned ? 1 : 0);
    if (name.compare(QLatin1String("nan"), Qt::CaseInsensitive) == 0) {
        *value = std::numeric_limits<double>::quiet_NaN();
        return true;
    }
    if (name.compare(QLatin1String("inf"), Qt::CaseInsensitive) == 0) {
        const double infinity = std::numeric_limits<double>::infinity();
        *value = token.startsWith(QLatin1Char('-')) ? -infinity : infinity;
        return true;
    }
    bool ok = false;
    *value = QLocale::c().toDouble(token, &ok);
    return ok;
}

} // namespace

NumberScanner::NumberScanner(const QString& line)
    : ownText(line), text(&ownText), data(text->constData()), size(text->size())
{
}

NumberScanner::NumberScanner(QString* source, int position)
    : text(source), data(source->constData()), size(source->size()), at(position)
{
}

// --- integers -----------------------------------------------------------------

unsigned long NumberScanner::unsignedLong()
{
    qulonglong value = 0;
    if (simpleInteger(&value) || generalInteger(&value))
        return static_cast<unsigned long>(value);
    fail();
    return 0;
}

/// Short decimal numbers between ASCII blanks, which is nearly all of them.
bool NumberScanner::simpleInteger(qulonglong* value)
{
    const QChar* next = data + at;
    const QChar* const end = data + size;
    while (next < end && isAsciiBlank(*next))
        ++next;
    const bool negative = next < end && *next == QLatin1Char('-');
    if (negative)
        ++next;
    const QChar* const first = next;
    qulonglong magnitude = 0;
    for (; next < end && isAsciiDigit(*next); ++next)
        magnitude = magnitude * 10 + (next->unicode() - '0');
    const auto digits = next - first;
    const bool prefixed = digits > 1 && *first == QLatin1Char('0');
    if (digits == 0 || digits > MAX_SIMPLE_LENGTH || prefixed ||
        (next < end && !isAsciiBlank(*next)))
        return false;
    at = static_cast<int>(next - data);
    *value = negative ? 0 - magnitude : magnitude;
    return true;
}

bool NumberScanner::generalInteger(qulonglong* value)
{
    skipWhiteSpace();
    if (at == size)
        return false;
    switch (baseOfPrefix()) {
    case 2:
        return takePrefixed(2, 2, value);
    case 8:
        return takePrefixed(8, 1, value);
    case 16:
        return takePrefixed(16, 2, value);
    default:
        return takeDecimal(value);
    }
}

int NumberScanner::baseOfPrefix()
{
    if (data[at] != QLatin1Char('0') || at + 1 == size)
        return 10;
    const QChar next = data[at + 1];
    if (next == QLatin1Char(' '))
        return 10;
    const QChar lower = next.toLower();
    if (lower != next) {
        // The stream puts back what it looked at in lower case.
        (*text)[at + 1] = lower;
        data = text->constData();
    }
    if (lower == QLatin1Char('x'))
        return 16;
    if (lower == QLatin1Char('b'))
        return 2;
    const int digit = decimalValue(lower);
    return digit >= 0 && digit <= 7 ? 8 : 10;
}

/// Without a digit, "0x" is gone for good, while the other prefixes stay to be read again.
bool NumberScanner::takePrefixed(int base, int prefixLength, qulonglong* value)
{
    const int start = at;
    at += prefixLength;
    const int firstDigit = at;
    for (int digit = 0; at < size && (digit = digitValue(data[at])) < base; ++at)
        *value = *value * static_cast<unsigned>(base) + static_cast<unsigned>(digit);
    if (at > firstDigit)
        return true;
    if (base != 16)
        at = start;
    return false;
}

/// A sign without digits is gone for good.
bool NumberScanner::takeDecimal(qulonglong* value)
{
    const bool negative = data[at] == QLatin1Char('-');
    if (negative || data[at] == QLatin1Char('+'))
        ++at;
    const int firstDigit = at;
    for (int digit = 0; at < size && (digit = decimalValue(data[at])) >= 0; ++at)
        *value = *value * 10 + static_cast<unsigned>(digit);
    if (negative && static_cast<qlonglong>(*value) > 0)
        *value = 0 - *value;
    return at > firstDigit;
}

// --- real numbers ---------------------------------------------------------------

float NumberScanner::singleReal()
{
    return static_cast<float>(real());
}

double NumberScanner::real()
{
    skipWhiteSpace();
    double value = 0;
    if (simpleReal(&value) || generalReal(&value))
        return value;
    fail();
    return 0;
}

/// Short numbers without exponent, which is nearly all of them. The quotient of two exact doubles
/// is rounded once, so it is the nearest double as well.
bool NumberScanner::simpleReal(double* value)
{
    const int limit = at + qMin(size - at, MAX_SIMPLE_LENGTH + 1);
    const bool negative = at < limit && data[at] == QLatin1Char('-');
    const bool isSigned = negative || (at < limit && data[at] == QLatin1Char('+'));
    int end = isSigned ? at + 1 : at;
    int numDigits = 0, decimals = 0;
    bool behindPoint = false;
    qint64 digits = 0;
    for (; end < limit; ++end) {
        if (isAsciiDigit(data[end])) {
            digits = digits * 10 + (data[end].unicode() - '0');
            ++numDigits;
            decimals += behindPoint;
        } else if (!behindPoint && data[end] == QLatin1Char('.')) {
            behindPoint = true;
        } else {
            break;
        }
    }
    if (numDigits == 0 || end - at > MAX_SIMPLE_LENGTH || (end < size && isExponentMark(data[end])))
        return false;
    at = end;
    const double magnitude = static_cast<double>(digits) / powersOfTen[decimals];
    *value = negative ? -magnitude : magnitude;
    return true;
}

bool NumberScanner::generalReal(double* value)
{
    const int start = at;
    takeReal(start + qMin(size - start, MAX_REAL_LENGTH));
    const int length = at - start;
    if (length == MAX_REAL_LENGTH)
        while (at < size && data[at].isDigit())
            ++at;
    return length > 0 && convertReal(QString(data + start, length), value);
}

/// Passes over the longest beginning of a number, complete or not.
void NumberScanner::takeReal(int limit)
{
    if (!takeOne('-', '-', limit))
        takeOne('+', '+', limit);
    if (takeOne('i', 'I', limit)) {
        if (takeOne('n', 'N', limit))
            takeOne('f', 'F', limit);
        return;
    }
    if (takeOne('n', 'N', limit)) {
        if (takeOne('a', 'A', limit))
            takeOne('n', 'N', limit);
        return;
    }
    int digits = takeDigits(limit);
    if (takeOne('.', '.', limit))
        digits = takeDigits(limit);
    if (digits > 0 && takeOne('e', 'E', limit)) {
        if (!takeOne('-', '-', limit))
            takeOne('+', '+', limit);
        takeDigits(limit);
    }
}

bool NumberScanner::takeOne(char lower, char upper, int limit)
{
    if (at >= limit || (data[at] != QLatin1Char(lower) && data[at] != QLatin1Char(upper)))
        return false;
    ++at;
    return true;
}

int NumberScanner::takeDigits(int limit)
{
    const int start = at;
    while (at < limit && isAsciiDigit(data[at]))
        ++at;
    return at - start;
}

// --- the rest ---------------------------------------------------------------------

void NumberScanner::skipWhiteSpace()
{
    while (at < size && data[at].isSpace())
        ++at;
}

void NumberScanner::fail()
{
    if (state == QTextStream::Ok)
        state = at == size ? QTextStream::ReadPastEnd : QTextStream::ReadCorruptData;
}
