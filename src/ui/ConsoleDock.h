// The console: a panel below the documents whose tab "Log" shows what the program tells of its
// work.
#pragma once

#include "ui/Late.h"

#include <QDockWidget>

class QTextDocument;

class ConsoleDock : public Late<QDockWidget> {
    Q_OBJECT

public:
    explicit ConsoleDock(QWidget* window);

    QTextDocument* logDocument() const { return log; }

signals:
    void clearLogWanted();

protected:
    void makeContent() override;

private:
    QTextDocument* log;
};
