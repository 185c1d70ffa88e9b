// The attribute panels with real widgets: which controls each has, what they show, what typing
// into them does, and that all panels show one state.
#include "AttributeState.h"
#include "EveryPage.h"
#include "WindowFixture.h"

#include "render/Font.h"
#include "ui/AttrIcons.h"
#include "ui/AttrsToolbarHandler.h"
#include "ui/AttrsToolbars.h"
#include "ui/ContextPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

using Handler = AttrsToolbarHandler;

namespace {

constexpr int TEXT_PAGE = 13;
constexpr int POLYLINE_PAGE = 8;

struct PageRow {
    const char* className;
    const char* controls; ///< object names, sorted
};

/// Index is the page. By hand from the list of the panels' controls.
const PageRow pages[] = {
    {"EmptyAttrsToolbar", ""},
    {"ArcAttrsToolbar", "arcType backArrow capStyle depth forwArrow lineStyle lineWidth "
                        "openArrowAttrs openCommentDlg openPointsDlg selectPenColor styleVal"},
    {"ArrowAttrsToolbar", "arrowType openArrowAttrs"},
    {"BoxAttrsToolbar", "boxCornerRadius boxType capStyle depth joinStyle lineStyle lineWidth "
                        "openCommentDlg openPointsDlg selectPenColor styleVal"},
    {"CompoundAttrsToolbar", "openCommentDlg"},
    {"EllipseAttrsToolbar", "depth ellipseAngle lineStyle lineWidth openCommentDlg openPointsDlg "
                            "selectPenColor styleVal"},
    {"EmptyAttrsToolbar", ""},
    {"PolygonAttrsToolbar", "capStyle depth joinStyle lineStyle lineWidth openCommentDlg "
                            "openPointsDlg selectPenColor styleVal"},
    {"PolylineAttrsToolbar",
     "backArrow capStyle depth forwArrow joinStyle lineStyle lineWidth openArrowAttrs "
     "openCommentDlg openPointsDlg selectPenColor styleVal"},
    {"PicAttrsToolbar", "depth editPicture openCommentDlg openPointsDlg"},
    {"RegpolyAttrsToolbar", "capStyle depth joinStyle lineStyle lineWidth numSides openCommentDlg "
                            "selectPenColor styleVal"},
    {"ClosedSplineAttrsToolbar", "capStyle depth lineStyle lineWidth openCommentDlg openPointsDlg "
                                 "selectPenColor styleVal"},
    {"OpenSplineAttrsToolbar", "backArrow capStyle depth forwArrow lineStyle lineWidth "
                               "openArrowAttrs openCommentDlg openPointsDlg selectPenColor "
                               "styleVal"},
    {"TextAttrsToolbar", "depth editText fontSize openCommentDlg openFontSel openPointsDlg "
                         "selectPenColor textAlign textAngle textRigid textSpecial"},
    {"RotateAttrsToolbar", "numCopies rotnAngle"},
    {"TangnormAttrsToolbar", "tangnormLength"},
    {"UpdateAttrsToolbar", "arcType arrowStyle boxType btAll btNone btToggle capStyle "
                           "cornerRadius depth ellipseAngle fillPen joinStyle lineStyle lineWidth "
                           "outlinePen styleValue textAdjust textAngle textFont textRigid textSize "
                           "textSpecial"},
};

struct SpinRow {
    const char* name;
    int minimum, maximum, start;
    const char* toolTip;
};

const SpinRow spinRows[] = {
    {"depth", 0, 1000, 50, "Set value for ordering layers"},
    {"lineWidth", 0, 100, 1, ""},
    {"boxCornerRadius", 7, 100, 7, ""},
    {"ellipseAngle", 0, 360, 0, "Rotate ellipse by angle (0..360)"},
    {"numSides", 3, 200, 6, ""},
    {"textAngle", 0, 360, 0, ""},
    {"rotnAngle", 0, 360, 90, "Rotate object by angle (0..360)"},
    {"numCopies", 1, 10000, 1, "Number of copies on right click"},
};

struct ComboRow {
    const char* name;
    QStringList entries; ///< empty for icons without text
    int icons;
};

const ComboRow comboRows[] = {
    {"lineStyle", {}, 6},
    {"capStyle", {"Butt", "Round", "Projecting"}, 0},
    {"joinStyle", {"Miter", "Round", "Bevel"}, 0},
    {"arcType", {"Normal", "Pie Wedge"}, 0},
    {"boxType", {"Normal", "Round"}, 0},
    {"textAlign", {"Left", "Center", "Right"}, 0},
    {"fontSize",
     {"6", "7", "8", "9", "10", "11", "12", "14", "16", "18", "20", "22", "24", "26", "28", "36",
      "48", "72"},
     0},
    {"backArrow", {}, 30},
    {"forwArrow", {}, 30},
    {"arrowType", {}, 29},
};

struct ButtonRow {
    int page;
    const char* name;
    const char* text;
    const char* toolTip;
};

const ButtonRow buttonRows[] = {
    {1, "openArrowAttrs", "Size...", ""},
    {1, "openPointsDlg", "Points...", ""},
    {2, "openArrowAttrs", "Size...", ""},
    {3, "openPointsDlg", "Points...", ""},
    {5, "openPointsDlg", "Values...", ""},
    {7, "openPointsDlg", "Points...", ""},
    {8, "openPointsDlg", "Points...", ""},
    {9, "openPointsDlg", "Points...", ""},
    {11, "openPointsDlg", "Points...", ""},
    {12, "openPointsDlg", "Points...", ""},
    {13, "openPointsDlg", "Coords...", ""},
    {13, "editText", "Edit...", ""},
    {4, "openCommentDlg", "", "Edit comment"},
    {8, "openCommentDlg", "", "Edit comment"},
    {8, "selectPenColor", "", "Current pen. Click to open color window"},
};

struct UpdateRow {
    const char* name;
    const char* label;
    QVector<int> entries;
};

const UpdateRow updateRows[] = {
    {"depth", "Depth", {0}},          {"lineWidth", "Line wdh", {1}},
    {"lineStyle", "Line style", {2}}, {"styleValue", "Dash len", {3}},
    {"outlinePen", "Outline", {4}},   {"fillPen", "Fill", {5, 6}},
    {"capStyle", "Cap style", {7}},   {"joinStyle", "Join style", {8}},
    {"boxType", "Box type", {9}},     {"cornerRadius", "Cornr rds", {10}},
    {"arcType", "Arc type", {11}},    {"ellipseAngle", "Ell. angle", {12}},
    {"textFont", "Font", {13, 19}},   {"textAdjust", "Adjust", {14}},
    {"textRigid", "Rigid", {15}},     {"textSpecial", "Special", {16}},
    {"textSize", "Size", {17}},       {"textAngle", "Angle", {18}},
    {"arrowStyle", "Arrow", {20}},
};

struct PanelFixture : WindowFixture {
    explicit PanelFixture(QSize size = {1280, 800}) : WindowFixture(size) { showEveryPage(stack); }

