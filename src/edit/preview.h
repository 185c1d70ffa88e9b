// Fresh copies that paste and the copy tool show while they follow the pointer. They stand in the
// working root for the feedback alone: the document does not have them yet.
#pragma once

#include "model/ObjectFunctions.h"

#include <QColor>
#include <QMap>

/// Whether the gesture in progress shows such copies; they are its movedObjects then.
bool movesPreviewCopies();

/// For its life the copies, and the user colours that a paste has brought with them, are out of the
/// document, so that a save does not write them. Nothing may be drawn or edited meanwhile.
class PreviewAside {
public:
    explicit PreviewAside(CFigContext* ctx);
    ~PreviewAside();
    PreviewAside(const PreviewAside&) = delete;
    PreviewAside& operator=(const PreviewAside&) = delete;

private:
    CFigContext* owner; ///< null without copies
    FigObjectList* root = nullptr;
    FigObjectList objects; ///< of the root, as they were
    QMap<int, QColor> colors;
};
