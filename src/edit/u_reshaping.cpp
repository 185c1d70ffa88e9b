#include "edit/u_reshaping.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_compound.h"
#include "edit/e_links.h"
#include "edit/e_scale_compound.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/gfx_math.h"
#include "render/u_redraw.h"

#include <memory>
#include <utility>

FigObjectList oldElasticObjectList;

namespace {

FigObject* const nothingExcluded = nullptr;

void addMembers(const FigObjectList& list, QSet<FigObject*>* members)
{
    for (FigObject* object : list)
        if (object->type == O_COMPOUND) {
            const FigObjectList& inner = *static_cast<FigCompound*>(object)->objects;
            for (FigObject* member : inner)
                members->insert(member);
            addMembers(inner, members);
        }
}

/// Copies of objects that stand in the document, for one step of feedback, in the place of the
/// real ones. Real objects come back, and the copies go, at the end.
class CopiesInPlace {
public:
    CopiesInPlace(CFigContext* context, const FigObjectList& linkedObjects,
                  const FigObjectList& movedObjects)
        : ctx(context), linked(linkedObjects), real(linkedObjects + movedObjects)
    {
        cloneInto(linkedObjects, &linkedCopies);
        cloneInto(movedObjects, &movedCopies);
        all = linkedCopies + movedCopies;
        replaceObjects(ctx, &all);
    }
    CopiesInPlace(const CopiesInPlace&) = delete;
    CopiesInPlace& operator=(const CopiesInPlace&) = delete;
    ~CopiesInPlace()
    {
        replaceObjects(ctx, &real);
        deleteObjectList(&movedCopies);
        deleteObjectList(&linkedCopies);
        recalculateCompoundBoundsOfParents(ctx, &linked);
    }

    /// The picture of the last step goes, that of this one comes and is remembered.
    void show()
    {
        refresh_obj_area(ctx, &all, &oldElasticObjectList, nothingExcluded);
        cloneObjects(&all, &oldElasticObjectList);
    }
    void addParentsOfLinked()
    {
        QList<FigCompound*> parents;
        collectParentCompounds(ctx, &linkedCopies, &parents);
        for (FigCompound* parent : qAsConst(parents))
            if (!all.contains(parent))
                all.append(parent);
    }

    FigObjectList linkedCopies;
    FigObjectList movedCopies;

private:
    static void cloneInto(const FigObjectList& from, FigObjectList* to)
    {
        for (FigObject* object : from)
            to->append(object->clone());
    }

    CFigContext* ctx;
    FigObjectList linked; ///< the real ones
    FigObjectList real;
    FigObjectList all;
};

/// What is linked to the objects and has to follow. Members of a moved compound move with it, so
/// they are neither copied nor replaced by themselves.
FigObjectList objectsThatFollow(CFigContext* ctx, FigObjectList* objects)
{
    FigObjectList found;
    collectWorkingObjects4Translate(ctx->getWorkingRoot(), objects, &found);
    QSet<FigObject*> members;
    addMembers(*objects, &members);
    FigObjectList linked;
    for (FigObject* object : qAsConst(found))
        if (!members.contains(object))
            linked.append(object);
    return linked;
}

FigPath* pathOf(FigObject* object)
{
    if (object->type == O_POLYLINE)
        return static_cast<FigLine*>(object);
    return object->type == O_SPLINE ? static_cast<FigSpline*>(object) : nullptr;
}

/// The clone's point that stands for moved_pos; null if the current object does not have it.
FigPoint* movedPointOf(FigObject* current, FigObject* clone)
{
    FigPath* path = pathOf(current);
    FigPath* copy = pathOf(clone);
    return path && copy ? copy->getPoint(path->getIndex(moved_pos)) : nullptr;
}

/// One object and what is linked to it, as copies in place.
template <typename Change> void reshapeWithLinked(CFigContext* ctx, Change change)
{
    FigObject* current = ctx->curObject;
    FigObjectList linked;
    collectWorkingObjects4MovePoint(ctx->getWorkingRoot(), current, &linked);
    linked.removeAll(current);
    CopiesInPlace copies(ctx, linked, FigObjectList{current});
    if (change(copies.movedCopies.first(), copies.linkedCopies + copies.movedCopies))
        copies.show();
}

/// The clone with the change stands in for the current object while it is drawn; it is kept as
/// what the next step wipes.
void showReshaped(CFigContext* ctx, FigObject* clone)
{
    FigObjectList* objects = &ctx->drawing.objects;
    replaceObjectById(objects, clone);
    FigObject* former = ctx->reshapedObject ? ctx->reshapedObject : ctx->curObject;
    refresh_obj_area(ctx, clone, former, nothingExcluded);
    drop_reshaped_object(ctx);
    ctx->reshapedObject = clone;
    replaceObjectById(objects, ctx->curObject);
}

} // namespace

void drop_reshaped_object(CFigContext* ctx)
{
    delete ctx->reshapedObject;
    ctx->reshapedObject = nullptr;
}

void show_unmoved(CFigContext* ctx, FigObjectList objects)
{
    FigObjectList linked;
    collectWorkingObjects4Translate(ctx->getWorkingRoot(), &objects, &linked);
    objects += linked;
    if (ctx->reshapedObject)
        oldElasticObjectList.append(std::exchange(ctx->reshapedObject, nullptr));
    refresh_obj_area(ctx, &objects, &oldElasticObjectList, nothingExcluded);
}

