#include "CmdRemoveObject.h"
#include "EditorFixture.h"
#include "TestFont.h"

#include <QKeyEvent>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolButton>

namespace {

const QPoint kEmpty(300, 200); // no item of the tests stands here

QString at(const char* aWhat, const QPoint& aPoint)
{
    return QStringLiteral("%1 %2,%3").arg(QLatin1String(aWhat)).arg(aPoint.x()).arg(aPoint.y());
}

} // namespace

class TestEditorRouting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Tools.
    void toolGetsPressMoveAndReleaseInCanvasCoordinates();
    void noToolGetsNothing();
    void moveWithoutButtonGoesOnlyToTheGrabber();
    void grabberComesBeforeItemsAndTheCurrentTool();
    void toolThatClaimsComesBeforeItsItem();
    void furtherButtonsAreSwallowedDuringAToolsAction();
    void ignoredPressBeginsNoAction();
    void quickSecondClickIsAPressUnlessTheToolTakesIt();
    void leavingTheViewIsTold();

    // Items.
    void itemIsDraggedAndReportedOnce();
    void clickOnAnItemMakesItCurrentAndChangesNothing();
    void moveWithinACanvasPixelChangesNothing();
    void labelFollowsTheDrag();
    void withAToolOnlyItsOwnItemsCount();
    void controlTakesAnItemOfAnotherTool();
    void controlBeginsANewObjectOnTopOfAnOwnOne();
    void currentItemComesBeforeTheOneOnTop();
    void itemThatIgnoresThePressIsPassedOver();
    void hiddenItemTakesNoPress();
    void farItemsAreNotAsked();
    void toleranceGrowsBelowZoomOne();
    void itemThatGoesDuringItsDragEndsIt();

    // Watchers.
    void watchersClickIsItsPress();
    void watchersLongerWayDragsTheItem();
    void watcherThatIsNotCurrentSeesNoClick();

    // Right button and menu.
    void rightButtonGoesToTheGrabberAlone();
    void menuIsForTheItemOrTheCanvas();
    void noMenuDuringAnAction();

    // Panning and zooming.
    void middleButtonPans();
    void spaceBarPans();
    void panningWorksInTheMiddleOfADrag();
    void spaceBarPansInTheMiddleOfADrag();
    void wheelZoomsAboutThePointer();
    void smallWheelAnglesAddUp();
    void zoomHasLimits();
    void stepsBackGiveTheVerySameZoom();
    void zoomReachesHiddenItemsToo();
    void fitShowsTheWholePicture();

    // Esc and keys.
    void escapeEndsTheToolsActionFirstAndThenTheTool();
    void escapeBringsADraggedItemBack();
    void escapeAbandonsTheRubberBand();
    void lostReleaseDoesNotBlockTheNextPress();
    void keysGoToTheTool();
    void deleteKeyIsTheToolsWhileOneIsActive();

    // Choosing tools.
    void changeOfToolEndsTheFormerOnesAction();
    void directlyWrittenToolIsNoticed();
    void buttonsShowTheToolInTheHand();
    void secondButtonOfAToolIsKept();
    void cursorIsTheTools();
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
        QCOMPARE(f.theTool.theEvents, (QStringList{at("press", from), at("move", to), at("release", to)}));
    }
}

void TestEditorRouting::noToolGetsNothing()
{
    EditorFixture f;
    f.drag(kEmpty, kEmpty + QPoint(20, 20));
    QVERIFY(f.theTool.theEvents.isEmpty());
}

void TestEditorRouting::moveWithoutButtonGoesOnlyToTheGrabber()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.move(kEmpty);
    QVERIFY(f.theTool.theEvents.isEmpty());
    f.theEditor.setMouseGrabber(&f.theTool, true);
    f.move(kEmpty);
    QCOMPARE(f.theTool.theEvents, QStringList(at("move", kEmpty)));
    f.theEditor.setMouseGrabber(nullptr, false);
    f.move(kEmpty + QPoint(5, 5));
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
    QCOMPARE(f.theOtherTool.theEvents.first(), at("press", QPoint(60, 60)));
    QCOMPARE(f.theOtherTool.theEvents.last(), at("release", QPoint(90, 60)));
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
    QCOMPARE(f.theTool.theEvents, (QStringList{at("press", QPoint(60, 60)), at("release", QPoint(60, 60))}));
    f.theTool.theClaims = false;
    f.click(QPoint(60, 60));
    QCOMPARE(item->thePresses, 1);
    QCOMPARE(f.theTool.theEvents.size(), 2);
}

