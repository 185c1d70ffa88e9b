#include "RecordingShell.h"
#include "edit/command.h"
#include "edit/mode.h"

#include <QSet>
#include <QtTest>

namespace {

QSet<int> commandsFor(bool (*predicate)(int))
{
    QSet<int> found;
    for (int command = -5; command <= 100; ++command)
        if (predicate(command))
            found.insert(command);
    return found;
}

const QSet<int> drawingCommands = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 15, 16};

void pointerProc(CFigContext*, int, int) {}
FigObject* leftProc(CFigContext*, int, int, FigObject*)
{
    return nullptr;
}
void rightProc(CFigContext*, int, int, FigObject*) {}
void keyboardProc(unsigned long) {}
void feedbackProc(CFigContext*, int, int, int, int) {}

} // namespace

class TestCommand : public QObject {
    Q_OBJECT

private slots:
    void init() { cur_command = -1; }

    void drawingCommandsAreOneToThirteenFifteenAndSixteen()
    {
        QCOMPARE(commandsFor(isDrawingFunction), drawingCommands);
    }

    void theTextToolDrawsAlthoughItHasNoRubberBand() { QVERIFY(isDrawingFunction(9)); }

    void fourteenIsUnused()
    {
        cur_command = 14;
        QVERIFY(!isDrawingFunction(14));
        QVERIFY(!isObjectDrawingCommand());
    }

    void crossCursorIsForToolsThatPickObjects()
    {
        const QSet<int> picking = {32, 34, 36, 37, 38, 39, 44, 47, 56, 57, 58, 59, 67, 68};
        QCOMPARE(commandsFor(useCrossCursor), picking);
    }

    void drawingToolsAndSelectionGoWithoutAntialiasing()
    {
        for (int command = -5; command <= 100; ++command)
            QCOMPARE(useAntialiasing(command), !drawingCommands.contains(command) && command != 67);
    }

    void smartLinksAriseFromPointMovesAlone()
    {
        QCOMPARE(commandsFor(isSmartLinkCreateAction), QSet<int>{37});
    }

    void onlyCopyAndDragSnapObjects()
    {
        QSet<int> found;
        for (cur_command = -5; cur_command <= 100; ++cur_command)
            if (isSnapObjectsCommand())
                found.insert(cur_command);
        QCOMPARE(found, (QSet<int>{34, 68}));
    }

    void snapCursorCommandIsNeverTheSelection()
    {
        cur_command = 67;
        QVERIFY(!isSnapCursorCommand(true));
        QVERIFY(!isSnapCursorCommand(false));
        cur_command = 68;
        QVERIFY(isSnapCursorCommand(true));
        QVERIFY(!isSnapCursorCommand(false));
        cur_command = 6;
        QVERIFY(isSnapCursorCommand(false));
    }

    void setFunctionsWritesFiveSlotsAndLeavesTheOthers()
    {
        canvas_leftbutUp_proc = pointerProc;
        elastic_proc = feedbackProc;
        set_functions(pointerProc, keyboardProc, pointerProc, leftProc, rightProc);
        QVERIFY(canvas_qualifier_proc == pointerProc);
        QVERIFY(canvas_kbd_proc == keyboardProc);
        QVERIFY(canvas_locmove_proc == pointerProc);
        QVERIFY(canvas_leftbut_proc == leftProc);
        QVERIFY(canvas_middlebut_proc == rightProc);
        set_functions(nullptr, nullptr, nullptr, nullptr, nullptr);
        QVERIFY(!canvas_qualifier_proc && !canvas_kbd_proc && !canvas_locmove_proc);
        QVERIFY(!canvas_leftbut_proc && !canvas_middlebut_proc);
        QVERIFY(canvas_leftbutUp_proc == pointerProc);
        QVERIFY(elastic_proc == feedbackProc);
        canvas_leftbutUp_proc = nullptr;
        elastic_proc = nullptr;
    }

    void switchingGoesToTheShellAndGesturesToTheSelection()
    {
        const QHash<int, int> gestures = {{-1, 67}, {37, 67}, {68, 67}, {71, 67}};
        for (int command = -1; command <= 80; ++command) {
            recordingShell.clear();
            switchCommand(command);
            const int expected = gestures.value(command, command);
            QCOMPARE(recordingShell.panels, QStringList(QString("switch %1").arg(expected)));
        }
    }

    void endOfAGestureForgetsItsFeedback()
    {
        set_action_on();
        elastic_proc = feedbackProc;
        QCOMPARE(action_on, 1);
        reset_action_on();
        QCOMPARE(action_on, 0);
        QVERIFY(!elastic_proc);
    }
};

QTEST_GUILESS_MAIN(TestCommand)
#include "test_command.moc"
