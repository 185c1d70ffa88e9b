#include "render/depth_walk.h"

#include "model/FigContext.h"
#include "model/w_layers.h"
#include "render/gfx_lowlevel.h"
#include "render/u_bound.h"
#include "render/u_bound_box.h"

#include <QPainter>

#include <vector>

namespace {

/// As an exclusion: nothing at all is drawn, but everything is counted.
FigObject* const everything = reinterpret_cast<FigObject*>(-1);

QRect deviceRect(const QPainter* painter)
{
    return QRect(0, 0, painter->device()->width(), painter->device()->height());
}

bool hasHeads(const FigObject* object)
{
    return object->forward_arrow || object->backward_arrow;
}

/// Under thinner lines nothing is cut away for the heads.
bool changesClip(CFigContext* ctx, const FigObject* object)
{
    return hasHeads(object) && getThickness(ctx, object->thickness, ctx->zoom) >= 2;
}

bool seesClip(CFigContext* ctx, const FigObject* object)
{
    return changesClip(ctx, object) ||
           (object->type == O_ELLIPSE && static_cast<const FigEllipse*>(object)->angle != 0.0f);
}

void collectMembers(const FigObjectList* list, QSet<FigObject*>& found)
{
    if (!list)
        return;
    for (FigObject* object : *list) {
        found.insert(object);
        if (object && object->type == O_COMPOUND)
            collectMembers(static_cast<FigCompound*>(object)->objects, found);
    }
}

/// Objects lie scattered over memory; a large figure is drawn faster when the next ones are
/// already on their way.
constexpr size_t PREFETCH_DISTANCE = 6;

/// Up to so many objects it is cheaper to search the open compound for each.
constexpr size_t FEW_OBJECTS = 8;

void prefetch(const FigObject* object)
{
    const char* begin = reinterpret_cast<const char*>(object);
    for (size_t line = 0; line < sizeof(FigLine); line += 64)
        __builtin_prefetch(begin + line);
}

long unitsAt(double pixel, int shift, float ppi, float zoom)
{
    return truncated((pixel + shift) * 1200.0 / ppi / zoom);
}

/// The list is walked once, not once per depth: its objects are sorted into their depths first.
/// Objects that cannot touch the area are passed by; null stands for everywhere.
class DepthWalk {
public:
    DepthWalk(CFigContext* ctx, FigObject* exclude, const SeenArea* area, WholeClip* wholeClip)
        : m_ctx(ctx), m_exclude(exclude), m_area(area), m_clip(wholeClip)
    {
        const int deepest = std::min(ctx->max_depth, MAX_DEPTH);
        for (int depth = 0; depth <= deepest; ++depth)
            m_reached[depth] = ctx->active_layers[depth] || ctx->layerMode != PAINT_HIDDEN;
    }

    void collect(const FigObjectList& list)
    {
        const PlaceOfList place(m_ctx, &list);
        for (FigObject* object : list)
            collect(object);
    }

    void collect(const FigObjectList& list, const std::function<void(FigObject*)>& flag)
    {
        const PlaceOfList place(m_ctx, &list);
        auto ahead = list.cbegin();
        for (size_t i = 0; i < PREFETCH_DISTANCE && ahead != list.cend(); ++i)
            ++ahead;
        for (FigObject* object : list) {
            if (ahead != list.cend())
                prefetch(*ahead++);
            flag(object);
            collect(object);
        }
    }

    std::vector<PlacedObject> order() const
    {
        std::vector<PlacedObject> objects = sorted();
        findPlaces(&objects);
        return objects;
    }

    void draw() const
    {
        const std::vector<PlacedObject> objects = order();
        const OpenPlace before = m_ctx->drawnPlace;
        for (size_t i = 0; i < objects.size(); ++i) {
            if (i + PREFETCH_DISTANCE < objects.size())
                prefetch(objects[i + PREFETCH_DISTANCE].object);
            FigObject* object = objects[i].object;
            m_ctx->drawnPlace = objects[i].place;
            if (!m_clip)
                object->draw(m_ctx);
            else if (!changesClip(m_ctx, object) || matters(object))
                m_clip->draw(m_ctx, object);
        }
        m_ctx->drawnPlace = before;
    }

private:
    /// For the objects of a list that is not of the drawing.
    void findPlaces(std::vector<PlacedObject>* objects) const
    {
        if (!m_ctx->openCompoundObjects || objects->size() <= FEW_OBJECTS ||
            objects->front().place != OpenPlace::Unknown)
            return;
        const QSet<FigObject*> members = allMembers(m_ctx->openCompoundObjects);
        for (PlacedObject& drawn : *objects)
            drawn.place = members.contains(drawn.object) ? OpenPlace::Inside : OpenPlace::Outside;
    }

