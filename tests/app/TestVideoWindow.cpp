#include "ClipNumber.h"
#include "ClipWriter.h"
#include "Document.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "ModalAnswer.h"
#include "Player.h"
#include "Sentence.h"
#include "TestFont.h"
#include "TimelineDock.h"
#include "TimelineView.h"
#include "WindowFixture.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolBar>
#include <QtTest>

#include <algorithm>

namespace {

constexpr int kFrames = 60;

/// A window with a clip of 25 frames a second, whose frames carry their numbers.
class VideoWindow : public WindowFixture
{
public:
    VideoWindow() : WindowFixture(kEmpty)
    {
        if (!ClipWriter::write(clip(), options()) || !window().openAtStart(clip()))
            QTest::qFail("the clip couldn't be made or opened", __FILE__, __LINE__);
    }

    static ClipOptions options()
    {
        ClipOptions options;
        options.count = kFrames;
        options.bFrames = 2;
        return options;
    }
    QString clip() { return path(QStringLiteral("clip.mp4")); }
    Media& media() { return bench().media(); }
    /// The number on the frame that is shown.
    int number() { return ClipNumber::read(*media().image()); }
    QSpinBox& frameField() { return *window().findChild<QSpinBox*>(QStringLiteral("frameNumber")); }
    QLineEdit& timeField() { return *window().findChild<QLineEdit*>(QStringLiteral("frameTime")); }
    Player& player() { return window().findChild<TimelineDock*>()->player(); }
    QString message() { return window().statusBar()->currentMessage(); }
    QString saved(const QString& aName)
    {
        QString error;
        if (!bench().document().save(path(aName), error))
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
        return path(aName);
    }
};

void typeTime(VideoWindow& aFixture, const QString& aText)
{
    QLineEdit& field = aFixture.timeField();
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, aText);
    QTest::keyClick(&field, Qt::Key_Return);
}

} // namespace

/// Measuring on a video in the window.
class TestVideoWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstFrameIsShown();
    void framesAreSteppedBothWays();
    void typedFrameAndTimeAreShown();
    void shownTimeLeadsToItsFrame();
    void wrongTimeIsTakenBack();
    void playedFramesAreTheRightOnes();
    void standingFrameHasItsExactColours();
    void movingThingIsMeasuredOnSeveralFrames();
    void projectWithAVideoComesBack();
    void missingVideoLeavesTheObjectsOpen();
    void videoOfAnotherLengthIsTold();
    void locatedVideoOfAnotherLengthIsTold();
    void variableRateIsTold();
    void cutVideoIsOpenedAsFarAsItGoes();
    void damagedFrameIsToldAndSteppedOver_data();
    void damagedFrameIsToldAndSteppedOver();
    void badVideosAreRefusedAndThePresentOneStays_data();
    void badVideosAreRefusedAndThePresentOneStays();
    void videoOfOneFrameIsAPicture();
};

void TestVideoWindow::firstFrameIsShown()
{
    VideoWindow f;
    QCOMPARE(f.number(), 0);
    QCOMPARE(f.media().frameCount(), kFrames);
    QCOMPARE(f.kernel().theFrameCount, kFrames);
    QCOMPARE(f.kernel().theMediaFile, f.clip());
    QCOMPARE(f.timeField().text(), QStringLiteral("0.000 s"));
    QVERIFY(f.timeField().isVisible());
}

void TestVideoWindow::framesAreSteppedBothWays()
{
    VideoWindow f;
    f.key(Qt::Key_PageDown);
    f.key(Qt::Key_PageDown);
    QCOMPARE(f.number(), 2);
    f.key(Qt::Key_PageUp);
    QCOMPARE(f.number(), 1);
    QCOMPARE(f.timeField().text(), QStringLiteral("0.040 s"));
}

void TestVideoWindow::typedFrameAndTimeAreShown()
{
    VideoWindow f;
    f.frameField().setValue(40);
    QCOMPARE(f.number(), 39);
    typeTime(f, QStringLiteral("0.5"));
    QCOMPARE(f.number(), 12); // the frame of 0.48 s is on the screen then
    typeTime(f, QStringLiteral("0:02"));
    QCOMPARE(f.number(), 50);
    typeTime(f, QStringLiteral("1000"));
    QCOMPARE(f.number(), kFrames - 1);
}

