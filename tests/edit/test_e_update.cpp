// The update of objects to the current attributes. Expected numbers are worked out by hand; what a
// figure is saved as serves for "nothing has changed".
#include "AttributeFixture.h"
#include "edit/e_arrow.h"
#include "edit/mode.h"
#include "edit/u_search.h"
#include "render/Font.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

#include <memory>
#include <random>

namespace {

FigObject* madeObject(const QString& name)
{
    if (name == "polyline")
        return makeLine({{0, 0}, {900, 600}});
    if (name == "box")
        return makeBox();
    if (name == "arc-box")
        return makeBox(T_ARCBOX);
    if (name == "polygon")
        return makeBox(T_POLYGON);
    if (name == "picture")
        return makeBox(T_PICTURE);
    if (name == "spline")
        return makeSpline({{0, 0}, {900, 600}, {0, 600}});
    if (name == "ellipse")
        return makeEllipse();
    if (name == "arc")
        return makeOpenArc();
    return makeText("words");
}

/// No object of the builders has any of these.
void makeAllCurrentAttributesForeign(CFigContext* ctx)
{
    cur_depth = 77;
    cur_linewidth = 9;
    cur_linestyle = 3;
    cur_styleval = 5.5f;
    ctx->cur_pencolor = 4;
    ctx->cur_fillcolor = 5;
    ctx->cur_fillstyle = 20;
    cur_capstyle = cur_joinstyle = 2;
    cur_boxtype = 8; // neither box nor arc-box, so that it differs from both
    cur_boxradius = 33;
    cur_arctype = 1;
    cur_ellipseangle = 0.5f;
    cur_ps_font = 8;
    cur_textjust = 2;
    cur_textflags = 7;
    cur_fontsize = 30;
    cur_textangle = 1.5f;
}

/// Current attributes that a user could have set, another set for each seed.
void chooseAtRandom(CFigContext* ctx, std::mt19937& bits)
{
    const auto between = [&](int low, int high) {
        return low + static_cast<int>(bits() % static_cast<unsigned>(high - low + 1));
    };
    cur_depth = between(0, 999);
    cur_linewidth = between(1, 40);
    cur_linestyle = between(0, 5);
    cur_styleval = static_cast<float>(between(0, 9999)) / 300.0f;
    ctx->cur_pencolor = between(-1, 31);
    ctx->cur_fillcolor = between(-1, 31);
    ctx->cur_fillstyle = between(-1, 20);
    cur_capstyle = between(0, 2);
    cur_joinstyle = between(0, 2);
    cur_boxtype = between(0, 1) ? T_BOX : T_ARCBOX;
    cur_boxradius = between(-1, 50);
    cur_arctype = between(0, 1);
    cur_ellipseangle = static_cast<float>(between(0, 628)) / 100.0f;
    cur_textangle = static_cast<float>(between(0, 628)) / 100.0f;
    cur_textflags = between(0, 7);
    cur_ps_font = between(0, 34);
    cur_latex_font = between(0, 5);
    cur_textjust = between(0, 2);
    cur_fontsize = between(1, 60);
    autoforwardarrow_mode = between(0, 1);
    autobackwardarrow_mode = between(0, 1);
    cur_farrowtype = between(0, 28);
    cur_barrowtype = between(0, 28);
    cur_arrow_multthick = static_cast<float>(between(1, 300)) / 70.0f;
    cur_arrow_multwidth = static_cast<float>(between(1, 9000)) / 70.0f;
    cur_arrow_multheight = static_cast<float>(between(1, 9000)) / 70.0f;
}

} // namespace

