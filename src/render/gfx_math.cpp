#include "render/gfx_math.h"

#include "model/FigObjects.h"
#include "render/gfx_lowlevel.h"

#include <algorithm>
#include <cmath>

int truncateToInt(double value)
{
    if (value >= INT_MAX)
        return INT_MAX;
    if (value <= INT_MIN)
        return INT_MIN;
    return std::isnan(value) ? 0 : static_cast<int>(value);
}

double round(double value, int digits)
{
    const double power = std::pow(10.0, digits);
    return round2(value * power) / power;
}

int sign(int value)
{
    return (value > 0) - (value < 0);
}

double limitValue(double centre, double value, double limit)
{
    if (limit > std::fabs(value - centre))
        return value;
    return value > centre ? centre + limit : centre - limit;
}

namespace {

/// A vector between points whose coordinates may lie anywhere in their range.
struct Vector {
    long long x, y;
};

Vector between(int x1, int y1, int x2, int y2)
{
    return {static_cast<long long>(x2) - x1, static_cast<long long>(y2) - y1};
}

Vector between(const QPoint& from, const QPoint& to)
{
    return between(from.x(), from.y(), to.x(), to.y());
}

bool isNull(const Vector& v)
{
    return v.x == 0 && v.y == 0;
}

/// a b + c d in 64 bits. Exact for differences below 2^31, wraps beyond.
long long productSum(long long a, long long b, long long c, long long d)
{
    const auto bits = [](long long value) { return static_cast<unsigned long long>(value); };
    return static_cast<long long>(bits(a) * bits(b) + bits(c) * bits(d));
}

long long dotProduct(const Vector& a, const Vector& b)
{
    return productSum(a.x, b.x, a.y, b.y);
}

double length(double dx, double dy)
{
    return std::sqrt(dx * dx + dy * dy);
}

int sum(int a, int b)
{
    return saturatedInt(static_cast<long long>(a) + b);
}

} // namespace

double get_line_length(int x1, int y1, int x2, int y2)
{
    const Vector v = between(x1, y1, x2, y2);
    return length(static_cast<double>(v.x), static_cast<double>(v.y));
}

int intersection(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4, int* ix, int* iy,
                 double* t1, double* t2)
{
    const Vector d1 = between(x1, y1, x2, y2);
    const Vector d2 = between(x3, y3, x4, y4);
    *t1 = 0;
    *t2 = 0;
    if (isNull(d1) || isNull(d2))
        return 1;
    // The denominator alone is kept to 32 bits, so it wraps for lines of some 46000 and more.
    const int denominator =
        static_cast<int>(static_cast<unsigned>(productSum(d1.x, d2.y, -d1.y, d2.x)));
    if (denominator == 0)
        return 2;
    const Vector back = between(x1, y1, x3, y3);
    *t2 = static_cast<double>(productSum(back.x, d1.y, -back.y, d1.x)) / denominator;
    const double x = static_cast<double>(d2.x) * *t2 + x3;
    const double y = static_cast<double>(d2.y) * *t2 + y3;
    *ix = round2(x);
    *iy = round2(y);
    *t1 = d1.x != 0 ? (x - x1) / static_cast<double>(d1.x) : (y - y1) / static_cast<double>(d1.y);
    return 0;
}

// --- stroked extent ------------------------------------------------------------

