#ifndef LIVEVIEW_H
#define LIVEVIEW_H

#include "CameraFeed.h"

#include <functional>

class CameraDevice;
class LiveSource;
class Workbench;

/// Shows what a camera streams as the last frame behind the pictures that were taken of it. Whoever stands
/// on a taken picture isn't disturbed, and what the mouse is doing goes on while the picture changes.
class LiveView : public QObject
{
    Q_OBJECT

public:
    LiveView(Workbench& aBench, QObject* aParent);
    ~LiveView() override;

    CameraFeed& feed() { return theFeed; }
    /// Where the folders of the series are made.
    void setPicturesFolder(const QString& aFolder) { thePicturesFolder = aFolder; }

    /// Streams from the camera. Its first picture replaces the present work, if aMayReplace says so then;
    /// but the camera whose last picture is open goes on there.
    void start(std::unique_ptr<CameraDevice> aDevice, const QByteArray& aId,
               const std::function<bool()>& aMayReplace);
    /// Whether the last picture of this camera is open, so that starting it replaces nothing.
    bool goesOnWith(const QByteArray& aId) const { return theSource && theSourceId == aId; }
    /// The last picture stays.
    void stop();
    /// Null while no camera streams.
    CameraDevice* device() const { return theDevice.get(); }
    const QByteArray& deviceId() const { return theDeviceId; }
    /// The device is no more.
    void lose(const QString& aReason);

    /// Whether the frame that is shown is the live one; it stands still when frozen and without a device.
    bool isShown() const;
    bool isFrozen() const { return theFrozen; }
    void setFrozen(bool aFrozen);
    /// Makes the live picture a frame of the series. When that fails nothing has changed.
    bool take(QString& aError);

Q_SIGNALS:
    /// Another device, or none, or another frame than the live one, or the other way round.
    void changed();
    /// One sentence.
    void told(const QString& aText);

protected:
    bool eventFilter(QObject* aObject, QEvent* aEvent) override;

private:
    void pictureArrived();
    void open(std::unique_ptr<LmImage> aImage);
    void show(std::unique_ptr<LmImage> aImage);
    void showResized(std::unique_ptr<LmImage> aImage);
    void showNext();
    void showLast(bool aPlaying);
    /// Whether the mouse holds something on the canvas.
    bool isHeld() const;
    /// Whether somebody is in the middle of something that another document would take away.
    bool isBusy() const;
    bool keepForProject(QString& aError);
    void sourceLeft();

    Workbench& theBench;
    CameraFeed theFeed;
    QString thePicturesFolder;
    std::unique_ptr<CameraDevice> theDevice;
    QByteArray theDeviceId;
    LiveSource* theSource = nullptr; // owned by the media, cleared when it goes
    QByteArray theSourceId;          // of its camera
    std::function<bool()> theMayReplace;
    bool theAsking = false;    // whether the present work may go
    bool theReplacing = false; // the present work is just going
    bool theFrozen = false;
    bool theMouseDown = false; // on the canvas
};

#endif
