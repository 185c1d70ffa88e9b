// Saving a document: its names, the back-up of what was there before, the question on closing.
#include "edit/preview.h"
#include "fileio/f_save.h"
#include "model/FigContext.h"
#include "ui/QTChildFrm.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace {

/// Canonical where the file exists, otherwise the name as given.
QString documentName(const QString& fileName)
{
    const QFileInfo file(fileName);
    return file.isFile() ? file.canonicalFilePath() : fileName;
}

/// ".fig" anywhere in the name will do, in any case.
QString withSuffix(const QString& fileName)
{
    if (fileName.contains(".fig", Qt::CaseInsensitive))
        return fileName;
    return fileName + (fileName.endsWith('.') ? "fig" : ".fig");
}

/// A failure is of no matter: a new file has nothing to keep.
void keepBackup(const QString& fileName)
{
    const QString backup = fileName + ".bak";
    QFile::remove(backup);
    QFile::copy(fileName, backup);
}

} // namespace

void QTChildFrm::setCurrentFile(const QString& fileName)
{
    curFile = documentName(fileName);
    isUntitled = false;
    setWindowModified(false);
    setWindowTitle(userFriendlyCurrentFile() + "[*]");
}

bool QTChildFrm::save()
{
    return isUntitled ? saveAs() : saveFile(curFile);
}

bool QTChildFrm::saveAs()
{
    const QString fileName = QFileDialog::getSaveFileName(this, tr("Save As"), curFile);
    return !fileName.isEmpty() && saveFile(withSuffix(fileName));
}

/// Without what only a gesture shows.
bool QTChildFrm::writeFigure(const QString& fileName)
{
    const PreviewAside aside(figContext);
    return write_file(figContext, fileName);
}

bool QTChildFrm::saveFile(const QString& fileName)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    // After a failed write the file may be torn, and its back-up the last good content.
    if (documentName(fileName) != failedWrite)
        keepBackup(fileName);
    const bool written = writeFigure(fileName);
    if (written)
        figContext->resetModifiedflag();
    QApplication::restoreOverrideCursor();
    // A failed write takes the name, and the mark from the title, all the same. The document
    // itself stays modified, so closing it asks again.
    setCurrentFile(fileName);
    failedWrite = written ? QString() : curFile;
    QDir::setCurrent(QFileInfo(fileName).path());
    return true;
}

bool QTChildFrm::lastWriteFailed() const
{
    return !failedWrite.isEmpty();
}

bool QTChildFrm::maybeSave()
{
    if (!figContext->modified)
        return true;
    QMessageBox question(QMessageBox::Warning, tr("Save changes?"),
                         tr("'%1' has been modified.\nDo you want to save your changes?")
                             .arg(userFriendlyCurrentFile()),
                         QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    question.setTextFormat(Qt::PlainText); // a name is no markup
    switch (question.exec()) {
    case QMessageBox::Save:
        return save();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}