    ContextPanel* stack = window->findChild<ContextPanel*>();
    Handler* handler = window->attributes();

    QWidget* show(int page)
    {
        stack->setCurrentIndex(page);
        QCoreApplication::processEvents();
        return stack->widget(page);
    }

    template <typename Control> Control* control(int page, const char* name) const
    {
        auto* found = stack->widget(page)->findChild<Control*>(name);
        if (!found)
            qFatal("page %d has no %s", page, name);
        return found;
    }

    /// All controls of that name, whatever the panel.
    template <typename Control> QList<Control*> controls(const char* name) const
    {
        return stack->findChildren<Control*>(name);
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
        text->flags = 4;
        list_add(context, &context->drawing.objects, text);
        select(text);
        return text;
    }

    int steps() const { return context->undoQueue.undoCount(); }
};

/// Types over what the control holds and ends with Return.
void typeInto(QWidget* control, const QString& text)
{
    control->setFocus();
    if (auto* spin = qobject_cast<QAbstractSpinBox*>(control))
        spin->selectAll();
    else
        qobject_cast<QComboBox*>(control)->lineEdit()->selectAll();
    QTest::keyClick(control, Qt::Key_Delete);
    QTest::keyClicks(control, text);
    QTest::keyClick(control, Qt::Key_Return);
}

QStringList controlNames(const QWidget* page)
{
    QStringList names;
    for (const QWidget* child : page->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (!qobject_cast<const QLabel*>(child))
            names.append(child->objectName());
    names.sort();
    return names;
}

QImage imageOf(const QIcon& icon)
{
    return icon.pixmap(24, 24).toImage();
}

} // namespace

class TestAttrsPanels : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { store.make(); }

    void init()
    {
        store.renew();
        attributes.restore();
    }

    // --- what stands where -----------------------------------------------------------

    void everyPageIsItsPanelWithItsControls()
    {
        const PanelFixture fixture;
        QCOMPARE(fixture.stack->count(), 17);
        for (int page = 0; page < 17; ++page) {
            const QWidget* panel = fixture.stack->widget(page);
            QCOMPARE(panel->metaObject()->className(), pages[page].className);
            QCOMPARE(controlNames(panel).join(' '), QString(pages[page].controls));
        }
    }

    void spinBoxesHaveTheirRangesAndTips()
    {
        const PanelFixture fixture;
        for (const SpinRow& row : spinRows) {
            const QList<QSpinBox*> boxes = fixture.controls<QSpinBox>(row.name);
            QVERIFY2(!boxes.isEmpty(), row.name);
            for (const QSpinBox* box : boxes) {
                QVERIFY2(box->minimum() == row.minimum, row.name);
                QVERIFY2(box->maximum() == row.maximum, row.name);
                QVERIFY2(box->value() == row.start, row.name);
                QCOMPARE(box->toolTip(), QString(row.toolTip));
            }
        }
        for (const QDoubleSpinBox* box : fixture.controls<QDoubleSpinBox>("styleVal"))
            QCOMPARE(box->toolTip(), QString("dash length / dot gap"));
        QCOMPARE(fixture.control<QDoubleSpinBox>(15, "tangnormLength")->value(), 1.0);
    }

