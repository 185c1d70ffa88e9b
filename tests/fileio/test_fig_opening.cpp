#include "ReaderFixture.h"

#include "RandomFigure.h"
#include "fileio/f_save.h"
#include "model/w_layers.h"
#include "render/grid.h"

#include <QtTest>

#include <cerrno>
#include <clocale>
#include <cstring>

namespace {

const QByteArray lineRecord = "2 1 0 0 0 7 50 -1 -1 0.0 0 0 -1 0 0 2\n\t100 200 300 400\n";

QByteArray lineFrom(int x, int y)
{
    return "2 1 0 0 0 7 50 -1 -1 0.0 0 0 -1 0 0 2\n\t" + QByteArray::number(x) + " " +
           QByteArray::number(y) + " 300 400\n";
}

QByteArray atResolution(int resolution, const QByteArray& records)
{
    return QByteArray(foreignHeader).replace("1200 2", QByteArray::number(resolution) + " 2") +
           records;
}

template <class Owner> QRect cornersOf(const Owner& owner)
{
    return QRect(QPoint(owner.nwcorner.x, owner.nwcorner.y),
                 QPoint(owner.secorner.x, owner.secorner.y));
}

template <class Owner> QRect boundsOf(CFigContext* ctx, Owner* owner)
{
    int xmin, ymin, xmax, ymax;
    owner->getBounds(ctx, &xmin, &ymin, &xmax, &ymax, true, true);
    return QRect(QPoint(xmin, ymin), QPoint(xmax, ymax));
}

const QString question = "Request: The figure has objects, which have negative coordinates. Do you "
                         "wish to shift it back "
                         "on the page?";

/// Makes the German locale, once, where the system can.
bool makeGerman(const QString& folder)
{
    const QString target = folder + "/de_DE.UTF-8";
    return QProcess::execute("localedef", {"-c", "-i", "de_DE", "-f", "UTF-8", target}) == 0;
}

/// Sets it for the process; false where there is none.
bool speakGerman()
{
    static const QTemporaryDir folder;
    static const bool made = makeGerman(folder.path());
    qputenv("LOCPATH", folder.path().toLocal8Bit());
    return made && setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
}

} // namespace

