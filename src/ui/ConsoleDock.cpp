#include "ui/ConsoleDock.h"

#include "ui/LateIcon.h"

#include <QAbstractTextDocumentLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QTextDocument>
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
    : Late(tr("Console"), window), log(new QTextDocument(this))
{
    setObjectName("consoleDock");
    setAllowedAreas(Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
}

void ConsoleDock::makeContent()
{
    auto* logView = new LogView;
    log->setDefaultFont(logView->font());
    log->documentLayout()->setPaintDevice(logView->viewport());
    logView->setDocument(log);
    logView->setObjectName("logView");
    logView->setAccessibleName(tr("Log"));
    logView->setReadOnly(true);
    logView->setLineWrapMode(QTextEdit::NoWrap);
    auto* clearLog =
        new QPushButton(lateIcon(":/actions/images/actions/clear_log.png"), tr("Clear log"));
    clearLog->setObjectName("clearLog");
    connect(clearLog, &QPushButton::clicked, this, &ConsoleDock::clearLogWanted);

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(logView);
    layout->addWidget(clearLog, 0, Qt::AlignRight);
    auto* tabs = new QTabWidget;
    tabs->addTab(page, tr("Log"));
    setWidget(tabs);
}
