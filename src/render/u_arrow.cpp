#include "render/u_arrow.h"

#include "model/FigContext.h"
#include "render/coords.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"

#include <cmath>

QPoint farpts[MAX_ARROW_POINTS];
long nfpts = 0;
QPoint barpts[MAX_ARROW_POINTS];
long nbpts = 0;

namespace {

constexpr int O_CIRCLE_HEAD = 5;
constexpr int O_HALF_CIRCLE_HEAD = 6;

// clang-format off
//                                 points tip fill simple clip half tipmv outline
constexpr ArrowShape stick          = {3, 1, 0, true, true, false, 2.15, {{-1, 0.5}, {0, 0}, {-1, -0.5}}, {}};
constexpr ArrowShape nothing        = {0, 0, 0, true, true, false, 0, {}, {}};
constexpr ArrowShape triangle       = {4, 1, 0, true, true, false, 2.1, {{-1, 0.5}, {0, 0}, {-1, -0.5}, {-1, 0.5}}, {}};
constexpr ArrowShape indented       = {5, 1, 0, true, true, false, 2.6, {{-1.25, 0.5}, {0, 0}, {-1.25, -0.5}, {-1, 0}, {-1.25, 0.5}}, {}};
constexpr ArrowShape pointed        = {5, 1, 0, true, true, false, 1.5, {{-0.75, 0.5}, {0, 0}, {-0.75, -0.5}, {-1, 0}, {-0.75, 0.5}}, {}};
constexpr ArrowShape diamond        = {5, 1, 0, true, true, false, 1.15, {{-0.5, 0.5}, {0, 0}, {-0.5, -0.5}, {-1, 0}, {-0.5, 0.5}}, {}};
constexpr ArrowShape circle         = nothing;
constexpr ArrowShape halfCircle     = {0, 0, 0, true, true, false, -1, {}, {}};
constexpr ArrowShape square         = {5, 1, 0, true, true, false, 0, {{-1, 0.5}, {0, 0.5}, {0, -0.5}, {-1, -0.5}, {-1, 0.5}}, {}};
constexpr ArrowShape reversed       = {4, 1, 0, true, false, false, 0, {{-1, 0}, {0, 0.5}, {0, -0.5}, {-1, 0}}, {}};
constexpr ArrowShape upperFilled    = {5, 1, 3, false, true, false, 2.6, {{-1.25, 0.5}, {0, 0}, {-1.25, -0.5}, {-1, 0}, {-1.25, 0.5}}, {{-1.25, -0.5}, {0, 0}, {-1, 0}}};
constexpr ArrowShape lowerFilled    = {5, 1, 3, false, true, false, 2.6, {{-1.25, 0.5}, {0, 0}, {-1.25, -0.5}, {-1, 0}, {-1.25, 0.5}}, {{-1.25, 0.5}, {0, 0}, {-1, 0}}};
constexpr ArrowShape halfTriangle   = {4, 1, 0, true, true, true, 2.5, {{-1, 0.5}, {0, 0}, {-1, 0}, {-1, 0.5}}, {}};
constexpr ArrowShape halfIndented   = {4, 1, 0, true, true, true, 3.5, {{-1.25, 0.5}, {0, 0}, {-1, 0}, {-1.25, 0.5}}, {}};
constexpr ArrowShape halfPointed    = {4, 1, 0, true, true, true, 2.5, {{-0.75, 0.5}, {0, 0}, {-1, 0}, {-0.75, 0.5}}, {}};
constexpr ArrowShape fork           = {3, 0, 0, true, true, false, -1, {{0, 0.5}, {-1, 0}, {0, -0.5}}, {}};
constexpr ArrowShape bar            = {2, 1, 0, true, true, false, 0, {{0, 0.5}, {0, -0.5}}, {}};
constexpr ArrowShape openBracket    = {4, 0, 0, true, true, false, -1, {{0, 0.5}, {-1, 0.5}, {-1, -0.5}, {0, -0.5}}, {}};
constexpr ArrowShape closedBracket  = {4, 1, 0, true, true, false, 0, {{-1, 0.5}, {0, 0.5}, {0, -0.5}, {-1, -0.5}}, {}};
// clang-format on

} // namespace

