// Starts the editor, or an empty window with an MDI area, and ends as soon as it is painted:
//
//   orvalt_bench_start editor|empty
//
// What the process then has used is what starting costs; bench/run asks the system for it.

// The program as it is; only its main has to make way for the one below.
#define main startEditor
#include "../../src/ui/main.cpp"
#undef main

#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPaintEvent>
#include <QTimer>

#include <cstdlib>
#include <cstring>

namespace {

/// Leaves once the first main window is painted: all its widgets are in one go.
class FirstPaint : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        const auto* widget = qobject_cast<QWidget*>(receiver);
        if (widget && event->type() == QEvent::Paint &&
            qobject_cast<QMainWindow*>(widget->window())) {
            QTimer::singleShot(0, [] { std::_Exit(0); });
        }
        return false;
    }
};

void watchForFirstPaint()
{
    qApp->installEventFilter(new FirstPaint(qApp));
}

int startEmpty(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    auto* area = new QMdiArea(&window);
    window.setCentralWidget(area);
    area->addSubWindow(new QWidget);
    window.show();
    return QApplication::exec();
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchForFirstPaint)

int main(int argc, char** argv)
{
    const bool isEmpty = argc > 1 && std::strcmp(argv[1], "empty") == 0;
    return isEmpty ? startEmpty(1, argv) : startEditor(1, argv);
}
