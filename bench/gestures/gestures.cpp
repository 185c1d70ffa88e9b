// Steps of gestures on the real windows, on the offscreen platform:
//
//   orvalt_bench_gestures
//   rubber|hover|region|release|linked|linked-first|many|scattered|scale|rotate FIGURE
//
// prints the processor seconds of one step.
#include "edit/command.h"
#include "edit/e_links.h"
#include "edit/e_move.h"
#include "edit/e_rotate_tool.h"
#include "edit/e_scale_compound.h"
#include "edit/e_select.h"
#include "model/FigContext.h"
#include "model/u_list.h"
#include "model/w_layers.h"
#include "render/colorFunctions.h"
#include "render/coords.h"
#include "render/grid.h"
#include "render/markers.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"
#include "ui/ShapesToolbar.h"
#include "ui/application.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QMouseEvent>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>
#include <map>

namespace {

constexpr int steps = 200;
constexpr int slowSteps = 40;
constexpr int manyObjects = 1000;

double processorSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// A document in its window, and a pointer over it.
class Stage {
public:
    Stage(QTMainFrm* window, const QString& figure)
    {
        window->resize(1280, 800);
        window->show();
        window->openFile(figure.toLocal8Bit().data());
        child = window->activeMdiChild();
        child->parentWidget()->showMaximized();
        QApplication::processEvents();
        ctx = child->figContext;
    }

    void mouse(QEvent::Type type, QPoint pixel, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, pixel, child->viewport()->mapToGlobal(pixel), button, held,
                          Qt::NoModifier);
        QApplication::sendEvent(child->viewport(), &event);
    }
    void click(QPoint pixel)
    {
        mouse(QEvent::MouseButtonPress, pixel, Qt::LeftButton, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, pixel, Qt::LeftButton, Qt::NoButton);
    }
    /// Seconds of one of `count` moves on a circle around a pixel.
    double move(int count, QPoint centre, int radius, Qt::MouseButtons held)
    {
        const auto place = [&](int step) {
            const double angle = step * 0.61;
            return centre + QPoint(int(radius * std::cos(angle)), int(radius * std::sin(angle)));
        };
        mouse(QEvent::MouseMove, place(-1), Qt::NoButton, held); // what is done once
        const double start = processorSeconds();
        for (int step = 0; step < count; ++step)
            mouse(QEvent::MouseMove, place(step), Qt::NoButton, held);
        return (processorSeconds() - start) / count;
    }
    QPoint middle() const { return child->viewport()->rect().center(); }

    QTChildFrm* child;
    CFigContext* ctx;
};

/// The pressed state that a press on the object leaves; other objects may lie over it.
void holdObject(Stage& stage, FigObject* object, int x, int y)
{
    stage.child->beginPaint();
    tag_action(stage.ctx, object, object->type, x, y, x, y);
    canvas_locmove_proc = init_object_dragging;
    stage.child->endPaint();
}

template <typename Object> Object* add(CFigContext* ctx, Object* object, FigPoint* points)
{
    object->points = points;
    object->id = ctx->getNextId();
    object->thickness = 1;
    object->depth = 50;
    list_add(ctx, &ctx->drawing.objects, object);
    return object;
}

FigPoint* chain(std::initializer_list<QPoint> places)
{
    FigPoint *first = nullptr, *last = nullptr;
    for (const QPoint& place : places) {
        append_point(place.x(), place.y(), &last);
        if (!first)
            first = last;
    }
    return first;
}

/// A box with a connector at the middle of each side.
FigLine* addLinkedBox(CFigContext* ctx)
{
    auto* box = new FigLine;
    box->sub_type = T_BOX;
    add(ctx, box, chain({{4200, 4200}, {4800, 4200}, {4800, 4800}, {4200, 4800}, {4200, 4200}}));
    FigObjectList target{box};
    for (const QPoint& way : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
        auto* connector = new FigLine;
        connector->sub_type = T_POLYLINE;
        const QPoint middle(4500, 4500);
        add(ctx, connector, chain({middle + way * 300, middle + way * 900}));
        connector->points->link = makeConnection(ctx, &target, connector->points, connector);
    }
    return box;
}

// --- what is measured ------------------------------------------------------------------

double rubber(Stage& stage)
{
    mainWnd->shapesToolbar()->switchCommand(CMD_BOX);
    stage.click({100, 100});
    return stage.move(steps, stage.middle(), 200, Qt::NoButton);
}

double hover(Stage& stage)
{
    return stage.move(steps, stage.middle(), 200, Qt::NoButton);
}

/// A region over the whole page, which is so small that the press beside it hits nothing.
double region(Stage& stage)
{
    stage.child->setZoom(0.3);
    stage.child->setSliderPositions(0, 0);
    const QPoint beside = stage.child->viewport()->rect().bottomRight() - QPoint(2, 2);
    stage.mouse(QEvent::MouseButtonPress, beside, Qt::LeftButton, Qt::LeftButton);
    return stage.move(steps, {150, 150}, 100, Qt::LeftButton);
}

/// Its release, which selects all and shows the markers.
double release(Stage& stage)
{
    region(stage);
    const QPoint corner(0, 0);
    const double start = processorSeconds();
    stage.mouse(QEvent::MouseButtonRelease, corner, Qt::LeftButton, Qt::NoButton);
    return processorSeconds() - start;
}

