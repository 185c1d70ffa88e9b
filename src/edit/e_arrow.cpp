#include "edit/e_arrow.h"

#include "edit/actions.h"
#include "edit/e_update.h"
#include "edit/mode.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "render/u_redraw.h"

#include <memory>
#include <utility>

namespace {

FigArrow*& arrowSlot(FigObject* object, ArrowDirection direction)
{
    return direction == ARROW_FORWARD ? object->forward_arrow : object->backward_arrow;
}

FigArrow* exchangeArrow(FigObject* object, ArrowDirection direction, FigArrow* arrow)
{
    return std::exchange(arrowSlot(object, direction), arrow);
}

bool isAutomatic(ArrowDirection direction)
{
    return direction == ARROW_FORWARD ? autoforwardarrow_mode : autobackwardarrow_mode;
}

int currentType(ArrowDirection direction)
{
    return direction == ARROW_FORWARD ? cur_farrowtype : cur_barrowtype;
}

struct ArrowSizes {
    float thickness, width, height;
};

/// Single precision, as the file has them.
ArrowSizes multiplesOf(float thickness)
{
    return {cur_arrow_multthick * thickness, cur_arrow_multwidth * thickness,
            cur_arrow_multheight * thickness};
}

/// What an update wants of the head of an object which has one already.
FigArrow wantedArrow(FigObject* object, ArrowDirection direction)
{
    const int type = currentType(direction);
    const ArrowSizes sizes = use_abs_arrowvals
                                 ? ArrowSizes{cur_arrowthick, cur_arrowwidth, cur_arrowheight}
                                 : multiplesOf(static_cast<float>(object->thickness));
    return {arrowKind(type), arrowStyle(type), sizes.thickness, sizes.width, sizes.height};
}

/// A size that rounding alone keeps from the multiple of the line width counts as that.
bool isSameSize(float size, float wanted, float multiple, int lineWidth)
{
    const bool relative = !use_abs_arrowvals && lineWidth > 0;
    return size == wanted || (relative && size / static_cast<float>(lineWidth) == multiple);
}

bool areEqual(const FigArrow& a, const FigArrow& b)
{
    return a.type == b.type && a.style == b.style && a.thickness == b.thickness && a.wd == b.wd &&
           a.ht == b.ht;
}

bool isAsWanted(const FigArrow& arrow, const FigArrow& wanted, int lineWidth)
{
    return arrow.type == wanted.type && arrow.style == wanted.style &&
           isSameSize(arrow.thickness, wanted.thickness, cur_arrow_multthick, lineWidth) &&
           isSameSize(arrow.wd, wanted.wd, cur_arrow_multwidth, lineWidth) &&
           isSameSize(arrow.ht, wanted.ht, cur_arrow_multheight, lineWidth);
}

/// Null for a head that is as wanted, or that would only be made once more: sizes that no head can
/// have, as the multiples of no line width, give way to usable ones when it is made.
FigArrow* replacementOf(CFigContext* ctx, const FigArrow& arrow, const FigArrow& wanted,
                        FigObject* object)
{
    if (isAsWanted(arrow, wanted, object->thickness))
        return nullptr;
    std::unique_ptr<FigArrow> made(new_arrow(ctx, wanted.type, wanted.style, wanted.thickness,
                                             wanted.wd, wanted.ht, object->thickness));
    return areEqual(arrow, *made) ? nullptr : made.release();
}

void setArrowSize(FigArrow* arrow, float lineWidth)
{
    arrow->thickness = lineWidth;
    arrow->wd = 60 * lineWidth;
    arrow->ht = 120 * lineWidth;
}

bool hasTwoPoints(const FigPath* path)
{
    return path->points && path->points->next;
}

/// The end that the point is. False for a point that is no end, or an object that has none.
bool findEnd(FigObject* object, FigPoint* previous, FigPoint* point, int number,
             ArrowDirection* direction)
{
    if (!canHaveArrows(object))
        return false;
    if (object->type == O_ARC) {
        *direction = number == 0 ? ARROW_BACKWARD : ARROW_FORWARD;
        return number == 0 || number == 2;
    }
    *direction = previous ? ARROW_FORWARD : ARROW_BACKWARD;
    return point && isEndpoint(object, point);
}

} // namespace

