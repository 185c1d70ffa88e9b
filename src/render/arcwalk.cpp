// The arc walker: arcs and the corners of arc-boxes, pixel by pixel.

#include "render/u_draw.h"

#include "model/FigContext.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"

#include <cmath>

namespace {

/// What is walked, in device pixels; all but the centre relative to it with y up.
struct DeviceArc {
    int startX, startY, endX, endY;
    int a, b;
    int centreX, centreY;
    bool isWhole() const { return startX == endX && startY == endY; }
};

// Far beyond any canvas sums may wrap round, which is harmless there.
int wrappingSum(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}

int wrappingDifference(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}

/// Whether |v| is below margin.
bool isWithin(int v, int margin)
{
    return v < margin && v > -margin;
}

/// Walks until the end is near again. The first point has been added; each further point differs
/// from the one before, so the list needs no test for equal neighbours here.
void walkArc(const DeviceArc& arc, int direction)
{
    const int margin = arc.isWhole() ? 2 : 3;
    int count = arc.isWhole() ? 1 : 2;
    const int inc = direction != 0 ? 1 : -1;
    const int dec = -inc;
    // The state is single precision; figures rely on the very pixels that this gives.
    const float a = static_cast<float>(arc.a);
    const float b = static_cast<float>(arc.b);
    float dfx = static_cast<float>(arc.startX) * 2.0f * a;
    float dfy = static_cast<float>(arc.startY) * 2.0f * b;
    float falpha = 0.0f;
    int x = arc.startX;
    int y = arc.startY;
    bool wasAway = false;
    // An end off the circle is never met; a walk that meets its end takes less than half of this.
    long long stepsLeft = 16LL * (static_cast<long long>(arc.a) + arc.b) + 64;

    long stored = npoints;
    while (count != 0 && stored < MAX_LIST_POINTS && stepsLeft-- > 0) {
        const int dx = dfy < 0.0f ? inc : dec;
        const int dy = dfx < 0.0f ? dec : inc;
        const float signX = static_cast<float>(dx);
        const float signY = static_cast<float>(dy);
        const float fx = dfx * signX + falpha + a;
        const float fy = dfy * signY + falpha + b;
        const float fxy = fx + fy - falpha;
        const float sizeX = std::fabs(fx);
        const float sizeY = std::fabs(fy);
        const float sizeXY = std::fabs(fxy);
        const bool diagonal = sizeX >= sizeXY && sizeY >= sizeXY;
        const bool yAlone = !diagonal && sizeX >= sizeY;
        falpha = diagonal ? fxy : yAlone ? fy : fx;
        if (diagonal || yAlone) {
            y = wrappingSum(y, dy);
            dfy += signY * 2.0f * b;
        }
        if (!yAlone) {
            x = wrappingSum(x, dx);
            dfx += signX * 2.0f * a;
        }
        polygon_points[stored++] =
            QPoint(wrappingSum(arc.centreX, x), wrappingDifference(arc.centreY, y));

        const int fromEndX = wrappingDifference(x, arc.endX);
        const int fromEndY = wrappingDifference(y, arc.endY);
        const bool isNear =
            isWithin(fromEndX, margin) && isWithin(fromEndY, margin) && (fromEndX | fromEndY) != 0;
        if (!isNear)
            wasAway = true;
        else if (wasAway)
            --count;
    }
    if (stored != npoints) {
        npoints = stored;
        lastlistpx = polygon_points[stored - 1].x();
        lastlistpy = polygon_points[stored - 1].y();
    }
}

} // namespace

void curve(CFigContext* ctx, int xstart, int ystart, int xend, int yend, bool closed, int direction,
           int a, int b, int xoff, int yoff, bool scaled)
{
    if (a == 0 || b == 0)
        return;
    // Single precision, in this order, as for every figure length.
    const float sx = scaled ? 1.0f / (1200.0f / ctx->ppiX) * ctx->zoom : 1.0f;
    const float sy = scaled ? 1.0f / (1200.0f / ctx->ppiY) * ctx->zoom : 1.0f;
    const auto lengthX = [sx](int v) { return round2(static_cast<float>(v) * sx); };
    const auto lengthY = [sy](int v) { return round2(static_cast<float>(v) * sy); };
    const DeviceArc arc = {lengthX(xstart),
                           lengthY(ystart),
                           lengthX(xend),
                           lengthY(yend),
                           lengthX(a),
                           lengthY(b),
                           saturatedInt(static_cast<long long>(lengthX(xoff)) - ctx->shiftX),
                           saturatedInt(static_cast<long long>(lengthY(yoff)) - ctx->shiftY)};
    // Less than half a pixel: the walk would never turn.
    if (arc.a == 0 || arc.b == 0)
        return;
    const int firstX = wrappingSum(arc.centreX, arc.startX);
    const int firstY = wrappingDifference(arc.centreY, arc.startY);
    add_point_to_list(firstX, firstY);
    walkArc(arc, direction);
    if (arc.isWhole())
        add_point_to_list(firstX, firstY);
    if (closed) {
        add_point_to_list(arc.centreX, arc.centreY);
        add_point_to_list(firstX, firstY);
    }
}
