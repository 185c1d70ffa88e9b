// Links on a line of which several points move one after the other.
#pragma once

#include "edit/e_links.h"

/// Finds what is linked to the object once, then lets it follow each move. Every move is a pass of
/// its own: a point may be moved again by the next.
class PointFollowers {
public:
    /// list null: nothing follows.
    PointFollowers(FigObjectList* list, FigObject* object);
    /// The point of that index has moved.
    void follow(int index, const FigPoint& former, const FigPoint& now);

private:
    FigObject* target;
    FigObjectList sources;
};
