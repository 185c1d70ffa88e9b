// Base of the attribute panels: puts the described controls into a form, wires them to the
// coordinator, and keeps what all panels do alike.
#pragma once

#include "ui/AttrControls.h"
#include "ui/Late.h"

#include <QLabel>
#include <QPushButton>

#include <functional>
#include <initializer_list>
#include <vector>

class AttrsToolbarHandler;
class FigObject;
class QGridLayout;
class QTMainFrm;

class AttrsPanel : public Late<QWidget> {
    Q_OBJECT

public:
    AttrsToolbarHandler* coordinator() const { return handler; }

public slots:
    void onLineStyle(int style); ///< tells what the style value means
    void onCommentTip(bool hasComment);
    void onColorChanged(const QPixmap& sample);
    void onOpenArrowDlg(bool);

protected:
    using ControlList = std::initializer_list<std::reference_wrapper<const ControlRow>>;

    /// Controls from top to bottom, which is the order of the keyboard too. Those with a label
    /// beside them stand in a form, the others two by two in the order of the list.
    AttrsPanel(AttrsToolbarHandler* coordinator, QTMainFrm* window, ControlList rows);

    void makeContent() override;

    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Null if the panel does not have the control. Completes the panel, and so does labelOf().
    template <typename Control> Control* control(const ControlRow& row)
    {
        makeComplete();
        return findChild<Control*>(row.name, Qt::FindDirectChildrenOnly);
    }
    /// Label beside a control, empty at first.
    QLabel* labelOf(const ControlRow& row);
    /// Gives a button of the panel's own its use.
    template <typename Panel> void onPress(const ControlRow& row, void (Panel::*slot)())
    {
        auto* button = control<QPushButton>(row);
        connect(button, &QPushButton::clicked, static_cast<Panel*>(this), slot);
        button->setEnabled(true);
    }
    /// Selected object of the active document; null if there is none.
    static FigObject* selectedObject();

    AttrsToolbarHandler* handler;
    QTMainFrm* mainWindow;

private:
    QWidget* addControl(const ControlRow& row);
    void addField(QGridLayout* form, QWidget* field, const ControlRow& row);
    void listen();

    std::vector<std::reference_wrapper<const ControlRow>> controlRows;
};
