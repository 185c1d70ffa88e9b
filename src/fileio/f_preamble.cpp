// The text stream of FIG files, and everything that stands before the first record.
#include "fileio/f_read.h"
#include "fileio/number_scanner.h"
#include "model/FigContext.h"
#include "model/preferences.h"
#include "model/shell.h"

#include <limits>

const PaperSize paper_sizes[NUM_PAPER_SIZES] = {
    {"Letter  ", "Letter  (8.5\" x 11\" / 216 x 279 mm)", "letterpaper", 10200, 13200},
    {"Legal   ", "Legal   (8.5\" x 14\" / 216 x 356 mm)", "legalpaper", 10200, 16800},
    {"Tabloid ", "Tabloid ( 11\" x 17\" / 279 x 432 mm)", "tabloidpaper", 13200, 20400},
    {"A", "ANSI A  (8.5\" x 11\" / 216 x 279 mm)", "ansiapaper", 10200, 13200},
    {"B", "ANSI B  ( 11\" x 17\" / 279 x 432 mm)", "ansibpaper", 13200, 20400},
    {"C", "ANSI C  ( 17\" x 22\" / 432 x 559 mm)", "ansicpaper", 20400, 26400},
    {"D", "ANSI D  ( 22\" x 34\" / 559 x 864 mm)", "ansidpaper", 26400, 40800},
    {"E", "ANSI E  ( 34\" x 44\" / 864 x 1118 mm)", "ansiepaper", 40800, 52800},
    {"A9", "ISO A9  (  37mm x   52mm)", "a9paper", 1748, 2467},
    {"A8", "ISO A8  (  52mm x   74mm)", "a8paper", 2457, 3500},
    {"A7", "ISO A7  (  74mm x  105mm)", "a7paper", 3496, 4960},
    {"A6", "ISO A6  ( 105mm x  148mm)", "a6paper", 4960, 6992},
    {"A5", "ISO A5  ( 148mm x  210mm)", "a5paper", 6992, 9921},
    {"A4", "ISO A4  ( 210mm x  297mm)", "a4paper", 9921, 14031},
    {"A3", "ISO A3  ( 297mm x  420mm)", "a3paper", 14031, 19843},
    {"A2", "ISO A2  ( 420mm x  594mm)", "a2paper", 19843, 28063},
    {"A1", "ISO A1  ( 594mm x  841mm)", "a1paper", 28063, 39732},
    {"A0", "ISO A0  ( 841mm x 1189mm)", "a0paper", 39732, 56173},
    {"B10", "JIS B10 (  32mm x   45mm)", "b10paper", 1516, 2117},
    {"B9", "JIS B9  (  45mm x   64mm)", "b9paper", 2117, 3017},
    {"B8", "JIS B8  (  64mm x   91mm)", "b8paper", 3017, 4300},
    {"B7", "JIS B7  (  91mm x  128mm)", "b7paper", 4300, 6050},
    {"B6", "JIS B6  ( 128mm x  182mm)", "b6paper", 6050, 8598},
    {"B5", "JIS B5  ( 182mm x  257mm)", "b5paper", 8598, 12150},
    {"B4", "JIS B4  ( 257mm x  364mm)", "b4paper", 12150, 17200},
    {"B3", "JIS B3  ( 364mm x  515mm)", "b3paper", 17200, 24333},
    {"B2", "JIS B2  ( 515mm x  728mm)", "b2paper", 24333, 34400},
    {"B1", "JIS B1  ( 728mm x 1030mm)", "b1paper", 34400, 48666},
    {"B0", "JIS B0  (1030mm x 1456mm)", "b0paper", 48666, 68783},
};

OrvaltTextStream::OrvaltTextStream(QIODevice* device) : QTextStream(device)
{
    configure();
}

OrvaltTextStream::OrvaltTextStream(QString* string, QIODevice::OpenMode mode)
    : QTextStream(string, mode)
{
    configure();
}

void OrvaltTextStream::configure()
{
    setCodec(environmentPreferencesData.fileEncoding.toLatin1().constData());
    setAutoDetectUnicode(true);
    setLocale(QLocale(QLocale::C, QLocale::AnyCountry));
}

