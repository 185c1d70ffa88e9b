// What several actions need: objects that enter and leave lists with the depth table kept true,
// compounds that have to be closed before they leave, points that die.
#pragma once

#include "edit/u_undo.h"
#include "model/ObjectFunctions.h"

/// While not 0, lists inside compounds are not counted anew after each change: who raised it does
/// so once at the end. Raised and lowered by undo, redo and executeActions.
extern int defer_depth_recounts;

/// set_depths in the middle of whatever gesture: copies that follow the pointer are not counted
/// before they are placed, but a drawing of the library is as soon as its placing begins.
void countDepthsAnew(CFigContext* ctx);

/// list_add and list_delete for any list of the figure: the depth table counts the whole drawing,
/// lists inside compounds too. False if the object was not there. The last object of a list, which
/// is where objects enter, is taken out without a search.
void enterList(CFigContext* ctx, FigObjectList* list, FigObject* object);
bool leaveList(CFigContext* ctx, FigObjectList* list, FigObject* object);
/// The depth table's part of leaveList, for an object that has been taken out of the list already.
void countLeft(CFigContext* ctx, FigObjectList* list, FigObject* object);

/// An object that is about to leave the drawing: if it is a compound, nothing in it stays open, and
/// it does not stay the current object because of that.
void closeBeforeLeaving(CFigContext* ctx, FigObject* object);

/// A compound that vanished belongs to the document; one that an action takes in hand does not.
/// Nothing for other objects.
void claimFromVanished(FigObject* object);

inline FigLine* lineOf(const ActionItem& action)
{
    return static_cast<FigLine*>(action.object);
}

inline FigSpline* splineOf(const ActionItem& action)
{
    return static_cast<FigSpline*>(action.object);
}

inline void setPosition(FigPoint* point, const FigPoint& from)
{
    point->x = from.x;
    point->y = from.y;
}

/// With its link; the point is in no chain.
void deleteLoosePoint(FigPoint* point);

/// Executes the deletions that follow each other on one list, from step.at(first) on, as if one by
/// one, but with a single walk for the links that end on them. Returns how many it has executed; 0
/// where there is no such row.
int executeDeletions(CFigContext* ctx, const QList<ActionItem*>& step, int first);
