// Long random histories over random figures: whatever is done can be taken back and done again to
// the same bytes, the depth table is that of a recount, no id comes twice, and nothing is leaked,
// freed twice or used after it is gone (the sanitizer builds see to that).
#include "ActionFixture.h"
#include "EditorMade.h"
#include "RandomFigure.h"
#include "edit/e_compound.h"
#include "edit/e_links.h"
#include "edit/e_update.h"
#include "fileio/f_save.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace {

constexpr unsigned numHistories = 40;
constexpr int lengthOfHistory = 250;

bool byId(const FigObject* a, const FigObject* b)
{
    return a->id < b->id;
}

/// Brings what is told apart from the content into one form: an object that comes back stands last
/// in its list, and the corners of outer compounds wait until these are closed.
void normalise(CFigContext* ctx, FigObjectList* list)
{
    QVector<FigObject*> objects(list->cbegin(), list->cend());
    std::stable_sort(objects.begin(), objects.end(), byId);
    std::copy(objects.cbegin(), objects.cend(), list->begin());
    for (FigObject* object : qAsConst(objects)) {
        if (object->type != O_COMPOUND)
            continue;
        auto* compound = static_cast<FigCompound*>(object);
        normalise(ctx, compound->objects);
        if (list == &ctx->drawing.objects)
            update_compound_corners(ctx, compound);
    }
}

bool anyOf(FigObject* object, const std::function<bool(FigObject*)>& ask)
{
    if (ask(object))
        return true;
    if (object->type != O_COMPOUND)
        return false;
    for (FigObject* member : qAsConst(*static_cast<FigCompound*>(object)->objects))
        if (anyOf(member, ask))
            return true;
    return false;
}

bool isArc(FigObject* object)
{
    return object->type == O_ARC;
}

/// What a quarter turn and its reverse do not bring back: an arc takes its centre and its sense
/// from its points then, and a text that is nearly upright is put upright.
bool turnsForGood(FigObject* object)
{
    return object->type == O_ARC || object->type == O_TEXT;
}

/// The ends of a tilted ellipse are turned upright and back on whole units.
bool flipsForGood(FigObject* object)
{
    return object->type == O_ELLIPSE && static_cast<FigEllipse*>(object)->angle != 0;
}

/// Arcs as above; the radius of an arc-box and the size of a text are kept within limits; an
/// ellipse that is called a circle, or the reverse, gets its true name; beyond some 10^6 units
/// single precision has no whole numbers left.
bool scalesForGood(FigObject* object)
{
    switch (object->type) {
    case O_ARC:
        return true;
    case O_POLYLINE:
        return object->sub_type == T_ARCBOX;
    case O_TEXT:
        return static_cast<FigText*>(object)->size > 200;
    case O_ELLIPSE: {
        const auto* ellipse = static_cast<FigEllipse*>(object);
        return (ellipse->radiuses.x == ellipse->radiuses.y) != (ellipse->sub_type > 2);
    }
    default:
        return false;
    }
}

/// One document and what is done to it.
class History {
public:
    /// exact: only what the reverse change brings back to the last digit.
    History(unsigned seed, bool exact) : random(seed * 2 + exact), isExact(exact)
    {
        recordingShell.clear();
        RandomFigure(seed).fill(&ctx);
        if (isExact)
            makeAsEdited(&ctx, &ctx.drawing.objects);
        set_depths(&ctx);
    }

    void step()
    {
        if (random.oneIn(4))
            ctx.undoQueue.undo();
        else if (random.oneIn(4))
            ctx.undoQueue.redo();
        else if (random.oneIn(8))
            openOrClose();
        else
            change();
        if (isExact)
            normalise(&ctx, &ctx.drawing.objects);
    }

    void undoAll()
    {
        while (ctx.undoQueue.undoCount() > 0)
            tidyAfter(&UndoQueue::undo);
    }

    void redoAll()
    {
        while (ctx.undoQueue.redoCount() > 0)
            tidyAfter(&UndoQueue::redo);
    }

