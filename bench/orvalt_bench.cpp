// Measures the engine on one figure; bench/run turns the numbers into ratios.
//
//   orvalt_bench generate COUNT SEED OUT.fig
//   orvalt_bench open FIGURE      seconds to read and to draw first, bytes per object
//   orvalt_bench redraw FIGURE    seconds of a full redraw, of the bare QPainter calls, number
//                                 of calls, pixels that differ between the two pictures
//   orvalt_bench partial FIGURE   seconds of a full redraw and of one object's area
//   orvalt_bench save FIGURE OUT  seconds to save
//   orvalt_bench search FIGURE    seconds to take the boxes of the pointer search, of one such
//                                 search, and of one without boxes
//
// Output is one line of numbers. Times are processor seconds, the least of several
// runs where the work can be repeated.

#include "generate.h"
#include "primitives.h"

#include "EngineCanvas.h"
#include "RecordingShell.h"
#include "edit/pick_boxes.h"
#include "edit/u_search.h"
#include "fileio/f_read.h"
#include "fileio/f_save.h"
#include "model/FigContext.h"
#include "render/u_redraw.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>

#include <malloc.h>
#include <time.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <random>

namespace {

constexpr int runs = 5;
const QSize canvasPixels(660, 940); // an A4 page at zoom 1

/// Of this process' own time: what else the machine does then does not count.
double processorSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double secondsOf(const std::function<void()>& work)
{
    const double start = processorSeconds();
    work();
    return processorSeconds() - start;
}

double leastSecondsOf(const std::function<void()>& work)
{
    double least = secondsOf(work);
    for (int i = 1; i < runs; ++i) {
        least = std::min(least, secondsOf(work));
    }
    return least;
}

size_t allocatedBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::unique_ptr<CFigContext> openFigure(const QString& file)
{
    auto ctx = std::make_unique<CFigContext>();
    recordingShell.activeContext = ctx.get();
    if (!load_file(ctx.get(), file)) {
        std::fprintf(stderr, "orvalt_bench: cannot read %s\n", qUtf8Printable(file));
        return nullptr;
    }
    return ctx;
}

/// An image with a painter, set up as a document window sets up its own.
struct Canvas {
    QImage image{canvasPixels, QImage::Format_ARGB32_Premultiplied};
    QPainter painter;

    Canvas()
    {
        image.fill(Qt::white);
        painter.begin(&image);
        painter.setRenderHint(QPainter::Antialiasing, true);
    }
};

void redraw(CFigContext* ctx, QPainter* painter)
{
    ctx->setPainter(painter);
    redisplay_viewport(ctx, canvasPixels.width(), canvasPixels.height());
    ctx->setPainter(nullptr);
}

int measureOpen(const QString& file)
{
    const size_t before = allocatedBytes();
    std::unique_ptr<CFigContext> ctx;
    const double reading = secondsOf([&] { ctx = openFigure(file); });
    if (!ctx) {
        return 1;
    }
    const int objects = countObjects(&ctx->drawing.objects);
    const auto bytes = static_cast<double>(allocatedBytes() - before);
    Canvas target;
    const double drawing = secondsOf([&] { redraw(ctx.get(), &target.painter); });
    std::printf("%.6f %.6f %.1f %d\n", reading, drawing, bytes / std::max(objects, 1), objects);
    return 0;
}

long differingPixels(const QImage& a, const QImage& b)
{
    long count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            count += a.pixel(x, y) != b.pixel(x, y);
        }
    }
    return count;
}

int measureRedraw(const QString& file)
{
    const auto ctx = openFigure(file);
    if (!ctx) {
        return 1;
    }
    const PrimitiveRecording bare(canvasPixels, [&](QPainter* painter) {
        painter->setRenderHint(QPainter::Antialiasing, true);
        redraw(ctx.get(), painter);
    });
    Canvas ours, theirs;
    // Taken in turns, so that neither gains by a quiet moment of the machine.
    double engine = 1e9, plain = 1e9;
    for (int i = 0; i < runs; ++i) {
        engine = std::min(engine, secondsOf([&] { redraw(ctx.get(), &ours.painter); }));
        plain = std::min(plain, secondsOf([&] { bare.replay(&theirs.painter); }));
    }
    std::printf("%.6f %.6f %ld %ld\n", engine, plain, bare.drawingCalls(),
                differingPixels(ours.image, theirs.image));
    return 0;
}

