#include "ui/ElidedButton.h"

#include <QGuiApplication>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

const char* const SHORTEST_TEXT = "Times ..."; // always has its place

} // namespace

QSize ElidedButton::sizeWithText(const QString& shown) const
{
    // The height is that of the application's font, whatever font the text is shown in.
    const QFontMetrics metrics(QGuiApplication::font());
    QStyleOptionButton option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_PushButton, &option,
                                     metrics.size(Qt::TextShowMnemonic, shown), this);
}

QSize ElidedButton::sizeHint() const
{
    return sizeWithText(SHORTEST_TEXT);
}

void ElidedButton::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    QRect contents = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    if (!option.icon.isNull())
        contents.setWidth(contents.width() - option.iconSize.width() - 4);
    option.text = option.fontMetrics.elidedText(text(), Qt::ElideRight, contents.width());
    QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}
