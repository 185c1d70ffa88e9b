// A main window with its first document, shown at a known size, and events in viewport pixels.
#pragma once

#include "edit/command.h"
#include "edit/mode.h"
#include "model/FigContext.h"
#include "model/FigObjects.h"
#include "model/preferences.h"
#include "model/shell.h"
#include "model/u_list.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"
#include "ui/application.h"

#include <QApplication>
#include <QDir>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QSettings>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <QtTest>

#include <memory>

/// A settings store of the test's own, and the folder in which the test began.
class TestStore {
public:
    void make()
    {
        QVERIFY(folder.isValid());
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

    /// Before each test: nothing stored, no gesture, no preference changed.
    void renew();

    /// After each test: back in the folder of its beginning.
    void leave() { QDir::setCurrent(startDirectory); }

    QString path() const { return folder.path(); }

    QString startDirectory;

private:
    QTemporaryDir folder;
};

class WindowFixture {
public:
    explicit WindowFixture(QSize size = {700, 600})
    {
        mainWnd = window.get();
        window->resize(size);
        window->show();
        QVERIFY2(QTest::qWaitForWindowExposed(window.get()), "the window is not shown");
        child = window->activeMdiChild();
        QVERIFY(child);
        context = child->figContext;
    }

    void mouse(QEvent::Type type, QPointF pixel, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, pixel, child->viewport()->mapToGlobal(pixel.toPoint()), button,
                          held, Qt::NoModifier);
        QApplication::sendEvent(child->viewport(), &event);
    }

    void press(Qt::MouseButton button, int x, int y)
    {
        mouse(QEvent::MouseButtonPress, QPointF(x, y), button, button);
    }

    void release(Qt::MouseButton button, int x, int y)
    {
        mouse(QEvent::MouseButtonRelease, QPointF(x, y), button, Qt::NoButton);
    }

    void move(int x, int y, Qt::MouseButtons held = Qt::NoButton)
    {
        mouse(QEvent::MouseMove, QPointF(x, y), Qt::NoButton, held);
    }

    void wheel(int delta, Qt::KeyboardModifiers modifiers)
    {
        const QPointF pixel(50, 50);
        QWheelEvent event(pixel, child->viewport()->mapToGlobal(pixel.toPoint()), QPoint(),
                          QPoint(0, delta), Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(child->viewport(), &event);
    }

    /// A black line from corner to corner, at depth 50. The figure owns it.
    FigLine* addLine(int x1, int y1, int x2, int y2)
    {
        auto* line = new FigLine;
        line->sub_type = T_POLYLINE;
        line->thickness = 1;
        line->depth = 50;
        line->points = new FigPoint(x1, y1);
        line->points->next = new FigPoint(x2, y2);
        list_add(context, &context->drawing.objects, line);
        return line;
    }

    std::unique_ptr<QTMainFrm> window = std::make_unique<QTMainFrm>();
    QTChildFrm* child = nullptr;
    CFigContext* context = nullptr;
};

/// Figure of one line, as a file.
inline QString writeFigure(const QTemporaryDir& directory, const QString& name,
                           const QByteArray& units = "Metric")
{
    const QString path = directory.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return QString();
    file.write("#FIG 3.2\nLandscape\nCenter\n" + units +
               "\nA4\n100.00\nSingle\n-2\n1200 2\n"
               "2 1 0 1 0 7 50 -1 -1 0.000 0 0 -1 0 0 2\n\t600 600 2400 1800\n");
    return path;
}

/// Preferences and gesture state as a fresh process has them.
inline void resetProcessState()
{
    gridPreferences = GridPreferences();
    otherPreferencesData = OtherPreferencesData();
    cur_command = -1;
    previous_command = -1;
    gestureContext = nullptr;
    setcenter = 0;
    pointmarker_shown = false;
    resetConstraints();
    set_functions(nullptr, nullptr, nullptr, nullptr, nullptr);
    canvas_leftbutUp_proc = nullptr;
    canvas_locmove_proc2 = nullptr;
    reset_action_on();
    shift_down = false;
    ctrl_down = false;
    message_line.clear();
}

inline void TestStore::renew()
{
    resetProcessState();
    QSettings("Orvalt", "Orvalt").clear();
    startDirectory = QDir::currentPath();
}
