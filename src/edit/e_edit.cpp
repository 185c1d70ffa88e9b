#include "edit/e_edit.h"

#include "edit/command.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/markers.h"

void showEditDialog(CFigContext* ctx, FigObject* object)
{
    if (object && object->type == O_POLYLINE && object->sub_type == T_PICTURE)
        shell_edit_picture(ctx, static_cast<FigLine*>(object));
}

bool edit_object(CFigContext* ctx, FigObject* object, int, int, int, int, int)
{
    unmarkAllUntaggedObjects(ctx);
    if (!object) {
        shell_show_context_dialog(cur_command);
        return false;
    }
    object->tagged = true;
    ctx->curObject = object;
    showEditDialog(ctx, object);
    showPointMarker(ctx, object);
    return true;
}
