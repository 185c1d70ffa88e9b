// New objects from the current attributes: what the creation tools and the scripts share.
// Every builder takes a fresh id; the caller owns the result. Figure units.
#pragma once

#include "edit/command.h"
#include "model/FigObjects.h"

#include <QPoint>

#include <initializer_list>

class CFigContext;

/// Takes the chain over. Only the chain under construction of the context is closed for
/// sub-type 3, by a copy of its first point; a caller's chain is taken as it comes.
FigLine* createLineFromCurrentAttrs(CFigContext* ctx, int subtype, FigPoint* points);
FigLine* createRegpolyFromCurrentAttrs(CFigContext* ctx);
FigLine* createBoxFromCurrentAttrs(CFigContext* ctx);
FigLine* createPicFromCurrentAttrs(CFigContext* ctx);
/// Takes the chain over. Shape factors are the caller's business (make_sfactors).
FigSpline* createSplineFromCurrentAttrs(CFigContext* ctx, int subtype, FigPoint* points);
FigEllipse* createEllipseFromCurrentAttrs(CFigContext* ctx);
/// Direction from arcPoints; arrows when the automatic modes ask for them and the arc is open.
FigArc* createArcFromCurrentAttrs(CFigContext* ctx);
FigText* createTextFromCurrentAttrs(CFigContext* ctx, const QString& text, int x, int y);

/// Arrowheads of the automatic modes on an open line, open spline or open arc.
void addAutoArrows(CFigContext* ctx, FigObject* object);

/// Puts a finished object into the working root as one undoable step, tags it, shows it and makes
/// it current. The document owns it from then on.
void add_created_object(CFigContext* ctx, FigObject* object);
/// A new chain of these places, which the caller owns; null for none.
FigPoint* make_chain(std::initializer_list<QPoint> places);
/// The chain under construction is handed over or freed.
FigPoint* takeChain(CFigContext* ctx);
void freeChain(CFigContext* ctx);

// --- states that the tools share ----------------------------------------------------

/// Idle state: only a left press does anything.
void wait_for_first_point(ButtonProc init);
/// Active state: both ends of the rubber band at (x, y), no current object, and the procedures in
/// their slots.
void begin_gesture(CFigContext* ctx, int x, int y, PointerProc move, ButtonProc next,
                   RightButtonProc cancel);
/// fix and cur become (x, y).
void anchor_gesture(int x, int y);
/// The shape from fix to cur; drawn once more it is wiped.
void draw_rubber_band(CFigContext* ctx, ElasticProc shape);
/// The first draw, which redraws then repeat.
void show_rubber_band(CFigContext* ctx, ElasticProc shape);
/// last_edited_point becomes (x, y).
void note_edited_point(int x, int y);
