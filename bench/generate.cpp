#include "generate.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <random>

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
    bool oneIn(int n) { return between(1, n) == 1; }

private:
    std::mt19937 bits;
};

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

    void print(const char* format, ...) __attribute__((format(printf, 2, 3)));
    void polyline();
    void closedPath(int subType, int corners);
    void ellipse();
    void spline();
    void arc();
    void words();
    void points(int count, int spread);
    void head();
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

void Writer::head()
{
    print("\t%d %d 1.00 60.00 90.00\n", dice.between(0, 14), dice.between(0, 1));
}

void Writer::points(int count, int spread)
{
    const int x = dice.between(0, pageWidth), y = dice.between(0, pageHeight);
    print("\t");
    for (int i = 0; i < count; ++i) {
        print(" %d %d", x + dice.between(0, spread), y + dice.between(0, spread));
    }
    print("\n");
}

void Writer::polyline()
{
    const int corners = dice.between(2, 8);
    const bool forward = dice.oneIn(3), backward = dice.oneIn(8);
    print("2 1 %d %d %d 7 %d -1 -1 4.000 %d %d -1 %d %d %d\n",
          dice.oneIn(3) ? dice.between(1, 5) : 0, dice.between(1, 3), dice.between(0, 33),
          dice.between(0, 99), dice.between(0, 2), dice.between(0, 2), forward, backward, corners);
    if (forward) {
        head();
    }
    if (backward) {
        head();
    }
    points(corners, 500);
}

void Writer::closedPath(int subType, int corners)
{
    print("2 %d 0 %d %d %d %d -1 %d 4.000 0 0 %d 0 0 %d\n", subType, dice.between(0, 2),
          dice.between(0, 33), dice.between(0, 33), dice.between(0, 99),
          dice.oneIn(2) ? dice.between(0, 62) : -1, subType == 4 ? 7 : -1, corners + 1);
    const int x = dice.between(0, pageWidth), y = dice.between(0, pageHeight);
    const int w = dice.between(60, 500), h = dice.between(60, 500);
    if (subType == 3) {
        print("\t %d %d %d %d %d %d %d %d\n", x, y, x + w, y + h / 3, x + w / 2, y + h, x, y);
    } else {
        print("\t %d %d %d %d %d %d %d %d %d %d\n", x, y, x + w, y, x + w, y + h, x, y + h, x, y);
    }
}

void Writer::ellipse()
{
    const int x = dice.between(0, pageWidth), y = dice.between(0, pageHeight);
    const int rx = dice.between(30, 300), ry = dice.between(30, 300);
    print("1 1 %d %d %d %d %d -1 %d 4.000 1 %.4f %d %d %d %d %d %d %d %d\n", dice.between(0, 1),
          dice.between(1, 2), dice.between(0, 33), dice.between(0, 33), dice.between(0, 99),
          dice.oneIn(2) ? dice.between(0, 40) : -1, dice.between(0, 6) * 0.5, x, y, rx, ry, x, y,
          x + rx, y + ry);
}

void Writer::spline()
{
    const int corners = dice.between(3, 7);
    const bool forward = dice.oneIn(4);
    print("3 0 0 %d %d 7 %d -1 -1 0.000 0 %d 0 %d\n", dice.between(1, 3), dice.between(0, 33),
          dice.between(0, 99), forward, corners);
    if (forward) {
        head();
    }
    points(corners, 500);
    print("\t 0.000");
    for (int i = 2; i < corners; ++i) {
        print(" 1.000");
    }
    print(" 0.000\n");
}

void Writer::arc()
{
    const int x = dice.between(0, pageWidth), y = dice.between(0, pageHeight);
    const int radius = dice.between(60, 300);
    const double start = dice.between(0, 359) * 3.14159265 / 180;
    print("5 1 0 %d %d 7 %d -1 -1 0.000 0 1 0 0 %d.000 %d.000", dice.between(1, 2),
          dice.between(0, 33), dice.between(0, 99), x, y);
    for (int i = 0; i < 3; ++i) {
        print(" %d %d", x + static_cast<int>(radius * std::cos(start + i)),
              y - static_cast<int>(radius * std::sin(start + i)));
    }
    print("\n");
}

void Writer::words()
{
    static const char* const samples[] = {"label", "a node", "42", "x axis", "see below"};
    print("4 0 %d %d -1 %d %d 0.0000 4 135 400 %d %d %s\\001\n", dice.between(0, 33),
          dice.between(0, 99), dice.between(0, 34), dice.between(8, 14), dice.between(0, pageWidth),
          dice.between(0, pageHeight), samples[dice.between(0, 4)]);
}

void Writer::object()
{
    const int roll = dice.between(0, 99);
    if (roll < 35) {
        polyline();
    } else if (roll < 50) {
        closedPath(2, 4);
    } else if (roll < 55) {
        closedPath(4, 4);
    } else if (roll < 65) {
        closedPath(3, 3);
    } else if (roll < 75) {
        ellipse();
    } else if (roll < 85) {
        spline();
    } else if (roll < 93) {
        arc();
    } else {
        words();
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
