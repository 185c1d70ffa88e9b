// The search by boxes gives what the plain search gives: object, point, smart points.
#include "RandomFigure.h"
#include "SearchFixture.h"
#include "edit/pick_boxes.h"
#include "edit/u_search.h"
#include "model/w_layers.h"

#include <QtTest>

#include <climits>

namespace {

/// Everything that a search gives, as text.
QString resultText(FigObject* found, int px, int py)
{
    QString text = found ? QString("%1 at %2,%3").arg(quintptr(found)).arg(px).arg(py) : "nothing";
    if (smart_points_valid != 0)
        text += QString(" along %1,%2 %3,%4")
                    .arg(smart_point1.x)
                    .arg(smart_point1.y)
                    .arg(smart_point2.x)
                    .arg(smart_point2.y);
    return text;
}

QString plain(CFigContext* ctx, int x, int y)
{
    int px = -7, py = -7;
    FigObject* found = objectSearch(ctx, x, y, &px, &py, nullptr);
    return resultText(found, px, py);
}

QString boxed(PickBoxes& boxes, CFigContext* ctx, int x, int y)
{
    int px = -7, py = -7;
    FigObject* found = boxes.search(ctx, x, y, &px, &py);
    return resultText(found, px, py);
}

/// Positions on and beside what can be hit, most of them near something.
QVector<QPoint> spotsOf(CFigContext* ctx, RandomFigure& random)
{
    QVector<QPoint> spots;
    const int reach = random.between(1, 3) * static_cast<int>(20 / ctx->zoom + 2);
    const auto beside = [&](double x, double y) {
        spots.append(
            QPoint(static_cast<int>(qBound(-2e9, x, 2e9)) + random.between(-reach, reach),
                   static_cast<int>(qBound(-2e9, y, 2e9)) + random.between(-reach, reach)));
    };
    for (FigObject* object : qAsConst(*ctx->getWorkingRoot())) {
        int x1, y1, x2, y2;
        object->getBounds(ctx, &x1, &y1, &x2, &y2, false, false);
        const double share = random.between(0, 100) / 100.0;
        beside(x1, y1 + share * (static_cast<double>(y2) - y1));
        beside(x1 + share * (static_cast<double>(x2) - x1), y2);
        beside((static_cast<double>(x1) + x2) / 2, (static_cast<double>(y1) + y2) / 2);
        if (auto* spline = dynamic_cast<FigSpline*>(object))
            for (const FigPoint* point = spline->points; point; point = point->next)
                beside(point->x, point->y);
        if (auto* arc = dynamic_cast<FigArc*>(object))
            beside(arc->point[1].x, arc->point[1].y);
        if (auto* text = dynamic_cast<FigText*>(object))
            beside(text->x, text->y);
    }
    spots.append(QPoint(random.between(-3000, 20000), random.between(-3000, 20000)));
    return spots;
}

void compareEverywhere(PickBoxes& boxes, CFigContext* ctx, RandomFigure& random, unsigned seed)
{
    for (const QPoint& spot : spotsOf(ctx, random)) {
        const QString expected = plain(ctx, spot.x(), spot.y());
        const QString actual = boxed(boxes, ctx, spot.x(), spot.y());
        QVERIFY2(actual == expected, qPrintable(QString("seed %1 zoom %2 at %3,%4: %5, not %6")
                                                    .arg(seed)
                                                    .arg(ctx->zoom)
                                                    .arg(spot.x())
                                                    .arg(spot.y())
                                                    .arg(actual, expected)));
    }
}

/// Objects without extent or far out.
void addOddObjects(CFigContext* ctx, RandomFigure& random)
{
    FigObjectList& list = ctx->drawing.objects;
    list.append(new FigLine);
    list.append(new FigSpline);
    list.append(new FigArc);
    list.append(new FigEllipse);
    list.append(makeBoxedCompound(0, 0, 0, 0, {}));
    list.append(makeLine({{random.between(0, 9000), 77}}));
    list.append(makeLine({{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}}));
    list.append(makeEllipse(INT_MAX, 0, INT_MAX, 5, 0.5f));
    list.append(makeSpline({{INT_MIN, 0}, {INT_MAX, 5}, {0, INT_MAX}}));
    FigSpline* wild = makeSpline({{0, 0}, {1200, 1200}, {2400, 0}});
    wild->sfactors->next->s = 7.5;
    list.append(wild);
    list.append(makeText(INT_MIN, INT_MAX, 500, 1.0f));
}

} // namespace

