// The Window menu: arranges the document windows and lists them.
#pragma once

#include <QMenu>

class QMdiArea;
class QMdiSubWindow;
class QSignalMapper;

class WindowMenu : public QMenu {
    Q_OBJECT

public:
    /// The area must outlive the menu.
    WindowMenu(QMdiArea* area, QWidget* parent);

    /// Lists the present documents. Runs by itself each time the menu comes up.
    void refresh();
    /// Arranging needs a document.
    void updateActions();

signals:
    void windowChosen(QWidget* window); ///< a QMdiSubWindow

private:
    QAction* makeAction(const QString& text, const QString& tip, const QString& icon,
                        void (QMdiArea::*arrange)());
    void addEntry(QMdiSubWindow* window, int number);

    QMdiArea* mdiArea;
    QSignalMapper* windowMapper;
    QList<QAction*> arrangeActions; ///< tile, cascade, next, previous
    QAction* documentSeparator;
};
