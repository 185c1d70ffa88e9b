// Order of the searches, their tolerance, and what the handlers are told. Expectations are worked
// out by hand.
#include "SearchFixture.h"
#include "edit/u_search.h"
#include "model/w_layers.h"

#include <QtTest>

namespace {

/// What the handlers were told, one line for each call.
QStringList told;
bool handlerResult = true;

bool noteObject(CFigContext*, FigObject* found, int type, int x, int y, int px, int py)
{
    told.append(QString("%1 type %2 at %3,%4 on %5,%6")
                    .arg(found ? found->id : 0)
                    .arg(type)
                    .arg(x)
                    .arg(y)
                    .arg(px)
                    .arg(py));
    return handlerResult;
}

QString pointText(const FigPoint* point)
{
    return point ? QString("%1,%2").arg(point->x).arg(point->y) : "none";
}

bool notePoint(CFigContext*, FigObject* found, int type, int x, int y, int px, int py,
               FigPoint* previous, FigPoint* point, int number)
{
    told.append(QString("%1 type %2 at %3,%4 on %5,%6 from %7 to %8 number %9")
                    .arg(found ? found->id : 0)
                    .arg(type)
                    .arg(x)
                    .arg(y)
                    .arg(px)
                    .arg(py)
                    .arg(pointText(previous), pointText(point))
                    .arg(number));
    return handlerResult;
}

FigObject* search(CFigContext* ctx, int x, int y, FigObject* excluded = nullptr)
{
    int px, py;
    return objectSearch(ctx, x, y, &px, &py, excluded);
}

} // namespace

class TestSearch : public QObject {
    Q_OBJECT

private slots:
    void init();
    void toleranceIsTwoPixelsButAtLeastOneUnit_data();
    void toleranceIsTwoPixelsButAtLeastOneUnit();
    void toleranceGoesByTheHorizontalResolution();
    void kindsAreTriedInTheirOrder();
    void lineWinsOverASplineWhateverTheDepths();
    void firstOfAKindWinsEvenIfALaterOneIsNearer();
    void secondSearchOnTheSameSpotGivesTheSameObject();
    void hiddenLayersAreNeverHit();
    void excludedObjectIsStillFoundByArcCompoundAndText();
    void membersAreFoundOnlyInTheOpenCompound();
    void smartPointsAreClearedWhereNothingIsFound();
    void pointOnTheObjectStaysAloneWhereNothingIsFound();
    void searchOverAListLeavesTheWorkingRootOut();
    void oddObjectsAreNeverHit();
    void leftSearchTellsItsHandler();
    void rightSearchTellsItsOwnHandler();
    void missTellsTheHandlerOfANullLine();
    void searchWithoutHandlerFindsNothing();
    void handlersResultDoesNotMatterToTheObjectSearch();
    void pointSearchTellsItsHandler();
    void pointKindsAreTriedInTheirOrder();
    void pointSearchGivesTheObjectOnlyIfTheHandlerTakesIt();
    void missedPointSearchTellsTheHandlerAndGivesNull();
    void pointSearchWithoutHandlerGivesTheObject();
    void rightPointSearchCallsThePointHandlerInstalledLast();
    void tagObjectTagsAndMakesCurrent();
    void tagObjectMarksOnlyWhatWasNotTagged();
    void alteringHandlerChangesTheTag();
    void handlersTakeANullObject();
};

void TestSearch::init()
{
    told.clear();
    handlerResult = true;
    manipulate_proc = nullptr;
    handlerproc_left = handlerproc_middle = nullptr;
    pointManipulate_proc = pointHandlerproc_left = nullptr;
    smart_points_valid = 0;
}

void TestSearch::toleranceIsTwoPixelsButAtLeastOneUnit_data()
{
    QTest::addColumn<float>("zoom");
    QTest::addColumn<int>("tolerance");
    QTest::newRow("1") << 1.0f << 30;
    QTest::newRow("2") << 2.0f << 15;
    QTest::newRow("half goes up") << 4.0f << 8;
    QTest::newRow("0.1") << 0.1f << 300;
    QTest::newRow("60") << 60.0f << 1;
    QTest::newRow("rounds to nothing") << 61.0f << 1;
    QTest::newRow("99.99") << 99.99f << 1;
}

void TestSearch::toleranceIsTwoPixelsButAtLeastOneUnit()
{
    SearchFixture figure;
    QFETCH(float, zoom);
    figure.ctx->zoom = zoom;
    QTEST(searchTolerance(figure.ctx), "tolerance");
}

void TestSearch::toleranceGoesByTheHorizontalResolution()
{
    SearchFixture figure;
    figure.ctx->ppiX = 160.0f;
    figure.ctx->ppiY = 40.0f;
    QCOMPARE(searchTolerance(figure.ctx), 15);
}

