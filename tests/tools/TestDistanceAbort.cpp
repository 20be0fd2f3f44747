#include "DistanceFixture.h"
#include "TestFont.h"

#include <memory>

/// A drawing that doesn't come to its end in the usual way leaves no half object.
class TestDistanceAbort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<DistanceFixture>(); }
    void cleanup() { theFixture.reset(); }

    void escapeWhileDrawingLeavesNothing();
    void switchingToolsWhileDrawingLeavesNothing();
    void abortWithoutDrawingHasNothingToEnd();
    void undoWhileDrawingGivesTheFreeIndex();

private:
    std::unique_ptr<DistanceFixture> theFixture;
};

void TestDistanceAbort::escapeWhileDrawingLeavesNothing()
{
    DistanceFixture& f = *theFixture;
    f.press(QPoint(20, 30));
    f.move(QPoint(80, 90));
    QCOMPARE(f.itemCount(), 1);
    f.key(Qt::Key_Escape);
    QCOMPARE(f.itemCount(), 0);
    QVERIFY(!f.theTool.theCurrent);
    QVERIFY(!f.theEditor.theCurrentTrack);
    f.move(QPoint(90, 99));
    f.release(QPoint(90, 99));
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.theStack.count(), 0);
    f.drag(QPoint(20, 30), QPoint(80, 90)); // the tool goes on as before
    QCOMPARE(f.theTool.theCvObjects.keys(), QList<int>{1});
}

void TestDistanceAbort::switchingToolsWhileDrawingLeavesNothing()
{
    DistanceFixture& f = *theFixture;
    f.press(QPoint(20, 30));
    f.move(QPoint(80, 90));
    f.theEditor.setCurrentManipulator(nullptr);
    QCOMPARE(f.itemCount(), 0);
    QVERIFY(!f.theTool.theCurrent);
    f.release(QPoint(80, 90));
    QCOMPARE(f.theStack.count(), 0);
}

void TestDistanceAbort::abortWithoutDrawingHasNothingToEnd()
{
    DistanceFixture& f = *theFixture;
    f.drag(QPoint(20, 30), QPoint(80, 90));
    QVERIFY(!f.theTool.abortAction());
    QCOMPARE(f.itemCount(), 1);
    f.press(QPoint(20, 130));
    QVERIFY(f.theTool.abortAction());
    QCOMPARE(f.itemCount(), 1);
}

void TestDistanceAbort::undoWhileDrawingGivesTheFreeIndex()
{
    DistanceFixture& f = *theFixture;
    f.drag(QPoint(20, 30), QPoint(120, 30));
    f.press(QPoint(20, 90));
    f.move(QPoint(70, 90));
    QCOMPARE(f.theTool.theCurrent->theLabel, QStringLiteral("2"));
    f.theStack.undo();
    QCOMPARE(f.itemCount(), 1); // the one being drawn
    f.move(QPoint(120, 90));
    f.release(QPoint(120, 90));
    QCOMPARE(f.theTool.theCvObjects.keys(), QList<int>{1});
    QCOMPARE(f.item(1)->theLabel, QStringLiteral("1"));
    QCOMPARE(f.pos(1), QPoint(110, 120));
    QCOMPARE(f.theStack.count(), 1);
}

MEASURE_TEST_MAIN(TestDistanceAbort)
#include "TestDistanceAbort.moc"
