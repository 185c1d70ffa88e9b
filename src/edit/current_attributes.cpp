// The current attributes as an object has them, and the panel that shows them.
#include "edit/attribute_table.h"
#include "edit/e_arrow.h"
#include "model/FigContext.h"
#include "model/shell.h"

namespace {

/// What already stands for the object stays to the bit, so that drawing one object after the other
/// does not wear the current attributes down.
void takeAttributes(CFigContext* ctx, FigObject* object)
{
    for (const Attribute* row : attributesInPanels(object))
        if (isDifferent(*row, ctx, object))
            row->makeCurrent(ctx, row->read(object));
}

void takeMultiple(float size, float lineWidth, float* currentMultiple)
{
    if (*currentMultiple * lineWidth != size)
        *currentMultiple = size / lineWidth;
}

/// In the mode in force, so that the next arrow made for a line of this width is the same.
void takeSizes(const FigArrow* arrow, int lineWidth)
{
    if (use_abs_arrowvals) {
        cur_arrowthick = arrow->thickness;
        cur_arrowwidth = arrow->wd;
        cur_arrowheight = arrow->ht;
    } else if (lineWidth > 0) {
        const auto width = static_cast<float>(lineWidth);
        cur_arrowthick = width; // what new arrows are multiples of
        takeMultiple(arrow->thickness, width, &cur_arrow_multthick);
        takeMultiple(arrow->wd, width, &cur_arrow_multwidth);
        takeMultiple(arrow->ht, width, &cur_arrow_multheight);
    }
}

void takeArrow(const FigArrow* arrow, int lineWidth, int* currentType)
{
    if (!arrow)
        return;
    *currentType = arrowTypeNumber(arrow);
    takeSizes(arrow, lineWidth);
}

} // namespace

void get_line_attrs(CFigContext* ctx, FigLine* line)
{
    takeAttributes(ctx, line);
    getArrowAttrs(line);
}

void get_spline_attrs(CFigContext* ctx, FigSpline* spline)
{
    takeAttributes(ctx, spline);
    getArrowAttrs(spline);
}

void get_ellipse_attrs(CFigContext* ctx, FigEllipse* ellipse)
{
    takeAttributes(ctx, ellipse);
}

void get_arc_attrs(CFigContext* ctx, FigArc* arc)
{
    takeAttributes(ctx, arc);
    getArrowAttrs(arc);
}

void get_text_attrs(CFigContext* ctx, FigText* text)
{
    // First the flag that says which of the two current fonts is meant.
    const Attribute* numbering = attributeOf(text, ATTR_PS_FONT_FLAG);
    numbering->makeCurrent(ctx, numbering->read(text));
    takeAttributes(ctx, text);
}

void getArrowAttrs(FigObject* object)
{
    if (canHaveArrows(object)) {
        autoforwardarrow_mode = object->forward_arrow != nullptr;
        autobackwardarrow_mode = object->backward_arrow != nullptr;
    }
    takeArrow(object->backward_arrow, object->thickness, &cur_barrowtype);
    takeArrow(object->forward_arrow, object->thickness, &cur_farrowtype);
}

void showAttributesBar(CFigContext* ctx, FigObjectList* tagged)
{
    const bool several = tagged && tagged->size() > 1;
    shell_show_attributes_bar(ctx, ctx && !several ? ctx->curObject : nullptr);
}

void showAttributesBar(CFigContext* ctx, FigObject* object)
{
    shell_show_attributes_bar(ctx, object);
}