/// The pixel by which the box is held.
QPoint holdLinkedBox(Stage& stage)
{
    FigLine* box = addLinkedBox(stage.ctx);
    stage.child->redisplayCanvas();
    holdObject(stage, box, 4500, 4200);
    return QPoint(pixelX(stage.ctx, 4500), pixelY(stage.ctx, 4200));
}

double linked(Stage& stage)
{
    return stage.move(slowSteps, holdLinkedBox(stage), 40, Qt::LeftButton);
}

/// The step that notes what stands still.
double linkedFirst(Stage& stage)
{
    const QPoint pixel = holdLinkedBox(stage);
    const double start = processorSeconds();
    stage.mouse(QEvent::MouseMove, pixel + QPoint(4, 4), Qt::NoButton, Qt::LeftButton);
    return processorSeconds() - start;
}

double dragTagged(Stage& stage, FigObject* held)
{
    int left, top, right, bottom;
    held->getBounds(stage.ctx, &left, &top, &right, &bottom, true, true);
    holdObject(stage, held, left, top);
    return stage.move(slowSteps, QPoint(pixelX(stage.ctx, left), pixelY(stage.ctx, top)), 40,
                      Qt::LeftButton);
}

/// The objects nearest to the middle of the view, which a region around them would select.
double many(Stage& stage)
{
    const QPoint middle(figureX(stage.ctx, stage.middle().x()),
                        figureY(stage.ctx, stage.middle().y()));
    const auto farness = [&](FigObject* object) {
        int left, top, right, bottom;
        object->getBounds(stage.ctx, &left, &top, &right, &bottom, true, true);
        return std::max(
            {middle.x() - left, right - middle.x(), middle.y() - top, bottom - middle.y()});
    };
    std::multimap<int, FigObject*> byFarness;
    for (FigObject* object : qAsConst(stage.ctx->drawing.objects))
        byFarness.emplace(farness(object), object);
    auto entry = byFarness.begin();
    for (int count = 0; count < manyObjects && entry != byFarness.end(); ++count)
        (entry++)->second->tagged = true;
    return dragTagged(stage, byFarness.begin()->second);
}

/// As many all over the page.
double scattered(Stage& stage)
{
    int count = 0;
    for (FigObject* object : qAsConst(stage.ctx->drawing.objects)) {
        if (count++ == manyObjects)
            break;
        object->tagged = true;
    }
    return dragTagged(stage, stage.ctx->drawing.objects.first());
}

/// One compound of all objects.
FigCompound* compoundOfAll(Stage& stage)
{
    auto* compound = new FigCompound;
    compound->id = stage.ctx->getNextId();
    compound->objects->swap(stage.ctx->drawing.objects);
    stage.ctx->drawing.objects.append(compound);
    set_depths(stage.ctx);
    update_compound_corners(stage.ctx, compound);
    stage.child->redisplayCanvas();
    return compound;
}

double scale(Stage& stage)
{
    const FigCompound* compound = compoundOfAll(stage);
    mainWnd->shapesToolbar()->switchCommand(CMD_SCALE_COMPOUND);
    stage.child->beginPaint();
    init_scale_compound(stage.ctx, compound->secorner.x, compound->secorner.y, nullptr);
    stage.child->endPaint();
    const QPoint corner(pixelX(stage.ctx, compound->secorner.x),
                        pixelY(stage.ctx, compound->secorner.y));
    return stage.move(slowSteps, corner, 40, Qt::LeftButton);
}

/// A click each, with its undo step.
double rotate(Stage& stage)
{
    FigCompound* compound = compoundOfAll(stage);
    mainWnd->shapesToolbar()->switchCommand(CMD_ROTATE_CW);
    const double start = processorSeconds();
    for (int step = 0; step < slowSteps; ++step) {
        stage.child->beginPaint();
        init_rotate(stage.ctx, compound, O_COMPOUND, 4500, 4500, 4500, 4500);
        stage.child->endPaint();
    }
    return (processorSeconds() - start) / slowSteps;
}

} // namespace

int main(int argc, char** argv)
{
    static const std::map<QString, std::function<double(Stage&)>> scenes = {
        {"rubber", rubber},   {"hover", hover},         {"region", region},
        {"release", release}, {"linked", linked},       {"linked-first", linkedFirst},
        {"many", many},       {"scattered", scattered}, {"scale", scale},
        {"rotate", rotate}};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const auto scene = arguments.size() == 3 ? scenes.find(arguments[1]) : scenes.end();
    if (scene == scenes.end()) {
        std::fputs(
            "orvalt_bench_gestures "
            "rubber|hover|region|release|linked|linked-first|many|scattered|scale|rotate FIGURE\n",
            stderr);
        return 2;
    }
    loadGridDefinitions();
    set_colors();
    initializePatternBitmaps();
    createMarkers();
    QTMainFrm window;
    // No question about negative coordinates while the main window is not known.
    Stage stage(&window, arguments[2]);
    mainWnd = &window;
    mainWnd->shapesToolbar()->switchCommand(CMD_SELECT);
    std::printf("%.6f\n", scene->second(stage));
    std::fflush(stdout);
    std::_Exit(0);
}
