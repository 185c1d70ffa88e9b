// Moves, scalings and turns of whole objects, with the links that follow or come off.
#include "ActionFixture.h"
#include "edit/e_links.h"

namespace {

FigLine* makeBox(int x1, int y1, int x2, int y2, int subType = T_BOX)
{
    return makeLine({{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}, {x1, y1}}, subType);
}

FigEllipse* makeEllipse(int x, int y, int rx, int ry, int subType = 1)
{
    auto* ellipse = new FigEllipse;
    ellipse->sub_type = subType;
    ellipse->center = ellipse->start = FigPoint(x, y);
    ellipse->radiuses = FigPoint(rx, ry);
    ellipse->end = FigPoint(x + rx, y + ry);
    return ellipse;
}

QString place(const FigEllipse* ellipse)
{
    return QString("%1,%2 %3,%4")
        .arg(ellipse->center.x)
        .arg(ellipse->center.y)
        .arg(ellipse->radiuses.x)
        .arg(ellipse->radiuses.y);
}

/// A connector of three points between two boxes.
struct ConnectedFigure : EditedFigure {
    FigLine* left = put(with(makeBox(0, 0, 100, 100), 1));
    FigLine* right = put(with(makeBox(500, 0, 600, 100), 2));
    FigLine* connector = put(with(makeLine({{100, 50}, {300, 50}, {500, 50}}), 3));

    ConnectedFigure()
    {
        makeLink(connector->points, 1, 1, 2);
        makeLink(connector->points->next->next, 2, 3, 4);
    }

    /// As a drag makes it.
    TranslateAction* move(const FigObjectList& moved, int dx, int dy)
    {
        auto* action = new TranslateAction;
        action->objects = moved;
        action->workingList = &top();
        action->dx = dx;
        action->dy = dy;
        collectWorkingObjects4Translate(&top(), &action->objects, &action->workingObjects);
        action->refreshObjects = action->workingObjects;
        return run(action);
    }
};

template <typename Action> Action* turn(EditedFigure* figure, FigObject* object, int cx, int cy)
{
    auto* action = actionOn<Action>(object, &figure->top());
    action->cx = cx;
    action->cy = cy;
    return action;
}

} // namespace

class TestActionsMoves : public QObject {
    Q_OBJECT

private slots:
    // --- translate --------------------------------------------------------------------

    void aMovedTargetTakesTheEndsThatAreLinkedToItAlong()
    {
        ConnectedFigure figure;
        figure.move({figure.left}, 10, 20);
        QCOMPARE(chain(figure.connector), QString("110,70 300,50 500,50"));
        QCOMPARE(chain(figure.left), QString("10,20 110,20 110,120 10,120 10,20"));
        figure.undo();
        QCOMPARE(chain(figure.connector), QString("100,50 300,50 500,50"));
        figure.redo();
        QCOMPARE(chain(figure.connector), QString("110,70 300,50 500,50"));
    }

    void aConnectorThatMovesAloneKeepsItsEndsWhereTheyAre()
    {
        ConnectedFigure figure;
        figure.move({figure.connector}, 10, 20);
        QCOMPARE(chain(figure.connector), QString("100,50 310,70 500,50"));
        figure.undo();
        QCOMPARE(chain(figure.connector), QString("100,50 300,50 500,50"));
    }

    void connectorAndTargetsMoveTogetherInAnyOrder_data()
    {
        QTest::addColumn<bool>("targetsFirst");
        QTest::newRow("targets first") << true;
        QTest::newRow("connector first") << false;
    }

    void connectorAndTargetsMoveTogetherInAnyOrder()
    {
        QFETCH(bool, targetsFirst);
        ConnectedFigure figure;
        figure.move(targetsFirst ? FigObjectList{figure.left, figure.right, figure.connector}
                                 : FigObjectList{figure.connector, figure.left, figure.right},
                    10, 20);
        QCOMPARE(chain(figure.connector), QString("110,70 310,70 510,70"));
        figure.undo();
        QCOMPARE(chain(figure.connector), QString("100,50 300,50 500,50"));
    }

