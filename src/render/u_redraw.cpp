#include "render/u_redraw.h"

#include "edit/command.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/shell.h"
#include "render/coords.h"
#include "render/depth_walk.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/grid.h"
#include "render/markers.h"
#include "render/redraw_area.h"
#include "render/still_objects.h"
#include "render/u_bound.h"
#include "render/u_bound_box.h"

#include <QPainter>

#include <cstdlib>

namespace {

// --- margins, figure units -----------------------------------------------------

int marginX(const CFigContext* ctx, float pixels)
{
    return round2(pixels * (1200.0f / ctx->ppiX));
}

int marginY(const CFigContext* ctx, float pixels)
{
    return round2(pixels * (1200.0f / ctx->ppiY));
}

int compoundExtra(const CFigContext* ctx)
{
    return round2((1200.0f / ctx->ppiY) / ctx->zoom * 4.0f);
}

// --- what a redraw consists of -----------------------------------------------------

bool canPaint(const CFigContext* ctx)
{
    return ctx->painter && ctx->painter->isActive();
}

/// The feedback of a gesture comes before the objects, so that wiping it later finds its pixels
/// wherever no object covers them. They are those of the pointer moves: smooth only for the
/// commands that have it so.
void replayFeedback(CFigContext* ctx)
{
    if (!action_on)
        return;
    const bool smooth = ctx->painter->testRenderHint(QPainter::Antialiasing);
    ctx->painter->setRenderHint(QPainter::Antialiasing, smooth && useAntialiasing(cur_command));
    if (cur_command == CMD_SCALE_COMPOUND)
        elastic_box(ctx, fix_x, fix_y, cur_x, cur_y);
    if (elastic_proc)
        elastic_proc(ctx, fix_x, fix_y, cur_x, cur_y);
    ctx->painter->setRenderHint(QPainter::Antialiasing, smooth);
}

unsigned long numRedraws = 0;

QPoint pixelOf(CFigContext* ctx, int x, int y)
{
    return QPoint(pixelX(ctx, x), pixelY(ctx, y));
}

/// Sets the ignore flags of an object of the top level, and notes it if it has markers: one walk
/// does both and draws.
template <class Flagger> auto flagAndNote(const Flagger& flagger, FigObjectList* marked)
{
    return [&flagger, marked](FigObject* object) {
        flagger(object);
        if (object->marked != 0)
            marked->append(object);
    };
}

/// Of the drawing's top level only those are given that have markers. The list or object without
/// them gives the form of refresh_pointmarker.
template <class Unmarked>
void showMarkers(CFigContext* ctx, const FigObjectList& marked, Unmarked* unmarked)
{
    if (ctx->getWorkingRoot() == &ctx->drawing.objects)
        refresh_pointmarker(ctx, marked, unmarked);
    else
        refresh_pointmarker(ctx, unmarked);
}

/// Background, grid, objects and markers within a rectangle of the canvas. Leaves no clip behind.
template <class Unmarked, class Flagger>
void repaintClipped(CFigContext* ctx, const QRect& clip, const QPoint& from, const QPoint& to,
                    FigObject* exclude, Unmarked* unmarked, const Flagger& flagger)
{
    ++numRedraws;
    ctx->painter->setClipRect(clip, Qt::ReplaceClip);
    paintGround(ctx, from, to);
    const SeenArea area(ctx, clip.normalized());
    FigObjectList marked;
    drawByDepth(ctx, ctx->drawing.objects, exclude, &area, nullptr, flagAndNote(flagger, &marked));
    showMarkers(ctx, marked, unmarked);
    ctx->painter->setClipRect(clip, Qt::NoClip);
}

void clearFlags(FigObject* object)
{
    clearIgnoreFlag(object);
    if (object->type == O_COMPOUND)
        applyFunction(static_cast<FigCompound*>(object)->objects, clearIgnoreFlag);
}

/// Objects and markers of a full redraw.
void drawAllObjects(CFigContext* ctx)
{
    const QPaintDevice* device = ctx->painter->device();
    const SeenArea area(ctx, QRect(0, 0, device->width(), device->height()));
    FigObject* const none = nullptr;
    FigObjectList marked;
    {
        WholeClip clip(ctx->painter);
        drawByDepth(ctx, ctx->drawing.objects, none, &area, &clip,
                    flagAndNote(clearFlags, &marked));
    }
    showMarkers(ctx, marked, none);
}

// --- what touches a box --------------------------------------------------------------

struct DamagedBox {
    int x1, y1, x2, y2;
};

bool overlaps(CFigContext* ctx, FigObject* object, const DamagedBox& box)
{
    return mayTouchBox(ctx, object, box.x1, box.y1, box.x2, box.y2) &&
           check_overlap(ctx, object, box.x1, box.y1, box.x2, box.y2);
}

/// Sets the members' flags on its way: a large compound is walked once, not twice. Every member is
/// looked at, for exact bounds bring the metrics of texts up to date.
template <class IsLeftOut>
bool anyMemberOverlaps(CFigContext* ctx, const FigCompound* compound, IsLeftOut isLeftOut,
                       const DamagedBox& box)
{
    bool any = false;
    for (FigObject* member : qAsConst(*compound->objects)) {
        member->ignore = isLeftOut(member);
        any = (member->type == O_COMPOUND
                   ? anyMemberOverlaps(ctx, static_cast<FigCompound*>(member), isLeftOut, box)
                   : overlaps(ctx, member, box)) ||
              any;
    }
    return any;
}

/// A compound overlaps when one of its members does. Exact bounds of all of them are only needed
/// when none does, for the box may lie between them.
template <class IsLeftOut>
bool touches(CFigContext* ctx, FigObject* object, IsLeftOut isLeftOut, const DamagedBox& box)
{
    return (object->type == O_COMPOUND &&
            anyMemberOverlaps(ctx, static_cast<FigCompound*>(object), isLeftOut, box)) ||
           overlaps(ctx, object, box);
}

/// Flags an object of the top level. Members go by their compound, but for those that are asked to
/// be ignored: what is wiped inside an open compound is not drawn with the rest of it.
template <class IsMember> class Flagger {
public:
    Flagger(CFigContext* context, IsMember isMemberOf, bool ignoreMembers,
            const DamagedBox& damagedBox)
        : ctx(context), isMember(isMemberOf), ignoreMember(ignoreMembers), box(damagedBox)
    {
    }

    void operator()(FigObject* object) const
    {
        if (!isMember(object)) {
            const auto isLeftOut = [this](FigObject* member) {
                return ignoreMember && isMember(member);
            };
            object->ignore = !touches(ctx, object, isLeftOut, box);
            return;
        }
        if (object->type == O_COMPOUND)
            applyFunction(static_cast<FigCompound*>(object)->objects, clearIgnoreFlag);
        object->ignore = ignoreMember;
    }

private:
    CFigContext* ctx;
    IsMember isMember;
    bool ignoreMember;
    DamagedBox box;
};

auto flaggerWith(CFigContext* ctx, FigObject* object, bool ignoreIt, const DamagedBox& box)
{
    return Flagger(
        ctx, [object](FigObject* candidate) { return candidate == object; }, ignoreIt, box);
}

auto flaggerWith(CFigContext* ctx, const FigObjectList* list, bool ignoreThem,
                 const DamagedBox& box)
{
    return Flagger(
        ctx,
        [members = allMembers(list)](FigObject* candidate) { return members.contains(candidate); },
        ignoreThem, box);
}

template <class IsMember> void selectObjects(CFigContext* ctx, const Flagger<IsMember>& flagger)
{
    for (FigObject* object : qAsConst(ctx->drawing.objects))
        flagger(object);
}

// --- rectangles of objects -------------------------------------------------------------

QRect exactRect(CFigContext* ctx, FigObject* object)
{
    int xmin, ymin, xmax, ymax;
    object->getBounds(ctx, &xmin, &ymin, &xmax, &ymax, true, true);
    return QRect(QPoint(xmin, ymin), QPoint(xmax, ymax));
}

/// The rectangles of a list, each grown, joined to what there is. A null QRect holds nothing.
QRect joinedRects(CFigContext* ctx, const FigObjectList* list, int growth, QRect joined)
{
    if (!list)
        return joined;
    for (FigObject* object : *list) {
        if (!object)
            continue;
        QRect rect = exactRect(ctx, object);
        extendBounds(&rect, growth);
        joined = joined | rect;
    }
    return joined;
}

void refreshRect(CFigContext* ctx, QRect rect, FigObject* exclude)
{
    if (rect.isNull())
        return;
    extendBounds(&rect, marginX(ctx, 4.0f));
    refresh_area(ctx, rect.left(), rect.top(), rect.right(), rect.bottom(), exclude, true);
}

QRect rectOfBoth(CFigContext* ctx, const FigObjectList* a, const FigObjectList* b)
{
    const QRect rect = joinedRects(ctx, a, 0, QRect());
    return joinedRects(ctx, b, marginX(ctx, 5.0f), rect);
}

} // namespace