    /// The file in normal form.
    QByteArray bytes()
    {
        normalise(&ctx, &ctx.drawing.objects);
        const QString path = folder.filePath("figure.fig");
        if (!write_file(&ctx, path))
            return "(not saved)";
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not read)");
    }

    /// Empty if all is well.
    QString error()
    {
        QSet<long> seen;
        if (!checkObjectIds(&ctx.drawing.objects, &seen))
            return "an id comes twice";
        if (ctx.openCompoundObjects &&
            !getCompoundByObjectList(&ctx.drawing.objects, ctx.openCompoundObjects))
            return "the open list is of no compound in the drawing";
        if (ctx.curObject && !isInList(&ctx.drawing.objects, ctx.curObject, false))
            return "the current object is not in the drawing";
        return depthTableError(&ctx);
    }

    CFigContext ctx;

private:
    void tidyAfter(void (UndoQueue::*move)())
    {
        (ctx.undoQueue.*move)();
        if (isExact)
            normalise(&ctx, &ctx.drawing.objects);
    }

    // --- choices ------------------------------------------------------------------------

    FigObjectList* root() { return ctx.getWorkingRoot(); }

    FigObject* anyObject()
    {
        if (root()->isEmpty())
            return nullptr;
        return *std::next(root()->begin(), random.between(0, root()->size() - 1));
    }

    /// Null when the object that chance picks is of another type.
    template <typename Object> Object* any(int type)
    {
        for (int attempt = 0; attempt < 5; ++attempt)
            if (FigObject* object = anyObject(); object && object->type == type)
                return static_cast<Object*>(object);
        return nullptr;
    }

    FigObjectList someObjects()
    {
        FigObjectList some;
        for (FigObject* object : qAsConst(*root()))
            if (random.oneIn(3))
                some.append(object);
        return some;
    }

    FigPoint* anyPoint(FigPath* path)
    {
        return path->getPoint(random.between(0, path->getNumPoints() - 1));
    }

    /// In the exact kind, arcs that have been reshaped have centres between whole units.
    bool movesExactly(FigObject* object)
    {
        return !isExact || !reshapesArcs || !anyOf(object, isArc);
    }

    bool isSmall(FigObject* object)
    {
        int box[4];
        object->getBounds(&ctx, box, box + 1, box + 2, box + 3, true, false);
        return std::all_of(box, box + 4, [](int edge) { return std::abs(edge) < 200000; });
    }

    // --- changes --------------------------------------------------------------------------

    void queue(ActionItem* action)
    {
        if (!action)
            return;
        if (action->execute(&ctx)) {
            ctx.undoQueue.addAction(action);
        } else {
            delete action;
        }
    }

    void change()
    {
        using Change = ActionItem* (History::*)();
        static const Change changes[] = {
            &History::add,           &History::remove,         &History::translate,
            &History::alignLike,     &History::scale,          &History::rotate,
            &History::flip,          &History::attribute,      &History::arrow,
            &History::text,          &History::convert,        &History::addLinePoint,
            &History::removePoint,   &History::addSplinePoint, &History::movePoint,
            &History::moveArc,       &History::moveEllipse,    &History::factor,
            &History::group,         &History::ungroup,        &History::linkAll,
            &History::severalAtOnce,
        };
        const int last = static_cast<int>(std::size(changes)) - 1;
        queue((this->*changes[random.between(0, last)])());
        // As the tools do. Undo and redo see to it themselves.
        if (ctx.curObject && !isInList(&ctx.drawing.objects, ctx.curObject, false))
            ctx.curObject = nullptr;
    }

    void openOrClose()
    {
        auto* compound = any<FigCompound>(O_COMPOUND);
        if (compound && random.oneIn(2))
            open_compound(&ctx, compound);
        else if (ctx.openCompoundObjects && !(isExact && ctx.openCompoundObjects->isEmpty()))
            close_compound(&ctx, false);
    }

    ActionItem* add()
    {
        FigObject* object = anyObject();
        if (!object || root()->size() > 40)
            object = nullptr;
        FigObject* added =
            object ? copy(&ctx, object)
                   : with(makeLine({{random.between(0, 900), 50}, {600, 800}, {40, 900}}),
                          ctx.getNextId());
        return new AddAction(added, root());
    }

    ActionItem* remove()
    {
        FigObject* object = anyObject();
        if (!object || (isExact && root() != &ctx.drawing.objects && root()->size() == 1))
            return nullptr;
        return new DeleteAction(object, root());
    }

    /// A row of deletions and additions as cut and paste make them.
    ActionItem* severalAtOnce()
    {
        auto* step = new QList<ActionItem*>;
        int left = root()->size();
        for (FigObject* object : someObjects()) {
            if (--left == 0)
                break;
            step->append(new DeleteAction(object, root()));
        }
        executeActions(&ctx, step);
        if (ActionItem* addition = add()) {
            addition->execute(&ctx);
            step->append(addition);
        }
        ctx.undoQueue.addActionList(step);
        return nullptr;
    }

    ActionItem* translate()
    {
        auto* action = new TranslateAction;
        for (FigObject* object : someObjects())
            if (movesExactly(object))
                action->objects.append(object);
        action->workingList = root();
        action->dx = random.between(-500, 500);
        action->dy = random.between(-500, 500);
        collectWorkingObjects4Translate(root(), &action->objects, &action->workingObjects);
        action->refreshObjects = action->workingObjects;
        if (!action->objects.isEmpty())
            return action;
        delete action;
        return nullptr;
    }

    ActionItem* alignLike()
    {
        FigObject* object = anyObject();
        if (!object || !movesExactly(object))
            return nullptr;
        auto* action = actionOn<TranslateAction>(object, root());
        action->dx = random.between(-500, 500);
        return action;
    }

    ActionItem* scale()
    {
        static const float exactFactors[] = {2, -2, -1, 1};
        static const float factors[] = {0, -0.3f, 1.7f, 0.01f, 3};
        FigObject* object = anyObject();
        if (!object || !isSmall(object) || (isExact && anyOf(object, scalesForGood)))
            return nullptr;
        auto* action = actionOn<ScaleAction>(nullptr, root());
        action->objects.append(object);
        action->cx = random.between(0, 9000);
        action->cy = random.between(0, 9000);
        action->xfactor =
            isExact ? exactFactors[random.between(0, 3)] : factors[random.between(0, 4)];
        action->yfactor =
            isExact ? exactFactors[random.between(0, 3)] : factors[random.between(0, 4)];
        collectWorkingObjects4Translate(root(), object, &action->workingObjects);
        action->refreshObjects = action->workingObjects;
        return action;
    }

    ActionItem* rotate()
    {
        FigObject* object = anyObject();
        if (!object || (isExact && anyOf(object, turnsForGood)))
            return nullptr;
        auto* action = actionOn<RotateAction>(object, root());
        action->cx = random.between(0, 9000);
        action->cy = random.between(0, 9000);
        action->angle = isExact ? 90 : random.between(-360, 360);
        collectWorkingObjects4MovePoint(root(), object, &action->refreshObjects);
        return action;
    }

    ActionItem* flip()
    {
        FigObject* object = anyObject();
        if (!object || !movesExactly(object) || (isExact && anyOf(object, flipsForGood)))
            return nullptr;
        auto* action = actionOn<FlipAction>(object, root());
        action->cx = random.between(0, 9000);
        action->cy = random.between(0, 9000);
        action->direction = random.between(1, 2);
        collectWorkingObjects4MovePoint(root(), object, &action->refreshObjects);
        return action;
    }

    ActionItem* attribute()
    {
        FigObject* object = anyObject();
        if (!object || object->type == O_COMPOUND)
            return nullptr;
        auto* change = new AttributeChange;
        change->kind = random.oneIn(2) ? ATTR_DEPTH : ATTR_PEN_COLOR;
        const int color =
            object->type == O_TEXT ? static_cast<FigText*>(object)->color : object->pen_color;
        change->oldValue = change->kind == ATTR_DEPTH ? object->depth : color;
        change->newValue = random.between(0, change->kind == ATTR_DEPTH ? MAX_DEPTH : 31);
        return new ChangeAttributeAction(object, root(), change);
    }

    ActionItem* arrow()
    {
        FigObject* object = anyObject();
        if (!object || !(chainOwner(object) || isArc(object)) || isClosed(object))
            return nullptr;
        auto* arrow = random.oneIn(3) ? nullptr : new FigArrow{random.between(0, 14), 1, 1, 60, 90};
        return new ChangeArrowAction(object, root(), random.between(0, 1), arrow);
    }

    ActionItem* text()
    {
        auto* text = any<FigText>(O_TEXT);
        return text ? new EditTextAction(text, root(), QString::number(random.between(0, 99)),
                                         text->cstring)
                    : nullptr;
    }

    ActionItem* convert()
    {
        if (auto* spline = any<FigSpline>(O_SPLINE); spline && random.oneIn(2))
            return new ConvertSplineToLineAction(spline, root());
        auto* line = any<FigLine>(O_POLYLINE);
        if (!line || (line->sub_type != T_POLYLINE && line->sub_type != T_POLYGON) ||
            (isExact && line->sub_type == T_POLYLINE && hasFollowers(line)))
            return nullptr;
        return new ConvertLineToSplineAction(line, root());
    }

    bool hasFollowers(FigObject* object)
    {
        FigObjectList found;
        return findObjectsThatConnectTo(&ctx.drawing.objects, object, &found);
    }

    ActionItem* addLinePoint()
    {
        auto* line = any<FigLine>(O_POLYLINE);
        if (!line || (line->sub_type != T_POLYLINE && line->sub_type != T_POLYGON))
            return nullptr;
        auto* action = actionOn<AddLinePointAction>(line, root());
        const int count = line->getNumPoints();
        const bool isOpen = line->sub_type == T_POLYLINE;
        action->afterPoint = line->getPoint(random.between(-1, isOpen ? count - 1 : count - 2));
        action->newPoint = new FigPoint(random.between(0, 9000), random.between(0, 9000));
        return action;
    }

    ActionItem* removePoint()
    {
        FigObject* object = anyObject();
        FigPath* path = object ? chainOwner(object) : nullptr;
        if (!path || path->getNumPoints() < 5)
            return nullptr;
        if (object->type == O_SPLINE) {
            auto* action = actionOn<DeleteSplinePointAction>(object, root());
            action->point = anyPoint(path);
            action->afterPoint = path->findPredecessor(action->point);
            return action;
        }
        if (object->sub_type != T_POLYLINE && object->sub_type != T_POLYGON)
            return nullptr;
        auto* action = actionOn<DeleteLinePointAction>(object, root());
        // The last of a closed chain is the copy that closes it.
        action->point = path->getPoint(random.between(0, path->getNumPoints() - 2));
        action->afterPoint = path->findPredecessor(action->point);
        return action;
    }

    ActionItem* addSplinePoint()
    {
        auto* spline = any<FigSpline>(O_SPLINE);
        if (!spline)
            return nullptr;
        auto* action = actionOn<AddSplinePointAction>(spline, root());
        const int after = random.between(-1, spline->getNumPoints() - 1);
        action->afterPoint = spline->getPoint(after);
        action->nextPoint = spline->getPoint(after + 1);
        action->newPoint = new FigPoint(random.between(0, 9000), random.between(0, 9000));
        return action;
    }

    template <typename Action> ActionItem* movePointOf(FigObject* object, FigPath* path)
    {
        auto* action = actionOn<Action>(object, root());
        action->point = anyPoint(path);
        // Onto some outline, with some luck.
        FigObject* target = anyObject();
        FigPath* targetPath = chainOwner(target);
        const FigPoint* goal = targetPath ? targetPath->points : nullptr;
        action->dx = goal ? goal->x - action->point->x : random.between(-900, 900);
        action->dy = goal ? goal->y - action->point->y : random.between(-900, 900);
        action->connect = random.between(0, 1);
        collectWorkingObjects4MovePoint(root(), object, &action->refreshObjects);
        return action;
    }

    ActionItem* movePoint()
    {
        FigObject* object = anyObject();
        FigPath* path = object ? chainOwner(object) : nullptr;
        if (!path)
            return nullptr;
        return object->type == O_POLYLINE ? movePointOf<MoveLinePointAction>(object, path)
                                          : movePointOf<MoveSplinePointAction>(object, path);
    }

    ActionItem* moveArc()
    {
        auto* arc = any<FigArc>(O_ARC);
        if (!arc || (isExact && !reshapesArcs))
            return nullptr;
        auto* action = actionOn<MoveArcPointAction>(arc, root());
        action->number = random.between(0, 2);
        action->dx = random.between(-900, 900);
        action->dy = random.between(-900, 900);
        return action;
    }

    ActionItem* moveEllipse()
    {
        auto* ellipse = any<FigEllipse>(O_ELLIPSE);
        if (!ellipse)
            return nullptr;
        auto* action = actionOn<MoveEllipsePointAction>(ellipse, root());
        action->number = random.between(-1, 1);
        action->dx = random.between(-4000, 4000);
        action->dy = random.between(-4000, 4000);
        collectWorkingObjects4MovePoint(root(), ellipse, &action->refreshObjects);
        return action;
    }

    ActionItem* factor()
    {
        auto* spline = any<FigSpline>(O_SPLINE);
        FigShapeFactor* node = spline ? search_sfactor(spline, anyPoint(spline)) : nullptr;
        if (!node)
            return nullptr;
        auto* action = actionOn<ChangeShapeFactorAction>(spline, root());
        action->factor = &node->s;
        action->oldValue = node->s;
        action->newValue = random.between(-1000, 1000) / 1000.0;
        return action;
    }

    ActionItem* group()
    {
        auto* compound = new FigCompound;
        compound->id = ctx.getNextId();
        *compound->objects = someObjects();
        if (!compound->isEmpty())
            return new CreateCompoundAction(compound, root());
        delete compound;
        return nullptr;
    }

    ActionItem* ungroup()
    {
        auto* compound = any<FigCompound>(O_COMPOUND);
        if (!compound || compound->isEmpty())
            return nullptr;
        return new BreakCompoundAction(compound, root());
    }

    /// Pulls ends onto outlines, where undo leaves them.
    ActionItem* linkAll()
    {
        return isExact ? nullptr : new CreateSmartLinksForDrawingAction(root());
    }

    RandomFigure random;
    bool isExact;
    bool reshapesArcs = random.oneIn(2);
    QTemporaryDir folder;
};

