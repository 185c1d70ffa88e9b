// The coordinate panel: its texts by hand, its place in the window, and what the pointer does to
// it.
#include "WindowFixture.h"

#include "model/FigObjects.h"
#include "ui/CoordsToolbar.h"

#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>

namespace {

QLabel* labelOf(const QWidget* window, const char* name)
{
    return window->findChild<QLabel*>(name);
}

/// In the order X units, X pixels, first measure, Y units, Y pixels, second measure.
QStringList textsOf(const QWidget* window)
{
    QStringList texts;
    for (const char* name : {"xUnits", "xPixels", "info1", "yUnits", "yPixels", "info2"})
        texts.append(labelOf(window, name)->text());
    return texts;
}

QDockWidget* dockOf(const QTMainFrm* window, const QString& title)
{
    for (QDockWidget* dock : window->findChildren<QDockWidget*>())
        if (dock->windowTitle() == title)
            return dock;
    return nullptr;
}

QList<QAction*> viewMenuOf(const QTMainFrm* window)
{
    for (QAction* action : window->menuBar()->actions())
        if (action->text() == "View")
            return action->menu()->actions();
    return {};
}

} // namespace

class TestCoordsToolbar : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }

    void init() { store.renew(); }

    // --- texts ------------------------------------------------------------------

    // At 80 pixels per inch, 15 units are a pixel at zoom 1.
    void positionIsShownInTheUnitOfTheDocument_data()
    {
        QTest::addColumn<bool>("metric");
        QTest::addColumn<float>("zoom");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<QStringList>("texts");
        // 1200 units are an inch or 2.54 cm and 80 pixels; 4724 / 472.440944 = 9.99906.
        QTest::newRow("metric") << true << 1.0f << 1200 << 4724
                                << QStringList{"X= 2.54 cm", "X= 80 pt", "",
                                               "Y=10.00 cm", "Y=315 pt", ""};
        QTest::newRow("inches") << false << 1.0f << 1800 << 12660
                                << QStringList{"X= 1.50 in", "X=120 pt", "",
                                               "Y=10.55 in", "Y=844 pt", ""};
        QTest::newRow("zoomed") << false << 2.0f << 1800 << 60
                                << QStringList{"X= 1.50 in", "X=240 pt", "",
                                               "Y= 0.05 in", "Y=  8 pt", ""};
        // Both parts of a negative length carry the sign.
        QTest::newRow("left of the page")
            << true << 1.0f << -1200 << 0
            << QStringList{"X=-2.-54 cm", "X=-80 pt", "", "Y= 0.00 cm", "Y=  0 pt", ""};
    }

    void positionIsShownInTheUnitOfTheDocument()
    {
        QFETCH(bool, metric);
        QFETCH(float, zoom);
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(QStringList, texts);
        CFigContext context;
        context.ppiX = context.ppiY = 80;
        context.metric = metric;
        context.zoom = zoom;
        CoordsToolbar panel(nullptr);
        panel.showCoords(&context, x, y);
        QCOMPARE(textsOf(&panel), texts);
    }

    // The sides 900 and 1200 make a distance of 1500 units.
    void gestureIsMeasuredWhileItLasts()
    {
        CFigContext context;
        context.metric = false;
        CoordsToolbar panel(nullptr);
        cur_command = 1;
        fix_x = 300;
        fix_y = 600;
        set_action_on();
        panel.showCoords(&context, 1200, 1800);
        QCOMPARE(labelOf(&panel, "info1")->text(), QString("r= 1.25 in"));
        QCOMPARE(labelOf(&panel, "info2")->text(), QString("d= 2.50 in"));
        reset_action_on();
        panel.showCoords(&context, 1200, 1800);
        QCOMPARE(labelOf(&panel, "info1")->text(), QString());
        QCOMPARE(labelOf(&panel, "info2")->text(), QString());
    }

    void ellipseIsMeasuredByItsDiametersAndACircleByItsRadius_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<bool>("metric");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        // Half axes of 1500 and 600 units: 1.25 and 0.5 inches, 3.175 and 1.27 centimetres.
        QTest::newRow("ellipse by radii") << 1 << false << "d1= 2.50 in"
                                          << "d2= 1.00 in";
        QTest::newRow("ellipse by diameters") << 2 << true << "d1= 6.35 cm"
                                              << "d2= 2.54 cm";
        QTest::newRow("circle by radius") << 3 << false << "r= 1.25 in"
                                          << "d= 2.50 in";
        QTest::newRow("circle by diameter") << 4 << false << "r= 1.25 in"
                                            << "d= 2.50 in";
        QTest::newRow("circle, metric") << 4 << true << "r= 3.18 cm"
                                        << "d= 6.35 cm";
    }

    void ellipseIsMeasuredByItsDiametersAndACircleByItsRadius()
    {
        QFETCH(int, subType);
        QFETCH(bool, metric);
        QFETCH(QString, first);
        QFETCH(QString, second);
        FigEllipse ellipse;
        ellipse.sub_type = subType;
        ellipse.radiuses = {1500, 600};
        CFigContext context;
        CoordsToolbar panel(nullptr);
        panel.showCoords(&context, 1200, 1800);
        const QStringList before = textsOf(&panel);
        panel.showEllipseCoords(metric, &ellipse);
        QStringList expected = before;
        expected[2] = first;
        expected[5] = second;
        QCOMPARE(textsOf(&panel), expected);
        panel.showEllipseCoords(metric, nullptr);
        QCOMPARE(textsOf(&panel), expected);
    }

    void ellipseInWorkIsMeasuredInThePanelOfTheWindow()
    {
        WindowFixture fixture;
        FigEllipse ellipse;
        ellipse.sub_type = 3;
        ellipse.radiuses = {1500, 1500};
        shell_show_ellipse_coords(false, &ellipse);
        QCOMPARE(labelOf(fixture.window.get(), "info1")->text(), QString("r= 1.25 in"));
        QCOMPARE(labelOf(fixture.window.get(), "info2")->text(), QString("d= 2.50 in"));
    }

    // --- in the window ----------------------------------------------------------

    // 100 pixels at 80 pixels per inch are 1500 units, 3.175 cm; 60 are 900, 1.905 cm. Hundredths
    // of a centimetre: 1500 * 100 / 472.440944 = 317.5000004 and 900 * 100 / 472.440944 =
    // 190.5000002, both above the half.
    void pointerOverAnyDocumentIsFollowed()
    {
        WindowFixture fixture;
        QCOMPARE(textsOf(fixture.window.get()).join(QString()), QString());
        for (int document = 0; document < 2; ++document) {
            fixture.child = fixture.window->activeMdiChild();
            CFigContext* context = fixture.child->figContext;
            context->ppiX = context->ppiY = 80;
            context->metric = true;
            fixture.move(10, 10);
            fixture.move(100, 60);
            QCOMPARE(textsOf(fixture.window.get()),
                     QStringList({"X= 3.18 cm", "X=100 pt", "", "Y= 1.91 cm", "Y= 60 pt", ""}));
            context->metric = false;
            fixture.move(120, 60);
            QCOMPARE(textsOf(fixture.window.get()),
                     QStringList({"X= 1.50 in", "X=120 pt", "", "Y= 0.75 in", "Y= 60 pt", ""}));
            fixture.window->newFile();
        }
    }

    void panelIsShownBelowTheDocumentsAndHoldsItsSizeWhateverItShows()
    {
        WindowFixture fixture({650, 700});
        QCOMPARE(fixture.window->size(), QSize(650, 700));
        QDockWidget* dock = dockOf(fixture.window.get(), "Coordinates");
        QVERIFY(dock->isVisible());
        QCOMPARE(fixture.window->dockWidgetArea(dock), Qt::BottomDockWidgetArea);
        auto* panel = dock->findChild<CoordsToolbar*>();
        const QSize size = panel->minimumSizeHint();
        QVERIFY2(size.width() <= 500, qPrintable(QString::number(size.width())));
        panel->showCoords(fixture.context, 2000000000, -2000000000);
        QCoreApplication::processEvents();
        QCOMPARE(panel->minimumSizeHint(), size);
        QCOMPARE(fixture.window->size(), QSize(650, 700));
        // Usual positions are not cut.
        panel->showCoords(fixture.context, -40000, -40000);
        for (const QLabel* label : panel->findChildren<QLabel*>())
            QVERIFY2(label->sizeHint().width() <= label->width(), qPrintable(label->text()));
    }

    void viewMenuShowsAndHidesThePanelsThatWork()
    {
        WindowFixture fixture;
        for (const char* title : {"Shapes", "Object manipulation", "Object properties", "Layers",
                                  "Coordinates", "Console"}) {
            const QDockWidget* dock = dockOf(fixture.window.get(), title);
            QAction* toggle = dock->toggleViewAction();
            QVERIFY2(viewMenuOf(fixture.window.get()).contains(toggle), title);
            const bool wasShown = dock->isVisible();
            QCOMPARE(toggle->isChecked(), wasShown);
            toggle->trigger();
            QCOMPARE(dock->isVisible(), !wasShown);
            toggle->trigger();
            QCOMPARE(dock->isVisible(), wasShown);
        }
    }

    void everyTextTellsWhatItIs()
    {
        const CoordsToolbar panel(nullptr);
        QCOMPARE(panel.accessibleName(), QString("Coordinates"));
        const QList<QLabel*> labels = panel.findChildren<QLabel*>();
        QCOMPARE(labels.size(), 6);
        QSet<QString> meanings;
        for (const QLabel* label : labels) {
            QVERIFY(!label->toolTip().isEmpty());
            QCOMPARE(label->accessibleDescription(), label->toolTip());
            meanings.insert(label->toolTip());
        }
        QCOMPARE(meanings.size(), 6);
    }

private:
    TestStore store;
};

QTEST_MAIN(TestCoordsToolbar)
#include "test_coords_toolbar.moc"
