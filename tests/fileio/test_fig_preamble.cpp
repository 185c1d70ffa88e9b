#include "ReaderFixture.h"

#include "model/w_layers.h"

#include <QtTest>

namespace {

/// The preamble without its last lines.
QByteArray firstLines(int count)
{
    return foreignHeader.split('\n').mid(0, count).join('\n') + '\n';
}

QByteArray withLine(int number, const QByteArray& line)
{
    QList<QByteArray> lines = foreignHeader.split('\n');
    lines[number - 1] = line;
    return lines.join('\n');
}

} // namespace

class TestFigPreamble : public QObject {
    Q_OBJECT

private slots:
    void init() { defer_update_layers = 0; }
    void cleanup() { defer_update_layers = 0; }

    void allLinesAreStored()
    {
        OpenedFigure figure(
            "#FIG 3.2  Produced by hand\nlandscape mode\nFlush left\nInches\nLetter  \n"
            "66.67\nMultiple\n-3\n600 1\n");
        QVERIFY(figure.opened);
        QVERIFY(figure.ctx.landscape);
        QVERIFY(figure.ctx.flushLeft);
        QVERIFY(!figure.ctx.metric);
        QCOMPARE(figure.ctx.paperSize, 0);
        QCOMPARE(figure.ctx.magnification, 66.67f);
        QVERIFY(figure.ctx.multiplePage);
        QCOMPARE(figure.ctx.transparentColor, -3);
        QCOMPARE(figure.ctx.drawing.resolution, 600);
        // The second number of the resolution line is dropped.
        QCOMPARE(figure.ctx.drawing.coord_system, 0);
    }

    void theOldFormatHasNoPaperToTransparentColour()
    {
        OpenedFigure figure(
            "#FIG 3.1\nPortrait\nCenter\nInches\n1200 2\n1 3 0 1 0 7 50 0 -1 0.0 1 0.0 "
            "900 900 90 90 900 900 990 900\n");
        QVERIFY(figure.opened);
        QCOMPARE(figure.count(), 1);
        QVERIFY(!figure.ctx.landscape);
        QVERIFY(!figure.ctx.flushLeft);
        QCOMPARE(figure.ctx.paperSize, 13);
    }

    void aJustificationThatIsNoneIsTakenForTheUnits()
    {
        OpenedFigure figure("#FIG 3.2\nPortrait\nMetric\nA4\n100.00\nSingle\n-2\n1200 2\n");
        QVERIFY(figure.opened);
        QVERIFY(figure.ctx.metric);
        QVERIFY(figure.ctx.flushLeft);
        QCOMPARE(figure.ctx.paperSize, 13);
        QCOMPARE(figure.remarks(), QStringList());
    }

    void aMissingLineIsTold_data()
    {
        QTest::addColumn<int>("lines");
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("panelFollowsAgain");
        QTest::newRow("2") << 2 << "No Center/Flushleft specification" << true;
        QTest::newRow("3") << 3 << "No Metric/Inches specification" << true;
        QTest::newRow("4") << 4 << "No Paper size specification" << true;
        QTest::newRow("5") << 5 << "No Magnification specification" << false;
        QTest::newRow("6") << 6 << "No Multiple page flag specification" << false;
        QTest::newRow("7") << 7 << "No Transparent color specification" << false;
        QTest::newRow("8") << 8 << "No Resolution specification; figure is empty" << false;
    }

    // Only the first four and a newer version end the deferring of the layer panel.
    void aMissingLineIsTold()
    {
        QFETCH(int, lines);
        OpenedFigure figure(firstLines(lines));
        QVERIFY(!figure.opened);
        QTEST(figure.messages.last(), "message");
        QTEST(defer_update_layers == 0, "panelFollowsAgain");
        QVERIFY(figure.boxes.isEmpty());
    }

    void aMissingOrientationIsTold()
    {
        OpenedFigure figure("#FIG 3.2\n\n# only a comment\n");
        QVERIFY(!figure.opened);
        QCOMPARE(figure.messages.last(), QString("No Portrait/Landscape specification"));
        QCOMPARE(defer_update_layers, 0);
    }

    void thePageModeMustBeOneOfTwoWords()
    {
        OpenedFigure figure(withLine(7, "Double"));
        QVERIFY(!figure.opened);
        QCOMPARE(figure.messages.last(), QString("No Multiple page flag specification"));
    }

