// The gesture in progress: who owns it, what it holds, and what its sudden end leaves.
#include "edit/command.h"

#include "edit/actions.h"
#include "edit/d_arc.h"
#include "edit/d_box.h"
#include "edit/d_ellipse.h"
#include "edit/d_line.h"
#include "edit/d_picobj.h"
#include "edit/d_regpoly.h"
#include "edit/d_spline.h"
#include "edit/e_clipboard.h"
#include "edit/e_copy.h"
#include "edit/mode.h"
#include "edit/u_reshaping.h"
#include "model/FigContext.h"
#include "model/u_list.h"

#include <QtTest>

namespace {

void pointerProc(CFigContext*, int, int) {}
void listProc(CFigContext*, FigObjectList*, int, int) {}
void rightProc(CFigContext*, int, int, FigObject*) {}
void feedbackProc(CFigContext*, int, int, int, int) {}

FigLine* addLine(CFigContext* ctx, int x)
{
    auto* line = new FigLine;
    line->sub_type = T_POLYLINE;
    line->depth = 50;
    line->id = ctx->getNextId();
    line->points = new FigPoint(x, 0);
    line->points->next = new FigPoint(x, 600);
    list_add(ctx, ctx->getWorkingRoot(), line);
    return line;
}

} // namespace

class TestGesture : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        cur_command = -1;
        set_functions(nullptr, nullptr, nullptr, nullptr, nullptr);
        canvas_leftbutUp_proc = nullptr;
        canvas_locmove_proc2 = nullptr;
        canvas_middlebut_save = nullptr;
        gestureContext = nullptr;
        reset_action_on();
    }

    void cancelsOfShapesAreTenProcedures()
    {
        for (RightButtonProc cancel :
             {cancel_circlebyrad, cancel_circlebydia, cancel_ellipsebyrad, cancel_ellipsebydia,
              cancel_line_drawing, cancel_spline_drawing, cancel_box_drawing, cancel_arc_drawing,
              cancel_picobj, cancel_regpoly})
            QVERIFY(isCancelCreateObjFunction(cancel));
        for (RightButtonProc other : {create_lineobject, create_splineobject, create_arcobject,
                                      cancel_copy_object, cancel_clipdragging, rightProc})
            QVERIFY(!isCancelCreateObjFunction(other));
        QVERIFY(!isCancelCreateObjFunction(nullptr));
    }

    // --- who owns it ------------------------------------------------------------

    void objectsAreHeldBetweenPressAndReleaseAndWhileSomeMove()
    {
        CFigContext ctx;
        QVERIFY(!gestureHoldsObjects(&ctx) && !gestureHoldsObjects(nullptr));
        canvas_leftbutUp_proc = pointerProc;
        QVERIFY(gestureHoldsObjects(&ctx) && gestureHoldsObjects(nullptr));
        canvas_leftbutUp_proc = nullptr;
        FigObjectList moved;
        ctx.movedObjects = &moved;
        QVERIFY(gestureHoldsObjects(&ctx) && !gestureHoldsObjects(nullptr));
        ctx.movedObjects = nullptr;
    }

    void rubberBandsHoldNoObjects()
    {
        CFigContext ctx;
        set_action_on();
        QVERIFY(!gestureHoldsObjects(&ctx));
    }

    void gestureBelongsToTheDocumentThatWasServedFirst()
    {
        CFigContext first, second;
        noteGesture(&first);
        QVERIFY(!gestureContext);
        set_action_on();
        noteGesture(&first);
        QCOMPARE(gestureContext, &first);
        noteGesture(&second);
        QCOMPARE(gestureContext, &first);
        reset_action_on();
        noteGesture(&second);
        QVERIFY(!gestureContext);
    }

    void aPressOnAnObjectIsAGestureToo()
    {
        CFigContext ctx;
        canvas_leftbutUp_proc = pointerProc;
        noteGesture(&ctx);
        QCOMPARE(gestureContext, &ctx);
        canvas_leftbutUp_proc = nullptr;
        noteGesture(&ctx);
        QVERIFY(!gestureContext);
    }

    // --- its sudden end ---------------------------------------------------------

    void withoutAnOwnerNothingIsAbandoned()
    {
        set_action_on();
        canvas_leftbutUp_proc = pointerProc;
        abandonGesture(nullptr);
        QCOMPARE(action_on, 1);
        QVERIFY(canvas_leftbutUp_proc == pointerProc);
    }

    void everyTraceOfTheGestureGoes()
    {
        CFigContext ctx;
        FigPoint point;
        set_action_on();
        moved_pos = left_point = right_point = &point;
        canvas_leftbutUp_proc = pointerProc;
        canvas_locmove_proc2 = listProc;
        canvas_middlebut_save = rightProc;
        elastic_proc = feedbackProc;
        oldElasticObjectList.append(new FigLine);
        ctx.reshapedObject = new FigSpline;
        ctx.addPointActions = new QList<ActionItem*>{new ActionItem};
        ctx.firstPoint = new FigPoint(1, 2);
        ctx.lastPoint = ctx.firstPoint;
        append_point(3, 4, &ctx.lastPoint);
        gestureContext = &ctx;
        abandonGesture(&ctx);
        QVERIFY(!moved_pos && !left_point && !right_point);
        QVERIFY(!canvas_leftbutUp_proc && !canvas_locmove_proc2 && !canvas_middlebut_save);
        QVERIFY(!elastic_proc && !gestureContext);
        QCOMPARE(action_on, 0);
        QVERIFY(oldElasticObjectList.isEmpty());
        QVERIFY(!ctx.reshapedObject && !ctx.addPointActions && !ctx.firstPoint && !ctx.lastPoint);
    }

    void theIdleSlotsStay()
    {
        CFigContext ctx;
        set_functions(nullptr, nullptr, pointerProc, init_box_drawing, rightProc);
        abandonGesture(&ctx);
        QVERIFY(canvas_leftbut_proc == init_box_drawing);
        QVERIFY(canvas_middlebut_proc == rightProc && canvas_locmove_proc == pointerProc);
    }

    void draggedObjectsStayInTheFigure()
    {
        CFigContext ctx;
        FigLine* line = addLine(&ctx, 0);
        ctx.movedObjects = new FigObjectList{line};
        ctx.curObject = line;
        cur_command = CMD_DRAG_OBJECTS;
        canvas_leftbutUp_proc = pointerProc;
        abandonGesture(&ctx);
        QVERIFY(!ctx.movedObjects);
        QCOMPARE(ctx.drawing.objects, FigObjectList{line});
        QCOMPARE(ctx.curObject, static_cast<FigObject*>(line));
    }

    void copiesOfThePreviewLeaveTheFigure_data()
    {
        QTest::addColumn<bool>("paste");
        QTest::newRow("paste") << true;
        QTest::newRow("copy") << false;
    }

    void copiesOfThePreviewLeaveTheFigure()
    {
        QFETCH(bool, paste);
        CFigContext ctx;
        FigLine* line = addLine(&ctx, 0);
        auto* copied = new FigLine;
        copied->depth = 50;
        ctx.getWorkingRoot()->append(copied);
        ctx.movedObjects = new FigObjectList{copied};
        ctx.curObject = copied;
        set_functions(nullptr, nullptr, nullptr, paste ? placeClipOjects : place_copy_object,
                      nullptr);
        // The command may be that of the next tool already.
        cur_command = CMD_BOX;
        abandonGesture(&ctx);
        QVERIFY(!ctx.movedObjects && !ctx.curObject);
        QCOMPARE(ctx.drawing.objects, FigObjectList{line});
    }
};

QTEST_GUILESS_MAIN(TestGesture)
#include "test_gesture.moc"
