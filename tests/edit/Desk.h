// The editor without its windows: documents, the pointer over them, keys, tools and commands, in
// the order in which the main window and the document windows serve them.
#pragma once

#include "EngineCanvas.h"
#include "RecordingShell.h"
#include "ToolFixture.h"
#include "edit/d_arc.h"
#include "edit/d_box.h"
#include "edit/d_ellipse.h"
#include "edit/d_line.h"
#include "edit/d_picobj.h"
#include "edit/d_regpoly.h"
#include "edit/d_spline.h"
#include "edit/d_text.h"
#include "edit/e_addpt_tool.h"
#include "edit/e_arrow.h"
#include "edit/e_clipboard.h"
#include "edit/e_copy.h"
#include "edit/e_delete.h"
#include "edit/e_deletept_tool.h"
#include "edit/e_library.h"
#include "edit/e_move.h"
#include "edit/e_rotate_tool.h"
#include "edit/e_scale_compound.h"
#include "edit/e_select.h"
#include "edit/e_tangent.h"
#include "edit/e_update.h"
#include "render/coords.h"
#include "render/gfx_math.h"
#include "render/grid.h"
#include "render/u_redraw.h"

#include <memory>
#include <vector>

class Desk {
public:
    /// One document without a window.
    struct Document {
        CFigContext ctx;
        QImage canvas; ///< null where nothing is painted
        QPoint lastPixel;
    };

    Desk()
    {
        resetToolState();
        pointmarker_shown = false;
        setcenter = 0;
        shift_down = ctrl_down = false;
        recordingShell.onSwitchCommand = [this](int command) { startTool(command); };
        recordingShell.onAttributesBar = [this](CFigContext* ctx, FigObject* object) {
            takeAttributes(ctx ? ctx : recordingShell.activeContext, object);
        };
    }
    ~Desk()
    {
        abandonGesture(gestureContext);
        clear_clipboard();
        destroyDragBitmaps();
        std::fill(std::begin(updatelist), std::end(updatelist), 1);
        shift_down = ctrl_down = false;
        setcenter = 0;
        resetToolState();
    }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    CFigContext* ctx() const { return &documents[size_t(active)]->ctx; }
    QList<CFigContext*> contexts() const
    {
        QList<CFigContext*> all;
        for (const auto& document : documents)
            all.append(&document->ctx);
        return all;
    }
    int count() const { return int(documents.size()); }
    int indexOf(CFigContext* ctx) const { return contexts().indexOf(ctx); }

    // --- documents ---------------------------------------------------------------------------

    /// A new one, which becomes the active one. An empty canvas size paints nothing.
    CFigContext* open(QSize canvasSize)
    {
        documents.push_back(std::make_unique<Document>());
        if (!canvasSize.isEmpty())
            documents.back()->canvas = QImage(canvasSize, QImage::Format_ARGB32_Premultiplied);
        show(count() - 1);
        return ctx();
    }
    /// Another document becomes the active one. A gesture does not follow it.
    void show(int index)
    {
        active = index;
        recordingShell.activeContext = ctx();
        const QSize size = document().canvas.size();
        recordingShell.viewportWidth = size.width();
        recordingShell.viewportHeight = size.height();
        CFigContext* owner = gestureContext;
        if (owner == ctx() || (!owner && canvas_leftbut_proc))
            return;
        abandonGesture(owner);
        restartTool();
    }
    void close(int index)
    {
        if (gestureContext == &documents[size_t(index)]->ctx)
            abandonGesture(gestureContext);
        documents.erase(documents.begin() + index);
        if (documents.empty())
            return;
        show(0);
    }

    // --- pointer, pixels of the canvas -------------------------------------------------------

    QPoint pixelOf(QPoint place) const
    {
        return {qBound(-30000, pixelX(ctx(), place.x()), 30000),
                qBound(-30000, pixelY(ctx(), place.y()), 30000)};
    }

