#include "ui/FigColorDlg.h"

#include "edit/e_update.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/colorFunctions.h"
#include "render/gfx_lowlevel.h"
#include "ui/ColorSide.h"
#include "ui/SwatchButton.h"

#include <QButtonGroup>
#include <QColorDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include <iterator>

namespace {

constexpr int NO_FILL = -1;
constexpr int PURE_SHADE = 20;
constexpr int FIRST_PATTERN = 41; // as a fill style
constexpr int BLACK = 0;
constexpr int WHITE = 7;

// Sizes in pixels.
constexpr int MARGIN = 6;
constexpr int SHADE_COLUMNS = 21; // shades above, tints below
constexpr QSize SHADE_SIZE(20, 22);
constexpr int PATTERN_COLUMNS = 11;
constexpr QSize PATTERN_SIZE(38, 26);
constexpr QSize PREVIEW_SIZE(34, 35);
constexpr QPoint PREVIEW_SHAPE[] = {{4, 4}, {29, 4}, {29, 30}, {4, 30}};
constexpr int PREVIEW_PEN = 3;

QString nameOfShade(int shade)
{
    constexpr int percentPerStep = 5;
    return shade <= PURE_SHADE
               ? FigColorDlg::tr("Shade %1 %").arg(shade * percentPerStep)
               : FigColorDlg::tr("Tint %1 %").arg((shade - PURE_SHADE) * percentPerStep);
}

QString nameOfPattern(int pattern)
{
    return FigColorDlg::tr("Pattern %1").arg(pattern);
}

QString nameOfFill(int style)
{
    if (style < 0)
        return FigColorDlg::tr("no fill");
    return style < FIRST_PATTERN ? nameOfShade(style) : nameOfPattern(style - FIRST_PATTERN);
}

/// A group of swatches in rows of that many columns, numbered from 0.
QWidget* makeGrid(const QString& title, QButtonGroup* buttons, int count, int columns, QSize size,
                  QString (*nameOf)(int))
{
    auto* box = new QGroupBox(title);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    grid->setSpacing(0);
    for (int index = 0; index < count; ++index) {
        auto* button = new SwatchButton(size);
        button->setName(nameOf(index));
        buttons->addButton(button, index);
        grid->addWidget(button, index / columns, index % columns);
    }
    return box;
}

SwatchButton* swatchOf(const QButtonGroup* buttons, int index)
{
    return static_cast<SwatchButton*>(buttons->button(index));
}

_RGB channelsOf(const QColor& color)
{
    return {static_cast<unsigned short>(color.red()), static_cast<unsigned short>(color.green()),
            static_cast<unsigned short>(color.blue())};
}

/// The 41 shades of a colour number; null for a number without any. The default colour is black.
const unsigned* shadesOf(const CFigContext* context, int color)
{
    if (color < -1)
        return nullptr;
    if (color < NUM_STD_COLORS)
        return fill_colors[color < 0 ? BLACK : color];
    return context->userColorShades.value(color - NUM_STD_COLORS, nullptr);
}

QColor penColorOf(CFigContext* context, int color)
{
    return getQColor(&context->userColorShades, color, PAINT_NORMAL, true);
}

/// As fills are drawn: the default colour is black.
QColor fillColorOf(CFigContext* context, int color, int shade)
{
    return getQColor(&context->userColorShades, color == -1 ? BLACK : color, shade, PAINT_NORMAL,
                     true);
}

} // namespace

// --- making -----------------------------------------------------------------------

FigColorDlg::FigColorDlg(QWidget* parent) : Late(parent, Qt::Tool)
{
    setObjectName("figColorDlg");
    setWindowTitle(tr("Palette"));
    updateAll(nullptr);
}