    void comboBoxesHaveTheirEntries()
    {
        const PanelFixture fixture;
        for (const ComboRow& row : comboRows)
            for (const QComboBox* box : fixture.controls<QComboBox>(row.name)) {
                QCOMPARE(box->count(), row.icons + row.entries.size());
                for (int index = 0; index < box->count(); ++index) {
                    QCOMPARE(box->itemText(index), row.entries.value(index));
                    QVERIFY2(box->itemIcon(index).isNull() == (row.icons == 0), row.name);
                }
            }
        QVERIFY(fixture.control<QComboBox>(TEXT_PAGE, "fontSize")->isEditable());
    }

    void buttonsHaveTheirTextsAndTips()
    {
        const PanelFixture fixture;
        for (const ButtonRow& row : buttonRows) {
            const auto* button = fixture.control<QPushButton>(row.page, row.name);
            QCOMPARE(button->text(), QString(row.text));
            QCOMPARE(button->toolTip(), QString(row.toolTip));
        }
        QCOMPARE(fixture.control<QCheckBox>(TEXT_PAGE, "textRigid")->text(), QString("Rigid"));
        QCOMPARE(fixture.control<QCheckBox>(TEXT_PAGE, "textSpecial")->text(), QString("LaTeX"));
    }

    // Their dialogs are not there yet.
    void buttonsWithoutAUseCannotBePressed()
    {
        const PanelFixture fixture;
        for (const char* name : {"openPointsDlg", "editPicture"})
            for (const QPushButton* button : fixture.controls<QPushButton>(name))
                QVERIFY2(!button->isEnabled(), name);
        for (const char* name : {"openArrowAttrs", "openCommentDlg", "editText"})
            for (const QPushButton* button : fixture.controls<QPushButton>(name))
                QVERIFY2(button->isEnabled(), name);
    }

    void arrowListsBeginWithNoneWhereALineMayHaveNone()
    {
        const PanelFixture fixture;
        const auto resource = [](const char* name) {
            return imageOf(QIcon(QString(":/arrows/images/arrows/%1.png").arg(name)));
        };
        const auto* back = fixture.control<QComboBox>(POLYLINE_PAGE, "backArrow");
        QCOMPARE(imageOf(back->itemIcon(0)), resource("none"));
        QCOMPARE(imageOf(back->itemIcon(1)), resource("back1"));
        QCOMPARE(imageOf(back->itemIcon(29)), resource("back29"));
        const auto* forward = fixture.control<QComboBox>(POLYLINE_PAGE, "forwArrow");
        QCOMPARE(imageOf(forward->itemIcon(0)), resource("none"));
        QCOMPARE(imageOf(forward->itemIcon(29)), resource("forw29"));
        const auto* type = fixture.control<QComboBox>(2, "arrowType");
        QCOMPARE(imageOf(type->itemIcon(0)), resource("forw1"));
        QCOMPARE(imageOf(type->itemIcon(28)), resource("forw29"));
    }

    void lineStylesStandAtTheirNumbers()
    {
        QComboBox box;
        addLineStyleIcons(&box);
        const char* const names[] = {"solid",   "dashed",     "dotted",
                                     "dashdot", "dashdotdot", "dashdotdotdot"};
        QCOMPARE(box.count(), 6);
        for (int style = 0; style < 6; ++style)
            QCOMPARE(
                imageOf(box.itemIcon(style)),
                imageOf(QIcon(QString(":/lineStyles/images/lineStyles/%1.png").arg(names[style]))));
    }

    void everyControlHasANameForThoseWhoDoNotSeeIt()
    {
        const PanelFixture fixture;
        for (int page = 1; page < 16; ++page)
            for (const QWidget* child : fixture.stack->widget(page)->findChildren<QWidget*>(
                     QString(), Qt::FindDirectChildrenOnly))
                if (!qobject_cast<const QLabel*>(child))
                    QVERIFY2(!child->accessibleName().isEmpty(), qPrintable(child->objectName()));
    }

    void keyboardGoesThroughAPanelFromTopToBottom()
    {
        PanelFixture fixture;
        for (int page = 1; page < 17; ++page) {
            const QWidget* panel = fixture.show(page);
            int top = -1;
            for (const QWidget* widget = panel->nextInFocusChain(); widget != panel;
                 widget = widget->nextInFocusChain()) {
                if (widget->parentWidget() != panel || qobject_cast<const QLabel*>(widget))
                    continue;
                const bool isBox = qobject_cast<const QCheckBox*>(widget);
                if (page == 16 && isBox)
                    continue; // down one column, then the other
                QVERIFY2(widget->y() >= top - 1, qPrintable(widget->objectName()));
                top = widget->y();
            }
        }
    }

