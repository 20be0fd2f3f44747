#include "EditorFixture.h"
#include "TestFont.h"

#include <QKeyEvent>
#include <QSignalSpy>

class TestEditorKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void escapeEndsTheToolsActionFirstAndThenTheTool();
    void escapeBringsADraggedItemBack();
    void escapeAbandonsTheRubberBand();
    void lostReleaseDoesNotBlockTheNextPress();
    void keysGoToTheTool();
    void deleteKeyIsTheToolsWhileOneIsActive();
};

void TestEditorKeys::escapeEndsTheToolsActionFirstAndThenTheTool()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theEditor.setMouseGrabber(&f.theTool, true);
    f.press(EditorFixture::kEmpty);
    f.theTool.theHasAction = true;
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Escape);
    QVERIFY(!f.theTool.theHasAction);
    QVERIFY(!f.theEditor.mouseGrabber());
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    f.move(EditorFixture::kEmpty + QPoint(10, 0));
    f.release(EditorFixture::kEmpty + QPoint(10, 0));
    QCOMPARE(f.theTool.theEvents.filter(QStringLiteral("release")).size(), 0);
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Escape);
    QVERIFY(!f.theEditor.theCurrentManipulator);
}

void TestEditorKeys::escapeBringsADraggedItemBack()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCanvasObjectChanged);
    f.press(QPoint(60, 60));
    f.move(QPoint(90, 60));
    QCOMPARE(item->theCorner, QPoint(80, 50));
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Escape);
    QCOMPARE(item->theCorner, QPoint(50, 50));
    f.move(QPoint(120, 60));
    f.release(QPoint(120, 60));
    QCOMPARE(item->theCorner, QPoint(50, 50));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(f.theStack.count(), 1);
    QVERIFY(!item->theMoving);
}

void TestEditorKeys::escapeAbandonsTheRubberBand()
{
    EditorFixture f;
    f.theTool.create(QPoint(50, 50));
    f.press(QPoint(40, 40));
    f.move(QPoint(100, 100));
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Escape);
    f.release(QPoint(100, 100));
    QVERIFY(f.theEditor.selection().items().isEmpty());
    f.drag(QPoint(40, 40), QPoint(100, 100));
    QCOMPARE(f.theEditor.selection().items().size(), 1);
}

void TestEditorKeys::lostReleaseDoesNotBlockTheNextPress()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.press(QPoint(60, 60));
    f.move(QPoint(70, 60));
    f.drag(QPoint(60, 60), QPoint(60, 80));
    QCOMPARE(item->theCorner, QPoint(50, 70));
}

void TestEditorKeys::keysGoToTheTool()
{
    EditorFixture f;
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_A);
    QVERIFY(f.theTool.theEvents.isEmpty());
    f.theEditor.setCurrentManipulator(&f.theTool);
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_A);
    QCOMPARE(f.theTool.theEvents, (QStringList{QStringLiteral("key %1").arg(Qt::Key_A),
                                               QStringLiteral("keyup %1").arg(Qt::Key_A)}));
}

void TestEditorKeys::deleteKeyIsTheToolsWhileOneIsActive()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.activateItem(item);
    f.theEditor.setCurrentManipulator(&f.theTool);
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Delete);
    QVERIFY(f.theTool.item(1));
    QVERIFY(f.theTool.theEvents.contains(QStringLiteral("keyup %1").arg(Qt::Key_Delete)));
    f.theEditor.setCurrentManipulator(nullptr);
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Delete);
    QVERIFY(!f.theTool.item(1));
}

MEASURE_TEST_MAIN(TestEditorKeys)
#include "TestEditorKeys.moc"
