// The ends that are linked to an object, as they were before a change that they follow.
#pragma once

#include "model/FigObjects.h"
#include "model/ObjectFunctions.h"

#include <QVector>

/// An end that follows a segment is turned and stretched with it and lands on whole units, and a
/// link whose segment went has taken another one: the reverse change need not lead back to where
/// they came from. Undo puts them there.
class LinkedEnds {
public:
    /// All ends in list that are linked to the object, in place of those noted before.
    void note(FigObjectList* list, FigObject* object);
    /// Places, segments, and links that are gone by now. The ends that were noted must still be.
    void restore() const;

private:
    struct End {
        FigPoint* point;
        int x, y;
        FigLink link; ///< a copy
    };
    QVector<End> ends;
};
