// The coordinator of the attribute panels: what each slot stores, tells and changes.
#include "AttributeState.h"
#include "WindowFixture.h"

#include "ui/AttrsToolbarHandler.h"

#include <QSignalSpy>

#include <cmath>

using Handler = AttrsToolbarHandler;

namespace {

/// A slot for whole numbers, its signal, and what it stores.
struct IntSlot {
    const char* name;
    void (Handler::*slot)(int);
    void (Handler::*changed)(int);
    int* attribute;
    int value; ///< another one than at the start
};

const IntSlot intSlots[] = {
    {"depth", &Handler::onDepth, &Handler::depthChanged, &cur_depth, 40},
    {"line width", &Handler::onLineWidth, &Handler::lineWidthChanged, &cur_linewidth, 3},
    {"line style", &Handler::onLineStyle, &Handler::lineStyleChanged, &cur_linestyle, 2},
    {"cap style", &Handler::onCapStyle, &Handler::capStyleChanged, &cur_capstyle, 1},
    {"join style", &Handler::onJoinStyle, &Handler::joinStyleChanged, &cur_joinstyle, 2},
    {"arc type", &Handler::onArcType, &Handler::arcTypeChanged, &cur_arctype, 1},
    {"arrow type", &Handler::onArrowType, &Handler::arrowTypeChanged, &cur_arrowtype, 12},
    {"radius", &Handler::onBoxCornerRadius, &Handler::boxCornerRadiusChanged, &cur_boxradius, 20},
    {"sides", &Handler::onNumSides, &Handler::numSidesChanged, &cur_numsides, 9},
    {"alignment", &Handler::onTextAlign, &Handler::textAlignChanged, &cur_textjust, 2},
};

struct AngleSlot {
    const char* name;
    void (Handler::*slot)(int);
    void (Handler::*changed)(int);
    float* attribute;
};

const AngleSlot angleSlots[] = {
    {"ellipse", &Handler::onEllipseAngle, &Handler::ellipseAngleChanged, &cur_ellipseangle},
    {"text", &Handler::onTextAngle, &Handler::textAngleChanged, &cur_textangle},
};

struct HandlerFixture : WindowFixture {
    Handler* handler = window->attributes();

    /// A line that is selected, with its attributes in the panels.
    FigLine* selectedLine()
    {
        FigLine* line = addLine(300, 300, 1800, 300);
        select(line);
        return line;
    }

    void select(FigObject* object)
    {
        object->tagged = true;
        context->curObject = object;
        window->showAttributesBar(context, object);
    }

    FigText* selectedText()
    {
        auto* text = new FigText;
        text->cstring = "abc";
        text->x = text->y = 1200;
        text->depth = 50;
        list_add(context, &context->drawing.objects, text);
        select(text);
        return text;
    }

    int steps() const { return context->undoQueue.undoCount(); }
};

} // namespace

