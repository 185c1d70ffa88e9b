#include "edit/action_support.h"

#include "edit/e_compound.h"
#include "edit/e_library.h"
#include "edit/preview.h"
#include "model/FigContext.h"
#include "model/u_list.h"
#include "model/w_layers.h"

int defer_depth_recounts = 0;

namespace {

using CountObject = void (*)(CFigContext*, int type, int depth);
using CountCompound = void (*)(CFigContext*, FigCompound*);

void count(CFigContext* ctx, FigObject* object, CountObject one, CountCompound all)
{
    if (object->type == O_COMPOUND)
        all(ctx, static_cast<FigCompound*>(object));
    else
        one(ctx, object->type, object->depth);
}

bool isOwnList(CFigContext* ctx, const FigObjectList* list)
{
    return list == &ctx->drawing.objects;
}

/// Lists other than the drawing's own are not counted by those who change them. That of the open
/// compound is known to be in the drawing; for any other one only a count of everything tells.
void countNested(CFigContext* ctx, FigObjectList* list, FigObject* object, CountObject one,
                 CountCompound all)
{
    if (defer_depth_recounts != 0)
        return;
    if (list == ctx->openCompoundObjects)
        count(ctx, object, one, all);
    else
        countDepthsAnew(ctx);
}

} // namespace

void countDepthsAnew(CFigContext* ctx)
{
    {
        const PreviewAside aside(ctx);
        set_depths(ctx);
    }
    if (curLibDrawing && ctx->movedObjects)
        add_depth(ctx, ctx->movedObjects);
}

void enterList(CFigContext* ctx, FigObjectList* list, FigObject* object)
{
    if (!list || !object)
        return;
    claimFromVanished(object);
    list_add(ctx, list, object);
    if (!isOwnList(ctx, list))
        countNested(ctx, list, object, add_depth, add_compound_depth);
}

bool leaveList(CFigContext* ctx, FigObjectList* list, FigObject* object)
{
    if (!list || !object)
        return false;
    claimFromVanished(object);
    if (!list->isEmpty() && list->last() == object)
        list->removeLast();
    else if (!list->removeOne(object))
        return false;
    countLeft(ctx, list, object);
    return true;
}

void countLeft(CFigContext* ctx, FigObjectList* list, FigObject* object)
{
    if (isOwnList(ctx, list))
        count(ctx, object, remove_depth, remove_compound_depth);
    else
        countNested(ctx, list, object, remove_depth, remove_compound_depth);
}

void closeBeforeLeaving(CFigContext* ctx, FigObject* object)
{
    if (!object || object->type != O_COMPOUND || !ctx->openCompoundObjects)
        return;
    const FigObjectList* before = ctx->getWorkingRoot();
    closeCompoundsIn(ctx, static_cast<FigCompound*>(object));
    if (ctx->getWorkingRoot() == before)
        return;
    // Closing selects the compound, which nobody asked for here.
    object->tagged = false;
    ctx->curObject = nullptr;
}

void claimFromVanished(FigObject* object)
{
    if (object->type != O_COMPOUND)
        return;
    auto* compound = static_cast<FigCompound*>(object);
    if (compound->vanishedIn)
        compound->vanishedIn->removeOne(compound);
    compound->vanishedIn = nullptr;
}

void deleteLoosePoint(FigPoint* point)
{
    if (!point)
        return;
    point->next = nullptr;
    free_points(point);
}
