#include "ReaderFixture.h"

#include <QtTest>

#include <cstdio>

namespace {

QByteArray idLine(const QByteArray& id)
{
    return "# METADATA <id>" + id + "</id>\n";
}

QByteArray linkLine(int source, const QByteArray& target, int left)
{
    return "# METADATA <link srcPointIdx=" + QByteArray::number(source) + " targetObjId=" + target +
           " targetLeftPointIdx=" + QByteArray::number(left) + " />\n";
}

const QByteArray circleRecord = "1 3 0 1 0 7 50 -1 -1 0.0 1 0.0 900 900 90 90 900 900 990 900\n";
const QByteArray lineRecord = "2 1 0 1 0 7 50 -1 -1 0.0 0 0 -1 0 0 3\n\t1 1 2 2 3 3\n";
const QByteArray boxRecord = "2 2 0 1 0 7 50 -1 -1 0.0 0 0 -1 0 0 5\n\t0 0 9 0 9 9 0 9 0 0\n";
const QByteArray textRecord = "4 0 0 50 -1 0 12 0.0 4 135 300 1200 2400 x\\001\n";

QByteArray splineRecord(int subType)
{
    return "3 " + QByteArray::number(subType) +
           " 0 1 0 7 50 -1 -1 0.0 0 0 0 4\n\t0 0 9 0 9 9 0 9\n\t0 0 0 0\n";
}

/// A line whose first point is linked to the second object.
QByteArray linkedTo(const QByteArray& target, int left)
{
    return ownHeader + idLine("1") + linkLine(0, "2", left) + lineRecord + idLine("2") + target;
}

QList<long> ids(FigObjectList* objects)
{
    QList<long> found;
    for (FigObject* object : *objects) {
        found.append(object->id);
        if (object->type == O_COMPOUND)
            found.append(ids(static_cast<FigCompound*>(object)->objects));
    }
    return found;
}

FigLink* linkOf(OpenedFigure& figure, int object = 0, int point = 0)
{
    return figure.as<FigLine>(object)->getPoint(point)->link;
}

} // namespace

class TestFigMetadata : public QObject {
    Q_OBJECT

private slots:
    void ownFilesKeepTheirIds()
    {
        OpenedFigure figure(ownHeader + idLine("7") + circleRecord + idLine("3") + "6 0 0 0 0\n" +
                            idLine("12") + lineRecord + "-6\n" + idLine("5") + circleRecord);
        QCOMPARE(ids(&figure.ctx.drawing.objects), QList<long>({7, 3, 12, 5}));
        QCOMPARE(figure.ctx.nextId, 12L);
        QCOMPARE(figure.ctx.getNextId(), 13L);
    }

    void objectsWithoutIdGetTheFollowingNumbers()
    {
        OpenedFigure figure(ownHeader + circleRecord + idLine("4") + circleRecord + circleRecord);
        QCOMPARE(ids(&figure.ctx.drawing.objects), QList<long>({5, 4, 6}));
        QCOMPARE(figure.ctx.nextId, 6L);
    }

    void foreignFilesAreNumberedFromOneAndTheirMetadataIgnored()
    {
        OpenedFigure figure(foreignHeader + idLine("7") + linkLine(0, "9", -1) + lineRecord +
                            idLine("9") + circleRecord);
        QCOMPARE(ids(&figure.ctx.drawing.objects), QList<long>({1, 2}));
        QVERIFY(!linkOf(figure));
    }

    void doubledIdsNumberEverythingAnewAndLoseAllLinks()
    {
        OpenedFigure figure(ownHeader + idLine("5") + linkLine(0, "8", -1) + lineRecord +
                            idLine("8") + circleRecord + idLine("8") + circleRecord);
        QCOMPARE(ids(&figure.ctx.drawing.objects), QList<long>({1, 2, 3}));
        QVERIFY(!linkOf(figure));
        QCOMPARE(figure.ctx.nextId, 3L);
    }

    void damagedIdLinesLeaveTheIdOpen()
    {
        OpenedFigure figure(ownHeader + idLine("x") + circleRecord + "  " + idLine("9") +
                            circleRecord + "#  METADATA <id>9</id>\n" + circleRecord +
                            "# METADATA <id>6\n" + circleRecord);
        QCOMPARE(ids(&figure.ctx.drawing.objects), QList<long>({7, 8, 9, 6}));
        // The third of them was a plain comment.
        QCOMPARE(figure.object(2)->comments, QString(" METADATA <id>9</id>"));
    }

