// A user at random, without windows: whole gestures and commands of all tools, some of them broken
// off or interrupted, on random figures. What has to hold of a document is looked at as the walk
// goes; from time to time all steps are taken back and done again.
#pragma once

#include "Desk.h"
#include "EditorMade.h"
#include "Histories.h"
#include "RandomFigure.h"
#include "RandomPlace.h"
#include "edit/actions.h"
#include "edit/attribute_table.h"
#include "edit/e_align.h"
#include "edit/e_compound.h"
#include "edit/e_convert.h"
#include "edit/e_links.h"
#include "edit/preview.h"
#include "fileio/f_read.h"
#include "fileio/written_tree.h"
#include "model/w_layers.h"

#include <QTemporaryDir>

#include <cmath>
#include <numeric>

/// What many walks did together.
struct EditTally {
    QVector<int> done;  ///< by kind of edit: those that changed a document
    QVector<int> tried; ///< by kind of edit
    int events = 0;     ///< presses, moves, releases, keys, commands
    int cancels = 0;    ///< gestures that were broken off and left the document as it was
    int interruptions = 0; ///< between two events of a gesture
    int histories = 0;
    int mostSteps = 0;
    int mostLinks = 0;
    int reopened = 0;

    int edits() const
    {
        return std::accumulate(done.begin(), done.end(), 0);
    }
};

class EditWalk {
public:
    struct Kind {
        const char* name;
        void (EditWalk::*work)();
        /// Whether it comes back to the last digit when it is taken back, and is one undo step.
        bool comesBack;
    };
    static const QVector<Kind>& kinds();

    /// exact: only what comes back. An empty canvas size paints nothing; name may be that of a
    /// figure to begin with.
    EditWalk(unsigned seed, bool isExact, QSize canvas, const QString& name, EditTally* sum)
        : dice(seed), exact(isExact), canvasSize(canvas), figure(name), tally(sum),
          history(isExact)
    {
        isTraced = qEnvironmentVariableIsSet("ORVALT_TRACE");
        tally->done.resize(kinds().size());
        tally->tried.resize(kinds().size());
        done.resize(kinds().size());
        RandomFigure(seed + 7).fill(&library);
        gridPreferences.snapMode = 0;
        openDocument();
    }
    EditWalk(const EditWalk&) = delete;
    EditWalk& operator=(const EditWalk&) = delete;

    /// Goes on until so many edits have changed a document. Empty, or what went wrong.
    QString run(int wanted)
    {
        const int end = tally->edits() + wanted;
        while (tally->edits() < end && fault.isEmpty()) {
            if (dice.oneIn(8))
                setUp();
            perform(chosenKind());
            if (dice.oneIn(300))
                tellHistory();
            if (dice.oneIn(8))
                keepSmall();
        }
        tellHistory();
        tally->histories += history.count;
        tally->mostSteps = qMax(tally->mostSteps, history.mostSteps);
        return fault;
    }

private:
    static constexpr int maxDocuments = 3;
    static constexpr int maxObjects = 45;
    static constexpr int maxExtent = 2000000; ///< figure units
    static constexpr int maxPaintedExtent = 60000;
    static constexpr int keptNotes = 40;
    static constexpr int eventsBetweenLooks = 40;

    using Condition = bool (*)(FigObject*);

    CFigContext* ctx() const { return desk.ctx(); }
    FigObjectList* root() const { return ctx()->getWorkingRoot(); }

    // --- one edit ---------------------------------------------------------------------------------

    /// Those that had least luck so far in this walk are tried more often.
    int chosenKind()
    {
        if (dice.oneIn(8))
            return dice.oneIn(2) ? undoKind : redoKind;
        int chosen = -1;
        for (int attempt = 0; attempt < 4; ++attempt) {
            const int kind = dice.between(redoKind + 1, kinds().size() - 1);
            if (exact && !kinds()[kind].comesBack)
                continue;
            if (chosen < 0 || done[kind] < done[chosen])
                chosen = kind;
        }
        return chosen < 0 ? undoKind : chosen;
    }

    void perform(int kind)
    {
        if (!fault.isEmpty())
            return;
        ++tally->tried[kind];
        const unsigned long document = ctx()->documentNumber;
        const QByteArray before = text();
        isChangedBetween = false;
        note(kinds()[kind].name);
        (this->*kinds()[kind].work)();
        holdKeys(false, false);
        history.noteCompounds(ctx());
        if (dice.oneIn(4) || isTraced)
            look();
        if (fault.isEmpty() && !isChangedBetween && ctx()->documentNumber == document &&
            isChangedFrom(before))
            count(kind);
    }
    /// Texts are measured anew at another zoom, which is no edit.
    bool isChangedFrom(const QByteArray& before)
    {
        const QByteArray now = text();
        return now != before && withoutRounded(now) != withoutRounded(before);
    }
    void count(int kind)
    {
        ++done[kind];
        ++tally->done[kind];
    }

    /// What saving would write now.
    QByteArray text()
    {
        const PreviewAside aside(ctx());
        return writtenText(ctx());
    }

    // --- after each event -------------------------------------------------------------------------

    void note(const QString& event)
    {
        ++tally->events;
        notes.append(event);
        if (notes.size() > keptNotes)
            notes.removeFirst();
        if (isTraced)
            fprintf(stderr, "%d: %s\n", tally->events, qPrintable(event));
    }

    void happened()
    {
        if (isTraced || tally->events % eventsBetweenLooks == 0)
            look();
        interrupt();
    }

