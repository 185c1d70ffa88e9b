#include "edit/u_undo.h"

#include "edit/action_support.h"
#include "edit/actions.h"
#include "edit/e_compound.h"
#include "edit/mode.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/w_layers.h"
#include "render/gfx_math.h"
#include "render/markers.h"
#include "render/u_bound.h"
#include "render/u_redraw.h"

#include <QHash>
#include <QRect>
#include <QSet>

namespace {

using Transaction = QList<ActionItem*>;

/// Disposes and destroys the actions of a transaction from last to first, then its list.
void disposeTransaction(Transaction* transaction, void (ActionItem::*dispose)())
{
    while (!transaction->isEmpty()) {
        ActionItem* action = transaction->takeLast();
        (action->*dispose)();
        delete action;
    }
    delete transaction;
}

// --- many changes as one ---------------------------------------------------------

/// Holds the layer panel and the counting of depths back while many actions run.
class BulkChange {
public:
    explicit BulkChange(CFigContext* document) : ctx(document)
    {
        ++defer_update_layers;
        ++defer_depth_recounts;
    }
    ~BulkChange()
    {
        --defer_depth_recounts;
        --defer_update_layers;
        update_layers(ctx);
    }
    BulkChange(const BulkChange&) = delete;
    BulkChange& operator=(const BulkChange&) = delete;

private:
    CFigContext* ctx;
};

bool worksInCompound(CFigContext* ctx, const Transaction& step)
{
    FigObjectList* top = &ctx->drawing.objects;
    for (const ActionItem* action : step)
        if (action->workingList && action->workingList != top)
            return true;
    return ctx->getWorkingRoot() != top;
}

/// The depth table counts the whole drawing, but lists inside compounds do not keep it themselves.
void recountDepths(CFigContext* ctx, const Transaction& step)
{
    if (worksInCompound(ctx, step))
        countDepthsAnew(ctx);
}

/// Deletions in a row on one list share the search for links.
void executeInOrder(CFigContext* ctx, const Transaction& step)
{
    for (int i = 0; i < step.size();) {
        const int run = executeDeletions(ctx, step, i);
        if (run == 0)
            step.at(i)->execute(ctx);
        i += qMax(run, 1);
    }
}

// --- what changes on the canvas -----------------------------------------------------

FigObjectList allObjects(const Transaction& step)
{
    FigObjectList all;
    for (ActionItem* action : step) {
        all += action->objects;
        if (action->object)
            all.append(action->object);
        all += *action->getRefreshObjects();
    }
    return all;
}

FigObjectList ownObjects(const ActionItem& action)
{
    FigObjectList own = action.objects;
    if (own.isEmpty() && action.object)
        own.append(action.object);
    return own;
}

/// What has to be drawn anew after a step. A compound in which an action worked is drawn at once
/// and stands for the objects in it.
class ChangedArea {
public:
    explicit ChangedArea(CFigContext* document) : ctx(document) {}

    void add(ActionItem* action)
    {
        FigObjectList* others = action->getRefreshObjects();
        if (!others->isEmpty())
            recalculateCompoundBoundsOfParents(ctx, others);
        for (FigObject* object : ownObjects(*action))
            if (!known.contains(object) && !updatedCompound(object, action->workingList))
                append(object);
        for (FigObject* object : *others)
            append(object);
    }

    FigObjectList objects;

private:
    void append(FigObject* object)
    {
        objects.append(object);
        known.insert(object);
    }

    /// Once per list: a second look would find the corners as the first one has left them.
    FigCompound* updatedCompound(FigObject* object, FigObjectList* list)
    {
        const auto found = compounds.constFind(list);
        if (found != compounds.constEnd())
            return found.value();
        FigCompound* compound = checkForUpdateCompoundArea(ctx, object, list);
        compounds.insert(list, compound);
        return compound;
    }

