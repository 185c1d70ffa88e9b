#include "AttributeIcons.h"

#include "edit/e_arrow.h"
#include "model/FigContext.h"
#include "render/gfx_math.h"

#include <QPainter>

namespace {

constexpr int HEIGHT = 16; // pixels at scale 1, of all of them
constexpr int LINE_STYLE_WIDTH = 64;
constexpr int ARROW_WIDTH = 32;
constexpr int MARGIN = 3;
constexpr float FIG_DPI = 80;
constexpr int UNITS_PER_PIXEL = 15; // at 80 pixels per inch
constexpr int NUM_ARROW_TYPES = 29;

const char* const lineStyleNames[] = {"solid",   "dashed",     "dotted",
                                      "dashdot", "dashdotdot", "dashdotdotdot"};

/// The line with its arrow at a magnification, in pixels per display unit.
QImage draw(FigLine* line, int width, int scale, float magnification)
{
    QImage image(QSize(width, HEIGHT) * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    CFigContext context;
    context.ppiX = context.ppiY = FIG_DPI;
    context.zoom = static_cast<float>(scale) * magnification;
    // A stroke of odd width is sharp when it runs along the middle of a row of pixels.
    const int penWidth = round2(line->thickness * context.zoom);
    painter.translate(0, penWidth % 2 * 0.5);
    context.setPainter(&painter);
    line->draw(&context);
    return image;
}

/// Figure units of a length in pixels of the icon at scale 1.
int units(int pixels, float magnification)
{
    return round2(pixels * UNITS_PER_PIXEL / magnification);
}

/// A black line through the middle, the ends a little away from the sides.
void makeHorizontal(FigLine* line, int width, float magnification)
{
    line->sub_type = T_POLYLINE;
    const int middle = units(HEIGHT / 2, magnification);
    line->points = new FigPoint(units(MARGIN, magnification), middle);
    line->points->next = new FigPoint(units(width - MARGIN, magnification), middle);
}

/// Thick and with round ends, as dots are hardly seen without.
QImage drawLineStyle(int style, int scale)
{
    FigLine line;
    makeHorizontal(&line, LINE_STYLE_WIDTH, 1);
    line.thickness = 2;
    line.line_style = style;
    line.cap_style = 1;
    line.style_val = 9;
    return draw(&line, LINE_STYLE_WIDTH, scale, 1);
}

/// Type -1 is a line without arrow. In the proportions that new arrows start with.
QImage drawArrow(ArrowDirection direction, int type, int scale)
{
    constexpr float magnification = 1.5;
    CFigContext context;
    FigLine line;
    makeHorizontal(&line, ARROW_WIDTH, magnification);
    line.thickness = 1;
    if (type >= 0)
        add_linearrow(&line, direction, new_arrow(&context, 1, type, 1));
    return draw(&line, ARROW_WIDTH, scale, magnification);
}

} // namespace

QVector<AttributeIcon> drawAttributeIcons()
{
    QVector<AttributeIcon> icons;
    for (const int scale : {1, 2}) {
        const QString ending = scale == 1 ? ".png" : "@2x.png";
        for (int style = 0; style < 6; ++style)
            icons.append({"lineStyles/" + QString(lineStyleNames[style]) + ending,
                          drawLineStyle(style, scale)});
        icons.append({"arrows/none" + ending, drawArrow(ARROW_FORWARD, -1, scale)});
        for (int type = 0; type < NUM_ARROW_TYPES; ++type) {
            const QString number = QString::number(type + 1) + ending;
            icons.append({"arrows/back" + number, drawArrow(ARROW_BACKWARD, type, scale)});
            icons.append({"arrows/forw" + number, drawArrow(ARROW_FORWARD, type, scale)});
        }
    }
    return icons;
}
