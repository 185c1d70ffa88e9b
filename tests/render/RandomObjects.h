// Seeded objects of all types for property tests: every attribute that bounds or drawing read.
#pragma once

#include "DrawingFixtures.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>

class RandomObjects {
public:
    /// Coordinates lie within `extent` figure units of the origin.
    explicit RandomObjects(unsigned seed, int extent) : m_random(seed), m_extent(extent) {}

    int number(int low, int high)
    {
        return std::uniform_int_distribution<int>(low, high)(m_random);
    }
    double real(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }
    bool oneIn(int n) { return number(1, n) == 1; }

    /// Any type; the caller owns it. Compounds nest to that level.
    FigObject* object(int levels = 2)
    {
        FigObject* made = makeObject(levels);
        made->depth = number(0, 12) * 83;
        made->thickness = oneIn(4) ? 0 : number(-1, 12);
        if (oneIn(8))
            made->thickness = number(20, 200);
        made->line_style = number(-1, 5);
        made->style_val = static_cast<float>(real(0, 8));
        made->pen_color = number(-1, 31);
        made->fill_color = number(-1, 31);
        made->fill_style = oneIn(2) ? -1 : number(0, 40);
        return made;
    }

    FigLine* line()
    {
        auto line = makeLine(points(number(1, 7)));
        line->sub_type = number(T_POLYLINE, T_ARCBOX);
        line->join_style = number(0, 2);
        line->cap_style = number(0, 2);
        line->radius = number(-1, 30);
        addArrows(line.get());
        return line.release();
    }

    FigSpline* spline()
    {
        const int subType = number(0, 5);
        const int count = number(subType % 2 ? 3 : 2, 7);
        QVector<double> factors;
        for (int i = 0; i < count; ++i)
            factors.append(oneIn(3) ? number(-1, 1) : real(-1, 1));
        auto spline = makeSpline(subType, points(count), factors);
        spline->cap_style = number(0, 2);
        addArrows(spline.get());
        return spline.release();
    }

    FigEllipse* ellipse()
    {
        auto* ellipse = new FigEllipse;
        ellipse->center = point();
        ellipse->radiuses = FigPoint(std::abs(offset()), std::abs(offset()));
        ellipse->start = near(ellipse->center);
        ellipse->end = near(ellipse->center);
        ellipse->angle = oneIn(2) ? 0.0f : static_cast<float>(real(0, 6.28));
        return ellipse;
    }

    /// Ends on a circle, and sometimes off it.
    FigArc* arc()
    {
        auto* arc = new FigArc;
        arc->center_x = static_cast<float>(real(-m_extent, m_extent));
        arc->center_y = static_cast<float>(real(-m_extent, m_extent));
        const double radius = std::abs(offset());
        for (FigPoint& end : arc->point) {
            const double angle = real(0, 6.2831853);
            end = FigPoint(shifted(long(arc->center_x), int(radius * std::cos(angle))),
                           shifted(long(arc->center_y), int(radius * std::sin(angle))));
            if (oneIn(10))
                end = near(end);
        }
        if (oneIn(6))
            arc->point[2] = arc->point[0];
        arc->direction = number(0, 1);
        arc->sub_type = number(0, 1);
        arc->cap_style = number(0, 2);
        addArrows(arc);
        return arc;
    }

    FigText* text()
    {
        auto* text = new FigText;
        const FigPoint base = point();
        text->x = base.x;
        text->y = base.y;
        text->sub_type = number(0, 2);
        text->font = number(-1, 34);
        text->size = number(4, 40);
        text->angle = oneIn(2) ? 0.0f : static_cast<float>(real(-3.2, 6.3));
        text->cstring = QString(number(0, 20), QChar('A' + number(0, 40)));
        text->color = number(0, 31);
        return text;
    }

    FigCompound* compound(int levels)
    {
        auto* compound = new FigCompound;
        for (int i = number(0, 5); i > 0; --i)
            compound->objects->append(object(levels - 1));
        return compound;
    }

private:
    FigObject* makeObject(int levels)
    {
        switch (number(levels > 0 ? 0 : 1, 9)) {
        case 0:
            return compound(levels);
        case 1:
        case 2:
            return ellipse();
        case 3:
        case 4:
            return arc();
        case 5:
            return text();
        case 6:
        case 7:
            return spline();
        default:
            return line();
        }
    }

    /// Mostly small against the extent, sometimes as large.
    int offset()
    {
        const int reach = oneIn(3) ? m_extent : m_extent / 30 + 1;
        return number(-reach, reach);
    }

    FigPoint point() { return FigPoint(number(-m_extent, m_extent), number(-m_extent, m_extent)); }

    FigPoint near(const FigPoint& from)
    {
        return FigPoint(shifted(from.x, offset()), shifted(from.y, offset()));
    }

    static int shifted(long from, int by)
    {
        return int(std::clamp<long>(from + by, INT_MIN, INT_MAX));
    }

    QVector<QPoint> points(int count)
    {
        const FigPoint middle = point();
        QVector<QPoint> made;
        for (int i = 0; i < count; ++i) {
            const FigPoint next = near(middle);
            made.append(QPoint(next.x, next.y));
        }
        return made;
    }

    FigArrow* arrow()
    {
        const float size = static_cast<float>(oneIn(4) ? real(200, 4000) : real(15, 200));
        return makeArrow(number(0, 14), number(0, 1), static_cast<float>(real(0, 9)), size,
                         size * static_cast<float>(real(0.1, 10)));
    }

    void addArrows(FigObject* object)
    {
        if (oneIn(3))
            object->forward_arrow = arrow();
        if (oneIn(3))
            object->backward_arrow = arrow();
    }

    std::mt19937 m_random;
    int m_extent;
};
