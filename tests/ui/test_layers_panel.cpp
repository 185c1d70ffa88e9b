// The layer panel: which depths it lists, what its boxes and buttons do to the document and to the
// pixels, and whose document it shows.
#include "WindowFixture.h"

#include "model/w_layers.h"
#include "ui/LayersToolbar.h"

#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QListWidget>
#include <QPushButton>

namespace {

struct LayersFixture : WindowFixture {
    LayersToolbar* panel = window->findChild<LayersToolbar*>();
    QListWidget* list = panel->findChild<QListWidget*>("lstLayers");
    QComboBox* mode = panel->findChild<QComboBox*>("cbDrawMode");

    /// A horizontal line of three pixels at a height, in pixels.
    FigLine* addLineAt(int depth, int y)
    {
        auto* line = new FigLine;
        line->sub_type = T_POLYLINE;
        line->thickness = 3;
        line->depth = depth;
        line->points = new FigPoint(20 * 15, y * 15);
        line->points->next = new FigPoint(100 * 15, y * 15);
        context->ppiX = context->ppiY = 80;
        list_add(context, &context->drawing.objects, line);
        return line;
    }

    QStringList entries() const
    {
        QStringList texts;
        for (int row = 0; row < list->count(); ++row)
            texts.append(list->item(row)->text() +
                         (list->item(row)->checkState() == Qt::Checked ? "+" : "-"));
        return texts;
    }

    void click(const char* button) { panel->findChild<QPushButton*>(button)->click(); }

    /// As the user's click on the box of a row.
    void setChecked(int row, bool on)
    {
        list->item(row)->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    }

    QColor pixel(int x, int y) const { return child->canvasImage->pixelColor(x, y); }
};

const QColor black(Qt::black);
const QColor white(Qt::white);

} // namespace

