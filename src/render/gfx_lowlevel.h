// The primitives over QPainter: figure units to pixels, attributes to pens and brushes, and the
// process-wide list of device points that the renderers fill and the primitives draw.
// The context's painter is the target; there is no other.
#pragma once

#include <QColor>
#include <QHash>
#include <QPen>
#include <QPoint>
#include <QPolygon>

class CFigContext;
class FigEllipse;
class FigLine;
class FigObject;
class FigSpline;
class QPainter;
class QPixmap;

enum PaintMode {
    PAINT_NORMAL = 3,
    PAINT_DIMMED = 10,
    PAINT_GRAYED = 11,
    PAINT_HIDDEN = 12,
    PAINT_WHITE = 13
};

constexpr long MAX_LIST_POINTS = 100000;
/// Device points of the object being drawn. Overwritten by drawing, bounds and searches alike.
extern QPoint polygon_points[MAX_LIST_POINTS];
extern long npoints;
extern int lastlistpx, lastlistpy; ///< last point added, -1 after init_pointlist
extern bool draw_parent_gray;      ///< never written, always false

// --- the point list ----------------------------------------------------------

void init_pointlist();
/// Adds a device point; false when the list is full. A point equal to the last one is dropped.
bool add_point_to_list(int x, int y);
/// Adds a mapped figure point; -1 when the list is full, else 0.
int add_point_to_list_scale(CFigContext* ctx, int x, int y);
bool initPointListFromLine(CFigContext* ctx, FigLine* line);
long removeDuplicates(QPoint* pts, long n);
void copy_pointarray(QPoint* from, QPoint* to, int n);
void toPolygon(QPolygon& polygon, QPoint* pts, int n);
void toPolygon(QPolygonF& polygon, QPoint* pts, int n);

// --- attributes to pens and colours --------------------------------------------

/// Pen width in pixels of a thickness in 1/80 inch. 0 means no outline.
int getThickness(CFigContext* ctx, int thickness, float zoom);
void setDashAndCapStyle(QPen& pen, int thickness, int style, float styleVal, int cap);
/// For ellipses: solid and dashed have flat caps, the others round ones if asked for.
void setDashStyle(QPen& pen, int thickness, int style, float styleVal, bool roundCaps);
void setLineJoin(QPen& pen, int join);
/// Stroke of an object as the primitives build it, in a paint mode, `width` pixels wide.
/// join -1 leaves Qt's default.
QPen strokePen(CFigContext* ctx, int penColor, int mode, int width, int thickness, int style,
               float styleVal, int cap, int join);
/// The same for an ellipse, whose caps go by the line style.
QPen ellipsePen(CFigContext* ctx, FigEllipse* ellipse, int mode, int width);
QColor getQColor(QHash<int, unsigned int*>* shades, int color, int mode, bool flag);
QColor getQColor(QHash<int, unsigned int*>* shades, int color, int shade, int mode, bool flag);
unsigned getColor(QHash<int, unsigned int*>* shades, int color, int mode, bool flag);
unsigned getColor(QHash<int, unsigned int*>* shades, int color, int shade, int mode, bool flag);
/// How the object is painted by its layer.
int getPaintMode(CFigContext* ctx, FigObject* object);

// --- drawing -------------------------------------------------------------------

void clear_canvas(CFigContext* ctx, QColor& color, int x, int y, int w, int h);
void pw_dot(CFigContext* ctx, FigLine* line, int mode);
void pw_rectangle(QPainter* painter, int x1, int y1, int x2, int y2, QColor color);
void pw_rectangle_ds(CFigContext* ctx, int x1, int y1, int x2, int y2, QColor color);
void RectFill(QPainter* painter, int x1, int y1, int x2, int y2, QColor color);
void pw_vector(CFigContext* ctx, int x1, int y1, int x2, int y2, int lineMode, int op);
void pw_polygon(CFigContext* ctx, FigLine* line, int mode);
void pw_polygon(CFigContext* ctx, QPoint* pts, int n, int mode, int thickness, int style,
                float styleVal, int join, int cap, int fill, int penColor, int fillColor,
                bool closed);
void pw_spline(CFigContext* ctx, FigSpline* spline, int mode);
void pw_ellipse(CFigContext* ctx, FigEllipse* ellipse, int mode);
void fillEllipse(CFigContext* ctx, FigEllipse* ellipse, int mode, bool centered);
/// Fills the point list with the outline of a box with rounded corners; r in figure units.
void calculate_arcbox(CFigContext* ctx, int xmin, int ymin, int xmax, int ymax, int r);
/// The same from the line's own points and radius. False without points.
bool initPointListFromArcbox(CFigContext* ctx, FigLine* line);
void draw_arcbox(CFigContext* ctx, FigLine* line, int mode);
/// Box of a picture whose image is not there: a one-pixel outline.
void pw_picbox(CFigContext* ctx, FigLine* line, int mode);
void fillPolygon(CFigContext* ctx, int penColor, int fillColor, int fillStyle, int mode,
                 QPoint* pts, long n);
void fillPolygon(CFigContext* ctx, FigObject* object, int mode, QPoint* pts, long n);

// Feedback pens: black, one pixel. Op 1 and 4 invert, so that a second draw wipes.
void elasticMode(QPainter* painter, int op);
void rubberMode(QPainter* painter, int op);
void dottedMode(QPainter* painter, int op);

/// Draws the whole figure of ctx into a pixmap of that size. A null pixmap is ignored.
void createFIGBitmap(CFigContext* ctx, QPixmap* pixmap, int width, int height);
