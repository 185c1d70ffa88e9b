// Chooses the font of texts: one of the PostScript fonts, or one of LaTeX's.
#pragma once

#include <QDialog>

class QAbstractButton;
class QButtonGroup;
class QTabWidget;

/// Bit of cur_textflags: cur_ps_font is the font of new texts, else cur_latex_font.
constexpr int PS_FONT = 4;
/// The size in which the pictures of LaTeX fonts are drawn, pixels.
constexpr QSize LATEX_PICTURE_SIZE(28, 18);

/// Puts the name and the picture of a LaTeX font on a button.
void showLatexFont(QAbstractButton* button, int font);

class FontsDlg : public QDialog {
    Q_OBJECT

public:
    explicit FontsDlg(QWidget* parent, Qt::WindowFlags flags = {});

signals:
    void psFontChanged(int font);
    void latexFontChanged(int font);

public slots:
    // The font of new texts, and of the selected one; ends the dialog. Unknown numbers do nothing.
    void onPsFont(int font);
    void onLatexFont(int font);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void choose(int* attribute, int font, bool postScript, void (FontsDlg::*changed)(int));

    QTabWidget* tabs;
    QButtonGroup* psButtons;
    QButtonGroup* latexButtons;
    bool hasFaces = false;
};