    void look()
    {
        if (!fault.isEmpty())
            return;
        QString found = gestureFault(desk.contexts());
        for (CFigContext* context : desk.contexts()) {
            if (found.isEmpty())
                found = history.faultOf(context);
            if (found.isEmpty() && context->painter)
                found = "a painter is left";
            history.knowBeginning(context);
        }
        tally->mostLinks = qMax(tally->mostLinks, linkCount(ctx()));
        if (!found.isEmpty())
            blame(found);
    }

    void blame(const QString& what)
    {
        if (fault.isEmpty())
            fault = QString("%1; %2").arg(what, notes.join("; "));
    }

    // --- pointer ------------------------------------------------------------------------------------

    void move(QPoint place)
    {
        if (!fault.isEmpty())
            return;
        note(QString("move %1,%2").arg(place.x()).arg(place.y()));
        desk.move(desk.pixelOf(place));
        happened();
    }
    void press(QPoint place, Qt::MouseButton button = Qt::LeftButton)
    {
        if (!fault.isEmpty())
            return;
        note(QString("%1press %2,%3")
                 .arg(button == Qt::LeftButton ? "" : "right ")
                 .arg(place.x())
                 .arg(place.y()));
        desk.press(desk.pixelOf(place), button);
        happened();
    }
    void release(QPoint place, Qt::MouseButton button = Qt::LeftButton)
    {
        if (!fault.isEmpty())
            return;
        note("release");
        desk.release(desk.pixelOf(place), button);
        happened();
    }
    void click(QPoint place, Qt::MouseButton button = Qt::LeftButton)
    {
        move(place);
        press(place, button);
        release(place, button);
    }
    /// Press, moves and release, or the right button in place of it, which changes nothing.
    void drag(QPoint from, QPoint to)
    {
        const bool isBrokenOff = dice.oneIn(12);
        const QByteArray before = isBrokenOff ? text() : QByteArray();
        move(from);
        press(from);
        for (int step = dice.between(1, 3); step > 0; --step)
            move(to - (to - from) * (step - 1) / 3);
        if (isBrokenOff)
            breakOff(to, before);
        release(to);
    }
    void breakOff(QPoint place, const QByteArray& before)
    {
        if (!gestureHoldsObjects(ctx()) || !canvas_middlebut_proc)
            return;
        press(place, Qt::RightButton);
        ++tally->cancels;
        if (fault.isEmpty() && !isChangedBetween && isChangedFrom(before))
            blame("a gesture that was broken off has changed the document, " +
                  firstDifference(text(), before));
    }
    void holdKeys(bool shift, bool control)
    {
        desk.holdShift(shift);
        ctrl_down = control;
    }

    // --- places --------------------------------------------------------------------------------------

    QPoint anywhere()
    {
        if (dice.oneIn(12))
            return {dice.between(-3000, 30000), dice.between(-3000, 30000)};
        return {300 * dice.between(0, 50), 300 * dice.between(0, 40)};
    }
    /// A point or the outline of an object as often as not.
    QPoint place()
    {
        if (root()->isEmpty() || dice.oneIn(2))
            return anywhere();
        FigObject* object = dice.any(*root());
        return dice.oneIn(2) ? anyPointOf(object, dice) : onOutline(object);
    }
    QPoint onOutline(FigObject* object)
    {
        switch (object->type) {
        case O_POLYLINE:
            return onSegment(static_cast<FigLine*>(object));
        case O_SPLINE:
            return onSpline(static_cast<FigSpline*>(object));
        case O_ELLIPSE:
            return onEllipse(static_cast<FigEllipse*>(object));
        case O_ARC:
            return onArc(static_cast<FigArc*>(object));
        case O_COMPOUND:
            return onEdge(static_cast<FigCompound*>(object));
        default: {
            const QPoint base = anyPointOf(object, dice);
            return base + QPoint(20, -20);
        }
        }
    }
    QPoint onSegment(FigPath* path)
    {
        const int count = path->getNumPoints();
        const int from = dice.below(qMax(count - 1, 1));
        const FigPoint *a = path->getPoint(from), *b = path->getPoint(qMin(from + 1, count - 1));
        const int share = dice.between(0, 8);
        return {a->x + int(qint64(b->x - a->x) * share / 8),
                a->y + int(qint64(b->y - a->y) * share / 8)};
    }
    /// Near the curve: between the control point and where a point of full approximation lies.
    QPoint onSpline(FigSpline* spline)
    {
        const int count = spline->getNumPoints();
        const bool isClosed = spline->sub_type & 1;
        const int at = dice.below(count);
        const auto point = [=](int index) {
            const FigPoint* found = spline->getPoint(
                isClosed ? (index + count) % count : qBound(0, index, count - 1));
            return QPointF(found->x, found->y);
        };
        const FigShapeFactor* factor = search_sfactor(spline, spline->getPoint(at));
        if (!factor || factor->s <= 0 || (!isClosed && (at == 0 || at == count - 1)))
            return point(at).toPoint();
        return ((point(at - 1) + 4 * point(at) + point(at + 1)) / 6).toPoint();
    }
    QPoint onEllipse(const FigEllipse* ellipse)
    {
        if (dice.oneIn(3))
            return {ellipse->center.x, ellipse->center.y};
        const double turn = dice.below(360) * M_PI / 180, angle = double(ellipse->angle);
        const double x = ellipse->radiuses.x * std::cos(turn);
        const double y = ellipse->radiuses.y * std::sin(turn);
        return {ellipse->center.x + int(x * std::cos(angle) + y * std::sin(angle)),
                ellipse->center.y + int(y * std::cos(angle) - x * std::sin(angle))};
    }
    QPoint onArc(const FigArc* arc)
    {
        const double dx = arc->point[1].x - double(arc->center_x);
        const double dy = arc->point[1].y - double(arc->center_y);
        const double angle = std::atan2(dy, dx) + dice.between(-20, 20) * M_PI / 180;
        const double radius = qMin(std::hypot(dx, dy), 1e6);
        return {int(qBound(-1e7, double(arc->center_x), 1e7) + radius * std::cos(angle)),
                int(qBound(-1e7, double(arc->center_y), 1e7) + radius * std::sin(angle))};
    }
    QPoint onEdge(const FigCompound* compound)
    {
        const FigPoint &a = compound->nwcorner, &b = compound->secorner;
        const QPoint middle((a.x + b.x) / 2, (a.y + b.y) / 2);
        switch (dice.below(6)) {
        case 0:
            return {a.x, middle.y()};
        case 1:
            return {middle.x(), a.y};
        case 2:
            return {b.x, middle.y()};
        case 3:
            return {middle.x(), b.y};
        default:
            return anyPointOf(const_cast<FigCompound*>(compound), dice);
        }
    }

