// Arrowheads in device pixels, computed afresh for each draw from the object's outline.
#pragma once

#include <QPoint>

class CFigContext;
class FigObject;
struct FigArrow;

constexpr int MAX_ARROW_POINTS = 512;
/// Outlines of the heads computed last. Written by get_arrowpoints.
extern QPoint farpts[MAX_ARROW_POINTS];
extern long nfpts;
extern QPoint barpts[MAX_ARROW_POINTS];
extern long nbpts;

/// Outline and fill in units of (height, width): x along the line, negative toward the tail.
struct ArrowShape {
    int numpts;
    int tipno;
    int numfillpts;
    bool simplefill;
    bool clip;
    bool half;
    double tipmv; ///< how far a sharp tip moves out; 0 and -1 are special
    struct {
        double x, y;
    } points[6];
    struct {
        double x, y;
    } fillpoints[6];
};
constexpr int NUM_ARROW_SHAPES = 30;
extern const ArrowShape arrow_shapes[NUM_ARROW_SHAPES]; ///< index 2 * type + style

/// Heads at both ends of an outline of `npoints` device points. Fewer than two points, arcs
/// excepted, give no heads.
void get_arrowpoints(CFigContext* ctx, FigObject* object, int objType, QPoint* points, int skip,
                     QPoint* fwdFill, int* nFwdFill, QPoint* backFill, int* nBackFill,
                     QPoint* fwdClip, int* nFwdClip, QPoint* backClip, int* nBackClip);
/// One head at (x2, y2), coming from (x1, y1).
void calc_arrow(CFigContext* ctx, int x1, int y1, int x2, int y2, int thickness, FigArrow* arrow,
                QPoint* points, long* n, QPoint* fill, int* nFill, QPoint* clip, int* nClip,
                int objType);
void draw_arrow32(CFigContext* ctx, FigObject* object, FigArrow* arrow, QPoint* points, long n,
                  QPoint* fill, int nFill, int mode);
/// A point on the tangent of a circle at (x, y).
void compute_normal(float cx, float cy, int x, int y, int direction, int* ox, int* oy);
