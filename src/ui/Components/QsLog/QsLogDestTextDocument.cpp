#include "ui/Components/QsLog/QsLogDestTextDocument.h"

namespace QsLogging {

TextDocumentOutputDestination::TextDocumentOutputDestination(QTextDocument& target,
                                                             bool messagesAreHtml)
    : document(&target), html(messagesAreHtml)
{
}

void TextDocumentOutputDestination::write(const QString& message, Level)
{
    if (!document)
        return;
    if (cursor.isNull())
        cursor = QTextCursor(document);
    if (html) {
        cursor.insertBlock();
        cursor.insertHtml(message);
        return;
    }
    if (!cursor.atStart())
        cursor.insertText("\n");
    cursor.insertText(message);
}

bool TextDocumentOutputDestination::isValid()
{
    return true;
}

} // namespace QsLogging
