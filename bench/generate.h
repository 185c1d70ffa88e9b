// Figures of any size for measuring, the same for the same seed on every machine.
#pragma once

#include <cstdint>
#include <string>

/// A FIG 3.2 file with `count` mixed objects on an A4 page: lines with and without heads, texts,
/// boxes, ellipses, splines, polygons, arcs and arc-boxes over 100 depths, a tenth of them in
/// compounds. Kinds, line widths, styles, fills and heads have the shares of real figures.
std::string generateFigure(long count, std::uint32_t seed);
