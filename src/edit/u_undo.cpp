#include "edit/u_undo.h"

#include "model/FigContext.h"

namespace {

using Transaction = QList<ActionItem*>;

/// Disposes and destroys the actions of a transaction from last to first, then its list.
void disposeTransaction(Transaction* transaction, void (ActionItem::*dispose)())
{
    while (!transaction->isEmpty()) {
        ActionItem* action = transaction->takeLast();
        (action->*dispose)();
        delete action;
    }
    delete transaction;
}

} // namespace

UndoQueue::UndoQueue(CFigContext* document, int maximum) : owner(document), limit(maximum) {}

UndoQueue::~UndoQueue()
{
    clearUndoList();
    clearRedoList();
}

void UndoQueue::addAction(ActionItem* action)
{
    if (action)
        addActionList(new Transaction{action});
}

void UndoQueue::addActionList(QList<ActionItem*>* transaction)
{
    if (!transaction)
        return;
    undoList.append(transaction);
    if (undoList.size() > limit)
        removeFirstElement();
    owner->setModifiedflag();
    clearRedoList();
}

void UndoQueue::removeFirstElement()
{
    if (!undoList.isEmpty())
        disposeTransaction(undoList.takeFirst(), &ActionItem::disposeAsUndo);
}

void UndoQueue::clearUndoList()
{
    while (!undoList.isEmpty())
        disposeTransaction(undoList.takeLast(), &ActionItem::disposeAsUndo);
}

void UndoQueue::clearRedoList()
{
    while (!redoList.isEmpty())
        disposeTransaction(redoList.takeLast(), &ActionItem::disposeAsRedo);
}
