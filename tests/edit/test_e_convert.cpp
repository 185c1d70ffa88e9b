// Lines into splines and back, boxes into arc-boxes and back.
#include "edit/e_convert.h"

#include "ActionFixture.h"
#include "CurrentAttributes.h"
#include "edit/mode.h"
#include "edit/u_search.h"

#include <QtTest>

#include <memory>

namespace {

QString factors(FigSpline* spline)
{
    QStringList parts;
    for (const FigShapeFactor* factor = spline->sfactors; factor; factor = factor->next)
        parts.append(QString::number(factor->s));
    return parts.join(' ');
}

/// Every attribute that the conversions take over, by another number each.
void setAttributes(FigObject* object)
{
    object->id = 42;
    object->line_style = 2;
    object->thickness = 3;
    object->pen_color = 4;
    object->fill_color = 5;
    object->fill_style = 6;
    object->depth = 7;
    object->pen_style = 8;
    object->style_val = 9.5f;
    object->comments = "first\nsecond";
}

QString attributes(const FigObject* object)
{
    return QString("%1 %2 %3 %4 %5 %6 %7 %8 %9 ")
               .arg(object->id)
               .arg(object->line_style)
               .arg(object->thickness)
               .arg(object->pen_color)
               .arg(object->fill_color)
               .arg(object->fill_style)
               .arg(object->depth)
               .arg(object->pen_style)
               .arg(static_cast<double>(object->style_val)) +
           object->comments;
}

/// The arrows are those of the other object.
template <typename Object> void discard(Object* object)
{
    object->forward_arrow = object->backward_arrow = nullptr;
    delete object;
}

struct ConvertedFigure : EditedFigure {
    bool convert(FigObject* object)
    {
        return do_convert_line_spline(&ctx, object, object ? object->type : O_POLYLINE, 0, 0, 0, 0);
    }
    FigObject* last() { return top().last(); }
};

FigLine* makePolygon()
{
    return makeLine({{0, 0}, {900, 0}, {900, 600}, {0, 0}}, T_POLYGON);
}

} // namespace

