#include "FrameFetcher.h"

#include "LmImage.h"
#include "MediaSource.h"

FrameFetcher::FrameFetcher(QObject* aParent) : QObject(aParent), theWorker(new QObject)
{
    theWorker->moveToThread(&theThread);
    connect(&theThread, &QThread::finished, theWorker, &QObject::deleteLater);
    theThread.start();
}

FrameFetcher::~FrameFetcher()
{
    theThread.quit();
    theThread.wait();
}

void FrameFetcher::fetch(MediaSource& aSource, int aFrame)
{
    theFetching = true;
    QMetaObject::invokeMethod(theWorker, [this, &aSource, aFrame, run = ++theRun] {
        theImage = aSource.readQuickFrame(aFrame, theError);
        QMetaObject::invokeMethod(
            this, [this, run, aFrame] { finish(run, aFrame); }, Qt::QueuedConnection);
    });
}

void FrameFetcher::cancel()
{
    if (!theFetching)
        return;
    // What is sent to a thread runs in order, so this returns behind the running read.
    QMetaObject::invokeMethod(
        theWorker, [] {}, Qt::BlockingQueuedConnection);
    theFetching = false;
    theImage.reset();
    ++theRun;
}

std::unique_ptr<LmImage> FrameFetcher::takeImage()
{
    return std::move(theImage);
}

void FrameFetcher::finish(int aRun, int aFrame)
{
    if (aRun != theRun)
        return;
    theFetching = false;
    Q_EMIT fetched(aFrame);
}
