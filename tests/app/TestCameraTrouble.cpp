#include "CameraWindow.h"
#include "FakeCameras.h"
#include "LiveView.h"
#include "MadeFiles.h"
#include "Media.h"
#include "ModalAnswer.h"
#include "Sentence.h"
#include "TestFont.h"

#include <QAction>
#include <QRandomGenerator>

#include <csignal>
#include <sys/resource.h>

namespace {

/// Files can't grow beyond so many bytes while it lives, as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(rlim_t aBytes)
    {
        getrlimit(RLIMIT_FSIZE, &theFormer);
        theFormerSignal = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{aBytes, theFormer.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &theFormer);
        std::signal(SIGXFSZ, theFormerSignal);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit theFormer{};
    void (*theFormerSignal)(int) = nullptr;
};

} // namespace

/// A camera, or the folder of its pictures, that is lost, and what ends a live picture.
class TestCameraTrouble : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void folderThatCannotBeMadeIsTold();
    void fullDiskIsTold();
    void cableThatIsPulledLeavesTheLastPicture();
    void cameraThatLeavesTheListLeavesTheLastPicture();
    void cameraThatNeverSentIsTold();
    void sameCameraGoesOn();
    void otherFileStopsTheCamera();
    void fileThatCannotBeOpenedLeavesTheCamera();
    void closedWindowStopsTheCamera();
};

void TestCameraTrouble::folderThatCannotBeMadeIsTold()
{
    CameraWindow w;
    // Nothing can be made below a file.
    w.view().setPicturesFolder(w.picturePath());
    w.goLive(CameraWindow::picture(0));
    ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    w.take();
    QVERIFY(answer.isDone());
    QCOMPARE(sentenceFault(ModalAnswer::lastText()), QString());
    QCOMPARE(w.frameCount(), 1);
    w.send(CameraWindow::picture(1));
    QCOMPARE(w.shown(), CameraWindow::picture(1));
}

void TestCameraTrouble::fullDiskIsTold()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.take();
    QImage noise(400, 300, QImage::Format_RGB888); // which can't be packed
    QRandomGenerator random(1);
    for (int y = 0; y < noise.height(); ++y)
        for (int x = 0; x < noise.bytesPerLine(); ++x)
            noise.scanLine(y)[x] = uchar(random.bounded(256));
    w.send(noise);
    {
        // Room for what the test itself may write meanwhile.
        const FullDisk full(rlim_t(noise.sizeInBytes() / 2));
        ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
        w.take();
        QVERIFY(answer.isDone());
    }
    QCOMPARE(sentenceFault(ModalAnswer::lastText()), QString());
    QCOMPARE(w.frameCount(), 2);
    QCOMPARE(w.takenFiles().size(), 1);
    w.send(CameraWindow::picture(2));
    QCOMPARE(w.shown(), CameraWindow::picture(2));
    w.take();
    QCOMPARE(w.takenFiles().size(), 2);
}

void TestCameraTrouble::cableThatIsPulledLeavesTheLastPicture()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.take();
    w.send(CameraWindow::picture(1));
    w.camera().fail();
    QVERIFY(!w.view().device());
    QVERIFY(w.told().contains(QStringLiteral("the cable was pulled")));
    QCOMPARE(sentenceFault(w.told()), QString());
    QCOMPARE(w.shown(), CameraWindow::picture(1));
    QCOMPARE(w.frameCount(), 2);
    QVERIFY(!w.actions().theFreeze->isEnabled());
    // The last picture can still be kept.
    w.take();
    QCOMPARE(w.takenFiles().size(), 2);
    QTRY_VERIFY(!w.cameras().opened());
}

void TestCameraTrouble::cameraThatLeavesTheListLeavesTheLastPicture()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.cameras().connectCameras({QStringLiteral("Fake"), QStringLiteral("Other")});
    QVERIFY(w.view().device());
    w.cameras().connectCameras({QStringLiteral("Other")});
    QVERIFY(!w.view().device());
    QCOMPARE(w.shown(), CameraWindow::picture(0));
    QVERIFY(w.told().contains(QStringLiteral("disconnected")));
}

void TestCameraTrouble::cameraThatNeverSentIsTold()
{
    CameraWindow w(CameraWindow::kPicture);
    QVERIFY(w.choose());
    w.camera().fail();
    QCOMPARE(sentenceFault(w.told()), QString());
    QVERIFY(w.told().contains(QStringLiteral("the cable was pulled")));
    QCOMPARE(w.bench().media().path(), w.picturePath());
}

void TestCameraTrouble::sameCameraGoesOn()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.take();
    w.draw(QPoint(50, 50), QPoint(150, 50));
    w.camera().fail();
    QVERIFY(w.choose()); // asks nothing, since nothing goes
    w.send(CameraWindow::picture(1));
    QCOMPARE(w.shown(), CameraWindow::picture(1));
    QCOMPARE(w.distanceCount(), 1);
    QCOMPARE(w.frameCount(), 2);
    w.take();
    QCOMPARE(w.takenFiles().size(), 2);
    QVERIFY(w.takenFiles().last().endsWith(QStringLiteral("/0002.png")));
}

void TestCameraTrouble::otherFileStopsTheCamera()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    QVERIFY(w.camera().send(CameraWindow::picture(1)));
    FakeCamera& camera = w.camera();
    QVERIFY(w.window().openAtStart(w.picturePath()));
    QVERIFY(!camera.isRunning());
    QVERIFY(!w.view().device());
    QTRY_VERIFY(!w.cameras().opened());
    QCOMPARE(w.bench().media().path(), w.picturePath());
    QCOMPARE(w.window().windowTitle(), QStringLiteral("picture.png[*] - MeasureTools"));
    QVERIFY(!w.actions().theTakePicture->isEnabled());
}

void TestCameraTrouble::fileThatCannotBeOpenedLeavesTheCamera()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    QVERIFY(!w.window().openAtStart(w.path(QStringLiteral("nothing.png"))));
    QVERIFY(answer.isDone());
    w.send(CameraWindow::picture(1));
    QCOMPARE(w.shown(), CameraWindow::picture(1));
}

void TestCameraTrouble::closedWindowStopsTheCamera()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    FakeCamera& camera = w.camera();
    QVERIFY(w.window().close());
    QVERIFY(!camera.isRunning());
    // And one that goes without having been closed.
    CameraWindow other;
    other.goLive(CameraWindow::picture(0));
    QVERIFY(other.camera().send(CameraWindow::picture(1)));
}

MEASURE_TEST_MAIN(TestCameraTrouble)
#include "TestCameraTrouble.moc"
