// Document window: shows one figure with rulers and scroll bars, and hands the user's pointer and
// keys to the procedure slots of the active tool.
//
// All drawing goes into an off-screen image, in brackets of the window's one painter; the screen
// is only ever updated from that image, so a repaint never runs engine code.
#pragma once

#include "edit/pick_boxes.h"
#include "model/ObjectFunctions.h"

#include <QImage>
#include <QPainter>
#include <QScrollArea>

class CFigContext;
class QMdiSubWindow;
class QRuler;
class QScrollBar;
class QTMainFrm;
class UndoQueue;

class QTChildFrm : public QScrollArea {
    Q_OBJECT

public:
    explicit QTChildFrm(QTMainFrm* mainWindow);
    ~QTChildFrm() override;

    QTMainFrm* mainFrm;
    QRuler* hRuler = nullptr; ///< either ruler may be null
    QRuler* vRuler = nullptr;
    QWidget* rulerCorner = nullptr; ///< there when both rulers are
    CFigContext* figContext;        ///< the document; owned
    QPainter painter;               ///< active only for the length of one drawing operation
    QImage* canvasImage;            ///< owned
    QString curFile;                ///< canonical where the file exists
    bool isUntitled = true;         ///< until the document has a file
    int figX = 0;                   ///< last pointer position, figure units, as the slots get it
    int figY = 0;
    int dragPixelX = 0; ///< last step of a drag with the right button
    int dragPixelY = 0;
    int lastPixelX = -1; ///< last pointer position in the viewport
    int lastPixelY = -1;
    int canvasWidth = 0; ///< size of canvasImage since the first resize
    int canvasHeight = 0;

    // --- the document ---------------------------------------------------------

    /// Makes this a new untitled document, "document1.fig" and so on; no number comes twice.
    void newFile();
    /// False after a message; the window is then of no use.
    bool loadFile(const QString& fileName);
    void setCurrentFile(const QString& fileName);
    /// Saves under the present name; asks for one if there is none. False if the user cancels.
    bool save();
    bool saveAs();
    /// Writes the figure and takes the name, its former content going to the name with ".bak".
    /// True also when it could not be written: a message has told so, and the document stays
    /// modified.
    bool saveFile(const QString& fileName);
    bool lastWriteFailed() const; ///< of this document
    /// Asks about unsaved changes. False if the document has to stay.
    bool maybeSave();
    QString userFriendlyCurrentFile() const; ///< file name without directory
    static QString strippedName(const QString& fullFileName);

    // --- painting -------------------------------------------------------------

    /// Bracket for drawing from outside. After beginPaint the painter is active unless the canvas
    /// has no pixels.
    void beginPaint();
    void endPaint();
    void redisplayCanvas();
    void redisplayCanvasUpdate(); ///< the screen follows with the next paint event
    void clearCanvas();
    void redisplayObjectList(FigObjectList* list, int depth);
    void refreshObjArea(FigObject* object, bool exclude);
    void refreshObjArea(FigObjectList* list, bool exclude);

    // --- markers and selection ------------------------------------------------

    void showPointMarker();
    void showPointMarker(FigObject* object);
    void showTaggedMarker(FigObject* except);
    void showSelectedPointMarker(int x, int y); ///< figure units, as the centre's
    void refreshCenterMarker(int x, int y); ///< with the cross if the centre is set
    void drawPointmarker();
    void erasePointmarker();
    void refreshPointmarker();
    void clearPointMarker(FigObject* object);
    void unmarkCurrentObject();
    void unmarkAllUntaggedObjects();
    void deselectAll();
    /// In the selection and its gestures only.
    void selectAll();

    // --- edit commands, none of which runs while a gesture holds objects -------

    void undo();
    void redo();
    void cut(); ///< these three not in any gesture
    void copy();
    void paste();
    void onCreateCompound(); ///< of the selection
    void onBreakCompound();
    void onOpenCompound(); ///< the current object, if it is one
    void onCloseCompound();
    void onAlignTaggedObjects(); ///< by cur_halign and cur_valign
    void onConvertLineSpline();  ///< the current object
    void createSmartLinks();     ///< in the whole drawing; asks first

