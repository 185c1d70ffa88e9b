// The clipboard of the process, cutting, and pasting as a gesture. It is shared by all documents
// and never meets the system's clipboard.
#pragma once

#include "model/ObjectFunctions.h"

/// Deep copies, owned here; null until the first cut or copy.
extern FigObjectList* clipObjects;

/// Removes the selection from the document as one undo step, an empty one if nothing is selected,
/// and returns what was removed. The caller owns the list, the undo queue the objects.
FigObjectList* cutTaggedOjects(CFigContext* ctx);
/// The same, but returns clones, linked among themselves only; the caller owns them.
FigObjectList* cutCopyTaggedOjects(CFigContext* ctx);

/// Fill the clipboard. Nothing while a gesture is on.
void cut_to_clipboard(CFigContext* ctx);
void copy_to_clipboard(CFigContext* ctx);
bool isClipboardEmpty();
/// Frees the clipboard with its objects and colours.
void clear_clipboard();

/// Starts the placing of copies of the clipboard, which have new ids.
void clippaste_selected(CFigContext* ctx);
FigObject* placeClipOjects(CFigContext* ctx, int x, int y, FigObject*);
void cancel_clipdragging(CFigContext* ctx, int x, int y, FigObject*);

/// Takes objects that only the preview has put there out of the working root and deletes them, and
/// wipes their picture.
void discardPreviewed(CFigContext* ctx);
/// Numbers, minus 32, of the user colours that the paste in progress has brought.
const QList<int>& previewColors();
/// Takes the user colours off again that a paste has brought and that was not placed.
void removePreviewColors(CFigContext* ctx);
