#include "model/version.h"

QString getOrvaltVersionString(bool withAdditional)
{
    QString version = QString("%1.%2").arg(ORVALT_MAJOR_VERSION, ORVALT_MINOR_VERSION);
    const QString additional = ORVALT_ADDITIONAL_VERSION;
    if (withAdditional && !additional.isEmpty())
        version += ' ' + additional;
    return version;
}
