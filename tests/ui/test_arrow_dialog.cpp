// The dialogs of the panels that stand already: arrow sizes, and the comment of an object.
#include "AttributeState.h"
#include "DialogDriver.h"
#include "WindowFixture.h"

#include "ui/ArrowAttrsDlg.h"
#include "ui/AttrsToolbarHandler.h"
#include "ui/ContextPanel.h"
#include "ui/ObjectCommentDlg.h"

#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>

namespace {

const char* const sizeNames[] = {"thickness1", "width1", "height1",
                                 "thickness2", "width2", "height2"};

QDoubleSpinBox* sizeBox(const QWidget* dialog, const char* name)
{
    return dialog->findChild<QDoubleSpinBox*>(name);
}

QVector<double> values(const QWidget* dialog)
{
    QVector<double> shown;
    for (const char* name : sizeNames)
        shown.append(sizeBox(dialog, name)->value());
    return shown;
}

struct DialogFixture : WindowFixture {
    /// A line with a forward arrow that is selected.
    FigLine* selectedArrow()
    {
        FigLine* line = addLine(300, 300, 1800, 300);
        line->forward_arrow = new FigArrow;
        line->forward_arrow->type = 1;
        line->forward_arrow->wd = 60;
        line->forward_arrow->ht = 120;
        select(line);
        return line;
    }

    void select(FigObject* object)
    {
        object->tagged = true;
        context->curObject = object;
        window->showAttributesBar(context, object);
    }

    QPushButton* button(const char* name) const
    {
        return window->findChild<ContextPanel*>()->currentWidget()->findChild<QPushButton*>(name);
    }
};

QString commentIn(QWidget* dialog)
{
    return dialog->findChild<QPlainTextEdit*>("objectComment")->toPlainText();
}

} // namespace

