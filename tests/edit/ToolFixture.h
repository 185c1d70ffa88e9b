// A document without window, the canvas that its tools draw on, and gestures in figure units.
#pragma once

#include "../fileio/WriterFixture.h"
#include "CurrentAttributes.h"
#include "EngineCanvas.h"
#include "RecordingShell.h"
#include "edit/command.h"
#include "edit/mode.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/markers.h"

#include <QPainter>
#include <QRegularExpression>

/// No tool, no gesture, no constraint, and every current attribute as the program starts with it.
inline void resetToolState()
{
    set_functions(nullptr, nullptr, nullptr, nullptr, nullptr);
    canvas_leftbutUp_proc = nullptr;
    canvas_locmove_proc2 = nullptr;
    canvas_middlebut_save = nullptr;
    reset_action_on();
    resetConstraints();
    cur_command = -1;
    fix_x = fix_y = cur_x = cur_y = 0;
    num_point = min_num_points = 0;
    last_edited_point = FigPoint();
    gridPreferences.snapMode = 0;
    resetCurrentAttributes();
    recordingShell.clear();
}

/// At zoom 1 and 80 pixels per inch: 15 figure units are a pixel.
class ToolDocument {
public:
    explicit ToolDocument(QSize size = {400, 300})
    {
        resetToolState();
        recordingShell.activeContext = &ctx;
        image = drawCanvas(&ctx, size, true);
    }
    ~ToolDocument()
    {
        freePendingChain();
        resetToolState();
    }
    ToolDocument(const ToolDocument&) = delete;
    ToolDocument& operator=(const ToolDocument&) = delete;

    void choose(int command, void (*entry)(CFigContext*))
    {
        cur_command = command;
        entry(&ctx);
    }

    // Antialiasing as the windows set it: for presses as the user likes it, off for cancels and
    // for the moves of drawing tools.
    void left(int x, int y)
    {
        paint(true, [=] {
            if (canvas_leftbut_proc)
                canvas_leftbut_proc(&ctx, x, y, nullptr);
        });
    }
    void right(int x, int y)
    {
        paint(!isCancelCreateObjFunction(canvas_middlebut_proc), [=] {
            if (canvas_middlebut_proc)
                canvas_middlebut_proc(&ctx, x, y, nullptr);
        });
    }
    void move(int x, int y)
    {
        paint(false, [=] {
            if (canvas_locmove_proc)
                canvas_locmove_proc(&ctx, x, y);
            if (canvas_locmove_proc2)
                canvas_locmove_proc2(&ctx, ctx.movedObjects, x, y);
        });
    }
    void release(int x, int y)
    {
        paint(true, [=] {
            if (canvas_leftbutUp_proc)
                canvas_leftbutUp_proc(&ctx, x, y);
        });
    }
    /// Press, three moves and release.
    void drag(int fromX, int fromY, int toX, int toY)
    {
        left(fromX, fromY);
        move(fromX + (toX - fromX) / 3, fromY + (toY - fromY) / 3);
        move(fromX + (toX - fromX) / 3 * 2, fromY + (toY - fromY) / 3 * 2);
        move(toX, toY);
        release(toX, toY);
    }
    /// To the place and pressed there, as a hand does it.
    void moveAndLeft(int x, int y)
    {
        move(x, y);
        left(x, y);
    }
    void moveAndRight(int x, int y)
    {
        move(x, y);
        right(x, y);
    }

    template <typename Work> void paint(bool smooth, Work work)
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, smooth);
        ctx.setPainter(&painter);
        work();
        ctx.setPainter(nullptr);
    }

    /// Records of all objects as a file has them, without the lines of their ids.
    QString records()
    {
        QString text;
        for (FigObject* object : qAsConst(ctx.drawing.objects))
            text += writtenObject(object);
        return text.remove(QRegularExpression("# METADATA[^\n]*\n"));
    }
    FigObject* object(int index) { return *(ctx.drawing.objects.begin() + index); }
    int count() const { return ctx.drawing.objects.size(); }
    bool isIdle(ButtonProc init) const
    {
        return canvas_leftbut_proc == init && !canvas_locmove_proc && !action_on && !elastic_proc;
    }
    /// What a full redraw would show: nothing of a rubber band, every object and marker.
    QImage redrawn() { return drawCanvas(&ctx, image.size(), true); }

    CFigContext ctx;
    QImage image;

private:
    void freePendingChain()
    {
        free_points(ctx.firstPoint);
        ctx.firstPoint = ctx.lastPoint = nullptr;
    }
};

inline QVector<QPoint> chainOf(const FigPoint* first)
{
    QVector<QPoint> points;
    for (const FigPoint* point = first; point; point = point->next)
        points.append({point->x, point->y});
    return points;
}
