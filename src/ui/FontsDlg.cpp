#include "ui/FontsDlg.h"

#include "edit/e_update.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/Font.h"
#include "ui/LateIcon.h"
#include "ui/SwatchButton.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QFontInfo>
#include <QGridLayout>
#include <QPushButton>
#include <QTabWidget>

namespace {

constexpr int COLUMNS = 3;
constexpr int PADDING = 16; // pixels, of both sides of a name together
constexpr int SYMBOL = 32;  // these two have no letters
constexpr int DINGBATS = 34;
const char* const PAGE_STYLE = "QPushButton { background-color: rgb(255, 255, 255); color: black; }"
                               "QPushButton:checked { background-color: rgb(190, 217, 249); }";

QPushButton* addFontButton(QGridLayout* grid, QButtonGroup* buttons, int font)
{
    auto* button = new QPushButton;
    button->setCheckable(true);
    button->setAutoDefault(false);
    buttons->addButton(button, font);
    grid->addWidget(button, font / COLUMNS, font % COLUMNS);
    return button;
}

/// A page of buttons in a grid; the caller fills the grid.
QGridLayout* makePage(QTabWidget* tabs, const QString& title)
{
    auto* page = new QWidget;
    page->setStyleSheet(PAGE_STYLE);
    auto* grid = new QGridLayout;
    auto* column = new QVBoxLayout(page);
    column->addLayout(grid);
    column->addStretch();
    tabs->addTab(page, title);
    return grid;
}

/// The face of a font, where a name can be read in it.
QFont faceOf(int font, const QFont& plain)
{
    if (font == SYMBOL || font == DINGBATS)
        return plain;
    FigText text;
    text.font = font;
    return fontForText(&text, QFontInfo(plain).pixelSize());
}

/// Writes each name in its face, and makes all buttons of one size.
void setFaces(const QButtonGroup* buttons, const QFont& plain)
{
    QSize largest;
    for (QAbstractButton* button : buttons->buttons()) {
        button->setFont(faceOf(buttons->id(button), plain));
        largest = largest.expandedTo(button->sizeHint());
    }
    for (QAbstractButton* button : buttons->buttons())
        button->setMinimumSize(largest + QSize(PADDING, 0));
}

} // namespace

void showLatexFont(QAbstractButton* button, int font)
{
    const QString name = latexFonts[font];
    button->setText(name);
    button->setIcon(lateIcon(QString(":/fonts/images/fonts/%1.png").arg(name)));
    button->setIconSize(LATEX_PICTURE_SIZE);
}

FontsDlg::FontsDlg(QWidget* parent, Qt::WindowFlags flags)
    : QDialog(parent, flags), tabs(new QTabWidget), psButtons(new QButtonGroup(this)),
      latexButtons(new QButtonGroup(this))
{
    setObjectName("fontsDlg");
    setWindowTitle(tr("Fonts"));
    QGridLayout* psGrid = makePage(tabs, tr("PostScript Fonts"));
    for (int font = 0; font < NUM_PS_FONTS; ++font)
        addFontButton(psGrid, psButtons, font)->setText(fontmapQt[font].name);
    QGridLayout* latexGrid = makePage(tabs, tr("LaTeX Fonts"));
    for (int font = 0; font < NUM_LATEX_FONTS; ++font)
        showLatexFont(addFontButton(latexGrid, latexButtons, font), font);
    connect(psButtons, &QButtonGroup::idClicked, this, &FontsDlg::onPsFont);
    connect(latexButtons, &QButtonGroup::idClicked, this, &FontsDlg::onLatexFont);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(tabs);
    column->addWidget(buttons);
}

/// The faces take a while to load, so they wait for the first time that they are seen.
void FontsDlg::showEvent(QShowEvent* event)
{
    const bool isPostScript = cur_textflags & PS_FONT;
    markButton(psButtons, isPostScript ? cur_ps_font : -1);
    markButton(latexButtons, isPostScript ? -1 : cur_latex_font);
    tabs->setCurrentIndex(isPostScript ? 0 : 1);
    if (!hasFaces)
        setFaces(psButtons, font());
    hasFaces = true;
    QDialog::showEvent(event);
}

void FontsDlg::choose(int* attribute, int font, bool postScript, void (FontsDlg::*changed)(int))
{
    *attribute = font;
    cur_textflags = postScript ? cur_textflags | PS_FONT : cur_textflags & ~PS_FONT;
    emit(this->*changed)(font);
    CFigContext* context = getFigContext();
    FigObject* object = context ? context->getCurObject() : nullptr;
    // Nothing to update without an object.
    if (object && object->type == O_TEXT)
        update_object_to_current_attrs(context, object, false);
    accept();
}

void FontsDlg::onPsFont(int font)
{
    if (font >= 0 && font < NUM_PS_FONTS)
        choose(&cur_ps_font, font, true, &FontsDlg::psFontChanged);
}

void FontsDlg::onLatexFont(int font)
{
    if (font >= 0 && font < NUM_LATEX_FONTS)
        choose(&cur_latex_font, font, false, &FontsDlg::latexFontChanged);
}
