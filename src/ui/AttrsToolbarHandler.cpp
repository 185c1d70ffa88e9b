#include "ui/AttrsToolbarHandler.h"

#include "edit/actions.h"
#include "edit/e_arrow.h"
#include "edit/e_update.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/gfx_math.h"
#include "ui/FontsDlg.h"
#include "ui/QTMainFrm.h"

#include <QScopedValueRollback>

#include <cmath>
#include <variant>

namespace {

constexpr int RIGID_TEXT = 1; // bits of cur_textflags
constexpr int SPECIAL_TEXT = 2;
constexpr float DEFAULT_STYLE_VALUE = 4;
constexpr int SMALLEST_BOX_RADIUS = 7; // of the panel
constexpr int LAST_FIXED_COLOR = 31;
constexpr int LAST_FILL_STYLE = 62;
constexpr float ARROW_WIDTH_PER_LINE_WIDTH = 60;
constexpr float ARROW_HEIGHT_PER_LINE_WIDTH = 120;

FigObject* selectedObject(CFigContext* context)
{
    return context ? context->getCurObject() : nullptr;
}

int wholeDegrees(float radians)
{
    return round2(static_cast<double>(radians) * 180.0 / M_PI);
}

int boxTypeOfIndex(int index)
{
    return index == 0 ? T_BOX : T_ARCBOX;
}

void storeColor(CFigContext* context, int* field, int color)
{
    if (color < 0)
        return;
    if (color <= LAST_FIXED_COLOR || context->isValidUserColorIndex(static_cast<unsigned>(color)))
        *field = color;
}

} // namespace

AttrsToolbarHandler::AttrsToolbarHandler(QTMainFrm* window) : QObject(window), mainWindow(window) {}

void AttrsToolbarHandler::applyToSelection()
{
    CFigContext* context = getFigContext();
    update_object_to_current_attrs(context, selectedObject(context), false);
}

// --- one value, one attribute --------------------------------------------------

template <typename Stored, typename Value>
void AttrsToolbarHandler::change(Stored& attribute, Value value,
                                 void (AttrsToolbarHandler::*changed)(Value))
{
    const auto stored = static_cast<Stored>(value);
    if (updating || attribute == stored)
        return;
    attribute = stored;
    emit(this->*changed)(value);
    applyToSelection();
}

void AttrsToolbarHandler::onDepth(int depth)
{
    change(cur_depth, depth, &AttrsToolbarHandler::depthChanged);
}

void AttrsToolbarHandler::onLineWidth(int width)
{
    if (updating || cur_linewidth == width)
        return;
    cur_arrowthick = static_cast<float>(width);
    cur_arrowwidth = ARROW_WIDTH_PER_LINE_WIDTH * cur_arrowthick;
    cur_arrowheight = ARROW_HEIGHT_PER_LINE_WIDTH * cur_arrowthick;
    change(cur_linewidth, width, &AttrsToolbarHandler::lineWidthChanged);
}

// A solid line of a file may come without a length for dashes; dashes of none would not show.
void AttrsToolbarHandler::onLineStyle(int style)
{
    if (!updating && cur_linestyle != style && style > 0 && cur_styleval <= 0) {
        cur_styleval = DEFAULT_STYLE_VALUE;
        emit styleValChanged(DEFAULT_STYLE_VALUE);
    }
    change(cur_linestyle, style, &AttrsToolbarHandler::lineStyleChanged);
}

/// Stored in single precision, and compared so.
void AttrsToolbarHandler::onStyleVal(double value)
{
    change(cur_styleval, value, &AttrsToolbarHandler::styleValChanged);
}

void AttrsToolbarHandler::onCapStyle(int style)
{
    change(cur_capstyle, style, &AttrsToolbarHandler::capStyleChanged);
}

void AttrsToolbarHandler::onJoinStyle(int style)
{
    change(cur_joinstyle, style, &AttrsToolbarHandler::joinStyleChanged);
}

void AttrsToolbarHandler::onArcType(int type)
{
    change(cur_arctype, type, &AttrsToolbarHandler::arcTypeChanged);
}

void AttrsToolbarHandler::onArrowType(int type)
{
    change(cur_arrowtype, type, &AttrsToolbarHandler::arrowTypeChanged);
}

// A plain box has no radius; round corners of none would not show.
void AttrsToolbarHandler::onBoxType(int index)
{
    if (updating || cur_boxtype == boxTypeOfIndex(index))
        return;
    if (index != 0 && cur_boxradius <= 0) {
        cur_boxradius = SMALLEST_BOX_RADIUS;
        emit boxCornerRadiusChanged(SMALLEST_BOX_RADIUS);
    }
    cur_boxtype = boxTypeOfIndex(index);
    emit boxTypeChanged(index != 0);
    applyToSelection();
}

