#include "ReaderFixture.h"

#include <QtTest>

namespace {

QByteArray text(const QByteArray& string, const QByteArray& size = "12",
                const QByteArray& font = "0", const QByteArray& flags = "4",
                const QByteArray& justification = "0")
{
    return "4 " + justification + " 5 60 7 " + font + " " + size + " 0.5 " + flags +
           " 135 300 1200 2400" + string + "\n";
}

FigText* readText(const QByteArray& record)
{
    static std::unique_ptr<OpenedFigure> figure;
    figure = std::make_unique<OpenedFigure>(foreignHeader + record);
    return figure->as<FigText>();
}

QStringList lastRemarks()
{
    QStringList remarks = recordingShell.messages;
    remarks.removeFirst();
    remarks.removeLast();
    return remarks;
}

} // namespace

class TestFigTexts : public QObject {
    Q_OBJECT

private slots:
    void allFieldsOfAText()
    {
        FigText* object = readText("# comment\n" + text(" Hello\\001"));
        QVERIFY(object);
        QCOMPARE(object->sub_type, 0);
        QCOMPARE(object->color, 5);
        QCOMPARE(object->depth, 60);
        QCOMPARE(object->pen_style, 7);
        QCOMPARE(object->font, 0);
        QCOMPARE(object->size, 12);
        QCOMPARE(object->angle, 0.5f);
        QCOMPARE(object->flags, 4);
        QCOMPARE(object->x, 1200);
        QCOMPARE(object->y, 2400);
        QCOMPARE(object->cstring, QString("Hello"));
        QCOMPARE(object->comments, QString("comment"));
    }

    // The numbers of the file are 300 and 135; measuring knows better.
    void lengthAndHeightAreMeasuredAnew()
    {
        FigText* empty = readText(text(" \\001"));
        QCOMPARE(empty->length, 0);
        FigText* object = readText(text(" MMMMMMMMMM\\001"));
        QVERIFY(object->length > 600);
        QVERIFY(object->ascent > 0);
    }

    void strings_data()
    {
        QTest::addColumn<QByteArray>("inFile");
        QTest::addColumn<QString>("inMemory");
        QTest::newRow("plain") << QByteArray(" a b\\001") << "a b";
        QTest::newRow("only one blank parts it") << QByteArray("  a \\001") << " a ";
        QTest::newRow("a tab parts it as well") << QByteArray("\ta\\001") << "a";
        QTest::newRow("no end mark") << QByteArray(" abc") << "abc";
        QTest::newRow("nothing at all") << QByteArray("") << "";
        QTest::newRow("escaped backslash") << QByteArray(" a\\\\b\\001") << "a\\b";
        QTest::newRow("octal") << QByteArray(" \\101\\102\\001") << "AB";
        QTest::newRow("octal of Latin-1") << QByteArray(" \\344\\001") << QString(QChar(0xe4));
        QTest::newRow("greatest octal") << QByteArray(" \\777\\001") << QString(QChar(511));
        QTest::newRow("digits that are not octal")
            << QByteArray(" a\\189b\\001") << QString("a") + QChar(0) + "b";
        QTest::newRow("too short for octal") << QByteArray(" a\\12") << "a\\12";
        QTest::newRow("other characters lose the backslash") << QByteArray(" \\a\\b\\001") << "ab";
        QTest::newRow("a trailing backslash is a character 0")
            << QByteArray(" a\\") << QString("a") + QChar(0);
        // The end marks go first, and so one backslash of two stays alone.
        QTest::newRow("end mark behind a backslash")
            << QByteArray(" a\\\\001") << QString("a") + QChar(0);
        QTest::newRow("end marks anywhere") << QByteArray(" a\\001b\\001c\\001") << "abc";
        QTest::newRow("what closes up is no end mark")
            << QByteArray(" \\0\\00101") << QString(QChar(1));
        QTest::newRow("two end marks") << QByteArray(" a\\001\\001") << "a";
        QTest::newRow("an end mark and no more") << QByteArray(" \\001") << "";
        QTest::newRow("blanks behind the end mark") << QByteArray(" a\\001 b ") << "a b ";
        QTest::newRow("Latin-1") << QByteArray(" \xe4\\001") << QString(QChar(0xe4));
    }

