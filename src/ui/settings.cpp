#include "ui/settings.h"

#include "model/preferences.h"
#include "render/grid.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegExp>
#include <QSettings>

#include <algorithm>
#include <iterator>
#include <variant>

QString lastInstalledVersion;
float oldMajorVersion = 0;
float oldMinorVersion = 0;
float oldOrvaltVersion = 0;
bool isOrvaltUpgrade = false;

namespace {

constexpr char STORE_NAME[] = "Orvalt";
constexpr char VERSION_KEY[] = "version";
constexpr char CUSTOM_GRIDS_KEY[] = "custom grids";
constexpr char GRID_INDEX_KEY[] = "grid index";
constexpr char MAGNET_MODE_KEY[] = "magnet mode";
constexpr char SNAP_MODE_KEY[] = "snap mode";
constexpr char BACKGROUND_KEY[] = "background colour";
constexpr char GRID_COLOUR_KEY[] = "grid colour";
constexpr char DPI_KEY[] = "dpi at zoom 100%";

constexpr int MAX_MAGNET_MODE = 4;

/// The names of "dpi at zoom 100%", by its value.
const char* const dpiNames[] = {"FIG dpi", "screen dpi", "font dpi"};

/// A field of a record that is stored as it is.
struct PlainSetting {
    const char* key;
    std::variant<bool*, int*, QString*> value;
};

const PlainSetting plainSettings[] = {
    {"show comments as tooltips", &otherPreferencesData.showCommentsAsTooltips},
    {"comment tool tip delay", &otherPreferencesData.commentToolTipDelay},
    {"widget style", &otherPreferencesData.widgetStyle},
    {"coordinate unit", &otherPreferencesData.coordUnit},
    {"antialiasing", &otherPreferencesData.antialiasing},
    {"pdf viewer path", &otherPreferencesData.pdfViewerPath},
    {"ps viewer path", &otherPreferencesData.psViewerPath},
    {"compound edit view mode", &otherPreferencesData.compoundEditViewMode},
    {"generate eps preview", &epsViewPreferencesData.generatePreview},
    {"eps preview file type", &epsViewPreferencesData.previewFileType},
    {"eps preview resolution", &epsViewPreferencesData.previewResolution},
    {"render special text using tex", &texViewPreferencesData.renderSpecialText},
    {"latex command", &texViewPreferencesData.latexCommand},
    {"dvips command", &texViewPreferencesData.dvipsCommand},
    {"temp dir", &texViewPreferencesData.tempDir},
    {"use default temp dir", &texViewPreferencesData.useDefaultTempDir},
    {"special text tex document frame", &texViewPreferencesData.documentFrame},
    {"additional path", &environmentPreferencesData.additionalPath},
    {"file encoding", &environmentPreferencesData.fileEncoding},
    {"grid on", &gridPreferences.gridOn},
    {"snap to grid using line width", &gridPreferences.snapUsingLineWidth},
    {"metric", &gridPreferences.metric},
    {"horz ruler", &gridPreferences.horzRuler},
    {"vert ruler", &gridPreferences.vertRuler},
    {"font base 72dpi", &gridPreferences.fontBase72dpi},
    {"export tex document frame", &exportPreferences.documentFrame},
    {"library root directory", &librarySettings.rootDirectory},
    {"render latex in libraries", &librarySettings.renderLatex},
};

// --- values -------------------------------------------------------------------

/// A text with commas that somebody edited by hand comes back as a list.
QString textValue(const QSettings& settings, const QString& key, const QString& fallback)
{
    if (!settings.contains(key))
        return fallback;
    return settings.value(key).toStringList().join(", ");
}

void read(const QSettings& settings, const char* key, bool* value)
{
    *value = settings.value(key, *value).toBool();
}

void read(const QSettings& settings, const char* key, int* value)
{
    bool usable = false;
    const int stored = settings.value(key).toInt(&usable);
    if (usable)
        *value = stored;
}

void read(const QSettings& settings, const char* key, QString* value)
{
    *value = textValue(settings, key, *value);
}

void readColour(const QSettings& settings, const char* key, QColor* colour)
{
    bool usable = false;
    const qlonglong stored = settings.value(key).toLongLong(&usable);
    if (usable)
        *colour = QColor::fromRgb(static_cast<QRgb>(stored));
}

// --- version ------------------------------------------------------------------

/// The old minor version counts in tenths, the present one does not: within one major version no
/// run after a one-digit minor version is an upgrade.
void readLastVersion(const QSettings& settings)
{
    lastInstalledVersion = textValue(settings, VERSION_KEY, getOrvaltVersionString(true));
    const QString number = lastInstalledVersion.section(' ', 0, 0);
    oldMajorVersion = number.section('.', 0, 0).toFloat();
    oldMinorVersion = number.section('.', 1).toFloat();
    if (oldMinorVersion < 10)
        oldMinorVersion *= 10;
    oldOrvaltVersion = number.toFloat();

    const float major = QString(ORVALT_MAJOR_VERSION).toFloat();
    const float minor = QString(ORVALT_MINOR_VERSION).toFloat();
    isOrvaltUpgrade =
        oldMajorVersion < major || (oldMajorVersion == major && oldMinorVersion < minor);
}

// --- grid ---------------------------------------------------------------------

QString snapModeText(int mode)
{
    QStringList names;
    if (mode & SNAP_GRID)
        names.append("GRID");
    if (mode & SNAP_VERTEX)
        names.append("VERTEX");
    return names.join(", ");
}

int snapModeFrom(const QString& text)
{
    const QStringList names = text.split(QRegExp("[, ]"), Qt::KeepEmptyParts);
    return (names.contains("GRID") ? SNAP_GRID : 0) | (names.contains("VERTEX") ? SNAP_VERTEX : 0);
}

QString dpiText(int mode)
{
    return dpiNames[std::clamp(mode, 0, static_cast<int>(std::size(dpiNames)) - 1)];
}

void readGridIndex(const QSettings& settings)
{
    read(settings, GRID_INDEX_KEY, &gridPreferences.gridIndex);
    if (gridPreferences.gridIndex >= 0 && gridPreferences.gridIndex < gridDefinitions.size())
        return;
    gridPreferences.gridOn = false;
    gridPreferences.gridIndex = 0;
}

void readDpiMode(const QSettings& settings)
{
    const QString stored = textValue(settings, DPI_KEY, "FIG");
    const auto found = std::find(std::begin(dpiNames), std::end(dpiNames), stored);
    if (found != std::end(dpiNames))
        gridPreferences.dpiAtZoom100 = static_cast<int>(found - std::begin(dpiNames));
}

void readGridPreferences(const QSettings& settings)
{
    readCustomGrids(settings);
    readGridIndex(settings);
    read(settings, MAGNET_MODE_KEY, &gridPreferences.magnetMode);
    gridPreferences.magnetMode = std::min(gridPreferences.magnetMode, MAX_MAGNET_MODE);
    gridPreferences.snapMode =
        snapModeFrom(textValue(settings, SNAP_MODE_KEY, snapModeText(gridPreferences.snapMode)));
    readColour(settings, BACKGROUND_KEY, &gridPreferences.backgroundColour);
    readColour(settings, GRID_COLOUR_KEY, &gridPreferences.gridColour);
    readDpiMode(settings);
}

void writeGridPreferences(QSettings* settings)
{
    writeCustomGrids(settings);
    settings->setValue(GRID_INDEX_KEY, gridPreferences.gridIndex);
    settings->setValue(MAGNET_MODE_KEY, gridPreferences.magnetMode);
    settings->setValue(SNAP_MODE_KEY, snapModeText(gridPreferences.snapMode));
    settings->setValue(BACKGROUND_KEY, gridPreferences.backgroundColour.rgb());
    settings->setValue(GRID_COLOUR_KEY, gridPreferences.gridColour.rgb());
    settings->setValue(DPI_KEY, dpiText(gridPreferences.dpiAtZoom100));
}

// --- custom grids ---------------------------------------------------------------

QColor gridColourFrom(const QString& text)
{
    bool usable = false;
    const QRgb rgb = text.toUInt(&usable);
    return usable ? QColor::fromRgb(rgb) : QColor(Qt::gray);
}

GridDefinition* gridFromJson(const QJsonObject& json)
{
    const auto step = static_cast<float>(json["STEPSIZE"].toDouble());
    return makeGridDefinition(json["NAME"].toString(), json["STATUS_TIP"].toString(),
                              step == 0 ? 1.0f : step, gridColourFrom(json["COLOR"].toString()),
                              json["PENSTYLE"].toInt(), ":/grid/images/grid/grid_custom.png");
}

QJsonObject gridToJson(const GridDefinition& grid)
{
    return {{"NAME", grid.name},
            {"STATUS_TIP", grid.statusTip},
            {"STEPSIZE", static_cast<double>(grid.stepSize)},
            {"COLOR", QString::number(grid.color.rgb())},
            {"PENSTYLE", grid.penStyle}};
}

void removeCustomGrids()
{
    while (gridDefinitions.size() > NUM_BUILTIN_GRIDS)
        delete gridDefinitions.takeLast();
}

} // namespace

