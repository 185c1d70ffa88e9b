// Damaged and malicious files: the reader answers, does not hang, and keeps its memory small.
#include "ReaderFixture.h"

#include "render/grid.h"

#include <QDir>
#include <QtTest>

#include <malloc.h>

#include <random>

namespace {

const QByteArray circleRecord = "1 3 0 1 0 7 50 -1 -1 0.0 1 0.0 900 900 90 90 900 900 990 900\n";

QByteArray lineOf(const QByteArray& count, const QByteArray& points)
{
    return "2 1 0 1 0 7 50 -1 -1 0.0 0 0 -1 0 0 " + count + "\n\t" + points + "\n";
}

/// A figure with every kind of record, of 60 lines or so.
const QByteArray sample =
    "#FIG 3.2\n# Orvalt\nLandscape\nFlush left\nInches\nLetter  \n100.00\nSingle\n-2\n# "
    "figure\n1200 2\n"
    "0 32 #a1b2c3\n# object\n# METADATA <id>3</id>\n" +
    circleRecord +
    "# METADATA <id>4</id>\n"
    "# METADATA <link srcPointIdx=0 targetObjId=3 targetLeftPointIdx=-1 />\n"
    "2 1 1 2 32 7 50 -1 20 4.000 1 1 -1 1 1 3\n\t1 1 1.00 60.00 120.00\n\t14 0 2.00 60.00 120.00\n"
    "\t1200 1200 2400 2400\n\t3600 1200\n"
    "2 5 0 1 0 -1 50 -1 -1 0.000 0 0 -1 0 0 5\n\t0 missing.png\n"
    "\t0 0 600 0 600 600 0 600 0 0\n"
    "6 0 0 2400 2400\n# METADATA <id>5</id>\n"
    "3 2 0 1 4 7 50 -1 -1 0.000 0 1 0 3\n\t1 1 1.00 60.00 120.00\n\t0 0 600 600 1200 0\n"
    "\t0.000 -1.000 0.000\n6 0 0 0 0\n"
    "5 1 0 1 0 7 50 -1 -1 0.000 0 1 1 0 600.0 600.0 1200 600 600 0 0 600\n\t1 1 1.0 60.0 "
    "120.0\n-6\n"
    "4 1 0 50 -1 16 12 0.7854 4 135 300 1200 2400 A \\\\ text \\344\\001\n-6\n"
    "3 5 0 1 0 7 50 -1 41 0.000 0 0 0 4\n\t0 0 600 0 600 600 0 600\n\t1 1 1 1\n";

/// Cuts, doubles, overwrites and inserts at random places.
QByteArray damaged(QByteArray bytes, std::mt19937& random)
{
    static const QList<QByteArray> insertions = {"2147483648",
                                                 "-2147483648",
                                                 "-1",
                                                 "99999999",
                                                 "nan",
                                                 "inf",
                                                 "1e308",
                                                 "0x7fffffff",
                                                 "\n",
                                                 "\n6 0 0 0 0\n",
                                                 "\n-6\n",
                                                 "#",
                                                 QByteArray(1, '\0'),
                                                 "\\",
                                                 "-",
                                                 " ",
                                                 "\xef\xbb\xbf",
                                                 "\r",
                                                 "\n0 "};
    const auto below = [&](int limit) { return static_cast<int>(random() % unsigned(limit)); };
    for (int i = 1 + below(6); i > 0; --i) {
        const int place = below(bytes.size());
        switch (below(4)) {
        case 0:
            bytes.remove(place, below(40));
            break;
        case 1:
            bytes[place] = static_cast<char>(below(256));
            break;
        case 2:
            bytes.insert(place, insertions.at(below(insertions.size())));
            break;
        default:
            bytes.insert(place, bytes.mid(below(bytes.size()), below(200)));
        }
        if (bytes.isEmpty())
            bytes = "#";
    }
    return bytes;
}

/// What the reader makes of each object, in order.
QString treeText(FigObjectList* objects)
{
    QString text;
    for (FigObject* object : *objects) {
        text += QString("%1.%2:%3 %4 %5 %6 ")
                    .arg(object->type)
                    .arg(object->sub_type)
                    .arg(object->id)
                    .arg(object->depth)
                    .arg(object->fill_style)
                    .arg(object->comments);
        if (auto* line = dynamic_cast<FigLine*>(object))
            text += pointsText(line) + (line->pic ? line->pic->file : QString());
        else if (auto* spline = dynamic_cast<FigSpline*>(object))
            text += pointsText(spline) + factorsText(spline);
        else if (auto* compound = dynamic_cast<FigCompound*>(object))
            text += "(" + treeText(compound->objects) + ")";
        else if (auto* string = dynamic_cast<FigText*>(object))
            text += string->cstring;
        if (object->forward_arrow)
            text += QString(" arrow %1").arg(static_cast<double>(object->forward_arrow->ht));
        text += "\n";
    }
    return text;
}

/// The preamble and the objects of a file through a stream over the device itself.
QString treeThroughDevice(const QString& path, QStringList* messages)
{
    recordingShell.clear();
    QFile file(path);
    CFigContext ctx;
    int version10 = 0;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return "not open";
    OrvaltTextStream stream(&file);
    line_no = 1;
    num_object = 0;
    comments.clear();
    if (readPreamble(&ctx, stream, &ctx.drawing, false, &version10) == 0) {
        ctx.drawing.comments = attach_comments();
        read_objects(&ctx, stream, &ctx.drawing, version10);
    }
    comments.clear();
    *messages = recordingShell.messages;
    return treeText(&ctx.drawing.objects);
}

/// Every object at every level has an id of its own.
bool idsAreUnique(CFigContext& ctx)
{
    QSet<long> seen;
    return checkObjectIds(&ctx.drawing.objects, &seen);
}

} // namespace

