#include "RecordingShell.h"

#include "model/shell.h"

RecordingShell recordingShell;

void RecordingShell::clear()
{
    *this = RecordingShell();
}

void print_msg()
{
    recordingShell.messages.append(message_line);
}

CFigContext* getFigContext()
{
    return recordingShell.activeContext;
}

void shell_log(const QString& line)
{
    recordingShell.logLines.append(line);
}

void shell_info(const QString& title, const QString& text)
{
    recordingShell.boxes.append(title + ": " + text);
}

void shell_warning(const QString& title, const QString& text)
{
    recordingShell.boxes.append(title + ": " + text);
}

bool shell_question(const QString& title, const QString& text)
{
    recordingShell.boxes.append(title + ": " + text);
    return recordingShell.answer;
}

void shell_draw_layer_buttons(CFigContext*)
{
    ++recordingShell.layerPanelUpdates;
}

void shell_set_window_modified(QTChildFrm*, bool) {}

void shell_window_dpi(QTChildFrm*, float* dpiX, float* dpiY)
{
    *dpiX = recordingShell.dpiX;
    *dpiY = recordingShell.dpiY;
}

void shell_viewport_size(QTChildFrm*, int* width, int* height)
{
    *width = recordingShell.viewportWidth;
    *height = recordingShell.viewportHeight;
}

void shell_effective_size(QTChildFrm*, int* width, int* height)
{
    shell_viewport_size(nullptr, width, height);
}

void shell_redisplay_canvas(QTChildFrm*)
{
    recordingShell.redraws.append("canvas");
}

void shell_redisplay_object_list(QTChildFrm*, QLinkedList<FigObject*>*, int depth)
{
    recordingShell.redraws.append(QString("depth %1").arg(depth));
}
