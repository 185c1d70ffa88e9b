// What has to hold of a document at any moment, whatever the user has done so far.
#pragma once

#include "edit/command.h"
#include "edit/e_clipboard.h"
#include "edit/e_copy.h"
#include "edit/e_library.h"
#include "edit/mode.h"
#include "edit/u_reshaping.h"
#include "fileio/f_save.h"
#include "fileio/written_tree.h"
#include "model/FigContext.h"
#include "model/ObjectFunctions.h"
#include "model/w_layers.h"

#include <QSet>
#include <QTextStream>

#include <algorithm>
#include <cmath>

/// All objects of a list, those in compounds included.
inline void collectObjects(const FigObjectList& list, QList<FigObject*>* all)
{
    for (FigObject* object : list) {
        all->append(object);
        if (object->type == O_COMPOUND)
            collectObjects(*static_cast<FigCompound*>(object)->objects, all);
    }
}

inline QList<FigObject*> objectsOf(CFigContext* ctx)
{
    QList<FigObject*> all;
    collectObjects(ctx->drawing.objects, &all);
    return all;
}

/// The chain of a line or spline; null for other objects.
inline FigPath* chainOwner(FigObject* object)
{
    if (object->type == O_POLYLINE)
        return static_cast<FigLine*>(object);
    return object->type == O_SPLINE ? static_cast<FigSpline*>(object) : nullptr;
}

/// Objects that stand in the figure for the preview of a copy or a paste alone. They are not
/// counted yet.
inline QSet<FigObject*> previewOf(CFigContext* ctx)
{
    QSet<FigObject*> preview;
    const bool isShown =
        canvas_leftbut_proc == placeClipOjects || canvas_leftbut_proc == place_copy_object;
    if (!ctx->movedObjects || !isShown)
        return preview;
    QList<FigObject*> all;
    collectObjects(*ctx->movedObjects, &all);
    for (FigObject* object : qAsConst(all))
        preview.insert(object);
    return preview;
}

inline bool isFar(int coordinate)
{
    constexpr int limit = 2000000000; // beyond it the next step would leave the integers
    return coordinate > limit || coordinate < -limit;
}

inline QString coordinateFault(FigObject* object)
{
    QList<int> whole;
    QList<float> broken{object->style_val};
    if (FigPath* path = chainOwner(object))
        for (const FigPoint* point = path->points; point; point = point->next)
            whole << point->x << point->y;
    for (const FigArrow* arrow : {object->forward_arrow, object->backward_arrow})
        if (arrow)
            broken << arrow->thickness << arrow->wd << arrow->ht;
    if (object->type == O_SPLINE)
        for (auto* factor = static_cast<FigSpline*>(object)->sfactors; factor;
             factor = factor->next)
            broken << static_cast<float>(factor->s);
    if (object->type == O_ELLIPSE) {
        const auto* ellipse = static_cast<FigEllipse*>(object);
        broken << ellipse->angle;
        for (const FigPoint* point :
             {&ellipse->center, &ellipse->radiuses, &ellipse->start, &ellipse->end})
            whole << point->x << point->y;
    }
    if (object->type == O_ARC) {
        const auto* arc = static_cast<FigArc*>(object);
        broken << arc->center_x << arc->center_y;
        for (const FigPoint& point : arc->point)
            whole << point.x << point.y;
    }
    if (object->type == O_TEXT) {
        const auto* text = static_cast<FigText*>(object);
        whole << text->x << text->y;
        broken << text->angle;
        if (text->size < 1 || text->size > 500)
            return "a text has the size " + QString::number(text->size);
    }
    if (object->type == O_COMPOUND) {
        const auto* compound = static_cast<FigCompound*>(object);
        whole << compound->nwcorner.x << compound->nwcorner.y << compound->secorner.x
              << compound->secorner.y;
    }
    if (std::any_of(whole.cbegin(), whole.cend(), isFar))
        return "a coordinate is out of range";
    if (!std::all_of(broken.cbegin(), broken.cend(), [](float f) { return std::isfinite(f); }))
        return "a number is not finite";
    return {};
}

inline QString chainFault(FigObject* object)
{
    FigPath* path = chainOwner(object);
    if (!path)
        return {};
    if (!path->points)
        return "a line has no points";
    int count = 0;
    for (const FigPoint* point = path->points; point; point = point->next) {
        ++count;
        if (point->link && point->link->srcPoint != point)
            return "a link is not that of its point";
    }
    if (object->type == O_POLYLINE && object->sub_type == T_POLYGON && count < 3)
        return "a polygon has fewer than three points";
    if (object->type != O_SPLINE)
        return {};
    for (auto* factor = static_cast<FigSpline*>(object)->sfactors; factor; factor = factor->next)
        --count;
    return count == 0 ? QString() : "a spline has not one factor for each point";
}