void TestEditorRouting::furtherButtonsAreSwallowedDuringAToolsAction()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.press(kEmpty);
    f.press(kEmpty, Qt::RightButton);
    f.release(kEmpty, Qt::RightButton);
    QCOMPARE(f.theTool.theEvents, QStringList(at("press", kEmpty)));
    f.release(kEmpty);
    QCOMPARE(f.theTool.theEvents.last(), at("release", kEmpty));
    QCOMPARE(f.theTool.theEvents.size(), 2);
}

void TestEditorRouting::ignoredPressBeginsNoAction()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theTool.theAcceptsPress = false;
    f.drag(kEmpty, kEmpty + QPoint(20, 0));
    QCOMPARE(f.theTool.theEvents, QStringList(at("press", kEmpty)));
}

void TestEditorRouting::quickSecondClickIsAPressUnlessTheToolTakesIt()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    QTest::mouseEvent(QTest::MouseDClick, f.theEditor.viewport(), Qt::LeftButton, Qt::NoModifier,
                      f.toViewport(kEmpty));
    f.release(kEmpty);
    QCOMPARE(f.theTool.theEvents,
             (QStringList{at("double", kEmpty), at("press", kEmpty), at("release", kEmpty)}));
    f.theTool.theEvents.clear();
    f.theTool.theAcceptsDoubleClick = true;
    QTest::mouseEvent(QTest::MouseDClick, f.theEditor.viewport(), Qt::LeftButton, Qt::NoModifier,
                      f.toViewport(kEmpty));
    f.release(kEmpty);
    QCOMPARE(f.theTool.theEvents, QStringList(at("double", kEmpty)));
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

void TestEditorRouting::itemIsDraggedAndReportedOnce()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCanvasObjectChanged);
    f.drag(QPoint(60, 60), QPoint(90, 75));
    QCOMPARE(item->theCorner, QPoint(80, 65));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<LmCvObject*>(), item);
    QCOMPARE(f.theTool.recordedPos(1), QPoint(80, 65));
    QCOMPARE(f.theStack.count(), 2);
    f.theStack.undo();
    QCOMPARE(item->theCorner, QPoint(50, 50));
}

void TestEditorRouting::clickOnAnItemMakesItCurrentAndChangesNothing()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCanvasObjectChanged);
    f.click(QPoint(60, 60));
    QCOMPARE(f.theEditor.theCurrentTrack, item);
    QVERIFY(item->isActive());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(item->theReleases, 1);
    f.click(kEmpty);
    QVERIFY(!f.theEditor.theCurrentTrack);
    QVERIFY(!item->isActive());
}

void TestEditorRouting::moveWithinACanvasPixelChangesNothing()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.setZoom(8.0);
    f.theEditor.ensureVisible(QPoint(60, 60));
    const QPoint middle = f.toViewport(QPoint(60, 60));
    QTest::mousePress(f.theEditor.viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    QTest::mouseMove(f.theEditor.viewport(), middle + QPoint(2, 1));
    QTest::mouseRelease(f.theEditor.viewport(), Qt::LeftButton, Qt::NoModifier, middle + QPoint(2, 1));
    QCOMPARE(item->thePresses, 1);
    QCOMPARE(item->theMoves, 0);
    QCOMPARE(f.theStack.count(), 1);
}

void TestEditorRouting::labelFollowsTheDrag()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.press(QPoint(60, 60));
    f.move(QPoint(90, 60));
    QCOMPARE(item->theDisplayValue, QStringLiteral("80.00px"));
    f.release(QPoint(90, 60));
    QCOMPARE(item->theDisplayValue, QStringLiteral("80.00"));
}