class TestHostileFigures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { loadGridDefinitions(); }
    void cleanupTestCase() { destroyGridDefinitions(); }

    void theSampleIsSound()
    {
        OpenedFigure figure(sample);
        QVERIFY(figure.opened);
        QCOMPARE(figure.count(), 5);
        QCOMPARE(figure.countInMessage(), 6); // 4 at top level; in compounds the arc and the text
    }

    void aFileMayEndAnywhere()
    {
        for (int length = 0; length < sample.size(); ++length) {
            OpenedFigure figure(sample.left(length));
            QVERIFY(idsAreUnique(figure.ctx));
        }
    }

    void randomDamageIsAnswered()
    {
        const unsigned seed = 5150;
        std::mt19937 random(seed);
        for (int i = 0; i < 1500; ++i) {
            const QByteArray bytes = damaged(sample, random);
            OpenedFigure figure(bytes, i % 2);
            QVERIFY2(idsAreUnique(figure.ctx),
                     qPrintable(QString("seed %1, file %2").arg(seed).arg(i)));
        }
    }

    // The reader takes its own way over a string; a stream over a file has to give the same.
    void aStreamOverTheFileGivesTheSameTree()
    {
        const unsigned seed = 99;
        std::mt19937 random(seed);
        int compared = 0;
        for (int i = 0; i < 400; ++i) {
            OpenedFigure figure(i == 0 ? sample : damaged(sample, random));
            QStringList messages;
            const QString tree = treeThroughDevice(figure.path, &messages);
            // Without what read_fig does to the objects afterwards.
            if (figure.opened && figure.ctx.drawing.resolution == 1200) {
                QCOMPARE(treeText(&figure.ctx.drawing.objects), tree);
                QCOMPARE(figure.remarks(), messages);
                ++compared;
            }
        }
        QVERIFY(compared > 200);
    }

    // Numbers that have given out end a record at 100000 points, all but the read ones zero.
    void aCountBeyondTheNumbersEndsAtAHundredThousand_data()
    {
        QTest::addColumn<QByteArray>("count");
        QTest::addColumn<QByteArray>("points");
        QTest::addColumn<int>("made");
        QTest::newRow("end of file") << QByteArray("2147483647") << QByteArray("1 2 3 4") << 100000;
        QTest::newRow("a bad token")
            << QByteArray("200000") << QByteArray("1 2 3 4 x 5 6") << 100000;
        QTest::newRow("below that zeros are kept")
            << QByteArray("70000") << QByteArray("1 2 3 4") << 70000;
        QTest::newRow("an overflown count is negative")
            << QByteArray("2147483648") << QByteArray("1 2") << 1;
    }

    void aCountBeyondTheNumbersEndsAtAHundredThousand()
    {
        QFETCH(QByteArray, count);
        QFETCH(QByteArray, points);
        OpenedFigure figure(foreignHeader + lineOf(count, points));
        auto* line = figure.as<FigLine>();
        QVERIFY(line);
        QTEST(line->getNumPoints(), "made");
        QCOMPARE(line->points->x, 1);
        if (line->getNumPoints() > 1) {
            QCOMPARE(line->getPoint(1)->y, 4);
            QCOMPARE(last_point(line->points)->x, 0);
        }
    }

    void splinesWithAnAbsurdCountHaveAFactorForEachPoint()
    {
        OpenedFigure figure(foreignHeader + "3 4 0 1 0 7 50 -1 -1 0.0 0 0 0 2000000000\n1 2 3 4\n");
        auto* spline = figure.as<FigSpline>();
        QVERIFY(spline);
        QCOMPARE(spline->getNumPoints(), 100000);
        QVERIFY(spline->getShapeFactor(99999));
        QVERIFY(!spline->getShapeFactor(100000));
    }

    void aRecordOfManyPointsIsReadWhole()
    {
        const QByteArray points = QByteArray("1 2 ").repeated(150000);
        OpenedFigure figure(foreignHeader + lineOf("x", "x") + "\n" + lineOf("150000", points));
        // The damage of the first record is no reason to cut the second.
        QCOMPARE(figure.as<FigLine>(1)->getNumPoints(), 150000);
    }

    // Each such record could ask for 100000 points; all together may add two millions.
    void manyAbsurdCountsDoNotFillTheMemory()
    {
        const auto before = mallinfo2().uordblks;
        OpenedFigure figure(foreignHeader + lineOf("999999999", "1 2 x").repeated(500));
        QVERIFY(figure.opened);
        QCOMPARE(figure.count(), 500);
        QVERIFY(mallinfo2().uordblks - before < 400u * 1000 * 1000);
    }

    void absurdArrowsAndFlagsAreHarmless()
    {
        OpenedFigure figure(foreignHeader +
                            "2 1 0 1 0 7 50 -1 -1 0.0 0 0 -1 99 -99 2\n"
                            "-2147483648 2147483647 nan -inf 1e300\n99 99 99 99 99\n1 2 3 4\n");
        QCOMPARE(figure.object()->forward_arrow->type, 0);
        QCOMPARE(figure.object()->backward_arrow->type, 0);
    }

    void nulBytesAreCharactersLikeOthers()
    {
        QByteArray bytes = foreignHeader + "4 0 0 50 -1 0 12 0.0 4 135 300 1200 2400 a?b\\001\n";
        bytes.replace('?', '\0');
        OpenedFigure figure(bytes);
        QCOMPARE(figure.as<FigText>()->cstring, QString("a") + QChar(0) + "b");
        OpenedFigure zeros(foreignHeader + QByteArray(100000, '\0') + "\n" + circleRecord);
        QVERIFY(zeros.opened);
        QCOMPARE(zeros.count(), 1);
    }

    void endlessLinesAreReadInTime()
    {
        QElapsedTimer timer;
        timer.start();
        const int length = 4000000;
        for (const QByteArray& line :
             {QByteArray(length, ' '), QByteArray(length, '1'), QByteArray(length, '#'),
              QByteArray(length, '\\'), QByteArray("0A ").repeated(length / 3),
              "# METADATA " + QByteArray(length, 'x'), "0." + QByteArray(length, '0')}) {
            OpenedFigure alone(foreignHeader + line);
            OpenedFigure within(foreignHeader + lineOf("300000", line) + circleRecord);
            OpenedFigure asText(foreignHeader + "4 0 0 50 -1 0 12 0 4 1 1 1 1 " + line + "\n");
        }
        QVERIFY(timer.elapsed() < 60000);
    }

    void otherFilesAreNoFigures()
    {
        for (const QByteArray& bytes :
             {QByteArray("\x89PNG\r\n\x1a\n\0\0", 10), QByteArray("%!PS\n%%EOF\n"),
              QByteArray(5000, '\n'), QByteArray(5000, '\0'), QByteArray("\xff\xfe\xff\xfe", 4),
              QByteArray("\n#FIG 3.2\n")}) {
            OpenedFigure figure(bytes);
            QVERIFY(!figure.opened);
            QCOMPARE(figure.count(), 0);
        }
    }

    // Every crash that the fuzzer found stays a file there.
    void filesThatTheFuzzerFoundAreAnswered()
    {
        const QDir folder(QString(ORVALT_SOURCE_DIR) + "/tests/fuzz/regressions");
        for (const QFileInfo& info : folder.entryInfoList(QDir::Files)) {
            CFigContext ctx;
            load_file(&ctx, info.filePath());
            QVERIFY(idsAreUnique(ctx));
        }
    }
};

QTEST_GUILESS_MAIN(TestHostileFigures)
#include "test_hostile_figures.moc"
