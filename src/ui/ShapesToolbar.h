// The tool buttons: each puts a command in force and starts its tool. They stand in two panels,
// the drawing tools in this one, the tools that change what is there in another; of all of them
// one is checked.
#pragma once

#include "edit/command.h"

#include <QHash>
#include <QWidget>

class CFigContext;
class QTChildFrm;
class QTMainFrm;
class QToolButton;

/// What a tool does with the point markers before it starts.
enum MarkerRule {
    MARKERS_ERASE, ///< none is shown
    MARKERS_SHOW,
    MARKERS_SIMPLE ///< shown, with no object tagged
};

enum ToolGroup { TOOLS_DRAWING, TOOLS_MANIPULATION, NUM_TOOL_GROUPS };

struct ToolButtonRow {
    int command;
    const char* name;            ///< of the button, and of its icon
    const char* slot;            ///< of the toolbar, as SLOT() spells it
    void (*entry)(CFigContext*); ///< null: disabled, the program does not have the tool yet
    MarkerRule markers;
    ToolGroup group;
    const char* message; ///< for the status line
    const char* tip;
};

constexpr int NUM_TOOL_BUTTONS = 29;
/// In the order in which the panels show them.
extern const ToolButtonRow toolButtonTable[NUM_TOOL_BUTTONS];

class ShapesToolbar : public QWidget {
    Q_OBJECT

public:
    explicit ShapesToolbar(QTMainFrm* mainWindow);

    /// The panel of the manipulation tools; whoever shows it owns it.
    QWidget* manipulationPanel() const { return panels[TOOLS_MANIPULATION]; }
    QToolButton* button(int command) const; ///< null for a command without one

    /// As a click on the button of the command. A number without a usable button only unchecks the
    /// present one.
    void switchCommand(int command);
    /// Puts the tool in force into its idle state, with no panel or marker touched. The commands
    /// of gestures stand for the tool that they came from.
    void restartTool(CFigContext* ctx);

public slots:
    // One per button; the argument is not looked at.
    void cbrClicked(bool);
    void cbdClicked(bool);
    void ebrClicked(bool);
    void ebdClicked(bool);
    void arcClicked(bool);
    void polylineClicked(bool);
    void boxClicked(bool);
    void polygonClicked(bool);
    void textClicked(bool);
    void splineClicked(bool);
    void closedSplineClicked(bool);
    void intSplineClicked(bool);
    void closedIntSplineClicked(bool);
    void regularClicked(bool);
    void pictureClicked(bool);
    void scaleCompClicked(bool);
    void copyClicked(bool);
    void deleteClicked(bool);
    void deletePointClicked(bool);
    void addPointClicked(bool);
    void arrowClicked(bool);
    void updateClicked(bool);
    void flipVertClicked(bool);
    void flipHorizClicked(bool);
    void rotateLeftClicked(bool);
    void rotateRightClicked(bool);
    void selectClicked(bool);
    void tangentClicked(bool);
    void normalClicked(bool);

signals:
    void compoundButtonsStateChanged(bool btCreate, bool btBreak, bool btOpen, bool btClose);
    void convertLineSplineButtonStateChanged(bool enabled);
    void alignButtonsStateChanged(bool enabled);

private:
    QToolButton* makeButton(const ToolButtonRow& row);
    void layOut();
    void startTool(int command);
    void changeButtonSelection(QToolButton* clicked);
    void changeSelection(CFigContext* ctx);
    void dropCurrentObject(CFigContext* ctx, QTChildFrm* child);

    QTMainFrm* mainFrm;
    QWidget* panels[NUM_TOOL_GROUPS];
    QHash<int, QToolButton*> buttons; ///< by command
    QToolButton* current = nullptr;   ///< the checked one
};
