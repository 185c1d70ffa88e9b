#include "ObjectBuilders.h"
#include "RecordingShell.h"
#include "edit/e_rotate.h"
#include "model/FigContext.h"

#include <QtTest>

#include <cmath>
#include <memory>

namespace {

constexpr double pi = 3.141592653589793;

QPoint position(const FigPoint& point)
{
    return {point.x, point.y};
}

FigLine* makeBox(int subType)
{
    return makeLine({{0, 0}, {100, 0}, {100, 60}, {0, 60}, {0, 0}}, subType);
}

QList<QPoint> positions(FigPath* path)
{
    QList<QPoint> all;
    for (FigPoint* point = path->points; point; point = point->next)
        all.append(position(*point));
    return all;
}

} // namespace

class TestRotate : public QObject {
    Q_OBJECT

private:
    CFigContext context;

private slots:
    void init() { recordingShell.clear(); }

    // y is down: what lies right of the centre comes below it.
    void positiveAnglesTurnClockwiseOnTheScreen()
    {
        const std::unique_ptr<FigLine> line(makeLine({{110, 20}, {10, 70}}));
        rotate_object(&context, line.get(), 10, 20, 90);
        QCOMPARE(positions(line.get()), (QList<QPoint>{{10, 120}, {-40, 20}}));
        rotate_object(&context, line.get(), 10, 20, -90);
        QCOMPARE(positions(line.get()), (QList<QPoint>{{110, 20}, {10, 70}}));
    }

    void aPointTurnsByItsBearing()
    {
        FigPoint point(100, 0);
        rotate_pos(&point, 0, 0, 30); // 100 cos 30 = 86.6, 100 sin 30 = 50
        QCOMPARE(position(point), QPoint(87, 50));
        int x = 5, y = 6;
        rotate_xy(&x, &y, 5, 6, 33); // the centre itself
        QCOMPARE(QPoint(x, y), QPoint(5, 6));
    }

    void fourQuarterTurnsRestoreABox()
    {
        const std::unique_ptr<FigLine> box(makeBox(T_BOX));
        const QList<QPoint> former = positions(box.get());
        for (int i = 0; i < 4; ++i)
            rotate_object(&context, box.get(), 37, -12, 90);
        QCOMPARE(positions(box.get()), former);
        QCOMPARE(box->sub_type, int(T_BOX));
    }

    void aBoxTurnedByHalfARightAngleBecomesAPolygonForGood()
    {
        const std::unique_ptr<FigLine> box(makeBox(T_BOX));
        box->radius = 7;
        rotate_object(&context, box.get(), 0, 0, 45);
        QCOMPARE(box->sub_type, int(T_POLYGON));
        QCOMPARE(box->radius, 0);
        QCOMPARE(recordingShell.messages, QStringList{"Converted box into polygon!"});
        QCOMPARE(position(*box->points->next), QPoint(71, 71)); // 100 / sqrt 2
    }

    void arcBoxesAndPicturesTurnByRightAnglesOnly()
    {
        for (int subType : {T_ARCBOX, T_PICTURE}) {
            recordingShell.clear();
            const std::unique_ptr<FigLine> box(makeBox(subType));
            const QList<QPoint> former = positions(box.get());
            rotate_object(&context, box.get(), 0, 0, 45);
            QCOMPARE(positions(box.get()), former);
            QCOMPARE(recordingShell.messages,
                     QStringList{"This object can't be rotated by angles other than 90 degrees!"});
            rotate_object(&context, box.get(), 0, 0, 180);
            QCOMPARE(position(*box->points->next), QPoint(-100, 0));
        }
    }

    // 180 and -90 are multiples of 90 as well, but this question knows 90 alone.
    void aCompoundWithAnArcBoxTurnsByExactly90Only()
    {
        OwnedList members{makeCompound({makeBox(T_ARCBOX)})};
        QVERIFY(valid_rot_angle(&members, 90));
        QVERIFY(!valid_rot_angle(&members, 180));
        QVERIFY(!valid_rot_angle(&members, -90));
        OwnedList plain{makeBox(T_BOX)};
        QVERIFY(valid_rot_angle(&plain, 45));
    }