class TestUpdate : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        recordingShell.clear();
        resetCurrentAttributes();
    }

    void cleanupTestCase() { resetCurrentAttributes(); }

    // --- which attributes which object has ---------------------------------------

    void eachTypeHasTheKindsOfItsRow_data()
    {
        QTest::addColumn<QList<int>>("kinds");
        QTest::newRow("polyline") << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8};
        QTest::newRow("box") << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
        QTest::newRow("arc-box") << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
        QTest::newRow("polygon") << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8};
        QTest::newRow("picture") << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8};
        QTest::newRow("spline") << QList<int>{0, 1, 2, 3, 4, 5, 6, 7};
        QTest::newRow("ellipse") << QList<int>{0, 1, 2, 3, 4, 5, 6, 12};
        QTest::newRow("arc") << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 11};
        QTest::newRow("text") << QList<int>{0, 4, 13, 14, 15, 16, 17, 18, 19};
    }

    void eachTypeHasTheKindsOfItsRow()
    {
        QFETCH(QList<int>, kinds);
        Document document;
        const QString name = QTest::currentDataTag();
        FigObject* object = document.add(madeObject(name));
        makeAllCurrentAttributesForeign(&document.ctx);
        // The panels of a picture know only its depth.
        const QList<int> kindsInPanels = name == "picture" ? QList<int>{0} : kinds;
        QCOMPARE(document.kinds(object, false), kindsInPanels);
        QCOMPARE(document.kinds(object, true), kinds);
        std::fill(std::begin(updatelist), std::end(updatelist), 0);
        QCOMPARE(document.kinds(object, true), QList<int>());
        QCOMPARE(document.kinds(object, false), kindsInPanels);
        for (int kind = 0; kind < NUM_ATTRIBUTE_KINDS; ++kind) {
            updatelist[kind] = 1;
            const QList<int> alone = kinds.contains(kind) ? QList<int>{kind} : QList<int>();
            QCOMPARE(document.kinds(object, true), alone);
            updatelist[kind] = 0;
        }
    }

    void anUpdateBringsEveryAttributeOver()
    {
        Document document;
        auto* box = document.add(makeBox());
        makeAllCurrentAttributesForeign(&document.ctx);
        cur_boxtype = T_ARCBOX;
        document.update(box);
        QCOMPARE(box->depth, 77);
        QCOMPARE(box->thickness, 9);
        QCOMPARE(box->line_style, 3);
        QCOMPARE(box->style_val, 27.5f); // 10 * 5.5 / 2
        QCOMPARE(box->pen_color, 4);
        QCOMPARE(box->fill_color, 5);
        QCOMPARE(box->fill_style, 20);
        QCOMPARE(box->cap_style, 2);
        QCOMPARE(box->join_style, 2);
        QCOMPARE(box->sub_type, int(T_ARCBOX));
        QCOMPARE(box->radius, 33);
        QCOMPARE(document.steps(), 1);

        auto* text = document.add(makeText("words"));
        document.update(text);
        QCOMPARE(text->depth, 77);
        QCOMPARE(text->color, 4);
        QCOMPARE(text->font, 8);
        QCOMPARE(text->sub_type, 2);
        QCOMPARE(text->flags, 7);
        QCOMPARE(text->size, 30);
        QCOMPARE(text->angle, 1.5f);

        auto* ellipse = document.add(makeEllipse());
        document.update(ellipse);
        QCOMPARE(ellipse->angle, 0.5f);

        auto* arc = document.add(makeOpenArc());
        document.update(arc);
        QCOMPARE(arc->sub_type, 1);
        QCOMPARE(arc->cap_style, 2);

        auto* spline = document.add(makeSpline({{0, 0}, {900, 600}, {0, 600}}));
        document.update(spline);
        QCOMPARE(spline->cap_style, 2);
        QCOMPARE(document.steps(), 5);
    }

    void aChangeKeepsOldAndNewValueInTheFieldsOfItsKind()
    {
        Document document;
        auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
        line->thickness = 1;
        line->style_val = 3;
        takeAttributes(&document.ctx, line);
        cur_styleval = 7;
        ActionList* changes = getChangesList(&document.ctx, line, false);
        QCOMPARE(changes->size(), 1);
        auto* action = static_cast<ChangeAttributeAction*>(changes->first());
        QCOMPARE(action->object, static_cast<FigObject*>(line));
        QCOMPARE(action->workingList, document.ctx.getWorkingRoot());
        QCOMPARE(action->change->oldFloat, 3.0f); // 2 * 3 / 2
        QCOMPARE(action->change->newFloat, 7.0f);
        QCOMPARE(line->style_val, 3.0f); // not executed
        Document::dispose(changes);

        auto* text = document.add(makeText("words"));
        takeAttributes(&document.ctx, text);
        cur_textflags = 4;
        cur_fontsize = 30;
        changes = getChangesList(&document.ctx, text, false);
        QCOMPARE(changes->size(), 2);
        const AttributeChange* size = static_cast<ChangeAttributeAction*>(changes->at(0))->change;
        QCOMPARE(size->oldValue, 12);
        QCOMPARE(size->newValue, 30);
        const AttributeChange* flag = static_cast<ChangeAttributeAction*>(changes->at(1))->change;
        QCOMPARE(flag->kind, int(ATTR_PS_FONT_FLAG));
        QVERIFY(!flag->oldFlag);
        QVERIFY(flag->newFlag);
        Document::dispose(changes);
    }

    // --- dashes ------------------------------------------------------------------

    void changingTheWidthKeepsTheDashLook()
    {
        Document document;
        auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
        line->line_style = 1;
        line->thickness = 1;
        line->style_val = 4;
        takeAttributes(&document.ctx, line);
        QCOMPARE(cur_styleval, 4.0f); // 2 * 4 / 2
        cur_linewidth = 5;
        document.update(line);
        QCOMPARE(line->thickness, 5);
        QCOMPARE(line->style_val, 12.0f); // 4 * 6 / 2
        document.undo();
        QCOMPARE(line->thickness, 1);
        QCOMPARE(line->style_val, 4.0f);
        document.redo();
        QCOMPARE(line->style_val, 12.0f);
    }

    void changingTheStyleLeavesTheDash()
    {
        Document document;
        auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
        line->thickness = 2;
        line->style_val = 4.347826f;
        takeAttributes(&document.ctx, line);
        cur_linestyle = 2;
        document.update(line);
        QCOMPARE(line->line_style, 2);
        QVERIFY(line->style_val == 4.347826f);
    }

    // Width and ratio in one step: the ratio counts with the new width.
    void dashLengthAndWidthChangeTogether()
    {
        Document document;
        auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
        line->thickness = 1;
        line->style_val = 4;
        takeAttributes(&document.ctx, line);
        cur_linewidth = 3;
        cur_styleval = 10;
        document.update(line);
        QCOMPARE(line->style_val, 20.0f); // 10 * 4 / 2
        QCOMPARE(document.steps(), 1);
    }

    // 4.347826 goes through ratios that no float holds exactly.
    void undoGivesTheDashBackToTheBit()
    {
        for (int width = 0; width < 60; ++width) {
            Document document;
            auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
            line->thickness = 6;
            line->style_val = 4.347826f;
            cur_linewidth = width;
            cur_styleval = 0.1f * static_cast<float>(width);
            document.update(line);
            document.undo();
            QCOMPARE(line->thickness, 6);
            QVERIFY(line->style_val == 4.347826f);
        }
    }

    // An undo of a change that was not applied to this dash keeps the proportion.
    void undoOfAWidthKeepsTheProportionOfAnotherDash()
    {
        CFigContext ctx;
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {900, 600}}));
        line->thickness = 5;
        line->style_val = 12;
        AttributeChange change;
        change.kind = ATTR_LINE_WIDTH;
        change.oldValue = 1;
        change.newValue = 5;
        updateAttrsUndo(&ctx, line.get(), &change);
        QCOMPARE(line->thickness, 1);
        QCOMPARE(line->style_val, 4.0f);
    }

    void aWidthBelowZeroCountsAsZeroForTheDash()
    {
        Document document;
        auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
        line->thickness = -1;
        line->style_val = 3;
        takeAttributes(&document.ctx, line);
        QCOMPARE(cur_styleval, 6.0f);
        cur_linewidth = 2;
        document.update(line);
        QCOMPARE(line->style_val, 9.0f); // 6 * 3 / 2
    }

    // --- single kinds ------------------------------------------------------------

    void flagsOfATextChangeOneByOne()
    {
        Document document;
        auto* text = document.add(makeText("words"));
        text->flags = 8;
        takeAttributes(&document.ctx, text);
        cur_textflags = 7;
        std::fill(std::begin(updatelist), std::end(updatelist), 0);
        for (const auto& [kind, flags] :
             {std::pair(ATTR_TEXT_RIGID, 9), std::pair(ATTR_TEXT_SPECIAL, 11),
              std::pair(ATTR_PS_FONT_FLAG, 15)}) {
            updatelist[kind] = 1;
            document.update(text);
            QCOMPARE(text->flags, flags);
        }
        cur_textflags = 0;
        document.update(text);
        QCOMPARE(text->flags, 8); // the hidden flag is nobody's business
        document.undo();
        QCOMPARE(text->flags, 15);
    }

    void aWholeFlagsWordInAChangeTouchesOneBitOnly()
    {
        CFigContext ctx;
        FigText text;
        text.flags = 4;
        AttributeChange change;
        change.kind = ATTR_TEXT_RIGID;
        change.oldValue = 4;
        change.newValue = 3;
        updateAttrs(&ctx, &text, &change);
        QCOMPARE(text.flags, 5);
        updateAttrsUndo(&ctx, &text, &change);
        QCOMPARE(text.flags, 4);
    }

    void theFontComesFromTheNumberingThatTheFlagMeans()
    {
        Document document;
        auto* text = document.add(makeText("words"));
        cur_ps_font = 20;
        cur_latex_font = 3;
        cur_textflags = 4;
        document.update(text);
        QCOMPARE(text->font, 20);
        cur_textflags = 0;
        document.update(text);
        QCOMPARE(text->font, 3);
    }

    void fontSizeAndFontChangeTheMeasuredLength()
    {
        Document document;
        auto* text = document.add(makeText("measured words"));
        text->flags = 4;
        pf_textwidth(&document.ctx, text, 1.0);
        takeAttributes(&document.ctx, text);
        const int length = text->length;
        cur_fontsize = 24;
        document.update(text);
        QVERIFY(text->length > length * 3 / 2);
        document.undo();
        QCOMPARE(text->length, length);
    }

    void depthMovesTheObjectInTheDepthTable()
    {
        Document document;
        auto* line = document.add(with(makeLine({{0, 0}, {900, 600}}), 1, 50));
        QCOMPARE(document.ctx.object_depths[50], 1);
        cur_depth = 12;
        document.update(line);
        QCOMPARE(document.ctx.object_depths[50], 0);
        QCOMPARE(document.ctx.object_depths[12], 1);
        QCOMPARE(document.ctx.counts[12].lines, 1);
        QCOMPARE(document.ctx.min_depth, 12);
        document.undo();
        QCOMPARE(document.ctx.object_depths[50], 1);
        QCOMPARE(document.ctx.object_depths[12], 0);
        QCOMPARE(line->depth, 50);
    }

    // The panel goes up to 1000.
    void depthOneThousandMeansTheLastDepthThereIs()
    {
        Document document;
        auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
        cur_depth = 1000;
        document.update(line);
        QCOMPARE(line->depth, 999);
        QCOMPARE(document.steps(), 1);
        document.update(line);
        QCOMPARE(document.steps(), 1);
    }

    void onlyBoxesTakeARadius()
    {
        CFigContext ctx;
        AttributeChange change;
        change.kind = ATTR_BOX_RADIUS;
        change.oldValue = 3;
        change.newValue = 20;
        const std::unique_ptr<FigLine> polygon(makeBox(T_POLYGON));
        updateAttrs(&ctx, polygon.get(), &change);
        QCOMPARE(polygon->radius, -1);
        const std::unique_ptr<FigLine> arcBox(makeBox(T_ARCBOX));
        updateAttrs(&ctx, arcBox.get(), &change);
        QCOMPARE(arcBox->radius, 20);
        updateAttrsUndo(&ctx, arcBox.get(), &change);
        QCOMPARE(arcBox->radius, 3);
    }

    // --- steps -------------------------------------------------------------------

    void anUpdateWithoutDifferencesPostsTheMessageAndMakesNoStep()
    {
        Document document;
        auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
        takeAttributes(&document.ctx, line);
        QImage canvas(200, 200, QImage::Format_ARGB32_Premultiplied);
        canvas.fill(Qt::magenta);
        const QImage before = canvas.copy();
        QPainter painter(&canvas);
        document.ctx.setPainter(&painter);
        QVERIFY(update_object(&document.ctx, line, O_POLYLINE, 0, 0, 0, 0));
        painter.end();
        document.ctx.setPainter(nullptr);
        QCOMPARE(canvas, before); // no refresh
        QCOMPARE(document.steps(), 0);
        QVERIFY(!document.ctx.modified);
        QCOMPARE(recordingShell.messages, QStringList("Object(s) UPDATED"));
    }

    void anUpdateRedrawsTheObject()
    {
        Document document;
        auto* line = document.add(makeLine({{300, 300}, {1500, 300}}));
        takeAttributes(&document.ctx, line);
        cur_linewidth = 6;
        QImage canvas(200, 200, QImage::Format_ARGB32_Premultiplied);
        canvas.fill(Qt::magenta);
        QPainter painter(&canvas);
        document.ctx.setPainter(&painter);
        QVERIFY(update_object(&document.ctx, line, O_POLYLINE, 0, 0, 0, 0));
        painter.end();
        document.ctx.setPainter(nullptr);
        // 80 pixels an inch: the line runs from (20, 20) to (100, 20).
        QCOMPARE(canvas.pixelColor(60, 20), QColor(Qt::black));
        QCOMPARE(document.steps(), 1);
        QCOMPARE(recordingShell.messages, QStringList("Object(s) UPDATED"));
    }

    void aClickBesideEverythingUpdatesNothing()
    {
        CFigContext ctx;
        QVERIFY(!update_object(&ctx, nullptr, O_POLYLINE, 0, 0, 0, 0));
        QVERIFY(recordingShell.messages.isEmpty());
    }

    void nothingIsUpdatedWithoutDocumentOrObject()
    {
        CFigContext ctx;
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {900, 600}}));
        cur_linewidth = 9;
        update_object_to_current_attrs(nullptr, line.get(), false);
        update_object_to_current_attrs(&ctx, static_cast<FigObject*>(nullptr), false);
        update_object_to_current_attrs(&ctx, static_cast<FigObjectList*>(nullptr), false);
        QCOMPARE(line->thickness, 0);
        QCOMPARE(ctx.undoQueue.undoCount(), 0);
    }

    void thePanelsDoNotLookAtTheUpdateList()
    {
        Document document;
        auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
        takeAttributes(&document.ctx, line);
        cur_capstyle = 2;
        updatelist[ATTR_CAP_STYLE] = 0;
        document.update(line, true);
        QCOMPARE(line->cap_style, 0);
        QCOMPARE(document.steps(), 0);
        document.update(line, false);
        QCOMPARE(line->cap_style, 2);
    }

    void aCompoundIsUpdatedInOneStepForAllMembers()
    {
        Document document;
        auto* inner = makeCompound({makeBox(), makeText("words")});
        auto* compound = makeCompound({makeLine({{0, 0}, {900, 600}}), inner, makeEllipse()});
        document.add(compound);
        cur_depth = 7;
        document.ctx.cur_pencolor = 4;
        document.update(compound);
        FigObjectList leaves;
        collect({compound}, &leaves);
        QCOMPARE(leaves.size(), 4);
        for (FigObject* leaf : qAsConst(leaves))
            QCOMPARE(leaf->depth, 7);
        QCOMPARE(document.ctx.object_depths[7], 4);
        QCOMPARE(compound->depth, 0); // no attribute of its own
        QCOMPARE(document.steps(), 1);
        document.undo();
        for (FigObject* leaf : qAsConst(leaves))
            QCOMPARE(leaf->depth, 0);
        QCOMPARE(document.ctx.object_depths[7], 0);
    }

    void aListIsUpdatedInOneStep()
    {
        Document document;
        FigObjectList list{document.add(makeBox()), document.add(makeEllipse())};
        cur_linewidth = 4;
        update_object_to_current_attrs(&document.ctx, &list, true);
        QCOMPARE(list.first()->thickness, 4);
        QCOMPARE(list.last()->thickness, 4);
        QCOMPARE(document.steps(), 1);
    }

    void theChangesOfAListAreThoseOfItsObjectsInOrder()
    {
        Document document;
        auto* text = makeText("words");
        auto* compound = document.add(makeCompound({makeBox(), text}));
        makeAllCurrentAttributesForeign(&document.ctx);
        FigObjectList list{compound};
        ActionList* changes = getChangesList(&document.ctx, &list, true);
        QCOMPARE(changes->size(), 11 + 9);
        QCOMPARE(changes->at(10)->object, compound->objects->first());
        QCOMPARE(changes->at(11)->object, static_cast<FigObject*>(text));
        Document::dispose(changes);
        changes = getChangesList(&document.ctx, compound, true);
        QCOMPARE(changes->size(), 11 + 9);
        Document::dispose(changes);
    }

    // Exact bounds of the line are wider by half its width: 15 units per unit of width.
    void cornersOfACompoundFollowTheNewLookAndComeBack()
    {
        Document document;
        auto* inner = makeCompound({makeLine({{1200, 1200}, {2400, 1200}})});
        auto* outer = document.add(makeCompound({inner, makeText("")}));
        update_compound_corners(&document.ctx, outer);
        const int narrow = inner->nwcorner.y;
        cur_linewidth = 20;
        document.update(outer);
        QVERIFY(inner->nwcorner.y < narrow - 100);
        QVERIFY(outer->secorner.y > 1300);
        const int wide = inner->nwcorner.y;
        document.undo();
        QCOMPARE(inner->nwcorner.y, narrow);
        document.redo();
        QCOMPARE(inner->nwcorner.y, wide);
    }

    void cornersOfAnOpenCompoundFollowItsMembers()
    {
        Document document;
        auto* line = makeLine({{1200, 1200}, {2400, 1200}});
        auto* compound = document.add(makeCompound({line}));
        update_compound_corners(&document.ctx, compound);
        const int narrow = compound->nwcorner.y;
        document.ctx.openCompoundObjects = compound->objects;
        cur_linewidth = 20;
        document.update(line);
        QVERIFY(compound->nwcorner.y < narrow - 100);
        document.undo();
        QCOMPARE(compound->nwcorner.y, narrow);
        document.ctx.openCompoundObjects = nullptr;
    }

    // --- arrows within the update ------------------------------------------------

    void arrowsAreMadeForTheNewWidthInTheSameStep()
    {
        Document document;
        auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
        line->thickness = 1;
        autoforwardarrow_mode = true;
        cur_farrowtype = 3;
        cur_linewidth = 2;
        document.update(line);
        QCOMPARE(document.steps(), 1);
        QVERIFY(line->forward_arrow);
        QVERIFY(!line->backward_arrow);
        QCOMPARE(line->forward_arrow->type, 2);
        QCOMPARE(line->forward_arrow->style, 0);
        QCOMPARE(line->forward_arrow->thickness, 2.0f);
        QCOMPARE(line->forward_arrow->wd, 120.0f);
        QCOMPARE(line->forward_arrow->ht, 240.0f);
        document.undo();
        QVERIFY(!line->forward_arrow);
        QCOMPARE(line->thickness, 1);
    }

    void anArrowAloneMakesAStep()
    {
        Document document;
        auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
        line->thickness = 1;
        takeAttributes(&document.ctx, line);
        autobackwardarrow_mode = true;
        document.update(line);
        QVERIFY(line->backward_arrow);
        QCOMPARE(document.steps(), 1);
        document.update(line);
        QCOMPARE(document.steps(), 1);
        document.undo();
        QVERIFY(!line->backward_arrow);
    }

    // Absolute sizes: a head that is added takes the line's width for its thickness, one that is
    // there the current thickness. So the second update is not the last.
    void anAbsoluteHeadTakesTheCurrentThicknessOnlyWithTheSecondUpdate()
    {
        Document document;
        auto* line = document.add(makeLine({{0, 0}, {900, 600}}));
        line->thickness = 4;
        takeAttributes(&document.ctx, line);
        use_abs_arrowvals = true;
        autoforwardarrow_mode = true;
        cur_arrowthick = 2;
        cur_arrowwidth = 75;
        cur_arrowheight = 90;
        document.update(line);
        QCOMPARE(line->forward_arrow->thickness, 4.0f);
        QCOMPARE(line->forward_arrow->wd, 75.0f);
        document.update(line);
        QCOMPARE(line->forward_arrow->thickness, 2.0f);
        QCOMPARE(document.steps(), 2);
        document.update(line);
        QCOMPARE(document.steps(), 2);
    }

    void closedShapesAndPieWedgesGetNoHeads()
    {
        autoforwardarrow_mode = autobackwardarrow_mode = true;
        for (FigObject* object :
             {static_cast<FigObject*>(makeBox()), static_cast<FigObject*>(makeBox(T_POLYGON)),
              static_cast<FigObject*>(makeEllipse())}) {
            Document document;
            document.update(document.add(object));
            QVERIFY(!object->forward_arrow && !object->backward_arrow);
        }
        Document document;
        cur_arctype = 1;
        auto* wedge = document.add(makeOpenArc());
        wedge->sub_type = 1;
        document.update(wedge);
        QVERIFY(!wedge->forward_arrow && !wedge->backward_arrow);
    }

    // --- panels ------------------------------------------------------------------

    void severalTaggedObjectsShowThePanelOfNone()
    {
        CFigContext ctx;
        FigLine line;
        FigEllipse ellipse;
        FigObjectList tagged;
        ctx.curObject = &ellipse;
        showAttributesBar(&ctx, &tagged);
        tagged.append(&line);
        showAttributesBar(&ctx, &tagged);
        tagged.append(&ellipse);
        showAttributesBar(&ctx, &tagged);
        showAttributesBar(&ctx, static_cast<FigObject*>(&line));
        QCOMPARE(recordingShell.panels,
                 (QStringList{"attributes 1", "attributes 1", "attributes 0", "attributes 2"}));
        ctx.curObject = nullptr;
    }

    void theToolSearchesObjectsWithTheLeftButtonAlone()
    {
        action_on = 1;
        update_selected(nullptr);
        QVERIFY(canvas_leftbut_proc == object_search_left);
        QVERIFY(handlerproc_left == update_object);
        QVERIFY(!canvas_middlebut_proc);
        QVERIFY(!canvas_locmove_proc);
        QCOMPARE(action_on, 0);
    }

    // --- at random ---------------------------------------------------------------

    void undoOfARandomUpdateGivesTheSavedBytesAndASecondUpdateMakesNoStep()
    {
        for (unsigned seed = 1; seed <= 120; ++seed) {
            Document document;
            RandomFigure(seed).fill(&document.ctx);
            std::mt19937 bits(seed);
            chooseAtRandom(&document.ctx, bits);
            const QString before = document.saved();
            FigObjectList* root = document.ctx.getWorkingRoot();
            update_object_to_current_attrs(&document.ctx, root, true);
            const int steps = document.steps();
            const QString after = document.saved();
            update_object_to_current_attrs(&document.ctx, root, true);
            QVERIFY2(document.steps() == steps, qPrintable(QString("seed %1").arg(seed)));
            QVERIFY2(document.saved() == after, qPrintable(QString("seed %1").arg(seed)));
            if (steps == 0)
                continue;
            document.undo();
            QVERIFY2(document.saved() == before, qPrintable(QString("seed %1").arg(seed)));
            document.redo();
            QVERIFY2(document.saved() == after, qPrintable(QString("seed %1").arg(seed)));
        }
    }
};

QTEST_MAIN(TestUpdate)
#include "test_e_update.moc"
