// Asks for the line of a text object.
#pragma once

#include <QDialog>

class QLineEdit;

class TextEnterDlg : public QDialog {
    Q_OBJECT

public:
    explicit TextEnterDlg(QWidget* parent);

    void setText(const QString& text); ///< selected, so that typing replaces it
    QString getText() const;

private:
    QLineEdit* lineEdit;
};
