#include "edit/e_compound.h"

#include "edit/actions.h"
#include "edit/mode.h"
#include "model/FigContext.h"
#include "model/objectwalk.h"
#include "model/shell.h"
#include "model/w_layers.h"
#include "render/markers.h"

#include <algorithm>
#include <memory>

using objectwalk::asCompound;

namespace {

FigObjectList* topList(CFigContext* ctx)
{
    return &ctx->drawing.objects;
}

// --- corners -----------------------------------------------------------------------

struct Corners {
    int xmin = 0, ymin = 0, xmax = 0, ymax = 0;

    void include(const Corners& other)
    {
        xmin = std::min(xmin, other.xmin);
        ymin = std::min(ymin, other.ymin);
        xmax = std::max(xmax, other.xmax);
        ymax = std::max(ymax, other.ymax);
    }
};

using CompoundSet = QSet<FigCompound*>;

/// The exact box of a member. That of a compound of the set stands in its corners already.
Corners memberBox(CFigContext* ctx, FigObject* member, const CompoundSet& upToDate)
{
    const FigCompound* compound = asCompound(member);
    if (compound && upToDate.contains(const_cast<FigCompound*>(compound)))
        return {compound->nwcorner.x, compound->nwcorner.y, compound->secorner.x,
                compound->secorner.y};
    Corners box;
    member->getBounds(ctx, &box.xmin, &box.ymin, &box.xmax, &box.ymax, true, true);
    return box;
}

/// What the compound's own getBounds gives, but no object is measured once more for each compound
/// around it.
void recalculateCorners(CFigContext* ctx, FigCompound* compound, const CompoundSet& upToDate)
{
    Corners box;
    bool isFirst = true;
    for (FigObject* member : qAsConst(*compound->objects)) {
        const Corners next = memberBox(ctx, member, upToDate);
        if (isFirst)
            box = next;
        else
            box.include(next);
        isFirst = false;
    }
    compound->nwcorner.x = box.xmin;
    compound->nwcorner.y = box.ymin;
    compound->secorner.x = box.xmax;
    compound->secorner.y = box.ymax;
}

/// Inner compounds first. `left` counts those that are still to be met; the walk ends with it.
void recalculateWanted(CFigContext* ctx, const FigObjectList& list, const CompoundSet& wanted,
                       int* left)
{
    for (FigObject* object : list) {
        FigCompound* compound = asCompound(object);
        if (!compound)
            continue;
        if (*left == 0)
            return;
        const bool isWanted = wanted.contains(compound);
        *left -= isWanted;
        recalculateWanted(ctx, *compound->objects, wanted, left);
        if (isWanted)
            recalculateCorners(ctx, compound, wanted);
    }
}

// --- parents -------------------------------------------------------------------------

/// Which compound holds what, for all compounds of a drawing and for the objects asked about.
class Parents {
public:
    Parents(const FigObjectList& top, const FigObjectList& objects)
    {
        for (FigObject* object : objects)
            wanted.insert(object);
        for (FigObject* object : top)
            if (FigCompound* compound = asCompound(object))
                collect(compound);
    }

    FigCompound* of(FigObject* object) const { return parents.value(object, nullptr); }

private:
    void collect(FigCompound* compound)
    {
        for (FigObject* member : qAsConst(*compound->objects)) {
            FigCompound* inner = asCompound(member);
            if (inner || wanted.contains(member))
                note(member, compound);
            if (inner)
                collect(inner);
        }
    }

    /// An object that stands in two compounds belongs to the first.
    void note(FigObject* member, FigCompound* compound)
    {
        if (!parents.contains(member))
            parents.insert(member, compound);
    }

