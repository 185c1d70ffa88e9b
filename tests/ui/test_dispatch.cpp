// What a gesture meets on its way to the tool, and what ends it: right presses, keys, other tools,
// other documents, undo and the end of its document.
#include "Gesture.h"

#include "edit/d_arc.h"
#include "edit/d_box.h"
#include "edit/d_ellipse.h"
#include "edit/d_line.h"
#include "edit/e_clipboard.h"
#include "edit/e_select.h"
#include "render/grid.h"
#include "ui/ContextPanel.h"

#include <QAction>
#include <QLabel>
#include <QSignalSpy>
#include <QStatusBar>
#include <QToolTip>

namespace {


QImage image(const Gesture& gesture)
{
    return *gesture.window().child->canvasImage;
}

/// A box with these corners, drawn by the tool.
FigLine* addBox(Gesture& gesture, int x1, int y1, int x2, int y2)
{
    gesture.tool(CMD_BOX).left(x1, y1).left(x2, y2);
    return gesture.last<FigLine>();
}

/// One selected box, in the selection tool.
Gesture selectedBox()
{
    Gesture gesture = draw(CMD_BOX);
    addBox(gesture, 1200, 1200, 2400, 2400);
    gesture.tool(CMD_SELECT).left(1800, 1200);
    return gesture;
}

Qt::CursorShape cursorOf(const Gesture& gesture)
{
    return gesture.window().child->viewport()->cursor().shape();
}

QString hintOf(const Gesture& gesture)
{
    return gesture.window().window->findChild<QLabel*>("gestureHint")->text();
}

int pageOf(const Gesture& gesture)
{
    return gesture.window().window->findChild<ContextPanel*>()->currentIndex();
}

/// A second document, and what its window needs to be served events.
struct OtherDocument {
    explicit OtherDocument(const Gesture& gesture)
        : child(gesture.window().window->newFile()), context(child->figContext)
    {
    }

    void left(int x, int y) const
    {
        for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            send(type, x, y, Qt::LeftButton);
    }

    void send(QEvent::Type type, int x, int y, Qt::MouseButton button) const
    {
        const QPoint pixel(pixelX(context, x), pixelY(context, y));
        QMouseEvent event(type, pixel, child->viewport()->mapToGlobal(pixel), button,
                          type == QEvent::MouseButtonPress ? button : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(child->viewport(), &event);
    }

    QTChildFrm* child;
    CFigContext* context;
};

void activate(const Gesture& gesture, QTChildFrm* child)
{
    gesture.window().window->setActiveSubWindow(gesture.window().window->findSubWindow(child));
}

bool areSlotsEmpty()
{
    return !canvas_leftbut_proc && !canvas_leftbutUp_proc && !canvas_middlebut_proc &&
           !canvas_middlebut_save && !canvas_locmove_proc && !canvas_locmove_proc2 && !elastic_proc;
}

} // namespace

class TestDispatch : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { loadGridDefinitions(); }
    void cleanupTestCase() { destroyGridDefinitions(); }
    void init() { resetProcessState(); }
    void cleanup() { clear_clipboard(); }

    // --- a whole gesture --------------------------------------------------------

    void aPolylineIsDrawnByClicks()
    {
        const Gesture gesture =
            draw(CMD_POLYLINE).left(1200, 1200).left(2400, 1200).right(2400, 2400);
        QCOMPARE(gesture.count(), 1);
        QCOMPARE(Gesture::points(gesture.last<FigLine>()->points),
                 QString("1200,1200 2400,1200 2400,2400"));
        QCOMPARE(gesture.steps(), 1);
        QVERIFY(gesture.figure().contains("\n\t 1200 1200 2400 1200 2400 2400\n"));
    }

    void aGestureIsOnFromItsFirstPressToItsLast()
    {
        Gesture gesture = draw(CMD_BOX);
        QVERIFY(!gestureContext);
        gesture.left(1200, 1200);
        QCOMPARE(gestureContext, gesture.context());
        QCOMPARE(action_on, 1);
        gesture.move(1800, 1800).left(2400, 2400);
        QVERIFY(!gestureContext);
        QCOMPARE(action_on, 0);
    }

    // --- right presses ----------------------------------------------------------

    void aRightPressCancelsAndWipesTheRubberBandPixelByPixel_data()
    {
        QTest::addColumn<int>("command");
        for (int command : {1, 2, 3, 4, 5, 7, 15, 16})
            QTest::newRow(qPrintable(QString::number(command))) << command;
    }

