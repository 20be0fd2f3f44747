#include "Player.h"

#include "LmImage.h"
#include "Media.h"

#include <cmath>

namespace {

// No screen shows more pictures a second than it can be told apart; faster videos leave frames out.
constexpr double kShortestStay = 1.0 / 60.0;

} // namespace

Player::Player(Media& aMedia, QObject* aParent) : QObject(aParent), theMedia(aMedia)
{
    theDueTimer.setSingleShot(true);
    theDueTimer.setTimerType(Qt::PreciseTimer);
    connect(&theDueTimer, &QTimer::timeout, this, &Player::showFetched);
    connect(&theFetcher, &FrameFetcher::fetched, this, &Player::frameFetched);
    connect(&theMedia, &Media::aboutToRead, this, &Player::halt);
    connect(&theMedia, &Media::aboutToLeave, this, &Player::halt);
}

Player::~Player()
{
    theFetcher.cancel();
}

void Player::play()
{
    if (thePlaying || !theMedia.source() || theMedia.frameCount() < 2)
        return;
    QString error;
    if (theMedia.frame() + 1 >= theMedia.frameCount() && !theMedia.showFrame(0, error)) {
        Q_EMIT failed(error);
        return;
    }
    thePlaying = true;
    theDropped = 0;
    startClock();
    fetchNext();
    Q_EMIT playingChanged(true);
}

void Player::stop()
{
    if (!thePlaying)
        return;
    halt();
    QString error;
    if (!theMedia.showFrame(theMedia.frame(), error))
        Q_EMIT failed(error);
}

void Player::halt()
{
    theDueTimer.stop();
    theFetcher.cancel();
    if (!std::exchange(thePlaying, false))
        return;
    Q_EMIT playingChanged(false);
}

void Player::setSpeed(double aSpeed)
{
    // The time goes on from where it is, which at the seam of a loop lies before the first frame.
    if (thePlaying)
        theStart = now();
    theSpeed = qBound(kSlowest, aSpeed, kFastest);
    theClock.restart();
    if (theDueTimer.isActive())
        frameFetched(theFetched);
}

double Player::timeOf(int aFrame) const
{
    const FrameTimes& times = theMedia.times();
    return times.isEmpty() ? aFrame / kPictureRate : times.at(aFrame);
}

int Player::frameAt(double aSeconds) const
{
    const FrameTimes& times = theMedia.times();
    return times.isEmpty() ? int(std::floor(aSeconds * kPictureRate)) : times.frameAt(aSeconds);
}

double Player::now() const
{
    return theStart + theSpeed * double(theClock.nsecsElapsed()) * 1e-9;
}

void Player::startClock()
{
    theStart = timeOf(theMedia.frame());
    theClock.start();
}

void Player::fetchNext()
{
    const int shown = theMedia.frame();
    const int last = theMedia.frameCount() - 1;
    const int wanted = qMin(qMax(shown + 1, frameAt(timeOf(shown) + theSpeed * kShortestStay)), last);
    const int due = qMin(frameAt(now()), last);
    theDropped += qMax(0, due - wanted);
    theFetcher.fetch(*theMedia.source(), qMax(wanted, due));
}

void Player::frameFetched(int aFrame)
{
    theFetched = aFrame;
    const double wait = (timeOf(aFrame) - now()) / theSpeed;
    theDueTimer.start(qMax(0, int(std::lround(wait * 1000.0))));
}

void Player::showFetched()
{
    std::unique_ptr<LmImage> image = theFetcher.takeImage();
    if (!image) {
        const QString error = theFetcher.error();
        stop();
        Q_EMIT failed(error);
        return;
    }
    theMedia.showPlayed(std::move(image), theFetched);
    if (!thePlaying)
        return;
    if (theFetched + 1 < theMedia.frameCount())
        fetchNext();
    else
        reachEnd();
}

void Player::reachEnd()
{
    if (!theLooping) {
        stop();
        return;
    }
    // The last frame stays its time before the first comes again.
    const FrameTimes& times = theMedia.times();
    const double stay = times.isEmpty() ? 1.0 / kPictureRate : times.end() - times.at(times.count() - 1);
    theStart = timeOf(0) - stay;
    theClock.start();
    theFetcher.fetch(*theMedia.source(), 0);
}
