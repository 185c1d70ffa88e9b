// The X-spline evaluator. Double precision with control points in device pixels, except where
// single precision is named.

#include "render/u_draw.h"

#include "model/FigContext.h"
#include "render/coords.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"

#include <QVarLengthArray>

#include <cmath>

int done = 0;

namespace {

using PointCallback = bool (*)(int, int);

struct ControlPoint {
    QPoint pixel;
    double factor;
};
using ControlPoints = QVarLengthArray<ControlPoint, 64>;

/// Control points on the device. A factor that the list lacks counts as 0.
ControlPoints devicePoints(CFigContext* ctx, const FigSpline* spline)
{
    ControlPoints result;
    const FigShapeFactor* factor = spline->sfactors;
    for (const FigPoint* point = spline->points; point; point = point->next) {
        const QPoint pixel(pixelX(ctx, point->x), pixelY(ctx, point->y));
        result.append({pixel, factor ? factor->s : 0.0});
        if (factor)
            factor = factor->next;
    }
    return result;
}

/// The blend of the side where the curve approximates: f(w - T, d), its divisor fixed.
class ApproximatingBlend {
public:
    ApproximatingBlend() = default;
    ApproximatingBlend(double knot, double divisor)
        : m_knot(knot), m_divisor(divisor), m_constant(10.0 - square2(divisor)),
          m_linear(2.0 * square2(divisor) - 15.0), m_quadratic(6.0 - square2(divisor))
    {
    }
    double knot() const { return m_knot; }
    double operator()(double w) const
    {
        const double u = (w - m_knot) / m_divisor;
        return u * u * u * (m_constant + m_linear * u + m_quadratic * u * u);
    }

private:
    static double square2(double d) { return 2.0 * d * d; }
    double m_knot = 0, m_divisor = 1, m_constant = 0, m_linear = 0, m_quadratic = 0;
};

/// The blends of the side where the curve interpolates.
double nearBlend(double u, double q)
{
    return u *
           (q + u * (2.0 * q + u * (8.0 - 12.0 * q + u * (14.0 * q - 11.0 + u * (4.0 - 5.0 * q)))));
}

double farBlend(double u, double q)
{
    return u * (q + u * (2.0 * q + u * u * (-2.0 * q - u * q)));
}

double slopeOf(double factor)
{
    return -0.5 * factor;
}

/// One segment, from near p1 (t = 0) to near p2 (t = 1). s1 and s2 are the factors of p1 and p2;
/// index only places the knots and cancels but for rounding.
class Segment {
public:
    Segment(int index, const QPoint& p0, const QPoint& p1, const QPoint& p2, const QPoint& p3,
            double s1, double s2)
        : m_points{p0, p1, p2, p3}, m_index(index), m_s1(s1), m_s2(s2)
    {
        const double k = index;
        if (s1 < 0.0) {
            m_q1 = slopeOf(s1);
        } else {
            const double knot0 = k + 1.0 + s1;
            const double knot2 = k + 1.0 - s1;
            m_weight0 = ApproximatingBlend(knot0, k - knot0);
            m_weight2 = ApproximatingBlend(knot2, k + 2.0 - knot2);
        }
        if (s2 < 0.0) {
            m_q2 = slopeOf(s2);
        } else {
            const double knot1 = k + 2.0 + s2;
            const double knot3 = k + 2.0 - s2;
            m_weight1 = ApproximatingBlend(knot1, k + 1.0 - knot1);
            m_weight3 = ApproximatingBlend(knot3, k + 3.0 - knot3);
        }
    }

    QPoint start() const { return m_s1 > 0.0 ? pointAt(0.0) : m_points[1]; }
    QPoint end() const { return m_s2 > 0.0 ? pointAt(1.0) : m_points[2]; }
    bool isCorner() const { return m_s1 == 0.0 && m_s2 == 0.0; }