/// Times of 30 frames a second are written rounded.
void TestVideoWindow::shownTimeLeadsToItsFrame()
{
    VideoWindow f;
    ClipOptions options = VideoWindow::options();
    options.rate = 30;
    QVERIFY(ClipWriter::write(f.path(QStringLiteral("thirty.mp4")), options));
    QVERIFY(f.window().openAtStart(f.path(QStringLiteral("thirty.mp4"))));
    for (int frame = 1; frame < 8; ++frame) {
        f.frameField().setValue(frame + 1);
        const QString shown = f.timeField().text();
        f.frameField().setValue(1);
        typeTime(f, shown);
        QCOMPARE(f.frameField().value(), frame + 1);
    }
    const auto* bar = f.window().findChild<QToolBar*>(QStringLiteral("frameBar"));
    const QList<QLabel*> labels = bar->findChildren<QLabel*>();
    QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel* aLabel) {
        return aLabel->text().contains(QStringLiteral("30 fps"));
    }));
}

void TestVideoWindow::wrongTimeIsTakenBack()
{
    VideoWindow f;
    f.frameField().setValue(11);
    ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    typeTime(f, QStringLiteral("soon"));
    QVERIFY(answer.isDone());
    const QString fault = sentenceFault(ModalAnswer::lastText());
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
    QCOMPARE(f.number(), 10);
    QCOMPARE(f.timeField().text(), QStringLiteral("0.400 s"));
}

void TestVideoWindow::playedFramesAreTheRightOnes()
{
    VideoWindow f;
    QList<QPair<long long, int>> shown;
    QObject watch;
    connect(&f.kernel(), &LmKSKernelData::signalFrameReadyPlayout, &watch, [&](Int64 aFrame) {
        shown.append({aFrame, f.number()});
    });
    for (const double speed : {1.0, 8.0}) {
        f.player().setSpeed(speed);
        f.frameField().setValue(speed > 1.0 ? 1 : kFrames - 10);
        f.player().play();
        QTRY_VERIFY(!f.player().isPlaying());
    }
    QVERIFY(shown.size() > 2);
    for (const auto& [frame, number] : std::as_const(shown))
        QCOMPARE(number, int(frame));
}

void TestVideoWindow::standingFrameHasItsExactColours()
{
    VideoWindow f;
    f.player().setSpeed(8.0);
    f.player().play();
    QTRY_VERIFY(!f.player().isPlaying());
    const LmImage* played = f.media().image();
    const QByteArray stood(reinterpret_cast<const char*>(played->row(0)), played->bytesPerLine());
    f.frameField().setValue(1);
    f.frameField().setValue(kFrames);
    const LmImage* exact = f.media().image();
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(exact->row(0)), exact->bytesPerLine()), stood);
}

void TestVideoWindow::movingThingIsMeasuredOnSeveralFrames()
{
    VideoWindow f;
    f.draw(QPoint(50, 50), QPoint(150, 50));
    f.window().findChild<QAction*>(QStringLiteral("animate-object"))->trigger();
    f.frameField().setValue(26); // one second on
    f.drag(QPoint(150, 50), QPoint(250, 50));
    QCOMPARE(f.distance(1)->getKeyframedFrames(), (QList<long long>{0, 25}));
    const auto length = [&f] { return f.distanceTool()->getCvObject(1)->labelText(); };
    QCOMPARE(length(), QStringLiteral(" 1 <200.00> "));
    f.frameField().setValue(1);
    QCOMPARE(length(), QStringLiteral(" 1 <100.00> "));
    f.frameField().setValue(kFrames);
    QCOMPARE(length(), QStringLiteral(" 1 <200.00> "));
}

void TestVideoWindow::projectWithAVideoComesBack()
{
    VideoWindow f;
    f.draw(QPoint(50, 50), QPoint(150, 50));
    f.frameField().setValue(31);
    const QString project = f.saved(QStringLiteral("video.mtp"));
    QVERIFY(f.window().openAtStart(project));
    QCOMPARE(f.number(), 30);
    QCOMPARE(f.distanceCount(), 1);
    QVERIFY(!f.bench().document().isPictureMissing());
}

