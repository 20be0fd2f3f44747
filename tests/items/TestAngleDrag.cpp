#include "ItemMouse.h"
#include "LmCvAngle.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <limits>

namespace {

const QPoint theMiddle(300, 300);
const QPoint theUp(300, 172);
const QPoint theRight(428, 300);

} // namespace

class TestAngleDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void pressOnAHeadDragsItsEnd_data();
    void pressOnAHeadDragsItsEnd();
    void pressOnTheLabelDragsTheVertex();
    void pressInsideTheArcMovesTheWhole();
    void pressOnAnArmMovesTheWhole();
    void pressBesideTheFirstFlankMovesTheWhole();
    void headComesBeforeLabelAndArc();
    void labelComesBeforeTheArc();
    void endsThatCoincideAreDraggedFirstEndFirst();
    void missedPressIsIgnored();
    void hiddenItemTakesNoPress();
    void shiftSnapsAnEndAboutTheVertex();
    void shiftSnapsTheVertexAboutWhereItStands();
    void shiftDoesNotSnapTheWhole();
    void moveWithoutPressChangesNothing();
    void releaseEndsAnEditOnly();
    void flagsStayUntilTheNextPress();
    void endOnTheVertexCanBeTakenAwayAgain();
    void dragsToTheEndsOfTheRangeStopThere();

private:
    bool press(const QPoint& aPoint) { return pressOn(*theItem, aPoint); }
    bool move(QPoint aPoint, Qt::KeyboardModifiers aModifiers = {})
    {
        return moveOn(*theItem, aPoint, aModifiers);
    }
    bool release(const QPoint& aPoint) { return releaseOn(*theItem, aPoint); }
    QList<QPoint> points() const { return {theItem->theVertex, theItem->theEnd1, theItem->theEnd2}; }

    Q3Canvas theCanvas{1000, 1000};
    LmCvAngle* theItem = nullptr;
};

void TestAngleDrag::init()
{
    theItem = new LmCvAngle(nullptr, &theCanvas, QStringLiteral("1"), nullptr);
    theItem->setPoints(theMiddle, theUp, theRight);
    theItem->show();
    QCOMPARE(theItem->theSelSize, 8);
}

void TestAngleDrag::pressOnAHeadDragsItsEnd_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<int>("node");
    QTest::newRow("first") << theUp << 1;
    QTest::newRow("second") << theRight << 2;
}

void TestAngleDrag::pressOnAHeadDragsItsEnd()
{
    QFETCH(QPoint, from);
    QFETCH(int, node);
    QVERIFY(press(from));
    QCOMPARE(theItem->theDragNode, node);
    QVERIFY(theItem->theDragging && !theItem->theMoving && !theItem->isNodesChanged());
    for (const QPoint& to : {QPoint(400, 410), QPoint(222, 333)}) {
        QVERIFY(move(to));
        QList<QPoint> expected{theMiddle, theUp, theRight};
        expected[node] = to;
        QCOMPARE(points(), expected);
        QVERIFY(theItem->isNodesChanged());
    }
}

void TestAngleDrag::pressOnTheLabelDragsTheVertex()
{
    const QPoint onLabel = theItem->theLabelRect.bottomRight(); // outside the sector, beside the arms
    QVERIFY(press(onLabel));
    QCOMPARE(theItem->theDragNode, 0);
    QVERIFY(theItem->theDragging && !theItem->theMoving);
    const double before = theItem->getAngle();
    QVERIFY(move(QPoint(330, 260)));
    QCOMPARE(points(), (QList<QPoint>{QPoint(330, 260), theUp, theRight}));
    QVERIFY(theItem->getAngle() != before); // the ends stay, so the angle changes
    QVERIFY(theItem->isNodesChanged());
}