void TestSearch::kindsAreTriedInTheirOrder()
{
    // All six have something at (1200, 1200); the list begins with what is tried last.
    SearchFixture figure;
    figure.add(with(makeText(1200, 1200), O_TEXT));
    figure.add(
        with(makeBoxedCompound(1200, 1200, 2400, 2400, {makeLine({{9000, 9000}})}), O_COMPOUND));
    figure.add(with(makeSpline({{1200, 1200}, {2400, 3600}, {4800, 1200}}), O_SPLINE));
    figure.add(with(makeQuarter(0, 1200, 1200), O_ARC));
    figure.add(with(makeEllipse(1200, 1200, 600, 300), O_ELLIPSE));
    figure.add(with(makeLine({{1200, 1200}, {2400, 1200}}), O_POLYLINE));
    for (const int type : {O_POLYLINE, O_ELLIPSE, O_ARC, O_SPLINE, O_COMPOUND, O_TEXT}) {
        FigObject* found = search(figure.ctx, 1200, 1200);
        QVERIFY(found);
        QCOMPARE(found->id, long(type));
        figure.ctx->drawing.objects.removeOne(found);
        delete found;
    }
    QVERIFY(!search(figure.ctx, 1200, 1200));
}

void TestSearch::lineWinsOverASplineWhateverTheDepths()
{
    for (const int lineDepth : {10, 90}) {
        SearchFixture figure;
        figure.add(with(makeSpline({{0, 1200}, {2400, 1200}}), 1, 50));
        FigLine* line = figure.add(with(makeLine({{1200, 0}, {1200, 2400}}), 2, lineDepth));
        QCOMPARE(search(figure.ctx, 1200, 1200), line);
    }
}

void TestSearch::firstOfAKindWinsEvenIfALaterOneIsNearer()
{
    SearchFixture figure;
    FigLine* first = figure.add(makeLine({{0, 1200}, {2400, 1200}}));
    figure.add(makeLine({{0, 1220}, {2400, 1220}}));
    QCOMPARE(search(figure.ctx, 1200, 1220), first);
}

void TestSearch::secondSearchOnTheSameSpotGivesTheSameObject()
{
    SearchFixture figure;
    FigEllipse* first = figure.add(makeEllipse(1200, 1200, 600, 600));
    figure.add(makeEllipse(1200, 1200, 600, 600));
    QCOMPARE(search(figure.ctx, 1800, 1200), first);
    QCOMPARE(search(figure.ctx, 1800, 1200), first);
}

void TestSearch::hiddenLayersAreNeverHit()
{
    SearchFixture figure;
    int depth = 0;
    for (FigObject* object : QVector<FigObject*>{
             makeLine({{1200, 1200}, {2400, 1200}}), makeEllipse(1200, 1200, 600, 300),
             makeQuarter(0, 1200, 1200), makeSpline({{1200, 1200}, {2400, 3600}, {4800, 1200}}),
             makeBoxedCompound(1200, 1200, 2400, 2400, {with(makeLine({{0, 0}}), 1, 5)}),
             makeText(1200, 1200)}) {
        object->depth = depth++;
        figure.add(object);
    }
    // A compound's own depth does not count, that of its member does.
    figure.ctx->active_layers[4] = false;
    for (const int hidden : {0, 1, 2, 3, 5}) {
        QVERIFY(search(figure.ctx, 1200, 1200));
        figure.hideLayer(hidden);
    }
    QVERIFY(!search(figure.ctx, 1200, 1200));
}

void TestSearch::excludedObjectIsStillFoundByArcCompoundAndText()
{
    const QVector<FigObject*> objects = {
        makeLine({{1200, 1200}, {2400, 1200}}),
        makeEllipse(1200, 1200, 600, 300),
        makeSpline({{1200, 1200}, {2400, 3600}, {4800, 1200}}),
        makeQuarter(0, 1200, 1200),
        makeBoxedCompound(1200, 1200, 2400, 2400, {makeLine({{0, 0}})}),
        makeText(1200, 1200)};
    for (FigObject* object : objects) {
        SearchFixture figure;
        figure.add(object);
        const bool found = search(figure.ctx, 1200, 1200, object) == object;
        const bool ignoresExcluded =
            object->type == O_ARC || object->type == O_COMPOUND || object->type == O_TEXT;
        QCOMPARE(found, ignoresExcluded);
        QCOMPARE(search(figure.ctx, 1200, 1200), object);
    }
}

void TestSearch::membersAreFoundOnlyInTheOpenCompound()
{
    SearchFixture figure;
    FigLine* member = makeLine({{1200, 1200}, {2400, 1200}});
    FigCompound* compound = figure.add(makeBoxedCompound(600, 600, 3600, 3600, {member}));
    QVERIFY(!search(figure.ctx, 1800, 1200));
    QCOMPARE(search(figure.ctx, 600, 1200), compound);
    figure.ctx->openCompoundObjects = compound->objects;
    QCOMPARE(search(figure.ctx, 1800, 1200), member);
    QVERIFY(!search(figure.ctx, 600, 1200));
    figure.ctx->openCompoundObjects = nullptr;
}

