// Moves, scalings and turns of whole objects.
#include "edit/actions.h"
#include "edit/e_compound.h"
#include "edit/e_flip.h"
#include "edit/e_links.h"
#include "edit/e_rotate.h"
#include "edit/e_scale.h"
#include "model/FigContext.h"
#include "render/gfx_math.h"

#include <QSet>

namespace {

FigObjectList movedObjectsOf(const ActionItem& action)
{
    FigObjectList moved = action.objects;
    if (moved.isEmpty() && action.object)
        moved.append(action.object);
    return moved;
}

/// Decides for the length of a move which linked ends stay where they are.
class StayingEnds {
public:
    StayingEnds(FigObjectList* movedObjects, FigObjectList* list) : moved(movedObjects)
    {
        fix_links_before_translate(moved, list, moved);
    }
    /// The decision has no meaning between moves.
    ~StayingEnds()
    {
        FigLinkList links;
        getAllLinks(moved, &links);
        for (FigLink* link : qAsConst(links))
            link->flag = false;
    }
    StayingEnds(const StayingEnds&) = delete;
    StayingEnds& operator=(const StayingEnds&) = delete;

private:
    FigObjectList* moved;
};

void updateCornersAround(CFigContext* ctx, FigObjectList* followed)
{
    if (!followed->isEmpty())
        recalculateCompoundBoundsOfParents(ctx, followed);
}

/// Moves the objects and what follows them; returns what followed. The corners of the compounds
/// around that are left.
FigObjectList translateObjects(CFigContext* ctx, TranslateAction& action, int dx, int dy)
{
    FigObjectList moved = movedObjectsOf(action);
    FigObjectList followed;
    FigPointList done;
    const StayingEnds staying(&moved, action.workingList);
    translate_object_list(ctx, &moved, dx, dy);
    adjust_links_translate(&moved, action.workingList, dx, dy, &followed, &action.workingObjects,
                           &done, &moved);
    return followed;
}

FigObjectList scaleObjects(CFigContext* ctx, ScaleAction& action, float xfactor, float yfactor)
{
    FigObjectList moved = movedObjectsOf(action);
    FigObjectList followed;
    FigPointList done;
    const StayingEnds staying(&moved, action.workingList);
    for (FigObject* object : qAsConst(moved))
        scale_object(ctx, object, xfactor, yfactor, action.cx, action.cy);
    adjust_links_scale(&moved, xfactor, yfactor, action.cx, action.cy, action.workingList,
                       &followed, &done, &moved);
    return followed;
}

void appendMissing(const FigObjectList& objects, FigObjectList* list)
{
    QSet<FigObject*> known;
    for (FigObject* object : qAsConst(*list))
        known.insert(object);
    for (FigObject* object : objects) {
        if (known.contains(object))
            continue;
        known.insert(object);
        list->append(object);
    }
}

void addParentsToRefresh(CFigContext* ctx, FigObjectList* followed, FigObjectList* refresh)
{
    if (followed->isEmpty())
        return;
    QList<FigCompound*> parents;
    collectParentCompounds(ctx, followed, &parents);
    FigObjectList found;
    for (FigCompound* parent : qAsConst(parents))
        found.append(parent);
    appendMissing(found, refresh);
}

/// Single precision. A flat object stays flat: nothing tells any more what it was.
float reverseFactor(float factor)
{
    return factor == 0.0f ? 1.0f : 1.0f / factor;
}

/// The links that a turn takes off: those of a line, of a spline, of all in a compound.
void collectLinks(FigObject* object, FigLinkList* links)
{
    switch (object->type) {
    case O_POLYLINE:
        return getAllLinks(static_cast<FigLine*>(object), links);
    case O_SPLINE:
        return getAllLinks(static_cast<FigSpline*>(object), links);
    case O_COMPOUND:
        return getAllLinks(static_cast<FigCompound*>(object)->objects, links);
    }
}

} // namespace

// --- translate and scale --------------------------------------------------------------

