#include "ui/ShapesToolbar.h"

#include "edit/d_arc.h"
#include "edit/d_box.h"
#include "edit/d_ellipse.h"
#include "edit/d_line.h"
#include "edit/d_picobj.h"
#include "edit/d_regpoly.h"
#include "edit/d_spline.h"
#include "edit/d_text.h"
#include "edit/e_addpt_tool.h"
#include "edit/e_arrow.h"
#include "edit/e_copy.h"
#include "edit/e_delete.h"
#include "edit/e_deletept_tool.h"
#include "edit/e_rotate_tool.h"
#include "edit/e_scale_compound.h"
#include "edit/e_select.h"
#include "edit/e_tangent.h"
#include "edit/e_update.h"
#include "edit/mode.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/u_list.h"
#include "render/markers.h"
#include "ui/LateIcon.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"

#include <QGridLayout>
#include <QToolButton>

namespace {

/// Entry of a tool that asks for no context.
template <void (*entry)()> void withoutContext(CFigContext*)
{
    entry();
}

} // namespace

// clang-format off
const ToolButtonRow toolButtonTable[NUM_TOOL_BUTTONS] = {
    {CMD_POLYLINE, "polyline", SLOT(polylineClicked(bool)), line_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "POLYLINE drawing",
     "Polyline: click the points, right click the last one"},
    {CMD_POLYGON, "polygon", SLOT(polygonClicked(bool)), line_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "POLYGON drawing",
     "Polygon: click the corners, right click the last one"},
    {CMD_BOX, "box", SLOT(boxClicked(bool)), box_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "Rectangular BOX drawing",
     "Box: click two opposite corners"},
    {CMD_REGPOLY, "regular", SLOT(regularClicked(bool)), regpoly_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "Regular Polygon",
     "Regular polygon: click the centre and a corner"},
    {CMD_ARC, "arc", SLOT(arcClicked(bool)), arc_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "ARC drawing: specify three points on the arc",
     "Arc: click three points of it"},
    {CMD_CIRCLE_BY_RADIUS, "cbr", SLOT(cbrClicked(bool)), circlebyradius_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "CIRCLE drawing: specify RADIUS",
     "Circle: click the centre and a point of the rim"},
    {CMD_CIRCLE_BY_DIAMETER, "cbd", SLOT(cbdClicked(bool)), circlebydiameter_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "CIRCLE drawing: specify DIAMETER",
     "Circle: click the ends of a diameter"},
    {CMD_ELLIPSE_BY_RADII, "ebr", SLOT(ebrClicked(bool)), ellipsebyradius_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "ELLIPSE drawing: specify RADIUSES",
     "Ellipse: click the centre and a corner of the box around it"},
    {CMD_ELLIPSE_BY_DIAMETERS, "ebd", SLOT(ebdClicked(bool)), ellipsebydiameter_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "ELLIPSE drawing: specify DIAMETERS",
     "Ellipse: click two opposite corners of the box around it"},
    {CMD_TEXT, "text", SLOT(textClicked(bool)), text_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "TEXT input (from keyboard)",
     "Text: click where it begins"},
    {CMD_OPEN_SPLINE, "spline", SLOT(splineClicked(bool)), spline_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "SPLINE drawing: specify control points",
     "Spline that its points attract: click them, right click the last one"},
    {CMD_CLOSED_SPLINE, "closedSpline", SLOT(closedSplineClicked(bool)), spline_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "CLOSED SPLINE drawing: specify control points",
     "Closed spline that its points attract: click them, right click the last one"},
    {CMD_INT_SPLINE, "intSpline", SLOT(intSplineClicked(bool)), spline_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "INTERPOLATED SPLINE drawing",
     "Spline through its points: click them, right click the last one"},
    {CMD_CLOSED_INT_SPLINE, "closedIntSpline", SLOT(closedIntSplineClicked(bool)),
     spline_drawing_selected, MARKERS_ERASE, TOOLS_DRAWING, "CLOSED INTERPOLATED SPLINE drawing",
     "Closed spline through its points: click them, right click the last one"},
    {CMD_PICTURE, "picture", SLOT(pictureClicked(bool)), picobj_drawing_selected,
     MARKERS_ERASE, TOOLS_DRAWING, "PICTURE: add a picture",
     "Picture: click two opposite corners"},

    {CMD_SELECT, "select", SLOT(selectClicked(bool)), select_selected,
     MARKERS_SHOW, TOOLS_MANIPULATION,
     "Select objects object with bounding box or via SHIFT SELECT",
     "Select, move and reshape objects"},
    {CMD_COPY, "copy", SLOT(copyClicked(bool)), copy_selected,
     MARKERS_SIMPLE, TOOLS_MANIPULATION, "COPY objects",
     "Copy an object: click it, then click its place"},
    {CMD_DELETE, "delete", SLOT(deleteClicked(bool)), delete_selected,
     MARKERS_SIMPLE, TOOLS_MANIPULATION, "REMOVE objects",
     "Remove the objects that are clicked"},
    {CMD_UPDATE, "update", SLOT(updateClicked(bool)), update_selected,
     MARKERS_SIMPLE, TOOLS_MANIPULATION, "UPDATE objects to current settings",
     "Give objects the present settings"},
    {CMD_SCALE_COMPOUND, "scaleComp", SLOT(scaleCompClicked(bool)), scale_compound_selected,
     MARKERS_SIMPLE, TOOLS_MANIPULATION, "SCALE COMPOUND object",
     "Scale a compound by a corner or an edge"},
    {CMD_ARROW_HEAD, "arrow", SLOT(arrowClicked(bool)),
     withoutContext<arrow_head_selected>,
     MARKERS_SHOW, TOOLS_MANIPULATION, "ADD/DELETE arrow head (left button)",
     "Put arrowheads on line ends, or take them off"},
    {CMD_ADD_POINT, "addPoint", SLOT(addPointClicked(bool)), point_adding_selected,
     MARKERS_SIMPLE, TOOLS_MANIPULATION,
     "ADD POINTs (to POLYLINE, POLYGON, CLOSED-SPLINE and SPLINE)",
     "Add points to lines and splines"},
    {CMD_DELETE_POINT, "deletePoint", SLOT(deletePointClicked(bool)), delete_point_selected,
     MARKERS_SIMPLE, TOOLS_MANIPULATION,
     "DELETE POINTs (from POLYLINE, POLYGON, CLOSED-SPLINE and SPLINE)",
     "Delete points of lines and splines"},
    {CMD_TANGENT, "tangent", SLOT(tangentClicked(bool)), withoutContext<tangent_selected>,
     MARKERS_ERASE, TOOLS_MANIPULATION, "TANGENT: add a tangent to a shape",
     "Add a tangent to a shape"},
    {CMD_NORMAL, "normal", SLOT(normalClicked(bool)), withoutContext<normal_selected>,
     MARKERS_ERASE, TOOLS_MANIPULATION, "NORMAL: add a normal to a shape",
     "Add a normal to a shape"},
    {CMD_FLIP_UD, "flipVert", SLOT(flipVertClicked(bool)), flip_ud_selected,
     MARKERS_SIMPLE, TOOLS_MANIPULATION,
     "FLIP objects (left button) or COPY & FLIP (right button) up or down. "
     "Set center using SHIFT+LEFT button",
     "Flip objects up or down"},
    {CMD_FLIP_LR, "flipHoriz", SLOT(flipHorizClicked(bool)), flip_lr_selected,
     MARKERS_SIMPLE, TOOLS_MANIPULATION,
     "FLIP objects (left button) or COPY & FLIP (right button) left or right. "
     "Set center using SHIFT+LEFT button",
     "Flip objects left or right"},
    {CMD_ROTATE_CCW, "rotateLeft", SLOT(rotateLeftClicked(bool)), rotate_ccw_selected,
     MARKERS_SIMPLE, TOOLS_MANIPULATION,
     "ROTATE objects (left button) or COPY & ROTATE (right button) 90 degree. "
     "Set center using SHIFT+LEFT button",
     "Rotate objects counter-clockwise"},
    {CMD_ROTATE_CW, "rotateRight", SLOT(rotateRightClicked(bool)), rotate_cw_selected,
     MARKERS_SIMPLE, TOOLS_MANIPULATION,
     "ROTATE objects (left button) or COPY & ROTATE (right button) -90 degree. "
     "Set center using SHIFT+LEFT button",
     "Rotate objects clockwise"},
};
// clang-format on

