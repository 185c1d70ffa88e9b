// Log messages handed to a function or to a slot.
#pragma once

#include "ui/Components/QsLog/QsLogDest.h"

#include <QObject>
#include <QPointer>

namespace QsLogging {

class FunctorDestination : public QObject, public Destination {
    Q_OBJECT

public:
    explicit FunctorDestination(DestinationFactory::LogFunction target);
    FunctorDestination(QObject* receiver, const char* member);

    void write(const QString& message, Level level) override;
    /// A function is set, or a connected receiver lives.
    bool isValid() override;

signals:
    void logMessageReady(const QString& message, int level);

private:
    DestinationFactory::LogFunction function = nullptr;
    QPointer<QObject> connectedReceiver;
};

} // namespace QsLogging
