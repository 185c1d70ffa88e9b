#include "edit/u_undo.h"
#include "model/FigContext.h"

#include <QtTest>

namespace {

/// Notes what happens to it, and when it dies.
class NotingAction : public ActionItem {
public:
    NotingAction(QStringList* log, const QString& name) : notes(log), label(name) {}
    ~NotingAction() override { notes->append("gone " + label); }
    void disposeAsUndo() override { notes->append("undo " + label); }
    void disposeAsRedo() override { notes->append("redo " + label); }

private:
    QStringList* notes;
    QString label;
};

} // namespace

class TestUndoQueue : public QObject {
    Q_OBJECT

private slots:
    void nullsAreIgnored()
    {
        CFigContext ctx;
        ctx.undoQueue.addAction(nullptr);
        ctx.undoQueue.addActionList(nullptr);
        QVERIFY(!ctx.modified);
    }

    void addingMarksTheDocumentModified()
    {
        QStringList log;
        CFigContext ctx;
        ctx.undoQueue.addAction(new NotingAction(&log, "a"));
        QVERIFY(ctx.modified);
    }

    void aTransactionIsDisposedFromLastToFirst()
    {
        QStringList log;
        {
            CFigContext ctx;
            auto* step = new QList<ActionItem*>;
            step->append(new NotingAction(&log, "a"));
            step->append(new NotingAction(&log, "b"));
            ctx.undoQueue.addActionList(step);
        }
        QCOMPARE(log, (QStringList{"undo b", "gone b", "undo a", "gone a"}));
    }

    void theOldestTransactionGoesWhenTheLimitIsPassed()
    {
        QStringList log;
        CFigContext ctx;
        UndoQueue queue(&ctx, 2);
        for (const char* name : {"a", "b", "c"})
            queue.addAction(new NotingAction(&log, name));
        QCOMPARE(log, (QStringList{"undo a", "gone a"}));
    }

    void clearingGoesFromTheNewestStepToTheOldest()
    {
        QStringList log;
        CFigContext ctx;
        UndoQueue queue(&ctx);
        for (const char* name : {"a", "b"})
            queue.addAction(new NotingAction(&log, name));
        queue.clearUndoList();
        QCOMPARE(log, (QStringList{"undo b", "gone b", "undo a", "gone a"}));
    }
};

QTEST_MAIN(TestUndoQueue)
#include "test_u_undo.moc"
