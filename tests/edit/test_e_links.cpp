// Positions are worked out by hand. At zoom 1 and 80 pixels per inch the tolerance is 30 units.
#include "LinkFixture.h"
#include "model/objectwalk.h"

#include <random>

namespace {

/// Objects at (1000, 1000), but for the first, that nothing is linked to.
FigObject* unlinkable(int kind)
{
    switch (kind) {
    case 0:
        return makeBox(9000, 0, 9900, 900);
    case 1:
        return makeLine({{500, 1000}, {1500, 1000}});
    case 2:
        return makeSpline({{500, 1000}, {1500, 1000}}, 2);
    default:
        auto* text = new FigText;
        text->x = text->y = 1000;
        return text;
    }
}

/// Targets and sources side by side on a small sheet, every fifth in a compound.
void crowd(EditedFigure* figure, unsigned seed)
{
    std::mt19937 bits(seed);
    const auto place = [&bits] { return static_cast<int>(bits() % 4000); };
    for (int i = 1; i <= 200; ++i) {
        FigObject* object = nullptr;
        const int x = place(), y = place();
        switch (bits() % 5) {
        case 0:
            object = makeBox(x, y, x + 600, y + 300);
            break;
        case 1:
            object = makeEllipse(x, y, 400, 200);
            break;
        case 2:
            object = makeSpline({{x, y}, {x + 500, y}, {x, y + 500}}, bits() % 2 ? 1 : 3);
            break;
        case 3:
            object = makeSpline({{x, y}, {x + 500, y}, {place(), place()}}, bits() % 2 ? 0 : 2);
            break;
        default:
            object = makeLine({{x, y}, {place(), place()}});
        }
        object = with(object, i);
        figure->put(i % 5 ? object : with(makeCompound({object}), 1000 + i));
    }
}

QStringList linksAndEnds(const FigLinkList& links)
{
    QStringList all;
    for (const FigLink* link : links)
        all.append(told(link) + " at " + at(link->srcPoint));
    return all;
}

} // namespace

