#include "edit/linked_ends.h"

#include "edit/e_links.h"

void LinkedEnds::note(FigObjectList* list, FigObject* object)
{
    ends.clear();
    FigPointList points;
    findPointsThatConnectTo(list, object, &points);
    for (FigPoint* point : qAsConst(points))
        ends.append({point, point->x, point->y, *point->link});
}

void LinkedEnds::restore() const
{
    for (const End& end : ends) {
        end.point->x = end.x;
        end.point->y = end.y;
        if (!end.point->link)
            end.point->link = new FigLink;
        *end.point->link = end.link;
    }
}
