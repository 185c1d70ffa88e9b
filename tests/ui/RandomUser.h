// A user of whom nothing is known: what it does at dialogs.
#pragma once

#include "Dice.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSpinBox>
#include <QTimer>

/// Stands for the user at dialogs that come up: types something, confirms, cancels or closes, and
/// may change the size of the window underneath before that.
class DialogDice : public QObject {
public:
    DialogDice(Dice* chance, QWidget* windowBelow, bool withComments)
        : dice(chance), below(windowBelow), writesComments(withComments)
    {
        timer.setInterval(1);
        connect(&timer, &QTimer::timeout, this, &DialogDice::look);
        timer.start();
    }
    int count = 0; ///< dialogs so far

private:
    void look()
    {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog || dialog == answered)
            return;
        answered = dialog;
        ++count;
        if (dice->oneIn(4))
            below->resize(dice->between(300, 1300), dice->between(300, 900));
        for (auto* edit : dialog->findChildren<QLineEdit*>())
            if (edit->objectName() == "lineEdit")
                edit->setText(QString("word %1").arg(dice->below(100)));
        for (auto* edit : dialog->findChildren<QPlainTextEdit*>())
            if (writesComments)
                edit->setPlainText(QString("comment %1").arg(dice->below(100)));
        for (auto* box : dialog->findChildren<QSpinBox*>())
            if (dice->oneIn(2))
                box->setValue(dice->between(-5, 300));
        if (auto* box = qobject_cast<QMessageBox*>(dialog))
            press(box);
        else if (dice->oneIn(4))
            QMetaObject::invokeMethod(dialog, "close", Qt::QueuedConnection);
        else
            QMetaObject::invokeMethod(dialog, dice->oneIn(3) ? "reject" : "accept",
                                      Qt::QueuedConnection);
        QTimer::singleShot(0, this, [this] { answered = nullptr; });
    }
    /// All but saving, which would ask for a name and find another document under it.
    void press(QMessageBox* box)
    {
        QList<QAbstractButton*> buttons = box->buttons();
        if (QAbstractButton* save = box->button(QMessageBox::Save))
            buttons.removeAll(save);
        QMetaObject::invokeMethod(dice->any(buttons), "click", Qt::QueuedConnection);
    }

    Dice* dice;
    QWidget* below;
    bool writesComments;
    QPointer<QWidget> answered;
    QTimer timer;
};
