// What selecting an object makes of the current attributes: the reverse of an update.
#include "AttributeFixture.h"
#include "edit/d_create.h"

#include <QtTest>

#include <memory>
#include <utility>

class TestCurrentAttributes : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        recordingShell.clear();
        resetCurrentAttributes();
    }

    void cleanupTestCase() { resetCurrentAttributes(); }

    void aLinesAttributesBecomeTheCurrentOnes()
    {
        CFigContext ctx;
        const std::unique_ptr<FigLine> line(makeBox(T_ARCBOX));
        line->depth = 3;
        line->thickness = 4;
        line->line_style = 2;
        line->style_val = 10;
        line->pen_color = 5;
        line->fill_color = 6;
        line->fill_style = 7;
        line->cap_style = 1;
        line->join_style = 2;
        line->radius = 19;
        get_line_attrs(&ctx, line.get());
        QCOMPARE(cur_depth, 3);
        QCOMPARE(cur_linewidth, 4);
        QCOMPARE(cur_linestyle, 2);
        QCOMPARE(cur_styleval, 4.0f); // 2 * 10 / 5
        QCOMPARE(ctx.cur_pencolor, 5);
        QCOMPARE(ctx.cur_fillcolor, 6);
        QCOMPARE(ctx.cur_fillstyle, 7);
        QCOMPARE(cur_capstyle, 1);
        QCOMPARE(cur_joinstyle, 2);
        QCOMPARE(cur_boxtype, int(T_ARCBOX));
        QCOMPARE(cur_boxradius, 19);
    }

    void onlyBoxesGiveTypeAndRadius()
    {
        CFigContext ctx;
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {900, 600}}));
        get_line_attrs(&ctx, line.get());
        QCOMPARE(cur_boxtype, int(T_BOX));
        QCOMPARE(cur_boxradius, 7);
    }

    void aTextGivesItsPenColourAndNoneOfTheLineAttributes()
    {
        CFigContext ctx;
        FigText text;
        text.color = 9;
        text.pen_color = 8;
        text.sub_type = 1;
        text.size = 33;
        text.angle = 0.25f;
        text.flags = 8 + 4 + 1;
        text.font = 17;
        text.depth = 4;
        cur_latex_font = 2;
        cur_textflags = 2;
        get_text_attrs(&ctx, &text);
        QCOMPARE(ctx.cur_pencolor, 9);
        QCOMPARE(ctx.cur_fillcolor, 7);
        QCOMPARE(cur_linewidth, 1);
        QCOMPARE(cur_styleval, 4.0f);
        QCOMPARE(cur_textjust, 1);
        QCOMPARE(cur_fontsize, 33);
        QCOMPARE(cur_textangle, 0.25f);
        QCOMPARE(cur_textflags, 5); // the hidden flag is not handed on
        QCOMPARE(cur_ps_font, 17);
        QCOMPARE(cur_latex_font, 2);
        QCOMPARE(cur_depth, 4);
        text.flags = 2;
        text.font = 3;
        get_text_attrs(&ctx, &text);
        QCOMPARE(cur_textflags, 2);
        QCOMPARE(cur_latex_font, 3);
        QCOMPARE(cur_ps_font, 17);
    }

    void ellipsesAndArcsGiveWhatIsTheirs()
    {
        CFigContext ctx;
        const std::unique_ptr<FigEllipse> ellipse(makeEllipse());
        ellipse->angle = 0.75f;
        get_ellipse_attrs(&ctx, ellipse.get());
        QCOMPARE(cur_ellipseangle, 0.75f);
        const std::unique_ptr<FigArc> arc(makeOpenArc());
        arc->sub_type = 1;
        arc->cap_style = 2;
        get_arc_attrs(&ctx, arc.get());
        QCOMPARE(cur_arctype, 1);
        QCOMPARE(cur_capstyle, 2);
    }

    void anotherLineWidthMakesTheSizesOfArrowsFollow()
    {
        CFigContext ctx;
        cur_arrowwidth = 33;
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {900, 600}}));
        line->thickness = 1; // the current one: nothing follows
        get_line_attrs(&ctx, line.get());
        QCOMPARE(cur_arrowwidth, 33.0f);
        line->thickness = 3;
        get_line_attrs(&ctx, line.get());
        QCOMPARE(cur_arrowthick, 3.0f);
        QCOMPARE(cur_arrowwidth, 180.0f);
        QCOMPARE(cur_arrowheight, 360.0f);
    }

    void arrowsGiveTypesModesAndMultiplesOfTheLineWidth()
    {
        CFigContext ctx;
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {900, 600}}));
        line->thickness = 2;
        line->forward_arrow = new FigArrow{2, 1, 1, 60, 120};
        get_line_attrs(&ctx, line.get());
        QVERIFY(autoforwardarrow_mode);
        QVERIFY(!autobackwardarrow_mode);
        QCOMPARE(cur_farrowtype, 4);
        QCOMPARE(cur_arrowthick, 2.0f); // the base of new arrows, not the thickness of this one
        QCOMPARE(cur_arrow_multthick, 0.5f);
        QCOMPARE(cur_arrow_multwidth, 30.0f);
        QCOMPARE(cur_arrow_multheight, 60.0f);
        std::swap(line->forward_arrow, line->backward_arrow);
        line->backward_arrow->type = 0;
        get_line_attrs(&ctx, line.get());
        QVERIFY(!autoforwardarrow_mode);
        QVERIFY(autobackwardarrow_mode);
        QCOMPARE(cur_barrowtype, 0);
        QCOMPARE(cur_farrowtype, 4);
    }

    void arrowsGiveTheirSizesAsTheyAreWhereAbsoluteOnesAreInForce()
    {
        CFigContext ctx;
        use_abs_arrowvals = true;
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {900, 600}}));
        line->thickness = 2;
        line->backward_arrow = new FigArrow{2, 1, 3, 75, 90};
        get_line_attrs(&ctx, line.get());
        QCOMPARE(cur_arrowthick, 3.0f);
        QCOMPARE(cur_arrowwidth, 75.0f);
        QCOMPARE(cur_arrowheight, 90.0f);
        QCOMPARE(cur_arrow_multthick, 1.0f);
        QCOMPARE(cur_arrow_multwidth, 60.0f);
        QCOMPARE(cur_arrow_multheight, 120.0f);
    }

    // A new picture has no line width; lines that are drawn after it keep theirs.
    void aPictureGivesItsDepthAlone()
    {
        CFigContext ctx;
        cur_linewidth = 3;
        cur_linestyle = 1;
        const std::unique_ptr<FigLine> picture(createPicFromCurrentAttrs(&ctx));
        picture->depth = 31;
        get_line_attrs(&ctx, picture.get());
        QCOMPARE(cur_depth, 31);
        QCOMPARE(cur_linewidth, 3);
        QCOMPARE(cur_linestyle, 1);
        QCOMPARE(cur_styleval, 4.0f);
    }

    // A dot has no ends for heads, so it does not tell that the user wants none.
    void aDotLeavesTheAutomaticModes()
    {
        CFigContext ctx;
        autoforwardarrow_mode = true;
        const std::unique_ptr<FigLine> dot(makeLine({{0, 0}}));
        get_line_attrs(&ctx, dot.get());
        QVERIFY(autoforwardarrow_mode);
    }

    // A tool shows the new object as the current one, so its attributes are taken after each.
    void drawingObjectAfterObjectChangesNoCurrentAttribute()
    {
        autoforwardarrow_mode = autobackwardarrow_mode = true;
        cur_farrowtype = cur_barrowtype = 5;
        cur_arrow_multthick = 1.7f;
        cur_arrow_multwidth = 41.3f;
        cur_arrow_multheight = 77.7f;
        for (int round = 0; round < 200; ++round) {
            CFigContext ctx;
            cur_linewidth = round % 40 + 1;
            const float ratio = 0.37f * static_cast<float>(round + 1);
            cur_styleval = ratio;
            cur_arrowthick = static_cast<float>(cur_linewidth);
            const std::unique_ptr<FigLine> line(
                createLineFromCurrentAttrs(&ctx, T_POLYLINE, makePoints({{0, 0}, {900, 600}})));
            addAutoArrows(&ctx, line.get());
            takeAttributes(&ctx, line.get());
            const std::unique_ptr<FigLine> box(createBoxFromCurrentAttrs(&ctx));
            takeAttributes(&ctx, box.get());
            QCOMPARE(cur_linewidth, round % 40 + 1);
            QVERIFY(cur_arrowthick == static_cast<float>(cur_linewidth));
            QVERIFY(cur_arrow_multthick == 1.7f);
            QVERIFY(cur_arrow_multwidth == 41.3f);
            QVERIFY(cur_arrow_multheight == 77.7f);
            QVERIFY(cur_styleval == ratio);
            QCOMPARE(cur_farrowtype, 5);
            QVERIFY(autoforwardarrow_mode && autobackwardarrow_mode);
        }
    }

    void closedShapesLeaveTheAutomaticModes()
    {
        CFigContext ctx;
        autoforwardarrow_mode = true;
        const std::unique_ptr<FigLine> box(makeBox());
        get_line_attrs(&ctx, box.get());
        QVERIFY(autoforwardarrow_mode);
    }

    void theForwardHeadWinsWhereSizesDiffer()
    {
        CFigContext ctx;
        const std::unique_ptr<FigLine> line(makeLine({{0, 0}, {900, 600}}));
        line->thickness = 1;
        line->forward_arrow = new FigArrow{1, 0, 1, 75, 90};
        line->backward_arrow = new FigArrow{2, 0, 2, 90, 45};
        get_line_attrs(&ctx, line.get());
        QCOMPARE(cur_arrow_multwidth, 75.0f);
        QCOMPARE(cur_farrowtype, 1);
        QCOMPARE(cur_barrowtype, 3);
    }

    // Objects whose heads have one size: the current attributes hold only one.
    void anObjectWhoseAttributesWereTakenHasNoDifference()
    {
        int arrowed = 0;
        for (unsigned seed = 1; seed <= 120; ++seed) {
            Document document;
            RandomFigure(seed).fill(&document.ctx);
            FigObjectList leaves;
            collect(document.ctx.drawing.objects, &leaves);
            for (FigObject* object : qAsConst(leaves)) {
                const bool heads = object->forward_arrow || object->backward_arrow;
                if (object->forward_arrow && object->backward_arrow)
                    continue;
                use_abs_arrowvals = seed % 2;
                // Without width there is no multiple of it; and no number means a filled stick.
                const FigArrow* head =
                    object->forward_arrow ? object->forward_arrow : object->backward_arrow;
                if (head && ((object->thickness == 0 && !use_abs_arrowvals) ||
                             (head->type == 0 && head->style == 1)))
                    continue;
                arrowed += heads;
                takeAttributes(&document.ctx, object);
                document.update(object, false);
                QVERIFY2(document.steps() == 0, qPrintable(QString("seed %1").arg(seed)));
            }
        }
        QVERIFY(arrowed > 20);
    }
};

QTEST_MAIN(TestCurrentAttributes)
#include "test_current_attributes.moc"
