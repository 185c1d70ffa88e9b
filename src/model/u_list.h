// Singly linked lists of points and shape factors.
#pragma once

#include "model/FigObjects.h"

// --- points; a node is made with new, its link belongs to it -------------------

/// Appends after *last and moves *last on. False when memory is out.
bool append_point(int x, int y, FigPoint** last);
/// Appends at the end of the list that begins with first; returns the new point.
FigPoint* append_point_to_last(int x, int y, FigPoint* first);
FigPoint* insert_point(int x, int y, FigPoint* after);
int num_points(FigPoint* first);
FigPoint* last_point(FigPoint* first);
FigPoint* prev_point(FigPoint* first, FigPoint* point); ///< null for the first and for strangers
FigPoint* search_line_point(FigLine* line, int x, int y);
FigPoint* search_spline_point(FigSpline* spline, int x, int y);
/// Puts a new first point with shape factor s before the others.
bool first_spline_point(int x, int y, double s, FigSpline* spline);
/// Deep copy. withLinks copies the links with srcPoint set anew; targets are not remapped.
FigPoint* copy_points(FigPoint* first, bool withLinks);
void free_points(FigPoint* first); ///< with their links
/// Reverses the coordinates in place; nodes and links stay where they are.
void reverse_points(FigPoint* first);

// --- shape factors; made with malloc, released with free -----------------------

FigShapeFactor* append_sfactor(double s, FigShapeFactor* last);
FigShapeFactor* last_sfactor(FigShapeFactor* first);
FigShapeFactor* search_sfactor(FigSpline* spline, FigPoint* point);
FigShapeFactor* copy_sfactors(FigShapeFactor* first);
void free_sfactors(FigShapeFactor* first);
void reverse_sfactors(FigShapeFactor* first);
/// Factors that the sub-type implies: 1 approximated, -1 all others, 0 at open ends.
/// Replaces what the spline has. Returns 1, or 0 for a spline without points.
int make_sfactors(FigSpline* spline);

/// Clears tagged on the current object, if there is one.
void clear_current_object_tag(CFigContext* ctx);
