// Feedback with the objects themselves: after each step the document is what it was, and the
// picture that the last step leaves is the one of the result.
#include "RandomFigure.h"
#include "ReshapingFixture.h"
#include "edit/e_move.h"
#include "edit/e_movept_tool.h"
#include "edit/e_scale_compound.h"
#include "edit/e_select.h"
#include "edit/u_elastic.h"
#include "render/markers.h"

#include <memory>

namespace {

struct Reshaping : ReshapedDocument {
    void start()
    {
        show();
        choose(CMD_SELECT, select_selected);
        former = text();
        picture = image;
    }
    bool isResting()
    {
        return isIdle(init_tagging) && !canvas_leftbutUp_proc && !canvas_locmove_proc2 &&
               !ctx.movedObjects && !ctx.reshapedObject && oldElasticObjectList.isEmpty();
    }
    /// The picture as it is, its markers wiped.
    QImage wiped()
    {
        set_tags(&ctx.drawing.objects, false);
        paint(true, [this] { unmarkAllUntaggedObjects(&ctx); });
        return image;
    }
    bool showsTheResult()
    {
        wiped();
        return showsWhatARedrawShows();
    }

    QString former;
    QImage picture;
};

/// Lines of which one end is linked to an object of the top level.
void addConnectors(Reshaping& document, RandomFigure* random)
{
    for (int i = 0; i < 3; ++i) {
        const FigObject* target = document.object(random->between(0, document.count() - 1));
        FigLine* connector = makeLine({{random->between(0, 6000), 900}, {3000, 3000}});
        makeLink(connector->points, target->id, 0, 1);
        if (random->oneIn(2))
            document.put(connector);
        else
            document.putCompound({connector});
    }
}

/// Tags up to four objects of the top level; how many.
int tagSome(Reshaping& document, RandomFigure* random)
{
    const int wanted = random->between(1, 4);
    int tagged = 0;
    for (int i = 0; i < wanted; ++i) {
        FigObject* object = document.object(random->between(0, document.count() - 1));
        tagged += object->tagged ? 0 : 1;
        object->tagged = true;
        document.ctx.curObject = object;
    }
    return tagged;
}

/// Tags the first compound of the top level; its index, or -1 where there is none.
int tagCompound(Reshaping& document)
{
    for (int i = 0; i < document.count(); ++i) {
        FigObject* object = document.object(i);
        if (object->type != O_COMPOUND)
            continue;
        object->tagged = true;
        document.ctx.curObject = object;
        return i;
    }
    return -1;
}

/// A drag from (0, 0), or a scaling by an edge of a compound's box.
void startGesture(Reshaping& document, bool scaling)
{
    fix_x = fix_y = 0;
    init_object_dragging(&document.ctx, 0, 0);
    if (!scaling)
        return;
    canvas_locmove_proc2 = elastic_scaleobjects;
    canvas_leftbutUp_proc = fix_scalecompound;
    side = 4;
    fix_x = 600;
    fix_y = 900;
    fromx = 3600;
    fromy = 2400;
    cosa = 0.6;
    sina = 0.8;
}

/// Where the list has its objects, and what those own.
QString shape(Reshaping& document)
{
    QString all;
    for (FigObject* object : qAsConst(document.ctx.drawing.objects))
        all += QString::number(reinterpret_cast<quintptr>(object)) + writtenObject(object);
    return all;
}

} // namespace

class TestReshaping : public QObject {
    Q_OBJECT

private slots:
    // --- whole objects ----------------------------------------------------------------

    void draggingNothingDoesNothing()
    {
        Reshaping document;
        document.put(makeLine({{900, 900}, {1500, 900}}));
        document.start();
        cur_x = 7;
        FigObjectList nothing;
        document.paint(false, [&] {
            elastic_moveobjects(&document.ctx, nullptr, 100, 100);
            elastic_moveobjects(&document.ctx, &nothing, 100, 100);
            elastic_scaleobjects(&document.ctx, nullptr, 100, 100);
            elastic_scaleobjects(&document.ctx, &nothing, 100, 100);
        });
        QCOMPARE(cur_x, 7);
        QCOMPARE(document.image, document.picture);
        QVERIFY(oldElasticObjectList.isEmpty());
    }

