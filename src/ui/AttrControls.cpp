#include "ui/AttrControls.h"

#include "model/FigContext.h"
#include "ui/AttrIcons.h"
#include "ui/AttrWiring.h"
#include "ui/ElidedButton.h"
#include "ui/LateIcon.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"
#include "ui/application.h"

#include <QIntValidator>
#include <QLineEdit>

namespace {

using Handler = AttrsToolbarHandler;

constexpr QSize BUTTON_ICON_SIZE(20, 20);
constexpr int MIN_FONT_SIZE = 1; // points, of a text
constexpr int MAX_FONT_SIZE = 500;
constexpr double MAX_LENGTH = 999.99; // of dashes, gaps and tangents

const char* const capStyles[] = {"Butt", "Round", "Projecting", nullptr};
const char* const joinStyles[] = {"Miter", "Round", "Bevel", nullptr};
const char* const arcTypes[] = {"Normal", "Pie Wedge", nullptr};
const char* const boxTypes[] = {"Normal", "Round", nullptr};
const char* const alignments[] = {"Left", "Center", "Right", nullptr};
const char* const fontSizes[] = {"6",  "7",  "8",  "9",  "10", "11", "12", "14", "16",   "18",
                                 "20", "22", "24", "26", "28", "36", "48", "72", nullptr};

// --- making ------------------------------------------------------------------------

QString translated(const char* text)
{
    return QObject::tr(text);
}

/// Return ends the typing: Delete and the arrow keys are the selection's again.
void leaveOnReturn(const QWidget* control)
{
    QObject::connect(control->findChild<QLineEdit*>(), &QLineEdit::returnPressed, control, [] {
        if (QTChildFrm* document = mainWnd ? mainWnd->activeMdiChild() : nullptr)
            document->setFocus();
    });
}

/// A number counts when it has been typed to its end: one step of undo, not one per digit.
template <typename SpinBox> QWidget* makeSpin(const ControlRow& row)
{
    using Value = decltype(SpinBox().value());
    auto* box = new SpinBox;
    box->setRange(static_cast<Value>(row.minimum), static_cast<Value>(row.maximum));
    box->setValue(static_cast<Value>(row.start));
    box->setKeyboardTracking(false);
    leaveOnReturn(box);
    return box;
}

QWidget* makeCombo(const ControlRow& row)
{
    auto* box = new QComboBox;
    for (const char* const* entry = row.entries; entry && *entry; ++entry)
        box->addItem(translated(*entry));
    if (row.fill)
        row.fill(box);
    return box;
}

/// Only sizes that a text can have; what is none gives way to the present one.
class FontSizeValidator : public QIntValidator {
public:
    explicit FontSizeValidator(QObject* parent)
        : QIntValidator(MIN_FONT_SIZE, MAX_FONT_SIZE, parent)
    {
    }
    void fixup(QString& text) const override { text = QString::number(cur_fontsize); }
};

QWidget* makeSizeCombo(const ControlRow& row)
{
    auto* box = static_cast<QComboBox*>(makeCombo(row));
    box->setEditable(true);
    leaveOnReturn(box);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setCompleter(nullptr); // "1" is not the beginning of "10"
    box->setValidator(new FontSizeValidator(box));
    return box;
}

QWidget* makeCheck(const ControlRow& row)
{
    return new QCheckBox(translated(row.label));
}

QWidget* makeTextButton(const ControlRow& row)
{
    return new QPushButton(translated(row.label));
}

QWidget* makeIconButton(const ControlRow& row)
{
    auto* button = new QPushButton;
    button->setIconSize(BUTTON_ICON_SIZE);
    if (row.icon)
        button->setIcon(lateIcon(row.icon));
    return button;
}

QWidget* makeFontButton(const ControlRow&)
{
    return new ElidedButton;
}

/// A size that is being typed counts when it is complete, one that is chosen at once.
void wireFontSize(AttrsPanel* panel, QWidget* control)
{
    auto* box = static_cast<QComboBox*>(control);
    Handler* handler = panel->coordinator();
    const auto take = [box, handler] { handler->onFontSize(box->currentText()); };
    QObject::connect(box, &QComboBox::currentTextChanged, handler, [box, take] {
        if (!box->lineEdit()->isModified())
            take();
    });
    QObject::connect(box->lineEdit(), &QLineEdit::editingFinished, handler, take);
    const auto show = [box](const QString& points) {
        const QSignalBlocker blocker(box);
        box->setCurrentIndex(box->findText(points));
        box->setEditText(points);
    };
    QObject::connect(handler, &Handler::fontSizeChanged, box, show);
    show(handler->current(&Handler::fontSizeChanged));
}

void addBackArrows(QComboBox* box)
{
    addBackArrowTypes(box, true);
}

void addForwardArrows(QComboBox* box)
{
    addForwardArrowTypes(box, true);
}

void addArrowsWithoutNone(QComboBox* box)
{
    addForwardArrowTypes(box, false);
}

// --- descriptions --------------------------------------------------------------------

constexpr ControlRow spinBox(const char* name, const char* label, const char* toolTip, int minimum,
                             int maximum, int start, WireControl wire)
{
    ControlRow row{name, label, toolTip, makeSpin<QSpinBox>};
    row.wire = wire;
    row.minimum = minimum;
    row.maximum = maximum;
    row.start = start;
    return row;
}

/// The label of each says what the number means at present.
constexpr ControlRow doubleSpinBox(const char* name, const char* labelName, const char* toolTip,
                                   double start, WireControl wire)
{
    ControlRow row{name, "", toolTip, makeSpin<QDoubleSpinBox>};
    row.labelName = labelName;
    row.wire = wire;
    row.maximum = MAX_LENGTH;
    row.start = start;
    return row;
}

constexpr ControlRow textCombo(const char* name, const char* label, const char* const* entries,
                               WireControl wire)
{
    ControlRow row{name, label, "", makeCombo};
    row.wire = wire;
    row.entries = entries;
    return row;
}

constexpr ControlRow iconCombo(const char* name, const char* label, void (*fill)(QComboBox*),
                               WireControl wire)
{
    ControlRow row{name, label, "", makeCombo};
    row.wire = wire;
    row.fill = fill;
    return row;
}

constexpr ControlRow sizeCombo(const char* name, const char* label)
{
    ControlRow row{name, label, "", makeSizeCombo};
    row.wire = wireFontSize;
    row.entries = fontSizes;
    return row;
}

constexpr ControlRow checkBox(const char* name, const char* label, WireControl wire)
{
    ControlRow row{name, label, "", makeCheck};
    row.labelBeside = false;
    row.wire = wire;
    return row;
}

constexpr ControlRow textButton(const char* name, const char* label, WireControl wire = nullptr)
{
    ControlRow row{name, label, "", makeTextButton};
    row.labelBeside = false;
    row.wire = wire;
    return row;
}

constexpr ControlRow iconButton(const char* name, const char* label, const char* toolTip,
                                WireControl wire, const char* icon = nullptr)
{
    ControlRow row{name, label, toolTip, makeIconButton};
    row.wire = wire;
    row.icon = icon;
    return row;
}

} // namespace

