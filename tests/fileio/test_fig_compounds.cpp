#include "ReaderFixture.h"

#include <QtTest>

namespace {

const QByteArray circleRecord = "1 3 0 1 0 7 50 -1 -1 0.0 1 0.0 900 900 90 90 900 900 990 900\n";
const QByteArray lineRecord = "2 1 0 0 0 7 50 -1 -1 0.0 0 0 -1 0 0 2\n\t100 200 300 400\n";
const QByteArray splineRecord = "3 0 0 1 0 7 50 -1 -1 0.0 0 0 0 2\n\t100 200 300 400\n\t0 0\n";
const QByteArray arcRecord = "5 1 0 1 0 7 50 -1 -1 0.0 0 1 0 0 100.0 100.0 190 100 100 10 10 100\n";
const QByteArray textRecord = "4 0 0 50 -1 0 12 0.0 4 135 300 1200 2400 x\\001\n";
const QByteArray badCode = "Incorrect object code at line %1.";

QString badCodeAt(int line)
{
    return QString::fromLatin1(badCode).arg(line);
}

/// How many compounds lie in each other, following the first member.
int depthOf(FigObject* object)
{
    int depth = 0;
    while (object && object->type == O_COMPOUND) {
        ++depth;
        object = OpenedFigure::member(static_cast<FigCompound*>(object)->objects, 0);
    }
    return depth;
}

} // namespace

class TestFigCompounds : public QObject {
    Q_OBJECT

private slots:
    void membersKeepTheOrderOfTheFile()
    {
        OpenedFigure figure(foreignHeader + "# outer\n6 1 2 3 4\n" + lineRecord +
                            "# inner\n6 0 0 0 0\n" + circleRecord + "-6\n" + arcRecord + "-6\n" +
                            textRecord);
        QCOMPARE(figure.count(), 2);
        auto* outer = figure.as<FigCompound>();
        QVERIFY(outer);
        QCOMPARE(outer->objects->size(), 3);
        QCOMPARE(outer->comments, QString("outer"));
        auto* inner = dynamic_cast<FigCompound*>(OpenedFigure::member(outer->objects, 1));
        QVERIFY(inner);
        QCOMPARE(inner->comments, QString("inner"));
        QCOMPARE(inner->objects->size(), 1);
    }

    // The corners of the file, here 1 2 3 4, give way to what is painted. A line of thickness 0
    // paints its points; the inner compound is empty and so reports four zeros.
    void theCornersAreTheExactBounds()
    {
        OpenedFigure figure(foreignHeader + "6 1 2 3 4\n" + lineRecord + "6 9 9 9 9\n-6\n-6\n");
        auto* compound = figure.as<FigCompound>();
        QCOMPARE(QPoint(compound->nwcorner.x, compound->nwcorner.y), QPoint(0, 0));
        QCOMPARE(QPoint(compound->secorner.x, compound->secorner.y), QPoint(300, 400));
        int xmin, ymin, xmax, ymax;
        compound->getBounds(&figure.ctx, &xmin, &ymin, &xmax, &ymax, true, true);
        QCOMPARE(QRect(QPoint(xmin, ymin), QPoint(xmax, ymax)),
                 QRect(QPoint(0, 0), QPoint(300, 400)));
    }

    void theCornersOfNestedCompoundsAreWhatGetBoundsGives()
    {
        OpenedFigure figure(foreignHeader + "6 0 0 0 0\n" + circleRecord + "6 0 0 0 0\n" +
                            lineRecord + "6 0 0 0 0\n" + arcRecord + splineRecord + "-6\n-6\n-6\n");
        FigObject* object = figure.object();
        for (int level = 0; level < 3; ++level) {
            auto* compound = static_cast<FigCompound*>(object);
            int xmin, ymin, xmax, ymax;
            compound->getBounds(&figure.ctx, &xmin, &ymin, &xmax, &ymax, true, true);
            QCOMPARE(QPoint(compound->nwcorner.x, compound->nwcorner.y), QPoint(xmin, ymin));
            QCOMPARE(QPoint(compound->secorner.x, compound->secorner.y), QPoint(xmax, ymax));
            object = OpenedFigure::member(compound->objects, 1);
        }
    }

    // The end mark posts the message of a bad code, with the line of the last record begun.
    void theEndMarkPostsAMessage()
    {
        OpenedFigure figure(foreignHeader + "6 0 0 0 0\n" + circleRecord + circleRecord + "\n-6\n");
        QCOMPARE(figure.remarks(), QStringList(badCodeAt(12)));
        OpenedFigure empty(foreignHeader + "6 0 0 0 0\n-6\n");
        QCOMPARE(empty.remarks(), QStringList(badCodeAt(10)));
    }

