#include "edit/e_select.h"

#include "edit/command.h"
#include "edit/e_move.h"
#include "edit/e_movept_tool.h"
#include "edit/e_update.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/u_list.h"
#include "render/markers.h"

#include <algorithm>

namespace {

void startRegion(CFigContext* ctx, int x, int y)
{
    fix_x = cur_x = x;
    fix_y = cur_y = y;
    elastic_dottedbox(ctx, fix_x, fix_y, cur_x, cur_y);
    set_action_on();
    set_functions(nullptr, nullptr, capture_objects, nullptr, cancel_clipselect);
    canvas_leftbutUp_proc = tag_clip_region;
    elastic_proc = elastic_dottedbox;
}

void untag(CFigContext* ctx, FigObject* object)
{
    clearTaggedFlag(object);
    unmarkAllUntaggedObjects(ctx);
    ctx->curObject = nullptr;
}

void untagAll(CFigContext* ctx)
{
    set_tags(ctx->getWorkingRoot(), false);
    unmarkAllUntaggedObjects(ctx);
}

} // namespace

void select_selected(CFigContext*)
{
    set_functions(nullptr, nullptr, nullptr, init_tagging, cancel_clipselect);
    canvas_leftbutUp_proc = nullptr;
    reset_action_on();
    cur_command = CMD_SELECT;
    return_proc = select_selected;
}

FigObject* init_tagging(CFigContext* ctx, int x, int y, FigObject*)
{
    // A drag whose release went to another window is still on.
    if (canvas_locmove_proc2)
        cancel_objectdragging(ctx, x, y, nullptr);
    ctx->curObject = nullptr;
    cur_command = CMD_SELECT;
    if (!moreThanOneTaggedObject(ctx->getWorkingRoot())) {
        initPoint_searchproc_left(tagPointMovept_action);
        if (FigObject* found = point_search_left(ctx, x, y))
            return found;
    }
    init_searchproc_left(tag_action);
    FigObject* found = object_search_left(ctx, x, y, nullptr);
    if (!found)
        startRegion(ctx, x, y);
    else if (ctx->curObject)
        canvas_locmove_proc = init_object_dragging;
    return found;
}

bool tag_action(CFigContext* ctx, FigObject* object, int, int, int, int px, int py)
{
    if (!object) {
        if (!shift_down)
            untagAll(ctx);
        return false;
    }
    ctx->curObject = object;
    fix_x = cur_x = px;
    fix_y = cur_y = py;
    if (object->tagged && shift_down) {
        untag(ctx, object);
        return false;
    }
    if (!object->tagged && !shift_down)
        untagAll(ctx);
    tag_object(ctx, object, object->type, px, py, px, py);
    canvas_leftbutUp_proc = cancel_startdragging;
    FigObjectList tagged;
    getTaggedObjects(ctx->getWorkingRoot(), &tagged);
    showAttributesBar(ctx, &tagged);
    return true;
}

void cancel_startdragging(CFigContext* ctx, int, int)
{
    select_selected(ctx);
}

void tag_clip_region(CFigContext* ctx, int x, int y)
{
    elastic_dottedbox(ctx, fix_x, fix_y, cur_x, cur_y);
    tag_obj_in_region(ctx, std::min(fix_x, x), std::min(fix_y, y), std::max(fix_x, x),
                      std::max(fix_y, y));
    unmarkAllUntaggedObjects(ctx);
    showTaggedMarkers(ctx, nullptr);
    FigObjectList tagged;
    getTaggedObjects(ctx->getWorkingRoot(), &tagged);
    if (tagged.size() == 1)
        ctx->curObject = tagged.first();
    showAttributesBar(ctx, &tagged);
    select_selected(ctx);
}

void cancel_clipselect(CFigContext* ctx, int, int, FigObject*)
{
    // A point move that was refused has the gesture on, too, but no box to wipe.
    if (action_on && elastic_proc == elastic_dottedbox)
        elastic_dottedbox(ctx, fix_x, fix_y, cur_x, cur_y);
    deselect_all(ctx);
    shell_show_attributes_bar(ctx, nullptr);
    select_selected(ctx);
}

void getTaggedObjects(FigObjectList* list, FigObjectList* result)
{
    for (FigObject* object : qAsConst(*list))
        if (object->tagged)
            result->append(object);
}

void deselect_all(CFigContext* ctx)
{
    untagAll(ctx);
    ctx->curObject = nullptr;
    shell_comment_changed(false);
}
