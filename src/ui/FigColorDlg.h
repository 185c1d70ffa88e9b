// The palette: pen colour, fill colour and fill style of the active document, and its user
// colours. What is chosen also goes to the selected object, as one step of undo.
//
// A tool window that stays open beside the document. Without a document it is disabled and every
// slot does nothing.
#pragma once

#include "ui/Late.h"

#include <QDialog>
#include <QPixmap>

class CFigContext;
class ColorSide;
class QButtonGroup;
class QLabel;
class QPushButton;
struct Swatch;

class FigColorDlg : public Late<QDialog> {
    Q_OBJECT

public:
    explicit FigColorDlg(QWidget* parent);

    /// Shows another document; null for none. The document has to be taken away before it goes.
    void updateAll(CFigContext* newContext);
    const CFigContext* document() const { return context; }

    // What the document's colours look like.
    void showPatterns(int pen, int fill);
    void showShades(int color); ///< one that has no shades leaves them as they are
    void showPenPreview();      ///< tells it by colorChanged too
    /// What colorChanged has told last; null before.
    const QPixmap& shownSample() const { return lastSample; }

signals:
    void colorChanged(const QPixmap& sample);

public slots:
    void onPencol(int color); ///< 0 to 31
    void onUserPenColor(int index);
    void onFillcol(int color);
    void onUserFillColor(int index); ///< fills what was not filled
    void onShade(int index);         ///< 0 to 40
    void onPattern(int index);       ///< 0 to 21
    void onNoFill();
    void onColors(); ///< the document's attributes have changed
    /// Asks for a colour. Key of the new one; -1 if the user cancels or there is no room.
    int addUserColor();
    void editUserColor(int key); ///< all objects of that colour change
    void onDeleteUserColor(int key);
    void onDeleteUnusedUserColors(bool);

protected:
    void makeContent() override;

private:
    ColorSide* makeSide(const QString& title, const char* name);
    QLayout* makePreview();
    void setPenColor(int color);
    void setUserPenColor(int key);
    void setFillColor(int color);
    void setUserFillColor(int key);
    void setFillStyle(int style);
    void choiceMade();
    void updateCurrentObject();
    QColor askForColor(const QColor& initial, const QString& title);
    void leaveDeletedColors();
    void fillUserColors();
    void showAll();
    void showMarks();
    Swatch patternSwatch(int pattern, int pen, int fill) const;
    QPixmap sample() const;
    void showSample();
    QString nameOfColor(int color) const;

    CFigContext* context = nullptr;
    QPixmap lastSample;
    ColorSide* penSide = nullptr; ///< these are null until the dialog is complete
    ColorSide* fillSide = nullptr;
    QButtonGroup* shades = nullptr;
    QButtonGroup* patterns = nullptr;
    QPushButton* noFill = nullptr;
    QLabel* preview = nullptr;
    QLabel* description = nullptr;
};
