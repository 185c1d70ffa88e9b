// Compounds in the windows: made, opened in place, worked on, closed and broken; their buttons;
// what is outside an open one. Boxes have a pen of two units, 30 of the figure's, so the corners of
// a compound lie 15 outside those of its members.
#include "SelectionScene.h"

#include "edit/e_clipboard.h"
#include "edit/e_compound.h"
#include "render/colorFunctions.h"
#include "render/grid.h"
#include "ui/MainActions.h"

#include <QAction>

namespace {

QByteArray thickBox(long id, int left, int top, int right, int bottom, int pen = 0)
{
    const QString corners = QString("%1 %2 %3 %2 %3 %4 %1 %4 %1 %2");
    const QByteArray begin = "2 2 0 2 " + QByteArray::number(pen) + " 7 50 -1 -1 0.000 0 0 -1 0 0 ";
    return records::idLine(id) +
           records::path(begin.constData(), "",
                         corners.arg(left).arg(top).arg(right).arg(bottom).toLatin1());
}

constexpr int RED = 4;

// A compound of two boxes, and a red box and a circle outside.
const QByteArray member2 = thickBox(2, 600, 600, 1200, 1200);
const QByteArray member3 = thickBox(3, 2400, 600, 3000, 1200);
const QByteArray compound1 = records::compound(1, 585, 585, 3015, 1215, member2 + member3);
const QByteArray outside4 = thickBox(4, 600, 3000, 1800, 3600, RED);
const QByteArray outside5 = circle(5, 4500, 1500, 600);
const QByteArray groupRecords = compound1 + outside4 + outside5;

Gesture group()
{
    return openFigure(groupRecords);
}

QTMainFrm* windowOf(const Gesture& gesture)
{
    return gesture.window().window.get();
}

/// Selects the compound by its upper edge, between its members.
Gesture& open(Gesture& gesture)
{
    gesture.left(1800, 585);
    windowOf(gesture)->onOpenCompound();
    return gesture;
}

Gesture& close(Gesture& gesture)
{
    windowOf(gesture)->onCloseCompound();
    return gesture;
}

Gesture openGroup()
{
    Gesture gesture = group();
    open(gesture);
    return gesture;
}

bool isAvailable(const Gesture& gesture, const char* tip)
{
    for (const QAction* action : windowOf(gesture)->findChildren<QAction*>())
        if (action->toolTip() == tip)
            return action->isEnabled();
    qWarning("no action \"%s\"", tip);
    return false;
}

/// "create break open close", those that are live.
QString buttons(const Gesture& gesture)
{
    QStringList live;
    if (isAvailable(gesture, "Glue objects into compound object"))
        live.append("create");
    if (isAvailable(gesture, "Break compound object"))
        live.append("break");
    if (isAvailable(gesture, "Open compound for editing"))
        live.append("open");
    if (isAvailable(gesture, "Close current compound"))
        live.append("close");
    return live.join(' ');
}

QRgb pixelAt(const Gesture& gesture, int x, int y)
{
    return image(gesture).pixel(pixelX(gesture.context(), x), pixelY(gesture.context(), y));
}

void undoAll(Gesture& gesture)
{
    while (gesture.steps() > 0)
        gesture.undo();
}

} // namespace

