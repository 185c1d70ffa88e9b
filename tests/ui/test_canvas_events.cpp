// What reaches which procedure slot when the user moves, presses and types on the canvas.
#include "WindowFixture.h"

#include <QFocusEvent>
#include <QSignalSpy>

Q_DECLARE_METATYPE(CFigContext*)

namespace {

struct Delivered {
    QString slot;
    CFigContext* context;
    int x, y;
    bool painting;
    bool antialiasing;
};

QList<Delivered> deliveries;

void record(const QString& slot, CFigContext* ctx, int x, int y)
{
    const bool painting = ctx->painter->isActive();
    deliveries.append({slot, ctx, x, y, painting,
                       painting && ctx->painter->testRenderHint(QPainter::Antialiasing)});
}

FigObject* onLeft(CFigContext* ctx, int x, int y, FigObject* excluded)
{
    record(excluded ? "left with object" : "left", ctx, x, y);
    return nullptr;
}

void onLeftUp(CFigContext* ctx, int x, int y)
{
    record("left up", ctx, x, y);
}

void onRight(CFigContext* ctx, int x, int y, FigObject* excluded)
{
    record(excluded ? "right with object" : "right", ctx, x, y);
}

void onMove(CFigContext* ctx, int x, int y)
{
    record("move", ctx, x, y);
}

QLinkedList<FigObject*>* listOfMove2 = nullptr;

void onMove2(CFigContext* ctx, QLinkedList<FigObject*>* objects, int x, int y)
{
    listOfMove2 = objects;
    record("move2", ctx, x, y);
}

void onQualifier(CFigContext* ctx, int x, int y)
{
    record("qualifier", ctx, x, y);
}

FigObject* onLeftThatEndsThePainter(CFigContext* ctx, int, int, FigObject*)
{
    ctx->painter->end();
    return nullptr;
}

void fillAllSlots()
{
    set_functions(onQualifier, nullptr, onMove, onLeft, onRight);
    canvas_leftbutUp_proc = onLeftUp;
    canvas_locmove_proc2 = onMove2;
}

QStringList names()
{
    QStringList all;
    for (const Delivered& one : deliveries)
        all.append(one.slot);
    return all;
}

/// A key as the display tells it: a modifier key does not count itself when it goes down, and
/// still does when it comes up.
void sendKey(QWidget* widget, QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers state)
{
    QKeyEvent event(type, key, state);
    QApplication::sendEvent(widget, &event);
}

/// Counts the paint events of a widget.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

} // namespace

