// The records of graphic objects and colours.
#include "fileio/f_read.h"
#include "fileio/stream_fields.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/u_list.h"
#include "render/colorFunctions.h"

#include <memory>

int paddingLeft = MAX_PADDING;

namespace {

/// So many points a record gets although its numbers have given out.
constexpr int MAX_DAMAGED_POINTS = 100000;

/// The object code and what follows it in the first line of all objects but texts and compounds.
void readCommonFields(NumberScanner& fields, FigObject* object)
{
    fields.integer();
    object->sub_type = fields.integer();
    object->line_style = fields.integer();
    object->thickness = fields.integer();
    object->pen_color = fields.integer();
    object->fill_color = fields.integer();
    object->depth = fields.integer();
    object->pen_style = fields.integer();
    object->fill_style = fields.integer();
    object->style_val = fields.singleReal();
}

void readPoint(NumberScanner& fields, FigPoint* point)
{
    point->x = fields.integer();
    point->y = fields.integer();
}

// --- arrows and points, which stand on lines of their own -----------------------

FigArrow* readArrow(CFigContext* ctx, StreamFields& fields, int lineThickness)
{
    const int type = fields.integer();
    const int style = fields.integer();
    const float thickness = static_cast<float>(fields.real());
    const float width = static_cast<float>(fields.real());
    const float height = static_cast<float>(fields.real());
    return new_arrow(ctx, convert_arrow(type), style, thickness, width, height, lineThickness);
}

void readArrows(CFigContext* ctx, StreamFields& fields, FigObject* object, bool forward,
                bool backward)
{
    if (forward)
        object->forward_arrow = readArrow(ctx, fields, object->thickness);
    if (backward)
        object->backward_arrow = readArrow(ctx, fields, object->thickness);
}

void dropArrows(FigObject* object)
{
    delete object->forward_arrow;
    delete object->backward_arrow;
    object->forward_arrow = nullptr;
    object->backward_arrow = nullptr;
}

/// A count that its numbers do not bear out must not fill the memory.
bool mayGoOn(const StreamFields& fields, int soFar)
{
    return !fields.failed() || (soFar < MAX_DAMAGED_POINTS && --paddingLeft > 0);
}

/// Returns how many there are: one pair is read even for a count below 1.
int readPoints(StreamFields& fields, int count, FigPath* path)
{
    const int firstX = fields.integer();
    const int firstY = fields.integer();
    path->points = new FigPoint(firstX, firstY);
    FigPoint* last = path->points;
    int made = 1;
    for (; made < count && mayGoOn(fields, made); ++made) {
        const int x = fields.integer();
        const int y = fields.integer();
        if (!append_point(x, y, &last))
            break;
    }
    return made;
}

// --- pieces of single kinds -------------------------------------------------------

FigPic* readPicture(StreamFields& fields)
{
    auto* pic = new FigPic;
    pic->flipped = fields.integer();
    pic->file = fields.restOfLine().trimmed();
    return pic;
}

const char* boxName(int subType)
{
    switch (subType) {
    case T_BOX:
        return "box";
    case T_ARCBOX:
        return "arcbox";
    case T_PICTURE:
        return "picture";
    default:
        return nullptr;
    }
}

/// Posts why a line with so few points cannot be.
bool isDegenerateLine(int subType, int numPoints)
{
    const char* name = boxName(subType);
    if (name && numPoints < 5) {
        put_msg("Deleting zero-size %s at line %d", name, static_cast<long>(save_line));
        return true;
    }
    if (subType == T_POLYGON && numPoints < 3) {
        put_msg("Deleting polygon containing fewer than 3 points at line %d",
                static_cast<long>(save_line));
        return true;
    }
    return false;
}

bool isDegenerateSpline(int subType, int numPoints)
{
    const bool closed = subType & 1;
    if (closed && numPoints < 3) {
        put_msg("Closed splines must have 3 or more points, removing spline at line %d",
                static_cast<long>(save_line));
        return true;
    }
    if (!closed && numPoints < 2) {
        put_msg("Open splines must have 2 or more points, removing spline at line %d",
                static_cast<long>(save_line));
        return true;
    }
    return false;
}

void readShapeFactors(StreamFields& fields, int count, FigSpline* spline)
{
    FigShapeFactor* last = nullptr;
    for (int i = 0; i < count; ++i) {
        last = append_sfactor(fields.real(), last);
        if (i == 0)
            spline->sfactors = last;
    }
}

bool isInterpolated(int subType)
{
    return subType == 2 || subType == 3;
}

/// The old format tells control points, which are dropped, and repeats the first point of a
/// closed spline at its end. Returns the number of points that stay.
int readOldSplineTail(StreamFields& fields, int numPoints, FigSpline* spline)
{
    if (isInterpolated(spline->sub_type))
        for (int i = 0; i < 4 * numPoints; ++i)
            fields.real();
    if (!(spline->sub_type & 1))
        return numPoints;
    FigPoint* second = spline->points->next;
    spline->points->next = nullptr;
    free_points(spline->points);
    spline->points = second;
    return numPoints - 1;
}

} // namespace