namespace controls {

const ControlRow depth = spinBox("depth", "Depth", "Set value for ordering layers", 0, 1000, 50,
                                 wireSpin<&Handler::onDepth, &Handler::depthChanged>);
const ControlRow lineWidth = spinBox("lineWidth", "Width", "", 0, 100, 1,
                                     wireSpin<&Handler::onLineWidth, &Handler::lineWidthChanged>);
const ControlRow lineStyle =
    iconCombo("lineStyle", "Style", addLineStyleIcons,
              wireCombo<&Handler::onLineStyle, &Handler::lineStyleChanged>);
const ControlRow styleVal =
    doubleSpinBox("styleVal", "lbStyleVal", "dash length / dot gap", 4.0,
                  wireDoubleSpin<&Handler::onStyleVal, &Handler::styleValChanged>);
const ControlRow capStyle = textCombo("capStyle", "Cap", capStyles,
                                      wireCombo<&Handler::onCapStyle, &Handler::capStyleChanged>);
const ControlRow joinStyle = textCombo(
    "joinStyle", "Join", joinStyles, wireCombo<&Handler::onJoinStyle, &Handler::joinStyleChanged>);

const ControlRow arcType = textCombo("arcType", "Type", arcTypes,
                                     wireCombo<&Handler::onArcType, &Handler::arcTypeChanged>);
const ControlRow boxType = textCombo("boxType", "Corners", boxTypes,
                                     wireCombo<&Handler::onBoxType, &Handler::boxTypeChanged>);
const ControlRow boxCornerRadius =
    spinBox("boxCornerRadius", "Radius", "", 7, 100, 7,
            wireSpin<&Handler::onBoxCornerRadius, &Handler::boxCornerRadiusChanged>);
const ControlRow numSides = spinBox("numSides", "Sides", "", 3, 200, 6,
                                    wireSpin<&Handler::onNumSides, &Handler::numSidesChanged>);
const ControlRow ellipseAngle =
    spinBox("ellipseAngle", "Angle", "Rotate ellipse by angle (0..360)", 0, 360, 0,
            wireSpin<&Handler::onEllipseAngle, &Handler::ellipseAngleChanged>);

const ControlRow backArrow =
    iconCombo("backArrow", "Back", addBackArrows,
              wireCombo<&Handler::onBackArrow, &Handler::backArrowChanged>);
const ControlRow forwArrow =
    iconCombo("forwArrow", "Forward", addForwardArrows,
              wireCombo<&Handler::onForwArrow, &Handler::forwArrowChanged>);
const ControlRow arrowType =
    iconCombo("arrowType", "Arrow type", addArrowsWithoutNone,
              wireCombo<&Handler::onArrowType, &Handler::arrowTypeChanged>);
const ControlRow openArrowAttrs =
    textButton("openArrowAttrs", "Size...", wirePanelButton<&AttrsPanel::onOpenArrowDlg>);

const ControlRow textAngle = spinBox("textAngle", "Angle", "", 0, 360, 0,
                                     wireSpin<&Handler::onTextAngle, &Handler::textAngleChanged>);
const ControlRow fontSize = sizeCombo("fontSize", "Size");
const ControlRow textAlign = textCombo(
    "textAlign", "Align", alignments, wireCombo<&Handler::onTextAlign, &Handler::textAlignChanged>);
const ControlRow textRigid =
    checkBox("textRigid", "Rigid", wireCheck<&Handler::onTextRigid, &Handler::textRigidChanged>);
const ControlRow textSpecial = checkBox(
    "textSpecial", "LaTeX", wireCheck<&Handler::onTextSpecial, &Handler::textSpecialChanged>);
const ControlRow editText = textButton("editText", "Edit...");
const ControlRow openFontSel = {"openFontSel", "Font", "", makeFontButton};
const ControlRow editPicture = textButton("editPicture", "Picture...");

const ControlRow rotnAngle = spinBox("rotnAngle", "Angle", "Rotate object by angle (0..360)", 0,
                                     360, 90, takeFromSpin<&Handler::onRotnAngle>);
const ControlRow numCopies = spinBox("numCopies", "Copies", "Number of copies on right click", 1,
                                     10000, 1, takeFromSpin<&Handler::onNumCopies>);
const ControlRow tangnormLength =
    doubleSpinBox("tangnormLength", "lbLength", "Length of the new line", 1.0,
                  takeFromDoubleSpin<&Handler::onTangormLength>);

const ControlRow selectPenColor =
    iconButton("selectPenColor", "Colors", "Current pen. Click to open color window",
               wireCoordinatorButton<&Handler::openColorDlgClicked>);
const ControlRow openCommentDlg = iconButton("openCommentDlg", "Comment", "Edit comment",
                                             wireCoordinatorButton<&Handler::openCommentDlgClicked>,
                                             ":/diverse/images/diverse/comment.png");
const ControlRow openPoints = textButton("openPointsDlg", "Points...");
const ControlRow openValues = textButton("openPointsDlg", "Values...");
const ControlRow openCoords = textButton("openPointsDlg", "Coords...");

} // namespace controls
