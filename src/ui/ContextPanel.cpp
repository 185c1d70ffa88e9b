#include "ui/ContextPanel.h"

#include "model/FigObjects.h"
#include "ui/AttrsToolbars.h"
#include "ui/QTMainFrm.h"

#include <QTimer>

#include <utility>

// clang-format off
const int commandPanelIndex[NUM_PANEL_COMMANDS] = {
     5,  5,  5,  5,  1,  8,  3,  7, 13, 12, // 1 to 10
    11, 12, 11,  6, 10,  9,  6,  6,  6,  6,
     6,  6,  6,  6,  6,  6,  6,  6,  6,  6, // 21 to 30
     6,  6,  6,  6,  6,  6,  6,  6,  6,  6,
     6,  6,  6,  2,  6,  6, 16,  6,  6,  6, // 41 to 50
     6,  6,  6,  6,  6,  6,  6, 14, 14,  6,
     6,  6,  6,  6,  6,  6,  6,  6,  6,  6, // 61 to 70
     6,  6, 15, 15,
};
// clang-format on

namespace {

using MakePage = QWidget* (*)(AttrsToolbarHandler* handler, QTMainFrm* window);

template <typename Panel> QWidget* makePanel(AttrsToolbarHandler* handler, QTMainFrm* window)
{
    return new Panel(handler, window);
}

template <typename Page> QWidget* makePage(AttrsToolbarHandler*, QTMainFrm*)
{
    return new Page;
}

struct PageRow {
    const char* objectName;
    const char* accessibleName;
    MakePage make;
};

/// Index is the ContextPage.
const PageRow pageTable[NUM_CONTEXT_PAGES] = {
    {"firstEmptyAttrsToolbar", "No attributes", makePage<EmptyAttrsToolbar>},
    {"arcAttrsToolbar", "Arc attributes", makePanel<ArcAttrsToolbar>},
    {"arrowAttrsToolbar", "Arrow attributes", makePanel<ArrowAttrsToolbar>},
    {"boxAttrsToolbar", "Box attributes", makePanel<BoxAttrsToolbar>},
    {"compoundAttrsToolbar", "Compound attributes", makePanel<CompoundAttrsToolbar>},
    {"ellipseAttrsToolbar", "Ellipse attributes", makePanel<EllipseAttrsToolbar>},
    {"emptyAttrsToolbar", "No attributes", makePage<EmptyAttrsToolbar>},
    {"polygonAttrsToolbar", "Polygon attributes", makePanel<PolygonAttrsToolbar>},
    {"polylineAttrsToolbar", "Polyline attributes", makePanel<PolylineAttrsToolbar>},
    {"picAttrsToolbar", "Picture attributes", makePanel<PicAttrsToolbar>},
    {"regpolyAttrsToolbar", "Regular polygon attributes", makePanel<RegpolyAttrsToolbar>},
    {"closedSplineAttrsToolbar", "Closed spline attributes", makePanel<ClosedSplineAttrsToolbar>},
    {"openSplineAttrsToolbar", "Open spline attributes", makePanel<OpenSplineAttrsToolbar>},
    {"textAttrsToolbar", "Text attributes", makePanel<TextAttrsToolbar>},
    {"rotateAttrsToolbar", "Rotation attributes", makePanel<RotateAttrsToolbar>},
    {"tangnormAttrsToolbar", "Tangent and normal attributes", makePanel<TangnormAttrsToolbar>},
    {"updateAttrsToolbar", "Attributes to update", makePage<UpdateAttrsToolbar>},
};

/// One of these needs most room, which one depends on the font. They give the panel its width, so
/// they are made with it.
constexpr int WIDEST_PAGES[] = {PAGE_ARC, PAGE_UPDATE};

void complete(QWidget* page)
{
    if (auto* late = dynamic_cast<Late<QWidget>*>(page))
        late->makeComplete();
}

constexpr int KEEP_PAGE = -1;

/// Index is the sub-type.
constexpr int linePages[] = {KEEP_PAGE,    PAGE_POLYLINE, PAGE_BOX,
                             PAGE_POLYGON, PAGE_BOX,      PAGE_PICTURE};
constexpr int splinePages[] = {PAGE_OPEN_SPLINE,   PAGE_CLOSED_SPLINE, PAGE_OPEN_SPLINE,
                               PAGE_CLOSED_SPLINE, PAGE_OPEN_SPLINE,   PAGE_CLOSED_SPLINE};

template <std::size_t count> int pageOfSubType(const int (&pages)[count], int subType)
{
    return subType >= 0 && subType < static_cast<int>(count) ? pages[subType] : KEEP_PAGE;
}

int pageOf(const FigObject* object)
{
    switch (object->type) {
    case O_ELLIPSE:
        return PAGE_ELLIPSE;
    case O_POLYLINE:
        return pageOfSubType(linePages, object->sub_type);
    case O_SPLINE:
        return pageOfSubType(splinePages, object->sub_type);
    case O_TEXT:
        return PAGE_TEXT;
    case O_ARC:
        return PAGE_ARC;
    case O_COMPOUND:
        return PAGE_COMPOUND;
    default:
        return KEEP_PAGE;
    }
}

} // namespace

ContextPanel::ContextPanel(AttrsToolbarHandler* handler, QTMainFrm* window) : QStackedWidget(window)
{
    setObjectName("contextPanel");
    setAccessibleName(tr("Object properties"));
    for (const PageRow& row : pageTable) {
        QWidget* page = row.make(handler, window);
        page->setObjectName(row.objectName);
        page->setAccessibleName(tr(row.accessibleName));
        addWidget(page);
    }
    connect(this, &QStackedWidget::currentChanged, this, &ContextPanel::takeHeightOfPage);
    for (const int page : WIDEST_PAGES)
        complete(widget(page));
    setCurrentIndex(PAGE_EMPTY);
    takeHeightOfPage(PAGE_EMPTY);
}

/// Once the window is on the screen and nothing else is to be done, all pages are made: no tool is
/// to wait for its own.
void ContextPanel::paintEvent(QPaintEvent* event)
{
    QStackedWidget::paintEvent(event);
    if (!std::exchange(wasPainted, true))
        QTimer::singleShot(0, this, &ContextPanel::completePages);
}

void ContextPanel::completePages()
{
    for (int index = 0; index < count(); ++index)
        complete(widget(index));
}

void ContextPanel::takeHeightOfPage(int index)
{
    for (int i = 0; i < count(); ++i)
        widget(i)->setSizePolicy(QSizePolicy::Preferred,
                                 i == index ? QSizePolicy::Preferred : QSizePolicy::Ignored);
    updateGeometry();
}

void ContextPanel::showCommand(int command)
{
    const bool known = command >= 1 && command <= NUM_PANEL_COMMANDS;
    setCurrentIndex(known ? commandPanelIndex[command - 1] : PAGE_EMPTY);
}

void ContextPanel::showObject(const FigObject* object)
{
    const int page = object ? pageOf(object) : PAGE_EMPTY;
    if (page != KEEP_PAGE)
        setCurrentIndex(page);
}