bool TranslateAction::execute(CFigContext* ctx)
{
    if (objects.isEmpty() && workingObjects.isEmpty() && !followersKnown) {
        collectWorkingObjects4Translate(workingList, object, &workingObjects);
        appendMissing(workingObjects, &refreshObjects);
    }
    followersKnown = true;
    FigObjectList followed = translateObjects(ctx, *this, dx, dy);
    updateCornersAround(ctx, &followed);
    addParentsToRefresh(ctx, &followed, &refreshObjects);
    return true;
}

bool TranslateAction::undo(CFigContext* ctx)
{
    FigObjectList followed =
        translateObjects(ctx, *this, saturatedDifference(0, dx), saturatedDifference(0, dy));
    updateCornersAround(ctx, &followed);
    return true;
}

FigObjectList TranslateAction::preview(CFigContext* ctx)
{
    return translateObjects(ctx, *this, dx, dy);
}

bool ScaleAction::execute(CFigContext* ctx)
{
    FigObjectList followed = scaleObjects(ctx, *this, xfactor, yfactor);
    updateCornersAround(ctx, &followed);
    return true;
}

bool ScaleAction::undo(CFigContext* ctx)
{
    FigObjectList followed =
        scaleObjects(ctx, *this, reverseFactor(xfactor), reverseFactor(yfactor));
    updateCornersAround(ctx, &followed);
    return true;
}

FigObjectList ScaleAction::preview(CFigContext* ctx)
{
    return scaleObjects(ctx, *this, xfactor, yfactor);
}

// --- turns ----------------------------------------------------------------------------

void TurnAction::disposeAsUndo()
{
    qDeleteAll(savedLinks);
    savedLinks.clear();
}

void TurnAction::prepareTurn()
{
    // Those of an earlier run are back on their points.
    savedLinks.clear();
    collectLinks(object, &savedLinks);
    removeAllLinks(&savedLinks, true);
    followers.note(workingList, object);
}

void TurnAction::endTurnBack()
{
    followers.restore();
    restoreLinks(&savedLinks);
}

bool RotateAction::execute(CFigContext* ctx)
{
    prepareTurn();
    turn(ctx, angle);
    return true;
}

bool RotateAction::undo(CFigContext* ctx)
{
    turn(ctx, -angle);
    endTurnBack();
    return true;
}

void RotateAction::turn(CFigContext* ctx, int degrees)
{
    switch (object->type) {
    case O_ELLIPSE:
        return rotate_ellipse(ctx, workingList, static_cast<FigEllipse*>(object), cx, cy, degrees);
    case O_POLYLINE:
        return rotate_line(ctx, workingList, static_cast<FigLine*>(object), cx, cy, degrees);
    case O_SPLINE:
        return rotate_spline(ctx, workingList, static_cast<FigSpline*>(object), cx, cy, degrees);
    case O_TEXT:
        return rotate_text(ctx, workingList, static_cast<FigText*>(object), cx, cy, degrees);
    case O_ARC:
        return rotate_arc(ctx, workingList, static_cast<FigArc*>(object), cx, cy, degrees);
    case O_COMPOUND:
        return rotate_compound(ctx, workingList, static_cast<FigCompound*>(object), cx, cy,
                               degrees);
    }
}

bool FlipAction::execute(CFigContext* ctx)
{
    prepareTurn();
    flip(ctx);
    return true;
}

// A flip is its own reverse.
bool FlipAction::undo(CFigContext* ctx)
{
    flip(ctx);
    endTurnBack();
    return true;
}

void FlipAction::flip(CFigContext* ctx)
{
    switch (object->type) {
    case O_ELLIPSE:
        return flip_ellipse(ctx, workingList, static_cast<FigEllipse*>(object), cx, cy, direction);
    case O_POLYLINE:
        return flip_line(ctx, workingList, static_cast<FigLine*>(object), cx, cy, direction);
    case O_SPLINE:
        return flip_spline(ctx, workingList, static_cast<FigSpline*>(object), cx, cy, direction);
    case O_TEXT:
        return flip_text(ctx, workingList, static_cast<FigText*>(object), cx, cy, direction);
    case O_ARC:
        return flip_arc(ctx, workingList, static_cast<FigArc*>(object), cx, cy, direction);
    case O_COMPOUND:
        return flip_compound(ctx, workingList, static_cast<FigCompound*>(object), cx, cy,
                             direction);
    }
}
