// The lists of line styles and arrows: pictures only, which the engine itself has drawn.
#pragma once

class QComboBox;

/// Six line styles at the indices 0 to 5, as icons.
void addLineStyleIcons(QComboBox* box);
/// 29 arrows as icons, from index 1 on where index 0 is to be that without an arrow.
void addBackArrowTypes(QComboBox* box, bool withNone);
void addForwardArrowTypes(QComboBox* box, bool withNone);
