// Cut, copy and paste in the windows of several documents. Numbers of copies: the clipboard takes
// new ones when it is filled by a copy, and each paste takes new ones again.
#include "SelectionScene.h"

#include "edit/e_clipboard.h"
#include "render/grid.h"
#include "ui/MainActions.h"

#include <QAction>
#include <QToolButton>

namespace {

Gesture& copy(Gesture& gesture)
{
    gesture.window().window->copy();
    return gesture;
}

Gesture& cut(Gesture& gesture)
{
    gesture.window().window->cut();
    return gesture;
}

Gesture& paste(Gesture& gesture)
{
    gesture.window().window->paste();
    return gesture;
}

/// box5 in the clipboard.
Gesture sceneWithBoxCopied()
{
    Gesture gesture = scene();
    gesture.left(1245, 3045);
    copy(gesture);
    return gesture;
}

/// A second document, which the events go to.
QTChildFrm* enterNewDocument(Gesture& gesture)
{
    QTChildFrm* child = gesture.window().window->newFile();
    gesture.in(child).tool(CMD_SELECT);
    return child;
}

const QByteArray red32Box =
    records::idLine(1) + records::path("2 2 0 1 32 7 50 -1 -1 0.000 0 0 -1 0 0 ", "",
                                       "600 600 1200 600 1200 1200 600 "
                                       "1200 600 600");

} // namespace

