#include "edit/preview.h"

#include "edit/command.h"
#include "edit/e_clipboard.h"
#include "edit/e_copy.h"
#include "model/FigContext.h"

// The procedures tell them: the command may have been changed already.
bool movesPreviewCopies()
{
    return canvas_leftbut_proc == placeClipOjects || canvas_leftbut_proc == place_copy_object;
}

PreviewAside::PreviewAside(CFigContext* ctx)
    : owner(movesPreviewCopies() && ctx->movedObjects ? ctx : nullptr)
{
    if (!owner)
        return;
    root = owner->getWorkingRoot();
    objects = *root;
    colors = owner->userColors;
    removeObjects(root, owner->movedObjects);
    for (int key : previewColors())
        owner->userColors.remove(key);
}

PreviewAside::~PreviewAside()
{
    if (!owner)
        return;
    *root = objects;
    owner->userColors = colors;
}
