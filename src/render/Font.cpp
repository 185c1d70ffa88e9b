#include "render/Font.h"

#include "model/FigContext.h"
#include "model/preferences.h"
#include "render/coords.h"
#include "render/gfx_lowlevel.h"
#include "render/gfx_math.h"

#include <QFontMetrics>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QPaintEngine>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <unordered_map>

const CFontMapEntry fontmapQt[NUM_PS_FONTS] = {
    // clang-format off
    {0, "Times Roman", "NimbusRomNo9L", "Nimbus Roman No9 L", 50, 0, 100, 10, 15},
    {1, "Times Italic", "NimbusRomNo9L", "Nimbus Roman No9 L", 50, 1, 100, 10, 15},
    {2, "Times Bold", "NimbusRomNo9L", "Nimbus Roman No9 L", 75, 0, 100, 14, 40},
    {3, "Times Bold Italic", "NimbusRomNo9L", "Nimbus Roman No9 L", 75, 1, 100, 14, 40},
    {4, "AvantGarde Book", "URWGothicL", "URW Gothic L", 50, 0, 100, 26, 15},
    {5, "AvantGarde Book Oblique", "URWGothicL", "URW Gothic L", 50, 2, 100, 26, 15},
    {6, "AvantGarde Demi", "URWGothicLDem", "URWGothicLDem", 50, 0, 100, 60, 20},
    {7, "AvantGarde Demi Oblique", "URWGothicLDem", "URWGothicLDem", 50, 2, 100, 26, 20},
    {8, "Bookman Light", "URWBookmanL", "URW Bookman L", 25, 0, 100, 10, 15},
    {9, "Bookman Light Italic", "URWBookmanL", "URW Bookman L", 25, 1, 100, 10, 15},
    {10, "Bookman Demi", "URWBookmanL", "URW Bookman L", 63, 0, 100, 10, 15},
    {11, "Bookman Demi Italic", "URWBookmanL", "URW Bookman L", 63, 1, 100, 10, 25},
    {12, "Courier", "NimbusMonL", "Nimbus Mono L", 50, 0, 100, 4, -20},
    {13, "Courier Oblique", "NimbusMonL", "Nimbus Mono L", 50, 2, 100, 4, -20},
    {14, "Courier Bold", "NimbusMonL", "Nimbus Mono L", 75, 0, 100, 6, 5},
    {15, "Courier Bold Oblique", "NimbusMonL", "Nimbus Mono L", 75, 2, 100, 6, 5},
    {16, "Helvetica", "NimbusSanL", "Nimbus Sans L", 50, 0, 100, 16, 20},
    {17, "Helvetica Oblique", "NimbusSanL", "Nimbus Sans L", 50, 2, 100, 16, 20},
    {18, "Helvetica Bold", "NimbusSanL", "Nimbus Sans L", 75, 0, 100, 16, 20},
    {19, "Helvetica Bold Oblique", "NimbusSanL", "Nimbus Sans L", 75, 2, 100, 16, 20},
    {20, "Helvetica Narrow", "NimbusSanL", "NimbusSanL", 50, 0, 75, 16, 20},
    {21, "Helvetica Narrow Oblique", "NimbusSanL", "NimbusSanL", 50, 2, 75, 16, 20},
    {22, "Helvetica Narrow Bold", "NimbusSanL", "NimbusSanL", 75, 0, 75, 20, 30},
    {23, "Helvetica Narrow Bold Oblique", "NimbusSanL", "NimbusSanL", 75, 2, 75, 34, 30},
    {24, "New Century Schoolbook Roman", "CenturySchL", "Century Schoolbook L", 50, 0, 100, 34, 30},
    {25, "New Century Schoolbook Italic", "CenturySchL", "Century Schoolbook L", 50, 1, 100, 34, 40},
    {26, "New Century Schoolbook Bold", "CenturySchL", "Century Schoolbook L", 75, 0, 100, 34, 40},
    {27, "New Century Schoolbook Bold Italic", "CenturySchL", "Century Schoolbook L", 75, 1, 100, 34, 40},
    {28, "Palatino Roman", "URWPalladioL", "URW Palladio L", 50, 0, 100, 13, 5},
    {29, "Palatino Italic", "URWPalladioL", "URW Palladio L", 50, 1, 100, 13, 5},
    {30, "Palatino Bold", "URWPalladioL", "URW Palladio L", 75, 0, 100, 13, 0},
    {31, "Palatino Bold Italic", "URWPalladioL", "URW Palladio L", 75, 1, 100, 13, 5},
    {32, "Symbol", "StandardSymL", "Standard Symbols L", 50, 0, 100, 0, 35},
    {33, "Zapf Chancery Medium Italic", "URWChanceryLMed", "URW Chancery L", 50, 1, 87, 8, 10},
    {34, "Zapf Dingbats", "Dingbats", "Dingbats", 50, 0, 100, 6, 15},
    // clang-format on
};

const char* const latexFonts[NUM_LATEX_FONTS] = {"default", "roman",     "bold",
                                                 "italic",  "sansserif", "typewriter"};

