// The attributes of objects as data: which objects have them, how they are read and written, and
// the current attribute that stands for each.
#pragma once

#include "edit/e_update.h"

#include <QVector>

constexpr int psFontFlag = 4; ///< bit of the flags of a text

/// One attribute of one class of objects. Whole numbers, flags and floats all travel as double,
/// which holds each of them exactly. Nothing here records undo, redraws or counts depths.
struct Attribute {
    AttributeKind kind;
    unsigned objects; ///< classes of objects, known to the table alone
    double (*read)(FigObject*);
    double (*current)(CFigContext*);
    void (*write)(FigObject*, double);
    void (*makeCurrent)(CFigContext*, double);
};

// The panels' ranges go beyond what objects can have; these are kept within it.
int usableDepth();    ///< cur_depth, 0 to 999
int usableTextSize(); ///< cur_fontsize, 1 to 500 points

/// The rows for an object, in the order in which changes are made. None for a compound.
QVector<const Attribute*> attributesOf(FigObject* object);
/// Those that its panel shows: only the depth of a picture, all of anything else.
QVector<const Attribute*> attributesInPanels(FigObject* object);
/// The row of a kind, or null where the object has no such attribute.
const Attribute* attributeOf(FigObject* object, int kind);
/// Whether an update would change the object.
bool isDifferent(const Attribute& attribute, CFigContext* ctx, FigObject* object);
/// Appends the objects that have attributes: compounds stand for their members, at every level.
void collectAttributed(const FigObjectList& list, FigObjectList* found);
