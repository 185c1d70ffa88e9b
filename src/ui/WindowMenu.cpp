#include "ui/WindowMenu.h"

#include "ui/LateIcon.h"
#include "ui/QTChildFrm.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSignalMapper>

WindowMenu::WindowMenu(QMdiArea* area, QWidget* parent)
    : QMenu(tr("&Window"), parent), mdiArea(area), windowMapper(new QSignalMapper(this))
{
    arrangeActions = {
        makeAction(tr("&Tile"), tr("Tile the windows"), "tile", &QMdiArea::tileSubWindows),
        makeAction(tr("&Cascade"), tr("Cascade the windows"), "cascade",
                   &QMdiArea::cascadeSubWindows),
        makeAction(tr("Ne&xt"), tr("Move the focus to the next window"), "next",
                   &QMdiArea::activateNextSubWindow),
        makeAction(tr("Pre&vious"), tr("Move the focus to the previous window"), "previous",
                   &QMdiArea::activatePreviousSubWindow)};
    // What outlives the clearing of the menu belongs to the area.
    documentSeparator = new QAction(mdiArea);
    documentSeparator->setSeparator(true);
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &WindowMenu::refresh);
    connect(windowMapper, &QSignalMapper::mappedWidget, this, &WindowMenu::windowChosen);
    refresh();
}

QAction* WindowMenu::makeAction(const QString& text, const QString& tip, const QString& icon,
                                void (QMdiArea::*arrange)())
{
    auto* action =
        new QAction(lateIcon(QString(":/actions/images/actions/%1.png").arg(icon)), text, mdiArea);
    action->setToolTip(tip);
    connect(action, &QAction::triggered, mdiArea, arrange);
    return action;
}

void WindowMenu::updateActions()
{
    const bool hasDocument = documentOf(mdiArea->activeSubWindow()) != nullptr;
    for (QAction* action : arrangeActions)
        action->setEnabled(hasDocument);
    documentSeparator->setVisible(hasDocument);
}

void WindowMenu::refresh()
{
    clear();
    addActions(arrangeActions.mid(0, 2));
    addSeparator();
    addActions(arrangeActions.mid(2));
    addAction(documentSeparator);
    updateActions();
    int number = 1;
    for (QMdiSubWindow* window : mdiArea->subWindowList())
        if (documentOf(window))
            addEntry(window, number++);
}

void WindowMenu::addEntry(QMdiSubWindow* window, int number)
{
    const QString text = number <= 9 ? tr("&%1 %2") : tr("%1 %2");
    QAction* action =
        addAction(text.arg(number).arg(documentOf(window)->userFriendlyCurrentFile()));
    action->setCheckable(true);
    action->setChecked(window == mdiArea->activeSubWindow());
    connect(action, &QAction::triggered, windowMapper, QOverload<>::of(&QSignalMapper::map));
    windowMapper->setMapping(action, window);
}
