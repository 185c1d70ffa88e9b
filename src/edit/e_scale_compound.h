// Tool that scales a compound by a corner or an edge of its box.
#pragma once

class CFigContext;
class FigObject;

extern int side;          ///< what was grabbed: edges 0 left, 1 top, 2 right, 3 bottom; 4 a corner
extern double cosa, sina; ///< of a corner: direction of the box's diagonal, without signs

void scale_compound_selected(CFigContext* ctx);
FigObject* init_scale_compound(CFigContext* ctx, int x, int y, FigObject*);
void fix_scalecompound(CFigContext* ctx, int x, int y);
void cancel_scale_compound(CFigContext* ctx, int x, int y, FigObject*);

/// Sets cur_x, cur_y from the pointer: an edge moves on one axis, a corner keeps the proportions.
void compute_adjustposition(int x, int y);
/// The moving end follows the pointer: as above, or freely when snapping to the grid.
void moveScaledEnd(int x, int y);
/// Single precision; 1 where the scaled side has no length.
float scaleFactor(int fixed, int from, int to);
