#include "ToolFixture.h"
#include "edit/d_picobj.h"
#include "edit/u_elastic.h"

#include <QtTest>

#include <climits>

namespace {

/// A picture box in no document, down its left side first.
FigLine* makePicture(int x1, int y1, int x2, int y2)
{
    FigLine* picture = makeLine({{x1, y1}, {x1, y2}, {x2, y2}, {x2, y1}, {x1, y1}}, T_PICTURE);
    picture->pic = new FigPic;
    return picture;
}

} // namespace

class TestPictureTool : public QObject {
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

    void thePictureGoesDownFirst()
    {
        ToolDocument document;
        cur_linewidth = 3;
        cur_linestyle = 1;
        cur_capstyle = cur_joinstyle = 2;
        document.ctx.cur_fillstyle = 20;
        document.ctx.cur_pencolor = 4;
        document.choose(CMD_PICTURE, picobj_drawing_selected);
        document.left(1200, 1500);
        document.moveAndLeft(2400, 1800);
        QCOMPARE(document.records(),
                 QString("2 5 0 0 4 7 50 0 -1 0.000 0 0 0 0 0 5\n\t0 <empty>\n"
                         "\t 1200 1500 1200 1800 2400 1800 2400 1500 1200 1500\n"));
        const auto* picture = static_cast<FigLine*>(document.object(0));
        // 15 units are a pixel.
        QCOMPARE(QSize(picture->pic->size_x, picture->pic->size_y), QSize(80, 20));
    }

    void theDialogOpensAfterTheCommonEndingAndThenTheToolStartsOver()
    {
        ToolDocument document;
        document.choose(CMD_PICTURE, picobj_drawing_selected);
        document.left(1200, 1500);
        document.moveAndLeft(2400, 1800);
        QCOMPARE(recordingShell.boxes, QStringList("picture"));
        QVERIFY(document.ctx.curObject == document.object(0));
        QVERIFY(document.isIdle(init_picobj_drawing));
    }

    // First outline and repeats solid, moves dotted, the finish solid, the cancel dotted.
    void theOutlinesOfTheToolDoNotAllMatch()
    {
        ToolDocument document;
        const auto boxes = [&](auto work) {
            ToolDocument other;
            other.paint(false, [&] { work(&other.ctx); });
            return other.image;
        };
        const QImage first =
            boxes([](CFigContext* ctx) { elastic_box(ctx, 1200, 1500, 1200, 1500); });
        const QImage moved = boxes([](CFigContext* ctx) {
            elastic_box(ctx, 1200, 1500, 1200, 1500);
            elastic_dottedbox(ctx, 1200, 1500, 1200, 1500);
            elastic_dottedbox(ctx, 1200, 1500, 2400, 1800);
        });
        const QImage cancelled = boxes([](CFigContext* ctx) {
            elastic_box(ctx, 1200, 1500, 1200, 1500);
            elastic_dottedbox(ctx, 1200, 1500, 1200, 1500);
        });
        document.choose(CMD_PICTURE, picobj_drawing_selected);
        document.left(1200, 1500);
        QVERIFY(canvas_locmove_proc == resizing_dottedbox);
        QVERIFY(canvas_leftbut_proc == create_picobj);
        QVERIFY(canvas_middlebut_proc == cancel_picobj);
        QVERIFY(elastic_proc == elastic_box);
        QCOMPARE(document.image, first);
        document.move(2400, 1800);
        QCOMPARE(document.image, moved);
        document.right(2400, 1800);
        QCOMPARE(document.image, cancelled);
        QVERIFY(document.isIdle(init_picobj_drawing));
        QCOMPARE(document.count(), 0);
    }

    // Solid over dotted leaves the gaps of the dots, which the refresh of the object takes away.
    void theRemainderOfTheFinishGoesWithTheRefresh()
    {
        ToolDocument document;
        document.choose(CMD_PICTURE, picobj_drawing_selected);
        document.left(1200, 1500);
        document.moveAndLeft(2400, 1800);
        QCOMPARE(document.image, document.redrawn());
    }

