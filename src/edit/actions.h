// The undoable actions. A tool fills the members, executes once and hands the action to the
// document's UndoQueue; execute is therefore a redo as well. An action owns an object exactly as
// long as that object is out of the drawing.
#pragma once

#include "edit/linked_ends.h"
#include "edit/u_undo.h"
#include "model/ObjectFunctions.h"

struct AttributeChange;

class AddAction : public ActionItem {
public:
    AddAction() = default;
    AddAction(FigObject* added, FigObjectList* list);
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsRedo() override;
    bool resetCurObjectOnUndo() override { return true; }
};

class DeleteAction : public ActionItem {
public:
    DeleteAction() = default;
    DeleteAction(FigObject* deleted, FigObjectList* list);
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsUndo() override;
    bool resetCurObjectOnExecute() override { return true; }

    QList<FigLink*> savedLinks; ///< of other objects, that ended here
};

/// Of objects, or of the single object where that list is empty.
class TranslateAction : public ActionItem {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    /// Moves copies for one step of feedback, and what follows them, which is returned. The
    /// compounds around that are the caller's to measure; the working list need not hold more than
    /// the copies.
    FigObjectList preview(CFigContext* ctx);

    int dx = 0, dy = 0;
    /// Objects whose links may follow. Left empty, it is filled by the first execute where
    /// objects is empty.
    FigObjectList workingObjects;

private:
    bool followersKnown = false;
};

class ScaleAction : public ActionItem {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    FigObjectList preview(CFigContext* ctx); ///< as that of a move

    float xfactor = 1, yfactor = 1;
    int cx = 0, cy = 0;
    FigObjectList workingObjects;
};

/// Base of the turns: keeps the links that a turned object loses.
class TurnAction : public ActionItem {
public:
    void disposeAsUndo() override;

    int cx = 0, cy = 0;
    QList<FigLink*> savedLinks;

protected:
    /// Before a turn: the object's links come off, and what follows it is noted.
    void prepareTurn();
    /// After the turn back.
    void endTurnBack();

private:
    LinkedEnds followers;
};

class RotateAction : public TurnAction {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;

    int angle = 0; ///< degrees, positive clockwise on the screen

private:
    void turn(CFigContext* ctx, int degrees);
};

class FlipAction : public TurnAction {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;

    int direction = 0; ///< 1 up-down, 2 left-right

private:
    void flip(CFigContext* ctx);
};

class ChangeAttributeAction : public ActionItem {
public:
    /// Takes ownership of the change.
    ChangeAttributeAction(FigObject* changed, FigObjectList* list, AttributeChange* attributes);
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsUndo() override;
    void disposeAsRedo() override;

    AttributeChange* change;
};

class ChangeArrowAction : public ActionItem {
public:
    /// direction is an ArrowDirection; a null arrow removes. The action owns the arrow that is
    /// not on the object.
    ChangeArrowAction(FigObject* changed, FigObjectList* list, int arrowDirection, FigArrow* arrow);
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsUndo() override;
    void disposeAsRedo() override;

    int direction;
    FigArrow* newArrow;
    FigArrow* oldArrow = nullptr;
};

class EditTextAction : public ActionItem {
public:
    EditTextAction(FigObject* changed, FigObjectList* list, const QString& text,
                   const QString& formerText);
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;

    QString newText, oldText;
};

/// Line to spline. The object is the one that is in the drawing; the arrows belong to it.
class ConvertLineToSplineAction : public ActionItem {
public:
    ConvertLineToSplineAction(FigLine* converted, FigObjectList* list);
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsUndo() override;
    void disposeAsRedo() override;

    FigLine* line;
    FigSpline* spline = nullptr; ///< made by the first execute
};

class ConvertSplineToLineAction : public ActionItem {
public:
    ConvertSplineToLineAction(FigSpline* converted, FigObjectList* list);
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsUndo() override;
    void disposeAsRedo() override;

    FigSpline* spline;
    FigLine* line = nullptr; ///< made by the first execute
};