void readSettings()
{
    const QSettings settings(STORE_NAME, STORE_NAME);
    readLastVersion(settings);
    for (const PlainSetting& setting : plainSettings)
        std::visit([&](auto* value) { read(settings, setting.key, value); }, setting.value);
    otherPreferencesData.gsCommand = "gs";
    readGridPreferences(settings);
}

void writeSettings()
{
    QSettings settings(STORE_NAME, STORE_NAME);
    settings.setValue(VERSION_KEY, getOrvaltVersionString(true));
    // A mark in the store; nothing reads it.
    settings.setValue("3.2", "3.2");
    for (const PlainSetting& setting : plainSettings)
        std::visit([&](auto* value) { settings.setValue(setting.key, *value); }, setting.value);
    writeGridPreferences(&settings);
}

void readCustomGrids(const QSettings& settings)
{
    const QByteArray text = textValue(settings, CUSTOM_GRIDS_KEY, QString()).toUtf8();
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isArray())
        return;
    removeCustomGrids();
    for (const QJsonValue& grid : document.array())
        if (grid.isObject())
            gridDefinitions.append(gridFromJson(grid.toObject()));
}

void writeCustomGrids(QSettings* settings)
{
    QJsonArray grids;
    for (int index = NUM_BUILTIN_GRIDS; index < gridDefinitions.size(); ++index)
        grids.append(gridToJson(*gridDefinitions[index]));
    const QByteArray text = QJsonDocument(grids).toJson(QJsonDocument::Compact);
    settings->setValue(CUSTOM_GRIDS_KEY, QString::fromUtf8(text));
}

void getKeyValueMap(QStringList& lines, QMap<QString, QString>* map)
{
    for (const QString& line : qAsConst(lines)) {
        const int separator = line.indexOf('=');
        if (separator >= 0)
            map->insert(line.left(separator), line.mid(separator + 1));
    }
}
