// The select tool and what starts from it: tagging, regions, drags, points; the clipboard, the
// copy tool and the delete tool. At 80 dots per inch and zoom 1 a hit may be 30 units off.
#include "LinkFixture.h"
#include "ToolFixture.h"
#include "edit/actions.h"
#include "edit/e_arrow.h"
#include "edit/e_clipboard.h"
#include "edit/e_compound.h"
#include "edit/e_copy.h"
#include "edit/e_delete.h"
#include "edit/e_library.h"
#include "edit/e_move.h"
#include "edit/e_movept_tool.h"
#include "edit/e_select.h"
#include "edit/u_reshaping.h"
#include "render/u_bound.h"

#include <QtTest>

namespace {

struct Selection : ToolDocument {
    Selection()
    {
        shift_down = false;
        previous_command = -1;
        put(makeBox(600, 600, 1200, 1200));
        put(makeBox(2400, 600, 3000, 1200));
        image = redrawn();
        choose(CMD_SELECT, select_selected);
    }
    ~Selection()
    {
        shift_down = false;
        delete ctx.movedObjects;
        ctx.movedObjects = nullptr;
        deleteObjectList(&oldElasticObjectList);
    }
    template <typename Object> Object* put(Object* object)
    {
        object->depth = 50;
        object->id = ctx.getNextId();
        object->thickness = 1;
        list_add(&ctx, &ctx.drawing.objects, object);
        return object;
    }
    FigLine* box(int index) { return static_cast<FigLine*>(object(index)); }
    void click(int x, int y)
    {
        left(x, y);
        release(x, y);
    }
    /// Indexes of what is selected.
    QList<int> selected()
    {
        QList<int> indexes;
        for (int i = 0; i < count(); ++i)
            if (object(i)->tagged)
                indexes.append(i);
        return indexes;
    }
    QString corner(int index) { return at(box(index)->points); }
    bool isResting() { return isIdle(init_tagging) && cur_command == CMD_SELECT; }
};

QByteArray bytes(Selection& document)
{
    return document.records().toUtf8();
}

} // namespace

