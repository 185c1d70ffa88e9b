// Clipping that keeps a wide line from showing under its arrowheads.
#pragma once

#include <QPoint>
#include <QRegion>

class CFigContext;

/// Takes the heads' clip polygons out of the painter's clip. saved receives the former clip, an
/// empty region where there was none. False when nothing was changed.
bool setArrowClipping(CFigContext* ctx, QPoint* fwdClip, int nFwdClip, QPoint* backClip,
                      int nBackClip, int thickness, QRegion& saved);
/// Puts the former clip back; the whole device for an empty region.
void restoreArrowClipping(CFigContext* ctx, const QRegion& saved);
