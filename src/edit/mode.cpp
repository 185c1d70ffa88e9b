#include "edit/mode.h"

#include "edit/command.h"

int action_on = 0;
int fix_x = 0;
int fix_y = 0;
int cur_x = 0;
int cur_y = 0;
int num_point = 0;
int min_num_points = 0;
FigPoint last_edited_point;
FigPoint* left_point = nullptr;
FigPoint* right_point = nullptr;
FigPoint* moved_pos = nullptr;
int movedpoint_num = 0;
int fromx = 0;
int fromy = 0;
int horizGrip = 0;
int vertGrip = 0;
int setcenter = 0;
int setcenter_x = 0;
int setcenter_y = 0;
bool shift_down = false;
bool ctrl_down = false;
bool pointmarker_shown = false;
int manhattan_mode = 0;
int mountain_mode = 0;
int latexline_mode = 0;
int latexarrow_mode = 0;

void set_action_on()
{
    action_on = 1;
}

void reset_action_on()
{
    action_on = 0;
    elastic_proc = nullptr;
}

void resetConstraints()
{
    manhattan_mode = 0;
    mountain_mode = 0;
    latexline_mode = 0;
    latexarrow_mode = 0;
}
