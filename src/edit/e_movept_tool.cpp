#include "edit/e_movept_tool.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_links.h"
#include "edit/e_select.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"
#include "edit/u_reshaping.h"
#include "model/FigContext.h"
#include "model/objectwalk.h"
#include "model/shell.h"
#include "model/u_list.h"
#include "render/gfx_math.h"
#include "render/u_redraw.h"

namespace {

FigObject* const nothingExcluded = nullptr;

bool isOwnPoint(FigObject* object, const FigPoint* point)
{
    if (!object || !point)
        return false;
    if (FigPath* path = objectwalk::asPath(object))
        return path->getIndex(const_cast<FigPoint*>(point)) >= 0;
    if (object->type == O_ARC) {
        const FigPoint* first = static_cast<FigArc*>(object)->point;
        return point >= first && point < first + 3;
    }
    const auto* ellipse = static_cast<FigEllipse*>(object);
    return object->type == O_ELLIPSE && (point == &ellipse->start || point == &ellipse->end);
}

/// False, with the gesture at its end, when the object has gone in the meantime.
bool holdsItsPoint(CFigContext* ctx)
{
    if (isOwnPoint(ctx->curObject, moved_pos))
        return true;
    end_without_object(ctx);
    return false;
}

void startMoving(CFigContext* ctx, PointerProc move, const PointGestureEnds& ends)
{
    set_action_on();
    set_functions(nullptr, nullptr, move, nullptr, ends.cancel);
    canvas_leftbutUp_proc = ends.release;
    start_feedback();
    oldElasticObjectList.append(ctx->curObject->clone());
}

/// The constraint modes bend the segment at an end of an open chain; null for none.
PointerProc constrainedMove()
{
    if (latexline_mode || latexarrow_mode)
        return latex_line;
    return manhattan_mode || mountain_mode ? constrainedangle_line : nullptr;
}

/// A rubber line from the neighbour shows where the end goes.
void startConstrainedMove(CFigContext* ctx, PointerProc move, const PointGestureEnds& ends)
{
    const FigPoint* neighbour = left_point ? left_point : right_point;
    startMoving(ctx, move, ends);
    fix_x = neighbour->x;
    fix_y = neighbour->y;
    cur_x = moved_pos->x;
    cur_y = moved_pos->y;
    elastic_line(ctx, fix_x, fix_y, cur_x, cur_y);
    elastic_proc = elastic_line;
}

void startOpenMove(CFigContext* ctx, PointerProc free, const PointGestureEnds& ends)
{
    const bool isEnd = !left_point != !right_point;
    PointerProc constrained = isEnd ? constrainedMove() : nullptr;
    if (constrained)
        startConstrainedMove(ctx, constrained, ends);
    else
        startMoving(ctx, free, ends);
}

/// The rubber line of a constrained move goes; the end is where it was.
void endConstrainedMove(CFigContext* ctx, int* x, int* y)
{
    if (elastic_proc != elastic_line)
        return;
    canvas_locmove_proc(ctx, *x, *y);
    *x = cur_x;
    *y = cur_y;
    elastic_line(ctx, fix_x, fix_y, cur_x, cur_y);
}

template <typename MoveAction> MoveAction* newPointMove(CFigContext* ctx, int dx, int dy)
{
    auto* move = new MoveAction;
    move->object = ctx->curObject;
    move->workingList = ctx->getWorkingRoot();
    move->dx = dx;
    move->dy = dy;
    collectWorkingObjects4MovePoint(move->workingList, move->object, &move->refreshObjects);
    return move;
}

/// Takes ownership of the move; one that fails changes nothing and leaves no step.
void finishMove(CFigContext* ctx, ActionItem* move)
{
    const bool done = move->execute(ctx);
    show_moved_point(ctx, move);
    if (done) {
        ctx->undoQueue.addAction(move);
        ctx->setModifiedflag();
    } else {
        delete move;
    }
    end_point_gesture(ctx);
}

template <typename MoveAction> ActionItem* newPathMove(CFigContext* ctx, int x, int y)
{
    auto* move = newPointMove<MoveAction>(ctx, saturatedDifference(x, moved_pos->x),
                                          saturatedDifference(y, moved_pos->y));
    move->point = moved_pos;
    move->connect = 1;
    return move;
}

bool takePoint(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py,
               PointerProc firstMove)
{
    tag_action(ctx, object, type, x, y, px, py);
    ctx->curObject = object;
    cur_command = CMD_MOVE_POINT;
    canvas_locmove_proc = firstMove;
    canvas_leftbutUp_proc = cancel_startPointDragging;
    return true;
}

bool isCentre(const FigEllipse* ellipse, int x, int y)
{
    return ellipse->center.x == x && ellipse->center.y == y;
}

bool isByRadius(const FigObject* ellipse)
{
    return ellipse->sub_type == 1 || ellipse->sub_type == 3;
}

/// Of an ellipse by radius the first point is refused when the move starts.
FigPoint* ellipsePoint(FigEllipse* ellipse, int number)
{
    if (number != 0)
        return &ellipse->end;
    return isByRadius(ellipse) ? moved_pos : &ellipse->start;
}

} // namespace