// --- records ------------------------------------------------------------------------

FigEllipse* read_ellipseobject(CFigContext*, const QString& line)
{
    save_line = line_no;
    auto* ellipse = new FigEllipse;
    NumberScanner fields(line);
    readCommonFields(fields, ellipse);
    ellipse->direction = fields.integer();
    ellipse->angle = fields.singleReal();
    readPoint(fields, &ellipse->center);
    readPoint(fields, &ellipse->radiuses);
    readPoint(fields, &ellipse->start);
    readPoint(fields, &ellipse->end);
    fix_angle(&ellipse->angle);
    fix_depth(&ellipse->depth);
    fix_fillstyle(ellipse);
    ellipse->comments = attach_comments();
    return ellipse;
}

FigArc* read_arcobject(CFigContext* ctx, QTextStream& stream, const QString& line)
{
    save_line = line_no;
    auto* arc = new FigArc;
    NumberScanner fields(line);
    readCommonFields(fields, arc);
    arc->cap_style = fields.integer();
    arc->direction = fields.integer();
    const bool forward = fields.integer() != 0;
    const bool backward = fields.integer() != 0;
    arc->center_x = fields.singleReal();
    arc->center_y = fields.singleReal();
    for (FigPoint& point : arc->point)
        readPoint(fields, &point);
    // Unsigned, so that the smallest number wraps around.
    arc->sub_type = static_cast<int>(static_cast<unsigned>(arc->sub_type) - 1U);
    fix_depth(&arc->depth);
    fix_fillstyle(arc);
    StreamFields arrowLines(stream);
    readArrows(ctx, arrowLines, arc, forward, backward);
    if (arc->sub_type != 0)
        dropArrows(arc);
    arc->comments = attach_comments();
    return arc;
}

FigLine* read_lineobject(CFigContext* ctx, QTextStream& stream, const QString& line)
{
    save_line = line_no;
    auto result = std::make_unique<FigLine>();
    NumberScanner fields(line);
    readCommonFields(fields, result.get());
    result->join_style = fields.integer();
    result->cap_style = fields.integer();
    result->radius = fields.integer();
    const bool forward = fields.integer() != 0;
    const bool backward = fields.integer() != 0;
    const int count = fields.integer();
    fix_depth(&result->depth);
    fix_fillstyle(result.get());

    StreamFields following(stream);
    readArrows(ctx, following, result.get(), forward, backward);
    if (result->sub_type == T_PICTURE)
        result->pic = readPicture(following);
    const int numPoints = readPoints(following, count, result.get());
    if (isDegenerateLine(result->sub_type, numPoints))
        return nullptr;
    if (numPoints == 1)
        dropArrows(result.get());
    result->comments = attach_comments();
    return result.release();
}

FigSpline* read_splineobject(CFigContext* ctx, QTextStream& stream, const QString& line,
                             int version10)
{
    save_line = line_no;
    auto spline = std::make_unique<FigSpline>();
    NumberScanner fields(line);
    readCommonFields(fields, spline.get());
    spline->cap_style = fields.integer();
    const bool forward = fields.integer() != 0;
    const bool backward = fields.integer() != 0;
    const int count = fields.integer();
    fix_depth(&spline->depth);
    fix_fillstyle(spline.get());

    StreamFields following(stream);
    readArrows(ctx, following, spline.get(), forward, backward);
    int numPoints = readPoints(following, count, spline.get());
    const bool oldFormat = version10 < 32;
    if (oldFormat)
        numPoints = readOldSplineTail(following, numPoints, spline.get());
    else
        readShapeFactors(following, qMin(count, numPoints), spline.get());
    if (isDegenerateSpline(spline->sub_type, numPoints))
        return nullptr;
    if (oldFormat && !make_sfactors(spline.get()))
        return nullptr;
    spline->comments = attach_comments();
    return spline.release();
}

void read_colordef(CFigContext* ctx, const QString& line)
{
    const QString numbers = QString(line).replace(QLatin1Char('#'), QLatin1String("0x"));
    NumberScanner fields(numbers);
    fields.integer();
    const int number = static_cast<int>(fields.unsignedInteger());
    const QColor color(static_cast<QRgb>(fields.unsignedLong()));
    if (number < NUM_STD_COLORS)
        return;
    const int key = number - NUM_STD_COLORS;
    auto* shades = new unsigned[NUM_SHADES];
    create_shades(shades, {static_cast<unsigned short>(color.red()),
                           static_cast<unsigned short>(color.green()),
                           static_cast<unsigned short>(color.blue())});
    delete[] ctx->userColorShades.take(key);
    ctx->userColors.insert(key, color);
    ctx->userColorShades.insert(key, shades);
}