RedrawArea::RedrawArea(CFigContext* ctx, int x1, int y1, int x2, int y2)
    : from(pixelOf(ctx, x1, y1)), to(pixelOf(ctx, x2, y2))
{
    const long width = std::abs(static_cast<long>(to.x()) - from.x());
    const long height = std::abs(static_cast<long>(to.y()) - from.y());
    clip = QRect(from, QPoint(saturated(from.x() + width), saturated(from.y() + height)));
}

void paintGround(CFigContext* ctx, const QPoint& from, const QPoint& to)
{
    RectFill(ctx->painter, from.x(), from.y(), to.x(), to.y(), gridPreferences.backgroundColour);
    if (ctx->gridOn)
        drawGrid(ctx);
    drawPageborders(ctx);
}

unsigned long redrawsSoFar()
{
    return numRedraws;
}

// --- full redraw ---------------------------------------------------------------------------

void redisplay_canvas(CFigContext* ctx)
{
    if (!ctx->chFrm || !ctx->painter)
        return;
    int width, height;
    shell_viewport_size(ctx->chFrm, &width, &height);
    redisplay_viewport(ctx, width, height);
}

void redisplay_viewport(CFigContext* ctx, int width, int height)
{
    if (!canPaint(ctx))
        return;
    ++numRedraws;
    clear_canvas(ctx, gridPreferences.backgroundColour, 0, 0, width, height);
    replayFeedback(ctx);
    if (ctx->gridOn)
        drawGrid(ctx, width, height);
    drawPageborders(ctx);
    drawAllObjects(ctx);
}

