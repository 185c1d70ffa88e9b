// Documents for tests of the tools that turn, scale and reshape objects. At 80 dots per inch and
// zoom 1 a hit may be 30 units off.
#pragma once

#include "LinkFixture.h"
#include "ToolFixture.h"
#include "edit/u_reshaping.h"
#include "edit/u_search.h"
#include "model/objectwalk.h"
#include "model/w_layers.h"

#include <QtTest>

struct ReshapedDocument : ToolDocument {
    ReshapedDocument() { resetGesture(); }
    ~ReshapedDocument()
    {
        resetGesture();
        delete ctx.movedObjects;
        ctx.movedObjects = nullptr;
        deleteObjectList(&oldElasticObjectList);
        drop_reshaped_object(&ctx);
    }
    template <typename Object> Object* put(Object* object)
    {
        object->id = ctx.getNextId();
        prepare(object);
        list_add(&ctx, &ctx.drawing.objects, object);
        set_depths(&ctx);
        return object;
    }
    /// A compound of the objects, with the corners that it has.
    FigCompound* putCompound(std::initializer_list<FigObject*> members)
    {
        FigCompound* compound = makeCompound(members);
        prepareMembers(compound);
        put(compound);
        update_compound_corners(&ctx, compound);
        return compound;
    }
    void show() { image = redrawn(); }
    bool showsWhatARedrawShows() { return image == redrawn(); }
    QString text() { return records(); }
    void click(int x, int y)
    {
        left(x, y);
        release(x, y);
    }
    int steps() const { return ctx.undoQueue.undoCount(); }
    void undo() { ctx.undoQueue.undo(); }
    void redo() { ctx.undoQueue.redo(); }
    QStringList messages() const { return recordingShell.messages; }

private:
    static void prepare(FigObject* object)
    {
        object->depth = 50;
        object->thickness = 1;
    }
    void prepareMembers(FigCompound* compound)
    {
        for (FigObject* member : qAsConst(*compound->objects)) {
            if (member->id == -1)
                member->id = ctx.getNextId();
            prepare(member);
            if (FigCompound* inner = objectwalk::asCompound(member))
                prepareMembers(inner);
        }
    }
    static void resetGesture()
    {
        shift_down = false;
        setcenter = 0;
        moved_pos = left_point = right_point = nullptr;
        movedpoint_num = 0;
        return_proc = nullptr;
        previous_command = -1;
    }
};

inline FigArc* makeArc(QPoint first, QPoint second, QPoint third, QPointF centre)
{
    auto* arc = new FigArc;
    arc->point[0] = FigPoint(first.x(), first.y());
    arc->point[1] = FigPoint(second.x(), second.y());
    arc->point[2] = FigPoint(third.x(), third.y());
    arc->center_x = static_cast<float>(centre.x());
    arc->center_y = static_cast<float>(centre.y());
    return arc;
}
