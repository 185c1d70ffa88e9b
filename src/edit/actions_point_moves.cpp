// Points of chains, arcs and ellipses that move.
#include "edit/action_support.h"
#include "edit/actions.h"
#include "edit/e_links.h"
#include "edit/e_movept.h"
#include "render/gfx_math.h"

#include <utility>

namespace {

/// Boxes of all kinds: all corners on a side move with the one that is dragged.
bool isBox(const FigLine* line)
{
    return line->sub_type == T_BOX || line->sub_type == T_ARCBOX || line->sub_type == T_PICTURE;
}

} // namespace

// --- points of chains that move -------------------------------------------------------------

void MovePathPointAction::disposeAsUndo()
{
    deleteSavedLinks();
}

void MovePathPointAction::disposeAsRedo()
{
    deleteSavedLinks();
}

void MovePathPointAction::deleteSavedLinks()
{
    qDeleteAll(savedLinks);
    savedLinks.clear();
}

void MovePathPointAction::exchangeLinks()
{
    FigLink* taken = std::exchange(point->link, nullptr);
    restoreLinks(&savedLinks);
    savedLinks.clear();
    if (taken)
        savedLinks.append(taken);
}

// The connection puts the point exactly on the outline. The way there becomes part of the move, so
// that undo comes back to where it began.
void MovePathPointAction::connectPoint(CFigContext* ctx)
{
    const bool wanted = std::exchange(connect, 0) == 1;
    if (!wanted || !isLinkableSourceObject(object) || !isEndpoint(object, point))
        return;
    const FigPoint before = *point;
    point->link = makeConnection(ctx, workingList, point, object);
    dx += saturatedDifference(point->x, before.x);
    dy += saturatedDifference(point->y, before.y);
}

bool MoveLinePointAction::execute(CFigContext* ctx)
{
    FigLine* line = lineOf(*this);
    movedInX.clear();
    movedInY.clear();
    if (line->pic)
        formerFlip = line->pic->flipped;
    followers.note(workingList, line);
    if (isBox(line))
        relocate_boxpoint(workingList, line, dx, dy, point, &movedInX, &movedInY);
    else
        relocate_linepoint(workingList, line, dx, dy, point);
    exchangeLinks();
    connectPoint(ctx);
    return true;
}

bool MoveLinePointAction::undo(CFigContext*)
{
    FigLine* line = lineOf(*this);
    if (isBox(line))
        moveBoxBack();
    else
        relocate_linepoint(nullptr, line, saturatedDifference(0, dx), saturatedDifference(0, dy),
                           point);
    followers.restore();
    exchangeLinks();
    return true;
}

// A corner that was dropped on the opposite side shares its coordinate with all points, so the
// negated move of the corner would move the whole box.
void MoveLinePointAction::moveBoxBack()
{
    FigLine* line = lineOf(*this);
    for (FigPoint* each = line->points; each; each = each->next) {
        if (movedInX.contains(each))
            each->x = saturatedDifference(each->x, dx);
        if (movedInY.contains(each))
            each->y = saturatedDifference(each->y, dy);
    }
    if (line->pic)
        line->pic->flipped = formerFlip;
}

bool MoveSplinePointAction::execute(CFigContext* ctx)
{
    relocate_splinepoint(workingList, splineOf(*this), dx, dy, point);
    exchangeLinks();
    connectPoint(ctx);
    return true;
}

bool MoveSplinePointAction::undo(CFigContext*)
{
    relocate_splinepoint(workingList, splineOf(*this), saturatedDifference(0, dx),
                         saturatedDifference(0, dy), point);
    exchangeLinks();
    return true;
}

// --- points of arcs and ellipses ---------------------------------------------------------------

bool MoveArcPointAction::execute(CFigContext*)
{
    auto* arc = static_cast<FigArc*>(object);
    formerCenterX = arc->center_x;
    formerCenterY = arc->center_y;
    formerDirection = arc->direction;
    moved = relocate_arcpoint(workingList, arc, dx, dy, number);
    return moved;
}

// The negated move. The centre comes back as it was: that of an arc from a file need not be the one
// that its points give, and they need not give one at all.
bool MoveArcPointAction::undo(CFigContext*)
{
    if (!moved)
        return false;
    auto* arc = static_cast<FigArc*>(object);
    arc->point[number].x = saturatedDifference(arc->point[number].x, dx);
    arc->point[number].y = saturatedDifference(arc->point[number].y, dy);
    arc->center_x = formerCenterX;
    arc->center_y = formerCenterY;
    arc->direction = formerDirection;
    return true;
}

bool MoveEllipsePointAction::execute(CFigContext* ctx)
{
    auto* ellipse = static_cast<FigEllipse*>(object);
    setPosition(&center, ellipse->center);
    setPosition(&radiuses, ellipse->radiuses);
    setPosition(&start, ellipse->start);
    setPosition(&end, ellipse->end);
    followers.note(workingList, ellipse);
    relocate_ellipsepoint(ctx, workingList, ellipse, dx, dy, number);
    return true;
}

// A radius that was drawn through zero does not come back by the negated move.
bool MoveEllipsePointAction::undo(CFigContext*)
{
    auto* ellipse = static_cast<FigEllipse*>(object);
    setPosition(&ellipse->center, center);
    setPosition(&ellipse->radiuses, radiuses);
    setPosition(&ellipse->start, start);
    setPosition(&ellipse->end, end);
    followers.restore();
    return true;
}
