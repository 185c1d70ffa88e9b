#include "edit/command.h"

int cur_command = -1;
int previous_command = -1;

ButtonProc canvas_leftbut_proc = nullptr;
PointerProc canvas_leftbutUp_proc = nullptr;
RightButtonProc canvas_middlebut_proc = nullptr;
PointerProc canvas_locmove_proc = nullptr;
ListPointerProc canvas_locmove_proc2 = nullptr;
PointerProc canvas_qualifier_proc = nullptr;
KeyboardProc canvas_kbd_proc = nullptr;
ElasticProc elastic_proc = nullptr;

void set_functions(PointerProc qualifier, KeyboardProc kbd, PointerProc locmove, ButtonProc leftbut,
                   RightButtonProc middlebut)
{
    canvas_qualifier_proc = qualifier;
    canvas_kbd_proc = kbd;
    canvas_locmove_proc = locmove;
    canvas_leftbut_proc = leftbut;
    canvas_middlebut_proc = middlebut;
}

bool isObjectDrawingCommand()
{
    return isDrawingFunction(cur_command);
}

bool isDrawingFunction(int command)
{
    return (command >= 1 && command <= 13) || command == 15 || command == 16;
}

bool isSnapObjectsCommand()
{
    return cur_command == 34 || cur_command == 68;
}

bool isSmartLinkCreateAction(int command)
{
    return command == CMD_MOVE_POINT;
}

bool useCrossCursor(int command)
{
    switch (command) {
    case 32:
    case 34:
    case 36:
    case 37:
    case 38:
    case 39:
    case 44:
    case 47:
    case 56:
    case 57:
    case 58:
    case 59:
    case 67:
    case 68:
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