void TestVideoWindow::missingVideoLeavesTheObjectsOpen()
{
    VideoWindow f;
    f.draw(QPoint(50, 50), QPoint(150, 50));
    f.window().findChild<QAction*>(QStringLiteral("animate-object"))->trigger();
    f.frameField().setValue(31);
    const QString project = f.saved(QStringLiteral("video.mtp"));
    const QString moved = f.path(QStringLiteral("moved.mp4"));
    QVERIFY(QFile::rename(f.clip(), moved));
    ModalAnswer answer(ModalAnswer::press(QStringLiteral("Not Now")));
    QVERIFY(f.window().openAtStart(project));
    QVERIFY(answer.isDone());
    QVERIFY(f.bench().document().isPictureMissing());
    QCOMPARE(f.media().frameCount(), kFrames);
    QCOMPARE(f.frameField().value(), 31);
    QCOMPARE(f.distanceCount(), 1);
    f.key(Qt::Key_PageDown);
    QCOMPARE(f.kernel().theCurrentFrame, 31U);

    QString error;
    QVERIFY2(f.bench().document().locatePicture(moved, error), qPrintable(error));
    QCOMPARE(f.number(), 31);
    QCOMPARE(f.distanceCount(), 1);
}

void TestVideoWindow::videoOfAnotherLengthIsTold()
{
    VideoWindow f;
    f.frameField().setValue(kFrames);
    const QString project = f.saved(QStringLiteral("video.mtp"));
    ClipOptions shorter = VideoWindow::options();
    shorter.count = 20;
    QVERIFY(f.window().openAtStart(f.picturePath()));
    QVERIFY(ClipWriter::write(f.clip(), shorter));
    ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    QVERIFY(f.window().openAtStart(project));
    QVERIFY(answer.isDone());
    QVERIFY2(ModalAnswer::lastText().contains(QStringLiteral("has 20 frames instead of 60")),
             qPrintable(ModalAnswer::lastText()));
    QVERIFY2(sentenceFault(ModalAnswer::lastText()).isEmpty(),
             qPrintable(sentenceFault(ModalAnswer::lastText())));
    QCOMPARE(f.number(), 19);
}

void TestVideoWindow::locatedVideoOfAnotherLengthIsTold()
{
    VideoWindow f;
    f.draw(QPoint(50, 50), QPoint(150, 50));
    f.window().findChild<QAction*>(QStringLiteral("animate-object"))->trigger();
    f.frameField().setValue(41);
    f.window().findChild<QAction*>(QStringLiteral("set-keyframe"))->trigger();
    f.frameField().setValue(1);
    const QString project = f.saved(QStringLiteral("video.mtp"));
    QVERIFY(QFile::remove(f.clip()));
    ModalAnswer answer(ModalAnswer::press(QStringLiteral("Not Now")));
    QVERIFY(f.window().openAtStart(project));
    QVERIFY(answer.isDone());
    f.click(QPoint(100, 50));
    const QAction* next = f.window().findChild<QAction*>(QStringLiteral("next-keyframe"));
    QVERIFY(next->isEnabled());

    ClipOptions shorter = VideoWindow::options();
    shorter.count = 20;
    const QString other = f.path(QStringLiteral("shorter.mp4"));
    QVERIFY(ClipWriter::write(other, shorter));
    QString error;
    QVERIFY(f.bench().document().locatePicture(other, error));
    QVERIFY2(error.contains(QStringLiteral("20 frames instead of 60")), qPrintable(error));
    QCOMPARE(sentenceFault(error), QString());
    // There is no such frame any more.
    QVERIFY(!next->isEnabled());
}

void TestVideoWindow::variableRateIsTold()
{
    VideoWindow f;
    QVERIFY(f.message().isEmpty());
    ClipOptions options = VideoWindow::options();
    options.ticksPerSecond = 1000;
    for (int frame = 0; frame < options.count; ++frame)
        options.stamps.push_back(frame * 40 + (frame > 30 ? 100 : 0));
    const QString path = f.path(QStringLiteral("variable.mkv"));
    QVERIFY(ClipWriter::write(path, options));
    QVERIFY(f.window().openAtStart(path));
    QVERIFY2(f.message().contains(QStringLiteral("variable rate")), qPrintable(f.message()));
}