FigArrow* new_arrow(CFigContext*, float thickness, int type, int)
{
    const ArrowSizes sizes = use_abs_arrowvals
                                 ? ArrowSizes{thickness, cur_arrowwidth, cur_arrowheight}
                                 : multiplesOf(thickness);
    return new FigArrow{arrowKind(type), arrowStyle(type), sizes.thickness, sizes.width,
                        sizes.height};
}

bool canHaveArrows(FigObject* object)
{
    switch (object->type) {
    case O_POLYLINE:
        return !isClosed(object) && hasTwoPoints(static_cast<FigLine*>(object));
    case O_SPLINE:
        return !isClosed(object) && hasTwoPoints(static_cast<FigSpline*>(object));
    case O_ARC:
        return object->sub_type == 0;
    default:
        return false;
    }
}

int arrowKind(int type)
{
    return type > 0 ? (type + 1) / 2 : 0;
}

int arrowStyle(int type)
{
    return type > 0 ? (type + 1) % 2 : 0;
}

int arrowTypeNumber(const FigArrow* arrow)
{
    return arrow->type == 0 ? 0 : 2 * arrow->type + arrow->style - 1;
}

FigArrow* add_linearrow(FigLine* line, ArrowDirection direction, FigArrow* arrow)
{
    return exchangeArrow(line, direction, arrow);
}

FigArrow* add_splinearrow(FigSpline* spline, ArrowDirection direction, FigArrow* arrow)
{
    return exchangeArrow(spline, direction, arrow);
}

FigArrow* add_arcarrow(FigArc* arc, ArrowDirection direction, FigArrow* arrow)
{
    return exchangeArrow(arc, direction, arrow);
}

FigArrow* remove_linearrow(FigLine* line, ArrowDirection direction)
{
    return exchangeArrow(line, direction, nullptr);
}

FigArrow* remove_splinearrow(FigSpline* spline, ArrowDirection direction)
{
    return exchangeArrow(spline, direction, nullptr);
}

FigArrow* remove_arcarrow(FigArc* arc, ArrowDirection direction)
{
    return exchangeArrow(arc, direction, nullptr);
}

FigArrow* add_arrow(FigObject* object, ArrowDirection direction, FigArrow* arrow)
{
    switch (object->type) {
    case O_POLYLINE:
    case O_SPLINE:
    case O_ARC:
        return exchangeArrow(object, direction, arrow);
    default:
        return arrow;
    }
}

void getArrowChangesList(CFigContext* ctx, FigObject* object, FigArrow* arrow,
                         ArrowDirection direction, QList<ActionItem*>* list, bool useList)
{
    if ((useList && !updatelist[ATTR_ARROWS]) || !isAutomatic(direction))
        return;
    std::unique_ptr<FigArrow> changed;
    if (arrow)
        changed.reset(replacementOf(ctx, *arrow, wantedArrow(object, direction), object));
    else if (canHaveArrows(object))
        changed.reset(new_arrow(ctx, static_cast<float>(object->thickness), currentType(direction),
                                object->thickness));
    if (!changed)
        return;
    list->append(
        new ChangeArrowAction(object, ctx->getWorkingRoot(), direction, changed.release()));
}

void updateArrowSize(CFigContext*, FigObject* object)
{
    if (!object->forward_arrow || !object->backward_arrow)
        return;
    const auto lineWidth = static_cast<float>(object->thickness);
    setArrowSize(object->forward_arrow, lineWidth);
    setArrowSize(object->backward_arrow, lineWidth);
}

// --- the arrowhead tool ---------------------------------------------------------

void arrow_head_selected()
{
    initPoint_searchproc_left(change_arrow_head);
    set_functions(nullptr, nullptr, nullptr, point_search_left, nullptr);
    reset_action_on();
}

bool change_arrow_head(CFigContext* ctx, FigObject* object, int, int, int, int, int,
                       FigPoint* previous, FigPoint* point, int number)
{
    ArrowDirection direction;
    if (!object || !findEnd(object, previous, point, number, &direction))
        return false;
    FigArrow* arrow = nullptr;
    if (!arrowSlot(object, direction))
        arrow = new_arrow(ctx, cur_arrowthick, cur_arrowtype, object->thickness);
    auto* action = new ChangeArrowAction(object, ctx->getWorkingRoot(), direction, arrow);
    refresh_obj_area(ctx, object, true);
    action->execute(ctx);
    ctx->undoQueue.addAction(action);
    refresh_obj_area(ctx, object, false);
    ctx->setModifiedflag();
    return true;
}
