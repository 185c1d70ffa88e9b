// The tool row: how new lines are constrained, zoom, grid and snapping.
#pragma once

#include <QComboBox>
#include <QToolBar>

class QToolButton;

enum Constraint {
    UNCONSTRAINT,
    MOUNTHATTAN,
    MANHATTAN,
    MOUNTAIN,
    LATEX_ARROW,
    LATEX_LINE,
    NUM_CONSTRAINTS
};

struct ConstraintRow {
    const char* text;
    const char* icon;    ///< resource path
    const char* message; ///< for the status line
    const char* slot;    ///< of the main window
    int* modes[2];       ///< switched on; null: fewer than two
};

/// Index is the Constraint.
extern const ConstraintRow constraintTable[NUM_CONSTRAINTS];

class ToolRow : public QToolBar {
    Q_OBJECT

public:
    /// The window receives what the buttons' menus choose.
    explicit ToolRow(QWidget* window);

    /// Shows the constraint on its button, tells it in the status line and puts it in force.
    void setConstraint(Constraint constraint);
    /// Shows a zoom factor; that alone sets no zoom.
    void showZoom(float zoom);
    /// Shows a grid by its index in gridDefinitions; unknown ones change nothing.
    void showGrid(int index);
    /// Checked while anything is snapped to: 1 grid, 2 vertex.
    void showSnapMode(int mode);
    QComboBox* zoom() const { return zoomBox; }

signals:
    void gridChosen(int index);

private:
    QToolButton* makeMenuButton(const QString& name, const QString& tip, const QString& icon);
    void createConstraintButton(QWidget* window);
    void createZoomBox(QWidget* window);
    void createGridButton();
    void createSnapButton(QWidget* window);

    QToolButton* constraintButton;
    QComboBox* zoomBox;
    QToolButton* gridButton;
    QToolButton* snapButton;
    QAction* snapToGrid;
    QAction* snapToVertex;
};
