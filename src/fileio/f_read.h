// Reads FIG 3.1 and 3.2 text into a drawing, with the private METADATA comments of own files.
// Globals make it non re-entrant; the locale bracket makes it GUI-thread only.
#pragma once

#include "model/ObjectFunctions.h"

#include <QHash>
#include <QStringList>
#include <QTextStream>

class CFigContext;

/// Text stream of all FIG text: C locale, codec of the setting, byte order marks recognised.
class OrvaltTextStream : public QTextStream {
public:
    explicit OrvaltTextStream(QIODevice* device);
    explicit OrvaltTextStream(QString* string, QIODevice::OpenMode mode = QIODevice::ReadWrite);
    ~OrvaltTextStream() override = default;

private:
    void configure();
};

struct PaperSize {
    const char* shortName; ///< with the trailing blanks that go to files
    const char* description;
    const char* latexOption;
    int width, height; ///< portrait, 1/1200 inch
};
constexpr int NUM_PAPER_SIZES = 29;
extern const PaperSize paper_sizes[NUM_PAPER_SIZES];

// Reader state. Written by read_fig and what it calls.
extern int line_no;          ///< current line, from 1
extern int save_line;        ///< line on which the present record began
extern int num_object;       ///< objects read
extern QStringList comments; ///< comment lines waiting for the next object
extern bool isFromOrvalt;    ///< the first comment names this program
extern QByteArray oldLocale; ///< LC_NUMERIC to be restored

/// Points that damaged counts may still add to this figure; set anew by read_fig. It keeps the
/// memory that a figure takes in proportion to its file.
extern int paddingLeft;
constexpr int MAX_PADDING = 2000000;

/// A compound within so many others is refused.
constexpr int MAX_NESTING = 1000;

/// The metadata lines of objects that may have links; ids are taken at once.
using MetadataMap = QHash<FigObject*, QStringList*>;

/// Replaces the document's figure by that of the file. False after a message.
bool load_file(CFigContext* ctx, const QString& fileName);
/// 0, -1 when a message has been given, -2 for an empty file, or an errno value.
/// merge reads a piece for another figure, placed by xoff, yoff (figure units).
int read_fig(CFigContext* ctx, const QString& fileName, FigDrawing* drawing, bool merge, int xoff,
             int yoff);
int readPreamble(CFigContext* ctx, QTextStream& stream, FigDrawing* drawing, bool merge,
                 int* version10);
/// All records up to the end of the stream. Leaves the corners of the drawing at their bounds.
int read_objects(CFigContext* ctx, QTextStream& stream, FigDrawing* drawing, int version10);

// One record each; line is its first line. Null when the record was refused.
FigCompound* read_compoundobject(CFigContext* ctx, QTextStream& stream, const QString& line,
                                 int version10, MetadataMap* metadata);
FigEllipse* read_ellipseobject(CFigContext* ctx, const QString& line);
FigLine* read_lineobject(CFigContext* ctx, QTextStream& stream, const QString& line);
FigSpline* read_splineobject(CFigContext* ctx, QTextStream& stream, const QString& line,
                             int version10);
FigText* read_textobject(CFigContext* ctx, const QString& line);
FigArc* read_arcobject(CFigContext* ctx, QTextStream& stream, const QString& line);
void read_colordef(CFigContext* ctx, const QString& line);

/// Next line that is neither blank, comment nor metadata. Metadata lines go to *metadata, which
/// is made if null. False at the end of the file.
bool read_line(QTextStream& stream, QStringList** metadata, QString* line);
bool read_line(QTextStream& stream, QString* line);

/// Index into paper_sizes, -1 for an unknown name.
int parse_papersize(QString text);
void fix_angle(float* angle);
void fix_depth(int* depth);
void fix_fillstyle(FigObject* object);
int convert_arrow(int type);
void scale_figure(CFigContext* ctx, FigObjectList* objects, double factor, int offset);
void shift_figure(CFigContext* ctx, FigObjectList* objects, bool merge);
/// Exact bounds of objects just read, whose compounds have theirs in their corners. These are not
/// measured again, so that deep nesting takes linear time.
void boundsAsRead(CFigContext* ctx, FigObjectList* objects, FigPoint* nwcorner, FigPoint* secorner);
QString attach_comments();
void save_comment(const QString& line);
/// Whether a metadata line tells an id as this program writes it. Such a line holds no link.
bool isIdLine(const QString& line);
void parseMetadataForId(FigObject* object, QStringList* lines);
void parseMetadataForLinks(FigObject* object, FigObjectList* objects, QStringList* lines);
/// Gives every object its id, restores the links if the ids allow it, and frees the lists of the
/// map. allNew: no object was there before the reading.
void applyMetadata(CFigContext* ctx, FigObjectList* objects, bool allNew, MetadataMap* metadata);
void read_fail_message(const QString& name, int result);
/// Restores the locale and lets the layer panel follow again.
void finish(CFigContext* ctx);
