// Tangents and normals, and the dialog of an object. End points are worked out by hand.
#include "edit/e_tangent.h"

#include "ActionFixture.h"
#include "CurrentAttributes.h"
#include "edit/command.h"
#include "edit/e_edit.h"
#include "edit/mode.h"
#include "edit/u_search.h"

#include <QtTest>

namespace {

const QStringList singularity{"singularity, can't draw tangent/normal"};

struct TangentFigure : EditedFigure {
    TangentFigure()
    {
        ctx.metric = false;
        smart_points_valid = 0;
    }
    ~TangentFigure() { smart_points_valid = 0; }

    /// The handler after a search that has found the segment.
    bool draw(FigObject* object, int x, int y)
    {
        return tangent_or_normal(&ctx, object, O_POLYLINE, 0, 0, x, y);
    }
    FigLine* line() { return static_cast<FigLine*>(top().last()); }
};

} // namespace

class TestTangent : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        recordingShell.clear();
        resetCurrentAttributes();
        tangent = 0;
    }

    void cleanupTestCase() { resetCurrentAttributes(); }

    void theToolsSearchObjectsWithTheLeftButtonAlone()
    {
        action_on = 1;
        tangent_selected();
        QCOMPARE(tangent, 1);
        QVERIFY(canvas_leftbut_proc == object_search_left);
        QVERIFY(handlerproc_left == tangent_or_normal);
        QVERIFY(!canvas_middlebut_proc);
        QCOMPARE(action_on, 0);
        normal_selected();
        QCOMPARE(tangent, 0);
        QVERIFY(handlerproc_left == tangent_or_normal);
    }

    // (300, 400) is 500 long, so half an inch of 600 units goes 360 and 480.
    void aTangentLiesAlongTheSegment()
    {
        TangentFigure figure;
        FigLine* shape = figure.put(makeLine({{0, 0}, {300, 400}}));
        set_smart_points(0, 0, 300, 400);
        tangent = 1;
        QVERIFY(figure.draw(shape, 150, 200));
        QCOMPARE(chain(figure.line()), QString("-210,-280 150,200 510,680"));
        QCOMPARE(recordingShell.messages, QStringList("added tangent"));
    }

    void aNormalLiesAcrossTheSegment()
    {
        TangentFigure figure;
        FigLine* shape = figure.put(makeLine({{0, 0}, {300, 400}}));
        set_smart_points(0, 0, 300, 400);
        QVERIFY(figure.draw(shape, 150, 200));
        QCOMPARE(chain(figure.line()), QString("630,-160 150,200 -330,560"));
        QCOMPARE(recordingShell.messages, QStringList("added normal"));
    }

    // 472.440944 units are a centimetre; 2.5 of them by half, 590.55.
    void theLengthIsInCentimetresForAMetricDocument()
    {
        TangentFigure figure;
        figure.ctx.metric = true;
        cur_tangnormlen = 2.5f;
        FigLine* shape = figure.put(makeLine({{0, 0}, {300, 0}}));
        set_smart_points(0, 0, 300, 0);
        tangent = 1;
        QVERIFY(figure.draw(shape, 1000, 0));
        QCOMPARE(chain(figure.line()), QString("409,0 1000,0 1591,0"));
    }

    void theEndsStayWithinTheWholeNumbers()
    {
        TangentFigure figure;
        tangent_normal_line(&figure.ctx, 2147483000, -2147483000, 1000, 1000);
        QCOMPARE(chain(figure.line()), QString("2147482000,-2147483648 2147483000,-2147483000 "
                                               "2147483647,-2147482000"));
    }

    void aShortSegmentIsASingularity_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<bool>("drawn");
        QTest::newRow("zero") << 0 << 0 << false;
        QTest::newRow("1") << 1 << 0 << false;
        QTest::newRow("root of 2") << 1 << 1 << false;
        QTest::newRow("2") << 0 << 2 << true;
        QTest::newRow("root of 5") << -1 << 2 << true;
    }

    void aShortSegmentIsASingularity()
    {
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(bool, drawn);
        TangentFigure figure;
        FigLine* shape = figure.put(makeLine({{0, 0}, {300, 0}}));
        set_smart_points(50, 60, 50 + x, 60 + y);
        QCOMPARE(figure.draw(shape, 50, 60), drawn);
        QCOMPARE(figure.top().size(), drawn ? 2 : 1);
        QCOMPARE(figure.queue().undoCount(), drawn ? 1 : 0);
        QCOMPARE(recordingShell.messages, drawn ? QStringList("added normal") : singularity);
    }

    void aMissAndASearchWithoutSmartPointsDoNothing()
    {
        TangentFigure figure;
        FigText* text = figure.put(new FigText);
        QVERIFY(!figure.draw(text, 0, 0));
        set_smart_points(0, 0, 300, 0);
        QVERIFY(!figure.draw(nullptr, 0, 0));
        QCOMPARE(figure.top().size(), 1);
        QVERIFY(recordingShell.messages.isEmpty());
    }

    // The search before has found a line; that of the compound clears what it left.
    void aTangentOnACompoundOrATextDoesNothing()
    {
        TangentFigure figure;
        figure.put(makeCompound({with(makeLine({{0, 0}, {1200, 1200}}), 1)}));
        auto* text = figure.put(new FigText);
        text->x = 5000;
        text->y = 5000;
        text->cstring = "words";
        figure.put(with(makeLine({{9000, 0}, {9000, 900}}), 2));
        tangent_selected();
        set_smart_points(0, 0, 300, 0);
        object_search_left(&figure.ctx, 0, 600, nullptr);
        object_search_left(&figure.ctx, 5000, 5000, nullptr);
        QCOMPARE(figure.top().size(), 3);
        object_search_left(&figure.ctx, 9000, 300, nullptr);
        QCOMPARE(figure.top().size(), 4);
        QCOMPARE(chain(figure.line()), QString("9000,-300 9000,300 9000,900"));
    }

    void theLineTakesTheCurrentAttributesAndBecomesTheSelection()
    {
        TangentFigure figure;
        auto* shape = figure.put(with(makeLine({{0, 0}, {300, 0}}), 1));
        shape->tagged = true;
        figure.ctx.nextId = 1;
        figure.ctx.curObject = shape;
        cur_linewidth = 4;
        cur_depth = 31;
        figure.ctx.cur_pencolor = 6;
        tangent_normal_line(&figure.ctx, 100, 100, 10.5, -20.4);
        FigLine* line = figure.line();
        QCOMPARE(chain(line), QString("89,120 100,100 111,80"));
        QCOMPARE(line->sub_type, int(T_POLYLINE));
        QCOMPARE(line->id, 2L);
        QCOMPARE(line->thickness, 4);
        QCOMPARE(line->depth, 31);
        QCOMPARE(line->pen_color, 6);
        QVERIFY(!line->forward_arrow && !line->backward_arrow);
        QVERIFY(line->tagged);
        QCOMPARE(line->marked, 2);
        QVERIFY(!shape->tagged);
        QCOMPARE(figure.ctx.curObject, static_cast<FigObject*>(line));
        QVERIFY(recordingShell.panels.isEmpty()); // no attribute bar
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.undo();
        QCOMPARE(figure.top().size(), 1);
    }

    void theLineGetsArrowsByTheAutomaticModes()
    {
        TangentFigure figure;
        autoforwardarrow_mode = true;
        cur_farrowtype = 3;
        tangent_normal_line(&figure.ctx, 100, 100, 600, 0);
        QVERIFY(figure.line()->forward_arrow);
        QCOMPARE(figure.line()->forward_arrow->type, 2);
        QVERIFY(!figure.line()->backward_arrow);
    }

    void theLineLandsInAnOpenCompound()
    {
        TangentFigure figure;
        auto* compound = figure.put(makeCompound({makeLine({{0, 0}, {300, 0}})}));
        figure.ctx.openCompoundObjects = compound->objects;
        tangent_normal_line(&figure.ctx, 100, 100, 600, 0);
        QCOMPARE(compound->objects->size(), 2);
        QCOMPARE(figure.top().size(), 1);
        figure.ctx.openCompoundObjects = nullptr;
    }

    // --- dialogs -----------------------------------------------------------------

    void onlyPicturesHaveADialog()
    {
        EditedFigure figure;
        auto* picture = figure.put(makeLine({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}, T_PICTURE));
        auto* box = figure.put(makeLine({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}, T_BOX));
        showEditDialog(&figure.ctx, box);
        showEditDialog(&figure.ctx, nullptr);
        QVERIFY(recordingShell.boxes.isEmpty());
        showEditDialog(&figure.ctx, picture);
        QCOMPARE(recordingShell.boxes, QStringList("picture"));
    }

    void editingSelectsTheObject()
    {
        EditedFigure figure;
        auto* other = figure.put(makeLine({{0, 0}, {900, 0}}));
        other->marked = 1;
        auto* line = figure.put(makeLine({{0, 0}, {900, 600}}));
        QVERIFY(edit_object(&figure.ctx, line, O_POLYLINE, 0, 0, 0, 0));
        QVERIFY(line->tagged);
        QCOMPARE(line->marked, 2);
        QCOMPARE(figure.ctx.curObject, static_cast<FigObject*>(line));
        QCOMPARE(other->marked, 0);
        QVERIFY(recordingShell.boxes.isEmpty());
    }

    void editingNothingShowsThePanelOfTheCommand()
    {
        EditedFigure figure;
        auto* line = figure.put(makeLine({{0, 0}, {900, 0}}));
        line->marked = 1;
        cur_command = CMD_BOX;
        QVERIFY(!edit_object(&figure.ctx, nullptr, O_POLYLINE, 0, 0, 0, 0));
        QCOMPARE(recordingShell.panels, QStringList("command 7"));
        QCOMPARE(line->marked, 0);
        cur_command = -1;
    }
};

QTEST_MAIN(TestTangent)
#include "test_e_tangent.moc"
