#include "ui/AttrsToolbars.h"

#include "edit/d_text.h"
#include "edit/e_update.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/Font.h"
#include "ui/AttrsToolbarHandler.h"
#include "ui/CompactButton.h"
#include "ui/FontsDlg.h"
#include "ui/QTMainFrm.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QSignalBlocker>

#include <algorithm>

using namespace controls;

ArcAttrsToolbar::ArcAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window,
                 {controls::depth, lineWidth, lineStyle, styleVal, capStyle, arcType, backArrow,
                  forwArrow, selectPenColor, openCommentDlg, openArrowAttrs, openPoints})
{
}

ArrowAttrsToolbar::ArrowAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window, {arrowType, openArrowAttrs})
{
}

BoxAttrsToolbar::BoxAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window,
                 {controls::depth, lineWidth, lineStyle, styleVal, capStyle, joinStyle, boxType,
                  boxCornerRadius, selectPenColor, openCommentDlg, openPoints})
{
}

CompoundAttrsToolbar::CompoundAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window, {openCommentDlg})
{
}

EllipseAttrsToolbar::EllipseAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window,
                 {controls::depth, lineWidth, lineStyle, styleVal, ellipseAngle, selectPenColor,
                  openCommentDlg, openValues})
{
}

PolygonAttrsToolbar::PolygonAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window,
                 {controls::depth, lineWidth, lineStyle, styleVal, capStyle, joinStyle,
                  selectPenColor, openCommentDlg, openPoints})
{
}

PolylineAttrsToolbar::PolylineAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window,
                 {controls::depth, lineWidth, lineStyle, styleVal, capStyle, joinStyle, backArrow,
                  forwArrow, selectPenColor, openCommentDlg, openArrowAttrs, openPoints})
{
}

PicAttrsToolbar::PicAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window, {controls::depth, openCommentDlg, editPicture, openPoints})
{
}

RegpolyAttrsToolbar::RegpolyAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window,
                 {controls::depth, lineWidth, lineStyle, styleVal, capStyle, joinStyle, numSides,
                  selectPenColor, openCommentDlg})
{
}

ClosedSplineAttrsToolbar::ClosedSplineAttrsToolbar(AttrsToolbarHandler* coordinator,
                                                   QTMainFrm* window)
    : AttrsPanel(coordinator, window,
                 {controls::depth, lineWidth, lineStyle, styleVal, capStyle, selectPenColor,
                  openCommentDlg, openPoints})
{
}

OpenSplineAttrsToolbar::OpenSplineAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window,
                 {controls::depth, lineWidth, lineStyle, styleVal, capStyle, backArrow, forwArrow,
                  selectPenColor, openCommentDlg, openArrowAttrs, openPoints})
{
}

RotateAttrsToolbar::RotateAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window, {rotnAngle, numCopies})
{
}

// --- text ------------------------------------------------------------------------

TextAttrsToolbar::TextAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window,
                 {controls::depth, openFontSel, fontSize, textAngle, textAlign, selectPenColor,
                  openCommentDlg, textRigid, textSpecial, controls::editText, openCoords})
{
}

void TextAttrsToolbar::makeContent()
{
    AttrsPanel::makeContent();
    onPress(controls::editText, &TextAttrsToolbar::onEditText);
    onPress(openFontSel, &TextAttrsToolbar::onOpenFontSel);
    connect(handler, &AttrsToolbarHandler::psFontChanged, this, &TextAttrsToolbar::onPsFontChanged);
    connect(handler, &AttrsToolbarHandler::latexFontChanged, this,
            &TextAttrsToolbar::onLatexFontChanged);
    if (cur_textflags & PS_FONT)
        onPsFontChanged(cur_ps_font);
    else
        onLatexFontChanged(cur_latex_font);
}

/// The button is written in the font that it names. A number below 0 is the first font.
void TextAttrsToolbar::onPsFontChanged(int font)
{
    if (font >= NUM_PS_FONTS)
        return;
    const CFontMapEntry& entry = fontmapQt[std::max(font, 0)];
    auto* button = control<QPushButton>(openFontSel);
    QFont face = button->font();
    face.setFamily(entry.family);
    face.setWeight(entry.weight);
    face.setStyle(static_cast<QFont::Style>(entry.style));
    face.setStretch(entry.stretch);
    button->setFont(face);
    button->setText(entry.name);
    button->setToolTip(entry.name);
    button->setIcon(QIcon());
}

void TextAttrsToolbar::onLatexFontChanged(int font)
{
    if (font >= NUM_LATEX_FONTS)
        return;
    auto* button = control<QPushButton>(openFontSel);
    button->setFont(QFont());
    showLatexFont(button, std::max(font, 0));
    button->setToolTip(button->text());
}

void TextAttrsToolbar::onEditText()
{
    FigObject* object = selectedObject();
    if (object && object->type == O_TEXT)
        ::editText(getFigContext(), static_cast<FigText*>(object));
    else
        put_msg("Select a text to edit");
}