    QSet<FigObject*> wanted;
    QHash<FigObject*, FigCompound*> parents;
};

// --- closing ----------------------------------------------------------------------------

/// Actions may still work in the list of a compound that is gone, so the document keeps it.
void vanish(CFigContext* ctx, FigCompound* compound, FigCompound* parent)
{
    list_delete(ctx, parent ? parent->objects : topList(ctx), compound);
    ctx->keepVanished(compound);
    ctx->curObject = nullptr;
}

void makeCurrent(CFigContext* ctx, FigCompound* compound, int marked)
{
    ctx->curObject = compound;
    compound->tagged = true;
    compound->marked = marked;
}

bool isOpenWithin(CFigContext* ctx, FigCompound* compound)
{
    FigObjectList* open = ctx->openCompoundObjects;
    return open && (open == compound->objects || getCompoundByObjectList(compound->objects, open));
}

// --- making and breaking ------------------------------------------------------------------

/// Null when nothing is tagged; an id is used up all the same.
std::unique_ptr<FigCompound> compoundOfTagged(CFigContext* ctx)
{
    auto compound = std::make_unique<FigCompound>();
    compound->id = ctx->getNextId();
    get_tagged_objects(ctx->getWorkingRoot(), compound->objects);
    if (compound->isEmpty())
        return nullptr;
    return compound;
}

void queueCreation(CFigContext* ctx, FigCompound* compound)
{
    auto* action = new CreateCompoundAction(compound, ctx->getWorkingRoot());
    action->execute(ctx);
    ctx->undoQueue.addAction(action);
}

void breakOne(CFigContext* ctx, FigCompound* compound, QList<ActionItem*>* transaction)
{
    auto* action = new BreakCompoundAction(compound, ctx->getWorkingRoot());
    action->execute(ctx);
    transaction->append(action);
    if (ctx->curObject == compound)
        ctx->curObject = nullptr;
}

/// The members show the markers that the compound has shown.
void markMembers(FigCompound* compound)
{
    for (FigObject* member : qAsConst(*compound->objects))
        if (member->marked == 0)
            member->marked = member->tagged ? 2 : 1;
}

void showSelection(CFigContext* ctx)
{
    shell_show_attributes_bar(ctx, ctx->curObject);
    shell_update_buttons(ctx->chFrm);
}

} // namespace

bool isCompoundOpen(CFigContext* ctx)
{
    return ctx && ctx->openCompoundObjects;
}

void open_compound(CFigContext* ctx, FigCompound* compound)
{
    if (!ctx || !compound)
        return;
    ctx->curObject = nullptr;
    compound->parent = getCompoundByObjectList(topList(ctx), ctx->getWorkingRoot());
    ctx->openCompoundObjects = compound->objects;
    compound->tagged = false;
    compound->marked = 0;
    set_tags(compound->objects, false);
    show_pointmarker(ctx);
    shell_redisplay_canvas(ctx->chFrm);
}

bool init_open_compound(CFigContext* ctx, FigObject* object, int type, int, int, int, int)
{
    if (!object || type != O_COMPOUND)
        return false;
    ctx->openCompoundObjects = static_cast<FigCompound*>(object)->objects;
    show_pointmarker(ctx);
    shell_redisplay_canvas(ctx->chFrm);
    return true;
}

void close_compound(CFigContext* ctx, bool redraw)
{
    if (!isCompoundOpen(ctx))
        return;
    set_tags(ctx->openCompoundObjects, false);
    FigCompound* compound = getCompoundByObjectList(topList(ctx), ctx->openCompoundObjects);
    if (!compound) {
        // The list is of no compound in the drawing: it stays the working root.
        ctx->curObject = nullptr;
        return;
    }
    makeCurrent(ctx, compound, 1);
    FigCompound* parent = getEnclosingCompound(ctx, topList(ctx), compound);
    compound->parent = nullptr;
    if (compound->isEmpty())
        vanish(ctx, compound, parent);
    else
        update_compound_corners(ctx, compound);
    ctx->openCompoundObjects = parent ? parent->objects : nullptr;
    if (redraw)
        shell_redisplay_canvas(ctx->chFrm);
}

void close_all_compounds(CFigContext*, bool) {}

