// From the first save on, opening and saving changes no byte.
#include "RandomFigure.h"
#include "WriterFixture.h"

#include <QDir>
#include <QProcess>
#include <QtTest>

namespace {

constexpr unsigned numRandomFigures = 600;

void addFigures(const QString& folder)
{
    QTest::addColumn<QString>("path");
    for (const QFileInfo& file : QDir(folder).entryInfoList({"*.fig"}))
        QTest::newRow(qPrintable(file.fileName())) << file.filePath();
}

/// The first line in which two texts differ.
QString difference(const QByteArray& a, const QByteArray& b)
{
    const QList<QByteArray> linesA = a.split('\n'), linesB = b.split('\n');
    for (int i = 0; i < qMin(linesA.size(), linesB.size()); ++i)
        if (linesA.at(i) != linesB.at(i))
            return QString("line %1: \"%2\", \"%3\"")
                .arg(i + 1)
                .arg(QString::fromLatin1(linesA.at(i)), QString::fromLatin1(linesB.at(i)));
    return a.size() == b.size() ? QString() : QString("one text is longer");
}

/// Whether the reader knows the format: older ones than 3.1 are not opened.
bool isReadable(const QString& path)
{
    return contentOf(path).mid(5).split('\n').first().toDouble() > 3.05;
}

} // namespace

class TestFSaveRoundtrip : public QObject {
    Q_OBJECT

private slots:
    void anExampleIsTheSameFromTheFirstSaveOn_data()
    {
        addFigures(QString(ORVALT_SOURCE_DIR) + "/examples");
    }
    void anExampleIsTheSameFromTheFirstSaveOn() { savedTwice(); }

    void aRealFigureIsTheSameFromTheFirstSaveOn_data()
    {
        if (!QDir(ORVALT_FIGURES).exists())
            QSKIP("no folder of real figures here");
        addFigures(ORVALT_FIGURES);
    }
    void aRealFigureIsTheSameFromTheFirstSaveOn() { savedTwice(); }

    // A random document has no more decimals than a file keeps: not even the first save loses any.
    void aRandomFigureSurvivesEverySave()
    {
        for (unsigned seed = 1; seed <= numRandomFigures; ++seed) {
            SavedDocument document;
            RandomFigure(seed).fill(&document.ctx);
            const QByteArray first = document.save();
            QVERIFY(openAndSave(document.path(), document.path()));
            const QByteArray second = contentOf(document.path());
            QVERIFY2(first == second,
                     qPrintable(QString("seed %1, %2").arg(seed).arg(difference(first, second))));
        }
    }

    void randomFiguresHoldEverythingThatThereIs()
    {
        QByteArray all;
        for (unsigned seed = 1; seed <= 50; ++seed) {
            SavedDocument document;
            RandomFigure(seed).fill(&document.ctx);
            all += document.save();
        }
        for (const char* part : {"\n1 4 ",
                                 "\n2 1 ",
                                 "\n2 2 ",
                                 "\n2 3 ",
                                 "\n2 4 ",
                                 "\n2 5 ",
                                 "\n3 0 ",
                                 "\n3 1 ",
                                 "\n3 2 ",
                                 "\n3 3 ",
                                 "\n3 4 ",
                                 "\n3 5 ",
                                 "\n4 2 ",
                                 "\n5 1 ",
                                 "\n5 2 ",
                                 "\n6 ",
                                 "-6\n-6\n",
                                 "<link ",
                                 "targetLeftPointIdx=-1/>",
                                 "targetLeftPointIdx=1/>",
                                 "\n0 33 #",
                                 "<empty>",
                                 "Landscape\n",
                                 "Tabloid \n"})
            QVERIFY2(all.contains(part), part);
    }

    void theSameSeedMakesTheSameFigure()
    {
        SavedDocument a, b, other;
        RandomFigure(77).fill(&a.ctx);
        RandomFigure(77).fill(&b.ctx);
        RandomFigure(78).fill(&other.ctx);
        QCOMPARE(a.save(), b.save());
        QVERIFY(a.save() != other.save());
    }

    void theNegativeSideOfThePageIsKeptWhenItIsNotShifted()
    {
        SavedDocument document;
        document.add(with(makeLine({{-500, -600}, {700, 800}}), 1));
        const QByteArray first = document.save();
        QVERIFY(openAndSave(document.path(), document.path()));
        QCOMPARE(recordingShell.boxes.size(), 1);
        QCOMPARE(contentOf(document.path()), first);
    }

    void aFigureThatWasShiftedIsNotShiftedAgain()
    {
        SavedDocument document;
        document.add(with(makeLine({{-500, -600}, {700, 800}}), 1));
        document.save();
        recordingShell.answer = true;
        QVERIFY(openAndSave(document.path(), document.path()));
        const QByteArray shifted = contentOf(document.path());
        QVERIFY(!shifted.contains("-600"));
        QVERIFY(openAndSave(document.path(), document.path()));
        QCOMPARE(recordingShell.boxes.size(), 1);
        QCOMPARE(contentOf(document.path()), shifted);
    }

    // "," is the decimal sign and "." groups thousands there.
    void aGermanLocaleChangesNoByte()
    {
        SavedDocument document;
        RandomFigure(5).fill(&document.ctx);
        document.ctx.magnification = 1234.5f;
        const QByteArray expected = document.save();
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const QByteArray processLocale = setlocale(LC_ALL, nullptr);
        setlocale(LC_ALL, "de_DE.UTF-8");
        const QByteArray german = document.save();
        setlocale(LC_ALL, processLocale.constData());
        QLocale::setDefault(before);
        QCOMPARE(german, expected);
    }

    void aProgramStartedInAGermanLocaleSavesTheSameBytes()
    {
        const QString probe = qEnvironmentVariable("FIGPROBE");
        if (probe.isEmpty())
            QSKIP("FIGPROBE names no program");
        SavedDocument document;
        RandomFigure(6).fill(&document.ctx);
        const QByteArray expected = document.save();
        for (const char* locale : {"C", "de_DE.UTF-8"}) {
            QProcess process;
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert("LC_ALL", locale);
            process.setProcessEnvironment(environment);
            const QString output = document.folder.filePath(locale);
            process.start(probe, {"save", document.path(), output});
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitCode(), 0);
            QCOMPARE(contentOf(output), expected);
        }
    }

private:
    void savedTwice()
    {
        QFETCH(QString, path);
        if (!isReadable(path))
            return;
        QTemporaryDir folder;
        const QString first = folder.filePath("first.fig"), second = folder.filePath("second.fig");
        QVERIFY(openAndSave(path, first));
        QVERIFY(openAndSave(first, second));
        const QByteArray a = contentOf(first), b = contentOf(second);
        QVERIFY2(a == b, qPrintable(difference(a, b)));
    }
};

QTEST_MAIN(TestFSaveRoundtrip)
#include "test_f_save_roundtrip.moc"
