#include "edit/e_update.h"

#include "edit/attribute_table.h"
#include "edit/e_arrow.h"
#include "edit/e_compound.h"
#include "edit/mode.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "model/shell.h"

#include <memory>

namespace {

/// The line width decides the sizes, so this comes after the other changes.
ActionList arrowChangesOf(CFigContext* ctx, const FigObjectList& list, bool useList)
{
    FigObjectList objects;
    collectAttributed(list, &objects);
    ActionList changes;
    for (FigObject* object : qAsConst(objects)) {
        getArrowChangesList(ctx, object, object->forward_arrow, ARROW_FORWARD, &changes, useList);
        getArrowChangesList(ctx, object, object->backward_arrow, ARROW_BACKWARD, &changes, useList);
    }
    return changes;
}

/// One object of each compound in list, at every level.
void collectInCompounds(const FigObjectList& list, FigObjectList* found)
{
    for (FigObject* object : list) {
        if (object->type != O_COMPOUND)
            continue;
        const FigObjectList& members = *static_cast<FigCompound*>(object)->objects;
        if (!members.isEmpty())
            found->append(members.first());
        collectInCompounds(members, found);
    }
}

/// The corners of compounds in list and around it follow the new looks, and the former ones when
/// the step is undone.
void followWithCompounds(CFigContext* ctx, ActionItem* lastAction, const FigObjectList& list)
{
    FigObjectList& inside = lastAction->refreshObjects;
    if (ctx->getWorkingRoot() != &ctx->drawing.objects)
        inside.append(list.first());
    collectInCompounds(list, &inside);
    if (!inside.isEmpty())
        recalculateCompoundBoundsOfParents(ctx, &inside);
}

/// One step for all that differs on the objects of list. Shown is the object or list to redraw.
template <typename Shown>
void updateAsOneStep(CFigContext* ctx, Shown* shown, FigObjectList* list, bool useList)
{
    std::unique_ptr<ActionList> changes(getChangesList(ctx, list, useList));
    const bool erased = !changes->isEmpty();
    if (erased) {
        shell_refresh_obj_area(ctx, shown, true);
        executeActions(ctx, changes.get());
    }
    ActionList arrowChanges = arrowChangesOf(ctx, *list, useList);
    if (!erased && arrowChanges.isEmpty())
        return;
    if (!erased)
        shell_refresh_obj_area(ctx, shown, true);
    executeActions(ctx, &arrowChanges);
    *changes += arrowChanges;
    followWithCompounds(ctx, changes->last(), *list);
    ctx->undoQueue.addActionList(changes.release());
    shell_refresh_obj_area(ctx, shown, false);
}

} // namespace

void update_selected(CFigContext*)
{
    init_searchproc_left(update_object);
    set_functions(nullptr, nullptr, nullptr, object_search_left, nullptr);
    reset_action_on();
}

bool update_object(CFigContext* ctx, FigObject* object, int, int, int, int, int)
{
    if (!object)
        return false;
    update_object_to_current_attrs(ctx, object, true);
    put_msg("Object(s) UPDATED");
    return true;
}

void update_object_to_current_attrs(CFigContext* ctx, FigObject* object, bool fromUpdateTool)
{
    if (!ctx || !object)
        return;
    FigObjectList single{object};
    updateAsOneStep(ctx, object, &single, fromUpdateTool);
}

void update_object_to_current_attrs(CFigContext* ctx, FigObjectList* list, bool fromUpdateTool)
{
    if (ctx && list)
        updateAsOneStep(ctx, list, list, fromUpdateTool);
}
