// The process-wide list of device points.
#include "render/gfx_lowlevel.h"

#include "model/FigObjects.h"
#include "render/coords.h"

#include <algorithm>
#include <iterator>

QPoint polygon_points[MAX_LIST_POINTS];
long npoints = 0;
int lastlistpx = -1;
int lastlistpy = -1;

void init_pointlist()
{
    npoints = 0;
    // A real first point of (-1, -1) counts as a repetition and is dropped.
    lastlistpx = -1;
    lastlistpy = -1;
}

bool add_point_to_list(int x, int y)
{
    if (npoints >= MAX_LIST_POINTS)
        return false;
    if (x == lastlistpx && y == lastlistpy)
        return true;
    polygon_points[npoints++] = QPoint(x, y);
    lastlistpx = x;
    lastlistpy = y;
    return true;
}

int add_point_to_list_scale(CFigContext* ctx, int x, int y)
{
    return add_point_to_list(pixelX(ctx, x), pixelY(ctx, y)) ? 0 : -1;
}

bool initPointListFromLine(CFigContext* ctx, FigLine* line)
{
    init_pointlist();
    if (!line->points)
        return false;
    for (FigPoint* point = line->points; point; point = point->next) {
        if (add_point_to_list_scale(ctx, point->x, point->y) != 0)
            break;
    }
    return true;
}

long removeDuplicates(QPoint* pts, long n)
{
    return n > 0 ? std::unique(pts, pts + n) - pts : 0;
}

void copy_pointarray(QPoint* from, QPoint* to, int n)
{
    std::copy_n(from, std::clamp<long>(n, 0, MAX_LIST_POINTS), to);
}

void toPolygon(QPolygon& polygon, QPoint* pts, int n)
{
    std::copy_n(pts, std::max(n, 0), std::back_inserter(polygon));
}

void toPolygon(QPolygonF& polygon, QPoint* pts, int n)
{
    std::copy_n(pts, std::max(n, 0), std::back_inserter(polygon));
}
