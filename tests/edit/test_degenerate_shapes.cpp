// Shapes without size, with points that coincide, without members or without words, in the hands of
// every tool: no number leaves its range, and what is undone is as it was.
#include "FigureFaults.h"
#include "ReshapingFixture.h"
#include "edit/e_addpt_tool.h"
#include "edit/e_align.h"
#include "edit/e_arrow.h"
#include "edit/e_compound.h"
#include "edit/e_convert.h"
#include "edit/e_copy.h"
#include "edit/e_delete.h"
#include "edit/e_deletept_tool.h"
#include "edit/e_move.h"
#include "edit/e_rotate_tool.h"
#include "edit/e_scale_compound.h"
#include "edit/e_select.h"
#include "edit/e_tangent.h"
#include "edit/e_update.h"
#include "fileio/written_tree.h"

#include <functional>
#include <memory>

namespace {

using Shapes = QList<FigObject*>;

constexpr int X = 2400, Y = 1800;

template <typename Object> Object* of(Object* object, int subType)
{
    object->sub_type = subType;
    return object;
}

FigEllipse* ellipse(int rx, int ry, float angle, int subType = 1)
{
    FigEllipse* ellipse = makeEllipse(X, Y, rx, ry, subType);
    ellipse->angle = angle;
    return ellipse;
}

FigArc* arc(QPoint start, QPoint middle, QPoint end, int subType = 0)
{
    auto* arc = new FigArc;
    arc->sub_type = subType;
    arc->center_x = X;
    arc->center_y = Y;
    const QPoint points[] = {start, middle, end};
    for (int i = 0; i < 3; ++i)
        arc->point[i] = FigPoint(points[i].x(), points[i].y());
    return arc;
}

FigText* text(const QString& words)
{
    auto* text = new FigText;
    text->cstring = words;
    text->x = X;
    text->y = Y;
    return text;
}

/// The target of size zero and a connector with both ends on it, as opened from a file.
Shapes tied(FigObject* target)
{
    FigLine* line = makeLine({{X, Y}, {X + 900, Y + 600}, {X, Y}});
    makeLink(line->points, 1, 0, 1);
    makeLink(lastOf(line), 1, 1, 2);
    return {target, line};
}

struct NamedShapes {
    const char* name;
    Shapes (*make)();
};

const NamedShapes shapes[] = {
    {"dot",
     [] {
         return Shapes{makeLine({{X, Y}})};
     }},
    {"line without length",
     [] {
         return Shapes{makeLine({{X, Y}, {X, Y}})};
     }},
    {"line of equal points",
     [] {
         return Shapes{makeLine({{X, Y}, {X, Y}, {X, Y}, {X, Y}})};
     }},
    {"line back and forth",
     [] {
         return Shapes{makeLine({{X, Y}, {X + 600, Y}, {X, Y}})};
     }},
    {"box without size", [] { return Shapes{makeBox(X, Y, X, Y)}; }},
    {"box without width", [] { return Shapes{makeBox(X, Y, X, Y + 600)}; }},
    {"box without height", [] { return Shapes{makeBox(X, Y, X + 600, Y)}; }},
    {"arc-box without size", [] { return Shapes{of(makeBox(X, Y, X, Y), T_ARCBOX)}; }},
    {"picture without size",
     [] {
         FigLine* picture = of(makeBox(X, Y, X, Y), T_PICTURE);
         picture->pic = new FigPic;
         return Shapes{picture};
     }},
    {"polygon of equal points",
     [] {
         return Shapes{makeLine({{X, Y}, {X, Y}, {X, Y}, {X, Y}}, T_POLYGON)};
     }},
    {"polygon of two corners",
     [] {
         return Shapes{makeLine({{X, Y}, {X + 600, Y + 300}, {X, Y}}, T_POLYGON)};
     }},
    {"ellipse without size", [] { return Shapes{ellipse(0, 0, 0)}; }},
    {"ellipse without width", [] { return Shapes{ellipse(0, 600, 0)}; }},
    {"ellipse without height", [] { return Shapes{ellipse(600, 0, 0, 2)}; }},
    {"tilted ellipse without size", [] { return Shapes{ellipse(0, 0, 0.5f)}; }},
    {"tilted ellipse without height", [] { return Shapes{ellipse(600, 0, 0.5f)}; }},
    {"circle without radius",
     [] {
         return Shapes{ellipse(0, 0, 0, 3), ellipse(0, 0, 0, 4)};
     }},
    {"arc of equal points",
     [] {
         return Shapes{arc({X, Y}, {X, Y}, {X, Y})};
     }},
    {"arc with equal ends",
     [] {
         return Shapes{arc({X + 600, Y}, {X - 600, Y}, {X + 600, Y})};
     }},
    {"arc with a middle on its start",
     [] {
         return Shapes{arc({X + 600, Y}, {X + 600, Y}, {X, Y + 600})};
     }},
    {"arc of points in a row",
     [] {
         return Shapes{arc({X, Y}, {X + 300, Y + 300}, {X + 600, Y + 600})};
     }},
    {"wedge of equal points",
     [] {
         return Shapes{arc({X, Y}, {X, Y}, {X, Y}, 1)};
     }},
    {"spline of two points",
     [] {
         return Shapes{makeSpline({{X, Y}, {X + 600, Y}})};
     }},
    {"spline without length",
     [] {
         return Shapes{makeSpline({{X, Y}, {X, Y}}, 2)};
     }},
    {"closed spline of equal points",
     [] {
         return Shapes{makeSpline({{X, Y}, {X, Y}, {X, Y}}, 1)};
     }},
    {"closed spline through equal points",
     [] {
         return Shapes{makeSpline({{X, Y}, {X, Y}, {X, Y}}, 3)};
     }},
    {"X-spline of equal points",
     [] {
         return Shapes{makeSpline({{X, Y}, {X, Y}, {X, Y}, {X, Y}}, 4)};
     }},
    {"closed X-spline of equal points",
     [] {
         return Shapes{makeSpline({{X, Y}, {X, Y}, {X, Y}}, 5)};
     }},
    {"text without words", [] { return Shapes{text("")}; }},
    {"empty compound", [] { return Shapes{makeCompound({})}; }},
    {"compound of a dot",
     [] {
         return Shapes{makeCompound({makeLine({{X, Y}})})};
     }},
    {"compound without width",
     [] {
         return Shapes{makeCompound({makeLine({{X, Y}, {X, Y + 600}})})};
     }},
    {"compound without height",
     [] {
         return Shapes{makeCompound({makeLine({{X, Y}, {X + 600, Y}})})};
     }},
    {"nested compounds of a dot",
     [] {
         return Shapes{makeCompound({makeCompound({makeCompound({makeLine({{X, Y}})})})})};
     }},
    {"compound with an empty one",
     [] {
         return Shapes{makeCompound({makeCompound({}), ellipse(0, 0, 0)})};
     }},
    {"box without size and its connector", [] { return tied(makeBox(X, Y, X, Y)); }},
    {"ellipse without size and its connector", [] { return tied(ellipse(0, 0, 0)); }},
    {"closed spline of equal points and its connector",
     [] {
         return tied(makeSpline({{X, Y}, {X, Y}, {X, Y}}, 1));
     }},
};

void tagAll(CFigContext* ctx)
{
    set_tags(&ctx->drawing.objects, true);
}

void align(CFigContext* ctx)
{
    tagAll(ctx);
    cur_halign = cur_valign = 2;
    align_tagged_objects(ctx);
    select_selected(ctx);
}

void moveByKey(CFigContext* ctx)
{
    tagAll(ctx);
    moveTaggedObjects(ctx, 15, 0);
    select_selected(ctx);
}

struct Tool {
    const char* name;
    int command;
    void (*enter)(CFigContext*);
    bool isExact; ///< undo brings the very numbers back
    int angle;    ///< of a rotation, degrees
};

// Scaling and the general turn round on the way.
const Tool tools[] = {
    {"select", CMD_SELECT, select_selected, true, 0},
    {"scale", CMD_SCALE_COMPOUND, scale_compound_selected, false, 0},
    {"turn by 90", CMD_ROTATE_CW, rotate_cw_selected, true, 90},
    {"turn back by 90", CMD_ROTATE_CCW, rotate_ccw_selected, true, 90},
    {"turn by 0", CMD_ROTATE_CW, rotate_cw_selected, true, 0},
    {"turn by 180", CMD_ROTATE_CW, rotate_cw_selected, false, 180},
    {"turn by 360", CMD_ROTATE_CCW, rotate_ccw_selected, false, 360},
    {"turn by 37", CMD_ROTATE_CW, rotate_cw_selected, false, 37},
    {"turn by -400", CMD_ROTATE_CW, rotate_cw_selected, false, -400},
    {"flip up and down", CMD_FLIP_UD, flip_ud_selected, true, 0},
    {"flip left and right", CMD_FLIP_LR, flip_lr_selected, true, 0},
    {"add point", CMD_ADD_POINT, point_adding_selected, true, 0},
    {"delete point", CMD_DELETE_POINT, delete_point_selected, true, 0},
    {"copy", CMD_COPY, copy_selected, true, 0},
    {"delete", CMD_DELETE, delete_selected, true, 0},
    {"update", CMD_UPDATE, update_selected, true, 0},
    {"arrowhead", CMD_ARROW_HEAD, [](CFigContext*) { arrow_head_selected(); }, true, 0},
    {"convert", CMD_SELECT, [](CFigContext*) { convert_selected(); }, true, 0},
    {"align", CMD_SELECT, align, true, 0},
    {"arrow key", CMD_SELECT, moveByKey, true, 0},
    {"tangent", CMD_TANGENT, [](CFigContext*) { tangent_selected(); }, true, 0},
    {"normal", CMD_NORMAL, [](CFigContext*) { normal_selected(); }, true, 0},
};

struct Degenerate : ReshapedDocument {
    explicit Degenerate(const Shapes& objects)
    {
        for (FigObject* object : objects)
            putWithMembers(object);
        recalculateCompoundBounds(&ctx, &ctx.drawing.objects);
        for (FigObject* object : objectsOf(&ctx))
            collectPlaces(object);
        cur_numcopies = 2;
        autoforwardarrow_mode = true;
        cur_linewidth = 3;
    }

