// What the main window is made of: its panels, tool bars and menus.
#include "ui/AttrsToolbarHandler.h"
#include "ui/ConsoleDock.h"
#include "ui/ContextPanel.h"
#include "ui/CoordsToolbar.h"
#include "ui/FigColorDlg.h"
#include "ui/FontsDlg.h"
#include "ui/LateIcon.h"
#include "ui/LayersToolbar.h"
#include "ui/ObjectCommentDlg.h"
#include "ui/QTMainFrm.h"
#include "ui/RecentFiles.h"
#include "ui/ShapesToolbar.h"
#include "ui/ToolRow.h"
#include "ui/WindowMenu.h"

#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QScrollArea>
#include <QStatusBar>
#include <QStyle>

namespace {

constexpr int TOOL_ICON_SIZE = 24;
constexpr int LARGEST_PAGE_HEIGHT = 640; // these two are shares of what there is
constexpr int LAYERS_HEIGHT = 240;
constexpr int MIN_DOCUMENTS_WIDTH = 150; // pixels, so that the panels fit in beside

QIcon applicationIcon()
{
    return lateIcon(":/app/images/app/orvalt_%1.png", {16, 24, 32, 48, 64, 128, 256});
}

/// Holds a panel that is as wide as it needs and may be higher than there is room.
QScrollArea* scrollable(QWidget* panel)
{
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setMinimumWidth(panel->minimumSizeHint().width() +
                          area->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    area->setWidget(panel);
    return area;
}

void showPanel(QDockWidget* dock, QWidget* content)
{
    dock->setWidget(content);
    dock->toggleViewAction()->setEnabled(true);
    dock->show();
}

/// Room for the title beside the two buttons of a panel.
int titleWidth(const QDockWidget* dock)
{
    return dock->fontMetrics().horizontalAdvance(dock->windowTitle()) +
           3 * dock->style()->pixelMetric(QStyle::PM_SmallIconSize);
}

/// What does not fit into a bar is behind a button that comes without a name.
void nameExtension(const QWidget* bar, const char* buttonName, const QString& name)
{
    if (auto* button = bar->findChild<QWidget*>(buttonName))
        button->setAccessibleName(name);
}

} // namespace

void QTMainFrm::setupUi()
{
    QApplication::setWindowIcon(applicationIcon());
    setWindowTitle(tr("Orvalt"));
    setIconSize({TOOL_ICON_SIZE, TOOL_ICON_SIZE});
    setAcceptDrops(true);
    mdiArea = new QMdiArea(this);
    mdiArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdiArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdiArea->setMinimumWidth(MIN_DOCUMENTS_WIDTH);
    setCentralWidget(mdiArea);
    console = new ConsoleDock(this);
    addDockWidget(Qt::BottomDockWidgetArea, console);
    console->hide();
    connect(console, &ConsoleDock::clearLogWanted, this, &QTMainFrm::onClearLog);
    createDialogs();
    createPanels();
    recentFiles = new RecentFiles(this);
    actions = std::make_unique<MainActions>(this);
}

/// A panel that cannot be opened, as long as there is nothing to see in it.
QDockWidget* QTMainFrm::addPanel(const QString& title, const QString& name, Qt::DockWidgetArea area)
{
    auto* dock = new QDockWidget(title, this);
    dock->setObjectName(name);
    addDockWidget(area, dock);
    dock->hide();
    dock->toggleViewAction()->setEnabled(false);
    return dock;
}

/// The panels show what is chosen in these, so they are there from the start.
void QTMainFrm::createDialogs()
{
    attrsHandler = new AttrsToolbarHandler(this);
    colorDlg = new FigColorDlg(this);
    connect(attrsHandler, &AttrsToolbarHandler::colorsChanged, colorDlg, &FigColorDlg::onColors);
}

// The other dialogs are made when they are first wanted, and stay.

FontsDlg* QTMainFrm::fontsDialog()
{
    if (fontsDlg)
        return fontsDlg;
    fontsDlg = new FontsDlg(this);
    connect(fontsDlg, &FontsDlg::psFontChanged, attrsHandler, &AttrsToolbarHandler::psFontChanged);
    connect(fontsDlg, &FontsDlg::latexFontChanged, attrsHandler,
            &AttrsToolbarHandler::latexFontChanged);
    return fontsDlg;
}

ObjectCommentDlg* QTMainFrm::commentDialog()
{
    if (commentDlg)
        return commentDlg;
    commentDlg = new ObjectCommentDlg(this);
    connect(commentDlg, &ObjectCommentDlg::commentChanged, this, &QTMainFrm::fireCommentChanged);
    return commentDlg;
}

void QTMainFrm::createPanels()
{
    createToolPanels();
    createAttributePanels();
    coordsToolbar = new CoordsToolbar(this);
    coordinatesDock = addPanel(tr("Coordinates"), "coordinatesDock", Qt::BottomDockWidgetArea);
    coordinatesDock->setWidget(coordsToolbar);
    coordinatesDock->toggleViewAction()->setEnabled(true);
    coordinatesDock->show();
    splitDockWidget(console, coordinatesDock, Qt::Vertical);
}

void QTMainFrm::createAttributePanels()
{
    contextPanel = new ContextPanel(attrsHandler, this);
    layersToolbar = new LayersToolbar;
    QDockWidget* properties =
        addPanel(tr("Object properties"), "objectPropertiesDock", Qt::RightDockWidgetArea);
    QDockWidget* layers = addPanel(tr("Layers"), "layersDock", Qt::RightDockWidgetArea);
    showPanel(properties, scrollable(contextPanel));
    showPanel(layers, layersToolbar);
    // The properties change their height with what is chosen; the largest page is to fit.
    resizeDocks({properties, layers}, {LARGEST_PAGE_HEIGHT, LAYERS_HEIGHT}, Qt::Vertical);
}

void QTMainFrm::createToolPanels()
{
    shapes = new ShapesToolbar(this);
    connect(shapes, &ShapesToolbar::compoundButtonsStateChanged, this,
            &QTMainFrm::setCompoundButtonsState);
    connect(shapes, &ShapesToolbar::convertLineSplineButtonStateChanged, this,
            &QTMainFrm::setConvertLineSplineButtonState);
    connect(shapes, &ShapesToolbar::alignButtonsStateChanged, this,
            &QTMainFrm::setAlignButtonsState);
    showPanel(addPanel(tr("Shapes"), "shapesDock", Qt::LeftDockWidgetArea), shapes);
    QDockWidget* manipulation =
        addPanel(tr("Object manipulation"), "objectManipulationDock", Qt::LeftDockWidgetArea);
    shapes->manipulationPanel()->setMinimumWidth(titleWidth(manipulation));
    showPanel(manipulation, shapes->manipulationPanel());
}

void QTMainFrm::addToolbar(const QString& title, std::initializer_list<MainAction> entries)
{
    actions->fill(addToolBar(title), entries);
}

void QTMainFrm::createToolbars()
{
    addToolbar(tr("File"), {ACT_NEW, ACT_OPEN, ACT_SAVE, ACT_SAVE_AS, ACT_EXPORT});
    addToolbar(tr("Edit"), {ACT_UNDO, ACT_REDO, SEPARATOR, ACT_CUT, ACT_COPY, ACT_PASTE, SEPARATOR,
                            ACT_CONVERT});
    addToolbar(tr("View"), {ACT_ZOOM_IN, ACT_ZOOM_OUT, ACT_ZOOM_SELECTION,
                            ACT_ZOOM_SELECTION_REVERT, SEPARATOR, ACT_CONSOLE});
    addToolBarBreak();
    toolRow = new ToolRow(this);
    addToolBar(toolRow);
    connect(toolRow, &ToolRow::gridChosen, this, [this](int index) { setGrid(index, nullptr); });
    addToolbar(tr("Align"),
               {ACT_ALIGN_LEFT, ACT_ALIGN_CENTER_H, ACT_ALIGN_RIGHT, SEPARATOR, ACT_ALIGN_TOP,
                ACT_ALIGN_CENTER_V, ACT_ALIGN_BOTTOM, ACT_ALIGN_CENTER_HV});
    addToolbar(tr("Compound"),
               {ACT_COMPOUND_CREATE, ACT_COMPOUND_BREAK, ACT_COMPOUND_OPEN, ACT_COMPOUND_CLOSE});
    for (QToolBar* bar : findChildren<QToolBar*>())
        nameExtension(bar, "qt_toolbar_ext_button", tr("More of %1").arg(bar->windowTitle()));
}

QMenu* QTMainFrm::addMenu(const QString& title, std::initializer_list<MainAction> entries)
{
    QMenu* menu = menuBar()->addMenu(title);
    menu->setToolTipsVisible(true);
    actions->fill(menu, entries);
    return menu;
}

void QTMainFrm::createMenus()
{
    QMenu* file = addMenu(tr("File"), {ACT_NEW, ACT_OPEN, SEPARATOR, ACT_SAVE, ACT_SAVE_AS,
                                       SEPARATOR, ACT_EXPORT, ACT_EXPORT_AGAIN, SEPARATOR,
                                       ACT_CLOSE, ACT_PROPERTIES, SEPARATOR});
    file->addActions(recentFiles->actions());
    file->addAction(recentFiles->separator());
    actions->fill(file, {ACT_EXIT});
    for (QAction* action : recentFiles->actions())
        connect(action, &QAction::triggered, this, &QTMainFrm::openRecentFile);

    QMenu* edit = addMenu(tr("Edit"), {ACT_UNDO, ACT_REDO, SEPARATOR, ACT_CUT, ACT_COPY, ACT_PASTE,
                                       ACT_SELECT_ALL, SEPARATOR, ACT_SMART_LINKS, ACT_CONVERT});
    actions->fill(edit->addMenu(tr("Align")),
                  {ACT_ALIGN_LEFT, ACT_ALIGN_TOP, ACT_ALIGN_RIGHT, ACT_ALIGN_BOTTOM, SEPARATOR,
                   ACT_ALIGN_CENTER_H, ACT_ALIGN_CENTER_V, ACT_ALIGN_CENTER_HV});
    actions->fill(edit->addMenu(tr("Compound")),
                  {ACT_COMPOUND_CREATE, ACT_COMPOUND_BREAK, ACT_COMPOUND_OPEN, ACT_COMPOUND_CLOSE});
    QMenu* view = addMenu(tr("View"), {ACT_ZOOM_IN, ACT_ZOOM_OUT, ACT_ZOOM_SELECTION,
                                       ACT_ZOOM_SELECTION_REVERT, SEPARATOR, ACT_CONSOLE,
                                       ACT_PALETTE, ACT_LAYERS, ACT_LIBRARY, SEPARATOR});
    for (const char* panel :
         {"shapesDock", "objectManipulationDock", "objectPropertiesDock", "layersDock"})
        view->addAction(findChild<QDockWidget*>(panel)->toggleViewAction());
    view->addAction(coordinatesDock->toggleViewAction());
    view->addAction(console->toggleViewAction());
    addMenu(tr("Script"), {ACT_REFRESH_SCRIPTS});
    addMenu(tr("Preferences"), {ACT_PREFERENCES, ACT_METRICS});
    windowMenu = new WindowMenu(mdiArea, this);
    menuBar()->addMenu(windowMenu);
    connect(windowMenu, &WindowMenu::windowChosen, this, &QTMainFrm::setActiveSubWindow);
    nameExtension(menuBar(), "qt_menubar_ext_button", tr("More menus"));
    menuBar()->addSeparator();
    addMenu(tr("&Help"), {ACT_ABOUT, ACT_ABOUT_QT});
}

void QTMainFrm::createStatusBar()
{
    gestureHintLabel = new QLabel(this);
    gestureHintLabel->setObjectName("gestureHint");
    gestureHintLabel->setTextFormat(Qt::PlainText);
    statusBar()->addPermanentWidget(gestureHintLabel);
    connect(statusBar(), &QStatusBar::messageChanged, this, &QTMainFrm::restoreMessage);
    statusBar()->showMessage(tr("Ready"));
}
