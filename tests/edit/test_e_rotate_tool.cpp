// The tools that turn and mirror by a click: the object, copies of it, the user's centre.
#include "ReshapingFixture.h"
#include "edit/e_rotate_tool.h"

#include <cmath>

namespace {

struct Turning : ReshapedDocument {
    void clockwise(int angle)
    {
        cur_rotnangle = angle;
        choose(CMD_ROTATE_CW, rotate_cw_selected);
    }
    void counterclockwise(int angle)
    {
        cur_rotnangle = angle;
        choose(CMD_ROTATE_CCW, rotate_ccw_selected);
    }
    FigLine* line(int index) { return static_cast<FigLine*>(object(index)); }
};

} // namespace

class TestRotateTool : public QObject {
    Q_OBJECT

private slots:
    // The press is 15 units above the object's line: (900, 885) is the centre.
    void theLeftButtonTurnsAboutThePointer()
    {
        Turning document;
        FigLine* line = document.put(makeLine({{900, 900}, {1500, 900}}));
        document.clockwise(90);
        document.click(900, 885);
        QCOMPARE(chain(line), QString("885,885 885,1485"));
        QCOMPARE(document.steps(), 1);
        document.undo();
        QCOMPARE(chain(line), QString("900,900 1500,900"));
    }

    void theRightButtonTurnsACopyAboutThePointOnTheObject()
    {
        Turning document;
        FigLine* line = document.put(makeLine({{900, 900}, {1500, 900}}));
        document.clockwise(90);
        document.right(900, 885);
        QCOMPARE(document.count(), 2);
        QCOMPARE(chain(line), QString("900,900 1500,900"));
        QCOMPARE(chain(document.line(1)), QString("900,900 900,1500"));
        QVERIFY(document.line(1)->id != line->id);
    }

    void theCounterClockwiseToolTurnsTheOtherWay()
    {
        Turning document;
        FigLine* line = document.put(makeLine({{900, 900}, {1500, 900}}));
        document.counterclockwise(90);
        document.click(900, 900);
        QCOMPARE(chain(line), QString("900,900 900,300"));
    }

    void threeCopiesStandAtMultiplesOfTheAngle()
    {
        Turning document;
        document.put(makeLine({{1500, 1500}, {2100, 1500}}));
        cur_numcopies = 3;
        document.clockwise(90);
        document.right(1500, 1500);
        QCOMPARE(document.count(), 4);
        QCOMPARE(chain(document.line(0)), QString("1500,1500 2100,1500"));
        QCOMPARE(chain(document.line(1)), QString("1500,1500 1500,2100"));
        QCOMPARE(chain(document.line(2)), QString("1500,1500 900,1500"));
        QCOMPARE(chain(document.line(3)), QString("1500,1500 1500,900"));
        QCOMPARE(document.steps(), 3);
        document.undo();
        QCOMPARE(document.count(), 3);
        document.redo();
        QCOMPARE(chain(document.line(3)), QString("1500,1500 1500,900"));
    }

    void fewerThanOneCopyIsNone()
    {
        Turning document;
        document.put(makeLine({{1500, 1500}, {2100, 1500}}));
        cur_numcopies = 0;
        document.clockwise(90);
        document.right(1500, 1500);
        QCOMPARE(document.count(), 1);
        QCOMPARE(document.steps(), 0);
    }

    void shiftSetsTheCentreAnywhereAndTheSecondTimeClearsIt()
    {
        Turning document;
        FigLine* line = document.put(makeLine({{1500, 1500}, {2100, 1500}}));
        document.show();
        const QImage before = document.image;
        document.clockwise(90);
        shift_down = true;
        document.click(1800, 900); // nothing is there
        QCOMPARE(setcenter, 1);
        QCOMPARE(QPoint(setcenter_x, setcenter_y), QPoint(1800, 900));
        QVERIFY(document.image != before);
        shift_down = false;
        document.click(1500, 1500);
        QCOMPARE(chain(line), QString("1200,600 1200,1200"));
        document.undo();
        shift_down = true;
        document.click(300, 300);
        QCOMPARE(setcenter, 0);
        QCOMPARE(document.steps(), 0);
    }

    void theMarkerOfTheCentreGoesWithIt()
    {
        Turning document;
        document.put(makeLine({{1500, 1500}, {2100, 1500}}));
        document.show();
        const QImage before = document.image;
        document.clockwise(90);
        shift_down = true;
        document.click(1800, 900);
        document.click(2100, 2100);
        QCOMPARE(document.image, before);
    }

