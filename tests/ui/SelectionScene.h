// A small figure in the select tool, and what tests of selections ask about it.
#pragma once

#include "CurrentAttributes.h"
#include "Gesture.h"
#include "Records.h"

#include "edit/e_clipboard.h"
#include "edit/e_select.h"
#include "edit/u_reshaping.h"
#include "render/grid.h"
#include "ui/ContextPanel.h"

#include <QLabel>

using records::box;
using records::circle;
using records::link;
using records::polyline;

// Two boxes with a connector between them, and three objects that are tied to nothing. A hit may be
// 30 units off.
inline const QByteArray box1 = box(1, 600, 600, 1200, 1200);
inline const QByteArray box2 = box(2, 2400, 600, 3000, 1200);
inline const QByteArray connector3 =
    polyline(3, "1200 900 1800 900 2400 900", link(0, 1, 1) + link(2, 2, 3));
inline const QByteArray circle4 = circle(4, 4500, 1500, 600);
inline const QByteArray box5 = box(5, 645, 3045, 1845, 3645);
/// With its upper left corner dragged 300 units outward.
inline const QByteArray box5Reshaped = box(5, 345, 2745, 1845, 3645);
inline const QByteArray line6 = polyline(6, "3600 3000 4200 3000");
inline const QByteArray allRecords = box1 + box2 + connector3 + circle4 + box5 + line6;

/// Settings, grids, present attributes and a clipboard of a test's own.
class EditingStore {
public:
    void make()
    {
        store.make();
        loadGridDefinitions();
    }
    void end() { destroyGridDefinitions(); }
    void renew()
    {
        store.renew();
        resetCurrentAttributes();
    }
    void leave()
    {
        clear_clipboard();
        resetCurrentAttributes();
        store.leave();
    }

private:
    TestStore store;
};

inline Gesture scene()
{
    return openFigure(allRecords);
}

inline QByteArray withBox5(const QByteArray& replacement)
{
    return box1 + box2 + connector3 + circle4 + replacement + line6;
}

inline QList<long> selected(const Gesture& gesture)
{
    QList<long> ids;
    for (const FigObject* object : *gesture.context()->getWorkingRoot())
        if (object->tagged)
            ids.append(object->id);
    return ids;
}

inline long current(const Gesture& gesture)
{
    const FigObject* object = gesture.context()->curObject;
    return object ? object->id : 0;
}

inline int pageOf(const Gesture& gesture)
{
    return gesture.window().window->findChild<ContextPanel*>()->currentIndex();
}

inline QString hintOf(const Gesture& gesture)
{
    return gesture.window().window->findChild<QLabel*>("gestureHint")->text();
}

inline QImage image(const Gesture& gesture)
{
    return gesture.window().child->canvasImage->copy();
}

inline QImage redrawn(const Gesture& gesture)
{
    gesture.window().child->redisplayCanvas();
    return image(gesture);
}

inline bool holdsNothing(CFigContext* ctx)
{
    return !ctx->movedObjects && !ctx->reshapedObject && !ctx->addPointActions &&
           oldElasticObjectList.isEmpty() && !gestureContext && !canvas_leftbutUp_proc &&
           !canvas_locmove_proc && !canvas_locmove_proc2 && !elastic_proc && !action_on;
}

inline bool isResting(const Gesture& gesture)
{
    return holdsNothing(gesture.context()) && canvas_leftbut_proc == init_tagging &&
           canvas_middlebut_proc == cancel_clipselect && cur_command == CMD_SELECT;
}

/// What the window's Save writes, from the first object on.
inline QByteArray savedByTheWindow(const Gesture& gesture)
{
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    QFile file(folder.filePath("figure.fig"));
    gesture.window().child->saveFile(file.fileName());
    QDir::setCurrent(before);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    const QByteArray all = file.readAll();
    return all.mid(all.indexOf("\n1200 2\n") + 8);
}