void FigColorDlg::makeContent()
{
    penSide = makeSide(tr("Pen"), "penSide");
    connect(penSide, &ColorSide::colorChosen, this, &FigColorDlg::onPencol);
    connect(penSide, &ColorSide::userColorChosen, this, &FigColorDlg::onUserPenColor);
    connect(penSide, &ColorSide::addWanted, this, [this] { setUserPenColor(addUserColor()); });
    fillSide = makeSide(tr("Fill"), "fillSide");
    connect(fillSide, &ColorSide::colorChosen, this, &FigColorDlg::onFillcol);
    connect(fillSide, &ColorSide::userColorChosen, this, &FigColorDlg::onUserFillColor);
    connect(fillSide, &ColorSide::addWanted, this, [this] { setUserFillColor(addUserColor()); });
    auto* sides = new QHBoxLayout;
    sides->addWidget(penSide);
    sides->addWidget(fillSide);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addLayout(sides);
    shades = new QButtonGroup(this);
    column->addWidget(
        makeGrid(tr("Shades"), shades, NUM_SHADES, SHADE_COLUMNS, SHADE_SIZE, nameOfShade));
    connect(shades, &QButtonGroup::idClicked, this, &FigColorDlg::onShade);
    patterns = new QButtonGroup(this);
    column->addWidget(makeGrid(tr("Patterns"), patterns, NUM_PATTERNS, PATTERN_COLUMNS,
                               PATTERN_SIZE, nameOfPattern));
    connect(patterns, &QButtonGroup::idClicked, this, &FigColorDlg::onPattern);
    column->addLayout(makePreview());
    fillUserColors();
    showAll();
    if (context)
        showSample();
}

ColorSide* FigColorDlg::makeSide(const QString& title, const char* name)
{
    auto* side = new ColorSide(title, name);
    connect(side, &ColorSide::editWanted, this, &FigColorDlg::editUserColor);
    connect(side, &ColorSide::deleteWanted, this, &FigColorDlg::onDeleteUserColor);
    connect(side, &ColorSide::deleteUnusedWanted, this, &FigColorDlg::onDeleteUnusedUserColors);
    return side;
}

QLayout* FigColorDlg::makePreview()
{
    preview = new QLabel;
    preview->setObjectName("preview");
    preview->setFrameShape(QFrame::StyledPanel);
    description = new QLabel;
    description->setObjectName("description");
    noFill = new QPushButton(tr("No fill"));
    noFill->setObjectName("noFill");
    noFill->setToolTip(tr("The inside of objects stays open"));
    noFill->setCheckable(true);
    noFill->setAutoDefault(false);
    connect(noFill, &QPushButton::clicked, this, &FigColorDlg::onNoFill);
    auto* row = new QHBoxLayout;
    row->addWidget(preview);
    row->addWidget(description, 1);
    row->addWidget(noFill);
    return row;
}

// --- choosing -----------------------------------------------------------------------

void FigColorDlg::onPencol(int color)
{
    if (context && color >= 0 && color < NUM_STD_COLORS)
        setPenColor(color);
}

void FigColorDlg::onUserPenColor(int index)
{
    makeComplete();
    setUserPenColor(penSide->keyAt(index));
}

/// A key that is none changes nothing, here and below.
void FigColorDlg::setUserPenColor(int key)
{
    if (context && context->userColors.contains(key))
        setPenColor(key + NUM_STD_COLORS);
}

void FigColorDlg::setPenColor(int color)
{
    context->cur_pencolor = color;
    showPatterns(context->cur_pencolor, context->cur_fillcolor);
    choiceMade();
}

// A fixed colour leaves the fill style alone, so an object without a fill stays so; only a user
// colour fills it.

void FigColorDlg::onFillcol(int color)
{
    if (context && color >= 0 && color < NUM_STD_COLORS)
        setFillColor(color);
}

void FigColorDlg::onUserFillColor(int index)
{
    makeComplete();
    setUserFillColor(fillSide->keyAt(index));
}

void FigColorDlg::setUserFillColor(int key)
{
    if (!context || !context->userColors.contains(key))
        return;
    if (context->cur_fillstyle == NO_FILL)
        context->cur_fillstyle = PURE_SHADE;
    setFillColor(key + NUM_STD_COLORS);
}