    void aRightPressCancelsAndWipesTheRubberBandPixelByPixel()
    {
        QFETCH(int, command);
        otherPreferencesData.antialiasing = true;
        Gesture gesture = draw(command);
        gesture.window().child->redisplayCanvas();
        const QImage before = image(gesture);
        gesture.left(1500, 1500).move(2715, 3330);
        QVERIFY(image(gesture) != before);
        QVERIFY(isCancelCreateObjFunction(canvas_middlebut_proc));
        gesture.right(2715, 3330);
        QCOMPARE(image(gesture), before);
        QCOMPARE(gesture.count(), 0);
        QCOMPARE(action_on, 0);
    }

    void aRightPressInAnIdleDrawingToolDeselectsEverything()
    {
        Gesture gesture = draw(CMD_BOX);
        FigLine* box = addBox(gesture, 1200, 1200, 2400, 2400);
        QVERIFY(box->tagged);
        QVERIFY(!canvas_middlebut_proc);
        QSignalSpy comment(gesture.window().window.get(), &QTMainFrm::commentChanged);
        gesture.right(3000, 3000);
        QVERIFY(!box->tagged);
        QCOMPARE(box->marked, 0);
        QVERIFY(!gesture.context()->curObject);
        QCOMPARE(comment.last(), QVariantList{false});
    }

    void aRightPressInTheIdlePolylineToolMakesADot()
    {
        Gesture gesture = draw(CMD_BOX);
        FigLine* box = addBox(gesture, 1200, 1200, 2400, 2400);
        gesture.tool(CMD_POLYLINE).right(3000, 3000);
        QCOMPARE(gesture.count(), 2);
        QVERIFY(!box->tagged);
        QCOMPARE(Gesture::points(gesture.last<FigLine>()->points), QString("3000,3000"));
    }

    void aRightPressInAnotherToolWithAnEmptySlotDoesNothing()
    {
        Gesture gesture = selectedBox();
        cur_command = CMD_DELETE;
        canvas_middlebut_proc = nullptr;
        gesture.right(3000, 3000);
        QVERIFY(gesture.last()->tagged);
        QCOMPARE(gesture.context()->curObject, gesture.last());
    }

    // --- Escape -----------------------------------------------------------------

    void escapeDeselectsAndShowsNoPanel()
    {
        Gesture gesture = selectedBox();
        QCOMPARE(pageOf(gesture), 3);
        gesture.key(Qt::Key_Escape);
        QVERIFY(!gesture.last()->tagged);
        QVERIFY(!gesture.context()->curObject);
        QCOMPARE(pageOf(gesture), 6);
    }

    void escapeLeavesNoButtonOfASelection()
    {
        Gesture gesture = selectedBox();
        QSignalSpy compounds(gesture.window().child, &QTChildFrm::compoundButtonsStateChanged);
        QSignalSpy align(gesture.window().child, &QTChildFrm::alignButtonsStateChanged);
        gesture.key(Qt::Key_Escape);
        QCOMPARE(compounds.value(0), QVariantList({false, false, false, false}));
        QCOMPARE(align.value(0), QVariantList{false});
    }

    void escapeInADrawingToolKeepsItsPanel()
    {
        Gesture gesture = draw(CMD_BOX);
        addBox(gesture, 1200, 1200, 2400, 2400);
        gesture.key(Qt::Key_Escape);
        QVERIFY(!gesture.last()->tagged);
        QCOMPARE(pageOf(gesture), 3);
    }

    void escapeLeavesTheGestureOfADrawingToolGoingOn()
    {
        const Gesture gesture =
            draw(CMD_POLYLINE).left(1200, 1200).key(Qt::Key_Escape).right(2400, 1200);
        QCOMPARE(gesture.count(), 1);
        QCOMPARE(Gesture::points(gesture.last<FigLine>()->points), QString("1200,1200 2400,1200"));
    }

    // --- another tool in mid-gesture --------------------------------------------

    void anotherToolAbandonsTheGestureWithoutWiping_data()
    {
        QTest::addColumn<int>("command");
        for (int command : {1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12, 13, 15, 16})
            QTest::newRow(qPrintable(QString::number(command))) << command;
    }

    void anotherToolAbandonsTheGestureWithoutWiping()
    {
        QFETCH(int, command);
        Gesture gesture = draw(command);
        gesture.window().child->redisplayCanvas();
        const QImage before = image(gesture);
        gesture.left(1200, 1200).move(2400, 1800);
        gesture.tool(CMD_BOX);
        QVERIFY(image(gesture) != before);
        gesture.window().child->redisplayCanvas();
        QCOMPARE(image(gesture), before);
        QCOMPARE(action_on, 0);
        QVERIFY(!gestureContext && !gesture.context()->firstPoint && !elastic_proc);
        gesture.left(3000, 3000).left(3600, 3600);
        QCOMPARE(gesture.count(), 1);
        QCOMPARE(gesture.last<FigLine>()->sub_type, int(T_BOX));
    }

