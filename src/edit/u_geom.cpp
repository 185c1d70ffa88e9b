#include "edit/u_geom.h"

#include "render/gfx_math.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

// --- slopes -----------------------------------------------------------------------

namespace {

/// The first row divides by zero on purpose: the arc tangent of infinity is the right angle.
double degreesOfSlope(double dy, double dx)
{
    return std::atan(dy / dx) * rad2deg;
}

SlopeEntry slope(int x, int y)
{
    return {x, y, degreesOfSlope(y, x)};
}

} // namespace

// The order decides ties: by x, then y, with (0, 1) first and (1, 0) second.
const SlopeEntry arrow_angles[NUM_ARROW_ANGLES] = {
    slope(0, 1), slope(1, 0), slope(1, 1), slope(1, 2), slope(1, 3), slope(1, 4), slope(2, 1),
    slope(2, 3), slope(3, 1), slope(3, 2), slope(3, 4), slope(4, 1), slope(4, 3)};
const SlopeEntry line_angles[NUM_LINE_ANGLES] = {
    slope(0, 1), slope(1, 0), slope(1, 1), slope(1, 2), slope(1, 3), slope(1, 4), slope(1, 5),
    slope(1, 6), slope(2, 1), slope(2, 3), slope(2, 5), slope(3, 1), slope(3, 2), slope(3, 4),
    slope(3, 5), slope(4, 1), slope(4, 3), slope(4, 5), slope(5, 1), slope(5, 2), slope(5, 3),
    slope(5, 4), slope(5, 6), slope(6, 1), slope(6, 5)};

namespace {

const SlopeEntry& nearestSlope(const SlopeEntry* begin, const SlopeEntry* end, double angle)
{
    return *std::min_element(begin, end, [angle](const SlopeEntry& a, const SlopeEntry& b) {
        return std::fabs(angle - a.angle) < std::fabs(angle - b.angle);
    });
}

long long wideLcm(long long a, long long b)
{
    return a == 0 || b == 0 ? 0 : std::abs(a / std::gcd(a, b) * b);
}

/// Where a line ends whose slope has its greater share along the leading axis.
struct SlopeEnd {
    int lead, other;

    SlopeEnd(long long leadStart, long long otherStart, long long leadEnd, int leadSlope,
             int otherSlope, int magnitude)
    {
        const long long distance = leadEnd - leadStart;
        const long long period =
            wideLcm(leadSlope, static_cast<long long>(gcd(leadSlope, magnitude)) * magnitude);
        const long long count = (2 * std::abs(distance) / period + 1) / 2;
        const long long travel = (distance < 0 ? -count : count) * period;
        lead = saturatedInt(leadStart + travel);
        other = saturatedInt(otherStart + travel * otherSlope / leadSlope);
    }
};

} // namespace

int gcd(int a, int b)
{
    const long long divisor = std::gcd(static_cast<long long>(a), static_cast<long long>(b));
    return divisor == 0 ? 1 : saturatedInt(divisor);
}

int lcm(int a, int b)
{
    return saturatedInt(wideLcm(a, b));
}

void get_slope(int dx, int dy, int* sx, int* sy, int arrow)
{
    if (dx == 0) {
        *sx = 0;
        *sy = dy < 0 ? -1 : 1;
        return;
    }
    const double angle =
        degreesOfSlope(std::fabs(static_cast<double>(dy)), std::fabs(static_cast<double>(dx)));
    const SlopeEntry& nearest =
        arrow != 0 ? nearestSlope(arrow_angles, arrow_angles + NUM_ARROW_ANGLES, angle)
                   : nearestSlope(line_angles, line_angles + NUM_LINE_ANGLES, angle);
    *sx = dx < 0 ? -nearest.x : nearest.x;
    *sy = dy < 0 ? -nearest.y : nearest.y;
}

void latex_endpoint(int x1, int y1, int x2, int y2, int* x, int* y, int arrow, int magnitude)
{
    const int step = std::max(magnitude, 1);
    int slopeX, slopeY;
    get_slope(saturatedInt(static_cast<long long>(x2) - x1),
              saturatedInt(static_cast<long long>(y2) - y1), &slopeX, &slopeY, arrow);
    if (std::abs(slopeX) < std::abs(slopeY)) {
        const SlopeEnd end(y1, x1, y2, slopeY, slopeX, step);
        *x = end.other;
        *y = end.lead;
    } else {
        const SlopeEnd end(x1, y1, x2, slopeX, slopeY, step);
        *x = end.lead;
        *y = end.other;
    }
}

