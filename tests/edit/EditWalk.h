// A user at random, without windows: whole gestures and commands of all tools, some of them broken
// off or interrupted, on random figures. What has to hold of a document is looked at as the walk
// goes; from time to time all steps are taken back and done again.
#pragma once

#include "EditSetting.h"
#include "edit/actions.h"
#include "edit/attribute_table.h"
#include "edit/e_align.h"
#include "edit/e_convert.h"
#include "edit/e_links.h"

class EditWalk : public EditSetting {
public:
    struct Kind {
        const char* name;
        void (EditWalk::*work)();
        /// Whether it comes back to the last digit when it is taken back, and is one undo step.
        bool comesBack;
        int needs =
            0; ///< type of object, O_TEXT or O_COMPOUND, that is made before if there is none
    };
    static const QVector<Kind>& kinds();

    EditWalk(unsigned seed, bool isExact, QSize canvas, const QString& name, EditTally* sum)
        : EditSetting(seed, isExact, canvas, name, sum)
    {
        tally->done.resize(kinds().size());
        tally->tried.resize(kinds().size());
        done.resize(kinds().size());
        RandomFigure(seed + 7).fill(&library);
    }

    /// Goes on until so many edits have changed a document. Empty, or what went wrong.
    QString run(int wanted)
    {
        const int end = tally->edits() + wanted;
        while (tally->edits() < end && fault.isEmpty()) {
            if (dice.oneIn(8))
                setUp();
            const int kind = chosenKind();
            makeSure(kinds()[kind].needs);
            perform(kind);
            if (dice.oneIn(300))
                tellHistory();
            if (dice.oneIn(8))
                keepSmall();
        }
        tellHistory();
        tally->histories += history.count;
        tally->mostSteps = qMax(tally->mostSteps, history.mostSteps);
        return fault;
    }

private:
    // --- one edit ----------------------------------------------------------------------------

    /// Those that had least luck so far in this walk are tried more often.
    int chosenKind()
    {
        if (dice.oneIn(8))
            return dice.oneIn(2) ? undoKind : redoKind;
        int chosen = -1;
        for (int attempt = 0; attempt < 4; ++attempt) {
            const int kind = dice.between(redoKind + 1, kinds().size() - 1);
            if (exact && !kinds()[kind].comesBack)
                continue;
            if (chosen < 0 || done[kind] < done[chosen])
                chosen = kind;
        }
        return chosen < 0 ? undoKind : chosen;
    }

    static int kindOf(const char* name)
    {
        const auto found = std::find_if(kinds().begin(), kinds().end(), [=](const Kind& kind) {
            return !qstrcmp(kind.name, name);
        });
        return int(found - kinds().begin());
    }
    void makeSure(int type)
    {
        if (type == O_TEXT && !anyObject(isOf<O_TEXT>))
            perform(kindOf("text"));
        if (type == O_COMPOUND && !anyObject(isOf<O_COMPOUND>))
            perform(kindOf("create compound"));
    }
    void perform(int kind)
    {
        if (!fault.isEmpty())
            return;
        ++tally->tried[kind];
        const unsigned long document = ctx()->documentNumber;
        const QByteArray before = text();
        const bool isTakenBack =
            kind > redoKind && kinds()[kind].comesBack && !gestureContext && dice.oneIn(4);
        const QByteArray state = isTakenBack ? normalText(ctx()) : QByteArray();
        const int steps = ctx()->undoQueue.undoCount();
        isChangedBetween = false;
        note(kinds()[kind].name);
        (this->*kinds()[kind].work)();
        holdKeys(false, false);
        history.noteCompounds(ctx());
        if (dice.oneIn(4) || isTraced)
            look();
        if (fault.isEmpty() && !isChangedBetween && ctx()->documentNumber == document &&
            isChangedFrom(before)) {
            count(kind);
            if (isTakenBack)
                takeBack(kind, steps, state);
        }
    }
    /// One edit alone comes back to the last digit, and so does what it has made.
    void takeBack(int kind, int steps, const QByteArray& before)
    {
        const UndoQueue& queue = ctx()->undoQueue;
        if (gestureContext || queue.undoCount() <= steps)
            return;
        const int wanted = queue.undoCount();
        const QByteArray after = normalText(ctx());
        while (queue.undoCount() > steps)
            desk.undo();
        if (normalText(ctx()) != before)
            return blame(QString("%1, taken back, %2")
                             .arg(kinds()[kind].name, firstDifference(normalText(ctx()), before)));
        while (queue.undoCount() < wanted)
            desk.redo();
        if (normalText(ctx()) != after)
            blame(QString("%1, done again, %2")
                      .arg(kinds()[kind].name, firstDifference(normalText(ctx()), after)));
    }
    void count(int kind)
    {
        ++done[kind];
        ++tally->done[kind];
    }

