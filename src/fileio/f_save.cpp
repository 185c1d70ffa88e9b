#include "fileio/f_save.h"

#include "fileio/f_read.h"
#include "fileio/file_replacement.h"
#include "fileio/record_text.h"
#include "fileio/rescue_copy.h"
#include "fileio/written_tree.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/version.h"

#include <QBuffer>

#include <cstring>

bool write_v40 = false;

namespace {

constexpr int PAIRS_PER_LINE = 6;
constexpr int FACTORS_PER_LINE = 8;
constexpr int FIRST_USER_COLOR = 32;

/// The tree that is being written, null when single objects are written on their own.
WrittenTree* presentTree = nullptr;

// --- the whole text ---------------------------------------------------------------

void countObject(const FigObject* object)
{
    if (object->type != O_COMPOUND)
        ++num_object;
}

void writeTopLevel(CFigContext* ctx, QTextStream& stream);

/// The text as the file is to hold it. Texts of figures fit in memory several times, and so neither
/// a half written file nor a missing rescue copy can come of it.
QByteArray encodedText(CFigContext* ctx, void (*write)(CFigContext*, QTextStream&))
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    OrvaltTextStream stream(&buffer);
    stream.setRealNumberNotation(QTextStream::FixedNotation);
    stream << Qt::noforcepoint;
    write(ctx, stream);
    stream.flush();
    return buffer.data();
}

/// The text that there was no file for. It is of no concern to the count of what was saved.
QByteArray unsavedText(CFigContext* ctx)
{
    const int counted = num_object;
    const QByteArray text = encodedText(ctx, writeTopLevel);
    num_object = counted;
    return text;
}

bool saveFailed(const QString& fileName, int error, const QByteArray& text)
{
    put_msg("Couldn't open file %s, %s", fileName.toUtf8().constData(), std::strerror(error));
    keepRescueCopy(fileName, text);
    return false;
}

// --- links ------------------------------------------------------------------------

bool isLinkTarget(FigObjectList* rootList, long id)
{
    if (presentTree && presentTree->isOf(rootList))
        return presentTree->containsId(id);
    const FigObject* target = findObjectById(rootList, id);
    return target && hasRecord(target);
}

const FigPoint* linkedPoints(FigObject* object)
{
    if (object->type == O_POLYLINE)
        return static_cast<FigLine*>(object)->points;
    if (object->type == O_SPLINE)
        return static_cast<FigSpline*>(object)->points;
    return nullptr;
}

// --- fields that several records share ----------------------------------------------

/// From the code to the style value, as all records but those of texts and compounds begin.
void putCommonFields(RecordText& record, int subType, const FigObject* object)
{
    record << object->type << ' ' << subType << ' ' << object->line_style << ' '
           << object->thickness << ' ' << object->pen_color << ' ' << object->fill_color << ' '
           << object->depth << ' ' << object->pen_style << ' ' << object->fill_style << ' '
           << Decimals{object->style_val, 3};
}

void putArrowFlags(RecordText& record, const FigObject* object)
{
    record << ' ' << (object->forward_arrow ? 1 : 0) << ' ' << (object->backward_arrow ? 1 : 0);
}

void putArrow(RecordText& record, const FigArrow* arrow)
{
    if (arrow)
        record << '\t' << arrow->type << ' ' << arrow->style << ' ' << Decimals{arrow->thickness, 2}
               << ' ' << Decimals{arrow->wd, 2} << ' ' << Decimals{arrow->ht, 2} << '\n';
}

void putArrows(RecordText& record, const FigObject* object)
{
    putArrow(record, object->forward_arrow);
    putArrow(record, object->backward_arrow);
}

void putPoint(RecordText& record, const FigPoint& point)
{
    record << ' ' << point.x << ' ' << point.y;
}

/// The lines of a list of nodes; a further line begins only before a further node.
template <typename Node, typename Put>
void putList(RecordText& record, const Node* first, int perLine, Put put)
{
    int column = 0;
    record << '\t';
    for (const Node* node = first; node; node = node->next, ++column) {
        if (column == perLine) {
            record << "\n\t";
            column = 0;
        }
        put(*node);
    }
    record << '\n';
}

void putPoints(RecordText& record, const FigPoint* first)
{
    putList(record, first, PAIRS_PER_LINE, [&](const FigPoint& point) { putPoint(record, point); });
}

