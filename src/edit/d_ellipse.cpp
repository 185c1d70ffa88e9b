#include "edit/d_ellipse.h"

#include "edit/d_create.h"
#include "edit/mode.h"
#include "edit/u_elastic.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/coords.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"
#include "render/markers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

enum EllipseSubType {
    ELLIPSE_BY_RADII = 1,
    ELLIPSE_BY_DIAMETERS = 2,
    CIRCLE_BY_RADIUS = 3,
    CIRCLE_BY_DIAMETER = 4
};

/// The active state that the four tools share: a marker at the press, the outline around or
/// beside it.
void drawCentreMarker(CFigContext* ctx)
{
    const PlainPixels plain(ctx);
    center_marker(ctx, fix_x, fix_y);
}

void begin(CFigContext* ctx, int x, int y, PointerProc move, ButtonProc create,
           RightButtonProc cancel, ElasticProc outline)
{
    begin_gesture(ctx, x, y, move, create, cancel);
    drawCentreMarker(ctx);
    show_rubber_band(ctx, outline);
}

void wipe(CFigContext* ctx, ElasticProc outline)
{
    draw_rubber_band(ctx, outline);
    drawCentreMarker(ctx);
}

FigObject* addEllipse(CFigContext* ctx, EllipseSubType subType, float angle, FigPoint centre,
                      FigPoint radii, FigPoint end)
{
    FigEllipse* ellipse = createEllipseFromCurrentAttrs(ctx);
    ellipse->sub_type = subType;
    ellipse->angle = angle;
    ellipse->center = centre;
    ellipse->radiuses = radii;
    ellipse->start = FigPoint(fix_x, fix_y);
    ellipse->end = end;
    add_created_object(ctx, ellipse);
    return ellipse;
}

/// Halves of integers, so that the middle lies nearer to 0 on a tie.
FigPoint middleOfDiameter(int x, int y)
{
    return FigPoint(static_cast<int>((static_cast<long long>(fix_x) + x) / 2),
                    static_cast<int>((static_cast<long long>(fix_y) + y) / 2));
}

FigPoint equalRadii(int radius)
{
    return FigPoint(radius, radius);
}

} // namespace

// --- circle by radius: centre, then a point of the rim ---------------------------------------

void circlebyradius_drawing_selected(CFigContext*)
{
    wait_for_first_point(init_circlebyradius_drawing);
}

FigObject* init_circlebyradius_drawing(CFigContext* ctx, int x, int y, FigObject*)
{
    begin(ctx, x, y, resizing_cbr, create_circlebyrad, cancel_circlebyrad, elastic_cbr);
    return nullptr;
}

FigObject* create_circlebyrad(CFigContext* ctx, int x, int y, FigObject*)
{
    wipe(ctx, elastic_cbr);
    const int radius = round2(get_line_length(fix_x, fix_y, x, y));
    FigObject* circle = addEllipse(ctx, CIRCLE_BY_RADIUS, 0, FigPoint(fix_x, fix_y),
                                   equalRadii(radius), FigPoint(x, y));
    circlebyradius_drawing_selected(ctx);
    return circle;
}

void cancel_circlebyrad(CFigContext* ctx, int, int, FigObject*)
{
    wipe(ctx, elastic_cbr);
    circlebyradius_drawing_selected(ctx);
}

// --- circle by diameter: two opposite points of the rim ---------------------------------------

void circlebydiameter_drawing_selected(CFigContext*)
{
    wait_for_first_point(init_circlebydiameter_drawing);
}

FigObject* init_circlebydiameter_drawing(CFigContext* ctx, int x, int y, FigObject*)
{
    begin(ctx, x, y, resizing_cbd, create_circlebydia, cancel_circlebydia, elastic_cbd);
    return nullptr;
}

FigObject* create_circlebydia(CFigContext* ctx, int x, int y, FigObject*)
{
    wipe(ctx, elastic_cbd);
    const FigPoint centre = middleOfDiameter(x, y);
    const int radius = round2(get_line_length(centre.x, centre.y, x, y));
    FigObject* circle =
        addEllipse(ctx, CIRCLE_BY_DIAMETER, 0, centre, equalRadii(radius), FigPoint(x, y));
    circlebydiameter_drawing_selected(ctx);
    return circle;
}

void cancel_circlebydia(CFigContext* ctx, int, int, FigObject*)
{
    wipe(ctx, elastic_cbd);
    circlebydiameter_drawing_selected(ctx);
}

// --- ellipse by radii: centre, then a corner of the box around it -----------------------------

void ellipsebyradius_drawing_selected(CFigContext*)
{
    wait_for_first_point(init_ellipsebyradius_drawing);
}

FigObject* init_ellipsebyradius_drawing(CFigContext* ctx, int x, int y, FigObject*)
{
    cur_angle = cur_ellipseangle;
    begin(ctx, x, y, resizing_ebr, create_ellipsebyrad, cancel_ellipsebyrad, elastic_ebr);
    return nullptr;
}

FigObject* create_ellipsebyrad(CFigContext* ctx, int x, int y, FigObject*)
{
    wipe(ctx, elastic_ebr);
    // One unit more than the drag, so that none at all still makes an ellipse; only in this tool.
    const FigPoint radii(saturatedSum(axisDistance(x, fix_x), 1),
                         saturatedSum(axisDistance(y, fix_y), 1));
    FigObject* ellipse = addEllipse(ctx, ELLIPSE_BY_RADII, cur_ellipseangle, FigPoint(fix_x, fix_y),
                                    radii, FigPoint(x, y));
    ellipsebyradius_drawing_selected(ctx);
    return ellipse;
}

