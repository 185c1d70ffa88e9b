#include "fileio/stream_fields.h"

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
    return stream.status() != QTextStream::Ok || (scanner && scanner->status() != QTextStream::Ok);
}