namespace {

constexpr int COLUMNS = 5;
constexpr int ICON_SIZE = 24;
constexpr int MARGIN = 2;

const ToolButtonRow* rowOf(int command)
{
    for (const ToolButtonRow& row : toolButtonTable)
        if (row.command == command)
            return &row;
    return nullptr;
}

/// The tool whose gesture has this command.
int toolOf(int command)
{
    if (command == CMD_PASTE)
        command = previous_command;
    return rowOf(command) ? command : CMD_SELECT;
}

void applyMarkers(MarkerRule rule, QTChildFrm* child)
{
    if (!child) {
        pointmarker_shown = rule != MARKERS_ERASE;
        return;
    }
    switch (rule) {
    case MARKERS_ERASE:
        child->erasePointmarker();
        break;
    case MARKERS_SHOW:
        child->showPointMarker();
        break;
    case MARKERS_SIMPLE:
        set_tags(&child->figContext->drawing.objects, false);
        child->drawPointmarker();
        break;
    }
}

QWidget* makePanel(QWidget* panel, const QString& name, const QString& accessibleName)
{
    panel->setObjectName(name);
    panel->setAccessibleName(accessibleName);
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    grid->setSpacing(0);
    // Beyond all buttons.
    grid->setColumnStretch(COLUMNS, 1);
    grid->setRowStretch(NUM_TOOL_BUTTONS, 1);
    return panel;
}

} // namespace