    void anotherToolDropsWhatWasToBePasted()
    {
        Gesture gesture = selectedBox();
        gesture.window().window->copy();
        gesture.window().window->paste();
        gesture.move(3000, 3000);
        QCOMPARE(gesture.count(), 2);
        gesture.tool(CMD_POLYGON);
        QCOMPARE(gesture.count(), 1);
        QVERIFY(!gesture.context()->movedObjects && !canvas_locmove_proc2);
        QCOMPARE(gesture.steps(), 1);
    }

    void anotherToolDropsTheCopyOfTheCopyTool()
    {
        Gesture gesture = draw(CMD_BOX);
        FigLine* box = addBox(gesture, 1200, 1200, 2400, 2400);
        gesture.tool(CMD_COPY).left(1800, 1200).move(3000, 3000);
        QCOMPARE(gesture.count(), 2);
        gesture.tool(CMD_SELECT);
        QCOMPARE(gesture.count(), 1);
        QCOMPARE(gesture.last(), box);
        QVERIFY(!gesture.context()->curObject);
    }

    void anotherToolLeavesADraggedObjectWhereItWas()
    {
        Gesture gesture = selectedBox();
        gesture.press(1800, 1200).move(2400, 1800, Qt::LeftButton).move(3000, 1800, Qt::LeftButton);
        QCOMPARE(cur_command, int(CMD_DRAG_OBJECTS));
        gesture.tool(CMD_BOX);
        QVERIFY(!gesture.context()->movedObjects && !canvas_leftbutUp_proc);
        gesture.release(3000, 1800);
        QCOMPARE(gesture.last<FigLine>()->points->x, 1200);
        QCOMPARE(gesture.steps(), 1);
    }

    // --- another document in mid-gesture ----------------------------------------

    void anotherDocumentAbandonsTheGestureAndTheToolStartsAnew_data()
    {
        anotherToolAbandonsTheGestureWithoutWiping_data();
    }

    void anotherDocumentAbandonsTheGestureAndTheToolStartsAnew()
    {
        QFETCH(int, command);
        Gesture gesture = draw(command);
        const ButtonProc idle = canvas_leftbut_proc;
        gesture.left(1200, 1200).move(2400, 1800);
        const OtherDocument other(gesture);
        QCOMPARE(getFigContext(), other.context);
        QCOMPARE(action_on, 0);
        QVERIFY(!gestureContext && !gesture.context()->firstPoint);
        QVERIFY(canvas_leftbut_proc == idle);
        QCOMPARE(cur_command, command);
        other.left(1200, 1200);
        QCOMPARE(gestureContext, other.context);
        activate(gesture, gesture.window().child);
        QVERIFY(!gestureContext);
        QCOMPARE(gesture.count(), 0);
        QVERIFY(other.context->drawing.objects.isEmpty());
    }

    void aPolylineBegunInOneDocumentIsNotFinishedInAnother()
    {
        Gesture gesture = draw(CMD_POLYLINE).left(1200, 1200).left(2400, 1200);
        const OtherDocument other(gesture);
        other.left(600, 600);
        other.send(QEvent::MouseButtonPress, 900, 600, Qt::RightButton);
        QCOMPARE(other.context->drawing.objects.size(), 1);
        QCOMPARE(
            Gesture::points(static_cast<FigLine*>(other.context->drawing.objects.first())->points),
            QString("600,600 900,600"));
        QCOMPARE(gesture.count(), 0);
    }

    void theSameDocumentActivatedAgainKeepsTheGesture()
    {
        Gesture gesture = draw(CMD_POLYLINE).left(1200, 1200);
        activate(gesture, gesture.window().child);
        gesture.right(2400, 1200);
        QCOMPARE(gesture.count(), 1);
    }

    void aPasteEndsWhenAnotherDocumentComesUp()
    {
        Gesture gesture = selectedBox();
        gesture.window().window->copy();
        gesture.tool(CMD_POLYGON);
        gesture.window().window->paste();
        gesture.move(3000, 3000);
        const OtherDocument other(gesture);
        QCOMPARE(gesture.count(), 1);
        QCOMPARE(cur_command, int(CMD_POLYGON));
        QVERIFY(canvas_leftbut_proc == init_line_drawing);
        QVERIFY(other.context->drawing.objects.isEmpty());
    }

