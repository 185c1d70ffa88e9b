// The files that were opened or saved last: kept in the settings store, offered in a menu.
#pragma once

#include <QList>
#include <QObject>

class QAction;

constexpr int MAX_RECENT_FILES = 6;

class RecentFiles : public QObject {
    Q_OBJECT

public:
    explicit RecentFiles(QObject* parent);

    /// One action per place in the list, hidden where the list is shorter; its data is the file
    /// name. Owned here.
    const QList<QAction*>& actions() const { return fileActions; }
    /// Visible while there is a recent file. Owned here.
    QAction* separator() const { return endSeparator; }
    /// Puts a file first. Files that no longer exist stay in the list.
    void add(const QString& fileName);
    /// Takes the actions from the stored list.
    void updateActions();

private:
    QList<QAction*> fileActions;
    QAction* endSeparator;
};
