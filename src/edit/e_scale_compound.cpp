#include "edit/e_scale_compound.h"

#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_links.h"
#include "edit/mode.h"
#include "edit/u_reshaping.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/gfx_math.h"
#include "render/u_redraw.h"

#include <cmath>

int side = 0;
double cosa = 0;
double sina = 0;

namespace {

enum Side { LEFT_EDGE, TOP_EDGE, RIGHT_EDGE, BOTTOM_EDGE, CORNER };

void fixAt(int fixedX, int fixedY, int movingX, int movingY)
{
    fix_x = fixedX;
    fix_y = fixedY;
    cur_x = movingX;
    cur_y = movingY;
}

/// (x, y) is the corner that was hit; the opposite one stays.
void grabCorner(const FigCompound* compound, int x, int y)
{
    const FigPoint &first = compound->nwcorner, &second = compound->secorner;
    side = CORNER;
    fixAt(x != first.x ? first.x : second.x, y != first.y ? first.y : second.y, x, y);
    const double dx = static_cast<double>(cur_x) - fix_x, dy = static_cast<double>(cur_y) - fix_y;
    const double length = std::sqrt(dx * dx + dy * dy);
    cosa = length == 0 ? 0 : std::abs(dx) / length;
    sina = length == 0 ? 0 : std::abs(dy) / length;
}

/// The moving point is a corner of the box, not the pointer. False for a hit on no edge exactly.
bool grabEdge(const FigCompound* compound, int x, int y)
{
    const FigPoint &first = compound->nwcorner, &second = compound->secorner;
    if (x == first.x || y == first.y) {
        side = x == first.x ? LEFT_EDGE : TOP_EDGE;
        fixAt(second.x, second.y, first.x, first.y);
        return true;
    }
    if (x == second.x || y == second.y) {
        side = x == second.x ? RIGHT_EDGE : BOTTOM_EDGE;
        fixAt(first.x, first.y, second.x, second.y);
        return true;
    }
    return false;
}

FigCompound* grabCompound(CFigContext* ctx, int x, int y)
{
    const int tolerance = searchTolerance(ctx);
    int px, py, number;
    if (FigCompound* compound =
            compound_point_search(ctx, nullptr, x, y, tolerance, &px, &py, &number)) {
        grabCorner(compound, px, py);
        return compound;
    }
    FigCompound* compound = compound_search(ctx, x, y, tolerance, &px, &py);
    return compound && grabEdge(compound, px, py) ? compound : nullptr;
}

int stretched(int fixed, int to, double length)
{
    const long step = round2(length);
    return saturatedInt(to < fixed ? fixed - step : fixed + step);
}

void restart(CFigContext* ctx)
{
    delete ctx->movedObjects;
    ctx->movedObjects = nullptr;
    deleteObjectList(&oldElasticObjectList);
    scale_compound_selected(ctx);
}

} // namespace

void scale_compound_selected(CFigContext*)
{
    set_functions(nullptr, nullptr, nullptr, init_scale_compound, nullptr);
    canvas_locmove_proc2 = nullptr;
    canvas_leftbutUp_proc = nullptr;
    reset_action_on();
}

FigObject* init_scale_compound(CFigContext* ctx, int x, int y, FigObject*)
{
    FigCompound* compound = grabCompound(ctx, x, y);
    if (!compound)
        return nullptr;
    ctx->curObject = compound;
    fromx = cur_x;
    fromy = cur_y;
    delete ctx->movedObjects;
    ctx->movedObjects = new FigObjectList{compound};
    start_feedback();
    cloneObjects(ctx->movedObjects, &oldElasticObjectList);
    set_functions(nullptr, nullptr, nullptr, nullptr, cancel_scale_compound);
    canvas_locmove_proc2 = elastic_scaleobjects;
    canvas_leftbutUp_proc = fix_scalecompound;
    set_action_on();
    return compound;
}

void compute_adjustposition(int x, int y)
{
    if (side == LEFT_EDGE || side == RIGHT_EDGE) {
        cur_x = x;
    } else if (side == TOP_EDGE || side == BOTTOM_EDGE) {
        cur_y = y;
    } else {
        const double dx = static_cast<double>(x) - fix_x, dy = static_cast<double>(y) - fix_y;
        const double length = std::sqrt(dx * dx + dy * dy);
        cur_x = stretched(fix_x, x, length * cosa);
        cur_y = stretched(fix_y, y, length * sina);
    }
}

// With snapping to the grid edges and corners are free, and nothing is in proportion.
void moveScaledEnd(int x, int y)
{
    if (gridPreferences.snapMode & SNAP_GRID) {
        cur_x = x;
        cur_y = y;
    } else {
        compute_adjustposition(x, y);
    }
}

float scaleFactor(int fixed, int from, int to)
{
    if (from == fixed)
        return 1.0f;
    return static_cast<float>(static_cast<long>(to) - fixed) /
           static_cast<float>(static_cast<long>(from) - fixed);
}

void fix_scalecompound(CFigContext* ctx, int x, int y)
{
    FigObject* compound = ctx->curObject;
    if (compound) {
        moveScaledEnd(x, y);
        auto* scale = new ScaleAction;
        scale->workingList = ctx->getWorkingRoot();
        scale->objects.append(compound);
        collectWorkingObjects4Translate(scale->workingList, compound, &scale->workingObjects);
        scale->refreshObjects = scale->workingObjects;
        scale->xfactor = scaleFactor(fix_x, fromx, cur_x);
        scale->yfactor = scaleFactor(fix_y, fromy, cur_y);
        scale->cx = fix_x;
        scale->cy = fix_y;
        scale->execute(ctx);
        ctx->undoQueue.addAction(scale);
        show_real_objects(ctx, scale->objects);
    } else {
        refresh_obj_area(ctx, &oldElasticObjectList, true);
    }
    restart(ctx);
}

void cancel_scale_compound(CFigContext* ctx, int, int, FigObject*)
{
    elastic_scaleobjects(ctx, ctx->movedObjects, fromx, fromy);
    // Scaled by 1 an arc finds its centre anew, a circle its kind: the objects themselves show.
    if (ctx->movedObjects)
        show_real_objects(ctx, *ctx->movedObjects);
    restart(ctx);
}