class TestCompoundWindows : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        store.make();
        set_colors();
        loadGridDefinitions();
    }
    void cleanupTestCase() { destroyGridDefinitions(); }
    void init()
    {
        store.renew();
        resetCurrentAttributes();
        otherPreferencesData.antialiasing = false;
    }
    void cleanup()
    {
        clear_clipboard();
        resetCurrentAttributes();
        store.leave();
    }

    void theGroupIsSavedAsItWasRead() { COMPARE_FIGURES(group().figure(), groupRecords); }

    // --- made and broken ------------------------------------------------------------------

    void theSelectionBecomesACompoundAtTheEndOfTheFigure()
    {
        Gesture gesture = openFigure(member2 + outside4 + member3);
        gesture.left(900, 600).shiftLeft(2700, 600);
        windowOf(gesture)->onCreateCompound();
        const QByteArray made =
            outside4 + records::compound(5, 585, 585, 3015, 1215, member2 + member3);
        COMPARE_FIGURES(gesture.figure(), made);
        QCOMPARE(gesture.steps(), 1);
        QCOMPARE(current(gesture), 5L);
        QCOMPARE(selected(gesture), QList<long>{5});
        QCOMPARE(pageOf(gesture), 4);
        QVERIFY(gesture.context()->modified);
        QCOMPARE(image(gesture), redrawn(gesture));
        COMPARE_FIGURES(gesture.undo().figure(), outside4 + member2 + member3);
        COMPARE_FIGURES(gesture.redo().figure(), made);
    }

    void nothingSelectedMakesNoCompound()
    {
        Gesture gesture = group();
        windowOf(gesture)->onCreateCompound();
        QCOMPARE(message_line, QString("Empty compound, ignored"));
        COMPARE_FIGURES(gesture.figure(), groupRecords);
        QCOMPARE(gesture.steps(), 0);
    }

    void aBrokenCompoundLeavesItsMembers()
    {
        Gesture gesture = group();
        gesture.left(1800, 585);
        windowOf(gesture)->onBreakCompound();
        COMPARE_FIGURES(gesture.figure(), outside4 + outside5 + member2 + member3);
        QCOMPARE(gesture.steps(), 1);
        QCOMPARE(current(gesture), 0L);
        QCOMPARE(image(gesture), redrawn(gesture));
        COMPARE_FIGURES(gesture.undo().figure(), outside4 + outside5 + compound1);
        COMPARE_FIGURES(gesture.redo().figure(), outside4 + outside5 + member2 + member3);
    }

    void twoCompoundsAreBrokenAsOneStep()
    {
        const QByteArray other =
            records::compound(6, 585, 3885, 1215, 4515, thickBox(7, 600, 3900, 1200, 4500));
        Gesture gesture = openFigure(compound1 + other);
        gesture.left(1800, 585).shiftLeft(600, 4200);
        QCOMPARE(selected(gesture), (QList<long>{1, 6}));
        windowOf(gesture)->onBreakCompound();
        QCOMPARE(gesture.count(), 3);
        QCOMPARE(gesture.steps(), 1);
        COMPARE_FIGURES(gesture.undo().figure(), other + compound1);
    }

    void whatIsNoCompoundIsNeitherBrokenNorOpened()
    {
        Gesture gesture = group();
        gesture.left(1200, 3000);
        windowOf(gesture)->onBreakCompound();
        windowOf(gesture)->onOpenCompound();
        windowOf(gesture)->onCloseCompound();
        COMPARE_FIGURES(gesture.figure(), groupRecords);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(!isCompoundOpen(gesture.context()));
        QCOMPARE(selected(gesture), QList<long>{4});
    }

    // --- selected and moved as one --------------------------------------------------------

    void aCompoundIsHitByItsBoxAndMovedWhole()
    {
        Gesture gesture = group();
        gesture.drag(1800, 585, 1800, 1185);
        COMPARE_FIGURES(gesture.figure(),
                        records::compound(1, 585, 1185, 3015, 1815,
                                          thickBox(2, 600, 1200, 1200, 1800) +
                                              thickBox(3, 2400, 1200, 3000, 1800)) +
                            outside4 + outside5);
        QCOMPARE(gesture.steps(), 1);
        COMPARE_FIGURES(gesture.undo().figure(), groupRecords);
    }

    // The connector's other end hangs on a member, index 1: the right edge.
    void aConnectorFollowsAMemberOfAMovedCompound()
    {
        const QByteArray connector = polyline(6, "1200 900 1800 2400", link(0, 2, 1));
        Gesture gesture = openFigure(compound1 + connector);
        gesture.drag(1800, 585, 1800, 885);
        COMPARE_FIGURES(gesture.figure(),
                        records::compound(1, 585, 885, 3015, 1515,
                                          thickBox(2, 600, 900, 1200, 1500) +
                                              thickBox(3, 2400, 900, 3000, 1500)) +
                            polyline(6, "1200 1200 1800 2400", link(0, 2, 1)));
        COMPARE_FIGURES(gesture.undo().figure(), compound1 + connector);
    }

    // --- open in each view mode -------------------------------------------------------------

    // Red is (255, 0, 0), lightness 0.5: dimmed 0.9, which is (255, 204, 204); gray of 0.75, which
    // is 191.
    void whatIsOutsideAnOpenCompoundLooksAsThePreferenceSays_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QRgb>("outside");
        QTest::newRow("dimmed") << 10 << qRgb(255, 204, 204);
        QTest::newRow("grayed") << 11 << qRgb(191, 191, 191);
        QTest::newRow("hidden") << 12 << qRgb(255, 255, 255);
        QTest::newRow("normal") << 3 << qRgb(255, 0, 0);
    }

    void whatIsOutsideAnOpenCompoundLooksAsThePreferenceSays()
    {
        QFETCH(int, mode);
        QFETCH(QRgb, outside);
        otherPreferencesData.compoundEditViewMode = mode;
        Gesture gesture = group();
        QCOMPARE(pixelAt(gesture, 1200, 3000), qRgb(255, 0, 0));
        open(gesture);
        QVERIFY(isCompoundOpen(gesture.context()));
        QCOMPARE(pixelAt(gesture, 1200, 3000), outside);
        QCOMPARE(pixelAt(gesture, 900, 600), qRgb(0, 0, 0));
        QCOMPARE(image(gesture), redrawn(gesture));
        // Work inside leaves what is outside as it looks.
        gesture.drag(900, 600, 900, 900);
        QCOMPARE(pixelAt(gesture, 1200, 3000), outside);
        QCOMPARE(pixelAt(gesture, 900, 900), qRgb(0, 0, 0));
        QCOMPARE(image(gesture), redrawn(gesture));
        // And so does a drag across it.
        gesture.drag(900, 900, 900, 3000).undo();
        QCOMPARE(pixelAt(gesture, 1200, 3000), outside);
        close(gesture);
        QVERIFY(!isCompoundOpen(gesture.context()));
        QCOMPARE(pixelAt(gesture, 1200, 3000), qRgb(255, 0, 0));
        QCOMPARE(image(gesture), redrawn(gesture));
    }

    void openingAndClosingChangesNothing()
    {
        Gesture gesture = openGroup();
        COMPARE_FIGURES(gesture.figure(), groupRecords);
        QCOMPARE(current(gesture), 0L);
        QCOMPARE(selected(gesture), QList<long>());
        close(gesture);
        COMPARE_FIGURES(gesture.figure(), groupRecords);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(!gesture.context()->modified);
        QCOMPARE(current(gesture), 1L);
        QCOMPARE(selected(gesture), QList<long>{1});
    }

    // Page 4 is that of compounds, 6 the empty one.
    void thePanelIsThatOfWhatIsSelectedThen()
    {
        Gesture gesture = group();
        open(gesture);
        QCOMPARE(pageOf(gesture), 6);
        close(gesture);
        QCOMPARE(pageOf(gesture), 4);
        windowOf(gesture)->onBreakCompound();
        QCOMPARE(pageOf(gesture), 6);
    }

    // --- work inside ------------------------------------------------------------------------

    void onlyTheMembersAreFound()
    {
        Gesture gesture = openGroup();
        gesture.left(1200, 3000);
        QCOMPARE(selected(gesture), QList<long>());
        gesture.left(900, 600);
        QCOMPARE(selected(gesture), QList<long>{2});
        gesture.drag(300, 300, 6000, 4500);
        QCOMPARE(selected(gesture), (QList<long>{2, 3}));
        windowOf(gesture)->selectAll();
        QCOMPARE(selected(gesture), (QList<long>{2, 3}));
        for (const FigObject* object : gesture.objects())
            QVERIFY(!object->tagged);
    }

    void theCornersFollowWhenTheCompoundIsClosed()
    {
        Gesture gesture = openGroup();
        gesture.drag(900, 600, 900, 900);
        close(gesture);
        const QByteArray changed = records::compound(1, 585, 585, 3015, 1515,
                                                     thickBox(2, 600, 900, 1200, 1500) + member3) +
                                   outside4 + outside5;
        COMPARE_FIGURES(gesture.figure(), changed);
        // The step works on after the closing.
        COMPARE_FIGURES(gesture.undo().figure(), groupRecords);
        COMPARE_FIGURES(gesture.redo().figure(), changed);
    }

    // Neither undo nor an arrow key leaves a picture of a member where it was.
    void membersAreWipedWhereTheyWere()
    {
        Gesture gesture = openGroup();
        gesture.drag(900, 600, 3900, 3000).undo();
        QCOMPARE(pixelAt(gesture, 3900, 3000), qRgb(255, 255, 255));
        QCOMPARE(pixelAt(gesture, 900, 600), qRgb(0, 0, 0));
        gesture.redo();
        QCOMPARE(pixelAt(gesture, 3900, 3000), qRgb(0, 0, 0));
        QCOMPARE(pixelAt(gesture, 900, 600), qRgb(255, 255, 255));
        gesture.context()->metric = false;
        gesture.context()->magnetMode = 4;
        gesture.context()->gridIndex = 1;
        gridPreferences.snapMode = 1;
        gesture.key(Qt::Key_Down);
        QCOMPARE(pixelAt(gesture, 3900, 3600), qRgb(0, 0, 0));
        QCOMPARE(pixelAt(gesture, 3900, 3000), qRgb(255, 255, 255));
        gesture.key(Qt::Key_Delete);
        QCOMPARE(pixelAt(gesture, 3900, 3600), qRgb(255, 255, 255));
        gesture.undo();
        QCOMPARE(pixelAt(gesture, 3900, 3600), qRgb(0, 0, 0));
    }

    void whatIsDrawnInsideIsAMember()
    {
        Gesture gesture = openGroup();
        gesture.tool(CMD_BOX).left(1500, 750).left(1800, 1050);
        QCOMPARE(gesture.count(), 3);
        QCOMPARE(gesture.context()->getWorkingRoot()->size(), 3);
        gesture.tool(CMD_SELECT);
        close(gesture);
        QVERIFY(
            gesture.figure().contains("\t 1500 750 1800 750 1800 1050 1500 1050 1500 750\n-6\n"));
        COMPARE_FIGURES(gesture.undo().figure(), groupRecords);
    }

    void whatIsPastedInsideIsAMember()
    {
        Gesture gesture = group();
        gesture.left(1200, 3000);
        windowOf(gesture)->copy();
        open(gesture);
        windowOf(gesture)->paste();
        gesture.left(1800, 900); // its middle; the clipboard has number 6
        close(gesture);
        COMPARE_FIGURES(
            gesture.figure(),
            records::compound(1, 585, 585, 3015, 1215,
                              member2 + member3 + thickBox(7, 1200, 600, 2400, 1200, RED)) +
                outside4 + outside5);
        COMPARE_FIGURES(gesture.undo().figure(), groupRecords);
    }

    void aSaveWhileACompoundIsOpenWritesTheWholeFigure()
    {
        Gesture gesture = openGroup();
        COMPARE_FIGURES(savedByTheWindow(gesture), groupRecords);
        gesture.left(900, 600);
        windowOf(gesture)->copy();
        windowOf(gesture)->paste();
        gesture.move(1800, 900);
        COMPARE_FIGURES(savedByTheWindow(gesture), groupRecords);
        gesture.right(1800, 900);
        QVERIFY(isCompoundOpen(gesture.context()));
    }

    void aCompoundMadeInsideIsNestedAndClosesLevelByLevel()
    {
        Gesture gesture = openGroup();
        gesture.left(900, 600);
        windowOf(gesture)->onCreateCompound();
        QCOMPARE(current(gesture), 6L);
        COMPARE_FIGURES(
            gesture.figure(),
            records::compound(1, 585, 585, 3015, 1215,
                              member3 + records::compound(6, 585, 585, 1215, 1215, member2)) +
                outside4 + outside5);
        windowOf(gesture)->onOpenCompound();
        gesture.drag(900, 600, 900, 900);
        close(gesture);
        QCOMPARE(current(gesture), 6L);
        QVERIFY(isCompoundOpen(gesture.context()));
        close(gesture);
        QCOMPARE(current(gesture), 1L);
        QVERIFY(!isCompoundOpen(gesture.context()));
        COMPARE_FIGURES(
            gesture.figure(),
            records::compound(1, 585, 585, 3015, 1515,
                              member3 + records::compound(6, 585, 885, 1215, 1515,
                                                          thickBox(2, 600, 900, 1200, 1500))) +
                outside4 + outside5);
        undoAll(gesture);
        COMPARE_FIGURES(gesture.figure(),
                        records::compound(1, 585, 585, 3015, 1215, member3 + member2) + outside4 +
                            outside5);
    }

    // What is undone then goes into a list that nothing shows any more.
    void aCompoundWithoutMembersVanishesWhenItIsClosed()
    {
        Gesture gesture = openGroup();
        gesture.drag(300, 300, 6000, 2000).key(Qt::Key_Delete);
        QCOMPARE(gesture.context()->getWorkingRoot()->size(), 0);
        close(gesture);
        COMPARE_FIGURES(gesture.figure(), outside4 + outside5);
        QCOMPARE(current(gesture), 0L);
        QVERIFY(!isCompoundOpen(gesture.context()));
        QCOMPARE(image(gesture), redrawn(gesture));
        COMPARE_FIGURES(gesture.undo().figure(), outside4 + outside5);
        COMPARE_FIGURES(gesture.redo().figure(), outside4 + outside5);
        QCOMPARE(image(gesture), redrawn(gesture));
    }

    // What was deleted last comes back first, each to the end of the list.
    void membersDeletedInAnOpenCompoundComeBack()
    {
        Gesture gesture = openGroup();
        gesture.drag(300, 300, 6000, 2000).key(Qt::Key_Delete).undo();
        close(gesture);
        COMPARE_FIGURES(gesture.figure(),
                        records::compound(1, 585, 585, 3015, 1215, member3 + member2) + outside4 +
                            outside5);
    }

    void takingBackTheCreationOfAnOpenCompoundClosesIt()
    {
        Gesture gesture = openFigure(member2 + member3 + outside4);
        gesture.left(900, 600).shiftLeft(2700, 600);
        windowOf(gesture)->onCreateCompound();
        windowOf(gesture)->onOpenCompound();
        QVERIFY(isCompoundOpen(gesture.context()));
        gesture.undo();
        QVERIFY(!isCompoundOpen(gesture.context()));
        COMPARE_FIGURES(gesture.figure(), outside4 + member2 + member3);
        QCOMPARE(current(gesture), 0L);
        QCOMPARE(buttons(gesture), QString());
        QCOMPARE(image(gesture), redrawn(gesture));
    }

    void aCompoundStaysOpenWhileAnotherDocumentIsInFront()
    {
        Gesture gesture = openGroup();
        QTChildFrm* first = gesture.window().child;
        gesture.in(windowOf(gesture)->newFile());
        QCOMPARE(buttons(gesture), QString());
        gesture.in(first);
        first->setFocus();
        QVERIFY(isCompoundOpen(gesture.context()));
        gesture.left(900, 600);
        QCOMPARE(selected(gesture), QList<long>{2});
        QCOMPARE(buttons(gesture), QString("create close"));
    }

    void closingTheDocumentOfAnOpenCompoundIsNoHarm()
    {
        Gesture gesture = openGroup();
        gesture.drag(900, 600, 900, 900).press(900, 900).move(900, 1200, Qt::LeftButton);
        gesture.context()->resetModifiedflag();
        windowOf(gesture)->closeActiveChild();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!getFigContext() || getFigContext()->drawing.objects.isEmpty());
        QCOMPARE(buttons(gesture), QString());
    }

    // --- buttons ------------------------------------------------------------------------------

    void theButtonsTellWhatCanBeDone()
    {
        Gesture gesture = group();
        QCOMPARE(buttons(gesture), QString());
        gesture.left(1200, 3000);
        QCOMPARE(buttons(gesture), QString("create"));
        gesture.left(1800, 585);
        QCOMPARE(buttons(gesture), QString("create break open"));
        gesture.shiftLeft(1200, 3000); // the box is the current one
        QCOMPARE(buttons(gesture), QString("create"));
        gesture.right(6000, 4500);
        QCOMPARE(buttons(gesture), QString());
        open(gesture);
        QCOMPARE(buttons(gesture), QString("close"));
        gesture.left(900, 600);
        QCOMPARE(buttons(gesture), QString("create close"));
        close(gesture);
        QCOMPARE(buttons(gesture), QString("create break open"));
        windowOf(gesture)->onBreakCompound();
        gesture.right(6000, 4500);
        QCOMPARE(buttons(gesture), QString());
        gesture.undo().left(1800, 585).key(Qt::Key_Delete);
        QCOMPARE(buttons(gesture), QString());
        gesture.undo().left(1800, 585).tool(CMD_BOX);
        QCOMPARE(buttons(gesture), QString());
    }

    void theActionsDoWhatTheirButtonsTell()
    {
        Gesture gesture = group();
        const auto trigger = [&](const char* tip) {
            for (QAction* action : windowOf(gesture)->findChildren<QAction*>())
                if (action->toolTip() == tip)
                    return action->trigger();
        };
        gesture.left(1800, 585);
        trigger("Open compound for editing");
        QVERIFY(isCompoundOpen(gesture.context()));
        trigger("Close current compound");
        QVERIFY(!isCompoundOpen(gesture.context()));
        trigger("Break compound object");
        QCOMPARE(gesture.count(), 4);
        gesture.left(900, 600);
        trigger("Glue objects into compound object");
        QVERIFY(gesture.last<FigCompound>());
        QCOMPARE(gesture.steps(), 2);
    }

    // --- scaled -------------------------------------------------------------------------------

    // The lower right corner is grabbed at (3015, 1215). The fixed corner is (585, 585); at twice
    // the way across and down both factors are 2, and the pen keeps its width: members from 615 to
    // 1815 and from 4215 to 5415, 615 to 1815 down.
    void aCompoundIsScaledByItsCorner()
    {
        Gesture gesture = group();
        gesture.tool(CMD_SCALE_COMPOUND).drag(3015, 1215, 5445, 1845);
        COMPARE_FIGURES(gesture.figure(),
                        records::compound(1, 600, 600, 5430, 1830,
                                          thickBox(2, 615, 615, 1815, 1815) +
                                              thickBox(3, 4215, 615, 5415, 1815)) +
                            outside4 + outside5);
        QCOMPARE(gesture.steps(), 1);
        COMPARE_FIGURES(gesture.undo().figure(), groupRecords);
    }

    void theRightButtonLeavesTheSizeAsItWas()
    {
        Gesture gesture = group();
        gesture.tool(CMD_SCALE_COMPOUND);
        gesture.press(3015, 1215).move(3315, 1290, Qt::LeftButton);
        gesture.move(5445, 1845, Qt::LeftButton);
        COMPARE_FIGURES(savedByTheWindow(gesture), groupRecords);
        gesture.right(5445, 1845).release(5445, 1845);
        COMPARE_FIGURES(gesture.figure(), groupRecords);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(holdsNothing(gesture.context()));
        QCOMPARE(cur_command, int(CMD_SCALE_COMPOUND));
        QCOMPARE(image(gesture), redrawn(gesture));
    }

    void anotherToolOrDocumentDropsTheScaling()
    {
        Gesture gesture = group();
        QTChildFrm* first = gesture.window().child;
        for (const bool otherDocument : {false, true}) {
            gesture.in(first).tool(CMD_SCALE_COMPOUND);
            gesture.press(3015, 1215).move(3315, 1290, Qt::LeftButton);
            gesture.move(5445, 1845, Qt::LeftButton);
            if (otherDocument)
                gesture.in(windowOf(gesture)->newFile());
            else
                gesture.tool(CMD_SELECT);
            gesture.release(5445, 1845).in(first);
            COMPARE_FIGURES(gesture.figure(), groupRecords);
            QCOMPARE(gesture.steps(), 0);
            QVERIFY(holdsNothing(gesture.context()));
        }
    }

private:
    TestStore store;
};

QTEST_MAIN(TestCompoundWindows)
#include "test_compound_windows.moc"
