#include "generate.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <initializer_list>
#include <random>
#include <utility>

namespace {

constexpr int pageWidth = 9600;
constexpr int pageHeight = 13800;

/// Distributions of the standard library differ between machines; the engine's bits do not.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : bits(seed) {}
    /// From low to high, both included.
    int between(int low, int high)
    {
        return low + static_cast<int>(bits() % static_cast<unsigned>(high - low + 1));
    }
    /// One of the values, by weights that add up to 100.
    int pick(std::initializer_list<std::pair<int, int>> weighted)
    {
        int roll = between(1, 100);
        for (const auto& [weight, value] : weighted) {
            roll -= weight;
            if (roll <= 0) {
                return value;
            }
        }
        return weighted.begin()->second;
    }

private:
    std::mt19937 bits;
};

// The shares are those of a collection of 220 real figures, each figure counting the same.

class Writer {
public:
    explicit Writer(std::uint32_t seed) : dice(seed) {}
    std::string take() { return std::move(text); }
    void header();
    void object();
    void compound(int members);

private:
    Dice dice;
    std::string text;

    struct Spot {
        int x, y;
    };

    void print(const char* format, ...) __attribute__((format(printf, 2, 3)));
    Spot spot();
    int thickness();
    int lineStyle();
    int fillStyle();
    void polyline();
    void box(bool rounded);
    void polygon();
    void ellipse();
    void spline();
    void arc();
    void words();
    void points(int count, int spread);
    void heads(int count);
    void pen(int code, int subType, int fill);
};

void Writer::print(const char* format, ...)
{
    char buffer[512];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    text.append(buffer, static_cast<size_t>(length));
}

void Writer::header()
{
    print("#FIG 3.2\n# A generated figure\nPortrait\nFlush left\nMetric\nA4\n100.00\nSingle\n-2\n"
          "1200 2\n0 32 #2f6db5\n0 33 #c8483c\n");
}

// Every value is drawn in a statement of its own: the order of a call's arguments is not fixed.
Writer::Spot Writer::spot()
{
    const int x = dice.between(0, pageWidth);
    return {x, dice.between(0, pageHeight)};
}

int Writer::thickness()
{
    return dice.pick({{77, 1}, {9, 2}, {6, 3}, {4, 0}, {2, 5}, {2, 4}});
}

int Writer::lineStyle()
{
    return dice.pick({{92, 0}, {6, 1}, {1, 2}, {1, 3}});
}

int Writer::fillStyle()
{
    const int shade = dice.between(0, 40), pattern = dice.between(41, 62);
    return dice.pick({{70, -1}, {27, shade}, {3, pattern}});
}

/// The fields that all stroked objects begin with, up to the style value.
void Writer::pen(int code, int subType, int fill)
{
    const int style = lineStyle(), width = thickness();
    const int penColor = dice.between(0, 33), fillColor = dice.between(0, 33);
    print("%d %d %d %d %d %d %d -1 %d 4.000", code, subType, style, width, penColor, fillColor,
          dice.between(0, 99), fill);
}

void Writer::heads(int count)
{
    for (int i = 0; i < count; ++i) {
        const int type = dice.pick({{60, 1}, {25, 2}, {15, 0}});
        print("\t%d %d 1.00 60.00 120.00\n", type, dice.pick({{70, 1}, {30, 0}}));
    }
}

void Writer::points(int count, int spread)
{
    const Spot from = spot();
    print("\t");
    for (int i = 0; i < count; ++i) {
        const int dx = dice.between(0, spread), dy = dice.between(0, spread);
        print(" %d %d", from.x + dx, from.y + dy);
    }
    print("\n");
}

void Writer::polyline()
{
    const int corners = dice.pick({{84, 2}, {7, 3}, {4, 4}, {5, dice.between(5, 12)}});
    const int headCount = dice.pick({{64, 0}, {33, 1}, {3, 2}});
    pen(2, 1, -1);
    print(" 0 0 -1 %d %d %d\n", headCount > 0, headCount > 1, corners);
    heads(headCount);
    points(corners, 600);
}

