#include "CameraFeed.h"
#include "CameraWindow.h"
#include "Document.h"
#include "FakeCameras.h"
#include "LiveView.h"
#include "LmKSKernelData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "ModalAnswer.h"
#include "Player.h"
#include "TestFont.h"
#include "TimelineDock.h"

#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QMenu>
#include <QSettings>
#include <QSpinBox>

/// The live picture of a camera: shown, frozen, taken as frames of a series.
class TestCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menuTellsThatNoCameraIsConnected();
    void menuNamesTheCameras();
    void systemIsAskedWithoutNoise();
    void firstPictureReplacesTheWork();
    void workThatIsNotSavedIsAskedFor();
    void workThatChangesMeanwhileIsAskedForAgain();
    void newestPictureIsShown();
    void frozenPictureStays();
    void takenPicturesAreTheFilesOfASeries();
    void takenFrameStaysWhileTheCameraRuns();
    void hiddenTimeLineStaysHidden();
    void frameNumberCanBeTypedWhileTheCameraRuns();
    void playingEndsAtTheLivePicture();
    void colorUnderThePointerFollows();
    void cameraIsNoRecentFile();
};

void TestCamera::menuTellsThatNoCameraIsConnected()
{
    CameraWindow w;
    w.cameras().connectCameras({});
    QCOMPARE(w.menuTexts().first(), QStringLiteral("No camera is connected"));
    QVERIFY(!w.menu().actions().first()->isEnabled());
    for (const QAction* action : {w.actions().theFreeze, w.actions().theTakePicture})
        QVERIFY(!action->isEnabled());
}

void TestCamera::menuNamesTheCameras()
{
    CameraWindow w;
    w.cameras().connectCameras({QStringLiteral("Left & right"), QStringLiteral("Fake")});
    QCOMPARE(w.menuTexts(), QStringList({QStringLiteral("Left  right"), QStringLiteral("Fake"),
                                         QStringLiteral("---"), QStringLiteral("Freeze"),
                                         QStringLiteral("Take Picture"), QStringLiteral("Resolution")}));
    QCOMPARE(w.menu().actions().first()->text(), QStringLiteral("Left && right"));
    // Opening it again doesn't add them again.
    QCOMPARE(w.menuTexts().size(), 6);
    w.goLive(CameraWindow::picture(1));
    w.menuTexts();
    QVERIFY(!w.menu().actions().first()->isChecked());
    QVERIFY(w.menu().actions().at(1)->isChecked());
}

void TestCamera::systemIsAskedWithoutNoise()
{
    WindowFixture w;
    static QStringList lines;
    lines.clear();
    const QtMessageHandler former = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& aText) { lines << aText; });
    Q_EMIT w.actions().theCameraMenu->aboutToShow();
    qInstallMessageHandler(former);
    QCOMPARE(lines, QStringList());
    QVERIFY(!w.actions().theCameraMenu->actions().first()->isSeparator());
}

void TestCamera::firstPictureReplacesTheWork()
{
    CameraWindow w(CameraWindow::kPicture);
    QVERIFY(w.choose());
    QVERIFY(w.camera().isRunning());
    QVERIFY(w.told().contains(QStringLiteral("Fake")));
    // Until then the former picture stays.
    QCOMPARE(w.bench().media().path(), w.picturePath());
    QVERIFY(!w.actions().theTakePicture->isEnabled());
    w.send(CameraWindow::picture(1));
    QCOMPARE(w.shown(), CameraWindow::picture(1));
    QCOMPARE(w.window().windowTitle(), QStringLiteral("Camera Fake[*] - MeasureTools"));
    QCOMPARE(w.frameCount(), 1);
    QCOMPARE(w.kernel().theFrameCount, 1);
    QVERIFY(w.actions().theFreeze->isEnabled());
    QVERIFY(w.actions().theTakePicture->isEnabled());
    QVERIFY(!w.bench().document().isModified());
    QVERIFY(!QDir(w.seriesFolder()).exists());
}

