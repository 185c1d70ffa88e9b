// Opening the dialog of an object.
#pragma once

class CFigContext;
class FigObject;

/// The dialog of a picture. Other objects have theirs in the panels.
void showEditDialog(CFigContext* ctx, FigObject* object);
/// Handler: selects the object and shows its dialog; for null the panel of the command in force.
bool edit_object(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);
