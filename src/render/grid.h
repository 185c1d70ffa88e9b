// Grids: the table of built-in and custom ones, and the snap step.
#pragma once

#include <QColor>
#include <QString>
#include <QVector>

class CFigContext;

struct GridDefinition {
    QString name;
    QString statusTip; ///< %1 stands for the unit word
    QColor color;
    int penStyle;                    ///< Qt::PenStyle
    QString icon;                    ///< resource path
    float stepSize;                  ///< centimetres or inches, as the document's metric flag says
    double stepMetric, stepImperial; ///< the step in figure units
    double halfMetric, halfImperial;
};

constexpr int NUM_BUILTIN_GRIDS = 7;
/// Index is the grid index. Owned here; freed at the end of main.
extern QVector<GridDefinition*> gridDefinitions;

/// A grid with its four spacings computed from the step.
GridDefinition* makeGridDefinition(const QString& name, const QString& statusTip, float stepSize,
                                   const QColor& color, int penStyle, const QString& icon);
/// Builds the built-in table anew, once at start-up.
void loadGridDefinitions();
void destroyGridDefinitions();
bool isIsoGrid(int index);
/// Snap step in figure units; 0.0 with grid 0.
double getGridRound(CFigContext* ctx);
/// Step and half step. With grid 0 only step is written, with 0.0.
void getGridRoundHalf(CFigContext* ctx, double* step, double* half);
/// Tells the context's grid in the status line.
void showGridInfo(CFigContext* ctx);