    void putWithMembers(FigObject* object)
    {
        put(object);
        if (object->type != O_COMPOUND)
            return;
        QList<FigObject*> members;
        collectObjects(*static_cast<FigCompound*>(object)->objects, &members);
        for (FigObject* member : qAsConst(members)) {
            member->id = ctx.getNextId();
            member->depth = 50;
        }
        set_depths(&ctx);
    }

    void addPlace(int x, int y)
    {
        if (!places.contains({x, y}))
            places.append({x, y});
    }

    void collectPlaces(FigObject* object)
    {
        int left, top, right, bottom;
        object->getBounds(&ctx, &left, &top, &right, &bottom, false, false);
        addPlace(left, top);
        addPlace(right, bottom);
        addPlace((left + right) / 2, (top + bottom) / 2);
        if (FigPath* path = chainOwner(object))
            for (const FigPoint* point = path->points; point; point = point->next)
                addPlace(point->x, point->y);
        if (object->type == O_ARC)
            for (const FigPoint& point : static_cast<FigArc*>(object)->point)
                addPlace(point.x, point.y);
    }

    /// All that the mouse can do with one place: clicks, and drags beside it and onto another.
    void handle(const Tool& tool, const QPoint& place, const QPoint& other)
    {
        using Gesture = std::function<void()>;
        const Gesture gestures[] = {
            [=] { click(place.x(), place.y()); },
            [=] { drag(place.x(), place.y(), place.x() + 150, place.y() + 90); },
            [=] { drag(place.x(), place.y(), place.x(), place.y()); },
            [=] { drag(place.x(), place.y(), other.x(), other.y()); },
            [=] { right(place.x(), place.y()); },
        };
        // A point that a click has added without a move stays, without a step.
        const auto* first = std::begin(gestures) + (tool.command == CMD_ADD_POINT ? 1 : 0);
        for (const auto* gesture = first; gesture != std::end(gestures); ++gesture) {
            cur_rotnangle = tool.angle;
            choose(tool.command, tool.enter);
            (*gesture)();
            if (action_on)
                right(place.x(), place.y());
            select_selected(&ctx);
            if (fault.isEmpty())
                fault = faultNow();
        }
    }

