// What a file will hold of a tree. Objects without extent have no record, and what depends on them
// has to be told as a reader of the file will find it.
#pragma once

#include "model/ObjectFunctions.h"

#include <memory>
#include <vector>

class CFigContext;

/// False for an ellipse with a radius of 0, a line or spline without points, a text of length 0.
bool hasRecord(const FigObject* object);

/// Looked up while a drawing is written; the tree does not change meanwhile.
class WrittenTree {
public:
    WrittenTree(CFigContext* ctx, FigObjectList* rootList);
    WrittenTree(const WrittenTree&) = delete;
    WrittenTree& operator=(const WrittenTree&) = delete;

    bool isOf(const FigObjectList* rootList) const { return root == rootList; }
    /// Whether an object of that id is written, at any level. Never for -1.
    bool containsId(long id);
    /// The compound, or a stand-in with the bounds of what is written of it.
    const FigCompound* withCorners(const FigCompound* compound) const;

private:
    bool noteCorners(FigCompound* compound);
    FigCompound* makeStandIn(const FigCompound* compound);
    void gatherIds(FigObjectList* list);

    CFigContext* ctx;
    FigObjectList* root;
    QSet<long> ids;
    bool idsGathered = false;
    QHash<const FigObject*, FigCompound*> standInOf;
    std::vector<std::unique_ptr<FigCompound>> standIns;
};
