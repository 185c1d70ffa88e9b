#include "model/shell.h"

#include "RecordingShell.h"

#include <QtTest>

class TestShell : public QObject {
    Q_OBJECT

private slots:
    void init() { recordingShell.clear(); }

    void plainTextIsNoFormat()
    {
        put_msg("100 % d");
        QCOMPARE(recordingShell.messages, QStringList("100 % d"));
    }

    void textIsUtf8()
    {
        put_msg("a \xc3\xa4");
        QCOMPARE(message_line, QString(QChar('a')) + " " + QChar(0xe4));
        put_msg("%s", "\xc3\xa4");
        QCOMPARE(message_line, QString(QChar(0xe4)));
    }

    void stringsAndNumbersFillTheFormat()
    {
        put_msg("%s-%s-%s", "a", "b", "c");
        QCOMPARE(message_line, QString("a-b-c"));
        put_msg("%d of %ld", 7L, -3L);
        QCOMPARE(message_line, QString("7 of -3"));
        put_msg("Opened \"%s\" Figure contains %d objects", "x.fig", 12L);
        QCOMPARE(message_line, QString("Opened \"x.fig\" Figure contains 12 objects"));
        put_msg("%d %s", 1L, "a");
        QCOMPARE(message_line, QString("1 a"));
        put_msg("%d %d %d", 1L, 2L, 3L);
        QCOMPARE(message_line, QString("1 2 3"));
    }

    void numbersAreWiderThanAnInt()
    {
        put_msg("%d", 5000000000L);
        QCOMPARE(message_line, QString("5000000000"));
    }
};

QTEST_GUILESS_MAIN(TestShell)
#include "test_shell.moc"