void TestAngleDrag::pressInsideTheArcMovesTheWhole()
{
    QVERIFY(press(QPoint(315, 285)));
    QVERIFY(theItem->theMoving && !theItem->theDragging);
    QCOMPARE(theItem->theDragPoint, QPoint(315, 285));
    QVERIFY(!theItem->isNodesChanged());
    QVERIFY(move(QPoint(325, 280)));
    const QPoint way(10, -5);
    QCOMPARE(points(), (QList<QPoint>{theMiddle + way, theUp + way, theRight + way}));
    QCOMPARE(theItem->theDragPoint, QPoint(325, 280));
    QVERIFY(theItem->isNodesChanged());
    QVERIFY(move(QPoint(315, 285)));
    QCOMPARE(points(), (QList<QPoint>{theMiddle, theUp, theRight}));
}

void TestAngleDrag::pressOnAnArmMovesTheWhole()
{
    for (const QPoint& point : {QPoint(300, 230), QPoint(370, 300)}) {
        QVERIFY(press(point));
        QVERIFY(theItem->theMoving && !theItem->theDragging);
    }
}

void TestAngleDrag::pressBesideTheFirstFlankMovesTheWhole()
{
    // The right arm's second flank ends at (419, 303), the first one at (419, 297).
    QVERIFY(press(QPoint(419, 297)));
    QVERIFY(theItem->theMoving);
    QVERIFY(press(QPoint(419, 303)));
    QVERIFY(theItem->theDragging && !theItem->theMoving);
    QCOMPARE(theItem->theDragNode, 2);
}

void TestAngleDrag::headComesBeforeLabelAndArc()
{
    const QPoint onLabel = theItem->theLabelRect.center();
    theItem->setPoints(theMiddle, theUp, onLabel);
    QVERIFY(press(onLabel));
    QCOMPARE(theItem->theDragNode, 2);
    const QPoint insideArc = theMiddle + QPoint(15, -15);
    theItem->setPoints(theMiddle, insideArc, theRight);
    QVERIFY(press(insideArc));
    QCOMPARE(theItem->theDragNode, 1);
    QVERIFY(theItem->theDragging);
}

void TestAngleDrag::labelComesBeforeTheArc()
{
    theItem->setPoints(theMiddle, theRight, theUp); // the arc spans the three quarters with the label
    const QPoint onLabel = theItem->theLabelRect.center();
    int node = 0;
    QVERIFY(theItem->isPointOnObject(onLabel, node, 8));
    QVERIFY(press(onLabel));
    QVERIFY(theItem->theDragging && !theItem->theMoving);
    QCOMPARE(theItem->theDragNode, 0);
}

void TestAngleDrag::endsThatCoincideAreDraggedFirstEndFirst()
{
    theItem->setPoints(theMiddle, theUp, theUp);
    QVERIFY(press(theUp));
    QCOMPARE(theItem->theDragNode, 1);
    QVERIFY(move(theRight));
    QCOMPARE(points(), (QList<QPoint>{theMiddle, theRight, theUp}));
}

void TestAngleDrag::missedPressIsIgnored()
{
    QVERIFY(press(QPoint(315, 285)));
    QVERIFY(!press(QPoint(200, 400)));
    QVERIFY(!theItem->theMoving && !theItem->theDragging);
    QVERIFY(!move(QPoint(210, 400)));
    QCOMPARE(points(), (QList<QPoint>{theMiddle, theUp, theRight}));
}

void TestAngleDrag::hiddenItemTakesNoPress()
{
    const QPoint places[] = {theUp, theRight, theItem->theLabelRect.center(), QPoint(315, 285)};
    for (const QPoint& place : places)
        QVERIFY(press(place));
    theItem->hide();
    for (const QPoint& place : places) {
        QVERIFY(!press(place));
        QVERIFY(!theItem->theMoving && !theItem->theDragging);
    }
}