void TestVideoWindow::cutVideoIsOpenedAsFarAsItGoes()
{
    VideoWindow f;
    const QString whole = f.path(QStringLiteral("whole.mkv"));
    QVERIFY(ClipWriter::write(whole, VideoWindow::options()));
    const QByteArray bytes = MadeFiles::read(whole);
    const QString cut = f.path(QStringLiteral("cut.mkv"));
    MadeFiles::write(cut, bytes.left(bytes.size() / 2));
    QVERIFY(f.window().openAtStart(cut));
    QVERIFY2(f.message().contains(QStringLiteral("cut off")), qPrintable(f.message()));
    const int count = f.media().frameCount();
    QVERIFY(count > 10 && count < kFrames);
    f.frameField().setValue(10);
    QCOMPARE(f.number(), 9);
}

void TestVideoWindow::damagedFrameIsToldAndSteppedOver_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("with stamps") << "damaged.mkv";
    QTest::newRow("without") << "damaged.avi";
}

void TestVideoWindow::damagedFrameIsToldAndSteppedOver()
{
    QFETCH(QString, name);
    VideoWindow f;
    ClipOptions options = VideoWindow::options();
    options.codec = QStringLiteral("mjpeg"); // every frame stands for itself
    options.pixelFormat = QStringLiteral("yuvj420p");
    options.bFrames = 0;
    const QString path = f.path(name);
    QVERIFY(ClipWriter::write(path, options));
    QByteArray bytes = MadeFiles::read(path);
    // The beginning of the sixth picture, with all that tells the decoder what it is.
    qsizetype at = 0;
    for (int frame = 0; frame < 6; ++frame)
        at = bytes.indexOf(QByteArray::fromHex("ffd8ff"), at + 1);
    QVERIFY(at > 0);
    bytes.replace(at, 300, QByteArray(300, '\0'));
    MadeFiles::write(path, bytes);
    QVERIFY(f.window().openAtStart(path));
    for (int frame = 1; frame <= 5; ++frame)
        f.key(Qt::Key_PageDown);
    QCOMPARE(f.kernel().theCurrentFrame, 5U);
    QVERIFY2(f.message().contains(QStringLiteral("Frame 6 ")), qPrintable(f.message()));
    f.key(Qt::Key_PageDown);
    QCOMPARE(f.number(), 6);
}

void TestVideoWindow::badVideosAreRefusedAndThePresentOneStays_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("this is no video, whatever its name says\n").repeated(50);
    QTest::newRow("zeros") << QByteArray(5000, '\0');
    QTest::newRow("without its index") << QByteArray("cut");
}

void TestVideoWindow::badVideosAreRefusedAndThePresentOneStays()
{
    QFETCH(QByteArray, bytes);
    VideoWindow f;
    f.draw(QPoint(50, 50), QPoint(150, 50));
    f.saved(QStringLiteral("before.mtp"));
    // The index of an MP4 file stands at its end.
    const QByteArray whole = MadeFiles::read(f.clip());
    const QString bad = f.path(QStringLiteral("bad.mp4"));
    MadeFiles::write(bad, bytes == "cut" ? whole.left(whole.size() / 2) : bytes);
    ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    QVERIFY(!f.window().openAtStart(bad));
    QVERIFY(answer.isDone());
    QVERIFY2(sentenceFault(ModalAnswer::lastText()).isEmpty(),
             qPrintable(sentenceFault(ModalAnswer::lastText())));
    QCOMPARE(f.media().path(), f.clip());
    QCOMPARE(f.distanceCount(), 1);
    f.key(Qt::Key_PageDown);
    QCOMPARE(f.number(), 1);
}

void TestVideoWindow::videoOfOneFrameIsAPicture()
{
    VideoWindow f;
    ClipOptions options = VideoWindow::options();
    options.count = 1;
    options.bFrames = 0;
    const QString path = f.path(QStringLiteral("one.mp4"));
    QVERIFY(ClipWriter::write(path, options));
    QVERIFY(f.window().openAtStart(path));
    QCOMPARE(f.number(), 0);
    QVERIFY(!f.window().findChild<TimelineDock*>()->isVisible());
    QVERIFY(!f.actions().theNextFrame->isEnabled());
}

MEASURE_TEST_MAIN(TestVideoWindow)
#include "TestVideoWindow.moc"
