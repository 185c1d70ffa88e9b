#include "RecordingShell.h"

#include "edit/command.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/u_redraw.h"

#include <QImage>

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

QImage shell_canvas_image(QTChildFrm*)
{
    return QImage();
}

void shell_redisplay_canvas(QTChildFrm*)
{
    recordingShell.redraws.append("canvas");
}

void shell_redisplay_object_list(QTChildFrm*, QLinkedList<FigObject*>*, int depth)
{
    recordingShell.redraws.append(QString("depth %1").arg(depth));
}

void shell_switch_command(int command)
{
    recordingShell.panels.append(QString("switch %1").arg(command));
    if (recordingShell.onSwitchCommand)
        recordingShell.onSwitchCommand(command);
    else
        cur_command = command;
}

void shell_show_context_dialog(int command)
{
    recordingShell.panels.append(QString("command %1").arg(command));
}

void shell_show_attributes_bar(CFigContext* ctx, FigObject* object)
{
    recordingShell.panels.append(QString("attributes %1").arg(object ? object->type : 0));
    if (recordingShell.onAttributesBar)
        recordingShell.onAttributesBar(ctx, object);
}

void shell_comment_changed(bool hasComment)
{
    recordingShell.panels.append(QString("comment %1").arg(hasComment));
}

void shell_show_ellipse_coords(bool, FigEllipse*)
{
    recordingShell.panels.append("ellipse coordinates");
}

void shell_update_buttons(QTChildFrm*)
{
    recordingShell.panels.append("buttons");
}

void shell_update_colors(CFigContext*)
{
    recordingShell.panels.append("colors");
}

bool shell_enter_text(CFigContext*, QString* text)
{
    recordingShell.boxes.append("text: " + *text);
    if (recordingShell.answer)
        *text = recordingShell.enteredText;
    return recordingShell.answer;
}

void shell_edit_picture(CFigContext*, FigLine*)
{
    recordingShell.boxes.append("picture");
}

void shell_refresh_obj_area(CFigContext* ctx, FigObject* object, bool exclude)
{
    refresh_obj_area(ctx, object, exclude);
}

void shell_refresh_obj_area(CFigContext* ctx, QLinkedList<FigObject*>* list, bool exclude)
{
    refresh_obj_area(ctx, list, exclude);
}
