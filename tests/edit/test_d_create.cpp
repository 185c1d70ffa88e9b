#include "ToolFixture.h"
#include "edit/d_arc.h"
#include "edit/d_box.h"
#include "edit/d_create.h"
#include "edit/d_ellipse.h"
#include "edit/d_line.h"
#include "edit/d_picobj.h"
#include "edit/d_regpoly.h"
#include "edit/d_spline.h"
#include "edit/d_text.h"
#include "model/w_layers.h"

#include <QtTest>

#include <climits>
#include <random>

namespace {

struct Tool {
    int command;
    void (*selected)(CFigContext*);
};

const Tool tools[] = {
    {CMD_CIRCLE_BY_RADIUS, circlebyradius_drawing_selected},
    {CMD_CIRCLE_BY_DIAMETER, circlebydiameter_drawing_selected},
    {CMD_ELLIPSE_BY_RADII, ellipsebyradius_drawing_selected},
    {CMD_ELLIPSE_BY_DIAMETERS, ellipsebydiameter_drawing_selected},
    {CMD_ARC, arc_drawing_selected},
    {CMD_POLYLINE, line_drawing_selected},
    {CMD_BOX, box_drawing_selected},
    {CMD_POLYGON, line_drawing_selected},
    {CMD_TEXT, text_drawing_selected},
    {CMD_OPEN_SPLINE, spline_drawing_selected},
    {CMD_CLOSED_SPLINE, spline_drawing_selected},
    {CMD_INT_SPLINE, spline_drawing_selected},
    {CMD_CLOSED_INT_SPLINE, spline_drawing_selected},
    {CMD_REGPOLY, regpoly_drawing_selected},
    {CMD_PICTURE, picobj_drawing_selected},
};

/// Clicks without sense, with tools changed and steps taken back in mid-gesture.
class RandomHand {
public:
    RandomHand(ToolDocument& target, unsigned seed) : document(target), bits(seed) {}

    void work(int clicks)
    {
        changeTool();
        for (int i = 0; i < clicks; ++i) {
            const int x = coordinate(), y = coordinate();
            switch (between(0, 11)) {
            case 0:
                changeTool();
                break;
            case 1:
                changeModes();
                break;
            case 2:
            case 3:
                document.move(x, y);
                document.right(x, y);
                break;
            case 4:
                document.right(cur_x, cur_y);
                break;
            case 5:
                document.left(cur_x, cur_y);
                break;
            case 6:
                document.paint(true, [this] { document.ctx.undoQueue.undo(); });
                break;
            case 7:
                document.paint(true, [this] { document.ctx.undoQueue.redo(); });
                break;
            default:
                document.moveAndLeft(x, y);
            }
        }
    }

private:
    int between(int low, int high)
    {
        return low + static_cast<int>(bits() % static_cast<unsigned>(high - low + 1));
    }
    /// On the canvas, around it, or as far away as numbers go.
    int coordinate()
    {
        return between(0, 99) ? between(-500, 6500) : between(0, 1) ? INT_MAX : INT_MIN;
    }
    void changeTool()
    {
        const Tool& tool = tools[between(0, 14)];
        abandonGesture(&document.ctx);
        document.choose(tool.command, tool.selected);
        recordingShell.answer = between(0, 3) > 0;
        recordingShell.enteredText = between(0, 3) > 0 ? "words" : "";
    }
    void changeModes()
    {
        resetConstraints();
        switch (between(0, 5)) {
        case 0:
            manhattan_mode = mountain_mode = 1;
            break;
        case 1:
            manhattan_mode = 1;
            break;
        case 2:
            mountain_mode = 1;
            break;
        case 3:
            latexarrow_mode = 1;
            break;
        case 4:
            latexline_mode = 1;
            break;
        default:
            break;
        }
        autoforwardarrow_mode = between(0, 1);
        autobackwardarrow_mode = between(0, 1);
        cur_numsides = between(-1, 12);
        cur_arctype = between(0, 1);
        cur_depth = between(0, 99);
        cur_linewidth = between(0, 5);
        gridPreferences.snapMode = between(0, 3);
        document.ctx.gridIndex = between(0, 3);
    }

    ToolDocument& document;
    std::mt19937 bits;
};

bool areIdsUnique(FigObjectList& list)
{
    QSet<long> seen;
    for (const FigObject* object : qAsConst(list)) {
        if (object->id < 1 || seen.contains(object->id))
            return false;
        seen.insert(object->id);
    }
    return true;
}

} // namespace

class TestCreation : public QObject {
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

