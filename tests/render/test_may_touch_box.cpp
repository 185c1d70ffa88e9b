// The cheap box must hold the exact bounds of whatever object at whatever zoom.
#include "RandomObjects.h"

#include "model/preferences.h"
#include "render/Font.h"
#include "render/u_bound.h"
#include "render/u_redraw.h"

#include <QtTest>

#include <climits>
#include <memory>

namespace {

constexpr float zooms[] = {0.01f, 0.037f, 0.1f, 0.5f, 1.0f, 1.7f, 4.0f, 25.0f, 99.99f};

struct Box {
    int xmin, ymin, xmax, ymax;
};

Box exactBounds(CFigContext& ctx, FigObject& object)
{
    Box box;
    object.getBounds(&ctx, &box.xmin, &box.ymin, &box.xmax, &box.ymax, true, true);
    return box;
}

int saturate(long value)
{
    return int(std::clamp<long>(value, INT_MIN, INT_MAX));
}

/// Small boxes at a distance from the bounds, on each side and off two corners.
QVector<Box> probesAround(const Box& bounds, int gap)
{
    const int left = saturate(bounds.xmin - long(gap)), right = saturate(bounds.xmax + long(gap));
    const int top = saturate(bounds.ymin - long(gap)), bottom = saturate(bounds.ymax + long(gap));
    const int midX = saturate((long(left) + right) / 2), midY = saturate((long(top) + bottom) / 2);
    return {{left, midY, left, midY}, {right, midY, right, midY},
            {midX, top, midX, top},   {midX, bottom, midX, bottom},
            {left, top, left, top},   {right, bottom, right, bottom},
            {midX, midY, midX, midY}};
}

bool mayTouch(CFigContext& ctx, FigObject& object, const Box& box)
{
    return mayTouchBox(&ctx, &object, box.xmin, box.ymin, box.xmax, box.ymax);
}

bool overlaps(CFigContext& ctx, const Box& a, const Box& b)
{
    return check_overlap(&ctx, a.xmin, a.ymin, a.xmax, a.ymax, b.xmin, b.ymin, b.xmax, b.ymax);
}

std::unique_ptr<FigText> measuredText(CFigContext& ctx)
{
    auto text = std::make_unique<FigText>();
    text->cstring = QStringLiteral("text");
    pf_textwidth(&ctx, text.get(), ctx.zoom);
    return text;
}

} // namespace

class TestMayTouchBox : public QObject {
    Q_OBJECT

private slots:
    void whatExactBoundsOverlapIsNeverRejected_data()
    {
        QTest::addColumn<int>("extent");
        QTest::addColumn<float>("ppiX");
        QTest::addColumn<float>("ppiY");
        QTest::newRow("dense") << 600 << 80.0f << 80.0f;
        QTest::newRow("page") << 15000 << 80.0f << 80.0f;
        QTest::newRow("poster") << 2000000 << 80.0f << 80.0f;
        QTest::newRow("font dpi") << 15000 << 72.0f << 72.0f;
        QTest::newRow("uneven screen") << 15000 << 96.0f << 120.0f;
        QTest::newRow("uneven the other way") << 15000 << 120.0f << 80.0f;
        QTest::newRow("hostile") << 2000000000 << 80.0f << 80.0f;
    }

    void whatExactBoundsOverlapIsNeverRejected()
    {
        QFETCH(int, extent);
        CFigContext ctx;
        QFETCH(float, ppiX);
        QFETCH(float, ppiY);
        ctx.ppiX = ppiX;
        ctx.ppiY = ppiY;
        // The last of them just touches where the margins of both boxes are this wide.
        const int margins = 2 * qRound(4 * 1200 / std::max(ppiX, ppiY));
        int overlapping = 0;
        for (unsigned seed = 1; seed <= 2500; ++seed) {
            RandomObjects random(seed, extent);
            std::unique_ptr<FigObject> object(random.object());
            ctx.zoom = zooms[seed % std::size(zooms)];
            ctx.shiftX = random.number(-20000, 20000);
            ctx.shiftY = random.number(-20000, 20000);
            exactBounds(ctx, *object); // metrics of texts are up to date from here on
            const Box bounds = exactBounds(ctx, *object);
            for (int gap : {0, margins / 3, margins - 1, margins}) {
                for (const Box& probe : probesAround(bounds, gap)) {
                    if (!overlaps(ctx, bounds, probe))
                        continue;
                    ++overlapping;
                    QVERIFY2(mayTouch(ctx, *object, probe),
                             qPrintable(QString("seed %1, type %2, zoom %3")
                                            .arg(seed)
                                            .arg(object->type)
                                            .arg(double(ctx.zoom))));
                }
            }
        }
        QVERIFY(overlapping > 50000);
    }

