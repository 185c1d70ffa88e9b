// The edit commands of a document: selection and markers, undo, clipboard, compounds, alignment,
// conversion and links. None of them pulls an object away from under a gesture.
#include "edit/actions.h"
#include "edit/command.h"
#include "edit/e_align.h"
#include "edit/e_clipboard.h"
#include "edit/e_compound.h"
#include "edit/e_convert.h"
#include "edit/mode.h"
#include "model/FigContext.h"
#include "model/shell.h"
#include "render/markers.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"

#include <memory>

namespace {

/// The panel of the selected object. Without one a tool that edits has its own back; after one that
/// draws there is nothing to show.
void showAttributes(QTMainFrm* window, CFigContext* context)
{
    FigObject* object = context->curObject;
    window->showAttributesBar(context, object);
    if (!object && !isDrawingFunction(cur_command))
        window->showContextDialog(-1);
}

} // namespace

// --- markers and selection ---------------------------------------------------

void QTChildFrm::showPointMarker()
{
    changeWithPresentHint([this] { show_pointmarker(figContext); });
}

void QTChildFrm::showPointMarker(FigObject* object)
{
    changeWithPresentHint([=] { ::showPointMarker(figContext, object); });
}

void QTChildFrm::showTaggedMarker(FigObject* except)
{
    changeWithPresentHint([=] { showTaggedMarkers(figContext, except); });
}

/// Of all objects: the last redraw has left its flags on those that it passed by.
void QTChildFrm::refreshPointmarker()
{
    applyFunction(figContext->getWorkingRoot(), clearIgnoreFlag);
    changeWithPresentHint([this] { refresh_pointmarker(figContext); });
    if (setcenter)
        refreshCenterMarker(setcenter_x, setcenter_y);
}

void QTChildFrm::showSelectedPointMarker(int x, int y)
{
    change([=] { ::showSelectedPointMarker(figContext, x, y); });
}

void QTChildFrm::refreshCenterMarker(int x, int y)
{
    change([=] { refresh_center_marker(figContext, x, y); });
}

void QTChildFrm::drawPointmarker()
{
    change([this] { draw_pointmarker(figContext, getCurrentDefaultMarker()); });
}

void QTChildFrm::erasePointmarker()
{
    change([this] { erase_pointmarker(figContext); });
}

void QTChildFrm::clearPointMarker(FigObject* object)
{
    change([=] { ::clearPointMarker(object); });
}

void QTChildFrm::unmarkCurrentObject()
{
    change([this] { unmark_current_object(figContext); });
}

void QTChildFrm::unmarkAllUntaggedObjects()
{
    change([this] { ::unmarkAllUntaggedObjects(figContext); });
}

void QTChildFrm::deselectAll()
{
    set_tags(figContext->getWorkingRoot(), false);
    unmarkAllUntaggedObjects();
    figContext->curObject = nullptr;
    mainFrm->fireCommentChanged(false);
    updateButtons();
}

/// Hidden objects and members of compounds are tagged too.
void QTChildFrm::selectAll()
{
    if (cur_command != CMD_SELECT && cur_command != CMD_DRAG_OBJECTS &&
        cur_command != CMD_MOVE_POINT)
        return;
    applyFunction(figContext->getWorkingRoot(), setTaggedFlag);
    updateButtons();
    refreshPointmarker();
}

// --- edit commands ----------------------------------------------------------

void QTChildFrm::undo()
{
    stepThroughHistory(&UndoQueue::undo);
}

void QTChildFrm::redo()
{
    stepThroughHistory(&UndoQueue::redo);
}

void QTChildFrm::stepThroughHistory(void (UndoQueue::*step)())
{
    if (gestureHoldsObjects(figContext))
        return;
    change([=] { (figContext->undoQueue.*step)(); });
    showAttributes(mainFrm, figContext);
    updateButtons();
}

void QTChildFrm::cut()
{
    if (action_on || gestureHoldsObjects(figContext))
        return;
    change([this] { cut_to_clipboard(figContext); });
    updateButtons();
}

void QTChildFrm::copy()
{
    if (!action_on && !gestureHoldsObjects(figContext))
        copy_to_clipboard(figContext);
}

void QTChildFrm::paste()
{
    if (action_on || gestureHoldsObjects(figContext) || isClipboardEmpty())
        return;
    previous_command = cur_command;
    cur_command = CMD_PASTE;
    forgetFoundObject();
    clippaste_selected(figContext);
    afterSlot();
}

/// The Delete key. Without a selection there is an empty step.
void QTChildFrm::deleteTagged()
{
    if (gestureHoldsObjects(figContext))
        return;
    const std::unique_ptr<FigObjectList> removed(cutTaggedOjects(figContext));
    figContext->curObject = nullptr;
    refreshObjArea(removed.get(), true);
    updateButtons();
}

// --- compounds, alignment, conversion, links ---------------------------------

template <typename Work> void QTChildFrm::edit(Work work)
{
    if (gestureHoldsObjects(figContext))
        return;
    change(work);
    updateButtons();
}

void QTChildFrm::onCreateCompound()
{
    edit([this] { create_compoundobject(figContext); });
}

void QTChildFrm::onBreakCompound()
{
    edit([this] {
        break_compoundobject(figContext);
        showAttributes(mainFrm, figContext);
    });
}

void QTChildFrm::onOpenCompound()
{
    edit([this] {
        if (auto* compound = dynamic_cast<FigCompound*>(figContext->curObject))
            open_compound(figContext, compound);
        showAttributes(mainFrm, figContext);
    });
}

void QTChildFrm::onCloseCompound()
{
    edit([this] {
        if (isCompoundOpen(figContext))
            close_compound(figContext, true);
        showAttributes(mainFrm, figContext);
    });
}

void QTChildFrm::onAlignTaggedObjects()
{
    edit([this] { align_tagged_objects(figContext); });
}

void QTChildFrm::onConvertLineSpline()
{
    edit([this] {
        if (do_convert_line_spline(figContext, figContext->curObject, 0, 0, 0, 0, 0))
            mainFrm->showAttributesBar(figContext, figContext->curObject);
    });
}

void QTChildFrm::createSmartLinks()
{
    if (gestureHoldsObjects(figContext) ||
        !shell_question("Create Smart Links?",
                        "Orvalt will now search for possible connections between objects and "
                        "create smart links. A later undo will be possible.\n\nDo you wish to "
                        "continue?"))
        return;
    auto* action = new CreateSmartLinksForDrawingAction(figContext->getWorkingRoot());
    action->execute(figContext);
    figContext->undoQueue.addAction(action);
    refreshObjArea(figContext->getWorkingRoot(), false);
}