    void everyStepOfADragLeavesTheDocumentAsItWas()
    {
        Reshaping document;
        FigLine* box = document.put(makeBox(600, 600, 1200, 1200));
        FigLine* connector = makeLine({{1200, 900}, {2100, 900}});
        tie(connector->points, box, 1, 2);
        FigCompound* around = document.putCompound({connector, makeBox(2100, 1200, 2400, 1500)});
        const FigPoint corner = around->nwcorner;
        document.start();
        const QString before = shape(document);
        document.left(900, 600);
        for (const QPoint& to : {QPoint(900, 900), QPoint(300, 2400), QPoint(3000, 300)}) {
            document.move(to.x(), to.y());
            QCOMPARE(shape(document), before);
            QCOMPARE(at(&around->nwcorner), at(&corner));
            QCOMPARE(document.steps(), 0);
        }
        document.release(3000, 300);
        QCOMPARE(at(connector->points), QString("3300,600"));
        QVERIFY(document.isResting());
        QVERIFY(document.showsTheResult());
    }

    // Files may have corners that were measured otherwise: only a release changes them.
    void cornersThatAreNotMeasuredStayUntilTheRelease()
    {
        Reshaping document;
        FigLine* box = document.put(makeBox(600, 600, 1200, 1200));
        FigLine* connector = makeLine({{1200, 900}, {2100, 900}});
        tie(connector->points, box, 1, 2);
        FigCompound* inner = makeCompound({connector});
        FigCompound* outer = document.putCompound({inner, makeBox(2100, 1200, 2400, 1500)});
        inner->nwcorner = FigPoint(1000, 800);
        outer->secorner = FigPoint(2700, 1800);
        document.start();
        document.left(900, 600);
        document.move(900, 900);
        document.move(300, 1500);
        QCOMPARE(document.text(), document.former);
        document.right(0, 0);
        QCOMPARE(document.text(), document.former);
        document.drag(900, 600, 900, 900);
        // Half a line's width, 7.5 units, lies left of the connector at most.
        QVERIFY(inner->nwcorner.x > 1191 && inner->nwcorner.x <= 1200);
        QCOMPARE(outer->secorner.x, 2408);
    }

    void inAnOpenCompoundOnlyItsOwnConnectorsFollow()
    {
        Reshaping document;
        FigLine* box = makeBox(600, 600, 1200, 1200);
        FigLine* inside = makeLine({{1200, 900}, {2100, 900}});
        FigCompound* compound = document.putCompound({box, inside});
        FigLine* outside = document.put(makeLine({{600, 900}, {300, 900}}));
        tie(inside->points, box, 1, 2);
        tie(outside->points, box, 3, 0);
        document.ctx.openCompoundObjects = compound->objects;
        document.start();
        document.left(900, 600);
        document.move(900, 900);
        QCOMPARE(document.text(), document.former);
        document.move(900, 1200);
        document.release(900, 1200);
        QCOMPARE(at(inside->points), QString("1200,1500"));
        QCOMPARE(at(outside->points), QString("600,900"));
        document.undo();
        QCOMPARE(at(inside->points), QString("1200,900"));
        document.ctx.openCompoundObjects = nullptr;
    }

    // A connector that lies in the moved compound is moved with it, once.
    void aConnectorWithinTheMovedCompoundIsNotCopiedByItself()
    {
        Reshaping document;
        FigLine* box = makeBox(600, 600, 1200, 1200);
        FigLine* connector = makeLine({{1200, 900}, {1800, 900}});
        FigCompound* compound = document.putCompound({box, connector});
        tie(connector->points, box, 1, 2);
        document.start();
        const QString before = shape(document);
        document.left(compound->nwcorner.x + 600, compound->nwcorner.y);
        for (int y : {900, 1200, 1500}) {
            document.move(1500, y);
            QCOMPARE(shape(document), before);
            QCOMPARE(compound->objects->first(), static_cast<FigObject*>(box));
            QCOMPARE(compound->objects->last(), static_cast<FigObject*>(connector));
        }
        // Beside the last move.
        document.release(compound->nwcorner.x + 900, compound->nwcorner.y + 300);
        QCOMPARE(chain(connector), QString("1500,1200 2100,1200"));
        QVERIFY(document.showsTheResult());
    }