    // --- between two events ------------------------------------------------------------------

    void comeBetween() override
    {
        const int command = dice.below(18);
        note(QString("interruption %1").arg(command));
        switch (command) {
        case 0:
            return startTool(dice.between(CMD_CIRCLE_BY_RADIUS, CMD_NORMAL));
        case 1:
            return desk.undo();
        case 2:
            return desk.redo();
        case 3:
            return desk.show(dice.below(desk.count()));
        case 4:
            return arrowKey();
        case 5:
            return desk.deleteKey();
        case 6:
            return desk.cut();
        case 7:
            return desk.copy();
        case 8:
            return desk.paste();
        case 9:
            return desk.selectAll();
        case 10:
            return desk.deselectAll();
        case 11:
            return desk.edit([this] { create_compoundobject(ctx()); });
        case 12:
            return desk.edit([this] { break_compoundobject(ctx()); });
        case 13:
            return changeView();
        case 14:
            return changeModes();
        case 15:
            return press(place(), Qt::RightButton);
        case 16:
            return save();
        default:
            return changeAttribute(ctx()->getCurObject(), -1);
        }
    }

    // --- kinds: steps ------------------------------------------------------------------------

    static constexpr int undoKind = 0, redoKind = 1;

    void undo()
    {
        for (int steps = dice.oneIn(6) ? dice.between(2, 12) : 1; steps > 0; --steps)
            desk.undo();
    }
    void redo()
    {
        for (int steps = dice.oneIn(4) ? dice.between(2, 12) : 1; steps > 0; --steps)
            desk.redo();
    }

    // --- kinds: drawing ----------------------------------------------------------------------

    template <int command> void draw()
    {
        startTool(command);
        if (dice.oneIn(3))
            randomiseAttributes();
        QPoint spot = place();
        for (int clicks = clicksOf(command); clicks > 0; --clicks) {
            recordingShell.answer = true;
            recordingShell.enteredText = QString("word %1").arg(dice.below(100));
            click(spot);
            if (!dice.oneIn(12))
                spot = place();
        }
        if (isPointByPoint(command) || dice.oneIn(12))
            click(spot, Qt::RightButton);
    }
    static bool isPointByPoint(int command)
    {
        return command == CMD_POLYLINE || command == CMD_POLYGON ||
               (command >= CMD_OPEN_SPLINE && command <= CMD_CLOSED_INT_SPLINE);
    }
    int clicksOf(int command)
    {
        if (isPointByPoint(command))
            return dice.between(1, 6);
        return command == CMD_TEXT ? 1 : command == CMD_ARC ? 3 : 2;
    }

    // --- kinds: moving and reshaping ---------------------------------------------------------

