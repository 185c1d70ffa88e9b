// A rectangle of the drawing that is painted anew: its pixels, and what lies under the objects.
#pragma once

#include <QPoint>
#include <QRect>

class CFigContext;

struct RedrawArea {
    QPoint from, to; ///< device pixels of the corners, which may be any two opposite ones
    QRect clip;

    /// Corners in figure units.
    RedrawArea(CFigContext* ctx, int x1, int y1, int x2, int y2);
};

/// Background, grid and page borders. The painter has the clip that they are to keep to.
void paintGround(CFigContext* ctx, const QPoint& from, const QPoint& to);

/// Counts redraws of canvases, whole or in part, so that who keeps a picture can tell whether it
/// may be out of date.
unsigned long redrawsSoFar();
