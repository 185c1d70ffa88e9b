#include "ui/LateIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QVector>

namespace {

/// Pixels of the screen per pixel of a widget, as icons reckon with it.
qreal pixelRatio()
{
    return QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps) ? qApp->devicePixelRatio() : 1;
}

class LateIconEngine : public QIconEngine {
public:
    struct File {
        QString name;
        int side; ///< 0: not known, and the only file
        QIcon icon = {};
    };
    explicit LateIconEngine(QVector<File> iconFiles) : files(std::move(iconFiles)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        painter->drawPixmap(rect, pixmap(rect.size() * pixelRatio(), mode, state));
    }

    /// The pictures of all modes and states are made of one.
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override
    {
        const QList<QSize> all = availableSizes(QIcon::Normal, QIcon::Off);
        const QSize largest = all.isEmpty() ? QSize() : all.last();
        return largest == largest.boundedTo(size) ? largest
                                                  : largest.scaled(size, Qt::KeepAspectRatio);
    }

    /// The size is one of the screen, and the icon asked for one of widgets.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return iconFor(size).pixmap(size / pixelRatio(), mode, state);
    }

    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) const override
    {
        QList<QSize> all;
        for (const File& file : qAsConst(files))
            all.append(QSize(file.side, file.side));
        return files[0].side > 0 ? all : iconFor(QSize()).availableSizes(mode, state);
    }

    QString key() const override { return QStringLiteral("LateIconEngine"); }
    QIconEngine* clone() const override { return new LateIconEngine(files); }

    void virtual_hook(int id, void* data) override
    {
        if (id == IsNullHook)
            *static_cast<bool*>(data) = !QFile::exists(files[0].name);
        else
            QIconEngine::virtual_hook(id, data);
    }

private:
    /// The smallest that need not be enlarged.
    const QIcon& iconFor(const QSize& size) const
    {
        File* best = &files[0];
        while (best->side < std::max(size.width(), size.height()) && best != &files.last())
            ++best;
        if (best->icon.isNull())
            best->icon = QIcon(best->name);
        return best->icon;
    }

    mutable QVector<File> files; ///< with the icons that have been wanted so far
};

} // namespace

QIcon lateIcon(const QString& fileName)
{
    return QIcon(new LateIconEngine({{fileName, 0}}));
}

QIcon lateIcon(const QString& fileNames, std::initializer_list<int> sides)
{
    QVector<LateIconEngine::File> files;
    for (const int side : sides)
        files.append({fileNames.arg(side), side});
    return QIcon(new LateIconEngine(files));
}
