// attricons FOLDER: writes the icons of line styles and arrows into folders below that one.
// To be run by hand, on resources/images, when the engine draws lines or arrows differently.
#include "AttributeIcons.h"
#include "EngineCanvas.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: attricons FOLDER\n");
        return 2;
    }
    const EngineTables tables;
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (const char* group : {"lineStyles", "arrows"})
        folder.mkpath(group);
    for (const AttributeIcon& icon : drawAttributeIcons())
        if (!icon.image.save(folder.filePath(icon.path))) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(icon.path));
            return 1;
        }
    return 0;
}