void FigColorDlg::setFillColor(int color)
{
    context->cur_fillcolor = color;
    showShades(color);
    showPatterns(context->cur_pencolor, color);
    choiceMade();
}

void FigColorDlg::onShade(int index)
{
    if (index >= 0 && index < NUM_SHADES)
        setFillStyle(index);
}

void FigColorDlg::onPattern(int index)
{
    if (index >= 0 && index < NUM_PATTERNS)
        setFillStyle(index + FIRST_PATTERN);
}

void FigColorDlg::onNoFill()
{
    setFillStyle(NO_FILL);
}

void FigColorDlg::setFillStyle(int style)
{
    if (!context)
        return;
    context->cur_fillstyle = style;
    choiceMade();
}

void FigColorDlg::choiceMade()
{
    showMarks();
    showPenPreview();
    updateCurrentObject();
}

void FigColorDlg::updateCurrentObject()
{
    update_object_to_current_attrs(context, context->getCurObject(), false);
}

// --- the document's colours ------------------------------------------------------------

/// Null when the user cancels, or the document has gone meanwhile.
QColor FigColorDlg::askForColor(const QColor& initial, const QString& title)
{
    const CFigContext* owner = context;
    const QColor color = QColorDialog::getColor(initial, this, title);
    return context == owner ? color : QColor();
}

int FigColorDlg::addUserColor()
{
    if (!context)
        return -1;
    const QColor color = askForColor(Qt::white, tr("Add color"));
    if (!color.isValid())
        return -1;
    const int key = context->addUserColor(color);
    if (!context->userColors.contains(key)) {
        put_msg("There is no room for another user color");
        return -1;
    }
    context->setModifiedflag();
    fillUserColors();
    showMarks();
    return key;
}

void FigColorDlg::editUserColor(int key)
{
    if (!context || !context->userColors.contains(key))
        return;
    const QColor color = askForColor(context->userColors.value(key), tr("Edit color"));
    if (!color.isValid() || color == context->userColors.value(key))
        return;
    context->userColors.insert(key, color);
    // The array stays where it is: what is drawn looks its colours up there.
    if (unsigned* row = context->userColorShades.value(key, nullptr))
        create_shades(row, channelsOf(color));
    context->setModifiedflag();
    updateAll(context);
    shell_redisplay_canvas(context->chFrm);
}

void FigColorDlg::onDeleteUserColor(int key)
{
    if (!context || !context->userColors.contains(key))
        return;
    if (color_used(key + NUM_STD_COLORS, &context->drawing.objects)) {
        shell_info(tr("Delete color"), tr("That color is in use by an object in the figure"));
        return;
    }
    // The shades stay: an undo may bring back an object of that colour.
    context->userColors.remove(key);
    context->cur_pencolor = BLACK;
    context->cur_fillcolor = WHITE;
    context->setModifiedflag();
    updateAll(context);
}

void FigColorDlg::onDeleteUnusedUserColors(bool)
{
    if (!context)
        return;
    const QList<int> keys = context->userColors.keys();
    for (const int key : keys)
        if (!color_used(key + NUM_STD_COLORS, &context->drawing.objects))
            context->userColors.remove(key);
    if (context->userColors.size() == keys.size())
        return;
    leaveDeletedColors();
    context->setModifiedflag();
    updateAll(context);
}

/// New objects must not take a colour that the file would not tell.
void FigColorDlg::leaveDeletedColors()
{
    const auto isGone = [this](int color) {
        return color >= NUM_STD_COLORS && !context->userColors.contains(color - NUM_STD_COLORS);
    };
    if (isGone(context->cur_pencolor))
        context->cur_pencolor = BLACK;
    if (isGone(context->cur_fillcolor))
        context->cur_fillcolor = WHITE;
}

