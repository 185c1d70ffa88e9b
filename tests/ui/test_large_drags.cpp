// Drags in a figure of many objects, where what stands still is kept as pictures: when the gesture
// is over the canvas is what a redraw makes of it, to the last pixel.
#include "SelectionScene.h"

namespace {

/// Filled boxes, thick lines and texts all over the view, above and below what is at depth 50.
QByteArray crowd()
{
    constexpr int columns = 30, rows = 24;
    QByteArray all;
    int number = 0;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column, ++number) {
            const int x = 150 + column * 240, y = 150 + row * 180;
            const int color = number % 8, depth = 20 + number * 7 % 60;
            QString record;
            if (number % 3 == 0)
                record = QString("2 2 0 1 1 %1 %2 -1 20 0.000 0 0 -1 0 0 5\n\t "
                                 "%3 %4 %5 %4 %5 %6 %3 %6 %3 %4\n");
            else if (number % 3 == 1)
                record = QString("2 1 0 2 %1 7 %2 -1 -1 0.000 0 0 -1 0 0 2\n\t %3 %4 %5 %6\n");
            else
                record = QString("4 0 %1 %2 -1 0 12 0.0000 4 135 400 %3 %4 label\\001\n");
            record = record.arg(color).arg(depth).arg(x).arg(y);
            if (number % 3 != 2)
                record = record.arg(x + 180).arg(y + 120);
            all += records::idLine(100 + number) + record.toLatin1();
        }
    return all;
}

/// The small figure in the crowd, and on the right of it a filled box that lies below everything.
Gesture crowdedScene()
{
    const QByteArray below = records::idLine(90) +
                             "2 2 0 1 1 3 90 -1 20 0.000 0 0 -1 0 0 5\n"
                             "\t 9000 600 10500 600 10500 2100 9000 2100 9000 600\n";
    Gesture gesture = openFigure(allRecords + crowd() + below);
    gesture.tool(CMD_SELECT);
    return gesture;
}

} // namespace

class TestLargeDrags : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }
    void cleanupTestCase() { store.end(); }
    void init() { store.renew(); }
    void cleanup() { store.leave(); }

    void aReleaseLeavesTheCanvasAsARedrawDoes()
    {
        Gesture gesture = crowdedScene();
        gesture.press(9000, 1200).move(8000, 1300, Qt::LeftButton).move(3000, 1500, Qt::LeftButton);
        QVERIFY(gesture.context()->movedObjects);
        const QImage inProgress = image(gesture);
        gesture.release(3000, 1500);
        QCOMPARE(gesture.steps(), 1);
        const QImage shown = image(gesture);
        QVERIFY(shown == redrawn(gesture));
        QVERIFY2(shown != inProgress, "nothing had to be drawn anew, which this is to test");
    }

    void aCancelLeavesTheCanvasAsARedrawDoes()
    {
        Gesture gesture = crowdedScene();
        gesture.press(9000, 1200).move(8000, 1300, Qt::LeftButton).move(3000, 1500, Qt::LeftButton);
        gesture.press(3000, 1500, Qt::RightButton).release(3000, 1500, Qt::RightButton);
        QCOMPARE(gesture.steps(), 0);
        const QImage shown = image(gesture);
        QVERIFY(shown == redrawn(gesture));
    }

    void aConnectorFollowsThroughTheCrowd()
    {
        Gesture gesture = crowdedScene();
        gesture.press(600, 720).move(705, 795, Qt::LeftButton).move(1500, 1395, Qt::LeftButton);
        gesture.release(1500, 1395);
        const auto* connector =
            dynamic_cast<FigLine*>(findObjectById(&gesture.context()->drawing.objects, 3));
        QVERIFY(connector);
        QCOMPARE(Gesture::points(connector->points), "2100,1575 1800,900 2400,900");
        const QImage shown = image(gesture);
        QVERIFY(shown == redrawn(gesture));
    }

    void aZoomInMidDragIsFollowed()
    {
        Gesture gesture = crowdedScene();
        gesture.press(600, 720).move(700, 800, Qt::LeftButton);
        gesture.window().child->zoomIn();
        gesture.move(1200, 1200, Qt::LeftButton).move(1500, 1400, Qt::LeftButton);
        gesture.release(1500, 1400);
        const QImage shown = image(gesture);
        QVERIFY(shown == redrawn(gesture));
    }

    void aPasteInACrowdIsExactWhenItIsPlaced()
    {
        Gesture gesture = crowdedScene();
        gesture.left(600, 720);
        gesture.window().window->copy();
        gesture.window().window->paste();
        gesture.move(2000, 2000).move(2600, 2300).left(3000, 2400);
        QCOMPARE(gesture.steps(), 1);
        const QImage shown = image(gesture);
        QVERIFY(shown == redrawn(gesture));
    }

    void aMovedPointIsExactWhenItIsReleased()
    {
        Gesture gesture = crowdedScene();
        gesture.tool(CMD_MOVE_POINT);
        gesture.press(645, 3045).move(500, 3000, Qt::LeftButton).move(345, 2745, Qt::LeftButton);
        gesture.release(345, 2745);
        QCOMPARE(gesture.steps(), 1);
        const QImage shown = image(gesture);
        QVERIFY(shown == redrawn(gesture));
    }

private:
    EditingStore store;
};

QTEST_MAIN(TestLargeDrags)
#include "test_large_drags.moc"