void TestCamera::workThatIsNotSavedIsAskedFor()
{
    CameraWindow w(CameraWindow::kPicture);
    w.draw(QPoint(50, 50), QPoint(150, 50));
    {
        ModalAnswer answer(ModalAnswer::press(QMessageBox::Cancel));
        QVERIFY(w.choose());
        QVERIFY(answer.isDone());
    }
    QVERIFY(!w.cameras().opened());
    {
        ModalAnswer answer(ModalAnswer::press(QMessageBox::Discard));
        QVERIFY(w.choose());
        QVERIFY(answer.isDone());
    }
    w.send(CameraWindow::picture(1));
    QCOMPARE(w.distanceCount(), 0);
    QCOMPARE(w.shown(), CameraWindow::picture(1));
}

void TestCamera::workThatChangesMeanwhileIsAskedForAgain()
{
    CameraWindow w(CameraWindow::kPicture);
    QVERIFY(w.choose());
    w.draw(QPoint(50, 50), QPoint(150, 50));
    ModalAnswer answer(ModalAnswer::press(QMessageBox::Cancel));
    QVERIFY(w.camera().send(CameraWindow::picture(1)));
    QVERIFY(answer.wait());
    QTRY_VERIFY(!w.view().device());
    QCOMPARE(w.distanceCount(), 1);
    QCOMPARE(w.bench().media().path(), w.picturePath());
}

void TestCamera::newestPictureIsShown()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    int playing = 0;
    QObject::connect(&w.kernel(), &LmKSKernelData::signalFrameReadyPlayout, &w.window(), [&] { ++playing; });
    // Faster than they can be converted: some are left out, the newest never is.
    constexpr int kMany = 40;
    QList<QImage> pictures;
    for (int i = 1; i <= kMany; ++i)
        pictures << CameraWindow::picture(i);
    for (const QImage& picture : pictures)
        QVERIFY(w.camera().send(picture));
    QTRY_COMPARE(w.shown(), pictures.last());
    QVERIFY(playing >= 1);
    QCOMPARE(playing + w.view().feed().droppedFrames(), kMany);
    QVERIFY(w.view().feed().droppedFrames() > 0);
}

void TestCamera::frozenPictureStays()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    int standing = 0;
    QObject::connect(&w.kernel(), &LmKSKernelData::signalFrameReadyStop, &w.window(), [&] { ++standing; });
    w.freeze();
    QVERIFY(w.actions().theFreeze->isChecked());
    QCOMPARE(standing, 1);
    w.send(CameraWindow::picture(1));
    QCOMPARE(w.shown(), CameraWindow::picture(0));
    // What is taken then is what is seen.
    w.take();
    QCOMPARE(w.takenFiles().size(), 1);
    QCOMPARE(QImage(w.takenFiles().first()).convertToFormat(QImage::Format_RGB888), CameraWindow::picture(0));
    QCOMPARE(w.frame(), 1);
    QCOMPARE(w.shown(), CameraWindow::picture(0));
    w.freeze();
    w.send(CameraWindow::picture(2));
    QCOMPARE(w.shown(), CameraWindow::picture(2));
}

void TestCamera::takenPicturesAreTheFilesOfASeries()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    for (int i = 1; i <= 3; ++i) {
        w.send(CameraWindow::picture(i));
        w.take();
        QCOMPARE(w.frameCount(), i + 1);
        QCOMPARE(w.kernel().theFrameCount, i + 1);
        QCOMPARE(w.frame(), i);
        QCOMPARE(int(w.kernel().theCurrentFrame), i);
        QCOMPARE(w.field("frame"), QStringLiteral("Frame %1 of %1").arg(i + 1));
    }
    const QStringList files = w.takenFiles();
    QCOMPARE(files.size(), 3);
    for (int i = 1; i <= 3; ++i) {
        QVERIFY(files[i - 1].endsWith(QStringLiteral("/000%1.png").arg(i)));
        QCOMPARE(QImage(files[i - 1]).convertToFormat(QImage::Format_RGB888), CameraWindow::picture(i));
        // The screen's resolution is none of the camera.
        QVERIFY(!MadeFiles::read(files[i - 1]).contains("pHYs"));
    }
    QVERIFY(w.told().contains(QStringLiteral("Picture 3")));
    QVERIFY(w.window().findChild<QDockWidget*>(QStringLiteral("timelineDock"))->isVisible());
}

