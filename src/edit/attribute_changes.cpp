// Changes of attributes: found, applied and taken back.
#include "edit/actions.h"
#include "edit/attribute_table.h"
#include "model/FigContext.h"
#include "model/w_layers.h"
#include "render/Font.h"

int updatelist[NUM_ATTRIBUTE_KINDS] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,
                                       1, 1, 1, 1, 1, 1, 1, 1, 1, 1};

namespace {

bool isReal(int kind)
{
    return kind == ATTR_STYLE_VALUE || kind == ATTR_ELLIPSE_ANGLE || kind == ATTR_TEXT_ANGLE;
}

AttributeChange* makeChange(AttributeKind kind, double oldValue, double newValue)
{
    auto* change = new AttributeChange;
    change->kind = kind;
    if (isReal(kind)) {
        change->oldFloat = static_cast<float>(oldValue);
        change->newFloat = static_cast<float>(newValue);
    } else if (kind == ATTR_PS_FONT_FLAG) {
        change->oldFlag = oldValue != 0;
        change->newFlag = newValue != 0;
    } else {
        change->oldValue = static_cast<int>(oldValue);
        change->newValue = static_cast<int>(newValue);
    }
    return change;
}

/// The one of three representations that a kind has.
double valueOf(int kind, int number, float real, bool flag)
{
    if (isReal(kind))
        return real;
    if (kind == ATTR_PS_FONT_FLAG)
        return flag ? psFontFlag : 0;
    return number;
}

double formerValue(const AttributeChange& change)
{
    return valueOf(change.kind, change.oldValue, change.oldFloat, change.oldFlag);
}

double wantedValue(const AttributeChange& change)
{
    return valueOf(change.kind, change.newValue, change.newFloat, change.newFlag);
}

void appendChanges(CFigContext* ctx, FigObject* object, bool useList, ActionList* changes)
{
    const auto rows = useList ? attributesOf(object) : attributesInPanels(object);
    for (const Attribute* row : rows) {
        if ((useList && !updatelist[row->kind]) || !isDifferent(*row, ctx, object))
            continue;
        AttributeChange* change = makeChange(row->kind, row->read(object), row->current(ctx));
        changes->append(new ChangeAttributeAction(object, ctx->getWorkingRoot(), change));
    }
}

ActionList* changesOf(CFigContext* ctx, const FigObjectList& list, bool useList)
{
    FigObjectList objects;
    collectAttributed(list, &objects);
    auto* changes = new ActionList;
    for (FigObject* object : qAsConst(objects))
        appendChanges(ctx, object, useList, changes);
    return changes;
}

void setAttribute(CFigContext* ctx, FigObject* object, int kind, double value)
{
    const Attribute* attribute = attributeOf(object, kind);
    if (!attribute)
        return;
    if (kind == ATTR_DEPTH)
        remove_depth(ctx, object->type, object->depth);
    attribute->write(object, value);
    if (kind == ATTR_DEPTH)
        add_depth(ctx, object->type, object->depth);
    if (kind == ATTR_FONT || kind == ATTR_FONT_SIZE)
        pf_textwidth(ctx, static_cast<FigText*>(object), static_cast<double>(ctx->zoom));
}

} // namespace

// --- lists of changes -------------------------------------------------------------------

ActionList* getChangesList(CFigContext* ctx, FigObject* object, bool useList)
{
    return changesOf(ctx, {object}, useList);
}

ActionList* getChangesList(CFigContext* ctx, FigArc* arc, bool useList)
{
    return changesOf(ctx, {arc}, useList);
}

ActionList* getChangesList(CFigContext* ctx, FigEllipse* ellipse, bool useList)
{
    return changesOf(ctx, {ellipse}, useList);
}

ActionList* getChangesList(CFigContext* ctx, FigLine* line, bool useList)
{
    return changesOf(ctx, {line}, useList);
}

ActionList* getChangesList(CFigContext* ctx, FigSpline* spline, bool useList)
{
    return changesOf(ctx, {spline}, useList);
}

ActionList* getChangesList(CFigContext* ctx, FigText* text, bool useList)
{
    return changesOf(ctx, {text}, useList);
}

ActionList* getChangesList(CFigContext* ctx, FigCompound* compound, bool useList)
{
    return changesOf(ctx, {compound}, useList);
}

ActionList* getChangesList(CFigContext* ctx, FigObjectList* list, bool useList)
{
    return changesOf(ctx, *list, useList);
}

// --- applying ---------------------------------------------------------------------------

void updateAttrs(CFigContext* ctx, FigObject* object, AttributeChange* change)
{
    change->dashBefore = object->style_val;
    setAttribute(ctx, object, change->kind, wantedValue(*change));
    change->dashAfter = object->style_val;
}

void updateAttrs(CFigContext* ctx, FigArc* arc, AttributeChange* change)
{
    updateAttrs(ctx, static_cast<FigObject*>(arc), change);
}

void updateAttrs(CFigContext* ctx, FigEllipse* ellipse, AttributeChange* change)
{
    updateAttrs(ctx, static_cast<FigObject*>(ellipse), change);
}

void updateAttrs(CFigContext* ctx, FigLine* line, AttributeChange* change)
{
    updateAttrs(ctx, static_cast<FigObject*>(line), change);
}

void updateAttrs(CFigContext* ctx, FigSpline* spline, AttributeChange* change)
{
    updateAttrs(ctx, static_cast<FigObject*>(spline), change);
}

void updateAttrs(CFigContext* ctx, FigText* text, AttributeChange* change)
{
    updateAttrs(ctx, static_cast<FigObject*>(text), change);
}

void updateAttrsUndo(CFigContext* ctx, FigObject* object, AttributeChange* change)
{
    const bool dashUntouched = object->style_val == change->dashAfter;
    setAttribute(ctx, object, change->kind, formerValue(*change));
    if (dashUntouched)
        object->style_val = change->dashBefore;
}

void updateAttrsUndo(CFigContext* ctx, FigArc* arc, AttributeChange* change)
{
    updateAttrsUndo(ctx, static_cast<FigObject*>(arc), change);
}

void updateAttrsUndo(CFigContext* ctx, FigEllipse* ellipse, AttributeChange* change)
{
    updateAttrsUndo(ctx, static_cast<FigObject*>(ellipse), change);
}

void updateAttrsUndo(CFigContext* ctx, FigLine* line, AttributeChange* change)
{
    updateAttrsUndo(ctx, static_cast<FigObject*>(line), change);
}

void updateAttrsUndo(CFigContext* ctx, FigSpline* spline, AttributeChange* change)
{
    updateAttrsUndo(ctx, static_cast<FigObject*>(spline), change);
}

void updateAttrsUndo(CFigContext* ctx, FigText* text, AttributeChange* change)
{
    updateAttrsUndo(ctx, static_cast<FigObject*>(text), change);
}
