#include "ui/AttrIcons.h"

#include <QComboBox>

#include <algorithm>

namespace {

constexpr QSize LINE_STYLE_SIZE(64, 16); // of the pictures
constexpr QSize ARROW_SIZE(32, 16);
constexpr int NUM_ARROW_TYPES = 29;
constexpr int NUM_LINE_STYLES = 6;

struct LineStyleRow {
    const char* icon;
    const char* name; ///< for those who do not see the icon
};

/// Index is the line style.
const LineStyleRow lineStyleTable[NUM_LINE_STYLES] = {
    {"solid", "Solid"},
    {"dashed", "Dashed"},
    {"dotted", "Dotted"},
    {"dashdot", "Dash, dot"},
    {"dashdotdot", "Dash, two dots"},
    {"dashdotdotdot", "Dash, three dots"},
};

void insertIcon(QComboBox* box, int index, const QString& path, const QString& name)
{
    box->insertItem(index, QIcon(path), QString());
    box->setItemData(std::min(index, box->count() - 1), name, Qt::AccessibleTextRole);
}

void addArrows(QComboBox* box, const char* prefix, bool withNone)
{
    const QString path = ":/arrows/images/arrows/%1.png";
    box->setIconSize(ARROW_SIZE);
    if (withNone)
        insertIcon(box, 0, path.arg("none"), QObject::tr("No arrow"));
    for (int number = 1; number <= NUM_ARROW_TYPES; ++number)
        insertIcon(box, number, path.arg(prefix + QString::number(number)),
                   QObject::tr("Arrow %1").arg(number));
}

} // namespace

void addLineStyleIcons(QComboBox* box)
{
    box->setIconSize(LINE_STYLE_SIZE);
    const QString path = ":/lineStyles/images/lineStyles/%1.png";
    for (int style = 0; style < NUM_LINE_STYLES; ++style)
        insertIcon(box, style, path.arg(lineStyleTable[style].icon),
                   QObject::tr(lineStyleTable[style].name));
}

void addBackArrowTypes(QComboBox* box, bool withNone)
{
    addArrows(box, "back", withNone);
}

void addForwardArrowTypes(QComboBox* box, bool withNone)
{
    addArrows(box, "forw", withNone);
}
