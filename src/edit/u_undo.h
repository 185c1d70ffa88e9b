// Undo queue of a document and the base of all undoable actions.
// The context holds its queue by value, so this header knows the context only by name.
#pragma once

#include <QLinkedList>
#include <QList>

class CFigContext;
class FigCompound;
class FigObject;

/// One undoable change. Owns an object exactly as long as that object is out of the drawing.
class ActionItem {
public:
    ActionItem() = default;
    ActionItem(const ActionItem&) = delete;
    ActionItem& operator=(const ActionItem&) = delete;
    virtual ~ActionItem() = default;

    virtual bool execute(CFigContext*) { return true; }
    virtual bool undo(CFigContext*) { return true; }
    /// The action leaves the queue while it is in effect.
    virtual void disposeAsUndo() {}
    /// The action leaves the queue while it is undone.
    virtual void disposeAsRedo() {}
    virtual QLinkedList<FigObject*>* getRefreshObjects() { return &refreshObjects; }
    virtual bool resetCurObjectOnExecute() { return false; }
    virtual bool resetCurObjectOnUndo() { return false; }

    FigObject* object = nullptr;
    QLinkedList<FigObject*> objects;
    QLinkedList<FigObject*>* workingList = nullptr;
    QLinkedList<FigObject*> refreshObjects;
};

/// Transactions of one document, each a list of actions that undo and redo as one step.
class UndoQueue {
public:
    explicit UndoQueue(CFigContext* document, int maximum = 10000);
    UndoQueue(const UndoQueue&) = delete;
    UndoQueue& operator=(const UndoQueue&) = delete;
    ~UndoQueue();

    /// Takes ownership of an executed action; null is ignored.
    void addAction(ActionItem* action);
    /// Takes ownership of a list of executed actions as one step; null is ignored.
    void addActionList(QList<ActionItem*>* transaction);
    void removeFirstElement();
    void clearUndoList();
    void clearRedoList();
    /// Take back or do again the last step, with the redraw of what changed. Nothing when there
    /// is none.
    void undo();
    void redo();
    int undoCount() const { return undoList.size(); }
    int redoCount() const { return redoList.size(); }

private:
    CFigContext* owner;
    QList<QList<ActionItem*>*> undoList; ///< oldest first
    QList<QList<ActionItem*>*> redoList; ///< the one to redo next is last
    int limit;
};

/// Executes each in order.
void executeActions(CFigContext* ctx, QList<ActionItem*>* actions);
/// Appends the objects of the actions: those that are not null to the compound's members, null or
/// not to the list.
void getChangedObjects(QList<ActionItem*>* actions, FigCompound* target);
void getChangedObjects(QList<ActionItem*>* actions, QLinkedList<FigObject*>* target);
/// Compounds around the object recompute their corners, from the nearest outward.
void recalculateParentCompound(CFigContext* ctx, FigObject* object);
/// If list is the member list of a compound: recomputes its corners, redraws what it covers now
/// and covered before, and returns it. Null otherwise, and for the drawing's own list.
FigCompound* checkForUpdateCompoundArea(CFigContext* ctx, FigObject* object,
                                        QLinkedList<FigObject*>* list);
/// The same for the compound that encloses this one.
FigCompound* checkForUpdateCompoundArea(CFigContext* ctx, FigCompound* compound);
FigCompound* checkForUpdateCompoundArea(CFigContext* ctx, FigObject* object);
