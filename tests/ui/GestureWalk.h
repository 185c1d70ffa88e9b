// A user at random: tools, clicks, drags, keys, panels, undo, the clipboard, views, windows and
// several documents in any order and in mid-gesture. From time to time all steps are taken back
// and done again.
#pragma once

#include "WalkEvents.h"

#include "fileio/f_read.h"
#include "render/grid.h"
#include "ui/AttrsToolbarHandler.h"
#include "ui/ContextPanel.h"
#include "ui/FigColorDlg.h"
#include "ui/LayersToolbar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QListWidget>
#include <QMdiArea>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>

class GestureWalk : public WalkEvents {
public:
    using WalkEvents::WalkEvents;

    /// Empty, or what went wrong at which event.
    QString run(int wanted)
    {
        while (events < wanted && fault.isEmpty()) {
            act();
            if (dice.oneIn(80))
                tellHistory();
        }
        tellHistory();
        return fault;
    }

private:
    static constexpr int maxDocuments = 3;
    static constexpr int maxObjects = 60;

    // --- one act ---------------------------------------------------------------------------

    void act()
    {
        const int choice = dice.below(100);
        if (choice < 8)
            useTool();
        else if (choice < 22)
            drawSomething();
        else if (choice < 34)
            workOnSelection();
        else if (choice < 65)
            usePointer();
        else if (choice < 72)
            useKey();
        else if (choice < 85)
            useCommand();
        else if (choice < 91)
            usePanels();
        else if (choice < 94)
            changeModes();
        else if (choice < 97)
            changeView();
        else
            changeDocument();
        if (dice.oneIn(10))
            settle();
        keepSmall();
    }

    void keepSmall()
    {
        for (QTChildFrm* child : documents())
            if (objectsOf(child->figContext).size() > maxObjects) {
                gesture.tool(CMD_SELECT);
                window()->setActiveSubWindow(window()->findSubWindow(child));
                serveActiveDocument();
                note("all deleted");
                while (child->figContext->openCompoundObjects)
                    child->onCloseCompound();
                child->selectAll();
                gesture.key(Qt::Key_Delete);
                look();
            }
    }

    // --- tools and pointer -------------------------------------------------------------------

    bool isLeftOut(int command) const
    {
        static const QList<int> rounding = {CMD_SCALE_COMPOUND, CMD_FLIP_UD,   CMD_FLIP_LR,
                                            CMD_ROTATE_CCW,     CMD_ROTATE_CW, CMD_ADD_POINT};
        return kind.exact && rounding.contains(command);
    }

    void useTool()
    {
        const ToolButtonRow& row = toolButtonTable[dice.below(NUM_TOOL_BUTTONS)];
        if (!row.entry || isLeftOut(row.command))
            return;
        note(QString("tool %1").arg(row.name));
        window()->shapesToolbar()->button(row.command)->click();
        look();
    }

    void choose(int command)
    {
        if (isLeftOut(command) || !fault.isEmpty())
            return;
        note(QString("choose %1").arg(command));
        gesture.tool(command);
        look();
    }

    /// What a user does who means to draw: tool, points, and the right button for the last.
    void drawSomething()
    {
        const int command = dice.between(CMD_CIRCLE_BY_RADIUS, CMD_PICTURE);
        choose(command);
        for (int clicks = dice.between(1, 4); clicks > 0 && fault.isEmpty(); --clicks)
            click(place());
        if (dice.oneIn(2))
            click(place(), Qt::RightButton);
    }

    /// What a user does who means to edit: select, then drag, reshape or give a command.
    void workOnSelection()
    {
        static const QList<int> tools = {
            CMD_SELECT,    CMD_SELECT,  CMD_SELECT,     CMD_COPY,           CMD_DELETE_POINT,
            CMD_ADD_POINT, CMD_UPDATE,  CMD_ARROW_HEAD, CMD_SCALE_COMPOUND, CMD_ROTATE_CCW,
            CMD_ROTATE_CW, CMD_FLIP_LR, CMD_FLIP_UD,    CMD_TANGENT,        CMD_NORMAL};
        choose(dice.oneIn(2) ? CMD_SELECT : dice.any(tools));
        if (dice.oneIn(3))
            click(place());
        if (dice.oneIn(3))
            drag(place(), place());
        if (dice.oneIn(3))
            click(place(), dice.oneIn(2) ? Qt::RightButton : Qt::LeftButton);
        if (dice.oneIn(2) && fault.isEmpty())
            useCommand();
    }

