// Shared by the units that compute bounds: a box that grows, and conversions to int that
// saturate where the plain ones would be undefined.
#pragma once

#include "model/FigObjects.h"
#include "render/gfx_math.h"

#include <algorithm>
#include <climits>

inline int saturated(long value)
{
    return static_cast<int>(std::clamp<long>(value, INT_MIN, INT_MAX));
}

/// Truncation toward zero. NaN gives 0.
inline int truncated(double value)
{
    if (value >= INT_MAX)
        return INT_MAX;
    if (value <= INT_MIN)
        return INT_MIN;
    return value == value ? static_cast<int>(value) : 0;
}

/// Bits of a spline's sub-type.
constexpr int SPLINE_INTERPOLATED = 2;
constexpr int SPLINE_CROSS = 4;

/// A line width in figure units, along one axis.
inline int strokeExtent(const FigObject* object, float ppi)
{
    return round2(static_cast<float>(object->thickness) * (1200.0f / ppi));
}

struct BoundsBox {
    int xmin = 0, ymin = 0, xmax = 0, ymax = 0;

    static BoundsBox at(int x, int y) { return {x, y, x, y}; }

    void include(int x, int y) { include({x, y, x, y}); }
    void include(const BoundsBox& other)
    {
        xmin = std::min(xmin, other.xmin);
        ymin = std::min(ymin, other.ymin);
        xmax = std::max(xmax, other.xmax);
        ymax = std::max(ymax, other.ymax);
    }
    void grow(long dx, long dy)
    {
        xmin = saturated(xmin - dx);
        ymin = saturated(ymin - dy);
        xmax = saturated(xmax + dx);
        ymax = saturated(ymax + dy);
    }
    void store(int* x1, int* y1, int* x2, int* y2) const
    {
        *x1 = xmin;
        *y1 = ymin;
        *x2 = xmax;
        *y2 = ymax;
    }
};
