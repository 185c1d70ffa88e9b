// Seeded random documents: every type of object, nested compounds, links, colours, comments, and
// objects without extent. The same seed makes the same document on every machine.
//
// All real numbers have no more decimals than a file keeps, so that nothing is lost by saving.
#pragma once

#include "model/FigObjects.h"

#include <random>

class CFigContext;

class RandomFigure {
public:
    explicit RandomFigure(unsigned seed) : bits(seed) {}

    /// Fills an empty document without window. Its ids run from 1, nextId and the depth table are
    /// up to date, and it is not modified. Links obey the rules of the reader.
    void fill(CFigContext* ctx);

    /// From low to high, both included.
    int between(int low, int high);
    bool oneIn(int n) { return between(1, n) == 1; }

private:
    void fillHeader(CFigContext* ctx);
    FigObject* object(CFigContext* ctx, int levels);
    FigLine* line();
    FigSpline* spline();
    FigEllipse* ellipse();
    FigArc* arc();
    FigText* text(CFigContext* ctx);
    FigCompound* compound(CFigContext* ctx, int levels);
    FigPoint* points(int count, bool closed);
    void setAttributes(FigObject* object);
    void addArrows(FigObject* object);
    void link(CFigContext* ctx);
    int coordinate();
    FigPoint point();
    QString words();
    QString comment();
    /// A number with so many decimals: numerator over the power of ten.
    float decimal(int low, int high, int digits);

    std::mt19937 bits;
    int extent = 12000;
    int origin = 0;
    int numColors = 0;
};
