// Random edits with all tools: whatever is done in whatever order, the figures stay sound, and all
// steps can be taken back and done again.
//
// ORVALT_WALKS and ORVALT_STEPS set how many walks there are and how many edits each has that
// change a document; ORVALT_SEED the first one's seed; ORVALT_TRACE names each event on the
// standard error before it happens. ORVALT_REPORT=1 tells how often each kind of edit was done.
// A million edits: ORVALT_WALKS=2000 ORVALT_STEPS=500.
#include "EditWalk.h"
#include "render/markers.h"

#include <QDir>
#include <QtTest>

class TestRandomEdits : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        tables = std::make_unique<EngineTables>();
        createMarkers();
        const QDir examples(ORVALT_SOURCE_DIR "/examples");
        for (const QString& name : examples.entryList({"*.fig"}, QDir::Files, QDir::Name))
            figures.append(examples.filePath(name));
        QVERIFY(!figures.isEmpty());
    }
    void cleanupTestCase()
    {
        destroyMarkers();
        tables.reset();
    }

    void anyEditsKeepTheFiguresSoundAndCanBeTakenBack()
    {
        EditTally tally;
        const unsigned first = walkSetting("ORVALT_SEED", 1);
        const unsigned walks = walkSetting("ORVALT_WALKS", 24);
        for (unsigned seed = first; seed < first + walks && !QTest::currentTestFailed(); ++seed)
            walk(seed, &tally);
        qInfo("%d edits, %d undos, %d redos; %d events, %d broken off, %d interruptions, "
              "%d histories of up to %d steps, %d reopened, up to %d links",
              tally.edits() - tally.done[0] - tally.done[1], tally.done[0], tally.done[1],
              tally.events, tally.cancels, tally.interruptions, tally.histories, tally.mostSteps,
              tally.reopened, tally.mostLinks);
        if (walkSetting("ORVALT_REPORT", 0))
            tellKinds(tally);
    }

private:
    static void tellKinds(const EditTally& tally)
    {
        QString table;
        for (int kind = 0; kind < EditWalk::kinds().size(); ++kind)
            table += QString("%1 of %2  %3\n")
                         .arg(tally.done[kind], 8)
                         .arg(tally.tried[kind], 8)
                         .arg(EditWalk::kinds()[kind].name);
        qInfo("%s", qPrintable(table));
    }

    /// Every other walk keeps to what can be taken back to the last digit; one in 32 paints.
    void walk(unsigned seed, EditTally* tally)
    {
        const bool isPainted = seed / 2 % 32 == 0;
        EditWalk walk(seed, seed % 2 == 0, isPainted ? QSize(240, 180) : QSize(),
                      figures[int(seed / 2) % figures.size()], tally);
        const QString fault = walk.run(int(walkSetting("ORVALT_STEPS", 300)));
        QVERIFY2(fault.isEmpty(), qPrintable(QString("seed %1: %2").arg(seed).arg(fault)));
    }

    std::unique_ptr<EngineTables> tables;
    QStringList figures;
};

QTEST_MAIN(TestRandomEdits)
#include "test_random_edits.moc"
