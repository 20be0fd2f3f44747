#ifndef PLAYER_H
#define PLAYER_H

#include "FrameFetcher.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class Media;

/// Plays the frames of the media in their own time, faster or slower. Frames that would come too late are
/// left out, so that the time is always right; whoever asks the media for a frame meanwhile stops the player.
class Player : public QObject
{
    Q_OBJECT

public:
    static constexpr double kSlowest = 1.0 / 8.0;
    static constexpr double kFastest = 8.0;
    /// Frames a second of pictures, which have no times.
    static constexpr double kPictureRate = 10.0;

    Player(Media& aMedia, QObject* aParent);
    ~Player() override;

    bool isPlaying() const { return thePlaying; }
    double speed() const { return theSpeed; }
    bool isLooping() const { return theLooping; }
    /// Frames that would have come too late since play(); those that no screen could show don't count.
    int droppedFrames() const { return theDropped; }

    /// From the present frame on, or from the first if that is the last. Nothing happens with fewer than two
    /// frames or without a source.
    void play();
    /// Stands on the frame that is shown, with its exact colours.
    void stop();
    /// Between kSlowest and kFastest; takes effect at once.
    void setSpeed(double aSpeed);
    void setLooping(bool aLooping) { theLooping = aLooping; }

Q_SIGNALS:
    void playingChanged(bool aPlaying);
    void failed(const QString& aError);

private:
    double timeOf(int aFrame) const;
    int frameAt(double aSeconds) const;
    /// Where in the media's time the player should be now.
    double now() const;
    void startClock();
    void fetchNext();
    void frameFetched(int aFrame);
    void showFetched();
    void reachEnd();
    void halt();

    Media& theMedia;
    FrameFetcher theFetcher;
    QTimer theDueTimer;
    QElapsedTimer theClock;
    double theStart = 0.0; // media seconds at the start of the clock
    double theSpeed = 1.0;
    int theFetched = 0;
    int theDropped = 0;
    bool thePlaying = false;
    bool theLooping = false;
};

#endif
