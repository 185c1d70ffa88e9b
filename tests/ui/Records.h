// Records of figures as text, put together by hand: what a file has of an object, with the line of
// its id. Objects are black, one unit wide, not filled, at depth 50.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QtTest>

namespace records {

inline QByteArray idLine(long id)
{
    return "# METADATA <id>" + QByteArray::number(qlonglong(id)) + "</id>\n";
}

/// From a point of the object whose record follows.
inline QByteArray link(int point, long target, int leftIndex)
{
    return QString("# METADATA <link srcPointIdx=%1 targetObjId=%2 targetLeftPointIdx=%3/>\n")
        .arg(point)
        .arg(target)
        .arg(leftIndex)
        .toLatin1();
}

/// chain is "x y x y ...".
inline QByteArray path(const char* begin, const char* end, const QByteArray& chain)
{
    const int points = chain.split(' ').size() / 2;
    return begin + QByteArray::number(points) + "\n\t " + chain + "\n" + end;
}

inline QByteArray polyline(long id, const QByteArray& chain, const QByteArray& links = QByteArray())
{
    return idLine(id) + links + path("2 1 0 1 0 7 50 -1 -1 0.000 0 0 -1 0 0 ", "", chain);
}

inline QByteArray box(long id, int left, int top, int right, int bottom)
{
    const QString corners = QString("%1 %2 %3 %2 %3 %4 %1 %4 %1 %2");
    return idLine(id) + path("2 2 0 1 0 7 50 -1 -1 0.000 0 0 -1 0 0 ", "",
                             corners.arg(left).arg(top).arg(right).arg(bottom).toLatin1());
}

/// By radius, with its rim point on the right.
inline QByteArray circle(long id, int x, int y, int radius)
{
    return idLine(id) + QString("1 3 0 1 0 7 50 -1 -1 0.000 1 0.0000 %1 %2 %3 %3 %1 %2 %4 %2\n")
                            .arg(x)
                            .arg(y)
                            .arg(radius)
                            .arg(x + radius)
                            .toLatin1();
}

/// members are records.
inline QByteArray compound(long id, int left, int top, int right, int bottom,
                           const QByteArray& members)
{
    return idLine(id) +
           QString("6 %1 %2 %3 %4\n").arg(left).arg(top).arg(right).arg(bottom).toLatin1() +
           members + "-6\n";
}

inline QStringList lines(const QByteArray& figure)
{
    return QString::fromLatin1(figure).split('\n');
}

} // namespace records

/// Tells the first line that differs.
#define COMPARE_FIGURES(actual, expected) QCOMPARE(records::lines(actual), records::lines(expected))
