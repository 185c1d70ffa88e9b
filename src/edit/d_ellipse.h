// Tools for circles and ellipses: two clicks each.
#pragma once

class CFigContext;
class FigObject;

void circlebyradius_drawing_selected(CFigContext* ctx);
FigObject* init_circlebyradius_drawing(CFigContext* ctx, int x, int y, FigObject*);
FigObject* create_circlebyrad(CFigContext* ctx, int x, int y, FigObject*);
void cancel_circlebyrad(CFigContext* ctx, int x, int y, FigObject*);

void circlebydiameter_drawing_selected(CFigContext* ctx);
FigObject* init_circlebydiameter_drawing(CFigContext* ctx, int x, int y, FigObject*);
FigObject* create_circlebydia(CFigContext* ctx, int x, int y, FigObject*);
void cancel_circlebydia(CFigContext* ctx, int x, int y, FigObject*);

void ellipsebyradius_drawing_selected(CFigContext* ctx);
FigObject* init_ellipsebyradius_drawing(CFigContext* ctx, int x, int y, FigObject*);
FigObject* create_ellipsebyrad(CFigContext* ctx, int x, int y, FigObject*);
void cancel_ellipsebyrad(CFigContext* ctx, int x, int y, FigObject*);

void ellipsebydiameter_drawing_selected(CFigContext* ctx);
FigObject* init_ellipsebydiameter_drawing(CFigContext* ctx, int x, int y, FigObject*);
FigObject* create_ellipsebydia(CFigContext* ctx, int x, int y, FigObject*);
void cancel_ellipsebydia(CFigContext* ctx, int x, int y, FigObject*);

/// Outline of a turned ellipse by scan lines, into the point list. Radii in figure units, angle in
/// radians. Posts a message, once, when the outline has too many points.
void angle_ellipse(CFigContext* ctx, int cx, int cy, int rx, int ry, float angle);
