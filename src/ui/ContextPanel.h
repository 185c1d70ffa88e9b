// The stack of attribute panels of which one shows: that of the command in force, or with a
// selected object that of the object.
#pragma once

#include <QStackedWidget>

class AttrsToolbarHandler;
class FigObject;
class QTMainFrm;

enum ContextPage {
    PAGE_FIRST_EMPTY, ///< never chosen
    PAGE_ARC,
    PAGE_ARROW,
    PAGE_BOX,
    PAGE_COMPOUND,
    PAGE_ELLIPSE,
    PAGE_EMPTY, ///< all other commands; no object
    PAGE_POLYGON,
    PAGE_POLYLINE,
    PAGE_PICTURE,
    PAGE_REGULAR_POLYGON,
    PAGE_CLOSED_SPLINE,
    PAGE_OPEN_SPLINE,
    PAGE_TEXT,
    PAGE_ROTATE,
    PAGE_TANGENT,
    PAGE_UPDATE,
    NUM_CONTEXT_PAGES
};

constexpr int NUM_PANEL_COMMANDS = 74;

/// Page by command; the index is the command number minus 1.
extern const int commandPanelIndex[NUM_PANEL_COMMANDS];

class ContextPanel : public QStackedWidget {
    Q_OBJECT

public:
    /// The panels are fronts of the coordinator. All are there at once, but what is in them comes
    /// when they are first shown, or soon after the window is.
    ContextPanel(AttrsToolbarHandler* handler, QTMainFrm* window);

    /// Numbers that no command has show the empty page.
    void showCommand(int command);
    /// Null shows the empty page. A line or spline of an unknown sub-type leaves the page as it is.
    void showObject(const FigObject* object);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The panel is as high as the page that shows; its width stays that of the widest.
    void takeHeightOfPage(int index);
    void completePages();

    bool wasPainted = false;
};
