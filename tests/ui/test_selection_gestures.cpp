// The select tool, the copy tool and the delete tool on the real windows: every way through their
// states. What is saved was worked out by hand.
#include "SelectionScene.h"

#include "edit/e_clipboard.h"
#include "render/grid.h"

#include <QToolButton>

class TestSelectionGestures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }
    void cleanupTestCase() { store.end(); }
    void init() { store.renew(); }
    void cleanup() { store.leave(); }

    void theSceneIsSavedAsItWasRead()
    {
        const Gesture gesture = scene();
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QVERIFY(isResting(gesture));
        QVERIFY(!gesture.context()->modified);
    }

    // --- clicks -----------------------------------------------------------------------

    void aClickSelectsAndChangesNothing_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<long>("id");
        QTest::addColumn<int>("page");
        QTest::newRow("box") << QPoint(900, 600) << 1L << 3;
        QTest::newRow("its corner") << QPoint(600, 600) << 1L << 3;
        QTest::newRow("connector") << QPoint(1500, 900) << 3L << 8;
        QTest::newRow("circle") << QPoint(4500, 2100) << 4L << 5;
        QTest::newRow("near a line") << QPoint(3900, 3015) << 6L << 8;
    }

    void aClickSelectsAndChangesNothing()
    {
        QFETCH(QPoint, place);
        QFETCH(long, id);
        QFETCH(int, page);
        Gesture gesture = scene();
        gesture.left(place.x(), place.y());
        QCOMPARE(selected(gesture), QList<long>{id});
        QCOMPARE(current(gesture), id);
        QCOMPARE(pageOf(gesture), page);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(!gesture.context()->modified);
        QVERIFY(isResting(gesture));
        gesture.left(6000, 4500);
        QCOMPARE(selected(gesture), QList<long>());
        QCOMPARE(current(gesture), 0L);
        QVERIFY(isResting(gesture));
    }

    void aClickBesideSelectsNothing()
    {
        Gesture gesture = scene();
        gesture.left(3900, 3030);
        QCOMPARE(selected(gesture), QList<long>());
    }

    void shiftAddsAndTakesAway()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).shiftLeft(2700, 600).shiftLeft(4500, 2100);
        QCOMPARE(selected(gesture), (QList<long>{1, 2, 4}));
        QCOMPARE(pageOf(gesture), 6);
        gesture.shiftLeft(2700, 600);
        QCOMPARE(selected(gesture), (QList<long>{1, 4}));
        QCOMPARE(current(gesture), 0L);
        QVERIFY(isResting(gesture));
        COMPARE_FIGURES(gesture.figure(), allRecords);
    }

    void shiftOnTheOnlySelectedObjectLeavesNothingToDrag_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::newRow("its edge") << QPoint(1245, 3045);
        QTest::newRow("its corner") << QPoint(645, 3045);
    }

    void shiftOnTheOnlySelectedObjectLeavesNothingToDrag()
    {
        QFETCH(QPoint, place);
        Gesture gesture = scene();
        gesture.left(1245, 3045).move(place.x(), place.y()).shift(true);
        gesture.press(place.x(), place.y()).move(place.x(), 3300, Qt::LeftButton);
        QCOMPARE(selected(gesture), QList<long>());
        QCOMPARE(current(gesture), 0L);
        gesture.release(place.x(), 3300).shift(false);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(isResting(gesture));
    }

    void aClickOnASelectedObjectKeepsTheSelection()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).shiftLeft(2700, 600).left(900, 600);
        QCOMPARE(selected(gesture), (QList<long>{1, 2}));
        QCOMPARE(current(gesture), 1L);
        gesture.left(1245, 3045);
        QCOMPARE(selected(gesture), QList<long>{5});
    }

    void theRightButtonSelectsNothing()
    {
        Gesture gesture = scene();
        const QImage before = image(gesture.right(6000, 4500)); // the markers have gone
        gesture.left(1245, 3045).right(6000, 4500);
        QCOMPARE(selected(gesture), QList<long>());
        QCOMPARE(current(gesture), 0L);
        QCOMPARE(pageOf(gesture), 6);
        QVERIFY(isResting(gesture));
        QCOMPARE(redrawn(gesture), before);
    }

    // --- drags ------------------------------------------------------------------------

    void aDraggedBoxTakesTheEndOfItsConnectorAlong()
    {
        Gesture gesture = scene();
        gesture.drag(900, 600, 900, 900);
        const QByteArray moved =
            box(1, 600, 900, 1200, 1500) + box2 +
            polyline(3, "1200 1200 1800 900 2400 900", link(0, 1, 1) + link(2, 2, 3)) + circle4 +
            box5 + line6;
        COMPARE_FIGURES(gesture.figure(), moved);
        QCOMPARE(gesture.steps(), 1);
        QVERIFY(gesture.context()->modified);
        QCOMPARE(selected(gesture), QList<long>{1});
        QVERIFY(isResting(gesture));
        COMPARE_FIGURES(gesture.undo().figure(), allRecords);
        COMPARE_FIGURES(gesture.redo().figure(), moved);
    }

    void aConnectorByItselfKeepsItsEndsAndStretches()
    {
        Gesture gesture = scene();
        gesture.drag(1500, 900, 1500, 1500);
        COMPARE_FIGURES(gesture.figure(), box1 + box2 +
                                              polyline(3, "1200 900 1800 1500 2400 900",
                                                       link(0, 1, 1) + link(2, 2, 3)) +
                                              circle4 + box5 + line6);
        COMPARE_FIGURES(gesture.undo().figure(), allRecords);
    }

    void whatIsSelectedMovesTogether()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).shiftLeft(1500, 900).shiftLeft(2700, 600);
        gesture.drag(2700, 600, 2850, 450);
        COMPARE_FIGURES(gesture.figure(), box(1, 750, 450, 1350, 1050) +
                                              box(2, 2550, 450, 3150, 1050) +
                                              polyline(3, "1350 750 1950 750 2550 750",
                                                       link(0, 1, 1) + link(2, 2, 3)) +
                                              circle4 + box5 + line6);
        QCOMPARE(gesture.steps(), 1);
        QCOMPARE(selected(gesture), (QList<long>{1, 2, 3}));
        COMPARE_FIGURES(gesture.undo().figure(), allRecords);
    }

    void aDragBackToItsBeginningIsAStepAllTheSame()
    {
        Gesture gesture = scene();
        gesture.press(1245, 3045).move(1500, 3300, Qt::LeftButton).move(1245, 3045, Qt::LeftButton);
        gesture.release(1245, 3045);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 1);
    }

    void theSavedFigureDoesNotChangeBeforeTheRelease()
    {
        Gesture gesture = scene();
        gesture.press(900, 600);
        for (int y = 615; y <= 900; y += 15) {
            gesture.move(900, y, Qt::LeftButton);
            COMPARE_FIGURES(gesture.figure(), allRecords);
        }
        QCOMPARE(gesture.steps(), 0);
    }

    void theRightButtonEndsADragAndBringsThePictureBack()
    {
        Gesture gesture = scene();
        gesture.left(900, 600);
        const QImage before = image(gesture);
        gesture.press(900, 600).move(915, 615, Qt::LeftButton).move(1500, 1500, Qt::LeftButton);
        QVERIFY(image(gesture) != before);
        gesture.right(1500, 1500);
        QVERIFY(isResting(gesture));
        QCOMPARE(selected(gesture), QList<long>{1});
        QCOMPARE(image(gesture), before);
        gesture.release(1500, 1500);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
        QCOMPARE(redrawn(gesture), before);
    }

    void withAnotherObjectSelectedAPressOnAPointDragsTheObject()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).drag(645, 3045, 345, 2745);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 345, 2745, 1545, 3345)));
        QCOMPARE(selected(gesture), QList<long>{5});
    }

    void withMoreThanOneSelectedAPressOnAPointDragsAll()
    {
        Gesture gesture = scene();
        gesture.left(1245, 3045).shiftLeft(3900, 3000).drag(645, 3045, 345, 2745);
        COMPARE_FIGURES(gesture.figure(), box1 + box2 + connector3 + circle4 +
                                              box(5, 345, 2745, 1545, 3345) +
                                              polyline(6, "3300 2700 3900 2700"));
    }

    // Half-inch grid, 600 units. The left and the upper side are nearest to the press at (900,
    // 3045), which stands for (1200, 3000) of the grid. The way from there, 315 on both axes, is
    // more than half a step, so the sides at 645 and 3045 go to the next lines.
    void aDragPutsTheNearestSidesOnTheGrid()
    {
        Gesture gesture = scene();
        gesture.context()->metric = false;
        gesture.context()->magnetMode = 4;
        gesture.context()->gridIndex = 1;
        gridPreferences.snapMode = 1;
        gesture.drag(900, 3045, 1515, 3315);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 1200, 3600, 2400, 4200)));
    }

    // --- regions ------------------------------------------------------------------------

    void aRegionSelectsWhatLiesWhollyInside()
    {
        Gesture gesture = scene();
        gesture.drag(300, 2700, 2100, 3900);
        QCOMPARE(selected(gesture), QList<long>{5});
        QCOMPARE(current(gesture), 5L);
        QCOMPARE(pageOf(gesture), 3);
        gesture.drag(3300, 1500, 300, 300); // from any corner
        QCOMPARE(selected(gesture), (QList<long>{1, 2, 3}));
        QCOMPARE(current(gesture), 0L);
        QCOMPARE(pageOf(gesture), 6);
        gesture.drag(300, 300, 1500, 1500); // half of the connector
        QCOMPARE(selected(gesture), QList<long>{1});
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(isResting(gesture));
    }

    // Shift would keep the pointer's place across, so it is let go after the press.
    void aRegionWithShiftChangesWhatIsInside()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).shiftLeft(1245, 3045);
        gesture.move(300, 300).shift(true).press(300, 300).shift(false);
        gesture.move(1800, 900, Qt::LeftButton).move(3300, 1500, Qt::LeftButton);
        gesture.release(3300, 1500);
        QCOMPARE(selected(gesture), (QList<long>{2, 3, 5}));
        QCOMPARE(pageOf(gesture), 6);
        QVERIFY(isResting(gesture));
    }

    void withShiftHeldARegionHasNoWidth()
    {
        Gesture gesture = scene();
        gesture.move(300, 300).shift(true).press(300, 300).move(3300, 1500, Qt::LeftButton);
        gesture.release(3300, 1500).shift(false);
        QCOMPARE(selected(gesture), QList<long>());
    }

    void theRightButtonEndsARegionWipesItAndSelectsNothing()
    {
        Gesture gesture = scene();
        const QImage before = image(gesture.right(6000, 4500)); // the markers have gone
        gesture.left(1245, 3045);
        gesture.press(300, 300).move(900, 900, Qt::LeftButton).move(3300, 1500, Qt::LeftButton);
        QVERIFY(image(gesture) != before);
        gesture.right(3300, 1500).release(3300, 1500);
        QCOMPARE(selected(gesture), QList<long>());
        QVERIFY(isResting(gesture));
        QCOMPARE(image(gesture), before);
    }

    void aRegionSurvivesARedraw()
    {
        Gesture gesture = scene();
        gesture.press(300, 300).move(3300, 1500, Qt::LeftButton);
        gesture.window().child->redisplayCanvas();
        gesture.move(3600, 1800, Qt::LeftButton).release(3600, 1800);
        const QImage after = image(gesture);
        QCOMPARE(redrawn(gesture), after);
    }

    // --- points -------------------------------------------------------------------------

    void aDraggedCornerReshapesTheBox()
    {
        Gesture gesture = scene();
        gesture.drag(645, 3045, 345, 2745);
        COMPARE_FIGURES(gesture.figure(), withBox5(box5Reshaped));
        QCOMPARE(gesture.steps(), 1);
        QCOMPARE(selected(gesture), QList<long>{5});
        QVERIFY(isResting(gesture));
        COMPARE_FIGURES(gesture.undo().figure(), allRecords);
        COMPARE_FIGURES(gesture.redo().figure(), withBox5(box5Reshaped));
    }

    void theRightButtonPutsAPointBack()
    {
        Gesture gesture = scene();
        gesture.left(1245, 3045);
        const QImage before = image(gesture);
        gesture.press(645, 3045).move(630, 3030, Qt::LeftButton).move(345, 2745, Qt::LeftButton);
        QCOMPARE(cur_command, int(CMD_MOVE_POINT));
        QVERIFY(image(gesture) != before);
        gesture.right(345, 2745).release(345, 2745);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(isResting(gesture));
        QCOMPARE(image(gesture), redrawn(gesture));
    }

    void anEndDroppedOnACircleIsLinkedAndMovedOffItIsFree()
    {
        Gesture gesture = scene();
        const QByteArray others = box1 + box2 + connector3 + circle4 + box5;
        gesture.drag(4200, 3000, 4500, 2100);
        const QByteArray linked = others + polyline(6, "3600 3000 4500 2100", link(1, 4, -1));
        COMPARE_FIGURES(gesture.figure(), linked);
        QVERIFY(!gesture.context()->linkTargetOk || isResting(gesture));
        gesture.drag(4500, 900, 4500, 600); // the circle, with the end that hangs on it
        COMPARE_FIGURES(gesture.figure(), box1 + box2 + connector3 + circle(4, 4500, 1200, 600) +
                                              box5 +
                                              polyline(6, "3600 3000 4500 1800", link(1, 4, -1)));
        gesture.undo().left(3900, 2700).drag(4500, 2100, 5400, 3600);
        COMPARE_FIGURES(gesture.figure(), others + polyline(6, "3600 3000 5400 3600"));
        COMPARE_FIGURES(gesture.undo().figure(), linked);
        COMPARE_FIGURES(gesture.undo().figure(), allRecords);
    }

    void theCentreOfACircleByRadiusDragsTheCircle()
    {
        Gesture gesture = scene();
        gesture.drag(4500, 1500, 4800, 1800);
        COMPARE_FIGURES(gesture.figure(),
                        box1 + box2 + connector3 + circle(4, 4800, 1800, 600) + box5 + line6);
    }

    void theRimPointOfACircleChangesItsRadius()
    {
        Gesture gesture = scene();
        gesture.left(4500, 2100).drag(5100, 1500, 5400, 1500);
        COMPARE_FIGURES(gesture.figure(),
                        box1 + box2 + connector3 + circle(4, 4500, 1500, 900) + box5 + line6);
        COMPARE_FIGURES(gesture.undo().figure(), allRecords);
    }

    // --- keys -----------------------------------------------------------------------------

    void arrowKeysMoveTheSelectionByAPixel_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QByteArray>("moved");
        QTest::newRow("left") << int(Qt::Key_Left) << box(5, 630, 3045, 1830, 3645);
        QTest::newRow("right") << int(Qt::Key_Right) << box(5, 660, 3045, 1860, 3645);
        QTest::newRow("up") << int(Qt::Key_Up) << box(5, 645, 3030, 1845, 3630);
        QTest::newRow("down") << int(Qt::Key_Down) << box(5, 645, 3060, 1845, 3660);
    }

    void arrowKeysMoveTheSelectionByAPixel()
    {
        QFETCH(int, key);
        QFETCH(QByteArray, moved);
        Gesture gesture = scene();
        gesture.left(1245, 3045).key(Qt::Key(key));
        COMPARE_FIGURES(gesture.figure(), withBox5(moved));
        QCOMPARE(gesture.steps(), 1);
        QVERIFY(isResting(gesture));
        QCOMPARE(image(gesture), redrawn(gesture));
        COMPARE_FIGURES(gesture.undo().figure(), allRecords);
    }

    // 1200 / 80 units are a pixel at zoom 1.
    void anArrowKeyIsAPixelAtEachZoom()
    {
        Gesture gesture = scene();
        gesture.left(1245, 3045);
        gesture.window().child->setZoom(0.5);
        gesture.key(Qt::Key_Right);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 675, 3045, 1875, 3645)));
        gesture.window().child->setZoom(5);
        gesture.key(Qt::Key_Down);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 675, 3048, 1875, 3648)));
    }

    void arrowKeysMoveAllThatIsSelectedWithItsConnectors()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).shiftLeft(1245, 3045).key(Qt::Key_Down);
        COMPARE_FIGURES(gesture.figure(), box(1, 600, 615, 1200, 1215) + box2 +
                                              polyline(3, "1200 915 1800 900 2400 900",
                                                       link(0, 1, 1) + link(2, 2, 3)) +
                                              circle4 + box(5, 645, 3060, 1845, 3660) + line6);
        QCOMPARE(gesture.steps(), 1);
    }

    // Half-inch grid, 600 units. The side that the key points at goes to the next line: 1845 to
    // 2400, and what is on the line already goes on by a whole step.
    void arrowKeysGoToTheNextLineOfTheGrid()
    {
        Gesture gesture = scene();
        gesture.context()->metric = false;
        gesture.context()->magnetMode = 4;
        gesture.context()->gridIndex = 1;
        gridPreferences.snapMode = 1;
        gesture.left(1245, 3045).key(Qt::Key_Right);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 1200, 3045, 2400, 3645)));
        gesture.key(Qt::Key_Right);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 1800, 3045, 3000, 3645)));
        gesture.key(Qt::Key_Left);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 1200, 3045, 2400, 3645)));
        gesture.key(Qt::Key_Down);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 1200, 3600, 2400, 4200)));
        gesture.key(Qt::Key_Up);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 1200, 3000, 2400, 3600)));
        QCOMPARE(gesture.steps(), 5);
        gesture.control(true).key(Qt::Key_Up, Qt::ControlModifier).control(false);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 1200, 2985, 2400, 3585)));
        gridPreferences.snapMode = 2; // vertices alone
        gesture.key(Qt::Key_Up);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 1200, 2970, 2400, 3570)));
        gridPreferences.snapMode = 1;
        gesture.context()->gridIndex = 0;
        gesture.key(Qt::Key_Up);
        COMPARE_FIGURES(gesture.figure(), withBox5(box(5, 1200, 2955, 2400, 3555)));
    }

    void arrowKeysWithoutASelectionMakeNoStep()
    {
        Gesture gesture = scene();
        gesture.key(Qt::Key_Left).key(Qt::Key_Down);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(!gesture.context()->modified);
    }

    // The end is the select state, while the button of the tool stays down.
    void anArrowKeyInADrawingToolEndsInTheSelection()
    {
        Gesture gesture = scene();
        gesture.tool(CMD_BOX).left(3000, 3900).left(3600, 4500).key(Qt::Key_Right);
        QVERIFY(isResting(gesture));
        QVERIFY(gesture.window().window->shapesToolbar()->button(CMD_BOX)->isChecked());
        QCOMPARE(Gesture::points(gesture.last<FigLine>()->points),
                 QString("3015,3900 3615,3900 3615,4500 3015,4500 3015,3900"));
        QCOMPARE(gesture.steps(), 2);
    }

    void arrowKeysAreNotForTheToolsThatManipulate()
    {
        Gesture gesture = scene();
        for (const int command : {CMD_COPY, CMD_DELETE, CMD_UPDATE, CMD_ADD_POINT, CMD_ROTATE_CW}) {
            gesture.tool(command);
            gesture.context()->drawing.objects.first()->tagged = true;
            gesture.key(Qt::Key_Left);
            QCOMPARE(gesture.steps(), 0);
            QCOMPARE(cur_command, command);
        }
    }

    // Undo puts the box at the end, with the link to it where it was.
    void theDeleteKeyRemovesTheSelectionAndTheLinksToIt()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).key(Qt::Key_Delete);
        const QByteArray removed = box2 + polyline(3, "1200 900 1800 900 2400 900", link(2, 2, 3)) +
                                   circle4 + box5 + line6;
        COMPARE_FIGURES(gesture.figure(), removed);
        QCOMPARE(current(gesture), 0L);
        QCOMPARE(gesture.steps(), 1);
        QCOMPARE(image(gesture), redrawn(gesture));
        const QByteArray restored = box2 + connector3 + circle4 + box5 + line6 + box1;
        COMPARE_FIGURES(gesture.undo().figure(), restored);
        COMPARE_FIGURES(gesture.redo().figure(), removed);
        COMPARE_FIGURES(gesture.undo().figure(), restored);
    }

    void theDeleteKeyTakesSeveralAsOneStep()
    {
        Gesture gesture = scene();
        gesture.left(900, 600).shiftLeft(1500, 900).shiftLeft(4500, 2100).key(Qt::Key_Delete);
        COMPARE_FIGURES(gesture.figure(), box2 + box5 + line6);
        QCOMPARE(gesture.steps(), 1);
        QCOMPARE(gesture.undo().count(), 6);
        // The connector is linked to both boxes again.
        QVERIFY(gesture.figure().contains(connector3));
    }

    void theDeleteKeyWithNothingSelectedIsAnEmptyStepThatForgetsWhatWasUndone()
    {
        Gesture gesture = scene();
        gesture.drag(1245, 3045, 1545, 3345).undo().right(6000, 4500);
        QCOMPARE(gesture.redoSteps(), 1);
        gesture.key(Qt::Key_Delete);
        QCOMPARE(gesture.steps(), 1);
        QCOMPARE(gesture.redoSteps(), 0);
        QVERIFY(gesture.context()->modified);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        COMPARE_FIGURES(gesture.undo().figure(), allRecords);
        QCOMPARE(gesture.redoSteps(), 1);
    }

    void selectAllTakesHiddenObjectsToo()
    {
        Gesture gesture = scene();
        gesture.context()->active_layers[50] = false;
        gesture.window().window->selectAll();
        QCOMPARE(selected(gesture), (QList<long>{1, 2, 3, 4, 5, 6}));
        gesture.key(Qt::Key_Escape);
        QCOMPARE(selected(gesture), QList<long>());
    }

    // --- the copy tool ----------------------------------------------------------------------

    void theCopyToolPlacesOneCopyAfterTheOther()
    {
        Gesture gesture = scene();
        gesture.tool(CMD_COPY).left(1245, 3045).move(1260, 3060).left(1545, 3345);
        gesture.left(3900, 3000).move(4200, 3300).left(3900, 3600);
        COMPARE_FIGURES(gesture.figure(), allRecords + box(7, 945, 3345, 2145, 3945) +
                                              polyline(8, "3600 3600 4200 3600"));
        QCOMPARE(gesture.steps(), 2);
        QCOMPARE(selected(gesture), QList<long>());
        QCOMPARE(cur_command, int(CMD_COPY));
        QVERIFY(holdsNothing(gesture.context()));
        QCOMPARE(image(gesture), redrawn(gesture));
        COMPARE_FIGURES(gesture.undo().undo().figure(), allRecords);
    }

    void aCopiedConnectorIsLinkedToNothing()
    {
        Gesture gesture = scene();
        gesture.tool(CMD_COPY).left(1500, 900).left(1500, 1500);
        COMPARE_FIGURES(gesture.figure(),
                        allRecords + polyline(7, "1200 1500 1800 1500 2400 1500"));
    }

    void theRightButtonTakesACopyBack()
    {
        Gesture gesture = scene();
        gesture.tool(CMD_COPY);
        const QImage before = redrawn(gesture);
        gesture.left(1245, 3045).move(1260, 3060).move(3000, 3000);
        QVERIFY(image(gesture) != before);
        gesture.right(3000, 3000);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
        QCOMPARE(current(gesture), 0L);
        QVERIFY(holdsNothing(gesture.context()));
        QCOMPARE(image(gesture), before);
        gesture.left(6000, 4500); // beside everything
        QVERIFY(holdsNothing(gesture.context()));
    }

    void theDeleteToolRemovesWhatIsClicked()
    {
        Gesture gesture = scene();
        gesture.tool(CMD_DELETE).left(6000, 4500).left(1245, 3045).left(3900, 3000);
        COMPARE_FIGURES(gesture.figure(), box1 + box2 + connector3 + circle4);
        QCOMPARE(gesture.steps(), 2);
        QVERIFY(gesture.context()->modified);
        QCOMPARE(image(gesture), redrawn(gesture));
        COMPARE_FIGURES(gesture.undo().undo().figure(),
                        box1 + box2 + connector3 + circle4 + line6 + box5);
    }

private:
    EditingStore store;
};

QTEST_MAIN(TestSelectionGestures)
#include "test_selection_gestures.moc"
