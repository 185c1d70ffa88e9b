// The records of a figure. Coordinates are figure units, 1200 per inch, y down;
// line widths and dash lengths are display units of 1/80 inch.
//
// Ownership: a list in the tree owns what it holds; an object that an edit took out of the tree
// belongs to the action that took it out; the clipboard owns its copies. Plain pointers in
// object lists therefore never own by themselves: deleteObjectList is what destroys.
#pragma once

#include <QHash>
#include <QLinkedList>
#include <QPixmap>
#include <QString>

class CFigContext;
struct FigLink;
class FigObject;

/// Object codes, equal to those of the file format. 0 is no object.
enum FigObjectType {
    O_ELLIPSE = 1,
    O_POLYLINE = 2,
    O_SPLINE = 3,
    O_TEXT = 4,
    O_ARC = 5,
    O_COMPOUND = 6
};

/// Sub-types of a line.
enum FigLineType { T_POLYLINE = 1, T_BOX = 2, T_POLYGON = 3, T_ARCBOX = 4, T_PICTURE = 5 };

/// Arrowhead of a line end.
struct FigArrow {
    int type = 0;        ///< shape, 0 to 14
    int style = 0;       ///< 0 hollow, 1 filled
    float thickness = 1; ///< display units
    float wd = 0;        ///< width, figure units
    float ht = 0;        ///< height, figure units
};

/// A point of an outline. Owns its link, not its successor.
class FigPoint {
public:
    FigPoint() = default;
    FigPoint(int px, int py) : x(px), y(py) {}
    FigPoint(const FigPoint&) = default;
    FigPoint& operator=(const FigPoint&) = default;
    virtual ~FigPoint() = default;

    int x = 0;
    int y = 0;
    bool tagged = false;
    int state = 0;           ///< marker state; 3 is the selected point
    FigLink* link = nullptr; ///< owned by the point list functions, not by this destructor
    FigPoint* next = nullptr;
    FigObject* owner = nullptr; ///< filled in only by findPointsThatConnectTo
};

/// Smart link from a point to another object.
struct FigLink {
    long targetObjId = -1;
    FigPoint* srcPoint = nullptr;
    FigPoint* targetLeftPoint = nullptr; ///< cache, compared only; null for an ellipse target
    FigPoint* targetRightPoint = nullptr;
    int targetLeftPointIdx = -1;
    int targetRightPointIdx = -1;
    bool flag = false; ///< the end stays where it is during the present move
};

/// Shape factor of one spline point, in point order. Made with malloc, released with free.
struct FigShapeFactor {
    double s;
    FigShapeFactor* next;
};

/// Picture of a box of sub-type 5.
struct FigPic {
    QString file; ///< name as in the figure
    int type = 0; ///< 0 unknown
    int flipped = 0;
    int pix_width = 0;
    int pix_height = 0;
    int pix_rotation = 0; ///< degrees the pixmap is turned by now
    int size_x = 0;       ///< box size in pixels that the pixmap was made for
    int size_y = 0;
    int pix_flipped = 0;
    QPixmap* pixmap = nullptr; ///< owned by the line that owns this record
};

/// Run-time flags, never written to a file.
class FigObjectHandling {
public:
    bool tagged = false;       ///< selected
    int marked = 0;            ///< markers shown: 0 none, 1 normal, 2 tagged
    bool ignore = false;       ///< passed by in this redraw
    int reserved = 0;          ///< survives a clone, no rule depends on it
    int convertedSubType = -1; ///< sub-type before a line-spline conversion, -1 never converted
};

class FigObject : public FigObjectHandling {
public:
    FigObject() = default;
    FigObject(const FigObject&) = delete;
    FigObject& operator=(const FigObject&) = delete;

    int type = 0;
    long id = -1; ///< unique in the document, -1 none yet
    int sub_type = 0;
    int line_style = 0;
    int thickness = 0;
    int pen_color = 0;
    int fill_color = -1;
    int fill_style = -1;
    int depth = 0; ///< 0 to 999, greater is further back
    int pen_style = -1;
    float style_val = 0;
    FigArrow* forward_arrow = nullptr;  ///< owned
    FigArrow* backward_arrow = nullptr; ///< owned
    QString comments;                   ///< lines separated by "\n"

    virtual ~FigObject();
    virtual FigObject* clone();
    virtual void draw(CFigContext* ctx);
    /// Bounds in figure units. includeDescent concerns texts only; exact gives what is painted.
    /// exact overwrites the process-wide point list and arrow arrays.
    virtual void getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                           bool includeDescent, bool exact);
};

/// Outline of a line or spline. No virtuals: never delete through this type, and reach it from a
/// FigObject only by way of FigLine or FigSpline.
class FigPath {
public:
    FigPoint* points = nullptr; ///< head of the list, owned by the line or spline

    FigPoint* findPredecessor(FigPoint* point);
    int getIndex(FigPoint* point); ///< -1 when absent
    FigPoint* getPoint(int index); ///< null for -1 and out of range
    int getNumPoints();
};

