#include "render/u_draw.h"

#include "model/FigContext.h"
#include "model/ObjectFunctions.h"
#include "model/preferences.h"
#include "render/Font.h"
#include "render/clip.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/u_arrow.h"

#include <QPainter>

#include <cmath>

namespace {

/// The mode in which the object appears; hidden also where there is nothing to draw on.
int drawingMode(CFigContext* ctx, FigObject* object)
{
    if (!ctx->painter || !ctx->painter->isActive())
        return PAINT_HIDDEN;
    return isOutsideOpenedCurrentCompound(ctx, object, getPaintMode(ctx, object));
}

bool isInOpenCompound(CFigContext* ctx, FigObject* object)
{
    if (ctx->drawnPlace == OpenPlace::Unknown)
        return isInList(ctx->openCompoundObjects, object, false);
    return ctx->drawnPlace == OpenPlace::Inside;
}

bool hasArrows(const FigObject* object)
{
    return object->forward_arrow || object->backward_arrow;
}

/// Computes both heads from the point list and draws the stroke clipped clear of them.
template <class Stroke>
void strokeUnderHeads(CFigContext* ctx, FigObject* object, int skip, ArrowBuffers& heads,
                      Stroke stroke)
{
    get_arrowpoints(ctx, object, object->type, polygon_points, skip, heads.forwardFill,
                    &heads.forwardFillCount, heads.backwardFill, &heads.backwardFillCount,
                    heads.forwardClip, &heads.forwardClipCount, heads.backwardClip,
                    &heads.backwardClipCount);
    QRegion saved;
    const bool clipped =
        setArrowClipping(ctx, heads.forwardClip, heads.forwardClipCount, heads.backwardClip,
                         heads.backwardClipCount, object->thickness, saved);
    stroke();
    if (clipped)
        restoreArrowClipping(ctx, saved);
}

void drawForwardHead(CFigContext* ctx, FigObject* object, QPoint* fill, int fillCount, int mode)
{
    if (object->forward_arrow)
        draw_arrow32(ctx, object, object->forward_arrow, farpts, nfpts, fill, fillCount, mode);
}

void drawBackwardHead(CFigContext* ctx, FigObject* object, QPoint* fill, int fillCount, int mode)
{
    if (object->backward_arrow)
        draw_arrow32(ctx, object, object->backward_arrow, barpts, nbpts, fill, fillCount, mode);
}

void drawHeads(CFigContext* ctx, FigObject* object, ArrowBuffers& heads, int mode)
{
    drawForwardHead(ctx, object, heads.forwardFill, heads.forwardFillCount, mode);
    drawBackwardHead(ctx, object, heads.backwardFill, heads.backwardFillCount, mode);
}

bool isPicture(const FigLine* line)
{
    return line->sub_type == T_PICTURE;
}

void strokeLine(CFigContext* ctx, FigLine* line, int mode)
{
    if (isPicture(line))
        pw_picbox(ctx, line, mode);
    else if (isRoundedArcbox(ctx, line))
        draw_arcbox(ctx, line, mode);
    else if (line->points->next)
        pw_polygon(ctx, line, mode);
    else
        pw_dot(ctx, line, mode);
}

void strokeArc(CFigContext* ctx, FigArc* arc, int mode)
{
    if (arc->fill_style != -1)
        fillPolygon(ctx, arc, mode, polygon_points, npoints);
    const int width = getThickness(ctx, arc->thickness, ctx->zoom);
    if (width <= 0)
        return;
    ctx->painter->setPen(strokePen(ctx, arc->pen_color, mode, width, arc->thickness,
                                   arc->line_style, arc->style_val, arc->cap_style, -1));
    ctx->painter->setBrush(Qt::NoBrush);
    ctx->painter->drawPolyline(polygon_points, static_cast<int>(npoints));
}

bool isPieWedge(const FigArc* arc)
{
    return arc->sub_type == 1;
}

/// Calls the renderer of a type, for objects that really are of that type.
template <class Object>
void drawAs(CFigContext* ctx, FigObject* object, void (*renderer)(CFigContext*, Object*))
{
    if (auto* typed = dynamic_cast<Object*>(object))
        renderer(ctx, typed);
}

} // namespace

int isOutsideOpenedCurrentCompound(CFigContext* ctx, FigObject* object, int mode)
{
    if (!ctx->openCompoundObjects || isInOpenCompound(ctx, object))
        return mode;
    const int view = otherPreferencesData.compoundEditViewMode;
    if (mode == PAINT_NORMAL)
        return view;
    if (view == PAINT_NORMAL)
        return mode;
    if (view == PAINT_HIDDEN)
        return PAINT_HIDDEN;
    return view == PAINT_GRAYED || mode == PAINT_GRAYED ? PAINT_GRAYED : PAINT_DIMMED;
}

