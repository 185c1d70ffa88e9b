// The document side of the main window: opening, saving, closing and finding documents.
#include "model/FigContext.h"
#include "model/shell.h"
#include "ui/CoordsToolbar.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"
#include "ui/RecentFiles.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>

namespace {

constexpr int SAVED_MESSAGE_TIME = 2000; // milliseconds

/// The directory of the next open dialog after a file was chosen. A name without separator stays
/// whole, and a separator at index 1 leaves the directory as it was.
QString directoryAfter(const QString& fileName, const QString& directory)
{
    const int separator = fileName.lastIndexOf(QDir::separator());
    return separator == 1 ? directory : fileName.left(separator);
}

/// What of dropped data can be opened: files of this machine, no folders.
QStringList filesIn(const QMimeData* data)
{
    QStringList files;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile())
            files.append(url.toLocalFile());
    return files;
}

} // namespace

// --- opening ----------------------------------------------------------------

QTChildFrm* QTMainFrm::createMdiChild()
{
    auto* child = new QTChildFrm(this);
    mdiArea->addSubWindow(child);
    connect(child, &QTChildFrm::compoundButtonsStateChanged, this,
            &QTMainFrm::setCompoundButtonsState);
    connect(child, &QTChildFrm::convertLineSplineButtonStateChanged, this,
            &QTMainFrm::setConvertLineSplineButtonState);
    connect(child, &QTChildFrm::alignButtonsStateChanged, this, &QTMainFrm::setAlignButtonsState);
    connect(child, &QTChildFrm::coordsChanged, coordsToolbar, &CoordsToolbar::showCoords);
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
    if (!chosen.isEmpty())
        openOrActivate(chosen);
}

void QTMainFrm::openRecentFile()
{
    if (const auto* action = qobject_cast<QAction*>(sender()))
        openOrActivate(action->data().toString());
}

void QTMainFrm::openFile(char* name)
{
    openInNewWindow(QFile::decodeName(name));
}

void QTMainFrm::openOrActivate(const QString& fileName)
{
    QMdiSubWindow* window = findMdiChild(fileName);
    if (!window) {
        openInNewWindow(fileName);
        return;
    }
    lastDirectory = directoryAfter(QDir::toNativeSeparators(fileName), lastDirectory);
    setActiveSubWindow(window);
}

void QTMainFrm::openInNewWindow(const QString& name)
{
    const QString fileName = QDir::toNativeSeparators(name);
    lastDirectory = directoryAfter(fileName, lastDirectory);
    QTChildFrm* child = createMdiChild();
    if (!child->loadFile(fileName)) {
        discard(child);
        return;
    }
    updateRecentFiles(fileName);
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
    updateColors(getFigContext());
}

// --- saving and closing -----------------------------------------------------

void QTMainFrm::save()
{
    QTChildFrm* child = activeMdiChild();
    if (child && child->save())
        updateRecentFiles(child->curFile);
}

void QTMainFrm::saveAs()
{
    QTChildFrm* child = activeMdiChild();
    if (!child || !child->saveAs())
        return;
    updateRecentFiles(child->curFile);
    // The message of a failed write is all that the user sees of it, so it stays.
    if (!child->lastWriteFailed())
        statusBar()->showMessage(tr("File saved"), SAVED_MESSAGE_TIME);
}

void QTMainFrm::updateRecentFiles(const QString& fileName)
{
    recentFiles->add(fileName);
}

void QTMainFrm::updateRecentFileActions()
{
    recentFiles->updateActions();
}

void QTMainFrm::closeActiveChild()
{
    if (QMdiSubWindow* window = mdiArea->currentSubWindow())
        window->close();
    updateColors(getFigContext());
}

void QTMainFrm::closeAllChilds()
{
    QApplication::closeAllWindows();
}

/// Documents close one by one; the first that refuses keeps itself, the rest and this window.
void QTMainFrm::closeEvent(QCloseEvent* event)
{
    for (QMdiSubWindow* window : mdiArea->subWindowList()) {
        const QTChildFrm* child = documentOf(window);
        if (child && child->figContext->modified)
            mdiArea->setActiveSubWindow(window); // the one that the question is about
        if (!window->close())
            break;
    }
    if (!mdiArea->subWindowList().isEmpty()) {
        event->ignore();
        return;
    }
    writeSettings();
    event->accept();
}

// --- dropped files ----------------------------------------------------------

void QTMainFrm::dragEnterEvent(QDragEnterEvent* event)
{
    if (!filesIn(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

/// The program that the files come from is not kept waiting for what reading them may ask.
void QTMainFrm::dropEvent(QDropEvent* event)
{
    const QStringList files = filesIn(event->mimeData());
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this,
        [this, files] {
            for (const QString& file : files)
                openOrActivate(file);
        },
        Qt::QueuedConnection);
}

// --- which document ---------------------------------------------------------

/// While a dialog or another program is active, the document that will be so again.
QTChildFrm* QTMainFrm::activeMdiChild() const
{
    return documentOf(mdiArea->currentSubWindow());
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