class TestSelect : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { clear_clipboard(); }

    // --- tagging ------------------------------------------------------------------

    void aClickSelectsWithoutAnUndoStep()
    {
        Selection document;
        document.click(900, 600);
        QCOMPARE(document.selected(), QList<int>{0});
        QCOMPARE(document.ctx.curObject, document.object(0));
        QCOMPARE(document.ctx.undoQueue.undoCount(), 0);
        QVERIFY(document.isResting());
        document.click(2700, 600);
        QCOMPARE(document.selected(), QList<int>{1});
    }

    void shiftAddsAndTakesAway()
    {
        Selection document;
        document.click(900, 600);
        shift_down = true;
        document.click(2700, 600);
        QCOMPARE(document.selected(), (QList<int>{0, 1}));
        document.click(900, 600);
        QCOMPARE(document.selected(), QList<int>{1});
    }

    void shiftOnTheOnlySelectedObjectStartsNoDrag()
    {
        Selection document;
        document.click(900, 600);
        shift_down = true;
        document.left(900, 600);
        QVERIFY(document.selected().isEmpty());
        QVERIFY(!document.ctx.curObject);
        QVERIFY(!canvas_locmove_proc);
        document.release(900, 600);
    }

    void shiftOnAPointOfTheSelectedObjectTakesItAwayAsWell()
    {
        Selection document;
        document.click(900, 600);
        shift_down = true;
        document.click(600, 600);
        QVERIFY(document.selected().isEmpty());
    }

    void aClickOnASelectedObjectKeepsTheWholeSelection()
    {
        Selection document;
        document.drag(300, 300, 3300, 1500);
        QCOMPARE(document.selected(), (QList<int>{0, 1}));
        document.click(900, 600);
        QCOMPARE(document.selected(), (QList<int>{0, 1}));
    }

    void theRightButtonSelectsNothing()
    {
        Selection document;
        document.click(900, 600);
        document.right(1500, 1500);
        QVERIFY(document.selected().isEmpty());
        QVERIFY(!document.ctx.curObject);
        QVERIFY(document.isResting());
    }

    // --- regions --------------------------------------------------------------------

    void aRegionChangesTheTagsOfWhatLiesWhollyInside()
    {
        Selection document;
        document.drag(300, 300, 1500, 1500);
        QCOMPARE(document.selected(), QList<int>{0});
        QCOMPARE(document.ctx.curObject, document.object(0));
        shift_down = true;
        document.drag(3300, 1500, 300, 300); // from any corner
        QCOMPARE(document.selected(), QList<int>{1});
        QVERIFY(document.isResting());
    }

    void anObjectThatIsPartlyInsideIsLeftAlone()
    {
        Selection document;
        document.drag(300, 300, 900, 1500);
        QVERIFY(document.selected().isEmpty());
    }

    void theRightButtonEndsARegionAndWipesIt()
    {
        Selection document;
        const QImage before = document.image;
        document.left(1500, 300);
        document.move(1800, 900);
        QVERIFY(document.image != before);
        QCOMPARE(elastic_proc != nullptr, true);
        document.right(1800, 900);
        QCOMPARE(document.image, document.redrawn());
        QVERIFY(document.isResting());
    }

    // --- drags ------------------------------------------------------------------------

    void aDragIsOneStepThatCarriesTheWholeWay()
    {
        Selection document;
        const QByteArray first = bytes(document);
        document.drag(900, 600, 1200, 750);
        QCOMPARE(document.corner(0), QString("900,750"));
        QCOMPARE(document.corner(1), QString("2400,600"));
        QCOMPARE(document.ctx.undoQueue.undoCount(), 1);
        QVERIFY(document.isResting());
        QVERIFY(!document.ctx.movedObjects);
        document.ctx.undoQueue.undo();
        QCOMPARE(bytes(document), first);
    }

    void theDocumentDoesNotChangeBeforeTheRelease()
    {
        Selection document;
        const QByteArray first = bytes(document);
        document.left(900, 600);
        document.move(1000, 700);
        document.move(1200, 750);
        QCOMPARE(bytes(document), first);
        QCOMPARE(cur_command, int(CMD_DRAG_OBJECTS));
        document.right(1200, 750);
        QCOMPARE(bytes(document), first);
        QCOMPARE(document.ctx.undoQueue.undoCount(), 0);
        QVERIFY(document.isResting());
        QVERIFY(oldElasticObjectList.isEmpty());
    }

    void aDragBackToItsStartIsAStepAllTheSame()
    {
        Selection document;
        document.left(900, 600);
        document.move(1200, 900);
        document.move(900, 600);
        document.release(900, 600);
        QCOMPARE(document.corner(0), QString("600,600"));
        QCOMPARE(document.ctx.undoQueue.undoCount(), 1);
    }

    void aDragTakesTheWholeSelectionAndTheConnectorsFollow()
    {
        Selection document;
        FigLine* connector = document.put(makeLine({{1200, 900}, {2400, 900}}));
        connector->points->link = makeConnection(&document.ctx, &document.ctx.drawing.objects,
                                                 connector->points, connector);
        FigPoint* end = connector->points->next;
        end->link = makeConnection(&document.ctx, &document.ctx.drawing.objects, end, connector);
        QVERIFY(connector->points->link && end->link);
        const QByteArray first = bytes(document);
        document.drag(900, 600, 900, 750);
        QCOMPARE(chain(connector), QString("1200,1050 2400,900"));
        document.drag(300, 300, 3300, 1500); // both boxes and the connector
        QCOMPARE(document.selected(), (QList<int>{0, 1, 2}));
        document.drag(2700, 600, 2850, 600);
        QCOMPARE(chain(connector), QString("1350,1050 2550,900"));
        document.ctx.undoQueue.undo();
        document.ctx.undoQueue.undo();
        QCOMPARE(bytes(document), first);
    }

    void aPressWhenTheReleaseOfADragWasLostPutsTheDraggedBack()
    {
        Selection page;
        page.left(600, 900);
        page.move(900, 900);
        QVERIFY(page.ctx.movedObjects);
        page.left(3900, 3000); // beside both: a region
        QVERIFY(!page.ctx.movedObjects);
        QVERIFY(!canvas_locmove_proc2);
        page.release(4200, 3300);
        QVERIFY(page.isResting());
        QCOMPARE(page.corner(0), QString("600,600"));
        QCOMPARE(page.ctx.undoQueue.undoCount(), 0);
    }

    void thePictureOfADragIsWhatARedrawShows()
    {
        Selection document;
        document.drag(900, 600, 1200, 750);
        unmarkAllUntaggedObjects(&document.ctx);
        QCOMPARE(document.image, document.redrawn());
    }

    void theGripsAreTheNearestSides()
    {
        Selection document;
        document.left(700, 600);
        document.move(720, 640);
        QCOMPARE(horizGrip, 1);
        QCOMPARE(vertGrip, 2);
        document.right(0, 0);
        document.left(1100, 1200);
        document.move(1120, 1240);
        QCOMPARE(horizGrip, 3);
        QCOMPARE(vertGrip, 4);
        document.right(0, 0);
    }

    void anEllipseHeldByItsCentreHasNoSide()
    {
        Selection document;
        document.put(makeEllipse(1800, 2400, 300, 300));
        document.left(1800, 2400);
        document.move(1815, 2415);
        QCOMPARE(horizGrip, 5);
        QCOMPARE(vertGrip, 5);
        document.right(0, 0);
    }

    void arrowKeysMoveBySteps()
    {
        Selection document;
        document.click(900, 600);
        document.paint(true, [&] { moveTaggedObjects(&document.ctx, 15, -30); });
        document.paint(true, [&] { moveTaggedObjects(&document.ctx, 15, 0); });
        QCOMPARE(document.corner(0), QString("630,570"));
        QCOMPARE(document.ctx.undoQueue.undoCount(), 2);
        document.right(3000, 3000);
        document.paint(true, [&] { moveTaggedObjects(&document.ctx, 15, 0); });
        QCOMPARE(document.ctx.undoQueue.undoCount(), 2);
        QVERIFY(!document.ctx.movedObjects);
    }

    // --- points -------------------------------------------------------------------------

    void aPressOnACornerReshapesTheBox()
    {
        Selection document;
        const QByteArray first = bytes(document);
        document.drag(600, 600, 450, 300);
        QCOMPARE(chain(document.box(0)), QString("450,300 1200,300 1200,1200 450,1200 450,300"));
        QCOMPARE(document.ctx.undoQueue.undoCount(), 1);
        QVERIFY(document.isResting());
        document.ctx.undoQueue.undo();
        QCOMPARE(bytes(document), first);
    }

    void aPressOnACornerWithoutAMoveOnlySelects()
    {
        Selection document;
        document.click(600, 600);
        QCOMPARE(document.selected(), QList<int>{0});
        QCOMPARE(document.ctx.undoQueue.undoCount(), 0);
        QVERIFY(document.isResting());
    }

    void withMoreThanOneSelectedAPressOnAPointDragsAll()
    {
        Selection document;
        document.drag(300, 300, 3300, 1500);
        document.drag(600, 600, 750, 600);
        QCOMPARE(document.corner(0), QString("750,600"));
        QCOMPARE(document.corner(1), QString("2550,600"));
    }

    void aPressOnAPointOfAnotherObjectThanTheSelectedOneDragsIt()
    {
        Selection document;
        document.click(900, 600);
        document.drag(2400, 600, 2550, 600);
        QCOMPARE(chain(document.box(1)), QString("2550,600 3150,600 3150,1200 2550,1200 2550,600"));
        document.drag(2550, 600, 2400, 600); // now it is the selected one
        QCOMPARE(chain(document.box(1)), QString("2400,600 3150,600 3150,1200 2400,1200 2400,600"));
    }

    void theRightButtonPutsThePointBack()
    {
        Selection document;
        const QByteArray first = bytes(document);
        document.left(600, 600);
        document.move(450, 450);
        document.move(300, 300);
        document.right(300, 300);
        QCOMPARE(bytes(document), first);
        QVERIFY(document.isResting());
        QVERIFY(oldElasticObjectList.isEmpty());
    }

    void anEndDroppedOnABoxIsLinkedAndMovedOffItIsFree()
    {
        Selection document;
        FigLine* connector = document.put(makeLine({{1500, 1800}, {1800, 1800}}));
        document.drag(1500, 1800, 1185, 900); // 15 units inside the right side
        QCOMPARE(at(connector->points), QString("1200,900"));
        QVERIFY(connector->points->link);
        QCOMPARE(connector->points->link->targetObjId, document.object(0)->id);
        document.drag(1200, 900, 1500, 1500);
        QVERIFY(!connector->points->link);
        document.ctx.undoQueue.undo();
        QVERIFY(connector->points->link);
        document.ctx.undoQueue.undo();
        QVERIFY(!connector->points->link);
        QCOMPARE(at(connector->points), QString("1500,1800"));
    }

    void anEndFollowsTheConstraintModes()
    {
        Selection document;
        FigLine* line = document.put(makeLine({{1500, 1800}, {1800, 1800}, {2100, 2100}}));
        manhattan_mode = 1;
        document.drag(2100, 2100, 2700, 1950);
        QCOMPARE(chain(line), QString("1500,1800 1800,1800 2700,1800"));
        QCOMPARE(document.ctx.undoQueue.undoCount(), 1);
        // An inner point has two neighbours and moves freely.
        document.drag(1800, 1800, 1905, 1905);
        QCOMPARE(chain(line), QString("1500,1800 1905,1905 2700,1800"));
    }

    void theCentreOfAnEllipseByRadiiIsADragOfTheObject()
    {
        Selection document;
        FigEllipse* ellipse = document.put(makeEllipse(1800, 2400, 300, 300));
        document.drag(1800, 2400, 1950, 2400);
        QCOMPARE(at(&ellipse->center), QString("1950,2400"));
        QCOMPARE(at(&ellipse->radiuses), QString("300,300"));
        document.drag(2250, 2700, 2400, 2700);
        QCOMPARE(at(&ellipse->radiuses), QString("450,300"));
    }

    void aSplineAndAnArcAreReshapedByTheirPoints()
    {
        Selection document;
        FigSpline* spline = document.put(makeSpline({{300, 1800}, {900, 2100}, {1500, 1800}}));
        document.drag(900, 2100, 900, 2400);
        QCOMPARE(chain(spline), QString("300,1800 900,2400 1500,1800"));
        QVERIFY(!document.ctx.reshapedObject);
        auto* arc = new FigArc;
        arc->point[0] = FigPoint(3000, 2400);
        arc->point[1] = FigPoint(3600, 1800);
        arc->point[2] = FigPoint(4200, 2400);
        arc->center_x = 3600;
        arc->center_y = 2400;
        document.put(arc);
        document.right(0, 0);
        const int steps = document.ctx.undoQueue.undoCount();
        document.drag(3600, 1800, 3600, 2400); // onto the chord
        QCOMPARE(at(&arc->point[1]), QString("3600,1800"));
        QCOMPARE(document.ctx.undoQueue.undoCount(), steps);
        QVERIFY(!document.ctx.reshapedObject);
        document.drag(3600, 1800, 3600, 1500);
        QCOMPARE(at(&arc->point[1]), QString("3600,1500"));
    }

    void anObjectThatGoesInMidGestureEndsIt()
    {
        Selection document;
        document.left(600, 600);
        document.move(450, 450);
        document.ctx.curObject = nullptr; // Escape
        document.move(300, 300);
        QVERIFY(document.isResting());
        document.release(300, 300);
        QCOMPARE(document.ctx.undoQueue.undoCount(), 0);
    }

    // --- clipboard ------------------------------------------------------------------------

    void cutAndPasteLandWhereTheUserClicks()
    {
        Selection document;
        document.click(900, 600);
        document.paint(true, [&] { cut_to_clipboard(&document.ctx); });
        QCOMPARE(document.count(), 1);
        QVERIFY(!document.ctx.curObject);
        previous_command = CMD_SELECT;
        cur_command = CMD_PASTE;
        document.paint(true, [&] { clippaste_selected(&document.ctx); });
        QCOMPARE(document.count(), 2); // for the preview
        document.move(3000, 3000);
        document.move(1800, 2400);
        document.left(1800, 2400);
        QCOMPARE(document.count(), 2);
        int left, top, right, bottom;
        FigObjectList pasted{document.object(1)};
        objectlist_bound(&document.ctx, &pasted, &left, &top, &right, &bottom, false, true, true);
        QCOMPARE(left + (right - left) / 2, 1800);
        QCOMPARE(top + (bottom - top) / 2, 2400);
        QCOMPARE(document.selected(), QList<int>{1});
        QCOMPARE(document.ctx.undoQueue.undoCount(), 2);
        QVERIFY(!document.ctx.movedObjects);
        QVERIFY(!action_on);
        QCOMPARE(depthTableError(&document.ctx), QString());
    }

    void aPasteFromAnotherToolLeavesNothingSelected()
    {
        Selection document;
        document.click(900, 600);
        copy_to_clipboard(&document.ctx);
        set_tags(&document.ctx.drawing.objects, false);
        previous_command = CMD_BOX;
        document.paint(true, [&] { clippaste_selected(&document.ctx); });
        document.left(1800, 2400);
        QCOMPARE(document.count(), 3);
        QVERIFY(document.selected().isEmpty());
        QVERIFY(document.object(2)->id != document.object(0)->id);
    }

    void theRightButtonTakesAPastePreviewBack()
    {
        Selection document;
        const QByteArray first = bytes(document);
        document.click(900, 600);
        copy_to_clipboard(&document.ctx);
        previous_command = CMD_SELECT;
        document.paint(true, [&] { clippaste_selected(&document.ctx); });
        document.move(1800, 1800);
        document.right(1800, 1800);
        QCOMPARE(bytes(document), first);
        QCOMPARE(document.ctx.undoQueue.undoCount(), 0);
        QVERIFY(!document.ctx.movedObjects);
    }

    void cutConnectorsKeepTheLinksAmongThemselvesOnly()
    {
        Selection document;
        FigLine* connector = document.put(makeLine({{1200, 900}, {2400, 900}}));
        makeLink(connector->points, document.object(0)->id, 1, 2);
        makeLink(connector->points->next, document.object(1)->id, 3, 4);
        connector->tagged = document.object(0)->tagged = true;
        cut_to_clipboard(&document.ctx);
        auto* clip = static_cast<FigLine*>(clipObjects->last());
        QVERIFY(clip->points->link);
        QVERIFY(!clip->points->next->link);
        document.ctx.undoQueue.undo();
        QVERIFY(connector->points->link && connector->points->next->link);
    }

    void deletingNothingIsAnEmptyStep()
    {
        Selection document;
        FigObjectList* removed = cutTaggedOjects(&document.ctx);
        QVERIFY(removed->isEmpty());
        delete removed;
        QCOMPARE(document.ctx.undoQueue.undoCount(), 1);
        QVERIFY(document.ctx.modified);
    }

    void aPasteIntoAnotherDocumentBringsItsColours()
    {
        Selection source;
        const int key = source.ctx.addUserColor(QColor(1, 2, 3));
        source.object(0)->pen_color = key + 32;
        source.object(0)->tagged = true;
        copy_to_clipboard(&source.ctx);
        CFigContext other;
        other.addUserColor(QColor(9, 9, 9));
        previous_command = CMD_SELECT;
        clippaste_selected(&other);
        QCOMPARE(other.userColors.size(), 2);
        QCOMPARE(other.movedObjects->first()->pen_color, 33);
        cancel_clipdragging(&other, 0, 0, nullptr);
        QCOMPARE(other.userColors.size(), 1); // it was not placed
        clippaste_selected(&other);
        placeClipOjects(&other, 0, 0, nullptr);
        QCOMPARE(other.userColors.value(1), QColor(1, 2, 3));
        QCOMPARE(other.drawing.objects.first()->pen_color, 33);
    }

    void aPasteWithinADocumentChangesNoColours()
    {
        Selection document;
        const int key = document.ctx.addUserColor(QColor(1, 2, 3));
        document.object(0)->pen_color = key + 32;
        document.object(0)->tagged = true;
        copy_to_clipboard(&document.ctx);
        document.ctx.userColors[key] = QColor(7, 7, 7);
        previous_command = CMD_SELECT;
        clippaste_selected(&document.ctx);
        QCOMPARE(document.ctx.userColors.size(), 1);
        placeClipOjects(&document.ctx, 0, 0, nullptr);
        QCOMPARE(document.object(2)->pen_color, key + 32);
    }

    // --- the copy tool, the delete tool, the library --------------------------------------

    void theCopyToolPlacesOneCopyAfterTheOther()
    {
        Selection document;
        document.choose(CMD_COPY, copy_selected);
        for (int i = 1; i <= 2; ++i) {
            document.left(900, 600);
            document.move(1500, 600);
            document.left(900, 600 + i * 1200);
            QCOMPARE(document.corner(1 + i), QString("600,%1").arg(600 + i * 1200));
            QCOMPARE(document.ctx.undoQueue.undoCount(), i);
        }
        document.left(900, 600);
        document.move(1500, 600);
        document.right(1500, 600);
        QCOMPARE(document.count(), 4);
        QVERIFY(!document.ctx.curObject);
        QCOMPARE(depthTableError(&document.ctx), QString());
    }

    void theDeleteToolRemovesWhatIsHit()
    {
        Selection document;
        document.choose(CMD_DELETE, delete_selected);
        document.left(1800, 1800);
        QCOMPARE(document.count(), 2);
        document.ctx.curObject = document.object(0);
        document.left(900, 600);
        QCOMPARE(document.count(), 1);
        QVERIFY(!document.ctx.curObject);
        document.ctx.undoQueue.undo();
        QCOMPARE(document.count(), 2);
    }

    // Counted as soon as the placing begins, whatever counts anew meanwhile.
    void aDrawingOfTheLibraryStaysCountedWhileItIsPlaced()
    {
        Selection document;
        FigLine* member = with(makeBox(0, 0, 600, 600), document.ctx.getNextId());
        auto* compound = document.put(makeCompound({member}));
        open_compound(&document.ctx, compound);
        CFigContext library;
        list_add(&library, &library.drawing.objects, with(makeBox(0, 0, 300, 300), 1, 40));
        document.paint(true, [&] { put_selected(&document.ctx, &library); });
        QCOMPARE(document.ctx.object_depths[40], 1);
        auto* change = new ChangeArrowAction(member, compound->objects, ARROW_FORWARD, nullptr);
        change->execute(&document.ctx);
        document.ctx.undoQueue.addAction(change);
        QCOMPARE(document.ctx.object_depths[40], 1);
        document.moveAndLeft(1800, 1800);
        QCOMPARE(document.ctx.object_depths[40], 1);
        QCOMPARE(compound->objects->size(), 2);
        destroyDragBitmaps();
    }

    void aLibraryDrawingIsPlacedByItsMiddle()
    {
        Selection document;
        CFigContext library;
        library.addUserColor(QColor(1, 2, 3));
        auto* clip = makeBox(0, 0, 600, 300);
        clip->depth = 50;
        clip->pen_color = 32;
        list_add(&library, &library.drawing.objects, clip);
        int left, top, right, bottom;
        clip->getBounds(&library, &left, &top, &right, &bottom, true, true);
        cur_command = CMD_SELECT;
        document.paint(true, [&] { put_selected(&document.ctx, &library); });
        document.move(1500, 1500);
        document.move(3000, 3000);
        document.left(1800, 2400);
        QCOMPARE(document.count(), 3);
        QCOMPARE(document.corner(2), QString("%1,%2").arg(1800 - right / 2).arg(2400 - bottom / 2));
        QCOMPARE(document.ctx.userColors.size(), 1);
        QCOMPARE(document.ctx.undoQueue.undoCount(), 1);
        QVERIFY(!curLibDrawing);
        QCOMPARE(depthTableError(&document.ctx), QString());
        document.paint(true, [&] { put_selected(&document.ctx, &library); });
        document.move(1500, 1500);
        document.right(1500, 1500);
        QCOMPARE(document.count(), 3);
        QCOMPARE(depthTableError(&document.ctx), QString());
        destroyDragBitmaps();
    }
};

QTEST_MAIN(TestSelect)
#include "test_e_select.moc"
