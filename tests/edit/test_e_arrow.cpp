// Arrowheads: numbers, making, the update's part and the arrowhead tool.
#include "edit/e_arrow.h"

#include "ActionFixture.h"
#include "CurrentAttributes.h"
#include "edit/e_update.h"
#include "edit/mode.h"
#include "edit/u_search.h"

#include <QtTest>

#include <memory>

namespace {

constexpr int ARC_START = 0;
constexpr int ARC_MIDDLE = 1;
constexpr int ARC_END = 2;

FigArc* makeOpenArc()
{
    auto* arc = new FigArc;
    arc->point[0] = FigPoint(2400, 1200);
    arc->point[1] = FigPoint(1200, 2400);
    arc->point[2] = FigPoint(0, 1200);
    arc->center_x = arc->center_y = 1200;
    return arc;
}

FigLine* makeWideLine(int width)
{
    FigLine* line = makeLine({{0, 0}, {600, 0}, {900, 600}});
    line->thickness = width;
    return line;
}

struct ArrowFigure : EditedFigure {
    bool click(FigObject* object, FigPoint* previous, FigPoint* point, int number = 0)
    {
        return change_arrow_head(&ctx, object, object ? object->type : O_POLYLINE, 0, 0, 0, 0,
                                 previous, point, number);
    }
    bool clickPoint(FigObject* object, FigPath* path, int index)
    {
        FigPoint* point = path->getPoint(index);
        return click(object, path->findPredecessor(point), point);
    }
    /// What the update would do to one end; executed.
    int update(FigObject* object, FigArrow* arrow, ArrowDirection direction, bool useList = false)
    {
        QList<ActionItem*> changes;
        getArrowChangesList(&ctx, object, arrow, direction, &changes, useList);
        const int count = changes.size();
        executeActions(&ctx, &changes);
        for (ActionItem* action : changes)
            queue().addAction(action);
        return count;
    }
};

/// "type style thickness width height"
QString text(const FigArrow* arrow)
{
    return arrow ? QString("%1 %2 %3 %4 %5")
                       .arg(arrow->type)
                       .arg(arrow->style)
                       .arg(static_cast<double>(arrow->thickness))
                       .arg(static_cast<double>(arrow->wd))
                       .arg(static_cast<double>(arrow->ht))
                 : QString("none");
}

} // namespace

