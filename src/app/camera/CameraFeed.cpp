#include "CameraFeed.h"

#include "LmImage.h"

#include <new>
#include <utility>

CameraFeed::CameraFeed(QObject* aParent) : QObject(aParent) {}

CameraFeed::~CameraFeed()
{
    if (theSink)
        theSink->disconnect(this);
    drop();
    theThread.quit();
    theThread.wait();
}

QVideoSink& CameraFeed::sink()
{
    if (theSink)
        return *theSink;
    theWorker = new QObject;
    theWorker->moveToThread(&theThread);
    connect(&theThread, &QThread::finished, theWorker, &QObject::deleteLater);
    theThread.start();
    theSink = std::make_unique<QVideoSink>();
    // Not sent as an event: those would queue up where the frames come too fast.
    connect(theSink.get(), &QVideoSink::videoFrameChanged, this, &CameraFeed::keep, Qt::DirectConnection);
    return *theSink;
}

void CameraFeed::keep(const QVideoFrame& aFrame)
{
    if (!aFrame.isValid()) // a camera that stops sends one
        return;
    const QMutexLocker lock(&theMutex);
    if (theFrame.isValid())
        ++theDropped;
    theFrame = aFrame;
    if (std::exchange(theConverting, true))
        return;
    QMetaObject::invokeMethod(
        theWorker, [this] { convertKept(); }, Qt::QueuedConnection);
}

/// In the worker's thread, until no frame waits any more.
void CameraFeed::convertKept()
{
    for (;;) {
        QMutexLocker lock(&theMutex);
        const QVideoFrame frame = std::exchange(theFrame, QVideoFrame());
        const int run = theRun;
        if (!frame.isValid()) {
            theConverting = false;
            return;
        }
        lock.unlock();
        std::unique_ptr<LmImage> image;
        try {
            image = thePixels.convert(frame);
        } catch (const std::bad_alloc&) {
            // The next frame may fare better.
        }
        offer(std::move(image), run);
    }
}

void CameraFeed::offer(std::unique_ptr<LmImage> aImage, int aRun)
{
    const QMutexLocker lock(&theMutex);
    if (!aImage || aRun != theRun) {
        ++theDropped;
        return;
    }
    if (theImage)
        ++theDropped;
    theImage = std::move(aImage);
    if (!std::exchange(theTold, true))
        QMetaObject::invokeMethod(this, &CameraFeed::arrived, Qt::QueuedConnection);
}

std::unique_ptr<LmImage> CameraFeed::take()
{
    const QMutexLocker lock(&theMutex);
    theTold = false;
    return std::move(theImage);
}

void CameraFeed::drop()
{
    const QMutexLocker lock(&theMutex);
    ++theRun;
    theFrame = QVideoFrame();
    theImage.reset();
}

int CameraFeed::droppedFrames() const
{
    const QMutexLocker lock(&theMutex);
    return theDropped;
}
