// What every subcommand of figprobe shares: its options and the opening of a figure in a
// context that has no window.
#pragma once

#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

class CFigContext;

/// The arguments of one call, with the values that hold when an option is left out.
struct ProbeOptions {
    QString command;
    QString input;
    QString output;
    float zoom = 1.0f;
    float ppiX = 80.0f;
    float ppiY = 80.0f;
    QSize size;               ///< pixels; not valid: the figure's extent decides
    QPoint origin;            ///< figure units at the top left of the canvas
    QVector<QPoint> points;   ///< figure units; of the searches
    bool shiftFigure = false; ///< answer to the question on negative coordinates
    bool antialiasing = true;
    bool pageBorders = true;
};

/// Fills options from the command line. On failure error says why. Points of the searches that the
/// command line does not name are read from the standard input.
bool parseProbeOptions(const QStringList& arguments, ProbeOptions* options, QString* error);

/// Reads the figure at zoom 1, as the program does, and then sets zoom and origin.
bool openFigure(CFigContext* ctx, const ProbeOptions& options);
