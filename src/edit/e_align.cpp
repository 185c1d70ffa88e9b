#include "edit/e_align.h"

#include "edit/actions.h"
#include "edit/e_links.h"
#include "edit/e_select.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/w_layers.h"
#include "render/gfx_math.h"
#include "render/u_bound.h"

namespace {

struct Box {
    int xmin = 0, ymin = 0, xmax = 0, ymax = 0;
};

Box boundsOf(CFigContext* ctx, FigObject* object)
{
    Box box;
    object->getBounds(ctx, &box.xmin, &box.ymin, &box.xmax, &box.ymax, true, true);
    return box;
}

Box referenceBox(CFigContext* ctx)
{
    if (ctx->curObject)
        return boundsOf(ctx, ctx->curObject);
    Box box;
    tagged_objects_bound(ctx, ctx->getWorkingRoot(), &box.xmin, &box.ymin, &box.xmax, &box.ymax);
    return box;
}

/// In whole halves.
int middleOf(int low, int high)
{
    return static_cast<int>((static_cast<long long>(low) + high) / 2);
}

/// Shift of one axis: mode 1 the low edges, 2 the centres, 3 the high edges.
int shiftFor(int mode, int low, int high, int wantedLow, int wantedHigh)
{
    switch (mode) {
    case 1:
        return saturatedDifference(wantedLow, low);
    case 2:
        return saturatedDifference(middleOf(wantedLow, wantedHigh), middleOf(low, high));
    case 3:
        return saturatedDifference(wantedHigh, high);
    default:
        return 0;
    }
}

bool isShown(CFigContext* ctx, FigObject* object)
{
    if (object->type == O_COMPOUND)
        return any_active_in_compound(ctx, static_cast<FigCompound*>(object));
    return ctx->active_layers[qBound(0, object->depth, MAX_DEPTH)];
}

ActionItem* alignAction(CFigContext* ctx, FigObject* object, const Box& wanted)
{
    const Box box = boundsOf(ctx, object);
    auto* action = new TranslateAction;
    action->object = object;
    action->workingList = ctx->getWorkingRoot();
    action->dx = shiftFor(cur_halign, box.xmin, box.xmax, wanted.xmin, wanted.xmax);
    action->dy = shiftFor(cur_valign, box.ymin, box.ymax, wanted.ymin, wanted.ymax);
    return action;
}

QList<ActionItem*>* alignActions(CFigContext* ctx)
{
    const Box wanted = referenceBox(ctx);
    FigObjectList tagged;
    getTaggedObjects(ctx->getWorkingRoot(), &tagged);
    auto* actions = new QList<ActionItem*>;
    for (FigObject* object : qAsConst(tagged))
        if (isShown(ctx, object))
            actions->append(alignAction(ctx, object, wanted));
    return actions;
}

} // namespace

void align_tagged_objects(CFigContext* ctx)
{
    if (!ctx)
        return;
    QList<ActionItem*>* actions = alignActions(ctx);
    if (actions->isEmpty()) {
        delete actions;
        return;
    }
    // Queued before it is executed, unlike almost everywhere else.
    ctx->undoQueue.addActionList(actions);
    FigObjectList changed, followers;
    getChangedObjects(actions, &changed);
    // What is linked to the moved objects follows them, so its old look has to go too.
    collectWorkingObjects4Translate(ctx->getWorkingRoot(), &changed, &followers);
    changed += followers;
    shell_refresh_obj_area(ctx, &changed, true);
    executeActions(ctx, actions);
    shell_refresh_obj_area(ctx, &changed, false);
}
