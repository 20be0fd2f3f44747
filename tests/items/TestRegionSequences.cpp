#include "RegionFixture.h"

#include <cmath>

/// Random sequences of everything that a user and a tool do to a region; after each step all that is promised
/// of its nodes has to hold.
class TestRegionSequences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everySequenceKeepsTheInvariants_data();
    void everySequenceKeepsTheInvariants();
    void draggedHandlesFollowTheRule();

private:
    static constexpr quint32 kSeed = 20240614;
};

namespace {

class Sequence : public RegionFixture
{
public:
    Sequence(quint32 aSeed, int aReach) : theRandom(aSeed), theReach(aReach) {}

    void step()
    {
        switch (theRandom.bounded(5)) {
        case 0:
            mouseStep();
            return;
        case 1:
            nodeStep();
            return;
        case 2:
            handleStep();
            return;
        case 3:
            listStep();
            return;
        default:
            drawStep();
        }
    }

    bool holds() const
    {
        const QRect canvas = theCanvas.rect();
        const Q3PointArray area = theItem->areaPoints();
        bool areaInside = area.size() == 4;
        for (const QPoint& corner : area)
            areaInside = areaInside && corner.x() >= 0 && corner.y() >= 0;
        for (const QPoint& point : theItem->thePoints)
            areaInside = areaInside && (!canvas.contains(point) || area.boundingRect().contains(point));
        return isWhole() && areaInside && theItem->getCreatedNode() == -1;
    }

private:
    QPoint anyPoint()
    {
        if (theItem->thePoints.isEmpty() || theRandom.bounded(3) == 0)
            return randomPoint(theRandom, theReach);
        return theItem->thePoints.at(theRandom.bounded(int(theItem->thePoints.size())));
    }
    unsigned anyIndex() { return unsigned(theRandom.bounded(-1, theItem->nodeCount() + 2)); }
    LmBezierPoint::Synchro anySynchro() { return LmBezierPoint::Synchro(theRandom.bounded(3)); }

    void mouseStep()
    {
        const Qt::KeyboardModifiers modifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                                   Qt::AltModifier};
        const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton,
                                           Qt::MiddleButton};
        press(anyPoint(), modifiers[theRandom.bounded(4)], buttons[theRandom.bounded(5)]);
        for (int i = theRandom.bounded(3); i > 0; --i) {
            if (theRandom.bounded(8) == 0)
                listStep(); // something else changes the region in the middle of the drag
            QPoint point = anyPoint();
            move(point, modifiers[theRandom.bounded(4)]);
        }
        release(anyPoint());
    }

    void nodeStep()
    {
        LmNodeState given;
        given.selected = theRandom.bounded(2) == 0;
        given.dragged = LmNodeState::Dragged(theRandom.bounded(-1, 3));
        given.synchro = anySynchro();
        LmBezierPoint points(true, false, given.synchro);
        for (QPoint& point : points)
            point = anyPoint();
        const int before = theItem->nodeCount();
        theItem->addNode(points, int(anyIndex()), given);
        QCOMPARE(theItem->nodeCount(), before + 1);
        if (given.selected)
            QCOMPARE(selected().size(), 1);
        if (theRandom.bounded(3) == 0)
            theItem->removeNode(anyIndex());
        if (theRandom.bounded(9) == 0)
            theItem->removeSelectedNodes();
        theItem->setNode(anyIndex(), theItem->getNode(anyIndex()));
    }

    void handleStep()
    {
        theItem->setNodeSynchro(anyIndex(), anySynchro());
        theItem->setNodeSelected(anyIndex(), theRandom.bounded(2) == 0);
        theItem->setNodeLeftCtrl(anyIndex(), anyPoint(), theRandom.bounded(4) == 0);
        theItem->setNodeRightCtrl(anyIndex(), anyPoint(), theRandom.bounded(4) == 0);
        const QPoint corner = anyPoint();
        theItem->selectNodes(corner, QSize(theRandom.bounded(-99, 99), theRandom.bounded(-99, 99)));
        theItem->setNodesShown(theRandom.bounded(5) != 0);
    }

    void listStep()
    {
        Q3PointArray points;
        Q3ValueVector<LmNodeState> states;
        for (int i = theRandom.bounded(12); i > 0; --i)
            points << randomPoint(theRandom, theReach);
        states.resize(theRandom.bounded(5));
        if (theRandom.bounded(2) == 0)
            theItem->setPoints(randomPoint(theRandom, theReach), points, states);
        else
            theItem->replaceNodes(points, states);
        theItem->setClosed(theRandom.bounded(2) == 0);
        if (theRandom.bounded(9) == 0)
            theItem->makePolygon();
        const double zoom = theRandom.bounded(1, 60) / 20.0;
        theItem->adjustScale(QTransform::fromScale(zoom, zoom));
    }

    void drawStep()
    {
        QPoint point = anyPoint();
        theItem->enterDrawMode(point, theRandom.bounded(2) == 0);
        QPoint pulled = anyPoint();
        move(pulled, Qt::NoModifier);
        release(pulled);
    }

    QRandomGenerator theRandom;
    int theReach;
};

} // namespace