// Mostly both styles of a type have one shape, but not of types 0, 9, 13 and 14. A filled stick
// (row 1) has no outline at all and draws nothing.
const ArrowShape arrow_shapes[NUM_ARROW_SHAPES] = {
    stick,       nothing,     triangle,     triangle,     indented,     indented,
    pointed,     pointed,     diamond,      diamond,      circle,       circle,
    halfCircle,  halfCircle,  square,       square,       reversed,     reversed,
    upperFilled, lowerFilled, halfTriangle, halfTriangle, halfIndented, halfIndented,
    halfPointed, halfPointed, fork,         bar,          openBracket,  closedBracket};

namespace {

const ArrowShape& shapeOf(const FigArrow* arrow)
{
    const long row = 2L * arrow->type + arrow->style;
    return arrow_shapes[row < 0 || row >= NUM_ARROW_SHAPES ? 0 : row];
}

/// Where a head lies: its tip, its direction and its sizes, all in device pixels.
struct HeadFrame {
    double width, height; ///< whole pixels
    double thickness;     ///< of the arrow, not scaled by the zoom
    double halfLine;      ///< half the line's thickness and one more; whole pixels
    double dx, dy;        ///< along the line, y up
    double sina, cosa;
    double tipX, tipY;     ///< the line's end pulled back by the head's sharpness
    double alongX, alongY; ///< the same in the frame of the line
    double endX, endY;     ///< the line's end
    double pullBack(const ArrowShape& shape, float zoom) const;
    QPoint around(double originX, double originY, double u, double v) const;
};

/// A sharp stroked tip sticks out; by how much depends on the angle. The thickness is not scaled
/// here, only the angle is.
double HeadFrame::pullBack(const ArrowShape& shape, float zoom) const
{
    const double tip = zoom * shape.tipmv;
    if (tip > 0.0)
        return thickness / (2.0 * std::sin(std::atan(width / (tip * height))));
    return tip == 0.0 ? thickness / 2.0 : 0.0;
}

/// The pixel at u along and v across the line from an origin.
QPoint HeadFrame::around(double originX, double originY, double u, double v) const
{
    return QPoint(round2(sina * v + cosa * u + originX), round2(cosa * v - sina * u + originY));
}

/// False when there is no head: no width, no height or no direction.
bool makeFrame(CFigContext* ctx, int x1, int y1, int x2, int y2, int thickness,
               const FigArrow* arrow, HeadFrame& frame)
{
    // Lengths in single precision; both of them by the horizontal scale.
    const float unitsToPixel = 1.0f / (1200.0f / ctx->ppiX);
    frame.width = round2(ctx->zoom * unitsToPixel * arrow->wd);
    frame.height = round2(ctx->zoom * unitsToPixel * arrow->ht);
    frame.thickness = arrow->thickness;
    frame.halfLine = round2(ctx->zoom * static_cast<float>(thickness) * 0.5f + 1.0f);
    frame.dx = static_cast<double>(x2) - x1;
    frame.dy = static_cast<double>(y1) - y2;
    frame.endX = x2;
    frame.endY = y2;
    if (frame.width == 0.0 || frame.height == 0.0 || (frame.dx == 0.0 && frame.dy == 0.0))
        return false;

    const double pull = frame.pullBack(shapeOf(arrow), ctx->zoom);
    const double angle = std::atan2(frame.dy, -frame.dx);
    frame.tipX = x2 + pull * std::cos(angle);
    frame.tipY = y2 + pull * std::sin(angle);
    const double length = std::sqrt(frame.dx * frame.dx + frame.dy * frame.dy);
    frame.sina = frame.dy / length;
    frame.cosa = frame.dx / length;
    frame.alongX = frame.cosa * frame.tipX - frame.sina * frame.tipY;
    frame.alongY = frame.sina * frame.tipX + frame.cosa * frame.tipY;
    return true;
}

struct Extent {
    double low = 100000.0;
    double high = -100000.0;
    void add(double v)
    {
        low = qMin(low, v);
        high = qMax(high, v);
    }
};

/// A head from the table: transformed to the tip, which is rounded to a pixel first.
class OutlineHead {
public:
    OutlineHead(const HeadFrame& frame, const ArrowShape& shape, int shift)
        : m_frame(frame), m_shape(shape), m_shift(shift),
          m_tipX(round2(frame.cosa * frame.alongX + frame.sina * frame.alongY)),
          m_tipY(round2(frame.alongY * frame.cosa - frame.alongX * frame.sina))
    {
    }

