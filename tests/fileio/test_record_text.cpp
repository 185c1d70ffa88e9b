// Numbers of records against those that a stream in fixed notation writes.
#include "fileio/record_text.h"

#include <QtTest>

#include <climits>
#include <cmath>
#include <random>

namespace {

QString ours(Decimals number)
{
    QString text;
    QTextStream stream(&text);
    RecordText(stream) << number;
    stream.flush();
    return text;
}

QString theirs(Decimals number)
{
    QString text;
    QTextStream stream(&text);
    stream.setLocale(QLocale(QLocale::C, QLocale::AnyCountry));
    stream.setRealNumberNotation(QTextStream::FixedNotation);
    stream << Qt::noforcepoint;
    stream.setRealNumberPrecision(number.digits);
    stream << number.value;
    stream.flush();
    return text;
}

} // namespace

class TestRecordText : public QObject {
    Q_OBJECT

private slots:
    void decimalsAreThoseOfAStreamInFixedNotation()
    {
        constexpr unsigned seed = 20260;
        std::mt19937_64 bits(seed);
        for (int i = 0; i < 400000; ++i) {
            const int digits = 2 + static_cast<int>(bits() % 3);
            const double whole =
                static_cast<double>(static_cast<qint64>(bits() % 4000001) - 2000000);
            const double values[] = {
                whole / 10000,                   // as a file tells them
                static_cast<float>(whole / 100), // as memory holds them
                whole / 16384,                   // with ties
                whole / 2000 + 1e-9,             // next to ties
                std::ldexp(whole, static_cast<int>(bits() % 80) - 60),
            };
            for (const double value : values)
                if (ours({value, digits}) != theirs({value, digits}))
                    QFAIL(qPrintable(QString("%1 with %2 digits: %3, seed %4")
                                         .arg(value, 0, 'g', 17)
                                         .arg(digits)
                                         .arg(ours({value, digits}))
                                         .arg(seed)));
        }
    }

    void extremeNumbersAreThoseOfAStream()
    {
        for (const double value : {0.0, -0.0, -0.0001, 1e9, -1e9, 1e5, 999999.9995, 1e30, -1e300,
                                   1e-300, -1e-300, 5e-5, qInf(), -qInf(), qQNaN()})
            for (int digits = 1; digits <= 4; ++digits)
                QCOMPARE(ours({value, digits}), theirs({value, digits}));
    }

    void integersOfAllSizesAreWritten()
    {
        QString text;
        QTextStream stream(&text);
        RecordText(stream) << 0 << ' ' << INT_MIN << ' ' << INT_MAX << ' ' << LONG_MIN << ' '
                           << LONG_MAX;
        stream.flush();
        QCOMPARE(text, QString("0 -2147483648 2147483647 -9223372036854775808 "
                               "9223372036854775807"));
    }

    void nothingIsLostWhereTheBufferEnds()
    {
        QString text, expected;
        QTextStream stream(&text);
        {
            RecordText record(stream);
            for (int i = 0; i < 3000; ++i) {
                record << i << ' ' << Decimals{i / 8.0, 4} << QString("\u00fc") << "z";
                expected += QString("%1 %2\u00fcz").arg(i).arg(i / 8.0, 0, 'f', 4);
            }
        }
        stream.flush();
        QCOMPARE(text, expected);
    }
};

QTEST_GUILESS_MAIN(TestRecordText)
#include "test_record_text.moc"