void show_moved_point(CFigContext* ctx, ActionItem* move)
{
    FigObjectList now = move->refreshObjects;
    now.append(move->object);
    if (ctx->reshapedObject)
        oldElasticObjectList.append(ctx->reshapedObject->clone());
    refresh_obj_area(ctx, &now, &oldElasticObjectList, nothingExcluded);
}

void end_point_gesture(CFigContext* ctx)
{
    deleteObjectList(&oldElasticObjectList);
    drop_reshaped_object(ctx);
    reset_action_on();
    if (return_proc)
        return_proc(ctx);
}

bool tagPointMovept_action(CFigContext* ctx, FigObject* object, int type, int x, int y, int px,
                           int py, FigPoint* previous, FigPoint* point, int number)
{
    if (!object || type == O_COMPOUND || isAnotherObjectTagged(ctx->getWorkingRoot(), object))
        return false;
    // Shift takes the object out of the selection: that is a matter of objects.
    if (shift_down && object->tagged)
        return false;
    movedpoint_num = number;
    switch (type) {
    case O_POLYLINE:
    case O_SPLINE:
        if (type == O_POLYLINE && objectwalk::asPath(object)->getNumPoints() < 2)
            return false;
        left_point = previous;
        moved_pos = point;
        return takePoint(ctx, object, type, x, y, px, py,
                         type == O_POLYLINE ? init_linepointmoving : init_splinepointmoving);
    case O_ELLIPSE:
        if (isCentre(static_cast<FigEllipse*>(object), px, py))
            return false;
        moved_pos = ellipsePoint(static_cast<FigEllipse*>(object), number);
        return takePoint(ctx, object, type, x, y, px, py, init_ellipsepointmoving);
    case O_ARC:
        moved_pos = &static_cast<FigArc*>(object)->point[number];
        return takePoint(ctx, object, type, x, y, px, py, init_arcpointmoving);
    default:
        return false;
    }
}

// --- the first move ---------------------------------------------------------------------

void start_linepointmoving(CFigContext* ctx, const PointGestureEnds& ends)
{
    if (!holdsItsPoint(ctx))
        return;
    auto* line = static_cast<FigLine*>(ctx->curObject);
    right_point = moved_pos->next;
    if (line->sub_type == T_POLYLINE)
        return startOpenMove(ctx, reshaping_line, ends);
    if (line->sub_type == T_POLYGON && !left_point)
        left_point = prev_point(line->points, last_point(line->points));
    startMoving(ctx, reshaping_line, ends);
}

void start_splinepointmoving(CFigContext* ctx, const PointGestureEnds& ends)
{
    if (!holdsItsPoint(ctx))
        return;
    auto* spline = static_cast<FigSpline*>(ctx->curObject);
    right_point = moved_pos->next;
    cur_x = moved_pos->x;
    cur_y = moved_pos->y;
    if (!isClosed(spline))
        return startOpenMove(ctx, reshaping_spline, ends);
    if (!left_point)
        left_point = last_point(spline->points);
    startMoving(ctx, reshaping_spline, ends);
}