    void aDragEndsWhenAnotherDocumentComesUp()
    {
        Gesture gesture = selectedBox();
        gesture.window().child->redisplayCanvas();
        gesture.press(1800, 1200).move(2400, 1800, Qt::LeftButton).move(3000, 1800, Qt::LeftButton);
        const OtherDocument other(gesture);
        QCOMPARE(cur_command, int(CMD_SELECT));
        QVERIFY(!gesture.context()->movedObjects && !canvas_leftbutUp_proc);
        QVERIFY(canvas_leftbut_proc == init_tagging);
        QCOMPARE(gesture.last<FigLine>()->points->x, 1200);
        QCOMPARE(gesture.steps(), 1);
        QVERIFY(other.context->drawing.objects.isEmpty());
    }

    void aMoveOverAnotherDocumentIsNotPartOfTheGesture()
    {
        Gesture gesture = draw(CMD_BOX);
        const OtherDocument other(gesture);
        activate(gesture, gesture.window().child);
        gesture.left(1200, 1200).move(1800, 1800);
        other.send(QEvent::MouseMove, 5400, 3000, Qt::NoButton);
        QCOMPARE(cur_x, 1800);
        QCOMPARE(gestureContext, gesture.context());
        gesture.left(2400, 2400);
        QCOMPARE(gesture.count(), 1);
    }

    // --- the end of the document in mid-gesture ---------------------------------

    void closingTheDocumentEndsItsGesture_data()
    {
        anotherToolAbandonsTheGestureWithoutWiping_data();
    }

