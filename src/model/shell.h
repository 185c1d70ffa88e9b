// What the engine asks of the windows: status line, questions, layer panel, active document.
// Declared here, defined in ui; tests and tools link a recording double instead.
#pragma once

#include <QString>

class CFigContext;
class FigEllipse;
class FigLine;
class FigObject;
class QImage;
class QTChildFrm;
template <class T> class QLinkedList;

/// The line that the status bar shows. Written by put_msg, read by print_msg.
extern QString message_line;

/// Posts one line to the status bar. The formats take %s (UTF-8), %d and %ld as printf does.
void put_msg(const char* text);
void put_msg(const char* format, const char* a);
void put_msg(const char* format, const char* a, const char* b);
void put_msg(const char* format, const char* a, const char* b, const char* c);
void put_msg(const char* format, long a);
void put_msg(const char* format, long a, long b);
void put_msg(const char* format, long a, const char* b);
void put_msg(const char* format, const char* a, long b);
void put_msg(const char* format, long a, long b, long c);

/// Shows message_line again. Defined by the shell; without a main window nothing is shown.
void print_msg();

/// The context of the active document, or null when there is none.
CFigContext* getFigContext();

/// Adds one line to the log.
void shell_log(const QString& line);

/// Modal boxes with one OK button.
void shell_info(const QString& title, const QString& text);
void shell_warning(const QString& title, const QString& text);

/// Modal warning box with Yes and No, default No. True for Yes.
bool shell_question(const QString& title, const QString& text);

/// Redraws the layer panel for ctx; null blanks it.
void shell_draw_layer_buttons(CFigContext* ctx);

/// Sets or clears the modified mark in the title of a document window.
void shell_set_window_modified(QTChildFrm* window, bool modified);

/// Logical resolution of the window in dots per inch; of the primary screen for a null window,
/// 80.0 where there is none.
void shell_window_dpi(QTChildFrm* window, float* dpiX, float* dpiY);

/// Size in pixels of the part of the window that shows the canvas: the viewport, and the
/// widget less its scroll bars. Both 0 by 0 for a null window.
void shell_viewport_size(QTChildFrm* window, int* width, int* height);
void shell_effective_size(QTChildFrm* window, int* width, int* height);

/// What the window's canvas shows; a null image for a null window.
QImage shell_canvas_image(QTChildFrm* window);

/// Redraws the whole canvas of the window. Nothing for null.
void shell_redisplay_canvas(QTChildFrm* window);

/// Draws the objects of one depth over the canvas of the window. Nothing for null.
void shell_redisplay_object_list(QTChildFrm* window, QLinkedList<FigObject*>* list, int depth);

// --- panels and dialogs ---------------------------------------------------------------

/// Chooses a command as a click on its button would.
void shell_switch_command(int command);
/// Shows the attribute panel of a command; a negative number means the command in force.
void shell_show_context_dialog(int command);
/// Takes the object's attributes over and shows its panel, or the empty one for null. A null
/// context means the active document.
void shell_show_attributes_bar(CFigContext* ctx, FigObject* object);
/// Tells the panels whether the selected object has a comment.
void shell_comment_changed(bool hasComment);
/// Shows the measures of the ellipse in work.
void shell_show_ellipse_coords(bool metric, FigEllipse* ellipse);
/// Brings the buttons for compounds, conversion, alignment and the library up to date.
void shell_update_buttons(QTChildFrm* window);
/// The colour dialog and the panels show the document's colours anew.
void shell_update_colors(CFigContext* ctx);

/// Asks for a line of text, starting with *text. False if the user cancels. The document's painter
/// is put down for the time of the dialog.
bool shell_enter_text(CFigContext* ctx, QString* text);
/// Lets the user choose the file and size of a picture; the same about the painter.
void shell_edit_picture(CFigContext* ctx, FigLine* picture);

/// Redraws the area of an object in a bracket of the document's window; without a window with the
/// context's own painter.
void shell_refresh_obj_area(CFigContext* ctx, FigObject* object, bool exclude);
void shell_refresh_obj_area(CFigContext* ctx, QLinkedList<FigObject*>* list, bool exclude);