namespace {

/// Families of the table that neither the system's fonts nor its aliases know, and the family
/// that holds their faces today.
const struct {
    const char* family;
    const char* substitute;
} substitutions[] = {
    {"URWGothicLDem", "URW Gothic"},
    {"NimbusSanL", "Nimbus Sans"},
};

void registerSubstitutions()
{
    for (const auto& entry : substitutions)
        QFont::insertSubstitution(QString::fromLatin1(entry.family),
                                  QString::fromLatin1(entry.substitute));
}

int fontRow(const FigText* text)
{
    return text->font >= 0 && text->font < NUM_PS_FONTS ? text->font : 0;
}

QFont makeFont(const CFontMapEntry& entry, int pixelSize)
{
    QFont font(QString::fromLatin1(entry.family));
    font.setPixelSize(pixelSize);
    font.setWeight(entry.weight);
    font.setStyle(static_cast<QFont::Style>(entry.style));
    font.setStretch(entry.stretch);
    return font;
}

/// What is known of a string in a face.
struct Shaped {
    int width = 0;
    int drawings = 0;
    QList<QGlyphRun> runs; ///< of the base line from (0, 0); empty until they pay
};

/// A row of the table at one pixel size, with the strings measured so far.
struct Face {
    Face(const CFontMapEntry& entry, int pixelSize)
        : font(makeFont(entry, pixelSize)), metrics(font), ascent(metrics.ascent()),
          descent(metrics.descent()), height(metrics.height())
    {
    }

