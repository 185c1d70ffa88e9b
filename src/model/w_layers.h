// Depth counters and layers of a document.
// The depth table counts the non-compound objects of the whole drawing, at every level.
#pragma once

#include "model/ObjectFunctions.h"

class CFigContext;

/// While not 0, update_layers does nothing. Raised and lowered by bulk updates and the reader.
extern int defer_update_layers;

void add_depth(CFigContext* ctx, int type, int depth);
void remove_depth(CFigContext* ctx, int type, int depth);
void add_depth(CFigContext* ctx, FigObjectList* list);
void remove_depth(CFigContext* ctx, FigObjectList* list);
void add_compound_depth(CFigContext* ctx, FigCompound* compound);
void remove_compound_depth(CFigContext* ctx, FigCompound* compound);
/// Counts the whole drawing anew.
void set_depths(CFigContext* ctx);
void reset_layers(CFigContext* ctx);
void reset_depths(CFigContext* ctx);
/// Redraws the layer panel unless deferred. Null blanks it; a context without window is skipped.
void update_layers(CFigContext* ctx);
void toggle_layer(CFigContext* ctx, int depth, bool on);
void save_active_layers(CFigContext* ctx);
void restore_active_layers(CFigContext* ctx);
void save_depths(CFigContext* ctx);
void restore_depths(CFigContext* ctx);
void save_counts(CFigContext* ctx);
void restore_counts(CFigContext* ctx);
void save_counts_and_clear(CFigContext* ctx);
/// Zeroes what the last redraw counted, or all ten counters of each depth.
void clearcounts(CFigContext* ctx);
void clearallcounts(CFigContext* ctx);
/// Whether the layer of an object that is no compound is shown.
bool isOnActiveLayer(const CFigContext* ctx, const FigObject* object);
bool any_active_in_compound(CFigContext* ctx, FigCompound* compound);
