#ifndef FRAMEFETCHER_H
#define FRAMEFETCHER_H

#include <QObject>
#include <QThread>

#include <memory>

class LmImage;
class MediaSource;

/// Reads frames in a thread of its own, one at a time, so that decoding and painting overlap.
class FrameFetcher : public QObject
{
    Q_OBJECT

public:
    explicit FrameFetcher(QObject* aParent = nullptr);
    ~FrameFetcher() override;

    /// Begins to read the frame for playing; fetched() tells when it is there. The source belongs to the
    /// thread until then or until cancel().
    void fetch(MediaSource& aSource, int aFrame);
    bool isFetching() const { return theFetching; }
    /// Waits for a running read and drops what it gives.
    void cancel();
    /// What fetched() told of; null if it couldn't be read.
    std::unique_ptr<LmImage> takeImage();
    /// Why it couldn't be read, or a flaw in it: one sentence.
    const QString& error() const { return theError; }

Q_SIGNALS:
    void fetched(int aFrame);

private:
    void finish(int aRun, int aFrame);

    QThread theThread;
    QObject* theWorker;                // lives in the thread, which runs what is sent to it
    std::unique_ptr<LmImage> theImage; // written by the thread while theFetching is set
    QString theError;                  // the same
    bool theFetching = false;
    int theRun = 0; // tells a dropped read from the present one
};

#endif
