#include "ObjectBuilders.h"
#include "model/FigContext.h"

#include <QtTest>

#include <memory>

namespace {

QPoint position(const FigPoint* point)
{
    return point ? QPoint(point->x, point->y) : QPoint(INT_MIN, INT_MIN);
}

/// A value of its own in every common attribute.
void fillAttributes(FigObject* object)
{
    object->tagged = true;
    object->marked = 2;
    object->ignore = true;
    object->reserved = 17;
    object->convertedSubType = 3;
    object->id = 42;
    object->sub_type = 1;
    object->line_style = 2;
    object->thickness = 3;
    object->pen_color = 4;
    object->fill_color = 5;
    object->fill_style = 6;
    object->depth = 7;
    object->pen_style = 8;
    object->style_val = 9.5f;
    object->forward_arrow = new FigArrow{1, 1, 2.0f, 30.0f, 40.0f};
    object->backward_arrow = new FigArrow{2, 0, 3.0f, 50.0f, 60.0f};
    object->comments = "one\ntwo";
}

bool sameArrow(const FigArrow* a, const FigArrow* b)
{
    return a != b && a->type == b->type && a->style == b->style && a->thickness == b->thickness &&
           a->wd == b->wd && a->ht == b->ht;
}

} // namespace

class TestFigObjects : public QObject {
    Q_OBJECT

private slots:
    void aNewObjectHasItsStartValues()
    {
        FigObject object;
        QCOMPARE(object.type, 0);
        QCOMPARE(object.id, -1L);
        QCOMPARE(object.sub_type, 0);
        QCOMPARE(object.line_style, 0);
        QCOMPARE(object.thickness, 0);
        QCOMPARE(object.pen_color, 0);
        QCOMPARE(object.fill_color, -1);
        QCOMPARE(object.fill_style, -1);
        QCOMPARE(object.depth, 0);
        QCOMPARE(object.pen_style, -1);
        QCOMPARE(object.style_val, 0.0f);
        QVERIFY(!object.forward_arrow && !object.backward_arrow);
        QVERIFY(!object.tagged && !object.ignore);
        QCOMPARE(object.marked, 0);
        QCOMPARE(object.convertedSubType, -1);
    }

    void everyClassSetsItsTypeCode()
    {
        QCOMPARE(FigEllipse().type, 1);
        QCOMPARE(FigLine().type, 2);
        QCOMPARE(FigSpline().type, 3);
        QCOMPARE(FigText().type, 4);
        QCOMPARE(FigArc().type, 5);
        QCOMPARE(FigCompound().type, 6);
        QCOMPARE(FigLine().radius, -1);
    }

    void aBareObjectClonesToNullAndHasZeroBounds()
    {
        CFigContext ctx;
        FigObject object;
        QVERIFY(!object.clone());
        int box[4] = {1, 2, 3, 4};
        object.getBounds(&ctx, box, box + 1, box + 2, box + 3, true, true);
        for (const int side : box)
            QCOMPARE(side, 0);
    }

    // --- paths ------------------------------------------------------------------

