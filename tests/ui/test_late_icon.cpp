// Icons that read their file late look as those of Qt itself, on plain and on dense screens.
#include "ui/LateIcon.h"

#include <QApplication>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Two device pixels per pixel; counts only where icons reckon with dense screens.
const bool isDense = qputenv("QT_SCALE_FACTOR", "2");

const char* const UNDO = ":/actions/images/actions/undo.png";

QImage painted(const QIcon& icon, QRect place, QIcon::Mode mode)
{
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::white);
    QPainter painter(&image);
    icon.paint(&painter, place, Qt::AlignCenter, mode);
    return image;
}

bool write(const QString& name, const QColor& color, int side)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(color);
    return image.save(name);
}

} // namespace

class TestLateIcon : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(isDense);
        QCOMPARE(qApp->devicePixelRatio(), 2.0);
        QVERIFY(folder.isValid());
    }

    void cleanup() { QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, false); }

    void itLooksLikeAnIconOfQt_data()
    {
        QTest::addColumn<bool>("dense");
        QTest::addColumn<QString>("name");
        for (const bool dense : {false, true})
            for (const char* name :
                 {UNDO, ":/arrows/images/arrows/forw3.png",
                  ":/lineStyles/images/lineStyles/dashed.png", ":/grid/images/grid/magnet.png"})
                QTest::addRow("%s %s", dense ? "dense" : "plain", name) << dense << QString(name);
    }

    void itLooksLikeAnIconOfQt()
    {
        QFETCH(bool, dense);
        QFETCH(QString, name);
        QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, dense);
        const QIcon late = lateIcon(name);
        const QIcon plain(name);
        QVERIFY(!plain.isNull() && !late.isNull());
        QCOMPARE(late.availableSizes(), plain.availableSizes());
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled, QIcon::Selected})
            for (const int side : {7, 16, 20, 24, 32, 64}) {
                const QPixmap pixmap = late.pixmap(QSize(side, side), mode);
                const QPixmap expected = plain.pixmap(QSize(side, side), mode);
                QVERIFY(!pixmap.isNull());
                QCOMPARE(pixmap.devicePixelRatio(), expected.devicePixelRatio());
                QCOMPARE(pixmap.toImage(), expected.toImage());
                QCOMPARE(late.actualSize(QSize(side, side), mode),
                         plain.actualSize(QSize(side, side), mode));
                const QRect place(3, 2, side, side);
                QCOMPARE(painted(late, place, mode), painted(plain, place, mode));
            }
    }

    void itIsNullWithoutAFile()
    {
        QVERIFY(lateIcon(":/actions/images/actions/no_such.png").isNull());
        QVERIFY(lateIcon(QString()).isNull());
        QVERIFY(lateIcon(":/actions/images/actions/no_such.png").pixmap(24).isNull());
        QVERIFY(!lateIcon(UNDO).isNull());
    }

    void theFileIsReadWhenTheIconIsFirstDrawn()
    {
        const QString name = folder.filePath("late.png");
        QVERIFY(write(name, Qt::red, 24));
        const QIcon icon = lateIcon(name);
        QVERIFY(!icon.isNull());
        QVERIFY(write(name, Qt::green, 24));
        QCOMPARE(icon.pixmap(24).toImage().pixelColor(5, 5), QColor(Qt::green));
        QVERIFY(write(name, Qt::blue, 24));
        QCOMPARE(icon.pixmap(24).toImage().pixelColor(5, 5), QColor(Qt::green));
    }

    void aCopyOfItCanBeChanged()
    {
        const QIcon icon = lateIcon(UNDO);
        QIcon copy = icon;
        copy.detach();
        QCOMPARE(copy.pixmap(24).toImage(), icon.pixmap(24).toImage());
    }

    void ofSeveralSizesTheSmallestThatSufficesIsTaken_data()
    {
        QTest::addColumn<bool>("dense");
        QTest::newRow("plain") << false;
        QTest::newRow("dense") << true;
    }

    void ofSeveralSizesTheSmallestThatSufficesIsTaken()
    {
        QFETCH(bool, dense);
        QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, dense);
        const QMap<int, QColor> colors = {{16, Qt::red}, {32, Qt::green}, {48, Qt::blue}};
        for (auto color = colors.cbegin(); color != colors.cend(); ++color)
            QVERIFY(
                write(folder.filePath(QString("of_%1.png").arg(color.key())), *color, color.key()));
        const QIcon icon = lateIcon(folder.filePath("of_%1.png"), {16, 32, 48});
        QCOMPARE(icon.availableSizes(), QList<QSize>({{16, 16}, {32, 32}, {48, 48}}));
        const QMap<int, QColor> expected = {{8, Qt::red},    {16, Qt::red},  {17, Qt::green},
                                            {32, Qt::green}, {33, Qt::blue}, {48, Qt::blue},
                                            {64, Qt::blue}};
        for (auto wanted = expected.cbegin(); wanted != expected.cend(); ++wanted) {
            if (dense && wanted.key() % 2 != 0)
                continue; // no whole number of pixels
            const int side = dense ? wanted.key() / 2 : wanted.key();
            const QImage image = icon.pixmap(side).toImage();
            QCOMPARE(image.pixelColor(2, 2), *wanted);
            QCOMPARE(image.width(), std::min(wanted.key(), 48));
        }
    }

    void aMissingSizeIsNoReasonToFail()
    {
        const QIcon icon = lateIcon(folder.filePath("none_%1.png"), {16, 32});
        QVERIFY(icon.isNull());
        QVERIFY(icon.pixmap(16).isNull());
    }

private:
    QTemporaryDir folder;
};

QTEST_MAIN(TestLateIcon)
#include "test_late_icon.moc"
