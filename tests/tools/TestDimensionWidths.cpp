#include "DimensionFixture.h"
#include "TestFont.h"

#include <QMouseEvent>

#include <memory>

/// Alt drags: further widths of the current dimension.
class TestDimensionWidths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void altDragShowsTheNewLineAtOnce();
    void altDragIsAChangeOfTheObject();
    void threeWidthsFollowEachOther();
    void altPressOnAFullDimensionStartsANewOne();
    void altPressWithoutACurrentDimensionStartsANewOne();
    void altPressOnAnItemOfAnotherKindStartsANewOne();
    void altPressOnALineDrawsAWidthAndDragsNothing();
    void altDragAcrossAnotherDimensionGoesToTheCurrentOne();
    void pressOnALineWithoutAltDragsIt();
    void onlyTheLeftButtonIsClaimedWithAlt();
    void widthGoesToTheDimensionThatIsCurrent();
    void altClickLeavesEverythingAsItWas();
    void shiftSnapsTheWidth();
    void undoOfAWidthRestoresTheEarlierPoints();
    void deleteNeverTakesASingleWidth();
    void widthKeepsValueColourAndVisibility();
    void labelIsBlankDuringTheDrag();
    void dimensionOfSevenPointsTakesOneMore();
    void dimensionWithoutPointsTakesNone();

private:
    std::unique_ptr<DimensionFixture> theFixture;
};

// A height from (20, 20) to (20, 120).
void TestDimensionWidths::init()
{
    theFixture = std::make_unique<DimensionFixture>();
    theFixture->drag(QPoint(20, 20), QPoint(20, 120));
    QCOMPARE(theFixture->theStack.count(), 1);
}

void TestDimensionWidths::altDragShowsTheNewLineAtOnce()
{
    DimensionFixture& f = *theFixture;
    f.press(QPoint(60, 40), Qt::AltModifier);
    QCOMPARE(f.theTool.theCurrent, f.item(1));
    QCOMPARE(f.theTool.theNewSegment, 1);
    QCOMPARE(f.item(1)->thePoints.size(), 2); // nothing to see before the first move
    f.move(QPoint(90, 45), Qt::AltModifier);
    QCOMPARE(QPolygon(f.item(1)->thePoints),
             QPolygon({QPoint(20, 20), QPoint(20, 120), QPoint(60, 40), QPoint(90, 45)}));
    f.move(QPoint(160, 40), Qt::AltModifier);
    QCOMPARE(QPolygon(f.item(1)->thePoints),
             QPolygon({QPoint(20, 20), QPoint(20, 120), QPoint(60, 40), QPoint(160, 40)}));
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.theStack.count(), 1);
    f.release(QPoint(160, 40), Qt::AltModifier);
}

void TestDimensionWidths::altDragIsAChangeOfTheObject()
{
    DimensionFixture& f = *theFixture;
    f.altDrag(QPoint(60, 40), QPoint(160, 40));
    QVERIFY(!f.theTool.theCurrent);
    QVERIFY(!f.theTool.theSelfChange);
    QCOMPARE(f.theStack.count(), 2);
    QVERIFY(dynamic_cast<const CmdChangeObject*>(f.theStack.command(1)));
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(f.points(1), QPolygon({QPoint(60, 50), QPoint(60, 150), QPoint(100, 70), QPoint(200, 70)}));
    QCOMPARE(f.pos(1), QPoint(60, 100)); // still the height's middle
}

void TestDimensionWidths::threeWidthsFollowEachOther()
{
    DimensionFixture& f = *theFixture;
    for (int i = 1; i <= 3; ++i) {
        f.press(QPoint(60, 40 * i), Qt::AltModifier);
        QCOMPARE(f.theTool.theNewSegment, i);
        f.move(QPoint(100 + i, 40 * i), Qt::AltModifier);
        f.release(QPoint(100 + i, 40 * i), Qt::AltModifier);
    }
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.points(1).size(), 8);
    QCOMPARE(f.points(1)[6], QPoint(100, 150));
    QCOMPARE(f.points(1)[7], QPoint(143, 150));
    QCOMPARE(f.theStack.count(), 4);
}

