// Compounds that are made and broken. The members are the real objects in both forms; only the
// shell comes and goes.
#include "edit/action_support.h"
#include "edit/actions.h"
#include "model/FigContext.h"
#include "model/w_layers.h"

namespace {

FigCompound* compoundOf(const ActionItem& action)
{
    return static_cast<FigCompound*>(action.object);
}

bool isOwnList(CFigContext* ctx, const FigObjectList* list)
{
    return list == &ctx->drawing.objects;
}

/// Members into the compound, the compound into the list. The members stay counted once: a list
/// other than the drawing's own counts neither way. A member that vanished meanwhile, being an
/// emptied compound, comes back uncounted.
void gather(CFigContext* ctx, FigObjectList* list, FigCompound* compound)
{
    const int before = list->size();
    removeObjects(list, compound);
    const bool allWereThere = before - list->size() == compound->objects->size();
    claimFromVanished(compound);
    list_add(ctx, list, compound);
    if (isOwnList(ctx, list))
        remove_compound_depth(ctx, compound);
    if (!allWereThere)
        countDepthsAnew(ctx);
}

void scatter(CFigContext* ctx, FigObjectList* list, FigCompound* compound)
{
    closeBeforeLeaving(ctx, compound);
    claimFromVanished(compound);
    addObjects(list, compound);
    const bool wasThere = list_delete(ctx, list, compound) != 0;
    if (isOwnList(ctx, list))
        add_compound_depth(ctx, compound);
    else if (!wasThere)
        countDepthsAnew(ctx);
}

/// The members live on in the list around it.
void deleteShell(ActionItem* action)
{
    FigObjectList* members = compoundOf(*action)->objects;
    while (!members->isEmpty())
        members->removeFirst();
    delete action->object;
    action->object = nullptr;
}

} // namespace

CreateCompoundAction::CreateCompoundAction(FigCompound* created, FigObjectList* list)
{
    object = created;
    workingList = list;
}

bool CreateCompoundAction::execute(CFigContext* ctx)
{
    gather(ctx, workingList, compoundOf(*this));
    return true;
}

bool CreateCompoundAction::undo(CFigContext* ctx)
{
    scatter(ctx, workingList, compoundOf(*this));
    return true;
}

void CreateCompoundAction::disposeAsRedo()
{
    deleteShell(this);
}

BreakCompoundAction::BreakCompoundAction(FigCompound* broken, FigObjectList* list)
{
    object = broken;
    workingList = list;
}

bool BreakCompoundAction::execute(CFigContext* ctx)
{
    scatter(ctx, workingList, compoundOf(*this));
    return true;
}

bool BreakCompoundAction::undo(CFigContext* ctx)
{
    gather(ctx, workingList, compoundOf(*this));
    return true;
}

void BreakCompoundAction::disposeAsUndo()
{
    deleteShell(this);
}
