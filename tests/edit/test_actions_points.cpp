// Points that move, enter and leave, with the links on them and to them.
#include "ActionFixture.h"
#include "edit/e_links.h"

#include <cmath>

namespace {

FigLine* makeBox(int x1, int y1, int x2, int y2, int subType = T_BOX)
{
    return makeLine({{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}, {x1, y1}}, subType);
}

FigPoint* pointAt(FigPath* path, int index)
{
    return path->getPoint(index);
}

QString factors(const FigSpline* spline)
{
    QStringList values;
    for (const FigShapeFactor* factor = spline->sfactors; factor; factor = factor->next)
        values.append(QString::number(factor->s));
    return values.join(' ');
}

/// Links a point to the segment between two points of a line, as the search does.
FigLink* tie(FigPoint* point, FigLine* target, int left, int right)
{
    FigLink* link = makeLink(point, target->id, left, right);
    link->targetLeftPoint = pointAt(target, left);
    link->targetRightPoint = pointAt(target, right);
    return link;
}

QString segment(const FigLink* link)
{
    return QString("%1-%2").arg(link->targetLeftPointIdx).arg(link->targetRightPointIdx);
}

template <typename Action>
Action* movePoint(EditedFigure* figure, FigObject* object, FigPoint* point, int dx, int dy,
                  int connect = 0)
{
    auto* action = actionOn<Action>(object, &figure->top());
    action->point = point;
    action->dx = dx;
    action->dy = dy;
    action->connect = connect;
    return figure->run(action);
}

FigEllipse* makeEllipse(int subType, FigPoint start, FigPoint end, FigPoint center, FigPoint radii)
{
    auto* ellipse = new FigEllipse;
    ellipse->sub_type = subType;
    ellipse->start = start;
    ellipse->end = end;
    ellipse->center = center;
    ellipse->radiuses = radii;
    return ellipse;
}

QString state(const FigEllipse* ellipse)
{
    QStringList parts;
    for (const FigPoint& point : {ellipse->center, ellipse->radiuses, ellipse->start, ellipse->end})
        parts.append(QString("%1,%2").arg(point.x).arg(point.y));
    return parts.join(' ');
}

MoveEllipsePointAction* moveEllipse(EditedFigure* figure, FigEllipse* ellipse, int dx, int dy,
                                    int number)
{
    auto* action = actionOn<MoveEllipsePointAction>(ellipse, &figure->top());
    action->dx = dx;
    action->dy = dy;
    action->number = number;
    return figure->run(action);
}

/// A quarter of a circle of radius 1000 about 0, 0.
FigArc* makeArc()
{
    auto* arc = new FigArc;
    arc->point[0] = FigPoint(1000, 0);
    arc->point[1] = FigPoint(600, 800);
    arc->point[2] = FigPoint(0, 1000);
    return arc;
}

/// Two open shapes beside a box.
struct Targets : EditedFigure {
    FigLine* box = put(with(makeBox(1000, 1000, 3000, 3000), 1));
    FigLine* line = put(with(makeLine({{1000, 2000}, {100, 200}}), 2));
    FigSpline* spline = put(with(makeSpline({{1000, 1500}, {500, 1500}, {400, 900}}), 3));
};

/// A polygon with a connector on each of two sides, one of them the closing one.
struct LinkedPolygon : EditedFigure {
    FigLine* polygon =
        put(with(makeLine({{0, 0}, {6000, 0}, {6000, 6000}, {0, 6000}, {0, 0}}, T_POLYGON), 1));
    FigLine* upper = put(with(makeLine({{1500, 0}, {1500, -900}}), 2));
    FigLine* left = put(with(makeLine({{0, 3000}, {-900, 3000}}), 3));
    FigLink* onUpper = tie(upper->points, polygon, 0, 1);
    FigLink* onLeft = tie(left->points, polygon, 3, 4);
};

} // namespace

class TestActionsPoints : public QObject {
    Q_OBJECT

private slots:
    // --- points of lines that move ---------------------------------------------------

