#include "fileio/f_read.h"
#include "fileio/stream_fields.h"

#include <QBuffer>
#include <QtTest>

#include <cstring>
#include <random>

namespace {

using Random = std::mt19937;

int below(Random& random, int limit)
{
    return static_cast<int>(random() % static_cast<unsigned>(limit));
}

/// Pieces that damaged files are made of; glued together with and without blanks.
const QStringList pieces = {"0",
                            "1",
                            "7",
                            "8",
                            "9",
                            "08",
                            "010",
                            "0779",
                            "0x20",
                            "0x",
                            "0X1f",
                            "0xg",
                            "0b101",
                            "0B2",
                            "0b",
                            "00x5",
                            "-",
                            "+",
                            "--5",
                            "+-5",
                            "-0x10",
                            "-010",
                            "3.5",
                            "1e5",
                            "1e",
                            "1e+",
                            "1e-5",
                            "1E+05",
                            ".5",
                            "5.",
                            "-.5",
                            ".",
                            "1..5",
                            "nan",
                            "NaN",
                            "-nan",
                            "inf",
                            "-Inf",
                            "in",
                            "na",
                            "infinity",
                            "1e400",
                            "1e-400",
                            "4e-324",
                            "1e39",
                            "0e500",
                            "-0.0",
                            "-0",
                            "abc",
                            "#ff",
                            ",",
                            "1,234",
                            "12,5",
                            "e",
                            "E",
                            "x",
                            "0E5",
                            "0A",
                            "0INF",
                            "_",
                            "2147483647",
                            "2147483648",
                            "-2147483648",
                            "-2147483649",
                            "4294967296",
                            "9223372036854775807",
                            "9223372036854775808",
                            "-9223372036854775809",
                            "99999999999999999999999",
                            "-99999999999999999999999",
                            "0777777777777777777777777",
                            "0xfffffffffffffffff",
                            "123456789012345",
                            "1234567890123456",
                            "0.000000000000001",
                            "1234567.12345678",
                            "12345678.1234567",
                            "179769313486231580793728971405301e276"};

QString oddCharacter(Random& random)
{
    // Blanks and digits of other scripts, a character 0, letters whose small form is ASCII.
    static const ushort codes[] = {0x00a0, 0x2003, 0x0085, 0x000b, 0x001c, 0x0000, 0x0663, 0x00b2,
                                   0x212a, 0x0130, 0x00c9, 0xff11, 0xff21, 0x2212, 0xd800, 0xfeff};
    return QString(QChar(codes[below(random, int(sizeof codes / sizeof *codes))]));
}

QString longNumber(Random& random)
{
    const int length = 118 + below(random, 12);
    QString digits(length, QLatin1Char("0179"[below(random, 4)]));
    if (below(random, 2))
        digits.insert(below(random, length), QLatin1Char('.'));
    if (below(random, 2))
        digits.insert(below(random, length), QLatin1Char('e'));
    return below(random, 3) ? digits : "-" + digits;
}

QString randomCharacters(Random& random)
{
    static const char alphabet[] = "0123456789 +-.eExXbBinfaNAIF,#\t";
    QString text;
    for (int i = below(random, 12); i > 0; --i)
        text += QLatin1Char(alphabet[below(random, int(sizeof alphabet - 1))]);
    return text;
}

QString randomPiece(Random& random)
{
    switch (below(random, 16)) {
    case 0:
        return oddCharacter(random);
    case 1:
        return below(random, 8) ? randomCharacters(random) : longNumber(random);
    case 2:
        return QString::number(static_cast<int>(random()));
    case 3:
        return QString::number(static_cast<int>(random()) / 1e6, 'g', 1 + below(random, 17));
    case 4:
        return randomCharacters(random);
    default:
        return pieces.at(below(random, pieces.size()));
    }
}

QString randomLine(Random& random)
{
    QString line;
    for (int i = 1 + below(random, 12); i > 0; --i) {
        line += randomPiece(random);
        if (below(random, 4))
            line += QLatin1Char(" \t\n "[below(random, 4)]);
    }
    return line;
}

enum Field { Integer, Unsigned, UnsignedLong, Double, Float };

template <typename Value> QByteArray bytesOf(Value value)
{
    return QByteArray(reinterpret_cast<const char*>(&value), sizeof value).toHex();
}

template <typename Value> QByteArray fromStream(QTextStream& stream)
{
    Value value = 7;
    stream >> value;
    return bytesOf(value);
}

QByteArray readField(QTextStream& stream, Field field)
{
    switch (field) {
    case Integer:
        return fromStream<int>(stream);
    case Unsigned:
        return fromStream<unsigned>(stream);
    case UnsignedLong:
        return fromStream<unsigned long>(stream);
    case Double:
        return fromStream<double>(stream);
    default:
        return fromStream<float>(stream);
    }
}

QByteArray readField(NumberScanner& scanner, Field field)
{
    switch (field) {
    case Integer:
        return bytesOf(scanner.integer());
    case Unsigned:
        return bytesOf(scanner.unsignedInteger());
    case UnsignedLong:
        return bytesOf(scanner.unsignedLong());
    case Double:
        return bytesOf(scanner.real());
    default:
        return bytesOf(scanner.singleReal());
    }
}

/// Values as bytes, status after each field, and what is left at the end.
QStringList answersOfStream(QString line, const QVector<Field>& fields)
{
    OrvaltTextStream stream(&line);
    QStringList answers;
    for (Field field : fields) {
        const QByteArray value = readField(stream, field);
        answers.append(QString("%1 %2").arg(QString::fromLatin1(value)).arg(stream.status()));
    }
    answers.append(stream.readAll());
    return answers;
}

QStringList answersOfScanner(const QString& line, const QVector<Field>& fields)
{
    NumberScanner scanner(line);
    QStringList answers;
    for (Field field : fields) {
        const QByteArray value = readField(scanner, field);
        answers.append(QString("%1 %2").arg(QString::fromLatin1(value)).arg(scanner.status()));
    }
    answers.append(scanner.rest());
    return answers;
}

QVector<Field> randomFields(Random& random)
{
    QVector<Field> fields;
    // Mostly runs of one kind, as in records.
    for (int i = 1 + below(random, 16); i > 0; --i)
        fields.append(below(random, 3) ? Integer : static_cast<Field>(below(random, 5)));
    return fields;
}

/// The lines of a stream as StreamFields reads them: numbers, a line, numbers.
QStringList fieldsOf(QTextStream& stream)
{
    QStringList answers;
    {
        StreamFields fields(stream);
        for (int i = 0; i < 4; ++i)
            answers.append(QString::number(fields.integer()));
        for (int i = 0; i < 2; ++i)
            answers.append(QString::fromLatin1(bytesOf(fields.real())));
        answers.append(fields.restOfLine());
        answers.append(QString::number(fields.integer()));
        answers.append(QString::number(fields.failed()));
    }
    answers.append(stream.readAll());
    return answers;
}

/// Line ends and what may be taken for them.
QString randomText(Random& random)
{
    static const QStringList parts = {"\n", "\n",    "\r\n",   "\r", "\r\r\n", " ",
                                      "a",  "12 ab", "\u2028", "\f", "\v"};
    QString text;
    for (int i = below(random, 12); i > 0; --i)
        text += below(random, 12) ? parts.at(below(random, parts.size())) : QString(QChar(0));
    return text;
}

/// All lines and, for each, whether the stream is at its end then.
QStringList linesTaken(QString text)
{
    OrvaltTextStream stream(&text);
    QStringList lines;
    QString line;
    do {
        takeLine(stream, &line);
        lines.append(QString(line.constData(), line.size()) + (stream.atEnd() ? "$" : ""));
    } while (!stream.atEnd());
    return lines;
}

QStringList linesOfStream(QString text)
{
    OrvaltTextStream stream(&text);
    QStringList lines;
    do {
        const QString line = stream.readLine();
        lines.append(line + (stream.atEnd() ? "$" : ""));
    } while (!stream.atEnd());
    return lines;
}

} // namespace

