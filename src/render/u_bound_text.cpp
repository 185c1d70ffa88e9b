// Bounds of texts from their metrics.
#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/Font.h"
#include "render/gfx_math.h"
#include "render/u_bound_box.h"

#include <cmath>

namespace {

int textWidth(CFigContext* ctx, const FigText* text)
{
    if (!texViewPreferencesData.renderSpecialText)
        return text->length;
    const QPixmap* image = text->imagesNormal.value(round2(ctx->ppiX));
    if (!image)
        return text->length;
    return round2(static_cast<float>(image->width()) * (1200.0f / ctx->ppiX));
}

int textLeft(const FigText* text, int width)
{
    if (text->sub_type == 1)
        return saturated(static_cast<long>(text->x) - width / 2);
    return text->sub_type == 2 ? saturated(static_cast<long>(text->x) - width) : text->x;
}

/// The box of a rectangle turned about the text's base point.
BoundsBox turnedBox(const FigText* text, const BoundsBox& straight)
{
    const double sine = std::sin(-static_cast<double>(text->angle));
    const double cosine = std::cos(-static_cast<double>(text->angle));
    const auto turned = [&](int x, int y) {
        const double dx = static_cast<double>(x) - text->x;
        const double dy = static_cast<double>(y) - text->y;
        return BoundsBox::at(
            saturated(static_cast<long>(text->x) + round2(cosine * dx - sine * dy)),
            saturated(static_cast<long>(text->y) + round2(sine * dx + cosine * dy)));
    };
    BoundsBox box = turned(straight.xmin, straight.ymax);
    box.include(turned(straight.xmin, straight.ymin));
    box.include(turned(straight.xmax, straight.ymin));
    box.include(turned(straight.xmax, straight.ymax));
    return box;
}

} // namespace

void FigText::getBounds(CFigContext* ctx, int* xmin, int* ymin, int* xmax, int* ymax,
                        bool includeDescent, bool)
{
    // The width is taken before the metrics are brought up to date: the first box after a change
    // of zoom still has the width of the old one.
    const int width = textWidth(ctx, this);
    if (ctx->zoom != metricsZoom)
        pf_textwidth(ctx, this, ctx->zoom);
    // The descent moves the box down, it does not enlarge it.
    const int shift = includeDescent
                          ? round2((1200.0f / ctx->ppiY) / ctx->zoom * static_cast<float>(descent))
                          : 0;
    BoundsBox straight;
    straight.ymax = saturated(static_cast<long>(y) + shift);
    straight.ymin = saturated(static_cast<long>(straight.ymax) - ascent);
    straight.xmin = textLeft(this, width);
    straight.xmax = saturated(static_cast<long>(straight.xmin) + width);
    turnedBox(this, straight).store(xmin, ymin, xmax, ymax);
}
