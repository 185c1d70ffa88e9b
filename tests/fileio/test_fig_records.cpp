#include "ReaderFixture.h"

#include "render/colorFunctions.h"

#include <QtTest>

#include <cmath>

namespace {

OpenedFigure* open(const QByteArray& records)
{
    static std::unique_ptr<OpenedFigure> figure;
    figure = std::make_unique<OpenedFigure>(foreignHeader + records);
    return figure.get();
}

QByteArray circle(const QByteArray& depth = "50", const QByteArray& fillColor = "7",
                  const QByteArray& fillStyle = "-1", const QByteArray& angle = "0.0")
{
    return "1 3 0 1 0 " + fillColor + " " + depth + " -1 " + fillStyle + " 0.0 1 " + angle +
           " 900 900 90 90 900 900 990 900\n";
}

QByteArray line(const QByteArray& subType, const QByteArray& points, int count)
{
    return "2 " + subType + " 0 1 0 7 50 -1 -1 0.0 0 0 -1 0 0 " + QByteArray::number(count) +
           "\n\t" + points + "\n";
}

QByteArray spline(const QByteArray& subType, const QByteArray& rest, int count)
{
    return "3 " + subType + " 0 1 0 7 50 -1 -1 0.0 0 0 0 " + QByteArray::number(count) + "\n" +
           rest + "\n";
}

} // namespace

class TestFigRecords : public QObject {
    Q_OBJECT

private slots:
    void allFieldsOfAnEllipse()
    {
        auto* figure = open("# a comment\n1 1 2 3 4 5 60 7 8 9.5 1 0.5 10 20 30 40 11 21 31 41\n");
        auto* ellipse = figure->as<FigEllipse>();
        QVERIFY(ellipse);
        QCOMPARE(ellipse->sub_type, 1);
        QCOMPARE(ellipse->line_style, 2);
        QCOMPARE(ellipse->thickness, 3);
        QCOMPARE(ellipse->pen_color, 4);
        QCOMPARE(ellipse->fill_color, 5);
        QCOMPARE(ellipse->depth, 60);
        QCOMPARE(ellipse->pen_style, 7);
        QCOMPARE(ellipse->fill_style, 8);
        QCOMPARE(ellipse->style_val, 9.5f);
        QCOMPARE(ellipse->direction, 1);
        QCOMPARE(ellipse->angle, 0.5f);
        QCOMPARE(QPoint(ellipse->center.x, ellipse->center.y), QPoint(10, 20));
        QCOMPARE(QPoint(ellipse->radiuses.x, ellipse->radiuses.y), QPoint(30, 40));
        QCOMPARE(QPoint(ellipse->start.x, ellipse->start.y), QPoint(11, 21));
        QCOMPARE(QPoint(ellipse->end.x, ellipse->end.y), QPoint(31, 41));
        QCOMPARE(ellipse->comments, QString("a comment"));
        QCOMPARE(ellipse->id, 1L);
    }

    void allFieldsOfALineWithArrows()
    {
        auto* figure = open("2 1 2 3 4 5 60 7 8 9.5 1 2 -1 1 1 3\n\t2 1 3.00 60.00 120.00\n"
                            "\t1 0 1.50 70.00 130.00\n\t1 2 3 4\n 5 6\n");
        auto* polyline = figure->as<FigLine>();
        QVERIFY(polyline);
        QCOMPARE(polyline->join_style, 1);
        QCOMPARE(polyline->cap_style, 2);
        QCOMPARE(polyline->radius, -1);
        QCOMPARE(pointsText(polyline), QString("1,2 3,4 5,6"));
        QCOMPARE(polyline->forward_arrow->type, 2);
        QCOMPARE(polyline->forward_arrow->style, 1);
        QCOMPARE(polyline->forward_arrow->thickness, 3.0f);
        QCOMPARE(polyline->forward_arrow->wd, 60.0f);
        QCOMPARE(polyline->forward_arrow->ht, 120.0f);
        QCOMPARE(polyline->backward_arrow->type, 1);
        QCOMPARE(polyline->backward_arrow->style, 0);
        QCOMPARE(polyline->backward_arrow->thickness, 1.5f);
    }

    // A flag is only 0 or not 0, and a missing flag leaves no line behind.
    void arrowFlagsAreZeroOrNot()
    {
        auto* figure =
            open("2 1 0 1 0 7 50 -1 -1 0.0 0 0 -1 0 -3 2\n\t1 1 1.0 60.0 120.0\n\t1 2 3 4\n");
        QVERIFY(!figure->object()->forward_arrow);
        QVERIFY(figure->object()->backward_arrow);
        QCOMPARE(pointsText(figure->as<FigLine>()), QString("1,2 3,4"));
    }

