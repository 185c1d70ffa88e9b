// A document without window for tests of the searches: zoom 1 at 80 pixels per inch, so that a
// pixel is 15 figure units and the tolerance 30.
#pragma once

#include "ObjectBuilders.h"
#include "model/FigContext.h"
#include "render/gfx_math.h"

#include <memory>

struct SearchFixture {
    std::unique_ptr<CFigContext> document = std::make_unique<CFigContext>();
    CFigContext* ctx = document.get();

    SearchFixture()
    {
        ctx->zoom = 1.0f;
        ctx->ppiX = ctx->ppiY = 80.0f;
    }
    /// Appends the object, which the document owns from then on.
    template <class Object> Object* add(Object* object)
    {
        ctx->drawing.objects.append(object);
        return object;
    }
    void hideLayer(int depth) { ctx->active_layers[depth] = false; }
};

inline FigEllipse* makeEllipse(int x, int y, int rx, int ry, float angle = 0)
{
    auto* ellipse = new FigEllipse;
    ellipse->center = FigPoint(x, y);
    ellipse->radiuses = FigPoint(rx, ry);
    ellipse->start = ellipse->center;
    ellipse->end = FigPoint(saturatedInt(static_cast<long long>(x) + rx),
                            saturatedInt(static_cast<long long>(y) + ry));
    ellipse->angle = angle;
    return ellipse;
}

/// The quarter of a circle from its right to its top, counter-clockwise.
inline FigArc* makeQuarter(int x, int y, int radius)
{
    auto* arc = new FigArc;
    arc->center_x = static_cast<float>(x);
    arc->center_y = static_cast<float>(y);
    const int diagonal = static_cast<int>(radius * 0.70710678);
    arc->point[0] = FigPoint(x + radius, y);
    arc->point[1] = FigPoint(x + diagonal, y - diagonal);
    arc->point[2] = FigPoint(x, y - radius);
    arc->direction = 1;
    return arc;
}

inline FigText* makeText(int x, int y, int size = 12, float angle = 0)
{
    auto* text = new FigText;
    text->x = x;
    text->y = y;
    text->size = size;
    text->angle = angle;
    text->cstring = "text";
    text->length = 2000;
    text->ascent = 150;
    return text;
}

/// A compound with its corners as given.
inline FigCompound* makeBoxedCompound(int x1, int y1, int x2, int y2,
                                      std::initializer_list<FigObject*> members)
{
    FigCompound* compound = makeCompound(members);
    compound->nwcorner = FigPoint(x1, y1);
    compound->secorner = FigPoint(x2, y2);
    return compound;
}