    void nothingIsCutOff()
    {
        PanelFixture fixture;
        for (int page = 1; page < 17; ++page) {
            const QWidget* panel = fixture.show(page);
            QVERIFY2(panel->height() >= panel->minimumSizeHint().height(),
                     panel->metaObject()->className());
            for (const QWidget* child :
                 panel->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                QVERIFY2(panel->rect().contains(child->geometry()),
                         qPrintable(child->objectName()));
                const QSize needed = child->minimumWidth() > 0 ? QSize(child->minimumWidth(), 0)
                                                               : child->minimumSizeHint();
                QVERIFY2(child->width() >= needed.width() && child->height() >= needed.height(),
                         qPrintable(child->objectName()));
            }
        }
    }

    // --- one state for all panels ------------------------------------------------------

    void whatOnePanelIsToldAllPanelsShow()
    {
        const PanelFixture fixture;
        fixture.control<QSpinBox>(1, "depth")->setValue(77);
        fixture.control<QSpinBox>(3, "lineWidth")->setValue(9);
        fixture.control<QComboBox>(5, "lineStyle")->setCurrentIndex(4);
        fixture.control<QDoubleSpinBox>(7, "styleVal")->setValue(6.5);
        fixture.control<QComboBox>(8, "capStyle")->setCurrentIndex(2);
        fixture.control<QComboBox>(10, "joinStyle")->setCurrentIndex(1);
        fixture.control<QComboBox>(12, "backArrow")->setCurrentIndex(3);
        fixture.control<QComboBox>(1, "forwArrow")->setCurrentIndex(5);
        QCOMPARE(cur_depth, 77);
        QCOMPARE(cur_linewidth, 9);
        QCOMPARE(cur_linestyle, 4);
        QCOMPARE(cur_styleval, 6.5f);
        QCOMPARE(cur_capstyle, 2);
        QCOMPARE(cur_joinstyle, 1);
        QCOMPARE(cur_barrowtype, 2);
        QCOMPARE(cur_farrowtype, 4);
        for (const QSpinBox* box : fixture.controls<QSpinBox>("depth"))
            QCOMPARE(box->value(), 77);
        for (const QSpinBox* box : fixture.controls<QSpinBox>("lineWidth"))
            QCOMPARE(box->value(), 9);
        for (const QDoubleSpinBox* box : fixture.controls<QDoubleSpinBox>("styleVal"))
            QCOMPARE(box->value(), 6.5);
        const QHash<const char*, int> indexes = {{"lineStyle", 4},
                                                 {"capStyle", 2},
                                                 {"joinStyle", 1},
                                                 {"backArrow", 3},
                                                 {"forwArrow", 5}};
        for (auto row = indexes.begin(); row != indexes.end(); ++row)
            for (const QComboBox* box : fixture.controls<QComboBox>(row.key()))
                QCOMPARE(box->currentIndex(), row.value());
    }

    void controlsOfOnePanelOnlyReachTheirAttributes()
    {
        const PanelFixture fixture;
        fixture.control<QComboBox>(1, "arcType")->setCurrentIndex(1);
        fixture.control<QComboBox>(2, "arrowType")->setCurrentIndex(11);
        fixture.control<QComboBox>(3, "boxType")->setCurrentIndex(1);
        fixture.control<QSpinBox>(3, "boxCornerRadius")->setValue(20);
        fixture.control<QSpinBox>(5, "ellipseAngle")->setValue(180);
        fixture.control<QSpinBox>(10, "numSides")->setValue(8);
        fixture.control<QSpinBox>(13, "textAngle")->setValue(90);
        fixture.control<QComboBox>(13, "textAlign")->setCurrentIndex(2);
        fixture.control<QComboBox>(13, "fontSize")->setCurrentIndex(17);
        fixture.control<QCheckBox>(13, "textRigid")->click();
        fixture.control<QCheckBox>(13, "textSpecial")->click();
        fixture.control<QSpinBox>(14, "rotnAngle")->setValue(30);
        fixture.control<QSpinBox>(14, "numCopies")->setValue(4);
        fixture.control<QDoubleSpinBox>(15, "tangnormLength")->setValue(2.5);
        QCOMPARE(cur_arctype, 1);
        QCOMPARE(cur_arrowtype, 11);
        QCOMPARE(cur_boxtype, 4);
        QCOMPARE(cur_boxradius, 20);
        QCOMPARE(cur_ellipseangle, static_cast<float>(M_PI));
        QCOMPARE(cur_numsides, 8);
        QCOMPARE(cur_textangle, static_cast<float>(M_PI / 2));
        QCOMPARE(cur_textjust, 2);
        QCOMPARE(cur_fontsize, 72);
        QCOMPARE(cur_textflags, 7);
        QCOMPARE(cur_rotnangle, 30);
        QCOMPARE(cur_numcopies, 4);
        QCOMPARE(cur_tangnormlen, 2.5f);
    }

