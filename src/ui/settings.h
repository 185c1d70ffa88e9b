// The settings store: fills the preference records at start-up and keeps them at exit.
// The records themselves are declared in model/preferences.h.
#pragma once

#include "model/version.h"

#include <QMap>
#include <QString>
#include <QStringList>

class QSettings;

// Version of the program at the last run, as the store told it. Written by readSettings.
extern QString lastInstalledVersion;
extern float oldMajorVersion;
extern float oldMinorVersion;  ///< times 10 if it was below 10
extern float oldOrvaltVersion; ///< major.minor as one number
extern bool isOrvaltUpgrade;

/// Reads all records. What is missing or unusable in the store keeps its present value.
/// The built-in grids must have been loaded.
void readSettings();
void writeSettings();

/// Replaces the custom grids by those of the store; without a usable list nothing changes.
void readCustomGrids(const QSettings& settings);
void writeCustomGrids(QSettings* settings);

/// Splits lines at their first "="; lines without one are skipped.
void getKeyValueMap(QStringList& lines, QMap<QString, QString>* map);