    FigObject* anyObject(Condition condition)
    {
        for (int attempt = 0; attempt < 6 && !root()->isEmpty(); ++attempt)
            if (FigObject* object = dice.any(*root()); !condition || condition(object))
                return object;
        for (FigObject* object : qAsConst(*root()))
            if (condition && condition(object))
                return object;
        return nullptr;
    }

    template <int type> static bool isOf(FigObject* object) { return object->type == type; }
    static bool isChain(FigObject* object)
    {
        return object->type == O_SPLINE ||
               (object->type == O_POLYLINE &&
                (object->sub_type == T_POLYLINE || object->sub_type == T_POLYGON));
    }
    static bool isPlainLine(FigObject* object)
    {
        return object->type == O_POLYLINE && isChain(object);
    }
    static bool isBox(FigObject* object)
    {
        return object->type == O_POLYLINE &&
               (object->sub_type == T_BOX || object->sub_type == T_ARCBOX);
    }
    static bool isPicture(FigObject* object)
    {
        return object->type == O_POLYLINE && object->sub_type == T_PICTURE;
    }

    // --- between two events ---------------------------------------------------------------------------

    void interrupt()
    {
        if (!dice.oneIn(40) || isInterrupting || !fault.isEmpty())
            return;
        isInterrupting = true;
        ++tally->interruptions;
        const unsigned long document = ctx()->documentNumber;
        const QByteArray before = text();
        const int command = dice.below(18);
        note(QString("interruption %1").arg(command));
        comeBetween(command);
        if (ctx()->documentNumber != document || isChangedFrom(before))
            isChangedBetween = true;
        look();
        isInterrupting = false;
    }
    void comeBetween(int command)
    {
        switch (command) {
        case 0:
            return startTool(dice.between(CMD_CIRCLE_BY_RADIUS, CMD_NORMAL));
        case 1:
            return desk.undo();
        case 2:
            return desk.redo();
        case 3:
            return desk.show(dice.below(desk.count()));
        case 4:
            return arrowKey();
        case 5:
            return desk.deleteKey();
        case 6:
            return desk.cut();
        case 7:
            return desk.copy();
        case 8:
            return desk.paste();
        case 9:
            return desk.selectAll();
        case 10:
            return desk.deselectAll();
        case 11:
            return desk.edit([this] { create_compoundobject(ctx()); });
        case 12:
            return desk.edit([this] { break_compoundobject(ctx()); });
        case 13:
            return changeView();
        case 14:
            return changeModes();
        case 15:
            return press(place(), Qt::RightButton);
        case 16:
            return save();
        default:
            return changeAttribute(ctx()->getCurObject(), -1);
        }
    }

    // --- what edits need ----------------------------------------------------------------------------

    void setUp()
    {
        switch (dice.below(9)) {
        case 0:
        case 1:
            return openCompound();
        case 2:
        case 3:
            return closeCompound();
        case 4:
            return changeView();
        case 5:
            return changeModes();
        case 6:
            return changeLayers();
        case 7:
            return changeDocument();
        default:
            return dice.oneIn(5) ? reopen() : save();
        }
    }

    void startTool(int command)
    {
        if (exact && !comesBack(command))
            return;
        note(QString("tool %1").arg(command));
        if (desk.startTool(command) && fault.isEmpty())
            lookAtRest();
    }
    static bool comesBack(int command)
    {
        static const QVector<int> rounding = {CMD_SCALE_COMPOUND, CMD_FLIP_UD,   CMD_FLIP_LR,
                                              CMD_ROTATE_CCW,     CMD_ROTATE_CW, CMD_ADD_POINT};
        return !rounding.contains(command);
    }
    /// A tool that has just been chosen has nothing selected.
    void lookAtRest()
    {
        if (ctx()->curObject)
            return blame("an object is current under a tool that was just chosen");
        for (const FigObject* object : objectsOf(ctx()))
            if (object->tagged)
                return blame("an object is selected under a tool that was just chosen");
    }