    // --- builders ---------------------------------------------------------------------------

    // The panel goes to 1000.
    void aDepthBeyondTheLastBecomesTheLastOne()
    {
        ToolDocument document;
        CFigContext* ctx = &document.ctx;
        cur_depth = 1000;
        FigObject* const built[] = {createLineFromCurrentAttrs(ctx, T_POLYLINE, nullptr),
                                    createPicFromCurrentAttrs(ctx),
                                    createTextFromCurrentAttrs(ctx, "a", 1, 2)};
        for (FigObject* object : built) {
            QCOMPARE(object->depth, 999);
            delete object;
        }
        QCOMPARE(cur_depth, 1000);
    }

    void aTextTakesASizeThatTextsCanHave()
    {
        ToolDocument document;
        for (const auto& [current, expected] : {std::pair(983, 500), {500, 500}, {0, 1}}) {
            cur_fontsize = current;
            const QScopedPointer<FigText> text(
                createTextFromCurrentAttrs(&document.ctx, "a", 1, 2));
            QCOMPARE(text->size, expected);
        }
    }

    void everyBuilderTakesAFreshId()
    {
        ToolDocument document;
        CFigContext* ctx = &document.ctx;
        ctx->nextId = 40;
        FigObject* const built[] = {createLineFromCurrentAttrs(ctx, T_POLYLINE, nullptr),
                                    createRegpolyFromCurrentAttrs(ctx),
                                    createBoxFromCurrentAttrs(ctx),
                                    createPicFromCurrentAttrs(ctx),
                                    createSplineFromCurrentAttrs(ctx, 0, nullptr),
                                    createEllipseFromCurrentAttrs(ctx),
                                    createArcFromCurrentAttrs(ctx),
                                    createTextFromCurrentAttrs(ctx, "a", 1, 2)};
        long id = 41;
        for (FigObject* object : built) {
            QCOMPARE(object->id, id++);
            QCOMPARE(object->pen_style, 0);
            QCOMPARE(object->depth, 50);
            QVERIFY(!object->forward_arrow && !object->backward_arrow);
            delete object;
        }
    }

    // (width + 1) * style value / 2; none for pictures and texts.
    void theDashLengthGrowsWithTheWidth()
    {
        ToolDocument document;
        cur_linewidth = 6;
        cur_styleval = 2.5f;
        const std::unique_ptr<FigEllipse> ellipse(createEllipseFromCurrentAttrs(&document.ctx));
        const std::unique_ptr<FigLine> picture(createPicFromCurrentAttrs(&document.ctx));
        const std::unique_ptr<FigText> text(createTextFromCurrentAttrs(&document.ctx, "a", 0, 0));
        QCOMPARE(ellipse->style_val, 8.75f);
        QCOMPARE(ellipse->direction, 1);
        QCOMPARE(picture->style_val, 0.0f);
        QCOMPARE(text->style_val, 0.0f);
    }

    void aCallersPolygonIsNotClosed()
    {
        ToolDocument document;
        num_point = 3;
        FigPoint* points = makePoints({{0, 0}, {600, 0}, {600, 600}});
        const std::unique_ptr<FigLine> line(
            createLineFromCurrentAttrs(&document.ctx, T_POLYGON, points));
        QCOMPARE(chainOf(line->points), (QVector<QPoint>{{0, 0}, {600, 0}, {600, 600}}));
        QCOMPARE(num_point, 3);
    }

    void theChainUnderConstructionIsClosedAndHandedOver()
    {
        ToolDocument document;
        num_point = 3;
        FigPoint* points = makePoints({{0, 0}, {600, 0}, {600, 600}});
        document.ctx.firstPoint = points;
        document.ctx.lastPoint = points->next->next;
        const std::unique_ptr<FigLine> line(
            createLineFromCurrentAttrs(&document.ctx, T_POLYGON, points));
        QCOMPARE(chainOf(line->points), (QVector<QPoint>{{0, 0}, {600, 0}, {600, 600}, {0, 0}}));
        QCOMPARE(num_point, 4);
        QVERIFY(!document.ctx.firstPoint && !document.ctx.lastPoint);
    }

