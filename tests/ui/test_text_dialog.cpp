// Entering and editing texts: the text tool by real clicks, with its dialog, and what goes on
// under the dialog.
#include "AttributeState.h"
#include "DialogDriver.h"
#include "Gesture.h"

#include "ui/ContextPanel.h"
#include "ui/TextEnterDlg.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

namespace {

QLineEdit* lineOf(QWidget* dialog)
{
    return dialog->findChild<QLineEdit*>("lineEdit");
}

/// Types into the next dialog as a user does: the keys go where the focus is.
void answerByKeys(const QString& text, Qt::Key last)
{
    QTimer::singleShot(20, [text, last] {
        QWidget* dialog = QApplication::activeModalWidget();
        QVERIFY(dialog);
        QLineEdit* line = lineOf(dialog);
        QVERIFY(line);
        QTest::keyClicks(line, text);
        QTest::keyClick(line, last);
    });
}

QPushButton* editButton(const Gesture& gesture)
{
    return gesture.window()
        .window->findChild<ContextPanel*>()
        ->currentWidget()
        ->findChild<QPushButton*>("editText");
}

bool paints(const Gesture& gesture)
{
    return gesture.window().child->painter.isActive();
}

} // namespace

class TestTextDialog : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }
    void init() { store.renew(); }
    void cleanup()
    {
        attributes.restore();
        store.leave();
    }

    // --- the dialog ---------------------------------------------------------------

    void titleAndLine()
    {
        TextEnterDlg dialog(nullptr);
        QCOMPARE(dialog.windowTitle(), QString("Enter text"));
        QVERIFY(lineOf(&dialog));
        QVERIFY(qobject_cast<QGroupBox*>(lineOf(&dialog)->parentWidget()));
        dialog.setText("some words");
        QCOMPARE(dialog.getText(), QString("some words"));
        QCOMPARE(lineOf(&dialog)->selectedText(), QString("some words"));
    }

    void typingReplacesThePresetText()
    {
        TextEnterDlg dialog(nullptr);
        dialog.setText("some words");
        dialog.show();
        QTest::keyClicks(lineOf(&dialog), "x");
        QCOMPARE(dialog.getText(), QString("x"));
    }

    // --- the text tool ------------------------------------------------------------------

    void clickAsksAndEnterMakesTheText()
    {
        Gesture gesture = draw(CMD_TEXT);
        cur_fontsize = 20;
        answerByKeys("hello", Qt::Key_Return);
        gesture.left(1200, 1800);
        QCOMPARE(gesture.count(), 1);
        const auto* text = gesture.last<FigText>();
        QVERIFY(text);
        QCOMPARE(text->cstring, QString("hello"));
        QCOMPARE(text->x, 1200);
        QCOMPARE(text->y, 1800);
        QCOMPARE(text->size, 20);
        QCOMPARE(gesture.steps(), 1);
        QVERIFY(!paints(gesture));
        gesture.undo();
        QCOMPARE(gesture.count(), 0);
    }

    void toolGoesOnAfterAText()
    {
        Gesture gesture = draw(CMD_TEXT);
        answerByKeys("one", Qt::Key_Return);
        gesture.left(1200, 1800);
        answerByKeys("two", Qt::Key_Return);
        gesture.left(1200, 2400);
        QCOMPARE(gesture.count(), 2);
        QCOMPARE(cur_command, static_cast<int>(CMD_TEXT));
        QVERIFY(!action_on);
    }

    void emptyTextMakesNothing()
    {
        Gesture gesture = draw(CMD_TEXT);
        answerByKeys("", Qt::Key_Return);
        gesture.left(1200, 1800);
        QCOMPARE(gesture.count(), 0);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(!paints(gesture));
    }

    void escapeMakesNothing()
    {
        Gesture gesture = draw(CMD_TEXT);
        answerByKeys("hello", Qt::Key_Escape);
        gesture.left(1200, 1800);
        QCOMPARE(gesture.count(), 0);
        QCOMPARE(gesture.steps(), 0);
        QVERIFY(!paints(gesture));
    }

    void nobodyPaintsUnderTheDialog()
    {
        Gesture gesture = draw(CMD_TEXT);
        DialogDriver driver;
        bool painting = true;
        driver.inspect([&](QWidget*) { painting = paints(gesture); });
        gesture.left(1200, 1800);
        QVERIFY(driver.isDone());
        QVERIFY(!painting);
        QVERIFY(!paints(gesture));
    }

    void windowIsResizedUnderTheDialog_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("smaller") << QSize(650, 500);
        QTest::newRow("larger") << QSize(1300, 900);
    }

    void windowIsResizedUnderTheDialog()
    {
        QFETCH(QSize, size);
        Gesture gesture = draw(CMD_TEXT);
        QTMainFrm* window = gesture.window().window.get();
        const QSize before = gesture.window().child->canvasImage->size();
        DialogDriver driver;
        driver.accept([&](QWidget* dialog) {
            lineOf(dialog)->setText("hello");
            window->resize(size);
            QCoreApplication::processEvents();
            gesture.window().child->redisplayCanvas();
        });
        gesture.left(600, 900);
        QVERIFY(driver.isDone());
        const QImage canvas = *gesture.window().child->canvasImage;
        QVERIFY(canvas.size() != before);
        QCOMPARE(gesture.count(), 1);
        QVERIFY(!paints(gesture));
        // The text has been drawn on the new canvas: some pixel right above its base is dark.
        bool inked = false;
        for (int x = 40; x < 80; ++x)
            for (int y = 45; y < 60; ++y)
                inked = inked || canvas.pixelColor(x, y).lightness() < 100;
        QVERIFY(inked);
    }

    // The pointer never comes up again over the document that was pressed.
    void theDocumentMayBeClosedUnderTheDialog()
    {
        Gesture gesture = draw(CMD_TEXT);
        const QPointer<QTChildFrm> child = gesture.window().child;
        QMdiSubWindow* window = gesture.window().window->findSubWindow(child);
        gesture.move(600, 900);
        QTimer::singleShot(0, [window] { window->close(); });
        QTimer::singleShot(100, [] {
            if (QWidget* dialog = QApplication::activeModalWidget())
                static_cast<QDialog*>(dialog)->accept();
        });
        gesture.window().press(Qt::LeftButton, 40, 60);
        QVERIFY(!child);
    }

    // --- editing ------------------------------------------------------------------------

    void editedTextIsOneStep()
    {
        Gesture gesture = draw(CMD_TEXT);
        answerByKeys("hello", Qt::Key_Return);
        gesture.left(1200, 1800);
        auto* text = gesture.last<FigText>();
        gesture.context()->curObject = text;
        gesture.window().window->showAttributesBar(gesture.context(), text);
        DialogDriver driver;
        QString preset;
        driver.accept([&](QWidget* dialog) {
            preset = lineOf(dialog)->selectedText();
            lineOf(dialog)->setText("bye");
        });
        QTest::mouseClick(editButton(gesture), Qt::LeftButton);
        QVERIFY(driver.isDone());
        QCOMPARE(preset, QString("hello"));
        QCOMPARE(text->cstring, QString("bye"));
        QCOMPARE(gesture.steps(), 2);
        QVERIFY(!paints(gesture));
        gesture.undo();
        QCOMPARE(text->cstring, QString("hello"));
        gesture.redo();
        QCOMPARE(text->cstring, QString("bye"));
    }

    void cancelledEditLeavesTheTextAndThePainterAlone()
    {
        Gesture gesture = draw(CMD_TEXT);
        answerByKeys("hello", Qt::Key_Return);
        gesture.left(1200, 1800);
        auto* text = gesture.last<FigText>();
        gesture.context()->curObject = text;
        gesture.window().window->showAttributesBar(gesture.context(), text);
        answerByKeys("bye", Qt::Key_Escape);
        QTest::mouseClick(editButton(gesture), Qt::LeftButton);
        QCOMPARE(text->cstring, QString("hello"));
        QCOMPARE(gesture.steps(), 1);
        QVERIFY(!paints(gesture));
    }

    // --- the shell ------------------------------------------------------------------------

    void bracketIsTakenUpAgainAfterTheDialog()
    {
        const Gesture gesture = draw(CMD_TEXT);
        gesture.window().child->beginPaint();
        answerByKeys("hello", Qt::Key_Return);
        QString entered;
        QVERIFY(shell_enter_text(gesture.context(), &entered));
        QCOMPARE(entered, QString("hello"));
        QVERIFY(paints(gesture));
        gesture.window().child->endPaint();
    }

    void documentThatGoesUnderTheDialogIsNotTouched()
    {
        Gesture gesture = draw(CMD_TEXT);
        DialogDriver driver;
        driver.accept([&](QWidget* dialog) {
            lineOf(dialog)->setText("hello");
            delete gesture.window().window->findSubWindow(gesture.window().child);
        });
        QString entered = "before";
        QVERIFY(!shell_enter_text(gesture.context(), &entered));
        QVERIFY(driver.isDone());
        QCOMPARE(entered, QString("before"));
    }

    void withoutTheMainWindowThereIsNoDialog()
    {
        const Gesture gesture = draw(CMD_TEXT);
        mainWnd = nullptr;
        QString entered = "before";
        QVERIFY(!shell_enter_text(gesture.context(), &entered));
        QCOMPARE(entered, QString("before"));
        mainWnd = gesture.window().window.get();
    }

private:
    TestStore store;
    AttributeState attributes;
};

QTEST_MAIN(TestTextDialog)
#include "test_text_dialog.moc"
