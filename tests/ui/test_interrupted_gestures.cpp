// What comes in between while a gesture of the selection, a copy or a paste is under way: commands,
// keys, saving, another tool, another document, the end of the document. What is saved was worked
// out by hand.
#include "DialogDriver.h"
#include "SelectionScene.h"

#include "edit/e_clipboard.h"
#include "render/grid.h"

namespace {

/// A gesture that stands in the middle.
struct State {
    const char* name;
    void (*begin)(Gesture&);
    void (*finish)(Gesture&);
    QByteArray finished;      ///< the figure then
    QByteArray afterEscape;   ///< the figure when Escape came before the finish
    QByteArray afterArrow;    ///< the figure when the right arrow came before the finish
    QList<long> selectedThen; ///< after the finish
};

void release5(Gesture& gesture)
{
    gesture.release(1245, 3045);
}

const QByteArray box5Dragged = box(5, 945, 3345, 2145, 3945);
const QByteArray box5ByArrow = box(5, 660, 3045, 1860, 3645);

const State states[] = {
    {"pressed on an object",
     [](Gesture& gesture) { gesture.press(1245, 3045); },
     release5,
     allRecords,
     allRecords,
     withBox5(box5ByArrow),
     {5}},
    {"dragging",
     [](Gesture& gesture) {
         gesture.press(1245, 3045)
             .move(1260, 3060, Qt::LeftButton)
             .move(1545, 3345, Qt::LeftButton);
     },
     [](Gesture& gesture) { gesture.release(1545, 3345); },
     withBox5(box5Dragged),
     withBox5(box5Dragged),
     withBox5(box5ByArrow),
     {5}},
    // The arrow has nothing to move: the region goes on.
    {"region",
     [](Gesture& gesture) { gesture.press(300, 2700).move(2100, 3900, Qt::LeftButton); },
     [](Gesture& gesture) { gesture.release(2100, 3900); },
     allRecords,
     allRecords,
     allRecords,
     {5}},
    {"pressed on a point",
     [](Gesture& gesture) { gesture.press(645, 3045); },
     [](Gesture& gesture) { gesture.release(645, 3045); },
     allRecords,
     allRecords,
     withBox5(box5ByArrow),
     {5}},
    // Without its object a point move is over.
    {"moving a point",
     [](Gesture& gesture) {
         gesture.press(645, 3045).move(630, 3030, Qt::LeftButton).move(345, 2745, Qt::LeftButton);
     },
     [](Gesture& gesture) { gesture.release(345, 2745); },
     withBox5(box5Reshaped),
     allRecords,
     withBox5(box5ByArrow),
     {5}},
    // The copy tool has no use for arrows.
    {"copying",
     [](Gesture& gesture) { gesture.tool(CMD_COPY).left(1245, 3045).move(1545, 3345); },
     [](Gesture& gesture) { gesture.left(1545, 3345); },
     allRecords + box(7, 945, 3345, 2145, 3945),
     allRecords + box(7, 945, 3345, 2145, 3945),
     allRecords + box(7, 945, 3345, 2145, 3945),
     {}},
    // The clipboard has taken number 7. The centre of what is pasted is (1245, 3345).
    {"pasting",
     [](Gesture& gesture) {
         gesture.left(1245, 3045);
         gesture.window().window->copy();
         gesture.window().window->paste();
         gesture.move(3000, 3345);
     },
     [](Gesture& gesture) { gesture.left(3000, 3345); },
     allRecords + box(8, 2400, 3045, 3600, 3645),
     allRecords + box(8, 2400, 3045, 3600, 3645),
     allRecords + box(8, 2400, 3045, 3600, 3645),
     {8}},
};

struct Refused {
    const char* name;
    void (QTMainFrm::*slot)();
};

const Refused refusedCommands[] = {
    {"undo", &QTMainFrm::undo},
    {"redo", &QTMainFrm::redo},
    {"cut", &QTMainFrm::cut},
    {"paste", &QTMainFrm::paste},
    {"create compound", &QTMainFrm::onCreateCompound},
    {"break compound", &QTMainFrm::onBreakCompound},
    {"open compound", &QTMainFrm::onOpenCompound},
    {"close compound", &QTMainFrm::onCloseCompound},
    {"convert", &QTMainFrm::onConvertLineSpline},
    {"align", &QTMainFrm::alignCenterHV},
    {"smart links", &QTMainFrm::createSmartLinks},
};

} // namespace

