// Smart links: ends of open lines and splines that stay on the outline of another object.
//
// Links are one-sided: only the source's point knows its target, by id, and whoever changes an
// object looks through a list for the points that name it. Walks enter compounds. Every function
// that takes a list takes null for "nothing to walk". Figure units.
#pragma once

#include "model/ObjectFunctions.h"

using FigLinkList = QList<FigLink*>;
using FigPointList = QList<FigPoint*>;

/// Open polylines and open splines. False for null.
bool isLinkableSourceObject(FigObject* object);
/// Ellipses, closed lines (pictures among them) and closed splines. False for null.
bool isLinkableTargetObject(FigObject* object);

// --- making ---------------------------------------------------------------------

/// Line, ellipse or spline of list under the position.
FigObject* objectSearchForLinks(CFigContext* ctx, FigObjectList* list, int x, int y, int* px,
                                int* py, FigObject* excluded);
/// Pulls (x, y) onto the object under it if source may be linked to that. False otherwise.
bool checkForConnection(CFigContext* ctx, int* x, int* y, FigObject* source);
/// A new link of the point to what lies under it, and the point put exactly there; null where
/// nothing linkable lies. The caller stores the link on the point.
FigLink* makeConnection(CFigContext* ctx, FigObjectList* list, FigPoint* point, FigObject* source);
/// Links one point; the link is stored and appended to found.
void searchForLinks(CFigContext* ctx, FigObject* source, FigPoint* point, FigObjectList* list,
                    FigLinkList* found);
/// Links both ends of every linkable source of objects to what they touch in list.
void createSmartLinks(CFigContext* ctx, FigObjectList* list, FigObjectList* objects,
                      FigLinkList* found);

// --- collecting, taking off, putting back ------------------------------------------

/// keep false deletes the records; true leaves them to whoever holds them.
void removeAllLinks(FigPath* path, bool keep);
void removeAllLinks(FigObjectList* list, bool keep);
void removeAllLinks(FigLinkList* links, bool keep);
void getLinksInObject(FigPath* path, FigLinkList* out);
void getAllLinks(FigPath* path, FigLinkList* out);
void getAllLinks(FigObjectList* list, FigLinkList* out);
void restoreLinks(FigLinkList* links);
void updateLinkLRPointIndex(FigPointList* points, FigPath* path);
/// What in list links to object, or to a member of it; without duplicates. True when there is any.
bool findLinksThatConnectTo(FigObjectList* list, FigObject* object, FigLinkList* found);
bool findObjectsThatConnectTo(FigObjectList* list, FigObject* object, FigObjectList* found);
bool findPointsThatConnectTo(FigObjectList* list, FigObject* object, FigPointList* found);

// --- what has to follow a change ------------------------------------------------------

void collectWorkingObjects4Translate(FigObjectList* list, FigObject* object, FigObjectList* found);
/// Without objects themselves.
void collectWorkingObjects4Translate(FigObjectList* list, FigObjectList* objects,
                                     FigObjectList* found);
void collectWorkingObjects4MovePoint(FigObjectList* list, FigObject* object, FigObjectList* found);

/// Decides which linked ends of object stay where they are: those whose target is not in list or
/// not among moved.
void fix_links_before_translate(FigObject* object, FigObjectList* list, FigObjectList* moved);
/// The same for each of objects.
void fix_links_before_translate(FigObjectList* objects, FigObjectList* list, FigObjectList* moved);
/// The same by the tagged flag of the target.
void fix_links_before_translate(FigObject* object, FigObjectList* list);

// The points that are linked to a changed object follow it. done holds the points moved in this
// pass; changed receives the objects of the points that did move. working null means any object;
// membership is by id. moved are the objects that move themselves, null for none.
void adjust_links_translate(FigObject* object, FigObjectList* list, int dx, int dy,
                            FigObjectList* changed, FigObjectList* working, FigPointList* done,
                            FigObjectList* moved = nullptr);
/// For all of objects in one walk. Their ends must have been decided on before the first of them
/// was moved, since moved are told from left behind by what stayed.
void adjust_links_translate(FigObjectList* objects, FigObjectList* list, int dx, int dy,
                            FigObjectList* changed, FigObjectList* working, FigPointList* done,
                            FigObjectList* moved = nullptr);
void adjust_links_scale(FigObject* object, float xfactor, float yfactor, int cx, int cy,
                        FigObjectList* list, FigObjectList* changed, FigPointList* done,
                        FigObjectList* moved = nullptr);
void adjust_links_scale(FigObjectList* objects, float xfactor, float yfactor, int cx, int cy,
                        FigObjectList* list, FigObjectList* changed, FigPointList* done,
                        FigObjectList* moved = nullptr);
/// Degrees, positive clockwise on the screen.
void adjust_links_rotate_ellipse(FigEllipse* ellipse, int cx, int cy, int angle,
                                 FigObjectList* list, FigObjectList* changed, FigPointList* done);
/// direction 1 mirrors y about cy, 2 mirrors x about cx.
void adjust_links_flip_ellipse(FigEllipse* ellipse, int cx, int cy, int direction,
                               FigObjectList* list, FigObjectList* changed, FigPointList* done);
/// Point index of object has been moved by (dx, dy).
void adjust_links_move_point(FigObject* object, int index, FigObjectList* list, int dx, int dy,
                             FigObjectList* changed, FigPointList* done);
/// An ellipse before and after a change of its radii.
void adjust_links_resize_ellipse(CFigContext* ctx, FigEllipse* ellipse, FigEllipse* former,
                                 FigObjectList* list, FigObjectList* changed, FigPointList* done);
/// Before a point of a target goes: links on its segments take the neighbours.
void updateLinks4removedPoint(CFigContext* ctx, FigObject* object, FigPath* path, bool open,
                              FigPoint* point);