void redisplay_objects(CFigContext* ctx)
{
    applyFunction(&ctx->drawing.objects, clearIgnoreFlag);
    redisplay_objects(ctx, &ctx->drawing.objects, nullptr, true);
}

void redisplay_objects(CFigContext* ctx, FigObjectList* list, FigObject* exclude, bool)
{
    if (list)
        drawByDepth(ctx, *list, exclude, nullptr, nullptr);
}

void redisplay_object_list(CFigContext* ctx, FigObjectList* list, int depth, FigObject* exclude)
{
    if (!list)
        return;
    const PlaceOfList place(ctx, list);
    const FigObjectList walked = *list;
    for (FigObject* object : walked) {
        if (object->type == O_COMPOUND) {
            if (!object->ignore && object != exclude)
                redisplay_object_list(ctx, static_cast<FigCompound*>(object)->objects, depth,
                                      exclude);
        } else if (object->depth == depth) {
            if (isWanted(object, exclude))
                object->draw(ctx);
            countDrawn(ctx, object);
        }
    }
}

// --- overlap -------------------------------------------------------------------------------

bool check_overlap(CFigContext* ctx, int ax1, int ay1, int ax2, int ay2, int bx1, int by1, int bx2,
                   int by2)
{
    const long mx = marginX(ctx, 4.0f);
    const long my = marginY(ctx, 4.0f);
    return ax1 - mx <= bx2 + mx && ax2 + mx >= bx1 - mx && ay1 - my <= by2 + my &&
           ay2 + my >= by1 - my;
}

bool check_overlap(CFigContext* ctx, FigObject* object, int x1, int y1, int x2, int y2)
{
    int xmin, ymin, xmax, ymax;
    object->getBounds(ctx, &xmin, &ymin, &xmax, &ymax, true, true);
    return check_overlap(ctx, xmin, ymin, xmax, ymax, x1, y1, x2, y2);
}