    void press(QPoint pixel, Qt::MouseButton button)
    {
        seePointer(pixel, false);
        snapPress(ctx(), &figX, &figY);
        if (button == Qt::LeftButton && canvas_leftbut_proc)
            paint(true, [this] { canvas_leftbut_proc(ctx(), figX, figY, nullptr); });
        else if (button == Qt::RightButton && canvas_middlebut_proc)
            paint(!isCancelCreateObjFunction(canvas_middlebut_proc),
                  [this] { canvas_middlebut_proc(ctx(), figX, figY, nullptr); });
        else if (button == Qt::RightButton && isDrawingFunction(cur_command))
            deselectAll();
        noteGesture(ctx());
    }
    void release(QPoint pixel, Qt::MouseButton button)
    {
        seePointer(pixel, true);
        snapCursor(ctx(), &figX, &figY);
        if (button != Qt::LeftButton || !canvas_leftbutUp_proc)
            return;
        paint(useAntialiasing(cur_command), [this] { canvas_leftbutUp_proc(ctx(), figX, figY); });
        noteGesture(ctx());
    }
    void move(QPoint pixel)
    {
        if (!seePointer(pixel, true) || (gestureContext && gestureContext != ctx()))
            return;
        snapCursor(ctx(), &figX, &figY);
        paint(useAntialiasing(cur_command), [this] {
            if (canvas_locmove_proc)
                canvas_locmove_proc(ctx(), figX, figY);
            if (canvas_locmove_proc2)
                canvas_locmove_proc2(ctx(), ctx()->movedObjects, figX, figY);
        });
        noteGesture(ctx());
    }

    // --- keys --------------------------------------------------------------------------------

    void holdShift(bool down)
    {
        if (shift_down == down)
            return;
        shift_down = down;
        if (canvas_qualifier_proc)
            canvas_qualifier_proc(ctx(), 0, 0);
    }

    /// An arrow key: by one pixel, or to the next line of the grid that is snapped to.
    void arrowKey(bool isHorizontal, bool isForward)
    {
        if (!servesArrowKeys() || !isAnyTagged())
            return;
        int dx = round2(1200 / ctx()->ppiX / ctx()->zoom);
        int dy = round2(1200 / ctx()->ppiY / ctx()->zoom);
        if ((gridPreferences.snapMode & SNAP_GRID) && ctx()->gridIndex != 0 && !ctrl_down) {
            const Orientation column = isForward ? ORIENTATION_RIGHT : ORIENTATION_LEFT;
            const Orientation row = isForward ? ORIENTATION_BOTTOM : ORIENTATION_TOP;
            snapObjectsToGrid(ctx(), isHorizontal ? column : 0, isHorizontal ? 0 : row, &dx, &dy);
        } else if (!isForward) {
            dx = -dx;
            dy = -dy;
        }
        paint(true,
              [=] { moveTaggedObjects(ctx(), isHorizontal ? dx : 0, isHorizontal ? 0 : dy); });
        noteGesture(ctx());
    }

    void deleteKey()
    {
        if (gestureHoldsObjects(ctx()))
            return;
        const std::unique_ptr<FigObjectList> removed(cutTaggedOjects(ctx()));
        ctx()->curObject = nullptr;
        paint(true, [&] { refresh_obj_area(ctx(), removed.get(), true); });
    }

    // --- commands ----------------------------------------------------------------------------

    /// Not while a gesture holds objects: none is pulled away from under it.
    template <typename Work> void edit(Work work)
    {
        if (!gestureHoldsObjects(ctx()))
            paint(true, work);
    }
    void undo() { step(&UndoQueue::undo); }
    void redo() { step(&UndoQueue::redo); }
    void deselectAll()
    {
        set_tags(ctx()->getWorkingRoot(), false);
        paint(true, [this] { unmarkAllUntaggedObjects(ctx()); });
        ctx()->curObject = nullptr;
    }
    void selectAll()
    {
        if (cur_command != CMD_SELECT && cur_command != CMD_DRAG_OBJECTS &&
            cur_command != CMD_MOVE_POINT)
            return;
        applyFunction(ctx()->getWorkingRoot(), clearIgnoreFlag);
        applyFunction(ctx()->getWorkingRoot(), setTaggedFlag);
        paint(true, [this] { refresh_pointmarker(ctx()); });
    }
    void cut()
    {
        if (!action_on && !gestureHoldsObjects(ctx()))
            paint(true, [this] { cut_to_clipboard(ctx()); });
    }
    void copy()
    {
        if (!action_on && !gestureHoldsObjects(ctx()))
            copy_to_clipboard(ctx());
    }
    void paste()
    {
        if (action_on || gestureHoldsObjects(ctx()) || isClipboardEmpty())
            return;
        previous_command = cur_command;
        cur_command = CMD_PASTE;
        clippaste_selected(ctx());
        noteGesture(ctx());
    }
    void placeLibrary(CFigContext* library)
    {
        put_selected(ctx(), library);
        noteGesture(ctx());
    }

