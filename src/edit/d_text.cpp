#include "edit/d_text.h"

#include "edit/actions.h"
#include "edit/d_create.h"
#include "model/FigContext.h"
#include "model/shell.h"

void text_drawing_selected(CFigContext*)
{
    wait_for_first_point(init_text_input);
}

// The tool has no active state: a press asks for the text at once.
FigObject* init_text_input(CFigContext* ctx, int x, int y, FigObject*)
{
    ctx->curObject = nullptr;
    return createNewText(ctx, x, y);
}

FigText* createNewText(CFigContext* ctx, int x, int y)
{
    QString entered;
    if (!shell_enter_text(ctx, &entered) || entered.isEmpty())
        return nullptr;
    FigText* text = createTextFromCurrentAttrs(ctx, entered, x, y);
    add_created_object(ctx, text);
    return text;
}

void editText(CFigContext* ctx, FigText* text)
{
    QString wording = text->cstring;
    if (!shell_enter_text(ctx, &wording) || wording == text->cstring)
        return;
    shell_refresh_obj_area(ctx, text, true);
    auto* action = new EditTextAction(text, ctx->getWorkingRoot(), wording, text->cstring);
    action->execute(ctx);
    ctx->undoQueue.addAction(action);
    text->marked = 1;
    shell_refresh_obj_area(ctx, text, false);
}