int measurePartial(const QString& file)
{
    constexpr int samples = 20;
    const auto ctx = openFigure(file);
    if (!ctx) {
        return 1;
    }
    Canvas target;
    const double full = leastSecondsOf([&] { redraw(ctx.get(), &target.painter); });
    const auto objects = ctx->drawing.objects;
    QVector<FigObject*> chosen;
    int index = 0;
    for (FigObject* object : objects) {
        if (object->type != O_COMPOUND && index++ % std::max(1, objects.size() / samples) == 0) {
            chosen.append(object);
        }
    }
    ctx->setPainter(&target.painter);
    const double partial = leastSecondsOf([&] {
        for (FigObject* object : chosen) {
            refresh_obj_area(ctx.get(), object, false);
        }
    });
    ctx->setPainter(nullptr);
    std::printf("%.6f %.6f\n", full, partial / chosen.size());
    return 0;
}

int measureSave(const QString& file, const QString& output)
{
    const auto ctx = openFigure(file);
    if (!ctx) {
        return 1;
    }
    bool saved = true;
    const double seconds = leastSecondsOf([&] { saved = write_file(ctx.get(), output) && saved; });
    std::printf("%.6f\n", seconds);
    return saved ? 0 : 1;
}

/// Positions all over the page on which the generated figures lie.
QVector<QPoint> pointerPositions(int count)
{
    std::mt19937 random(7);
    QVector<QPoint> positions;
    for (int i = 0; i < count; ++i) {
        const int x = static_cast<int>(random() % 9900), y = static_cast<int>(random() % 14000);
        positions.append(QPoint(x, y));
    }
    return positions;
}

int measureSearch(const QString& file)
{
    constexpr int moves = 2000, movesWithoutBoxes = 20;
    const auto ctx = openFigure(file);
    if (!ctx) {
        return 1;
    }
    const QVector<QPoint> positions = pointerPositions(moves);
    PickBoxes boxes;
    int px, py;
    const double taking = leastSecondsOf([&] {
        boxes.drop();
        boxes.search(ctx.get(), -1000000, -1000000, &px, &py);
    });
    const double boxed = leastSecondsOf([&] {
        for (const QPoint& at : positions) {
            boxes.search(ctx.get(), at.x(), at.y(), &px, &py);
        }
    });
    const double plain = leastSecondsOf([&] {
        for (int i = 0; i < movesWithoutBoxes; ++i) {
            objectSearch(ctx.get(), positions[i].x(), positions[i].y(), &px, &py, nullptr);
        }
    });
    std::printf("%.9f %.9f %.9f\n", taking, boxed / moves, plain / movesWithoutBoxes);
    return 0;
}

int writeFigure(const QStringList& arguments)
{
    QFile file(arguments.value(4));
    if (!file.open(QIODevice::WriteOnly)) {
        return 1;
    }
    const std::string text =
        generateFigure(arguments.value(2).toLong(), arguments.value(3).toUInt());
    return file.write(text.data(), static_cast<qint64>(text.size())) < 0 ? 1 : 0;
}

int runCommand(const QStringList& arguments)
{
    const QString command = arguments.value(1), file = arguments.value(2);
    if (command == "generate" && arguments.size() == 5) {
        return writeFigure(arguments);
    }
    if (command == "open") {
        return measureOpen(file);
    }
    if (command == "redraw") {
        return measureRedraw(file);
    }
    if (command == "partial") {
        return measurePartial(file);
    }
    if (command == "search") {
        return measureSearch(file);
    }
    if (command == "save" && arguments.size() == 4) {
        return measureSave(file, arguments.value(3));
    }
    std::fputs("usage: orvalt_bench generate COUNT SEED OUT |\n"
               "       open|redraw|partial|search FIGURE | save FIGURE OUT\n",
               stderr);
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const EngineTables tables;
    return runCommand(QGuiApplication::arguments());
}
