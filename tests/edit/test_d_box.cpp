#include "ToolFixture.h"
#include "edit/d_box.h"
#include "edit/u_elastic.h"

#include <QtTest>

#include <climits>

class TestBoxTool : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        engine.reset(new EngineTables);
        createMarkers();
    }
    void cleanupTestCase()
    {
        destroyMarkers();
        engine.reset();
    }

    void theBoxGoesRightFirst()
    {
        ToolDocument document;
        document.choose(CMD_BOX, box_drawing_selected);
        document.left(1200, 1500);
        document.move(1300, 2000);
        document.moveAndLeft(2400, 1800);
        QCOMPARE(document.records(),
                 QString("2 2 0 1 0 7 50 0 -1 4.000 0 0 7 0 0 5\n"
                         "\t 1200 1500 2400 1500 2400 1800 1200 1800 1200 1500\n"));
        QVERIFY(document.isIdle(init_box_drawing));
        QCOMPARE(document.image, document.redrawn());
    }

    void anArcBoxTakesTheRadius()
    {
        ToolDocument document;
        cur_boxtype = T_ARCBOX;
        cur_boxradius = 11;
        document.choose(CMD_BOX, box_drawing_selected);
        document.left(2400, 1800);
        document.moveAndLeft(1200, 1500);
        QCOMPARE(document.records(),
                 QString("2 4 0 1 0 7 50 0 -1 4.000 0 0 11 0 0 5\n"
                         "\t 2400 1800 1200 1800 1200 1500 2400 1500 2400 1800\n"));
    }

    void aBoxWithoutSizeIsABoxAllTheSame()
    {
        ToolDocument document;
        document.choose(CMD_BOX, box_drawing_selected);
        document.left(600, 600);
        document.left(600, 600);
        QCOMPARE(document.records(), QString("2 2 0 1 0 7 50 0 -1 4.000 0 0 7 0 0 5\n"
                                             "\t 600 600 600 600 600 600 600 600 600 600\n"));
    }

    void thePressInstallsTheActiveState()
    {
        ToolDocument document;
        document.choose(CMD_BOX, box_drawing_selected);
        QVERIFY(document.isIdle(init_box_drawing));
        QVERIFY(!canvas_middlebut_proc);
        document.left(600, 900);
        QVERIFY(canvas_locmove_proc == resizing_box);
        QVERIFY(canvas_leftbut_proc == create_boxobject);
        QVERIFY(canvas_middlebut_proc == cancel_box_drawing);
        QVERIFY(elastic_proc == elastic_box);
        QCOMPARE(action_on, 1);
        QCOMPARE(QPoint(last_edited_point.x, last_edited_point.y), QPoint(600, 900));
    }

    void aCancelLeavesTheCanvasAndTheDocumentAsTheyWere()
    {
        ToolDocument document;
        const QImage before = document.image;
        document.choose(CMD_BOX, box_drawing_selected);
        document.left(600, 600);
        document.move(3000, 2000);
        QVERIFY(document.image != before);
        document.right(3000, 2000);
        QCOMPARE(document.image, before);
        QVERIFY(document.isIdle(init_box_drawing));
        QCOMPARE(document.count(), 0);
        QVERIFY(!document.ctx.modified);
    }

    // A repaint in the middle of the gesture shows the outline, and the next move finds it.
    void theOutlineSurvivesARedraw()
    {
        ToolDocument document;
        const QImage before = document.image;
        document.choose(CMD_BOX, box_drawing_selected);
        document.left(600, 600);
        document.move(3000, 2000);
        const QImage during = document.image;
        document.image = document.redrawn();
        QCOMPARE(document.image, during);
        document.move(2000, 3000);
        document.right(2000, 3000);
        QCOMPARE(document.image, before);
    }

    void clicksAtTheLimitsOfCoordinatesMakeABox()
    {
        ToolDocument document;
        document.choose(CMD_BOX, box_drawing_selected);
        document.left(INT_MIN, INT_MAX);
        document.moveAndLeft(INT_MAX, INT_MIN);
        QCOMPARE(document.count(), 1);
    }

private:
    QScopedPointer<EngineTables> engine;
};

QTEST_MAIN(TestBoxTool)
#include "test_d_box.moc"