    void connectorAndOneTargetMoveAndTheOtherEndStays()
    {
        ConnectedFigure figure;
        figure.move({figure.connector, figure.left}, 10, 20);
        QCOMPARE(chain(figure.connector), QString("110,70 310,70 500,50"));
        figure.undo();
        QCOMPARE(chain(figure.connector), QString("100,50 300,50 500,50"));
    }

    // The connector does not move with the compound and once more with its target.
    void aConnectorInAMovedCompoundMovesOnceWithATargetBesideIt()
    {
        EditedFigure figure;
        auto* connector = with(makeLine({{100, 50}, {300, 50}}), 3);
        makeLink(connector->points, 1, 1, 2);
        auto* compound = figure.put(with(makeCompound({connector}), 4));
        auto* target = figure.put(with(makeBox(0, 0, 100, 100), 1));
        for (const FigObjectList& moved :
             {FigObjectList{compound, target}, FigObjectList{target, compound}}) {
            auto* action = new TranslateAction;
            action->objects = moved;
            action->workingList = &figure.top();
            action->dx = 10;
            collectWorkingObjects4Translate(&figure.top(), &action->objects,
                                            &action->workingObjects);
            figure.run(action);
            QCOMPARE(chain(connector), QString("110,50 310,50"));
            figure.undo();
            QCOMPARE(chain(connector), QString("100,50 300,50"));
        }
    }

    void noEndKeepsTheMarkOfAMoveThatIsOver()
    {
        ConnectedFigure figure;
        figure.move({figure.connector}, 10, 20);
        FigPoint* last = figure.connector->points->next->next;
        QVERIFY(!figure.connector->points->link->flag && !last->link->flag);
        figure.undo();
        QVERIFY(!figure.connector->points->link->flag && !last->link->flag);
    }

    // What follows may lie in compounds, whose corners change then.
    void theCompoundsAroundWhatFollowsAreRefreshedAndKeptUpToDate()
    {
        EditedFigure figure;
        auto* target = figure.put(with(makeBox(0, 0, 100, 100), 1));
        auto* connector = with(makeLine({{100, 50}, {300, 50}}), 2);
        makeLink(connector->points, 1, 1, 2);
        auto* inner = with(makeCompound({connector}), 3);
        auto* outer = figure.put(with(makeCompound({inner}), 4));
        update_compound_corners(&figure.ctx, outer);
        const int former = outer->nwcorner.y;
        auto* action = actionOn<TranslateAction>(target, &figure.top());
        action->dy = -500;
        figure.run(action);
        QCOMPARE(chain(connector), QString("100,-450 300,50"));
        QCOMPARE(action->refreshObjects, (FigObjectList{connector, inner, outer}));
        QCOMPARE(outer->nwcorner.y, former - 500);
        QCOMPARE(inner->nwcorner.y, former - 500);
        figure.undo();
        QCOMPARE(outer->nwcorner.y, former);
        figure.redo();
        QCOMPARE(action->refreshObjects, (FigObjectList{connector, inner, outer}));
    }

    // As alignment makes it.
    void aMoveOfOneObjectFindsWhatFollowsByItself()
    {
        ConnectedFigure figure;
        auto* action = actionOn<TranslateAction>(figure.right, &figure.top());
        action->dx = 7;
        figure.run(action);
        QCOMPARE(chain(figure.connector), QString("100,50 300,50 507,50"));
        QCOMPARE(action->workingObjects, (FigObjectList{figure.connector}));
        figure.undo();
        QCOMPARE(chain(figure.connector), QString("100,50 300,50 500,50"));
    }

    void aMovedCompoundMovesItsMembersAndItsCorners()
    {
        EditedFigure figure;
        auto* member = with(makeBox(0, 0, 100, 100), 2);
        auto* compound = figure.put(with(makeCompound({member}), 1));
        update_compound_corners(&figure.ctx, compound);
        const int left = compound->nwcorner.x;
        auto* action = actionOn<TranslateAction>(compound, &figure.top());
        action->dx = 5;
        figure.run(action);
        QCOMPARE(compound->nwcorner.x, left + 5);
        QCOMPARE(member->points->x, 5);
        figure.undo();
        QCOMPARE(compound->nwcorner.x, left);
        QCOMPARE(member->points->x, 0);
    }

