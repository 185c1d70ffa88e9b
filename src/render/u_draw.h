// From an object to drawing calls: the renderers, the X-spline evaluator and the arc walker.
#pragma once

#include "model/FigObjects.h"

#include <QPoint>

constexpr float SPLINE_PRECISION = 0.5f;
constexpr float MAX_SPLINE_STEP = 0.2f;

/// Cleared when a spline walk starts; a point callback sets it to stop after the segment.
extern int done;

void draw_line(CFigContext* ctx, FigLine* line);
void draw_spline(CFigContext* ctx, FigSpline* spline);
void draw_arc(CFigContext* ctx, FigArc* arc);
void draw_ellipse(CFigContext* ctx, FigEllipse* ellipse);
void draw_text(CFigContext* ctx, FigText* text);
void draw_compound(CFigContext* ctx, FigCompound* compound);

/// The paint mode with the view of an open compound applied: the stronger treatment wins.
int isOutsideOpenedCurrentCompound(CFigContext* ctx, FigObject* object, int mode);

/// Feed the device points of a spline to add, at the context's zoom and shift. False with an
/// empty list for fewer than 2 (open) or 3 (closed) points.
bool compute_open_spline(CFigContext* ctx, FigSpline* spline, float precision,
                         bool (*add)(int, int));
bool compute_closed_spline(CFigContext* ctx, FigSpline* spline, float precision,
                           bool (*add)(int, int));

/// Midpoint walk along an ellipse around (xoff, yoff), from (xstart, ystart) to near (xend, yend),
/// both relative to the centre with y up; adds to the point list.
void curve(CFigContext* ctx, int xstart, int ystart, int xend, int yend, bool closed, int direction,
           int a, int b, int xoff, int yoff, bool scaled);

/// Whether the arc-box is drawn with rounded corners at the present zoom.
bool isRoundedArcbox(CFigContext* ctx, FigLine* line);
/// Fill the point list with the outline that drawing uses. False when nothing is to be drawn.
bool initPointListFromSpline(CFigContext* ctx, FigSpline* spline);
bool initPointListFromArc(CFigContext* ctx, FigArc* arc);

/// Both heads of an object with the buffers that drawing hands to the arrow code.
struct ArrowBuffers {
    QPoint forwardFill[6], backwardFill[6];
    int forwardFillCount = 0, backwardFillCount = 0;
    QPoint forwardClip[50], backwardClip[50];
    int forwardClipCount = 0, backwardClipCount = 0;
};
