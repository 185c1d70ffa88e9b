#include "edit/point_followers.h"

#include "render/gfx_math.h"

PointFollowers::PointFollowers(FigObjectList* list, FigObject* object) : target(object)
{
    if (list && findObjectsThatConnectTo(list, object, &sources))
        sources.removeAll(object);
}

void PointFollowers::follow(int index, const FigPoint& former, const FigPoint& now)
{
    if (sources.isEmpty())
        return;
    FigObjectList changed;
    FigPointList done;
    adjust_links_move_point(target, index, &sources, saturatedDifference(now.x, former.x),
                            saturatedDifference(now.y, former.y), &changed, &done);
}
