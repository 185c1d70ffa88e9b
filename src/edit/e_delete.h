// The delete tool: a click removes an object.
#pragma once

class CFigContext;
class FigObject;

void delete_selected(CFigContext* ctx);
/// Handler; always false.
bool init_delete(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);
