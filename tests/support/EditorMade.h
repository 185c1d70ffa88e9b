// Random figures as the editor itself could have made them, so that all that is done to them can
// be taken back to the last digit.
#pragma once

#include "FigureFaults.h"
#include "ObjectBuilders.h"

#include "edit/e_links.h"

/// Only links that the editor makes stay.
inline void dropForeignLinks(CFigContext* ctx, FigObject* object)
{
    FigPath* path = chainOwner(object);
    for (FigPoint* point = path ? path->points : nullptr; point; point = point->next) {
        if (!point->link)
            continue;
        FigObject* target = findObjectById(&ctx->drawing.objects, point->link->targetObjId);
        if (isLinkableSourceObject(object) && isLinkableTargetObject(target))
            continue;
        delete point->link;
        point->link = nullptr;
    }
}

/// No empty compounds, which vanish for good; whole centres of arcs, to which a move adds in single
/// precision; no foreign links. The depth table is the caller's.
inline void makeAsEdited(CFigContext* ctx, FigObjectList* list)
{
    for (FigObject* object : qAsConst(*list)) {
        if (object->type == O_COMPOUND) {
            auto* compound = static_cast<FigCompound*>(object);
            if (compound->isEmpty())
                compound->objects->append(with(makeLine({{10, 10}, {500, 700}}), ctx->getNextId()));
            makeAsEdited(ctx, compound->objects);
        } else if (object->type == O_ARC) {
            auto* arc = static_cast<FigArc*>(object);
            arc->center_x = static_cast<float>(static_cast<int>(arc->center_x));
            arc->center_y = static_cast<float>(static_cast<int>(arc->center_y));
        } else {
            dropForeignLinks(ctx, object);
        }
    }
}