    /// Clicks an object with the select tool. Chance may hit another one, or none.
    void select(FigObject* object)
    {
        // A gesture that ends may take it along.
        const QPoint spot = object ? onOutline(object) : anywhere();
        if (cur_command != CMD_SELECT || gestureContext || dice.oneIn(4))
            startTool(CMD_SELECT);
        if (dice.oneIn(6))
            press(anywhere(), Qt::RightButton);
        click(spot);
    }
    void selectSome()
    {
        select(anyObject(nullptr));
        switch (dice.below(8)) {
        case 0:
            note("select all");
            return desk.selectAll();
        case 1:
        case 2: {
            const QPoint corner = anywhere();
            drag(corner, corner + QPoint(dice.between(-9000, 9000), dice.between(-9000, 9000)));
            return;
        }
        case 3:
            return;
        default:
            holdKeys(true, false);
            for (int more = dice.between(1, 3); more > 0 && !root()->isEmpty(); --more) {
                // Shift would keep the column from one click to the next.
                desk.holdShift(false);
                const QPoint spot = onOutline(dice.any(*root()));
                move(spot);
                desk.holdShift(true);
                press(spot);
                release(spot);
            }
            holdKeys(false, false);
        }
    }

    void openCompound()
    {
        select(anyObject(isOf<O_COMPOUND>));
        note("open compound");
        desk.edit([this] {
            if (auto* compound = dynamic_cast<FigCompound*>(ctx()->curObject))
                open_compound(ctx(), compound);
        });
        look();
    }
    void closeCompound()
    {
        note("close compound");
        // An emptied compound would vanish for good.
        if (root()->isEmpty() && (exact || !dice.oneIn(8)))
            return;
        desk.edit([this] {
            if (isCompoundOpen(ctx()))
                close_compound(ctx(), true);
        });
        look();
    }

    void changeView()
    {
        note("view");
        // Painted from afar: wide dashes and fills take long.
        static const float zooms[] = {0.1f, 0.1f, 0.05f, 0.5f, 1, 1, 1, 2, 4, 20, 0.03f};
        setZoom(zooms[dice.below(canvasSize.isEmpty() ? 11 : 4)]);
        ctx()->shiftX = dice.oneIn(2) ? 0 : dice.between(-500, 500);
        ctx()->shiftY = dice.oneIn(2) ? 0 : dice.between(-500, 500);
        desk.redraw();
    }
    void setZoom(float zoom) { ctx()->zoom = zoom; }
    void changeModes()
    {
        note("modes");
        resetConstraints();
        if (dice.oneIn(2)) {
            manhattan_mode = dice.below(2);
            mountain_mode = dice.below(2);
        } else if (dice.oneIn(2)) {
            (dice.oneIn(2) ? latexline_mode : latexarrow_mode) = 1;
        }
        gridPreferences.snapMode = dice.oneIn(2) ? 0 : dice.below(4);
        ctx()->gridIndex = dice.oneIn(2) ? 0 : dice.below(gridDefinitions.size());
        ctx()->gridOn = ctx()->gridIndex != 0;
        ctx()->magnetMode = dice.below(5);
    }
    /// Mostly all on: gestures miss what is hidden.
    void changeLayers()
    {
        note("layers");
        std::fill(std::begin(ctx()->active_layers), std::end(ctx()->active_layers), true);
        ctx()->layerMode = dice.between(10, 12);
        if (dice.oneIn(5))
            for (int count = dice.between(1, 300); count > 0; --count)
                ctx()->active_layers[dice.below(NUM_DEPTHS)] = false;
    }

    void changeDocument()
    {
        note("document");
        if (desk.count() < maxDocuments && dice.oneIn(3))
            return openDocument();
        desk.show(dice.below(desk.count()));
        look();
    }
    void openDocument()
    {
        desk.open(canvasSize);
        if (dice.oneIn(3) && !figure.isEmpty()) {
            read(ctx(), figure);
        } else if (!dice.oneIn(4)) {
            RandomFigure(unsigned(dice.below(1000000))).fill(ctx());
            if (exact)
                makeAsEdited(ctx(), &ctx()->drawing.objects);
            set_depths(ctx());
        }
        changeView();
        desk.startTool(CMD_SELECT);
        look();
    }

    QString saved(CFigContext* context, const char* name)
    {
        const PreviewAside aside(context);
        const QString path = folder.filePath(name);
        if (!write_file(context, path))
            blame("the figure cannot be saved");
        return path;
    }
    bool read(CFigContext* context, const QString& path)
    {
        recordingShell.answer = false; // what lies left of or above the page stays there
        if (load_file(context, path))
            return true;
        blame("the saved file cannot be read");
        return false;
    }
    /// What is written can be read again, and has the objects of the figure without a preview.
    void save()
    {
        note("save");
        int expected = 0;
        const QSet<FigObject*> preview = previewOf(ctx());
        for (FigObject* object : objectsOf(ctx()))
            expected += !preview.contains(object) && hasRecord(object);
        CFigContext reader;
        if (!read(&reader, saved(ctx(), "saved.fig")))
            return;
        if (objectsOf(&reader).size() != expected)
            blame(QString("%1 objects were saved of %2")
                      .arg(objectsOf(&reader).size())
                      .arg(expected));
        // What the reader repairs, as angles beyond a turn and unknown fonts, and the corners that
        // depend on it, have their last form in the second file.
        const QByteArray second = savedAgain("saved.fig", "second.fig") &&
                                          savedAgain("second.fig", "second.fig")
                                      ? contentOf(folder.filePath("second.fig"))
                                      : QByteArray();
        if (savedAgain("second.fig", "third.fig") &&
            contentOf(folder.filePath("third.fig")) != second)
            blame("read and saved again, " +
                  firstDifference(contentOf(folder.filePath("third.fig")), second));
    }
    bool savedAgain(const char* from, const char* to)
    {
        CFigContext context;
        if (!read(&context, folder.filePath(from)))
            return false;
        saved(&context, to);
        return true;
    }
    /// The work goes on with what has been read again.
    void reopen()
    {
        tellHistory();
        note("reopen");
        const QString path = saved(ctx(), "saved.fig");
        const int former = desk.indexOf(ctx());
        desk.open(canvasSize);
        if (!read(ctx(), path))
            return;
        desk.close(former);
        ++tally->reopened;
        desk.startTool(CMD_SELECT);
        look();
    }