void TestCamera::takenFrameStaysWhileTheCameraRuns()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.take();
    w.send(CameraWindow::picture(1));
    w.take();
    w.send(CameraWindow::picture(2));
    w.actions().thePreviousFrame->trigger();
    QCOMPARE(w.frame(), 1);
    QCOMPARE(w.shown(), CameraWindow::picture(1));
    QVERIFY(!w.actions().theTakePicture->isEnabled());
    QVERIFY(!w.actions().theFreeze->isEnabled());
    w.send(CameraWindow::picture(3));
    QCOMPARE(w.frame(), 1);
    QCOMPARE(w.shown(), CameraWindow::picture(1));
    QCOMPARE(w.draw(QPoint(50, 50), QPoint(150, 50)), 1);
    w.actions().thePreviousFrame->trigger();
    QCOMPARE(w.shown(), CameraWindow::picture(0));
    w.actions().theNextFrame->trigger();
    w.actions().theNextFrame->trigger();
    QCOMPARE(w.frame(), 2);
    QCOMPARE(w.shown(), CameraWindow::picture(3));
    w.send(CameraWindow::picture(4));
    QCOMPARE(w.shown(), CameraWindow::picture(4));
    QVERIFY(w.actions().theTakePicture->isEnabled());
}

void TestCamera::hiddenTimeLineStaysHidden()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    auto* dock = w.window().findChild<QDockWidget*>(QStringLiteral("timelineDock"));
    QVERIFY(!dock->isVisible());
    w.take();
    QVERIFY(dock->isVisible());
    dock->hide();
    w.take();
    QVERIFY(!dock->isVisible());
}

void TestCamera::frameNumberCanBeTypedWhileTheCameraRuns()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.take();
    w.take();
    auto* number = w.window().findChild<QSpinBox*>(QStringLiteral("frameNumber"));
    number->setFocus();
    number->selectAll();
    QTest::keyClicks(number, QStringLiteral("1"));
    w.send(CameraWindow::picture(1));
    QCOMPARE(w.frame(), 2);
    QTest::keyClick(number, Qt::Key_Return);
    QCOMPARE(w.frame(), 0);
}

void TestCamera::playingEndsAtTheLivePicture()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.take();
    w.send(CameraWindow::picture(1));
    w.take();
    w.send(CameraWindow::picture(2));
    auto* timeline = w.window().findChild<TimelineDock*>();
    timeline->player().play();
    QVERIFY(timeline->player().isPlaying());
    QCOMPARE(w.frame(), 0);
    w.send(CameraWindow::picture(3));
    QTRY_VERIFY(!timeline->player().isPlaying());
    QCOMPARE(w.frame(), 2);
    QCOMPARE(w.shown(), CameraWindow::picture(3));
    // A change of the resolution meanwhile ends it too.
    timeline->player().play();
    w.send(CameraWindow::picture(4, QSize(200, 150)));
    QVERIFY(!timeline->player().isPlaying());
    QCOMPARE(w.shown(), CameraWindow::picture(4, QSize(200, 150)));
}

void TestCamera::colorUnderThePointerFollows()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.move(QPoint(100, 50));
    QCOMPARE(w.field("pixelColor"), QStringLiteral("R 100  G 50  B 0"));
    w.send(CameraWindow::picture(1));
    QCOMPARE(w.field("pixelColor"), QStringLiteral("R 140  G 150  B 40"));
}

void TestCamera::cameraIsNoRecentFile()
{
    CameraWindow w;
    const QVariant before = QSettings().value(QStringLiteral("recentFiles"));
    w.goLive(CameraWindow::picture(0));
    w.take();
    QCOMPARE(QSettings().value(QStringLiteral("recentFiles")), before);
}

MEASURE_TEST_MAIN(TestCamera)
#include "TestCamera.moc"