class TestCanvasEvents : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<CFigContext*>("CFigContext*"); }

    void init()
    {
        resetProcessState();
        deliveries.clear();
    }

    // --- pixels to figure units -------------------------------------------------

    void pixel80AtZoom1And80DpiIs1200()
    {
        WindowFixture fixture;
        QVERIFY(fixture.child->getMouseXY(80, 160, false));
        QCOMPARE(fixture.child->figX, 1200);
        QCOMPARE(fixture.child->figY, 2400);
        QCOMPARE(fixture.child->lastPixelX, 80);
        QCOMPARE(fixture.child->lastPixelY, 160);
    }

    void negativePixelCountsAsZeroBeforeTheShift()
    {
        WindowFixture fixture;
        fixture.context->shiftX = 40;
        fixture.child->getMouseXY(-15, -1, false);
        QCOMPARE(fixture.child->figX, 600);
        QCOMPARE(fixture.child->figY, 0);
    }

    void changeIsToldByPixel()
    {
        WindowFixture fixture;
        QVERIFY(fixture.child->getMouseXY(10, 10, true));
        QVERIFY(!fixture.child->getMouseXY(10, 10, true));
        QVERIFY(fixture.child->getMouseXY(11, 10, true));
        QVERIFY(fixture.child->getMouseXY(11, 9, true));
    }

    void controlLocksTheVerticalPosition()
    {
        WindowFixture fixture;
        fixture.child->getMouseXY(10, 20, false);
        ctrl_down = true;
        QVERIFY(fixture.child->getMouseXY(30, 90, true));
        QCOMPARE(fixture.child->lastPixelX, 30);
        QCOMPARE(fixture.child->lastPixelY, 20);
        QVERIFY(!fixture.child->getMouseXY(30, 95, true));
    }

    void shiftLocksTheHorizontalPositionForMovesAndPressesAlike()
    {
        WindowFixture fixture;
        fillAllSlots();
        fixture.move(10, 20);
        sendKey(fixture.child, QEvent::KeyPress, Qt::Key_Shift, Qt::NoModifier);
        deliveries.clear();
        fixture.move(70, 40);
        fixture.press(Qt::LeftButton, 90, 60);
        QCOMPARE(names(), QStringList({"move", "move2", "left"}));
        QCOMPARE(deliveries[0].x, 150);
        QCOMPARE(deliveries[0].y, 600);
        QCOMPARE(deliveries[2].x, 150);
        QCOMPARE(deliveries[2].y, 900);
        deliveries.clear();
        fixture.move(400, 60);
        QCOMPARE(names(), QStringList());
    }

    // --- buttons ----------------------------------------------------------------

    void leftPressReachesItsSlotWithThePainterAtWork()
    {
        WindowFixture fixture;
        fillAllSlots();
        fixture.press(Qt::LeftButton, 80, 40);
        QCOMPARE(names(), QStringList("left"));
        QCOMPARE(deliveries[0].context, fixture.context);
        QCOMPARE(deliveries[0].x, 1200);
        QCOMPARE(deliveries[0].y, 600);
        QVERIFY(deliveries[0].painting);
        QVERIFY(!fixture.child->painter.isActive());
        QCOMPARE(fixture.child->dragPixelX, 80);
    }

    void leftPressWithAnEmptySlotLeavesTheDragPosition()
    {
        WindowFixture fixture;
        fixture.press(Qt::RightButton, 33, 44);
        fixture.press(Qt::LeftButton, 80, 40);
        QCOMPARE(fixture.child->dragPixelX, 33);
        QCOMPARE(fixture.child->dragPixelY, 44);
        fixture.press(Qt::MiddleButton, 81, 41);
        QCOMPARE(fixture.child->dragPixelX, 81);
        QCOMPARE(fixture.child->dragPixelY, 41);
    }

    void slotMayEndThePainterItself()
    {
        WindowFixture fixture;
        set_functions(nullptr, nullptr, nullptr, onLeftThatEndsThePainter, nullptr);
        fixture.press(Qt::LeftButton, 80, 40);
        QVERIFY(!fixture.child->painter.isActive());
        QCOMPARE(fixture.child->dragPixelX, 80);
    }

    void rightPressReachesTheSlotNamedMiddle()
    {
        WindowFixture fixture;
        fillAllSlots();
        fixture.press(Qt::RightButton, 80, 40);
        QCOMPARE(names(), QStringList("right"));
        QVERIFY(deliveries[0].painting);
        QVERIFY(!fixture.child->painter.isActive());
    }

    void middleButtonReachesNoSlot()
    {
        WindowFixture fixture;
        fillAllSlots();
        fixture.press(Qt::MiddleButton, 80, 40);
        fixture.release(Qt::MiddleButton, 80, 40);
        QCOMPARE(names(), QStringList());
    }

    void onlyTheLeftReleaseIsDelivered()
    {
        WindowFixture fixture;
        fillAllSlots();
        fixture.release(Qt::RightButton, 80, 40);
        QCOMPARE(names(), QStringList());
        fixture.release(Qt::LeftButton, 160, 40);
        QCOMPARE(names(), QStringList("left up"));
        QCOMPARE(deliveries[0].x, 2400);
        QVERIFY(deliveries[0].painting);
    }

    void emptySlotsDropTheEvents()
    {
        WindowFixture fixture;
        fixture.press(Qt::RightButton, 80, 40);
        fixture.release(Qt::RightButton, 80, 40);
        fixture.release(Qt::LeftButton, 80, 40);
        fixture.move(90, 40);
        QVERIFY(!fixture.child->painter.isActive());
    }

    // --- moves ------------------------------------------------------------------

    void moveReachesBothMoveSlotsInOrder()
    {
        WindowFixture fixture;
        fillAllSlots();
        QLinkedList<FigObject*> moved;
        fixture.context->movedObjects = &moved;
        fixture.move(80, 40);
        QCOMPARE(names(), QStringList({"move", "move2"}));
        QCOMPARE(listOfMove2, &moved);
        QCOMPARE(deliveries[1].x, 1200);
        fixture.context->movedObjects = nullptr;
    }

    void moveToTheSamePixelIsNotDelivered()
    {
        WindowFixture fixture;
        fillAllSlots();
        fixture.move(80, 40);
        fixture.move(80, 40);
        QCOMPARE(names(), QStringList({"move", "move2"}));
    }

    void fractionalPositionsAreRounded()
    {
        WindowFixture fixture;
        fixture.mouse(QEvent::MouseMove, QPointF(79.6, 40.4), Qt::NoButton, Qt::NoButton);
        QCOMPARE(fixture.child->lastPixelX, 80);
        QCOMPARE(fixture.child->lastPixelY, 40);
    }

    void moveWithTheRightButtonDragsAndNothingElse()
    {
        WindowFixture fixture;
        fillAllSlots();
        QSignalSpy coords(fixture.child, &QTChildFrm::coordsChanged);
        fixture.press(Qt::RightButton, 80, 40);
        deliveries.clear();
        fixture.move(90, 50, Qt::RightButton);
        QCOMPARE(names(), QStringList());
        QCOMPARE(coords.count(), 0);
        QCOMPARE(fixture.context->shiftX, -10);
    }

    void moveTellsTheCoordinates()
    {
        WindowFixture fixture;
        QSignalSpy coords(fixture.child, &QTChildFrm::coordsChanged);
        fixture.move(80, 40);
        QCOMPARE(coords.count(), 1);
        QCOMPARE(coords[0][1].toInt(), 1200);
        QCOMPARE(coords[0][2].toInt(), 600);
    }

    void screenFollowsAMoveOnlyIfASlotWasCalled()
    {
        WindowFixture fixture;
        QCoreApplication::processEvents();
        PaintCounter paints(fixture.child->viewport());
        fixture.move(80, 40);
        QCOMPARE(paints.count, 0);
        fillAllSlots();
        fixture.move(90, 40);
        QCOMPARE(paints.count, 1);
    }

    // --- antialiasing -----------------------------------------------------------

    void antialiasingOfMovesAndReleasesFollowsTheCommand_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<bool>("preference");
        QTest::addColumn<bool>("expected");
        QTest::newRow("drawing") << 6 << true << false;
        QTest::newRow("selection") << 67 << true << false;
        QTest::newRow("copy") << 34 << true << true;
        QTest::newRow("copy, preference off") << 34 << false << false;
    }

    void antialiasingOfMovesAndReleasesFollowsTheCommand()
    {
        QFETCH(int, command);
        QFETCH(bool, preference);
        WindowFixture fixture;
        fillAllSlots();
        cur_command = command;
        otherPreferencesData.antialiasing = preference;
        fixture.move(80, 40);
        fixture.release(Qt::LeftButton, 80, 40);
        QCOMPARE(names(), QStringList({"move", "move2", "left up"}));
        for (const Delivered& one : qAsConst(deliveries))
            QTEST(one.antialiasing, "expected");
    }

    void antialiasingOfPressesIsThePreferenceWhateverTheCommand()
    {
        WindowFixture fixture;
        fillAllSlots();
        cur_command = 6;
        for (bool on : {true, false}) {
            otherPreferencesData.antialiasing = on;
            deliveries.clear();
            fixture.press(Qt::LeftButton, 80, 40);
            fixture.press(Qt::RightButton, 80, 40);
            QCOMPARE(deliveries[0].antialiasing, on);
            QCOMPARE(deliveries[1].antialiasing, on);
        }
    }

    // --- keys -------------------------------------------------------------------

    void shiftCallsTheQualifierOnceWhenItChanges()
    {
        WindowFixture fixture;
        fillAllSlots();
        sendKey(fixture.child, QEvent::KeyPress, Qt::Key_Shift, Qt::NoModifier);
        sendKey(fixture.child, QEvent::KeyPress, Qt::Key_A, Qt::ShiftModifier);
        QCOMPARE(names(), QStringList("qualifier"));
        QVERIFY(shift_down);
        sendKey(fixture.child, QEvent::KeyRelease, Qt::Key_Shift, Qt::ShiftModifier);
        QCOMPARE(names(), QStringList({"qualifier", "qualifier"}));
        QCOMPARE(deliveries[0].x, 0);
        QVERIFY(!shift_down);
    }

    void controlIsKeptFromKeysAndCallsNothing()
    {
        WindowFixture fixture;
        fillAllSlots();
        sendKey(fixture.child, QEvent::KeyPress, Qt::Key_Control, Qt::NoModifier);
        QVERIFY(ctrl_down);
        sendKey(fixture.child, QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier);
        QVERIFY(!ctrl_down);
        QCOMPARE(names(), QStringList());
    }

    void keyLetGoElsewhereIsNotHeldWhenTheWindowComesBack()
    {
        WindowFixture fixture;
        // The last that the display told: no key is held.
        sendKey(fixture.child, QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        ctrl_down = true;
        shift_down = true;
        QFocusEvent focus(QEvent::FocusIn);
        QCoreApplication::sendEvent(fixture.child, &focus);
        QVERIFY(!ctrl_down);
        QVERIFY(!shift_down);
    }

    // Pressed in a panel, which had the keys until the click that brings the focus.
    void keyThatIsHeldCountsForTheClickThatBringsTheFocus()
    {
        WindowFixture fixture;
        QFocusEvent click(QEvent::FocusIn, Qt::MouseFocusReason);
        QFocusEvent other(QEvent::FocusIn, Qt::OtherFocusReason);
        sendKey(fixture.window.get(), QEvent::KeyPress, Qt::Key_A, Qt::ShiftModifier);
        QCoreApplication::sendEvent(fixture.child, &other);
        QVERIFY(!shift_down);
        QCoreApplication::sendEvent(fixture.child, &click);
        QVERIFY(shift_down && !ctrl_down);
        sendKey(fixture.window.get(), QEvent::KeyPress, Qt::Key_A, Qt::ControlModifier);
        QCoreApplication::sendEvent(fixture.child, &click);
        QVERIFY(!shift_down && ctrl_down);
        sendKey(fixture.window.get(), QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
    }

    void arrowsAndEscapeAreNotPassedOn()
    {
        WindowFixture fixture({520, 500});
        const int before = fixture.context->shiftY;
        for (Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Escape})
            QTest::keyClick(fixture.child, key);
        QCOMPARE(fixture.context->shiftY, before);
        QTest::keyClick(fixture.child, Qt::Key_PageDown);
        QVERIFY(fixture.context->shiftY > before);
    }

    // --- toolbar states ---------------------------------------------------------

    void releasesOfAnyButtonAndFocusTellTheFourButtonStates()
    {
        WindowFixture fixture;
        QSignalSpy compound(fixture.child, &QTChildFrm::compoundButtonsStateChanged);
        QSignalSpy convert(fixture.child, &QTChildFrm::convertLineSplineButtonStateChanged);
        QSignalSpy align(fixture.child, &QTChildFrm::alignButtonsStateChanged);
        QSignalSpy library(fixture.child, &QTChildFrm::addClipToLibraryButtonStateChanged);
        fixture.release(Qt::LeftButton, 1, 1);
        fixture.release(Qt::RightButton, 1, 1);
        fixture.release(Qt::MiddleButton, 1, 1);
        QFocusEvent focus(QEvent::FocusIn);
        QCoreApplication::sendEvent(fixture.child, &focus);
        for (const QSignalSpy* spy : {&compound, &convert, &align, &library})
            QCOMPARE(spy->count(), 4);
        QCOMPARE(compound.last(), QVariantList({false, false, false, false}));
        QCOMPARE(convert.last(), QVariantList{false});
        QCOMPARE(align.last(), QVariantList{false});
    }

    void taggedObjectsAllowCompoundAndAlignment()
    {
        WindowFixture fixture;
        QSignalSpy compound(fixture.child, &QTChildFrm::compoundButtonsStateChanged);
        QSignalSpy align(fixture.child, &QTChildFrm::alignButtonsStateChanged);
        fixture.addLine(0, 0, 600, 600)->tagged = true;
        fixture.release(Qt::LeftButton, 1, 1);
        QCOMPARE(compound.last(), QVariantList({true, false, false, false}));
        QCOMPARE(align.last(), QVariantList{true});
    }

    void aCurrentCompoundCanBeBrokenAndOpened()
    {
        WindowFixture fixture;
        QSignalSpy compound(fixture.child, &QTChildFrm::compoundButtonsStateChanged);
        FigCompound current;
        fixture.context->curObject = &current;
        fixture.release(Qt::LeftButton, 1, 1);
        QCOMPARE(compound.last(), QVariantList({false, true, true, false}));
        fixture.context->curObject = nullptr;
        fixture.context->openCompoundObjects = current.objects;
        fixture.release(Qt::LeftButton, 1, 1);
        QCOMPARE(compound.last(), QVariantList({false, false, false, true}));
        fixture.context->openCompoundObjects = nullptr;
    }

    void polylinesPolygonsAndSplinesConvert()
    {
        WindowFixture fixture;
        QSignalSpy convert(fixture.child, &QTChildFrm::convertLineSplineButtonStateChanged);
        FigLine line;
        fixture.context->curObject = &line;
        const QHash<int, bool> expected = {
            {1, true}, {2, false}, {3, true}, {4, false}, {5, false}};
        for (int subType = 1; subType <= 5; ++subType) {
            line.sub_type = subType;
            fixture.child->updateConvertLineSplineButton();
            QCOMPARE(convert.last(), QVariantList{expected[subType]});
        }
        FigSpline spline;
        fixture.context->curObject = &spline;
        fixture.child->updateConvertLineSplineButton();
        QCOMPARE(convert.last(), QVariantList{true});
        FigText text;
        text.sub_type = 1;
        fixture.context->curObject = &text;
        fixture.child->updateConvertLineSplineButton();
        QCOMPARE(convert.last(), QVariantList{false});
        fixture.context->curObject = nullptr;
    }

    // --- the end of a document --------------------------------------------------

    void closingADocumentEndsTheGestureAndEmptiesTheSlots()
    {
        WindowFixture fixture;
        fillAllSlots();
        set_action_on();
        fixture.window->closeActiveChild();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!fixture.window->activeMdiChild());
        QCOMPARE(action_on, 0);
        QVERIFY(!canvas_leftbut_proc && !canvas_leftbutUp_proc && !canvas_middlebut_proc);
        QVERIFY(!canvas_locmove_proc && !canvas_locmove_proc2);
    }

    void closingADocumentWithoutAGestureKeepsTheTool()
    {
        WindowFixture fixture;
        fillAllSlots();
        fixture.window->closeActiveChild();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(canvas_leftbut_proc == onLeft);
    }

    void closingTurnsTheButtonsOff()
    {
        WindowFixture fixture;
        QSignalSpy compound(fixture.child, &QTChildFrm::compoundButtonsStateChanged);
        QSignalSpy convert(fixture.child, &QTChildFrm::convertLineSplineButtonStateChanged);
        QSignalSpy align(fixture.child, &QTChildFrm::alignButtonsStateChanged);
        fixture.addLine(0, 0, 600, 600)->tagged = true;
        QVERIFY(fixture.child->close());
        QCOMPARE(compound.last(), QVariantList({false, false, false, false}));
        QCOMPARE(convert.last(), QVariantList{false});
        QCOMPARE(align.last(), QVariantList{false});
    }
};

QTEST_MAIN(TestCanvasEvents)
#include "test_canvas_events.moc"
