// Push buttons that stand side by side in a narrow panel: no wider than their texts need.
#pragma once

class QPushButton;
class QString;

/// Without parent.
QPushButton* makeCompactButton(const char* name, const QString& text);