class TestFigOpening : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { loadGridDefinitions(); }
    void cleanupTestCase() { destroyGridDefinitions(); }
    void cleanup()
    {
        setlocale(LC_ALL, "C");
        QLocale::setDefault(QLocale::c());
        defer_update_layers = 0;
    }

    void openingTellsWhatItDoes()
    {
        OpenedFigure figure(foreignHeader + lineRecord + lineRecord);
        QVERIFY(figure.opened);
        QCOMPARE(
            figure.messages,
            QStringList({QString("Reading objects from \"%1\" ...").arg(figure.path),
                         QString("Opened \"%1\" Figure contains 2 objects").arg(figure.path)}));
        QCOMPARE(figure.ctx.filename, figure.path);
        QVERIFY(!figure.ctx.modified);
        QCOMPARE(figure.ctx.object_depths[50], 2);
        QCOMPARE(figure.ctx.min_depth, 50);
        QCOMPARE(defer_update_layers, 0);
    }

    void anEmptyNameIsToldAndNothingElse()
    {
        recordingShell.clear();
        CFigContext ctx;
        QVERIFY(!load_file(&ctx, QString()));
        QCOMPARE(recordingShell.messages, QStringList("Empty name"));
    }

    // A file that cannot be opened is told by nothing but the first message.
    void aFileThatCannotBeOpenedIsNotToldAgain()
    {
        recordingShell.clear();
        QTemporaryDir folder;
        CFigContext ctx;
        for (const QString& name : {folder.filePath("absent.fig"), folder.path()}) {
            recordingShell.clear();
            QVERIFY(!load_file(&ctx, name));
            QCOMPARE(recordingShell.messages,
                     QStringList(QString("Reading objects from \"%1\" ...").arg(name)));
            QVERIFY(recordingShell.boxes.isEmpty());
        }
    }

    void failuresAreToldByTheirNumber()
    {
        recordingShell.clear();
        read_fail_message("a.fig", ENAMETOOLONG);
        read_fail_message("a.fig", -2);
        read_fail_message("a.fig", -1);
        QVERIFY(recordingShell.boxes.isEmpty());
        read_fail_message("100%s.fig", EACCES);
        const QString last =
            QString("File \"100%s.fig\" is not accessible: %1.").arg(strerror(EACCES));
        QCOMPARE(recordingShell.messages, QStringList({"File name \"a.fig\" is too long",
                                                       "File \"a.fig\" is empty.", last}));
        QCOMPARE(recordingShell.boxes, QStringList("Error: " + last));
    }

    void aReusedContextForgetsTheFormerFigure()
    {
        OpenedFigure figure(foreignHeader + lineRecord);
        std::unique_ptr<FigObject> former(figure.object());
        figure.ctx.active_layers[50] = false;
        QFile file(figure.path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(foreignHeader + QByteArray(lineRecord).replace(" 50 ", " 60 "));
        file.close();
        QVERIFY(load_file(&figure.ctx, figure.path));
        QCOMPARE(figure.count(), 1);
        QVERIFY(figure.object() != former.get()); // not deleted: an undo queue may hold it
        QCOMPARE(figure.ctx.object_depths[50], 0);
        QCOMPARE(figure.ctx.max_depth, 60);
        QVERIFY(figure.ctx.active_layers[50]);
        QCOMPARE(figure.object()->id, 1L);
    }

    void theBoundsOfTheDrawingAreStored()
    {
        OpenedFigure figure(foreignHeader + lineRecord);
        const FigDrawing& drawing = figure.ctx.drawing;
        QCOMPARE(QPoint(drawing.nwcorner.x, drawing.nwcorner.y), QPoint(100, 200));
        QCOMPARE(QPoint(drawing.secorner.x, drawing.secorner.y), QPoint(300, 400));
    }

    // What lies well within the bounds so far is not measured exactly; getBounds measures all.
    void theBoundsOfLargeFiguresAreWhatGetBoundsGives()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("figure.fig");
        for (unsigned seed = 1; seed <= 60; ++seed) {
            CFigContext written;
            RandomFigure(seed).fill(&written);
            QVERIFY(write_file(&written, path));
            recordingShell.clear();
            CFigContext ctx;
            QVERIFY(load_file(&ctx, path));
            QCOMPARE(cornersOf(ctx.drawing), boundsOf(&ctx, &ctx.drawing));
            for (FigObject* object : qAsConst(ctx.drawing.objects))
                if (auto* compound = dynamic_cast<FigCompound*>(object))
                    QCOMPARE(cornersOf(*compound), boundsOf(&ctx, compound));
        }
    }

    // Records may be read into a figure that has objects already.
    void recordsLeaveTheDrawingAtItsBounds()
    {
        CFigContext ctx;
        for (const QByteArray& record : {lineFrom(100, 200), lineFrom(-7, 900), lineFrom(50, 50)}) {
            QString text = QString::fromLatin1(record);
            OrvaltTextStream stream(&text);
            QCOMPARE(read_objects(&ctx, stream, &ctx.drawing, 32), 0);
            QCOMPARE(cornersOf(ctx.drawing), boundsOf(&ctx, &ctx.drawing));
        }
        QCOMPARE(ctx.drawing.objects.size(), 3);
    }

    void carriageReturnsMeanNothing()
    {
        const QByteArray unixText = foreignHeader + lineRecord;
        OpenedFigure figure(QByteArray(unixText).replace("\n", "\r\n").replace("00", "0\r0"));
        QVERIFY(figure.opened);
        QCOMPARE(pointsText(figure.as<FigLine>()), QString("100,200 300,400"));
    }

    // --- other resolutions --------------------------------------------------------

    // 2400 * 0.5 + 15 = 1215: the offset moves coordinates and arrow sizes, not radii.
    void otherResolutionsAreScaledWithAnOffset()
    {
        OpenedFigure figure(atResolution(
            2400, "2 1 0 0 0 7 50 -1 -1 0.0 0 0 -1 1 0 2\n1 1 1.0 60.0 120.0\n2400 0 100 200\n"
                  "1 3 0 1 0 7 50 -1 -1 0.0 1 0.0 1000 1000 90 90 1000 1000 1090 1000\n"));
        QCOMPARE(pointsText(figure.as<FigLine>()), QString("1215,15 65,115"));
        QCOMPARE(figure.object()->forward_arrow->wd, 45.0f);
        QCOMPARE(figure.as<FigEllipse>(1)->center.x, 515);
        QCOMPARE(figure.as<FigEllipse>(1)->radiuses.x, 45);
        QCOMPARE(figure.remarks(),
                 QStringList("Scaling figure by a factor of 0.500 for new 1200 pixel "
                             "per inch resolution."));
        QCOMPARE(figure.ctx.drawing.resolution, 2400);
    }

    void theUsualResolutionIsNotScaled()
    {
        OpenedFigure figure(atResolution(1200, lineRecord));
        QCOMPARE(figure.remarks(), QStringList());
        QCOMPARE(pointsText(figure.as<FigLine>()), QString("100,200 300,400"));
    }

    void cornersOfScaledCompoundsAreTheirBounds()
    {
        OpenedFigure figure(atResolution(2400, "6 0 0 0 0\n6 0 0 0 0\n" + lineRecord + "-6\n-6\n"));
        auto* outer = figure.as<FigCompound>();
        auto* inner = static_cast<FigCompound*>(OpenedFigure::member(outer->objects, 0));
        for (FigCompound* compound : {outer, inner}) {
            QCOMPARE(QPoint(compound->nwcorner.x, compound->nwcorner.y), QPoint(65, 115));
            QCOMPARE(QPoint(compound->secorner.x, compound->secorner.y), QPoint(165, 215));
        }
    }

    // --- placing and shifting -----------------------------------------------------

    void aMergedPieceIsPlaced()
    {
        OpenedFigure figure(foreignHeader + lineRecord);
        FigDrawing piece;
        QCOMPARE(read_fig(&figure.ctx, figure.path, &piece, true, 1000, -50), 0);
        QCOMPARE(pointsText(static_cast<FigLine*>(piece.objects.first())),
                 QString("1100,150 1300,350"));
    }

    void negativeCoordinatesAreAskedAbout()
    {
        OpenedFigure figure(foreignHeader + lineFrom(-100, 200));
        QCOMPARE(figure.boxes, QStringList(question));
        QCOMPARE(pointsText(figure.as<FigLine>()), QString("-100,200 300,400"));
    }

    // Grid "Medium" without subdivision in a metric document steps by 472.44, rounded to 472. The
    // shift ends one unit before the line: 472 + 100 - 1. The other axis stays where it is.
    void yesShiftsTheNegativeAxisToTheGrid()
    {
        OpenedFigure source(foreignHeader + lineFrom(-100, 200));
        recordingShell.clear();
        recordingShell.answer = true;
        CFigContext ctx;
        ctx.gridIndex = 2;
        ctx.magnetMode = 4;
        QVERIFY(load_file(&ctx, source.path));
        QCOMPARE(recordingShell.boxes, QStringList(question));
        QCOMPARE(pointsText(static_cast<FigLine*>(ctx.drawing.objects.first())),
                 QString("471,200 871,400"));
        QCOMPARE(
            recordingShell.messages.at(1),
            QString("Shifting entire figure 571 pixels right and 0 pixels down to keep on page."));
    }

    void withoutGridTheFigureGoesToZero()
    {
        OpenedFigure source(foreignHeader + lineFrom(-100, -7));
        recordingShell.clear();
        recordingShell.answer = true;
        CFigContext ctx;
        ctx.gridIndex = 0;
        QVERIFY(load_file(&ctx, source.path));
        QCOMPARE(pointsText(static_cast<FigLine*>(ctx.drawing.objects.first())),
                 QString("0,0 400,407"));
        QCOMPARE(
            recordingShell.messages.at(1),
            QString("Shifting entire figure 100 pixels right and 7 pixels down to keep on page."));
        QCOMPARE(ctx.drawing.nwcorner.x, 0);
    }

    void mergedPiecesAreShiftedUnasked()
    {
        OpenedFigure figure(foreignHeader + lineFrom(-100, 200));
        recordingShell.clear();
        figure.ctx.gridIndex = 0;
        FigDrawing piece;
        QCOMPARE(read_fig(&figure.ctx, figure.path, &piece, true, 0, 0), 0);
        QVERIFY(recordingShell.boxes.isEmpty());
        QCOMPARE(pointsText(static_cast<FigLine*>(piece.objects.first())),
                 QString("0,200 400,400"));
    }

    void coordinatesAtTheLimitsAreHarmless()
    {
        for (int resolution : {1200, 1, 2400, 2147483647}) {
            OpenedFigure figure(
                atResolution(
                    resolution,
                    lineFrom(INT_MIN, INT_MAX) + lineFrom(INT_MAX, INT_MIN) +
                        "6 0 0 0 0\n1 3 0 2147483647 0 7 50 -1 -1 inf 1 nan 2147483647 "
                        "-2147483648 2147483647 2147483647 2147483647 0 0 -2147483648\n"
                        "5 1 0 2147483647 0 7 50 -1 -1 nan 0 1 1 0 inf nan 2147483647 0 0 "
                        "-2147483648 1 1\n1 1 inf nan 1e38\n-6\n"
                        "3 2 0 2147483647 0 7 50 -1 -1 1e38 0 1 1 3\n1 1 1e38 1e38 1e38\n"
                        "1 1 -1 nan inf\n2147483647 0 -2147483648 0 0 2147483647\nnan inf 1e300\n"
                        "4 0 0 50 -1 0 1e30 inf 4 nan inf 2147483647 -2147483648 x\\001\n"),
                true);
            QVERIFY(figure.opened);
            QCOMPARE(figure.count(), 5);
        }
    }

    // --- encodings ----------------------------------------------------------------

    void textsAreDecodedByTheMarkOfTheFile_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QString text = QString::fromLatin1(foreignHeader) +
                             QString("# %1\n").arg(QChar(0xe4)) + QString::fromLatin1(lineRecord);
        const QByteArray latin1 = text.toLatin1();
        QByteArray withReturns = latin1;
        withReturns.replace("\n", "\r\n");
        QByteArray little("\xff\xfe");
        QByteArray big("\xfe\xff");
        for (const QChar character : text) {
            little.append(char(character.cell())).append(char(character.row()));
            big.append(char(character.row())).append(char(character.cell()));
        }
        QTest::newRow("Latin-1") << latin1;
        QTest::newRow("CRLF") << withReturns;
        QTest::newRow("UTF-8") << "\xef\xbb\xbf" + text.toUtf8();
        QTest::newRow("UTF-16 LE") << little;
        QTest::newRow("UTF-16 BE") << big;
    }

    void textsAreDecodedByTheMarkOfTheFile()
    {
        QFETCH(QByteArray, bytes);
        OpenedFigure figure(bytes);
        QVERIFY(figure.opened);
        QCOMPARE(figure.count(), 1);
        QCOMPARE(figure.object()->comments, QString(QChar(0xe4)));
        QCOMPARE(pointsText(figure.as<FigLine>()), QString("100,200 300,400"));
    }

    // --- locale -------------------------------------------------------------------

    void numbersDoNotDependOnTheLocale()
    {
        if (!speakGerman())
            QSKIP("no German locale can be made here");
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(QByteArray(localeconv()->decimal_point), QByteArray(","));
        OpenedFigure figure(
            atResolution(600, "1 1 0 1 0 7 50 -1 -1 4.5 1 0.25 900 900 90 90 900 900 990 900\n"
                              "4 0 0 50 -1 0 10.5 0.0 4 135 300 1200 2400 x\\001\n"
                              "3 4 0 1 0 7 50 -1 -1 0.0 0 0 0 2\n1 2 3 4\n0.5 -1.5\n"));
        QVERIFY(figure.opened);
        QCOMPARE(figure.object()->style_val, 4.5f);
        QCOMPARE(figure.as<FigEllipse>()->angle, 0.25f);
        QCOMPARE(figure.as<FigText>(1)->size, 11);
        QCOMPARE(factorsText(figure.as<FigSpline>(2)), QString("0.5 -1.5"));
        QCOMPARE(figure.remarks(),
                 QStringList("Scaling figure by a factor of 2.000 for new 1200 pixel "
                             "per inch resolution."));
        QCOMPARE(QByteArray(setlocale(LC_NUMERIC, nullptr)), QByteArray("de_DE.UTF-8"));
    }

    // A read that ends in the later lines of the preamble leaves the "C" locale behind, and the
    // next one takes that for what it has to restore.
    void aReadThatEndsInThePreambleLeavesTheLocaleBehind()
    {
        if (!speakGerman())
            QSKIP("no German locale can be made here");
        OpenedFigure broken("#FIG 3.2\nPortrait\nCenter\nMetric\nA4\n");
        QCOMPARE(QByteArray(setlocale(LC_NUMERIC, nullptr)), QByteArray("C"));
        QCOMPARE(defer_update_layers, 1);
        OpenedFigure figure(foreignHeader + lineRecord);
        QVERIFY(figure.opened);
        QCOMPARE(QByteArray(setlocale(LC_NUMERIC, nullptr)), QByteArray("C"));
        QCOMPARE(defer_update_layers, 0);
    }
};

QTEST_GUILESS_MAIN(TestFigOpening)
#include "test_fig_opening.moc"
