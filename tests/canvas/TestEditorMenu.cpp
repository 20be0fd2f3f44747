#include "EditorFixture.h"
#include "TestFont.h"

#include <QSignalSpy>

/// The right button and the context menu.
class TestEditorMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rightButtonGoesToTheGrabberAlone();
    void menuIsForTheItemOrTheCanvas();
    void noMenuDuringAnAction();
    void rightPressThatTheToolClaimsIsItsOwnAndOpensNoMenu();
};

void TestEditorMenu::rightButtonGoesToTheGrabberAlone()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.press(QPoint(60, 60), Qt::RightButton);
    f.release(QPoint(60, 60), Qt::RightButton);
    f.press(EditorFixture::kEmpty, Qt::RightButton);
    f.release(EditorFixture::kEmpty, Qt::RightButton);
    QVERIFY(f.theTool.theEvents.isEmpty());
    QCOMPARE(item->thePresses, 0);

    f.theEditor.setMouseGrabber(&f.theTool, true);
    f.press(EditorFixture::kEmpty, Qt::RightButton);
    QCOMPARE(f.theTool.theLastButton, Qt::RightButton);
    f.release(EditorFixture::kEmpty, Qt::RightButton);
    QCOMPARE(f.theTool.theEvents, (QStringList{ProbeTool::noted("press", EditorFixture::kEmpty),
                                               ProbeTool::noted("release", EditorFixture::kEmpty)}));
}

void TestEditorMenu::menuIsForTheItemOrTheCanvas()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    QSignalSpy menu(&f.theEditor, &LmCvEditor::signalContextMenu);
    QVERIFY(f.contextMenu(QPoint(60, 60)));
    QVERIFY(f.contextMenu(EditorFixture::kEmpty));
    QCOMPARE(menu.count(), 2);
    QCOMPARE(menu[0][0].value<LmCvObject*>(), item);
    QCOMPARE(menu[0][1].toPoint(), QPoint(60, 60));
    QVERIFY(!menu[1][0].value<LmCvObject*>());
    // With a tool of another type too.
    f.theEditor.setCurrentManipulator(&f.theOtherTool);
    f.contextMenu(QPoint(60, 60));
    QCOMPARE(menu[2][0].value<LmCvObject*>(), item);
}

void TestEditorMenu::noMenuDuringAnAction()
{
    EditorFixture f;
    QSignalSpy menu(&f.theEditor, &LmCvEditor::signalContextMenu);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.press(EditorFixture::kEmpty);
    f.press(EditorFixture::kEmpty, Qt::RightButton);
    f.contextMenu(EditorFixture::kEmpty);
    f.release(EditorFixture::kEmpty, Qt::RightButton);
    f.release(EditorFixture::kEmpty);
    QCOMPARE(menu.count(), 0);

    // The right press that ended the tool's action opens no menu either.
    f.theEditor.setMouseGrabber(&f.theTool, true);
    f.press(EditorFixture::kEmpty, Qt::RightButton);
    f.theEditor.setMouseGrabber(nullptr, false);
    f.release(EditorFixture::kEmpty, Qt::RightButton);
    f.contextMenu(EditorFixture::kEmpty);
    QCOMPARE(menu.count(), 0);

    f.press(EditorFixture::kEmpty, Qt::RightButton);
    f.contextMenu(EditorFixture::kEmpty);
    f.release(EditorFixture::kEmpty, Qt::RightButton);
    QCOMPARE(menu.count(), 1);
}

void TestEditorMenu::rightPressThatTheToolClaimsIsItsOwnAndOpensNoMenu()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    QSignalSpy menu(&f.theEditor, &LmCvEditor::signalContextMenu);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theTool.theClaims = true;
    f.press(QPoint(60, 60), Qt::RightButton);
    QCOMPARE(f.theTool.theClaimedHit, item);
    QCOMPARE(f.theTool.theLastButton, Qt::RightButton);
    f.release(QPoint(60, 60), Qt::RightButton);
    f.contextMenu(QPoint(60, 60));
    QCOMPARE(f.theTool.theEvents, (QStringList{ProbeTool::noted("press", QPoint(60, 60)),
                                               ProbeTool::noted("release", QPoint(60, 60))}));
    QCOMPARE(menu.count(), 0);

    f.theTool.theClaims = false;
    f.press(QPoint(60, 60), Qt::RightButton);
    f.release(QPoint(60, 60), Qt::RightButton);
    f.contextMenu(QPoint(60, 60));
    QCOMPARE(f.theTool.theEvents.size(), 2);
    QCOMPARE(menu.count(), 1);
}

MEASURE_TEST_MAIN(TestEditorMenu)
#include "TestEditorMenu.moc"
