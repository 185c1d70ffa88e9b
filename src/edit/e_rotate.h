// Rotation by whole degrees, positive clockwise on the screen. Coordinates in figure units.
// 90 goes an exact integer way; -90 does so for ellipses only.
#pragma once

#include "model/ObjectFunctions.h"

void rotate_pos(FigPoint* point, int cx, int cy, int angle);
void rotate_xy(int* x, int* y, int cx, int cy, int angle);

/// list is where links to the object are followed; null for none.
void rotate_line(CFigContext* ctx, FigObjectList* list, FigLine* line, int cx, int cy, int angle);
void rotate_spline(CFigContext* ctx, FigObjectList* list, FigSpline* spline, int cx, int cy,
                   int angle);
void rotate_text(CFigContext* ctx, FigObjectList* list, FigText* text, int cx, int cy, int angle);
void rotate_ellipse(CFigContext* ctx, FigObjectList* list, FigEllipse* ellipse, int cx, int cy,
                    int angle);
void rotate_ellipse(FigEllipse* ellipse, int cx, int cy, int angle); ///< links are not followed
/// Nothing changes where the turned points would lie on a line.
void rotate_arc(CFigContext* ctx, FigObjectList* list, FigArc* arc, int cx, int cy, int angle);
void rotate_compound(CFigContext* ctx, FigObjectList* list, FigCompound* compound, int cx, int cy,
                     int angle);
/// By type. Refuses arc-boxes and pictures at angles that are no multiple of 90, with a message.
void rotate_object(CFigContext* ctx, FigObject* object, int cx, int cy, int angle);

/// Whether the members of a compound can be turned so; the question about arc-boxes and pictures
/// is asked for every angle but exactly 90.
bool valid_rot_angle(FigObjectList* list, int angle);
/// Before a turn: false, after a message, for an arc-box or picture and an angle that is no
/// multiple of 90; a box becomes a polygon at such an angle.
bool prepare_line_rotation(FigLine* line, int angle);
/// Sub-type and radius of a polygon, with a message. Not undoable.
void convert_box_poly(FigLine* box);
