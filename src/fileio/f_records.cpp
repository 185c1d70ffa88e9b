// The sequence of records: lines and their comments, objects at top level and within compounds.
#include "fileio/f_read.h"
#include "fileio/stream_fields.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/u_bound.h"

#include <algorithm>
#include <cerrno>
#include <vector>

int line_no = 1;
int save_line = 1;
int num_object = 0;
QStringList comments;
bool isFromOrvalt = false;

namespace {

constexpr int COLOR_DEFINITION = 0;
constexpr int END_OF_COMPOUND = -6;
constexpr int USUAL_LINE_LENGTH = 200;

/// Compounds that are open around the present record.
int nesting = 0;

bool isBlank(const QString& line)
{
    return std::all_of(line.begin(), line.end(),
                       [](QChar character) { return character.isSpace(); });
}

/// The common line holds no "#" at all, which is quickly seen.
bool isMetadata(const QString& line)
{
    const QLatin1String mark("# METADATA");
    return line.contains(QLatin1Char('#')) && (line.startsWith(mark) || line.contains(mark));
}

int recordCode(const QString& line)
{
    return NumberScanner(line).integer();
}

void badCode(int line)
{
    put_msg("Incorrect object code at line %d.", static_cast<long>(line));
}

/// So deep a compound would exhaust the stack: its members join the one around it.
bool isObjectCode(int code)
{
    return code >= O_ELLIPSE &&
           (code < O_COMPOUND || (code == O_COMPOUND && nesting < MAX_NESTING));
}

/// Null when the record was refused.
FigObject* readObject(CFigContext* ctx, QTextStream& stream, const QString& line, int code,
                      int version10, MetadataMap* metadata)
{
    switch (code) {
    case O_ELLIPSE:
        return read_ellipseobject(ctx, line);
    case O_POLYLINE:
        return read_lineobject(ctx, stream, line);
    case O_SPLINE:
        return read_splineobject(ctx, stream, line, version10);
    case O_TEXT:
        return read_textobject(ctx, line);
    case O_ARC:
        return read_arcobject(ctx, stream, line);
    default:
        return read_compoundobject(ctx, stream, line, version10, metadata);
    }
}

/// The lines that were gathered go to the object; what was refused leaves them to the next one. An
/// id is taken at once, and only lists that may hold links stay in the map. Files of other origin
/// hold such lines by chance.
void keepMetadata(FigObject* object, QStringList** lines, MetadataMap* metadata)
{
    if (!*lines || (*lines)->isEmpty())
        return;
    if (isFromOrvalt)
        parseMetadataForId(object, *lines);
    if (!isFromOrvalt || std::all_of((*lines)->cbegin(), (*lines)->cend(), isIdLine)) {
        (*lines)->clear();
        return;
    }
    metadata->insert(object, *lines);
    *lines = nullptr;
}

void dropMetadata(QStringList** lines)
{
    delete *lines;
    *lines = nullptr;
}

struct Bounds {
    int xmin, ymin, xmax, ymax;
};

Bounds boundsOf(CFigContext* ctx, FigObject* object)
{
    if (object->type == O_COMPOUND) {
        const auto* compound = static_cast<FigCompound*>(object);
        return {compound->nwcorner.x, compound->nwcorner.y, compound->secorner.x,
                compound->secorner.y};
    }
    Bounds bounds;
    object->getBounds(ctx, &bounds.xmin, &bounds.ymin, &bounds.xmax, &bounds.ymax, true, true);
    return bounds;
}

/// Bounds of a list that grows. An object is measured best when it has just been read: later it
/// has to be fetched from the memory again.
class Extent {
public:
    void include(CFigContext* ctx, FigObject* object)
    {
        if (liesWithin(ctx, object))
            return;
        const Bounds one = boundsOf(ctx, object);
        all = empty ? one
                    : Bounds{qMin(all.xmin, one.xmin), qMin(all.ymin, one.ymin),
                             qMax(all.xmax, one.xmax), qMax(all.ymax, one.ymax)};
        empty = false;
    }

    void include(CFigContext* ctx, const FigObjectList& objects)
    {
        for (FigObject* object : objects)
            include(ctx, object);
    }

    void store(FigPoint* nwcorner, FigPoint* secorner) const
    {
        nwcorner->x = all.xmin;
        nwcorner->y = all.ymin;
        secorner->x = all.xmax;
        secorner->y = all.ymax;
    }

private:
    /// Certain without exact bounds, for most objects of a large figure.
    bool liesWithin(CFigContext* ctx, FigObject* object) const
    {
        QRect reach;
        return !empty && object->type != O_COMPOUND && reachOfObject(ctx, object, &reach) &&
               reach.left() >= all.xmin && reach.top() >= all.ymin && reach.right() <= all.xmax &&
               reach.bottom() <= all.ymax;
    }