    void keepSmall()
    {
        for (CFigContext* context : desk.contexts()) {
            const bool isLarge = objectsOf(context).size() > maxObjects;
            const bool wouldVanish = exact && context->getWorkingRoot()->isEmpty();
            if (!fault.isEmpty() || wouldVanish || (!isLarge && !isWide(context)))
                continue;
            note("all deleted");
            desk.show(desk.indexOf(context));
            desk.startTool(CMD_SELECT);
            while (isCompoundOpen(context))
                desk.edit([=] { close_compound(context, true); });
            desk.selectAll();
            desk.deleteKey();
            look();
        }
    }
    bool isWide(CFigContext* context)
    {
        int left, top, right, bottom;
        context->drawing.getBounds(context, &left, &top, &right, &bottom, false, false);
        return std::max({std::abs(left), std::abs(top), std::abs(right), std::abs(bottom)}) >
               (canvasSize.isEmpty() ? maxExtent : maxPaintedExtent);
    }

    // --- kinds: steps ------------------------------------------------------------------------------

    static constexpr int undoKind = 0, redoKind = 1;

    void undo()
    {
        for (int steps = dice.oneIn(6) ? dice.between(2, 12) : 1; steps > 0; --steps)
            desk.undo();
    }
    void redo()
    {
        for (int steps = dice.oneIn(4) ? dice.between(2, 12) : 1; steps > 0; --steps)
            desk.redo();
    }

    // --- kinds: drawing ----------------------------------------------------------------------------

    template <int command> void draw()
    {
        startTool(command);
        if (dice.oneIn(3))
            randomiseAttributes();
        QPoint spot = place();
        for (int clicks = clicksOf(command); clicks > 0; --clicks) {
            recordingShell.answer = true;
            recordingShell.enteredText = QString("word %1").arg(dice.below(100));
            click(spot);
            if (!dice.oneIn(12))
                spot = place();
        }
        if (isPointByPoint(command) || dice.oneIn(12))
            click(spot, Qt::RightButton);
    }
    static bool isPointByPoint(int command)
    {
        return command == CMD_POLYLINE || command == CMD_POLYGON ||
               (command >= CMD_OPEN_SPLINE && command <= CMD_CLOSED_INT_SPLINE);
    }
    int clicksOf(int command)
    {
        if (isPointByPoint(command))
            return dice.between(1, 6);
        return command == CMD_TEXT ? 1 : command == CMD_ARC ? 3 : 2;
    }

    // --- kinds: moving and reshaping ----------------------------------------------------------------

    void dragObjects()
    {
        dice.oneIn(2) ? selectSome() : select(anyObject(nullptr));
        if (root()->isEmpty())
            return;
        const QPoint from = onOutline(dice.any(*root()));
        drag(from, place());
    }
    template <Condition condition> void movePoint()
    {
        FigObject* object = anyObject(condition);
        if (!object)
            return;
        // Whatever comes between may delete it.
        const QPoint from = anyPointOf(object, dice);
        select(object);
        if (dice.oneIn(4))
            holdKeys(dice.oneIn(4), dice.oneIn(2));
        drag(from, place());
    }
    void arrowKey()
    {
        note("arrow key");
        const bool isHorizontal = dice.oneIn(2);
        desk.arrowKey(isHorizontal, dice.oneIn(2));
    }
    void moveByKeys()
    {
        selectSome();
        for (int times = dice.between(1, 3); times > 0; --times)
            arrowKey();
    }
    void copyTool()
    {
        startTool(CMD_COPY);
        if (root()->isEmpty())
            return;
        const QByteArray before = text();
        click(onOutline(dice.any(*root())));
        move(place());
        if (dice.oneIn(12))
            return breakOff(place(), before);
        click(place());
        if (dice.oneIn(3))
            click(place(), Qt::RightButton);
    }
    void addPoint()
    {
        startTool(CMD_ADD_POINT);
        FigObject* object = anyObject(isChain);
        if (!object)
            return;
        const QPoint from = onOutline(object);
        dice.oneIn(6) ? click(from) : drag(from, place());
    }
    void deletePoint()
    {
        startTool(CMD_DELETE_POINT);
        FigObject* object = anyObject(isChain);
        if (object)
            click(anyPointOf(object, dice));
    }
    void scaleCompound()
    {
        startTool(CMD_SCALE_COMPOUND);
        auto* compound = static_cast<FigCompound*>(anyObject(isOf<O_COMPOUND>));
        if (compound)
            drag(onEdge(compound), place());
    }
    void chooseCentre()
    {
        if (!dice.oneIn(5))
            return;
        const QPoint centre = place();
        move(centre);
        desk.holdShift(true);
        press(centre);
        desk.holdShift(false);
        release(centre);
    }
    template <int command, Qt::MouseButton button> void turn()
    {
        startTool(command);
        static const int angles[] = {90, 90, 90, 180, 0, 360, 45, -90, 30};
        cur_rotnangle = dice.oneIn(3) ? dice.between(-400, 400) : dice.any(angles);
        cur_numcopies = dice.oneIn(4) ? dice.between(-1, 4) : 1;
        chooseCentre();
        if (!root()->isEmpty())
            click(onOutline(dice.any(*root())), button);
    }

