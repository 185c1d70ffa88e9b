// What random edits need: tools, selections, open compounds, views, modes, several documents,
// files.
#pragma once

#include "EditEvents.h"
#include "EditorMade.h"
#include "RandomFigure.h"
#include "edit/e_compound.h"
#include "fileio/f_read.h"
#include "fileio/written_tree.h"
#include "model/w_layers.h"

#include <QTemporaryDir>

class EditSetting : public EditEvents {
public:
    /// exact: only what comes back. An empty canvas size paints nothing; name may be that of a
    /// figure to begin with.
    EditSetting(unsigned seed, bool isExact, QSize canvas, const QString& name, EditTally* sum)
        : EditEvents(seed, isExact, sum), canvasSize(canvas), figure(name)
    {
        openDocument();
    }

protected:
    // --- what edits need ---------------------------------------------------------------------

    void setUp()
    {
        switch (dice.below(9)) {
        case 0:
        case 1:
            return openCompound();
        case 2:
        case 3:
            return closeCompound();
        case 4:
            return changeView();
        case 5:
            return changeModes();
        case 6:
            return changeLayers();
        case 7:
            return changeDocument();
        default:
            return dice.oneIn(5) ? reopen() : save();
        }
    }

    void startTool(int command)
    {
        if (exact && !comesBack(command))
            return;
        note(QString("tool %1").arg(command));
        if (desk.startTool(command) && fault.isEmpty())
            lookAtRest();
    }
    static bool comesBack(int command)
    {
        static const QVector<int> rounding = {CMD_SCALE_COMPOUND, CMD_FLIP_UD,   CMD_FLIP_LR,
                                              CMD_ROTATE_CCW,     CMD_ROTATE_CW, CMD_ADD_POINT};
        return !rounding.contains(command);
    }
    /// A tool that has just been chosen has nothing selected.
    void lookAtRest()
    {
        if (ctx()->curObject)
            return blame("an object is current under a tool that was just chosen");
        for (const FigObject* object : objectsOf(ctx()))
            if (object->tagged)
                return blame("an object is selected under a tool that was just chosen");
    }

    /// Clicks an object with the select tool. Chance may hit another one, or none.
    void select(FigObject* object)
    {
        // A gesture that ends may take it along.
        const QPoint spot = object ? onOutline(object, dice) : anywhere();
        if (cur_command != CMD_SELECT || gestureContext || dice.oneIn(4))
            startTool(CMD_SELECT);
        if (dice.oneIn(6))
            press(anywhere(), Qt::RightButton);
        click(spot);
    }
    void selectSome()
    {
        select(anyObject(nullptr));
        switch (dice.below(8)) {
        case 0:
            note("select all");
            return desk.selectAll();
        case 1:
        case 2: {
            const QPoint corner = anywhere();
            drag(corner, corner + QPoint(dice.between(-9000, 9000), dice.between(-9000, 9000)));
            return;
        }
        case 3:
            return;
        default:
            holdKeys(true, false);
            for (int more = dice.between(1, 3); more > 0 && !root()->isEmpty(); --more) {
                // Shift would keep the column from one click to the next.
                desk.holdShift(false);
                const QPoint spot = onOutline(dice.any(*root()), dice);
                move(spot);
                desk.holdShift(true);
                press(spot);
                release(spot);
            }
            holdKeys(false, false);
        }
    }

    void openCompound()
    {
        select(anyObject(isOf<O_COMPOUND>));
        note("open compound");
        desk.edit([this] {
            if (auto* compound = dynamic_cast<FigCompound*>(ctx()->curObject))
                open_compound(ctx(), compound);
        });
        look();
    }
    void closeCompound()
    {
        note("close compound");
        // An emptied compound would vanish for good.
        if (root()->isEmpty() && (exact || !dice.oneIn(8)))
            return;
        desk.edit([this] {
            if (isCompoundOpen(ctx()))
                close_compound(ctx(), true);
        });
        look();
    }

    void changeView()
    {
        note("view");
        // Painted from afar: wide dashes and fills take long.
        static const float zooms[] = {0.1f, 0.1f, 0.05f, 0.5f, 1, 1, 1, 2, 4, 20, 0.03f};
        setZoom(zooms[dice.below(canvasSize.isEmpty() ? 11 : 4)]);
        ctx()->shiftX = dice.oneIn(2) ? 0 : dice.between(-500, 500);
        ctx()->shiftY = dice.oneIn(2) ? 0 : dice.between(-500, 500);
        desk.redraw();
    }
    void setZoom(float zoom) { ctx()->zoom = zoom; }
    void changeModes()
    {
        note("modes");
        resetConstraints();
        if (dice.oneIn(2)) {
            manhattan_mode = dice.below(2);
            mountain_mode = dice.below(2);
        } else if (dice.oneIn(2)) {
            (dice.oneIn(2) ? latexline_mode : latexarrow_mode) = 1;
        }
        gridPreferences.snapMode = dice.oneIn(2) ? 0 : dice.below(4);
        ctx()->gridIndex = dice.oneIn(2) ? 0 : dice.below(gridDefinitions.size());
        ctx()->gridOn = ctx()->gridIndex != 0;
        ctx()->magnetMode = dice.below(5);
    }
    /// Mostly all on: gestures miss what is hidden.
    void changeLayers()
    {
        note("layers");
        std::fill(std::begin(ctx()->active_layers), std::end(ctx()->active_layers), true);
        ctx()->layerMode = dice.between(10, 12);
        if (dice.oneIn(5))
            for (int count = dice.between(1, 300); count > 0; --count)
                ctx()->active_layers[dice.below(NUM_DEPTHS)] = false;
    }