void TestEditorRouting::withAToolOnlyItsOwnItemsCount()
{
    EditorFixture f;
    ProbeItem* own = f.theTool.create(QPoint(50, 50));
    ProbeItem* foreign = f.theOtherTool.create(QPoint(150, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.click(QPoint(160, 60));
    QCOMPARE(foreign->thePresses, 0);
    QCOMPARE(f.theTool.theEvents.first(), at("press", QPoint(160, 60)));
    f.theTool.theEvents.clear();
    f.click(QPoint(60, 60));
    QCOMPARE(own->thePresses, 1);
    QVERIFY(f.theTool.theEvents.isEmpty());

    f.theEditor.setCurrentManipulator(nullptr);
    f.click(QPoint(160, 60));
    QCOMPARE(foreign->thePresses, 1);
}

void TestEditorRouting::controlTakesAnItemOfAnotherTool()
{
    EditorFixture f;
    ProbeItem* foreign = f.theOtherTool.create(QPoint(150, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.drag(QPoint(160, 60), QPoint(180, 60), Qt::ControlModifier);
    QCOMPARE(foreign->theCorner, QPoint(170, 50));
    QCOMPARE(f.theEditor.theCurrentTrack, foreign);
    QVERIFY(f.theTool.theEvents.isEmpty());
}

void TestEditorRouting::controlBeginsANewObjectOnTopOfAnOwnOne()
{
    EditorFixture f;
    ProbeItem* own = f.theTool.create(QPoint(50, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.click(QPoint(60, 60), Qt::ControlModifier);
    QCOMPARE(own->thePresses, 0);
    QCOMPARE(f.theTool.theEvents.first(), at("press", QPoint(60, 60)));
}

void TestEditorRouting::currentItemComesBeforeTheOneOnTop()
{
    EditorFixture f;
    ProbeItem* below = f.theTool.create(QPoint(50, 50));
    ProbeItem* above = f.theTool.create(QPoint(55, 55));
    QCOMPARE(f.theEditor.itemAt(QPoint(60, 60)), above);
    f.theEditor.activateItem(below);
    QCOMPARE(f.theEditor.itemAt(QPoint(60, 60)), below);
    f.click(QPoint(60, 60));
    QCOMPARE(below->thePresses, 1);
    QCOMPARE(above->thePresses, 0);
}

void TestEditorRouting::itemThatIgnoresThePressIsPassedOver()
{
    EditorFixture f;
    ProbeItem* below = f.theTool.create(QPoint(50, 50));
    ProbeItem* above = f.theTool.create(QPoint(55, 55));
    above->theRefusesPress = true;
    f.drag(QPoint(60, 60), QPoint(80, 60));
    QCOMPARE(below->theCorner, QPoint(70, 50));
    QCOMPARE(above->theCorner, QPoint(55, 55));
    QCOMPARE(f.theEditor.theCurrentTrack, below);
}

void TestEditorRouting::hiddenItemTakesNoPress()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theTool.showCvObject(item, false);
    f.click(QPoint(60, 60));
    QCOMPARE(item->thePresses, 0);
    QVERIFY(!f.theEditor.itemAt(QPoint(60, 60)));
    f.theTool.showCvObject(item, true);
    f.click(QPoint(60, 60));
    QCOMPARE(item->thePresses, 1);
}

void TestEditorRouting::farItemsAreNotAsked()
{
    EditorFixture f;
    ProbeItem* near = f.theTool.create(QPoint(50, 50));
    ProbeItem* far = f.theTool.create(QPoint(200, 200));
    QCOMPARE(f.theEditor.itemAt(QPoint(60, 60)), near);
    QCOMPARE(near->theHitQuestions, 1);
    QCOMPARE(far->theHitQuestions, 0);
    f.click(QPoint(60, 60));
    QCOMPARE(far->thePresses, 0);
}

void TestEditorRouting::toleranceGrowsBelowZoomOne()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    const QPoint beside(50 - 7, 60); // beyond half of 8, within half of 16
    QVERIFY(!f.theEditor.itemAt(beside));
    f.theEditor.setZoom(0.5);
    QCOMPARE(f.theEditor.itemAt(beside), item);
    f.theEditor.setZoom(4.0);
    QVERIFY(!f.theEditor.itemAt(beside));
    QCOMPARE(f.theEditor.itemAt(QPoint(50 - 4, 60)), item);
}

void TestEditorRouting::itemThatGoesDuringItsDragEndsIt()
{
    EditorFixture f;
    f.theTool.create(QPoint(50, 50));
    f.press(QPoint(60, 60));
    f.move(QPoint(70, 60));
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCanvasObjectChanged);
    f.theStack.push(new CmdRemoveObject(ProbeTool::kType, 1));
    QVERIFY(!f.theEditor.theCurrentTrack);
    f.move(QPoint(80, 60));
    f.release(QPoint(80, 60));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(f.theStack.count(), 2);
}

void TestEditorRouting::watchersClickIsItsPress()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.theItemWatchers.append(&f.theTool);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.press(QPoint(60, 60));
    QVERIFY(f.theTool.theEvents.isEmpty());
    f.move(QPoint(62, 60)); // 2 pixels are still a click
    f.release(QPoint(62, 60));
    QCOMPARE(f.theTool.theEvents, (QStringList{at("press", QPoint(60, 60)), at("release", QPoint(62, 60))}));
    QCOMPARE(item->theCorner, QPoint(50, 50));
    QVERIFY(!f.theEditor.theCurrentTrack);
    QVERIFY(!item->theMoving);
    QCOMPARE(f.theStack.count(), 1);
}

void TestEditorRouting::watchersLongerWayDragsTheItem()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.theItemWatchers.append(&f.theTool);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.press(QPoint(60, 60));
    f.move(QPoint(63, 60)); // 3 pixels are a drag
    f.release(QPoint(63, 60));
    QVERIFY(f.theTool.theEvents.isEmpty());
    QCOMPARE(item->theCorner, QPoint(53, 50));
    QCOMPARE(f.theEditor.theCurrentTrack, item);
    QCOMPARE(f.theTool.recordedPos(1), QPoint(53, 50));
}

void TestEditorRouting::watcherThatIsNotCurrentSeesNoClick()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.theItemWatchers.append(&f.theOtherTool);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.click(QPoint(60, 60));
    QVERIFY(f.theOtherTool.theEvents.isEmpty());
    QCOMPARE(f.theEditor.theCurrentTrack, item);
}

