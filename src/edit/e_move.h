// Dragging the selection, and moving it by the arrow keys. A drag is one undo step; while it runs
// the document does not change.
#pragma once

#include "model/ObjectFunctions.h"

/// The first pointer move after a press on an object.
void init_object_dragging(CFigContext* ctx, int x, int y);
/// The release that ends a drag.
void translateTaggedOjects(CFigContext* ctx, int x, int y);
void cancel_objectdragging(CFigContext* ctx, int x, int y, FigObject*);
/// Moves the objects, which are in the working root, from fix to (x, y), with what is linked to
/// them, as one undo step; also for no move at all. Nothing for an empty or null list.
void placeTranslateObjects(CFigContext* ctx, FigObjectList* objects, int x, int y);
/// Moves the selection and redraws; an undo step of its own. Nothing without a selection.
void moveTaggedObjects(CFigContext* ctx, int dx, int dy);

/// The list of the gesture in progress is dropped; its objects are not.
void dropMovedObjects(CFigContext* ctx);