class TestPickBoxes : public QObject {
    Q_OBJECT

private slots:
    void boxesGiveWhatThePlainSearchGives_data();
    void boxesGiveWhatThePlainSearchGives();
    void zoomScrollAndLayersMayChangeWithoutADrop();
    void openCompoundIsSearchedInPlaceOfTheDrawing();
    void objectsAddedOrRemovedAreNoticed();
    void droppedBoxesAreTakenAnew();
    void changeOfTheResolutionIsNoticed();
    void firstInTheListWinsWhereverTheBoxesLie();
    void emptyDrawingClearsTheSmartPoints();
    void figureOfManyObjects();
};

void TestPickBoxes::boxesGiveWhatThePlainSearchGives_data()
{
    QTest::addColumn<float>("ppiX");
    QTest::addColumn<float>("ppiY");
    QTest::addColumn<bool>("odd");
    QTest::newRow("80") << 80.0f << 80.0f << false;
    QTest::newRow("80, odd objects") << 80.0f << 80.0f << true;
    QTest::newRow("axes differ") << 96.0f << 72.0f << false;
    QTest::newRow("axes differ much") << 60.0f << 144.0f << true;
}

void TestPickBoxes::boxesGiveWhatThePlainSearchGives()
{
    QFETCH(float, ppiX);
    QFETCH(float, ppiY);
    QFETCH(bool, odd);
    // Objects that reach everywhere are computed at every spot.
    const unsigned figures = odd ? 2 : 8;
    for (unsigned seed = 1; seed <= figures; ++seed) {
        SearchFixture figure;
        RandomFigure random(seed);
        random.fill(figure.ctx);
        if (odd)
            addOddObjects(figure.ctx, random);
        figure.ctx->ppiX = ppiX;
        figure.ctx->ppiY = ppiY;
        PickBoxes boxes;
        for (const float zoom : {1.0f, 0.03f, 0.37f, 3.1f, 20.0f}) {
            figure.ctx->zoom = zoom;
            compareEverywhere(boxes, figure.ctx, random, seed);
            if (QTest::currentTestFailed())
                return;
        }
    }
}

void TestPickBoxes::zoomScrollAndLayersMayChangeWithoutADrop()
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        SearchFixture figure;
        RandomFigure random(seed);
        random.fill(figure.ctx);
        PickBoxes boxes;
        for (int step = 0; step < 8; ++step) {
            figure.ctx->zoom = static_cast<float>(random.between(1, 160)) / 20;
            figure.ctx->shiftX = random.between(-500, 3000);
            figure.ctx->shiftY = random.between(-500, 3000);
            for (bool& active : figure.ctx->active_layers)
                active = !random.oneIn(3);
            compareEverywhere(boxes, figure.ctx, random, seed);
            if (QTest::currentTestFailed())
                return;
        }
    }
}

