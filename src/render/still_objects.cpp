#include "render/still_objects.h"

#include "render/gfx_lowlevel.h"
#include "render/markers.h"
#include "render/redraw_area.h"
#include "render/u_bound.h"
#include "render/u_redraw.h"

#include <QPainter>

#include <algorithm>
#include <climits>

namespace {

/// Pixels that a marker reaches out from its point, and more.
constexpr int MARKER_ROOM = 16;

const QRect everywhere(QPoint(INT_MIN / 2, INT_MIN / 2), QPoint(INT_MAX / 2, INT_MAX / 2));

QSize sizeOf(const QPaintDevice* device)
{
    return QSize(device->width(), device->height());
}

/// What is drawn of a list: the members of compounds, at every level.
template <class Visit> void visitDrawn(const FigObjectList& list, const Visit& visit)
{
    for (FigObject* object : list) {
        if (object->type == O_COMPOUND)
            visitDrawn(*static_cast<FigCompound*>(object)->objects, visit);
        else
            visit(object);
    }
}

bool touches(const QRect& reach, const SeenArea& area)
{
    return reach.left() <= area.x2 && reach.right() >= area.x1 && reach.top() <= area.y2 &&
           reach.bottom() >= area.y1;
}

} // namespace

StillObjects::View::View(const CFigContext* ctx)
    : document(ctx->documentNumber), zoom(ctx->zoom), shiftX(ctx->shiftX), shiftY(ctx->shiftY),
      canvas(sizeOf(ctx->painter->device())),
      isSmooth(ctx->painter->testRenderHint(QPainter::Antialiasing))
{
}

bool StillObjects::View::operator==(const View& other) const
{
    return document == other.document && zoom == other.zoom && shiftX == other.shiftX &&
           shiftY == other.shiftY && canvas == other.canvas && isSmooth == other.isSmooth;
}

StillObjects::StillObjects(CFigContext* context, const FigObjectList& moving)
    : ctx(context), view(context), redraws(redrawsSoFar())
{
    applyFunction(&ctx->drawing.objects, clearIgnoreFlag);
    note(moving);
    noteMarked(moving);
    const size_t layers = isAllBelow() ? 1 : breaks.size() + 2;
    if (StillPictures::areAffordable(view.canvas, layers))
        pictures = std::make_unique<StillPictures>(view.canvas, layers);
}

// --- what is known -------------------------------------------------------------------------

bool StillObjects::canTell(const FigObjectList& moving)
{
    QSet<long> ids;
    bool areTold = true;
    visitDrawn(moving, [&](FigObject* object) {
        areTold = areTold && object->id >= 0 && !ids.contains(object->id);
        ids.insert(object->id);
    });
    return areTold;
}

QRect StillObjects::reachOf(FigObject* object) const
{
    QRect reach;
    return reachOfPaint(ctx, object, &reach) ? reach : everywhere;
}

void StillObjects::note(const FigObjectList& moving)
{
    visitDrawn(moving, [this](FigObject* object) { depths.insert(object->id, object->depth); });
    const QSet<FigObject*> movers = allMembers(&moving);
    const SeenArea canvas(ctx, QRect(QPoint(0, 0), view.canvas));
    for (const PlacedObject& drawn : drawingOrder(ctx, ctx->drawing.objects)) {
        FigObject* object = drawn.object;
        if (movers.contains(object)) {
            places.insert(object->id, {nullptr, stills.size(), drawn.place, places.size()});
            if (breaks.empty() || breaks.back() != stills.size())
                breaks.push_back(stills.size());
            continue;
        }
        const QRect reach = reachOf(object);
        if (touches(reach, canvas))
            stills.push_back({object, drawn.place, reach});
    }
}

bool StillObjects::isAllBelow() const
{
    return breaks.empty() || breaks.front() == stills.size();
}

void StillObjects::noteMarked(const FigObjectList& moving)
{
    const QSet<FigObject*> movers = allMembers(&moving);
    for (FigObject* object : qAsConst(ctx->drawing.objects)) {
        if (movers.contains(object))
            topLevel.insert(object->id);
        else if (object->marked != 0)
            marked.push_back({object, OpenPlace::Unknown, reachOf(object)});
    }
}

bool StillObjects::serves(const CFigContext* context, const FigObjectList& moving) const
{
    const bool canPaint = context->painter && context->painter->isActive();
    if (!canPaint || context != ctx || redraws != redrawsSoFar() || !(View(context) == view))
        return false;
    int count = 0;
    bool areKnown = true;
    visitDrawn(moving, [&](FigObject* object) {
        const auto depth = depths.constFind(object->id);
        areKnown = areKnown && depth != depths.constEnd() && *depth == object->depth;
        ++count;
    });
    return areKnown && count == depths.size();
}

// --- a step -----------------------------------------------------------------------------------

