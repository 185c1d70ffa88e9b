#include "ui/application.h"

#include "edit/command.h"
#include "edit/e_clipboard.h"
#include "edit/u_reshaping.h"
#include "model/preferences.h"
#include "model/shell.h"
#include "render/colorFunctions.h"
#include "render/markers.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"
#include "ui/ShapesToolbar.h"
#include "ui/logging.h"
#include "ui/settings.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QStyleFactory>

QApplication* theApp = nullptr;
QTMainFrm* mainWnd = nullptr;
QString appHomeDir;

namespace {

// The last version that stored the old TeX commands is 4.61.
constexpr double LAST_VERSION_WITH_OLD_TEX_COMMANDS = 4.610001;

void setWidgetStyle()
{
    // Whatever the settings hold: the first style of the list, which is Fusion.
    otherPreferencesData.widgetStyle = 0;
    QApplication::setStyle(QStyleFactory::create("Fusion"));
}

void openFirstFigure(QTMainFrm& window, int argc, char** argv)
{
    if (argc >= 2)
        window.openFile(argv[1]);
    else if (QTChildFrm* child = window.activeMdiChild())
        child->redisplayCanvas();
}

} // namespace

int run(int argc, char** argv)
{
    setWidgetStyle();
    // The tables must be there before any window.
    set_colors();
    initializePatternBitmaps();
    createMarkers();
    QTMainFrm window;
    mainWnd = &window;
    window.show();
    setUpLogging(window.logDocument());
    window.shapesToolbar()->switchCommand(CMD_SELECT);
    if (isOrvaltUpgrade && LAST_VERSION_WITH_OLD_TEX_COMMANDS >= oldOrvaltVersion)
        renewTexCommands();
    openFirstFigure(window, argc, argv);
    return QApplication::exec();
}

QByteArray absoluteFileName(const char* name)
{
    return QFile::encodeName(QFileInfo(QFile::decodeName(name)).absoluteFilePath());
}

void renewTexCommands()
{
    TexViewPreferencesData& tex = texViewPreferencesData;
    if (tex.latexCommand != tex.oldDefaultLatexCommand ||
        tex.dvipsCommand != tex.oldDefaultDvipsCommand)
        shell_info("Info",
                   "This version changes the LaTeX commands for viewing TeX formatted text.You may "
                   "have to customize that setting again.\n\nYou find it in the TeX View tab of "
                   "the Preferences dialog.");
    tex.latexCommand = tex.defaultLatexCommand;
    tex.dvipsCommand = tex.defaultDvipsCommand;
}

void cleanupTempObjects()
{
    clear_clipboard();
    start_feedback();
}

void listFonts()
{
    const QFontDatabase fonts;
    for (const QString& family : fonts.families())
        for (const QString& style : fonts.styles(family))
            qDebug("%s | %s\n", qUtf8Printable(family), qUtf8Printable(style));
}

void listStyles()
{
    for (const QString& key : QStyleFactory::keys())
        qDebug("%s\n", qUtf8Printable(key));
}
