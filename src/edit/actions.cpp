// Objects that come and go, attributes, arrows, texts and conversions. Moves and turns, points,
// compounds and links stand in files of their own.
#include "edit/actions.h"

#include "edit/action_support.h"
#include "edit/e_arrow.h"
#include "edit/e_convert.h"
#include "edit/e_links.h"
#include "edit/e_update.h"
#include "model/FigContext.h"
#include "render/Font.h"

#include <utility>

// --- add and delete ----------------------------------------------------------------

AddAction::AddAction(FigObject* added, FigObjectList* list)
{
    object = added;
    workingList = list;
}

bool AddAction::execute(CFigContext* ctx)
{
    enterList(ctx, workingList, object);
    return true;
}

bool AddAction::undo(CFigContext* ctx)
{
    closeBeforeLeaving(ctx, object);
    leaveList(ctx, workingList, object);
    return true;
}

void AddAction::disposeAsRedo()
{
    delete object;
    object = nullptr;
}

DeleteAction::DeleteAction(FigObject* deleted, FigObjectList* list)
{
    object = deleted;
    workingList = list;
}

bool DeleteAction::execute(CFigContext* ctx)
{
    closeBeforeLeaving(ctx, object);
    leaveList(ctx, workingList, object);
    // Those of an earlier run are back on their points.
    savedLinks.clear();
    findLinksThatConnectTo(workingList, object, &savedLinks);
    removeAllLinks(&savedLinks, true);
    return true;
}

bool DeleteAction::undo(CFigContext* ctx)
{
    enterList(ctx, workingList, object);
    restoreLinks(&savedLinks);
    return true;
}

void DeleteAction::disposeAsUndo()
{
    delete object;
    object = nullptr;
    qDeleteAll(savedLinks);
    savedLinks.clear();
}

// --- attributes ----------------------------------------------------------------------

namespace {

/// Where a text stands, how it is turned and whether it is rigid does not show in its rendered
/// images.
bool changesImages(int kind)
{
    return kind != ATTR_TEXT_JUSTIFICATION && kind != ATTR_TEXT_RIGID && kind != ATTR_TEXT_ANGLE;
}

} // namespace

ChangeAttributeAction::ChangeAttributeAction(FigObject* changed, FigObjectList* list,
                                             AttributeChange* attributes)
    : change(attributes)
{
    object = changed;
    workingList = list;
}

bool ChangeAttributeAction::execute(CFigContext* ctx)
{
    updateAttrs(ctx, object, change);
    if (changesImages(change->kind))
        disposeImages(object);
    return true;
}

bool ChangeAttributeAction::undo(CFigContext* ctx)
{
    updateAttrsUndo(ctx, object, change);
    if (changesImages(change->kind))
        disposeImages(object);
    return true;
}

void ChangeAttributeAction::disposeAsUndo()
{
    delete change;
    change = nullptr;
}

void ChangeAttributeAction::disposeAsRedo()
{
    disposeAsUndo();
}

// --- arrows ----------------------------------------------------------------------------

ChangeArrowAction::ChangeArrowAction(FigObject* changed, FigObjectList* list, int arrowDirection,
                                     FigArrow* arrow)
    : direction(arrowDirection), newArrow(arrow)
{
    object = changed;
    workingList = list;
}

bool ChangeArrowAction::execute(CFigContext*)
{
    oldArrow = add_arrow(object, static_cast<ArrowDirection>(direction), newArrow);
    return true;
}

bool ChangeArrowAction::undo(CFigContext*)
{
    newArrow = add_arrow(object, static_cast<ArrowDirection>(direction), oldArrow);
    return true;
}

void ChangeArrowAction::disposeAsUndo()
{
    delete oldArrow;
    oldArrow = nullptr;
}

void ChangeArrowAction::disposeAsRedo()
{
    delete newArrow;
    newArrow = nullptr;
}

// --- texts --------------------------------------------------------------------------------

namespace {

void setText(CFigContext* ctx, FigObject* object, const QString& words)
{
    auto* text = static_cast<FigText*>(object);
    text->cstring = words;
    pf_textwidth(ctx, text, static_cast<double>(ctx->zoom));
    text->disposeImages();
}

} // namespace

EditTextAction::EditTextAction(FigObject* changed, FigObjectList* list, const QString& text,
                               const QString& formerText)
    : newText(text), oldText(formerText)
{
    object = changed;
    workingList = list;
}

bool EditTextAction::execute(CFigContext* ctx)
{
    setText(ctx, object, newText);
    return true;
}

bool EditTextAction::undo(CFigContext* ctx)
{
    setText(ctx, object, oldText);
    return true;
}

// --- conversions ----------------------------------------------------------------------------

namespace {

/// The arrows belong to the object that is in the drawing.
void handArrowsOver(FigObject* from, FigObject* to)
{
    to->forward_arrow = std::exchange(from->forward_arrow, nullptr);
    to->backward_arrow = std::exchange(from->backward_arrow, nullptr);
}

/// One object takes the place of another, also as the current one. It stands last in the list.
void exchangeObjects(CFigContext* ctx, FigObjectList* list, FigObject* leaving, FigObject* entering)
{
    handArrowsOver(leaving, entering);
    leaveList(ctx, list, leaving);
    enterList(ctx, list, entering);
    if (ctx->curObject == leaving)
        ctx->curObject = entering;
}

} // namespace

ConvertLineToSplineAction::ConvertLineToSplineAction(FigLine* converted, FigObjectList* list)
    : line(converted)
{
    object = converted;
    workingList = list;
}

bool ConvertLineToSplineAction::execute(CFigContext* ctx)
{
    if (!spline)
        spline = line_spline(ctx, line);
    if (!spline)
        return false;
    exchangeObjects(ctx, workingList, line, spline);
    object = spline;
    return true;
}

bool ConvertLineToSplineAction::undo(CFigContext* ctx)
{
    if (!spline)
        return false;
    exchangeObjects(ctx, workingList, spline, line);
    object = line;
    return true;
}

void ConvertLineToSplineAction::disposeAsUndo()
{
    delete line;
    line = nullptr;
}

void ConvertLineToSplineAction::disposeAsRedo()
{
    delete spline;
    spline = nullptr;
}

ConvertSplineToLineAction::ConvertSplineToLineAction(FigSpline* converted, FigObjectList* list)
    : spline(converted)
{
    object = converted;
    workingList = list;
}

bool ConvertSplineToLineAction::execute(CFigContext* ctx)
{
    if (!line)
        line = spline_line(ctx, spline);
    if (!line)
        return false;
    exchangeObjects(ctx, workingList, spline, line);
    object = line;
    return true;
}

bool ConvertSplineToLineAction::undo(CFigContext* ctx)
{
    if (!line)
        return false;
    exchangeObjects(ctx, workingList, line, spline);
    object = spline;
    return true;
}

void ConvertSplineToLineAction::disposeAsUndo()
{
    delete spline;
    spline = nullptr;
}

void ConvertSplineToLineAction::disposeAsRedo()
{
    delete line;
    line = nullptr;
}
