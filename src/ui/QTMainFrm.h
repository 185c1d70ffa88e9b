// Main window: the area of document windows, the menus and the status line. Its slots forward to
// the active document; without one they do nothing.
#pragma once

#include <QMainWindow>
#include <QMdiArea>

class QMdiSubWindow;
class QSignalMapper;
class QTChildFrm;

class QTMainFrm : public QMainWindow {
    Q_OBJECT

public:
    QTMainFrm();
    ~QTMainFrm() override;

    /// A document window without a document; the area of document windows owns it.
    QTChildFrm* createMdiChild();
    /// Opens a file in a window of its own, be it open already or not. name as on a command line.
    void openFile(char* name);

    QTChildFrm* activeMdiChild() const;
    /// Window whose document is that file, by canonical path; null if there is none.
    QMdiSubWindow* findMdiChild(const QString& fileName) const;
    QMdiSubWindow* findSubWindow(QTChildFrm* child) const;
    QList<QTChildFrm*> getChilds(QMdiArea::WindowOrder order) const;
    void setCurrentFile(const QString& fileName);
    QString currentFile() const; ///< empty without a document

public slots:
    QTChildFrm* newFile(); ///< a new empty document, shown
    void open();
    void closeActiveChild();
    void closeAllChilds();
    void zoomIn();
    void zoomOut();
    void updateMenus();
    void updateWindowMenu();
    void setActiveSubWindow(QWidget* window);

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void setupUi();
    void createActions();
    void createMenus();
    void createStatusBar();
    void readSettings();
    void writeSettings();
    template <typename Receiver, typename Slot>
    QAction* makeAction(const QString& text, const QString& key, const QString& tip,
                        Receiver* receiver, Slot slot);
    void openInNewWindow(const QString& fileName);
    void discard(QTChildFrm* child);
    void addWindowMenuEntry(QMdiSubWindow* window, int number);

    QMdiArea* mdiArea;
    QSignalMapper* windowMapper;
    QMenu* fileMenu;
    QMenu* viewMenu;
    QMenu* windowMenu;
    QAction* newAct;
    QAction* openAct;
    QAction* closeAct;
    QAction* exitAct;
    QAction* zoomInAct;
    QAction* zoomOutAct;
    QAction* tileAct;
    QAction* cascadeAct;
    QAction* nextAct;
    QAction* previousAct;
    QAction* separatorAct;
    QString lastDirectory; ///< of the open dialog
};