void cancel_ellipsebyrad(CFigContext* ctx, int, int, FigObject*)
{
    wipe(ctx, elastic_ebr);
    ellipsebyradius_drawing_selected(ctx);
}

// --- ellipse by diameters: two opposite corners of the box around it ---------------------------

void ellipsebydiameter_drawing_selected(CFigContext*)
{
    wait_for_first_point(init_ellipsebydiameter_drawing);
}

FigObject* init_ellipsebydiameter_drawing(CFigContext* ctx, int x, int y, FigObject*)
{
    cur_angle = cur_ellipseangle;
    begin(ctx, x, y, resizing_ebd, create_ellipsebydia, cancel_ellipsebydia, elastic_ebd);
    return nullptr;
}

FigObject* create_ellipsebydia(CFigContext* ctx, int x, int y, FigObject*)
{
    wipe(ctx, elastic_ebd);
    const FigPoint centre = middleOfDiameter(x, y);
    const FigPoint radii(axisDistance(centre.x, fix_x), axisDistance(centre.y, fix_y));
    FigObject* ellipse =
        addEllipse(ctx, ELLIPSE_BY_DIAMETERS, cur_ellipseangle, centre, radii, FigPoint(x, y));
    ellipsebydiameter_drawing_selected(ctx);
    return ellipse;
}

void cancel_ellipsebydia(CFigContext* ctx, int, int, FigObject*)
{
    wipe(ctx, elastic_ebd);
    ellipsebydiameter_drawing_selected(ctx);
}

// --- outline of a turned ellipse ----------------------------------------------------------------

namespace {

/// The four runs of an outline that a scan by lines finds side by side.
class OutlineQueues {
public:
    static constexpr int limit = MAX_LIST_POINTS / 4;

    /// Files a point in the next queue in turn; beyond the limit it is dropped.
    void newpoint(double x, double y)
    {
        if (isFull())
            return;
        queues[total % 4].push_back(QPoint(round2(x), round2(y)));
        if (++total == limit)
            put_msg("Too many points to fully display rotated ellipse. %d points max",
                    static_cast<long>(MAX_LIST_POINTS));
    }

    bool isFull() const { return total == limit; }

    /// Adds the runs, one forward and one back in turn, and the first point once more.
    void emitOutline() const
    {
        static constexpr int order[] = {0, 1, 3, 2};
        for (int i = 0; i < 4; ++i) {
            const std::vector<QPoint>& queue = queues[order[i]];
            // As many as queue i holds, which is one less where the limit cut a line of four.
            const int count = static_cast<int>(std::min(queue.size(), queues[i].size()));
            for (int j = 0; j < count; ++j) {
                const QPoint& point = queue[i % 2 == 0 ? j : count - 1 - j];
                add_point_to_list(point.x(), point.y());
            }
        }
        if (!queues[0].empty())
            add_point_to_list(queues[0].front().x(), queues[0].front().y());
    }

private:
    std::array<std::vector<QPoint>, 4> queues;
    int total = 0;
};

/// Line by line from the middle outward, both halves at once. d is the square of half the width
/// of a line, which has a shear against the centre.
void scanEllipse(OutlineQueues& queues, double cx, double cy, double a, double b, double angle)
{
    const double s = std::sin(angle);
    const double c = std::cos(angle);
    const double squareOfWidth = c * c / (a * a) + s * s / (b * b);
    const double shear = (s * c / (a * a) - s * c / (b * b)) / squareOfWidth;
    const double squareOfHeight = a * a * s * s + b * b * c * c;
    const double q = (a * b / squareOfHeight) * (a * b / squareOfHeight);
    double d = q * (squareOfHeight - 1);
    double line = 0;
    double m = 0;
    if (round2(std::sqrt(squareOfHeight)) % 2 != 0) {
        const double half = std::sqrt(std::max(d, 0.0));
        queues.newpoint(cx - half, cy);
        queues.newpoint(cx + half, cy);
        line = 1;
        m = shear;
    }
    double step = q;
    while (d >= 0 && !queues.isFull()) {
        const double r = std::sqrt(d);
        queues.newpoint(cx + m - r, cy + line);
        queues.newpoint(cx + m + r, cy + line);
        queues.newpoint(cx - m - r, cy - line);
        queues.newpoint(cx - m + r, cy - line);
        line += 1;
        step += 2 * q;
        m += shear;
        d -= step;
    }
}

} // namespace

void angle_ellipse(CFigContext* ctx, int cx, int cy, int rx, int ry, float angle)
{
    init_pointlist();
    if (rx == 0 || ry == 0)
        return;
    const double a = std::fabs(scaledX(ctx, rx));
    const double b = std::fabs(scaledY(ctx, ry));
    // Below half a pixel the width of a line would never run out.
    if (!(a >= 0.5 && b >= 0.5))
        return;
    OutlineQueues queues;
    scanEllipse(queues, pixelX(ctx, cx), pixelY(ctx, cy), a, b, angle);
    queues.emitOutline();
}
