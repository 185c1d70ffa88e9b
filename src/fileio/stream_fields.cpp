#include "fileio/stream_fields.h"

void takeLine(QTextStream& stream, QString* line)
{
    const QString* text = stream.string();
    if (!text) {
        stream.readLineInto(line);
        return;
    }
    const int start = static_cast<int>(stream.pos());
    const int mark = text->indexOf(QLatin1Char('\n'), start);
    const int next = mark == -1 ? text->size() : mark + 1;
    int end = mark == -1 ? text->size() : mark;
    if (end > start && text->at(end - 1) == QLatin1Char('\r'))
        --end;
    line->setUnicode(text->constData() + start, end - start);
    stream.seek(next);
}

StreamFields::StreamFields(QTextStream& source) : stream(source)
{
    stream.resetStatus();
    takeOver();
}

StreamFields::~StreamFields()
{
    handBack();
}

void StreamFields::takeOver()
{
    streamFailed = stream.status() != QTextStream::Ok;
    if (stream.string())
        scanner.emplace(stream.string(), static_cast<int>(stream.pos()));
}

void StreamFields::handBack()
{
    if (!scanner)
        return;
    stream.seek(scanner->position());
    stream.setStatus(scanner->status());
}

int StreamFields::integer()
{
    if (scanner)
        return scanner->integer();
    int value = 0;
    stream >> value;
    return value;
}

double StreamFields::real()
{
    if (scanner)
        return scanner->real();
    double value = 0;
    stream >> value;
    return value;
}

QString StreamFields::restOfLine()
{
    handBack();
    QString line = stream.readLine();
    takeOver();
    return line;
}

bool StreamFields::failed() const
{
    const QTextStream::Status status = scanner ? scanner->status() : stream.status();
    return streamFailed || status != QTextStream::Ok;
}
