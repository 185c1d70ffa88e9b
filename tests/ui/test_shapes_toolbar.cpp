// The tool buttons: what each is, and what a click on it does, in which order.
#include "Gesture.h"

#include "edit/d_box.h"
#include "edit/d_create.h"
#include "edit/d_line.h"
#include "edit/e_select.h"
#include "edit/u_search.h"
#include "render/grid.h"
#include "ui/ContextPanel.h"

#include <QDockWidget>
#include <QLabel>
#include <QSignalSpy>
#include <QStatusBar>
#include <QToolButton>

namespace {

struct ExpectedButton {
    int command;
    const char* slot;
    int page;
    bool showsMarkers;
    const char* message;
};

const char* const flipMessage = "FLIP objects (left button) or COPY & FLIP (right button) %1. Set "
                                "center using SHIFT+LEFT button";
const char* const rotateMessage = "ROTATE objects (left button) or COPY & ROTATE (right button) %1 "
                                  "degree. Set center using SHIFT+LEFT button";

// The table of commands as it was laid down, in the order of the numbers.
const ExpectedButton expectedButtons[] = {
    {1, "cbrClicked", 5, false, "CIRCLE drawing: specify RADIUS"},
    {2, "cbdClicked", 5, false, "CIRCLE drawing: specify DIAMETER"},
    {3, "ebrClicked", 5, false, "ELLIPSE drawing: specify RADIUSES"},
    {4, "ebdClicked", 5, false, "ELLIPSE drawing: specify DIAMETERS"},
    {5, "arcClicked", 1, false, "ARC drawing: specify three points on the arc"},
    {6, "polylineClicked", 8, false, "POLYLINE drawing"},
    {7, "boxClicked", 3, false, "Rectangular BOX drawing"},
    {8, "polygonClicked", 7, false, "POLYGON drawing"},
    {9, "textClicked", 13, false, "TEXT input (from keyboard)"},
    {10, "splineClicked", 12, false, "SPLINE drawing: specify control points"},
    {11, "closedSplineClicked", 11, false, "CLOSED SPLINE drawing: specify control points"},
    {12, "intSplineClicked", 12, false, "INTERPOLATED SPLINE drawing"},
    {13, "closedIntSplineClicked", 11, false, "CLOSED INTERPOLATED SPLINE drawing"},
    {15, "regularClicked", 10, false, "Regular Polygon"},
    {16, "pictureClicked", 9, false, "PICTURE: add a picture"},
    {32, "scaleCompClicked", 6, true, "SCALE COMPOUND object"},
    {34, "copyClicked", 6, true, "COPY objects"},
    {36, "deleteClicked", 6, true, "REMOVE objects"},
    {38, "deletePointClicked", 6, true,
     "DELETE POINTs (from POLYLINE, POLYGON, CLOSED-SPLINE and SPLINE)"},
    {39, "addPointClicked", 6, true, "ADD POINTs (to POLYLINE, POLYGON, CLOSED-SPLINE and SPLINE)"},
    {44, "arrowClicked", 2, true, "ADD/DELETE arrow head (left button)"},
    {47, "updateClicked", 16, true, "UPDATE objects to current settings"},
    {56, "flipVertClicked", 6, true, flipMessage},
    {57, "flipHorizClicked", 6, true, flipMessage},
    {58, "rotateLeftClicked", 14, true, rotateMessage},
    {59, "rotateRightClicked", 14, true, rotateMessage},
    {67, "selectClicked", 6, true, "Select objects object with bounding box or via SHIFT SELECT"},
    {73, "tangentClicked", 15, false, "TANGENT: add a tangent to a shape"},
    {74, "normalClicked", 15, false, "NORMAL: add a normal to a shape"},
};

QString expectedMessage(const ExpectedButton& row)
{
    static const QHash<int, QString> variants = {
        {56, "up or down"}, {57, "left or right"}, {58, "90"}, {59, "-90"}};
    const QString message = row.message;
    return variants.contains(row.command) ? message.arg(variants[row.command]) : message;
}

QStringList checkedButtons(const QTMainFrm* window)
{
    QStringList names;
    for (const QToolButton* button : window->findChildren<QToolButton*>())
        if (button->isChecked() && button->window() == window && button->objectName() != "snap")
            names.append(button->objectName());
    return names;
}

int shownPage(const QTMainFrm* window)
{
    return window->findChild<ContextPanel*>()->currentIndex();
}

} // namespace

