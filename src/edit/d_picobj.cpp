#include "edit/d_picobj.h"

#include "edit/actions.h"
#include "edit/d_create.h"
#include "edit/e_links.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/coords.h"
#include "render/gfx_math.h"

namespace {

/// Way of the third corner that gives its side the wanted length.
int growth(int wanted, int first, int third)
{
    const int way = saturatedDifference(wanted, axisDistance(first, third));
    return third > first ? way : saturatedDifference(0, way);
}

} // namespace

void picobj_drawing_selected(CFigContext*)
{
    wait_for_first_point(init_picobj_drawing);
}

// The outlines of this tool do not all match: the first one and the wipe of the finish are solid,
// the moves and the wipe of a cancel are dotted. What remains goes with the next refresh.
FigObject* init_picobj_drawing(CFigContext* ctx, int x, int y, FigObject*)
{
    begin_gesture(ctx, x, y, resizing_dottedbox, create_picobj, cancel_picobj);
    show_rubber_band(ctx, elastic_box);
    return nullptr;
}

FigObject* create_picobj(CFigContext* ctx, int x, int y, FigObject*)
{
    draw_rubber_band(ctx, elastic_box);
    canvas_locmove_proc = nullptr;
    reset_action_on(); // a redraw under the dialog repeats no outline
    FigLine* picture = createPicFromCurrentAttrs(ctx);
    // Down the left side first, unlike a box.
    picture->points = make_chain({{fix_x, fix_y}, {fix_x, y}, {x, y}, {x, fix_y}, {fix_x, fix_y}});
    get_box_dimension_scale_down(ctx, picture, &picture->pic->size_x, &picture->pic->size_y);
    add_created_object(ctx, picture);
    shell_edit_picture(ctx, picture);
    picobj_drawing_selected(ctx);
    return picture;
}

void cancel_picobj(CFigContext* ctx, int, int, FigObject*)
{
    draw_rubber_band(ctx, elastic_dottedbox);
    picobj_drawing_selected(ctx);
}

// --- the size of a picture -----------------------------------------------------------------

void get_box_dimension(FigLine* picture, int* width, int* height)
{
    const FigPoint* first = picture->getPoint(0);
    const FigPoint* third = picture->getPoint(2);
    *width = first && third ? axisDistance(first->x, third->x) : 0;
    *height = first && third ? axisDistance(first->y, third->y) : 0;
}

void get_box_dimension_scale_down(CFigContext* ctx, FigLine* picture, int* width, int* height)
{
    const FigPoint* first = picture->getPoint(0);
    const FigPoint* third = picture->getPoint(2);
    *width = first && third ? axisDistance(pixelX(ctx, first->x), pixelX(ctx, third->x)) : 0;
    *height = first && third ? axisDistance(pixelY(ctx, first->y), pixelY(ctx, third->y)) : 0;
}

void resizePic(CFigContext* ctx, FigLine* picture, int width, int height)
{
    const FigPoint* first = picture->getPoint(0);
    FigPoint* third = picture->getPoint(2);
    if (!third)
        return;
    auto* action = new MoveLinePointAction;
    action->object = picture;
    action->workingList = ctx->getWorkingRoot();
    action->point = third;
    action->dx = growth(width, first->x, third->x);
    action->dy = growth(height, first->y, third->y);
    action->connect = 1;
    collectWorkingObjects4MovePoint(action->workingList, picture, &action->refreshObjects);
    action->execute(ctx);
    if (isInList(&ctx->drawing.objects, picture, false)) {
        ctx->undoQueue.addAction(action);
        return;
    }
    // Not part of the document yet: a step about it would outlive it.
    action->disposeAsUndo();
    delete action;
}