void TestAngleDrag::shiftSnapsAnEndAboutTheVertex()
{
    QVERIFY(press(theUp));
    QPoint point(400, 310); // 5.7 degrees from the vertex
    Mouse event(QEvent::MouseMove, point, Qt::ShiftModifier);
    theItem->mouseMoveEvent(&event, point);
    QCOMPARE(theItem->theEnd1, QPoint(400, 300));
    QCOMPARE(point, QPoint(400, 300));                  // the corrected point goes back to the editor
    QVERIFY(move(QPoint(400, 390), Qt::ShiftModifier)); // 42 degrees
    QCOMPARE(theItem->theEnd1, QPoint(400, 400));
    QVERIFY(move(QPoint(400, 390)));
    QCOMPARE(theItem->theEnd1, QPoint(400, 390));
    QVERIFY(press(theRight));
    QVERIFY(move(QPoint(309, 200), Qt::ShiftModifier));
    QCOMPARE(theItem->theEnd2, QPoint(300, 200));
}

void TestAngleDrag::shiftSnapsTheVertexAboutWhereItStands()
{
    QVERIFY(press(theItem->theLabelRect.bottomRight()));
    QVERIFY(move(QPoint(350, 305), Qt::ShiftModifier));
    QCOMPARE(theItem->theVertex, QPoint(350, 300));
    // The next step starts from there: 10 below and 2 beside (350, 300), not (300, 300).
    QVERIFY(move(QPoint(352, 310), Qt::ShiftModifier));
    QCOMPARE(points(), (QList<QPoint>{QPoint(350, 310), theUp, theRight}));
}

void TestAngleDrag::shiftDoesNotSnapTheWhole()
{
    QVERIFY(press(QPoint(315, 285)));
    QVERIFY(move(QPoint(415, 288), Qt::ShiftModifier));
    QCOMPARE(theItem->theVertex, QPoint(400, 303));
}

void TestAngleDrag::moveWithoutPressChangesNothing()
{
    Mouse event(QEvent::MouseMove, theUp);
    QPoint point = theUp;
    for (const bool accepted : {true, false}) {
        event.setAccepted(accepted);
        theItem->mouseMoveEvent(&event, point);
        QCOMPARE(event.isAccepted(), accepted);
    }
    QVERIFY(!theItem->isNodesChanged());
}

void TestAngleDrag::releaseEndsAnEditOnly()
{
    QVERIFY(!release(theUp));
    QVERIFY(!theItem->theEditDone);
    for (const QPoint& place : {theUp, QPoint(315, 285), theItem->theLabelRect.center()}) {
        QVERIFY(press(place));
        QVERIFY(!theItem->theEditDone);
        QVERIFY(release(place));
        QVERIFY(theItem->theEditDone);
        QVERIFY(!theItem->isNodesChanged());
    }
}

void TestAngleDrag::flagsStayUntilTheNextPress()
{
    press(theUp);
    move(QPoint(290, 172));
    release(QPoint(290, 172));
    QVERIFY(theItem->theDragging);
    QVERIFY(theItem->isNodesChanged());
    QVERIFY(press(QPoint(290, 172)));
    QVERIFY(!theItem->isNodesChanged());
}

void TestAngleDrag::endOnTheVertexCanBeTakenAwayAgain()
{
    QVERIFY(press(theUp));
    QVERIFY(move(theMiddle));
    QVERIFY(release(theMiddle));
    QCOMPARE(points(), (QList<QPoint>{theMiddle, theMiddle, theRight}));
    QVERIFY(press(theMiddle));
    QCOMPARE(theItem->theDragNode, 1);
    QVERIFY(move(theUp));
    QCOMPARE(points(), (QList<QPoint>{theMiddle, theUp, theRight}));
}

void TestAngleDrag::dragsToTheEndsOfTheRangeStopThere()
{
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    QVERIFY(press(QPoint(315, 285)));
    QVERIFY(move(QPoint(kMax, kMin)));
    QCOMPARE(theItem->theEnd2.x(), kMax);
    QVERIFY(theItem->theEnd1.y() < theItem->theVertex.y() || theItem->theEnd1.y() == kMin);
    QVERIFY(press(theItem->theEnd2));
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
        QVERIFY(move(QPoint(kMin, kMax), modifier));
        QVERIFY(move(QPoint(kMin, kMin), modifier));
    }
    QCOMPARE(theItem->areaPoints().size(), 11);
}

MEASURE_TEST_MAIN(TestAngleDrag)
#include "TestAngleDrag.moc"
