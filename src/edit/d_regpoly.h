// Tool for regular polygons: the centre, then the first corner.
#pragma once

class CFigContext;
class FigObject;
class FigPoint;

void regpoly_drawing_selected(CFigContext* ctx);
FigObject* init_regpoly_drawing(CFigContext* ctx, int x, int y, FigObject*);
FigObject* create_regpoly(CFigContext* ctx, int x, int y, FigObject*);
void cancel_regpoly(CFigContext* ctx, int x, int y, FigObject*);

/// Closed chain of cur_numsides corners around (cx, cy), beginning and ending with (px, py). With
/// fewer than two sides that point twice. The caller owns it.
FigPoint* calculateRepolyPoints(int cx, int cy, int px, int py);
/// The same by radius and by the angle of the first corner, radians. At least one side.
FigPoint* calculateRepolyPoints(int cx, int cy, double radius, double angle);