    void absoluteArrowSizesAreTakenAsTheyAre()
    {
        ToolDocument document;
        use_abs_arrowvals = true;
        cur_arrowthick = 3;
        cur_arrowwidth = 45;
        cur_arrowheight = 90;
        autobackwardarrow_mode = true;
        const std::unique_ptr<FigLine> line(
            createLineFromCurrentAttrs(&document.ctx, T_POLYLINE, makePoints({{0, 0}, {9, 9}})));
        addAutoArrows(&document.ctx, line.get());
        addAutoArrows(&document.ctx, line.get()); // replaced, not lost
        QVERIFY(!line->forward_arrow);
        QCOMPARE(line->backward_arrow->thickness, 3.0f);
        QCOMPARE(line->backward_arrow->wd, 45.0f);
        QCOMPARE(line->backward_arrow->ht, 90.0f);
    }

    void theChainIsTakenOrFreed()
    {
        ToolDocument document;
        FigPoint* points = makePoints({{0, 0}, {600, 0}});
        document.ctx.firstPoint = points;
        document.ctx.lastPoint = points->next;
        QVERIFY(takeChain(&document.ctx) == points);
        QVERIFY(!document.ctx.firstPoint && !document.ctx.lastPoint);
        document.ctx.firstPoint = points;
        document.ctx.lastPoint = points->next;
        freeChain(&document.ctx);
        QVERIFY(!document.ctx.firstPoint && !document.ctx.lastPoint);
        freeChain(nullptr);
    }

    // --- the common ending ------------------------------------------------------------------

    void theNewObjectAloneIsTaggedMarkedAndCurrent()
    {
        ToolDocument document;
        FigCompound* compound = with(makeCompound({with(makeLine({{0, 0}, {9, 9}}), 2)}), 1);
        compound->tagged = compound->objects->first()->tagged = true;
        compound->marked = 2;
        document.ctx.drawing.objects.append(compound);
        document.ctx.nextId = 2;
        document.choose(CMD_BOX, box_drawing_selected);
        document.left(600, 600);
        document.moveAndLeft(1800, 1200);
        FigObject* box = document.object(1);
        QVERIFY(!compound->tagged);
        QVERIFY(!compound->objects->first()->tagged);
        QCOMPARE(compound->marked, 0);
        QVERIFY(box->tagged);
        QCOMPARE(box->marked, 2);
        QCOMPARE(box->id, 3L);
        QVERIFY(document.ctx.curObject == box);
        QCOMPARE(recordingShell.panels, QStringList("attributes 2"));
        QCOMPARE(document.ctx.undoQueue.undoCount(), 1);
        QVERIFY(document.ctx.modified);
        QCOMPARE(document.ctx.object_depths[50], 1); // the layers know of it
    }

    void inAnOpenCompoundItLandsThere()
    {
        ToolDocument document;
        FigCompound* compound = with(makeCompound({with(makeLine({{0, 0}, {9, 9}}), 2)}), 1);
        document.ctx.drawing.objects.append(compound);
        document.ctx.openCompoundObjects = compound->objects;
        document.choose(CMD_POLYLINE, line_drawing_selected);
        document.right(600, 600);
        QCOMPARE(document.count(), 1);
        QCOMPARE(compound->objects->size(), 2);
        QVERIFY(document.ctx.curObject == compound->objects->last());
    }

    void undoTakesTheObjectBackAndRedoBringsIt()
    {
        ToolDocument document;
        document.choose(CMD_BOX, box_drawing_selected);
        document.left(600, 600);
        document.moveAndLeft(1800, 1200);
        const QString record = document.records();
        document.ctx.undoQueue.undo();
        QCOMPARE(document.count(), 0);
        QVERIFY(!document.ctx.curObject);
        document.ctx.undoQueue.redo();
        QCOMPARE(document.records(), record);
    }

    // --- any clicks at all --------------------------------------------------------------------

    void randomClicksCanAllBeTakenBack_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 20; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }

    void randomClicksCanAllBeTakenBack()
    {
        QFETCH(unsigned, seed);
        ToolDocument document({200, 150});
        RandomHand(document, seed).work(400);
        QVERIFY(document.count() > 10);
        QVERIFY(areIdsUnique(document.ctx.drawing.objects));
        const int steps = document.ctx.undoQueue.undoCount();
        QCOMPARE(document.count(), steps);
        const QString everything = document.records();
        while (document.ctx.undoQueue.undoCount())
            document.ctx.undoQueue.undo();
        QCOMPARE(document.count(), 0);
        for (int depth = 0; depth < NUM_DEPTHS; ++depth)
            QCOMPARE(document.ctx.object_depths[depth], 0);
        for (int step = 0; step < steps; ++step)
            document.ctx.undoQueue.redo();
        QCOMPARE(document.records(), everything);
    }

private:
    QScopedPointer<EngineTables> engine;
};

QTEST_MAIN(TestCreation)
#include "test_d_create.moc"
