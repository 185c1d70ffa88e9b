// Arrowheads: making, putting on, taking off, and the arrowhead tool.
#pragma once

#include "edit/u_undo.h"
#include "model/ObjectFunctions.h"

enum ArrowDirection { ARROW_BACKWARD = 0, ARROW_FORWARD = 1 };

/// Head of a type number of the panels (0 the stick, then pairs of hollow and filled) for a line of
/// that width, display units. Sizes by the current attributes. The caller owns it. The form with
/// numbers from a file is in ObjectFunctions.
FigArrow* new_arrow(CFigContext* ctx, float thickness, int type, int lineWidth);

/// Whether heads belong on the ends of an object: open lines and splines of two points or more, and
/// open arcs.
bool canHaveArrows(FigObject* object);
/// Kind and style of a type number, and the number of a head; below 0 counts as 0.
int arrowKind(int type);
int arrowStyle(int type);
int arrowTypeNumber(const FigArrow* arrow);

/// Put an arrow on and return the old one, which the caller owns. Null removes.
FigArrow* add_linearrow(FigLine* line, ArrowDirection direction, FigArrow* arrow);
FigArrow* add_splinearrow(FigSpline* spline, ArrowDirection direction, FigArrow* arrow);
FigArrow* add_arcarrow(FigArc* arc, ArrowDirection direction, FigArrow* arrow);
FigArrow* remove_linearrow(FigLine* line, ArrowDirection direction);
FigArrow* remove_splinearrow(FigSpline* spline, ArrowDirection direction);
FigArrow* remove_arcarrow(FigArc* arc, ArrowDirection direction);
/// By type; returns `arrow` itself for an object that has no arrows.
FigArrow* add_arrow(FigObject* object, ArrowDirection direction, FigArrow* arrow);

/// Appends the change that brings an arrow to the current attributes, if there is a difference.
void getArrowChangesList(CFigContext* ctx, FigObject* object, FigArrow* arrow,
                         ArrowDirection direction, QList<ActionItem*>* list, bool useList);
/// Sizes by the line width, if the object has both heads.
void updateArrowSize(CFigContext* ctx, FigObject* object);

/// Idle state of the arrowhead tool.
void arrow_head_selected();
/// Point handler of the tool: adds a head at an end, or removes the one that is there.
bool change_arrow_head(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py,
                       FigPoint* previous, FigPoint* point, int number);