    void aTextTurnsWithItsAngleAndEndsUpright()
    {
        FigText text;
        text.x = 100;
        rotate_object(&context, &text, 0, 0, 90);
        QCOMPARE(QPoint(text.x, text.y), QPoint(0, 100));
        QVERIFY(std::abs(text.angle - 1.5 * pi) < 1e-6);
        for (int i = 0; i < 3; ++i)
            rotate_object(&context, &text, 0, 0, 90);
        QCOMPARE(text.angle, 0.0f);
        QCOMPARE(QPoint(text.x, text.y), QPoint(100, 0));
    }

    // Within 0.01 of a full turn counts as upright for a text; an ellipse keeps what it has.
    void onlyTextsSnapToUpright()
    {
        FigText text;
        text.angle = 0.005f;
        rotate_object(&context, &text, 0, 0, 360);
        QCOMPARE(text.angle, 0.0f);
        FigEllipse ellipse;
        ellipse.angle = 0.005f;
        rotate_ellipse(&ellipse, 0, 0, 360);
        QVERIFY(std::abs(ellipse.angle - 0.005f) < 1e-5);
    }

    void anEllipseIsExactForBothQuarterTurns()
    {
        FigEllipse ellipse;
        ellipse.center = FigPoint(1000001, 7);
        rotate_ellipse(&ellipse, 0, 0, -90);
        QCOMPARE(position(ellipse.center), QPoint(7, -1000001));
        QVERIFY(std::abs(ellipse.angle - pi / 2) < 1e-6);
        rotate_ellipse(&ellipse, 0, 0, 90);
        QCOMPARE(position(ellipse.center), QPoint(1000001, 7));
    }

    void theCentreOfAnArcIsCutToWholeUnitsByAQuarterTurn()
    {
        FigArc arc;
        arc.point[0] = FigPoint(100, 0);
        arc.center_x = 100.75f;
        arc.center_y = 50.25f;
        rotate_object(&context, &arc, 0, 0, 90);
        QCOMPARE(position(arc.point[0]), QPoint(0, 100));
        QCOMPARE(arc.center_x, -50.0f);
        QCOMPARE(arc.center_y, 100.0f);
    }

    void anArcWhoseTurnedPointsLieOnALineStaysAsItIs()
    {
        FigArc arc;
        arc.point[0] = FigPoint(0, 0);
        arc.point[1] = FigPoint(100, 0);
        arc.point[2] = FigPoint(200, 0);
        arc.center_x = 3;
        rotate_object(&context, &arc, 0, 0, 30);
        QCOMPARE(position(arc.point[2]), QPoint(200, 0));
        QCOMPARE(arc.center_x, 3.0f);
    }

    void anArcTurnsWithItsCentre()
    {
        FigArc arc;
        arc.point[0] = FigPoint(1000, 0);
        arc.point[1] = FigPoint(0, 1000);
        arc.point[2] = FigPoint(-1000, 0);
        rotate_object(&context, &arc, 0, 0, 180);
        QCOMPARE(position(arc.point[0]), QPoint(-1000, 0));
        QCOMPARE(position(arc.point[1]), QPoint(0, -1000));
        QVERIFY(std::abs(arc.center_x) < 1e-3f && std::abs(arc.center_y) < 1e-3f);
    }

    void aCompoundTurnsItsMembersAndMeasuresItself()
    {
        const std::unique_ptr<FigCompound> compound(
            makeCompound({makeCompound({makeLine({{100, 0}, {200, 0}})})}));
        rotate_object(&context, compound.get(), 0, 0, 90);
        QCOMPARE(compound->nwcorner.y <= 100 && compound->secorner.y >= 200, true);
        QVERIFY(compound->secorner.x < 100);
    }
};

QTEST_MAIN(TestRotate)
#include "test_e_rotate.moc"
