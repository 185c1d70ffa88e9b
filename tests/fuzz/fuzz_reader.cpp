// Opens any bytes as a figure: no crash, no leak, no hang, and a tree that is sound.
#include "RecordingShell.h"
#include "fileio/f_read.h"
#include "model/FigContext.h"
#include "render/colorFunctions.h"
#include "render/grid.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

/// Stops the fuzzer, which keeps the input then.
void require(bool sound)
{
    if (!sound)
        abort();
}

void openAndCheck(const QString& path)
{
    CFigContext ctx;
    const bool opened = load_file(&ctx, path);
    QSet<long> seen;
    require(checkObjectIds(&ctx.drawing.objects, &seen));
    require(!seen.contains(-1));
    require(opened || ctx.drawing.objects.isEmpty());
    require((ctx.max_depth == -1) == (countObjects(&ctx.drawing.objects) == 0));
}

} // namespace

int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    static QGuiApplication application(*argc, *argv);
    set_colors();
    loadGridDefinitions();
    std::atexit(destroyGridDefinitions);
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath("figure.fig");
    QFile file(path);
    require(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.close();
    recordingShell.clear();
    recordingShell.answer = size % 2;
    openAndCheck(path);
    return 0;
}