class TestArrowDialog : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }

    void init()
    {
        store.renew();
        attributes.restore();
    }

    // --- arrow sizes ---------------------------------------------------------------------

    void dialogBeginsWithMultiplesAndTheCurrentSizes()
    {
        const ArrowAttrsDlg dialog(nullptr, nullptr);
        QVERIFY(dialog.findChild<QRadioButton*>("rbRelative")->isChecked());
        // Widths and heights are in units of 1/1200 inch, shown in those of 1/80.
        QCOMPARE(values(&dialog), QVector<double>({1, 4, 8, 1, 4, 8}));
        for (const char* name : sizeNames) {
            QCOMPARE(sizeBox(&dialog, name)->minimum(), 0.0);
            QCOMPARE(sizeBox(&dialog, name)->maximum(), 10000.0);
        }
    }

    void sizesOfTheOtherModeAreDisabled()
    {
        ArrowAttrsDlg dialog(nullptr, nullptr);
        const auto enabled = [&](char number) {
            for (const char* name : sizeNames)
                if (sizeBox(&dialog, name)->isEnabled() != (name[strlen(name) - 1] == number))
                    return false;
            return true;
        };
        QVERIFY(enabled('2'));
        dialog.findChild<QRadioButton*>("rbAbsolute")->click();
        QVERIFY(use_abs_arrowvals);
        QVERIFY(enabled('1'));
        dialog.findChild<QRadioButton*>("rbRelative")->click();
        QVERIFY(!use_abs_arrowvals);
        QVERIFY(enabled('2'));
        use_abs_arrowvals = true;
        dialog.fillValues();
        QVERIFY(dialog.findChild<QRadioButton*>("rbAbsolute")->isChecked());
        QVERIFY(enabled('1'));
        QVERIFY(use_abs_arrowvals);
    }

    void everySizeGoesToItsAttribute()
    {
        const ArrowAttrsDlg dialog(nullptr, nullptr);
        double value = 2;
        for (const char* name : sizeNames)
            sizeBox(&dialog, name)->setValue(value++);
        QCOMPARE(cur_arrowthick, 2.0f);
        QCOMPARE(cur_arrowwidth, 45.0f);
        QCOMPARE(cur_arrowheight, 60.0f);
        QCOMPARE(cur_arrow_multthick, 5.0f);
        QCOMPARE(cur_arrow_multwidth, 90.0f);
        QCOMPARE(cur_arrow_multheight, 105.0f);
    }

    // 50 / 15 is shown as 3.33, which would be 49.95.
    void sizesThatAreOnlyShownRoundedStayExact()
    {
        cur_arrowwidth = 50;
        cur_arrow_multheight = 100;
        const ArrowAttrsDlg dialog(nullptr, nullptr);
        QCOMPARE(sizeBox(&dialog, "width1")->value(), 3.33);
        sizeBox(&dialog, "thickness2")->setValue(2);
        QCOMPARE(cur_arrow_multthick, 2.0f);
        QCOMPARE(cur_arrowwidth, 50.0f);
        QCOMPARE(cur_arrow_multheight, 100.0f);
        sizeBox(&dialog, "width1")->setValue(3.34);
        QCOMPARE(cur_arrowwidth, 3.34f * 15);
    }

    void openingChangesNothing()
    {
        cur_arrowwidth = 400000; // beyond what the box can show
        DialogFixture fixture;
        const FigLine* line = fixture.selectedArrow();
        ArrowAttrsDlg dialog(fixture.window.get(), fixture.context);
        dialog.fillValues();
        QCOMPARE(line->forward_arrow->wd, 60.0f);
        QCOMPARE(fixture.context->undoQueue.undoCount(), 0);
    }

    void selectedArrowFollowsStepByStep()
    {
        DialogFixture fixture;
        const FigLine* line = fixture.selectedArrow();
        const ArrowAttrsDlg dialog(fixture.window.get(), fixture.context);
        sizeBox(&dialog, "width2")->setValue(10);
        QCOMPARE(line->forward_arrow->wd, 150.0f);
        QCOMPARE(line->forward_arrow->ht, 120.0f);
        QCOMPARE(fixture.context->undoQueue.undoCount(), 1);
        // Of the other mode; the object does not go by it.
        sizeBox(&dialog, "height1")->setValue(99);
        QCOMPARE(line->forward_arrow->ht, 120.0f);
        QCOMPARE(fixture.context->undoQueue.undoCount(), 1);
        fixture.context->undoQueue.undo();
        QCOMPARE(line->forward_arrow->wd, 60.0f);
    }

    void sizeOfZeroIsAllowed()
    {
        DialogFixture fixture;
        fixture.selectedArrow();
        const ArrowAttrsDlg dialog(fixture.window.get(), fixture.context);
        for (const char* name : sizeNames)
            sizeBox(&dialog, name)->setValue(0);
        QCOMPARE(cur_arrow_multwidth, 0.0f);
        fixture.child->redisplayCanvas();
    }

    void buttonOfThePanelOpensTheDialog()
    {
        DialogFixture fixture;
        fixture.selectedArrow();
        DialogDriver user;
        bool found = false;
        user.inspect([&](QWidget* dialog) { found = qobject_cast<ArrowAttrsDlg*>(dialog); });
        fixture.button("openArrowAttrs")->click();
        QVERIFY(found);
        QVERIFY(user.isDone());
    }

    // --- comments ------------------------------------------------------------------------

    void commentDialogShowsTheObjectsComment()
    {
        FigLine line;
        line.comments = "first\nsecond";
        ObjectCommentDlg dialog(nullptr);
        QCOMPARE(dialog.windowTitle(), QString("Object Comment"));
        QCOMPARE(dialog.findChild<QGroupBox*>()->title(), QString("Enter comment"));
        dialog.setObject(&line);
        QCOMPARE(commentIn(&dialog), QString("first\nsecond"));
        FigLine other;
        dialog.setObject(&other);
        QCOMPARE(commentIn(&dialog), QString());
    }

    void acceptedTextReplacesTheComment()
    {
        FigLine line;
        ObjectCommentDlg dialog(nullptr);
        QSignalSpy spy(&dialog, &ObjectCommentDlg::commentChanged);
        dialog.setObject(&line);
        auto* text = dialog.findChild<QPlainTextEdit*>("objectComment");
        text->setPlainText("äöü %s\nend");
        dialog.accept();
        QCOMPARE(line.comments, QString("äöü %s\nend"));
        QCOMPARE(spy.takeFirst()[0].toBool(), true);
        dialog.setObject(&line);
        text->clear();
        dialog.accept();
        QCOMPARE(line.comments, QString());
        QCOMPARE(spy.takeFirst()[0].toBool(), false);
    }

    void rejectedTextIsForgotten()
    {
        FigLine line;
        line.comments = "stays";
        ObjectCommentDlg dialog(nullptr);
        QSignalSpy spy(&dialog, &ObjectCommentDlg::commentChanged);
        dialog.setObject(&line);
        dialog.findChild<QPlainTextEdit*>("objectComment")->setPlainText("gone");
        dialog.reject();
        QCOMPARE(line.comments, QString("stays"));
        QVERIFY(spy.isEmpty());
    }

    void withoutAnObjectNothingIsTold()
    {
        ObjectCommentDlg dialog(nullptr);
        QSignalSpy spy(&dialog, &ObjectCommentDlg::commentChanged);
        dialog.setObject(nullptr);
        dialog.accept();
        QVERIFY(spy.isEmpty());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void panelEditsTheCommentOfTheSelectedObject()
    {
        DialogFixture fixture;
        FigLine* line = fixture.addLine(0, 0, 1200, 1200);
        line->comments = "old";
        fixture.select(line);
        QSignalSpy spy(fixture.window.get(), &QTMainFrm::commentChanged);
        QString shown;
        DialogDriver user;
        user.inspect([&](QWidget* dialog) {
            shown = commentIn(dialog);
            dialog->findChild<QPlainTextEdit*>("objectComment")->clear();
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        });
        fixture.button("openCommentDlg")->click();
        QCOMPARE(shown, QString("old"));
        QCOMPARE(line->comments, QString());
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy[0][0].toBool(), false);
        // No step of undo, but something to save.
        QCOMPARE(fixture.context->undoQueue.undoCount(), 0);
        QVERIFY(fixture.context->modified);
    }

    void withoutASelectionAMessageComesInsteadOfADialog()
    {
        DialogFixture fixture;
        DialogDriver user;
        fixture.window->attributes()->openCommentDlgClicked(false);
        QVERIFY(user.seen.isEmpty());
        QCOMPARE(message_line, QString("Select an object to comment on"));
        QVERIFY(!fixture.context->modified);
    }

private:
    TestStore store;
    const AttributeState attributes;
};

QTEST_MAIN(TestArrowDialog)
#include "test_arrow_dialog.moc"