void TestDimensionWidths::altPressOnAFullDimensionStartsANewOne()
{
    DimensionFixture& f = *theFixture;
    for (int i = 1; i <= 3; ++i)
        f.altDrag(QPoint(60, 40 * i), QPoint(100, 40 * i));
    QCOMPARE(f.item(1)->thePoints.size(), 8);
    f.altDrag(QPoint(60, 200), QPoint(100, 200));
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2}));
    QCOMPARE(f.item(1)->thePoints.size(), 8);
    QCOMPARE(f.points(2), QPolygon({QPoint(100, 230), QPoint(140, 230)}));
    f.altDrag(QPoint(150, 200), QPoint(200, 200)); // which takes widths in its turn
    QCOMPARE(f.points(2).size(), 4);
}

void TestDimensionWidths::altPressWithoutACurrentDimensionStartsANewOne()
{
    DimensionFixture& f = *theFixture;
    f.theEditor.activateItem(nullptr);
    f.altDrag(QPoint(60, 40), QPoint(160, 40));
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2}));
    QCOMPARE(f.item(1)->thePoints.size(), 2);
    QCOMPARE(f.item(2)->thePoints.size(), 2);
}

void TestDimensionWidths::altPressOnAnItemOfAnotherKindStartsANewOne()
{
    struct Foreign : LmCvDimension
    {
        using LmCvDimension::LmCvDimension;
        int rtti() const override { return 1102; }
    };
    DimensionFixture& f = *theFixture;
    auto* foreign = new Foreign(nullptr, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    foreign->setPoints(Q3PointArray() << QPoint(200, 20) << QPoint(200, 120));
    foreign->show();
    f.theEditor.activateItem(foreign);
    f.altDrag(QPoint(60, 40), QPoint(160, 40));
    QCOMPARE(foreign->thePoints.size(), 2);
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2}));
}

void TestDimensionWidths::altPressOnALineDrawsAWidthAndDragsNothing()
{
    DimensionFixture& f = *theFixture;
    f.altDrag(QPoint(20, 70), QPoint(90, 70)); // from the height's middle
    QCOMPARE(QPolygon(f.item(1)->thePoints),
             QPolygon({QPoint(20, 20), QPoint(20, 120), QPoint(20, 70), QPoint(90, 70)}));
}

void TestDimensionWidths::altDragAcrossAnotherDimensionGoesToTheCurrentOne()
{
    DimensionFixture& f = *theFixture;
    f.drag(QPoint(200, 20), QPoint(200, 120));
    QCOMPARE(f.theEditor.theCurrentTrack, f.item(2));
    f.altDrag(QPoint(20, 70), QPoint(90, 70)); // from the first one's line
    QCOMPARE(f.item(1)->thePoints.size(), 2);
    QCOMPARE(f.item(2)->thePoints.size(), 4);
}

void TestDimensionWidths::pressOnALineWithoutAltDragsIt()
{
    DimensionFixture& f = *theFixture;
    f.drag(QPoint(20, 70), QPoint(50, 70));
    QCOMPARE(QPolygon(f.item(1)->thePoints), QPolygon({QPoint(50, 20), QPoint(50, 120)}));
    QCOMPARE(f.itemCount(), 1);
}

void TestDimensionWidths::onlyTheLeftButtonIsClaimedWithAlt()
{
    DimensionFixture& f = *theFixture;
    const auto claims = [&f](Qt::MouseButton aButton, Qt::KeyboardModifiers aModifiers) {
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(60, 40), QPointF(60, 40), aButton, aButton,
                          aModifiers);
        return f.theTool.claimsPress(&event, nullptr);
    };
    QVERIFY(claims(Qt::LeftButton, Qt::AltModifier));
    QVERIFY(!claims(Qt::RightButton, Qt::AltModifier)); // the menu stays in reach
    QVERIFY(!claims(Qt::LeftButton, Qt::NoModifier));
    QVERIFY(!claims(Qt::LeftButton, Qt::ShiftModifier));
    f.theEditor.activateItem(nullptr);
    QVERIFY(!claims(Qt::LeftButton, Qt::AltModifier));
}

void TestDimensionWidths::widthGoesToTheDimensionThatIsCurrent()
{
    DimensionFixture& f = *theFixture;
    f.drag(QPoint(200, 20), QPoint(200, 120));
    f.click(QPoint(20, 70)); // the first one again
    QCOMPARE(f.theEditor.theCurrentTrack, f.item(1));
    f.altDrag(QPoint(60, 40), QPoint(160, 40));
    QCOMPARE(f.points(1).size(), 4);
    QCOMPARE(f.points(2).size(), 2);
}

void TestDimensionWidths::altClickLeavesEverythingAsItWas()
{
    DimensionFixture& f = *theFixture;
    f.press(QPoint(60, 40), Qt::AltModifier);
    f.release(QPoint(60, 40), Qt::AltModifier);
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.item(1)->thePoints.size(), 2);
    QVERIFY(!f.theTool.theCurrent);
}

