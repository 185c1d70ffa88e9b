// Text records: their escapes and the repairs of size and font.
#include "fileio/f_read.h"
#include "fileio/number_scanner.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/Font.h"
#include "render/gfx_math.h"

#include <cmath>

namespace {

constexpr int FLAG_PS_FONT = 4;

int repairedTextSize(double size)
{
    if (std::isnan(size) || (size > -2 && size < 1))
        return 12;
    return qBound(1, round2(size), 500);
}

int repairedFont(int font, int flags)
{
    const bool postScript = flags != -1 && (flags & FLAG_PS_FONT);
    if (font < (postScript ? NUM_PS_FONTS : NUM_LATEX_FONTS))
        return font;
    put_msg("Invalid text font (%d) at line %d, setting to DEFAULT.", static_cast<long>(font),
            static_cast<long>(save_line));
    return -1;
}

const QLatin1String END_MARK("\\001");

/// The end marks go first, wherever they stand, so one may leave a lone backslash behind.
QString withoutEndMarks(const QString& text)
{
    return text.split(END_MARK).join(QString());
}

QString withoutEscapes(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\\')) {
            result += text.at(i);
        } else if (i + 1 == text.size()) {
            result += QChar(0);
        } else if (!text.at(i + 1).isDigit()) {
            result += text.at(++i);
        } else if (i + 3 < text.size()) {
            // No octal number, as in "\189", is character 0.
            result += QChar(static_cast<ushort>(text.mid(i + 1, 3).toInt(nullptr, 8)));
            i += 3;
        } else {
            result += QLatin1Char('\\');
        }
    }
    return result;
}

/// One character parts the text from the numbers; blanks after it belong to the text.
QStringView behindSeparator(QStringView rest)
{
    return rest.isEmpty() ? rest : rest.mid(1);
}

/// The usual text has no backslash but that of its end mark.
QString textOf(QStringView field)
{
    const qsizetype backslash = field.indexOf(QLatin1Char('\\'));
    if (backslash == -1)
        return field.toString();
    if (field.mid(backslash) == END_MARK)
        return field.left(backslash).toString();
    return withoutEscapes(withoutEndMarks(field.toString()));
}

} // namespace

FigText* read_textobject(CFigContext* ctx, const QString& line)
{
    save_line = line_no;
    auto* text = new FigText;
    NumberScanner fields(line);
    fields.integer();
    text->sub_type = fields.integer();
    text->color = fields.integer();
    text->depth = fields.integer();
    text->pen_style = fields.integer();
    const int font = fields.integer();
    text->size = repairedTextSize(fields.singleReal());
    text->angle = fields.singleReal();
    text->flags = fields.integer();
    fields.real(); // height and length are measured anew
    fields.real();
    text->x = fields.integer();
    text->y = fields.integer();
    fix_angle(&text->angle);
    text->font = repairedFont(font == -1 ? 0 : font, text->flags);
    fix_depth(&text->depth);
    text->cstring = textOf(behindSeparator(fields.restView()));
    if (text->sub_type > 2) {
        put_msg("Invalid text justification at line %d, setting to LEFT.",
                static_cast<long>(save_line));
        text->sub_type = 0;
    }
    pf_textwidth(ctx, text, static_cast<double>(ctx->zoom));
    text->comments = attach_comments();
    return text;
}
