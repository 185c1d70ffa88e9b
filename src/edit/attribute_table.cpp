#include "edit/attribute_table.h"

#include "model/FigContext.h"

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace {

enum : unsigned {
    ELLIPSES = 1U << O_ELLIPSE,
    LINES = 1U << O_POLYLINE,
    SPLINES = 1U << O_SPLINE,
    TEXTS = 1U << O_TEXT,
    ARCS = 1U << O_ARC,
    BOXES = 1U << 7, ///< lines of the sub-types box and arc-box
    SHAPES = ELLIPSES | LINES | SPLINES | ARCS
};

constexpr int smallestTextSize = 1; // points
constexpr int largestTextSize = 500;
constexpr int rigidFlag = 1;
constexpr int specialFlag = 2;

template <typename Pointer> struct Member;
template <typename ClassType, typename ValueType> struct Member<ValueType ClassType::*> {
    using Class = ClassType;
    using Value = ValueType;
};

template <auto Field> double readField(FigObject* object)
{
    return static_cast<typename Member<decltype(Field)>::Class*>(object)->*Field;
}

template <auto Field> void writeField(FigObject* object, double value)
{
    using Type = Member<decltype(Field)>;
    static_cast<typename Type::Class*>(object)->*Field = static_cast<typename Type::Value>(value);
}

/// A current attribute is a field of the document or a global.
template <auto Current> auto& currentField(CFigContext* ctx)
{
    if constexpr (std::is_member_pointer_v<decltype(Current)>)
        return ctx->*Current;
    else
        return *Current;
}

template <auto Current> double readCurrent(CFigContext* ctx)
{
    return currentField<Current>(ctx);
}

template <auto Current> void writeCurrent(CFigContext* ctx, double value)
{
    auto& field = currentField<Current>(ctx);
    field = static_cast<std::remove_reference_t<decltype(field)>>(value);
}

template <auto Field, auto Current> constexpr Attribute plain(AttributeKind kind, unsigned objects)
{
    return {kind,
            objects,
            readField<Field>,
            readCurrent<Current>,
            writeField<Field>,
            writeCurrent<Current>};
}

void setBits(int* word, int mask, double bits)
{
    *word = (*word & ~mask) | (static_cast<int>(bits) & mask);
}

/// Bits of the flags word of a text; the other bits stay.
template <int Mask> constexpr Attribute textFlag(AttributeKind kind)
{
    return {kind,
            TEXTS,
            [](FigObject* object) -> double { return static_cast<FigText*>(object)->flags & Mask; },
            [](CFigContext*) -> double { return cur_textflags & Mask; },
            [](FigObject* object, double bits) {
                setBits(&static_cast<FigText*>(object)->flags, Mask, bits);
            },
            [](CFigContext*, double bits) { setBits(&cur_textflags, Mask, bits); }};
}

// Dashes keep their look over a change of the width by their ratio to it. Single precision, in
// this order: the dashes of new objects are worked out so too.

float dashRatio(float dash, int lineWidth)
{
    return 2 * dash / (static_cast<float>(std::max(lineWidth, 0)) + 1.0f);
}

float dashFor(float ratio, int lineWidth)
{
    return ratio * (static_cast<float>(std::max(lineWidth, 0)) + 1.0f) * 0.5f;
}

double readDashRatio(FigObject* object)
{
    return dashRatio(object->style_val, object->thickness);
}

void writeDashRatio(FigObject* object, double ratio)
{
    object->style_val = dashFor(static_cast<float>(ratio), object->thickness);
}

void writeLineWidth(FigObject* object, double width)
{
    const float ratio = dashRatio(object->style_val, object->thickness);
    object->thickness = static_cast<int>(width);
    object->style_val = dashFor(ratio, object->thickness);
}

void makeLineWidthCurrent(CFigContext*, double width)
{
    if (cur_linewidth == static_cast<int>(width))
        return;
    cur_linewidth = static_cast<int>(width);
    cur_arrowthick = static_cast<float>(cur_linewidth);
    cur_arrowwidth = 60 * cur_arrowthick;
    cur_arrowheight = 120 * cur_arrowthick;
}

double currentDepth(CFigContext*)
{
    return usableDepth();
}

double currentTextSize(CFigContext*)
{
    return usableTextSize();
}

int& currentFont()
{
    return cur_textflags & psFontFlag ? cur_ps_font : cur_latex_font;
}

double readCurrentFont(CFigContext*)
{
    return currentFont();
}

void makeFontCurrent(CFigContext*, double font)
{
    currentFont() = static_cast<int>(font);
}

/// Changes are made in this order.
constexpr Attribute attributes[] = {
    {ATTR_DEPTH, SHAPES | TEXTS, readField<&FigObject::depth>, currentDepth,
     writeField<&FigObject::depth>, writeCurrent<&cur_depth>},
    {ATTR_LINE_WIDTH, SHAPES, readField<&FigObject::thickness>, readCurrent<&cur_linewidth>,
     writeLineWidth, makeLineWidthCurrent},
    plain<&FigObject::line_style, &cur_linestyle>(ATTR_LINE_STYLE, SHAPES),
    {ATTR_STYLE_VALUE, SHAPES, readDashRatio, readCurrent<&cur_styleval>, writeDashRatio,
     writeCurrent<&cur_styleval>},
    plain<&FigObject::pen_color, &CFigContext::cur_pencolor>(ATTR_PEN_COLOR, SHAPES),
    plain<&FigText::color, &CFigContext::cur_pencolor>(ATTR_PEN_COLOR, TEXTS),
    plain<&FigObject::fill_color, &CFigContext::cur_fillcolor>(ATTR_FILL_COLOR, SHAPES),
    plain<&FigObject::fill_style, &CFigContext::cur_fillstyle>(ATTR_FILL_STYLE, SHAPES),
    plain<&FigLine::cap_style, &cur_capstyle>(ATTR_CAP_STYLE, LINES),
    plain<&FigSpline::cap_style, &cur_capstyle>(ATTR_CAP_STYLE, SPLINES),
    plain<&FigArc::cap_style, &cur_capstyle>(ATTR_CAP_STYLE, ARCS),
    plain<&FigLine::join_style, &cur_joinstyle>(ATTR_JOIN_STYLE, LINES),
    plain<&FigObject::sub_type, &cur_boxtype>(ATTR_BOX_TYPE, BOXES),
    plain<&FigLine::radius, &cur_boxradius>(ATTR_BOX_RADIUS, BOXES),
    plain<&FigObject::sub_type, &cur_arctype>(ATTR_ARC_TYPE, ARCS),
    plain<&FigEllipse::angle, &cur_ellipseangle>(ATTR_ELLIPSE_ANGLE, ELLIPSES),
    {ATTR_FONT, TEXTS, readField<&FigText::font>, readCurrentFont, writeField<&FigText::font>,
     makeFontCurrent},
    plain<&FigObject::sub_type, &cur_textjust>(ATTR_TEXT_JUSTIFICATION, TEXTS),
    textFlag<rigidFlag>(ATTR_TEXT_RIGID),
    textFlag<specialFlag>(ATTR_TEXT_SPECIAL),
    {ATTR_FONT_SIZE, TEXTS, readField<&FigText::size>, currentTextSize, writeField<&FigText::size>,
     writeCurrent<&cur_fontsize>},
    plain<&FigText::angle, &cur_textangle>(ATTR_TEXT_ANGLE, TEXTS),
    textFlag<psFontFlag>(ATTR_PS_FONT_FLAG),
};

unsigned classOf(FigObject* object)
{
    const bool box =
        object->type == O_POLYLINE && (object->sub_type == T_BOX || object->sub_type == T_ARCBOX);
    return 1U << object->type | (box ? BOXES : 0U);
}

bool isFor(const Attribute& attribute, FigObject* object)
{
    return (attribute.objects & classOf(object)) != 0;
}

} // namespace

