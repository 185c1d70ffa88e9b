#include "ui/ColorSide.h"

#include "render/colorFunctions.h"
#include "ui/SwatchButton.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>

namespace {

constexpr QSize SWATCH_SIZE(24, 24);
constexpr QSize SAMPLE_SIZE(24, 14); // in the box of user colours
constexpr int COLUMNS = 8;
constexpr int PURE_SHADE = 20;
constexpr int MARGIN = 6;

QIcon sampleOf(const QColor& color)
{
    QPixmap sample(SAMPLE_SIZE);
    sample.fill(color);
    return sample;
}

} // namespace

ColorSide::ColorSide(const QString& title, const char* name) : QGroupBox(title)
{
    setObjectName(name);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    column->addLayout(makeSwatches());
    column->addLayout(makeUserColors());
    enableButtons();
}

QLayout* ColorSide::makeSwatches()
{
    swatches = new QButtonGroup(this);
    auto* grid = new QGridLayout;
    grid->setSpacing(0);
    for (int color = 0; color < NUM_STD_COLORS; ++color) {
        auto* button = new SwatchButton(SWATCH_SIZE);
        button->setSwatch({colorrefToQColor(fill_colors[color][PURE_SHADE])});
        button->setName(tr(colorNames[color].name));
        swatches->addButton(button, color);
        grid->addWidget(button, color / COLUMNS, color % COLUMNS);
    }
    connect(swatches, &QButtonGroup::idClicked, this, &ColorSide::colorChosen);
    return grid;
}

QLayout* ColorSide::makeUserColors()
{
    userColors = new QComboBox;
    userColors->setObjectName("userColors");
    userColors->setAccessibleName(tr("User colors, %1").arg(title()));
    userColors->setToolTip(tr("Colors of this document"));
    userColors->setIconSize(SAMPLE_SIZE);
    userColors->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(userColors, QOverload<int>::of(&QComboBox::activated), this,
            &ColorSide::userColorChosen);
    connect(userColors, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &ColorSide::enableButtons);
    auto* label = new QLabel(tr("User"));
    label->setBuddy(userColors);
    auto* line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(userColors, 1);
    auto* grid = new QGridLayout;
    grid->addLayout(line, 0, 0, 1, 2);
    QPushButton* add = addButton("add", tr("Add..."), tr("Add a color to the document"));
    editButton = addButton("edit", tr("Edit..."), tr("Change the user color wherever it is used"));
    deleteButton = addButton("delete", tr("Delete"), tr("Delete the user color"));
    deleteUnusedButton = addButton("deleteUnused", tr("Delete unused"),
                                   tr("Delete all user colors that no object has"));
    grid->addWidget(add, 1, 0);
    grid->addWidget(editButton, 1, 1);
    grid->addWidget(deleteButton, 2, 0);
    grid->addWidget(deleteUnusedButton, 2, 1);
    connect(add, &QPushButton::clicked, this, &ColorSide::addWanted);
    connect(editButton, &QPushButton::clicked, this,
            [this] { emit editWanted(keyAt(userColors->currentIndex())); });
    connect(deleteButton, &QPushButton::clicked, this,
            [this] { emit deleteWanted(keyAt(userColors->currentIndex())); });
    connect(deleteUnusedButton, &QPushButton::clicked, this, &ColorSide::deleteUnusedWanted);
    return grid;
}

QPushButton* ColorSide::addButton(const char* name, const QString& text, const QString& tip)
{
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

/// Edit and Delete are for the colour that the box shows.
void ColorSide::enableButtons()
{
    const bool hasColor = userColors->currentIndex() >= 0;
    editButton->setEnabled(hasColor);
    deleteButton->setEnabled(hasColor);
    deleteUnusedButton->setEnabled(userColors->count() > 0);
}

void ColorSide::showUserColors(const QMap<int, QColor>& colors)
{
    userColors->clear();
    for (auto color = colors.cbegin(); color != colors.cend(); ++color)
        userColors->addItem(sampleOf(*color),
                            QString("%1: %2").arg(color.key() + NUM_STD_COLORS).arg(color->name()),
                            color.key());
    userColors->setCurrentIndex(-1);
    enableButtons();
}

void ColorSide::mark(int color)
{
    markButton(swatches, color);
    userColors->setCurrentIndex(
        color < NUM_STD_COLORS ? -1 : userColors->findData(color - NUM_STD_COLORS));
}

int ColorSide::keyAt(int index) const
{
    const QVariant key = userColors->itemData(index);
    return key.isValid() ? key.toInt() : -1;
}