    void windowBeginsWithTheCurrentAttributesInItsPanels()
    {
        cur_depth = 12;
        cur_linewidth = 3;
        cur_fontsize = 15;
        cur_textflags = 7;
        const PanelFixture fixture;
        for (const QSpinBox* box : fixture.controls<QSpinBox>("depth"))
            QCOMPARE(box->value(), 12);
        QCOMPARE(fixture.control<QSpinBox>(8, "lineWidth")->value(), 3);
        QCOMPARE(fixture.control<QComboBox>(13, "fontSize")->currentText(), QString("15"));
        QVERIFY(fixture.control<QCheckBox>(13, "textSpecial")->isChecked());
        QCOMPARE(fixture.control<QPushButton>(13, "openFontSel")->text(), QString("Times Roman"));
    }

    void presentValueAgainEmitsNothingAndIsNoStep()
    {
        PanelFixture fixture;
        FigLine* line = fixture.addLine(0, 0, 1200, 1200);
        fixture.select(line);
        QSignalSpy width(fixture.handler, &Handler::lineWidthChanged);
        auto* box = fixture.control<QSpinBox>(POLYLINE_PAGE, "lineWidth");
        box->setValue(1);
        typeInto(box, "1");
        QVERIFY(width.isEmpty());
        QCOMPARE(fixture.steps(), 0);
        box->setValue(4);
        QCOMPARE(width.size(), 1);
        QCOMPARE(fixture.steps(), 1);
        QCOMPARE(line->thickness, 4);
    }

    // Numbers of files and scripts that a control cannot show stay what they are.
    void selectingAnObjectBeyondTheRangesChangesNothing()
    {
        PanelFixture fixture;
        FigLine* line = fixture.addLine(0, 0, 1200, 1200);
        line->sub_type = T_ARCBOX;
        line->thickness = 300;
        line->radius = 3;
        line->depth = 999;
        line->line_style = 9;
        line->cap_style = -1;
        // Dash lengths over the width: 2 * 10 / 301 = 0.0664..., shown with two decimals.
        line->style_val = 10;
        fixture.select(line);
        const float exact = cur_styleval;
        QCOMPARE(cur_linewidth, 300);
        QCOMPARE(cur_boxradius, 3);
        QCOMPARE(line->thickness, 300);
        QCOMPARE(line->radius, 3);
        QCOMPARE(line->style_val, 10.0f);
        QCOMPARE(line->line_style, 9);
        QCOMPARE(line->cap_style, -1);
        QCOMPARE(fixture.steps(), 0);
        QVERIFY(!fixture.context->modified);
        QCOMPARE(fixture.control<QSpinBox>(3, "lineWidth")->value(), 100);
        QCOMPARE(fixture.control<QSpinBox>(3, "boxCornerRadius")->value(), 7);
        QCOMPARE(fixture.control<QComboBox>(3, "lineStyle")->currentIndex(), -1);
        // A change of another attribute leaves them alone as well.
        fixture.control<QSpinBox>(3, "depth")->setValue(40);
        QCOMPARE(line->depth, 40);
        QCOMPARE(line->thickness, 300);
        QCOMPARE(line->radius, 3);
        QCOMPARE(line->style_val, 10.0f);
        QCOMPARE(cur_styleval, exact);
        QCOMPARE(fixture.steps(), 1);
    }

    void scriptMaySendWhatNoPanelCan()
    {
        const PanelFixture fixture;
        fixture.handler->onBoxCornerRadius(3);
        fixture.handler->onNumSides(1000);
        fixture.handler->onLineWidth(500);
        fixture.handler->onStyleVal(4.347826);
        QCOMPARE(cur_boxradius, 3);
        QCOMPARE(cur_numsides, 1000);
        QCOMPARE(cur_linewidth, 500);
        QCOMPARE(cur_styleval, 4.347826f);
        QCOMPARE(fixture.control<QSpinBox>(3, "boxCornerRadius")->value(), 7);
        QCOMPARE(fixture.control<QSpinBox>(10, "numSides")->value(), 200);
        QCOMPARE(fixture.control<QDoubleSpinBox>(8, "styleVal")->value(), 4.35);
    }

    // --- typing ------------------------------------------------------------------------

    void aTypedNumberIsOneStepOfUndo()
    {
        PanelFixture fixture;
        FigLine* line = fixture.addLine(0, 0, 1200, 1200);
        fixture.select(line);
        typeInto(fixture.control<QSpinBox>(POLYLINE_PAGE, "depth"), "123");
        QCOMPARE(line->depth, 123);
        QCOMPARE(fixture.steps(), 1);
        fixture.context->undoQueue.undo();
        QCOMPARE(line->depth, 50);
    }

