// Cheap test before exact work: where the searches can find an object at all. Neither hidden
// layers nor the zoom matter for it.
#pragma once

#include "model/FigObjects.h"

/// Box in figure units, tolerance not included. Infinite where nothing certain can be said, and
/// turned inside out for what no search ever finds.
struct SearchReach {
    double xmin, ymin, xmax, ymax;

    bool isEmpty() const { return xmin > xmax; }
    void include(double x, double y);
    void grow(double x, double y);
};

/// Depends on the object, and on the context's resolution alone.
SearchReach searchReach(const CFigContext* ctx, const FigObject* object);

/// A cursor with room for the tolerance, for rounding to pixels and for single precision.
class SearchSpot {
public:
    SearchSpot(CFigContext* ctx, int x, int y, int t);

    /// False only if no search by that tolerance finds anything of the box at the present zoom.
    template <class Box> bool mayHit(const Box& box) const
    {
        return (box.xmin <= m_xmax && box.xmax >= m_xmin && box.ymin <= m_ymax &&
                box.ymax >= m_ymin) ||
               isTooFarOut(box);
    }
    /// Whether it is away from all sides of the box.
    template <class Box> bool liesInside(const Box& box) const
    {
        return box.xmin < m_xmin && m_xmax < box.xmax && box.ymin < m_ymin && m_ymax < box.ymax;
    }

private:
    /// Pixels of such a box saturate, so that far things fall on one another.
    template <class Box> bool isTooFarOut(const Box& box) const
    {
        return box.xmin < -m_farthest || box.ymin < -m_farthest || box.xmax > m_farthest ||
               box.ymax > m_farthest;
    }

    double m_xmin, m_ymin, m_xmax, m_ymax;
    double m_farthest;
};
