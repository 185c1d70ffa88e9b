#include "edit/mode.h"

#include "edit/command.h"

int action_on = 0;
int fix_x = 0;
int fix_y = 0;
int cur_x = 0;
int cur_y = 0;
FigPoint* left_point = nullptr;
FigPoint* right_point = nullptr;
FigPoint* moved_pos = nullptr;
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
