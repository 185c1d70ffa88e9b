// The sequence of records: lines and their comments, objects at top level and within compounds.
#include "fileio/f_read.h"
#include "fileio/number_scanner.h"
#include "model/FigContext.h"
#include "model/shell.h"

#include <cerrno>

int line_no = 1;
int save_line = 1;
int num_object = 0;
QStringList comments;
bool isFromOrvalt = false;

namespace {

constexpr int COLOR_DEFINITION = 0;
constexpr int END_OF_COMPOUND = -6;

/// Compounds that are open around the present record.
int nesting = 0;

bool isBlank(const QString& line)
{
    for (const QChar character : line)
        if (!character.isSpace())
            return false;
    return true;
}

/// The common line holds no "#" at all, which is quickly seen.
bool isMetadata(const QString& line)
{
    const int mark = line.indexOf(QLatin1Char('#'));
    return mark != -1 && line.indexOf(QLatin1String("# METADATA"), mark) != -1;
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
    return code >= O_ELLIPSE && (code < O_COMPOUND || (code == O_COMPOUND && nesting < MAX_NESTING));
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

/// The lines that were gathered go to the object; what was refused leaves them to the next one.
void keepMetadata(FigObject* object, QStringList** lines, MetadataMap* metadata)
{
    if (!*lines || (*lines)->isEmpty())
        return;
    metadata->insert(object, *lines);
    *lines = nullptr;
}

void dropMetadata(QStringList** lines)
{
    delete *lines;
    *lines = nullptr;
}

/// Sets the corners to what getBounds would give. The corners of inner compounds are their bounds
/// already; asking these again would make deep nesting slow.
void setCorners(CFigContext* ctx, FigCompound* compound)
{
    int xmin = 0, ymin = 0, xmax = 0, ymax = 0;
    bool first = true;
    for (FigObject* object : *compound->objects) {
        int x1, y1, x2, y2;
        if (object->type == O_COMPOUND) {
            const auto* inner = static_cast<FigCompound*>(object);
            x1 = inner->nwcorner.x;
            y1 = inner->nwcorner.y;
            x2 = inner->secorner.x;
            y2 = inner->secorner.y;
        } else {
            object->getBounds(ctx, &x1, &y1, &x2, &y2, true, true);
        }
        xmin = first ? x1 : qMin(xmin, x1);
        ymin = first ? y1 : qMin(ymin, y1);
        xmax = first ? x2 : qMax(xmax, x2);
        ymax = first ? y2 : qMax(ymax, y2);
        first = false;
    }
    compound->nwcorner = FigPoint(xmin, ymin);
    compound->secorner = FigPoint(xmax, ymax);
}

/// Splines and inner compounds are not counted there; the message after opening tells it so.
bool countsInCompound(int code)
{
    return code != O_SPLINE && code != O_COMPOUND;
}

void readMembers(CFigContext* ctx, QTextStream& stream, FigCompound* compound, int version10,
                 MetadataMap* metadata)
{
    QStringList* lines = nullptr;
    QString line;
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
        keepMetadata(object, &lines, metadata);
        if (countsInCompound(code))
            ++num_object;
    }
    dropMetadata(&lines);
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
        QString text = stream.readLine();
        if (text.isEmpty() && stream.atEnd()) {
            line->clear();
            return false;
        }
        ++line_no;
        if (isMetadata(text)) {
            if (!*metadata)
                *metadata = new QStringList;
            (*metadata)->append(text);
        } else if (text.startsWith(QLatin1Char('#'))) {
            save_comment(text);
        } else if (!isBlank(text)) {
            *line = text;
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
    const QString text = comments.join(QLatin1Char('\n'));
    comments.clear();
    return text;
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
    setCorners(ctx, compound);
    return compound;
}

int read_objects(CFigContext* ctx, QTextStream& stream, FigDrawing* drawing, int version10)
{
    MetadataMap metadata;
    QStringList* lines = nullptr;
    QString line;
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
        drawing->objects.append(object);
        keepMetadata(object, &lines, &metadata);
        if (code != O_COMPOUND)
            ++num_object;
    }
    dropMetadata(&lines);
    applyMetadata(ctx, drawing, &metadata);
    return stream.atEnd() ? 0 : errno;
}