    // The test for a second line comes before that for the mark.
    void aFileOfOneLineIsEmptyWhateverItSays_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("mark") << QByteArray("#FIG 3.2\n");
        QTest::newRow("other") << QByteArray("hello");
    }

    void aFileOfOneLineIsEmptyWhateverItSays()
    {
        QFETCH(QByteArray, bytes);
        OpenedFigure figure(bytes);
        QVERIFY(!figure.opened);
        QCOMPARE(figure.messages.last(), QString("File \"%1\" is empty.").arg(figure.path));
        QCOMPARE(defer_update_layers, 0);
    }

    void theMarkIsCaseSensitive()
    {
        OpenedFigure figure("#fig 3.2\nPortrait\n");
        QVERIFY(!figure.opened);
        QCOMPARE(figure.messages.last(), QString("Not a Fig file"));
        QCOMPARE(defer_update_layers, 1);
    }

    void oldVersionsAreRefusedWithABox_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QString>("shown");
        QTest::newRow("2.1") << QByteArray(" 2.1") << "2.1";
        QTest::newRow("3.0") << QByteArray(" 3.0") << "3.0";
        QTest::newRow("none") << QByteArray("3.2") << "0.0";
        QTest::newRow("no number") << QByteArray(" new") << "0.0";
        QTest::newRow("not a number") << QByteArray(" nan") << "nan";
    }

    void oldVersionsAreRefusedWithABox()
    {
        QFETCH(QByteArray, field);
        QFETCH(QString, shown);
        OpenedFigure figure("#FIG" + field + "\nPortrait\nCenter\nInches\n1200 2\n");
        QVERIFY(!figure.opened);
        QCOMPARE(
            figure.boxes,
            QStringList("Export failed!: Figure is in FIG " + shown +
                        " format. Use an older version of Orvalt or Xfig to convert to FIG 3.2"));
        QCOMPARE(figure.remarks(), QStringList());
    }

    void newerVersionsAreRefused_data()
    {
        QTest::addColumn<QByteArray>("version");
        QTest::addColumn<QString>("shown");
        QTest::newRow("3.3") << QByteArray("3.3") << "3.3";
        QTest::newRow("4") << QByteArray("4") << "4.0";
        QTest::newRow("infinite") << QByteArray("inf") << "inf";
    }

    void newerVersionsAreRefused()
    {
        QFETCH(QByteArray, version);
        QFETCH(QString, shown);
        OpenedFigure figure("#FIG " + version + "\nPortrait\n");
        QVERIFY(!figure.opened);
        QCOMPARE(figure.messages.last(),
                 QString("You must have a NEWER version of Orvalt to load this figure (%1).")
                     .arg(shown));
        QCOMPARE(defer_update_layers, 0);
    }

    void theOriginIsReadFromTheFirstComment_data()
    {
        QTest::addColumn<QByteArray>("commentLines");
        QTest::addColumn<bool>("own");
        QTest::addColumn<QString>("comment");
        QTest::newRow("none") << QByteArray() << false << "";
        QTest::newRow("own") << QByteArray("# Orvalt 7\n") << true << "";
        QTest::newRow("own in lower case") << QByteArray("# orvalt\n") << false << "";
        QTest::newRow("first two dropped") << QByteArray("# a\n# b\n# c\n# d\n") << false << "c\nd";
        QTest::newRow("named second") << QByteArray("# a\n# Orvalt\n") << false << "";
        QTest::newRow("one dropped when empty") << QByteArray("#\n# b\n# c\n") << false << "b\nc";
        QTest::newRow("metadata is no comment")
            << QByteArray("# METADATA Orvalt\n# a\n# b\n# c\n") << false << "c";
    }

    void theOriginIsReadFromTheFirstComment()
    {
        QFETCH(QByteArray, commentLines);
        OpenedFigure figure(QByteArray(foreignHeader).replace("3.2\n", "3.2\n" + commentLines));
        QVERIFY(figure.opened);
        QTEST(isFromOrvalt, "own");
        QTEST(figure.ctx.drawing.comments, "comment");
    }

    void laterCommentsOfThePreambleBelongToTheFigure()
    {
        OpenedFigure figure("#FIG 3.2\n# origin\nPortrait\n# one\nCenter\n#  two\nMetric\nA4\n100\n"
                            "Single\n-2\n#three\n1200 2\n# object\n"
                            "1 3 0 1 0 7 50 0 -1 0.0 1 0.0 900 900 90 90 900 900 990 900\n");
        QCOMPARE(figure.ctx.drawing.comments, QString("one\n two\nthree"));
        QCOMPARE(figure.object()->comments, QString("object"));
    }

    void anUnknownPaperTakesTheDefaultOfTheUnits_data()
    {
        QTest::addColumn<QByteArray>("unit");
        QTest::addColumn<int>("paper");
        QTest::newRow("metric") << QByteArray("Metric") << 13;
        QTest::newRow("inches") << QByteArray("Inches") << 0;
    }

    void anUnknownPaperTakesTheDefaultOfTheUnits()
    {
        QFETCH(QByteArray, unit);
        OpenedFigure figure("#FIG 3.2\nPortrait\nCenter\n" + unit +
                            "\nLedger\n100\nSingle\n-2\n1200 2\n");
        QVERIFY(figure.opened);
        QTEST(figure.ctx.paperSize, "paper");
        QCOMPARE(figure.remarks(), QStringList("Illegal paper size in file, using default"));
    }

    void paperNames_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("index");
        QTest::newRow("Letter") << "Letter" << 0;
        QTest::newRow("with blanks") << "Legal   " << 1;
        QTest::newRow("A4") << "A4" << 13;
        QTest::newRow("B10") << "B10" << 18;
        QTest::newRow("last") << "B0" << 28;
        QTest::newRow("with a size") << "A3(297)" << 14;
        QTest::newRow("lower case") << "a4" << -1;
        QTest::newRow("ledger becomes an unknown tabloid") << "Ledger" << -1;
        QTest::newRow("a bracket behind a blank keeps the blank") << "Letter (8.5" << -1;
        QTest::newRow("empty") << "" << -1;
        QTest::newRow("blank first") << " A4" << -1;
    }

    void paperNames()
    {
        QFETCH(QString, text);
        QTEST(parse_papersize(text), "index");
    }

    void mergingKeepsThePageOfTheDocument()
    {
        OpenedFigure figure(foreignHeader);
        figure.ctx.landscape = true;
        figure.ctx.metric = false;
        FigDrawing piece;
        QCOMPARE(read_fig(&figure.ctx, figure.path, &piece, true, 0, 0), 0);
        QVERIFY(figure.ctx.landscape);
        QVERIFY(!figure.ctx.metric);
    }

    void aResolutionThatIsNoneMeansTheUsualOne()
    {
        OpenedFigure figure(withLine(9, "0 2"));
        QVERIFY(figure.opened);
        QCOMPARE(figure.ctx.drawing.resolution, 1200);
        QCOMPARE(figure.remarks(), QStringList());
    }
};

QTEST_GUILESS_MAIN(TestFigPreamble)
#include "test_fig_preamble.moc"
