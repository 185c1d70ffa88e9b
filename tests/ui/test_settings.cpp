#include "model/preferences.h"
#include "render/grid.h"
#include "ui/settings.h"

#include <QSettings>
#include <QtTest>

namespace {

void resetRecords()
{
    otherPreferencesData = OtherPreferencesData();
    epsViewPreferencesData = EpsViewPreferencesData();
    texViewPreferencesData = TexViewPreferencesData();
    environmentPreferencesData = EnvironmentPreferencesData();
    gridPreferences = GridPreferences();
    exportPreferences = ExportPreferences();
    librarySettings = LibrarySettings();
    loadGridDefinitions();
}

QVariant stored(const QString& key)
{
    return QSettings("Orvalt", "Orvalt").value(key);
}

void store(const QString& key, const QVariant& value)
{
    QSettings("Orvalt", "Orvalt").setValue(key, value);
}

const char twoGrids[] =
    R"([{"NAME":"Fine","STATUS_TIP":"0.1 %1","STEPSIZE":0.25,"COLOR":"4278190335","PENSTYLE":2},)"
    R"({"NAME":"Zero","STATUS_TIP":"","STEPSIZE":0,"COLOR":"no colour","PENSTYLE":1}])";

} // namespace

// Each test has a store of its own in a temporary directory.
class TestSettings : public QObject {
    Q_OBJECT

    QScopedPointer<QTemporaryDir> directory;

    QString storeFile() const { return directory->filePath("Orvalt/Orvalt.conf"); }

