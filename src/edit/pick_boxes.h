// A cheap box per object, kept from one pointer move to the next, so that the search under the
// pointer looks only at objects that can be hit. Gives exactly what objectSearch gives.
#pragma once

#include "model/ObjectFunctions.h"

#include <vector>

/// Boxes of the working root of one document. They hold as long as no object changes: whoever
/// owns them drops them before anything but a pointer move is served. Layers and the view may
/// change meanwhile.
class PickBoxes {
public:
    /// objectSearch with nothing excluded; takes the boxes anew if they were dropped, or if the
    /// working root is another or has another number of objects.
    FigObject* search(CFigContext* ctx, int x, int y, int* px, int* py);
    void drop();

private:
    struct Box {
        int xmin, ymin, xmax, ymax; ///< figure units, with room for rounding, without tolerance
        FigObject* object;
        int place;   ///< in the list, which decides who is found first
        bool hollow; ///< found on the sides of the box alone
    };
    /// Boxes that lie close together under a common one.
    struct Group {
        int xmin, ymin, xmax, ymax;
        size_t first, end;
    };
    bool isUpToDate(CFigContext* ctx) const;
    void take(CFigContext* ctx);
    void sortByPosition();
    void makeGroups();

    std::vector<Box> boxes;
    std::vector<Group> groups;
    const FigObjectList* list = nullptr;
    int listSize = 0;
    float ppiX = 0, ppiY = 0; ///< texts reach as far as the resolution says
};