namespace {

/// Single precision throughout.
void outlineOfSegment(long x1, long y1, long x2, long y2, QPoint* out, float width)
{
    const float half = width * 0.5f;
    const auto fx1 = static_cast<float>(x1), fy1 = static_cast<float>(y1);
    const auto fx2 = static_cast<float>(x2), fy2 = static_cast<float>(y2);
    if (x1 == x2 && y1 == y2) {
        out[0] = QPoint(round2(fx1 - half), round2(fy1 - half));
        out[1] = QPoint(round2(fx1 + half), round2(fy1 + half));
        out[2] = QPoint(round2(fx2 - half), round2(fy2 - half));
        out[3] = QPoint(round2(fx2 + half), round2(fy2 + half));
        return;
    }
    const auto difference = [](long a, long b) {
        return static_cast<float>(
            static_cast<long>(static_cast<unsigned long>(a) - static_cast<unsigned long>(b)));
    };
    const float ex = difference(y2, y1);
    const float ey = difference(x1, x2);
    const float span = std::sqrt(ex * ex + ey * ey);
    const float a = ey / span * half;
    const float b = ex / span * half;
    out[0] = QPoint(round2(fx1 + b), round2(fy1 + a));
    out[1] = QPoint(round2(fx1 - b), round2(fy1 - a));
    out[2] = QPoint(round2(fx2 - b), round2(fy2 - a));
    out[3] = QPoint(round2(fx2 + b), round2(fy2 + a));
}

/// Where the long sides of two outlines meet, extended past the vertex between them.
struct SideMeeting {
    int x = 0, y = 0;
    double t1 = 0, t2 = 0;
};

/// Side 0 runs through points 1 and 2 of an outline, side 1 through points 0 and 3.
SideMeeting meetingOfSides(const QPoint* prev, const QPoint* cur, int side)
{
    const int start = side == 0 ? 1 : 0;
    const int end = side == 0 ? 2 : 3;
    SideMeeting meeting;
    intersection(prev[start].x(), prev[start].y(), prev[end].x(), prev[end].y(), cur[end].x(),
                 cur[end].y(), cur[start].x(), cur[start].y(), &meeting.x, &meeting.y, &meeting.t1,
                 &meeting.t2);
    return meeting;
}

/// The squared lengths are rounded to single precision before the root.
double cosineBetween(const Vector& u, const Vector& w)
{
    const auto lengthOf = [](const Vector& v) {
        return std::sqrt(static_cast<double>(static_cast<float>(dotProduct(v, v))));
    };
    return static_cast<double>(dotProduct(u, w)) / (lengthOf(u) * lengthOf(w));
}

/// The tip stops at five widths from the vertex on each axis; the pen's own limit is another.
bool miterPoints(const QPoint* cur, const QPoint& vertex, const QPoint* prev, float width,
                 QPoint* out)
{
    const double cosine = cosineBetween(between(prev[2], prev[1]), between(cur[1], cur[2]));
    if (cosine > 0.999999 || cosine < -0.999999)
        return false;
    for (int side = 0; side < 2; ++side) {
        const SideMeeting meeting = meetingOfSides(prev, cur, side);
        if (!(meeting.t1 >= 1.0 && meeting.t2 >= 1.0))
            continue;
        const double limit = static_cast<double>(width * 5.0f);
        out[0] = QPoint(truncateToInt(limitValue(vertex.x(), meeting.x, limit)),
                        truncateToInt(limitValue(vertex.y(), meeting.y, limit)));
        out[1] = side == 0 ? cur[1] : prev[3];
        out[2] = vertex;
        out[3] = side == 0 ? prev[2] : cur[0];
        return true;
    }
    return false;
}

void roundPoints(const QPoint& vertex, float width, QPoint* out)
{
    const int radius = round2(static_cast<double>(width * 0.5f));
    out[0] = QPoint(sum(vertex.x(), -radius), vertex.y());
    out[1] = QPoint(vertex.x(), sum(vertex.y(), -radius));
    out[2] = QPoint(sum(vertex.x(), radius), vertex.y());
    out[3] = QPoint(vertex.x(), sum(vertex.y(), radius));
}

/// The margin is on the second parameter alone.
bool bevelPoints(const QPoint* cur, const QPoint& vertex, const QPoint* prev, QPoint* out)
{
    for (int side = 0; side < 2; ++side) {
        if (!(meetingOfSides(prev, cur, side).t2 > 1.001))
            continue;
        out[0] = side == 0 ? prev[2] : prev[3];
        out[1] = side == 0 ? cur[1] : cur[0];
        out[2] = vertex;
        out[3] = vertex;
        return true;
    }
    return false;
}

/// A box that starts empty.
struct Extent {
    int minX = INT_MAX, minY = INT_MAX, maxX = INT_MIN, maxY = INT_MIN;

    void mergeFour(const QPoint* points)
    {
        for (int i = 0; i < 4; ++i) {
            minX = std::min(minX, points[i].x());
            minY = std::min(minY, points[i].y());
            maxX = std::max(maxX, points[i].x());
            maxY = std::max(maxY, points[i].y());
        }
    }
};

Extent pointExtent(const QPoint& point, float width)
{
    const float half = width * 0.5f;
    const auto x = static_cast<float>(point.x()), y = static_cast<float>(point.y());
    Extent extent;
    extent.minX = round2(x - half);
    extent.minY = round2(y - half);
    extent.maxX = round2(x + half);
    extent.maxY = round2(y + half);
    return extent;
}

Extent polylineExtent(const QPoint* pts, long n, bool closed, float width, int join)
{
    Extent extent;
    QPoint first[5], current[5], joint[4];
    // No segment comes before the first one.
    QPoint previous[5];
    std::fill(previous, previous + 5, QPoint(-1, -1));
    const auto addJoin = [&](QPoint* outline, const QPoint& vertex) {
        if (calc_joinpoints(outline, vertex.x(), vertex.y(), previous, join, width, joint))
            extent.mergeFour(joint);
    };
    for (long i = 0; i + 1 < n; ++i) {
        calc_outline(pts[i].x(), pts[i].y(), pts[i + 1].x(), pts[i + 1].y(), current, width);
        if (i == 0)
            std::copy(current, current + 5, first);
        extent.mergeFour(current);
        addJoin(current, pts[i]);
        std::copy(current, current + 4, previous);
    }
    if (closed)
        addJoin(first, pts[n - 1]);
    return extent;
}

} // namespace

