#include "EditorFixture.h"
#include "TestFont.h"

#include <QKeyEvent>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>

class TestEditorView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void middleButtonPans();
    void spaceBarPans();
    void panningWorksInTheMiddleOfADrag();
    void spaceBarPansInTheMiddleOfADrag();
    void clickThatPannedIsStillAClick();
    void wheelZoomsAboutThePointer();
    void smallWheelAnglesAddUp();
    void zoomHasLimits();
    void stepsBackGiveTheVerySameZoom();
    void zoomReachesHiddenItemsToo();
    void fitShowsTheWholePicture();
};

void TestEditorView::middleButtonPans()
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

void TestEditorView::spaceBarPans()
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

void TestEditorView::panningWorksInTheMiddleOfADrag()
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

void TestEditorView::spaceBarPansInTheMiddleOfADrag()
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
    QCOMPARE(f.theTool.theEvents, (QStringList{ProbeTool::noted("press", QPoint(200, 150)),
                                               ProbeTool::noted("move", QPoint(210, 150)),
                                               ProbeTool::noted("release", QPoint(210, 150))}));
}

void TestEditorView::clickThatPannedIsStillAClick()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(190, 140));
    f.theEditor.setZoom(4.0);
    const QPoint beside(220, 150);
    for (const bool returns : {false, true}) {
        f.theEditor.activateItem(item);
        const QPoint pos = f.toViewport(beside);
        const QPoint pannedPos = pos + QPoint(80, 0);
        f.press(beside);
        QTest::mousePress(f.theEditor.viewport(), Qt::MiddleButton, Qt::NoModifier, pos);
        QTest::mouseMove(f.theEditor.viewport(), pannedPos);
        QTest::mouseRelease(f.theEditor.viewport(), Qt::MiddleButton, Qt::NoModifier, pannedPos);
        QCOMPARE(f.theEditor.toCanvas(pannedPos), beside);
        // The pointer is still on the place of the press. Back where it went down it is a way off.
        const QPoint end = f.theEditor.toCanvas(returns ? pos : pannedPos);
        f.move(end);
        f.release(end);
        QCOMPARE(f.theEditor.theCurrentTrack, returns ? item : nullptr);
        QCOMPARE(item->theNodeRect.isNull(), !returns);
    }
}

void TestEditorView::wheelZoomsAboutThePointer()
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

void TestEditorView::smallWheelAnglesAddUp()
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

void TestEditorView::zoomHasLimits()
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

void TestEditorView::stepsBackGiveTheVerySameZoom()
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

void TestEditorView::zoomReachesHiddenItemsToo()
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

void TestEditorView::fitShowsTheWholePicture()
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

MEASURE_TEST_MAIN(TestEditorView)
#include "TestEditorView.moc"
