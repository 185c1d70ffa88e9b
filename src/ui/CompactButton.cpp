#include "ui/CompactButton.h"

#include <QPushButton>

namespace {

constexpr int PADDING = 16; // pixels, of both sides together

} // namespace

QPushButton* makeCompactButton(const char* name, const QString& text)
{
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(text) + PADDING);
    // The style would have it wider.
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return button;
}
