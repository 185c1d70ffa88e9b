#include "render/colorFunctions.h"

#include "model/FigContext.h"

#include <QBitmap>

#include <algorithm>

const ColorName colorNames[NUM_STD_COLORS] = {
    {"Black", "black"},      {"Blue", "blue"},        {"Green", "green"},
    {"Cyan", "cyan"},        {"Red", "red"},          {"Magenta", "magenta"},
    {"Yellow", "yellow"},    {"White", "white"},      {"Blue4", "#000090"},
    {"Blue3", "#0000b0"},    {"Blue2", "#0000d0"},    {"SkyBlue1", "#87ceff"},
    {"Green4", "#009000"},   {"Green3", "#00b000"},   {"Green2", "#00d000"},
    {"Cyan4", "#009090"},    {"Cyan3", "#00b0b0"},    {"Cyan2", "#00d0d0"},
    {"Red4", "#900000"},     {"Red3", "#b00000"},     {"Red2", "#d00000"},
    {"Magenta4", "#900090"}, {"Magenta3", "#b000b0"}, {"Magenta2", "#d000d0"},
    {"Brown4", "#803000"},   {"Brown3", "#a04000"},   {"Brown2", "#c06000"},
    {"Pink4", "#ff8080"},    {"Pink3", "#ffa0a0"},    {"Pink2", "#ffc0c0"},
    {"Pink", "#ffe0e0"},     {"Gold", "gold"},
};

unsigned fill_colors[NUM_STD_COLORS][NUM_SHADES];
QBrush patternBrushes[NUM_PATTERNS];

namespace {

constexpr int BLACK = 0;
constexpr int WHITE = 7;
constexpr int PURE_SHADE = 20;
constexpr int NO_FREE_COLOR = 65534;
constexpr _RGB WHITE_RGB = {255, 255, 255};

constexpr _RGB stdColors[NUM_STD_COLORS] = {
    {0, 0, 0},          {0, 0, 255},        {0, 255, 0},        {0, 255, 255},
    {255, 0, 0},        {255, 0, 255},      {255, 255, 0},      {255, 255, 255},
    {0, 0, 0x90},       {0, 0, 0xb0},       {0, 0, 0xd0},       {0x87, 0xce, 0xff},
    {0, 0x90, 0},       {0, 0xb0, 0},       {0, 0xd0, 0},       {0, 0x90, 0x90},
    {0, 0xb0, 0xb0},    {0, 0xd0, 0xd0},    {0x90, 0, 0},       {0xb0, 0, 0},
    {0xd0, 0, 0},       {0x90, 0, 0x90},    {0xb0, 0, 0xb0},    {0xd0, 0, 0xd0},
    {0x80, 0x30, 0},    {0xa0, 0x40, 0},    {0xc0, 0x60, 0},    {0xff, 0x80, 0x80},
    {0xff, 0xa0, 0xa0}, {0xff, 0xc0, 0xc0}, {0xff, 0xe0, 0xe0}, {255, 215, 0},
};

unsigned packed(_RGB rgb)
{
    return unsigned(rgb.red) << 16 | unsigned(rgb.green) << 8 | rgb.blue;
}

// Black and white share one row of greys, in opposite directions; their tints stay 0.
void setGreys()
{
    for (int i = 0; i <= PURE_SHADE; ++i) {
        const unsigned grey = static_cast<unsigned char>(static_cast<float>(i) * 12.75f);
        const unsigned color = grey << 16 | grey << 8 | grey;
        fill_colors[WHITE][i] = color;
        fill_colors[BLACK][PURE_SHADE - i] = color;
    }
}

int penColorOf(FigObject* object)
{
    return object->type == O_TEXT ? static_cast<FigText*>(object)->color : object->pen_color;
}

void renumberColor(FigObjectList* list, int from, int to)
{
    applyFunction(list, setPenColor, from, to);
    applyFunction(list, setFillColor, from, to);
}

// Key of an equal colour of the context, or of a new one; -1 where there is no room.
int keyForColor(CFigContext* ctx, const QColor& color)
{
    for (auto it = ctx->userColors.cbegin(); it != ctx->userColors.cend(); ++it) {
        if (it.value() == color)
            return it.key();
    }
    const int key = ctx->addUserColor(color);
    return key == NO_FREE_COLOR ? -1 : key;
}

} // namespace

// --- tables ------------------------------------------------------------------

void set_colors()
{
    setGreys();
    for (int i = 0; i < NUM_STD_COLORS; ++i) {
        if (i != BLACK && i != WHITE)
            create_shades(fill_colors[i], stdColors[i]);
    }
}

void create_shades(unsigned* row, _RGB rgb)
{
    row[0] = 0;
    row[PURE_SHADE] = packed(rgb);
    row[NUM_SHADES - 1] = packed(WHITE_RGB);
    for (int i = 1; i < PURE_SHADE; ++i) {
        const float weight = static_cast<float>(i) * 0.05f;
        _HSV hsv = RGBToHSV(rgb);
        hsv.value *= weight;
        row[i] = packed(HSVToRGB(hsv));
        row[PURE_SHADE + i] = packed(MixRGB(rgb, 1.0f - weight, WHITE_RGB, weight));
    }
}

void initializePatternBitmaps()
{
    for (int i = 0; i < NUM_PATTERNS; ++i)
        patternBrushes[i] =
            QBrush(QBitmap(QStringLiteral(":/patterns/images/patterns/pattern%1.png").arg(i)));
}

// --- colour numbers of objects -----------------------------------------------

void setPenColor(FigObject* object, int from, int to)
{
    if (penColorOf(object) != from)
        return;
    if (object->type == O_TEXT)
        static_cast<FigText*>(object)->color = to;
    else
        object->pen_color = to;
}

void setFillColor(FigObject* object, int from, int to)
{
    if (object->fill_color == from)
        object->fill_color = to;
}

// Colour by colour on the same objects: a number that one step has written may be the old number
// of a later step, and then moves on once more.
void merge_colors(CFigContext* ctx, CFigContext* from, FigObjectList* list)
{
    for (auto it = from->userColors.cbegin(); it != from->userColors.cend(); ++it) {
        const int key = keyForColor(ctx, it.value());
        if (key >= 0)
            renumberColor(list, it.key() + NUM_STD_COLORS, key + NUM_STD_COLORS);
    }
}

bool color_used(int color, FigObjectList* list)
{
    return std::any_of(list->cbegin(), list->cend(), [color](FigObject* object) {
        if (object->type == O_COMPOUND &&
            color_used(color, static_cast<FigCompound*>(object)->objects))
            return true;
        return penColorOf(object) == color || object->fill_color == color;
    });
}
