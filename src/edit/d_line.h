// Tool for polylines and polygons: left clicks collect points, a right click finishes. The splines
// share the collecting of points.
#pragma once

class CFigContext;
class FigObject;

void line_drawing_selected(CFigContext* ctx);
FigObject* init_line_drawing(CFigContext* ctx, int x, int y, FigObject*);
/// First point of a chain: installs the rubber line that the constraint modes ask for.
FigObject* init_trace_drawing(CFigContext* ctx, int x, int y, FigObject*);
FigObject* get_intermediatepoint(CFigContext* ctx, int x, int y, FigObject*);
void create_lineobject(CFigContext* ctx, int x, int y, FigObject*);
void cancel_line_drawing(CFigContext* ctx, int x, int y, FigObject*); ///< no state installs it
/// Wipes the rubber line and the segments behind it, and frees the chain.
void wipe_chain(CFigContext* ctx);