    // --- view -----------------------------------------------------------------

    QSize sizeHint() const override;
    int effectiveWidth() const; ///< pixels, without the scroll bar
    int effectiveHeight() const;
    void zoomIn();
    void zoomOut();
    /// Sets the zoom, limited to what is allowed, around the centre of the view.
    void setZoom(double wanted);
    /// Shows the whole figure as large as it fits. Nothing for a figure without extent.
    void zoomToFit();
    /// Shows the selected objects as large as they fit. Nothing without a selection.
    void zoomToSelection();
    /// Back to the view before zoomToSelection, as often as wanted.
    void zoomToSelectionRevert();
    void updateSliders();
    void updateSliders(int width, int height);
    void setSliderPositions(int x, int y);
    void addRulers(bool horizontal, bool vertical);
    void updateRulers();
    void updateRulers(double originX, double originY);

    // --- events ---------------------------------------------------------------

    /// Takes a viewport pixel into figX and figY. Ctrl keeps the vertical position, Shift the
    /// horizontal one. True if the pixel changed; with moving and Shift only the vertical counts.
    bool getMouseXY(int px, int py, bool moving);
    void updateCompoundButtons();
    void updateConvertLineSplineButton();
    void updateAlignButtons();
    void updateAddClipToLibraryButton();
    void updateButtons(); ///< all four

signals:
    void compoundButtonsStateChanged(bool btCreate, bool btBreak, bool btOpen, bool btClose);
    void convertLineSplineButtonStateChanged(bool enabled);
    void alignButtonsStateChanged(bool enabled);
    void addClipToLibraryButtonStateChanged();
    void coordsChanged(CFigContext* fgc, int x, int y);
    void redisplayCanvasSignal();

public slots:
    void onScrollByX(int value);
    void onScrollByY(int value);
    void redisplayCanvasOnSignal();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    template <typename Work> void paint(Work work);
    /// A bracket for what changes more than pixels: it runs even where there is nothing to paint
    /// on.
    template <typename Work> void change(Work work)
    {
        beginPaint();
        work();
        endPaint();
    }
    /// The same with the antialiasing left as it is.
    template <typename Work> void changeWithPresentHint(Work work)
    {
        startPainter();
        work();
        endPaint();
    }
    template <typename Work> void edit(Work work);
    bool writeFigure(const QString& fileName);
    void startPainter();
    void setAntialiasing(bool on);
    void stepThroughHistory(void (UndoQueue::*step)());
    void endGesture();
    void forgetFoundObject();
    void replaceCanvas(int width, int height);
    void zoomAroundCentre(double newZoom, int* shiftX, int* shiftY);
    void followView();
    void removeRulers();
    void reserveRulerSpace(Qt::Alignment end);
    void fitSlider(QScrollBar* bar, float ppi, float pageSize, int size, int* shift, QRuler* ruler);
    void scrollTo(QScrollBar* bar, int value, int* shift, QRuler* ruler);
    void dragDrawing(QMouseEvent* event);
    void pressLeft();
    void pressRight();
    FigObject* objectUnderPointer();
    void serveMove(FigObject* found);
    void afterSlot();
    void showCursor(Qt::CursorShape shape);
    void showPickCursor(const FigObject* found);
    void showLinkTarget(FigObject* found);
    void startCommentTip(const FigObject* found, const QPoint& pixel);
    void markPointerOnRulers();
    void moveByKey(int key);
    void deleteTagged();
    void takeHeldKeys(Qt::FocusReason reason);
    bool isAnyObjectTagged() const;

    QString failedWrite;          ///< file that the last write could not replace; empty if it could
    QList<QWidget*> rulerSpacers; ///< keep the scroll bars clear of the rulers
    bool slidersHeld = false;     ///< the bars are being set: the view does not follow
    PickBoxes pickBoxes;          ///< hold from one pointer move to the next, and no longer
};

/// The document in a window of the document area; null if there is none.
QTChildFrm* documentOf(const QMdiSubWindow* window);