    // What sscanf of the C library makes of the line is the reference.
    void idsReadAsScanfReadsThem()
    {
        for (const char* id :
             {"7", "0", "007", " 7", "+7", "-7", "", "7x", "7 8", "0x10", "123456789012345678",
              "1234567890123456789", "9223372036854775807", "99999999999999999999",
              "000000000000000000000042", "\xd9\xa3", "7</id> and more"})
            for (const char* form : {"# METADATA <id>%1</id>", "# METADATA <id>%1", "x%1",
                                     "#  METADATA <id>%1</id>", "# METADATA  <id>%1</id>"}) {
                const QString line = QString(form).arg(QString::fromUtf8(id));
                long expected = -1;
                std::sscanf(line.toUtf8().constData(), "# METADATA <id>%ld</id>", &expected);
                FigEllipse object;
                QStringList lines(line);
                parseMetadataForId(&object, &lines);
                QVERIFY2(object.id == expected, qPrintable(line));
            }
    }

    void aLinkMayStandBesideTheIdInAnyOrder()
    {
        for (const QByteArray& lines :
             {idLine("1") + linkLine(0, "2", -1), linkLine(0, "2", -1) + idLine("1")}) {
            OpenedFigure figure(ownHeader + lines + lineRecord + idLine("2") + circleRecord);
            QVERIFY(linkOf(figure));
            QCOMPARE(figure.object()->id, 1L);
        }
    }

    void idsWithoutRoomAboveThemAreGivenUp()
    {
        OpenedFigure figure(ownHeader + idLine("9223372036854775807") + circleRecord +
                            circleRecord);
        QCOMPARE(ids(&figure.ctx.drawing.objects), QList<long>({1, 2}));
    }

    // A text record that holds the words is metadata as well: no object comes of it.
    void aLineWithTheWordsAnywhereIsMetadata()
    {
        OpenedFigure figure(foreignHeader + QByteArray(textRecord).replace(" x", " x # METADATA") +
                            circleRecord);
        QCOMPARE(figure.count(), 1);
        QVERIFY(figure.as<FigEllipse>());
    }

    void metadataOfARejectedObjectGoesToTheNext()
    {
        OpenedFigure figure(ownHeader + idLine("7") +
                            QByteArray(boxRecord).replace(" 5\n", " 1\n") + circleRecord);
        QCOMPARE(figure.object()->type, int(O_ELLIPSE));
        QCOMPARE(figure.object()->id, 7L);
    }

    void metadataBeforeAColourIsDropped()
    {
        OpenedFigure figure(ownHeader + idLine("7") + "0 32 #ffffff\n" + circleRecord);
        QCOMPARE(figure.object()->id, 1L);
    }

    void theEndOfACompoundDropsItsMetadata()
    {
        OpenedFigure figure(ownHeader + "6 0 0 0 0\n" + lineRecord + idLine("7") + "-6\n" +
                            circleRecord);
        QCOMPARE(figure.object(1)->id, 3L);
    }

    void aLinkToAnEllipseHasNoPoints()
    {
        OpenedFigure figure(linkedTo(circleRecord, -1));
        FigLink* link = linkOf(figure);
        QVERIFY(link);
        QCOMPARE(link->targetObjId, 2L);
        QCOMPARE(link->srcPoint, figure.as<FigLine>()->points);
        QCOMPARE(link->targetLeftPointIdx, -1);
        QCOMPARE(link->targetRightPointIdx, -1);
        QVERIFY(!link->targetLeftPoint && !link->targetRightPoint);
        QVERIFY(!link->flag);
    }

    // For a line the flag means a polyline; for a spline it means a closed one, so that open
    // splines wrap to point 0. The box repeats its first point as point 4.
    void targetSegments_data()
    {
        QTest::addColumn<QByteArray>("target");
        QTest::addColumn<int>("left");
        QTest::addColumn<int>("right");
        QTest::newRow("polyline, first") << lineRecord << 0 << 1;
        QTest::newRow("polyline, next to last") << lineRecord << 1 << 2;
        QTest::newRow("polyline, last") << lineRecord << 2 << -1;
        QTest::newRow("box, first") << boxRecord << 0 << 1;
        QTest::newRow("box, next to last") << boxRecord << 3 << 0;
        QTest::newRow("box, last") << boxRecord << 4 << 0;
        QTest::newRow("open spline, first") << splineRecord(4) << 0 << 1;
        QTest::newRow("open spline, next to last") << splineRecord(4) << 2 << 0;
        QTest::newRow("open spline, last") << splineRecord(2) << 3 << 0;
        QTest::newRow("closed spline, next to last") << splineRecord(5) << 2 << 3;
        QTest::newRow("closed spline, last") << splineRecord(1) << 3 << -1;
    }