    // Otherwise it would be of no use.
    void mostObjectsFarAwayAreRejected()
    {
        CFigContext ctx;
        int rejected = 0;
        for (unsigned seed = 1; seed <= 1000; ++seed) {
            RandomObjects random(seed, 5000);
            std::unique_ptr<FigObject> object(random.object());
            exactBounds(ctx, *object);
            rejected += !mayTouch(ctx, *object, {60000, 60000, 61000, 61000});
        }
        QVERIFY2(rejected > 950, qPrintable(QString::number(rejected)));
    }

    void smallObjectsAreRejectedNotFarFromTheBox()
    {
        CFigContext ctx;
        const auto line = makeLine({{0, 0}, {300, 300}}, 1);
        QVERIFY(mayTouch(ctx, *line, {400, 0, 500, 300}));
        QVERIFY(!mayTouch(ctx, *line, {1200, 0, 1300, 300}));
        const auto spline = makeSpline(0, {{0, 0}, {300, 300}}, {0, 0});
        QVERIFY(!mayTouch(ctx, *spline, {1200, 0, 1300, 300}));
        const auto text = measuredText(ctx);
        QVERIFY(!mayTouch(ctx, *text, {9000, 0, 9100, 300}));
    }

    void anUnknownTypeIsNeverRejected()
    {
        CFigContext ctx;
        FigObject object;
        QVERIFY(mayTouch(ctx, object, {900000, 900000, 900001, 900001}));
    }

    void aPathWithoutPointsIsNeverRejected()
    {
        CFigContext ctx;
        FigLine line;
        FigSpline spline;
        QVERIFY(mayTouch(ctx, line, {900000, 900000, 900001, 900001}));
        QVERIFY(mayTouch(ctx, spline, {900000, 900000, 900001, 900001}));
    }

    // Exact bounds or drawing then bring the metrics up to date.
    void textMeasuredAtAnotherZoomIsNeverRejected()
    {
        CFigContext ctx;
        const auto text = measuredText(ctx);
        const Box far = {900000, 900000, 900001, 900001};
        QVERIFY(!mayTouch(ctx, *text, far));
        ctx.zoom = 2;
        QVERIFY(mayTouch(ctx, *text, far));
    }

    void specialTextIsNeverRejectedWhileTexMayRenderIt()
    {
        CFigContext ctx;
        const auto text = measuredText(ctx);
        text->flags = 2;
        const Box far = {900000, 900000, 900001, 900001};
        QVERIFY(mayTouch(ctx, *text, far));
        texViewPreferencesData.renderSpecialText = false;
        const bool plain = mayTouch(ctx, *text, far);
        texViewPreferencesData.renderSpecialText = true;
        QVERIFY(!plain);
    }

    void numbersThatAreNoneAreNeverRejected()
    {
        CFigContext ctx;
        const Box far = {900000, 900000, 900001, 900001};
        FigArc arc;
        arc.center_x = NAN;
        QVERIFY(mayTouch(ctx, arc, far));
        arc.center_x = INFINITY;
        arc.center_y = -INFINITY;
        QVERIFY(mayTouch(ctx, arc, far));
        const auto line = makeLine({{0, 0}, {300, 300}}, 1);
        line->forward_arrow = makeArrow(0, 0, NAN, 60, 120);
        QVERIFY(mayTouch(ctx, *line, far));
        line->forward_arrow->thickness = 1;
        line->forward_arrow->ht = INFINITY;
        QVERIFY(mayTouch(ctx, *line, far));
        const auto spline = makeSpline(4, {{0, 0}, {300, 300}, {600, 0}}, {0, 2.5, 0});
        QVERIFY(mayTouch(ctx, *spline, far));
        spline->sfactors->s = NAN;
        QVERIFY(mayTouch(ctx, *spline, far));
    }

    void cornersOfTheBoxMayComeInAnyOrder()
    {
        CFigContext ctx;
        const auto line = makeLine({{0, 0}, {300, 300}}, 1);
        QVERIFY(mayTouch(ctx, *line, {500, 500, -100, -100}));
        QVERIFY(!mayTouch(ctx, *line, {2500, 2500, 2000, 2000}));
    }

    void noProcessWideListIsTouched()
    {
        CFigContext ctx;
        init_pointlist();
        add_point_to_list(3, 4);
        for (unsigned seed = 1; seed <= 100; ++seed) {
            std::unique_ptr<FigObject> object(RandomObjects(seed, 1000).object());
            mayTouch(ctx, *object, {0, 0, 10, 10});
        }
        QCOMPARE(pointList(), (QVector<QPoint>{{3, 4}}));
    }
};

QTEST_MAIN(TestMayTouchBox)
#include "test_may_touch_box.moc"