class TestLinks : public QObject {
    Q_OBJECT

private slots:
    void onlyOpenLinesAndOpenSplinesAreSources_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subType");
        QTest::addColumn<bool>("source");
        QTest::addColumn<bool>("target");
        const int table[][4] = {
            {O_POLYLINE, T_POLYLINE, 1, 0},
            {O_POLYLINE, T_BOX, 0, 1},
            {O_POLYLINE, T_POLYGON, 0, 1},
            {O_POLYLINE, T_ARCBOX, 0, 1},
            {O_POLYLINE, T_PICTURE, 0, 1},
            {O_SPLINE, 0, 1, 0},
            {O_SPLINE, 1, 0, 1},
            {O_SPLINE, 2, 1, 0},
            {O_SPLINE, 3, 0, 1},
            {O_SPLINE, 4, 0, 0},
            {O_SPLINE, 5, 0, 0},
            {O_ELLIPSE, 1, 0, 1},
            {O_ELLIPSE, 4, 0, 1},
            {O_ARC, 0, 0, 0},
            {O_ARC, 1, 0, 0},
            {O_TEXT, 0, 0, 0},
            {O_COMPOUND, 0, 0, 0},
        };
        for (const auto& row : table)
            QTest::addRow("type %d, sub-type %d", row[0], row[1])
                << row[0] << row[1] << bool(row[2]) << bool(row[3]);
    }

    void onlyOpenLinesAndOpenSplinesAreSources()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        FigObject object;
        object.type = type;
        object.sub_type = subType;
        QTEST(isLinkableSourceObject(&object), "source");
        QTEST(isLinkableTargetObject(&object), "target");
    }

    void nothingIsNeitherSourceNorTarget()
    {
        QVERIFY(!isLinkableSourceObject(nullptr));
        QVERIFY(!isLinkableTargetObject(nullptr));
    }

    void connectionToABoxKnowsTheSegment()
    {
        EditedFigure figure;
        FigLine* box = figure.put(with(makeBox(1200, 1200, 2400, 2400), 1));
        FigLine* line = figure.put(with(makeLine({{1800, 1190}, {1800, 300}}), 2));
        FigPoint* point = line->points;
        point->link = makeConnection(&figure.ctx, &figure.top(), point, line);
        QCOMPARE(told(point->link), QString("1 0-1"));
        QCOMPARE(point->link->targetLeftPoint, box->points);
        QCOMPARE(point->link->targetRightPoint, box->points->next);
        QCOMPARE(point->link->srcPoint, point);
        QVERIFY(!point->link->flag);
        QCOMPARE(at(point), QString("1800,1200"));
    }

    void closingSegmentEndsAtTheFirstPoint()
    {
        EditedFigure figure;
        FigLine* box = figure.put(with(makeBox(1200, 1200, 2400, 2400), 1));
        FigLine* line = figure.put(with(makeLine({{300, 1800}, {1195, 1800}}), 2));
        FigPoint* point = lastOf(line);
        point->link = makeConnection(&figure.ctx, &figure.top(), point, line);
        QCOMPARE(told(point->link), QString("1 3-0"));
        QCOMPARE(point->link->targetRightPoint, box->points);
        QCOMPARE(at(point), QString("1200,1800"));
    }

    void connectionToAnEllipseHasNoSegment()
    {
        EditedFigure figure;
        figure.put(with(makeEllipse(5000, 5000, 1000, 500), 1));
        FigLine* line = figure.put(with(makeLine({{6010, 5000}, {8000, 5000}}), 2));
        FigPoint* point = line->points;
        point->link = makeConnection(&figure.ctx, &figure.top(), point, line);
        QCOMPARE(told(point->link), QString("1 -1--1"));
        QVERIFY(!point->link->targetLeftPoint && !point->link->targetRightPoint);
        QCOMPARE(at(point), QString("6000,5000"));
    }

    void connectionToAClosedSplineHasNoSegment()
    {
        EditedFigure figure;
        figure.put(
            with(makeSpline({{5000, 5000}, {7000, 5000}, {7000, 7000}, {5000, 7000}}, 3), 1));
        // An interpolated spline goes through its points.
        FigSpline* source = figure.put(with(makeSpline({{7000, 5000}, {9000, 4000}}), 2));
        FigPoint* point = source->points;
        point->link = makeConnection(&figure.ctx, &figure.top(), point, source);
        QCOMPARE(told(point->link), QString("1 -1--1"));
        QVERIFY(qAbs(point->x - 7000) <= 30 && qAbs(point->y - 5000) <= 30);
    }

    void nothingLinkableMakesNoConnection_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("nothing near") << 0;
        QTest::newRow("open line") << 1;
        QTest::newRow("open spline") << 2;
        QTest::newRow("text") << 3;
    }

    void nothingLinkableMakesNoConnection()
    {
        QFETCH(int, kind);
        EditedFigure figure;
        figure.put(with(unlinkable(kind), 1));
        FigLine* line = figure.put(with(makeLine({{1000, 1000}, {0, 0}}), 2));
        QVERIFY(!makeConnection(&figure.ctx, &figure.top(), line->points, line));
        int x = 1000, y = 1000;
        QVERIFY(!checkForConnection(&figure.ctx, &x, &y, line));
        QCOMPARE(at(line->points), QString("1000,1000"));
        QCOMPARE(x, 1000);
        QCOMPARE(y, 1000);
    }

    void firstHitDecidesEvenIfItMayNotBeLinkedTo()
    {
        EditedFigure figure;
        figure.put(with(makeLine({{1200, 1800}, {5000, 1800}}), 1));
        figure.put(with(makeBox(1200, 1200, 2400, 2400), 2));
        FigLine* line = figure.put(with(makeLine({{1200, 1800}, {0, 0}}), 3));
        QVERIFY(!makeConnection(&figure.ctx, &figure.top(), line->points, line));
    }

    void aLineIsNotLinkedToItself()
    {
        EditedFigure figure;
        FigLine* line = figure.put(with(makeLine({{1000, 1000}, {2000, 2000}}), 1));
        QVERIFY(!makeConnection(&figure.ctx, &figure.top(), line->points, line));
        int x = 1500, y = 1500;
        QVERIFY(!checkForConnection(&figure.ctx, &x, &y, line));
    }

    void anObjectWithTheIdOfTheSourceIsNoTarget()
    {
        EditedFigure figure;
        figure.put(with(makeBox(1200, 1200, 2400, 2400), 7));
        FigLine* line = figure.put(with(makeLine({{1200, 1800}, {0, 0}}), 7));
        QVERIFY(!makeConnection(&figure.ctx, &figure.top(), line->points, line));
        int x = 1200, y = 1800;
        QVERIFY(!checkForConnection(&figure.ctx, &x, &y, line));
    }

    // A connection excludes its source, the check on release does not: over the source's own
    // outline a release connects to nothing, whatever else lies there.
    void aReleaseOverTheOwnOutlineIsNotPulled()
    {
        EditedFigure figure;
        FigLine* line = figure.put(with(makeLine({{0, 1800}, {1200, 1800}, {3000, 1800}}), 1));
        figure.put(with(makeBox(1200, 1200, 2400, 2400), 2));
        int x = 1190, y = 1810;
        QVERIFY(!checkForConnection(&figure.ctx, &x, &y, line));
        QCOMPARE(x, 1190);
        FigPoint end(1190, 1810);
        FigLink* link = makeConnection(&figure.ctx, &figure.top(), &end, line);
        QCOMPARE(told(link), QString("2 3-0"));
        delete link;
    }

    void checkPullsAPositionOntoTheOutline()
    {
        EditedFigure figure;
        figure.put(with(makeBox(1200, 1200, 2400, 2400), 1));
        FigLine* line = figure.put(with(makeLine({{0, 0}, {100, 100}}), 2));
        int x = 2420, y = 2000;
        QVERIFY(checkForConnection(&figure.ctx, &x, &y, line));
        QCOMPARE(x, 2400);
        QCOMPARE(y, 2000);
    }

    void checkLooksInTheOpenCompoundOnly()
    {
        EditedFigure figure;
        figure.put(with(makeBox(1200, 1200, 2400, 2400), 1));
        auto* inside = with(makeBox(5000, 5000, 6000, 6000), 2);
        FigCompound* compound = figure.put(with(makeCompound({inside}), 3));
        FigLine line;
        int x = 1200, y = 1800;
        figure.ctx.openCompoundObjects = compound->objects;
        QVERIFY(!checkForConnection(&figure.ctx, &x, &y, &line));
        x = 5000, y = 5500;
        QVERIFY(checkForConnection(&figure.ctx, &x, &y, &line));
    }

    void searchEntersCompounds()
    {
        EditedFigure figure;
        auto* box = with(makeBox(1200, 1200, 2400, 2400), 1);
        figure.put(with(makeCompound({with(makeCompound({box}), 3)}), 2));
        FigLine* line = figure.put(with(makeLine({{1200, 1800}, {0, 0}}), 4));
        FigLinkList found;
        searchForLinks(&figure.ctx, line, line->points, &figure.top(), &found);
        QCOMPARE(told(line->points->link), QString("1 3-0"));
        QCOMPARE(found, FigLinkList{line->points->link});
    }

    void firstSuccessInListOrderEndsTheSearch()
    {
        for (const bool compoundFirst : {true, false}) {
            EditedFigure figure;
            auto* inner = with(makeBox(1200, 1200, 2400, 2400), 1);
            auto* outer = with(makeBox(1200, 1200, 2400, 2400), 2);
            auto* compound = with(makeCompound({inner}), 3);
            figure.put(compoundFirst ? static_cast<FigObject*>(compound) : outer);
            figure.put(compoundFirst ? static_cast<FigObject*>(outer) : compound);
            FigLine* line = figure.put(with(makeLine({{1200, 1800}, {0, 0}}), 4));
            FigLinkList found;
            searchForLinks(&figure.ctx, line, line->points, &figure.top(), &found);
            QCOMPARE(line->points->link->targetObjId, compoundFirst ? 1L : 2L);
            QCOMPARE(found.size(), 1);
        }
    }

    void bothEndsOfEachSourceAreLinked()
    {
        EditedFigure figure;
        figure.put(with(makeBox(1200, 1200, 2400, 2400), 1));
        figure.put(with(makeEllipse(5000, 1800, 600, 600), 2));
        FigLine* line = figure.put(with(makeLine({{2405, 1800}, {3000, 1200}, {4395, 1800}}), 3));
        FigLinkList found;
        createSmartLinks(&figure.ctx, &figure.top(), &figure.top(), &found);
        QCOMPARE(chain(line), QString("2400,1800 3000,1200 4400,1800"));
        QCOMPARE(told(line->points->link), QString("1 1-2"));
        QCOMPARE(told(lastOf(line)->link), QString("2 -1--1"));
        QVERIFY(!line->points->next->link);
        QCOMPARE(found, (FigLinkList{line->points->link, lastOf(line)->link}));
    }

    void sourcesInCompoundsAreLinkedToTheWholeList()
    {
        EditedFigure figure;
        figure.put(with(makeBox(1200, 1200, 2400, 2400), 1));
        auto* line = with(makeLine({{1200, 1800}, {0, 0}}), 2);
        figure.put(with(makeCompound({line}), 3));
        FigLinkList found;
        createSmartLinks(&figure.ctx, &figure.top(), &figure.top(), &found);
        QCOMPARE(told(line->points->link), QString("1 3-0"));
    }

    void aDotIsLinkedOnce()
    {
        EditedFigure figure;
        figure.put(with(makeBox(1200, 1200, 2400, 2400), 1));
        FigLine* dot = figure.put(with(makeLine({{1200, 1800}}), 2));
        FigLinkList found;
        createSmartLinks(&figure.ctx, &figure.top(), &figure.top(), &found);
        QCOMPARE(found, FigLinkList{dot->points->link});
    }

    void emptyOutlinesAreNotLinked()
    {
        EditedFigure figure;
        figure.put(with(new FigLine, 1))->sub_type = T_POLYLINE;
        figure.put(with(makeBox(0, 0, 9, 9), 2));
        FigLinkList found;
        createSmartLinks(&figure.ctx, &figure.top(), &figure.top(), &found);
        QVERIFY(found.isEmpty());
    }

    /// Many ends on many outlines, in compounds too: links and places are those that a search for
    /// each end gives.
    void linksOfADrawingAreThoseOfOneSearchPerEnd()
    {
        int linksFound = 0;
        for (unsigned seed = 1; seed <= 60; ++seed) {
            EditedFigure whole, oneByOne;
            crowd(&whole, seed);
            crowd(&oneByOne, seed);
            whole.ctx.zoom = oneByOne.ctx.zoom = seed % 3 == 0 ? 0.2f : 1.0f;
            FigLinkList found, expected;
            createSmartLinks(&whole.ctx, &whole.top(), &whole.top(), &found);
            objectwalk::visitAll(&oneByOne.top(), [&](FigObject* object) {
                if (!isLinkableSourceObject(object))
                    return;
                FigPoint* first = objectwalk::asPath(object)->points;
                for (FigPoint* end : {first, last_point(first)})
                    searchForLinks(&oneByOne.ctx, object, end, &oneByOne.top(), &expected);
            });
            QCOMPARE(linksAndEnds(found), linksAndEnds(expected));
            linksFound += found.size();
        }
        QVERIFY(linksFound > 600);
    }

    // The first line's end is put onto the box, where it is in the way of the second line's.
    void anEndThatWasLinkedIsFoundWhereItLiesNow()
    {
        EditedFigure figure;
        FigLine* first = figure.put(with(makeLine({{0, 0}, {1171, 1800}}), 1));
        figure.put(with(makeBox(1200, 1200, 2400, 2400), 2));
        FigLine* second = figure.put(with(makeLine({{1230, 1800}, {5000, 5000}}), 3));
        FigLinkList found;
        createSmartLinks(&figure.ctx, &figure.top(), &figure.top(), &found);
        QCOMPARE(at(lastOf(first)), QString("1200,1800"));
        QVERIFY(!second->points->link);
        QCOMPARE(found.size(), 1);
    }

    void linksOfAllLevelsAreCollectedInOrder()
    {
        EditedFigure figure;
        FigLine* first = figure.put(with(makeLine({{0, 0}, {1, 1}}), 1));
        auto* second = with(makeSpline({{0, 0}, {1, 1}, {2, 2}}), 2);
        figure.put(with(makeCompound({second}), 3));
        FigLink* a = makeLink(first->points->next, 9);
        FigLink* b = makeLink(second->points, 9);
        FigLink* c = makeLink(lastOf(second), 9);
        FigLinkList all, own;
        getAllLinks(&figure.top(), &all);
        QCOMPARE(all, (FigLinkList{a, b, c}));
        getAllLinks(static_cast<FigPath*>(second), &own);
        getLinksInObject(first, &own);
        QCOMPARE(own, (FigLinkList{b, c, a}));
    }

    void keptLinksComeBackToTheirPoints()
    {
        EditedFigure figure;
        FigLine* line = figure.put(with(makeLine({{0, 0}, {1, 1}}), 1));
        FigLink* link = makeLink(line->points, 9);
        FigLinkList links{nullptr, link};
        FigLink loose;
        links.append(&loose);
        removeAllLinks(&figure.top(), true);
        QVERIFY(!line->points->link);
        restoreLinks(&links);
        QCOMPARE(line->points->link, link);
        removeAllLinks(&links, true);
        QVERIFY(!line->points->link);
        restoreLinks(&links);
        removeAllLinks(static_cast<FigPath*>(line), true);
        QVERIFY(!line->points->link);
        restoreLinks(&links);
    }

    void linksThatAreNotKeptAreDeleted()
    {
        EditedFigure figure;
        FigLine* line = figure.put(with(makeLine({{0, 0}, {1, 1}, {2, 2}}), 1));
        makeLink(line->points, 9);
        removeAllLinks(static_cast<FigPath*>(line), false);
        makeLink(line->points->next, 9);
        removeAllLinks(&figure.top(), false);
        FigLinkList links{makeLink(lastOf(line), 9)};
        removeAllLinks(&links, false);
        for (FigPoint* point = line->points; point; point = point->next)
            QVERIFY(!point->link);
    }

    void aPointWithANewerLinkKeepsIt()
    {
        FigPoint point;
        FigLink former, newer;
        former.srcPoint = newer.srcPoint = &point;
        point.link = &newer;
        FigLinkList links{&former};
        removeAllLinks(&links, true);
        QCOMPARE(point.link, &newer);
    }

    void indexesFollowThePoints()
    {
        EditedFigure figure;
        FigLine* box = figure.put(with(makeBox(0, 0, 900, 900), 1));
        FigLine* line = figure.put(with(makeLine({{0, 0}, {1, 1}, {2, 2}}), 2));
        FigLink* link = makeLink(line->points, 1, 7, 8);
        link->targetLeftPoint = box->getPoint(3);
        link->targetRightPoint = box->points;
        FigLink* without = makeLink(lastOf(line), 1, 4, 5);
        FigPointList points{line->points, line->points->next, lastOf(line)};
        updateLinkLRPointIndex(&points, box);
        QCOMPARE(told(link), QString("1 3-0"));
        QCOMPARE(told(without), QString("1 -1--1"));
    }

    void nothingToWalkIsNoHarm()
    {
        EditedFigure figure;
        FigPoint point;
        FigLinkList links;
        FigLine line;
        searchForLinks(&figure.ctx, &line, &point, nullptr, &links);
        createSmartLinks(&figure.ctx, nullptr, nullptr, &links);
        getAllLinks(static_cast<FigObjectList*>(nullptr), &links);
        removeAllLinks(static_cast<FigObjectList*>(nullptr), false);
        removeAllLinks(static_cast<FigPath*>(nullptr), false);
        removeAllLinks(static_cast<FigLinkList*>(nullptr), false);
        restoreLinks(nullptr);
        QVERIFY(!makeConnection(&figure.ctx, nullptr, &point, nullptr));
        QVERIFY(links.isEmpty());
    }

    void linkingTheDrawingIsTakenBackAndDoneAgain()
    {
        EditedFigure figure;
        figure.put(with(makeBox(1200, 1200, 2400, 2400), 1));
        FigLine* line = figure.put(with(makeLine({{1200, 1800}, {0, 0}}), 2));
        FigLink* former = makeLink(lastOf(line), 1, 0, 1);
        figure.run(new CreateSmartLinksForDrawingAction(&figure.top()));
        QCOMPARE(told(line->points->link), QString("1 3-0"));
        QVERIFY(!lastOf(line)->link);
        figure.undo();
        QVERIFY(!line->points->link);
        QCOMPARE(lastOf(line)->link, former);
        figure.redo();
        QCOMPARE(told(line->points->link), QString("1 3-0"));
        QVERIFY(!lastOf(line)->link);
    }
};

QTEST_GUILESS_MAIN(TestLinks)
#include "test_e_links.moc"