void AttrsToolbarHandler::onBoxCornerRadius(int radius)
{
    change(cur_boxradius, radius, &AttrsToolbarHandler::boxCornerRadiusChanged);
}

void AttrsToolbarHandler::onNumSides(int sides)
{
    change(cur_numsides, sides, &AttrsToolbarHandler::numSidesChanged);
}

void AttrsToolbarHandler::onTextAlign(int justification)
{
    change(cur_textjust, justification, &AttrsToolbarHandler::textAlignChanged);
}

void AttrsToolbarHandler::onRotnAngle(int degrees)
{
    if (!updating)
        cur_rotnangle = degrees;
}

void AttrsToolbarHandler::onNumCopies(int copies)
{
    if (!updating)
        cur_numcopies = copies;
}

void AttrsToolbarHandler::onTangormLength(double length)
{
    if (!updating)
        cur_tangnormlen = static_cast<float>(length);
}

// --- angles, sizes and flags ------------------------------------------------------

/// Degrees outside, radians inside; an angle within half a degree is the same one.
void AttrsToolbarHandler::changeAngle(float& attribute, int degrees,
                                      void (AttrsToolbarHandler::*changed)(int))
{
    if (updating || wholeDegrees(attribute) == degrees)
        return;
    attribute = static_cast<float>(degrees * M_PI / 180.0);
    emit(this->*changed)(degrees);
    applyToSelection();
}

void AttrsToolbarHandler::onEllipseAngle(int degrees)
{
    changeAngle(cur_ellipseangle, degrees, &AttrsToolbarHandler::ellipseAngleChanged);
}

void AttrsToolbarHandler::onTextAngle(int degrees)
{
    changeAngle(cur_textangle, degrees, &AttrsToolbarHandler::textAngleChanged);
}

void AttrsToolbarHandler::onFontSize(int points)
{
    if (updating || points < 1 || cur_fontsize == points)
        return;
    cur_fontsize = points;
    emit fontSizeChanged(QString::number(points));
    applyToSelection();
}

void AttrsToolbarHandler::onFontSize(const QString& points)
{
    onFontSize(points.toInt());
}

void AttrsToolbarHandler::changeTextFlag(int bit, bool on,
                                         void (AttrsToolbarHandler::*changed)(bool))
{
    if (updating || ((cur_textflags & bit) != 0) == on)
        return;
    cur_textflags ^= bit;
    emit(this->*changed)(on);
    applyToSelection();
}

void AttrsToolbarHandler::onTextRigid(bool on)
{
    changeTextFlag(RIGID_TEXT, on, &AttrsToolbarHandler::textRigidChanged);
}

void AttrsToolbarHandler::onTextSpecial(bool on)
{
    changeTextFlag(SPECIAL_TEXT, on, &AttrsToolbarHandler::textSpecialChanged);
}

// --- arrows -----------------------------------------------------------------------

/// What belongs to one end of a line.
struct AttrsToolbarHandler::ArrowEnd {
    ArrowDirection direction;
    bool& automatic;
    int& type;
    void (AttrsToolbarHandler::*changed)(int);

    /// Entry of the list of arrows; 0 is none.
    int number() const { return automatic ? type + 1 : 0; }
    void set(int entry)
    {
        automatic = entry != 0;
        if (automatic)
            type = entry - 1;
    }
};

namespace {

/// The chosen arrow at that end of the object, or none, as one undo step.
void replaceArrow(CFigContext* context, FigObject* object, ArrowDirection direction, int number)
{
    FigArrow* arrow = number > 0 ? new_arrow(context, static_cast<float>(object->thickness),
                                             number - 1, object->thickness)
                                 : nullptr;
    shell_refresh_obj_area(context, object, true);
    auto* action = new ChangeArrowAction(object, context->getWorkingRoot(), direction, arrow);
    action->execute(context);
    context->undoQueue.addAction(action);
    shell_refresh_obj_area(context, object, false);
}

} // namespace

void AttrsToolbarHandler::changeArrow(const ArrowEnd& end, int number)
{
    if (updating || number == end.number())
        return;
    CFigContext* context = getFigContext();
    if (FigObject* object = selectedObject(context))
        replaceArrow(context, object, end.direction, number);
    ArrowEnd(end).set(number);
    emit(this->*end.changed)(number);
    applyToSelection();
}

void AttrsToolbarHandler::onBackArrow(int number)
{
    changeArrow({ARROW_BACKWARD, autobackwardarrow_mode, cur_barrowtype,
                 &AttrsToolbarHandler::backArrowChanged},
                number);
}