void TestEditorRouting::rightButtonGoesToTheGrabberAlone()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.press(QPoint(60, 60), Qt::RightButton);
    f.release(QPoint(60, 60), Qt::RightButton);
    f.press(kEmpty, Qt::RightButton);
    f.release(kEmpty, Qt::RightButton);
    QVERIFY(f.theTool.theEvents.isEmpty());
    QCOMPARE(item->thePresses, 0);

    f.theEditor.setMouseGrabber(&f.theTool, true);
    f.press(kEmpty, Qt::RightButton);
    QCOMPARE(f.theTool.theLastButton, Qt::RightButton);
    f.release(kEmpty, Qt::RightButton);
    QCOMPARE(f.theTool.theEvents, (QStringList{at("press", kEmpty), at("release", kEmpty)}));
}

void TestEditorRouting::menuIsForTheItemOrTheCanvas()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    QSignalSpy menu(&f.theEditor, &LmCvEditor::signalContextMenu);
    QVERIFY(f.contextMenu(QPoint(60, 60)));
    QVERIFY(f.contextMenu(kEmpty));
    QCOMPARE(menu.count(), 2);
    QCOMPARE(menu[0][0].value<LmCvObject*>(), item);
    QCOMPARE(menu[0][1].toPoint(), QPoint(60, 60));
    QVERIFY(!menu[1][0].value<LmCvObject*>());
    // With a tool of another type too.
    f.theEditor.setCurrentManipulator(&f.theOtherTool);
    f.contextMenu(QPoint(60, 60));
    QCOMPARE(menu[2][0].value<LmCvObject*>(), item);
}

void TestEditorRouting::noMenuDuringAnAction()
{
    EditorFixture f;
    QSignalSpy menu(&f.theEditor, &LmCvEditor::signalContextMenu);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.press(kEmpty);
    f.press(kEmpty, Qt::RightButton);
    f.contextMenu(kEmpty);
    f.release(kEmpty, Qt::RightButton);
    f.release(kEmpty);
    QCOMPARE(menu.count(), 0);

    // The right press that ended the tool's action opens no menu either.
    f.theEditor.setMouseGrabber(&f.theTool, true);
    f.press(kEmpty, Qt::RightButton);
    f.theEditor.setMouseGrabber(nullptr, false);
    f.release(kEmpty, Qt::RightButton);
    f.contextMenu(kEmpty);
    QCOMPARE(menu.count(), 0);

    f.press(kEmpty, Qt::RightButton);
    f.contextMenu(kEmpty);
    f.release(kEmpty, Qt::RightButton);
    QCOMPARE(menu.count(), 1);
}

