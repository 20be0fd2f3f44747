#ifndef CAMERAFEED_H
#define CAMERAFEED_H

#include "CameraPixels.h"

#include <QMutex>
#include <QObject>
#include <QThread>
#include <QVideoFrame>
#include <QVideoSink>

class LmImage;

/// Turns the frames that a camera puts into the sink into images, in a thread of its own. Only the newest
/// frame waits, and only the newest image: what comes faster than it can be shown is left out.
class CameraFeed : public QObject
{
    Q_OBJECT

public:
    explicit CameraFeed(QObject* aParent);
    ~CameraFeed() override;

    /// Frames may be put into it from any thread. The first call loads the media library, which takes its
    /// time.
    QVideoSink& sink();
    /// The newest image; null if it was taken already.
    std::unique_ptr<LmImage> take();
    /// Drops all that has come until now.
    void drop();
    /// Frames that were left out until now.
    int droppedFrames() const;

Q_SIGNALS:
    /// There is an image to take.
    void arrived();

private:
    void keep(const QVideoFrame& aFrame);
    void convertKept();
    void offer(std::unique_ptr<LmImage> aImage, int aRun);

    mutable QMutex theMutex; // guards all but the sink, the thread and the pixels
    QVideoFrame theFrame;    // waits for its conversion
    std::unique_ptr<LmImage> theImage;
    bool theConverting = false;
    bool theTold = false;
    int theRun = 0;
    int theDropped = 0;

    CameraPixels thePixels; // of the worker's thread
    QThread theThread;
    QObject* theWorker = nullptr;        // lives in the thread
    std::unique_ptr<QVideoSink> theSink; // null before it is wanted
};

#endif
