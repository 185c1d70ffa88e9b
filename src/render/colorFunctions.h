// Colour numbers, shades, patterns and colour spaces.
#pragma once

#include "model/ObjectFunctions.h"

#include <QBrush>
#include <QColor>

class CFigContext;

constexpr int NUM_STD_COLORS = 32;
constexpr int NUM_SHADES = 41;
constexpr int NUM_PATTERNS = 22;

struct _RGB {
    unsigned short red, green, blue;
}; // 0 to 255
struct _HSV {
    float hue, saturation, value;
}; // 0 to 1
struct _HSL {
    float hue, saturation, lightness;
}; // 0 to 1

struct ColorName {
    const char* name;
    const char* text;
};
extern const ColorName colorNames[NUM_STD_COLORS];

/// Packed 0x00RRGGBB by colour number and shade. Filled by set_colors, then read only.
extern unsigned fill_colors[NUM_STD_COLORS][NUM_SHADES];
/// Pattern textures. Made by initializePatternBitmaps; the primitives set their colour in place.
extern QBrush patternBrushes[NUM_PATTERNS];

/// Fills fill_colors, once at start-up.
void set_colors();
/// Fills 41 entries: black at 0, the colour at 20, white at 40.
void create_shades(unsigned* row, _RGB rgb);
/// Loads the brushes from the resources, once at start-up. Needs a QGuiApplication.
void initializePatternBitmaps();

QColor colorrefToQColor(unsigned color);
/// These two put the low byte in the first field, against colorrefToQColor; used as a pair.
void colorrefToRGB(unsigned color, _RGB* rgb);
unsigned rgbToColorref(const _RGB& rgb);
_HSV RGBToHSV(_RGB rgb);
_RGB HSVToRGB(_HSV hsv);
_HSV colorrefToHSV(unsigned color);
unsigned hsvToColorref(_HSV hsv);
_HSL RGBToHSL(_RGB rgb);
_RGB HSLToRGB(_HSL hsl);
_HSL colorrefToHSL(unsigned color);
unsigned hslToColorref(_HSL hsl);
float Hue_2_RGB(float v1, float v2, float vH);
_RGB PctToRGB(float r, float g, float b);
_RGB MixRGB(_RGB a, float wa, _RGB b, float wb);
_RGB MixHSV(_RGB a, float wa, _RGB b, float wb);

/// Replace a colour number where it matches. For a text the pen colour is its `color`.
void setPenColor(FigObject* object, int from, int to);
void setFillColor(FigObject* object, int from, int to);
/// Brings the user colours of another context over and renumbers the objects of list.
void merge_colors(CFigContext* ctx, CFigContext* from, FigObjectList* list);
bool color_used(int color, FigObjectList* list);