    void membersOfTwoMovedCompoundsMoveOnce()
    {
        Reshaping document;
        FigLine* box = makeBox(600, 600, 1200, 1200);
        FigLine* connector = makeLine({{1200, 900}, {1800, 900}});
        document.putCompound({box});
        document.putCompound({connector});
        tie(connector->points, box, 1, 2);
        document.start();
        document.drag(300, 300, 2400, 1500); // tags both
        document.drag(593, 900, 893, 1200);
        QCOMPARE(chain(box).left(9), QString("900,900 1"));
        QCOMPARE(chain(connector), QString("1500,1200 2100,1200"));
        QCOMPARE(document.steps(), 1);
        document.undo();
        QCOMPARE(chain(connector), QString("1200,900 1800,900"));
    }

    void theRightButtonBringsThePictureOfADragBack()
    {
        Reshaping document;
        FigLine* box = document.put(makeBox(600, 600, 1200, 1200));
        FigLine* connector = document.put(makeLine({{1200, 900}, {2100, 900}}));
        tie(connector->points, box, 1, 2);
        document.start();
        document.left(900, 600);
        document.move(1500, 1500);
        document.right(1500, 1500);
        QVERIFY(document.isResting());
        QCOMPARE(document.text(), document.former);
        QCOMPARE(document.wiped(), document.picture);
    }

    // A circle of links, and compounds linked into each other: every walk ends.
    void linksInACircleAreFollowedOnce()
    {
        Reshaping document;
        FigLine* first = makeLine({{600, 600}, {1200, 600}});
        FigLine* second = makeLine({{600, 1200}, {1200, 1200}});
        FigCompound* inner = makeCompound({second});
        FigCompound* outer = document.putCompound({first, inner});
        FigLine* third = document.put(makeLine({{1800, 1800}, {2400, 1800}}));
        makeLink(first->points, second->id);
        makeLink(second->points, third->id);
        makeLink(third->points, first->id);
        makeLink(lastOf(third), outer->id);
        document.start();
        const QString before = shape(document);
        document.left(outer->nwcorner.x, outer->nwcorner.y + 300);
        document.move(900, 900);
        QCOMPARE(shape(document), before);
        document.move(outer->nwcorner.x + 300, outer->nwcorner.y + 300);
        document.release(outer->nwcorner.x + 300, outer->nwcorner.y + 300);
        QCOMPARE(document.steps(), 1);
        document.undo();
        QCOMPARE(document.text(), document.former);
    }

    // What was in the list before the step is disposed of, also where parents are in it.
    void theListOfWhatWasDrawnHoldsCopies()
    {
        Reshaping document;
        FigLine* box = document.put(makeBox(600, 600, 1200, 1200));
        FigLine* connector = makeLine({{1200, 900}, {2100, 900}});
        tie(connector->points, box, 1, 2);
        FigCompound* around = document.putCompound({connector});
        document.start();
        document.left(900, 600);
        document.move(900, 900);
        document.move(900, 1200);
        QCOMPARE(ids(oldElasticObjectList),
                 QString("%1 %2 %3(%1)").arg(connector->id).arg(box->id).arg(around->id));
        for (FigObject* drawn : qAsConst(oldElasticObjectList))
            QVERIFY(drawn != box && drawn != connector && drawn != around);
        const auto* drawnBox = static_cast<FigLine*>(*(oldElasticObjectList.constBegin() + 1));
        QCOMPARE(at(drawnBox->points), QString("600,1200"));
        document.right(0, 0);
    }

