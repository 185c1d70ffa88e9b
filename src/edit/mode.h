// Modes and anchors of the gesture in progress. One gesture at a time in the whole process.
#pragma once

#include "model/FigObjects.h"

extern int action_on;              ///< 1 while rubber-band feedback is on the canvas
extern int fix_x, fix_y;           ///< fixed end of the gesture, figure units
extern int cur_x, cur_y;           ///< moving end, always the last position drawn
extern int num_point;              ///< points so far of the object under construction
extern int min_num_points;         ///< points needed before the right button may finish it
extern FigPoint last_edited_point; ///< the last point put down, for the coordinate read-out
extern FigPoint* left_point;       ///< neighbours of the point that is being moved
extern FigPoint* right_point;
extern FigPoint* moved_pos; ///< the point that is being moved
extern int movedpoint_num;  ///< its number: 0 to 2 of an arc, 0 or 1 of an ellipse
extern int fromx, fromy;    ///< where the corner of a scale gesture started
/// Side of the dragged set that snapping puts on the grid: 1 left, 3 right; 2 top, 4 bottom;
/// both 5 for an ellipse held by its centre; 0 none.
extern int horizGrip, vertGrip;
extern int setcenter; ///< 1: rotate and flip have a centre of the user's
extern int setcenter_x, setcenter_y;
extern bool shift_down, ctrl_down; ///< the keys as the windows last saw them
extern bool pointmarker_shown;     ///< point markers are on
// Slopes that new line segments are limited to: 0 or 1, set by the main window, read when a
// gesture starts. Manhattan and mountain together allow both kinds.
extern int manhattan_mode;  ///< horizontal and vertical
extern int mountain_mode;   ///< the two diagonals
extern int latexline_mode;  ///< the slopes that LaTeX has for lines
extern int latexarrow_mode; ///< the slopes that LaTeX has for arrows

void set_action_on();
/// Ends the gesture; the feedback procedure is forgotten.
void reset_action_on();
/// All four constraint modes off.
void resetConstraints();
