#include "RegionFixture.h"

#include <cmath>

class TestRegionHandles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mirroredHandleIsTheReflection();
    void directedHandleKeepsItsLength_data();
    void directedHandleKeepsItsLength();
    void directedHandleWithoutLengthStaysOnTheAnchor();
    void directedHandleStaysForAHandleOnTheAnchor();
    void freeHandleStays();
    void rightHandleLeadsTheLeftOne();
    void relativeLeftHandleAddsItsPlaceToTheOther();
    void relativeRightHandleAddsNothing();
    void noSynchroOnlyTurnsTheOtherIntoAnOffset();
    void pullingAHandleIsAChange();
    void followingHandlesOfManyNodes_data();
    void followingHandlesOfManyNodes();
    void endsOfTheIntRangeStayInside();

private:
    static constexpr quint32 kSeed = 20240612;
};

namespace {

const QPoint kAnchor(100, 100);

/// A region of one node that drags its left handle.
struct OneNode : RegionFixture
{
    OneNode(LmBezierPoint::Synchro aSynchro, const QPoint& aLeft, const QPoint& aRight)
    {
        add(kAnchor, aLeft, aRight);
        state(0).synchro = aSynchro;
    }
    QPoint leftWay() const { return left(0) - kAnchor; }
    QPoint rightWay() const { return right(0) - kAnchor; }
};

} // namespace

void TestRegionHandles::mirroredHandleIsTheReflection()
{
    OneNode f(LmBezierPoint::kSynchroMirror, QPoint(-1, 0), QPoint(3, 4));
    f.theItem->setNodeLeftCtrl(0, kAnchor + QPoint(10, 0), false);
    QCOMPARE(f.leftWay(), QPoint(10, 0));
    QCOMPARE(f.rightWay(), QPoint(-10, 0));
    f.theItem->setNodeLeftCtrl(0, kAnchor + QPoint(-7, 13), false);
    QCOMPARE(f.rightWay(), QPoint(7, -13));
    f.theItem->setNodeLeftCtrl(0, kAnchor, false);
    QCOMPARE(f.rightWay(), QPoint(0, 0));
    QCOMPARE(f.anchor(0), kAnchor);
}

void TestRegionHandles::directedHandleKeepsItsLength_data()
{
    QTest::addColumn<QPoint>("other");
    QTest::addColumn<QPoint>("dragged");
    QTest::addColumn<QPoint>("turned");
    QTest::newRow("right") << QPoint(3, 4) << QPoint(10, 0) << QPoint(-5, 0);
    QTest::newRow("left") << QPoint(3, 4) << QPoint(-10, 0) << QPoint(5, 0);
    QTest::newRow("down") << QPoint(3, 4) << QPoint(0, 10) << QPoint(0, -5);
    QTest::newRow("up") << QPoint(3, 4) << QPoint(0, -10) << QPoint(0, 5);
    QTest::newRow("right down") << QPoint(-6, 8) << QPoint(3, 4) << QPoint(-6, -8);
    QTest::newRow("left up") << QPoint(-6, 8) << QPoint(-3, -4) << QPoint(6, 8);
    QTest::newRow("right up") << QPoint(0, 10) << QPoint(6, -8) << QPoint(-6, 8);
    QTest::newRow("left down") << QPoint(10, 0) << QPoint(-6, 8) << QPoint(6, -8);
    // 5 at 45 degrees is 3.54 along each axis.
    QTest::newRow("diagonal") << QPoint(0, 5) << QPoint(1, 1) << QPoint(-4, -4);
    QTest::newRow("diagonal back") << QPoint(0, 5) << QPoint(-1, -1) << QPoint(4, 4);
    // The root of 2 is rounded to 1, and that of 5 to 2.
    QTest::newRow("short") << QPoint(1, 1) << QPoint(40, 0) << QPoint(-1, 0);
    QTest::newRow("less short") << QPoint(1, -2) << QPoint(0, 40) << QPoint(0, -2);
}

void TestRegionHandles::directedHandleKeepsItsLength()
{
    QFETCH(QPoint, other);
    QFETCH(QPoint, dragged);
    QFETCH(QPoint, turned);
    OneNode f(LmBezierPoint::kSynchroDirection, QPoint(-1, -1), other);
    f.theItem->setNodeLeftCtrl(0, kAnchor + dragged, false);
    QCOMPARE(f.leftWay(), dragged);
    QCOMPARE(f.rightWay(), turned);
}