    // --- kinds: small edits -------------------------------------------------------------------------

    /// The tool, then a click on an outline.
    template <int command> void clickWith()
    {
        startTool(command);
        if (command == CMD_TANGENT || command == CMD_NORMAL)
            cur_tangnormlen = float(dice.between(-100, 2000)) / 37.0f;
        if (!root()->isEmpty())
            click(onOutline(dice.any(*root())));
    }
    void arrowHead()
    {
        startTool(CMD_ARROW_HEAD);
        if (dice.oneIn(3))
            randomiseAttributes();
        FigObject* object = anyObject(canHaveArrows);
        if (!object)
            return;
        if (FigPath* path = chainOwner(object)) {
            const FigPoint* end = path->getPoint(dice.oneIn(2) ? 0 : path->getNumPoints() - 1);
            return click({end->x, end->y});
        }
        const FigPoint& end = static_cast<FigArc*>(object)->point[dice.oneIn(2) ? 0 : 2];
        click({end.x, end.y});
    }
    void updateTool()
    {
        startTool(CMD_UPDATE);
        randomiseAttributes();
        for (int& isUpdated : updatelist)
            isUpdated = dice.oneIn(8) ? 0 : 1;
        if (!root()->isEmpty())
            click(onOutline(dice.any(*root())), dice.oneIn(8) ? Qt::RightButton : Qt::LeftButton);
    }
    template <Condition condition> void convert()
    {
        select(anyObject(condition));
        note("convert");
        desk.edit(
            [this] { do_convert_line_spline(ctx(), ctx()->curObject, 0, 0, 0, 0, 0); });
    }
    void align()
    {
        selectSome();
        cur_halign = dice.below(4);
        cur_valign = dice.below(4);
        note("align");
        desk.edit([this] { align_tagged_objects(ctx()); });
    }
    void linkAll()
    {
        note("link all");
        if (gestureHoldsObjects(ctx()))
            return;
        auto* action = new CreateSmartLinksForDrawingAction(root());
        action->execute(ctx());
        ctx()->undoQueue.addAction(action);
        desk.paint(true, [this] { refresh_obj_area(ctx(), root(), false); });
    }
    void editText()
    {
        select(anyObject(isOf<O_TEXT>));
        FigObject* object = ctx()->getCurObject();
        if (!object || object->type != O_TEXT || gestureHoldsObjects(ctx()))
            return;
        recordingShell.answer = !dice.oneIn(10);
        recordingShell.enteredText = QString("other %1").arg(dice.below(1000));
        note("edit text");
        desk.paint(true, [=] { ::editText(ctx(), static_cast<FigText*>(object)); });
    }
    void resizePicture()
    {
        FigObject* picture = anyObject(isPicture);
        note("resize picture");
        if (picture)
            desk.edit([=] {
                resizePic(ctx(), static_cast<FigLine*>(picture), dice.between(-100, 9000),
                          dice.between(-100, 9000));
            });
    }

    // --- kinds: compounds, clipboard, deleting --------------------------------------------------------

    void group()
    {
        selectSome();
        note("create compound");
        desk.edit([this] { create_compoundobject(ctx()); });
    }
    void ungroup()
    {
        select(anyObject(isOf<O_COMPOUND>));
        note("break compound");
        desk.edit([this] { break_compoundobject(ctx()); });
    }
    void deleteByKey()
    {
        select(anyObject(nullptr));
        note("delete key");
        desk.deleteKey();
    }
    void cut()
    {
        select(anyObject(nullptr));
        note("cut");
        desk.cut();
    }
    void paste()
    {
        if (isClipboardEmpty() || dice.oneIn(6)) {
            selectSome();
            note("copy");
            desk.copy();
        }
        const QByteArray before = text();
        note("paste");
        desk.paste();
        finishPlacing(before);
    }
    void placeLibrary()
    {
        // Its picture is as large as what it shows.
        if (ctx()->zoom > 0.1f)
            setZoom(0.1f);
        const QByteArray before = text();
        note("library");
        desk.placeLibrary(&library);
        finishPlacing(before);
    }
    void finishPlacing(const QByteArray& before)
    {
        move(place());
        move(place());
        if (dice.oneIn(12))
            breakOff(place(), before);
        else
            click(place());
    }

    // --- kinds: attributes ---------------------------------------------------------------------------

