#include "edit/e_scale.h"

#include "render/gfx_math.h"

namespace {

/// Single precision, in this order: files of other resolutions land on the same unit with it.
int readScaled(float value, float factor, int offset)
{
    return round2(value * factor + static_cast<float>(offset));
}

int readScaled(int value, float factor, int offset)
{
    return readScaled(static_cast<float>(value), factor, offset);
}

void scalePoint(FigPoint* point, float factor, int offset)
{
    point->x = readScaled(point->x, factor, offset);
    point->y = readScaled(point->y, factor, offset);
}

void scalePoints(FigPoint* first, float factor, int offset)
{
    for (FigPoint* point = first; point; point = point->next)
        scalePoint(point, factor, offset);
}

void scaleArrows(FigObject* object, float factor, int offset)
{
    read_scale_arrow(object->forward_arrow, factor, offset);
    read_scale_arrow(object->backward_arrow, factor, offset);
}

void scaleObject(FigObject* object, float factor, int offset)
{
    switch (object->type) {
    case O_ELLIPSE:
        return read_scale_ellipse(static_cast<FigEllipse*>(object), factor, offset);
    case O_POLYLINE:
        return read_scale_line(static_cast<FigLine*>(object), factor, offset);
    case O_SPLINE:
        return read_scale_spline(static_cast<FigSpline*>(object), factor, offset);
    case O_TEXT:
        return read_scale_text(static_cast<FigText*>(object), factor, offset);
    case O_ARC:
        return read_scale_arc(static_cast<FigArc*>(object), factor, offset);
    case O_COMPOUND:
        return read_scale_compound(static_cast<FigCompound*>(object), factor, offset);
    }
}

} // namespace

void read_scale_objects(FigObjectList* list, float factor, int offset)
{
    if (!list)
        return;
    for (FigObject* object : qAsConst(*list))
        scaleObject(object, factor, offset);
}

void read_scale_line(FigLine* line, float factor, int offset)
{
    scalePoints(line->points, factor, offset);
    scaleArrows(line, factor, offset);
}

void read_scale_spline(FigSpline* spline, float factor, int offset)
{
    scalePoints(spline->points, factor, offset);
    scaleArrows(spline, factor, offset);
}

// Radii are lengths and take no offset, though arrow sizes, which are lengths too, do.
void read_scale_ellipse(FigEllipse* ellipse, float factor, int offset)
{
    scalePoint(&ellipse->center, factor, offset);
    scalePoint(&ellipse->start, factor, offset);
    scalePoint(&ellipse->end, factor, offset);
    scalePoint(&ellipse->radiuses, factor, 0);
}

void read_scale_arc(FigArc* arc, float factor, int offset)
{
    arc->center_x = static_cast<float>(readScaled(arc->center_x, factor, offset));
    arc->center_y = static_cast<float>(readScaled(arc->center_y, factor, offset));
    for (FigPoint& point : arc->point)
        scalePoint(&point, factor, offset);
    scaleArrows(arc, factor, offset);
}

void read_scale_text(FigText* text, float factor, int offset)
{
    text->x = readScaled(text->x, factor, offset);
    text->y = readScaled(text->y, factor, offset);
}

void read_scale_compound(FigCompound* compound, float factor, int offset)
{
    scalePoint(&compound->nwcorner, factor, offset);
    scalePoint(&compound->secorner, factor, offset);
    read_scale_objects(compound->objects, factor, offset);
}

void read_scale_arrow(FigArrow* arrow, float factor, int offset)
{
    if (!arrow)
        return;
    arrow->wd = static_cast<float>(readScaled(arrow->wd, factor, offset));
    arrow->ht = static_cast<float>(readScaled(arrow->ht, factor, offset));
}