void TestEditorRouting::middleButtonPans()
{
    EditorFixture f;
    f.theEditor.setZoom(4.0);
    const QPoint middle = f.theEditor.viewport()->rect().center();
    const QPoint held = f.theEditor.toCanvas(middle);
    QTest::mousePress(f.theEditor.viewport(), Qt::MiddleButton, Qt::NoModifier, middle);
    QTest::mouseMove(f.theEditor.viewport(), middle + QPoint(40, -24));
    QCOMPARE(f.theEditor.toCanvas(middle + QPoint(40, -24)), held);
    QTest::mouseRelease(f.theEditor.viewport(), Qt::MiddleButton, Qt::NoModifier, middle + QPoint(40, -24));
    f.move(held + QPoint(5, 5));
    QCOMPARE(f.theEditor.toCanvas(middle + QPoint(40, -24)), held);
}

void TestEditorRouting::spaceBarPans()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(190, 140));
    f.theEditor.setZoom(4.0);
    const QPoint middle = f.toViewport(QPoint(200, 150));
    QTest::keyPress(&f.theEditor, Qt::Key_Space);
    QTest::mousePress(f.theEditor.viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    QTest::mouseMove(f.theEditor.viewport(), middle + QPoint(40, 24));
    QTest::mouseRelease(f.theEditor.viewport(), Qt::LeftButton, Qt::NoModifier, middle + QPoint(40, 24));
    QCOMPARE(f.theEditor.toCanvas(middle + QPoint(40, 24)), QPoint(200, 150));
    QCOMPARE(item->thePresses, 0);
    QTest::keyRelease(&f.theEditor, Qt::Key_Space);
    f.click(QPoint(200, 150));
    QCOMPARE(item->thePresses, 1);
}

void TestEditorRouting::panningWorksInTheMiddleOfADrag()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(190, 140));
    f.theEditor.setZoom(4.0);
    f.press(QPoint(200, 150));
    f.move(QPoint(210, 150));
    const QPoint pos = f.toViewport(QPoint(210, 150));
    QTest::mousePress(f.theEditor.viewport(), Qt::MiddleButton, Qt::NoModifier, pos);
    QTest::mouseMove(f.theEditor.viewport(), pos + QPoint(40, 0));
    QTest::mouseRelease(f.theEditor.viewport(), Qt::MiddleButton, Qt::NoModifier, pos + QPoint(40, 0));
    QCOMPARE(item->theCorner, QPoint(200, 140));
    f.move(QPoint(215, 150));
    f.release(QPoint(215, 150));
    QCOMPARE(item->theCorner, QPoint(205, 140));
    QCOMPARE(f.theTool.recordedPos(1), QPoint(205, 140));
}

void TestEditorRouting::spaceBarPansInTheMiddleOfADrag()
{
    EditorFixture f;
    f.theEditor.setZoom(4.0);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.press(QPoint(200, 150));
    const QPoint pos = f.toViewport(QPoint(200, 150));
    QTest::keyPress(&f.theEditor, Qt::Key_Space);
    QTest::mouseMove(f.theEditor.viewport(), pos + QPoint(40, 24));
    QCOMPARE(f.theEditor.toCanvas(pos + QPoint(40, 24)), QPoint(200, 150));
    QCOMPARE(f.theTool.theEvents.size(), 1);
    QTest::keyRelease(&f.theEditor, Qt::Key_Space);
    f.move(QPoint(210, 150));
    f.release(QPoint(210, 150));
    QCOMPARE(f.theTool.theEvents, (QStringList{at("press", QPoint(200, 150)), at("move", QPoint(210, 150)),
                                               at("release", QPoint(210, 150))}));
}

void TestEditorRouting::wheelZoomsAboutThePointer()
{
    EditorFixture f;
    f.theEditor.setZoom(4.0);
    QSignalSpy zoomed(&f.theEditor, &LmCvEditor::signalZoomChanged);
    const QPoint pointer(130, 90);
    const QPoint held = f.theEditor.toCanvas(pointer);
    f.wheel(480, pointer); // four notches double
    QCOMPARE(f.theEditor.zoom(), 8.0);
    QCOMPARE(f.theEditor.toCanvas(pointer), held);
    f.wheel(-960, pointer);
    QCOMPARE(f.theEditor.zoom(), 2.0);
    QCOMPARE(f.theEditor.toCanvas(pointer), held);
    QCOMPARE(zoomed.count(), 2);
}