    double anyValue(int kind)
    {
        switch (kind) {
        case ATTR_DEPTH:
            return dice.below(1000);
        case ATTR_LINE_WIDTH:
            return dice.oneIn(6) ? dice.below(110) : dice.below(6);
        case ATTR_LINE_STYLE:
            return dice.between(-1, 5);
        case ATTR_STYLE_VALUE:
            return dice.between(0, 1200) / 7.0;
        case ATTR_PEN_COLOR:
        case ATTR_FILL_COLOR:
            return dice.below(32);
        case ATTR_FILL_STYLE:
            return dice.between(-1, 62);
        case ATTR_CAP_STYLE:
        case ATTR_JOIN_STYLE:
        case ATTR_TEXT_JUSTIFICATION:
            return dice.below(3);
        case ATTR_BOX_TYPE:
            return dice.oneIn(2) ? T_BOX : T_ARCBOX;
        case ATTR_BOX_RADIUS:
            return dice.between(7, 300);
        case ATTR_ARC_TYPE:
            return dice.below(2);
        case ATTR_ELLIPSE_ANGLE:
        case ATTR_TEXT_ANGLE:
            return dice.between(-360, 720) * M_PI / 180;
        case ATTR_FONT:
            return cur_textflags & psFontFlag ? dice.below(35) : dice.below(6);
        case ATTR_FONT_SIZE:
            return dice.between(1, 60);
        default:
            return dice.oneIn(2) ? 0 : 7; // bits of the flags of a text
        }
    }
    void randomiseAttributes()
    {
        for (FigObject* object : qAsConst(*root()))
            if (const QVector<const Attribute*> rows = attributesOf(object);
                !rows.isEmpty() && dice.oneIn(3)) {
                const Attribute* row = dice.any(rows);
                row->makeCurrent(ctx(), anyValue(row->kind));
            }
        autoforwardarrow_mode = dice.oneIn(3);
        autobackwardarrow_mode = dice.oneIn(3);
        cur_farrowtype = dice.below(29);
        cur_barrowtype = dice.below(29);
        cur_arrowtype = dice.below(29);
        use_abs_arrowvals = dice.oneIn(2);
        cur_numsides = dice.between(3, 12);
    }
    /// As its control in the panel of that object. Kind -1 is any.
    void changeAttribute(FigObject* object, int kind)
    {
        if (!object)
            return;
        const QVector<const Attribute*> rows = attributesInPanels(object);
        const Attribute* row = rows.isEmpty() ? nullptr : dice.any(rows);
        if (kind >= 0)
            row = attributeOf(object, kind);
        if (!row || !rows.contains(row))
            return;
        note(QString("attribute %1").arg(row->kind));
        row->makeCurrent(ctx(), anyValue(row->kind));
        desk.paint(true, [=] { update_object_to_current_attrs(ctx(), object, false); });
    }
    template <int kind> static bool hasAttribute(FigObject* object)
    {
        return attributesInPanels(object).contains(attributeOf(object, kind));
    }
    template <int kind> void usePanel()
    {
        if (FigObject* object = ctx()->getCurObject(); !object || !hasAttribute<kind>(object))
            select(anyObject(hasAttribute<kind>));
        changeAttribute(ctx()->getCurObject(), kind);
    }
    template <int direction> void useArrowPanel()
    {
        if (FigObject* object = ctx()->getCurObject(); !object || !canHaveArrows(object))
            select(anyObject(canHaveArrows));
        FigObject* object = ctx()->getCurObject();
        const int number = dice.below(30);
        if (!object)
            return;
        FigArrow* arrow = number > 0 ? new_arrow(ctx(), float(object->thickness), number - 1,
                                                 object->thickness)
                                     : nullptr;
        auto* action = new ChangeArrowAction(object, root(), direction, arrow);
        note("arrow of the panel");
        desk.paint(true, [=] {
            refresh_obj_area(ctx(), object, true);
            action->execute(ctx());
            ctx()->undoQueue.addAction(action);
            refresh_obj_area(ctx(), object, false);
        });
        (direction == ARROW_FORWARD ? autoforwardarrow_mode : autobackwardarrow_mode) = number > 0;
        if (number > 0)
            (direction == ARROW_FORWARD ? cur_farrowtype : cur_barrowtype) = number - 1;
        desk.paint(true, [=] { update_object_to_current_attrs(ctx(), object, false); });
    }

    // --- history ----------------------------------------------------------------------------------------

    void tellHistory()
    {
        if (!fault.isEmpty())
            return;
        note("history");
        ++history.count;
        holdKeys(false, false);
        desk.startTool(CMD_SELECT);
        if (action_on || gestureContext || canvas_leftbut_proc != init_tagging)
            return blame("a gesture goes on after another tool was chosen");
        for (int index = 0; index < desk.count() && fault.isEmpty(); ++index) {
            desk.show(index);
            const QString found =
                history.tell(ctx(), [this] { desk.undo(); }, [this] { desk.redo(); });
            if (!found.isEmpty())
                blame(found);
        }
        look();
    }

    Dice dice;
    bool exact;
    QSize canvasSize;
    QString figure;
    EditTally* tally;
    Histories history;
    Desk desk;
    CFigContext library;
    QTemporaryDir folder;
    QVector<int> done; ///< by kind, in this walk
    QStringList notes; ///< the last events
    QString fault;     ///< the first one; the walk ends with it
    bool isTraced = false;
    bool isInterrupting = false;
    bool isChangedBetween = false; ///< an interruption of the edit in work has changed something
};