    // The redraw around a turned object takes the cross away with the rest of its area.
    void noMarkerOfTheCentreIsLeftBehindAfterATurnThroughIt()
    {
        Turning document;
        document.put(makeLine({{1500, 1500}, {2100, 1500}}));
        document.show();
        document.clockwise(90);
        shift_down = true;
        document.click(1800, 1650);
        shift_down = false;
        document.click(1500, 1500);
        shift_down = true;
        document.click(300, 300);
        QCOMPARE(setcenter, 0);
        QVERIFY(document.showsWhatARedrawShows());
    }

    void aCopyTurnsAboutTheCentreThatIsSet()
    {
        Turning document;
        document.put(makeLine({{1500, 1500}, {2100, 1500}}));
        setcenter = 1;
        setcenter_x = 1800;
        setcenter_y = 900;
        document.clockwise(90);
        document.right(1500, 1500);
        QCOMPARE(chain(document.line(1)), QString("1200,600 1200,1200"));
    }

    void arcBoxesAndPicturesRefuseOtherAngles_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<bool>("right");
        QTest::newRow("arc-box") << int(T_ARCBOX) << false;
        QTest::newRow("picture") << int(T_PICTURE) << false;
        QTest::newRow("copy of an arc-box") << int(T_ARCBOX) << true;
    }

    void arcBoxesAndPicturesRefuseOtherAngles()
    {
        QFETCH(int, subType);
        QFETCH(bool, right);
        Turning document;
        FigLine* box = makeBox(600, 600, 1200, 1200);
        box->sub_type = subType;
        document.put(box);
        const QString before = document.text();
        document.clockwise(45);
        if (right)
            document.right(600, 900);
        else
            document.click(600, 900);
        QCOMPARE(document.messages(),
                 QStringList("This object can't be rotated by angles other than 90 degrees!"));
        QCOMPARE(document.text(), before);
        QCOMPARE(document.steps(), 0);
    }

    // The question about a compound knows 90 alone, that about a single object all its multiples.
    void aSingleArcBoxMayTurnBy180ThoughNotWithinACompound()
    {
        Turning document;
        FigLine* box = makeBox(600, 600, 1200, 900);
        box->sub_type = T_ARCBOX;
        document.put(box);
        document.clockwise(180);
        document.click(600, 600);
        QCOMPARE(chain(box), QString("600,600 0,600 0,300 600,300 600,600"));
        FigLine* member = makeBox(1800, 1800, 2400, 2400);
        member->sub_type = T_ARCBOX;
        document.putCompound({member});
        const QString before = document.text();
        document.click(1800, 1800);
        QCOMPARE(document.messages(),
                 QStringList("Invalid rotation angle for this compound object"));
        document.counterclockwise(90);
        document.click(1800, 1800);
        QCOMPARE(document.messages().size(), 2);
        QCOMPARE(document.text(), before);
        QCOMPARE(document.steps(), 1);
    }

    void undoDoesNotTurnThePolygonBackIntoABox()
    {
        Turning document;
        FigLine* box = document.put(makeBox(600, 600, 1200, 1200));
        document.clockwise(45);
        document.click(600, 900);
        QCOMPARE(document.messages(), QStringList("Converted box into polygon!"));
        QCOMPARE(box->sub_type, int(T_POLYGON));
        document.undo();
        QCOMPARE(chain(box), QString("600,600 1200,600 1200,1200 600,1200 600,600"));
        QCOMPARE(box->sub_type, int(T_POLYGON));
    }

    // Kept: the box itself is converted although only its copy turns.
    void aCopyByAnotherAngleConvertsTheBoxItself()
    {
        Turning document;
        FigLine* box = document.put(makeBox(600, 600, 1200, 1200));
        document.clockwise(30);
        document.right(600, 900);
        QCOMPARE(box->sub_type, int(T_POLYGON));
        QCOMPARE(chain(box), QString("600,600 1200,600 1200,1200 600,1200 600,600"));
        QCOMPARE(document.count(), 2);
        QCOMPARE(document.line(1)->sub_type, int(T_POLYGON));
    }

    void fourQuarterTurnsRestoreABoxInEitherSense()
    {
        for (bool clockwise : {true, false}) {
            Turning document;
            FigLine* box = document.put(makeBox(1500, 1500, 2100, 1800));
            const QString before = document.text();
            if (clockwise)
                document.clockwise(90);
            else
                document.counterclockwise(90);
            setcenter = 1;
            setcenter_x = 1800;
            setcenter_y = 1650;
            for (int i = 0; i < 4; ++i)
                document.click(box->points->x, box->points->y);
            QCOMPARE(document.steps(), 4);
            QCOMPARE(document.text(), before);
            for (int i = 0; i < 4; ++i)
                document.undo();
            QCOMPARE(document.text(), before);
        }
    }

    void thePictureAfterATurnIsWhatARedrawShows()
    {
        Turning document;
        FigLine* box = document.put(makeBox(1500, 1500, 2100, 1800));
        FigLine* connector = document.put(makeLine({{2100, 1650}, {3000, 1650}}));
        tie(connector->points, box, 1, 2);
        document.put(makeLine({{300, 1650}, {1650, 1650}}));
        document.show();
        document.clockwise(90);
        document.click(1500, 1500);
        QCOMPARE(chain(box), QString("1500,1500 1500,2100 1200,2100 1200,1500 1500,1500"));
        QCOMPARE(at(connector->points), QString("1350,2100"));
        QVERIFY(document.showsWhatARedrawShows());
        document.undo();
        QCOMPARE(at(connector->points), QString("2100,1650"));
    }

    void aTurnTakesTheObjectsOwnLinksOffAndUndoPutsThemBack()
    {
        Turning document;
        FigLine* box = document.put(makeBox(1500, 1500, 2100, 1800));
        FigLine* connector = document.put(makeLine({{2100, 1650}, {3000, 1650}}));
        FigLink* link = tie(connector->points, box, 1, 2);
        document.clockwise(90);
        document.click(3000, 1650);
        QCOMPARE(chain(connector), QString("3000,750 3000,1650"));
        QVERIFY(!connector->points->link);
        document.undo();
        QCOMPARE(connector->points->link, link);
    }

    void theLinksOfAllMembersOfACompoundComeOff()
    {
        Turning document;
        FigLine* box = document.put(makeBox(1500, 1500, 2100, 1800));
        FigLine* connector = makeLine({{2100, 1650}, {3000, 1650}});
        FigCompound* compound = document.putCompound({connector});
        FigLink* link = tie(connector->points, box, 1, 2);
        document.clockwise(180);
        setcenter = 1;
        setcenter_x = 3000;
        setcenter_y = 1650;
        document.click(compound->secorner.x, compound->secorner.y); // far from the box
        QCOMPARE(chain(connector), QString("3900,1650 3000,1650"));
        QVERIFY(!connector->points->link);
        document.undo();
        QCOMPARE(connector->points->link, link);
    }

    void connectorsStayOnATurningEllipse()
    {
        Turning document;
        FigEllipse* ellipse = document.put(makeEllipse(1500, 1500, 600, 300));
        FigLine* connector = document.put(makeLine({{2100, 1500}, {3000, 1500}}));
        makeLink(connector->points, ellipse->id);
        setcenter = 1;
        setcenter_x = setcenter_y = 1500;
        document.clockwise(90);
        document.click(1500, 1200);
        QCOMPARE(at(connector->points), QString("1500,2100"));
        QVERIFY(std::abs(ellipse->angle - 1.5 * M_PI) < 1e-6);
        document.undo();
        QCOMPARE(at(connector->points), QString("2100,1500"));
    }

    void connectorsFollowTheMembersOfATurningOrMirroredCompound_data()
    {
        QTest::addColumn<bool>("mirrored");
        QTest::addColumn<QString>("onLine");
        QTest::addColumn<QString>("onEllipse");
        QTest::newRow("turned") << false << "1350,2100"
                                << "1500,3300";
        QTest::newRow("mirrored") << true << "900,1650"
                                  << "-300,1500";
    }

    // The connector of the line lies in a compound, too; both links lead to inner members.
    void connectorsFollowTheMembersOfATurningOrMirroredCompound()
    {
        QFETCH(bool, mirrored);
        QFETCH(QString, onLine);
        QFETCH(QString, onEllipse);
        Turning document;
        FigLine* box = makeBox(1500, 1500, 2100, 1800);
        FigEllipse* ellipse = makeEllipse(2700, 1500, 600, 300);
        FigCompound* inner = makeCompound({box});
        FigCompound* compound = document.putCompound({inner, ellipse});
        FigLine* first = makeLine({{2100, 1650}, {3000, 3000}});
        document.putCompound({first});
        FigLine* second = document.put(makeLine({{3300, 1500}, {3900, 3000}}));
        tie(first->points, box, 1, 2);
        makeLink(second->points, ellipse->id);
        setcenter = 1;
        setcenter_x = setcenter_y = 1500;
        if (mirrored)
            document.choose(CMD_FLIP_LR, flip_lr_selected);
        else
            document.clockwise(90);
        document.click(compound->nwcorner.x, compound->secorner.y);
        QCOMPARE(at(first->points), onLine);
        QCOMPARE(at(second->points), onEllipse);
        QCOMPARE(at(lastOf(first)), QString("3000,3000"));
        document.undo();
        QCOMPARE(at(first->points), QString("2100,1650"));
        QCOMPARE(at(second->points), QString("3300,1500"));
    }

    void anAngleOfZeroAndAFullTurnAreStepsThatChangeNothing()
    {
        for (int angle : {0, 360, -360}) {
            Turning document;
            document.put(makeLine({{1500, 1500}, {2103, 1697}}));
            const QString before = document.text();
            document.clockwise(angle);
            document.click(1500, 1500);
            QCOMPARE(document.steps(), 1);
            QCOMPARE(document.text(), before);
        }
    }

    void aClickOnNothingDoesNothing()
    {
        Turning document;
        document.put(makeLine({{1500, 1500}, {2100, 1500}}));
        document.clockwise(90);
        document.click(4000, 4000);
        document.right(4000, 4000);
        QCOMPARE(document.steps(), 0);
    }

    // Such angles are refused by no message: a text of any angle is upright within 0.01 only.
    void aTextThatWasGivenAnOddAngleKeepsIt()
    {
        Turning document;
        auto* text = new FigText;
        text->cstring = "a";
        text->angle = -8.0f;
        text->x = 1500;
        text->y = 1500;
        document.put(text);
        document.clockwise(90);
        document.click(1500, 1500);
        QVERIFY(std::abs(text->angle - (-8.0 - M_PI / 2 + 2 * M_PI)) < 1e-5);
    }

    // --- mirroring ------------------------------------------------------------------------

    void bothButtonsMirrorAboutThePointOnTheObject()
    {
        Turning document;
        FigLine* line = document.put(makeLine({{900, 900}, {1500, 1200}}));
        document.choose(CMD_FLIP_UD, flip_ud_selected);
        document.right(900, 885);
        QCOMPARE(chain(document.line(1)), QString("900,900 1500,600"));
        QCOMPARE(chain(line), QString("900,900 1500,1200"));
        document.undo();
        QCOMPARE(document.count(), 1);
        document.choose(CMD_FLIP_LR, flip_lr_selected);
        document.click(900, 885);
        QCOMPARE(chain(line), QString("900,900 300,1200"));
        document.undo();
        QCOMPARE(chain(line), QString("900,900 1500,1200"));
    }

    void theRightButtonMakesOneMirroredCopyWhateverTheNumber()
    {
        Turning document;
        document.put(makeLine({{900, 900}, {1500, 1200}}));
        cur_numcopies = 4;
        document.choose(CMD_FLIP_LR, flip_lr_selected);
        document.right(900, 900);
        QCOMPARE(document.count(), 2);
    }

    void shiftSetsTheCentreOfTheMirrorToo()
    {
        Turning document;
        FigLine* line = document.put(makeLine({{900, 900}, {1500, 1200}}));
        document.choose(CMD_FLIP_LR, flip_lr_selected);
        shift_down = true;
        document.click(1800, 2400);
        shift_down = false;
        document.click(900, 900);
        QCOMPARE(chain(line), QString("2700,900 2100,1200"));
    }

    void aSingleTextCannotBeMirrored()
    {
        Turning document;
        auto* text = new FigText;
        text->cstring = "a";
        text->x = text->y = 1500;
        document.put(text);
        const QString before = document.text();
        document.choose(CMD_FLIP_UD, flip_ud_selected);
        document.click(1500, 1500);
        document.right(1500, 1500);
        QCOMPARE(document.text(), before);
        QCOMPARE(document.steps(), 0);
        QCOMPARE(document.count(), 1);
    }

    void aMirroredTargetTakesItsConnectorAlong()
    {
        Turning document;
        FigLine* box = document.put(makeBox(1500, 1500, 2100, 1800));
        FigLine* connector = document.put(makeLine({{2100, 1650}, {3000, 1650}}));
        tie(connector->points, box, 1, 2);
        document.show();
        document.choose(CMD_FLIP_LR, flip_lr_selected);
        document.click(1500, 1500);
        QCOMPARE(at(connector->points), QString("900,1650"));
        QVERIFY(document.showsWhatARedrawShows());
        document.undo();
        QCOMPARE(at(connector->points), QString("2100,1650"));
    }

    // Ids from a file may make circles of links, and compounds may be linked into each other.
    void linksInACircleDoNotTurnForEver()
    {
        Turning document;
        FigLine* first = makeLine({{900, 900}, {1500, 900}});
        FigLine* second = makeLine({{1500, 900}, {1500, 1500}});
        FigCompound* inner = makeCompound({second});
        inner->id = 77;
        FigCompound* outer = document.putCompound({first, inner});
        makeLink(first->points, second->id, 0, 1);
        makeLink(second->points, first->id, 0, 1);
        makeLink(lastOf(second), outer->id);
        makeLink(lastOf(first), first->id, 0, 1);
        const QString before = document.text();
        document.clockwise(90);
        document.click(outer->nwcorner.x, outer->nwcorner.y);
        QVERIFY(document.text() != before);
        document.undo();
        QCOMPARE(document.text(), before);
    }
};

QTEST_MAIN(TestRotateTool)
#include "test_e_rotate_tool.moc"