    void collect(FigObject* object)
    {
        if (object->type == O_COMPOUND) {
            if (!object->ignore && object != m_exclude)
                collect(*static_cast<FigCompound*>(object)->objects);
        } else if (isReached(object->depth)) {
            take(object);
        }
    }

    bool isReached(int depth) const { return depth >= 0 && depth <= MAX_DEPTH && m_reached[depth]; }

    void take(FigObject* object)
    {
        countDrawn(m_ctx, object);
        if (!isWanted(object, m_exclude) || !matters(object))
            return;
        m_objects.push_back({object, m_ctx->drawnPlace});
        ++m_perDepth[object->depth];
    }

    /// Whether drawing the object shows. One out of sight does as long as the clip that it may
    /// put back would be the painter's first.
    bool matters(FigObject* object) const
    {
        return !m_area ||
               mayTouchBox(m_ctx, object, m_area->x1, m_area->y1, m_area->x2, m_area->y2) ||
               (m_clip && m_clip->isAlone() && changesClip(m_ctx, object));
    }

    std::vector<PlacedObject> sorted() const
    {
        size_t start[NUM_DEPTHS];
        size_t next = 0;
        for (int depth = MAX_DEPTH; depth >= 0; --depth) {
            start[depth] = next;
            next += m_perDepth[depth];
        }
        std::vector<PlacedObject> result(m_objects.size());
        for (const PlacedObject& drawn : m_objects)
            result[start[drawn.object->depth]++] = drawn;
        return result;
    }

    CFigContext* m_ctx;
    FigObject* m_exclude;
    const SeenArea* m_area;
    WholeClip* m_clip;
    bool m_reached[NUM_DEPTHS] = {};
    size_t m_perDepth[NUM_DEPTHS] = {};
    std::vector<PlacedObject> m_objects;
};

} // namespace

bool isWanted(const FigObject* object, const FigObject* exclude)
{
    return !object->ignore && object != exclude && exclude != everything;
}

void countDrawn(CFigContext* ctx, const FigObject* object)
{
    DepthCounts& counts = ctx->counts[qBound(0, object->depth, MAX_DEPTH)];
    switch (object->type) {
    case O_ARC:
        ++counts.drawnArcs;
        break;
    case O_POLYLINE:
        ++counts.drawnLines;
        break;
    case O_ELLIPSE:
        ++counts.drawnEllipses;
        break;
    case O_SPLINE:
        ++counts.drawnSplines;
        break;
    case O_TEXT:
        ++counts.drawnTexts;
        break;
    default:
        break;
    }
}

QSet<FigObject*> allMembers(const FigObjectList* list)
{
    QSet<FigObject*> found;
    collectMembers(list, found);
    return found;
}

SeenArea::SeenArea(const CFigContext* ctx, const QRect& pixels)
    : x1(unitsAt(pixels.left(), ctx->shiftX, ctx->ppiX, ctx->zoom)),
      y1(unitsAt(pixels.top(), ctx->shiftY, ctx->ppiY, ctx->zoom)),
      x2(unitsAt(pixels.right() + 1.0, ctx->shiftX, ctx->ppiX, ctx->zoom)),
      y2(unitsAt(pixels.bottom() + 1.0, ctx->shiftY, ctx->ppiY, ctx->zoom))
{
}

WholeClip::WholeClip(QPainter* target) : m_painter(target), m_isOurs(!target->hasClipping())
{
    set(Qt::ReplaceClip);
}

WholeClip::~WholeClip()
{
    set(Qt::NoClip);
}

void WholeClip::draw(CFigContext* ctx, FigObject* object)
{
    const bool without = m_isOurs && seesClip(ctx, object);
    if (without)
        set(Qt::NoClip);
    object->draw(ctx);
    if (without) {
        m_isOurs = !m_painter->hasClipping();
        set(Qt::ReplaceClip);
    }
}

/// Not by setClipping: what is drawn after that sees some of the old clip.
void WholeClip::set(Qt::ClipOperation operation)
{
    if (m_isOurs)
        m_painter->setClipRect(deviceRect(m_painter), operation);
}

void drawByDepth(CFigContext* ctx, const FigObjectList& list, FigObject* exclude,
                 const SeenArea* area, WholeClip* clip)
{
    clearcounts(ctx);
    DepthWalk walk(ctx, exclude, area, clip);
    walk.collect(list);
    walk.draw();
}

void drawByDepth(CFigContext* ctx, const FigObjectList& list, FigObject* exclude,
                 const SeenArea* area, WholeClip* clip, const std::function<void(FigObject*)>& flag)
{
    clearcounts(ctx);
    DepthWalk walk(ctx, exclude, area, clip);
    walk.collect(list, flag);
    walk.draw();
}

std::vector<PlacedObject> drawingOrder(CFigContext* ctx, const FigObjectList& list)
{
    clearcounts(ctx);
    DepthWalk walk(ctx, nullptr, nullptr, nullptr);
    walk.collect(list);
    return walk.order();
}
