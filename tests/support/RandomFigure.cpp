#include "RandomFigure.h"

#include "fileio/f_read.h"
#include "model/FigContext.h"
#include "model/u_list.h"
#include "model/w_layers.h"
#include "render/Font.h"

#include <vector>

namespace {

constexpr int ANGLES = 62831; ///< ten thousandths of a full turn in radians

FigPath* pathOf(FigObject* object)
{
    if (auto* line = dynamic_cast<FigLine*>(object))
        return line;
    return dynamic_cast<FigSpline*>(object);
}

void gather(FigObjectList* list, std::vector<FigObject*>* all)
{
    for (FigObject* object : *list) {
        all->push_back(object);
        if (auto* compound = dynamic_cast<FigCompound*>(object))
            gather(compound->objects, all);
    }
}

} // namespace

int RandomFigure::between(int low, int high)
{
    return low + static_cast<int>(bits() % static_cast<unsigned>(high - low + 1));
}

float RandomFigure::decimal(int low, int high, int digits)
{
    static const double powers[] = {1, 10, 100, 1000, 10000};
    return static_cast<float>(between(low, high) / powers[digits]);
}

void RandomFigure::fill(CFigContext* ctx)
{
    extent = between(1, 3) * 6000;
    origin = oneIn(4) ? -extent / 2 : 0;
    fillHeader(ctx);
    FigObjectList* root = &ctx->drawing.objects;
    for (int count = between(0, 25); count > 0; --count)
        root->append(object(ctx, 3));
    ctx->nextId = renumberObjectIds(root, 0);
    link(ctx);
    set_depths(ctx);
    ctx->modified = false;
}

void RandomFigure::fillHeader(CFigContext* ctx)
{
    ctx->landscape = oneIn(2);
    ctx->flushLeft = oneIn(2);
    ctx->metric = oneIn(2);
    ctx->paperSize = between(0, NUM_PAPER_SIZES - 1);
    ctx->magnification = decimal(100, 40000, 2);
    ctx->multiplePage = oneIn(2);
    ctx->transparentColor = between(-3, 31);
    ctx->drawing.comments = comment();
    numColors = between(0, 5);
    for (int i = 0; i < numColors; ++i)
        ctx->addUserColor(QColor(between(0, 255), between(0, 255), between(0, 255)));
}

FigObject* RandomFigure::object(CFigContext* ctx, int levels)
{
    FigObject* made = nullptr;
    switch (between(levels > 0 ? 0 : 1, 9)) {
    case 0:
        made = compound(ctx, levels);
        break;
    case 1:
    case 2:
        made = ellipse();
        break;
    case 3:
        made = arc();
        break;
    case 4:
        made = text(ctx);
        break;
    case 5:
    case 6:
        made = spline();
        break;
    default:
        made = line();
    }
    made->comments = comment();
    return made;
}

void RandomFigure::setAttributes(FigObject* object)
{
    const int lastColor = 31 + numColors;
    object->line_style = between(-1, 5);
    object->thickness = oneIn(8) ? between(20, 200) : between(0, 8);
    object->pen_color = between(-1, lastColor);
    object->fill_color = between(-1, lastColor);
    object->fill_style = oneIn(2) ? -1 : between(0, object->fill_color > 0 ? 62 : 20);
    object->depth = between(0, MAX_DEPTH);
    object->pen_style = between(-1, 1);
    object->style_val = decimal(0, 9000, 3);
}

void RandomFigure::addArrows(FigObject* object)
{
    for (FigArrow** arrow : {&object->forward_arrow, &object->backward_arrow})
        if (oneIn(3))
            *arrow = new FigArrow{between(0, 14), between(0, 1), decimal(1, 900, 2),
                                  decimal(100, 40000, 2), decimal(0, 40000, 2)};
}

int RandomFigure::coordinate()
{
    return origin + between(0, extent);
}

FigPoint RandomFigure::point()
{
    const int x = coordinate();
    return {x, coordinate()};
}

/// A closed list holds its first point again as its last.
FigPoint* RandomFigure::points(int count, bool closed)
{
    FigPoint* last = nullptr;
    FigPoint* first = nullptr;
    for (int i = 0; i < count; ++i) {
        const FigPoint made = point();
        append_point(made.x, made.y, &last);
        if (i == 0)
            first = last;
    }
    if (closed)
        append_point(first->x, first->y, &last);
    return first;
}

FigLine* RandomFigure::line()
{
    auto* line = new FigLine;
    setAttributes(line);
    line->sub_type = between(T_POLYLINE, T_PICTURE);
    line->join_style = between(0, 2);
    line->cap_style = between(0, 2);
    line->radius = line->sub_type == T_ARCBOX ? between(0, 40) : -1;
    if (line->sub_type == T_POLYLINE)
        line->points = points(between(1, 14), false);
    else
        line->points = points(line->sub_type == T_POLYGON ? between(3, 13) : 4, true);
    if (line->sub_type == T_POLYLINE && line->points->next)
        addArrows(line);
    if (line->sub_type == T_PICTURE) {
        line->pic = new FigPic;
        line->pic->flipped = between(0, 1);
        line->pic->file = oneIn(4) ? QString() : "no such picture " + QString::number(coordinate());
    }
    return line;
}

