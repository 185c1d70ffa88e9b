// Log messages in a document on the screen.
#pragma once

#include "ui/Components/QsLog/QsLogDest.h"

#include <QPointer>
#include <QTextCursor>
#include <QTextDocument>

namespace QsLogging {

/// For the thread of the document only.
class TextDocumentOutputDestination : public Destination {
public:
    /// The document stays its owner's; messages after its death are dropped.
    TextDocumentOutputDestination(QTextDocument& target, bool messagesAreHtml);

    void write(const QString& message, Level level) override;
    bool isValid() override;

private:
    QPointer<QTextDocument> document;
    bool html;
    QTextCursor cursor; ///< behind the last message; null before the first
};

} // namespace QsLogging
