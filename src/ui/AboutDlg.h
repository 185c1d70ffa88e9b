// The About box: name, version and build date of the program.
#pragma once

#include <QDialog>

class AboutDlg : public QDialog {
    Q_OBJECT

public:
    explicit AboutDlg(QWidget* parent);
};
