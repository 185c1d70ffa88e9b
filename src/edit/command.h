// The command in force and the procedure slots through which the canvas calls the active tool.
// Written by the tools, called by the document windows; shared by all documents.
#pragma once

#include <QLinkedList>

class CFigContext;
class FigObject;

constexpr int CMD_SELECT = 67;
constexpr int CMD_SCALE_COMPOUND = 32;
constexpr int CMD_MOVE_POINT = 37;
constexpr int CMD_ADD_POINT = 39;

using ButtonProc = FigObject* (*)(CFigContext*, int x, int y, FigObject* excluded);
using RightButtonProc = void (*)(CFigContext*, int x, int y, FigObject* excluded);
using PointerProc = void (*)(CFigContext*, int x, int y);
using ListPointerProc = void (*)(CFigContext*, QLinkedList<FigObject*>*, int x, int y);
using KeyboardProc = void (*)(unsigned long);
using ElasticProc = void (*)(CFigContext*, int x1, int y1, int x2, int y2);

extern int cur_command; ///< -1 until the start-up sequence has selected CMD_SELECT
extern int previous_command;

extern ButtonProc canvas_leftbut_proc;
extern PointerProc canvas_leftbutUp_proc;
extern RightButtonProc canvas_middlebut_proc; ///< the right mouse button
extern PointerProc canvas_locmove_proc;
extern ListPointerProc canvas_locmove_proc2;
extern PointerProc canvas_qualifier_proc; ///< Shift pressed or released
extern KeyboardProc canvas_kbd_proc;      ///< no caller; parameter of set_functions
extern ElasticProc elastic_proc;          ///< replayed by a full redraw

/// Writes five slots in one step, nulls included; the others stay.
void set_functions(PointerProc qualifier, KeyboardProc kbd, PointerProc locmove, ButtonProc leftbut,
                   RightButtonProc middlebut);

// Classes of commands; those without argument ask about cur_command.
bool isObjectDrawingCommand();
bool isDrawingFunction(int command);
bool isSnapObjectsCommand();
bool isSmartLinkCreateAction(int command);
bool useCrossCursor(int command);
bool useAntialiasing(int command);
bool isSnapCursorCommand(bool moving);
