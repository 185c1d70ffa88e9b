// Feedback with the objects themselves: each step runs the real change on copies that stand in
// the document for the length of the drawing, and leaves the document as it was.
#pragma once

#include "model/ObjectFunctions.h"

/// Deep copies of what the last step has drawn, so that the next one can wipe exactly that.
/// Owned here; emptied with deleteObjectList when a gesture starts or ends.
extern FigObjectList oldElasticObjectList;

/// In drawings of at least so many objects the first step notes what stands still; in smaller ones
/// that would gain nothing.
extern int objectsWorthNoting;

/// A gesture starts: nothing is known of what earlier ones have shown.
void start_feedback();
/// The gesture is over, and the objects show as they are. Where its steps have laid pictures over
/// each other the canvas is drawn anew, for edges there may be off by a hair. Without feedback, and
/// without an active painter, nothing happens but that memory is freed.
void finish_feedback(CFigContext* ctx);

/// Drag, paste and placing: the objects, and what is linked to them, at cur minus fix.
void elastic_moveobjects(CFigContext* ctx, FigObjectList* objects, int x, int y);
/// Scaling about fix, from the corner fromx, fromy to cur.
void elastic_scaleobjects(CFigContext* ctx, FigObjectList* objects, int x, int y);
// A point of the current object moved: moved_pos, or the point movedpoint_num.
void reshaping_line(CFigContext* ctx, int x, int y);
void reshaping_spline(CFigContext* ctx, int x, int y);
void reshaping_arc(CFigContext* ctx, int x, int y);
void reshaping_ellipse(CFigContext* ctx, int x, int y);

/// The feedback's last picture goes; the objects, and what is linked to them, show as they are.
void show_real_objects(CFigContext* ctx, FigObjectList objects);
/// Deletes the last clone of a spline or arc that the feedback has drawn.
void drop_reshaped_object(CFigContext* ctx);
/// The current object has gone in mid-gesture: the picture is wiped and return_proc runs.
void end_without_object(CFigContext* ctx);
