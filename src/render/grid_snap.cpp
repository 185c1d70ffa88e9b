// Snapping of pointer positions and selections. All arithmetic is double, in the order given here,
// until the final rounding: which of two grid lines a position half-way goes to depends on it.
#include "render/grid.h"

#include "edit/command.h"
#include "edit/mode.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/gfx_math.h"
#include "render/u_bound.h"

#include <cmath>

namespace {

constexpr double VERTEX_PIXELS = 5.0;
constexpr int SHORTEST_MOVE = 2; ///< figure units; less counts as being on the grid

/// value goes to the grid line that the remainder tells. Exactly half-way it goes away from zero.
double onLine(double value, double remainder, double step, double half)
{
    if (half > std::fabs(remainder))
        return value - remainder;
    return value + ((value >= 0 ? step : -step) - remainder);
}

double onLine(double value, double step, double half)
{
    return onLine(value, std::fmod(value, step), step, half);
}

/// In odd columns the lines lie half a step off.
bool isOddColumn(double x, double columnStep)
{
    // x is a multiple of the step but for its last bits, hence the rounding.
    return std::fabs(std::fmod(std::round(x / columnStep), 2.0)) > 0.5;
}

double onIsoLine(double y, bool oddColumn, double step, double half)
{
    // The offset goes into the remainder alone, which is then taken from y itself.
    return onLine(y, std::fmod(oddColumn ? y + half : y, step), step, half);
}

double columnFactor(const CFigContext* ctx)
{
    return isIsoGrid(ctx->gridIndex) ? ISO_ASPECT : 1.0;
}

struct SelectionBox {
    bool isEmpty;
    int xmin, ymin, xmax, ymax;

    /// 0 for what is no side of that axis.
    int horizontal(Orientation side) const
    {
        return side == ORIENTATION_LEFT ? xmin : side == ORIENTATION_RIGHT ? xmax : 0;
    }
    int vertical(Orientation side) const
    {
        return side == ORIENTATION_TOP ? ymin : side == ORIENTATION_BOTTOM ? ymax : 0;
    }
};

SelectionBox selectionBox(CFigContext* ctx)
{
    FigObjectList tagged;
    for (FigObject* object : qAsConst(*ctx->getWorkingRoot()))
        if (object->tagged)
            tagged.append(object);
    SelectionBox box{tagged.isEmpty(), 0, 0, 0, 0};
    objectlist_bound(ctx, &tagged, &box.xmin, &box.ymin, &box.xmax, &box.ymax, false, false,
                     gridPreferences.snapUsingLineWidth);
    return box;
}

/// Whole steps from the anchor, half a step added in the direction of the drag.
double wholeSteps(int position, int anchor, int snappedAnchor, double step)
{
    const double direction = position > anchor ? 1 : -1;
    return std::trunc((direction * step * 0.5 + position - snappedAnchor) / step);
}

int movedBy(int anchor, double distance)
{
    return saturatedInt(static_cast<long long>(anchor) + round2(distance));
}

/// The sides round differently: here the sum is rounded, for the vertical its parts.
int draggedX(int x, int snappedAnchor, int side, double step)
{
    const double steps = wholeSteps(x, fix_x, snappedAnchor, step);
    const double beyond = std::fmod(side, step);
    const double distance =
        beyond > 0.5 * step ? steps * step + step - beyond : steps * step - beyond;
    return movedBy(fix_x, distance);
}

int draggedY(int y, int snappedAnchor, int side, double step)
{
    const double steps = wholeSteps(y, fix_y, snappedAnchor, step);
    const double beyond = std::fmod(side, step);
    const double correction = beyond > 0.5 * step ? step - beyond : -beyond;
    return movedBy(fix_y, round2(correction) + steps * step);
}

/// An object that is on the grid already takes a full step.
int wayToLine(int side, double step, bool forward, int direction)
{
    const double beyond = std::fmod(side, step);
    const int way = round2(forward ? step - beyond : -beyond);
    return std::abs(static_cast<long>(way)) < SHORTEST_MOVE ? round2(step) * direction : way;
}

/// A vertex wins over the grid.
void snapPoint(CFigContext* ctx, int* x, int* y)
{
    if (!roundCoordsToObjectPoint(ctx, x, y))
        roundCoords(ctx, x, y);
}

} // namespace

