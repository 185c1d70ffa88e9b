// What the engine asks of the windows, answered by the real ones.
#include "model/shell.h"

#include "model/FigContext.h"
#include "render/u_redraw.h"
#include "ui/Components/QsLog/QsLog.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"
#include "ui/ShapesToolbar.h"
#include "ui/TextEnterDlg.h"
#include "ui/application.h"

#include <QGuiApplication>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>

void print_msg()
{
    if (mainWnd)
        mainWnd->statusBar()->showMessage(message_line, 0);
}

CFigContext* getFigContext()
{
    const QTChildFrm* child = mainWnd ? mainWnd->activeMdiChild() : nullptr;
    return child ? child->figContext : nullptr;
}

void shell_log(const QString& line)
{
    QSLOG(QsLogging::Info).nospace().noquote() << line;
}

// Boxes have the main window as parent: without it, none is shown.

void shell_info(const QString& title, const QString& text)
{
    if (mainWnd)
        QMessageBox::information(mainWnd, title, text);
}

void shell_warning(const QString& title, const QString& text)
{
    if (mainWnd)
        QMessageBox::warning(mainWnd, title, text);
}

bool shell_question(const QString& title, const QString& text)
{
    return mainWnd && QMessageBox::warning(mainWnd, title, text, QMessageBox::Yes | QMessageBox::No,
                                           QMessageBox::No) == QMessageBox::Yes;
}

void shell_draw_layer_buttons(CFigContext* ctx)
{
    if (mainWnd)
        mainWnd->showLayers(ctx);
}

void shell_set_window_modified(QTChildFrm* window, bool modified)
{
    if (!window)
        return;
    window->setWindowModified(modified);
    // Every step of the undo queue comes by here.
    window->mainFrm->updateHistoryActions();
}

void shell_window_dpi(QTChildFrm* window, float* dpiX, float* dpiY)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (window) {
        *dpiX = static_cast<float>(window->logicalDpiX());
        *dpiY = static_cast<float>(window->logicalDpiY());
    } else {
        *dpiX = screen ? static_cast<float>(screen->logicalDotsPerInchX()) : 80.0f;
        *dpiY = screen ? static_cast<float>(screen->logicalDotsPerInchY()) : 80.0f;
    }
}

void shell_viewport_size(QTChildFrm* window, int* width, int* height)
{
    *width = window ? window->viewport()->width() : 0;
    *height = window ? window->viewport()->height() : 0;
}

void shell_effective_size(QTChildFrm* window, int* width, int* height)
{
    *width = window ? window->effectiveWidth() : 0;
    *height = window ? window->effectiveHeight() : 0;
}

QImage shell_canvas_image(QTChildFrm* window)
{
    return window ? *window->canvasImage : QImage();
}

void shell_redisplay_canvas(QTChildFrm* window)
{
    if (window)
        window->redisplayCanvas();
}

void shell_redisplay_object_list(QTChildFrm* window, QLinkedList<FigObject*>* list, int depth)
{
    if (window)
        window->redisplayObjectList(list, depth);
}

void shell_switch_command(int command)
{
    if (mainWnd)
        mainWnd->shapesToolbar()->switchCommand(command);
}

void shell_show_context_dialog(int command)
{
    if (mainWnd)
        mainWnd->showContextDialog(command);
}

void shell_show_attributes_bar(CFigContext* ctx, FigObject* object)
{
    if (mainWnd)
        mainWnd->showAttributesBar(ctx, object);
}

void shell_comment_changed(bool hasComment)
{
    if (mainWnd)
        mainWnd->fireCommentChanged(hasComment);
}

void shell_show_ellipse_coords(bool metric, FigEllipse* ellipse)
{
    if (mainWnd)
        mainWnd->showEllipseCoords(metric, ellipse);
}

void shell_update_buttons(QTChildFrm* window)
{
    if (window)
        window->updateButtons();
}

void shell_update_colors(CFigContext* ctx)
{
    if (mainWnd)
        mainWnd->updateColors(ctx);
}

/// The canvas may be resized under the dialog, so nobody paints on it meanwhile. Who was painting
/// before goes on afterwards.
bool shell_enter_text(CFigContext* ctx, QString* text)
{
    if (!mainWnd)
        return false;
    const QPointer<QTChildFrm> window = ctx->chFrm;
    const bool hasWindow = ctx->chFrm;
    const bool wasPainting = hasWindow && window->painter.isActive();
    if (wasPainting)
        window->endPaint();
    TextEnterDlg dialog(mainWnd);
    dialog.setText(*text);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    if (hasWindow && !window)
        return false; // the document has gone
    if (wasPainting)
        window->beginPaint();
    if (accepted)
        *text = dialog.getText();
    return accepted;
}

/// Pictures come with their dialog, which loads the file; until then a picture box stays empty.
void shell_edit_picture(CFigContext*, FigLine*) {}

void shell_refresh_obj_area(CFigContext* ctx, FigObject* object, bool exclude)
{
    if (ctx->chFrm)
        ctx->chFrm->refreshObjArea(object, exclude);
    else
        refresh_obj_area(ctx, object, exclude);
}

void shell_refresh_obj_area(CFigContext* ctx, QLinkedList<FigObject*>* list, bool exclude)
{
    if (ctx->chFrm)
        ctx->chFrm->refreshObjArea(list, exclude);
    else
        refresh_obj_area(ctx, list, exclude);
}
