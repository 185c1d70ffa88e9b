#include "edit/e_convert.h"

#include "edit/actions.h"
#include "edit/mode.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/u_list.h"
#include "render/u_redraw.h"

#include <memory>

namespace {

constexpr int fewestSplinePoints = 3;
constexpr int radiusOfConvertedLine = 7;

/// What both conversions take over. The arrows are then on both; the actions part them.
void takeOver(const FigObject& from, FigObject* to)
{
    to->id = from.id;
    to->line_style = from.line_style;
    to->thickness = from.thickness;
    to->pen_color = from.pen_color;
    to->fill_color = from.fill_color;
    to->fill_style = from.fill_style;
    to->depth = from.depth;
    to->pen_style = from.pen_style;
    to->style_val = from.style_val;
    to->forward_arrow = from.forward_arrow;
    to->backward_arrow = from.backward_arrow;
    to->comments = from.comments;
}

/// By default the spline passes through the points of the line.
int splineSubType(FigLine* line)
{
    if (line->convertedSubType != -1)
        return line->convertedSubType;
    return isClosed(line) ? 3 : 2;
}

/// A closed chain that repeats its last point in front, as closed lines do.
FigPoint* closeInFront(FigPoint* points)
{
    const FigPoint* last = last_point(points);
    auto* closing = new FigPoint(last->x, last->y);
    closing->next = points;
    return closing;
}

ActionItem* conversionOf(CFigContext* ctx, FigObject* object)
{
    FigObjectList* root = ctx->getWorkingRoot();
    if (object->type == O_SPLINE)
        return new ConvertSplineToLineAction(static_cast<FigSpline*>(object), root);
    const bool open = object->sub_type == T_POLYLINE;
    if (object->type == O_POLYLINE && (open || object->sub_type == T_POLYGON))
        return new ConvertLineToSplineAction(static_cast<FigLine*>(object), root);
    return nullptr;
}

} // namespace

FigSpline* line_spline(CFigContext*, FigLine* line, bool withLinks)
{
    // The first point of a closed line stands again at its end.
    const bool closed = isClosed(line);
    if (num_points(line->points) < fewestSplinePoints + (closed ? 1 : 0)) {
        put_msg("Not enough points for a spline!");
        return nullptr;
    }
    auto* spline = new FigSpline;
    takeOver(*line, spline);
    spline->sub_type = splineSubType(line);
    // A type, not a sub-type as in the other direction: nothing reads it from a spline.
    spline->convertedSubType = line->type;
    spline->cap_style = line->cap_style;
    spline->points = copy_points(closed ? line->points->next : line->points, withLinks);
    make_sfactors(spline);
    return spline;
}

FigLine* spline_line(CFigContext*, FigSpline* spline, bool withLinks)
{
    const bool closed = isClosed(spline);
    auto* line = new FigLine;
    takeOver(*spline, line);
    line->sub_type = closed ? T_POLYGON : T_POLYLINE;
    line->convertedSubType = spline->sub_type;
    line->cap_style = spline->cap_style;
    line->join_style = cur_joinstyle;
    line->radius = radiusOfConvertedLine;
    line->points = copy_points(spline->points, withLinks);
    if (closed && line->points)
        line->points = closeInFront(line->points);
    return line;
}

FigLine* box_2_box(CFigContext*, FigLine* line)
{
    auto* box = static_cast<FigLine*>(line->clone());
    if (!box)
        return nullptr;
    if (line->sub_type == T_BOX) {
        box->sub_type = T_ARCBOX;
        if (box->radius == 0 || box->radius == -1)
            box->radius = cur_boxradius;
    } else if (line->sub_type == T_ARCBOX) {
        box->sub_type = T_BOX;
    }
    return box;
}

void convert_selected()
{
    init_searchproc_left(do_convert_line_spline);
    set_functions(nullptr, nullptr, nullptr, object_search_left, nullptr);
    reset_action_on();
}

bool do_convert_line_spline(CFigContext* ctx, FigObject* object, int, int, int, int, int)
{
    if (!ctx || !object)
        return false;
    std::unique_ptr<ActionItem> conversion(conversionOf(ctx, object));
    if (!conversion)
        return false;
    shell_refresh_obj_area(ctx, object, true);
    if (!conversion->execute(ctx)) {
        shell_refresh_obj_area(ctx, object, false);
        return false;
    }
    FigObject* converted = conversion->object;
    ctx->undoQueue.addAction(conversion.release());
    converted->tagged = true;
    converted->marked = 1;
    ctx->curObject = converted;
    shell_refresh_obj_area(ctx, converted, false);
    return true;
}