// --- segments -----------------------------------------------------------------------

namespace {

/// A difference of two ints may not fit an int.
long long distance(int a, int b)
{
    return std::abs(static_cast<long long>(a) - b);
}

bool isWithin(int a, int b, int tolerance)
{
    return distance(a, b) <= tolerance;
}

bool isInWidenedRange(int value, int end1, int end2, int tolerance)
{
    return value >= static_cast<long long>(std::min(end1, end2)) - tolerance &&
           value <= static_cast<long long>(std::max(end1, end2)) + tolerance;
}

float difference(int a, int b)
{
    return static_cast<float>(static_cast<long long>(a) - b);
}

} // namespace

bool close_to_vector(int x1, int y1, int x2, int y2, int x, int y, int t, float tt, int* px,
                     int* py)
{
    if (isWithin(x, x1, t) && isWithin(y, y1, t)) {
        *px = x1;
        *py = y1;
        return true;
    }
    if (isWithin(x, x2, t) && isWithin(y, y2, t)) {
        *px = x2;
        *py = y2;
        return true;
    }
    if (!isInWidenedRange(x, x1, x2, t) || !isInWidenedRange(y, y1, y2, t))
        return false;
    // Single precision, in this order: it decides which points are still near.
    const auto startX = static_cast<float>(x1), startY = static_cast<float>(y1);
    const auto cursorX = static_cast<float>(x), cursorY = static_cast<float>(y);
    float footX = startX, footY = cursorY;
    if (x1 != x2 && y1 == y2) {
        footX = cursorX;
        footY = startY;
    } else if (x1 != x2) {
        const float s = difference(x2, x1) / difference(y2, y1);
        footY = ((s * startY + difference(x, x1)) * s + cursorY) / (s * s + 1.0f);
        footX = s * (footY - startY) + startX;
    }
    const float dx = cursorX - footX, dy = cursorY - footY;
    if (!(dx * dx + dy * dy < tt))
        return false;
    *px = round2(static_cast<double>(footX));
    *py = round2(static_cast<double>(footY));
    return true;
}

// --- arcs ------------------------------------------------------------------------------

namespace {

/// A corner in double precision, wide enough for every difference and square.
struct WidePoint {
    explicit WidePoint(const FigPoint& point) : x(point.x), y(point.y) {}
    bool operator==(const WidePoint& other) const { return x == other.x && y == other.y; }
    double square() const { return x * x + y * y; }
    double x, y;
};

/// From -pi/2 to pi/2: both directions along a line through the vertical have one value.
double elevation(double dx, double dy)
{
    return std::asin(dy / std::sqrt(dx * dx + dy * dy));
}

bool isCentreCoordinate(double value)
{
    return std::fabs(value) <= 1e9;
}

} // namespace

int compute_direction(FigPoint p1, FigPoint p2, FigPoint p3)
{
    const WidePoint a(p1), b(p2), c(p3);
    const double turn = compute_angle(c.x - b.x, b.y - c.y) - compute_angle(b.x - a.x, a.y - b.y);
    return (turn > 0.0 && turn < M_PI) || turn < -M_PI ? 1 : 0;
}

bool compute_arccenter(FigPoint p1, FigPoint p2, FigPoint p3, float* x, float* y)
{
    const WidePoint a(p1), b(p2), c(p3);
    if (a == b || b == c || a == c)
        return false;
    const double dx1 = a.x - b.x, dy1 = a.y - b.y;
    const double dx3 = a.x - c.x, dy3 = a.y - c.y;
    // The sine does not tell left from right: points mirrored about the vertical through the first
    // one count as collinear too.
    if (std::fabs(elevation(dx1, dy1) - elevation(dx3, dy3)) < 0.01)
        return false;
    const double determinant = dy1 * dx3 - dx1 * dy3;
    if (determinant == 0.0)
        return false;
    const double s21 = b.square() - a.square(), s31 = c.square() - a.square();
    const double centreY = (s31 * dx1 - s21 * dx3) / (2.0 * determinant);
    const double centreX = p1.x == p3.x
                               ? (2.0 * centreY * dy1 + b.square() - a.square()) / (-2.0 * dx1)
                               : (2.0 * centreY * dy3 + c.square() - a.square()) / (-2.0 * dx3);
    if (!isCentreCoordinate(centreX) || !isCentreCoordinate(centreY))
        return false;
    *x = static_cast<float>(centreX);
    *y = static_cast<float>(centreY);
    return true;
}
