#include "ui/GestureHint.h"

#include "edit/command.h"
#include "edit/d_arc.h"
#include "edit/d_box.h"
#include "edit/d_ellipse.h"
#include "edit/d_line.h"
#include "edit/d_picobj.h"
#include "edit/d_regpoly.h"
#include "edit/d_spline.h"
#include "edit/d_text.h"
#include "edit/e_addpt_tool.h"
#include "edit/e_arrow.h"
#include "edit/e_clipboard.h"
#include "edit/e_copy.h"
#include "edit/e_delete.h"
#include "edit/e_deletept_tool.h"
#include "edit/e_library.h"
#include "edit/e_move.h"
#include "edit/e_movept_tool.h"
#include "edit/e_scale_compound.h"
#include "edit/e_select.h"
#include "edit/e_tangent.h"
#include "edit/e_update.h"
#include "edit/mode.h"
#include "edit/u_search.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

template <typename Proc> struct HintRow {
    Proc proc;
    const char* hint;
};

const HintRow<ButtonProc> leftTable[] = {
    {init_circlebyradius_drawing, "centre"},
    {create_circlebyrad, "point of the rim"},
    {init_circlebydiameter_drawing, "first end of a diameter"},
    {create_circlebydia, "other end of the diameter"},
    {init_ellipsebyradius_drawing, "centre"},
    {create_ellipsebyrad, "corner of the box around it"},
    {init_ellipsebydiameter_drawing, "first corner of the box around it"},
    {create_ellipsebydia, "opposite corner"},
    {init_box_drawing, "first corner"},
    {create_boxobject, "opposite corner"},
    {init_picobj_drawing, "first corner"},
    {create_picobj, "opposite corner"},
    {init_regpoly_drawing, "centre"},
    {create_regpoly, "a corner"},
    {init_arc_drawing, "first point of the arc"},
    {get_arcpoint, "next point of the arc"},
    {init_line_drawing, "first point"},
    {init_trace_drawing, "first point"},
    {init_spline_drawing, "first control point"},
    {get_intermediatepoint, "next point"},
    {init_text_input, "start of the text"},
    {init_tagging, "select or drag"},
    {place_copy_object, "put it here"},
    {placeClipOjects, "put it here"},
    {place_lib_object, "put it here"},
    {init_add_point, "outline for a new point"},
    {init_scale_compound, "drag a corner or an edge"},
};

// Of the tools whose left button is a search: what is looked for.
const HintRow<ObjectHandler> objectTable[] = {
    {init_copy, "object to copy"},
    {init_delete, "object to remove"},
    {update_object, "object to update"},
    {tangent_or_normal, "point of the outline"},
};

const HintRow<PointHandler> pointTable[] = {
    {change_arrow_head, "end of a line"},
    {init_delete_point, "point to delete"},
};

const HintRow<PointerProc> releaseTable[] = {
    {tag_clip_region, "select what lies inside"},    {translateTaggedOjects, "put it here"},
    {fix_movedlinepoint, "put the point here"},      {fix_movedboxpoint, "put the corner here"},
    {fix_movedsplinepoint, "put the point here"},    {fix_movedarcpoint, "put the point here"},
    {fix_movedellipsepoint, "put the point here"},   {fix_movedlinepointAdd, "put the point here"},
    {fix_movedsplinepointAdd, "put the point here"}, {fix_scalecompound, "this size"},
};

// A press that the first move makes a drag.
const HintRow<PointerProc> pressedTable[] = {
    {cancel_startdragging, "move the selection"},
    {cancel_startPointDragging, "move the point"},
    {cancel_startPointAddDragging, "move the new point"},
};

const HintRow<RightButtonProc> rightTable[] = {
    {cancel_clipselect, "deselect"},  {cancel_objectdragging, "cancel"},
    {cancel_copy_object, "cancel"},   {cancel_clipdragging, "cancel"},
    {cancel_place_lib_obj, "cancel"}, {cancel_pointdragging, "cancel"},
    {cancel_point_adding, "cancel"},  {cancel_scale_compound, "cancel"},
};

template <typename Proc, std::size_t count>
const char* find(const HintRow<Proc> (&table)[count], Proc proc)
{
    for (const HintRow<Proc>& row : table)
        if (row.proc == proc)
            return row.hint;
    return "";
}

bool isFinish(RightButtonProc proc)
{
    return proc == create_lineobject || proc == create_splineobject;
}

const char* leftHint()
{
    if (canvas_leftbut_proc == object_search_left)
        return find(objectTable, handlerproc_left);
    if (canvas_leftbut_proc == point_search_left)
        return find(pointTable, pointHandlerproc_left);
    if (canvas_leftbut_proc == get_arcpoint && num_point == 2)
        return "last point of the arc";
    return find(leftTable, canvas_leftbut_proc);
}

const char* rightHint()
{
    if (isCancelCreateObjFunction(canvas_middlebut_proc))
        return "cancel";
    if (isFinish(canvas_middlebut_proc))
        return action_on ? "last point" : "a single point";
    if (!canvas_middlebut_proc)
        return isObjectDrawingCommand() && !action_on ? "deselect" : "";
    return find(rightTable, canvas_middlebut_proc);
}

QString part(const char* format, const char* hint)
{
    return QCoreApplication::translate("GestureHint", format)
        .arg(QCoreApplication::translate("GestureHint", hint));
}

} // namespace

QString gestureHint()
{
    const char* pressed = find(pressedTable, canvas_leftbutUp_proc);
    const char* release = find(releaseTable, canvas_leftbutUp_proc);
    const char* left = leftHint();
    QStringList parts;
    if (*pressed)
        parts.append(part("drag: %1", pressed));
    else if (*release)
        parts.append(part("release: %1", release));
    else if (*left)
        parts.append(part("left: %1", left));
    else
        return QString();
    if (const char* right = rightHint(); *right)
        parts.append(part("right: %1", right));
    return parts.join(", ");
}