    void strings()
    {
        QFETCH(QByteArray, inFile);
        QTEST(readText(text(inFile))->cstring, "inMemory");
    }

    void sizes_data()
    {
        QTest::addColumn<QByteArray>("inFile");
        QTest::addColumn<int>("size");
        QTest::newRow("usual") << QByteArray("14") << 14;
        QTest::newRow("zero") << QByteArray("0") << 12;
        QTest::newRow("truncates to zero") << QByteArray("0.9") << 12;
        QTest::newRow("minus one") << QByteArray("-1") << 12;
        QTest::newRow("truncates to minus one") << QByteArray("-1.9") << 12;
        QTest::newRow("below that") << QByteArray("-2") << 1;
        QTest::newRow("one") << QByteArray("1") << 1;
        QTest::newRow("rounded") << QByteArray("10.5") << 11;
        QTest::newRow("too great") << QByteArray("600") << 500;
        QTest::newRow("infinite") << QByteArray("inf") << 500;
        QTest::newRow("not a number") << QByteArray("nan") << 12;
    }

    void sizes()
    {
        QFETCH(QByteArray, inFile);
        QTEST(readText(text(" x\\001", inFile))->size, "size");
    }

    void fonts_data()
    {
        QTest::addColumn<QByteArray>("inFile");
        QTest::addColumn<QByteArray>("flags");
        QTest::addColumn<int>("font");
        QTest::newRow("default") << QByteArray("-1") << QByteArray("4") << 0;
        QTest::newRow("last PostScript font") << QByteArray("34") << QByteArray("4") << 34;
        QTest::newRow("beyond PostScript") << QByteArray("35") << QByteArray("4") << -1;
        QTest::newRow("last LaTeX font") << QByteArray("5") << QByteArray("0") << 5;
        QTest::newRow("beyond LaTeX") << QByteArray("6") << QByteArray("0") << -1;
        QTest::newRow("flags -1 are no flags") << QByteArray("6") << QByteArray("-1") << -1;
        QTest::newRow("other negative fonts stay") << QByteArray("-5") << QByteArray("4") << -5;
    }

    void fonts()
    {
        QFETCH(QByteArray, inFile);
        QFETCH(QByteArray, flags);
        QFETCH(int, font);
        FigText* object = readText(text(" x\\001", "12", inFile, flags));
        QCOMPARE(object->font, font);
        const QString message =
            QString("Invalid text font (%1) at line 10, setting to DEFAULT.").arg(QString(inFile));
        QCOMPARE(lastRemarks(), font == -1 ? QStringList(message) : QStringList());
    }

    void aJustificationAboveTwoBecomesLeft()
    {
        QCOMPARE(readText(text(" x\\001", "12", "0", "4", "3"))->sub_type, 0);
        QCOMPARE(lastRemarks(),
                 QStringList("Invalid text justification at line 10, setting to LEFT."));
        QCOMPARE(readText(text(" x\\001", "12", "0", "4", "2"))->sub_type, 2);
        QCOMPARE(readText(text(" x\\001", "12", "0", "4", "-1"))->sub_type, -1);
        QCOMPARE(lastRemarks(), QStringList());
    }

    // Many end marks and escapes must not take more than linear time.
    void longStringsAreReadQuickly()
    {
        QElapsedTimer timer;
        timer.start();
        FigText* object = readText(text(" " + QByteArray("\\001x\\101").repeated(300000)));
        QCOMPARE(object->cstring.size(), 600000);
        QVERIFY(timer.elapsed() < 20000);
    }
};

QTEST_MAIN(TestFigTexts)
#include "test_fig_texts.moc"
