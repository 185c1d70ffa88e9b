// The actions of the main window as data: what each is called, which key it has, and the slot of
// the window behind it. Menus and tool bars are made of them.
#pragma once

#include <QAction>
#include <QVector>

enum MainAction {
    SEPARATOR = -1, ///< not an action: a line between two of them
    ACT_NEW,
    ACT_OPEN,
    ACT_SAVE,
    ACT_SAVE_AS,
    ACT_EXPORT,
    ACT_EXPORT_AGAIN,
    ACT_CLOSE,
    ACT_PROPERTIES,
    ACT_EXIT,
    ACT_UNDO,
    ACT_REDO,
    ACT_CUT,
    ACT_COPY,
    ACT_PASTE,
    ACT_SELECT_ALL,
    ACT_SMART_LINKS,
    ACT_PREFERENCES,
    ACT_METRICS,
    ACT_LIBRARY,
    ACT_CONSOLE,
    ACT_PALETTE,
    ACT_LAYERS,
    ACT_ZOOM_IN,
    ACT_ZOOM_OUT,
    ACT_ZOOM_SELECTION,
    ACT_ZOOM_SELECTION_REVERT,
    ACT_ALIGN_LEFT,
    ACT_ALIGN_TOP,
    ACT_ALIGN_RIGHT,
    ACT_ALIGN_BOTTOM,
    ACT_ALIGN_CENTER_H,
    ACT_ALIGN_CENTER_V,
    ACT_ALIGN_CENTER_HV,
    ACT_COMPOUND_CREATE,
    ACT_COMPOUND_BREAK,
    ACT_COMPOUND_OPEN,
    ACT_COMPOUND_CLOSE,
    ACT_CONVERT,
    ACT_REFRESH_SCRIPTS,
    ACT_ABOUT,
    ACT_ABOUT_QT,
    NUM_MAIN_ACTIONS
};

struct ActionRow {
    const char* text;
    const char* key;
    const char* tip;  ///< empty: the text without its marks
    const char* icon; ///< resource path
    const char* slot; ///< of the main window, as SLOT() spells it; null: disabled
};

/// Index is the MainAction.
extern const ActionRow actionTable[NUM_MAIN_ACTIONS];

class MainActions {
public:
    /// Makes the actions; the window owns them and receives their signals.
    explicit MainActions(QWidget* window);

    QAction* operator[](MainAction action) const { return actions[action]; }
    /// Enables or disables an action. One without a slot stays disabled.
    void setAvailable(MainAction action, bool available) const;
    /// Appends to a menu or a tool bar.
    void fill(QWidget* bar, std::initializer_list<MainAction> entries) const;

private:
    QVector<QAction*> actions;
};