    void coloursInsideACompoundAreNotHonoured()
    {
        OpenedFigure figure(foreignHeader + "6 0 0 0 0\n0 32 #ffffff\n" + circleRecord + "-6\n");
        QVERIFY(figure.ctx.userColors.isEmpty());
        QCOMPARE(figure.remarks(), QStringList({badCodeAt(10), badCodeAt(12)}));
        QCOMPARE(figure.as<FigCompound>()->objects->size(), 1);
    }

    void splinesAndCompoundsInsideACompoundAreNotCounted_data()
    {
        QTest::addColumn<QByteArray>("records");
        QTest::addColumn<int>("count");
        QTest::newRow("spline and line") << "6 0 0 0 0\n" + splineRecord + lineRecord + "-6\n" << 1;
        QTest::newRow("one of each") << "6 0 0 0 0\n" + splineRecord + lineRecord + circleRecord +
                                            textRecord + arcRecord + "-6\n"
                                     << 4;
        QTest::newRow("nested") << "6 0 0 0 0\n6 0 0 0 0\n" + lineRecord + "-6\n-6\n" << 1;
        QTest::newRow("outside they count") << splineRecord + splineRecord << 2;
        QTest::newRow("an empty compound") << QByteArray("6 0 0 0 0\n-6\n") << 0;
    }

    void splinesAndCompoundsInsideACompoundAreNotCounted()
    {
        QFETCH(QByteArray, records);
        OpenedFigure figure(foreignHeader + records);
        QTEST(figure.countInMessage(), "count");
    }

    void aColourAfterUncountedObjectsIsNotLate()
    {
        OpenedFigure figure(foreignHeader + "6 0 0 0 0\n" + splineRecord + "-6\n0 32 #ffffff\n");
        QCOMPARE(figure.ctx.userColors.size(), 1);
        QCOMPARE(figure.remarks(), QStringList(badCodeAt(11)));
    }

    void aMissingEndKeepsTheCompound()
    {
        OpenedFigure figure(foreignHeader + "6 0 0 0 0\n6 0 0 0 0\n" + lineRecord);
        QVERIFY(figure.opened);
        QCOMPARE(depthOf(figure.object()), 2);
        QCOMPARE(figure.as<FigCompound>()->secorner.x, 300);
        QCOMPARE(figure.remarks(), QStringList());
    }

    void aRejectedMemberLeavesItsCommentToTheNext()
    {
        OpenedFigure figure(foreignHeader +
                            "6 0 0 0 0\n# a\n2 2 0 1 0 7 50 -1 -1 0 0 0 -1 0 0 1\n0 0\n" +
                            circleRecord + "# b\n-6\n" + lineRecord);
        QCOMPARE(OpenedFigure::member(figure.as<FigCompound>()->objects, 0)->comments,
                 QString("a"));
        QCOMPARE(figure.object(1)->comments, QString("b"));
        QCOMPARE(figure.countInMessage(), 2);
    }

    // Beyond level 1000 the lines that open a compound are dropped as bad codes; what they hold
    // joins level 1000, and the first end marks close the levels that are there.
    void nestingEndsAtAThousand()
    {
        const int levels = 100000;
        OpenedFigure figure(foreignHeader + QByteArray("6 0 0 0 0\n").repeated(levels) +
                            lineRecord + lineRecord + QByteArray("-6\n").repeated(levels));
        QVERIFY(figure.opened);
        QCOMPARE(depthOf(figure.object()), 1000);
        QCOMPARE(figure.countInMessage(), 2);
        // Each refused line and each end mark posts one message.
        QCOMPARE(figure.remarks().size(), levels - 1000 + levels);
        FigObject* object = figure.object();
        for (int level = 1; level < 1000; ++level)
            object = OpenedFigure::member(static_cast<FigCompound*>(object)->objects, 0);
        QCOMPARE(static_cast<FigCompound*>(object)->objects->size(), 2);
        QCOMPARE(figure.ctx.drawing.secorner.y, 400);
    }

    void manyMembersInManyLevelsAreReadQuickly()
    {
        QElapsedTimer timer;
        timer.start();
        OpenedFigure figure(foreignHeader + (lineRecord + "6 0 0 0 0\n").repeated(5000));
        QVERIFY(figure.opened);
        QCOMPARE(figure.countInMessage(), 5000);
        QVERIFY(timer.elapsed() < 20000);
    }
};

QTEST_GUILESS_MAIN(TestFigCompounds)
#include "test_fig_compounds.moc"