/// The bytes of the name in UTF-8 go through the stream as characters of Latin-1: with the usual
/// encoding other letters than those of ASCII do not come back.
void putPicture(RecordText& record, const FigPic* pic)
{
    const QByteArray name = pic && !pic->file.isEmpty() ? pic->file.toUtf8() : "<empty>";
    record << '\t' << (pic ? pic->flipped : 0) << ' ' << QString::fromLatin1(name) << '\n';
}

void putCorners(QTextStream& stream, const FigCompound* compound)
{
    RecordText record(stream);
    record << O_COMPOUND;
    putPoint(record, compound->nwcorner);
    putPoint(record, compound->secorner);
    record << '\n';
}

// --- header -------------------------------------------------------------------------

const char* paperName(const CFigContext* ctx)
{
    return paper_sizes[qBound(0, ctx->paperSize, NUM_PAPER_SIZES - 1)].shortName;
}

/// Two digits each, in lower case.
QString colorDigits(const QColor& color)
{
    return QString::asprintf("%02x%02x%02x", static_cast<unsigned>(color.red()),
                             static_cast<unsigned>(color.green()),
                             static_cast<unsigned>(color.blue()));
}

void writeTopLevel(CFigContext* ctx, QTextStream& stream)
{
    FigObjectList* root = &ctx->drawing.objects;
    writeFigHeader(ctx, stream);
    WrittenTree tree(ctx, root);
    presentTree = &tree;
    for (FigObject* object : qAsConst(*root)) {
        countObject(object);
        writeObject(stream, root, object);
    }
    presentTree = nullptr;
}

} // namespace

bool write_file(CFigContext* ctx, const QString& fileName)
{
    FileReplacement file(fileName);
    int error = file.open();
    if (error != 0)
        return saveFailed(fileName, error, unsavedText(ctx));
    num_object = 0;
    const QByteArray text =
        encodedText(ctx, [](CFigContext* c, QTextStream& stream) { writeObjects(c, stream); });
    error = file.commit(text);
    if (error != 0)
        return saveFailed(fileName, error, text);
    put_msg("%d object(s) saved in \"%s\"", static_cast<long>(num_object),
            fileName.toUtf8().constData());
    return true;
}

int writeObjects(CFigContext* ctx, QTextStream& stream)
{
    put_msg("Writing...");
    writeTopLevel(ctx, stream);
    return 0;
}

void writeFigHeader(CFigContext* ctx, QTextStream& stream)
{
    RecordText header(stream);
    header << "#FIG 3.2\n"
           << "# Created by Orvalt version " << getOrvaltVersionString(true) << '\n'
           << "# METADATA <version>1.0</version>\n"
           << (ctx->landscape ? "Landscape\n" : "Portrait\n")
           << (ctx->flushLeft ? "Flush left\n" : "Center\n")
           << (ctx->metric ? "Metric\n" : "Inches\n") << paperName(ctx) << '\n'
           << Decimals{ctx->magnification, 2} << '\n'
           << (ctx->multiplePage ? "Multiple\n" : "Single\n") << ctx->transparentColor << '\n';
    header.flush();
    writeComments(stream, ctx->drawing.comments);
    // The reader has scaled to it.
    header << "1200 2\n";
    header.flush();
    writeColordefs(ctx, stream);
}

void writeColordefs(CFigContext* ctx, QTextStream& stream)
{
    if (write_v40)
        stream << "UserColors {\n";
    for (auto color = ctx->userColors.constBegin(); color != ctx->userColors.constEnd(); ++color)
        stream << (write_v40 ? "  Ucol " : "0 ") << color.key() + FIRST_USER_COLOR << " #"
               << colorDigits(color.value()) << '\n';
}

void writeObject(QTextStream& stream, FigObjectList* rootList, FigObject* object)
{
    // Metadata and comments without a record would be taken for those of the next object.
    if (!hasRecord(object))
        return;
    RecordText(stream) << "# METADATA <id>" << object->id << "</id>\n";
    writeLinks(stream, rootList, object);
    switch (object->type) {
    case O_ELLIPSE:
        return writeEllipse(stream, static_cast<FigEllipse*>(object));
    case O_POLYLINE:
        return writeLine(stream, static_cast<FigLine*>(object));
    case O_SPLINE:
        return writeSpline(stream, static_cast<FigSpline*>(object));
    case O_TEXT:
        return writeText(stream, static_cast<FigText*>(object));
    case O_ARC:
        return writeArc(stream, static_cast<FigArc*>(object));
    case O_COMPOUND:
        return writeCompound(stream, rootList, static_cast<FigCompound*>(object));
    }
}