inline QString depthFault(CFigContext* ctx, const QList<FigObject*>& all)
{
    const QSet<FigObject*> preview = previewOf(ctx);
    QVector<int> depths(NUM_DEPTHS);
    QVector<DepthCounts> counts(NUM_DEPTHS);
    QList<FigObject*> counted = all;
    // A drawing of the library is counted as soon as its placing begins.
    if (curLibDrawing && gestureContext == ctx)
        collectObjects(*ctx->movedObjects, &counted);
    for (const FigObject* object : qAsConst(counted)) {
        if (object->type == O_COMPOUND || preview.contains(const_cast<FigObject*>(object)))
            continue;
        if (object->depth < 0 || object->depth > MAX_DEPTH)
            return QString("object %1 has the depth %2").arg(object->id).arg(object->depth);
        DepthCounts& count = counts[object->depth];
        ++depths[object->depth];
        ++(object->type == O_ARC        ? count.arcs
           : object->type == O_POLYLINE ? count.lines
           : object->type == O_ELLIPSE  ? count.ellipses
           : object->type == O_SPLINE   ? count.splines
                                        : count.texts);
    }
    for (int depth = 0; depth < NUM_DEPTHS; ++depth) {
        const DepthCounts &is = ctx->counts[depth], &should = counts[depth];
        if (depths[depth] != ctx->object_depths[depth] || is.arcs != should.arcs ||
            is.lines != should.lines || is.ellipses != should.ellipses ||
            is.splines != should.splines || is.texts != should.texts)
            return QString("depth %1 is counted wrongly").arg(depth);
    }
    return {};
}

inline int linkCount(CFigContext* ctx)
{
    int count = 0;
    for (FigObject* object : objectsOf(ctx)) {
        FigPath* path = chainOwner(object);
        for (const FigPoint* point = path ? path->points : nullptr; point; point = point->next)
            count += point->link != nullptr;
    }
    return count;
}

/// No object in the figure is linked to one that has left it. A deletion takes off the links of its
/// own list alone, so what was a member of a compound may leave some behind.
inline QString linkFault(const QList<FigObject*>& all, const QSet<long>& ids,
                         const QSet<long>& wereMembers)
{
    for (FigObject* object : all) {
        FigPath* path = chainOwner(object);
        for (const FigPoint* point = path ? path->points : nullptr; point; point = point->next) {
            if (!point->link)
                continue;
            const long id = point->link->targetObjId;
            if (!ids.contains(id) && !wereMembers.contains(id))
                return QString("object %1 is linked to %2, which has gone").arg(object->id).arg(id);
        }
    }
    return {};
}

/// What has to be over when no gesture of the document is in progress.
inline QString restFault(CFigContext* ctx)
{
    if (gestureContext == ctx)
        return {};
    if (ctx->firstPoint || ctx->lastPoint)
        return "a chain is left without a gesture";
    if (ctx->movedObjects)
        return "moved objects are left without a gesture";
    if (ctx->addPointActions)
        return "added points are left without a gesture";
    if (ctx->reshapedObject)
        return "a reshaped object is left without a gesture";
    return {};
}

/// Adds the ids of what lies in compounds.
inline void collectMemberIds(CFigContext* ctx, QSet<long>* found)
{
    QList<FigObject*> members;
    for (FigObject* object : qAsConst(ctx->drawing.objects))
        if (object->type == O_COMPOUND)
            collectObjects(*static_cast<FigCompound*>(object)->objects, &members);
    for (const FigObject* member : qAsConst(members))
        found->insert(member->id);
}

/// What is wrong with a document; empty where nothing is. wereMembers has the ids of all that ever
/// was a member of a compound.
inline QString figureFault(CFigContext* ctx, const QSet<long>& wereMembers = {})
{
    const QList<FigObject*> all = objectsOf(ctx);
    QSet<long> ids;
    QSet<FigObject*> objects;
    for (FigObject* object : all) {
        if (object->id < 1 || ids.contains(object->id))
            return QString("two objects have the id %1").arg(object->id);
        if (objects.contains(object))
            return QString("object %1 stands in two places").arg(object->id);
        ids.insert(object->id);
        objects.insert(object);
        for (const QString& fault : {coordinateFault(object), chainFault(object)})
            if (!fault.isEmpty())
                return QString("object %1: %2").arg(object->id).arg(fault);
    }
    if (ctx->curObject && !objects.contains(ctx->curObject))
        return "the current object is not in the figure";
    if (ctx->openCompoundObjects &&
        !getCompoundByObjectList(&ctx->drawing.objects, ctx->openCompoundObjects))
        return "the open list is of no compound in the figure";
    for (const QString& fault :
         {restFault(ctx), linkFault(all, ids, wereMembers), depthFault(ctx, all)})
        if (!fault.isEmpty())
            return fault;
    return {};
}

