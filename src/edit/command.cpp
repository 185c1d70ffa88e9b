#include "edit/command.h"

#include "model/shell.h"

int cur_command = -1;
int previous_command = -1;

ButtonProc canvas_leftbut_proc = nullptr;
PointerProc canvas_leftbutUp_proc = nullptr;
RightButtonProc canvas_middlebut_proc = nullptr;
RightButtonProc canvas_middlebut_save = nullptr;
PointerProc canvas_locmove_proc = nullptr;
ListPointerProc canvas_locmove_proc2 = nullptr;
PointerProc canvas_qualifier_proc = nullptr;
KeyboardProc canvas_kbd_proc = nullptr;
ElasticProc elastic_proc = nullptr;
ReturnProc return_proc = nullptr;

ObjectHandler handlerproc_left = nullptr;
ObjectHandler handlerproc_middle = nullptr;
ObjectHandler manipulate_proc = nullptr;
PointHandler pointHandlerproc_left = nullptr;
PointHandler pointManipulate_proc = nullptr;

CFigContext* gestureContext = nullptr;

void set_functions(PointerProc qualifier, KeyboardProc kbd, PointerProc locmove, ButtonProc leftbut,
                   RightButtonProc middlebut)
{
    canvas_qualifier_proc = qualifier;
    canvas_kbd_proc = kbd;
    canvas_locmove_proc = locmove;
    canvas_leftbut_proc = leftbut;
    canvas_middlebut_proc = middlebut;
}

void switchCommand(int command)
{
    switch (command) {
    case -1:
    case CMD_MOVE_POINT:
    case CMD_DRAG_OBJECTS:
    case CMD_PASTE:
        // Nothing that could be gone back to: the resting state takes its place.
        shell_switch_command(CMD_SELECT);
        break;
    default:
        shell_switch_command(command);
    }
}

bool isObjectDrawingCommand()
{
    return isDrawingFunction(cur_command);
}

bool isDrawingFunction(int command)
{
    return (command >= CMD_CIRCLE_BY_RADIUS && command <= CMD_CLOSED_INT_SPLINE) ||
           command == CMD_REGPOLY || command == CMD_PICTURE;
}

bool isSnapObjectsCommand()
{
    return cur_command == CMD_COPY || cur_command == CMD_DRAG_OBJECTS;
}

bool isSmartLinkCreateAction(int command)
{
    return command == CMD_MOVE_POINT;
}

bool useCrossCursor(int command)
{
    switch (command) {
    case CMD_SCALE_COMPOUND:
    case CMD_COPY:
    case CMD_DELETE:
    case CMD_MOVE_POINT:
    case CMD_DELETE_POINT:
    case CMD_ADD_POINT:
    case CMD_ARROW_HEAD:
    case CMD_UPDATE:
    case CMD_FLIP_UD:
    case CMD_FLIP_LR:
    case CMD_ROTATE_CCW:
    case CMD_ROTATE_CW:
    case CMD_SELECT:
    case CMD_DRAG_OBJECTS:
        return true;
    default:
        return false;
    }
}

bool useAntialiasing(int command)
{
    return !isDrawingFunction(command) && command != CMD_SELECT;
}

bool isSnapCursorCommand(bool moving)
{
    if (cur_command == CMD_SELECT)
        return false;
    return moving || !useCrossCursor(cur_command);
}
