// Main window: the area of document windows, menus, tool bars, the console and the status line.
// Its slots forward to the active document; without one they do nothing.
#pragma once

#include "ui/MainActions.h"

#include <QMainWindow>
#include <QMdiArea>

#include <memory>

class CFigContext;
class ConsoleDock;
class ContextPanel;
class CoordsToolbar;
class FigObject;
class QDockWidget;
class QMdiSubWindow;
class QTChildFrm;
class QTextDocument;
class RecentFiles;
class ToolRow;
class WindowMenu;

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

    /// Puts a file first in the list of recent files, which the File menu offers.
    void updateRecentFiles(const QString& fileName);
    void updateRecentFileActions();

    /// Shows the zoom of a document in the tool row, if that document is the active one.
    void showZoom(CFigContext* context);
    /// Chooses a grid for a document, and for new ones. Null means the active document.
    void setGrid(int index, CFigContext* context);
    /// Redraws every document.
    void redisplayCanvas();
    QTextDocument* logDocument() const; ///< what the console shows

    /// Shows the attribute panel of a command; a negative number means the command in force.
    void showContextDialog(int command);
    /// Shows the attribute panel of an object, or the empty one for null, and tells whether the
    /// object has a comment. A null context means the active document; nothing without one.
    void showAttributesBar(CFigContext* context, FigObject* object);
    void fireCommentChanged(bool hasComment);

signals:
    void commentChanged(bool hasComment);

public slots:
    QTChildFrm* newFile(); ///< a new empty document, shown
    void open();
    void openRecentFile(); ///< the file in the data of the sending action
    void save();
    void saveAs();
    void closeActiveChild();
    void closeAllChilds();
    void zoomIn();
    void zoomOut();
    void zoomToSelection();
    void zoomToSelectionRevert();
    void onEditZoom();
    void onZoomIndex(int index);
    void onOpenConsoleView();
    void onClearLog();
    void about();
    void aboutQt();
    void updateMenus();
    void updateWindowMenu();
    void setActiveSubWindow(QWidget* window);
    void subWindowActivated(QMdiSubWindow* window);

    // Constraints of new line segments; the argument is not looked at.
    void setUnconstraint(bool);
    void setMounthattan(bool);
    void setManhattan(bool);
    void setMountain(bool);
    void setLatexarrow(bool);
    void setLatexline(bool);

    void setSnapModeMagnet(bool on);
    void setSnapModeVertex(bool on);

    // What the active document allows.
    void setCompoundButtonsState(bool btCreate, bool btBreak, bool btOpen, bool btClose);
    void setConvertLineSplineButtonState(bool enabled);
    void setAlignButtonsState(bool enabled);

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void setupUi();
    QDockWidget* addPanel(const QString& title, const QString& name, Qt::DockWidgetArea area);
    void createPanels();
    void createToolbars();
    void createMenus();
    void createStatusBar();
    void readSettings();
    void writeSettings();
    QMenu* addMenu(const QString& title, std::initializer_list<MainAction> entries);
    void addToolbar(const QString& title, std::initializer_list<MainAction> entries);
    void openOrActivate(const QString& fileName);
    void openInNewWindow(const QString& name);
    void discard(QTChildFrm* child);
    void applyZoom(const QString& text);
    void setSnapBit(int bit, bool on, const char* message);
    template <typename View> void changeView(View view);

    QMdiArea* mdiArea;
    std::unique_ptr<MainActions> actions;
    RecentFiles* recentFiles;
    ToolRow* toolRow;
    ConsoleDock* console;
    ContextPanel* contextPanel;
    CoordsToolbar* coordsToolbar;
    QDockWidget* coordinatesDock;
    WindowMenu* windowMenu;
    QString lastDirectory; ///< of the open dialog
};
