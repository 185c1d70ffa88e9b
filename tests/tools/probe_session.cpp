#include "probe_session.h"

#include "RecordingShell.h"
#include "fileio/f_read.h"
#include "model/FigContext.h"
#include "render/coords.h"
#include "render/gfx_math.h"

#include <QCommandLineParser>
#include <QRegularExpression>
#include <QTextStream>

namespace {

const QStringList commands = {"info", "render", "outline", "save", "hit"};

void addOptions(QCommandLineParser& parser)
{
    parser.addOptions({
        {"zoom", "Zoom factor.", "Z", "1"},
        {"ppi", "Pixels per inch at zoom 1; two numbers for X and Y.", "P[,Q]", "80"},
        {"size", "Size of the canvas in pixels.", "WxH"},
        {"origin", "Figure coordinates of the canvas' top left corner.", "X,Y", "0,0"},
        {"shift", "Answer to the question on negative coordinates.", "yes|no", "no"},
        {"no-antialias", "Draw without antialiasing."},
        {"no-page", "Draw no page borders."},
    });
}

/// Two numbers with a separator between them; one number stands for both if allowed.
bool parsePair(const QString& text, QChar separator, bool oneWillDo, double* a, double* b)
{
    const QStringList parts = text.split(separator);
    bool firstOk = false, secondOk = false;
    *a = parts.first().toDouble(&firstOk);
    *b = parts.last().toDouble(&secondOk);
    return firstOk && secondOk && (parts.size() == 2 || (oneWillDo && parts.size() == 1));
}

bool parseScale(const QCommandLineParser& parser, ProbeOptions* options)
{
    bool ok = false;
    options->zoom = parser.value("zoom").toFloat(&ok);
    double x = 0, y = 0;
    ok = parsePair(parser.value("ppi"), ',', true, &x, &y) && ok;
    options->ppiX = static_cast<float>(x);
    options->ppiY = static_cast<float>(y);
    return ok && options->zoom > 0 && options->ppiX > 0 && options->ppiY > 0;
}

bool parseCanvas(const QCommandLineParser& parser, ProbeOptions* options)
{
    double x = 0, y = 0;
    bool ok = parsePair(parser.value("origin"), ',', false, &x, &y);
    options->origin = QPoint(round2(x), round2(y));
    if (parser.isSet("size")) {
        ok = parsePair(parser.value("size"), 'x', false, &x, &y) && x >= 1 && y >= 1 && ok;
        options->size = QSize(round2(x), round2(y));
    }
    options->antialiasing = !parser.isSet("no-antialias");
    options->pageBorders = !parser.isSet("no-page");
    return ok;
}

/// The parser would take a negative coordinate for an option.
QStringList hideSigns(QStringList arguments)
{
    static const QRegularExpression negative("^(-\\d+)$");
    return arguments.replaceInStrings(negative, " \\1");
}

/// Pairs of whole numbers.
bool parsePoints(const QStringList& numbers, QVector<QPoint>* points)
{
    for (int i = 0; i + 1 < numbers.size(); i += 2) {
        bool xOk = false, yOk = false;
        points->append(QPoint(numbers[i].toInt(&xOk), numbers[i + 1].toInt(&yOk)));
        if (!xOk || !yOk) {
            return false;
        }
    }
    return numbers.size() % 2 == 0;
}

QStringList standardInputWords()
{
    return QTextStream(stdin).readAll().simplified().split(' ', Qt::SkipEmptyParts);
}

bool parsePositional(const QStringList& arguments, ProbeOptions* options)
{
    options->command = arguments.value(0);
    options->input = arguments.value(1);
    if (options->command == "hit" && arguments.size() >= 2) {
        const QStringList numbers = arguments.mid(2);
        return parsePoints(numbers.isEmpty() ? standardInputWords() : numbers, &options->points);
    }
    options->output = arguments.value(2);
    const int expected = options->command == "render" || options->command == "save" ? 3 : 2;
    return commands.contains(options->command) && arguments.size() == expected;
}

} // namespace

bool parseProbeOptions(const QStringList& arguments, ProbeOptions* options, QString* error)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(hideSigns(arguments))) {
        *error = parser.errorText();
        return false;
    }
    const QString answer = parser.value("shift");
    options->shiftFigure = answer == "yes";
    if ((answer != "yes" && answer != "no") || !parseScale(parser, options) ||
        !parseCanvas(parser, options)) {
        *error = "An option has no usable value.";
        return false;
    }
    *error = "A subcommand and its files are needed.";
    return parsePositional(parser.positionalArguments(), options);
}

bool openFigure(CFigContext* ctx, const ProbeOptions& options)
{
    recordingShell.activeContext = ctx;
    recordingShell.answer = options.shiftFigure;
    ctx->ppiX = options.ppiX;
    ctx->ppiY = options.ppiY;
    ctx->showPageBorders = options.pageBorders;
    const bool opened = load_file(ctx, options.input);
    ctx->zoom = options.zoom;
    ctx->shiftX = round2(scaledX(ctx, options.origin.x()));
    ctx->shiftY = round2(scaledY(ctx, options.origin.y()));
    return opened;
}