class TestShapesToolbar : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { loadGridDefinitions(); }
    void cleanupTestCase() { destroyGridDefinitions(); }
    void init() { resetProcessState(); }

    // --- what a click does ------------------------------------------------------

    void everyButtonPutsItsCommandPanelAndMessageInForce_data()
    {
        QTest::addColumn<int>("row");
        for (int row = 0; row < NUM_TOOL_BUTTONS; ++row)
            QTest::newRow(expectedButtons[row].slot) << row;
    }

    void everyButtonPutsItsCommandPanelAndMessageInForce()
    {
        QFETCH(int, row);
        const ExpectedButton& expected = expectedButtons[row];
        WindowFixture fixture;
        fixture.addLine(600, 600, 2400, 1800);
        ShapesToolbar* toolbar = fixture.window->shapesToolbar();
        QToolButton* button = toolbar->button(expected.command);
        QVERIFY(button && button->isEnabled());
        button->click();
        QCOMPARE(cur_command, expected.command);
        QCOMPARE(shownPage(fixture.window.get()), expected.page);
        QCOMPARE(fixture.window->statusBar()->currentMessage(), expectedMessage(expected));
        QCOMPARE(checkedButtons(fixture.window.get()), QStringList(button->objectName()));
        QCOMPARE(pointmarker_shown, expected.showsMarkers);
        QCOMPARE(fixture.context->drawing.objects.first()->marked, expected.showsMarkers ? 1 : 0);
        QVERIFY(canvas_leftbut_proc);
        QCOMPARE(action_on, 0);
    }

    void everySlotDoesWhatItsButtonDoes_data()
    {
        everyButtonPutsItsCommandPanelAndMessageInForce_data();
    }

    void everySlotDoesWhatItsButtonDoes()
    {
        QFETCH(int, row);
        WindowFixture fixture;
        QVERIFY(QMetaObject::invokeMethod(fixture.window->shapesToolbar(),
                                          expectedButtons[row].slot, Q_ARG(bool, false)));
        QCOMPARE(cur_command, expectedButtons[row].command);
        QVERIFY(fixture.window->shapesToolbar()->button(cur_command)->isChecked());
    }

    void aButtonThatIsClickedAgainStaysChecked()
    {
        WindowFixture fixture;
        QToolButton* box = fixture.window->shapesToolbar()->button(CMD_BOX);
        box->click();
        box->click();
        QVERIFY(box->isChecked());
        QVERIFY(canvas_leftbut_proc == init_box_drawing);
    }

    void switchingByNumberIsAClick()
    {
        WindowFixture fixture;
        switchCommand(CMD_POLYGON);
        QCOMPARE(checkedButtons(fixture.window.get()), QStringList("polygon"));
        QCOMPARE(cur_command, int(CMD_POLYGON));
        QVERIFY(canvas_leftbut_proc == init_line_drawing);
    }

    void aNumberWithoutAButtonOnlyUnchecksThePresentOne()
    {
        WindowFixture fixture;
        switchCommand(CMD_BOX);
        message_line = "before";
        for (int command : {0, 14, 75, 1000}) {
            fixture.window->shapesToolbar()->switchCommand(command);
            QCOMPARE(checkedButtons(fixture.window.get()), QStringList());
            QCOMPARE(cur_command, int(CMD_BOX));
            QCOMPARE(message_line, QString("before"));
        }
        switchCommand(CMD_BOX);
        QCOMPARE(checkedButtons(fixture.window.get()), QStringList("box"));
    }

    void goingBackToACommandOfAGestureIsGoingToTheSelection_data()
    {
        QTest::addColumn<int>("command");
        for (int command : {-1, 37, 68, 71})
            QTest::newRow(qPrintable(QString::number(command))) << command;
    }

    void goingBackToACommandOfAGestureIsGoingToTheSelection()
    {
        QFETCH(int, command);
        WindowFixture fixture;
        switchCommand(CMD_BOX);
        switchCommand(command);
        QCOMPARE(cur_command, int(CMD_SELECT));
        QCOMPARE(checkedButtons(fixture.window.get()), QStringList("select"));
        QVERIFY(canvas_leftbut_proc == init_tagging);
    }

    void afterAnyToolButtonNothingIsTaggedOrCurrent()
    {
        for (const ToolButtonRow& row : toolButtonTable) {
            WindowFixture fixture;
            FigLine* line = fixture.addLine(600, 600, 2400, 1800);
            auto* compound = new FigCompound;
            auto* member = new FigLine;
            member->points = new FigPoint(300, 300);
            compound->objects->append(member);
            list_add(fixture.context, &fixture.context->drawing.objects, compound);
            line->tagged = member->tagged = true;
            fixture.context->curObject = line;
            switchCommand(row.command);
            QVERIFY2(!line->tagged && !member->tagged, row.name);
            QVERIFY2(!fixture.context->curObject, row.name);
        }
    }

    void theSelectionButtonRepaintsMarkersThatLookSelected()
    {
        WindowFixture fixture;
        switchCommand(CMD_SELECT);
        FigLine* line = fixture.addLine(600, 600, 2400, 1800);
        fixture.child->showPointMarker();
        const QImage unselected = *fixture.child->canvasImage;
        fixture.child->selectAll();
        QCOMPARE(line->marked, 2);
        QVERIFY(*fixture.child->canvasImage != unselected);
        switchCommand(CMD_SELECT);
        QCOMPARE(line->marked, 1);
        QCOMPARE(*fixture.child->canvasImage, unselected);
    }

    void aToolButtonWipesTheUsersCentre()
    {
        WindowFixture fixture;
        fixture.child->redisplayCanvas();
        const QImage empty = *fixture.child->canvasImage;
        setcenter = 1;
        setcenter_x = 1200;
        setcenter_y = 900;
        fixture.child->redisplayCanvas();
        QVERIFY(*fixture.child->canvasImage != empty);
        switchCommand(CMD_BOX);
        QCOMPARE(setcenter, 0);
        QCOMPARE(*fixture.child->canvasImage, empty);
    }

    void aToolButtonTurnsCommentConvertAndAlignOff()
    {
        WindowFixture fixture;
        QSignalSpy comment(fixture.window.get(), &QTMainFrm::commentChanged);
        QSignalSpy convert(fixture.window->shapesToolbar(),
                           &ShapesToolbar::convertLineSplineButtonStateChanged);
        QSignalSpy align(fixture.window->shapesToolbar(), &ShapesToolbar::alignButtonsStateChanged);
        switchCommand(CMD_BOX);
        for (const QSignalSpy* spy : {&comment, &convert, &align}) {
            QVERIFY(!spy->isEmpty());
            QCOMPARE(spy->last(), QVariantList{false});
        }
    }

    void theKeysAreTheDocumentsAfterATool()
    {
        WindowFixture fixture;
        QApplication::setActiveWindow(fixture.window.get());
        QToolButton* box = fixture.window->shapesToolbar()->button(CMD_BOX);
        box->setFocus();
        box->click();
        QCOMPARE(fixture.window->focusWidget(), fixture.child);
    }

    void withoutADocumentAToolIsChosenAllTheSame_data()
    {
        everyButtonPutsItsCommandPanelAndMessageInForce_data();
    }

    void withoutADocumentAToolIsChosenAllTheSame()
    {
        QFETCH(int, row);
        WindowFixture fixture;
        fixture.window->closeActiveChild();
        QVERIFY(!getFigContext());
        switchCommand(expectedButtons[row].command);
        QCOMPARE(cur_command, expectedButtons[row].command);
        QCOMPARE(message_line, expectedMessage(expectedButtons[row]));
        QCOMPARE(pointmarker_shown, expectedButtons[row].showsMarkers);
        fixture.window->newFile();
        QVERIFY(canvas_leftbut_proc);
    }

    // --- how it looks -----------------------------------------------------------

    void drawingToolsAndManipulationToolsHaveAPanelEach()
    {
        WindowFixture fixture({1280, 800});
        const auto* shapes = fixture.window->findChild<QDockWidget*>("shapesDock");
        const auto* manipulation =
            fixture.window->findChild<QDockWidget*>("objectManipulationDock");
        QCOMPARE(shapes->windowTitle(), QString("Shapes"));
        QCOMPARE(manipulation->windowTitle(), QString("Object manipulation"));
        QCOMPARE(shapes->widget()->findChildren<QToolButton*>().size(), 15);
        QCOMPARE(manipulation->widget()->findChildren<QToolButton*>().size(), 14);
        for (const QDockWidget* dock : {shapes, manipulation})
            for (const QToolButton* button : dock->widget()->findChildren<QToolButton*>()) {
                QVERIFY2(button->isVisible(), qPrintable(button->objectName()));
                QVERIFY2(dock->widget()->rect().contains(button->geometry()),
                         qPrintable(button->objectName()));
            }
    }

    void everyButtonHasAnIconForBothDensitiesAndATip()
    {
        WindowFixture fixture;
        QSet<QString> tips;
        for (const ToolButtonRow& row : toolButtonTable) {
            const QToolButton* button = fixture.window->shapesToolbar()->button(row.command);
            const QIcon icon = button->icon();
            QCOMPARE(icon.actualSize({24, 24}), QSize(24, 24));
            const QString dense = QString(":/tools/images/tools/%1@2x.png").arg(row.name);
            QCOMPARE(QImage(dense).size(), QSize(48, 48));
            QVERIFY2(!button->toolTip().isEmpty(), row.name);
            QVERIFY2(!button->accessibleName().isEmpty(), row.name);
            tips.insert(button->toolTip());
        }
        QCOMPARE(tips.size(), NUM_TOOL_BUTTONS);
    }
};

QTEST_MAIN(TestShapesToolbar)
#include "test_shapes_toolbar.moc"