    void anArrowTypeAboveFourteenBecomesZero()
    {
        QCOMPARE(convert_arrow(14), 14);
        QCOMPARE(convert_arrow(15), 0);
        QCOMPARE(convert_arrow(-1), -1);
    }

    void aPictureHasItsFileOnALineOfItsOwn()
    {
        auto* figure = open("2 5 0 1 0 -1 50 -1 -1 0.0 0 0 -1 0 0 5\n\t1   a picture.png \n"
                            "\t0 0 9 0 9 9 0 9 0 0\n");
        auto* box = figure->as<FigLine>();
        QVERIFY(box && box->pic);
        QCOMPARE(box->pic->file, QString("a picture.png"));
        QCOMPARE(box->pic->flipped, 1);
        QVERIFY(!box->pic->pixmap);
        QCOMPARE(pointsText(box), QString("0,0 9,0 9,9 0,9 0,0"));
    }

    void allFieldsOfASpline()
    {
        auto* figure = open("3 4 2 3 4 5 60 7 8 9.5 1 1 0 3\n\t1 1 1.00 60.00 120.00\n"
                            "\t1 2 3 4 5 6\n\t0.000 -1 0.5\n");
        auto* curve = figure->as<FigSpline>();
        QVERIFY(curve);
        QCOMPARE(curve->cap_style, 1);
        QVERIFY(curve->forward_arrow && !curve->backward_arrow);
        QCOMPARE(pointsText(curve), QString("1,2 3,4 5,6"));
        QCOMPARE(factorsText(curve), QString("0 -1 0.5"));
    }

    void allFieldsOfAnArc()
    {
        auto* figure = open("5 1 2 3 4 5 60 7 8 9.5 1 1 0 1 10.5 20.25 1 2 3 4 5 6\n"
                            "\t1 1 1.00 60.00 120.00\n");
        auto* arc = figure->as<FigArc>();
        QVERIFY(arc);
        QCOMPARE(arc->sub_type, 0); // one less than in the file
        QCOMPARE(arc->cap_style, 1);
        QCOMPARE(arc->direction, 1);
        QCOMPARE(arc->center_x, 10.5f);
        QCOMPARE(arc->center_y, 20.25f);
        QCOMPARE(QPoint(arc->point[0].x, arc->point[0].y), QPoint(1, 2));
        QCOMPARE(QPoint(arc->point[2].x, arc->point[2].y), QPoint(5, 6));
        QVERIFY(!arc->forward_arrow && arc->backward_arrow);
    }

    void aPieWedgeConsumesItsArrowLinesButHasNoArrows()
    {
        auto* figure = open("5 2 0 1 0 7 50 -1 -1 0.0 0 1 1 1 10.0 20.0 1 2 3 4 5 6\n"
                            "\t1 1 1.0 60.0 120.0\n\t1 1 1.0 60.0 120.0\n" +
                            circle());
        QCOMPARE(figure->count(), 2);
        QVERIFY(!figure->object()->forward_arrow && !figure->object()->backward_arrow);
        QCOMPARE(figure->remarks(), QStringList());
    }

    void depthsStayWithinTheirRange()
    {
        auto* figure = open(circle("1000") + circle("-1") + circle("999"));
        QCOMPARE(figure->object(0)->depth, 999);
        QCOMPARE(figure->object(1)->depth, 0);
        QCOMPARE(figure->object(2)->depth, 999);
        // The line number, 10, and the second depth stand in each other's place.
        QCOMPARE(figure->remarks(),
                 QStringList("Depth > Maximum allowed (999), setting to 10 in line 999."));
    }

    void fillStyles_data()
    {
        QTest::addColumn<QByteArray>("color");
        QTest::addColumn<QByteArray>("style");
        QTest::addColumn<int>("result");
        QTest::newRow("tint of black") << QByteArray("0") << QByteArray("25") << -1;
        QTest::newRow("tint of default") << QByteArray("-1") << QByteArray("40") << -1;
        QTest::newRow("tint of blue") << QByteArray("1") << QByteArray("25") << 25;
        QTest::newRow("shade of black") << QByteArray("0") << QByteArray("20") << 20;
        QTest::newRow("pattern on black") << QByteArray("0") << QByteArray("41") << 41;
        QTest::newRow("last pattern") << QByteArray("7") << QByteArray("62") << 62;
        QTest::newRow("beyond the patterns") << QByteArray("7") << QByteArray("99") << 63;
        QTest::newRow("below none") << QByteArray("7") << QByteArray("-9") << -1;
    }

    void fillStyles()
    {
        QFETCH(QByteArray, color);
        QFETCH(QByteArray, style);
        QTEST(open(circle("50", color, style))->object()->fill_style, "result");
    }