// --- showing ------------------------------------------------------------------------------

void FigColorDlg::updateAll(CFigContext* newContext)
{
    context = newContext;
    setEnabled(context != nullptr);
    fillUserColors();
    onColors();
}

void FigColorDlg::fillUserColors()
{
    if (!isComplete())
        return;
    const QMap<int, QColor> colors = context ? context->userColors : QMap<int, QColor>();
    penSide->showUserColors(colors);
    fillSide->showUserColors(colors);
}

void FigColorDlg::onColors()
{
    showAll();
    showPenPreview();
}

void FigColorDlg::showAll()
{
    showMarks();
    if (!context)
        return;
    showShades(context->cur_fillcolor);
    showPatterns(context->cur_pencolor, context->cur_fillcolor);
}

/// The present choice is marked; without a document there is none.
void FigColorDlg::showMarks()
{
    if (!isComplete())
        return;
    const int none = -1;
    const int style = context ? context->cur_fillstyle : none;
    penSide->mark(context ? context->cur_pencolor : none);
    fillSide->mark(context ? context->cur_fillcolor : none);
    markButton(shades, style < FIRST_PATTERN ? style : none);
    markButton(patterns, style < FIRST_PATTERN ? none : style - FIRST_PATTERN);
    noFill->setChecked(context && style == NO_FILL);
}

void FigColorDlg::showShades(int color)
{
    const unsigned* row = context ? shadesOf(context, color) : nullptr;
    if (!row || !isComplete())
        return;
    for (int shade = 0; shade < NUM_SHADES; ++shade)
        swatchOf(shades, shade)->setSwatch({colorrefToQColor(row[shade])});
}

void FigColorDlg::showPatterns(int pen, int fill)
{
    if (!context || !isComplete())
        return;
    for (int pattern = 0; pattern < NUM_PATTERNS; ++pattern)
        swatchOf(patterns, pattern)->setSwatch(patternSwatch(pattern, pen, fill));
}

Swatch FigColorDlg::patternSwatch(int pattern, int pen, int fill) const
{
    return {fillColorOf(context, fill, PURE_SHADE), pattern, penColorOf(context, pen)};
}

void FigColorDlg::showPenPreview()
{
    if (!context)
        return;
    lastSample = sample();
    if (isComplete())
        showSample();
    emit colorChanged(lastSample);
}

void FigColorDlg::showSample()
{
    preview->setPixmap(lastSample);
    description->setText(tr("Pen: %1\nFill: %2, %3")
                             .arg(nameOfColor(context->cur_pencolor),
                                  nameOfColor(context->cur_fillcolor),
                                  nameOfFill(context->cur_fillstyle)));
}

/// A figure with the current colours, on white where it does not fill the pixmap.
QPixmap FigColorDlg::sample() const
{
    QPixmap pixmap(PREVIEW_SIZE * devicePixelRatioF());
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    const int style = context->cur_fillstyle;
    if (style >= FIRST_PATTERN) {
        paintSwatch(
            &painter, QRect(QPoint(), PREVIEW_SIZE),
            patternSwatch(style - FIRST_PATTERN, context->cur_pencolor, context->cur_fillcolor));
        return pixmap;
    }
    painter.setPen(QPen(penColorOf(context, context->cur_pencolor), PREVIEW_PEN, Qt::SolidLine,
                        Qt::FlatCap, Qt::MiterJoin));
    if (style != NO_FILL)
        painter.setBrush(fillColorOf(context, context->cur_fillcolor, style));
    painter.drawPolygon(PREVIEW_SHAPE, static_cast<int>(std::size(PREVIEW_SHAPE)));
    return pixmap;
}

QString FigColorDlg::nameOfColor(int color) const
{
    if (color >= 0 && color < NUM_STD_COLORS)
        return tr(colorNames[color].name);
    const QColor own = context->userColors.value(color - NUM_STD_COLORS);
    return own.isValid() ? own.name() : tr("Default");
}
