// The pictures in the lists of line styles and arrows, drawn by the engine itself, so that they
// show what will be drawn. A tool writes them into the resources; a test holds these against it.
#pragma once

#include <QImage>
#include <QString>
#include <QVector>

struct AttributeIcon {
    QString path; ///< below the folder of the resources' images
    QImage image;
};

/// All of them, for plain screens and for those twice as dense ("@2x").
QVector<AttributeIcon> drawAttributeIcons();
