// The tool that deletes points from lines and splines.
#pragma once

class CFigContext;
class FigLine;
class FigObject;
class FigPoint;
class FigSpline;

void delete_point_selected(CFigContext* ctx);
/// Point handler: refuses, with a message, what would leave too few points.
bool init_delete_point(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py,
                       FigPoint* previous, FigPoint* point, int number);
void linepoint_deleting(CFigContext* ctx, FigLine* line, FigPoint* previous, FigPoint* point);
void splinepoint_deleting(CFigContext* ctx, FigSpline* spline, FigPoint* previous, FigPoint* point);
