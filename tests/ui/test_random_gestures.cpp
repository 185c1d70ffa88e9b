// Long random histories on the real windows: whatever comes in whatever order, the figures stay
// sound, no mode stays stuck, and every step can be taken back and done again.
//
// ORVALT_WALKS and ORVALT_STEPS set how many walks there are and how many events each has,
// ORVALT_SEED the first one's seed, ORVALT_TRACE names each event on the standard error before it
// happens. 100 walks of 10 000 events: ORVALT_WALKS=100 ORVALT_STEPS=10000.
#include "CurrentAttributes.h"
#include "GestureWalk.h"

#include "edit/u_reshaping.h"

#include <QDirIterator>
#include <QScopedValueRollback>

class TestRandomGestures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        store.make();
        loadGridDefinitions();
        QDir examples(ORVALT_SOURCE_DIR "/examples");
        for (const QString& name : examples.entryList(QDir::Files))
            QVERIFY(QFile::copy(examples.filePath(name), figures.filePath(name)));
        names = QDir(figures.path()).entryList({"*.fig"}, QDir::Files, QDir::Name);
        QVERIFY(!names.isEmpty());
    }
    void cleanupTestCase() { destroyGridDefinitions(); }
    void init()
    {
        store.renew();
        resetCurrentAttributes();
    }
    void cleanup() { store.leave(); }

    // --- what walks have found ------------------------------------------------------------

    void aPanelDoesNotChangeACopyThatIsNotPlacedYet()
    {
        Gesture g = draw(CMD_BOX).left(600, 600).left(1200, 1200).tool(CMD_COPY);
        g.left(600, 900).move(1500, 900);
        QVERIFY(g.context()->movedObjects);
        g.window().window->attributes()->onLineWidth(5);
        g.window().window->attributes()->onForwArrow(3);
        QCOMPARE(g.steps(), 1);
        g.right(1800, 900);
        QCOMPARE(g.count(), 1);
        QCOMPARE(g.last()->thickness, 1);
        QCOMPARE(figureFault(g.context()), QString());
        g.undo();
        QCOMPARE(g.count(), 0);
    }

    // --- walks ----------------------------------------------------------------------------

    void anyHistoryKeepsTheFiguresSoundAndCanBeTakenBack()
    {
        const unsigned first = walkSetting("ORVALT_SEED", 1);
        const unsigned walks = walkSetting("ORVALT_WALKS", 8);
        for (unsigned seed = first; seed < first + walks; ++seed) {
            init();
            walk(seed);
            if (QTest::currentTestFailed())
                return;
            store.leave();
        }
    }

private:
    /// Every other walk begins with a figure, and every other one keeps to what can be taken back
    /// to the last digit.
    void walk(unsigned seed)
    {
        const QString name = names[int(seed / 4) % names.size()];
        WalkKind kind;
        kind.exact = seed % 2 == 0;
        // Feedback as in a large figure, mostly.
        const QScopedValueRollback<int> noted(objectsWorthNoting,
                                              seed % 3 == 0 ? objectsWorthNoting : 1);
        GestureWalk walk(seed, kind, seed % 4 < 2 ? figures.filePath(name) : QString());
        const QString fault = walk.run(int(walkSetting("ORVALT_STEPS", 1500)));
        qInfo("seed %u: %d events, %d histories of up to %d steps, %d dialogs, up to %d links",
              seed, walk.events, walk.histories(), walk.mostSteps(), walk.dialogs(),
              walk.mostLinks);
        QVERIFY2(fault.isEmpty(), qPrintable(QString("seed %1: %2").arg(seed).arg(fault)));
    }

    TestStore store;
    QTemporaryDir figures; ///< copies, which a walk may save
    QStringList names;
};

QTEST_MAIN(TestRandomGestures)
#include "test_random_gestures.moc"
