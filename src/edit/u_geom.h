// Geometry of the tools: nearness to segments, the circle through three points, slopes that LaTeX
// can draw. Figure units, y down; nothing here draws. compute_angle is in gfx_math,
// compute_normal in u_arrow.
#pragma once

#include "model/FigObjects.h"

constexpr double rad2deg = 57.29577951308232;

/// A slope of LaTeX's picture mode: a reduced pair and its angle in degrees.
struct SlopeEntry {
    int x, y;
    double angle;
};
constexpr int NUM_ARROW_ANGLES = 13;
constexpr int NUM_LINE_ANGLES = 25;
extern const SlopeEntry arrow_angles[NUM_ARROW_ANGLES];
extern const SlopeEntry line_angles[NUM_LINE_ANGLES];

/// Whether (x, y) is within t of an end, per axis, or nearer than the root of tt to the segment.
/// (*px, *py) receive the end or the foot of the perpendicular.
bool close_to_vector(int x1, int y1, int x2, int y2, int x, int y, int t, float tt, int* px,
                     int* py);
/// 1 counter-clockwise, 0 clockwise.
int compute_direction(FigPoint p1, FigPoint p2, FigPoint p3);
/// Centre of the circle through three points. False, with x and y untouched, for points that are
/// equal or count as collinear: their bearings from p1 differ by less than 0.01 radian.
bool compute_arccenter(FigPoint p1, FigPoint p2, FigPoint p3, float* x, float* y);
/// Of absolute values; gcd(0, 0) is 1.
int gcd(int a, int b);
int lcm(int a, int b);
/// The nearest slope of the arrow or the line table for a direction, signs included.
void get_slope(int dx, int dy, int* sx, int* sy, int arrow);
/// The end nearest to (x2, y2) on such a slope from (x1, y1), in steps of magnitude, which counts
/// as 1 when below.
void latex_endpoint(int x1, int y1, int x2, int y2, int* x, int* y, int arrow, int magnitude);