    // --- scale ------------------------------------------------------------------------------

    ScaleAction* scale(EditedFigure* figure, FigObject* object, float xfactor, float yfactor)
    {
        auto* action = turn<ScaleAction>(figure, object, 0, 0);
        action->object = nullptr;
        action->objects.append(object);
        action->xfactor = xfactor;
        action->yfactor = yfactor;
        return figure->run(action);
    }

    void scalingIsTakenBackByTheReverseFactors()
    {
        EditedFigure figure;
        auto* ellipse = figure.put(with(makeEllipse(100, 200, 30, 40), 1));
        scale(&figure, ellipse, 2, -0.5f);
        QCOMPARE(place(ellipse), QString("200,-100 60,20"));
        figure.undo();
        QCOMPARE(place(ellipse), QString("100,200 30,40"));
        figure.redo();
        QCOMPARE(place(ellipse), QString("200,-100 60,20"));
    }

    // There is no factor that would bring it back: it stays flat, at finite coordinates.
    void anObjectScaledByZeroStaysFlat()
    {
        EditedFigure figure;
        auto* box = figure.put(with(makeBox(100, 200, 300, 400), 1));
        scale(&figure, box, 0, 2);
        QCOMPARE(chain(box), QString("0,400 0,400 0,800 0,800 0,400"));
        figure.undo();
        QCOMPARE(chain(box), QString("0,200 0,200 0,400 0,400 0,200"));
        auto* ellipse = figure.put(with(makeEllipse(100, 200, 30, 40), 2));
        scale(&figure, ellipse, 0, 0);
        figure.undo();
        QCOMPARE(place(ellipse), QString("0,0 0,0"));
    }

    void linkedEndsFollowAScaledTargetAndComeBack()
    {
        EditedFigure figure;
        auto* box = with(makeBox(0, 0, 100, 100), 2);
        auto* compound = figure.put(with(makeCompound({box}), 1));
        auto* connector = figure.put(with(makeLine({{100, 50}, {300, 50}}), 3));
        makeLink(connector->points, 2, 1, 2);
        scale(&figure, compound, 2, 4);
        QCOMPARE(chain(connector), QString("200,200 300,50"));
        QVERIFY(!connector->points->link->flag);
        figure.undo();
        QCOMPARE(chain(connector), QString("100,50 300,50"));
        QCOMPARE(chain(box), QString("0,0 100,0 100,100 0,100 0,0"));
    }

    // --- rotate and flip
    // --------------------------------------------------------------------------

