// Colour models of LmImageProcessor.
#include "LmImageProcessor.h"

#include "ImageRegion.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>

namespace {

// Rows are converted in strips of about so many pixels: enough for all processors, and little memory.
constexpr int kStripPixels = 1 << 18;

/// The region of an image as OpenCV sees it, on the same bytes.
cv::Mat regionMat(LmImage& aImage)
{
    return cv::Mat(aImage.theRoiHeight, aImage.theRoiWidth, CV_8UC(aImage.channels()),
                   ImageRegion::row(aImage, 0), size_t(aImage.bytesPerLine()));
}

/// The three channels of aHls over the first three of the target; a fourth one comes from the source.
void putHls(const cv::Mat& aHls, const cv::Mat& aSource, cv::Mat& aTarget)
{
    if (aTarget.channels() == 3) {
        aHls.copyTo(aTarget);
        return;
    }
    const cv::Mat sources[] = {aHls, aSource};
    constexpr int kAlphaOfBoth = 3 + 3;
    const int channels[] = {0, 0, 1, 1, 2, 2, kAlphaOfBoth, 3};
    cv::mixChannels(sources, 2, &aTarget, 1, channels, 4);
}

} // namespace

bool LmImageProcessor::RGBtoHLS(LmImage* aSource, LmImage* aTarget)
{
    if (!aTarget)
        aTarget = aSource;
    if (!aSource || !ImageRegion::sameSize(*aSource, *aTarget) || aSource->channels() != aTarget->channels())
        return reject("RGBtoHLS: the regions or channels of the two images differ");
    if (aSource->channels() < 3)
        return reject("RGBtoHLS: the image has no colours");
    const cv::Mat source = regionMat(*aSource);
    cv::Mat target = regionMat(*aTarget);
    const int stripRows = std::max(1, kStripPixels / source.cols);
    cv::Mat hls;
    for (int top = 0; top < source.rows; top += stripRows) {
        const cv::Range rows(top, std::min(top + stripRows, source.rows));
        cv::Mat part = target.rowRange(rows);
        cv::cvtColor(source.rowRange(rows), hls, cv::COLOR_RGB2HLS_FULL);
        putHls(hls, source.rowRange(rows), part);
    }
    return true;
}