void TestSearch::smartPointsAreClearedWhereNothingIsFound()
{
    SearchFixture figure;
    set_smart_points(1, 2, 3, 4);
    QCOMPARE(smart_points_valid, 1);
    QVERIFY(!search(figure.ctx, 1800, 1200));
    QCOMPARE(smart_points_valid, 0);
    QCOMPARE(smart_point1.x, 1);
    QCOMPARE(smart_point2.y, 4);
}

void TestSearch::pointOnTheObjectStaysAloneWhereNothingIsFound()
{
    SearchFixture figure;
    figure.add(makeLine({{0, 0}, {1200, 0}}));
    int px = 17, py = 18;
    QVERIFY(!objectSearch(figure.ctx, 600, 600, &px, &py, nullptr));
    QCOMPARE(px, 17);
    QCOMPARE(py, 18);
}

void TestSearch::searchOverAListLeavesTheWorkingRootOut()
{
    SearchFixture figure;
    figure.add(makeLine({{0, 0}, {1200, 0}}));
    FigText* text = makeText(600, 0);
    OwnedList list{text};
    int px, py;
    QCOMPARE(objectSearch(figure.ctx, &list, 600, 0, &px, &py, nullptr), text);
}

void TestSearch::oddObjectsAreNeverHit()
{
    SearchFixture figure;
    figure.add(new FigLine);
    figure.add(new FigSpline);
    figure.add(makeBoxedCompound(0, 0, 0, 0, {}));
    figure.add(new FigObject);
    QVERIFY(!search(figure.ctx, 0, 0));
    FigArc* arc = figure.add(new FigArc); // no radius: no outline
    QVERIFY(!search(figure.ctx, 0, 0));
    arc->center_x = std::numeric_limits<float>::infinity();
    QVERIFY(!search(figure.ctx, 0, 0));
}

// --- handlers ---------------------------------------------------------------------------

void TestSearch::leftSearchTellsItsHandler()
{
    SearchFixture figure;
    FigLine* line = figure.add(with(makeLine({{0, 0}, {1200, 0}}), 7));
    init_searchproc_left(noteObject);
    QCOMPARE(object_search_left(figure.ctx, 600, 20, nullptr), line);
    QCOMPARE(told, QStringList{"7 type 2 at 600,20 on 600,0"});
    QVERIFY(!object_search_left(figure.ctx, 600, 20, line));
}

void TestSearch::rightSearchTellsItsOwnHandler()
{
    SearchFixture figure;
    figure.add(with(makeText(600, 600), 9));
    init_searchproc_middle(noteObject);
    QVERIFY(!object_search_left(figure.ctx, 600, 620, nullptr));
    QVERIFY(told.isEmpty());
    object_search_middle(figure.ctx, 600, 620, nullptr);
    QCOMPARE(told, QStringList{"9 type 4 at 600,620 on 600,600"});
}

void TestSearch::missTellsTheHandlerOfANullLine()
{
    SearchFixture figure;
    init_searchproc_left(noteObject);
    QVERIFY(!object_search_left(figure.ctx, 600, 20, nullptr));
    QCOMPARE(told, QStringList{"0 type 2 at 600,20 on 0,0"});
}

void TestSearch::searchWithoutHandlerFindsNothing()
{
    SearchFixture figure;
    figure.add(makeLine({{0, 0}, {1200, 0}}));
    QVERIFY(!do_object_search(figure.ctx, 600, 0, nullptr));
}

void TestSearch::handlersResultDoesNotMatterToTheObjectSearch()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{0, 0}, {1200, 0}}));
    handlerResult = false;
    manipulate_proc = noteObject;
    QCOMPARE(do_object_search(figure.ctx, 600, 0, nullptr), line);
}

void TestSearch::pointSearchTellsItsHandler()
{
    SearchFixture figure;
    FigLine* line = figure.add(with(makeLine({{0, 0}, {1200, 0}, {1200, 600}}), 7));
    initPoint_searchproc_left(notePoint);
    QCOMPARE(point_search_left(figure.ctx, 1210, 20), line);
    QCOMPARE(told, QStringList{"7 type 2 at 1210,20 on 1200,0 from 0,0 to 1200,0 number 0"});
}

