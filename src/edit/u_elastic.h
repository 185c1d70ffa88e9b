// Rubber bands: thin inverted outlines of the shape under construction, and the procedures that
// move them. Drawing the same shape twice at the same place restores the canvas, so every
// resizing_* procedure draws the old shape, stores the new position in cur_x, cur_y and draws the
// new shape. Figure units; the context's painter is the target, no painter means no drawing.
#pragma once

class CFigContext;
class FigEllipse;
class FigPoint;
class QPainter;

/// Takes antialiasing off the context's painter for as long as it lives. The window's brackets
/// turn it on for some events and off for others, and only equal pixels wipe each other.
class PlainPixels {
public:
    explicit PlainPixels(CFigContext* ctx);
    PlainPixels(const PlainPixels&) = delete;
    PlainPixels& operator=(const PlainPixels&) = delete;
    ~PlainPixels();

private:
    QPainter* painter;
    bool smooth;
};

extern int x1off, y1off, x2off, y2off; ///< of elastic_movebox; 0

// --- drawing -----------------------------------------------------------------------

void elastic_box(CFigContext* ctx, int x1, int y1, int x2, int y2);
void elastic_rubberbox(CFigContext* ctx, int x1, int y1, int x2, int y2);
void elastic_dottedbox(CFigContext* ctx, int x1, int y1, int x2, int y2);
/// Plain, not inverting. No state uses these two.
void rubberbox(CFigContext* ctx, int x1, int y1, int x2, int y2);
void dottedbox(CFigContext* ctx, int x1, int y1, int x2, int y2);
void elastic_movebox(CFigContext* ctx);
void elastic_line(CFigContext* ctx, int x1, int y1, int x2, int y2);
/// From left_point and right_point to the moving end; then with points of the caller's. No state
/// uses these two.
void elastic_linelink(CFigContext* ctx, int x1, int y1, int x2, int y2);
void elastic_linelink(CFigContext* ctx, FigPoint* left, FigPoint* right, int x, int y);
void elastic_moveline(CFigContext* ctx, FigPoint* first, int dx, int dy);
void elastic_arclink(CFigContext* ctx); ///< no state uses it
void elastic_poly(CFigContext* ctx, int cx, int cy, int px, int py, int n);
/// Angle in radians; the turn is rounded to a whole degree. Nothing for a radius of 0.
void elastic_ellipse(CFigContext* ctx, int cx, int cy, int rx, int ry, float angle);
// By fix and cur; the four numbers are not read, they make these elastic_procs.
void elastic_ebr(CFigContext* ctx, int x1 = 0, int y1 = 0, int x2 = 0, int y2 = 0);
void elastic_ebd(CFigContext* ctx, int x1 = 0, int y1 = 0, int x2 = 0, int y2 = 0);
void elastic_cbr(CFigContext* ctx, int x1 = 0, int y1 = 0, int x2 = 0, int y2 = 0);
void elastic_cbd(CFigContext* ctx, int x1 = 0, int y1 = 0, int x2 = 0, int y2 = 0);
void elastic_moveellipse(CFigContext* ctx, FigEllipse* ellipse, int dx, int dy);

// --- moving --------------------------------------------------------------------------

void resizing_box(CFigContext* ctx, int x, int y);
void constrained_resizing_box(CFigContext* ctx, int x, int y);
void resizing_rubberbox(CFigContext* ctx, int x, int y); ///< no state installs it
void resizing_dottedbox(CFigContext* ctx, int x, int y);
/// The dotted box of a region.
void capture_objects(CFigContext* ctx, int x, int y);
void resizing_poly(CFigContext* ctx, int x, int y);
void resizing_ebr(CFigContext* ctx, int x, int y);
void resizing_ebd(CFigContext* ctx, int x, int y);
void resizing_cbr(CFigContext* ctx, int x, int y);
void resizing_cbd(CFigContext* ctx, int x, int y);
void freehand_line(CFigContext* ctx, int x, int y);
void latex_line(CFigContext* ctx, int x, int y);
void constrainedangle_line(CFigContext* ctx, int x, int y);
// Outline of the current object shifted by cur minus fix. No state installs them.
void moving_box(CFigContext* ctx, int x, int y);
void moving_line(CFigContext* ctx, int x, int y);
void moving_spline(CFigContext* ctx, int x, int y); ///< a second name of moving_line
void moving_ellipse(CFigContext* ctx, int x, int y);

// Set cur_x, cur_y from (x, y) to a direction from fix_x, fix_y.
void angle0_line(int x, int y);
void angle90_line(int x, int y);
void angle45_line(int x, int y);
void angle135_line(int x, int y);