bool isRoundedArcbox(CFigContext* ctx, FigLine* line)
{
    return line->sub_type == T_ARCBOX && round2(static_cast<float>(line->radius) * ctx->zoom) > 2;
}

bool initPointListFromArc(CFigContext* ctx, FigArc* arc)
{
    init_pointlist();
    const float dx1 = static_cast<float>(arc->point[0].x) - arc->center_x;
    const float dy1 = arc->center_y - static_cast<float>(arc->point[0].y);
    const float dx2 = static_cast<float>(arc->point[2].x) - arc->center_x;
    const float dy2 = arc->center_y - static_cast<float>(arc->point[2].y);
    const int radius = round2(std::sqrt(static_cast<double>(dx1 * dx1 + dy1 * dy1)));
    curve(ctx, round2(dx1), round2(dy1), round2(dx2), round2(dy2), isPieWedge(arc), arc->direction,
          radius, radius, round2(arc->center_x), round2(arc->center_y), true);
    return npoints > 0;
}

void draw_line(CFigContext* ctx, FigLine* line)
{
    const int mode = drawingMode(ctx, line);
    if (mode == PAINT_HIDDEN || !line->points)
        return;
    if (!hasArrows(line)) {
        strokeLine(ctx, line, mode);
        return;
    }
    initPointListFromLine(ctx, line);
    ArrowBuffers heads;
    strokeUnderHeads(ctx, line, 0, heads, [&] { strokeLine(ctx, line, mode); });
    // Pictures and rounded boxes keep their arrow records but show no heads.
    if (!isPicture(line) && !isRoundedArcbox(ctx, line))
        drawHeads(ctx, line, heads, mode);
}

void draw_spline(CFigContext* ctx, FigSpline* spline)
{
    const int mode = drawingMode(ctx, spline);
    if (mode == PAINT_HIDDEN || !initPointListFromSpline(ctx, spline))
        return;
    if (!hasArrows(spline)) {
        pw_spline(ctx, spline, mode);
        return;
    }
    ArrowBuffers heads;
    strokeUnderHeads(ctx, spline, 2, heads, [&] { pw_spline(ctx, spline, mode); });
    // The backward head comes first, and each head gets the fill points of the other. Figures
    // with half-filled heads look the way they do by that.
    drawBackwardHead(ctx, spline, heads.forwardFill, heads.forwardFillCount, mode);
    drawForwardHead(ctx, spline, heads.backwardFill, heads.backwardFillCount, mode);
}

void draw_arc(CFigContext* ctx, FigArc* arc)
{
    const int mode = drawingMode(ctx, arc);
    if (mode == PAINT_HIDDEN || !initPointListFromArc(ctx, arc))
        return;
    if (isPieWedge(arc) || !hasArrows(arc)) {
        strokeArc(ctx, arc, mode);
        return;
    }
    ArrowBuffers heads;
    strokeUnderHeads(ctx, arc, 0, heads, [&] { strokeArc(ctx, arc, mode); });
    drawHeads(ctx, arc, heads, mode);
}

void draw_ellipse(CFigContext* ctx, FigEllipse* ellipse)
{
    const int mode = drawingMode(ctx, ellipse);
    if (mode != PAINT_HIDDEN)
        pw_ellipse(ctx, ellipse, mode);
}

void draw_text(CFigContext* ctx, FigText* text)
{
    const int mode = drawingMode(ctx, text);
    if (mode != PAINT_HIDDEN)
        pw_text(ctx, text->x, text->y, mode, text);
}

void draw_compound(CFigContext* ctx, FigCompound* compound)
{
    if (!compound)
        return;
    for (FigObject* member : qAsConst(*compound->objects))
        member->draw(ctx);
}

void FigObject::draw(CFigContext* ctx)
{
    switch (type) {
    case O_ELLIPSE:
        drawAs<FigEllipse>(ctx, this, draw_ellipse);
        break;
    case O_POLYLINE:
        drawAs<FigLine>(ctx, this, draw_line);
        break;
    case O_SPLINE:
        drawAs<FigSpline>(ctx, this, draw_spline);
        break;
    case O_TEXT:
        drawAs<FigText>(ctx, this, draw_text);
        break;
    case O_ARC:
        drawAs<FigArc>(ctx, this, draw_arc);
        break;
    case O_COMPOUND:
        drawAs<FigCompound>(ctx, this, draw_compound);
        break;
    default:
        break;
    }
}

void FigLine::draw(CFigContext* ctx)
{
    draw_line(ctx, this);
}

void FigSpline::draw(CFigContext* ctx)
{
    draw_spline(ctx, this);
}

void FigEllipse::draw(CFigContext* ctx)
{
    draw_ellipse(ctx, this);
}

void FigArc::draw(CFigContext* ctx)
{
    draw_arc(ctx, this);
}

void FigText::draw(CFigContext* ctx)
{
    draw_text(ctx, this);
}

void FigCompound::draw(CFigContext* ctx)
{
    draw_compound(ctx, this);
}
