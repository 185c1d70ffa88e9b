// Menu commands that edit: compounds, alignment, conversion, links.
#include "CurrentAttributes.h"
#include "DialogDriver.h"
#include "Gesture.h"

#include "edit/e_clipboard.h"
#include "edit/e_compound.h"
#include "render/grid.h"
#include "ui/ContextPanel.h"

#include <QPushButton>
#include <QSignalSpy>

namespace {

QByteArray boxRecord(int x1, int y1, int x2, int y2)
{
    const QString corners =
        QString(" %1 %2 %3 %2 %3 %4 %1 %4 %1 %2").arg(x1).arg(y1).arg(x2).arg(y2);
    return corners.toLatin1();
}

/// Two boxes, selected, in the selection tool.
Gesture twoBoxes()
{
    Gesture gesture = draw(CMD_BOX);
    gesture.left(600, 600).left(1200, 1200).left(2400, 1800).left(3600, 3000).tool(CMD_SELECT);
    gesture.window().window->selectAll();
    return gesture;
}

} // namespace

class TestEditCommands : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { loadGridDefinitions(); }
    void cleanupTestCase() { destroyGridDefinitions(); }
    void init()
    {
        resetProcessState();
        resetCurrentAttributes();
    }
    void cleanup() { clear_clipboard(); }

    void selectionBecomesACompoundThatOpensClosesAndBreaks()
    {
        Gesture gesture = twoBoxes();
        QTMainFrm* window = gesture.window().window.get();
        QSignalSpy buttons(gesture.window().child, &QTChildFrm::compoundButtonsStateChanged);
        window->onCreateCompound();
        QCOMPARE(gesture.count(), 1);
        QVERIFY(gesture.last<FigCompound>());
        QCOMPARE(buttons.last(), QVariantList({true, true, true, false}));
        window->onOpenCompound();
        QVERIFY(isCompoundOpen(gesture.context()));
        QCOMPARE(buttons.last(), QVariantList({false, false, false, true}));
        window->onCloseCompound();
        QVERIFY(!isCompoundOpen(gesture.context()));
        QCOMPARE(gesture.context()->curObject, gesture.last());
        window->onBreakCompound();
        QCOMPARE(gesture.count(), 2);
        QCOMPARE(gesture.steps(), 4);
    }

    void nothingSelectedMakesNoCompound()
    {
        Gesture gesture = twoBoxes().key(Qt::Key_Escape);
        gesture.window().window->onCreateCompound();
        QCOMPARE(gesture.count(), 2);
        QCOMPARE(message_line, QString("Empty compound, ignored"));
    }

    void withoutAnOpenCompoundNothingCloses()
    {
        Gesture gesture = twoBoxes();
        gesture.window().window->onCloseCompound();
        QVERIFY(gesture.last()->tagged);
    }

    // The boxes span 600 to 3600 across and 600 to 3000 down; with the pen of one unit that is
    // painted there a box and their common one have the same margin.
    void alignmentFollowsItsButton_data()
    {
        QTest::addColumn<QByteArray>("slot");
        QTest::addColumn<QByteArray>("first");
        QTest::addColumn<QByteArray>("second");
        const QByteArray small = boxRecord(600, 600, 1200, 1200);
        const QByteArray large = boxRecord(2400, 1800, 3600, 3000);
        QTest::newRow("left") << QByteArray("alignLeft") << small
                              << boxRecord(600, 1800, 1800, 3000);
        QTest::newRow("top") << QByteArray("alignTop") << small << boxRecord(2400, 600, 3600, 1800);
        QTest::newRow("right") << QByteArray("alignRight") << boxRecord(3000, 600, 3600, 1200)
                               << large;
        QTest::newRow("bottom") << QByteArray("alignBottom") << boxRecord(600, 2400, 1200, 3000)
                                << large;
        QTest::newRow("centre h") << QByteArray("alignCenterH") << boxRecord(1800, 600, 2400, 1200)
                                  << boxRecord(1500, 1800, 2700, 3000);
        QTest::newRow("centre v") << QByteArray("alignCenterV") << boxRecord(600, 1500, 1200, 2100)
                                  << boxRecord(2400, 1200, 3600, 2400);
        QTest::newRow("centre hv")
            << QByteArray("alignCenterHV") << boxRecord(1800, 1500, 2400, 2100)
            << boxRecord(1500, 1200, 2700, 2400);
    }

    void alignmentFollowsItsButton()
    {
        QFETCH(QByteArray, slot);
        QFETCH(QByteArray, first);
        QFETCH(QByteArray, second);
        Gesture gesture = twoBoxes();
        QVERIFY(!gesture.context()->curObject);
        QVERIFY(QMetaObject::invokeMethod(gesture.window().window.get(), slot.constData()));
        const QByteArray figure = gesture.figure();
        QVERIFY2(figure.contains(first) && figure.contains(second), figure.constData());
        QCOMPARE(gesture.steps(), 3);
        gesture.undo();
        QVERIFY(gesture.figure().contains(boxRecord(600, 600, 1200, 1200)));
        QVERIFY(gesture.figure().contains(boxRecord(2400, 1800, 3600, 3000)));
    }

    void aPolylineConvertsToASplineAndBack()
    {
        Gesture gesture = draw(CMD_POLYLINE).left(600, 600).left(1200, 600).right(1200, 1200);
        const auto page = [&] {
            return gesture.window().window->findChild<ContextPanel*>()->currentIndex();
        };
        gesture.window().window->onConvertLineSpline();
        QVERIFY(gesture.last<FigSpline>());
        QCOMPARE(page(), 12);
        QCOMPARE(gesture.context()->curObject, gesture.last());
        gesture.window().window->onConvertLineSpline();
        QVERIFY(gesture.last<FigLine>());
        QCOMPARE(page(), 8);
        QCOMPARE(gesture.steps(), 3);
    }

    void linksAreMadeAfterAQuestion_data()
    {
        QTest::addColumn<bool>("yes");
        QTest::newRow("yes") << true;
        QTest::newRow("no") << false;
    }

    void linksAreMadeAfterAQuestion()
    {
        QFETCH(bool, yes);
        Gesture gesture = draw(CMD_BOX).left(3000, 600).left(3600, 1800);
        gesture.tool(CMD_POLYLINE).left(600, 1200).right(3000, 1200);
        QVERIFY(!gesture.last<FigLine>()->points->next->link);
        DialogDriver user;
        user.press(yes ? QMessageBox::Yes : QMessageBox::No);
        gesture.window().window->createSmartLinks();
        QVERIFY(user.isDone());
        QVERIFY(user.seen.value(0).startsWith("Create Smart Links?: Orvalt will now search"));
        QCOMPARE(gesture.last<FigLine>()->points->next->link != nullptr, yes);
        QCOMPARE(gesture.steps(), yes ? 3 : 2);
    }

    void theQuestionOnLinksIsTakenForNoUnlessTheUserSaysYes()
    {
        Gesture gesture = draw(CMD_BOX).left(3000, 600).left(3600, 1800);
        DialogDriver user;
        QString text;
        bool isNoDefault = false;
        user.inspect([&](QWidget* dialog) {
            auto* box = qobject_cast<QMessageBox*>(dialog);
            text = box ? box->text() : QString();
            isNoDefault = box && box->standardButton(box->defaultButton()) == QMessageBox::No &&
                          box->icon() == QMessageBox::Warning;
        });
        gesture.window().window->createSmartLinks();
        QVERIFY(user.isDone());
        QVERIFY(isNoDefault);
        QCOMPARE(text, QString("Orvalt will now search for possible connections between objects "
                               "and create smart links. A later undo will be possible.\n\n"
                               "Do you wish to continue?"));
        QCOMPARE(gesture.steps(), 1);
    }

    // Both ends lie on outlines: the left one on the right edge, index 1, of the first box.
    void madeLinksAreSavedFollowedAndTakenBack()
    {
        Gesture gesture = draw(CMD_BOX).left(600, 600).left(1200, 1200);
        gesture.left(2400, 600).left(3000, 1200);
        gesture.tool(CMD_POLYLINE).left(1200, 900).right(2400, 900);
        const QByteArray unlinked = gesture.figure();
        DialogDriver user;
        user.press(QMessageBox::Yes);
        gesture.window().window->createSmartLinks();
        const QByteArray linked = gesture.figure();
        QVERIFY(linked.contains(
            "# METADATA <id>3</id>\n"
            "# METADATA <link srcPointIdx=0 targetObjId=1 targetLeftPointIdx=1/>\n"
            "# METADATA <link srcPointIdx=1 targetObjId=2 targetLeftPointIdx=3/>\n"));
        gesture.tool(CMD_SELECT).drag(900, 600, 900, 900);
        QVERIFY(gesture.figure().contains("\t 1200 1200 2400 900\n"));
        QCOMPARE(gesture.undo().figure(), linked);
        QCOMPARE(gesture.undo().figure(), unlinked);
        QCOMPARE(gesture.redo().figure(), linked);
    }

    void noneOfThemRunsWhileAGestureHoldsObjects()
    {
        Gesture gesture = twoBoxes();
        gesture.press(900, 600);
        QVERIFY(gestureHoldsObjects(gesture.context()));
        QTMainFrm* window = gesture.window().window.get();
        DialogDriver user;
        window->onCreateCompound();
        window->onBreakCompound();
        window->onConvertLineSpline();
        window->alignLeft();
        window->createSmartLinks();
        QCOMPARE(gesture.steps(), 2);
        QCOMPARE(user.seen, QStringList());
        gesture.release(900, 600);
    }
};

QTEST_MAIN(TestEditCommands)
#include "test_edit_commands.moc"