    void outline(QPoint* points)
    {
        for (int i = 0; i < m_shape.numpts; ++i)
            points[i] = at(m_shape.points[i].x, m_shape.points[i].y, true);
    }

    void fill(QPoint* points)
    {
        for (int i = 0; i < m_shape.numfillpts; ++i)
            points[i] = at(m_shape.fillpoints[i].x, m_shape.fillpoints[i].y, true);
    }

    /// Seven points: the head's front and, behind it, the width of head and line.
    void clip(QPoint* points)
    {
        const double line = m_frame.halfLine;
        const double high = qMax(m_extent.high, line);
        const double low = qMin(m_extent.low, -line);
        for (int i = 0; i < 3; ++i)
            points[i] = at(m_shape.points[i].x, m_shape.points[i].y, false);
        points[3] = m_frame.around(m_tipX, m_tipY, m_frame.height * m_shape.points[2].x, low);
        const double tip = m_frame.height * m_shape.points[m_shape.tipno].x;
        const double sina = m_frame.sina;
        const double cosa = m_frame.cosa;
        points[4] = QPoint(round2(cosa * tip - sina * line + m_frame.endX),
                           round2(-cosa * line - sina * tip + m_frame.endY));
        points[5] = QPoint(round2(cosa * tip + sina * line + m_frame.endX),
                           round2(cosa * line - sina * tip + m_frame.endY));
        points[6] = m_frame.around(m_tipX, m_tipY, m_frame.height * m_shape.points[0].x, high);
    }

private:
    QPoint at(double x, double y, bool counts)
    {
        const double v = m_frame.width * y - m_shift;
        if (counts)
            m_extent.add(v);
        return m_frame.around(m_tipX, m_tipY, m_frame.height * x, v);
    }

    const HeadFrame& m_frame;
    const ArrowShape& m_shape;
    int m_shift;
    int m_tipX, m_tipY;
    Extent m_extent;
};

/// How far a half head moves across to cover the line. The line's thickness is the arrow's own,
/// truncated, so only its fraction counts here.
int halfHeadShift(CFigContext* ctx, const ArrowShape& shape, int thickness, const FigArrow* arrow)
{
    if (!shape.half)
        return 0;
    return round2((1200.0f / ctx->ppiX) * (static_cast<float>(thickness) - arrow->thickness) *
                  0.5f);
}

/// A circle that touches the line's end, or a half circle round it.
class RoundHead {
public:
    RoundHead(const HeadFrame& frame, bool whole) : m_frame(frame), m_whole(whole)
    {
        const double along = whole ? frame.alongX - frame.height : frame.alongX;
        const int startX = truncateToInt(frame.cosa * along + frame.sina * frame.alongY + 0.5);
        const int startY = truncateToInt(frame.alongY * frame.cosa - along * frame.sina + 0.5);
        m_centreX = (frame.tipX - startX) * 0.5 + startX;
        m_centreY = (frame.tipY - startY) * 0.5 + startY;
        m_radius = frame.height * 0.5;
    }

