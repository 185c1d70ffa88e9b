#include "edit/e_addpt_tool.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_addpt.h"
#include "edit/e_movept_tool.h"
#include "edit/mode.h"
#include "edit/u_reshaping.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/u_redraw.h"

namespace {

bool isBox(const FigObject* object)
{
    return object->type == O_POLYLINE &&
           (object->sub_type == T_BOX || object->sub_type == T_ARCBOX ||
            object->sub_type == T_PICTURE);
}

/// The two neighbours that the new point will have.
void findNeighbours(FigObject* object, FigPoint* first, int px, int py)
{
    find_endpoints(first, px, py, &left_point, &right_point);
    if (!left_point && isClosed(object)) {
        left_point = right_point;
        right_point = right_point->next;
    }
}

ActionItem* newLinePoint(FigLine* line, int px, int py)
{
    findNeighbours(line, line->points, px, py);
    auto* add = new AddLinePointAction;
    add->afterPoint = left_point;
    add->newPoint = moved_pos = new FigPoint(px, py);
    return add;
}

ActionItem* newSplinePoint(FigSpline* spline, int px, int py)
{
    findNeighbours(spline, spline->points, px, py);
    auto* add = new AddSplinePointAction;
    add->afterPoint = left_point;
    add->nextPoint = right_point;
    add->newPoint = moved_pos = new FigPoint(cur_x, cur_y);
    return add;
}

/// The records go; what they did stays.
void dropPendingActions(CFigContext* ctx)
{
    if (ctx->addPointActions)
        qDeleteAll(*ctx->addPointActions);
    delete ctx->addPointActions;
    ctx->addPointActions = nullptr;
}

} // namespace

void point_adding_selected(CFigContext* ctx)
{
    set_functions(nullptr, nullptr, nullptr, init_add_point, nullptr);
    canvas_leftbutUp_proc = nullptr;
    moved_pos = nullptr;
    return_proc = point_adding_selected;
    reset_action_on();
    if (!ctx)
        return;
    drop_reshaped_object(ctx);
    dropPendingActions(ctx);
    ctx->curObject = nullptr;
}

FigObject* init_add_point(CFigContext* ctx, int x, int y, FigObject*)
{
    fix_x = cur_x = x;
    fix_y = cur_y = y;
    FigObjectList* root = ctx->getWorkingRoot();
    const int tolerance = searchTolerance(ctx);
    int px, py;
    FigObject* found = line_search(ctx, root, x, y, tolerance, &px, &py, nullptr);
    if (!found)
        found = spline_search_like_line(ctx, root, x, y, tolerance, &px, &py, nullptr);
    if (!found)
        return nullptr;
    ctx->curObject = found;
    tagPointAdd_action(ctx, found, found->type, x, y, px, py);
    return found;
}

bool tagPointAdd_action(CFigContext* ctx, FigObject* object, int type, int, int, int px, int py)
{
    if (isBox(object)) {
        put_msg("Adding points to a box is not allowed");
        return false;
    }
    const bool isLine = type == O_POLYLINE;
    ActionItem* add = isLine ? newLinePoint(static_cast<FigLine*>(object), px, py)
                             : newSplinePoint(static_cast<FigSpline*>(object), px, py);
    add->object = object;
    add->workingList = ctx->getWorkingRoot();
    add->execute(ctx);
    dropPendingActions(ctx);
    ctx->addPointActions = new QList<ActionItem*>{add};
    canvas_locmove_proc = isLine ? init_linepointmovingAdd : init_splinepointmovingAdd;
    canvas_leftbutUp_proc = cancel_startPointAddDragging;
    return true;
}

void init_linepointmovingAdd(CFigContext* ctx, int, int)
{
    start_linepointmoving(ctx, {fix_movedlinepointAdd, cancel_point_adding});
}

void init_splinepointmovingAdd(CFigContext* ctx, int, int)
{
    start_splinepointmoving(ctx, {fix_movedsplinepointAdd, cancel_point_adding});
}

void fix_movedlinepointAdd(CFigContext* ctx, int x, int y)
{
    ActionItem* move = new_held_point_move(ctx, x, y);
    if (!move)
        return;
    move->execute(ctx);
    show_moved_point(ctx, move);
    QList<ActionItem*>* transaction = ctx->addPointActions;
    ctx->addPointActions = nullptr;
    if (!transaction)
        transaction = new QList<ActionItem*>;
    transaction->append(move);
    ctx->undoQueue.addActionList(transaction);
    ctx->setModifiedflag();
    end_point_gesture(ctx);
}

void fix_movedsplinepointAdd(CFigContext* ctx, int x, int y)
{
    fix_movedlinepointAdd(ctx, x, y);
}

void cancel_point_adding(CFigContext* ctx, int, int, FigObject*)
{
    if (!ctx->curObject)
        return end_without_object(ctx);
    if (ctx->addPointActions && !ctx->addPointActions->isEmpty()) {
        ActionItem* add = ctx->addPointActions->takeFirst();
        add->undo(ctx);
        add->disposeAsRedo();
        delete add;
    }
    show_point_unmoved(ctx);
    end_point_gesture(ctx);
}

// A click without a move: the point stays in the object, and no undo step exists for it.
void cancel_startPointAddDragging(CFigContext* ctx, int, int)
{
    if (ctx->curObject)
        refresh_obj_area(ctx, ctx->curObject, false);
    point_adding_selected(ctx);
}
