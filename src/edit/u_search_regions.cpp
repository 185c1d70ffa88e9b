// Objects of the working root that lie wholly inside a rectangle.
#include "edit/u_search_kinds.h"
#include "model/FigContext.h"
#include "model/w_layers.h"

#include <algorithm>

namespace {

struct Region {
    int xmin, ymin, xmax, ymax;

    Region(int x1, int y1, int x2, int y2)
        : xmin(std::min(x1, x2)), ymin(std::min(y1, y2)), xmax(std::max(x1, x2)),
          ymax(std::max(y1, y2))
    {
    }
    bool contains(int x, int y) const { return x >= xmin && x <= xmax && y >= ymin && y <= ymax; }
    /// By its stored corners.
    bool holds(CFigContext* ctx, FigCompound* compound) const
    {
        const FigPoint& nw = compound->nwcorner;
        const FigPoint& se = compound->secorner;
        return contains(nw.x, nw.y) && contains(se.x, se.y) &&
               any_active_in_compound(ctx, compound);
    }
    /// By what is painted, as the stored corners of compounds are.
    bool holds(CFigContext* ctx, FigObject* object) const
    {
        if (object->type == O_COMPOUND)
            return holds(ctx, static_cast<FigCompound*>(object));
        if (!isOnActiveLayer(ctx, object))
            return false;
        int x1, y1, x2, y2;
        object->getBounds(ctx, &x1, &y1, &x2, &y2, true, true);
        return contains(x1, y1) && contains(x2, y2);
    }
};

} // namespace

void tag_obj_in_region(CFigContext* ctx, int x1, int y1, int x2, int y2)
{
    FigObjectList inside;
    getObjectsInRegion(ctx, &inside, x1, y1, x2, y2);
    for (FigObject* object : qAsConst(inside))
        object->tagged = !object->tagged;
}

void getObjectsInRegion(CFigContext* ctx, FigObjectList* result, int x1, int y1, int x2, int y2)
{
    const Region region(x1, y1, x2, y2);
    for (FigObject* object : qAsConst(*ctx->getWorkingRoot()))
        if (region.holds(ctx, object))
            result->append(object);
}
