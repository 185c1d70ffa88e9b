// Keeps what could not be saved where it was meant to be.
#pragma once

#include <QByteArray>
#include <QString>

/// Folder of the rescue copies, in the user's data folder of the program.
QString rescueFolder();

/// Writes a copy named after the file and the present time, and says in the log where it stands,
/// or that it could not be written either.
void keepRescueCopy(const QString& fileName, const QByteArray& content);
