#include "fileio/written_tree.h"

#include "fileio/f_read.h"

bool hasRecord(const FigObject* object)
{
    switch (object->type) {
    case O_ELLIPSE: {
        const FigPoint& radiuses = static_cast<const FigEllipse*>(object)->radiuses;
        return radiuses.x != 0 && radiuses.y != 0;
    }
    case O_POLYLINE:
        return static_cast<const FigLine*>(object)->points != nullptr;
    case O_SPLINE:
        return static_cast<const FigSpline*>(object)->points != nullptr;
    case O_TEXT:
        return static_cast<const FigText*>(object)->length != 0;
    default:
        return object->type == O_ARC || object->type == O_COMPOUND;
    }
}

WrittenTree::WrittenTree(CFigContext* context, FigObjectList* rootList)
    : ctx(context), root(rootList)
{
    for (FigObject* object : qAsConst(*root))
        if (object->type == O_COMPOUND)
            noteCorners(static_cast<FigCompound*>(object));
}

/// True when something within the compound is not written, so that its corners may be others.
bool WrittenTree::noteCorners(FigCompound* compound)
{
    bool complete = true;
    for (FigObject* member : qAsConst(*compound->objects)) {
        if (!hasRecord(member) ||
            (member->type == O_COMPOUND && noteCorners(static_cast<FigCompound*>(member))))
            complete = false;
    }
    if (!complete)
        standInOf.insert(compound, makeStandIn(compound));
    return !complete;
}

/// Those within the compound have been made before.
FigCompound* WrittenTree::makeStandIn(const FigCompound* compound)
{
    FigObjectList written;
    for (FigObject* member : qAsConst(*compound->objects))
        if (hasRecord(member))
            written.append(standInOf.contains(member) ? standInOf.value(member) : member);
    standIns.push_back(std::make_unique<FigCompound>());
    FigCompound* standIn = standIns.back().get();
    boundsAsRead(ctx, &written, &standIn->nwcorner, &standIn->secorner);
    return standIn;
}

const FigCompound* WrittenTree::withCorners(const FigCompound* compound) const
{
    const FigCompound* standIn = standInOf.value(compound);
    return standIn ? standIn : compound;
}

bool WrittenTree::containsId(long id)
{
    if (!idsGathered)
        gatherIds(root);
    idsGathered = true;
    return id != -1 && ids.contains(id);
}

void WrittenTree::gatherIds(FigObjectList* list)
{
    for (FigObject* object : qAsConst(*list)) {
        if (hasRecord(object))
            ids.insert(object->id);
        if (object->type == O_COMPOUND)
            gatherIds(static_cast<FigCompound*>(object)->objects);
    }
}