namespace {

constexpr int PAPER_LETTER = 0;
constexpr int PAPER_A4 = 13;

struct VersionLine {
    QString mark;
    float version;
};

VersionLine parseVersionLine(QString line)
{
    VersionLine result{QString(), 0};
    OrvaltTextStream fields(&line);
    fields >> result.mark >> result.version;
    return result;
}

/// (int)((V + 0.01) * 10), which a number beyond all ints does not upset.
int versionNumber(float version)
{
    const double scaled = (version + 0.01) * 10;
    constexpr double limit = std::numeric_limits<int>::max();
    if (!(scaled > -limit))
        return std::numeric_limits<int>::min();
    return static_cast<int>(qMin(scaled, limit));
}

void putVersionMessage(const char* format, float version)
{
    put_msg(QString::asprintf(format, static_cast<double>(version)).toUtf8().constData());
}

/// Versions that are too old or too new are refused, each in its way.
int checkVersion(CFigContext* ctx, const QString& line, int* version10)
{
    const VersionLine parsed = parseVersionLine(line);
    if (!parsed.mark.startsWith(QLatin1String("#FIG"))) {
        put_msg("Not a Fig file");
        return -1;
    }
    *version10 = versionNumber(parsed.version);
    if (*version10 < 31) {
        // The title is what users of old figures know.
        shell_info("Export failed!",
                   QString::asprintf("Figure is in FIG %.1f format. Use an older version of Orvalt "
                                     "or Xfig to convert to FIG %.1f",
                                     static_cast<double>(parsed.version), 3.2));
        return -1;
    }
    if (parsed.version > 3.2f) {
        putVersionMessage("You must have a NEWER version of Orvalt to load this figure (%.1f).",
                          parsed.version);
        finish(ctx);
        return -1;
    }
    return 0;
}

/// The first two comments tell where the file comes from and are dropped, whatever they say.
void takeOriginComments()
{
    isFromOrvalt = !comments.isEmpty() && comments.first().contains(QLatin1String("Orvalt"));
    const int origin = !comments.isEmpty() && comments.first().isEmpty() ? 1 : 2;
    for (int i = 0; i < origin && !comments.isEmpty(); ++i)
        comments.removeFirst();
}

bool startsWith(const QString& line, const char* word)
{
    return line.startsWith(QLatin1String(word), Qt::CaseInsensitive);
}

int fail(const char* message)
{
    put_msg(message);
    return -1;
}

/// The lines that every version has. Only their failures let the layer panel follow again.
int readPageLines(CFigContext* ctx, QTextStream& stream, bool merge, bool* metric)
{
    QString line;
    if (!read_line(stream, &line))
        return fail("No Portrait/Landscape specification");
    takeOriginComments();
    if (!merge)
        ctx->landscape = startsWith(line, "landscape");
    if (!read_line(stream, &line))
        return fail("No Center/Flushleft specification");
    if (startsWith(line, "center") || startsWith(line, "flush")) {
        ctx->flushLeft = startsWith(line, "flush");
        if (!read_line(stream, &line))
            return fail("No Metric/Inches specification");
    }
    // A line that is neither is taken for the units.
    *metric = startsWith(line, "metric");
    if (!merge)
        ctx->metric = *metric;
    return 0;
}

bool readPaperSize(CFigContext* ctx, QTextStream& stream, bool metric)
{
    QString line;
    if (!read_line(stream, &line)) {
        put_msg("No Paper size specification");
        return false;
    }
    ctx->paperSize = parse_papersize(line);
    if (ctx->paperSize < 0) {
        put_msg("Illegal paper size in file, using default");
        ctx->paperSize = metric ? PAPER_A4 : PAPER_LETTER;
    }
    return true;
}

/// What FIG 3.2 added after the paper size.
int readPrintLines(CFigContext* ctx, QTextStream& stream)
{
    QString line;
    if (!read_line(stream, &line))
        return fail("No Magnification specification");
    ctx->magnification = NumberScanner(line).singleReal();
    if (!read_line(stream, &line))
        return fail("No Multiple page flag specification");
    if (!startsWith(line, "multiple") && !startsWith(line, "single"))
        return fail("No Multiple page flag specification");
    ctx->multiplePage = startsWith(line, "multiple");
    if (!read_line(stream, &line))
        return fail("No Transparent color specification");
    ctx->transparentColor = NumberScanner(line).integer();
    return 0;
}

int readResolution(QTextStream& stream, FigDrawing* drawing)
{
    QString line;
    if (!read_line(stream, &line))
        return fail("No Resolution specification; figure is empty");
    const int resolution = NumberScanner(line).integer();
    drawing->resolution = resolution > 0 ? resolution : 1200;
    stream.skipWhiteSpace();
    return 0;
}

} // namespace

int readPreamble(CFigContext* ctx, QTextStream& stream, FigDrawing* drawing, bool merge,
                 int* version10)
{
    const QString line = stream.readLine();
    if (stream.atEnd()) {
        finish(ctx);
        return -2;
    }
    if (checkVersion(ctx, line, version10) != 0)
        return -1;
    bool metric = false;
    if (readPageLines(ctx, stream, merge, &metric) != 0) {
        finish(ctx);
        return -1;
    }
    if (*version10 >= 32) {
        if (!readPaperSize(ctx, stream, metric)) {
            finish(ctx);
            return -1;
        }
        if (readPrintLines(ctx, stream) != 0)
            return -1;
    }
    return readResolution(stream, drawing);
}

int parse_papersize(QString text)
{
    // What ends the name is the later one of the two, so "Letter (8.5" is not known.
    const int end = qMax(text.indexOf(QLatin1Char(' ')), text.indexOf(QLatin1Char('(')));
    if (end != -1)
        text.truncate(end);
    // In lower case it equals no name, so "Ledger" is illegal.
    if (text.compare(QLatin1String("ledger"), Qt::CaseInsensitive) == 0)
        text = QStringLiteral("tabloid");
    for (int i = 0; i < NUM_PAPER_SIZES; ++i)
        if (text == QString::fromLatin1(paper_sizes[i].shortName).trimmed())
            return i;
    return -1;
}