void calc_outline(long x1, long y1, long x2, long y2, QPoint* out, float width)
{
    outlineOfSegment(x1, y1, x2, y2, out, width);
    out[4] = out[0];
}

void calc_outline(long x1, long y1, long x2, long y2, QPoint* out, int width)
{
    calc_outline(x1, y1, x2, y2, out, static_cast<float>(width));
}

void calc_outline(long x1, long y1, long x2, long y2, QPoint* out)
{
    calc_outline(x1, y1, x2, y2, out, 0.0f);
}

bool calc_joinpoints(QPoint* cur, int x, int y, QPoint* prev, int join, float width, QPoint* out)
{
    // -1 stands for no previous segment, so an outline that begins at x -1 has no join either.
    if (prev[0].x() == -1)
        return false;
    const QPoint vertex(x, y);
    switch (join) {
    case 0:
        return miterPoints(cur, vertex, prev, width, out);
    case 1:
        roundPoints(vertex, width, out);
        return true;
    case 2:
        return bevelPoints(cur, vertex, prev, out);
    default:
        return false;
    }
}

void calc_linebounds(QPoint* pts, long n, bool closed, float width, int join, int* minx, int* miny,
                     int* maxx, int* maxy)
{
    if (n < 1)
        return;
    const Extent extent =
        n == 1 ? pointExtent(pts[0], width) : polylineExtent(pts, n, closed, width, join);
    *minx = extent.minX;
    *miny = extent.minY;
    *maxx = extent.maxX;
    *maxy = extent.maxY;
}

// --- lengths ---------------------------------------------------------------------

void lengthen_dash(int* x1, int* y1, int* x2, int* y2, int by, bool left, bool right)
{
    // Single precision throughout.
    const auto fx1 = static_cast<float>(*x1), fy1 = static_cast<float>(*y1);
    const auto fx2 = static_cast<float>(*x2), fy2 = static_cast<float>(*y2);
    const Vector step = between(*x1, *y1, *x2, *y2);
    const auto dx = static_cast<float>(step.x);
    const auto dy = static_cast<float>(-step.y);
    const float span = std::sqrt(dx * dx + dy * dy);
    if (span == 0.0f)
        return;
    const float c = dx / span;
    const float s = dy / span;
    float u1 = c * fx1 - s * fy1;
    const float w1 = fx1 * s + fy1 * c;
    float u2 = c * fx2 - s * fy2;
    const float w2 = fx2 * s + fy2 * c;
    if (left)
        u1 -= static_cast<float>(by);
    if (right)
        u2 += static_cast<float>(by);
    *x2 = round2(u2 * c + s * w2);
    *y2 = round2(w2 * c - u2 * s);
    *x1 = round2(w1 * s + u1 * c);
    *y1 = round2(c * w1 - s * u1);
}

void lengthen_line(int* x1, int* y1, int* x2, int* y2, double factor, bool left, bool right)
{
    const Vector step = between(*x1, *y1, *x2, *y2);
    // The differences alone are rounded to single precision.
    const double dx = static_cast<float>(step.x);
    const double dy = static_cast<float>(-step.y);
    const double span = length(dx, dy);
    if (span == 0.0)
        return;
    const double c = dx / span;
    const double s = dy / span;
    double u1 = c * *x1 - s * *y1;
    const double w1 = *x1 * s + *y1 * c;
    double u2 = c * *x2 - s * *y2;
    const double w2 = *x2 * s + *y2 * c;
    if (left)
        u1 = u2 - (u2 - u1) * factor;
    // The right step works from the length that the left step has just made, so both flags
    // together scale by factor squared. Links depend on it.
    if (right)
        u2 = (u2 - u1) * factor + u1;
    *x2 = round2(u2 * c + s * w2);
    *y2 = round2(w2 * c - u2 * s);
    *x1 = round2(w1 * s + u1 * c);
    *y1 = round2(c * w1 - s * u1);
}

void getPointByFactor(int x1, int y1, int x2, int y2, double f, int* x, int* y)
{
    const Vector step = between(x1, y1, x2, y2);
    *x = round2(x1 + static_cast<double>(step.x) * f);
    *y = round2(static_cast<double>(step.y) * f + y1);
}