    void targetSegments()
    {
        QFETCH(QByteArray, target);
        QFETCH(int, left);
        QFETCH(int, right);
        OpenedFigure figure(linkedTo(target, left));
        FigLink* link = linkOf(figure);
        QVERIFY(link);
        FigObject* object = figure.object(1);
        FigPath* path = object->type == O_SPLINE ? static_cast<FigPath*>(figure.as<FigSpline>(1))
                                                 : figure.as<FigLine>(1);
        QCOMPARE(link->targetLeftPointIdx, left);
        QCOMPARE(link->targetLeftPoint, path->getPoint(left));
        QCOMPARE(link->targetRightPointIdx, right);
        QCOMPARE(link->targetRightPoint, path->getPoint(right));
    }

    void linksThatLeadNowhereAreDropped_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray target = idLine("2") + boxRecord;
        const auto linked = [&](const QByteArray& line) {
            return ownHeader + idLine("1") + line + lineRecord + target;
        };
        QTest::newRow("unknown target") << linked(linkLine(0, "77", 0));
        QTest::newRow("no source point") << linked(linkLine(3, "2", 0));
        QTest::newRow("source point -1") << linked(linkLine(-1, "2", 0));
        QTest::newRow("target -1") << linked(linkLine(0, "-1", 0));
        QTest::newRow("no left point") << linked(linkLine(0, "2", 5));
        QTest::newRow("left point -1") << linked(linkLine(0, "2", -1));
        QTest::newRow("two fields") << linked("# METADATA <link srcPointIdx=0 targetObjId=2 />\n");
        QTest::newRow("to a text") << linkedTo(textRecord, 0);
        QTest::newRow("to a compound") << linkedTo("6 0 0 0 0\n" + boxRecord + "-6\n", 0);
    }

    void linksThatLeadNowhereAreDropped()
    {
        QFETCH(QByteArray, bytes);
        OpenedFigure figure(bytes);
        QCOMPARE(figure.count(), 2);
        for (int i = 0; i < 3; ++i)
            QVERIFY(!linkOf(figure, 0, i));
    }

    void onlyLinesAndSplinesHaveLinks()
    {
        OpenedFigure figure(ownHeader + idLine("1") + linkLine(0, "2", 0) + circleRecord +
                            idLine("2") + boxRecord);
        QVERIFY(figure.opened);
        QCOMPARE(figure.count(), 2);
    }

    void theLastLinkOfAPointWinsAndAMissingBlankDoesNotMatter()
    {
        OpenedFigure figure(ownHeader + idLine("1") + linkLine(0, "2", 0) +
                            linkLine(0, "2", 2).replace(" />", "/>") + linkLine(2, "2", 1) +
                            lineRecord + idLine("2") + boxRecord);
        QCOMPARE(linkOf(figure)->targetLeftPointIdx, 2);
        QCOMPARE(linkOf(figure, 0, 2)->targetLeftPointIdx, 1);
        QVERIFY(!linkOf(figure, 0, 1));
    }

    void linksReachIntoCompoundsAndOutOfThem()
    {
        OpenedFigure figure(ownHeader + idLine("1") + linkLine(0, "3", 0) + lineRecord +
                            idLine("2") + "6 0 0 0 0\n" + idLine("3") + linkLine(1, "1", 0) +
                            lineRecord + "-6\n");
        auto* inner =
            static_cast<FigLine*>(OpenedFigure::member(figure.as<FigCompound>(1)->objects, 0));
        QCOMPARE(linkOf(figure)->targetLeftPoint, inner->points);
        QCOMPARE(inner->getPoint(1)->link->targetLeftPoint, figure.as<FigLine>()->points);
    }

    // One index of ids and one of points, however many links ask.
    void manyLinksAreRestoredQuickly()
    {
        const int count = 20000;
        QByteArray points;
        QByteArray links;
        for (int i = 0; i < count; ++i) {
            points += QByteArray::number(i) + " 0\n";
            links += linkLine(i, QByteArray::number(i % 3000 + 2), -1);
        }
        QByteArray bytes = ownHeader + idLine("1") + links +
                           "2 1 0 1 0 7 50 -1 -1 0.0 0 0 -1 0 0 " + QByteArray::number(count) +
                           "\n" + points;
        for (int i = 0; i < 3000; ++i)
            bytes += idLine(QByteArray::number(i + 2)) + circleRecord;
        QElapsedTimer timer;
        timer.start();
        OpenedFigure figure(bytes);
        QVERIFY(timer.elapsed() < 10000);
        QCOMPARE(linkOf(figure, 0, 0)->targetObjId, 2L);
        QCOMPARE(figure.as<FigLine>()->points->next->link->targetObjId, 3L);
    }
};

QTEST_GUILESS_MAIN(TestFigMetadata)
#include "test_fig_metadata.moc"
