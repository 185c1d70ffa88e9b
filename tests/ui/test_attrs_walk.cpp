// Random walks over the panels: objects are selected, controls set and typed into, odd numbers
// sent to the coordinator. Undo of all brings the first bytes back, redo of all the last.
#include "AttributeState.h"
#include "WindowFixture.h"

#include "fileio/f_save.h"
#include "model/w_layers.h"
#include "ui/AttrsToolbarHandler.h"
#include "ui/ContextPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>

#include <random>

namespace {

class Walk : public WindowFixture {
public:
    explicit Walk(unsigned seed) : bits(seed) {}

    int between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(bits); }

    void open(const QString& figure)
    {
        QByteArray name = (QString(ORVALT_SOURCE_DIR "/examples/") + figure).toLocal8Bit();
        window->openFile(name.data());
        child = window->activeMdiChild();
        context = child->figContext;
    }

    void step()
    {
        switch (between(0, 5)) {
        case 0:
            return selectAnything();
        case 1:
            return typeAnything();
        case 2:
            return sendAnything();
        default:
            return setAnything();
        }
    }

    QByteArray bytes() const
    {
        const QTemporaryDir folder;
        const QString name = folder.filePath("walk.fig");
        if (!write_file(context, name))
            return QByteArray();
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    bool areDepthsCounted() const
    {
        QVector<int> counted(NUM_DEPTHS);
        std::copy(std::begin(context->object_depths), std::end(context->object_depths),
                  counted.begin());
        set_depths(context);
        return std::equal(counted.begin(), counted.end(), std::begin(context->object_depths));
    }

private:
    template <typename Control> Control* anyOf(const QList<Control*>& controls)
    {
        return controls.isEmpty() ? nullptr : controls[between(0, controls.size() - 1)];
    }

    QWidget* page() const { return window->findChild<ContextPanel*>()->currentWidget(); }

    void selectAnything()
    {
        const FigObjectList* root = context->getWorkingRoot();
        if (root->isEmpty())
            return;
        FigObject* object = *(root->begin() + between(0, root->size() - 1));
        context->curObject = object;
        window->showAttributesBar(context, object);
    }

    void setAnything()
    {
        if (auto* box = anyOf(page()->findChildren<QSpinBox*>()); box && between(0, 2) == 0)
            box->setValue(between(-10, 1100));
        if (auto* box = anyOf(page()->findChildren<QDoubleSpinBox*>()); box && between(0, 3) == 0)
            box->setValue(between(-100, 2000) / 37.0);
        if (auto* box = anyOf(page()->findChildren<QComboBox*>()); box && between(0, 1) == 0)
            box->setCurrentIndex(between(-1, box->count()));
        if (auto* box = anyOf(page()->findChildren<QCheckBox*>()))
            box->click();
    }

    void typeAnything()
    {
        static const char* const texts[] = {"",     "0", "7",   "-1",  "12.5", "abc",
                                            "1000", "%", "1e9", "999", " ",    "00012"};
        QWidget* control = anyOf(page()->findChildren<QAbstractSpinBox*>());
        if (auto* box = page()->findChild<QComboBox*>("fontSize"); box && between(0, 1) == 0)
            control = box->lineEdit();
        if (!control)
            return;
        control->setFocus();
        QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(control, texts[between(0, 11)]);
        QTest::keyClick(control, between(0, 3) ? Qt::Key_Return : Qt::Key_Tab);
    }

    /// As a script may: whatever a file can hold, and some that it cannot.
    void sendAnything()
    {
        AttrsToolbarHandler* handler = window->attributes();
        const int value = between(-3, 1200);
        switch (between(0, 9)) {
        case 0:
            return handler->onDepth(std::max(value, 0) % 1000);
        case 1:
            return handler->onLineWidth(std::max(value, 0));
        case 2:
            return handler->onStyleVal(value / 7.0);
        case 3:
            return handler->onLineStyle(value % 7);
        case 4:
            return handler->onBoxCornerRadius(value);
        case 5:
            return handler->onBackArrow(between(0, 29));
        case 6:
            return handler->onForwArrow(between(0, 29));
        case 7:
            return handler->onColors(between(-2, 40), between(-2, 40), between(-3, 70));
        case 8:
            return handler->onTextAngle(value);
        default:
            return handler->onFontSize(QString::number(value));
        }
    }

    std::mt19937 bits;
};

} // namespace

class TestAttrsWalk : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }

    void init()
    {
        store.renew();
        attributes.restore();
    }

    void cleanup() { store.leave(); }

    void undoOfAllBringsTheFirstBytesBackAndRedoTheLast_data()
    {
        QTest::addColumn<QString>("figure");
        QTest::addColumn<unsigned>("seed");
        unsigned seed = 0;
        for (const char* figure : {"shapes.fig", "arrows.fig", "splines.fig", "line_styles.fig",
                                   "nesting.fig", "fonts.fig"})
            QTest::newRow(figure) << figure << ++seed;
    }

    void undoOfAllBringsTheFirstBytesBackAndRedoTheLast()
    {
        QFETCH(QString, figure);
        QFETCH(unsigned, seed);
        Walk walk(seed);
        walk.open(figure);
        const QByteArray first = walk.bytes();
        QVERIFY(!first.isEmpty());
        for (int step = 0; step < 250; ++step)
            walk.step();
        UndoQueue& queue = walk.context->undoQueue;
        const int steps = queue.undoCount();
        QVERIFY2(steps > 50, qPrintable(QString::number(steps)));
        QVERIFY(walk.areDepthsCounted());
        // Colours belong to the document, not to the objects: the header does not change.
        const QByteArray last = walk.bytes();
        QVERIFY(last != first);
        while (queue.undoCount() > 0)
            queue.undo();
        QCOMPARE(walk.bytes(), first);
        QVERIFY(walk.areDepthsCounted());
        while (queue.redoCount() > 0)
            queue.redo();
        QCOMPARE(walk.bytes(), last);
    }

private:
    TestStore store;
    const AttributeState attributes;
};

QTEST_MAIN(TestAttrsWalk)
#include "test_attrs_walk.moc"
