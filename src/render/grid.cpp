#include "render/grid.h"

#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/shell.h"
#include "render/coords.h"

QVector<GridDefinition*> gridDefinitions;

namespace {

struct BuiltinGrid {
    const char* name;
    const char* statusTip;
    float stepSize;
    const char* icon;
};

// All three isometric grids say "Two", whatever their step.
const BuiltinGrid builtinGrids[NUM_BUILTIN_GRIDS] = {
    {"None", "Grid is off", 1.0f, "none"},
    {"Small", "Half %1 GRID", 0.5f, "small"},
    {"Medium", "One %1 GRID", 1.0f, "medium"},
    {"Large", "Two %1 GRID", 2.0f, "large"},
    {"Small isometric", "Two %1 GRID", 0.5f, "iso_small"},
    {"Medium isometric", "Two %1 GRID", 1.0f, "iso_medium"},
    {"Large isometric", "Two %1 GRID", 2.0f, "iso_large"},
};

constexpr int FIRST_ISO_GRID = 4;

double subdivided(double step, int magnetMode)
{
    switch (magnetMode) {
    case 0:
        return step / 10;
    case 1:
        return step / 5;
    case 2:
        return step * 0.25;
    case 3:
        return step * 0.5;
    default:
        return step;
    }
}

} // namespace

GridDefinition* makeGridDefinition(const QString& name, const QString& statusTip, float stepSize,
                                   const QColor& color, int penStyle, const QString& icon)
{
    const double metric = UNITS_PER_CM * stepSize;
    const double imperial = stepSize * UNITS_PER_INCH;
    return new GridDefinition{name,     statusTip, color,    penStyle,   icon,
                              stepSize, metric,    imperial, metric / 2, imperial / 2};
}

void loadGridDefinitions()
{
    destroyGridDefinitions();
    for (const BuiltinGrid& grid : builtinGrids)
        gridDefinitions.append(makeGridDefinition(
            grid.name, grid.statusTip, grid.stepSize, gridPreferences.gridColour, Qt::DotLine,
            QStringLiteral(":/grid/images/grid/grid_%1.png").arg(grid.icon)));
}

void destroyGridDefinitions()
{
    qDeleteAll(gridDefinitions);
    gridDefinitions.clear();
}

bool isIsoGrid(int index)
{
    return index >= FIRST_ISO_GRID && index < NUM_BUILTIN_GRIDS;
}

const GridDefinition* activeGrid(CFigContext* ctx)
{
    if (ctx->gridIndex <= 0 || ctx->gridIndex >= gridDefinitions.size())
        return nullptr;
    return gridDefinitions[ctx->gridIndex];
}

double getGridRound(CFigContext* ctx)
{
    const GridDefinition* grid = activeGrid(ctx);
    if (!grid)
        return 0.0;
    return subdivided(ctx->metric ? grid->stepMetric : grid->stepImperial, ctx->magnetMode);
}

void getGridRoundHalf(CFigContext* ctx, double* step, double* half)
{
    *step = getGridRound(ctx);
    if (const GridDefinition* grid = activeGrid(ctx))
        *half = subdivided(ctx->metric ? grid->halfMetric : grid->halfImperial, ctx->magnetMode);
}

void showGridInfo(CFigContext* ctx)
{
    const GridDefinition* grid = activeGrid(ctx);
    QString text = QStringLiteral("No GRID");
    if (grid && ctx->gridIndex < NUM_BUILTIN_GRIDS)
        text = QString(grid->statusTip).replace("%1", ctx->metric ? "centimeter" : "inch");
    else if (grid)
        text = QString("Custom grid with step size %1").arg(static_cast<double>(grid->stepSize));
    put_msg(text.toUtf8().constData());
}
