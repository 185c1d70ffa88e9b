#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/grid.h"

#include <QtTest>

class TestGridTable : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        gridPreferences = GridPreferences();
        loadGridDefinitions();
    }

    void cleanupTestCase() { destroyGridDefinitions(); }

    void theBuiltinGridsStandInTheirOrder_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("statusTip");
        QTest::addColumn<float>("step");
        QTest::addColumn<QString>("icon");
        QTest::newRow("0") << "None"
                           << "Grid is off" << 1.0f << "none";
        QTest::newRow("1") << "Small"
                           << "Half %1 GRID" << 0.5f << "small";
        QTest::newRow("2") << "Medium"
                           << "One %1 GRID" << 1.0f << "medium";
        QTest::newRow("3") << "Large"
                           << "Two %1 GRID" << 2.0f << "large";
        // All three isometric grids say "Two", whatever their step.
        QTest::newRow("4") << "Small isometric"
                           << "Two %1 GRID" << 0.5f << "iso_small";
        QTest::newRow("5") << "Medium isometric"
                           << "Two %1 GRID" << 1.0f << "iso_medium";
        QTest::newRow("6") << "Large isometric"
                           << "Two %1 GRID" << 2.0f << "iso_large";
    }

    void theBuiltinGridsStandInTheirOrder()
    {
        QFETCH(QString, icon);
        QFETCH(float, step);
        const int index = QString(QTest::currentDataTag()).toInt();
        QCOMPARE(gridDefinitions.size(), NUM_BUILTIN_GRIDS);
        const GridDefinition& grid = *gridDefinitions[index];
        QTEST(grid.name, "name");
        QTEST(grid.statusTip, "statusTip");
        QCOMPARE(grid.icon, QString(":/grid/images/grid/grid_%1.png").arg(icon));
        QCOMPARE(grid.penStyle, int(Qt::DotLine));
        QCOMPARE(grid.color, QColor(0xdc, 0xdc, 0xdc));
        QCOMPARE(grid.stepSize, step);
        QCOMPARE(grid.stepMetric, 472.440944 * step);
        QCOMPARE(grid.stepImperial, 1200.0 * step);
        QCOMPARE(grid.halfMetric, 236.220472 * step);
        QCOMPARE(grid.halfImperial, 600.0 * step);
    }

    void loadingAgainMakesTheTableAnew()
    {
        gridPreferences.gridColour = Qt::red;
        loadGridDefinitions();
        QCOMPARE(gridDefinitions.size(), NUM_BUILTIN_GRIDS);
        QCOMPARE(gridDefinitions[1]->color, QColor(Qt::red));
    }

    void onlyFourToSixAreIsometric()
    {
        for (int index = -1; index <= 8; ++index)
            QCOMPARE(isIsoGrid(index), index == 4 || index == 5 || index == 6);
    }

    void theMagnetModeDividesTheStep_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<double>("step");
        QTest::newRow("tenth") << 0 << 240.0;
        QTest::newRow("fifth") << 1 << 480.0;
        QTest::newRow("quarter") << 2 << 600.0;
        QTest::newRow("half") << 3 << 1200.0;
        QTest::newRow("whole") << 4 << 2400.0;
    }

    void theMagnetModeDividesTheStep()
    {
        QFETCH(int, mode);
        QFETCH(double, step);
        CFigContext ctx;
        ctx.metric = false;
        ctx.gridIndex = 3; // two inches
        ctx.magnetMode = mode;
        QCOMPARE(getGridRound(&ctx), step);
        double whole = -1;
        double half = -1;
        getGridRoundHalf(&ctx, &whole, &half);
        QCOMPARE(whole, step);
        QCOMPARE(half, step / 2);
    }

    void metricDocumentsSnapToCentimetres()
    {
        CFigContext ctx;
        ctx.metric = true;
        ctx.gridIndex = 2;
        ctx.magnetMode = 4;
        QCOMPARE(getGridRound(&ctx), 472.440944);
    }

    void withGridZeroOnlyTheStepIsWritten()
    {
        CFigContext ctx;
        ctx.gridIndex = 0;
        QCOMPARE(getGridRound(&ctx), 0.0);
        double step = -1;
        double half = -7;
        getGridRoundHalf(&ctx, &step, &half);
        QCOMPARE(step, 0.0);
        QCOMPARE(half, -7.0);
    }

    void aGridThatIsNotThereSnapsNothing()
    {
        CFigContext ctx;
        ctx.gridIndex = 7;
        QCOMPARE(getGridRound(&ctx), 0.0);
        ctx.gridIndex = -1;
        QCOMPARE(getGridRound(&ctx), 0.0);
    }
};

QTEST_GUILESS_MAIN(TestGridTable)
#include "test_grid_table.moc"