    void theSizeOfABoxHasNoSign()
    {
        ToolDocument document;
        document.ctx.zoom = 2;
        const std::unique_ptr<FigLine> picture(makePicture(2400, 1800, 1200, 1500));
        int width = 0, height = 0;
        get_box_dimension(picture.get(), &width, &height);
        QCOMPARE(QSize(width, height), QSize(1200, 300));
        get_box_dimension_scale_down(&document.ctx, picture.get(), &width, &height);
        QCOMPARE(QSize(width, height), QSize(160, 40));
        picture->points->next->next->x = INT_MIN;
        get_box_dimension(picture.get(), &width, &height);
        QCOMPARE(width, INT_MAX);
        FigLine empty;
        get_box_dimension(&empty, &width, &height);
        QCOMPARE(QSize(width, height), QSize(0, 0));
        get_box_dimension_scale_down(&document.ctx, &empty, &width, &height);
        QCOMPARE(QSize(width, height), QSize(0, 0));
    }

    // --- resizePic -----------------------------------------------------------------------

    void resizingMovesTheThirdCornerAwayFromTheFirst_data()
    {
        QTest::addColumn<QPoint>("third");
        QTest::addColumn<QPoint>("resized");
        QTest::newRow("lower right") << QPoint(1500, 1300) << QPoint(1700, 1400);
        QTest::newRow("upper left") << QPoint(900, 1100) << QPoint(700, 1000);
        QTest::newRow("lower left") << QPoint(900, 1300) << QPoint(700, 1400);
        // A corner on a level with the first one counts as before it.
        QTest::newRow("flat") << QPoint(1200, 1200) << QPoint(700, 1000);
    }

    void resizingMovesTheThirdCornerAwayFromTheFirst()
    {
        QFETCH(QPoint, third);
        QFETCH(QPoint, resized);
        ToolDocument document;
        FigLine* picture = with(makePicture(1200, 1200, third.x(), third.y()), 1);
        document.ctx.drawing.objects.append(picture);
        // Flat, all corners coincide, and the move of a box corner takes them all along.
        const bool isFlat = third == QPoint(1200, 1200);
        resizePic(&document.ctx, picture, 500, 200);
        const FigPoint* corner = picture->getPoint(2);
        QCOMPARE(QPoint(corner->x, corner->y), resized);
        if (!isFlat) {
            const QVector<QPoint> chain = chainOf(picture->points);
            QCOMPARE(chain.first(), QPoint(1200, 1200));
            QCOMPARE(chain[1], QPoint(1200, resized.y()));
            QCOMPARE(chain[3], QPoint(resized.x(), 1200));
        }
        QCOMPARE(document.ctx.undoQueue.undoCount(), 1);
        document.ctx.undoQueue.undo();
        QCOMPARE(QPoint(corner->x, corner->y), third);
    }

    // Otherwise the step would outlive the picture.
    void aPictureThatIsNotInTheDrawingYetIsResizedWithoutAStep()
    {
        ToolDocument document;
        const std::unique_ptr<FigLine> picture(makePicture(0, 0, 1000, 1000));
        resizePic(&document.ctx, picture.get(), 300, 400);
        QCOMPARE(chainOf(picture->points),
                 (QVector<QPoint>{{0, 0}, {0, 400}, {300, 400}, {300, 0}, {0, 0}}));
        QCOMPARE(document.ctx.undoQueue.undoCount(), 0);
        QVERIFY(!document.ctx.modified);
    }

    void aPictureWithoutCornersIsLeftAlone()
    {
        ToolDocument document;
        FigLine empty;
        resizePic(&document.ctx, &empty, 300, 400);
        QCOMPARE(document.ctx.undoQueue.undoCount(), 0);
    }

private:
    QScopedPointer<EngineTables> engine;
};

QTEST_MAIN(TestPictureTool)
#include "test_d_picobj.moc"