    void anglesComeIntoOneTurn_data()
    {
        QTest::addColumn<float>("angle");
        QTest::addColumn<double>("result");
        QTest::newRow("within") << 1.5f << 1.5;
        QTest::newRow("negative") << -1.5f << 6.2831855 - 1.5;
        QTest::newRow("one turn") << 6.2831855f << 0.0;
        // The sum with 2 pi is 2 pi itself in single precision.
        QTest::newRow("hardly negative") << -1e-9f << 0.0;
        QTest::newRow("three turns more") << 20.0f << 20.0 - 3 * 6.2831855;
        QTest::newRow("infinite") << HUGE_VALF << 0.0;
        QTest::newRow("not a number") << std::nanf("") << 0.0;
    }

    void anglesComeIntoOneTurn()
    {
        QFETCH(float, angle);
        QFETCH(double, result);
        fix_angle(&angle);
        QVERIFY2(std::fabs(static_cast<double>(angle) - result) < 1e-5,
                 qPrintable(QString::number(static_cast<double>(angle))));
    }

    void hugeAnglesEndInOneTurnToo()
    {
        for (float angle : {1e30f, -1e30f, 1e9f, -12345678.0f, 1000.5f}) {
            fix_angle(&angle);
            QVERIFY(angle >= 0 && angle < 6.2831855f);
        }
    }