class TestLayersPanel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }

    void init() { store.renew(); }

    // --- what is listed ---------------------------------------------------------------

    void depthsWithObjectsAreListedFromTheSmallest()
    {
        LayersFixture fixture;
        QCOMPARE(fixture.entries(), QStringList());
        fixture.addLineAt(50, 20);
        fixture.addLineAt(7, 30);
        fixture.addLineAt(999, 40);
        fixture.addLineAt(50, 50);
        fixture.addLineAt(0, 60);
        QCOMPARE(fixture.entries(), QStringList({"0+", "7+", "50+", "999+"}));
    }

    void depthGoesWithItsLastObject()
    {
        LayersFixture fixture;
        FigLine* first = fixture.addLineAt(50, 20);
        FigLine* second = fixture.addLineAt(50, 30);
        fixture.addLineAt(60, 40);
        list_delete(fixture.context, &fixture.context->drawing.objects, first);
        QCOMPARE(fixture.entries(), QStringList({"50+", "60+"}));
        list_delete(fixture.context, &fixture.context->drawing.objects, second);
        QCOMPARE(fixture.entries(), QStringList({"60+"}));
        delete first;
        delete second;
    }

    void hiddenDepthsAreListedUnchecked()
    {
        LayersFixture fixture;
        fixture.addLineAt(10, 20);
        fixture.addLineAt(20, 30);
        fixture.context->active_layers[20] = false;
        update_layers(fixture.context);
        QCOMPARE(fixture.entries(), QStringList({"10+", "20-"}));
    }

    void nullBlanksThePanel()
    {
        LayersFixture fixture;
        fixture.addLineAt(10, 20);
        update_layers(nullptr);
        QCOMPARE(fixture.entries(), QStringList());
        update_layers(fixture.context);
        QCOMPARE(fixture.entries(), QStringList({"10+"}));
    }

    // --- boxes and buttons --------------------------------------------------------------

    void boxShowsAndHidesItsDepth()
    {
        LayersFixture fixture;
        fixture.addLineAt(10, 20);
        fixture.addLineAt(20, 40);
        fixture.child->redisplayCanvas();
        QCOMPARE(fixture.pixel(60, 40), black);
        fixture.setChecked(1, false);
        QVERIFY(!fixture.context->active_layers[20]);
        QVERIFY(fixture.context->active_layers[10]);
        QCOMPARE(fixture.pixel(60, 20), black);
        QVERIFY(fixture.pixel(60, 40) != black); // dimmed
        fixture.setChecked(1, true);
        QVERIFY(fixture.context->active_layers[20]);
        QCOMPARE(fixture.pixel(60, 40), black);
        QVERIFY(!fixture.context->modified);
    }

    void otherLayersAreDimmedGrayedOrHidden()
    {
        LayersFixture fixture;
        QCOMPARE(fixture.mode->count(), 3);
        fixture.addLineAt(10, 20);
        fixture.setChecked(0, false);
        QCOMPARE(fixture.context->layerMode, 10);
        const QColor dimmed = fixture.pixel(60, 20);
        fixture.mode->setCurrentIndex(1);
        QCOMPARE(fixture.context->layerMode, 11);
        const QColor grayed = fixture.pixel(60, 20);
        fixture.mode->setCurrentIndex(2);
        QCOMPARE(fixture.context->layerMode, 12);
        QCOMPARE(fixture.pixel(60, 20), white);
        for (const QColor& color : {dimmed, grayed})
            QVERIFY(color != white && color != black);
        fixture.mode->setCurrentIndex(0);
        QCOMPARE(fixture.context->layerMode, 10);
        QCOMPARE(fixture.pixel(60, 20), dimmed);
    }

    void buttonsChangeAllListedDepths()
    {
        LayersFixture fixture;
        fixture.addLineAt(10, 20);
        fixture.addLineAt(20, 40);
        fixture.addLineAt(30, 60);
        fixture.click("btAllOff");
        QCOMPARE(fixture.entries(), QStringList({"10-", "20-", "30-"}));
        QVERIFY(fixture.pixel(60, 20) != black);
        fixture.setChecked(1, true);
        fixture.click("btToggle");
        QCOMPARE(fixture.entries(), QStringList({"10+", "20-", "30+"}));
        QVERIFY(!fixture.context->active_layers[20]);
        QCOMPARE(fixture.pixel(60, 20), black);
        QVERIFY(fixture.pixel(60, 40) != black);
        fixture.click("btAllOn");
        QCOMPARE(fixture.entries(), QStringList({"10+", "20+", "30+"}));
        QCOMPARE(fixture.pixel(60, 40), black);
    }

    // A depth without objects keeps what it is: the next object there can be seen.
    void depthsThatAreNotListedStayOn()
    {
        LayersFixture fixture;
        fixture.addLineAt(10, 20);
        fixture.click("btAllOff");
        fixture.addLineAt(20, 40);
        QCOMPARE(fixture.entries(), QStringList({"10-", "20+"}));
    }

    void emptyDocumentAndNoDocumentHaveNothingToSwitch()
    {
        LayersFixture fixture;
        for (const char* button : {"btAllOn", "btAllOff", "btToggle"})
            fixture.click(button);
        QVERIFY(std::all_of(std::begin(fixture.context->active_layers),
                            std::end(fixture.context->active_layers), [](bool on) { return on; }));
        fixture.window->closeActiveChild();
        QVERIFY(!getFigContext());
        for (const char* button : {"btAllOn", "btAllOff", "btToggle"})
            fixture.click(button);
        fixture.mode->setCurrentIndex(2);
        QCOMPARE(fixture.entries(), QStringList());
    }

    // --- documents ------------------------------------------------------------------------

    void panelShowsTheActiveDocument()
    {
        LayersFixture fixture;
        fixture.addLineAt(10, 20);
        fixture.mode->setCurrentIndex(1);
        QMdiSubWindow* first = fixture.window->findSubWindow(fixture.child);
        CFigContext* firstContext = fixture.context;
        fixture.child = fixture.window->newFile();
        fixture.context = fixture.child->figContext;
        QCoreApplication::processEvents();
        QCOMPARE(fixture.entries(), QStringList());
        QCOMPARE(fixture.mode->currentIndex(), 0);
        fixture.addLineAt(33, 20);
        // What happens in the other document does not show here.
        add_depth(firstContext, O_POLYLINE, 5);
        QCOMPARE(fixture.entries(), QStringList({"33+"}));
        fixture.setChecked(0, false);
        QVERIFY(firstContext->active_layers[33]);
        fixture.window->setActiveSubWindow(first);
        QCoreApplication::processEvents();
        QCOMPARE(fixture.entries(), QStringList({"5+", "10+"}));
        QCOMPARE(fixture.mode->currentIndex(), 1);
        QCOMPARE(fixture.context->layerMode, 10);
    }

    void lastDocumentTakesItsLayersAlong()
    {
        LayersFixture fixture;
        fixture.addLineAt(10, 20);
        fixture.window->closeActiveChild();
        QCoreApplication::processEvents();
        QVERIFY(!getFigContext());
        QCOMPARE(fixture.entries(), QStringList());
    }

    void openedFigureShowsItsLayers()
    {
        LayersFixture fixture;
        const QTemporaryDir folder;
        QByteArray name = writeFigure(folder, "one.fig").toLocal8Bit();
        fixture.window->openFile(name.data());
        QCoreApplication::processEvents();
        QCOMPARE(fixture.entries(), QStringList({"50+"}));
    }

    void menuEntryBringsThePanelBack()
    {
        LayersFixture fixture;
        auto* dock = qobject_cast<QDockWidget*>(fixture.panel->parentWidget());
        QVERIFY(dock);
        QCOMPARE(dock->windowTitle(), QString("Layers"));
        QVERIFY(dock->isVisible());
        dock->close();
        QVERIFY(!dock->isVisible());
        fixture.window->onOpenLayersPanel();
        QVERIFY(dock->isVisible());
    }

private:
    TestStore store;
};

QTEST_MAIN(TestLayersPanel)
#include "test_layers_panel.moc"
