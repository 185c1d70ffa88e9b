// What the engine asks of the windows: status line, questions, layer panel, active document.
// Declared here, defined in ui; tests and tools link a recording double instead.
#pragma once

#include <QString>

class CFigContext;
class FigObject;
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

/// Redraws the whole canvas of the window. Nothing for null.
void shell_redisplay_canvas(QTChildFrm* window);

/// Draws the objects of one depth over the canvas of the window. Nothing for null.
void shell_redisplay_object_list(QTChildFrm* window, QLinkedList<FigObject*>* list, int depth);