void TestRegionHandles::directedHandleWithoutLengthStaysOnTheAnchor()
{
    OneNode f(LmBezierPoint::kSynchroDirection, QPoint(-1, 0), QPoint(0, 0));
    for (int x = -20; x <= 20; ++x)
        for (int y = -20; y <= 20; ++y) {
            f.theItem->setNodeLeftCtrl(0, kAnchor + QPoint(x, y), false);
            QCOMPARE(f.rightWay(), QPoint(0, 0));
        }
}

void TestRegionHandles::directedHandleStaysForAHandleOnTheAnchor()
{
    OneNode f(LmBezierPoint::kSynchroDirection, QPoint(-9, 2), QPoint(17, -11));
    f.theItem->setNodeLeftCtrl(0, kAnchor, false);
    QCOMPARE(f.leftWay(), QPoint(0, 0));
    QCOMPARE(f.rightWay(), QPoint(17, -11));
}

void TestRegionHandles::freeHandleStays()
{
    OneNode f(LmBezierPoint::kSynchroNone, QPoint(-9, 2), QPoint(17, -11));
    f.theItem->setNodeLeftCtrl(0, kAnchor + QPoint(5, 5), false);
    QCOMPARE(f.leftWay(), QPoint(5, 5));
    QCOMPARE(f.rightWay(), QPoint(17, -11));
    f.theItem->setNodeRightCtrl(0, kAnchor + QPoint(6, 6), false);
    QCOMPARE(f.leftWay(), QPoint(5, 5));
    f.theItem->setNodeLeftCtrl(0, QPoint(4, -4), true);
    f.theItem->setNodeRightCtrl(0, QPoint(0, 0), true);
    QCOMPARE(f.leftWay(), QPoint(4, -4));
    QCOMPARE(f.rightWay(), QPoint(0, 0));
}

void TestRegionHandles::rightHandleLeadsTheLeftOne()
{
    OneNode mirror(LmBezierPoint::kSynchroMirror, QPoint(-1, 0), QPoint(3, 4));
    mirror.theItem->setNodeRightCtrl(0, kAnchor + QPoint(8, -2), false);
    QCOMPARE(mirror.rightWay(), QPoint(8, -2));
    QCOMPARE(mirror.leftWay(), QPoint(-8, 2));
    OneNode direction(LmBezierPoint::kSynchroDirection, QPoint(3, 4), QPoint(3, 4));
    direction.theItem->setNodeRightCtrl(0, kAnchor + QPoint(10, 0), false);
    QCOMPARE(direction.leftWay(), QPoint(-5, 0));
}

// The left handle comes to (103, 104) and is taken for the way itself: the reflection is (-3, -4), or the
// opposite of a handle as long as (110, 100) is from (0, 0). Then (103, 104) is added.
void TestRegionHandles::relativeLeftHandleAddsItsPlaceToTheOther()
{
    OneNode mirror(LmBezierPoint::kSynchroMirror, QPoint(-1, 0), QPoint(10, 0));
    mirror.theItem->setNodeLeftCtrl(0, QPoint(3, 4), true);
    QCOMPARE(mirror.left(0), QPoint(103, 104));
    QCOMPARE(mirror.right(0), QPoint(100, 100));
    OneNode direction(LmBezierPoint::kSynchroDirection, QPoint(-1, 0), QPoint(10, 0));
    direction.theItem->setNodeLeftCtrl(0, QPoint(3, 4), true);
    QCOMPARE(direction.right(0), kAnchor + QPoint(-105, -106) + QPoint(103, 104));
}

void TestRegionHandles::relativeRightHandleAddsNothing()
{
    OneNode mirror(LmBezierPoint::kSynchroMirror, QPoint(-10, 0), QPoint(1, 0));
    mirror.theItem->setNodeRightCtrl(0, QPoint(3, 4), true);
    QCOMPARE(mirror.right(0), QPoint(103, 104));
    QCOMPARE(mirror.left(0), QPoint(-3, -4));
    OneNode direction(LmBezierPoint::kSynchroDirection, QPoint(10, 0), QPoint(1, 0));
    direction.theItem->setNodeRightCtrl(0, QPoint(3, 4), true);
    QCOMPARE(direction.left(0), kAnchor + QPoint(-105, -106));
}