int usableDepth()
{
    return std::clamp(cur_depth, 0, MAX_DEPTH);
}

int usableTextSize()
{
    return std::clamp(cur_fontsize, smallestTextSize, largestTextSize);
}

QVector<const Attribute*> attributesOf(FigObject* object)
{
    QVector<const Attribute*> rows;
    for (const Attribute& row : attributes)
        if (isFor(row, object))
            rows.append(&row);
    return rows;
}

QVector<const Attribute*> attributesInPanels(FigObject* object)
{
    // A picture is drawn without its line attributes. Made current, those of a new picture would
    // leave the lines that are drawn next without width.
    if (object->type == O_POLYLINE && object->sub_type == T_PICTURE)
        return {attributeOf(object, ATTR_DEPTH)};
    return attributesOf(object);
}

const Attribute* attributeOf(FigObject* object, int kind)
{
    const auto found =
        std::find_if(std::begin(attributes), std::end(attributes),
                     [=](const Attribute& row) { return row.kind == kind && isFor(row, object); });
    return found == std::end(attributes) ? nullptr : &*found;
}

bool isDifferent(const Attribute& attribute, CFigContext* ctx, FigObject* object)
{
    const double current = attribute.current(ctx);
    if (attribute.read(object) == current)
        return false;
    // A ratio that rounding alone keeps from the current one gives the very dash that is there.
    return attribute.kind != ATTR_STYLE_VALUE ||
           dashFor(static_cast<float>(current), object->thickness) != object->style_val;
}

void collectAttributed(const FigObjectList& list, FigObjectList* found)
{
    for (FigObject* object : list) {
        if (object->type == O_COMPOUND)
            collectAttributed(*static_cast<FigCompound*>(object)->objects, found);
        else
            found->append(object);
    }
}