/// Places of the first and the last point. A point that enters a polygon first or last takes the
/// other end along, which need not have stood there in a figure from a file.
struct ChainEnds {
    FigPoint first, last;
};

/// Puts newPoint after afterPoint; null makes it the first.
class AddLinePointAction : public ActionItem {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsRedo() override;

    FigPoint* afterPoint = nullptr;
    FigPoint* newPoint = nullptr;

private:
    LinkedEnds followers;
    ChainEnds formerEnds;
};

class DeleteLinePointAction : public ActionItem {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsUndo() override;

    FigPoint* afterPoint = nullptr; ///< the one before the point; null for the first
    FigPoint* point = nullptr;

private:
    LinkedEnds followers;
    ChainEnds formerEnds;
};

/// Factors of the first and the last point. Those of an open spline become 0 when a point enters
/// beside them; a file may have others.
struct EndFactors {
    double first = 0, last = 0;
};

class AddSplinePointAction : public ActionItem {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsRedo() override;

    FigPoint* afterPoint = nullptr;
    FigPoint* newPoint = nullptr;
    FigPoint* nextPoint = nullptr;
    FigShapeFactor* factor = nullptr; ///< the point's own while the point is out

private:
    EndFactors formerEnds;
};

class DeleteSplinePointAction : public ActionItem {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsUndo() override;

    FigPoint* afterPoint = nullptr;
    FigPoint* point = nullptr;
    FigShapeFactor* factor = nullptr; ///< the point's own while the point is out

private:
    EndFactors formerEnds;
};

/// Base of the moves of a chain's point: changes the point's link with the saved one.
class MovePathPointAction : public ActionItem {
public:
    void disposeAsUndo() override;
    void disposeAsRedo() override;

    FigPoint* point = nullptr;
    int dx = 0, dy = 0;
    int connect = 0; ///< 1: an end point may connect itself; 0 after the first execute
    QList<FigLink*> savedLinks;

protected:
    void exchangeLinks();
    void connectPoint(CFigContext* ctx);
    void deleteSavedLinks();
};

class MoveLinePointAction : public MovePathPointAction {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;

    /// Points of a box that moved along with the point, so that undo moves exactly those.
    QList<FigPoint*> movedInX, movedInY;

private:
    void moveBoxBack();

    LinkedEnds followers;
    int formerFlip = 0; ///< of the picture in the box, before execute
};

class MoveSplinePointAction : public MovePathPointAction {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
};

/// False, with nothing changed, where the arc would lie on a line.
class MoveArcPointAction : public ActionItem {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;

    int number = 0; ///< 0 to 2
    int dx = 0, dy = 0;

private:
    bool moved = false;
    float formerCenterX = 0, formerCenterY = 0; ///< before execute
    int formerDirection = 0;
};

class MoveEllipsePointAction : public ActionItem {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;

    int number = 0; ///< 0 start, 1 end, -1 both ends apart
    int dx = 0, dy = 0;

private:
    LinkedEnds followers;
    FigPoint center, radiuses, start, end; ///< before execute
};

class ChangeShapeFactorAction : public ActionItem {
public:
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsUndo() override;
    void disposeAsRedo() override;

    double* factor = nullptr; ///< in the spline
    double newValue = 0, oldValue = 0;
    QList<FigLink*> savedLinks;
};

class CreateCompoundAction : public ActionItem {
public:
    CreateCompoundAction(FigCompound* created, FigObjectList* list);
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsRedo() override;
    bool resetCurObjectOnUndo() override { return true; }
};

class BreakCompoundAction : public ActionItem {
public:
    BreakCompoundAction(FigCompound* broken, FigObjectList* list);
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsUndo() override;
    bool resetCurObjectOnExecute() override { return true; }
};

/// Links all that touches in workingList.
class CreateSmartLinksForDrawingAction : public ActionItem {
public:
    explicit CreateSmartLinksForDrawingAction(FigObjectList* list);
    bool execute(CFigContext* ctx) override;
    bool undo(CFigContext* ctx) override;
    void disposeAsUndo() override;
    void disposeAsRedo() override;

    QList<FigLink*> oldLinks, newLinks;
};
