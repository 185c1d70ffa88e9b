#include "ui/ConsoleDock.h"

#include <QPushButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

/// A few lines high unless the user wants more of it.
class LogView : public QTextEdit {
public:
    QSize sizeHint() const override { return {400, 110}; }
};

} // namespace

ConsoleDock::ConsoleDock(QWidget* window)
    : QDockWidget(tr("Console"), window), logView(new LogView),
      clearLog(new QPushButton(QIcon(":/actions/images/actions/clear_log.png"), tr("Clear log"))),
      tabs(new QTabWidget)
{
    setObjectName("consoleDock");
    setAllowedAreas(Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
    logView->setObjectName("logView");
    logView->setAccessibleName(tr("Log"));
    logView->setReadOnly(true);
    logView->setLineWrapMode(QTextEdit::NoWrap);
    clearLog->setObjectName("clearLog");

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(logView);
    layout->addWidget(clearLog, 0, Qt::AlignRight);
    tabs->addTab(page, tr("Log"));
    setWidget(tabs);
}
