#include "edit/e_copy.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_clipboard.h"
#include "edit/e_move.h"
#include "edit/mode.h"
#include "edit/u_reshaping.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "render/gfx_math.h"
#include "render/u_redraw.h"

void copy_selected(CFigContext*)
{
    init_searchproc_left(init_copy);
    set_functions(nullptr, nullptr, nullptr, object_search_left, nullptr);
    canvas_locmove_proc2 = nullptr;
    reset_action_on();
}

bool init_copy(CFigContext* ctx, FigObject* object, int, int x, int y, int, int)
{
    FigObject* duplicate = object ? copy(ctx, object) : nullptr;
    if (!duplicate)
        return false;
    ctx->curObject = duplicate;
    dropMovedObjects(ctx);
    ctx->movedObjects = new FigObjectList{duplicate};
    set_action_on();
    set_functions(nullptr, nullptr, nullptr, place_copy_object, cancel_copy_object);
    canvas_leftbutUp_proc = nullptr;
    start_feedback();
    canvas_locmove_proc2 = elastic_moveobjects;
    fix_x = cur_x = x;
    fix_y = cur_y = y;
    // The preview finds it there; its depth is not counted yet.
    ctx->getWorkingRoot()->append(duplicate);
    return true;
}

FigObject* place_copy_object(CFigContext* ctx, int x, int y, FigObject*)
{
    if (ctx->movedObjects && !ctx->movedObjects->isEmpty()) {
        FigObject* duplicate = ctx->movedObjects->first();
        removeObjects(ctx->getWorkingRoot(), ctx->movedObjects);
        dropMovedObjects(ctx); // no preview any more: the document has it now
        translate_object(ctx, duplicate, saturatedDifference(x, fix_x),
                         saturatedDifference(y, fix_y));
        auto* add = new AddAction(duplicate, ctx->getWorkingRoot());
        add->execute(ctx);
        ctx->undoQueue.addAction(add);
        refresh_obj_area(ctx, duplicate, false);
    }
    dropMovedObjects(ctx);
    deleteObjectList(&oldElasticObjectList);
    copy_selected(ctx);
    return nullptr;
}

void cancel_copy_object(CFigContext* ctx, int, int, FigObject*)
{
    discardPreviewed(ctx);
    ctx->curObject = nullptr;
    copy_selected(ctx);
}
