// Modes and anchors of the gesture in progress. One gesture at a time in the whole process.
#pragma once

class FigPoint;

extern int action_on;        ///< 1 while rubber-band feedback is on the canvas
extern int fix_x, fix_y;     ///< fixed end of the gesture, figure units
extern int cur_x, cur_y;     ///< moving end, always the last position drawn
extern FigPoint* left_point; ///< neighbours of the point that is being moved
extern FigPoint* right_point;
extern FigPoint* moved_pos;        ///< the point that is being moved
extern bool shift_down, ctrl_down; ///< the keys as the windows last saw them
extern bool pointmarker_shown;
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
