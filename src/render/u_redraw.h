// Full and partial redraw: which objects are drawn, in which order, clipped to what.
#pragma once

#include "model/ObjectFunctions.h"

class CFigContext;
class StillObjects;

/// Full redraw of the document's window; nothing without window or painter.
void redisplay_canvas(CFigContext* ctx);
/// The same for a canvas of that size in pixels. Needs only a painter, so it serves tools too.
void redisplay_viewport(CFigContext* ctx, int width, int height);
/// All objects, ignore flags cleared first, without background.
void redisplay_objects(CFigContext* ctx);
/// Depth loop, from max_depth down to 0. The last argument is not read.
void redisplay_objects(CFigContext* ctx, FigObjectList* list, FigObject* exclude, bool unused);
/// One depth of a list, compounds entered.
void redisplay_object_list(CFigContext* ctx, FigObjectList* list, int depth, FigObject* exclude);
/// Two boxes, each grown by four pixels at zoom 1; touching counts.
bool check_overlap(CFigContext* ctx, int ax1, int ay1, int ax2, int ay2, int bx1, int by1, int bx2,
                   int by2);
bool check_overlap(CFigContext* ctx, FigObject* object, int x1, int y1, int x2, int y2);
/// Sets the ignore flags for a redraw of the box.
void select_redisplay_objects(CFigContext* ctx, FigObject* object, bool ignoreIt, int x1, int y1,
                              int x2, int y2);
void select_redisplay_objects(CFigContext* ctx, FigObjectList* list, bool ignoreThem, int x1,
                              int y1, int x2, int y2);
void refresh_area(CFigContext* ctx, int x1, int y1, int x2, int y2, FigObject* object,
                  bool exclude);
void refresh_area(CFigContext* ctx, int x1, int y1, int x2, int y2, FigObjectList* list,
                  bool exclude);
void refresh_obj_area(CFigContext* ctx, FigObject* object, bool exclude);
void refresh_obj_area(CFigContext* ctx, FigObjectList* list, bool exclude);
/// Around two objects; c is excluded.
void refresh_obj_area(CFigContext* ctx, FigObject* a, FigObject* b, FigObject* c);
void refresh_obj_area(CFigContext* ctx, FigObjectList* a, FigObjectList* b, FigObject* c);
void refresh_obj_area(CFigContext* ctx, FigObjectList* a, FigObject* b, FigObject* c);
/// Around two lists, while all but the moving objects stay as they were noted.
void refresh_obj_area(CFigContext* ctx, FigObjectList* a, FigObjectList* b, StillObjects* still,
                      const FigObjectList& moving);