    QFont font;
    QFontMetrics metrics;
    int ascent, descent, height; ///< pixels
    QHash<QString, Shaped> strings;
};

/// The glyphs of a string as drawText places them.
QList<QGlyphRun> glyphsOf(const QFont& font, const QString& string)
{
    QTextLayout layout(string, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    layout.endLayout();
    if (!line.isValid())
        return {};
    line.setPosition(QPointF(0, -line.ascent()));
    return layout.glyphRuns();
}

// Making a font, and above all shaping a string, is what measuring and drawing cost; figures repeat
// their fonts and many of their labels, and redraws repeat them all. Everything is forgotten when a
// limit is reached.
class FaceCache {
public:
    FaceCache() { registerSubstitutions(); }

    Face& face(int row, int pixelSize)
    {
        const quint64 key = static_cast<quint64>(row) << 32 | static_cast<quint32>(pixelSize);
        const auto known = faces.find(key);
        if (known != faces.end())
            return known->second;
        if (faces.size() >= MAX_FACES)
            clear();
        return faces.try_emplace(key, fontmapQt[row], pixelSize).first->second;
    }

    int width(Face& face, const QString& string)
    {
        if (string.size() > MAX_KEPT_LENGTH)
            return face.metrics.horizontalAdvance(string);
        return shaped(face, string).width;
    }

    /// Null when the string is to be drawn as text: the first time, and where glyphs may have to be
    /// put together.
    const QList<QGlyphRun>* runs(Face& face, const QString& string)
    {
        if (string.size() > MAX_KEPT_LENGTH || !isPlainLatin(string))
            return nullptr;
        Shaped& known = shaped(face, string);
        if (known.runs.isEmpty() && ++known.drawings > 1)
            known.runs = glyphsOf(face.font, string);
        return known.runs.isEmpty() ? nullptr : &known.runs;
    }

private:
    static constexpr std::size_t MAX_FACES = 256;
    static constexpr int MAX_STRINGS = 65536;
    static constexpr int MAX_KEPT_LENGTH = 64;

    Shaped& shaped(Face& face, const QString& string)
    {
        const auto known = face.strings.find(string);
        if (known != face.strings.end())
            return *known;
        if (numStrings >= MAX_STRINGS)
            forgetStrings();
        ++numStrings;
        Shaped& added = *face.strings.insert(string, Shaped());
        added.width = face.metrics.horizontalAdvance(string);
        return added;
    }

    void clear()
    {
        faces.clear();
        numStrings = 0;
    }

    void forgetStrings()
    {
        for (auto& entry : faces)
            entry.second.strings.clear();
        numStrings = 0;
    }

    std::unordered_map<quint64, Face> faces;
    int numStrings = 0;
};

/// Owned by the application's post routine, not by a static destructor: fonts must be gone before
/// the application is.
FaceCache* faceCache = nullptr;

void destroyFaceCache()
{
    delete faceCache;
    faceCache = nullptr;
}

/// The row of a text at a pixel size of at least 1; null without a QGuiApplication, when there are
/// no fonts.
Face* faceForText(const FigText* text, int pixelSize)
{
    if (!faceCache) {
        if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
            return nullptr;
        faceCache = new FaceCache;
        qAddPostRoutine(destroyFaceCache);
    }
    return &faceCache->face(fontRow(text), std::max(1, pixelSize));
}

} // namespace

bool isPlainLatin(const QString& string)
{
    constexpr ushort firstCombiningMark = 0x300;
    return std::all_of(string.begin(), string.end(), [](QChar letter) {
        return letter.unicode() >= ' ' && letter.unicode() < firstCombiningMark;
    });
}

int fontPixelSize(CFigContext* ctx, const FigText* text, double zoom)
{
    const double base = gridPreferences.fontBase72dpi ? ctx->ppiY / 72.0 : ctx->ppiY / 80.0;
    return round2(base * zoom * text->size);
}

QFont fontForText(const FigText* text, int pixelSize)
{
    const Face* face = faceForText(text, pixelSize);
    return face ? face->font : QFont();
}

void pf_textwidth(CFigContext* ctx, FigText* text, double zoom)
{
    Face* face = faceForText(text, fontPixelSize(ctx, text, zoom));
    const int width = face ? faceCache->width(*face, text->cstring) : 0;
    const int ascent = face ? face->ascent : 0;
    // Length and ascent go by the zoom of the context, the rest by the zoom asked for. Single
    // precision up to the rounding of the first two.
    const int length = round2(static_cast<float>(width) * (1200.0f / ctx->ppiX / ctx->zoom));
    // A text without length is not saved; one that is merely too small to see has to be.
    text->length = text->cstring.isEmpty() ? length : std::max(1, length);
    text->ascent = round2((1200.0f / ctx->ppiY / ctx->zoom) * static_cast<float>(ascent));
    text->descent = face ? face->descent : 0;
    text->fontHeight = face ? face->height : 0;
    text->metricsZoom = static_cast<float>(zoom);
    text->paddedLength = round2((width + 1.0) * static_cast<double>(1200.0f / ctx->ppiX) / zoom);
}

namespace {

/// Where the base line begins, in figure units relative to the base point; by the justification.
QPoint startOfText(const FigText* text)
{
    int startX = text->x;
    if (text->sub_type == 1)
        startX = saturatedInt(static_cast<long long>(text->x) - text->length / 2);
    else if (text->sub_type == 2)
        startX = saturatedInt(static_cast<long long>(text->x) - text->length);
    int rotatedX, rotatedY;
    rotatePoint(text->x, text->y, startX, text->y, &rotatedX, &rotatedY, text->angle);
    return {saturatedInt(static_cast<long long>(rotatedX) - text->x),
            saturatedInt(static_cast<long long>(rotatedY) - text->y)};
}

/// Devices that keep the drawing itself are given the text, which others may want to read.
bool drawsPixels(const QPainter* painter)
{
    return painter->paintEngine()->type() == QPaintEngine::Raster;
}

/// The glyphs that are kept of a text; null when it is to be drawn as text.
const QList<QGlyphRun>* keptGlyphs(const QPainter* painter, const FigText* text, int pixelSize)
{
    Face* face = drawsPixels(painter) ? faceForText(text, pixelSize) : nullptr;
    return face ? faceCache->runs(*face, text->cstring) : nullptr;
}

void drawTurned(QPainter* painter, const FigText* text, const QPoint& base, int degrees,
                int pixelSize)
{
    painter->translate(base);
    // A painter that is turned by nothing sets up its matrix all the same.
    if (degrees != 0)
        painter->rotate(degrees);
    painter->setFont(fontForText(text, pixelSize));
    painter->drawText(QPointF(0, 0), text->cstring);
    painter->resetTransform();
}

bool showsText(int mode)
{
    return mode == PAINT_NORMAL || mode == PAINT_DIMMED || mode == PAINT_GRAYED ||
           mode == PAINT_WHITE;
}

} // namespace

void pw_text(CFigContext* ctx, int x, int y, int mode, FigText* text)
{
    if (!text)
        return;
    const int pixelSize = fontPixelSize(ctx, text, ctx->zoom);
    if (pixelSize <= 0)
        return;
    if (ctx->zoom != text->metricsZoom)
        pf_textwidth(ctx, text, ctx->zoom);
    QPainter* painter = ctx->painter;
    if (!painter || !painter->isActive())
        return;
    if (!showsText(mode)) {
        painter->resetTransform();
        return;
    }
    const QPoint start = startOfText(text);
    const QPoint base(pixelX(ctx, saturatedInt(static_cast<long long>(x) + start.x())),
                      pixelY(ctx, saturatedInt(static_cast<long long>(y) + start.y())));
    const int degrees = round2(-text->angle * 180.0 / M_PI); // whole ones
    painter->setPen(getQColor(&ctx->userColorShades, text->color, mode, true));
    const bool isPlain = degrees == 0 && painter->worldTransform().isIdentity();
    const QList<QGlyphRun>* glyphs = isPlain ? keptGlyphs(painter, text, pixelSize) : nullptr;
    if (!glyphs)
        return drawTurned(painter, text, base, degrees, pixelSize);
    for (const QGlyphRun& run : *glyphs)
        painter->drawGlyphRun(base, run);
}

void pw_textrectangle(CFigContext* ctx, FigText* text)
{
    int xmin, ymin, xmax, ymax;
    text->getBounds(ctx, &xmin, &ymin, &xmax, &ymax, true, true);
    pw_rectangle_ds(ctx, xmin, ymin, xmax, ymax, QColor(0, 0, 0));
}