ShapesToolbar::ShapesToolbar(QTMainFrm* mainWindow) : QWidget(mainWindow), mainFrm(mainWindow)
{
    panels[TOOLS_DRAWING] = makePanel(this, "shapesToolbar", tr("Shapes"));
    panels[TOOLS_MANIPULATION] =
        makePanel(new QWidget(mainWindow), "manipulationToolbar", tr("Object manipulation"));
    layOut();
    // The other panel follows at once.
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ShapesToolbar::layOut()
{
    int places[NUM_TOOL_GROUPS] = {};
    for (const ToolButtonRow& row : toolButtonTable) {
        const int place = places[row.group]++;
        auto* grid = static_cast<QGridLayout*>(panels[row.group]->layout());
        grid->addWidget(makeButton(row), place / COLUMNS, place % COLUMNS);
    }
}

QToolButton* ShapesToolbar::makeButton(const ToolButtonRow& row)
{
    auto* made = new QToolButton(panels[row.group]);
    made->setObjectName(row.name);
    made->setIcon(lateIcon(QString(":/tools/images/tools/%1.png").arg(row.name)));
    made->setIconSize({ICON_SIZE, ICON_SIZE});
    made->setToolTip(tr(row.tip));
    made->setAccessibleName(tr(row.tip).section(':', 0, 0));
    made->setAutoRaise(true);
    made->setCheckable(true);
    made->setEnabled(row.entry != nullptr);
    connect(made, SIGNAL(clicked(bool)), this, row.slot);
    buttons.insert(row.command, made);
    return made;
}

QToolButton* ShapesToolbar::button(int command) const
{
    return buttons.value(command);
}

// --- commands ---------------------------------------------------------------

void ShapesToolbar::switchCommand(int command)
{
    if (current)
        current->setChecked(false);
    current = nullptr;
    startTool(command);
}

void ShapesToolbar::startTool(int command)
{
    const ToolButtonRow* row = rowOf(command);
    if (!row || !row->entry)
        return;
    abandonGesture(gestureContext);
    CFigContext* ctx = getFigContext();
    cur_command = command;
    row->entry(ctx);
    applyMarkers(row->markers, mainFrm->activeMdiChild());
    mainFrm->showContextDialog(command);
    put_msg(row->message);
    changeButtonSelection(button(command));
    changeSelection(ctx);
    mainFrm->showGestureHint();
}

void ShapesToolbar::restartTool(CFigContext* ctx)
{
    const ToolButtonRow* row = rowOf(toolOf(cur_command));
    if (cur_command < 0 || !row->entry)
        return;
    cur_command = row->command;
    row->entry(ctx);
    mainFrm->showGestureHint();
}

/// A click on the checked button has just unchecked it, and it stays in force.
void ShapesToolbar::changeButtonSelection(QToolButton* clicked)
{
    if (current && current != clicked)
        current->setChecked(false);
    clicked->setChecked(true);
    current = clicked;
}

void ShapesToolbar::changeSelection(CFigContext* ctx)
{
    if (!ctx)
        return;
    QTChildFrm* child = mainFrm->activeMdiChild();
    dropCurrentObject(ctx, child);
    if (child) {
        child->setFocus();
        child->updateCompoundButtons();
    } else {
        emit compoundButtonsStateChanged(false, false, false, false);
    }
    // Markers that stay must not look selected.
    const bool isMarkerStale =
        pointmarker_shown && isAnotherObjectTagged(ctx->getWorkingRoot(), nullptr);
    set_tags(&ctx->drawing.objects, false);
    if (child && isMarkerStale)
        child->refreshPointmarker();
    mainFrm->fireCommentChanged(false);
    emit convertLineSplineButtonStateChanged(false);
    emit alignButtonsStateChanged(false);
}

void ShapesToolbar::dropCurrentObject(CFigContext* ctx, QTChildFrm* child)
{
    if (ctx->curObject) {
        clear_current_object_tag(ctx);
        if (child)
            child->unmarkCurrentObject();
        ctx->curObject = nullptr;
    }
    if (!setcenter)
        return;
    setcenter = 0;
    if (child)
        child->refreshCenterMarker(setcenter_x, setcenter_y);
}

// --- the buttons ------------------------------------------------------------

void ShapesToolbar::cbrClicked(bool)
{
    startTool(CMD_CIRCLE_BY_RADIUS);
}

void ShapesToolbar::cbdClicked(bool)
{
    startTool(CMD_CIRCLE_BY_DIAMETER);
}

void ShapesToolbar::ebrClicked(bool)
{
    startTool(CMD_ELLIPSE_BY_RADII);
}

void ShapesToolbar::ebdClicked(bool)
{
    startTool(CMD_ELLIPSE_BY_DIAMETERS);
}

void ShapesToolbar::arcClicked(bool)
{
    startTool(CMD_ARC);
}

void ShapesToolbar::polylineClicked(bool)
{
    startTool(CMD_POLYLINE);
}

void ShapesToolbar::boxClicked(bool)
{
    startTool(CMD_BOX);
}

void ShapesToolbar::polygonClicked(bool)
{
    startTool(CMD_POLYGON);
}

void ShapesToolbar::textClicked(bool)
{
    startTool(CMD_TEXT);
}

void ShapesToolbar::splineClicked(bool)
{
    startTool(CMD_OPEN_SPLINE);
}

void ShapesToolbar::closedSplineClicked(bool)
{
    startTool(CMD_CLOSED_SPLINE);
}

void ShapesToolbar::intSplineClicked(bool)
{
    startTool(CMD_INT_SPLINE);
}

void ShapesToolbar::closedIntSplineClicked(bool)
{
    startTool(CMD_CLOSED_INT_SPLINE);
}

void ShapesToolbar::regularClicked(bool)
{
    startTool(CMD_REGPOLY);
}

void ShapesToolbar::pictureClicked(bool)
{
    startTool(CMD_PICTURE);
}

void ShapesToolbar::scaleCompClicked(bool)
{
    startTool(CMD_SCALE_COMPOUND);
}

void ShapesToolbar::copyClicked(bool)
{
    startTool(CMD_COPY);
}

void ShapesToolbar::deleteClicked(bool)
{
    startTool(CMD_DELETE);
}

void ShapesToolbar::deletePointClicked(bool)
{
    startTool(CMD_DELETE_POINT);
}

void ShapesToolbar::addPointClicked(bool)
{
    startTool(CMD_ADD_POINT);
}

void ShapesToolbar::arrowClicked(bool)
{
    startTool(CMD_ARROW_HEAD);
}

void ShapesToolbar::updateClicked(bool)
{
    startTool(CMD_UPDATE);
}

void ShapesToolbar::flipVertClicked(bool)
{
    startTool(CMD_FLIP_UD);
}

void ShapesToolbar::flipHorizClicked(bool)
{
    startTool(CMD_FLIP_LR);
}

void ShapesToolbar::rotateLeftClicked(bool)
{
    startTool(CMD_ROTATE_CCW);
}

void ShapesToolbar::rotateRightClicked(bool)
{
    startTool(CMD_ROTATE_CW);
}

void ShapesToolbar::selectClicked(bool)
{
    startTool(CMD_SELECT);
}

void ShapesToolbar::tangentClicked(bool)
{
    startTool(CMD_TANGENT);
}

void ShapesToolbar::normalClicked(bool)
{
    startTool(CMD_NORMAL);
}
