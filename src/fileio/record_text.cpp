#include "fileio/record_text.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace {

constexpr int NUMBER_SIZE = 24;
const long powersOfTen[] = {1, 10, 100, 1000, 10000};

/// Beyond this, or so near to a tie, the product of value and power is not exact enough.
constexpr double EXACT_LIMIT = 1e9;
constexpr double TIE_MARGIN = 1e-6;

} // namespace

/// The end of the text, with at least so much space behind it.
char* RecordText::room(int size)
{
    if (length + size > CAPACITY)
        flush();
    return buffer + length;
}

void RecordText::flush()
{
    stream << QLatin1String(buffer, length);
    length = 0;
}

RecordText& RecordText::operator<<(char character)
{
    *room(1) = character;
    ++length;
    return *this;
}

RecordText& RecordText::operator<<(const char* text)
{
    for (; *text; ++text)
        *this << *text;
    return *this;
}

RecordText& RecordText::operator<<(int value)
{
    return *this << static_cast<long>(value);
}

RecordText& RecordText::operator<<(long value)
{
    char* begin = room(NUMBER_SIZE);
    length += static_cast<int>(std::to_chars(begin, begin + NUMBER_SIZE, value).ptr - begin);
    return *this;
}

RecordText& RecordText::operator<<(Decimals number)
{
    if (!putSimple(number))
        *this << QString::number(number.value, 'f', number.digits);
    return *this;
}

RecordText& RecordText::operator<<(const QString& text)
{
    flush();
    stream << text;
    return *this;
}

/// False, with nothing written, when it takes exact decimal arithmetic to get the last digit right.
bool RecordText::putSimple(Decimals number)
{
    const long power = powersOfTen[number.digits];
    const double scaled = std::fabs(number.value) * static_cast<double>(power);
    if (!(scaled < EXACT_LIMIT))
        return false;
    const long rounded = static_cast<long>(scaled + 0.5);
    if (std::fabs(std::fabs(scaled - static_cast<double>(rounded)) - 0.5) < TIE_MARGIN)
        return false;
    if (number.value < 0)
        *this << '-';
    *this << rounded / power << '.';
    for (long unit = power / 10; unit > 0; unit /= 10)
        *this << static_cast<char>('0' + rounded / unit % 10);
    return true;
}