class TestNumberScanner : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    // The stream itself is the reference: values, status after each field, and the rest.
    void damagedLinesReadAsByAStream()
    {
        const unsigned seed = 20240611;
        Random random(seed);
        for (int i = 0; i < 60000; ++i) {
            const QString line = randomLine(random);
            const QVector<Field> fields = randomFields(random);
            const QStringList expected = answersOfStream(line, fields);
            const QStringList found = answersOfScanner(line, fields);
            if (found != expected)
                QFAIL(qPrintable(QString("seed %1, line %2: \"%3\"\n%4\n%5")
                                     .arg(seed)
                                     .arg(i)
                                     .arg(line, expected.join(" | "), found.join(" | "))));
        }
    }

    void everyPieceReadsAsByAStreamInEveryKindOfField()
    {
        for (const QString& piece : pieces)
            for (Field field : {Integer, Unsigned, UnsignedLong, Double, Float}) {
                const QString line = piece + " 3 4";
                const QVector<Field> fields(4, field);
                QCOMPARE(answersOfScanner(line, fields), answersOfStream(line, fields));
            }
    }

    // A stream keeps 124 characters of a real number and passes over the digits behind them, those
    // of other scripts too.
    void longNumbersReadAsByAStream()
    {
        const QString arabicDigit = QString(QChar(0x663));
        for (int length = 120; length <= 130; ++length)
            for (const QString& end : {QString(), QString(".5"), QString("e5"), QString("e+5"),
                                       arabicDigit + "5", QString("x")})
                for (const QString& start : {QString(), QString("-"), QString("0.")}) {
                    const QString line = start + QString(length, '1') + end + " 7 8";
                    const QVector<Field> fields(3, Double);
                    QCOMPARE(answersOfScanner(line, fields), answersOfStream(line, fields));
                }
    }

    // The same numbers through a scanned string and through the operators of a device stream.
    void fieldsOfAStreamDoNotDependOnItsKind()
    {
        Random random(77);
        for (int i = 0; i < 5000; ++i) {
            QString text;
            for (int lines = 1 + below(random, 5); lines > 0; --lines)
                text += randomLine(random) + "\n";
            // What no encoded file can hold at its start or at all.
            text.remove(QChar(0xd800)).remove(QChar(0xfeff));
            QByteArray bytes = text.toUtf8();
            QBuffer device(&bytes);
            QVERIFY(device.open(QIODevice::ReadOnly));
            OrvaltTextStream fromDevice(&device);
            fromDevice.setCodec("UTF-8");
            fromDevice.setAutoDetectUnicode(false);
            QString string = text;
            OrvaltTextStream fromString(&string);
            QCOMPARE(fieldsOf(fromString), fieldsOf(fromDevice));
        }
    }

    void integersTakeTheirBaseFromThePrefix_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("second");
        QTest::newRow("decimal") << "12 5" << 12 << 5;
        QTest::newRow("octal") << "010 5" << 8 << 5;
        QTest::newRow("no octal digit makes it decimal") << "08 5" << 8 << 5;
        QTest::newRow("hexadecimal") << "0x20 5" << 32 << 5;
        QTest::newRow("binary") << "0b101 5" << 5 << 5;
        QTest::newRow("no prefix after a sign") << "-010 5" << -10 << 5;
        QTest::newRow("plus") << "+5 5" << 5 << 5;
        QTest::newRow("overflow wraps") << "4294967298 5" << 2 << 5;
        QTest::newRow("a bad token stays") << "abc 5" << 0 << 0;
        QTest::newRow("a real number leaves its rest") << "3.5 5" << 3 << 0;
        QTest::newRow("a bare hexadecimal prefix is gone") << "0x 5" << 0 << 5;
        QTest::newRow("a bare sign is gone") << "- 5" << 0 << 5;
    }

    void integersTakeTheirBaseFromThePrefix()
    {
        QFETCH(QString, line);
        NumberScanner scanner(line);
        QTEST(scanner.integer(), "first");
        QTEST(scanner.integer(), "second");
    }

    void aRealNumberEndsWhereItCannotGoOn()
    {
        NumberScanner scanner(QString("1.5.25 inf 1,5"));
        QCOMPARE(scanner.real(), 1.5);
        QCOMPARE(scanner.real(), 0.25);
        QVERIFY(qIsInf(scanner.real()));
        QCOMPARE(scanner.real(), 1.0);
        QCOMPARE(scanner.status(), QTextStream::Ok);
        QCOMPARE(scanner.rest(), QString(",5"));
    }

    void theFirstFailureStaysInTheStatus()
    {
        NumberScanner scanner(QString("1 x"));
        scanner.integer();
        QCOMPARE(scanner.status(), QTextStream::Ok);
        scanner.integer();
        QCOMPARE(scanner.status(), QTextStream::ReadCorruptData);
        NumberScanner ended(QString("1 "));
        ended.integer();
        ended.integer();
        QCOMPARE(ended.status(), QTextStream::ReadPastEnd);
    }

    void aScannedStreamGoesOnBehindTheFields()
    {
        QString text("1 2\n3 rest of it\nnext");
        OrvaltTextStream stream(&text);
        {
            StreamFields fields(stream);
            QCOMPARE(fields.integer() + fields.integer() + fields.integer(), 6);
            QVERIFY(!fields.failed());
        }
        QCOMPARE(stream.readLine(), QString(" rest of it"));
        QCOMPARE(stream.readLine(), QString("next"));
    }

    // readLine is the reference.
    void linesEndWhereThoseOfAStreamEnd()
    {
        Random random(4711);
        for (int i = 0; i < 20000; ++i) {
            const QString text = randomText(random);
            QCOMPARE(linesTaken(text), linesOfStream(text));
        }
    }

    void aLineOfADeviceIsTakenAsWell()
    {
        QByteArray bytes("one\n\nthree");
        QBuffer device(&bytes);
        QVERIFY(device.open(QIODevice::ReadOnly));
        OrvaltTextStream stream(&device);
        QString line("before");
        for (const char* expected : {"one", "", "three", ""}) {
            takeLine(stream, &line);
            QCOMPARE(line, QString(expected));
        }
        QVERIFY(stream.atEnd());
    }

    void theWordOfAScannerDoesNotChange()
    {
        const QString line("0X1F 0A");
        NumberScanner scanner(line);
        QCOMPARE(scanner.integer(), 31);
        QCOMPARE(scanner.integer(), 0);
        QCOMPARE(line, QString("0X1F 0A"));
    }
};

QTEST_GUILESS_MAIN(TestNumberScanner)
#include "test_number_scanner.moc"
