// Tools that turn or mirror the object under the pointer: the left button the object itself, the
// right button copies of it, Shift with the left button sets or clears the user's centre. Without
// that, the left button turns about the pointer, all others about the point on the object.
#pragma once

class CFigContext;
class FigObject;

extern int rotn_dirn;     ///< 1 clockwise, -1 counter-clockwise
extern int act_rotnangle; ///< degrees of the next turn
extern int doCopy;        ///< 1 while a turn works on a copy
extern int flip_axis;     ///< 1 up-down, 2 left-right
extern int flip_copy;     ///< as doCopy, of the mirroring

void rotate_cw_selected(CFigContext* ctx);
void rotate_ccw_selected(CFigContext* ctx);
void rotate_selected(CFigContext* ctx);
void flip_ud_selected(CFigContext* ctx);
void flip_lr_selected(CFigContext* ctx);
void flip_selected(CFigContext* ctx);

// Handlers.
bool init_rotate(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);
/// cur_numcopies copies at multiples of the angle, each an undo step of its own.
bool init_copynrotate(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);
bool init_flip(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);
bool init_copynflip(CFigContext* ctx, FigObject* object, int type, int x, int y, int px, int py);

/// Sets the user's centre and shows it, or clears the one that is there.
void set_unset_center(CFigContext* ctx, int x, int y);
/// Turn or mirror one object, or a copy by doCopy and flip_copy, as one undo step.
void rotate_search(CFigContext* ctx, FigObject* object, int cx, int cy);
void flip_search(CFigContext* ctx, FigObject* object, int cx, int cy);