    void boxesWithFewerThanFivePointsAreDropped_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<QString>("message");
        QTest::newRow("box") << line("2", "0 0 1 0 1 1 0 1", 4)
                             << "Deleting zero-size box at line 10";
        QTest::newRow("arc-box") << line("4", "0 0 1 0 1 1 0 1", 4)
                                 << "Deleting zero-size arcbox at line 10";
        QTest::newRow("picture") << line("5", "0 x.png\n0 0 1 0 1 1 0 1", 4)
                                 << "Deleting zero-size picture at line 10";
        QTest::newRow("polygon") << line("3", "0 0 1 0", 2)
                                 << "Deleting polygon containing fewer than 3 points at line 10";
        QTest::newRow("closed spline")
            << spline("5", "0 0 1 1\n0 0", 2)
            << "Closed splines must have 3 or more points, removing spline at line 10";
        QTest::newRow("open spline")
            << spline("0", "0 0\n0", 1)
            << "Open splines must have 2 or more points, removing spline at line 10";
    }

    void boxesWithFewerThanFivePointsAreDropped()
    {
        QFETCH(QByteArray, record);
        QFETCH(QString, message);
        auto* figure = open(record + circle());
        QCOMPARE(figure->remarks(), QStringList(message));
        QCOMPARE(figure->count(), 1);
        QCOMPARE(figure->countInMessage(), 1);
    }

    void aDroppedObjectLeavesItsCommentToTheNext()
    {
        auto* figure =
            open("# of the box\n" + line("2", "0 0", 1) + "# of the circle\n" + circle());
        QCOMPARE(figure->object()->comments, QString("of the box\nof the circle"));
    }

    void aLineOfOnePointLosesItsArrows()
    {
        auto* figure = open("2 1 0 1 0 7 50 -1 -1 0.0 0 0 -1 1 1 1\n\t1 1 1.0 60.0 120.0\n"
                            "\t1 1 1.0 60.0 120.0\n\t5 6\n");
        QCOMPARE(pointsText(figure->as<FigLine>()), QString("5,6"));
        QVERIFY(!figure->object()->forward_arrow && !figure->object()->backward_arrow);
    }

    void onePairIsReadEvenForACountBelowOne()
    {
        for (int count : {0, -1, -2147483647}) {
            auto* figure = open(line("1", "5 6", count) + circle());
            QCOMPARE(pointsText(figure->as<FigLine>()), QString("5,6"));
            QCOMPARE(figure->count(), 2);
        }
    }

    void blankLinesWithinARecordAreHarmless()
    {
        auto* figure =
            open("\n \t\n" + line("1", "\n\n1 2\n \n3\n4", 2) + "  \n\n" + circle() + "\n \n");
        QCOMPARE(figure->count(), 2);
        QCOMPARE(pointsText(figure->as<FigLine>()), QString("1,2 3,4"));
        QCOMPARE(figure->remarks(), QStringList());
    }

    // The blank lines and comments before the record and the end of the line of points count.
    void lineNumbersCountWhatStandsBetweenRecords()
    {
        auto* figure = open(line("1", "1 2 3 4", 2) + "\n# comment\n \n9\n");
        QCOMPARE(figure->remarks(), QStringList("Incorrect object code at line 15."));
    }

    void aBadCodeIsToldAndItsLineDropped()
    {
        auto* figure = open("7 1 2 3\n" + circle() + "-6\n");
        QCOMPARE(figure->count(), 1);
        QCOMPARE(figure->remarks(), QStringList({"Incorrect object code at line 10.",
                                                 "Incorrect object code at line 12."}));
    }

    // Code 0, a colour definition, but its number is no user colour.
    void aLineThatBeginsWithNoNumberIsPassedOver()
    {
        auto* figure = open("garbage 40 #ffffff\n" + circle());
        QCOMPARE(figure->remarks(), QStringList());
        QVERIFY(figure->ctx.userColors.isEmpty());
        QCOMPARE(figure->count(), 1);
    }

    // After a bad number all later ones of the line are 0.
    void aDamagedNumberLeavesZeroes()
    {
        auto* ellipse = open("1 3 0 1 x 7 50 -1 -1 0.0 1 0.0 900 900 90 90 900 900 990 900\n")
                            ->as<FigEllipse>();
        QCOMPARE(ellipse->thickness, 1);
        QCOMPARE(ellipse->pen_color, 0);
        QCOMPARE(ellipse->fill_color, 0);
        QCOMPARE(ellipse->depth, 0);
        QCOMPARE(ellipse->center.x, 0);
    }

    void colourDefinitions()
    {
        auto* figure = open("0 32 #a1b2c3\n0 0x22 #010203\n0 33 #zz\n0 31 #ffffff\n0 -1 #ffffff\n"
                            "0 32 #102030\n" +
                            circle());
        QCOMPARE(figure->ctx.userColors.size(), 3);
        QCOMPARE(figure->ctx.userColors.value(0), QColor(0x10, 0x20, 0x30));
        QCOMPARE(figure->ctx.userColors.value(2), QColor(1, 2, 3));
        QCOMPARE(figure->ctx.userColors.value(1), QColor(0, 0, 0));
        QCOMPARE(figure->ctx.userColors.value(0).alpha(), 255);
        // Shade 20 is the colour itself, 0 black and 40 white.
        QCOMPARE(figure->ctx.userColorShades.size(), 3);
        QCOMPARE(figure->ctx.userColorShades.value(0)[20], 0x102030u);
        QCOMPARE(figure->ctx.userColorShades.value(0)[0], 0u);
        QCOMPARE(figure->ctx.userColorShades.value(0)[40], 0xffffffu);
        QCOMPARE(figure->remarks(), QStringList());
    }

    void aLateColourIsToldButRead()
    {
        auto* figure = open(circle() + "0 32 #a1b2c3\n");
        QCOMPARE(figure->ctx.userColors.value(0), QColor(0xa1, 0xb2, 0xc3));
        QCOMPARE(figure->remarks(),
                 QStringList("Color definitions must come before other objects (line 11)."));
    }

    void anEarlierFigureLeavesNoColours()
    {
        auto* figure = open("0 32 #a1b2c3\n");
        QCOMPARE(figure->ctx.userColors.size(), 1);
        QFile file(figure->path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(foreignHeader);
        file.close();
        QVERIFY(load_file(&figure->ctx, figure->path));
        QVERIFY(figure->ctx.userColors.isEmpty());
        QVERIFY(figure->ctx.userColorShades.isEmpty());
    }

    // --- the old format -----------------------------------------------------------

    void oldInterpolatedSplinesDropTheirControlPoints()
    {
        OpenedFigure figure(oldHeader +
                            spline("2", "0 0 5 5 9 0\n1.5 2 3 4 5 6 7 8 9 10 11 12", 3) + circle());
        QCOMPARE(figure.count(), 2);
        QCOMPARE(pointsText(figure.as<FigSpline>()), QString("0,0 5,5 9,0"));
        QCOMPARE(factorsText(figure.as<FigSpline>()), QString("0 -1 0"));
    }

    void oldClosedSplinesDropTheirFirstPoint()
    {
        OpenedFigure figure(oldHeader + spline("1", "0 0 5 5 9 0 0 0", 4) + circle());
        QCOMPARE(pointsText(figure.as<FigSpline>()), QString("5,5 9,0 0,0"));
        QCOMPARE(factorsText(figure.as<FigSpline>()), QString("1 1 1"));
        QCOMPARE(figure.count(), 2);
    }

    void oldSplinesMustHaveEnoughPointsAfterTheDrop_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("one") << 1;
        QTest::newRow("three") << 3;
    }

    void oldSplinesMustHaveEnoughPointsAfterTheDrop()
    {
        QFETCH(int, count);
        OpenedFigure figure(oldHeader + spline("1", QByteArray("0 0 ").repeated(count), count) +
                            circle());
        QCOMPARE(figure.count(), 1);
        QCOMPARE(
            figure.remarks(),
            QStringList("Closed splines must have 3 or more points, removing spline at line 6"));
    }
};

QTEST_GUILESS_MAIN(TestFigRecords)
#include "test_fig_records.moc"
