// What the units of the searches share. Only they include it.
#pragma once

#include "edit/u_search.h"

/// Per axis, without overflow.
bool isNear(int x, int y, int pointX, int pointY, int tolerance);
inline bool isNear(int x, int y, const FigPoint& point, int tolerance)
{
    return isNear(x, y, point.x, point.y, tolerance);
}
/// One screen pixel in figure units; 0 at great zooms.
int pixelTolerance(CFigContext* ctx);

// The kinds whose public searches know only the working root, over a list.
FigArc* arc_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px, int* py);
FigCompound* compound_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px,
                             int* py);
FigText* text_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px, int* py);

/// First object of the type in the list for which the question is answered with true, or null.
template <class Object, class Ask> Object* findOfType(FigObjectList* list, int type, Ask ask)
{
    for (FigObject* object : qAsConst(*list)) {
        if (object->type != type)
            continue;
        auto* typed = static_cast<Object*>(object);
        if (ask(typed))
            return typed;
    }
    return nullptr;
}
