// Opens texts as files, for the tests of the reader.
#pragma once

#include "RecordingShell.h"
#include "fileio/f_read.h"
#include "model/FigContext.h"
#include "model/u_list.h"

#include <QFile>
#include <QTemporaryDir>

/// Preamble of a foreign figure: 9 lines, so that the first record stands on line 10.
const QByteArray foreignHeader =
    "#FIG 3.2\nPortrait\nCenter\nMetric\nA4\n100.00\nSingle\n-2\n1200 2\n";
/// Preamble of an own figure: 11 lines.
const QByteArray ownHeader = "#FIG 3.2\n# Created by Orvalt\n# METADATA <version>1.0</version>\n"
                             "Portrait\nCenter\nMetric\nA4\n100.00\nSingle\n-2\n1200 2\n";
/// Preamble of the old format: 5 lines.
const QByteArray oldHeader = "#FIG 3.1\nPortrait\nCenter\nMetric\n1200 2\n";

/// A figure in a document without window, with what opening it posted.
class OpenedFigure {
public:
    explicit OpenedFigure(const QByteArray& bytes, bool answer = false)
    {
        recordingShell.clear();
        recordingShell.answer = answer;
        path = folder.filePath("figure.fig");
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
        file.close();
        opened = load_file(&ctx, path);
        messages = recordingShell.messages;
        boxes = recordingShell.boxes;
    }

    int count() const { return ctx.drawing.objects.size(); }
    FigObject* object(int index = 0) { return member(&ctx.drawing.objects, index); }
    template <class T> T* as(int index = 0) { return dynamic_cast<T*>(object(index)); }

    static FigObject* member(FigObjectList* list, int index)
    {
        return index < list->size() ? *(list->begin() + index) : nullptr;
    }

    /// What was posted between "Reading objects" and "Opened".
    QStringList remarks() const
    {
        QStringList found = messages;
        if (!found.isEmpty() && found.first().startsWith("Reading objects"))
            found.removeFirst();
        if (!found.isEmpty() && found.last().startsWith("Opened"))
            found.removeLast();
        return found;
    }

    /// The number in the message after opening, -1 when there is none.
    int countInMessage() const
    {
        const QString last = messages.isEmpty() ? QString() : messages.last();
        const QString words = "Figure contains ";
        const int start = last.indexOf(words);
        return start == -1 ? -1 : last.mid(start + words.size()).section(' ', 0, 0).toInt();
    }

    QTemporaryDir folder;
    QString path;
    CFigContext ctx;
    bool opened = false;
    QStringList messages;
    QStringList boxes;
};

/// "x,y x,y ..." of a point list.
inline QString pointsText(FigPath* path)
{
    QStringList points;
    for (FigPoint* point = path->points; point; point = point->next)
        points.append(QString("%1,%2").arg(point->x).arg(point->y));
    return points.join(' ');
}

inline QString factorsText(FigSpline* spline)
{
    QStringList factors;
    for (FigShapeFactor* factor = spline->sfactors; factor; factor = factor->next)
        factors.append(QString::number(factor->s));
    return factors.join(' ');
}
