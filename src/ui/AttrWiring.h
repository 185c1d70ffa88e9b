// How the controls of the attribute panels are joined to the coordinator: a change goes to a slot,
// and what a signal tells is shown.
#pragma once

#include "ui/AttrsPanel.h"
#include "ui/AttrsToolbarHandler.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

// What the coordinator tells is only shown: a control that has to round or limit a value must not
// answer with another one. It begins with what it would have been told before it was there.

template <auto slot, typename Control, typename Signal>
void takeFrom(Control* control, Signal signal, AttrsPanel* panel)
{
    QObject::connect(control, signal, panel->coordinator(), slot);
}

template <auto signal, typename Control, typename Value>
void showIn(Control* control, void (Control::*set)(Value), AttrsPanel* panel)
{
    const auto show = [control, set](Value value) {
        const QSignalBlocker blocker(control);
        (control->*set)(value);
    };
    QObject::connect(panel->coordinator(), signal, control, show);
    show(panel->coordinator()->current(signal));
}

template <auto slot> void takeFromSpin(AttrsPanel* panel, QWidget* control)
{
    takeFrom<slot>(static_cast<QSpinBox*>(control), QOverload<int>::of(&QSpinBox::valueChanged),
                   panel);
}

template <auto slot, auto signal> void wireSpin(AttrsPanel* panel, QWidget* control)
{
    takeFromSpin<slot>(panel, control);
    showIn<signal>(static_cast<QSpinBox*>(control), &QSpinBox::setValue, panel);
}

template <auto slot> void takeFromDoubleSpin(AttrsPanel* panel, QWidget* control)
{
    takeFrom<slot>(static_cast<QDoubleSpinBox*>(control),
                   QOverload<double>::of(&QDoubleSpinBox::valueChanged), panel);
}

template <auto slot, auto signal> void wireDoubleSpin(AttrsPanel* panel, QWidget* control)
{
    takeFromDoubleSpin<slot>(panel, control);
    showIn<signal>(static_cast<QDoubleSpinBox*>(control), &QDoubleSpinBox::setValue, panel);
}

template <auto slot, auto signal> void wireCombo(AttrsPanel* panel, QWidget* control)
{
    auto* box = static_cast<QComboBox*>(control);
    takeFrom<slot>(box, QOverload<int>::of(&QComboBox::currentIndexChanged), panel);
    showIn<signal>(box, &QComboBox::setCurrentIndex, panel);
}

template <auto slot, auto signal> void wireCheck(AttrsPanel* panel, QWidget* control)
{
    QAbstractButton* box = static_cast<QCheckBox*>(control);
    takeFrom<slot>(box, &QAbstractButton::toggled, panel);
    showIn<signal>(box, &QAbstractButton::setChecked, panel);
}

template <auto slot> void wireCoordinatorButton(AttrsPanel* panel, QWidget* control)
{
    takeFrom<slot>(static_cast<QPushButton*>(control), &QPushButton::clicked, panel);
}

template <auto slot> void wirePanelButton(AttrsPanel* panel, QWidget* control)
{
    QObject::connect(static_cast<QPushButton*>(control), &QPushButton::clicked, panel, slot);
}