void roundCoords(CFigContext* ctx, int* x, int* y)
{
    double step = 0;
    double half = 0;
    getGridRoundHalf(ctx, &step, &half);
    if (!(step > 0) || !(gridPreferences.snapMode & SNAP_GRID))
        return;
    if (!isIsoGrid(ctx->gridIndex)) {
        *x = round2(onLine(*x, step, half));
        *y = round2(onLine(*y, step, half));
        return;
    }
    const double column = onLine(*x, ISO_ASPECT * step, ISO_ASPECT * half);
    *x = round2(column);
    *y = round2(onIsoLine(*y, isOddColumn(column, ISO_ASPECT * step), step, half));
}

bool roundCoordsToObjectPoint(CFigContext* ctx, int* x, int* y)
{
    if (!(gridPreferences.snapMode & SNAP_VERTEX))
        return false;
    const int radius = round2(((1200.0f / ctx->ppiX) / ctx->zoom) * VERTEX_PIXELS);
    return doPointSearchForSnapping(ctx, nullptr, radius, x, y);
}

void roundCoordsSnapCurObjectToGrid(CFigContext* ctx, Orientation horizontal, Orientation vertical,
                                    int* x, int* y)
{
    if (!activeGrid(ctx))
        return;
    const bool noSide = horizontal == ORIENTATION_NONE && vertical == ORIENTATION_NONE;
    const SelectionBox box = noSide ? SelectionBox{true, 0, 0, 0, 0} : selectionBox(ctx);
    if (box.isEmpty) {
        roundCoords(ctx, x, y);
        return;
    }
    const double step = getGridRound(ctx);
    if (!(step > 0))
        return;
    int snappedX = fix_x;
    int snappedY = fix_y;
    roundCoords(ctx, &snappedX, &snappedY);
    *x = draggedX(*x, snappedX, box.horizontal(horizontal), columnFactor(ctx) * step);
    *y = draggedY(*y, snappedY, box.vertical(vertical), step);
}

void snapObjectsToGrid(CFigContext* ctx, Orientation horizontal, Orientation vertical, int* dx,
                       int* dy)
{
    const double step = getGridRound(ctx);
    if (!(step > 0))
        return;
    const SelectionBox box = selectionBox(ctx);
    const int cornerX = box.horizontal(horizontal);
    const int cornerY = box.vertical(vertical);
    const bool right = horizontal == ORIENTATION_RIGHT;
    const bool down = vertical == ORIENTATION_BOTTOM;
    const int direction = right || down ? 1 : -1; // one for both axes
    int x = movedBy(cornerX, wayToLine(cornerX, columnFactor(ctx) * step, right, direction));
    int y = movedBy(cornerY, wayToLine(cornerY, step, down, direction));
    if (!isIsoGrid(ctx->gridIndex))
        roundCoords(ctx, &x, &y);
    *dx = saturatedInt(static_cast<long long>(x) - cornerX);
    *dy = saturatedInt(static_cast<long long>(y) - cornerY);
}

void snapCursor(CFigContext* ctx, int* x, int* y)
{
    if (gridPreferences.snapMode == 0 || !action_on)
        return;
    if (isSnapObjectsCommand()) {
        if (!roundCoordsToObjectPoint(ctx, x, y) && (gridPreferences.snapMode & SNAP_GRID))
            roundCoordsSnapCurObjectToGrid(ctx, horizGrip, vertGrip, x, y);
    } else if (cur_command != CMD_SELECT || isObjectDrawingCommand()) {
        snapPoint(ctx, x, y);
    }
}

void snapPress(CFigContext* ctx, int* x, int* y)
{
    if (gridPreferences.snapMode != 0 && (action_on || isObjectDrawingCommand()))
        snapPoint(ctx, x, y);
}
