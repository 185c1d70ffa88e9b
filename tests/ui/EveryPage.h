// The attribute panels make their controls when they are first shown.
#pragma once

#include "ui/ContextPanel.h"

/// Shows each panel once, so that all controls are there; ends with the one that showed before.
inline void showEveryPage(ContextPanel* panels)
{
    const int shown = panels->currentIndex();
    for (int page = 0; page < panels->count(); ++page)
        panels->setCurrentIndex(page);
    panels->setCurrentIndex(shown);
}