    void closingTheDocumentEndsItsGesture()
    {
        QFETCH(int, command);
        Gesture gesture = draw(command);
        const ButtonProc idle = canvas_leftbut_proc;
        gesture.left(1200, 1200).move(2400, 1800);
        gesture.window().window->closeActiveChild();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!gestureContext);
        QCOMPARE(action_on, 0);
        QVERIFY(areSlotsEmpty());
        QCOMPARE(hintOf(gesture), QString());
        gesture.window().window->newFile();
        QVERIFY(canvas_leftbut_proc == idle);
    }

    void closingTheDocumentDropsADrag()
    {
        Gesture gesture = selectedBox();
        gesture.press(1800, 1200).move(2400, 1800, Qt::LeftButton).move(3000, 1800, Qt::LeftButton);
        gesture.context()->resetModifiedflag();
        gesture.window().window->closeActiveChild();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!gestureContext && areSlotsEmpty());
        const OtherDocument other(gesture);
        QVERIFY(canvas_leftbut_proc == init_tagging);
        QCOMPARE(cur_command, int(CMD_SELECT));
    }

    void closingAnotherDocumentKeepsTheGesture()
    {
        Gesture gesture = draw(CMD_POLYLINE);
        const OtherDocument other(gesture);
        activate(gesture, gesture.window().child);
        gesture.left(1200, 1200);
        QVERIFY(other.child->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(gestureContext, gesture.context());
        gesture.right(2400, 1200);
        QCOMPARE(gesture.count(), 1);
    }

    // --- undo and redo ----------------------------------------------------------

    void undoInTheMiddleOfADrawingTakesTheLastObjectBackAndTheDrawingGoesOn()
    {
        Gesture gesture = draw(CMD_BOX);
        addBox(gesture, 1200, 1200, 2400, 2400);
        gesture.tool(CMD_POLYLINE).left(600, 600).undo();
        QCOMPARE(gesture.count(), 0);
        gesture.right(900, 600);
        QCOMPARE(gesture.count(), 1);
        QCOMPARE(Gesture::points(gesture.last<FigLine>()->points), QString("600,600 900,600"));
        QCOMPARE(gesture.redoSteps(), 0);
    }

    void editCommandsWaitForTheEndOfAGestureThatHoldsObjects()
    {
        Gesture gesture = selectedBox();
        gesture.window().window->copy();
        gesture.press(1800, 1200);
        QVERIFY(gestureHoldsObjects(gesture.context()));
        QTMainFrm* window = gesture.window().window.get();
        for (int state = 0; state < 2; ++state) {
            window->undo();
            window->redo();
            window->cut();
            window->paste();
            gesture.key(Qt::Key_Delete);
            QCOMPARE(gesture.count(), 1);
            QCOMPARE(gesture.steps(), 1);
            gesture.move(2400, 1800, Qt::LeftButton).move(2400, 1200, Qt::LeftButton);
        }
        gesture.release(2400, 1200);
        QCOMPARE(gesture.steps(), 2);
        QCOMPARE(gesture.last<FigLine>()->points->x, 1800);
        gesture.undo().undo();
        QCOMPARE(gesture.count(), 0);
    }

    // Page 14 has the angle of a turn, 16 the boxes of the update tool.
    void undoLeavesAToolItsPanel()
    {
        Gesture gesture = draw(CMD_BOX);
        addBox(gesture, 1200, 1200, 2400, 2400);
        for (const auto& [command, page] : {std::pair(CMD_ROTATE_CW, 14), std::pair(CMD_UPDATE, 16)}) {
            gesture.tool(command);
            gesture.undo();
            QCOMPARE(pageOf(gesture), page);
            gesture.redo();
            QCOMPARE(pageOf(gesture), page);
        }
    }

    void undoAndRedoShowThePanelOfWhatIsSelectedThen()
    {
        Gesture gesture = draw(CMD_BOX);
        addBox(gesture, 1200, 1200, 2400, 2400);
        QCOMPARE(pageOf(gesture), 3);
        QSignalSpy align(gesture.window().child, &QTChildFrm::alignButtonsStateChanged);
        gesture.undo();
        QVERIFY(!gesture.context()->curObject);
        QCOMPARE(pageOf(gesture), 6);
        QCOMPARE(align.last(), QVariantList{false});
        gesture.redo();
        QCOMPARE(gesture.count(), 1);
    }

    void undoAndRedoAreOfferedWhenThereIsAStep()
    {
        Gesture gesture = draw(CMD_BOX);
        const QList<QAction*> actions = gesture.window().window->findChildren<QAction*>();
        const auto named = [&](const QString& text) {
            return *std::find_if(actions.begin(), actions.end(),
                                 [&](const QAction* action) { return action->text() == text; });
        };
        const QAction* undo = named("Undo");
        const QAction* redo = named("Redo");
        QVERIFY(!undo->isEnabled() && !redo->isEnabled());
        addBox(gesture, 1200, 1200, 2400, 2400);
        QVERIFY(undo->isEnabled() && !redo->isEnabled());
        named("Undo")->trigger();
        QCOMPARE(gesture.count(), 0);
        QVERIFY(!undo->isEnabled() && redo->isEnabled());
        named("Redo")->trigger();
        QCOMPARE(gesture.count(), 1);
        QVERIFY(undo->isEnabled() && !redo->isEnabled());
        const OtherDocument other(gesture);
        QVERIFY(!undo->isEnabled() && !redo->isEnabled());
        activate(gesture, gesture.window().child);
        QVERIFY(undo->isEnabled());
    }

    // --- selection --------------------------------------------------------------

    void selectAllActsInTheSelectionAndItsGesturesOnly()
    {
        Gesture gesture = draw(CMD_BOX);
        addBox(gesture, 1200, 1200, 2400, 2400);
        addBox(gesture, 3000, 1200, 3600, 2400);
        gesture.key(Qt::Key_Escape);
        for (int command = 1; command <= 74; ++command) {
            set_tags(gesture.context()->getWorkingRoot(), false);
            cur_command = command;
            gesture.window().window->selectAll();
            const bool expected = command == 67 || command == 68 || command == 37;
            for (const FigObject* object : gesture.objects())
                QCOMPARE(bool(object->tagged), expected);
        }
    }

    void deselectingFromAPanelIsEscapeWithoutThePanel()
    {
        Gesture gesture = selectedBox();
        gesture.window().window->deselectAll();
        QVERIFY(!gesture.last()->tagged && !gesture.context()->curObject);
        QCOMPARE(pageOf(gesture), 3);
    }

    // --- keys that edit ---------------------------------------------------------

    void arrowKeysMoveTheSelectionByAPixel()
    {
        Gesture gesture = selectedBox();
        gesture.key(Qt::Key_Right).key(Qt::Key_Right).key(Qt::Key_Down);
        QCOMPARE(gesture.last<FigLine>()->points->x, 1230);
        QCOMPARE(gesture.last<FigLine>()->points->y, 1215);
        gesture.key(Qt::Key_Left).key(Qt::Key_Up);
        QCOMPARE(gesture.last<FigLine>()->points->x, 1215);
        QCOMPARE(gesture.last<FigLine>()->points->y, 1200);
        QCOMPARE(gesture.steps(), 6);
    }

    void arrowKeysGoToTheGridWhenItIsSnappedTo()
    {
        Gesture gesture = selectedBox();
        gesture.window().window->setGrid(2, nullptr);
        gesture.context()->metric = false;
        gesture.context()->magnetMode = 0;
        gridPreferences.snapMode = SNAP_GRID;
        const double step = getGridRound(gesture.context());
        QVERIFY(step > 15);
        const int left = gesture.last<FigLine>()->points->x;
        gesture.key(Qt::Key_Left);
        const int first = gesture.last<FigLine>()->points->x;
        QVERIFY(first < left && left - first <= step + 1);
        gesture.key(Qt::Key_Left);
        QVERIFY(qAbs(first - gesture.last<FigLine>()->points->x - step) <= 1);
        // Ctrl makes it a pixel again.
        const int before = gesture.last<FigLine>()->points->x;
        gesture.key(Qt::Key_Left, Qt::ControlModifier);
        QCOMPARE(gesture.last<FigLine>()->points->x, before - 15);
    }

    void arrowKeysWithoutASelectionLeaveTheGestureAlone()
    {
        Gesture gesture = draw(CMD_POLYLINE).left(1200, 1200).key(Qt::Key_Left).right(2400, 1200);
        QCOMPARE(Gesture::points(gesture.last<FigLine>()->points), QString("1200,1200 2400,1200"));
    }

    void deleteKeyRemovesTheSelection()
    {
        Gesture gesture = selectedBox();
        const QImage before = image(gesture);
        gesture.key(Qt::Key_Delete);
        QCOMPARE(gesture.count(), 0);
        QVERIFY(image(gesture) != before);
        QVERIFY(!gesture.context()->curObject);
        gesture.undo();
        QCOMPARE(gesture.count(), 1);
    }

    void deleteKeyWithNothingSelectedMakesAnEmptyStep()
    {
        Gesture gesture = draw(CMD_SELECT).key(Qt::Key_Delete);
        QCOMPARE(gesture.steps(), 1);
        QVERIFY(gesture.context()->modified);
        gesture.undo();
        QCOMPARE(gesture.redoSteps(), 1);
    }

    void cutAndPasteMoveTheSelection()
    {
        Gesture gesture = selectedBox();
        gesture.window().window->cut();
        QCOMPARE(gesture.count(), 0);
        QVERIFY(!gesture.context()->curObject);
        gesture.window().window->paste();
        QCOMPARE(gestureContext, gesture.context());
        gesture.left(3600, 3600);
        QCOMPARE(gesture.count(), 1);
        QVERIFY(gesture.last()->tagged);
        QCOMPARE(cur_command, int(CMD_SELECT));
        QVERIFY(!gestureContext);
    }

    void pasteWithAnEmptyClipboardDoesNothing()
    {
        Gesture gesture = draw(CMD_BOX);
        gesture.window().window->paste();
        QCOMPARE(cur_command, int(CMD_BOX));
        QCOMPARE(action_on, 0);
    }

    // --- snapping ---------------------------------------------------------------

    void aPressOfADrawingToolIsPutOnTheGrid()
    {
        Gesture gesture = draw(CMD_BOX);
        gesture.context()->metric = false;
        gesture.window().window->setGrid(2, nullptr);
        gridPreferences.snapMode = SNAP_GRID;
        const double step = getGridRound(gesture.context());
        gesture.left(1215, 1185).move(2400, 2400).left(2415, 2385);
        const FigPoint* first = gesture.last<FigLine>()->points;
        for (const FigPoint* point = first; point; point = point->next) {
            const double column = point->x / step;
            QVERIFY2(qAbs(column - qRound(column)) * step <= 1, qPrintable(Gesture::points(first)));
        }
    }

    void aPressOfTheSelectionIsNotSnapped()
    {
        Gesture gesture = draw(CMD_SELECT);
        gesture.window().window->setGrid(2, nullptr);
        gridPreferences.snapMode = SNAP_GRID | SNAP_VERTEX;
        gesture.press(1215, 1185);
        QCOMPARE(gesture.window().child->figX, 1215);
        QCOMPARE(fix_x, 1215);
        QCOMPARE(fix_y, 1185);
        gesture.release(1215, 1185);
    }

    void aVertexNearbyGoesBeforeTheGrid()
    {
        Gesture gesture = draw(CMD_BOX);
        addBox(gesture, 1230, 1230, 2400, 2400);
        gesture.window().window->setGrid(2, nullptr);
        gridPreferences.snapMode = SNAP_GRID | SNAP_VERTEX;
        gesture.tool(CMD_POLYLINE).press(1245, 1215);
        QCOMPARE(fix_x, 1230);
        QCOMPARE(fix_y, 1230);
    }

    void lockedAxisStaysForMovesAndPresses()
    {
        Gesture gesture = draw(CMD_POLYLINE).left(1200, 1200).shift(true).left(2400, 1800);
        gesture.shift(false).right(2400, 1800);
        QCOMPARE(Gesture::points(gesture.last<FigLine>()->points),
                 QString("1200,1200 1200,1800 2400,1800"));
    }

    // --- the object under the pointer -------------------------------------------

    void crossCursorIsForToolsThatPickAndForObjects()
    {
        Gesture gesture = selectedBox();
        gesture.move(1800, 1200);
        QCOMPARE(cursorOf(gesture), Qt::CrossCursor);
        gesture.move(3600, 3600);
        QCOMPARE(cursorOf(gesture), Qt::ArrowCursor);
        gesture.tool(CMD_BOX).move(1800, 1200);
        QCOMPARE(gesture.window().window->getObjectUnderCursor(), gesture.last());
        QCOMPARE(cursorOf(gesture), Qt::ArrowCursor);
        gesture.tool(CMD_SELECT).press(1800, 1200).move(1815, 1200, Qt::LeftButton);
        QCOMPARE(cursorOf(gesture), Qt::ArrowCursor);
        gesture.release(1815, 1200);
    }

    void theObjectUnderThePointerIsForgottenWhenItMayBeGone()
    {
        Gesture gesture = selectedBox();
        const QTMainFrm* window = gesture.window().window.get();
        FigObject* box = gesture.last();
        const auto find = [&] {
            gesture.move(3600, 3600).move(1800, 1200);
            QCOMPARE(window->getObjectUnderCursor(), box);
        };
        find();
        gesture.key(Qt::Key_Delete);
        QVERIFY(!window->getObjectUnderCursor());
        gesture.undo();
        find();
        gesture.undo();
        QVERIFY(!window->getObjectUnderCursor());
        gesture.redo();
        find();
        gesture.tool(CMD_SELECT).left(1800, 1200);
        find();
        gesture.window().window->cut();
        QVERIFY(!window->getObjectUnderCursor());
        gesture.undo();
        find();
        gesture.context()->resetModifiedflag();
        gesture.window().window->closeActiveChild();
        QVERIFY(!window->getObjectUnderCursor());
    }

    void whatChangesUnderThePointerIsFoundWhereItIsNow()
    {
        Gesture gesture = selectedBox();
        const QTMainFrm* window = gesture.window().window.get();
        gesture.move(1800, 1200).key(Qt::Key_Up).move(1800, 1170).move(1800, 1185);
        QCOMPARE(window->getObjectUnderCursor(), gesture.last());
        for (int step = 0; step < 10; ++step)
            gesture.key(Qt::Key_Up);
        gesture.move(1815, 1185);
        QVERIFY(!window->getObjectUnderCursor());
    }

    void anEndOverAShapeTellsThatItWouldBeLinked()
    {
        Gesture gesture = draw(CMD_BOX);
        addBox(gesture, 3000, 1200, 3600, 2400);
        gesture.tool(CMD_POLYLINE).left(1200, 1800).right(2400, 1800);
        gesture.tool(CMD_SELECT).press(2400, 1800);
        QCOMPARE(cur_command, int(CMD_MOVE_POINT));
        gesture.move(2700, 1800, Qt::LeftButton).move(2850, 1800, Qt::LeftButton);
        QVERIFY(!gesture.context()->linkTargetOk);
        gesture.move(3000, 1800, Qt::LeftButton);
        QVERIFY(gesture.context()->linkTargetOk);
        QCOMPARE(cursorOf(gesture), Qt::CrossCursor);
        gesture.move(2700, 1800, Qt::LeftButton);
        QVERIFY(!gesture.context()->linkTargetOk);
        QCOMPARE(cursorOf(gesture), Qt::ArrowCursor);
        gesture.release(2700, 1800);
    }

    // --- comments as tips -------------------------------------------------------

    void aCommentComesUpAsATipAfterItsDelay()
    {
        otherPreferencesData.commentToolTipDelay = 20;
        Gesture gesture = selectedBox();
        gesture.last()->comments = "the answer";
        gesture.move(3600, 3600).move(1800, 1200);
        QVERIFY(!QToolTip::isVisible());
        QTRY_VERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), QString("the answer"));
        gesture.press(1800, 1200);
        QTRY_VERIFY(!QToolTip::isVisible());
        QTest::qWait(60);
        QVERIFY(!QToolTip::isVisible());
        gesture.release(1800, 1200);
    }

    void aCommentThatLooksLikeMarkupIsShownAsItIs()
    {
        otherPreferencesData.commentToolTipDelay = 5;
        Gesture gesture = selectedBox();
        gesture.last()->comments = "<b>not bold</b>";
        gesture.move(3600, 3600).move(1800, 1200);
        QTRY_VERIFY(QToolTip::isVisible());
        QVERIFY(QToolTip::text().contains("&lt;b&gt;not bold&lt;/b&gt;"));
        QToolTip::hideText();
    }

    void noTipWithoutACommentInAGestureOrAgainstThePreference()
    {
        otherPreferencesData.commentToolTipDelay = 5;
        Gesture gesture = selectedBox();
        gesture.move(3600, 3600).move(1800, 1200);
        QTest::qWait(30);
        QVERIFY(!QToolTip::isVisible());
        gesture.last()->comments = "the answer";
        otherPreferencesData.showCommentsAsTooltips = false;
        gesture.move(3600, 3600).move(1800, 1200);
        QTest::qWait(30);
        QVERIFY(!QToolTip::isVisible());
        otherPreferencesData.showCommentsAsTooltips = true;
        gesture.tool(CMD_POLYLINE).left(3600, 3600).move(1800, 1200);
        QTest::qWait(30);
        QVERIFY(!QToolTip::isVisible());
    }

    void noTipOfAnObjectThatIsGone()
    {
        otherPreferencesData.commentToolTipDelay = 20;
        Gesture gesture = selectedBox();
        gesture.last()->comments = "the answer";
        gesture.move(3600, 3600).move(1800, 1200).undo();
        QTest::qWait(60);
        QVERIFY(!QToolTip::isVisible());
    }

    // --- what the next click does -----------------------------------------------

    void theStatusBarTellsWhichPointOfAnArcIsNext()
    {
        Gesture gesture = draw(CMD_ARC);
        QCOMPARE(hintOf(gesture), QString("left: first point of the arc, right: deselect"));
        gesture.left(1200, 1200);
        QCOMPARE(hintOf(gesture), QString("left: next point of the arc, right: cancel"));
        gesture.left(1800, 1500);
        QCOMPARE(hintOf(gesture), QString("left: last point of the arc, right: cancel"));
        gesture.left(1800, 2400);
        QCOMPARE(hintOf(gesture), QString("left: first point of the arc, right: deselect"));
    }

    void theStatusBarTellsWhatTheNextClickDoes()
    {
        Gesture gesture = draw(CMD_CIRCLE_BY_RADIUS);
        QCOMPARE(hintOf(gesture), QString("left: centre, right: deselect"));
        gesture.left(1200, 1200);
        QCOMPARE(hintOf(gesture), QString("left: point of the rim, right: cancel"));
        gesture.left(1800, 1200).tool(CMD_POLYGON);
        QCOMPARE(hintOf(gesture), QString("left: first point, right: deselect"));
        gesture.left(1200, 1200);
        QCOMPARE(hintOf(gesture), QString("left: next point"));
        gesture.left(1800, 1200);
        QCOMPARE(hintOf(gesture), QString("left: next point, right: last point"));
        gesture.right(1800, 1800).tool(CMD_POLYLINE);
        QCOMPARE(hintOf(gesture), QString("left: first point, right: a single point"));
        gesture.tool(CMD_DELETE);
        QCOMPARE(hintOf(gesture), QString("left: object to remove"));
        gesture.tool(CMD_SELECT);
        QCOMPARE(hintOf(gesture), QString("left: select or drag, right: deselect"));
        gesture.press(1500, 1200).move(1800, 1200, Qt::LeftButton).move(1815, 1200, Qt::LeftButton);
        QCOMPARE(hintOf(gesture), QString("release: put it here, right: cancel"));
        gesture.release(1815, 1200).press(4500, 3000);
        QCOMPARE(hintOf(gesture), QString("release: select what lies inside, right: deselect"));
        gesture.release(4500, 3000);
        QCOMPARE(gesture.window().window->statusBar()->currentMessage(),
                 QString("Select objects object with bounding box or via SHIFT SELECT"));
    }

    void theToolsMessageComesBackAfterAPassingOne()
    {
        Gesture gesture = draw(CMD_BOX);
        QStatusBar* bar = gesture.window().window->statusBar();
        bar->showMessage("File saved", 10);
        QTRY_COMPARE(bar->currentMessage(), QString("Rectangular BOX drawing"));
    }

    // --- painter ----------------------------------------------------------------

    void aResizeInAGestureKeepsTheRubberBand()
    {
        Gesture gesture = draw(CMD_BOX);
        gesture.left(1200, 1200).move(2400, 2400);
        QTChildFrm* child = gesture.window().child;
        child->beginPaint();
        QVERIFY(child->painter.isActive());
        QResizeEvent resize({child->canvasWidth - 40, child->canvasHeight - 30}, child->size());
        QApplication::sendEvent(child->viewport(), &resize);
        QVERIFY(!child->painter.isActive());
        QVERIFY(elastic_proc);
        gesture.left(2400, 2400);
        QCOMPARE(gesture.count(), 1);
    }
};

QTEST_MAIN(TestDispatch)
#include "test_dispatch.moc"