// clang-format off
inline const QVector<EditWalk::Kind>& EditWalk::kinds()
{
    static const QVector<Kind> table = {
        {"undo", &EditWalk::undo, true},
        {"redo", &EditWalk::redo, true},

        {"polyline", &EditWalk::draw<CMD_POLYLINE>, true},
        {"polygon", &EditWalk::draw<CMD_POLYGON>, true},
        {"box", &EditWalk::draw<CMD_BOX>, true},
        {"regular polygon", &EditWalk::draw<CMD_REGPOLY>, true},
        {"arc", &EditWalk::draw<CMD_ARC>, true},
        {"circle by radius", &EditWalk::draw<CMD_CIRCLE_BY_RADIUS>, true},
        {"circle by diameter", &EditWalk::draw<CMD_CIRCLE_BY_DIAMETER>, true},
        {"ellipse by radii", &EditWalk::draw<CMD_ELLIPSE_BY_RADII>, true},
        {"ellipse by diameters", &EditWalk::draw<CMD_ELLIPSE_BY_DIAMETERS>, true},
        {"text", &EditWalk::draw<CMD_TEXT>, true},
        {"open spline", &EditWalk::draw<CMD_OPEN_SPLINE>, true},
        {"closed spline", &EditWalk::draw<CMD_CLOSED_SPLINE>, true},
        {"interpolated spline", &EditWalk::draw<CMD_INT_SPLINE>, true},
        {"closed interpolated spline", &EditWalk::draw<CMD_CLOSED_INT_SPLINE>, true},
        {"picture", &EditWalk::draw<CMD_PICTURE>, true},

        {"drag of objects", &EditWalk::dragObjects, true},
        {"arrow keys", &EditWalk::moveByKeys, true},
        {"point of a line", &EditWalk::movePoint<isPlainLine>, true},
        {"point of a box", &EditWalk::movePoint<isBox>, true},
        {"point of a picture", &EditWalk::movePoint<isPicture>, true},
        {"point of a spline", &EditWalk::movePoint<isOf<O_SPLINE>>, true},
        {"point of an arc", &EditWalk::movePoint<isOf<O_ARC>>, true},
        {"point of an ellipse", &EditWalk::movePoint<isOf<O_ELLIPSE>>, true},
        {"copy tool", &EditWalk::copyTool, true},
        {"add point", &EditWalk::addPoint, false},
        {"delete point", &EditWalk::deletePoint, true},
        {"scale compound", &EditWalk::scaleCompound, false},
        {"flip up-down", &EditWalk::turn<CMD_FLIP_UD, Qt::LeftButton>, false},
        {"flip left-right", &EditWalk::turn<CMD_FLIP_LR, Qt::LeftButton>, false},
        {"flip a copy up-down", &EditWalk::turn<CMD_FLIP_UD, Qt::RightButton>, false},
        {"flip a copy left-right", &EditWalk::turn<CMD_FLIP_LR, Qt::RightButton>, false},
        {"turn counter-clockwise", &EditWalk::turn<CMD_ROTATE_CCW, Qt::LeftButton>, false},
        {"turn clockwise", &EditWalk::turn<CMD_ROTATE_CW, Qt::LeftButton>, false},
        {"turn copies counter-clockwise", &EditWalk::turn<CMD_ROTATE_CCW, Qt::RightButton>, false},
        {"turn copies clockwise", &EditWalk::turn<CMD_ROTATE_CW, Qt::RightButton>, false},

        {"tangent", &EditWalk::clickWith<CMD_TANGENT>, true},
        {"normal", &EditWalk::clickWith<CMD_NORMAL>, true},
        {"arrowhead tool", &EditWalk::arrowHead, true},
        {"update tool", &EditWalk::updateTool, true},
        {"line to spline", &EditWalk::convert<isPlainLine>, true},
        {"spline to line", &EditWalk::convert<isOf<O_SPLINE>>, true},
        {"box to box", &EditWalk::convert<isBox>, true},
        {"align", &EditWalk::align, true},
        {"link all", &EditWalk::linkAll, false},
        {"edit text", &EditWalk::editText, true},
        {"resize picture", &EditWalk::resizePicture, true},

        {"create compound", &EditWalk::group, true},
        {"break compound", &EditWalk::ungroup, true},
        {"delete tool", &EditWalk::clickWith<CMD_DELETE>, true},
        {"delete key", &EditWalk::deleteByKey, true},
        {"cut", &EditWalk::cut, true},
        {"paste", &EditWalk::paste, true},
        {"place from library", &EditWalk::placeLibrary, true},

        {"panel: depth", &EditWalk::usePanel<ATTR_DEPTH>, true},
        {"panel: line width", &EditWalk::usePanel<ATTR_LINE_WIDTH>, true},
        {"panel: line style", &EditWalk::usePanel<ATTR_LINE_STYLE>, true},
        {"panel: dash length", &EditWalk::usePanel<ATTR_STYLE_VALUE>, true},
        {"panel: pen colour", &EditWalk::usePanel<ATTR_PEN_COLOR>, true},
        {"panel: fill colour", &EditWalk::usePanel<ATTR_FILL_COLOR>, true},
        {"panel: fill style", &EditWalk::usePanel<ATTR_FILL_STYLE>, true},
        {"panel: cap style", &EditWalk::usePanel<ATTR_CAP_STYLE>, true},
        {"panel: join style", &EditWalk::usePanel<ATTR_JOIN_STYLE>, true},
        {"panel: box type", &EditWalk::usePanel<ATTR_BOX_TYPE>, true},
        {"panel: box radius", &EditWalk::usePanel<ATTR_BOX_RADIUS>, true},
        {"panel: arc type", &EditWalk::usePanel<ATTR_ARC_TYPE>, true},
        {"panel: ellipse angle", &EditWalk::usePanel<ATTR_ELLIPSE_ANGLE>, true},
        {"panel: font", &EditWalk::usePanel<ATTR_FONT>, true},
        {"panel: justification", &EditWalk::usePanel<ATTR_TEXT_JUSTIFICATION>, true},
        {"panel: rigid text", &EditWalk::usePanel<ATTR_TEXT_RIGID>, true},
        {"panel: special text", &EditWalk::usePanel<ATTR_TEXT_SPECIAL>, true},
        {"panel: text size", &EditWalk::usePanel<ATTR_FONT_SIZE>, true},
        {"panel: text angle", &EditWalk::usePanel<ATTR_TEXT_ANGLE>, true},
        {"panel: PostScript font", &EditWalk::usePanel<ATTR_PS_FONT_FLAG>, true},
        {"panel: forward arrow", &EditWalk::useArrowPanel<ARROW_FORWARD>, true},
        {"panel: backward arrow", &EditWalk::useArrowPanel<ARROW_BACKWARD>, true},
    };
    return table;
}
// clang-format on