void TextAttrsToolbar::onOpenFontSel()
{
    mainWindow->fontsDialog()->exec();
}

// --- tangents ----------------------------------------------------------------------

TangnormAttrsToolbar::TangnormAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window)
    : AttrsPanel(coordinator, window, {tangnormLength})
{
}

void TangnormAttrsToolbar::makeContent()
{
    AttrsPanel::makeContent();
    connect(mainWindow, &QTMainFrm::unitChanged, this, &TangnormAttrsToolbar::onUnit);
    onUnit(mainWindow->shownUnit());
}

void TangnormAttrsToolbar::onUnit(int unit)
{
    labelOf(tangnormLength)->setText(tr("Length (%1)").arg(unit ? "in" : "cm"));
}

// --- update tool --------------------------------------------------------------------

namespace {

constexpr int BOXES_PER_COLUMN = 10;
constexpr int MARGIN = 6; // pixels
constexpr int VERTICAL_SPACING = 3;
constexpr int NO_SECOND_ENTRY = -1;

struct UpdateRow {
    const char* name;
    const char* label;
    int kind;
    int secondKind = NO_SECOND_ENTRY; ///< driven by the same box
};

const UpdateRow updateTable[] = {
    {"depth", "Depth", ATTR_DEPTH},
    {"lineWidth", "Line wdh", ATTR_LINE_WIDTH},
    {"lineStyle", "Line style", ATTR_LINE_STYLE},
    {"styleValue", "Dash len", ATTR_STYLE_VALUE},
    {"outlinePen", "Outline", ATTR_PEN_COLOR},
    {"fillPen", "Fill", ATTR_FILL_COLOR, ATTR_FILL_STYLE},
    {"capStyle", "Cap style", ATTR_CAP_STYLE},
    {"joinStyle", "Join style", ATTR_JOIN_STYLE},
    {"boxType", "Box type", ATTR_BOX_TYPE},
    {"cornerRadius", "Cornr rds", ATTR_BOX_RADIUS},
    {"arcType", "Arc type", ATTR_ARC_TYPE},
    {"ellipseAngle", "Ell. angle", ATTR_ELLIPSE_ANGLE},
    {"textFont", "Font", ATTR_FONT, ATTR_PS_FONT_FLAG},
    {"textAdjust", "Adjust", ATTR_TEXT_JUSTIFICATION},
    {"textRigid", "Rigid", ATTR_TEXT_RIGID},
    {"textSpecial", "Special", ATTR_TEXT_SPECIAL},
    {"textSize", "Size", ATTR_FONT_SIZE},
    {"textAngle", "Angle", ATTR_TEXT_ANGLE},
    {"arrowStyle", "Arrow", ATTR_ARROWS},
};

} // namespace

void UpdateAttrsToolbar::makeContent()
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    grid->setVerticalSpacing(VERTICAL_SPACING);
    for (const UpdateRow& row : updateTable) {
        auto* box = new QCheckBox(tr(row.label));
        box->setObjectName(row.name);
        box->setChecked(updatelist[row.kind] != 0);
        connect(box, &QCheckBox::stateChanged, this, &UpdateAttrsToolbar::flagChanged);
        grid->addWidget(box, boxes.size() % BOXES_PER_COLUMN, boxes.size() / BOXES_PER_COLUMN);
        boxes.append(box);
    }
    auto* all = makeCompactButton("btAll", tr("All"));
    auto* none = makeCompactButton("btNone", tr("None"));
    auto* toggle = makeCompactButton("btToggle", tr("Toggle"));
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {all, none, toggle})
        buttons->addWidget(button);
    grid->addLayout(buttons, BOXES_PER_COLUMN, 0, 1, 2);
    grid->setRowStretch(BOXES_PER_COLUMN + 1, 1);
    connect(all, &QPushButton::clicked, this, [this] { setAll([](bool) { return true; }); });
    connect(none, &QPushButton::clicked, this, [this] { setAll([](bool) { return false; }); });
    connect(toggle, &QPushButton::clicked, this, [this] { setAll([](bool on) { return !on; }); });
}

template <typename NewState> void UpdateAttrsToolbar::setAll(NewState newState)
{
    for (QCheckBox* box : qAsConst(boxes)) {
        const QSignalBlocker blocker(box);
        box->setChecked(newState(box->isChecked()));
    }
    flagChanged();
}

void UpdateAttrsToolbar::flagChanged()
{
    for (int index = 0; index < boxes.size(); ++index) {
        const UpdateRow& row = updateTable[index];
        const int wanted = boxes[index]->checkState() == Qt::Checked;
        updatelist[row.kind] = wanted;
        if (row.secondKind != NO_SECOND_ENTRY)
            updatelist[row.secondKind] = wanted;
    }
}