void TestSearch::pointKindsAreTriedInTheirOrder()
{
    SearchFixture figure;
    figure.add(with(makeText(1200, 1200), 4));
    figure.add(with(makeBoxedCompound(1200, 0, 2400, 1200, {makeLine({{9000, 9000}})}), 6));
    figure.add(with(makeSpline({{0, 0}, {1200, 1200}, {4800, 1200}}), 3));
    figure.add(with(makeQuarter(1200, 2400, 1200), 5));
    figure.add(with(makeEllipse(600, 900, 600, 300), 1));
    figure.add(with(makeLine({{1200, 1200}, {2400, 1200}}), 2));
    initPoint_searchproc_left(notePoint);
    while (FigObject* found = point_search_left(figure.ctx, 1200, 1200)) {
        figure.ctx->drawing.objects.removeOne(found);
        delete found;
    }
    QCOMPARE(told,
             (QStringList{"2 type 2 at 1200,1200 on 1200,1200 from none to 1200,1200 number 0",
                          "1 type 1 at 1200,1200 on 1200,1200 from 600,900 to 1200,1200 number 1",
                          "5 type 5 at 1200,1200 on 1200,1200 from 2048,1552 to 1200,1200 number 2",
                          "3 type 3 at 1200,1200 on 1200,1200 from 0,0 to 1200,1200 number 0",
                          "6 type 6 at 1200,1200 on 1200,1200 from none to none number 1",
                          "0 type 2 at 1200,1200 on 0,0 from none to none number 0"}));
}

void TestSearch::pointSearchGivesTheObjectOnlyIfTheHandlerTakesIt()
{
    SearchFixture figure;
    figure.add(makeLine({{0, 0}, {1200, 0}}));
    pointManipulate_proc = notePoint;
    handlerResult = false;
    QVERIFY(!do_point_search(figure.ctx, 0, 0));
    QCOMPARE(told.size(), 1);
}

void TestSearch::missedPointSearchTellsTheHandlerAndGivesNull()
{
    SearchFixture figure;
    pointManipulate_proc = notePoint;
    for (const bool result : {true, false}) {
        handlerResult = result;
        QVERIFY(!do_point_search(figure.ctx, 5, 6));
    }
    const QString null = "0 type 2 at 5,6 on 0,0 from none to none number 0";
    QCOMPARE(told, (QStringList{null, null}));
}

void TestSearch::pointSearchWithoutHandlerGivesTheObject()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{0, 0}, {1200, 0}}));
    QCOMPARE(do_point_search(figure.ctx, 0, 0), line);
    QVERIFY(!do_point_search(figure.ctx, 600, 0));
}

void TestSearch::rightPointSearchCallsThePointHandlerInstalledLast()
{
    SearchFixture figure;
    figure.add(with(makeLine({{0, 0}, {1200, 0}}), 7));
    init_searchproc_middle(noteObject);
    initPoint_searchproc_left(notePoint);
    point_search_middle(figure.ctx, 0, 0); // no left point search yet: nobody is told
    QVERIFY(told.isEmpty());
    QVERIFY(manipulate_proc == noteObject);
    point_search_left(figure.ctx, 0, 0);
    point_search_middle(figure.ctx, 0, 0);
    QCOMPARE(told.size(), 2);
    QCOMPARE(told[1], told[0]);
}

// --- tags ---------------------------------------------------------------------------------

void TestSearch::tagObjectTagsAndMakesCurrent()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{0, 0}, {1200, 0}}));
    QVERIFY(tag_object(figure.ctx, line, O_POLYLINE, 0, 0, 0, 0));
    QVERIFY(line->tagged);
    QCOMPARE(line->marked, 2);
    QCOMPARE(figure.ctx->curObject, line);
}

void TestSearch::tagObjectMarksOnlyWhatWasNotTagged()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{0, 0}, {1200, 0}}));
    line->tagged = true;
    tag_object(figure.ctx, line, O_POLYLINE, 0, 0, 0, 0);
    QCOMPARE(line->marked, 0);
    QCOMPARE(figure.ctx->curObject, line);
}

void TestSearch::alteringHandlerChangesTheTag()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{0, 0}, {1200, 0}}));
    QVERIFY(tag_object_alter(figure.ctx, line, O_POLYLINE, 0, 0, 0, 0));
    QVERIFY(line->tagged);
    QCOMPARE(line->marked, 2);
    QVERIFY(tag_object_alter(figure.ctx, line, O_POLYLINE, 0, 0, 0, 0));
    QVERIFY(!line->tagged);
    QCOMPARE(line->marked, 0);
    QVERIFY(!figure.ctx->curObject);
}

void TestSearch::handlersTakeANullObject()
{
    SearchFixture figure;
    QVERIFY(!tag_object(figure.ctx, nullptr, O_POLYLINE, 0, 0, 0, 0));
    QVERIFY(!tag_object_alter(figure.ctx, nullptr, O_POLYLINE, 0, 0, 0, 0));
}

QTEST_MAIN(TestSearch)
#include "test_u_search.moc"