    // Random figures with links at every level: what the last step has drawn is what the release
    // makes, object by object, and the figure is the same before.
    void theLastPreviewIsTheResult()
    {
        int previewed = 0, followed = 0;
        for (unsigned seed = 1; seed <= 300; ++seed) {
            Reshaping document;
            RandomFigure random(seed);
            random.fill(&document.ctx);
            // The first box of a text still has the width that the file gives.
            objectwalk::visitAll(&document.ctx.drawing.objects, [&](FigObject* object) {
                int left, top, right, bottom;
                object->getBounds(&document.ctx, &left, &top, &right, &bottom, true, true);
            });
            if (document.count() == 0)
                continue;
            addConnectors(document, &random);
            document.choose(CMD_SELECT, select_selected);
            const int scaled = seed % 2 ? -1 : tagCompound(document);
            const int moved = scaled < 0 ? tagSome(document, &random) : 1;
            const QString before = shape(document);
            const int x = random.between(-3000, 3000), y = random.between(-3000, 3000);
            startGesture(document, scaled >= 0);
            // Without a painter: only the copies matter here.
            for (const QPoint& to : {QPoint(x / 2, y / 3), QPoint(x, y)})
                canvas_locmove_proc2(&document.ctx, document.ctx.movedObjects, to.x(), to.y());
            QVERIFY2(shape(document) == before, qPrintable(QString::number(seed)));
            QHash<long, QString> preview;
            for (FigObject* drawn : qAsConst(oldElasticObjectList))
                preview.insert(drawn->id, writtenObject(drawn));
            canvas_leftbutUp_proc(&document.ctx, x, y);
            QCOMPARE(document.steps(), 1);
            for (auto drawn = preview.cbegin(); drawn != preview.cend(); ++drawn) {
                FigObject* object = findObjectById(&document.ctx.drawing.objects, drawn.key());
                QVERIFY(object);
                QVERIFY2(writtenObject(object) == drawn.value(), qPrintable(QString::number(seed)));
                QVERIFY2(writtenObject(object) == drawn.value(), qPrintable(QString::number(seed)));
            }
            previewed += preview.size();
            followed += preview.size() - moved;
        }
        QVERIFY(previewed > 500);
        QVERIFY(followed > 100);
    }

    // --- points -------------------------------------------------------------------------

