// Headers that nearly every unit of the engine needs.
#pragma once

#include <QBrush>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QLinkedList>
#include <QList>
#include <QMap>
#include <QPainter>
#include <QPixmap>
#include <QPolygon>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <QVector>

#include <cmath>
#include <memory>
