#include "ui/LayersToolbar.h"

#include "model/FigContext.h"
#include "model/shell.h"
#include "model/w_layers.h"
#include "ui/CompactButton.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

namespace {

constexpr int FIRST_LAYER_MODE = 10; // that of the first entry; the others follow
constexpr int MARGIN = 6;            // pixels
constexpr int SPACING = 3;
constexpr int MIN_LIST_HEIGHT = 40;

/// Calls use(depth) for each depth that holds an object, from the smallest on.
template <typename Use> void forDepthsInUse(const CFigContext* context, Use use)
{
    if (!context || context->min_depth < 0)
        return;
    for (int depth = context->min_depth; depth <= context->max_depth; ++depth)
        if (context->object_depths[depth] > 0)
            use(depth);
}

Qt::CheckState checkState(bool on)
{
    return on ? Qt::Checked : Qt::Unchecked;
}

} // namespace

LayersToolbar::LayersToolbar() : list(new QListWidget), drawMode(new QComboBox)
{
    setObjectName("layersToolbar");
    setAccessibleName(tr("Layers"));
    list->setObjectName("lstLayers");
    list->setAccessibleName(tr("Layers in use"));
    list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    list->setMinimumHeight(MIN_LIST_HEIGHT);
    drawMode->setObjectName("cbDrawMode");
    drawMode->addItems({tr("Dimmed"), tr("Grayed"), tr("Hidden")});
    auto* modeLabel = new QLabel(tr("Others"));
    modeLabel->setToolTip(tr("Look of the layers that are off"));
    modeLabel->setBuddy(drawMode);
    drawMode->setToolTip(modeLabel->toolTip());
    drawMode->setAccessibleName(modeLabel->toolTip());

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    grid->setSpacing(SPACING);
    grid->addWidget(list, 0, 0, 1, 3);
    const struct {
        const char* name;
        QString text;
        void (LayersToolbar::*slot)();
    } buttons[] = {{"btAllOn", tr("All on"), &LayersToolbar::allOn},
                   {"btAllOff", tr("All off"), &LayersToolbar::allOff},
                   {"btToggle", tr("Toggle"), &LayersToolbar::toggle}};
    int column = 0;
    for (const auto& row : buttons) {
        QPushButton* button = makeCompactButton(row.name, row.text);
        connect(button, &QPushButton::clicked, this, row.slot);
        grid->addWidget(button, 1, column++);
    }
    grid->addWidget(modeLabel, 2, 0);
    grid->addWidget(drawMode, 2, 1, 1, 2);
    connect(list, &QListWidget::itemChanged, this, &LayersToolbar::itemChanged);
    connect(drawMode, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &LayersToolbar::onDrawMode);
}

/// Drawing adds to the depths object by object, so a list that is right already is left alone.
bool LayersToolbar::isListed(const CFigContext* context) const
{
    int row = 0;
    bool same = true;
    forDepthsInUse(context, [&](int depth) {
        const QListWidgetItem* item = list->item(row++);
        same = same && item && item->text() == QString::number(depth) &&
               item->checkState() == checkState(context->active_layers[depth]);
    });
    return same && row == list->count();
}

void LayersToolbar::drawLayerButtons(CFigContext* context)
{
    if (context) {
        const QSignalBlocker blocker(drawMode);
        drawMode->setCurrentIndex(context->layerMode - FIRST_LAYER_MODE);
    }
    if (isListed(context))
        return;
    const QSignalBlocker blocker(list);
    list->clear();
    forDepthsInUse(context, [&](int depth) {
        auto* item = new QListWidgetItem(QString("%1").arg(depth), list);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(checkState(context->active_layers[depth]));
    });
}

void LayersToolbar::itemChanged(QListWidgetItem* item)
{
    if (CFigContext* context = getFigContext())
        toggle_layer(context, item->text().toInt(), item->checkState() == Qt::Checked);
}

template <typename NewState> void LayersToolbar::setAll(NewState newState)
{
    CFigContext* context = getFigContext();
    if (!context)
        return;
    forDepthsInUse(context, [&](int depth) {
        context->active_layers[depth] = newState(context->active_layers[depth]);
    });
    drawLayerButtons(context);
    shell_redisplay_canvas(context->chFrm);
}

void LayersToolbar::allOn()
{
    setAll([](bool) { return true; });
}

void LayersToolbar::allOff()
{
    setAll([](bool) { return false; });
}

void LayersToolbar::toggle()
{
    setAll([](bool on) { return !on; });
}

void LayersToolbar::onDrawMode(int index)
{
    CFigContext* context = getFigContext();
    if (!context || index < 0)
        return;
    context->layerMode = FIRST_LAYER_MODE + index;
    shell_redisplay_canvas(context->chFrm);
}
