#include "edit/e_rotate_tool.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_links.h"
#include "edit/e_rotate.h"
#include "edit/mode.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/markers.h"
#include "render/u_redraw.h"

int rotn_dirn = 1;
int act_rotnangle = 0;
int doCopy = 0;
int flip_axis = 1;
int flip_copy = 0;

namespace {

using Transaction = QList<ActionItem*>;

RotateAction* newTurn(CFigContext* ctx, FigObject* object, int cx, int cy)
{
    auto* turn = new RotateAction;
    turn->object = object;
    turn->workingList = ctx->getWorkingRoot();
    turn->cx = cx;
    turn->cy = cy;
    turn->angle = act_rotnangle;
    return turn;
}

FlipAction* newFlip(CFigContext* ctx, FigObject* object, int cx, int cy)
{
    auto* flip = new FlipAction;
    flip->object = object;
    flip->workingList = ctx->getWorkingRoot();
    flip->cx = cx;
    flip->cy = cy;
    flip->direction = flip_axis;
    return flip;
}

void refreshChanged(CFigContext* ctx, ActionItem* action, bool exclude)
{
    FigObjectList changed = *action->getRefreshObjects();
    changed.append(action->object);
    refresh_obj_area(ctx, &changed, exclude);
}

/// The object itself; what is linked to it is redrawn with it.
void changeInPlace(CFigContext* ctx, ActionItem* action)
{
    collectWorkingObjects4MovePoint(action->workingList, action->object, &action->refreshObjects);
    refreshChanged(ctx, action, true);
    action->execute(ctx);
    refreshChanged(ctx, action, false);
    ctx->undoQueue.addAction(action);
    ctx->setModifiedflag();
}

/// A copy that is added and changed in one step.
void changeCopy(CFigContext* ctx, ActionItem* action)
{
    auto* add = new AddAction(action->object, action->workingList);
    add->execute(ctx);
    action->execute(ctx);
    refresh_obj_area(ctx, action->object, false);
    ctx->undoQueue.addActionList(new Transaction{add, action});
    ctx->setModifiedflag();
}

/// False, after a message, for what cannot be turned by that angle. A box becomes a polygon for
/// good, also where only a copy is turned.
bool canTurn(FigObject* object)
{
    if (object->type == O_COMPOUND) {
        if (valid_rot_angle(static_cast<FigCompound*>(object)->objects, act_rotnangle))
            return true;
        put_msg("Invalid rotation angle for this compound object");
        return false;
    }
    return object->type != O_POLYLINE ||
           prepare_line_rotation(static_cast<FigLine*>(object), act_rotnangle);
}

void installHandlers(ObjectHandler left, ObjectHandler right)
{
    init_searchproc_left(left);
    init_searchproc_middle(right);
    set_functions(nullptr, nullptr, nullptr, object_search_left, object_search_middle);
    reset_action_on();
}

} // namespace

// --- rotation ---------------------------------------------------------------------------

void rotate_cw_selected(CFigContext* ctx)
{
    rotn_dirn = 1;
    rotate_selected(ctx);
}

void rotate_ccw_selected(CFigContext* ctx)
{
    rotn_dirn = -1;
    rotate_selected(ctx);
}

void rotate_selected(CFigContext*)
{
    installHandlers(init_rotate, init_copynrotate);
}

bool init_rotate(CFigContext* ctx, FigObject* object, int, int x, int y, int, int)
{
    if (shift_down) {
        set_unset_center(ctx, x, y);
        return false;
    }
    if (!object)
        return false;
    doCopy = 0;
    act_rotnangle = rotn_dirn * cur_rotnangle;
    rotate_search(ctx, object, setcenter ? setcenter_x : x, setcenter ? setcenter_y : y);
    return true;
}

bool init_copynrotate(CFigContext* ctx, FigObject* object, int, int, int, int px, int py)
{
    if (!object)
        return false;
    doCopy = 1;
    act_rotnangle = rotn_dirn * cur_rotnangle;
    for (int i = 0; i < cur_numcopies; ++i) {
        rotate_search(ctx, object, setcenter ? setcenter_x : px, setcenter ? setcenter_y : py);
        act_rotnangle += rotn_dirn * cur_rotnangle;
    }
    return true;
}

void rotate_search(CFigContext* ctx, FigObject* object, int cx, int cy)
{
    if (!canTurn(object))
        return;
    if (!doCopy)
        changeInPlace(ctx, newTurn(ctx, object, cx, cy));
    else if (FigObject* duplicate = copy(ctx, object))
        changeCopy(ctx, newTurn(ctx, duplicate, cx, cy));
}

// --- mirroring --------------------------------------------------------------------------

void flip_ud_selected(CFigContext* ctx)
{
    flip_axis = 1;
    flip_selected(ctx);
}

void flip_lr_selected(CFigContext* ctx)
{
    flip_axis = 2;
    flip_selected(ctx);
}

void flip_selected(CFigContext*)
{
    installHandlers(init_flip, init_copynflip);
}

bool init_flip(CFigContext* ctx, FigObject* object, int, int x, int y, int px, int py)
{
    if (shift_down) {
        set_unset_center(ctx, x, y);
        return false;
    }
    if (!object)
        return false;
    flip_copy = 0;
    flip_search(ctx, object, setcenter ? setcenter_x : px, setcenter ? setcenter_y : py);
    return true;
}

bool init_copynflip(CFigContext* ctx, FigObject* object, int, int, int, int px, int py)
{
    if (!object)
        return false;
    flip_copy = 1;
    flip_search(ctx, object, setcenter ? setcenter_x : px, setcenter ? setcenter_y : py);
    return true;
}

// A single text cannot be mirrored: nothing happens.
void flip_search(CFigContext* ctx, FigObject* object, int cx, int cy)
{
    if (object->type == O_TEXT)
        return;
    if (!flip_copy)
        changeInPlace(ctx, newFlip(ctx, object, cx, cy));
    else if (FigObject* duplicate = copy(ctx, object))
        changeCopy(ctx, newFlip(ctx, duplicate, cx, cy));
}

// --- the centre -------------------------------------------------------------------------

void set_unset_center(CFigContext* ctx, int x, int y)
{
    if (setcenter) {
        setcenter = 0;
        refresh_center_marker(ctx, setcenter_x, setcenter_y);
        return;
    }
    setcenter = 1;
    setcenter_x = x;
    setcenter_y = y;
    center_marker(ctx, x, y);
}
