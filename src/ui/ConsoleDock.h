// The console: a panel below the documents whose tab "Log" shows what the program tells of its
// work.
#pragma once

#include <QDockWidget>

class QPushButton;
class QTabWidget;
class QTextEdit;

class ConsoleDock : public QDockWidget {
    Q_OBJECT

public:
    explicit ConsoleDock(QWidget* window);

    QTextEdit* logView; ///< read-only
    QPushButton* clearLog;

private:
    QTabWidget* tabs;
};
