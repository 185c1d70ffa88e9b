#include "model/FigObjects.h"

#include "model/ObjectFunctions.h"
#include "model/shell.h"
#include "model/u_list.h"

#include <cmath>
#include <new>

namespace {

FigArrow* copyArrow(const FigArrow* arrow)
{
    return arrow ? new FigArrow(*arrow) : nullptr;
}

/// What every clone takes over. The ignore flag belongs to one redraw and stays behind.
void copyAttributes(const FigObject& from, FigObject* to)
{
    to->tagged = from.tagged;
    to->marked = from.marked;
    to->reserved = from.reserved;
    to->convertedSubType = from.convertedSubType;
    to->id = from.id;
    to->sub_type = from.sub_type;
    to->line_style = from.line_style;
    to->thickness = from.thickness;
    to->pen_color = from.pen_color;
    to->fill_color = from.fill_color;
    to->fill_style = from.fill_style;
    to->depth = from.depth;
    to->pen_style = from.pen_style;
    to->style_val = from.style_val;
    to->forward_arrow = copyArrow(from.forward_arrow);
    to->backward_arrow = copyArrow(from.backward_arrow);
    to->comments = from.comments;
}

/// Gives `to` copies of the points with their links. False when memory is out.
bool copyPath(const FigPath& from, FigPath* to)
{
    to->points = copy_points(from.points, true);
    return to->points || !from.points;
}

FigPic* copyPicture(const FigPic* pic)
{
    if (!pic)
        return nullptr;
    auto* copied = new FigPic(*pic);
    if (pic->pixmap)
        copied->pixmap = new QPixmap(*pic->pixmap);
    return copied;
}

void copyImages(const QHash<int, QPixmap*>& from, QHash<int, QPixmap*>* to)
{
    for (auto image = from.begin(); image != from.end(); ++image)
        to->insert(image.key(), new QPixmap(*image.value()));
}

void deleteImages(QHash<int, QPixmap*>* images)
{
    qDeleteAll(*images);
    images->clear();
}

/// Tells that memory is out and drops what was made of a clone.
FigObject* outOfMemory(FigObject* unfinished)
{
    delete unfinished;
    put_msg("Running out of memory.");
    return nullptr;
}

/// The point that goes before all others in the order, null for an empty path.
template <typename Before> FigPoint* foremost(FigPoint* points, Before before)
{
    FigPoint* found = points;
    for (FigPoint* point = points; point; point = point->next)
        if (before(point, found))
            found = point;
    return found;
}

long distance(int from, int to)
{
    return static_cast<long>(to) - from;
}

/// The half is cut towards the first of the two.
int middle(int from, int to)
{
    return static_cast<int>(from + distance(from, to) / 2);
}

} // namespace

// --- FigObject ----------------------------------------------------------------

FigObject::~FigObject()
{
    delete forward_arrow;
    delete backward_arrow;
}

FigObject* FigObject::clone()
{
    return nullptr;
}

// --- FigPath ------------------------------------------------------------------

FigPoint* FigPath::findPredecessor(FigPoint* point)
{
    return prev_point(points, point);
}

int FigPath::getIndex(FigPoint* point)
{
    int index = 0;
    for (FigPoint* candidate = points; candidate; candidate = candidate->next, ++index)
        if (candidate == point)
            return index;
    return -1;
}

FigPoint* FigPath::getPoint(int index)
{
    if (index < 0)
        return nullptr;
    FigPoint* point = points;
    while (point && index-- > 0)
        point = point->next;
    return point;
}

int FigPath::getNumPoints()
{
    return num_points(points);
}

// --- FigLine ------------------------------------------------------------------

FigLine::~FigLine()
{
    free_points(points);
    if (pic)
        delete pic->pixmap;
    delete pic;
}

FigObject* FigLine::clone()
{
    auto* copied = new (std::nothrow) FigLine;
    if (!copied || !copyPath(*this, copied))
        return outOfMemory(copied);
    copyAttributes(*this, copied);
    copied->cap_style = cap_style;
    copied->join_style = join_style;
    copied->radius = radius;
    copied->pic = copyPicture(pic);
    return copied;
}

FigPoint* FigLine::getUpperLeft()
{
    return foremost(points, [](const FigPoint* a, const FigPoint* b) {
        return a->x < b->x || (a->x == b->x && a->y < b->y);
    });
}

FigPoint* FigLine::getUpperRight()
{
    return foremost(points, [](const FigPoint* a, const FigPoint* b) {
        return a->x > b->x || (a->x == b->x && a->y < b->y);
    });
}

