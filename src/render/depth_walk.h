// Drawing a list by depth, and what a redraw may spare without a pixel's difference: objects out
// of sight, and the slow path of the raster engine.
#pragma once

#include "model/FigContext.h"
#include "model/ObjectFunctions.h"

#include <QRect>

#include <functional>
#include <vector>

class QPainter;

/// Keeps drawnPlace true while a walk is in a list: what lies in the drawing is outside of the
/// open compound until its list is entered. In a list that is not of the drawing the place stays
/// unknown.
class PlaceOfList {
public:
    PlaceOfList(CFigContext* document, const FigObjectList* list)
        : ctx(document), before(document->drawnPlace)
    {
        if (!ctx->openCompoundObjects)
            return;
        if (list == ctx->openCompoundObjects)
            ctx->drawnPlace = OpenPlace::Inside;
        else if (list == &ctx->drawing.objects)
            ctx->drawnPlace = OpenPlace::Outside;
    }
    PlaceOfList(const PlaceOfList&) = delete;
    PlaceOfList& operator=(const PlaceOfList&) = delete;
    ~PlaceOfList() { ctx->drawnPlace = before; }

private:
    CFigContext* ctx;
    OpenPlace before;
};

/// Unless flagged or excluded. An exclusion of -1 stands for all objects.
bool isWanted(const FigObject* object, const FigObject* exclude);
/// Raises what the redraw walked over at the object's depth, drawn or not.
void countDrawn(CFigContext* ctx, const FigObject* object);

/// The objects of a list at every level; none for null.
QSet<FigObject*> allMembers(const FigObjectList* list);

/// A part of the canvas in figure units. Outside it nothing that is drawn would be seen.
struct SeenArea {
    long x1, y1, x2, y2;

    SeenArea(const CFigContext* ctx, const QRect& pixels);
};

/// Clips to the whole device while objects are drawn: the raster engine draws thin smooth lines
/// by a tenth to a third faster so. What would come out otherwise under a clip is drawn without:
/// the rims of turned ellipses differ in the last bits of their edges, and an object with
/// arrowheads may set a clip and put back one of the whole device, which stays from then on.
/// A painter that has a clip already keeps it.
class WholeClip {
public:
    explicit WholeClip(QPainter* target);
    WholeClip(const WholeClip&) = delete;
    WholeClip& operator=(const WholeClip&) = delete;
    ~WholeClip();

    /// The painter has no clip but this one.
    bool isAlone() const { return m_isOurs; }
    void draw(CFigContext* ctx, FigObject* object);

private:
    void set(Qt::ClipOperation operation);

    QPainter* m_painter;
    bool m_isOurs;
};

/// The depths from max_depth to 0, each in list order and compounds entered. Area and clip may be
/// null: everything is drawn then, under the clip that there is.
void drawByDepth(CFigContext* ctx, const FigObjectList& list, FigObject* exclude,
                 const SeenArea* area, WholeClip* clip);
/// The same for a figure whose ignore flags are not set yet: flag sets those of an object of the
/// list before that is looked at, so that a large figure is walked once.
void drawByDepth(CFigContext* ctx, const FigObjectList& list, FigObject* exclude,
                 const SeenArea* area, WholeClip* clip,
                 const std::function<void(FigObject*)>& flag);

/// An object of a drawing and where it lies when a compound is open.
struct PlacedObject {
    FigObject* object;
    OpenPlace place;
};

/// What a redraw of a list draws, in that order, compounds entered.
std::vector<PlacedObject> drawingOrder(CFigContext* ctx, const FigObjectList& list);
