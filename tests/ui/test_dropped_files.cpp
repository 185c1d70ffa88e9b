// Files dropped on the main window.
#include "DialogDriver.h"
#include "WindowFixture.h"

#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QSettings>
#include <QUrl>

namespace {

QList<QUrl> urlsOf(const QStringList& paths)
{
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls.append(QUrl::fromLocalFile(path));
    return urls;
}

/// Drags over the window and lets go if it agrees. True if it took the data.
bool drop(QTMainFrm* window, const QMimeData& data)
{
    const QPoint place(200, 200);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(window, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(window, &event);
    QCoreApplication::processEvents();
    return event.isAccepted();
}

QStringList titles(const QTMainFrm* window)
{
    QStringList names;
    for (const QTChildFrm* child : window->getChilds(QMdiArea::CreationOrder))
        names.append(child->userFriendlyCurrentFile());
    return names;
}

} // namespace

class TestDroppedFiles : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }

    void init() { store.renew(); }

    void cleanup() { store.leave(); }

    void severalFilesOpenEachInItsWindow()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        QMimeData data;
        data.setUrls(urlsOf({writeFigure(directory, "a.fig"), writeFigure(directory, "b.fig")}));
        QVERIFY(drop(fixture.window.get(), data));
        QCOMPARE(titles(fixture.window.get()).mid(1), QStringList({"a.fig", "b.fig"}));
        QCOMPARE(fixture.window->activeMdiChild()->userFriendlyCurrentFile(), QString("b.fig"));
    }

    void fileThatIsOpenAlreadyIsActivated()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        QMimeData data;
        data.setUrls(urlsOf({writeFigure(directory, "a.fig")}));
        QVERIFY(drop(fixture.window.get(), data));
        QVERIFY(drop(fixture.window.get(), data));
        QCOMPARE(titles(fixture.window.get()).size(), 2);
    }

    void foldersAreLeftOut()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        QMimeData data;
        data.setUrls(urlsOf({directory.path(), writeFigure(directory, "a.fig")}));
        QVERIFY(drop(fixture.window.get(), data));
        QCOMPARE(titles(fixture.window.get()).mid(1), QStringList("a.fig"));
    }

    void whatIsNoFileIsRefused()
    {
        QTemporaryDir directory;
        WindowFixture fixture;
        QMimeData folder;
        folder.setUrls(urlsOf({directory.path(), directory.filePath("absent.fig")}));
        QVERIFY(!drop(fixture.window.get(), folder));
        QMimeData remote;
        remote.setUrls({QUrl("http://localhost/a.fig")});
        QVERIFY(!drop(fixture.window.get(), remote));
        QMimeData text;
        text.setText("a.fig");
        QVERIFY(!drop(fixture.window.get(), text));
        QCOMPARE(titles(fixture.window.get()).size(), 1);
    }

    void fileThatIsNoFigureOpensNoWindow()
    {
        QTemporaryDir directory;
        QFile file(directory.filePath("notes.txt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("some notes\nin two lines\n");
        file.close();
        WindowFixture fixture;
        DialogDriver user; // closes what the reader may tell in a box
        QMimeData data;
        data.setUrls(urlsOf({file.fileName()}));
        QVERIFY(drop(fixture.window.get(), data));
        QCOMPARE(titles(fixture.window.get()).size(), 1);
    }

private:
    TestStore store;
};

QTEST_MAIN(TestDroppedFiles)
#include "test_dropped_files.moc"