    void returnGivesTheKeysBackToTheDocument()
    {
        PanelFixture fixture;
        FigLine* line = fixture.addLine(600, 600, 1200, 1200);
        fixture.window->activateWindow();
        fixture.select(line);
        auto* width = fixture.control<QSpinBox>(POLYLINE_PAGE, "lineWidth");
        typeInto(width, "5");
        QCOMPARE(line->thickness, 5);
        QVERIFY(!width->hasFocus());
        QWidget* served = QApplication::focusWidget();
        QVERIFY(served);
        QTest::keyClick(served, Qt::Key_Delete);
        QVERIFY(fixture.context->drawing.objects.isEmpty());
    }

    void returnInTheSizeOfATextGivesTheKeysBackToo()
    {
        PanelFixture fixture;
        fixture.selectedText();
        fixture.window->activateWindow();
        typeInto(fixture.control<QComboBox>(13, "fontSize"), "30");
        QWidget* served = QApplication::focusWidget();
        QVERIFY(served);
        QTest::keyClick(served, Qt::Key_Delete);
        QVERIFY(fixture.context->drawing.objects.isEmpty());
    }

    void undoInAFieldTakesAStepOfTheDocumentBack()
    {
        PanelFixture fixture;
        FigLine* line = fixture.addLine(0, 0, 1200, 1200);
        fixture.select(line);
        QApplication::setActiveWindow(fixture.window.get());
        auto* width = fixture.control<QSpinBox>(POLYLINE_PAGE, "lineWidth");
        typeInto(width, "5");
        QCOMPARE(line->thickness, 5);
        QTest::keyClick(width, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(line->thickness, 1);
        QCOMPARE(width->value(), 1);
        QTest::keyClick(width, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(line->thickness, 5);
    }

    void undoInTheSizeOfATextTakesAStepOfTheDocumentBack()
    {
        PanelFixture fixture;
        FigText* text = fixture.selectedText();
        const int before = text->size;
        QApplication::setActiveWindow(fixture.window.get());
        auto* size = fixture.control<QComboBox>(13, "fontSize");
        typeInto(size, "30");
        QCOMPARE(text->size, 30);
        QTest::keyClick(size, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(text->size, before);
    }

    void numbersOutsideTheRangeCannotBeTyped_data()
    {
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("value");
        QTest::newRow("one digit too many") << 8 << "lineWidth"
                                            << "1000" << 100;
        QTest::newRow("below a minimum of 7") << 3 << "boxCornerRadius"
                                              << "3" << 7;
        QTest::newRow("below a minimum of 3") << 10 << "numSides"
                                              << "2" << 6;
        QTest::newRow("negative") << 8 << "depth"
                                  << "-5" << 5;
        QTest::newRow("empty") << 8 << "depth"
                               << "" << 50;
        QTest::newRow("letters") << 8 << "depth"
                                 << "abc" << 50;
        QTest::newRow("beyond all depths") << 8 << "depth"
                                           << "99999" << 999;
        QTest::newRow("beyond a full turn") << 5 << "ellipseAngle"
                                            << "361" << 36;
    }

    void numbersOutsideTheRangeCannotBeTyped()
    {
        QFETCH(int, page);
        QFETCH(QString, name);
        QFETCH(QString, typed);
        QFETCH(int, value);
        PanelFixture fixture;
        fixture.show(page);
        auto* box = fixture.control<QSpinBox>(page, qPrintable(name));
        typeInto(box, typed);
        QCOMPARE(box->value(), value);
        QVERIFY(box->value() >= box->minimum() && box->value() <= box->maximum());
    }

    void fontSizesMayBeTyped_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("size");
        QTest::newRow("of the list") << "24" << 24;
        QTest::newRow("of no list") << "13" << 13;
        QTest::newRow("the smallest") << "1" << 1;
        QTest::newRow("the greatest") << "500" << 500;
        QTest::newRow("zero") << "0" << 12;
        QTest::newRow("nothing") << "" << 12;
        QTest::newRow("letters") << "abc" << 12;
        QTest::newRow("beyond all texts") << "501" << 12;
        QTest::newRow("negative") << "-3" << 3;
    }

    void fontSizesMayBeTyped()
    {
        QFETCH(QString, typed);
        QFETCH(int, size);
        PanelFixture fixture;
        FigText* text = fixture.selectedText();
        auto* box = fixture.control<QComboBox>(TEXT_PAGE, "fontSize");
        typeInto(box, typed);
        fixture.child->setFocus();
        QCOMPARE(cur_fontsize, size);
        QCOMPARE(box->currentText(), QString::number(size));
        QCOMPARE(text->size, size);
        QCOMPARE(fixture.steps(), size == 12 ? 0 : 1);
    }

    void fontSizeSetAtOnceCountsAtOnce()
    {
        const PanelFixture fixture;
        auto* box = fixture.control<QComboBox>(TEXT_PAGE, "fontSize");
        box->setCurrentText("33");
        QCOMPARE(cur_fontsize, 33);
        box->setCurrentIndex(0);
        QCOMPARE(cur_fontsize, 6);
        fixture.handler->onFontSize(41);
        QCOMPARE(box->currentText(), QString("41"));
        fixture.handler->onFontSize(48);
        QCOMPARE(box->currentIndex(), 16);
    }

    // Return was not pressed; the click elsewhere ends the typing before it selects.
    void numberThatIsBeingTypedGoesToItsOwnObject()
    {
        PanelFixture fixture;
        FigLine* first = fixture.addLine(300, 300, 1800, 300);
        FigLine* second = fixture.addLine(300, 900, 1800, 900);
        second->thickness = 2;
        fixture.window->activateWindow();
        fixture.select(first);
        auto* box = fixture.control<QSpinBox>(POLYLINE_PAGE, "lineWidth");
        box->setFocus();
        QVERIFY(box->hasFocus());
        box->selectAll();
        QTest::keyClicks(box, "7");
        QCOMPARE(first->thickness, 1);
        QTest::mouseClick(fixture.child->viewport(), Qt::LeftButton, Qt::NoModifier, {5, 5});
        QCOMPARE(first->thickness, 7);
        fixture.select(second);
        QCOMPARE(second->thickness, 2);
        QCOMPARE(box->value(), 2);
    }

    // A selection that comes while the control still has the keys wins over what is being typed.
    void numberThatIsBeingTypedIsForgottenByANewSelection()
    {
        PanelFixture fixture;
        FigLine* first = fixture.addLine(300, 300, 1800, 300);
        FigLine* second = fixture.addLine(300, 900, 1800, 900);
        fixture.select(first);
        auto* box = fixture.control<QSpinBox>(POLYLINE_PAGE, "lineWidth");
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, "7");
        fixture.select(second);
        fixture.child->setFocus();
        QCOMPARE(first->thickness, 1);
        QCOMPARE(second->thickness, 1);
        QCOMPARE(fixture.steps(), 0);
    }

    // --- labels, buttons, keys ------------------------------------------------------------

    void styleValueIsNamedByTheLineStyle()
    {
        const PanelFixture fixture;
        const QStringList texts = {"", "dash len.", "dot gap", "", "", "", ""};
        const QList<QLabel*> labels = fixture.controls<QLabel>("lbStyleVal");
        QCOMPARE(labels.size(), 8);
        for (const int style : {1, 2, 3, 1, 4, 5, 2, 6, 0}) {
            fixture.handler->onLineStyle(style);
            for (const QLabel* label : labels)
                QCOMPARE(label->text(), texts[style]);
        }
    }

    void lengthOfTangentsIsInTheUnitOfTheDocument()
    {
        PanelFixture fixture;
        const auto* label = fixture.control<QLabel>(15, "lbLength");
        QCOMPARE(label->text(), QString(fixture.context->metric ? "Length (cm)" : "Length (in)"));
        emit fixture.window->unitChanged(1);
        QCOMPARE(label->text(), QString("Length (in)"));
        emit fixture.window->unitChanged(0);
        QCOMPARE(label->text(), QString("Length (cm)"));
    }

    void commentButtonShowsWhetherThereIsAComment()
    {
        const PanelFixture fixture;
        const QImage empty = imageOf(QIcon(":/diverse/images/diverse/comment.png"));
        const QImage filled = imageOf(QIcon(":/diverse/images/diverse/comment_filled.png"));
        QVERIFY(!empty.isNull() && !filled.isNull() && empty != filled);
        const QList<QPushButton*> buttons = fixture.controls<QPushButton>("openCommentDlg");
        QCOMPARE(buttons.size(), 11);
        for (const bool hasComment : {false, true, false}) {
            fixture.window->fireCommentChanged(hasComment);
            for (const QPushButton* button : buttons)
                QCOMPARE(imageOf(button->icon()), hasComment ? filled : empty);
        }
    }

    void colourSampleIsTheIconOfTheColourButton()
    {
        const PanelFixture fixture;
        QPixmap sample(24, 24);
        sample.fill(Qt::red);
        for (AttrsPanel* panel : fixture.stack->findChildren<AttrsPanel*>())
            panel->onColorChanged(sample);
        const QList<QPushButton*> buttons = fixture.controls<QPushButton>("selectPenColor");
        QCOMPARE(buttons.size(), 9);
        for (const QPushButton* button : buttons)
            QCOMPARE(imageOf(button->icon()).pixelColor(12, 12), QColor(Qt::red));
    }

    void escapeInAPanelDeselects()
    {
        PanelFixture fixture;
        const FigText* text = fixture.selectedText();
        auto* box = fixture.control<QSpinBox>(TEXT_PAGE, "depth");
        box->setFocus();
        QTest::keyClick(box, Qt::Key_A);
        QCOMPARE(fixture.context->getCurObject(), static_cast<const FigObject*>(text));
        QTest::keyClick(box, Qt::Key_Escape);
        QVERIFY(!fixture.context->getCurObject());
        QVERIFY(!text->tagged);
    }

    void fontButtonIsWrittenInItsFont()
    {
        const PanelFixture fixture;
        auto* panel = static_cast<TextAttrsToolbar*>(fixture.stack->widget(TEXT_PAGE));
        auto* button = fixture.control<QPushButton>(TEXT_PAGE, "openFontSel");
        for (int font = 0; font < NUM_PS_FONTS; ++font) {
            panel->onPsFontChanged(font);
            QCOMPARE(button->text(), QString(fontmapQt[font].name));
            QCOMPARE(button->toolTip(), QString(fontmapQt[font].name));
            QCOMPARE(button->font().family(), QString(fontmapQt[font].family));
            QCOMPARE(button->font().weight(), fontmapQt[font].weight);
            QCOMPARE(int(button->font().style()), fontmapQt[font].style);
            QCOMPARE(button->font().stretch(), fontmapQt[font].stretch);
            QVERIFY(button->icon().isNull());
        }
        panel->onPsFontChanged(35);
        QCOMPARE(button->text(), QString("Zapf Dingbats"));
        panel->onPsFontChanged(-1);
        QCOMPARE(button->text(), QString("Times Roman"));
        panel->onLatexFontChanged(4);
        QCOMPARE(button->text(), QString("sansserif"));
        panel->onLatexFontChanged(6);
        QCOMPARE(button->text(), QString("sansserif"));
        panel->onLatexFontChanged(-1);
        QCOMPARE(button->text(), QString("default"));
    }

    // --- documents --------------------------------------------------------------------------

    void panelsShowTheSelectionOfTheActiveDocument()
    {
        PanelFixture fixture;
        FigLine* line = fixture.addLine(0, 0, 1200, 1200);
        line->thickness = 6;
        fixture.select(line);
        QCOMPARE(fixture.stack->currentIndex(), POLYLINE_PAGE);
        QMdiSubWindow* first = fixture.window->findSubWindow(fixture.child);
        fixture.window->newFile();
        QCoreApplication::processEvents();
        QCOMPARE(fixture.stack->currentIndex(), 6);
        // What is set here is nothing to the line of the other document.
        fixture.handler->onLineWidth(2);
        QCOMPARE(line->thickness, 6);
        fixture.window->setActiveSubWindow(first);
        QCoreApplication::processEvents();
        QCOMPARE(fixture.stack->currentIndex(), POLYLINE_PAGE);
        QCOMPARE(cur_linewidth, 6);
        fixture.handler->onDepth(20);
        QCOMPARE(line->depth, 20);
        QCOMPARE(line->thickness, 6);
    }

    // --- update tool ------------------------------------------------------------------------

    void everyUpdateBoxDrivesItsEntries()
    {
        const PanelFixture fixture;
        for (const UpdateRow& row : updateRows) {
            auto* box = fixture.control<QCheckBox>(16, row.name);
            QCOMPARE(box->text(), QString(row.label));
            QVERIFY2(box->isChecked(), row.name);
            box->click();
            for (int index = 0; index < 21; ++index)
                QVERIFY2(updatelist[index] == (row.entries.contains(index) ? 0 : 1), row.name);
            box->click();
            QCOMPARE(std::count(std::begin(updatelist), std::end(updatelist), 1), 21);
        }
    }

    void updateButtonsSetAllBoxes()
    {
        const PanelFixture fixture;
        const auto countSet = [] {
            return static_cast<int>(std::count(std::begin(updatelist), std::end(updatelist), 1));
        };
        fixture.control<QPushButton>(16, "btNone")->click();
        QCOMPARE(countSet(), 0);
        fixture.control<QCheckBox>(16, "fillPen")->click();
        QCOMPARE(countSet(), 2);
        fixture.control<QPushButton>(16, "btToggle")->click();
        QCOMPARE(countSet(), 19);
        QVERIFY(!fixture.control<QCheckBox>(16, "fillPen")->isChecked());
        fixture.control<QPushButton>(16, "btAll")->click();
        QCOMPARE(countSet(), 21);
        for (const UpdateRow& row : updateRows)
            QCOMPARE(fixture.control<QCheckBox>(16, row.name)->checkState(), Qt::Checked);
    }

    // A box in its third state is not checked.
    void aPartlyCheckedBoxTakesNothingOver()
    {
        const PanelFixture fixture;
        auto* box = fixture.control<QCheckBox>(16, "depth");
        box->setTristate(true);
        box->setCheckState(Qt::PartiallyChecked);
        QCOMPARE(updatelist[0], 0);
        box->setCheckState(Qt::Checked);
        QCOMPARE(updatelist[0], 1);
    }

private:
    TestStore store;
    const AttributeState attributes;
};

QTEST_MAIN(TestAttrsPanels)
#include "test_attrs_panels.moc"
