// One half of the colour dialog, for pens or for fills: the fixed colours and the document's own,
// with the buttons that change the latter.
#pragma once

#include <QGroupBox>
#include <QMap>

class QButtonGroup;
class QComboBox;
class QPushButton;

class ColorSide : public QGroupBox {
    Q_OBJECT

public:
    ColorSide(const QString& title, const char* name);

    void showUserColors(const QMap<int, QColor>& colors);
    /// Marks a colour number; one that is not offered leaves all unmarked.
    void mark(int color);
    /// Key of the user colour in that line of the box; -1 if there is none.
    int keyAt(int index) const;

signals:
    void colorChosen(int color); ///< a fixed one
    void userColorChosen(int index);
    void addWanted();
    void editWanted(int key);
    void deleteWanted(int key);
    void deleteUnusedWanted(bool);

private:
    QLayout* makeSwatches();
    QLayout* makeUserColors();
    QPushButton* addButton(const char* name, const QString& text, const QString& tip);
    void enableButtons();

    QButtonGroup* swatches;
    QComboBox* userColors;
    QPushButton* editButton;
    QPushButton* deleteButton;
    QPushButton* deleteUnusedButton;
};