    void aRotationIsTakenBackByTheReverseAngle()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{100, 0}, {300, 0}}), 1));
        auto* action = turn<RotateAction>(&figure, line, 100, 0);
        action->angle = 90;
        figure.run(action);
        QCOMPARE(chain(line), QString("100,0 100,200"));
        figure.undo();
        QCOMPARE(chain(line), QString("100,0 300,0"));
        figure.redo();
        QCOMPARE(chain(line), QString("100,0 100,200"));
    }

    void everyTypeTurnsAQuarterAndBack()
    {
        EditedFigure figure;
        auto* text = new FigText;
        text->x = 1000;
        text->y = 500;
        auto* arc = new FigArc;
        arc->point[0] = FigPoint(0, 100);
        arc->point[1] = FigPoint(100, 0);
        arc->point[2] = FigPoint(200, 100);
        arc->center_x = arc->center_y = 100;
        const QList<FigObject*> all = {with(makeEllipse(1000, 2000, 300, 200), 1),
                                       with(makeBox(0, 0, 500, 300), 2),
                                       with(makeSpline({{0, 0}, {500, 0}, {500, 500}}), 3),
                                       with(text, 4),
                                       with(arc, 5),
                                       with(makeCompound({with(makeBox(0, 0, 10, 20), 7)}), 6)};
        for (FigObject* object : all) {
            figure.put(object);
            int former[4], turned[4], back[4];
            const auto measure = [&](int* box) {
                object->getBounds(&figure.ctx, box, box + 1, box + 2, box + 3, true, false);
            };
            measure(former);
            auto* action = turn<RotateAction>(&figure, object, 0, 0);
            action->angle = 90;
            figure.run(action);
            measure(turned);
            figure.undo();
            measure(back);
            QVERIFY2(!std::equal(former, former + 4, turned), qPrintable(ids({object})));
            QVERIFY2(std::equal(former, former + 4, back), qPrintable(ids({object})));
        }
    }

    // The ends of a connector that is turned itself are free afterwards.
    void aTurnTakesTheLinksOffAndUndoPutsThemBack_data()
    {
        QTest::addColumn<bool>("isFlip");
        QTest::newRow("rotation") << false;
        QTest::newRow("flip") << true;
    }

    void aTurnTakesTheLinksOffAndUndoPutsThemBack()
    {
        QFETCH(bool, isFlip);
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{100, 0}, {300, 0}}), 1));
        auto* spline = figure.put(with(makeSpline({{0, 0}, {5, 0}, {5, 5}}), 2));
        auto* member = with(makeLine({{100, 0}, {300, 0}}), 4);
        auto* compound = figure.put(with(makeCompound({member}), 3));
        struct {
            FigObject* object;
            FigPoint* point;
        } const cases[] = {
            {line, line->points}, {spline, spline->points}, {compound, member->points}};
        for (const auto& [object, point] : cases) {
            FigLink* link = makeLink(point, 99);
            TurnAction* action;
            if (isFlip) {
                auto* flip = turn<FlipAction>(&figure, object, 0, 0);
                flip->direction = 1;
                action = flip;
            } else {
                auto* rotation = turn<RotateAction>(&figure, object, 0, 0);
                rotation->angle = 90;
                action = rotation;
            }
            figure.run(action);
            QVERIFY(!point->link);
            for (int round = 0; round < 2; ++round) {
                figure.undo();
                QCOMPARE(point->link, link);
                figure.redo();
                QVERIFY(!point->link);
                QCOMPARE(action->savedLinks, (QList<FigLink*>{link}));
            }
        }
    }

    void aTurnThatIsUndoneLeavesTheLinksToTheirPoints()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{100, 0}, {300, 0}}), 1));
        makeLink(line->points, 99);
        auto* action = turn<FlipAction>(&figure, line, 0, 0);
        action->direction = 2;
        figure.run(action);
        figure.undo();
        figure.queue().clearRedoList();
        QCOMPARE(line->points->link->targetObjId, 99L);
    }

    void connectorsFollowATurnedTarget()
    {
        EditedFigure figure;
        auto* ellipse = figure.put(with(makeEllipse(0, 0, 100, 100, 3), 1));
        auto* connector = figure.put(with(makeLine({{100, 0}, {300, 0}}), 2));
        makeLink(connector->points, 1);
        auto* action = turn<RotateAction>(&figure, ellipse, 0, 0);
        action->angle = 90;
        figure.run(action);
        QCOMPARE(chain(connector), QString("0,100 300,0"));
        QVERIFY(connector->points->link);
        figure.undo();
        QCOMPARE(chain(connector), QString("100,0 300,0"));
    }

    void aFlipIsItsOwnReverse_data()
    {
        QTest::addColumn<int>("direction");
        QTest::addColumn<QString>("flipped");
        QTest::newRow("up-down") << 1 << "0,20 100,20 100,-80 0,-80 0,20";
        QTest::newRow("left-right") << 2 << "20,0 -80,0 -80,100 20,100 20,0";
    }

    void aFlipIsItsOwnReverse()
    {
        QFETCH(int, direction);
        QFETCH(QString, flipped);
        EditedFigure figure;
        auto* box = figure.put(with(makeBox(0, 0, 100, 100, T_PICTURE), 1));
        box->pic = new FigPic;
        auto* action = turn<FlipAction>(&figure, box, 10, 10);
        action->direction = direction;
        figure.run(action);
        QCOMPARE(chain(box), flipped);
        QCOMPARE(box->pic->flipped, 1);
        figure.undo();
        QCOMPARE(chain(box), QString("0,0 100,0 100,100 0,100 0,0"));
        QCOMPARE(box->pic->flipped, 0);
    }
};

QTEST_MAIN(TestActionsMoves)
#include "test_actions_moves.moc"
