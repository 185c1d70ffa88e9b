// The user's preferences as process-wide records with built-in defaults.
// Filled once at start from the settings store, edited by the dialogs, stored at exit.
#pragma once

#include <QColor>
#include <QString>

struct OtherPreferencesData {
    bool showCommentsAsTooltips = true;
    int commentToolTipDelay = 1000; ///< milliseconds
    int widgetStyle = 1;
    int coordUnit = 0; ///< unit of typed coordinates: 0 cm, 1 inch, 2 display pixel, 3 figure unit
    bool antialiasing = true;
    int reserved = 0;
    QString pdfViewerPath = QStringLiteral("evince \"FILENAME\"");
    QString psViewerPath = QStringLiteral("evince \"FILENAME\"");
    int compoundEditViewMode = 10; ///< paint mode of what is outside an open compound; 3 no change
    bool useDefaultGs = true;      ///< for the run only, never stored
    QString gsPath;                ///< for the run only, never stored
    QString gsCommand;             ///< set to "gs" when the settings are read
};

struct EpsViewPreferencesData {
    bool generatePreview = true;
    QString previewFileType = QStringLiteral("png256");
    int previewResolution = 96; ///< dots per inch
};

struct TexViewPreferencesData {
    bool renderSpecialText = true;
    QString oldDefaultLatexCommand;
    QString defaultLatexCommand;
    QString latexCommand;
    QString oldDefaultDvipsCommand;
    QString defaultDvipsCommand;
    QString dvipsCommand;
    QString tempDir;
    bool useDefaultTempDir = true;
    QString documentFrame;
    TexViewPreferencesData();
};

struct EnvironmentPreferencesData {
    QString defaultAdditionalPath; ///< empty, never stored
    QString additionalPath;
    QString fileEncoding = QStringLiteral("ISO 8859-1");
};

/// Bits of the snap mode.
constexpr int SNAP_GRID = 1;
constexpr int SNAP_VERTEX = 2;

struct GridPreferences {
    bool gridOn = false;
    int gridIndex = 2;
    int magnetMode = 4; ///< 0 to 4, subdivision of the snap step
    int snapMode = 0;   ///< SNAP_GRID, SNAP_VERTEX, or both
    bool snapUsingLineWidth = false;
    bool metric = true;
    QColor backgroundColour = QColor(0xff, 0xff, 0xff);
    QColor gridColour = QColor(0xdc, 0xdc, 0xdc);
    bool horzRuler = true;
    bool vertRuler = true;
    bool fontBase72dpi = true;
    int dpiAtZoom100 = 0; ///< 0 "FIG dpi" (80), 1 "screen dpi", 2 "font dpi" (72)
};

struct ExportPreferences {
    QString documentFrame;
    ExportPreferences();
};

struct LibrarySettings {
    QString rootDirectory;
    bool renderLatex = false;
};

extern OtherPreferencesData otherPreferencesData;
extern EpsViewPreferencesData epsViewPreferencesData;
extern TexViewPreferencesData texViewPreferencesData;
extern EnvironmentPreferencesData environmentPreferencesData;
extern GridPreferences gridPreferences;
extern ExportPreferences exportPreferences;
extern LibrarySettings librarySettings;