class TestInterruptedGestures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }
    void cleanupTestCase() { store.end(); }
    void init() { store.renew(); }
    void cleanup() { store.leave(); }

    // --- what comes in between ----------------------------------------------------------------

    void everyGestureEndsInItsFigure_data() { addStates(); }

    void everyGestureEndsInItsFigure()
    {
        const State& state = stateOf();
        Gesture gesture = scene();
        state.begin(gesture);
        QCOMPARE(gestureContext, gesture.context());
        state.finish(gesture);
        COMPARE_FIGURES(gesture.figure(), state.finished);
        QCOMPARE(gesture.steps(), state.finished == allRecords ? 0 : 1);
        QCOMPARE(selected(gesture), state.selectedThen);
        QVERIFY(holdsNothing(gesture.context()));
        QCOMPARE(image(gesture), redrawn(gesture));
    }

    void commandsThatWouldPullObjectsAwayAreRefused_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("command");
        for (int state = 0; state < int(std::size(states)); ++state)
            for (int command = 0; command < int(std::size(refusedCommands)); ++command)
                QTest::addRow("%s, %s", states[state].name, refusedCommands[command].name)
                    << state << command;
    }

    void commandsThatWouldPullObjectsAwayAreRefused()
    {
        const State& state = stateOf();
        const Refused& command = commandOf();
        Gesture gesture = scene();
        // Something to undo and to redo.
        gesture.drag(4500, 900, 4500, 930).drag(4500, 930, 4500, 960).undo().undo().redo();
        gesture.undo().right(6000, 4500);
        const int steps = gesture.steps(), redoSteps = gesture.redoSteps();
        state.begin(gesture);
        const QImage before = image(gesture);
        DialogDriver user;
        (gesture.window().window.get()->*command.slot)();
        QCOMPARE(user.seen, QStringList());
        QCOMPARE(gesture.steps(), steps);
        QCOMPARE(gesture.redoSteps(), redoSteps);
        QCOMPARE(image(gesture), before);
        COMPARE_FIGURES(savedByTheWindow(gesture), allRecords);
        state.finish(gesture);
        COMPARE_FIGURES(gesture.figure(), state.finished);
        QVERIFY(holdsNothing(gesture.context()));
    }

    void theDeleteKeyWaitsForTheEndOfAGesture_data() { addStates(); }

    void theDeleteKeyWaitsForTheEndOfAGesture()
    {
        const State& state = stateOf();
        Gesture gesture = scene();
        state.begin(gesture);
        gesture.key(Qt::Key_Delete);
        QCOMPARE(gesture.steps(), 0);
        state.finish(gesture);
        COMPARE_FIGURES(gesture.figure(), state.finished);
    }

    void aSaveInMidGestureWritesTheFigureWithoutIt_data() { addStates(); }

    void aSaveInMidGestureWritesTheFigureWithoutIt()
    {
        const State& state = stateOf();
        Gesture gesture = scene();
        state.begin(gesture);
        COMPARE_FIGURES(savedByTheWindow(gesture), allRecords);
        QVERIFY(!gesture.context()->modified);
        state.finish(gesture);
        COMPARE_FIGURES(savedByTheWindow(gesture), state.finished);
        QVERIFY(holdsNothing(gesture.context()));
    }

    void escapeDeselectsAndWhatCanGoOnGoesOn_data() { addStates(); }

    void escapeDeselectsAndWhatCanGoOnGoesOn()
    {
        const State& state = stateOf();
        Gesture gesture = scene();
        state.begin(gesture);
        gesture.key(Qt::Key_Escape);
        QCOMPARE(selected(gesture), QList<long>());
        state.finish(gesture);
        COMPARE_FIGURES(gesture.figure(), state.afterEscape);
        QVERIFY(holdsNothing(gesture.context()));
        QCOMPARE(image(gesture), redrawn(gesture));
    }

    void escapeAfterThePressLeavesNothingToDrag()
    {
        Gesture gesture = scene();
        gesture.press(1245, 3045).key(Qt::Key_Escape).move(1500, 3300, Qt::LeftButton);
        QVERIFY(isResting(gesture));
        gesture.release(1500, 3300);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
    }

    void anArrowKeyEndsWhatTheSelectionIsInAndMovesIt_data() { addStates(); }

    void anArrowKeyEndsWhatTheSelectionIsInAndMovesIt()
    {
        const State& state = stateOf();
        Gesture gesture = scene();
        state.begin(gesture);
        gesture.key(Qt::Key_Right);
        state.finish(gesture);
        COMPARE_FIGURES(gesture.figure(), state.afterArrow);
        QVERIFY(holdsNothing(gesture.context()));
        QCOMPARE(image(gesture), redrawn(gesture));
    }

    // The picture of the drag is far from where the object goes by the key.
    void anArrowKeyLeavesNoPictureOfTheDragBehind()
    {
        Gesture gesture = scene();
        gesture.press(1245, 3045).move(1260, 3060, Qt::LeftButton);
        gesture.move(6000, 4500, Qt::LeftButton).key(Qt::Key_Right);
        QCOMPARE(image(gesture), redrawn(gesture));
        gesture.release(6000, 4500);
        QCOMPARE(gesture.steps(), 1);
    }

    void anotherToolDropsTheGesture_data() { addStates(); }

    void anotherToolDropsTheGesture()
    {
        const State& state = stateOf();
        Gesture gesture = scene();
        state.begin(gesture);
        gesture.tool(CMD_UPDATE);
        COMPARE_FIGURES(savedByTheWindow(gesture), allRecords);
        QVERIFY(holdsNothing(gesture.context()));
        QCOMPARE(selected(gesture), QList<long>());
        QCOMPARE(cur_command, int(CMD_UPDATE));
        gesture.release(3000, 4500).tool(CMD_SELECT);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(isResting(gesture));
    }

    void anotherDocumentDropsTheGesture_data() { addStates(); }

    void anotherDocumentDropsTheGesture()
    {
        const State& state = stateOf();
        Gesture gesture = scene();
        QTChildFrm* first = gesture.window().child;
        state.begin(gesture);
        QTChildFrm* other = gesture.window().window->newFile();
        QVERIFY(holdsNothing(first->figContext));
        gesture.in(other);
        state.finish(gesture); // in the wrong document
        QVERIFY(holdsNothing(other->figContext));
        COMPARE_FIGURES(gesture.figure(), QByteArray());
        gesture.in(first);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(canvas_leftbut_proc);
        QCoreApplication::processEvents();
        const QImage after = image(gesture);
        QCOMPARE(redrawn(gesture), after);
    }

    void closingTheDocumentDropsTheGesture_data() { addStates(); }

    void closingTheDocumentDropsTheGesture()
    {
        const State& state = stateOf();
        Gesture gesture = scene();
        QTMainFrm* window = gesture.window().window.get();
        const int documents = window->getChilds(QMdiArea::CreationOrder).size();
        state.begin(gesture);
        window->closeActiveChild();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(window->getChilds(QMdiArea::CreationOrder).size(), documents - 1);
        QVERIFY(!gestureContext && !canvas_leftbutUp_proc && !canvas_locmove_proc2 && !action_on);
        QVERIFY(oldElasticObjectList.isEmpty());
        gesture.in(window->newFile()).tool(CMD_SELECT);
        QVERIFY(isResting(gesture));
    }

    // The document is modified, and the user has it saved on the way out.
    void whatIsSavedOnClosingIsTheFigureWithoutTheGesture_data() { addStates(); }

    void whatIsSavedOnClosingIsTheFigureWithoutTheGesture()
    {
        const State& state = stateOf();
        const QTemporaryDir folder;
        Gesture gesture = scene();
        QFile file(folder.filePath("closed.fig"));
        gesture.window().child->saveFile(file.fileName());
        gesture.context()->setModifiedflag();
        state.begin(gesture);
        DialogDriver user;
        user.press(QMessageBox::Save);
        gesture.window().window->closeActiveChild();
        QVERIFY(user.isDone());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().endsWith("\n1200 2\n" + allRecords));
        QVERIFY(!gestureContext);
    }

    void aRefusedCloseLetsTheGestureGoOn_data() { addStates(); }

    void aRefusedCloseLetsTheGestureGoOn()
    {
        const State& state = stateOf();
        Gesture gesture = scene();
        gesture.context()->setModifiedflag();
        state.begin(gesture);
        DialogDriver user;
        user.press(QMessageBox::Cancel);
        gesture.window().window->closeActiveChild();
        QVERIFY(user.isDone());
        state.finish(gesture);
        COMPARE_FIGURES(gesture.figure(), state.finished);
        QVERIFY(holdsNothing(gesture.context()));
    }

    void theRightButtonLeavesTheFigureAsItWas_data() { addStates(); }

    void theRightButtonLeavesTheFigureAsItWas()
    {
        const State& state = stateOf();
        Gesture gesture = scene();
        state.begin(gesture);
        gesture.right(3000, 3300).release(3000, 3300);
        COMPARE_FIGURES(gesture.figure(), allRecords);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(holdsNothing(gesture.context()));
        QCOMPARE(image(gesture), redrawn(gesture));
    }

    void theStatusBarTellsWhatTheNextClickDoes_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("hint");
        const char* hints[] = {"drag: move the selection, right: deselect",
                               "release: put it here, right: cancel",
                               "release: select what lies inside, right: deselect",
                               "drag: move the point, right: deselect",
                               "release: put the corner here, right: cancel",
                               "left: put it here, right: cancel",
                               "left: put it here, right: cancel"};
        for (int state = 0; state < int(std::size(states)); ++state)
            QTest::newRow(states[state].name) << state << QString(hints[state]);
    }

    void theStatusBarTellsWhatTheNextClickDoes()
    {
        QFETCH(QString, hint);
        const State& state = stateOf();
        Gesture gesture = scene();
        state.begin(gesture);
        QCOMPARE(hintOf(gesture), hint);
        state.finish(gesture);
        QVERIFY(hintOf(gesture) != hint);
    }

    void theStatusBarTellsWhatTheToolsLookFor()
    {
        Gesture gesture = scene();
        const QList<QPair<int, QString>> hints = {
            {CMD_COPY, "left: object to copy"},
            {CMD_DELETE, "left: object to remove"},
            {CMD_UPDATE, "left: object to update"},
            {CMD_ARROW_HEAD, "left: end of a line"},
            {CMD_TANGENT, "left: point of the outline"},
            {CMD_NORMAL, "left: point of the outline"},
            {CMD_ADD_POINT, "left: outline for a new point"},
            {CMD_DELETE_POINT, "left: point to delete"},
            {CMD_SCALE_COMPOUND, "left: drag a corner or an edge"},
            // Their message says it.
            {CMD_ROTATE_CW, ""},
            {CMD_FLIP_UD, ""},
        };
        for (const auto& [command, hint] : hints) {
            gesture.tool(command);
            QCOMPARE(hintOf(gesture), hint);
        }
        gesture.tool(CMD_ADD_POINT).press(3900, 3000);
        QCOMPARE(hintOf(gesture), QString("drag: move the new point"));
        gesture.move(3900, 3300, Qt::LeftButton).move(3900, 3315, Qt::LeftButton);
        QCOMPARE(hintOf(gesture), QString("release: put the point here, right: cancel"));
        gesture.release(3900, 3315);
    }

private:
    static void addStates()
    {
        QTest::addColumn<int>("state");
        for (int state = 0; state < int(std::size(states)); ++state)
            QTest::newRow(states[state].name) << state;
    }

    static const State& stateOf()
    {
        QFETCH(int, state);
        return states[state];
    }

    static const Refused& commandOf()
    {
        QFETCH(int, command);
        return refusedCommands[command];
    }

    EditingStore store;
};

QTEST_MAIN(TestInterruptedGestures)
#include "test_interrupted_gestures.moc"
