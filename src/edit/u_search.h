// Finding the object or the point under a position in figure units.
//
// Objects are tried by kind in a fixed order, and within a kind in list order; the first that is
// near enough wins, even if a later one is nearer. Hidden layers are never hit. Near is two
// screen pixels. The searches overwrite the process-wide point list.
#pragma once

#include "edit/command.h"
#include "model/ObjectFunctions.h"

/// Segment or tangent found by the last object search; valid only with smart_points_valid.
extern FigPoint smart_point1, smart_point2;
extern int smart_points_valid;
void set_smart_points(int x1, int y1, int x2, int y2);

/// Two screen pixels in figure units, by the horizontal resolution; at least 1.
int searchTolerance(CFigContext* ctx);

// --- what the tools put into the canvas slots --------------------------------------

void init_searchproc_left(ObjectHandler handler);
void init_searchproc_middle(ObjectHandler handler);
void initPoint_searchproc_left(PointHandler handler);
FigObject* object_search_left(CFigContext* ctx, int x, int y, FigObject* excluded);
void object_search_middle(CFigContext* ctx, int x, int y, FigObject* excluded);
/// The last argument is not read.
FigObject* point_search_left(CFigContext* ctx, int x, int y, FigObject* excluded = nullptr);
/// Sets manipulate_proc, while the point search that follows calls pointManipulate_proc.
void point_search_middle(CFigContext* ctx, int x, int y, FigObject* excluded = nullptr);

/// Lines, ellipses, arcs, splines, compounds, texts of the working root. The first hit, or a null
/// object of type 2, goes to manipulate_proc; null at once without one.
FigObject* do_object_search(CFigContext* ctx, int x, int y, FigObject* excluded);
/// Points of lines, ellipses, arcs, splines, corners of compounds. With a handler the object is
/// returned only if the handler's result is true.
FigObject* do_point_search(CFigContext* ctx, int x, int y);
/// The search without a handler; (*px, *py) receive the point on the object.
FigObject* objectSearch(CFigContext* ctx, int x, int y, int* px, int* py, FigObject* excluded);
/// The same over a list in place of the working root.
FigObject* objectSearch(CFigContext* ctx, FigObjectList* list, int x, int y, int* px, int* py,
                        FigObject* excluded);

/// Handlers: tag the object and make it current; change its tag.
bool tag_object(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);
bool tag_object_alter(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);

// --- kinds, each over a list or the working root from first to last ---------------------

FigLine* line_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px, int* py,
                     FigObject* excluded);
FigEllipse* ellipse_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px,
                           int* py, FigObject* excluded);
FigArc* arc_search(CFigContext* ctx, int x, int y, int t, int* px, int* py);
FigSpline* spline_search(CFigContext* ctx, FigObjectList* list, int x, int y, int t, int* px,
                         int* py, FigObject* excluded);
/// By the control polygon.
FigSpline* spline_search_like_line(CFigContext* ctx, FigObjectList* list, int x, int y, int t,
                                   int* px, int* py, FigObject* excluded);
FigCompound* compound_search(CFigContext* ctx, int x, int y, int t, int* px, int* py);
FigText* text_search(CFigContext* ctx, int x, int y, int t, int* px, int* py);
FigLine* picbox_search(CFigContext* ctx, int x, int y, int t, int* px, int* py);

// --- points: per axis within t -----------------------------------------------------------

using SplinePointFilter = bool (*)(CFigContext*, FigSpline*, FigPoint*);

FigLine* line_point_search(CFigContext* ctx, FigObject* excluded, int x, int y, int t, int* px,
                           int* py, FigPoint** previous, FigPoint** point);
FigArc* arc_point_search(CFigContext* ctx, FigObject* excluded, int x, int y, int t, int* px,
                         int* py, FigPoint** previous, FigPoint** point, int* number);
FigEllipse* ellipse_point_search(CFigContext* ctx, FigObject* excluded, int x, int y, int t,
                                 int* px, int* py, FigPoint** previous, FigPoint** point,
                                 int* number);
/// A point that the filter refuses does not end the search; a null filter takes all.
FigSpline* spline_point_search(CFigContext* ctx, FigObject* excluded, int x, int y, int t, int* px,
                               int* py, FigPoint** previous, FigPoint** point,
                               SplinePointFilter filter);
FigCompound* compound_point_search(CFigContext* ctx, FigObject* excluded, int x, int y, int t,
                                   int* px, int* py, int* number);
/// All points of an interpolated spline, only the ends of another.
bool checkObjectForSnapping(CFigContext* ctx, FigSpline* spline, FigPoint* point);
/// Points of lines, arcs and splines of the working root within t; the found one replaces x, y.
bool doPointSearchForSnapping(CFigContext* ctx, FigObject* excluded, int t, int* x, int* y);

// --- single objects --------------------------------------------------------------------------

/// t for the segments, t2 for the first point alone. sx1 to sy2 receive the segment's ends.
bool close_to_polyline(FigLine* line, int x, int y, int t, int t2, int* px, int* py, int* sx1,
                       int* sy1, int* sx2, int* sy2);
/// The segment of a line near (x, y), with the indexes of its ends; the right end of the closing
/// segment of a closed line is the first point.
bool line_segment_search(CFigContext* ctx, FigLine* line, FigPoint** left, FigPoint** right,
                         int* leftIndex, int* rightIndex, int x, int y, int t, int* px, int* py);
bool isPointOnArc(CFigContext* ctx, FigArc* arc, int x, int y, int t, int* px, int* py);
bool isPointOnSpline(CFigContext* ctx, FigSpline* spline, int x, int y, int t, int* px, int* py);
/// The last segment of the flattened spline that is near wins.
bool close_to_spline(CFigContext* ctx, FigSpline* spline, int x, int y, int t, int* px, int* py,
                     int* sx1, int* sy1, int* sx2, int* sy2);
bool isPointOnEllipse(CFigContext* ctx, FigEllipse* ellipse, int x, int y, int t, int* px, int* py);
bool isPointOnEllipseCenter(FigEllipse* ellipse, int x, int y, double r);
/// With the direction of the tangent at the hit, in single precision.
bool close_to_ellipse(FigEllipse* ellipse, int x, int y, int t, float* px, float* py, float* tx,
                      float* ty);

// --- regions -----------------------------------------------------------------------------------

/// Changes the tag of every object of the working root that lies wholly inside.
void tag_obj_in_region(CFigContext* ctx, int x1, int y1, int x2, int y2);
void getObjectsInRegion(CFigContext* ctx, FigObjectList* result, int x1, int y1, int x2, int y2);
