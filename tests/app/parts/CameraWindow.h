#ifndef CAMERAWINDOW_H
#define CAMERAWINDOW_H

#include "InterestWindow.h"

#include <QImage>

class FakeCamera;
class FakeCameras;
class LiveView;

/// A window with the camera "Fake" connected, whose series go into the fixture's own folder.
class CameraWindow : public InterestWindow
{
public:
    static constexpr int kAngleType = 1106;
    static constexpr int kDimensionType = 1112;

    explicit CameraWindow(Start aStart = kEmpty);

    FakeCameras& cameras() { return *theCameras; }
    /// The test is over when there is none.
    FakeCamera& camera();
    LiveView& view();
    QString seriesFolder() const { return path(QStringLiteral("series")); }
    /// The files of all series, in order.
    QStringList takenFiles() const;
    /// Saves the project in the fixture's folder.
    bool save(const QString& aName);

    QMenu& menu();
    /// The entries of the menu when it opens, a separator as "---".
    QStringList menuTexts();
    /// Chooses a camera in the menu.
    bool choose(const QString& aName = QStringLiteral("Fake"));
    /// Chooses the camera and lets it send its first picture.
    void goLive(const QImage& aPicture);
    /// Sends a picture and waits until it has gone through; whether it is on the screen is another matter.
    void send(const QImage& aPicture);
    void take();
    void freeze();

    /// Plain pictures that differ in every pixel.
    static QImage picture(int aNumber, const QSize& aSize = QSize(400, 300));
    /// What is on the screen, as the kernel has it.
    QImage shown();
    int frame();
    int frameCount();
    QString told();
    void pick(int aType);

private:
    FakeCameras* theCameras; // owned by the window
};

#endif
