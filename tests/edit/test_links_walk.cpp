// Random sequences of moves over connected figures. The seed stands in each failure message.
#include "LinkFixture.h"
#include "edit/e_compound.h"
#include "fileio/f_read.h"
#include "fileio/f_save.h"

#include <algorithm>
#include <climits>
#include <random>

namespace {

constexpr int BOXES = 40;
constexpr int CONNECTORS = 80;

/// Boxes with connectors between them, some of both in compounds, nested too.
struct Network : EditedFigure {
    explicit Network(unsigned seed) : bits(seed)
    {
        for (int i = 0; i < BOXES; ++i)
            boxes.append(put(randomBox()));
        for (int i = 0; i < CONNECTORS; ++i)
            connectors.append(put(randomConnector()));
        for (int i = 0; i < 12; ++i)
            group();
        recalculateCompoundBounds(&ctx, &top());
    }

    int between(int low, int high)
    {
        return low + static_cast<int>(bits() % static_cast<unsigned>(high - low + 1));
    }

    FigLine* randomBox()
    {
        const int x = between(0, 20000), y = between(0, 20000);
        return with(makeBox(x, y, x + between(1, 2000), y + between(1, 2000)), ++ctx.nextId);
    }

    /// From a random place on one box to one on another, or on the same.
    FigLine* randomConnector()
    {
        auto* line = with(makeLine({{0, 0}, {between(0, 20000), 5000}, {0, 0}}), ++ctx.nextId);
        attach(line->points);
        attach(lastOf(line));
        return line;
    }

    void attach(FigPoint* end)
    {
        FigLine* box = boxes.at(between(0, BOXES - 1));
        const int side = between(0, 3);
        const FigPoint *from = box->getPoint(side), *to = box->getPoint(side + 1);
        const double place = between(0, 1000) / 1000.0;
        end->x = qRound(from->x + (to->x - from->x) * place);
        end->y = qRound(from->y + (to->y - from->y) * place);
        tie(end, box, side, side == 3 ? 0 : side + 1);
    }

    /// A few objects of the top level, compounds among them.
    void group()
    {
        auto* compound = with(new FigCompound, ++ctx.nextId);
        for (int i = between(2, 5); i > 0; --i) {
            FigObject* member = *(top().begin() + between(0, top().size() - 1));
            top().removeOne(member);
            compound->objects->append(member);
        }
        put(compound);
    }

    /// Some of the top level, as a drag of a selection moves them.
    void moveSome()
    {
        auto* action = new TranslateAction;
        action->workingList = ctx.getWorkingRoot();
        const int share = between(2, 20);
        for (FigObject* object : qAsConst(*action->workingList))
            if (between(1, share) == 1)
                action->objects.insert(
                    between(0, 1) ? action->objects.begin() : action->objects.end(), object);
        if (action->objects.isEmpty())
            action->objects.append(action->workingList->first());
        action->dx = between(-3000, 3000);
        action->dy = between(-3000, 3000);
        collectWorkingObjects4Translate(action->workingList, &action->objects,
                                        &action->workingObjects);
        run(action);
    }

    QByteArray saved()
    {
        QString text;
        OrvaltTextStream stream(&text, QIODevice::WriteOnly);
        stream.setRealNumberNotation(QTextStream::FixedNotation);
        stream << Qt::noforcepoint;
        writeObjects(&ctx, stream);
        stream.flush();
        return text.toUtf8();
    }

    /// How far the farthest end is from its target's outline, per axis.
    int farthestEnd() const
    {
        int farthest = 0;
        for (FigLine* line : connectors)
            for (const FigPoint* end : {line->points, lastOf(line)})
                farthest = std::max(farthest, distanceFromTarget(end));
        return farthest;
    }

    int distanceFromTarget(const FigPoint* end) const
    {
        for (FigLine* box : boxes)
            if (box->id == end->link->targetObjId)
                return distanceFromOutline(end, box);
        return INT_MAX;
    }

    static int distanceFromOutline(const FigPoint* end, FigLine* box)
    {
        int nearest = INT_MAX;
        for (const FigPoint* corner = box->points; corner->next; corner = corner->next)
            nearest = std::min(nearest, distanceFromSide(end, corner, corner->next));
        return nearest;
    }

    /// The sides are level or upright.
    static int distanceFromSide(const FigPoint* end, const FigPoint* a, const FigPoint* b)
    {
        const auto outside = [](int value, int c, int d) {
            return std::max({0, std::min(c, d) - value, value - std::max(c, d)});
        };
        return std::max(outside(end->x, a->x, b->x), outside(end->y, a->y, b->y));
    }

    std::mt19937 bits;
    QList<FigLine*> boxes, connectors;
};

} // namespace

class TestLinksWalk : public QObject {
    Q_OBJECT

private slots:
    void endsStayOnTheirTargetsWhateverIsMoved()
    {
        for (unsigned seed = 1; seed <= 40; ++seed) {
            Network network(seed);
            const QByteArray before = network.saved();
            QCOMPARE(network.farthestEnd(), 0);
            for (int step = 0; step < 50; ++step) {
                network.moveSome();
                QVERIFY2(network.farthestEnd() <= 1,
                         qPrintable(QString("seed %1, step %2: %3 units off")
                                        .arg(seed)
                                        .arg(step)
                                        .arg(network.farthestEnd())));
            }
            const QByteArray after = network.saved();
            QVERIFY(after != before);
            while (network.queue().undoCount() > 0)
                network.undo();
            QVERIFY2(network.saved() == before, qPrintable(QString("seed %1").arg(seed)));
            while (network.queue().redoCount() > 0)
                network.redo();
            QVERIFY2(network.saved() == after, qPrintable(QString("seed %1").arg(seed)));
        }
    }

    // Within an open compound only its members are looked at: what is tied across its border is
    // not followed there. Undo takes that back all the same.
    void movesInOpenCompoundsAreTakenBack()
    {
        for (unsigned seed = 101; seed <= 120; ++seed) {
            Network network(seed);
            const QByteArray before = network.saved();
            for (int step = 0; step < 50; ++step) {
                FigObjectList compounds;
                getObjectsByType(network.ctx.getWorkingRoot(), O_COMPOUND, compounds);
                if (!compounds.isEmpty() && network.between(1, 3) == 1)
                    open_compound(&network.ctx, static_cast<FigCompound*>(compounds.first()));
                else if (network.between(1, 3) == 1)
                    close_compound(&network.ctx, false);
                network.moveSome();
            }
            while (network.ctx.openCompoundObjects)
                close_compound(&network.ctx, false);
            const QByteArray after = network.saved();
            while (network.queue().undoCount() > 0)
                network.undo();
            QVERIFY2(network.saved() == before, qPrintable(QString("seed %1").arg(seed)));
            while (network.queue().redoCount() > 0)
                network.redo();
            QVERIFY2(network.saved() == after, qPrintable(QString("seed %1").arg(seed)));
        }
    }
};

QTEST_GUILESS_MAIN(TestLinksWalk)
#include "test_links_walk.moc"