void select_redisplay_objects(CFigContext* ctx, FigObject* object, bool ignoreIt, int x1, int y1,
                              int x2, int y2)
{
    selectObjects(ctx, flaggerWith(ctx, object, ignoreIt, {x1, y1, x2, y2}));
}

void select_redisplay_objects(CFigContext* ctx, FigObjectList* list, bool ignoreThem, int x1,
                              int y1, int x2, int y2)
{
    selectObjects(ctx, flaggerWith(ctx, list, ignoreThem, {x1, y1, x2, y2}));
}

// --- partial redraw --------------------------------------------------------------------------

void refresh_area(CFigContext* ctx, int x1, int y1, int x2, int y2, FigObject* object, bool exclude)
{
    if (!canPaint(ctx))
        return;
    const RedrawArea area(ctx, x1, y1, x2, y2);
    FigObject* excluded = exclude ? object : nullptr;
    repaintClipped(ctx, area.clip, area.from, area.to, excluded, excluded,
                   flaggerWith(ctx, object, exclude, {x1, y1, x2, y2}));
}

void refresh_area(CFigContext* ctx, int x1, int y1, int x2, int y2, FigObjectList* list,
                  bool exclude)
{
    if (!canPaint(ctx))
        return;
    const QPoint from = pixelOf(ctx, x1, y1);
    const QPoint to = pixelOf(ctx, x2, y2);
    // The corners as they are, and no exclusion: the flags already speak for the list.
    repaintClipped(ctx, QRect(from, to), from, to, nullptr, exclude ? list : nullptr,
                   flaggerWith(ctx, list, exclude, {x1, y1, x2, y2}));
}

void refresh_obj_area(CFigContext* ctx, FigObject* object, bool exclude)
{
    if (!object)
        return;
    int xmin, ymin, xmax, ymax;
    object->getBounds(ctx, &xmin, &ymin, &xmax, &ymax, true, true);
    if (object->type == O_COMPOUND)
        ymax = saturated(static_cast<long>(ymax) + compoundExtra(ctx));
    extendBounds(&xmin, &ymin, &xmax, &ymax, marginX(ctx, 4.0f));
    refresh_area(ctx, xmin, ymin, xmax, ymax, object, exclude);
}

void refresh_obj_area(CFigContext* ctx, FigObjectList* list, bool exclude)
{
    if (!list)
        return;
    int xmin, ymin, xmax, ymax;
    objectlist_bound(ctx, list, &xmin, &ymin, &xmax, &ymax, false, true, true);
    extendBounds(&xmin, &ymin, &xmax, &ymax, marginX(ctx, 4.0f));
    refresh_area(ctx, xmin, ymin, xmax, ymax, list, exclude);
}

void refresh_obj_area(CFigContext* ctx, FigObject* a, FigObject* b, FigObject* c)
{
    // Where the object was gets the margin, where it goes does not: the list form has it the
    // other way round.
    FigObjectList grown, plain;
    grown.append(a);
    plain.append(b);
    QRect rect = joinedRects(ctx, &grown, marginX(ctx, 5.0f), QRect());
    refreshRect(ctx, joinedRects(ctx, &plain, 0, rect), c);
}

void refresh_obj_area(CFigContext* ctx, FigObjectList* a, FigObjectList* b, FigObject* c)
{
    refreshRect(ctx, rectOfBoth(ctx, a, b), c);
}

void refresh_obj_area(CFigContext* ctx, FigObjectList* a, FigObjectList* b, StillObjects* still,
                      const FigObjectList& moving)
{
    QRect rect = rectOfBoth(ctx, a, b);
    if (rect.isNull() || !canPaint(ctx))
        return;
    extendBounds(&rect, marginX(ctx, 4.0f));
    still->redraw(rect.left(), rect.top(), rect.right(), rect.bottom(), moving);
}

void refresh_obj_area(CFigContext* ctx, FigObjectList* a, FigObject* b, FigObject* c)
{
    FigObjectList second;
    second.append(b);
    refresh_obj_area(ctx, a, &second, c);
}
