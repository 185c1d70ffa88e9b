// Fonts by FIG number, text metrics and plain text.
#pragma once

#include <QString>

class CFigContext;
class FigText;
class QFont;

struct CFontMapEntry {
    int index;
    const char* name; ///< PostScript display name
    const char* alternative;
    const char* family; ///< given to QFont
    int weight;
    int style; ///< QFont::Style
    int stretch;
    float xShift, yShift; ///< stored, no reader
};
constexpr int NUM_PS_FONTS = 35;
constexpr int NUM_LATEX_FONTS = 6;
extern const CFontMapEntry fontmapQt[NUM_PS_FONTS];
extern const char* const latexFonts[NUM_LATEX_FONTS];

/// Whether all of a string lies between the blank and the combining marks, so that nothing in it is
/// stacked or a control character.
bool isPlainLatin(const QString& string);
/// Font height in pixels for the text's size at a zoom.
int fontPixelSize(CFigContext* ctx, const FigText* text, double zoom);
/// The QFont of a row (out of range: row 0) at a pixel size of at least 1.
QFont fontForText(const FigText* text, int pixelSize);
/// Measures the text and stores its metrics.
void pf_textwidth(CFigContext* ctx, FigText* text, double zoom);
/// Draws the text with its base at (x, y), figure units.
void pw_text(CFigContext* ctx, int x, int y, int mode, FigText* text);
/// A black box of the text's bounds.
void pw_textrectangle(CFigContext* ctx, FigText* text);
