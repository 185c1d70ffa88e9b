#include "edit/e_move.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_links.h"
#include "edit/e_select.h"
#include "edit/mode.h"
#include "edit/u_reshaping.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "render/gfx_math.h"
#include "render/grid.h"
#include "render/u_bound.h"
#include "render/u_redraw.h"

#include <cstdlib>

namespace {

/// Held by its centre an ellipse is put on the grid with that.
bool isHeldByCentre(CFigContext* ctx)
{
    const FigObject* object = ctx->curObject;
    if (!object || object->type != O_ELLIPSE)
        return false;
    const int reach = round2(2 * (1200.0f / ctx->ppiX) / ctx->zoom);
    return isPointOnEllipseCenter(static_cast<FigEllipse*>(ctx->curObject), fix_x, fix_y, reach);
}

bool isNearer(int press, int edge, int other)
{
    return std::labs(static_cast<long>(press) - edge) < std::labs(static_cast<long>(press) - other);
}

/// The sides of the dragged set that are nearest to the press.
void chooseGrips(CFigContext* ctx)
{
    if (isHeldByCentre(ctx)) {
        horizGrip = vertGrip = ORIENTATION_NONE;
        return;
    }
    int left, top, right, bottom;
    objectlist_bound(ctx, ctx->movedObjects, &left, &top, &right, &bottom, false, false, false);
    horizGrip = isNearer(fix_x, left, right) ? ORIENTATION_LEFT : ORIENTATION_RIGHT;
    vertGrip = isNearer(fix_y, top, bottom) ? ORIENTATION_TOP : ORIENTATION_BOTTOM;
}

FigObjectList* newListOfTagged(CFigContext* ctx)
{
    auto* tagged = new FigObjectList;
    getTaggedObjects(ctx->getWorkingRoot(), tagged);
    return tagged;
}

} // namespace

void dropMovedObjects(CFigContext* ctx)
{
    delete ctx->movedObjects;
    ctx->movedObjects = nullptr;
}

void init_object_dragging(CFigContext* ctx, int, int)
{
    dropMovedObjects(ctx);
    ctx->movedObjects = newListOfTagged(ctx);
    if (ctx->movedObjects->isEmpty()) {
        dropMovedObjects(ctx);
        return select_selected(ctx);
    }
    set_action_on();
    cur_command = CMD_DRAG_OBJECTS;
    applyFunction(ctx->getWorkingRoot(), copyTaggedFlagToIgnoreFlag);
    chooseGrips(ctx);
    canvas_locmove_proc = nullptr;
    canvas_locmove_proc2 = elastic_moveobjects;
    canvas_leftbutUp_proc = translateTaggedOjects;
    canvas_middlebut_proc = cancel_objectdragging;
    start_feedback();
    cloneObjects(ctx->movedObjects, &oldElasticObjectList);
}

void translateTaggedOjects(CFigContext* ctx, int x, int y)
{
    placeTranslateObjects(ctx, ctx->movedObjects, x, y);
    dropMovedObjects(ctx);
    select_selected(ctx);
}

void placeTranslateObjects(CFigContext* ctx, FigObjectList* objects, int x, int y)
{
    canvas_locmove_proc = nullptr;
    canvas_locmove_proc2 = nullptr;
    if (!objects || objects->isEmpty())
        return;
    auto* move = new TranslateAction;
    move->workingList = ctx->getWorkingRoot();
    move->objects = *objects;
    collectWorkingObjects4Translate(move->workingList, objects, &move->workingObjects);
    move->refreshObjects = move->workingObjects;
    move->dx = saturatedDifference(x, fix_x);
    move->dy = saturatedDifference(y, fix_y);
    move->execute(ctx);
    const bool isShown = x == cur_x && y == cur_y;
    if (!isShown && !oldElasticObjectList.isEmpty())
        show_real_objects(ctx, *objects);
    applyFunction(&ctx->drawing.objects, clearIgnoreFlag);
    deleteObjectList(&oldElasticObjectList);
    ctx->undoQueue.addAction(move);
}

void cancel_objectdragging(CFigContext* ctx, int, int, FigObject*)
{
    elastic_moveobjects(ctx, ctx->movedObjects, fix_x, fix_y);
    dropMovedObjects(ctx);
    deleteObjectList(&oldElasticObjectList);
    canvas_locmove_proc2 = nullptr;
    select_selected(ctx);
}

void moveTaggedObjects(CFigContext* ctx, int dx, int dy)
{
    abandonGesture(gestureContext);
    dropMovedObjects(ctx);
    ctx->movedObjects = newListOfTagged(ctx);
    if (ctx->movedObjects->isEmpty())
        return dropMovedObjects(ctx);
    FigObjectList refreshed = *ctx->movedObjects;
    FigObjectList linked;
    collectWorkingObjects4Translate(ctx->getWorkingRoot(), ctx->movedObjects, &linked);
    refreshed += linked;
    refresh_obj_area(ctx, &refreshed, true);
    fix_x = fix_y = 0;
    translateTaggedOjects(ctx, dx, dy);
    refresh_obj_area(ctx, &refreshed, false);
}
