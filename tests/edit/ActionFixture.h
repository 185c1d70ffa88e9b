// A document without window whose changes go through actions, for tests.
#pragma once

#include "ObjectBuilders.h"
#include "RecordingShell.h"
#include "edit/actions.h"
#include "model/FigContext.h"
#include "model/w_layers.h"

#include <QtTest>

struct EditedFigure {
    CFigContext ctx;

    EditedFigure() { recordingShell.clear(); }
    FigObjectList& top() { return ctx.drawing.objects; }
    UndoQueue& queue() { return ctx.undoQueue; }

    /// Puts an object in as a reader does, without an action.
    template <typename Object> Object* put(Object* object)
    {
        top().append(object);
        set_depths(&ctx);
        return object;
    }

    /// Executes and queues, as a tool does.
    template <typename Action> Action* run(Action* action)
    {
        action->execute(&ctx);
        queue().addAction(action);
        return action;
    }
    void undo() { queue().undo(); }
    void redo() { queue().redo(); }
};

/// An action with the members that all have.
template <typename Action> Action* actionOn(FigObject* object, FigObjectList* list)
{
    auto* action = new Action;
    action->object = object;
    action->workingList = list;
    return action;
}

/// "1,2 3,4" of a chain.
inline QString chain(const FigPath* path)
{
    QStringList points;
    for (const FigPoint* point = path->points; point; point = point->next)
        points.append(QString("%1,%2").arg(point->x).arg(point->y));
    return points.join(' ');
}

/// The ids of a list; members in brackets.
inline QString ids(const FigObjectList& list)
{
    QStringList parts;
    for (FigObject* object : list) {
        QString part = QString::number(object->id);
        if (object->type == O_COMPOUND)
            part += "(" + ids(*static_cast<FigCompound*>(object)->objects) + ")";
        parts.append(part);
    }
    return parts.join(' ');
}

/// Empty where the depth table is what a count of the whole drawing gives.
inline QString depthTableError(CFigContext* ctx)
{
    int depths[NUM_DEPTHS];
    DepthCounts counts[NUM_DEPTHS];
    std::copy(std::begin(ctx->object_depths), std::end(ctx->object_depths), depths);
    std::copy(std::begin(ctx->counts), std::end(ctx->counts), counts);
    const int minimum = ctx->min_depth, maximum = ctx->max_depth;
    set_depths(ctx);
    for (int depth = 0; depth < NUM_DEPTHS; ++depth) {
        const DepthCounts &is = counts[depth], &should = ctx->counts[depth];
        if (depths[depth] != ctx->object_depths[depth] || is.arcs != should.arcs ||
            is.lines != should.lines || is.ellipses != should.ellipses ||
            is.splines != should.splines || is.texts != should.texts)
            return QString("depth %1 is counted wrongly").arg(depth);
    }
    if (minimum != ctx->min_depth || maximum != ctx->max_depth)
        return "the least or greatest depth is wrong";
    return {};
}