std::vector<StillObjects::Mover> StillObjects::inOrder(const FigObjectList& moving) const
{
    std::vector<Mover> movers;
    movers.reserve(places.size());
    visitDrawn(moving, [&](FigObject* object) {
        const auto place = places.constFind(object->id);
        if (place == places.constEnd())
            return;
        movers.push_back(*place);
        movers.back().object = object;
    });
    std::sort(movers.begin(), movers.end(),
              [](const Mover& a, const Mover& b) { return a.rank < b.rank; });
    return movers;
}

void StillObjects::drawStill(size_t from, size_t to, const SeenArea& area) const
{
    for (size_t i = from; i < to; ++i) {
        if (!touches(stills[i].reach, area))
            continue;
        ctx->drawnPlace = stills[i].place;
        stills[i].object->draw(ctx);
    }
}

void StillObjects::drawMover(const Mover& mover) const
{
    ctx->drawnPlace = mover.place;
    mover.object->draw(ctx);
}

/// The still objects between two breaks, the first layer with the ground; after the last of these
/// comes one with all of them.
void StillObjects::drawLayer(size_t layer, const QRect& part) const
{
    const bool hasGround = layer == 0 || layer > breaks.size();
    const size_t from = hasGround ? 0 : breaks[layer - 1];
    const size_t to = layer < breaks.size() ? breaks[layer] : stills.size();
    if (hasGround)
        paintGround(ctx, part.topLeft(), part.bottomRight() + QPoint(1, 1));
    drawStill(from, to, SeenArea(ctx, part));
}

/// Where the moving objects paint.
QRect StillObjects::rectOf(const std::vector<Mover>& movers, const QRect& clip) const
{
    QRect rect;
    for (const Mover& mover : movers) {
        QRect reach;
        if (!reachOfPaint(ctx, mover.object, &reach))
            return clip;
        rect |= RedrawArea(ctx, reach.left(), reach.top(), reach.right(), reach.bottom()).clip;
    }
    return rect & clip;
}

/// False when the pictures could not be made.
bool StillObjects::drawByPictures(const QRect& part, const std::vector<Mover>& movers)
{
    const QRect clip = part & QRect(QPoint(0, 0), view.canvas);
    if (clip.isEmpty())
        return true;
    const auto draw = [this](size_t layer, const QRect& missing) { drawLayer(layer, missing); };
    if (!pictures->complete(ctx, clip, draw))
        return false;
    if (isAllBelow()) {
        pictures->show(ctx->painter, 0, clip);
        for (const Mover& mover : movers)
            drawMover(mover);
        return true;
    }
    pictures->show(ctx->painter, breaks.size() + 1, clip);
    const QRect moved = rectOf(movers, clip);
    const auto drawMovers = [&](size_t layer) {
        for (const Mover& mover : movers)
            if (layer < breaks.size() && mover.stillBelow == breaks[layer])
                drawMover(mover);
    };
    pictures->mix(ctx, moved, breaks.size() + 1, drawMovers);
    blended |= moved;
    return true;
}

void StillObjects::drawByObjects(const QPoint& from, const QPoint& to, const QRect& clip,
                                 const std::vector<Mover>& movers) const
{
    paintGround(ctx, from, to);
    const SeenArea area(ctx, clip);
    size_t next = 0;
    for (const Mover& mover : movers) {
        drawStill(next, mover.stillBelow, area);
        next = mover.stillBelow;
        drawMover(mover);
    }
    drawStill(next, stills.size(), area);
}

void StillObjects::drawMarkers(const QRect& clip, const FigObjectList& moving) const
{
    if (ctx->getWorkingRoot() != &ctx->drawing.objects) {
        refresh_pointmarker(ctx, static_cast<FigObject*>(nullptr));
        return;
    }
    const QMargins room(MARKER_ROOM, MARKER_ROOM, MARKER_ROOM, MARKER_ROOM);
    const SeenArea area(ctx, clip.marginsAdded(room));
    FigObjectList shown;
    for (const Still& still : marked)
        if (touches(still.reach, area))
            shown.append(still.object);
    for (FigObject* object : moving)
        if (object->marked != 0 && topLevel.contains(object->id))
            shown.append(object);
    refresh_pointmarker(ctx, shown, static_cast<FigObject*>(nullptr));
}

void StillObjects::redraw(int x1, int y1, int x2, int y2, const FigObjectList& moving)
{
    const RedrawArea area(ctx, x1, y1, x2, y2);
    const QRect clip = area.clip.normalized();
    for (FigObject* object : moving)
        clearIgnoreFlag(object);
    const std::vector<Mover> movers = inOrder(moving);
    const OpenPlace before = ctx->drawnPlace;
    ctx->painter->setClipRect(area.clip, Qt::ReplaceClip);
    if (!pictures || !drawByPictures(clip, movers)) {
        pictures.reset();
        drawByObjects(area.from, area.to, clip, movers);
    }
    ctx->drawnPlace = before;
    drawMarkers(clip, moving);
    ctx->painter->setClipRect(area.clip, Qt::NoClip);
}