    void writeStore(const QByteArray& lines)
    {
        QVERIFY(QDir(directory->path()).mkpath("Orvalt"));
        QFile file(storeFile());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[General]\n" + lines);
    }

private slots:
    void init()
    {
        directory.reset(new QTemporaryDir);
        QVERIFY(directory->isValid());
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, directory->path());
        QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope,
                           directory->filePath("system"));
        resetRecords();
    }

    void cleanupTestCase() { destroyGridDefinitions(); }

    // --- records --------------------------------------------------------------------

    void anEmptyStoreLeavesTheDefaults()
    {
        readSettings();
        QVERIFY(otherPreferencesData.showCommentsAsTooltips && otherPreferencesData.antialiasing);
        QCOMPARE(otherPreferencesData.commentToolTipDelay, 1000);
        QCOMPARE(otherPreferencesData.widgetStyle, 1);
        QCOMPARE(otherPreferencesData.coordUnit, 0);
        QCOMPARE(otherPreferencesData.pdfViewerPath, QString("evince \"FILENAME\""));
        QCOMPARE(otherPreferencesData.psViewerPath, QString("evince \"FILENAME\""));
        QCOMPARE(otherPreferencesData.compoundEditViewMode, 10);
        QCOMPARE(otherPreferencesData.gsCommand, QString("gs"));
        QVERIFY(epsViewPreferencesData.generatePreview);
        QCOMPARE(epsViewPreferencesData.previewFileType, QString("png256"));
        QCOMPARE(epsViewPreferencesData.previewResolution, 96);
        QVERIFY(texViewPreferencesData.renderSpecialText);
        QVERIFY(texViewPreferencesData.useDefaultTempDir);
        QCOMPARE(environmentPreferencesData.fileEncoding, QString("ISO 8859-1"));
        QVERIFY(!gridPreferences.gridOn && gridPreferences.metric);
        QCOMPARE(gridPreferences.gridIndex, 2);
        QCOMPARE(gridPreferences.magnetMode, 4);
        QCOMPARE(gridPreferences.snapMode, 0);
        QCOMPARE(gridPreferences.backgroundColour, QColor("#ffffff"));
        QCOMPARE(gridPreferences.gridColour, QColor("#dcdcdc"));
        QVERIFY(gridPreferences.horzRuler && gridPreferences.vertRuler);
        QVERIFY(gridPreferences.fontBase72dpi);
        QCOMPARE(gridPreferences.dpiAtZoom100, 0);
        QVERIFY(librarySettings.rootDirectory.isEmpty() && !librarySettings.renderLatex);
    }

    void theDefaultCommandsAndFramesAreTheirTexts()
    {
        QCOMPARE(texViewPreferencesData.latexCommand,
                 QString("latex -interaction=batchmode -output-directory TEMPDIR -jobname OUTFILE "
                         "TEMPDIR/INFILE"));
        QCOMPARE(texViewPreferencesData.dvipsCommand,
                 QString("dvips -quiet -E* -o TEMPDIR/OUTFILE TEMPDIR/INFILE"));
        QCOMPARE(texViewPreferencesData.oldDefaultLatexCommand,
                 QString("latex -interaction=batchmode -jobname OUTFILE INFILE"));
        QCOMPARE(texViewPreferencesData.oldDefaultDvipsCommand,
                 QString("dvips -quiet -E* -o OUTFILE INFILE"));
        QCOMPARE(texViewPreferencesData.documentFrame,
                 QString("\\documentclass[11pt]{article}\r\n\\usepackage{color}\r\n"
                         "\\usepackage[latin1]{inputenc}\r\n\\begin{document}\r\n"
                         "\\begin{titlepage}\r\nCOLORTOKEN\r\nTEXTTOKEN\r\n"
                         "\\end{titlepage}\r\n\\end{document}"));
        const QString frame = exportPreferences.documentFrame;
        QCOMPARE(frame.count("\r\n"), 1);
        QCOMPARE(frame.count('\n'), 13);
        QVERIFY(frame.contains("\\usepackage[latin1]{inputenc}\r\n\\usepackage{graphicx}\n"));
        QVERIFY(frame.endsWith("\n\n\\input{\"INPUTTEXFILETOKEN\"}\n\n\\end{document}\n"));
    }

    void everyKeyComesBackAsItWasWritten()
    {
        otherPreferencesData.showCommentsAsTooltips = false;
        otherPreferencesData.commentToolTipDelay = 17;
        otherPreferencesData.widgetStyle = 3;
        otherPreferencesData.coordUnit = 2;
        otherPreferencesData.antialiasing = false;
        otherPreferencesData.pdfViewerPath = "see, \"FILENAME\"";
        otherPreferencesData.psViewerPath = "gv";
        otherPreferencesData.compoundEditViewMode = 12;
        epsViewPreferencesData.generatePreview = false;
        epsViewPreferencesData.previewFileType = "pngmono";
        epsViewPreferencesData.previewResolution = 300;
        texViewPreferencesData.renderSpecialText = false;
        texViewPreferencesData.latexCommand = "l";
        texViewPreferencesData.dvipsCommand = "d";
        texViewPreferencesData.tempDir = "/t";
        texViewPreferencesData.useDefaultTempDir = false;
        texViewPreferencesData.documentFrame = "a\r\nb";
        environmentPreferencesData.additionalPath = "/p";
        environmentPreferencesData.fileEncoding = "UTF-8";
        gridPreferences.gridOn = true;
        gridPreferences.gridIndex = 5;
        gridPreferences.magnetMode = 1;
        gridPreferences.snapMode = 3;
        gridPreferences.snapUsingLineWidth = true;
        gridPreferences.metric = false;
        gridPreferences.backgroundColour = QColor("#102030");
        gridPreferences.gridColour = QColor("#405060");
        gridPreferences.horzRuler = gridPreferences.vertRuler = false;
        gridPreferences.fontBase72dpi = false;
        gridPreferences.dpiAtZoom100 = 2;
        exportPreferences.documentFrame = "x\ny\r\n";
        librarySettings.rootDirectory = "/l";
        librarySettings.renderLatex = true;
        writeSettings();
        resetRecords();
        readSettings();

        QVERIFY(!otherPreferencesData.showCommentsAsTooltips && !otherPreferencesData.antialiasing);
        QCOMPARE(otherPreferencesData.commentToolTipDelay, 17);
        QCOMPARE(otherPreferencesData.widgetStyle, 3);
        QCOMPARE(otherPreferencesData.coordUnit, 2);
        QCOMPARE(otherPreferencesData.pdfViewerPath, QString("see, \"FILENAME\""));
        QCOMPARE(otherPreferencesData.psViewerPath, QString("gv"));
        QCOMPARE(otherPreferencesData.compoundEditViewMode, 12);
        QVERIFY(!epsViewPreferencesData.generatePreview);
        QCOMPARE(epsViewPreferencesData.previewFileType, QString("pngmono"));
        QCOMPARE(epsViewPreferencesData.previewResolution, 300);
        QVERIFY(!texViewPreferencesData.renderSpecialText);
        QCOMPARE(texViewPreferencesData.latexCommand, QString("l"));
        QCOMPARE(texViewPreferencesData.dvipsCommand, QString("d"));
        QCOMPARE(texViewPreferencesData.tempDir, QString("/t"));
        QVERIFY(!texViewPreferencesData.useDefaultTempDir);
        QCOMPARE(texViewPreferencesData.documentFrame, QString("a\r\nb"));
        QCOMPARE(environmentPreferencesData.additionalPath, QString("/p"));
        QCOMPARE(environmentPreferencesData.fileEncoding, QString("UTF-8"));
        QVERIFY(gridPreferences.gridOn && gridPreferences.snapUsingLineWidth);
        QCOMPARE(gridPreferences.gridIndex, 5);
        QCOMPARE(gridPreferences.magnetMode, 1);
        QCOMPARE(gridPreferences.snapMode, 3);
        QVERIFY(!gridPreferences.metric && !gridPreferences.fontBase72dpi);
        QCOMPARE(gridPreferences.backgroundColour, QColor("#102030"));
        QCOMPARE(gridPreferences.gridColour, QColor("#405060"));
        QVERIFY(!gridPreferences.horzRuler && !gridPreferences.vertRuler);
        QCOMPARE(gridPreferences.dpiAtZoom100, 2);
        QCOMPARE(exportPreferences.documentFrame, QString("x\ny\r\n"));
        QCOMPARE(librarySettings.rootDirectory, QString("/l"));
        QVERIFY(librarySettings.renderLatex);
    }

    void allKeysAreStoredUnderTheirNames()
    {
        writeSettings();
        // "custom grids" and the two that nobody reads stand beside those of the records.
        const QStringList expected = {"3.2",
                                      "additional path",
                                      "antialiasing",
                                      "background colour",
                                      "comment tool tip delay",
                                      "compound edit view mode",
                                      "coordinate unit",
                                      "custom grids",
                                      "dpi at zoom 100%",
                                      "dvips command",
                                      "eps preview file type",
                                      "eps preview resolution",
                                      "export tex document frame",
                                      "file encoding",
                                      "font base 72dpi",
                                      "generate eps preview",
                                      "grid colour",
                                      "grid index",
                                      "grid on",
                                      "horz ruler",
                                      "latex command",
                                      "library root directory",
                                      "magnet mode",
                                      "metric",
                                      "pdf viewer path",
                                      "ps viewer path",
                                      "render latex in libraries",
                                      "render special text using tex",
                                      "show comments as tooltips",
                                      "snap mode",
                                      "snap to grid using line width",
                                      "special text tex document frame",
                                      "temp dir",
                                      "use default temp dir",
                                      "version",
                                      "vert ruler",
                                      "widget style"};
        QCOMPARE(QSettings("Orvalt", "Orvalt").allKeys(), expected);
        QCOMPARE(stored("3.2").toString(), QString("3.2"));
        QCOMPARE(stored("version").toString(), QString("7.4"));
        QVERIFY(QFile::exists(storeFile()));
    }

    void theGhostscriptCommandIsAlwaysSet()
    {
        otherPreferencesData.gsCommand = "other";
        readSettings();
        QCOMPARE(otherPreferencesData.gsCommand, QString("gs"));
    }

    void anUnusableNumberGivesTheDefault()
    {
        store("eps preview resolution", "many");
        store("grid colour", "grey");
        store("grid index", "x");
        readSettings();
        QCOMPARE(epsViewPreferencesData.previewResolution, 96);
        QCOMPARE(gridPreferences.gridColour, QColor("#dcdcdc"));
        QCOMPARE(gridPreferences.gridIndex, 2);
    }

    // --- grid -----------------------------------------------------------------------

    void aGridIndexBeyondTheTableShowsNoGrid_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("expected");
        QTest::newRow("last") << 6 << 6;
        QTest::newRow("first beyond") << 7 << 0;
        QTest::newRow("99") << 99 << 0;
        QTest::newRow("negative") << -1 << 0;
    }

    void aGridIndexBeyondTheTableShowsNoGrid()
    {
        QFETCH(int, index);
        QFETCH(int, expected);
        store("grid on", true);
        store("grid index", index);
        readSettings();
        QCOMPARE(gridPreferences.gridIndex, expected);
        QCOMPARE(gridPreferences.gridOn, expected != 0);
    }

    void aCustomGridMayBeTheIndex()
    {
        store("custom grids", QString(twoGrids));
        store("grid index", 8);
        readSettings();
        QCOMPARE(gridPreferences.gridIndex, 8);
    }

    void theMagnetModeIsAtMostFour()
    {
        store("magnet mode", 9);
        readSettings();
        QCOMPARE(gridPreferences.magnetMode, 4);
    }

    void theSnapModeIsReadFromItsWords_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<int>("mode");
        QTest::newRow("both") << QByteArray("\"GRID, VERTEX\"") << 3;
        QTest::newRow("both as a list") << QByteArray("GRID, VERTEX") << 3;
        QTest::newRow("vertex") << QByteArray("VERTEX") << 2;
        QTest::newRow("grid") << QByteArray("GRID") << 1;
        QTest::newRow("blank between") << QByteArray("VERTEX GRID") << 3;
        QTest::newRow("none") << QByteArray() << 0;
        QTest::newRow("part of a word") << QByteArray("GRIDS") << 0;
    }

    void theSnapModeIsReadFromItsWords()
    {
        QFETCH(QByteArray, line);
        writeStore("snap%20mode=" + line + "\n");
        gridPreferences.snapMode = 1;
        readSettings();
        QTEST(gridPreferences.snapMode, "mode");
    }

    void theSnapModeIsWrittenInWords_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("words");
        QTest::newRow("0") << 0 << "";
        QTest::newRow("1") << 1 << "GRID";
        QTest::newRow("2") << 2 << "VERTEX";
        QTest::newRow("3") << 3 << "GRID, VERTEX";
    }

    void theSnapModeIsWrittenInWords()
    {
        QFETCH(int, mode);
        gridPreferences.snapMode = mode;
        writeSettings();
        QTEST(stored("snap mode").toString(), "words");
    }

    void theDpiModeIsAName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("mode");
        QTest::newRow("FIG") << "FIG dpi" << 0;
        QTest::newRow("screen") << "screen dpi" << 1;
        QTest::newRow("font") << "font dpi" << 2;
        QTest::newRow("another text leaves the value") << "FIG" << 1;
    }

    void theDpiModeIsAName()
    {
        QFETCH(QString, name);
        QFETCH(int, mode);
        gridPreferences.dpiAtZoom100 = 1;
        store("dpi at zoom 100%", name);
        readSettings();
        QCOMPARE(gridPreferences.dpiAtZoom100, mode);
        writeSettings();
        QCOMPARE(stored("dpi at zoom 100%").toString(), name == "FIG" ? "screen dpi" : name);
    }

    void coloursAreStoredAsNumbers()
    {
        gridPreferences.gridColour = QColor("#0000ff");
        writeSettings();
        QCOMPARE(stored("grid colour").toLongLong(), 0xff0000ffLL);
        store("background colour", "255");
        readSettings();
        QCOMPARE(gridPreferences.backgroundColour, QColor("#0000ff"));
    }

    // --- custom grids ---------------------------------------------------------------

    void customGridsStandBehindTheBuiltinOnes()
    {
        store("custom grids", QString(twoGrids));
        readSettings();
        QCOMPARE(gridDefinitions.size(), 9);
        const GridDefinition& fine = *gridDefinitions[7];
        QCOMPARE(fine.name, QString("Fine"));
        QCOMPARE(fine.statusTip, QString("0.1 %1"));
        QCOMPARE(fine.stepSize, 0.25f);
        QCOMPARE(fine.stepMetric, 472.440944 * 0.25);
        QCOMPARE(fine.stepImperial, 300.0);
        QCOMPARE(fine.halfMetric, 472.440944 * 0.125);
        QCOMPARE(fine.halfImperial, 150.0);
        QCOMPARE(fine.color, QColor("#0000ff"));
        QCOMPARE(fine.penStyle, int(Qt::DashLine));
        QCOMPARE(fine.icon, QString(":/grid/images/grid/grid_custom.png"));
    }

    void aStepOfZeroIsTakenForOneAndABadColourForGray()
    {
        store("custom grids", QString(twoGrids));
        readSettings();
        QCOMPARE(gridDefinitions[8]->stepSize, 1.0f);
        QCOMPARE(gridDefinitions[8]->stepImperial, 1200.0);
        QCOMPARE(gridDefinitions[8]->color, QColor(Qt::gray));
    }

    void textThatIsNoArrayLeavesTheListAsItIs_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << "";
        QTest::newRow("object") << "{\"NAME\":\"x\"}";
        QTest::newRow("broken") << "[{\"NAME\":";
    }

    void textThatIsNoArrayLeavesTheListAsItIs()
    {
        QFETCH(QString, text);
        gridDefinitions.append(makeGridDefinition("Mine", "", 1, Qt::red, 1, ""));
        store("custom grids", text);
        readSettings();
        QCOMPARE(gridDefinitions.size(), 8);
        QCOMPARE(gridDefinitions[7]->name, QString("Mine"));
    }

    void customGridsComeBackAsTheyWereWritten()
    {
        gridDefinitions.append(makeGridDefinition("Ä, \"b\"", "tip", 0.1f, Qt::red, 4, "icon"));
        writeSettings();
        resetRecords();
        readSettings();
        readSettings(); // twice: they are not added a second time
        QCOMPARE(gridDefinitions.size(), 8);
        QCOMPARE(gridDefinitions[7]->name, QString("Ä, \"b\""));
        QCOMPARE(gridDefinitions[7]->statusTip, QString("tip"));
        QCOMPARE(gridDefinitions[7]->stepSize, 0.1f);
        QCOMPARE(gridDefinitions[7]->color, QColor(Qt::red));
        QCOMPARE(gridDefinitions[7]->penStyle, 4);
    }

    // --- version --------------------------------------------------------------------

    void theVersionIsMajorDotMinor()
    {
        QCOMPARE(getOrvaltVersionString(false), QString("7.4"));
        QCOMPARE(getOrvaltVersionString(true), QString("7.4"));
        QCOMPARE(QString(ORVALT_DATE), QString("2017-08-27"));
    }

    void aFirstRunIsNoUpgrade()
    {
        readSettings();
        QCOMPARE(lastInstalledVersion, QString("7.4"));
        QVERIFY(!isOrvaltUpgrade);
    }

    void theLastVersionDecidesOnAnUpgrade_data()
    {
        QTest::addColumn<QString>("version");
        QTest::addColumn<float>("major");
        QTest::addColumn<float>("minor");
        QTest::addColumn<float>("whole");
        QTest::addColumn<bool>("upgrade");
        QTest::newRow("older major") << "4.61" << 4.0f << 61.0f << 4.61f << true;
        QTest::newRow("with a text") << "6.2 beta" << 6.0f << 20.0f << 6.2f << true;
        // The old minor version counts in tenths, the present one does not.
        QTest::newRow("7.3 is no upgrade") << "7.3" << 7.0f << 30.0f << 7.3f << false;
        QTest::newRow("7.0 is one") << "7.0" << 7.0f << 0.0f << 7.0f << true;
        QTest::newRow("without minor") << "7" << 7.0f << 0.0f << 7.0f << true;
        QTest::newRow("newer") << "8.1" << 8.0f << 10.0f << 8.1f << false;
    }

    void theLastVersionDecidesOnAnUpgrade()
    {
        QFETCH(QString, version);
        store("version", version);
        readSettings();
        QCOMPARE(lastInstalledVersion, version);
        QTEST(oldMajorVersion, "major");
        QTEST(oldMinorVersion, "minor");
        QTEST(oldOrvaltVersion, "whole");
        QTEST(isOrvaltUpgrade, "upgrade");
    }

    // --- key and value lines ----------------------------------------------------------

    void linesAreSplitAtTheirFirstEqualsSign()
    {
        QStringList lines = {"a=1", "b = x=y ", "no sign", "=empty key", "last="};
        QMap<QString, QString> map;
        getKeyValueMap(lines, &map);
        QCOMPARE(map, (QMap<QString, QString>{
                          {"a", "1"}, {"b ", " x=y "}, {"", "empty key"}, {"last", ""}}));
    }
};

QTEST_GUILESS_MAIN(TestSettings)
#include "test_settings.moc"
