// Compares two pictures of one figure that carry the same thin frame around everything:
//
//   inkdiff OURS THEIRS [DIFF.png]
//
// The frames are laid over each other. Ink is what is not white. For each picture the pixels
// without a partner within two pixels in the other one are counted, once as ink, once by colour
// (background included). Prints "inkOurs inkTheirs colourOurs colourTheirs frameError"; the last
// is the difference of the frames' sizes in pixels. DIFF.png shows strays: red ours, blue theirs.

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int radius = 2;
constexpr int inkThreshold = 40;    ///< distance of a channel from white
constexpr int colourTolerance = 64; ///< distance of a channel that passes as the same colour

bool isInk(QRgb pixel)
{
    return std::min({qRed(pixel), qGreen(pixel), qBlue(pixel)}) < 255 - inkThreshold;
}

bool isSameColour(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) <= colourTolerance &&
           std::abs(qGreen(a) - qGreen(b)) <= colourTolerance &&
           std::abs(qBlue(a) - qBlue(b)) <= colourTolerance;
}

bool bothInk(QRgb a, QRgb b)
{
    return isInk(a) && isInk(b);
}

/// Whether a row or column is mostly ink, as only the frame's sides are from end to end.
bool isFrameRow(const QImage& image, int y)
{
    int ink = 0;
    for (int x = 0; x < image.width(); ++x) {
        ink += isInk(image.pixel(x, y));
    }
    return ink * 10 > image.width() * 7;
}

bool isFrameColumn(const QImage& image, int x)
{
    int ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        ink += isInk(image.pixel(x, y));
    }
    return ink * 10 > image.height() * 7;
}

/// First and last frame line each way; invalid when there is none.
QRect findFrame(const QImage& image)
{
    int left = 0, top = 0, right = image.width() - 1, bottom = image.height() - 1;
    while (left < image.width() && !isFrameColumn(image, left)) {
        ++left;
    }
    while (top < image.height() && !isFrameRow(image, top)) {
        ++top;
    }
    while (right > left && !isFrameColumn(image, right)) {
        --right;
    }
    while (bottom > top && !isFrameRow(image, bottom)) {
        --bottom;
    }
    return {QPoint(left, top), QPoint(right, bottom)};
}

template <class Matches>
bool hasPartner(const QImage& image, int x, int y, QRgb pixel, Matches matches)
{
    for (int j = std::max(y - radius, 0); j <= std::min(y + radius, image.height() - 1); ++j) {
        const QRgb* row = reinterpret_cast<const QRgb*>(image.constScanLine(j));
        for (int i = std::max(x - radius, 0); i <= std::min(x + radius, image.width() - 1); ++i) {
            if (matches(pixel, row[i])) {
                return true;
            }
        }
    }
    return false;
}

struct Strays {
    long ink = 0;
    long colour = 0;
};

Strays countStrays(const QImage& image, const QImage& other, QRgb mark, QImage* diff)
{
    Strays strays;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            const bool inkStray = isInk(pixel) && !hasPartner(other, x, y, pixel, bothInk);
            const bool colourStray = !hasPartner(other, x, y, pixel, isSameColour);
            strays.ink += inkStray;
            strays.colour += colourStray;
            if (inkStray || colourStray) {
                diff->setPixel(x, y, mark);
            }
        }
    }
    return strays;
}

QImage load(const char* name)
{
    return QImage(QString::fromLocal8Bit(name)).convertToFormat(QImage::Format_RGB32);
}

/// The other picture in the background, so that a stray is seen where it lies.
QImage pale(const QImage& image)
{
    QImage result = image;
    for (int y = 0; y < result.height(); ++y) {
        for (int x = 0; x < result.width(); ++x) {
            const int grey = 170 + qGray(result.pixel(x, y)) / 3;
            result.setPixel(x, y, qRgb(grey, grey, grey));
        }
    }
    return result;
}

struct Framed {
    QImage image;
    QRect frame;

    explicit Framed(const char* name) : image(load(name)), frame(findFrame(image)) {}

    /// What lies within the frame, in a white picture of that size.
    QImage placed(const QPoint& position, const QSize& size) const
    {
        QImage result(size, QImage::Format_RGB32);
        result.fill(Qt::white);
        QPainter(&result).drawImage(position, image, frame);
        return result;
    }
};

struct Comparison {
    Strays ours, theirs;
    QImage diff;
};

Comparison compare(const QImage& a, const QImage& b)
{
    Comparison result;
    result.diff = pale(a);
    result.ours = countStrays(a, b, qRgb(230, 0, 0), &result.diff);
    result.theirs = countStrays(b, a, qRgb(0, 0, 230), &result.diff);
    return result;
}

/// Frames of different line width differ in size by a pixel or two: the smaller one takes the
/// place within the larger where the fewest strays are left.
Comparison bestComparison(const Framed& ours, const Framed& theirs, const QSize& size)
{
    const QSize roomOurs = size - ours.frame.size(), roomTheirs = size - theirs.frame.size();
    const QSize room = (roomOurs + roomTheirs).boundedTo(QSize(2, 2));
    Comparison best;
    for (int y = 0; y <= room.height(); ++y) {
        for (int x = 0; x <= room.width(); ++x) {
            const QPoint a(roomOurs.width() ? x : 0, roomOurs.height() ? y : 0);
            const QPoint b(roomTheirs.width() ? x : 0, roomTheirs.height() ? y : 0);
            const Comparison next = compare(ours.placed(a, size), theirs.placed(b, size));
            if (best.diff.isNull() ||
                next.ours.ink + next.theirs.ink < best.ours.ink + best.theirs.ink) {
                best = next;
            }
        }
    }
    return best;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    if (argc < 3) {
        std::fputs("usage: inkdiff OURS THEIRS [DIFF.png]\n", stderr);
        return 2;
    }
    const Framed ours(argv[1]), theirs(argv[2]);
    if (!ours.frame.isValid() || !theirs.frame.isValid()) {
        std::fputs("inkdiff: a picture has no frame\n", stderr);
        return 1;
    }
    const QSize size = ours.frame.size().expandedTo(theirs.frame.size());
    const Comparison best = bestComparison(ours, theirs, size);
    const QSize error = size + size - ours.frame.size() - theirs.frame.size();
    std::printf("%ld %ld %ld %ld %d\n", best.ours.ink, best.theirs.ink, best.ours.colour,
                best.theirs.colour, std::max(error.width(), error.height()));
    return argc > 3 && !best.diff.save(QString::fromLocal8Bit(argv[3])) ? 1 : 0;
}
