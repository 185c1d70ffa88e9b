#include "ui/QTMainFrm.h"

#include "ui/QTChildFrm.h"
#include "ui/application.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QSettings>
#include <QSignalMapper>
#include <QStatusBar>

namespace {

/// The directory of the next open dialog after a file was chosen. A name without separator stays
/// whole, and a separator at index 1 leaves the directory as it was.
QString directoryAfter(const QString& fileName, const QString& directory)
{
    const int separator = fileName.lastIndexOf(QDir::separator());
    return separator == 1 ? directory : fileName.left(separator);
}

QTChildFrm* documentOf(QMdiSubWindow* window)
{
    return window ? qobject_cast<QTChildFrm*>(window->widget()) : nullptr;
}

} // namespace

QTMainFrm::QTMainFrm()
{
    setupUi();
    mdiArea = new QMdiArea(this);
    mdiArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdiArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(mdiArea);
    connect(mdiArea, &QMdiArea::subWindowActivated, this, &QTMainFrm::updateMenus);
    windowMapper = new QSignalMapper(this);
    connect(windowMapper, &QSignalMapper::mappedWidget, this, &QTMainFrm::setActiveSubWindow);
    createActions();
    createMenus();
    createStatusBar();
    readSettings();
    newFile()->showMaximized();
}

QTMainFrm::~QTMainFrm()
{
    mainWnd = nullptr;
    disconnect(mdiArea, nullptr, this, nullptr);
    qDeleteAll(mdiArea->subWindowList());
}

void QTMainFrm::setupUi()
{
    setWindowTitle(tr("Orvalt"));
    fileMenu = menuBar()->addMenu(tr("File"));
    viewMenu = menuBar()->addMenu(tr("View"));
}

template <typename Receiver, typename Slot>
QAction* QTMainFrm::makeAction(const QString& text, const QString& key, const QString& tip,
                               Receiver* receiver, Slot slot)
{
    auto* action = new QAction(text, this);
    action->setShortcut(QKeySequence(key));
    if (!tip.isEmpty())
        action->setToolTip(tip);
    connect(action, &QAction::triggered, receiver, slot);
    return action;
}

void QTMainFrm::createActions()
{
    newAct = makeAction(tr("&New"), "Ctrl+N", tr("Create a new file"), this, &QTMainFrm::newFile);
    openAct =
        makeAction(tr("&Open..."), "Ctrl+O", tr("Open an existing file"), this, &QTMainFrm::open);
    closeAct = makeAction(tr("Close"), "Ctrl+F4", QString(), this, &QTMainFrm::closeActiveChild);
    exitAct = makeAction(tr("Exit"), QString(), QString(), this, &QTMainFrm::closeAllChilds);
    zoomInAct = makeAction(tr("Zoom in"), "Ctrl++", tr("Zoom in"), this, &QTMainFrm::zoomIn);
    zoomOutAct = makeAction(tr("Zoom out"), "Ctrl+-", tr("Zoom out"), this, &QTMainFrm::zoomOut);
    tileAct = makeAction(tr("&Tile"), QString(), tr("Tile the windows"), mdiArea,
                         &QMdiArea::tileSubWindows);
    cascadeAct = makeAction(tr("&Cascade"), QString(), tr("Cascade the windows"), mdiArea,
                            &QMdiArea::cascadeSubWindows);
    nextAct = makeAction(tr("Ne&xt"), QString(), tr("Move the focus to the next window"), mdiArea,
                         &QMdiArea::activateNextSubWindow);
    previousAct =
        makeAction(tr("Pre&vious"), QString(), tr("Move the focus to the previous window"), mdiArea,
                   &QMdiArea::activatePreviousSubWindow);
    separatorAct = new QAction(this);
    separatorAct->setSeparator(true);
}

void QTMainFrm::createMenus()
{
    fileMenu->addActions({newAct, openAct, closeAct});
    fileMenu->addSeparator();
    fileMenu->addAction(exitAct);
    viewMenu->addActions({zoomInAct, zoomOutAct});
    windowMenu = menuBar()->addMenu(tr("&Window"));
    connect(windowMenu, &QMenu::aboutToShow, this, &QTMainFrm::updateWindowMenu);
    for (QMenu* menu : {fileMenu, viewMenu, windowMenu})
        menu->setToolTipsVisible(true);
    updateWindowMenu();
}

void QTMainFrm::createStatusBar()
{
    statusBar()->showMessage(tr("Ready"));
}

void QTMainFrm::readSettings()
{
    const QSettings settings("Orvalt", "Orvalt");
    move(settings.value("window position", QPoint(100, 50)).toPoint());
    resize(settings.value("window size", QSize(650, 700)).toSize());
}

void QTMainFrm::writeSettings()
{
    QSettings settings("Orvalt", "Orvalt");
    settings.setValue("window position", pos());
    settings.setValue("window size", frameGeometry().size());
}

/// The status line keeps its message: no action has a status tip, and the empty ones that menus
/// send would wipe it.
bool QTMainFrm::event(QEvent* event)
{
    return event->type() == QEvent::StatusTip || QMainWindow::event(event);
}

/// Documents close one by one; the first that refuses keeps itself, the rest and this window.
void QTMainFrm::closeEvent(QCloseEvent* event)
{
    for (QMdiSubWindow* window : mdiArea->subWindowList())
        if (!window->close())
            break;
    if (!mdiArea->subWindowList().isEmpty()) {
        event->ignore();
        return;
    }
    writeSettings();
    event->accept();
}