    /// As a click on a tool's button. False for a command without one.
    bool startTool(int command)
    {
        const Tool* tool = toolOf(command);
        if (!tool)
            return false;
        abandonGesture(gestureContext);
        cur_command = command;
        tool->entry(ctx());
        paint(true, [=] { applyMarkers(tool->markers); });
        dropCurrentObject();
        set_tags(&ctx()->drawing.objects, false);
        return true;
    }

    // --- view --------------------------------------------------------------------------------

    /// As a redraw of the window, which repeats the feedback.
    void redraw()
    {
        const QSize size = document().canvas.size();
        paint(true, [=] { redisplay_viewport(ctx(), size.width(), size.height()); });
    }

    template <typename Work> void paint(bool smooth, Work work)
    {
        // What the engine tells its windows is of no matter here, and would pile up.
        recordingShell.messages.clear();
        recordingShell.panels.clear();
        recordingShell.redraws.clear();
        recordingShell.boxes.clear();
        if (document().canvas.isNull() || ctx()->painter)
            return work();
        CFigContext* painted = ctx();
        QPainter painter(&document().canvas);
        painter.setRenderHint(QPainter::Antialiasing, smooth);
        painted->setPainter(&painter);
        work();
        painted->setPainter(nullptr);
    }

private:
    enum Markers { ERASE, SHOW, SIMPLE };

    struct Tool {
        int command;
        void (*entry)(CFigContext*);
        Markers markers;
    };

    template <void (*entry)()> static void withoutContext(CFigContext*) { entry(); }

    static const Tool* toolOf(int command)
    {
        static const Tool tools[] = {
            {CMD_POLYLINE, line_drawing_selected, ERASE},
            {CMD_POLYGON, line_drawing_selected, ERASE},
            {CMD_BOX, box_drawing_selected, ERASE},
            {CMD_REGPOLY, regpoly_drawing_selected, ERASE},
            {CMD_ARC, arc_drawing_selected, ERASE},
            {CMD_CIRCLE_BY_RADIUS, circlebyradius_drawing_selected, ERASE},
            {CMD_CIRCLE_BY_DIAMETER, circlebydiameter_drawing_selected, ERASE},
            {CMD_ELLIPSE_BY_RADII, ellipsebyradius_drawing_selected, ERASE},
            {CMD_ELLIPSE_BY_DIAMETERS, ellipsebydiameter_drawing_selected, ERASE},
            {CMD_TEXT, text_drawing_selected, ERASE},
            {CMD_OPEN_SPLINE, spline_drawing_selected, ERASE},
            {CMD_CLOSED_SPLINE, spline_drawing_selected, ERASE},
            {CMD_INT_SPLINE, spline_drawing_selected, ERASE},
            {CMD_CLOSED_INT_SPLINE, spline_drawing_selected, ERASE},
            {CMD_PICTURE, picobj_drawing_selected, ERASE},
            {CMD_SELECT, select_selected, SHOW},
            {CMD_COPY, copy_selected, SIMPLE},
            {CMD_DELETE, delete_selected, SIMPLE},
            {CMD_UPDATE, update_selected, SIMPLE},
            {CMD_SCALE_COMPOUND, scale_compound_selected, SIMPLE},
            {CMD_ARROW_HEAD, withoutContext<arrow_head_selected>, SHOW},
            {CMD_ADD_POINT, point_adding_selected, SIMPLE},
            {CMD_DELETE_POINT, delete_point_selected, SIMPLE},
            {CMD_TANGENT, withoutContext<tangent_selected>, ERASE},
            {CMD_NORMAL, withoutContext<normal_selected>, ERASE},
            {CMD_FLIP_UD, flip_ud_selected, SIMPLE},
            {CMD_FLIP_LR, flip_lr_selected, SIMPLE},
            {CMD_ROTATE_CCW, rotate_ccw_selected, SIMPLE},
            {CMD_ROTATE_CW, rotate_cw_selected, SIMPLE},
        };
        for (const Tool& tool : tools)
            if (tool.command == command)
                return &tool;
        return nullptr;
    }