void TestDimensionWidths::shiftSnapsTheWidth()
{
    DimensionFixture& f = *theFixture;
    f.drag(QPoint(60, 40), QPoint(160, 50), Qt::AltModifier | Qt::ShiftModifier);
    QCOMPARE(f.item(1)->thePoints[3], QPoint(160, 40));
}

void TestDimensionWidths::undoOfAWidthRestoresTheEarlierPoints()
{
    DimensionFixture& f = *theFixture;
    f.altDrag(QPoint(60, 40), QPoint(160, 40));
    f.altDrag(QPoint(60, 80), QPoint(170, 80));
    f.theStack.undo();
    QCOMPARE(QPolygon(f.item(1)->thePoints),
             QPolygon({QPoint(20, 20), QPoint(20, 120), QPoint(60, 40), QPoint(160, 40)}));
    f.theStack.undo();
    QCOMPARE(QPolygon(f.item(1)->thePoints), QPolygon({QPoint(20, 20), QPoint(20, 120)}));
    QCOMPARE(f.points(1), QPolygon({QPoint(60, 50), QPoint(60, 150)}));
    f.theStack.redo();
    f.theStack.redo();
    QCOMPARE(f.item(1)->thePoints.size(), 6);
    QCOMPARE(f.item(1)->thePoints[5], QPoint(170, 80));
}

void TestDimensionWidths::deleteNeverTakesASingleWidth()
{
    DimensionFixture& f = *theFixture;
    f.altDrag(QPoint(60, 40), QPoint(160, 40));
    f.theEditor.setCurrentManipulator(nullptr);
    for (const QPoint& part : {QPoint(110, 40), QPoint(164, 40)}) { // the line of the width and a handle
        f.click(part);
        QCOMPARE(f.theEditor.theCurrentTrack, f.item(1));
        f.key(Qt::Key_Delete);
        QCOMPARE(f.recordCount(), 0);
        QCOMPARE(f.itemCount(), 0);
        f.theStack.undo();
        QCOMPARE(f.points(1).size(), 4);
    }
}

void TestDimensionWidths::widthKeepsValueColourAndVisibility()
{
    DimensionFixture& f = *theFixture;
    f.theTool.setColorCvObject(f.item(1), Qt::blue);
    f.show(1, QStringLiteral("Height"));
    f.altDrag(QPoint(60, 40), QPoint(160, 40));
    QCOMPARE(f.stored(1112, 1, DimensionFixture::kCol), QVariant(QColor(Qt::blue)));
    QCOMPARE(f.stored(1112, 1, DimensionFixture::kDispv), QVariant(QStringLiteral("Height")));
    QCOMPARE(f.stored(1112, 1, DimensionFixture::kVis), QVariant(true));
}

void TestDimensionWidths::labelIsBlankDuringTheDrag()
{
    DimensionFixture& f = *theFixture;
    f.show(1, QStringLiteral("Height"));
    QCOMPARE(f.shown(1), QStringLiteral("H: 100.00"));
    f.press(QPoint(60, 40), Qt::AltModifier);
    f.move(QPoint(160, 40), Qt::AltModifier);
    QCOMPARE(f.shown(1), QString());
    f.release(QPoint(160, 40), Qt::AltModifier);
    QCOMPARE(f.shown(1), QStringLiteral("H: 100.00"));
}

void TestDimensionWidths::dimensionOfSevenPointsTakesOneMore()
{
    // As a damaged file may have it: the point that makes no segment gives way.
    DimensionFixture& f = *theFixture;
    f.item(1)->setPoints(
        Q3PointArray(QList<QPoint>{{20, 20}, {20, 120}, {60, 40}, {90, 40}, {60, 60}, {90, 60}, {300, 200}}));
    f.altDrag(QPoint(60, 80), QPoint(160, 80));
    QCOMPARE(f.points(1).size(), 8);
    QCOMPARE(f.points(1)[6], QPoint(100, 110));
}

void TestDimensionWidths::dimensionWithoutPointsTakesNone()
{
    DimensionFixture& f = *theFixture;
    f.item(1)->setPoints(Q3PointArray());
    f.altDrag(QPoint(60, 80), QPoint(160, 80));
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2}));
    QVERIFY(f.item(2) != f.item(1));
}

MEASURE_TEST_MAIN(TestDimensionWidths)
#include "TestDimensionWidths.moc"
