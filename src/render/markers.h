// Markers: small bitmaps on corners and points that show what is selected, linked or in work.
//
// Painted over the finished figure. What makes them last is the object's `marked` field; they are
// wiped by redrawing the object's area. Every function takes a null context for nothing.
#pragma once

#include "model/ObjectFunctions.h"

class QPixmap;

extern QPixmap* dotMarkerSmallNormalBitmap;
extern QPixmap* dotMarkerSmallTaggedBitmap;
extern QPixmap* dotMarkerSmallTaggedBitmap2; ///< the selected point
extern QPixmap* dotMarkerSmallLinkedBitmap;
extern QPixmap* dotMarkerCompoundSmallNormalBitmap;
extern QPixmap* dotMarkerCompoundSmallTaggedBitmap;
extern QPixmap* dotMarkerHighlightBitmap;

/// Loads the bitmaps unless they are there.
void createMarkers();
void destroyMarkers();

// One bitmap at a figure point.
void showMarker(CFigContext* ctx, int x, int y);
void showTaggedMarker(CFigContext* ctx, int x, int y);
void showSelectedPointMarker(CFigContext* ctx, int x, int y);
void showLinkMarker(CFigContext* ctx, int x, int y);
void showCompoundMarker(CFigContext* ctx, int x, int y);
void showCompoundTaggedMarker(CFigContext* ctx, int x, int y);
/// 1 normal, 2 tagged, 3 selected, 4 linked; other kinds nothing.
void showMarker(CFigContext* ctx, int kind, int x, int y);

// All markers of an object that is on an active layer; its `marked` becomes 2 if tagged, else 1.
void showPointMarker(CFigContext* ctx, FigObject* object);
void showPointMarker(CFigContext* ctx, FigArc* arc);
void showPointMarker(CFigContext* ctx, FigEllipse* ellipse);
void showPointMarker(CFigContext* ctx, FigLine* line);
void showPointMarker(CFigContext* ctx, FigSpline* spline);
void showPointMarker(CFigContext* ctx, FigText* text);
void showPointMarker(CFigContext* ctx, FigCompound* compound);

/// Where a text's second marker lies: straight above its base in its own frame.
FigPoint upperTextMarker(CFigContext* ctx, const FigText* text);

void mark_current_object(CFigContext* ctx);
void unmark_current_object(CFigContext* ctx);
/// An inverting cross: a second call removes it.
void center_marker(CFigContext* ctx, int x, int y);
/// The place of the cross anew: with it if the centre is set, without it if not, whatever is on the
/// canvas. The redraw of an edit may have taken it away.
void refresh_center_marker(CFigContext* ctx, int x, int y);
/// mode is not read.
void draw_compoundbox(CFigContext* ctx, FigCompound* compound, int mode);
void show_compoundbox(CFigContext* ctx);
void erase_compoundbox(CFigContext* ctx);
void show_picmarker(CFigContext* ctx);
/// The points' states become 0; for lines and splines.
void clearPointMarker(FigLine* line);
void clearPointMarker(FigSpline* spline);
void clearPointMarker(FigObject* object);
int getCurrentDefaultMarker(); ///< always 1

/// As refresh_obj_area, but nothing of the objects' markers stays either: at small zooms they
/// reach beyond that area, and that of a text lies lower than its upper marker.
void refresh_marked_area(CFigContext* ctx, FigObjectList* list, bool exclude);

// The working root.
/// Sets `marked` of all to state and redraws what changed; markers count as shown for a state
/// other than 0.
void draw_pointmarker(CFigContext* ctx, int state);
void erase_pointmarker(CFigContext* ctx);
void show_pointmarker(CFigContext* ctx);
void showTaggedMarkers(CFigContext* ctx, FigObject* except);
// Called by the redraw, for objects that it has not passed by.
void refresh_pointmarker(CFigContext* ctx);
void refresh_pointmarker(CFigContext* ctx, FigObject* except);
void refresh_pointmarker(CFigContext* ctx, FigObjectList* except);
/// The same where the marked objects of the working root are known, in its order.
void refresh_pointmarker(CFigContext* ctx, const FigObjectList& marked, FigObject* except);
void refresh_pointmarker(CFigContext* ctx, const FigObjectList& marked, FigObjectList* except);
void unmarkAllUntaggedObjects(CFigContext* ctx);
/// True if the figure HAS an object.
bool no_object(CFigContext* ctx);
