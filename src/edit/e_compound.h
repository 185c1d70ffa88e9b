// Compounds: making, breaking, opening for editing in place, closing, and keeping their corners.
#pragma once

#include "model/ObjectFunctions.h"

bool isCompoundOpen(CFigContext* ctx); ///< false for null
/// Makes the members the working root, shows their markers and redraws.
void open_compound(CFigContext* ctx, FigCompound* compound);
/// A handler form, for type 6; no tool installs it.
bool init_open_compound(CFigContext* ctx, FigObject* object, int type, int x, int y, int px,
                        int py);
/// Closes one level and makes the compound current. An emptied compound vanishes from the drawing;
/// the document keeps it, since actions may work in its list.
void close_compound(CFigContext* ctx, bool redraw);
void close_all_compounds(CFigContext* ctx, bool redraw); ///< does nothing

/// Makes a compound of the tagged objects of the working root, or posts a message.
void create_compoundobject(CFigContext* ctx);
/// Breaks the tagged compounds of the working root, as one undo step.
void break_compoundobject(CFigContext* ctx);

/// The same as getTaggedObjects.
void get_tagged_objects(FigObjectList* list, FigObjectList* result);
/// The compound that directly holds the object, or whose member list that is; null for none.
FigCompound* getEnclosingCompound(FigCompound* top, FigObject* object);
FigCompound* getEnclosingCompound(CFigContext* ctx, FigObjectList* list, FigObject* object);
FigCompound* getEnclosingCompound(CFigContext* ctx, FigObjectList* list, FigObjectList* members);

/// True for null.
bool isAllMembersOnHiddenLayer(CFigContext* ctx, FigCompound* compound);

// --- corners, recomputed from the exact bounds of the members, the inner compounds first --

void recalculateCompoundBounds(CFigContext* ctx, FigObjectList* list);
/// Only those of the set.
void recalculateCompoundBounds(CFigContext* ctx, FigObjectList* list, QSet<FigCompound*>* parents);
/// The compounds around each object up to the top, nearest first, without duplicates.
void collectParentCompounds(CFigContext* ctx, FigObjectList* objects, QList<FigCompound*>* result);
/// After a change of objects beyond those that were moved themselves.
void recalculateCompoundBoundsOfParents(CFigContext* ctx, FigObjectList* objects);

/// Closes, without a redraw, until the working root is neither this list nor one inside it.
void closeCompoundsIn(CFigContext* ctx, FigCompound* compound);
