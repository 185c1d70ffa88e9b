#include "render/coords.h"

#include "edit/command.h"
#include "edit/mode.h"
#include "fileio/f_read.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/shell.h"
#include "render/gfx_math.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

// --- figure units and pixels --------------------------------------------------------

// Single precision throughout, in this order: file and screen agree to the pixel with it.

float scaledX(CFigContext* ctx, int x)
{
    const float unitsToPixel = 1.0f / (1200.0f / ctx->ppiX);
    return ctx->zoom * unitsToPixel * static_cast<float>(x);
}

float scaledY(CFigContext* ctx, int y)
{
    const float unitsToPixel = 1.0f / (1200.0f / ctx->ppiY);
    return ctx->zoom * unitsToPixel * static_cast<float>(y);
}

int pixelX(CFigContext* ctx, int x)
{
    return saturatedInt(static_cast<long long>(round2(scaledX(ctx, x))) - ctx->shiftX);
}

int pixelY(CFigContext* ctx, int y)
{
    return saturatedInt(static_cast<long long>(round2(scaledY(ctx, y))) - ctx->shiftY);
}

namespace {

int figureCoordinate(int pixel, int shift, float ppi, float zoom)
{
    const int shifted = saturatedInt(static_cast<long long>(std::max(pixel, 0)) + shift);
    return round2((1200.0f / ppi) / zoom * static_cast<float>(shifted));
}

} // namespace

int figureX(CFigContext* ctx, int px)
{
    return figureCoordinate(px, ctx->shiftX, ctx->ppiX, ctx->zoom);
}

int figureY(CFigContext* ctx, int py)
{
    return figureCoordinate(py, ctx->shiftY, ctx->ppiY, ctx->zoom);
}

// --- the page --------------------------------------------------------------------------

namespace {

constexpr int DEFAULT_PAPER = 13;

/// Width and height in figure units, turned for landscape.
std::pair<int, int> pageSize(const CFigContext* ctx)
{
    const bool known = ctx->paperSize >= 0 && ctx->paperSize < NUM_PAPER_SIZES;
    const PaperSize& paper = paper_sizes[known ? ctx->paperSize : DEFAULT_PAPER];
    return ctx->landscape ? std::make_pair(paper.height, paper.width)
                          : std::make_pair(paper.width, paper.height);
}

float wholeCentimetres(int units)
{
    constexpr float unitsPerCm = 472.44095f;
    return static_cast<float>(round2(static_cast<float>(units) / unitsPerCm));
}

} // namespace

void getPagesizes(CFigContext* ctx, float* w, float* h)
{
    const auto [width, height] = pageSize(ctx);
    *w = wholeCentimetres(width);
    *h = wholeCentimetres(height);
}

void getPagesizesPixels1200(CFigContext* ctx, int* w, int* h)
{
    std::tie(*w, *h) = pageSize(ctx);
}

// --- user units ------------------------------------------------------------------------

namespace {

enum CoordUnit { UNIT_CM = 0, UNIT_INCH = 1, UNIT_PIXEL = 2, UNIT_FIG = 3 };

/// Centimetres and inches, the units with decimals.
double convertToLength(double value, int unit, int digits)
{
    return round(value / (unit == UNIT_CM ? UNITS_PER_CM : UNITS_PER_INCH), digits);
}

/// Display pixels always go by the horizontal resolution. A whole number of figure units is
/// divided in single precision.
float displayPixels(CFigContext* ctx, int value)
{
    return static_cast<float>(value) / (1200.0f / ctx->ppiX);
}

} // namespace

int convertToCoord(CFigContext* ctx, double value, bool horizontal)
{
    switch (otherPreferencesData.coordUnit) {
    case UNIT_CM:
        return round2(value * UNITS_PER_CM);
    case UNIT_INCH:
        return round2(value * UNITS_PER_INCH);
    case UNIT_PIXEL:
        return round2(value * static_cast<double>(1200.0f / (horizontal ? ctx->ppiX : ctx->ppiY)));
    case UNIT_FIG:
        return round2(value);
    default:
        return 0;
    }
}

double convertToUnit(CFigContext* ctx, int value, int unit, int digits)
{
    if (unit == UNIT_PIXEL)
        return round(static_cast<double>(displayPixels(ctx, value)), 0);
    return convertToUnit(ctx, static_cast<double>(value), unit, digits);
}

double convertToUnit(CFigContext* ctx, double value, int unit, int digits)
{
    switch (unit) {
    case UNIT_CM:
    case UNIT_INCH:
        return convertToLength(value, unit, digits);
    case UNIT_PIXEL:
        return round(value / static_cast<double>(1200.0f / ctx->ppiX), 0);
    case UNIT_FIG:
        return value;
    default:
        return 0.0;
    }
}

