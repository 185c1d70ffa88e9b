// Opens real figures of many makers. The expected count comes from a counter of its own, written
// from the field rules of the format alone.
#include "ReaderFixture.h"

#include <QDir>
#include <QtTest>

namespace {

/// Counts what the message after opening has to count: all objects but compounds, and within
/// compounds no splines either.
class IndependentCounter {
public:
    explicit IndependentCounter(const QByteArray& bytes) : text(bytes)
    {
        text.replace('\r', "");
        version = nextLine().split(' ').value(1).toDouble();
        // Orientation, justification, units; in the newer format paper, scale, pages, transparency;
        // then the resolution.
        for (int lines = isNew() ? 8 : 4; lines > 0; --lines)
            nextRecord();
    }

    int count()
    {
        int objects = 0;
        int level = 0;
        for (QList<QByteArray> fields = nextRecord(); !fields.isEmpty(); fields = nextRecord()) {
            const int code = fields.at(0).toInt();
            if (code == 6)
                ++level;
            else if (code == -6)
                --level;
            else if (code >= 1 && code <= 5 && passBody(code, fields) && !(code == 3 && level > 0))
                ++objects;
        }
        return objects;
    }

    bool isSupported() const { return version > 3.05; }

private:
    bool isNew() const { return version > 3.15; }

    QByteArray nextLine()
    {
        const int end = text.indexOf('\n', at);
        const QByteArray line = text.mid(at, end == -1 ? -1 : end - at);
        at = end == -1 ? text.size() : end + 1;
        return line;
    }

    /// Fields of the next line that is neither blank nor a comment; empty at the end.
    QList<QByteArray> nextRecord()
    {
        while (at < text.size()) {
            const QByteArray line = nextLine();
            if (!line.startsWith('#') && !line.trimmed().isEmpty())
                return line.simplified().split(' ');
        }
        return {};
    }

    void passNumbers(int count)
    {
        for (; count > 0; --count) {
            while (at < text.size() && isspace(static_cast<unsigned char>(text.at(at))))
                ++at;
            while (at < text.size() && !isspace(static_cast<unsigned char>(text.at(at))))
                ++at;
        }
    }

    void passArrows(const QByteArray& forward, const QByteArray& backward)
    {
        passNumbers(5 * ((forward != "0") + (backward != "0")));
    }

    /// Passes over what follows the first line. False for an object with too few points.
    bool passBody(int code, const QList<QByteArray>& fields)
    {
        const int subType = fields.value(1).toInt();
        if (code == 2) {
            passArrows(fields.value(13), fields.value(14));
            if (subType == 5) {
                passNumbers(1);
                nextLine();
            }
            const int points = fields.value(15).toInt();
            passNumbers(2 * points);
            return points >= (subType == 1 ? 1 : subType == 3 ? 3 : 5);
        }
        if (code == 3) {
            passArrows(fields.value(11), fields.value(12));
            int points = fields.value(13).toInt();
            passNumbers(2 * points);
            const bool closed = subType % 2 == 1;
            if (isNew())
                passNumbers(points);
            else if (subType == 2 || subType == 3)
                passNumbers(4 * points);
            if (!isNew() && closed)
                --points;
            return points >= (closed ? 3 : 2);
        }
        if (code == 5)
            passArrows(fields.value(12), fields.value(13));
        return true;
    }

    QByteArray text;
    int at = 0;
    double version = 0;
};

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void addFigures(const QString& folder, const QString& tag)
{
    const QDir figures(folder);
    for (const QString& name : figures.entryList({"*.fig"}, QDir::Files))
        QTest::newRow(qPrintable(tag + name)) << figures.filePath(name);
}

} // namespace

class TestRealFigures : public QObject {
    Q_OBJECT

private slots:
    void theCountIsThatOfAnIndependentCounter_data()
    {
        QTest::addColumn<QString>("path");
        addFigures(QString(ORVALT_SOURCE_DIR) + "/examples", "example ");
        if (QDir(ORVALT_FIGURES).exists())
            addFigures(ORVALT_FIGURES, "");
    }

    void theCountIsThatOfAnIndependentCounter()
    {
        QFETCH(QString, path);
        const QByteArray bytes = contentOf(path);
        IndependentCounter counter(bytes);
        OpenedFigure figure(bytes);
        QCOMPARE(figure.opened, counter.isSupported());
        if (!counter.isSupported()) {
            QCOMPARE(figure.boxes.size(), 1);
            QVERIFY(figure.boxes.first().startsWith("Export failed!: Figure is in FIG 2."));
            return;
        }
        QVERIFY(figure.count() > 0);
        QCOMPARE(figure.countInMessage(), counter.count());
    }

    // Nothing of a real figure is refused. What posts the message of a bad code are the ends of
    // compounds and, in one figure, texts in compounds that are broken before their end mark.
    void nothingOfARealFigureIsLost_data()
    {
        if (!QDir(ORVALT_FIGURES).exists())
            QSKIP("no folder of real figures here");
        QTest::addColumn<QString>("path");
        addFigures(ORVALT_FIGURES, "");
    }

    void nothingOfARealFigureIsLost()
    {
        QFETCH(QString, path);
        const QByteArray bytes = contentOf(path);
        if (!IndependentCounter(bytes).isSupported())
            return;
        int ends = 0;
        for (const QByteArray& line : bytes.split('\n'))
            ends += line.trimmed() == "-6" || line.trimmed() == "\\001";
        OpenedFigure figure(bytes);
        QCOMPARE(figure.remarks().filter("Incorrect object code").size(), ends);
    }
};

QTEST_MAIN(TestRealFigures)
#include "test_real_figures.moc"