    void dragObjects()
    {
        dice.oneIn(2) ? selectSome() : select(anyObject(nullptr));
        if (root()->isEmpty())
            return;
        const QPoint from = onOutline(dice.any(*root()), dice);
        drag(from, place());
    }
    template <Condition condition> void movePoint()
    {
        FigObject* object = anyObject(condition);
        if (!object)
            return;
        // Whatever comes between may delete it.
        const QPoint from = anyPointOf(object, dice);
        select(object);
        if (dice.oneIn(4))
            holdKeys(dice.oneIn(4), dice.oneIn(2));
        drag(from, place());
    }
    void arrowKey()
    {
        note("arrow key");
        const bool isHorizontal = dice.oneIn(2);
        desk.arrowKey(isHorizontal, dice.oneIn(2));
    }
    void moveByKeys()
    {
        selectSome();
        for (int times = dice.between(1, 3); times > 0; --times)
            arrowKey();
    }
    void copyTool()
    {
        startTool(CMD_COPY);
        if (root()->isEmpty())
            return;
        const QByteArray before = text();
        click(onOutline(dice.any(*root()), dice));
        move(place());
        if (dice.oneIn(12))
            return breakOff(place(), before);
        click(place());
        if (dice.oneIn(3))
            click(place(), Qt::RightButton);
    }
    void addPoint()
    {
        startTool(CMD_ADD_POINT);
        FigObject* object = anyObject(isChain);
        if (!object)
            return;
        const QPoint from = onOutline(object, dice);
        dice.oneIn(6) ? click(from) : drag(from, place());
    }
    void deletePoint()
    {
        startTool(CMD_DELETE_POINT);
        FigObject* object = anyObject(isChain);
        if (object)
            click(anyPointOf(object, dice));
    }
    void scaleCompound()
    {
        startTool(CMD_SCALE_COMPOUND);
        auto* compound = static_cast<FigCompound*>(anyObject(isOf<O_COMPOUND>));
        if (compound)
            drag(onEdge(compound, dice), place());
    }
    void chooseCentre()
    {
        if (!dice.oneIn(5))
            return;
        const QPoint centre = place();
        move(centre);
        desk.holdShift(true);
        press(centre);
        desk.holdShift(false);
        release(centre);
    }
    template <int command, Qt::MouseButton button> void turn()
    {
        startTool(command);
        static const int angles[] = {90, 90, 90, 180, 0, 360, 45, -90, 30};
        cur_rotnangle = dice.oneIn(3) ? dice.between(-400, 400) : dice.any(angles);
        cur_numcopies = dice.oneIn(4) ? dice.between(-1, 4) : 1;
        chooseCentre();
        if (!root()->isEmpty())
            click(onOutline(dice.any(*root()), dice), button);
    }

    // --- kinds: small edits ------------------------------------------------------------------

    /// The tool, then a click on an outline.
    template <int command> void clickWith()
    {
        startTool(command);
        if (command == CMD_TANGENT || command == CMD_NORMAL)
            cur_tangnormlen = float(dice.between(-100, 2000)) / 37.0f;
        if (!root()->isEmpty())
            click(onOutline(dice.any(*root()), dice));
    }
    void arrowHead()
    {
        startTool(CMD_ARROW_HEAD);
        if (dice.oneIn(3))
            randomiseAttributes();
        FigObject* object = anyObject(canHaveArrows);
        if (!object)
            return;
        if (FigPath* path = chainOwner(object)) {
            const FigPoint* end = path->getPoint(dice.oneIn(2) ? 0 : path->getNumPoints() - 1);
            return click({end->x, end->y});
        }
        const FigPoint& end = static_cast<FigArc*>(object)->point[dice.oneIn(2) ? 0 : 2];
        click({end.x, end.y});
    }
    void updateTool()
    {
        startTool(CMD_UPDATE);
        randomiseAttributes();
        for (int& isUpdated : updatelist)
            isUpdated = dice.oneIn(8) ? 0 : 1;
        if (!root()->isEmpty())
            click(onOutline(dice.any(*root()), dice),
                  dice.oneIn(8) ? Qt::RightButton : Qt::LeftButton);
    }
    template <Condition condition> void convert()
    {
        select(anyObject(condition));
        note("convert");
        desk.edit([this] { do_convert_line_spline(ctx(), ctx()->curObject, 0, 0, 0, 0, 0); });
    }
    void align()
    {
        selectSome();
        cur_halign = dice.below(4);
        cur_valign = dice.below(4);
        note("align");
        desk.edit([this] { align_tagged_objects(ctx()); });
    }
    void linkAll()
    {
        note("link all");
        if (gestureHoldsObjects(ctx()))
            return;
        auto* action = new CreateSmartLinksForDrawingAction(root());
        action->execute(ctx());
        ctx()->undoQueue.addAction(action);
        desk.paint(true, [this] { refresh_obj_area(ctx(), root(), false); });
    }
    void editText()
    {
        select(anyObject(isOf<O_TEXT>));
        FigObject* object = ctx()->getCurObject();
        if (!object || object->type != O_TEXT || gestureHoldsObjects(ctx()))
            return;
        recordingShell.answer = !dice.oneIn(10);
        recordingShell.enteredText = QString("other %1").arg(dice.below(1000));
        note("edit text");
        desk.paint(true, [=] { ::editText(ctx(), static_cast<FigText*>(object)); });
    }
    void resizePicture()
    {
        FigObject* picture = anyObject(isPicture);
        note("resize picture");
        if (picture)
            desk.edit([=] {
                resizePic(ctx(), static_cast<FigLine*>(picture), dice.between(-100, 9000),
                          dice.between(-100, 9000));
            });
    }

