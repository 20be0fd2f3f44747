#include "BackgroundSurface.h"

#include "DeviationCounter.h"
#include "ImageRegion.h"
#include "SmoothSurface.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// Blocks along the longer side. Enough that things of a fiftieth of the picture don't fill the blocks that
// they touch, and few enough that all work on blocks is small beside one look at every pixel.
constexpr int kMostBlocks = 192;
// Pixels looked at in each direction of a block: a median of 25 is steady, however large the block.
constexpr int kSamplesPerSide = 5;

float blockMedian(const LmImage& aGray, int aLeft, int aTop, int aSide)
{
    std::array<unsigned char, size_t(kSamplesPerSide * kSamplesPerSide)> samples{};
    const int right = std::min(aLeft + aSide, aGray.theRoiWidth);
    const int bottom = std::min(aTop + aSide, aGray.theRoiHeight);
    const int perSide = std::min(aSide, kSamplesPerSide);
    size_t count = 0;
    for (int i = 0; i < perSide; ++i) {
        const int y = std::min(aTop + (2 * i + 1) * aSide / (2 * perSide), bottom - 1);
        const unsigned char* row = ImageRegion::row(aGray, y);
        for (int j = 0; j < perSide; ++j)
            samples[count++] = row[std::min(aLeft + (2 * j + 1) * aSide / (2 * perSide), right - 1)];
    }
    const auto middle = samples.begin() + std::ptrdiff_t(count / 2);
    std::nth_element(samples.begin(), middle, samples.begin() + std::ptrdiff_t(count));
    return *middle;
}

/// The noise of the blocks, which are whole numbers.
double blockNoise(const cv::Mat& aBlocks)
{
    DeviationCounter counter;
    for (int y = 0; y < aBlocks.rows; ++y)
        for (int x = 1; x + 1 < aBlocks.cols; ++x) {
            const auto* at = aBlocks.ptr<float>(y) + x;
            counter.add(int(at[-1] - 2.0f * at[0] + at[1]));
        }
    return counter.sigma() / DeviationCounter::kSecondDifference;
}

/// The mean of what has weight around each place; next to nothing where all of that is far away.
cv::Mat smoothMean(const cv::Mat& aValues, const cv::Mat& aWeight)
{
    // Light that varies faster than a surface of few terms is followed over about the first part of the
    // longer side. The second look, which counts little, bridges objects.
    constexpr double kNearPart = 1.0 / 24.0;
    constexpr double kWidePart = 1.0 / 6.0;
    constexpr double kWideWeight = 0.02;
    constexpr double kNoWeight = 0.002;
    const double side = std::max(aValues.cols, aValues.rows);
    cv::Mat sum = cv::Mat::zeros(aValues.size(), CV_32F);
    cv::Mat weightSum(aValues.size(), CV_32F, cv::Scalar(kNoWeight));
    const std::array<std::array<double, 2>, 2> looks{
        {{std::max(1.0, side * kNearPart), 1.0}, {std::max(2.0, side * kWidePart), kWideWeight}}};
    for (const auto& [sigma, share] : looks) {
        cv::Mat blurred;
        cv::GaussianBlur(aValues.mul(aWeight), blurred, cv::Size(), sigma, sigma, cv::BORDER_REPLICATE);
        sum += share * blurred;
        cv::GaussianBlur(aWeight, blurred, cv::Size(), sigma, sigma, cv::BORDER_REPLICATE);
        weightSum += share * blurred;
    }
    return sum / weightSum;
}

} // namespace

BackgroundSurface::BackgroundSurface(const LmImage& aGray)
{
    takeBlocks(aGray);
    fit();
    followGround();
}

void BackgroundSurface::takeBlocks(const LmImage& aGray)
{
    const int longer = std::max(aGray.theRoiWidth, aGray.theRoiHeight);
    theBlockSide = (longer + kMostBlocks - 1) / kMostBlocks;
    theColumns = (aGray.theRoiWidth + theBlockSide - 1) / theBlockSide;
    theRows = (aGray.theRoiHeight + theBlockSide - 1) / theBlockSide;
    theBlocks.reserve(size_t(theColumns) * size_t(theRows));
    for (int y = 0; y < theRows; ++y)
        for (int x = 0; x < theColumns; ++x)
            theBlocks.push_back(blockMedian(aGray, x * theBlockSide, y * theBlockSide, theBlockSide));
}

void BackgroundSurface::fit()
{
    cv::Mat blocks(theRows, theColumns, CV_32F, theBlocks.data());
    // Noise is smoothed away until it is less than a gray level, so that large faint things aren't lost in
    // it.
    constexpr double kMostNoise = 0.7;
    double noise = blockNoise(blocks);
    if (noise > kMostNoise) {
        const double sigma = std::clamp(noise / (kMostNoise * 2.0 * std::sqrt(CV_PI)), 0.5, 3.0);
        cv::GaussianBlur(blocks, blocks, cv::Size(), sigma, sigma, cv::BORDER_REFLECT_101);
        noise /= std::max(1.0, 2.0 * std::sqrt(CV_PI) * sigma);
    }
    const SmoothSurface surface(theBlocks, theColumns, theRows, noise);
    theSpread = surface.spread();
    theSurface = surface.values();
}

void BackgroundSurface::followGround()
{
    // A block farther from the surface than noise would put it shows something else.
    constexpr double kFarthest = 3.5;
    // Each round brings more ground near enough to be known as such.
    constexpr int kRounds = 3;
    const cv::Mat blocks(theRows, theColumns, CV_32F, theBlocks.data());
    cv::Mat surface(theRows, theColumns, CV_32F, theSurface.data());
    for (int round = 0; round < kRounds; ++round) {
        const cv::Mat rest = blocks - surface;
        const cv::Mat near = cv::abs(rest) < kFarthest * theSpread;
        cv::Mat weight;
        near.convertTo(weight, CV_32F, 1.0 / 255.0);
        // Blocks beside an object are partly the object.
        cv::erode(weight, weight, cv::Mat());
        surface += smoothMean(rest, weight);
    }
    theGround.resize(theSurface.size());
    theValues.resize(theSurface.size());
    for (size_t i = 0; i < theSurface.size(); ++i) {
        theGround[i] = std::abs(double(theBlocks[i]) - double(theSurface[i])) < kFarthest * theSpread;
        theValues[i] = cv::saturate_cast<unsigned char>(theSurface[i]);
    }
}
