// Scaling of objects about a centre, and the reading family, which applies one factor and one
// offset to a whole figure when a file was written for another resolution.
#pragma once

#include "model/ObjectFunctions.h"

// A coordinate becomes round2((v - c) * factor + c) in single precision; negative factors mirror.
// Ends of lines and splines whose link stays are left alone.
void scale_object(CFigContext* ctx, FigObject* object, float xfactor, float yfactor, int cx,
                  int cy);
/// Circles and ellipses change into each other as their radii differ or agree.
void scale_ellipse(FigEllipse* ellipse, float xfactor, float yfactor, int cx, int cy);
/// On x the offset from the centre is truncated before it is rounded, on y it is not.
void scale_line(FigLine* line, float xfactor, float yfactor, int cx, int cy);
void scale_spline(FigSpline* spline, float xfactor, float yfactor, int cx, int cy);
/// A text that is not rigid takes the x factor for its size, 1 to 500.
void scale_text(CFigContext* ctx, FigText* text, float xfactor, float yfactor, int cx, int cy);
/// Points that fall on a line are moved apart; the centre stays if that does not help.
void scale_arc(FigArc* arc, float xfactor, float yfactor, int cx, int cy);
void scale_compound(CFigContext* ctx, FigCompound* compound, float xfactor, float yfactor, int cx,
                    int cy);
/// As a point of a line.
void scale_point(FigPoint* point, float xfactor, float yfactor, int cx, int cy);
/// Corner radius of an arc-box whose size was changed by hand: that of `resized` from `former`.
void scale_radius(FigLine* former, FigLine* resized);

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