    void everyStepOfAPointMoveLeavesTheDocumentAsItWas_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QPoint>("press");
        QTest::newRow("polyline") << 0 << QPoint(600, 600);
        QTest::newRow("box") << 1 << QPoint(2400, 600);
        QTest::newRow("spline") << 2 << QPoint(900, 2400);
        QTest::newRow("arc") << 3 << QPoint(2700, 1800);
        QTest::newRow("ellipse") << 4 << QPoint(4500, 1500);
        QTest::newRow("polygon") << 5 << QPoint(3600, 2400);
    }

    void everyStepOfAPointMoveLeavesTheDocumentAsItWas()
    {
        QFETCH(int, index);
        QFETCH(QPoint, press);
        Reshaping document;
        document.put(makeLine({{600, 600}, {1200, 1200}, {1800, 600}}));
        FigLine* box = document.put(makeBox(2400, 600, 3000, 1200));
        document.put(makeSpline({{300, 2100}, {900, 2400}, {1500, 2100}}));
        document.put(makeArc({2400, 2100}, {2700, 1800}, {3000, 2100}, {2700, 2100}));
        document.put(makeEllipse(4200, 1200, 300, 300));
        document.put(makeLine({{3600, 2400}, {4200, 2400}, {4200, 3000}, {3600, 2400}}, T_POLYGON));
        FigLine* connector = document.put(makeLine({{2400, 900}, {2100, 900}}));
        tie(connector->points, box, 3, 0);
        document.start();
        const QString before = shape(document);
        document.left(press.x(), press.y());
        QCOMPARE(document.ctx.curObject, document.object(index));
        for (const QPoint& by : {QPoint(90, 60), QPoint(300, -450), QPoint(-600, 15)}) {
            document.move(press.x() + by.x(), press.y() + by.y());
            QCOMPARE(shape(document), before);
        }
        document.right(0, 0);
        QCOMPARE(shape(document), before);
        QVERIFY(document.isResting());
        QCOMPARE(document.wiped(), document.picture);
        // And once more to the end.
        document.drag(press.x(), press.y(), press.x() + 150, press.y() + 75);
        QVERIFY(document.isResting());
        QCOMPARE(document.steps(), 1);
        QVERIFY(shape(document) != before);
        QVERIFY(document.showsTheResult());
        document.undo();
        QCOMPARE(shape(document), before);
    }

    void aLinkedEndIsFreeInThePreviewAndAfterTheRelease()
    {
        Reshaping document;
        FigLine* box = document.put(makeBox(2400, 600, 3000, 1200));
        FigLine* connector = document.put(makeLine({{2400, 900}, {2100, 900}}));
        FigLink* link = tie(connector->points, box, 3, 0);
        document.start();
        document.left(2400, 900);
        document.move(2400, 1500);
        QCOMPARE(connector->points->link, link);
        document.move(2100, 1500);
        document.release(2100, 1500);
        QVERIFY(!connector->points->link);
        document.undo();
        QCOMPARE(connector->points->link, link);
        QCOMPARE(document.text(), document.former);
    }

    // A release over the source's own outline links nothing.
    void anEndDroppedOnItsOwnLineIsNotLinked()
    {
        Reshaping document;
        FigLine* line =
            document.put(makeLine({{600, 600}, {1800, 600}, {1800, 1800}, {1200, 1800}}));
        document.start();
        document.drag(1200, 1800, 1200, 615);
        QCOMPARE(at(lastOf(line)), QString("1200,615"));
        QVERIFY(!lastOf(line)->link);
    }

    // Kept: inner points are pulled onto outlines, though only ends are linked.
    void anInnerPointIsPulledOntoAnOutlineWithoutALink()
    {
        Reshaping document;
        document.put(makeBox(2400, 600, 3000, 1200));
        FigLine* line = document.put(makeLine({{600, 600}, {1200, 1200}, {1800, 600}}));
        document.start();
        document.drag(1200, 1200, 2385, 900);
        QCOMPARE(at(line->getPoint(1)), QString("2400,900"));
        QVERIFY(!line->getPoint(1)->link);
    }

    void anArcOnALineKeepsItsLastGoodPreview()
    {
        Reshaping document;
        FigArc* arc = document.put(makeArc({2400, 2100}, {2700, 1800}, {3000, 2100}, {2700, 2100}));
        document.start();
        document.left(2700, 1800);
        document.move(2700, 1700); // what is done once
        document.move(2700, 1500);
        const FigObject* shown = document.ctx.reshapedObject;
        QVERIFY(shown);
        const QImage good = document.image;
        document.move(2700, 2100);
        QCOMPARE(document.ctx.reshapedObject, shown);
        QCOMPARE(document.image, good);
        document.release(2700, 2100);
        QCOMPARE(document.steps(), 0);
        QCOMPARE(at(&arc->point[1]), QString("2700,1800"));
        QVERIFY(document.isResting());
        QCOMPARE(document.wiped(), document.picture);
    }

    // Kept: the refusal leaves the gesture on, and the slots as they were, until the release.
    void theCentreOfAnEllipseByRadiiIsRefused()
    {
        Reshaping document;
        FigEllipse* ellipse = document.put(makeEllipse(1500, 1500, 300, 300));
        ellipse->start = FigPoint(1200, 1500); // files may have it beside the centre
        document.start();
        document.left(1200, 1500);
        document.move(1200, 1800);
        QCOMPARE(document.messages(), QStringList("Cannot move CENTER point"));
        QVERIFY(action_on);
        QVERIFY(canvas_locmove_proc == init_ellipsepointmoving);
        QVERIFY(canvas_leftbutUp_proc == cancel_startPointDragging);
        document.release(1200, 1800);
        QVERIFY(!action_on);
        QVERIFY(document.isResting());
        QCOMPARE(document.steps(), 0);
        QCOMPARE(document.text(), document.former);
    }

    void theRightButtonAfterARefusalLeavesNoMark()
    {
        Reshaping document;
        FigEllipse* ellipse = document.put(makeEllipse(1500, 1500, 300, 300));
        ellipse->start = FigPoint(1200, 1500);
        document.start();
        document.left(1200, 1500);
        document.move(1200, 1800);
        document.right(1200, 1800);
        QVERIFY(document.isResting());
        QCOMPARE(document.wiped(), document.picture);
    }

    void theConstraintModesBendAnEndOfASpline()
    {
        Reshaping document;
        FigSpline* spline = document.put(makeSpline({{600, 600}, {1500, 1500}, {2400, 1500}}));
        document.start();
        manhattan_mode = 1;
        document.drag(2400, 1500, 3000, 1650);
        QCOMPARE(chain(spline), QString("600,600 1500,1500 3000,1500"));
        QVERIFY(document.showsTheResult());
        document.undo();
        QCOMPARE(document.text(), document.former);
    }

    // Nearer than 2 units to the neighbour the end stays where the rubber line has it.
    void aConstrainedEndBesideItsNeighbourStays()
    {
        Reshaping document;
        FigLine* line = document.put(makeLine({{600, 600}, {1500, 600}}));
        document.start();
        manhattan_mode = 1;
        document.drag(1500, 600, 601, 600);
        QVERIFY(line->getPoint(1)->x > 602); // the last place that was far enough
        QVERIFY(document.isResting());
    }

    void aCancelledConstrainedMoveWipesItsRubberLine()
    {
        Reshaping document;
        document.put(makeLine({{600, 600}, {1500, 600}}));
        document.start();
        latexline_mode = 1;
        document.left(1500, 600);
        document.move(1500, 1500);
        document.move(2400, 2100);
        document.right(2400, 2100);
        QCOMPARE(document.text(), document.former);
        QVERIFY(document.isResting());
        QCOMPARE(document.wiped(), document.picture);
    }

    // --- objects that go in mid-gesture ----------------------------------------------------

    void anObjectThatGoesEndsTheMoveOfItsPoint_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("constrained");
        QTest::addColumn<bool>("cancelled");
        for (bool cancelled : {false, true}) {
            const QString how = cancelled ? ", right button" : ", release";
            QTest::newRow(qPrintable("line" + how)) << int(O_POLYLINE) << false << cancelled;
            QTest::newRow(qPrintable("constrained" + how)) << int(O_POLYLINE) << true << cancelled;
            QTest::newRow(qPrintable("spline" + how)) << int(O_SPLINE) << false << cancelled;
            QTest::newRow(qPrintable("arc" + how)) << int(O_ARC) << false << cancelled;
            QTest::newRow(qPrintable("ellipse" + how)) << int(O_ELLIPSE) << false << cancelled;
        }
    }

    void anObjectThatGoesEndsTheMoveOfItsPoint()
    {
        QFETCH(int, kind);
        QFETCH(bool, constrained);
        QFETCH(bool, cancelled);
        Reshaping document;
        if (kind == O_POLYLINE)
            document.put(makeLine({{600, 600}, {1500, 600}}));
        else if (kind == O_SPLINE)
            document.put(makeSpline({{600, 600}, {1500, 1500}, {1500, 600}}));
        else if (kind == O_ARC)
            document.put(makeArc({1500, 600}, {1800, 300}, {2100, 600}, {1800, 600}));
        else
            document.put(makeEllipse(1200, 300, 300, 300));
        document.start();
        manhattan_mode = constrained ? 1 : 0;
        document.left(1500, 600);
        document.move(1500, 900);
        document.move(2100, 1800);
        document.ctx.curObject = nullptr; // Escape
        if (cancelled)
            document.right(2100, 1800);
        else
            document.release(2100, 1800);
        QVERIFY(document.isResting());
        QCOMPARE(document.steps(), 0);
        QCOMPARE(document.text(), document.former);
        QCOMPARE(document.wiped(), document.picture);
    }

    void aMoveWithoutAnObjectEndsTheGesture()
    {
        for (PointerProc procedure :
             {reshaping_line, reshaping_spline, reshaping_arc, reshaping_ellipse}) {
            Reshaping document;
            document.put(makeLine({{600, 600}, {1500, 600}}));
            document.start();
            document.ctx.reshapedObject = makeLine({{1, 1}});
            oldElasticObjectList.append(makeLine({{1, 1}}));
            set_action_on();
            document.paint(false, [&] { procedure(&document.ctx, 10, 10); });
            QVERIFY(document.isResting());
            QCOMPARE(document.steps(), 0);
        }
    }

    // --- what a step does ask of a point that is not there -------------------------------------

    void aPointOfAnotherObjectMovesNothing()
    {
        Reshaping document;
        FigLine* line = document.put(makeLine({{600, 600}, {1500, 600}}));
        FigSpline* spline = document.put(makeSpline({{600, 900}, {1500, 900}, {1800, 1500}}));
        document.start();
        FigPoint stranger(600, 600);
        moved_pos = &stranger;
        document.ctx.curObject = line;
        document.paint(false, [&] { reshaping_line(&document.ctx, 900, 900); });
        document.ctx.curObject = spline;
        document.paint(false, [&] { reshaping_spline(&document.ctx, 900, 900); });
        movedpoint_num = -1;
        document.paint(false, [&] { reshaping_arc(&document.ctx, 900, 900); });
        QCOMPARE(document.text(), document.former);
        QCOMPARE(document.image, document.picture);
        QVERIFY(!document.ctx.reshapedObject);
    }
};

QTEST_MAIN(TestReshaping)
#include "test_u_reshaping.moc"
