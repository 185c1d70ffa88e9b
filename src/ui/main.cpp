#include "render/grid.h"
#include "render/markers.h"
#include "ui/Components/QsLog/QsLog.h"
#include "ui/application.h"
#include "ui/settings.h"

#include <QApplication>
#include <QDir>
#include <QSettings>

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    theApp = &application;
    appHomeDir = QCoreApplication::applicationDirPath();
    QCoreApplication::addLibraryPath(appHomeDir + QDir::separator() + "plugins");
    QCoreApplication::addLibraryPath(appHomeDir + QDir::separator() + "platforms");
    QByteArray figure;
    if (argc >= 2) {
        // Taken before the working directory changes.
        figure = absoluteFileName(argv[1]);
        argv[1] = figure.data();
    }
    // The grids come first: the settings append custom ones and check the grid index.
    loadGridDefinitions();
    readSettings();
    QSettings settings("Orvalt", "Orvalt");
    QDir::setCurrent(settings.value("last directory", appHomeDir).toString());

    const int result = run(argc, argv);

    settings.setValue("last directory", QDir::currentPath());
    writeSettings();
    destroyMarkers();
    destroyGridDefinitions();
    cleanupTempObjects();
    QsLogging::Logger::destroyInstance();
    return result;
}
