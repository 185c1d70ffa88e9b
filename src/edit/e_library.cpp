#include "edit/e_library.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_move.h"
#include "edit/mode.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/w_layers.h"
#include "render/colorFunctions.h"
#include "render/coords.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/markers.h"
#include "render/u_bound.h"
#include "render/u_redraw.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <memory>

CFigContext* curLibDrawing = nullptr;
QPixmap* dragBitmap = nullptr;
QPixmap* backupBitmap = nullptr;
int off_library_x = 0;
int off_library_y = 0;

namespace {

constexpr int DRAW_PICTURE = 3;
constexpr int RESTORE_CANVAS = 4;
constexpr int largestPicture = 8000; ///< pixels a side

int pixels(float length)
{
    return std::clamp(round2(length), 0, largestPicture - 2);
}

void makeDragBitmap(CFigContext* library, int width, int height)
{
    delete dragBitmap;
    dragBitmap = new QPixmap(width, height);
    dragBitmap->fill(Qt::transparent);
    createFIGBitmap(library, dragBitmap, width, height);
}

/// Where the picture's upper left corner goes, in figure units.
int placeX()
{
    return saturatedDifference(cur_x, off_library_x / 2);
}

int placeY()
{
    return saturatedDifference(cur_y, off_library_y / 2);
}

void clearSlots()
{
    set_functions(nullptr, nullptr, nullptr, nullptr, nullptr);
    canvas_locmove_proc2 = nullptr;
}

void addAsOneStep(CFigContext* ctx, const FigObjectList& objects)
{
    auto* transaction = new QList<ActionItem*>;
    for (FigObject* object : objects) {
        auto* add = new AddAction(object, ctx->getWorkingRoot());
        add->execute(ctx);
        transaction->append(add);
    }
    ctx->undoQueue.addActionList(transaction);
    ctx->setModifiedflag();
}

} // namespace

void put_selected(CFigContext* ctx, CFigContext* library)
{
    abandonGesture(gestureContext);
    if (!library || library->drawing.objects.isEmpty())
        return;
    previous_command = cur_command;
    curLibDrawing = library;
    set_action_on();
    int left, top, right, bottom;
    objectlist_bound(library, &library->drawing.objects, &left, &top, &right, &bottom, false, true,
                     true);
    makeDragBitmap(library, pixels(scaledX(ctx, saturatedDifference(right, left))) + 1,
                   pixels(scaledY(ctx, saturatedDifference(bottom, top))) + 1);
    delete backupBitmap;
    backupBitmap = new QPixmap(QPixmap::fromImage(shell_canvas_image(ctx->chFrm)));
    dropMovedObjects(ctx);
    ctx->movedObjects = copyObjectsAndMaintainLinks(ctx, &library->drawing.objects);
    add_depth(ctx, ctx->movedObjects);
    off_library_x = right;
    off_library_y = bottom;
    set_functions(nullptr, nullptr, init_move_object, place_lib_object, cancel_place_lib_obj);
    canvas_locmove_proc2 = nullptr;
    canvas_leftbutUp_proc = nullptr;
}

void put_draw(CFigContext* ctx, int mode)
{
    if (!ctx->painter || !dragBitmap || !backupBitmap)
        return;
    const int x = round2(scaledX(ctx, placeX())) - ctx->shiftX;
    const int y = round2(scaledY(ctx, placeY())) - ctx->shiftY;
    ctx->painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (mode == DRAW_PICTURE) {
        ctx->painter->drawPixmap(x, y, *dragBitmap);
    } else if (mode == RESTORE_CANVAS) {
        const QRect covered(x, y, pixels(scaledX(ctx, off_library_x)) + 2,
                            pixels(scaledY(ctx, off_library_y)) + 2);
        ctx->painter->drawPixmap(covered.topLeft(), *backupBitmap, covered);
    }
}

void init_move_object(CFigContext* ctx, int x, int y)
{
    cur_x = x;
    cur_y = y;
    put_draw(ctx, DRAW_PICTURE);
    canvas_locmove_proc = move_object;
}

void move_object(CFigContext* ctx, int x, int y)
{
    put_draw(ctx, RESTORE_CANVAS);
    cur_x = x;
    cur_y = y;
    put_draw(ctx, DRAW_PICTURE);
}

FigObject* place_lib_object(CFigContext* ctx, int x, int y, FigObject*)
{
    clearSlots();
    if (ctx->movedObjects && curLibDrawing) {
        merge_colors(ctx, curLibDrawing, ctx->movedObjects);
        shell_update_colors(ctx);
        put_draw(ctx, RESTORE_CANVAS);
        cur_x = x;
        cur_y = y;
        FigObjectList placed = *ctx->movedObjects;
        translate_object_list(ctx, &placed, placeX(), placeY());
        remove_depth(ctx, &placed);
        dropMovedObjects(ctx); // from here on they are counted as the document's
        addAsOneStep(ctx, placed);
        refresh_obj_area(ctx, &placed, false);
    }
    curLibDrawing = nullptr;
    dropMovedObjects(ctx);
    show_pointmarker(ctx);
    reset_action_on();
    switchCommand(previous_command);
    return nullptr;
}

void discard_library_objects(CFigContext* ctx)
{
    curLibDrawing = nullptr;
    if (!ctx->movedObjects)
        return;
    remove_depth(ctx, ctx->movedObjects);
    deleteObjectList(ctx->movedObjects);
    dropMovedObjects(ctx);
}

void cancel_place_lib_obj(CFigContext* ctx, int, int, FigObject*)
{
    reset_action_on();
    clearSlots();
    put_draw(ctx, RESTORE_CANVAS);
    discard_library_objects(ctx);
    switchCommand(previous_command);
}

void destroyDragBitmaps()
{
    delete dragBitmap;
    dragBitmap = nullptr;
    delete backupBitmap;
    backupBitmap = nullptr;
}