    void handleAll(const Tool& tool)
    {
        const QList<QPoint> all = places;
        for (int i = 0; i < all.size(); ++i)
            handle(tool, all.at(i), all.at((i + 1) % all.size()));
    }

    void undoAll()
    {
        while (steps() > 0)
            undo();
    }

    void redoAll()
    {
        while (ctx.undoQueue.redoCount() > 0)
            redo();
    }

    /// What comes back from a deletion stands last; ids tell where it was.
    QString saved()
    {
        QMap<long, QString> byId;
        for (FigObject* object : qAsConst(ctx.drawing.objects))
            byId.insert(object->id, writtenObject(object));
        return QStringList(byId.values()).join(QString());
    }

    QString faultNow() { return figureFault(&ctx); }

    QList<QPoint> places;
    QString fault; ///< the first that a gesture has left
};

/// A quarter turn goes by whole numbers; the turn back, by way of the centre, leaves an arc alone
/// whose points give none.
bool comesBack(FigObject* object, const Tool& tool)
{
    return tool.isExact && !(object->type == O_ARC && tool.angle != 0);
}

QString problem(const Tool& tool, const QString& fault)
{
    return QString("%1: %2").arg(tool.name, fault);
}

} // namespace

class TestDegenerateShapes : public QObject {
    Q_OBJECT

private slots:
    void noToolBreaksThemAndUndoBringsThemBack_data()
    {
        QTest::addColumn<int>("shape");
        for (int i = 0; i < static_cast<int>(std::size(shapes)); ++i)
            QTest::newRow(shapes[i].name) << i;
    }

    void noToolBreaksThemAndUndoBringsThemBack()
    {
        QFETCH(int, shape);
        for (const Tool& tool : tools) {
            Degenerate document(shapes[shape].make());
            const QString before = document.saved();
            document.handleAll(tool);
            QVERIFY2(document.fault.isEmpty(), qPrintable(problem(tool, document.fault)));
            document.redoAll();
            const QString after = document.saved();
            document.undoAll();
            QVERIFY2(document.faultNow().isEmpty(), qPrintable(problem(tool, document.faultNow())));
            if (!comesBack(document.object(0), tool))
                continue;
            QVERIFY2(document.saved() == before,
                     qPrintable(problem(tool, "undone: " + document.saved())));
            document.redoAll();
            QVERIFY2(document.saved() == after,
                     qPrintable(problem(tool, "redone: " + document.saved())));
        }
    }
};

QTEST_MAIN(TestDegenerateShapes)
#include "test_degenerate_shapes.moc"
