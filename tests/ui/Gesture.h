// Gestures on the real windows, in figure units, one line each:
//
//     draw(CMD_POLYLINE).left(1200, 1200).left(2400, 1200).right(2400, 2400)
//
// draw(command) opens a window with an empty document and presses the button of the command; the
// calls that follow are events of a pointer that moves there first, as a hand does. At zoom 1 and
// 80 dots per inch a pixel is 15 units, so positions that are multiples of 15 arrive as given; the
// document shows some 8000 by 5000 units. A gesture that needs a window of its own size or figure
// is made with Gesture(fixture).tool(command).
//
//     const Gesture g = draw(CMD_BOX).left(600, 600).left(1200, 900);
//     QCOMPARE(g.steps(), 1);                    // of the undo queue
//     QCOMPARE(g.last<FigLine>()->sub_type, 2);  // the object at the end of the figure
//     QCOMPARE(g.figure(), QByteArray("..."));   // what saving would write, from the first object
//     on
//
// Tests call resetProcessState (WindowFixture.h) in init, and loadGridDefinitions in initTestCase
// when they snap to a grid.
#pragma once

#include "WindowFixture.h"

#include "fileio/f_save.h"
#include "render/coords.h"
#include "ui/ShapesToolbar.h"

#include <QFile>
#include <QKeyEvent>

class Gesture {
public:
    explicit Gesture(std::shared_ptr<WindowFixture> window) : shared(std::move(window)) {}
    /// The fixture has to outlive the gesture.
    explicit Gesture(WindowFixture& window) : shared(&window, [](WindowFixture*) {}) {}

    // --- what the user does; each returns the gesture -----------------------------

    /// Presses a tool's button.
    Gesture& tool(int command)
    {
        shared->window->shapesToolbar()->switchCommand(command);
        return *this;
    }
    /// A click: move there, press, release.
    Gesture& left(int x, int y) { return press(x, y).release(x, y); }
    Gesture& right(int x, int y)
    {
        return press(x, y, Qt::RightButton).release(x, y, Qt::RightButton);
    }
    /// A press at one place, a way of three moves, and the release at the other.
    Gesture& drag(int fromX, int fromY, int toX, int toY)
    {
        press(fromX, fromY);
        move(fromX + (toX - fromX) / 3, fromY + (toY - fromY) / 3, Qt::LeftButton);
        move(fromX + (toX - fromX) / 3 * 2, fromY + (toY - fromY) / 3 * 2, Qt::LeftButton);
        move(toX, toY, Qt::LeftButton);
        return release(toX, toY);
    }
    Gesture& press(int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        move(x, y);
        shared->press(button, pixelX(context(), x), pixelY(context(), y));
        return *this;
    }
    Gesture& release(int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        shared->release(button, pixelX(context(), x), pixelY(context(), y));
        return *this;
    }
    Gesture& move(int x, int y, Qt::MouseButtons held = Qt::NoButton)
    {
        shared->move(pixelX(context(), x), pixelY(context(), y), held);
        return *this;
    }
    /// A key that is pressed and let go.
    Gesture& key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(shared->child, key, modifiers);
        return *this;
    }
    /// Shift and Ctrl go down and come up.
    Gesture& shift(bool down) { return modifier(Qt::Key_Shift, Qt::ShiftModifier, down); }
    Gesture& control(bool down) { return modifier(Qt::Key_Control, Qt::ControlModifier, down); }
    /// A click with Shift held, which keeps the pointer where it is across: it is there before.
    Gesture& shiftLeft(int x, int y)
    {
        return move(x, y).shift(true).press(x, y).release(x, y).shift(false);
    }
    /// Brings a document to the front; events go there from now on, and answers are about it.
    Gesture& in(QTChildFrm* child)
    {
        shared->window->setActiveSubWindow(shared->window->findSubWindow(child));
        shared->child = child;
        shared->context = child->figContext;
        return *this;
    }
    Gesture& undo()
    {
        shared->window->undo();
        return *this;
    }
    Gesture& redo()
    {
        shared->window->redo();
        return *this;
    }

    // --- what came of it ----------------------------------------------------------

    WindowFixture& window() const { return *shared; }
    CFigContext* context() const { return shared->context; }
    const FigObjectList& objects() const { return shared->context->drawing.objects; }
    int count() const { return objects().size(); }
    int steps() const { return shared->context->undoQueue.undoCount(); }
    int redoSteps() const { return shared->context->undoQueue.redoCount(); }
    /// The object at the end of the figure; null if there is none, or of another class.
    template <typename Object = FigObject> Object* last() const
    {
        return objects().isEmpty() ? nullptr : dynamic_cast<Object*>(objects().last());
    }
    /// Coordinates of a chain, "x,y x,y ...".
    static QString points(const FigPoint* first)
    {
        QStringList all;
        for (const FigPoint* point = first; point; point = point->next)
            all.append(QString("%1,%2").arg(point->x).arg(point->y));
        return all.join(' ');
    }
    /// What saving writes.
    QByteArray saved() const
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("figure.fig");
        if (!write_file(shared->context, path))
            return QByteArray();
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// The same without the header: from the line after the resolution on.
    QByteArray figure() const
    {
        const QByteArray all = saved();
        const int resolution = all.indexOf("\n1200 2\n");
        return resolution < 0 ? QByteArray() : all.mid(resolution + 8);
    }

private:
    /// As the display tells it: a modifier key does not count itself when it goes down, and still
    /// does when it comes up.
    Gesture& modifier(Qt::Key key, Qt::KeyboardModifier itself, bool down)
    {
        QKeyEvent event(down ? QEvent::KeyPress : QEvent::KeyRelease, key,
                        down ? Qt::NoModifier : itself);
        QApplication::sendEvent(shared->child, &event);
        return *this;
    }

    std::shared_ptr<WindowFixture> shared;
};

/// A window of that size with an empty document, and the tool of the command in force.
inline Gesture draw(int command, QSize size = {1100, 750})
{
    Gesture gesture(std::make_shared<WindowFixture>(size));
    gesture.tool(command);
    return gesture;
}

/// A window with a document of these records, as an own file has them after its header, and the
/// selection tool.
inline Gesture openFigure(const QByteArray& records, QSize size = {1100, 750})
{
    const QByteArray header = "#FIG 3.2\n# Created by Orvalt version 7.4\nLandscape\nCenter\n"
                              "Metric\nA4\n100.00\nSingle\n-2\n1200 2\n";
    auto window = std::make_shared<WindowFixture>(size);
    const QTemporaryDir folder;
    QFile file(folder.filePath("figure.fig"));
    const QString before = QDir::currentPath();
    if (!file.open(QIODevice::WriteOnly) || file.write(header + records) < 0)
        qFatal("the figure cannot be written");
    file.close();
    if (!window->child->loadFile(file.fileName()))
        qFatal("the figure cannot be read");
    QDir::setCurrent(before);
    window->child->redisplayCanvas();
    Gesture gesture(std::move(window));
    gesture.tool(CMD_SELECT);
    return gesture;
}
