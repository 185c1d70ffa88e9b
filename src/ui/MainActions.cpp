#include "ui/MainActions.h"

#include "ui/LateIcon.h"

#include <QWidget>

#define ICON(name) ":/actions/images/actions/" name ".png"

// Slots by name: null stands for a command that the program does not have yet, and the others can
// be compared with what the window really has.
const ActionRow actionTable[NUM_MAIN_ACTIONS] = {
    {"&New", "Ctrl+N", "Create a new file", ICON("new"), SLOT(newFile())},
    {"&Open...", "Ctrl+O", "Open an existing file", ICON("open"), SLOT(open())},
    {"&Save", "Ctrl+S", "Save the document to disk", ICON("save"), SLOT(save())},
    {"Save &As...", "", "Save the document under a new name", ICON("save_as"), SLOT(saveAs())},
    {"Export...", "", "", ICON("export"), nullptr},
    {"Export Again", "Ctrl+E", "", ICON("export_again"), nullptr},
    {"Close", "Ctrl+F4", "", ICON("close"), SLOT(closeActiveChild())},
    {"Properties...", "", "", ICON("properties"), nullptr},
    {"Exit", "", "", ICON("exit"), SLOT(closeAllChilds())},
    {"Undo", "Ctrl+Z", "Undo the last action", ICON("undo"), SLOT(undo())},
    {"Redo", "Ctrl+Y", "Redo the last undone action", ICON("redo"), SLOT(redo())},
    {"Cu&t", "Ctrl+X", "Cut the current selection's contents to the clipboard", ICON("cut"),
     SLOT(cut())},
    {"&Copy", "Ctrl+C", "Copy the current selection's contents to the clipboard", ICON("copy"),
     SLOT(copy())},
    {"&Paste", "Ctrl+V", "Paste the clipboard's contents into the current selection", ICON("paste"),
     SLOT(paste())},
    {"Select All", "Ctrl+A", "", ICON("select_all"), SLOT(selectAll())},
    {"Create Smart Links", "", "", ICON("smart_links"), SLOT(createSmartLinks())},
    {"Preferences...", "", "", ICON("preferences"), nullptr},
    {"Page and Metrics Setup...", "", "Open page, grid and metrics setup", ICON("metrics"),
     nullptr},
    {"Library...", "", "Open library", ICON("library"), nullptr},
    {"Open Console View", "", "Open Console View", ICON("console"), SLOT(onOpenConsoleView())},
    {"Palette...", "", "Open Palette", ICON("palette"), SLOT(onOpenColorDlg())},
    {"Layer Selection...", "", "Open layer selection", ICON("layers"), SLOT(onOpenLayersPanel())},
    {"Zoom in", "Ctrl++", "Zoom in", ICON("zoom_in"), SLOT(zoomIn())},
    {"Zoom out", "Ctrl+-", "Zoom out", ICON("zoom_out"), SLOT(zoomOut())},
    {"Zoom to selection", ".", "Zoom to selection", ICON("zoom_selection"),
     SLOT(zoomToSelection())},
    {"Zoom to selection (revert)", "Shift+.", "Zoom to selection", ICON("zoom_selection_revert"),
     SLOT(zoomToSelectionRevert())},
    {"Align left", "", "Align left", ICON("align_left"), SLOT(alignLeft())},
    {"Align top", "", "Align top", ICON("align_top"), SLOT(alignTop())},
    {"Align right", "", "Align right", ICON("align_right"), SLOT(alignRight())},
    {"Align bottom", "", "Align bottom", ICON("align_bottom"), SLOT(alignBottom())},
    {"Align centered horizontal", "", "Align centered horizontal", ICON("align_center_h"),
     SLOT(alignCenterH())},
    {"Align centered vertical", "", "Align centered vertical", ICON("align_center_v"),
     SLOT(alignCenterV())},
    {"Align centered", "", "Align centered", ICON("align_center_hv"), SLOT(alignCenterHV())},
    {"Create", "", "Glue objects into compound object", ICON("compound_create"),
     SLOT(onCreateCompound())},
    {"Break", "", "Break compound object", ICON("compound_break"), SLOT(onBreakCompound())},
    {"Open", "", "Open compound for editing", ICON("compound_open"), SLOT(onOpenCompound())},
    {"Close", "", "Close current compound", ICON("compound_close"), SLOT(onCloseCompound())},
    {"Convert", "", "Convert line into spline or vice versa", ICON("convert"),
     SLOT(onConvertLineSpline())},
    {"Refresh menu", "", "", ":/diverse/images/diverse/refresh.png", nullptr},
    {"&About", "", "Show the application's About box", ICON("about"), SLOT(about())},
    {"About &Qt", "", "Show the Qt library's About box", ICON("about_qt"), SLOT(aboutQt())},
};

#undef ICON

namespace {

QAction* makeAction(const ActionRow& row, QWidget* window)
{
    auto* action = new QAction(lateIcon(row.icon), QObject::tr(row.text), window);
    action->setShortcut(QKeySequence(row.key));
    if (*row.tip)
        action->setToolTip(QObject::tr(row.tip));
    action->setEnabled(row.slot != nullptr);
    if (row.slot)
        QObject::connect(action, SIGNAL(triggered()), window, row.slot);
    return action;
}

QAction* makeSeparator(QObject* parent)
{
    auto* separator = new QAction(parent);
    separator->setSeparator(true);
    return separator;
}

} // namespace

MainActions::MainActions(QWidget* window)
{
    for (const ActionRow& row : actionTable)
        actions.append(makeAction(row, window));
}

void MainActions::setAvailable(MainAction action, bool available) const
{
    actions[action]->setEnabled(available && actionTable[action].slot);
}

void MainActions::fill(QWidget* bar, std::initializer_list<MainAction> entries) const
{
    for (const MainAction entry : entries)
        bar->addAction(entry == SEPARATOR ? makeSeparator(bar) : actions[entry]);
}
