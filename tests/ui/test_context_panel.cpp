// The stack of attribute panels by command and by object, and the actions that documents allow.
#include "WindowFixture.h"

#include "ui/ContextPanel.h"
#include "ui/MainActions.h"

#include <QAction>
#include <QDockWidget>
#include <QSettings>
#include <QSignalSpy>

namespace {

const MainAction alignActions[] = {ACT_ALIGN_LEFT,     ACT_ALIGN_TOP,      ACT_ALIGN_RIGHT,
                                   ACT_ALIGN_BOTTOM,   ACT_ALIGN_CENTER_H, ACT_ALIGN_CENTER_V,
                                   ACT_ALIGN_CENTER_HV};

/// A main window with its stack of panels, and what it tells of comments.
struct PanelFixture : WindowFixture {
    ContextPanel* panel = window->findChild<ContextPanel*>();
    QSignalSpy comments{window.get(), &QTMainFrm::commentChanged};
};

QAction* windowAction(const QTMainFrm* window, MainAction which)
{
    const ActionRow& row = actionTable[which];
    for (QAction* action : window->findChildren<QAction*>())
        if (action->text() == row.text && (!*row.tip || action->toolTip() == row.tip))
            return action;
    return nullptr;
}

QDockWidget* dockAround(QWidget* panel)
{
    while (panel && !qobject_cast<QDockWidget*>(panel))
        panel = panel->parentWidget();
    return static_cast<QDockWidget*>(panel);
}

std::unique_ptr<FigObject> makeObject(int type, int subType)
{
    std::unique_ptr<FigObject> object;
    switch (type) {
    case O_ELLIPSE:
        object = std::make_unique<FigEllipse>();
        break;
    case O_POLYLINE:
        object = std::make_unique<FigLine>();
        break;
    case O_SPLINE:
        object = std::make_unique<FigSpline>();
        break;
    case O_TEXT:
        object = std::make_unique<FigText>();
        break;
    case O_ARC:
        object = std::make_unique<FigArc>();
        break;
    default:
        object = std::make_unique<FigCompound>();
    }
    object->sub_type = subType;
    return object;
}

} // namespace

