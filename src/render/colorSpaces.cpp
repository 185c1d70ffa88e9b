// Packed colours, colour spaces and mixes. Single precision throughout.
#include "render/colorFunctions.h"

#include "render/gfx_math.h"

#include <algorithm>
#include <cmath>

namespace {

/// Channels in 0 to 1 with their extremes.
struct UnitRGB {
    float red, green, blue, min, max;

    explicit UnitRGB(_RGB rgb)
        : red(rgb.red / 255.0f), green(rgb.green / 255.0f), blue(rgb.blue / 255.0f),
          min(std::min({red, green, blue})), max(std::max({red, green, blue}))
    {
    }
    float range() const { return max - min; }
};

// Distance of a channel from the greatest one, as a part of the range.
float hueDelta(const UnitRGB& rgb, float channel)
{
    const float delta = (rgb.max - channel) / rgb.range();
    return delta < 0.0005f ? 0.0f : delta;
}

// Position on the hexagon of pure colours, in 0 to 1. Not for greys.
float hexagonHue(const UnitRGB& rgb)
{
    const float red = hueDelta(rgb, rgb.red);
    const float green = hueDelta(rgb, rgb.green);
    const float blue = hueDelta(rgb, rgb.blue);
    float hue;
    if (rgb.red == rgb.max)
        hue = blue - green;
    else if (rgb.green == rgb.max)
        hue = 2.0f + red - blue;
    else
        hue = 4.0f + green - red;
    hue /= 6.0f;
    return hue < 0.0f ? hue + 1.0f : hue;
}

unsigned short mixChannel(float a, float wa, float b, float wb)
{
    return static_cast<unsigned short>(std::clamp(a * wa + b * wb, 0.0f, 255.0f));
}

unsigned short percentChannel(float part)
{
    return static_cast<unsigned short>(round2(255.0f * std::min(part, 1.0f)));
}

} // namespace

// --- packing -----------------------------------------------------------------

QColor colorrefToQColor(unsigned color)
{
    return QColor::fromRgb(static_cast<int>(color >> 16 & 0xFF),
                           static_cast<int>(color >> 8 & 0xFF), static_cast<int>(color & 0xFF));
}

void colorrefToRGB(unsigned color, _RGB* rgb)
{
    rgb->red = color & 0xFF;
    rgb->green = color >> 8 & 0xFF;
    rgb->blue = color >> 16 & 0xFF;
}

unsigned rgbToColorref(const _RGB& rgb)
{
    return unsigned(rgb.blue & 0xFF) << 16 | unsigned(rgb.green & 0xFF) << 8 | (rgb.red & 0xFFu);
}

// --- colour spaces, single precision throughout ------------------------------

_HSV RGBToHSV(_RGB rgb)
{
    const UnitRGB unit(rgb);
    if (unit.range() == 0.0f)
        return {0.0f, 0.0f, unit.max};
    return {hexagonHue(unit), unit.range() / unit.max, unit.max};
}

_RGB HSVToRGB(_HSV hsv)
{
    const float saturation = std::clamp(hsv.saturation, 0.0f, 1.0f);
    const float value = std::clamp(hsv.value, 0.0f, 1.0f);
    const float position = hsv.hue * 6.0f;
    // A hue of 1 or above is taken in the first sector.
    const int sector = hsv.hue >= 0.0f && hsv.hue < 1.0f ? static_cast<int>(position) : 0;
    const float part = position - std::floor(position);
    const float low = value * (1.0f - saturation);
    const float falling = value * (1.0f - saturation * part);
    const float rising = value * (1.0f - saturation * (1.0f - part));
    switch (sector) {
    case 1:
        return PctToRGB(falling, value, low);
    case 2:
        return PctToRGB(low, value, rising);
    case 3:
        return PctToRGB(low, falling, value);
    case 4:
        return PctToRGB(rising, low, value);
    case 5:
        return PctToRGB(value, low, falling);
    default:
        return PctToRGB(value, rising, low);
    }
}

_HSV colorrefToHSV(unsigned color)
{
    _RGB rgb;
    colorrefToRGB(color, &rgb);
    return RGBToHSV(rgb);
}

unsigned hsvToColorref(_HSV hsv)
{
    return rgbToColorref(HSVToRGB(hsv));
}

_HSL RGBToHSL(_RGB rgb)
{
    const UnitRGB unit(rgb);
    const float lightness = (unit.max + unit.min) / 2.0f;
    if (unit.range() == 0.0f)
        return {0.0f, 0.0f, lightness};
    const float saturation = lightness < 0.5f ? unit.range() / (unit.max + unit.min)
                                              : unit.range() / (2.0f - unit.max - unit.min);
    return {hexagonHue(unit), saturation, lightness};
}

_RGB HSLToRGB(_HSL hsl)
{
    const float lightness = hsl.lightness;
    if (hsl.saturation == 0.0f)
        return PctToRGB(lightness, lightness, lightness);
    const float v2 = lightness < 0.5f ? lightness * (1.0f + hsl.saturation)
                                      : (lightness + hsl.saturation) - hsl.saturation * lightness;
    const float v1 = 2.0f * lightness - v2;
    const float third = 1.0f / 3.0f;
    return PctToRGB(Hue_2_RGB(v1, v2, hsl.hue + third), Hue_2_RGB(v1, v2, hsl.hue),
                    Hue_2_RGB(v1, v2, hsl.hue - third));
}

_HSL colorrefToHSL(unsigned color)
{
    _RGB rgb;
    colorrefToRGB(color, &rgb);
    return RGBToHSL(rgb);
}

unsigned hslToColorref(_HSL hsl)
{
    return rgbToColorref(HSLToRGB(hsl));
}

float Hue_2_RGB(float v1, float v2, float vH)
{
    if (vH < 0.0f)
        vH += 1.0f;
    if (vH > 1.0f)
        vH -= 1.0f;
    if (6.0f * vH < 1.0f)
        return v1 + (v2 - v1) * 6.0f * vH;
    if (2.0f * vH < 1.0f)
        return v2;
    if (3.0f * vH < 2.0f)
        return v1 + (v2 - v1) * (2.0f / 3.0f - vH) * 6.0f;
    return v1;
}

_RGB PctToRGB(float r, float g, float b)
{
    return {percentChannel(r), percentChannel(g), percentChannel(b)};
}

// --- mixes -------------------------------------------------------------------

_RGB MixRGB(_RGB a, float wa, _RGB b, float wb)
{
    return {mixChannel(a.red, wa, b.red, wb), mixChannel(a.green, wa, b.green, wb),
            mixChannel(a.blue, wa, b.blue, wb)};
}

_RGB MixHSV(_RGB a, float wa, _RGB b, float wb)
{
    _HSV first = RGBToHSV(a);
    _HSV second = RGBToHSV(b);
    // The shorter way round the circle of hues.
    if (first.hue - second.hue > 0.5f)
        second.hue += 1.0f;
    else if (second.hue - first.hue > 0.5f)
        first.hue += 1.0f;
    _HSV mix;
    mix.hue = first.hue * wa + second.hue * wb;
    if (mix.hue >= 1.0f)
        mix.hue -= 1.0f;
    mix.saturation = first.saturation * wa + second.saturation * wb;
    mix.value = first.value * wa + second.value * wb;
    return HSVToRGB(mix);
}