class TestConvert : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        recordingShell.clear();
        resetCurrentAttributes();
    }

    void cleanupTestCase() { resetCurrentAttributes(); }

    // --- line to spline ----------------------------------------------------------

    void aPolylineBecomesASplineThroughItsPoints()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {900, 0}, {900, 600}, {1, 2}}));
        setAttributes(line.get());
        line->cap_style = 2;
        line->forward_arrow = new FigArrow;
        line->backward_arrow = new FigArrow;
        FigSpline* spline = line_spline(nullptr, line.get());
        QCOMPARE(spline->sub_type, 2);
        QCOMPARE(chain(spline), QString("0,0 900,0 900,600 1,2"));
        QCOMPARE(factors(spline), QString("0 -1 -1 0"));
        QCOMPARE(attributes(spline), attributes(line.get()));
        QCOMPARE(spline->cap_style, 2);
        QCOMPARE(spline->forward_arrow, line->forward_arrow);
        QCOMPARE(spline->backward_arrow, line->backward_arrow);
        QVERIFY(spline->points != line->points);
        discard(spline);
    }

    void splineStoresTwoIntoConvertedSubType()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {900, 0}, {900, 600}}));
        const std::unique_ptr<FigSpline> spline(line_spline(nullptr, line.get()));
        QCOMPARE(spline->convertedSubType, 2);
        const std::unique_ptr<FigLine> polygon(makePolygon());
        const std::unique_ptr<FigSpline> closed(line_spline(nullptr, polygon.get()));
        QCOMPARE(closed->convertedSubType, 2);
    }

    void aPolygonOfThreeRealPointsBecomesAClosedSplineOfThree()
    {
        const std::unique_ptr<FigLine> polygon(makePolygon());
        const std::unique_ptr<FigSpline> spline(line_spline(nullptr, polygon.get()));
        QVERIFY(spline);
        QCOMPARE(spline->sub_type, 3);
        QCOMPARE(chain(spline.get()), QString("900,0 900,600 0,0"));
        QCOMPARE(factors(spline.get()), QString("-1 -1 -1"));
    }

    void tooFewPointsPostAMessage_data()
    {
        QTest::addColumn<int>("points");
        QTest::addColumn<int>("subType");
        QTest::addColumn<bool>("enough");
        QTest::newRow("empty line") << 0 << int(T_POLYLINE) << false;
        QTest::newRow("line of two") << 2 << int(T_POLYLINE) << false;
        QTest::newRow("line of three") << 3 << int(T_POLYLINE) << true;
        // Two corners and the closing copy leave a closed spline of two.
        QTest::newRow("polygon chain of three") << 3 << int(T_POLYGON) << false;
        QTest::newRow("polygon chain of four") << 4 << int(T_POLYGON) << true;
    }

    void tooFewPointsPostAMessage()
    {
        QFETCH(int, points);
        QFETCH(int, subType);
        QFETCH(bool, enough);
        FigLine line;
        line.sub_type = subType;
        FigPoint* last = nullptr;
        for (int i = 0; i < points; ++i) {
            append_point(i * 100, i * i, &last);
            if (i == 0)
                line.points = last;
        }
        const std::unique_ptr<FigSpline> spline(line_spline(nullptr, &line));
        QCOMPARE(bool(spline), enough);
        QCOMPARE(recordingShell.messages,
                 enough ? QStringList() : QStringList("Not enough points for a spline!"));
    }

    void linksGoOverOnlyWhenAskedFor()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {900, 0}, {900, 600}}));
        makeLink(line->points, 77, 1, 2);
        const std::unique_ptr<FigSpline> linked(line_spline(nullptr, line.get(), true));
        QVERIFY(linked->points->link);
        QVERIFY(linked->points->link != line->points->link);
        QCOMPARE(linked->points->link->targetObjId, 77L);
        QCOMPARE(linked->points->link->srcPoint, linked->points);
        const std::unique_ptr<FigSpline> loose(line_spline(nullptr, line.get(), false));
        QVERIFY(!loose->points->link);
        const std::unique_ptr<FigLine> back(spline_line(nullptr, linked.get(), true));
        QCOMPARE(back->points->link->targetObjId, 77L);
        const std::unique_ptr<FigLine> looseBack(spline_line(nullptr, linked.get(), false));
        QVERIFY(!looseBack->points->link);
    }

    // --- spline to line ----------------------------------------------------------

    void anOpenSplineBecomesAPolyline()
    {
        const std::unique_ptr<FigSpline> spline(makeSpline({{0, 0}, {900, 0}, {900, 600}}, 0));
        setAttributes(spline.get());
        spline->cap_style = 1;
        spline->forward_arrow = new FigArrow;
        cur_joinstyle = 2;
        FigLine* line = spline_line(nullptr, spline.get());
        QCOMPARE(line->sub_type, int(T_POLYLINE));
        QCOMPARE(chain(line), QString("0,0 900,0 900,600"));
        QCOMPARE(line->radius, 7);
        QCOMPARE(line->join_style, 2);
        QCOMPARE(line->cap_style, 1);
        QCOMPARE(line->convertedSubType, 0);
        QCOMPARE(attributes(line), attributes(spline.get()));
        QCOMPARE(line->forward_arrow, spline->forward_arrow);
        discard(line);
    }

    void aClosedSplineGetsItsLastPointInFront()
    {
        const std::unique_ptr<FigSpline> spline(makeSpline({{0, 0}, {900, 0}, {900, 600}}, 1));
        const std::unique_ptr<FigLine> line(spline_line(nullptr, spline.get()));
        QCOMPARE(line->sub_type, int(T_POLYGON));
        QCOMPARE(chain(line.get()), QString("900,600 0,0 900,0 900,600"));
    }

    void aSplineTurnedIntoALineAndBackIsTheSameKind_data()
    {
        QTest::addColumn<QString>("expectedFactors");
        QTest::newRow("0") << "0 1 1 0";
        QTest::newRow("1") << "1 1 1 1";
        QTest::newRow("2") << "0 -1 -1 0";
        QTest::newRow("3") << "-1 -1 -1 -1";
        QTest::newRow("4") << "0 -1 -1 0";
        QTest::newRow("5") << "-1 -1 -1 -1";
    }

    void aSplineTurnedIntoALineAndBackIsTheSameKind()
    {
        QFETCH(QString, expectedFactors);
        const int subType = QByteArray(QTest::currentDataTag()).toInt();
        const std::unique_ptr<FigSpline> spline(
            makeSpline({{0, 0}, {900, 0}, {900, 600}, {5, 6}}, subType));
        const std::unique_ptr<FigLine> line(spline_line(nullptr, spline.get()));
        const std::unique_ptr<FigSpline> back(line_spline(nullptr, line.get()));
        QCOMPARE(back->sub_type, subType);
        QCOMPARE(chain(back.get()), chain(spline.get()));
        QCOMPARE(factors(back.get()), expectedFactors);
    }

    void aSplineWithoutPointsBecomesALineWithout()
    {
        FigSpline spline;
        spline.sub_type = 1;
        const std::unique_ptr<FigLine> line(spline_line(nullptr, &spline));
        QVERIFY(!line->points);
    }

    // --- boxes -------------------------------------------------------------------

    void aBoxBecomesAnArcBoxAndBack_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<int>("radius");
        QTest::addColumn<int>("newSubType");
        QTest::addColumn<int>("newRadius");
        QTest::newRow("box without radius") << int(T_BOX) << 0 << int(T_ARCBOX) << 11;
        QTest::newRow("box that never had one") << int(T_BOX) << -1 << int(T_ARCBOX) << 11;
        QTest::newRow("box with a radius") << int(T_BOX) << 5 << int(T_ARCBOX) << 5;
        QTest::newRow("arc-box") << int(T_ARCBOX) << 5 << int(T_BOX) << 5;
        QTest::newRow("arc-box of radius 0") << int(T_ARCBOX) << 0 << int(T_BOX) << 0;
    }

    void aBoxBecomesAnArcBoxAndBack()
    {
        QFETCH(int, subType);
        QFETCH(int, radius);
        const std::unique_ptr<FigLine> box(
            makeLine({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}, subType));
        setAttributes(box.get());
        box->radius = radius;
        cur_boxradius = 11;
        const std::unique_ptr<FigLine> converted(box_2_box(nullptr, box.get()));
        QTEST(converted->sub_type, "newSubType");
        QTEST(converted->radius, "newRadius");
        QCOMPARE(attributes(converted.get()), attributes(box.get()));
        QCOMPARE(chain(converted.get()), chain(box.get()));
        QCOMPARE(box->sub_type, subType);
    }

    // --- the tool ----------------------------------------------------------------

    void theToolSearchesObjectsWithTheLeftButtonAlone()
    {
        action_on = 1;
        convert_selected();
        QVERIFY(canvas_leftbut_proc == object_search_left);
        QVERIFY(handlerproc_left == do_convert_line_spline);
        QVERIFY(!canvas_middlebut_proc);
        QCOMPARE(action_on, 0);
    }

    void aLineIsConvertedAsOneStepAndSelected()
    {
        ConvertedFigure figure;
        auto* line = figure.put(with(makeLine({{0, 0}, {900, 0}, {900, 600}}), 5, 60));
        line->forward_arrow = new FigArrow;
        figure.ctx.curObject = line;
        QVERIFY(figure.convert(line));
        auto* spline = static_cast<FigSpline*>(figure.last());
        QCOMPARE(spline->type, int(O_SPLINE));
        QCOMPARE(figure.top().size(), 1);
        QVERIFY(spline->tagged);
        QCOMPARE(spline->marked, 1);
        QCOMPARE(figure.ctx.curObject, static_cast<FigObject*>(spline));
        QVERIFY(spline->forward_arrow);
        QVERIFY(!line->forward_arrow); // it has gone over
        QCOMPARE(figure.queue().undoCount(), 1);
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.undo();
        QCOMPARE(figure.last(), static_cast<FigObject*>(line));
        QVERIFY(line->forward_arrow);
        QCOMPARE(figure.ctx.curObject, static_cast<FigObject*>(line));
        figure.redo();
        QCOMPARE(figure.last(), static_cast<FigObject*>(spline));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void aSplineIsConvertedAndBack()
    {
        ConvertedFigure figure;
        auto* spline = figure.put(with(makeSpline({{0, 0}, {900, 0}, {900, 600}}, 1), 5, 60));
        QVERIFY(figure.convert(spline));
        QCOMPARE(figure.last()->type, int(O_POLYLINE));
        QCOMPARE(figure.last()->id, 5L);
        QVERIFY(figure.convert(figure.last()));
        QCOMPARE(figure.last()->type, int(O_SPLINE));
        QCOMPARE(figure.last()->sub_type, 1);
        QCOMPARE(figure.queue().undoCount(), 2);
        figure.undo();
        figure.undo();
        QCOMPARE(figure.last(), static_cast<FigObject*>(spline));
    }

    void whatCannotBeConvertedIsLeftAlone()
    {
        ConvertedFigure figure;
        for (int subType : {T_BOX, T_ARCBOX, T_PICTURE})
            QVERIFY(!figure.convert(
                figure.put(makeLine({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}, subType))));
        QVERIFY(!figure.convert(figure.put(new FigEllipse)));
        QVERIFY(!figure.convert(nullptr));
        QVERIFY(!do_convert_line_spline(nullptr, nullptr, O_POLYLINE, 0, 0, 0, 0));
        QCOMPARE(figure.queue().undoCount(), 0);
        QVERIFY(!figure.ctx.curObject);
        for (FigObject* object : qAsConst(figure.top()))
            QVERIFY(!object->tagged);
    }

    void aLineOfTwoPointsStaysUntaggedAndMakesNoStep()
    {
        ConvertedFigure figure;
        auto* line = figure.put(makeLine({{0, 0}, {900, 0}}));
        QVERIFY(!figure.convert(line));
        QCOMPARE(recordingShell.messages, QStringList("Not enough points for a spline!"));
        QCOMPARE(figure.queue().undoCount(), 0);
        QVERIFY(!figure.ctx.modified);
        QVERIFY(!line->tagged);
        QCOMPARE(figure.last(), static_cast<FigObject*>(line));
    }

    void aConversionInAnOpenCompoundStaysInItsList()
    {
        ConvertedFigure figure;
        auto* line = makeLine({{0, 0}, {900, 0}, {900, 600}});
        auto* compound = figure.put(makeCompound({line}));
        figure.ctx.openCompoundObjects = compound->objects;
        QVERIFY(figure.convert(line));
        QCOMPARE(compound->objects->first()->type, int(O_SPLINE));
        figure.ctx.openCompoundObjects = nullptr;
        figure.undo();
        QCOMPARE(compound->objects->first(), static_cast<FigObject*>(line));
        QCOMPARE(figure.top().size(), 1);
    }
};

QTEST_MAIN(TestConvert)
#include "test_e_convert.moc"
