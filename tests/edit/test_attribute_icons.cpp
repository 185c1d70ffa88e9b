// The pictures of line styles and arrows in the resources are what the engine draws.
#include "AttributeIcons.h"
#include "EngineCanvas.h"

#include <QtTest>

class TestAttributeIcons : public QObject {
    Q_OBJECT

private slots:
    void everyIconShowsWhatWillBeDrawn()
    {
        const EngineTables tables;
        const QVector<AttributeIcon> icons = drawAttributeIcons();
        QCOMPARE(icons.size(), 2 * (6 + 1 + 2 * 29));
        QSet<QString> paths;
        for (const AttributeIcon& icon : icons) {
            paths.insert(icon.path);
            const QString group = icon.path.section('/', 0, 0);
            const QImage stored(":/" + group + "/images/" + icon.path);
            QVERIFY2(!stored.isNull(), qPrintable(icon.path));
            const QImage drawn = icon.image.convertToFormat(QImage::Format_ARGB32);
            QVERIFY2(stored.convertToFormat(QImage::Format_ARGB32) == drawn,
                     qPrintable(icon.path + ": run attricons"));
        }
        QCOMPARE(paths.size(), icons.size());
    }

    // Icons that look alike would not tell the user what is chosen.
    void noTwoIconsOfAListAreAlike()
    {
        const EngineTables tables;
        QHash<QByteArray, QString> seen;
        for (const AttributeIcon& icon : drawAttributeIcons()) {
            const QByteArray pixels(reinterpret_cast<const char*>(icon.image.constBits()),
                                    static_cast<int>(icon.image.sizeInBytes()));
            QVERIFY2(!seen.contains(pixels), qPrintable(icon.path + " is " + seen.value(pixels)));
            seen.insert(pixels, icon.path);
        }
    }
};

QTEST_MAIN(TestAttributeIcons)
#include "test_attribute_icons.moc"
