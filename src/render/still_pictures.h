// Pictures of what lies between the moving objects of a gesture, made tile by tile where they are
// first needed.
#pragma once

#include <QImage>
#include <QRect>

#include <functional>
#include <vector>

class CFigContext;
class QPainter;

/// Layers from the bottom up. The bottom one holds the ground and is opaque, those above are
/// transparent where nothing is drawn.
class StillPictures {
public:
    /// Whether so many layers of that size are worth their memory.
    static bool areAffordable(const QSize& canvas, size_t layers);

    StillPictures(const QSize& canvas, size_t layers);

    /// Draws what is missing of a part of the canvas. The function draws one layer of a part with
    /// the context's painter, which is on that layer then and clipped to the part. False when there
    /// is no memory.
    bool complete(CFigContext* ctx, const QRect& part,
                  const std::function<void(size_t layer, const QRect& part)>& draw);
    /// Lays a part of a layer over the canvas.
    void show(QPainter* painter, size_t layer, const QRect& part) const;
    /// Lays the first layers over each other in a part, each with the objects that come over it,
    /// and shows the result where such objects have painted. Nothing else changes on the canvas:
    /// text, which a painter mixes otherwise on what is transparent, stays as it was next to them.
    void mix(CFigContext* ctx, const QRect& part, size_t layers,
             const std::function<void(size_t layer)>& drawOver);

private:
    /// Tiles by column and row, as a rectangle.
    QRect tilesOf(const QRect& part) const;
    QRect missingTiles(const QRect& wanted) const;
    bool makePictures();

    QSize canvas;
    QSize tiles;
    size_t numLayers;
    std::vector<QImage> pictures;
    QImage mixed, painted; ///< for one step
    std::vector<bool> made;
};
