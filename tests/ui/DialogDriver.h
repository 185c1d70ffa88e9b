// Stands for the user at the dialogs that come up while a test waits for a window's function.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <functional>

/// Answers come in the order in which they were given; a dialog beyond them is closed.
class DialogDriver : public QObject {
public:
    DialogDriver()
    {
        timer.setInterval(5);
        connect(&timer, &QTimer::timeout, this, &DialogDriver::look);
        timer.start();
    }

    /// The next dialog is a message box; this button of it is pressed.
    void press(QMessageBox::StandardButton button)
    {
        answers.append([button](QWidget* dialog) {
            auto* box = qobject_cast<QMessageBox*>(dialog);
            return box && click(box->button(button));
        });
    }

    /// The next dialog asks for a file; this name is typed and confirmed.
    void type(const QString& fileName)
    {
        answers.append([this, fileName](QWidget* dialog) {
            auto* files = qobject_cast<QFileDialog*>(dialog);
            auto* edit = files ? files->findChild<QLineEdit*>("fileNameEdit") : nullptr;
            if (!edit)
                return false;
            offered.append(edit->text());
            edit->setText(fileName);
            return QMetaObject::invokeMethod(files, "accept", Qt::QueuedConnection);
        });
    }

    void reject()
    {
        answers.append([](QWidget* dialog) {
            return QMetaObject::invokeMethod(dialog, "reject", Qt::QueuedConnection);
        });
    }

    /// Fills in the next dialog and confirms it.
    void accept(const std::function<void(QWidget*)>& fillIn)
    {
        answers.append([fillIn](QWidget* dialog) {
            fillIn(dialog);
            return QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        });
    }

    /// Looks at the next dialog before it is closed.
    void inspect(const std::function<void(QWidget*)>& look)
    {
        answers.append([look](QWidget* dialog) {
            look(dialog);
            return QMetaObject::invokeMethod(dialog, "reject", Qt::QueuedConnection);
        });
    }

    bool isDone() const { return answers.isEmpty() && unexpected.isEmpty(); }

    QStringList seen;       ///< "title: text" of each dialog
    QStringList offered;    ///< names that file dialogs came up with
    QStringList unexpected; ///< titles of dialogs that no answer fitted

private:
    static bool click(QAbstractButton* button)
    {
        return button && QMetaObject::invokeMethod(button, "click", Qt::QueuedConnection);
    }

    void look()
    {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog || handled.contains(dialog))
            return;
        handled.append(dialog);
        auto* box = qobject_cast<QMessageBox*>(dialog);
        seen.append(dialog->windowTitle() + (box ? ": " + box->text() : QString()));
        if (answers.isEmpty() || !answers.takeFirst()(dialog)) {
            unexpected.append(dialog->windowTitle());
            dialog->close();
        }
    }

    QTimer timer;
    QList<std::function<bool(QWidget*)>> answers;
    QList<QPointer<QWidget>> handled;
};