FigSpline* RandomFigure::spline()
{
    auto* spline = new FigSpline;
    setAttributes(spline);
    spline->sub_type = between(0, 5);
    spline->cap_style = between(0, 2);
    const bool closed = spline->sub_type & 1;
    const int count = between(closed ? 3 : 2, 18);
    spline->points = points(count, false);
    FigShapeFactor* last = nullptr;
    for (int i = 0; i < count; ++i) {
        last = append_sfactor(oneIn(2) ? between(-1, 1) : between(-1000, 1000) / 1000.0, last);
        if (i == 0)
            spline->sfactors = last;
    }
    if (!closed)
        addArrows(spline);
    return spline;
}

FigEllipse* RandomFigure::ellipse()
{
    auto* ellipse = new FigEllipse;
    setAttributes(ellipse);
    ellipse->sub_type = between(1, 4);
    ellipse->direction = between(0, 1);
    ellipse->angle = oneIn(2) ? 0 : decimal(0, ANGLES, 4);
    ellipse->center = point();
    ellipse->radiuses = FigPoint(between(1, extent / 2), between(1, extent / 2));
    if (oneIn(10))
        (oneIn(2) ? ellipse->radiuses.x : ellipse->radiuses.y) = 0;
    ellipse->start = ellipse->center;
    ellipse->end = point();
    return ellipse;
}

FigArc* RandomFigure::arc()
{
    auto* arc = new FigArc;
    setAttributes(arc);
    arc->sub_type = between(0, 1);
    arc->cap_style = between(0, 2);
    arc->direction = between(0, 1);
    arc->center_x = decimal(origin * 1000, (origin + extent) * 1000, 3);
    arc->center_y = decimal(origin * 1000, (origin + extent) * 1000, 3);
    for (FigPoint& end : arc->point)
        end = point();
    if (arc->sub_type == 0)
        addArrows(arc);
    return arc;
}

FigText* RandomFigure::text(CFigContext* ctx)
{
    auto* text = new FigText;
    text->sub_type = between(0, 2);
    text->flags = between(0, 15);
    text->font = between(-1, text->flags & 4 ? 34 : 5);
    if (text->font == -1)
        text->font = 0;
    text->size = between(1, 60);
    text->color = between(-1, 31 + numColors);
    text->depth = between(0, MAX_DEPTH);
    text->angle = oneIn(2) ? 0 : decimal(0, ANGLES, 4);
    text->x = coordinate();
    text->y = coordinate();
    text->cstring = oneIn(10) ? QString() : words();
    pf_textwidth(ctx, text, static_cast<double>(ctx->zoom));
    return text;
}

FigCompound* RandomFigure::compound(CFigContext* ctx, int levels)
{
    auto* compound = new FigCompound;
    for (int count = between(0, 6); count > 0; --count)
        compound->objects->append(object(ctx, levels - 1));
    boundsAsRead(ctx, compound->objects, &compound->nwcorner, &compound->secorner);
    return compound;
}

/// Ties some end points to ellipses, lines and splines. The reader's own rules make the links.
void RandomFigure::link(CFigContext* ctx)
{
    std::vector<FigObject*> all;
    gather(&ctx->drawing.objects, &all);
    if (all.empty())
        return;
    for (FigObject* source : all) {
        FigPath* path = pathOf(source);
        FigObject* target = all[static_cast<size_t>(between(0, static_cast<int>(all.size()) - 1))];
        FigPath* targetPath = pathOf(target);
        if (!path || !oneIn(3) || target == source || (!targetPath && target->type != O_ELLIPSE))
            continue;
        const int from = oneIn(2) ? 0 : path->getNumPoints() - 1;
        const int left = targetPath ? between(0, targetPath->getNumPoints() - 1) : -1;
        QStringList lines = {
            QString("# METADATA <link srcPointIdx=%1 targetObjId=%2 targetLeftPointIdx=%3/>")
                .arg(from)
                .arg(target->id)
                .arg(left)};
        parseMetadataForLinks(source, &ctx->drawing.objects, &lines);
    }
}

QString RandomFigure::words()
{
    static const QStringList samples = {
        "a",     "label",           "x = 3.5",      "Gr\u00fc\u00dfe", "back\\slash",
        "end\\", " blanks around ", "# no comment", "$\\alpha$"};
    QString words = samples.at(between(0, samples.size() - 1));
    for (int more = between(0, 2); more > 0; --more)
        words += samples.at(between(0, samples.size() - 1));
    return words;
}

QString RandomFigure::comment()
{
    if (!oneIn(5))
        return {};
    QStringList parts;
    for (int count = between(1, 4); count > 0; --count)
        parts.append(oneIn(3) ? QString() : words());
    return parts.join('\n');
}
