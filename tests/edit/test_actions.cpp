// Objects that come and go, attributes, arrows, texts and conversions. Who owns what shows in the
// counted deaths, and in the sanitizer builds for the rest.
#include "ActionFixture.h"
#include "edit/e_links.h"
#include "edit/e_update.h"
#include "render/Font.h"

#include <memory>

namespace {

AttributeChange* integerChange(int kind, int oldValue, int newValue)
{
    auto* change = new AttributeChange;
    change->kind = kind;
    change->oldValue = oldValue;
    change->newValue = newValue;
    return change;
}

FigArrow* makeArrow(int type)
{
    return new FigArrow{type, 0, 1, 60, 120};
}

FigText* makeText(CFigContext* ctx, const QString& words)
{
    auto* text = new FigText;
    text->cstring = words;
    text->size = 12;
    pf_textwidth(ctx, text, 1.0);
    return text;
}

} // namespace

class TestActions : public QObject {
    Q_OBJECT

private slots:
    // --- add -------------------------------------------------------------------------

    void anAddedObjectComesGoesAndComesAgain()
    {
        EditedFigure figure;
        figure.run(new AddAction(with(makeLine({{1, 2}, {3, 4}}), 1, 7), &figure.top()));
        QCOMPARE(ids(figure.top()), QString("1"));
        QCOMPARE(figure.ctx.object_depths[7], 1);
        figure.undo();
        QCOMPARE(ids(figure.top()), QString());
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.redo();
        QCOMPARE(ids(figure.top()), QString("1"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void anAddedObjectBelongsToTheDrawingUntilItIsTakenBack()
    {
        int deaths = 0;
        {
            EditedFigure figure;
            figure.run(new AddAction(new MortalObject(&deaths), &figure.top()));
            figure.queue().clearUndoList();
            QCOMPARE(deaths, 0);
        }
        QCOMPARE(deaths, 1);
        {
            EditedFigure figure;
            figure.run(new AddAction(new MortalObject(&deaths), &figure.top()));
            figure.undo();
            figure.queue().clearRedoList();
            QCOMPARE(deaths, 2);
        }
        QCOMPARE(deaths, 2);
    }

    void anObjectAddedInsideACompoundIsCounted()
    {
        EditedFigure figure;
        auto* compound = figure.put(with(makeCompound({with(new FigEllipse, 2, 10)}), 1));
        figure.run(new AddAction(with(makeLine({{1, 2}, {3, 4}}), 3, 900), compound->objects));
        QCOMPARE(figure.ctx.max_depth, 900);
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.undo();
        QCOMPARE(figure.ctx.max_depth, 10);
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void anObjectAddedInTheOpenCompoundIsCountedWithoutACountOfEverything()
    {
        EditedFigure figure;
        auto* compound = figure.put(with(makeCompound({with(new FigEllipse, 2, 10)}), 1));
        figure.ctx.openCompoundObjects = compound->objects;
        AddAction action(with(makeLine({{1, 2}, {3, 4}}), 3, 900), compound->objects);
        action.execute(&figure.ctx);
        QCOMPARE(depthTableError(&figure.ctx), QString());
        action.undo(&figure.ctx);
        QCOMPARE(depthTableError(&figure.ctx), QString());
        action.disposeAsRedo();
    }

    void anAddedCompoundThatIsOpenIsClosedBeforeItGoes()
    {
        EditedFigure figure;
        auto* inner = with(makeCompound({with(makeLine({{1, 2}, {3, 4}}), 3)}), 2);
        auto* outer = with(makeCompound({inner}), 1);
        figure.run(new AddAction(outer, &figure.top()));
        figure.ctx.openCompoundObjects = inner->objects;
        figure.undo();
        QVERIFY(!figure.ctx.openCompoundObjects);
        QVERIFY(!figure.ctx.curObject);
        QVERIFY(!outer->tagged);
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    // --- delete ------------------------------------------------------------------------

    void aDeletedObjectComesBackAtTheEndOfItsList()
    {
        EditedFigure figure;
        auto* first = figure.put(with(makeLine({{1, 2}, {3, 4}}), 1));
        figure.put(with(new FigEllipse, 2));
        figure.run(new DeleteAction(first, &figure.top()));
        QCOMPARE(ids(figure.top()), QString("2"));
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("2 1"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.redo();
        QCOMPARE(ids(figure.top()), QString("2"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void aDeletedObjectBelongsToItsActionUntilItComesBack()
    {
        int deaths = 0;
        {
            EditedFigure figure;
            figure.run(new DeleteAction(figure.put(new MortalObject(&deaths)), &figure.top()));
            figure.undo();
            figure.queue().clearRedoList();
            QCOMPARE(deaths, 0);
        }
        QCOMPARE(deaths, 1);
        EditedFigure figure;
        figure.run(new DeleteAction(figure.put(new MortalObject(&deaths)), &figure.top()));
        figure.queue().clearUndoList();
        QCOMPARE(deaths, 2);
    }

    void linksToADeletedObjectComeBackWithItAndAgainAfterRedo()
    {
        EditedFigure figure;
        auto* target = figure.put(with(new FigEllipse, 1));
        auto* source = figure.put(with(makeLine({{1, 2}, {3, 4}}), 2));
        FigLink* link = makeLink(source->points, 1);
        auto* action = figure.run(new DeleteAction(target, &figure.top()));
        QVERIFY(!source->points->link);
        for (int round = 0; round < 2; ++round) {
            figure.undo();
            QCOMPARE(source->points->link, link);
            figure.redo();
            QVERIFY(!source->points->link);
            QCOMPARE(action->savedLinks, (FigLinkList{link}));
        }
    }

    void linksOfADeletedObjectStayOnItsPoints()
    {
        EditedFigure figure;
        figure.put(with(new FigEllipse, 1));
        auto* source = figure.put(with(makeLine({{1, 2}, {3, 4}}), 2));
        FigLink* link = makeLink(source->points, 1);
        figure.run(new DeleteAction(source, &figure.top()));
        QCOMPARE(source->points->link, link);
        figure.undo();
        QCOMPARE(source->points->link, link);
    }

    void linksAreLookedForInTheWorkingListAlone()
    {
        EditedFigure figure;
        auto* target = with(new FigEllipse, 1);
        auto* compound = figure.put(with(makeCompound({target}), 2));
        auto* outside = figure.put(with(makeLine({{1, 2}, {3, 4}}), 3));
        FigLink* link = makeLink(outside->points, 1);
        figure.run(new DeleteAction(target, compound->objects));
        QCOMPARE(outside->points->link, link);
    }

    void aDeletedOpenCompoundIsClosedOnRedo()
    {
        EditedFigure figure;
        auto* compound = figure.put(with(makeCompound({with(new FigEllipse, 2)}), 1));
        figure.run(new DeleteAction(compound, &figure.top()));
        figure.undo();
        figure.ctx.openCompoundObjects = compound->objects;
        figure.redo();
        QVERIFY(!figure.ctx.openCompoundObjects);
        QVERIFY(!figure.ctx.curObject);
        QCOMPARE(ids(figure.top()), QString());
    }

    void anEmptyOpenCompoundThatIsDeletedOnRedoBelongsToTheActionAlone()
    {
        EditedFigure figure;
        auto* compound = figure.put(with(makeCompound({}), 1));
        figure.run(new DeleteAction(compound, &figure.top()));
        figure.undo();
        figure.ctx.openCompoundObjects = compound->objects;
        figure.redo();
        QVERIFY(!figure.ctx.openCompoundObjects);
        QVERIFY(figure.ctx.vanishedCompounds.isEmpty());
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("1()"));
    }

    // Expectations by the single action, whose result the row has to give.
    void aRowOfDeletionsGivesWhatSingleOnesGive_data()
    {
        QTest::addColumn<bool>("inCompound");
        QTest::newRow("in the drawing") << false;
        QTest::newRow("in a compound") << true;
    }

    void aRowOfDeletionsGivesWhatSingleOnesGive()
    {
        QFETCH(bool, inCompound);
        QStringList results;
        for (bool asRow : {false, true}) {
            EditedFigure figure;
            FigObjectList* list = &figure.top();
            if (inCompound)
                list = figure.put(with(makeCompound({}), 100))->objects;
            auto* target = with(new FigEllipse, 1, 5);
            auto* member = with(new FigEllipse, 3, 6);
            auto* compound = with(makeCompound({member}), 2);
            auto* source = with(makeLine({{1, 2}, {3, 4}}), 4, 7);
            auto* early = with(makeLine({{5, 6}, {7, 8}}), 5, 8);
            for (FigObject* object :
                 QList<FigObject*>{target, early, compound, source, with(new FigArc, 6, 9)})
                list->append(object);
            set_depths(&figure.ctx);
            makeLink(source->points, 1);
            makeLink(source->points->next, 3);
            makeLink(early->points, 1);
            // The second goes before the target of its link, the last is an end of both kinds.
            auto* step = new QList<ActionItem*>{new DeleteAction(early, list),
                                                new DeleteAction(target, list),
                                                new DeleteAction(compound, list)};
            if (asRow)
                executeActions(&figure.ctx, step);
            else
                for (ActionItem* action : qAsConst(*step))
                    action->execute(&figure.ctx);
            QStringList result{ids(figure.top()), depthTableError(&figure.ctx)};
            for (ActionItem* action : qAsConst(*step))
                for (FigLink* link : static_cast<DeleteAction*>(action)->savedLinks)
                    result.append(
                        QString("%1 from %2").arg(link->targetObjId).arg(link->srcPoint->x));
            result.append(early->points->link ? "keeps" : "lost");
            figure.queue().addActionList(step);
            figure.undo();
            result.append(ids(figure.top()));
            result.append(source->points->link && source->points->next->link ? "linked" : "free");
            figure.redo();
            result.append(ids(figure.top()));
            result.append(depthTableError(&figure.ctx));
            results.append(result.join('|'));
        }
        QCOMPARE(results.at(1), results.at(0));
        QVERIFY(results.at(0).contains("1 from 1|3 from 3|keeps"));
    }

    // --- attributes ------------------------------------------------------------------------

    void anAttributeChangesAndChangesBack()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{1, 2}, {3, 4}}), 1));
        line->pen_color = 4;
        figure.run(
            new ChangeAttributeAction(line, &figure.top(), integerChange(ATTR_PEN_COLOR, 4, 9)));
        QCOMPARE(line->pen_color, 9);
        figure.undo();
        QCOMPARE(line->pen_color, 4);
        figure.redo();
        QCOMPARE(line->pen_color, 9);
    }

    void aChangeOfDepthKeepsTheDepthTableTrue()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{1, 2}, {3, 4}}), 1, 50));
        figure.run(
            new ChangeAttributeAction(line, &figure.top(), integerChange(ATTR_DEPTH, 50, 60)));
        QCOMPARE(depthTableError(&figure.ctx), QString());
        QCOMPARE(figure.ctx.max_depth, 60);
        figure.undo();
        QCOMPARE(depthTableError(&figure.ctx), QString());
        QCOMPARE(figure.ctx.max_depth, 50);
    }

    void theImagesOfATextGoUnlessItOnlyMovesOrTurns_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("kept");
        for (int kind : {ATTR_TEXT_JUSTIFICATION, ATTR_TEXT_RIGID, ATTR_TEXT_ANGLE})
            QTest::addRow("%d", kind) << kind << true;
        for (int kind : {ATTR_DEPTH, ATTR_PEN_COLOR, ATTR_FONT, ATTR_TEXT_SPECIAL, ATTR_FONT_SIZE,
                         ATTR_PS_FONT_FLAG})
            QTest::addRow("%d", kind) << kind << false;
    }

    void theImagesOfATextGoUnlessItOnlyMovesOrTurns()
    {
        QFETCH(int, kind);
        QFETCH(bool, kept);
        EditedFigure figure;
        auto* text = figure.put(makeText(&figure.ctx, "words"));
        auto* change = integerChange(kind, 12, 12);
        figure.run(new ChangeAttributeAction(text, &figure.top(), change));
        text->imagesNormal.insert(80, new QPixmap(1, 1));
        figure.undo();
        QCOMPARE(text->imagesNormal.size(), kept ? 1 : 0);
        text->disposeImages();
        text->imagesNormal.insert(80, new QPixmap(1, 1));
        figure.redo();
        QCOMPARE(text->imagesNormal.size(), kept ? 1 : 0);
    }

    // --- arrows ---------------------------------------------------------------------------------

    void anArrowIsPutOnTakenOffAndPutOnAgain()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{1, 2}, {3, 4}}), 1));
        FigArrow* former = line->forward_arrow = makeArrow(1);
        FigArrow* arrow = makeArrow(2);
        figure.run(new ChangeArrowAction(line, &figure.top(), 1, arrow));
        QCOMPARE(line->forward_arrow, arrow);
        QVERIFY(!line->backward_arrow);
        figure.undo();
        QCOMPARE(line->forward_arrow, former);
        figure.redo();
        QCOMPARE(line->forward_arrow, arrow);
        figure.queue().clearUndoList();
        QCOMPARE(line->forward_arrow->type, 2);
    }

    void aRemovedArrowComesBack()
    {
        EditedFigure figure;
        auto* arc = figure.put(with(new FigArc, 1));
        FigArrow* former = arc->backward_arrow = makeArrow(1);
        figure.run(new ChangeArrowAction(arc, &figure.top(), 0, nullptr));
        QVERIFY(!arc->backward_arrow);
        figure.undo();
        QCOMPARE(arc->backward_arrow, former);
        figure.queue().clearRedoList();
        QCOMPARE(arc->backward_arrow, former);
    }

    void theArrowThatIsNotOnTheObjectDiesWithTheAction()
    {
        EditedFigure figure;
        auto* spline = figure.put(with(makeSpline({{1, 2}, {3, 4}, {5, 6}}), 1));
        figure.run(new ChangeArrowAction(spline, &figure.top(), 1, makeArrow(1)));
        figure.run(new ChangeArrowAction(spline, &figure.top(), 1, makeArrow(2)));
        figure.undo();
        QCOMPARE(spline->forward_arrow->type, 1);
        figure.queue().clearRedoList();
        QCOMPARE(spline->forward_arrow->type, 1);
    }

    // --- texts
    // ------------------------------------------------------------------------------------

    void aTextIsEditedMeasuredAndEditedBack()
    {
        EditedFigure figure;
        auto* text = figure.put(with(makeText(&figure.ctx, "i"), 1));
        const int narrow = text->length;
        text->imagesNormal.insert(80, new QPixmap(1, 1));
        figure.run(new EditTextAction(text, &figure.top(), "many more words", "i"));
        QCOMPARE(text->cstring, QString("many more words"));
        QVERIFY(text->length > narrow);
        QVERIFY(text->imagesNormal.isEmpty());
        text->imagesDimmed.insert(80, new QPixmap(1, 1));
        figure.undo();
        QCOMPARE(text->cstring, QString("i"));
        QCOMPARE(text->length, narrow);
        QVERIFY(text->imagesDimmed.isEmpty());
    }

    // --- conversions
    // ---------------------------------------------------------------------------------

    void aLineBecomesASplineAndTheSameLineAgain()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{0, 0}, {100, 0}, {100, 100}}), 1));
        figure.put(with(new FigEllipse, 2));
        auto* action = figure.run(new ConvertLineToSplineAction(line, &figure.top()));
        FigSpline* spline = action->spline;
        QCOMPARE(action->object, spline);
        QCOMPARE(figure.top(), (FigObjectList{figure.top().first(), spline}));
        QCOMPARE(ids(figure.top()), QString("2 1"));
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.undo();
        QCOMPARE(action->object, line);
        QCOMPARE(figure.top().last(), line);
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.redo();
        QCOMPARE(figure.top().last(), spline);
        QCOMPARE(figure.top().size(), 2);
    }

    void aSplineBecomesALineAndTheSameSplineAgain()
    {
        EditedFigure figure;
        auto* spline = figure.put(with(makeSpline({{0, 0}, {100, 0}, {100, 100}}, 1), 1));
        auto* action = figure.run(new ConvertSplineToLineAction(spline, &figure.top()));
        FigLine* line = action->line;
        QCOMPARE(figure.top(), (FigObjectList{line}));
        QCOMPARE(chain(line), QString("100,100 0,0 100,0 100,100"));
        figure.undo();
        QCOMPARE(figure.top(), (FigObjectList{spline}));
        figure.redo();
        QCOMPARE(figure.top(), (FigObjectList{line}));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void theArrowsBelongToTheOneInTheDrawing()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{0, 0}, {100, 0}, {100, 100}}), 1));
        FigArrow* forward = line->forward_arrow = makeArrow(1);
        FigArrow* backward = line->backward_arrow = makeArrow(2);
        auto* action = figure.run(new ConvertLineToSplineAction(line, &figure.top()));
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(action->spline->forward_arrow, forward);
            QCOMPARE(action->spline->backward_arrow, backward);
            QVERIFY(!line->forward_arrow && !line->backward_arrow);
            figure.undo();
            QCOMPARE(line->forward_arrow, forward);
            QCOMPARE(line->backward_arrow, backward);
            QVERIFY(!action->spline->forward_arrow && !action->spline->backward_arrow);
            figure.redo();
        }
    }

    void theObjectThatIsOutDiesWithTheConversionAndTheArrowsStay_data()
    {
        QTest::addColumn<bool>("undone");
        QTest::newRow("in effect") << false;
        QTest::newRow("undone") << true;
    }

    void theObjectThatIsOutDiesWithTheConversionAndTheArrowsStay()
    {
        QFETCH(bool, undone);
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{0, 0}, {100, 0}, {100, 100}}), 1));
        line->forward_arrow = makeArrow(1);
        figure.run(new ConvertLineToSplineAction(line, &figure.top()));
        auto* spline = figure.put(with(makeSpline({{0, 0}, {100, 0}, {100, 100}}), 2));
        spline->backward_arrow = makeArrow(2);
        figure.run(new ConvertSplineToLineAction(spline, &figure.top()));
        if (undone) {
            figure.undo();
            figure.undo();
        }
        figure.queue().clearRedoList();
        figure.queue().clearUndoList();
        for (FigObject* object : figure.top())
            QCOMPARE(object->id == 1 ? object->forward_arrow->type : object->backward_arrow->type,
                     static_cast<int>(object->id));
    }

    void theCurrentObjectIsExchangedAsWell()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{0, 0}, {100, 0}, {100, 100}}), 1));
        figure.ctx.curObject = line;
        auto* action = figure.run(new ConvertLineToSplineAction(line, &figure.top()));
        QCOMPARE(figure.ctx.curObject, action->spline);
        figure.undo();
        QCOMPARE(figure.ctx.curObject, line);
        QCOMPARE(recordingShell.panels, (QStringList{"attributes 2", "buttons"}));
        figure.redo();
        QCOMPARE(figure.ctx.curObject, action->spline);
    }

    void aLineOfTwoPointsIsRefusedAndStaysAsItIs()
    {
        EditedFigure figure;
        auto* line = figure.put(with(makeLine({{0, 0}, {100, 0}}), 1));
        line->forward_arrow = makeArrow(3);
        ConvertLineToSplineAction action(line, &figure.top());
        QVERIFY(!action.execute(&figure.ctx));
        QCOMPARE(action.object, line);
        QCOMPARE(figure.top(), (FigObjectList{line}));
        QCOMPARE(line->forward_arrow->type, 3);
        QVERIFY(recordingShell.messages.contains("Not enough points for a spline!"));
    }

    void aConversionInACompoundIsUndoneThereWhateverIsOpen()
    {
        EditedFigure figure;
        auto* line = with(makeLine({{0, 0}, {100, 0}, {100, 100}}), 2);
        auto* compound = figure.put(with(makeCompound({line}), 1));
        auto* other = figure.put(with(makeCompound({with(new FigEllipse, 4)}), 3));
        figure.ctx.openCompoundObjects = compound->objects;
        figure.run(new ConvertLineToSplineAction(line, compound->objects));
        figure.ctx.openCompoundObjects = other->objects;
        figure.undo();
        QCOMPARE(ids(figure.top()), QString("1(2) 3(4)"));
        QCOMPARE(compound->objects->first(), line);
        QCOMPARE(depthTableError(&figure.ctx), QString());
        figure.redo();
        QCOMPARE(ids(figure.top()), QString("1(2) 3(4)"));
        QCOMPARE(compound->objects->first()->type, static_cast<int>(O_SPLINE));
        QCOMPARE(depthTableError(&figure.ctx), QString());
    }

    void aConvertedConnectorKeepsItsLinkAndGetsItBack()
    {
        EditedFigure figure;
        figure.put(with(new FigEllipse, 1));
        auto* line = figure.put(with(makeLine({{0, 0}, {100, 0}, {100, 100}}), 2));
        FigLink* link = makeLink(line->points, 1);
        auto* action = figure.run(new ConvertLineToSplineAction(line, &figure.top()));
        QVERIFY(action->spline->points->link);
        QCOMPARE(action->spline->points->link->targetObjId, 1L);
        QCOMPARE(action->spline->points->link->srcPoint, action->spline->points);
        figure.undo();
        QCOMPARE(line->points->link, link);
    }
};

QTEST_MAIN(TestActions)
#include "test_actions.moc"
