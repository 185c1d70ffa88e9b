// The engine without windows: what a figure reads as, what is drawn of it, its canvas, what
// saving writes, and what the searches find at points.
//
//   figprobe info FILE                  figprobe outline FILE
//   figprobe render FILE OUT.png        figprobe save FILE OUT.fig
//   figprobe hit FILE [X Y ...]         points from the standard input if none are given
//
// JSON on stdout, diagnostics on stderr. Exit status 0 when the file could be read (and the
// picture or the figure written), else 1; 2 for a call that cannot be understood.

#include "probe_json.h"
#include "probe_session.h"

#include "EngineCanvas.h"
#include "RecordingShell.h"
#include "fileio/f_save.h"
#include "model/FigContext.h"

#include <QGuiApplication>
#include <QJsonDocument>

#include <cstdio>
#include <memory>

namespace {

constexpr char usage[] =
    "usage: figprobe info FILE [--zoom Z] [--ppi P] [--shift yes|no]\n"
    "       figprobe outline FILE [--zoom Z] [--ppi P] [--origin X,Y] [--shift yes|no]\n"
    "       figprobe render IN OUT.png [--zoom Z] [--ppi P] [--size WxH] [--origin X,Y]\n"
    "                [--shift yes|no] [--no-antialias] [--no-page]\n"
    "       figprobe save IN OUT [--shift yes|no]\n"
    "       figprobe hit FILE [--zoom Z] [--ppi P] [--origin X,Y] [--shift yes|no] [X Y ...]\n";

void printJson(const QJsonObject& object)
{
    const QByteArray text = QJsonDocument(object).toJson(QJsonDocument::Compact) + "\n";
    std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), stdout);
}

void printMessages()
{
    printJson({{"messages", QJsonArray::fromStringList(recordingShell.messages)},
               {"boxes", QJsonArray::fromStringList(recordingShell.boxes)},
               {"log", QJsonArray::fromStringList(recordingShell.logLines)}});
}

bool renderFigure(CFigContext* ctx, const ProbeOptions& options)
{
    const QSize size = options.size.isValid() ? options.size : canvasSize(ctx);
    const QImage canvas = drawCanvas(ctx, size, options.antialiasing);
    if (canvas.isNull()) {
        std::fputs("figprobe: no canvas of that size\n", stderr);
        return false;
    }
    if (!canvas.save(options.output, "PNG")) {
        std::fprintf(stderr, "figprobe: cannot write %s\n", qUtf8Printable(options.output));
        return false;
    }
    return true;
}

int runCommand(const ProbeOptions& options)
{
    const auto ctx = std::make_unique<CFigContext>();
    if (!openFigure(ctx.get(), options)) {
        std::fprintf(stderr, "figprobe: cannot read %s\n", qUtf8Printable(options.input));
        printMessages();
        return 1;
    }
    if (options.command == "render") {
        return renderFigure(ctx.get(), options) ? 0 : 1;
    }
    if (options.command == "save") {
        const bool saved = write_file(ctx.get(), options.output);
        printMessages();
        return saved ? 0 : 1;
    }
    if (options.command == "hit") {
        printJson(figureHits(ctx.get(), options.points));
        return 0;
    }
    printJson(options.command == "info" ? figureInfo(ctx.get()) : figureOutline(ctx.get()));
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QGuiApplication application(argc, argv);
    ProbeOptions options;
    QString error;
    if (!parseProbeOptions(QGuiApplication::arguments(), &options, &error)) {
        std::fprintf(stderr, "figprobe: %s\n%s", qUtf8Printable(error), usage);
        return 2;
    }
    const EngineTables tables;
    return runCommand(options);
}
