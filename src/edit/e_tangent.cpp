#include "edit/e_tangent.h"

#include "edit/actions.h"
#include "edit/d_create.h"
#include "edit/mode.h"
#include "edit/u_search.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/u_list.h"
#include "render/gfx_math.h"
#include "render/markers.h"
#include "render/u_redraw.h"

#include <cmath>

int tangent = 0;

namespace {

constexpr double unitsPerCm = 472.440944;
constexpr double unitsPerInch = 1200.0;
constexpr double shortestDirection = 2.0;

void selectTool(int drawsTangent)
{
    tangent = drawsTangent;
    init_searchproc_left(tangent_or_normal);
    set_functions(nullptr, nullptr, nullptr, object_search_left, nullptr);
    reset_action_on();
}

/// Half the length that the panel asks for.
double halfLength(CFigContext* ctx)
{
    return (ctx->metric ? unitsPerCm : unitsPerInch) * static_cast<double>(cur_tangnormlen) * 0.5;
}

FigPoint* threePoints(int x, int y, int dx, int dy)
{
    FigPoint* last = nullptr;
    append_point(saturatedDifference(x, dx), saturatedDifference(y, dy), &last);
    FigPoint* first = last;
    append_point(x, y, &last);
    append_point(saturatedSum(x, dx), saturatedSum(y, dy), &last);
    return first;
}

/// As the creation tools end, but the panel stays that of the tool.
void addLine(CFigContext* ctx, FigLine* line)
{
    FigObjectList* root = ctx->getWorkingRoot();
    auto* action = new AddAction(line, root);
    action->execute(ctx);
    ctx->undoQueue.addAction(action);
    set_tags(root, false);
    erase_pointmarker(ctx);
    line->tagged = true;
    line->marked = 2;
    refresh_obj_area(ctx, line, false);
    ctx->curObject = line;
}

} // namespace

void tangent_selected()
{
    selectTool(1);
}

void normal_selected()
{
    selectTool(0);
}

bool tangent_or_normal(CFigContext* ctx, FigObject* object, int, int, int, int px, int py)
{
    if (!object || !smart_points_valid)
        return false;
    const double dx = static_cast<double>(smart_point2.x) - smart_point1.x;
    const double dy = static_cast<double>(smart_point2.y) - smart_point1.y;
    const double length = std::sqrt(dx * dx + dy * dy);
    if (length < shortestDirection) {
        put_msg("singularity, can't draw tangent/normal");
        return false;
    }
    const double ux = dx / length * halfLength(ctx);
    const double uy = dy / length * halfLength(ctx);
    if (tangent) {
        tangent_normal_line(ctx, px, py, ux, uy);
        put_msg("added tangent");
    } else {
        tangent_normal_line(ctx, px, py, -uy, ux);
        put_msg("added normal");
    }
    return true;
}

void tangent_normal_line(CFigContext* ctx, int x, int y, double dx, double dy)
{
    FigPoint* points = threePoints(x, y, round2(dx), round2(dy));
    FigLine* line = createLineFromCurrentAttrs(ctx, T_POLYLINE, points);
    addAutoArrows(ctx, line);
    addLine(ctx, line);
}
