// How the functions on objects and the edits walk the tree.
#pragma once

#include "model/ObjectFunctions.h"

namespace objectwalk {

inline FigCompound* asCompound(FigObject* object)
{
    return object->type == O_COMPOUND ? static_cast<FigCompound*>(object) : nullptr;
}

/// The outline of a line or spline, null for everything else.
inline FigPath* asPath(FigObject* object)
{
    switch (object->type) {
    case O_POLYLINE:
        return static_cast<FigLine*>(object);
    case O_SPLINE:
        return static_cast<FigSpline*>(object);
    default:
        return nullptr;
    }
}

/// Calls on each object at every level, a compound before its members.
template <typename Visit> void visitAll(const FigObjectList* list, Visit visit)
{
    if (!list)
        return;
    for (FigObject* object : *list) {
        visit(object);
        if (FigCompound* compound = asCompound(object))
            visitAll(compound->objects, visit);
    }
}

/// First object in the order of visitAll for which the question is answered with true, or null.
template <typename Ask> FigObject* findAny(const FigObjectList* list, Ask ask)
{
    if (!list)
        return nullptr;
    for (FigObject* object : *list) {
        if (ask(object))
            return object;
        FigCompound* compound = asCompound(object);
        FigObject* found = compound ? findAny(compound->objects, ask) : nullptr;
        if (found)
            return found;
    }
    return nullptr;
}

inline void removeLink(FigPoint* point)
{
    delete point->link;
    point->link = nullptr;
}

} // namespace objectwalk
