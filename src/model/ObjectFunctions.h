// Operations on objects and object lists: flags, walking, searching, copying, ids.
// None of them redraws and none records undo. "Recursive" means that a compound is visited
// first, then its members.
#pragma once

#include "model/FigObjects.h"

#include <QMap>
#include <QSet>

class CFigContext;
using FigObjectList = QLinkedList<FigObject*>;

// --- one object -------------------------------------------------------------

void setIgnoreFlag(FigObject* object);
void clearIgnoreFlag(FigObject* object);
void setMarkedFlag(FigObject* object);   ///< marked becomes 1
void clearMarkedFlag(FigObject* object); ///< marked becomes 0
void setTaggedFlag(FigObject* object);
void clearTaggedFlag(FigObject* object);
void copyTaggedFlagToIgnoreFlag(FigObject* object);
void setTexCallFailedFlag(FigObject* object, bool failed);
void disposeImages(FigObject* object);

/// False for all but lines and splines; a line is closed unless a polyline, a spline by bit 0.
bool isClosed(FigObject* object);
bool isEndpoint(FigPath* path, FigPoint* point);
/// As above for a polyline or an open spline; false for everything else.
bool isEndpoint(FigObject* object, FigPoint* point);

/// Clones with a new id. Unless keepLinks, links of the copy are deleted.
FigArc* copy_arc(CFigContext* ctx, FigArc* object);
FigEllipse* copy_ellipse(CFigContext* ctx, FigEllipse* object);
FigText* copy_text(CFigContext* ctx, FigText* object);
FigLine* copy_line(CFigContext* ctx, FigLine* object, bool keepLinks);
FigSpline* copy_spline(CFigContext* ctx, FigSpline* object, bool keepLinks);
FigCompound* copy_compound(CFigContext* ctx, FigCompound* object);
/// By type; lines and splines lose their links. Null for an unknown type.
FigObject* copy(CFigContext* ctx, FigObject* object);
/// New ids for the compound, then its members, recursively.
void assignNewIds(CFigContext* ctx, FigCompound* compound);

/// Arrow record from the numbers of a file. A kind above 15 becomes 0 with style 0, a negative
/// kind the same; a style other than 0 and 1 becomes 0; unusable sizes take the current
/// attributes. lineThickness has no effect. The caller owns the result.
FigArrow* new_arrow(CFigContext* ctx, int kind, int style, float thickness, float width,
                    float height, int lineThickness);

/// Moves all points. Ends whose link has its flag set stay; a compound moves its members and
/// recomputes its corners from their exact bounds, measured with ctx.
void translate_object(CFigContext* ctx, FigObject* object, int dx, int dy);
/// The same, measured with the active document's context, or a default one if there is none.
void translate_object(FigObject* object, int dx, int dy);
void translate_object_list(CFigContext* ctx, FigObjectList* list, int dx, int dy);
void translate_object_list(FigObjectList* list, int dx, int dy);
/// Corners of a compound and of those in it from their exact bounds; each object is measured once,
/// however deep it lies.
void update_compound_corners(CFigContext* ctx, FigCompound* compound);

// --- walking and asking -----------------------------------------------------

void applyFunction(FigObjectList* list, void (*function)(FigObject*));
void applyFunction(FigObjectList* list, void (*function)(FigObject*, bool), bool argument);
void applyFunction(FigObjectList* list, void (*function)(FigObject*, int, int), int a, int b);
void set_tags(FigObjectList* list, bool tagged);    ///< recursive
void set_marked(FigCompound* compound, int marked); ///< direct members
bool isAnotherObjectTagged(FigObjectList* list, FigObject* object);
bool moreThanOneTaggedObject(FigObjectList* list);
bool isAllObjectsOfSameType(FigObjectList* list);
int object_count(FigObjectList* list);
int object_count(FigCompound* compound);
/// Number of objects that are not compounds, recursive. 0 for null.
int countObjects(FigObjectList* list);
void getObjectsByType(FigObjectList* list, int type, FigObjectList& out);
/// The caller owns the new list.
FigObjectList* getObjectsByType(FigObjectList* list, int type);
/// Recursive; null for id -1 and where nothing is found.
FigObject* findObjectById(FigObjectList* list, long id);
FigCompound* getParentCompound(FigObjectList* list, FigObject* object);
FigCompound* getCompoundByObjectList(FigObjectList* list, FigObjectList* objects);
bool isInCompound(FigCompound* compound, FigObject* object);
/// Recursive. byId false compares pointers, true ids (an id of -1 finds nothing).
bool isInList(FigObjectList* list, FigObject* object, bool byId);
bool isInList(FigPoint* first, FigPoint* point);
bool isInList(QList<FigLink*>* list, FigLink* link);
FigCompound* get_root_compound(FigCompound* compound);

// --- changing lists ---------------------------------------------------------

void removeObject(FigObjectList* list, FigObject* object);
void removeObjects(FigObjectList* list, FigObjectList* others);
void removeObjects(FigObjectList* list, FigCompound* compound);
void removeAll(FigObjectList* list, FigObjectList* others);
void removeObjectById(FigObjectList* list, FigObject* object);
/// Puts object in the place of the one with its id, at any level. The old one is not deleted.
bool replaceObjectById(FigObjectList* list, FigObject* object);
int replaceObjects(CFigContext* ctx, FigObjectList* list);
void addObjects(FigObjectList* list, FigCompound* compound);
void copyObjectList(FigObjectList* from, FigObjectList* to);
/// Deletes the objects and empties the list; the list itself stays.
void deleteObjectList(FigObjectList* list);
/// A new list of clones, owned by the caller; null for null.
FigObjectList* cloneObjects(FigObjectList* list);
void cloneObjects(FigObjectList* from, FigObjectList* to);
void cloneObjects(FigCompound* from, FigCompound* to);
FigCompound* cloneCompound(FigCompound* compound);
/// Shares the member pointers: the caller clears the member list before deleting it.
FigCompound* shallowCopyCompound(FigCompound* compound);
/// Appends; on the drawing's own list the depth table follows.
void list_add(CFigContext* ctx, FigObjectList* list, FigObject* object);
/// Removes without deleting. 0 for a null list, 1 for a null object, else whether it was there.
int list_delete(CFigContext* ctx, FigObjectList* list, FigObject* object);

// --- ids and links ----------------------------------------------------------

/// Greatest id at any level, never below 0.
long getMaxId(FigObjectList* list);
long completeObjectIds(FigObjectList* list, long startId);
bool checkObjectIds(FigObjectList* list, QSet<long>* seen);
long renumberObjectIds(FigObjectList* list, long startId);
/// oldToNew may be null.
void assignNewIDs(CFigContext* ctx, FigObjectList* list, QMap<long, long>* oldToNew);
/// Renames link targets by the map, re-resolves their points in list, deletes all other links.
void maintainLinks(FigObjectList* list, QMap<long, long>& oldToNew);
FigObjectList* copyObjectsAndMaintainLinks(CFigContext* ctx, FigObjectList* list);
void getIDs(FigObjectList* list, QMap<long, long>& ids);
void deleteDanglingLinks(QMap<long, long>& ids, FigObjectList* list, bool tagged);
void deleteDanglingLinks(FigObjectList* list1, FigObjectList* list2, bool tagged);
