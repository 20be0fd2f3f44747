// Outlines of what is seen in a picture.
#include "LmImageProcessor.h"

#include "ContourSearch.h"
#include "ImageRegion.h"
#include "LmCVSequence.h"
#include "SeedFlood.h"

#include <algorithm>
#include <array>
#include <exception>

namespace {

bool isCancelled(const std::atomic_bool* aCancel)
{
    return aCancel && aCancel->load();
}

} // namespace

bool LmImageProcessor::findContourSeq(QLinkedList<LmCVSequence>& aList, const LmImage* aGray, int aMinArea,
                                      int aMaxArea, bool, bool, const std::atomic_bool* aCancel)
{
    aList.clear();
    if (!aGray || aGray->channels() != 1 || ImageRegion::isEmpty(*aGray))
        return reject("findContourSeq: the image isn't a gray one with a region");
    try {
        for (const PixelOutline& outline : ContourSearch::outlines(*aGray, aMinArea, aMaxArea, aCancel))
            aList.append(PixelOutlines::sequence(outline, *aGray));
    } catch (const std::exception&) { // in OpenCV, or memory that isn't there
        aList.clear();
        return reject("findContourSeq: the search couldn't be finished");
    }
    if (isCancelled(aCancel))
        aList.clear();
    return !isCancelled(aCancel);
}

bool LmImageProcessor::findContourAt(LmCVSequence& aContour, const LmImage* aImage, QPoint aSeed,
                                     const int aLower[3], const int aUpper[3],
                                     const std::atomic_bool* aCancel)
{
    if (!aImage || !aImage->qRoi().contains(aSeed))
        return reject("findContourAt: the seed lies outside the image's region");
    unsigned char colour[3];
    aImage->getDataAt(aSeed.x(), aSeed.y(), colour[0], colour[1], colour[2], 0);
    SeedFlood::Limits limits;
    for (size_t i = 0; i < 3; ++i) {
        limits.theLeast[i] = std::max(0, colour[i] - std::clamp(aLower[i], 0, 255));
        limits.theGreatest[i] = std::min(255, colour[i] + std::clamp(aUpper[i], 0, 255));
    }
    if (aImage->channels() == 1) {
        limits.theLeast.fill(*std::max_element(limits.theLeast.begin(), limits.theLeast.end()));
        limits.theGreatest.fill(*std::min_element(limits.theGreatest.begin(), limits.theGreatest.end()));
    }
    try {
        const PixelOutline outline = SeedFlood::outline(*aImage, aSeed, limits);
        if (isCancelled(aCancel))
            return false;
        aContour = PixelOutlines::sequence(outline, *aImage);
    } catch (const std::exception&) {
        return reject("findContourAt: the search couldn't be finished");
    }
    return true;
}
