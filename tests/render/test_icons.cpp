#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

// The whole test runs on a screen twice as dense: icons have to find their sharper partner there.

namespace {

constexpr int SIDE = 24;
constexpr int DENSITY = 2;

struct Group {
    const char* folder;
    QStringList names;
};

const QList<Group>& groups()
{
    static const QList<Group> list = {
        {"actions",
         QString("new open save save_as export export_again close properties exit undo redo cut "
                 "copy paste select_all smart_links preferences metrics library console palette "
                 "layers zoom_in zoom_out zoom_selection zoom_selection_revert align_left "
                 "align_top align_right align_bottom align_center_h align_center_v "
                 "align_center_hv compound_create compound_break compound_open compound_close "
                 "convert about about_qt tile cascade next previous clear_log")
             .split(' ')},
        {"constraints",
         QString("unconstraint mounthattan manhattan mountain latex_arrow latex_line").split(' ')},
        {"grid", QString("grid_none grid_small grid_medium grid_large grid_iso_small "
                         "grid_iso_medium grid_iso_large grid_custom magnet")
                     .split(' ')},
        {"diverse", QString("play refresh comment comment_filled").split(' ')},
    };
    return list;
}

QString resource(const QString& folder, const QString& name)
{
    return QString(":/%1/images/%1/%2.png").arg(folder, name);
}

QString densePartner(QString file)
{
    return file.replace(".png", "@2x.png");
}

QStringList allIcons()
{
    QStringList files;
    for (const Group& group : groups()) {
        for (const QString& name : group.names)
            files.append(resource(group.folder, name));
    }
    return files;
}

QImage load(const QString& file)
{
    return QImage(file).convertToFormat(QImage::Format_ARGB32);
}

int alpha(const QImage& image, int x, int y)
{
    return qAlpha(image.pixel(x, y));
}

/// How many pixels are more than half covered.
int paintedPixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += alpha(image, x, y) > 127;
    }
    return count;
}

bool hasTransparentCorners(const QImage& image)
{
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    return alpha(image, 0, 0) == 0 && alpha(image, right, 0) == 0 && alpha(image, 0, bottom) == 0 &&
           alpha(image, right, bottom) == 0;
}

QImage onWhite(const QImage& image)
{
    QImage ground(image.size(), QImage::Format_RGB32);
    ground.fill(Qt::white);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            const int rest = 255 * (255 - qAlpha(pixel));
            ground.setPixel(x, y,
                            qRgb((qRed(pixel) * qAlpha(pixel) + rest) / 255,
                                 (qGreen(pixel) * qAlpha(pixel) + rest) / 255,
                                 (qBlue(pixel) * qAlpha(pixel) + rest) / 255));
        }
    }
    return ground;
}

/// Mean difference of the channels (0 to 255) between a picture and its finer one on white, where
/// a plain pixel should be the mean of its four fine ones.
double meanDifference(const QImage& plain, const QImage& dense)
{
    const QImage coarse = onWhite(plain);
    const QImage fine = onWhite(dense);
    double sum = 0;
    for (int y = 0; y < coarse.height(); ++y) {
        for (int x = 0; x < coarse.width(); ++x) {
            int red = 0, green = 0, blue = 0;
            for (int part = 0; part < 4; ++part) {
                const QRgb pixel = fine.pixel(2 * x + part % 2, 2 * y + part / 2);
                red += qRed(pixel);
                green += qGreen(pixel);
                blue += qBlue(pixel);
            }
            const QRgb pixel = coarse.pixel(x, y);
            sum += qAbs(qRed(pixel) - red / 4.0) + qAbs(qGreen(pixel) - green / 4.0) +
                   qAbs(qBlue(pixel) - blue / 4.0);
        }
    }
    return sum / (3 * coarse.width() * coarse.height());
}

/// How many pixels an eye could tell apart on a white ground.
int differingPixels(const QImage& one, const QImage& other)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            const int difference = qMax(qMax(qAbs(qRed(a) - qRed(b)), qAbs(qGreen(a) - qGreen(b))),
                                        qAbs(qBlue(a) - qBlue(b)));
            count += difference > 48;
        }
    }
    return count;
}

void addIconRows()
{
    QTest::addColumn<QString>("file");
    const QStringList files = allIcons();
    for (const QString& file : files)
        QTest::newRow(qPrintable(QFileInfo(file).baseName())) << file;
}