    CFigContext* ctx;
    QSet<FigObject*> known;
    QHash<FigObjectList*, FigCompound*> compounds;
};

// --- before and after a step ----------------------------------------------------------

void clearIgnoreFlags(CFigContext* ctx)
{
    applyFunction(&ctx->drawing.objects, clearIgnoreFlag);
}

void wipeStep(CFigContext* ctx, const Transaction& step)
{
    FigObjectList before = allObjects(step);
    clearIgnoreFlags(ctx);
    refresh_marked_area(ctx, &before, true);
}

void showStep(CFigContext* ctx, const Transaction& step)
{
    clearIgnoreFlags(ctx);
    ChangedArea after(ctx);
    for (ActionItem* action : step)
        after.add(action);
    applyFunction(ctx->getWorkingRoot(), pointmarker_shown ? setMarkedFlag : clearMarkedFlag);
    refresh_marked_area(ctx, &after.objects, false);
}

/// An object that is out of the drawing may be freed any time.
void showCurrentObject(CFigContext* ctx)
{
    if (ctx->curObject && !isInList(&ctx->drawing.objects, ctx->curObject, false))
        ctx->curObject = nullptr;
    shell_show_attributes_bar(ctx, ctx->curObject);
    shell_update_buttons(ctx->chFrm);
}

void resetCurObject(CFigContext* ctx, const ActionItem& action)
{
    if (ctx->curObject == action.object)
        ctx->curObject = nullptr;
}

void undoBackward(CFigContext* ctx, const Transaction& step)
{
    const BulkChange bulk(ctx);
    for (int i = step.size() - 1; i >= 0; --i) {
        ActionItem* action = step.at(i);
        if (action->resetCurObjectOnUndo())
            resetCurObject(ctx, *action);
        action->undo(ctx);
    }
    recountDepths(ctx, step);
}

void executeForward(CFigContext* ctx, const Transaction& step)
{
    const BulkChange bulk(ctx);
    for (ActionItem* action : step)
        if (action->resetCurObjectOnExecute())
            resetCurObject(ctx, *action);
    executeInOrder(ctx, step);
    recountDepths(ctx, step);
}

// --- corners of compounds ----------------------------------------------------------------

QRect cornersOf(const FigCompound* compound)
{
    return QRect(QPoint(compound->nwcorner.x, compound->nwcorner.y),
                 QPoint(compound->secorner.x, compound->secorner.y));
}

FigCompound* updateCompoundArea(CFigContext* ctx, FigCompound* compound)
{
    if (!compound)
        return nullptr;
    QRect area = cornersOf(compound);
    update_compound_corners(ctx, compound);
    area |= cornersOf(compound);
    extendBounds(&area, round2(4.0f * (1200.0f / ctx->ppiX)));
    FigObject* nothing = nullptr;
    refresh_area(ctx, area.left(), area.top(), area.right(), area.bottom(), nothing, false);
    return compound;
}

} // namespace

UndoQueue::UndoQueue(CFigContext* document, int maximum) : owner(document), limit(maximum) {}

UndoQueue::~UndoQueue()
{
    clearUndoList();
    clearRedoList();
}

void UndoQueue::addAction(ActionItem* action)
{
    if (action)
        addActionList(new Transaction{action});
}

void UndoQueue::addActionList(QList<ActionItem*>* transaction)
{
    if (!transaction)
        return;
    undoList.append(transaction);
    if (undoList.size() > limit)
        removeFirstElement();
    owner->setModifiedflag();
    clearRedoList();
    recountDepths(owner, *transaction);
}

void UndoQueue::removeFirstElement()
{
    if (!undoList.isEmpty())
        disposeTransaction(undoList.takeFirst(), &ActionItem::disposeAsUndo);
}

void UndoQueue::clearUndoList()
{
    while (!undoList.isEmpty())
        disposeTransaction(undoList.takeLast(), &ActionItem::disposeAsUndo);
}

void UndoQueue::clearRedoList()
{
    while (!redoList.isEmpty())
        disposeTransaction(redoList.takeLast(), &ActionItem::disposeAsRedo);
}

void UndoQueue::undo()
{
    if (undoList.isEmpty())
        return;
    Transaction* step = undoList.takeLast();
    wipeStep(owner, *step);
    undoBackward(owner, *step);
    owner->setModifiedflag();
    redoList.append(step);
    showStep(owner, *step);
    showCurrentObject(owner);
}

// The limit is not looked at: redo may carry the list past it by what undo took off.
void UndoQueue::redo()
{
    if (redoList.isEmpty())
        return;
    Transaction* step = redoList.takeLast();
    wipeStep(owner, *step);
    executeForward(owner, *step);
    owner->setModifiedflag();
    undoList.append(step);
    showStep(owner, *step);
    showCurrentObject(owner);
}

void executeActions(CFigContext* ctx, QList<ActionItem*>* actions)
{
    if (!actions)
        return;
    const BulkChange bulk(ctx);
    executeInOrder(ctx, *actions);
    recountDepths(ctx, *actions);
}

void getChangedObjects(QList<ActionItem*>* actions, FigCompound* target)
{
    for (const ActionItem* action : qAsConst(*actions))
        if (action->object)
            target->objects->append(action->object);
}

void getChangedObjects(QList<ActionItem*>* actions, QLinkedList<FigObject*>* target)
{
    for (const ActionItem* action : qAsConst(*actions))
        target->append(action->object);
}

void recalculateParentCompound(CFigContext* ctx, FigObject* object)
{
    while (FigCompound* parent = getEnclosingCompound(ctx, &ctx->drawing.objects, object)) {
        update_compound_corners(ctx, parent);
        object = parent;
    }
}

FigCompound* checkForUpdateCompoundArea(CFigContext* ctx, FigObject*, QLinkedList<FigObject*>* list)
{
    if (!list || list == &ctx->drawing.objects)
        return nullptr;
    return updateCompoundArea(ctx, getCompoundByObjectList(&ctx->drawing.objects, list));
}

FigCompound* checkForUpdateCompoundArea(CFigContext* ctx, FigCompound* compound)
{
    return checkForUpdateCompoundArea(ctx, static_cast<FigObject*>(compound));
}

FigCompound* checkForUpdateCompoundArea(CFigContext* ctx, FigObject* object)
{
    return updateCompoundArea(ctx, getEnclosingCompound(ctx, &ctx->drawing.objects, object));
}
