// Lines into splines and back, boxes into arc-boxes and back.
#pragma once

#include "model/ObjectFunctions.h"

/// A new spline with the line's id and attributes; the arrows are shared by pointer, and with
/// withLinks the points' links are copied. Null, after a message, for fewer than three points.
FigSpline* line_spline(CFigContext* ctx, FigLine* line, bool withLinks = true);
/// A new line with the spline's id and attributes; the same about arrows and links.
FigLine* spline_line(CFigContext* ctx, FigSpline* spline, bool withLinks = true);
/// A clone with the other kind of corners.
FigLine* box_2_box(CFigContext* ctx, FigLine* line);

/// Idle state of the conversion tool.
void convert_selected();
/// Handler: converts the object as one undo step.
bool do_convert_line_spline(CFigContext* ctx, FigObject* object, int type, int x, int y, int px,
                            int py);