void TestRegionSequences::everySequenceKeepsTheInvariants_data()
{
    QTest::addColumn<int>("reach");
    for (const int reach : {6, 900, 1 << 28, kMax})
        QTest::newRow(QByteArray::number(reach).constData()) << reach;
}

void TestRegionSequences::everySequenceKeepsTheInvariants()
{
    QFETCH(int, reach);
    qInfo("seed %u", kSeed);
    for (quint32 run = 0; run < 100; ++run) {
        Sequence sequence(kSeed + run, reach);
        for (int i = 0; i < 25; ++i) {
            sequence.step();
            if (QTest::currentTestFailed())
                return;
            QVERIFY2(sequence.holds(), qPrintable(QStringLiteral("run %1, step %2").arg(run).arg(i)));
        }
    }
}

void TestRegionSequences::draggedHandlesFollowTheRule()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    for (int i = 0; i < 3000; ++i) {
        RegionFixture f;
        const QPoint anchor = randomPoint(random, 400);
        const QPoint right = QPoint(20, 0) + randomPoint(random, 14);
        f.add(anchor, randomPoint(random, 40), right);
        f.theItem->setNodeSelected(0, true);
        const auto synchro = LmBezierPoint::Synchro(random.bounded(3));
        const bool mirrored = random.bounded(2) == 0;
        f.state(0).synchro = synchro;
        f.theItem->theCurrentNode = 0;
        f.state(0).dragged = mirrored ? LmNodeState::kDraggedLeftCtrl : LmNodeState::kDraggedRightCtrl;
        f.theItem->theLastPos = f.theItem->thePoints.at(mirrored ? 0 : 2);
        const QPointF before = f.theItem->thePoints.at(mirrored ? 2 : 0) - anchor;
        const QPoint target = anchor + randomPoint(random, 60);
        QVERIFY(f.move(target));
        QCOMPARE(f.theItem->thePoints.at(mirrored ? 0 : 2), target);
        const QPointF other = f.theItem->thePoints.at(mirrored ? 2 : 0) - anchor;
        const QPointF way = target - anchor;
        switch (synchro) {
        case LmBezierPoint::kSynchroNone:
            QCOMPARE(other, before);
            break;
        case LmBezierPoint::kSynchroMirror:
            QCOMPARE(other, -way);
            break;
        case LmBezierPoint::kSynchroDirection:
            const double length = std::hypot(before.x(), before.y());
            QVERIFY(std::abs(std::hypot(other.x(), other.y()) - length) < 0.71);
            const double cross = way.x() * other.y() - way.y() * other.x();
            QVERIFY(way.isNull() || std::abs(cross) < 0.71 * std::hypot(way.x(), way.y()));
            QVERIFY(way.isNull() || QPointF::dotProduct(way, other) <= 0.0);
            break;
        }
        QCOMPARE(f.anchor(0), anchor);
    }
}

MEASURE_TEST_MAIN(TestRegionSequences)
#include "TestRegionSequences.moc"
