// Scaling of objects. The reading family applies one factor and one offset to a whole figure
// when a file was written for another resolution.
#pragma once

#include "model/ObjectFunctions.h"

/// v becomes round2(v * factor + offset) on all coordinates. Ellipse radii take no offset, arrow
/// widths and heights do; the arc's centre is rounded too.
void read_scale_objects(FigObjectList* list, float factor, int offset);
void read_scale_line(FigLine* line, float factor, int offset);
void read_scale_spline(FigSpline* spline, float factor, int offset);
void read_scale_ellipse(FigEllipse* ellipse, float factor, int offset);
void read_scale_arc(FigArc* arc, float factor, int offset);
void read_scale_text(FigText* text, float factor, int offset);
void read_scale_compound(FigCompound* compound, float factor, int offset);
void read_scale_arrow(FigArrow* arrow, float factor, int offset);
