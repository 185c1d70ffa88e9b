// What the engine asks of the windows, answered by the real ones.
#include "model/shell.h"

#include "model/FigContext.h"
#include "ui/Components/QsLog/QsLog.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"
#include "ui/application.h"

#include <QGuiApplication>
#include <QMessageBox>
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

void shell_draw_layer_buttons(CFigContext*) {}

void shell_set_window_modified(QTChildFrm* window, bool modified)
{
    if (window)
        window->setWindowModified(modified);
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
