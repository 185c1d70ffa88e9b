// The text of saved figures. Expected lines are worked out by hand from the layout of the records.
#include "WriterFixture.h"
#include "model/version.h"
#include "render/Font.h"

#include <QtTest>

#include <climits>

Q_DECLARE_METATYPE(FigObject*)

namespace {

/// An ellipse that has a record.
FigEllipse* makeEllipse(int rx = 300, int ry = 200)
{
    auto* ellipse = new FigEllipse;
    ellipse->sub_type = 1;
    ellipse->direction = 1;
    ellipse->center = FigPoint(1000, 2000);
    ellipse->radiuses = FigPoint(rx, ry);
    ellipse->start = FigPoint(1000, 2000);
    ellipse->end = FigPoint(1300, 2200);
    return ellipse;
}

FigText* makeText(const QString& string)
{
    auto* text = new FigText;
    text->cstring = string;
    text->length = 150;
    text->ascent = 120;
    text->descent = 3;
    return text;
}

FigArc* makeArc()
{
    auto* arc = new FigArc;
    arc->point[0] = FigPoint(1, 2);
    arc->point[1] = FigPoint(3, 4);
    arc->point[2] = FigPoint(5, 6);
    return arc;
}

/// The record without its id line.
QString record(FigObject* object)
{
    const std::unique_ptr<FigObject> owner(object);
    return writtenObject(object).section('\n', 1);
}

QString lastField(const QString& line)
{
    return line.trimmed().section(' ', -1);
}

FigLine* lineOf(int numPoints)
{
    auto* line = makeLine({{0, 1}});
    FigPoint* last = line->points;
    for (int i = 1; i < numPoints; ++i)
        append_point(i, i + 1, &last);
    return line;
}

} // namespace

class TestFSave : public QObject {
    Q_OBJECT

private slots:
    // --- header ---------------------------------------------------------------------

    void anEmptyDocumentIsTheHeaderAndTheMessageCountsNone()
    {
        SavedDocument document;
        document.ctx.paperSize = 13;
        document.ctx.landscape = true;
        document.ctx.flushLeft = false;
        document.ctx.metric = true;
        document.ctx.magnification = 100;
        document.ctx.multiplePage = false;
        document.ctx.transparentColor = -2;
        QCOMPARE(document.save(), QByteArray("#FIG 3.2\n# Created by Orvalt version 7.4\n"
                                             "# METADATA <version>1.0</version>\nLandscape\n"
                                             "Center\nMetric\nA4\n100.00\nSingle\n-2\n1200 2\n"));
        QCOMPARE(recordingShell.messages,
                 QStringList({"Writing...", "0 object(s) saved in \"" + document.path() + "\""}));
    }

    void everyHeaderLineHasItsOtherForm()
    {
        SavedDocument document;
        document.ctx.paperSize = 0;
        document.ctx.landscape = false;
        document.ctx.flushLeft = true;
        document.ctx.metric = false;
        document.ctx.magnification = 66.667f;
        document.ctx.multiplePage = true;
        document.ctx.transparentColor = 4;
        const QByteArray text = document.save();
        // The short name keeps its trailing blanks.
        QCOMPARE(
            text.mid(text.indexOf("Portrait")),
            QByteArray("Portrait\nFlush left\nInches\nLetter  \n66.67\nMultiple\n4\n1200 2\n"));
    }

    void theVersionLineNamesTheVersionWithItsAddition()
    {
        const QString header = written([](QTextStream& stream) {
            CFigContext ctx;
            writeFigHeader(&ctx, stream);
        });
        QCOMPARE(header.section('\n', 1, 1),
                 "# Created by Orvalt version " + getOrvaltVersionString(true));
    }

    void theFigureCommentStandsBehindTheTransparentColour()
    {
        SavedDocument document;
        document.ctx.drawing.comments = "first\n\nthird";
        const QByteArray text = document.save();
        QVERIFY2(text.endsWith("\n-2\n# first\n# \n# third\n1200 2\n"), text.constData());
    }

