#include "edit/e_clipboard.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_move.h"
#include "edit/e_select.h"
#include "edit/mode.h"
#include "edit/u_reshaping.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/colorFunctions.h"
#include "render/gfx_math.h"
#include "render/markers.h"
#include "render/u_bound.h"
#include "render/u_redraw.h"

#include <memory>

FigObjectList* clipObjects = nullptr;

namespace {

using Transaction = QList<ActionItem*>;

/// User colours of the document that the clipboard was filled from, and which document that was.
/// A paste into another one brings them over, so that nothing changes its colour on the way.
struct ClipPalette {
    QMap<int, QColor> colors;
    unsigned long documentNumber = 0;
};
ClipPalette clipPalette;
/// Colours that the preview of a paste has added to its document.
QList<int> colorsOfPreview;

void rememberPalette(const CFigContext* ctx)
{
    clipPalette.colors = ctx->userColors;
    clipPalette.documentNumber = ctx->documentNumber;
}

void bringColorsOver(CFigContext* ctx, FigObjectList* objects)
{
    if (ctx->documentNumber == clipPalette.documentNumber)
        return;
    const QMap<int, QColor> former = ctx->userColors;
    CFigContext palette;
    palette.userColors = clipPalette.colors;
    merge_colors(ctx, &palette, objects);
    for (int key : ctx->userColors.keys())
        if (!former.contains(key))
            colorsOfPreview.append(key);
    shell_update_colors(ctx);
}

void setClipboard(FigObjectList* objects)
{
    if (clipObjects)
        deleteObjectList(clipObjects);
    delete clipObjects;
    clipObjects = objects;
    applyFunction(clipObjects, clearTaggedFlag);
}

void deleteTagged(CFigContext* ctx, const FigObjectList& tagged)
{
    FigObjectList* root = ctx->getWorkingRoot();
    auto* transaction = new Transaction;
    for (FigObject* object : tagged)
        transaction->append(new DeleteAction(object, root));
    executeActions(ctx, transaction);
    ctx->undoQueue.addActionList(transaction);
}

FigObjectList taggedObjects(CFigContext* ctx)
{
    FigObjectList tagged;
    getTaggedObjects(ctx->getWorkingRoot(), &tagged);
    return tagged;
}

int middle(int from, int to)
{
    return static_cast<int>(from + (static_cast<long>(to) - from) / 2);
}

void clearMoveSlots()
{
    canvas_locmove_proc = nullptr;
    canvas_locmove_proc2 = nullptr;
}

void leavePaste()
{
    set_functions(nullptr, nullptr, nullptr, nullptr, nullptr);
    canvas_locmove_proc2 = nullptr;
    reset_action_on();
    switchCommand(previous_command);
}

/// Adds objects that are not in the document yet, moved to their place, as one undo step.
void addAsOneStep(CFigContext* ctx, const FigObjectList& objects, int dx, int dy)
{
    auto* transaction = new Transaction;
    for (FigObject* object : objects) {
        translate_object(ctx, object, dx, dy);
        auto* add = new AddAction(object, ctx->getWorkingRoot());
        add->execute(ctx);
        transaction->append(add);
    }
    applyFunction(&ctx->drawing.objects, clearIgnoreFlag);
    ctx->undoQueue.addActionList(transaction);
}

} // namespace

FigObjectList* cutTaggedOjects(CFigContext* ctx)
{
    auto* removed = new FigObjectList(taggedObjects(ctx));
    deleteTagged(ctx, *removed);
    return removed;
}

// All are cloned before any goes: the removal of a target takes the links to it off.
FigObjectList* cutCopyTaggedOjects(CFigContext* ctx)
{
    const FigObjectList tagged = taggedObjects(ctx);
    auto* clones = new FigObjectList;
    for (FigObject* object : tagged)
        clones->append(object->clone());
    deleteDanglingLinks(clones, clones, false);
    deleteTagged(ctx, tagged);
    return clones;
}

void cut_to_clipboard(CFigContext* ctx)
{
    if (action_on)
        return;
    setClipboard(cutCopyTaggedOjects(ctx));
    rememberPalette(ctx);
    ctx->curObject = nullptr;
    refresh_marked_area(ctx, clipObjects, true);
}

void copy_to_clipboard(CFigContext* ctx)
{
    if (action_on)
        return;
    FigObjectList tagged = taggedObjects(ctx);
    setClipboard(copyObjectsAndMaintainLinks(ctx, &tagged));
    rememberPalette(ctx);
}

bool isClipboardEmpty()
{
    return !clipObjects || clipObjects->isEmpty();
}

void clear_clipboard()
{
    if (clipObjects)
        deleteObjectList(clipObjects);
    delete clipObjects;
    clipObjects = nullptr;
    clipPalette = ClipPalette();
}

void clippaste_selected(CFigContext* ctx)
{
    abandonGesture(gestureContext);
    set_action_on();
    dropMovedObjects(ctx);
    ctx->movedObjects = copyObjectsAndMaintainLinks(ctx, clipObjects);
    bringColorsOver(ctx, ctx->movedObjects);
    set_functions(nullptr, nullptr, nullptr, placeClipOjects, cancel_clipdragging);
    canvas_leftbutUp_proc = nullptr;
    start_feedback();
    canvas_locmove_proc2 = elastic_moveobjects;
    int left, top, right, bottom;
    objectlist_bound(ctx, ctx->movedObjects, &left, &top, &right, &bottom, false, true, true);
    fix_x = middle(left, right);
    fix_y = middle(top, bottom);
    // The preview finds them there; depths are not counted yet.
    *ctx->getWorkingRoot() += *ctx->movedObjects;
}

FigObject* placeClipOjects(CFigContext* ctx, int x, int y, FigObject*)
{
    FigObjectList placed = ctx->movedObjects ? *ctx->movedObjects : FigObjectList();
    const bool keepSelected = previous_command == CMD_SELECT;
    removeObjects(ctx->getWorkingRoot(), &placed);
    dropMovedObjects(ctx); // no preview any more: the document has them now
    if (!placed.isEmpty()) {
        addAsOneStep(ctx, placed, saturatedDifference(x, fix_x), saturatedDifference(y, fix_y));
        refresh_obj_area(ctx, &placed, false);
        deleteObjectList(&oldElasticObjectList);
    }
    clearMoveSlots();
    colorsOfPreview.clear();
    leavePaste();
    // The switch of the tool has cleared all tags.
    if (keepSelected) {
        applyFunction(&placed, setTaggedFlag);
        // The switch has put the painter down, too.
        shell_refresh_obj_area(ctx, &placed, false);
    }
    return nullptr;
}

const QList<int>& previewColors()
{
    return colorsOfPreview;
}

void removePreviewColors(CFigContext* ctx)
{
    for (int key : qAsConst(colorsOfPreview))
        ctx->userColors.remove(key);
    colorsOfPreview.clear();
}

void discardPreviewed(CFigContext* ctx)
{
    if (!ctx->movedObjects)
        return;
    removeObjects(ctx->getWorkingRoot(), ctx->movedObjects);
    refresh_obj_area(ctx, &oldElasticObjectList, true);
    deleteObjectList(&oldElasticObjectList);
    deleteObjectList(ctx->movedObjects);
    dropMovedObjects(ctx);
}

void cancel_clipdragging(CFigContext* ctx, int, int, FigObject*)
{
    discardPreviewed(ctx);
    removePreviewColors(ctx);
    shell_update_colors(ctx);
    leavePaste();
}
