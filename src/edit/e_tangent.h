// Tools that draw the tangent or the normal at a point of a shape.
#pragma once

class CFigContext;
class FigObject;

/// What the handler draws: 1 the tangent, 0 the normal. Written by the tool entries.
extern int tangent;

/// Idle states.
void tangent_selected();
void normal_selected();
/// Handler: a line at (px, py) along or across the smart points of the search, as long as the panel
/// says. True when it was drawn.
bool tangent_or_normal(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);
/// Adds a line of three points, (x, y) between the ends at (dx, dy) before and behind, figure
/// units, with the current attributes as one undo step.
void tangent_normal_line(CFigContext* ctx, int x, int y, double dx, double dy);
