#include "ui/AttrIcons.h"

#include "ui/LateIcon.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QComboBox>
#include <QPointer>

#include <algorithm>

namespace {

constexpr QSize LINE_STYLE_SIZE(64, 16); // of the pictures
constexpr QSize ARROW_SIZE(32, 16);
constexpr int NUM_ARROW_TYPES = 29;
constexpr int NUM_LINE_STYLES = 6;
const QString arrowPath = QStringLiteral(":/arrows/images/arrows/%1.png");

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
    box->insertItem(index, lateIcon(path), QString());
    box->setItemData(std::min(index, box->count() - 1), name, Qt::AccessibleTextRole);
}

using Fill = void (*)(QComboBox*);

/// Several panels show the same list: the first one makes it, the application owns it.
void showShared(QComboBox* box, QPointer<QAbstractItemModel>& list, Fill fill)
{
    if (box->count() > 0)
        return fill(box);
    if (!list) {
        QComboBox first;
        fill(&first);
        list = first.model();
        list->setParent(qApp);
    }
    box->setModel(list);
}

void insertArrows(QComboBox* box, const QString& prefix)
{
    for (int number = 1; number <= NUM_ARROW_TYPES; ++number)
        insertIcon(box, number, arrowPath.arg(prefix + QString::number(number)),
                   QObject::tr("Arrow %1").arg(number));
}

void insertNone(QComboBox* box)
{
    insertIcon(box, 0, arrowPath.arg("none"), QObject::tr("No arrow"));
}

void insertLineStyles(QComboBox* box)
{
    const QString path = ":/lineStyles/images/lineStyles/%1.png";
    for (int style = 0; style < NUM_LINE_STYLES; ++style)
        insertIcon(box, style, path.arg(lineStyleTable[style].icon),
                   QObject::tr(lineStyleTable[style].name));
}

void insertBackArrows(QComboBox* box)
{
    insertArrows(box, "back");
}

void insertForwardArrows(QComboBox* box)
{
    insertArrows(box, "forw");
}

void insertNoneAndBackArrows(QComboBox* box)
{
    insertNone(box);
    insertBackArrows(box);
}

void insertNoneAndForwardArrows(QComboBox* box)
{
    insertNone(box);
    insertForwardArrows(box);
}

void addArrows(QComboBox* box, QPointer<QAbstractItemModel>& list, Fill fill)
{
    showShared(box, list, fill);
    box->setIconSize(ARROW_SIZE);
}

} // namespace

void addLineStyleIcons(QComboBox* box)
{
    static QPointer<QAbstractItemModel> list;
    showShared(box, list, insertLineStyles);
    box->setIconSize(LINE_STYLE_SIZE);
}

void addBackArrowTypes(QComboBox* box, bool withNone)
{
    static QPointer<QAbstractItemModel> plain, extended;
    addArrows(box, withNone ? extended : plain,
              withNone ? insertNoneAndBackArrows : insertBackArrows);
}

void addForwardArrowTypes(QComboBox* box, bool withNone)
{
    static QPointer<QAbstractItemModel> plain, extended;
    addArrows(box, withNone ? extended : plain,
              withNone ? insertNoneAndForwardArrows : insertForwardArrows);
}