class FigLine : public FigObject, public FigPath {
public:
    FigLine() { type = O_POLYLINE; }
    ~FigLine() override;

    int cap_style = 0;     ///< 0 butt, 1 round, 2 projecting
    int join_style = 0;    ///< 0 miter, 1 round, 2 bevel
    int radius = -1;       ///< of an arc-box, display units
    FigPic* pic = nullptr; ///< owned; only with sub-type 5

    FigObject* clone() override;
    void draw(CFigContext* ctx) override;
    void getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                   bool includeDescent, bool exact) override;

    // Corners by comparing coordinates, so they stay right after rotation. Null without points.
    // On a tie on x the smaller y wins for the upper corners, the greater y for the lower ones.
    FigPoint* getUpperLeft();
    FigPoint* getUpperRight();
    FigPoint* getLowerRight();
    FigPoint* getLowerLeft();
    int getCenterX();
    int getCenterY();
    int getWidth();
    int getHeight();
    FigPoint* getPointByCoord(int x, int y);
};

class FigSpline : public FigObject, public FigPath {
public:
    FigSpline() { type = O_SPLINE; }
    ~FigSpline() override;

    int cap_style = 0;
    FigShapeFactor* sfactors = nullptr; ///< owned

    FigObject* clone() override;
    void draw(CFigContext* ctx) override;
    void getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                   bool includeDescent, bool exact) override;
    FigShapeFactor* getShapeFactor(int index);
};

class FigEllipse : public FigObject {
public:
    FigEllipse() { type = O_ELLIPSE; }

    float angle = 0;   ///< radians, in [0, 2 pi)
    int direction = 0; ///< written as it was read
    FigPoint center;
    FigPoint radiuses;
    FigPoint start;
    FigPoint end;

    FigObject* clone() override;
    void draw(CFigContext* ctx) override;
    void getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                   bool includeDescent, bool exact) override;
    double getF1x(); ///< right focus
    double getF1y();
};

class FigArc : public FigObject {
public:
    FigArc() { type = O_ARC; }

    int cap_style = 0;
    int direction = 0; ///< 0 clockwise, 1 counter-clockwise
    float center_x = 0;
    float center_y = 0;
    FigPoint point[3]; ///< start, middle, end

    FigObject* clone() override;
    void draw(CFigContext* ctx) override;
    void getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                   bool includeDescent, bool exact) override;
};

/// Rendered TeX images of a text, one hash per colour treatment, keyed by round2(ppiX).
class FigTextHandling {
public:
    QHash<int, QPixmap*> imagesNormal; ///< paint mode 3; owned, as the other two
    QHash<int, QPixmap*> imagesDimmed; ///< paint mode 10
    QHash<int, QPixmap*> imagesGrayed; ///< paint mode 11
    bool texCallFailed = false;

    FigTextHandling() = default;
    FigTextHandling(const FigTextHandling&) = delete;
    FigTextHandling& operator=(const FigTextHandling&) = delete;
    ~FigTextHandling();
    void disposeImages();
};

class FigText : public FigObject, public FigTextHandling {
public:
    FigText() { type = O_TEXT; }

    int font = 0;    ///< font number, -1 default
    int size = 12;   ///< points, 1 to 500
    int color = 0;   ///< what pen_color is for the other types
    float angle = 0; ///< radians
    int flags = 0;   ///< 1 rigid, 2 special, 4 PostScript font numbers, 8 hidden
    int length = 0;  ///< figure units, measured
    int ascent = 0;  ///< figure units, measured
    int descent = 0; ///< pixels, measured
    int x = 0;
    int y = 0;
    QString cstring;       ///< without escapes
    int fontHeight = 0;    ///< pixels, measured
    int paddedLength = 0;  ///< figure units, measured
    float metricsZoom = 0; ///< zoom at which the metrics were taken

    FigObject* clone() override;
    void draw(CFigContext* ctx) override;
    void getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                   bool includeDescent, bool exact) override;
};

class FigCompound : public FigObject {
public:
    FigCompound();
    ~FigCompound() override;

    FigPoint nwcorner;
    FigPoint secorner;
    FigCompound* parent = nullptr;    ///< enclosing compound while one is open; not owned
    QLinkedList<FigObject*>* objects; ///< never null; owned with what it holds
    /// The document's list of vanished compounds while this one is in it, else null.
    QLinkedList<FigCompound*>* vanishedIn = nullptr;

    FigObject* clone() override;
    void draw(CFigContext* ctx) override;
    void getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                   bool includeDescent, bool exact) override;
    bool isEmpty() const;
};

/// Root of a figure.
class FigDrawing {
public:
    FigDrawing() = default;
    FigDrawing(const FigDrawing&) = delete;
    FigDrawing& operator=(const FigDrawing&) = delete;
    virtual ~FigDrawing(); ///< deletes all objects

    int resolution = 1200;
    int coord_system = 0;
    QLinkedList<FigObject*> objects; ///< owned with what it holds
    FigPoint nwcorner;
    FigPoint secorner;
    QString comments;

    void getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                   bool includeDescent, bool exact);
};