void AttrsToolbarHandler::onForwArrow(int number)
{
    changeArrow({ARROW_FORWARD, autoforwardarrow_mode, cur_farrowtype,
                 &AttrsToolbarHandler::forwArrowChanged},
                number);
}

// --- colours and dialogs ----------------------------------------------------------

void AttrsToolbarHandler::onColors(int pen, int fill, int fillStyle)
{
    CFigContext* context = getFigContext();
    if (updating || !context ||
        (pen == context->cur_pencolor && fill == context->cur_fillcolor &&
         fillStyle == context->cur_fillstyle))
        return;
    storeColor(context, &context->cur_pencolor, pen);
    storeColor(context, &context->cur_fillcolor, fill);
    if (fillStyle >= -1 && fillStyle <= LAST_FILL_STYLE)
        context->cur_fillstyle = fillStyle;
    emit colorsChanged();
}

void AttrsToolbarHandler::openColorDlgClicked(bool)
{
    mainWindow->onOpenColorDlg();
}

void AttrsToolbarHandler::openCommentDlgClicked(bool)
{
    CFigContext* context = getFigContext();
    if (FigObject* object = selectedObject(context))
        mainWindow->editComment(context, object);
    else
        put_msg("Select an object to comment on");
}

// --- all at once -------------------------------------------------------------------

namespace {

using Handler = AttrsToolbarHandler;

/// A signal and the attribute that it tells.
template <typename Value> struct State {
    void (Handler::*changed)(Value);
    std::decay_t<Value> (*current)();
};

using Int = State<int>;
using Bool = State<bool>;

/// In the order in which they are told.
const std::variant<Int, Bool, State<double>, State<const QString&>> stateTable[] = {
    Int{&Handler::depthChanged, [] { return cur_depth; }},
    Int{&Handler::lineWidthChanged, [] { return cur_linewidth; }},
    Int{&Handler::lineStyleChanged, [] { return cur_linestyle; }},
    State<double>{&Handler::styleValChanged, [] { return static_cast<double>(cur_styleval); }},
    Int{&Handler::capStyleChanged, [] { return cur_capstyle; }},
    Int{&Handler::joinStyleChanged, [] { return cur_joinstyle; }},
    Int{&Handler::arcTypeChanged, [] { return cur_arctype; }},
    Int{&Handler::backArrowChanged, [] { return autobackwardarrow_mode ? cur_barrowtype + 1 : 0; }},
    Int{&Handler::forwArrowChanged, [] { return autoforwardarrow_mode ? cur_farrowtype + 1 : 0; }},
    Int{&Handler::arrowTypeChanged, [] { return cur_arrowtype; }},
    Int{&Handler::boxTypeChanged, [] { return int(cur_boxtype != T_BOX); }},
    Int{&Handler::boxCornerRadiusChanged, [] { return cur_boxradius; }},
    Int{&Handler::numSidesChanged, [] { return cur_numsides; }},
    Int{&Handler::ellipseAngleChanged, [] { return wholeDegrees(cur_ellipseangle); }},
    Int{&Handler::textAngleChanged, [] { return wholeDegrees(cur_textangle); }},
    Bool{&Handler::textRigidChanged, [] { return (cur_textflags & RIGID_TEXT) != 0; }},
    Bool{&Handler::textSpecialChanged, [] { return (cur_textflags & SPECIAL_TEXT) != 0; }},
    State<const QString&>{&Handler::fontSizeChanged, [] { return QString::number(cur_fontsize); }},
    Int{&Handler::textAlignChanged, [] { return cur_textjust; }},
};

} // namespace

template <typename Value>
std::decay_t<Value> AttrsToolbarHandler::current(void (AttrsToolbarHandler::*changed)(Value)) const
{
    for (const auto& row : stateTable)
        if (const auto* state = std::get_if<State<Value>>(&row); state && state->changed == changed)
            return state->current();
    return {};
}

template int AttrsToolbarHandler::current(void (AttrsToolbarHandler::*)(int)) const;
template bool AttrsToolbarHandler::current(void (AttrsToolbarHandler::*)(bool)) const;
template double AttrsToolbarHandler::current(void (AttrsToolbarHandler::*)(double)) const;
template QString AttrsToolbarHandler::current(void (AttrsToolbarHandler::*)(const QString&)) const;

void AttrsToolbarHandler::updateToolbars()
{
    const QScopedValueRollback<bool> guard(updating, true);
    for (const auto& row : stateTable)
        std::visit([this](const auto& state) { emit(this->*state.changed)(state.current()); }, row);
    if (cur_textflags & PS_FONT)
        emit psFontChanged(cur_ps_font);
    else
        emit latexFontChanged(cur_latex_font);
    emit colorsChanged();
}