    Bounds all{0, 0, 0, 0};
    bool empty = true;
};

/// Splines and inner compounds are not counted there; the message after opening tells it so.
bool countsInCompound(int code)
{
    return code != O_SPLINE && code != O_COMPOUND;
}

/// With room for most lines, so that the next one does not need memory of its own.
QString lineBuffer()
{
    QString line;
    line.reserve(USUAL_LINE_LENGTH);
    return line;
}

void readMembers(CFigContext* ctx, QTextStream& stream, FigCompound* compound, int version10,
                 MetadataMap* metadata)
{
    Extent extent;
    QStringList* lines = nullptr;
    QString line = lineBuffer();
    while (read_line(stream, &lines, &line)) {
        const int code = recordCode(line);
        if (!isObjectCode(code)) {
            // The end mark takes the same way as a bad code, message included.
            badCode(save_line);
            if (code == END_OF_COMPOUND)
                break;
            continue;
        }
        FigObject* object = readObject(ctx, stream, line, code, version10, metadata);
        if (!object)
            continue;
        compound->objects->append(object);
        extent.include(ctx, object);
        keepMetadata(object, &lines, metadata);
        if (countsInCompound(code))
            ++num_object;
    }
    dropMetadata(&lines);
    extent.store(&compound->nwcorner, &compound->secorner);
}

/// The nodes of a list that is made at a stretch lie side by side. Whoever walks over a large
/// figure then waits less for the memory than with the records between them.
void appendAll(const std::vector<FigObject*>& objects, FigObjectList* list)
{
    for (FigObject* object : objects)
        list->append(object);
}

void readTopLevelColor(CFigContext* ctx, const QString& line, QStringList** lines)
{
    if (num_object != 0)
        put_msg("Color definitions must come before other objects (line %d).",
                static_cast<long>(line_no));
    read_colordef(ctx, line);
    dropMetadata(lines);
}

} // namespace

bool read_line(QTextStream& stream, QStringList** metadata, QString* line)
{
    for (;;) {
        takeLine(stream, line);
        if (line->isEmpty() && stream.atEnd())
            return false;
        ++line_no;
        if (line->isEmpty())
            continue;
        if (isMetadata(*line)) {
            if (!*metadata)
                *metadata = new QStringList;
            (*metadata)->append(QString(line->constData(), line->size()));
        } else if (line->startsWith(QLatin1Char('#'))) {
            save_comment(*line);
        } else if (!isBlank(*line)) {
            return true;
        }
    }
}

bool read_line(QTextStream& stream, QString* line)
{
    QStringList* dropped = nullptr;
    const bool found = read_line(stream, &dropped, line);
    delete dropped;
    return found;
}

void save_comment(const QString& line)
{
    QString text = line;
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    if (text.startsWith(QLatin1Char('#')))
        text.remove(0, 1);
    if (text.startsWith(QLatin1Char(' ')))
        text.remove(0, 1);
    comments.append(text);
}

QString attach_comments()
{
    if (comments.isEmpty())
        return QString();
    QString text = comments.join(QLatin1Char('\n'));
    comments.clear();
    return text;
}

void boundsAsRead(CFigContext* ctx, FigObjectList* objects, FigPoint* nwcorner, FigPoint* secorner)
{
    Extent extent;
    extent.include(ctx, *objects);
    extent.store(nwcorner, secorner);
}

FigCompound* read_compoundobject(CFigContext* ctx, QTextStream& stream, const QString&,
                                 int version10, MetadataMap* metadata)
{
    save_line = line_no;
    auto* compound = new FigCompound;
    compound->comments = attach_comments();
    // The corners of the file are not looked at: the bounds of the members take their place.
    ++nesting;
    readMembers(ctx, stream, compound, version10, metadata);
    --nesting;
    return compound;
}

int read_objects(CFigContext* ctx, QTextStream& stream, FigDrawing* drawing, int version10)
{
    const bool allNew = drawing->objects.isEmpty();
    Extent extent;
    extent.include(ctx, drawing->objects);
    std::vector<FigObject*> objects;
    MetadataMap metadata;
    QStringList* lines = nullptr;
    QString line = lineBuffer();
    while (read_line(stream, &lines, &line)) {
        const int code = recordCode(line);
        if (code == COLOR_DEFINITION) {
            readTopLevelColor(ctx, line, &lines);
            continue;
        }
        if (!isObjectCode(code)) {
            badCode(line_no);
            continue;
        }
        FigObject* object = readObject(ctx, stream, line, code, version10, &metadata);
        if (!object)
            continue;
        objects.push_back(object);
        extent.include(ctx, object);
        keepMetadata(object, &lines, &metadata);
        if (code != O_COMPOUND)
            ++num_object;
    }
    dropMetadata(&lines);
    appendAll(objects, &drawing->objects);
    extent.store(&drawing->nwcorner, &drawing->secorner);
    applyMetadata(ctx, &drawing->objects, allNew, &metadata);
    return stream.atEnd() ? 0 : errno;
}