    // --- kinds: compounds, clipboard, deleting -----------------------------------------------

    void group()
    {
        selectSome();
        note("create compound");
        desk.edit([this] { create_compoundobject(ctx()); });
    }
    void ungroup()
    {
        select(anyObject(isOf<O_COMPOUND>));
        note("break compound");
        desk.edit([this] { break_compoundobject(ctx()); });
    }
    void deleteByKey()
    {
        select(anyObject(nullptr));
        note("delete key");
        desk.deleteKey();
    }
    void cut()
    {
        select(anyObject(nullptr));
        note("cut");
        desk.cut();
    }
    void paste()
    {
        if (isClipboardEmpty() || dice.oneIn(6)) {
            selectSome();
            note("copy");
            desk.copy();
        }
        const QByteArray before = text();
        note("paste");
        desk.paste();
        finishPlacing(before);
    }
    void placeLibrary()
    {
        // Its picture is as large as what it shows.
        if (ctx()->zoom > 0.1f)
            setZoom(0.1f);
        const QByteArray before = text();
        note("library");
        desk.placeLibrary(&library);
        finishPlacing(before);
    }
    void finishPlacing(const QByteArray& before)
    {
        move(place());
        move(place());
        if (dice.oneIn(12))
            breakOff(place(), before);
        else
            click(place());
    }

    // --- kinds: attributes -------------------------------------------------------------------

    double anyValue(int kind)
    {
        switch (kind) {
        case ATTR_DEPTH:
            return dice.below(1000);
        case ATTR_LINE_WIDTH:
            return dice.oneIn(6) ? dice.below(110) : dice.below(6);
        case ATTR_LINE_STYLE:
            return dice.between(-1, 5);
        case ATTR_STYLE_VALUE:
            return dice.between(0, 1200) / 7.0;
        case ATTR_PEN_COLOR:
        case ATTR_FILL_COLOR:
            return dice.below(32);
        case ATTR_FILL_STYLE:
            return dice.between(-1, 62);
        case ATTR_CAP_STYLE:
        case ATTR_JOIN_STYLE:
        case ATTR_TEXT_JUSTIFICATION:
            return dice.below(3);
        case ATTR_BOX_TYPE:
            return dice.oneIn(2) ? T_BOX : T_ARCBOX;
        case ATTR_BOX_RADIUS:
            return dice.between(7, 300);
        case ATTR_ARC_TYPE:
            return dice.below(2);
        case ATTR_ELLIPSE_ANGLE:
        case ATTR_TEXT_ANGLE:
            return dice.between(-360, 720) * M_PI / 180;
        case ATTR_FONT:
            return cur_textflags & psFontFlag ? dice.below(35) : dice.below(6);
        case ATTR_FONT_SIZE:
            return dice.between(1, 60);
        default:
            return dice.oneIn(2) ? 0 : 7; // bits of the flags of a text
        }
    }
    void randomiseAttributes()
    {
        for (FigObject* object : qAsConst(*root()))
            if (const QVector<const Attribute*> rows = attributesOf(object);
                !rows.isEmpty() && dice.oneIn(3)) {
                const Attribute* row = dice.any(rows);
                row->makeCurrent(ctx(), anyValue(row->kind));
            }
        autoforwardarrow_mode = dice.oneIn(3);
        autobackwardarrow_mode = dice.oneIn(3);
        cur_farrowtype = dice.below(29);
        cur_barrowtype = dice.below(29);
        cur_arrowtype = dice.below(29);
        use_abs_arrowvals = dice.oneIn(2);
        cur_numsides = dice.between(3, 12);
    }
    /// As its control in the panel of that object. Kind -1 is any.
    void changeAttribute(FigObject* object, int kind)
    {
        if (!object)
            return;
        const QVector<const Attribute*> rows = attributesInPanels(object);
        const Attribute* row = rows.isEmpty() ? nullptr : dice.any(rows);
        if (kind >= 0)
            row = attributeOf(object, kind);
        if (!row || !rows.contains(row))
            return;
        note(QString("attribute %1").arg(row->kind));
        row->makeCurrent(ctx(), anyValue(row->kind));
        desk.paint(true, [=] { update_object_to_current_attrs(ctx(), object, false); });
    }
    template <int kind> static bool hasAttribute(FigObject* object)
    {
        return attributesInPanels(object).contains(attributeOf(object, kind));
    }
    template <int kind> void usePanel()
    {
        if (FigObject* object = ctx()->getCurObject(); !object || !hasAttribute<kind>(object))
            select(anyObject(hasAttribute<kind>));
        changeAttribute(ctx()->getCurObject(), kind);
    }
    template <int direction> void useArrowPanel()
    {
        if (FigObject* object = ctx()->getCurObject(); !object || !canHaveArrows(object))
            select(anyObject(canHaveArrows));
        FigObject* object = ctx()->getCurObject();
        const int number = dice.below(30);
        if (!object)
            return;
        FigArrow* arrow =
            number > 0 ? new_arrow(ctx(), float(object->thickness), number - 1, object->thickness)
                       : nullptr;
        auto* action = new ChangeArrowAction(object, root(), direction, arrow);
        note("arrow of the panel");
        desk.paint(true, [=] {
            refresh_obj_area(ctx(), object, true);
            action->execute(ctx());
            ctx()->undoQueue.addAction(action);
            refresh_obj_area(ctx(), object, false);
        });
        (direction == ARROW_FORWARD ? autoforwardarrow_mode : autobackwardarrow_mode) = number > 0;
        if (number > 0)
            (direction == ARROW_FORWARD ? cur_farrowtype : cur_barrowtype) = number - 1;
        desk.paint(true, [=] { update_object_to_current_attrs(ctx(), object, false); });
    }