    void aPointOfALineMovesAndMovesBack()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{0, 0}, {100, 0}, {200, 0}}), 1));
        movePoint<MoveLinePointAction>(&figure, line, pointAt(line, 1), 5, 7);
        QCOMPARE(chain(line), QString("0,0 105,7 200,0"));
        figure.undo();
        QCOMPARE(chain(line), QString("0,0 100,0 200,0"));
        figure.redo();
        QCOMPARE(chain(line), QString("0,0 105,7 200,0"));
    }

    void theFirstPointOfAPolygonTakesItsClosingCopyAlong()
    {
        EditedFigure figure;
        auto* line =
            figure.put(with(makeLine({{0, 0}, {100, 0}, {200, 90}, {0, 0}}, T_POLYGON), 1));
        movePoint<MoveLinePointAction>(&figure, line, line->points, 5, 7);
        QCOMPARE(chain(line), QString("5,7 100,0 200,90 5,7"));
        figure.undo();
        QCOMPARE(chain(line), QString("0,0 100,0 200,90 0,0"));
    }

    void aBoxStaysRectangular_data()
    {
        QTest::addColumn<int>("subType");
        QTest::newRow("box") << static_cast<int>(T_BOX);
        QTest::newRow("arc-box") << static_cast<int>(T_ARCBOX);
        QTest::newRow("picture") << static_cast<int>(T_PICTURE);
    }

    void aBoxStaysRectangular()
    {
        QFETCH(int, subType);
        EditedFigure figure;
        auto* box = figure.put(with(makeBox(0, 0, 100, 60, subType), 1));
        movePoint<MoveLinePointAction>(&figure, box, pointAt(box, 2), 10, 20);
        QCOMPARE(chain(box), QString("0,0 110,0 110,80 0,80 0,0"));
        figure.undo();
        QCOMPARE(chain(box), QString("0,0 100,0 100,60 0,60 0,0"));
    }

    // All five points share the coordinate then; the negated move would take the whole box along.
    void aCornerThatWasDroppedOnTheOppositeSideComesBack_data()
    {
        QTest::addColumn<int>("dx");
        QTest::addColumn<int>("dy");
        QTest::newRow("on the left side") << -100 << 5;
        QTest::newRow("on the upper side") << 5 << -60;
        QTest::newRow("on the opposite corner") << -100 << -60;
    }

    void aCornerThatWasDroppedOnTheOppositeSideComesBack()
    {
        QFETCH(int, dx);
        QFETCH(int, dy);
        EditedFigure figure;
        auto* box = figure.put(with(makeBox(0, 0, 100, 60), 1));
        auto* action = movePoint<MoveLinePointAction>(&figure, box, pointAt(box, 2), dx, dy);
        const QString dropped = chain(box);
        for (int round = 0; round < 2; ++round) {
            figure.undo();
            QCOMPARE(chain(box), QString("0,0 100,0 100,60 0,60 0,0"));
            figure.redo();
            QCOMPARE(chain(box), dropped);
        }
        QCOMPARE(action->movedInX, (QList<FigPoint*>{pointAt(box, 1), pointAt(box, 2)}));
        QCOMPARE(action->movedInY, (QList<FigPoint*>{pointAt(box, 2), pointAt(box, 3)}));
    }

    void aPictureThatWasTurnedOverComesBackAsItWas()
    {
        EditedFigure figure;
        auto* box = figure.put(with(makeBox(0, 0, 100, 60, T_PICTURE), 1));
        box->pic = new FigPic;
        movePoint<MoveLinePointAction>(&figure, box, pointAt(box, 2), -250, 0);
        QCOMPARE(chain(box), QString("0,0 -150,0 -150,60 0,60 0,0"));
        QCOMPARE(box->pic->flipped, 1);
        figure.undo();
        QCOMPARE(chain(box), QString("0,0 100,0 100,60 0,60 0,0"));
        QCOMPARE(box->pic->flipped, 0);
        figure.redo();
        QCOMPARE(box->pic->flipped, 1);
    }

    void connectorsFollowADraggedCornerAndComeBack()
    {
        EditedFigure figure;
        auto* box = figure.put(with(makeBox(0, 0, 100, 100), 1));
        auto* connector = figure.put(with(makeLine({{100, 50}, {300, 50}}), 2));
        tie(connector->points, box, 1, 2);
        movePoint<MoveLinePointAction>(&figure, box, pointAt(box, 2), 40, 100);
        QCOMPARE(chain(connector), QString("140,100 300,50"));
        figure.undo();
        QCOMPARE(chain(connector), QString("100,50 300,50"));
    }

    // --- links of the moved point -------------------------------------------------------

    void anEndDroppedOnAnOutlineIsLinkedOnce()
    {
        Targets figure;
        FigPoint* end = figure.line->points->next;
        auto* action = movePoint<MoveLinePointAction>(&figure, figure.line, end, 1400, 800, 1);
        QVERIFY(end->link);
        FigLink* link = end->link;
        QCOMPARE(link->targetObjId, 1L);
        QCOMPARE(link->srcPoint, end);
        QCOMPARE(action->connect, 0);
        figure.undo();
        QVERIFY(!end->link);
        QCOMPARE(chain(figure.line), QString("1000,2000 100,200"));
        // The same record again: nothing is searched for a second time.
        figure.redo();
        QCOMPARE(end->link, link);
    }

    // Dropped 4 above the upper side: the end lands on it, and undo still finds its way back.
    void theWayOntoTheOutlineBecomesPartOfTheMove()
    {
        Targets figure;
        FigPoint* end = figure.line->points->next;
        auto* action = movePoint<MoveLinePointAction>(&figure, figure.line, end, 1400, 796, 1);
        QCOMPARE(chain(figure.line), QString("1000,2000 1500,1000"));
        QCOMPARE(action->dy, 800);
        figure.undo();
        QCOMPARE(chain(figure.line), QString("1000,2000 100,200"));
        figure.redo();
        QCOMPARE(chain(figure.line), QString("1000,2000 1500,1000"));
    }

    void aSplineEndIsLinkedAndCorrectedInTheSameWay()
    {
        Targets figure;
        FigPoint* end = figure.spline->points->next->next;
        movePoint<MoveSplinePointAction>(&figure, figure.spline, end, 1100, 96, 1);
        QCOMPARE(chain(figure.spline), QString("1000,1500 500,1500 1500,1000"));
        QVERIFY(end->link);
        figure.undo();
        QVERIFY(!end->link);
        QCOMPARE(chain(figure.spline), QString("1000,1500 500,1500 400,900"));
    }

    void anEndThatIsPulledOffIsFreeAndLinkedAgainByUndo()
    {
        Targets figure;
        FigPoint* end = figure.line->points;
        FigLink* link = tie(end, figure.box, 3, 4);
        auto* action = movePoint<MoveLinePointAction>(&figure, figure.line, end, -500, 0, 1);
        QVERIFY(!end->link);
        QCOMPARE(action->savedLinks, (QList<FigLink*>{link}));
        figure.undo();
        QCOMPARE(end->link, link);
        QVERIFY(action->savedLinks.isEmpty());
        figure.redo();
        QVERIFY(!end->link);
    }

    void anEndMovesFromOneTargetToTheOtherAndBack()
    {
        Targets figure;
        auto* circle = figure.put(
            with(makeEllipse(3, {5000, 5000}, {6000, 5000}, {5000, 5000}, {1000, 1000}), 4));
        FigPoint* end = figure.line->points;
        FigLink* link = tie(end, figure.box, 3, 4);
        movePoint<MoveLinePointAction>(&figure, figure.line, end, 3000, 3000, 1);
        QVERIFY(end->link);
        QCOMPARE(end->link->targetObjId, circle->id);
        QCOMPARE(chain(figure.line), QString("4000,5000 100,200"));
        figure.undo();
        QCOMPARE(end->link, link);
        figure.redo();
        QCOMPARE(end->link->targetObjId, circle->id);
    }

    // An inner point, a corner of a box and the start of a polygon are ends of nothing, though
    // they may come first or last in a chain.
    void onlyTheEndsOfOpenShapesAreLinked()
    {
        Targets figure;
        auto* line = figure.put(with(makeLine({{0, 0}, {100, 200}, {200, 0}}), 4));
        movePoint<MoveLinePointAction>(&figure, line, pointAt(line, 1), 1400, 800, 1);
        QVERIFY(!pointAt(line, 1)->link);
        auto* box = figure.put(with(makeBox(0, 0, 100, 200), 5));
        movePoint<MoveLinePointAction>(&figure, box, box->points, 1500, 1000, 1);
        QVERIFY(!box->points->link);
        auto* polygon = figure.put(with(makeLine({{0, 0}, {9, 0}, {0, 9}, {0, 0}}, T_POLYGON), 6));
        movePoint<MoveLinePointAction>(&figure, polygon, polygon->points, 1500, 1000, 1);
        QVERIFY(!polygon->points->link);
    }

    void withoutTheFlagNothingIsLinked()
    {
        Targets figure;
        FigPoint* end = figure.line->points->next;
        movePoint<MoveLinePointAction>(&figure, figure.line, end, 1400, 800, 0);
        QVERIFY(!end->link);
    }

    // --- points that enter and leave a line -------------------------------------------------

    void aPointEntersALineAndLeavesIt_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<int>("after");
        QTest::addColumn<QString>("with");
        const int line = T_POLYLINE, polygon = T_POLYGON;
        QTest::newRow("inside") << line << 0 << "0,0 7,7 100,0 50,90 0,0";
        QTest::newRow("first") << line << -1 << "7,7 0,0 100,0 50,90 0,0";
        QTest::newRow("last") << line << 3 << "0,0 100,0 50,90 0,0 7,7";
        QTest::newRow("inside a polygon") << polygon << 2 << "0,0 100,0 50,90 7,7 0,0";
        QTest::newRow("first of a polygon") << polygon << -1 << "7,7 0,0 100,0 50,90 7,7";
    }

    void aPointEntersALineAndLeavesIt()
    {
        QFETCH(int, subType);
        QFETCH(int, after);
        QFETCH(QString, with);
        EditedFigure figure;
        auto* line = figure.put(::with(makeLine({{0, 0}, {100, 0}, {50, 90}, {0, 0}}, subType), 1));
        auto* action = actionOn<AddLinePointAction>(line, &figure.top());
        action->afterPoint = pointAt(line, after);
        action->newPoint = new FigPoint(7, 7);
        figure.run(action);
        QCOMPARE(chain(line), with);
        figure.undo();
        QCOMPARE(chain(line), QString("0,0 100,0 50,90 0,0"));
        figure.redo();
        QCOMPARE(chain(line), with);
    }

    void aPointLeavesALineAndComesBack_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("without");
        QTest::newRow("inside") << static_cast<int>(T_POLYLINE) << 1 << "0,0 50,90 0,0";
        QTest::newRow("first") << static_cast<int>(T_POLYLINE) << 0 << "100,0 50,90 0,0";
        QTest::newRow("last") << static_cast<int>(T_POLYLINE) << 3 << "0,0 100,0 50,90";
        QTest::newRow("first of a polygon")
            << static_cast<int>(T_POLYGON) << 0 << "100,0 50,90 100,0";
    }

    void aPointLeavesALineAndComesBack()
    {
        QFETCH(int, subType);
        QFETCH(int, index);
        QFETCH(QString, without);
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{0, 0}, {100, 0}, {50, 90}, {0, 0}}, subType), 1));
        auto* action = actionOn<DeleteLinePointAction>(line, &figure.top());
        action->afterPoint = pointAt(line, index - 1);
        action->point = pointAt(line, index);
        figure.run(action);
        QCOMPARE(chain(line), without);
        figure.undo();
        QCOMPARE(chain(line), QString("0,0 100,0 50,90 0,0"));
        figure.redo();
        QCOMPARE(chain(line), without);
    }

    // Polygons of other programs end somewhere else than they begin.
    void theEndsOfAPolygonThatIsNotClosedComeBack()
    {
        EditedFigure figure;
        auto* line =
            figure.put(with(makeLine({{0, 0}, {100, 0}, {50, 90}, {0, 60}}, T_POLYGON), 1));
        auto* addition = actionOn<AddLinePointAction>(line, &figure.top());
        addition->newPoint = new FigPoint(7, 7);
        figure.run(addition);
        figure.undo();
        QCOMPARE(chain(line), QString("0,0 100,0 50,90 0,60"));
        auto* removal = actionOn<DeleteLinePointAction>(line, &figure.top());
        removal->point = line->points;
        figure.run(removal);
        QCOMPARE(chain(line), QString("100,0 50,90 0,60"));
        figure.undo();
        QCOMPARE(chain(line), QString("0,0 100,0 50,90 0,60"));
    }

    // Also a link of its own, which the sanitizers watch.
    void thePointThatIsOutDiesWithItsAction()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{0, 0}, {100, 0}, {50, 90}}), 1));
        makeLink(line->points, 99);
        auto* removal = actionOn<DeleteLinePointAction>(line, &figure.top());
        removal->point = line->points;
        figure.run(removal);
        auto* addition = actionOn<AddLinePointAction>(line, &figure.top());
        addition->newPoint = new FigPoint(1, 1);
        makeLink(addition->newPoint, 99);
        figure.run(addition);
        figure.undo();
        figure.queue().clearRedoList();
        figure.queue().clearUndoList();
        QCOMPARE(chain(line), QString("100,0 50,90"));
    }

    // The new corner at 3000, 0 divides the upper side; the link is on its first half.
    void aNewPointOnALinkedSegmentGivesTheLinkItsHalf()
    {
        LinkedPolygon figure;
        auto* action = actionOn<AddLinePointAction>(figure.polygon, &figure.top());
        action->afterPoint = figure.polygon->points;
        action->newPoint = new FigPoint(3000, 0);
        figure.run(action);
        QCOMPARE(segment(figure.onUpper), QString("0-1"));
        QCOMPARE(figure.onUpper->targetRightPoint, action->newPoint);
        QCOMPARE(figure.upper->points->link, figure.onUpper);
        QCOMPARE(chain(figure.upper), QString("1500,0 1500,-900"));
        figure.undo();
        QCOMPARE(segment(figure.onUpper), QString("0-1"));
        QCOMPARE(figure.onUpper->targetRightPoint, figure.polygon->points->next);
        QCOMPARE(segment(figure.onLeft), QString("3-4"));
    }

    void aNewPointElsewhereOnlyShiftsTheIndexes()
    {
        LinkedPolygon figure;
        auto* action = actionOn<AddLinePointAction>(figure.polygon, &figure.top());
        action->afterPoint = pointAt(figure.polygon, 1);
        action->newPoint = new FigPoint(7000, 3000);
        figure.run(action);
        QCOMPARE(segment(figure.onUpper), QString("0-1"));
        QCOMPARE(segment(figure.onLeft), QString("4-5"));
        figure.undo();
        QCOMPARE(segment(figure.onLeft), QString("3-4"));
    }

    // An end that stands off the outline is not pulled onto it: undo would leave it there.
    void aNewPointDoesNotMoveTheLinkedEnd()
    {
        LinkedPolygon figure;
        figure.upper->points->y = 4;
        auto* action = actionOn<AddLinePointAction>(figure.polygon, &figure.top());
        action->afterPoint = figure.polygon->points;
        action->newPoint = new FigPoint(3000, 0);
        figure.run(action);
        QCOMPARE(chain(figure.upper), QString("1500,4 1500,-900"));
        QCOMPARE(segment(figure.onUpper), QString("0-1"));
    }

    // Another outline lies nearer to the end by now; its segment is of no use to this link.
    void aSearchThatFindsAnotherTargetChangesNothing()
    {
        LinkedPolygon figure;
        auto* other = with(makeBox(1500, 0, 1600, 100), 9);
        figure.top().prepend(other);
        FigPoint* former = figure.onUpper->targetRightPoint;
        auto* action = actionOn<AddLinePointAction>(figure.polygon, &figure.top());
        action->afterPoint = figure.polygon->points;
        action->newPoint = new FigPoint(3000, -1);
        figure.run(action);
        QCOMPARE(figure.onUpper->targetObjId, 1L);
        QCOMPARE(figure.onUpper->targetRightPoint, former);
        QCOMPARE(segment(figure.onUpper), QString("0-2"));
    }

    void aDeletedCornerHandsItsLinksToItsNeighboursAndTakesThemBack()
    {
        LinkedPolygon figure;
        auto* action = actionOn<DeleteLinePointAction>(figure.polygon, &figure.top());
        action->afterPoint = figure.polygon->points;
        action->point = pointAt(figure.polygon, 1);
        figure.run(action);
        QCOMPARE(segment(figure.onUpper), QString("0-1"));
        QCOMPARE(figure.onUpper->targetRightPoint, pointAt(figure.polygon, 1));
        QCOMPARE(segment(figure.onLeft), QString("2-3"));
        figure.undo();
        QCOMPARE(segment(figure.onUpper), QString("0-1"));
        QCOMPARE(figure.onUpper->targetRightPoint, action->point);
        QCOMPARE(segment(figure.onLeft), QString("3-4"));
    }

    // Only figures from files have links to open lines; there the end of the line takes them away.
    void aLinkThatGoesWithItsPointComesBack()
    {
        EditedFigure figure;
        auto* target = figure.put(with(makeLine({{0, 0}, {100, 0}, {100, 100}}), 1));
        auto* connector = figure.put(with(makeLine({{50, 0}, {50, -90}}), 2));
        tie(connector->points, target, 0, 1);
        auto* action = actionOn<DeleteLinePointAction>(target, &figure.top());
        action->point = target->points;
        for (figure.run(action); figure.queue().undoCount() > 0; figure.undo())
            QVERIFY(!connector->points->link);
        QVERIFY(connector->points->link);
        QCOMPARE(connector->points->link->targetObjId, 1L);
        QCOMPARE(connector->points->link->targetLeftPoint, target->points);
        QCOMPARE(segment(connector->points->link), QString("0-1"));
        figure.redo();
        QVERIFY(!connector->points->link);
    }

    void linksFollowWhenTheCompoundOfTheLineIsClosedByThen()
    {
        EditedFigure figure;
        auto* polygon =
            with(makeLine({{0, 0}, {6000, 0}, {6000, 6000}, {0, 6000}, {0, 0}}, T_POLYGON), 1);
        auto* connector = with(makeLine({{0, 3000}, {-900, 3000}}), 3);
        auto* compound = figure.put(with(makeCompound({polygon, connector}), 5));
        FigLink* link = tie(connector->points, polygon, 3, 4);
        figure.ctx.openCompoundObjects = compound->objects;
        auto* action = actionOn<AddLinePointAction>(polygon, compound->objects);
        action->afterPoint = polygon->points;
        action->newPoint = new FigPoint(3000, 0);
        figure.run(action);
        QCOMPARE(segment(link), QString("4-5"));
        figure.ctx.openCompoundObjects = nullptr;
        figure.undo();
        QCOMPARE(segment(link), QString("3-4"));
        QVERIFY(!figure.ctx.openCompoundObjects);
        figure.redo();
        QCOMPARE(segment(link), QString("4-5"));
    }

    // --- points of splines -----------------------------------------------------------------------

    void aPointOfASplineMovesAndMovesBack()
    {
        EditedFigure figure;
        auto* spline = figure.put(with(makeSpline({{0, 0}, {100, 0}, {200, 0}}), 1));
        movePoint<MoveSplinePointAction>(&figure, spline, pointAt(spline, 1), 5, 7);
        QCOMPARE(chain(spline), QString("0,0 105,7 200,0"));
        figure.undo();
        QCOMPARE(chain(spline), QString("0,0 100,0 200,0"));
    }

    void pointsOfASplineEnterAndLeaveWithTheirFactors_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<int>("index");
        for (int subType : {0, 1, 2, 3})
            for (int index : {0, 1, 2, 3})
                QTest::addRow("sub-type %d, point %d", subType, index) << subType << index;
    }

    void pointsOfASplineEnterAndLeaveWithTheirFactors()
    {
        QFETCH(int, subType);
        QFETCH(int, index);
        EditedFigure figure;
        auto* spline =
            figure.put(with(makeSpline({{0, 0}, {10, 0}, {20, 0}, {30, 0}}, subType), 1));
        search_sfactor(spline, pointAt(spline, 1))->s = 0.25;
        search_sfactor(spline, pointAt(spline, 2))->s = -0.5;
        const QString points = chain(spline), values = factors(spline);

        auto* removal = actionOn<DeleteSplinePointAction>(spline, &figure.top());
        removal->afterPoint = pointAt(spline, index - 1);
        removal->point = pointAt(spline, index);
        figure.run(removal);
        const QString fewer = chain(spline), fewerValues = factors(spline);
        QCOMPARE(fewer.split(' ').size(), 3);
        QCOMPARE(fewerValues.split(' ').size(), 3);
        figure.undo();
        QCOMPARE(chain(spline), points);
        QCOMPARE(factors(spline), values);
        figure.redo();
        QCOMPARE(chain(spline), fewer);
        QCOMPARE(factors(spline), fewerValues);
        figure.undo();

        auto* addition = actionOn<AddSplinePointAction>(spline, &figure.top());
        addition->afterPoint = pointAt(spline, index - 1);
        addition->nextPoint = pointAt(spline, index);
        addition->newPoint = new FigPoint(5, 5);
        figure.run(addition);
        const QString more = chain(spline), moreValues = factors(spline);
        QCOMPARE(moreValues.split(' ').size(), 5);
        figure.undo();
        QCOMPARE(chain(spline), points);
        QCOMPARE(factors(spline), values);
        figure.redo();
        QCOMPARE(chain(spline), more);
        QCOMPARE(factors(spline), moreValues);
    }

    void theEndsOfAnOpenSplineKeepTheFactorZero()
    {
        EditedFigure figure;
        auto* spline = figure.put(with(makeSpline({{0, 0}, {10, 0}, {20, 0}, {30, 0}}, 0), 1));
        auto* action = actionOn<DeleteSplinePointAction>(spline, &figure.top());
        action->afterPoint = pointAt(spline, 2);
        action->point = pointAt(spline, 3);
        figure.run(action);
        QCOMPARE(factors(spline), QString("0 1 0"));
        figure.undo();
        QCOMPARE(factors(spline), QString("0 1 1 0"));
    }

    // They are not 0 in every file, but adding a point makes them so.
    void theEndFactorsOfAFileComeBack()
    {
        EditedFigure figure;
        auto* spline = figure.put(with(makeSpline({{0, 0}, {10, 0}, {20, 0}}, 0), 1));
        spline->sfactors->s = 0.25;
        last_sfactor(spline->sfactors)->s = 0.75;
        auto* addition = actionOn<AddSplinePointAction>(spline, &figure.top());
        addition->afterPoint = pointAt(spline, 2);
        addition->newPoint = new FigPoint(5, 5);
        figure.run(addition);
        QCOMPARE(factors(spline), QString("0.25 1 1 0"));
        figure.undo();
        QCOMPARE(factors(spline), QString("0.25 1 0.75"));
        auto* removal = actionOn<DeleteSplinePointAction>(spline, &figure.top());
        removal->point = spline->points;
        figure.run(removal);
        figure.undo();
        QCOMPARE(factors(spline), QString("0.25 1 0.75"));
    }

    // A change of the factor keeps a pointer into the spline over the point's absence.
    void theFactorOfAPointThatWasAwayIsTheSameNodeAgain()
    {
        EditedFigure figure;
        auto* spline = figure.put(with(makeSpline({{0, 0}, {10, 0}, {20, 0}, {30, 0}}, 0), 1));
        auto* change = actionOn<ChangeShapeFactorAction>(spline, &figure.top());
        change->factor = &search_sfactor(spline, pointAt(spline, 1))->s;
        change->oldValue = *change->factor;
        change->newValue = 0.75;
        figure.run(change);
        auto* removal = actionOn<DeleteSplinePointAction>(spline, &figure.top());
        removal->afterPoint = spline->points;
        removal->point = pointAt(spline, 1);
        figure.run(removal);
        figure.undo();
        QCOMPARE(factors(spline), QString("0 0.75 1 0"));
        QCOMPARE(&search_sfactor(spline, pointAt(spline, 1))->s, change->factor);
        figure.undo();
        QCOMPARE(factors(spline), QString("0 1 1 0"));
        figure.redo();
        QCOMPARE(factors(spline), QString("0 0.75 1 0"));
    }

    void theFactorOfAnAddedPointIsTheSameNodeAgain()
    {
        EditedFigure figure;
        auto* spline = figure.put(with(makeSpline({{0, 0}, {10, 0}, {20, 0}}, 2), 1));
        auto* addition = actionOn<AddSplinePointAction>(spline, &figure.top());
        addition->afterPoint = spline->points;
        addition->nextPoint = pointAt(spline, 1);
        addition->newPoint = new FigPoint(5, 5);
        figure.run(addition);
        double* factor = &search_sfactor(spline, addition->newPoint)->s;
        *factor = 0.5;
        figure.undo();
        QCOMPARE(factors(spline), QString("0 -1 0"));
        figure.redo();
        QCOMPARE(&search_sfactor(spline, addition->newPoint)->s, factor);
        QCOMPARE(factors(spline), QString("0 0.5 -1 0"));
    }

    void splinePointsThatAreOutDieWithTheirActions()
    {
        EditedFigure figure;
        auto* spline = figure.put(with(makeSpline({{0, 0}, {10, 0}, {20, 0}}, 0), 1));
        makeLink(spline->points, 99);
        auto* removal = actionOn<DeleteSplinePointAction>(spline, &figure.top());
        removal->point = spline->points;
        figure.run(removal);
        auto* addition = actionOn<AddSplinePointAction>(spline, &figure.top());
        addition->afterPoint = pointAt(spline, 1);
        addition->newPoint = new FigPoint(5, 5);
        figure.run(addition);
        figure.undo();
        figure.queue().clearRedoList();
        figure.queue().clearUndoList();
        QCOMPARE(chain(spline), QString("10,0 20,0"));
        QCOMPARE(factors(spline), QString("0 0"));
    }

    // --- arcs
    // --------------------------------------------------------------------------------------

    // Through 1000,0, 600,800 and -1000,0 goes the same circle about 0, 0.
    void aPointOfAnArcMovesAndMovesBack()
    {
        EditedFigure figure;
        auto* arc = figure.put(with(makeArc(), 1));
        auto* action = actionOn<MoveArcPointAction>(arc, &figure.top());
        action->number = 2;
        action->dx = -1000;
        action->dy = -1000;
        QVERIFY(action->execute(&figure.ctx));
        figure.queue().addAction(action);
        QCOMPARE(arc->point[2].x, -1000);
        QVERIFY(std::abs(arc->center_x) < 1 && std::abs(arc->center_y) < 1);
        figure.undo();
        QCOMPARE(arc->point[2].x, 0);
        QCOMPARE(arc->point[2].y, 1000);
        QCOMPARE(arc->center_x, 0.0f);
    }

    // That of a file has fewer decimals than the points give.
    void theCentreOfAnArcComesBackToTheLastDecimal()
    {
        EditedFigure figure;
        auto* arc = figure.put(with(makeArc(), 1));
        arc->center_x = 0.125f;
        arc->direction = 1;
        auto* action = actionOn<MoveArcPointAction>(arc, &figure.top());
        action->number = 1;
        action->dx = 100;
        QVERIFY(action->execute(&figure.ctx));
        figure.queue().addAction(action);
        QVERIFY(arc->center_x != 0.125f);
        figure.undo();
        QCOMPARE(arc->center_x, 0.125f);
        QCOMPARE(arc->direction, 1);
    }

    void anArcOnALineIsRefusedAndTheArcStays()
    {
        EditedFigure figure;
        auto* arc = figure.put(with(makeArc(), 1));
        MoveArcPointAction action;
        action.object = arc;
        action.workingList = &figure.top();
        action.number = 1;
        action.dx = -100;
        action.dy = -300;
        QVERIFY(!action.execute(&figure.ctx));
        QCOMPARE(arc->point[1].x, 600);
        QCOMPARE(arc->center_x, 0.0f);
        QVERIFY(!action.undo(&figure.ctx));
        QCOMPARE(arc->point[1].x, 600);
    }

    // --- ellipses
    // -------------------------------------------------------------------------------------

    void anEllipseComesBackWhateverItsSubType_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("moved");
        // center, radii, start, end
        QTest::newRow("by radii") << 1 << 1 << "0,0 107,55 0,0 107,55";
        QTest::newRow("by diameters, end") << 2 << 1 << "3,2 53,27 0,0 107,55";
        QTest::newRow("by diameters, start") << 2 << 0 << "3,2 46,22 7,5 100,50";
        QTest::newRow("by diameters, both") << 2 << -1 << "0,0 57,30 -7,-5 107,55";
        QTest::newRow("circle by radius") << 3 << 1 << "0,0 120,120 0,0 107,55";
        QTest::newRow("circle by diameter") << 4 << 1 << "3,2 59,59 0,0 107,55";
    }

    void anEllipseComesBackWhateverItsSubType()
    {
        QFETCH(int, subType);
        QFETCH(int, number);
        QFETCH(QString, moved);
        EditedFigure figure;
        auto* ellipse =
            figure.put(with(makeEllipse(subType, {0, 0}, {100, 50}, {0, 0}, {100, 50}), 1));
        const QString former = state(ellipse);
        moveEllipse(&figure, ellipse, 7, 5, number);
        QCOMPARE(state(ellipse), moved);
        figure.undo();
        QCOMPARE(state(ellipse), former);
        figure.redo();
        QCOMPARE(state(ellipse), moved);
    }

    // 100 drawn by -150 is 50; the negated move would make 200 of it.
    void aRadiusDrawnThroughZeroComesBack()
    {
        EditedFigure figure;
        auto* ellipse = figure.put(with(makeEllipse(1, {0, 0}, {100, 80}, {0, 0}, {100, 80}), 1));
        moveEllipse(&figure, ellipse, -150, 0, 1);
        QCOMPARE(state(ellipse), QString("0,0 50,80 0,0 -50,80"));
        figure.undo();
        QCOMPARE(state(ellipse), QString("0,0 100,80 0,0 100,80"));
    }

    void connectorsFollowAnEllipseBothWays()
    {
        EditedFigure figure;
        auto* ellipse =
            figure.put(with(makeEllipse(3, {0, 0}, {1000, 0}, {0, 0}, {1000, 1000}), 1));
        auto* connector = figure.put(with(makeLine({{1000, 0}, {9000, 0}}), 2));
        makeLink(connector->points, 1);
        moveEllipse(&figure, ellipse, 1000, 0, 1);
        QCOMPARE(chain(connector), QString("2000,0 9000,0"));
        figure.undo();
        QCOMPARE(chain(connector), QString("1000,0 9000,0"));
    }

    // --- shape factors
    // ------------------------------------------------------------------------------

    void bothDisposalsOfAShapeFactorChangeDeleteItsSavedLinks()
    {
        EditedFigure figure;
        auto* spline = figure.put(with(makeSpline({{0, 0}, {10, 0}, {20, 0}}, 0), 1));
        for (bool undone : {false, true}) {
            auto* change = actionOn<ChangeShapeFactorAction>(spline, &figure.top());
            change->factor = &search_sfactor(spline, pointAt(spline, 1))->s;
            change->oldValue = 1;
            change->newValue = 0.5;
            change->savedLinks.append(new FigLink);
            figure.run(change);
            if (undone)
                figure.undo();
            figure.queue().clearUndoList();
            figure.queue().clearRedoList();
        }
        QCOMPARE(factors(spline), QString("0 1 0"));
    }
};

QTEST_MAIN(TestActionsPoints)
#include "test_actions_points.moc"