void rotatePoint(int cx, int cy, int x, int y, int* ox, int* oy, double angle)
{
    const double sine = std::sin(-angle);
    const double cosine = std::cos(angle);
    const Vector arm = between(cx, cy, x, y);
    const auto dx = static_cast<double>(arm.x), dy = static_cast<double>(arm.y);
    *ox = sum(cx, round2(cosine * dx - sine * dy));
    *oy = sum(cy, round2(sine * dx + cosine * dy));
}

void getPointArray(FigLine* line, QPoint* out, long* n)
{
    *n = 0;
    for (const FigPoint* point = line->points; point && *n < MAX_LIST_POINTS; point = point->next)
        out[(*n)++] = QPoint(point->x, point->y);
}

// --- angles and ellipses -----------------------------------------------------------

double getCrossProduct(double ax, double ay, double bx, double by)
{
    return by * ax - bx * ay;
}

double getAngle(int ax1, int ay1, int ax2, int ay2, int bx1, int by1, int bx2, int by2)
{
    const Vector stepA = between(ax1, ay1, ax2, ay2);
    const Vector stepB = between(bx1, by1, bx2, by2);
    const auto ax = static_cast<double>(stepA.x), ay = static_cast<double>(stepA.y);
    const auto bx = static_cast<double>(stepB.x), by = static_cast<double>(stepB.y);
    const double lengths = length(ax, ay) * length(bx, by);
    if (lengths == 0.0)
        return 0.0;
    // The quotient of parallel vectors may exceed 1 by a hair.
    const double angle = std::acos(std::clamp((ax * bx + ay * by) / lengths, -1.0, 1.0));
    return getCrossProduct(ax, ay, bx, by) > 0 ? -angle : angle;
}

namespace {

/// Distance from the axis at `along` from the centre; the semi-axis `across` lies on the wanted
/// direction, `axis` on the other. Negative where the ellipse does not reach.
double ellipseReach(double axis, double across, double along)
{
    if (axis == 0.0 || across == 0.0)
        return -1.0;
    const double square = across * across * (1 - along * along / (axis * axis));
    return square >= 0 ? std::sqrt(square) : -1.0;
}

double ellipsePoint(double centre, double reach, bool positiveSide, bool* ok)
{
    *ok = reach >= 0;
    if (!*ok)
        return 0.0;
    const double value = reach + centre;
    return positiveSide ? value : centre - (value - centre);
}

} // namespace

double getEllipseY(double cx, double cy, double a, double b, double x, bool upper, bool* ok)
{
    // The upper point is the one with the larger y, lower on the screen.
    return ellipsePoint(cy, ellipseReach(a, b, x - cx), upper, ok);
}

double getEllipseX(double cx, double cy, double a, double b, double y, bool right, bool* ok)
{
    return ellipsePoint(cx, ellipseReach(b, a, y - cy), right, ok);
}

bool isFlippedX(FigEllipse* e1, FigEllipse* e2)
{
    const auto side = [](const FigEllipse* ellipse) {
        return sign(saturatedInt(static_cast<long long>(ellipse->end.x) - ellipse->center.x));
    };
    return side(e1) != side(e2);
}

bool isFlippedY(FigEllipse* e1, FigEllipse* e2)
{
    const auto side = [](const FigEllipse* ellipse) {
        return sign(saturatedInt(static_cast<long long>(ellipse->end.y) - ellipse->center.y));
    };
    return side(e1) != side(e2);
}

double getTangentOnEllipseAngle(double cx, double cy, double a, double b, int x, int y)
{
    const double angle = std::atan((x - cx) / -(y - cy) * -(b * b / (a * a)));
    return std::isnan(angle) ? 0.0 : angle;
}

double getAforCandAngle(double c, double angle)
{
    return std::sin(angle) * c;
}

double getBforCandAngle(double c, double angle)
{
    return std::cos(angle) * c;
}

void get2ndPointForLine(int x, int y, double angle, double len, int* x2, int* y2)
{
    *x2 = truncateToInt(std::cos(angle) * len + x);
    *y2 = truncateToInt(y - std::sin(angle) * len);
}

double compute_angle(double dx, double dy)
{
    constexpr double pi = 3.14159265358979323846;
    if (dx == 0.0)
        return dy > 0 ? pi / 2 : 4.71238898038469;
    if (dy == 0.0)
        return dx > 0 ? 0.0 : pi;
    const double angle = std::atan(dy / dx);
    if (dx < 0)
        return angle + pi;
    return dy < 0 ? angle + 2 * pi : angle;
}