QString inHistory(unsigned seed, int step, const QString& error)
{
    return QString("seed %1, step %2: %3").arg(seed).arg(step).arg(error);
}

/// More histories for a longer look: ORVALT_HISTORIES=5000.
unsigned historiesWanted()
{
    bool isNumber = false;
    const unsigned wanted = qEnvironmentVariable("ORVALT_HISTORIES").toUInt(&isNumber);
    return isNumber ? wanted : numHistories;
}

} // namespace

class TestActionHistories : public QObject {
    Q_OBJECT

private slots:
    void undoOfAllGivesTheFirstBytesAndRedoOfAllTheLast()
    {
        for (unsigned seed = 1; seed <= historiesWanted(); ++seed) {
            History history(seed, true);
            const QByteArray first = history.bytes();
            for (int i = 0; i < lengthOfHistory; ++i) {
                history.step();
                const QString error = history.error();
                QVERIFY2(error.isEmpty(), qPrintable(inHistory(seed, i, error)));
            }
            history.redoAll();
            const QByteArray last = history.bytes();
            for (int round = 0; round < 2; ++round) {
                history.undoAll();
                const QByteArray undone = history.bytes();
                QVERIFY2(undone == first,
                         qPrintable(inHistory(seed, 0, firstDifference(undone, first))));
                history.redoAll();
                const QByteArray redone = history.bytes();
                QVERIFY2(redone == last, qPrintable(inHistory(seed, lengthOfHistory,
                                                              firstDifference(redone, last))));
            }
            QCOMPARE(history.error(), QString());
        }
    }

    // With everything that rounds, and with compounds that vanish, on top.
    void whateverIsDoneTheFigureStaysInOrder()
    {
        for (unsigned seed = 1; seed <= historiesWanted(); ++seed) {
            History history(seed, false);
            for (int i = 0; i < lengthOfHistory; ++i) {
                history.step();
                const QString error = history.error();
                QVERIFY2(error.isEmpty(), qPrintable(inHistory(seed, i, error)));
            }
            for (const bool isUndo : {true, false}) {
                isUndo ? history.undoAll() : history.redoAll();
                const QString error = history.error();
                QVERIFY2(error.isEmpty(),
                         qPrintable(inHistory(seed, isUndo ? 0 : lengthOfHistory, error)));
            }
        }
    }
};

QTEST_MAIN(TestActionHistories)
#include "test_action_histories.moc"
