#include "model/shell.h"

QString message_line;

void put_msg(const char* text)
{
    message_line = QString::fromUtf8(text);
    print_msg();
}

namespace {

template <typename... Args> void postFormatted(const char* format, Args... args)
{
    message_line = QString::asprintf(format, args...);
    print_msg();
}

/// The numbers come as long whatever the text says, so a plain %d is widened.
QByteArray widened(const char* format)
{
    return QByteArray(format).replace("%d", "%ld");
}

} // namespace

void put_msg(const char* format, const char* a)
{
    postFormatted(format, a);
}

void put_msg(const char* format, const char* a, const char* b)
{
    postFormatted(format, a, b);
}

void put_msg(const char* format, const char* a, const char* b, const char* c)
{
    postFormatted(format, a, b, c);
}

void put_msg(const char* format, long a)
{
    postFormatted(widened(format).constData(), a);
}

void put_msg(const char* format, long a, long b)
{
    postFormatted(widened(format).constData(), a, b);
}

void put_msg(const char* format, long a, const char* b)
{
    postFormatted(widened(format).constData(), a, b);
}

void put_msg(const char* format, const char* a, long b)
{
    postFormatted(widened(format).constData(), a, b);
}

void put_msg(const char* format, long a, long b, long c)
{
    postFormatted(widened(format).constData(), a, b, c);
}
