// Points that enter and leave, and shape factors.
#include "edit/action_support.h"
#include "edit/actions.h"
#include "edit/e_addpt.h"
#include "edit/e_deletept.h"
#include "edit/e_links.h"
#include "model/FigContext.h"
#include "model/u_list.h"

#include <cstdlib>
#include <memory>
#include <utility>

namespace {

ChainEnds chainEnds(const FigLine* line)
{
    ChainEnds ends;
    if (line->points) {
        setPosition(&ends.first, *line->points);
        setPosition(&ends.last, *last_point(line->points));
    }
    return ends;
}

void setChainEnds(FigLine* line, const ChainEnds& ends)
{
    if (!line->points)
        return;
    setPosition(line->points, ends.first);
    setPosition(last_point(line->points), ends.last);
}

// --- points of lines that enter and leave ---------------------------------------------

/// For the time of a call the list in which an action works is the working root: what looks
/// through the working root then also serves a redo in a compound that is closed by now.
class WorkingIn {
public:
    WorkingIn(CFigContext* document, FigObjectList* list)
        : ctx(document), former(document->openCompoundObjects)
    {
        ctx->openCompoundObjects = list == &ctx->drawing.objects ? nullptr : list;
    }
    ~WorkingIn() { ctx->openCompoundObjects = former; }
    WorkingIn(const WorkingIn&) = delete;
    WorkingIn& operator=(const WorkingIn&) = delete;

private:
    CFigContext* ctx;
    FigObjectList* former;
};

/// Whether a link sits on the segment that a new point has divided.
bool isOnDivided(const FigLink* link, const FigPoint* before, const FigPoint* after)
{
    return (before && link->targetLeftPoint == before) ||
           (after && link->targetRightPoint == after);
}

/// Takes the segment over from a fresh search. The record stays the same, and so does the place of
/// the linked end: it is on the outline already, and undo would not move it back.
void findSegmentAgain(CFigContext* ctx, FigObjectList* list, FigPoint* source)
{
    FigLink* link = source->link;
    const int x = source->x, y = source->y;
    const std::unique_ptr<FigLink> found(makeConnection(ctx, list, source, source->owner));
    source->x = x;
    source->y = y;
    if (!found || found->targetObjId != link->targetObjId)
        return;
    link->targetLeftPoint = found->targetLeftPoint;
    link->targetRightPoint = found->targetRightPoint;
    link->targetLeftPointIdx = found->targetLeftPointIdx;
    link->targetRightPointIdx = found->targetRightPointIdx;
}

/// The links on the segment that the new point divides look for their half; the others count on.
void findSegments(CFigContext* ctx, const ActionItem& action, FigPoint* before, FigPoint* point)
{
    FigPointList sources;
    findPointsThatConnectTo(action.workingList, action.object, &sources);
    for (FigPoint* source : qAsConst(sources))
        if (isOnDivided(source->link, before, point->next))
            findSegmentAgain(ctx, action.workingList, source);
    updateLinkLRPointIndex(&sources, lineOf(action));
}

} // namespace

bool AddLinePointAction::execute(CFigContext* ctx)
{
    followers.note(workingList, object);
    formerEnds = chainEnds(lineOf(*this));
    addPoint(lineOf(*this), afterPoint, newPoint);
    findSegments(ctx, *this, afterPoint, newPoint);
    return true;
}

bool AddLinePointAction::undo(CFigContext*)
{
    deletePoint(lineOf(*this), newPoint);
    setChainEnds(lineOf(*this), formerEnds);
    followers.restore();
    return true;
}

void AddLinePointAction::disposeAsRedo()
{
    deleteLoosePoint(newPoint);
    newPoint = nullptr;
}

bool DeleteLinePointAction::execute(CFigContext* ctx)
{
    FigLine* line = lineOf(*this);
    followers.note(workingList, line);
    formerEnds = chainEnds(line);
    {
        const WorkingIn working(ctx, workingList);
        updateLinks4removedPoint(ctx, line, line, line->sub_type == T_POLYLINE, point);
    }
    FigPointList sources;
    findPointsThatConnectTo(workingList, line, &sources);
    deletePoint(line, point);
    updateLinkLRPointIndex(&sources, line);
    return true;
}

bool DeleteLinePointAction::undo(CFigContext*)
{
    addPoint(lineOf(*this), afterPoint, point);
    setChainEnds(lineOf(*this), formerEnds);
    followers.restore();
    return true;
}

void DeleteLinePointAction::disposeAsUndo()
{
    deleteLoosePoint(point);
    point = nullptr;
}

// --- points of splines that enter and leave -----------------------------------------------

namespace {

EndFactors endFactors(const FigSpline* spline)
{
    if (!spline->sfactors)
        return {};
    return {spline->sfactors->s, last_sfactor(spline->sfactors)->s};
}

void setEndFactors(FigSpline* spline, const EndFactors& ends)
{
    if (!spline->sfactors)
        return;
    spline->sfactors->s = ends.first;
    last_sfactor(spline->sfactors)->s = ends.last;
}

} // namespace

// The node of the shape factor stays the same over undo and redo: others point at its value.

bool AddSplinePointAction::execute(CFigContext*)
{
    formerEnds = endFactors(splineOf(*this));
    addPoint(splineOf(*this), afterPoint, newPoint, nextPoint, std::exchange(factor, nullptr));
    return true;
}

bool AddSplinePointAction::undo(CFigContext*)
{
    factor = deletePoint(splineOf(*this), afterPoint, newPoint);
    setEndFactors(splineOf(*this), formerEnds);
    return true;
}

void AddSplinePointAction::disposeAsRedo()
{
    deleteLoosePoint(newPoint);
    newPoint = nullptr;
    free(factor);
    factor = nullptr;
}

bool DeleteSplinePointAction::execute(CFigContext*)
{
    formerEnds = endFactors(splineOf(*this));
    factor = deletePoint(splineOf(*this), afterPoint, point);
    return true;
}

bool DeleteSplinePointAction::undo(CFigContext*)
{
    addPoint(splineOf(*this), afterPoint, point, point->next, std::exchange(factor, nullptr));
    setEndFactors(splineOf(*this), formerEnds);
    return true;
}

void DeleteSplinePointAction::disposeAsUndo()
{
    deleteLoosePoint(point);
    point = nullptr;
    free(factor);
    factor = nullptr;
}

// --- shape factors -----------------------------------------------------------------------------

bool ChangeShapeFactorAction::execute(CFigContext*)
{
    *factor = newValue;
    return true;
}

bool ChangeShapeFactorAction::undo(CFigContext*)
{
    *factor = oldValue;
    return true;
}

void ChangeShapeFactorAction::disposeAsUndo()
{
    qDeleteAll(savedLinks);
    savedLinks.clear();
}

void ChangeShapeFactorAction::disposeAsRedo()
{
    disposeAsUndo();
}
