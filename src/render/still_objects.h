// What stays where it is while a gesture moves a few objects about. It is walked once, so that a
// step of feedback takes no time for objects out of its area, and where little moves between the
// rest it is kept as pictures.
#pragma once

#include "model/FigContext.h"
#include "model/ObjectFunctions.h"
#include "render/depth_walk.h"
#include "render/still_pictures.h"

#include <QHash>
#include <QRect>

#include <memory>
#include <vector>

/// Moving objects are told by their ids, since each step has copies of its own. It holds pointers
/// into the drawing: to be dropped when the gesture ends.
class StillObjects {
public:
    /// The moving objects stand in the drawing. Needs an active painter.
    StillObjects(CFigContext* context, const FigObjectList& moving);

    /// Whether the objects have ids of their own, by which they can be told.
    static bool canTell(const FigObjectList& moving);
    /// Whether it still speaks for the view, and for these as the moving ones.
    bool serves(const CFigContext* context, const FigObjectList& moving) const;
    /// As refresh_area, the moving objects being where they stand now. Figure units.
    void redraw(int x1, int y1, int x2, int y2, const FigObjectList& moving);
    /// Where pictures have been laid over each other, in pixels of the canvas: there edges and text
    /// may differ by a hair from those of objects drawn over each other. Empty without any.
    const QRect& blendedPixels() const { return blended; }
    /// Number of the document that it is of.
    unsigned long document() const { return view.document; }

private:
    struct Still {
        FigObject* object;
        OpenPlace place;
        QRect reach; ///< figure units
    };
    struct Mover {
        FigObject* object;
        size_t stillBelow; ///< how many of the still objects are drawn before it
        OpenPlace place;
        int rank; ///< among the moving ones
    };
    /// All that the look of the still objects depends on and that has no redraw of its own.
    struct View {
        unsigned long document;
        float zoom;
        int shiftX, shiftY;
        QSize canvas;
        bool isSmooth;

        explicit View(const CFigContext* ctx);
        bool operator==(const View& other) const;
    };

    void note(const FigObjectList& moving);
    void noteMarked(const FigObjectList& moving);
    std::vector<Mover> inOrder(const FigObjectList& moving) const;
    void drawStill(size_t from, size_t to, const SeenArea& area) const;
    void drawMover(const Mover& mover) const;
    /// Whether nothing that stands still comes over a moving object.
    bool isAllBelow() const;
    void drawLayer(size_t layer, const QRect& part) const;
    QRect rectOf(const std::vector<Mover>& movers, const QRect& clip) const;
    bool drawByPictures(const QRect& part, const std::vector<Mover>& movers);
    void drawByObjects(const QPoint& from, const QPoint& to, const QRect& clip,
                       const std::vector<Mover>& movers) const;
    QRect reachOf(FigObject* object) const;
    void drawMarkers(const QRect& clip, const FigObjectList& moving) const;

    CFigContext* ctx;
    View view;
    unsigned long redraws;
    std::vector<Still> stills;
    QHash<long, int> depths;                 ///< of the moving objects, by id
    QHash<long, Mover> places;               ///< of those that are drawn
    std::vector<size_t> breaks;              ///< the different values of stillBelow, ascending
    std::vector<Still> marked;               ///< of the top level, without the moving ones
    QSet<long> topLevel;                     ///< of the moving objects
    std::unique_ptr<StillPictures> pictures; ///< null when objects are drawn one by one
    QRect blended;
};
