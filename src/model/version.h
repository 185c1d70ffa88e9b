// Version of the program, as files, the settings store and the about box tell it.
#pragma once

#include <QString>

constexpr char ORVALT_MAJOR_VERSION[] = "7";
constexpr char ORVALT_MINOR_VERSION[] = "4";
constexpr char ORVALT_ADDITIONAL_VERSION[] = "";
constexpr char ORVALT_DATE[] = "2017-08-27";

/// Major.minor, with the additional text behind a blank if asked for and not empty.
QString getOrvaltVersionString(bool withAdditional);
