// Plane geometry on integer coordinates: rounding, the extent of what a stroke really paints,
// line lengths, angles, ellipses. Coordinates are whatever integers the caller uses throughout;
// nothing here draws.
#pragma once

#include <QPoint>

#include <climits>

class FigEllipse;
class FigLine;

/// Truncation toward zero. NaN gives 0, values out of range saturate.
int truncateToInt(double value);
/// Rounding of all geometry: half away from zero, with the same answers to odd values. Called for
/// every coordinate of every outline.
inline int round2(double value)
{
    // The range test fails for NaN as well.
    if (!(value > INT_MIN && value < INT_MAX))
        return truncateToInt(value);
    const int whole = static_cast<int>(value);
    const double fraction = value - whole;
    return whole + static_cast<int>(fraction >= 0.5) - static_cast<int>(fraction <= -0.5);
}
/// The nearest int.
inline int saturatedInt(long long value)
{
    return value > INT_MAX ? INT_MAX : value < INT_MIN ? INT_MIN : static_cast<int>(value);
}
/// to - from, kept in the range of int.
inline int saturatedDifference(int to, int from)
{
    return saturatedInt(static_cast<long long>(to) - from);
}
/// a + b, kept in the range of int.
inline int saturatedSum(int a, int b)
{
    return saturatedInt(static_cast<long long>(a) + b);
}
/// |a - b|, kept in the range of int.
inline int axisDistance(int a, int b)
{
    const long long way = static_cast<long long>(a) - b;
    return saturatedInt(way < 0 ? -way : way);
}
/// value rounded to a number of decimals.
double round(double value, int digits);
int sign(int value);
/// value, or the nearest one within `limit` of centre.
double limitValue(double centre, double value, double limit);
double get_line_length(int x1, int y1, int x2, int y2);

/// Intersection of two lines by two points each. 0 found (ix, iy rounded; t1, t2 the parameters),
/// 1 a segment has no length, 2 parallel; t1 and t2 are then 0 and ix, iy untouched.
int intersection(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4, int* ix, int* iy,
                 double* t1, double* t2);

/// Outline of one stroked segment as a closed quadrilateral.
/// out[0..4], out[4] == out[0]; out[0]-out[3] and out[1]-out[2] are the long sides.
/// A segment of zero length gives the diagonal of a square of side `width`.
void calc_outline(long x1, long y1, long x2, long y2, QPoint* out, float width);
void calc_outline(long x1, long y1, long x2, long y2, QPoint* out, int width);
void calc_outline(long x1, long y1, long x2, long y2, QPoint* out);

/// Four points whose extent covers what a join adds at (x, y), between the outline `prev` of the
/// segment that ends there and `cur` of the one that leaves. False when nothing is added.
bool calc_joinpoints(QPoint* cur, int x, int y, QPoint* prev, int join, float width, QPoint* out);

/// Stroked bounds of a polyline of n points; without points the results are left alone.
void calc_linebounds(QPoint* pts, long n, bool closed, float width, int join, int* minx, int* miny,
                     int* maxx, int* maxy);

/// Extends a segment by a length at its left (first) and right (second) end.
void lengthen_dash(int* x1, int* y1, int* x2, int* y2, int by, bool left, bool right);
/// Scales a segment's length at either end; both flags together scale by factor squared.
void lengthen_line(int* x1, int* y1, int* x2, int* y2, double factor, bool left, bool right);
void getPointByFactor(int x1, int y1, int x2, int y2, double f, int* x, int* y);
/// Turns (x, y) about (cx, cy); positive angles (radians) are counter-clockwise on screen.
void rotatePoint(int cx, int cy, int x, int y, int* ox, int* oy, double angle);
/// Copies a line's points, at most 100000.
void getPointArray(FigLine* line, QPoint* out, long* n);
double getCrossProduct(double ax, double ay, double bx, double by);
/// Signed angle between the vectors (a1 to a2) and (b1 to b2), radians.
double getAngle(int ax1, int ay1, int ax2, int ay2, int bx1, int by1, int bx2, int by2);
double getEllipseY(double cx, double cy, double a, double b, double x, bool upper, bool* ok);
double getEllipseX(double cx, double cy, double a, double b, double y, bool right, bool* ok);
bool isFlippedX(FigEllipse* e1, FigEllipse* e2);
bool isFlippedY(FigEllipse* e1, FigEllipse* e2);
double getTangentOnEllipseAngle(double cx, double cy, double a, double b, int x, int y);
double getAforCandAngle(double c, double angle);
double getBforCandAngle(double c, double angle);
void get2ndPointForLine(int x, int y, double angle, double len, int* x2, int* y2);
/// Angle of a vector in 0 to 2 pi; (0, 0) gives 3 pi / 2.
double compute_angle(double dx, double dy);