void create_compoundobject(CFigContext* ctx)
{
    if (!ctx)
        return;
    std::unique_ptr<FigCompound> made = compoundOfTagged(ctx);
    if (!made) {
        put_msg("Empty compound, ignored");
        return;
    }
    FigCompound* compound = made.release();
    set_tags(ctx->getWorkingRoot(), false);
    update_compound_corners(ctx, compound);
    draw_compoundbox(ctx, compound, 1);
    queueCreation(ctx, compound);
    makeCurrent(ctx, compound, 2);
    shell_refresh_obj_area(ctx, compound, false);
    showSelection(ctx);
}

void break_compoundobject(CFigContext* ctx)
{
    if (!ctx)
        return;
    FigObjectList tagged, compounds;
    get_tagged_objects(ctx->getWorkingRoot(), &tagged);
    getObjectsByType(&tagged, O_COMPOUND, compounds);
    if (compounds.isEmpty())
        return;
    auto* transaction = new QList<ActionItem*>;
    for (FigObject* object : qAsConst(compounds)) {
        breakOne(ctx, static_cast<FigCompound*>(object), transaction);
        if (pointmarker_shown)
            markMembers(static_cast<FigCompound*>(object));
    }
    ctx->undoQueue.addActionList(transaction);
    shell_refresh_obj_area(ctx, &compounds, false);
    showSelection(ctx);
}

// --- asking ------------------------------------------------------------------------------

void get_tagged_objects(FigObjectList* list, FigObjectList* result)
{
    if (!list)
        return;
    std::copy_if(list->cbegin(), list->cend(), std::back_inserter(*result),
                 [](const FigObject* object) { return object->tagged; });
}

FigCompound* getEnclosingCompound(FigCompound* top, FigObject* object)
{
    if (!top)
        return nullptr;
    FigObjectList list{top};
    return getParentCompound(&list, object);
}

FigCompound* getEnclosingCompound(CFigContext*, FigObjectList* list, FigObject* object)
{
    return getParentCompound(list, object);
}

FigCompound* getEnclosingCompound(CFigContext*, FigObjectList* list, FigObjectList* members)
{
    return getCompoundByObjectList(list, members);
}

bool isAllMembersOnHiddenLayer(CFigContext* ctx, FigCompound* compound)
{
    return !compound || !any_active_in_compound(ctx, compound);
}

// --- corners -----------------------------------------------------------------------------

void recalculateCompoundBounds(CFigContext* ctx, FigObjectList* list)
{
    if (!list)
        return;
    for (FigObject* object : qAsConst(*list))
        if (FigCompound* compound = asCompound(object))
            update_compound_corners(ctx, compound);
}

void recalculateCompoundBounds(CFigContext* ctx, FigObjectList* list, QSet<FigCompound*>* parents)
{
    if (!list || !parents)
        return;
    int left = parents->size();
    recalculateWanted(ctx, *list, *parents, &left);
}

void collectParentCompounds(CFigContext* ctx, FigObjectList* objects, QList<FigCompound*>* result)
{
    if (!objects || objects->isEmpty())
        return;
    const Parents parents(*topList(ctx), *objects);
    QSet<FigCompound*> known(result->cbegin(), result->cend());
    QSet<FigCompound*> walked;
    for (FigObject* object : qAsConst(*objects)) {
        FigCompound* compound = parents.of(object);
        // From a compound that has been walked the way up is known.
        for (; compound && !walked.contains(compound); compound = parents.of(compound)) {
            walked.insert(compound);
            if (!known.contains(compound))
                result->append(compound);
        }
    }
}

void recalculateCompoundBoundsOfParents(CFigContext* ctx, FigObjectList* objects)
{
    QList<FigCompound*> around;
    collectParentCompounds(ctx, objects, &around);
    if (around.isEmpty())
        return;
    QSet<FigCompound*> parents(around.cbegin(), around.cend());
    recalculateCompoundBounds(ctx, topList(ctx), &parents);
}

void closeCompoundsIn(CFigContext* ctx, FigCompound* compound)
{
    while (isOpenWithin(ctx, compound)) {
        const FigObjectList* before = ctx->openCompoundObjects;
        close_compound(ctx, false);
        // A compound that is in no drawing cannot be closed level by level.
        if (ctx->openCompoundObjects == before)
            ctx->openCompoundObjects = nullptr;
    }
}
