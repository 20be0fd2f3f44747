#ifndef VIDEOORDER_H
#define VIDEOORDER_H

#include "MediaSource.h"

#include <QSize>

#include <vector>

class VideoDecoder;
class VideoIndex;
class VideoInput;

/// Finds out which packets give the frames of a video and in which order they are shown: by their stamps
/// where these are whole and the decoder agrees with them, else by decoding the whole video once.
class VideoOrder
{
public:
    VideoOrder(VideoInput& aInput, VideoDecoder& aDecoder, VideoIndex& aIndex);

    /// aTrustStamps is false where a packet may stand for less or more than one frame. False if the progress
    /// was stopped; the index is left without frames where none can be decoded.
    bool run(bool aTrustStamps, const MediaSource::Progress& aProgress);
    bool isLearned() const { return theLearned; }
    /// Whether the order was learned and something behind the first frame couldn't be decoded, of which
    /// nobody knows whether it was a frame.
    bool mayLackFrames() const { return theLearned && theDamagedLater; }
    /// Of the first decoded frame.
    QSize frameSize() const { return theFrameSize; }

private:
    bool agreesWithDecoder(const std::vector<int>& aOrder);
    bool learn(const MediaSource::Progress& aProgress);
    bool decode(int aCount, const MediaSource::Progress& aProgress);
    void receive();
    void noteDamage();

    VideoInput& theInput;
    VideoDecoder& theDecoder;
    VideoIndex& theIndex;
    std::vector<int> theOutput; // serials in the order in which their frames came out
    std::vector<bool> theSeen;  // of each packet whether its frame came out
    QSize theFrameSize;
    bool theDamaged = false;      // a packet couldn't be decoded
    bool theDamagedLater = false; // behind the first frame
    bool theLearned = false;
};

#endif
