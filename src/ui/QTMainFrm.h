// Main window: the area of document windows, menus, tool bars, the console and the status line.
// Its slots forward to the active document; without one they do nothing.
#pragma once

#include "ui/MainActions.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QPoint>
#include <QTimer>

#include <memory>

class AttrsToolbarHandler;
class CFigContext;
class ConsoleDock;
class ContextPanel;
class CoordsToolbar;
class FigColorDlg;
class FigEllipse;
class FigObject;
class FontsDlg;
class LayersToolbar;
class ObjectCommentDlg;
class QDockWidget;
class QLabel;
class QMdiSubWindow;
class QTChildFrm;
class QTextDocument;
class RecentFiles;
class ShapesToolbar;
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
    bool isCommentShown() const { return commentShown; } ///< what commentChanged has told last
    int shownUnit() const { return unit; }               ///< what unitChanged has told last
    /// Shows the measures of the ellipse in work in the coordinate panel.
    void showEllipseCoords(bool metric, FigEllipse* ellipse);
    /// Shows the layers of a document, if that is the active one. Null blanks the panel.
    void showLayers(CFigContext* context);
    /// The same for the colours of a document.
    void updateColors(CFigContext* context);
    /// To be called before a document goes.
    void forgetColors(const CFigContext* context);
    FigColorDlg* colorDialog() const { return colorDlg; } ///< complete when it is shown
    FontsDlg* fontsDialog();
    /// Lets the user edit the comment of an object of that document; not a step of undo.
    void editComment(CFigContext* context, FigObject* object);
    AttrsToolbarHandler* attributes() const { return attrsHandler; } ///< the panels' coordinator

    ShapesToolbar* shapesToolbar() const { return shapes; }
    /// Tells in the status bar what the next click does.
    void showGestureHint();
    /// Undo and redo are offered when the active document has something for them.
    void updateHistoryActions();
    void deselectAll(); ///< in the active document

    /// The object that the pointer is over, in any document. Null when it may be gone.
    void setObjectUnderCursor(FigObject* object) { objectUnderCursor = object; }
    FigObject* getObjectUnderCursor() const { return objectUnderCursor; }
    /// A tip with the comment of the object under the pointer, after that many milliseconds.
    void startCommentTip(const QString& text, const QPoint& position, int delay);
    void stopCommentTip();

signals:
    void commentChanged(bool hasComment);
    void unitChanged(int unit); ///< of the active document: 0 centimetres, 1 inches

public slots:
    QTChildFrm* newFile(); ///< a new empty document, shown
    void open();
    void openRecentFile(); ///< the file in the data of the sending action
    void save();
    void saveAs();
    void closeActiveChild();
    void closeAllChilds();
    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void selectAll();
    void createSmartLinks();
    void alignLeft();
    void alignTop();
    void alignRight();
    void alignBottom();
    void alignCenterH();
    void alignCenterV();
    void alignCenterHV();
    void onCreateCompound();
    void onBreakCompound();
    void onOpenCompound();
    void onCloseCompound();
    void onConvertLineSpline();
    void showCommentTip();
    void zoomIn();
    void zoomOut();
    void zoomToSelection();
    void zoomToSelectionRevert();
    void onEditZoom();
    void onZoomIndex(int index);
    void onOpenConsoleView();
    void onOpenLayersPanel();
    void onOpenColorDlg();
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
    void createDialogs();
    ObjectCommentDlg* commentDialog();
    void createPanels();
    void createToolbars();
    void createMenus();
    void createStatusBar();
    void createToolPanels();
    void createAttributePanels();
    void restoreMessage(const QString& shown);
    void resumeTool(QTChildFrm* child);
    void showAttributesOf(CFigContext* context);
    void readSettings();
    void writeSettings();
    QMenu* addMenu(const QString& title, std::initializer_list<MainAction> entries);
    void addToolbar(const QString& title, std::initializer_list<MainAction> entries);
    void openOrActivate(const QString& fileName);
    void openInNewWindow(const QString& name);
    void discard(QTChildFrm* child);
    void applyZoom(const QString& text);
    void forward(void (QTChildFrm::*command)());
    void align(int horizontal, int vertical);
    void setSnapBit(int bit, bool on, const char* message);
    template <typename View> void changeView(View view);

    QMdiArea* mdiArea;
    std::unique_ptr<MainActions> actions;
    RecentFiles* recentFiles;
    ToolRow* toolRow;
    ConsoleDock* console;
    AttrsToolbarHandler* attrsHandler;
    ContextPanel* contextPanel;
    LayersToolbar* layersToolbar;
    ObjectCommentDlg* commentDlg = nullptr; ///< null until it is first wanted
    FigColorDlg* colorDlg;
    FontsDlg* fontsDlg = nullptr; ///< the same
    CoordsToolbar* coordsToolbar;
    ShapesToolbar* shapes;
    QLabel* gestureHintLabel = nullptr; ///< in the status bar, null until that is made
    QDockWidget* coordinatesDock;
    WindowMenu* windowMenu;
    QString lastDirectory; ///< of the open dialog
    bool commentShown = false;
    int unit = 0;
    FigObject* objectUnderCursor = nullptr;
    QTimer commentTipTimer;
    QPoint commentTipPosition; ///< on the screen
    QString commentTipText;
};