// --- documents --------------------------------------------------------------

QTChildFrm* QTMainFrm::createMdiChild()
{
    auto* child = new QTChildFrm(this);
    mdiArea->addSubWindow(child);
    return child;
}

QTChildFrm* QTMainFrm::newFile()
{
    QTChildFrm* child = createMdiChild();
    child->newFile();
    child->show();
    return child;
}

void QTMainFrm::open()
{
    const QString chosen = QFileDialog::getOpenFileName(this, tr("Open"), lastDirectory,
                                                        tr("FIG files (*.fig *.FIG)"));
    if (chosen.isEmpty())
        return;
    const QString fileName = QDir::toNativeSeparators(chosen);
    lastDirectory = directoryAfter(fileName, lastDirectory);
    if (QMdiSubWindow* window = findMdiChild(fileName))
        setActiveSubWindow(window);
    else
        openInNewWindow(fileName);
}

void QTMainFrm::openFile(char* name)
{
    openInNewWindow(QFile::decodeName(name));
}

void QTMainFrm::openInNewWindow(const QString& fileName)
{
    QTChildFrm* child = createMdiChild();
    if (!child->loadFile(fileName)) {
        discard(child);
        return;
    }
    // The window and its scroll bars take their sizes in several steps; the figure is drawn once,
    // at the end.
    child->setUpdatesEnabled(false);
    child->show();
    QCoreApplication::sendPostedEvents(child, QEvent::LayoutRequest);
    child->setUpdatesEnabled(true);
    child->redisplayCanvas();
}

/// Removes a document window that could not be filled, with its frame.
void QTMainFrm::discard(QTChildFrm* child)
{
    child->close();
    if (QMdiSubWindow* window = findSubWindow(child)) {
        mdiArea->removeSubWindow(window);
        window->deleteLater();
    }
}

void QTMainFrm::closeActiveChild()
{
    mdiArea->closeActiveSubWindow();
}

void QTMainFrm::closeAllChilds()
{
    QApplication::closeAllWindows();
}

QTChildFrm* QTMainFrm::activeMdiChild() const
{
    return documentOf(mdiArea->activeSubWindow());
}

QMdiSubWindow* QTMainFrm::findMdiChild(const QString& fileName) const
{
    const QString canonical = QFileInfo(fileName).canonicalFilePath();
    for (QMdiSubWindow* window : mdiArea->subWindowList()) {
        const QTChildFrm* child = documentOf(window);
        if (child && !canonical.isEmpty() && child->curFile == canonical)
            return window;
    }
    return nullptr;
}

QMdiSubWindow* QTMainFrm::findSubWindow(QTChildFrm* child) const
{
    for (QMdiSubWindow* window : mdiArea->subWindowList())
        if (window->widget() == child)
            return window;
    return nullptr;
}

QList<QTChildFrm*> QTMainFrm::getChilds(QMdiArea::WindowOrder order) const
{
    QList<QTChildFrm*> children;
    for (QMdiSubWindow* window : mdiArea->subWindowList(order))
        if (QTChildFrm* child = documentOf(window))
            children.append(child);
    return children;
}

void QTMainFrm::setCurrentFile(const QString& fileName)
{
    if (QTChildFrm* child = activeMdiChild())
        child->setCurrentFile(fileName);
}

QString QTMainFrm::currentFile() const
{
    const QTChildFrm* child = activeMdiChild();
    return child ? child->curFile : QString();
}

// --- view -------------------------------------------------------------------

void QTMainFrm::zoomIn()
{
    if (QTChildFrm* child = activeMdiChild())
        child->zoomIn();
}

void QTMainFrm::zoomOut()
{
    if (QTChildFrm* child = activeMdiChild())
        child->zoomOut();
}

// --- window menu ------------------------------------------------------------

void QTMainFrm::updateMenus()
{
    const bool hasDocument = activeMdiChild() != nullptr;
    for (QAction* action : {tileAct, cascadeAct, nextAct, previousAct})
        action->setEnabled(hasDocument);
    separatorAct->setVisible(hasDocument);
}

void QTMainFrm::updateWindowMenu()
{
    windowMenu->clear();
    windowMenu->addActions({tileAct, cascadeAct});
    windowMenu->addSeparator();
    windowMenu->addActions({nextAct, previousAct, separatorAct});
    updateMenus();
    int number = 1;
    for (QMdiSubWindow* window : mdiArea->subWindowList())
        if (documentOf(window))
            addWindowMenuEntry(window, number++);
}

void QTMainFrm::addWindowMenuEntry(QMdiSubWindow* window, int number)
{
    const QString text = number <= 9 ? tr("&%1 %2") : tr("%1 %2");
    QAction* action =
        windowMenu->addAction(text.arg(number).arg(documentOf(window)->userFriendlyCurrentFile()));
    action->setCheckable(true);
    action->setChecked(window == mdiArea->activeSubWindow());
    connect(action, &QAction::triggered, windowMapper, QOverload<>::of(&QSignalMapper::map));
    windowMapper->setMapping(action, window);
}

void QTMainFrm::setActiveSubWindow(QWidget* window)
{
    if (auto* subWindow = qobject_cast<QMdiSubWindow*>(window))
        mdiArea->setActiveSubWindow(subWindow);
}