QString convertToUnitString(CFigContext* ctx, int value, int unit, int digits)
{
    switch (unit) {
    case UNIT_CM:
    case UNIT_INCH:
        return QString::number(convertToLength(value, unit, digits), 'f', qBound(0, digits, 99));
    case UNIT_PIXEL:
        return QString::number(round2(static_cast<double>(displayPixels(ctx, value))));
    case UNIT_FIG:
        return QString::number(value);
    default:
        return QString();
    }
}

// --- the coordinate read-out -----------------------------------------------------------

namespace {

/// Unit of the document in which lengths are read out.
struct ReadOutUnit {
    const char* name;
    double size; ///< figure units

    explicit ReadOutUnit(const CFigContext* ctx)
        : name(ctx->metric ? "cm" : "in"), size(ctx->metric ? UNITS_PER_CM : UNITS_PER_INCH)
    {
    }
    QString text(const char* label, double units) const
    {
        return QString::asprintf("%s%5.2f %s", label, units / size, name);
    }
};

/// A coordinate with two decimals. For a negative value both parts carry the sign.
QString coordinateText(const ReadOutUnit& unit, char axis, int value)
{
    const auto hundredfold = static_cast<int>(static_cast<unsigned>(value) * 100u);
    const int hundredths = round2(hundredfold / unit.size);
    return QString::asprintf("%c=%2d.%02d %s", axis, hundredths / 100, hundredths % 100, unit.name);
}

/// Where the pointer is, and how far from the fixed end of the gesture. The differences are
/// rounded to single precision.
struct ReadOutPointer {
    int x, y;

    float acrossFrom(int fromX) const { return static_cast<float>(static_cast<double>(x) - fromX); }
    float downFrom(int fromY) const { return static_cast<float>(static_cast<double>(y) - fromY); }
    double distanceFrom(int fromX, int fromY) const
    {
        const double dx = acrossFrom(fromX);
        const double dy = downFrom(fromY);
        return std::sqrt(dx * dx + dy * dy);
    }
    double distanceFrom(const FigPoint* point) const { return distanceFrom(point->x, point->y); }
    double anchorDistance() const { return distanceFrom(fix_x, fix_y); }
    double anchorWidth() const { return std::fabs(acrossFrom(fix_x)); }
    double anchorHeight() const { return std::fabs(downFrom(fix_y)); }
};

void readOutNeighbours(const ReadOutUnit& unit, const ReadOutPointer& pointer, QString* info1,
                       QString* info2)
{
    if (left_point) {
        const double distance = pointer.distanceFrom(left_point);
        if (!right_point || left_point->x < right_point->x)
            *info1 = unit.text("left=", distance);
        else
            *info2 = unit.text("right=", distance);
    }
    if (right_point) {
        const double distance = pointer.distanceFrom(right_point);
        // This one text has no equals sign; it stays so.
        if (left_point && left_point->x > right_point->x)
            *info1 = unit.text("left", distance);
        else
            *info2 = unit.text("right=", distance);
    }
}

/// Size that a box will have when its moved corner is dropped at the pointer. May be negative.
void readOutBox(const ReadOutUnit& unit, const ReadOutPointer& pointer, FigLine* box,
                QString* info1, QString* info2)
{
    const bool upperLeft = moved_pos == box->getUpperLeft();
    const bool upperRight = moved_pos == box->getUpperRight();
    const bool lowerLeft = moved_pos == box->getLowerLeft();
    if (!moved_pos || !(upperLeft || upperRight || lowerLeft || moved_pos == box->getLowerRight()))
        return;
    const double across = static_cast<double>(pointer.x) - fix_x;
    const double down = static_cast<double>(pointer.y) - fix_y;
    *info1 = unit.text("w=", box->getWidth() + (upperLeft || lowerLeft ? -across : across));
    *info2 = unit.text("h=", box->getHeight() + (upperLeft || upperRight ? -down : down));
}

void readOutMovedPoint(CFigContext* ctx, const ReadOutUnit& unit, const ReadOutPointer& pointer,
                       QString* info1, QString* info2)
{
    FigObject* object = ctx->getCurObject();
    if (!object || object->type != O_POLYLINE)
        return;
    if (object->sub_type == T_POLYLINE || object->sub_type == T_POLYGON)
        readOutNeighbours(unit, pointer, info1, info2);
    else if (object->sub_type == T_BOX || object->sub_type == T_ARCBOX ||
             object->sub_type == T_PICTURE)
        readOutBox(unit, pointer, static_cast<FigLine*>(object), info1, info2);
}

void readOutGesture(CFigContext* ctx, const ReadOutUnit& unit, const ReadOutPointer& pointer,
                    QString* info1, QString* info2)
{
    switch (cur_command) {
    case 1:
        *info1 = unit.text("r=", pointer.anchorDistance());
        *info2 = unit.text("d=", 2 * pointer.anchorDistance());
        break;
    case 2:
        *info1 = unit.text("r=", pointer.anchorDistance() * 0.5);
        *info2 = unit.text("d=", pointer.anchorDistance());
        break;
    case 3:
        *info1 = unit.text("r1=", pointer.anchorWidth());
        *info2 = unit.text("r2=", pointer.anchorHeight());
        break;
    case 4:
        *info1 = unit.text("d1=", pointer.anchorWidth());
        *info2 = unit.text("d2=", pointer.anchorHeight());
        break;
    case 6:
    case 10:
    case 11:
    case 12:
    case 13:
        *info1 = unit.text("l=", pointer.anchorDistance());
        break;
    case 7:
    case 16:
        *info1 = unit.text("w=", pointer.anchorWidth());
        *info2 = unit.text("h=", pointer.anchorHeight());
        break;
    case CMD_MOVE_POINT:
    case CMD_ADD_POINT:
        readOutMovedPoint(ctx, unit, pointer, info1, info2);
        break;
    default:
        break;
    }
}

} // namespace

