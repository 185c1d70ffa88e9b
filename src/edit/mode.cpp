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

void set_action_on()
{
    action_on = 1;
}

void reset_action_on()
{
    action_on = 0;
    elastic_proc = nullptr;
}
