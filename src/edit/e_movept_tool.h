// The gesture that moves a point: a press on it in the select tool, the drag, the release. It has
// no button of its own; cur_command is CMD_MOVE_POINT for its span. One undo step.
#pragma once

#include "edit/command.h"

class ActionItem;

/// Point handler of the select tool. False leaves the press to the search for objects.
bool tagPointMovept_action(CFigContext* ctx, FigObject* object, int type, int x, int y, int px,
                           int py, FigPoint* previous, FigPoint* point, int number);

// The first pointer move after the press.
void init_linepointmoving(CFigContext* ctx, int x, int y);
void init_splinepointmoving(CFigContext* ctx, int x, int y);
void init_arcpointmoving(CFigContext* ctx, int x, int y);
void init_ellipsepointmoving(CFigContext* ctx, int x, int y);

// The release.
void fix_movedlinepoint(CFigContext* ctx, int x, int y);
void fix_movedboxpoint(CFigContext* ctx, int x, int y);
void fix_movedsplinepoint(CFigContext* ctx, int x, int y);
void fix_movedarcpoint(CFigContext* ctx, int x, int y);
void fix_movedellipsepoint(CFigContext* ctx, int x, int y);
/// A release without a move.
void cancel_startPointDragging(CFigContext* ctx, int x, int y);
/// The right button.
void cancel_pointdragging(CFigContext* ctx, int x, int y, FigObject*);

void moveTaggedPoints(CFigContext* ctx, int dx, int dy); ///< does nothing

// --- shared with the tool that adds points --------------------------------------------

struct PointGestureEnds {
    PointerProc release;
    RightButtonProc cancel;
};
/// Start the feedback for moved_pos of the current object, between left_point and what follows it.
void start_linepointmoving(CFigContext* ctx, const PointGestureEnds& ends);
void start_splinepointmoving(CFigContext* ctx, const PointGestureEnds& ends);
/// The move of moved_pos to the release position, or onto an outline there; not executed. The
/// caller owns it. Null, with the gesture at its end, when the object has gone.
ActionItem* new_held_point_move(CFigContext* ctx, int x, int y);
/// Redraws where the last feedback was and where the objects are now; or where they have stayed.
void show_moved_point(CFigContext* ctx, ActionItem* move);
void show_point_unmoved(CFigContext* ctx);
/// Drops the feedback's copies and runs return_proc.
void end_point_gesture(CFigContext* ctx);
