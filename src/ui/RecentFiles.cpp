#include "ui/RecentFiles.h"

#include <QAction>
#include <QFileInfo>
#include <QSettings>

namespace {

const char settingsKey[] = "recentFileList";

QStringList storedFiles()
{
    return QSettings("Orvalt", "Orvalt").value(settingsKey).toStringList();
}

} // namespace

RecentFiles::RecentFiles(QObject* parent) : QObject(parent), endSeparator(new QAction(this))
{
    for (int place = 0; place < MAX_RECENT_FILES; ++place)
        fileActions.append(new QAction(this));
    endSeparator->setSeparator(true);
    updateActions();
}

void RecentFiles::add(const QString& fileName)
{
    QStringList files = storedFiles();
    files.removeAll(fileName);
    files.prepend(fileName);
    QSettings("Orvalt", "Orvalt")
        .setValue(settingsKey, QStringList(files.mid(0, MAX_RECENT_FILES)));
    updateActions();
}

void RecentFiles::updateActions()
{
    const QStringList files = storedFiles();
    for (int place = 0; place < MAX_RECENT_FILES; ++place) {
        QAction* action = fileActions[place];
        action->setVisible(place < files.size());
        if (place >= files.size())
            continue;
        action->setText(tr("&%1 %2").arg(place + 1).arg(QFileInfo(files[place]).fileName()));
        action->setToolTip(files[place]);
        action->setData(files[place]);
    }
    endSeparator->setVisible(!files.isEmpty());
}