void TestRegionHandles::noSynchroOnlyTurnsTheOtherIntoAnOffset()
{
    RegionFixture f;
    QPoint other(117, 89);
    f.theItem->calcOtherCtrlPoint(QPoint(3, 3), kAnchor, other, LmBezierPoint::kSynchroNone, false);
    QCOMPARE(other, QPoint(17, -11));
    f.theItem->calcOtherCtrlPoint(QPoint(3, 3), kAnchor, other, LmBezierPoint::kSynchroNone, true);
    QCOMPARE(other, QPoint(17, -11));
}

void TestRegionHandles::pullingAHandleIsAChange()
{
    OneNode f(LmBezierPoint::kSynchroNone, QPoint(-1, 0), QPoint(1, 0));
    QVERIFY(!f.theItem->isNodesChanged());
    f.theItem->setNodeLeftCtrl(0, kAnchor, false);
    QVERIFY(f.theItem->isNodesChanged());
    f.theItem->theNodesChanged = false;
    f.theItem->setNodeRightCtrl(0, kAnchor, false);
    QVERIFY(f.theItem->isNodesChanged());
}

void TestRegionHandles::followingHandlesOfManyNodes_data()
{
    QTest::addColumn<int>("reach");
    for (const int reach : {2, 30, 1000, 20000})
        QTest::newRow(QByteArray::number(reach).constData()) << reach;
}

void TestRegionHandles::followingHandlesOfManyNodes()
{
    QFETCH(int, reach);
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed + quint32(reach));
    RegionFixture f;
    for (int i = 0; i < 5000; ++i) {
        const QPoint anchor = randomPoint(random, reach);
        const QPoint moved = randomPoint(random, reach);
        const QPoint before = randomPoint(random, reach);
        QPoint other = before;
        f.theItem->calcOtherCtrlPoint(moved, anchor, other, LmBezierPoint::kSynchroMirror, false);
        QCOMPARE(other + moved, anchor + anchor);

        other = before;
        f.theItem->calcOtherCtrlPoint(moved, anchor, other, LmBezierPoint::kSynchroDirection, false);
        const QPointF way = moved - anchor;
        if (way.isNull()) {
            QCOMPARE(other, before);
            continue;
        }
        const QPointF former = before - anchor;
        const QPointF away = -way * std::hypot(former.x(), former.y()) / std::hypot(way.x(), way.y());
        const QPointF off = QPointF(other - anchor) - away;
        QVERIFY(std::abs(off.x()) < 0.5 + 1e-6 && std::abs(off.y()) < 0.5 + 1e-6);
    }
}

void TestRegionHandles::endsOfTheIntRangeStayInside()
{
    const QPoint corners[] = {{kMin, kMin}, {kMax, kMax}, {kMin, kMax}, {kMax, kMin}, {0, 0}, {kMin, 0}};
    RegionFixture f;
    f.add(QPoint(0, 0));
    for (const QPoint& moved : corners)
        for (const QPoint& anchor : corners)
            for (const QPoint& other : corners)
                for (const auto synchro : {LmBezierPoint::kSynchroNone, LmBezierPoint::kSynchroDirection,
                                           LmBezierPoint::kSynchroMirror})
                    for (const bool relative : {false, true}) {
                        LmBezierPoint node(true, false, synchro);
                        node[0] = node[2] = other;
                        node[1] = anchor;
                        f.state(0).synchro = synchro;
                        f.theItem->setNode(0, node);
                        f.theItem->setNodeLeftCtrl(0, moved, relative);
                        f.theItem->setNodeRightCtrl(0, moved, relative);
                        QCOMPARE(f.anchor(0), anchor);
                        QVERIFY(relative || f.right(0) == moved);
                        node.setRelativeHandles(true);
                        node.setRelativeHandles(false);
                        QCOMPARE(node.at(1), anchor);
                    }
}

MEASURE_TEST_MAIN(TestRegionHandles)
#include "TestRegionHandles.moc"