class TestContextPanel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }

    void init() { store.renew(); }

    // --- pages ------------------------------------------------------------------

    void seventeenPagesWaitInTheObjectPropertiesPanel()
    {
        const PanelFixture fixture;
        QCOMPARE(fixture.panel->count(), 17);
        QCOMPARE(fixture.panel->currentIndex(), 6);
        QSet<QString> names;
        for (int index = 0; index < fixture.panel->count(); ++index) {
            const QWidget* page = fixture.panel->widget(index);
            QVERIFY(!page->accessibleName().isEmpty());
            names.insert(page->objectName());
        }
        QCOMPARE(names.size(), 17);
        QVERIFY(!names.contains(QString()));
        const QDockWidget* dock = dockAround(fixture.panel);
        QVERIFY(dock);
        QCOMPARE(dock->windowTitle(), QString("Object properties"));
    }

    // --- by command -------------------------------------------------------------

    // Pages of the commands that have one of their own; every other command shows page 6.
    void everyCommandShowsItsPage()
    {
        const QHash<int, int> pages = {{1, 5},   {2, 5},   {3, 5},  {4, 5},   {5, 1},   {6, 8},
                                       {7, 3},   {8, 7},   {9, 13}, {10, 12}, {11, 11}, {12, 12},
                                       {13, 11}, {15, 10}, {16, 9}, {44, 2},  {47, 16}, {58, 14},
                                       {59, 14}, {73, 15}, {74, 15}};
        PanelFixture fixture;
        for (int command = 1; command <= 74; ++command) {
            fixture.panel->setCurrentIndex(0);
            fixture.window->showContextDialog(command);
            QVERIFY2(fixture.panel->currentIndex() == pages.value(command, 6),
                     qPrintable(QString::number(command)));
        }
    }

    void numbersBeyondTheCommandsShowTheEmptyPage()
    {
        PanelFixture fixture;
        for (const int command : {0, 75, 200, std::numeric_limits<int>::max()}) {
            fixture.window->showContextDialog(1);
            QCOMPARE(fixture.panel->currentIndex(), 5);
            fixture.window->showContextDialog(command);
            QCOMPARE(fixture.panel->currentIndex(), 6);
        }
    }

    void aNegativeNumberMeansTheCommandInForce()
    {
        PanelFixture fixture;
        cur_command = 9;
        fixture.window->showContextDialog(-1);
        QCOMPARE(fixture.panel->currentIndex(), 13);
        cur_command = 47;
        fixture.window->showContextDialog(std::numeric_limits<int>::min());
        QCOMPARE(fixture.panel->currentIndex(), 16);
        // None is in force before the first tool is chosen.
        cur_command = -1;
        fixture.window->showContextDialog(-1);
        QCOMPARE(fixture.panel->currentIndex(), 6);
    }

    // --- by object --------------------------------------------------------------

    void everyObjectShowsItsPage_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subType");
        QTest::addColumn<int>("page");
        QTest::newRow("ellipse") << int(O_ELLIPSE) << 1 << 5;
        QTest::newRow("circle") << int(O_ELLIPSE) << 4 << 5;
        QTest::newRow("polyline") << int(O_POLYLINE) << 1 << 8;
        QTest::newRow("box") << int(O_POLYLINE) << 2 << 3;
        QTest::newRow("polygon") << int(O_POLYLINE) << 3 << 7;
        QTest::newRow("arc-box") << int(O_POLYLINE) << 4 << 3;
        QTest::newRow("picture") << int(O_POLYLINE) << 5 << 9;
        QTest::newRow("open approximated spline") << int(O_SPLINE) << 0 << 12;
        QTest::newRow("closed approximated spline") << int(O_SPLINE) << 1 << 11;
        QTest::newRow("open interpolated spline") << int(O_SPLINE) << 2 << 12;
        QTest::newRow("closed interpolated spline") << int(O_SPLINE) << 3 << 11;
        QTest::newRow("open x-spline") << int(O_SPLINE) << 4 << 12;
        QTest::newRow("closed x-spline") << int(O_SPLINE) << 5 << 11;
        QTest::newRow("text") << int(O_TEXT) << 2 << 13;
        QTest::newRow("arc") << int(O_ARC) << 2 << 1;
        QTest::newRow("compound") << int(O_COMPOUND) << 0 << 4;
        // Page 0 is where the test starts from.
        QTest::newRow("line of sub-type 0") << int(O_POLYLINE) << 0 << 0;
        QTest::newRow("line of an unknown sub-type") << int(O_POLYLINE) << 6 << 0;
        QTest::newRow("spline of an unknown sub-type") << int(O_SPLINE) << 6 << 0;
        QTest::newRow("spline of a negative sub-type") << int(O_SPLINE) << -1 << 0;
    }

    void everyObjectShowsItsPage()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        QFETCH(int, page);
        PanelFixture fixture;
        const std::unique_ptr<FigObject> object = makeObject(type, subType);
        fixture.panel->setCurrentIndex(0);
        fixture.window->showAttributesBar(fixture.context, object.get());
        QCOMPARE(fixture.panel->currentIndex(), page);
        QCOMPARE(fixture.comments.size(), 1);
        QCOMPARE(fixture.comments[0][0].toBool(), false);
        object->comments = "a remark";
        fixture.window->showAttributesBar(nullptr, object.get());
        QCOMPARE(fixture.comments.size(), 2);
        QCOMPARE(fixture.comments[1][0].toBool(), true);
    }

    void noObjectShowsTheEmptyPageAndHasNoComment()
    {
        PanelFixture fixture;
        fixture.panel->setCurrentIndex(13);
        fixture.window->showAttributesBar(fixture.context, nullptr);
        QCOMPARE(fixture.panel->currentIndex(), 6);
        QCOMPARE(fixture.comments.size(), 1);
        QCOMPARE(fixture.comments[0][0].toBool(), false);
    }

    void withoutADocumentOnlyAGivenContextCounts()
    {
        PanelFixture fixture;
        fixture.window->closeActiveChild();
        const std::unique_ptr<FigObject> text = makeObject(O_TEXT, 0);
        fixture.window->showAttributesBar(nullptr, text.get());
        QCOMPARE(fixture.panel->currentIndex(), 6);
        QVERIFY(fixture.comments.isEmpty());
        CFigContext context;
        fixture.window->showAttributesBar(&context, text.get());
        QCOMPARE(fixture.panel->currentIndex(), 13);
        QCOMPARE(fixture.comments.size(), 1);
    }

    void commentsAreTold()
    {
        PanelFixture fixture;
        fixture.window->fireCommentChanged(true);
        fixture.window->fireCommentChanged(false);
        QCOMPARE(fixture.comments.size(), 2);
        QCOMPARE(fixture.comments[0][0].toBool(), true);
        QCOMPARE(fixture.comments[1][0].toBool(), false);
    }

    // --- what documents allow ---------------------------------------------------

    void onlyActionsWithASlotCanBeEnabled()
    {
        const WindowFixture fixture; // receives the actions' signals
        const MainActions actions(fixture.window.get());
        for (int which = 0; which < NUM_MAIN_ACTIONS; ++which) {
            const auto action = static_cast<MainAction>(which);
            actions.setAvailable(action, true);
            QCOMPARE(actions[action]->isEnabled(), actionTable[which].slot != nullptr);
            actions.setAvailable(action, false);
            QVERIFY(!actions[action]->isEnabled());
        }
    }

    // Each of the four states goes to its action, as soon as that has a slot.
    void documentsSayWhichActionsAreAllowed()
    {
        PanelFixture fixture;
        const auto isAllowed = [&](MainAction which) {
            return windowAction(fixture.window.get(), which)->isEnabled();
        };
        const auto canBeAllowed = [](MainAction which) {
            return actionTable[which].slot != nullptr;
        };
        const MainAction compound[] = {ACT_COMPOUND_CREATE, ACT_COMPOUND_BREAK, ACT_COMPOUND_OPEN,
                                       ACT_COMPOUND_CLOSE};
        for (int state = 0; state < 16; ++state) {
            emit fixture.child->compoundButtonsStateChanged(state & 1, state & 2, state & 4,
                                                            state & 8);
            for (int index = 0; index < 4; ++index)
                QCOMPARE(isAllowed(compound[index]),
                         canBeAllowed(compound[index]) && (state >> index & 1));
        }
        for (const bool allowed : {true, false}) {
            emit fixture.child->alignButtonsStateChanged(allowed);
            for (const MainAction which : alignActions)
                QCOMPARE(isAllowed(which), allowed && canBeAllowed(which));
            emit fixture.child->convertLineSplineButtonStateChanged(allowed);
            QCOMPARE(isAllowed(ACT_CONVERT), allowed && canBeAllowed(ACT_CONVERT));
        }
    }

    void everyDocumentIsConnectedToTheWindow()
    {
        WindowFixture fixture;
        for (QTChildFrm* child : {fixture.child, fixture.window->newFile()}) {
            const auto wasConnected = [&](auto signal, auto slot) {
                return QObject::disconnect(child, signal, fixture.window.get(), slot);
            };
            QVERIFY(wasConnected(&QTChildFrm::compoundButtonsStateChanged,
                                 &QTMainFrm::setCompoundButtonsState));
            QVERIFY(wasConnected(&QTChildFrm::convertLineSplineButtonStateChanged,
                                 &QTMainFrm::setConvertLineSplineButtonState));
            QVERIFY(wasConnected(&QTChildFrm::alignButtonsStateChanged,
                                 &QTMainFrm::setAlignButtonsState));
        }
    }

private:
    TestStore store;
};

QTEST_MAIN(TestContextPanel)
#include "test_context_panel.moc"
