// Placing a drawing of the library: its picture follows the pointer, a click puts its objects
// there as one undo step.
#pragma once

#include "model/ObjectFunctions.h"

class QPixmap;

extern CFigContext* curLibDrawing;       ///< the drawing that is being placed, or null; not owned
extern QPixmap* dragBitmap;              ///< its picture; owned here
extern QPixmap* backupBitmap;            ///< the canvas without it; owned here
extern int off_library_x, off_library_y; ///< its right and lower bound, figure units

/// Starts the gesture. Nothing for a library drawing without objects.
void put_selected(CFigContext* ctx, CFigContext* library);
/// Mode 3 draws the picture around cur, mode 4 puts the canvas back there.
void put_draw(CFigContext* ctx, int mode);
void init_move_object(CFigContext* ctx, int x, int y);
void move_object(CFigContext* ctx, int x, int y);
FigObject* place_lib_object(CFigContext* ctx, int x, int y, FigObject*);
void cancel_place_lib_obj(CFigContext* ctx, int x, int y, FigObject*);
/// Takes the depths of the objects off the document again and deletes them; the gesture is over.
void discard_library_objects(CFigContext* ctx);
void destroyDragBitmaps();
