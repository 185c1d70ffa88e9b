// Small figures in one line each, for tests.
#pragma once

#include "model/ObjectFunctions.h"
#include "model/u_list.h"

#include <initializer_list>
#include <utility>

using Coordinates = std::initializer_list<std::pair<int, int>>;

inline FigPoint* makePoints(Coordinates coordinates)
{
    FigPoint* first = nullptr;
    FigPoint* last = nullptr;
    for (const auto& [x, y] : coordinates) {
        append_point(x, y, &last);
        if (!first)
            first = last;
    }
    return first;
}

inline FigLine* makeLine(Coordinates coordinates, int subType = T_POLYLINE)
{
    auto* line = new FigLine;
    line->sub_type = subType;
    line->points = makePoints(coordinates);
    return line;
}

inline FigSpline* makeSpline(Coordinates coordinates, int subType = 0)
{
    auto* spline = new FigSpline;
    spline->sub_type = subType;
    spline->points = makePoints(coordinates);
    make_sfactors(spline);
    return spline;
}

inline FigCompound* makeCompound(std::initializer_list<FigObject*> members)
{
    auto* compound = new FigCompound;
    for (FigObject* member : members)
        compound->objects->append(member);
    return compound;
}

/// Gives the object an id and a depth and returns it.
template <typename Object> Object* with(Object* object, long id, int depth = 50)
{
    object->id = id;
    object->depth = depth;
    return object;
}

/// Ties a point to an object, by the indexes of the target segment.
inline FigLink* makeLink(FigPoint* point, long targetId, int leftIndex = -1, int rightIndex = -1)
{
    point->link = new FigLink;
    point->link->srcPoint = point;
    point->link->targetObjId = targetId;
    point->link->targetLeftPointIdx = leftIndex;
    point->link->targetRightPointIdx = rightIndex;
    return point->link;
}

/// Counts its destructions.
class MortalObject : public FigObject {
public:
    explicit MortalObject(int* counter) : deaths(counter) {}
    ~MortalObject() override { ++*deaths; }

private:
    int* deaths;
};

/// A list that deletes what it holds at its end.
struct OwnedList : FigObjectList {
    OwnedList() = default;
    OwnedList(std::initializer_list<FigObject*> objects) : FigObjectList(objects) {}
    OwnedList(const OwnedList&) = delete;
    OwnedList& operator=(const OwnedList&) = delete;
    ~OwnedList() { deleteObjectList(this); }
};
