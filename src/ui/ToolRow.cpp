#include "ui/ToolRow.h"

#include "edit/mode.h"
#include "model/preferences.h"
#include "model/shell.h"
#include "render/grid.h"
#include "ui/LateIcon.h"

#include <QLineEdit>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>

#define ICON(name) ":/constraints/images/constraints/" name ".png"

const ConstraintRow constraintTable[NUM_CONSTRAINTS] = {
    {"unconstraint",
     ICON("unconstraint"),
     "UNCONSTRAINT geometry (for POLYLINE and SPLINE)",
     SLOT(setUnconstraint(bool)),
     {nullptr, nullptr}},
    {"mounthattan",
     ICON("mounthattan"),
     "MOUNT-HATTAN geometry (for POLYLINE and SPLINE)",
     SLOT(setMounthattan(bool)),
     {&manhattan_mode, &mountain_mode}},
    {"manhattan",
     ICON("manhattan"),
     "MANHATTAN geometry (for POLYLINE and SPLINE)",
     SLOT(setManhattan(bool)),
     {&manhattan_mode, nullptr}},
    {"mountain",
     ICON("mountain"),
     "MOUNTAIN geometry (for POLYLINE and SPLINE)",
     SLOT(setMountain(bool)),
     {&mountain_mode, nullptr}},
    {"latex arrow",
     ICON("latex_arrow"),
     "LATEX ARROW geometry: allow only LaTeX arrow slopes",
     SLOT(setLatexarrow(bool)),
     {&latexarrow_mode, nullptr}},
    {"latex line",
     ICON("latex_line"),
     "LATEX LINE geometry: allow only LaTeX line slopes",
     SLOT(setLatexline(bool)),
     {&latexline_mode, nullptr}},
};

#undef ICON

namespace {

const char* const zoomEntries[] = {"zoom to fit", "10%",  "25%",  "75%",
                                   "100%",        "150%", "200%", "500%"};

} // namespace

ToolRow::ToolRow(QWidget* window) : QToolBar(tr("Tools"), window)
{
    createConstraintButton(window);
    createZoomBox(window);
    addSeparator();
    createGridButton();
    createSnapButton(window);
}

QToolButton* ToolRow::makeMenuButton(const QString& name, const QString& tip, const QString& icon)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setAccessibleName(tip);
    button->setToolTip(tip);
    button->setIcon(lateIcon(icon));
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(new QMenu(button));
    addWidget(button);
    return button;
}

void ToolRow::createConstraintButton(QWidget* window)
{
    constraintButton = makeMenuButton("constraint", tr("Constraint mode for line angles"),
                                      constraintTable[UNCONSTRAINT].icon);
    for (const ConstraintRow& row : constraintTable) {
        QAction* item = constraintButton->menu()->addAction(lateIcon(row.icon), tr(row.text));
        connect(item, SIGNAL(triggered(bool)), window, row.slot);
    }
}

void ToolRow::createZoomBox(QWidget* window)
{
    zoomBox = new QComboBox(this);
    zoomBox->setObjectName("zoom");
    zoomBox->setEditable(true);
    zoomBox->setInsertPolicy(QComboBox::NoInsert);
    zoomBox->setCompleter(nullptr); // "1" is not the beginning of "10%"
    for (const char* entry : zoomEntries)
        zoomBox->addItem(tr(entry));
    zoomBox->setToolTip(tr("Zoom"));
    zoomBox->setAccessibleName(tr("Zoom"));
    zoomBox->lineEdit()->setAccessibleName(tr("Zoom"));
    addWidget(zoomBox);
    connect(zoomBox->lineEdit(), SIGNAL(editingFinished()), window, SLOT(onEditZoom()));
    connect(zoomBox, SIGNAL(currentIndexChanged(int)), window, SLOT(onZoomIndex(int)));
}

void ToolRow::createGridButton()
{
    gridButton = makeMenuButton("grid", tr("Select grid size"), ":/grid/images/grid/grid_none.png");
    for (int index = 0; index < gridDefinitions.size(); ++index) {
        const GridDefinition* grid = gridDefinitions[index];
        QAction* item = gridButton->menu()->addAction(lateIcon(grid->icon), grid->name);
        connect(item, &QAction::triggered, this, [this, index] { emit gridChosen(index); });
    }
}

void ToolRow::createSnapButton(QWidget* window)
{
    snapButton = makeMenuButton("snap", tr("Set snap mode"), ":/grid/images/grid/magnet.png");
    snapToGrid = snapButton->menu()->addAction(tr("Snap to grid"));
    snapToVertex = snapButton->menu()->addAction(tr("Snap to vertex"));
    for (QAction* item : {snapToGrid, snapToVertex})
        item->setCheckable(true);
    snapButton->setCheckable(true);
    connect(snapToGrid, SIGNAL(triggered(bool)), window, SLOT(setSnapModeMagnet(bool)));
    connect(snapToVertex, SIGNAL(triggered(bool)), window, SLOT(setSnapModeVertex(bool)));
    showSnapMode(gridPreferences.snapMode);
}

void ToolRow::setConstraint(Constraint constraint)
{
    const ConstraintRow& row = constraintTable[constraint];
    constraintButton->setIcon(lateIcon(row.icon));
    put_msg(row.message);
    resetConstraints();
    for (int* mode : row.modes)
        if (mode)
            *mode = 1;
}

void ToolRow::showZoom(float zoom)
{
    const QSignalBlocker blocker(zoomBox);
    const QString text = QString("%1%").arg(qRound(zoom * 100));
    zoomBox->setCurrentIndex(zoomBox->findText(text));
    zoomBox->setEditText(text);
}

void ToolRow::showGrid(int index)
{
    if (index >= 0 && index < gridDefinitions.size())
        gridButton->setIcon(lateIcon(gridDefinitions[index]->icon));
}

void ToolRow::showSnapMode(int mode)
{
    snapToGrid->setChecked(mode & SNAP_GRID);
    snapToVertex->setChecked(mode & SNAP_VERTEX);
    snapButton->setChecked(mode != 0);
}
