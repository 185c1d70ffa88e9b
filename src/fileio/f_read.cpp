#include "fileio/f_read.h"

#include "edit/e_scale.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/w_layers.h"
#include "render/gfx_math.h"
#include "render/grid.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <clocale>
#include <cstring>
#include <limits>

QByteArray oldLocale;

namespace {

constexpr int FIG_RESOLUTION = 1200;
/// Coordinates of other resolutions are moved by that, so that they fall between the old pixels.
constexpr int SCALE_OFFSET = 15;
/// A decoded text has to fit into one string.
constexpr qint64 MAX_FILE_SIZE = 1000000000;

constexpr int RESULT_EMPTY = -2;
constexpr int RESULT_TOLD = -1;

int saturated(long value)
{
    return static_cast<int>(
        qBound<long>(std::numeric_limits<int>::min(), value, std::numeric_limits<int>::max()));
}

void beginReading()
{
    defer_update_layers = 1;
    num_object = 0;
    paddingLeft = MAX_PADDING;
    comments.clear();
    // What stands there now may be the "C" of a read that failed without finish; it is kept then.
    oldLocale = setlocale(LC_NUMERIC, nullptr);
    setlocale(LC_NUMERIC, "C");
    line_no = 1;
}

/// The whole text, decoded. Carriage returns mean nothing; a file opened as text drops them too,
/// but looks at each character for that.
QString decodedText(QFile* file)
{
    QString text = OrvaltTextStream(file).readAll();
    text.remove(QLatin1Char('\r'));
    return text;
}

/// Preamble and objects; they come from a string, which can be scanned in place.
int readText(CFigContext* ctx, QString text, FigDrawing* drawing, bool merge)
{
    OrvaltTextStream stream(&text, QIODevice::ReadOnly);
    int version10 = 0;
    const int preamble = readPreamble(ctx, stream, drawing, merge, &version10);
    if (preamble != 0)
        return preamble;
    drawing->comments = attach_comments();
    const int result = read_objects(ctx, stream, drawing, version10);
    comments.clear();
    if (result != 0)
        finish(ctx);
    return result;
}

/// Scales and moves to where the figure belongs. True when the bounds that the reading left are no
/// longer those of the figure; the corners of its compounds are up to date in any case.
bool placeFigure(CFigContext* ctx, FigDrawing* drawing, bool merge, int xoff, int yoff)
{
    const bool scaled = drawing->resolution != FIG_RESOLUTION;
    if (scaled)
        scale_figure(ctx, &drawing->objects,
                     static_cast<double>(FIG_RESOLUTION) / drawing->resolution, SCALE_OFFSET);
    // Moving by nothing would only compute the corners once more.
    const bool moved = scaled || merge || xoff != 0 || yoff != 0;
    if (moved)
        translate_object_list(ctx, &drawing->objects, xoff, yoff);
    return moved;
}

/// Distance that brings a negative minimum to the first grid line, or just before it.
long shiftOntoGrid(int minimum, int grid)
{
    if (minimum >= 0)
        return 0;
    return static_cast<long>(grid) - minimum - (grid != 0 ? 1 : 0);
}

/// Moves objects whose bounds begin at left and top. False when they stay where they are.
bool shiftOntoPage(CFigContext* ctx, FigObjectList* objects, int left, int top, bool merge)
{
    if (left >= 0 && top >= 0)
        return false;
    if (!merge &&
        !shell_question("Request", "The figure has objects, which have negative coordinates. Do "
                                   "you wish to shift it back on the page?"))
        return false;
    const int grid = round2(getGridRound(ctx));
    const long right = shiftOntoGrid(left, grid);
    const long down = shiftOntoGrid(top, grid);
    put_msg("Shifting entire figure %ld pixels right and %ld pixels down to keep on page.", right,
            down);
    translate_object_list(ctx, objects, saturated(right), saturated(down));
    return true;
}

} // namespace

bool load_file(CFigContext* ctx, const QString& fileName)
{
    if (fileName.isEmpty()) {
        put_msg("Empty name");
        return false;
    }
    ctx->clearObjects();
    reset_layers(ctx);
    reset_depths(ctx);
    clearallcounts(ctx);
    const int result = read_fig(ctx, fileName, &ctx->drawing, false, 0, 0);
    add_depth(ctx, &ctx->drawing.objects);
    update_layers(ctx);
    if (result != 0) {
        read_fail_message(fileName, result);
        return false;
    }
    put_msg("Opened \"%s\" Figure contains %d objects", fileName.toUtf8().constData(),
            static_cast<long>(num_object));
    ctx->resetModifiedflag();
    return true;
}

int read_fig(CFigContext* ctx, const QString& fileName, FigDrawing* drawing, bool merge, int xoff,
             int yoff)
{
    ctx->filename = QDir::toNativeSeparators(fileName);
    ctx->clearUserColors();
    put_msg("Reading objects from \"%s\" ...", fileName.toUtf8().constData());
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return RESULT_TOLD;
    if (file.size() > MAX_FILE_SIZE)
        return EFBIG;
    beginReading();
    const int result = readText(ctx, decodedText(&file), drawing, merge);
    if (result != 0)
        return result;
    FigPoint* nw = &drawing->nwcorner;
    FigPoint* se = &drawing->secorner;
    if (placeFigure(ctx, drawing, merge, xoff, yoff))
        boundsAsRead(ctx, &drawing->objects, nw, se);
    if (shiftOntoPage(ctx, &drawing->objects, nw->x, nw->y, merge))
        boundsAsRead(ctx, &drawing->objects, nw, se);
    finish(ctx);
    return 0;
}

void scale_figure(CFigContext*, FigObjectList* objects, double factor, int offset)
{
    if (factor != 1) {
        const QString message = QString::asprintf(
            "Scaling figure by a factor of %.3f for new %d pixel per inch resolution.", factor,
            FIG_RESOLUTION);
        put_msg(message.toUtf8().constData());
    }
    read_scale_objects(objects, static_cast<float>(factor), offset);
}

void shift_figure(CFigContext* ctx, FigObjectList* objects, bool merge)
{
    int left = 10000;
    int top = 10000;
    for (FigObject* object : *objects) {
        int xmin, ymin, xmax, ymax;
        object->getBounds(ctx, &xmin, &ymin, &xmax, &ymax, true, true);
        left = qMin(left, xmin);
        top = qMin(top, ymin);
    }
    shiftOntoPage(ctx, objects, left, top, merge);
}

void read_fail_message(const QString& name, int result)
{
    if (result == ENAMETOOLONG) {
        put_msg("File name \"%s\" is too long", name.toUtf8().constData());
    } else if (result == RESULT_EMPTY) {
        put_msg("File \"%s\" is empty.", name.toUtf8().constData());
    } else if (result != RESULT_TOLD) {
        const QString message = QString::asprintf("File \"%s\" is not accessible: %s.",
                                                  name.toUtf8().constData(), std::strerror(result));
        put_msg(message.toUtf8().constData());
        shell_warning("Error", message);
    }
}

void finish(CFigContext* ctx)
{
    setlocale(LC_NUMERIC, oldLocale.constData());
    defer_update_layers = 0;
    update_layers(ctx);
}
