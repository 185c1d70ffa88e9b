// Events of a user without windows, one by one: each is noted, something may come after each, and
// from time to time all documents are looked at. All steps can be taken back and done again.
#pragma once

#include "Desk.h"
#include "Histories.h"
#include "RandomPlace.h"
#include "edit/preview.h"

#include <numeric>

/// What many walks did together.
struct EditTally {
    QVector<int> done;     ///< by kind of edit: those that changed a document
    QVector<int> tried;    ///< by kind of edit
    int events = 0;        ///< presses, moves, releases, keys, commands
    int cancels = 0;       ///< gestures that were broken off and left the document as it was
    int interruptions = 0; ///< between two events of a gesture
    int histories = 0;
    int mostSteps = 0;
    int mostLinks = 0;
    int reopened = 0;

    int edits() const { return std::accumulate(done.begin(), done.end(), 0); }
};

class EditEvents {
public:
    EditEvents(unsigned seed, bool isExact, EditTally* sum)
        : dice(seed), exact(isExact), tally(sum), history(isExact)
    {
        gridPreferences.snapMode = 0;
    }
    EditEvents(const EditEvents&) = delete;
    EditEvents& operator=(const EditEvents&) = delete;
    virtual ~EditEvents() = default;

protected:
    using Condition = bool (*)(FigObject*);

    /// Something that may come between any two events of a gesture.
    virtual void comeBetween() = 0;

    CFigContext* ctx() const { return desk.ctx(); }
    FigObjectList* root() const { return ctx()->getWorkingRoot(); }

    /// What saving would write now.
    QByteArray text()
    {
        const PreviewAside aside(ctx());
        return writtenText(ctx());
    }

    /// Texts are measured anew at another zoom, which is no edit.
    bool isChangedFrom(const QByteArray& before)
    {
        const QByteArray now = text();
        return now != before && withoutRounded(now) != withoutRounded(before);
    }

    // --- after each event --------------------------------------------------------------------

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

    void interrupt()
    {
        if (!dice.oneIn(40) || isInterrupting || !fault.isEmpty())
            return;
        isInterrupting = true;
        ++tally->interruptions;
        const unsigned long document = ctx()->documentNumber;
        const QByteArray before = text();
        const int command = cur_command;
        comeBetween();
        // With another tool the rest of the events is another edit.
        if (ctx()->documentNumber != document || isChangedFrom(before) || cur_command != command)
            isChangedBetween = true;
        look();
        isInterrupting = false;
    }

    // --- pointer -----------------------------------------------------------------------------

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

    // --- places ------------------------------------------------------------------------------

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
        return dice.oneIn(2) ? anyPointOf(object, dice) : onOutline(object, dice);
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

    // --- history -----------------------------------------------------------------------------

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
            const QString found = history.tell(
                ctx(), [this] { desk.undo(); }, [this] { desk.redo(); });
            if (!found.isEmpty())
                blame(found);
        }
        look();
    }

    QString fault; ///< the first one; the walk ends with it
    Dice dice;
    bool exact;
    EditTally* tally;
    Histories history;
    Desk desk;
    const bool isTraced = qEnvironmentVariableIsSet("ORVALT_TRACE");
    bool isChangedBetween = false; ///< an interruption of the edit in work has changed it

private:
    static constexpr int keptNotes = 40;
    static constexpr int eventsBetweenLooks = 40;

    QStringList notes; ///< the last events
    bool isInterrupting = false;
};