void Writer::box(bool rounded)
{
    pen(2, rounded ? 4 : 2, fillStyle());
    print(" 0 0 %d 0 0 5\n", rounded ? 7 : -1);
    const Spot at = spot();
    const int right = at.x + dice.between(60, 600), bottom = at.y + dice.between(60, 600);
    print("\t %d %d %d %d %d %d %d %d %d %d\n", at.x, at.y, right, at.y, right, bottom, at.x,
          bottom, at.x, at.y);
}

void Writer::polygon()
{
    pen(2, 3, fillStyle());
    print(" 0 0 -1 0 0 4\n");
    const Spot at = spot();
    const int w = dice.between(60, 600), h = dice.between(60, 600);
    print("\t %d %d %d %d %d %d %d %d\n", at.x, at.y, at.x + w, at.y + h / 3, at.x + w / 2,
          at.y + h, at.x, at.y);
}

void Writer::ellipse()
{
    const Spot at = spot();
    const int rx = dice.between(30, 300), ry = dice.between(30, 300);
    pen(1, 1, fillStyle());
    print(" 1 %.4f %d %d %d %d %d %d %d %d\n", dice.pick({{90, 0}, {10, 1}}) * 0.5, at.x, at.y, rx,
          ry, at.x, at.y, at.x + rx, at.y + ry);
}

void Writer::spline()
{
    const int corners = dice.between(3, 7);
    const int headCount = dice.pick({{60, 0}, {40, 1}});
    const double factor = dice.pick({{50, 1}, {50, -1}});
    pen(3, factor > 0 ? 0 : 2, -1);
    print(" 0 %d 0 %d\n", headCount, corners);
    heads(headCount);
    points(corners, 600);
    print("\t 0.000");
    for (int i = 2; i < corners; ++i) {
        print(" %.3f", factor);
    }
    print(" 0.000\n");
}

void Writer::arc()
{
    const Spot centre = spot();
    const int radius = dice.between(60, 300);
    const double start = dice.between(0, 359) * 3.14159265 / 180;
    const int headCount = dice.pick({{40, 0}, {60, 1}});
    pen(5, 1, -1);
    print(" 0 1 %d 0 %d.000 %d.000", headCount, centre.x, centre.y);
    for (int i = 0; i < 3; ++i) {
        print(" %d %d", centre.x + static_cast<int>(radius * std::cos(start + i)),
              centre.y - static_cast<int>(radius * std::sin(start + i)));
    }
    print("\n");
    heads(headCount);
}

void Writer::words()
{
    static const char* const samples[] = {"label", "a node", "42", "x axis", "see below"};
    const Spot at = spot();
    const int font = dice.pick({{45, 0}, {35, 16}, {8, 12}, {6, 2}, {6, 18}});
    const int size = dice.pick({{60, 12}, {15, 10}, {15, 14}, {5, 8}, {5, 18}});
    const int color = dice.between(0, 33), depth = dice.between(0, 99);
    print("4 0 %d %d -1 %d %d 0.0000 4 135 400 %d %d %s\\001\n", color, depth, font, size, at.x,
          at.y, samples[dice.between(0, 4)]);
}

void Writer::object()
{
    enum Kind { Polyline, Text, Box, Ellipse, Spline, Polygon, Arc, Arcbox };
    switch (dice.pick({{33, Polyline},
                       {33, Text},
                       {12, Box},
                       {11, Ellipse},
                       {5, Spline},
                       {3, Polygon},
                       {2, Arc},
                       {1, Arcbox}})) {
    case Polyline:
        return polyline();
    case Text:
        return words();
    case Box:
        return box(false);
    case Ellipse:
        return ellipse();
    case Spline:
        return spline();
    case Polygon:
        return polygon();
    case Arc:
        return arc();
    default:
        return box(true);
    }
}

void Writer::compound(int members)
{
    print("6 0 0 %d %d\n", pageWidth, pageHeight);
    for (int i = 0; i < members; ++i) {
        object();
    }
    print("-6\n");
}

} // namespace

std::string generateFigure(long count, std::uint32_t seed)
{
    constexpr int blockSize = 50, grouped = 5;
    Writer writer(seed);
    writer.header();
    for (long done = 0; done < count; ++done) {
        if (done % blockSize == 0 && count - done >= grouped) {
            writer.compound(grouped);
            done += grouped - 1;
        } else {
            writer.object();
        }
    }
    return writer.take();
}
