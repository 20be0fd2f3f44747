#include "AnimatedObjects.h"
#include "CameraWindow.h"
#include "CmdAnimateView.h"
#include "Document.h"
#include "LiveView.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "Media.h"
#include "ModalAnswer.h"
#include "TestFont.h"

#include <QAction>
#include <QLine>
#include <QUndoStack>

/// Measuring on the live picture of a camera, keeping it in projects, and changes of the resolution.
class TestCameraWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void objectsAreDrawnAndDraggedWhilePicturesArrive();
    void outlineInTheMakingStaysWhilePicturesArrive();
    void animatedObjectIsDraggedWhilePicturesArrive();
    void projectTakesTheLivePicture();
    void projectOpensAsItsSeries();
    void projectSavedOnATakenPictureTakesNone();
    void projectIsNotSavedWithoutAPicture();
};

void TestCameraWork::objectsAreDrawnAndDraggedWhilePicturesArrive()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.pickDistance();
    w.press(QPoint(50, 60));
    w.move(QPoint(100, 60));
    w.send(CameraWindow::picture(1));
    QCOMPARE(w.shown(), CameraWindow::picture(1)); // the picture goes on meanwhile
    w.move(QPoint(150, 60));
    w.send(CameraWindow::picture(2));
    w.release(QPoint(150, 60));
    w.pickArrow();
    QCOMPARE(w.distanceCount(), 1);
    QCOMPARE(w.ends(1), QLine(50, 60, 150, 60));
    w.press(QPoint(100, 60));
    w.move(QPoint(110, 80));
    w.send(CameraWindow::picture(3));
    w.move(QPoint(120, 100));
    w.send(CameraWindow::picture(4));
    w.release(QPoint(120, 100));
    QCOMPARE(w.ends(1), QLine(70, 100, 170, 100));
    QCOMPARE(w.stack().count(), 2);
    QCOMPARE(w.shown(), CameraWindow::picture(4));
}

void TestCameraWork::outlineInTheMakingStaysWhilePicturesArrive()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.pickPen();
    const QList<QPoint> corners{QPoint(60, 60), QPoint(160, 60), QPoint(160, 160)};
    int number = 0;
    for (const QPoint& corner : corners) {
        w.click(corner);
        w.send(CameraWindow::picture(++number));
        w.move(corner + QPoint(20, 5));
        w.send(CameraWindow::picture(++number));
    }
    w.click(corners.first());
    w.send(CameraWindow::picture(++number));
    w.pickArrow();
    QCOMPARE(w.regionCount(), 1);
    QVERIFY(w.isClosed(1));
    QCOMPARE(w.anchors(1), corners);
}

void TestCameraWork::animatedObjectIsDraggedWhilePicturesArrive()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.take();
    const int idx = AnimatedObjects::addDistance(
        w.bench(), {{0, QPoint(50, 50), QPoint(150, 50)}, {1, QPoint(50, 90), QPoint(150, 90)}});
    CmdAnimateView::show(true);
    w.send(CameraWindow::picture(1));
    w.press(QPoint(100, 90));
    w.move(QPoint(100, 120));
    w.send(CameraWindow::picture(2));
    w.move(QPoint(100, 140));
    const QRect held = w.place(w.distanceTool()->getCvObject(idx));
    w.send(CameraWindow::picture(3));
    QCOMPARE(w.place(w.distanceTool()->getCvObject(idx)), held);
    QCOMPARE(w.shown(), CameraWindow::picture(3));
    w.release(QPoint(100, 140));
    QCOMPARE(w.ends(idx), QLine(50, 140, 150, 140));
    w.send(CameraWindow::picture(4));
    QCOMPARE(w.place(w.distanceTool()->getCvObject(idx)), held);
    CmdAnimateView::show(false);
}

void TestCameraWork::projectTakesTheLivePicture()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    QCOMPARE(w.draw(QPoint(50, 50), QPoint(150, 50)), 1);
    QVERIFY(w.save(QStringLiteral("a.mtp")));
    QVERIFY(w.told().contains(QStringLiteral("taken")));
    QVERIFY(!w.bench().document().isModified());
    QCOMPARE(w.frameCount(), 2);
    QCOMPARE(w.kernel().theFrameCount, 2);
    QCOMPARE(w.window().windowTitle(), QStringLiteral("a.mtp[*] - MeasureTools"));
    // It goes on live.
    w.send(CameraWindow::picture(1));
    QCOMPARE(w.shown(), CameraWindow::picture(1));
    QVERIFY(w.window().openAtStart(w.path(QStringLiteral("a.mtp"))));
    QCOMPARE(w.frameCount(), 1);
    QCOMPARE(w.shown(), CameraWindow::picture(0));
    QCOMPARE(w.ends(1), QLine(50, 50, 150, 50));
}

void TestCameraWork::projectOpensAsItsSeries()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.take();
    w.send(CameraWindow::picture(1));
    w.take();
    w.send(CameraWindow::picture(2));
    AnimatedObjects::addDistance(w.bench(), {{0, QPoint(50, 50), QPoint(150, 50)},
                                             {1, QPoint(50, 90), QPoint(150, 90)},
                                             {2, QPoint(50, 200), QPoint(150, 200)}});
    w.setRegion(QRect(20, 10, 300, 250));
    QVERIFY(w.save(QStringLiteral("a.mtp")));
    const QString folder = w.bench().media().path();
    {
        const ModalAnswer none{QList<ModalAnswer::Answer>()}; // nothing is missing
        QVERIFY(w.window().openAtStart(w.path(QStringLiteral("a.mtp"))));
    }
    QCOMPARE(w.bench().media().path(), folder);
    QCOMPARE(w.frameCount(), 3);
    QCOMPARE(w.frame(), 2); // the one that was live
    QCOMPARE(w.region(), QRect(20, 10, 300, 250));
    for (int frame = 2; frame >= 0; --frame) {
        QCOMPARE(w.shown(), CameraWindow::picture(frame));
        w.actions().thePreviousFrame->trigger();
    }
    const LmKernelObjectData* record = w.distance(1);
    QCOMPARE(record->getKeyframedFrames().size(), 3);
    QVERIFY(record->theAnimated);
}

void TestCameraWork::projectSavedOnATakenPictureTakesNone()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.take();
    w.actions().thePreviousFrame->trigger();
    w.draw(QPoint(50, 50), QPoint(150, 50));
    QVERIFY(w.save(QStringLiteral("a.mtp")));
    QCOMPARE(w.frameCount(), 2);
    QVERIFY(w.window().openAtStart(w.path(QStringLiteral("a.mtp"))));
    QCOMPARE(w.frameCount(), 1);
    QCOMPARE(w.distanceCount(), 1);
}

void TestCameraWork::projectIsNotSavedWithoutAPicture()
{
    CameraWindow w;
    w.view().setPicturesFolder(w.picturePath()); // where nothing can be made
    w.goLive(CameraWindow::picture(0));
    w.draw(QPoint(50, 50), QPoint(150, 50));
    QString error;
    QVERIFY(!w.bench().document().save(w.path(QStringLiteral("a.mtp")), error));
    QVERIFY(!error.isEmpty());
    QVERIFY(!QFile::exists(w.path(QStringLiteral("a.mtp"))));
    QVERIFY(w.bench().document().isModified());
}

MEASURE_TEST_MAIN(TestCameraWork)
#include "TestCameraWork.moc"
