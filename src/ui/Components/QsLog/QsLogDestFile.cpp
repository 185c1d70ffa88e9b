#include "ui/Components/QsLog/QsLogDestFile.h"

#include <iostream>

namespace QsLogging {

namespace {

void complain(const char* what, const QString& name)
{
    std::cerr << "QsLog: " << what << ' ' << QFile::encodeName(name).constData() << std::endl;
}

void removeFile(const QString& name)
{
    if (!QFile::remove(name))
        complain("backup delete failed", name);
}

} // namespace

// --- without rotation -------------------------------------------------------

QIODevice::OpenMode NullRotationStrategy::recommendedOpenModeFlag()
{
    return QIODevice::WriteOnly | QIODevice::Text | QIODevice::Truncate;
}

// --- rotation by size -------------------------------------------------------

void SizeRotationStrategy::setInitialInfo(const QFile& file)
{
    fileName = file.fileName();
    currentSize = file.size();
}

// The ends of lines are not counted, nor the message that brings the rotation about.
void SizeRotationStrategy::includeMessageInCalculation(const QString& message)
{
    currentSize += message.toUtf8().size();
}

bool SizeRotationStrategy::shouldRotate()
{
    return currentSize > maximumSize;
}

void SizeRotationStrategy::rotate()
{
    if (backupCount < 1) {
        removeFile(fileName);
    } else {
        renumberBackups();
        if (!QFile::rename(fileName, backupName(1)))
            complain("could not rename log", fileName);
    }
    currentSize = 0;
}

QIODevice::OpenMode SizeRotationStrategy::recommendedOpenModeFlag()
{
    return QIODevice::WriteOnly | QIODevice::Text | QIODevice::Append;
}

void SizeRotationStrategy::setMaximumSizeInBytes(qint64 size)
{
    maximumSize = size;
}

void SizeRotationStrategy::setBackupCount(int count)
{
    backupCount = count;
}

QString SizeRotationStrategy::backupName(int number) const
{
    return fileName + QString(".%1").arg(number);
}

/// The backups are numbered without a gap; what lies behind one is not ours.
int SizeRotationStrategy::lastExistingBackup() const
{
    int last = 0;
    while (last < backupCount && QFile::exists(backupName(last + 1)))
        ++last;
    return last;
}

void SizeRotationStrategy::renumberBackups()
{
    int last = lastExistingBackup();
    if (last == backupCount)
        removeFile(backupName(last--));
    for (int number = last; number >= 1; --number)
        if (!QFile::rename(backupName(number), backupName(number + 1)))
            complain("could not rename backup", backupName(number));
}

// --- the file ---------------------------------------------------------------

FileDestination::FileDestination(const QString& path, const RotationStrategyPtr& rotation)
    : file(path), strategy(rotation)
{
    if (!openFile())
        complain("could not open log file", path);
    strategy->setInitialInfo(file);
}

void FileDestination::write(const QString& message, Level)
{
    if (!isValid())
        return;
    strategy->includeMessageInCalculation(message);
    if (strategy->shouldRotate())
        rotateFile();
    // A stream without a device would warn, and that in a log.
    if (!isValid())
        return;
    stream << message << '\n';
    stream.flush();
}

bool FileDestination::isValid()
{
    return file.isOpen();
}

bool FileDestination::openFile()
{
    if (!file.open(strategy->recommendedOpenModeFlag()))
        return false;
    stream.setDevice(&file);
    // The codec goes with the old device.
    stream.setCodec("UTF-8");
    return true;
}

void FileDestination::rotateFile()
{
    stream.setDevice(nullptr);
    file.close();
    strategy->rotate();
    if (!openFile())
        complain("could not reopen log file", file.fileName());
}

} // namespace QsLogging
