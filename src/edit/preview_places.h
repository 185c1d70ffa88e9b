// Where the objects of one step of feedback stand in the drawing: those that move, and those that
// are linked to them. One walk finds all of it, and copies go in and out without another.
#pragma once

#include "model/ObjectFunctions.h"

class PreviewPlaces {
public:
    /// The objects need not be in the drawing; what is not there is not replaced.
    PreviewPlaces(CFigContext* ctx, const FigObjectList& moved);
    PreviewPlaces(const PreviewPlaces&) = delete;
    PreviewPlaces& operator=(const PreviewPlaces&) = delete;

    /// What lies in the working root and is linked to the moved objects or to what lies in them,
    /// in the order of the drawing. Members of a moved object move with it and are not told.
    const FigObjectList& linkedObjects() const { return linked; }
    /// The compounds around those, inner ones first.
    const QList<FigCompound*>& parentsOfLinked() const { return parents; }

    /// Copies, in the order of the moved and of the linked objects, take their places.
    void putCopies(const FigObjectList& movedCopies, const FigObjectList& linkedCopies);
    /// The objects are back in their places, and the compounds around have their old corners.
    void putBack();
    /// Corners of the compounds around from what stands in them now.
    void measureParents();

private:
    class Walk;
    struct Place {
        FigObjectList* list;
        FigObjectList::iterator entry, end;
        FigObject* real;
    };
    struct Corners {
        FigPoint first, second;
    };

    CFigContext* ctx;
    const FigObjectList moved;
    FigObjectList linked;
    QList<FigCompound*> parents;
    QList<Corners> formerCorners;
    FigObjectList outermost; ///< of the parents
    QList<Place> places;
};