/// What is wrong with the gesture of the process; documents are those that are open.
inline QString gestureFault(const QList<CFigContext*>& documents)
{
    const bool isOwned = documents.contains(gestureContext);
    if (gestureContext && !isOwned)
        return "the gesture is that of a document that has gone";
    if (gestureContext)
        return gestureContext->movedObjects && !canvas_locmove_proc2 && !curLibDrawing
                   ? "objects are held that no pointer moves"
                   : QString();
    if (action_on || elastic_proc || canvas_leftbutUp_proc || canvas_locmove_proc2)
        return "something of a gesture is left";
    if (!oldElasticObjectList.isEmpty())
        return "a picture of moved objects is left";
    return canvas_leftbut_proc || documents.isEmpty() ? QString() : "no tool answers the pointer";
}

// --- the file that would be saved, in a form that does not tell the way ---------------------

/// Brings lists into the order of ids, and corners of compounds up to date, for as long as it
/// lives: an object that comes back stands last in its list, and the corners of outer compounds
/// wait until these are closed.
class NormalForm {
public:
    explicit NormalForm(CFigContext* document) : ctx(document) { sort(&ctx->drawing.objects); }
    ~NormalForm()
    {
        for (const auto& [list, order] : former)
            *list = order;
        for (const auto& [compound, corners] : formerCorners) {
            compound->nwcorner = corners.first;
            compound->secorner = corners.second;
        }
    }
    NormalForm(const NormalForm&) = delete;
    NormalForm& operator=(const NormalForm&) = delete;

private:
    void sort(FigObjectList* list)
    {
        former.append({list, *list});
        QVector<FigObject*> objects(list->cbegin(), list->cend());
        std::sort(objects.begin(), objects.end(),
                  [](const FigObject* a, const FigObject* b) { return a->id < b->id; });
        std::copy(objects.cbegin(), objects.cend(), list->begin());
        for (FigObject* object : qAsConst(objects)) {
            if (object->type != O_COMPOUND)
                continue;
            auto* compound = static_cast<FigCompound*>(object);
            formerCorners.append({compound, {compound->nwcorner, compound->secorner}});
            sort(compound->objects);
            update_compound_corners(ctx, compound);
        }
    }

    CFigContext* ctx;
    QList<std::pair<FigObjectList*, FigObjectList>> former;
    QList<std::pair<FigCompound*, std::pair<FigPoint, FigPoint>>> formerCorners;
};

/// What saving would write.
inline QByteArray writtenText(CFigContext* ctx)
{
    QByteArray text;
    QTextStream stream(&text);
    stream.setCodec("UTF-8");
    writeObjects(ctx, stream);
    stream.flush();
    return text;
}

/// Without what is worked out anew and rounds on the way: the centre of an arc, which is a sum in
/// single precision; the extent of a text, measured at the zoom of the moment; the corners of
/// compounds, which follow from these. User colours are no steps: those that a paste has brought
/// stay.
inline QByteArray withoutRounded(const QByteArray& text)
{
    QList<QByteArray> lines = text.split('\n');
    for (QByteArray& line : lines) {
        QList<QByteArray> fields = line.split(' ');
        const auto blank = [&](int first, int last) {
            for (int field = first; field <= last && field < fields.size(); ++field)
                fields[field] = "x";
        };
        if (fields[0] == "5" && fields.size() > 20)
            blank(14, 15);
        else if (fields[0] == "4" && fields.size() > 12)
            blank(9, 10);
        else if (fields[0] == "6" && fields.size() == 5)
            blank(1, 4);
        line = fields[0] == "0" ? QByteArray() : fields.join(' ');
    }
    lines.removeAll(QByteArray());
    return lines.join('\n');
}

inline QByteArray normalText(CFigContext* ctx)
{
    const NormalForm form(ctx);
    return withoutRounded(writtenText(ctx));
}

/// Which objects there are, and which of them lie in which compound: ids, types, nesting.
inline QByteArray skeleton(const FigObjectList& list)
{
    QVector<FigObject*> objects(list.cbegin(), list.cend());
    std::sort(objects.begin(), objects.end(),
              [](const FigObject* a, const FigObject* b) { return a->id < b->id; });
    QByteArray text;
    for (const FigObject* object : qAsConst(objects)) {
        text += QByteArray::number(int(object->id)) + ':' + QByteArray::number(object->type) + '\n';
        if (object->type == O_COMPOUND)
            text += "(\n" + skeleton(*static_cast<const FigCompound*>(object)->objects) + ")\n";
    }
    return text;
}

inline QString firstDifference(const QByteArray& is, const QByteArray& was)
{
    const QList<QByteArray> left = is.split('\n'), right = was.split('\n');
    for (int line = 0; line < qMax(left.size(), right.size()); ++line)
        if (left.value(line) != right.value(line))
            return QString("line %1 was \"%2\", is \"%3\"")
                .arg(line + 1)
                .arg(QString(right.value(line)), QString(left.value(line)));
    return {};
}
