#include "edit/d_create.h"

#include "edit/actions.h"
#include "edit/attribute_table.h"
#include "edit/d_arc.h"
#include "edit/e_arrow.h"
#include "edit/mode.h"
#include "edit/u_geom.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "model/u_list.h"
#include "render/Font.h"
#include "render/markers.h"
#include "render/u_redraw.h"

namespace {

constexpr int POSTSCRIPT_FONT = 4; ///< bit of the text flags

/// Dash length, display units; single precision, from left to right.
float currentDashLength()
{
    return (static_cast<float>(cur_linewidth) + 1.0f) * cur_styleval * 0.5f;
}

/// A new object with what all kinds but pictures and texts have in common.
template <typename Object> Object* makeObject(CFigContext* ctx, int subType)
{
    auto* object = new Object;
    object->id = ctx->getNextId();
    object->sub_type = subType;
    object->line_style = cur_linestyle;
    object->thickness = cur_linewidth;
    object->pen_color = ctx->cur_pencolor;
    object->fill_color = ctx->cur_fillcolor;
    object->fill_style = ctx->cur_fillstyle;
    object->depth = usableDepth();
    object->pen_style = 0;
    object->style_val = currentDashLength();
    return object;
}

FigLine* makeLineObject(CFigContext* ctx, int subType, int radius)
{
    auto* line = makeObject<FigLine>(ctx, subType);
    line->cap_style = cur_capstyle;
    line->join_style = cur_joinstyle;
    line->radius = radius;
    return line;
}

bool isChainUnderConstruction(CFigContext* ctx, const FigPoint* points)
{
    return points && points == ctx->firstPoint;
}

void closeChain(CFigContext* ctx)
{
    append_point(ctx->firstPoint->x, ctx->firstPoint->y, &ctx->lastPoint);
    ++num_point;
}

void setArrow(CFigContext* ctx, FigArrow** arrow, int type, int lineWidth)
{
    delete *arrow;
    *arrow = new_arrow(ctx, cur_arrowthick, type, lineWidth);
}

} // namespace

FigLine* createLineFromCurrentAttrs(CFigContext* ctx, int subtype, FigPoint* points)
{
    FigLine* line = makeLineObject(ctx, subtype, 0);
    line->points = points;
    if (isChainUnderConstruction(ctx, points)) {
        if (subtype == T_POLYGON)
            closeChain(ctx);
        takeChain(ctx);
    }
    return line;
}

FigLine* createRegpolyFromCurrentAttrs(CFigContext* ctx)
{
    return makeLineObject(ctx, T_POLYGON, 0);
}

FigLine* createBoxFromCurrentAttrs(CFigContext* ctx)
{
    return makeLineObject(ctx, cur_boxtype, cur_boxradius);
}

FigLine* createPicFromCurrentAttrs(CFigContext* ctx)
{
    auto* picture = new FigLine;
    picture->id = ctx->getNextId();
    picture->sub_type = T_PICTURE;
    picture->pen_color = ctx->cur_pencolor;
    picture->fill_color = ctx->cur_fillcolor;
    picture->fill_style = -1;
    picture->depth = usableDepth();
    picture->pen_style = 0;
    picture->radius = 0;
    picture->pic = new FigPic;
    picture->pic->file = QStringLiteral("<empty>");
    return picture;
}

FigSpline* createSplineFromCurrentAttrs(CFigContext* ctx, int subtype, FigPoint* points)
{
    auto* spline = makeObject<FigSpline>(ctx, subtype);
    spline->cap_style = cur_capstyle;
    spline->points = points;
    if (isChainUnderConstruction(ctx, points))
        takeChain(ctx);
    return spline;
}

FigEllipse* createEllipseFromCurrentAttrs(CFigContext* ctx)
{
    auto* ellipse = makeObject<FigEllipse>(ctx, 0);
    ellipse->direction = 1;
    return ellipse;
}

FigArc* createArcFromCurrentAttrs(CFigContext* ctx)
{
    auto* arc = makeObject<FigArc>(ctx, cur_arctype);
    arc->cap_style = cur_capstyle;
    arc->direction = compute_direction(arcPoints[0], arcPoints[1], arcPoints[2]);
    addAutoArrows(ctx, arc);
    return arc;
}

FigText* createTextFromCurrentAttrs(CFigContext* ctx, const QString& text, int x, int y)
{
    auto* object = new FigText;
    object->id = ctx->getNextId();
    object->sub_type = cur_textjust;
    object->font = (cur_textflags & POSTSCRIPT_FONT) ? cur_ps_font : cur_latex_font;
    object->size = usableTextSize();
    object->angle = cur_textangle;
    object->color = ctx->cur_pencolor;
    object->depth = usableDepth();
    object->pen_style = 0;
    object->flags = cur_textflags;
    object->x = x;
    object->y = y;
    object->cstring = text;
    pf_textwidth(ctx, object, ctx->zoom);
    return object;
}

void addAutoArrows(CFigContext* ctx, FigObject* object)
{
    if (!canHaveArrows(object))
        return;
    if (autoforwardarrow_mode)
        setArrow(ctx, &object->forward_arrow, cur_farrowtype, object->thickness);
    if (autobackwardarrow_mode)
        setArrow(ctx, &object->backward_arrow, cur_barrowtype, object->thickness);
}

void add_created_object(CFigContext* ctx, FigObject* object)
{
    auto* action = new AddAction(object, ctx->getWorkingRoot());
    action->execute(ctx);
    ctx->undoQueue.addAction(action);
    set_tags(&ctx->drawing.objects, false);
    erase_pointmarker(ctx);
    setTaggedFlag(object);
    object->marked = 2;
    refresh_obj_area(ctx, object, false);
    ctx->curObject = object;
    shell_show_attributes_bar(ctx, object);
}

FigPoint* make_chain(std::initializer_list<QPoint> places)
{
    FigPoint* first = nullptr;
    FigPoint* last = nullptr;
    for (const QPoint& place : places) {
        append_point(place.x(), place.y(), &last);
        if (!first)
            first = last;
    }
    return first;
}

FigPoint* takeChain(CFigContext* ctx)
{
    FigPoint* first = ctx->firstPoint;
    ctx->firstPoint = nullptr;
    ctx->lastPoint = nullptr;
    return first;
}

void freeChain(CFigContext* ctx)
{
    if (ctx)
        free_points(takeChain(ctx));
}

void wait_for_first_point(ButtonProc init)
{
    set_functions(nullptr, nullptr, nullptr, init, nullptr);
    reset_action_on();
}

void begin_gesture(CFigContext* ctx, int x, int y, PointerProc move, ButtonProc next,
                   RightButtonProc cancel)
{
    anchor_gesture(x, y);
    ctx->curObject = nullptr;
    set_functions(nullptr, nullptr, move, next, cancel);
    set_action_on();
}

void anchor_gesture(int x, int y)
{
    fix_x = cur_x = x;
    fix_y = cur_y = y;
}

void draw_rubber_band(CFigContext* ctx, ElasticProc shape)
{
    shape(ctx, fix_x, fix_y, cur_x, cur_y);
}

void show_rubber_band(CFigContext* ctx, ElasticProc shape)
{
    draw_rubber_band(ctx, shape);
    elastic_proc = shape;
    note_edited_point(cur_x, cur_y);
}

void note_edited_point(int x, int y)
{
    last_edited_point.x = x;
    last_edited_point.y = y;
}