void TestPickBoxes::openCompoundIsSearchedInPlaceOfTheDrawing()
{
    int opened = 0;
    for (unsigned seed = 1; seed <= 15; ++seed) {
        SearchFixture figure;
        RandomFigure random(seed);
        random.fill(figure.ctx);
        PickBoxes boxes;
        compareEverywhere(boxes, figure.ctx, random, seed);
        for (FigObject* object : qAsConst(figure.ctx->drawing.objects)) {
            auto* compound = dynamic_cast<FigCompound*>(object);
            if (!compound)
                continue;
            figure.ctx->openCompoundObjects = compound->objects;
            compareEverywhere(boxes, figure.ctx, random, seed);
            figure.ctx->openCompoundObjects = nullptr;
            compareEverywhere(boxes, figure.ctx, random, seed);
            ++opened;
        }
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY(opened > 5);
}

void TestPickBoxes::objectsAddedOrRemovedAreNoticed()
{
    SearchFixture figure;
    PickBoxes boxes;
    QCOMPARE(boxed(boxes, figure.ctx, 600, 0), QString("nothing"));
    FigLine* line = figure.add(makeLine({{0, 0}, {1200, 0}}));
    int px, py;
    QCOMPARE(boxes.search(figure.ctx, 600, 0, &px, &py), line);
    figure.ctx->drawing.objects.removeOne(line);
    delete line;
    QVERIFY(!boxes.search(figure.ctx, 600, 0, &px, &py));
}

void TestPickBoxes::droppedBoxesAreTakenAnew()
{
    SearchFixture figure;
    FigLine* line = figure.add(makeLine({{0, 0}, {1200, 0}}));
    PickBoxes boxes;
    int px, py;
    QVERIFY(boxes.search(figure.ctx, 600, 0, &px, &py));
    translate_object(figure.ctx, line, 0, 9000);
    boxes.drop();
    QCOMPARE(boxes.search(figure.ctx, 600, 9000, &px, &py), line);
    QVERIFY(!boxes.search(figure.ctx, 600, 0, &px, &py));
}

void TestPickBoxes::changeOfTheResolutionIsNoticed()
{
    SearchFixture figure;
    FigText* text = figure.add(makeText(3000, 9000, 100)); // the second point: 1500 units above
    PickBoxes boxes;
    int px, py;
    QCOMPARE(boxes.search(figure.ctx, 3000, 7500, &px, &py), text);
    figure.ctx->ppiY = 20.0f;
    QCOMPARE(boxes.search(figure.ctx, 3000, 3000, &px, &py), text);
    QCOMPARE(py, 3000);
}

void TestPickBoxes::firstInTheListWinsWhereverTheBoxesLie()
{
    // More boxes than one group holds, the first object's box far from those after it.
    SearchFixture figure;
    FigLine* first = figure.add(makeLine({{0, 0}, {90000, 90000}}));
    QVector<FigLine*> verticals;
    for (int i = 0; i < 500; ++i)
        verticals.append(figure.add(makeLine({{i * 100, 0}, {i * 100, 90000}})));
    PickBoxes boxes;
    int px, py;
    QCOMPARE(boxes.search(figure.ctx, 20000, 20000, &px, &py), first);
    QCOMPARE(boxes.search(figure.ctx, 20000, 50000, &px, &py), verticals[200]);
}

void TestPickBoxes::emptyDrawingClearsTheSmartPoints()
{
    SearchFixture figure;
    set_smart_points(1, 2, 3, 4);
    PickBoxes boxes;
    QCOMPARE(boxed(boxes, figure.ctx, 600, 0), QString("nothing"));
    QCOMPARE(smart_points_valid, 0);
}

void TestPickBoxes::figureOfManyObjects()
{
    SearchFixture figure;
    RandomFigure random(11);
    for (int i = 0; i < 3000; ++i) {
        const int x = random.between(0, 60000), y = random.between(0, 60000);
        if (random.oneIn(3))
            figure.add(makeEllipse(x, y, random.between(0, 900), random.between(0, 900),
                                   random.oneIn(2) ? 0.7f : 0.0f));
        else if (random.oneIn(10))
            figure.add(makeBoxedCompound(x, y, x + random.between(0, 20000),
                                         y + random.between(-300, 20000), {makeLine({{x, y}})}));
        else
            figure.add(makeLine({{x, y}, {x + random.between(-2000, 2000), y + 300}}));
    }
    PickBoxes boxes;
    int hits = 0;
    for (int i = 0; i < 3000; ++i) {
        const int x = random.between(0, 60000), y = random.between(0, 60000);
        const QString expected = plain(figure.ctx, x, y);
        QCOMPARE(boxed(boxes, figure.ctx, x, y), expected);
        hits += expected != "nothing";
    }
    QVERIFY(hits > 100 && hits < 2900);
}

QTEST_MAIN(TestPickBoxes)
#include "test_pick_boxes.moc"
