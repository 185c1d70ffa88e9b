#include "edit/u_reshaping.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_links.h"
#include "edit/e_scale_compound.h"
#include "edit/mode.h"
#include "edit/preview_places.h"
#include "edit/u_elastic.h"
#include "model/FigContext.h"
#include "model/objectwalk.h"
#include "model/shell.h"
#include "render/depth_walk.h"
#include "render/gfx_math.h"
#include "render/still_objects.h"
#include "render/u_bound.h"
#include "render/u_redraw.h"

#include <QPainter>

#include <algorithm>
#include <memory>
#include <utility>

FigObjectList oldElasticObjectList;
int objectsWorthNoting = 500;

namespace {

FigObject* const nothingExcluded = nullptr;

// --- showing a step -----------------------------------------------------------------

/// Of the gesture in progress; null before its first step and in small drawings.
std::unique_ptr<StillObjects> stillObjects;
/// Where those that are gone by now have blended pictures on a document's canvas.
struct Blended {
    unsigned long document = 0;
    QRect pixels;
} blendedBefore;

void dropStillObjects()
{
    if (stillObjects && !stillObjects->blendedPixels().isEmpty()) {
        if (blendedBefore.document != stillObjects->document())
            blendedBefore = {stillObjects->document(), QRect()};
        blendedBefore.pixels |= stillObjects->blendedPixels();
    }
    stillObjects.reset();
}

bool isWorthNoting(CFigContext* ctx, const FigObjectList& moving)
{
    return ctx->painter && ctx->painter->isActive() && StillObjects::canTell(moving) &&
           countObjects(&ctx->drawing.objects) >= objectsWorthNoting;
}

/// The moving objects, which stand in the document now, and where they were come anew; the other
/// objects drawn have only their area redrawn.
void showStep(CFigContext* ctx, FigObjectList* drawn, FigObjectList* former,
              const FigObjectList& moving)
{
    if (stillObjects && !stillObjects->serves(ctx, moving))
        dropStillObjects();
    if (!stillObjects && isWorthNoting(ctx, moving))
        stillObjects = std::make_unique<StillObjects>(ctx, moving);
    if (stillObjects)
        refresh_obj_area(ctx, drawn, former, stillObjects.get(), moving);
    else
        refresh_obj_area(ctx, drawn, former, nothingExcluded);
}

/// Copies of objects that stand in the document, for one step of feedback, in the place of the
/// real ones: those that move, and what is linked to them. Real objects come back at the end.
class CopiesInPlace {
public:
    CopiesInPlace(CFigContext* context, const FigObjectList& movedObjects)
        : ctx(context), places(context, movedObjects)
    {
        cloneInto(places.linkedObjects(), &linkedCopies);
        cloneInto(movedObjects, &movedCopies);
        places.putCopies(movedCopies, linkedCopies);
    }
    CopiesInPlace(const CopiesInPlace&) = delete;
    CopiesInPlace& operator=(const CopiesInPlace&) = delete;
    ~CopiesInPlace()
    {
        places.putBack();
        if (areKept)
            return;
        deleteObjectList(&movedCopies);
        deleteObjectList(&linkedCopies);
    }

    /// The picture of the last step goes, that of this one comes and is remembered: by the copies
    /// themselves, which have no other use any more.
    void show() { showWith(FigObjectList()); }
    /// The same with the compounds around what is linked.
    void showWithParents()
    {
        FigObjectList parents;
        for (FigCompound* parent : places.parentsOfLinked())
            parents.append(parent);
        showWith(parents);
    }
    /// Corners of the compounds around what followed, be they in the document or among the moved.
    void measureAround(const FigObjectList& followed)
    {
        places.measureParents();
        const auto isMember = [this](FigObject* object) { return !linkedCopies.contains(object); };
        if (std::none_of(followed.begin(), followed.end(), isMember))
            return;
        for (FigObject* object : qAsConst(movedCopies))
            if (object->type == O_COMPOUND)
                update_compound_corners(ctx, static_cast<FigCompound*>(object));
    }
    FigObjectList all() const { return linkedCopies + movedCopies; }

