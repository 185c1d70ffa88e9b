// The command in force and the procedure slots through which the canvas calls the active tool.
// Written by the tools, called by the document windows; shared by all documents.
#pragma once

#include <QLinkedList>

class CFigContext;
class FigObject;
class FigPoint;

/// Numbers of the commands: stable, the gaps are unused.
enum Command {
    CMD_CIRCLE_BY_RADIUS = 1,
    CMD_CIRCLE_BY_DIAMETER = 2,
    CMD_ELLIPSE_BY_RADII = 3,
    CMD_ELLIPSE_BY_DIAMETERS = 4,
    CMD_ARC = 5,
    CMD_POLYLINE = 6,
    CMD_BOX = 7,
    CMD_POLYGON = 8,
    CMD_TEXT = 9,
    CMD_OPEN_SPLINE = 10,
    CMD_CLOSED_SPLINE = 11,
    CMD_INT_SPLINE = 12,
    CMD_CLOSED_INT_SPLINE = 13,
    CMD_REGPOLY = 15,
    CMD_PICTURE = 16,
    CMD_SCALE_COMPOUND = 32,
    CMD_COPY = 34,
    CMD_DELETE = 36,
    CMD_MOVE_POINT = 37, ///< no button; entered by a press on a point
    CMD_DELETE_POINT = 38,
    CMD_ADD_POINT = 39,
    CMD_ARROW_HEAD = 44,
    CMD_UPDATE = 47,
    CMD_FLIP_UD = 56,
    CMD_FLIP_LR = 57,
    CMD_ROTATE_CCW = 58,
    CMD_ROTATE_CW = 59,
    CMD_SELECT = 67,
    CMD_DRAG_OBJECTS = 68, ///< no button; entered by a drag
    CMD_PASTE = 71,        ///< no button
    CMD_TANGENT = 73,
    CMD_NORMAL = 74
};

using ButtonProc = FigObject* (*)(CFigContext*, int x, int y, FigObject* excluded);
using RightButtonProc = void (*)(CFigContext*, int x, int y, FigObject* excluded);
using PointerProc = void (*)(CFigContext*, int x, int y);
using ListPointerProc = void (*)(CFigContext*, QLinkedList<FigObject*>*, int x, int y);
using KeyboardProc = void (*)(unsigned long);
using ElasticProc = void (*)(CFigContext*, int x1, int y1, int x2, int y2);
using ReturnProc = void (*)(CFigContext*);
/// Told of the object that a search found, or of null with type 2 and px, py 0.
using ObjectHandler = bool (*)(CFigContext*, FigObject* found, int type, int x, int y, int px,
                               int py);
/// Told of the point that a search found; number is that of an arc's or ellipse's point.
using PointHandler = bool (*)(CFigContext*, FigObject* found, int type, int x, int y, int px,
                              int py, FigPoint* previous, FigPoint* point, int number);

extern int cur_command;      ///< -1 until the start-up sequence has selected CMD_SELECT
extern int previous_command; ///< where paste and placing go back to

extern ButtonProc canvas_leftbut_proc;
extern PointerProc canvas_leftbutUp_proc;
extern RightButtonProc canvas_middlebut_proc; ///< the right mouse button
/// Finishing procedure of a point-by-point tool until it has enough points; never called here.
extern RightButtonProc canvas_middlebut_save;
extern PointerProc canvas_locmove_proc;
extern ListPointerProc canvas_locmove_proc2; ///< after canvas_locmove_proc; drags and scaling
extern PointerProc canvas_qualifier_proc;    ///< Shift pressed or released; no tool fills it
extern KeyboardProc canvas_kbd_proc;         ///< no caller; parameter of set_functions
extern ElasticProc elastic_proc;             ///< replayed by a full redraw
extern ReturnProc return_proc;               ///< ends a point-editing gesture

// Handlers of the searches: written by the tools, read by u_search.
extern ObjectHandler handlerproc_left;
extern ObjectHandler handlerproc_middle;
extern ObjectHandler manipulate_proc;
extern PointHandler pointHandlerproc_left;
extern PointHandler pointManipulate_proc;

/// Document whose gesture is in progress, null between gestures. The windows note it after they
/// have called a slot.
extern CFigContext* gestureContext;

/// Writes five slots in one step, nulls included; the others stay.
void set_functions(PointerProc qualifier, KeyboardProc kbd, PointerProc locmove, ButtonProc leftbut,
                   RightButtonProc middlebut);

/// Chooses a command as a click on its button would. A number without a button unchecks the
/// present one and changes nothing else; -1 and the commands of gestures stand for CMD_SELECT.
void switchCommand(int command);

/// Whether the gesture in progress holds objects that an edit from outside would pull away from
/// under it. False in all creation tools.
bool gestureHoldsObjects(CFigContext* ctx);
/// Ends the gesture of its owner at once and frees what it holds. Draws nothing: the rubber band
/// goes with the next redraw. Nothing for null.
void abandonGesture(CFigContext* owner);
/// Notes ctx as gestureContext while a gesture is on, and null otherwise.
void noteGesture(CFigContext* ctx);

// Classes of commands; those without argument ask about cur_command.
bool isObjectDrawingCommand();
bool isDrawingFunction(int command);
bool isSnapObjectsCommand();
bool isSmartLinkCreateAction(int command);
bool useCrossCursor(int command);
bool useAntialiasing(int command);
bool isSnapCursorCommand(bool moving);
/// Whether the procedure cancels a shape under construction.
bool isCancelCreateObjFunction(RightButtonProc proc);
