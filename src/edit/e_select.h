// The select tool, the resting state of the editor: tagging by click and by region. A press on a
// point starts the move of that point, a press on an object may become a drag. All ways out of
// its gestures end in select_selected.
#pragma once

#include "model/ObjectFunctions.h"

/// Idle state. Touches neither the toolbar nor canvas_locmove_proc2.
void select_selected(CFigContext* ctx);
/// The left press: a point, an object, or the corner of a region.
FigObject* init_tagging(CFigContext* ctx, int x, int y, FigObject*);
/// Handler: selects the object, or adds and removes it with Shift held. True if it is selected.
bool tag_action(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);
/// A release without a move after a press on an object.
void cancel_startdragging(CFigContext* ctx, int x, int y);
/// The release that ends a region: changes the tags of what lies wholly inside.
void tag_clip_region(CFigContext* ctx, int x, int y);
/// The right button: nothing is selected any more.
void cancel_clipselect(CFigContext* ctx, int x, int y, FigObject*);

/// Appends the tagged objects of list, in list order.
void getTaggedObjects(FigObjectList* list, FigObjectList* result);
/// Selects nothing, wipes the markers and tells the panels.
void deselect_all(CFigContext* ctx);