class TestClipboardWindows : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }
    void cleanupTestCase() { store.end(); }
    void init() { store.renew(); }
    void cleanup() { store.leave(); }

    // --- one document -------------------------------------------------------------------

    void aCopyLeavesTheFigureAsItIs()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).shiftLeft(1500, 900);
        copy(gesture);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(!gesture.context()->modified);
        QCOMPARE(selected(gesture), (QList<long>{1, 3}));
        QVERIFY(isResting(gesture));
        QCOMPARE(clipObjects->size(), 2);
        for (const FigObject* object : *clipObjects)
            QVERIFY(!object->tagged);
    }

    // Its middle comes to the click: (1800, 900) goes to (1800, 3900).
    void copiesOfAConnectorAndItsTargetsAreLinkedAmongThemselves()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).shiftLeft(1500, 900).shiftLeft(2700, 600);
        paste(copy(gesture)).left(1800, 3900);
        const QByteArray pasted =
            allRecords + box(10, 600, 3600, 1200, 4200) + box(11, 2400, 3600, 3000, 4200) +
            polyline(12, "1200 3900 1800 3900 2400 3900", link(0, 10, 1) + link(2, 11, 3));
        COMPARE_FIGURES(gesture.figure(), pasted);
        QCOMPARE(gesture.steps(), 1);
        QCOMPARE(selected(gesture), (QList<long>{10, 11, 12}));
        QVERIFY(isResting(gesture));
        COMPARE_FIGURES(gesture.undo().figure(), allRecords);
        COMPARE_FIGURES(gesture.redo().figure(), pasted);
        // They follow each other.
        gesture.right(6000, 4500).drag(900, 3600, 900, 3900);
        COMPARE_FIGURES(gesture.figure(), allRecords + box(10, 600, 3900, 1200, 4500) +
                                              box(11, 2400, 3600, 3000, 4200) +
                                              polyline(12, "1200 4200 1800 3900 2400 3900",
                                                       link(0, 10, 1) + link(2, 11, 3)));
    }

    void theCopyOfAConnectorAloneIsLinkedToNothing()
    {
        Gesture gesture = scene();
        gesture.left(1500, 900);
        paste(copy(gesture)).left(1800, 3900);
        COMPARE_FIGURES(gesture.figure(),
                        allRecords + polyline(8, "1200 3900 1800 3900 2400 3900"));
    }

    void whatWasCopiedLooksDeselectedAfterThePaste()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).shiftLeft(2700, 600);
        paste(copy(gesture)).left(1800, 3900);
        const QImage shown = image(gesture);
        QCOMPARE(selected(gesture), (QList<long>{9, 10}));
        QVERIFY(shown == redrawn(gesture));
    }

    void whatWasPastedLooksSelectedAtOnce()
    {
        Gesture gesture = sceneWithBoxCopied();
        paste(gesture).left(3000, 3345);
        const QImage shown = image(gesture);
        QCOMPARE(selected(gesture), QList<long>{8});
        QVERIFY(shown == redrawn(gesture));
    }

    void eachPasteIsAnotherCopy()
    {
        Gesture gesture = sceneWithBoxCopied();
        paste(gesture).left(3000, 3345);
        paste(gesture).left(4245, 3345);
        COMPARE_FIGURES(gesture.figure(), allRecords + box(8, 2400, 3045, 3600, 3645) +
                                              box(9, 3645, 3045, 4845, 3645));
        QCOMPARE(gesture.steps(), 2);
        QCOMPARE(selected(gesture), QList<long>{9});
        COMPARE_FIGURES(gesture.undo().undo().figure(), allRecords);
    }

    // The clipboard has the box under its own number; the link to it is gone on both sides.
    void whatIsCutLeavesAndCanBePasted()
    {
        Gesture gesture = scene();
        gesture.left(900, 600);
        cut(gesture);
        const QByteArray rest = box2 + polyline(3, "1200 900 1800 900 2400 900", link(2, 2, 3)) +
                                circle4 + box5 + line6;
        COMPARE_FIGURES(gesture.figure(), rest);
        QCOMPARE(gesture.steps(), 1);
        QCOMPARE(current(gesture), 0L);
        QVERIFY(gesture.context()->modified);
        QVERIFY(isResting(gesture));
        QCOMPARE(image(gesture), redrawn(gesture));
        paste(gesture).left(900, 3900);
        COMPARE_FIGURES(gesture.figure(), rest + box(7, 600, 3600, 1200, 4200));
        COMPARE_FIGURES(gesture.undo().undo().figure(),
                        box2 + connector3 + circle4 + box5 + line6 + box1);
    }

    void whatWasCutIsPastedAlsoAfterTheCutIsUndone()
    {
        Gesture gesture = scene();
        gesture.left(1245, 3045);
        cut(gesture).undo();
        paste(gesture).left(3000, 3345);
        COMPARE_FIGURES(gesture.figure(), box1 + box2 + connector3 + circle4 + line6 + box5 +
                                              box(7, 2400, 3045, 3600, 3645));
    }

    // From 592, where the pen of the box begins, to the connector's end at 2400 the middle is 1496.
    void aCutConnectorAndItsTargetStayLinked()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).shiftLeft(1500, 900);
        paste(cut(gesture)).left(1500, 3900);
        COMPARE_FIGURES(gesture.figure(),
                        box2 + circle4 + box5 + line6 + box(7, 604, 3600, 1204, 4200) +
                            polyline(8, "1204 3900 1804 3900 2404 3900", link(0, 7, 1)));
    }

    void nothingSelectedIsAnEmptyStepOfACutAndEmptiesTheClipboard()
    {
        Gesture gesture = sceneWithBoxCopied();
        gesture.right(6000, 4500);
        cut(gesture);
        QCOMPARE(gesture.steps(), 1);
        QVERIFY(isClipboardEmpty());
        paste(gesture).move(3000, 3000);
        QVERIFY(isResting(gesture));
        COMPARE_FIGURES(gesture.figure(), allRecords);
    }

    void nothingSelectedAndCopiedLeavesNothingToPaste()
    {
        Gesture gesture = scene();
        paste(copy(gesture));
        QVERIFY(isResting(gesture));
        QCOMPARE(gesture.steps(), 0);
    }

    void withoutAClipboardNothingIsPasted()
    {
        Gesture gesture = scene();
        QVERIFY(!clipObjects);
        paste(gesture);
        QVERIFY(isResting(gesture));
        QCOMPARE(previous_command, -1);
    }

    // Half-inch grid: the click at (3015, 3615) stands for (3000, 3600).
    void aPasteIsPutOnTheGridByItsMiddle()
    {
        Gesture gesture = sceneWithBoxCopied();
        gesture.context()->metric = false;
        gesture.context()->magnetMode = 4;
        gesture.context()->gridIndex = 1;
        gridPreferences.snapMode = 1;
        paste(gesture).left(3015, 3615);
        COMPARE_FIGURES(gesture.figure(), allRecords + box(8, 2400, 3300, 3600, 3900));
    }

    void inADrawingNothingIsCutCopiedOrPasted()
    {
        Gesture gesture = sceneWithBoxCopied();
        gesture.tool(CMD_BOX).left(3000, 3900);
        gesture.context()->drawing.objects.first()->tagged = true;
        paste(copy(cut(gesture)));
        QCOMPARE(gesture.steps(), 0);
        QCOMPARE(clipObjects->size(), 1);
        QCOMPARE(clipObjects->first()->id, 7L);
        QCOMPARE(cur_command, int(CMD_BOX));
        gesture.left(3600, 4500);
        QCOMPARE(gesture.count(), 7);
    }

    // --- the tool before and after --------------------------------------------------------

    void aPasteGoesBackToTheToolBefore_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<bool>("placed");
        for (const int command :
             {CMD_SELECT, CMD_BOX, CMD_POLYLINE, CMD_TEXT, CMD_COPY, CMD_DELETE, CMD_ROTATE_CW})
            for (const bool placed : {true, false})
                QTest::addRow("%d, %s", command, placed ? "placed" : "cancelled")
                    << command << placed;
    }

    void aPasteGoesBackToTheToolBefore()
    {
        QFETCH(int, command);
        QFETCH(bool, placed);
        Gesture gesture = sceneWithBoxCopied();
        gesture.tool(command);
        const ButtonProc idle = canvas_leftbut_proc;
        paste(gesture).move(2700, 3300);
        QCOMPARE(cur_command, int(CMD_PASTE));
        QCOMPARE(previous_command, command);
        if (placed)
            gesture.left(3000, 3345);
        else
            gesture.right(3000, 3345);
        QCOMPARE(cur_command, command);
        QVERIFY(canvas_leftbut_proc == idle);
        QVERIFY(gesture.window().window->shapesToolbar()->button(command)->isChecked());
        QVERIFY(holdsNothing(gesture.context()));
        // Only the selection tool leaves it selected.
        const bool isSelected = placed && command == CMD_SELECT;
        QCOMPARE(selected(gesture), isSelected ? QList<long>{8} : QList<long>());
        COMPARE_FIGURES(gesture.figure(),
                        placed ? allRecords + box(8, 2400, 3045, 3600, 3645) : allRecords);
        QCOMPARE(gesture.steps(), placed ? 1 : 0);
    }

    void aCancelledPasteLeavesThePictureAsItWas()
    {
        Gesture gesture = sceneWithBoxCopied();
        const QImage before = image(gesture.right(6000, 4500));
        paste(gesture).move(2700, 3300);
        QVERIFY(image(gesture) != before);
        gesture.move(4500, 1500).right(4500, 1500);
        // The selection tool shows the markers of all objects anew.
        gesture.right(6000, 4500);
        QCOMPARE(image(gesture), before);
    }

    void aCancelBeforeTheFirstMoveLeavesNothingBehind()
    {
        Gesture gesture = sceneWithBoxCopied();
        paste(gesture);
        gesture.window().press(Qt::RightButton, 10, 10);
        gesture.window().release(Qt::RightButton, 10, 10);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QVERIFY(isResting(gesture));
        QCOMPARE(image(gesture), redrawn(gesture));
    }

    // --- several documents ------------------------------------------------------------------

    void whatIsCopiedInOneDocumentIsPastedInAnother()
    {
        Gesture gesture = scene();
        QTChildFrm* first = gesture.window().child;
        gesture.left(900, 600).shiftLeft(1500, 900);
        copy(gesture);
        QTChildFrm* second = enterNewDocument(gesture);
        paste(gesture).left(1500, 900); // 4 units beside the middle, as above
        const QByteArray pasted =
            box(1, 604, 600, 1204, 1200) + polyline(2, "1204 900 1804 900 2404 900", link(0, 1, 1));
        COMPARE_FIGURES(gesture.figure(), pasted);
        QCOMPARE(gesture.steps(), 1);
        QVERIFY(second->figContext->modified && !first->figContext->modified);
        QCOMPARE(second->figContext->max_depth, 50);
        COMPARE_FIGURES(gesture.undo().figure(), QByteArray());
        COMPARE_FIGURES(gesture.redo().figure(), pasted);
        gesture.in(first);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
    }

    void whatIsCutGoesFromOneDocumentToTheOther()
    {
        Gesture gesture = scene();
        QTChildFrm* first = gesture.window().child;
        gesture.left(1245, 3045);
        cut(gesture);
        QTChildFrm* second = enterNewDocument(gesture);
        paste(gesture).left(1245, 3345);
        COMPARE_FIGURES(gesture.figure(), box(1, 645, 3045, 1845, 3645));
        gesture.in(first);
        COMPARE_FIGURES(gesture.undo().figure(), box1 + box2 + connector3 + circle4 + line6 + box5);
        gesture.in(second);
        COMPARE_FIGURES(gesture.figure(), box(1, 645, 3045, 1845, 3645));
    }

    void theClipboardOutlivesItsDocument()
    {
        Gesture gesture = sceneWithBoxCopied();
        QTChildFrm* first = gesture.window().child;
        enterNewDocument(gesture);
        QPointer<QTChildFrm> closed = first;
        gesture.window().window->findSubWindow(first)->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!closed);
        paste(gesture).left(3000, 3345);
        COMPARE_FIGURES(gesture.figure(), box(1, 2400, 3045, 3600, 3645));
    }

    void theLastCopyIsPastedWhicheverDocumentItCameFrom()
    {
        Gesture gesture = sceneWithBoxCopied();
        QTChildFrm* first = gesture.window().child;
        enterNewDocument(gesture);
        gesture.tool(CMD_POLYLINE).left(600, 600).right(1200, 600).tool(CMD_SELECT).left(900, 600);
        copy(gesture);
        gesture.in(first).right(6000, 4500);
        paste(gesture).left(4500, 4200);
        QVERIFY(gesture.last<FigLine>());
        QCOMPARE(Gesture::points(gesture.last<FigLine>()->points), QString("4200,4200 4800,4200"));
    }

    void aPasteBegunInOneDocumentIsNotPlacedInAnother()
    {
        Gesture gesture = sceneWithBoxCopied();
        QTChildFrm* first = gesture.window().child;
        paste(gesture).move(3000, 3000);
        enterNewDocument(gesture);
        gesture.left(3000, 3000);
        QCOMPARE(gesture.count(), 0);
        gesture.in(first);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
    }

    // --- colours that go along ----------------------------------------------------------------

    void aPasteIntoAnotherDocumentBringsItsColour()
    {
        Gesture gesture = openFigure("0 32 #c03020\n" + red32Box);
        gesture.left(900, 600);
        copy(gesture);
        enterNewDocument(gesture);
        paste(gesture).move(900, 900);
        COMPARE_FIGURES(savedByTheWindow(gesture), QByteArray()); // not before it is placed
        gesture.left(900, 900);
        COMPARE_FIGURES(savedByTheWindow(gesture), "0 32 #c03020\n" + red32Box);
    }

    void aCancelledPasteTakesItsColourBack()
    {
        Gesture gesture = openFigure("0 32 #c03020\n" + red32Box);
        gesture.left(900, 600);
        copy(gesture);
        enterNewDocument(gesture);
        paste(gesture).move(900, 900).right(900, 900);
        COMPARE_FIGURES(gesture.figure(), QByteArray());
        QVERIFY(gesture.context()->userColors.isEmpty());
    }

    void aPasteWithinTheDocumentBringsNoColour()
    {
        Gesture gesture = openFigure("0 32 #c03020\n" + red32Box);
        gesture.left(900, 600);
        paste(copy(gesture)).left(900, 900);
        QCOMPARE(gesture.context()->userColors.size(), 1);
        QCOMPARE(gesture.last()->pen_color, 32);
    }

    // --- reached by keys ------------------------------------------------------------------------

    void theKeysOfTheActionsCutCopyAndPaste()
    {
        Gesture gesture = scene();
        QTMainFrm* window = gesture.window().window.get();
        QApplication::setActiveWindow(window);
        gesture.window().child->setFocus();
        const auto press = [&](Qt::Key key) {
            QTest::keyClick(window, key, Qt::ControlModifier);
            gesture.control(false);
        };
        press(Qt::Key_A);
        QCOMPARE(selected(gesture).size(), 6);
        gesture.right(6000, 4500).left(1245, 3045);
        press(Qt::Key_C);
        QCOMPARE(clipObjects ? clipObjects->size() : 0, 1);
        press(Qt::Key_V);
        QCOMPARE(cur_command, int(CMD_PASTE));
        gesture.left(3000, 3345);
        QCOMPARE(gesture.count(), 7);
        press(Qt::Key_X);
        QCOMPARE(gesture.count(), 6);
        press(Qt::Key_Z);
        QCOMPARE(gesture.count(), 7);
        press(Qt::Key_Y);
        QCOMPARE(gesture.count(), 6);
    }

private:
    EditingStore store;
};

QTEST_MAIN(TestClipboardWindows)
#include "test_clipboard_windows.moc"