    void theIndexOfAStrangerIsMinusOneAndPointMinusOneIsNull()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {10, 0}, {10, 10}}));
        FigPoint stranger(10, 0);
        QCOMPARE(line->getIndex(&stranger), -1);
        QCOMPARE(line->getIndex(line->points->next), 1);
        QVERIFY(!line->getPoint(-1));
        QVERIFY(!line->getPoint(3));
        QCOMPARE(line->getPoint(2), line->points->next->next);
        QCOMPARE(line->getNumPoints(), 3);
    }

    void theFirstPointAndStrangersHaveNoPredecessor()
    {
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {10, 0}, {10, 10}}));
        FigPoint stranger;
        QVERIFY(!line->findPredecessor(line->points));
        QVERIFY(!line->findPredecessor(&stranger));
        QVERIFY(!line->findPredecessor(nullptr));
        QCOMPARE(line->findPredecessor(line->points->next), line->points);
    }

    void aPathWithoutPointsHasZeroPointsAndNullCorners()
    {
        FigLine line;
        QCOMPARE(line.getNumPoints(), 0);
        QVERIFY(!line.getUpperLeft() && !line.getUpperRight());
        QVERIFY(!line.getLowerLeft() && !line.getLowerRight());
        QVERIFY(!line.getPointByCoord(0, 0));
        QCOMPARE(line.getWidth() + line.getHeight() + line.getCenterX() + line.getCenterY(), 0);
    }

    void cornersAreFoundWhereverTheBoxBegins()
    {
        const std::unique_ptr<FigLine> box(
            makeLine({{30, 50}, {10, 50}, {10, 20}, {30, 20}, {30, 50}}, T_BOX));
        QCOMPARE(position(box->getUpperLeft()), QPoint(10, 20));
        QCOMPARE(position(box->getUpperRight()), QPoint(30, 20));
        QCOMPARE(position(box->getLowerRight()), QPoint(30, 50));
        QCOMPARE(position(box->getLowerLeft()), QPoint(10, 50));
        QCOMPARE(box->getWidth(), 20);
        QCOMPARE(box->getHeight(), 30);
        QCOMPARE(QPoint(box->getCenterX(), box->getCenterY()), QPoint(20, 35));
        QCOMPARE(box->getPointByCoord(10, 20), box->points->next->next);
    }

    void xDecidesBeforeYForCorners()
    {
        // A square turned by 45 degrees: leftmost and rightmost stand for two corners each.
        const std::unique_ptr<FigLine> diamond(
            makeLine({{10, 0}, {20, 10}, {10, 20}, {0, 10}, {10, 0}}, T_POLYGON));
        QCOMPARE(position(diamond->getUpperLeft()), QPoint(0, 10));
        QCOMPARE(position(diamond->getLowerLeft()), QPoint(0, 10));
        QCOMPARE(position(diamond->getUpperRight()), QPoint(20, 10));
        QCOMPARE(position(diamond->getLowerRight()), QPoint(20, 10));
    }

    // --- clones -----------------------------------------------------------------

    void aCloneTakesEveryAttributeButTheIgnoreFlag()
    {
        FigEllipse ellipse;
        fillAttributes(&ellipse);
        const std::unique_ptr<FigObject> copied(ellipse.clone());
        QVERIFY(copied->tagged);
        QCOMPARE(copied->marked, 2);
        QVERIFY(!copied->ignore);
        QCOMPARE(copied->reserved, 17);
        QCOMPARE(copied->convertedSubType, 3);
        QCOMPARE(copied->id, 42L);
        QCOMPARE(copied->sub_type, 1);
        QCOMPARE(copied->line_style, 2);
        QCOMPARE(copied->thickness, 3);
        QCOMPARE(copied->pen_color, 4);
        QCOMPARE(copied->fill_color, 5);
        QCOMPARE(copied->fill_style, 6);
        QCOMPARE(copied->depth, 7);
        QCOMPARE(copied->pen_style, 8);
        QCOMPARE(copied->style_val, 9.5f);
        QCOMPARE(copied->comments, QString("one\ntwo"));
        QVERIFY(sameArrow(copied->forward_arrow, ellipse.forward_arrow));
        QVERIFY(sameArrow(copied->backward_arrow, ellipse.backward_arrow));
    }

    void aLineCloneHasPointsLinksAndPictureOfItsOwn()
    {
        const std::unique_ptr<FigLine> line(makeLine({{1, 2}, {3, 4}}, T_PICTURE));
        line->cap_style = 1;
        line->join_style = 2;
        line->radius = 9;
        line->points->state = 3;
        makeLink(line->points->next, 7, 2, 3)->flag = true;
        line->pic = new FigPic;
        line->pic->file = "a.png";
        line->pic->flipped = 1;
        line->pic->pixmap = new QPixmap(4, 5);

        const std::unique_ptr<FigLine> copied(static_cast<FigLine*>(line->clone()));
        QCOMPARE(copied->cap_style, 1);
        QCOMPARE(copied->join_style, 2);
        QCOMPARE(copied->radius, 9);
        QCOMPARE(copied->points->state, 3);
        FigPoint* end = copied->points->next;
        QCOMPARE(position(end), QPoint(3, 4));
        QVERIFY(!end->next && end->link && end->link != line->points->next->link);
        QCOMPARE(end->link->srcPoint, end);
        QCOMPARE(end->link->targetObjId, 7L);
        QCOMPARE(end->link->targetRightPointIdx, 3);
        QCOMPARE(copied->pic->file, QString("a.png"));
        QCOMPARE(copied->pic->flipped, 1);
        QVERIFY(copied->pic->pixmap != line->pic->pixmap);
        QCOMPARE(copied->pic->pixmap->size(), QSize(4, 5));
    }

    void aClonedLinkDoesNotStay()
    {
        const std::unique_ptr<FigLine> line(makeLine({{1, 2}, {3, 4}}));
        makeLink(line->points, 7)->flag = true;
        const std::unique_ptr<FigLine> copied(static_cast<FigLine*>(line->clone()));
        QVERIFY(!copied->points->link->flag);
        QVERIFY(line->points->link->flag);
    }

    void aSplineCloneHasFactorsOfItsOwn()
    {
        const std::unique_ptr<FigSpline> spline(makeSpline({{0, 0}, {5, 5}, {9, 0}}, 2));
        spline->cap_style = 2;
        const std::unique_ptr<FigSpline> copied(static_cast<FigSpline*>(spline->clone()));
        QVERIFY(copied->sfactors != spline->sfactors);
        QCOMPARE(copied->getShapeFactor(0)->s, 0.0);
        QCOMPARE(copied->getShapeFactor(1)->s, -1.0);
        QCOMPARE(copied->getShapeFactor(2)->s, 0.0);
        QVERIFY(!copied->getShapeFactor(3) && !copied->getShapeFactor(-1));
        QCOMPARE(copied->cap_style, 2);
    }

    void ellipseAndArcClonesKeepTheirGeometry()
    {
        FigEllipse ellipse;
        ellipse.angle = 0.5f;
        ellipse.direction = 1;
        ellipse.center = FigPoint(1, 2);
        ellipse.radiuses = FigPoint(3, 4);
        ellipse.start = FigPoint(5, 6);
        ellipse.end = FigPoint(7, 8);
        const std::unique_ptr<FigEllipse> copied(static_cast<FigEllipse*>(ellipse.clone()));
        QCOMPARE(copied->angle, 0.5f);
        QCOMPARE(copied->direction, 1);
        QCOMPARE(position(&copied->center), QPoint(1, 2));
        QCOMPARE(position(&copied->radiuses), QPoint(3, 4));
        QCOMPARE(position(&copied->start), QPoint(5, 6));
        QCOMPARE(position(&copied->end), QPoint(7, 8));

        FigArc arc;
        arc.cap_style = 1;
        arc.direction = 1;
        arc.center_x = 1.5f;
        arc.center_y = 2.5f;
        arc.point[2] = FigPoint(9, 8);
        const std::unique_ptr<FigArc> copiedArc(static_cast<FigArc*>(arc.clone()));
        QCOMPARE(copiedArc->cap_style, 1);
        QCOMPARE(copiedArc->direction, 1);
        QCOMPARE(copiedArc->center_x, 1.5f);
        QCOMPARE(copiedArc->center_y, 2.5f);
        QCOMPARE(position(&copiedArc->point[2]), QPoint(9, 8));
    }

    void aTextCloneCopiesItsMetricsAndImages()
    {
        FigText text;
        text.font = 3;
        text.size = 20;
        text.color = 4;
        text.angle = 1.25f;
        text.flags = 6;
        text.length = 100;
        text.ascent = 30;
        text.descent = 5;
        text.x = -7;
        text.y = 8;
        text.cstring = "a\\b";
        text.fontHeight = 12;
        text.paddedLength = 110;
        text.metricsZoom = 2.0f;
        text.imagesNormal.insert(80, new QPixmap(2, 3));
        text.imagesDimmed.insert(90, new QPixmap(4, 5));
        text.imagesGrayed.insert(99, new QPixmap(6, 7));

        const std::unique_ptr<FigText> copied(static_cast<FigText*>(text.clone()));
        QCOMPARE(copied->font, 3);
        QCOMPARE(copied->size, 20);
        QCOMPARE(copied->color, 4);
        QCOMPARE(copied->angle, 1.25f);
        QCOMPARE(copied->flags, 6);
        QCOMPARE(copied->length, 100);
        QCOMPARE(copied->ascent, 30);
        QCOMPARE(copied->descent, 5);
        QCOMPARE(QPoint(copied->x, copied->y), QPoint(-7, 8));
        QCOMPARE(copied->cstring, QString("a\\b"));
        QCOMPARE(copied->fontHeight, 12);
        QCOMPARE(copied->paddedLength, 110);
        QCOMPARE(copied->metricsZoom, 2.0f);
        QVERIFY(copied->imagesNormal.value(80) != text.imagesNormal.value(80));
        QCOMPARE(copied->imagesNormal.value(80)->size(), QSize(2, 3));
        QCOMPARE(copied->imagesDimmed.value(90)->size(), QSize(4, 5));
        QCOMPARE(copied->imagesGrayed.value(99)->size(), QSize(6, 7));
    }

    void disposingEmptiesAllThreeImageCaches()
    {
        FigText text;
        text.imagesNormal.insert(80, new QPixmap(2, 3));
        text.imagesDimmed.insert(80, new QPixmap(2, 3));
        text.imagesGrayed.insert(80, new QPixmap(2, 3));
        disposeImages(&text);
        QVERIFY(text.imagesNormal.isEmpty() && text.imagesDimmed.isEmpty());
        QVERIFY(text.imagesGrayed.isEmpty());
    }

    void aCompoundCloneHasClonedMembersAndNoParent()
    {
        FigCompound parent;
        const std::unique_ptr<FigCompound> compound(
            makeCompound({with(makeLine({{0, 0}}), 2), makeCompound({with(new FigText, 3)})}));
        compound->id = 9;
        compound->parent = &parent;
        compound->nwcorner = FigPoint(1, 2);
        compound->secorner = FigPoint(3, 4);

        const std::unique_ptr<FigCompound> copied(static_cast<FigCompound*>(compound->clone()));
        QCOMPARE(copied->id, 9L);
        QVERIFY(!copied->parent);
        QCOMPARE(position(&copied->nwcorner), QPoint(1, 2));
        QCOMPARE(position(&copied->secorner), QPoint(3, 4));
        QCOMPARE(copied->objects->size(), 2);
        QVERIFY(copied->objects->first() != compound->objects->first());
        QCOMPARE(copied->objects->first()->id, 2L);
        QVERIFY(findObjectById(copied->objects, 3) != findObjectById(compound->objects, 3));
        QVERIFY(FigCompound().isEmpty() && !copied->isEmpty());
    }

    // --- the rest ---------------------------------------------------------------

    void theRightFocusLiesOnTheXAxisOfTheEllipse()
    {
        FigEllipse ellipse;
        ellipse.center = FigPoint(100, 50);
        ellipse.radiuses = FigPoint(5, 3); // 3-4-5 triangle: the focus is 4 off the centre
        QCOMPARE(ellipse.getF1x(), 104.0);
        QCOMPARE(ellipse.getF1y(), 50.0);
    }

    void aDrawingDeletesAllObjectsAtEveryLevel()
    {
        int deaths = 0;
        {
            FigDrawing drawing;
            drawing.objects.append(new MortalObject(&deaths));
            drawing.objects.append(makeCompound({makeCompound({new MortalObject(&deaths)})}));
        }
        QCOMPARE(deaths, 2);
    }

    void aVeryLongPointListIsDestroyedWithoutRecursion()
    {
        auto line = std::make_unique<FigLine>();
        FigPoint* last = nullptr;
        for (int i = 0; i < 2000000; ++i) {
            append_point(i, i, &last);
            if (!line->points)
                line->points = last;
        }
        QCOMPARE(line->getNumPoints(), 2000000);
        line.reset();
    }
};

QTEST_MAIN(TestFigObjects)
#include "test_FigObjects.moc"