    QPoint pointAt(double t) const
    {
        const double w = t + m_index + 1.0;
        double a0, a1, a2, a3;
        if (m_s1 < 0.0) {
            a0 = farBlend(-t, m_q1);
            a2 = nearBlend(t, m_q1);
        } else {
            a0 = w < m_weight0.knot() ? m_weight0(w) : 0.0;
            a2 = m_weight2(w);
        }
        if (m_s2 < 0.0) {
            a1 = nearBlend(1.0 - t, m_q2);
            a3 = farBlend(t - 1.0, m_q2);
        } else {
            a1 = m_weight1(w);
            a3 = w > m_weight3.knot() ? m_weight3(w) : 0.0;
        }
        const double sum = a0 + a1 + a2 + a3;
        // Only factors outside -1 to 1 come here.
        if (sum == 0.0 || !std::isfinite(sum))
            return m_points[1];
        const double x = a0 * m_points[0].x() + a1 * m_points[1].x() + a2 * m_points[2].x() +
                         a3 * m_points[3].x();
        const double y = a0 * m_points[0].y() + a1 * m_points[1].y() + a2 * m_points[2].y() +
                         a3 * m_points[3].y();
        return QPoint(round2(x / sum), round2(y / sum));
    }

private:
    QPoint m_points[4];
    int m_index;
    double m_s1, m_s2;
    double m_q1 = 0, m_q2 = 0;
    ApproximatingBlend m_weight0, m_weight1, m_weight2, m_weight3;
};

/// Difference of two pixels; they may lie farther apart than an int holds.
struct Difference {
    Difference(const QPoint& from, const QPoint& to)
        : x(static_cast<double>(to.x()) - from.x()), y(static_cast<double>(to.y()) - from.y())
    {
    }
    double x, y;
};

/// Cosine of the angle at mid between start and end: -1 straight, 1 a hairpin, 0 where a side
/// has no length. The differences and the length are single precision.
double cosineAt(const QPoint& mid, const QPoint& start, const QPoint& end)
{
    const Difference toStart(mid, start);
    const Difference toEnd(mid, end);
    const double x1 = static_cast<float>(toStart.x);
    const double y1 = static_cast<float>(toStart.y);
    const double x2 = static_cast<float>(toEnd.x);
    const double y2 = static_cast<float>(toEnd.y);
    const float length = static_cast<float>(std::sqrt((x2 * x2 + y2 * y2) * (x1 * x1 + y1 * y1)));
    return length == 0.0f ? 0.0 : (x1 * x2 + y1 * y2) / length;
}

/// Step along a segment, by its length on the screen and how sharply it bends. The root of the
/// root is on purpose: the steps grow with the square root of the length.
double step_computing(const Segment& segment, float precision)
{
    const QPoint start = segment.start();
    const QPoint end = segment.end();
    const double cosine = cosineAt(segment.pointAt(0.5), start, end);
    const Difference chord(start, end);
    const double chordLength = std::sqrt(chord.x * chord.x + chord.y * chord.y);
    const int length = truncateToInt(chordLength);
    const int steps = static_cast<int>(std::sqrt(static_cast<double>(length))) / 2 +
                      static_cast<int>(10.0 * (1.0 + cosine));
    if (steps == 0)
        return MAX_SPLINE_STEP;
    const float step = precision / static_cast<float>(steps);
    // The bound is the double 0.2, the result the single 0.2f. The sign is asked for because a
    // walk with a step of 0 or less would never end.
    if (static_cast<double>(step) > 0.2 || !(step > 0.0f))
        return MAX_SPLINE_STEP;
    return step;
}

/// The end of the segment is left to the next one. A full list loses points, no more.
void spline_segment_computing(double step, const Segment& segment, PointCallback add)
{
    for (double t = 0.0; t < 1.0; t += step) {
        const QPoint point = segment.pointAt(t);
        add(point.x(), point.y());
    }
}

/// Whether going on cannot change anything any more: the segment set `done`, or the list to be
/// filled is full.
bool isOver(PointCallback add)
{
    return done != 0 || (add == add_point_to_list && npoints >= MAX_LIST_POINTS);
}

void walkSegment(const Segment& segment, float precision, PointCallback add)
{
    const double step = segment.isCorner() ? 1.0 : step_computing(segment, precision);
    spline_segment_computing(step, segment, add);
}

} // namespace

bool compute_open_spline(CFigContext* ctx, FigSpline* spline, float precision,
                         bool (*add)(int, int))
{
    init_pointlist();
    done = 0;
    const ControlPoints control = devicePoints(ctx, spline);
    const int last = control.size() - 1;
    if (last < 1)
        return false;
    int reached = 0;
    for (int k = 0; k == 0 || k + 2 <= last; ++k) {
        const ControlPoint& from = control[k];
        const ControlPoint& to = control[k + 1];
        reached = qMin(k + 2, last);
        walkSegment(Segment(k, control[qMax(k - 1, 0)].pixel, from.pixel, to.pixel,
                            control[reached].pixel, from.factor, to.factor),
                    precision, add);
        if (isOver(add))
            break;
    }
    const QPoint end = control[reached].pixel;
    if (!isOver(add)) {
        // With two points alone this segment turns about the second of them.
        const int k = qMax(last - 2, 0);
        const ControlPoint& from = control[k + 1];
        walkSegment(
            Segment(k, control[k].pixel, from.pixel, end, end, from.factor, control[last].factor),
            precision, add);
    }
    add(end.x(), end.y());
    return true;
}

bool compute_closed_spline(CFigContext* ctx, FigSpline* spline, float precision,
                           bool (*add)(int, int))
{
    init_pointlist();
    done = 0;
    const ControlPoints control = devicePoints(ctx, spline);
    const int count = control.size();
    if (count < 3)
        return false;
    for (int k = 0; k < count; ++k) {
        const ControlPoint& from = control[(k + 1) % count];
        const ControlPoint& to = control[(k + 2) % count];
        walkSegment(Segment(k, control[k].pixel, from.pixel, to.pixel,
                            control[(k + 3) % count].pixel, from.factor, to.factor),
                    precision, add);
        if (isOver(add) && k + 1 < count)
            return true;
    }
    // The list's first slot, whoever filled it.
    add(polygon_points[0].x(), polygon_points[0].y());
    return true;
}

bool initPointListFromSpline(CFigContext* ctx, FigSpline* spline)
{
    const auto compute = (spline->sub_type & 1) != 0 ? compute_closed_spline : compute_open_spline;
    return compute(ctx, spline, SPLINE_PRECISION, add_point_to_list);
}
