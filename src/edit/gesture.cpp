// The gesture in progress as something that a window can ask about and put an end to.
#include "edit/command.h"
#include "edit/d_arc.h"
#include "edit/d_box.h"
#include "edit/d_create.h"
#include "edit/d_ellipse.h"
#include "edit/d_line.h"
#include "edit/d_picobj.h"
#include "edit/d_regpoly.h"
#include "edit/d_spline.h"
#include "edit/e_clipboard.h"
#include "edit/e_library.h"
#include "edit/e_move.h"
#include "edit/mode.h"
#include "edit/preview.h"
#include "edit/u_reshaping.h"
#include "model/FigContext.h"
#include "model/shell.h"

#include <algorithm>
#include <iterator>

namespace {

const RightButtonProc cancelProcedures[] = {
    cancel_circlebyrad,  cancel_circlebydia,    cancel_ellipsebyrad, cancel_ellipsebydia,
    cancel_line_drawing, cancel_spline_drawing, cancel_box_drawing,  cancel_arc_drawing,
    cancel_picobj,       cancel_regpoly,
};

bool isGestureOn(CFigContext* ctx)
{
    return action_on || gestureHoldsObjects(ctx);
}

void deletePreviewCopies(CFigContext* owner)
{
    if (!owner->movedObjects)
        return;
    if (owner->movedObjects->contains(owner->curObject))
        owner->curObject = nullptr;
    removeObjects(owner->getWorkingRoot(), owner->movedObjects);
    deleteObjectList(owner->movedObjects);
    removePreviewColors(owner);
    shell_update_colors(owner);
}

/// The records alone: a point that was added is in the figure.
void dropAddedPoints(CFigContext* owner)
{
    if (owner->addPointActions)
        qDeleteAll(*owner->addPointActions);
    delete owner->addPointActions;
    owner->addPointActions = nullptr;
}

void dropReshapedObject(CFigContext* owner)
{
    delete owner->reshapedObject;
    owner->reshapedObject = nullptr;
}

void forgetGesture()
{
    moved_pos = nullptr;
    left_point = nullptr;
    right_point = nullptr;
    canvas_leftbutUp_proc = nullptr;
    canvas_locmove_proc2 = nullptr;
    canvas_middlebut_save = nullptr;
    reset_action_on();
    gestureContext = nullptr;
}

} // namespace

bool isCancelCreateObjFunction(RightButtonProc proc)
{
    return std::find(std::begin(cancelProcedures), std::end(cancelProcedures), proc) !=
           std::end(cancelProcedures);
}

bool gestureHoldsObjects(CFigContext* ctx)
{
    return canvas_leftbutUp_proc || (ctx && ctx->movedObjects);
}

void abandonGesture(CFigContext* owner)
{
    if (!owner)
        return;
    freeChain(owner);
    if (movesPreviewCopies())
        deletePreviewCopies(owner);
    if (curLibDrawing)
        discard_library_objects(owner);
    dropMovedObjects(owner);
    dropReshapedObject(owner);
    dropAddedPoints(owner);
    start_feedback();
    forgetGesture();
}

void noteGesture(CFigContext* ctx)
{
    // The first that was served stays the owner, whatever document the pointer passes over.
    if (!isGestureOn(gestureContext ? gestureContext : ctx))
        gestureContext = nullptr;
    else if (!gestureContext)
        gestureContext = ctx;
}