class TestAttrsHandler : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }

    void init()
    {
        store.renew();
        attributes.restore();
    }

    // --- storing and telling -----------------------------------------------------

    void everyNumberIsStoredAndToldOnce()
    {
        const HandlerFixture fixture;
        for (const IntSlot& row : intSlots) {
            QSignalSpy spy(fixture.handler, row.changed);
            QVERIFY2(*row.attribute != row.value, row.name);
            (fixture.handler->*row.slot)(*row.attribute);
            QVERIFY2(spy.isEmpty(), row.name);
            (fixture.handler->*row.slot)(row.value);
            QVERIFY2(*row.attribute == row.value, row.name);
            QVERIFY2(spy.size() == 1 && spy[0][0].toInt() == row.value, row.name);
            (fixture.handler->*row.slot)(row.value);
            QVERIFY2(spy.size() == 1, row.name);
        }
    }

    // What a figure from elsewhere has where nothing of it shows.
    void dashesAndRoundCornersOfNoSizeTakeTheSizeThatTheProgramStartsWith()
    {
        const HandlerFixture fixture;
        QSignalSpy lengths(fixture.handler, &AttrsToolbarHandler::styleValChanged);
        QSignalSpy radii(fixture.handler, &AttrsToolbarHandler::boxCornerRadiusChanged);
        cur_styleval = 0;
        cur_boxradius = -1;
        fixture.handler->onLineStyle(cur_linestyle);
        QVERIFY(lengths.isEmpty());
        fixture.handler->onLineStyle(1);
        QCOMPARE(cur_styleval, 4.0f);
        QCOMPARE(lengths.size(), 1);
        fixture.handler->onBoxType(1);
        QCOMPARE(cur_boxradius, 7);
        QCOMPARE(radii.size(), 1);
        cur_styleval = 2;
        cur_boxradius = 3; // a script may have set less than the panel
        fixture.handler->onLineStyle(2);
        fixture.handler->onBoxType(0);
        fixture.handler->onBoxType(1);
        QCOMPARE(cur_styleval, 2.0f);
        QCOMPARE(cur_boxradius, 3);
    }

    void sizesOfNewArrowsFollowTheLineWidth()
    {
        const HandlerFixture fixture;
        fixture.handler->onLineWidth(4);
        QCOMPARE(cur_arrowthick, 4.0f);
        QCOMPARE(cur_arrowwidth, 240.0f);
        QCOMPARE(cur_arrowheight, 480.0f);
        // The present width again leaves sizes alone that were chosen since.
        cur_arrowwidth = 100;
        fixture.handler->onLineWidth(4);
        QCOMPARE(cur_arrowwidth, 100.0f);
        fixture.handler->onLineWidth(0);
        QCOMPARE(cur_arrowthick, 0.0f);
        QCOMPARE(cur_arrowheight, 0.0f);
    }

    // 4.3 is no number of single precision; the difference does not count.
    void styleValueIsComparedInSinglePrecision()
    {
        const HandlerFixture fixture;
        QSignalSpy spy(fixture.handler, &Handler::styleValChanged);
        fixture.handler->onStyleVal(4.0);
        QVERIFY(spy.isEmpty());
        fixture.handler->onStyleVal(4.3);
        QCOMPARE(cur_styleval, 4.3f);
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy[0][0].toDouble(), 4.3);
        fixture.handler->onStyleVal(4.3);
        fixture.handler->onStyleVal(static_cast<double>(4.3f));
        QCOMPARE(spy.size(), 1);
    }

    void everyBoxTypeButTheFirstIsAnArcBox()
    {
        const HandlerFixture fixture;
        QSignalSpy spy(fixture.handler, &Handler::boxTypeChanged);
        fixture.handler->onBoxType(0);
        QCOMPARE(cur_boxtype, 2);
        QVERIFY(spy.isEmpty());
        fixture.handler->onBoxType(1);
        QCOMPARE(cur_boxtype, 4);
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy[0][0].toInt(), 1);
        fixture.handler->onBoxType(1);
        fixture.handler->onBoxType(7); // the same type by another number
        QCOMPARE(cur_boxtype, 4);
        QCOMPARE(spy.size(), 1);
        fixture.handler->onBoxType(0);
        QCOMPARE(cur_boxtype, 2);
        QCOMPARE(spy[1][0].toInt(), 0);
    }

    void anglesAreRadiansInsideAndComparedInWholeDegrees()
    {
        const HandlerFixture fixture;
        for (const AngleSlot& row : angleSlots) {
            QSignalSpy spy(fixture.handler, row.changed);
            (fixture.handler->*row.slot)(0);
            QVERIFY(spy.isEmpty());
            (fixture.handler->*row.slot)(90);
            QCOMPARE(*row.attribute, static_cast<float>(M_PI / 2));
            QCOMPARE(spy.size(), 1);
            QCOMPARE(spy[0][0].toInt(), 90);
            // 45.4 degrees are 45 in the control: typing 45 changes nothing.
            *row.attribute = static_cast<float>(45.4 * M_PI / 180);
            const float before = *row.attribute;
            (fixture.handler->*row.slot)(45);
            QCOMPARE(*row.attribute, before);
            QCOMPARE(spy.size(), 1);
            (fixture.handler->*row.slot)(360);
            QCOMPARE(*row.attribute, static_cast<float>(2 * M_PI));
            QCOMPARE(spy.size(), 2);
        }
    }

    void fontSizeComesAsNumberOrText()
    {
        const HandlerFixture fixture;
        QSignalSpy spy(fixture.handler, &Handler::fontSizeChanged);
        fixture.handler->onFontSize(12);
        fixture.handler->onFontSize("12");
        QVERIFY(spy.isEmpty());
        fixture.handler->onFontSize(20);
        QCOMPARE(cur_fontsize, 20);
        fixture.handler->onFontSize("36");
        QCOMPARE(cur_fontsize, 36);
        QCOMPARE(spy.size(), 2);
        QCOMPARE(spy[0][0].toString(), QString("20"));
        QCOMPARE(spy[1][0].toString(), QString("36"));
    }

    void fontSizesBelowOneAreIgnored()
    {
        const HandlerFixture fixture;
        QSignalSpy spy(fixture.handler, &Handler::fontSizeChanged);
        for (const int size : {0, -1, std::numeric_limits<int>::min()})
            fixture.handler->onFontSize(size);
        for (const char* text : {"", "0", "-5", "abc", "12pt", "0x10", "99999999999"})
            fixture.handler->onFontSize(text);
        QCOMPARE(cur_fontsize, 12);
        QVERIFY(spy.isEmpty());
    }

    void textFlagsAreBitsOfTheirOwn()
    {
        const HandlerFixture fixture;
        QSignalSpy rigid(fixture.handler, &Handler::textRigidChanged);
        QSignalSpy special(fixture.handler, &Handler::textSpecialChanged);
        fixture.handler->onTextRigid(false);
        fixture.handler->onTextSpecial(false);
        QCOMPARE(cur_textflags, 4);
        fixture.handler->onTextRigid(true);
        QCOMPARE(cur_textflags, 5);
        fixture.handler->onTextSpecial(true);
        QCOMPARE(cur_textflags, 7);
        fixture.handler->onTextSpecial(true);
        fixture.handler->onTextRigid(false);
        QCOMPARE(cur_textflags, 6);
        QCOMPARE(rigid.size(), 2);
        QCOMPARE(special.size(), 1);
        QCOMPARE(special[0][0].toBool(), true);
    }

    void toolSettingsAreOnlyStored()
    {
        HandlerFixture fixture;
        fixture.selectedLine();
        fixture.handler->onRotnAngle(45);
        fixture.handler->onNumCopies(3);
        fixture.handler->onTangormLength(2.5);
        QCOMPARE(cur_rotnangle, 45);
        QCOMPARE(cur_numcopies, 3);
        QCOMPARE(cur_tangnormlen, 2.5f);
        QCOMPARE(fixture.steps(), 0);
    }

    // --- colours ------------------------------------------------------------------

    void coloursAreStoredInTheDocument()
    {
        HandlerFixture fixture;
        QSignalSpy spy(fixture.handler, &Handler::colorsChanged);
        const FigLine* line = fixture.selectedLine();
        spy.clear();
        fixture.handler->onColors(4, 6, 20);
        QCOMPARE(fixture.context->cur_pencolor, 4);
        QCOMPARE(fixture.context->cur_fillcolor, 6);
        QCOMPARE(fixture.context->cur_fillstyle, 20);
        QCOMPARE(spy.size(), 1);
        fixture.handler->onColors(4, 6, 20);
        QCOMPARE(spy.size(), 1);
        QCOMPARE(line->pen_color, 0);
        QCOMPARE(fixture.steps(), 0);
    }

    void coloursThatDoNotExistAreDropped()
    {
        HandlerFixture fixture;
        CFigContext* context = fixture.context;
        QSignalSpy spy(fixture.handler, &Handler::colorsChanged);
        fixture.handler->onColors(31, 0, 62);
        QCOMPARE(context->cur_pencolor, 31);
        QCOMPARE(context->cur_fillcolor, 0);
        QCOMPARE(context->cur_fillstyle, 62);
        fixture.handler->onColors(32, 1000, 63);
        fixture.handler->onColors(-1, -7, -2);
        QCOMPARE(context->cur_pencolor, 31);
        QCOMPARE(context->cur_fillcolor, 0);
        QCOMPARE(context->cur_fillstyle, 62);
        QCOMPARE(spy.size(), 3);
        QCOMPARE(context->addUserColor(QColor(1, 2, 3)), 0);
        fixture.handler->onColors(32, 33, 0);
        QCOMPARE(context->cur_pencolor, 32);
        QCOMPARE(context->cur_fillcolor, 0);
        QCOMPARE(context->cur_fillstyle, 0);
    }

    void minusOneLeavesTheColoursAndTakesTheFillAway()
    {
        HandlerFixture fixture;
        QSignalSpy spy(fixture.handler, &Handler::colorsChanged);
        fixture.context->cur_fillstyle = 20;
        fixture.handler->onColors(-1, -1, -1);
        QCOMPARE(fixture.context->cur_pencolor, 0);
        QCOMPARE(fixture.context->cur_fillcolor, 7);
        QCOMPARE(fixture.context->cur_fillstyle, -1);
        QCOMPARE(spy.size(), 1);
        // Nothing is left to change, but the colours are not the stored ones.
        fixture.handler->onColors(-1, -1, -1);
        QCOMPARE(spy.size(), 2);
        fixture.context->cur_pencolor = fixture.context->cur_fillcolor = -1;
        fixture.handler->onColors(-1, -1, -1);
        QCOMPARE(spy.size(), 2);
    }

    // --- the selected object -------------------------------------------------------

    void aChangeIsOneStepOfTheSelectedObject()
    {
        HandlerFixture fixture;
        FigLine* line = fixture.selectedLine();
        QCOMPARE(fixture.steps(), 0);
        fixture.handler->onLineWidth(5);
        QCOMPARE(line->thickness, 5);
        QCOMPARE(fixture.steps(), 1);
        fixture.handler->onLineWidth(5);
        QCOMPARE(fixture.steps(), 1);
        fixture.handler->onDepth(30);
        QCOMPARE(line->depth, 30);
        QCOMPARE(fixture.steps(), 2);
        fixture.handler->onCapStyle(2);
        fixture.handler->onJoinStyle(1);
        QCOMPARE(line->cap_style, 2);
        QCOMPARE(line->join_style, 1);
        QCOMPARE(fixture.steps(), 4);
        for (int step = 0; step < 4; ++step)
            fixture.context->undoQueue.undo();
        QCOMPARE(line->thickness, 1);
        QCOMPARE(line->depth, 50);
        QCOMPARE(line->cap_style, 0);
        QCOMPARE(line->join_style, 0);
    }

    void selectedTextTakesItsAttributes()
    {
        HandlerFixture fixture;
        FigText* text = fixture.selectedText();
        fixture.handler->onFontSize(30);
        QCOMPARE(text->size, 30);
        fixture.handler->onTextAngle(90);
        QCOMPARE(text->angle, static_cast<float>(M_PI / 2));
        fixture.handler->onTextAlign(1);
        QCOMPARE(text->sub_type, 1);
        fixture.handler->onTextSpecial(true);
        QVERIFY(text->flags & 2);
        fixture.handler->onTextRigid(true);
        QVERIFY(text->flags & 1);
        QCOMPARE(fixture.steps(), 5);
    }

    void attributesOfTheSelectedObjectAreThoseOfTheNext()
    {
        HandlerFixture fixture;
        FigLine* line = fixture.addLine(0, 0, 1200, 1200);
        line->thickness = 7;
        line->depth = 12;
        line->line_style = 3;
        line->cap_style = 1;
        line->join_style = 2;
        fixture.select(line);
        QCOMPARE(cur_linewidth, 7);
        QCOMPARE(cur_depth, 12);
        QCOMPARE(cur_linestyle, 3);
        QCOMPARE(cur_capstyle, 1);
        QCOMPARE(cur_joinstyle, 2);
        QCOMPARE(fixture.steps(), 0);
    }

    void withoutADocumentTheAttributesStillChange()
    {
        HandlerFixture fixture;
        fixture.window->closeActiveChild();
        QVERIFY(!getFigContext());
        for (const IntSlot& row : intSlots)
            (fixture.handler->*row.slot)(row.value);
        fixture.handler->onBoxType(1);
        fixture.handler->onStyleVal(2);
        fixture.handler->onTextAngle(10);
        fixture.handler->onBackArrow(4);
        fixture.handler->onForwArrow(5);
        fixture.handler->onColors(1, 2, 3);
        fixture.handler->openCommentDlgClicked(false);
        QCOMPARE(cur_depth, 40);
        QCOMPARE(cur_barrowtype, 3);
        QCOMPARE(cur_farrowtype, 4);
    }

    // --- arrows ---------------------------------------------------------------------

    void arrowOfANewLineIsANumberAndAMode()
    {
        const HandlerFixture fixture;
        QSignalSpy back(fixture.handler, &Handler::backArrowChanged);
        QSignalSpy forward(fixture.handler, &Handler::forwArrowChanged);
        fixture.handler->onBackArrow(0);
        QVERIFY(back.isEmpty());
        fixture.handler->onBackArrow(1);
        QVERIFY(autobackwardarrow_mode);
        QCOMPARE(cur_barrowtype, 0);
        fixture.handler->onBackArrow(29);
        QCOMPARE(cur_barrowtype, 28);
        fixture.handler->onBackArrow(29);
        QCOMPARE(back.size(), 2);
        QCOMPARE(back[1][0].toInt(), 29);
        fixture.handler->onBackArrow(0);
        QVERIFY(!autobackwardarrow_mode);
        QCOMPARE(cur_barrowtype, 28); // for when arrows are wanted again
        QCOMPARE(back.size(), 3);
        QVERIFY(!autoforwardarrow_mode);
        fixture.handler->onForwArrow(3);
        QVERIFY(autoforwardarrow_mode);
        QCOMPARE(cur_farrowtype, 2);
        QCOMPARE(forward.size(), 1);
        QCOMPARE(fixture.steps(), 0);
    }

    // Number 3 is type 2: shape 1, filled. The line is one unit wide: 60 by 120.
    void selectedLineGetsTheChosenArrowAsOneStep()
    {
        HandlerFixture fixture;
        FigLine* line = fixture.selectedLine();
        fixture.handler->onForwArrow(3);
        QVERIFY(line->forward_arrow);
        QVERIFY(!line->backward_arrow);
        QCOMPARE(line->forward_arrow->type, 1);
        QCOMPARE(line->forward_arrow->style, 1);
        QCOMPARE(line->forward_arrow->thickness, 1.0f);
        QCOMPARE(line->forward_arrow->wd, 60.0f);
        QCOMPARE(line->forward_arrow->ht, 120.0f);
        QCOMPARE(fixture.steps(), 1);
        fixture.handler->onForwArrow(3);
        QCOMPARE(fixture.steps(), 1);
        fixture.handler->onBackArrow(1);
        QVERIFY(line->backward_arrow);
        QCOMPARE(line->backward_arrow->type, 0);
        QCOMPARE(fixture.steps(), 2);
        fixture.handler->onForwArrow(0);
        QVERIFY(!line->forward_arrow);
        QVERIFY(line->backward_arrow);
        QCOMPARE(fixture.steps(), 3);
        fixture.context->undoQueue.undo();
        QVERIFY(line->forward_arrow);
        QCOMPARE(line->forward_arrow->type, 1);
        fixture.context->undoQueue.undo();
        fixture.context->undoQueue.undo();
        QVERIFY(!line->forward_arrow);
        QVERIFY(!line->backward_arrow);
    }

    // --- all panels at once ----------------------------------------------------------

    void allSignalsGoOutInTheirOrder()
    {
        const HandlerFixture fixture;
        const QStringList expected = {
            "depthChanged",     "lineWidthChanged",    "lineStyleChanged",
            "styleValChanged",  "capStyleChanged",     "joinStyleChanged",
            "arcTypeChanged",   "backArrowChanged",    "forwArrowChanged",
            "arrowTypeChanged", "boxTypeChanged",      "boxCornerRadiusChanged",
            "numSidesChanged",  "ellipseAngleChanged", "textAngleChanged",
            "textRigidChanged", "textSpecialChanged",  "fontSizeChanged",
            "textAlignChanged", "psFontChanged",       "colorsChanged"};
        QCOMPARE(signalsOfUpdate(fixture.handler), expected);
        cur_textflags = 0;
        QStringList latex = expected;
        latex[19] = "latexFontChanged";
        QCOMPARE(signalsOfUpdate(fixture.handler), latex);
    }

    void stateIsToldAsTheControlsShowIt()
    {
        const HandlerFixture fixture;
        QSignalSpy back(fixture.handler, &Handler::backArrowChanged);
        QSignalSpy forward(fixture.handler, &Handler::forwArrowChanged);
        QSignalSpy box(fixture.handler, &Handler::boxTypeChanged);
        QSignalSpy angle(fixture.handler, &Handler::textAngleChanged);
        QSignalSpy size(fixture.handler, &Handler::fontSizeChanged);
        QSignalSpy special(fixture.handler, &Handler::textSpecialChanged);
        QSignalSpy latex(fixture.handler, &Handler::latexFontChanged);
        autoforwardarrow_mode = true;
        cur_farrowtype = 7;
        cur_barrowtype = 9; // off
        cur_boxtype = 4;
        cur_textangle = static_cast<float>(M_PI / 3);
        cur_fontsize = 17;
        cur_textflags = 2;
        cur_latex_font = 3;
        fixture.handler->updateToolbars();
        QCOMPARE(back[0][0].toInt(), 0);
        QCOMPARE(forward[0][0].toInt(), 8);
        QCOMPARE(box[0][0].toInt(), 1);
        QCOMPARE(angle[0][0].toInt(), 60);
        QCOMPARE(size[0][0].toString(), QString("17"));
        QCOMPARE(special[0][0].toBool(), true);
        QCOMPARE(latex[0][0].toInt(), 3);
    }

    // A control answers with another value where it cannot show what it is told.
    void answersDuringTheUpdateAreIgnored()
    {
        HandlerFixture fixture;
        Handler* handler = fixture.handler;
        FigLine* line = fixture.selectedLine();
        const auto answerAll = [handler] {
            for (const IntSlot& row : intSlots)
                (handler->*row.slot)(row.value);
            handler->onBoxType(1);
            handler->onStyleVal(2);
            handler->onEllipseAngle(10);
            handler->onTextAngle(10);
            handler->onFontSize(20);
            handler->onFontSize("20");
            handler->onTextRigid(true);
            handler->onTextSpecial(true);
            handler->onBackArrow(2);
            handler->onForwArrow(2);
            handler->onColors(1, 1, 1);
            handler->onRotnAngle(1);
            handler->onNumCopies(2);
            handler->onTangormLength(3);
        };
        connect(handler, &Handler::depthChanged, this, answerAll);
        handler->updateToolbars();
        disconnect(handler, nullptr, this, nullptr);
        for (const IntSlot& row : intSlots)
            QVERIFY2(*row.attribute != row.value, row.name);
        QCOMPARE(cur_boxtype, 2);
        QCOMPARE(cur_styleval, line->style_val * 2 / (line->thickness + 1));
        QCOMPARE(cur_textangle, 0.0f);
        QCOMPARE(cur_ellipseangle, 0.0f);
        QCOMPARE(cur_fontsize, 12);
        QCOMPARE(cur_textflags, 4);
        QVERIFY(!autobackwardarrow_mode && !autoforwardarrow_mode);
        QCOMPARE(fixture.context->cur_pencolor, 0);
        QCOMPARE(cur_rotnangle, 90);
        QCOMPARE(cur_numcopies, 1);
        QCOMPARE(cur_tangnormlen, 1.0f);
        QCOMPARE(fixture.steps(), 0);
        // Afterwards they count again.
        handler->onDepth(33);
        QCOMPARE(cur_depth, 33);
    }

