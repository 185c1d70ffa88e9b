// Tool for texts, and the editing of a text that is there.
#pragma once

class CFigContext;
class FigObject;
class FigText;

void text_drawing_selected(CFigContext* ctx);
FigObject* init_text_input(CFigContext* ctx, int x, int y, FigObject*);
/// Asks for a text and adds it with its base at (x, y). Null when nothing was typed.
FigText* createNewText(CFigContext* ctx, int x, int y);
/// Asks for another wording; a change is one undo step.
void editText(CFigContext* ctx, FigText* text);