    /// Returns the number of points, of which no two neighbours are equal.
    long outline(QPoint* points, float zoom) const
    {
        const int count = 40 + qBound(0, round2(zoom * 0.25), MAX_ARROW_POINTS - 40);
        const double angle = compute_angle(m_frame.dx, m_frame.dy);
        const double first = (m_whole ? 5.0 : 3.0) * M_PI / 2.0 - angle;
        const double span = m_whole ? 2.0 * M_PI : M_PI;
        for (int i = 0; i < count; ++i) {
            const double alpha = first - i * span / (count - 1);
            // Rounded twice, before and after the centre is added.
            points[i] = QPoint(round2(round2(m_radius * std::cos(alpha)) + m_centreX),
                               round2(round2(m_radius * std::sin(alpha)) + m_centreY));
        }
        return removeDuplicates(points, count);
    }

    /// Five points, the half of the head that lies toward the end.
    void clip(QPoint* points) const
    {
        const double reach = m_radius + m_frame.thickness / 2.0;
        const double high = qMax(m_frame.halfLine, reach);
        const double low = qMin(-m_frame.halfLine, -reach);
        points[0] = at(0.0, -reach);
        points[1] = at(0.0, low);
        points[2] = at(reach, low);
        points[3] = at(reach, high);
        points[4] = at(0.0, high);
    }

private:
    QPoint at(double u, double v) const
    {
        return QPoint(round2(m_centreX + m_frame.cosa * u + m_frame.sina * v),
                      round2(m_centreY - m_frame.sina * u + m_frame.cosa * v));
    }

    const HeadFrame& m_frame;
    bool m_whole;
    double m_centreX, m_centreY, m_radius;
};

/// Where the results of one head go.
struct HeadOutput {
    QPoint* points;
    long* count;
    QPoint* fill;
    int* fillCount;
    QPoint* clip;
    int* clipCount;
    void clear() const { *count = *fillCount = *clipCount = 0; }
};

void headFrom(CFigContext* ctx, const QPoint& from, const QPoint& to, FigArrow* arrow,
              const HeadOutput& out, int objType)
{
    if (!arrow)
        return;
    // The thickness is cut to a whole number, unlike anywhere else.
    calc_arrow(ctx, from.x(), from.y(), to.x(), to.y(), truncateToInt(arrow->thickness), arrow,
               out.points, out.count, out.fill, out.fillCount, out.clip, out.clipCount, objType);
}

/// A head of an arc, along the tangent at one of its ends.
void arcHead(CFigContext* ctx, const FigArc* arc, const FigPoint& end, int direction,
             FigArrow* arrow, const HeadOutput& out)
{
    if (!arrow)
        return;
    // The centre is not rounded; single precision throughout.
    const float unitsToPixelX = 1.0f / (1200.0f / ctx->ppiX);
    const float unitsToPixelY = 1.0f / (1200.0f / ctx->ppiY);
    const float centreX =
        ctx->zoom * unitsToPixelX * arc->center_x - static_cast<float>(ctx->shiftX);
    const float centreY =
        ctx->zoom * unitsToPixelY * arc->center_y - static_cast<float>(ctx->shiftY);
    const QPoint to(pixelX(ctx, end.x), pixelY(ctx, end.y));
    int fromX, fromY;
    compute_normal(centreX, centreY, to.x(), to.y(), direction, &fromX, &fromY);
    headFrom(ctx, QPoint(fromX, fromY), to, arrow, out, O_ARC);
}

/// Shade that is white in the pen colour: black and white have theirs at other places.
int whiteShade(int penColor)
{
    if (penColor == 0)
        return 0;
    return penColor == 7 ? 20 : 40;
}

} // namespace

