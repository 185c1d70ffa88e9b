// Histories of documents: all steps are taken back and done again, and what comes back is compared
// with what was there. Not after a compound was closed without members: it vanishes for good, which
// is no step, and takes along what comes back into it.
#pragma once

#include "FigureFaults.h"

#include <QHash>

#include <functional>

class Histories {
public:
    /// exact: the text that would be saved comes back, as far as normalText tells it; otherwise
    /// the tree alone, since some steps round.
    explicit Histories(bool isExact) : exact(isExact) {}

    /// To be called as often as something may have entered a compound.
    void noteCompounds(CFigContext* ctx)
    {
        collectMemberIds(ctx, &members[ctx->documentNumber]);
        if (!ctx->vanishedCompounds.isEmpty())
            withVanished.insert(ctx->documentNumber);
    }
    /// What is wrong with a document now.
    QString faultOf(CFigContext* ctx)
    {
        noteCompounds(ctx);
        return figureFault(ctx, members[ctx->documentNumber]);
    }

    int count = 0;     ///< how often all was taken back and done again
    int mostSteps = 0; ///< longest history of these

    QByteArray stateOf(CFigContext* ctx) const
    {
        return exact ? normalText(ctx) : skeleton(ctx->drawing.objects);
    }

    /// How a document begins, as soon as it is met: without steps.
    void knowBeginning(CFigContext* ctx)
    {
        if (beginnings.contains(ctx->documentNumber) || gestureContext == ctx)
            return;
        if (ctx->undoQueue.undoCount() + ctx->undoQueue.redoCount() == 0)
            beginnings.insert(ctx->documentNumber, stateOf(ctx));
    }

    /// Takes all back by undo and does as much of it again by redo; nothing may be in progress.
    /// Empty, or what is wrong.
    QString tell(CFigContext* ctx, const std::function<void()>& undo,
                 const std::function<void()>& redo)
    {
        const UndoQueue& queue = ctx->undoQueue;
        const QByteArray now = stateOf(ctx);
        const int steps = queue.undoCount();
        mostSteps = qMax(mostSteps, steps);
        while (queue.undoCount() > 0)
            undo();
        QString fault = compare(ctx, beginnings.value(ctx->documentNumber), "taken back");
        while (queue.undoCount() < steps)
            redo();
        return fault.isEmpty() ? compare(ctx, now, "done again") : fault;
    }

private:
    QString compare(CFigContext* ctx, const QByteArray& wanted, const char* when)
    {
        const QString broken = faultOf(ctx);
        const QByteArray is = stateOf(ctx);
        if (!broken.isEmpty())
            return QString("%1, all being %2").arg(broken, when);
        if (is != wanted && !withVanished.contains(ctx->documentNumber))
            return QString("all being %1, %2").arg(when, firstDifference(is, wanted));
        return {};
    }

    bool exact;
    // By number of the document.
    QHash<unsigned long, QByteArray> beginnings;
    QHash<unsigned long, QSet<long>> members; ///< ids of all that ever was in a compound
    QSet<unsigned long> withVanished;
};
