// Attributes of objects against the current ones: each difference becomes an undoable change.
#pragma once

#include "edit/u_undo.h"
#include "model/ObjectFunctions.h"

#include <limits>

/// Attributes by kind; the numbers index updatelist.
enum AttributeKind {
    ATTR_DEPTH,
    ATTR_LINE_WIDTH,
    ATTR_LINE_STYLE,
    ATTR_STYLE_VALUE, ///< dash length over line width
    ATTR_PEN_COLOR,
    ATTR_FILL_COLOR,
    ATTR_FILL_STYLE,
    ATTR_CAP_STYLE,
    ATTR_JOIN_STYLE,
    ATTR_BOX_TYPE,
    ATTR_BOX_RADIUS,
    ATTR_ARC_TYPE,
    ATTR_ELLIPSE_ANGLE,
    ATTR_FONT,
    ATTR_TEXT_JUSTIFICATION,
    ATTR_TEXT_RIGID,   ///< bit 0 of the flags
    ATTR_TEXT_SPECIAL, ///< bit 1
    ATTR_FONT_SIZE,
    ATTR_TEXT_ANGLE,
    ATTR_PS_FONT_FLAG, ///< bit 2
    ATTR_ARROWS,
    NUM_ATTRIBUTE_KINDS
};

/// One attribute before and after. Owned by its action.
struct AttributeChange {
    int kind = 0;
    int oldValue = 0, newValue = 0;
    float oldFloat = 0, newFloat = 0;      ///< of the kinds that are no whole numbers
    bool oldFlag = false, newFlag = false; ///< of ATTR_PS_FONT_FLAG
    /// Dash length around the last updateAttrs, display units: where nothing has touched it since,
    /// updateAttrsUndo gives back the very number instead of working it out.
    float dashBefore = 0, dashAfter = std::numeric_limits<float>::quiet_NaN();
};

/// Which attributes the update tool takes over; 0 leaves one out. Written by its panel.
extern int updatelist[NUM_ATTRIBUTE_KINDS];

using ActionList = QList<ActionItem*>;

/// Idle state of the update tool.
void update_selected(CFigContext* ctx);
/// Handler of the update tool: true when there is an object.
bool update_object(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);
/// Makes the differences one undo step, with the redraw by the object's window. Nothing for a null
/// context or object, nor without a difference.
void update_object_to_current_attrs(CFigContext* ctx, FigObject* object, bool fromUpdateTool);
void update_object_to_current_attrs(CFigContext* ctx, FigObjectList* list, bool fromUpdateTool);

/// The changes that would bring the object to the current attributes, arrows aside; not executed.
/// With useList only those that updatelist has; without it, as for the panels, only the depth of a
/// picture. The caller owns list and actions.
ActionList* getChangesList(CFigContext* ctx, FigObject* object, bool useList);
ActionList* getChangesList(CFigContext* ctx, FigArc* arc, bool useList);
ActionList* getChangesList(CFigContext* ctx, FigEllipse* ellipse, bool useList);
ActionList* getChangesList(CFigContext* ctx, FigLine* line, bool useList);
ActionList* getChangesList(CFigContext* ctx, FigSpline* spline, bool useList);
ActionList* getChangesList(CFigContext* ctx, FigText* text, bool useList);
ActionList* getChangesList(CFigContext* ctx, FigCompound* compound, bool useList);
ActionList* getChangesList(CFigContext* ctx, FigObjectList* list, bool useList);

/// Apply the new or the old value of a change.
void updateAttrs(CFigContext* ctx, FigObject* object, AttributeChange* change);
void updateAttrs(CFigContext* ctx, FigArc* arc, AttributeChange* change);
void updateAttrs(CFigContext* ctx, FigEllipse* ellipse, AttributeChange* change);
void updateAttrs(CFigContext* ctx, FigLine* line, AttributeChange* change);
void updateAttrs(CFigContext* ctx, FigSpline* spline, AttributeChange* change);
void updateAttrs(CFigContext* ctx, FigText* text, AttributeChange* change);
void updateAttrsUndo(CFigContext* ctx, FigObject* object, AttributeChange* change);
void updateAttrsUndo(CFigContext* ctx, FigArc* arc, AttributeChange* change);
void updateAttrsUndo(CFigContext* ctx, FigEllipse* ellipse, AttributeChange* change);
void updateAttrsUndo(CFigContext* ctx, FigLine* line, AttributeChange* change);
void updateAttrsUndo(CFigContext* ctx, FigSpline* spline, AttributeChange* change);
void updateAttrsUndo(CFigContext* ctx, FigText* text, AttributeChange* change);

// The reverse: what the update compares with an object of the type is made current, so that an
// update by the panels finds no difference, but for two heads of different sizes. That is depth,
// pen colour and, but for texts, fill colour, area fill, line width, line style and dash ratio
// (2 * style_val / (thickness + 1)); another line width makes the sizes of arrows follow, as in the
// panels. The colours are those of the document. Beyond that:
/// Cap and join style; type and corner radius of a box or arc-box; arrows. Of a picture, which
/// shows none of its line attributes, the depth alone.
void get_line_attrs(CFigContext* ctx, FigLine* line);
/// Cap style and arrows.
void get_spline_attrs(CFigContext* ctx, FigSpline* spline);
/// The angle.
void get_ellipse_attrs(CFigContext* ctx, FigEllipse* ellipse);
/// Cap style, sub-type and arrows.
void get_arc_attrs(CFigContext* ctx, FigArc* arc);
/// Justification, size, angle, the flags rigid, special and PostScript, and the font of the
/// numbering that the last one means. The hidden flag stays with the text.
void get_text_attrs(CFigContext* ctx, FigText* text);
/// Types and sizes of an object's arrows, the sizes as they are or as multiples of the line width,
/// as use_abs_arrowvals has it; the forward one wins where they differ. The automatic modes go by
/// which ends have one, if the object can have arrows.
void getArrowAttrs(FigObject* object);

/// The panel of the current object, or that of no object for more than one tagged.
void showAttributesBar(CFigContext* ctx, FigObjectList* tagged);
void showAttributesBar(CFigContext* ctx, FigObject* object);
