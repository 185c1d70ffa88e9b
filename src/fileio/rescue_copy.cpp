#include "fileio/rescue_copy.h"

#include "fileio/file_replacement.h"
#include "model/shell.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

/// In characters; so many fit in a name, whatever they take as UTF-8.
constexpr int MAX_NAME_PART = 50;

/// A name that no file has yet.
QString newRescueName(const QString& fileName)
{
    const QString stem = QFileInfo(fileName).completeBaseName().left(MAX_NAME_PART);
    const QString time = QDateTime::currentDateTime().toString("yyyy-MM-dd-hh-mm-ss-zzz");
    const QString path = rescueFolder() + '/' + stem + '-' + time;
    QString candidate = path + ".fig";
    for (int number = 2; QFile::exists(candidate); ++number)
        candidate = path + '-' + QString::number(number) + ".fig";
    return candidate;
}

} // namespace

QString rescueFolder()
{
    // The same folder for the program and its tools, whatever they are called.
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Orvalt/rescue";
}

void keepRescueCopy(const QString& fileName, const QByteArray& content)
{
    QDir().mkpath(rescueFolder());
    const QString rescueName = newRescueName(fileName);
    FileReplacement rescue(rescueName);
    const bool written = rescue.open() == 0 && rescue.commit(content) == 0;
    shell_log(QString(written ? "What could not be saved in \"%1\" stands in \"%2\"."
                              : "No rescue copy of \"%1\" could be written to \"%2\".")
                  .arg(fileName, rescueName));
}
