// The engine's start-up and a canvas without a window, for tests and tools that draw.
#pragma once

#include <QImage>
#include <QSize>

class CFigContext;

/// The engine's process-wide tables, made as the program makes them and freed at the end.
/// Needs a QGuiApplication that outlives it.
class EngineTables {
public:
    EngineTables();
    EngineTables(const EngineTables&) = delete;
    EngineTables& operator=(const EngineTables&) = delete;
    ~EngineTables();
};

/// Size that holds the whole figure, as far as it lies right of and below the canvas' origin.
QSize canvasSize(CFigContext* ctx);

/// What a window of that size would show with that preference for antialiasing. A null image when there is no memory for it.
QImage drawCanvas(CFigContext* ctx, const QSize& size, bool antialiasing);
