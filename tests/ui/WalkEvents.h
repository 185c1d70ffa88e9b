// Events on the real windows one by one: each is noted, and after it all documents are looked at.
// All steps can be taken back and done again.
#pragma once

#include "Gesture.h"
#include "Histories.h"
#include "RandomPlace.h"
#include "RandomUser.h"

#include "edit/e_clipboard.h"
#include "edit/e_select.h"

/// What a walk leaves out.
struct WalkKind {
    /// Only what comes back to the last digit when it is taken back, and is one undo step. Left
    /// out: scaling, turning and mirroring, which round; a box that is turned becomes a polygon
    /// beside the history; a point added by a click alone stays without a step; comments and user
    /// colours are no steps at all; links of the whole drawing pull ends, and undo leaves these.
    bool exact = false;
};

class WalkEvents {
public:
    /// figure is a file, which the walk may save; empty for none.
    WalkEvents(unsigned seed, WalkKind walkKind, const QString& figure) : dice(seed), kind(walkKind)
    {
        isTraced = qEnvironmentVariableIsSet("ORVALT_TRACE");
        if (!figure.isEmpty()) {
            QByteArray name = QFile::encodeName(figure);
            fixture.window->openFile(name.data());
        }
        gesture.tool(CMD_SELECT);
        serveActiveDocument();
        settle();
    }
    WalkEvents(const WalkEvents&) = delete;
    WalkEvents& operator=(const WalkEvents&) = delete;
    virtual ~WalkEvents()
    {
        abandonGesture(gestureContext);
        clear_clipboard();
        for (QTChildFrm* child : documents())
            child->figContext->resetModifiedflag();
    }

    int events = 0;
    int mostLinks = 0; ///< greatest number of links in one figure

    int dialogs() const { return user.count; }
    int histories() const { return history.count; }
    int mostSteps() const { return history.mostSteps; }

protected:
    /// Something that may come between any two events of a gesture.
    virtual void interrupt() = 0;

    // --- after each event --------------------------------------------------------------

    void note(const QString& event)
    {
        ++events;
        notes.append(event);
        if (notes.size() > keptNotes)
            notes.removeFirst();
        if (isTraced)
            fprintf(stderr, "%d: %s\n", events, qPrintable(event));
    }

    void look()
    {
        serveActiveDocument();
        if (!fault.isEmpty())
            return;
        QList<CFigContext*> contexts;
        for (QTChildFrm* child : documents())
            contexts.append(child->figContext);
        QString found = gestureFault(contexts);
        for (QTChildFrm* child : documents()) {
            if (found.isEmpty())
                found = history.faultOf(child->figContext);
            if (found.isEmpty() && child->painter.isActive())
                found = "the painter is still at work";
            mostLinks = qMax(mostLinks, linkCount(child->figContext));
            history.knowBeginning(child->figContext);
        }
        if (!found.isEmpty())
            blame(found);
    }

    void blame(const QString& what)
    {
        fault = QString("%1 after event %2; %3").arg(what).arg(events).arg(notes.join("; "));
    }

    /// Events go to the document that is active now; there is always one.
    void serveActiveDocument()
    {
        QTChildFrm* child = fixture.window->activeMdiChild();
        if (!child)
            child = fixture.window->newFile();
        fixture.child = child;
        fixture.context = child->figContext;
    }

    void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        look();
    }

    QList<QTChildFrm*> documents() const
    {
        return fixture.window->getChilds(QMdiArea::CreationOrder);
    }
    CFigContext* ctx() const { return fixture.context; }
    QTMainFrm* window() const { return fixture.window.get(); }

    // --- the pointer, in pixels of the viewport ------------------------------------------

    void pointer(const char* what, QEvent::Type type, QPoint pixel, Qt::MouseButton button,
                 Qt::MouseButtons held)
    {
        note(QString("%1 %2,%3").arg(what).arg(pixel.x()).arg(pixel.y()));
        fixture.mouse(type, pixel, button, held);
        look();
        interrupt();
    }
    void move(QPoint pixel, Qt::MouseButtons held = Qt::NoButton)
    {
        pointer("move", QEvent::MouseMove, pixel, Qt::NoButton, held);
    }
    void press(QPoint pixel, Qt::MouseButton button = Qt::LeftButton)
    {
        pointer(button == Qt::LeftButton ? "press" : "right press", QEvent::MouseButtonPress, pixel,
                button, button);
    }
    void release(QPoint pixel, Qt::MouseButton button = Qt::LeftButton)
    {
        pointer(button == Qt::LeftButton ? "release" : "right release", QEvent::MouseButtonRelease,
                pixel, button, Qt::NoButton);
    }
    void click(QPoint pixel, Qt::MouseButton button = Qt::LeftButton)
    {
        move(pixel);
        press(pixel, button);
        release(pixel, button);
    }
    void drag(QPoint from, QPoint to)
    {
        move(from);
        press(from);
        for (int step = 1; step <= 3 && fault.isEmpty(); ++step)
            move(from + (to - from) * step / 3, Qt::LeftButton);
        release(to);
    }
    /// A point of an object as often as not, else a place of a coarse lattice, else anything.
    QPoint place()
    {
        if (dice.oneIn(20))
            return {dice.between(-50, 1300), dice.between(-50, 900)};
        const FigObjectList& root = *ctx()->getWorkingRoot();
        if (root.isEmpty() || dice.oneIn(3))
            return {20 * dice.between(1, 40), 20 * dice.between(1, 25)};
        FigObject* object = dice.any(root);
        const QPoint point = anyPointOf(object, dice);
        QPoint pixel(pixelX(ctx(), point.x()), pixelY(ctx(), point.y()));
        pixel += QPoint(dice.between(-1, 1), dice.between(-1, 1)) * dice.below(2);
        return {qBound(-100, pixel.x(), 3000), qBound(-100, pixel.y(), 3000)};
    }

    // --- history --------------------------------------------------------------------------

    void tellHistory()
    {
        if (!fault.isEmpty())
            return;
        note("history");
        ++history.count;
        gesture.shift(false).control(false).tool(CMD_SELECT);
        if (action_on || gestureContext || canvas_leftbut_proc != init_tagging)
            return blame("a gesture goes on after another tool was chosen");
        for (QTChildFrm* child : documents())
            if (fault.isEmpty())
                tellHistoryOf(child);
        look();
    }

    void tellHistoryOf(QTChildFrm* child)
    {
        const QString found = history.tell(
            child->figContext, [=] { child->undo(); }, [=] { child->redo(); });
        if (!found.isEmpty())
            blame(found);
    }

    QString fault; ///< the first one; the walk ends with it
    Dice dice;
    WalkKind kind;
    QTemporaryDir folder;
    WindowFixture fixture{{1100, 750}};
    Gesture gesture{fixture};
    DialogDice user{&dice, fixture.window.get(), !kind.exact};
    Histories history{kind.exact};

private:
    static constexpr int keptNotes = 30;

    QStringList notes; ///< the last events
    bool isTraced = false;
};
