#include "ui/Components/QsLog/QsDebugOutput.h"

#include <QString>

#include <iostream>

void QsDebugOutput::output(const QString& message)
{
    std::cerr << message.toStdString() << std::endl;
}