void compute_normal(float cx, float cy, int x, int y, int direction, int* ox, int* oy)
{
    const float pixelColumn = static_cast<float>(x);
    const float pixelRow = static_cast<float>(y);
    const float a = pixelRow - cy;
    const float b = cx - pixelColumn;
    *ox = round2(direction != 0 ? pixelColumn - a : pixelColumn + a);
    *oy = round2(direction != 0 ? pixelRow - b : pixelRow + b);
}

void calc_arrow(CFigContext* ctx, int x1, int y1, int x2, int y2, int thickness, FigArrow* arrow,
                QPoint* points, long* n, QPoint* fill, int* nFill, QPoint* clip, int* nClip, int)
{
    *n = *nFill = *nClip = 0;
    HeadFrame frame;
    if (!makeFrame(ctx, x1, y1, x2, y2, thickness, arrow, frame))
        return;
    if (arrow->type == O_CIRCLE_HEAD || arrow->type == O_HALF_CIRCLE_HEAD) {
        const RoundHead head(frame, arrow->type == O_CIRCLE_HEAD);
        *n = head.outline(points, ctx->zoom);
        head.clip(clip);
        *nClip = 5;
        return;
    }
    const ArrowShape& shape = shapeOf(arrow);
    OutlineHead head(frame, shape, halfHeadShift(ctx, shape, thickness, arrow));
    head.outline(points);
    *n = shape.numpts;
    head.fill(fill);
    *nFill = shape.numfillpts;
    if (shape.clip) {
        head.clip(clip);
        *nClip = 7;
    } else {
        *nClip = shape.numfillpts;
    }
}

void get_arrowpoints(CFigContext* ctx, FigObject* object, int objType, QPoint* points, int skip,
                     QPoint* fwdFill, int* nFwdFill, QPoint* backFill, int* nBackFill,
                     QPoint* fwdClip, int* nFwdClip, QPoint* backClip, int* nBackClip)
{
    const HeadOutput forward = {farpts, &nfpts, fwdFill, nFwdFill, fwdClip, nFwdClip};
    const HeadOutput backward = {barpts, &nbpts, backFill, nBackFill, backClip, nBackClip};
    forward.clear();
    backward.clear();
    if (objType == O_ARC) {
        const auto* arc = static_cast<const FigArc*>(object);
        arcHead(ctx, arc, arc->point[2], arc->direction, object->forward_arrow, forward);
        // The backward head's fill goes where the forward head's belongs and takes its place.
        const HeadOutput crossed = {barpts, &nbpts, fwdFill, nFwdFill, backClip, nBackClip};
        arcHead(ctx, arc, arc->point[0], arc->direction ^ 1, object->backward_arrow, crossed);
        return;
    }
    const long count = npoints;
    if (count < 2)
        return;
    const long first = count - 1 > skip ? skip : 0;
    headFrom(ctx, points[count - first - 2], points[count - 1], object->forward_arrow, forward,
             objType);
    headFrom(ctx, points[first + 1], points[0], object->backward_arrow, backward, objType);
}

void draw_arrow32(CFigContext* ctx, FigObject* object, FigArrow* arrow, QPoint* points, long n,
                  QPoint* fill, int nFill, int mode)
{
    if (object->thickness == 0)
        return;
    const int color = object->pen_color;
    const int white = whiteShade(color);
    const int thickness = round2(arrow->thickness);
    const auto polygon = [&](QPoint* pts, long count, int width, int fillStyle) {
        if (count > 0)
            pw_polygon(ctx, pts, static_cast<int>(count), mode, width, 0, 0.0f, 0, 0, fillStyle,
                       color, color, arrow->type != 0);
    };
    if (nFill == 0) {
        const bool filled = arrow->type >= 1 && arrow->type <= 12;
        polygon(points, n, thickness, !filled ? -1 : arrow->style == 0 ? white : 20);
        return;
    }
    // White all over, the outline, then the solid half; the style makes no difference.
    polygon(points, n, 0, white);
    polygon(points, n, thickness, -1);
    polygon(fill, nFill, 0, 20);
}