void end_without_object(CFigContext* ctx)
{
    if (elastic_proc == elastic_line)
        elastic_line(ctx, fix_x, fix_y, cur_x, cur_y);
    elastic_proc = nullptr;
    if (ctx->reshapedObject)
        oldElasticObjectList.append(std::exchange(ctx->reshapedObject, nullptr));
    if (!oldElasticObjectList.isEmpty())
        refresh_obj_area(ctx, &oldElasticObjectList, true);
    deleteObjectList(&oldElasticObjectList);
    if (return_proc)
        return_proc(ctx);
}

// --- many objects ---------------------------------------------------------------------

void elastic_moveobjects(CFigContext* ctx, FigObjectList* objects, int x, int y)
{
    if (!objects || objects->isEmpty())
        return;
    cur_x = x;
    cur_y = y;
    CopiesInPlace copies(ctx, objectsThatFollow(ctx, objects), *objects);
    copies.addParentsOfLinked();
    TranslateAction move;
    move.workingList = ctx->getWorkingRoot();
    move.objects = copies.movedCopies;
    move.workingObjects = copies.linkedCopies;
    move.dx = saturatedDifference(x, fix_x);
    move.dy = saturatedDifference(y, fix_y);
    move.execute(ctx);
    copies.show();
}

void elastic_scaleobjects(CFigContext* ctx, FigObjectList* objects, int x, int y)
{
    if (!objects || objects->isEmpty())
        return;
    moveScaledEnd(x, y);
    CopiesInPlace copies(ctx, objectsThatFollow(ctx, objects), *objects);
    ScaleAction scale;
    scale.workingList = ctx->getWorkingRoot();
    scale.objects = copies.movedCopies;
    scale.workingObjects = copies.linkedCopies;
    scale.xfactor = scaleFactor(fix_x, fromx, cur_x);
    scale.yfactor = scaleFactor(fix_y, fromy, cur_y);
    scale.cx = fix_x;
    scale.cy = fix_y;
    scale.execute(ctx);
    copies.show();
}

// --- one point ------------------------------------------------------------------------

void reshaping_line(CFigContext* ctx, int x, int y)
{
    if (!ctx->curObject)
        return end_without_object(ctx);
    reshapeWithLinked(ctx, [&](FigObject* clone, const FigObjectList& working) {
        FigPoint* point = movedPointOf(ctx->curObject, clone);
        if (!point)
            return false;
        MoveLinePointAction move;
        move.object = clone;
        move.workingList = ctx->getWorkingRoot();
        move.point = point;
        move.dx = saturatedDifference(x, point->x);
        move.dy = saturatedDifference(y, point->y);
        move.connect = 1;
        move.refreshObjects = working;
        move.execute(ctx);
        move.disposeAsUndo();
        return true;
    });
}

void reshaping_ellipse(CFigContext* ctx, int x, int y)
{
    if (!ctx->curObject)
        return end_without_object(ctx);
    if (!moved_pos || ctx->curObject->type != O_ELLIPSE)
        return;
    const int dx = saturatedDifference(x, moved_pos->x);
    const int dy = saturatedDifference(y, moved_pos->y);
    reshapeWithLinked(ctx, [&](FigObject* clone, const FigObjectList& working) {
        MoveEllipsePointAction move;
        move.object = clone;
        move.workingList = ctx->getWorkingRoot();
        move.number = movedpoint_num;
        move.dx = dx;
        move.dy = dy;
        move.refreshObjects = working;
        move.execute(ctx);
        shell_show_ellipse_coords(ctx->metric, static_cast<FigEllipse*>(clone));
        return true;
    });
}

void reshaping_spline(CFigContext* ctx, int x, int y)
{
    FigObject* current = ctx->curObject;
    if (!current)
        return end_without_object(ctx);
    std::unique_ptr<FigObject> clone(current->clone());
    FigPoint* point = movedPointOf(current, clone.get());
    if (!point)
        return;
    MoveSplinePointAction move;
    move.object = clone.get();
    move.workingList = ctx->getWorkingRoot();
    move.point = point;
    move.dx = saturatedDifference(x, point->x);
    move.dy = saturatedDifference(y, point->y);
    move.connect = 1;
    move.execute(ctx);
    move.disposeAsUndo();
    showReshaped(ctx, clone.release());
}

void reshaping_arc(CFigContext* ctx, int x, int y)
{
    FigObject* current = ctx->curObject;
    if (!current)
        return end_without_object(ctx);
    if (movedpoint_num < 0 || movedpoint_num > 2 || current->type != O_ARC)
        return;
    std::unique_ptr<FigObject> clone(current->clone());
    const FigPoint& point = static_cast<FigArc*>(current)->point[movedpoint_num];
    MoveArcPointAction move;
    move.object = clone.get();
    move.workingList = ctx->getWorkingRoot();
    move.number = movedpoint_num;
    move.dx = saturatedDifference(x, point.x);
    move.dy = saturatedDifference(y, point.y);
    if (move.execute(ctx))
        showReshaped(ctx, clone.release());
}
