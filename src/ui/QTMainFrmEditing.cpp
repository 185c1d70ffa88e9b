// The edit commands of the main window: each goes to the active document, without one nowhere.
#include "model/FigContext.h"
#include "ui/QTChildFrm.h"
#include "ui/QTMainFrm.h"

namespace {

/// Values of cur_halign and cur_valign.
enum Alignment { ALIGN_NONE, ALIGN_START, ALIGN_MIDDLE, ALIGN_END };

} // namespace

void QTMainFrm::forward(void (QTChildFrm::*command)())
{
    if (QTChildFrm* child = activeMdiChild())
        (child->*command)();
}

void QTMainFrm::undo()
{
    forward(&QTChildFrm::undo);
}

void QTMainFrm::redo()
{
    forward(&QTChildFrm::redo);
}

void QTMainFrm::cut()
{
    forward(&QTChildFrm::cut);
}

void QTMainFrm::copy()
{
    forward(&QTChildFrm::copy);
}

void QTMainFrm::paste()
{
    forward(&QTChildFrm::paste);
}

void QTMainFrm::selectAll()
{
    forward(&QTChildFrm::selectAll);
}

void QTMainFrm::deselectAll()
{
    forward(&QTChildFrm::deselectAll);
}

void QTMainFrm::createSmartLinks()
{
    forward(&QTChildFrm::createSmartLinks);
}

void QTMainFrm::onCreateCompound()
{
    forward(&QTChildFrm::onCreateCompound);
}

void QTMainFrm::onBreakCompound()
{
    forward(&QTChildFrm::onBreakCompound);
}

void QTMainFrm::onOpenCompound()
{
    forward(&QTChildFrm::onOpenCompound);
}

void QTMainFrm::onCloseCompound()
{
    forward(&QTChildFrm::onCloseCompound);
}

void QTMainFrm::onConvertLineSpline()
{
    forward(&QTChildFrm::onConvertLineSpline);
}

void QTMainFrm::align(int horizontal, int vertical)
{
    cur_halign = horizontal;
    cur_valign = vertical;
    forward(&QTChildFrm::onAlignTaggedObjects);
}

void QTMainFrm::alignLeft()
{
    align(ALIGN_START, ALIGN_NONE);
}

void QTMainFrm::alignTop()
{
    align(ALIGN_NONE, ALIGN_START);
}

void QTMainFrm::alignRight()
{
    align(ALIGN_END, ALIGN_NONE);
}

void QTMainFrm::alignBottom()
{
    align(ALIGN_NONE, ALIGN_END);
}

void QTMainFrm::alignCenterH()
{
    align(ALIGN_MIDDLE, ALIGN_NONE);
}

void QTMainFrm::alignCenterV()
{
    align(ALIGN_NONE, ALIGN_MIDDLE);
}

void QTMainFrm::alignCenterHV()
{
    align(ALIGN_MIDDLE, ALIGN_MIDDLE);
}
