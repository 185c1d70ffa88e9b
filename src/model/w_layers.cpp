#include "model/w_layers.h"

#include "model/FigContext.h"
#include "model/shell.h"

#include <algorithm>
#include <iterator>

int defer_update_layers = 0;

namespace {

/// Holds back the layer panel while many depths change.
class DeferredPanel {
public:
    DeferredPanel() { ++defer_update_layers; }
    ~DeferredPanel() { --defer_update_layers; }
    DeferredPanel(const DeferredPanel&) = delete;
    DeferredPanel& operator=(const DeferredPanel&) = delete;
};

int validDepth(int depth)
{
    return std::clamp(depth, 0, MAX_DEPTH);
}

/// Counter of a type; null for compounds, which are not counted themselves.
int* counterOf(DepthCounts* counts, int type)
{
    switch (type) {
    case O_ARC:
        return &counts->arcs;
    case O_POLYLINE:
        return &counts->lines;
    case O_ELLIPSE:
        return &counts->ellipses;
    case O_SPLINE:
        return &counts->splines;
    case O_TEXT:
        return &counts->texts;
    default:
        return nullptr;
    }
}

/// True when the object is the first of its depth.
bool countIn(CFigContext* ctx, int type, int depth)
{
    const int index = validDepth(depth);
    int* counter = counterOf(&ctx->counts[index], type);
    if (!counter)
        return false;
    ++*counter;
    return ctx->object_depths[index]++ == 0;
}

/// True when the object was the last of its depth. No counter falls below 0.
bool countOut(CFigContext* ctx, int type, int depth)
{
    const int index = validDepth(depth);
    int* counter = counterOf(&ctx->counts[index], type);
    if (!counter)
        return false;
    *counter = std::max(*counter - 1, 0);
    int& objects = ctx->object_depths[index];
    if (objects == 0)
        return false;
    return --objects == 0;
}

using Count = bool (*)(CFigContext*, int type, int depth);

/// Counts all objects of a list; true when a depth was filled or emptied.
bool countList(CFigContext* ctx, const FigObjectList& list, Count count)
{
    bool changed = false;
    for (FigObject* object : list) {
        if (object->type == O_COMPOUND)
            changed |= countList(ctx, *static_cast<FigCompound*>(object)->objects, count);
        else
            changed |= count(ctx, object->type, object->depth);
    }
    return changed;
}

bool isUsed(int objects)
{
    return objects > 0;
}

void scanDepthLimits(CFigContext* ctx)
{
    const auto first = std::begin(ctx->object_depths);
    const auto last = std::end(ctx->object_depths);
    const auto smallest = std::find_if(first, last, isUsed);
    if (smallest == last) {
        ctx->min_depth = ctx->max_depth = -1;
        return;
    }
    const auto greatest =
        std::find_if(std::make_reverse_iterator(last), std::make_reverse_iterator(first), isUsed);
    ctx->min_depth = static_cast<int>(smallest - first);
    ctx->max_depth = static_cast<int>(greatest.base() - first) - 1;
}

void changeDepths(CFigContext* ctx, FigObjectList* list, Count count)
{
    if (!list)
        return;
    {
        DeferredPanel deferred;
        if (countList(ctx, *list, count))
            scanDepthLimits(ctx);
    }
    update_layers(ctx);
}

/// Whether an object on a depth that is shown could cover this depth.
bool isShallowerLayerActive(CFigContext* ctx, int depth)
{
    for (int shallower = ctx->min_depth; shallower < depth; ++shallower)
        if (ctx->object_depths[shallower] > 0 && ctx->active_layers[shallower])
            return true;
    return false;
}

void clearObjectCounts(DepthCounts* counts)
{
    counts->arcs = counts->lines = counts->ellipses = counts->splines = counts->texts = 0;
}

void clearDrawnCounts(DepthCounts* counts)
{
    counts->drawnArcs = counts->drawnLines = counts->drawnEllipses = 0;
    counts->drawnSplines = counts->drawnTexts = 0;
}

} // namespace

void add_depth(CFigContext* ctx, int type, int depth)
{
    if (countIn(ctx, type, depth))
        scanDepthLimits(ctx);
    update_layers(ctx);
}