void TestEditorRouting::smallWheelAnglesAddUp()
{
    EditorFixture f;
    for (int i = 0; i < 7; ++i)
        f.wheel(15, QPoint(100, 100));
    QCOMPARE(f.theEditor.zoom(), 1.0);
    f.wheel(15, QPoint(100, 100));
    QCOMPARE(f.theEditor.zoom(), std::exp2(0.25));
    f.wheel(90, QPoint(100, 100));
    f.wheel(-90, QPoint(100, 100)); // the other way begins anew
    QCOMPARE(f.theEditor.zoom(), std::exp2(0.25));
    f.wheel(-30, QPoint(100, 100));
    QCOMPARE(f.theEditor.zoom(), 1.0);
}

void TestEditorRouting::zoomHasLimits()
{
    EditorFixture f;
    f.theEditor.setZoom(1000.0);
    QCOMPARE(f.theEditor.zoom(), 64.0);
    f.wheel(120, QPoint(100, 100));
    QCOMPARE(f.theEditor.zoom(), 64.0);
    f.theEditor.setZoom(0.0001);
    QCOMPARE(f.theEditor.zoom(), 0.02);
    f.wheel(-120, QPoint(100, 100));
    QCOMPARE(f.theEditor.zoom(), 0.02);
}

void TestEditorRouting::stepsBackGiveTheVerySameZoom()
{
    EditorFixture f;
    for (const int steps : {1, 3, 7, -5}) {
        f.theEditor.zoomStep(steps, QPointF(100, 100));
        QVERIFY(f.theEditor.zoom() != 1.0);
        for (int i = 0; i < std::abs(steps); ++i)
            f.theEditor.zoomStep(steps > 0 ? -1 : 1, QPointF(100, 100));
        QVERIFY(f.theEditor.zoom() == 1.0);
    }
}

void TestEditorRouting::zoomReachesHiddenItemsToo()
{
    EditorFixture f;
    ProbeItem* shown = f.theTool.create(QPoint(50, 50));
    ProbeItem* hidden = f.theTool.create(QPoint(90, 50));
    hidden->hide();
    f.theEditor.setZoom(0.5);
    QCOMPARE(shown->theScale, 0.5);
    QCOMPARE(hidden->theScale, 0.5);
    QCOMPARE(shown->thePen.widthF(), 4.0);
}

void TestEditorRouting::fitShowsTheWholePicture()
{
    EditorFixture f;
    f.theEditor.resize(200, 100);
    f.theEditor.zoomToFit();
    QCOMPARE(f.theEditor.zoom(), 100.0 / 300.0);
    QCOMPARE(f.theEditor.visibleCanvasRect(), f.theEditor.canvas()->rect());
    QVERIFY(!f.theEditor.horizontalScrollBar()->isVisible());
    QVERIFY(!f.theEditor.verticalScrollBar()->isVisible());

    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 500; ++round) {
        f.theEditor.canvas()->resize(1 + random.bounded(5000), 1 + random.bounded(5000));
        f.theEditor.zoomToFit();
        QCOMPARE(f.theEditor.horizontalScrollBar()->maximum(), 0);
        QCOMPARE(f.theEditor.verticalScrollBar()->maximum(), 0);
    }
}

void TestEditorRouting::escapeEndsTheToolsActionFirstAndThenTheTool()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theEditor.setMouseGrabber(&f.theTool, true);
    f.press(kEmpty);
    f.theTool.theHasAction = true;
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Escape);
    QVERIFY(!f.theTool.theHasAction);
    QVERIFY(!f.theEditor.mouseGrabber());
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    f.move(kEmpty + QPoint(10, 0));
    f.release(kEmpty + QPoint(10, 0));
    QCOMPARE(f.theTool.theEvents.filter(QStringLiteral("release")).size(), 0);
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Escape);
    QVERIFY(!f.theEditor.theCurrentManipulator);
}

void TestEditorRouting::escapeBringsADraggedItemBack()
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

void TestEditorRouting::escapeAbandonsTheRubberBand()
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

void TestEditorRouting::lostReleaseDoesNotBlockTheNextPress()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.press(QPoint(60, 60));
    f.move(QPoint(70, 60));
    f.drag(QPoint(60, 60), QPoint(60, 80));
    QCOMPARE(item->theCorner, QPoint(50, 70));
}

