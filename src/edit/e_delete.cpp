#include "edit/e_delete.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/mode.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "render/u_redraw.h"

void delete_selected(CFigContext*)
{
    init_searchproc_left(init_delete);
    set_functions(nullptr, nullptr, nullptr, object_search_left, nullptr);
    reset_action_on();
}

// This tool queues before it executes, and wipes before both.
bool init_delete(CFigContext* ctx, FigObject* object, int, int, int, int, int)
{
    if (!object)
        return false;
    auto* action = new DeleteAction(object, ctx->getWorkingRoot());
    ctx->undoQueue.addAction(action);
    refresh_obj_area(ctx, object, true);
    action->execute(ctx);
    if (ctx->curObject == object)
        ctx->curObject = nullptr;
    ctx->setModifiedflag();
    return false;
}