void printCoords(CFigContext* ctx, int x, int y, QString* xPixels, QString* xUnits,
                 QString* yPixels, QString* yUnits, QString* info1, QString* info2)
{
    if (!ctx || !xPixels || !xUnits || !yPixels || !yUnits || !info1 || !info2)
        return;
    const ReadOutUnit unit(ctx);
    *xPixels = QString::asprintf("X=%3d pt", round2(scaledX(ctx, x)));
    *xUnits = coordinateText(unit, 'X', x);
    *yPixels = QString::asprintf("Y=%3d pt", round2(scaledY(ctx, y)));
    *yUnits = coordinateText(unit, 'Y', y);
    info1->clear();
    info2->clear();
    if (action_on)
        readOutGesture(ctx, unit, {x, y}, info1, info2);
}

// --- centring ----------------------------------------------------------------------------

namespace {

/// A length of the view in figure units, truncated.
int viewLength(int pixels, float ppi, float zoom)
{
    return truncateToInt(static_cast<float>(pixels) / zoom * (1200.0f / ppi));
}

/// Shift along one axis that keeps the view's centre.
int shiftAroundCentre(int oldShift, int pixels, float ppi, float oldZoom, float newZoom)
{
    const int centre = saturatedInt(static_cast<long long>(viewLength(oldShift, ppi, oldZoom)) +
                                    viewLength(pixels, ppi, oldZoom) / 2);
    const int shift = truncateToInt(static_cast<float>(centre) * newZoom / (1200.0f / ppi));
    return std::max(0, saturatedInt(static_cast<long long>(shift) - pixels / 2));
}

} // namespace

void getShift4Centering(CFigContext* ctx, int* shiftX, int* shiftY, int x, int y, float zoom)
{
    int width = 0, height = 0;
    shell_effective_size(ctx->chFrm, &width, &height);
    const auto corner = [zoom](int centre, int pixels, float ppi) {
        return saturatedInt(static_cast<long long>(centre) - viewLength(pixels, ppi, zoom) / 2);
    };
    // The corner is found by the zoom asked for, the shift by the present one.
    *shiftX = std::max(0, round2(scaledX(ctx, corner(x, width, ctx->ppiX))));
    *shiftY = std::max(0, round2(scaledY(ctx, corner(y, height, ctx->ppiY))));
}

void getShift4Centering(CFigContext* ctx, int* shiftX, int* shiftY, int oldShiftX, int oldShiftY,
                        float oldZoom, float newZoom)
{
    int width = 0, height = 0;
    shell_effective_size(ctx->chFrm, &width, &height);
    *shiftX = shiftAroundCentre(oldShiftX, width, ctx->ppiX, oldZoom, newZoom);
    *shiftY = shiftAroundCentre(oldShiftY, height, ctx->ppiY, oldZoom, newZoom);
}

void getShift4CenteringFigure(CFigContext* ctx, int* shiftX, int* shiftY, float zoom)
{
    int xmin = 0, ymin = 0, xmax = 0, ymax = 0;
    ctx->drawing.getBounds(ctx, &xmin, &ymin, &xmax, &ymax, true, true);
    const int width = saturatedInt(static_cast<long long>(xmax) - xmin);
    const int height = saturatedInt(static_cast<long long>(ymax) - ymin);
    if (width == 0 || height == 0) {
        *shiftX = 0;
        *shiftY = 0;
        return;
    }
    // Half the extent and not the centre: a figure away from the origin is not centred.
    getShift4Centering(ctx, shiftX, shiftY, width / 2, height / 2, zoom);
}