    void changeDocument()
    {
        note("document");
        if (desk.count() < maxDocuments && dice.oneIn(3))
            return openDocument();
        desk.show(dice.below(desk.count()));
        look();
    }
    void openDocument()
    {
        desk.open(canvasSize);
        if (dice.oneIn(3) && !figure.isEmpty()) {
            read(ctx(), figure);
        } else if (!dice.oneIn(4)) {
            RandomFigure(unsigned(dice.below(1000000))).fill(ctx());
            if (exact)
                makeAsEdited(ctx(), &ctx()->drawing.objects);
            set_depths(ctx());
        }
        changeView();
        desk.startTool(CMD_SELECT);
        look();
    }

    QString saved(CFigContext* context, const char* name)
    {
        const PreviewAside aside(context);
        const QString path = folder.filePath(name);
        if (!write_file(context, path))
            blame("the figure cannot be saved");
        return path;
    }
    bool read(CFigContext* context, const QString& path)
    {
        recordingShell.answer = false; // what lies left of or above the page stays there
        if (load_file(context, path))
            return true;
        blame("the saved file cannot be read");
        return false;
    }
    /// What is written can be read again, and has the objects of the figure without a preview.
    void save()
    {
        note("save");
        int expected = 0;
        const QSet<FigObject*> preview = previewOf(ctx());
        for (FigObject* object : objectsOf(ctx()))
            expected += !preview.contains(object) && hasRecord(object);
        CFigContext reader;
        if (!read(&reader, saved(ctx(), "saved.fig")))
            return;
        if (objectsOf(&reader).size() != expected)
            blame(QString("%1 objects were saved of %2")
                      .arg(objectsOf(&reader).size())
                      .arg(expected));
        // What the reader repairs, as angles beyond a turn and unknown fonts, and the corners that
        // depend on it, have their last form in the second file.
        const QByteArray second =
            savedAgain("saved.fig", "second.fig") && savedAgain("second.fig", "second.fig")
                ? contentOf(folder.filePath("second.fig"))
                : QByteArray();
        if (savedAgain("second.fig", "third.fig") &&
            contentOf(folder.filePath("third.fig")) != second)
            blame("read and saved again, " +
                  firstDifference(contentOf(folder.filePath("third.fig")), second));
    }
    bool savedAgain(const char* from, const char* to)
    {
        CFigContext context;
        if (!read(&context, folder.filePath(from)))
            return false;
        saved(&context, to);
        return true;
    }
    /// The work goes on with what has been read again.
    void reopen()
    {
        tellHistory();
        note("reopen");
        const QString path = saved(ctx(), "saved.fig");
        const int former = desk.indexOf(ctx());
        desk.open(canvasSize);
        if (!read(ctx(), path))
            return;
        desk.close(former);
        ++tally->reopened;
        desk.startTool(CMD_SELECT);
        look();
    }

    void keepSmall()
    {
        for (CFigContext* context : desk.contexts()) {
            const bool isLarge = objectsOf(context).size() > maxObjects;
            const bool wouldVanish = exact && context->getWorkingRoot()->isEmpty();
            if (!fault.isEmpty() || wouldVanish || (!isLarge && !isWide(context)))
                continue;
            note("all deleted");
            desk.show(desk.indexOf(context));
            desk.startTool(CMD_SELECT);
            while (isCompoundOpen(context))
                desk.edit([=] { close_compound(context, true); });
            desk.selectAll();
            desk.deleteKey();
            look();
        }
    }
    bool isWide(CFigContext* context)
    {
        int left, top, right, bottom;
        context->drawing.getBounds(context, &left, &top, &right, &bottom, false, false);
        return std::max({std::abs(left), std::abs(top), std::abs(right), std::abs(bottom)}) >
               (canvasSize.isEmpty() ? maxExtent : maxPaintedExtent);
    }

private:
    static constexpr int maxDocuments = 3;
    static constexpr int maxObjects = 45;
    static constexpr int maxExtent = 2000000; ///< figure units
    static constexpr int maxPaintedExtent = 60000;

    QSize canvasSize;
    QString figure;
    QTemporaryDir folder;
};