    FigObjectList linkedCopies;
    FigObjectList movedCopies;

private:
    static void cloneInto(const FigObjectList& from, FigObjectList* to)
    {
        for (FigObject* object : from)
            to->append(object->clone());
    }
    void showWith(const FigObjectList& parents)
    {
        FigObjectList drawn = all() + parents;
        showStep(ctx, &drawn, &oldElasticObjectList, all());
        deleteObjectList(&oldElasticObjectList);
        oldElasticObjectList = all();
        cloneInto(parents, &oldElasticObjectList);
        areKept = true;
    }

    CFigContext* ctx;
    PreviewPlaces places;
    bool areKept = false;
};

/// The clone's point that stands for moved_pos; null if the current object does not have it.
FigPoint* movedPointOf(FigObject* current, FigObject* clone)
{
    FigPath* path = objectwalk::asPath(current);
    FigPath* copy = objectwalk::asPath(clone);
    return path && copy ? copy->getPoint(path->getIndex(moved_pos)) : nullptr;
}

/// One object and what is linked to it, as copies in place.
template <typename Change> void reshapeWithLinked(CFigContext* ctx, Change change)
{
    CopiesInPlace copies(ctx, FigObjectList{ctx->curObject});
    if (change(copies.movedCopies.first(), copies.all()))
        copies.show();
}

/// The clone with the change stands in for the current object while it is drawn; it is kept as
/// what the next step wipes.
void showReshaped(CFigContext* ctx, FigObject* clone)
{
    FigObjectList* objects = &ctx->drawing.objects;
    replaceObjectById(objects, clone);
    FigObjectList now{clone};
    FigObjectList former{ctx->reshapedObject ? ctx->reshapedObject : ctx->curObject};
    showStep(ctx, &now, &former, now);
    drop_reshaped_object(ctx);
    ctx->reshapedObject = clone;
    replaceObjectById(objects, ctx->curObject);
}

} // namespace

void start_feedback()
{
    deleteObjectList(&oldElasticObjectList);
    dropStillObjects();
    blendedBefore = Blended();
}

void finish_feedback(CFigContext* ctx)
{
    dropStillObjects();
    if (blendedBefore.document != ctx->documentNumber || blendedBefore.pixels.isEmpty() ||
        !ctx->painter || !ctx->painter->isActive())
        return;
    const SeenArea area(ctx, std::exchange(blendedBefore, Blended()).pixels);
    refresh_area(ctx, saturatedInt(area.x1), saturatedInt(area.y1), saturatedInt(area.x2),
                 saturatedInt(area.y2), nothingExcluded, false);
}

void drop_reshaped_object(CFigContext* ctx)
{
    delete ctx->reshapedObject;
    ctx->reshapedObject = nullptr;
}

void show_real_objects(CFigContext* ctx, FigObjectList objects)
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
    CopiesInPlace copies(ctx, *objects);
    FigObjectList working = copies.all();
    TranslateAction move;
    move.workingList = &working;
    move.objects = copies.movedCopies;
    move.workingObjects = copies.linkedCopies;
    move.dx = saturatedDifference(x, fix_x);
    move.dy = saturatedDifference(y, fix_y);
    copies.measureAround(move.preview(ctx));
    copies.showWithParents();
}

void elastic_scaleobjects(CFigContext* ctx, FigObjectList* objects, int x, int y)
{
    if (!objects || objects->isEmpty())
        return;
    moveScaledEnd(x, y);
    CopiesInPlace copies(ctx, *objects);
    FigObjectList working = copies.all();
    ScaleAction scale;
    scale.workingList = &working;
    scale.objects = copies.movedCopies;
    scale.workingObjects = copies.linkedCopies;
    scale.xfactor = scaleFactor(fix_x, fromx, cur_x);
    scale.yfactor = scaleFactor(fix_y, fromy, cur_y);
    scale.cx = fix_x;
    scale.cy = fix_y;
    copies.measureAround(scale.preview(ctx));
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
