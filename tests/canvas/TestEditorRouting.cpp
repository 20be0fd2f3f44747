#include "EditorFixture.h"
#include "TestFont.h"

#include <QSignalSpy>

class TestEditorRouting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toolGetsPressMoveAndReleaseInCanvasCoordinates();
    void noToolGetsNothing();
    void moveWithoutButtonGoesOnlyToTheGrabber();
    void grabberComesBeforeItemsAndTheCurrentTool();
    void toolThatClaimsComesBeforeItsItem();
    void furtherButtonsAreSwallowedDuringAToolsAction();
    void ignoredPressBeginsNoAction();
    void quickSecondClickIsAPressUnlessTheToolTakesIt();
    void leavingTheViewIsTold();
};

void TestEditorRouting::toolGetsPressMoveAndReleaseInCanvasCoordinates()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    for (const double zoom : {1.0, 2.0, 0.5}) {
        f.theEditor.setZoom(zoom);
        f.theTool.theEvents.clear();
        const QPoint from(200, 150); // even: below zoom 1 the pointer can't reach every canvas pixel
        const QPoint to = from + QPoint(20, 10);
        f.press(from);
        QCOMPARE(f.theTool.theLastButton, Qt::LeftButton);
        f.move(to);
        QCOMPARE(f.theTool.theLastButtons, Qt::MouseButtons(Qt::LeftButton));
        f.release(to);
        QCOMPARE(f.theTool.theEvents,
                 (QStringList{ProbeTool::noted("press", from), ProbeTool::noted("move", to),
                              ProbeTool::noted("release", to)}));
    }
}

void TestEditorRouting::noToolGetsNothing()
{
    EditorFixture f;
    f.drag(EditorFixture::kEmpty, EditorFixture::kEmpty + QPoint(20, 20));
    QVERIFY(f.theTool.theEvents.isEmpty());
}

void TestEditorRouting::moveWithoutButtonGoesOnlyToTheGrabber()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.move(EditorFixture::kEmpty);
    QVERIFY(f.theTool.theEvents.isEmpty());
    f.theEditor.setMouseGrabber(&f.theTool, true);
    f.move(EditorFixture::kEmpty);
    QCOMPARE(f.theTool.theEvents, QStringList(ProbeTool::noted("move", EditorFixture::kEmpty)));
    f.theEditor.setMouseGrabber(nullptr, false);
    f.move(EditorFixture::kEmpty + QPoint(5, 5));
    QCOMPARE(f.theTool.theEvents.size(), 1);
}

void TestEditorRouting::grabberComesBeforeItemsAndTheCurrentTool()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theEditor.setMouseGrabber(&f.theOtherTool, true);
    f.drag(QPoint(60, 60), QPoint(90, 60));
    QCOMPARE(item->thePresses, 0);
    QVERIFY(f.theTool.theEvents.isEmpty());
    QCOMPARE(f.theOtherTool.theEvents.first(), ProbeTool::noted("press", QPoint(60, 60)));
    QCOMPARE(f.theOtherTool.theEvents.last(), ProbeTool::noted("release", QPoint(90, 60)));
    f.theEditor.setMouseGrabber(nullptr, false);
    f.click(QPoint(60, 60));
    QCOMPARE(item->thePresses, 1);
}

void TestEditorRouting::toolThatClaimsComesBeforeItsItem()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theTool.theClaims = true;
    f.click(QPoint(60, 60));
    QCOMPARE(f.theTool.theClaimedHit, item);
    QCOMPARE(item->thePresses, 0);
    QCOMPARE(f.theTool.theEvents, (QStringList{ProbeTool::noted("press", QPoint(60, 60)),
                                               ProbeTool::noted("release", QPoint(60, 60))}));
    f.theTool.theClaims = false;
    f.click(QPoint(60, 60));
    QCOMPARE(item->thePresses, 1);
    QCOMPARE(f.theTool.theEvents.size(), 2);
}

void TestEditorRouting::furtherButtonsAreSwallowedDuringAToolsAction()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.press(EditorFixture::kEmpty);
    f.press(EditorFixture::kEmpty, Qt::RightButton);
    f.release(EditorFixture::kEmpty, Qt::RightButton);
    QCOMPARE(f.theTool.theEvents, QStringList(ProbeTool::noted("press", EditorFixture::kEmpty)));
    f.release(EditorFixture::kEmpty);
    QCOMPARE(f.theTool.theEvents.last(), ProbeTool::noted("release", EditorFixture::kEmpty));
    QCOMPARE(f.theTool.theEvents.size(), 2);
}

void TestEditorRouting::ignoredPressBeginsNoAction()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theTool.theAcceptsPress = false;
    f.drag(EditorFixture::kEmpty, EditorFixture::kEmpty + QPoint(20, 0));
    QCOMPARE(f.theTool.theEvents, QStringList(ProbeTool::noted("press", EditorFixture::kEmpty)));
}

void TestEditorRouting::quickSecondClickIsAPressUnlessTheToolTakesIt()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    QTest::mouseEvent(QTest::MouseDClick, f.theEditor.viewport(), Qt::LeftButton, Qt::NoModifier,
                      f.toViewport(EditorFixture::kEmpty));
    f.release(EditorFixture::kEmpty);
    QCOMPARE(f.theTool.theEvents, (QStringList{ProbeTool::noted("double", EditorFixture::kEmpty),
                                               ProbeTool::noted("press", EditorFixture::kEmpty),
                                               ProbeTool::noted("release", EditorFixture::kEmpty)}));
    f.theTool.theEvents.clear();
    f.theTool.theAcceptsDoubleClick = true;
    QTest::mouseEvent(QTest::MouseDClick, f.theEditor.viewport(), Qt::LeftButton, Qt::NoModifier,
                      f.toViewport(EditorFixture::kEmpty));
    f.release(EditorFixture::kEmpty);
    QCOMPARE(f.theTool.theEvents, QStringList(ProbeTool::noted("double", EditorFixture::kEmpty)));
}

void TestEditorRouting::leavingTheViewIsTold()
{
    EditorFixture f;
    QSignalSpy left(&f.theEditor, &LmCvEditor::signalPointerLeft);
    f.theEditor.setCurrentManipulator(&f.theTool);
    QEvent event(QEvent::Leave);
    QCoreApplication::sendEvent(f.theEditor.viewport(), &event);
    QCOMPARE(f.theTool.theEvents, QStringList(QStringLiteral("leave")));
    QCOMPARE(left.count(), 1);
}

MEASURE_TEST_MAIN(TestEditorRouting)
#include "TestEditorRouting.moc"
