#include "edit/e_deletept_tool.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_links.h"
#include "edit/mode.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/u_list.h"
#include "render/gfx_math.h"
#include "render/u_redraw.h"

namespace {

using Transaction = QList<ActionItem*>;

FigObject* const nothingExcluded = nullptr;
constexpr int leastPointsClosedSpline = 3;
constexpr int leastPointsOpenSpline = 2;

/// Posts why a point of the line has to stay. False when it may go.
bool refuses(FigLine* line)
{
    if (line->sub_type == T_BOX || line->sub_type == T_ARCBOX || line->sub_type == T_PICTURE)
        put_msg("Deleting box corners is not allowed");
    else if (line->sub_type == T_POLYGON && line->getNumPoints() < 5)
        put_msg("A polygon cannot have less than 3 points");
    else if (line->getNumPoints() < 2)
        put_msg("A dot must have at least 1 point");
    else
        return false;
    return true;
}

bool refuses(FigSpline* spline)
{
    const bool closed = isClosed(spline);
    const int least = closed ? leastPointsClosedSpline : leastPointsOpenSpline;
    if (spline->getNumPoints() > least)
        return false;
    put_msg(closed ? "A closed spline cannot have less than %d points"
                   : "A spline cannot have less than %d points",
            least);
    return true;
}

/// The point before this one; for the first of a closed chain the last real one.
FigPoint* neighbourBefore(FigLine* line, FigPoint* previous)
{
    return previous ? previous : prev_point(line->points, last_point(line->points));
}

/// The point that goes is first put between its neighbours, so that what is linked to its two
/// segments comes to lie on the one that stays.
MoveLinePointAction* newMoveToMiddle(CFigContext* ctx, FigLine* line, FigPoint* previous,
                                     FigPoint* point)
{
    const FigPoint* before = neighbourBefore(line, previous);
    const FigPoint* after = point->next ? point->next : line->points->next;
    if (!before || !after)
        return nullptr;
    int x, y;
    getPointByFactor(before->x, before->y, after->x, after->y, 0.5, &x, &y);
    auto* move = new MoveLinePointAction;
    move->object = line;
    move->workingList = ctx->getWorkingRoot();
    move->point = point;
    move->dx = saturatedDifference(x, point->x);
    move->dy = saturatedDifference(y, point->y);
    return move;
}

void executeInto(Transaction* transaction, CFigContext* ctx, ActionItem* action)
{
    action->execute(ctx);
    transaction->append(action);
}

} // namespace

void delete_point_selected(CFigContext*)
{
    initPoint_searchproc_left(init_delete_point);
    set_functions(nullptr, nullptr, nullptr, point_search_left, nullptr);
    reset_action_on();
}

bool init_delete_point(CFigContext* ctx, FigObject* object, int type, int, int, int, int,
                       FigPoint* previous, FigPoint* point, int)
{
    if (!object)
        return false;
    ctx->curObject = object;
    if (type == O_POLYLINE && !refuses(static_cast<FigLine*>(object)))
        linepoint_deleting(ctx, static_cast<FigLine*>(object), previous, point);
    else if (type == O_SPLINE && !refuses(static_cast<FigSpline*>(object)))
        splinepoint_deleting(ctx, static_cast<FigSpline*>(object), previous, point);
    return true;
}

void splinepoint_deleting(CFigContext* ctx, FigSpline* spline, FigPoint* previous, FigPoint* point)
{
    auto* action = new DeleteSplinePointAction;
    action->object = spline;
    action->workingList = ctx->getWorkingRoot();
    action->afterPoint = previous;
    action->point = point;
    refresh_obj_area(ctx, spline, true);
    action->execute(ctx);
    refresh_obj_area(ctx, spline, false);
    ctx->undoQueue.addAction(action);
    ctx->setModifiedflag();
}

void linepoint_deleting(CFigContext* ctx, FigLine* line, FigPoint* previous, FigPoint* point)
{
    if (line->getNumPoints() == 2 && (line->forward_arrow || line->backward_arrow)) {
        put_msg("Delete the arrows first!");
        return;
    }
    FigObjectList changed;
    collectWorkingObjects4MovePoint(ctx->getWorkingRoot(), line, &changed);
    changed.append(line);
    FigObjectList former;
    cloneObjects(&changed, &former);

    auto* transaction = new Transaction;
    if (line->sub_type != T_POLYLINE)
        if (ActionItem* move = newMoveToMiddle(ctx, line, previous, point))
            executeInto(transaction, ctx, move);
    auto* removal = new DeleteLinePointAction;
    removal->object = line;
    removal->workingList = ctx->getWorkingRoot();
    removal->afterPoint = previous;
    removal->point = point;
    executeInto(transaction, ctx, removal);
    ctx->undoQueue.addActionList(transaction);
    refresh_obj_area(ctx, &changed, &former, nothingExcluded);
    deleteObjectList(&former);
    ctx->setModifiedflag();
}