    void theResolutionIsAlways1200WhateverTheFileSaid()
    {
        SavedDocument document;
        document.ctx.drawing.resolution = 80;
        QVERIFY(document.save().endsWith("\n1200 2\n"));
    }

    void anUnknownPaperSizeIsNoReasonToCrash()
    {
        SavedDocument document;
        document.ctx.paperSize = 29;
        QVERIFY(document.save().contains("\nB0\n"));
        document.ctx.paperSize = -1;
        QVERIFY(document.save().contains("\nLetter  \n"));
    }

    void userColoursStandInTheOrderOfTheirKeys()
    {
        SavedDocument document;
        document.ctx.userColors[3] = QColor(1, 2, 250);
        document.ctx.userColors[0] = QColor(255, 0, 0);
        QVERIFY(document.save().endsWith("\n1200 2\n0 32 #ff0000\n0 35 #0102fa\n"));
    }

    void theOtherFormOfColoursIsWrittenBehindItsFlagOnly()
    {
        CFigContext ctx;
        ctx.userColors[0] = QColor(255, 0, 0);
        write_v40 = true;
        const QString text = written([&](QTextStream& stream) { writeColordefs(&ctx, stream); });
        write_v40 = false;
        QCOMPARE(text, QString("UserColors {\n  Ucol 32 #ff0000\n"));
    }

    // --- records ----------------------------------------------------------------------

    void anEllipseIsOneLine()
    {
        FigEllipse* ellipse = with(makeEllipse(), 7, 45);
        ellipse->sub_type = 2;
        ellipse->line_style = 1;
        ellipse->thickness = 3;
        ellipse->pen_color = 4;
        ellipse->fill_color = 33;
        ellipse->pen_style = 5;
        ellipse->fill_style = 20;
        ellipse->style_val = 4.5f;
        ellipse->angle = 0.7854f;
        const std::unique_ptr<FigObject> owner(ellipse);
        QCOMPARE(writtenObject(ellipse),
                 QString("# METADATA <id>7</id>\n1 2 1 3 4 33 45 5 20 4.500 1 0.7854 1000 2000 300 "
                         "200 1000 2000 1300 2200\n"));
    }

    void aPolylineHasItsArrowsAndPointsOnLinesOfTheirOwn()
    {
        FigLine* line = makeLine({{1, 2}, {-3, 4}});
        line->join_style = 2;
        line->cap_style = 1;
        line->forward_arrow = new FigArrow{1, 0, 1.5f, 60, 120};
        line->backward_arrow = new FigArrow{14, 1, 0.25f, 59.999f, 120.125f};
        // 120.125 is a tie, which goes away from zero.
        QCOMPARE(record(line), QString("2 1 0 0 0 -1 0 -1 -1 0.000 2 1 -1 1 1 2\n"
                                       "\t1 0 1.50 60.00 120.00\n\t14 1 0.25 60.00 120.13\n"
                                       "\t 1 2 -3 4\n"));
    }

    void writeArrowsWritesTheForwardOneFirst()
    {
        FigLine line;
        line.forward_arrow = new FigArrow{1, 0, 1, 2, 3};
        line.backward_arrow = new FigArrow{2, 0, 1, 2, 3};
        QCOMPARE(written([&](QTextStream& stream) { writeArrows(stream, &line); }),
                 QString("\t1 0 1.00 2.00 3.00\n\t2 0 1.00 2.00 3.00\n"));
    }

    void anArrowFlagIsSetForItsOwnArrowOnly()
    {
        FigLine* line = makeLine({{1, 2}, {3, 4}});
        line->backward_arrow = new FigArrow;
        QVERIFY(record(line).startsWith("2 1 0 0 0 -1 0 -1 -1 0.000 0 0 -1 0 1 2\n\t0 0 1.00 "));
    }

    void anArcBoxKeepsItsRadius()
    {
        FigLine* box = makeLine({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}, T_ARCBOX);
        box->radius = 7;
        QCOMPARE(record(box), QString("2 4 0 0 0 -1 0 -1 -1 0.000 0 0 7 0 0 5\n"
                                      "\t 0 0 9 0 9 9 0 9 0 0\n"));
    }

