#include "ToolFixture.h"
#include "edit/d_text.h"
#include "render/Font.h"

#include <QtTest>

namespace {

struct TextDocument : ToolDocument {
    TextDocument() { choose(CMD_TEXT, text_drawing_selected); }

    FigText* enter(const QString& text, int x, int y)
    {
        recordingShell.answer = true;
        recordingShell.enteredText = text;
        left(x, y);
        return count() ? static_cast<FigText*>(ctx.drawing.objects.last()) : nullptr;
    }
};

} // namespace

class TestTextTool : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        engine.reset(new EngineTables);
        createMarkers();
    }
    void cleanupTestCase()
    {
        destroyMarkers();
        engine.reset();
    }

    // Height and length depend on the fonts of the machine, all else is told.
    void theAcceptedTextStandsAtTheClick()
    {
        TextDocument document;
        cur_textjust = 1;
        cur_ps_font = 16;
        cur_latex_font = 3;
        cur_fontsize = 18;
        cur_textangle = 0.7854f;
        cur_depth = 12;
        document.ctx.cur_pencolor = 4;
        FigText* text = document.enter("flow \\ chart", 1500, 2100);
        const long height = static_cast<long>(text->ascent) + text->descent;
        QCOMPARE(document.records(), QString("4 1 4 12 0 16 18 0.7854 4 %1 %2 1500 2100 "
                                             "flow \\\\ chart\\001\n")
                                         .arg(height)
                                         .arg(text->length));
        QVERIFY(text->length > 0);
        QCOMPARE(recordingShell.boxes, QStringList("text: "));
        QVERIFY(document.isIdle(init_text_input));
        QCOMPARE(document.image, document.redrawn());
    }

    void theMeasuresAreThoseOfThePresentZoom()
    {
        TextDocument document;
        document.ctx.zoom = 2.5f;
        FigText* text = document.enter("measured", 300, 300);
        FigText other;
        other.size = 12;
        other.flags = 4;
        other.cstring = "measured";
        pf_textwidth(&document.ctx, &other, 2.5);
        QCOMPARE(text->length, other.length);
        QCOMPARE(text->ascent, other.ascent);
        QCOMPARE(text->metricsZoom, 2.5f);
    }

    void theFontGoesByTheFlags()
    {
        TextDocument document;
        cur_ps_font = 16;
        cur_latex_font = 3;
        cur_textflags = 2;
        QCOMPARE(document.enter("a", 300, 300)->font, 3);
        cur_textflags = 6;
        QCOMPARE(document.enter("b", 300, 600)->font, 16);
        QCOMPARE(document.object(1)->pen_style, 0);
    }

    void theNewTextIsTaggedAndCurrent()
    {
        TextDocument document;
        FigText* first = document.enter("first", 300, 600);
        FigText* second = document.enter("second", 300, 1200);
        QVERIFY(!first->tagged);
        QVERIFY(second->tagged);
        QCOMPARE(second->marked, 2);
        QVERIFY(document.ctx.curObject == second);
        QCOMPARE(recordingShell.panels.last(), QString("attributes 4"));
        QCOMPARE(document.ctx.undoQueue.undoCount(), 2);
    }

    void nothingTypedMakesNothing()
    {
        TextDocument document;
        FigText former;
        document.ctx.curObject = &former;
        QVERIFY(!document.enter("", 300, 300));
        QVERIFY(!document.ctx.curObject);
        recordingShell.answer = false;
        document.left(600, 600);
        QCOMPARE(document.count(), 0);
        QVERIFY(!document.ctx.modified);
        QVERIFY(canvas_leftbut_proc == init_text_input);
        QVERIFY(!canvas_middlebut_proc);
    }

    // --- editText ---------------------------------------------------------------------------

    void anotherWordingIsOneStep()
    {
        TextDocument document;
        FigText* text = document.enter("old", 300, 600);
        recordingShell.boxes.clear();
        recordingShell.enteredText = "new words";
        const int formerLength = text->length;
        editText(&document.ctx, text);
        QCOMPARE(recordingShell.boxes, QStringList("text: old"));
        QCOMPARE(text->cstring, QString("new words"));
        QVERIFY(text->length > formerLength);
        QCOMPARE(text->marked, 1); // and the next redraw shows it as tagged again
        QCOMPARE(document.ctx.undoQueue.undoCount(), 2);
        document.ctx.undoQueue.undo();
        QCOMPARE(text->cstring, QString("old"));
        QCOMPARE(text->length, formerLength);
    }

    void theSameWordingOrACancelIsNoStep()
    {
        TextDocument document;
        FigText* text = document.enter("old", 300, 600);
        editText(&document.ctx, text);
        recordingShell.answer = false;
        recordingShell.enteredText = "new";
        editText(&document.ctx, text);
        QCOMPARE(text->cstring, QString("old"));
        QCOMPARE(text->marked, 2);
        QCOMPARE(document.ctx.undoQueue.undoCount(), 1);
    }

private:
    QScopedPointer<EngineTables> engine;
};

QTEST_MAIN(TestTextTool)
#include "test_d_text.moc"
