// The cheap test of the searches: it may let pass what is no hit, but refuses nothing that is one.
#include "../render/RandomObjects.h"
#include "edit/search_reach.h"
#include "edit/u_search.h"
#include "model/FigContext.h"

#include <QtTest>

#include <memory>

namespace {

/// The exact test of the object's kind, without any cheap one before it.
bool isHit(CFigContext* ctx, FigObject* object, int x, int y, int t)
{
    int px, py, x1, y1, x2, y2;
    FigObjectList list{object};
    switch (object->type) {
    case O_ELLIPSE:
        return isPointOnEllipse(ctx, static_cast<FigEllipse*>(object), x, y, t, &px, &py);
    case O_ARC:
        return isPointOnArc(ctx, static_cast<FigArc*>(object), x, y, t, &px, &py);
    case O_SPLINE:
        return close_to_spline(ctx, static_cast<FigSpline*>(object), x, y, t, &px, &py, &x1, &y1,
                               &x2, &y2);
    default:
        return objectSearch(ctx, &list, x, y, &px, &py, nullptr) != nullptr;
    }
}

/// Where the exact tests may say yes: around what they work with.
QPoint spotBeside(RandomObjects& random, FigObject* object, CFigContext* ctx)
{
    double x = 0, y = 0;
    const double turn = random.real(0, 6.2831853);
    if (auto* arc = dynamic_cast<FigArc*>(object)) {
        const double radius =
            std::hypot(arc->point[0].x - arc->center_x, arc->point[0].y - arc->center_y);
        const double share = random.oneIn(8) ? random.real(0, 1.6) : 1.0;
        x = arc->center_x + share * radius * std::cos(turn);
        y = arc->center_y + share * radius * std::sin(turn);
    } else if (auto* ellipse = dynamic_cast<FigEllipse*>(object)) {
        const double dx = ellipse->radiuses.x * std::cos(turn);
        const double dy = ellipse->radiuses.y * std::sin(turn);
        const double sine = std::sin(ellipse->angle), cosine = std::cos(ellipse->angle);
        x = ellipse->center.x + cosine * dx + sine * dy;
        y = ellipse->center.y - sine * dx + cosine * dy;
    } else {
        int x1, y1, x2, y2;
        object->getBounds(ctx, &x1, &y1, &x2, &y2, false, false);
        x = random.oneIn(3) ? x1 : random.real(x1, std::max(x1 + 1.0, 1.0 * x2));
        y = random.oneIn(3) ? y2 : random.real(y1, std::max(y1 + 1.0, 1.0 * y2));
    }
    const double reach = 40 / ctx->zoom + 2;
    return QPoint(static_cast<int>(qBound(-2e9, x + random.real(-reach, reach), 2e9)),
                  static_cast<int>(qBound(-2e9, y + random.real(-reach, reach), 2e9)));
}

} // namespace

class TestSearchReach : public QObject {
    Q_OBJECT

private slots:
    void nothingThatIsHitIsRefused_data();
    void nothingThatIsHitIsRefused();
    void whatIsFarIsRefused();
};

void TestSearchReach::nothingThatIsHitIsRefused_data()
{
    QTest::addColumn<int>("extent");
    QTest::addColumn<float>("ppiX");
    QTest::addColumn<float>("ppiY");
    for (const int extent : {100, 12000, 300000, 20000000}) {
        QTest::addRow("%d", extent) << extent << 80.0f << 80.0f;
        QTest::addRow("%d, axes differ", extent) << extent << 72.0f << 130.0f;
    }
}

void TestSearchReach::nothingThatIsHitIsRefused()
{
    QFETCH(int, extent);
    CFigContext ctx;
    QFETCH(float, ppiX);
    QFETCH(float, ppiY);
    ctx.ppiX = ppiX;
    ctx.ppiY = ppiY;
    RandomObjects random(static_cast<unsigned>(extent), extent);
    int hits = 0;
    for (int i = 0; i < 1500; ++i) {
        const std::unique_ptr<FigObject> object(random.object(1));
        ctx.zoom = static_cast<float>(std::exp(random.real(-4.6, 4.6)));
        const QPoint at = spotBeside(random, object.get(), &ctx);
        const int t = searchTolerance(&ctx);
        if (!isHit(&ctx, object.get(), at.x(), at.y(), t))
            continue;
        ++hits;
        QVERIFY2(
            SearchSpot(&ctx, at.x(), at.y(), t).mayHit(searchReach(&ctx, object.get())),
            qPrintable(
                QString("object %1 of type %2 at zoom %3").arg(i).arg(object->type).arg(ctx.zoom)));
    }
    QVERIFY2(hits > 150, qPrintable(QString::number(hits)));
}

void TestSearchReach::whatIsFarIsRefused()
{
    CFigContext ctx;
    ctx.zoom = 1.0f;
    RandomObjects random(5, 12000);
    const SearchSpot far(&ctx, 2000000, 2000000, 30);
    for (int i = 0; i < 500; ++i) {
        const std::unique_ptr<FigObject> object(random.object(0));
        QVERIFY(!far.mayHit(searchReach(&ctx, object.get())));
    }
}

QTEST_MAIN(TestSearchReach)
#include "test_search_reach.moc"