    CFigContext library;
    QVector<int> done; ///< by kind, in this walk
};

// clang-format off
inline const QVector<EditWalk::Kind>& EditWalk::kinds()
{
    static const QVector<Kind> table = {
        {"undo", &EditWalk::undo, true},
        {"redo", &EditWalk::redo, true},

        {"polyline", &EditWalk::draw<CMD_POLYLINE>, true},
        {"polygon", &EditWalk::draw<CMD_POLYGON>, true},
        {"box", &EditWalk::draw<CMD_BOX>, true},
        {"regular polygon", &EditWalk::draw<CMD_REGPOLY>, true},
        {"arc", &EditWalk::draw<CMD_ARC>, true},
        {"circle by radius", &EditWalk::draw<CMD_CIRCLE_BY_RADIUS>, true},
        {"circle by diameter", &EditWalk::draw<CMD_CIRCLE_BY_DIAMETER>, true},
        {"ellipse by radii", &EditWalk::draw<CMD_ELLIPSE_BY_RADII>, true},
        {"ellipse by diameters", &EditWalk::draw<CMD_ELLIPSE_BY_DIAMETERS>, true},
        {"text", &EditWalk::draw<CMD_TEXT>, true},
        {"open spline", &EditWalk::draw<CMD_OPEN_SPLINE>, true},
        {"closed spline", &EditWalk::draw<CMD_CLOSED_SPLINE>, true},
        {"interpolated spline", &EditWalk::draw<CMD_INT_SPLINE>, true},
        {"closed interpolated spline", &EditWalk::draw<CMD_CLOSED_INT_SPLINE>, true},
        {"picture", &EditWalk::draw<CMD_PICTURE>, true},

        {"drag of objects", &EditWalk::dragObjects, true},
        {"arrow keys", &EditWalk::moveByKeys, true},
        {"point of a line", &EditWalk::movePoint<isPlainLine>, true},
        {"point of a box", &EditWalk::movePoint<isBox>, true},
        {"point of a picture", &EditWalk::movePoint<isPicture>, true},
        {"point of a spline", &EditWalk::movePoint<isOf<O_SPLINE>>, true},
        {"point of an arc", &EditWalk::movePoint<isOf<O_ARC>>, true},
        {"point of an ellipse", &EditWalk::movePoint<isOf<O_ELLIPSE>>, true},
        {"copy tool", &EditWalk::copyTool, true},
        {"add point", &EditWalk::addPoint, false},
        {"delete point", &EditWalk::deletePoint, true},
        {"scale compound", &EditWalk::scaleCompound, false, O_COMPOUND},
        {"flip up-down", &EditWalk::turn<CMD_FLIP_UD, Qt::LeftButton>, false},
        {"flip left-right", &EditWalk::turn<CMD_FLIP_LR, Qt::LeftButton>, false},
        {"flip a copy up-down", &EditWalk::turn<CMD_FLIP_UD, Qt::RightButton>, false},
        {"flip a copy left-right", &EditWalk::turn<CMD_FLIP_LR, Qt::RightButton>, false},
        {"turn counter-clockwise", &EditWalk::turn<CMD_ROTATE_CCW, Qt::LeftButton>, false},
        {"turn clockwise", &EditWalk::turn<CMD_ROTATE_CW, Qt::LeftButton>, false},
        {"turn copies counter-clockwise", &EditWalk::turn<CMD_ROTATE_CCW, Qt::RightButton>, false},
        {"turn copies clockwise", &EditWalk::turn<CMD_ROTATE_CW, Qt::RightButton>, false},

        {"tangent", &EditWalk::clickWith<CMD_TANGENT>, true},
        {"normal", &EditWalk::clickWith<CMD_NORMAL>, true},
        {"arrowhead tool", &EditWalk::arrowHead, true},
        {"update tool", &EditWalk::updateTool, true},
        {"line to spline", &EditWalk::convert<isPlainLine>, true},
        {"spline to line", &EditWalk::convert<isOf<O_SPLINE>>, true},
        {"box to box", &EditWalk::convert<isBox>, true},
        {"align", &EditWalk::align, true},
        {"link all", &EditWalk::linkAll, false},
        {"edit text", &EditWalk::editText, true, O_TEXT},
        {"resize picture", &EditWalk::resizePicture, true},

        {"create compound", &EditWalk::group, true},
        {"break compound", &EditWalk::ungroup, true},
        {"delete tool", &EditWalk::clickWith<CMD_DELETE>, true},
        {"delete key", &EditWalk::deleteByKey, true},
        {"cut", &EditWalk::cut, true},
        {"paste", &EditWalk::paste, true},
        {"place from library", &EditWalk::placeLibrary, true},

        {"panel: depth", &EditWalk::usePanel<ATTR_DEPTH>, true},
        {"panel: line width", &EditWalk::usePanel<ATTR_LINE_WIDTH>, true},
        {"panel: line style", &EditWalk::usePanel<ATTR_LINE_STYLE>, true},
        {"panel: dash length", &EditWalk::usePanel<ATTR_STYLE_VALUE>, true},
        {"panel: pen colour", &EditWalk::usePanel<ATTR_PEN_COLOR>, true},
        {"panel: fill colour", &EditWalk::usePanel<ATTR_FILL_COLOR>, true},
        {"panel: fill style", &EditWalk::usePanel<ATTR_FILL_STYLE>, true},
        {"panel: cap style", &EditWalk::usePanel<ATTR_CAP_STYLE>, true},
        {"panel: join style", &EditWalk::usePanel<ATTR_JOIN_STYLE>, true},
        {"panel: box type", &EditWalk::usePanel<ATTR_BOX_TYPE>, true},
        {"panel: box radius", &EditWalk::usePanel<ATTR_BOX_RADIUS>, true},
        {"panel: arc type", &EditWalk::usePanel<ATTR_ARC_TYPE>, true},
        {"panel: ellipse angle", &EditWalk::usePanel<ATTR_ELLIPSE_ANGLE>, true},
        {"panel: font", &EditWalk::usePanel<ATTR_FONT>, true, O_TEXT},
        {"panel: justification", &EditWalk::usePanel<ATTR_TEXT_JUSTIFICATION>, true, O_TEXT},
        {"panel: rigid text", &EditWalk::usePanel<ATTR_TEXT_RIGID>, true, O_TEXT},
        {"panel: special text", &EditWalk::usePanel<ATTR_TEXT_SPECIAL>, true, O_TEXT},
        {"panel: text size", &EditWalk::usePanel<ATTR_FONT_SIZE>, true, O_TEXT},
        {"panel: text angle", &EditWalk::usePanel<ATTR_TEXT_ANGLE>, true, O_TEXT},
        {"panel: PostScript font", &EditWalk::usePanel<ATTR_PS_FONT_FLAG>, true, O_TEXT},
        {"panel: forward arrow", &EditWalk::useArrowPanel<ARROW_FORWARD>, true},
        {"panel: backward arrow", &EditWalk::useArrowPanel<ARROW_BACKWARD>, true},
    };
    return table;
}
// clang-format on