void writeLinks(QTextStream& stream, FigObjectList* rootList, FigObject* object)
{
    int index = 0;
    for (const FigPoint* point = linkedPoints(object); point; point = point->next, ++index) {
        const FigLink* link = point->link;
        if (link && isLinkTarget(rootList, link->targetObjId))
            RecordText(stream) << "# METADATA <link srcPointIdx=" << index
                               << " targetObjId=" << link->targetObjId
                               << " targetLeftPointIdx=" << link->targetLeftPointIdx << "/>\n";
    }
}

void writeComments(QTextStream& stream, const QString& text)
{
    if (text.isEmpty())
        return;
    for (const QString& part : text.split('\n'))
        stream << "# " << part << '\n';
}

void writeArrows(QTextStream& stream, FigObject* object)
{
    RecordText record(stream);
    putArrows(record, object);
}

void writeLine(QTextStream& stream, FigLine* line)
{
    if (!hasRecord(line))
        return;
    writeComments(stream, line->comments);
    RecordText record(stream);
    putCommonFields(record, line->sub_type, line);
    record << ' ' << line->join_style << ' ' << line->cap_style << ' ' << line->radius;
    putArrowFlags(record, line);
    record << ' ' << line->getNumPoints() << '\n';
    putArrows(record, line);
    if (line->sub_type == T_PICTURE)
        putPicture(record, line->pic);
    putPoints(record, line->points);
}

void writeSpline(QTextStream& stream, FigSpline* spline)
{
    if (!hasRecord(spline))
        return;
    writeComments(stream, spline->comments);
    RecordText record(stream);
    putCommonFields(record, spline->sub_type, spline);
    record << ' ' << spline->cap_style;
    putArrowFlags(record, spline);
    record << ' ' << spline->getNumPoints() << '\n';
    putArrows(record, spline);
    putPoints(record, spline->points);
    if (spline->sfactors)
        putList(record, spline->sfactors, FACTORS_PER_LINE, [&](const FigShapeFactor& factor) {
            record << ' ' << Decimals{factor.s, 3};
        });
}

void writeText(QTextStream& stream, FigText* text)
{
    if (!hasRecord(text))
        return;
    writeComments(stream, text->comments);
    RecordText record(stream);
    // The plain sum of figure units and pixels; readers measure anew.
    const long height = static_cast<long>(text->ascent) + text->descent;
    record << O_TEXT << ' ' << text->sub_type << ' ' << text->color << ' ' << text->depth << ' '
           << text->pen_style << ' ' << text->font << ' ' << text->size << ' '
           << Decimals{text->angle, 4} << ' ' << text->flags << ' ' << height << ' ' << text->length
           << ' ' << text->x << ' ' << text->y << ' '
           << QString(text->cstring).replace('\\', "\\\\") << "\\001\n";
}

void writeArc(QTextStream& stream, FigArc* arc)
{
    writeComments(stream, arc->comments);
    RecordText record(stream);
    // Unsigned, so that the greatest number wraps around, as it did when it was read.
    putCommonFields(record, static_cast<int>(static_cast<unsigned>(arc->sub_type) + 1U), arc);
    record << ' ' << arc->cap_style << ' ' << arc->direction;
    putArrowFlags(record, arc);
    record << ' ' << Decimals{arc->center_x, 3} << ' ' << Decimals{arc->center_y, 3};
    for (const FigPoint& point : arc->point)
        putPoint(record, point);
    record << '\n';
    putArrows(record, arc);
}

void writeEllipse(QTextStream& stream, FigEllipse* ellipse)
{
    if (!hasRecord(ellipse))
        return;
    writeComments(stream, ellipse->comments);
    RecordText record(stream);
    putCommonFields(record, ellipse->sub_type, ellipse);
    record << ' ' << ellipse->direction << ' ' << Decimals{ellipse->angle, 4};
    putPoint(record, ellipse->center);
    putPoint(record, ellipse->radiuses);
    putPoint(record, ellipse->start);
    putPoint(record, ellipse->end);
    record << '\n';
}

void writeCompound(QTextStream& stream, FigObjectList* rootList, FigCompound* compound)
{
    writeComments(stream, compound->comments);
    putCorners(stream, presentTree ? presentTree->withCorners(compound) : compound);
    for (FigObject* member : qAsConst(*compound->objects)) {
        countObject(member);
        writeObject(stream, rootList, member);
    }
    stream << "-6\n";
}
