// What the writer makes of small documents, for its tests.
#pragma once

#include "ObjectBuilders.h"
#include "RecordingShell.h"
#include "fileio/f_read.h"
#include "fileio/f_save.h"
#include "model/FigContext.h"

#include <QFile>
#include <QTemporaryDir>

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

/// The text of one function of the writer, with a stream as write_file sets it up.
template <typename Write> QString written(Write write)
{
    QString text;
    OrvaltTextStream stream(&text, QIODevice::WriteOnly);
    stream.setRealNumberNotation(QTextStream::FixedNotation);
    stream << Qt::noforcepoint;
    write(stream);
    stream.flush();
    return text;
}

/// Id line, links, comments and record of one object that stands alone.
inline QString writtenObject(FigObject* object)
{
    FigObjectList root = {object};
    return written([&](QTextStream& stream) { writeObject(stream, &root, object); });
}

/// A document that is saved into a folder of its own.
struct SavedDocument {
    QTemporaryDir folder;
    CFigContext ctx;

    SavedDocument() { recordingShell.clear(); }
    void add(FigObject* object) { ctx.drawing.objects.append(object); }
    QString path() const { return folder.filePath("figure.fig"); }
    QByteArray save()
    {
        return write_file(&ctx, path()) ? contentOf(path()) : QByteArray("(not saved)");
    }
};

/// Opens one file and saves it as another one.
inline bool openAndSave(const QString& from, const QString& to)
{
    CFigContext ctx;
    return load_file(&ctx, from) && write_file(&ctx, to);
}