FigPoint* FigLine::getLowerRight()
{
    return foremost(points, [](const FigPoint* a, const FigPoint* b) {
        return a->x > b->x || (a->x == b->x && a->y > b->y);
    });
}

FigPoint* FigLine::getLowerLeft()
{
    return foremost(points, [](const FigPoint* a, const FigPoint* b) {
        return a->x < b->x || (a->x == b->x && a->y > b->y);
    });
}

int FigLine::getCenterX()
{
    return points ? middle(getUpperLeft()->x, getLowerRight()->x) : 0;
}

int FigLine::getCenterY()
{
    return points ? middle(getUpperLeft()->y, getLowerRight()->y) : 0;
}

int FigLine::getWidth()
{
    return points ? static_cast<int>(distance(getUpperLeft()->x, getLowerRight()->x)) : 0;
}

int FigLine::getHeight()
{
    return points ? static_cast<int>(distance(getUpperLeft()->y, getLowerRight()->y)) : 0;
}

FigPoint* FigLine::getPointByCoord(int x, int y)
{
    return search_line_point(this, x, y);
}

// --- FigSpline ----------------------------------------------------------------

FigSpline::~FigSpline()
{
    free_points(points);
    free_sfactors(sfactors);
}

FigObject* FigSpline::clone()
{
    auto* copied = new (std::nothrow) FigSpline;
    if (!copied || !copyPath(*this, copied))
        return outOfMemory(copied);
    copied->sfactors = copy_sfactors(sfactors);
    if (sfactors && !copied->sfactors)
        return outOfMemory(copied);
    copyAttributes(*this, copied);
    copied->cap_style = cap_style;
    return copied;
}

FigShapeFactor* FigSpline::getShapeFactor(int index)
{
    if (index < 0)
        return nullptr;
    FigShapeFactor* factor = sfactors;
    while (factor && index-- > 0)
        factor = factor->next;
    return factor;
}

// --- FigEllipse and FigArc ----------------------------------------------------

FigObject* FigEllipse::clone()
{
    auto* copied = new FigEllipse;
    copyAttributes(*this, copied);
    copied->angle = angle;
    copied->direction = direction;
    copied->center = center;
    copied->radiuses = radiuses;
    copied->start = start;
    copied->end = end;
    return copied;
}

double FigEllipse::getF1x()
{
    const double a = radiuses.x;
    const double b = radiuses.y;
    return center.x + std::sqrt(a * a - b * b);
}

double FigEllipse::getF1y()
{
    return center.y;
}

FigObject* FigArc::clone()
{
    auto* copied = new FigArc;
    copyAttributes(*this, copied);
    copied->cap_style = cap_style;
    copied->direction = direction;
    copied->center_x = center_x;
    copied->center_y = center_y;
    for (int i = 0; i < 3; ++i)
        copied->point[i] = point[i];
    return copied;
}

// --- FigText ------------------------------------------------------------------

FigTextHandling::~FigTextHandling()
{
    disposeImages();
}

void FigTextHandling::disposeImages()
{
    deleteImages(&imagesNormal);
    deleteImages(&imagesDimmed);
    deleteImages(&imagesGrayed);
}

FigObject* FigText::clone()
{
    auto* copied = new FigText;
    copyAttributes(*this, copied);
    copied->font = font;
    copied->size = size;
    copied->color = color;
    copied->angle = angle;
    copied->flags = flags;
    copied->length = length;
    copied->ascent = ascent;
    copied->descent = descent;
    copied->x = x;
    copied->y = y;
    copied->cstring = cstring;
    copied->fontHeight = fontHeight;
    copied->paddedLength = paddedLength;
    copied->metricsZoom = metricsZoom;
    copied->texCallFailed = texCallFailed;
    copyImages(imagesNormal, &copied->imagesNormal);
    copyImages(imagesDimmed, &copied->imagesDimmed);
    copyImages(imagesGrayed, &copied->imagesGrayed);
    return copied;
}

// --- FigCompound and FigDrawing -----------------------------------------------

FigCompound::FigCompound() : objects(new QLinkedList<FigObject*>)
{
    type = O_COMPOUND;
}

FigCompound::~FigCompound()
{
    if (vanishedIn)
        vanishedIn->removeOne(this);
    deleteObjectList(objects);
    delete objects;
}

FigObject* FigCompound::clone()
{
    auto* copied = new FigCompound;
    copyAttributes(*this, copied);
    copied->nwcorner = nwcorner;
    copied->secorner = secorner;
    cloneObjects(this, copied);
    return copied;
}

bool FigCompound::isEmpty() const
{
    return objects->isEmpty();
}

FigDrawing::~FigDrawing()
{
    deleteObjectList(&objects);
}
