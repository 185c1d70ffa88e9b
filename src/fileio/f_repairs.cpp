// Repairs of fields that are out of their range.
#include "fileio/f_read.h"
#include "model/FigContext.h"
#include "model/shell.h"

#include <cmath>

namespace {

constexpr float TWO_PI = 6.2831855f;
constexpr int NUM_ARROW_TYPES = 15;
constexpr int LAST_PATTERN_STYLE = 62;

} // namespace

void fix_angle(float* angle)
{
    if (!std::isfinite(*angle))
        *angle = 0;
    if (std::fabs(*angle) > 1000)
        *angle = std::fmod(*angle, TWO_PI);
    // Adding comes first: the sum for a tiny negative angle is 2 pi itself and has to go again.
    while (*angle < 0)
        *angle += TWO_PI;
    while (*angle >= TWO_PI)
        *angle -= TWO_PI;
}

void fix_depth(int* depth)
{
    if (*depth > MAX_DEPTH) {
        *depth = MAX_DEPTH;
        // The line number stands between the two depths, where the words expect the second.
        put_msg("Depth > Maximum allowed (%d), setting to %d in line %d.",
                static_cast<long>(MAX_DEPTH), static_cast<long>(save_line),
                static_cast<long>(MAX_DEPTH));
    } else if (*depth < 0) {
        *depth = 0;
    }
}

void fix_fillstyle(FigObject* object)
{
    const bool blackOrDefault = object->fill_color == -1 || object->fill_color == 0;
    const bool tint = object->fill_style >= 21 && object->fill_style <= 40;
    if (blackOrDefault && tint)
        object->fill_style = -1;
    else
        object->fill_style = qBound(-1, object->fill_style, LAST_PATTERN_STYLE + 1);
}

int convert_arrow(int type)
{
    return type < NUM_ARROW_TYPES ? type : 0;
}