    void sixPairsStandOnALine_data()
    {
        QTest::addColumn<int>("numPoints");
        QTest::addColumn<QString>("lines");
        const QString six = "\t 0 1 1 2 2 3 3 4 4 5 5 6\n";
        QTest::newRow("1") << 1 << "\t 0 1\n";
        QTest::newRow("6, no empty line") << 6 << six;
        QTest::newRow("7") << 7 << six + "\t 6 7\n";
        QTest::newRow("12") << 12 << six + "\t 6 7 7 8 8 9 9 10 10 11 11 12\n";
        QTest::newRow("13") << 13 << six + "\t 6 7 7 8 8 9 9 10 10 11 11 12\n\t 12 13\n";
    }

    void sixPairsStandOnALine()
    {
        QFETCH(int, numPoints);
        QFETCH(QString, lines);
        const QString text = record(lineOf(numPoints));
        QCOMPARE(lastField(text.section('\n', 0, 0)), QString::number(numPoints));
        QCOMPARE(text.section('\n', 1), lines);
    }

    void eightShapeFactorsStandOnALine_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("lines");
        const QString eight = "\t 0.000 0.100 0.200 0.300 0.400 0.500 0.600 0.700\n";
        QTest::newRow("2") << 2 << "\t 0.000 0.100\n";
        QTest::newRow("8, no empty line") << 8 << eight;
        QTest::newRow("9") << 9 << eight + "\t 0.800\n";
    }

    void eightShapeFactorsStandOnALine()
    {
        QFETCH(int, count);
        QFETCH(QString, lines);
        auto* spline = makeSpline({{5, 6}}, 4);
        free_sfactors(spline->sfactors);
        spline->sfactors = nullptr;
        FigShapeFactor* last = nullptr;
        for (int i = 0; i < count; ++i) {
            last = append_sfactor(i / 10.0, last);
            if (i == 0)
                spline->sfactors = last;
        }
        QCOMPARE(record(spline), "3 4 0 0 0 -1 0 -1 -1 0.000 0 0 0 1\n\t 5 6\n" + lines);
    }

    void aSplineWithoutFactorsHasNoLineForThem()
    {
        auto* spline = new FigSpline;
        spline->cap_style = 2;
        spline->points = makePoints({{1, 2}, {3, 4}});
        QCOMPARE(record(spline), QString("3 0 0 0 0 -1 0 -1 -1 0.000 2 0 0 2\n\t 1 2 3 4\n"));
    }

    void theSubTypeOfAnArcIsOneMoreThanInMemory()
    {
        FigArc* arc = makeArc();
        arc->sub_type = 1;
        arc->cap_style = 2;
        arc->direction = 1;
        arc->center_x = 1.0625f;
        arc->center_y = -2.5f;
        QCOMPARE(record(arc), QString("5 2 0 0 0 -1 0 -1 -1 0.000 2 1 0 0 1.063 -2.500 1 2 3 4 5 "
                                      "6\n"));
    }

    void theArrowsOfAnArcFollowItsLine()
    {
        FigArc* arc = makeArc();
        arc->backward_arrow = new FigArrow{2, 1, 1, 30, 40};
        QVERIFY(record(arc).endsWith(" 0 0 0 1 0.000 0.000 1 2 3 4 5 6\n\t2 1 1.00 30.00 40.00\n"));
    }

    void theHeightOfATextIsThePlainSumOfAscentAndDescent()
    {
        FigText* text = makeText("some words");
        text->sub_type = 2;
        text->color = 33;
        text->depth = 8;
        text->font = 16;
        text->size = 14;
        text->angle = 1.5708f;
        text->flags = 4;
        text->x = 10;
        text->y = -20;
        // Figure units and pixels: 120 + 3.
        QCOMPARE(record(text), QString("4 2 33 8 -1 16 14 1.5708 4 123 150 10 -20 some "
                                       "words\\001\n"));
    }

    void hugeExtentsOfATextDoNotOverflow()
    {
        FigText* text = makeText("x");
        text->ascent = INT_MAX;
        QVERIFY(record(text).contains(" 2147483650 150 "));
    }

    void eachBackslashOfATextIsDoubledAndNothingElseIsEscaped_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("field");
        QTest::newRow("one") << "a\\b"
                             << "a\\\\b";
        QTest::newRow("two") << "a\\\\b"
                             << "a\\\\\\\\b";
        QTest::newRow("at the end") << "a\\"
                                    << "a\\\\";
        QTest::newRow("other signs") << " #\"'\t<%d> "
                                     << " #\"'\t<%d> ";
        QTest::newRow("end mark") << "a\\001"
                                  << "a\\\\001";
    }

    void eachBackslashOfATextIsDoubledAndNothingElseIsEscaped()
    {
        QFETCH(QString, text);
        QFETCH(QString, field);
        QVERIFY2(record(makeText(text)).endsWith(" 150 0 0 " + field + "\\001\n"),
                 qPrintable(field));
    }

    void aTextThatHoldsTheEndMarkComesBackDamaged()
    {
        SavedDocument document;
        auto* text = new FigText;
        text->cstring = "a\\001b";
        pf_textwidth(&document.ctx, text, 1.0);
        document.add(text);
        QVERIFY(document.save().contains("a\\\\001b\\001\n"));
        CFigContext again;
        QVERIFY(load_file(&again, document.path()));
        // The end marks go first, so the second backslash takes "001" with it and the first one
        // escapes the b.
        QCOMPARE(static_cast<FigText*>(again.drawing.objects.first())->cstring, QString("ab"));
    }

    void aPictureHasItsNameOnALineOfItsOwn()
    {
        FigLine* box = makeLine({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}, T_PICTURE);
        box->pic = new FigPic;
        box->pic->flipped = 1;
        box->pic->file = "a picture.png";
        QCOMPARE(record(box).section('\n', 1, 1), QString("\t1 a picture.png"));
    }

    void aPictureWithoutNameIsWrittenAsEmpty_data()
    {
        QTest::addColumn<bool>("withPicture");
        QTest::newRow("no name") << true;
        QTest::newRow("no picture") << false;
    }

    void aPictureWithoutNameIsWrittenAsEmpty()
    {
        QFETCH(bool, withPicture);
        FigLine* box = makeLine({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}, T_PICTURE);
        box->pic = withPicture ? new FigPic : nullptr;
        QCOMPARE(record(box).section('\n', 1, 1), QString("\t0 <empty>"));
    }

    void onlyPicturesHaveAPictureLine()
    {
        FigLine* box = makeLine({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}, T_BOX);
        box->pic = new FigPic;
        QVERIFY(record(box).section('\n', 1, 1).startsWith("\t 0 0 "));
    }

    void theNameOfAPictureGoesThroughTheStreamAsBytesOfUtf8()
    {
        SavedDocument document;
        FigLine* box = makeLine({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}, T_PICTURE);
        box->pic = new FigPic;
        box->pic->file = QString::fromUtf8("B\xc3\xa4r.png");
        document.add(with(box, 1));
        QVERIFY(document.save().contains("\t0 B\xc3\xa4r.png\n"));
        // So it is not what the reader gets back under the usual encoding.
        CFigContext again;
        QVERIFY(load_file(&again, document.path()));
        QCOMPARE(static_cast<FigLine*>(again.drawing.objects.first())->pic->file,
                 QString::fromLatin1("B\xc3\xa4r.png"));
    }

    void lettersOutsideTheEncodingBecomeQuestionMarks()
    {
        SavedDocument document;
        document.add(with(makeText(QString::fromUtf8("\xc3\xbc\xe2\x82\xac")), 1));
        QVERIFY(document.save().contains(" \xfc?\\001\n"));
    }

    // --- number formats -----------------------------------------------------------------

    void realNumbersHaveAFixedNumberOfDecimals_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("three");
        QTest::addColumn<QString>("four");
        QTest::newRow("0") << 0.0 << "0.000"
                           << "0.0000";
        QTest::newRow("1") << 1.0 << "1.000"
                           << "1.0000";
        QTest::newRow("tie") << 0.0625 << "0.063"
                             << "0.0625";
        QTest::newRow("negative tie") << -0.0625 << "-0.063"
                                      << "-0.0625";
        QTest::newRow("carry") << 9.99999 << "10.000"
                               << "10.0000";
        QTest::newRow("small negative") << -0.0001 << "-0.000"
                                        << "-0.0001";
        QTest::newRow("smaller negative") << -0.00001 << "-0.000"
                                          << "-0.0000";
        QTest::newRow("minus zero") << -0.0 << "0.000"
                                    << "0.0000";
        QTest::newRow("large") << 16777216.0 << "16777216.000"
                               << "16777216.0000";
        QTest::newRow("infinite") << qInf() << "inf"
                                  << "inf";
        QTest::newRow("no number") << qQNaN() << "nan"
                                   << "nan";
    }

    void realNumbersHaveAFixedNumberOfDecimals()
    {
        QFETCH(double, value);
        QFETCH(QString, three);
        QFETCH(QString, four);
        FigEllipse* ellipse = makeEllipse();
        ellipse->style_val = static_cast<float>(value);
        ellipse->angle = static_cast<float>(value);
        const QStringList fields = record(ellipse).split(' ');
        QCOMPARE(fields.at(9), three);
        QCOMPARE(fields.at(11), four);
    }

    void aSmallNegativeShapeFactorKeepsItsSign()
    {
        auto* spline = new FigSpline;
        spline->points = makePoints({{1, 2}});
        spline->sfactors = append_sfactor(-0.0004, nullptr);
        QCOMPARE(record(spline).section('\n', 2, 2), QString("\t -0.000"));
    }

    // The file has "-0.000", which is read as a zero with a sign, and no zero is written with one.
    void aNegativeNumberThatIsTooSmallLosesItsSignWhenReadBack()
    {
        SavedDocument document;
        FigLine* line = with(makeLine({{0, 0}, {9, 9}}), 1);
        line->style_val = -0.0004f;
        document.add(line);
        QVERIFY(document.save().contains(" -0.000 "));
        QVERIFY(openAndSave(document.path(), document.path()));
        QVERIFY(contentOf(document.path()).contains(" 0.000 "));
    }

    // Just below a full turn the rounded angle is past it, so the reader takes the turn off.
    void anAngleThatRoundsToAFullTurnComesBackAsNone()
    {
        SavedDocument document;
        FigEllipse* ellipse = with(makeEllipse(), 1);
        ellipse->angle = 6.28318f;
        document.add(ellipse);
        QVERIFY(document.save().contains(" 6.2832 "));
        QVERIFY(openAndSave(document.path(), document.path()));
        QVERIFY(contentOf(document.path()).contains(" 0.0000 "));
    }

    // What is too thin for two decimals has no thickness in the file, and such an arrow takes that
    // of the current attributes when it is read.
    void anArrowThinnerThanAHundredthComesBackAtTheCurrentThickness()
    {
        SavedDocument document;
        FigLine* line = with(makeLine({{0, 0}, {9, 9}}), 1);
        line->forward_arrow = new FigArrow{1, 0, 0.004f, 60, 120};
        document.add(line);
        QVERIFY(document.save().contains("\t1 0 0.00 60.00 120.00\n"));
        QVERIFY(openAndSave(document.path(), document.path()));
        QVERIFY(contentOf(document.path()).contains("\t1 0 1.00 60.00 120.00\n"));
    }

    // The default font is -1 in memory; the reader takes -1 for the first font.
    void theDefaultFontComesBackAsTheFirstOne()
    {
        SavedDocument document;
        FigText* text = with(makeText("x"), 1);
        text->font = -1;
        document.add(text);
        QVERIFY(document.save().contains("\n4 0 0 50 -1 -1 12 "));
        QVERIFY(openAndSave(document.path(), document.path()));
        QVERIFY(contentOf(document.path()).contains("\n4 0 0 50 -1 0 12 "));
    }

    // --- comments -------------------------------------------------------------------------

    void metadataComesFirstThenCommentsThenTheRecord()
    {
        FigLine* line = with(makeLine({{0, 0}, {9, 9}}), 4);
        makeLink(line->points, 5);
        line->comments = "note";
        FigEllipse* target = with(makeEllipse(), 5);
        OwnedList root = {line, target};
        const QString text =
            written([&](QTextStream& stream) { writeObject(stream, &root, line); });
        QCOMPARE(text, QString("# METADATA <id>4</id>\n"
                               "# METADATA <link srcPointIdx=0 targetObjId=5 "
                               "targetLeftPointIdx=-1/>\n"
                               "# note\n2 1 0 0 0 -1 50 -1 -1 0.000 0 0 -1 0 0 2\n\t 0 0 9 9\n"));
    }

    void emptyPartsOfACommentAreKept_data()
    {
        QTest::addColumn<QString>("comment");
        QTest::addColumn<QString>("lines");
        QTest::newRow("none") << ""
                              << "";
        QTest::newRow("one") << "a"
                             << "# a\n";
        QTest::newRow("two empty") << "\n"
                                   << "# \n# \n";
        QTest::newRow("within") << "a\n\nb\n"
                                << "# a\n# \n# b\n# \n";
        QTest::newRow("own mark") << "#foo"
                                  << "# #foo\n";
    }

    void emptyPartsOfACommentAreKept()
    {
        QFETCH(QString, comment);
        QFETCH(QString, lines);
        QCOMPARE(written([&](QTextStream& stream) { writeComments(stream, comment); }), lines);
    }

    void everyTypeHasItsComment()
    {
        const QList<FigObject*> objects = {
            makeEllipse(), makeLine({{1, 1}}), makeSpline({{1, 1}, {2, 2}}),
            makeText("x"), makeArc(),          makeCompound({})};
        for (FigObject* object : objects) {
            object->comments = "note";
            QVERIFY(record(object).startsWith("# note\n"));
        }
    }

    void aCommentWithoutBlankGetsOne()
    {
        SavedDocument document;
        QFile file(document.path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("#FIG 3.2\nPortrait\nCenter\nMetric\nA4\n100.00\nSingle\n-2\n1200 2\n"
                   "#foo\n2 1 0 1 0 7 50 -1 -1 0.000 0 0 -1 0 0 2\n\t 0 0 9 9\n");
        file.close();
        QVERIFY(openAndSave(document.path(), document.path()));
        QVERIFY(contentOf(document.path()).contains("\n# foo\n"));
    }

    void aCommentThatBeginsWithMetadataIsMetadataWhenReadBack()
    {
        SavedDocument document;
        FigLine* line = with(makeLine({{0, 0}, {9, 9}}), 1);
        line->comments = "METADATA of mine\nkept";
        document.add(line);
        QVERIFY(document.save().contains("\n# METADATA of mine\n# kept\n"));
        CFigContext again;
        QVERIFY(load_file(&again, document.path()));
        QCOMPARE(again.drawing.objects.first()->comments, QString("kept"));
    }

    // --- compounds ------------------------------------------------------------------------

    void compoundsAreNestedEachWithItsOwnId()
    {
        FigCompound* inner = with(makeCompound({with(makeLine({{5, 6}}), 4)}), 3);
        FigCompound* outer = with(makeCompound({with(makeEllipse(), 2), inner}), 1);
        outer->nwcorner = FigPoint(-1, -2);
        outer->secorner = FigPoint(3, 4);
        const std::unique_ptr<FigObject> owner(outer);
        QCOMPARE(writtenObject(outer),
                 QString("# METADATA <id>1</id>\n6 -1 -2 3 4\n"
                         "# METADATA <id>2</id>\n1 1 0 0 0 -1 50 -1 -1 0.000 1 0.0000 1000 2000 "
                         "300 200 1000 2000 1300 2200\n"
                         "# METADATA <id>3</id>\n6 0 0 0 0\n"
                         "# METADATA <id>4</id>\n2 1 0 0 0 -1 50 -1 -1 0.000 0 0 -1 0 0 1\n"
                         "\t 5 6\n-6\n-6\n"));
    }

    void anEmptyCompoundIsWrittenLikeAnyOther()
    {
        QCOMPARE(record(makeCompound({})), QString("6 0 0 0 0\n-6\n"));
    }

    void withACompoundOpenTheWholeDrawingIsWritten()
    {
        SavedDocument document;
        FigCompound* compound = with(makeCompound({with(makeEllipse(), 2)}), 1);
        document.add(compound);
        document.add(with(makeEllipse(), 3));
        document.ctx.openCompoundObjects = compound->objects;
        QCOMPARE(document.save().count("# METADATA <id>"), 3);
        document.ctx.openCompoundObjects = nullptr;
    }

    void compoundsAreNotCountedButTheirMembersAre()
    {
        SavedDocument document;
        document.add(with(makeCompound({with(makeSpline({{1, 1}, {2, 2}}), 2),
                                        with(makeCompound({with(makeEllipse(), 4)}), 3)}),
                          1));
        document.add(with(makeLine({{0, 0}}), 5));
        document.save();
        QCOMPARE(recordingShell.messages.last(),
                 "3 object(s) saved in \"" + document.path() + "\"");
    }

    // --- what is left out -------------------------------------------------------------------

    void anObjectWithoutRecordLeavesNoLineAtAll_data()
    {
        QTest::addColumn<FigObject*>("object");
        QTest::newRow("ellipse without width") << static_cast<FigObject*>(makeEllipse(0, 5));
        QTest::newRow("ellipse without height") << static_cast<FigObject*>(makeEllipse(5, 0));
        QTest::newRow("line without points") << static_cast<FigObject*>(new FigLine);
        QTest::newRow("spline without points") << static_cast<FigObject*>(new FigSpline);
        QTest::newRow("text of length 0") << static_cast<FigObject*>(new FigText);
    }

    void anObjectWithoutRecordLeavesNoLineAtAll()
    {
        QFETCH(FigObject*, object);
        SavedDocument empty, document;
        document.add(with(object, 17));
        object->comments = "must not go to the next object";
        QCOMPARE(document.save(), empty.save());
        QCOMPARE(writtenObject(object), QString());
    }

    void writersOfSingleTypesLeaveOutTheSameObjects()
    {
        FigLine line;
        FigSpline spline;
        FigText text;
        FigEllipse ellipse;
        ellipse.radiuses = FigPoint(1, 0);
        line.comments = spline.comments = text.comments = ellipse.comments = "note";
        QCOMPARE(written([&](QTextStream& stream) {
                     writeLine(stream, &line);
                     writeSpline(stream, &spline);
                     writeText(stream, &text);
                     writeEllipse(stream, &ellipse);
                 }),
                 QString());
    }

    void aNegativeRadiusIsARecord()
    {
        QVERIFY(record(makeEllipse(-3, 4)).contains(" 1000 2000 -3 4 "));
    }

    // The count is raised before the object is looked at.
    void theMessageCountsObjectsThatAreLeftOut()
    {
        SavedDocument document;
        document.add(makeEllipse(0, 0));
        document.add(with(makeCompound({new FigText}), 1));
        document.save();
        QCOMPARE(recordingShell.messages.last(),
                 "2 object(s) saved in \"" + document.path() + "\"");
    }

    // Otherwise the next save would write other corners than this one.
    void theCornersOfACompoundAreThoseOfWhatIsWrittenOfIt()
    {
        FigEllipse* nothing = with(makeEllipse(0, 0), 4);
        nothing->center = nothing->start = nothing->end = FigPoint(90000, 90000);
        FigCompound* inner =
            with(makeCompound({with(makeLine({{10, 20}, {30, 40}}), 3), nothing}), 2);
        FigCompound* outer = with(makeCompound({inner, with(makeLine({{5, 50}, {6, 60}}), 5)}), 1);
        inner->secorner = outer->secorner = FigPoint(90000, 90000);
        SavedDocument document;
        document.add(outer);
        const QByteArray text = document.save();
        QVERIFY2(text.contains("<id>1</id>\n6 5 20 30 60\n"), text.constData());
        QVERIFY2(text.contains("<id>2</id>\n6 10 20 30 40\n"), text.constData());
        QVERIFY(openAndSave(document.path(), document.path()));
        QCOMPARE(contentOf(document.path()), text);
    }

    void theCornersOfACompleteCompoundAreWrittenAsTheyStand()
    {
        FigCompound* compound = with(makeCompound({with(makeLine({{10, 20}, {30, 40}}), 2)}), 1);
        compound->secorner = FigPoint(7, 8);
        SavedDocument document;
        document.add(compound);
        QVERIFY(document.save().contains("\n6 0 0 7 8\n"));
    }

    // --- links ----------------------------------------------------------------------------

    void linksStandInTheOrderOfTheirPoints()
    {
        FigSpline* source = with(makeSpline({{1, 1}, {2, 2}, {3, 3}}), 1);
        makeLink(source->points->next->next, 2, 4, 5);
        makeLink(source->points, 3, -1);
        FigLine* line = with(makeLine({{0, 0}, {9, 9}}), 2);
        OwnedList root = {source, with(makeCompound({with(makeEllipse(), 3)}), 9), line};
        QCOMPARE(written([&](QTextStream& stream) { writeLinks(stream, &root, source); }),
                 QString("# METADATA <link srcPointIdx=0 targetObjId=3 targetLeftPointIdx=-1/>\n"
                         "# METADATA <link srcPointIdx=2 targetObjId=2 targetLeftPointIdx=4/>\n"));
    }

    void aLinkToAnObjectThatIsGoneIsNotWritten_data()
    {
        QTest::addColumn<int>("target");
        QTest::newRow("gone") << 99;
        QTest::newRow("none") << -1;
        QTest::newRow("left out") << 3;
    }

    void aLinkToAnObjectThatIsGoneIsNotWritten()
    {
        QFETCH(int, target);
        SavedDocument document;
        FigLine* line = with(makeLine({{0, 0}, {9, 9}}), 1);
        makeLink(line->points, target);
        document.add(line);
        document.add(with(makeEllipse(), 2));
        document.add(with(makeEllipse(0, 0), 3));
        document.add(with(makeLine({{0, 0}}), -1));
        QVERIFY(!document.save().contains("<link"));
        QCOMPARE(written([&](QTextStream& stream) {
                     writeLinks(stream, &document.ctx.drawing.objects, line);
                 }),
                 QString());
    }

    void linksAreWrittenInAWholeDocumentAsInASingleObject()
    {
        SavedDocument document;
        FigLine* line = with(makeLine({{0, 0}, {9, 9}}), 1);
        makeLink(line->points->next, 4);
        document.add(with(makeCompound({line}), 2));
        document.add(with(makeCompound({with(makeEllipse(), 4)}), 3));
        QVERIFY(document.save().contains(
            "# METADATA <link srcPointIdx=1 targetObjId=4 targetLeftPointIdx=-1/>\n"));
    }

    void onlyLinesAndSplinesHaveLinks()
    {
        FigArc* arc = with(makeArc(), 1);
        const std::unique_ptr<FigLink> link(makeLink(&arc->point[0], 2));
        OwnedList root = {arc, with(makeEllipse(), 2)};
        QCOMPARE(written([&](QTextStream& stream) { writeLinks(stream, &root, arc); }), QString());
    }

    void manyLinksTakeLinearTime()
    {
        constexpr int count = 30000;
        SavedDocument document;
        for (int id = 1; id <= count; ++id) {
            FigLine* line = with(makeLine({{id, 0}, {id, 9}}), id);
            makeLink(line->points, count + 1 - id, 0, 1);
            document.add(line);
        }
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(document.save().count("<link"), count);
        // A walk for each link takes minutes.
        QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
    }
};

QTEST_MAIN(TestFSave)
#include "test_f_save.moc"