void init_linepointmoving(CFigContext* ctx, int, int)
{
    const FigObject* line = ctx->curObject;
    const bool isBox = line && line->sub_type != T_POLYLINE && line->sub_type != T_POLYGON;
    start_linepointmoving(ctx,
                          {isBox ? fix_movedboxpoint : fix_movedlinepoint, cancel_pointdragging});
}

void init_splinepointmoving(CFigContext* ctx, int, int)
{
    start_splinepointmoving(ctx, {fix_movedsplinepoint, cancel_pointdragging});
}

void init_arcpointmoving(CFigContext* ctx, int, int)
{
    if (!holdsItsPoint(ctx))
        return;
    cur_x = moved_pos->x;
    cur_y = moved_pos->y;
    startMoving(ctx, reshaping_arc, {fix_movedarcpoint, cancel_pointdragging});
}

// The refusal leaves the gesture on until the release.
void init_ellipsepointmoving(CFigContext* ctx, int, int)
{
    FigObject* ellipse = ctx->curObject;
    if (!ellipse || ellipse->type != O_ELLIPSE)
        return end_without_object(ctx);
    set_action_on();
    if (movedpoint_num == 0 && isByRadius(ellipse)) {
        put_msg("Cannot move CENTER point");
        return;
    }
    if (!holdsItsPoint(ctx))
        return;
    cur_angle = static_cast<FigEllipse*>(ellipse)->angle;
    startMoving(ctx, reshaping_ellipse, {fix_movedellipsepoint, cancel_pointdragging});
    elastic_proc = nullptr;
}

// --- the release ------------------------------------------------------------------------

// Inner points are pulled onto outlines as well, though only ends are linked.
ActionItem* new_held_point_move(CFigContext* ctx, int x, int y)
{
    if (!holdsItsPoint(ctx))
        return nullptr;
    endConstrainedMove(ctx, &x, &y);
    checkForConnection(ctx, &x, &y, ctx->curObject);
    return ctx->curObject->type == O_POLYLINE ? newPathMove<MoveLinePointAction>(ctx, x, y)
                                              : newPathMove<MoveSplinePointAction>(ctx, x, y);
}

void fix_movedlinepoint(CFigContext* ctx, int x, int y)
{
    if (ActionItem* move = new_held_point_move(ctx, x, y))
        finishMove(ctx, move);
}

void fix_movedsplinepoint(CFigContext* ctx, int x, int y)
{
    fix_movedlinepoint(ctx, x, y);
}

void fix_movedboxpoint(CFigContext* ctx, int x, int y)
{
    if (holdsItsPoint(ctx))
        finishMove(ctx, newPathMove<MoveLinePointAction>(ctx, x, y));
}

void fix_movedarcpoint(CFigContext* ctx, int x, int y)
{
    if (!holdsItsPoint(ctx))
        return;
    auto* move = newPointMove<MoveArcPointAction>(ctx, saturatedDifference(x, moved_pos->x),
                                                  saturatedDifference(y, moved_pos->y));
    move->number = movedpoint_num;
    finishMove(ctx, move);
}

void fix_movedellipsepoint(CFigContext* ctx, int x, int y)
{
    if (!holdsItsPoint(ctx))
        return;
    auto* move = newPointMove<MoveEllipsePointAction>(ctx, saturatedDifference(x, moved_pos->x),
                                                      saturatedDifference(y, moved_pos->y));
    move->number = movedpoint_num;
    finishMove(ctx, move);
}

void cancel_startPointDragging(CFigContext* ctx, int, int)
{
    if (return_proc)
        return_proc(ctx);
}

void show_point_unmoved(CFigContext* ctx)
{
    if (elastic_proc == elastic_line)
        elastic_line(ctx, fix_x, fix_y, cur_x, cur_y);
    elastic_proc = nullptr;
    show_real_objects(ctx, FigObjectList{ctx->curObject});
}

void cancel_pointdragging(CFigContext* ctx, int, int, FigObject*)
{
    if (!ctx->curObject)
        return end_without_object(ctx);
    show_point_unmoved(ctx);
    end_point_gesture(ctx);
}

void moveTaggedPoints(CFigContext*, int, int) {}