void TestEditorRouting::keysGoToTheTool()
{
    EditorFixture f;
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_A);
    QVERIFY(f.theTool.theEvents.isEmpty());
    f.theEditor.setCurrentManipulator(&f.theTool);
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_A);
    QCOMPARE(f.theTool.theEvents, (QStringList{QStringLiteral("key %1").arg(Qt::Key_A),
                                               QStringLiteral("keyup %1").arg(Qt::Key_A)}));
}

void TestEditorRouting::deleteKeyIsTheToolsWhileOneIsActive()
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

void TestEditorRouting::changeOfToolEndsTheFormerOnesAction()
{
    EditorFixture f;
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCurrentManipulatorChanged);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theEditor.setMouseGrabber(&f.theTool, true);
    f.press(kEmpty);
    f.theEditor.setCurrentManipulator(&f.theOtherTool);
    QCOMPARE(f.theTool.theAborts, 1);
    QVERIFY(!f.theEditor.mouseGrabber());
    f.release(kEmpty);
    QCOMPARE(f.theTool.theEvents, QStringList(at("press", kEmpty)));
    QVERIFY(f.theOtherTool.theEvents.isEmpty());
    QCOMPARE(changed.count(), 2);
    f.theEditor.setCurrentManipulator(&f.theOtherTool);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(f.theOtherTool.theAborts, 0);
}

void TestEditorRouting::directlyWrittenToolIsNoticed()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCurrentManipulatorChanged);
    f.theEditor.theCurrentManipulator = &f.theOtherTool;
    f.click(kEmpty);
    QCOMPARE(f.theTool.theAborts, 1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].value<LmCvManipulator*>(), &f.theOtherTool);
    QCOMPARE(f.theOtherTool.theEvents.first(), at("press", kEmpty));
}

void TestEditorRouting::buttonsShowTheToolInTheHand()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    QVERIFY(f.theTool.theToolButton->isChecked());
    QVERIFY(!f.theOtherTool.theToolButton->isChecked());
    f.theEditor.setCurrentManipulator(&f.theOtherTool);
    QVERIFY(!f.theTool.theToolButton->isChecked());
    QVERIFY(f.theOtherTool.theToolButton->isChecked());
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theOtherTool);
    f.theEditor.setCurrentManipulator(nullptr);
    QVERIFY(!f.theOtherTool.theToolButton->isChecked());
}

void TestEditorRouting::secondButtonOfAToolIsKept()
{
    EditorFixture f;
    auto* second = new QToolButton;
    second->setObjectName(QStringLiteral("manipulator button"));
    second->setCheckable(true);
    f.theBar.addWidget(second);
    QSignalSpy toggled(second, &QToolButton::toggled);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theEditor.setCurrentManipulator(&f.theTool, second);
    QVERIFY(second->isChecked());
    QVERIFY(!f.theTool.theToolButton->isChecked());
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    QCOMPARE(toggled.count(), 1);

    f.theEditor.setCurrentManipulator(&f.theTool); // nothing changes
    QVERIFY(second->isChecked());
    QTest::mouseClick(f.theOtherTool.theToolButton, Qt::LeftButton);
    QVERIFY(!second->isChecked());
    QCOMPARE(toggled.count(), 1); // switched off silently
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theOtherTool);
}

void TestEditorRouting::cursorIsTheTools()
{
    EditorFixture f;
    f.theTool.theCursor = QCursor(Qt::CrossCursor);
    f.theTool.create(QPoint(50, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    QCOMPARE(f.theEditor.viewport()->cursor().shape(), Qt::CrossCursor);
    f.theEditor.setCurrentManipulator(nullptr);
    f.move(kEmpty);
    QCOMPARE(f.theEditor.viewport()->cursor().shape(), Qt::ArrowCursor);
    f.move(QPoint(60, 60));
    QCOMPARE(f.theEditor.viewport()->cursor().shape(), Qt::PointingHandCursor);
    QTest::keyPress(&f.theEditor, Qt::Key_Space);
    QCOMPARE(f.theEditor.viewport()->cursor().shape(), Qt::OpenHandCursor);
    QTest::keyRelease(&f.theEditor, Qt::Key_Space);
    QCOMPARE(f.theEditor.viewport()->cursor().shape(), Qt::PointingHandCursor);
}

MEASURE_TEST_MAIN(TestEditorRouting)
#include "TestEditorRouting.moc"