class TestArrow : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        recordingShell.clear();
        resetCurrentAttributes();
    }

    void cleanupTestCase() { resetCurrentAttributes(); }

    // --- numbers and making ------------------------------------------------------

    void aTypeNumberIsAKindAndAStyle_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("style");
        QTest::newRow("0") << 0 << 0;
        QTest::newRow("1") << 1 << 0;
        QTest::newRow("2") << 1 << 1;
        QTest::newRow("3") << 2 << 0;
        QTest::newRow("27") << 14 << 0;
        QTest::newRow("28") << 14 << 1;
    }

    void aTypeNumberIsAKindAndAStyle()
    {
        QFETCH(int, kind);
        QFETCH(int, style);
        const int type = QByteArray(QTest::currentDataTag()).toInt();
        const std::unique_ptr<FigArrow> arrow(new_arrow(nullptr, 1, type, 1));
        QCOMPARE(arrow->type, kind);
        QCOMPARE(arrow->style, style);
        QCOMPARE(arrowTypeNumber(arrow.get()), type);
    }

    void aNegativeTypeNumberIsTheStick()
    {
        const std::unique_ptr<FigArrow> arrow(new_arrow(nullptr, 1, -2, 1));
        QCOMPARE(text(arrow.get()), QString("0 0 1 60 120"));
    }

    void relativeSizesAreMultiplesOfTheThickness()
    {
        cur_arrow_multthick = 0.5f;
        cur_arrow_multwidth = 30;
        cur_arrow_multheight = 45;
        cur_arrowwidth = 999;
        const std::unique_ptr<FigArrow> arrow(new_arrow(nullptr, 4, 2, 100));
        QCOMPARE(text(arrow.get()), QString("1 1 2 120 180"));
    }

    void absoluteSizesTakeTheThicknessAsItIs()
    {
        use_abs_arrowvals = true;
        cur_arrowthick = 7;
        cur_arrowwidth = 75;
        cur_arrowheight = 90;
        const std::unique_ptr<FigArrow> arrow(new_arrow(nullptr, 4, 2, 100));
        QCOMPARE(text(arrow.get()), QString("1 1 4 75 90"));
    }

    void puttingOnGivesTheOldArrowBack()
    {
        FigLine line;
        FigSpline spline;
        FigArc arc;
        auto* arrow = new FigArrow;
        QVERIFY(!add_linearrow(&line, ARROW_FORWARD, arrow));
        QCOMPARE(line.forward_arrow, arrow);
        QVERIFY(!line.backward_arrow);
        QCOMPARE(remove_linearrow(&line, ARROW_FORWARD), arrow);
        QVERIFY(!line.forward_arrow);
        QVERIFY(!add_splinearrow(&spline, ARROW_BACKWARD, arrow));
        QCOMPARE(spline.backward_arrow, arrow);
        QVERIFY(!spline.forward_arrow);
        QCOMPARE(remove_splinearrow(&spline, ARROW_BACKWARD), arrow);
        QVERIFY(!add_arcarrow(&arc, ARROW_FORWARD, arrow));
        auto* second = new FigArrow;
        QCOMPARE(add_arrow(&arc, ARROW_FORWARD, second), arrow);
        QCOMPARE(remove_arcarrow(&arc, ARROW_FORWARD), second);
        delete arrow;
        delete second;
    }

    void anObjectWithoutArrowsGivesTheNewOneBack()
    {
        FigText words;
        FigArrow arrow;
        QCOMPARE(add_arrow(&words, ARROW_FORWARD, &arrow), &arrow);
        QVERIFY(!words.forward_arrow);
    }

    void openLinesOpenSplinesAndOpenArcsCanHaveArrows()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {900, 0}}));
        QVERIFY(canHaveArrows(line.get()));
        for (int closed : {T_BOX, T_POLYGON, T_ARCBOX, T_PICTURE}) {
            line->sub_type = closed;
            QVERIFY(!canHaveArrows(line.get()));
        }
        const std::unique_ptr<FigSpline> spline(makeSpline({{0, 0}, {900, 0}}));
        FigArc arc;
        for (int subType = 0; subType <= 5; ++subType) {
            spline->sub_type = subType;
            QCOMPARE(canHaveArrows(spline.get()), subType % 2 == 0);
        }
        QVERIFY(canHaveArrows(&arc));
        arc.sub_type = 1;
        QVERIFY(!canHaveArrows(&arc));
        FigText words;
        QVERIFY(!canHaveArrows(&words));
        const std::unique_ptr<FigLine> dot(makeLine({{0, 0}}));
        QVERIFY(!canHaveArrows(dot.get()));
    }

    void bothHeadsTakeTheirSizesFromTheLineWidth()
    {
        FigLine line;
        line.thickness = 3;
        line.forward_arrow = new FigArrow{2, 1, 9, 9, 9};
        updateArrowSize(nullptr, &line);
        QCOMPARE(text(line.forward_arrow), QString("2 1 9 9 9")); // the other one is missing
        line.backward_arrow = new FigArrow{4, 0, 8, 8, 8};
        updateArrowSize(nullptr, &line);
        QCOMPARE(text(line.forward_arrow), QString("2 1 3 180 360"));
        QCOMPARE(text(line.backward_arrow), QString("4 0 3 180 360"));
    }

    // --- the update's part -------------------------------------------------------

    void withoutTheAutomaticModeNothingChanges()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(2));
        line->forward_arrow = new FigArrow{5, 0, 1, 1, 1};
        QCOMPARE(figure.update(line, line->forward_arrow, ARROW_FORWARD), 0);
        QCOMPARE(figure.update(line, nullptr, ARROW_BACKWARD), 0);
        autobackwardarrow_mode = true; // of the other direction
        QCOMPARE(figure.update(line, line->forward_arrow, ARROW_FORWARD), 0);
        QCOMPARE(text(line->forward_arrow), QString("5 0 1 1 1"));
    }

    void aMissingHeadIsMadeForTheLineWidth()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(2));
        autobackwardarrow_mode = true;
        cur_barrowtype = 4;
        cur_farrowtype = 9;
        QCOMPARE(figure.update(line, nullptr, ARROW_BACKWARD), 1);
        QCOMPARE(text(line->backward_arrow), QString("2 1 2 120 240"));
        QCOMPARE(text(line->forward_arrow), QString("none"));
        figure.undo();
        QCOMPARE(text(line->backward_arrow), QString("none"));
    }

    void aHeadIsReplacedWhereAnyOfTheFiveDiffers_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("style");
        QTest::addColumn<double>("thickness");
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("height");
        QTest::addColumn<int>("changes");
        QTest::newRow("the same") << 2 << 1 << 2.0 << 120.0 << 240.0 << 0;
        QTest::newRow("kind") << 3 << 1 << 2.0 << 120.0 << 240.0 << 1;
        QTest::newRow("style") << 2 << 0 << 2.0 << 120.0 << 240.0 << 1;
        QTest::newRow("thickness") << 2 << 1 << 2.5 << 120.0 << 240.0 << 1;
        QTest::newRow("width") << 2 << 1 << 2.0 << 121.0 << 240.0 << 1;
        QTest::newRow("height") << 2 << 1 << 2.0 << 120.0 << 239.0 << 1;
    }

    void aHeadIsReplacedWhereAnyOfTheFiveDiffers()
    {
        QFETCH(int, kind);
        QFETCH(int, style);
        QFETCH(double, thickness);
        QFETCH(double, width);
        QFETCH(double, height);
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(2));
        line->forward_arrow = new FigArrow{kind, style, static_cast<float>(thickness),
                                           static_cast<float>(width), static_cast<float>(height)};
        const QString former = text(line->forward_arrow);
        autoforwardarrow_mode = true;
        cur_farrowtype = 4;
        QTEST(figure.update(line, line->forward_arrow, ARROW_FORWARD), "changes");
        QCOMPARE(text(line->forward_arrow), QString("2 1 2 120 240"));
        if (figure.queue().undoCount() == 0)
            return;
        figure.undo();
        QCOMPARE(text(line->forward_arrow), former);
    }

    void absoluteSizesReplaceRegardlessOfTheLineWidth()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(2));
        line->forward_arrow = new FigArrow{0, 0, 2, 120, 240};
        autoforwardarrow_mode = use_abs_arrowvals = true;
        cur_arrowthick = 3;
        cur_arrowwidth = 45;
        cur_arrowheight = 75;
        QCOMPARE(figure.update(line, line->forward_arrow, ARROW_FORWARD), 1);
        QCOMPARE(text(line->forward_arrow), QString("0 0 3 45 75"));
    }

    // A line without width wants a head of size 0; the unusable sizes become the current ones, and
    // a head that has those already is no difference.
    void aLineOfNoWidthGetsTheCurrentSizesOnce()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(0));
        line->forward_arrow = new FigArrow{0, 0, 5, 5, 5};
        autoforwardarrow_mode = true;
        QCOMPARE(figure.update(line, line->forward_arrow, ARROW_FORWARD), 1);
        QCOMPARE(text(line->forward_arrow), QString("0 0 1 60 0"));
        QCOMPARE(figure.update(line, line->forward_arrow, ARROW_FORWARD), 0);
    }

    // A head that was made for a line without width has size 0, as the next update wants it.
    void aHeadMadeForNoLineWidthIsNotMadeAgain()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(0));
        autoforwardarrow_mode = true;
        QCOMPARE(figure.update(line, nullptr, ARROW_FORWARD), 1);
        QCOMPARE(text(line->forward_arrow), QString("0 0 0 0 0"));
        QCOMPARE(figure.update(line, line->forward_arrow, ARROW_FORWARD), 0);
        QCOMPARE(text(line->forward_arrow), QString("0 0 0 0 0"));
    }

    // One size that is wanted does not vouch for what the head becomes when another is not.
    void sizesOfAMultipleOfZeroGiveWayTogether()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(1));
        line->forward_arrow = new FigArrow{0, 0, 1, 0, 0};
        autoforwardarrow_mode = true;
        cur_arrow_multthick = cur_arrow_multwidth = cur_arrow_multheight = 0;
        QCOMPARE(figure.update(line, line->forward_arrow, ARROW_FORWARD), 1);
        QCOMPARE(text(line->forward_arrow), QString("0 0 1 60 0"));
        QCOMPARE(figure.update(line, line->forward_arrow, ARROW_FORWARD), 0);
    }

    void theUpdateListCanLeaveArrowsOut()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(1));
        autoforwardarrow_mode = true;
        updatelist[ATTR_ARROWS] = 0;
        QCOMPARE(figure.update(line, nullptr, ARROW_FORWARD, true), 0);
        QCOMPARE(figure.update(line, nullptr, ARROW_FORWARD, false), 1);
    }

    // A script can have put a head on a closed shape.
    void aHeadOfAClosedShapeIsReplacedButNoneIsAdded()
    {
        ArrowFigure figure;
        auto* polygon = figure.put(makeLine({{0, 0}, {9, 0}, {9, 9}, {0, 0}}, T_POLYGON));
        polygon->thickness = 1;
        polygon->forward_arrow = new FigArrow{3, 0, 1, 1, 1};
        autoforwardarrow_mode = autobackwardarrow_mode = true;
        QCOMPARE(figure.update(polygon, polygon->forward_arrow, ARROW_FORWARD), 1);
        QCOMPARE(figure.update(polygon, nullptr, ARROW_BACKWARD), 0);
        QCOMPARE(text(polygon->forward_arrow), QString("0 0 1 60 120"));
    }

    // --- the tool ----------------------------------------------------------------

    void theToolSearchesPointsWithTheLeftButtonAlone()
    {
        action_on = 1;
        arrow_head_selected();
        QVERIFY(canvas_leftbut_proc == point_search_left);
        QVERIFY(pointHandlerproc_left == change_arrow_head);
        QVERIFY(!canvas_middlebut_proc);
        QCOMPARE(action_on, 0);
    }

    void theFirstPointOfALineIsItsBackwardEnd()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(1));
        cur_arrowtype = 3;
        cur_farrowtype = cur_barrowtype = 7;
        QVERIFY(figure.clickPoint(line, line, 0));
        QCOMPARE(text(line->backward_arrow), QString("2 0 1 60 120"));
        QCOMPARE(text(line->forward_arrow), QString("none"));
        QVERIFY(figure.ctx.modified);
        QCOMPARE(figure.queue().undoCount(), 1);
    }

    void theLastPointOfALineIsItsForwardEnd()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(1));
        QVERIFY(figure.clickPoint(line, line, 2));
        QCOMPARE(text(line->forward_arrow), QString("0 0 1 60 120"));
        QCOMPARE(text(line->backward_arrow), QString("none"));
    }

    void innerPointsDoNothing()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(1));
        QVERIFY(!figure.clickPoint(line, line, 1));
        QCOMPARE(figure.queue().undoCount(), 0);
        QVERIFY(!figure.ctx.modified);
    }

    void aSecondClickTakesTheHeadOff()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(1));
        figure.clickPoint(line, line, 0);
        QVERIFY(figure.clickPoint(line, line, 0));
        QCOMPARE(text(line->backward_arrow), QString("none"));
        QCOMPARE(figure.queue().undoCount(), 2);
        figure.undo();
        QCOMPARE(text(line->backward_arrow), QString("0 0 1 60 120"));
        figure.undo();
        QCOMPARE(text(line->backward_arrow), QString("none"));
        figure.redo();
        QCOMPARE(text(line->backward_arrow), QString("0 0 1 60 120"));
    }

    void endsOfOpenSplinesTakeHeads()
    {
        ArrowFigure figure;
        auto* spline = figure.put(makeSpline({{0, 0}, {600, 0}, {900, 600}}, 2));
        QVERIFY(figure.clickPoint(spline, spline, 0));
        QVERIFY(!figure.clickPoint(spline, spline, 1));
        QVERIFY(figure.clickPoint(spline, spline, 2));
        QVERIFY(spline->forward_arrow && spline->backward_arrow);
    }

    void closedShapesTakeNoHeads()
    {
        ArrowFigure figure;
        auto* box = figure.put(makeLine({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}, T_BOX));
        auto* spline = figure.put(makeSpline({{0, 0}, {600, 0}, {900, 600}}, 3));
        QVERIFY(!figure.clickPoint(box, box, 0));
        QVERIFY(!figure.clickPoint(box, box, 4));
        QVERIFY(!figure.clickPoint(spline, spline, 0));
        QVERIFY(!figure.clickPoint(spline, spline, 2));
        QCOMPARE(figure.queue().undoCount(), 0);
    }

    void theOnlyPointOfALineTakesNoHead()
    {
        ArrowFigure figure;
        auto* dot = figure.put(makeLine({{0, 0}}));
        QVERIFY(!figure.clickPoint(dot, dot, 0));
        QCOMPARE(figure.queue().undoCount(), 0);
    }

    void startAndEndOfAnOpenArcTakeHeads()
    {
        ArrowFigure figure;
        auto* arc = figure.put(makeOpenArc());
        QVERIFY(!figure.click(arc, nullptr, &arc->point[1], ARC_MIDDLE));
        QVERIFY(figure.click(arc, nullptr, &arc->point[0], ARC_START));
        QVERIFY(arc->backward_arrow);
        QVERIFY(!arc->forward_arrow);
        QVERIFY(figure.click(arc, nullptr, &arc->point[2], ARC_END));
        QVERIFY(arc->forward_arrow);
        arc->sub_type = 1;
        QVERIFY(!figure.click(arc, nullptr, &arc->point[0], ARC_START));
        QCOMPARE(figure.queue().undoCount(), 2);
    }

    void pointsOfOtherShapesAndAMissDoNothing()
    {
        ArrowFigure figure;
        FigEllipse ellipse;
        auto* compound = figure.put(makeCompound({makeWideLine(1)}));
        QVERIFY(!figure.click(&ellipse, nullptr, &ellipse.start));
        QVERIFY(!figure.click(compound, nullptr, nullptr));
        QVERIFY(!figure.click(nullptr, nullptr, nullptr));
        QCOMPARE(figure.queue().undoCount(), 0);
    }

    void theToolTakesTheCurrentThicknessNotTheLineWidth()
    {
        ArrowFigure figure;
        auto* line = figure.put(makeWideLine(8));
        cur_arrowthick = 2;
        figure.clickPoint(line, line, 0);
        QCOMPARE(text(line->backward_arrow), QString("0 0 2 120 240"));
    }
};

QTEST_MAIN(TestArrow)
#include "test_e_arrow.moc"