void remove_depth(CFigContext* ctx, int type, int depth)
{
    if (countOut(ctx, type, depth))
        scanDepthLimits(ctx);
    update_layers(ctx);
}

void add_depth(CFigContext* ctx, FigObjectList* list)
{
    changeDepths(ctx, list, countIn);
}

void remove_depth(CFigContext* ctx, FigObjectList* list)
{
    changeDepths(ctx, list, countOut);
}

void add_compound_depth(CFigContext* ctx, FigCompound* compound)
{
    add_depth(ctx, compound->objects);
}

void remove_compound_depth(CFigContext* ctx, FigCompound* compound)
{
    remove_depth(ctx, compound->objects);
}

void set_depths(CFigContext* ctx)
{
    reset_depths(ctx);
    for (DepthCounts& counts : ctx->counts)
        clearObjectCounts(&counts);
    add_depth(ctx, &ctx->drawing.objects);
}

void reset_layers(CFigContext* ctx)
{
    std::fill(std::begin(ctx->active_layers), std::end(ctx->active_layers), true);
}

void reset_depths(CFigContext* ctx)
{
    std::fill(std::begin(ctx->object_depths), std::end(ctx->object_depths), 0);
    ctx->min_depth = ctx->max_depth = -1;
}

void update_layers(CFigContext* ctx)
{
    if (defer_update_layers != 0)
        return;
    // The layers of an off-screen figure are nobody's panel.
    if (!ctx || ctx->chFrm)
        shell_draw_layer_buttons(ctx);
}

void toggle_layer(CFigContext* ctx, int depth, bool on)
{
    if (ctx->min_depth < 0 || depth < ctx->min_depth || depth > ctx->max_depth)
        return;
    ctx->active_layers[depth] = on;
    if (!on || isShallowerLayerActive(ctx, depth)) {
        shell_redisplay_canvas(ctx->chFrm);
        return;
    }
    clearcounts(ctx);
    shell_redisplay_object_list(ctx->chFrm, &ctx->drawing.objects, depth);
}

void save_active_layers(CFigContext* ctx)
{
    std::copy(std::begin(ctx->active_layers), std::end(ctx->active_layers),
              ctx->saved_active_layers);
}

void restore_active_layers(CFigContext* ctx)
{
    std::copy(std::begin(ctx->saved_active_layers), std::end(ctx->saved_active_layers),
              ctx->active_layers);
}

void save_depths(CFigContext* ctx)
{
    std::copy(std::begin(ctx->object_depths), std::end(ctx->object_depths), ctx->saved_depths);
    ctx->saved_min_depth = ctx->min_depth;
    ctx->saved_max_depth = ctx->max_depth;
}

void restore_depths(CFigContext* ctx)
{
    std::copy(std::begin(ctx->saved_depths), std::end(ctx->saved_depths), ctx->object_depths);
    ctx->min_depth = ctx->saved_min_depth;
    ctx->max_depth = ctx->saved_max_depth;
    update_layers(ctx);
}

void save_counts(CFigContext* ctx)
{
    std::copy(std::begin(ctx->counts), std::end(ctx->counts), ctx->saved_counts);
}

void restore_counts(CFigContext* ctx)
{
    std::copy(std::begin(ctx->saved_counts), std::end(ctx->saved_counts), ctx->counts);
}

void save_counts_and_clear(CFigContext* ctx)
{
    save_counts(ctx);
    clearallcounts(ctx);
}

void clearcounts(CFigContext* ctx)
{
    for (DepthCounts& counts : ctx->counts)
        clearDrawnCounts(&counts);
}

void clearallcounts(CFigContext* ctx)
{
    std::fill(std::begin(ctx->counts), std::end(ctx->counts), DepthCounts());
}

bool isOnActiveLayer(const CFigContext* ctx, const FigObject* object)
{
    return ctx->active_layers[std::clamp(object->depth, 0, MAX_DEPTH)];
}

bool any_active_in_compound(CFigContext* ctx, FigCompound* compound)
{
    for (FigObject* object : qAsConst(*compound->objects)) {
        const bool active = object->type == O_COMPOUND
                                ? any_active_in_compound(ctx, static_cast<FigCompound*>(object))
                                : ctx->active_layers[validDepth(object->depth)];
        if (active)
            return true;
    }
    return false;
}