    /// Something may come between any two events of a gesture.
    void interrupt() override
    {
        if (!dice.oneIn(15) || isInterrupting || !fault.isEmpty())
            return;
        isInterrupting = true;
        switch (dice.below(10)) {
        case 0:
            useTool();
            break;
        case 1:
            changeDocument();
            break;
        case 2:
            changeView();
            break;
        case 3:
            usePanels();
            break;
        case 4:
            changeModes();
            break;
        case 5:
        case 6:
            useKey();
            break;
        case 7:
            settle();
            break;
        default:
            useCommand();
        }
        isInterrupting = false;
    }

    void usePointer()
    {
        switch (dice.below(12)) {
        case 0:
        case 1:
        case 2:
        case 3:
            return click(place());
        case 4:
        case 5:
            return click(place(), Qt::RightButton);
        case 6:
        case 7:
        case 8:
            return drag(place(), place());
        case 9:
            return press(place(), dice.oneIn(3) ? Qt::RightButton : Qt::LeftButton);
        case 10:
            return dice.oneIn(3) ? release(place()) : move(place());
        default:
            return overAnotherDocument();
        }
    }

    /// The pointer passes over a document that is not the active one.
    void overAnotherDocument()
    {
        QTChildFrm* other = dice.any(documents());
        note("pointer over a document");
        QMouseEvent event(QEvent::MouseMove, QPointF(dice.below(300), dice.below(300)),
                          Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(other->viewport(), &event);
        look();
    }

    // --- keys and commands ------------------------------------------------------------------

    void useKey()
    {
        static const QList<Qt::Key> keys = {Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,
                                            Qt::Key_Down,   Qt::Key_Escape, Qt::Key_Delete,
                                            Qt::Key_Escape, Qt::Key_A,      Qt::Key_PageDown};
        const int choice = dice.below(14);
        note(QString("key %1").arg(choice));
        if (choice < keys.size()) {
            static const QList<Qt::KeyboardModifiers> modifiers = {
                Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier};
            gesture.key(keys[choice], dice.any(modifiers));
        } else {
            gesture.shift(choice == 9).control(choice == 10);
        }
        look();
    }

    void useCommand()
    {
        using Slot = void (QTMainFrm::*)();
        struct Row {
            const char* name;
            Slot command;
            bool isExact;
        };
        static const QList<Row> commands = {
            {"cut", &QTMainFrm::cut, true},
            {"copy", &QTMainFrm::copy, true},
            {"paste", &QTMainFrm::paste, true},
            {"paste", &QTMainFrm::paste, true},
            {"select all", &QTMainFrm::selectAll, true},
            {"deselect all", &QTMainFrm::deselectAll, true},
            {"undo", &QTMainFrm::undo, true},
            {"undo", &QTMainFrm::undo, true},
            {"redo", &QTMainFrm::redo, true},
            {"redo", &QTMainFrm::redo, true},
            {"create compound", &QTMainFrm::onCreateCompound, true},
            {"create compound", &QTMainFrm::onCreateCompound, true},
            {"break compound", &QTMainFrm::onBreakCompound, true},
            {"open compound", &QTMainFrm::onOpenCompound, true},
            {"open compound", &QTMainFrm::onOpenCompound, true},
            {"close compound", &QTMainFrm::onCloseCompound, true},
            {"convert", &QTMainFrm::onConvertLineSpline, true},
            {"align left", &QTMainFrm::alignLeft, true},
            {"align bottom", &QTMainFrm::alignBottom, true},
            {"align centred", &QTMainFrm::alignCenterHV, true},
            {"smart links", &QTMainFrm::createSmartLinks, false},
        };
        const Row& row = dice.any(commands);
        if (kind.exact && !row.isExact)
            return;
        note(row.name);
        (window()->*row.command)();
        look();
    }

    // --- panels ---------------------------------------------------------------------------------

    void usePanels()
    {
        switch (dice.below(5)) {
        case 0:
        case 1:
            setControl();
            break;
        case 2:
            sendToCoordinator();
            break;
        case 3:
            chooseColors();
            break;
        default:
            chooseLayers();
        }
        look();
    }

    template <typename Control> Control* anyControl()
    {
        const QList<Control*> all =
            window()->findChild<ContextPanel*>()->currentWidget()->findChildren<Control*>();
        return all.isEmpty() ? nullptr : dice.any(all);
    }

    void setControl()
    {
        note("a control of the panel");
        if (auto* box = anyControl<QSpinBox>(); box && dice.oneIn(2))
            box->setValue(dice.between(-10, 1100));
        if (auto* box = anyControl<QDoubleSpinBox>(); box && dice.oneIn(3))
            box->setValue(dice.between(-100, 2000) / 37.0);
        if (auto* box = anyControl<QComboBox>(); box && dice.oneIn(2))
            box->setCurrentIndex(dice.between(-1, box->count()));
        if (auto* box = anyControl<QCheckBox>())
            box->click();
        // Some open a dialog.
        if (auto* button = anyControl<QPushButton>(); button && dice.oneIn(2))
            button->click();
    }

    /// Whatever a file can hold, and some that it cannot.
    void sendToCoordinator()
    {
        AttrsToolbarHandler* handler = window()->attributes();
        const int value = dice.between(-3, 1200);
        const int choice = dice.below(13);
        note(QString("panel value %1 for %2").arg(value).arg(choice));
        switch (choice) {
        case 0:
            return handler->onDepth(qMax(value, 0) % 1000);
        case 1:
            return handler->onLineWidth(qMax(value, 0) % 110); // wider pens take long to draw
        case 2:
            return handler->onStyleVal(value / 7.0);
        case 3:
            return handler->onLineStyle(value % 7);
        case 4:
            return handler->onBoxCornerRadius(value);
        case 5:
            return handler->onBackArrow(dice.below(30));
        case 6:
            return handler->onForwArrow(dice.below(30));
        case 7:
            return handler->onColors(dice.between(-2, 40), dice.between(-2, 40),
                                     dice.between(-3, 70));
        case 8:
            return handler->onTextAngle(value);
        case 9:
            return handler->onNumSides(std::max(3, value));
        case 10:
            // Enough for copies of copies.
            handler->onRotnAngle(value);
            return handler->onNumCopies(dice.between(-1, 4));
        case 11:
            return handler->onTangormLength(value / 11.0);
        default:
            return handler->onFontSize(QString::number(value));
        }
    }

    void chooseColors()
    {
        FigColorDlg* colors = window()->colorDialog();
        const int choice = dice.below(kind.exact ? 6 : 10);
        note(QString("colour %1").arg(choice));
        switch (choice) {
        case 0:
            return colors->onPencol(dice.below(32));
        case 1:
            return colors->onFillcol(dice.below(32));
        case 2:
            return colors->onShade(dice.below(41));
        case 3:
            return colors->onPattern(dice.below(22));
        case 4:
            return colors->onNoFill();
        case 5:
            return colors->onColors();
        case 6:
            colors->addUserColor();
            return;
        case 7:
            return colors->onUserPenColor(dice.below(4));
        case 8:
            return colors->onDeleteUserColor(dice.below(4));
        default:
            return colors->editUserColor(dice.below(4));
        }
    }

    void chooseLayers()
    {
        auto* layers = window()->findChild<LayersToolbar*>();
        auto* list = layers->findChild<QListWidget*>();
        const int choice = dice.below(12);
        note(QString("layers %1").arg(choice));
        if (choice < 8)
            layers->allOn();
        else if (choice == 8)
            layers->allOff();
        else if (choice == 9)
            layers->toggle();
        else if (choice == 10)
            layers->onDrawMode(dice.below(3));
        else if (list->count() > 0)
            list->item(dice.below(list->count()))
                ->setCheckState(dice.oneIn(2) ? Qt::Checked : Qt::Unchecked);
    }

    // --- modes, views, documents -----------------------------------------------------------------

    void changeModes()
    {
        using ModeSlot = void (QTMainFrm::*)(bool);
        static const QList<ModeSlot> modes = {
            &QTMainFrm::setUnconstraint,   &QTMainFrm::setUnconstraint,
            &QTMainFrm::setMounthattan,    &QTMainFrm::setManhattan,
            &QTMainFrm::setMountain,       &QTMainFrm::setLatexarrow,
            &QTMainFrm::setLatexline,      &QTMainFrm::setSnapModeMagnet,
            &QTMainFrm::setSnapModeVertex,
        };
        const int mode = dice.below(modes.size() + 3);
        note(QString("mode %1").arg(mode));
        if (mode < modes.size())
            (window()->*modes[mode])(dice.oneIn(2));
        else
            window()->setGrid(dice.below(gridDefinitions.size()), nullptr);
        look();
    }

    void changeView()
    {
        QTChildFrm* child = fixture.child;
        const int choice = dice.below(22);
        note(QString("view %1").arg(choice));
        switch (choice) {
        case 0:
            window()->zoomIn();
            break;
        case 1:
            window()->zoomOut();
            break;
        case 2:
            window()->zoomToSelection();
            break;
        case 3:
            window()->zoomToSelectionRevert();
            break;
        case 4:
            child->setZoom(dice.between(1, 400) / 100.0);
            break;
        case 5:
            child->zoomToFit();
            break;
        case 6:
            fixture.wheel(dice.oneIn(2) ? 120 : -120,
                          dice.oneIn(2) ? Qt::ControlModifier : Qt::NoModifier);
            break;
        case 7:
            child->horizontalScrollBar()->setValue(dice.below(600));
            break;
        case 8:
            child->verticalScrollBar()->setValue(dice.below(600));
            break;
        case 9:
            window()->resize(dice.between(200, 1300), dice.between(200, 900));
            break;
        case 10:
            if (QMdiSubWindow* frame = window()->findSubWindow(child))
                dice.oneIn(2) ? frame->showNormal() : frame->showMaximized();
            break;
        default:
            // Where gestures find what is there.
            child->setZoom(1);
            child->horizontalScrollBar()->setValue(0);
            child->verticalScrollBar()->setValue(0);
        }
        look();
    }

    void changeDocument()
    {
        const int choice = dice.below(8);
        if (choice == 0 && documents().size() < maxDocuments) {
            note("new document");
            window()->newFile();
        } else if (choice < 4) {
            note("another document");
            window()->setActiveSubWindow(window()->findSubWindow(dice.any(documents())));
        } else if (choice == 4 && dice.oneIn(3)) {
            closeDocument();
        } else if (choice == 5) {
            save();
        } else if (choice == 6) {
            note("focus");
            QFocusEvent event(dice.oneIn(2) ? QEvent::FocusIn : QEvent::FocusOut);
            QApplication::sendEvent(fixture.child, &event);
        }
        look();
    }

    /// As often as not the question on unsaved changes comes up.
    void closeDocument()
    {
        note("closing");
        if (dice.oneIn(2))
            ctx()->resetModifiedflag();
        window()->closeActiveChild();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// What is written can be read again, and has the objects of the figure without a preview.
    void save()
    {
        note("saving");
        const QString path = folder.filePath("saved.fig");
        int expected = 0;
        const QSet<FigObject*> preview = previewOf(ctx());
        for (FigObject* object : objectsOf(ctx()))
            expected += !preview.contains(object) && hasRecord(object);
        fixture.child->saveFile(path);
        CFigContext reader;
        if (!load_file(&reader, path))
            return blame("the saved file cannot be read");
        if (objectsOf(&reader).size() != expected)
            blame(QString("%1 objects were saved of %2")
                      .arg(objectsOf(&reader).size())
                      .arg(expected));
    }

    bool isInterrupting = false;
};
