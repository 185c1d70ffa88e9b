#include "model/FigContext.h"
#include "model/objectwalk.h"
#include "model/shell.h"

#include <algorithm>
#include <climits>
#include <memory>

using namespace objectwalk;

namespace {

/// Coordinates at the edge of int stop there.
int shifted(int value, int by)
{
    return static_cast<int>(std::clamp<long>(static_cast<long>(value) + by, INT_MIN, INT_MAX));
}

void shift(FigPoint* point, int dx, int dy)
{
    point->x = shifted(point->x, dx);
    point->y = shifted(point->y, dy);
}

/// Ends whose link stays are left where they are.
void shiftPath(FigPath* path, int dx, int dy)
{
    for (FigPoint* point = path->points; point; point = point->next)
        if (!point->link || !point->link->flag)
            shift(point, dx, dy);
}

void shiftEllipse(FigEllipse* ellipse, int dx, int dy)
{
    shift(&ellipse->center, dx, dy);
    shift(&ellipse->start, dx, dy);
    shift(&ellipse->end, dx, dy);
}

void shiftArc(FigArc* arc, int dx, int dy)
{
    arc->center_x += static_cast<float>(dx);
    arc->center_y += static_cast<float>(dy);
    for (FigPoint& point : arc->point)
        shift(&point, dx, dy);
}

void shiftText(FigText* text, int dx, int dy)
{
    text->x = shifted(text->x, dx);
    text->y = shifted(text->y, dy);
}

/// Moves an object with all its members; the corners of compounds are left as they are.
void shiftObject(FigObject* object, int dx, int dy)
{
    switch (object->type) {
    case O_ELLIPSE:
        return shiftEllipse(static_cast<FigEllipse*>(object), dx, dy);
    case O_POLYLINE:
    case O_SPLINE:
        return shiftPath(asPath(object), dx, dy);
    case O_TEXT:
        return shiftText(static_cast<FigText*>(object), dx, dy);
    case O_ARC:
        return shiftArc(static_cast<FigArc*>(object), dx, dy);
    case O_COMPOUND:
        for (FigObject* member : qAsConst(*asCompound(object)->objects))
            shiftObject(member, dx, dy);
    }
}

struct Box {
    int xmin = 0, ymin = 0, xmax = 0, ymax = 0;

    void merge(const Box& other)
    {
        xmin = std::min(xmin, other.xmin);
        ymin = std::min(ymin, other.ymin);
        xmax = std::max(xmax, other.xmax);
        ymax = std::max(ymax, other.ymax);
    }
};

Box updateCorners(CFigContext* ctx, FigCompound* compound);

Box exactBox(CFigContext* ctx, FigObject* object)
{
    if (FigCompound* compound = asCompound(object))
        return updateCorners(ctx, compound);
    Box box;
    object->getBounds(ctx, &box.xmin, &box.ymin, &box.xmax, &box.ymax, true, true);
    return box;
}

/// Brings the corners of a compound and of those in it up to date and returns its box. It is
/// what getBounds gives, but each object is measured once, however deep it lies.
Box updateCorners(CFigContext* ctx, FigCompound* compound)
{
    Box box;
    bool first = true;
    for (FigObject* member : qAsConst(*compound->objects)) {
        const Box memberBox = exactBox(ctx, member);
        if (first)
            box = memberBox;
        else
            box.merge(memberBox);
        first = false;
    }
    compound->nwcorner.x = box.xmin;
    compound->nwcorner.y = box.ymin;
    compound->secorner.x = box.xmax;
    compound->secorner.y = box.ymax;
    return box;
}

} // namespace

void update_compound_corners(CFigContext* ctx, FigCompound* compound)
{
    updateCorners(ctx, compound);
}

void translate_object(CFigContext* ctx, FigObject* object, int dx, int dy)
{
    shiftObject(object, dx, dy);
    if (FigCompound* compound = asCompound(object))
        updateCorners(ctx, compound);
}

void translate_object(FigObject* object, int dx, int dy)
{
    FigObjectList single{object};
    translate_object_list(&single, dx, dy);
}

void translate_object_list(CFigContext* ctx, FigObjectList* list, int dx, int dy)
{
    if (!list)
        return;
    for (FigObject* object : qAsConst(*list))
        translate_object(ctx, object, dx, dy);
}

void translate_object_list(FigObjectList* list, int dx, int dy)
{
    CFigContext* active = getFigContext();
    const auto fallback = active ? nullptr : std::make_unique<CFigContext>();
    translate_object_list(active ? active : fallback.get(), list, dx, dy);
}
