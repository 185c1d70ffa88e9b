// Engine values as JSON. Numbers read back to the very same single- or double-precision value.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QPoint>
#include <QVector>

struct ProbeOptions;
class CFigContext;
class FigObject;

/// A finite number as such; else "nan", "inf" or "-inf", which JSON cannot say as numbers.
QJsonValue jsonNumber(double value);
/// Packed 0x00RRGGBB as "#rrggbb".
QString jsonColor(unsigned packed);
/// Device points as [[x, y], ...].
QJsonArray jsonPoints(const QPoint* points, long count);
/// "ellipse", "line", ... by the object code.
QString typeName(int type);

/// Header, colours, comments, messages and the tree of an opened figure.
QJsonObject figureInfo(CFigContext* ctx);
/// What drawing computes for each object, in drawing order.
QJsonObject figureOutline(CFigContext* ctx);
/// What objectSearch and the point search find at each point, figure units.
QJsonObject figureHits(CFigContext* ctx, const QVector<QPoint>& points);