QByteArray content(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestIcons : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(qApp->devicePixelRatio(), qreal(DENSITY)); }

    void everyIconHasItsSizeAndATransparentGround_data() { addIconRows(); }

    void everyIconHasItsSizeAndATransparentGround()
    {
        QFETCH(QString, file);
        const QImage plain = load(file);
        const QImage dense = load(densePartner(file));
        QCOMPARE(plain.size(), QSize(SIDE, SIDE));
        QCOMPARE(dense.size(), QSize(2 * SIDE, 2 * SIDE));
        QVERIFY(hasTransparentCorners(plain));
        QVERIFY(hasTransparentCorners(dense));
    }

    void noIconIsBlank_data() { addIconRows(); }

    // The lightest drawing, four rays around a point, inks a seventh of its square.
    void noIconIsBlank()
    {
        QFETCH(QString, file);
        QVERIFY(paintedPixels(load(file)) >= SIDE * SIDE / 8);
        QVERIFY(paintedPixels(load(densePartner(file))) >= 4 * SIDE * SIDE / 8);
    }

    void bothDensitiesShowTheSameDrawing_data() { addIconRows(); }

    // The two icons most alike, both zooms, are further apart: a plus against a minus is 2.9.
    void bothDensitiesShowTheSameDrawing()
    {
        QFETCH(QString, file);
        const double difference = meanDifference(load(file), load(densePartner(file)));
        QVERIFY2(difference < 1.5, qPrintable(QString::number(difference)));
    }

    void aDenseScreenGetsTheDensePicture_data() { addIconRows(); }

    void aDenseScreenGetsTheDensePicture()
    {
        QFETCH(QString, file);
        const QPixmap shown = QIcon(file).pixmap(SIDE, SIDE);
        QCOMPARE(shown.devicePixelRatio(), qreal(DENSITY));
        // Compared as screens keep them: colours multiplied by the coverage.
        const auto format = QImage::Format_ARGB32_Premultiplied;
        QCOMPARE(shown.toImage().convertToFormat(format),
                 QImage(densePartner(file)).convertToFormat(format));
    }

    void noTwoIconsLookTheSame()
    {
        const QStringList files = allIcons();
        QList<QImage> pictures;
        for (const QString& file : files)
            pictures.append(onWhite(load(file)));
        for (int one = 0; one < files.size(); ++one) {
            for (int other = 0; other < one; ++other) {
                const int difference = differingPixels(pictures.at(one), pictures.at(other));
                QVERIFY2(difference >= 8, qPrintable(files.at(one) + ' ' + files.at(other) + ' ' +
                                                     QString::number(difference)));
            }
        }
    }

    void everyPictureOfAGroupIsNamedHere()
    {
        for (const Group& group : groups()) {
            QStringList expected;
            for (const QString& name : group.names)
                expected << name + ".png" << name + "@2x.png";
            expected.sort();
            const QDir folder(QString(":/%1/images/%1").arg(group.folder));
            QStringList found = folder.entryList(QDir::Files);
            found.sort();
            QCOMPARE(found, expected);
        }
    }

    void theApplicationIconComesInEverySize_data()
    {
        QTest::addColumn<int>("side");
        for (int side : {16, 24, 32, 48, 64, 128, 256})
            QTest::addRow("%d", side) << side;
    }

    // A filled page: more than half of the square is painted.
    void theApplicationIconComesInEverySize()
    {
        QFETCH(int, side);
        const QString file = resource("app", QString("orvalt_%1").arg(side));
        const QImage plain = load(file);
        const QImage dense = load(densePartner(file));
        QCOMPARE(plain.size(), QSize(side, side));
        QCOMPARE(dense.size(), QSize(2 * side, 2 * side));
        QVERIFY(hasTransparentCorners(plain));
        QVERIFY(hasTransparentCorners(dense));
        QVERIFY(paintedPixels(plain) > side * side / 2);
        QVERIFY(meanDifference(plain, dense) < 1.5);
    }

    void theSourcesAreWhatTheScriptDraws()
    {
        const QString python = QStandardPaths::findExecutable("python3");
        if (python.isEmpty())
            QSKIP("python3 is missing");
        const QDir images(ORVALT_SOURCE_DIR "/resources/images");
        QTemporaryDir scratch;
        QVERIFY(QFile::copy(images.filePath("make_icons.py"), scratch.filePath("make_icons.py")));
        QCOMPARE(QProcess::execute(python, {scratch.filePath("make_icons.py")}), 0);
        for (const char* group : {"actions", "constraints", "grid", "diverse", "app"}) {
            const QDir drawn(scratch.filePath(group));
            const QDir kept(images.filePath(group));
            QCOMPARE(drawn.entryList(QDir::Files), kept.entryList({"*.svg"}, QDir::Files));
            const QStringList names = drawn.entryList(QDir::Files);
            for (const QString& name : names)
                QCOMPARE(content(kept.filePath(name)), content(drawn.filePath(name)));
        }
    }
};

int main(int argc, char** argv)
{
    qputenv("QT_SCALE_FACTOR", QByteArray::number(DENSITY));
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication application(argc, argv);
    TestIcons test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_icons.moc"
