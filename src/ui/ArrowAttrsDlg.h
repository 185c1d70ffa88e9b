// Sizes of arrowheads, absolute or as multiples of the line width. Every change counts at once.
#pragma once

#include <QDialog>

class CFigContext;
class QDoubleSpinBox;
class QRadioButton;
class QVBoxLayout;

class ArrowAttrsDlg : public QDialog {
    Q_OBJECT

public:
    /// The selected object of the document follows the changes. Null: only new arrows do.
    ArrowAttrsDlg(QWidget* parent, CFigContext* document);

    /// Shows the current attributes; none of them changes.
    void fillValues();

public slots:
    void onModeChanged(bool absolute);
    void onChangeValues(double);

private:
    /// The two ways to give sizes; the number ends the object names of their boxes.
    enum Mode { ABSOLUTE = 1, RELATIVE = 2 };

    QRadioButton* addMode(QVBoxLayout* column, Mode mode, const char* name, const QString& text);
    void enableSizes();

    CFigContext* context;
    bool filling = false;
    QRadioButton* rbAbsolute;
    QRadioButton* rbRelative;
    QVector<QDoubleSpinBox*> absoluteSizes; ///< thickness, width, height
    QVector<QDoubleSpinBox*> relativeSizes;
};
