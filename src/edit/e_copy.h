// The copy tool: a click takes a copy of an object, the next one puts it down; and so on.
#pragma once

class CFigContext;
class FigObject;

void copy_selected(CFigContext* ctx);
/// Handler: the copy follows the pointer.
bool init_copy(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);
FigObject* place_copy_object(CFigContext* ctx, int x, int y, FigObject*);
void cancel_copy_object(CFigContext* ctx, int x, int y, FigObject*);