private:
    QStringList signalsOfUpdate(Handler* handler)
    {
        QStringList names;
        const auto listen = [&](auto signal, const char* name) {
            connect(handler, signal, this, [&names, name] { names.append(name); });
        };
        listen(&Handler::depthChanged, "depthChanged");
        listen(&Handler::lineWidthChanged, "lineWidthChanged");
        listen(&Handler::lineStyleChanged, "lineStyleChanged");
        listen(&Handler::styleValChanged, "styleValChanged");
        listen(&Handler::capStyleChanged, "capStyleChanged");
        listen(&Handler::joinStyleChanged, "joinStyleChanged");
        listen(&Handler::arcTypeChanged, "arcTypeChanged");
        listen(&Handler::backArrowChanged, "backArrowChanged");
        listen(&Handler::forwArrowChanged, "forwArrowChanged");
        listen(&Handler::arrowTypeChanged, "arrowTypeChanged");
        listen(&Handler::boxTypeChanged, "boxTypeChanged");
        listen(&Handler::boxCornerRadiusChanged, "boxCornerRadiusChanged");
        listen(&Handler::numSidesChanged, "numSidesChanged");
        listen(&Handler::ellipseAngleChanged, "ellipseAngleChanged");
        listen(&Handler::textAngleChanged, "textAngleChanged");
        listen(&Handler::textRigidChanged, "textRigidChanged");
        listen(&Handler::textSpecialChanged, "textSpecialChanged");
        listen(&Handler::fontSizeChanged, "fontSizeChanged");
        listen(&Handler::textAlignChanged, "textAlignChanged");
        listen(&Handler::psFontChanged, "psFontChanged");
        listen(&Handler::latexFontChanged, "latexFontChanged");
        listen(&Handler::colorsChanged, "colorsChanged");
        handler->updateToolbars();
        disconnect(handler, nullptr, this, nullptr);
        return names;
    }

    TestStore store;
    const AttributeState attributes;
};

QTEST_MAIN(TestAttrsHandler)
#include "test_attrs_handler.moc"
