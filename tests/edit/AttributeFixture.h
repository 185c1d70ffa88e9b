// Objects of each type, and a document whose objects are updated to the current attributes.
#pragma once

#include "../fileio/WriterFixture.h"
#include "ActionFixture.h"
#include "CurrentAttributes.h"
#include "RandomFigure.h"
#include "edit/e_update.h"

inline FigArc* makeOpenArc()
{
    auto* arc = new FigArc;
    arc->point[0] = FigPoint(2400, 1200);
    arc->point[1] = FigPoint(1200, 2400);
    arc->point[2] = FigPoint(0, 1200);
    arc->center_x = arc->center_y = 1200;
    return arc;
}

inline FigText* makeText(const QString& words)
{
    auto* text = new FigText;
    text->cstring = words;
    return text;
}

inline FigEllipse* makeEllipse()
{
    auto* ellipse = new FigEllipse;
    ellipse->sub_type = 1;
    ellipse->center = FigPoint(1200, 1200);
    ellipse->radiuses = FigPoint(600, 300);
    return ellipse;
}

inline FigLine* makeBox(int subType = T_BOX)
{
    return makeLine({{0, 0}, {900, 0}, {900, 600}, {0, 600}, {0, 0}}, subType);
}

struct Document : EditedFigure {
    template <typename Object> Object* add(Object* object)
    {
        object->id = ctx.getNextId();
        return put(object);
    }
    int steps() const { return ctx.undoQueue.undoCount(); }
    void update(FigObject* object, bool fromUpdateTool = true)
    {
        update_object_to_current_attrs(&ctx, object, fromUpdateTool);
    }
    /// The text of its file.
    QString saved()
    {
        return written([this](QTextStream& stream) { writeObjects(&ctx, stream); });
    }
    QList<int> kinds(FigObject* object, bool useList)
    {
        QList<int> found;
        ActionList* changes = getChangesList(&ctx, object, useList);
        for (ActionItem* action : qAsConst(*changes))
            found.append(static_cast<ChangeAttributeAction*>(action)->change->kind);
        dispose(changes);
        return found;
    }
    static void dispose(ActionList* changes)
    {
        for (ActionItem* action : qAsConst(*changes))
            action->disposeAsRedo();
        qDeleteAll(*changes);
        delete changes;
    }
};

/// The objects of a list that are no compounds, at every level.
inline void collect(const FigObjectList& list, FigObjectList* leaves)
{
    for (FigObject* object : list) {
        if (object->type == O_COMPOUND)
            collect(*static_cast<FigCompound*>(object)->objects, leaves);
        else
            leaves->append(object);
    }
}

inline void takeAttributes(CFigContext* ctx, FigObject* object)
{
    switch (object->type) {
    case O_POLYLINE:
        return get_line_attrs(ctx, static_cast<FigLine*>(object));
    case O_SPLINE:
        return get_spline_attrs(ctx, static_cast<FigSpline*>(object));
    case O_ELLIPSE:
        return get_ellipse_attrs(ctx, static_cast<FigEllipse*>(object));
    case O_ARC:
        return get_arc_attrs(ctx, static_cast<FigArc*>(object));
    case O_TEXT:
        return get_text_attrs(ctx, static_cast<FigText*>(object));
    }
}
