// The controls that the attribute panels are made of: one description each, shared by all panels
// that have the control, and the wiring between a control and the coordinator.
#pragma once

class AttrsPanel;
class QComboBox;
class QWidget;

/// Joins a control to the panel's coordinator, or to the panel itself.
using WireControl = void (*)(AttrsPanel* panel, QWidget* control);

struct ControlRow {
    const char* name;    ///< object name
    const char* label;   ///< beside the control, or its own text
    const char* toolTip; ///< may be empty
    /// The control with its range or entries, to the caller; name and wiring are the panel's job.
    QWidget* (*make)(const ControlRow& row);
    bool labelBeside = true;
    WireControl wire = nullptr; ///< null: disabled, unless the panel has a use of its own for it
    double minimum = 0, maximum = 0, start = 0; ///< of a spin box
    const char* const* entries = nullptr;       ///< of a combo box, up to a null
    void (*fill)(QComboBox*) = nullptr;         ///< or its icons
    const char* icon = nullptr;                 ///< of a button: resource path
    const char* labelName = "";                 ///< object name of a label whose text changes
};

/// Grouped as the panels show them. Buttons of one name stand for one button whose text
/// differs from panel to panel.
namespace controls {
extern const ControlRow depth, lineWidth, lineStyle, styleVal, capStyle, joinStyle;
extern const ControlRow arcType, boxType, boxCornerRadius, numSides, ellipseAngle;
extern const ControlRow backArrow, forwArrow, arrowType, openArrowAttrs;
extern const ControlRow textAngle, fontSize, textAlign, textRigid, textSpecial;
extern const ControlRow editText, openFontSel, editPicture;
extern const ControlRow rotnAngle, numCopies, tangnormLength;
extern const ControlRow selectPenColor, openCommentDlg;
extern const ControlRow openPoints, openValues, openCoords; ///< all are openPointsDlg
} // namespace controls