    /// The tool in force, at rest; the commands of gestures stand for the tool that they came from.
    void restartTool()
    {
        if (cur_command < 0)
            return;
        int command = cur_command == CMD_PASTE ? previous_command : cur_command;
        if (!toolOf(command))
            command = CMD_SELECT;
        cur_command = command;
        toolOf(command)->entry(ctx());
    }

    void applyMarkers(Markers rule)
    {
        switch (rule) {
        case ERASE:
            return erase_pointmarker(ctx());
        case SHOW:
            return show_pointmarker(ctx());
        case SIMPLE:
            set_tags(&ctx()->drawing.objects, false);
            return draw_pointmarker(ctx(), getCurrentDefaultMarker());
        }
    }

    void dropCurrentObject()
    {
        if (ctx()->curObject) {
            clear_current_object_tag(ctx());
            paint(true, [this] { unmark_current_object(ctx()); });
            ctx()->curObject = nullptr;
        }
        if (setcenter)
            paint(true, [this] { center_marker(ctx(), setcenter_x, setcenter_y); });
        setcenter = 0;
    }

    /// The panels show the object, whose attributes become the current ones.
    static void takeAttributes(CFigContext* ctx, FigObject* object)
    {
        if (!ctx || !object)
            return;
        switch (object->type) {
        case O_ELLIPSE:
            return get_ellipse_attrs(ctx, static_cast<FigEllipse*>(object));
        case O_POLYLINE:
            return get_line_attrs(ctx, static_cast<FigLine*>(object));
        case O_SPLINE:
            return get_spline_attrs(ctx, static_cast<FigSpline*>(object));
        case O_TEXT:
            return get_text_attrs(ctx, static_cast<FigText*>(object));
        case O_ARC:
            return get_arc_attrs(ctx, static_cast<FigArc*>(object));
        default:
            return;
        }
    }

    void step(void (UndoQueue::*way)())
    {
        if (gestureHoldsObjects(ctx()))
            return;
        paint(true, [=] { (ctx()->undoQueue.*way)(); });
        takeAttributes(ctx(), ctx()->curObject);
    }

    /// Shift keeps the column, Ctrl the row. False where the pointer is where it was.
    bool seePointer(QPoint pixel, bool isMove)
    {
        QPoint& last = document().lastPixel;
        if (ctrl_down)
            pixel.setY(last.y());
        if (shift_down)
            pixel.setX(last.x());
        const bool isChanged =
            (pixel.x() != last.x() && !(isMove && shift_down)) || pixel.y() != last.y();
        last = pixel;
        figX = figureX(ctx(), pixel.x());
        figY = figureY(ctx(), pixel.y());
        return isChanged;
    }

    bool servesArrowKeys() const
    {
        return cur_command == CMD_SELECT || cur_command == CMD_DRAG_OBJECTS ||
               cur_command == CMD_MOVE_POINT || isDrawingFunction(cur_command);
    }
    bool isAnyTagged() const
    {
        const FigObjectList& root = *ctx()->getWorkingRoot();
        return std::any_of(root.begin(), root.end(),
                           [](const FigObject* object) { return object->tagged; });
    }

    Document& document() const { return *documents[size_t(active)]; }

    std::vector<std::unique_ptr<Document>> documents;
    int active = 0;
    int figX = 0, figY = 0;
};
